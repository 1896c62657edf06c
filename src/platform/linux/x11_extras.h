#pragma once
// The few things that SDL does not offer on X11: the bell and the lock keys. Without an X server they do
// nothing.

#include "platform/input.h"

namespace platform::driver {

/// Rings the bell of the X display; false when there is none.
bool ringBell();

/// Sets the lock keys to the toggles of 256 key states.
void lockKeys(const BYTE* states);

} // namespace platform::driver
