#include "automation/LateBound.h"
#include "host/Form.h"
#include "platform/windows.h"
#include "support/Desk.h"
#include "support/MemberNames.h"
#include "support/Started.h"
#include "system/cKeyboard.h"

using automation::Variant;
using namespace tesela;

namespace {

class cKeyboard_ : public support::Started {
protected:
    automation::Ref<cKeyboard> keyboard = automation::make<cKeyboard>();
};

/// A form that takes each key that reaches it as one word: "+9" for the press of key 9, "-9" for its release,
/// "sys+40" for a press with Alt. The release of Alt itself has no mark: a system may send either message.
class KeyForm : public host::Form {
public:
    std::string keys() {
        std::string result;
        result.swap(keys_);
        return result;
    }

protected:
    bool translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM) override {
        const bool system = message == platform::WM_SYSKEYDOWN || message == platform::WM_SYSKEYUP;
        const bool down = message == platform::WM_KEYDOWN || message == platform::WM_SYSKEYDOWN;
        const bool up = message == platform::WM_KEYUP || message == platform::WM_SYSKEYUP;
        if (!down && !up) return true;
        if (!keys_.empty()) keys_ += ' ';
        if (system && (down || wParam != platform::VK_MENU)) keys_ += "sys";
        keys_ += (down ? "+" : "-") + std::to_string(wParam);
        return true;
    }

private:
    std::string keys_;
};

/// A KeyForm that has the focus.
class cKeyboardAtAForm : public cKeyboard_ {
protected:
    cKeyboardAtAForm() {
        form->Show();
        desk.pump();
        form->keys();
    }
    ~cKeyboardAtAForm() override { form->unload(); }

    std::string arrived() {
        desk.pump();
        return form->keys();
    }

    support::Desk desk;
    automation::Ref<KeyForm> form = automation::make<KeyForm>();
};

} // namespace

TEST_F(cKeyboard_, LockKeysReadBackWhatIsWritten) {
    const struct {
        bool (cKeyboard::*read)() const;
        void (cKeyboard::*write)(bool);
        std::int32_t key;
    } locks[] = {
        {&cKeyboard::CapsState, &cKeyboard::CapsState, 20},
        {&cKeyboard::NumsState, &cKeyboard::NumsState, 144},
        {&cKeyboard::ScrollState, &cKeyboard::ScrollState, 145},
        {&cKeyboard::InsertState, &cKeyboard::InsertState, 45},
    };
    for (const auto& lock : locks) {
        const bool before = (*keyboard.*lock.read)();
        (*keyboard.*lock.write)(!before);
        EXPECT_EQ(!before, (*keyboard.*lock.read)()) << lock.key;
        EXPECT_EQ(!before, keyboard->KeyStat(lock.key)) << lock.key;
        keyboard->KeyStat(lock.key, before);
        EXPECT_EQ(before, (*keyboard.*lock.read)()) << lock.key;
    }
}

TEST_F(cKeyboard_, AKeysDownStateIsWrittenApartFromItsToggle) {
    keyboard->KeyStat(0x41, false);
    keyboard->KeyPressed(0x41, true);
    EXPECT_TRUE(keyboard->KeyPressed(0x41));
    EXPECT_FALSE(keyboard->KeyStat(0x41));
    keyboard->KeyStat(0x41, true);
    EXPECT_TRUE(keyboard->KeyPressed(0x41));
    keyboard->KeyPressed(0x41, false);
    EXPECT_FALSE(keyboard->KeyPressed(0x41));
    EXPECT_TRUE(keyboard->KeyStat(0x41));
    keyboard->KeyStat(0x41, false);
}

TEST_F(cKeyboard_, KeysThatDoNotExistArePassedOver) {
    keyboard->KeyStat(-1, true);
    keyboard->KeyStat(256, true);
    keyboard->KeyPressed(100000, true);
    EXPECT_FALSE(keyboard->KeyPressed(100000));
}

TEST_F(cKeyboard_, TheInterfaceStandsInItsOrder) {
    const std::vector<std::string> order{"CapsState", "NumsState",  "ScrollState", "InsertState",
                                         "KeyStat",   "KeyPressed", "KeyDown",     "KeyUp",
                                         "KeyPress",  "PlayAction"};
    EXPECT_EQ(order, tests::memberNames(cKeyboard::table()));
}

TEST_F(cKeyboard_, AnswersByName) {
    automation::letProperty(*keyboard, u"keystat", Variant(std::int32_t{145}), Variant(true));
    EXPECT_TRUE(automation::getProperty(*keyboard, u"ScrollState").asBoolean());
    automation::letProperty(*keyboard, u"ScrollState", Variant(false));
    EXPECT_FALSE(automation::getProperty(*keyboard, u"KeyStat", Variant(std::int32_t{145})).asBoolean());
}

TEST_F(cKeyboardAtAForm, PlaysEachSequenceInItsOrder) {
    const struct {
        tslKbdActionConstants action;
        const char* keys;
    } sequences[] = {
        {tslKbdAction_Tab, "+9 -9"},
        {tslKbdAction_Shift_Tab, "+16 +9 -9 -16"},
        {tslKbdAction_PageUp, "+33 -33"},
        {tslKbdAction_Ctrl_PageUp, "+17 +33 -33 -17"},
        {tslKbdAction_PageDown, "+34 -34"},
        {tslKbdAction_Ctrl_PageDown, "+17 +34 -34 -17"},
        {tslKbdAction_Ctrl_Intro, "+17 +13 -13 -17"},
        {tslKbdAction_Alt_Down, "sys+18 sys+40 sys-40 -18"},
        {tslKbdAction_Alt_Right, "sys+18 sys+39 sys-39 -18"},
    };
    for (const auto& sequence : sequences) {
        keyboard->PlayAction(sequence.action);
        EXPECT_EQ(sequence.keys, arrived()) << sequence.action;
    }
}

TEST_F(cKeyboardAtAForm, UnknownSequencesPlayNothing) {
    for (const std::int32_t unknown : {9, -1, 1000}) {
        keyboard->PlayAction(static_cast<tslKbdActionConstants>(unknown));
        EXPECT_EQ("", arrived()) << unknown;
    }
}

TEST_F(cKeyboardAtAForm, AKeyIsPressedAndReleased) {
    keyboard->KeyDown('A');
    EXPECT_EQ("+65", arrived());
    EXPECT_TRUE(keyboard->KeyPressed('A'));
    keyboard->KeyUp('A');
    EXPECT_EQ("-65", arrived());
    EXPECT_FALSE(keyboard->KeyPressed('A'));
    keyboard->KeyPress('B');
    EXPECT_EQ("+66 -66", arrived());
}

TEST_F(cKeyboardAtAForm, PlaysByName) {
    automation::callMethod(*keyboard, u"PlayAction", Variant(std::int32_t{1}));
    automation::callMethod(*keyboard, u"KeyPress", Variant(std::int32_t{27}));
    EXPECT_EQ("+16 +9 -9 -16 +27 -27", arrived());
}
