#include "automation/DateFunctions.h"

#include "automation/Conversions.h"
#include "automation/DateText.h"
#include "automation/Error.h"
#include "automation/Locale.h"
#include "automation/Variant.h"

#include <algorithm>
#include <cmath>

namespace automation {

namespace {

constexpr int daysInWeek = 7;
constexpr int monthsInYear = 12;
constexpr int hoursInDay = 24;
constexpr int minutesInHour = 60;
constexpr int secondsInMinute = 60;
constexpr std::int64_t secondsInDay = Date::secondsPerDay;
constexpr int lowestYear = 100, highestYear = 9999;

enum class Interval { Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

struct IntervalName {
    std::u16string_view name;
    Interval interval;
};

constexpr IntervalName intervalNames[] = {
    {u"yyyy", Interval::Year},   {u"q", Interval::Quarter}, {u"m", Interval::Month},
    {u"y", Interval::DayOfYear}, {u"d", Interval::Day},     {u"w", Interval::Weekday},
    {u"ww", Interval::Week},     {u"h", Interval::Hour},    {u"n", Interval::Minute},
    {u"s", Interval::Second},
};

Interval intervalOf(std::u16string_view text) {
    const auto same = [](char16_t a, char16_t b) { return (a | 0x20) == b; };
    for (const IntervalName& known : intervalNames)
        if (std::equal(text.begin(), text.end(), known.name.begin(), known.name.end(), same))
            return known.interval;
    throwError(errors::InvalidCall);
}

std::int64_t floorDivide(std::int64_t value, std::int64_t by) {
    return value / by - (value % by != 0 && (value < 0) != (by < 0) ? 1 : 0);
}

int resolvedFirstDay(int firstDay) {
    if (firstDay < FirstDay::SystemDay || firstDay > FirstDay::Saturday) throwError(errors::InvalidCall);
    return firstDay == FirstDay::SystemDay ? Locale::user().firstDayOfWeek : firstDay;
}

int resolvedFirstWeek(int firstWeek) {
    if (firstWeek < FirstWeek::SystemWeek || firstWeek > FirstWeek::Full) throwError(errors::InvalidCall);
    return firstWeek == FirstWeek::SystemWeek ? Locale::user().firstWeekOfYear : firstWeek;
}

/// Days from the start of the week to `weekday` (0 is Sunday), for weeks that start on `firstDay`.
int daysIntoWeek(int weekday, int firstDay) {
    return (weekday + daysInWeek - (firstDay - 1)) % daysInWeek;
}

Date fromDays(std::int64_t day, int second) {
    if (day < Date::firstDay || day > Date::lastDay) throwError(errors::InvalidCall);
    return Date::fromDayAndSecond(static_cast<std::int32_t>(day), second);
}

std::int32_t toLong(std::int64_t value) {
    if (value < INT32_MIN || value > INT32_MAX) throwError(errors::Overflow);
    return static_cast<std::int32_t>(value);
}

std::int64_t secondsOf(Date date) {
    return date.dayNumber() * secondsInDay + date.secondOfDay();
}

Date addMonths(Date date, std::int64_t months) {
    DateParts parts = date.split();
    const std::int64_t total = parts.year * std::int64_t(monthsInYear) + parts.month - 1 + months;
    const std::int64_t year = floorDivide(total, monthsInYear);
    if (year < lowestYear || year > highestYear) throwError(errors::InvalidCall);
    parts.year = static_cast<int>(year);
    parts.month = static_cast<int>(total - year * monthsInYear) + 1;
    parts.day = std::min(parts.day, Date::daysInMonth(parts.year, parts.month));
    return Date::join(parts);
}

Date addSeconds(Date date, std::int64_t seconds) {
    const std::int64_t total = secondsOf(date) + seconds;
    const std::int64_t day = floorDivide(total, secondsInDay);
    return fromDays(day, static_cast<int>(total - day * secondsInDay));
}

/// The count of weeks up to a day, for weeks that start on `firstDay`. Day 0 was a Saturday.
std::int64_t weekCount(std::int32_t day, int firstDay) {
    constexpr int saturday = 7;
    return floorDivide(std::int64_t(day) + saturday - firstDay, daysInWeek);
}

} // namespace

Date DateSerial(int year, int month, int day) {
    constexpr int millennium = 2000;
    const std::int64_t fullYears = year < 0 ? std::int64_t(millennium) + year : fullYear(year);
    const std::int64_t months = fullYears * monthsInYear + month - 1;
    const std::int64_t firstYear = floorDivide(months, monthsInYear);
    // Days may lead back into the range from just outside it, never from further away.
    constexpr std::int64_t farthestYear = 6000000;
    if (firstYear < -farthestYear || firstYear > farthestYear) throwError(errors::InvalidCall);
    const int firstMonth = static_cast<int>(months - firstYear * monthsInYear) + 1;
    constexpr int cycleYears = 400, cycleDays = 146097;
    const std::int64_t cycles = floorDivide(firstYear, cycleYears);
    const int yearInCycle = static_cast<int>(firstYear - cycles * cycleYears) + cycleYears;
    const std::int64_t first = Date::dayNumberOf(yearInCycle, firstMonth, 1) + (cycles - 1) * cycleDays;
    return fromDays(first + day - 1, 0);
}

Date TimeSerial(int hour, int minute, int second) {
    const std::int64_t total = (std::int64_t(hour) * minutesInHour + minute) * secondsInMinute + second;
    const Date date(static_cast<double>(total) / static_cast<double>(secondsInDay));
    if (!date.isValid()) throwError(errors::InvalidCall);
    return date;
}

int Year(Date date) {
    return date.split().year;
}

int Month(Date date) {
    return date.split().month;
}

int Day(Date date) {
    return date.split().day;
}

int Hour(Date date) {
    return date.split().hour;
}

int Minute(Date date) {
    return date.split().minute;
}

int Second(Date date) {
    return date.split().second;
}

int Weekday(Date date, int firstDay) {
    return daysIntoWeek(date.split().weekday, resolvedFirstDay(firstDay)) + 1;
}

Date DateValue(const Variant& value) {
    return Date::fromDayAndSecond(CDate(value).dayNumber(), 0);
}

Date TimeValue(const Variant& value) {
    return Date::fromDayAndSecond(0, CDate(value).secondOfDay());
}

Date DateAdd(std::u16string_view interval, double number, Date date) {
    const double rounded = std::nearbyint(number);
    constexpr double limit = 1e15;
    if (!(std::abs(rounded) < limit)) throwError(errors::InvalidCall);
    const std::int64_t count = static_cast<std::int64_t>(rounded);
    switch (intervalOf(interval)) {
    case Interval::Year:
        return addMonths(date, count * monthsInYear);
    case Interval::Quarter:
        return addMonths(date, count * 3);
    case Interval::Month:
        return addMonths(date, count);
    case Interval::Week:
        return fromDays(date.dayNumber() + count * daysInWeek, date.secondOfDay());
    case Interval::Hour:
        return addSeconds(date, count * minutesInHour * secondsInMinute);
    case Interval::Minute:
        return addSeconds(date, count * secondsInMinute);
    case Interval::Second:
        return addSeconds(date, count);
    default:
        return fromDays(date.dayNumber() + count, date.secondOfDay());
    }
}

std::int32_t DateDiff(std::u16string_view interval, Date from, Date to, int firstDay, int firstWeek) {
    const int weekStart = resolvedFirstDay(firstDay);
    resolvedFirstWeek(firstWeek);
    const DateParts a = from.split(), b = to.split();
    const std::int64_t days = std::int64_t(to.dayNumber()) - from.dayNumber();
    const std::int64_t years = b.year - a.year;
    const auto quarter = [](const DateParts& parts) { return (parts.month - 1) / 3; };
    switch (intervalOf(interval)) {
    case Interval::Year:
        return toLong(years);
    case Interval::Quarter:
        return toLong(years * 4 + quarter(b) - quarter(a));
    case Interval::Month:
        return toLong(years * monthsInYear + b.month - a.month);
    case Interval::Weekday:
        return toLong(days / daysInWeek);
    case Interval::Week:
        return toLong(weekCount(to.dayNumber(), weekStart) - weekCount(from.dayNumber(), weekStart));
    case Interval::Hour:
        return toLong(days * hoursInDay + b.hour - a.hour);
    case Interval::Minute:
        return toLong((days * hoursInDay + b.hour - a.hour) * minutesInHour + b.minute - a.minute);
    case Interval::Second:
        return toLong(secondsOf(to) - secondsOf(from));
    default:
        return toLong(days);
    }
}

int dayOfYear(const DateParts& parts) {
    return Date::dayNumberOf(parts.year, parts.month, parts.day) - Date::dayNumberOf(parts.year, 1, 1) + 1;
}

int weekOfYear(const DateParts& parts, int firstDay, int firstWeek) {
    const int weekStart = resolvedFirstDay(firstDay);
    const int rule = resolvedFirstWeek(firstWeek);
    const int day = dayOfYear(parts);
    const int newYearWeekday = ((parts.weekday - (day - 1)) % daysInWeek + daysInWeek) % daysInWeek;
    const int before =
        daysIntoWeek(newYearWeekday, weekStart);      // days of the old year in the week of 1 January
    const int week = (day - 1 + before) / daysInWeek; // 0 for that week
    if (rule == FirstWeek::WithJanuary1) return week + 1;

    constexpr int fourDays = 4;
    const auto countsAsFirst = [&](int daysOfOldYear) {
        return rule == FirstWeek::OfFourDays ? daysInWeek - daysOfOldYear >= fourDays : daysOfOldYear == 0;
    };
    const int number = week + (countsAsFirst(before) ? 1 : 0);
    if (number == 0) { // it belongs to the last week of the year before
        DateParts eve;
        eve.year = parts.year - 1;
        eve.month = monthsInYear;
        eve.day = 31;
        eve.weekday = (newYearWeekday + daysInWeek - 1) % daysInWeek;
        return weekOfYear(eve, firstDay, firstWeek);
    }
    const int daysInYear = Date::isLeapYear(parts.year) ? 366 : 365;
    const int nextBefore = daysIntoWeek((newYearWeekday + daysInYear) % daysInWeek, weekStart);
    const bool inNextWeekOne = day > daysInYear - nextBefore && countsAsFirst(nextBefore);
    return inNextWeekOne ? 1 : number;
}

int DatePart(std::u16string_view interval, Date date, int firstDay, int firstWeek) {
    const DateParts parts = date.split();
    switch (intervalOf(interval)) {
    case Interval::Year:
        return parts.year;
    case Interval::Quarter:
        return (parts.month - 1) / 3 + 1;
    case Interval::Month:
        return parts.month;
    case Interval::DayOfYear:
        return dayOfYear(parts);
    case Interval::Weekday:
        return daysIntoWeek(parts.weekday, resolvedFirstDay(firstDay)) + 1;
    case Interval::Week:
        return weekOfYear(parts, firstDay, firstWeek);
    case Interval::Hour:
        return parts.hour;
    case Interval::Minute:
        return parts.minute;
    case Interval::Second:
        return parts.second;
    default:
        return parts.day;
    }
}

String MonthName(int month, bool abbreviate) {
    if (month < 1 || month > monthsInYear) throwError(errors::InvalidCall);
    const Locale& locale = Locale::user();
    const std::size_t index = static_cast<std::size_t>(month - 1);
    return String(abbreviate ? locale.shortMonthNames[index] : locale.monthNames[index]);
}

String WeekdayName(int weekday, bool abbreviate, int firstDay) {
    if (weekday < 1 || weekday > daysInWeek) throwError(errors::InvalidCall);
    const Locale& locale = Locale::user();
    const std::size_t index =
        static_cast<std::size_t>((resolvedFirstDay(firstDay) - 1 + weekday - 1) % daysInWeek);
    return String(abbreviate ? locale.shortDayNames[index] : locale.dayNames[index]);
}

} // namespace automation
