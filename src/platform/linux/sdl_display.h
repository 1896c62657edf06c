#pragma once
// The desktop through SDL, which speaks to Wayland.

#include "platform/linux/display.h"

#include <memory>

namespace platform::driver {

/// nullptr when there is no desktop to reach or SDL is not installed.
std::unique_ptr<Display> startSdlDisplay();

} // namespace platform::driver
