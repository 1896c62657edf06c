#include "automation/Date.h"

#include "automation/Error.h"

#include <cmath>

namespace automation {

namespace {

constexpr int firstYear = 100;
constexpr int lastYear = 9999;
constexpr int monthsPerYear = 12;
constexpr int hoursPerDay = 24;
constexpr int minutesPerHour = 60;
constexpr int secondsPerMinute = 60;
constexpr int secondsPerHour = minutesPerHour * secondsPerMinute;
constexpr int daysPerWeek = 7;
constexpr int weekdayOfDayZero = 6; // 30 December 1899 was a Saturday

// The calendar repeats every 400 years. Years are counted from 1 March so that the leap day comes last.
constexpr int yearsPerEra = 400;
constexpr int daysPerEra = 146097;
constexpr int daysBeforeDayZero = 693899; // from 1 March of the year 0 to 30 December 1899

constexpr int dayOfMarchYear(int month, int day) {
    constexpr int marchMonthsTimes5 = 153; // five months from March have 153 days
    return (marchMonthsTimes5 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
}

} // namespace

bool Date::isValid() const noexcept {
    return value_ > firstDay - 1 && value_ < lastDay + 1;
}

bool Date::isLeapYear(int year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int Date::daysInMonth(int year, int month) noexcept {
    constexpr int days[monthsPerYear] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : days[month - 1];
}

std::int32_t Date::dayNumberOf(int year, int month, int day) noexcept {
    const int marchYear = month > 2 ? year : year - 1;
    const int era = (marchYear >= 0 ? marchYear : marchYear - (yearsPerEra - 1)) / yearsPerEra;
    const int yearOfEra = marchYear - era * yearsPerEra;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfMarchYear(month, day);
    return era * daysPerEra + dayOfEra - daysBeforeDayZero;
}

Date Date::join(int year, int month, int day, int hour, int minute, int second) {
    return join(DateParts{year, month, day, hour, minute, second, 0});
}

Date Date::join(const DateParts& parts) {
    const bool good = parts.year >= firstYear && parts.year <= lastYear && parts.month >= 1 &&
                      parts.month <= monthsPerYear && parts.day >= 1 &&
                      parts.day <= daysInMonth(parts.year, parts.month) && parts.hour >= 0 &&
                      parts.hour < hoursPerDay && parts.minute >= 0 && parts.minute < minutesPerHour &&
                      parts.second >= 0 && parts.second < secondsPerMinute;
    if (!good) throwError(errors::InvalidCall);
    return fromDayAndSecond(dayNumberOf(parts.year, parts.month, parts.day),
                            parts.hour * secondsPerHour + parts.minute * secondsPerMinute + parts.second);
}

Date Date::fromDayAndSecond(std::int32_t dayNumber, int second) {
    const double time = static_cast<double>(second) / secondsPerDay;
    return Date(dayNumber < 0 ? dayNumber - time : dayNumber + time);
}

Date::Split Date::splitDays() const {
    if (!isValid()) throwError(errors::InvalidCall);
    const double whole = std::trunc(value_);
    auto day = static_cast<std::int32_t>(whole);
    auto second = static_cast<int>(std::floor(std::fabs(value_ - whole) * secondsPerDay + 0.5));
    if (second == secondsPerDay) {
        // The last half second of the range has no next day.
        if (day == lastDay) return {day, secondsPerDay - 1};
        second = 0;
        ++day;
    }
    return {day, second};
}

std::int32_t Date::dayNumber() const {
    return splitDays().day;
}

int Date::secondOfDay() const {
    return splitDays().second;
}

DateParts Date::split() const {
    const Split moment = splitDays();
    const int day = moment.day + daysBeforeDayZero;
    const int era = (day >= 0 ? day : day - (daysPerEra - 1)) / daysPerEra;
    const int dayOfEra = day - era * daysPerEra;
    constexpr int daysPer4Years = 1461;
    constexpr int daysPerCentury = 36524;
    const int yearOfEra = (dayOfEra - dayOfEra / (daysPer4Years - 1) + dayOfEra / daysPerCentury -
                           dayOfEra / (daysPerEra - 1)) /
                          365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int marchMonth = (5 * dayOfYear + 2) / 153;

    DateParts parts;
    parts.month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    parts.year = yearOfEra + era * yearsPerEra + (parts.month <= 2 ? 1 : 0);
    parts.day = dayOfYear - dayOfMarchYear(parts.month, 1) + 1;
    parts.hour = moment.second / secondsPerHour;
    parts.minute = moment.second / secondsPerMinute % minutesPerHour;
    parts.second = moment.second % secondsPerMinute;
    parts.weekday = ((moment.day + weekdayOfDayZero) % daysPerWeek + daysPerWeek) % daysPerWeek;
    return parts;
}

} // namespace automation
