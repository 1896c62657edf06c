#pragma once
// The pixels of hatched and patterned brushes.

#include "platform/linux/device_context.h"

namespace platform::driver {

/// One tile, row by row from the top, in pixels of the context's surface.
struct BrushPixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
    std::vector<bool> opaque; ///< Empty when all are; a hatch in transparent mode paints its lines only
};

/// True for a plain colour that the surface can only show as a pattern of others: a device bitmap of 1 bit,
/// of black and white, the display's palette, of the two that mix best.
bool isDithered(const DeviceContext& context, COLORREF color);

/// The pattern for such a colour.
BrushPixels ditherPixels(const DeviceContext& context, COLORREF color);

/// Whether the pattern of black and white is white at (x, y).
bool isDitheredWhite(COLORREF color, int x, int y);

/// For a brush of style BS_HATCHED or BS_PATTERN.
BrushPixels pixelsOf(const DeviceContext& context, const Brush& brush);

} // namespace platform::driver
