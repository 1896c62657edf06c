#include "platform/linux/wide_lines.h"

#include "platform/linux/polygons.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace platform::driver {

namespace {

constexpr double half = 0.5;

POINT sum(POINT a, POINT b) {
    return {a.x + b.x, a.y + b.y};
}

POINT difference(POINT a, POINT b) {
    return {a.x - b.x, a.y - b.y};
}

RECT boxOf(std::span<const POINT> points) {
    RECT box{points.front().x, points.front().y, points.front().x + 1, points.front().y + 1};
    for (const POINT& p : points)
        box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x + 1),
               std::max(box.bottom, p.y + 1)};
    return box;
}

/// A part of a straight line, which may be a single point, and the way that the whole line goes.
struct Segment {
    POINT from;
    POINT to;
    POINT way;
};

/// A straight piece: its four corners and how far a cap reaches out at its ends. The side to the right gets
/// what the middle line does not share out evenly. A dash takes its slant from the line that it is a part of.
struct Piece {
    POINT from;
    POINT to;
    POINT way;
    POINT fromRight;
    POINT toRight;
    POINT toLeft;
    POINT fromLeft;
    POINT beforeFrom; ///< From the start backwards
    POINT afterTo;    ///< From the end onwards
    POINT heldBack;   ///< From the end to where a joint begins: the last pixel of a straight piece

    Piece(const Segment& segment, int width) : from(segment.from), to(segment.to), way(segment.way) {
        POINT right;
        POINT left;
        if (way.x == 0 || way.y == 0) {
            setStraight(width, right, left);
        } else {
            setSlanted(width, right, left);
        }
        fromRight = sum(from, right);
        toRight = sum(to, right);
        toLeft = sum(to, left);
        fromLeft = sum(from, left);
    }

private:
    void setStraight(int width, POINT& right, POINT& left) {
        const int before = width / 2;
        const int after = width - before;
        const int directionX = way.x > 0 ? 1 : way.x < 0 ? -1 : 0;
        const int directionY = way.y > 0 ? 1 : way.y < 0 ? -1 : 0;
        // Whatever the direction, the greater share lies below or to the right.
        right = way.y == 0 ? POINT{0, directionX > 0 ? after : -before}
                           : POINT{directionY > 0 ? -before : after, 0};
        left = way.y == 0 ? POINT{0, directionX > 0 ? -before : after}
                          : POINT{directionY > 0 ? after : -before, 0};
        beforeFrom = {-directionX * before, -directionY * before};
        afterTo = {directionX * before, directionY * before};
        heldBack = {-directionX, -directionY};
    }

    void setSlanted(int width, POINT& right, POINT& left) {
        const double dx = way.x;
        const double dy = way.y;
        const double length = std::hypot(dx, dy);
        const double acrossX = width * std::abs(dy) / length / 2;
        const double acrossY = width * std::abs(dx) / length / 2;
        const POINT greater{static_cast<LONG>(acrossX) + 1, static_cast<LONG>(acrossY) + 1};
        const POINT lesser{static_cast<LONG>(acrossX + half), static_cast<LONG>(acrossY + half)};
        const int up = (dx > 0) == (dy > 0) ? -1 : 1;
        right = {greater.x, up * greater.y};
        left = {-lesser.x, -up * lesser.y};
        // Along the line it is the lower end that gets the greater share.
        const POINT& atStart = dy > 0 ? lesser : greater;
        const POINT& atEnd = dy > 0 ? greater : lesser;
        const int directionX = dx > 0 ? 1 : -1;
        const int directionY = dy > 0 ? 1 : -1;
        beforeFrom = {-directionX * atStart.y, -directionY * atStart.x};
        afterTo = {directionX * atEnd.y, directionY * atEnd.x};
    }
};

/// Unites many regions in pairs, so that none takes part in many unions. Once the bounds are full it takes no
/// more.
class RegionSum {
public:
    explicit RegionSum(const RECT& bounds) : bounds_(bounds) {}

    bool isFull() const { return isFull_; }
    void add(Region region) {
        if (isFull_ || region.empty()) return;
        for (std::size_t weight = ++count_; weight % 2 == 0; weight /= 2) {
            region = parts_.back().united(region);
            parts_.pop_back();
        }
        isFull_ = region.rectangles().size() == 1 && region.rectangles().front() == bounds_;
        parts_.push_back(std::move(region));
    }
    Region take() {
        Region all;
        for (auto part = parts_.rbegin(); part != parts_.rend(); ++part)
            all = all.united(*part);
        return all;
    }

private:
    RECT bounds_;
    std::vector<Region> parts_; ///< Of ever fewer regions
    std::size_t count_ = 0;
    bool isFull_ = false;
};

/// Collects the parts of one line.
class Outline {
public:
    Outline(const PenShape& shape, const RECT& bounds) : shape_(shape), bounds_(bounds), sum_(bounds) {}

    void add(std::span<const POINT> points, bool closed) {
        std::vector<Segment> segments;
        const std::size_t count = points.size() - (closed ? 0 : 1);
        for (std::size_t i = 0; i < count; ++i) {
            const POINT& next = points[(i + 1) % points.size()];
            if (points[i] != next) segments.push_back({points[i], next, difference(next, points[i])});
        }
        if (!segments.empty()) {
            add(segments, closed);
        } else if (paintsPoint(closed)) {
            addCircle(points.front());
        }
    }

    /// Each joint comes right after its piece: a joint of a huge pen mostly covers all that there is to
    /// paint.
    void add(std::span<const Segment> segments, bool closed) {
        const Piece first(segments.front(), shape_.width);
        addPiece(first, !closed, !closed && segments.size() == 1);
        Piece former = first;
        for (std::size_t i = 1; i < segments.size() && !sum_.isFull(); ++i) {
            const Piece piece(segments[i], shape_.width);
            addPiece(piece, false, !closed && i + 1 == segments.size());
            addJoint(former, piece);
            former = piece;
        }
        if (closed) addJoint(former, first);
    }

    Region take() { return sum_.take(); }

private:
    /// Whether a line without length shows: by its round ends, which dashes have also where they close, or by
    /// a round joint.
    bool paintsPoint(bool closed) const {
        const bool hasEnds = !closed || !shape_.dashes.empty();
        return (hasEnds && shape_.cap == PS_ENDCAP_ROUND) || (closed && shape_.joint == PS_JOIN_ROUND);
    }
    void addPolygon(std::span<const POINT> corners) {
        if (sum_.isFull() || isEmpty(intersection(boxOf(corners), bounds_))) return;
        sum_.add(polygonRegion(corners, WINDING, bounds_));
    }
    template <std::size_t count>
    void addPolygon(const POINT (&corners)[count]) {
        addPolygon(std::span<const POINT>(corners));
    }

    void addCircle(POINT centre) {
        const int before = shape_.width / 2;
        const RECT box{centre.x - before, centre.y - before, centre.x - before + shape_.width,
                       centre.y - before + shape_.width};
        if (!sum_.isFull() && !isEmpty(intersection(box, bounds_))) sum_.add(ellipseRegion(box, bounds_));
    }

    /// A piece with its caps, where it has ends.
    void addPiece(const Piece& piece, bool isFirst, bool isLast) {
        const bool isSquare = shape_.cap == PS_ENDCAP_SQUARE;
        const POINT before = isFirst && isSquare ? piece.beforeFrom : POINT{};
        const POINT after = isLast && isSquare ? piece.afterTo : POINT{};
        addPolygon({sum(piece.fromRight, before), sum(piece.toRight, after), sum(piece.toLeft, after),
                    sum(piece.fromLeft, before)});
        if (shape_.cap != PS_ENDCAP_ROUND) return;
        if (isFirst) addCircle(piece.from);
        if (isLast) addCircle(piece.to);
    }

    void addJoint(const Piece& a, const Piece& b) {
        if (shape_.joint == PS_JOIN_ROUND) {
            addCircle(b.from);
            return;
        }
        if (b.way == POINT{}) return;
        const std::int64_t turn = std::int64_t{a.way.x} * b.way.y - std::int64_t{a.way.y} * b.way.x;
        // The gap opens on the outer side of the turn.
        const bool outerIsLeft = leftIsOuter(a, turn);
        const POINT outerA = sum(outerIsLeft ? a.toLeft : a.toRight, a.heldBack);
        const POINT outerB = leftIsOuter(b, turn) ? b.fromLeft : b.fromRight;
        const POINT innerA = sum(outerIsLeft ? a.toRight : a.toLeft, a.heldBack);
        const POINT innerB = leftIsOuter(b, turn) ? b.fromRight : b.fromLeft;
        // From the inner corners straight to the outer ones: the platform's order, in which two sides cross.
        std::vector<POINT> corners{innerA, innerB, outerA};
        if (shape_.joint == PS_JOIN_MITER && turn != 0) addTip(a, b, corners, outerB);
        corners.push_back(outerB);
        addPolygon(corners);
    }

    /// Whether the side called left lies away from where the line turns to.
    static bool leftIsOuter(const Piece& piece, std::int64_t turn) {
        const std::int64_t side = std::int64_t{piece.way.x} * (piece.fromLeft.y - piece.from.y) -
                                  std::int64_t{piece.way.y} * (piece.fromLeft.x - piece.from.x);
        return (side > 0) != (turn > 0);
    }

    /// The point of a joint, where the outer edges meet, unless that lies too far out.
    void addTip(const Piece& a, const Piece& b, std::vector<POINT>& corners, POINT outerB) {
        const POINT outerA = corners.back();
        const double ax = a.way.x;
        const double ay = a.way.y;
        const double bx = b.way.x;
        const double by = b.way.y;
        // Where the distances of both edges from the origin are divided first: a half may end below itself,
        // just as on the platform.
        const double turn = ax * by - ay * bx;
        const double fromA = (ax * outerA.y - ay * outerA.x) / turn;
        const double fromB = (bx * outerB.y - by * outerB.x) / turn;
        const double x = bx * fromA - ax * fromB;
        const double y = by * fromA - ay * fromB;
        const double reach = std::hypot(x - b.from.x, y - b.from.y);
        if (reach <= shape_.miterLimit * shape_.width / 2)
            corners.push_back({static_cast<LONG>(std::lround(x)), static_cast<LONG>(std::lround(y))});
    }

    const PenShape& shape_;
    RECT bounds_;
    RegionSum sum_;
};

/// Cuts a line into its dashes, but for those that can't be seen.
class Dasher {
public:
    Dasher(const PenShape& shape, const RECT& bounds) : dashes_(shape.dashes), left_(shape.dashes.front()) {
        // Neither caps nor the points of joints reach farther out.
        const double reach = std::max(2.0, std::ceil(shape.miterLimit)) * shape.width + 2;
        const auto margin = static_cast<LONG>(std::min(reach, 0x100000 * 1.0));
        near_ = {bounds.left - margin, bounds.top - margin, bounds.right + margin, bounds.bottom + margin};
    }

    /// The dash in which a closed line ends and the one with which it begins are one. A single dash all the
    /// way round has ends nevertheless; where the points themselves come back to the first, the last end is
    /// that of the closing line, which has no length and no direction.
    std::vector<std::vector<Segment>> cut(std::span<const POINT> points, bool closed) {
        for (std::size_t i = 1; i < points.size(); ++i)
            go(points[i - 1], points[i]);
        if (closed) go(points.back(), points.front());
        const POINT start = points.front();
        const bool goesRound = closed && isCut_ && !current_.empty() && !result_.empty() &&
                               result_.front().front().from == start;
        if (goesRound) {
            result_.front().insert(result_.front().begin(), current_.begin(), current_.end());
            return std::move(result_);
        }
        if (closed && !isCut_ && points.back() == start) current_.push_back({start, start, {}});
        finish();
        return std::move(result_);
    }

private:
    bool isDash() const { return index_ % 2 == 0; }
    void finish() {
        const auto canBeSeen = [this](const Segment& s) { return isNear(s.from, s.to); };
        if (std::any_of(current_.begin(), current_.end(), canBeSeen)) result_.push_back(std::move(current_));
        current_.clear();
    }
    bool isNear(POINT from, POINT to) const {
        return !isEmpty(intersection(boxOf(std::array{from, to}), near_));
    }
    void takeNext() {
        index_ = (index_ + 1) % dashes_.size();
        left_ = dashes_[index_];
        isCut_ = true;
    }

    /// Goes on along a piece of which nothing can be seen.
    void pass(int length) {
        finish();
        length = static_cast<int>(length % std::accumulate(dashes_.begin(), dashes_.end(), std::int64_t{0}));
        while (length >= left_) {
            length -= left_;
            takeNext();
        }
        left_ -= length;
    }

    /// A dash that ends where the line does is followed by the next gap there, and a gap by the point of the
    /// next dash. Lengths are whole pixels: what a line is longer than that is not carried over to the next.
    void go(POINT from, POINT to) {
        if (from == to) return;
        const POINT way = difference(to, from);
        const double across = way.x, down = way.y;
        const double length = std::hypot(across, down);
        if (!isNear(from, to)) {
            pass(static_cast<int>(length));
            return;
        }
        const auto pointAt = [&](int done) -> POINT {
            return {from.x + static_cast<LONG>(across * done / length),
                    from.y + static_cast<LONG>(down * done / length)};
        };
        int done = 0;
        POINT start = from;
        while (length - done >= left_) {
            done += left_;
            const POINT end = pointAt(done);
            if (isDash()) current_.push_back({start, end, way});
            finish();
            takeNext();
            start = end;
        }
        left_ -= static_cast<int>(length) - done;
        if (isDash()) current_.push_back({start, to, way});
    }

    const Dashes& dashes_;
    RECT near_;
    std::size_t index_ = 0;
    int left_;           ///< Of the dash or gap that is being drawn
    bool isCut_ = false; ///< A dash has ended
    std::vector<Segment> current_;
    std::vector<std::vector<Segment>> result_;
};

bool isSinglePoint(std::span<const POINT> points) {
    return std::all_of(points.begin(), points.end(), [&](POINT p) { return p == points.front(); });
}

} // namespace

Region wideRegion(std::span<const POINT> points, bool closed, const PenShape& shape, const RECT& bounds) {
    Outline outline(shape, bounds);
    if (points.empty() || isEmpty(bounds)) return {};
    if (shape.dashes.empty() || isSinglePoint(points)) {
        outline.add(points, closed);
    } else {
        for (const std::vector<Segment>& dash : Dasher(shape, bounds).cut(points, closed))
            outline.add(dash, false);
    }
    return outline.take();
}

} // namespace platform::driver
