#include "platform/gdi.h"
#include "support/Canvas.h"

#include <gtest/gtest.h>

using namespace platform;
using test::Canvas;

namespace {

BLENDFUNCTION constantAlpha(int alpha) {
    return {AC_SRC_OVER, 0, static_cast<BYTE>(alpha), 0};
}

int rounded(int source, int target, int alpha) {
    return (source * alpha + target * (255 - alpha) + 127) / 255;
}

} // namespace

TEST(AlphaBlendTest, MixesEveryPairOfValuesToTheNearest) {
    const Canvas from(256, 1);
    const Canvas to(256, 1);
    for (const int alpha : {0, 1, 77, 128, 254, 255}) {
        for (const int under : {0, 3, 100, 254, 255}) {
            for (int x = 0; x < 256; ++x) {
                from.set(x, 0, RGB(static_cast<unsigned>(x), 0, 255u - static_cast<unsigned>(x)));
                to.set(x, 0, RGB(static_cast<unsigned>(under), 9, static_cast<unsigned>(under)));
            }
            ASSERT_TRUE(AlphaBlend(to.dc(), 0, 0, 256, 1, from.dc(), 0, 0, 256, 1, constantAlpha(alpha)));
            for (int x = 0; x < 256; ++x) {
                const auto red = static_cast<unsigned>(rounded(x, under, alpha));
                const auto green = static_cast<unsigned>(rounded(0, 9, alpha));
                const auto blue = static_cast<unsigned>(rounded(255 - x, under, alpha));
                ASSERT_EQ(to.at(x, 0), RGB(red, green, blue)) << "alpha " << alpha << " at " << x;
            }
        }
    }
}

TEST(AlphaBlendTest, TakesEachPixelsOwnAlpha) {
    BITMAPINFO info;
    info.bmiHeader.biWidth = 3;
    info.bmiHeader.biHeight = -1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HDC from = CreateCompatibleDC(HDC());
    const HBITMAP bitmap = CreateDIBSection(from, &info, DIB_RGB_COLORS, &bits, HANDLE(), 0);
    const HGDIOBJ previous = SelectObject(from, bitmap);
    static_cast<std::uint32_t*>(bits)[0] = 0x00000000;
    static_cast<std::uint32_t*>(bits)[1] = 0x80800000;
    static_cast<std::uint32_t*>(bits)[2] = 0xFF00FF00;
    const Canvas to(3, 1);
    PatBlt(to.dc(), 0, 0, 3, 1, WHITENESS);
    EXPECT_TRUE(AlphaBlend(to.dc(), 0, 0, 3, 1, from, 0, 0, 3, 1, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA}));
    EXPECT_EQ(to.at(0, 0), RGB(255, 255, 255));
    EXPECT_EQ(to.at(1, 0), RGB(255, 127, 127));
    EXPECT_EQ(to.at(2, 0), RGB(0, 255, 0));
    SelectObject(from, previous);
    DeleteObject(bitmap);
    DeleteDC(from);
}

TEST(AlphaBlendTest, StretchesTheSource) {
    const Canvas from(2, 1);
    from.set(1, 0, RGB(255, 255, 255));
    const Canvas to(4, 2);
    EXPECT_TRUE(AlphaBlend(to.dc(), 0, 0, 4, 2, from.dc(), 0, 0, 2, 1, constantAlpha(255)));
    EXPECT_EQ(to.text(), "..##\n"
                         "..##\n");
}

TEST(AlphaBlendTest, RefusesMirroredOverlappingAndMissingSources) {
    const Canvas from(8, 8);
    const Canvas to(8, 8);
    const BLENDFUNCTION half = constantAlpha(128);
    EXPECT_FALSE(AlphaBlend(to.dc(), 0, 0, -4, 4, from.dc(), 0, 0, 4, 4, half));
    EXPECT_FALSE(AlphaBlend(to.dc(), 0, 0, 4, 4, from.dc(), 4, 0, -4, 4, half));
    EXPECT_FALSE(AlphaBlend(to.dc(), 0, 0, 4, 4, from.dc(), 6, 0, 4, 4, half));
    EXPECT_FALSE(AlphaBlend(to.dc(), 0, 0, 4, 4, from.dc(), -1, 0, 4, 4, half));
    EXPECT_FALSE(AlphaBlend(to.dc(), 0, 0, 4, 4, to.dc(), 2, 2, 4, 4, half));
    EXPECT_TRUE(AlphaBlend(to.dc(), 0, 0, 4, 4, to.dc(), 4, 4, 4, 4, half));
    EXPECT_TRUE(AlphaBlend(to.dc(), 0, 0, 0, 4, from.dc(), 0, 0, 4, 4, half));
}

TEST(TransparentBltTest, LeavesOutOneColour) {
    const Canvas from(3, 1);
    from.set(0, 0, RGB(255, 0, 255));
    from.set(1, 0, RGB(255, 255, 255));
    from.set(2, 0, RGB(255, 0, 255));
    const Canvas to(3, 1);
    EXPECT_TRUE(TransparentBlt(to.dc(), 0, 0, 3, 1, from.dc(), 0, 0, 3, 1, RGB(255, 0, 255)));
    EXPECT_EQ(to.text(), ".#.\n");
    EXPECT_FALSE(TransparentBlt(to.dc(), 0, 0, -3, 1, from.dc(), 0, 0, 3, 1, 0));
}

TEST(TransparentBltTest, OntoItsOwnPictureIsAsIfTheSourceWereApart) {
    const Canvas canvas(6, 2);
    canvas.set(0, 0, RGB(255, 255, 255));
    canvas.set(2, 1, RGB(255, 255, 255));
    EXPECT_TRUE(TransparentBlt(canvas.dc(), 1, 0, 4, 2, canvas.dc(), 0, 0, 4, 2, RGB(0, 0, 0)));
    EXPECT_EQ(canvas.text(), "##....\n"
                             "..##..\n");
}

TEST(MaskBltTest, CopiesWhereTheMaskIsSetAndDoesSomethingElseElsewhere) {
    const Canvas from(4, 1);
    PatBlt(from.dc(), 0, 0, 4, 1, WHITENESS);
    const Canvas to(4, 1);
    const WORD row = 0x0060; // bytes in memory: 0110 0000
    const HBITMAP mask = CreateBitmap(4, 1, 1, 1, &row);
    EXPECT_TRUE(MaskBlt(to.dc(), 0, 0, 4, 1, from.dc(), 0, 0, mask, 0, 0, MAKEROP4(SRCCOPY, 0x00AA0029)));
    EXPECT_EQ(to.text(), ".##.\n");
    EXPECT_TRUE(MaskBlt(to.dc(), 0, 0, 4, 1, from.dc(), 0, 0, mask, 0, 0, MAKEROP4(BLACKNESS, SRCCOPY)));
    EXPECT_EQ(to.text(), "#..#\n");
    EXPECT_TRUE(MaskBlt(to.dc(), 0, 0, 4, 1, from.dc(), 0, 0, HBITMAP(), 0, 0, MAKEROP4(SRCCOPY, 0)));
    EXPECT_EQ(to.text(), "####\n");
    DeleteObject(mask);
}

TEST(Gradients, OfTrianglesRunBetweenThreeColours) {
    TRIVERTEX corners[3];
    corners[0] = {0, 0, 0xFF00, 0, 0, 0};
    corners[1] = {20, 0, 0, 0xFF00, 0, 0};
    corners[2] = {0, 20, 0, 0, 0xFF00, 0};
    const GRADIENT_TRIANGLE mesh{0, 1, 2};
    const Canvas canvas(20, 20);
    EXPECT_TRUE(GradientFill(canvas.dc(), corners, 3, &mesh, 1, GRADIENT_FILL_TRIANGLE));
    const COLORREF first = canvas.at(1, 1);
    EXPECT_GT(first & 0xFF, 200u);
    EXPECT_GT(canvas.at(16, 1) >> 8 & 0xFF, 190u);
    EXPECT_GT(canvas.at(1, 16) >> 16, 190u);
    EXPECT_EQ(canvas.at(15, 15), RGB(0, 0, 0));
}

TEST(Gradients, OfTrianglesTakeThePixelsWhoseCornersLieOnOrRightOfTheEdges) {
    TRIVERTEX corners[3];
    corners[0] = {1, 0, 0xFF00, 0, 0, 0};
    corners[1] = {0, 3, 0xFF00, 0, 0, 0};
    corners[2] = {6, 3, 0xFF00, 0, 0, 0};
    const GRADIENT_TRIANGLE mesh{0, 1, 2};
    const Canvas canvas(8, 4);
    EXPECT_TRUE(GradientFill(canvas.dc(), corners, 3, &mesh, 1, GRADIENT_FILL_TRIANGLE));
    const int expected[4][2] = {{0, 0}, {1, 3}, {1, 5}, {0, 0}}; // from, to
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x)
            EXPECT_EQ(canvas.at(x, y) != 0, x >= expected[y][0] && x < expected[y][1]) << x << ", " << y;
}

TEST(Gradients, BetweenCornersOnASlantingLineFail) {
    TRIVERTEX corners[3];
    corners[1] = {5, 5, 0, 0, 0, 0};
    corners[2] = {10, 10, 0, 0, 0, 0};
    const GRADIENT_TRIANGLE slanting{0, 1, 2};
    const Canvas canvas(20, 20);
    EXPECT_FALSE(GradientFill(canvas.dc(), corners, 3, &slanting, 1, GRADIENT_FILL_TRIANGLE));
    corners[1].y = corners[2].y = 0;
    EXPECT_TRUE(GradientFill(canvas.dc(), corners, 3, &slanting, 1, GRADIENT_FILL_TRIANGLE));
}

namespace {

/// How many of 16 by 16 pixels of a depth have another colour than the first one, after a gradient from a
/// grey to the same grey.
int mixedPixels(WORD bits, WORD grey) {
    BITMAPINFO info;
    info.bmiHeader.biWidth = 16;
    info.bmiHeader.biHeight = -16;
    info.bmiHeader.biBitCount = bits;
    void* pixels = nullptr;
    const HDC dc = CreateCompatibleDC(HDC());
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &pixels, HANDLE(), 0);
    const HGDIOBJ previous = SelectObject(dc, bitmap);
    TRIVERTEX corners[2];
    corners[0] = {0, 0, grey, grey, grey, 0};
    corners[1] = {16, 16, grey, grey, grey, 0};
    const GRADIENT_RECT mesh{0, 1};
    EXPECT_TRUE(GradientFill(dc, corners, 2, &mesh, 1, GRADIENT_FILL_RECT_H));
    int count = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            count += GetPixel(dc, x, y) != GetPixel(dc, 0, 0) ? 1 : 0;
    SelectObject(dc, previous);
    DeleteObject(bitmap);
    DeleteDC(dc);
    return count;
}

} // namespace

TEST(Gradients, WhereColoursAreFewMixTheTwoThatAreNearest) {
    EXPECT_EQ(mixedPixels(16, 0x5000), 0); // a colour that 5 bits can hold
    EXPECT_EQ(mixedPixels(16, 0x5400), 128);
    EXPECT_EQ(mixedPixels(16, 0x5600), 192);
    EXPECT_EQ(mixedPixels(24, 0x5400), 0);
}

TEST(MaskBltTest, StretchesItsMaskAsTheMappingStretchesTheSource) {
    const Canvas from(4, 1);
    const Canvas to(8, 2);
    PatBlt(from.dc(), 0, 0, 4, 1, WHITENESS);
    const WORD bits = 0x0050; // 0101 in the four pixels
    const HBITMAP mask = CreateBitmap(4, 1, 1, 1, &bits);
    SetMapMode(to.dc(), MM_ANISOTROPIC);
    SetViewportExtEx(to.dc(), 2, 2, nullptr);
    EXPECT_TRUE(MaskBlt(to.dc(), 0, 0, 4, 1, from.dc(), 0, 0, mask, 0, 0, MAKEROP4(SRCCOPY, BLACKNESS)));
    SetMapMode(to.dc(), MM_TEXT);
    for (int x = 0; x < 8; ++x)
        for (int y = 0; y < 2; ++y)
            EXPECT_EQ(to.at(x, y), (x / 2) % 2 == 1 ? 0xFFFFFFu : 0u) << x << ", " << y;
    DeleteObject(mask);
}

TEST(PlgBltTest, CopiesAnUprightRectangleAsAStretchDoes) {
    const Canvas from(2, 2);
    from.set(0, 0, RGB(255, 0, 0));
    from.set(1, 0, RGB(0, 255, 0));
    from.set(0, 1, RGB(0, 0, 255));
    from.set(1, 1, RGB(9, 9, 9));
    const Canvas plain(6, 6);
    const Canvas like(6, 6);
    SetStretchBltMode(plain.dc(), COLORONCOLOR);
    SetStretchBltMode(like.dc(), COLORONCOLOR);
    const POINT corners[] = {{1, 1}, {5, 1}, {1, 4}};
    EXPECT_TRUE(PlgBlt(plain.dc(), corners, from.dc(), 0, 0, 2, 2, HBITMAP(), 0, 0));
    StretchBlt(like.dc(), 1, 1, 4, 3, from.dc(), 0, 0, 2, 2, SRCCOPY);
    EXPECT_EQ(plain.at(1, 1), RGB(255, 0, 0));
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(plain.at(x, y), like.at(x, y)) << x << ", " << y;
}
