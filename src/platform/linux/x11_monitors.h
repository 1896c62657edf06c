#pragma once
// The monitors that share one screen of an X server.

#include "platform/types.h"

#include <X11/Xlib.h>

#include <optional>

namespace platform::driver {

/// Where the first monitor lies on the screen: the one that the user has made the first, else the one that
/// comes first. Nothing where the server does not tell. Waits for the server's answer.
std::optional<RECT> firstMonitor(::Display* display, ::Window root);

/// Whether the monitors are those that the server for Wayland calls by its own name.
bool isMonitorOfWayland(::Display* display, ::Window root);

} // namespace platform::driver
