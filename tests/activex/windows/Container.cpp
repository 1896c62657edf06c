#include "activex/windows/Container.h"

#include <gtest/gtest.h>

namespace support {

Site::Site(::HWND window, const ::RECT& where, std::u16string_view className)
    : Site(window, where, create(className)) {}

Site::Site(::HWND window, const ::RECT& where, ComPointer<::IDispatch> control)
    : ambient{{DISPID_AMBIENT_USERMODE, true},
              {DISPID_AMBIENT_BACKCOLOR, std::int32_t{0x00FFEEDD}},
              {DISPID_AMBIENT_FORECOLOR, std::int32_t{0x00112233}},
              {DISPID_AMBIENT_DISPLAYNAME, u"control1"}},
      place(where), window_(window), control_(std::move(control)) {
    if (const auto object = as<::IOleObject>()) object->SetClientSite(this);
    const auto points = as<::IConnectionPointContainer>();
    if (points && SUCCEEDED(points->FindConnectionPoint(IID_IPropertyNotifySink, notifications_.out())))
        notifications_->Advise(static_cast<::IPropertyNotifySink*>(this), &cookie_);
}

Site::~Site() {
    if (notifications_) notifications_->Unadvise(cookie_);
    if (const auto object = as<::IOleObject>()) {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
}

::HRESULT Site::activate(bool withUi) {
    return as<::IOleObject>()->DoVerb(withUi ? OLEIVERB_UIACTIVATE : OLEIVERB_INPLACEACTIVATE, nullptr, this,
                                      0, window_, &place);
}

::HWND Site::controlWindow() const {
    ::HWND window = nullptr;
    if (const auto active = as<::IOleInPlaceObject>()) active->GetWindow(&window);
    return window;
}

::HRESULT Site::QueryInterface(REFIID id, void** result) {
    *result = find(id);
    return *result ? S_OK : E_NOINTERFACE;
}

::HRESULT Site::GetWindow(::HWND* window) {
    *window = window_;
    return S_OK;
}

::HRESULT Site::OnUIActivate() {
    ++uiActivations;
    if (onUiActivate) onUiActivate();
    if (dropsOnUiActivate) drop();
    return S_OK;
}

::HRESULT Site::GetWindowContext(::IOleInPlaceFrame** itsFrame, ::IOleInPlaceUIWindow** document, ::RECT* own,
                                 ::RECT* clip, ::OLEINPLACEFRAMEINFO*) {
    *itsFrame = ComPointer<::IOleInPlaceFrame>(frame).detach();
    *document = nullptr;
    *own = place;
    ::GetClientRect(window_, clip);
    return S_OK;
}

::HRESULT Site::OnPosRectChange(const ::RECT* wanted) {
    place = *wanted;
    return as<::IOleInPlaceObject>()->SetObjectRects(&place, &place);
}

::HRESULT Site::TranslateAccelerator(::MSG* key, DWORD) {
    keys.push_back(key->wParam);
    return !acceptsKey || acceptsKey(*key) ? S_OK : S_FALSE;
}

::HRESULT Site::OnFocus(BOOL gained) {
    focus.push_back(gained != FALSE);
    return S_OK;
}

::HRESULT Site::Invoke(::DISPID id, REFIID, ::LCID, WORD, ::DISPPARAMS*, ::VARIANT* result, ::EXCEPINFO*,
                       ::UINT*) {
    const auto found = ambient.find(id);
    if (found == ambient.end()) return DISP_E_MEMBERNOTFOUND;
    activex::toSystem(found->second, *result);
    return S_OK;
}

ContainerWindow::ContainerWindow()
    : window_(::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 40, 40,
                                400, 300, nullptr, nullptr, nullptr, nullptr)) {
    ::SetForegroundWindow(window_);
}

ContainerWindow::~ContainerWindow() {
    ::DestroyWindow(window_);
}

std::vector<::COLORREF> pixels(::HDC dc, int width, int height) {
    std::vector<::COLORREF> result;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            result.push_back(::GetPixel(dc, x, y));
    return result;
}

std::vector<::COLORREF> painted(::HDC like, int width, int height, const std::function<void(::HDC)>& paint) {
    const ::HDC screen = like ? like : ::GetDC(nullptr);
    const ::HDC memory = ::CreateCompatibleDC(screen);
    const ::HBITMAP bitmap = ::CreateCompatibleBitmap(screen, width, height);
    if (!like) ::ReleaseDC(nullptr, screen);
    ::SelectObject(memory, bitmap);
    paint(memory);
    auto result = pixels(memory, width, height);
    ::DeleteDC(memory);
    ::DeleteObject(bitmap);
    return result;
}

std::vector<::COLORREF> drawn(::IUnknown& control, int width, int height, Way way) {
    const auto view = ComPointer<::IViewObject2>::of(&control);
    const ::RECTL bounds{0, 0, width, height};
    const auto draw = [&](::HDC dc) {
        EXPECT_EQ(
            view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0),
            S_OK);
    };
    return painted(nullptr, width, height, [&](::HDC memory) {
        if (way == Way::AtOnce) return draw(memory);
        const ::HDC recorder = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
        draw(recorder);
        const ::HENHMETAFILE picture = ::CloseEnhMetaFile(recorder);
        ::ENHMETAHEADER header{};
        ::GetEnhMetaFileHeader(picture, sizeof header, &header);
        EXPECT_GT(header.nRecords, 2u) << "more than its beginning and its end";
        const ::RECT place{header.rclBounds.left, header.rclBounds.top, header.rclBounds.right,
                           header.rclBounds.bottom};
        ::PlayEnhMetaFile(memory, picture, &place);
        ::DeleteEnhMetaFile(picture);
    });
}

} // namespace support
