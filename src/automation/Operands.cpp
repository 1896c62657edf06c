#include "automation/Operands.h"

#include <cmath>
#include <limits>

namespace automation::operands {

std::int32_t wholeOf(const Variant& v) {
    switch (v.type()) {
    case VT_EMPTY:
        return 0;
    case VT_UI1:
        return v.asByte();
    case VT_BOOL:
        return v.asBoolean() ? -1 : 0;
    case VT_I2:
        return v.asInteger();
    default:
        return v.asLong();
    }
}

double doubleOf(const Variant& v) {
    switch (v.type()) {
    case VT_R8:
        return v.asDouble();
    case VT_R4:
        return v.asSingle();
    case VT_DATE:
        return v.asDate().value();
    case VT_CY:
        return v.asCurrency().toDouble();
    case VT_DECIMAL:
        return v.asDecimal().toDouble();
    case VT_BSTR:
        return CDbl(v);
    default:
        return wholeOf(v);
    }
}

Currency currencyOf(const Variant& v) {
    switch (v.type()) {
    case VT_CY:
        return v.asCurrency();
    case VT_BSTR:
        return CCur(v);
    case VT_R4:
    case VT_R8:
    case VT_DATE:
        return Currency::fromDouble(doubleOf(v));
    default:
        return Currency::fromScaled(Currency::scale * std::int64_t{wholeOf(v)});
    }
}

Decimal decimalOf(const Variant& v) {
    switch (v.type()) {
    case VT_DECIMAL:
        return v.asDecimal();
    case VT_BSTR:
        return CDec(v);
    case VT_R4:
        return Decimal::fromFloat(v.asSingle());
    case VT_R8:
    case VT_DATE:
        return Decimal::fromDouble(doubleOf(v));
    case VT_CY: {
        constexpr int currencyDecimals = 4;
        return Decimal::fromScaled(v.asCurrency().scaled(), currencyDecimals).normalized();
    }
    default:
        return Decimal::fromInt64(wholeOf(v));
    }
}

std::int32_t longOf(const Variant& v) {
    switch (v.type()) {
    case VT_EMPTY:
    case VT_UI1:
    case VT_BOOL:
    case VT_I2:
    case VT_I4:
        return wholeOf(v);
    default:
        return CLng(v);
    }
}

Variant finite(double value) {
    if (!std::isfinite(value)) throwError(errors::Overflow);
    return value;
}

Variant narrowest(std::int64_t value) {
    if (value >= std::numeric_limits<std::int16_t>::min() &&
        value <= std::numeric_limits<std::int16_t>::max())
        return static_cast<std::int16_t>(value);
    if (value >= std::numeric_limits<std::int32_t>::min() &&
        value <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(value);
    return static_cast<double>(value);
}

} // namespace automation::operands
