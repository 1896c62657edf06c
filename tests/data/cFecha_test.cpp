#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/LateBound.h"
#include "data/cFecha.h"
#include "support/Desk.h"
#include "support/ErrorOf.h"
#include "support/MemberNames.h"
#include "support/MsgBoxAnswer.h"
#include "support/Started.h"

#include <cmath>
#include <functional>

using automation::Date;
using automation::Variant;
using namespace tesela;

namespace {

class cFecha_ : public support::Started {
protected:
    automation::Ref<cFecha> fecha = automation::make<cFecha>();
    Date none;
};

} // namespace

TEST_F(cFecha_, ANewOneIsTheEmptyDateAndReadsAsBlanks) {
    EXPECT_EQ(-53688.0, fecha->Value().value());
    EXPECT_EQ("  /  /    ", fecha->Texto().utf8());
    EXPECT_EQ("(Fecha nula)", fecha->GetTimeStr().utf8());
}

TEST_F(cFecha_, TheBlankTemplateFollowsTheLocale) {
    startIn("sv-SE");
    EXPECT_EQ("    -  -  ", automation::make<cFecha>()->Texto().utf8());
}

TEST_F(cFecha_, SpecialDates) {
    EXPECT_EQ(automation::Today(), fecha->SetEspecial(tslDateToday));
    EXPECT_EQ(std::trunc(fecha->Value().value()), fecha->Value().value()) << "today has no time";
    EXPECT_EQ(-53688.0, fecha->SetEspecial(tslDateEmpty).value());
    EXPECT_EQ(-53688.00001157408, fecha->SetEspecial(tslDateMin).value());
    EXPECT_EQ(2958465.999988426, fecha->SetEspecial(tslDateMax).value());
    EXPECT_EQ(0.0, fecha->SetEspecial(tslDateZero).value());
    EXPECT_EQ(-53688.0, fecha->SetEspecial(static_cast<tslDateConstants>(7)).value());
    EXPECT_EQ(-53688.0, fecha->SetEspecial(static_cast<tslDateConstants>(-1)).value());
}

TEST_F(cFecha_, SpecialDatesAreTheMomentsTheyStandFor) {
    EXPECT_EQ(Date::join(1753, 1, 1).value(), fecha->SetEspecial(tslDateEmpty).value());
    const auto low = fecha->SetEspecial(tslDateMin).split();
    EXPECT_EQ(1753, low.year);
    EXPECT_EQ(1, low.second);
    const auto high = fecha->SetEspecial(tslDateMax).split();
    EXPECT_EQ(9999, high.year);
    EXPECT_EQ(59, high.second);
}

TEST_F(cFecha_, TextsOfTheEnds) {
    fecha->SetEspecial(tslDateMin);
    EXPECT_EQ("(Desde el principio)", fecha->Texto().utf8());
    EXPECT_EQ("(Desde el principio)", fecha->GetTimeStr().utf8());
    fecha->Value(Date(-53688.0 - 1 / 86400.0));
    EXPECT_EQ("(Desde el principio)", fecha->Texto().utf8()) << "one second after the empty date";
    fecha->SetEspecial(tslDateMax);
    EXPECT_EQ("(Hasta el final)", fecha->Texto().utf8());
    EXPECT_EQ("(Hasta el final)", fecha->GetTimeStr(true).utf8());
    EXPECT_EQ("(Hasta el final)", fecha->GetTimeStr(false).utf8());
}

TEST_F(cFecha_, TextIsReadAndWritten) {
    fecha->Texto(u"29/02/2024");
    EXPECT_EQ(Date::join(2024, 2, 29), fecha->Value());
    EXPECT_EQ("29/02/2024", fecha->Texto().utf8());
    fecha->Texto(u"no es fecha");
    EXPECT_EQ(Date::join(2024, 2, 29), fecha->Value());
    fecha->Texto(u"30/02/2024 x");
    EXPECT_EQ(Date::join(2024, 2, 29), fecha->Value());
}

TEST_F(cFecha_, DatesOfParts) {
    EXPECT_EQ(Date::join(2020, 3, 1), fecha->Mk_Date(1, 3, 2020));
    EXPECT_EQ(Date::join(2021, 1, 31), fecha->Mk_Date(31, 13, 2020)) << "month 13 rolls over";
    EXPECT_EQ(Date(Date::join(2020, 3, 1).value() + 0.5), fecha->Mk_Date(1, 3, 2020, Date(0.5)));
    EXPECT_EQ(Date::join(2020, 3, 1), fecha->Mk_Date(1, 3, 2020, Date(1.5))) << "more than a time";
    const auto today = automation::Today().split();
    EXPECT_EQ(Date::join(today.year, today.month, today.day), fecha->Mk_Date());
    EXPECT_EQ(Date::join(today.year, today.month, 1), fecha->Mk_Date(1));
    EXPECT_EQ(fecha->Mk_Date(1), fecha->Value());
}

TEST_F(cFecha_, TimesOfParts) {
    fecha->Value(Date(Date::join(2020, 3, 1).value() + 0.9));
    EXPECT_EQ(automation::TimeSerial(10, 20, 30), fecha->Mk_Time(10, 20, 30, true));
    EXPECT_EQ(Date(Date::join(2020, 3, 1).value() + 0.9), fecha->Value());
    const Date joined = fecha->Mk_Time(10, 20, 30);
    EXPECT_EQ(Date::join(2020, 3, 1).value() + automation::TimeSerial(10, 20, 30).value(), joined.value());
    EXPECT_EQ(joined, fecha->Value());
}

TEST_F(cFecha_, DateAndTimeJoin) {
    EXPECT_EQ(43891.25, fecha->SetDateTime(Date(43891), Date(0.25)).value());
    EXPECT_EQ(43891.25, fecha->GetDateTime().value());
    EXPECT_EQ(0.25, fecha->GetDateTime(true).value());
}

TEST_F(cFecha_, ADateWithTimeAndATimeWithDateAreReportedAndChangeNothing) {
    support::Desk desk;
    const Date before = fecha->SetDateTime(Date(100), Date(0.5));
    const struct {
        Date date, time;
    } wrong[] = {{Date(43891.25), Date(0.25)}, {Date(43891), Date(1)}, {Date(43891), Date(-1.5)}};
    for (const auto& each : wrong) {
        SCOPED_TRACE(testing::Message() << each.date.value() << ", " << each.time.value());
        support::MsgBoxAnswer answer(desk, platform::VK_RETURN);
        EXPECT_EQ(before, fecha->SetDateTime(each.date, each.time));
        EXPECT_EQ(1, answer.shown());
        EXPECT_EQ("Error creando un dato de tipo FECHA", answer.title().utf8());
        EXPECT_EQ("SetDateTime: la fecha no puede tener hora y la hora no puede tener fecha",
                  answer.text().utf8());
        EXPECT_EQ(before, fecha->Value());
    }
}

TEST_F(cFecha_, PartsLeftAt0AreThoseOfTheMoment) {
    const auto partsOf = [](std::int32_t hours, std::int32_t minutes, std::int32_t seconds, Date now) {
        return automation::TimeSerial(hours ? hours : automation::Hour(now),
                                      minutes ? minutes : automation::Minute(now),
                                      seconds ? seconds : automation::Second(now));
    };
    const std::int32_t cases[][3] = {{0, 0, 0}, {10, 0, 0}, {0, 20, 0}, {0, 0, 30}, {0, 20, 30}, {10, 20, 0}};
    for (const auto& [hours, minutes, seconds] : cases) {
        Date now, time;
        do { // again if the second turns meanwhile
            now = automation::TimeOfDay();
            time = fecha->Mk_Time(hours, minutes, seconds, true);
        } while (now != automation::TimeOfDay());
        EXPECT_EQ(partsOf(hours, minutes, seconds, now), time) << hours << ":" << minutes << ":" << seconds;
    }
    Date today, month, year;
    do {
        today = automation::Today();
        month = fecha->Mk_Date(5, 0, 2020);
        year = fecha->Mk_Date(6, 7, 0);
    } while (today != automation::Today());
    EXPECT_EQ(Date::join(2020, automation::Month(today), 5), month);
    EXPECT_EQ(Date::join(automation::Year(today), 7, 6), year);
}

TEST_F(cFecha_, TheLastDayOfTheCalendarEndsItsMonth) {
    Date december = Date::join(9999, 12, 5);
    EXPECT_EQ(Date::join(9999, 12, 31), fecha->dUlMes(december));
    EXPECT_EQ(31, fecha->DiasMes(december));
}

TEST_F(cFecha_, LongTexts) {
    fecha->Value(Date::join(2024, 2, 29, 7, 5, 9));
    EXPECT_EQ("7:05:09", fecha->GetTimeStr(true).utf8());
    EXPECT_EQ("jueves, 29 de febrero de 2024, 7:05:09", fecha->GetTimeStr().utf8());
}

TEST_F(cFecha_, MonthsOfTheWholeCalendar) {
    for (int year = 100; year <= 9999; ++year)
        for (int month = 1; month <= 12; ++month) {
            const Date first = Date::join(year, month, 1);
            const Date last = Date::join(year, month, Date::daysInMonth(year, month));
            for (Date day : {first, last}) {
                if (day.value() == 0) continue; // stands for the own value
                ASSERT_EQ(last, fecha->dUlMes(day)) << year << "-" << month;
                ASSERT_EQ(first, fecha->dPrMes(day));
                ASSERT_EQ(Date::daysInMonth(year, month), fecha->DiasMes(day));
            }
        }
}

TEST_F(cFecha_, NumbersWithoutASpecialDateAreTheEmptyDate) {
    for (std::int32_t number = -1000; number <= 1000; ++number) {
        if (number >= tslDateToday && number <= tslDateZero) continue;
        fecha->SetEspecial(tslDateZero);
        ASSERT_EQ(-53688.0, fecha->SetEspecial(static_cast<tslDateConstants>(number)).value()) << number;
        ASSERT_EQ(-53688.0, fecha->Value().value());
    }
}

TEST_F(cFecha_, OnlyTheSpecialDatesThemselvesHaveTextsOfTheirOwn) {
    for (const auto special : {tslDateEmpty, tslDateMin, tslDateMax}) {
        const double value = fecha->SetEspecial(special).value();
        const std::string text = fecha->Texto().utf8();
        for (const double towards : {-1e9, 1e9}) {
            fecha->Value(Date(std::nextafter(value, towards)));
            EXPECT_NE(text, fecha->Texto().utf8()) << special;
        }
    }
    EXPECT_EQ("30/12/1899", (fecha->SetEspecial(tslDateZero), fecha->Texto().utf8()));
    fecha->SetEspecial(tslDateEmpty);
    EXPECT_EQ("(Fecha nula)", fecha->GetTimeStr(true).utf8());
}

TEST_F(cFecha_, TheConstantsHaveTheirNames) {
    const auto& entries = enumerationOf(tslDateToday).entries();
    std::vector<std::string> names;
    for (const auto& entry : entries)
        names.push_back(entry.name.utf8() + "=" + std::to_string(entry.value));
    const std::vector<std::string> expected{"tslDateToday=0", "tslDateEmpty=1", "tslDateMin=2",
                                            "tslDateMax=3", "tslDateZero=4"};
    EXPECT_EQ(expected, names);
}

TEST_F(cFecha_, ATimeBelowADayIsAddedWithItsSign) {
    EXPECT_EQ(Date(Date::join(2020, 3, 1).value() - 0.25), fecha->Mk_Date(1, 3, 2020, Date(-0.25)));
    EXPECT_EQ(Date::join(2020, 3, 1), fecha->Mk_Date(1, 3, 2020, Date(-1)));
    EXPECT_EQ(Date::join(2020, 2, 28), fecha->Mk_Date(-1, 3, 2020)) << "two days before the first";
    EXPECT_EQ(43890.75, fecha->SetDateTime(Date(43891), Date(-0.25)).value());
    EXPECT_EQ(0.75, fecha->GetDateTime(true).value());
}

TEST_F(cFecha_, EveryMemberTakesTheOwnValueForAnArgumentOf0) {
    fecha->Value(Date::join(2024, 2, 10));
    bool brief = false;
    const std::function<void(Date&)> members[] = {
        [&](Date& date) { EXPECT_EQ(Date::join(2024, 2, 29), fecha->dUlMes(date)); },
        [&](Date& date) { EXPECT_EQ(Date::join(2024, 2, 1), fecha->dPrMes(date)); },
        [&](Date& date) { EXPECT_EQ(29, fecha->DiasMes(date)); },
        [&](Date& date) { EXPECT_EQ(6, fecha->DiaSemana(date)); },
        [&](Date& date) { EXPECT_EQ("sábado", fecha->DiaSemanaStr(date, brief).utf8()); }};
    for (const auto& member : members) {
        Date argument;
        member(argument);
        EXPECT_EQ(Date::join(2024, 2, 10), argument);
    }
}

TEST_F(cFecha_, AnArgumentOf0IsTheOwnValueAndReceivesIt) {
    fecha->Value(Date::join(2024, 2, 10));
    Date argument;
    EXPECT_EQ(Date::join(2024, 2, 29), fecha->dUlMes(argument));
    EXPECT_EQ(Date::join(2024, 2, 10), argument);
    Variant late(Date(0));
    EXPECT_EQ(29, automation::callMethod(*fecha, u"DiasMes", Variant::byRef(late)).asLong());
    EXPECT_EQ(Date::join(2024, 2, 10), late.asDate());
    EXPECT_EQ(29, automation::callMethod(*fecha, u"DiasMes").asLong()) << "left out";
}

TEST_F(cFecha_, WeekdaysByTheUsersWeek) {
    Date thursday = Date::join(2024, 2, 29);
    bool brief = false;
    EXPECT_EQ(4, fecha->DiaSemana(thursday)) << "the Spanish week begins on Monday";
    EXPECT_EQ("jueves", fecha->DiaSemanaStr(thursday, brief).utf8());
    startIn("en-US");
    const auto american = automation::make<cFecha>();
    EXPECT_EQ(5, american->DiaSemana(thursday));
    EXPECT_EQ("Thursday", american->DiaSemanaStr(thursday, brief).utf8());
    brief = true;
    EXPECT_EQ("Thu", american->DiaSemanaStr(thursday, brief).utf8());
}

TEST_F(cFecha_, EasterOf1900To2099) {
    EXPECT_EQ(Date::join(2024, 3, 31), fecha->DomingoResurreccion(2024));
    EXPECT_EQ(Date::join(2000, 4, 23), fecha->DomingoResurreccion(2000));
    for (int year = 1900; year <= 2099; ++year) {
        // The anonymous Gregorian computus.
        const int a = year % 19, b = year / 100, c = year % 100, d = b / 4, e = b % 4, f = (b + 8) / 25;
        const int g = (b - f + 1) / 3, h = (19 * a + b - d - g + 15) % 30, i = c / 4, k = c % 4;
        const int l = (32 + 2 * e + 2 * i - h - k) % 7, m = (a + 11 * h + 22 * l) / 451;
        const int month = (h + l - 7 * m + 114) / 31, day = (h + l - 7 * m + 114) % 31 + 1;
        EXPECT_EQ(Date::join(year, month, day), fecha->DomingoResurreccion(year)) << year;
    }
}

TEST_F(cFecha_, YearsThatThereAreNotHaveNoEaster) {
    for (const std::int32_t year : {10000, 2147483647, -2147483647 - 1})
        EXPECT_EQ(automation::errors::InvalidCall, tests::errorOf([&] { fecha->DomingoResurreccion(year); }))
            << year;
}

TEST_F(cFecha_, PartsThatMakeNoDateAreErrorsAndLeaveTheValue) {
    const Date before = fecha->Mk_Date(1, 2, 2003);
    const std::int32_t most = 2147483647;
    EXPECT_NE(0, tests::errorOf([&] { fecha->Mk_Date(1, 1, most); }));
    EXPECT_NE(0, tests::errorOf([&] { fecha->Mk_Date(1, most, 2000); }));
    EXPECT_NE(0, tests::errorOf([&] { fecha->Mk_Date(-most, 1, 2000); }));
    EXPECT_NE(0, tests::errorOf([&] { fecha->Mk_Time(most, most, most); }));
    EXPECT_EQ(before, fecha->Value());
}

TEST_F(cFecha_, ANewOneStartsTheLibrary) {
    globales().cSepDecimal = {};
    globales().cFmtFecha = {};
    EXPECT_EQ("  /  /    ", automation::make<cFecha>()->Texto().utf8());
    EXPECT_EQ(",", globales().cSepDecimal.utf8());
}

TEST_F(cFecha_, TheInterfaceStandsInItsOrder) {
    const std::vector<std::string> order{
        "Texto",      "Value",  "SetEspecial", "Mk_Date", "Mk_Time",   "SetDateTime",  "GetDateTime",
        "GetTimeStr", "dUlMes", "dPrMes",      "DiasMes", "DiaSemana", "DiaSemanaStr", "DomingoResurreccion"};
    EXPECT_EQ(order, tests::memberNames(cFecha::table()));
}

TEST_F(cFecha_, TheValueIsTheDefaultMember) {
    fecha->Value(Date(12345));
    EXPECT_EQ(Date(12345), automation::value(Variant(fecha)).asDate());
    automation::letProperty(*fecha, u"VALUE", Variant(u"01/02/2003"));
    EXPECT_EQ(Date::join(2003, 2, 1), fecha->Value());
}
