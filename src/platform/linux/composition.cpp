// Pictures of windows and of the whole desktop, as they look now.

#include "platform/linux/colors.h"
#include "platform/linux/display.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/rows.h"
#include "platform/linux/window_system.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr int wordBits = 32;
constexpr std::uint32_t colorBits = 0xFFFFFF;

/// Copies rows as colours.
void copyOnto(const Surface& picture, const Surface& from, POINT at) {
    const RECT all{0, 0, picture.width, picture.height};
    const RECT part = overlapOf({at.x, at.y, at.x + from.width, at.y + from.height}, all);
    for (LONG y = part.top; y < part.bottom; ++y)
        readRow(from, part.left - at.x, y - at.y, widthOf(part), blackAndWhite,
                row32(picture, y) + part.left);
}

} // namespace

PixelStore& pixelsOf(const Window& topLevel) {
    topLevel.pixels->needAll();
    return *topLevel.pixels;
}

void copyAsWords(const PixelStore& pixels, PixelStore& words) {
    words.make(pixels.surface.width, pixels.surface.height, wordBits);
    copyOnto(words.surface, pixels.surface, {});
}

const Surface& plainSurface(const PixelStore& pixels, PixelStore& buffer) {
    if (isPlain32(pixels.surface)) return pixels.surface;
    copyAsWords(pixels, buffer);
    return buffer.surface;
}

void composeWindow(const Window& topLevel, PixelStore& picture) {
    copyAsWords(pixelsOf(topLevel), picture);
    inkCaret(topLevel, picture, {});
}

void composeDesktop(PixelStore& picture) {
    const Window& desktop = desktopWindow();
    picture.make(widthOf(desktop.frame), heightOf(desktop.frame), wordBits);
    std::ranges::fill(picture.words(), pixelOfColor(GetSysColor(COLOR_DESKTOP)));
    const auto& windows = desktop.children;
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        const Window& w = **window;
        if (!w.is(WS_VISIBLE) || w.is(WS_MINIMIZE) || !w.pixels) continue;
        const POINT corner{w.frame.left, w.frame.top};
        copyOnto(picture.surface, pixelsOf(w).surface, corner);
        inkCaret(w, picture, corner);
    }
}

void composeScreen(PixelStore& picture) {
    PixelStore words;
    words.make(picture.surface.width, picture.surface.height, wordBits);
    if (!display().readScreen(words.surface)) {
        PixelStore ours;
        composeDesktop(ours);
        copyOnto(words.surface, ours.surface, {});
    }
    if (displayBitsPerPixel() == wordBits) {
        picture = std::move(words);
        return;
    }
    picture.make(words.surface.width, words.surface.height, displayBitsPerPixel());
    for (int y = 0; y < words.surface.height; ++y)
        writeRow(picture.surface, 0, y, words.surface.width, blackAndWhite, row32(words.surface, y));
}

Region differenceOf(const Surface& words, const Surface& others) {
    const auto isSame = [](std::uint32_t a, std::uint32_t b) { return ((a ^ b) & colorBits) == 0; };
    std::vector<RECT> runs;
    for (LONG y = 0; y < words.height; ++y) {
        const std::uint32_t *row = row32(words, y), *other = row32(others, y);
        if (std::equal(row, row + words.width, other)) continue; // mostly, and quicker told than by colours
        for (LONG x = 0; x < words.width;) {
            while (x < words.width && isSame(row[x], other[x]))
                ++x;
            const LONG first = x;
            while (x < words.width && !isSame(row[x], other[x]))
                ++x;
            if (first < x) runs.push_back({first, y, x, y + 1});
        }
    }
    return Region::ofRows(std::move(runs));
}

} // namespace platform::driver
