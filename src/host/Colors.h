#pragma once
// Automation colours: a Long in blue-green-red order, or a system colour when its top bit is set.

#include "platform/types.h"

#include <cstdint>

namespace host {

using OLE_COLOR = std::int32_t;

/// The automation colour of the system colour with this number (COLOR_...): &H80000000 plus the number.
constexpr OLE_COLOR systemColor(int number) {
    return static_cast<OLE_COLOR>(0x80000000u | static_cast<std::uint32_t>(number));
}

inline constexpr OLE_COLOR colorWindowBackground = systemColor(5);
inline constexpr OLE_COLOR colorWindowText = systemColor(8);
inline constexpr OLE_COLOR colorButtonFace = systemColor(15);
inline constexpr OLE_COLOR colorButtonText = systemColor(18);

/// What GDI draws for an automation colour. A system colour is looked up now; an unknown one is black.
platform::COLORREF rgbFromOle(OLE_COLOR color);

} // namespace host
