#include <gtest/gtest.h>

#include "platform/WindowProbe.h"

namespace {

using namespace platform;
using namespace probe;

class WindowFocus : public WindowTest {
protected:
    WindowFocus() {
        main = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
        a = openChild("a", main, {0, 0, 80, 20});
        b = openChild("b", main, {0, 30, 80, 50});
        SetFocus(a);
        desk.pump();
        journal.clear();
    }

    HWND main;
    HWND a;
    HWND b;
};

TEST_F(WindowFocus, MovesWithKillBeforeSet) {
    EXPECT_EQ(SetFocus(b), a);
    EXPECT_EQ(GetFocus(), b);
    EXPECT_EQ(journal.of({WM_KILLFOCUS, WM_SETFOCUS}), "a WM_KILLFOCUS, b WM_SETFOCUS");
    EXPECT_EQ(journal.last(WM_KILLFOCUS).wParam, b.value);
    EXPECT_EQ(journal.last(WM_SETFOCUS).wParam, a.value);
}

TEST_F(WindowFocus, SettingItAgainSaysNothing) {
    EXPECT_EQ(SetFocus(a), a);
    EXPECT_EQ(journal.of({WM_KILLFOCUS, WM_SETFOCUS}), "");
}

TEST_F(WindowFocus, CanGoToNobody) {
    EXPECT_EQ(SetFocus({}), a);
    EXPECT_FALSE(GetFocus());
    EXPECT_EQ(journal.of({WM_KILLFOCUS, WM_SETFOCUS}), "a WM_KILLFOCUS");
}

TEST_F(WindowFocus, IsRefusedByDisabledWindowsAndTheirChildren) {
    EnableWindow(b, FALSE_);
    EXPECT_FALSE(SetFocus(b));
    EXPECT_EQ(GetFocus(), a);
    const HWND inner = openChild("inner", b, {0, 0, 10, 10});
    EXPECT_FALSE(SetFocus(inner));
    EXPECT_EQ(GetFocus(), a);
}

TEST_F(WindowFocus, IsLostByDisabling) {
    EXPECT_FALSE(EnableWindow(a, FALSE_));
    EXPECT_FALSE(IsWindowEnabled(a));
    EXPECT_FALSE(GetFocus());
    EXPECT_EQ(journal.of({WM_CANCELMODE, WM_KILLFOCUS, WM_ENABLE}),
              "a WM_CANCELMODE, a WM_KILLFOCUS, a WM_ENABLE");
    EXPECT_TRUE(EnableWindow(a, TRUE_));
    EXPECT_TRUE(IsWindowEnabled(a));
    EXPECT_EQ(journal.last(WM_ENABLE).wParam, 1u);
}

TEST_F(WindowFocus, EnablingTwiceSaysNothing) {
    EXPECT_FALSE(EnableWindow(a, TRUE_));
    EXPECT_EQ(journal.count(WM_ENABLE), 0);
}

TEST_F(WindowFocus, GoesToTheParentWhenItsWindowHides) {
    ShowWindow(a, SW_HIDE);
    EXPECT_EQ(GetFocus(), main);
}

TEST_F(WindowFocus, InAnotherTopLevelWindowActivatesIt) {
    const HWND other = open("other", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const HWND field = openChild("field", other, {0, 0, 10, 10});
    EXPECT_EQ(GetActiveWindow(), other);
    SetFocus(a);
    EXPECT_EQ(GetActiveWindow(), main);
    journal.clear();
    SetFocus(field);
    EXPECT_EQ(GetActiveWindow(), other);
    EXPECT_EQ(GetForegroundWindow(), other);
    EXPECT_EQ(GetFocus(), field);
    EXPECT_EQ(journal.of({WM_NCACTIVATE, WM_ACTIVATE}),
              "main WM_NCACTIVATE, main WM_ACTIVATE, other WM_NCACTIVATE, other WM_ACTIVATE");
}

TEST_F(WindowFocus, ActivationTellsWhoWasAndWhoWillBe) {
    const HWND other = open("other", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    SetActiveWindow(main);
    journal.clear();
    EXPECT_EQ(SetActiveWindow(other), main);
    ASSERT_EQ(journal.count(WM_ACTIVATE), 2);
    for (const Seen& seen : journal.seen()) {
        if (seen.message != WM_ACTIVATE) continue;
        EXPECT_EQ(LOWORD(seen.wParam), seen.window == other ? WA_ACTIVE : WA_INACTIVE);
        EXPECT_EQ(static_cast<std::uint32_t>(seen.lParam), seen.window == other ? main.value : other.value);
    }
}

TEST_F(WindowFocus, AModalDialogKeepsItsOwnerOut) {
    Options options;
    options.style = WS_POPUP | WS_CAPTION | WS_VISIBLE;
    options.parent = main;
    options.place = {500, 100, 700, 200};
    const HWND dialog = open("dialog", options);
    EnableWindow(main, FALSE_);
    EXPECT_FALSE(SetFocus(a));
    EXPECT_EQ(GetActiveWindow(), dialog);
    journal.clear();
    desk.click(middleOf(a));
    desk.pump();
    EXPECT_EQ(journal.count(WM_LBUTTONDOWN), 0);
    EXPECT_EQ(GetActiveWindow(), dialog);
    EnableWindow(main, TRUE_);
    DestroyWindow(dialog);
    EXPECT_EQ(GetActiveWindow(), main);
}

TEST_F(WindowFocus, ClosingTheActiveWindowActivatesAnother) {
    const HWND other = open("other", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    ASSERT_EQ(GetActiveWindow(), other);
    DestroyWindow(other);
    EXPECT_EQ(GetActiveWindow(), main);
}

TEST_F(WindowFocus, ShownWithoutActivationStaysBehind) {
    const HWND other = open("other");
    ShowWindow(other, SW_SHOWNOACTIVATE);
    EXPECT_TRUE(IsWindowVisible(other));
    EXPECT_EQ(GetActiveWindow(), main);
    EXPECT_EQ(GetFocus(), a);
}

} // namespace
