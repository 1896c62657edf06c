#include "drawing/colours.h"

namespace tesela {

namespace {

/// Of a channel of each colour, so many 256ths of the second. Halves are rounded to the even number.
std::int32_t mixChannel(std::int32_t color1, std::int32_t color2, int shift, int share) {
    constexpr int whole = 256, half = 128;
    const int c1 = (color1 >> shift) & 0xFF;
    const int c2 = (color2 >> shift) & 0xFF;
    const int sum = whole * c1 + share * (c2 - c1); // not negative
    const int cut = sum / whole, rest = sum % whole;
    return (rest > half || (rest == half && cut % 2 == 1) ? cut + 1 : cut) << shift;
}

constexpr std::int32_t classicPalette[16] = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
    0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

} // namespace

std::int32_t CalculateColorMix(std::int32_t nColor1, std::int32_t nColor2, std::uint8_t nTransparency) {
    const int share = 255 - nTransparency;
    return mixChannel(nColor1, nColor2, 0, share) | mixChannel(nColor1, nColor2, 8, share) |
           mixChannel(nColor1, nColor2, 16, share);
}

std::int32_t QBColor(int nIndex) {
    return nIndex >= 0 && nIndex < 16 ? classicPalette[nIndex] : 0;
}

} // namespace tesela
