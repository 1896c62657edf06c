// Random keys, clipboard contents, sizes and property writes, from fixed seeds, against what always holds.
// Real input, as other systems take it, comes too late for so many steps.
#include "field/FieldTest.h"
#include "field/masks.h"
#include "host/Clipboard.h"
#include "platform/processes.h"

#include <algorithm>
#include <random>

using namespace tesela;
using namespace tests;

namespace {

constexpr int stepsPerSeed = 4000;

class RandomInput : public tests::FieldTest, public ::testing::WithParamInterface<unsigned> {
protected:
    RandomInput() : dice(GetParam()) {}

    int roll(int sides) { return static_cast<int>(dice() % static_cast<unsigned>(sides)); }

    template <class T>
    const T& pick(std::initializer_list<T> all) {
        return all.begin()[roll(static_cast<int>(all.size()))];
    }

    std::u16string randomText(int most) {
        static constexpr std::u16string_view letters = u"aZñÇ09 -+/,.:x€☃\t\r\n\x01";
        std::u16string text;
        for (int i = roll(most + 1); i > 0; --i)
            text += letters[static_cast<std::size_t>(roll(static_cast<int>(letters.size())))];
        return text;
    }

    void randomKey() {
        using namespace platform;
        const int key = pick<int>({VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_INSERT, VK_DELETE, VK_BACK, VK_ADD,
                                   VK_SUBTRACT, VK_SPACE, 'A', 'C', 'X', 'V', 'Y', 'Z', '7'});
        const int modifier = pick<int>({0, 0, 0, VK_SHIFT, VK_CONTROL});
        if (modifier)
            FieldTest::press(modifier, key);
        else
            FieldTest::press(key);
    }

    void randomTyping() {
        type(std::u16string_view(u"aBñ5 -+,./8").substr(static_cast<std::size_t>(roll(11)), 1));
    }

    void randomMouse() {
        platform::POINT point{roll(260) - 30, roll(40) - 10};
        platform::ClientToScreen(field->hWnd(), &point);
        switch (roll(4)) {
        case 0:
            desk.doubleClick(point);
            break;
        case 1:
            desk.moveMouse(point);
            desk.pressButton();
            break;
        case 2:
            desk.moveMouse(point);
            break;
        default:
            desk.releaseButton();
        }
        desk.pump();
    }

    void randomProperty() {
        switch (roll(17)) {
        case 0:
            field->Text(randomText(12));
            break;
        case 1:
            field->Value(
                pick<Variant>({Variant(1234.5), Variant(Date(45000.25)), Variant(u"hola"), Variant::null(),
                               Variant(std::int32_t{-7}), Variant(Date(2958465.5))}));
            break;
        case 2:
            field->MaxLength(pick<int>({0, 1, 5, 10, 40, -3, 2147483647}));
            break;
        case 3:
            field->SelStart(roll(20) - 3);
            break;
        case 4:
            field->SelLength(roll(20) - 3);
            break;
        case 5:
            field->Mayusculas(static_cast<tslMayusculasConstants>(roll(4)));
            break;
        case 6:
            field->Locked(roll(4) == 0);
            break;
        case 7:
            field->MultiLine(roll(3) == 0);
            break;
        case 8:
            field->PasswordChar(roll(4) == 0 ? u"*" : u"");
            break;
        case 9:
            field->Alignment(static_cast<tslAlignmentConstants>(roll(3)));
            break;
        case 10:
            field->BotonCombo(roll(2) == 0);
            break;
        case 11:
            field->AutoSize(static_cast<tslAutoSizeConstants>(roll(4)));
            break;
        case 12:
            field->Extender().Move(300, 900, static_cast<float>(roll(6000)), static_cast<float>(roll(900)));
            break;
        case 13:
            field->SetCaretPosition(roll(20) - 3);
            break;
        case 14:
            field->SetText(randomText(12));
            break;
        case 15:
            field->ButtonWidth(10 + roll(40));
            break;
        default:
            field->VacioEnBlanco(roll(2) == 0);
        }
    }

    void otherKind() {
        field->Locked(false);
        switch (roll(4)) {
        case 0:
            field->Reset();
            break;
        case 1:
            field->Reset();
            field->Mascara(
                pick<const char16_t*>({u"##/AA", u"(XX) 0#;;XXXX", u"##:##", u"AA-##;;", u"¿?;;;;"}));
            break;
        case 2:
            field->TipoDato(tslTipoDatoNumero);
            field->Mascara(pick<const char16_t*>({u"#,###,##0.00", u"##0", u".000", u""}));
            break;
        default:
            field->TipoDato(tslTipoDatoFecha);
            field->Mascara(globales().cFmtFecha);
        }
    }

    void step() {
        switch (roll(12)) {
        case 0:
            randomProperty();
            break;
        case 1:
            randomMouse();
            break;
        case 2:
            host::Clipboard::Clear();
            host::Clipboard::SetText(randomText(30));
            FieldTest::press(platform::VK_CONTROL, 'V');
            break;
        case 3:
            if (roll(6) == 0) otherKind();
            break;
        case 4:
            if (roll(4) == 0)
                after->Extender().SetFocus();
            else if (field->Extender().Visible() && !field->HasFocus())
                field->Extender().SetFocus();
            desk.pump();
            break;
        case 5:
        case 6:
        case 7:
            randomTyping();
            break;
        default:
            randomKey();
        }
    }

    /// What holds after each step.
    void check(const std::string& former, bool wasLocked, bool typed) {
        const auto length = static_cast<std::int32_t>(field->Text().length());
        ASSERT_GE(field->caretPosition(), 0);
        ASSERT_LE(field->caretPosition(), length);
        const std::int32_t end = field->SelStart() + field->SelLength();
        ASSERT_TRUE(field->SelStart() >= 0 && field->SelStart() <= length) << field->SelStart();
        ASSERT_TRUE(end >= 0 && end <= length) << end;
        ASSERT_EQ(0, field->UncompletedEvents());
        if (!typed) return;
        if (wasLocked) {
            ASSERT_EQ(former, text()) << "keys changed a locked field";
        }
        ASSERT_EQ(former != text(), changes > 0) << former << " became " << text();
    }

    std::mt19937 dice;
};

/// How often more than once each seed is played; TESELA_RANDOM_ROUNDS of the environment, 1 without it.
int rounds() {
    const auto given = platform::environmentVariable(u"TESELA_RANDOM_ROUNDS");
    return given.empty() ? 1 : std::max(std::stoi(platform::utf8FromWide(given)), 1);
}

} // namespace

TEST_P(RandomInput, LeavesTheFieldInOrder) {
    show();
    field->Extender().SetFocus();
    for (int i = 0; i < stepsPerSeed * rounds(); ++i) {
        step();
        ASSERT_NO_FATAL_FAILURE(check({}, false, false)) << "step " << i;
    }
}

TEST_P(RandomInput, KeysRaiseChangeWhenTheyChangeTheText) {
    show();
    field->Extender().SetFocus();
    for (int i = 0; i < stepsPerSeed * rounds(); ++i) {
        if (roll(50) == 0) otherKind();
        if (roll(50) == 0) field->Locked(roll(3) == 0);
        if (!field->HasFocus()) field->Extender().SetFocus();
        desk.pump();
        changes = 0;
        const std::string former = text();
        const bool locked = field->Locked();
        if (roll(2))
            randomKey();
        else
            randomTyping();
        ASSERT_NO_FATAL_FAILURE(check(former, locked, true)) << "step " << i;
    }
}

TEST_P(RandomInput, MasksKeepTheirLiterals) {
    constexpr std::u16string_view mask = u"(##) AA-0X";
    field->Mascara(mask);
    show();
    field->Extender().SetFocus();
    for (int i = 0; i < stepsPerSeed * rounds(); ++i) {
        if (roll(3) == 0)
            randomTyping();
        else if (roll(20) == 0)
            randomMouse();
        else
            randomKey();
        const auto text = field->Text();
        ASSERT_EQ(mask.size(), text.length()) << "step " << i;
        for (std::size_t at = 0; at < mask.size(); ++at)
            if (!isMaskInput(mask[at])) {
                ASSERT_EQ(mask[at], text[at]) << "step " << i << ": " << text.utf8();
            }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomInput, ::testing::Values(1u, 2u, 3u));

TEST_F(FieldTest, AMegabyteIsPastedAndTypedInto) {
    enter();
    host::Clipboard::Clear();
    host::Clipboard::SetText(automation::String::repeat(u'x', 1000000));
    press(platform::VK_CONTROL, 'V');
    EXPECT_EQ(1000000u, field->Text().length());
    type(u"abc");
    press(platform::VK_HOME);
    type(u"abc");
    field->MultiLine(true);
    press(platform::VK_END);
    EXPECT_EQ(1000006u, field->Text().length());
}
