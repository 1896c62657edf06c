#include "platform/linux/brush_pixels.h"

#include "platform/linux/colors.h"
#include "platform/linux/rows.h"

namespace platform::driver {

namespace {

constexpr int hatchSize = 8;

/// The lines of HS_HORIZONTAL to HS_DIAGCROSS, most significant bit to the left.
constexpr std::uint8_t hatches[6][hatchSize] = {
    {0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00, 0x00}, {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08},
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01}, {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},
    {0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08}, {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81},
};

BrushPixels hatchPixels(const DeviceContext& context, const Brush& brush) {
    const std::uint32_t line = pixelOf(context, brush.data.lbColor);
    const std::uint32_t back = backPixelOf(context);
    const bool transparent = context.state.backMode == TRANSPARENT;
    BrushPixels result{hatchSize, hatchSize, {}, {}};
    for (const std::uint8_t& row : hatches[brush.data.lbHatch]) {
        for (int x = 0; x < hatchSize; ++x) {
            const bool set = bitAt(&row, x);
            result.pixels.push_back(set ? line : back);
            if (transparent) result.opaque.push_back(set);
        }
    }
    return result;
}

BrushPixels patternPixels(const DeviceContext& context, const Bitmap& pattern) {
    const Surface& from = pattern.surface;
    BrushPixels result{from.width, from.height, {}, {}};
    result.pixels.resize(static_cast<std::size_t>(from.width) * static_cast<std::size_t>(from.height));
    const bool toBits = context.surface->bitsPerPixel == 1;
    ColorTable colors = pattern.colors;
    if (!pattern.hasColors)
        colors = {pixelOfColor(context.state.textColor), pixelOfColor(context.state.backColor)};
    if (toBits && from.bitsPerPixel == 1) colors = {0, ~0u};
    for (int y = 0; y < from.height; ++y) {
        std::uint32_t* row = result.pixels.data() + static_cast<std::ptrdiff_t>(y) * from.width;
        readRow(from, 0, y, from.width, colors, row);
        if (toBits && from.bitsPerPixel == 32) {
            for (int x = 0; x < from.width; ++x)
                row[x] = pixelOf(context, colorOfPixel32(row[x]));
        }
    }
    return result;
}

} // namespace

BrushPixels pixelsOf(const DeviceContext& context, const Brush& brush) {
    return brush.data.lbStyle == BS_HATCHED ? hatchPixels(context, brush)
                                            : patternPixels(context, *brush.pattern);
}

} // namespace platform::driver
