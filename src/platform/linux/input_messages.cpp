// From keys and mouse as the display tells of them to the messages that windows get.

#include "platform/linux/display.h"
#include "platform/linux/keyboard.h"
#include "platform/linux/message_queue.h"
#include "platform/linux/typed_text.h"
#include "platform/linux/window_system.h"

#include <algorithm>
#include <cstdlib>

namespace platform::driver {

namespace {

constexpr BYTE DownBit = 0x80;
constexpr LPARAM ExtendedFlag = LPARAM{1} << 24;
constexpr LPARAM AltFlag = LPARAM{1} << 29;
constexpr LPARAM WasDownFlag = LPARAM{1} << 30;
constexpr LPARAM ReleasedFlag = LPARAM{1} << 31;

/// The last button press, for double clicks.
struct LastPress {
    HWND window;
    UINT message = 0;
    DWORD time = 0;
    POINT at;
};

LastPress& lastPress() {
    static LastPress press;
    return press;
}

bool isDown(const KeyStates& states, int key) {
    return states[static_cast<std::size_t>(key)] & DownBit;
}

HWND keyTarget() {
    const HWND focus = attention().focus;
    return focus ? focus : attention().active;
}

/// Whether the key's messages are the WM_SYS... ones: keys with Alt but not Ctrl, Alt by itself, F10.
bool isSystemKey(const RawInput& input, const KeyStates& states, bool altAlone) {
    const int key = commonKey(input.virtualKey);
    if (!attention().focus) return true;
    if (key == VK_F10) return true;
    const bool control = isDown(states, VK_CONTROL);
    if (key == VK_MENU) return input.up ? altAlone : !control;
    return isDown(states, VK_MENU) && !control;
}

LPARAM keyFlags(const RawInput& input, const KeyStates& states) {
    const int key = sidedKey(input.virtualKey, input.extended);
    LPARAM flags = 1 | static_cast<LPARAM>(input.scanCode) << 16;
    if (input.extended) flags |= ExtendedFlag;
    if (isDown(states, VK_MENU) || (commonKey(key) == VK_MENU && !input.up)) flags |= AltFlag;
    if (isDown(states, key) || input.up) flags |= WasDownFlag;
    if (input.up) flags |= ReleasedFlag;
    return flags;
}

void noteAlt(const RawInput& input) {
    const bool alt = commonKey(input.virtualKey) == VK_MENU;
    keyboard().altAlone = alt && !input.up;
}

bool keyMessage(const RawInput& input, const MessageFilter& filter, bool remove, MSG& message, bool& drop) {
    const HWND target = keyTarget();
    const KeyStates& states = keyboard().thread;
    const bool system = isSystemKey(input, states, keyboard().altAlone);
    const UINT down = system ? WM_SYSKEYDOWN : WM_KEYDOWN;
    const UINT number = input.up ? down + 1 : down;
    drop = !target;
    if (!drop && !(filter.takesNumber(number) && filter.takesWindow(target))) return false;
    message = {target,
               number,
               static_cast<WPARAM>(commonKey(input.virtualKey)),
               keyFlags(input, states),
               input.time,
               display().pointer()};
    if (!remove && !drop) return true;
    applyKey(keyboard().thread, sidedKey(input.virtualKey, input.extended), input.up);
    noteAlt(input);
    if (!input.up) lastTyped() = {input.hasText, message.wParam, message.time, input.text, input.plain};
    return !drop;
}

struct ButtonMessages {
    int button;
    UINT down;
    WPARAM flag;
};

constexpr ButtonMessages Buttons[] = {{VK_LBUTTON, WM_LBUTTONDOWN, MK_LBUTTON},
                                      {VK_RBUTTON, WM_RBUTTONDOWN, MK_RBUTTON},
                                      {VK_MBUTTON, WM_MBUTTONDOWN, MK_MBUTTON}};
constexpr UINT ToDoubleClick = WM_LBUTTONDBLCLK - WM_LBUTTONDOWN;
constexpr UINT ToFrame = WM_MOUSEMOVE - WM_NCMOUSEMOVE;

bool isPress(UINT message) {
    return std::any_of(std::begin(Buttons), std::end(Buttons),
                       [&](const auto& b) { return message == b.down; });
}

WPARAM buttonFlags() {
    const KeyStates& states = keyboard().thread;
    WPARAM flags = 0;
    for (const auto& button : Buttons)
        if (isDown(states, button.button)) flags |= button.flag;
    if (isDown(states, VK_SHIFT)) flags |= MK_SHIFT;
    if (isDown(states, VK_CONTROL)) flags |= MK_CONTROL;
    return flags;
}

UINT mouseNumber(const RawInput& input) {
    if (input.kind == RawInput::Kind::Move) return WM_MOUSEMOVE;
    if (input.kind == RawInput::Kind::Wheel) return WM_MOUSEWHEEL;
    for (const auto& button : Buttons)
        if (button.button == input.virtualKey) return input.up ? button.down + 1 : button.down;
    return WM_NULL;
}

bool isDoubleClick(const Window& target, const RawInput& input, UINT number, int hit) {
    const LastPress& last = lastPress();
    if (hit == HTCLIENT && !(target.windowClass->style & CS_DBLCLKS)) return false;
    return last.window == target.handle && last.message == number &&
           input.time - last.time < GetDoubleClickTime() &&
           std::abs(input.at.x - last.at.x) < GetSystemMetrics(SM_CXDOUBLECLK) / 2 + 1 &&
           std::abs(input.at.y - last.at.y) < GetSystemMetrics(SM_CYDOUBLECLK) / 2 + 1;
}

/// Tells a child's parents of a press inside them.
void notifyParentsOfPress(HWND handle, UINT number, POINT screen) {
    const Window* window = findWindow(handle);
    while (window && window->isChild() && !(window->exStyle & WS_EX_NOPARENTNOTIFY) && window->parent &&
           !isDesktop(*window->parent)) {
        const HWND above = window->parent->handle;
        POINT at = screen;
        ScreenToClient(above, &at);
        SendMessageA(above, WM_PARENTNOTIFY, number, MAKELPARAM(at.x, at.y));
        window = findWindow(above);
    }
}

/// A press outside the active window activates its window unless that refuses; false when the press is
/// swallowed.
bool activateByPress(HWND target, UINT number, int hit) {
    Window* top = topLevelOf(findWindow(target));
    if (!top || top->handle == attention().active) return findWindow(target) != nullptr;
    const HWND topHandle = top->handle;
    const LRESULT answer =
        SendMessageA(target, WM_MOUSEACTIVATE, topHandle.value, MAKELPARAM(hit, static_cast<int>(number)));
    if (answer == MA_ACTIVATE || answer == MA_ACTIVATEANDEAT || answer == 0) activate(topHandle, true);
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT && findWindow(target);
}

/// A press on a disabled window brings forward the dialog that it waits for.
void pressOnDisabled(const Window& window) {
    HWND next = window.handle;
    while (true) {
        const auto owned = ownedHandles(next);
        const auto shown =
            std::find_if(owned.begin(), owned.end(), [](HWND h) { return IsWindowVisible(h); });
        if (shown == owned.end()) break;
        next = *shown;
    }
    if (next == window.handle || !IsWindowEnabled(next)) return;
    MessageBeep(0);
    if (next != attention().active) activate(next, true);
}

struct MouseTarget {
    HWND window;
    int hit = HTNOWHERE;
    bool captured = false;
};

MouseTarget mouseTarget(POINT screen) {
    if (findWindow(attention().capture)) return {attention().capture, HTCLIENT, true};
    int hit = HTNOWHERE;
    const Window* window = windowAt(screen, hit);
    return {window ? window->handle : HWND{}, hit, false};
}

void noteButton(const RawInput& input) {
    if (input.kind == RawInput::Kind::Button) applyKey(keyboard().thread, input.virtualKey, input.up);
}

MSG placedMessage(const MouseTarget& target, UINT number, const RawInput& input) {
    if (target.hit != HTCLIENT)
        return {target.window,
                number - ToFrame,
                static_cast<WPARAM>(target.hit),
                MAKELPARAM(input.at.x, input.at.y),
                input.time,
                input.at};
    POINT client = input.at;
    ScreenToClient(target.window, &client);
    return {target.window, number, buttonFlags(), MAKELPARAM(client.x, client.y), input.time, input.at};
}

bool wheelMessage(const RawInput& input, const MessageFilter& filter, MSG& message, bool& drop) {
    const HWND target = attention().focus ? attention().focus : attention().active;
    drop = !target;
    if (drop || !filter.takesNumber(WM_MOUSEWHEEL) || !filter.takesWindow(target)) return false;
    message = {target,
               WM_MOUSEWHEEL,
               MAKEWPARAM(static_cast<int>(buttonFlags()), input.wheel),
               MAKELPARAM(input.at.x, input.at.y),
               input.time,
               input.at};
    return true;
}

/// What goes before a mouse message that is read for good. False when it is swallowed.
bool precede(const MouseTarget& target, UINT number, const RawInput& input) {
    if (target.captured) return true;
    if (isPress(number)) {
        if (target.hit == HTCLIENT) notifyParentsOfPress(target.window, number, input.at);
        if (!activateByPress(target.window, number, target.hit)) return false;
    }
    SendMessageA(target.window, WM_SETCURSOR, target.window.value,
                 MAKELPARAM(target.hit, static_cast<int>(number)));
    return findWindow(target.window) != nullptr;
}

bool mouseMessage(const RawInput& input, const MessageFilter& filter, bool remove, MSG& message, bool& drop) {
    if (input.kind == RawInput::Kind::Wheel) return wheelMessage(input, filter, message, drop);
    const MouseTarget target = mouseTarget(input.at);
    const Window* window = findWindow(target.window);
    UINT number = mouseNumber(input);
    drop = !window || target.hit == HTNOWHERE;
    if (drop) {
        noteButton(input);
        if (window && isPress(number)) pressOnDisabled(*window);
        return false;
    }
    const UINT press = number;
    const bool isDouble = isPress(press) && isDoubleClick(*window, input, press, target.hit);
    if (isDouble) number += ToDoubleClick;
    const UINT shown = target.hit == HTCLIENT ? number : number - ToFrame;
    if (!filter.takesNumber(shown) || !filter.takesWindow(target.window)) return false;
    if (!remove) {
        message = placedMessage(target, number, input);
        return true;
    }
    noteButton(input);
    if (isPress(press)) lastPress() = {isDouble ? HWND{} : target.window, press, input.time, input.at};
    if (!precede(target, press, input)) {
        drop = true;
        return false;
    }
    message = placedMessage(target, number, input);
    return true;
}

} // namespace

LastTyped& lastTyped() {
    static LastTyped typed;
    return typed;
}

void postInput(RawInput input) {
    auto& queue = messageQueue().input;
    input.time = tickCount();
    if (input.kind == RawInput::Kind::Key || input.kind == RawInput::Kind::Button) {
        Keyboard& keys = keyboard();
        const int key =
            input.kind == RawInput::Kind::Key ? sidedKey(input.virtualKey, input.extended) : input.virtualKey;
        applyKey(keys.asynchronous, key, input.up);
        if (!input.up) keys.pressedSinceAsked[static_cast<std::size_t>(key)] = true;
        if (!input.up) keys.pressedSinceAsked[static_cast<std::size_t>(commonKey(key))] = true;
    }
    if (input.kind == RawInput::Kind::Move && !queue.empty() && queue.back().kind == RawInput::Kind::Move)
        queue.pop_back();
    messageQueue().newKinds |= input.kind == RawInput::Kind::Key ? QS_KEY : QS_MOUSE;
    queue.push_back(std::move(input));
}

bool takeInput(const MessageFilter& filter, bool remove, MSG& message) {
    auto& queue = messageQueue().input;
    for (std::size_t i = 0; i < queue.size();) {
        const RawInput input = queue[i];
        bool drop = false;
        // The messages sent on the way may read the queue themselves, so the event leaves it first.
        queue.erase(queue.begin() + static_cast<std::ptrdiff_t>(i));
        const bool taken = input.kind == RawInput::Kind::Key
                               ? keyMessage(input, filter, remove, message, drop)
                               : mouseMessage(input, filter, remove, message, drop);
        if (taken && remove) return true;
        if (!drop) {
            queue.insert(queue.begin() + static_cast<std::ptrdiff_t>(std::min(i, queue.size())), input);
            ++i;
        }
        if (taken) return true;
    }
    return false;
}

} // namespace platform::driver
