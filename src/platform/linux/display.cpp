// Which display is in use.

#include "platform/linux/display.h"

#include "platform/linux/headless_display.h"
#include "platform/linux/sdl_display.h"
#include "platform/linux/x11_display.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace platform::driver {

namespace {

constexpr SIZE DefaultScreen{1280, 800};
constexpr int LargestSide = 16384;

std::unique_ptr<Display>& chosen() {
    static std::unique_ptr<Display> display;
    return display;
}

std::string_view environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// On X11 directly; SDL speaks to the other desktops.
std::unique_ptr<Display> startDesktop(std::string_view wish) {
    const bool hasX11 = !environment("DISPLAY").empty();
    if (wish == "x11" || (wish != "sdl" && hasX11))
        if (auto direct = startX11Display()) return direct;
    return wish == "x11" ? nullptr : startSdlDisplay();
}

bool wantsDesktop(std::string_view wish) {
    if (wish == "desktop" || wish == "x11" || wish == "sdl") return true;
    if (wish == "headless") return false;
    return !environment("DISPLAY").empty() || !environment("WAYLAND_DISPLAY").empty();
}

std::unique_ptr<Display> startDisplay() {
    const std::string_view wish = environment("TESELA_DISPLAY");
    if (wantsDesktop(wish)) {
        if (auto desktop = startDesktop(wish)) return desktop;
        std::fputs("tesela: the desktop cannot be reached; windows stay in memory\n", stderr);
    }
    return std::make_unique<HeadlessDisplay>();
}

} // namespace

Display& display() {
    auto& one = chosen();
    if (!one) one = startDisplay();
    return *one;
}

bool displayStarted() {
    return chosen() != nullptr;
}

HeadlessDisplay* headlessDisplay() {
    return dynamic_cast<HeadlessDisplay*>(&display());
}

SIZE wantedScreenSize() {
    SIZE size = DefaultScreen;
    const std::string wish(environment("TESELA_SCREEN"));
    int width = 0;
    int height = 0;
    if (std::sscanf(wish.c_str(), "%dx%d", &width, &height) == 2 && width > 0 && height > 0 &&
        width <= LargestSide && height <= LargestSide)
        size = {width, height};
    return size;
}

} // namespace platform::driver
