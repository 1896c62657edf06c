#include "automation/Decimal.h"
#include "automation/Error.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

using automation::Decimal;
using automation::Error;

namespace {

std::int32_t errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

Decimal dec(const char* text) {
    const auto parsed = Decimal::parse(text);
    EXPECT_TRUE(parsed.has_value()) << text;
    return parsed.value_or(Decimal());
}

/// Non-negative integers as plain digits, worked by hand as on paper: the model that Decimal is held to.
namespace paper {

constexpr char largestMantissa[] = "79228162514264337593543950335";

std::string trimmed(std::string digits) {
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    return digits;
}

bool below(const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

std::string sum(std::string a, std::string b) {
    if (a.size() < b.size()) std::swap(a, b);
    b.insert(0, a.size() - b.size(), '0');
    int carry = 0;
    for (std::size_t i = a.size(); i-- > 0;) {
        const int digit = a[i] - '0' + b[i] - '0' + carry;
        a[i] = static_cast<char>('0' + digit % 10);
        carry = digit / 10;
    }
    return carry ? "1" + a : a;
}

/// a - b, a not below b.
std::string difference(std::string a, std::string b) {
    b.insert(0, a.size() - b.size(), '0');
    int borrow = 0;
    for (std::size_t i = a.size(); i-- > 0;) {
        int digit = a[i] - b[i] - borrow;
        borrow = digit < 0 ? 1 : 0;
        a[i] = static_cast<char>('0' + (digit + 10) % 10);
    }
    return trimmed(a);
}

std::string product(const std::string& a, const std::string& b) {
    std::vector<int> digits(a.size() + b.size(), 0);
    for (std::size_t i = a.size(); i-- > 0;)
        for (std::size_t j = b.size(); j-- > 0;) {
            const int digit = (a[i] - '0') * (b[j] - '0') + digits[i + j + 1];
            digits[i + j + 1] = digit % 10;
            digits[i + j] += digit / 10;
        }
    std::string result;
    for (const int digit : digits)
        result.push_back(static_cast<char>('0' + digit));
    return trimmed(result);
}

std::string rounded(const std::string& digits, int drop) {
    if (drop <= 0) return digits;
    const std::string padded = std::string(static_cast<std::size_t>(drop) + 1, '0') + digits;
    const std::string kept = padded.substr(0, padded.size() - static_cast<std::size_t>(drop));
    const std::string lost = padded.substr(padded.size() - static_cast<std::size_t>(drop));
    const bool tie = lost[0] == '5' && lost.find_first_not_of('0', 1) == std::string::npos;
    const bool up = tie ? (kept.back() - '0') % 2 != 0 : lost[0] >= '5';
    return trimmed(up ? sum(kept, "1") : kept);
}

struct Number {
    std::string digits;
    int scale = 0;
    bool negative = false;
};

/// The number with as few decimals dropped as a Decimal needs; false when it is too large.
bool fit(Number& n) {
    for (int drop = std::max(0, n.scale - Decimal::maxScale); drop <= n.scale; ++drop) {
        const std::string shorter = rounded(n.digits, drop);
        if (below(largestMantissa, shorter)) continue;
        n.digits = shorter;
        n.scale -= drop;
        return true;
    }
    return false;
}

std::string text(const Number& n) {
    std::string digits = n.digits;
    const auto scale = static_cast<std::size_t>(n.scale);
    if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
    if (scale > 0) digits.insert(digits.size() - scale, 1, '.');
    const bool zero = n.digits == "0";
    return (n.negative && !zero ? "-" : "") + digits;
}

Number added(Number a, Number b) {
    const int scale = std::max(a.scale, b.scale);
    a.digits = trimmed(a.digits + std::string(static_cast<std::size_t>(scale - a.scale), '0'));
    b.digits = trimmed(b.digits + std::string(static_cast<std::size_t>(scale - b.scale), '0'));
    if (a.negative == b.negative) return {sum(a.digits, b.digits), scale, a.negative};
    const bool swapped = below(a.digits, b.digits);
    return swapped ? Number{difference(b.digits, a.digits), scale, b.negative}
                   : Number{difference(a.digits, b.digits), scale, a.negative};
}

} // namespace paper

paper::Number randomNumber(std::mt19937& random) {
    paper::Number n;
    const std::size_t length = 1 + random() % 29;
    for (std::size_t i = 0; i < length; ++i)
        n.digits.push_back(static_cast<char>('0' + random() % 10));
    // Runs of nines and of zeros find the carries and the ties.
    if (random() % 4 == 0)
        std::fill(n.digits.begin() + static_cast<std::ptrdiff_t>(length / 2), n.digits.end(), '9');
    if (random() % 4 == 0)
        std::fill(n.digits.begin() + static_cast<std::ptrdiff_t>(length / 2), n.digits.end(), '0');
    n.digits = paper::trimmed(n.digits);
    if (paper::below(paper::largestMantissa, n.digits)) n.digits.pop_back();
    n.scale = static_cast<int>(random() % (Decimal::maxScale + 1));
    n.negative = random() % 2 == 0;
    return n;
}

Decimal decimalOf(const paper::Number& n) {
    return dec(paper::text(n).c_str());
}

} // namespace

TEST(Decimal, WritesItsDigits) {
    EXPECT_EQ(Decimal(12345, 0, 2, true).text(), "-123.45");
    EXPECT_EQ(Decimal(5, 0, 3, false).text(), "0.005");
    EXPECT_EQ(Decimal().text(), "0");
    EXPECT_EQ(Decimal(~std::uint64_t{0}, ~std::uint32_t{0}, 0, false).text(), paper::largestMantissa);
}

TEST(Decimal, ParsesWhatItWrites) {
    std::mt19937 random(11);
    for (int round = 0; round < 3000; ++round) {
        const paper::Number n = randomNumber(random);
        EXPECT_EQ(decimalOf(n).text(), paper::text(n));
    }
}

TEST(Decimal, ParsesNothingElse) {
    for (const char* text : {"", "-", ".", "1.2.3", "1e5", " 1", "1,5", "79228162514264337593543950336"})
        EXPECT_FALSE(Decimal::parse(text).has_value()) << text;
}

TEST(Decimal, RoundsLongTextsHalfToEven) {
    EXPECT_EQ(dec("0.00000000000000000000000000005").text(), "0.0000000000000000000000000000");
    EXPECT_EQ(dec("0.00000000000000000000000000015").text(), "0.0000000000000000000000000002");
    EXPECT_EQ(
        dec("0.000000000000000000000000000050000000000000000000000000000000000000000000000000001").text(),
        "0.0000000000000000000000000001");
    EXPECT_EQ(dec("79228162514264337593543950334.5").text(), "79228162514264337593543950334");
    EXPECT_EQ(dec("79228162514264337593543950333.5").text(), "79228162514264337593543950334");
    EXPECT_FALSE(Decimal::parse("79228162514264337593543950335.5").has_value());
}

TEST(Decimal, AddsAndSubtractsAsOnPaper) {
    std::mt19937 random(12);
    for (int round = 0; round < 6000; ++round) {
        const paper::Number a = randomNumber(random);
        paper::Number b = randomNumber(random);
        for (const bool subtract : {false, true}) {
            paper::Number expected = paper::added(a, {b.digits, b.scale, b.negative != subtract});
            const auto action = [&] {
                return subtract ? decimalOf(a) - decimalOf(b) : decimalOf(a) + decimalOf(b);
            };
            if (paper::fit(expected)) {
                EXPECT_EQ(action().text(), paper::text(expected)) << paper::text(a) << " " << paper::text(b);
            } else {
                EXPECT_EQ(errorOf([&] { action(); }), 6);
            }
        }
    }
}

TEST(Decimal, MultipliesAsOnPaper) {
    std::mt19937 random(13);
    for (int round = 0; round < 6000; ++round) {
        const paper::Number a = randomNumber(random);
        const paper::Number b = randomNumber(random);
        paper::Number expected{paper::product(a.digits, b.digits), a.scale + b.scale,
                               a.negative != b.negative};
        if (paper::fit(expected)) {
            EXPECT_EQ((decimalOf(a) * decimalOf(b)).text(), paper::text(expected))
                << paper::text(a) << " " << paper::text(b);
        } else {
            EXPECT_EQ(errorOf([&] { decimalOf(a) * decimalOf(b); }), 6);
        }
    }
}

TEST(Decimal, QuotientsAreWithinHalfAUnitOfTheirLastPlace) {
    std::mt19937 random(14);
    int checked = 0;
    for (int round = 0; round < 6000; ++round) {
        const paper::Number a = randomNumber(random);
        const paper::Number b = randomNumber(random);
        if (b.digits == "0") continue;
        Decimal quotient;
        if (errorOf([&] { quotient = decimalOf(a) / decimalOf(b); }) != 0) continue;
        // 2 * |a - q * b| <= b * 10^-scale(q), on integers of one common scale
        std::string text = quotient.text();
        std::erase(text, '.');
        std::erase(text, '-');
        const std::string q = paper::trimmed(text);
        const std::string qb = paper::product(q, b.digits);
        const int scale = std::max(a.scale, quotient.scale() + b.scale);
        const auto lifted = [&](const std::string& digits, int from) {
            return paper::trimmed(digits + std::string(static_cast<std::size_t>(scale - from), '0'));
        };
        const std::string left = lifted(a.digits, a.scale);
        const std::string right = lifted(qb, quotient.scale() + b.scale);
        const std::string gap =
            paper::below(left, right) ? paper::difference(right, left) : paper::difference(left, right);
        const std::string unit = lifted(b.digits, quotient.scale() + b.scale);
        EXPECT_FALSE(paper::below(unit, paper::sum(gap, gap))) << paper::text(a) << " / " << paper::text(b);
        // No room is left unused: the result is exact, or has 28 decimals, or a mantissa of 28 digits.
        EXPECT_TRUE(gap == "0" || quotient.scale() == Decimal::maxScale || q.size() >= 28)
            << paper::text(a) << " / " << paper::text(b) << " = " << quotient.text();
        ++checked;
    }
    EXPECT_GT(checked, 3000);
}

TEST(Decimal, DividesExactlyWhereItCan) {
    EXPECT_EQ((dec("1") / dec("2")).text(), "0.5");
    EXPECT_EQ((dec("7") / dec("7")).text(), "1");
    EXPECT_EQ((dec("1") / dec("3")).text(), "0.3333333333333333333333333333");
    EXPECT_EQ((dec("2") / dec("3")).text(), "0.6666666666666666666666666667");
    EXPECT_EQ((dec("-1") / dec("7")).text(), "-0.1428571428571428571428571429");
    EXPECT_EQ((dec("1") / dec("0.001")).text(), "1000");
}

TEST(Decimal, RaisesErrorsForZeroDivisorsAndOverflow) {
    EXPECT_EQ(errorOf([] { dec("1") / dec("0.00"); }), 11);
    EXPECT_EQ(errorOf([] { dec(paper::largestMantissa) + dec("1"); }), 6);
    EXPECT_EQ(errorOf([] { dec(paper::largestMantissa) / dec("0.1"); }), 6);
    EXPECT_EQ(errorOf([] { Decimal::fromDouble(7.93e28); }), 6);
    EXPECT_EQ(errorOf([] { dec("9223372036854775808").toInt64(); }), 6);
    EXPECT_EQ(dec("-9223372036854775808").toInt64(), std::numeric_limits<std::int64_t>::min());
}

TEST(Decimal, TakesFifteenDigitsOfADoubleAndSevenOfASingle) {
    EXPECT_EQ(Decimal::fromDouble(0.1).text(), "0.1");
    EXPECT_EQ(Decimal::fromDouble(1.0 / 3).text(), "0.333333333333333");
    EXPECT_EQ(Decimal::fromDouble(-123456789012345680.0).text(), "-123456789012346000");
    EXPECT_EQ(Decimal::fromFloat(0.1f).text(), "0.1");
    EXPECT_EQ(Decimal::fromFloat(16777216.0f).text(), "16777220");
    EXPECT_EQ(Decimal::fromDouble(1e-29).text(), "0.0000000000000000000000000000");
}

TEST(Decimal, ComparesByValue) {
    EXPECT_EQ(dec("1.0"), dec("1.000"));
    EXPECT_EQ(dec("0"), Decimal(0, 0, 3, true));
    EXPECT_LT(dec("-2"), dec("-1.5"));
    EXPECT_LT(dec("-1"), dec("0.0000001"));
    EXPECT_GT(dec(paper::largestMantissa), dec("7.9228162514264337593543950335"));
}

TEST(Decimal, RoundsCutsAndTrims) {
    EXPECT_EQ(dec("2.345").rounded(2).text(), "2.34");
    EXPECT_EQ(dec("2.355").rounded(2).text(), "2.36");
    EXPECT_EQ(dec("-2.5").rounded(0).text(), "-2");
    EXPECT_EQ(dec("-0.4").rounded(0).text(), "0");
    EXPECT_EQ(dec("-2.9").truncated().text(), "-2");
    EXPECT_EQ(dec("100.1000").normalized().text(), "100.1");
    EXPECT_EQ(dec("1.23455").toScaled(4), 12346);
    EXPECT_EQ(dec("1.2").toScaled(4), 12000);
}

TEST(Decimal, GivesTheDoubleOfItsDigits) {
    EXPECT_DOUBLE_EQ(dec("123.45").toDouble(), 123.45);
    EXPECT_DOUBLE_EQ(dec("-0.0000000000000000000000000001").toDouble(), -1e-28);
    EXPECT_DOUBLE_EQ(dec(paper::largestMantissa).toDouble(), 79228162514264337593543950335.0);
}
