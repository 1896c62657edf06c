#pragma once
// Where pixels live: a block of memory that a bitmap or a top-level window owns, and the region of it that
// a drawing may touch. The raster draws on surfaces; the window tree hands out device contexts over them.

#include "platform/linux/pixel_format.h"
#include "platform/types.h"

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace platform::driver {

/// Whether a point lies in a rectangle, whose right and bottom edges are outside.
constexpr bool contains(const RECT& r, POINT p) {
    return p.x >= r.left && p.x < r.right && p.y >= r.top && p.y < r.bottom;
}

/// A set of pixels as disjoint rectangles in y-x banded order.
class Region {
public:
    Region() = default;
    explicit Region(const RECT& r);
    /// The region of rectangles that may overlap, as long as those with the same top have the same bottom and
    /// no other lies between the two.
    static Region ofRows(std::vector<RECT> rows);
    /// The region of any rectangles.
    static Region ofAll(std::vector<RECT> rects);

    std::span<const RECT> rectangles() const {
        if (several_.empty()) return {&only_, empty() ? 0u : 1u};
        return several_;
    }
    RECT bounds() const;
    bool empty() const { return several_.empty() && only_ == RECT{}; }
    bool contains(POINT p) const {
        for (const RECT& r : rectangles())
            if (driver::contains(r, p)) return true;
        return false;
    }
    void translate(LONG dx, LONG dy);
    /// Leaves only what lies in the rectangle.
    void cutTo(const RECT& r);

    Region united(const Region& other) const;
    Region intersected(const Region& other) const;
    Region subtracted(const Region& other) const;

    friend bool operator==(const Region&, const Region&) = default;

private:
    explicit Region(std::vector<RECT> rects);

    // Most regions are of one rectangle: those take no memory of their own.
    RECT only_;                 ///< All zeros in an empty region and in one of several rectangles
    std::vector<RECT> several_; ///< Empty, or two and more
};

/// Pixels of 1 or 4 bits (the highest bits of a byte first), 8, 16, 24 (blue first) or 32 bits (0xAARRGGBB
/// words unless a format says otherwise), top row first.
struct Surface {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 32;
    int stride = 0; ///< Bytes from one row to the next, a multiple of 4
    std::uint8_t* bits = nullptr;
    /// What the values mean: always there for 4, 8 and 16 bits. A 1-bit surface without one takes the colours
    /// of the context that it meets. Must outlive the surface.
    const PixelFormat* format = nullptr;
};

/// A device context for a window. `origin` is where the window's (0, 0) lies on the surface; `visible` is
/// in surface coordinates and bounds all drawing. The surface must outlive the context. The returned handle
/// is counted as a device context until releaseWindowDC; a saved font, brush or pen selection dies with it.
HDC createWindowDC(Surface& surface, POINT origin, Region visible);

/// Lets the surface of such a context stay without pixels until something is drawn on it or read from it:
/// then `make` fills in the surface.
void makePixelsLater(HDC dc, std::function<void()> make);

/// Ends a context made by createWindowDC. False for any other handle.
bool releaseWindowDC(HDC dc);

} // namespace platform::driver
