#include "platform/linux/colors.h"

#include "platform/linux/rows.h"

namespace platform::driver {

namespace {

constexpr std::uint32_t colorBits = 0x00FFFFFF;
constexpr std::uint32_t allBits = ~0u;
constexpr ColorTable blackAndWhite = {0x000000, 0xFFFFFF};

std::uint32_t spread(bool bit) {
    return bit ? allBits : 0;
}

} // namespace

bool hasSurfaceColors(const DeviceContext& context) {
    const Bitmap* bitmap = context.selectedBitmap();
    return bitmap && bitmap->hasColors;
}

ColorTable surfaceColors(const DeviceContext& context) {
    const Bitmap* bitmap = context.selectedBitmap();
    return bitmap && bitmap->hasColors ? bitmap->colors : blackAndWhite;
}

std::uint32_t nearestPixelOf(const DeviceContext& context, COLORREF color) {
    const std::uint32_t pixel = pixelOfColor(color);
    if (context.surface->bitsPerPixel == 32) return pixel;
    return spread(nearestColor(surfaceColors(context), pixel) == 1);
}

std::uint32_t backPixelOf(const DeviceContext& context) {
    return nearestPixelOf(context, context.state.backColor);
}

std::uint32_t pixelOf(const DeviceContext& context, COLORREF color) {
    const std::uint32_t pixel = pixelOfColor(color);
    if (context.surface->bitsPerPixel == 32) return pixel;
    const ColorTable table = surfaceColors(context);
    if (pixel == table[0]) return 0;
    if (pixel == table[1]) return allBits;
    if (((color ^ context.state.backColor) & colorBits) == 0) return backPixelOf(context);
    return ~backPixelOf(context);
}

COLORREF colorOfPixel(const DeviceContext& context, std::uint32_t pixel) {
    if (context.surface->bitsPerPixel == 32) return colorOfPixel32(pixel & colorBits);
    return colorOfPixel32(surfaceColors(context)[pixel & 1]);
}

} // namespace platform::driver
