#pragma once
// Whole numbers: rounding as the library does it, and sums that stay in range.

#include "automation/Error.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tesela {

/// The nearest whole number, halves to the even one. Error 6 beyond a Long or for what is no number.
inline std::int32_t roundToLong(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        automation::throwError(automation::errors::Overflow);
    return static_cast<std::int32_t>(rounded);
}

/// number * numerator / denominator, halves away from zero; -1 for a denominator of 0 or a result beyond 32
/// bits.
inline std::int32_t mulDiv(std::int32_t number, std::int32_t numerator, std::int32_t denominator) {
    if (denominator == 0) return -1;
    const std::int64_t product = static_cast<std::int64_t>(number) * numerator;
    const std::int64_t divisor = denominator < 0 ? -static_cast<std::int64_t>(denominator) : denominator;
    const std::int64_t dividend = denominator < 0 ? -product : product;
    const std::int64_t half = dividend < 0 ? -divisor / 2 : divisor / 2;
    const std::int64_t quotient = (dividend + half) / divisor;
    const bool fits = quotient >= std::numeric_limits<std::int32_t>::min() &&
                      quotient <= std::numeric_limits<std::int32_t>::max();
    return fits ? static_cast<std::int32_t>(quotient) : -1;
}

/// The sum, or the Long nearest to it.
inline std::int32_t saturatingSum(std::int64_t a, std::int64_t b) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(a + b, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

} // namespace tesela
