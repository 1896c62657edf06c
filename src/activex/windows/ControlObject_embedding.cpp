// A control as an embedded object: its site, its size, its words.

#include "activex/windows/ControlObject.h"
#include "activex/windows/Failures.h"
#include "activex/windows/Registration.h"

#include <cmath>
#include <cstring>

namespace activex {

namespace {

constexpr double himetricPerInch = 2540.0;

int dotsPerInch(host::Axis axis) {
    return static_cast<int>(std::lround(host::TwipsPerInch / host::twipsPerPixel(axis)));
}

int pixels(float twips, host::Axis axis) {
    return host::pixelsFromTwips(twips, axis);
}

} // namespace

int himetricFromPixels(int count, int dots) {
    return static_cast<int>(std::lround(count * himetricPerInch / dots));
}

int pixelsFromHimetric(int himetric, int dots) {
    return static_cast<int>(std::lround(himetric * double(dots) / himetricPerInch));
}

::HRESULT ControlObject::SetClientSite(::IOleClientSite* site) {
    if (site == client_.get()) return S_OK;
    const auto alive = keepAlive();
    InPlaceDeactivate();
    client_ = ComPointer<::IOleClientSite>(site);
    if (!client_) return S_OK;
    return guarded([&]() -> ::HRESULT {
        control_->ambientChanged({});
        return S_OK;
    });
}

::HRESULT ControlObject::GetClientSite(::IOleClientSite** result) {
    if (!result) return E_POINTER;
    *result = ComPointer<::IOleClientSite>(client_).detach();
    return S_OK;
}

::HRESULT ControlObject::Close(DWORD option) {
    const auto alive = keepAlive();
    const auto client = client_;
    if (dirty_ && option != OLECLOSE_NOSAVE && client) client->SaveObject();
    InPlaceDeactivate();
    if (advised_) advised_->SendOnClose();
    return S_OK;
}

::HRESULT ControlObject::GetMoniker(DWORD, DWORD, ::IMoniker** result) {
    if (result) *result = nullptr;
    return E_NOTIMPL;
}

::HRESULT ControlObject::GetClipboardData(DWORD, ::IDataObject** result) {
    if (result) *result = nullptr;
    return E_NOTIMPL;
}

::HRESULT ControlObject::EnumVerbs(::IEnumOLEVERB** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    return OLE_S_USEREG;
}

::HRESULT ControlObject::GetUserClassID(::CLSID* result) {
    if (!result) return E_POINTER;
    *result = exported() ? native(exported()->id) : ::GUID{};
    return exported() ? S_OK : E_FAIL;
}

::HRESULT ControlObject::GetUserType(DWORD, ::LPOLESTR* result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (!exported()) return E_FAIL;
    return guarded([&]() -> ::HRESULT {
        const std::u16string name = programName(*exported());
        const std::size_t size = (name.size() + 1) * sizeof(wchar_t);
        *result = static_cast<::LPOLESTR>(::CoTaskMemAlloc(size));
        if (!*result) return E_OUTOFMEMORY;
        std::memcpy(*result, name.c_str(), size);
        return S_OK;
    });
}

::SIZEL ControlObject::himetricSize() const {
    using host::Axis;
    const host::Bounds& bounds = control_->bounds();
    return {himetricFromPixels(pixels(bounds.width, Axis::Horizontal), dotsPerInch(Axis::Horizontal)),
            himetricFromPixels(pixels(bounds.height, Axis::Vertical), dotsPerInch(Axis::Vertical))};
}

/// To whole pixels, which is what the container comes back with as the control's place.
void ControlObject::applySize(const ::SIZEL& himetric) {
    using host::Axis;
    host::Bounds bounds = control_->bounds();
    bounds.width = static_cast<float>(pixelsFromHimetric(himetric.cx, dotsPerInch(Axis::Horizontal)) *
                                      host::twipsPerPixel(Axis::Horizontal));
    bounds.height = static_cast<float>(pixelsFromHimetric(himetric.cy, dotsPerInch(Axis::Vertical)) *
                                       host::twipsPerPixel(Axis::Vertical));
    control_->applyBounds(bounds);
}

bool ControlObject::isPossible(const ::SIZEL& himetric) {
    constexpr ::LONG most = 1'000'000; // ten metres
    const auto inside = [](::LONG side) { return side >= 0 && side <= most; };
    return inside(himetric.cx) && inside(himetric.cy);
}

::HRESULT ControlObject::SetExtent(DWORD aspect, ::SIZEL* size) {
    if (!size) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!isPossible(*size)) return E_INVALIDARG;
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        applySize(*size);
        return S_OK;
    });
}

::HRESULT ControlObject::GetExtent(DWORD aspect, ::SIZEL* size) {
    if (!size) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *size = himetricSize();
    return S_OK;
}

::HRESULT ControlObject::Advise(::IAdviseSink* sink, DWORD* cookie) {
    if (!advised_) {
        const ::HRESULT result = ::CreateOleAdviseHolder(advised_.out());
        if (FAILED(result)) return result;
    }
    return advised_->Advise(sink, cookie);
}

::HRESULT ControlObject::Unadvise(DWORD cookie) {
    return advised_ ? advised_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

::HRESULT ControlObject::EnumAdvise(::IEnumSTATDATA** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    return advised_ ? advised_->EnumAdvise(result) : E_NOTIMPL;
}

::HRESULT ControlObject::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status) return E_POINTER;
    *status = 0;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *status = miscStatus;
    return S_OK;
}

} // namespace activex
