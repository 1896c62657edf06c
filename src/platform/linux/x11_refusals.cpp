#include "platform/linux/x11_refusals.h"

#include <X11/Xlib.h>

#include <utility>

namespace platform::driver {

namespace {

bool& refused() {
    static bool one = false;
    return one;
}

} // namespace

void outliveRefusals() {
    XSetErrorHandler([](::Display*, XErrorEvent*) {
        refused() = true;
        return 0;
    });
}

bool takeRefusal() {
    return std::exchange(refused(), false);
}

} // namespace platform::driver
