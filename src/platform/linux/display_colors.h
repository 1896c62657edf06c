#pragma once
// The colours that the display can show. TESELA_DEPTH makes it one of 4, 8, 15, 16 or 24 bits instead of 32.
// With 8 bits it has a palette: the 20 colours of the system at both ends, half-tones between. A context with
// the stock palette draws in the 20, one with another palette in those that come nearest to that one's.

#include "platform/linux/device_context.h"

namespace platform::driver {

/// As TESELA_DEPTH says it: 4, 8, 15, 16, 24 or 32.
int displayDepth();
/// To be called when a program has set another one.
void forgetDisplayDepth();

/// Bits that a pixel of the display takes: 16 for a depth of 15.
int displayBitsPerPixel();

/// What the values of a device bitmap of that many bits mean; null where the depth alone says it.
const PixelFormat* deviceFormat(int bitsPerPixel);

/// The 20 colours of the system and the 256 of the half-tone palette, 0x00RRGGBB.
const std::vector<std::uint32_t>& staticColors();
const std::vector<std::uint32_t>& halftoneColors();

/// A colour 0x00RRGGBB as an entry of a palette.
PALETTEENTRY paletteEntryOf(std::uint32_t color);

/// True for surfaces whose values are entries of the display's palette.
bool showsDisplayPalette(const Surface& surface);

/// The entry of the display's palette that the context draws a colour 0x00RRGGBB with.
std::uint32_t paletteValueOf(const DeviceContext& context, std::uint32_t color);

/// Two entries, and how many pixels out of 64 the second one takes, that together look like a colour.
struct Mixture {
    std::uint32_t first = 0;
    std::uint32_t second = 0;
    int share = 0;
};
Mixture paletteMixtureOf(const DeviceContext& context, std::uint32_t color);

/// A colour as it is meant: an entry of the context's palette (PALETTEINDEX) or 0x00bbggrr itself.
COLORREF plainColor(const DeviceContext& context, COLORREF color);

} // namespace platform::driver
