#include <gtest/gtest.h>

#include "platform/WindowProbe.h"

namespace {

using namespace platform;
using namespace probe;

class MessageQueue : public WindowTest {};

TEST_F(MessageQueue, SentMessagesReachTheProcedureAtOnce) {
    const HWND window = open("main", {.handler = [](const Seen& seen, LRESULT& result) {
                                 result = static_cast<LRESULT>(seen.wParam) + seen.lParam;
                                 return seen.message == WM_USER;
                             }});
    EXPECT_EQ(SendMessageA(window, WM_USER, 40, 2), 42);
    EXPECT_EQ(journal.count(WM_USER), 1);
}

TEST_F(MessageQueue, PostedMessagesWaitUntilRead) {
    const HWND window = open("main");
    ASSERT_TRUE(PostMessageA(window, WM_USER, 1, 2));
    EXPECT_EQ(journal.count(WM_USER), 0);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, window, WM_USER, WM_USER, PM_NOREMOVE));
    ASSERT_TRUE(PeekMessageA(&message, window, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(message.hwnd, window);
    EXPECT_EQ(message.wParam, 1u);
    EXPECT_EQ(message.lParam, 2);
    EXPECT_FALSE(PeekMessageA(&message, window, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(journal.count(WM_USER), 0);
    DispatchMessageA(&message);
    EXPECT_EQ(journal.count(WM_USER), 1);
}

TEST_F(MessageQueue, PostedMessagesKeepTheirOrder) {
    const HWND window = open("main");
    for (WPARAM i = 0; i < 5; ++i)
        PostMessageA(window, WM_APP + 1, i, 0);
    MSG message;
    for (WPARAM i = 0; i < 5; ++i) {
        ASSERT_TRUE(PeekMessageA(&message, {}, WM_APP + 1, WM_APP + 1, PM_REMOVE));
        EXPECT_EQ(message.wParam, i);
    }
}

TEST_F(MessageQueue, PostedComesBeforeInputBeforePaintBeforeTimer) {
    const HWND window = open("main", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    SetFocus(window);
    desk.pump();
    journal.clear();
    SetTimer(window, 1, 300, nullptr);
    desk.advance(320);
    InvalidateRect(window, nullptr, TRUE_);
    desk.pressKey(VK_F5);
    PostMessageA(window, WM_USER, 0, 0);
    desk.pump();
    KillTimer(window, 1);
    EXPECT_EQ(journal.of({WM_USER, WM_KEYDOWN, WM_PAINT, WM_TIMER}),
              "main WM_USER, main WM_KEYDOWN, main WM_PAINT, main WM_TIMER");
    desk.releaseKey(VK_F5);
}

TEST_F(MessageQueue, QuitComesAfterThePostedMessagesAndOnce) {
    const HWND window = open("main");
    PostQuitMessage(7);
    PostMessageA(window, WM_USER, 0, 0);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, {}, WM_USER, WM_QUIT + WM_USER, PM_REMOVE));
    EXPECT_EQ(message.message, WM_USER);
    bool quit = false;
    while (PeekMessageA(&message, {}, 0, 0, PM_REMOVE)) {
        if (message.message != WM_QUIT) continue;
        quit = true;
        EXPECT_EQ(message.wParam, 7u);
        break;
    }
    EXPECT_TRUE(quit);
    while (PeekMessageA(&message, {}, 0, 0, PM_REMOVE))
        EXPECT_NE(message.message, WM_QUIT);
}

TEST_F(MessageQueue, GetMessageReturnsZeroForQuit) {
    open("main");
    desk.pump();
    PostQuitMessage(3);
    MSG message;
    BOOL more = TRUE_;
    while ((more = GetMessageA(&message, {}, 0, 0)) > 0)
        DispatchMessageA(&message);
    EXPECT_EQ(more, 0);
    EXPECT_EQ(message.wParam, 3u);
}

TEST_F(MessageQueue, FilterTakesAWindowAndItsChildren) {
    const HWND a = open("a");
    const HWND child = openChild("child", a, {0, 0, 10, 10});
    const HWND b = open("b");
    PostMessageA(b, WM_USER, 0, 0);
    PostMessageA(child, WM_USER, 0, 0);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, a, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(message.hwnd, child);
    EXPECT_FALSE(PeekMessageA(&message, a, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_TRUE(PeekMessageA(&message, b, WM_USER, WM_USER, PM_REMOVE));
}

TEST_F(MessageQueue, ThreadMessagesHaveNoWindow) {
    ASSERT_TRUE(PostMessageA({}, WM_APP + 5, 9, 0));
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, {}, WM_APP + 5, WM_APP + 5, PM_REMOVE));
    EXPECT_FALSE(message.hwnd);
    EXPECT_EQ(message.wParam, 9u);
}

TEST_F(MessageQueue, MessagesOfADestroyedWindowAreGone) {
    const HWND window = open("main");
    PostMessageA(window, WM_USER, 0, 0);
    DestroyWindow(window);
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, {}, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_FALSE(PostMessageA(window, WM_USER, 0, 0));
    EXPECT_EQ(SendMessageA(window, WM_USER, 0, 0), 0);
}

TEST_F(MessageQueue, RegisteredMessagesShareANumberByName) {
    const UINT a = RegisterWindowMessageA("TeselaProbeA");
    EXPECT_GE(a, 0xC000u);
    EXPECT_EQ(a, RegisterWindowMessageA("TeselaProbeA"));
    EXPECT_NE(a, RegisterWindowMessageA("TeselaProbeB"));
}

class Timers : public WindowTest {};

TEST_F(Timers, TickWhenTheirTimeHasCome) {
    const HWND window = open("main");
    EXPECT_EQ(SetTimer(window, 5, 500, nullptr), 5u);
    desk.advance(300);
    desk.pump();
    EXPECT_EQ(journal.count(WM_TIMER), 0);
    desk.advance(300);
    desk.pump();
    EXPECT_EQ(journal.count(WM_TIMER), 1);
    EXPECT_EQ(journal.last(WM_TIMER).wParam, 5u);
}

TEST_F(Timers, LateTicksAreOne) {
    const HWND window = open("main");
    SetTimer(window, 1, 150, nullptr);
    desk.advance(400);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, window, WM_TIMER, WM_TIMER, PM_REMOVE));
    EXPECT_FALSE(PeekMessageA(&message, window, WM_TIMER, WM_TIMER, PM_REMOVE));
}

TEST_F(Timers, SettingARunningOneStartsItAfresh) {
    const HWND window = open("main");
    SetTimer(window, 1, 400, nullptr);
    desk.advance(250);
    SetTimer(window, 1, 800, nullptr);
    desk.advance(250);
    desk.pump();
    EXPECT_EQ(journal.count(WM_TIMER), 0);
}

TEST_F(Timers, KilledOnesAreSilentAndUnknown) {
    const HWND window = open("main");
    SetTimer(window, 1, 50, nullptr);
    EXPECT_TRUE(KillTimer(window, 1));
    EXPECT_FALSE(KillTimer(window, 1));
    desk.advance(100);
    desk.pump();
    EXPECT_EQ(journal.count(WM_TIMER), 0);
}

int ticks = 0;

TEST_F(Timers, AProcedureIsCalledInsteadOfTheWindow) {
    const HWND window = open("main");
    ticks = 0;
    SetTimer(window, 1, 300,
             [](HWND, UINT message, UINT_PTR id, DWORD) { ticks += message == WM_TIMER && id == 1; });
    desk.advance(320);
    desk.pump();
    KillTimer(window, 1);
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(journal.count(WM_TIMER), 0);
}

TEST_F(Timers, WithoutAWindowGetANumber) {
    ticks = 0;
    const UINT_PTR id = SetTimer({}, 0, 300, [](HWND, UINT, UINT_PTR, DWORD) { ++ticks; });
    ASSERT_NE(id, 0u);
    desk.advance(320);
    desk.pump();
    EXPECT_EQ(ticks, 1);
    EXPECT_TRUE(KillTimer({}, id));
}

TEST_F(Timers, GoWithTheirWindow) {
    const HWND window = open("main");
    SetTimer(window, 1, 50, nullptr);
    DestroyWindow(window);
    journal.clear();
    desk.advance(100);
    desk.pump();
    EXPECT_EQ(journal.count(WM_TIMER), 0);
    EXPECT_FALSE(KillTimer(window, 1));
}

} // namespace
