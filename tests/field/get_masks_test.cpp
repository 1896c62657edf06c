// The field's masks and types.
#include "field/FieldTest.h"

#include <cmath>

using namespace tesela;
using namespace tests;

namespace {

class get_masks : public tests::FieldTest {};

} // namespace

TEST_F(get_masks, APairSetsBothMasks) {
    field->Mascara(u"##/##;;####");
    EXPECT_EQ("##/##", field->Mascara().utf8());
    EXPECT_EQ("####", field->MascaraFocus().utf8());
    EXPECT_EQ(5, field->MaxLength());
    EXPECT_EQ("  /  ", text()) << "the text takes the mask";
}

TEST_F(get_masks, OneMaskServesForBoth) {
    field->Mascara(u"AA-##");
    EXPECT_EQ("AA-##", field->MascaraFocus().utf8());
}

TEST_F(get_masks, TheFontFollowsTheMaskUnlessTheApplicationChoseIt) {
    field->Mascara(u"##");
    EXPECT_EQ("Courier", field->Font()->Name().utf8());
    EXPECT_EQ(10, field->Font()->Size().toDouble());
    after->UserFont(true);
    after->Mascara(u"##");
    EXPECT_EQ("MS Sans Serif", after->Font()->Name().utf8());
    before->TipoDato(tslTipoDatoNumero);
    before->Mascara(u"##0");
    EXPECT_EQ("Verdana", before->Font()->Name().utf8());
}

TEST_F(get_masks, TheFontOfAFieldIsItsOwn) {
    constexpr double usual = 8.25, large = 20;
    const auto size = automation::Currency::fromDouble(large);
    const float height = field->Height();
    const automation::Ref<host::StdFont> font = before->Font();
    EXPECT_EQ(font, before->Font());
    EXPECT_NE(font, field->Font());
    font->Size(size);
    EXPECT_LT(height, before->Height()) << "the field follows it";
    EXPECT_EQ(height, field->Height());
    after->Font(font);
    EXPECT_EQ(large, after->Font()->Size().toDouble());
    EXPECT_NE(font, after->Font()) << "the attributes are copied";
    EXPECT_EQ(usual, field->Font()->Size().toDouble());
    get& made = form->add<get>(u"getNuevo");
    EXPECT_EQ(usual, made.Font()->Size().toDouble());
    field->Mascara(u"##");
    EXPECT_EQ("MS Sans Serif", form->add<get>(u"getOtro").Font()->Name().utf8());
}

TEST_F(get_masks, ASizeThatIsNearlyTheOneWantedStays) {
    field->Font()->Size(automation::Currency::fromDouble(10.5));
    field->Mascara(u"##");
    EXPECT_EQ(10.5, field->Font()->Size().toDouble());
}

TEST_F(get_masks, TheWidthFollowsTheMaskWithAutoSize) {
    field->AutoSize(tslautoSize_X);
    field->Mascara(u"####");
    const float narrow = field->Width();
    field->Mascara(u"########");
    EXPECT_GT(field->Width(), narrow);
}

TEST_F(get_masks, TheWidthIsThatOfTheLettersOfTheMaskAndEightPixels) {
    constexpr int pixel = 15, margin = 8;
    for (const auto sizes : {tslautoSize_X, tslAutoSize_XY}) {
        field->AutoSize(sizes);
        const auto width = [this](const char16_t* mask) {
            field->Mascara(mask);
            return std::lround(field->Width() / pixel);
        };
        const auto four = width(u"####"), eight = width(u"########");
        EXPECT_EQ(margin, 2 * four - eight) << sizes;
    }
}

TEST_F(get_masks, TheWidthHasRoomForPhantomDigits) {
    field->TipoDato(tslTipoDatoNumero);
    field->AutoSize(tslAutoSize_XY);
    const auto width = [this](const char16_t* mask) {
        field->FormatoMascara(mask);
        return field->Width();
    };
    const float none = width(u"(4)"), two = width(u"(4,0,2)"), five = width(u"(4,0,5)");
    EXPECT_EQ(five - two, two - none) << "a point and two digits, then three digits";
    EXPECT_GT(two, none);
    const float decimals = width(u"(4,1)"), faint = width(u"(4,1,3)");
    EXPECT_EQ(five - two, faint - decimals) << "the point is there already";
}

TEST_F(get_masks, AMaskThatStaysLeavesTheText) {
    field->Mascara(u"##");
    field->SetText(u"abc");
    field->Mascara(u"##");
    EXPECT_EQ("abc", text());
    field->Mascara(u"AA");
    EXPECT_EQ("ab", text());
}

TEST_F(get_masks, AnEmptyCompactMaskTakesBothMasksAway) {
    field->Mascara(u"##;;###");
    field->VacioEnBlanco(true);
    field->FormatoMascara({});
    EXPECT_EQ("", field->Mascara().utf8());
    EXPECT_EQ("", field->MascaraFocus().utf8());
    EXPECT_TRUE(field->VacioEnBlanco()) << "what it doesn't name stays";
}

TEST_F(get_masks, TheTypeThatAFieldHasChangesNothing) {
    field->TipoDato(tslTipoDatoNumero);
    field->Alignment(tslAlignmentCenter);
    field->CaracteresValidos(u"01");
    field->TipoDato(tslTipoDatoNumero);
    EXPECT_EQ(tslAlignmentCenter, field->Alignment());
    EXPECT_EQ("01", field->CaracteresValidos().utf8());
}

TEST_F(get_masks, ANumberWithDigitsDerivesNoOtherMask) {
    field->TipoDato(tslTipoDatoNumero);
    field->Mascara(u"##0");
    field->Mascara({});
    field->TipoDato(tslTipoDatoCaracter);
    field->TipoDato(tslTipoDatoNumero);
    EXPECT_EQ("", field->Mascara().utf8());
}

TEST_F(get_masks, ACompactMaskSaysItAll) {
    field->TipoDato(tslTipoDatoNumero);
    field->FormatoMascara(u"Z(7,2)");
    EXPECT_EQ("#,###,##0.00", field->Mascara().utf8());
    EXPECT_EQ("#,###,##0.00", field->MascaraFocus().utf8());
    EXPECT_TRUE(field->VacioEnBlanco());
    field->Value(1234.5);
    EXPECT_EQ("1.234,50", text());
}

TEST_F(get_masks, ACompactMaskSaysTheCaseOfLetters) {
    field->FormatoMascara(u"MAAA");
    EXPECT_EQ(tslMayusculasUCase, field->Mayusculas());
    EXPECT_EQ("AAA", field->Mascara().utf8());
    EXPECT_FALSE(field->VacioEnBlanco());
}

TEST_F(get_masks, NumbersTakeDigitsSignsAndTheSeparator) {
    field->TipoDato(tslTipoDatoNumero);
    EXPECT_EQ("0123456789+-,", field->CaracteresValidos().utf8());
    EXPECT_EQ(tslAlignmentRightJustify, field->Alignment());
    field->TipoDato(tslTipoDatoFecha);
    EXPECT_EQ("0123456789+-//", field->CaracteresValidos().utf8());
    EXPECT_EQ(tslAlignmentLeftJustify, field->Alignment());
    field->TipoDato(tslTipoDatoCaracter);
    EXPECT_EQ("", field->CaracteresValidos().utf8());
}

TEST_F(get_masks, ANumberWithoutAMaskDerivesOneFromItsLength) {
    field->MaxLength(5);
    field->TipoDato(tslTipoDatoNumero);
    EXPECT_EQ("##,##0", field->Mascara().utf8());
    EXPECT_EQ(6, field->MaxLength()) << "with the separator";
}

TEST_F(get_masks, TheDesignerIsHelpedWithLengthsAndSizes) {
    form->UserMode(false);
    get& designed = form->add<get>(u"getNumero");
    designed.Text(u"1234");
    designed.TipoDato(tslTipoDatoNumero);
    EXPECT_EQ("#,##0", designed.Mascara().utf8()) << "as long as the text";
    EXPECT_EQ(tslAutoSize_XY, designed.AutoSize());
    EXPECT_EQ("Verdana", designed.Font()->Name().utf8());
    designed.TipoDato(tslTipoDatoFecha);
    EXPECT_EQ(10, designed.MaxLength());
    EXPECT_EQ("Courier", designed.Font()->Name().utf8());
    designed.Mascara({});
    designed.TipoDato(tslTipoDatoCaracter);
    EXPECT_EQ(tslAutoSize_Y, designed.AutoSize());
    EXPECT_EQ("MS Sans Serif", designed.Font()->Name().utf8());
    get& empty = form->add<get>(u"getOtro");
    empty.Text({});
    empty.TipoDato(tslTipoDatoNumero);
    EXPECT_EQ("#,###,###,##0", empty.Mascara().utf8()) << "ten digits without a text";
}

TEST_F(get_masks, TheDesignerKeepsWhatWasChosen) {
    form->UserMode(false);
    get& masked = form->add<get>(u"getMascara");
    masked.Mascara(u"##0.0");
    masked.TipoDato(tslTipoDatoNumero);
    EXPECT_EQ("##0.0", masked.Mascara().utf8());
    get& edited = form->add<get>(u"getFoco");
    edited.MascaraFocus(u"#####");
    edited.TipoDato(tslTipoDatoNumero);
    EXPECT_EQ("##,##0", edited.Mascara().utf8()) << "as long as the longer mask";
    get& limited = form->add<get>(u"getLargo");
    limited.MaxLength(3);
    limited.TipoDato(tslTipoDatoNumero);
    EXPECT_EQ("##0", limited.Mascara().utf8());
    get& fonted = form->add<get>(u"getFuente");
    fonted.UserFont(true);
    fonted.Font()->Name(u"Arial");
    fonted.AutoSize(tslAutoSize_NO);
    const float width = fonted.Width();
    for (const auto& [type, sizes] : {std::pair(tslTipoDatoNumero, tslautoSize_X),
                                      {tslTipoDatoCaracter, tslAutoSize_NO},
                                      {tslTipoDatoFecha, tslautoSize_X},
                                      {tslTipoDatoCaracter, tslAutoSize_NO}}) {
        fonted.TipoDato(type);
        EXPECT_EQ("Arial", fonted.Font()->Name().utf8());
        EXPECT_EQ(sizes, fonted.AutoSize());
        EXPECT_NE(width, fonted.Width()) << "as the digits need it";
    }
}

TEST_F(get_masks, ALengthWrittenInTheDesignerFormsTheTextAnewAndResizes) {
    field->AutoSize(tslautoSize_X);
    const float width = field->Width();
    field->MaxLength(40);
    EXPECT_EQ(width, field->Width()) << "a program's own matter";
    form->UserMode(false);
    get& designed = form->add<get>(u"getNumero");
    designed.TipoDato(tslTipoDatoNumero);
    designed.SetText(u"abc");
    designed.MaxLength(20);
    EXPECT_EQ("0", designed.Text().utf8());
    const float former = designed.Width();
    designed.MaxLength(40);
    EXPECT_GT(designed.Width(), former);
}

TEST_F(get_masks, TheDigitsAreThoseOfTheMaskThatHasTheFocus) {
    field->TipoDato(tslTipoDatoNumero);
    field->Mascara(u"##0.00;;##0.000");
    enter();
    press(platform::VK_DELETE);
    type(u"1,2345");
    EXPECT_EQ("1,234", text());
    leave();
    EXPECT_EQ("1,23", text());
}

TEST_F(get_masks, FntNumbersKeepsTheFontOfNumbers) {
    field->Font()->Size(automation::Currency(14));
    field->FntNumbers();
    EXPECT_EQ(8, field->Font()->Size().toDouble());
    EXPECT_TRUE(field->UserFont());
    EXPECT_EQ("Verdana", field->Font()->Name().utf8());
    field->Mascara(u"##");
    EXPECT_EQ("Verdana", field->Font()->Name().utf8());
    field->UserFont(false);
    EXPECT_EQ("Courier", field->Font()->Name().utf8());
}

TEST_F(get_masks, NonsenseInAMaskIsALiteral) {
    field->Mascara(u"ñ€;?");
    EXPECT_EQ("ñ€;?", text());
    field->TipoDato(tslTipoDatoNumero);
    field->Mascara(u"\"\"\"[");
    field->Value(std::int32_t{5});
    EXPECT_EQ(5, (field->SetText(u"5"), automation::value(field->Value()).asCurrency().toDouble()));
}

TEST_F(get_masks, LengthsAtTheirLimitsAreNoTrouble) {
    field->AutoSize(tslAutoSize_XY);
    for (const auto length : {2147483647, -2147483647 - 1, -1, 0}) {
        field->MaxLength(length);
        field->Value(u"texto");
        EXPECT_EQ("texto", text()) << length;
    }
}
