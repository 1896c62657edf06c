#include "platform/linux/brush_pixels.h"

#include "platform/linux/blit.h"
#include "platform/linux/colors.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/dither.h"
#include "platform/linux/rows.h"

namespace platform::driver {

namespace {

constexpr int hatchSize = 8;

/// The lines of HS_HORIZONTAL to HS_DIAGCROSS, most significant bit to the left.
constexpr std::uint8_t hatches[6][hatchSize] = {
    {0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00, 0x00}, {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08},
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01}, {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},
    {0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08}, {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81},
};

constexpr int ditherSize = 8;

/// From 0 to 255, as the eye weighs the three components.
int brightness(COLORREF color) {
    const int red = static_cast<int>(color & 0xFF);
    const int green = static_cast<int>(color >> 8 & 0xFF);
    const int blue = static_cast<int>(color >> 16 & 0xFF);
    return (30 * red + 59 * green + 11 * blue) / 100;
}

BrushPixels hatchPixels(const DeviceContext& context, const Brush& brush) {
    const std::uint32_t line = pixelOf(context, brush.data.lbColor);
    const std::uint32_t back = backPixelOf(context);
    const bool transparent = context.state.backMode == TRANSPARENT;
    BrushPixels result{hatchSize, hatchSize, {}, {}};
    for (const std::uint8_t& row : hatches[brush.data.lbHatch]) {
        for (int x = 0; x < hatchSize; ++x) {
            const bool set = bitAt(&row, x);
            result.pixels.push_back(set ? line : back);
            if (transparent) result.opaque.push_back(set);
        }
    }
    return result;
}

/// A pixel of a coloured pattern on 1 bit without colours of its own: dithered by its place in the pattern,
/// in finer steps than a plain colour.
std::optional<std::uint32_t> ditheredBit(const DeviceContext& context, COLORREF color, int x, int y) {
    if (context.surface->bitsPerPixel != 1 || !isDithered(context, color)) return {};
    constexpr int white = 256;
    return brightness(color) + ditherRank(x, y) >= white ? ~0u : 0u;
}

BrushPixels patternPixels(const DeviceContext& context, const Bitmap& pattern) {
    const Surface& from = pattern.surface;
    const Surface& to = *context.surface;
    BrushPixels result{from.width, from.height, {}, {}};
    result.pixels.resize(static_cast<std::size_t>(from.width) * static_cast<std::size_t>(from.height));
    const TwoColors colors = {pixelOfColor(context.state.textColor), pixelOfColor(context.state.backColor)};
    const bool asIs = haveSameFormat(from, to);
    ValueFinder finder(context);
    for (int y = 0; y < from.height; ++y) {
        std::uint32_t* row = result.pixels.data() + static_cast<std::ptrdiff_t>(y) * from.width;
        if (asIs) {
            readValues(from, 0, y, from.width, row);
            continue;
        }
        readRow(from, 0, y, from.width, colors, row);
        for (int x = 0; x < from.width && !isPlain32(to); ++x)
            row[x] = ditheredBit(context, colorOfPixel32(row[x] & 0x00FFFFFF), x, y)
                         .value_or(finder.valueOf(row[x] & 0x00FFFFFF));
    }
    return result;
}

/// The order of a tile's pixel, 0 to 63, in which it turns to the other colour.
int ditherOrderAt(int x, int y) {
    return ditherSize * ditherSize - 1 - (ditherRank(x, y) >> 2);
}

/// A colour that is not among those of a display with palette, as a pattern of two that are.
BrushPixels mixturePixels(const DeviceContext& context, COLORREF color) {
    const Mixture mixture = paletteMixtureOf(context, pixelOfColor(plainColor(context, color)));
    BrushPixels result{ditherSize, ditherSize, {}, {}};
    for (int y = 0; y < ditherSize; ++y)
        for (int x = 0; x < ditherSize; ++x)
            result.pixels.push_back(ditherOrderAt(x, y) < mixture.share ? mixture.second : mixture.first);
    return result;
}

} // namespace

bool isDithered(const DeviceContext& context, COLORREF color) {
    const Surface& surface = *context.surface;
    if (isPlain32(surface)) return false;
    if (showsDisplayPalette(surface))
        return colorOfPixel(context, nearestPixelOf(context, color)) != plainColor(context, color);
    const COLORREF plain = color & 0x00FFFFFF;
    return surface.bitsPerPixel == 1 && !surface.format && context.selectedBitmap() && plain != 0 &&
           plain != 0x00FFFFFF;
}

bool isDitheredWhite(COLORREF color, int x, int y) {
    constexpr int levelsPerStep = 4;
    return brightness(color) >= ditherOrderAt(x, y) * levelsPerStep + levelsPerStep / 2;
}

BrushPixels ditherPixels(const DeviceContext& context, COLORREF color) {
    if (showsDisplayPalette(*context.surface)) return mixturePixels(context, color);
    BrushPixels result{ditherSize, ditherSize, {}, {}};
    for (int y = 0; y < ditherSize; ++y)
        for (int x = 0; x < ditherSize; ++x)
            result.pixels.push_back(isDitheredWhite(color, x, y) ? ~0u : 0u);
    return result;
}

BrushPixels pixelsOf(const DeviceContext& context, const Brush& brush) {
    return brush.data.lbStyle == BS_HATCHED ? hatchPixels(context, brush)
                                            : patternPixels(context, *brush.pattern);
}

} // namespace platform::driver
