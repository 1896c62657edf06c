#pragma once
// Copying pixels from one surface to another under a raster operation.

#include "platform/linux/device_context.h"
#include "platform/linux/rop.h"

namespace platform::driver {

/// Where the pixels of a copy come from, and what they mean to a target of another depth.
struct SourcePixels {
    const Surface* surface = nullptr;
    RECT valid;                  ///< The part of the surface that may be read
    POINT offset;                ///< From the target's surface to this one
    bool hasColors = false;      ///< 1 bit with a colour table of its own
    ColorTable colors{};         ///< What 0 and 1 look like
    std::uint32_t backColor = 0; ///< 0xRRGGBB that becomes 1 on a target of 1 bit
};

/// What a context offers as the source of a copy to `target`.
SourcePixels sourceOf(const DeviceContext& target, const DeviceContext& source, POINT offset);

/// Copies the pixels of `area` (on the target's surface) that the source has.
void copyPixels(DeviceContext& target, const RECT& area, const SourcePixels& source, Rop3 rop);

/// Copies an area from another or the same context; `from` is where it begins on the source's surface.
void copyArea(DeviceContext& target, const RECT& area, DeviceContext& source, POINT from, Rop3 rop);

/// Fills a rectangle with one row (`across`) or one column of 32-bit pixels, repeated.
void putGradient(DeviceContext& context, const RECT& r, const std::vector<std::uint32_t>& pixels,
                 bool across);

} // namespace platform::driver
