#include <gtest/gtest.h>

#include "platform/WindowProbe.h"

namespace {

using namespace platform;
using namespace probe;

class WindowInput : public WindowTest {
protected:
    WindowInput() {
        main = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
        field = openChild("field", main, {10, 10, 110, 40});
        SetFocus(field);
        desk.moveMouse({5, 5});
        desk.pump();
        journal.clear();
    }

    std::string typed() const {
        std::string bytes;
        for (const Seen& seen : journal.seen())
            if (seen.message == WM_CHAR) bytes += static_cast<char>(seen.wParam);
        return bytes;
    }

    HWND main;
    HWND field;
};

TEST_F(WindowInput, KeysGoToTheFocusWindow) {
    desk.strikeKey('A');
    desk.pump();
    EXPECT_EQ(journal.of({WM_KEYDOWN, WM_CHAR, WM_KEYUP}), "field WM_KEYDOWN, field WM_CHAR, field WM_KEYUP");
    EXPECT_EQ(journal.last(WM_KEYDOWN).wParam, static_cast<WPARAM>('A'));
    EXPECT_EQ(typed(), "a");
}

TEST_F(WindowInput, ShiftTypesCapitals) {
    desk.pressKey(VK_SHIFT);
    desk.strikeKey('A');
    desk.releaseKey(VK_SHIFT);
    desk.pump();
    EXPECT_EQ(typed(), "A");
}

TEST_F(WindowInput, ControlKeysTypeControlCharacters) {
    desk.pressKey(VK_CONTROL);
    desk.strikeKey('C');
    desk.releaseKey(VK_CONTROL);
    desk.strikeKey(VK_RETURN);
    desk.strikeKey(VK_BACK);
    desk.strikeKey(VK_ESCAPE);
    desk.strikeKey(VK_TAB);
    desk.pump();
    EXPECT_EQ(typed(), "\x03\r\b\x1B\t");
}

TEST_F(WindowInput, KeysWithoutCharactersTypeNothing) {
    for (const int key : {VK_LEFT, VK_HOME, VK_F5, VK_DELETE, VK_INSERT, VK_PRIOR})
        desk.strikeKey(key);
    desk.pump();
    EXPECT_EQ(journal.count(WM_KEYDOWN), 6);
    EXPECT_EQ(typed(), "");
}

TEST_F(WindowInput, TextArrivesAsBytesOfTheAnsiPage) {
    desk.type(u"\u00C1rbol, a\u00F1o 5 \u20AC; \u00E7 \u00FC");
    desk.pump();
    EXPECT_EQ(typed(), "\xC1rbol, a\xF1o 5 \x80; \xE7 \xFC");
}

TEST_F(WindowInput, AltMakesSystemKeys) {
    desk.pressKey(VK_MENU);
    desk.strikeKey('X');
    desk.releaseKey(VK_MENU);
    desk.pump();
    EXPECT_EQ(journal.of({WM_SYSKEYDOWN, WM_SYSCHAR, WM_KEYDOWN, WM_CHAR}),
              "field WM_SYSKEYDOWN, field WM_SYSKEYDOWN, field WM_SYSCHAR");
    EXPECT_EQ(journal.last(WM_SYSCHAR).wParam, static_cast<WPARAM>('x'));
    EXPECT_TRUE(journal.last(WM_SYSCHAR).lParam & (1 << 29));
}

TEST_F(WindowInput, WithoutFocusKeysGoToTheActiveWindowAsSystemKeys) {
    SetFocus({});
    desk.strikeKey('A');
    desk.pump();
    EXPECT_EQ(journal.of({WM_KEYDOWN, WM_SYSKEYDOWN}), "main WM_SYSKEYDOWN");
}

TEST_F(WindowInput, KeyStateFollowsTheMessagesRead) {
    desk.pressKey(VK_CONTROL);
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
    EXPECT_LT(GetAsyncKeyState(VK_CONTROL), 0);
    desk.pump();
    EXPECT_LT(GetKeyState(VK_CONTROL), 0);
    desk.releaseKey(VK_CONTROL);
    EXPECT_LT(GetKeyState(VK_CONTROL), 0);
    desk.pump();
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
}

TEST_F(WindowInput, EachPressTurnsTheToggle) {
    const int before = GetKeyState(VK_INSERT) & 1;
    desk.strikeKey(VK_INSERT);
    desk.pump();
    EXPECT_NE(GetKeyState(VK_INSERT) & 1, before);
    desk.strikeKey(VK_INSERT);
    desk.pump();
    EXPECT_EQ(GetKeyState(VK_INSERT) & 1, before);
}

TEST_F(WindowInput, KeyboardStateCanBeSet) {
    BYTE states[256];
    ASSERT_TRUE(GetKeyboardState(states));
    const BYTE former = states[VK_INSERT];
    states[VK_INSERT] = 1;
    ASSERT_TRUE(SetKeyboardState(states));
    EXPECT_EQ(GetKeyState(VK_INSERT) & 1, 1);
    states[VK_INSERT] = former;
    SetKeyboardState(states);
    EXPECT_EQ(GetKeyState(VK_INSERT) & 1, former & 1);
}

TEST_F(WindowInput, PlayedKeysArriveThroughTheQueue) {
    keybd_event(VK_TAB, 0, 0, 0);
    keybd_event(VK_TAB, 0, KEYEVENTF_KEYUP, 0);
    EXPECT_EQ(journal.count(WM_KEYDOWN), 0);
    desk.pump();
    EXPECT_EQ(journal.of({WM_KEYDOWN, WM_KEYUP}), "field WM_KEYDOWN, field WM_KEYUP");
    EXPECT_EQ(journal.last(WM_KEYDOWN).wParam, static_cast<WPARAM>(VK_TAB));
}

TEST_F(WindowInput, ClicksGoToTheWindowUnderThePointer) {
    desk.click(onScreen(field, 7, 9));
    desk.pump();
    EXPECT_EQ(journal.of({WM_PARENTNOTIFY, WM_SETCURSOR, WM_LBUTTONDOWN, WM_LBUTTONUP})
                      .find("main WM_PARENTNOTIFY") != std::string::npos,
              true);
    EXPECT_EQ(journal.of({WM_LBUTTONDOWN, WM_LBUTTONUP}), "field WM_LBUTTONDOWN, field WM_LBUTTONUP");
    EXPECT_EQ(journal.last(WM_LBUTTONDOWN).lParam, MAKELPARAM(7, 9));
    EXPECT_EQ(journal.last(WM_LBUTTONDOWN).wParam, MK_LBUTTON);
    EXPECT_EQ(journal.last(WM_LBUTTONUP).wParam, 0u);
}

TEST_F(WindowInput, TheCursorIsSetBeforeThePress) {
    desk.click(onScreen(field, 7, 9));
    desk.pump();
    const std::string line = journal.of({WM_SETCURSOR, WM_LBUTTONDOWN});
    EXPECT_LT(line.find("WM_SETCURSOR"), line.find("WM_LBUTTONDOWN"));
    EXPECT_EQ(LOWORD(static_cast<std::uintptr_t>(journal.last(WM_SETCURSOR).lParam)), HTCLIENT);
}

TEST_F(WindowInput, CaptureDrawsTheMouseFromOutside) {
    SetCapture(field);
    EXPECT_EQ(GetCapture(), field);
    desk.click(onScreen(main, 150, 120));
    desk.pump();
    EXPECT_EQ(journal.of({WM_LBUTTONDOWN, WM_LBUTTONUP}), "field WM_LBUTTONDOWN, field WM_LBUTTONUP");
    EXPECT_EQ(journal.last(WM_LBUTTONDOWN).lParam, MAKELPARAM(140, 110));
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_FALSE(GetCapture());
    EXPECT_EQ(journal.count(WM_CAPTURECHANGED), 1);
}

TEST_F(WindowInput, CaptureTakenByAnotherIsTold) {
    SetCapture(field);
    EXPECT_EQ(SetCapture(main), field);
    EXPECT_EQ(journal.of({WM_CAPTURECHANGED}), "field WM_CAPTURECHANGED");
    EXPECT_EQ(static_cast<std::uint32_t>(journal.last(WM_CAPTURECHANGED).lParam), main.value);
    ReleaseCapture();
}

TEST_F(WindowInput, DoubleClicksNeedTheClassToAskForThem) {
    Options options;
    options.style = WS_CHILD | WS_VISIBLE;
    options.parent = main;
    options.place = {10, 60, 110, 90};
    options.classStyle = CS_DBLCLKS;
    const HWND button = open("button", options);
    desk.doubleClick(middleOf(button));
    desk.pump();
    EXPECT_EQ(journal.of({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_LBUTTONUP}),
              "button WM_LBUTTONDOWN, button WM_LBUTTONUP, button WM_LBUTTONDBLCLK, button WM_LBUTTONUP");
    journal.clear();
    desk.doubleClick(middleOf(field));
    desk.pump();
    EXPECT_EQ(journal.of({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK}), "field WM_LBUTTONDOWN, field WM_LBUTTONDOWN");
}

TEST_F(WindowInput, SlowClicksAreTwo) {
    Options options;
    options.style = WS_CHILD | WS_VISIBLE;
    options.parent = main;
    options.place = {10, 60, 110, 90};
    options.classStyle = CS_DBLCLKS;
    const HWND button = open("button", options);
    desk.click(middleOf(button));
    desk.pump();
    desk.advance(GetDoubleClickTime() + 50);
    desk.click(middleOf(button));
    desk.pump();
    EXPECT_EQ(journal.count(WM_LBUTTONDBLCLK), 0);
}

TEST_F(WindowInput, DisabledChildrenLetTheMouseThroughToTheirParent) {
    EnableWindow(field, FALSE_);
    journal.clear();
    desk.click(onScreen(field, 5, 5));
    desk.pump();
    EXPECT_EQ(journal.of({WM_LBUTTONDOWN}), "main WM_LBUTTONDOWN");
}

TEST_F(WindowInput, ThePointerIsWhereItWasMoved) {
    const POINT at = onScreen(field, 20, 15);
    desk.moveMouse(at);
    desk.pump();
    POINT now{};
    ASSERT_TRUE(GetCursorPos(&now));
    EXPECT_EQ(now, at);
    EXPECT_EQ(journal.last(WM_MOUSEMOVE).window, field);
    EXPECT_EQ(journal.last(WM_MOUSEMOVE).lParam, MAKELPARAM(20, 15));
}

TEST_F(WindowInput, TheRightButtonAsksForAContextMenu) {
    desk.click(onScreen(field, 5, 6), VK_RBUTTON);
    desk.pump();
    EXPECT_EQ(journal.of({WM_RBUTTONDOWN, WM_RBUTTONUP, WM_CONTEXTMENU}),
              "field WM_RBUTTONDOWN, field WM_RBUTTONUP, field WM_CONTEXTMENU, main WM_CONTEXTMENU");
    const POINT at = onScreen(field, 5, 6);
    EXPECT_EQ(journal.last(WM_CONTEXTMENU).lParam, MAKELPARAM(at.x, at.y));
}

TEST_F(WindowInput, AClickActivatesItsWindow) {
    Options options;
    options.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
    options.place = {600, 100, 800, 300};
    const HWND other = open("other", options);
    ASSERT_EQ(GetActiveWindow(), other);
    journal.clear();
    desk.click(middleOf(field));
    desk.pump();
    EXPECT_EQ(GetActiveWindow(), main);
    EXPECT_EQ(LOWORD(journal.last(WM_ACTIVATE).wParam), WA_CLICKACTIVE);
    const std::string line = journal.of({WM_MOUSEACTIVATE, WM_ACTIVATE, WM_LBUTTONDOWN});
    EXPECT_LT(line.find("field WM_MOUSEACTIVATE"), line.find("main WM_ACTIVATE"));
    EXPECT_LT(line.find("main WM_ACTIVATE"), line.find("field WM_LBUTTONDOWN"));
}

TEST_F(WindowInput, AWindowCanRefuseToBeActivated) {
    Options options;
    options.style = WS_POPUP | WS_VISIBLE;
    options.place = {600, 100, 800, 300};
    options.handler = [](const Seen& seen, LRESULT& result) {
        result = MA_NOACTIVATE;
        return seen.message == WM_MOUSEACTIVATE;
    };
    const HWND keys = open("keys", options);
    SetFocus(field);
    desk.pump();
    journal.clear();
    desk.click(middleOf(keys));
    desk.pump();
    EXPECT_EQ(GetActiveWindow(), main);
    EXPECT_EQ(GetFocus(), field);
    EXPECT_EQ(journal.of({WM_LBUTTONDOWN}), "keys WM_LBUTTONDOWN");
}

TEST_F(WindowInput, TheDefaultPassesTheWheelUp) {
    desk.moveMouse(middleOf(field));
    desk.turnWheel(1);
    desk.pump();
    EXPECT_EQ(journal.of({WM_MOUSEWHEEL}), "field WM_MOUSEWHEEL, main WM_MOUSEWHEEL");
    EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(journal.last(WM_MOUSEWHEEL).wParam), WHEEL_DELTA);
}

} // namespace
