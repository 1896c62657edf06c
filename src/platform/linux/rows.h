#pragma once
// Rows of pixels in and out of surfaces. Coordinates must lie on the surface; nothing here clips.
//
// The value of a pixel is what the surface stores; its colour, 0x00RRGGBB, is what that means. Raster
// operations work on values.

#include "platform/linux/gdi_objects.h"
#include "platform/linux/rop.h"
#include "platform/linux/word_rows.h"

#include <cstddef>

namespace platform::driver {

inline std::uint8_t* rowOf(const Surface& surface, int y) {
    return surface.bits + static_cast<std::ptrdiff_t>(surface.stride) * y;
}

inline std::uint32_t* row32(const Surface& surface, int y) {
    return reinterpret_cast<std::uint32_t*>(rowOf(surface, y));
}

/// Words from one row to the next on a surface of 32 bits.
inline std::ptrdiff_t wordStride(const Surface& surface) {
    return surface.stride >> 2; // a multiple of 4, above zero or below
}

inline bool bitAt(const std::uint8_t* row, int x) {
    return (row[x >> 3] >> (7 - (x & 7)) & 1) != 0;
}

inline void putBit(std::uint8_t* row, int x, bool value) {
    const std::uint8_t mask = static_cast<std::uint8_t>(0x80 >> (x & 7));
    row[x >> 3] = static_cast<std::uint8_t>(value ? row[x >> 3] | mask : row[x >> 3] & ~mask);
}

/// True where the pixels are 0x00RRGGBB words.
inline bool isPlain32(const Surface& surface) {
    return surface.bitsPerPixel == 32 && !surface.format;
}

/// True when the same value means the same on both.
bool haveSameFormat(const Surface& a, const Surface& b);

/// One pixel's value; on 1 bit 0 or all bits set.
std::uint32_t valueAt(const Surface& surface, int x, int y);

/// Values in and out. On 1 bit, 0 and all bits set; for writing, bit 0 counts.
void readValues(const Surface& surface, int x, int y, int count, std::uint32_t* out);
void writeValues(const Surface& surface, int x, int y, int count, const std::uint32_t* in);

/// The next two for surfaces and masks of every kind.
void changeRectangle(const Surface& surface, const RECT& r, Masks masks);
void changePixel(const Surface& surface, int x, int y, Masks masks);

/// Changes values by masks, in a rectangle or at one pixel. The rectangle is not empty.
inline void maskRectangle(const Surface& surface, int left, int top, int right, int bottom, Masks masks) {
    if (surface.bitsPerPixel == 32 && masks.keep == 0) {
        fillWords(row32(surface, top) + left, wordStride(surface), right - left, bottom - top, masks.flip);
    } else {
        changeRectangle(surface, {left, top, right, bottom}, masks);
    }
}
inline void maskPixel(const Surface& surface, int x, int y, Masks masks) {
    if (surface.bitsPerPixel == 32) {
        std::uint32_t& pixel = row32(surface, y)[x];
        pixel = (pixel & masks.keep) ^ masks.flip;
    } else {
        changePixel(surface, x, y, masks);
    }
}

/// Copies `count` pixels between surfaces of the same depth; the areas may overlap within one row.
void copyRow(const Surface& from, int fromX, int fromY, const Surface& to, int toX, int toY, int count);

/// Moves bits so that the one at `fromX` comes to lie at bit `toX` of `out`. The bits of `out` around them in
/// the first and last byte are left undefined.
void alignBits(const std::uint8_t* from, int fromX, std::uint8_t* out, int toX, int count);

/// Colours; those of a 1-bit surface without colours of its own are `bits`. Words of 32 bits come and go as
/// they are, with their highest byte.
void readRow(const Surface& from, int x, int y, int count, const TwoColors& bits, std::uint32_t* out);

/// Whether a surface has a colour table or bits alone. Copies look the colours of such ones up exactly.
inline bool hasFewColors(const Surface& surface) {
    return surface.bitsPerPixel <= 8;
}

/// How the nearest of 256 colours is found; among fewer it is always found exactly.
enum class ColorSearch { Exact, ByCubes };

/// The opposite: each pixel takes the colour of the surface that copies find for it.
void writeRow(const Surface& to, int x, int y, int count, const TwoColors& bits, const std::uint32_t* in,
              ColorSearch search = ColorSearch::ByCubes);

/// The colour of a value, and the value that is nearest to a colour.
std::uint32_t colorOfValue(const Surface& surface, std::uint32_t value, const TwoColors& bits);
std::uint32_t valueOfColor(const Surface& surface, std::uint32_t color, const TwoColors& bits);

/// What 0 and 1 are for those who have no other colours for them.
inline constexpr TwoColors blackAndWhite = {0x000000, 0xFFFFFF};

} // namespace platform::driver
