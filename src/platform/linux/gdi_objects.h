#pragma once
// What the handles of bitmaps, brushes, pens, fonts, regions and icons stand for.

#include "platform/gdi_types.h"
#include "platform/linux/handle_table.h"
#include "platform/linux/surface.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <vector>

namespace platform::driver {

class FontFace;

/// What 0 and 1 look like where a bitmap of 1 bit has no colours of its own.
using TwoColors = std::array<std::uint32_t, 2>;

struct Bitmap : Object {
    static constexpr HandleKind objectKind = HandleKind::Bitmap;
    Bitmap() : Object(objectKind) {}

    Surface surface;
    bool isSection = false;              ///< The program holds a pointer to the pixels
    bool bottomUp = false;               ///< Order of rows in memory; the surface's stride is negative then
    std::unique_ptr<PixelFormat> format; ///< Colours of its own; the surface knows them too
    std::uint32_t owner = 0;             ///< The context that it is selected into
    std::unique_ptr<std::uint8_t, void (*)(void*)> memory{nullptr, std::free};
};

/// A bitmap cleared to 0, or null when the size is not positive or beyond memory. With 8 bits or less it has
/// the display's colours, but those of 1 bit none.
std::unique_ptr<Bitmap> makeBitmap(int width, int height, int bitsPerPixel, bool bottomUp = false);

/// The same with the depth and format of a surface. The format must outlive the bitmap.
std::unique_ptr<Bitmap> makeBitmapLike(const Surface& surface, int width, int height);

/// Gives a bitmap a format of its own.
void setFormat(Bitmap& bitmap, const PixelFormat& format);

/// The same size, depth, colours and pixels, top row first; null when memory does not suffice.
std::unique_ptr<Bitmap> copyOf(const Bitmap& source);

struct Brush : Object, Pooled<Brush> {
    static constexpr HandleKind objectKind = HandleKind::Brush;
    Brush() : Object(objectKind) {}

    LOGBRUSH data;
    std::unique_ptr<Bitmap> pattern; ///< Own copy for BS_PATTERN
};

struct Pen : Object, Pooled<Pen> {
    static constexpr HandleKind objectKind = HandleKind::Pen;
    Pen() : Object(objectKind) {}

    LOGPEN data; ///< For a pen of ExtCreatePen the style without its caps, joints and kind
    bool extended = false;
    DWORD form = 0; ///< PS_GEOMETRIC or PS_COSMETIC, cap and joint
    LOGBRUSH brush;
    std::vector<DWORD> dashes; ///< Of PS_USERSTYLE

    bool isGeometric() const { return (form & PS_TYPE_MASK) == PS_GEOMETRIC; }
};

struct Font : Object, Pooled<Font> {
    static constexpr HandleKind objectKind = HandleKind::Font;
    Font() : Object(objectKind) {}

    LOGFONTW data;
    std::shared_ptr<FontFace> face; ///< Found at the first use
};

struct RegionObject : Object {
    static constexpr HandleKind objectKind = HandleKind::Region;
    RegionObject() : Object(objectKind) {}

    Region region;
};

struct Palette : Object {
    static constexpr HandleKind objectKind = HandleKind::Palette;
    Palette() : Object(objectKind) {}

    std::vector<PALETTEENTRY> entries;
    bool realised = false; ///< Since its entries last changed
};

/// An icon as it is drawn on plain words at one size.
struct IconWords {
    std::unique_ptr<Bitmap> mask; ///< What stays of the ground; null when there is alpha
    /// What is mixed with that; with alpha, multiplied by it, and below it what each pixel leaves of the
    /// ground.
    std::unique_ptr<Bitmap> image;
};

struct Icon : Object {
    static constexpr HandleKind objectKind = HandleKind::Icon;
    Icon() : Object(objectKind) {}

    bool isIcon = true;
    DWORD xHotspot = 0;
    DWORD yHotspot = 0;
    std::unique_ptr<Bitmap> mask;  ///< AND mask; with the XOR mask below it when there are no colours
    std::unique_ptr<Bitmap> color; ///< May be null
    std::unique_ptr<Bitmap> blend; ///< Colours multiplied by their alpha, when there is any
    IconWords words;               ///< Of the size at which it was last drawn on plain words
};

/// The stock's number of the bitmap that a new memory context holds, after those that programs may ask for.
inline constexpr int defaultBitmapIndex = DC_PEN + 1;

/// The handle of an object of the platform's stock, by its number; 0 for an unknown one.
std::uint32_t stockObject(int index);

template <class Kind>
Handle<Kind> stock(int index) {
    return Handle<Kind>(stockObject(index));
}

} // namespace platform::driver
