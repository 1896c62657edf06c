#pragma once
// What the sheets of all libraries have in common: the names of the operations, where each drawing goes, and
// the things that are drawn. Each library draws on sheets of 32 bits a pixel.

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace bench {

/// What is drawn on: its pixels, and how far apart the places are at which the same thing is drawn again.
struct Sheet {
    int width;
    int height;
    int spreadX;
    int spreadY;
};

/// A field or a button: each control paints into a bitmap of its own size, which the processor keeps close
/// by.
inline constexpr Sheet controlSheet{160, 48, 60, 8};
/// A whole window, of which a quarter is drawn on: here the way to the memory counts as much as the drawing.
inline constexpr Sheet windowSheet{1280, 800, 400, 280};

inline constexpr int smallBox = 16;
inline constexpr int largeBox = 256;
inline constexpr int frameWidth = 60, frameHeight = 20;
inline constexpr int lineLength = 100, lineRise = 70; ///< The last pixel's distance; all ends are drawn
inline constexpr int bandWidth = 100, bandHeight = 20;
inline constexpr int triangleLines = 7;
inline constexpr int ellipseSide = 40;
inline constexpr int iconSide = 16;
inline constexpr int spriteSide = 32;
inline constexpr int cellWidth = 100, cellHeight = 24;
inline constexpr int paragraphWidth = 240;
inline constexpr int fontSize = 13; ///< Pixels of the em square

inline constexpr const char16_t* family = u"Liberation Sans";
inline constexpr const char16_t* text = u"Importe neto";
inline constexpr const char16_t* cellText = u"Aceptar";
inline constexpr const char16_t* paragraph =
    u"Un párrafo con <B>negrita</B>, <I>cursiva</I> y <FONT COLOR='#C00000'>color</FONT> que ocupa varias "
    u"líneas, porque no cabe en el ancho de la celda en que se escribe.";

/// Where the next of many equal drawings goes, and its colour.
struct Place {
    const Sheet& sheet;
    int number = 0;

    int x() const { return number * 37 % sheet.spreadX; }
    int y() const { return number * 53 % sheet.spreadY; }
    int red() const { return number * 7 & 0xFF; }
    static constexpr int green = 0x40, blue = 0x80;
};

/// Pixels of the icon, 0xAARRGGBB with the colour not multiplied by its alpha: nothing at the top left, whole
/// at the bottom right.
constexpr std::uint32_t iconPixel(int x, int y) {
    return static_cast<std::uint32_t>(y * iconSide + x) << 24 | 0x336699;
}

/// Whether the sprite, a disc, has a pixel there; around it is nothing.
constexpr bool isSprite(int x, int y) {
    const int dx = 2 * x + 1 - spriteSide, dy = 2 * y + 1 - spriteSide;
    return dx * dx + dy * dy <= spriteSide * spriteSide;
}
inline constexpr int spriteRed = 0xCC, spriteGreen = 0x33, spriteBlue = 0x11;

/// An operation that is measured.
struct Measurement {
    const char* name;
    int calls;                ///< In a round, which then takes about a millisecond
    bool isOfControls = true; ///< Fits on a control's sheet, and is measured there too
};

inline constexpr Measurement measurements[] = {
    {"fillbox16", 10000},
    {"fillbox256", 200, false},
    {"fillbox_full", 10, false},
    {"drawbox", 4000},
    {"hline100", 10000},
    {"diagonal100", 4000, false},
    {"gradient_v_100x20", 4000},
    {"bitblt_100x20", 5000},
    {"bitblt_full", 10, false},
    {"alphablend_100x20", 4000},
    {"text12", 2000},
    {"extent12", 5000},
    {"triangle7", 4000},
    {"icon16", 5000},
    {"ellipse40", 1000},
    {"transparentblt_32", 1000},
    {"html_paragraph", 20, false},
    {"button_cell", 200},
};

/// One operation of one library, by its name: draws it as often as it is told.
using Operations = std::map<std::string, std::function<void(int calls)>>;

/// A library's member, repeated at many places of its sheet.
template <auto Draw, class Library>
std::function<void(int)> repeated(Library& library) {
    return [&library](int calls) {
        for (Place place{library.sheet()}; place.number < calls; ++place.number)
            (library.*Draw)(place);
    };
}

/// The name of the figure of an operation on that sheet.
inline std::string nameOn(const Sheet& sheet, const Measurement& measurement) {
    const bool isOnWindowToo = &sheet == &windowSheet && measurement.isOfControls;
    return isOnWindowToo ? std::string(measurement.name) + "/window" : measurement.name;
}

} // namespace bench
