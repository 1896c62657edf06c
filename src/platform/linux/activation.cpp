// Which window has the keyboard, which is active, which is enabled.

#include "platform/linux/display.h"
#include "platform/linux/message_queue.h"
#include "platform/linux/window_system.h"

#include <algorithm>

namespace platform::driver {

namespace {

WPARAM word(HWND handle) {
    return handle.value;
}
LPARAM longWord(HWND handle) {
    return static_cast<LPARAM>(handle.value);
}

/// Gives the focus away with its two messages; the window must be fit for it.
void moveFocus(HWND next) {
    const HWND former = attention().focus;
    if (former == next) return;
    attention().focus = next;
    if (Window* window = findWindow(former)) callProcedure(*window, WM_KILLFOCUS, word(next), 0);
    if (attention().focus != next) return;
    if (Window* window = findWindow(next)) callProcedure(*window, WM_SETFOCUS, word(former), 0);
}

void paintCaption(HWND handle, bool active) {
    Window* window = findWindow(handle);
    if (!window) return;
    callProcedure(*window, WM_NCACTIVATE, active, 0);
}

/// Tells the window that was active that another is now.
void deactivate(HWND former, HWND next) {
    paintCaption(former, false);
    if (Window* window = findWindow(former)) callProcedure(*window, WM_ACTIVATE, WA_INACTIVE, longWord(next));
}

void raiseWithOwned(HWND handle) {
    SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

} // namespace

bool activate(HWND handle, bool byMouse) {
    Window* window = findWindow(handle);
    if (!window || !isTopLevel(*window) || window->is(WS_DISABLED)) return false;
    const HWND former = attention().active;
    if (former == handle) return true;
    const bool wasForeground = attention().foreground && former;
    attention().active = handle;
    attention().foreground = true;
    if (findWindow(former)) deactivate(former, handle);
    if (attention().active != handle || !findWindow(handle)) return false;
    raiseWithOwned(handle);
    if (!(window = findWindow(handle))) return false;
    if (!wasForeground) callProcedure(*window, WM_ACTIVATEAPP, TRUE_, 0);
    paintCaption(handle, true);
    if (!(window = findWindow(handle))) return false;
    display().activated(*window);
    callProcedure(*window, WM_ACTIVATE, byMouse ? WA_CLICKACTIVE : WA_ACTIVE, longWord(former));
    window = findWindow(handle);
    if (!window || attention().active != handle) return window != nullptr;
    const Window* focused = findWindow(attention().focus);
    if (!focused || !isInside(*window, focused)) moveFocus(handle);
    return true;
}

void activateAnother(HWND leaving) {
    const Window* gone = findWindow(leaving);
    HWND next = gone ? gone->owner : HWND{};
    const auto fit = [&](HWND candidate) {
        const Window* w = findWindow(candidate);
        return w && candidate != leaving && w->is(WS_VISIBLE) && !w->is(WS_DISABLED) && !w->is(WS_MINIMIZE) &&
               !w->destroying && !(w->exStyle & WS_EX_NOACTIVATE);
    };
    if (!fit(next)) {
        next = {};
        for (HWND candidate : childHandles(desktopWindow()))
            if (fit(candidate) && !(findWindow(candidate)->exStyle & WS_EX_TOOLWINDOW)) {
                next = candidate;
                break;
            }
    }
    if (next) {
        activate(next, false);
        return;
    }
    attention().active = {};
    deactivate(leaving, {});
    if (Window* window = findWindow(leaving)) callProcedure(*window, WM_ACTIVATEAPP, FALSE_, 0);
    if (!attention().active) moveFocus({});
}

void loseForeground() {
    const HWND former = attention().active;
    if (!attention().foreground) return;
    attention().foreground = false;
    attention().suspended = former;
    attention().active = {};
    if (!findWindow(former)) return;
    deactivate(former, {});
    if (Window* window = findWindow(former)) callProcedure(*window, WM_ACTIVATEAPP, FALSE_, 0);
    if (!attention().active) moveFocus({});
}

void regainForeground() {
    if (attention().foreground) return;
    const HWND waiting = attention().suspended;
    attention().foreground = true;
    attention().suspended = {};
    if (findWindow(waiting)) activate(waiting, false);
}

void forgetWindow(HWND window) {
    Attention& a = attention();
    if (a.focus == window) a.focus = {};
    if (a.active == window) a.active = {};
    if (a.capture == window) {
        a.capture = {};
        display().captureMouse(false);
    }
    if (GetParent(window)) return;
    for (Window* top : desktopWindow().children)
        if (top->owner == window) top->owner = {};
}

} // namespace platform::driver

namespace platform {

using namespace driver;

HWND GetFocus() {
    return attention().focus;
}
HWND GetActiveWindow() {
    return attention().active;
}
HWND GetForegroundWindow() {
    return attention().foreground ? attention().active : HWND{};
}
HWND GetCapture() {
    return attention().capture;
}

HWND SetFocus(HWND window) {
    const HWND former = attention().focus;
    if (!window) {
        moveFocus({});
        return former;
    }
    Window* w = findWindow(window);
    Window* top = w ? topLevelOf(w) : nullptr;
    if (!top || !isReachable(*w) || top->is(WS_MINIMIZE)) return {};
    if (former == window) return former;
    if (attention().active != top->handle) {
        const HWND topHandle = top->handle;
        if (!activate(topHandle, false) || attention().active != topHandle) return {};
        if (!findWindow(window)) return {};
    }
    moveFocus(window);
    return former;
}

HWND SetActiveWindow(HWND window) {
    Window* w = findWindow(window);
    const HWND former = attention().active;
    if (!w || !isTopLevel(*w) || (w->style & WS_DISABLED)) return {};
    activate(window, false);
    return former;
}

BOOL SetForegroundWindow(HWND window) {
    Window* top = topLevelOf(findWindow(window));
    if (!top) return FALSE_;
    return activate(top->handle, false) ? TRUE_ : FALSE_;
}

BOOL BringWindowToTop(HWND window) {
    return SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

BOOL IsWindowEnabled(HWND window) {
    const Window* w = findWindow(window);
    return w && !w->is(WS_DISABLED);
}

BOOL IsWindowVisible(HWND window) {
    const Window* w = findWindow(window);
    return w && isShown(*w);
}

BOOL EnableWindow(HWND window, BOOL enable) {
    Window* w = findWindow(window);
    if (!w || isDesktop(*w)) return FALSE_;
    const bool wasDisabled = w->is(WS_DISABLED);
    if (enable && wasDisabled) {
        w->style &= ~WS_DISABLED;
        callProcedure(*w, WM_ENABLE, TRUE_, 0);
    } else if (!enable && !wasDisabled) {
        callProcedure(*w, WM_CANCELMODE, 0, 0);
        if (!(w = findWindow(window))) return FALSE_;
        w->style |= WS_DISABLED;
        if (window == attention().focus) SetFocus({});
        const Window* capture = findWindow(attention().capture);
        if ((w = findWindow(window)) && capture && isInside(*w, capture)) ReleaseCapture();
        if ((w = findWindow(window))) callProcedure(*w, WM_ENABLE, FALSE_, 0);
    }
    return wasDisabled;
}

HWND SetCapture(HWND window) {
    if (window && !findWindow(window)) return {};
    const HWND former = attention().capture;
    attention().capture = window;
    display().captureMouse(static_cast<bool>(window));
    if (Window* w = former == window ? nullptr : findWindow(former))
        callProcedure(*w, WM_CAPTURECHANGED, 0, static_cast<LPARAM>(window.value));
    return former;
}

BOOL ReleaseCapture() {
    if (attention().capture) SetCapture({});
    return TRUE_;
}

} // namespace platform
