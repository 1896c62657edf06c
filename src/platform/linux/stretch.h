#pragma once
// Copies with a change of size.

#include "platform/linux/device_context.h"
#include "platform/linux/rop.h"

namespace platform::driver {

/// A copy from one area to another of a different size; both in surface coordinates.
struct Stretch {
    RECT to;
    RECT from;
    bool mirrorX = false;
    bool mirrorY = false;
};

void stretchArea(DeviceContext& target, DeviceContext& source, const Stretch& stretch, Rop3 rop);

} // namespace platform::driver
