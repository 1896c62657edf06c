// The displays of few colours that TESELA_DEPTH emulates.

#include "platform/gdi.h"
#include "platform/processes.h"
#include "platform/windows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <vector>

using namespace platform;

namespace {

/// The display's depth for one test, and a bitmap that is compatible with it.
class Screen {
public:
    explicit Screen(const char* depth) {
        SetEnvironmentVariableA("TESELA_DEPTH", depth);
        screen_ = GetDC(HWND());
        dc_ = CreateCompatibleDC(screen_);
        bitmap_ = CreateCompatibleBitmap(screen_, side, side);
        previous_ = SelectObject(dc_, bitmap_);
    }
    ~Screen() {
        SelectObject(dc_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
        ReleaseDC(HWND(), screen_);
        SetEnvironmentVariableA("TESELA_DEPTH", nullptr);
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    static constexpr int side = 16;
    HDC dc() const { return dc_; }
    HBITMAP bitmap() const { return bitmap_; }

    void fill(COLORREF color) const {
        const HBRUSH brush = CreateSolidBrush(color);
        const RECT all{0, 0, side, side};
        FillRect(dc_, &all, brush);
        DeleteObject(brush);
    }

    std::set<COLORREF> colors() const {
        std::set<COLORREF> found;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                found.insert(GetPixel(dc_, x, y));
        return found;
    }

    double meanRed() const {
        double sum = 0;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                sum += GetPixel(dc_, x, y) & 0xFF;
        return sum / (side * side);
    }

private:
    HDC screen_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
};

TEST(LowDepth, WhiteIsReadOnTheClassicBlueWhereColoursAreFew) {
    constexpr COLORREF classicBlue = 0x6A240A;
    const COLORREF usual = GetSysColor(COLOR_HIGHLIGHT);
    for (const char* depth : {"4", "8"}) {
        const Screen screen(depth);
        for (const int index : {COLOR_ACTIVECAPTION, COLOR_HIGHLIGHT})
            EXPECT_EQ(GetSysColor(index), classicBlue) << depth << ' ' << index;
        EXPECT_EQ(GetSysColor(COLOR_CAPTIONTEXT), 0xFFFFFFu) << depth;
    }
    const Screen screen("16");
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), usual);
}

TEST(LowDepth, AColourThatAProgramHasSetIsKeptEvenIfItIsTheUsualOne) {
    const INT index = COLOR_MENUHILIGHT; // of which nothing else in this program is made
    const COLORREF usual = GetSysColor(index);
    const Screen screen("8");
    for (const COLORREF color : {COLORREF{0x00FF00}, usual}) {
        SetSysColors(1, &index, &color);
        EXPECT_EQ(GetSysColor(index), color);
    }
}

TEST(PaletteDisplay, TellsThatItHasAPalette) {
    const Screen screen("8");
    EXPECT_EQ(GetDeviceCaps(screen.dc(), BITSPIXEL), 8);
    EXPECT_EQ(GetDeviceCaps(screen.dc(), RASTERCAPS) & RC_PALETTE, RC_PALETTE);
    EXPECT_EQ(GetDeviceCaps(screen.dc(), SIZEPALETTE), 256);
    EXPECT_EQ(GetDeviceCaps(screen.dc(), NUMRESERVED), 20);
    EXPECT_EQ(GetSystemPaletteEntries(screen.dc(), 0, 0, nullptr), 256u);
    BITMAP data;
    ASSERT_TRUE(GetObjectBitmap(screen.bitmap(), &data));
    EXPECT_EQ(data.bmBitsPixel, 8);
}

TEST(PaletteDisplay, DrawsInTheSystemsColoursUntilAPaletteIsSelected) {
    const Screen screen("8");
    EXPECT_EQ(GetNearestColor(screen.dc(), RGB(250, 5, 5)), RGB(255, 0, 0));
    EXPECT_EQ(GetNearestColor(screen.dc(), RGB(0x40, 0x20, 0)), RGB(0, 0, 0));
    const HPALETTE palette = CreateHalftonePalette(screen.dc());
    const HPALETTE stock = SelectPalette(screen.dc(), palette, FALSE_);
    EXPECT_EQ(RealizePalette(screen.dc()), 256u);
    EXPECT_EQ(RealizePalette(screen.dc()), 0u);
    EXPECT_EQ(GetNearestColor(screen.dc(), RGB(0x40, 0x20, 0)), RGB(0x40, 0x20, 0));
    EXPECT_EQ(GetNearestColor(screen.dc(), PALETTEINDEX(9)), RGB(0xA6, 0xCA, 0xF0));
    SelectPalette(screen.dc(), stock, FALSE_);
    DeleteObject(palette);
}

TEST(PaletteDisplay, PaintsOtherColoursOfBrushesAsAMixture) {
    const Screen screen("8");
    screen.fill(RGB(255, 0, 0));
    EXPECT_EQ(screen.colors(), std::set<COLORREF>{RGB(255, 0, 0)});
    screen.fill(RGB(160, 0, 0));
    EXPECT_EQ(screen.colors().size(), 2u);
    EXPECT_NEAR(screen.meanRed(), 160, 8);
}

TEST(PaletteDisplay, DrawsLinesInTheNearestColour) {
    const Screen screen("8");
    screen.fill(RGB(255, 255, 255));
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(130, 10, 0));
    const HGDIOBJ previous = SelectObject(screen.dc(), pen);
    MoveToEx(screen.dc(), 0, 3, nullptr);
    LineTo(screen.dc(), 16, 3);
    EXPECT_EQ(GetPixel(screen.dc(), 7, 3), RGB(128, 0, 0));
    SelectObject(screen.dc(), previous);
    DeleteObject(pen);
}

TEST(PaletteDisplay, ShowsCopiesOfTrueColoursInWhatItHas) {
    const Screen screen("8");
    const std::uint32_t pixels[4] = {0xFE0101, 0x00FD02, 0x828282, 0x0000F0};
    BITMAPINFO info;
    info.bmiHeader.biWidth = 4;
    info.bmiHeader.biHeight = -1;
    info.bmiHeader.biBitCount = 32;
    SetDIBitsToDevice(screen.dc(), 0, 0, 4, 1, 0, 0, 0, 1, pixels, &info, DIB_RGB_COLORS);
    EXPECT_EQ(GetPixel(screen.dc(), 0, 0), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(screen.dc(), 1, 0), RGB(0, 255, 0));
    EXPECT_EQ(GetPixel(screen.dc(), 2, 0), RGB(128, 128, 128));
    EXPECT_EQ(GetPixel(screen.dc(), 3, 0), RGB(0, 0, 255));
}

/// Where the pixels of a colour are in a row of text painted black on white.
std::vector<POINT> inkOf(HDC dc, int width, int height) {
    std::vector<POINT> ink;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (GetPixel(dc, x, y) == RGB(0, 0, 0)) ink.push_back({x, y});
    return ink;
}

bool samePoints(const std::vector<POINT>& a, const std::vector<POINT>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const POINT& p, const POINT& q) { return p.x == q.x && p.y == q.y; });
}

TEST(PaletteDisplay, MeasuresTextAsItIsDrawn) {
    constexpr int width = 200;
    constexpr int height = 20;
    const Screen screen("8");
    const HBITMAP bitmap = CreateCompatibleBitmap(screen.dc(), width, height);
    const HGDIOBJ previous = SelectObject(screen.dc(), bitmap);
    const HFONT font =
        CreateFontA(-11, 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "DejaVu Sans");
    const HGDIOBJ previousFont = SelectObject(screen.dc(), font);
    const auto paint = [&](const char* first, const char* second) {
        PatBlt(screen.dc(), 0, 0, width, height, WHITENESS);
        SIZE extent;
        GetTextExtentPoint32A(screen.dc(), first, static_cast<int>(std::strlen(first)), &extent);
        TextOutA(screen.dc(), 0, 0, first, static_cast<int>(std::strlen(first)));
        TextOutA(screen.dc(), extent.cx, 0, second, static_cast<int>(std::strlen(second)));
        return inkOf(screen.dc(), width, height);
    };
    const std::vector<POINT> whole = paint("entre palabras donde", "");
    EXPECT_FALSE(whole.empty());
    EXPECT_TRUE(samePoints(paint("entre palabras ", "donde"), whole));
    SelectObject(screen.dc(), previousFont);
    SelectObject(screen.dc(), previous);
    DeleteObject(font);
    DeleteObject(bitmap);
}

TEST(HighColourDisplay, KeepsFiveOrSixBitsOfAComponent) {
    const Screen screen("16");
    EXPECT_EQ(GetDeviceCaps(screen.dc(), BITSPIXEL), 16);
    SetPixel(screen.dc(), 0, 0, RGB(255, 129, 7));
    EXPECT_EQ(GetPixel(screen.dc(), 0, 0), RGB(255, 130, 0));
}

TEST(ScreenContexts, ShowWhatIsThereOnlyWhenItIsLookedAt) {
    const HDC screen = GetDC(HWND());
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 2, 2);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    EXPECT_TRUE(BitBlt(memory, 0, 0, 2, 2, screen, 0, 0, SRCCOPY));
    EXPECT_EQ(GetPixel(memory, 0, 0), GetPixel(screen, 0, 0));
    EXPECT_NE(GetPixel(screen, 0, 0), CLR_INVALID);
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(HWND(), screen);
}

} // namespace
