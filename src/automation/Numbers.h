#pragma once
// Numeric functions of an automation host's language.

#include "automation/String.h"

#include <cstdint>
#include <string_view>

namespace automation {

class Variant;

/// The number at the start of `text`: blanks, tabs and line ends anywhere are skipped, the decimal separator
/// is "." in every locale, &H and &O literals of up to four hexadecimal digits wrap to a negative Integer and
/// of up to eight to a negative Long. 0 where no number stands. Error 6 beyond the range of a Double.
double Val(std::u16string_view text);

/// Rounds half to even at `decimals` places (0 to 22, else Error 5). The type stays; a text is read as a
/// Double. Null gives Null.
Variant Round(const Variant& value, int decimals = 0);
double Round(double value, int decimals = 0);

/// The greatest whole number not above the value; the type stays. Null gives Null.
Variant Int(const Variant& value);

/// The whole part, towards zero.
Variant Fix(const Variant& value);

/// -1, 0 or 1. Error 94 on Null.
int Sgn(const Variant& value);

/// The absolute value; the type stays where it holds the result. Null gives Null.
Variant Abs(const Variant& value);

/// Hexadecimal or octal digits; a negative Integer has 16 bits, a negative Long or rounded number 32.
/// Empty is "0", Null raises Error 94.
String Hex(const Variant& value);
String Oct(const Variant& value);

} // namespace automation
