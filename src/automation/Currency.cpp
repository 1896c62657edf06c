#include "automation/Currency.h"

#include "automation/Error.h"
#include "automation/WideArithmetic.h"

#include <cmath>
#include <limits>

namespace automation {

namespace {

constexpr std::uint64_t magnitudeOf(std::int64_t value) {
    const auto bits = static_cast<std::uint64_t>(value);
    return value < 0 ? 0 - bits : bits;
}

wide::Integer<2> limbsOf(std::uint64_t value) {
    return {static_cast<std::uint32_t>(value), static_cast<std::uint32_t>(value >> wide::limbBits)};
}

} // namespace

Currency Currency::fromDouble(double value) {
    constexpr double limit = 9223372036854775808.0; // 2 to the 63
    const double exact = value * static_cast<double>(scale);
    double rounded = std::floor(exact);
    const double fraction = exact - rounded;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(rounded, 2) != 0)) rounded += 1;
    if (!(rounded >= -limit && rounded < limit)) throwError(errors::Overflow);
    return fromScaled(static_cast<std::int64_t>(rounded));
}

double Currency::toDouble() const noexcept {
    return static_cast<double>(scaled_) / static_cast<double>(scale);
}

Currency operator+(Currency a, Currency b) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(a.scaled_, b.scaled_, &result)) throwError(errors::Overflow);
    return Currency::fromScaled(result);
}

Currency operator-(Currency a, Currency b) {
    std::int64_t result = 0;
    if (__builtin_sub_overflow(a.scaled_, b.scaled_, &result)) throwError(errors::Overflow);
    return Currency::fromScaled(result);
}

Currency operator*(Currency a, Currency b) {
    auto value = wide::product(limbsOf(magnitudeOf(a.scaled_)), limbsOf(magnitudeOf(b.scaled_)));
    const std::uint32_t rest = wide::divideSmall(value, static_cast<std::uint32_t>(Currency::scale));
    constexpr std::uint32_t half = Currency::scale / 2;
    if (rest > half || (rest == half && (value[0] & 1) != 0)) wide::addSmall(value, 1);
    const std::uint64_t magnitude = value[0] | (std::uint64_t{value[1]} << wide::limbBits);
    const bool negative = (a.scaled_ < 0) != (b.scaled_ < 0);
    const std::uint64_t limit = std::uint64_t{1} << 63;
    if (value[2] != 0 || value[3] != 0 || magnitude > limit || (magnitude == limit && !negative))
        throwError(errors::Overflow);
    return Currency::fromScaled(static_cast<std::int64_t>(negative ? 0 - magnitude : magnitude));
}

Currency operator-(Currency a) {
    return Currency() - a;
}

} // namespace automation
