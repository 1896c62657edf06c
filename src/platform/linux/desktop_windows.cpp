#include "platform/linux/desktop_windows.h"

#include "platform/linux/keyboard.h"
#include "platform/linux/message_queue.h"
#include "platform/locale.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr int UnicodeKey = 0xE7; ///< A key that carries characters and no layout

/// The widths of the frame that the window manager draws.
RECT managedFrame(const Window& window) {
    if (!window.is(WS_CAPTION)) return {};
    return frameWidths(window.style, window.exStyle & ~WS_EX_CLIENTEDGE);
}

} // namespace

RECT shownPart(const Window& window) {
    const RECT widths = managedFrame(window);
    const RECT& f = window.frame;
    return {f.left + widths.left, f.top + widths.top,
            std::max(f.right - widths.right, f.left + widths.left + 1),
            std::max(f.bottom - widths.bottom, f.top + widths.top + 1)};
}

bool isPopup(const Window& window) {
    return !window.is(WS_CAPTION) && (window.exStyle & WS_EX_NOACTIVATE);
}

std::string utf8Title(const Window& window) {
    return utf8FromWide(wideFromAnsi(window.text));
}

void showAgain(Window& window) {
    if (window.pixels)
        window.unpresented = {0, 0, window.pixels->surface.width, window.pixels->surface.height};
}

void showAgain(Window& window, const RECT& part) {
    const RECT shown = shownPart(window);
    window.unpresented = unionOf(window.unpresented,
                                 offset(part, shown.left - window.frame.left, shown.top - window.frame.top));
}

void tellPlace(Window& window, const RECT& part) {
    const RECT known = shownPart(window);
    if (known == part) return;
    SetWindowPos(window.handle, {}, window.frame.left + part.left - known.left,
                 window.frame.top + part.top - known.top,
                 widthOf(window.frame) + widthOf(part) - widthOf(known),
                 heightOf(window.frame) + heightOf(part) - heightOf(known), SWP_NOZORDER | SWP_NOACTIVATE);
}

void tellState(Window& window, bool minimized, bool maximized) {
    const DWORD former = window.style & (WS_MINIMIZE | WS_MAXIMIZE);
    const DWORD now = (minimized ? WS_MINIMIZE : 0) | (maximized ? WS_MAXIMIZE : 0);
    if (former == now) return;
    window.style = (window.style & ~(WS_MINIMIZE | WS_MAXIMIZE)) | now;
    rearranged(window);
    const WPARAM kind = minimized ? SIZE_MINIMIZED : maximized ? SIZE_MAXIMIZED : SIZE_RESTORED;
    const LPARAM size = minimized ? 0 : MAKELPARAM(widthOf(window.client), heightOf(window.client));
    callProcedure(window, WM_SIZE, kind, size);
}

void tellCloseWish(Window& window) {
    if (!window.is(WS_DISABLED) && !(window.windowClass->style & CS_NOCLOSE))
        PostMessageA(window.handle, WM_SYSCOMMAND, SC_CLOSE, 0);
}

void keepNormalPlace(Window& window) {
    if (!(window.style & (WS_MINIMIZE | WS_MAXIMIZE))) window.restored = window.frame;
}

void tellFocus(Window* window) {
    if (!window) {
        loseForeground();
        return;
    }
    if (window->exStyle & WS_EX_NOACTIVATE) return;
    if (!window->is(WS_DISABLED)) {
        if (!attention().foreground && attention().suspended == window->handle)
            regainForeground();
        else
            activate(window->handle, false);
        return;
    }
    for (HWND owned : ownedHandles(window->handle))
        if (IsWindowVisible(owned) && IsWindowEnabled(owned)) activate(owned, false);
}

void postText(std::u16string text) {
    RawInput input;
    input.kind = RawInput::Kind::Key;
    input.virtualKey = UnicodeKey;
    input.hasText = true;
    input.text = std::move(text);
    postInput(input);
    input.up = true;
    input.text.clear();
    postInput(input);
}

void postPointer(POINT screen) {
    RawInput input;
    input.kind = RawInput::Kind::Move;
    input.at = screen;
    postInput(input);
}

void postButton(int button, bool up, POINT screen) {
    RawInput input;
    input.kind = RawInput::Kind::Button;
    input.virtualKey = button;
    input.up = up;
    input.at = screen;
    postInput(input);
}

void postWheel(int notches, POINT screen) {
    RawInput input;
    input.kind = RawInput::Kind::Wheel;
    input.wheel = notches * WHEEL_DELTA;
    input.at = screen;
    postInput(input);
}

void noteLock(int key, bool on) {
    for (KeyStates* states : {&keyboard().asynchronous, &keyboard().thread}) {
        BYTE& state = (*states)[static_cast<std::size_t>(key)];
        state = static_cast<BYTE>((state & ~1) | (on ? 1 : 0));
    }
}

} // namespace platform::driver
