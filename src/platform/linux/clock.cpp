#include "platform/clock.h"

#include "platform/errors.h"
#include "platform/linux/display.h"
#include "platform/linux/screen_contexts.h"
#include "platform/linux/time_source.h"

#include <ctime>

namespace platform {
namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;
constexpr std::int64_t nanosecondsPerUnit = 100;
constexpr std::int64_t unitsPerSecond = 10'000'000;
constexpr std::int64_t unitsPerMillisecond = 10'000;
constexpr std::int64_t unixEpochInUnits = 116'444'736'000'000'000; // 1 January 1970
constexpr std::int64_t secondsPerDay = 86'400;
constexpr std::int64_t daysFrom1601To1970 = 134'774;
constexpr std::uint64_t lastFileTime = 0x7FFFFFFFFFFFFFFF;

std::uint64_t unitsOf(const FILETIME& time) {
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

FILETIME fileTimeOf(std::uint64_t units) {
    return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

/// Seconds to add to UTC for the user's zone at an instant.
std::int64_t zoneOffset(std::int64_t secondsSince1970) {
    const auto instant = static_cast<std::time_t>(secondsSince1970);
    std::tm local{};
    localtime_r(&instant, &local);
    return local.tm_gmtoff;
}

/// A date of the Gregorian calendar out of the days since 1 January 1970. Years begin in March here, so that
/// the leap day is the last.
void setDate(std::int64_t days, SYSTEMTIME& time) {
    constexpr std::int64_t daysOfEra = 146'097; // 400 years
    constexpr std::int64_t daysBefore1970 = 719'468;
    const std::int64_t shifted = days + daysBefore1970;
    const std::int64_t era = shifted / daysOfEra;
    const std::int64_t day = shifted - era * daysOfEra;
    const std::int64_t year = (day - day / 1460 + day / 36'524 - day / 146'096) / 365;
    const std::int64_t dayOfYear = day - (365 * year + year / 4 - year / 100);
    const std::int64_t month = (5 * dayOfYear + 2) / 153;
    time.wDay = static_cast<WORD>(dayOfYear - (153 * month + 2) / 5 + 1);
    time.wMonth = static_cast<WORD>(month < 10 ? month + 3 : month - 9);
    time.wYear = static_cast<WORD>(year + era * 400 + (time.wMonth <= 2 ? 1 : 0));
    time.wDayOfWeek = static_cast<WORD>((days + daysFrom1601To1970 + 1) % 7);
}

std::int64_t daysOf(int year, int month, int day) {
    const std::int64_t y = month <= 2 ? year - 1 : year;
    const std::int64_t era = y / 400;
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146'097 + dayOfEra - 719'468;
}

bool isLeap(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

bool exists(const SYSTEMTIME& time) {
    constexpr WORD monthDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (time.wYear < 1601 || time.wYear > 30'827 || time.wMonth < 1 || time.wMonth > 12) return false;
    const int days = monthDays[time.wMonth - 1] + (time.wMonth == 2 && isLeap(time.wYear) ? 1 : 0);
    return time.wDay >= 1 && time.wDay <= days && time.wHour < 24 && time.wMinute < 60 && time.wSecond < 60 &&
           time.wMilliseconds < 1000;
}

void setCalendar(std::uint64_t units, SYSTEMTIME& time) {
    const auto seconds = static_cast<std::int64_t>(units) / unitsPerSecond;
    const auto ofDay = static_cast<int>(seconds % secondsPerDay);
    setDate(seconds / secondsPerDay - daysFrom1601To1970, time);
    time.wHour = static_cast<WORD>(ofDay / 3600);
    time.wMinute = static_cast<WORD>(ofDay / 60 % 60);
    time.wSecond = static_cast<WORD>(ofDay % 60);
    time.wMilliseconds = static_cast<WORD>(units % unitsPerSecond / unitsPerMillisecond);
}

std::uint64_t nowInUnits() {
    return static_cast<std::uint64_t>(driver::wallClockNanoseconds() / nanosecondsPerUnit + unixEpochInUnits);
}

/// The difference between the zone and UTC that holds now, in units.
std::int64_t presentOffset() {
    return zoneOffset(driver::wallClockNanoseconds() / nanosecondsPerSecond) * unitsPerSecond;
}

BOOL shifted(const FILETIME* from, FILETIME* to, std::int64_t offset) {
    const std::uint64_t units = unitsOf(*from) + static_cast<std::uint64_t>(offset);
    if (unitsOf(*from) > lastFileTime || units > lastFileTime) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE_;
    }
    *to = fileTimeOf(units);
    return TRUE_;
}

} // namespace

void GetSystemTimeAsFileTime(FILETIME* time) {
    *time = fileTimeOf(nowInUnits());
}

void GetSystemTime(SYSTEMTIME* time) {
    setCalendar(nowInUnits(), *time);
}

void GetLocalTime(SYSTEMTIME* time) {
    setCalendar(nowInUnits() + static_cast<std::uint64_t>(presentOffset()), *time);
}

DWORD GetTickCount() {
    return static_cast<DWORD>(driver::monotonicNanoseconds() / nanosecondsPerMillisecond);
}

BOOL QueryPerformanceCounter(LONGLONG* count) {
    *count = driver::monotonicNanoseconds() / nanosecondsPerUnit;
    return TRUE_;
}

BOOL QueryPerformanceFrequency(LONGLONG* stepsPerSecond) {
    *stepsPerSecond = unitsPerSecond;
    return TRUE_;
}

void Sleep(DWORD milliseconds) {
    if (milliseconds > 0 && driver::displayStarted()) driver::showDrawn();
    driver::passMilliseconds(milliseconds);
}

BOOL FileTimeToSystemTime(const FILETIME* file, SYSTEMTIME* time) {
    const std::uint64_t units = unitsOf(*file);
    if (units > lastFileTime) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE_;
    }
    setCalendar(units, *time);
    return TRUE_;
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* time, FILETIME* file) {
    if (!exists(*time)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE_;
    }
    const std::int64_t days = daysOf(time->wYear, time->wMonth, time->wDay) + daysFrom1601To1970;
    const std::int64_t seconds = days * secondsPerDay + std::int64_t{time->wHour} * 3600 +
                                 std::int64_t{time->wMinute} * 60 + time->wSecond;
    *file = fileTimeOf(
        static_cast<std::uint64_t>(seconds * unitsPerSecond + time->wMilliseconds * unitsPerMillisecond));
    return TRUE_;
}

BOOL FileTimeToLocalFileTime(const FILETIME* file, FILETIME* local) {
    return shifted(file, local, presentOffset());
}

BOOL LocalFileTimeToFileTime(const FILETIME* local, FILETIME* file) {
    return shifted(local, file, -presentOffset());
}

} // namespace platform
