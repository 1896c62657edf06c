#pragma once
// Lines in a context's pen.

#include "platform/linux/painter.h"
#include "platform/linux/rop.h"
#include "platform/linux/wide_lines.h"

#include <span>

namespace platform::driver {

/// What the current pen does to pixels when a drawing of lines can do with that: it is solid and a pixel
/// wide, as most are, and no path or metafile takes the lines. For all others what leaves pixels alone.
Masks plainInk(const DeviceContext& context);

/// A line of such ink in surface coordinates, without its last pixel: a slanted one, and one of any kind.
void drawSlantedLine(DeviceContext& context, POINT from, POINT to, Masks ink);

inline void drawPlainLine(DeviceContext& context, POINT from, POINT to, Masks ink) {
    if (from.x != to.x && from.y != to.y) {
        drawSlantedLine(context, from, to, ink);
        return;
    }
    // The first pixel of a line backwards is the last of the area, which ends behind it. A level line is a
    // pixel high, an upright one a pixel wide.
    const bool isLevel = from.y == to.y;
    const bool backwards = to.x < from.x || to.y < from.y;
    const POINT first = backwards ? to : from;
    const POINT end = backwards ? from : to;
    const int before = backwards ? 1 : 0;
    maskClipped(context,
                isLevel ? RECT{first.x + before, from.y, end.x + before, from.y + 1}
                        : RECT{from.x, first.y + before, from.x + 1, end.y + before},
                ink);
}

/// A pen made ready for one drawing: its colour as masks, its dashes and its width.
class Stroke {
public:
    explicit Stroke(DeviceContext& context);
    /// Every second pixel, under the given masks, whatever pen is selected.
    static Stroke dotted(DeviceContext& context, Masks ink);

    bool paintsNothing() const { return style_ == PS_NULL; }
    bool isDashed() const { return !dashes_.empty() || !shape_.dashes.empty(); }
    /// Pixels across: 1 for every pen that is not wide.
    int width() const { return width_; }

    /// Lines through the points, in surface coordinates, without the last pixel. A closed one goes back to
    /// its first point. Dashes run on from line to line.
    void draw(std::span<const POINT> points, bool closed);
    /// The same for several lines; dashes begin anew with each.
    void draw(const std::vector<Figure>& figures);

    /// Whether the pen paints each pixel of a drawing once, however often its lines cross: a wide or a
    /// geometric one.
    bool paintsAtOnce() const { return paintsAtOnce_; }
    /// What such a pen paints.
    Region area(const std::vector<Figure>& figures) const;

    const PenShape& shape() const { return shape_; }

private:
    void drawThin(POINT from, POINT to);
    void paint(const Region& region) const;
    void drawDashed(POINT from, POINT to, const RECT& clip) const;
    /// Whether a pixel at a length from the first point belongs to a dash.
    bool isInk(std::int64_t length) const;
    Region regionOf(std::span<const POINT> points, bool closed) const;
    Region thinRegion(std::span<const POINT> points, bool closed) const;

    DeviceContext& context_;
    int style_ = PS_SOLID;
    int width_ = 1;
    Masks ink_;
    Masks gap_;
    PenShape shape_;
    bool paintsAtOnce_ = false;
    Dashes dashes_; ///< In pixels along the longer axis; empty for a solid or a wide line
    int dashLength_ = 0;
    std::int64_t dashStart_ = 0;
};

} // namespace platform::driver
