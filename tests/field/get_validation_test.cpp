// The checks that an application calls, and what they make of the text.
#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "field/FieldTest.h"

#include <cmath>

using namespace tesela;
using namespace tests;

namespace {

class get_validation : public tests::FieldTest {
protected:
    void date(const char16_t* text) {
        if (field->TipoDato() != tslTipoDatoFecha) field->TipoDato(tslTipoDatoFecha);
        field->SetText(text);
    }
    static std::string dayFromToday(int days) {
        return automation::CStr(automation::Date(automation::Today().value() + days)).utf8();
    }
};

} // namespace

TEST_F(get_validation, ABlankDateIsValidAndStays) {
    for (const auto* blank : {u"", u"  /  /    ", u" - "}) {
        date(blank);
        EXPECT_TRUE(field->ValidateFecha());
        EXPECT_EQ(automation::String(blank).utf8(), text());
    }
}

TEST_F(get_validation, AShortDateBecomesAFullOne) {
    date(u"1/2/24");
    EXPECT_TRUE(field->ValidateFecha());
    EXPECT_EQ("01/02/2024", text());
}

TEST_F(get_validation, AnImpossibleDateStaysAsItWasTyped) {
    for (const auto* wrong :
         {u"31/2/2024", u"5", u"5-3", u"1/1/1752", u"1/1/99999", u"+9999999", u"-999999"}) {
        date(wrong);
        EXPECT_FALSE(field->ValidateFecha()) << automation::String(wrong).utf8();
        EXPECT_EQ(automation::String(wrong).utf8(), text());
    }
}

TEST_F(get_validation, PartsLeftOutAreCompleted) {
    const automation::Date today = automation::Today();
    date(u"5--");
    EXPECT_TRUE(field->ValidateFecha());
    EXPECT_EQ(
        automation::CStr(automation::DateSerial(automation::Year(today), automation::Month(today), 5)).utf8(),
        text());
    globales().nAñoCompletar = 2031;
    date(u"5-3-");
    EXPECT_TRUE(field->ValidateFecha());
    EXPECT_EQ("05/03/2031", text());
    globales().nAñoCompletar = -1;
}

TEST_F(get_validation, ASignCountsDaysFromToday) {
    for (const auto& [typed, days] : {std::pair(u"+0", 0), {u"-1", -1}, {u"+7", 7}, {u" +30 ", 30}}) {
        date(typed);
        EXPECT_TRUE(field->ValidateFecha());
        EXPECT_EQ(dayFromToday(days), text());
    }
}

TEST_F(get_validation, HoursAreNormalised) {
    automation::Date hour;
    field->SetText(u"1:5");
    EXPECT_TRUE(field->ValidateHora(hour));
    EXPECT_EQ("01:05", text());
    EXPECT_EQ(automation::TimeSerial(1, 5, 0), hour);
    field->SetText(u"23:59");
    EXPECT_TRUE(field->ValidateHora());
    globales().cFmtHora = u"hh:mm:ss";
    field->SetText(u"1:5");
    EXPECT_TRUE(field->ValidateHora());
    EXPECT_EQ("01:05", text()) << "hours and minutes only";
    for (const auto* wrong : {u"24:00", u"1", u"12:60", u"99999999999:1"}) {
        field->SetText(wrong);
        EXPECT_FALSE(field->ValidateHora());
        EXPECT_EQ(automation::String(wrong).utf8(), text());
    }
    field->SetText(u"  :  ");
    EXPECT_TRUE(field->ValidateHora(hour));
    EXPECT_EQ(automation::Date(), hour);
    EXPECT_EQ("  :  ", text());
}

TEST_F(get_validation, TheHourIsReadAndWrittenAsATime) {
    field->ValorHora(automation::Date(0.5));
    EXPECT_EQ("12:00", text());
    field->ValorHora(automation::Date(45000 + 9.5 / 24));
    EXPECT_EQ("09:30", text());
    EXPECT_EQ(automation::TimeSerial(9, 30, 0), field->ValorHora());
    EXPECT_EQ(45000 + 9.5 / 24, field->FechaYHora(automation::Date(45000.7)).value());
    field->SetText(u"mal");
    EXPECT_EQ(automation::Date(), field->ValorHora());
    form->UserMode(false);
    get& designed = form->add<get>(u"getHora");
    designed.SetText(u"9:30");
    EXPECT_EQ(automation::Date(), designed.ValorHora()) << "in the designer it is none";
}

TEST_F(get_validation, CodesArePutInOrder) {
    field->Text(u"3,1-2");
    EXPECT_EQ("", field->ValidateFltCodigos().utf8());
    EXPECT_EQ("1-2, 3", text());
    field->Text(u"");
    EXPECT_EQ("", field->ValidateFltCodigos().utf8());
    EXPECT_EQ("", text());
}

TEST_F(get_validation, TheWrongCodeIsSelected) {
    field->Text(u" 9  1-3, 2 ");
    EXPECT_EQ("Un rango incluye a un elemento posterior.", field->ValidateFltCodigos().utf8());
    EXPECT_EQ("9,1-3,2", text()) << "tidied up, in its own order";
    EXPECT_EQ(2, field->SelStart());
    EXPECT_EQ(3, field->SelLength());
}

TEST_F(get_validation, AFailedValidationIsNotedForTheNextPress) {
    const std::int32_t window = 77;
    field->RegisterValidate(window);
    EXPECT_EQ(0, globales().nValidateTimer);
    field->UnRegisterValidate();
    EXPECT_NEAR(TimerSegundos(), globales().nValidateTimer, 1);
    EXPECT_EQ(std::nearbyint(globales().nValidateTimer), globales().nValidateTimer) << "a whole second";
    EXPECT_EQ(window, globales().nHWndValidate);
    enter();
    EXPECT_EQ(0, globales().nValidateTimer) << "a field that gets the focus forgets it";
}

TEST_F(get_validation, ValidadoIsTheApplicationsOwn) {
    EXPECT_FALSE(field->Validado());
    field->Validado(true);
    EXPECT_TRUE(field->Validado());
}

TEST_F(get_validation, ACodeBeyondALongIsToldLikeOtherFaults) {
    field->Text(u"1,99999999999");
    EXPECT_NE("", field->ValidateFltCodigos().utf8());
    EXPECT_EQ("1,99999999999", text());
}

TEST_F(get_validation, AnHourBelongsToItsDayBeforeTheCalendarsFirstToo) {
    field->Mascara(u"##:##");
    field->Text(u"12:00");
    EXPECT_EQ(-100.5, field->FechaYHora(Date(-100.25)).value());
    EXPECT_EQ(100.5, field->FechaYHora(Date(100.25)).value());
}
