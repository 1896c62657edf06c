#include "activex/windows/Dialog.h"

namespace support {

namespace {

/// What the display has to say of a window comes after a while, in milliseconds.
constexpr DWORD displayDelay = 4;

bool isKey(const ::MSG& message) {
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

} // namespace

::HRESULT Frame::QueryInterface(REFIID id, void** result) {
    const bool known = id == IID_IUnknown || id == IID_IOleWindow || id == IID_IOleInPlaceUIWindow ||
                       id == IID_IOleInPlaceFrame;
    *result = known ? static_cast<::IOleInPlaceFrame*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

::HRESULT Frame::SetActiveObject(::IOleInPlaceActiveObject* object, ::LPCOLESTR) {
    active_ = ComPointer<::IOleInPlaceActiveObject>(object);
    return S_OK;
}

Site& Dialog::add(const ::RECT& place, ComPointer<::IDispatch> control) {
    auto made = std::make_unique<Site>(window_.handle(), place, std::move(control));
    Site& site = *made;
    stops_.push_back({std::move(made), nullptr});
    site.frame = &frame_;
    site.onUiActivate = [this, &site] { becomesActive(site); };
    site.acceptsKey = [this](const ::MSG& key) { return walk(key); };
    site.as<::IPersistStreamInit>()->InitNew();
    site.activate();
    return site;
}

::HWND Dialog::add(const ::RECT& place, const wchar_t* systemClass) {
    const ::HWND made = ::CreateWindowExW(0, systemClass, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, place.left,
                                          place.top, place.right - place.left, place.bottom - place.top,
                                          window_.handle(), nullptr, nullptr, nullptr);
    stops_.push_back({nullptr, made});
    return made;
}

bool Dialog::hasFocus(const Stop& stop) const {
    const ::HWND window = stop.site ? stop.site->controlWindow() : stop.window;
    return window && ::GetFocus() == window;
}

/// There is one active control at a time.
void Dialog::becomesActive(const Site& site) {
    for (const Stop& stop : stops_)
        if (stop.site && stop.site.get() != &site)
            if (const auto other = stop.site->as<::IOleInPlaceObject>()) other->UIDeactivate();
}

void Dialog::focus(std::size_t index) {
    const Stop& stop = stops_.at(index);
    if (stop.site) {
        stop.site->activate(true);
        return;
    }
    if (const ComPointer<::IOleInPlaceActiveObject> active(frame_.active()); active)
        ComPointer<::IOleInPlaceObject>::of(active.get())->UIDeactivate();
    ::SetFocus(stop.window);
}

bool Dialog::walk(const ::MSG& key) {
    if (key.message != WM_KEYDOWN || key.wParam != VK_TAB) return false;
    const bool back = ::GetKeyState(VK_SHIFT) < 0;
    for (std::size_t i = 0; i < stops_.size(); ++i) {
        if (!hasFocus(stops_[i])) continue;
        focus((i + (back ? stops_.size() - 1 : 1)) % stops_.size());
        return true;
    }
    return false;
}

/// The active control's keys come first, then the dialog's own.
bool Dialog::handles(::MSG& message) {
    if (!isKey(message)) return false;
    const ComPointer<::IOleInPlaceActiveObject> active(frame_.active());
    return active ? active->TranslateAccelerator(&message) == S_OK : walk(message);
}

void Dialog::readMessages() {
    do {
        for (::MSG message; ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
            if (handles(message)) continue;
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    } while (::MsgWaitForMultipleObjectsEx(0, nullptr, displayDelay, QS_ALLINPUT, MWMO_INPUTAVAILABLE) ==
             WAIT_OBJECT_0);
}

} // namespace support
