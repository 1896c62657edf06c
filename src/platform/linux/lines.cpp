#include "platform/linux/lines.h"

#include "platform/linux/colors.h"
#include "platform/linux/painter.h"
#include "platform/linux/rows.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace platform::driver {

namespace {

/// Lengths of dashes and gaps in pixels.
Dashes dashesOf(const Pen& pen) {
    switch (static_cast<int>(pen.data.lopnStyle)) {
    case PS_DASH:
        return {18, 6};
    case PS_DOT:
        return {3, 3};
    case PS_DASHDOT:
        return {9, 6, 3, 6};
    case PS_DASHDOTDOT:
        return {9, 3, 3, 3, 3, 3};
    case PS_ALTERNATE:
        return {1, 1};
    case PS_USERSTYLE:
        return {pen.dashes.begin(), pen.dashes.end()};
    default:
        return {};
    }
}

/// The dashes of a geometric pen are counted in its width.
Dashes geometricDashesOf(const Pen& pen, int width) {
    Dashes dashes;
    switch (static_cast<int>(pen.data.lopnStyle)) {
    case PS_DASH:
        dashes = {3, 1};
        break;
    case PS_DOT:
        dashes = {1, 1};
        break;
    case PS_DASHDOT:
        dashes = {3, 1, 1, 1};
        break;
    case PS_DASHDOTDOT:
        dashes = {3, 1, 1, 1, 1, 1};
        break;
    case PS_USERSTYLE:
        return {pen.dashes.begin(), pen.dashes.end()};
    default:
        break;
    }
    // Caps take from the gaps what they add to the dashes.
    const bool hasCaps = width > 1 && (pen.form & PS_ENDCAP_MASK) != PS_ENDCAP_FLAT;
    for (std::size_t i = 0; i < dashes.size(); ++i)
        dashes[i] = (dashes[i] + (hasCaps ? i % 2 == 0 ? -1 : 1 : 0)) * width;
    return dashes;
}

PenShape shapeOf(const Pen& pen, int width, float miterLimit) {
    PenShape shape;
    shape.width = width;
    shape.cap = pen.form & PS_ENDCAP_MASK;
    shape.joint = pen.form & PS_JOIN_MASK;
    shape.miterLimit = miterLimit;
    if (pen.isGeometric()) shape.dashes = geometricDashesOf(pen, width);
    return shape;
}

/// The steps of a slanted line from its start: the longer axis moves by one each time, the shorter one by the
/// rounded share. A share of exactly one half is rounded away from the start or towards it by direction.
struct Steps {
    std::int64_t major;
    std::int64_t minor;
    std::int64_t tie; ///< 1: a half stays behind

    std::int64_t minorAt(std::int64_t step) const { return (2 * minor * step + major - tie) / (2 * major); }

    /// The first step whose minor offset is at least `offset`.
    std::int64_t firstAt(std::int64_t offset) const {
        if (offset <= 0) return 0;
        if (minor == 0) return major;
        const std::int64_t needed = 2 * major * offset - major + tie;
        return (needed + 2 * minor - 1) / (2 * minor);
    }
};

/// The range of steps for which start + direction * offset lies in [low, high).
struct Range {
    std::int64_t first;
    std::int64_t last; ///< Not included
};

Range offsetsWithin(int start, int direction, int low, int high) {
    if (direction > 0) return {std::int64_t{low} - start, std::int64_t{high} - start};
    return {std::int64_t{start} - high + 1, std::int64_t{start} - low + 1};
}

/// Visits the pixels of a line that lie in `clip`, without the last one: visit(x, y, step), steps counted
/// from the start along the longer axis.
template <class Visit>
void walk(POINT from, POINT to, const RECT& clip, Visit visit) {
    const int dx = std::abs(to.x - from.x);
    const int dy = std::abs(to.y - from.y);
    const int stepX = to.x >= from.x ? 1 : -1;
    const int stepY = to.y >= from.y ? 1 : -1;
    const bool wide = dx >= dy;
    const Steps steps{wide ? dx : dy, wide ? dy : dx, (wide ? stepY : stepX) > 0 ? 1 : 0};
    if (steps.major == 0) return;
    const Range inX = offsetsWithin(from.x, stepX, clip.left, clip.right);
    const Range inY = offsetsWithin(from.y, stepY, clip.top, clip.bottom);
    const Range major = wide ? inX : inY;
    const Range minor = wide ? inY : inX;
    if (minor.last <= 0) return;
    const std::int64_t first = std::max({std::int64_t{0}, major.first, steps.firstAt(minor.first)});
    const std::int64_t last = std::min(steps.major, major.last);
    for (std::int64_t i = first; i < last; ++i) {
        const std::int64_t across = steps.minorAt(i);
        if (across >= minor.last) break;
        const int along = static_cast<int>(i);
        const int side = static_cast<int>(across);
        visit(from.x + stepX * (wide ? along : side), from.y + stepY * (wide ? side : along), i);
    }
}

} // namespace

Stroke::Stroke(DeviceContext& context) : context_(context) {
    const Pen& pen = context.pen();
    const ContextState& state = context.state;
    style_ = static_cast<int>(pen.data.lopnStyle);
    width_ = std::max(1, state.mapping.widthOnDevice(pen.data.lopnWidth.x));
    const bool isDcPen = pen.stock && pen.handle == stockObject(DC_PEN);
    const Rop3 rop = rop3OfMode(state.rop2);
    const COLORREF color = isDcPen ? state.dcPenColor : pen.data.lopnColor;
    const std::uint32_t ink = pixelOf(context, color);
    // On 1 bit the gaps show the other colour, also where the background is nearer to the pen's.
    const bool isOther = context.surface->bitsPerPixel == 1 && color != state.backColor;
    ink_ = masksOf(rop, ink);
    gap_ = state.backMode == OPAQUE ? masksOf(rop, isOther ? ~ink : backPixelOf(context)) : leaveAlone;
    shape_ = shapeOf(pen, width_, state.miterLimit);
    paintsAtOnce_ = pen.isGeometric() || width_ > 1;
    if (width_ == 1) dashes_ = pen.isGeometric() ? shape_.dashes : dashesOf(pen);
    dashLength_ = std::accumulate(dashes_.begin(), dashes_.end(), 0);
}

Stroke Stroke::dotted(DeviceContext& context, Masks ink) {
    Stroke stroke(context);
    stroke.style_ = PS_DOT;
    stroke.width_ = 1;
    stroke.paintsAtOnce_ = false;
    stroke.ink_ = ink;
    stroke.gap_ = leaveAlone;
    stroke.dashes_ = {1, 1};
    stroke.dashLength_ = 2;
    return stroke;
}

void Stroke::draw(std::span<const POINT> points, bool closed) {
    if (paintsNothing() || points.empty()) return;
    if (paintsAtOnce_) {
        paint(regionOf(points, closed));
        return;
    }
    dashStart_ = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        drawThin(points[i - 1], points[i]);
    if (closed) drawThin(points.back(), points.front());
}

void Stroke::draw(const std::vector<Figure>& figures) {
    if (paintsNothing()) return;
    if (paintsAtOnce_) {
        paint(area(figures));
        return;
    }
    for (const Figure& figure : figures)
        draw(figure.points, figure.closed);
}

Region Stroke::area(const std::vector<Figure>& figures) const {
    Region all;
    for (const Figure& figure : figures)
        all = all.united(regionOf(figure.points, figure.closed));
    return all;
}

Region Stroke::regionOf(std::span<const POINT> points, bool closed) const {
    return width_ > 1 ? wideRegion(points, closed, shape_, context_.drawable().bounds())
                      : thinRegion(points, closed);
}

Region Stroke::thinRegion(std::span<const POINT> points, bool closed) const {
    std::vector<RECT> pixels;
    const RECT bounds = context_.drawable().bounds();
    std::int64_t length = 0;
    const auto add = [&](POINT from, POINT to) {
        walk(from, to, bounds, [&](int x, int y, std::int64_t step) {
            if (isInk(length + step)) pixels.push_back({x, y, x + 1, y + 1});
        });
        length += std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
    };
    for (std::size_t i = 1; i < points.size(); ++i)
        add(points[i - 1], points[i]);
    if (closed) {
        add(points.back(), points.front());
    } else if (dashes_.empty() && points.size() > 1) {
        // Only a slanted line of these pens has its last pixel.
        const POINT& end = points.back();
        const POINT& before = points[points.size() - 2];
        if (before.x != end.x && before.y != end.y) add(end, {end.x + 1, end.y});
    }
    return Region::ofRows(std::move(pixels));
}

std::vector<Figure> Stroke::outlines(const std::vector<Figure>& figures) const {
    constexpr RECT everywhere{-0x8000, -0x8000, 0x8000, 0x8000};
    Region all;
    for (const Figure& figure : figures)
        all = all.united(wideRegion(figure.points, figure.closed, shape_, everywhere));
    std::vector<Figure> result;
    for (const RECT& r : all.rectangles())
        result.push_back(
            {{{r.left, r.top}, {r.right, r.top}, {r.right, r.bottom}, {r.left, r.bottom}}, true});
    return result;
}

void Stroke::drawThin(POINT from, POINT to) {
    const int dx = std::abs(to.x - from.x);
    const int dy = std::abs(to.y - from.y);
    const RECT box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
                   std::max(from.y, to.y) + 1};
    const bool isStraight = (dx == 0 || dy == 0) && dashes_.empty();
    if (isStraight && (dx > 0 || dy > 0)) {
        RECT r = box;
        if (dy == 0) (to.x > from.x ? r.right : r.left) += to.x > from.x ? -1 : 1;
        if (dx == 0) (to.y > from.y ? r.bottom : r.top) += to.y > from.y ? -1 : 1;
        straight(r);
    } else if (!isStraight) {
        for (const RECT& clip : context_.drawable().rectangles())
            if (!isEmpty(intersection(box, clip))) slanted(from, to, clip);
    }
    dashStart_ += std::max(dx, dy);
}

void Stroke::straight(const RECT& r) const {
    for (const RECT& clip : context_.drawable().rectangles()) {
        const RECT part = intersection(r, clip);
        if (!isEmpty(part)) maskRectangle(*context_.surface, part, ink_);
    }
}

void Stroke::slanted(POINT from, POINT to, const RECT& clip) const {
    walk(from, to, clip, [this](int x, int y, std::int64_t step) {
        maskPixel(*context_.surface, x, y, isInk(dashStart_ + step) ? ink_ : gap_);
    });
}

bool Stroke::isInk(std::int64_t length) const {
    if (dashes_.empty()) return true;
    int rest = static_cast<int>(length % dashLength_);
    std::size_t index = 0;
    while (rest >= dashes_[index])
        rest -= dashes_[index++];
    return index % 2 == 0;
}

void Stroke::paint(const Region& region) const {
    const Pen& pen = context_.pen();
    if (!pen.isGeometric()) {
        for (const RECT& r : region.rectangles())
            straight(r);
        return;
    }
    Brush brush;
    brush.data = pen.brush;
    const Painter painter(context_, brush);
    for (const RECT& r : region.rectangles())
        painter.fill(r);
}

} // namespace platform::driver
