#pragma once
// From colours to the pixels of a context's surface and back.

#include "platform/linux/device_context.h"
#include "platform/linux/rows.h"

namespace platform::driver {

/// The 32-bit pixel 0x00RRGGBB of a colour, and the colour of such a pixel.
constexpr std::uint32_t pixelOfColor(COLORREF color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}
constexpr COLORREF colorOfPixel32(std::uint32_t pixel) {
    return pixelOfColor(pixel);
}

/// The pixel that a colour becomes on the context's surface. On one of 1 bit it is 0 or all bits set: the
/// colour of the table that matches, else the one that the background colour does not have.
inline std::uint32_t pixelOf(const DeviceContext& context, COLORREF color);

/// The same without regard to the background: the nearest colour that the context can draw with.
inline std::uint32_t nearestPixelOf(const DeviceContext& context, COLORREF color);

/// The two where the words of the surface are not the colours themselves.
std::uint32_t searchedPixelOf(const DeviceContext& context, COLORREF color);
std::uint32_t searchedNearestPixelOf(const DeviceContext& context, COLORREF color);

/// Whether a surface of 1 bit has a colour exactly.
bool isColorOfTwo(const DeviceContext& context, COLORREF color);

/// The nearest pixel of the background colour.
std::uint32_t backPixelOf(const DeviceContext& context);

/// The colour of a pixel as read from the context's surface.
COLORREF colorOfPixel(const DeviceContext& context, std::uint32_t pixel);

/// True where a colour is its own pixel.
inline bool isOwnPixel(const DeviceContext& context, COLORREF color) {
    constexpr COLORREF lastPlain = 0x00FFFFFF;
    return isPlain32(*context.surface) && color <= lastPlain;
}

inline std::uint32_t pixelOf(const DeviceContext& context, COLORREF color) {
    return isOwnPixel(context, color) ? pixelOfColor(color) : searchedPixelOf(context, color);
}

inline std::uint32_t nearestPixelOf(const DeviceContext& context, COLORREF color) {
    return isOwnPixel(context, color) ? pixelOfColor(color) : searchedNearestPixelOf(context, color);
}

} // namespace platform::driver
