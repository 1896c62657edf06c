#include "platform/gdi.h"
#include "support/Canvas.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace platform;
using test::Canvas;

namespace {

constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF colorBits = 0xFFFFFF;

class Source {
public:
    explicit Source(unsigned seed) : generator_(seed) {}
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator_); }
    COLORREF color() { return static_cast<COLORREF>(number(0, static_cast<int>(colorBits))); }

private:
    std::mt19937 generator_;
};

void fillWithNoise(const Canvas& canvas, Source& source) {
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x)
            canvas.set(x, y, source.color());
}

/// The definition: bit number 4P + 2S + D of the operation's third byte.
COLORREF combined(DWORD rop, COLORREF pattern, COLORREF source, COLORREF target) {
    COLORREF result = 0;
    for (int bit = 0; bit < 24; ++bit) {
        const unsigned index = (pattern >> bit & 1) << 2 | (source >> bit & 1) << 1 | (target >> bit & 1);
        if (rop >> 16 >> index & 1) result |= 1u << bit;
    }
    return result;
}

std::vector<COLORREF> pixelsOf(const Canvas& canvas) {
    std::vector<COLORREF> pixels;
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x)
            pixels.push_back(canvas.at(x, y));
    return pixels;
}

} // namespace

TEST(BitBltTest, EveryOperationFollowsItsTruthTable) {
    Source source(11);
    const COLORREF pattern = RGB(0x3C, 0x55, 0xA7);
    for (DWORD code = 0; code < 256; ++code) {
        const DWORD rop = code << 16;
        const Canvas from(11, 5);
        const Canvas to(13, 6);
        fillWithNoise(from, source);
        fillWithNoise(to, source);
        const std::vector<COLORREF> before = pixelsOf(to);
        const HBRUSH brush = CreateSolidBrush(pattern);
        SelectObject(to.dc(), brush);
        ASSERT_TRUE(BitBlt(to.dc(), 2, 1, 9, 4, from.dc(), 1, 1, rop));
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 13; ++x) {
                const COLORREF old = before[static_cast<std::size_t>(y * 13 + x)];
                const bool inside = x >= 2 && x < 11 && y >= 1 && y < 5;
                const COLORREF expected = inside ? combined(rop, pattern, from.at(x - 1, y), old) : old;
                ASSERT_EQ(to.at(x, y), expected) << "operation " << code << " at " << x << ", " << y;
            }
        }
        SelectObject(to.dc(), GetStockObject(WHITE_BRUSH));
        DeleteObject(brush);
    }
}

TEST(BitBltTest, EveryOperationFollowsItsTruthTableOnOneBit) {
    Source source(12);
    for (DWORD code = 0; code < 256; ++code) {
        const Canvas from(30, 3, 1);
        const Canvas to(37, 4, 1);
        fillWithNoise(from, source);
        fillWithNoise(to, source);
        const std::vector<COLORREF> before = pixelsOf(to);
        const int x0 = source.number(0, 9);
        const int xSource = source.number(0, 9);
        SelectObject(to.dc(), GetStockObject(code % 2 == 0 ? WHITE_BRUSH : BLACK_BRUSH));
        const COLORREF pattern = code % 2 == 0 ? white : 0;
        ASSERT_TRUE(BitBlt(to.dc(), x0, 1, 19, 2, from.dc(), xSource, 0, code << 16));
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 37; ++x) {
                const COLORREF old = before[static_cast<std::size_t>(y * 37 + x)];
                const bool inside = x >= x0 && x < x0 + 19 && y >= 1 && y < 3;
                const COLORREF under = inside ? from.at(x - x0 + xSource, y - 1) : 0;
                ASSERT_EQ(to.at(x, y), inside ? combined(code << 16, pattern, under, old) : old)
                    << "operation " << code << " at " << x << ", " << y;
            }
        }
    }
}

TEST(PatBltTest, PatternsOnOneBitLieTheSameWhereverARectangleBegins) {
    Source source(14);
    const Canvas picture(13, 5, 1);
    fillWithNoise(picture, source);
    for (const HBRUSH brush : {CreatePatternBrush(picture.bitmap()), CreateHatchBrush(HS_DIAGCROSS, white),
                               CreateSolidBrush(RGB(90, 90, 90))}) {
        for (int round = 0; round < 60; ++round) {
            const Canvas canvas(61, 9, 1);
            fillWithNoise(canvas, source);
            const Canvas byPixel(61, 9, 1);
            BitBlt(byPixel.dc(), 0, 0, 61, 9, canvas.dc(), 0, 0, SRCCOPY);
            const DWORD rop = round % 2 == 0 ? PATCOPY : PATINVERT;
            const int left = source.number(0, 60), top = source.number(0, 8);
            const int width = source.number(1, 61 - left), height = source.number(1, 9 - top);
            for (const Canvas* target : {&canvas, &byPixel}) {
                SetBkMode(target->dc(), round % 3 == 0 ? TRANSPARENT : OPAQUE);
                SetBrushOrgEx(target->dc(), round - 20, round / 2, nullptr);
                SelectObject(target->dc(), brush);
            }
            PatBlt(canvas.dc(), left, top, width, height, rop);
            for (int y = top; y < top + height; ++y)
                for (int x = left; x < left + width; ++x)
                    PatBlt(byPixel.dc(), x, y, 1, 1, rop);
            ASSERT_EQ(pixelsOf(canvas), pixelsOf(byPixel)) << "round " << round;
        }
        DeleteObject(brush);
    }
}

TEST(BitBltTest, CopiesWithinOnePictureAsIfTheSourceWereApart) {
    Source source(13);
    for (int round = 0; round < 150; ++round) {
        const DWORD rop = round % 3 == 0 ? SRCINVERT : SRCCOPY;
        const Canvas canvas(24, 16);
        const Canvas apart(24, 16);
        fillWithNoise(canvas, source);
        BitBlt(apart.dc(), 0, 0, 24, 16, canvas.dc(), 0, 0, SRCCOPY);
        const Canvas expected(24, 16);
        BitBlt(expected.dc(), 0, 0, 24, 16, canvas.dc(), 0, 0, SRCCOPY);
        const int x = source.number(0, 12);
        const int y = source.number(0, 8);
        const int xSource = source.number(0, 12);
        const int ySource = source.number(0, 8);
        BitBlt(canvas.dc(), x, y, 12, 8, canvas.dc(), xSource, ySource, rop);
        BitBlt(expected.dc(), x, y, 12, 8, apart.dc(), xSource, ySource, rop);
        ASSERT_EQ(pixelsOf(canvas), pixelsOf(expected)) << "round " << round;
    }
}

TEST(BitBltTest, OneBitBecomesTextAndBackgroundColour) {
    const Canvas mask(2, 1, 1);
    mask.set(1, 0, white);
    const Canvas canvas(2, 1);
    SetTextColor(canvas.dc(), RGB(1, 2, 3));
    SetBkColor(canvas.dc(), RGB(4, 5, 6));
    BitBlt(canvas.dc(), 0, 0, 2, 1, mask.dc(), 0, 0, SRCCOPY);
    EXPECT_EQ(canvas.at(0, 0), RGB(1, 2, 3));
    EXPECT_EQ(canvas.at(1, 0), RGB(4, 5, 6));
}

TEST(BitBltTest, OnOneBitOnlyTheSourcesBackgroundColourIsWhite) {
    const Canvas canvas(3, 1);
    canvas.set(0, 0, RGB(200, 0, 0));
    canvas.set(1, 0, RGB(201, 0, 0));
    canvas.set(2, 0, white);
    SetBkColor(canvas.dc(), RGB(200, 0, 0));
    const Canvas mask(3, 1, 1);
    BitBlt(mask.dc(), 0, 0, 3, 1, canvas.dc(), 0, 0, SRCCOPY);
    EXPECT_EQ(mask.text(), "#..\n");
}

TEST(BitBltTest, WhatTheSourceDoesNotHaveStaysAsItIs) {
    const Canvas from(3, 3);
    PatBlt(from.dc(), 0, 0, 3, 3, WHITENESS);
    const Canvas to(6, 4);
    EXPECT_TRUE(BitBlt(to.dc(), 0, 0, 6, 4, from.dc(), -2, 1, SRCCOPY));
    EXPECT_EQ(to.text(), "..###.\n"
                         "..###.\n"
                         "......\n"
                         "......\n");
}

TEST(BitBltTest, OutlandishCoordinatesAreHarmless) {
    const Canvas canvas(8, 8);
    Source source(14);
    constexpr int edges[] = {std::numeric_limits<int>::min(), -100000, -1, 0, 1, 5, 100000,
                             std::numeric_limits<int>::max()};
    const auto any = [&] { return edges[source.number(0, 7)]; };
    for (int round = 0; round < 2000; ++round) {
        BitBlt(canvas.dc(), any(), any(), any(), any(), canvas.dc(), any(), any(), SRCINVERT);
        PatBlt(canvas.dc(), any(), any(), any(), any(), PATINVERT);
        Rectangle(canvas.dc(), any(), any(), any(), any());
        IntersectClipRect(canvas.dc(), any(), any(), any(), any());
        SelectClipRgn(canvas.dc(), HRGN());
    }
    PatBlt(canvas.dc(), 0, 0, 8, 8, WHITENESS);
    EXPECT_EQ(canvas.at(7, 7), white);
}

TEST(PatBltTest, ANegativeSizeCountsBackFromTheGivenPixel) {
    const Canvas canvas(6, 1);
    PatBlt(canvas.dc(), 4, 0, -3, 1, WHITENESS);
    EXPECT_EQ(canvas.text(), "..###.\n");
}

TEST(PatBltTest, RefusesOperationsWithASource) {
    const Canvas canvas(2, 2);
    EXPECT_FALSE(PatBlt(canvas.dc(), 0, 0, 2, 2, SRCCOPY));
}

TEST(StretchBltTest, GrowsEachPixelToABlock) {
    const Canvas from(2, 1);
    from.set(0, 0, white);
    const Canvas to(6, 2);
    SetStretchBltMode(to.dc(), COLORONCOLOR);
    EXPECT_TRUE(StretchBlt(to.dc(), 0, 0, 6, 2, from.dc(), 0, 0, 2, 1, SRCCOPY));
    EXPECT_EQ(to.text(), "###...\n"
                         "###...\n");
}

TEST(StretchBltTest, MirrorsWithANegativeSize) {
    const Canvas from(3, 1);
    from.set(0, 0, white);
    const Canvas to(3, 1);
    EXPECT_TRUE(StretchBlt(to.dc(), 2, 0, -3, 1, from.dc(), 0, 0, 3, 1, SRCCOPY));
    EXPECT_EQ(to.text(), "..#\n");
}

TEST(StretchBltTest, ShrinkingKeepsBlackOrWhiteByItsMode) {
    for (const int mode : {BLACKONWHITE, WHITEONBLACK}) {
        const Canvas from(6, 1);
        from.set(0, 0, white);
        from.set(2, 0, white);
        from.set(3, 0, white);
        const Canvas to(3, 1);
        SetStretchBltMode(to.dc(), mode);
        StretchBlt(to.dc(), 0, 0, 3, 1, from.dc(), 0, 0, 6, 1, SRCCOPY);
        EXPECT_EQ(to.text(), mode == BLACKONWHITE ? ".#.\n" : "##.\n");
    }
}

TEST(Gradients, RunAcrossOrDownWithoutTheirLastPixel) {
    TRIVERTEX corners[2];
    corners[0] = {1, 0, 0, 0, 0, 0};
    corners[1] = {5, 2, 0xFF00, 0x8000, 0, 0};
    const GRADIENT_RECT mesh{0, 1};
    const Canvas canvas(6, 2);
    EXPECT_TRUE(GradientFill(canvas.dc(), corners, 2, &mesh, 1, GRADIENT_FILL_RECT_H));
    EXPECT_EQ(canvas.at(1, 0), RGB(0, 0, 0));
    EXPECT_EQ(canvas.at(3, 1), RGB(127, 64, 0));
    EXPECT_EQ(canvas.at(5, 0), RGB(0, 0, 0));
    EXPECT_TRUE(GradientFill(canvas.dc(), corners, 2, &mesh, 1, GRADIENT_FILL_RECT_V));
    EXPECT_EQ(canvas.at(2, 1), RGB(127, 64, 0));
}

TEST(Gradients, RefuseVerticesThatAreNotThere) {
    const Canvas canvas(4, 4);
    const TRIVERTEX corners[2] = {};
    const GRADIENT_RECT mesh{0, 2};
    EXPECT_FALSE(GradientFill(canvas.dc(), corners, 2, &mesh, 1, GRADIENT_FILL_RECT_H));
    EXPECT_FALSE(GradientFill(canvas.dc(), nullptr, 2, &mesh, 1, GRADIENT_FILL_RECT_H));
}

TEST(Icons, TheirMaskLetsTheGroundThrough) {
    const Canvas mask(2, 2, 1);
    const Canvas picture(2, 2);
    mask.set(0, 0, white);
    picture.set(1, 0, RGB(9, 8, 7));
    ICONINFO info;
    info.hbmMask = mask.bitmap();
    info.hbmColor = picture.bitmap();
    const HICON icon = CreateIconIndirect(&info);
    ASSERT_TRUE(icon);
    const Canvas canvas(4, 4);
    PatBlt(canvas.dc(), 0, 0, 4, 4, WHITENESS);
    EXPECT_TRUE(DrawIconEx(canvas.dc(), 1, 1, icon, 0, 0, 0, HBRUSH(), DI_NORMAL));
    EXPECT_EQ(canvas.at(1, 1), white);
    EXPECT_EQ(canvas.at(2, 1), RGB(9, 8, 7));
    EXPECT_EQ(canvas.at(1, 2), RGB(0, 0, 0));
    EXPECT_EQ(canvas.at(3, 3), white);
    EXPECT_TRUE(DestroyIcon(icon));
    EXPECT_FALSE(DestroyIcon(icon));
    EXPECT_FALSE(DrawIconEx(canvas.dc(), 0, 0, icon, 0, 0, 0, HBRUSH(), DI_NORMAL));
}

TEST(Icons, LookTheSameEachTimeAtChangingSizes) {
    const Canvas mask(3, 4, 1); // the AND mask above, the XOR mask below it
    mask.set(0, 0, white);
    mask.set(2, 1, white);
    mask.set(1, 2, white);
    mask.set(2, 3, white);
    ICONINFO info;
    info.hbmMask = mask.bitmap();
    const HICON icon = CreateIconIndirect(&info);
    const auto drawn = [&](int width, int height) {
        const Canvas canvas(6, 4);
        PatBlt(canvas.dc(), 0, 0, 6, 1, WHITENESS);
        EXPECT_TRUE(DrawIconEx(canvas.dc(), 0, 0, icon, width, height, 0, HBRUSH(), DI_NORMAL));
        return canvas.text();
    };
    const std::string small = drawn(3, 2);
    EXPECT_EQ(small, "##.###\n"
                     "..#...\n"
                     "......\n"
                     "......\n");
    const std::string large = drawn(6, 4);
    EXPECT_EQ(large, "####..\n"
                     "..##..\n"
                     "....##\n"
                     "....##\n");
    EXPECT_EQ(drawn(3, 2), small);
    EXPECT_EQ(drawn(6, 4), large);
    EXPECT_TRUE(DestroyIcon(icon));
}

TEST(Icons, FillTheirPlaceAsItIsMapped) {
    const Canvas mask(2, 4, 1); // the AND mask above, the XOR mask below it
    mask.set(0, 2, white);
    mask.set(1, 3, white);
    ICONINFO info;
    info.hbmMask = mask.bitmap();
    const HICON icon = CreateIconIndirect(&info);
    const auto drawn = [&](int across, int down) {
        const Canvas canvas(6, 2);
        SetMapMode(canvas.dc(), MM_ANISOTROPIC);
        SetViewportExtEx(canvas.dc(), across, down, nullptr);
        SetViewportOrgEx(canvas.dc(), across < 0 ? 5 : 0, down < 0 ? 1 : 0, nullptr);
        EXPECT_TRUE(DrawIconEx(canvas.dc(), 0, 0, icon, 2, 2, 0, HBRUSH(), DI_NORMAL));
        SetMapMode(canvas.dc(), MM_TEXT);
        SetViewportOrgEx(canvas.dc(), 0, 0, nullptr);
        return canvas.text();
    };
    EXPECT_EQ(drawn(2, 1), "##....\n"
                           "..##..\n");
    EXPECT_EQ(drawn(-3, 1), "...###\n"
                            "###...\n");
    EXPECT_EQ(drawn(3, -1), "...###\n"
                            "###...\n");
    EXPECT_TRUE(DestroyIcon(icon));
}

TEST(Icons, GoByTheirMaskOnFewColors) {
    const Canvas mask(2, 1, 1);
    mask.set(1, 0, white);
    void* pixels = nullptr;
    BITMAPINFO format;
    format.bmiHeader.biWidth = 2;
    format.bmiHeader.biHeight = 1;
    format.bmiHeader.biBitCount = 32;
    ICONINFO info;
    info.hbmMask = mask.bitmap();
    info.hbmColor = CreateDIBSection(HDC(), &format, DIB_RGB_COLORS, &pixels, HANDLE(), 0);
    static_cast<DWORD*>(pixels)[0] = 0x10FFFFFF; // hardly to be seen where it is blended
    const HICON icon = CreateIconIndirect(&info);
    const auto drawn = [&](int bitsPerPixel) {
        const Canvas canvas(3, 1, bitsPerPixel);
        canvas.set(1, 0, white);
        EXPECT_TRUE(DrawIconEx(canvas.dc(), 0, 0, icon, 2, 1, 0, HBRUSH(), DI_NORMAL));
        return canvas.text();
    };
    EXPECT_EQ(drawn(32), "+#.\n");
    EXPECT_EQ(drawn(8), "##.\n");
    EXPECT_TRUE(DestroyIcon(icon));
    DeleteObject(info.hbmColor);
}

TEST(Copies, FindTheColorsOfBitsExactlyAndOthersByTheirCube) {
    constexpr COLORREF blackish = RGB(128, 128, 120); // nearer to black, the middle of its cube to white
    const Canvas picture(1, 1);
    picture.set(0, 0, blackish);
    const Canvas to(2, 1, 8);
    BitBlt(to.dc(), 0, 0, 1, 1, picture.dc(), 0, 0, SRCCOPY);
    const Canvas bits(1, 1, 1);
    SetTextColor(to.dc(), blackish);
    BitBlt(to.dc(), 1, 0, 1, 1, bits.dc(), 0, 0, SRCCOPY);
    EXPECT_EQ(to.text(), "#.\n");
}

TEST(Icons, GiveBackTheirBitmapsAsCopies) {
    const Canvas mask(4, 6, 1);
    const Canvas picture(4, 6);
    ICONINFO info;
    info.fIcon = 0;
    info.xHotspot = 1;
    info.yHotspot = 2;
    info.hbmMask = mask.bitmap();
    info.hbmColor = picture.bitmap();
    const HICON icon = CreateIconIndirect(&info);
    ICONINFO found;
    ASSERT_TRUE(GetIconInfo(icon, &found));
    EXPECT_EQ(found.fIcon, 0);
    EXPECT_EQ(found.xHotspot, 1u);
    EXPECT_EQ(found.yHotspot, 2u);
    BITMAP bitmap;
    ASSERT_TRUE(GetObjectBitmap(found.hbmColor, &bitmap));
    EXPECT_EQ(bitmap.bmWidth, 4);
    EXPECT_EQ(bitmap.bmHeight, 6);
    EXPECT_TRUE(DeleteObject(found.hbmMask));
    EXPECT_TRUE(DeleteObject(found.hbmColor));
    EXPECT_TRUE(DestroyIcon(icon));
}
