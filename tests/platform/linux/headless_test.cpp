#include <gtest/gtest.h>

#include "platform/WindowProbe.h"
#include "platform/clock.h"
#include "platform/gdi.h"
#include "platform/linux/handles.h"
#include "platform/linux/headless.h"
#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <set>
#include <stdexcept>

namespace {

using namespace platform;
using namespace probe;

class Headless : public WindowTest {};

std::uint32_t pixelAt(const driver::Surface& surface, int x, int y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(surface.bits +
                                                             static_cast<std::ptrdiff_t>(y) * surface.stride);
    return row[x] & 0xFFFFFF;
}

TEST_F(Headless, TheClockStandsStillUntilMoved) {
    const DWORD before = GetTickCount();
    EXPECT_EQ(GetTickCount(), before);
    headless::advanceClock(1500);
    EXPECT_EQ(GetTickCount(), before + 1500);
    Sleep(20);
    EXPECT_EQ(GetTickCount(), before + 1520);
}

TEST_F(Headless, BeepsAreCountedAndTakeTheirTime) {
    const int before = headless::beeps();
    const DWORD start = GetTickCount();
    EXPECT_TRUE(MessageBeep(0));
    EXPECT_EQ(headless::beeps(), before + 1);
    EXPECT_EQ(GetTickCount(), start);
    EXPECT_TRUE(Beep(440, 250));
    EXPECT_EQ(headless::beeps(), before + 2);
    EXPECT_EQ(GetTickCount(), start + 250);
}

TEST_F(Headless, TheLocalTimeCanBeSet) {
    const SYSTEMTIME wanted{2024, 2, 4, 29, 13, 5, 59, 250};
    headless::setLocalTime(wanted);
    headless::advanceClock(1000);
    SYSTEMTIME now{};
    GetLocalTime(&now);
    EXPECT_EQ(now.wYear, 2024);
    EXPECT_EQ(now.wMonth, 2);
    EXPECT_EQ(now.wDay, 29);
    EXPECT_EQ(now.wHour, 13);
    EXPECT_EQ(now.wMinute, 6);
    EXPECT_EQ(now.wSecond, 0);
    EXPECT_EQ(now.wMilliseconds, 250);
}

TEST_F(Headless, WaitingMovesTheClockToTheNextTimer) {
    const HWND window = open("main");
    desk.pump();
    SetTimer(window, 1, 250, nullptr);
    const DWORD before = GetTickCount();
    MSG message;
    ASSERT_TRUE(GetMessageA(&message, {}, 0, 0));
    EXPECT_EQ(message.message, WM_TIMER);
    EXPECT_EQ(GetTickCount(), before + 250);
}

TEST_F(Headless, WaitingForNothingIsAnError) {
    desk.pump();
    MSG message;
    EXPECT_THROW(GetMessageA(&message, {}, 0, 0), std::logic_error);
    EXPECT_THROW(WaitMessage(), std::logic_error);
    EXPECT_FALSE(waitMessageFor(100));
}

TEST_F(Headless, AnIdleHandlerBringsInput) {
    const HWND window = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    SetFocus(window);
    desk.pump();
    headless::setIdleHandler([] {
        headless::injectKey(VK_F2);
        return true;
    });
    MSG message;
    ASSERT_TRUE(GetMessageA(&message, {}, WM_KEYDOWN, WM_KEYDOWN));
    EXPECT_EQ(message.wParam, static_cast<WPARAM>(VK_F2));
}

TEST_F(Headless, TextUsesTheKeysOfTheSpanishKeyboard) {
    const HWND window = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    SetFocus(window);
    desk.pump();
    journal.clear();
    headless::injectText(u"\u00E1@");
    desk.pump();
    EXPECT_EQ(journal.of({WM_KEYDOWN, WM_SYSKEYDOWN, WM_DEADCHAR, WM_CHAR}),
              "main WM_KEYDOWN, main WM_DEADCHAR, main WM_KEYDOWN, main WM_CHAR, main WM_KEYDOWN, main "
              "WM_KEYDOWN, main "
              "WM_KEYDOWN, main WM_CHAR");
    EXPECT_EQ(journal.last(WM_CHAR).wParam, static_cast<WPARAM>('@'));
}

TEST_F(Headless, AWindowIsBlackWhereNobodyPaints) {
    const HWND window = open(
        "main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = {0, 0, 60, 90}, .background = false});
    const HDC dc = GetDC(window);
    const RECT middle{10, 20, 20, 30};
    FillRect(dc, &middle, HBRUSH(GetStockObject(WHITE_BRUSH).value));
    EXPECT_EQ(GetPixel(dc, 30, 5), 0u);
    ReleaseDC(window, dc);
    desk.pump();
    RECT client{};
    GetClientRect(window, &client);
    const POINT origin = onScreen(window, 0, 0);
    const driver::Surface& picture = *headless::frameBuffer(window);
    for (LONG y = 0; y < client.bottom; ++y)
        for (LONG x = 0; x < client.right; ++x) {
            const bool isInMiddle =
                x >= middle.left && x < middle.right && y >= middle.top && y < middle.bottom;
            ASSERT_EQ(pixelAt(picture, origin.x + x, origin.y + y), isInMiddle ? 0xFFFFFFu : 0u)
                << x << "," << y;
        }
}

TEST_F(Headless, ADeadKeyWithoutItsLetterTypesBoth) {
    const HWND window = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    SetFocus(window);
    desk.pump();
    journal.clear();
    headless::injectKey(VK_OEM_7);
    headless::injectKey('X');
    desk.pump();
    EXPECT_EQ(journal.count(WM_CHAR), 2);
}

TEST_F(Headless, CharactersWithoutAKeyArriveAllTheSame) {
    const HWND window = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    SetFocus(window);
    desk.pump();
    journal.clear();
    headless::injectText(u"\u00AE");
    desk.pump();
    EXPECT_EQ(journal.last(WM_CHAR).wParam, 0xAEu);
}

TEST_F(Headless, LosingTheForegroundTakesActivationAndFocus) {
    const HWND window = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const HWND field = openChild("field", window, {0, 0, 20, 20});
    SetFocus(field);
    headless::injectForegroundLoss();
    EXPECT_FALSE(GetForegroundWindow());
    EXPECT_FALSE(GetFocus());
    headless::injectForegroundReturn();
    EXPECT_EQ(GetForegroundWindow(), window);
    EXPECT_EQ(GetFocus(), window);
}

TEST_F(Headless, ScreenshotsAreWritten) {
    const HWND window = open("A\xF1o nuevo", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const HWND child = openChild("field", window, {10, 10, 60, 40}, {}, WS_BORDER);
    const support::TemporaryFolder folder;
    for (const HWND each : {window, child, HWND{}}) {
        const std::string path = folder.utf8File("shot" + std::to_string(each.value) + ".png");
        EXPECT_TRUE(headless::screenshot(each, path));
        EXPECT_GT(std::filesystem::file_size(path), 50u);
    }
    DestroyWindow(window);
    EXPECT_FALSE(headless::screenshot(window, folder.utf8File("none.png")));
}

TEST_F(Headless, TheDesktopShowsWindowsInTheirOrder) {
    const HWND below = open("below", {.style = WS_POPUP | WS_VISIBLE, .place = {10, 10, 110, 110}});
    const HWND above = open("above", {.style = WS_POPUP | WS_VISIBLE, .place = {60, 60, 160, 160}});
    desk.pump();
    const auto paint = [](HWND window, COLORREF color) {
        const HDC dc = GetDC(window);
        const HBRUSH brush = CreateSolidBrush(color);
        const RECT all{0, 0, 100, 100};
        FillRect(dc, &all, brush);
        DeleteObject(brush);
        ReleaseDC(window, dc);
    };
    paint(below, RGB(255, 0, 0));
    paint(above, RGB(0, 0, 255));
    EXPECT_EQ(pixelAt(headless::desktop(), 20, 20), 0xFF0000u);
    EXPECT_EQ(pixelAt(headless::desktop(), 80, 80), 0x0000FFu);
    SetWindowPos(below, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(pixelAt(headless::desktop(), 80, 80), 0xFF0000u);
    EXPECT_NE(pixelAt(headless::desktop(), 200, 200), 0xFF0000u);
}

TEST_F(Headless, TheCaretBlinksOverThePixels) {
    const HWND window = open("main", {.style = WS_POPUP | WS_VISIBLE, .place = {0, 0, 50, 50}});
    desk.pump();
    CreateCaret(window, {}, 2, 10);
    SetCaretPos(5, 5);
    EXPECT_EQ(pixelAt(*headless::frameBuffer(window), 5, 5), 0xFFFFFFu);
    ShowCaret(window);
    EXPECT_EQ(pixelAt(*headless::frameBuffer(window), 5, 5), 0u);
    EXPECT_EQ(pixelAt(*headless::frameBuffer(window), 6, 14), 0u);
    EXPECT_EQ(pixelAt(*headless::frameBuffer(window), 7, 14), 0xFFFFFFu);
    headless::advanceClock(GetCaretBlinkTime());
    EXPECT_EQ(pixelAt(*headless::frameBuffer(window), 5, 5), 0xFFFFFFu);
    headless::advanceClock(GetCaretBlinkTime());
    EXPECT_EQ(pixelAt(*headless::frameBuffer(window), 5, 5), 0u);
    HideCaret(window);
    HideCaret(window);
    ShowCaret(window);
    EXPECT_EQ(pixelAt(*headless::frameBuffer(window), 5, 5), 0xFFFFFFu);
}

/// The colours of one of a window's boxes, found by asking the window along its caption.
std::set<std::uint32_t> coloursOfBox(HWND window, LRESULT hit) {
    RECT frame;
    GetWindowRect(window, &frame);
    std::set<std::uint32_t> colours;
    for (int y = frame.top; y < frame.top + 30; ++y)
        for (int x = frame.left; x < frame.right; ++x)
            if (SendMessageA(window, WM_NCHITTEST, 0, MAKELPARAM(x, y)) == hit)
                colours.insert(pixelAt(headless::desktop(), x, y));
    return colours;
}

std::uint32_t pixelOf(int systemColour) {
    const COLORREF colour = GetSysColor(systemColour);
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

TEST_F(Headless, ABoxThatTheWindowDoesNotHaveIsGreyBesideTheOther) {
    constexpr DWORD Plain = WS_CAPTION | WS_SYSMENU | WS_VISIBLE;
    const auto ink = pixelOf(COLOR_BTNTEXT);
    const auto grey = pixelOf(COLOR_BTNSHADOW);
    const auto looks = [&](DWORD boxes, LRESULT hit, std::uint32_t colour) {
        const HWND window = open("main", {.style = Plain | boxes});
        desk.pump();
        const bool found = coloursOfBox(window, hit).count(colour) != 0;
        DestroyWindow(window);
        return found;
    };
    for (const LRESULT hit : {LRESULT{HTMINBUTTON}, LRESULT{HTMAXBUTTON}}) {
        SCOPED_TRACE(hit);
        const DWORD own = hit == HTMAXBUTTON ? WS_MAXIMIZEBOX : WS_MINIMIZEBOX;
        const DWORD other = own ^ (WS_MAXIMIZEBOX | WS_MINIMIZEBOX);
        EXPECT_TRUE(looks(own, hit, ink));
        EXPECT_FALSE(looks(own, hit, grey));
        EXPECT_FALSE(looks(other, hit, ink));
        EXPECT_TRUE(looks(other, hit, grey));
        EXPECT_TRUE(looks(own | other, hit, ink));
    }
    const HWND neither = open("main", {.style = Plain});
    desk.pump();
    EXPECT_TRUE(coloursOfBox(neither, HTMAXBUTTON).empty());
    EXPECT_TRUE(coloursOfBox(neither, HTMINBUTTON).empty());
    EXPECT_TRUE(coloursOfBox(neither, HTCLOSE).count(ink));
}

TEST_F(Headless, TheCloseBoxClosesAndTheTitleBarDoesNot) {
    const HWND window = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    desk.pump();
    desk.click({200, 112});
    desk.pump();
    ASSERT_TRUE(IsWindow(window));
    desk.click({388, 112});
    desk.pump();
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(Headless, AltF4Closes) {
    const HWND window = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    SetFocus(window);
    desk.pressKey(VK_MENU);
    desk.strikeKey(VK_F4);
    desk.releaseKey(VK_MENU);
    desk.pump();
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(Headless, WhatIsNotThereIsNeitherPaintedNorDestroyed) {
    const HWND window = open("main");
    DestroyWindow(window);
    EXPECT_FALSE(UpdateWindow(window));
    EXPECT_FALSE(DestroyCaret());
}

TEST_F(Headless, NothingIsLeftBehind) {
    const auto contexts = driver::handleCount(driver::HandleKind::DeviceContext);
    const auto brushes = driver::handleCount(driver::HandleKind::Brush);
    const auto fonts = driver::handleCount(driver::HandleKind::Font);
    const HWND window = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    openChild("field", window, {0, 0, 30, 30});
    SetTimer(window, 1, 100, nullptr);
    desk.pump();
    EXPECT_EQ(headless::liveWindows(), 2);
    EXPECT_EQ(headless::liveTimers(), 1);
    GetDC(window);
    DestroyWindow(window);
    EXPECT_EQ(headless::liveWindows(), 0);
    EXPECT_EQ(headless::liveTimers(), 0);
    EXPECT_EQ(driver::handleCount(driver::HandleKind::DeviceContext), contexts) << driver::describeHandles();
    EXPECT_EQ(driver::handleCount(driver::HandleKind::Brush), brushes);
    EXPECT_EQ(driver::handleCount(driver::HandleKind::Font), fonts);
}

} // namespace
