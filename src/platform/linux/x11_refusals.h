#pragma once
// Requests that an X server refuses, which happens when a window that another program or the window manager
// still talks about is already gone.

namespace platform::driver {

/// Lets the program live on when a request is refused. Otherwise the X library ends it.
void outliveRefusals();

/// Whether one was refused since the last call.
bool takeRefusal();

} // namespace platform::driver
