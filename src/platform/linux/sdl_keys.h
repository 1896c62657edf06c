#pragma once
// From the keys of SDL to virtual keys.

#include <SDL_keyboard.h>

namespace platform::driver {

/// 0 for a key that has none.
int virtualKeyOf(const SDL_Keysym& key);

/// The character that the key types by itself, 0 for none.
char16_t plainCharacterOf(const SDL_Keysym& key);

} // namespace platform::driver
