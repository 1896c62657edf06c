#pragma once
// The pixels of ellipses and of rectangles with round corners.

#include "platform/linux/surface.h"

#include <optional>
#include <vector>

namespace platform::driver {

/// True for corners that have no curve: the outline is a rectangle's then, by its corners.
bool isThin(SIZE corner);

/// The outline pixel by pixel, from the middle of the right side with or against the clock; every pixel
/// touches the next. `right` and `bottom` lie outside. `corner` is the size of the ellipse whose quarters the
/// corners are; the box's own size gives an ellipse.
std::vector<POINT> roundOutline(const RECT& box, SIZE corner, bool clockwise);

/// What the outline surrounds, itself included. Where the corners are too thin for a curve it is the whole
/// box. Rows that lie outside of `within` may be left out.
Region roundRegion(const RECT& box, SIZE corner, const RECT& within);

/// Sets the pixels of such a shape that lies wholly on a surface of 32 bits, its inside first and then its
/// outline, each if it has a value. The corner has a curve.
void paintRound32(const Surface& surface, const RECT& box, SIZE corner, std::optional<std::uint32_t> inside,
                  std::optional<std::uint32_t> outline);

/// The ellipse that fills a box.
inline SIZE sizeOf(const RECT& box) {
    return {box.right - box.left, box.bottom - box.top};
}

/// The directions of an arc, as points on rays from the ellipse's centre.
struct ArcRays {
    POINT start;
    POINT end;
    bool clockwise = false;
};

/// The middle between the sides, cut to a whole number.
POINT centreOf(const RECT& box);

/// The pixels of the part of an ellipse's outline from one ray to the other, in the direction of the arc. A
/// pixel through which an axis runs comes twice unless a ray ends the arc there.
std::vector<POINT> arcOutline(const RECT& box, const ArcRays& rays);

} // namespace platform::driver
