#include "platform/linux/x11_monitors.h"

#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <memory>
#include <span>
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

struct FreeMonitors {
    void operator()(XRRMonitorInfo* all) const { XRRFreeMonitors(all); }
};

/// Those that are in use; none where the server does not tell.
class Monitors {
public:
    Monitors(::Display* display, ::Window root) {
        if (tellsMonitors(display)) all_.reset(XRRGetMonitors(display, root, 1, &count_));
        if (!all_) count_ = 0;
    }
    std::span<const XRRMonitorInfo> list() const { return {all_.get(), static_cast<std::size_t>(count_)}; }

private:
    int count_ = 0;
    std::unique_ptr<XRRMonitorInfo, FreeMonitors> all_;
};

} // namespace

std::optional<RECT> firstMonitor(::Display* display, ::Window root) {
    const Monitors monitors(display, root);
    const auto all = monitors.list();
    if (all.empty()) return std::nullopt;
    const auto found = std::ranges::find_if(all, [](const XRRMonitorInfo& m) { return m.primary != 0; });
    const XRRMonitorInfo& first = found == all.end() ? all.front() : *found;
    if (first.width <= 0 || first.height <= 0) return std::nullopt;
    return RECT{first.x, first.y, first.x + first.width, first.y + first.height};
}

bool isMonitorOfWayland(::Display* display, ::Window root) {
    const Monitors monitors(display, root);
    if (monitors.list().empty()) return false;
    char* name = XGetAtomName(display, monitors.list().front().name);
    const bool isWaylands = name && std::string_view(name).starts_with("XWAYLAND");
    if (name) XFree(name);
    return isWaylands;
}

} // namespace platform::driver
