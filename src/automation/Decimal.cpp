#include "automation/Decimal.h"

#include "automation/Error.h"
#include "automation/WideArithmetic.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace automation {

namespace {

constexpr std::size_t mantissaLimbs = 3;
// Room for a mantissa times 10 to the 28, and for the product of two mantissas.
constexpr std::size_t workLimbs = 8;
using Mantissa = wide::Integer<mantissaLimbs>;
using Work = wide::Integer<workLimbs>;

constexpr int digitsPerStep = 9;
constexpr std::array<std::uint32_t, digitsPerStep + 1> powersOfTen = {
    1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};

Mantissa mantissaOf(const Decimal& d) {
    return {static_cast<std::uint32_t>(d.low()), static_cast<std::uint32_t>(d.low() >> wide::limbBits),
            d.high()};
}

Work workOf(const Decimal& d) {
    return wide::resized<workLimbs>(mantissaOf(d));
}

bool fitsMantissa(const Work& value) {
    return std::all_of(value.begin() + mantissaLimbs, value.end(),
                       [](std::uint32_t limb) { return limb == 0; });
}

Decimal decimalOf(const Work& value, int scale, bool negative) {
    const std::uint64_t low = value[0] | (std::uint64_t{value[1]} << wide::limbBits);
    return Decimal(low, value[2], static_cast<std::uint8_t>(scale), negative);
}

void scaleUp(Work& value, int digits) {
    for (; digits > 0; digits -= digitsPerStep)
        wide::multiplySmall(value, powersOfTen[static_cast<std::size_t>(std::min(digits, digitsPerStep))]);
}

/// Drops decimal digits towards zero; returns whether any of them was not zero.
bool cutDigits(Work& value, int digits) {
    bool lost = false;
    for (; digits > 0; digits -= digitsPerStep) {
        const auto power = powersOfTen[static_cast<std::size_t>(std::min(digits, digitsPerStep))];
        lost |= wide::divideSmall(value, power) != 0;
    }
    return lost;
}

/// Drops decimal digits, half to even; `sticky` says that something beyond the value's end was lost before.
void roundDigits(Work& value, int digits, bool sticky) {
    if (digits <= 0) return;
    sticky |= cutDigits(value, digits - 1);
    const std::uint32_t last = wide::divideSmall(value, 10);
    const bool up = last > 5 || (last == 5 && (sticky || (value[0] & 1) != 0));
    if (up) wide::addSmall(value, 1);
}

int bitLength(const Work& value) {
    for (std::size_t i = workLimbs; i-- > 0;)
        if (value[i] != 0) return static_cast<int>(i) * wide::limbBits + std::bit_width(value[i]);
    return 0;
}

/// Fits a value of `scale` decimals into a Decimal, dropping as few of them as possible. Nothing when its
/// whole part is too large.
std::optional<Decimal> fit(const Work& value, int scale, bool negative, bool sticky = false) {
    constexpr int mantissaBits = static_cast<int>(mantissaLimbs) * wide::limbBits;
    constexpr int bitsPerDigit = 4; // more than log2(10), so that the first guess drops too few
    int drop = std::max(scale - Decimal::maxScale, 0);
    drop = std::max(drop, (bitLength(value) - mantissaBits) / bitsPerDigit);
    for (; drop <= scale; ++drop) {
        Work rounded = value;
        roundDigits(rounded, drop, sticky);
        if (fitsMantissa(rounded))
            return decimalOf(rounded, scale - drop, negative && !wide::isZero(rounded));
    }
    return std::nullopt;
}

Decimal fitOrOverflow(const Work& value, int scale, bool negative) {
    const std::optional<Decimal> result = fit(value, scale, negative);
    if (!result) throwError(errors::Overflow);
    return *result;
}

/// The sum, or the difference where `flip` turns the second sign.
Decimal sum(const Decimal& a, const Decimal& b, bool flip) {
    Work left = workOf(a);
    Work right = workOf(b);
    const int scale = std::max(a.scale(), b.scale());
    scaleUp(left, scale - a.scale());
    scaleUp(right, scale - b.scale());
    const bool rightNegative = b.isNegative() != flip;
    if (a.isNegative() == rightNegative) {
        wide::addTo(left, right);
        return fitOrOverflow(left, scale, a.isNegative());
    }
    const int order = wide::compare(left, right);
    if (order == 0) return Decimal(0, 0, static_cast<std::uint8_t>(scale), false);
    if (order < 0) std::swap(left, right);
    wide::subtractFrom(left, right);
    return fitOrOverflow(left, scale, order < 0 ? rightNegative : a.isNegative());
}

int compareMagnitudes(const Decimal& a, const Decimal& b) {
    Work left = workOf(a);
    Work right = workOf(b);
    scaleUp(left, b.scale() - a.scale());
    scaleUp(right, a.scale() - b.scale());
    return wide::compare(left, right);
}

/// From digits with an exponent: `digits` times 10 to the `exponent`.
std::optional<Decimal> fromDigits(std::string_view digits, int exponent, bool negative) {
    // More digits than a mantissa can tell apart; the rest only breaks ties.
    constexpr std::size_t usedDigits = 60;
    Work value{};
    bool sticky = false;
    const std::size_t used = std::min(digits.size(), usedDigits);
    for (std::size_t i = 0; i < used; ++i) {
        wide::multiplySmall(value, 10);
        wide::addSmall(value, static_cast<std::uint32_t>(digits[i] - '0'));
    }
    for (std::size_t i = used; i < digits.size(); ++i)
        sticky |= digits[i] != '0';
    exponent += static_cast<int>(digits.size() - used);
    if (wide::isZero(value))
        return Decimal(0, 0, static_cast<std::uint8_t>(std::clamp(-exponent, 0, Decimal::maxScale)), false);
    if (exponent > Decimal::maxScale) return std::nullopt;
    if (exponent <= 0) return fit(value, -exponent, negative, sticky);
    if (!fitsMantissa(value)) return std::nullopt;
    scaleUp(value, exponent);
    return fit(value, 0, negative, sticky);
}

template <class F>
Decimal fromFloating(F value, int significantDigits) {
    if (!std::isfinite(value)) throwError(errors::Overflow);
    std::array<char, 64> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                       std::chars_format::scientific, significantDigits - 1);
    const std::string_view all(text.data(), static_cast<std::size_t>(written.ptr - text.data()));
    const std::size_t mark = all.find('e');
    std::string digits(all.substr(0, mark));
    std::erase(digits, '.');
    int exponent = 0;
    const std::string_view power = all.substr(mark + (all[mark + 1] == '+' ? 2 : 1));
    std::from_chars(power.data(), power.data() + power.size(), exponent);
    while (digits.size() > 1 && digits.back() == '0')
        digits.pop_back();
    const auto result =
        fromDigits(digits, exponent - static_cast<int>(digits.size()) + 1, std::signbit(value));
    if (!result) throwError(errors::Overflow);
    return *result;
}

} // namespace

Decimal Decimal::fromInt64(std::int64_t value) noexcept {
    return fromScaled(value, 0);
}

Decimal Decimal::fromScaled(std::int64_t scaled, int decimals) noexcept {
    const auto bits = static_cast<std::uint64_t>(scaled);
    const bool negative = scaled < 0;
    return Decimal(negative ? 0 - bits : bits, 0, static_cast<std::uint8_t>(decimals), negative);
}

Decimal Decimal::fromDouble(double value) {
    return fromFloating(value, 15);
}

Decimal Decimal::fromFloat(float value) {
    return fromFloating(value, 7);
}

std::optional<Decimal> Decimal::parse(std::string_view text) {
    bool negative = false;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        negative = text[0] == '-';
        text.remove_prefix(1);
    }
    std::string digits;
    int decimals = 0;
    bool afterPoint = false;
    bool any = false;
    for (const char c : text) {
        if (c == '.' && !afterPoint) {
            afterPoint = true;
            continue;
        }
        if (c < '0' || c > '9') return std::nullopt;
        any = true;
        if (afterPoint) ++decimals;
        if (!digits.empty() || c != '0') digits.push_back(c);
    }
    if (!any) return std::nullopt;
    return fromDigits(digits, -decimals, negative);
}

double Decimal::toDouble() const noexcept {
    constexpr double twoTo64 = 18446744073709551616.0;
    constexpr int largestExactPower = 22;
    double result = static_cast<double>(high_) * twoTo64 + static_cast<double>(low_);
    int digits = scale_;
    for (; digits > largestExactPower; --digits)
        result /= 10;
    double power = 1;
    for (; digits > 0; --digits)
        power *= 10;
    result /= power;
    return negative_ ? -result : result;
}

std::int64_t Decimal::toInt64() const {
    return toScaled(0);
}

std::int64_t Decimal::toScaled(int decimals) const {
    Work value = workOf(*this);
    scaleUp(value, decimals - scale_);
    roundDigits(value, scale_ - decimals, false);
    const std::uint64_t magnitude = value[0] | (std::uint64_t{value[1]} << wide::limbBits);
    const std::uint64_t limit = std::uint64_t{1} << 63;
    const bool small =
        std::all_of(value.begin() + 2, value.end(), [](std::uint32_t limb) { return limb == 0; });
    if (!small || magnitude > limit || (magnitude == limit && !negative_)) throwError(errors::Overflow);
    return static_cast<std::int64_t>(negative_ ? 0 - magnitude : magnitude);
}

std::string Decimal::text() const {
    std::string digits;
    for (Work value = workOf(*this); !wide::isZero(value);)
        digits.push_back(static_cast<char>('0' + wide::divideSmall(value, 10)));
    while (digits.size() <= scale_)
        digits.push_back('0');
    std::reverse(digits.begin(), digits.end());
    if (scale_ > 0) digits.insert(digits.size() - scale_, 1, '.');
    return negative_ ? "-" + digits : digits;
}

Decimal Decimal::rounded(int decimals) const {
    if (scale_ <= decimals) return *this;
    Work value = workOf(*this);
    roundDigits(value, scale_ - decimals, false);
    return decimalOf(value, decimals, negative_ && !wide::isZero(value));
}

Decimal Decimal::truncated() const {
    Work value = workOf(*this);
    cutDigits(value, scale_);
    return decimalOf(value, 0, negative_ && !wide::isZero(value));
}

Decimal Decimal::normalized() const {
    Work value = workOf(*this);
    int scale = scale_;
    while (scale > 0) {
        Work shorter = value;
        if (wide::divideSmall(shorter, 10) != 0) break;
        value = shorter;
        --scale;
    }
    return decimalOf(value, scale, negative_ && !wide::isZero(value));
}

Decimal operator+(const Decimal& a, const Decimal& b) {
    return sum(a, b, false);
}

Decimal operator-(const Decimal& a, const Decimal& b) {
    return sum(a, b, true);
}

Decimal operator*(const Decimal& a, const Decimal& b) {
    const Work value = wide::resized<workLimbs>(wide::product(mantissaOf(a), mantissaOf(b)));
    const bool negative = a.isNegative() != b.isNegative() && !wide::isZero(value);
    return fitOrOverflow(value, a.scale() + b.scale(), negative);
}

Decimal operator/(const Decimal& a, const Decimal& b) {
    if (b.isZero()) throwError(errors::DivisionByZero);
    Work quotient = workOf(a);
    const Work divisor = workOf(b);
    const int naturalScale = std::max(a.scale() - b.scale(), 0);
    int scale = naturalScale;
    scaleUp(quotient, b.scale() - a.scale());
    Work rest = wide::divide(quotient, divisor);
    if (!fitsMantissa(quotient)) throwError(errors::Overflow);

    // Long division, a decimal at a time, while the mantissa has room.
    while (!wide::isZero(rest) && scale < Decimal::maxScale) {
        Work longer = quotient;
        wide::multiplySmall(longer, 10);
        Work nextRest = rest;
        wide::multiplySmall(nextRest, 10);
        std::uint32_t digit = 0;
        for (; wide::compare(nextRest, divisor) >= 0; ++digit)
            wide::subtractFrom(nextRest, divisor);
        wide::addSmall(longer, digit);
        if (!fitsMantissa(longer)) break;
        quotient = longer;
        rest = nextRest;
        ++scale;
    }
    wide::shiftIn(rest, 0);
    const int half = wide::compare(rest, divisor);
    const bool up = half > 0 || (half == 0 && (quotient[0] & 1) != 0);
    if (up) wide::addSmall(quotient, 1);
    const bool negative = a.isNegative() != b.isNegative() && !wide::isZero(quotient);
    return fitOrOverflow(quotient, scale, negative);
}

Decimal operator-(const Decimal& a) noexcept {
    return Decimal(a.low_, a.high_, a.scale_, !a.negative_ && !a.isZero());
}

bool operator==(const Decimal& a, const Decimal& b) noexcept {
    return std::is_eq(a <=> b);
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) noexcept {
    const bool aNegative = a.negative_ && !a.isZero();
    const bool bNegative = b.negative_ && !b.isZero();
    if (aNegative != bNegative) return aNegative ? std::strong_ordering::less : std::strong_ordering::greater;
    const int order = compareMagnitudes(a, b);
    return aNegative ? 0 <=> order : order <=> 0;
}

} // namespace automation
