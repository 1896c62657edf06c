#pragma once
// Copies with a change of size.

#include "platform/linux/device_context.h"
#include "platform/linux/rop.h"

namespace platform::driver {

/// A copy from one area to another of a different size; both in surface coordinates.
struct Stretch {
    RECT to;
    RECT from;
    bool targetLeftwards =
        false; ///< Sides given from right to left or bottom to top; both of them cancel out
    bool targetUpwards = false;
    bool sourceLeftwards = false;
    bool sourceUpwards = false;
};

void stretchArea(DeviceContext& target, DeviceContext& source, const Stretch& stretch, Rop3 rop);

} // namespace platform::driver
