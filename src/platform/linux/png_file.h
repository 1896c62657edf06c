#pragma once
// Surfaces as PNG files.

#include "platform/linux/surface.h"

#include <string>

namespace platform::driver {

/// Writes a surface of 1 or 32 bits as a PNG without alpha (1 bit: 0 is black). False when the file cannot be
/// written or the surface has no pixels.
bool savePng(const std::string& path, const Surface& surface);

/// The same as the bytes of a file; empty when that fails.
std::string pngOf(const Surface& surface);

} // namespace platform::driver
