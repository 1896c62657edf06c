#include <gtest/gtest.h>

#include "platform/WindowProbe.h"

#include <algorithm>
#include <map>

namespace probe {

using namespace platform;

namespace {

struct MessageName {
    UINT message;
    const char* name;
};

#define NAMED(message)                                                                                       \
    { message, #message }
constexpr MessageName Names[] = {
    NAMED(WM_CREATE),        NAMED(WM_DESTROY),        NAMED(WM_NCDESTROY),
    NAMED(WM_NCCREATE),      NAMED(WM_MOVE),           NAMED(WM_SIZE),
    NAMED(WM_ACTIVATE),      NAMED(WM_SETFOCUS),       NAMED(WM_KILLFOCUS),
    NAMED(WM_ENABLE),        NAMED(WM_PAINT),          NAMED(WM_CLOSE),
    NAMED(WM_ERASEBKGND),    NAMED(WM_SHOWWINDOW),     NAMED(WM_CANCELMODE),
    NAMED(WM_SETCURSOR),     NAMED(WM_MOUSEACTIVATE),  NAMED(WM_WINDOWPOSCHANGED),
    NAMED(WM_NCACTIVATE),    NAMED(WM_KEYDOWN),        NAMED(WM_KEYUP),
    NAMED(WM_CHAR),          NAMED(WM_DEADCHAR),       NAMED(WM_SYSKEYDOWN),
    NAMED(WM_SYSKEYUP),      NAMED(WM_SYSCHAR),        NAMED(WM_TIMER),
    NAMED(WM_MOUSEMOVE),     NAMED(WM_LBUTTONDOWN),    NAMED(WM_LBUTTONUP),
    NAMED(WM_LBUTTONDBLCLK), NAMED(WM_RBUTTONDOWN),    NAMED(WM_RBUTTONUP),
    NAMED(WM_MOUSEWHEEL),    NAMED(WM_CAPTURECHANGED), NAMED(WM_PARENTNOTIFY),
    NAMED(WM_USER),          NAMED(WM_NCCALCSIZE),     NAMED(WM_CONTEXTMENU),
    NAMED(WM_SETTEXT),
};
#undef NAMED

struct Known {
    std::string name;
    Handler handler;
};

std::map<HWND, Known>& known() {
    static std::map<HWND, Known> windows;
    return windows;
}

Known& opening() {
    static Known window;
    return window;
}

std::string nameOf(UINT message) {
    for (const MessageName& named : Names)
        if (named.message == message) return named.name;
    return std::to_string(message);
}

LRESULT procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!known().contains(window)) known()[window] = opening();
    const Seen seen{window, message, wParam, lParam};
    Journal::instance().add(seen);
    const Handler handler = known()[window].handler;
    LRESULT result = 0;
    if (handler && handler(seen, result)) return result;
    return DefWindowProcA(window, message, wParam, lParam);
}

std::string classFor(const Options& options) {
    const std::string name =
        "Probe" + std::to_string(options.classStyle) + (options.background ? "" : "Clear");
    WNDCLASSA windowClass;
    windowClass.style = options.classStyle;
    windowClass.lpfnWndProc = procedure;
    windowClass.cbWndExtra = 8;
    windowClass.hCursor = LoadCursorA({}, IDC_IBEAM);
    if (options.background) windowClass.hbrBackground = HBRUSH(COLOR_WINDOW + 1);
    windowClass.lpszClassName = name.c_str();
    RegisterClassA(&windowClass);
    return name;
}

} // namespace

Journal& Journal::instance() {
    static Journal journal;
    return journal;
}

std::string Journal::of(std::initializer_list<UINT> messages) const {
    std::string line;
    for (const Seen& seen : seen_) {
        if (std::find(messages.begin(), messages.end(), seen.message) == messages.end()) continue;
        if (!line.empty()) line += ", ";
        line += known()[seen.window].name + " " + nameOf(seen.message);
    }
    return line;
}

int Journal::count(UINT message) const {
    return static_cast<int>(
        std::count_if(seen_.begin(), seen_.end(), [&](const Seen& s) { return s.message == message; }));
}

Seen Journal::last(UINT message) const {
    const auto found =
        std::find_if(seen_.rbegin(), seen_.rend(), [&](const Seen& s) { return s.message == message; });
    return found == seen_.rend() ? Seen{} : *found;
}

HWND open(const std::string& name, Options options) {
    const std::string className = classFor(options);
    opening() = {name, options.handler};
    const RECT& r = options.place;
    const HWND window =
        CreateWindowExA(options.exStyle, className.c_str(), name.c_str(), options.style, r.left, r.top,
                        r.right - r.left, r.bottom - r.top, options.parent, {}, {}, nullptr);
    if (window) known()[window] = {name, options.handler};
    return window;
}

HWND openChild(const std::string& name, HWND parent, RECT place, Handler handler, DWORD more) {
    Options options;
    options.style = WS_CHILD | WS_VISIBLE | more;
    options.place = place;
    options.parent = parent;
    options.handler = std::move(handler);
    return open(name, options);
}

POINT middleOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return onScreen(window, client.right / 2, client.bottom / 2);
}

POINT onScreen(HWND window, int x, int y) {
    POINT point{x, y};
    ClientToScreen(window, &point);
    return point;
}

} // namespace probe
