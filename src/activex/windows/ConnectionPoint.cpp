#include "activex/windows/ConnectionPoint.h"

#include "activex/windows/Enumerator.h"
#include "activex/windows/Failures.h"

#include <algorithm>

namespace activex {

::CONNECTDATA given(const Connection& held) {
    return {given(held.listener), held.cookie};
}

void ConnectionPoint::callEach(const std::function<void(::IUnknown&)>& visit) const {
    // A listener may go, or bring others, while it is called.
    const std::vector<Connection> present = sinks_;
    for (const Connection& sink : present)
        visit(*sink.listener.get());
}

::HRESULT ConnectionPoint::QueryInterface(REFIID id, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (id != __uuidof(::IUnknown) && id != __uuidof(::IConnectionPoint)) return E_NOINTERFACE;
    AddRef();
    *result = static_cast<::IConnectionPoint*>(this);
    return S_OK;
}

::HRESULT ConnectionPoint::GetConnectionInterface(::IID* result) {
    if (!result) return E_POINTER;
    *result = native(id_);
    return S_OK;
}

::HRESULT ConnectionPoint::GetConnectionPointContainer(::IConnectionPointContainer** result) {
    if (!result) return E_POINTER;
    owner_.AddRef();
    *result = &owner_;
    return S_OK;
}

::HRESULT ConnectionPoint::Advise(::IUnknown* sink, DWORD* cookie) {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    ComPointer<::IUnknown> listener;
    sink->QueryInterface(native(id_), listener.address());
    if (!listener && native(id_) != __uuidof(::IPropertyNotifySink))
        sink->QueryInterface(__uuidof(::IDispatch), listener.address());
    if (!listener) return CONNECT_E_CANNOTCONNECT;
    return guarded([&]() -> ::HRESULT {
        sinks_.push_back({lastCookie_ + 1, std::move(listener)});
        *cookie = ++lastCookie_;
        return S_OK;
    });
}

::HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = std::find_if(sinks_.begin(), sinks_.end(),
                                    [&](const Connection& sink) { return sink.cookie == cookie; });
    if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
    const Connection leaving = std::move(*found); // its end may come back here
    sinks_.erase(found);
    return S_OK;
}

::HRESULT ConnectionPoint::EnumConnections(::IEnumConnections** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    return guarded([&]() -> ::HRESULT {
        *result = new Enumerator<::IEnumConnections, ::CONNECTDATA, Connection>(sinks_);
        return S_OK;
    });
}

} // namespace activex
