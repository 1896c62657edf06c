#pragma once
// The few things that SDL does not offer on X11: the bell, the lock keys and refused requests. The X library
// is loaded when the first of them is used; without it they do nothing.

#include "platform/input.h"

namespace platform::driver {

/// Lets the program live on when the server refuses a request, which happens when a window that another
/// program or the window manager still talks about is already gone. Otherwise the X library ends it.
void outliveRefusals();

/// Rings the bell of the X display; false when there is none.
bool ringBell();

/// Sets the lock keys to the toggles of 256 key states.
void lockKeys(const BYTE* states);

} // namespace platform::driver
