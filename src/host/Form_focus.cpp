// The focus on a form: Tab order, access keys, validation, key preview.

#include "host/Form.h"
#include "host/FormSite.h"
#include "host/Raised.h"
#include "platform/locale.h"

#include <algorithm>

namespace host {

namespace {

bool contains(const automation::String& keys, char16_t character) {
    return platform::upperCase(keys).find(platform::upperCase({&character, 1})) != std::u16string::npos;
}

short ansiCode(char16_t character) {
    const std::string bytes = platform::ansiFromWide({&character, 1});
    return bytes.empty() ? short{0} : static_cast<short>(static_cast<unsigned char>(bytes[0]));
}

} // namespace

FormSite* Form::siteOf(platform::HWND window) const {
    if (!window) return nullptr;
    FormSite* around = nullptr;
    for (const auto& site : sites_) {
        const platform::HWND own = site->control().window();
        if (!own) continue;
        if (own == window) return site.get();
        if (platform::IsChild(own, window)) around = site.get();
    }
    return around;
}

FormSite* Form::siteOf(const Control& control) const {
    const auto site =
        std::find_if(sites_.begin(), sites_.end(), [&](const auto& s) { return &s->control() == &control; });
    return site == sites_.end() ? nullptr : site->get();
}

short Form::tabIndexOf(const FormSite& site) const {
    const auto found = std::find(tabs_.begin(), tabs_.end(), &site);
    return static_cast<short>(found - tabs_.begin());
}

void Form::renumberTabs(FormSite& moved, short place) {
    std::erase(tabs_, &moved);
    const auto last = static_cast<std::ptrdiff_t>(tabs_.size());
    tabs_.insert(tabs_.begin() + std::clamp<std::ptrdiff_t>(place, 0, last), &moved);
}

FormSite* Form::nextStop(bool forward) const {
    const auto count = static_cast<std::ptrdiff_t>(tabs_.size());
    if (count == 0) return nullptr;
    // With no active control the order begins at its first or last one.
    std::ptrdiff_t at = active_ ? tabIndexOf(*active_) : (forward ? -1 : count);
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        at = (at + (forward ? 1 : -1) + count) % count;
        FormSite* site = tabs_[static_cast<std::size_t>(at)];
        if (site != active_ && site->tabStop() && site->canTakeFocus()) return site;
    }
    return nullptr;
}

Control* Form::ActiveControl() const {
    return active_ ? &active_->control() : nullptr;
}

void Form::ActiveControl(Control& control) {
    FormSite* site = siteOf(control);
    if (!site) throwNoControl({});
    if (Visible())
        focusSite(*site);
    else
        active_ = site;
}

bool Form::validate(FormSite& losing) {
    const auto keep = losing.shared_from_this();
    const automation::Ref<Control> control(&losing.control());
    const Raised validating(validating_);
    bool cancel = false;
    control->Extender().Validate.raise(cancel);
    return !cancel;
}

bool Form::ValidateControls() {
    return !active_ || validating_ || validate(*active_);
}

bool Form::leaveAllowed(const FormSite& gaining) {
    if (!active_ || active_ == &gaining || validating_ || !gaining.causesValidation()) return true;
    if (platform::GetFocus() != active_->control().window()) return true;
    return validate(*active_);
}

bool Form::focusSite(FormSite& site) {
    if (!Visible() || !site.canTakeFocus()) return false;
    const platform::HWND window = site.control().window();
    if (platform::GetFocus() == window) return true;
    if (!leaveAllowed(site) || site.gone()) return false;
    const Raised validated(validated_);
    platform::SetFocus(window);
    return platform::GetFocus() == window;
}

bool Form::moveFocus(bool forward) {
    FormSite* next = nextStop(forward);
    return next && focusSite(*next);
}

void Form::focusLost(FormSite& site) {
    if (active_ != &site) return;
    // A window that was disabled has lost the focus to none already.
    const platform::HWND focus = platform::GetFocus();
    const bool mine = focus ? focus == site.control().window() : platform::GetActiveWindow() == hWnd();
    if (hWnd() && mine) {
        // No validation: the control can't keep the focus anyway.
        const Raised validated(validated_);
        FormSite* next = nextStop(true);
        platform::SetFocus(next ? next->control().window() : hWnd());
    }
    if (active_ == &site) active_ = nullptr;
}

bool Form::siteFocusLeaving(FormSite& site, platform::HWND next) {
    FormSite* gaining = siteOf(next);
    if (!gaining || gaining == &site) return false;
    leaving_ = &site;
    return true;
}

bool Form::siteFocusArrived(FormSite& site) {
    if (returning_ || !leaving_ || leaving_ == &site) {
        leaving_ = nullptr;
        if (!validating_) active_ = &site;
        return true;
    }
    const auto keep = leaving_->shared_from_this();
    FormSite& losing = *leaving_;
    const automation::Ref<Control> loser(&losing.control());
    const platform::HWND window = site.control().window();
    // A move that somebody made with the window alone is validated after the fact and taken back.
    if (!validated_ && !validating_ && site.causesValidation() && active_ == &losing) {
        const bool allowed = validate(losing);
        leaving_ = nullptr;
        if (!allowed && !losing.gone()) {
            const Raised returning(returning_);
            platform::SetFocus(losing.control().window());
            return false;
        }
        if (site.gone()) return false;
        if (platform::GetFocus() != window) {
            // A dialog of the handler has sent the focus back to the losing control meanwhile.
            const Raised validated(validated_);
            platform::SetFocus(window);
            return false;
        }
    }
    leaving_ = nullptr;
    active_ = &site;
    if (!losing.gone()) loser->focusLeft();
    return !site.gone() && platform::GetFocus() == window;
}

void Form::focusCame() {
    if (FormSite* wanted = active_ && active_->canTakeFocus() ? active_ : nextStop(true))
        platform::SetFocus(wanted->control().window());
}

// Keys.

bool Form::onTab(bool forward) {
    FormSite* next = nextStop(forward);
    if (!next) return false;
    focusSite(*next);
    return true; // also when validation kept the focus: the control isn't to see the key
}

bool Form::pressButton(bool cancel) {
    for (const auto& site : sites_) {
        if (!(cancel ? site->isCancel() : site->isDefault()) || !site->visible() ||
            !site->control().enabled())
            continue;
        const auto keep = site;
        keep->control().accessKeyPress(cancel ? platform::VK_ESCAPE : platform::VK_RETURN);
        return true;
    }
    return false;
}

bool Form::pressAccessKey(char16_t character) {
    const auto count = static_cast<std::ptrdiff_t>(tabs_.size());
    const std::ptrdiff_t start = active_ ? tabIndexOf(*active_) : -1;
    for (std::ptrdiff_t i = 1; i <= count; ++i) {
        const std::ptrdiff_t at = (start + i + count) % count;
        const auto site = tabs_[static_cast<std::size_t>(at)]->shared_from_this();
        Control& control = site->control();
        const automation::String keys = control.accessKeys();
        if (!site->visible() || !control.enabled() || !contains(keys, character)) continue;
        if (control.window()) {
            const automation::Ref<Control> alive(&control);
            const std::size_t key = platform::upperCase(keys).find(platform::upperCase({&character, 1}));
            control.accessKeyPress(ansiCode(keys[key]));
            return true;
        }
        // A label's key belongs to the control behind it in the Tab order.
        for (std::ptrdiff_t after = at + 1; after < count; ++after) {
            FormSite* next = tabs_[static_cast<std::size_t>(after)];
            if (!next->canTakeFocus()) continue;
            focusSite(*next);
            return true;
        }
    }
    return false;
}

bool Form::navigationKey(platform::HWND window, platform::UINT message, platform::WPARAM wParam) {
    if (message == platform::WM_SYSCHAR) {
        const char byte = static_cast<char>(wParam);
        const std::u16string character = platform::wideFromAnsi({&byte, 1});
        return !character.empty() && pressAccessKey(character[0]);
    }
    if (message != platform::WM_KEYDOWN) return false;
    const bool ctrl = platform::GetKeyState(platform::VK_CONTROL) < 0;
    switch (wParam) {
    case platform::VK_TAB:
        return !ctrl && onTab(platform::GetKeyState(platform::VK_SHIFT) >= 0);
    case platform::VK_RETURN:
        if (platform::SendMessageA(window, platform::WM_GETDLGCODE, 0, 0) & platform::DLGC_WANTALLKEYS)
            return false;
        return pressButton(false);
    case platform::VK_ESCAPE:
        return pressButton(true);
    default:
        return false;
    }
}

bool Form::siteTranslateKey(FormSite& site, platform::UINT message, platform::WPARAM& wParam,
                            platform::LPARAM) {
    if (!userMode_) return false;
    if (toolTip_) hover(nullptr, {}, message);
    return navigationKey(site.control().window(), message, wParam) || previewKey(message, wParam);
}

bool Form::translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM) {
    return userMode_ && navigationKey(hWnd(), message, wParam);
}

bool Form::previewKey(platform::UINT message, platform::WPARAM& wParam) {
    if (!keyPreview_) return false;
    auto key = static_cast<short>(wParam);
    short shift = shiftState();
    switch (message) {
    case platform::WM_KEYDOWN:
    case platform::WM_SYSKEYDOWN:
        onKeyDown(key, shift);
        break;
    case platform::WM_KEYUP:
    case platform::WM_SYSKEYUP:
        onKeyUp(key, shift);
        break;
    case platform::WM_CHAR:
        onKeyPress(key);
        break;
    default:
        return false;
    }
    wParam = static_cast<std::uint16_t>(key);
    return key == 0;
}

} // namespace host
