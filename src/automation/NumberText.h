#pragma once
// Numbers read from text in a locale.

#include <cstdint>
#include <string_view>

namespace automation {

class Decimal;
class Locale;

/// How the reading of a value ended. `Mismatch` is Error 13 to a program, `Overflow` Error 6.
enum class Reading : std::uint8_t { Ok, Mismatch, Overflow };

/// A number as it stands in a text: its digits, sign and exponent, not yet of any type.
class NumberText {
public:
    /// Takes apart a text with blanks around it, signs before or after, parentheses, the currency symbol,
    /// thousands separators among the digits, an exponent after "e" or "d", or an &H or &O literal.
    /// Returns whether the whole text is a number.
    bool parse(std::u16string_view text, const Locale& locale);

    /// Reads the commonest texts in one go: a sign before, digits, a decimal separator. Returns false for any
    /// other, whether it is a number or not.
    static bool readPlain(std::u16string_view text, const Locale& locale, double& value);

    /// Correctly rounded.
    Reading toDouble(double& value) const;
    /// Rounded half to even. A literal of exactly `bits` (16 or 32) whose top bit is set is negative.
    Reading toInteger(std::int64_t lowest, std::int64_t highest, int bits, std::int64_t& value) const;
    /// In ten-thousandths, rounded half to even.
    Reading toCurrency(std::int64_t& scaled) const;
    Reading toDecimal(Decimal& value) const;
    bool isZero() const noexcept;

private:
    struct Scanner;

    bool parseLiteral(Scanner& scan);
    bool parseDigits(Scanner& scan);
    std::int64_t parseDigitRun(Scanner& scan);
    bool parseExponent(Scanner& scan);

    /// The digits as a whole number, times 10 to the `shift`, rounded half to even.
    Reading toScaled(int shift, std::uint64_t& magnitude) const;
    Reading slowDouble(double& value) const;
    double literalValue() const noexcept;
    bool hasDigitsFrom(int digitIndex) const noexcept;

    // So many digits decide the rounding of every Double; further ones are only noted.
    static constexpr int capacity = 800;

    bool negative_ = false;
    bool literal_ = false; ///< An &H or &O literal: its value is in `mantissa_`
    bool literalTooLong_ = false;
    bool dropped_ = false;       ///< A digit other than 0 beyond the capacity
    int count_ = 0;              ///< Digits kept, without leading zeros
    std::int64_t exponent_ = 0;  ///< Power of ten of the last kept digit
    std::uint64_t mantissa_ = 0; ///< The digits while there are no more than 19
    char digits_[capacity + 1];
};

/// `Val`'s reader: the number at the start of a text, "." as decimal separator, blanks skipped.
Reading readLeadingNumber(std::u16string_view text, double& value);

} // namespace automation
