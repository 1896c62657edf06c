#include "automation/Conversions.h"

#include "automation/Locale.h"
#include "automation/NumberText.h"
#include "automation/Numbers.h"
#include "automation/Variant.h"
#include "support/ErrorOf.h"
#include "support/LocaleScope.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace automation;
using tests::errorOf;

struct DoubleCase {
    const char* locale;
    const char16_t* text;
    double value;
};

constexpr DoubleCase doubleCases[] = {
    {"en-US", u"0", 0},
    {"en-US", u"12", 12},
    {"en-US", u"  12  ", 12},
    {"en-US", u"-12", -12},
    {"en-US", u"- 12", -12},
    {"en-US", u"12-", -12},
    {"en-US", u"12 -", -12},
    {"en-US", u"+12", 12},
    {"en-US", u"12+", 12},
    {"en-US", u"(12)", -12},
    {"en-US", u"( 12 )", -12},
    {"en-US", u"-(12)", -12},
    {"en-US", u"$12", 12},
    {"en-US", u"12$", 12},
    {"en-US", u"$ 12", 12},
    {"en-US", u"-$12", -12},
    {"en-US", u"$-12", -12},
    {"en-US", u"12-$", -12},
    {"en-US", u"($12)", -12},
    {"en-US", u"$(12)", -12},
    {"en-US", u"1,234.5", 1234.5},
    {"en-US", u"1,2,3", 123},
    {"en-US", u"1,,2", 12},
    {"en-US", u"1,", 1},
    {"en-US", u"1.2,3", 1.23},
    {"en-US", u"1.5", 1.5},
    {"en-US", u".5", 0.5},
    {"en-US", u"-.5", -0.5},
    {"en-US", u"5.", 5},
    {"en-US", u"1e3", 1000},
    {"en-US", u"1E+3", 1000},
    {"en-US", u"1d3", 1000},
    {"en-US", u"1.5e-3", 0.0015},
    {"en-US", u"1.e3", 1000},
    {"en-US", u"1e-400", 0},
    {"en-US", u"1e-99999999999999999999", 0},
    {"en-US", u"0e99999999999999999999", 0},
    {"en-US", u"00000000000000000000000000000000000000001", 1},
    {"en-US", u"1e3$", 1000},
    {"en-US", u"&HFF", 255},
    {"en-US", u"&hff", 255},
    {"en-US", u"&HFFFF", 65535},
    {"en-US", u"&HFFFFFFFF", -1},
    {"en-US", u"&HFFFFFFFFF", 68719476735.0},
    {"en-US", u"-5+", -5},
    {"en-US", u"+5-", -5},
    {"en-US", u"&O17", 15},
    {"en-US", u" -&H10 ", -16},
    {"en-US", u"\u00A012", 12},
    {"en-US", u"9007199254740993", 9007199254740992.0},
    {"en-US", u"9007199254740993.00000000000000000000000000000001", 9007199254740994.0},
    {"en-US", u"1.7976931348623157e308", 1.7976931348623157e308},
    {"en-US", u"2.2250738585072014e-308", 2.2250738585072014e-308},
    {"en-US", u"4.9e-324", 4.9406564584124654e-324},
    {"es-ES", u"1,5", 1.5},
    {"es-ES", u"1.5", 15},
    {"es-ES", u"1.234,56", 1234.56},
    {"es-ES", u"1234,56 €", 1234.56},
    {"es-ES", u"-5 €", -5},
    {"es-ES", u"€ 5", 5},
    {"es-ES", u"1,5e3", 1500},
    {"sv-SE", u"1 234,5", 1234.5},
    {"sv-SE", u"1\u00A0234,5", 1234.5},
    {"sv-SE", u"\u22125,5", -5.5},
    {"sv-SE", u"5 kr", 5},
};

TEST(Conversions, ReadDoublesFromTextInTheLocale) {
    for (const DoubleCase& test : doubleCases) {
        const tests::LocaleScope scope(test.locale);
        const String text(test.text);
        double value = -1;
        EXPECT_EQ(errorOf([&] { value = CDbl(text); }), 0) << test.locale << " " << text.utf8();
        EXPECT_EQ(value, test.value) << test.locale << " " << text.utf8();
        EXPECT_TRUE(IsNumeric(text)) << test.locale << " " << text.utf8();
    }
}

struct TextCase {
    const char* locale;
    const char16_t* text;
};

constexpr TextCase notNumbers[] = {
    {"en-US", u""},      {"en-US", u"  "},    {"en-US", u"."},      {"en-US", u"$"},
    {"en-US", u"abc"},   {"en-US", u"12abc"}, {"en-US", u"1 2"},    {"en-US", u"1.2.3"},
    {"en-US", u",1"},    {"en-US", u"--5"},   {"en-US", u"-5-"},    {"en-US", u"(5"},
    {"en-US", u"5)"},    {"en-US", u"1e"},    {"en-US", u"1e+"},    {"en-US", u"5e5e5"},
    {"en-US", u".e3"},   {"en-US", u"&H"},    {"en-US", u"&HG"},    {"en-US", u"&O8"},
    {"en-US", u"&17"},   {"en-US", u"0x10"},  {"en-US", u"1%"},     {"en-US", u"Infinity"},
    {"en-US", u"NaN"},   {"en-US", u"€5"},    {"en-US", u"$$5"},    {"es-ES", u"1 234"},
    {"es-ES", u"$5"},    {"es-ES", u","},     {"sv-SE", u"1.5"},    {"en-US", u"1/2/2003"},
    {"en-US", u"10:30"}, {"en-US", u"True"},  {"en-US", u"\u0661"},
};

TEST(Conversions, RefuseTextsThatAreNoNumbers) {
    for (const TextCase& test : notNumbers) {
        const tests::LocaleScope scope(test.locale);
        const String text(test.text);
        EXPECT_EQ(errorOf([&] { CDbl(text); }), 13) << test.locale << " " << text.utf8();
        EXPECT_EQ(errorOf([&] { CLng(text); }), 13) << test.locale << " " << text.utf8();
        EXPECT_EQ(errorOf([&] { CCur(text); }), 13) << test.locale << " " << text.utf8();
        EXPECT_EQ(errorOf([&] { CDec(text); }), 13) << test.locale << " " << text.utf8();
        EXPECT_FALSE(IsNumeric(text)) << test.locale << " " << text.utf8();
    }
}

TEST(Conversions, OverflowBeyondTheRangeOfADouble) {
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(errorOf([] { CDbl(u"1e309"); }), 6);
    EXPECT_EQ(errorOf([] { CDbl(u"-1e99999999999999999999"); }), 6);
    EXPECT_EQ(errorOf([] { CDbl(String(std::u16string(400, u'9'))); }), 6);
    EXPECT_FALSE(IsNumeric(u"1e309"));
    EXPECT_EQ(errorOf([] { CSng(u"3.5e38"); }), 6);
    EXPECT_EQ(CSng(u"0.1"), 0.1f);
}

struct IntegerCase {
    const char16_t* text;
    long long value; ///< or `overflow`
};
constexpr long long overflow = std::numeric_limits<long long>::max();

constexpr IntegerCase longCases[] = {
    {u"0.5", 0},
    {u"1.5", 2},
    {u"2.5", 2},
    {u"-0.5", 0},
    {u"-1.5", -2},
    {u"2.50000000001", 3},
    {u"2.49999999999", 2},
    {u"1e3", 1000},
    {u"1.5e-1", 0},
    {u"&HFFFF", 65535},
    {u"&H8000", 32768},
    {u"&HFFFFFFFF", -1},
    {u"&H80000000", -2147483648LL},
    {u"&O37777777777", -1},
    {u"&H1FFFFFFFF", overflow},
    {u"2147483647.4", 2147483647},
    {u"2147483647.5", overflow},
    {u"-2147483648.5", -2147483648LL},
    {u"-2147483648.6", overflow},
    {u"99999999999999999999999999", overflow},
    {u"1e400", overflow},
};

TEST(Conversions, RoundTextsHalfToEvenIntoALong) {
    const tests::LocaleScope scope("en-US");
    for (const IntegerCase& test : longCases) {
        const String text(test.text);
        std::int32_t value = 0;
        const int error = errorOf([&] { value = CLng(text); });
        EXPECT_EQ(error, test.value == overflow ? 6 : 0) << text.utf8();
        if (test.value != overflow) {
            EXPECT_EQ(value, test.value) << text.utf8();
        }
    }
}

TEST(Conversions, WrapLiteralsToTheWidthOfTheType) {
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(CInt(u"&HFFFF"), -1);
    EXPECT_EQ(CInt(u"&H8000"), -32768);
    EXPECT_EQ(CInt(u"&H7FFF"), 32767);
    EXPECT_EQ(errorOf([] { CInt(u"&H10000"); }), 6);
    EXPECT_EQ(CByte(u"&HFF"), 255);
    EXPECT_EQ(errorOf([] { CByte(u"&H100"); }), 6);
    EXPECT_EQ(CCur(u"&HFFFF").scaled(), 655350000);
}

TEST(Conversions, RoundNumbersHalfToEvenIntoWholeTypes) {
    EXPECT_EQ(CLng(0.5), 0);
    EXPECT_EQ(CLng(1.5), 2);
    EXPECT_EQ(CLng(-2.5), -2);
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(errorOf([] { CInt(32767.5); }), 6);
    EXPECT_EQ(errorOf([] { CLng(2147483648.0); }), 6);
    EXPECT_EQ(errorOf([] { CLng(std::numeric_limits<double>::quiet_NaN()); }), 6);
    EXPECT_EQ(CByte(254.5), 254);
    EXPECT_EQ(errorOf([] { CByte(-1); }), 6);
    EXPECT_EQ(CLng(Currency::fromScaled(25000)), 2);
    EXPECT_EQ(CLng(Currency::fromScaled(35000)), 4);
    EXPECT_EQ(CLng(Date(2.5)), 2);
    EXPECT_EQ(CByte(true), 255);
    EXPECT_EQ(CInt(true), -1);
    EXPECT_EQ(CLng(Variant()), 0);
}

TEST(Conversions, KeepCurrencyTextsExact) {
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(CCur(u"922337203685477.5807").scaled(), INT64_MAX);
    EXPECT_EQ(CCur(u"-922337203685477.5808").scaled(), INT64_MIN);
    EXPECT_EQ(errorOf([] { CCur(u"922337203685477.5808"); }), 6);
    EXPECT_EQ(CCur(u"0.00005").scaled(), 0);
    EXPECT_EQ(CCur(u"0.00015").scaled(), 2);
    EXPECT_EQ(CCur(u"0.000150000000000000000000001").scaled(), 2);
    EXPECT_EQ(CCur(u"0.00025").scaled(), 2);
    EXPECT_EQ(CCur(u"0.0002500000000000000000000001").scaled(), 3);
    EXPECT_EQ(CCur(u"$1,234.5").scaled(), 12345000);
}

TEST(Conversions, KeepDecimalTextsExact) {
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(CStr(CDec(u"79228162514264337593543950335")), u"79228162514264337593543950335");
    EXPECT_EQ(errorOf([] { CDec(u"79228162514264337593543950336"); }), 6);
    EXPECT_EQ(CStr(CDec(u"-1.2345678901234567890123456789")), u"-1.2345678901234567890123456789");
    EXPECT_EQ(CStr(CDec(u"1e-28")), u"0.0000000000000000000000000001");
    EXPECT_EQ(CStr(CDec(u"1.50")), u"1.5");
    EXPECT_EQ(CStr(CDec(u"1e28")), u"10000000000000000000000000000");
    EXPECT_EQ(CStr(CDec(0.1)), u"0.1");
    EXPECT_EQ(CStr(CDec(0.1f)), u"0.1");
    EXPECT_EQ(CStr(CDec(u"&HFFFFFFFF")), u"4294967295");
}

TEST(Conversions, RefuseNullErrorsAndArrays) {
    EXPECT_EQ(errorOf([] { CDbl(Variant::null()); }), 94);
    EXPECT_EQ(errorOf([] { CLng(Variant::null()); }), 94);
    EXPECT_EQ(errorOf([] { CStr(Variant::null()); }), 94);
    EXPECT_EQ(errorOf([] { CBool(Variant::null()); }), 94);
    EXPECT_EQ(errorOf([] { CDate(Variant::null()); }), 94);
    EXPECT_EQ(errorOf([] { CDbl(Variant::missing()); }), 13);
    EXPECT_EQ(errorOf([] { CStr(Array::of({1, 2})); }), 13);
    EXPECT_EQ(errorOf([] { CDbl(Array::of({1, 2})); }), 13);
    EXPECT_EQ(errorOf([] { CDbl(Variant::nothing()); }), 91);
}

TEST(Conversions, FollowReferencesToVariables) {
    const tests::LocaleScope scope("en-US");
    std::int32_t number = 7;
    String text(u"1.5");
    EXPECT_EQ(CDbl(Variant::byRef(number)), 7);
    EXPECT_EQ(CDbl(Variant::byRef(text)), 1.5);
    EXPECT_EQ(CStr(Variant::byRef(number)), u"7");
    EXPECT_TRUE(IsNumeric(Variant::byRef(text)));
}

struct BooleanCase {
    const char* locale;
    const char16_t* text;
    bool value;
};

constexpr BooleanCase booleanCases[] = {
    {"en-US", u"True", true},      {"en-US", u"TRUE", true},      {"en-US", u"false", false},
    {"en-US", u"#TRUE#", true},    {"en-US", u"#FALSE#", false},  {"en-US", u"1", true},
    {"en-US", u"0", false},        {"en-US", u"0.0", false},      {"en-US", u"0.3", true},
    {"en-US", u"&H0", false},      {"en-US", u"-1", true},        {"en-US", u"1e-400", true},
    {"es-ES", u"Verdadero", true}, {"es-ES", u"VERDADERO", true}, {"es-ES", u"falso", false},
    {"es-ES", u"True", true},      {"es-ES", u"False", false},    {"es-ES", u"0,0", false},
};

TEST(Conversions, ReadBooleansByWordAndByNumber) {
    for (const BooleanCase& test : booleanCases) {
        const tests::LocaleScope scope(test.locale);
        EXPECT_EQ(CBool(test.text), test.value) << test.locale << " " << String(test.text).utf8();
    }
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(errorOf([] { CBool(u"Verdadero"); }), 13);
    EXPECT_EQ(errorOf([] { CBool(u""); }), 13);
    EXPECT_EQ(errorOf([] { CBool(u" True "); }), 13);
    EXPECT_TRUE(CBool(0.1));
    EXPECT_FALSE(CBool(Variant()));
    EXPECT_TRUE(CBool(Date(1)));
}

struct NumberTextCase {
    double value;
    const char16_t* english;
    const char16_t* spanish;
};

constexpr NumberTextCase numberTexts[] = {
    {0, u"0", u"0"},
    {-0.0, u"0", u"0"},
    {1, u"1", u"1"},
    {-1.5, u"-1.5", u"-1,5"},
    {0.1, u"0.1", u"0,1"},
    {0.1 + 0.2, u"0.3", u"0,3"},
    {1.0 / 3, u"0.333333333333333", u"0,333333333333333"},
    {2.0 / 3, u"0.666666666666667", u"0,666666666666667"},
    {1.0 / 30, u"3.33333333333333E-02", u"3,33333333333333E-02"},
    {1.0 / 86400, u"1.15740740740741E-05", u"1,15740740740741E-05"},
    {0.0001, u"0.0001", u"0,0001"},
    {1e-15, u"0.000000000000001", u"0,000000000000001"},
    {1e-16, u"1E-16", u"1E-16"},
    {1.5e-15, u"1.5E-15", u"1,5E-15"},
    {100000000000000, u"100000000000000", u"100000000000000"},
    {999999999999999, u"999999999999999", u"999999999999999"},
    {1e15, u"1E+15", u"1E+15"},
    {1.5e15, u"1.5E+15", u"1,5E+15"},
    {123456789012345678.0, u"1.23456789012346E+17", u"1,23456789012346E+17"},
    {1234567.891, u"1234567.891", u"1234567,891"},
    {999999999999999.9, u"1E+15", u"1E+15"},
    {0.9999999999999999, u"1", u"1"},
    {9.9999999999999995, u"10", u"10"},
    {0.1999999999999999, u"0.2", u"0,2"},
    {99999.999999999985, u"100000", u"100000"},
    {-12345.678901234567, u"-12345.6789012346", u"-12345,6789012346"},
    {1200, u"1200", u"1200"},
    {4503599627370.4955, u"4503599627370.5", u"4503599627370,5"},
    {1e300, u"1E+300", u"1E+300"},
    {-1e-300, u"-1E-300", u"-1E-300"},
    {1.7976931348623157e308, u"1.79769313486232E+308", u"1,79769313486232E+308"},
};

TEST(Conversions, WriteDoublesWithFifteenDigits) {
    for (const NumberTextCase& test : numberTexts) {
        {
            const tests::LocaleScope scope("en-US");
            EXPECT_EQ(CStr(test.value).utf8(), String(test.english).utf8());
        }
        const tests::LocaleScope scope("es-ES");
        EXPECT_EQ(CStr(test.value).utf8(), String(test.spanish).utf8());
    }
}

TEST(Conversions, WriteSinglesWithSevenDigits) {
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(CStr(0.1f), u"0.1");
    EXPECT_EQ(CStr(1.0f / 3), u"0.3333333");
    EXPECT_EQ(CStr(1.0f / 30), u"3.333334E-02");
    EXPECT_EQ(CStr(1234567.0f), u"1234567");
    EXPECT_EQ(CStr(12345678.0f), u"1.234568E+07");
    EXPECT_EQ(CStr(1e10f), u"1E+10");
    // Halves of the last digit go away from zero.
    EXPECT_EQ(CStr(341060.25f), u"341060.3");
    EXPECT_EQ(CStr(-1048576.5f), u"-1048577");
}

TEST(Conversions, WriteTheOtherTypes) {
    const tests::LocaleScope scope("es-ES");
    EXPECT_EQ(CStr(Variant()), u"");
    EXPECT_EQ(CStr(std::int16_t(-32768)), u"-32768");
    EXPECT_EQ(CStr(std::int32_t(INT32_MIN)), u"-2147483648");
    EXPECT_EQ(CStr(std::uint8_t(200)), u"200");
    EXPECT_EQ(CStr(Currency::fromScaled(15000)), u"1,5");
    EXPECT_EQ(CStr(Currency::fromScaled(INT64_MIN)), u"-922337203685477,5808");
    EXPECT_EQ(CStr(Currency::fromScaled(1)), u"0,0001");
    EXPECT_EQ(CStr(true), u"Verdadero");
    EXPECT_EQ(CStr(false), u"Falso");
    EXPECT_EQ(plainText(true), u"True");
    EXPECT_EQ(plainText(1.5), u"1,5");
    EXPECT_EQ(CStr(Variant::missing()), u"Error 448");
    EXPECT_EQ(CStr(Variant(u"text")), u"text");
    const tests::LocaleScope english("en-US");
    EXPECT_EQ(CStr(true), u"True");
}

TEST(Conversions, WriteWhatIsNoNumberAsTheRuntimeMarksIt) {
    EXPECT_EQ(CStr(std::numeric_limits<double>::infinity()), u"1.#INF");
    EXPECT_EQ(CStr(-std::numeric_limits<double>::infinity()), u"-1.#INF");
    EXPECT_EQ(CStr(std::numeric_limits<double>::quiet_NaN()), u"1.#QNAN");
}

/// Fifteen digits that the library's own correctly rounded printing gives, but for true halves, which it
/// sends to even: those are moved up by a sixteenth digit.
double fifteenDigits(double value) {
    char buffer[100];
    char* end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 60).ptr;
    const std::string_view digits(buffer, static_cast<std::size_t>(end - buffer));
    const std::size_t exponent = digits.find('e');
    const std::size_t tail = digits[0] == '-' ? 17 : 16;
    if (digits[tail] == '5' && digits.find_first_not_of('0', tail + 1) == exponent)
        value = std::nextafter(value, value * 2);
    end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 14).ptr;
    *end = '\0';
    return std::strtod(buffer, nullptr); // from_chars of the 32-bit run-time rounds twice
}

TEST(Conversions, AgreeBothWaysToFifteenDigits) {
    std::mt19937_64 random(20240229);
    std::uniform_int_distribution<std::uint64_t> bits;
    for (const std::string_view name : tests::localeNames) {
        const tests::LocaleScope scope(name);
        for (int i = 0; i < 200000; ++i) {
            const std::uint64_t pattern = bits(random);
            double value = 0;
            std::memcpy(&value, &pattern, sizeof value);
            // Rounding may carry the very highest values out of the range.
            if (!std::isfinite(value) || std::abs(value) > 1.797e308) continue;
            const String text = CStr(value);
            ASSERT_EQ(CDbl(text), fifteenDigits(value)) << text.utf8();
        }
    }
}

TEST(Conversions, AgreeBothWaysForAmountsOfMoney) {
    const tests::LocaleScope scope("es-ES");
    std::mt19937_64 random(7);
    std::uniform_int_distribution<std::int64_t> cents(-99999999999999, 99999999999999);
    for (int i = 0; i < 200000; ++i) {
        const double value = static_cast<double>(cents(random)) / 100;
        ASSERT_EQ(CDbl(CStr(value)), value);
        const Currency money = Currency::fromScaled(cents(random));
        ASSERT_EQ(CCur(CStr(money)), money);
    }
}

/// Each of the digits that decide between two neighbours is looked at.
TEST(Conversions, RoundTextsCorrectlyBetweenTwoDoubles) {
    const tests::LocaleScope scope("en-US");
    std::mt19937_64 random(99);
    std::uniform_int_distribution<std::uint64_t> bits;
    for (int i = 0; i < 50000; ++i) {
        const std::uint64_t pattern = bits(random);
        double value = 0;
        std::memcpy(&value, &pattern, sizeof value);
        if (!std::isfinite(value)) continue;
        char buffer[40];
        char* end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
        ASSERT_EQ(CDbl(String::fromUtf8({buffer, static_cast<std::size_t>(end - buffer)})), value);
    }
}

TEST(Conversions, TellNumbersFromOtherTypes) {
    EXPECT_TRUE(IsNumeric(Variant()));
    EXPECT_TRUE(IsNumeric(true));
    EXPECT_TRUE(IsNumeric(1.5));
    EXPECT_TRUE(IsNumeric(CDec(1)));
    EXPECT_TRUE(IsNumeric(Currency(1)));
    EXPECT_FALSE(IsNumeric(Date(1)));
    EXPECT_FALSE(IsNumeric(Variant::null()));
    EXPECT_FALSE(IsNumeric(Variant::missing()));
    EXPECT_FALSE(IsNumeric(Variant::nothing()));
    EXPECT_FALSE(IsNumeric(Array::of({1})));
}

TEST(Conversions, NameTheTypes) {
    EXPECT_EQ(TypeName(Variant()), u"Empty");
    EXPECT_EQ(TypeName(Variant::null()), u"Null");
    EXPECT_EQ(TypeName(std::int16_t(1)), u"Integer");
    EXPECT_EQ(TypeName(1), u"Long");
    EXPECT_EQ(TypeName(1.0f), u"Single");
    EXPECT_EQ(TypeName(1.0), u"Double");
    EXPECT_EQ(TypeName(Currency(1)), u"Currency");
    EXPECT_EQ(TypeName(Date(1)), u"Date");
    EXPECT_EQ(TypeName(u""), u"String");
    EXPECT_EQ(TypeName(Variant::nothing()), u"Nothing");
    EXPECT_EQ(TypeName(Variant::missing()), u"Error");
    EXPECT_EQ(TypeName(true), u"Boolean");
    EXPECT_EQ(TypeName(CDec(1)), u"Decimal");
    EXPECT_EQ(TypeName(std::uint8_t(1)), u"Byte");
    EXPECT_EQ(TypeName(Array::of({1})), u"Variant()");
    EXPECT_EQ(TypeName(Array(VT_UI1, {Bound{0, 3}})), u"Byte()");
}

TEST(Conversions, NumberTheTypes) {
    EXPECT_EQ(VarType(Variant()), 0);
    EXPECT_EQ(VarType(Variant::null()), 1);
    EXPECT_EQ(VarType(1.5), 5);
    EXPECT_EQ(VarType(u"a"), 8);
    EXPECT_EQ(VarType(Variant::nothing()), 9);
    EXPECT_EQ(VarType(Array::of({1})), 8192 + 12);
    EXPECT_EQ(VarType(Array(VT_I4, {Bound{0, 3}})), 8192 + 3);
}

TEST(Conversions, TestSpecialValues) {
    EXPECT_TRUE(IsNull(Variant::null()));
    EXPECT_FALSE(IsNull(Variant()));
    EXPECT_TRUE(IsEmpty(Variant()));
    EXPECT_FALSE(IsEmpty(u""));
    EXPECT_TRUE(IsArray(Array::of({1})));
    EXPECT_TRUE(IsObject(Variant::nothing()));
    EXPECT_TRUE(IsError(Variant::error(5)));
    EXPECT_TRUE(IsMissing(Variant::missing()));
    EXPECT_FALSE(IsMissing(Variant::error(5)));
    Variant variable = Variant::null();
    EXPECT_TRUE(IsNull(Variant::byRef(variable)));
}

} // namespace
