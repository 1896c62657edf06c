#pragma once
// Money: a 64-bit count of ten-thousandths.

#include <compare>
#include <cstdint>

namespace automation {

/// A fixed-point number with four decimals, from -922337203685477.5808 to 922337203685477.5807. Results
/// are rounded half to even; one that does not fit throws Error 6.
class Currency {
public:
    static constexpr std::int64_t scale = 10000;

    constexpr Currency() noexcept = default;
    constexpr Currency(std::int32_t units) noexcept : scaled_(units * scale) {}
    /// `scaled` counts ten-thousandths.
    static constexpr Currency fromScaled(std::int64_t scaled) noexcept {
        Currency result;
        result.scaled_ = scaled;
        return result;
    }
    /// Rounds half to even at the fourth decimal; Error 6 when out of range or not a number.
    static Currency fromDouble(double value);

    constexpr std::int64_t scaled() const noexcept { return scaled_; }
    double toDouble() const noexcept;

    friend Currency operator+(Currency a, Currency b);
    friend Currency operator-(Currency a, Currency b);
    friend Currency operator*(Currency a, Currency b);
    friend Currency operator-(Currency a);
    friend constexpr bool operator==(Currency, Currency) = default;
    friend constexpr auto operator<=>(Currency, Currency) = default;

private:
    std::int64_t scaled_ = 0;
};

} // namespace automation
