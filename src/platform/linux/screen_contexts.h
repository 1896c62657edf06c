#pragma once
// Contexts of the screen itself. Each is a picture of the screen, made when it is first drawn on or read.
// Where the display can, what differs from what the screen showed then is seen in front of all windows while
// the context is open.

#include "platform/linux/window_system.h"

namespace platform::driver {

HDC openScreenContext();
bool closeScreenContext(HDC dc); ///< False: it is none of the screen

/// Shows what was drawn since the last time, on windows and on the screen.
void showDrawn();

} // namespace platform::driver
