#pragma once
// Colour arithmetic that all painting shares.

#include "host/Colors.h"
#include "platform/system_look.h"

#include <cstdint>

namespace tesela {

/// Mixes two colours channel by channel: round(c1 + (255 - nTransparency) / 256 * (c2 - c1)), half to
/// even. 255 gives `nColor1`; 0 stops just short of `nColor2`, because the divisor is 256. System colours
/// are not resolved.
std::int32_t CalculateColorMix(std::int32_t nColor1, std::int32_t nColor2, std::uint8_t nTransparency);

/// The red, green and blue that a system colour (top bit set, the number in the other 24 bits of colour) has
/// now; black for a number that there isn't. Other colours come back as they are.
inline std::int32_t GetVBSysColor(host::OLE_COLOR nColor) {
    constexpr std::int32_t numberBits = 0x00FFFFFF;
    return nColor < 0 ? static_cast<std::int32_t>(platform::GetSysColor(nColor & numberBits)) : nColor;
}

/// Entry 0 to 15 of the classic palette of sixteen colours; 0 (black) for any other number.
std::int32_t QBColor(int nIndex);

} // namespace tesela
