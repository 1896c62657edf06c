#include "automation/Numbers.h"

#include "automation/Conversions.h"
#include "automation/Variant.h"
#include "support/ErrorOf.h"
#include "support/LocaleScope.h"

#include <gtest/gtest.h>

namespace {

using namespace automation;
using tests::errorOf;

struct ValCase {
    const char16_t* text;
    double value;
};

constexpr ValCase valCases[] = {
    {u"", 0},
    {u"abc", 0},
    {u"12", 12},
    {u"  12", 12},
    {u"-12", -12},
    {u"- 1 2", -12},
    {u"+3", 3},
    {u"1.5", 1.5},
    {u"1,5", 1},
    {u".5", 0.5},
    {u"1.2.3", 1.2},
    {u"24 and 57", 24},
    {u"    1615 198th Street N.E.", 1615198},
    {u"1e3", 1000},
    {u"1d3", 1000},
    {u"1E", 1},
    {u"1e+", 1},
    {u"1e-2x", 0.01},
    {u"$5", 0},
    {u"(5)", 0},
    {u"&HFF", 255},
    {u"&hFFFF", -1},
    {u"&HFFFF&", 65535},
    {u"&H8000", -32768},
    {u"&HFFFFFFFF", -1},
    {u"&H10000", 65536},
    {u"&O17", 15},
    {u"&17", 15},
    {u"&O18", 1},
    {u"&", 0},
    {u"& H F F", 255},
    {u"1\t2\n3", 123},
    {u"12%", 12},
    {u"1e-400", 0},
};

TEST(Numbers, ValReadsTheLeadingNumberInEveryLocale) {
    for (const std::string_view locale : tests::localeNames) {
        const tests::LocaleScope scope(locale);
        for (const ValCase& test : valCases)
            EXPECT_EQ(Val(test.text), test.value) << String(test.text).utf8();
        EXPECT_EQ(errorOf([] { Val(u"1e400"); }), 6);
    }
}

struct RoundCase {
    double value;
    int decimals;
    double rounded;
};

constexpr RoundCase roundCases[] = {
    {0.5, 0, 0},       {1.5, 0, 2},      {2.5, 0, 2},      {-0.5, 0, 0},     {-1.5, 0, -2},
    {-2.5, 0, -2},     {0.125, 2, 0.12}, {0.375, 2, 0.38}, {2.675, 2, 2.68}, {1234.5678, 3, 1234.568},
    {1e300, 5, 1e300}, {0.1, 22, 0.1},
};

TEST(Numbers, RoundGoesHalfToEven) {
    for (const RoundCase& test : roundCases)
        EXPECT_EQ(Round(test.value, test.decimals), test.rounded) << test.value << " " << test.decimals;
    EXPECT_EQ(errorOf([] { Round(1.5, -1); }), 5);
    EXPECT_EQ(errorOf([] { Round(1.5, 23); }), 5);
}

TEST(Numbers, RoundKeepsTheType) {
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(Round(Variant(1.25f), 1).asSingle(), 1.2f);
    EXPECT_EQ(Round(Variant(Currency::fromScaled(12350)), 2).asCurrency().scaled(), 12400);
    EXPECT_EQ(Round(Variant(Currency::fromScaled(12250)), 2).asCurrency().scaled(), 12200);
    EXPECT_EQ(Round(Variant(std::int16_t(5))).asInteger(), 5);
    EXPECT_EQ(Round(Variant(u"2.5")).asDouble(), 2);
    EXPECT_EQ(CStr(Round(CDec(u"1.2345678901234567890125"), 21)), u"1.234567890123456789012");
    EXPECT_TRUE(Round(Variant::null()).isNull());
    EXPECT_EQ(Round(Variant(true)).asInteger(), -1);
    EXPECT_EQ(errorOf([] { Round(Variant(u"x")); }), 13);
}

TEST(Numbers, IntGoesDownAndFixTowardsZero) {
    EXPECT_EQ(Int(Variant(-8.4)).asDouble(), -9);
    EXPECT_EQ(Fix(Variant(-8.4)).asDouble(), -8);
    EXPECT_EQ(Int(Variant(8.9)).asDouble(), 8);
    EXPECT_EQ(Int(Variant(Currency::fromScaled(-1))).asCurrency().scaled(), -10000);
    EXPECT_EQ(Fix(Variant(Currency::fromScaled(-19999))).asCurrency().scaled(), -10000);
    EXPECT_EQ(errorOf([] { Int(Variant(Currency::fromScaled(INT64_MIN))); }), 6);
    EXPECT_EQ(CStr(Int(CDec(-2.5))), u"-3");
    EXPECT_EQ(CStr(Fix(CDec(-2.5))), u"-2");
    EXPECT_EQ(CStr(Int(CDec(-2))), u"-2");
    EXPECT_EQ(Int(Variant(Date(2.75))).asDate().value(), 2);
    EXPECT_EQ(Int(Variant(7)).asLong(), 7);
    EXPECT_TRUE(Int(Variant::null()).isNull());
    EXPECT_EQ(errorOf([] { Int(Variant::missing()); }), 13);
}

TEST(Numbers, SgnAndAbs) {
    EXPECT_EQ(Sgn(Variant(-1.5)), -1);
    EXPECT_EQ(Sgn(Variant(0)), 0);
    EXPECT_EQ(Sgn(Variant(CDec(1))), 1);
    EXPECT_EQ(errorOf([] { Sgn(Variant::null()); }), 94);
    EXPECT_EQ(Abs(Variant(-1.5)).asDouble(), 1.5);
    EXPECT_EQ(Abs(Variant(std::int16_t(-32768))).asLong(), 32768);
    EXPECT_EQ(Abs(Variant(std::int32_t(INT32_MIN))).asDouble(), 2147483648.0);
    EXPECT_EQ(Abs(Variant(std::int16_t(-5))).asInteger(), 5);
    EXPECT_EQ(CStr(Abs(CDec(-5))), u"5");
    EXPECT_TRUE(Abs(Variant::null()).isNull());
}

TEST(Numbers, HexAndOctShowTheBitsOfTheType) {
    EXPECT_EQ(Hex(Variant(255)), u"FF");
    EXPECT_EQ(Hex(Variant(std::int16_t(-1))), u"FFFF");
    EXPECT_EQ(Hex(Variant(-1)), u"FFFFFFFF");
    EXPECT_EQ(Hex(Variant(-1.5)), u"FFFFFFFE");
    EXPECT_EQ(Hex(Variant()), u"0");
    EXPECT_EQ(Hex(Variant(u"16")), u"10");
    EXPECT_EQ(Oct(Variant(8)), u"10");
    EXPECT_EQ(Oct(Variant(std::int16_t(-1))), u"177777");
    EXPECT_EQ(errorOf([] { Hex(Variant::null()); }), 94);
    EXPECT_EQ(errorOf([] { Hex(Variant(1e10)); }), 6);
}

} // namespace
