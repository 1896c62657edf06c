#pragma once
// Raster operations: the truth tables of the platform's codes, and their application to rows of pixels.

#include "platform/gdi_types.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace platform::driver {

/// The truth table of a three-operand operation: bit number 4P + 2S + D.
using Rop3 = std::uint8_t;

inline Rop3 rop3Of(DWORD rop) {
    return static_cast<Rop3>(rop >> 16);
}

/// The same operation of pattern and target as a drawing mode R2_...
Rop3 rop3OfMode(int rop2);

constexpr bool usesPattern(Rop3 rop) {
    return (rop >> 4) != (rop & 0x0F);
}
constexpr bool usesSource(Rop3 rop) {
    return (rop >> 2 & 0x33) != (rop & 0x33);
}
constexpr bool usesTarget(Rop3 rop) {
    return (rop >> 1 & 0x55) != (rop & 0x55);
}

/// An operation with all operands but the target known: target = (target & keep) ^ flip, bit by bit.
struct Masks {
    std::uint32_t keep = ~0u;
    std::uint32_t flip = 0;
    friend constexpr bool operator==(const Masks&, const Masks&) = default;
};

inline constexpr Masks leaveAlone{};

/// The masks of an operation without source for one pattern pixel.
Masks masksOf(Rop3 rop, std::uint32_t pattern);

/// The same for a drawing mode R2_...
inline Masks masksOfMode(int rop2, std::uint32_t pattern) {
    return rop2 == R2_COPYPEN ? Masks{0, pattern} : masksOf(rop3OfMode(rop2), pattern);
}

/// Applies masks to a row of 32-bit pixels, or to the bits `from` to `to` (not included) of a 1-bit row.
void applyMasks(std::uint32_t* row, std::size_t count, Masks masks);
void applyMasksToBits(std::uint8_t* row, int from, int to, Masks masks);

/// The same masks for the eight bits of a byte, the highest first.
struct ByteMasks {
    std::uint8_t keep = 0;
    std::uint8_t flip = 0;
};

/// Applies the first masks to the byte with the bit `from`, and so on, over and over. There is one at least.
void applyMasksToBits(std::uint8_t* row, int from, int to, std::span<const ByteMasks> masks);

/// Combines a row of the target with rows of source and pattern. An operand that the operation does not use
/// may be null.
using Span = void (*)(std::uint32_t* target, const std::uint32_t* source, const std::uint32_t* pattern,
                      std::size_t count, Rop3 rop);

/// The fastest span function for the operation.
Span spanFor(Rop3 rop);

/// The same for the bits `from` to `to` (not included) of a 1-bit row; source and pattern bits lie at the
/// same positions as the target's.
void combineBits(std::uint8_t* target, const std::uint8_t* source, const std::uint8_t* pattern, int from,
                 int to, Rop3 rop);

} // namespace platform::driver
