#pragma once
// Filling with a brush or a colour under a raster operation, within a context's clipping.

#include "platform/linux/device_context.h"
#include "platform/linux/rows.h"

namespace platform::driver {

/// Changes a rectangle of the context's surface by masks, as far as its clipping of several rectangles, or
/// another depth than 32 bits, lets it be drawn on.
void maskEachClipped(DeviceContext& context, const RECT& r, Masks masks);

/// The same for every clipping. Most often the clipping is one rectangle and words are set.
inline void maskClipped(DeviceContext& context, const RECT& r, Masks masks) {
    const std::vector<RECT>& clips = context.drawable().rectangles();
    const Surface& surface = *context.surface;
    if (clips.size() != 1 || surface.bitsPerPixel != 32 || masks.keep != 0) {
        maskEachClipped(context, r, masks);
        return;
    }
    // Four numbers, so that they stay in registers.
    const LONG left = std::max(r.left, clips[0].left);
    const LONG top = std::max(r.top, clips[0].top);
    const LONG right = std::min(r.right, clips[0].right);
    const LONG bottom = std::min(r.bottom, clips[0].bottom);
    if (left < right && top < bottom)
        fillWords(row32(surface, top) + left, surface.stride / 4, right - left, bottom - top, masks.flip);
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
    };

    void paintPattern(const Brush& brush, Rop3 rop);
    void makeTile(const Brush& brush, Rop3 rop);
    void fillTiled(const RECT& r) const;

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
