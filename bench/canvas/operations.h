#pragma once
// What the sheets of all libraries have in common: the names of the operations, where each drawing goes, and
// the things that are drawn. Each library's sheet is 1280 by 800 pixels of 32 bits.

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace bench {

inline constexpr int sheetWidth = 1280;
inline constexpr int sheetHeight = 800;
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

/// Where the next of many equal drawings goes, and its colour. The places are as far apart as on a control
/// that covers a quarter of the sheet.
struct Place {
    int number = 0;

    int x() const { return number * 37 % 400; }
    int y() const { return number * 53 % 280; }
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
    int calls; ///< In a round, which then takes about a millisecond
};

inline constexpr Measurement measurements[] = {
    {"fillbox16", 10000},        {"fillbox256", 200},     {"fillbox_full", 10},
    {"drawbox", 4000},           {"hline100", 10000},     {"diagonal100", 4000},
    {"gradient_v_100x20", 4000}, {"bitblt_100x20", 5000}, {"bitblt_full", 10},
    {"alphablend_100x20", 4000}, {"text12", 2000},        {"extent12", 5000},
    {"triangle7", 4000},         {"icon16", 5000},        {"ellipse40", 1000},
    {"transparentblt_32", 1000}, {"html_paragraph", 20},  {"button_cell", 200},
};

/// One operation of one library, by its name: draws it as often as it is told.
using Operations = std::map<std::string, std::function<void(int calls)>>;

/// A sheet's member, repeated at many places.
template <auto Draw, class Sheet>
std::function<void(int)> repeated(Sheet& sheet) {
    return [&sheet](int calls) {
        for (Place place; place.number < calls; ++place.number)
            (sheet.*Draw)(place);
    };
}

} // namespace bench
