// Size, place, order and visibility of windows.

#include "platform/linux/display.h"
#include "platform/linux/window_system.h"

#include <algorithm>

namespace platform::driver {

namespace {

/// lParam of WM_NCCALCSIZE is the window's rectangle, which the procedure narrows to the client area.
RECT askClient(HWND handle, RECT frame) {
    Window* window = findWindow(handle);
    callProcedure(*window, WM_NCCALCSIZE, FALSE_, reinterpret_cast<LPARAM>(&frame));
    return frame;
}

/// Whether the window stands where linkOnTop would put it, in front of all its siblings.
bool isOnTop(const Window& window) {
    const auto& siblings = window.parent->children;
    if (siblings.front() != &window) return false;
    return siblings.size() == 1 || (window.exStyle & WS_EX_TOPMOST) ||
           !(siblings[1]->exStyle & WS_EX_TOPMOST);
}

void moveInOrder(Window& window, HWND insertAfter) {
    auto& siblings = window.parent->children;
    const Window* after = findWindow(insertAfter);
    const bool followsOne = after && after->parent == window.parent && after != &window;
    const bool goesOnTop = insertAfter != HWND_BOTTOM && !followsOne;
    if (goesOnTop && isOnTop(window)) return;
    unlink(window);
    if (insertAfter == HWND_BOTTOM) {
        siblings.push_back(&window);
    } else if (followsOne) {
        siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(placeAmongSiblings(*after)) + 1,
                        &window);
    } else {
        linkOnTop(window, *window.parent);
    }
}

/// Owned windows stay above their owner.
void raiseOwned(const Window& window) {
    if (!isTopLevel(window)) return;
    for (HWND owned : ownedHandles(window.handle)) {
        Window* w = findWindow(owned);
        const auto& order = desktopWindow().children;
        if (std::find(order.begin(), order.end(), w) > std::find(order.begin(), order.end(), &window)) {
            moveInOrder(*w, HWND_TOP);
            if (w->is(WS_VISIBLE)) display().raised(*w);
            raiseOwned(*w);
        }
    }
}

void changeOrder(Window& window, HWND insertAfter) {
    if (insertAfter == HWND_TOPMOST) window.exStyle |= WS_EX_TOPMOST;
    if (insertAfter == HWND_NOTOPMOST || insertAfter == HWND_BOTTOM) window.exStyle &= ~WS_EX_TOPMOST;
    moveInOrder(window, insertAfter);
    raiseOwned(window);
}

/// Leaves out of the flags what would change nothing.
void simplify(const Window& window, WINDOWPOS& pos) {
    if (window.is(WS_VISIBLE))
        pos.flags &= ~SWP_SHOWWINDOW;
    else
        pos.flags &= ~SWP_HIDEWINDOW;
    pos.cx = std::max(pos.cx, 0);
    pos.cy = std::max(pos.cy, 0);
    if (pos.cx == widthOf(window.frame) && pos.cy == heightOf(window.frame)) pos.flags |= SWP_NOSIZE;
    if (pos.x == window.frame.left && pos.y == window.frame.top) pos.flags |= SWP_NOMOVE;
    const bool mayActivate = isTopLevel(window) && !(pos.flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW));
    if (attention().active == window.handle)
        pos.flags |= SWP_NOACTIVATE;
    else if (mayActivate) {
        pos.flags &= ~SWP_NOZORDER;
        pos.hwndInsertAfter = window.exStyle & WS_EX_TOPMOST ? HWND_TOPMOST : pos.hwndInsertAfter;
    }
    if (!(pos.flags & SWP_NOZORDER) && pos.hwndInsertAfter == window.handle) pos.flags |= SWP_NOZORDER;
}

WINDOWPOS complete(const Window& window, WINDOWPOS pos) {
    if (pos.flags & SWP_NOMOVE) {
        pos.x = window.frame.left;
        pos.y = window.frame.top;
    }
    if (pos.flags & SWP_NOSIZE) {
        pos.cx = widthOf(window.frame);
        pos.cy = heightOf(window.frame);
    }
    return pos;
}

/// What was seen of a window before it changed.
struct Before {
    RECT frame;
    RECT client;
    Region seen; ///< Screen coordinates, frame included
    POINT origin;
    bool visible = false;
};

Before remember(const Window& window) {
    return {window.frame, window.client, visibleRegion(window, true, false), clientOrigin(window),
            isShown(window)};
}

bool repaintsWhole(const Window& window, const Before& before) {
    const bool wider = widthOf(window.client) != widthOf(before.client);
    const bool higher = heightOf(window.client) != heightOf(before.client);
    return (wider && (window.windowClass->style & CS_HREDRAW)) ||
           (higher && (window.windowClass->style & CS_VREDRAW));
}

/// Keeps what a child showed at its new place and repaints the rest of it and what it uncovered.
void repaintChild(Window& window, const Before& before, UINT flags) {
    Window& parent = *window.parent;
    const Region seen = visibleRegion(window, true, false);
    const bool isPainted = window.update.empty();
    exposeBelow(parent, before.seen.subtracted(seen));
    if (!isShown(window)) return;
    const POINT origin = clientOrigin(window);
    const POINT by{origin.x - before.origin.x, origin.y - before.origin.y};
    const bool keeps =
        before.visible && isPainted && !(flags & SWP_NOCOPYBITS) && !repaintsWhole(window, before);
    if (!keeps) {
        invalidateAll(window);
        return;
    }
    Region kept = before.seen.intersected(Region(offset(
        RECT{0, 0, widthOf(before.client), heightOf(before.client)}, before.origin.x, before.origin.y)));
    kept.translate(by.x, by.y);
    kept = kept.intersected(visibleRegion(window, false, false));
    if (by.x || by.y) copyPixels(*topLevelOf(&window), kept, by);
    Region fresh = seen.subtracted(kept);
    fresh.translate(-origin.x, -origin.y);
    invalidate(window, fresh, true, true);
    window.frameDue = window.frameDue || !fresh.empty();
    awaitPaint(window);
}

void repaintTopLevel(Window& window, const Before& before, UINT flags) {
    if (!isShown(window)) return;
    if (!before.visible || !window.pixels) {
        resizePixels(window);
        invalidateAll(window);
        return;
    }
    if (!(flags & SWP_NOSIZE) || (flags & SWP_FRAMECHANGED)) {
        resizePixels(window);
        window.frameDue = true;
        awaitPaint(window);
        if (repaintsWhole(window, before) || (flags & (SWP_NOCOPYBITS | SWP_FRAMECHANGED))) {
            invalidateAll(window);
            return;
        }
        const RECT now{0, 0, widthOf(window.client), heightOf(window.client)};
        const RECT then{0, 0, widthOf(before.client), heightOf(before.client)};
        invalidate(window, Region(now).subtracted(Region(then)), true, true);
    }
}

void tellDisplay(Window& window, const Before& before, UINT flags) {
    if (!isTopLevel(window)) return;
    if (window.is(WS_VISIBLE) && !before.visible) display().shown(window);
    if (!window.is(WS_VISIBLE) && before.visible) display().hidden(window);
    if (!window.is(WS_VISIBLE)) return;
    if ((flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE)) display().placed(window);
    if (!(flags & SWP_NOZORDER)) display().raised(window);
}

void releaseAttention(HWND handle) {
    Window* window = findWindow(handle);
    if (!window) return;
    const Window* focused = findWindow(attention().focus);
    if (window->isChild() && focused && isInside(*window, focused)) {
        Window* parent = window->parent;
        SetFocus(parent && !isDesktop(*parent) ? parent->handle : HWND{});
    }
    window = findWindow(handle);
    const Window* capture = findWindow(attention().capture);
    if (window && capture && isInside(*window, capture)) ReleaseCapture();
    if (attention().active == handle) activateAnother(handle);
}

bool sizeOrPlaceChanges(UINT flags) {
    return (flags & (SWP_NOSIZE | SWP_NOMOVE)) != (SWP_NOSIZE | SWP_NOMOVE) || (flags & SWP_FRAMECHANGED);
}

bool changesNothing(UINT flags) {
    constexpr UINT Kept = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
    constexpr UINT Changes = SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED | SWP_NOCOPYBITS;
    return (flags & (Kept | Changes)) == Kept;
}

bool applyPosition(HWND handle, WINDOWPOS& pos) {
    Window* window = findWindow(handle);
    const Before before = remember(*window);
    const RECT frame{pos.x, pos.y, pos.x + pos.cx, pos.y + pos.cy};
    RECT client = offset(window->client, frame.left - window->frame.left, frame.top - window->frame.top);
    if (!(pos.flags & SWP_NOSIZE) || (pos.flags & SWP_FRAMECHANGED)) client = askClient(handle, frame);
    if (!(window = findWindow(handle))) return false;
    const bool isElsewhere = frame != window->frame || client != window->client;
    window->frame = frame;
    window->client = client;
    if (!(pos.flags & SWP_NOZORDER)) changeOrder(*window, pos.hwndInsertAfter);
    if (pos.flags & SWP_SHOWWINDOW) window->style |= WS_VISIBLE;
    if (pos.flags & SWP_HIDEWINDOW) window->style &= ~WS_VISIBLE;
    if (isElsewhere || (pos.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW))) rearranged(*window);
    if (isTopLevel(*window)) {
        repaintTopLevel(*window, before, pos.flags);
    } else if (!(pos.flags & SWP_NOREDRAW) && (before.visible || isShown(*window)) && topLevelOf(window)) {
        repaintChild(*window, before, pos.flags);
    }
    tellDisplay(*window, before, pos.flags);
    return true;
}

void sendFirstSize(HWND handle) {
    Window* window = findWindow(handle);
    if (!window || !window->sizeMessagesDue) return;
    window->sizeMessagesDue = false;
    const WPARAM kind = window->is(WS_MAXIMIZE) ? SIZE_MAXIMIZED : SIZE_RESTORED;
    callProcedure(*window, WM_SIZE, kind, MAKELPARAM(widthOf(window->client), heightOf(window->client)));
    if ((window = findWindow(handle)))
        callProcedure(*window, WM_MOVE, 0, MAKELPARAM(window->client.left, window->client.top));
}

RECT maximizedFrame(const Window& window) {
    RECT area{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    if (!isTopLevel(window)) area = {0, 0, widthOf(window.parent->client), heightOf(window.parent->client)};
    const RECT widths = frameWidths(window.style & ~WS_CAPTION, window.exStyle);
    const LONG edge = window.style & WS_THICKFRAME ? GetSystemMetrics(SM_CXFRAME) : widths.left;
    return {area.left - edge, area.top - edge, area.right + edge, area.bottom + edge};
}

/// SetWindowPos to another state of size; returns the flags to add when it has a new rectangle.
bool changeState(HWND handle, int command, RECT& target) {
    Window* window = findWindow(handle);
    if (!window->is(WS_MAXIMIZE) && !window->is(WS_MINIMIZE)) window->restored = window->frame;
    const bool wasSpecial = window->style & (WS_MAXIMIZE | WS_MINIMIZE);
    switch (command) {
    case SW_SHOWMAXIMIZED:
        window->style = (window->style & ~WS_MINIMIZE) | WS_MAXIMIZE;
        target = maximizedFrame(*window);
        return true;
    case SW_SHOWMINIMIZED:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
        window->style |= WS_MINIMIZE;
        return false;
    case SW_SHOWNORMAL:
    case SW_RESTORE:
    case SW_SHOWNOACTIVATE:
        if (!wasSpecial) return false;
        if (window->is(WS_MINIMIZE) && window->is(WS_MAXIMIZE)) {
            window->style &= ~WS_MINIMIZE;
            target = maximizedFrame(*window);
            return true;
        }
        window->style &= ~(WS_MAXIMIZE | WS_MINIMIZE);
        target = window->restored;
        return true;
    default:
        return false;
    }
}

bool keepsInactive(int command) {
    return command == SW_SHOWNOACTIVATE || command == SW_SHOWNA || command == SW_SHOWMINNOACTIVE ||
           command == SW_MINIMIZE;
}

} // namespace

void recalculateClient(Window& window) {
    const HWND handle = window.handle;
    const RECT client = askClient(handle, window.frame);
    if (Window* still = findWindow(handle)) {
        still->client = client;
        rearranged(*still);
    }
}

RECT defaultPlace(DWORD) {
    constexpr int Step = 22;
    constexpr int Steps = 8;
    static int next = 0;
    const int at = Step * (next++ % Steps);
    RECT area{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    const int width = widthOf(area) * 3 / 4;
    const int height = heightOf(area) * 3 / 4;
    return {area.left + at, area.top + at, area.left + at + width, area.top + at + height};
}

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL SetWindowPos(HWND handle, HWND insertAfter, int x, int y, int width, int height, UINT flags) {
    Window* window = findWindow(handle);
    if (!window || isDesktop(*window)) return FALSE_;
    WINDOWPOS pos = complete(*window, {handle, insertAfter, x, y, width, height, flags});
    simplify(*window, pos);
    if (!(pos.flags & SWP_NOSENDCHANGING)) {
        callProcedure(*window, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&pos));
        if (!(window = findWindow(handle))) return FALSE_;
        pos = complete(*window, pos);
    }
    if (changesNothing(pos.flags)) return TRUE_;
    if (!applyPosition(handle, pos)) return FALSE_;
    if (pos.flags & SWP_HIDEWINDOW) releaseAttention(handle);
    if (!(window = findWindow(handle))) return TRUE_;
    const bool activates = !(pos.flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) && isTopLevel(*window) &&
                           !(window->exStyle & WS_EX_NOACTIVATE) && window->is(WS_VISIBLE);
    if (activates) activate(handle, false);
    if (!(window = findWindow(handle))) return TRUE_;
    const bool moved = sizeOrPlaceChanges(pos.flags) || !(pos.flags & SWP_NOZORDER);
    if (moved || (pos.flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)))
        callProcedure(*window, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&pos));
    return TRUE_;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
    UINT flags = SWP_NOZORDER | SWP_NOACTIVATE;
    if (!repaint) flags |= SWP_NOREDRAW;
    return SetWindowPos(window, {}, x, y, width, height, flags);
}

BOOL ShowWindow(HWND handle, int command) {
    Window* window = findWindow(handle);
    if (!window || isDesktop(*window)) return FALSE_;
    const bool wasVisible = window->is(WS_VISIBLE);
    const bool shows = command != SW_HIDE;
    if (!shows && !wasVisible) return FALSE_;
    UINT flags = SWP_NOSIZE | SWP_NOMOVE;
    RECT target = window->frame;
    const DWORD formerState = window->style & (WS_MINIMIZE | WS_MAXIMIZE);
    if (shows && changeState(handle, command, target)) flags &= ~(SWP_NOSIZE | SWP_NOMOVE);
    const DWORD state = window->style & (WS_MINIMIZE | WS_MAXIMIZE);
    if (state != formerState) rearranged(*window);
    if (wasVisible && isTopLevel(*window) && state != formerState) display().stateChanged(*window);
    const bool stateChanged = !(flags & SWP_NOSIZE);
    if (shows && wasVisible && !stateChanged && (command == SW_SHOW || command == SW_SHOWNA) &&
        window->isChild())
        return TRUE_;
    if (shows != wasVisible) {
        callProcedure(*window, WM_SHOWWINDOW, shows, 0);
        if (!(window = findWindow(handle))) return wasVisible;
        flags |= shows ? SWP_SHOWWINDOW : SWP_HIDEWINDOW;
    }
    if (window->isChild() || keepsInactive(command) || !shows) flags |= SWP_NOACTIVATE | SWP_NOZORDER;
    if (state != formerState) flags |= SWP_FRAMECHANGED;
    SetWindowPos(handle, HWND_TOP, target.left, target.top, widthOf(target), heightOf(target), flags);
    if (shows && (window = findWindow(handle))) {
        if (window->is(WS_MINIMIZE) && attention().active == handle) activateAnother(handle);
        sendFirstSize(handle);
    }
    return wasVisible;
}

BOOL IsIconic(HWND window) {
    const Window* w = findWindow(window);
    return w && w->is(WS_MINIMIZE);
}

BOOL IsZoomed(HWND window) {
    const Window* w = findWindow(window);
    return w && w->is(WS_MAXIMIZE);
}

} // namespace platform
