#pragma once
// The pixels of lines that are more than one pixel wide.

#include "platform/gdi_types.h"
#include "platform/linux/surface.h"

#include <span>
#include <vector>

namespace platform::driver {

/// Lengths of dashes and gaps in turn, an even number of them.
using Dashes = std::vector<int>;

/// What a wide pen is like. The ends of dashes have caps too.
struct PenShape {
    int width = 1;
    DWORD cap = PS_ENDCAP_ROUND;
    DWORD joint = PS_JOIN_ROUND;
    double miterLimit = 10; ///< How far a pointed joint may reach, in half widths
    Dashes dashes;          ///< In pixels along the line; empty for a solid one
};

/// Lines through the points. A closed one goes back to its first point and has no ends.
Region wideRegion(std::span<const POINT> points, bool closed, const PenShape& shape, const RECT& bounds);

} // namespace platform::driver
