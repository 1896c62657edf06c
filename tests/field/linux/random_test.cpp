// Random keys, clipboard contents, sizes, property writes, bags and handlers, from fixed seeds, against what
// always holds: places within the text, literals of masks, the limit of the length, locks, and Change when
// the text changed and only then. With the sanitizers a million steps are made. Real input, as other systems
// take it, comes too late for so many.
#include "field/FieldTest.h"
#include "field/masks.h"
#include "host/Clipboard.h"
#include "host/PropertyBag.h"
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

struct Property {
    const char16_t* name;
    Step kind;
    std::vector<Variant> values;
};

/// All that forms keep of a field, with values of it, not only those that it knows.
const std::vector<Property>& properties() {
    const auto flags = [] { return std::vector<Variant>{Variant(true), Variant(true), Variant(false)}; };
    const auto numbers = [](std::initializer_list<std::int32_t> all) {
        return std::vector<Variant>(all.begin(), all.end());
    };
    const auto texts = [](std::initializer_list<const char16_t*> all) {
        return std::vector<Variant>(all.begin(), all.end());
    };
    static const std::vector<Property> all{
        {u"Scheme", Step::Write, numbers({0, 1, 2, 3, 4, 9})},
        {u"ShownEnabled", Step::Look, flags()},
        {u"BotonCombo", Step::Look, flags()},
        {u"BotonBuscar", Step::Look, flags()},
        {u"BotonFicha", Step::Look, flags()},
        {u"ButtonWidth", Step::Look, numbers({-1, 14, 15, 33, 60})},
        {u"EnabledGet", Step::Look, flags()},
        {u"EnabledCombo", Step::Look, flags()},
        {u"EnabledBuscar", Step::Look, flags()},
        {u"EnabledFicha", Step::Look, flags()},
        {u"Alias", Step::Look, texts({u"", u"clientes"})},
        {u"Campo", Step::Look, texts({u"", u"", u"TeselaID"})},
        {u"UserFont", Step::Look, flags()},
        {u"TipoDato", Step::Write, numbers({0, 1, 2, 7, -1})},
        {u"Mascara", Step::Write, texts({u"", u"##/AA", u"#,##0.00", u"dd/MM/yy", u"¿?;;;;", u";;XX-#"})},
        {u"MascaraFocus", Step::Look, texts({u"", u"", u"XX-#", u"((("})},
        {u"Mayusculas", Step::Look, numbers({0, 1, 2, 3, 8})},
        {u"AutoFormat", Step::Look, numbers({0, 1, 2, 3})},
        {u"VacioEnBlanco", Step::Look, flags()},
        {u"Seleccionado", Step::Look, numbers({0, 1, 2, 9})},
        {u"Enabled", Step::Look, flags()},
        {u"Text", Step::Write, texts({u"", u" uno ", u"-12,5", u"14/03/2026"})},
        {u"ToolTip", Step::Look, texts({u"", u"ayuda"})},
        {u"BackColor", Step::Look, numbers({-1, 0x112233, -2147483633, -7})},
        {u"ForeColor", Step::Look, numbers({-1, 0x332211, -7})},
        {u"Font", Step::Look, {Variant(automation::make<host::StdFont>())}},
        {u"FontWidth", Step::Look, {Variant(0.0F), Variant(1.5F), Variant(-3.0F)}},
        {u"BorderStyle", Step::Look, numbers({0, 1, 5})},
        {u"Appearance", Step::Look, numbers({0, 1, 5})},
        {u"Locked", Step::Look, {Variant(false), Variant(false), Variant(true)}},
        {u"MaxLength", Step::Look, numbers({0, 1, 5, 10, 40, -3, 2147483647})},
        {u"AutoSize", Step::Look, numbers({0, 1, 2, 3, 9})},
        {u"AutoTrim", Step::Write, numbers({0, 1, 2, 3, 9})},
        {u"Alignment", Step::Look, numbers({0, 1, 2, 5})},
        {u"PasswordChar", Step::Look, texts({u"", u"", u"*", u"ab"})},
        {u"CaracteresValidos", Step::Look, texts({u"", u"", u"aB5,"})},
        {u"MousePointer", Step::Look, numbers({0, 3, 11, 99})},
        {u"MultiLine", Step::Look, {Variant(false), Variant(false), Variant(true)}},
    };
    return all;
}

class RandomInput : public tests::FieldTest, public ::testing::WithParamInterface<unsigned> {
protected:
    RandomInput() : dice(GetParam()) {
        watches.push_back(field->Change.subscribe([this] {
            if (told == field->Text()) ++needless;
            told = field->Text();
        }));
        watches.push_back(field->Extender().GotFocus.subscribe([this] { ++visits; }));
        watches.push_back(field->Extender().LostFocus.subscribe([this] { ++visits; }));
        watches.push_back(field->KeyPress.subscribe([this](short& code) { handle(code); }));
        watches.push_back(field->KeyWatch.subscribe([this](short& code, short&) {
            if (roll(40) == 0) code = 0;
        }));
    }

    /// What applications do with a character: mostly nothing.
    void handle(short& code) {
        switch (roll(40)) {
        case 0:
            code = 0;
            break;
        case 1:
            code = pick<short>({'x', '7', -1, 300, '/'});
            break;
        case 2:
            field->Text(randomText(12));
            written = true;
            break;
        default:
            break;
        }
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

    Variant randomValue(const Property& property) {
        if (roll(8) == 0)
            return pick<Variant>({Variant(u"¿?"), Variant::null(), Variant(1e300), Variant(),
                                  Variant(static_cast<automation::Object*>(before))});
        return property.values[static_cast<std::size_t>(roll(static_cast<int>(property.values.size())))];
    }

    Step randomProperty() {
        const Property& property =
            properties()[static_cast<std::size_t>(roll(static_cast<int>(properties().size())))];
        done = automation::String(property.name).utf8();
        try {
            automation::letProperty(*field, property.name, randomValue(property));
        } catch (const automation::Error&) {
            // A value of another type.
        }
        return property.kind;
    }

    /// A few properties of a form that somebody else may have written; the others get their defaults.
    Step randomBag() {
        host::PropertyBag bag;
        for (const Property& property : properties())
            if (roll(4) == 0) bag.WriteProperty(property.name, randomValue(property));
        field->readProperties(bag);
        field->Enabled(true);
        return Step::Write;
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
        if (field->HasFocus()) {
            after->Extender().SetFocus();
        } else {
            field->Enabled(true);
            field->EnabledGet(true);
            field->Extender().SetFocus();
        }
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
        if (what < 74) return randomLook();
        if (what < 79) return randomProperty();
        if (what < 82) return randomWrite();
        if (what < 85) return randomSize();
        if (what < 92) return randomMouse();
        if (what < 93) return roll(4) ? otherKind() : randomBag();
        if (what < 94) return takenBack();
        if (what < 96 || !field->HasFocus()) return focusWalks();
        return paintSometimes();
    }

    // --- What holds

    struct State {
        automation::String text;
        int visits;
        bool fixed, inMask;
        std::int32_t limit;
    };

    State state() const {
        return {field->Text(), visits, field->Locked() || !field->EnabledGet(), isIn(field->MascaraFocus()),
                field->MaxLength()};
    }

    /// Whether the text has the form of a mask.
    bool isIn(const automation::String& mask) const {
        const auto& text = field->Text();
        if (field->TipoDato() != tslTipoDatoCaracter || mask.empty() || mask.length() != text.length())
            return false;
        for (std::size_t at = 0; at < mask.length(); ++at)
            if (!isMaskInput(mask[at]) && mask[at] != text[at]) return false;
        return true;
    }

    /// Whether the limit is for what is edited: a masked text has the length of its mask.
    bool keepsLimit() const {
        const bool masked = field->TipoDato() == tslTipoDatoCaracter && !field->MascaraFocus().empty();
        return !masked && field->MaxLength() > 0;
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
        if (former.fixed) {
            ASSERT_EQ(former.text, field->Text()) << "keys changed a field that is not to be edited";
        }
        if (former.inMask) {
            ASSERT_TRUE(isIn(field->MascaraFocus()))
                << former.text.utf8() << " in " << field->MascaraFocus().utf8();
        }
        const auto length = static_cast<std::int32_t>(field->Text().length());
        if (keepsLimit() && static_cast<std::int32_t>(former.text.length()) <= former.limit) {
            ASSERT_LE(length, std::max(former.limit, field->MaxLength()))
                << former.text.utf8() << " became " << field->Text().utf8() << ", mask "
                << field->Mascara().utf8() << " type " << field->TipoDato();
        }
    }

    /// The form that a text takes as the focus comes, unless it is locked, and goes.
    void checkForm() const {
        const bool edited = field->HasFocus();
        const auto& mask = edited ? field->MascaraFocus() : field->Mascara();
        if (field->TipoDato() != tslTipoDatoCaracter || mask.empty() || (edited && field->Locked())) return;
        ASSERT_TRUE(isIn(mask)) << field->Text().utf8() << " in " << mask.utf8();
    }

    void check(const State& former, Step kind) {
        ASSERT_NO_FATAL_FAILURE(checkPlaces());
        const bool focusMoved = former.visits != visits;
        if (kind == Step::Other || focusMoved) {
            told = field->Text();
            needless = 0;
        }
        ASSERT_EQ(0, needless) << "Change without one";
        ASSERT_EQ(told.utf8(), field->Text().utf8()) << "a change of which nobody was told";
        if (focusMoved) return checkForm();
        if (kind == Step::Input && !written) {
            ASSERT_NO_FATAL_FAILURE(checkInput(former));
        }
        if (kind == Step::Look) {
            ASSERT_EQ(former.text, field->Text());
        }
    }

    std::mt19937 dice;
    automation::String told;                       ///< The text of which Change has told last
    int needless = 0;                              ///< Events of Change with no other text
    std::string done;                              ///< The property that was written last
    int visits = 0;                                ///< How often the focus has come and gone
    bool written = false;                          ///< A handler has written a text in this step
    std::vector<automation::Subscription> watches; ///< End before what they write to
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
        written = false;
        const Step kind = step();
        ASSERT_NO_FATAL_FAILURE(check(former, kind)) << "step " << i << ", a kind " << static_cast<int>(kind)
                                                     << " " << done << " after " << former.text.utf8();
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
