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
        if (words)
            putOver(more, part);
        else
            words = &more;
        region = region.united(part);
    }

private:
    void putOver(const Surface& more, const Region& part) {
        if (words != &several.surface) {
            several.make(words->width, words->height, words->bitsPerPixel);
            copyPart({0, 0, words->width, words->height}, *words);
            words = &several.surface;
        }
        for (const RECT& r : part.rectangles())
            copyPart(overlapOf(r, {0, 0, several.surface.width, several.surface.height}), more);
    }
    void copyPart(const RECT& r, const Surface& from) {
        for (LONG y = r.top; y < r.bottom; ++y)
            copyRow(from, r.left, y, several.surface, r.left, y, widthOf(r));
    }
};

/// A context of which nothing is to be seen begins anew: its next use finds the screen as it looks then.
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

void showDrawn() {
    showScreenContexts();
    display().present();
}

} // namespace platform::driver
