#include "platform/linux/beziers.h"

#include "platform/gdi_types.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace platform::driver {

namespace {

/// A point with four bits below the pixel.
constexpr int fraction = 4;
constexpr int unit = 1 << fraction;
constexpr int deepest = 8; ///< Halvings at most

struct FinePoint {
    std::int64_t x;
    std::int64_t y;
};
using FineBezier = std::array<FinePoint, 4>;

std::int64_t wholePixels(std::int64_t fine) {
    return (fine + unit / 2) >> fraction;
}

LONG toPixel(std::int64_t fine) {
    return static_cast<LONG>(wholePixels(fine));
}

/// A half counts up, and then towards zero.
FinePoint middle(FinePoint a, FinePoint b) {
    return {(a.x + b.x + 1) / 2, (a.y + b.y + 1) / 2};
}

/// Whether both controls lie between the ends along the longer axis and within a pixel of the chord. The
/// chord's slope counts in whole sixteenths for each pixel, which is how coarsely the platform does it.
bool isFlat(const FineBezier& c) {
    const bool steep = std::abs(c[3].y - c[0].y) > std::abs(c[3].x - c[0].x);
    const auto along = [steep](FinePoint p) { return steep ? p.y : p.x; };
    const auto across = [steep](FinePoint p) { return steep ? p.x : p.y; };
    const std::int64_t start = along(c[0]);
    const std::int64_t end = along(c[3]);
    const std::int64_t length = wholePixels(end - start);
    const std::int64_t slope = length == 0 ? 0 : (across(c[3]) - across(c[0])) / length;
    for (const FinePoint& p : {c[1], c[2]}) {
        const std::int64_t at = along(p);
        // A control beside the start belongs to a curve that runs upwards, not to one that runs back.
        if (at < start ? at < end : at > end) return false;
        const std::int64_t expected = across(c[0]) + slope * wholePixels(at - start);
        if (length != 0 && std::abs(across(p) - expected) > unit) return false;
    }
    return true;
}

void halve(const FineBezier& c, int depth, std::vector<POINT>& out) {
    if (depth == 0 || isFlat(c)) {
        out.push_back({toPixel(c[3].x), toPixel(c[3].y)});
        return;
    }
    const FinePoint ab = middle(c[0], c[1]);
    const FinePoint bc = middle(c[1], c[2]);
    const FinePoint cd = middle(c[2], c[3]);
    const FinePoint abc = middle(ab, bc);
    const FinePoint bcd = middle(bc, cd);
    const FinePoint centre = middle(abc, bcd);
    halve({c[0], ab, abc, centre}, depth - 1, out);
    halve({centre, bcd, cd, c[3]}, depth - 1, out);
}

constexpr double pi = std::numbers::pi;

/// How far the controls of a quarter of an ellipse reach along its tangents: the platform's number, a little
/// more than the best one.
constexpr double roundness = 0.5542847;

LONG rounded(double value) {
    return static_cast<LONG>(std::floor(value + 0.5));
}

POINT pointAt(const ExactRect& box, double x, double y) {
    return {rounded(box.left + (box.right - box.left) * (x + 1) / 2),
            rounded(box.top + (box.bottom - box.top) * (y + 1) / 2)};
}

/// The curve from one angle to another, not more than a quarter apart; the start is left out.
void addArcPiece(const ExactRect& box, double from, double to, std::vector<POINT>& out) {
    const double half = (to - from) / 2;
    const double reach = std::abs(half) < 1e-9 ? 0 : 4.0 / 3.0 * (1 - std::cos(half)) / std::sin(half);
    out.push_back(
        pointAt(box, std::cos(from) - reach * std::sin(from), std::sin(from) + reach * std::cos(from)));
    out.push_back(pointAt(box, std::cos(to) + reach * std::sin(to), std::sin(to) - reach * std::cos(to)));
    out.push_back(pointAt(box, std::cos(to), std::sin(to)));
}

} // namespace

void addBezier(const Bezier& curve, std::vector<POINT>& out) {
    FineBezier fine;
    for (std::size_t i = 0; i < curve.size(); ++i)
        fine[i] = {std::int64_t{curve[i].x} * unit, std::int64_t{curve[i].y} * unit};
    halve(fine, deepest, out);
}

std::vector<POINT> linesOfBeziers(const std::vector<POINT>& points) {
    std::vector<POINT> lines;
    if (points.empty()) return lines;
    lines.push_back(points[0]);
    for (std::size_t i = 0; i + 3 < points.size(); i += 3)
        addBezier({points[i], points[i + 1], points[i + 2], points[i + 3]}, lines);
    return lines;
}

RoundCurves roundRectCurves(const RECT& box, SIZE corner) {
    const LONG width = std::min(corner.cx, box.right - box.left);
    const LONG height = std::min(corner.cy, box.bottom - box.top);
    // From the middle of an ellipse's side over the controls to the middle of the next side, inwards from the
    // corner.
    const POINT quarter[] = {{0, rounded(height / 2.0)},
                             {0, rounded(height * (1 - roundness) / 2)},
                             {rounded(width * (1 - roundness) / 2), 0},
                             {rounded(width / 2.0), 0}};
    constexpr int corners = 4;
    constexpr int pointsOfCorner = 4;
    RoundCurves result;
    for (int side = 0; side < corners; ++side) {
        const bool atRight = side == 0 || side == 3;
        const bool atTop = side < 2;
        for (int i = 0; i < pointsOfCorner; ++i) {
            const POINT& p = quarter[side % 2 == 0 ? i : pointsOfCorner - 1 - i];
            result.points.push_back(
                {atRight ? box.right - p.x : box.left + p.x, atTop ? box.top + p.y : box.bottom - p.y});
            result.types.push_back(i > 0 ? PT_BEZIERTO : side == 0 ? PT_MOVETO : PT_LINETO);
        }
    }
    result.types.back() |= PT_CLOSEFIGURE;
    return result;
}

RoundCurves ellipseCurves(const RECT& box) {
    const RoundCurves round = roundRectCurves(box, {box.right - box.left, box.bottom - box.top});
    // Where two quarters meet there is one point: the upper left quarter's, and below the left one's.
    constexpr std::size_t firstEnd = 3;
    constexpr std::size_t thirdStart = 8;
    constexpr std::size_t fourthStart = 12;
    RoundCurves result;
    for (std::size_t i = 0; i < round.points.size(); ++i) {
        if (i == firstEnd || i == thirdStart || i == fourthStart) continue;
        result.points.push_back(round.points[i]);
        result.types.push_back(round.types[i] == PT_LINETO ? PT_BEZIERTO : round.types[i]);
    }
    return result;
}

POINT pointAtAngle(const ExactRect& box, double angle) {
    return pointAt(box, std::cos(angle), std::sin(angle));
}

std::vector<POINT> arcCurves(const ExactRect& box, ArcAngles angles) {
    std::vector<POINT> points{pointAt(box, std::cos(angles.start), std::sin(angles.start))};
    const double direction = angles.end >= angles.start ? 1 : -1;
    double from = angles.start;
    while (direction * (angles.end - from) > 1e-9) {
        // The next quarter's border in the direction of the arc.
        const double quarters = from / (pi / 2);
        const double next =
            (direction > 0 ? std::floor(quarters + 1e-9) + 1 : std::ceil(quarters - 1e-9) - 1) * pi / 2;
        const double to = direction * (angles.end - next) > 0 ? next : angles.end;
        addArcPiece(box, from, to, points);
        from = to;
    }
    return points;
}

} // namespace platform::driver
