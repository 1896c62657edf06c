#include "platform/linux/ellipses.h"

#include "platform/linux/rows.h"

#include <algorithm>
#include <array>
#include <utility>

namespace platform::driver {

namespace {

/// Visits a quarter of the outline of an ellipse in a box at (0, 0): from the middle of the right side
/// upwards. The midpoint rule steps along the curve by the sign of its equation, kept as an integer. On a box
/// much taller than wide it ends before the top.
template <class Visit>
void walkQuarter(int width, int height, Visit visit) {
    const std::int64_t a = width - 1;
    const std::int64_t b = height - 1;
    const std::int64_t odd = b & 1;
    std::int64_t errorX = 4 * (1 - a) * b * b;
    std::int64_t errorY = 4 * (odd + 1) * a * a;
    std::int64_t error = errorX + errorY + odd * a * a;
    POINT at{width - 1, static_cast<LONG>(b / 2)};
    while (std::int64_t{2} * at.x >= a) {
        visit(at);
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
}

std::vector<POINT> quarterOutline(int width, int height) {
    std::vector<POINT> points;
    points.reserve(static_cast<std::size_t>(width / 2) + static_cast<std::size_t>(height / 2) + 2);
    walkQuarter(width, height, [&](POINT p) { points.push_back(p); });
    return points;
}

/// Rows of a round shape that are alike, counted from the top of its box or, for their mirror image, from the
/// bottom.
struct RoundRows {
    int top;
    int bottom; ///< Not included
    int inset;  ///< Pixels outside at either end
    int edge;   ///< Pixels of the outline at either end

    int count() const { return bottom - top; }
    bool isContinuedBy(const RoundRows& next) const { return inset == next.inset && edge == next.edge; }
};

/// Visits the rows with a curve, from the middle to the last, which the outline closes.
template <class Visit>
void walkRows(SIZE corner, Visit visit) {
    const int middle = (corner.cy - 1) / 2;
    RoundRows alike{middle, middle, 0, 0};
    RoundRows row{middle, middle + 1, 0, 0};
    const auto visitAlike = [&] {
        if (alike.count() > 0) visit(alike, false);
    };
    walkQuarter(corner.cx, corner.cy, [&](POINT p) {
        if (p.y != row.top) {
            if (alike.isContinuedBy(row)) {
                alike.top = row.top;
            } else {
                visitAlike();
                alike = row;
            }
            row = {p.y, p.y + 1, corner.cx - 1 - p.x, 0};
        }
        ++row.edge;
    });
    visitAlike();
    visit(row, true);
}

/// The rows of corners of one size, which controls draw again and again; those of the last few sizes are
/// kept.
const std::vector<RoundRows>& keptRows(SIZE corner) {
    struct Kept {
        SIZE corner;
        std::vector<RoundRows> rows;
    };
    static std::array<Kept, 4> all;
    static std::size_t oldest = 0;
    for (const Kept& kept : all)
        if (kept.corner == corner) return kept.rows;
    Kept& kept = all[std::exchange(oldest, (oldest + 1) % all.size())];
    kept.corner = corner;
    kept.rows.clear();
    walkRows(corner, [&](const RoundRows& rows, bool) { kept.rows.push_back(rows); });
    return kept.rows;
}

/// Sets pixels of one surface of 32 bits.
class RowPainter {
public:
    RowPainter(const Surface& surface, const RECT& box, std::optional<std::uint32_t> inside,
               std::optional<std::uint32_t> outline)
        : surface_(surface), box_(box), inside_(inside), outline_(outline) {}

    void paint(const RoundRows& rows, bool isLast) const {
        paintAt(box_.top + rows.top, rows, isLast);
        paintAt(box_.bottom - rows.bottom, rows, isLast);
    }

    /// The part between curves above and below.
    void paintStraight(int top, int bottom) const {
        if (top < bottom) paintAt(top, {top, bottom, 0, 1}, false);
    }

private:
    void paintAt(int y, const RoundRows& rows, bool isLast) const {
        const std::ptrdiff_t stride = wordStride(surface_);
        std::uint32_t* left = row32(surface_, y) + box_.left + rows.inset;
        const int width = static_cast<int>(box_.right - box_.left) - 2 * rows.inset;
        if (isLast && outline_) {
            fillWords(left, stride, width, rows.count(), *outline_);
            return;
        }
        if (inside_) fillWords(left, stride, width, rows.count(), *inside_);
        if (!outline_) return;
        for (int row = 0; row < rows.count(); ++row, left += stride)
            for (int i = 0; i < rows.edge; ++i)
                left[i] = left[width - 1 - i] = *outline_;
    }

    const Surface& surface_;
    const RECT& box_;
    std::optional<std::uint32_t> inside_;
    std::optional<std::uint32_t> outline_;
};

SIZE boundedCorner(const RECT& box, SIZE corner) {
    return {std::min(corner.cx, box.right - box.left), std::min(corner.cy, box.bottom - box.top)};
}

/// All four quarters, with straight lines between them where the corners are smaller than the box. Where an
/// axis runs through pixels two quarters have the same one.
std::vector<POINT> fourQuarters(const RECT& box, SIZE corner) {
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
    return points;
}

/// The same with each pixel once.
std::vector<POINT> curvedOutline(const RECT& box, SIZE corner, bool clockwise) {
    std::vector<POINT> points = fourQuarters(box, corner);
    if (clockwise) std::reverse(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() > 1 && points.front() == points.back()) points.pop_back();
    return points;
}

} // namespace

bool isThin(SIZE corner) {
    return corner.cx <= 2 || corner.cy <= 2;
}

std::vector<POINT> roundOutline(const RECT& box, SIZE size, bool clockwise) {
    const SIZE corner = boundedCorner(box, size);
    if (!isThin(corner)) return curvedOutline(box, corner, clockwise);
    const LONG first = clockwise ? box.bottom - 1 : box.top;
    const LONG last = clockwise ? box.top : box.bottom - 1;
    return {{box.right - 1, first}, {box.left, first}, {box.left, last}, {box.right - 1, last}};
}

Region roundRegion(const RECT& box, SIZE size, const RECT& within) {
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
    const int firstUpper = std::max(first, within.top - box.top);
    const int lastUpper = std::min(middle, within.bottom - 1 - box.top);
    for (int y = firstUpper; y <= lastUpper; ++y) {
        const LONG inset = insets[static_cast<std::size_t>(y)];
        rows.push_back({box.left + inset, box.top + y, box.right - inset, box.top + y + 1});
    }
    const int straight = static_cast<int>(box.bottom - box.top) - 2 * (middle + 1);
    if (straight > 0)
        rows.push_back({box.left, box.top + middle + 1, box.right, box.top + middle + 1 + straight});
    // The lower rows mirror the upper ones.
    const int firstLower = std::min(middle, box.bottom - 1 - within.top);
    const int lastLower = std::max(first, box.bottom - within.bottom);
    for (int y = firstLower; y >= lastLower; --y) {
        const LONG inset = insets[static_cast<std::size_t>(y)];
        rows.push_back({box.left + inset, box.bottom - 1 - y, box.right - inset, box.bottom - y});
    }
    return Region::ofRows(rows);
}

void paintRound32(const Surface& surface, const RECT& box, SIZE size, std::optional<std::uint32_t> inside,
                  std::optional<std::uint32_t> outline) {
    const SIZE corner = boundedCorner(box, size);
    const RowPainter painter(surface, box, inside, outline);
    constexpr int largestKept = 256; ///< Of the sides of corners whose rows are kept
    if (corner.cx <= largestKept && corner.cy <= largestKept) {
        const std::vector<RoundRows>& all = keptRows(corner);
        for (const RoundRows& rows : all)
            painter.paint(rows, &rows == &all.back());
    } else {
        walkRows(corner, [&](const RoundRows& rows, bool isLast) { painter.paint(rows, isLast); });
    }
    const int curved = (corner.cy - 1) / 2 + 1;
    painter.paintStraight(box.top + curved, box.bottom - curved);
}

namespace {

/// A ray from the centre of an ellipse, and what its outline's pixels are compared with. The pixels of the
/// right and lower half lie by the centre itself, those of the others by its mirror image.
class Ray {
public:
    enum class Role { Start, End };

    Ray(const RECT& box, POINT through, Role role, bool clockwise) {
        const POINT centre = centreOf(box);
        const POINT mirrored{box.left + box.right - 1 - centre.x, box.top + box.bottom - 1 - centre.y};
        x_ = std::int64_t{through.x} - centre.x;
        y_ = std::int64_t{through.y} - centre.y;
        if (x_ == 0 && y_ == 0) x_ = 1;
        // Arcs begin above the middle of the right side and end below it. The middle of the left side belongs
        // to the half that the arc comes from.
        const bool isUpper = y_ < 0 || (y_ == 0 && (x_ < 0 ? !clockwise : role == Role::Start));
        const bool isRight = isUpper ? y_ == 0 ? x_ > 0 : x_ >= 0 : x_ >= 0;
        origin_ = {isRight ? centre.x : mirrored.x, isUpper ? mirrored.y : centre.y};
        takesEqual_ = isUpper;
        quarter_ = isUpper ? (isRight ? 0 : 1) : (isRight ? 3 : 2);
    }

    /// In which quarter of the outline the ray meets it, counted from the upper right one against the clock.
    std::size_t quarter() const { return quarter_; }

    bool pointsRight() const { return y_ == 0 && x_ > 0; }

    /// Whether a pixel lies against the clock from the ray, up to half a turn.
    bool isPassedBy(POINT p) const {
        const std::int64_t x = p.x - origin_.x;
        const std::int64_t y = p.y - origin_.y;
        const std::int64_t turn = y_ * x - x_ * y;
        const bool isOpposite = x_ * x + y_ * y < 0;
        return turn > 0 || (turn == 0 && takesEqual_ && !isOpposite);
    }

private:
    std::int64_t x_;
    std::int64_t y_;
    POINT origin_;
    bool takesEqual_;
    std::size_t quarter_;
};

/// The first pixel behind the ray in its quarter of the outline, or the first of the next quarter.
std::size_t firstBehind(const Ray& ray, const std::vector<POINT>& outline) {
    const std::size_t quarter = outline.size() / 4;
    const std::size_t end = (ray.quarter() + 1) * quarter;
    for (std::size_t i = end - quarter; i < end; ++i)
        if (ray.isPassedBy(outline[i])) return i;
    return end;
}

} // namespace

POINT centreOf(const RECT& box) {
    return {static_cast<LONG>((std::int64_t{box.left} + box.right) >> 1),
            static_cast<LONG>((std::int64_t{box.top} + box.bottom) >> 1)};
}

std::vector<POINT> arcOutline(const RECT& box, const ArcRays& rays) {
    const std::vector<POINT> whole = fourQuarters(box, sizeOf(box));
    const Ray start(box, rays.clockwise ? rays.end : rays.start, Ray::Role::Start, rays.clockwise);
    const Ray end(box, rays.clockwise ? rays.start : rays.end, Ray::Role::End, rays.clockwise);
    const std::size_t first = start.pointsRight() ? 0 : firstBehind(start, whole);
    std::size_t last = firstBehind(end, whole);
    // Rays at the same pixel go all the way round, but for an arc to the right: it is over where it begins.
    const bool endsAtRight = (rays.clockwise ? start : end).pointsRight();
    if (last < first || (last == first && !endsAtRight)) last += whole.size();
    std::vector<POINT> points;
    points.reserve(last - first);
    for (std::size_t i = first; i < last; ++i)
        points.push_back(whole[i % whole.size()]);
    if (rays.clockwise) std::reverse(points.begin(), points.end());
    return points;
}

} // namespace platform::driver
