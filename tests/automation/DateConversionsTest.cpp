#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/DateText.h"
#include "automation/Locale.h"
#include "automation/Variant.h"
#include "support/ErrorOf.h"
#include "support/LocaleScope.h"
#include "support/ShortDates.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace automation;
using tests::errorOf;

constexpr int thisYear = 2026;

/// "2003-02-01 10:30:00" of a date; "" where the text is none.
std::string read(std::string_view locale, const char16_t* text) {
    const tests::LocaleScope scope(locale);
    Date date;
    if (!readDate(text, Locale::user(), thisYear, date)) return "";
    const DateParts parts = date.split();
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month, parts.day,
                  parts.hour, parts.minute, parts.second);
    return buffer;
}

struct DateCase {
    const char16_t* text;
    const char* spanish;
    const char* english;
    const char* swedish;
};

// Texts that every locale reads, each in its own order of the parts.
constexpr DateCase dateCases[] = {
    {u"1/2/3", "2003-02-01 00:00:00", "2003-01-02 00:00:00", "2001-02-03 00:00:00"},
    {u"1-2-3", "2003-02-01 00:00:00", "2003-01-02 00:00:00", "2001-02-03 00:00:00"},
    {u"1 2 3", "2003-02-01 00:00:00", "2003-01-02 00:00:00", "2001-02-03 00:00:00"},
    {u"1,2,3", "2003-02-01 00:00:00", "2003-01-02 00:00:00", "2001-02-03 00:00:00"},
    {u" 1 / 2 / 2003 ", "2003-02-01 00:00:00", "2003-01-02 00:00:00", "2003-01-02 00:00:00"},
    {u"31/12/99", "1999-12-31 00:00:00", "1999-12-31 00:00:00", "1999-12-31 00:00:00"},
    {u"12/31/99", "1999-12-31 00:00:00", "1999-12-31 00:00:00", "1999-12-31 00:00:00"},
    {u"99/12/31", "1999-12-31 00:00:00", "1999-12-31 00:00:00", "1999-12-31 00:00:00"},
    {u"1999-12-31", "1999-12-31 00:00:00", "1999-12-31 00:00:00", "1999-12-31 00:00:00"},
    {u"31.12.1999", "1999-12-31 00:00:00", "1999-12-31 00:00:00", "1999-12-31 00:00:00"},
    {u"1999/13/2", "1999-02-13 00:00:00", "1999-02-13 00:00:00", "1999-02-13 00:00:00"},
    {u"12/13/14", "2014-12-13 00:00:00", "2014-12-13 00:00:00", "2014-12-13 00:00:00"},
    {u"13/12/14", "2014-12-13 00:00:00", "2013-12-14 00:00:00", "2013-12-14 00:00:00"},
    {u"5/31/6", "2006-05-31 00:00:00", "2006-05-31 00:00:00", "2006-05-31 00:00:00"},
    {u"29/2/2000", "2000-02-29 00:00:00", "2000-02-29 00:00:00", "2000-02-29 00:00:00"},
    {u"31/6/29", "1931-06-29 00:00:00", "1931-06-29 00:00:00", "1931-06-29 00:00:00"},
    {u"1/1/29", "2029-01-01 00:00:00", "2029-01-01 00:00:00", "2001-01-29 00:00:00"},
    {u"1/1/30", "1930-01-01 00:00:00", "1930-01-01 00:00:00", "2001-01-30 00:00:00"},
    {u"1/1/32", "1932-01-01 00:00:00", "1932-01-01 00:00:00", "1932-01-01 00:00:00"},
    {u"1/2/100", "100-02-01 00:00:00", "100-01-02 00:00:00", "100-01-02 00:00:00"},
    {u"1/2/0", "2000-02-01 00:00:00", "2000-01-02 00:00:00", "2000-01-02 00:00:00"},
    {u"13/5", "2026-05-13 00:00:00", "2026-05-13 00:00:00", "2026-05-13 00:00:00"},
    {u"5/13", "2026-05-13 00:00:00", "2026-05-13 00:00:00", "2026-05-13 00:00:00"},
    {u"9/11", "2026-11-09 00:00:00", "2026-09-11 00:00:00", "2026-09-11 00:00:00"},
    {u"5/2024", "2024-05-01 00:00:00", "2024-05-01 00:00:00", "2024-05-01 00:00:00"},
    {u"2024/5", "2024-05-01 00:00:00", "2024-05-01 00:00:00", "2024-05-01 00:00:00"},
    {u"2/29", "2029-02-01 00:00:00", "2029-02-01 00:00:00", "2029-02-01 00:00:00"},
    {u"2/30", "1930-02-01 00:00:00", "1930-02-01 00:00:00", "1930-02-01 00:00:00"},
    {u"1/2/2003 10:30", "2003-02-01 10:30:00", "2003-01-02 10:30:00", "2003-01-02 10:30:00"},
    {u"10:30 1/2/2003", "2003-02-01 10:30:00", "2003-01-02 10:30:00", "2003-01-02 10:30:00"},
    {u"1/2/2003 10 AM", "2003-02-01 10:00:00", "2003-01-02 10:00:00", "2003-01-02 10:00:00"},
    {u"1/2/2003, 10:30:15 pm", "2003-02-01 22:30:15", "2003-01-02 22:30:15", "2003-01-02 22:30:15"},
    {u"1 2 3 4:5", "2003-02-01 04:05:00", "2003-01-02 04:05:00", "2001-02-03 04:05:00"},
    {u"1999-12-31 10:30:00", "1999-12-31 10:30:00", "1999-12-31 10:30:00", "1999-12-31 10:30:00"},
};

TEST(DateConversions, ReadDatesInTheLocalesOrderAndRepairIt) {
    for (const DateCase& test : dateCases) {
        EXPECT_EQ(read("es-ES", test.text), test.spanish) << String(test.text).utf8();
        EXPECT_EQ(read("en-US", test.text), test.english) << String(test.text).utf8();
        EXPECT_EQ(read("sv-SE", test.text), test.swedish) << String(test.text).utf8();
    }
}

struct TextCase {
    const char* locale;
    const char16_t* text;
    const char* value;
};

constexpr TextCase namedCases[] = {
    {"es-ES", u"5 mayo 1999", "1999-05-05 00:00:00"},
    {"es-ES", u"5 de mayo de 1999", "1999-05-05 00:00:00"},
    {"es-ES", u"lunes, 5 de mayo de 1997", "1997-05-05 00:00:00"},
    {"es-ES", u"MIÉRCOLES 7 MAYO 1997", "1997-05-07 00:00:00"},
    {"es-ES", u"mayo 1999", "1999-05-01 00:00:00"},
    {"es-ES", u"5-may-99", "1999-05-05 00:00:00"},
    {"es-ES", u"5 ene", "2026-01-05 00:00:00"},
    {"es-ES", u"1 feb 2", "2002-02-01 00:00:00"},
    {"es-ES", u"31 feb 1", "1931-02-01 00:00:00"},
    {"es-ES", u"29 feb", "2029-02-01 00:00:00"},
    {"es-ES", u"99 dic 31", "1999-12-31 00:00:00"},
    {"es-ES", u"3 January 2000", ""},
    {"en-US", u"5 May 1999", "1999-05-05 00:00:00"},
    {"en-US", u"May 5, 1999", "1999-05-05 00:00:00"},
    {"en-US", u"may-05-2000", "2000-05-05 00:00:00"},
    {"en-US", u"Monday, May 5, 1997", "1997-05-05 00:00:00"},
    {"en-US", u"Mon 5 May 1997", "1997-05-05 00:00:00"},
    {"en-US", u"May 5", "2026-05-05 00:00:00"},
    {"en-US", u"May 32", "1932-05-01 00:00:00"},
    {"en-US", u"1999 May 5", "1999-05-05 00:00:00"},
    {"en-US", u"January 2 3", "2003-01-02 00:00:00"},
    {"en-US", u"3 enero 2000", ""},
    {"en-US", u"May", ""},
    {"en-US", u"Monday", ""},
    {"en-US", u"May May 5", ""},
    {"sv-SE", u"5 maj 1999", "1999-05-05 00:00:00"},
    {"sv-SE", u"2003 jan. 2", "2003-01-02 00:00:00"},
    {"sv-SE", u"2003 jan 2", "2003-01-02 00:00:00"},
};

TEST(DateConversions, ReadMonthsAndDaysByName) {
    for (const TextCase& test : namedCases)
        EXPECT_EQ(read(test.locale, test.text), test.value) << test.locale << " " << String(test.text).utf8();
}

constexpr TextCase timeCases[] = {
    {"es-ES", u"10:30", "1899-12-30 10:30:00"},
    {"es-ES", u"10:30:15", "1899-12-30 10:30:15"},
    {"es-ES", u"10:30 PM", "1899-12-30 22:30:00"},
    {"es-ES", u"10:30pm", "1899-12-30 22:30:00"},
    {"es-ES", u"10:30 p. m.", "1899-12-30 22:30:00"},
    {"es-ES", u"10:30 p.m.", "1899-12-30 22:30:00"},
    {"es-ES", u"12:00 a. m.", "1899-12-30 00:00:00"},
    {"es-ES", u"12p", "1899-12-30 12:00:00"},
    {"es-ES", u"12:30p", "1899-12-30 12:30:00"},
    {"es-ES", u"12 p", "1899-12-30 12:00:00"},
    {"es-ES", u"11:30 p", "1899-12-30 23:30:00"},
    {"es-ES", u"10 AM", "1899-12-30 10:00:00"},
    {"es-ES", u"1 PM", "1899-12-30 13:00:00"},
    {"es-ES", u"22:30 PM", "1899-12-30 22:30:00"},
    {"es-ES", u"0:5 pm", "1899-12-30 12:05:00"},
    {"es-ES", u"10 : 30", "1899-12-30 10:30:00"},
    {"es-ES", u"1.5", "1899-12-30 01:05:00"},
    {"es-ES", u"10.30.15", "1899-12-30 10:30:15"},
    {"es-ES", u"24:00", ""},
    {"es-ES", u"10:60", ""},
    {"es-ES", u"10:30:60", ""},
    {"es-ES", u"10:30:15:16", ""},
    {"es-ES", u"10:", ""},
    {"es-ES", u":30", ""},
    {"es-ES", u"AM 10:30", ""},
    {"es-ES", u"10:30 11:30", ""},
    {"es-ES", u"10:30 am pm", ""},
    {"es-ES", u"10h30", ""},
    {"sv-SE", u"10:30 em", "1899-12-30 22:30:00"},
    {"en-US", u"12:00 AM", "1899-12-30 00:00:00"},
    {"en-US", u"12:00 a", "1899-12-30 00:00:00"},
    {"en-US", u"12:00 a. m.", ""},
};

TEST(DateConversions, ReadTimes) {
    for (const TextCase& test : timeCases)
        EXPECT_EQ(read(test.locale, test.text), test.value) << test.locale << " " << String(test.text).utf8();
}

constexpr const char16_t* notDates[] = {
    u"",
    u" ",
    u"1",
    u"12",
    u"45000",
    u"-1",
    u"abc",
    u"13/25",
    u"1//2/1999",
    u"1/2/",
    u"/1/2",
    u"1/2/3/4",
    u"20000/1/1",
    u"1/2/99999",
    u"29/2/1900",
    u"31/4/2000",
    u"0/1/2000",
    u"0/0/0",
    u"13/13/13",
    u"1/2/1999x",
    u"1/2/1999 25:00",
    u"19991231",
    u"#1/2/2000#",
    u"1999-12-31T10:30:00",
    u"31.12",
    u"1.2.3.4",
    u"1-",
    u"-1-2",
    u"10:30-1/2/3",
    u"1/2/3 4",
    u"99999999999999999999/1/1",
};

TEST(DateConversions, RefuseTextsThatAreNoDates) {
    for (const std::string_view locale : tests::localeNames) {
        const tests::LocaleScope scope(locale);
        for (const char16_t* text : notDates) {
            EXPECT_FALSE(IsDate(text)) << locale << " " << String(text).utf8();
            EXPECT_EQ(errorOf([text] { CDate(text); }), 13) << locale << " " << String(text).utf8();
        }
    }
}

TEST(DateConversions, TellDatesFromOtherTypes) {
    const tests::LocaleScope scope("es-ES");
    EXPECT_TRUE(IsDate(Date(1)));
    EXPECT_TRUE(IsDate(u"1/2/2003"));
    EXPECT_TRUE(IsDate(u"10:30"));
    EXPECT_FALSE(IsDate(36526));
    EXPECT_FALSE(IsDate(u"36526"));
    EXPECT_FALSE(IsDate(Variant()));
    EXPECT_FALSE(IsDate(Variant::null()));
}

TEST(DateConversions, CountDaysInNumbersWithinTheRange) {
    EXPECT_EQ(CDate(36526).value(), 36526);
    EXPECT_EQ(CDate(-657434.0).value(), -657434);
    EXPECT_EQ(CDate(2958465.9).value(), 2958465.9);
    EXPECT_EQ(errorOf([] { CDate(2958466.0); }), 6);
    EXPECT_EQ(errorOf([] { CDate(-657435.0); }), 6);
    EXPECT_EQ(CDate(Variant()).value(), 0);
    EXPECT_EQ(CDate(true).value(), -1);
}

struct WrittenCase {
    double value;
    const char16_t* spanish;
    const char16_t* english;
    const char16_t* swedish;
};

constexpr WrittenCase writtenCases[] = {
    {0, u"0:00:00", u"12:00:00 AM", u"00:00:00"},
    {0.5, u"12:00:00", u"12:00:00 PM", u"12:00:00"},
    {1, u"31/12/1899", u"12/31/1899", u"1899-12-31"},
    {36526, u"01/01/2000", u"1/1/2000", u"2000-01-01"},
    {36526.5, u"01/01/2000 12:00:00", u"1/1/2000 12:00:00 PM", u"2000-01-01 12:00:00"},
    {-1.25, u"29/12/1899 6:00:00", u"12/29/1899 6:00:00 AM", u"1899-12-29 06:00:00"},
    {45000.123456, u"15/03/2023 2:57:47", u"3/15/2023 2:57:47 AM", u"2023-03-15 02:57:47"},
    {-657434, u"01/01/0100", u"1/1/0100", u"0100-01-01"},
};

TEST(DateConversions, WriteShortDateAndLongTime) {
    for (const WrittenCase& test : writtenCases) {
        const auto check = [&test](std::string_view locale, const char16_t* wanted) {
            const tests::LocaleScope scope(locale);
            const std::u16string expected = locale == "es-ES" ? tests::asSystemWrites(wanted) : wanted;
            EXPECT_EQ(CStr(Date(test.value)).utf8(), String(expected).utf8()) << locale;
        };
        check("es-ES", test.spanish);
        check("en-US", test.english);
        check("sv-SE", test.swedish);
    }
}

TEST(DateConversions, AgreeBothWaysInEveryLocale) {
    for (const std::string_view locale : tests::localeNames) {
        const tests::LocaleScope scope(locale);
        for (std::int32_t day = Date::firstDay; day <= Date::lastDay; day += 97) {
            const Date date =
                Date::fromDayAndSecond(day, (day + Date::secondsPerDay * 10) % Date::secondsPerDay);
            const String text = CStr(date);
            ASSERT_TRUE(IsDate(text)) << text.utf8();
            ASSERT_EQ(CDate(text), date) << text.utf8();
        }
    }
}

TEST(DateConversions, AgreeBothWaysForLongDates) {
    const tests::LocaleScope scope("es-ES");
    for (std::int32_t day = 20000; day < 60000; day += 13) {
        const DateParts parts = Date(day).split();
        const String text = String(Locale::user().dayNames[static_cast<std::size_t>(parts.weekday)]) + u", " +
                            CStr(parts.day) + u" de " + MonthName(parts.month) + u" de " + CStr(parts.year);
        ASSERT_EQ(CDate(text).value(), day) << text.utf8();
    }
}

TEST(DateConversions, EveryDayOfTheRangeSplitsAndJoins) {
    int year = 100, month = 1, day = 1, weekday = 5;
    for (std::int32_t number = Date::firstDay; number <= Date::lastDay; ++number) {
        const DateParts parts = Date::fromDayAndSecond(number, 0).split();
        ASSERT_TRUE(parts.year == year && parts.month == month && parts.day == day &&
                    parts.weekday == weekday)
            << number;
        ASSERT_EQ(DateSerial(year, month, day).value(), number);
        weekday = (weekday + 1) % 7;
        const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        constexpr int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const int length = lengths[month - 1] + (month == 2 && leap ? 1 : 0);
        if (++day > length) {
            day = 1;
            if (++month > 12) {
                month = 1;
                ++year;
            }
        }
    }
    EXPECT_EQ(year, 10000);
}

} // namespace
