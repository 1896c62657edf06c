// Where two pictures of the screen differ, which is what is shown in front of all windows.

#include "platform/linux/window_system.h"

#include <gtest/gtest.h>

using namespace platform;
using namespace platform::driver;

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

} // namespace

TEST(Composition, EqualPicturesDifferNowhere) {
    EXPECT_TRUE(differenceOf(picture().surface, picture().surface).empty());
}

TEST(Composition, PicturesDifferInTheirRuns) {
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

TEST(Composition, PicturesMayDifferEverywhere) {
    const PixelStore before = picture();
    PixelStore now = picture();
    std::ranges::fill(now.words(), 0xFFFFFFu);
    EXPECT_EQ(rectanglesOf(differenceOf(now.surface, before.surface)),
              (std::vector<RECT>{{0, 0, width, height}}));
}
