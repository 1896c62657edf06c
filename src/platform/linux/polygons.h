#pragma once
// The pixels inside polygons and ellipses, as regions.

#include "platform/linux/device_context.h"

#include <span>

namespace platform::driver {

/// The pixels whose top left corner lies inside the polygon: an edge on the left or top belongs to it, one on
/// the right or bottom does not. Only rows and columns of `bounds` are looked at.
Region polygonRegion(std::span<const POINT> points, int fillMode, const RECT& bounds);

/// The same for several polygons at once, all of them.
Region polygonsRegion(std::span<const std::vector<POINT>> polygons, int fillMode, const RECT& bounds);

/// The ellipse that touches the four sides of a rectangle.
Region ellipseRegion(const RECT& box, const RECT& bounds);

} // namespace platform::driver
