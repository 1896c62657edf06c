#include "platform/linux/polygons.h"

#include <algorithm>
#include <cmath>

namespace platform::driver {

namespace {

struct Crossing {
    LONG x;
    int direction;
};

/// Quotient rounded up.
std::int64_t ceilingDivide(std::int64_t a, std::int64_t b) {
    return a > 0 ? (a + b - 1) / b : -(-a / b);
}

/// Collects rectangles of one row each.
class RowCollector {
public:
    explicit RowCollector(const RECT& bounds) : bounds_(bounds) {}

    void add(LONG left, LONG y, LONG right) {
        const RECT row = intersection({left, y, right, y + 1}, bounds_);
        if (!isEmpty(row)) rows_.push_back(row);
    }

    Region take() { return Region::ofRows(std::move(rows_)); }

private:
    RECT bounds_;
    std::vector<RECT> rows_;
};

/// A side of a polygon, from its upper to its lower end.
struct Edge {
    POINT top;
    POINT bottom;
    int direction;

    /// The first column whose left border is not left of the side in row `y`.
    LONG at(LONG y) const {
        const std::int64_t rise = std::int64_t{bottom.x} - top.x;
        const std::int64_t height = std::int64_t{bottom.y} - top.y;
        return static_cast<LONG>(top.x + ceilingDivide(rise * (std::int64_t{y} - top.y), height));
    }
};

/// The sides that cross rows, by their top.
std::vector<Edge> edgesOf(std::span<const std::vector<POINT>> polygons) {
    std::vector<Edge> edges;
    for (const std::vector<POINT>& points : polygons) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            const POINT& a = points[i];
            const POINT& b = points[i + 1 < points.size() ? i + 1 : 0];
            if (a.y < b.y) edges.push_back({a, b, 1});
            if (a.y > b.y) edges.push_back({b, a, -1});
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.top.y < b.top.y; });
    return edges;
}

void addRow(std::span<const Crossing> crossings, int fillMode, LONG y, RowCollector& rows) {
    int winding = 0;
    for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
        winding += crossings[i].direction;
        const bool inside = fillMode == WINDING ? winding != 0 : i % 2 == 0;
        if (inside) rows.add(crossings[i].x, y, crossings[i + 1].x);
    }
}

constexpr double half = 0.5;

/// Half the width, of a circle with radius 1, at a height given on the scale of `radius`.
double chord(double height, double radius) {
    if (height <= 0 || radius <= half) return 1; // up to two pixels across there is no curve
    const double share = height / radius;
    return share >= 1 ? 0 : std::sqrt(1 - share * share);
}

} // namespace

Region polygonRegion(std::span<const POINT> points, int fillMode, const RECT& bounds) {
    const std::vector<POINT> polygon(points.begin(), points.end());
    return polygonsRegion({&polygon, 1}, fillMode, bounds);
}

Region polygonsRegion(std::span<const std::vector<POINT>> polygons, int fillMode, const RECT& bounds) {
    const std::vector<Edge> edges = edgesOf(polygons);
    if (edges.empty() || isEmpty(bounds)) return {};
    RowCollector rows(bounds);
    std::vector<const Edge*> active;
    std::vector<Crossing> crossings;
    auto next = edges.begin();
    for (LONG y = std::max(next->top.y, bounds.top); y < bounds.bottom; ++y) {
        std::erase_if(active, [y](const Edge* edge) { return edge->bottom.y <= y; });
        for (; next != edges.end() && next->top.y <= y; ++next)
            if (next->bottom.y > y) active.push_back(&*next);
        if (active.empty() && next == edges.end()) break;
        crossings.clear();
        for (const Edge* edge : active)
            crossings.push_back({edge->at(y), edge->direction});
        std::sort(crossings.begin(), crossings.end(),
                  [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
        addRow(crossings, fillMode, y, rows);
    }
    return rows.take();
}

Region ellipseRegion(const RECT& box, const RECT& bounds) {
    // The curve runs through pixel centres. A pixel belongs to the inside when the curve, rounded to the
    // nearest pixel along either axis, reaches it; a half is rounded inwards.
    const double radiusX = (box.right - box.left - 1) / 2.0;
    const double radiusY = (box.bottom - box.top - 1) / 2.0;
    RowCollector rows(bounds);
    for (LONG y = std::max(box.top, bounds.top); y < std::min(box.bottom, bounds.bottom); ++y) {
        const double height = std::abs(y - box.top - radiusY);
        const double byRow = radiusX - radiusX * chord(height, radiusY);
        const double byColumn = radiusX - radiusX * chord(height - half, radiusY);
        const LONG inset = static_cast<LONG>(std::min(std::floor(byRow + half), std::floor(byColumn) + 1));
        rows.add(box.left + inset, y, box.right - inset);
    }
    return rows.take();
}

} // namespace platform::driver
