#pragma once
// What the operators share: the kinds of their operands, and how they read them.

#include "automation/Conversions.h"
#include "automation/Variant.h"

#include <cstdint>
#include <iterator>

namespace automation::operands {

/// The kinds as bits, so that a pair of operands is one mask.
enum Kind : unsigned {
    Empty = 1 << 0,
    Null = 1 << 1,
    Byte = 1 << 2,
    Boolean = 1 << 3,
    Integer = 1 << 4,
    Long = 1 << 5,
    Single = 1 << 6,
    Double = 1 << 7,
    Money = 1 << 8,
    Moment = 1 << 9,
    Text = 1 << 10,
    Exact = 1 << 11, ///< Decimal
    Failure = 1 << 12
};

/// The kind of each tag; 0 for those that operators do not take.
inline constexpr unsigned kindOfTag[] = {Empty, Null,    Integer, Long, Single, Double, Money, Moment, Text,
                                         0,     Failure, Boolean, 0,    0,      Exact,  0,     0,      Byte};

/// Error 13 for arrays, records and what else operators do not take.
inline unsigned kindOf(const Variant& v) {
    const unsigned kind = v.type() < std::size(kindOfTag) ? kindOfTag[v.type()] : 0;
    if (kind == 0) throwTypeMismatch();
    return kind;
}

/// The whole number of an Empty, Byte, Boolean, Integer or Long.
std::int32_t wholeOf(const Variant& v);
double doubleOf(const Variant& v);
Currency currencyOf(const Variant& v);
Decimal decimalOf(const Variant& v);

/// Rounded half to even; Error 6 beyond a Long. Texts are read as numbers.
std::int32_t longOf(const Variant& v);

/// A Double, or Error 6 when it is none that a variable can hold.
Variant finite(double value);
/// The narrowest of Integer, Long and Double that holds the number.
Variant narrowest(std::int64_t value);

/// Whether the operator must look at the plain values first: references or objects are among them.
inline bool isIndirect(const Variant& v) {
    return v.isByRef() || v.isObject();
}

} // namespace automation::operands
