#include "platform/linux/colors.h"

#include "platform/linux/display_colors.h"
#include "platform/linux/rows.h"

namespace platform::driver {

namespace {

constexpr std::uint32_t colorBits = 0x00FFFFFF;
constexpr std::uint32_t allBits = ~0u;

std::uint32_t nearestPixel(const DeviceContext& context, std::uint32_t color) {
    const Surface& surface = *context.surface;
    return showsDisplayPalette(surface) ? paletteValueOf(context, color)
                                        : valueOfColor(surface, color, blackAndWhite);
}

} // namespace

std::uint32_t searchedNearestPixelOf(const DeviceContext& context, COLORREF color) {
    return nearestPixel(context, pixelOfColor(plainColor(context, color)));
}

bool isColorOfTwo(const DeviceContext& context, COLORREF color) {
    const std::uint32_t pixel = pixelOfColor(plainColor(context, color));
    return pixel == colorOfValue(*context.surface, 0, blackAndWhite) ||
           pixel == colorOfValue(*context.surface, 1, blackAndWhite);
}

std::uint32_t backPixelOf(const DeviceContext& context) {
    return nearestPixelOf(context, context.state.backColor);
}

std::uint32_t searchedPixelOf(const DeviceContext& context, COLORREF color) {
    if (context.surface->bitsPerPixel != 1) return nearestPixelOf(context, color);
    const Surface& surface = *context.surface;
    const std::uint32_t pixel = pixelOfColor(plainColor(context, color));
    if (pixel == colorOfValue(surface, 0, blackAndWhite)) return 0;
    if (pixel == colorOfValue(surface, 1, blackAndWhite)) return allBits;
    if (((color ^ context.state.backColor) & colorBits) == 0) return backPixelOf(context);
    return ~backPixelOf(context);
}

COLORREF colorOfPixel(const DeviceContext& context, std::uint32_t pixel) {
    return colorOfPixel32(colorOfValue(*context.surface, pixel, blackAndWhite));
}

} // namespace platform::driver
