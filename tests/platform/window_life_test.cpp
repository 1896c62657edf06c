#include <gtest/gtest.h>

#include "platform/WindowProbe.h"

namespace {

using namespace platform;
using namespace probe;

class WindowLife : public WindowTest {};

TEST_F(WindowLife, CreationSendsItsMessagesInOrder) {
    const HWND parent = open("parent");
    journal.clear();
    openChild("child", parent, {0, 0, 50, 40});
    EXPECT_EQ(journal.of({WM_NCCREATE, WM_CREATE, WM_SIZE, WM_MOVE, WM_SHOWWINDOW}),
              "child WM_NCCREATE, child WM_CREATE, child WM_SIZE, child WM_MOVE, child WM_SHOWWINDOW");
}

TEST_F(WindowLife, RefusedCreationLeavesNoWindow) {
    const auto refuse = [](UINT refused, LRESULT answer) {
        return [=](const Seen& seen, LRESULT& result) {
            result = answer;
            return seen.message == refused;
        };
    };
    EXPECT_FALSE(open("a", {.handler = refuse(WM_NCCREATE, 0)}));
    EXPECT_FALSE(open("b", {.handler = refuse(WM_CREATE, -1)}));
    EXPECT_EQ(journal.of({WM_NCDESTROY}), "a WM_NCDESTROY, b WM_NCDESTROY");
}

TEST_F(WindowLife, CreationFailsForUnknownClassesAndDeadParents) {
    const HWND dead = open("dead");
    DestroyWindow(dead);
    EXPECT_FALSE(CreateWindowExA(0, "NoSuchProbeClass", "", 0, 0, 0, 10, 10, {}, {}, {}, nullptr));
    EXPECT_FALSE(openChild("child", dead, {0, 0, 10, 10}));
}

TEST_F(WindowLife, CreateRecordTellsWhatWasAskedFor) {
    CREATESTRUCTA record;
    std::string name;
    const Handler keep = [&](const Seen& seen, LRESULT&) {
        if (seen.message != WM_CREATE) return false;
        record = *reinterpret_cast<CREATESTRUCTA*>(seen.lParam);
        name = record.lpszName;
        return false;
    };
    open("main", {.place = {10, 20, 210, 320}, .handler = keep});
    EXPECT_EQ(record.x, 10);
    EXPECT_EQ(record.y, 20);
    EXPECT_EQ(record.cx, 200);
    EXPECT_EQ(record.cy, 300);
    EXPECT_EQ(name, "main");
}

TEST_F(WindowLife, DestroyGoesFromOutsideInAndBack) {
    const HWND parent = open("parent");
    const HWND child = openChild("child", parent, {0, 0, 50, 40});
    openChild("grandchild", child, {0, 0, 10, 10});
    journal.clear();
    EXPECT_TRUE(DestroyWindow(parent));
    EXPECT_EQ(journal.of({WM_DESTROY, WM_NCDESTROY}),
              "parent WM_DESTROY, child WM_DESTROY, grandchild WM_DESTROY, grandchild WM_NCDESTROY, child "
              "WM_NCDESTROY, parent WM_NCDESTROY");
    EXPECT_FALSE(IsWindow(child));
}

TEST_F(WindowLife, OwnedWindowsGoBeforeTheirOwner) {
    const HWND owner = open("owner");
    Options options;
    options.parent = owner;
    options.style = WS_POPUP | WS_CAPTION;
    const HWND owned = open("owned", options);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), owner);
    EXPECT_EQ(GetParent(owned), owner);
    journal.clear();
    DestroyWindow(owner);
    EXPECT_EQ(journal.of({WM_DESTROY}), "owned WM_DESTROY, owner WM_DESTROY");
    EXPECT_FALSE(IsWindow(owned));
}

TEST_F(WindowLife, CloseDestroysByDefaultAndCanBeRefused) {
    const HWND window = open("main");
    const HWND stubborn =
        open("stubborn", {.handler = [](const Seen& seen, LRESULT&) { return seen.message == WM_CLOSE; }});
    SendMessageA(window, WM_CLOSE, 0, 0);
    SendMessageA(stubborn, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_TRUE(IsWindow(stubborn));
}

TEST_F(WindowLife, DeadHandlesFailEverywhere) {
    const HWND window = open("main");
    DestroyWindow(window);
    RECT rect{};
    POINT point{};
    MSG message;
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(DestroyWindow(window));
    EXPECT_FALSE(ShowWindow(window, SW_SHOW));
    EXPECT_FALSE(SetWindowPos(window, {}, 0, 0, 1, 1, 0));
    EXPECT_FALSE(GetWindowRect(window, &rect));
    EXPECT_FALSE(GetClientRect(window, &rect));
    EXPECT_FALSE(ClientToScreen(window, &point));
    EXPECT_FALSE(SetFocus(window));
    EXPECT_FALSE(SetCapture(window));
    EXPECT_FALSE(GetDC(window));
    EXPECT_FALSE(SetTimer(window, 1, 10, nullptr));
    EXPECT_FALSE(SetWindowTextA(window, "x"));
    EXPECT_FALSE(InvalidateRect(window, nullptr, TRUE_));
    EXPECT_FALSE(CreateCaret(window, {}, 1, 10));
    EXPECT_FALSE(PeekMessageA(&message, window, 0, 0, PM_REMOVE));
    EXPECT_EQ(GetWindowLongA(window, GWL_STYLE), 0);
    EXPECT_FALSE(GetParent(window));
    EXPECT_FALSE(IsWindow(HWND(0x12345)));
}

TEST_F(WindowLife, AReusedPlaceDoesNotReviveTheOldHandle) {
    const HWND first = open("first");
    DestroyWindow(first);
    const HWND second = open("second");
    EXPECT_NE(first, second);
    EXPECT_FALSE(IsWindow(first));
}

TEST_F(WindowLife, TextIsBytesOfTheAnsiPage) {
    const HWND window = open("main");
    EXPECT_TRUE(SetWindowTextW(window, u"a\u00F1o \u20AC5"));
    char bytes[20];
    EXPECT_EQ(GetWindowTextA(window, bytes, sizeof bytes), 6);
    EXPECT_STREQ(bytes, "a\xF1o \x80"
                        "5");
    char16_t wide[20];
    EXPECT_EQ(GetWindowTextW(window, wide, 20), 6);
    EXPECT_EQ(std::u16string(wide), u"a\u00F1o \u20AC5");
    EXPECT_EQ(GetWindowTextLengthA(window), 6);
    EXPECT_EQ(GetWindowTextA(window, bytes, 3), 2);
    EXPECT_STREQ(bytes, "a\xF1");
}

LRESULT subclass(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto former = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_USERDATA));
    const LRESULT result = CallWindowProcA(former, window, message, wParam, lParam);
    return message == WM_USER ? result + 100 : result;
}

TEST_F(WindowLife, AProcedureCanBePutInFrontOfAnother) {
    const HWND window = open("main", {.handler = [](const Seen& seen, LRESULT& result) {
                                 result = 5;
                                 return seen.message == WM_USER;
                             }});
    const LONG_PTR former = SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(subclass));
    SetWindowLongPtrA(window, GWLP_USERDATA, former);
    EXPECT_EQ(SendMessageA(window, WM_USER, 0, 0), 105);
    SetWindowLongPtrA(window, GWLP_WNDPROC, former);
    EXPECT_EQ(SendMessageA(window, WM_USER, 0, 0), 5);
}

TEST_F(WindowLife, LongsKeepTheirValues) {
    const HWND window = open("main");
    EXPECT_EQ(SetWindowLongA(window, GWL_USERDATA, 77), 0);
    EXPECT_EQ(GetWindowLongA(window, GWL_USERDATA), 77);
    EXPECT_EQ(SetWindowLongA(window, 4, -3), 0);
    EXPECT_EQ(GetWindowLongA(window, 4), -3);
    EXPECT_TRUE(GetWindowLongA(window, GWL_STYLE) & static_cast<LONG>(WS_CAPTION));
    EXPECT_TRUE(SetPropA(window, "TeselaProbe", HANDLE(9)));
    EXPECT_EQ(GetPropA(window, "TeselaProbe"), HANDLE(9));
    EXPECT_EQ(RemovePropA(window, "TeselaProbe"), HANDLE(9));
    EXPECT_FALSE(GetPropA(window, "TeselaProbe"));
}

TEST_F(WindowLife, AClassCannotGoWhileItsWindowsLive) {
    WNDCLASSA windowClass;
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.lpszClassName = "ProbeOnce";
    ASSERT_NE(RegisterClassA(&windowClass), 0);
    EXPECT_EQ(RegisterClassA(&windowClass), 0);
    const HWND window = CreateWindowExA(0, "PROBEONCE", "", WS_POPUP, 0, 0, 10, 10, {}, {}, {}, nullptr);
    ASSERT_TRUE(window);
    char name[32];
    EXPECT_EQ(GetClassNameA(window, name, sizeof name), 9);
    EXPECT_STREQ(name, "ProbeOnce");
    EXPECT_FALSE(UnregisterClassA("ProbeOnce", {}));
    DestroyWindow(window);
    EXPECT_TRUE(UnregisterClassA("ProbeOnce", {}));
}

TEST_F(WindowLife, ShowingTellsTheWindow) {
    const HWND window = open("main");
    journal.clear();
    EXPECT_FALSE(ShowWindow(window, SW_SHOW));
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(journal.of({WM_SHOWWINDOW, WM_ACTIVATE, WM_SETFOCUS, WM_SIZE, WM_MOVE}),
              "main WM_SHOWWINDOW, main WM_ACTIVATE, main WM_SETFOCUS, main WM_SIZE, main WM_MOVE");
    EXPECT_TRUE(ShowWindow(window, SW_HIDE));
    EXPECT_FALSE(IsWindowVisible(window));
}

TEST_F(WindowLife, AChildIsVisibleOnlyWithItsParents) {
    const HWND parent = open("parent");
    const HWND child = openChild("child", parent, {0, 0, 10, 10});
    EXPECT_FALSE(IsWindowVisible(child));
    ShowWindow(parent, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(child));
    ShowWindow(child, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(child));
}

TEST_F(WindowLife, DestroyedWindowsTakeTheirOwnThingsWithThem) {
    const HWND parent = open("parent", {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
    const HWND child = openChild("child", parent, {0, 0, 50, 20});
    SetFocus(child);
    SetCapture(child);
    CreateCaret(child, {}, 1, 10);
    DestroyWindow(child);
    EXPECT_EQ(GetFocus(), parent);
    EXPECT_FALSE(GetCapture());
    EXPECT_FALSE(ShowCaret(child));
}

} // namespace
