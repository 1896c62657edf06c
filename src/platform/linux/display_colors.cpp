#include "platform/linux/display_colors.h"

#include "platform/linux/colors.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace platform::driver {

namespace {

constexpr int trueColorDepth = 32;
constexpr int paletteBits = 8;
constexpr int palettePixels = 64; ///< Of the tile that a mixture is painted with

/// The 20 colours that every palette display shows.
constexpr std::array<std::uint32_t, 20> systemColors = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0, 0xC0DCC0, 0xA6CAF0,
    0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};
constexpr std::size_t colorsAtEachEnd = systemColors.size() / 2;

/// The colours of a display of 4 bits, and of bitmaps of 4 bits when nothing else is said.
constexpr std::array<std::uint32_t, 16> basicColors = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0x808080,
    0xC0C0C0, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

std::vector<std::uint32_t> makeHalftones() {
    constexpr std::uint32_t redSteps = 8;
    constexpr std::uint32_t greenSteps = 8;
    constexpr std::uint32_t redStep = 0x20;
    constexpr std::uint32_t greenStep = 0x20;
    constexpr std::uint32_t blueStep = 0x40;
    std::vector<std::uint32_t> colors;
    for (std::uint32_t i = 0; i < 256; ++i) {
        if (i < colorsAtEachEnd) {
            colors.push_back(systemColors[i]);
        } else if (i >= 256 - colorsAtEachEnd) {
            colors.push_back(systemColors[i + systemColors.size() - 256]);
        } else {
            colors.push_back(i % redSteps * redStep << 16 | i / redSteps % greenSteps * greenStep << 8 |
                             i / (redSteps * greenSteps) * blueStep);
        }
    }
    return colors;
}

/// The colours that a context may draw with, and the entries of the display's palette that show them.
struct Drawable {
    std::vector<std::uint32_t> colors;
    std::vector<std::uint32_t> entries;
};

Drawable makeStaticDrawable() {
    Drawable result;
    for (std::uint32_t i = 0; i < systemColors.size(); ++i) {
        result.colors.push_back(systemColors[i]);
        result.entries.push_back(i < colorsAtEachEnd ? i : i + 256 - systemColors.size());
    }
    return result;
}

Drawable drawableOf(const Palette& palette) {
    Drawable result;
    const PixelFormat& display = *deviceFormat(paletteBits);
    for (const PALETTEENTRY& entry : palette.entries) {
        const std::uint32_t wanted = pixelOfColor(RGB(entry.peRed, entry.peGreen, entry.peBlue));
        const std::uint32_t value = display.valueOf(wanted);
        result.entries.push_back(value);
        result.colors.push_back(display.colorOf(value));
    }
    return result;
}

Drawable drawableOf(const DeviceContext& context) {
    static const Drawable statics = makeStaticDrawable();
    const Palette* palette = find<Palette>(context.palette);
    return palette && !palette->stock && !palette->entries.empty() ? drawableOf(*palette) : statics;
}

struct Components {
    int red, green, blue;
};

Components componentsOf(std::uint32_t color) {
    return {static_cast<int>(color >> 16 & 0xFF), static_cast<int>(color >> 8 & 0xFF),
            static_cast<int>(color & 0xFF)};
}

Components difference(const Components& a, const Components& b) {
    return {a.red - b.red, a.green - b.green, a.blue - b.blue};
}

int product(const Components& a, const Components& b) {
    return a.red * b.red + a.green * b.green + a.blue * b.blue;
}

/// How far a mixture is from a colour: by its mean, and a little by how much its two colours differ, since a
/// coarse pattern disturbs.
struct Trial {
    int share;
    int error;
};

Trial tryMixture(std::uint32_t first, std::uint32_t second, std::uint32_t wanted) {
    constexpr int coarseness = 24;
    const Components from = componentsOf(first);
    const Components step = difference(componentsOf(second), from);
    const Components aim = difference(componentsOf(wanted), from);
    const int length = product(step, step);
    const int share =
        length == 0 ? 0 : std::clamp(palettePixels * product(aim, step) / length, 0, palettePixels - 1);
    const Components rest =
        difference(aim, {step.red * share / palettePixels, step.green * share / palettePixels,
                         step.blue * share / palettePixels});
    return {share, product(rest, rest) + (share == 0 ? 0 : length / coarseness)};
}

Mixture findMixture(const Drawable& drawable, std::uint32_t color) {
    Mixture best;
    int least = std::numeric_limits<int>::max();
    for (std::size_t a = 0; a < drawable.colors.size(); ++a) {
        for (std::size_t b = 0; b < drawable.colors.size(); ++b) {
            const Trial trial = tryMixture(drawable.colors[a], drawable.colors[b], color);
            if (trial.error >= least) continue;
            least = trial.error;
            best = {drawable.entries[a], drawable.entries[b], trial.share};
        }
    }
    return best;
}

} // namespace

namespace {

constinit int knownDepth = 0; ///< 0 until somebody asks

int readDepth() {
    const char* text = std::getenv("TESELA_DEPTH");
    const int depth = text ? std::atoi(text) : trueColorDepth;
    for (const int known : {4, 8, 15, 16, 24})
        if (depth == known) return depth;
    return trueColorDepth;
}

} // namespace

int displayDepth() {
    if (!knownDepth) knownDepth = readDepth();
    return knownDepth;
}

void forgetDisplayDepth() {
    knownDepth = 0;
}

int displayBitsPerPixel() {
    const int depth = displayDepth();
    return depth == 15 ? 16 : depth;
}

const PixelFormat* deviceFormat(int bitsPerPixel) {
    if (bitsPerPixel == 1 || bitsPerPixel > 16) return nullptr;
    static const PixelFormat basic{{basicColors.begin(), basicColors.end()}};
    static const PixelFormat palette{halftoneColors()};
    static const PixelFormat sixBitGreen{0xF800, 0x07E0, 0x001F};
    switch (bitsPerPixel) {
    case 4:
        return &basic;
    case paletteBits:
        return &palette;
    default:
        return displayDepth() == 16 ? &sixBitGreen : &fiveBitFields();
    }
}

const std::vector<std::uint32_t>& staticColors() {
    static const std::vector<std::uint32_t> colors{systemColors.begin(), systemColors.end()};
    return colors;
}

const std::vector<std::uint32_t>& halftoneColors() {
    static const std::vector<std::uint32_t> colors = makeHalftones();
    return colors;
}

PALETTEENTRY paletteEntryOf(std::uint32_t color) {
    return {static_cast<BYTE>(color >> 16), static_cast<BYTE>(color >> 8), static_cast<BYTE>(color), 0};
}

bool showsDisplayPalette(const Surface& surface) {
    return surface.bitsPerPixel == paletteBits && surface.format == deviceFormat(paletteBits);
}

std::uint32_t paletteValueOf(const DeviceContext& context, std::uint32_t color) {
    const Drawable drawable = drawableOf(context);
    return drawable.entries[nearestOf(drawable.colors.data(), drawable.colors.size(), color)];
}

Mixture paletteMixtureOf(const DeviceContext& context, std::uint32_t color) {
    static std::uint32_t lastColor = ~0u;
    static HPALETTE lastPalette;
    static Mixture last;
    if (lastColor != color || lastPalette != context.palette) {
        lastColor = color;
        lastPalette = context.palette;
        last = findMixture(drawableOf(context), color);
    }
    return last;
}

COLORREF plainColor(const DeviceContext& context, COLORREF color) {
    constexpr COLORREF kindBits = 0xFF000000;
    constexpr COLORREF indexBits = 0x0000FFFF;
    if ((color & kindBits) != PALETTEINDEX(0)) return color & ~kindBits;
    const Palette* palette = find<Palette>(context.palette);
    if (!palette || palette->entries.empty()) return 0;
    const std::size_t index = color & indexBits;
    const PALETTEENTRY& entry = palette->entries[index < palette->entries.size() ? index : 0];
    return RGB(entry.peRed, entry.peGreen, entry.peBlue);
}

} // namespace platform::driver
