#pragma once
// Masks of 1 bit, which choose between two operations.

#include "platform/linux/surface.h"

namespace platform::driver {

/// Whether a part is one of the mask's. One that is turned round is none.
bool isPartOf(const RECT& part, const Surface& mask);

/// The pixels of a part of a mask that are set, as a region whose (0, 0) is the part's corner. The part lies
/// in the mask.
Region maskRegion(const Surface& mask, const RECT& part);

/// The parts of what MAKEROP4 makes: for where the mask is set and for where it is not.
constexpr DWORD foregroundOf(DWORD rop) {
    return rop & 0x00FFFFFF;
}
constexpr DWORD backgroundOf(DWORD rop) {
    return rop >> 8 & 0x00FF0000;
}

} // namespace platform::driver
