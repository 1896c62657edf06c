// When the field beeps: the display in memory counts it.
#include "field/FieldTest.h"
#include "host/Clipboard.h"
#include "platform/linux/headless.h"

using namespace tesela;
using namespace tests;

namespace {

class get_refusals : public tests::FieldTest {
protected:
    /// How often the field beeps at what is done.
    template <class Action>
    static int beepsAt(const Action& action) {
        const int former = platform::headless::beeps();
        action();
        return platform::headless::beeps() - former;
    }
    int beepsAtTyping(std::u16string_view text) {
        return beepsAt([&] { type(text); });
    }
    int beepsAtControl(int letter) {
        return beepsAt([&] { FieldTest::press(platform::VK_CONTROL, letter); });
    }
    void number(const char16_t* mask) {
        field->TipoDato(tslTipoDatoNumero);
        field->Mascara(mask);
        field->Text(u"");
        enter();
        press(platform::VK_DELETE);
    }
};

} // namespace

TEST_F(get_refusals, ADigitTooManyOfANumberBeeps) {
    number(u"##0.00");
    EXPECT_EQ(0, beepsAtTyping(u"123,45"));
    EXPECT_EQ(1, beepsAtTyping(u"6"));
    press(platform::VK_HOME);
    EXPECT_EQ(1, beepsAtTyping(u"6"));
    EXPECT_EQ("123,45", text());
}

TEST_F(get_refusals, CharactersThatAreNotValidBeepUnlessTheApplicationDropsThem) {
    field->CaracteresValidos(u"abc");
    bool drops = false;
    field->KeyPress.join([&](short& code) {
        if (drops) code = 0;
    });
    enter();
    EXPECT_EQ(0, beepsAtTyping(u"a"));
    EXPECT_EQ(1, beepsAtTyping(u"x"));
    drops = true;
    EXPECT_EQ(0, beepsAtTyping(u"x"));
}

TEST_F(get_refusals, WhatDoesNotFitTheMaskBeeps) {
    field->Mascara(u"#A");
    enter();
    EXPECT_EQ(2, beepsAtTyping(u"a1"
                               u"1"))
        << "a and the second 1";
    EXPECT_EQ(1, beepsAtTyping(u"b9")) << "9, behind the end";
    EXPECT_EQ("1b", text());
}

TEST_F(get_refusals, AFullTextBeepsInEitherMode) {
    field->MaxLength(2);
    enter();
    EXPECT_EQ(1, beepsAtTyping(u"abc"));
    press(platform::VK_INSERT);
    press(platform::VK_HOME);
    EXPECT_EQ(1, beepsAtTyping(u"xyz"));
    EXPECT_EQ("xy", text());
}

TEST_F(get_refusals, LettersInADateAreSwallowedInSilence) {
    field->TipoDato(tslTipoDatoFecha);
    enter();
    EXPECT_EQ(0, beepsAtTyping(u"a1+"));
}

TEST_F(get_refusals, ALockedFieldBeepsAtWhatWouldChangeIt) {
    field->Text(u"abc");
    field->Locked(true);
    enter();
    EXPECT_EQ(1, beepsAtTyping(u"x"));
    EXPECT_EQ(1, beepsAt([&] { press(platform::VK_BACK); }));
    for (const char letter : {'A', 'V', 'X', 'Y', 'Z', 'B'})
        EXPECT_EQ(1, beepsAtControl(letter)) << letter;
    EXPECT_EQ(3, field->SelLength()) << "but Ctrl+A selects";
    EXPECT_EQ(0, beepsAtControl('C'));
    EXPECT_EQ(0, beepsAt([&] { press(platform::VK_ESCAPE); }));
    EXPECT_EQ("abc", text());
}

TEST_F(get_refusals, ALockedFieldWithAListIsSilentAtTyping) {
    field->Text(u"abc");
    field->Locked(true);
    field->BotonCombo(true);
    enter();
    EXPECT_EQ(0, beepsAtTyping(u"x"));
    EXPECT_EQ(0, beepsAt([&] { press(platform::VK_BACK); }));
    EXPECT_EQ("abc", text());
}

TEST_F(get_refusals, PastesBeepWhereTheyHaveNoPlace) {
    host::Clipboard::Clear();
    host::Clipboard::SetText(u"123456");
    field->MaxLength(4);
    enter();
    EXPECT_EQ(1, beepsAtControl('V')) << "cut to the length";
    EXPECT_EQ("1234", text());
    field->Mascara(u"####");
    EXPECT_EQ(1, beepsAtControl('V'));
    field->Mascara({});
    field->MascaraFocus({});
    field->TipoDato(tslTipoDatoFecha);
    EXPECT_EQ(1, beepsAtControl('V'));
}

TEST_F(get_refusals, EnterAndTabAreSilent) {
    const auto walk = [&] {
        enter();
        return beepsAt([&] {
            press(platform::VK_RETURN);
            FieldTest::press(platform::VK_SHIFT, platform::VK_TAB);
            press(platform::VK_TAB);
        });
    };
    EXPECT_EQ(0, walk());
    before->Extender().SetFocus();
    field->Locked(true);
    EXPECT_EQ(0, walk());
}
