#include "automation/Date.h"
#include "automation/Error.h"

#include <gtest/gtest.h>

using automation::Date;
using automation::DateParts;
using automation::Error;

namespace {

struct Moment {
    double value;
    int year, month, day, hour, minute, second;
    int weekday; // 0 is Sunday
};

constexpr Moment moments[] = {
    {0, 1899, 12, 30, 0, 0, 0, 6},        {1, 1899, 12, 31, 0, 0, 0, 0},
    {2, 1900, 1, 1, 0, 0, 0, 1},          {0.25, 1899, 12, 30, 6, 0, 0, 6},
    {-1.25, 1899, 12, 29, 6, 0, 0, 5},    {-1, 1899, 12, 29, 0, 0, 0, 5},
    {-0.25, 1899, 12, 30, 6, 0, 0, 6},    {36526, 2000, 1, 1, 0, 0, 0, 6},
    {36585.75, 2000, 2, 29, 18, 0, 0, 2}, {2958465, 9999, 12, 31, 0, 0, 0, 5},
    {-657434, 100, 1, 1, 0, 0, 0, 5},     {-657434.5, 100, 1, 1, 12, 0, 0, 5},
    {65381, 2079, 1, 1, 0, 0, 0, 0},      {45458.999988425923, 2024, 6, 15, 23, 59, 59, 6},
    {60, 1900, 2, 28, 0, 0, 0, 3},        {61, 1900, 3, 1, 0, 0, 0, 4},
};

} // namespace

TEST(Date, SplitsIntoItsParts) {
    for (const Moment& m : moments) {
        const DateParts parts = Date(m.value).split();
        EXPECT_EQ(parts.year, m.year) << m.value;
        EXPECT_EQ(parts.month, m.month) << m.value;
        EXPECT_EQ(parts.day, m.day) << m.value;
        EXPECT_EQ(parts.hour, m.hour) << m.value;
        EXPECT_EQ(parts.minute, m.minute) << m.value;
        EXPECT_EQ(parts.second, m.second) << m.value;
        EXPECT_EQ(parts.weekday, m.weekday) << m.value;
    }
}

TEST(Date, RoundsToTheNearestSecond) {
    constexpr double halfSecond = 0.5 / 86400;
    EXPECT_EQ(Date(10 + 1.4 * halfSecond).split().second, 1);
    EXPECT_EQ(Date(10 + 0.9 * halfSecond).split().second, 0);
    const DateParts carried = Date(10.9999999).split();
    EXPECT_EQ(carried.day, 10);
    EXPECT_EQ(carried.month, 1);
    EXPECT_EQ(carried.hour, 0);
    const DateParts backwards = Date(-1.9999999).split();
    EXPECT_EQ(backwards.day, 30) << "the night from 29 to 30 December 1899";
    EXPECT_EQ(backwards.hour, 0);
}

TEST(Date, StaysInItsLastSecondAtTheEndOfTheRange) {
    const DateParts last = Date(2958465.9999999).split();
    EXPECT_EQ(last.year, 9999);
    EXPECT_EQ(last.hour, 23);
    EXPECT_EQ(last.second, 59);
}

TEST(Date, JoinsEveryDayOfItsRangeToTheNextNumber) {
    std::int32_t expected = Date::firstDay;
    for (int year = 100; year <= 9999; ++year)
        for (int month = 1; month <= 12; ++month)
            for (int day = 1; day <= Date::daysInMonth(year, month); ++day, ++expected)
                ASSERT_EQ(Date::dayNumberOf(year, month, day), expected)
                    << year << "-" << month << "-" << day;
    EXPECT_EQ(expected, Date::lastDay + 1);
}

TEST(Date, SplitsEveryDayOfItsRangeBack) {
    for (std::int32_t number = Date::firstDay; number <= Date::lastDay; number += 13) {
        const DateParts parts = Date(number).split();
        ASSERT_EQ(Date::join(parts).value(), number);
    }
}

TEST(Date, JoinsEverySecondOfADayExactly) {
    for (const std::int32_t day : {0, -1, -657434, 45458, 2958465})
        for (int second = 0; second < Date::secondsPerDay; second += 7) {
            const Date moment = Date::fromDayAndSecond(day, second);
            ASSERT_EQ(moment.dayNumber(), day);
            ASSERT_EQ(moment.secondOfDay(), second);
        }
}

TEST(Date, RaisesErrorFiveForPartsThatAreNoMoment) {
    const DateParts wrong[] = {
        {99, 12, 31, 0, 0, 0, 0},  {10000, 1, 1, 0, 0, 0, 0}, {2023, 2, 29, 0, 0, 0, 0},
        {2024, 13, 1, 0, 0, 0, 0}, {2024, 0, 1, 0, 0, 0, 0},  {2024, 4, 31, 0, 0, 0, 0},
        {2024, 1, 1, 24, 0, 0, 0}, {2024, 1, 1, 0, 60, 0, 0}, {2024, 1, 1, 0, 0, -1, 0}};
    for (const DateParts& parts : wrong) {
        try {
            Date::join(parts);
            ADD_FAILURE() << parts.year << "-" << parts.month << "-" << parts.day;
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 5);
        }
    }
}

TEST(Date, KnowsItsRange) {
    EXPECT_TRUE(Date(-657434.99).isValid());
    EXPECT_FALSE(Date(-657435).isValid());
    EXPECT_TRUE(Date(2958465.99).isValid());
    EXPECT_FALSE(Date(2958466).isValid());
    EXPECT_THROW(Date(1e10).split(), Error);
}

TEST(Date, KnowsLeapYears) {
    EXPECT_TRUE(Date::isLeapYear(2000));
    EXPECT_FALSE(Date::isLeapYear(1900));
    EXPECT_TRUE(Date::isLeapYear(2024));
    EXPECT_EQ(Date::daysInMonth(2023, 2), 28);
}
