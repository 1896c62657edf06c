#pragma once
// Putting glyphs on a surface.

#include "platform/linux/device_context.h"
#include "platform/linux/font_face.h"

namespace platform::driver {

/// Whether the surface has colours enough for smoothed edges.
bool canSmooth(const Surface& surface);
/// The same for pixels of so many bits.
bool canSmooth(int bitsPerPixel);

/// Draws glyphs in the context's text colour.
class TextPainter {
public:
    /// `clip` bounds the drawing further, in surface coordinates.
    TextPainter(DeviceContext& context, const RECT* clip);

    /// Draws a glyph with its pen position at (x, y) of the surface, y on the base line.
    void draw(const Glyph& glyph, int x, int y);

private:
    /// What smoothing makes of a colour component at one level of coverage.
    struct Range {
        int low = 0;  ///< Of a component over black
        int high = 0; ///< Over white
    };

    void drawRuns(const Glyph& glyph, POINT corner);
    void drawSmoothRuns(const Glyph& glyph, POINT corner);
    void drawClipped(const Glyph& glyph, int x, int y, const RECT& clip);
    void drawWords(std::uint32_t* pixels, const std::uint8_t* coverage, int count);
    std::uint32_t blended(std::uint32_t under, std::size_t level);
    void findBlend(std::uint32_t under, std::size_t level);
    std::uint32_t blend(std::uint32_t under, std::size_t level) const;
    void findRanges(std::size_t level);

    std::span<const RECT> clips_;
    const Surface& surface_;
    bool hasClip_;
    RECT clip_;
    std::uint32_t pixel_; ///< A colour where edges are smoothed, else a value
    std::vector<std::uint32_t> words_;
    std::uint32_t rangesKnown_ = 0; ///< One bit for each level of coverage
    std::array<std::array<Range, 3>, fullCoverage + 1> ranges_;
    std::uint32_t ground_ = 0;     ///< The colour under the last smoothed pixel, which most of them share
    std::uint32_t blendKnown_ = 0; ///< The same
    std::array<std::uint32_t, fullCoverage + 1> blends_;
};

} // namespace platform::driver
