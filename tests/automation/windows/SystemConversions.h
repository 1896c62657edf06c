#pragma once
// The system's own conversions of automation values, with results as texts: a value written exactly, or
// "error 13".

#include <cstdint>
#include <string>
#include <string_view>

namespace tests::system {

using Locale = std::uint32_t;

// Texts to values.
std::string doubleFromText(Locale locale, std::u16string_view text);
std::string singleFromText(Locale locale, std::u16string_view text);
std::string longFromText(Locale locale, std::u16string_view text);
std::string integerFromText(Locale locale, std::u16string_view text);
std::string byteFromText(Locale locale, std::u16string_view text);
std::string currencyFromText(Locale locale, std::u16string_view text); ///< In ten-thousandths
std::string decimalFromText(Locale locale, std::u16string_view text);  ///< Plain digits with a point
std::string booleanFromText(Locale locale, std::u16string_view text);
std::string dateFromText(Locale locale, std::u16string_view text);

// Values to texts.
std::string textFromDouble(Locale locale, double value);
std::string textFromSingle(Locale locale, float value);
std::string textFromLong(Locale locale, std::int32_t value);
std::string textFromCurrency(Locale locale, std::int64_t scaled);
std::string textFromDate(Locale locale, double value);
std::string textFromDecimal(Locale locale, std::u16string_view digits);
/// `localized` asks for the language's own words.
std::string textFromBoolean(Locale locale, bool value, bool localized);

// Formats. The named ones speak the user's own locale.
std::string formatNumber(Locale locale, double value, std::u16string_view pattern);
std::string formatDate(Locale locale, double value, std::u16string_view pattern, int firstDay, int firstWeek);
std::string formatText(Locale locale, std::u16string_view value, std::u16string_view pattern);
std::string userFormatNumber(double value, int decimals, int leadingDigit, int parentheses, int group);
std::string userFormatCurrency(double value, int decimals, int leadingDigit, int parentheses, int group);
std::string userFormatPercent(double value, int decimals, int leadingDigit, int parentheses, int group);
std::string userFormatDateTime(double value, int named);
std::string userMonthName(int month, bool abbreviate);
std::string userWeekdayName(int weekday, bool abbreviate, int firstDay);

// Rounding.
std::string round(double value, int decimals);
std::string wholeBelow(double value);
std::string wholePart(double value);

} // namespace tests::system
