#pragma once
// Rows of pixels in and out of surfaces. Coordinates must lie on the surface; nothing here clips.

#include "platform/linux/gdi_objects.h"

#include <cstddef>

namespace platform::driver {

inline std::uint8_t* rowOf(const Surface& surface, int y) {
    return surface.bits + static_cast<std::ptrdiff_t>(surface.stride) * y;
}

inline std::uint32_t* row32(const Surface& surface, int y) {
    return reinterpret_cast<std::uint32_t*>(rowOf(surface, y));
}

inline bool bitAt(const std::uint8_t* row, int x) {
    return (row[x >> 3] >> (7 - (x & 7)) & 1) != 0;
}

inline void putBit(std::uint8_t* row, int x, bool value) {
    const std::uint8_t mask = static_cast<std::uint8_t>(0x80 >> (x & 7));
    row[x >> 3] = static_cast<std::uint8_t>(value ? row[x >> 3] | mask : row[x >> 3] & ~mask);
}

/// Copies `count` pixels between surfaces of the same depth; the areas may overlap within one row.
void copyRow(const Surface& from, int fromX, int fromY, const Surface& to, int toX, int toY, int count);

/// Moves bits so that the one at `fromX` comes to lie at bit `toX` of `out`. The bits of `out` around them in
/// the first and last byte are left undefined.
void alignBits(const std::uint8_t* from, int fromX, std::uint8_t* out, int toX, int count);

/// Pixels as 32-bit words; those of a 1-bit surface take the colours for 0 and 1.
void readRow(const Surface& from, int x, int y, int count, const ColorTable& colors, std::uint32_t* out);

/// The opposite; a 1-bit surface takes the nearer of its two colours.
void writeRow(const Surface& to, int x, int y, int count, const ColorTable& colors, const std::uint32_t* in);

/// The entry of the table that is nearest to the colour 0xRRGGBB.
int nearestColor(const ColorTable& colors, std::uint32_t color);

} // namespace platform::driver
