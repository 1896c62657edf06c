// The frames of the opening animation, one by one: time stands still while each is on the screen.

#include "drawing/CanvasTest.h"
#include "platform/clock.h"
#include "platform/linux/headless.h"
#include "platform/windows.h"

#include <array>
#include <vector>

using namespace tesela;
using platform::RECT;

namespace {

constexpr int width = 120, height = 100;

/// A corner of what a context shows.
std::vector<platform::COLORREF> look(platform::HDC dc) {
    std::vector<platform::COLORREF> seen;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            seen.push_back(platform::GetPixel(dc, x, y));
    return seen;
}

/// Whether just the pixels of a frame of inclusive corners differ, each turned to its opposite.
void expectFrame(const std::vector<platform::COLORREF>& before, const std::vector<platform::COLORREF>& after,
                 const RECT& frame) {
    constexpr platform::COLORREF white = 0xFFFFFF;
    int wrong = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool inside = x >= frame.left && x <= frame.right && y >= frame.top && y <= frame.bottom;
            const bool isEdge =
                inside && (x == frame.left || x == frame.right || y == frame.top || y == frame.bottom);
            const auto place = static_cast<std::size_t>(y * width + x);
            if (after[place] != (isEdge ? before[place] ^ white : before[place])) ++wrong;
        }
    EXPECT_EQ(0, wrong);
}

class OpeningFrame : public support::Started {
protected:
    ~OpeningFrame() override { platform::headless::setSleepHandler({}); }

    /// Opens a frame; what the screen shows before, and to the canvas at each sleep.
    void open(const RECT& from, const RECT& to) {
        const platform::HDC screen = platform::GetDC({});
        shown = {look(screen)};
        platform::ReleaseDC({}, screen);
        const auto canvas = automation::make<cCanvas>();
        platform::headless::setSleepHandler([&] { shown.push_back(look(canvas->GetPaintDC())); });
        canvas->ExplodingRect(from.left, from.top, from.right, from.bottom, to.left, to.top, to.right,
                              to.bottom);
    }

    /// Nine frames come, one after the other, and go in the same order.
    void expectFrames(const std::array<RECT, 9>& frames) const {
        ASSERT_EQ(1 + 2 * frames.size(), shown.size());
        for (std::size_t i = 0; i < 2 * frames.size(); ++i) {
            SCOPED_TRACE("at sleep " + std::to_string(i));
            expectFrame(shown[i], shown[i + 1], frames[i % frames.size()]);
        }
        EXPECT_TRUE(shown.front() == shown.back()) << "something is left on the screen";
    }

    std::vector<std::vector<platform::COLORREF>> shown;
};

} // namespace

TEST_F(OpeningFrame, GrowsInTenSteps) {
    open({5, 5, 10, 10}, {20, 20, 90, 80});
    // Halves go to the even neighbour: 6.5 and 9.5, 12.5 and 15.5.
    expectFrames({{{6, 6, 18, 17},
                   {8, 8, 26, 24},
                   {10, 10, 34, 31},
                   {11, 11, 42, 38},
                   {12, 12, 50, 45},
                   {14, 14, 58, 52},
                   {16, 16, 66, 59},
                   {17, 17, 74, 66},
                   {18, 18, 82, 73}}});
}

TEST_F(OpeningFrame, Shrinks) {
    open({0, 0, 100, 90}, {50, 40, 60, 50});
    expectFrames({{{5, 4, 96, 86},
                   {10, 8, 92, 82},
                   {15, 12, 88, 78},
                   {20, 16, 84, 74},
                   {25, 20, 80, 70},
                   {30, 24, 76, 66},
                   {35, 28, 72, 62},
                   {40, 32, 68, 58},
                   {45, 36, 64, 54}}});
}

TEST_F(OpeningFrame, TravelsInItsSize) {
    open({10, 10, 20, 30}, {60, 60, 70, 80});
    expectFrames({{{15, 15, 25, 35},
                   {20, 20, 30, 40},
                   {25, 25, 35, 45},
                   {30, 30, 40, 50},
                   {35, 35, 45, 55},
                   {40, 40, 50, 60},
                   {45, 45, 55, 65},
                   {50, 50, 60, 70},
                   {55, 55, 65, 75}}});
}

TEST_F(OpeningFrame, ComesFromBeyondTheScreen) {
    open({-100, -100, -50, -50}, {100, 80, 110, 90});
    expectFrames({{{-80, -82, -34, -36},
                   {-60, -64, -18, -22},
                   {-40, -46, -2, -8},
                   {-20, -28, 14, 6},
                   {0, -10, 30, 20},
                   {20, 8, 46, 34},
                   {40, 26, 62, 48},
                   {60, 44, 78, 62},
                   {80, 62, 94, 76}}});
}

TEST_F(OpeningFrame, LetsTenMillisecondsPassWithEachFrame) {
    const platform::DWORD start = platform::GetTickCount();
    std::vector<platform::DWORD> times;
    platform::headless::setSleepHandler([&] { times.push_back(platform::GetTickCount() - start); });
    automation::make<cCanvas>()->ExplodingRect(5, 5, 10, 10, 20, 20, 90, 80);
    ASSERT_EQ(18u, times.size());
    for (std::size_t i = 0; i < times.size(); ++i)
        EXPECT_EQ(10 * (i + 1), times[i]);
}
