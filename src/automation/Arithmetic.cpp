#include "automation/Operators.h"

#include "automation/LateBound.h"
#include "automation/Operands.h"

#include <cmath>
#include <limits>

namespace automation {

using namespace operands;

namespace {

using Operator = Variant (*)(const Variant&, const Variant&);

enum class Operation { Add, Subtract, Multiply };

/// The operator again on the plain values, where a reference or an object is among the operands.
Variant onPlainValues(Operator op, const Variant& a, const Variant& b) {
    return op(value(a), value(b));
}

bool anyIndirect(const Variant& a, const Variant& b) {
    return isIndirect(a) || isIndirect(b);
}

/// The type that whole numbers give: Byte only among Bytes (and Empty), else Integer, else Long.
VARTYPE wholeResult(unsigned kinds) {
    if (kinds & Long) return VT_I4;
    const bool onlyBytes = (kinds & Byte) && !(kinds & (Integer | Boolean));
    return onlyBytes ? VT_UI1 : VT_I2;
}

/// Sums and differences: Decimal over Date over Currency over Double; a Single with a Long gives a Double.
VARTYPE sumResult(unsigned kinds) {
    if (kinds & Exact) return VT_DECIMAL;
    if (kinds & Moment) return VT_DATE;
    if (kinds & Money) return VT_CY;
    if (kinds & (Double | Text)) return VT_R8;
    if (kinds & Single) return kinds & Long ? VT_R8 : VT_R4;
    return wholeResult(kinds);
}

/// Products: Decimal over Double over Currency; Dates and texts count as Doubles.
VARTYPE productResult(unsigned kinds) {
    if (kinds & Exact) return VT_DECIMAL;
    if (kinds & (Double | Text | Moment)) return VT_R8;
    if (kinds & Money) return kinds & Single ? VT_R8 : VT_CY;
    if (kinds & Single) return kinds & Long ? VT_R8 : VT_R4;
    return wholeResult(kinds);
}

template <class T>
T applied(Operation op, const T& a, const T& b) {
    switch (op) {
    case Operation::Add:
        return a + b;
    case Operation::Subtract:
        return a - b;
    default:
        return a * b;
    }
}

/// A whole result in the type of its operands, or in the next wider one that holds it.
Variant wholeVariant(std::int64_t result, VARTYPE type) {
    if (type == VT_UI1 && result >= 0 && result <= std::numeric_limits<std::uint8_t>::max())
        return static_cast<std::uint8_t>(result);
    if (type == VT_I4 && result == static_cast<std::int32_t>(result))
        return static_cast<std::int32_t>(result);
    return narrowest(result);
}

Variant singleOrDouble(double result) {
    if (std::fabs(result) > static_cast<double>(std::numeric_limits<float>::max())) return finite(result);
    return static_cast<float>(result);
}

Variant dateOrDouble(double result) {
    const Date date(result);
    if (date.isValid()) return date;
    return finite(result);
}

/// Reads both operands, the left one first, and applies the operation to them.
template <class Read>
auto appliedTo(Operation op, const Variant& a, const Variant& b, Read read) {
    const auto left = read(a);
    const auto right = read(b);
    return applied(op, left, right);
}

Variant calculated(Operation op, VARTYPE type, const Variant& a, const Variant& b) {
    switch (type) {
    case VT_DECIMAL:
        return appliedTo(op, a, b, decimalOf);
    case VT_CY:
        return appliedTo(op, a, b, currencyOf);
    case VT_DATE:
        return dateOrDouble(appliedTo(op, a, b, doubleOf));
    case VT_R8:
        return finite(appliedTo(op, a, b, doubleOf));
    case VT_R4:
        return singleOrDouble(appliedTo(op, a, b, doubleOf));
    default:
        return wholeVariant(applied(op, std::int64_t{wholeOf(a)}, std::int64_t{wholeOf(b)}), type);
    }
}

} // namespace

Variant add(const Variant& a, const Variant& b) {
    if (anyIndirect(a, b)) return onPlainValues(add, a, b);
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Failure) throwTypeMismatch();
    if (kinds & Null) return Variant::null();
    if (kinds == Text) return a.asString() + b.asString();
    if (kinds == (Text | Empty)) return a.isEmpty() ? b : a;
    return calculated(Operation::Add, sumResult(kinds), a, b);
}

Variant subtract(const Variant& a, const Variant& b) {
    if (anyIndirect(a, b)) return onPlainValues(subtract, a, b);
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Failure) throwTypeMismatch();
    if (kinds & Null) return Variant::null();
    const VARTYPE type = kinds == Moment ? VT_R8 : sumResult(kinds);
    return calculated(Operation::Subtract, type, a, b);
}

Variant multiply(const Variant& a, const Variant& b) {
    if (anyIndirect(a, b)) return onPlainValues(multiply, a, b);
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Failure) throwTypeMismatch();
    if (kinds & Null) return Variant::null();
    return calculated(Operation::Multiply, productResult(kinds), a, b);
}

Variant divide(const Variant& a, const Variant& b) {
    if (anyIndirect(a, b)) return onPlainValues(divide, a, b);
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Null) return Variant::null();
    if (kinds & Failure) throwTypeMismatch();
    if (kinds & Exact) {
        const Decimal dividend = decimalOf(a);
        const Decimal divisor = decimalOf(b);
        if (divisor.isZero()) throwError(dividend.isZero() ? errors::Overflow : errors::DivisionByZero);
        return dividend / divisor;
    }
    const double dividend = doubleOf(a);
    const double divisor = doubleOf(b);
    if (divisor == 0) throwError(dividend == 0 ? errors::Overflow : errors::DivisionByZero);
    const double quotient = dividend / divisor;
    const bool single = (kinds & Single) && !(kinds & ~(Single | Empty | Byte | Boolean | Integer));
    if (!single) return finite(quotient);
    if (std::fabs(quotient) > static_cast<double>(std::numeric_limits<float>::max()))
        throwError(errors::Overflow);
    return static_cast<float>(quotient);
}

Variant power(const Variant& a, const Variant& b) {
    if (anyIndirect(a, b)) return onPlainValues(power, a, b);
    const unsigned kinds = kindOf(a) | kindOf(b);
    if (kinds & Null) return Variant::null();
    if (kinds & Failure) throwTypeMismatch();
    const double base = doubleOf(a);
    const double exponent = doubleOf(b);
    if (base == 0 && exponent < 0) throwError(errors::InvalidCall);
    if (base < 0 && std::trunc(exponent) != exponent) throwError(errors::InvalidCall);
    return finite(std::pow(base, exponent));
}

Variant negate(const Variant& a) {
    if (isIndirect(a)) return negate(value(a));
    switch (kindOf(a)) {
    case Null:
        return a;
    case Failure:
        throwTypeMismatch();
    case Long:
        return wholeVariant(-std::int64_t{a.asLong()}, VT_I4);
    case Single:
        return -a.asSingle();
    case Money:
        return -a.asCurrency();
    case Moment:
        return dateOrDouble(-a.asDate().value());
    case Exact:
        return -a.asDecimal();
    case Double:
    case Text:
        return -doubleOf(a);
    default:
        return narrowest(-std::int64_t{wholeOf(a)});
    }
}

Variant concatenate(const Variant& a, const Variant& b) {
    if (anyIndirect(a, b)) return onPlainValues(concatenate, a, b);
    if (a.isError() || b.isError()) throwTypeMismatch();
    if (a.isNull() && b.isNull()) return a;
    const auto text = [](const Variant& v) {
        return v.isNull() ? String() : v.isString() ? v.asString() : CStr(v);
    };
    return text(a) + text(b);
}

} // namespace automation
