// The field's text and value, without a window on the screen.
#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "field/FieldTest.h"

using namespace tesela;
using namespace tests;
using automation::DateSerial;

namespace {

class get_value : public tests::FieldTest {
protected:
    void number(const char16_t* mask) {
        field->TipoDato(tslTipoDatoNumero);
        field->Mascara(mask);
    }
    void date() {
        field->TipoDato(tslTipoDatoFecha);
        field->Mascara(globales().cFmtFecha);
    }
    automation::Variant read(std::int32_t format) { return field->ValorVerdadero(format, false); }
    static double dateIn(const automation::Variant& value) {
        return automation::value(value).asDate().value();
    }
};

} // namespace

TEST_F(get_value, ANewFieldShowsItsNameAsPlainText) {
    get& fresh = form->add<get>(u"getNombre");
    EXPECT_EQ("getNombre", fresh.Text().utf8());
    EXPECT_EQ(tslTipoDatoCaracter, fresh.TipoDato());
    EXPECT_EQ(tslSchemeUseDefault, fresh.Scheme());
    EXPECT_EQ(tslAutoTrim_Both, fresh.AutoTrim());
    EXPECT_EQ(tslSeleccionadoNumeros, fresh.Seleccionado());
    EXPECT_EQ(tslAutoSize_Y, fresh.AutoSize());
    EXPECT_EQ(-1, fresh.BackColor());
    EXPECT_EQ(15, fresh.ButtonWidth());
    EXPECT_EQ("MS Sans Serif", fresh.Font()->Name().utf8());
    EXPECT_EQ(8.25, fresh.Font()->Size().toDouble());
    EXPECT_TRUE(fresh.EnabledGet() && fresh.EnabledCombo() && fresh.EnabledBuscar() && fresh.EnabledFicha());
    EXPECT_FALSE(fresh.HasFocus());
    EXPECT_FALSE(fresh.Live());
}

TEST_F(get_value, ChangeIsRaisedWhenTheTextChanged) {
    field->Text(u"uno");
    EXPECT_EQ(1, changes);
    field->Text(u"uno");
    EXPECT_EQ(1, changes);
    field->Text(u"dos");
    EXPECT_EQ(2, changes);
}

TEST_F(get_value, ChangeWaitsForTheGate) {
    field->EventsEnabled(false);
    field->Text(u"uno");
    EXPECT_EQ(0, changes);
    field->EventsEnabled(true);
    field->Text(u"dos");
    EXPECT_EQ(1, changes);
}

TEST_F(get_value, ChangeIsRaisedExactlyWhenTheTextIsAnotherOne) {
    number(u"#,##0.00");
    field->Text(u"0");
    changes = 0;
    field->Value(std::int32_t{0});
    EXPECT_EQ(0, changes) << "the same number";
    field->Text(u"0,004");
    EXPECT_EQ(0, changes) << "it rounds to what was there";
    field->Mascara(u"#,##0");
    EXPECT_EQ("0", text());
    EXPECT_EQ(1, changes) << "a mask makes another text of it";
    field->Text(u"1234");
    EXPECT_EQ(2, changes);
    enter();
    EXPECT_EQ("1234", text());
    EXPECT_EQ(2, changes) << "the same number as it is edited";
    leave();
    EXPECT_EQ("1.234", text());
    EXPECT_EQ(2, changes);
}

TEST_F(get_value, ASecondSeparatorIsNoChange) {
    number(u"#,##0.00");
    enter();
    type(u"1,5");
    changes = 0;
    type(u",");
    EXPECT_EQ("1,5", text());
    EXPECT_EQ(0, changes);
}

TEST_F(get_value, AZeroThatIsToBeBlankPaintsNothingAndStays) {
    show();
    number(u"##0.00");
    field->SetText({});
    const auto blank = desk.look(field->hWnd());
    field->Value(std::int32_t{0});
    EXPECT_NE(blank, desk.look(field->hWnd()));
    field->VacioEnBlanco(true);
    EXPECT_EQ(blank, desk.look(field->hWnd()));
    EXPECT_EQ("0,00", text());
    field->Value(0.004);
    EXPECT_EQ(blank, desk.look(field->hWnd()));
    field->Value(0.01);
    EXPECT_NE(blank, desk.look(field->hWnd()));
}

TEST_F(get_value, WhatIsToBeBlankShowsWithTheFocus) {
    number(u"##0.00");
    enter();
    const auto plain = desk.look(field->hWnd());
    field->VacioEnBlanco(true);
    EXPECT_EQ(plain, desk.look(field->hWnd()));
    leave();
    EXPECT_NE(plain, desk.look(field->hWnd()));
}

TEST_F(get_value, ADateThatIsNoneMayBeBlankToo) {
    show();
    date();
    field->SetText({});
    const auto blank = desk.look(field->hWnd());
    field->Text({});
    EXPECT_NE(blank, desk.look(field->hWnd())) << "its separators";
    field->VacioEnBlanco(true);
    EXPECT_EQ(blank, desk.look(field->hWnd()));
    EXPECT_EQ("  /  /    ", text());
    field->Value(DateSerial(2024, 2, 29));
    EXPECT_NE(blank, desk.look(field->hWnd()));
}

TEST_F(get_value, ATextThatAChangeHandlerWritesTakesTheMaskToo) {
    field->Mascara(u"##");
    int depth = 0;
    field->Change.join([&] {
        if (depth++ == 0) field->Text(u"7");
    });
    field->Text(u"1");
    EXPECT_EQ("7 ", text()) << "the handler runs after the first text was formatted";
}

TEST_F(get_value, SetTextPutsTheTextInAsItIs) {
    number(u"##0.00");
    changes = 0;
    field->SetText(u"abc");
    EXPECT_EQ("abc", text());
    EXPECT_EQ(0, changes);
}

TEST_F(get_value, NumbersAreFormattedByTheirMask) {
    number(u"##0.00");
    field->Value(std::int32_t{0});
    EXPECT_EQ("0,00", text());
    field->Value(12.345);
    EXPECT_EQ("12,34", text()) << "rounded half to even";
    field->Text(u"7,5");
    EXPECT_EQ("7,50", text());
    field->Text(u"no es");
    EXPECT_EQ("0,00", text());
    field->Value(u"3,25");
    EXPECT_EQ("3,25", text());
    field->Value(u"tres");
    EXPECT_EQ("0,00", text());
}

TEST_F(get_value, ANumberIsWrittenOverAZeroOfWhichChangeTellsToo) {
    number(u"##0");
    field->Value(std::int32_t{5});
    std::string seen;
    field->Change.join([&] { seen += text() + ";"; });
    field->Value(std::int32_t{7});
    EXPECT_EQ("0;7;", seen);
}

TEST_F(get_value, AWrittenNumberTakesItsMaskUnderTheFocusToo) {
    number(u"#,##0.00");
    enter();
    field->Value(1234.5);
    EXPECT_EQ("1.234,50", text());
    type(u"7");
    EXPECT_EQ("7", text()) << "all of it was selected";
}

TEST_F(get_value, ANumberInATextIsRoundedToItsDecimals) {
    std::int32_t format = tslDataFormatNumero;
    field->ValorVerdadero(format, 12.7);
    EXPECT_EQ("13", text());
}

TEST_F(get_value, ALockedFieldTakesWhatAProgramWritesAsItIs) {
    number(u"##0.00");
    field->Locked(true);
    enter();
    field->Text(u"1a");
    EXPECT_EQ("1a", text());
    field->Locked(false);
    field->Text(u"2a");
    EXPECT_EQ("2", text());
}

TEST_F(get_value, NumbersReadWithoutTheirThousands) {
    number(u"#,###,##0.00");
    field->Text(u"1234,5");
    EXPECT_EQ("1.234,50", text());
    EXPECT_EQ(automation::VT_CY, field->Value().type());
    EXPECT_EQ(1234.5, field->Value().asCurrency().toDouble());
}

TEST_F(get_value, NumbersFollowTheLocale) {
    moveTo("en-US");
    number(u"#,###,##0.00");
    field->Text(u"1,234.5");
    EXPECT_EQ("1,234.50", text());
    EXPECT_EQ(1234.5, field->Value().asCurrency().toDouble());
}

TEST_F(get_value, FiveDecimalsMakeADouble) {
    number(u"0.00000");
    field->Text(u"1,23456");
    EXPECT_EQ(automation::VT_R8, field->Value().type());
    EXPECT_EQ(1.23456, field->Value().asDouble());
    number(u"0.0000");
    EXPECT_EQ(automation::VT_CY, field->Value().type());
}

TEST_F(get_value, WhatIsNoNumberIsTheInteger0) {
    field->SetText(u"abc");
    EXPECT_EQ(automation::VT_I2, read(1).type());
    field->SetText(u"999999999999999999999");
    EXPECT_EQ(0, read(1).asInteger()) << "beyond a Currency";
    EXPECT_EQ("abc", (field->SetText(u"abc"), read(0).asString().utf8()));
}

TEST_F(get_value, DatesAreWrittenInTheLongPattern) {
    date();
    field->Value(DateSerial(2024, 2, 29));
    EXPECT_EQ("29/02/2024", text());
    EXPECT_EQ(DateSerial(2024, 2, 29), field->Value().asDate());
    field->Value(u"1/3/24");
    EXPECT_EQ("01/03/2024", text());
    field->Value(Date(DateSerial(2024, 2, 29).value() + 0.75));
    EXPECT_EQ("29/02/2024", text()) << "without its time";
    enter();
    field->Value(Date(DateSerial(2024, 3, 1).value() + 0.75));
    EXPECT_EQ("01/03/2024", text()) << "under the focus too";
}

TEST_F(get_value, ADateKeepsItsLongPatternWhateverItsMask) {
    field->TipoDato(tslTipoDatoFecha);
    field->Mascara(u"MM/yy");
    field->Text(u"1/3/2024");
    EXPECT_EQ("01/03/2024", text());
    field->Text({});
    EXPECT_EQ("  /  ", text()) << "the mask makes what is blank";
}

TEST_F(get_value, TheSpecialDatesAndWhatIsNoneBlankTheField) {
    date();
    const Variant values[] = {Date(-53688.0), Date(-53688.00001157408), Date(2958465.999988426),
                              u"hola",        std::int32_t{5},          Variant::null()};
    for (const Variant& value : values) {
        field->Text(u"1/1/2024");
        field->Value(value);
        EXPECT_EQ("  /  /    ", text());
        EXPECT_TRUE(field->Value().isObject());
        EXPECT_EQ(tests::emptyDate, dateIn(field->Value()));
    }
}

TEST_F(get_value, DatesAtTheEndsOfTheCalendarAreKept) {
    date();
    for (const auto& [value, shown] :
         {std::pair(DateSerial(9999, 12, 31), "31/12/9999"), {DateSerial(1753, 1, 2), "02/01/1753"}}) {
        field->Value(value);
        EXPECT_EQ(shown, text());
        enter();
        EXPECT_EQ(shown, text()) << "with all of its year";
        leave();
        EXPECT_EQ(shown, text());
        EXPECT_EQ(value, field->Value().asDate());
        before->Extender().SetFocus();
    }
    field->Value(DateSerial(100, 1, 1));
    EXPECT_EQ("01/01/0100", text());
    enter();
    leave();
    EXPECT_EQ("01/01/0100", text()) << "older than what is checked";
    field->Text(u"31/12/10000");
    EXPECT_EQ("  /  /    ", text());
    for (const double number : {1e300, -1e300, 2958466.0, -657435.0}) {
        field->Value(number);
        EXPECT_EQ("  /  /    ", text()) << number;
    }
}

TEST_F(get_value, HoursAreDatesOfNoDay) {
    field->Mascara(u"##:##");
    field->Value(Date(0.5));
    EXPECT_EQ("12:00", text());
    EXPECT_EQ(Date(0.5), field->Value().asDate());
    field->Value(u"no");
    EXPECT_EQ("00:00", text());
    field->SetText(u"  :  ");
    EXPECT_EQ(tests::emptyDate, field->Value().asDate().value()) << "a plain date";
}

TEST_F(get_value, TheFormatAskedForComesBackToTheCaller) {
    std::int32_t format = -1;
    number(u"0");
    field->ValorVerdadero(format, false);
    EXPECT_EQ(1, format);
    field->Reset();
    field->Mascara(u"##:##");
    format = -1;
    field->ValorVerdadero(format, false);
    EXPECT_EQ(3, format);
    field->TipoDato(tslTipoDatoFecha);
    format = -1;
    field->ValorVerdadero(format, false);
    EXPECT_EQ(2, format) << "the mask of hours is one in a text only";
}

TEST_F(get_value, AValueThatIsLeftOutReads) {
    field->Text(u"uno");
    std::int32_t format = -1;
    EXPECT_EQ("uno", field->ValorVerdadero(format, Variant::missing()).asString().utf8());
    EXPECT_EQ("uno", text());
}

TEST_F(get_value, AnUnknownFormatReadsNothing) {
    EXPECT_TRUE(read(4).isEmpty());
    EXPECT_TRUE(read(-2).isEmpty());
}

TEST_F(get_value, TextReadsTrimmedAndWithoutItsMask) {
    field->SetText(u"  uno ");
    EXPECT_EQ("uno", field->Value().asString().utf8());
    field->AutoTrim(tslAutoTrim_NO);
    field->SetText(u"  uno ");
    EXPECT_EQ("  uno ", field->Value().asString().utf8());
    field->Mascara(u"##/AA");
    field->Text(u"12xy");
    EXPECT_EQ("12/xy", text());
    EXPECT_EQ("12xy", field->Value().asString().utf8());
}

TEST_F(get_value, TextIsReadThroughTheMaskOfTheMoment) {
    field->Mascara(u"##-##;;#-###");
    field->Text(u"1234");
    EXPECT_EQ("1234", field->Value().asString().utf8());
    enter();
    EXPECT_EQ("1-2 3", text());
    EXPECT_EQ("12 3", field->Value().asString().utf8());
    field->MascaraFocus({});
    field->SetText(u"1234");
    EXPECT_EQ("1234", field->Value().asString().utf8()) << "without a mask of the focus all of it";
}

TEST_F(get_value, AWrittenTextTakesTheMaskOfTheFocus) {
    field->Mascara(u"##/##");
    field->Seleccionado(tslSeleccionadoSiempre);
    enter();
    field->SelLength(0);
    field->Value(u"1234");
    EXPECT_EQ("12/34", text());
    EXPECT_EQ(0, field->SelLength()) << "a masked text is not selected";
}

TEST_F(get_value, TextIsCutToItsLength) {
    field->MaxLength(3);
    field->Value(u"abcdef");
    EXPECT_EQ("abc", text());
    field->Value(Variant::null());
    EXPECT_EQ("(Nu", text());
}

TEST_F(get_value, AnotherFieldIsWrittenByItsValue) {
    after->TipoDato(tslTipoDatoNumero);
    after->Mascara(u"##0");
    after->Value(std::int32_t{42});
    field->Value(Variant(static_cast<automation::Object*>(after)));
    EXPECT_EQ("42", text());
}

TEST_F(get_value, ABooleanWritesNothing) {
    field->Text(u"uno");
    field->Value(true);
    EXPECT_EQ("uno", text());
    number(u"##0");
    field->Text(u"7");
    field->Value(true);
    EXPECT_EQ("7", text());
}

TEST_F(get_value, AnIdentifierIsRounded) {
    field->Campo(u"TeselaID");
    field->Value(1234.7);
    EXPECT_EQ("1235", text());
}

TEST_F(get_value, TheOriginalValueOfABlankDateStaysTheEmptyDate) {
    date();
    enter();
    field->Value(DateSerial(2024, 2, 29));
    field->Value(Date(2958465.999988426));
    field->Value(DateSerial(2024, 2, 29));
    EXPECT_EQ(emptyDate, dateIn(field->OriginalValue(false)));
}

TEST_F(get_value, ALockedFieldNotesItsOriginalValueToo) {
    field->Text(u"uno");
    field->Locked(true);
    enter();
    EXPECT_EQ("uno", field->OriginalValue(false).asString().utf8());
    EXPECT_FALSE(field->ValueHasChanged(false));
    field->Text(u"dos");
    EXPECT_TRUE(field->ValueHasChanged(false)) << "by the program";
}

TEST_F(get_value, ARecordIdentifierThatIsANumberShowsNothingForZero) {
    field->Campo(u"TeselaID");
    number(u"####0");
    field->Value(std::int32_t{42});
    EXPECT_EQ("42", text());
    field->Value(std::int32_t{0});
    EXPECT_EQ("", text());
    EXPECT_EQ(0, field->Value().asLong());
    enter();
    leave();
    EXPECT_EQ("", text());
}

TEST_F(get_value, ARecordIdentifierIsALong) {
    field->Campo(u"TeselaID");
    field->SetText(u"  42 ");
    EXPECT_EQ(42, field->Value().asLong());
    field->Value(std::int32_t{0});
    EXPECT_EQ("", text());
    EXPECT_EQ(0, field->Value().asLong());
    field->Value(u"17");
    EXPECT_EQ("17", text());
    field->Value(u"18 bis");
    EXPECT_EQ("17", text()) << "no whole number";
    field->SetText(u"abc");
    EXPECT_EQ(0, field->Value().asLong());
    field->SetText(u"99999999999");
    EXPECT_EQ(0, field->Value().asLong()) << "beyond a Long";
}

TEST_F(get_value, TheNameSaysThatAFieldIsARecordIdentifier) {
    get& identifier = form->add<get>(u"sayID_Cliente");
    identifier.SetText(u"7");
    EXPECT_EQ(7, identifier.Value().asLong());
    get& other = form->add<get>(u"getSayID_1");
    other.SetText(u"7");
    EXPECT_TRUE(other.Value().isString()) << "the name begins otherwise";
}

TEST_F(get_value, HasChangedComparesWithTheOriginal) {
    field->HasChanged(false);
    EXPECT_FALSE(field->HasChanged());
    field->Text(u"a");
    EXPECT_TRUE(field->HasChanged());
    field->HasChanged(false);
    EXPECT_FALSE(field->HasChanged());
    field->HasChanged(true);
    EXPECT_TRUE(field->HasChanged());
    field->Text(u"");
    field->HasChanged(false);
    field->HasChanged(true);
    EXPECT_TRUE(field->HasChanged()) << "an empty field too";
}

TEST_F(get_value, ResetValueTakesTheValueAsTheOriginal) {
    field->Text(u"uno");
    EXPECT_TRUE(field->ValueHasChanged(true));
    field->ResetValue(true);
    EXPECT_FALSE(field->ValueHasChanged(true));
    EXPECT_EQ("uno", field->OriginalValue(true).asString().utf8());
    EXPECT_TRUE(field->OriginalValue(false).isEmpty()) << "the other slot is its own";
    field->ResetValue(false);
    EXPECT_EQ("uno", field->OriginalValue(false).asString().utf8());
}

TEST_F(get_value, ResetMakesAPlainEmptyText) {
    number(u"##0.00");
    field->Mayusculas(tslMayusculasUCase);
    field->AutoFormat(tslGetAutoFormatProperCase);
    field->VacioEnBlanco(true);
    field->Seleccionado(tslSeleccionadoSiempre);
    field->Reset();
    EXPECT_EQ("", text());
    EXPECT_EQ("", field->Mascara().utf8());
    EXPECT_EQ(0, field->MaxLength());
    EXPECT_EQ(tslMayusculasNoFilter, field->Mayusculas());
    EXPECT_EQ(tslGetAutoFormatDefault, field->AutoFormat());
    EXPECT_FALSE(field->VacioEnBlanco());
    EXPECT_EQ(tslSeleccionadoNumeros, field->Seleccionado());
    EXPECT_EQ(tslTipoDatoCaracter, field->TipoDato());
    EXPECT_EQ(0, field->SelStart());
    EXPECT_EQ("MS Sans Serif", field->Font()->Name().utf8());
    EXPECT_EQ(8, field->Font()->Size().toDouble());
    field->UserFont(true);
    field->Font()->Name(u"Arial");
    field->Reset();
    EXPECT_EQ("Arial", field->Font()->Name().utf8()) << "the application chose it";
}

TEST_F(get_value, SelectionsOutsideOfTheTextAreIgnored) {
    field->Text(u"hola");
    field->SelStart(2);
    field->SelLength(2);
    EXPECT_EQ(2, field->SelStart());
    EXPECT_EQ(2, field->SelLength());
    field->SelStart(5);
    field->SelStart(-1);
    field->SelLength(-1);
    field->SelLength(5);
    EXPECT_EQ(2, field->SelStart());
    EXPECT_EQ(2, field->SelLength());
    field->Text(u"a");
    EXPECT_EQ(1, field->SelStart()) << "it stays within a shorter text";
    EXPECT_EQ(0, field->SelLength());
}

TEST_F(get_value, StartAndLengthOfASelectionMayBeWrittenInAnyOrder) {
    field->Text(u"hola!");
    field->SelStart(3);
    field->SelLength(5);
    EXPECT_EQ(2, field->SelLength()) << "it ends with the text";
    field->SelStart(0);
    EXPECT_EQ(5, field->SelLength());
}

TEST_F(get_value, AWrittenValueIsSelectedAsTheFocusWouldSelectIt) {
    enter();
    type(u"ab");
    field->Value(u"uno");
    EXPECT_EQ(0, field->caretPosition());
    EXPECT_EQ(0, field->SelLength());
    field->Seleccionado(tslSeleccionadoSiempre);
    field->Value(u"dos");
    EXPECT_EQ(3, field->SelLength());
    field->Seleccionado(tslSeleccionadoNumeros);
    number(u"##0");
    field->Value(std::int32_t{12});
    EXPECT_EQ(2, field->SelLength());
    field->Seleccionado(tslSeleccionadoNunca);
    field->SelLength(0);
    field->Value(std::int32_t{34});
    EXPECT_EQ(0, field->SelLength());
}

TEST_F(get_value, AWrittenValueIsNotSelectedWithoutTheFocus) {
    field->Seleccionado(tslSeleccionadoSiempre);
    field->Value(u"uno");
    EXPECT_EQ(0, field->SelLength());
    number(u"##0");
    field->Value(std::int32_t{12});
    EXPECT_EQ(0, field->SelLength());
}

TEST_F(get_value, ATidiedTextIsTakenIfItFits) {
    field->AutoFormat(tslGetAutoFormatEspacioTrasPunto);
    enter();
    type(u"a.b");
    press(platform::VK_RETURN);
    const std::string tidy = text();
    EXPECT_EQ("a. b", tidy);
    field->MaxLength(3);
    FieldTest::press(platform::VK_SHIFT, platform::VK_TAB);
    field->SetText(u"a.b");
    press(platform::VK_RETURN);
    EXPECT_EQ("a.b", text());
}

TEST_F(get_value, AutoTrimTrimsWhatTheFieldShows) {
    field->AutoTrim(tslAutoTrim_NO);
    field->Text(u" a ");
    EXPECT_EQ(" a ", text());
    field->AutoTrim(tslAutoTrim_Left);
    EXPECT_EQ("a ", text());
    field->AutoTrim(tslAutoTrim_Right);
    EXPECT_EQ("a", text());
    field->AutoTrim(tslAutoTrim_NO);
    enter();
    field->Text(u" b ");
    field->AutoTrim(tslAutoTrim_Both);
    EXPECT_EQ(" b ", text()) << "under the focus it waits";
    leave();
    EXPECT_EQ("b", text());
}

TEST_F(get_value, AnswersByNameWithTheValueAsDefault) {
    automation::letProperty(*field, u"text", Variant(u"uno"));
    EXPECT_EQ("uno", automation::value(Variant(static_cast<automation::Object*>(field))).asString().utf8());
    Variant format(std::int32_t{-1});
    EXPECT_EQ("uno",
              automation::callMethod(*field, u"ValorVerdadero", Variant::byRef(format)).asString().utf8());
    EXPECT_EQ(0, format.asLong());
    automation::callMethod(*field, u"ValorVerdadero", Variant::byRef(format), Variant(u"dos"));
    EXPECT_EQ("dos", text());
    automation::letProperty(*field, u"Value", Variant(u"tres"));
    EXPECT_EQ("tres", text());
}
