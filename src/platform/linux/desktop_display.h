#pragma once
// The real desktop, X11 or Wayland, through SDL.

#include "platform/linux/display.h"

#include <memory>

namespace platform::driver {

/// nullptr when there is no desktop to reach.
std::unique_ptr<Display> startDesktopDisplay();

} // namespace platform::driver
