#pragma once
// Comparison and arithmetic over all pairs of value types, as automation's language runtime makes them.

#include "automation/Variant.h"

#include <cstdint>
#include <string_view>
#include <type_traits>

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

/// Gives `test` the contents of two values of one simple type, a text only to be compared by its units;
/// other pairs are left to `others`. Sorting and searching spend their time here, so it is inline.
template <class Test, class Others>
inline bool testAlike(const Variant& a, const Variant& b, TextCompare text, Test test, Others others) {
    if (a.type() == b.type()) {
        switch (a.type()) {
        case VT_I2:
            return test(a.asInteger(), b.asInteger());
        case VT_I4:
            return test(a.asLong(), b.asLong());
        case VT_R8:
            return test(a.asDouble(), b.asDouble());
        case VT_CY:
            return test(a.asCurrency().scaled(), b.asCurrency().scaled());
        case VT_DATE:
            return test(a.asDate().value(), b.asDate().value());
        case VT_BOOL:
            return test(a.asBoolean() ? -1 : 0, b.asBoolean() ? -1 : 0);
        case VT_BSTR:
            if (text == TextCompare::Binary) return test(a.asString().view(), b.asString().view());
            break;
        default:
            break;
        }
    }
    return others();
}

/// Whether both compare as equal; Null is equal to nothing.
inline bool isEqual(const Variant& a, const Variant& b, TextCompare text = TextCompare::Binary) {
    const auto equal = [](const auto& x, const auto& y) {
        // What is no number is neither less nor greater than another, and so equal to it.
        if constexpr (std::is_same_v<decltype(x), const double&>) return !(x < y) && !(x > y);
        return x == y;
    };
    return testAlike(a, b, text, equal, [&] { return compare(a, b, text) == Comparison::Equal; });
}

/// Whether `a` comes before `b`; Null comes before nothing.
inline bool isLess(const Variant& a, const Variant& b, TextCompare text = TextCompare::Binary) {
    return testAlike(
        a, b, text, [](const auto& x, const auto& y) { return x < y; },
        [&] { return compare(a, b, text) == Comparison::Less; });
}

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
