#pragma once
// The state of the keys and the layout that turns keys into characters.

#include "platform/input.h"

#include <array>
#include <optional>
#include <string>

namespace platform::driver {

using KeyStates = std::array<BYTE, 256>; ///< Bit 7 down, bit 0 toggled

struct Keyboard {
    KeyStates asynchronous{}; ///< The keys themselves
    KeyStates thread{};       ///< As of the last key message read
    std::array<bool, 256> pressedSinceAsked{};
    bool altAlone = false; ///< Alt went down and no other key since
    char16_t deadKey = 0;  ///< Waits for its letter
};

Keyboard& keyboard();

/// Notes a press or release in a state, with the toggles and the common key of left and right.
void applyKey(KeyStates& states, int virtualKey, bool up);

/// VK_SHIFT for VK_LSHIFT and so on; other keys themselves.
int commonKey(int virtualKey);
int sidedKey(int virtualKey, bool extended);

/// What a key types with a state of Shift, Ctrl, Alt Gr and the lock keys.
struct Typed {
    std::u16string text;
    bool dead = false;
};

Typed typedBy(int virtualKey, const KeyStates& states);

/// Applies a waiting dead key to a character: one composed character, or both.
std::u16string compose(char16_t dead, char16_t letter);

/// The key and modifiers (1 Shift, 2 Ctrl, 4 Alt) that type a character by themselves.
struct KeyStroke {
    int virtualKey = 0;
    int modifiers = 0;
};
std::optional<KeyStroke> strokeOf(char16_t character);

/// A dead key and the letter that it changes.
struct DeadStrokes {
    KeyStroke dead;
    KeyStroke letter;
};
std::optional<DeadStrokes> deadStrokesOf(char16_t character);

BYTE scanCodeOf(int virtualKey);
bool isExtendedKey(int virtualKey);

} // namespace platform::driver
