#pragma once
// Values to text by pattern, as an automation host's language formats them in the user's locale.

#include "automation/String.h"

#include <string_view>

namespace automation {

class Variant;

/// Formats `value` by a number, date or text pattern or by a name of a format ("Standard", "Short Date", ...,
/// in any case). Without a pattern it is `CStr`. Null and Empty give "" unless the pattern has a section for
/// them. Numbers have up to four sections (positive, negative, zero, Null), texts two (text, empty). A text
/// that is a number or a date is formatted as such when the pattern asks for one.
/// `firstDay` and `firstWeek` serve "w" and "ww" (0 takes the locale's own). Error 5 for a wrong one.
String Format(const Variant& value, std::u16string_view pattern = {}, int firstDay = 1, int firstWeek = 1);

/// Three-way choices of the functions below: the locale decides, or the caller.
namespace Tristate {
enum : int { Default = -2, Yes = -1, No = 0 };
}

/// A number with `decimals` places (-1: the locale's), rounded half away from zero. Error 5 for decimals
/// outside -1 to 255 or a wrong choice.
String FormatNumber(const Variant& value, int decimals = -1, int leadingDigit = Tristate::Default,
                    int parentheses = Tristate::Default, int group = Tristate::Default);
String FormatCurrency(const Variant& value, int decimals = -1, int leadingDigit = Tristate::Default,
                      int parentheses = Tristate::Default, int group = Tristate::Default);
String FormatPercent(const Variant& value, int decimals = -1, int leadingDigit = Tristate::Default,
                     int parentheses = Tristate::Default, int group = Tristate::Default);

namespace NamedDateFormat {
enum : int { GeneralDate, LongDate, ShortDate, LongTime, ShortTime };
}

/// A date by one of the formats above, else Error 5.
String FormatDateTime(const Variant& value, int named = NamedDateFormat::GeneralDate);

} // namespace automation
