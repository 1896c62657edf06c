// What a window does with the messages that its procedure leaves to the system.

#include "platform/gdi.h"
#include "platform/linux/display.h"
#include "platform/linux/message_queue.h"
#include "platform/linux/window_system.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

namespace {

LRESULT calculateClient(const Window& window, RECT& frame) {
    if (isDesktop(window)) return 0;
    const RECT widths = frameWidths(window.style, window.exStyle);
    const RECT outer = frame;
    frame.left = std::min(outer.left + widths.left, outer.right);
    frame.top = std::min(outer.top + widths.top, outer.bottom);
    frame.right = std::max(outer.right - widths.right, frame.left);
    frame.bottom = std::max(outer.bottom - widths.bottom, frame.top);
    return 0;
}

LRESULT eraseBackground(HWND handle, HDC dc) {
    const Window* window = findWindow(handle);
    const HBRUSH brush = window->windowClass->background;
    if (!brush) return 0;
    const RECT area{0, 0, widthOf(window->client), heightOf(window->client)};
    FillRect(dc, &area, brush);
    return 1;
}

void tellSizeAndPlace(HWND handle, const WINDOWPOS& pos) {
    Window* window = findWindow(handle);
    if (window->sizeMessagesDue) return;
    if (!(pos.flags & SWP_NOMOVE))
        callProcedure(*window, WM_MOVE, 0, MAKELPARAM(window->client.left, window->client.top));
    if (!(window = findWindow(handle))) return;
    if ((pos.flags & SWP_NOSIZE) && !(pos.flags & SWP_FRAMECHANGED)) return;
    const WPARAM kind = window->is(WS_MINIMIZE)   ? SIZE_MINIMIZED
                        : window->is(WS_MAXIMIZE) ? SIZE_MAXIMIZED
                                                  : SIZE_RESTORED;
    const LPARAM size =
        kind == SIZE_MINIMIZED ? 0 : MAKELPARAM(widthOf(window->client), heightOf(window->client));
    callProcedure(*window, WM_SIZE, kind, size);
}

LRESULT setText(Window& window, const char* text) {
    window.text = text ? text : "";
    if (!isTopLevel(window)) return TRUE_;
    if (window.pixels) paintFrame(window);
    if (window.is(WS_VISIBLE)) display().renamed(window);
    return TRUE_;
}

LRESULT getText(const Window& window, std::size_t size, char* text) {
    if (!size || !text) return 0;
    const std::size_t length = std::min(window.text.size(), size - 1);
    std::memcpy(text, window.text.data(), length);
    text[length] = 0;
    return static_cast<LRESULT>(length);
}

/// The parent decides first; then a click activates.
LRESULT mouseActivate(const Window& window, WPARAM wParam, LPARAM lParam) {
    if (window.isChild() && window.parent && !isDesktop(*window.parent)) {
        const LRESULT answer = callProcedure(*window.parent, WM_MOUSEACTIVATE, wParam, lParam);
        if (answer) return answer;
    }
    return window.exStyle & WS_EX_NOACTIVATE ? MA_NOACTIVATE : MA_ACTIVATE;
}

WORD sizingCursor(int hit) {
    switch (hit) {
    case HTLEFT:
    case HTRIGHT:
        return IDC_SIZEWE;
    case HTTOP:
    case HTBOTTOM:
        return IDC_SIZENS;
    case HTTOPLEFT:
    case HTBOTTOMRIGHT:
        return IDC_SIZENWSE;
    case HTTOPRIGHT:
    case HTBOTTOMLEFT:
        return IDC_SIZENESW;
    default:
        return IDC_ARROW;
    }
}

/// The parent may answer first; then the class's cursor on the client area, arrows on the frame.
LRESULT setCursorShape(HWND handle, WPARAM wParam, LPARAM lParam) {
    Window* window = findWindow(handle);
    if (window->isChild() && window->parent && !isDesktop(*window->parent)) {
        if (callProcedure(*window->parent, WM_SETCURSOR, wParam, lParam)) return TRUE_;
        if (!(window = findWindow(handle))) return TRUE_;
    }
    const int hit = static_cast<std::int16_t>(LOWORD(static_cast<std::uintptr_t>(lParam)));
    if (hit == HTCLIENT) {
        if (window->windowClass->cursor) SetCursor(window->windowClass->cursor);
        return FALSE_;
    }
    SetCursor(LoadCursorA({}, sizingCursor(hit)));
    return FALSE_;
}

LRESULT systemCommand(HWND handle, WPARAM command) {
    constexpr WPARAM CommandMask = 0xFFF0;
    switch (command & CommandMask) {
    case SC_CLOSE:
        return SendMessageA(handle, WM_CLOSE, 0, 0);
    case SC_MINIMIZE:
        return ShowWindow(handle, SW_MINIMIZE), 0;
    case SC_MAXIMIZE:
        return ShowWindow(handle, SW_SHOWMAXIMIZED), 0;
    case SC_RESTORE:
        return ShowWindow(handle, SW_RESTORE), 0;
    default:
        return 0;
    }
}

/// The caption's buttons act on release; a double click on the caption maximises or restores.
LRESULT frameButtonUp(HWND handle, WPARAM hit) {
    const Window* window = findWindow(handle);
    const bool zoomed = window->is(WS_MAXIMIZE);
    switch (hit) {
    case HTCLOSE:
        if (window->windowClass->style & CS_NOCLOSE) return 0;
        return SendMessageA(handle, WM_SYSCOMMAND, SC_CLOSE, 0);
    case HTMAXBUTTON:
        if (!(window->style & WS_MAXIMIZEBOX)) return 0;
        return SendMessageA(handle, WM_SYSCOMMAND, zoomed ? SC_RESTORE : SC_MAXIMIZE, 0);
    case HTMINBUTTON:
        if (!(window->style & WS_MINIMIZEBOX)) return 0;
        return SendMessageA(handle, WM_SYSCOMMAND, SC_MINIMIZE, 0);
    default:
        return 0;
    }
}

LRESULT systemKeyDown(HWND handle, WPARAM key, LPARAM lParam) {
    constexpr LPARAM AltDown = LPARAM{1} << 29;
    if (key != static_cast<WPARAM>(VK_F4) || !(lParam & AltDown)) return 0;
    Window* top = topLevelOf(findWindow(handle));
    if (top && !(top->windowClass->style & CS_NOCLOSE)) PostMessageA(top->handle, WM_SYSCOMMAND, SC_CLOSE, 0);
    return 0;
}

LRESULT paintByDefault(HWND handle) {
    PAINTSTRUCT paint;
    if (BeginPaint(handle, &paint)) EndPaint(handle, &paint);
    return 0;
}

LRESULT setRedraw(HWND handle, bool redraw) {
    Window* window = findWindow(handle);
    if (redraw) {
        window->style |= WS_VISIBLE;
    } else {
        window->update = {};
        window->style &= ~WS_VISIBLE;
    }
    rearranged(*window);
    return 0;
}

LRESULT activateCaption(HWND handle, bool active) {
    Window* window = findWindow(handle);
    window->shownActive = active;
    if (window->pixels && window->is(WS_VISIBLE)) paintFrame(*window);
    return TRUE_;
}

/// WM_ACTIVATE: an active window takes the focus.
LRESULT focusOnActivate(HWND handle, WPARAM wParam) {
    if (LOWORD(wParam) != WA_INACTIVE && !findWindow(handle)->is(WS_MINIMIZE)) SetFocus(handle);
    return 0;
}

LRESULT passToParent(const Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!window.isChild() || !window.parent || isDesktop(*window.parent)) return 0;
    return callProcedure(*window.parent, message, wParam, lParam);
}

/// A right click asks for a context menu.
LRESULT askContextMenu(HWND handle, LPARAM client) {
    POINT at{GET_X_LPARAM(client), GET_Y_LPARAM(client)};
    ClientToScreen(handle, &at);
    return SendMessageA(handle, WM_CONTEXTMENU, handle.value, MAKELPARAM(at.x, at.y));
}

LRESULT exchangeIcon(Window& window, HICON icon) {
    const HICON former = window.icon;
    window.icon = icon;
    if (isTopLevel(window) && window.is(WS_VISIBLE) && icon != former) display().iconChanged(window);
    return static_cast<LRESULT>(former.value);
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

LRESULT DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = findWindow(handle);
    if (!window) return 0;
    switch (message) {
    case WM_NCCREATE:
        return TRUE_;
    case WM_NCCALCSIZE:
        return calculateClient(*window, *reinterpret_cast<RECT*>(lParam));
    case WM_NCHITTEST:
        return hitTestFrame(*window, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
    case WM_NCPAINT:
        return paintFrame(*window), 0;
    case WM_NCACTIVATE:
        return activateCaption(handle, wParam != 0);
    case WM_NCLBUTTONUP:
        return frameButtonUp(handle, wParam);
    case WM_NCLBUTTONDBLCLK:
        return wParam == static_cast<WPARAM>(HTCAPTION) ? frameButtonUp(handle, HTMAXBUTTON) : 0;
    case WM_ERASEBKGND:
        return eraseBackground(handle, HDC(static_cast<std::uint32_t>(wParam)));
    case WM_PAINT:
        return paintByDefault(handle);
    case WM_SETREDRAW:
        return setRedraw(handle, wParam != 0);
    case WM_WINDOWPOSCHANGED:
        return tellSizeAndPlace(handle, *reinterpret_cast<WINDOWPOS*>(lParam)), 0;
    case WM_ACTIVATE:
        return focusOnActivate(handle, wParam);
    case WM_MOUSEACTIVATE:
        return mouseActivate(*window, wParam, lParam);
    case WM_SETCURSOR:
        return setCursorShape(handle, wParam, lParam);
    case WM_CANCELMODE:
        return GetCapture() == handle ? (ReleaseCapture(), 0) : 0;
    case WM_MOUSEWHEEL:
        return passToParent(*window, message, wParam, lParam);
    case WM_CONTEXTMENU:
        return passToParent(*window, message, wParam, lParam);
    case WM_RBUTTONUP:
        return askContextMenu(handle, lParam);
    case WM_SYSCOMMAND:
        return systemCommand(handle, wParam);
    case WM_SYSKEYDOWN:
        return systemKeyDown(handle, wParam, lParam);
    case WM_CLOSE:
        return DestroyWindow(handle), 0;
    case WM_SETTEXT:
        return setText(*window, reinterpret_cast<const char*>(lParam));
    case WM_GETTEXT:
        return getText(*window, wParam, reinterpret_cast<char*>(lParam));
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(window->text.size());
    case WM_SETICON:
        return exchangeIcon(*window, HICON(static_cast<std::uint32_t>(lParam)));
    default:
        return 0;
    }
}

} // namespace platform
