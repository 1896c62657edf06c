#pragma once
// The desktop as an X server shows it, spoken to directly.

#include "platform/linux/display.h"

#include <memory>

namespace platform::driver {

/// nullptr when there is no X server to reach.
std::unique_ptr<Display> startX11Display();

} // namespace platform::driver
