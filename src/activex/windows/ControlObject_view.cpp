// How a control looks where it is not active: on screens, printers and in metafiles.

#include "activex/windows/ControlObject.h"
#include "activex/windows/Failures.h"

namespace activex {

using platform::driver::handleFrom;
using platform::driver::native;

namespace {

/// Whether the control can paint on the context as it stands: pixels, the wanted size, no recording.
bool paintsDirectly(::HDC dc, const ::RECTL& bounds, const ::RECT& own) {
    return ::GetMapMode(dc) == MM_TEXT && ::GetDeviceCaps(dc, TECHNOLOGY) == DT_RASDISPLAY &&
           ::GetObjectType(dc) != OBJ_METADC && ::GetObjectType(dc) != OBJ_ENHMETADC &&
           bounds.right - bounds.left == own.right - own.left &&
           bounds.bottom - bounds.top == own.bottom - own.top;
}

} // namespace

/// A control that nobody has seen yet makes its picture with its first paint and shows it with the next.
void ControlObject::paint(::HDC dc) {
    const auto context = handleFrom<platform::HDC>(dc);
    if (!isActive()) {
        const ::HWND window = native(control_->window());
        ::ShowWindow(window, SW_SHOWNA);
        control_->paintContent(context);
        ::ShowWindow(window, SW_HIDE);
    }
    control_->paintContent(context);
}

::HRESULT ControlObject::Draw(DWORD aspect, LONG, void*, ::DVTARGETDEVICE*, ::HDC, ::HDC dc,
                              const ::RECTL* bounds, const ::RECTL*, BOOL(STDMETHODCALLTYPE*)(::ULONG_PTR),
                              ::ULONG_PTR) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!dc) return E_INVALIDARG;
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        const ::RECT own = place();
        const ::RECT size{0, 0, own.right - own.left, own.bottom - own.top};
        const ::RECTL target = bounds ? *bounds : ::RECTL{0, 0, size.right, size.bottom};
        if (size.right <= 0 || size.bottom <= 0) return S_OK;
        if (paintsDirectly(dc, target, size)) {
            const int state = ::SaveDC(dc);
            ::OffsetWindowOrgEx(dc, -target.left, -target.top, nullptr);
            ::IntersectClipRect(dc, 0, 0, size.right, size.bottom);
            paint(dc);
            ::RestoreDC(dc, state);
            return S_OK;
        }
        const ::RECT frame{0, 0, himetricSize().cx, himetricSize().cy};
        const ::HDC recorder = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
        if (!recorder) return E_OUTOFMEMORY;
        paint(recorder);
        const ::HENHMETAFILE picture = ::CloseEnhMetaFile(recorder);
        const ::RECT place{target.left, target.top, target.right, target.bottom};
        const bool played = ::PlayEnhMetaFile(dc, picture, &place) != FALSE;
        ::DeleteEnhMetaFile(picture);
        return played ? S_OK : E_FAIL;
    });
}

::HRESULT ControlObject::GetColorSet(DWORD, LONG, void*, ::DVTARGETDEVICE*, ::HDC, ::LOGPALETTE** result) {
    if (result) *result = nullptr;
    return S_FALSE;
}

::HRESULT ControlObject::SetAdvise(DWORD aspects, DWORD flags, ::IAdviseSink* sink) {
    viewAspects_ = aspects;
    viewFlags_ = flags;
    viewer_ = ComPointer<::IAdviseSink>(sink);
    if (flags & ADVF_PRIMEFIRST) viewChanged();
    return S_OK;
}

::HRESULT ControlObject::GetAdvise(DWORD* aspects, DWORD* flags, ::IAdviseSink** sink) {
    if (aspects) *aspects = viewAspects_;
    if (flags) *flags = viewFlags_;
    if (sink) *sink = ComPointer<::IAdviseSink>(viewer_).detach();
    return S_OK;
}

::HRESULT ControlObject::GetExtent(DWORD aspect, LONG, ::DVTARGETDEVICE*, ::SIZEL* size) {
    return GetExtent(aspect, size);
}

} // namespace activex
