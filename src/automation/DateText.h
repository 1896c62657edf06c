#pragma once
// Dates and times read from text and written to it in a locale.

#include "automation/Date.h"

#include <cstdint>
#include <string_view>

namespace automation {

class Locale;
class TextBuilder;

/// Two-digit years count from here on: 30 is 1930, 29 is 2029.
inline constexpr int twoDigitYearsFrom = 1930;

/// A year of fewer than three digits in its century.
constexpr int fullYear(int year) {
    constexpr int century = 100;
    if (year < 0 || year >= century) return year;
    return year + (year < twoDigitYearsFrom % century ? twoDigitYearsFrom + century : twoDigitYearsFrom) /
                      century * century;
}

/// Reads a date, a time or both in either order.
///
/// Dates: three numbers in the locale's order, or in another order where only that makes a date; two numbers
/// are day and month of `currentYear`, or month and year; a month's name may stand for its number. Separators
/// are "/", "-", ",", the locale's own and blanks, between three numbers also ".". Names of days and the
/// literal words of the locale's long date are skipped. Times: hours, minutes and seconds with ":", "." or
/// the locale's separator, with "AM", "PM" or the locale's own marks after them.
/// Returns whether the whole text is a date or a time; `value` is set only then.
bool readDate(std::u16string_view text, const Locale& locale, int currentYear, Date& value);

/// The locale's short date and long time, each left out where it is zero; midnight of day 0 is a time.
void writeDate(TextBuilder& out, Date date, const Locale& locale);

/// By a pattern in the system's letters (d M y h H m s t, quoted text).
void writeSystemPattern(TextBuilder& out, std::u16string_view pattern, const DateParts& parts,
                        const Locale& locale);

} // namespace automation
