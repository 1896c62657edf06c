// How windows come and go, and what they carry.

#include "platform/linux/display.h"
#include "platform/linux/message_queue.h"
#include "platform/linux/window_system.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

LRESULT callProcedure(Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    return window.procedure ? window.procedure(window.handle, message, wParam, lParam) : 0;
}

namespace {

/// WM_DESTROY to a window and then to the windows inside it.
void sendDestroy(HWND handle) {
    Window* window = findWindow(handle);
    if (!window) return;
    window->destroying = true;
    callProcedure(*window, WM_DESTROY, 0, 0);
    window = findWindow(handle);
    if (!window) return;
    for (HWND child : childHandles(*window))
        sendDestroy(child);
}

/// WM_NCDESTROY from the innermost windows out; each is gone after its own.
void dissolve(HWND handle) {
    Window* window = findWindow(handle);
    if (!window) return;
    for (HWND child : childHandles(*window))
        dissolve(child);
    if ((window = findWindow(handle))) callProcedure(*window, WM_NCDESTROY, 0, 0);
    if (!(window = findWindow(handle))) return;
    if (isTopLevel(*window) && window->pixels) display().destroyed(*window);
    removeTimersOf(handle);
    removeMessagesOf(handle);
    releaseContexts(handle);
    forgetWindow(handle);
    unlink(*window);
    --window->windowClass->windows;
    removeWindow(*window);
}

void notifyParent(Window& window, UINT event) {
    if (!window.isChild() || (window.exStyle & WS_EX_NOPARENTNOTIFY)) return;
    const HWND child = window.handle;
    const auto what = MAKEWPARAM(static_cast<int>(event), static_cast<int>(window.id));
    HWND above = window.parent ? window.parent->handle : HWND{};
    while (Window* parent = findWindow(above)) {
        if (isDesktop(*parent)) return;
        const bool goesOn = parent->isChild() && !(parent->exStyle & WS_EX_NOPARENTNOTIFY);
        const HWND next = parent->parent ? parent->parent->handle : HWND{};
        callProcedure(*parent, WM_PARENTNOTIFY, what, static_cast<LPARAM>(child.value));
        if (!goesOn) return;
        above = next;
    }
}

/// The style bits that the system adds to those asked for.
void completeStyles(Window& window) {
    if (!(window.style & WS_CHILD)) window.style |= WS_CLIPSIBLINGS;
    if (!(window.style & (WS_CHILD | WS_POPUP))) window.style |= WS_CAPTION;
    const bool framed = (window.style & WS_THICKFRAME) || (window.exStyle & WS_EX_DLGMODALFRAME) ||
                        (window.style & (WS_DLGFRAME | WS_BORDER)) == WS_DLGFRAME;
    const bool captioned = (window.style & WS_CAPTION) == WS_CAPTION && !(window.style & WS_CHILD);
    if (framed || captioned) window.exStyle |= WS_EX_WINDOWEDGE;
}

RECT wantedFrame(DWORD style, int x, int y, int width, int height) {
    if (!(style & (WS_CHILD | WS_POPUP)) && (x == CW_USEDEFAULT || width == CW_USEDEFAULT)) {
        const RECT place = defaultPlace(style);
        if (x == CW_USEDEFAULT) {
            x = place.left;
            y = place.top;
        }
        if (width == CW_USEDEFAULT) {
            width = widthOf(place);
            height = heightOf(place);
        }
    }
    if (x == CW_USEDEFAULT) x = y = 0;
    if (width == CW_USEDEFAULT) width = height = 0;
    return {x, y, x + std::max(width, 0), y + std::max(height, 0)};
}

/// Sends the messages of a window's birth. False when a procedure refused or destroyed it.
bool announce(HWND handle, CREATESTRUCTA& create) {
    const auto record = reinterpret_cast<LPARAM>(&create);
    if (!callProcedure(*findWindow(handle), WM_NCCREATE, 0, record)) {
        dissolve(handle);
        return false;
    }
    Window* window = findWindow(handle);
    if (!window) return false;
    recalculateClient(*window);
    if (!(window = findWindow(handle))) return false;
    if (callProcedure(*window, WM_CREATE, 0, record) == -1) {
        DestroyWindow(handle);
        return false;
    }
    return findWindow(handle) != nullptr;
}

void announceSize(HWND handle) {
    if (Window* window = findWindow(handle)) {
        const LPARAM size = MAKELPARAM(widthOf(window->client), heightOf(window->client));
        callProcedure(*window, WM_SIZE, SIZE_RESTORED, size);
    }
    if (Window* window = findWindow(handle))
        callProcedure(*window, WM_MOVE, 0, MAKELPARAM(window->client.left, window->client.top));
}

/// Shrinks or widens a frame to what a sizeable or captioned window may have.
void applyTrackLimits(HWND handle) {
    Window* window = findWindow(handle);
    if (!(window->style & WS_THICKFRAME) && (window->style & (WS_POPUP | WS_CHILD))) return;
    MINMAXINFO limits;
    limits.ptMaxSize = {GetSystemMetrics(SM_CXMAXIMIZED), GetSystemMetrics(SM_CYMAXIMIZED)};
    limits.ptMinTrackSize = {GetSystemMetrics(SM_CXMINTRACK), GetSystemMetrics(SM_CYMINTRACK)};
    limits.ptMaxTrackSize = {GetSystemMetrics(SM_CXMAXTRACK), GetSystemMetrics(SM_CYMAXTRACK)};
    callProcedure(*window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    if (!(window = findWindow(handle))) return;
    const int width = std::clamp<int>(widthOf(window->frame), limits.ptMinTrackSize.x,
                                      std::max(limits.ptMinTrackSize.x, limits.ptMaxTrackSize.x));
    const int height = std::clamp<int>(heightOf(window->frame), limits.ptMinTrackSize.y,
                                       std::max(limits.ptMinTrackSize.y, limits.ptMaxTrackSize.y));
    window->frame.right = window->frame.left + width;
    window->frame.bottom = window->frame.top + height;
    window->client = window->frame;
    rearranged(*window);
}

} // namespace

void destroyAllWindows() {
    for (HWND window : childHandles(desktopWindow()))
        DestroyWindow(window);
}

} // namespace platform::driver

namespace platform {

using namespace driver;

HWND CreateWindowExA(DWORD exStyle, const char* className, const char* windowName, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter) {
    const auto windowClass = findClass(className);
    Window* above = parent ? findWindow(parent) : nullptr;
    if (!windowClass || (parent && !above) || ((style & WS_CHILD) && !(style & WS_POPUP) && !above))
        return {};
    display();

    Window& made = addWindow();
    const HWND handle = made.handle;
    made.windowClass = windowClass;
    ++windowClass->windows;
    made.procedure = windowClass->procedure;
    made.style = style & ~WS_VISIBLE;
    made.exStyle = exStyle;
    completeStyles(made);
    made.id = static_cast<LONG_PTR>(menu.value);
    made.instance = instance;
    made.text = windowName ? windowName : "";
    made.extra.resize(static_cast<std::size_t>(std::max(windowClass->extraBytes, 0)));
    made.frame = wantedFrame(style, x, y, width, height);
    made.client = made.frame;
    made.sizeMessagesDue = !(style & (WS_CHILD | WS_POPUP));
    if (made.isChild()) {
        made.parent = above;
        above->children.push_back(&made); // below its siblings
        rearranged(made);
    } else {
        Window* owner = above ? topLevelOf(above) : nullptr;
        if (owner) made.owner = owner->handle;
        linkOnTop(made, desktopWindow());
    }

    CREATESTRUCTA create{parameter,
                         instance,
                         menu,
                         parent,
                         heightOf(made.frame),
                         widthOf(made.frame),
                         static_cast<int>(made.frame.top),
                         static_cast<int>(made.frame.left),
                         static_cast<LONG>(style),
                         windowName,
                         className,
                         exStyle};
    applyTrackLimits(handle);
    if (!findWindow(handle) || !announce(handle, create)) return {};
    if (!findWindow(handle)->sizeMessagesDue) announceSize(handle);
    if (Window* window = findWindow(handle)) notifyParent(*window, WM_CREATE);
    if (findWindow(handle) && (style & WS_VISIBLE)) {
        const int command = (style & WS_MAXIMIZE) ? SW_SHOWMAXIMIZED : SW_SHOW;
        Window* window = findWindow(handle);
        window->style &= ~(WS_MAXIMIZE | WS_MINIMIZE);
        rearranged(*window);
        ShowWindow(handle, command);
    }
    return findWindow(handle) ? handle : HWND{};
}

BOOL DestroyWindow(HWND handle) {
    Window* window = findWindow(handle);
    if (!window || isDesktop(*window) || window->destroying) return FALSE_;
    notifyParent(*window, WM_DESTROY);
    if (!(window = findWindow(handle))) return TRUE_;
    if (window->is(WS_VISIBLE)) {
        if (window->isChild())
            ShowWindow(handle, SW_HIDE);
        else
            SetWindowPos(handle, {}, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
        if (!findWindow(handle)) return TRUE_;
    }
    for (HWND owned : ownedHandles(handle))
        DestroyWindow(owned);
    sendDestroy(handle);
    dissolve(handle);
    return TRUE_;
}

namespace {

constexpr std::size_t LongSize = sizeof(LONG);

LONG_PTR readExtra(const Window& window, int index, std::size_t size) {
    if (static_cast<std::size_t>(index) + size > window.extra.size()) return 0;
    if (size == LongSize) {
        LONG value = 0;
        std::memcpy(&value, window.extra.data() + index, size);
        return value;
    }
    LONG_PTR value = 0;
    std::memcpy(&value, window.extra.data() + index, size);
    return value;
}

void writeExtra(Window& window, int index, LONG_PTR value, std::size_t size) {
    if (static_cast<std::size_t>(index) + size > window.extra.size()) return;
    if (size == LongSize) {
        const auto narrow = static_cast<LONG>(value);
        std::memcpy(window.extra.data() + index, &narrow, size);
    } else {
        std::memcpy(window.extra.data() + index, &value, size);
    }
}

LONG_PTR readLong(const Window& window, int index, std::size_t size) {
    switch (index) {
    case GWL_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window.procedure);
    case GWL_HINSTANCE:
        return static_cast<LONG_PTR>(window.instance.value);
    case GWL_HWNDPARENT:
        return static_cast<LONG_PTR>(GetParent(window.handle).value);
    case GWL_ID:
        return window.id;
    case GWL_STYLE:
        return static_cast<LONG>(window.style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(window.exStyle);
    case GWL_USERDATA:
        return window.userData;
    default:
        return index >= 0 ? readExtra(window, index, size) : 0;
    }
}

struct STYLESTRUCT {
    DWORD styleOld = 0;
    DWORD styleNew = 0;
};

LONG_PTR writeStyle(HWND handle, int index, DWORD value) {
    Window* window = findWindow(handle);
    STYLESTRUCT change{index == GWL_STYLE ? window->style : window->exStyle, value};
    const auto record = reinterpret_cast<LPARAM>(&change);
    callProcedure(*window, WM_STYLECHANGING, static_cast<WPARAM>(index), record);
    if (!(window = findWindow(handle))) return 0;
    (index == GWL_STYLE ? window->style : window->exStyle) = change.styleNew;
    rearranged(*window);
    callProcedure(*window, WM_STYLECHANGED, static_cast<WPARAM>(index), record);
    return static_cast<LONG>(change.styleOld);
}

void writeOwnerOrParent(Window& window, HWND other) {
    if (window.isChild()) {
        SetParent(window.handle, other);
        return;
    }
    Window* owner = findWindow(other);
    window.owner = owner && topLevelOf(owner) ? topLevelOf(owner)->handle : HWND{};
}

LONG_PTR writeLong(HWND handle, int index, LONG_PTR value, std::size_t size) {
    Window* window = findWindow(handle);
    if (!window || isDesktop(*window)) return 0;
    const LONG_PTR former = readLong(*window, index, size);
    switch (index) {
    case GWL_WNDPROC:
        window->procedure = reinterpret_cast<WNDPROC>(value);
        break;
    case GWL_HINSTANCE:
        window->instance = HINSTANCE(static_cast<std::uint32_t>(value));
        break;
    case GWL_HWNDPARENT:
        writeOwnerOrParent(*window, HWND(static_cast<std::uint32_t>(value)));
        break;
    case GWL_ID:
        window->id = value;
        break;
    case GWL_USERDATA:
        window->userData = value;
        break;
    case GWL_STYLE:
    case GWL_EXSTYLE:
        return writeStyle(handle, index, static_cast<DWORD>(value));
    default:
        if (index < 0) return 0;
        writeExtra(*window, index, value, size);
    }
    return former;
}

} // namespace

LONG GetWindowLongA(HWND window, int index) {
    const Window* w = findWindow(window);
    return w ? static_cast<LONG>(readLong(*w, index, LongSize)) : 0;
}

LONG SetWindowLongA(HWND window, int index, LONG value) {
    return static_cast<LONG>(writeLong(window, index, value, LongSize));
}

LONG_PTR GetWindowLongPtrA(HWND window, int index) {
    const Window* w = findWindow(window);
    return w ? readLong(*w, index, sizeof(LONG_PTR)) : 0;
}

LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value) {
    return writeLong(window, index, value, sizeof(LONG_PTR));
}

BOOL SetPropA(HWND window, const char* name, HANDLE data) {
    Window* w = findWindow(window);
    if (!w || !name) return FALSE_;
    w->properties[name] = data;
    return TRUE_;
}

HANDLE GetPropA(HWND window, const char* name) {
    const Window* w = findWindow(window);
    if (!w || !name) return {};
    const auto found = w->properties.find(name);
    return found == w->properties.end() ? HANDLE{} : found->second;
}

HANDLE RemovePropA(HWND window, const char* name) {
    const HANDLE former = GetPropA(window, name);
    if (Window* w = findWindow(window); w && name) w->properties.erase(name);
    return former;
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}

HWND SetParent(HWND child, HWND parent) {
    Window* window = findWindow(child);
    Window* target = parent ? findWindow(parent) : &desktopWindow();
    if (!window || !target || isDesktop(*window) || isInside(*window, target)) return {};
    const HWND former = window->parent ? window->parent->handle : HWND{};
    const bool visible = window->is(WS_VISIBLE);
    if (visible) ShowWindow(child, SW_HIDE);
    if (!(window = findWindow(child)) || !(target = findWindow(parent ? parent : GetDesktopWindow())))
        return {};
    if (isTopLevel(*window) && !isDesktop(*target) && window->pixels) {
        display().destroyed(*window);
        releaseContexts(child);
        window->pixels.reset();
    }
    unlink(*window);
    linkOnTop(*window, *target);
    if (visible) ShowWindow(child, SW_SHOWNA);
    return former;
}

} // namespace platform
