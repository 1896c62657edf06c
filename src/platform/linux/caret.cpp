// The one caret. It is not part of a window's pixels: it is laid over them when they are shown, so that
// drawing under it never leaves traces.

#include "platform/linux/display.h"
#include "platform/linux/message_queue.h"
#include "platform/linux/rows.h"
#include "platform/linux/window_system.h"

namespace platform::driver {

namespace {

constexpr UINT BlinkTime = 500;

struct Caret {
    HWND window;
    SIZE size;
    POINT at;       ///< Client coordinates
    int hidden = 0; ///< HideCaret calls not undone
    bool grey = false;
    std::int64_t since = 0; ///< When its blinking began; it begins lit
};

Caret& caret() {
    static Caret one;
    return one;
}

void touch() {
    caret().since = milliseconds();
    Window* window = findWindow(caret().window);
    if (!window) return;
    markDrawn(*window, screenClient(*window));
}

bool isLit() {
    return (milliseconds() - caret().since) / BlinkTime % 2 == 0;
}

bool owns(HWND window) {
    return caret().window && (!window || window == caret().window);
}

} // namespace

void inkCaret(const Window& topLevel, PixelStore& picture, POINT corner) {
    const Caret& c = caret();
    Window* window = findWindow(c.window);
    if (!window || c.hidden > 0 || topLevelOf(window) != &topLevel || !isLit()) return;
    const POINT origin = clientOrigin(*window);
    const RECT box = offset({c.at.x, c.at.y, c.at.x + c.size.cx, c.at.y + c.size.cy}, origin.x, origin.y);
    const Region inked = visibleRegion(*window, false, false).intersected(Region(box));
    const RECT all{0, 0, picture.surface.width, picture.surface.height};
    constexpr Masks inverse{~0u, 0x00FFFFFFu};
    for (const RECT& r : inked.rectangles()) {
        const RECT part =
            overlapOf(offset(r, corner.x - topLevel.frame.left, corner.y - topLevel.frame.top), all);
        for (LONG y = part.top; y < part.bottom; ++y)
            for (LONG x = part.left; x < part.right; ++x) {
                if (c.grey && (x + y) % 2) continue;
                maskPixel(picture.surface, x, y, inverse);
            }
    }
}

std::int64_t nextBlink() {
    const Caret& c = caret();
    if (!c.window || c.hidden > 0) return -1;
    return BlinkTime - (milliseconds() - c.since) % BlinkTime;
}

void noteBlink() {
    static bool shownLit = false;
    const Caret& c = caret();
    Window* window = findWindow(c.window);
    const bool lit = window && c.hidden == 0 && isLit();
    if (lit == shownLit) return;
    shownLit = lit;
    if (!window) return;
    const POINT origin = clientOrigin(*window);
    markDrawn(*window, offset({c.at.x, c.at.y, c.at.x + c.size.cx, c.at.y + c.size.cy}, origin.x, origin.y));
}

void loseCaret(HWND window) {
    if (window && caret().window == window) caret() = {};
}

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL CreateCaret(HWND window, HBITMAP bitmap, int width, int height) {
    if (!findWindow(window)) return FALSE_;
    DestroyCaret();
    Caret made;
    made.window = window;
    made.size = {width ? width : GetSystemMetrics(SM_CXBORDER),
                 height ? height : GetSystemMetrics(SM_CYBORDER)};
    made.grey = bitmap == HBITMAP(1);
    made.hidden = 1;
    caret() = made;
    return TRUE_;
}

BOOL DestroyCaret() {
    if (!caret().window) return FALSE_;
    touch();
    caret() = {};
    return TRUE_;
}

BOOL ShowCaret(HWND window) {
    if (!owns(window)) return FALSE_;
    if (caret().hidden > 0) --caret().hidden;
    touch();
    return TRUE_;
}

BOOL HideCaret(HWND window) {
    if (!owns(window)) return FALSE_;
    ++caret().hidden;
    touch();
    return TRUE_;
}

BOOL SetCaretPos(int x, int y) {
    if (!caret().window) return FALSE_;
    caret().at = {x, y};
    touch();
    return TRUE_;
}

BOOL GetCaretPos(POINT* point) {
    if (!point) return FALSE_;
    *point = caret().at;
    return TRUE_;
}

UINT GetCaretBlinkTime() {
    return BlinkTime;
}

} // namespace platform
