#include "automation/Digits.h"

#include "automation/Decimal.h"
#include "automation/TextBuilder.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>

namespace automation {

namespace {

// Whole numbers below this are exact in 15 digits and quicker written as integers.
constexpr double wholeLimit = 1e15;
constexpr int longestReal = 40;

/// Splits "d.ddde+xx" into digits and the place of the point; the exponent has two or three digits.
void takeScientific(Digits& into, const char* first, const char* last) {
    const char* mark = last[-4] == 'e' ? last - 4 : last - 5;
    int exponent = 0;
    for (const char* p = mark + 2; p != last; ++p)
        exponent = exponent * 10 + (*p - '0');
    into.point = (mark[1] == '-' ? -exponent : exponent) + 1;
    into.digit[0] = *first;
    into.count = 1;
    if (mark == first + 1) return;
    const std::size_t decimals = static_cast<std::size_t>(mark - first - 2);
    std::memcpy(into.digit + 1, first + 2, decimals);
    into.count += static_cast<int>(decimals);
}

void takeInteger(Digits& into, std::uint64_t value) {
    char buffer[longestReal];
    const char* end = std::to_chars(buffer, buffer + longestReal, value).ptr;
    into.count = static_cast<int>(end - buffer);
    into.point = into.count;
    std::memcpy(into.digit, buffer, static_cast<std::size_t>(into.count));
}

} // namespace

void Digits::trim() noexcept {
    while (count > 0 && digit[count - 1] == '0')
        --count;
    if (count == 0) point = 0;
}

template <class Real>
Digits Digits::ofReal(Real value, int precision) {
    Digits result;
    result.negative = value < 0;
    if (!std::isfinite(value)) {
        result.special = std::isnan(value) ? "1.#QNAN" : "1.#INF";
        return result;
    }
    const Real magnitude = std::abs(value);
    if (magnitude < Real(wholeLimit) && precision == doublePrecision && magnitude == std::floor(magnitude)) {
        if (magnitude != 0) takeInteger(result, static_cast<std::uint64_t>(magnitude));
        result.trim();
        return result;
    }
    char buffer[longestReal];
    const char* end =
        std::to_chars(buffer, buffer + longestReal, magnitude, std::chars_format::scientific).ptr;
    takeScientific(result, buffer, end);
    // The shortest digits that name the number round as the number itself does, but for one case: where
    // they end in the very half the number may lie on either side of it.
    if (result.count == precision + 1 && result.digit[precision] == '5') {
        // Far more digits than it takes to tell a true half, which goes away from zero, from what lies just
        // below.
        constexpr int decidingDigits = 60;
        char exact[decidingDigits + longestReal];
        std::to_chars(exact, exact + sizeof exact, magnitude, std::chars_format::scientific, decidingDigits);
        result.digit[precision] = exact[precision + 1]; // the point stands before it
    }
    result.roundToCount(precision);
    result.trim();
    return result;
}

namespace {

/// Adds one to the last digit of "12.34", carrying over the point. False where it would take another digit.
bool incrementLast(char* first, char* last) {
    while (last != first) {
        --last;
        if (*last == '.') continue;
        if (*last != '9') {
            ++*last;
            return true;
        }
        *last = '0';
    }
    return false;
}

} // namespace

int Digits::writePlain(double value, char16_t decimalUnit, char16_t* text) {
    // From here to there the shortest form has no exponent and at most one digit that does not count.
    constexpr double lowest = 0.1;
    const double magnitude = std::abs(value);
    if (!(magnitude >= lowest && magnitude < wholeLimit)) return 0;
    char buffer[longestReal];
    char* end = std::to_chars(buffer, buffer + longestReal, magnitude).ptr;
    char* const point = std::find(buffer, end, '.');
    const bool exponent = end - buffer > 4 && end[-4] == 'e';
    if (exponent || (point == end && end[-1] == '0')) return 0;
    const std::ptrdiff_t kept = doublePrecision + (point != end ? 1 : 0) + (buffer[0] == '0' ? 1 : 0);
    if (end - buffer > kept) {
        char* const dropped = buffer + kept;
        const bool half = *dropped == '5' && end - dropped == 1;
        end = dropped;
        if (half || (*dropped >= '5' && !incrementLast(buffer, end))) return 0;
    }
    if (point < end) {
        while (end[-1] == '0')
            --end;
        if (end[-1] == '.') --end;
    }
    int count = 0;
    if (value < 0) text[count++] = u'-';
    for (const char* p = buffer; p != end; ++p)
        text[count++] = static_cast<char16_t>(*p);
    if (point < end) text[count - (end - point)] = decimalUnit;
    return count;
}

Digits Digits::of(double value) {
    return ofReal(value, doublePrecision);
}

Digits Digits::of(float value) {
    return ofReal(value, singlePrecision);
}

Digits Digits::ofScaled(std::int64_t scaled, int decimals) {
    Digits result;
    result.negative = scaled < 0;
    if (scaled == 0) return result;
    takeInteger(result,
                scaled < 0 ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled));
    result.point -= decimals;
    result.trim();
    return result;
}

Digits Digits::of(const Decimal& value) {
    Digits result;
    const std::string text = value.text();
    bool fraction = false;
    for (const char unit : text) {
        if (unit == '-') {
            result.negative = true;
        } else if (unit == '.') {
            fraction = true;
        } else if (unit != '0' || result.count > 0) {
            result.digit[result.count++] = unit;
            if (!fraction) ++result.point;
        } else if (fraction) {
            --result.point;
        }
    }
    result.trim();
    return result;
}

void Digits::roundToCount(int digits) {
    if (digits >= count) return;
    if (digits < 0) {
        count = 0;
        point = 0;
        return;
    }
    const bool up = digit[digits] >= '5';
    count = digits;
    if (up) {
        while (count > 0 && digit[count - 1] == '9')
            --count;
        if (count > 0) {
            ++digit[count - 1];
        } else {
            digit[0] = '1';
            count = 1;
            ++point;
        }
    }
    trim();
}

void Digits::roundToDecimals(int decimals) {
    if (isZero()) return;
    roundToCount(point + decimals);
}

void Digits::write(TextBuilder& out, char16_t decimalUnit, int precision) const {
    if (negative && (count > 0 || special)) out.add(u'-');
    if (special) return out.addAscii(special);
    if (count == 0) return out.add(u'0');
    const bool plain = point <= precision && count - point <= precision;
    if (!plain) {
        out.addAscii({digit, 1});
        if (count > 1) {
            out.add(decimalUnit);
            out.addAscii({digit + 1, static_cast<std::size_t>(count - 1)});
        }
        const int exponent = point - 1;
        out.add(u'E');
        out.add(exponent < 0 ? u'-' : u'+');
        return out.addNumber(std::abs(exponent), 2);
    }
    if (point <= 0) {
        out.add(u'0');
        out.add(decimalUnit);
        out.add(static_cast<std::size_t>(-point), u'0');
        return out.addAscii({digit, static_cast<std::size_t>(count)});
    }
    const int whole = std::min(point, count);
    out.addAscii({digit, static_cast<std::size_t>(whole)});
    out.add(static_cast<std::size_t>(point - whole), u'0');
    if (count > point) {
        out.add(decimalUnit);
        out.addAscii({digit + point, static_cast<std::size_t>(count - point)});
    }
}

} // namespace automation
