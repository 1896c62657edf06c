// Key states, and the characters that key messages type.

#include "platform/linux/keyboard.h"

#include "platform/linux/display.h"
#include "platform/linux/message_queue.h"
#include "platform/linux/typed_text.h"
#include "platform/locale.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr BYTE DownBit = 0x80;
constexpr BYTE ToggledBit = 0x01;

struct Sides {
    int common;
    int left;
    int right;
};

constexpr Sides SidedKeys[] = {
    {VK_SHIFT, VK_LSHIFT, VK_RSHIFT}, {VK_CONTROL, VK_LCONTROL, VK_RCONTROL}, {VK_MENU, VK_LMENU, VK_RMENU}};

BYTE& stateOf(KeyStates& states, int key) {
    return states[static_cast<std::size_t>(key) & 0xFF];
}

void press(BYTE& state, bool up) {
    if (up) {
        state &= static_cast<BYTE>(~DownBit);
    } else {
        if (!(state & DownBit)) state ^= ToggledBit;
        state |= DownBit;
    }
}

} // namespace

Keyboard& keyboard() {
    static Keyboard keys;
    return keys;
}

void applyKey(KeyStates& states, int key, bool up) {
    press(stateOf(states, key), up);
    for (const Sides& sides : SidedKeys) {
        if (key != sides.left && key != sides.right) continue;
        const bool down = (stateOf(states, sides.left) | stateOf(states, sides.right)) & DownBit;
        press(stateOf(states, sides.common), !down);
    }
}

int commonKey(int key) {
    for (const Sides& sides : SidedKeys)
        if (key == sides.left || key == sides.right) return sides.common;
    return key;
}

int sidedKey(int key, bool extended) {
    for (const Sides& sides : SidedKeys)
        if (key == sides.common) return extended ? sides.right : sides.left;
    return key;
}

namespace {

/// What a key press types: as the display told, else by the layout.
Typed typedByMessage(const MSG& message) {
    const LastTyped& told = lastTyped();
    const bool same = told.time == message.time && told.key == message.wParam && told.known;
    const bool system = message.message == WM_SYSKEYDOWN;
    if (same && system && told.plain) return {std::u16string(1, told.plain), false};
    if (same && (!told.text.empty() || !system)) {
        if (!told.text.empty()) return {told.text, false};
        const Typed byLayout = typedBy(static_cast<int>(message.wParam), keyboard().thread);
        const bool control = !byLayout.text.empty() && (byLayout.text[0] < u' ' || byLayout.text[0] == 127);
        return control ? byLayout : Typed{};
    }
    return typedBy(static_cast<int>(message.wParam), keyboard().thread);
}

void postCharacters(const MSG& message, const std::u16string& text, UINT number) {
    for (const char byte : ansiFromWide(text))
        postMessage(message.hwnd, number, static_cast<unsigned char>(byte), message.lParam);
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

SHORT GetKeyState(int key) {
    const BYTE state = stateOf(keyboard().thread, key);
    return static_cast<SHORT>((state & DownBit ? 0xFF80 : 0) | (state & ToggledBit));
}

SHORT GetAsyncKeyState(int key) {
    display().collectInput();
    const BYTE state = stateOf(keyboard().asynchronous, key);
    bool& pressed = keyboard().pressedSinceAsked[static_cast<std::size_t>(key) & 0xFF];
    const SHORT answer = static_cast<SHORT>((state & DownBit ? 0x8000 : 0) | (pressed ? 1 : 0));
    pressed = false;
    return answer;
}

BOOL GetKeyboardState(BYTE* state) {
    if (!state) return FALSE_;
    std::copy(keyboard().thread.begin(), keyboard().thread.end(), state);
    return TRUE_;
}

BOOL SetKeyboardState(const BYTE* state) {
    if (!state) return FALSE_;
    std::copy_n(state, keyboard().thread.size(), keyboard().thread.begin());
    return TRUE_;
}

void keybd_event(BYTE key, BYTE scanCode, DWORD flags, std::uintptr_t) {
    RawInput input;
    input.kind = RawInput::Kind::Key;
    input.virtualKey = key;
    input.up = (flags & KEYEVENTF_KEYUP) != 0;
    input.scanCode = scanCode;
    input.extended = (flags & KEYEVENTF_EXTENDEDKEY) != 0;
    postInput(input);
    const bool lock = key == VK_CAPITAL || key == VK_NUMLOCK || key == VK_SCROLL;
    if (lock && !input.up) display().setLocks(keyboard().asynchronous.data());
}

BOOL TranslateMessage(const MSG* message) {
    if (!message) return FALSE_;
    const bool system = message->message == WM_SYSKEYDOWN;
    if (message->message == WM_KEYUP || message->message == WM_SYSKEYUP) return TRUE_;
    if (message->message != WM_KEYDOWN && !system) return FALSE_;
    const Typed typed = typedByMessage(*message);
    if (typed.text.empty()) return TRUE_;
    char16_t& waiting = keyboard().deadKey;
    if (typed.dead && !waiting) {
        waiting = typed.text.front();
        postCharacters(*message, typed.text, system ? WM_SYSDEADCHAR : WM_DEADCHAR);
        return TRUE_;
    }
    const std::u16string text = waiting ? compose(waiting, typed.text.front()) : typed.text;
    waiting = 0;
    postCharacters(*message, text, system ? WM_SYSCHAR : WM_CHAR);
    return TRUE_;
}

SHORT VkKeyScanA(char character) {
    const std::u16string wide = wideFromAnsi(std::string_view(&character, 1));
    const auto stroke = wide.empty() ? std::nullopt : strokeOf(wide.front());
    if (!stroke) return -1;
    return static_cast<SHORT>(stroke->virtualKey | stroke->modifiers << 8);
}

} // namespace platform
