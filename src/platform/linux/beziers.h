#pragma once
// Cubic Bézier curves: as lines, and as the pieces of ellipses.

#include "platform/types.h"

#include <array>
#include <vector>

namespace platform::driver {

/// Start, two controls, end.
using Bezier = std::array<POINT, 4>;

/// Appends the ends of the lines that a curve becomes; its start is left out.
void addBezier(const Bezier& curve, std::vector<POINT>& out);

/// The lines through the curves of PolyBezier: `points` holds a start and three points for each curve.
std::vector<POINT> linesOfBeziers(const std::vector<POINT>& points);

/// A rectangle whose corners are quarters of an ellipse, from the middle of the right side against the clock:
/// four times a curve's three points, with a line before each but the first. `right` and `bottom` belong to
/// it.
struct RoundCurves {
    std::vector<POINT> points;
    std::vector<BYTE> types;
};
RoundCurves roundRectCurves(const RECT& box, SIZE corner);
/// The whole ellipse, from the right against the clock.
RoundCurves ellipseCurves(const RECT& box);

/// The angles between which an arc runs, in radians of the circle that the ellipse is a stretched image of,
/// from the right and clockwise. An arc against the clock ends at the smaller one.
struct ArcAngles {
    double start;
    double end;
};

/// A rectangle whose sides may lie between pixels.
struct ExactRect {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// The point of the ellipse in a box at an angle.
POINT pointAtAngle(const ExactRect& box, double angle);

/// Start and the points of the curves of an arc. `right` and `bottom` belong to the ellipse.
std::vector<POINT> arcCurves(const ExactRect& box, ArcAngles angles);

} // namespace platform::driver
