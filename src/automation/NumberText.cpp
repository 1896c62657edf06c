#include "automation/NumberText.h"

#include "automation/Characters.h"
#include "automation/Decimal.h"
#include "automation/Error.h"
#include "automation/Locale.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

namespace automation {

namespace {

constexpr int mantissaDigits = 19;             // always fit 64 bits
constexpr std::int64_t exponentLimit = 999999; // beyond every type's range; further digits do not matter
constexpr std::uint64_t exactIntegers = std::uint64_t(1) << 53;
constexpr double exactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                  1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int highestExactPower = 22;

constexpr char16_t noBreakSpace = 0x00A0;
constexpr char16_t narrowNoBreakSpace = 0x202F;
constexpr char16_t minusSign = 0x2212;

bool isBlank(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == noBreakSpace;
}

bool isWideBlank(char16_t unit) {
    return unit == u' ' || unit == noBreakSpace || unit == narrowNoBreakSpace;
}

/// The value of a digit in a base of up to 16; 16 for what is no digit.
unsigned digitValue(char16_t unit) {
    if (isDigit(unit)) return unit - unsigned(u'0');
    const char16_t lower = unit | 0x20;
    if (lower >= u'a' && lower <= u'f') return lower - unsigned(u'a') + 10;
    return 16;
}

} // namespace

/// Walks through the text once, from left to right.
struct NumberText::Scanner {
    const char16_t* at;
    const char16_t* end;
    const Locale& locale;
    bool plus = false; ///< Each sign may stand once, before or after the digits
    bool minus = false;
    bool parenthesis = false;
    bool currency = false;

    bool take(std::u16string_view piece) {
        if (piece.empty() || static_cast<std::size_t>(end - at) < piece.size()) return false;
        if (*at != piece[0]) return false;
        if (piece.size() > 1 && !std::equal(piece.begin(), piece.end(), at)) return false;
        at += piece.size();
        return true;
    }

    bool takeDecimal() { return take(locale.decimal) || (currency && take(locale.currencyDecimal)); }

    bool takeThousands() {
        if (take(locale.thousands) || (currency && take(locale.currencyThousands))) return true;
        if (locale.thousands.size() != 1 || !isWideBlank(locale.thousands[0]) || !isWideBlank(*at))
            return false;
        ++at;
        return true;
    }

    bool takeMinus() {
        if (*at != u'-' && *at != minusSign) return false;
        ++at;
        return true;
    }

    /// What may stand before the digits, in any order; false for a sign given twice.
    bool prefix(bool& negative) {
        while (at != end) {
            if (isBlank(*at)) {
                ++at;
            } else if (*at == u'+') {
                if (plus) return false;
                plus = true;
                ++at;
            } else if (takeMinus()) {
                if (minus) return false;
                minus = negative = true;
            } else if (*at == u'(') {
                if (parenthesis) return false;
                parenthesis = negative = true;
                ++at;
            } else if (!currency && take(locale.currencySymbol)) {
                currency = true;
            } else {
                break;
            }
        }
        return true;
    }

    /// What may stand after the digits, up to the end.
    bool suffix(bool& negative) {
        bool closed = false;
        bool symbol = false;
        while (at != end) {
            if (isBlank(*at)) {
                ++at;
            } else if (*at == u'+') {
                if (plus) return false;
                plus = true;
                ++at;
            } else if (*at == u')') {
                if (!parenthesis || closed) return false;
                closed = true;
                ++at;
            } else if (takeMinus()) {
                if (minus) return false;
                minus = negative = true;
            } else if (!symbol && take(locale.currencySymbol)) {
                symbol = true;
            } else {
                return false;
            }
        }
        return closed == parenthesis;
    }
};

bool NumberText::parse(std::u16string_view text, const Locale& locale) {
    Scanner scan{text.data(), text.data() + text.size(), locale};
    if (!scan.prefix(negative_) || scan.at == scan.end) return false;
    const bool read = *scan.at == u'&' ? parseLiteral(scan) : parseDigits(scan) && parseExponent(scan);
    return read && scan.suffix(negative_);
}

bool NumberText::readPlain(std::u16string_view text, const Locale& locale, double& value) {
    constexpr std::size_t longest = 25;
    if (text.empty() || text.size() > longest) return false;
    const char16_t decimal = locale.decimal[0];
    if (locale.decimal.size() != 1) return false;
    const char16_t* at = text.data();
    const char16_t* const end = at + text.size();
    const bool negative = *at == u'-';
    if (negative) ++at;
    std::uint64_t mantissa = 0;
    int digits = 0, beforePoint = -1;
    for (; at != end; ++at) {
        const unsigned digit = *at - unsigned(u'0');
        if (digit <= 9) {
            mantissa = mantissa * 10 + digit;
            ++digits;
        } else if (*at == decimal && beforePoint < 0) {
            beforePoint = digits;
        } else {
            return false;
        }
    }
    if (digits == 0) return false;
    const int decimals = beforePoint < 0 ? 0 : digits - beforePoint;
    if (FLT_EVAL_METHOD == 0 && digits <= mantissaDigits && mantissa <= exactIntegers) {
        value = static_cast<double>(mantissa) / exactPowers[decimals];
        if (negative) value = -value;
        return true;
    }
    char buffer[longest];
    std::transform(text.begin(), text.end(), buffer,
                   [decimal](char16_t unit) { return unit == decimal ? '.' : static_cast<char>(unit); });
    return std::from_chars(buffer, buffer + text.size(), value).ec == std::errc();
}

bool NumberText::parseLiteral(Scanner& scan) {
    if (scan.end - scan.at < 3 || scan.currency) return false;
    const char16_t letter = scan.at[1] | 0x20;
    const unsigned base = letter == u'h' ? 16 : letter == u'o' ? 8 : 0;
    if (base == 0) return false;
    const std::uint64_t lost = base == 16 ? std::uint64_t(0xF) << 60 : std::uint64_t(7) << 61;
    literal_ = true;
    const char16_t* first = scan.at += 2;
    for (; scan.at != scan.end && digitValue(*scan.at) < base; ++scan.at) {
        if (mantissa_ & lost) literalTooLong_ = true;
        mantissa_ = mantissa_ * base + digitValue(*scan.at);
    }
    return scan.at != first;
}

bool NumberText::parseDigits(Scanner& scan) {
    bool any = false;
    bool fraction = false;
    while (scan.at != scan.end) {
        if (isDigit(*scan.at)) {
            any = true;
            const std::int64_t taken = parseDigitRun(scan);
            if (fraction) exponent_ -= taken;
        } else if (!fraction && scan.takeDecimal()) {
            fraction = true;
        } else if (!any || !scan.takeThousands()) {
            break;
        }
    }
    return any;
}

/// Keeps the digits that stand here and returns how many there are. Those beyond the capacity only raise the
/// exponent.
std::int64_t NumberText::parseDigitRun(Scanner& scan) {
    const char16_t* at = scan.at;
    const char16_t* const end = scan.end;
    std::uint64_t mantissa = mantissa_;
    int count = count_;
    for (; at != end && isDigit(*at); ++at) {
        if (count == 0 && *at == u'0') continue;
        if (count == capacity) {
            dropped_ = dropped_ || *at != u'0';
            ++exponent_;
            continue;
        }
        if (count < mantissaDigits) mantissa = mantissa * 10 + (*at - u'0');
        digits_[count++] = static_cast<char>(*at);
    }
    const std::int64_t taken = at - scan.at;
    scan.at = at;
    mantissa_ = mantissa;
    count_ = count;
    return taken;
}

bool NumberText::parseExponent(Scanner& scan) {
    if (scan.at == scan.end) return true;
    const char16_t letter = *scan.at | 0x20;
    if (letter != u'e' && letter != u'd') return true;
    ++scan.at;
    bool below = false;
    if (scan.at != scan.end && (*scan.at == u'+' || *scan.at == u'-')) below = *scan.at++ == u'-';
    if (scan.at == scan.end || !isDigit(*scan.at)) return false;
    std::int64_t power = 0;
    for (; scan.at != scan.end && isDigit(*scan.at); ++scan.at)
        power = std::min(exponentLimit, power * 10 + (*scan.at - u'0'));
    exponent_ += below ? -power : power;
    return true;
}

/// Up to 32 bits a literal is a Long, beyond that it has no sign of its own.
double NumberText::literalValue() const noexcept {
    if (mantissa_ >> 32 == 0) return static_cast<std::int32_t>(mantissa_);
    return static_cast<double>(mantissa_);
}

bool NumberText::isZero() const noexcept {
    return literal_ ? mantissa_ == 0 && !literalTooLong_ : count_ == 0;
}

Reading NumberText::toDouble(double& value) const {
    if (literal_) {
        if (literalTooLong_) return Reading::Overflow;
        value = literalValue();
    } else if (count_ == 0) {
        value = 0;
    } else if (FLT_EVAL_METHOD == 0 && count_ <= mantissaDigits && mantissa_ <= exactIntegers &&
               exponent_ >= -highestExactPower && exponent_ <= highestExactPower) {
        // Both factors are exact, so the one operation rounds correctly.
        value = static_cast<double>(mantissa_);
        if (exponent_ < 0)
            value /= exactPowers[-exponent_];
        else
            value *= exactPowers[exponent_];
    } else if (const Reading reading = slowDouble(value); reading != Reading::Ok) {
        return reading;
    }
    if (negative_) value = -value;
    return Reading::Ok;
}

Reading NumberText::slowDouble(double& value) const {
    char buffer[capacity + 32];
    std::memcpy(buffer, digits_, static_cast<std::size_t>(count_));
    char* p = buffer + count_;
    std::int64_t exponent = exponent_;
    if (dropped_) { // a digit more keeps the value above what the kept ones say
        *p++ = '1';
        --exponent;
    }
    *p++ = 'e';
    p = std::to_chars(p, buffer + sizeof buffer, exponent).ptr;
    const std::from_chars_result result = std::from_chars(buffer, p, value);
    if (result.ec == std::errc()) return Reading::Ok;
    if (exponent + count_ > 0) return Reading::Overflow;
    value = 0;
    return Reading::Ok;
}

bool NumberText::hasDigitsFrom(int digitIndex) const noexcept {
    return dropped_ ||
           std::any_of(digits_ + digitIndex, digits_ + count_, [](char digit) { return digit != '0'; });
}

Reading NumberText::toScaled(int shift, std::uint64_t& magnitude) const {
    magnitude = 0;
    if (count_ == 0) return Reading::Ok;
    const std::int64_t exponent = exponent_ + shift;
    const std::int64_t whole = count_ + exponent; // digits before the point
    if (whole > mantissaDigits) return Reading::Overflow;
    if (whole < 0) return Reading::Ok;
    for (std::int64_t i = 0; i < whole; ++i)
        magnitude = magnitude * 10 + (i < count_ ? static_cast<unsigned>(digits_[i] - '0') : 0u);
    if (whole >= count_) return Reading::Ok;
    const char next = digits_[whole];
    const bool half = next == '5' && !hasDigitsFrom(static_cast<int>(whole) + 1);
    if (half ? (magnitude & 1) != 0 : next >= '5') ++magnitude;
    return Reading::Ok;
}

Reading NumberText::toInteger(std::int64_t lowest, std::int64_t highest, int bits,
                              std::int64_t& value) const {
    std::uint64_t magnitude = mantissa_;
    if (literal_) {
        if (literalTooLong_ || magnitude >> 32 != 0) return Reading::Overflow;
        value = static_cast<std::int64_t>(magnitude);
        if (bits == 32) value = static_cast<std::int32_t>(magnitude);
        if (bits == 16 && magnitude >> 16 == 0) value = static_cast<std::int16_t>(magnitude);
        if (negative_) value = -value;
    } else {
        if (const Reading reading = toScaled(0, magnitude); reading != Reading::Ok) return reading;
        constexpr std::uint64_t limit = std::uint64_t(1) << 62;
        if (magnitude > limit) return Reading::Overflow;
        value = negative_ ? -static_cast<std::int64_t>(magnitude) : static_cast<std::int64_t>(magnitude);
    }
    return value < lowest || value > highest ? Reading::Overflow : Reading::Ok;
}

Reading NumberText::toCurrency(std::int64_t& scaled) const {
    constexpr int decimals = 4;
    constexpr std::uint64_t scale = 10000;
    constexpr std::uint64_t highest = INT64_MAX;
    std::uint64_t magnitude = 0;
    if (literal_) {
        const double value = literalValue() * (negative_ ? -1 : 1);
        constexpr std::uint64_t mostUnits = highest / scale;
        if (literalTooLong_ || std::abs(value) > static_cast<double>(mostUnits)) return Reading::Overflow;
        scaled = static_cast<std::int64_t>(value) * static_cast<std::int64_t>(scale);
        return Reading::Ok;
    } else if (const Reading reading = toScaled(decimals, magnitude); reading != Reading::Ok) {
        return reading;
    }
    if (magnitude > highest + (negative_ ? 1 : 0)) return Reading::Overflow;
    scaled = static_cast<std::int64_t>(negative_ ? 0 - magnitude : magnitude);
    return Reading::Ok;
}

Reading NumberText::toDecimal(Decimal& value) const {
    constexpr int mostWhole = 30; // one more than a Decimal holds
    constexpr int mostFraction =
        64; // far below its last place, so that halves are told from what exceeds them
    std::string text = negative_ ? "-" : "";
    if (literal_) {
        if (literalTooLong_) return Reading::Overflow;
        text += std::to_string(mantissa_);
    } else if (count_ == 0) {
        text = "0";
    } else {
        const std::int64_t whole = count_ + exponent_;
        if (whole > mostWhole) return Reading::Overflow;
        if (whole <= 0) text += '0';
        for (std::int64_t i = 0; i < whole; ++i)
            text += i < count_ ? digits_[i] : '0';
        if (whole < count_) {
            text += '.';
            for (std::int64_t i = whole; i < std::min<std::int64_t>(count_, whole + mostFraction); ++i)
                text += i < 0 ? '0' : digits_[i];
            if (whole + mostFraction < count_ || dropped_) text += '1';
        }
    }
    const std::optional<Decimal> read = Decimal::parse(text);
    if (!read) return Reading::Overflow;
    value = *read;
    return Reading::Ok;
}

namespace {

/// The units of a text without the blanks that `Val` skips.
class UnitsWithoutBlanks {
public:
    explicit UnitsWithoutBlanks(std::u16string_view text)
        : at_(text.data()), end_(text.data() + text.size()) {
        skip();
    }
    char16_t unit() const { return at_ == end_ ? u'\0' : *at_; }
    void next() {
        ++at_;
        skip();
    }
    char16_t following() const {
        UnitsWithoutBlanks copy(*this);
        copy.next();
        return copy.unit();
    }

private:
    void skip() {
        while (at_ != end_ && (*at_ == u' ' || *at_ == u'\t' || *at_ == u'\n' || *at_ == u'\r'))
            ++at_;
    }
    const char16_t* at_;
    const char16_t* end_;
};

/// After "&": up to 16 bits wrap to an Integer, up to 32 to a Long, unless a "&" after them says Long.
Reading readLiteral(UnitsWithoutBlanks& units, double& value) {
    const char16_t letter = units.unit() | 0x20;
    const unsigned base = letter == u'h' ? 16 : 8;
    if (letter == u'h' || letter == u'o') units.next();
    std::uint64_t bits = 0;
    for (; digitValue(units.unit()) < base; units.next()) {
        if (bits >> 60 != 0) return Reading::Overflow;
        bits = bits * base + digitValue(units.unit());
    }
    if (bits >> 16 == 0 && units.unit() != u'&')
        value = static_cast<std::int16_t>(bits);
    else if (bits >> 32 == 0)
        value = static_cast<std::int32_t>(bits);
    else
        value = static_cast<double>(bits);
    return Reading::Ok;
}

bool startsExponent(const UnitsWithoutBlanks& units) {
    const char16_t letter = units.unit() | 0x20;
    if (letter != u'e' && letter != u'd') return false;
    const char16_t next = units.following();
    return isDigit(next) || next == u'+' || next == u'-';
}

} // namespace

Reading readLeadingNumber(std::u16string_view text, double& value) {
    UnitsWithoutBlanks units(text);
    value = 0;
    if (units.unit() == u'&') {
        const char16_t letter = units.following() | 0x20;
        if (letter != u'h' && letter != u'o' && digitValue(units.following()) >= 8) return Reading::Ok;
        units.next();
        return readLiteral(units, value);
    }
    const bool negative = units.unit() == u'-';
    if (negative || units.unit() == u'+') units.next();

    constexpr int mostDigits = 800;
    char buffer[mostDigits + 32];
    char* p = buffer;
    int count = 0;
    std::int64_t exponent = 0;
    bool fraction = false;
    for (; isDigit(units.unit()) || (units.unit() == u'.' && !fraction); units.next()) {
        if (units.unit() == u'.') {
            fraction = true;
            continue;
        }
        if (fraction) --exponent;
        if (units.unit() == u'0' && count == 0) continue;
        if (count < mostDigits) {
            *p++ = static_cast<char>(units.unit());
            ++count;
        } else {
            ++exponent;
        }
    }
    if (count == 0) return Reading::Ok;
    if (startsExponent(units)) {
        units.next();
        const bool below = units.unit() == u'-';
        if (below || units.unit() == u'+') units.next();
        std::int64_t power = 0;
        for (; isDigit(units.unit()); units.next())
            power = std::min(exponentLimit, power * 10 + (units.unit() - u'0'));
        exponent += below ? -power : power;
    }
    *p++ = 'e';
    p = std::to_chars(p, buffer + sizeof buffer - 1, exponent).ptr;
    *p = '\0';
    // Not from_chars: the 32-bit run-time's computes in extended precision and rounds twice. The text has no
    // decimal point, so the C locale does not matter.
    value = std::strtod(buffer, nullptr);
    if (std::isinf(value)) return Reading::Overflow;
    if (negative) value = -value;
    return Reading::Ok;
}

} // namespace automation
