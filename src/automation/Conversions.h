#pragma once
// Conversions between the automation types and tests on values, as an automation host's language makes
// them: texts are read and written in the user's locale. A text that is no value of the wanted type and a
// type that never converts raise Error 13, a value out of range Error 6, Null Error 94. An object converts
// through its default member.

#include "automation/Currency.h"
#include "automation/Date.h"
#include "automation/Decimal.h"
#include "automation/String.h"

#include <concepts>
#include <cstdint>
#include <string_view>

namespace automation {

class Variant;

/// To Double. Texts: blanks around, a sign before or after, parentheses for negatives, the currency symbol,
/// thousands separators, an exponent, &H and &O literals. Empty is 0, True is -1.
double CDbl(const Variant& value);

/// To Single; the Double is rounded to the nearest. Error 6 beyond 3.4E+38.
float CSng(const Variant& value);

/// To Long (32 bits), rounded half to even.
std::int32_t CLng(const Variant& value);

/// To Integer (16 bits), rounded half to even.
std::int16_t CInt(const Variant& value);

/// To Byte (0 to 255), rounded half to even.
std::uint8_t CByte(const Variant& value);

/// To Currency, rounded half to even at four decimals.
Currency CCur(const Variant& value);

/// To Decimal. A Double gives its 15 significant digits, a Single 7.
Decimal CDec(const Variant& value);

/// To Boolean: 0 is False, all else True. Texts: "True", "False" and the locale's own words in any case, and
/// numbers.
bool CBool(const Variant& value);

/// To Date: from -657434 (1 January 100) to below 2958466 (1 January 10000), else Error 6. Texts as
/// `readDate` in DateText.h reads them; a text that is only a number is no date.
Date CDate(const Variant& value);

/// To text in the user's locale: a Double with 15 significant digits, a Single with 7, a Boolean as the
/// language's own word, a Date as short date and long time (each left out when it is zero), Empty as "", an
/// Error as "Error 448".
String CStr(const Variant& value);

/// As `CStr`, but Booleans are "True" and "False" in every locale: the form that files and messages use.
String plainText(const Variant& value);

/// "Verdadero" or "Falso" in the locale's language.
String localText(bool value);

/// `CDbl` and `CDate` of a text, `CStr` of the other types, without a Variant in between.
double doubleFromText(std::u16string_view text);
Date dateFromText(std::u16string_view text);
String textOf(double value);
String textOf(float value);
String textOf(std::int32_t value);
String textOf(Currency value);
String textOf(const Decimal& value);
String textOf(Date value);
String textOf(std::same_as<bool> auto value) {
    return localText(value);
}

/// Whether `CDbl` takes the value: numbers, Booleans, Empty and numeric texts; never dates.
bool IsNumeric(const Variant& value);

/// Whether the value is a Date or a text that reads as a date or a time; numbers are not.
bool IsDate(const Variant& value);

bool IsNull(const Variant& value);
bool IsEmpty(const Variant& value);
bool IsArray(const Variant& value);
bool IsObject(const Variant& value);
bool IsError(const Variant& value);

/// Whether an optional argument was left out (Error 448 of the platform's "parameter not found").
bool IsMissing(const Variant& value);

/// The type's number, with 8192 added for arrays.
std::int16_t VarType(const Variant& value);

/// "Integer", "String", "Double()", "Nothing" for no object, the class name for others.
String TypeName(const Variant& value);

} // namespace automation
