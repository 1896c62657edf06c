#include <gtest/gtest.h>

#include "platform/WindowProbe.h"

namespace {

using namespace platform;
using namespace probe;

class WindowPosition : public WindowTest {
protected:
    WindowPosition() {
        main = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
        a = openChild("a", main, {0, 0, 40, 20});
        b = openChild("b", main, {10, 5, 60, 30});
        c = openChild("c", main, {20, 10, 80, 40});
        journal.clear();
    }

    /// The children from top to bottom, by the first letters of their names.
    std::string order() const {
        std::string line;
        for (HWND w = GetTopWindow(main); w; w = GetWindow(w, GW_HWNDNEXT)) {
            char name[8];
            GetWindowTextA(w, name, sizeof name);
            line += name[0];
        }
        return line;
    }

    HWND main;
    HWND a;
    HWND b;
    HWND c;
};

TEST_F(WindowPosition, SizeAndPlaceAreTold) {
    EXPECT_TRUE(SetWindowPos(a, {}, 5, 6, 70, 80, SWP_NOZORDER));
    EXPECT_EQ(journal.of({WM_WINDOWPOSCHANGED, WM_MOVE, WM_SIZE}),
              "a WM_WINDOWPOSCHANGED, a WM_MOVE, a WM_SIZE");
    EXPECT_EQ(journal.last(WM_SIZE).lParam, MAKELPARAM(70, 80));
    EXPECT_EQ(journal.last(WM_MOVE).lParam, MAKELPARAM(5, 6));
    RECT client{};
    GetClientRect(a, &client);
    EXPECT_EQ(client, (RECT{0, 0, 70, 80}));
}

TEST_F(WindowPosition, WhatDoesNotChangeIsNotTold) {
    SetWindowPos(a, {}, 0, 0, 40, 20, SWP_NOZORDER);
    EXPECT_EQ(journal.of({WM_MOVE, WM_SIZE}), "");
    SetWindowPos(a, {}, 0, 0, 41, 20, SWP_NOZORDER);
    EXPECT_EQ(journal.of({WM_MOVE, WM_SIZE}), "a WM_SIZE");
    journal.clear();
    MoveWindow(a, 3, 0, 41, 20, TRUE_);
    EXPECT_EQ(journal.of({WM_MOVE, WM_SIZE}), "a WM_MOVE");
}

TEST_F(WindowPosition, AWindowCanChangeWhatIsComing) {
    const HWND bounded = openChild("bounded", main, {0, 0, 10, 10}, [](const Seen& seen, LRESULT&) {
        if (seen.message == WM_WINDOWPOSCHANGING) reinterpret_cast<WINDOWPOS*>(seen.lParam)->cx = 33;
        return false;
    });
    SetWindowPos(bounded, {}, 0, 0, 90, 10, SWP_NOMOVE | SWP_NOZORDER);
    RECT client{};
    GetClientRect(bounded, &client);
    EXPECT_EQ(client.right, 33);
}

TEST_F(WindowPosition, NewChildrenGoBelowTheirSiblings) {
    EXPECT_EQ(order(), "abc");
    EXPECT_EQ(GetWindow(main, GW_CHILD), a);
    EXPECT_EQ(GetTopWindow(main), a);
}

TEST_F(WindowPosition, OrderIsChangedByHandle) {
    SetWindowPos(c, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    SetWindowPos(a, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(order(), "cba");
    SetWindowPos(c, a, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(order(), "bac");
    SetWindowPos(c, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(order(), "bac");
    EXPECT_EQ(GetWindow(a, GW_HWNDPREV), b);
    EXPECT_EQ(GetWindow(a, GW_HWNDNEXT), c);
    EXPECT_EQ(GetWindow(a, GW_HWNDFIRST), b);
    EXPECT_EQ(GetWindow(a, GW_HWNDLAST), c);
    EXPECT_FALSE(GetWindow(b, GW_HWNDPREV));
}

TEST_F(WindowPosition, TheTopmostChildIsHit) {
    SetWindowPos(b, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(WindowFromPoint(onScreen(main, 25, 15)), b);
    SetWindowPos(c, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(WindowFromPoint(onScreen(main, 25, 15)), c);
    ShowWindow(c, SW_HIDE);
    EXPECT_EQ(WindowFromPoint(onScreen(main, 25, 15)), b);
    EXPECT_EQ(ChildWindowFromPoint(main, {25, 15}), c);
    EXPECT_EQ(ChildWindowFromPoint(main, {200, 150}), main);
    EXPECT_FALSE(ChildWindowFromPoint(main, {-1, -1}));
}

TEST_F(WindowPosition, AWindowCanLetPointsThrough) {
    const HWND glass = openChild("glass", main, {0, 0, 100, 100}, [](const Seen& seen, LRESULT& result) {
        result = HTTRANSPARENT;
        return seen.message == WM_NCHITTEST;
    });
    SetWindowPos(glass, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(WindowFromPoint(onScreen(main, 2, 2)), a);
}

TEST_F(WindowPosition, CoordinatesAreMapped) {
    RECT frame{};
    GetWindowRect(main, &frame);
    EXPECT_EQ(frame, (RECT{100, 100, 400, 300}));
    POINT corner{};
    ClientToScreen(main, &corner);
    RECT wanted{0, 0, 10, 10};
    AdjustWindowRectEx(&wanted, WS_OVERLAPPEDWINDOW, FALSE_, 0);
    EXPECT_EQ(corner.x - frame.left, -wanted.left);
    EXPECT_EQ(corner.y - frame.top, -wanted.top);
    POINT point{1, 2};
    MapWindowPoints(c, a, &point, 1);
    EXPECT_EQ(point, (POINT{21, 12}));
    MapWindowPoints(a, {}, &point, 1);
    EXPECT_EQ(point, (POINT{corner.x + 21, corner.y + 12}));
    ScreenToClient(main, &point);
    EXPECT_EQ(point, (POINT{21, 12}));
}

TEST_F(WindowPosition, TheFrameTakesItsPartOfTheWindow) {
    RECT client{};
    GetClientRect(main, &client);
    RECT frame{0, 0, client.right, client.bottom};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongA(main, GWL_STYLE)), FALSE_,
                       static_cast<DWORD>(GetWindowLongA(main, GWL_EXSTYLE)));
    EXPECT_EQ(frame.right - frame.left, 300);
    EXPECT_EQ(frame.bottom - frame.top, 200);
}

TEST_F(WindowPosition, BordersNarrowTheClientArea) {
    const HWND plain = openChild("plain", main, {0, 0, 50, 50}, {}, WS_BORDER);
    RECT client{};
    GetClientRect(plain, &client);
    EXPECT_EQ(client, (RECT{0, 0, 48, 48}));
    Options options;
    options.style = WS_CHILD;
    options.exStyle = WS_EX_CLIENTEDGE;
    options.parent = main;
    options.place = {0, 0, 50, 50};
    const HWND sunken = open("sunken", options);
    GetClientRect(sunken, &client);
    EXPECT_EQ(client, (RECT{0, 0, 46, 46}));
}

TEST_F(WindowPosition, StyleChangesShowWithTheNextFrameChange) {
    SetWindowLongA(a, GWL_STYLE, GetWindowLongA(a, GWL_STYLE) | static_cast<LONG>(WS_BORDER));
    SetWindowPos(a, {}, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
    RECT client{};
    GetClientRect(a, &client);
    EXPECT_EQ(client, (RECT{0, 0, 38, 18}));
}

TEST_F(WindowPosition, TheTreeIsKnown) {
    EXPECT_EQ(GetParent(a), main);
    EXPECT_TRUE(IsChild(main, a));
    EXPECT_FALSE(IsChild(a, main));
    EXPECT_FALSE(IsChild(main, main));
    EXPECT_FALSE(GetParent(main));
    EXPECT_TRUE(GetDesktopWindow());
    EXPECT_EQ(FindWindowA(nullptr, "main"), main);
}

TEST_F(WindowPosition, ChildrenCanMoveToAnotherParent) {
    EXPECT_EQ(SetParent(a, b), main);
    EXPECT_EQ(GetParent(a), b);
    EXPECT_TRUE(IsChild(b, a));
    EXPECT_EQ(order().find('a'), std::string::npos);
    DestroyWindow(b);
    EXPECT_FALSE(IsWindow(a));
}

TEST_F(WindowPosition, MaximisingFillsTheWorkAreaAndRestoringGoesBack) {
    RECT area{};
    ASSERT_TRUE(SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0));
    ShowWindow(main, SW_SHOWMAXIMIZED);
    EXPECT_TRUE(IsZoomed(main));
    EXPECT_EQ(journal.last(WM_SIZE).wParam, SIZE_MAXIMIZED);
    RECT frame{};
    GetWindowRect(main, &frame);
    EXPECT_LE(frame.left, area.left);
    EXPECT_GE(frame.right, area.right);
    ShowWindow(main, SW_RESTORE);
    EXPECT_FALSE(IsZoomed(main));
    GetWindowRect(main, &frame);
    EXPECT_EQ(frame, (RECT{100, 100, 400, 300}));
}

TEST_F(WindowPosition, MinimisingAndRestoringTellTheSize) {
    ShowWindow(main, SW_MINIMIZE);
    EXPECT_TRUE(IsIconic(main));
    EXPECT_EQ(journal.last(WM_SIZE).wParam, SIZE_MINIMIZED);
    EXPECT_EQ(journal.last(WM_SIZE).lParam, 0);
    ShowWindow(main, SW_RESTORE);
    EXPECT_FALSE(IsIconic(main));
    EXPECT_EQ(journal.last(WM_SIZE).wParam, SIZE_RESTORED);
    RECT client{};
    GetClientRect(main, &client);
    EXPECT_EQ(journal.last(WM_SIZE).lParam, MAKELPARAM(client.right, client.bottom));
}

TEST_F(WindowPosition, SizeableWindowsKeepASmallestSize) {
    SetWindowPos(main, {}, 0, 0, 500, 400, SWP_NOMOVE | SWP_NOZORDER);
    RECT frame{};
    GetWindowRect(main, &frame);
    EXPECT_EQ(frame.right - frame.left, 500);
    const HWND tiny = open("tiny", {.style = WS_OVERLAPPEDWINDOW, .place = {0, 0, 5, 5}});
    GetWindowRect(tiny, &frame);
    EXPECT_EQ(frame.right - frame.left, GetSystemMetrics(SM_CXMINTRACK));
    EXPECT_EQ(frame.bottom - frame.top, GetSystemMetrics(SM_CYMINTRACK));
}

} // namespace
