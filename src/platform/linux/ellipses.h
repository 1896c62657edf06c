#pragma once
// The pixels of ellipses and of rectangles with round corners.

#include "platform/linux/surface.h"

#include <vector>

namespace platform::driver {

/// The outline pixel by pixel, from the middle of the right side against the clock; every pixel touches the
/// next. `right` and `bottom` lie outside. `corner` is the size of the ellipse whose quarters the corners
/// are; the box's own size gives an ellipse.
std::vector<POINT> roundOutline(const RECT& box, SIZE corner);

/// What the outline surrounds, itself included.
Region roundRegion(const RECT& box, SIZE corner);

/// The ellipse that fills a box.
inline SIZE sizeOf(const RECT& box) {
    return {box.right - box.left, box.bottom - box.top};
}

/// The directions of an arc, as points on the rays from the centre of `box`.
struct ArcRays {
    POINT start;
    POINT end;
    bool clockwise = false;
};

/// The pixels of the part of an ellipse's outline from one ray to the other. `rayBox` is the box from whose
/// centre the rays go.
std::vector<POINT> arcOutline(const RECT& box, const RECT& rayBox, const ArcRays& rays);

} // namespace platform::driver
