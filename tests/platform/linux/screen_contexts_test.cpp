// Contexts of the screen, and where two pictures of it differ, which is what is shown in front of all
// windows.

#include "platform/WindowProbe.h"
#include "platform/clock.h"
#include "platform/gdi.h"
#include "platform/linux/window_system.h"

#include <gtest/gtest.h>

using namespace platform;
using namespace platform::driver;
using namespace probe;

namespace {

constexpr int width = 6, height = 4;

PixelStore picture() {
    PixelStore store;
    store.make(width, height, 32);
    return store;
}

std::vector<RECT> rectanglesOf(const Region& region) {
    return {region.rectangles().begin(), region.rectangles().end()};
}

class OpenScreenContexts : public WindowTest {
protected:
    OpenScreenContexts() : main(open("main", {.style = WS_POPUP | WS_VISIBLE})) { desk.pump(); }
    ~OpenScreenContexts() override { ReleaseDC({}, screen); }

    /// Draws a pixel of the window.
    void mark(COLORREF color) const {
        const HDC dc = GetDC(main);
        SetPixel(dc, 10, 10, color);
        ReleaseDC(main, dc);
    }
    /// What the screen shows there.
    COLORREF seen() const {
        RECT frame{};
        GetWindowRect(main, &frame);
        return GetPixel(screen, frame.left + 10, frame.top + 10);
    }

    HWND main;
    HDC screen = GetDC({});
};

} // namespace

TEST_F(OpenScreenContexts, BeginWithWhatIsShownAtTheirFirstUse) {
    mark(0x112233);
    EXPECT_EQ(seen(), 0x112233u);
    mark(0x445566);
    EXPECT_EQ(seen(), 0x112233u);
}

TEST_F(OpenScreenContexts, BeginAnewWhenNothingWasDrawnOnThem) {
    mark(0x112233);
    EXPECT_EQ(seen(), 0x112233u);
    mark(0x445566);
    Sleep(1);
    EXPECT_EQ(seen(), 0x445566u);
}

TEST_F(OpenScreenContexts, KeepWhatWasDrawnOnThem) {
    SetPixel(screen, 0, 0, 0xFF);
    mark(0x445566);
    Sleep(1);
    EXPECT_EQ(GetPixel(screen, 0, 0), 0xFFu);
    EXPECT_NE(seen(), 0x445566u);
}

TEST(PicturesOfTheScreen, EqualPicturesDifferNowhere) {
    EXPECT_TRUE(differenceOf(picture().surface, picture().surface).empty());
}

TEST(PicturesOfTheScreen, PicturesDifferInTheirRuns) {
    const PixelStore before = picture();
    PixelStore now = picture();
    const auto mark = [&](int x, int y) { now.words()[static_cast<std::size_t>(y * width + x)] = 1; };
    mark(0, 0);
    mark(1, 0);
    mark(5, 0);
    mark(2, 2);
    mark(2, 3);
    mark(5, 3);
    const std::vector<RECT> runs{{0, 0, 2, 1}, {5, 0, 6, 1}, {2, 2, 3, 3}, {2, 3, 3, 4}, {5, 3, 6, 4}};
    EXPECT_EQ(rectanglesOf(differenceOf(now.surface, before.surface)), runs);
    EXPECT_EQ(rectanglesOf(differenceOf(before.surface, now.surface)), runs);
}

TEST(PicturesOfTheScreen, PicturesMayDifferEverywhere) {
    const PixelStore before = picture();
    PixelStore now = picture();
    std::ranges::fill(now.words(), 0xFFFFFFu);
    EXPECT_EQ(rectanglesOf(differenceOf(now.surface, before.surface)),
              (std::vector<RECT>{{0, 0, width, height}}));
}
