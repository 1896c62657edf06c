#include "platform/linux/screen_contexts.h"

#include "platform/linux/device_context.h"
#include "platform/linux/display.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/rows.h"

#include <algorithm>
#include <memory>

namespace platform::driver {

namespace {

struct ScreenPicture {
    PixelStore now;    ///< In the display's depth
    PixelStore before; ///< As words
    PixelStore words;  ///< Those of `now` where it has none itself
    bool isMade = false;
};

struct ScreenContext {
    HDC dc;
    std::shared_ptr<ScreenPicture> picture;
};

std::vector<ScreenContext>& screenContexts() {
    static std::vector<ScreenContext> contexts;
    return contexts;
}

/// Most programs want only a context to make others like it: the picture can wait.
void makePictureLater(const ScreenContext& context) {
    context.picture->isMade = false;
    makePixelsLater(context.dc, [picture = context.picture] {
        composeScreen(picture->now);
        copyAsWords(picture->now, picture->before);
        picture->isMade = true;
    });
}

/// What is to be seen of several contexts: the later one's where two have drawn on the same pixels.
struct Drawing {
    const Surface* words = nullptr;
    PixelStore several;
    Region region;

    void add(const Surface& more, const Region& part) {
        if (!words) {
            words = &more;
        } else {
            if (words != &several.surface) copyOnto(*words);
            const RECT all{0, 0, several.surface.width, several.surface.height};
            for (const RECT& each : part.rectangles()) {
                const RECT r = overlapOf(each, all);
                for (LONG y = r.top; y < r.bottom; ++y)
                    std::copy(row32(more, y) + r.left, row32(more, y) + r.right,
                              row32(several.surface, y) + r.left);
            }
        }
        region = region.united(part);
    }

private:
    void copyOnto(const Surface& first) {
        several.make(first.width, first.height, 32);
        for (LONG y = 0; y < first.height; ++y)
            std::copy_n(row32(first, y), first.width, row32(several.surface, y));
        words = &several.surface;
    }
};

} // namespace

HDC openScreenContext() {
    auto picture = std::make_shared<ScreenPicture>();
    const RECT frame = desktopWindow().frame;
    Surface& surface = picture->now.surface;
    surface.width = widthOf(frame);
    surface.height = heightOf(frame);
    surface.bitsPerPixel = displayBitsPerPixel();
    surface.format = deviceFormat(surface.bitsPerPixel);
    const HDC dc = createWindowDC(surface, {}, Region({0, 0, surface.width, surface.height}));
    if (!dc) return {};
    screenContexts().push_back({dc, std::move(picture)});
    makePictureLater(screenContexts().back());
    return dc;
}

bool closeScreenContext(HDC dc) {
    auto& open = screenContexts();
    const auto found = std::ranges::find(open, dc, &ScreenContext::dc);
    if (found == open.end()) return false;
    const auto picture = std::move(found->picture);
    open.erase(found);
    if (picture->isMade && displayStarted()) showScreenContexts();
    return releaseWindowDC(dc);
}

void showScreenContexts() {
    Drawing drawing;
    for (const ScreenContext& context : screenContexts()) {
        ScreenPicture& picture = *context.picture;
        if (!picture.isMade) continue;
        const Surface& words = plainSurface(picture.now, picture.words);
        const Region part = differenceOf(words, picture.before.surface);
        if (part.empty())
            makePictureLater(context);
        else
            drawing.add(words, part);
    }
    display().showInFront(drawing.words ? *drawing.words : Surface(), drawing.region);
}

} // namespace platform::driver
