#include "automation/Operators.h"

#include "automation/LateBound.h"
#include "automation/Operands.h"

#include "platform/locale.h"

#include <cmath>
#include <limits>

namespace automation {

using namespace operands;

namespace {

constexpr double currencyLimit = 922337203685477.0; // whole units that a Currency holds on either side

template <class T>
Comparison ordered(const T& a, const T& b) {
    return a < b ? Comparison::Less : a > b ? Comparison::Greater : Comparison::Equal;
}

/// A number that is not Currency beside one that is: compared to four decimals where that fits.
Comparison orderedAsCurrency(const Variant& a, const Variant& b) {
    const double x = doubleOf(a);
    const double y = doubleOf(b);
    if (std::fabs(x) > currencyLimit || std::fabs(y) > currencyLimit) {
        if (a.type() != VT_CY || b.type() != VT_CY) return ordered(x, y);
    }
    return ordered(currencyOf(a), currencyOf(b));
}

/// Beside a Decimal; a number beyond its range is compared as a Double.
Comparison orderedAsDecimal(const Variant& a, const Variant& b) {
    constexpr double decimalLimit = 7.9e28;
    const double x = doubleOf(a);
    const double y = doubleOf(b);
    if (std::fabs(x) > decimalLimit || std::fabs(y) > decimalLimit) return ordered(x, y);
    return ordered(decimalOf(a), decimalOf(b));
}

/// A Double beside a Single counts with the Single's precision, so that 0.1 equals 0.1.
Comparison orderedAsSingle(const Variant& a, const Variant& b) {
    constexpr double singleLimit = std::numeric_limits<float>::max();
    const double x = doubleOf(a);
    const double y = doubleOf(b);
    if (std::fabs(x) > singleLimit || std::fabs(y) > singleLimit) return ordered(x, y);
    return ordered(static_cast<float>(x), static_cast<float>(y));
}

Comparison orderedNumbers(unsigned kinds, const Variant& a, const Variant& b) {
    if (kinds & Exact) return orderedAsDecimal(a, b);
    if (kinds & Money) return orderedAsCurrency(a, b);
    if (kinds == (Single | Double)) return orderedAsSingle(a, b);
    if (kinds & (Single | Double | Moment)) return ordered(doubleOf(a), doubleOf(b));
    return ordered(wholeOf(a), wholeOf(b));
}

} // namespace

Comparison compareText(std::u16string_view a, std::u16string_view b, TextCompare text) {
    if (text == TextCompare::Binary) return ordered(a.compare(b), 0);
    if (a == b) return Comparison::Equal;
    const int order =
        platform::CompareStringW(platform::GetUserDefaultLCID(), platform::NORM_IGNORECASE, a.data(),
                                 static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()));
    return ordered(order, platform::CSTR_EQUAL);
}

Comparison compare(const Variant& a, const Variant& b, TextCompare text) {
    if (a.type() == b.type()) {
        // The pairs that most comparisons are of.
        if (a.type() == VT_I4) return ordered(a.asLong(), b.asLong());
        if (a.type() == VT_R8) return ordered(a.asDouble(), b.asDouble());
        if (a.type() == VT_BSTR) return compareText(a.asString(), b.asString(), text);
    }
    if (isIndirect(a) || isIndirect(b)) return compare(value(a), value(b), text);
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Failure) {
        if (kinds != Failure) throwTypeMismatch();
        return ordered(a.asError(), b.asError());
    }
    if (kinds & Null) return Comparison::Null;
    if (kinds & Text) {
        if (a.isEmpty()) return b.asString().empty() ? Comparison::Equal : Comparison::Less;
        if (b.isEmpty()) return a.asString().empty() ? Comparison::Equal : Comparison::Greater;
        return a.isString() ? Comparison::Greater : Comparison::Less;
    }
    return orderedNumbers(kinds, a, b);
}

} // namespace automation
