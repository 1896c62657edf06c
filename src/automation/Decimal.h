#pragma once
// Exact decimal numbers of 96 bits.

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace automation {

/// A sign, a 96-bit integer and a count of decimals from 0 to 28. Arithmetic keeps as many decimals as
/// fit and rounds half to even where it must drop some; what does not fit throws Error 6.
class Decimal {
public:
    static constexpr int maxScale = 28;
    static constexpr std::uint8_t negativeSign = 0x80;

    constexpr Decimal() noexcept = default;
    constexpr Decimal(std::uint64_t low, std::uint32_t high, std::uint8_t decimals, bool negative) noexcept
        : low_(low), high_(high), scale_(decimals), negative_(negative) {}
    static Decimal fromInt64(std::int64_t value) noexcept;
    /// Ten-thousandths, as a Currency counts.
    static Decimal fromScaled(std::int64_t scaled, int decimals) noexcept;
    /// Takes 15 significant digits of the number; Error 6 when it does not fit or is no number.
    static Decimal fromDouble(double value);
    /// Takes 7 significant digits.
    static Decimal fromFloat(float value);
    /// From "-123.45": digits with at most one point. Digits beyond the precision are rounded half to
    /// even; nothing for other text or a number too large.
    static std::optional<Decimal> parse(std::string_view text);

    constexpr std::uint64_t low() const noexcept { return low_; }
    constexpr std::uint32_t high() const noexcept { return high_; }
    constexpr int scale() const noexcept { return scale_; }
    constexpr bool isNegative() const noexcept { return negative_; }
    constexpr bool isZero() const noexcept { return low_ == 0 && high_ == 0; }

    double toDouble() const noexcept;
    /// Rounded half to even; Error 6 when it does not fit.
    std::int64_t toInt64() const;
    /// The value times 10 to the `decimals`, rounded half to even; Error 6 when it does not fit.
    std::int64_t toScaled(int decimals) const;
    /// Plain digits with a point, with all decimals that the scale holds: "-123.450".
    std::string text() const;

    /// Half to even at `decimals` (0 to 28).
    Decimal rounded(int decimals) const;
    /// The whole part, towards zero.
    Decimal truncated() const;
    /// Without trailing zero decimals.
    Decimal normalized() const;

    friend Decimal operator+(const Decimal& a, const Decimal& b);
    friend Decimal operator-(const Decimal& a, const Decimal& b);
    friend Decimal operator*(const Decimal& a, const Decimal& b);
    /// Up to 28 decimals of the quotient; Error 11 for a zero divisor.
    friend Decimal operator/(const Decimal& a, const Decimal& b);
    friend Decimal operator-(const Decimal& a) noexcept;
    /// By value: 1.0 equals 1.00.
    friend bool operator==(const Decimal& a, const Decimal& b) noexcept;
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) noexcept;

private:
    std::uint64_t low_ = 0;
    std::uint32_t high_ = 0;
    std::uint8_t scale_ = 0;
    bool negative_ = false;
};

} // namespace automation
