#include "platform/gdi.h"
#include "support/Canvas.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

using namespace platform;
using test::Canvas;

namespace {

constexpr HDC noContext{};
const HDC deadContext{0x7FFF0123u};
const HGDIOBJ deadObject{0x7FFF0123u};

} // namespace

TEST(GdiObjects, ANewMemoryContextHoldsOneBlackPixelOfOneBit) {
    const HDC dc = CreateCompatibleDC(noContext);
    ASSERT_TRUE(dc);
    EXPECT_EQ(GetObjectType(dc), OBJ_MEMDC);
    BITMAP bitmap;
    ASSERT_TRUE(GetObjectBitmap(HBITMAP(GetCurrentObject(dc, OBJ_BITMAP).value), &bitmap));
    EXPECT_EQ(bitmap.bmWidth, 1);
    EXPECT_EQ(bitmap.bmHeight, 1);
    EXPECT_EQ(bitmap.bmBitsPixel, 1);
    EXPECT_TRUE(DeleteDC(dc));
}

TEST(GdiObjects, ContextsBeginWithThePlatformsDefaults) {
    const Canvas canvas(4, 4);
    EXPECT_EQ(GetTextColor(canvas.dc()), RGB(0, 0, 0));
    EXPECT_EQ(GetBkColor(canvas.dc()), RGB(255, 255, 255));
    EXPECT_EQ(GetBkMode(canvas.dc()), OPAQUE);
    EXPECT_EQ(GetROP2(canvas.dc()), R2_COPYPEN);
    EXPECT_EQ(GetStretchBltMode(canvas.dc()), BLACKONWHITE);
    EXPECT_EQ(GetPolyFillMode(canvas.dc()), ALTERNATE);
    EXPECT_EQ(GetTextAlign(canvas.dc()), TA_LEFT | TA_TOP);
    EXPECT_EQ(GetCurrentObject(canvas.dc(), OBJ_PEN), GetStockObject(BLACK_PEN));
    EXPECT_EQ(GetCurrentObject(canvas.dc(), OBJ_BRUSH), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(GetCurrentObject(canvas.dc(), OBJ_FONT), GetStockObject(SYSTEM_FONT));
}

TEST(GdiObjects, SelectObjectReturnsWhatItReplaces) {
    const Canvas canvas(4, 4);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(SelectObject(canvas.dc(), brush), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(SelectObject(canvas.dc(), GetStockObject(NULL_BRUSH)), HGDIOBJ(brush));
    EXPECT_TRUE(DeleteObject(brush));
}

TEST(GdiObjects, ABitmapLiesInOneContextAtATime) {
    const Canvas first(4, 4);
    const HDC second = CreateCompatibleDC(noContext);
    EXPECT_FALSE(SelectObject(second, first.bitmap()));
    EXPECT_TRUE(DeleteDC(second));
}

TEST(GdiObjects, DeadHandlesFailWithoutHarm) {
    const Canvas canvas(4, 4);
    SIZE size;
    EXPECT_FALSE(DeleteDC(deadContext));
    EXPECT_FALSE(DeleteObject(deadObject));
    EXPECT_EQ(GetObjectType(deadObject), 0u);
    EXPECT_FALSE(SelectObject(canvas.dc(), deadObject));
    EXPECT_FALSE(SelectObject(deadContext, GetStockObject(BLACK_PEN)));
    EXPECT_EQ(SetTextColor(deadContext, 0), CLR_INVALID);
    EXPECT_EQ(SetBkColor(deadContext, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(deadContext, 0, 0), CLR_INVALID);
    EXPECT_EQ(SaveDC(deadContext), 0);
    EXPECT_FALSE(RestoreDC(deadContext, -1));
    EXPECT_FALSE(LineTo(deadContext, 1, 1));
    EXPECT_FALSE(Rectangle(deadContext, 0, 0, 2, 2));
    EXPECT_FALSE(PatBlt(deadContext, 0, 0, 2, 2, BLACKNESS));
    EXPECT_FALSE(BitBlt(canvas.dc(), 0, 0, 2, 2, deadContext, 0, 0, SRCCOPY));
    EXPECT_FALSE(BitBlt(deadContext, 0, 0, 2, 2, canvas.dc(), 0, 0, SRCCOPY));
    EXPECT_FALSE(TextOutW(deadContext, 0, 0, u"a", 1));
    EXPECT_FALSE(GetTextExtentPoint32W(deadContext, u"a", 1, &size));
    EXPECT_EQ(SelectClipRgn(deadContext, HRGN()), REGION_ERROR);
    EXPECT_EQ(GetDeviceCaps(deadContext, BITSPIXEL), 0);
    EXPECT_FALSE(CreateCompatibleBitmap(deadContext, 4, 4));
}

TEST(GdiObjects, HandlesOfAnotherKindAreNotTaken) {
    const Canvas canvas(4, 4);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    BITMAP bitmap;
    LOGPEN pen;
    EXPECT_FALSE(GetObjectBitmap(HBITMAP(brush.value), &bitmap));
    EXPECT_FALSE(GetObjectPen(HPEN(brush.value), &pen));
    EXPECT_FALSE(DeleteDC(HDC(brush.value)));
    EXPECT_EQ(SetTextColor(HDC(brush.value), 0), CLR_INVALID);
    EXPECT_EQ(CombineRgn(HRGN(brush.value), HRGN(brush.value), HRGN(brush.value), RGN_OR), REGION_ERROR);
    EXPECT_TRUE(DeleteObject(brush));
}

TEST(GdiObjects, DeletingAStockObjectSucceedsAndChangesNothing) {
    const HGDIOBJ brush = GetStockObject(GRAY_BRUSH);
    EXPECT_TRUE(DeleteObject(brush));
    LOGBRUSH data;
    ASSERT_TRUE(GetObjectBrush(HBRUSH(brush.value), &data));
    EXPECT_EQ(data.lbColor, RGB(128, 128, 128));
}

TEST(GdiObjects, ADeletedPenStaysInUseUntilItIsReplaced) {
    const Canvas canvas(6, 3);
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(255, 255, 255));
    SelectObject(canvas.dc(), pen);
    EXPECT_TRUE(DeleteObject(pen));
    MoveToEx(canvas.dc(), 0, 1, nullptr);
    EXPECT_TRUE(LineTo(canvas.dc(), 3, 1));
    EXPECT_EQ(canvas.at(2, 1), RGB(255, 255, 255));
    SelectObject(canvas.dc(), GetStockObject(BLACK_PEN));
    EXPECT_EQ(GetObjectType(pen), 0u);
}

TEST(GdiObjects, RecordsComeBackAsGiven) {
    const HPEN pen = CreatePen(PS_DASH, 1, RGB(9, 8, 7));
    LOGPEN penData;
    ASSERT_TRUE(GetObjectPen(pen, &penData));
    EXPECT_EQ(penData.lopnStyle, static_cast<UINT>(PS_DASH));
    EXPECT_EQ(penData.lopnColor, RGB(9, 8, 7));
    const HBRUSH brush = CreateHatchBrush(HS_CROSS, RGB(1, 2, 3));
    LOGBRUSH brushData;
    ASSERT_TRUE(GetObjectBrush(brush, &brushData));
    EXPECT_EQ(brushData.lbStyle, BS_HATCHED);
    EXPECT_EQ(brushData.lbHatch, static_cast<std::uintptr_t>(HS_CROSS));
    LOGFONTW wanted;
    wanted.lfHeight = -13;
    wanted.lfWeight = FW_BOLD;
    std::u16string_view(u"Arial").copy(wanted.lfFaceName, LF_FACESIZE);
    const HFONT font = CreateFontIndirectW(&wanted);
    LOGFONTW found;
    ASSERT_TRUE(GetObjectFont(font, &found));
    EXPECT_EQ(found.lfHeight, -13);
    EXPECT_EQ(found.lfWeight, FW_BOLD);
    EXPECT_EQ(std::u16string_view(found.lfFaceName), u"Arial");
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_TRUE(DeleteObject(font));
}

TEST(GdiObjects, SaveAndRestoreKeepTheWholeState) {
    const Canvas canvas(8, 8);
    const HDC dc = canvas.dc();
    EXPECT_EQ(SaveDC(dc), 1);
    SetTextColor(dc, RGB(1, 2, 3));
    SetBkMode(dc, TRANSPARENT);
    SetWindowOrgEx(dc, 5, 6, nullptr);
    IntersectClipRect(dc, 6, 7, 9, 9);
    EXPECT_EQ(SaveDC(dc), 2);
    SelectObject(dc, GetStockObject(WHITE_PEN));
    EXPECT_TRUE(RestoreDC(dc, 1));
    EXPECT_EQ(GetTextColor(dc), RGB(0, 0, 0));
    EXPECT_EQ(GetBkMode(dc), OPAQUE);
    POINT origin;
    GetWindowOrgEx(dc, &origin);
    EXPECT_EQ(origin, (POINT{0, 0}));
    RECT box;
    EXPECT_EQ(GetClipBox(dc, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{0, 0, 8, 8}));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), GetStockObject(BLACK_PEN));
    EXPECT_FALSE(RestoreDC(dc, 1));
    EXPECT_FALSE(RestoreDC(dc, -1));
    EXPECT_FALSE(RestoreDC(dc, 0));
}

TEST(GdiObjects, UnknownModesChangeNothing) {
    const Canvas canvas(2, 2);
    EXPECT_EQ(SetBkMode(canvas.dc(), 3), 0);
    EXPECT_EQ(SetROP2(canvas.dc(), 0), 0);
    EXPECT_EQ(SetROP2(canvas.dc(), 17), 0);
    EXPECT_EQ(GetBkMode(canvas.dc()), OPAQUE);
    EXPECT_EQ(GetROP2(canvas.dc()), R2_COPYPEN);
}

TEST(GdiBitmaps, SectionsShareTheirPixelsWithTheProgram) {
    BITMAPINFO info;
    info.bmiHeader.biWidth = 3;
    info.bmiHeader.biHeight = 2;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(noContext, &info, DIB_RGB_COLORS, &bits, HANDLE(), 0);
    ASSERT_TRUE(bitmap);
    ASSERT_NE(bits, nullptr);
    const HDC dc = CreateCompatibleDC(noContext);
    SelectObject(dc, bitmap);
    SetPixel(dc, 2, 1, RGB(0x11, 0x22, 0x33));
    GetPixel(dc, 0, 0);
    // The bottom row comes first in memory.
    EXPECT_EQ(static_cast<std::uint32_t*>(bits)[2] & 0xFFFFFF, 0x112233u);
    static_cast<std::uint32_t*>(bits)[3] = 0xAABBCC;
    EXPECT_EQ(GetPixel(dc, 0, 0), RGB(0xAA, 0xBB, 0xCC));
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(GdiBitmaps, RowsOfABitmapBeginAtMultiplesOfTwoBytes) {
    const std::uint8_t bits[] = {0x80, 0x00, 0x40, 0x00};
    const HBITMAP bitmap = CreateBitmap(3, 2, 1, 1, bits);
    const HDC dc = CreateCompatibleDC(noContext);
    SelectObject(dc, bitmap);
    EXPECT_EQ(GetPixel(dc, 0, 0), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(dc, 1, 0), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(dc, 1, 1), RGB(255, 255, 255));
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(GdiBitmaps, DibBitsGoOutAndInBothWaysRound) {
    const Canvas canvas(5, 3);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x)
            canvas.set(x, y, RGB(x * 10, y * 20, 7));
    for (const int height : {3, -3}) {
        BITMAPINFO info;
        info.bmiHeader.biWidth = 5;
        info.bmiHeader.biHeight = height;
        info.bmiHeader.biBitCount = 32;
        std::uint32_t out[15] = {};
        ASSERT_EQ(GetDIBits(canvas.dc(), canvas.bitmap(), 0, 3, out, &info, DIB_RGB_COLORS), 3);
        const int rowOfTop = height > 0 ? 2 : 0;
        EXPECT_EQ(out[rowOfTop * 5 + 4] & 0xFFFFFF, 0x280007u);
        const Canvas copy(5, 3);
        ASSERT_EQ(SetDIBits(copy.dc(), copy.bitmap(), 0, 3, out, &info, DIB_RGB_COLORS), 3);
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 5; ++x)
                ASSERT_EQ(copy.at(x, y), canvas.at(x, y));
    }
}

TEST(GdiBitmaps, GetDIBitsWithoutBitsTellsTheFormat) {
    const HDC dc = CreateCompatibleDC(noContext);
    const HBITMAP bitmap = CreateBitmap(7, 5, 1, 32, nullptr);
    BITMAPINFO info;
    EXPECT_NE(GetDIBits(dc, bitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS), 0);
    EXPECT_EQ(info.bmiHeader.biWidth, 7);
    EXPECT_EQ(info.bmiHeader.biHeight, 5);
    EXPECT_EQ(info.bmiHeader.biBitCount, 32);
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(GdiBitmaps, ImpossibleSizesGiveNoBitmap) {
    const Canvas canvas(2, 2);
    constexpr int huge = std::numeric_limits<int>::max();
    EXPECT_FALSE(CreateBitmap(huge, huge, 1, 32, nullptr));
    EXPECT_FALSE(CreateCompatibleBitmap(canvas.dc(), huge, 2));
    BITMAPINFO info;
    info.bmiHeader.biWidth = huge;
    info.bmiHeader.biHeight = huge;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    EXPECT_FALSE(CreateDIBSection(canvas.dc(), &info, DIB_RGB_COLORS, &bits, HANDLE(), 0));
    info.bmiHeader.biWidth = -4;
    info.bmiHeader.biHeight = 4;
    EXPECT_FALSE(CreateDIBSection(canvas.dc(), &info, DIB_RGB_COLORS, &bits, HANDLE(), 0));
}

TEST(GdiBitmaps, LikeASectionHeightsBelowZeroCountAndWidthsDoNot) {
    const Canvas section(2, 2, 16);
    EXPECT_FALSE(CreateCompatibleBitmap(section.dc(), -5, 10));
    const HBITMAP bitmap = CreateCompatibleBitmap(section.dc(), 5, -10);
    BITMAP about;
    ASSERT_TRUE(GetObjectBitmap(bitmap, &about));
    EXPECT_EQ(about.bmWidth, 5);
    EXPECT_EQ(about.bmHeight, 10);
    EXPECT_EQ(about.bmBitsPixel, 16);
    EXPECT_TRUE(DeleteObject(bitmap));
    const Canvas bits(2, 2, 1);
    const HBITMAP plain = CreateCompatibleBitmap(bits.dc(), -5, -10);
    ASSERT_TRUE(GetObjectBitmap(plain, &about));
    EXPECT_EQ(about.bmWidth, 5);
    EXPECT_EQ(about.bmHeight, 10);
    EXPECT_TRUE(DeleteObject(plain));
}

TEST(GdiDevice, SpeaksOfNinetySixDotsAnInchAndTrueColour) {
    const HDC dc = CreateCompatibleDC(noContext);
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSX), 96);
    EXPECT_EQ(GetDeviceCaps(dc, LOGPIXELSY), 96);
    EXPECT_EQ(GetDeviceCaps(dc, BITSPIXEL), 32);
    EXPECT_EQ(GetDeviceCaps(dc, PLANES), 1);
    EXPECT_EQ(GetDeviceCaps(dc, TECHNOLOGY), 1);
    EXPECT_EQ(GetDeviceCaps(dc, 9999), 0);
    EXPECT_TRUE(DeleteDC(dc));
}
