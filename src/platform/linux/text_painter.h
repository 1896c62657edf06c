#pragma once
// Putting glyphs on a surface.

#include "platform/linux/device_context.h"
#include "platform/linux/font_face.h"

namespace platform::driver {

/// Draws glyphs in the context's text colour.
class TextPainter {
public:
    /// `clip` bounds the drawing further, in surface coordinates.
    TextPainter(DeviceContext& context, const RECT* clip);

    /// Draws a glyph with its pen position at (x, y) of the surface, y on the base line.
    void draw(const Glyph& glyph, int x, int y) const;

private:
    /// What smoothing makes of a colour component at one level of coverage.
    struct Range {
        int low = 0;  ///< Of a component over black
        int high = 0; ///< Over white
    };

    void drawClipped(const Glyph& glyph, int x, int y, const RECT& clip) const;
    std::uint32_t blended(std::uint32_t under, int coverage) const;

    DeviceContext& context_;
    std::vector<RECT> clips_;
    std::uint32_t pixel_ = 0;
    std::array<std::array<Range, 3>, fullCoverage + 1> ranges_{};
};

} // namespace platform::driver
