#include "platform/linux/x11_monitors.h"

#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <string_view>

namespace platform::driver {

namespace {

/// Monitors are told from version 1.5 of the extension on.
bool tellsMonitors(::Display* display) {
    int events = 0;
    int errors = 0;
    int major = 0;
    int minor = 0;
    return XRRQueryExtension(display, &events, &errors) && XRRQueryVersion(display, &major, &minor) &&
           (major > 1 || (major == 1 && minor >= 5));
}

} // namespace

std::optional<RECT> firstMonitor(::Display* display, ::Window root) {
    if (!tellsMonitors(display)) return std::nullopt;
    int count = 0;
    XRRMonitorInfo* all = XRRGetMonitors(display, root, 1, &count);
    if (!all) return std::nullopt;
    const auto* first = std::find_if(all, all + count, [](const XRRMonitorInfo& m) { return m.primary; });
    if (first == all + count) first = all;
    const RECT place{first->x, first->y, first->x + first->width, first->y + first->height};
    const bool lit = count > 0 && first->width > 0 && first->height > 0;
    XRRFreeMonitors(all);
    if (!lit) return std::nullopt;
    return place;
}

bool isMonitorOfWayland(::Display* display, ::Window root) {
    if (!tellsMonitors(display)) return false;
    int count = 0;
    XRRMonitorInfo* all = XRRGetMonitors(display, root, 1, &count);
    if (!all) return false;
    char* name = count > 0 ? XGetAtomName(display, all->name) : nullptr;
    const bool isWaylands = name && std::string_view(name).starts_with("XWAYLAND");
    if (name) XFree(name);
    XRRFreeMonitors(all);
    return isWaylands;
}

} // namespace platform::driver
