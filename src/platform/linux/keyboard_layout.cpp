// The Spanish keyboard: what each key types, and which key types a character.

#include "platform/linux/keyboard.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace platform::driver {

namespace {

constexpr BYTE DownBit = 0x80;
constexpr BYTE ToggledBit = 0x01;
constexpr int ShiftModifier = 1;
constexpr int AltGrModifier = 6;

/// What a key types by itself, with Shift and with Alt Gr; 0: nothing.
struct LayoutRow {
    int virtualKey;
    char16_t plain;
    char16_t shifted;
    char16_t altGr;
};

constexpr LayoutRow Rows[] = {
    {'0', u'0', u'=', 0},          {'1', u'1', u'!', u'|'},
    {'2', u'2', u'"', u'@'},       {'3', u'3', u'·', u'#'},
    {'4', u'4', u'$', u'~'},       {'5', u'5', u'%', u'€'},
    {'6', u'6', u'&', u'¬'},       {'7', u'7', u'/', 0},
    {'8', u'8', u'(', 0},          {'9', u'9', u')', 0},
    {'E', u'e', u'E', u'€'},       {VK_OEM_5, u'º', u'ª', u'\\'},
    {VK_OEM_4, u'\'', u'?', 0},    {VK_OEM_6, u'¡', u'¿', 0},
    {VK_OEM_1, u'`', u'^', u'['},  {VK_OEM_PLUS, u'+', u'*', u']'},
    {VK_OEM_3, u'ñ', u'Ñ', 0},     {VK_OEM_7, u'´', u'¨', u'{'},
    {VK_OEM_2, u'ç', u'Ç', u'}'},  {VK_OEM_102, u'<', u'>', 0},
    {VK_OEM_COMMA, u',', u';', 0}, {VK_OEM_PERIOD, u'.', u':', 0},
    {VK_OEM_MINUS, u'-', u'_', 0}, {VK_SPACE, u' ', u' ', 0},
    {VK_MULTIPLY, u'*', u'*', 0},  {VK_ADD, u'+', u'+', 0},
    {VK_SUBTRACT, u'-', u'-', 0},  {VK_DIVIDE, u'/', u'/', 0},
    {VK_DECIMAL, u'.', u'.', 0},
};

/// Keys whose characters Ctrl does not take away.
struct ControlRow {
    int virtualKey;
    char16_t plain;
    char16_t withControl;
};

constexpr ControlRow ControlRows[] = {{VK_BACK, 8, 127},   {VK_TAB, 9, 9},         {VK_RETURN, 13, 10},
                                      {VK_ESCAPE, 27, 27}, {VK_SPACE, u' ', u' '}, {VK_CANCEL, 3, 3}};

struct DeadKey {
    char16_t sign;
    std::u16string_view letters;
    std::u16string_view composed;
};

constexpr DeadKey DeadKeys[] = {
    {u'´', u"aeiouAEIOUyY", u"áéíóúÁÉÍÓÚýÝ"},
    {u'`', u"aeiouAEIOU", u"àèìòùÀÈÌÒÙ"},
    {u'^', u"aeiouAEIOU", u"âêîôûÂÊÎÔÛ"},
    {u'¨', u"aeiouAEIOUy", u"äëïöüÄËÏÖÜÿ"},
    {u'~', u"anoANO", u"ãñõÃÑÕ"},
};

bool isOn(const KeyStates& states, int key, BYTE bit) {
    return states[static_cast<std::size_t>(key)] & bit;
}

const DeadKey* deadKeyOf(char16_t sign) {
    const auto found = std::find_if(std::begin(DeadKeys), std::end(DeadKeys),
                                    [&](const DeadKey& d) { return d.sign == sign; });
    return found == std::end(DeadKeys) ? nullptr : found;
}

bool isLetterKey(int key) {
    return (key >= 'A' && key <= 'Z') || key == VK_OEM_3 || key == VK_OEM_2;
}

const LayoutRow* rowOf(int key) {
    const auto found = std::find_if(std::begin(Rows), std::end(Rows),
                                    [&](const LayoutRow& r) { return r.virtualKey == key; });
    return found == std::end(Rows) ? nullptr : found;
}

char16_t characterOf(int key, bool shift, bool altGr) {
    const LayoutRow* row = rowOf(key);
    if (row) return altGr ? row->altGr : shift ? row->shifted : row->plain;
    if (altGr) return 0;
    if (key >= 'A' && key <= 'Z') return static_cast<char16_t>(shift ? key : key + ('a' - 'A'));
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9) return static_cast<char16_t>(u'0' + (key - VK_NUMPAD0));
    return 0;
}

Typed typedWithControl(int key) {
    for (const ControlRow& row : ControlRows)
        if (row.virtualKey == key) return {std::u16string(1, row.withControl), false};
    if (key >= 'A' && key <= 'Z') return {std::u16string(1, static_cast<char16_t>(key - 'A' + 1)), false};
    return {};
}

} // namespace

Typed typedBy(int key, const KeyStates& states) {
    const bool control = isOn(states, VK_CONTROL, DownBit);
    const bool alt = isOn(states, VK_MENU, DownBit);
    if (control && !alt) return typedWithControl(key);
    for (const ControlRow& row : ControlRows)
        if (row.virtualKey == key) return {std::u16string(1, row.plain), false};
    bool shift = isOn(states, VK_SHIFT, DownBit);
    if (isLetterKey(key) && isOn(states, VK_CAPITAL, ToggledBit)) shift = !shift;
    const char16_t typed = characterOf(key, shift, control && alt);
    if (!typed) return {};
    const bool dead = deadKeyOf(typed) && (key == VK_OEM_1 || key == VK_OEM_7 || key == '4');
    return {std::u16string(1, typed), dead};
}

std::u16string compose(char16_t dead, char16_t letter) {
    if (letter == u' ') return std::u16string(1, dead);
    if (const DeadKey* key = deadKeyOf(dead)) {
        const std::size_t at = key->letters.find(letter);
        if (at != std::u16string_view::npos) return std::u16string(1, key->composed[at]);
    }
    return {dead, letter};
}

std::optional<KeyStroke> strokeOf(char16_t character) {
    for (const ControlRow& row : ControlRows)
        if (row.plain == character && row.virtualKey != VK_CANCEL) return KeyStroke{row.virtualKey, 0};
    if (character >= u'a' && character <= u'z') return KeyStroke{character - u'a' + 'A', 0};
    if (character >= u'A' && character <= u'Z') return KeyStroke{character, ShiftModifier};
    for (const LayoutRow& row : Rows) {
        const bool dead = row.virtualKey == VK_OEM_1 || row.virtualKey == VK_OEM_7;
        if (!dead && row.plain == character) return KeyStroke{row.virtualKey, 0};
        if (!dead && row.shifted == character) return KeyStroke{row.virtualKey, ShiftModifier};
        if (row.altGr == character && character != u'~') return KeyStroke{row.virtualKey, AltGrModifier};
    }
    return std::nullopt;
}

std::optional<DeadStrokes> deadStrokesOf(char16_t character) {
    for (const DeadKey& key : DeadKeys) {
        const std::size_t at = key.composed.find(character);
        const bool alone = key.sign == character;
        if (at == std::u16string_view::npos && !alone) continue;
        const auto letter = strokeOf(alone ? u' ' : key.letters[at]);
        for (const LayoutRow& row : Rows) {
            KeyStroke dead{row.virtualKey, 0};
            if (row.shifted == key.sign)
                dead.modifiers = ShiftModifier;
            else if (row.altGr == key.sign)
                dead.modifiers = AltGrModifier;
            else if (row.plain != key.sign)
                continue;
            if (letter) return DeadStrokes{dead, *letter};
        }
    }
    return std::nullopt;
}

} // namespace platform::driver

namespace platform {

using namespace driver;

namespace {

constexpr UINT DeadFlag = 0x80000000u;

/// Set 1 scan codes, by virtual key.
struct ScanRow {
    int virtualKey;
    BYTE scanCode;
    bool extended;
};

constexpr ScanRow ScanRows[] = {
    {VK_CANCEL, 0x46, true},     {VK_BACK, 0x0E, false},       {VK_TAB, 0x0F, false},
    {VK_CLEAR, 0x4C, false},     {VK_RETURN, 0x1C, false},     {VK_SHIFT, 0x2A, false},
    {VK_CONTROL, 0x1D, false},   {VK_MENU, 0x38, false},       {VK_PAUSE, 0x45, false},
    {VK_CAPITAL, 0x3A, false},   {VK_ESCAPE, 0x01, false},     {VK_SPACE, 0x39, false},
    {VK_PRIOR, 0x49, true},      {VK_NEXT, 0x51, true},        {VK_END, 0x4F, true},
    {VK_HOME, 0x47, true},       {VK_LEFT, 0x4B, true},        {VK_UP, 0x48, true},
    {VK_RIGHT, 0x4D, true},      {VK_DOWN, 0x50, true},        {VK_SNAPSHOT, 0x37, true},
    {VK_INSERT, 0x52, true},     {VK_DELETE, 0x53, true},      {VK_LWIN, 0x5B, true},
    {VK_RWIN, 0x5C, true},       {VK_APPS, 0x5D, true},        {VK_MULTIPLY, 0x37, false},
    {VK_ADD, 0x4E, false},       {VK_SUBTRACT, 0x4A, false},   {VK_DECIMAL, 0x53, false},
    {VK_DIVIDE, 0x35, true},     {VK_NUMLOCK, 0x45, true},     {VK_SCROLL, 0x46, false},
    {VK_LSHIFT, 0x2A, false},    {VK_RSHIFT, 0x36, false},     {VK_LCONTROL, 0x1D, false},
    {VK_RCONTROL, 0x1D, true},   {VK_LMENU, 0x38, false},      {VK_RMENU, 0x38, true},
    {VK_OEM_5, 0x29, false},     {VK_OEM_4, 0x0C, false},      {VK_OEM_6, 0x0D, false},
    {VK_OEM_1, 0x1A, false},     {VK_OEM_PLUS, 0x1B, false},   {VK_OEM_3, 0x27, false},
    {VK_OEM_7, 0x28, false},     {VK_OEM_2, 0x2B, false},      {VK_OEM_102, 0x56, false},
    {VK_OEM_COMMA, 0x33, false}, {VK_OEM_PERIOD, 0x34, false}, {VK_OEM_MINUS, 0x35, false},
    {VK_F11, 0x57, false},       {VK_F12, 0x58, false},
};

constexpr std::string_view LetterRows[] = {"1234567890", "QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM"};
constexpr BYTE LetterRowStarts[] = {0x02, 0x10, 0x1E, 0x2C};
constexpr BYTE F1Scan = 0x3B;
constexpr BYTE KeypadScans[] = {0x52, 0x4F, 0x50, 0x51, 0x4B, 0x4C, 0x4D, 0x47, 0x48, 0x49};

UINT keyOfScan(UINT scanCode) {
    for (int key = 1; key <= 0xFF; ++key)
        if (scanCodeOf(key) == scanCode && scanCode && key != VK_CANCEL)
            return static_cast<UINT>(commonKey(key));
    return 0;
}

UINT characterOfKey(int key) {
    KeyStates states{};
    const Typed typed = typedBy(key, states);
    if (typed.text.empty()) return 0;
    UINT character = typed.text.front();
    if (character >= u'a' && character <= u'z') character -= 'a' - 'A';
    const unsigned char byte = static_cast<unsigned char>(character);
    return byte | (typed.dead ? DeadFlag : 0);
}

} // namespace

UINT MapVirtualKeyA(UINT code, UINT mapType) {
    switch (mapType) {
    case MAPVK_VK_TO_VSC:
        return code > 0xFF ? 0 : scanCodeOf(static_cast<int>(code));
    case MAPVK_VSC_TO_VK:
        return keyOfScan(code);
    case MAPVK_VK_TO_CHAR:
        return code > 0xFF ? 0 : characterOfKey(static_cast<int>(code));
    default:
        return 0;
    }
}

} // namespace platform

namespace platform::driver {

BYTE scanCodeOf(int key) {
    for (const ScanRow& row : ScanRows)
        if (row.virtualKey == key) return row.scanCode;
    for (std::size_t row = 0; row < std::size(LetterRows); ++row) {
        const std::size_t at =
            key > 0 && key < 0x80 ? LetterRows[row].find(static_cast<char>(key)) : std::string_view::npos;
        if (at != std::string_view::npos) return static_cast<BYTE>(LetterRowStarts[row] + at);
    }
    if (key >= VK_F1 && key <= VK_F10) return static_cast<BYTE>(F1Scan + (key - VK_F1));
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9) return KeypadScans[key - VK_NUMPAD0];
    return 0;
}

bool isExtendedKey(int key) {
    const auto found = std::find_if(std::begin(ScanRows), std::end(ScanRows),
                                    [&](const ScanRow& r) { return r.virtualKey == key; });
    return found != std::end(ScanRows) && found->extended;
}

} // namespace platform::driver
