#include "automation/LateBound.h"
#include "platform/windows.h"
#include "support/Started.h"
#include "system/cKeyboard.h"

using automation::Variant;
using namespace tesela;

namespace {

class cKeyboard_ : public support::Started {
protected:
    automation::Ref<cKeyboard> keyboard = automation::make<cKeyboard>();
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

TEST_F(cKeyboard_, AnswersByName) {
    automation::letProperty(*keyboard, u"keystat", Variant(std::int32_t{145}), Variant(true));
    EXPECT_TRUE(automation::getProperty(*keyboard, u"ScrollState").asBoolean());
    automation::letProperty(*keyboard, u"ScrollState", Variant(false));
    EXPECT_FALSE(automation::getProperty(*keyboard, u"KeyStat", Variant(std::int32_t{145})).asBoolean());
}
