// What the desktop says of itself, against the values of a fresh session.
#include <gtest/gtest.h>

#include "platform/WindowProbe.h"
#include "platform/gdi.h"

#include <iterator>
#include <string_view>

namespace {

using namespace platform;
using probe::WindowTest;

/// GetSystemMetrics by number in a fresh session; `ofScreen` where it follows the screen.
constexpr int ofScreen = -1;
constexpr int metrics[] = {
    ofScreen, ofScreen, 17,       17, 19,  1,  1,        3,        3,        17,
    17,       32,       32,       32, 32,  19, ofScreen, ofScreen, 0,        1, // 0 to 19
    17,       17,       0,        0,  0,   0,  0,        0,        112,      27,
    18,       18,       4,        4,  112, 27, 4,        4,        75,       75, // 20 to 39
    0,        0,        0,        3,  0,   2,  2,        160,      24,       16,
    16,       16,       15,       15, 18,  18, 8,        160,      24,       ofScreen, // 40 to 59
    ofScreen, ofScreen, ofScreen, 3,  0,   0,  0,        0,        4,        4,
    0,        13,       13,       0,  0,   1,  0,        0,        ofScreen, ofScreen, // 60 to 79
    1,        1,        0,        1,  1,   0,  0,        0,        0,        0,
    90,       0,        0,        0,  0,   0,  0,        0,        0,        0, // 80 to 99
};

/// Metrics that are so much more than the width or height of the screen.
struct ScreenMetric {
    int index;
    int ofSize; ///< SM_CXSCREEN or SM_CYSCREEN
    int more;
};
constexpr ScreenMetric screenMetrics[] = {
    {SM_CXFULLSCREEN, SM_CXSCREEN, 0},    {SM_CYFULLSCREEN, SM_CYSCREEN, 11},
    {SM_CXMAXTRACK, SM_CXSCREEN, 12},     {SM_CYMAXTRACK, SM_CYSCREEN, 12},
    {SM_CXMAXIMIZED, SM_CXSCREEN, 8},     {SM_CYMAXIMIZED, SM_CYSCREEN, 38},
    {SM_CXVIRTUALSCREEN, SM_CXSCREEN, 0}, {SM_CYVIRTUALSCREEN, SM_CYSCREEN, 0},
};

TEST(SystemLook, Metrics) {
    for (int index = 0; index < static_cast<int>(std::size(metrics)); ++index) {
        if (metrics[index] == ofScreen) continue;
        EXPECT_EQ(GetSystemMetrics(index), metrics[index]) << index;
    }
    EXPECT_EQ(GetSystemMetrics(-1), 0);
    EXPECT_EQ(GetSystemMetrics(static_cast<int>(std::size(metrics))), 0);
    EXPECT_EQ(GetSystemMetrics(SM_REMOTESESSION), 0);
}

TEST(SystemLook, MetricsOfTheScreen) {
    EXPECT_GT(GetSystemMetrics(SM_CXSCREEN), 0);
    EXPECT_GT(GetSystemMetrics(SM_CYSCREEN), 0);
    for (const ScreenMetric& each : screenMetrics)
        EXPECT_EQ(GetSystemMetrics(each.index), GetSystemMetrics(each.ofSize) + each.more) << each.index;
}

struct FrameCase {
    DWORD style;
    DWORD exStyle;
    RECT around; ///< The frame around a client area from 0, 0 to 100, 100
};

TEST(SystemLook, FramesAroundAClientArea) {
    const FrameCase cases[] = {
        {WS_OVERLAPPEDWINDOW, 0, {-4, -23, 104, 104}},
        {WS_OVERLAPPEDWINDOW, WS_EX_TOOLWINDOW, {-4, -20, 104, 104}},
        {WS_OVERLAPPEDWINDOW, WS_EX_CLIENTEDGE, {-6, -25, 106, 106}},
        {WS_OVERLAPPEDWINDOW, WS_EX_STATICEDGE, {-3, -22, 103, 103}},
        {WS_CAPTION | WS_SYSMENU, 0, {-3, -22, 103, 103}},
        {WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME, {-3, -22, 103, 103}},
        {WS_POPUP, 0, {0, 0, 100, 100}},
        {WS_POPUP, WS_EX_DLGMODALFRAME, {-3, -3, 103, 103}},
        {WS_POPUP | WS_BORDER, 0, {-1, -1, 101, 101}},
        {WS_POPUP | WS_BORDER, WS_EX_STATICEDGE, {-2, -2, 102, 102}},
        {WS_POPUP | WS_DLGFRAME, 0, {-3, -3, 103, 103}},
        {WS_POPUP | WS_THICKFRAME, 0, {-3, -3, 103, 103}},
        {WS_POPUP | WS_THICKFRAME, WS_EX_DLGMODALFRAME, {-4, -4, 104, 104}},
        {WS_CHILD | WS_BORDER, WS_EX_CLIENTEDGE, {-3, -3, 103, 103}},
    };
    for (const FrameCase& c : cases) {
        RECT r{0, 0, 100, 100};
        ASSERT_TRUE(AdjustWindowRectEx(&r, c.style, FALSE_, c.exStyle));
        EXPECT_EQ(r.left, c.around.left) << std::hex << c.style << ' ' << c.exStyle;
        EXPECT_EQ(r.top, c.around.top) << std::hex << c.style << ' ' << c.exStyle;
        EXPECT_EQ(r.right, c.around.right) << std::hex << c.style << ' ' << c.exStyle;
        EXPECT_EQ(r.bottom, c.around.bottom) << std::hex << c.style << ' ' << c.exStyle;
    }
}

/// GetSysColor by number, 0x00bbggrr.
constexpr COLORREF colours[] = {
    0xFFFFFF, 0x956F25, 0xFA9632, 0x808080, 0xFFFFFF, 0xFFFFFF, 0x9E9E9E, 0x000000, // 0 to 7
    0x000000, 0x000000, 0xFFFFFF, 0xFFFFFF, 0x808080, 0xFA9630, 0xFFFFFF, 0xF5F5F5, // 8 to 15
    0xA6A6A6, 0xA6A6A6, 0x000000, 0xC8C8C8, 0xFFFFFF, 0x6A6A6A, 0xE3E3E3, 0x000000, // 16 to 23
    0xFFFFFF, 0xFFFFFF, 0xE0E0E0, 0xFA9632, 0x808080, 0xFA9630, 0xFFFFFF,           // 24 to 30
};

TEST(SystemLook, Colours) {
    for (int index = 0; index < static_cast<int>(std::size(colours)); ++index)
        EXPECT_EQ(GetSysColor(index), colours[index]) << index;
    for (const int unknown : {-1, 31, 99})
        EXPECT_EQ(GetSysColor(unknown), 0u) << unknown;
}

TEST(SystemLook, ColourBrushesAreNotDeleted) {
    const HBRUSH brush = GetSysColorBrush(COLOR_BTNFACE);
    ASSERT_TRUE(brush);
    EXPECT_EQ(GetSysColorBrush(COLOR_BTNFACE), brush);
    DeleteObject(brush);
    LOGBRUSH data;
    ASSERT_TRUE(GetObjectBrush(brush, &data));
    EXPECT_EQ(data.lbColor, GetSysColor(COLOR_BTNFACE));
    EXPECT_FALSE(GetSysColorBrush(99));
}

/// A parameter that is one number.
struct Parameter {
    UINT action;
    DWORD value;
};
constexpr Parameter parameters[] = {
    {SPI_GETBEEP, 1},
    {SPI_GETBORDER, 1},
    {SPI_GETKEYBOARDSPEED, 31},
    {SPI_GETKEYBOARDDELAY, 1},
    {SPI_GETFONTSMOOTHING, 1},
    {SPI_GETFONTSMOOTHINGTYPE, FE_FONTSMOOTHINGSTANDARD},
    {SPI_GETWHEELSCROLLLINES, 3},
    {SPI_GETMOUSEHOVERTIME, 400},
    {SPI_GETMENUSHOWDELAY, 400},
    {SPI_GETKEYBOARDCUES, 1},
    {SPI_GETGRADIENTCAPTIONS, 1},
    {SPI_GETCARETWIDTH, 1},
    {SPI_GETFOREGROUNDLOCKTIMEOUT, 0},
};

TEST(SystemLook, Parameters) {
    for (const Parameter& each : parameters) {
        constexpr DWORD unwritten = 0xCCCCCCCC;
        DWORD ansi = unwritten, wide = unwritten;
        EXPECT_TRUE(SystemParametersInfoA(each.action, 0, &ansi, 0)) << each.action;
        EXPECT_EQ(ansi, each.value) << each.action;
        EXPECT_TRUE(SystemParametersInfoW(each.action, 0, &wide, 0)) << each.action;
        EXPECT_EQ(wide, each.value) << each.action;
    }
    DWORD value = 0;
    EXPECT_FALSE(SystemParametersInfoA(0xFFF0, 0, &value, 0));
    EXPECT_EQ(GetDoubleClickTime(), 500u);
    EXPECT_EQ(GetCaretBlinkTime(), 500u);
}

TEST(SystemLook, WorkAreaLiesOnTheScreen) {
    RECT area{};
    ASSERT_TRUE(SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0));
    EXPECT_GE(area.left, 0);
    EXPECT_GE(area.top, 0);
    EXPECT_GT(area.right, area.left);
    EXPECT_GT(area.bottom, area.top);
    EXPECT_LE(area.right, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LE(area.bottom, GetSystemMetrics(SM_CYSCREEN));
}

void expectInterfaceFont(const LOGFONTW& font, LONG weight) {
    EXPECT_EQ(font.lfHeight, -11);
    EXPECT_EQ(font.lfWeight, weight);
    EXPECT_EQ(std::u16string_view(font.lfFaceName), u"Tahoma");
}

TEST(SystemLook, PartsOfTheFrameAndTheirFonts) {
    NONCLIENTMETRICSW m;
    m.cbSize = sizeof m;
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof m, &m, 0));
    EXPECT_EQ(m.iBorderWidth, 1);
    EXPECT_EQ(m.iScrollWidth, 17);
    EXPECT_EQ(m.iScrollHeight, 17);
    EXPECT_EQ(m.iCaptionWidth, 18);
    EXPECT_EQ(m.iCaptionHeight, 18);
    EXPECT_EQ(m.iSmCaptionWidth, 15);
    EXPECT_EQ(m.iSmCaptionHeight, 15);
    EXPECT_EQ(m.iMenuWidth, 18);
    EXPECT_EQ(m.iMenuHeight, 18);
    EXPECT_EQ(m.iPaddedBorderWidth, 0);
    expectInterfaceFont(m.lfCaptionFont, FW_BOLD);
    expectInterfaceFont(m.lfSmCaptionFont, FW_NORMAL);
    expectInterfaceFont(m.lfMenuFont, FW_NORMAL);
    expectInterfaceFont(m.lfStatusFont, FW_NORMAL);
    expectInterfaceFont(m.lfMessageFont, FW_NORMAL);
    LOGFONTW icons{};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETICONTITLELOGFONT, sizeof icons, &icons, 0));
    expectInterfaceFont(icons, FW_NORMAL);
}

class Clipboard : public WindowTest {};

TEST_F(Clipboard, KeepsText) {
    ASSERT_TRUE(setClipboardText(u"a\u00F1o \u20AC\r\n\u4E2D"));
    EXPECT_EQ(clipboardText(), u"a\u00F1o \u20AC\r\n\u4E2D");
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_DIB));
    EXPECT_GE(CountClipboardFormats(), 2);
}

TEST_F(Clipboard, IsEmptiedWhileOpen) {
    const HWND window = probe::open("main");
    setClipboardText(u"x");
    ASSERT_TRUE(OpenClipboard(window));
    EXPECT_TRUE(EmptyClipboard());
    EXPECT_TRUE(CloseClipboard());
    EXPECT_FALSE(CloseClipboard());
    EXPECT_FALSE(EmptyClipboard());
    EXPECT_EQ(CountClipboardFormats(), 0);
    EXPECT_EQ(clipboardText(), u"");
}

class Caret : public WindowTest {};

TEST_F(Caret, BelongsToItsWindow) {
    const HWND window = probe::open("main", {.style = WS_POPUP | WS_VISIBLE});
    const HWND other = probe::open("other", {.style = WS_POPUP | WS_VISIBLE});
    SetFocus(window);
    EXPECT_FALSE(ShowCaret(window));
    ASSERT_TRUE(CreateCaret(window, {}, 2, 15));
    EXPECT_TRUE(SetCaretPos(12, 7));
    POINT at{};
    EXPECT_TRUE(GetCaretPos(&at));
    EXPECT_EQ(at, (POINT{12, 7}));
    EXPECT_FALSE(ShowCaret(other));
    EXPECT_TRUE(ShowCaret(window));
    EXPECT_TRUE(HideCaret(window));
    EXPECT_TRUE(DestroyCaret());
    EXPECT_FALSE(ShowCaret(window));
}

class Cursor : public WindowTest {};

TEST_F(Cursor, StockShapesAreKnown) {
    const HCURSOR arrow = LoadCursorA({}, IDC_ARROW);
    const HCURSOR hand = LoadCursorA({}, IDC_HAND);
    EXPECT_TRUE(arrow);
    EXPECT_TRUE(hand);
    EXPECT_NE(arrow, hand);
    EXPECT_EQ(LoadCursorA({}, IDC_ARROW), arrow);
    EXPECT_FALSE(LoadCursorA({}, 1));
    SetCursor(arrow);
    EXPECT_EQ(SetCursor(hand), arrow);
    EXPECT_EQ(GetCursor(), hand);
}

} // namespace
