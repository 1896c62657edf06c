#pragma once
// The outlines of a path in a wide pen, as WidenPath makes them.

#include "platform/linux/path.h"
#include "platform/linux/wide_lines.h"

namespace platform::driver {

/// What runs along both sides of each figure: round an open one with its caps as a single figure, and one for
/// either side of a closed one, the side to the right against its direction. The pen's dashes don't count,
/// and none of the figures is closed. An odd width has its greater half on the outer side of each bend.
std::vector<Figure> widened(const std::vector<Figure>& figures, const PenShape& pen);

} // namespace platform::driver
