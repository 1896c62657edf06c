#include "automation/Numbers.h"

#include "automation/Conversions.h"
#include "automation/Error.h"
#include "automation/LateBound.h"
#include "automation/NumberText.h"
#include "automation/Variant.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace automation {

namespace {

constexpr int mostDecimals = 22;
constexpr int currencyDecimals = 4;

constexpr double powersOfTen[mostDecimals + 1] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// The value without references and default members, texts and Empty as numbers.
Variant numeric(const Variant& source) {
    if (source.isByRef() || source.isObject()) return numeric(value(source));
    if (source.isString()) return CDbl(source);
    if (source.isEmpty()) return std::int16_t(0);
    if (source.isArray() || source.isError() || source.type() == VT_RECORD) throwTypeMismatch();
    return source;
}

Currency roundedCurrency(Currency value, int decimals) {
    if (decimals >= currencyDecimals) return value;
    const Decimal rounded = Decimal::fromScaled(value.scaled(), currencyDecimals).rounded(decimals);
    return Currency::fromScaled(rounded.toScaled(currencyDecimals));
}

/// Whole part of a Currency: the greatest not above it, or the one towards zero.
Currency wholeCurrency(Currency value, bool down) {
    std::int64_t whole = value.scaled() / Currency::scale;
    if (down && value.scaled() < 0 && whole * Currency::scale != value.scaled()) --whole;
    if (whole < INT64_MIN / Currency::scale) throwError(errors::Overflow);
    return Currency::fromScaled(whole * Currency::scale);
}

Decimal wholeDecimal(const Decimal& value, bool down) {
    const Decimal whole = value.truncated();
    if (!down || !value.isNegative() || whole == value) return whole;
    return whole - Decimal::fromInt64(1);
}

Variant whole(const Variant& source, bool down) {
    Variant number = numeric(source);
    const auto part = [down](auto real) { return down ? std::floor(real) : std::trunc(real); };
    switch (number.type()) {
    case VT_R4:
        return part(number.asSingle());
    case VT_R8:
        return part(number.asDouble());
    case VT_DATE:
        return Date(part(number.asDate().value()));
    case VT_CY:
        return wholeCurrency(number.asCurrency(), down);
    case VT_DECIMAL:
        return wholeDecimal(number.asDecimal(), down);
    case VT_BOOL:
        return static_cast<std::int16_t>(number.asBoolean() ? -1 : 0);
    default:
        return number;
    }
}

String digitsInBase(const Variant& source, int base) {
    const Variant number =
        source.isString() || source.isByRef() || source.isObject() ? numeric(source) : source;
    std::uint32_t bits = 0;
    switch (number.type()) {
    case VT_NULL:
        throwError(errors::InvalidUseOfNull);
    case VT_I2:
        bits = static_cast<std::uint16_t>(number.asInteger());
        break;
    case VT_BOOL:
        bits = number.asBoolean() ? 0xFFFF : 0;
        break;
    default:
        bits = static_cast<std::uint32_t>(CLng(number));
    }
    char buffer[16];
    const char* end = std::to_chars(buffer, buffer + sizeof buffer, bits, base).ptr;
    char16_t wide[16];
    std::size_t count = 0;
    for (const char* p = buffer; p != end; ++p)
        wide[count++] = static_cast<char16_t>(*p >= 'a' ? *p - 'a' + 'A' : *p);
    return String(std::u16string_view(wide, count));
}

} // namespace

double Val(std::u16string_view text) {
    double result = 0;
    if (readLeadingNumber(text, result) == Reading::Overflow) throwError(errors::Overflow);
    return result;
}

double Round(double value, int decimals) {
    if (decimals < 0 || decimals > mostDecimals) throwError(errors::InvalidCall);
    const double power = powersOfTen[decimals];
    const double scaled = value * power;
    // Where the scaled value leaves the range or has no fraction, nothing is left to round.
    constexpr double wholeFrom = 4503599627370496.0;
    if (!(std::abs(scaled) < wholeFrom)) return value;
    return std::nearbyint(scaled) / power;
}

Variant Round(const Variant& source, int decimals) {
    if (decimals < 0 || decimals > mostDecimals) throwError(errors::InvalidCall);
    Variant number = numeric(source);
    switch (number.type()) {
    case VT_R4:
        return static_cast<float>(Round(static_cast<double>(number.asSingle()), decimals));
    case VT_R8:
        return Round(number.asDouble(), decimals);
    case VT_DATE:
        return Round(number.asDate().value(), decimals);
    case VT_CY:
        return roundedCurrency(number.asCurrency(), decimals);
    case VT_DECIMAL:
        return number.asDecimal().rounded(decimals);
    case VT_BOOL:
        return static_cast<std::int16_t>(number.asBoolean() ? -1 : 0);
    default:
        return number;
    }
}

Variant Int(const Variant& source) {
    return whole(source, true);
}

Variant Fix(const Variant& source) {
    return whole(source, false);
}

int Sgn(const Variant& source) {
    Variant number = numeric(source);
    if (number.isNull()) throwError(errors::InvalidUseOfNull);
    if (number.type() == VT_DECIMAL) {
        const Decimal decimal = number.asDecimal();
        return decimal.isZero() ? 0 : decimal.isNegative() ? -1 : 1;
    }
    const double real = CDbl(number);
    return real > 0 ? 1 : real < 0 ? -1 : 0;
}

Variant Abs(const Variant& source) {
    Variant number = numeric(source);
    switch (number.type()) {
    case VT_R4:
        return std::abs(number.asSingle());
    case VT_R8:
        return std::abs(number.asDouble());
    case VT_DATE:
        return Date(std::abs(number.asDate().value()));
    case VT_CY:
        return number.asCurrency().scaled() < 0 ? -number.asCurrency() : number.asCurrency();
    case VT_DECIMAL:
        return number.asDecimal().isNegative() ? -number.asDecimal() : number.asDecimal();
    case VT_BOOL:
        return static_cast<std::int16_t>(number.asBoolean() ? 1 : 0);
    case VT_I2:
        // The one Integer and the one Long without a positive counterpart widen.
        if (number.asInteger() == INT16_MIN) return std::int32_t(32768);
        return static_cast<std::int16_t>(std::abs(number.asInteger()));
    case VT_I4:
        if (number.asLong() == INT32_MIN) return 2147483648.0;
        return std::abs(number.asLong());
    default:
        return number;
    }
}

String Hex(const Variant& source) {
    return digitsInBase(source, 16);
}

String Oct(const Variant& source) {
    return digitsInBase(source, 8);
}

} // namespace automation
