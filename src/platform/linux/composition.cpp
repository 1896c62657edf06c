// Pictures of windows and of the whole desktop, as they look now.

#include "platform/linux/colors.h"
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

const Surface& plainSurface(const PixelStore& pixels, PixelStore& buffer) {
    if (isPlain32(pixels.surface)) return pixels.surface;
    buffer.make(pixels.surface.width, pixels.surface.height, wordBits);
    copyOnto(buffer.surface, pixels.surface, {});
    return buffer.surface;
}

void composeWindow(const Window& topLevel, PixelStore& picture) {
    const Surface& from = pixelsOf(topLevel).surface;
    picture.make(from.width, from.height, wordBits);
    copyOnto(picture.surface, from, {});
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
    if (displayBitsPerPixel() == wordBits) {
        composeDesktop(picture);
        return;
    }
    PixelStore words;
    composeDesktop(words);
    picture.make(words.surface.width, words.surface.height, displayBitsPerPixel());
    for (int y = 0; y < words.surface.height; ++y)
        writeRow(picture.surface, 0, y, words.surface.width, blackAndWhite, row32(words.surface, y));
}

} // namespace platform::driver
