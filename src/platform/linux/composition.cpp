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
    const RECT& frame = desktopWindow().frame;
    PixelStore words;
    words.make(widthOf(frame), heightOf(frame), wordBits);
    if (!display().readScreen(words.surface)) composeDesktop(words);
    if (displayBitsPerPixel() == wordBits) {
        picture = std::move(words);
        return;
    }
    picture.make(words.surface.width, words.surface.height, displayBitsPerPixel());
    for (int y = 0; y < words.surface.height; ++y)
        writeRow(picture.surface, 0, y, words.surface.width, blackAndWhite, row32(words.surface, y));
}

Region differenceOf(const Surface& words, const Surface& others) {
    std::vector<RECT> runs;
    for (LONG y = 0; y < words.height; ++y) {
        const std::uint32_t* const row = row32(words, y);
        const std::uint32_t* const end = row + words.width;
        const std::uint32_t* const other = row32(others, y);
        for (const std::uint32_t* at = row; at != end;) {
            const auto [first, same] = std::mismatch(at, end, other + (at - row));
            at = first;
            while (at != end && *at != other[at - row])
                ++at;
            if (at != first)
                runs.push_back({static_cast<LONG>(first - row), y, static_cast<LONG>(at - row), y + 1});
        }
    }
    return Region::ofAll(std::move(runs));
}

} // namespace platform::driver
