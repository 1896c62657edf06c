#pragma once
// Numbers as decimal digits: what the texts of all numeric types are written from.

#include <cstdint>

namespace automation {

class Decimal;
class TextBuilder;

/// The number 0.d1d2d3... times 10 to the power of `point`, without leading or trailing zeros among its
/// `count` digits. Zero has none.
class Digits {
public:
    static constexpr int capacity = 32;
    static constexpr int doublePrecision = 15;
    static constexpr int singlePrecision = 7;

    /// The value rounded to 15 significant digits, from its exact binary value.
    static Digits of(double value);
    /// The value rounded to 7 significant digits.
    static Digits of(float value);
    /// `scaled` divided by 10 to the power of `decimals`, exact.
    static Digits ofScaled(std::int64_t scaled, int decimals);
    /// Exact.
    static Digits of(const Decimal& value);

    /// Writes a Double of everyday size as `write` would, in a shorter way: UTF-16 into `text`, which holds
    /// `longestPlain` units. Returns how many, or 0 for the numbers that it leaves to `write`.
    static constexpr int longestPlain = 32;
    static int writePlain(double value, char16_t decimalUnit, char16_t* text);

    bool isZero() const noexcept { return count == 0; }
    /// Infinities and not-a-number have no digits to write.
    bool isFinite() const noexcept { return special == nullptr; }

    /// Rounds half away from zero so that `decimals` digits stay after the point (negative: before it).
    void roundToDecimals(int decimals);
    /// Rounds half away from zero to so many digits in all.
    void roundToCount(int digits);

    /// The digit of the place 10 to the power of `power`, as a character: '0' outside the stored ones.
    char16_t at(int power) const noexcept {
        const int index = point - 1 - power;
        return static_cast<char16_t>(index >= 0 && index < count ? digit[index] : '0');
    }

    /// The value as the language prints it: plain digits while they take up to `precision` places on either
    /// side of the point, else with an exponent of at least two digits ("1E+15").
    void write(TextBuilder& out, char16_t decimalUnit, int precision) const;

    bool negative = false;
    int count = 0;
    int point = 0;
    const char* special = nullptr; ///< What is written for an infinity or not-a-number
    char digit[capacity];

private:
    template <class Real>
    static Digits ofReal(Real value, int precision);
    void trim() noexcept;
};

} // namespace automation
