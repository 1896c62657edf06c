#include "platform/linux/lines.h"

#include "platform/linux/colors.h"
#include "platform/linux/painter.h"
#include "platform/linux/rows.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace platform::driver {

namespace {

/// Beyond, no surface has pixels; a few of them still make an int.
constexpr DWORD longestDash = 1 << 24;

/// The lengths that a program gave, times a unit. An odd number of them goes round twice, gaps in place of
/// dashes the second time.
Dashes ownDashesOf(const Pen& pen, int unit) {
    Dashes dashes;
    for (const DWORD length : pen.dashes)
        dashes.push_back(static_cast<int>(std::min(length, longestDash)) * unit);
    const Dashes once = dashes;
    if (once.size() % 2 == 1) dashes.insert(dashes.end(), once.begin(), once.end());
    return dashes;
}

/// Lengths of dashes and gaps in pixels.
Dashes dashesOf(const Pen& pen) {
    constexpr int styleUnit = 3; // of a cosmetic pen
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
        return ownDashesOf(pen, styleUnit);
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
        return ownDashesOf(pen, 1);
    default:
        break;
    }
    // Caps take from the gaps what they add to the dashes.
    const int unit = std::min(width, static_cast<int>(longestDash));
    const bool hasCaps = width > 1 && (pen.form & PS_ENDCAP_MASK) != PS_ENDCAP_FLAT;
    for (std::size_t i = 0; i < dashes.size(); ++i)
        dashes[i] = (dashes[i] + (hasCaps ? i % 2 == 0 ? -1 : 1 : 0)) * unit;
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

/// The pixels of a line inside a clip, without its last one: a range of its steps along the longer axis.
class SteppedLine {
public:
    SteppedLine(POINT from, POINT to, const RECT& clip) : from_(from) {
        const int dx = std::abs(to.x - from.x);
        const int dy = std::abs(to.y - from.y);
        stepX_ = to.x >= from.x ? 1 : -1;
        stepY_ = to.y >= from.y ? 1 : -1;
        wide_ = dx >= dy;
        steps_ = {wide_ ? dx : dy, wide_ ? dy : dx, (wide_ ? stepY_ : stepX_) > 0 ? 1 : 0};
        if (steps_.major == 0) return;
        if (contains(clip, from) && contains(clip, to)) {
            last_ = steps_.major;
            return;
        }
        const Range inX = offsetsWithin(from.x, stepX_, clip.left, clip.right);
        const Range inY = offsetsWithin(from.y, stepY_, clip.top, clip.bottom);
        const Range major = wide_ ? inX : inY;
        const Range minor = wide_ ? inY : inX;
        if (minor.last <= 0) return;
        first_ = std::max({std::int64_t{0}, major.first, steps_.firstAt(minor.first)});
        last_ = std::min(steps_.major, major.last);
        if (steps_.minor > 0) last_ = std::min(last_, steps_.firstAt(minor.last));
    }

    /// Calls `plot(x, y, step)` for each pixel.
    template <class Plot>
    void each(Plot plot) const {
        if (first_ >= last_) return;
        const std::int64_t whole = 2 * steps_.major;
        std::int64_t side = steps_.minorAt(first_);
        std::int64_t rest = 2 * steps_.minor * first_ + steps_.major - steps_.tie - side * whole;
        for (std::int64_t step = first_; step < last_; ++step) {
            const int along = static_cast<int>(step);
            const int across = static_cast<int>(side);
            plot(from_.x + stepX_ * (wide_ ? along : across), from_.y + stepY_ * (wide_ ? across : along),
                 step);
            rest += 2 * steps_.minor;
            if (rest >= whole) {
                rest -= whole;
                ++side;
            }
        }
    }

    /// Sets the pixels of a surface of 32 bits.
    void fill32(const Surface& surface, std::uint32_t value) const {
        if (first_ >= last_) return;
        const std::int64_t side = first_ > 0 ? steps_.minorAt(first_) : 0;
        const std::ptrdiff_t pixel = std::ptrdiff_t{4} * stepX_;
        const std::ptrdiff_t row = static_cast<std::ptrdiff_t>(surface.stride) * stepY_;
        const std::ptrdiff_t along = wide_ ? pixel : row;
        const std::ptrdiff_t across = wide_ ? row : pixel;
        std::uint8_t* at = surface.bits + (std::ptrdiff_t{surface.stride} * from_.y +
                                           std::ptrdiff_t{4} * from_.x + along * first_ + across * side);
        // Coordinates are bounded so that these fit.
        const int whole = static_cast<int>(2 * steps_.major);
        const int part = static_cast<int>(2 * steps_.minor);
        int rest = static_cast<int>(2 * steps_.minor * first_ + steps_.major - steps_.tie - side * whole);
        // Most of a steep line's pixels lie on pages of their own, which are asked for some pixels ahead.
        constexpr int ahead = 8;
        const std::ptrdiff_t lead = ahead * along + across * (ahead * steps_.minor / steps_.major);
        for (std::int64_t left = last_ - first_; left > 0; --left) {
            __builtin_prefetch(at + lead, 1);
            *reinterpret_cast<std::uint32_t*>(at) = value;
            rest += part;
            const bool over = rest >= whole;
            at += along + (over ? across : 0);
            rest -= over ? whole : 0;
        }
    }

private:
    POINT from_;
    int stepX_ = 1;
    int stepY_ = 1;
    bool wide_ = true; ///< The longer axis is x
    Steps steps_{0, 0, 0};
    std::int64_t first_ = 0;
    std::int64_t last_ = 0; ///< Not included
};

/// The box of a line with both ends.
RECT boxOf(POINT from, POINT to) {
    return {std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
            std::max(from.y, to.y) + 1};
}

COLORREF penColor(const DeviceContext& context, const Pen& pen) {
    const bool isDcPen = pen.stock && pen.handle == stockObject(DC_PEN);
    return isDcPen ? context.state.dcPenColor : pen.data.lopnColor;
}

} // namespace

Masks plainInk(const DeviceContext& context) {
    const Pen& pen = context.pen();
    const bool isPlain = pen.data.lopnStyle == static_cast<UINT>(PS_SOLID) && !pen.extended &&
                         !context.recorder && !context.state.path.isOpen();
    if (!isPlain) return {};
    const LONG width = pen.data.lopnWidth.x;
    const Mapping& mapping = context.state.mapping;
    const bool isThin =
        width == 0 || (mapping.isUnscaled() ? width == 1 : mapping.sizeOnDevice({width, 0}).cx <= 1);
    if (!isThin) return {};
    return masksOfMode(context.state.rop2, pixelOf(context, penColor(context, pen)));
}

void drawSlantedLine(DeviceContext& context, POINT from, POINT to, Masks ink) {
    const Surface& surface = *context.surface;
    const bool isSet = surface.bitsPerPixel == 32 && ink.keep == 0;
    const RECT box = boxOf(from, to);
    for (const RECT& clip : context.drawable().rectangles()) {
        if (isEmpty(intersection(box, clip))) continue;
        const SteppedLine line(from, to, clip);
        if (isSet) {
            line.fill32(surface, ink.flip);
        } else {
            line.each([&](int x, int y, std::int64_t) { maskPixel(surface, x, y, ink); });
        }
    }
}

Stroke::Stroke(DeviceContext& context) : context_(context) {
    const Pen& pen = context.pen();
    const ContextState& state = context.state;
    style_ = static_cast<int>(pen.data.lopnStyle);
    width_ = std::max(1, state.mapping.sizeOnDevice({pen.data.lopnWidth.x, 0}).cx);
    const std::uint32_t ink = pixelOf(context, penColor(context, pen));
    // On 1 bit the gaps show the other colour, also where the background is nearer to the pen's.
    const bool isOther = context.surface->bitsPerPixel == 1 && penColor(context, pen) != state.backColor;
    ink_ = masksOfMode(state.rop2, ink);
    // The background shows in the gaps of pens that CreatePen makes, not of extended ones.
    const bool hasGround = state.backMode == OPAQUE && !pen.extended;
    gap_ = hasGround ? masksOfMode(state.rop2, isOther ? ~ink : backPixelOf(context)) : leaveAlone;
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
        SteppedLine(from, to, bounds).each([&](int x, int y, std::int64_t step) {
            if (isInk(length + step)) pixels.push_back({x, y, x + 1, y + 1});
        });
        length += std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
    };
    for (std::size_t i = 1; i < points.size(); ++i)
        add(points[i - 1], points[i]);
    if (closed) {
        add(points.back(), points.front());
    } else if (dashes_.empty() && points.size() > 1) {
        // Only a slanted line of these pens has its last pixel. The end may be there more than once.
        const POINT& end = points.back();
        const auto before = std::find_if(points.rbegin(), points.rend(), [&](POINT p) { return p != end; });
        if (before != points.rend() && before->x != end.x && before->y != end.y) add(end, {end.x + 1, end.y});
    }
    return Region::ofRows(std::move(pixels));
}

void Stroke::drawThin(POINT from, POINT to) {
    if (dashes_.empty()) {
        drawPlainLine(context_, from, to, ink_);
        return;
    }
    const RECT box = boxOf(from, to);
    for (const RECT& clip : context_.drawable().rectangles())
        if (!isEmpty(intersection(box, clip))) drawDashed(from, to, clip);
    dashStart_ += std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
}

void Stroke::drawDashed(POINT from, POINT to, const RECT& clip) const {
    SteppedLine(from, to, clip).each([this](int x, int y, std::int64_t step) {
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
            maskClipped(context_, r, ink_);
        return;
    }
    Brush brush;
    brush.data = pen.brush;
    const Painter painter(context_, brush);
    for (const RECT& r : region.rectangles())
        painter.fill(r);
}

} // namespace platform::driver
