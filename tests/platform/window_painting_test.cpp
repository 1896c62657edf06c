#include <gtest/gtest.h>

#include "platform/WindowProbe.h"
#include "platform/gdi.h"

namespace {

using namespace platform;
using namespace probe;

constexpr COLORREF Red = RGB(255, 0, 0);
constexpr COLORREF Blue = RGB(0, 0, 255);
constexpr COLORREF White = RGB(255, 255, 255);

void fill(HDC dc, RECT r, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &r, brush);
    DeleteObject(brush);
}

/// Paints the whole client area in one colour.
Handler painter(COLORREF color) {
    return [color](const Seen& seen, LRESULT&) {
        if (seen.message != WM_PAINT) return false;
        PAINTSTRUCT paint;
        const HDC dc = BeginPaint(seen.window, &paint);
        RECT area{};
        GetClientRect(seen.window, &area);
        fill(dc, area, color);
        EndPaint(seen.window, &paint);
        return true;
    };
}

class WindowPainting : public WindowTest {
protected:
    WindowPainting() {
        main = open("main", {.style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN});
        desk.pump();
        journal.clear();
    }

    HWND main;
};

TEST_F(WindowPainting, ShownWindowsAreErasedInTheirClassColour) {
    EXPECT_EQ(desk.look(main).at(10, 10), GetSysColor(COLOR_WINDOW));
}

TEST_F(WindowPainting, InvalidatedWindowsArePaintedOnce) {
    const RECT part{10, 10, 30, 30};
    InvalidateRect(main, &part, TRUE_);
    const RECT more{20, 20, 50, 40};
    InvalidateRect(main, &more, TRUE_);
    RECT update{};
    EXPECT_TRUE(GetUpdateRect(main, &update, FALSE_));
    EXPECT_EQ(update, (RECT{10, 10, 50, 40}));
    desk.pump();
    EXPECT_EQ(journal.of({WM_PAINT, WM_ERASEBKGND}), "main WM_PAINT, main WM_ERASEBKGND");
    EXPECT_FALSE(GetUpdateRect(main, &update, FALSE_));
    EXPECT_EQ(update, RECT{});
}

TEST_F(WindowPainting, WithoutEraseTheBackgroundStays) {
    InvalidateRect(main, nullptr, FALSE_);
    desk.pump();
    EXPECT_EQ(journal.of({WM_PAINT, WM_ERASEBKGND}), "main WM_PAINT");
}

TEST_F(WindowPainting, ValidatedWindowsAreNotPainted) {
    InvalidateRect(main, nullptr, TRUE_);
    ValidateRect(main, nullptr);
    desk.pump();
    EXPECT_EQ(journal.count(WM_PAINT), 0);
}

TEST_F(WindowPainting, UpdateWindowPaintsAtOnce) {
    UpdateWindow(main);
    EXPECT_EQ(journal.count(WM_PAINT), 0);
    InvalidateRect(main, nullptr, TRUE_);
    UpdateWindow(main);
    EXPECT_EQ(journal.count(WM_PAINT), 1);
    UpdateWindow(main);
    EXPECT_EQ(journal.count(WM_PAINT), 1);
}

TEST_F(WindowPainting, OnlyTheInvalidPartIsPainted) {
    const HWND child = openChild("child", main, {0, 0, 100, 100}, painter(Red));
    desk.pump();
    EXPECT_EQ(desk.look(child).at(50, 50), Red);
    const HWND other = openChild("other", main, {100, 0, 200, 100}, painter(Blue));
    desk.pump();
    const HDC dc = GetDC(other);
    fill(dc, {0, 0, 100, 100}, White);
    ReleaseDC(other, dc);
    const RECT part{10, 10, 20, 20};
    InvalidateRect(other, &part, TRUE_);
    desk.pump();
    const support::Picture picture = desk.look(other);
    EXPECT_EQ(picture.at(10, 10), Blue);
    EXPECT_EQ(picture.at(19, 19), Blue);
    EXPECT_EQ(picture.at(20, 20), White);
    EXPECT_EQ(picture.at(9, 9), White);
}

TEST_F(WindowPainting, PaintRecordTellsTheBounds) {
    PAINTSTRUCT paint;
    const HWND child = openChild("child", main, {0, 0, 100, 100});
    desk.pump();
    const RECT part{5, 6, 7, 8};
    InvalidateRect(child, &part, FALSE_);
    const HDC dc = BeginPaint(child, &paint);
    EXPECT_TRUE(dc);
    EXPECT_EQ(paint.hdc, dc);
    EXPECT_EQ(paint.rcPaint, part);
    EXPECT_FALSE(paint.fErase);
    EndPaint(child, &paint);
}

TEST_F(WindowPainting, HiddenWindowsHaveNothingToPaint) {
    ShowWindow(main, SW_HIDE);
    InvalidateRect(main, nullptr, TRUE_);
    EXPECT_FALSE(GetUpdateRect(main, nullptr, FALSE_));
    desk.pump();
    EXPECT_EQ(journal.count(WM_PAINT), 0);
}

TEST_F(WindowPainting, ParentsArePaintedBeforeTheirChildren) {
    openChild("child", main, {0, 0, 100, 100});
    desk.pump();
    journal.clear();
    RedrawWindow(main, nullptr, {}, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    desk.pump();
    EXPECT_EQ(journal.of({WM_PAINT}), "main WM_PAINT, child WM_PAINT");
}

TEST_F(WindowPainting, SiblingsArePaintedFromTheTopAndAgainWhenAnotherOneInvalidatesThem) {
    HWND first{};
    int paints = 0;
    const Handler disturbing = [&](const Seen& seen, LRESULT&) {
        if (seen.message == WM_PAINT && ++paints == 1) InvalidateRect(first, nullptr, FALSE_);
        return false;
    };
    const HWND last = openChild("last", main, {20, 0, 30, 10});
    const HWND middle = openChild("middle", main, {10, 0, 20, 10}, disturbing);
    first = openChild("first", main, {0, 0, 10, 10});
    for (const HWND each : {last, middle, first})
        SetWindowPos(each, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    desk.pump();
    paints = 0;
    journal.clear();
    RedrawWindow(main, nullptr, {}, RDW_INVALIDATE | RDW_ALLCHILDREN);
    desk.pump();
    EXPECT_EQ(journal.of({WM_PAINT}),
              "main WM_PAINT, first WM_PAINT, middle WM_PAINT, first WM_PAINT, last WM_PAINT");
}

TEST_F(WindowPainting, WhatIsCoveredBeforeItIsPaintedIsNotPainted) {
    const HWND below = openChild("below", main, {0, 0, 100, 100}, painter(Red), WS_CLIPSIBLINGS);
    const HWND above = openChild("above", main, {150, 0, 250, 100}, painter(Blue), WS_CLIPSIBLINGS);
    SetWindowPos(above, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    desk.pump();
    InvalidateRect(below, nullptr, TRUE_);
    SetWindowPos(above, {}, 50, 50, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    UpdateWindow(above);
    UpdateWindow(below);
    EXPECT_EQ(desk.look(main).at(49, 49), Red);
    EXPECT_EQ(desk.look(main).at(75, 75), Blue);
}

TEST_F(WindowPainting, AClippingParentLeavesItsChildrenAlone) {
    openChild("child", main, {0, 0, 100, 100});
    desk.pump();
    journal.clear();
    InvalidateRect(main, nullptr, TRUE_);
    desk.pump();
    EXPECT_EQ(journal.of({WM_PAINT}), "main WM_PAINT");
}

TEST_F(WindowPainting, DrawingOnAParentDoesNotReachClippedChildren) {
    const HWND child = openChild("child", main, {10, 10, 60, 60}, painter(Red));
    desk.pump();
    const HDC dc = GetDC(main);
    fill(dc, {0, 0, 200, 100}, Blue);
    ReleaseDC(main, dc);
    EXPECT_EQ(desk.look(child).at(25, 25), Red);
    EXPECT_EQ(desk.look(main).at(5, 5), Blue);
    EXPECT_EQ(desk.look(main).at(60, 60), Blue);
    EXPECT_EQ(desk.look(main).at(59, 59), Red);
}

TEST_F(WindowPainting, ChildrenAreCutByTheirParents) {
    const HWND child = openChild("child", main, {10, 10, 60, 60}, painter(Red));
    openChild("grandchild", child, {40, 40, 100, 100}, painter(Blue));
    desk.pump();
    EXPECT_EQ(desk.look(main).at(55, 55), Blue);
    EXPECT_EQ(desk.look(main).at(65, 65), GetSysColor(COLOR_WINDOW));
}

TEST_F(WindowPainting, ClippedSiblingsStayUnderTheOneOnTop) {
    const HWND below = openChild("below", main, {0, 0, 100, 100}, painter(Red), WS_CLIPSIBLINGS);
    const HWND above = openChild("above", main, {50, 50, 150, 150}, painter(Blue), WS_CLIPSIBLINGS);
    SetWindowPos(above, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    desk.pump();
    InvalidateRect(below, nullptr, TRUE_);
    desk.pump();
    EXPECT_EQ(desk.look(main).at(49, 49), Red);
    EXPECT_EQ(desk.look(main).at(75, 75), Blue);
    SetWindowPos(below, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    desk.pump();
    EXPECT_EQ(desk.look(main).at(75, 75), Red);
}

TEST_F(WindowPainting, WhatAChildUncoversIsPaintedAgain) {
    const HWND child = openChild("child", main, {10, 10, 60, 60}, painter(Red));
    desk.pump();
    EXPECT_EQ(desk.look(main).at(20, 20), Red);
    ShowWindow(child, SW_HIDE);
    desk.pump();
    EXPECT_EQ(desk.look(main).at(20, 20), GetSysColor(COLOR_WINDOW));
    ShowWindow(child, SW_SHOW);
    desk.pump();
    EXPECT_EQ(desk.look(main).at(20, 20), Red);
    SetWindowPos(child, {}, 80, 10, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    desk.pump();
    EXPECT_EQ(desk.look(main).at(20, 20), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(desk.look(main).at(129, 59), Red);
    DestroyWindow(child);
    desk.pump();
    EXPECT_EQ(desk.look(main).at(90, 20), GetSysColor(COLOR_WINDOW));
}

TEST_F(WindowPainting, AMovedChildKeepsItsPixels) {
    const HWND child = openChild("child", main, {10, 10, 60, 60}, painter(Red));
    desk.pump();
    const HDC dc = GetDC(child);
    fill(dc, {5, 5, 8, 8}, Blue);
    ReleaseDC(child, dc);
    journal.clear();
    SetWindowPos(child, {}, 12, 14, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    desk.pump();
    EXPECT_EQ(journal.of({WM_PAINT}), "main WM_PAINT");
    EXPECT_EQ(desk.look(child).at(6, 6), Blue);
    EXPECT_EQ(desk.look(child).at(20, 20), Red);
}

TEST_F(WindowPainting, GrownWindowsPaintWhatIsNew) {
    const HWND child = openChild("child", main, {0, 0, 50, 50}, painter(Red));
    desk.pump();
    journal.clear();
    SetWindowPos(child, {}, 0, 0, 80, 50, SWP_NOMOVE | SWP_NOZORDER);
    RECT update{};
    EXPECT_TRUE(GetUpdateRect(child, &update, FALSE_));
    EXPECT_EQ(update, (RECT{50, 0, 80, 50}));
    desk.pump();
    EXPECT_EQ(desk.look(child).at(79, 49), Red);
}

TEST_F(WindowPainting, AClassCanAskForAWholeRepaintOnResize) {
    Options options;
    options.style = WS_CHILD | WS_VISIBLE;
    options.parent = main;
    options.place = {0, 0, 50, 50};
    options.classStyle = CS_HREDRAW | CS_VREDRAW;
    const HWND child = open("child", options);
    desk.pump();
    SetWindowPos(child, {}, 0, 0, 80, 50, SWP_NOMOVE | SWP_NOZORDER);
    RECT update{};
    GetUpdateRect(child, &update, FALSE_);
    EXPECT_EQ(update, (RECT{0, 0, 80, 50}));
}

TEST_F(WindowPainting, ContextsBelongToTheirWindows) {
    const HDC dc = GetDC(main);
    ASSERT_TRUE(dc);
    EXPECT_EQ(WindowFromDC(dc), main);
    EXPECT_EQ(ReleaseDC(main, dc), 1);
    EXPECT_FALSE(WindowFromDC(dc));
    const HDC screen = GetDC({});
    EXPECT_TRUE(screen);
    EXPECT_EQ(GetDeviceCaps(screen, BITSPIXEL), 32);
    EXPECT_EQ(ReleaseDC({}, screen), 1);
}

TEST_F(WindowPainting, RedrawingCanBeSwitchedOff) {
    const HWND child = openChild("child", main, {0, 0, 50, 50});
    desk.pump();
    journal.clear();
    SendMessageA(child, WM_SETREDRAW, FALSE_, 0);
    InvalidateRect(child, nullptr, TRUE_);
    desk.pump();
    EXPECT_EQ(journal.count(WM_PAINT), 0);
    SendMessageA(child, WM_SETREDRAW, TRUE_, 0);
    InvalidateRect(child, nullptr, TRUE_);
    desk.pump();
    EXPECT_EQ(journal.of({WM_PAINT}), "child WM_PAINT");
}

} // namespace
