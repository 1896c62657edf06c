// Which display is in use.

#include "platform/linux/display.h"

#include "platform/linux/desktop_display.h"
#include "platform/linux/headless_display.h"

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

bool wantsDesktop() {
    const std::string_view wish = environment("TESELA_DISPLAY");
    if (wish == "headless") return false;
    if (wish == "desktop") return true;
    return !environment("DISPLAY").empty() || !environment("WAYLAND_DISPLAY").empty();
}

std::unique_ptr<Display> startDisplay() {
    if (wantsDesktop()) {
        if (auto desktop = startDesktopDisplay()) return desktop;
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
