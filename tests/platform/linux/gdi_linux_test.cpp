// What the platform promises of drawing and Wine does not keep: it reads through null pointers, succeeds on
// dead contexts, smears overlapping copies of one bit, drops turned pictures,
// widens paths by pens that paint nothing, and takes the widths of others for pixels.

#include "platform/gdi.h"
#include "support/Canvas.h"
#include "support/Selected.h"

#include <algorithm>
#include <array>
#include <limits>
#include <random>
#include <span>
#include <vector>

using namespace platform;
using test::Canvas;
using test::Selected;

namespace {

const HDC deadContext{0x7FFF0123u};

TEST(LinuxGdi, MissingPointsAreRefused) {
    const Canvas canvas(4, 4);
    EXPECT_FALSE(Polyline(canvas.dc(), nullptr, 2));
}

TEST(LinuxGdi, ADeadContextIsNotFilled) {
    const RECT rect{0, 0, 2, 2};
    EXPECT_FALSE(FillRect(deadContext, &rect, HBRUSH(GetStockObject(WHITE_BRUSH).value)));
    EXPECT_FALSE(fillSolidRect(deadContext, rect, RGB(255, 255, 255)));
    EXPECT_FALSE(fillSolidRect(HDC(), rect, RGB(255, 255, 255)));
}

TEST(LinuxGdi, OverlappingCopiesOfOneBitAreAsIfTheSourceWereApart) {
    constexpr int width = 24;
    constexpr int height = 16;
    std::mt19937 random(13);
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    for (int round = 0; round < 150; ++round) {
        const Canvas canvas(width, height, 1);
        const Canvas before(width, height, 1);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const COLORREF color = below(2) == 0 ? RGB(0, 0, 0) : RGB(255, 255, 255);
                canvas.set(x, y, color);
                before.set(x, y, color);
            }
        }
        const int x0 = below(13), y0 = below(9), xSource = below(13), ySource = below(9);
        BitBlt(canvas.dc(), x0, y0, 12, 8, canvas.dc(), xSource, ySource, SRCCOPY);
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 12; ++x)
                ASSERT_EQ(canvas.at(x0 + x, y0 + y), before.at(xSource + x, ySource + y))
                    << "round " << round;
        }
    }
}

TEST(LinuxGdi, PlgBltIsHarmlessBeyondAllMeasure) {
    constexpr int far = std::numeric_limits<int>::max();
    const Canvas from(2, 2);
    const Canvas to(4, 4);
    const POINT corners[] = {{0, 0}, {4, 0}, {0, 4}};
    for (const int start : {-far, 0, far})
        EXPECT_TRUE(PlgBlt(to.dc(), corners, from.dc(), start, start, far, far, HBITMAP(), start, start));
    const POINT apart[] = {{-far, -far}, {far, -far}, {-far, far}};
    EXPECT_TRUE(PlgBlt(to.dc(), apart, from.dc(), 0, 0, 2, 2, HBITMAP(), 0, 0));
}

/// A section of 32 bits whose words a test sees.
class Words {
public:
    explicit Words(const std::vector<std::uint32_t>& words) : dc_(CreateCompatibleDC(HDC())) {
        BITMAPINFO info;
        info.bmiHeader.biWidth = static_cast<LONG>(words.size());
        info.bmiHeader.biHeight = -1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, HANDLE(), 0);
        previous_ = SelectObject(dc_, bitmap_);
        words_ = {static_cast<std::uint32_t*>(bits), words.size()};
        std::copy(words.begin(), words.end(), words_.begin());
    }
    ~Words() {
        SelectObject(dc_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Words(const Words&) = delete;
    Words& operator=(const Words&) = delete;

    HDC dc() const { return dc_; }
    std::vector<std::uint32_t> all() const { return {words_.begin(), words_.end()}; }

private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
    std::span<std::uint32_t> words_;
};

TEST(LinuxGdi, ColoursAreCopiedAtOnceAsThroughMasks) {
    const std::vector<std::uint32_t> ground{0xFF112233, 0x80445566, 0x00778899, 0xFFFFFFFF, 0x01000000};
    const std::vector<std::uint32_t> picture{0x00FF00FF, 0xFFFF00FF, 0x00ABCDEF, 0x7F123456, 0x00FF00FF};
    const int count = static_cast<int>(ground.size());
    const COLORREF leftOut = RGB(255, 0, 255);
    const Words from(picture);

    const Words throughMasks(ground);
    const Words copy(picture);
    const Canvas mask(count, 1, 1);
    SetBkColor(copy.dc(), leftOut);
    BitBlt(mask.dc(), 0, 0, count, 1, copy.dc(), 0, 0, SRCCOPY);
    BitBlt(throughMasks.dc(), 0, 0, count, 1, mask.dc(), 0, 0, SRCAND);
    BitBlt(mask.dc(), 0, 0, count, 1, mask.dc(), 0, 0, NOTSRCCOPY);
    SetBkColor(copy.dc(), RGB(255, 255, 255));
    BitBlt(copy.dc(), 0, 0, count, 1, mask.dc(), 0, 0, SRCAND);
    BitBlt(throughMasks.dc(), 0, 0, count, 1, copy.dc(), 0, 0, SRCPAINT);

    const Words atOnce(ground);
    ASSERT_TRUE(copyColorsAtOnce(atOnce.dc(), 0, 0, count, 1, from.dc(), leftOut));
    EXPECT_EQ(atOnce.all(), throughMasks.all());
    EXPECT_FALSE(copyColorsAtOnce(atOnce.dc(), 1, 0, count, 1, from.dc(), leftOut)) << "cut off";
    EXPECT_EQ(atOnce.all(), throughMasks.all());
}

TEST(LinuxGdi, StretchingIsHarmlessBeyondAllMeasure) {
    constexpr int far = std::numeric_limits<int>::max();
    const Canvas from(2, 2);
    const Canvas to(4, 4);
    for (const int mode : {BLACKONWHITE, WHITEONBLACK, COLORONCOLOR, HALFTONE}) {
        SetStretchBltMode(to.dc(), mode);
        for (const int start : {-far, 0, far})
            EXPECT_TRUE(StretchBlt(to.dc(), 0, 0, 4, 4, from.dc(), start, start, far, far, SRCCOPY)) << mode;
        EXPECT_TRUE(StretchBlt(to.dc(), 4, 4, -4, -4, from.dc(), 0, 0, far, far, SRCCOPY)) << mode;
        EXPECT_TRUE(StretchBlt(to.dc(), -far, -far, far, far, from.dc(), 0, 0, 2, 2, SRCCOPY)) << mode;
    }
}

TEST(LinuxGdi, ShrinkingInAModeThatJoinsTakesAllOfTheSource) {
    const Canvas from(4, 1);
    for (int x = 0; x < 4; ++x)
        from.set(x, 0, x == 3 ? RGB(0, 0, 0) : RGB(255, 255, 255));
    const Canvas to(2, 1);
    SetStretchBltMode(to.dc(), BLACKONWHITE);
    // Beyond the source's edge lies what its edge is.
    StretchBlt(to.dc(), 0, 0, 2, 1, from.dc(), 0, 0, 4, 1, SRCCOPY);
    EXPECT_EQ(to.text(), "#.\n");
    StretchBlt(to.dc(), 0, 0, 2, 1, from.dc(), -2, 0, 4, 1, SRCCOPY);
    EXPECT_EQ(to.text(), "##\n");
    StretchBlt(to.dc(), 0, 0, 2, 1, from.dc(), 0, 0, 100000, 1, SRCCOPY);
    EXPECT_EQ(to.text(), "..\n");
}

TEST(LinuxGdi, PlgBltTurnsAPicture) {
    const Canvas from(2, 2);
    from.set(0, 0, RGB(255, 255, 255));
    const Canvas to(2, 2);
    // A quarter turn: the picture's left top comes to the right top.
    const POINT corners[] = {{2, 0}, {2, 2}, {0, 0}};
    EXPECT_TRUE(PlgBlt(to.dc(), corners, from.dc(), 0, 0, 2, 2, HBITMAP(), 0, 0));
    EXPECT_EQ(to.text(), ".#\n"
                         "..\n");
}

TEST(LinuxGdi, APathIsNotWidenedByAPenThatPaintsNothing) {
    const Canvas canvas(8, 8);
    SelectObject(canvas.dc(), GetStockObject(NULL_PEN));
    BeginPath(canvas.dc());
    MoveToEx(canvas.dc(), 1, 1, nullptr);
    LineTo(canvas.dc(), 5, 1);
    EndPath(canvas.dc());
    EXPECT_FALSE(WidenPath(canvas.dc()));
    EXPECT_EQ(GetPath(canvas.dc(), nullptr, nullptr, 0), 2) << "it stays as it is";
}

/// The lines that a canvas shows of a gradient between two colours, which begins above or left of it.
void expectLines(const Canvas& canvas, int length, int start, std::array<WORD, 3> from,
                 std::array<WORD, 3> to, bool across) {
    constexpr int size = 300;
    TRIVERTEX corners[2];
    corners[0] = {start, start, from[0], from[1], from[2], 0};
    corners[1] = {start + length, start + length, to[0], to[1], to[2], 0};
    (across ? corners[1].y : corners[1].x) = size;
    const GRADIENT_RECT mesh{0, 1};
    GradientFill(canvas.dc(), corners, 2, &mesh, 1, across ? GRADIENT_FILL_RECT_H : GRADIENT_FILL_RECT_V);
    for (int at = 0; at < std::min(size, start + length); ++at) {
        const std::int64_t line = at - start;
        const auto component = [&](std::size_t i) {
            return static_cast<int>((from[i] * (length - line) + to[i] * line) / length >> 8);
        };
        ASSERT_EQ(canvas.at(across ? at : 0, across ? 0 : at), RGB(component(0), component(1), component(2)))
            << "line " << line << " of " << length;
    }
}

TEST(LinuxGdi, EachLineOfAGradientIsTheQuotientOfItsPlace) {
    constexpr int size = 300;
    for (const bool across : {false, true}) {
        const Canvas canvas(across ? size : 1, across ? 1 : size);
        for (const int length : {1, 2, 3, 7, 20, 100, 255, 256, 257, 300, 1000, 65535, 65536, 65537, 1000000})
            for (const int start : {0, -1, 255 - length, -length / 2}) {
                if (start > 0) continue;
                ASSERT_NO_FATAL_FAILURE(
                    expectLines(canvas, length, start, {0, 0xFFFF, 0x8001}, {0xFFFF, 0, 0x8000}, across));
                ASSERT_NO_FATAL_FAILURE(expectLines(canvas, length, start, {0xFF00, 0x1234, 0},
                                                    {0x3300, 0x1234, 0x0100}, across));
            }
    }
}

TEST(LinuxGdi, PathsAreWidenedByThePenInLogicalUnits) {
    const Canvas canvas(60, 60);
    const LOGBRUSH ink{BS_SOLID, RGB(255, 255, 255), 0};
    const Selected pen(canvas.dc(),
                       ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER, 4, &ink, 0, nullptr));
    SetMapMode(canvas.dc(), MM_ANISOTROPIC);
    SetViewportExtEx(canvas.dc(), 2, 2, nullptr);
    BeginPath(canvas.dc());
    MoveToEx(canvas.dc(), 4, 10, nullptr);
    LineTo(canvas.dc(), 16, 10);
    EndPath(canvas.dc());
    ASSERT_TRUE(WidenPath(canvas.dc()));
    const HRGN region = PathToRegion(canvas.dc());
    RECT box;
    EXPECT_EQ(GetRgnBox(region, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{8, 16, 32, 24}));
    DeleteObject(region);
}

} // namespace
