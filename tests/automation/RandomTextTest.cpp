// Random texts through every reader and writer: none may crash, hang or throw anything but an Error.

#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/Format.h"
#include "automation/Numbers.h"
#include "automation/Strings.h"
#include "automation/Variant.h"
#include "support/ErrorOf.h"
#include "support/LocaleScope.h"

#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace {

using namespace automation;
using tests::errorOf;

constexpr std::u16string_view alphabets[] = {
    u"0123456789.,-+() eEdD&HhOo$€kr\u00A0",
    u"0123456789/-.: ,ampAMPenefbmarylusde",
    u"0#.,%eE+-;\"\\ $()x@",
    u"cdwmqyhnstAaMmPp/:;\"\\ '",
    u"@&<>!;\"\\ab",
};

class RandomTexts {
public:
    std::u16string next() {
        const std::u16string_view alphabet = alphabets[random_() % std::size(alphabets)];
        std::u16string text(random_() % 24, u'\0');
        for (char16_t& unit : text) {
            // Now and then a unit of no alphabet: controls, surrogates, NUL.
            unit = random_() % 40 == 0 ? static_cast<char16_t>(random_())
                                       : alphabet[random_() % alphabet.size()];
        }
        return text;
    }
    double number() {
        constexpr double edges[] = {0,
                                    -0.0,
                                    0.5,
                                    -1.25,
                                    1e15,
                                    1e-7,
                                    999.995,
                                    36526.75,
                                    -657434,
                                    2958465.99,
                                    1e308,
                                    std::numeric_limits<double>::infinity(),
                                    std::numeric_limits<double>::quiet_NaN()};
        return edges[random_() % std::size(edges)];
    }

private:
    std::mt19937 random_{20260229};
};

/// Only the Errors that a program knows may come out of a conversion.
template <class Call>
void expectKnownError(Call call, const std::u16string& text) {
    const int error = errorOf(call);
    EXPECT_TRUE(error == 0 || error == 5 || error == 6 || error == 13 || error == 94)
        << error << " for " << String(text).utf8();
}

constexpr int rounds = 60000;

TEST(RandomTexts, ReadersTakeAnyText) {
    RandomTexts texts;
    for (int i = 0; i < rounds; ++i) {
        const tests::LocaleScope scope(tests::localeNames[i % 3]);
        const std::u16string text = texts.next();
        const Variant value(text);
        const bool numeric = IsNumeric(value);
        const bool date = IsDate(value);
        ASSERT_EQ(errorOf([&] { CDbl(value); }) == 0, numeric) << String(text).utf8();
        ASSERT_EQ(errorOf([&] { CDate(value); }) == 0, date) << String(text).utf8();
        if (date) {
            ASSERT_TRUE(CDate(value).isValid()) << String(text).utf8();
        }
        expectKnownError([&] { CLng(value); }, text);
        expectKnownError([&] { CInt(value); }, text);
        expectKnownError([&] { CByte(value); }, text);
        expectKnownError([&] { CSng(value); }, text);
        expectKnownError([&] { CCur(value); }, text);
        expectKnownError([&] { CDec(value); }, text);
        expectKnownError([&] { CBool(value); }, text);
        expectKnownError([&] { Val(text); }, text);
        expectKnownError([&] { DateAdd(text, 1, Date(1)); }, text);
    }
}

TEST(RandomTexts, WholeTypesAgreeWithTheDouble) {
    RandomTexts texts;
    const tests::LocaleScope scope("en-US");
    for (int i = 0; i < rounds; ++i) {
        const std::u16string text = texts.next();
        double real = 0;
        std::int32_t whole = 0;
        if (text.find(u'&') != std::u16string::npos || errorOf([&] { real = CDbl(text); }) != 0) continue;
        if (errorOf([&] { whole = CLng(text); }) != 0) continue;
        ASSERT_NEAR(real, whole, 0.5000001) << String(text).utf8();
    }
}

TEST(RandomTexts, FormatsTakeAnyPattern) {
    RandomTexts texts;
    for (int i = 0; i < rounds; ++i) {
        const tests::LocaleScope scope(tests::localeNames[i % 3]);
        const std::u16string pattern = texts.next();
        const double number = texts.number();
        expectKnownError([&] { EXPECT_LT(Format(number, pattern).length(), 20000u); }, pattern);
        expectKnownError([&] { Format(Date(number), pattern); }, pattern);
        expectKnownError([&] { Format(texts.next(), pattern); }, pattern);
        expectKnownError([&] { Format(Variant::null(), pattern); }, pattern);
        expectKnownError([&] { Format(Variant(), pattern, i % 9, i % 5); }, pattern);
    }
}

TEST(RandomTexts, TextFunctionsTakeAnyText) {
    RandomTexts texts;
    for (int i = 0; i < rounds / 4; ++i) {
        const std::u16string text = texts.next(), what = texts.next().substr(0, 2);
        ASSERT_EQ(UCase(text).length(), text.size());
        ASSERT_EQ(LCase(text).length(), text.size());
        ASSERT_EQ(StrConv(text, StringConversion::ProperCase).length(), text.size());
        ASSERT_EQ(StrReverse(StrReverse(text)), text);
        ASSERT_EQ(Join(Split(text, what), what), text);
        const std::int32_t found = InStr(text, what);
        if (found > 0) {
            ASSERT_EQ(Mid(text, found, static_cast<std::int32_t>(what.size())), what);
        }
        expectKnownError([&] { StrConv(text, i % 300); }, text);
    }
}

} // namespace
