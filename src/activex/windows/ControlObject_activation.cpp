// A control in its place: activation, focus, keys.

#include "activex/windows/ControlObject.h"
#include "activex/windows/Failures.h"
#include "activex/windows/Values.h"
#include "platform/locale.h"

#include <algorithm>
#include <vector>

namespace activex {

using platform::driver::native;

::HRESULT ControlObject::DoVerb(LONG verb, ::MSG*, ::IOleClientSite*, LONG, ::HWND, const ::RECT* place) {
    const auto alive = keepAlive();
    switch (verb) {
    case OLEIVERB_PRIMARY:
    case OLEIVERB_SHOW:
    case OLEIVERB_OPEN:
    case OLEIVERB_UIACTIVATE:
        return guarded([&] { return activate(true, place); });
    case OLEIVERB_INPLACEACTIVATE:
        return guarded([&] { return activate(false, place); });
    case OLEIVERB_HIDE:
        UIDeactivate();
        show(false);
        return S_OK;
    default:
        return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
    }
}

::HRESULT ControlObject::activate(bool withUi, const ::RECT* place) {
    if (!client_) return E_UNEXPECTED;
    if (!isActive()) {
        const ::HRESULT result = activateInPlace(place);
        if (FAILED(result)) return result;
    }
    show(true);
    return withUi ? activateUi() : S_OK;
}

/// The container may take its site away, or close the control, in any of its answers.
::HRESULT ControlObject::activateInPlace(const ::RECT* place) {
    const auto client = client_;
    const auto site = ComPointer<::IOleInPlaceSite>::of(client.get());
    ::HWND parent = nullptr;
    if (!site || site->CanInPlaceActivate() != S_OK) return E_FAIL;
    if (FAILED(site->OnInPlaceActivate())) return E_FAIL;
    ::RECT own{};
    ::RECT clip{};
    ::OLEINPLACEFRAMEINFO frame{};
    frame.cb = sizeof frame;
    ComPointer<::IOleInPlaceFrame> itsFrame;
    ComPointer<::IOleInPlaceUIWindow> itsDocument;
    const bool told =
        SUCCEEDED(site->GetWindow(&parent)) &&
        SUCCEEDED(site->GetWindowContext(itsFrame.out(), itsDocument.out(), &own, &clip, &frame));
    if (!told || !parent || client_.get() != client.get()) {
        site->OnInPlaceDeactivate();
        return E_FAIL;
    }
    inPlace_ = site;
    frame_ = std::move(itsFrame);
    document_ = std::move(itsDocument);
    ::SetParent(native(control_->window()), parent);
    SetObjectRects(place ? place : &own, &clip);
    client->ShowObject();
    return isActive() ? S_OK : E_FAIL;
}

::HRESULT ControlObject::activateUi() {
    const auto site = inPlace_;
    if (!site) return E_FAIL;
    if (!ui_) {
        ui_ = true;
        if (FAILED(site->OnUIActivate())) {
            ui_ = false;
            return E_FAIL;
        }
        if (ui_) tellFrames(this);
        if (const auto frame = frame_) frame->SetBorderSpace(nullptr);
    }
    const ::HWND window = native(control_->window());
    const bool focuses = control_->canGetFocus() && !site_.isDesigning();
    if (isActive() && focuses && ::GetFocus() != window) ::SetFocus(window);
    return isActive() ? S_OK : E_FAIL;
}

/// Which control is the active one.
void ControlObject::tellFrames(::IOleInPlaceActiveObject* active) {
    const auto frame = frame_;
    const auto document = document_;
    if (frame) frame->SetActiveObject(active, nullptr);
    if (document) document->SetActiveObject(active, nullptr);
}

::HRESULT ControlObject::UIDeactivate() {
    if (!ui_) return S_OK;
    const auto alive = keepAlive();
    const auto site = inPlace_;
    ui_ = false;
    tellFrames(nullptr);
    if (site) site->OnUIDeactivate(FALSE);
    return S_OK;
}

::HRESULT ControlObject::InPlaceDeactivate() {
    if (!isActive()) return S_OK;
    const auto alive = keepAlive();
    UIDeactivate();
    const ComPointer<::IOleInPlaceSite> site = std::move(inPlace_);
    frame_.reset();
    document_.reset();
    control_->applyVisible(false);
    park();
    if (site) site->OnInPlaceDeactivate();
    return S_OK;
}

::HRESULT ControlObject::GetWindow(::HWND* window) {
    if (!window) return E_POINTER;
    *window = isActive() ? native(control_->window()) : nullptr;
    return *window ? S_OK : E_FAIL;
}

::HRESULT ControlObject::SetObjectRects(const ::RECT* place, const ::RECT* clip) {
    if (!place) return E_POINTER;
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        const auto across = static_cast<float>(host::twipsPerPixel(host::Axis::Horizontal));
        const auto down = static_cast<float>(host::twipsPerPixel(host::Axis::Vertical));
        control_->applyBounds({static_cast<float>(place->left) * across,
                               static_cast<float>(place->top) * down,
                               static_cast<float>(place->right - place->left) * across,
                               static_cast<float>(place->bottom - place->top) * down});
        ::RECT seen{};
        ::HRGN region = nullptr;
        if (clip && ::IntersectRect(&seen, place, clip) && !::EqualRect(&seen, place))
            region = ::CreateRectRgn(seen.left - place->left, seen.top - place->top, seen.right - place->left,
                                     seen.bottom - place->top);
        ::SetWindowRgn(native(control_->window()), region, TRUE);
        return S_OK;
    });
}

bool ControlObject::takeFocus() {
    if (!control_->canGetFocus() || !control_->enabled()) return false;
    if (!client_ || FAILED(activate(true, nullptr))) return false;
    return ::GetFocus() == native(control_->window());
}

void ControlObject::focusChanged(bool here) {
    if (here && isActive()) activateUi();
    if (const auto site = ComPointer<::IOleControlSite>::of(client_.get()))
        site->OnFocus(here ? TRUE : FALSE);
}

// Keys

namespace {

/// The key that gives the character alone or with Shift; 0 where none does.
WORD keyCode(char16_t unit) {
    const SHORT found = ::VkKeyScanW(static_cast<wchar_t>(unit));
    constexpr int moreThanShift = 6; // Ctrl, Alt
    return found == -1 || (HIBYTE(found) & moreThanShift) ? 0 : LOBYTE(found);
}

/// Whether the message of a key, or of the character that it gave, is of that access key.
bool means(const ::MSG& message, char16_t unit) {
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN)
        return message.wParam == keyCode(unit);
    const auto character = static_cast<char16_t>(message.wParam);
    return platform::upperCase({&character, 1}) == platform::upperCase({&unit, 1});
}

/// The character as controls are told of it: a byte of the ANSI code page.
short ansiCode(char16_t unit) {
    const std::string bytes = automation::String(std::u16string_view(&unit, 1)).ansi();
    return bytes.empty() ? short{0} : static_cast<short>(static_cast<unsigned char>(bytes.front()));
}

} // namespace

bool ControlObject::passToContainer(::MSG& key) {
    const auto site = ComPointer<::IOleControlSite>::of(client_.get());
    if (!site) return false;
    constexpr DWORD shift = 1;
    constexpr DWORD control = 2;
    constexpr DWORD alt = 4;
    const auto down = [](int code) { return ::GetKeyState(code) < 0; };
    const DWORD modifiers =
        (down(VK_SHIFT) ? shift : 0) | (down(VK_CONTROL) ? control : 0) | (down(VK_MENU) ? alt : 0);
    return site->TranslateAccelerator(&key, modifiers) == S_OK;
}

::HRESULT ControlObject::TranslateAccelerator(::MSG* key) {
    if (!key) return E_POINTER;
    const auto alive = keepAlive();
    if (key->message < WM_KEYFIRST || key->message > WM_KEYLAST) return S_FALSE;
    return passToContainer(*key) ? S_OK : S_FALSE;
}

::HRESULT ControlObject::GetControlInfo(::CONTROLINFO* info) {
    if (!info) return E_POINTER;
    return guarded([&]() -> ::HRESULT {
        std::vector<::ACCEL> keys;
        for (const char16_t unit : control_->accessKeys().view()) {
            const WORD code = keyCode(unit);
            const BYTE kind = code ? FALT | FVIRTKEY : FALT; // what no key gives alone comes as a character
            keys.push_back({kind, code ? code : static_cast<WORD>(unit), static_cast<WORD>(keys.size())});
        }
        if (accessKeys_) ::DestroyAcceleratorTable(accessKeys_);
        accessKeys_ =
            keys.empty() ? nullptr : ::CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
        info->cb = sizeof *info;
        info->hAccel = accessKeys_;
        info->cAccel = static_cast<WORD>(keys.size());
        info->dwFlags = 0;
        return S_OK;
    });
}

::HRESULT ControlObject::OnMnemonic(::MSG* key) {
    if (!key) return E_POINTER;
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        const automation::String keys = control_->accessKeys();
        const auto meant = std::find_if(keys.view().begin(), keys.view().end(),
                                        [&](char16_t unit) { return means(*key, unit); });
        const auto otherwise =
            static_cast<short>(key->wParam); // Enter and Esc of containers with such buttons
        control_->accessKeyPress(meant == keys.view().end() ? otherwise : ansiCode(*meant));
        return S_OK;
    });
}

::HRESULT ControlObject::OnAmbientPropertyChange(::DISPID which) {
    const auto alive = keepAlive();
    return guarded([&]() -> ::HRESULT {
        if (which == DISPID_UNKNOWN) control_->ambientChanged({});
        for (const AmbientId& each : ambientIds())
            if (each.id == which) control_->ambientChanged(host::nameOf(each.value));
        return S_OK;
    });
}

::HRESULT ControlObject::FreezeEvents(BOOL freeze) {
    frozen_ += freeze ? 1 : frozen_ > 0 ? -1 : 0;
    return S_OK;
}

} // namespace activex
