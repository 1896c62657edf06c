// Pictures of windows and of the whole desktop, as they look now.

#include "platform/linux/window_system.h"

#include <algorithm>

namespace platform::driver {

namespace {

void prepare(PixelStore& picture, int width, int height, std::uint32_t fill) {
    picture.words.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill);
    picture.surface = {width, height, 32, width * 4, reinterpret_cast<std::uint8_t*>(picture.words.data())};
}

void copyOnto(PixelStore& picture, const PixelStore& from, POINT at) {
    const RECT all{0, 0, picture.surface.width, picture.surface.height};
    const RECT part = overlapOf({at.x, at.y, at.x + from.surface.width, at.y + from.surface.height}, all);
    for (LONG y = part.top; y < part.bottom; ++y) {
        const auto source = from.words.begin() + static_cast<std::ptrdiff_t>(y - at.y) * from.surface.width +
                            (part.left - at.x);
        std::copy_n(source, widthOf(part),
                    picture.words.begin() + static_cast<std::ptrdiff_t>(y) * picture.surface.width +
                        part.left);
    }
}

std::uint32_t pixelOf(COLORREF color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

} // namespace

void composeWindow(const Window& topLevel, PixelStore& picture) {
    picture.words = topLevel.pixels->words;
    picture.surface = topLevel.pixels->surface;
    picture.surface.bits = reinterpret_cast<std::uint8_t*>(picture.words.data());
    inkCaret(topLevel, picture, {});
}

void composeDesktop(PixelStore& picture) {
    const Window& desktop = desktopWindow();
    prepare(picture, widthOf(desktop.frame), heightOf(desktop.frame), pixelOf(GetSysColor(COLOR_DESKTOP)));
    const auto& windows = desktop.children;
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        const Window& w = **window;
        if (!w.is(WS_VISIBLE) || w.is(WS_MINIMIZE) || !w.pixels) continue;
        const POINT corner{w.frame.left, w.frame.top};
        copyOnto(picture, *w.pixels, corner);
        inkCaret(w, picture, corner);
    }
}

} // namespace platform::driver
