#include "platform/linux/ellipses.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::driver {

namespace {

/// A quarter of the outline of an ellipse in a box at (0, 0): from the middle of the right side upwards. The
/// midpoint rule steps along the curve by the sign of its equation, kept as an integer. On a box much taller
/// than wide it ends before the top.
std::vector<POINT> quarterOutline(int width, int height) {
    const std::int64_t a = width - 1;
    const std::int64_t b = height - 1;
    const std::int64_t odd = b & 1;
    std::int64_t errorX = 4 * (1 - a) * b * b;
    std::int64_t errorY = 4 * (odd + 1) * a * a;
    std::int64_t error = errorX + errorY + odd * a * a;
    POINT at{width - 1, static_cast<LONG>(b / 2)};
    std::vector<POINT> points;
    points.reserve(static_cast<std::size_t>(width / 2) + static_cast<std::size_t>(height / 2) + 2);
    while (std::int64_t{2} * at.x >= a) {
        points.push_back(at);
        const std::int64_t twice = 2 * error;
        if (twice >= errorX) {
            errorX += 8 * b * b;
            error += errorX;
            --at.x;
        }
        if (twice <= errorY) {
            errorY += 8 * a * a;
            error += errorY;
            --at.y;
        }
    }
    return points;
}

/// An ellipse this thin has no curve.
bool isThin(SIZE corner) {
    return corner.cx <= 2 || corner.cy <= 2;
}

SIZE boundedCorner(const RECT& box, SIZE corner) {
    return {std::min(corner.cx, box.right - box.left), std::min(corner.cy, box.bottom - box.top)};
}

} // namespace

std::vector<POINT> roundOutline(const RECT& box, SIZE size) {
    const SIZE corner = boundedCorner(box, size);
    if (isThin(corner))
        return {{box.right - 1, box.top},
                {box.left, box.top},
                {box.left, box.bottom - 1},
                {box.right - 1, box.bottom - 1}};
    const std::vector<POINT> quarter = quarterOutline(corner.cx, corner.cy);
    std::vector<POINT> points;
    points.reserve(quarter.size() * 4);
    const LONG shift = box.right - corner.cx;
    const auto right = [&](POINT p) { return p.x + shift; };
    const auto left = [&](POINT p) { return box.left + box.right - 1 - right(p); };
    const auto top = [&](POINT p) { return box.top + p.y; };
    const auto bottom = [&](POINT p) { return box.bottom - 1 - p.y; };
    for (const POINT& p : quarter)
        points.push_back({right(p), top(p)});
    for (auto p = quarter.rbegin(); p != quarter.rend(); ++p)
        points.push_back({left(*p), top(*p)});
    for (const POINT& p : quarter)
        points.push_back({left(p), bottom(p)});
    for (auto p = quarter.rbegin(); p != quarter.rend(); ++p)
        points.push_back({right(*p), bottom(*p)});
    // Where an axis runs through pixels two quarters share one.
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() > 1 && points.front() == points.back()) points.pop_back();
    return points;
}

Region roundRegion(const RECT& box, SIZE size) {
    const SIZE corner = boundedCorner(box, size);
    if (isThin(corner)) return Region(box);
    std::vector<LONG> insets(static_cast<std::size_t>(corner.cy), -1);
    int first = corner.cy;
    for (const POINT& p : quarterOutline(corner.cx, corner.cy)) {
        LONG& inset = insets[static_cast<std::size_t>(p.y)];
        const LONG here = corner.cx - 1 - p.x;
        if (inset < 0 || here < inset) inset = here;
        first = std::min(first, static_cast<int>(p.y));
    }
    std::vector<RECT> rows;
    const int middle = (corner.cy - 1) / 2;
    for (int y = first; y <= middle; ++y) {
        const LONG inset = insets[static_cast<std::size_t>(y)];
        rows.push_back({box.left + inset, box.top + y, box.right - inset, box.top + y + 1});
    }
    const int straight = static_cast<int>(box.bottom - box.top) - 2 * (middle + 1);
    if (straight > 0)
        rows.push_back({box.left, box.top + middle + 1, box.right, box.top + middle + 1 + straight});
    for (int y = middle; y >= first; --y) {
        const LONG inset = insets[static_cast<std::size_t>(y)];
        rows.push_back({box.left + inset, box.bottom - 1 - y, box.right - inset, box.bottom - y});
    }
    return Region::ofRows(rows);
}

std::vector<POINT> arcOutline(const RECT& box, const RECT& rayBox, const ArcRays& rays) {
    const std::vector<POINT> whole = roundOutline(box, sizeOf(box));
    if (whole.empty()) return {};
    // Directions from the centre, in doubled coordinates, against the clock from the right.
    const auto angleOf = [](std::int64_t x, std::int64_t y) {
        const double angle = std::atan2(static_cast<double>(-y), static_cast<double>(x));
        return angle < 0 ? angle + 2 * std::numbers::pi : angle;
    };
    const auto rayAngle = [&](POINT p) {
        return angleOf(2 * std::int64_t{p.x} - rayBox.left - rayBox.right,
                       2 * std::int64_t{p.y} - rayBox.top - rayBox.bottom);
    };
    const double start = rayAngle(rays.clockwise ? rays.end : rays.start);
    const double end = rayAngle(rays.clockwise ? rays.start : rays.end);
    const auto firstFrom = [&](double angle) {
        for (std::size_t i = 0; i < whole.size(); ++i) {
            const POINT& p = whole[i];
            if (angleOf(2 * std::int64_t{p.x} + 1 - box.left - box.right,
                        2 * std::int64_t{p.y} + 1 - box.top - box.bottom) >= angle)
                return i;
        }
        return std::size_t{0};
    };
    const std::size_t first = firstFrom(start);
    std::size_t last = firstFrom(end);
    if (last <= first) last += whole.size();
    std::vector<POINT> points;
    for (std::size_t i = first; i < last; ++i)
        points.push_back(whole[i % whole.size()]);
    if (rays.clockwise) std::reverse(points.begin(), points.end());
    return points;
}

} // namespace platform::driver
