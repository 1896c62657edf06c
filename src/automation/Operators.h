#pragma once
// Comparison and arithmetic over all pairs of value types, as automation's language runtime makes them.

#include "automation/Variant.h"

#include <cstdint>
#include <string_view>

namespace automation {

/// How texts are compared: by their units, or in the locale's dictionary order without regard to case.
enum class TextCompare { Binary, Textual };

/// The outcome of a comparison; the numbers are automation's. Null is the outcome when a side is Null.
enum class Comparison { Less = 0, Equal = 1, Greater = 2, Null = 3 };

/// Compares two values. Empty counts as 0 beside a number and as "" beside a text; a number is less than
/// any text; a Boolean counts as -1 or 0; a Double beside a Single counts with the Single's precision.
/// Objects give their default member. Error 13 for arrays, records and mixed error values.
Comparison compare(const Variant& a, const Variant& b, TextCompare text = TextCompare::Binary);
Comparison compareText(std::u16string_view a, std::u16string_view b, TextCompare text);
/// Whether both compare as equal; Null is equal to nothing.
bool isEqual(const Variant& a, const Variant& b, TextCompare text = TextCompare::Binary);
bool isLess(const Variant& a, const Variant& b, TextCompare text = TextCompare::Binary);

// Arithmetic. The result has the wider of both types and widens where it overflows (Byte to Integer to Long
// to Double; Single to Double); Currency and Decimal overflow into Double or Error 6 as each operator says.
// Texts are read as numbers in the user's locale (Error 13 when they are none), Empty is 0, a Boolean is
// -1 or 0, Null gives Null, objects give their default member.

/// Two texts are joined; a Date and a number give a Date.
Variant add(const Variant& a, const Variant& b);
/// Two Dates give a Double.
Variant subtract(const Variant& a, const Variant& b);
Variant multiply(const Variant& a, const Variant& b);
/// Error 11 for a zero divisor, Error 6 for 0/0.
Variant divide(const Variant& a, const Variant& b);
/// Both sides rounded to whole numbers, the quotient towards zero. Error 11 for a zero divisor.
Variant integerDivide(const Variant& a, const Variant& b);
/// Remainder with the dividend's sign. Error 11 for a zero divisor.
Variant modulo(const Variant& a, const Variant& b);
/// Always a Double. Error 5 for a negative base with a fractional exponent.
Variant power(const Variant& a, const Variant& b);
Variant negate(const Variant& a);
/// Texts of both sides joined; Null counts as "" unless both are Null.
Variant concatenate(const Variant& a, const Variant& b);

// Bitwise on whole numbers, logical on Booleans. A text is read as a Boolean beside a Boolean or a text,
// else as a number. Null takes part as "unknown".
Variant logicalNot(const Variant& a);
Variant logicalAnd(const Variant& a, const Variant& b);
Variant logicalOr(const Variant& a, const Variant& b);
Variant logicalXor(const Variant& a, const Variant& b);
Variant logicalEqv(const Variant& a, const Variant& b);
Variant logicalImp(const Variant& a, const Variant& b);

} // namespace automation
