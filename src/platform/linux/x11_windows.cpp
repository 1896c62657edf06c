#include "platform/linux/x11_windows.h"

#include "platform/linux/desktop_icon.h"
#include "platform/linux/desktop_windows.h"

#include <X11/Xatom.h>
#include <unistd.h>

#include <algorithm>

namespace platform::driver {

namespace {

constexpr long EventMask = KeyPressMask | KeyReleaseMask | KeymapStateMask | ButtonPressMask |
                           ButtonReleaseMask | PointerMotionMask | EnterWindowMask | ExposureMask |
                           StructureNotifyMask | FocusChangeMask | PropertyChangeMask;

constexpr const char* ClassName = "Tesela";

// The hints that window managers took over from Motif: which decorations and which commands a window has.
constexpr unsigned long MotifFunctionsGiven = 1 << 0;
constexpr unsigned long MotifDecorationsGiven = 1 << 1;
constexpr unsigned long MotifResize = 1 << 1;
constexpr unsigned long MotifMove = 1 << 2;
constexpr unsigned long MotifMinimize = 1 << 3;
constexpr unsigned long MotifMaximize = 1 << 4;
constexpr unsigned long MotifClose = 1 << 5;

constexpr long FromProgram = 1; ///< Who asks the window manager: an ordinary program

bool isToolWindow(const Window& window) {
    return window.owner || (window.exStyle & WS_EX_TOOLWINDOW);
}

/// What is shown of a window when it is neither minimised nor maximised.
RECT restoredPlace(const Window& window) {
    const RECT part = shownPart(window);
    const RECT& f = window.frame;
    const RECT& r = window.restored;
    return {r.left + part.left - f.left, r.top + part.top - f.top, r.right + part.right - f.right,
            r.bottom + part.bottom - f.bottom};
}

/// A maximised window is made as it is when it is not: the window manager keeps that to restore it.
RECT firstPlace(const Window& window, bool managed) {
    const bool restores = managed && window.is(WS_MAXIMIZE) && !hasNoArea(window.restored);
    return restores ? restoredPlace(window) : shownPart(window);
}

unsigned positive(int size) {
    return static_cast<unsigned>(std::max(size, 1));
}

} // namespace

X11Windows::~X11Windows() {
    for (const auto& [handle, native] : windows_)
        XDestroyWindow(server_.display(), native.id);
}

X11Window* X11Windows::find(HWND window) {
    const auto found = windows_.find(window);
    return found == windows_.end() ? nullptr : &found->second;
}

Window* X11Windows::windowOf(::Window id) const {
    for (const auto& [handle, native] : windows_)
        if (native.id == id) return findWindow(handle);
    return nullptr;
}

// --- Making and describing -------------------------------------------------------------------------

X11Window& X11Windows::make(Window& window) {
    ::Display* display = server_.display();
    X11Window native;
    native.place = firstPlace(window, server_.hasWindowManager());
    native.isPopup = isPopup(window);
    XSetWindowAttributes attributes{};
    attributes.event_mask = EventMask;
    attributes.colormap = server_.colors();
    attributes.border_pixel = 0;
    attributes.bit_gravity = NorthWestGravity;
    attributes.override_redirect = native.isPopup;
    native.id = XCreateWindow(
        display, server_.root(), native.place.left, native.place.top, positive(widthOf(native.place)),
        positive(heightOf(native.place)), 0, server_.visual().depth, InputOutput, server_.visual().visual,
        CWEventMask | CWColormap | CWBorderPixel | CWBitGravity | CWOverrideRedirect, &attributes);
    return windows_[window.handle] = native;
}

void X11Windows::describe(const Window& window, const X11Window& native) const {
    const X11Atoms& atoms = server_.atoms();
    ::Display* display = server_.display();
    writeTitle(window, native);
    writeIcon(window, native);
    XClassHint names{program_invocation_short_name, const_cast<char*>(ClassName)};
    XSetClassHint(display, native.id, &names);
    ::Atom protocols[] = {atoms.deleteWindow, atoms.ping};
    XSetWMProtocols(display, native.id, protocols, static_cast<int>(std::size(protocols)));
    server_.setValues(native.id, atoms.netProcess, XA_CARDINAL, {static_cast<unsigned long>(getpid())});
    const ::Atom type = native.isPopup                          ? atoms.netTypePopup
                        : window.owner && window.is(WS_CAPTION) ? atoms.netTypeDialog
                                                                : atoms.netTypeNormal;
    server_.setValues(native.id, atoms.netType, XA_ATOM, {type});
    const auto owner = windows_.find(window.owner);
    if (owner != windows_.end()) XSetTransientForHint(display, native.id, owner->second.id);
    describeSize(window, native);
    describeDecorations(window, native);
    XWMHints hints{};
    hints.flags = InputHint | StateHint;
    hints.input = !(window.exStyle & WS_EX_NOACTIVATE);
    hints.initial_state = window.is(WS_MINIMIZE) ? IconicState : NormalState;
    XSetWMHints(display, native.id, &hints);
}

/// The client area is to be where the program puts it, whatever the frame around it is like.
void X11Windows::describeSize(const Window& window, const X11Window& native) const {
    XSizeHints hints{};
    hints.flags = PPosition | USPosition | PSize | PWinGravity;
    hints.x = native.place.left;
    hints.y = native.place.top;
    hints.width = widthOf(native.place);
    hints.height = heightOf(native.place);
    hints.win_gravity = StaticGravity;
    if (!(window.style & (WS_THICKFRAME | WS_MAXIMIZE))) {
        hints.flags |= PMinSize | PMaxSize;
        hints.min_width = hints.max_width = hints.width;
        hints.min_height = hints.max_height = hints.height;
    }
    XSetWMNormalHints(server_.display(), native.id, &hints);
}

void X11Windows::describeDecorations(const Window& window, const X11Window& native) const {
    unsigned long functions = MotifMove | MotifClose;
    if (window.style & WS_THICKFRAME) functions |= MotifResize;
    if (window.style & WS_MINIMIZEBOX) functions |= MotifMinimize;
    if (window.style & WS_MAXIMIZEBOX) functions |= MotifMaximize;
    const unsigned long decorations = window.is(WS_CAPTION) ? 1 : 0;
    server_.setValues(native.id, server_.atoms().motifHints, server_.atoms().motifHints,
                      {MotifFunctionsGiven | MotifDecorationsGiven, functions, decorations, 0, 0});
}

void X11Windows::writeTitle(const Window& window, const X11Window& native) const {
    const std::string title = utf8Title(window);
    server_.setText(native.id, server_.atoms().netName, title);
    server_.setText(native.id, XA_WM_NAME, title);
}

/// The size, and the pixels row by row.
void X11Windows::writeIcon(const Window& window, const X11Window& native) const {
    const IconPicture icon = pictureOf(window.icon ? window.icon : window.windowClass->icon);
    if (icon.argb.empty()) {
        XDeleteProperty(server_.display(), native.id, server_.atoms().netIcon);
        return;
    }
    std::vector<unsigned long> values{static_cast<unsigned long>(icon.width),
                                      static_cast<unsigned long>(icon.height)};
    values.insert(values.end(), icon.argb.begin(), icon.argb.end());
    server_.setValues(native.id, server_.atoms().netIcon, XA_CARDINAL, values);
}

/// What a window is when it appears; later changes are the window manager's to make.
void X11Windows::writeState(const Window& window, const X11Window& native) const {
    const X11Atoms& atoms = server_.atoms();
    std::vector<unsigned long> states;
    if (window.exStyle & WS_EX_TOPMOST) states.push_back(atoms.netStateAbove);
    if (isToolWindow(window)) states.push_back(atoms.netStateNoTaskbar);
    if (window.is(WS_MAXIMIZE)) states.insert(states.end(), {atoms.netStateHigh, atoms.netStateWide});
    server_.setValues(native.id, atoms.netState, XA_ATOM, states);
}

void X11Windows::rename(const Window& window) {
    if (const X11Window* native = find(window.handle)) writeTitle(window, *native);
}

void X11Windows::changeIcon(const Window& window) {
    if (const X11Window* native = find(window.handle)) writeIcon(window, *native);
}

// --- Showing and placing ---------------------------------------------------------------------------

void X11Windows::show(Window& window) {
    X11Window* known = find(window.handle);
    X11Window& native = known ? *known : make(window);
    if (known) configure(window, native);
    describe(window, native);
    writeState(window, native);
    native.isMaximized = window.is(WS_MAXIMIZE);
    native.isMinimized = window.is(WS_MINIMIZE);
    native.isTopmost = window.exStyle & WS_EX_TOPMOST;
    if (!native.isMinimized || server_.hasWindowManager()) XMapWindow(server_.display(), native.id);
}

void X11Windows::hide(Window& window) {
    if (const X11Window* native = find(window.handle))
        XWithdrawWindow(server_.display(), native->id, server_.visual().screen);
}

void X11Windows::place(Window& window) {
    X11Window* native = find(window.handle);
    if (!native || window.is(WS_MINIMIZE)) return;
    if (window.is(WS_MAXIMIZE) && server_.hasWindowManager()) return;
    const bool left = native->leftToManager == shownPart(window);
    native->leftToManager.reset();
    if (!left) configure(window, *native);
}

void X11Windows::configure(const Window& window, X11Window& native) const {
    const RECT part = shownPart(window);
    if (native.place == part) return;
    native.place = part;
    if (!native.isPopup) describeSize(window, native);
    native.asked = NextRequest(server_.display());
    XMoveResizeWindow(server_.display(), native.id, part.left, part.top, positive(widthOf(part)),
                      positive(heightOf(part)));
}

bool X11Windows::readPlace(X11Window& native, const XConfigureEvent& event) const {
    if (event.serial < native.asked) return false;
    native.leftToManager.reset();
    int x = event.x;
    int y = event.y;
    if (native.isInFrame && !event.send_event) {
        ::Window child = 0;
        XTranslateCoordinates(server_.display(), native.id, server_.root(), 0, 0, &x, &y, &child);
    }
    const RECT now{x, y, x + event.width, y + event.height};
    if (native.place == now) return false;
    native.place = now;
    return true;
}

/// Below the next of our windows that is above it, or on top.
void X11Windows::stack(const Window& window) {
    const X11Window* native = find(window.handle);
    if (!native) return;
    XWindowChanges changes{};
    changes.sibling = neighbourAbove(window);
    changes.stack_mode = changes.sibling ? Below : Above;
    const unsigned parts = CWStackMode | (changes.sibling ? CWSibling : 0u);
    XReconfigureWMWindow(server_.display(), native->id, server_.visual().screen, parts, &changes);
}

void X11Windows::writeTopmost(const Window& window) {
    X11Window* native = find(window.handle);
    const bool topmost = window.exStyle & WS_EX_TOPMOST;
    if (!native || topmost == native->isTopmost) return;
    native->isTopmost = topmost;
    askState(*native, topmost, server_.atoms().netStateAbove);
}

::Window X11Windows::neighbourAbove(const Window& window) const {
    ::Window above = 0;
    for (const Window* sibling : desktopWindow().children) {
        if (sibling == &window) return above;
        const auto found = windows_.find(sibling->handle);
        if (found != windows_.end() && sibling->is(WS_VISIBLE)) above = found->second.id;
    }
    return 0;
}

// --- Minimised and maximised -----------------------------------------------------------------------

void X11Windows::changeState(Window& window) {
    X11Window* native = find(window.handle);
    if (!native) return;
    ::Display* display = server_.display();
    const bool managed = server_.hasWindowManager();
    if (window.is(WS_MINIMIZE)) {
        if (managed)
            XIconifyWindow(display, native->id, server_.visual().screen);
        else
            XUnmapWindow(display, native->id);
        native->isMinimized = true;
        return;
    }
    if (native->isMinimized) XMapWindow(display, native->id);
    native->isMinimized = false;
    if (window.is(WS_MAXIMIZE) != native->isMaximized) maximize(window, *native, window.is(WS_MAXIMIZE));
}

void X11Windows::maximize(Window& window, X11Window& native, bool on) const {
    native.isMaximized = on;
    describeSize(window, native); // A window of fixed size is let grow
    askState(native, on, server_.atoms().netStateWide, server_.atoms().netStateHigh);
    if (!on && server_.hasWindowManager()) native.leftToManager = restoredPlace(window);
}

void X11Windows::askState(const X11Window& native, bool on, ::Atom first, ::Atom second) const {
    server_.askManager(native.id, server_.atoms().netState,
                       {on ? 1 : 0, static_cast<long>(first), static_cast<long>(second), FromProgram, 0});
}

bool X11Windows::readState(X11Window& native) const {
    const X11Atoms& atoms = server_.atoms();
    const auto managed = server_.values(native.id, atoms.state, atoms.state);
    if (managed.empty() || managed.front() == WithdrawnState) return false;
    const auto states = server_.values(native.id, atoms.netState, XA_ATOM);
    const auto has = [&](::Atom state) {
        return std::find(states.begin(), states.end(), state) != states.end();
    };
    const bool minimized = managed.front() == IconicState || has(atoms.netStateHidden);
    const bool maximized = has(atoms.netStateHigh) && has(atoms.netStateWide);
    const bool changed = minimized != native.isMinimized || maximized != native.isMaximized;
    native.isMinimized = minimized;
    native.isMaximized = maximized;
    return changed;
}

// --- The keyboard ----------------------------------------------------------------------------------

/// A window manager gives it to the windows that appear by itself, and to others when it is asked.
void X11Windows::giveKeyboard(const Window& window) {
    const X11Window* native = find(window.handle);
    if (!native || native->isPopup) return;
    if (server_.hasWindowManager()) {
        server_.askManager(native->id, server_.atoms().netActive,
                           {FromProgram, static_cast<long>(server_.userTime()), 0, 0, 0});
        return;
    }
    XRaiseWindow(server_.display(), native->id);
    XSetInputFocus(server_.display(), native->id, RevertToParent, CurrentTime);
}

void X11Windows::destroy(HWND window) {
    const X11Window* native = find(window);
    if (!native) return;
    XDestroyWindow(server_.display(), native->id);
    windows_.erase(window);
}

} // namespace platform::driver
