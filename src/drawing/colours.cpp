#include "drawing/colours.h"

#include <cmath>

namespace tesela {

namespace {

std::int32_t mixChannel(std::int32_t color1, std::int32_t color2, int shift, double weight) {
    const int c1 = (color1 >> shift) & 0xFF;
    const int c2 = (color2 >> shift) & 0xFF;
    return static_cast<std::int32_t>(std::nearbyint(c1 + weight * (c2 - c1))) << shift;
}

constexpr std::int32_t classicPalette[16] = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
    0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

} // namespace

std::int32_t CalculateColorMix(std::int32_t nColor1, std::int32_t nColor2, std::uint8_t nTransparency) {
    const double weight = (255 - nTransparency) / 256.0;
    return mixChannel(nColor1, nColor2, 0, weight) | mixChannel(nColor1, nColor2, 8, weight) |
           mixChannel(nColor1, nColor2, 16, weight);
}

std::int32_t QBColor(int nIndex) {
    return nIndex >= 0 && nIndex < 16 ? classicPalette[nIndex] : 0;
}

} // namespace tesela
