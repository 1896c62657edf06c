#include <gtest/gtest.h>

#include "platform/WindowProbe.h"
#include "platform/gdi.h"

namespace {

using namespace platform;
using probe::WindowTest;

TEST(SystemLook, MetricsOfTheFrame) {
    EXPECT_EQ(GetSystemMetrics(SM_CYCAPTION), 19);
    EXPECT_EQ(GetSystemMetrics(SM_CXFRAME), 4);
    EXPECT_EQ(GetSystemMetrics(SM_CXDLGFRAME), 3);
    EXPECT_EQ(GetSystemMetrics(SM_CXBORDER), 1);
    EXPECT_EQ(GetSystemMetrics(SM_CXEDGE), 2);
    EXPECT_EQ(GetSystemMetrics(SM_CXVSCROLL), 17);
    EXPECT_EQ(GetSystemMetrics(SM_CXICON), 32);
    EXPECT_EQ(GetSystemMetrics(SM_CXSMICON), 16);
    EXPECT_EQ(GetSystemMetrics(-1), 0);
    EXPECT_GT(GetSystemMetrics(SM_CXSCREEN), 0);
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

TEST(SystemLook, Colours) {
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), 0xFFFFFFu);
    EXPECT_EQ(GetSysColor(COLOR_WINDOWTEXT), 0u);
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), 0xF5F5F5u);
    EXPECT_EQ(GetSysColor(COLOR_BTNSHADOW), 0xA6A6A6u);
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), 0xFA9630u);
    EXPECT_EQ(GetSysColor(99), 0u);
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

TEST(SystemLook, Parameters) {
    DWORD value = 0;
    EXPECT_TRUE(SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &value, 0));
    EXPECT_EQ(value, 3u);
    EXPECT_TRUE(SystemParametersInfoA(SPI_GETKEYBOARDDELAY, 0, &value, 0));
    EXPECT_EQ(value, 1u);
    EXPECT_TRUE(SystemParametersInfoA(SPI_GETKEYBOARDSPEED, 0, &value, 0));
    EXPECT_EQ(value, 31u);
    EXPECT_FALSE(SystemParametersInfoA(0xFFF0, 0, &value, 0));
    EXPECT_EQ(GetDoubleClickTime(), 500u);
    EXPECT_EQ(GetCaretBlinkTime(), 500u);
    RECT area{};
    ASSERT_TRUE(SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0));
    EXPECT_GT(area.right, area.left);
    NONCLIENTMETRICSW metrics;
    metrics.cbSize = sizeof metrics;
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0));
    EXPECT_EQ(metrics.iCaptionHeight, 18);
    EXPECT_EQ(metrics.lfMessageFont.lfHeight, -11);
    EXPECT_EQ(metrics.lfCaptionFont.lfWeight, 700);
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
