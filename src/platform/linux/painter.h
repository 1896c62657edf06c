#pragma once
// Filling with a brush or a colour under a raster operation, within a context's clipping.

#include "platform/linux/device_context.h"
#include "platform/linux/rows.h"

namespace platform::driver {

/// The only rectangle of words that may be drawn on, made ready for fills; most contexts have one.
class PlainArea {
public:
    PlainArea(const Surface& surface, const RECT& clip) : surface_(surface), clip_(clip) {}

    /// Sets the words of a rectangle in surface coordinates, four numbers that stay in registers so.
    void fill(LONG left, LONG top, LONG right, LONG bottom, std::uint32_t value) const {
        left = std::max(left, clip_.left);
        top = std::max(top, clip_.top);
        const LONG width = std::min(right, clip_.right) - left;
        const LONG height = std::min(bottom, clip_.bottom) - top;
        if (width > 0 && height > 0)
            fillWords(row32(surface_, top) + left, wordStride(surface_), width, height, value);
    }

    bool covers(const RECT& r) const {
        return r.left >= clip_.left && r.top >= clip_.top && r.right <= clip_.right &&
               r.bottom <= clip_.bottom;
    }

    /// Puts the words of a row into a span; false when there are none of them.
    bool findSpan(LONG left, LONG y, LONG right, WordSpan& span) const {
        if (y < clip_.top || y >= clip_.bottom) return false;
        left = std::max(left, clip_.left);
        span.width = std::min(right, clip_.right) - left;
        if (span.width <= 0) return false;
        span.first = row32(surface_, y) + left;
        return true;
    }

private:
    const Surface& surface_;
    const RECT& clip_;
};

inline std::optional<PlainArea> plainArea(DeviceContext& context) {
    const std::span<const RECT> clips = context.drawable().rectangles();
    if (clips.size() != 1 || context.surface->bitsPerPixel != 32) return {};
    return PlainArea(*context.surface, clips[0]);
}

/// Changes a rectangle of the context's surface by masks, as far as it may be drawn on, whatever it is.
void maskEachClipped(DeviceContext& context, const RECT& r, Masks masks);

/// The same in the shortest way.
inline void maskClipped(DeviceContext& context, const RECT& r, Masks masks) {
    const std::optional<PlainArea> area = plainArea(context);
    if (area && masks.keep == 0) {
        area->fill(r.left, r.top, r.right, r.bottom, masks.flip);
    } else {
        maskEachClipped(context, r, masks);
    }
}

/// A brush made ready for the surface of one context and one operation without source.
class Painter {
public:
    Painter(DeviceContext& context, const Brush& brush, Rop3 rop);
    /// Under the context's drawing mode: what a brush leaves alone stays, whatever the mode does without it.
    Painter(DeviceContext& context, const Brush& brush);
    /// A plain colour, given as the surface's pixel.
    Painter(DeviceContext& context, std::uint32_t pixel, Rop3 rop);

    /// True for a brush that leaves everything as it is.
    bool paintsNothing() const { return !tile_ && masks_ == leaveAlone; }

    /// What it does to every pixel; null for a pattern.
    const Masks* plainMasks() const { return tile_ ? nullptr : &masks_; }

    /// Fills a rectangle in surface coordinates.
    void fill(const RECT& r) const;

private:
    /// The masks of each pixel of a pattern, row by row from the top.
    struct Tile {
        int width = 0;
        int height = 0;
        POINT origin; ///< On the surface
        std::vector<Masks> masks;

        int columnAt(int x) const;
        int rowAt(int y) const;
        const Masks* row(int y) const { return masks.data() + static_cast<std::ptrdiff_t>(y) * width; }
    };

    void paintPattern(const Brush& brush, Rop3 rop);
    void makeTile(const Brush& brush, Rop3 rop);
    void fillTiled(const RECT& r) const;
    void fillTiledBits(const RECT& r) const;

    DeviceContext& context_;
    Masks masks_;
    std::shared_ptr<const Tile> tile_;
};

/// The pixels of a brush as they lie on a context's surface, for operations that also have a source.
class PatternRows {
public:
    PatternRows(const DeviceContext& context, const Brush& brush);

    /// Writes the pattern of `count` pixels at (x, y) of the surface: words, or bits at the positions
    /// (x & 7)... for a surface of 1 bit.
    void row32(int x, int y, int count, std::uint32_t* out) const;
    void rowBits(int x, int y, int count, std::uint8_t* out) const;

private:
    std::uint32_t at(int x, int y) const;

    int width_ = 1;
    int height_ = 1;
    POINT origin_;
    std::vector<std::uint32_t> pixels_;
};

} // namespace platform::driver
