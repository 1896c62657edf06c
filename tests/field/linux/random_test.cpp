// Random keys, clipboard contents, sizes and property writes, from fixed seeds, against what always holds:
// places within the text, literals of masks, the limit of the length, locks, and Change when the text changed
// and only then. With the sanitizers a million steps are made. Real input, as other systems take it, comes
// too late for so many.
#include "field/FieldTest.h"
#include "field/masks.h"
#include "host/Clipboard.h"
#include "platform/processes.h"

#include <algorithm>
#include <random>

using namespace tesela;
using namespace tests;

namespace {

constexpr int stepsPerSeed = 10000;

/// What a step may do to the text.
enum class Step {
    Input, ///< Keys, the mouse and the clipboard edit it
    Look,  ///< Sizes and looks leave it alone
    Write, ///< The application writes another one, of which Change tells
    Other  ///< It is written without a word, or takes another form as the focus comes or goes
};

class RandomInput : public tests::FieldTest, public ::testing::WithParamInterface<unsigned> {
protected:
    RandomInput() : dice(GetParam()) {
        watch = field->Change.subscribe([this] {
            if (told == field->Text()) ++needless;
            told = field->Text();
        });
    }

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

    // --- Steps

    Step randomKey() {
        using namespace platform;
        const int key =
            pick<int>({VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_INSERT, VK_DELETE, VK_BACK, VK_ADD, VK_SUBTRACT,
                       VK_SPACE, VK_UP, VK_DOWN, VK_ESCAPE, 'A', 'C', 'X', 'Y', '7'});
        const int modifier = pick<int>({0, 0, 0, VK_SHIFT, VK_CONTROL});
        if (modifier)
            FieldTest::press(modifier, key);
        else
            FieldTest::press(key);
        return Step::Input;
    }

    Step randomTyping() {
        type(std::u16string_view(u"aBñ5 -+,./8").substr(static_cast<std::size_t>(roll(11)), 1));
        return Step::Input;
    }

    Step randomMouse() {
        platform::POINT point{roll(260) - 30, roll(40) - 10};
        platform::ClientToScreen(field->hWnd(), &point);
        switch (roll(4)) {
        case 0:
            desk.doubleClick(point);
            break;
        case 1:
            desk.moveMouse(point);
            desk.pressButton(roll(4) ? platform::VK_LBUTTON : platform::VK_RBUTTON);
            break;
        case 2:
            desk.moveMouse(point);
            break;
        default:
            desk.releaseButton();
            desk.releaseButton(platform::VK_RBUTTON);
        }
        desk.pump();
        return Step::Input;
    }

    Step randomClipboard() {
        host::Clipboard::Clear();
        host::Clipboard::SetText(randomText(30));
        FieldTest::press(platform::VK_CONTROL, 'V');
        return Step::Input;
    }

    /// Of a text, whose limit may be another one since.
    Step takenBack() {
        FieldTest::press(platform::VK_CONTROL, 'Z');
        return Step::Write;
    }

    Step randomLook() {
        switch (roll(11)) {
        case 0:
            field->MaxLength(pick<int>({0, 1, 5, 10, 40, -3, 2147483647}));
            break;
        case 1:
            field->SelStart(roll(20) - 3);
            break;
        case 2:
            field->SelLength(roll(20) - 3);
            break;
        case 3:
            field->MultiLine(roll(3) == 0);
            break;
        case 4:
            field->PasswordChar(roll(4) == 0 ? u"*" : u"");
            break;
        case 5:
            field->Alignment(static_cast<tslAlignmentConstants>(roll(3)));
            break;
        case 6:
            field->BotonCombo(roll(2) == 0);
            break;
        case 7:
            field->AutoSize(static_cast<tslAutoSizeConstants>(roll(4)));
            break;
        case 8:
            field->SetCaretPosition(roll(20) - 3);
            break;
        case 9:
            field->ButtonWidth(10 + roll(40));
            break;
        default:
            field->VacioEnBlanco(roll(2) == 0);
        }
        return Step::Look;
    }

    Step randomSize() {
        field->Extender().Move(300, 900, static_cast<float>(roll(6000)), static_cast<float>(roll(900)));
        return Step::Look;
    }

    Step randomWrite() {
        switch (roll(4)) {
        case 0:
            field->Text(randomText(12));
            return Step::Write;
        case 1:
            field->Value(
                pick<Variant>({Variant(1234.5), Variant(Date(45000.25)), Variant(u"hola"), Variant::null(),
                               Variant(std::int32_t{-7}), Variant(Date(2958465.5))}));
            return Step::Write;
        case 2:
            field->SetText(randomText(12));
            return Step::Other;
        default:
            field->Mayusculas(static_cast<tslMayusculasConstants>(roll(4)));
            field->Locked(roll(4) == 0);
            return Step::Look;
        }
    }

    Step otherKind() {
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
        return Step::Write;
    }

    Step focusWalks() {
        if (field->HasFocus())
            after->Extender().SetFocus();
        else
            field->Extender().SetFocus();
        desk.pump();
        return Step::Other;
    }

    /// Painting takes most of the time, so that most steps go unseen.
    Step paintSometimes() {
        field->EndRefresh();
        desk.pump();
        if (roll(4) != 0) field->BeginRefresh();
        return Step::Look;
    }

    Step step() {
        const int what = roll(100);
        if (what < 30) return randomTyping();
        if (what < 62) return randomKey();
        if (what < 70) return randomClipboard();
        if (what < 78) return randomLook();
        if (what < 82) return randomWrite();
        if (what < 85) return randomSize();
        if (what < 92) return randomMouse();
        if (what < 93) return otherKind();
        if (what < 94) return takenBack();
        if (what < 96 || !field->HasFocus()) return focusWalks();
        return paintSometimes();
    }

    // --- What holds

    struct State {
        automation::String text;
        bool focused, locked, inMask;
        std::int32_t limit;
        bool operator==(const State&) const = default;
    };

    State state() const {
        return {field->Text(), field->HasFocus(), field->Locked(), isInMask(), field->MaxLength()};
    }

    /// Whether the text has the form of the mask that it is edited in.
    bool isInMask() const {
        const auto &mask = field->MascaraFocus(), &text = field->Text();
        if (field->TipoDato() != tslTipoDatoCaracter || mask.empty() || mask.length() != text.length())
            return false;
        for (std::size_t at = 0; at < mask.length(); ++at)
            if (!isMaskInput(mask[at]) && mask[at] != text[at]) return false;
        return true;
    }

    /// Whether the field keeps to its limit by itself: forms of dates and masks have their own lengths.
    bool keepsLimit() const {
        const bool plain = field->MascaraFocus().empty() || field->TipoDato() == tslTipoDatoNumero;
        return plain && field->TipoDato() != tslTipoDatoFecha && field->MaxLength() > 0;
    }

    void checkPlaces() const {
        const auto length = static_cast<std::int32_t>(field->Text().length());
        ASSERT_TRUE(field->caretPosition() >= 0 && field->caretPosition() <= length);
        const std::int32_t end = field->SelStart() + field->SelLength();
        ASSERT_TRUE(field->SelStart() >= 0 && field->SelStart() <= length) << field->SelStart();
        ASSERT_TRUE(end >= 0 && end <= length) << end;
        ASSERT_EQ(0, field->UncompletedEvents());
    }

    void checkInput(const State& former) const {
        if (former.locked) {
            ASSERT_EQ(former.text, field->Text()) << "keys changed a locked field";
        }
        if (former.inMask) {
            ASSERT_TRUE(isInMask()) << former.text.utf8() << " in " << field->MascaraFocus().utf8();
        }
        const auto length = static_cast<std::int32_t>(field->Text().length());
        if (keepsLimit() && static_cast<std::int32_t>(former.text.length()) <= former.limit) {
            ASSERT_LE(length, std::max(former.limit, field->MaxLength()))
                << former.text.utf8() << " became " << field->Text().utf8() << ", mask "
                << field->Mascara().utf8() << " type " << field->TipoDato();
        }
    }

    void check(const State& former, Step kind) {
        ASSERT_NO_FATAL_FAILURE(checkPlaces());
        const bool focusMoved = former.focused != field->HasFocus();
        if (kind == Step::Other || focusMoved) {
            told = field->Text();
            needless = 0;
        }
        ASSERT_EQ(0, needless) << "Change without one";
        ASSERT_EQ(told, field->Text()) << "a change of which nobody was told";
        if (focusMoved) return;
        if (kind == Step::Input) {
            ASSERT_NO_FATAL_FAILURE(checkInput(former));
        }
        if (kind == Step::Look) {
            ASSERT_EQ(former.text, field->Text());
        }
    }

    std::mt19937 dice;
    automation::String told;        ///< The text of which Change has told last
    automation::Subscription watch; ///< Ends before what it writes to
    int needless = 0;               ///< Events of Change with no other text
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
    told = field->Text();
    for (int i = 0; i < stepsPerSeed * rounds(); ++i) {
        const State former = state();
        const Step kind = step();
        ASSERT_NO_FATAL_FAILURE(check(former, kind)) << "step " << i << " after " << former.text.utf8();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomInput, ::testing::Range(1u, 6u));

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
