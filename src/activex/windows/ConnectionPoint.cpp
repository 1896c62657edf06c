#include "activex/windows/ConnectionPoint.h"

#include "activex/windows/Counted.h"

#include <algorithm>

namespace activex {

namespace {

/// The connections of a point at the time of the question.
class Connections final : public Counted<::IEnumConnections> {
public:
    struct Item {
        DWORD cookie;
        ComPointer<::IUnknown> listener;
    };

    explicit Connections(std::vector<Item> items, std::size_t place = 0)
        : items_(std::move(items)), place_(place) {}

    ::HRESULT STDMETHODCALLTYPE Next(::ULONG count, ::CONNECTDATA* items, ::ULONG* fetched) override {
        if (!items || (count != 1 && !fetched)) return E_POINTER;
        ::ULONG given = 0;
        for (; given < count && place_ < items_.size(); ++given, ++place_) {
            items[given].dwCookie = items_[place_].cookie;
            items[given].pUnk = ComPointer<::IUnknown>(items_[place_].listener).detach();
        }
        if (fetched) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    ::HRESULT STDMETHODCALLTYPE Skip(::ULONG count) override {
        const std::size_t left = items_.size() - place_;
        place_ += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    ::HRESULT STDMETHODCALLTYPE Reset() override {
        place_ = 0;
        return S_OK;
    }
    ::HRESULT STDMETHODCALLTYPE Clone(::IEnumConnections** result) override {
        if (!result) return E_POINTER;
        *result = new Connections(items_, place_);
        return S_OK;
    }

private:
    std::vector<Item> items_;
    std::size_t place_;
};

} // namespace

void ConnectionPoint::callEach(const std::function<void(::IUnknown&)>& visit) const {
    // A listener may go, or bring others, while it is called.
    const std::vector<Sink> present = sinks_;
    for (const Sink& sink : present)
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
    *cookie = ++lastCookie_;
    sinks_.push_back({*cookie, std::move(listener)});
    return S_OK;
}

::HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found =
        std::find_if(sinks_.begin(), sinks_.end(), [&](const Sink& sink) { return sink.cookie == cookie; });
    if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
    const Sink leaving = std::move(*found); // its end may come back here
    sinks_.erase(found);
    return S_OK;
}

::HRESULT ConnectionPoint::EnumConnections(::IEnumConnections** result) {
    if (!result) return E_POINTER;
    std::vector<Connections::Item> items;
    for (const Sink& sink : sinks_)
        items.push_back({sink.cookie, sink.listener});
    *result = new Connections(std::move(items));
    return S_OK;
}

} // namespace activex
