#include "host/Colors.h"

#include "platform/system_look.h"

namespace host {

platform::COLORREF rgbFromOle(OLE_COLOR color) {
    constexpr std::uint32_t SystemColorBit = 0x80000000u;
    constexpr std::uint32_t ColorBits = 0x00FFFFFFu;
    constexpr std::uint32_t NumberBits = 0xFFu;
    const auto bits = static_cast<std::uint32_t>(color);
    if (bits & SystemColorBit) return platform::GetSysColor(static_cast<int>(bits & NumberBits));
    return bits & ColorBits;
}

} // namespace host
