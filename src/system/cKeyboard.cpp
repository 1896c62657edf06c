#include "system/cKeyboard.h"

#include "automation/ClassTable.h"
#include "platform/windows.h"

namespace tesela {

namespace {

constexpr platform::BYTE toggledBit = 0x01;
constexpr platform::BYTE pressedBit = 0x80;

struct Action {
    int modifier; ///< Held while the key is played; 0 for none
    int key;
};

/// In the order of tslKbdActionConstants.
constexpr Action actions[] = {
    {0, platform::VK_TAB},
    {platform::VK_SHIFT, platform::VK_TAB},
    {0, platform::VK_PRIOR},
    {platform::VK_CONTROL, platform::VK_PRIOR},
    {0, platform::VK_NEXT},
    {platform::VK_CONTROL, platform::VK_NEXT},
    {platform::VK_CONTROL, platform::VK_RETURN},
    {platform::VK_MENU, platform::VK_DOWN},
    {platform::VK_MENU, platform::VK_RIGHT},
};

platform::BYTE keyCode(std::int32_t nKey) {
    return static_cast<platform::BYTE>(nKey);
}

} // namespace

bool cKeyboard::CapsState() const {
    return KeyStat(platform::VK_CAPITAL);
}
void cKeyboard::CapsState(bool value) {
    KeyStat(platform::VK_CAPITAL, value);
}
bool cKeyboard::NumsState() const {
    return KeyStat(platform::VK_NUMLOCK);
}
void cKeyboard::NumsState(bool value) {
    KeyStat(platform::VK_NUMLOCK, value);
}
bool cKeyboard::ScrollState() const {
    return KeyStat(platform::VK_SCROLL);
}
void cKeyboard::ScrollState(bool value) {
    KeyStat(platform::VK_SCROLL, value);
}
bool cKeyboard::InsertState() const {
    return KeyStat(platform::VK_INSERT);
}
void cKeyboard::InsertState(bool value) {
    KeyStat(platform::VK_INSERT, value);
}

bool cKeyboard::KeyStat(std::int32_t nKey) const {
    return (platform::GetKeyState(nKey) & 1) != 0;
}
void cKeyboard::KeyStat(std::int32_t nKey, bool value) {
    writeBit(nKey, toggledBit, value);
}

bool cKeyboard::KeyPressed(std::int32_t nKey) const {
    return platform::GetKeyState(nKey) < 0;
}
void cKeyboard::KeyPressed(std::int32_t nKey, bool value) {
    writeBit(nKey, pressedBit, value);
}

void cKeyboard::writeBit(std::int32_t nKey, platform::BYTE bit, bool value) {
    if (nKey < 0 || nKey >= static_cast<std::int32_t>(xKeyboardState.size())) return;
    if (!platform::GetKeyboardState(xKeyboardState.data())) return;
    platform::BYTE& state = xKeyboardState[static_cast<std::size_t>(nKey)];
    state = static_cast<platform::BYTE>(value ? state | bit : state & ~bit);
    platform::SetKeyboardState(xKeyboardState.data());
}

void cKeyboard::KeyDown(std::int32_t nKey) {
    platform::keybd_event(keyCode(nKey), 0, 0, 0);
}
void cKeyboard::KeyUp(std::int32_t nKey) {
    platform::keybd_event(keyCode(nKey), 0, platform::KEYEVENTF_KEYUP, 0);
}
void cKeyboard::KeyPress(std::int32_t nKey) {
    KeyDown(nKey);
    KeyUp(nKey);
}

void cKeyboard::PlayAction(tslKbdActionConstants nAction) {
    const auto index = static_cast<std::size_t>(nAction);
    if (index >= std::size(actions)) return;
    const Action& action = actions[index];
    if (action.modifier) KeyDown(action.modifier);
    KeyPress(action.key);
    if (action.modifier) KeyUp(action.modifier);
}

const automation::ClassTable& cKeyboard::table() {
    using Toggle = bool (cKeyboard::*)() const;
    using SetToggle = void (cKeyboard::*)(bool);
    using Key = bool (cKeyboard::*)(std::int32_t) const;
    using SetKey = void (cKeyboard::*)(std::int32_t, bool);
    static const automation::ClassTable table =
        automation::ClassTable::of<cKeyboard>("cKeyboard")
            .help("Reads and drives the keyboard and its lock keys.")
            .property("CapsState", Toggle(&cKeyboard::CapsState), SetToggle(&cKeyboard::CapsState))
            .property("NumsState", Toggle(&cKeyboard::NumsState), SetToggle(&cKeyboard::NumsState))
            .property("ScrollState", Toggle(&cKeyboard::ScrollState), SetToggle(&cKeyboard::ScrollState))
            .property("InsertState", Toggle(&cKeyboard::InsertState), SetToggle(&cKeyboard::InsertState))
            .property("KeyStat", Key(&cKeyboard::KeyStat), SetKey(&cKeyboard::KeyStat), {"nKey"})
            .property("KeyPressed", Key(&cKeyboard::KeyPressed), SetKey(&cKeyboard::KeyPressed), {"nKey"})
            .method("KeyDown", &cKeyboard::KeyDown, {"nKey"})
            .method("KeyUp", &cKeyboard::KeyUp, {"nKey"})
            .method("KeyPress", &cKeyboard::KeyPress, {"nKey"})
            .method("PlayAction", &cKeyboard::PlayAction, {"nAction"});
    return table;
}

const automation::Enumeration& enumerationOf(tslKbdActionConstants) {
    static const automation::Enumeration table("tslKbdActionConstants",
                                               {
                                                   {"tslKbdAction_Tab", tslKbdAction_Tab},
                                                   {"tslKbdAction_Shift_Tab", tslKbdAction_Shift_Tab},
                                                   {"tslKbdAction_PageUp", tslKbdAction_PageUp},
                                                   {"tslKbdAction_Ctrl_PageUp", tslKbdAction_Ctrl_PageUp},
                                                   {"tslKbdAction_PageDown", tslKbdAction_PageDown},
                                                   {"tslKbdAction_Ctrl_PageDown", tslKbdAction_Ctrl_PageDown},
                                                   {"tslKbdAction_Ctrl_Intro", tslKbdAction_Ctrl_Intro},
                                                   {"tslKbdAction_Alt_Down", tslKbdAction_Alt_Down},
                                                   {"tslKbdAction_Alt_Right", tslKbdAction_Alt_Right},
                                               });
    return table;
}

} // namespace tesela
