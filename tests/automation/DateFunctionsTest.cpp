#include "automation/DateFunctions.h"

#include "automation/Conversions.h"
#include "automation/Variant.h"
#include "support/ErrorOf.h"
#include "support/LocaleScope.h"

#include <gtest/gtest.h>

namespace {

using namespace automation;
using tests::errorOf;

struct SerialCase {
    int year, month, day;
    int wantedYear, wantedMonth, wantedDay;
};

constexpr SerialCase serialCases[] = {
    {2000, 1, 1, 2000, 1, 1},     {0, 1, 1, 2000, 1, 1},         {29, 1, 1, 2029, 1, 1},
    {30, 1, 1, 1930, 1, 1},       {99, 12, 31, 1999, 12, 31},    {100, 1, 1, 100, 1, 1},
    {2000, 13, 1, 2001, 1, 1},    {2000, 0, 1, 1999, 12, 1},     {2000, -11, 1, 1999, 1, 1},
    {2000, -12, 1, 1998, 12, 1},  {2000, 3, 0, 2000, 2, 29},     {2001, 3, 0, 2001, 2, 28},
    {2000, 1, 366, 2000, 12, 31}, {2001, 1, 366, 2002, 1, 1},    {2000, 1, -1, 1999, 12, 30},
    {2000, 2, 30, 2000, 3, 1},    {1999, 1, 32767, 2088, 9, 16}, {9999, 12, 31, 9999, 12, 31},
    {10000, 1, 0, 9999, 12, 31},  {99, 13, 1, 2000, 1, 1},       {-1, 1, 1, 1999, 1, 1},
};

TEST(DateFunctions, DateSerialRollsMonthsAndDaysOver) {
    for (const SerialCase& test : serialCases) {
        const Date date = DateSerial(test.year, test.month, test.day);
        EXPECT_TRUE(Year(date) == test.wantedYear && Month(date) == test.wantedMonth &&
                    Day(date) == test.wantedDay)
            << test.year << "-" << test.month << "-" << test.day << " gives " << Year(date) << "-"
            << Month(date) << "-" << Day(date);
    }
}

TEST(DateFunctions, DateSerialRefusesWhatLiesOutsideTheRange) {
    EXPECT_EQ(errorOf([] { DateSerial(10000, 1, 1); }), 5);
    EXPECT_EQ(errorOf([] { DateSerial(100, 1, 0); }), 5);
    EXPECT_EQ(errorOf([] { DateSerial(INT32_MAX, INT32_MAX, INT32_MAX); }), 5);
    EXPECT_EQ(errorOf([] { DateSerial(INT32_MIN, INT32_MIN, INT32_MIN); }), 5);
    EXPECT_EQ(errorOf([] { DateSerial(2000, 1, INT32_MIN); }), 5);
}

TEST(DateFunctions, DateSerialRollsOverAsCountingDoes) {
    const Date start = DateSerial(2000, 1, 1);
    for (int day = -400000; day <= 400000; day += 37)
        ASSERT_EQ(DateSerial(2000, 1, 1 + day).value(), start.value() + day);
    for (int month = -12000; month <= 24000; ++month) {
        const Date date = DateSerial(2000, 1 + month, 1);
        const int months = (Year(date) - 2000) * 12 + Month(date) - 1;
        ASSERT_EQ(months, month);
        ASSERT_EQ(Day(date), 1);
    }
}

TEST(DateFunctions, TimeSerialRollsAllThreePartsOver) {
    EXPECT_EQ(CStr(Variant(TimeSerial(12, 30, 15).value())), CStr(Variant(45015.0 / 86400)));
    EXPECT_EQ(TimeSerial(11, 60, 0), TimeSerial(12, 0, 0));
    EXPECT_EQ(TimeSerial(12 - 6, -15, 0), TimeSerial(5, 45, 0));
    EXPECT_EQ(TimeSerial(0, 0, 3661), TimeSerial(1, 1, 1));
    EXPECT_EQ(TimeSerial(36, 0, 0).value(), 1.5);
    EXPECT_EQ(TimeSerial(-6, 0, 0).value(), -0.25);
    for (int second = 0; second < 86400; ++second) {
        const Date time = TimeSerial(0, 0, second);
        ASSERT_EQ(Hour(time) * 3600 + Minute(time) * 60 + Second(time), second);
    }
}

TEST(DateFunctions, PartsOfDatesBeforeDayZeroCountTimeForwards) {
    const Date date(-1.25);
    EXPECT_EQ(Year(date), 1899);
    EXPECT_EQ(Month(date), 12);
    EXPECT_EQ(Day(date), 29);
    EXPECT_EQ(Hour(date), 6);
    EXPECT_EQ(DateAdd(u"h", 18, date).value(), 0);
    EXPECT_EQ(DateAdd(u"h", -18, Date(0)).value(), -1.25);
    EXPECT_EQ(DateDiff(u"h", date, Date(0.25)), 24);
}

TEST(DateFunctions, WeekdayCountsFromTheGivenDay) {
    const Date saturday = DateSerial(2000, 1, 1);
    EXPECT_EQ(Weekday(saturday), 7);
    EXPECT_EQ(Weekday(saturday, FirstDay::Monday), 6);
    EXPECT_EQ(Weekday(saturday, FirstDay::Saturday), 1);
    EXPECT_EQ(errorOf([&] { Weekday(saturday, 8); }), 5);
    EXPECT_EQ(errorOf([&] { Weekday(saturday, -1); }), 5);
    const tests::LocaleScope scope("es-ES");
    EXPECT_EQ(Weekday(saturday, FirstDay::SystemDay), 6);
}

TEST(DateFunctions, DateAddKeepsToTheEndOfShorterMonths) {
    const Date date = DateSerial(2000, 1, 31);
    EXPECT_EQ(DateAdd(u"m", 1, date), DateSerial(2000, 2, 29));
    EXPECT_EQ(DateAdd(u"m", 13, date), DateSerial(2001, 2, 28));
    EXPECT_EQ(DateAdd(u"m", -2, date), DateSerial(1999, 11, 30));
    EXPECT_EQ(DateAdd(u"q", 1, date), DateSerial(2000, 4, 30));
    EXPECT_EQ(DateAdd(u"yyyy", 1, DateSerial(2000, 2, 29)), DateSerial(2001, 2, 28));
    EXPECT_EQ(DateAdd(u"YYYY", -1900, DateSerial(2000, 2, 29)), DateSerial(100, 2, 28));
}

TEST(DateFunctions, DateAddCountsDaysAndTimes) {
    const Date date(36526.5);
    EXPECT_EQ(DateAdd(u"d", 1, date).value(), 36527.5);
    EXPECT_EQ(DateAdd(u"y", 1, date).value(), 36527.5);
    EXPECT_EQ(DateAdd(u"w", 1, date).value(), 36527.5);
    EXPECT_EQ(DateAdd(u"ww", -1, date).value(), 36519.5);
    EXPECT_EQ(DateAdd(u"h", 12, date).value(), 36527);
    EXPECT_EQ(DateAdd(u"n", -720, date).value(), 36526);
    EXPECT_EQ(DateAdd(u"s", 43200, date).value(), 36527);
    EXPECT_EQ(DateAdd(u"d", 2.5, date).value(), 36528.5);
    EXPECT_EQ(errorOf([&] { DateAdd(u"x", 1, date); }), 5);
    EXPECT_EQ(errorOf([&] { DateAdd(u"", 1, date); }), 5);
    EXPECT_EQ(errorOf([&] { DateAdd(u"d", 1e300, date); }), 5);
    EXPECT_EQ(errorOf([&] { DateAdd(u"yyyy", 8000, date); }), 5);
    EXPECT_EQ(errorOf([&] { DateAdd(u"s", 1e14, date); }), 5);
}

TEST(DateFunctions, DateDiffCountsBorders) {
    const Date from = DateSerial(1999, 12, 31), to = DateSerial(2000, 1, 1);
    for (const char16_t* interval : {u"yyyy", u"q", u"m", u"d", u"y"})
        EXPECT_EQ(DateDiff(interval, from, to), 1);
    EXPECT_EQ(DateDiff(u"h", from, to), 24);
    EXPECT_EQ(DateDiff(u"n", from, to), 1440);
    EXPECT_EQ(DateDiff(u"s", from, to), 86400);
    EXPECT_EQ(DateDiff(u"d", to, from), -1);
    EXPECT_EQ(DateDiff(u"h", Date(0.0409), Date(0.0418)), 1);
    EXPECT_EQ(DateDiff(u"w", DateSerial(2000, 1, 1), DateSerial(2000, 1, 14)), 1);
    // From Saturday to Sunday a week begins, for weeks that begin on Sunday.
    EXPECT_EQ(DateDiff(u"ww", DateSerial(2000, 1, 1), DateSerial(2000, 1, 2)), 1);
    EXPECT_EQ(DateDiff(u"ww", DateSerial(2000, 1, 1), DateSerial(2000, 1, 2), FirstDay::Monday), 0);
    EXPECT_EQ(DateDiff(u"ww", DateSerial(1800, 1, 1), DateSerial(1800, 1, 1)), 0);
    EXPECT_EQ(errorOf([] { DateDiff(u"s", Date(-657434.0), Date(2958465.0)); }), 6);
}

struct WeekCase {
    int year, month, day;
    int firstDay, firstWeek;
    int week;
};

constexpr WeekCase weekCases[] = {
    {2000, 1, 1, FirstDay::Sunday, FirstWeek::WithJanuary1, 1},
    {2000, 1, 2, FirstDay::Sunday, FirstWeek::WithJanuary1, 2},
    {2000, 12, 31, FirstDay::Sunday, FirstWeek::WithJanuary1, 54},
    {2000, 1, 1, FirstDay::Monday, FirstWeek::OfFourDays, 52},
    {2000, 1, 3, FirstDay::Monday, FirstWeek::OfFourDays, 1},
    {2003, 12, 29, FirstDay::Monday, FirstWeek::OfFourDays, 1},
    {2004, 12, 31, FirstDay::Monday, FirstWeek::OfFourDays, 53},
    {2005, 1, 1, FirstDay::Monday, FirstWeek::OfFourDays, 53},
    {2006, 1, 1, FirstDay::Monday, FirstWeek::OfFourDays, 52},
    {2000, 1, 1, FirstDay::Monday, FirstWeek::Full, 52},
    {2001, 1, 1, FirstDay::Monday, FirstWeek::Full, 1},
    {2002, 1, 6, FirstDay::Monday, FirstWeek::Full, 53},
    {2002, 1, 7, FirstDay::Monday, FirstWeek::Full, 1},
};

TEST(DateFunctions, DatePartNumbersWeeksByTheGivenRule) {
    for (const WeekCase& test : weekCases) {
        const Date date = DateSerial(test.year, test.month, test.day);
        EXPECT_EQ(DatePart(u"ww", date, test.firstDay, test.firstWeek), test.week)
            << test.year << "-" << test.month << "-" << test.day;
    }
}

TEST(DateFunctions, WeeksFollowOneAnotherThroughTheYears) {
    for (int rule = FirstWeek::WithJanuary1; rule <= FirstWeek::Full; ++rule) {
        for (int firstDay = FirstDay::Sunday; firstDay <= FirstDay::Saturday; ++firstDay) {
            int before = DatePart(u"ww", DateSerial(1995, 1, 1), firstDay, rule);
            for (double day = DateSerial(1995, 1, 2).value(); day < DateSerial(2035, 1, 1).value(); ++day) {
                const int week = DatePart(u"ww", Date(day), firstDay, rule);
                const bool newYear =
                    rule == FirstWeek::WithJanuary1 && Month(Date(day)) == 1 && Day(Date(day)) == 1;
                const bool starts = Weekday(Date(day), firstDay) == 1 || newYear;
                ASSERT_TRUE(starts ? week == before + 1 || week == 1 : week == before) << day;
                before = week;
            }
        }
    }
}

TEST(DateFunctions, DatePartGivesEachPart) {
    const Date date(DateSerial(2000, 12, 31).value() + 0.75);
    EXPECT_EQ(DatePart(u"yyyy", date), 2000);
    EXPECT_EQ(DatePart(u"q", date), 4);
    EXPECT_EQ(DatePart(u"m", date), 12);
    EXPECT_EQ(DatePart(u"y", date), 366);
    EXPECT_EQ(DatePart(u"d", date), 31);
    EXPECT_EQ(DatePart(u"w", date), 1);
    EXPECT_EQ(DatePart(u"h", date), 18);
    EXPECT_EQ(DatePart(u"n", date), 0);
    EXPECT_EQ(DatePart(u"s", date), 0);
    EXPECT_EQ(errorOf([&] { DatePart(u"ww", date, 1, 4); }), 5);
}

TEST(DateFunctions, DateValueAndTimeValueTakeAMomentApart) {
    const tests::LocaleScope scope("es-ES");
    EXPECT_EQ(DateValue(u"1/2/2003 10:30").value(), 37653);
    EXPECT_EQ(TimeValue(u"1/2/2003 18:00").value(), 0.75);
    EXPECT_EQ(DateValue(u"10:30").value(), 0);
    EXPECT_EQ(TimeValue(Date(-1.25)).value(), 0.25);
    EXPECT_EQ(errorOf([] { DateValue(u"x"); }), 13);
    EXPECT_EQ(errorOf([] { TimeValue(Variant::null()); }), 94);
}

TEST(DateFunctions, NamesComeFromTheLocale) {
    {
        const tests::LocaleScope scope("es-ES");
        EXPECT_EQ(MonthName(1), u"enero");
        EXPECT_EQ(MonthName(12, true), u"dic");
        EXPECT_EQ(WeekdayName(1), u"lunes");
        EXPECT_EQ(WeekdayName(1, false, FirstDay::Sunday), u"domingo");
        EXPECT_EQ(WeekdayName(7, true, FirstDay::Monday), u"dom");
    }
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(MonthName(5), u"May");
    EXPECT_EQ(WeekdayName(1), u"Sunday");
    EXPECT_EQ(errorOf([] { MonthName(0); }), 5);
    EXPECT_EQ(errorOf([] { MonthName(13); }), 5);
    EXPECT_EQ(errorOf([] { WeekdayName(8); }), 5);
    EXPECT_EQ(errorOf([] { WeekdayName(1, false, 8); }), 5);
}

} // namespace
