#pragma once
// Date and time functions of an automation host's language. A date before 30 December 1899 is negative and
// its time of day still counts forward: -1.25 is 29 December 1899, 6 o'clock in the morning.

#include "automation/Date.h"
#include "automation/String.h"

#include <cstdint>
#include <string_view>

namespace automation {

class Variant;

/// Days of the week, also as the language's constants: 0 takes the locale's own first day.
namespace FirstDay {
enum : int { SystemDay, Sunday, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday };
}

/// What makes the first week of a year; 0 takes the locale's own rule.
namespace FirstWeek {
enum : int { SystemWeek, WithJanuary1, OfFourDays, Full };
}

/// The day; months and days beyond their range roll over either way. Years 0 to 29 are 2000 to 2029, 30 to 99
/// are 1930 to 1999, negative years count back from 2000. Error 5 outside the years 100 to 9999.
Date DateSerial(int year, int month, int day);

/// The time of day as a Date; all three roll over, a negative total gives a negative Date.
Date TimeSerial(int hour, int minute, int second);

int Year(Date date);
int Month(Date date);
int Day(Date date);
int Hour(Date date);
int Minute(Date date);
int Second(Date date);

/// 1 to 7, counted from `firstDay`. Error 5 for a `firstDay` outside 0 to 7.
int Weekday(Date date, int firstDay = FirstDay::Sunday);

/// The date or the time part of a text or a date. Error 13 where there is none.
Date DateValue(const Variant& value);
Date TimeValue(const Variant& value);

/// Intervals are "yyyy" "q" "m" "y" "d" "w" "ww" "h" "n" "s" in any case, else Error 5. Months keep to the
/// last day of a shorter month. `number` is rounded half to even.
Date DateAdd(std::u16string_view interval, double number, Date date);

/// How many borders of the interval lie between both dates; weeks ("w") are whole weeks, "ww" counts
/// `firstDay`s. Error 6 beyond a Long.
std::int32_t DateDiff(std::u16string_view interval, Date from, Date to, int firstDay = FirstDay::Sunday,
                      int firstWeek = FirstWeek::WithJanuary1);

int DatePart(std::u16string_view interval, Date date, int firstDay = FirstDay::Sunday,
             int firstWeek = FirstWeek::WithJanuary1);

/// The day of the year of a date, 1 to 366.
int dayOfYear(const DateParts& parts);

/// The week of the year, 1 to 54; a day before the first week or after the last belongs to the neighbouring
/// year's.
int weekOfYear(const DateParts& parts, int firstDay, int firstWeek);

/// The locale's name of month 1 to 12, else Error 5.
String MonthName(int month, bool abbreviate = false);

/// The locale's name of day 1 to 7 counted from `firstDay`, else Error 5.
String WeekdayName(int weekday, bool abbreviate = false, int firstDay = FirstDay::SystemDay);

} // namespace automation
