#include "platform/linux/x11_server.h"

#include "platform/linux/x11_monitors.h"
#include "platform/linux/x11_refusals.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <poll.h>

#include <algorithm>
#include <limits>

namespace platform::driver {

namespace {

constexpr int FewestColorBits = 15;
constexpr int MostColorBits = 24;
constexpr int FullVolume = 0;
constexpr unsigned NumLockMask = Mod2Mask;

struct AtomName {
    ::Atom X11Atoms::*member;
    const char* name;
};

constexpr AtomName AtomNames[] = {
    {&X11Atoms::clipboard, "CLIPBOARD"},
    {&X11Atoms::clipboardManager, "CLIPBOARD_MANAGER"},
    {&X11Atoms::incremental, "INCR"},
    {&X11Atoms::multiple, "MULTIPLE"},
    {&X11Atoms::saveTargets, "SAVE_TARGETS"},
    {&X11Atoms::targets, "TARGETS"},
    {&X11Atoms::timestamp, "TIMESTAMP"},
    {&X11Atoms::transfer, "TESELA_TRANSFER"},
    {&X11Atoms::text, "TEXT"},
    {&X11Atoms::utf8, "UTF8_STRING"},
    {&X11Atoms::plainText, "text/plain"},
    {&X11Atoms::plainTextUtf8, PlainText},
    {&X11Atoms::protocols, "WM_PROTOCOLS"},
    {&X11Atoms::deleteWindow, "WM_DELETE_WINDOW"},
    {&X11Atoms::ping, "_NET_WM_PING"},
    {&X11Atoms::state, "WM_STATE"},
    {&X11Atoms::changeState, "WM_CHANGE_STATE"},
    {&X11Atoms::motifHints, "_MOTIF_WM_HINTS"},
    {&X11Atoms::netSupported, "_NET_SUPPORTED"},
    {&X11Atoms::netCheck, "_NET_SUPPORTING_WM_CHECK"},
    {&X11Atoms::netWorkArea, "_NET_WORKAREA"},
    {&X11Atoms::netDesktop, "_NET_CURRENT_DESKTOP"},
    {&X11Atoms::netActive, "_NET_ACTIVE_WINDOW"},
    {&X11Atoms::netIcon, "_NET_WM_ICON"},
    {&X11Atoms::netName, "_NET_WM_NAME"},
    {&X11Atoms::netProcess, "_NET_WM_PID"},
    {&X11Atoms::netUserTime, "_NET_WM_USER_TIME"},
    {&X11Atoms::netState, "_NET_WM_STATE"},
    {&X11Atoms::netStateAbove, "_NET_WM_STATE_ABOVE"},
    {&X11Atoms::netStateHidden, "_NET_WM_STATE_HIDDEN"},
    {&X11Atoms::netStateHigh, "_NET_WM_STATE_MAXIMIZED_VERT"},
    {&X11Atoms::netStateWide, "_NET_WM_STATE_MAXIMIZED_HORZ"},
    {&X11Atoms::netStateNoTaskbar, "_NET_WM_STATE_SKIP_TASKBAR"},
    {&X11Atoms::netType, "_NET_WM_WINDOW_TYPE"},
    {&X11Atoms::netTypeNormal, "_NET_WM_WINDOW_TYPE_NORMAL"},
    {&X11Atoms::netTypeDialog, "_NET_WM_WINDOW_TYPE_DIALOG"},
    {&X11Atoms::netTypePopup, "_NET_WM_WINDOW_TYPE_POPUP_MENU"},
    {&X11Atoms::scrollLock, "Scroll Lock"},
};

/// All in one question to the server.
X11Atoms internAtoms(::Display* display) {
    constexpr std::size_t Count = std::size(AtomNames);
    std::array<char*, Count> names;
    std::array<::Atom, Count> numbers{};
    std::transform(std::begin(AtomNames), std::end(AtomNames), names.begin(),
                   [](const AtomName& a) { return const_cast<char*>(a.name); });
    XInternAtoms(display, names.data(), static_cast<int>(Count), 0, numbers.data());
    X11Atoms atoms{};
    for (std::size_t i = 0; i < Count; ++i)
        atoms.*AtomNames[i].member = numbers[i];
    return atoms;
}

/// The screen's own visual if it shows true colours, else the deepest that does and is not see-through.
std::optional<XVisualInfo> trueColors(::Display* display, int screen) {
    XVisualInfo wanted{};
    wanted.screen = screen;
    wanted.c_class = TrueColor;
    int count = 0;
    XVisualInfo* found = XGetVisualInfo(display, VisualScreenMask | VisualClassMask, &wanted, &count);
    const VisualID own = XVisualIDFromVisual(DefaultVisual(display, screen));
    int deepest = -1;
    const auto take = [](XVisualInfo* all, int at) {
        const XVisualInfo one = all[at];
        XFree(all);
        return one;
    };
    for (int i = 0; i < count; ++i) {
        if (found[i].visualid == own && found[i].depth >= FewestColorBits) return take(found, i);
        if (found[i].depth < FewestColorBits || found[i].depth > MostColorBits) continue;
        if (deepest < 0 || found[i].depth > found[deepest].depth) deepest = i;
    }
    if (deepest >= 0) return take(found, deepest);
    if (found) XFree(found);
    return std::nullopt;
}

bool isToggled(const BYTE* states, int key) {
    return states[key] & 1;
}

} // namespace

std::unique_ptr<X11Server> X11Server::connect() {
    ::Display* display = XOpenDisplay(nullptr);
    if (!display) return nullptr;
    const auto visual = trueColors(display, DefaultScreen(display));
    if (visual) return std::unique_ptr<X11Server>(new X11Server(display, *visual));
    XCloseDisplay(display);
    return nullptr;
}

X11Server::X11Server(::Display* display, const XVisualInfo& visual)
    : display_(display), screen_(visual.screen), visual_(visual), atoms_(internAtoms(display)) {
    const bool own = visual.visual == DefaultVisual(display, screen_);
    colors_ =
        own ? DefaultColormap(display, screen_) : XCreateColormap(display, root(), visual.visual, AllocNone);
    XSelectInput(display, root(), PropertyChangeMask | StructureNotifyMask);
}

X11Server::~X11Server() {
    XCloseDisplay(display_);
}

// --- The screen ------------------------------------------------------------------------------------

const RECT& X11Server::monitor() const {
    if (!monitor_) {
        const RECT whole{0, 0, DisplayWidth(display_, screen_), DisplayHeight(display_, screen_)};
        monitor_ = firstMonitor(display_, root()).value_or(whole);
    }
    return *monitor_;
}

SIZE X11Server::screenSize() const {
    return {widthOf(monitor()), heightOf(monitor())};
}

bool X11Server::isWaylands() const {
    return isMonitorOfWayland(display_, root());
}

RECT X11Server::workArea() const {
    constexpr std::size_t ValuesEach = 4;
    const auto areas = values(root(), atoms_.netWorkArea, XA_CARDINAL);
    if (areas.size() < ValuesEach) return monitor();
    const auto desktop = values(root(), atoms_.netDesktop, XA_CARDINAL);
    const std::size_t wanted = desktop.empty() ? 0 : desktop.front() * ValuesEach;
    const std::size_t at = wanted + ValuesEach <= areas.size() ? wanted : 0;
    const auto value = [&](std::size_t i) { return static_cast<LONG>(areas[at + i]); };
    const RECT area = overlapOf({value(0), value(1), value(0) + value(2), value(1) + value(3)}, monitor());
    return hasNoArea(area) ? monitor() : area;
}

/// Only one program at a time can take over the placing of the windows.
bool X11Server::looksManaged() const {
    XWindowAttributes attributes{};
    return XGetWindowAttributes(display_, root(), &attributes) &&
           (attributes.all_event_masks & SubstructureRedirectMask);
}

bool X11Server::hasWindowManager() const {
    if (!managed_) managed_ = looksManaged();
    return *managed_;
}

void X11Server::noteRootChange(const XEvent& event) {
    if (event.xany.window != root()) return;
    if (event.type == ConfigureNotify) monitor_.reset();
    const bool names = event.type == PropertyNotify;
    if (names && (event.xproperty.atom == atoms_.netCheck || event.xproperty.atom == atoms_.netSupported))
        managed_.reset();
}

// --- Properties and messages -----------------------------------------------------------------------

std::vector<unsigned long> X11Server::values(::Window window, ::Atom property, ::Atom type) const {
    constexpr long LongestAnswer = 1024;
    constexpr int ValueBits = 32;
    ::Atom actual = 0;
    int bits = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* bytes = nullptr;
    const int failed = XGetWindowProperty(display_, window, property, 0, LongestAnswer, 0, type, &actual,
                                          &bits, &count, &left, &bytes);
    std::vector<unsigned long> result;
    if (!failed && actual == type && bits == ValueBits) {
        const auto* first = reinterpret_cast<const unsigned long*>(bytes);
        result.assign(first, first + count);
    }
    if (bytes) XFree(bytes);
    return result;
}

void X11Server::setValues(::Window window, ::Atom property, ::Atom type,
                          const std::vector<unsigned long>& values) const {
    XChangeProperty(display_, window, property, type, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(values.data()), static_cast<int>(values.size()));
}

void X11Server::setText(::Window window, ::Atom property, const std::string& utf8) const {
    XChangeProperty(display_, window, property, atoms_.utf8, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(utf8.data()), static_cast<int>(utf8.size()));
}

void X11Server::askManager(::Window window, ::Atom what, const std::array<long, 5>& details) const {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = what;
    event.xclient.format = 32;
    std::copy(details.begin(), details.end(), event.xclient.data.l);
    XSendEvent(display_, root(), 0, SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

bool X11Server::accepts(const std::function<void()>& requests) const {
    XSync(display_, 0);
    takeRefusal();
    requests();
    XSync(display_, 0);
    return !takeRefusal();
}

void X11Server::wait(std::int64_t milliseconds) const {
    constexpr std::int64_t Longest = std::numeric_limits<int>::max();
    pollfd connection{ConnectionNumber(display_), POLLIN, 0};
    poll(&connection, 1, milliseconds < 0 ? -1 : static_cast<int>(std::min(milliseconds, Longest)));
}

// --- The keyboard's extras -------------------------------------------------------------------------

void X11Server::ringBell() const {
    XBell(display_, FullVolume);
    XFlush(display_);
}

void X11Server::lockKeys(const BYTE* states) const {
    unsigned values = 0;
    if (isToggled(states, VK_CAPITAL)) values |= LockMask;
    if (isToggled(states, VK_NUMLOCK)) values |= NumLockMask;
    XkbLockModifiers(display_, XkbUseCoreKbd, LockMask | NumLockMask, values);
    lightScrollLock(isToggled(states, VK_SCROLL));
}

void X11Server::lightScrollLock(bool on) const {
    XkbSetNamedIndicator(display_, atoms_.scrollLock, 1, on, 0, nullptr);
    XFlush(display_);
}

} // namespace platform::driver
