#pragma once

#include "automation/Enumeration.h"
#include "automation/Object.h"
#include "platform/types.h"

#include <array>
#include <cstdint>

namespace tesela {

/// Key sequences that PlayAction plays.
enum tslKbdActionConstants : std::int32_t {
    tslKbdAction_Tab = 0,
    tslKbdAction_Shift_Tab = 1,
    tslKbdAction_PageUp = 2,
    tslKbdAction_Ctrl_PageUp = 3,
    tslKbdAction_PageDown = 4,
    tslKbdAction_Ctrl_PageDown = 5,
    tslKbdAction_Ctrl_Intro = 6,
    tslKbdAction_Alt_Down = 7,
    tslKbdAction_Alt_Right = 8,
};

const automation::Enumeration& enumerationOf(tslKbdActionConstants);

/// Reads and drives the keyboard and its lock keys. Keys are virtual-key codes.
class cKeyboard : public automation::Object {
public:
    /// The toggles of Caps Lock, Num Lock, Scroll Lock and Insert.
    bool CapsState() const;
    void CapsState(bool value);
    bool NumsState() const;
    void NumsState(bool value);
    bool ScrollState() const;
    void ScrollState(bool value);
    bool InsertState() const;
    void InsertState(bool value);

    /// Whether a key is toggled on.
    bool KeyStat(std::int32_t nKey) const;
    void KeyStat(std::int32_t nKey, bool value);
    /// Whether a key is down.
    bool KeyPressed(std::int32_t nKey) const;
    void KeyPressed(std::int32_t nKey, bool value);

    /// Play a key as if the user moved it.
    void KeyDown(std::int32_t nKey);
    void KeyUp(std::int32_t nKey);
    void KeyPress(std::int32_t nKey);
    /// Plays a sequence; unknown values do nothing.
    void PlayAction(tslKbdActionConstants nAction);

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    void writeBit(std::int32_t nKey, platform::BYTE bit, bool value);

    std::array<platform::BYTE, 256> xKeyboardState{}; ///< Filled only while a key's state is changed
};

} // namespace tesela
