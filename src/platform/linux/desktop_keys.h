#pragma once
// Keys that are known by what they type, which the desktops have in common.

namespace platform::driver {

/// The virtual key that types a sign without Shift; 0: none.
int virtualKeyOfSign(char16_t sign);

} // namespace platform::driver
