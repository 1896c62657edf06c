#include "platform/linux/sdl_keys.h"

#include "platform/input.h"
#include "platform/linux/desktop_keys.h"

namespace platform::driver {

namespace {

struct ScanKey {
    SDL_Scancode scan;
    int virtualKey;
};

/// Keys that are the same in every layout.
constexpr ScanKey FixedKeys[] = {
    {SDL_SCANCODE_RETURN, VK_RETURN},
    {SDL_SCANCODE_ESCAPE, VK_ESCAPE},
    {SDL_SCANCODE_BACKSPACE, VK_BACK},
    {SDL_SCANCODE_TAB, VK_TAB},
    {SDL_SCANCODE_SPACE, VK_SPACE},
    {SDL_SCANCODE_CAPSLOCK, VK_CAPITAL},
    {SDL_SCANCODE_PRINTSCREEN, VK_SNAPSHOT},
    {SDL_SCANCODE_SCROLLLOCK, VK_SCROLL},
    {SDL_SCANCODE_PAUSE, VK_PAUSE},
    {SDL_SCANCODE_INSERT, VK_INSERT},
    {SDL_SCANCODE_HOME, VK_HOME},
    {SDL_SCANCODE_PAGEUP, VK_PRIOR},
    {SDL_SCANCODE_DELETE, VK_DELETE},
    {SDL_SCANCODE_END, VK_END},
    {SDL_SCANCODE_PAGEDOWN, VK_NEXT},
    {SDL_SCANCODE_RIGHT, VK_RIGHT},
    {SDL_SCANCODE_LEFT, VK_LEFT},
    {SDL_SCANCODE_DOWN, VK_DOWN},
    {SDL_SCANCODE_UP, VK_UP},
    {SDL_SCANCODE_NUMLOCKCLEAR, VK_NUMLOCK},
    {SDL_SCANCODE_KP_DIVIDE, VK_DIVIDE},
    {SDL_SCANCODE_KP_MULTIPLY, VK_MULTIPLY},
    {SDL_SCANCODE_KP_MINUS, VK_SUBTRACT},
    {SDL_SCANCODE_KP_PLUS, VK_ADD},
    {SDL_SCANCODE_KP_ENTER, VK_RETURN},
    {SDL_SCANCODE_APPLICATION, VK_APPS},
    {SDL_SCANCODE_LCTRL, VK_LCONTROL},
    {SDL_SCANCODE_LSHIFT, VK_LSHIFT},
    {SDL_SCANCODE_LALT, VK_LMENU},
    {SDL_SCANCODE_LGUI, VK_LWIN},
    {SDL_SCANCODE_RCTRL, VK_RCONTROL},
    {SDL_SCANCODE_RSHIFT, VK_RSHIFT},
    {SDL_SCANCODE_RALT, VK_RMENU},
    {SDL_SCANCODE_RGUI, VK_RWIN},
};

/// The digits of the keypad with the lock on and off.
struct KeypadKey {
    SDL_Scancode scan;
    int locked;
    int unlocked;
};

constexpr KeypadKey KeypadKeys[] = {
    {SDL_SCANCODE_KP_1, VK_NUMPAD0 + 1, VK_END},    {SDL_SCANCODE_KP_2, VK_NUMPAD0 + 2, VK_DOWN},
    {SDL_SCANCODE_KP_3, VK_NUMPAD0 + 3, VK_NEXT},   {SDL_SCANCODE_KP_4, VK_NUMPAD0 + 4, VK_LEFT},
    {SDL_SCANCODE_KP_5, VK_NUMPAD0 + 5, VK_CLEAR},  {SDL_SCANCODE_KP_6, VK_NUMPAD0 + 6, VK_RIGHT},
    {SDL_SCANCODE_KP_7, VK_NUMPAD0 + 7, VK_HOME},   {SDL_SCANCODE_KP_8, VK_NUMPAD0 + 8, VK_UP},
    {SDL_SCANCODE_KP_9, VK_NUMPAD0 + 9, VK_PRIOR},  {SDL_SCANCODE_KP_0, VK_NUMPAD0, VK_INSERT},
    {SDL_SCANCODE_KP_PERIOD, VK_DECIMAL, VK_DELETE}};

constexpr SDL_Keycode LastSign = 0xFFFF;

int keypadKey(const SDL_Keysym& key) {
    for (const KeypadKey& k : KeypadKeys)
        if (k.scan == key.scancode) return key.mod & KMOD_NUM ? k.locked : k.unlocked;
    return 0;
}

} // namespace

int virtualKeyOf(const SDL_Keysym& key) {
    for (const ScanKey& fixed : FixedKeys)
        if (fixed.scan == key.scancode) return fixed.virtualKey;
    if (const int pad = keypadKey(key)) return pad;
    if (key.scancode >= SDL_SCANCODE_F1 && key.scancode <= SDL_SCANCODE_F12)
        return VK_F1 + (key.scancode - SDL_SCANCODE_F1);
    if (key.scancode >= SDL_SCANCODE_F13 && key.scancode <= SDL_SCANCODE_F24)
        return VK_F12 + 1 + (key.scancode - SDL_SCANCODE_F13);
    if (key.sym >= 'a' && key.sym <= 'z') return key.sym - 'a' + 'A';
    if (key.scancode >= SDL_SCANCODE_1 && key.scancode <= SDL_SCANCODE_9)
        return '1' + (key.scancode - SDL_SCANCODE_1);
    if (key.scancode == SDL_SCANCODE_0) return '0';
    // On the Spanish keyboard the apostrophe stands beside the zero, elsewhere beside Enter.
    if (key.sym == '\'' && key.scancode == SDL_SCANCODE_MINUS) return VK_OEM_4;
    if (key.sym == '`' && key.scancode == SDL_SCANCODE_LEFTBRACKET) return VK_OEM_1;
    return key.sym > 0 && key.sym <= LastSign ? virtualKeyOfSign(static_cast<char16_t>(key.sym)) : 0;
}

char16_t plainCharacterOf(const SDL_Keysym& key) {
    return key.sym >= ' ' && key.sym <= LastSign && key.sym != SDLK_DELETE ? static_cast<char16_t>(key.sym)
                                                                           : u'\0';
}

} // namespace platform::driver
