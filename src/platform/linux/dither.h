#pragma once
// Ordered dithering: which pixels of a tile turn to the next colour first.

#include <cstdint>

namespace platform::driver {

/// The rank, 0 to 255, of a pixel in a tile of 16 by 16 (Bayer's matrix): a pixel of a higher rank turns
/// lighter at a darker colour. The upper bits are the ranks in tiles of 8 by 8, 4 by 4 and 2 by 2.
constexpr int ditherRank(int x, int y) {
    constexpr int bits = 4; // of a coordinate in the tile
    int rank = 0;
    for (int bit = 0; bit < bits; ++bit)
        rank = rank << 2 | ((x ^ y) >> bit & 1) << 1 | (y >> bit & 1);
    return rank;
}

/// A component of 16 bits as a field of so many bits, at most 8, shows it at a place.
constexpr std::uint32_t ditheredField(std::uint32_t component, int bits, int x, int y) {
    const std::uint32_t highest = (1u << bits) - 1;
    const int rank = ditherRank(x, y) >> 4 << 4; // a tile of 4 by 4
    const std::uint32_t field = (component + (static_cast<std::uint32_t>(rank) << (8 - bits))) >> (16 - bits);
    return field < highest ? field : highest;
}

/// A component of 16 bits where colours are few, at a place: none, half or all of it.
constexpr std::uint32_t ditheredThird(std::uint32_t component, int x, int y) {
    constexpr std::uint32_t levels[] = {0x00, 0x7F, 0xFF};
    return levels[(component + (static_cast<std::uint32_t>(ditherRank(x, y)) << 7)) >> 15];
}

} // namespace platform::driver
