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

LONG toPixel(std::int64_t fine) {
    return static_cast<LONG>((fine + unit / 2) >> fraction);
}

FinePoint middle(FinePoint a, FinePoint b) {
    return {(a.x + b.x + 1) >> 1, (a.y + b.y + 1) >> 1};
}

/// Whether both controls lie between the ends along the longer axis and within a pixel of the chord.
bool isFlat(const FineBezier& c) {
    const std::int64_t dx = c[3].x - c[0].x;
    const std::int64_t dy = c[3].y - c[0].y;
    const bool steep = std::abs(dy) > std::abs(dx);
    const auto along = [&](FinePoint p) { return steep ? p.y - c[0].y : p.x - c[0].x; };
    const auto across = [&](FinePoint p) { return steep ? p.x - c[0].x : p.y - c[0].y; };
    const std::int64_t length = steep ? dy : dx;
    const std::int64_t rise = steep ? dx : dy;
    for (const FinePoint& p : {c[1], c[2]}) {
        const std::int64_t step = along(p);
        if (length >= 0 ? step < 0 || step > length : step > 0 || step < length) return false;
        if (length == 0) continue;
        if (std::abs(across(p) - rise * step / length) > unit) return false;
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

LONG rounded(double value) {
    return static_cast<LONG>(std::floor(value + 0.5));
}

POINT pointAt(const RECT& box, double x, double y) {
    return {rounded(box.left + (box.right - box.left) * (x + 1) / 2),
            rounded(box.top + (box.bottom - box.top) * (y + 1) / 2)};
}

/// The curve from one angle to another, not more than a quarter apart; the start is left out.
void addArcPiece(const RECT& box, double from, double to, std::vector<POINT>& out) {
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
    // One corner is rounded to pixels, the others mirror it.
    const RECT ellipse{box.right - width, box.top, box.right, box.top + height};
    std::vector<POINT> quarter{pointAt(ellipse, 1, 0)};
    addArcPiece(ellipse, 0, -pi / 2, quarter);
    const auto mirrorX = [&](POINT p) { return POINT{box.left + box.right - p.x, p.y}; };
    const auto mirrorY = [&](POINT p) { return POINT{p.x, box.top + box.bottom - p.y}; };
    RoundCurves result;
    const auto add = [&](POINT p, BYTE type) {
        result.points.push_back(p);
        result.types.push_back(type);
    };
    for (int side = 0; side < 4; ++side) {
        for (std::size_t i = 0; i < quarter.size(); ++i) {
            POINT p = quarter[side % 2 == 0 ? i : quarter.size() - 1 - i];
            if (side == 1 || side == 2) p = mirrorX(p);
            if (side >= 2) p = mirrorY(p);
            add(p, i > 0 ? PT_BEZIERTO : side == 0 ? PT_MOVETO : PT_LINETO);
        }
    }
    result.types.back() |= PT_CLOSEFIGURE;
    return result;
}

RoundCurves ellipseCurves(const RECT& box) {
    const RoundCurves round = roundRectCurves(box, {box.right - box.left, box.bottom - box.top});
    RoundCurves result;
    for (std::size_t i = 0; i < round.points.size(); ++i) {
        if (round.types[i] == PT_LINETO) continue;
        result.points.push_back(round.points[i]);
        result.types.push_back(round.types[i]);
    }
    return result;
}

std::vector<POINT> arcCurves(const RECT& box, ArcAngles angles) {
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
