// Values written as texts and rounded, held against the system's own conversions.

#include "automation/Conversions.h"
#include "automation/Numbers.h"
#include "automation/Variant.h"
#include "automation/windows/Conformance.h"
#include "automation/windows/SystemConversions.h"
#include "support/LocaleScope.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using automation::Variant;
using tests::Conformance;
using tests::ConformanceCase;
using tests::exactText;
using tests::KnownDifference;

constexpr std::string_view locales[] = {"es-ES", "en-US"};

/// Doubles that programs meet: small and large whole ones, amounts, fractions, all magnitudes.
std::vector<double> sampleNumbers() {
    std::vector<double> numbers = {0,
                                   1,
                                   -1,
                                   0.5,
                                   1.5,
                                   2.5,
                                   -2.5,
                                   0.1,
                                   0.001,
                                   0.0001,
                                   0.00001,
                                   1e14,
                                   1e15,
                                   1e16,
                                   1e20,
                                   1e300,
                                   1e-15,
                                   1e-16,
                                   1e-300,
                                   999999999999999.0,
                                   999999999999999.9,
                                   123456789012345678.0,
                                   1.0 / 3,
                                   2.0 / 3,
                                   1.0 / 30,
                                   0.285,
                                   1.005};
    std::mt19937 random(4711);
    std::uniform_real_distribution<double> unit(-1, 1);
    for (int exponent = -20; exponent <= 20; ++exponent)
        for (int i = 0; i < 8; ++i)
            numbers.push_back(unit(random) * std::pow(10, exponent));
    for (int i = 0; i < 200; ++i)
        numbers.push_back(std::round(unit(random) * 1e8) / 100);
    for (int i = 0; i < 100; ++i)
        numbers.push_back(std::round(unit(random) * 1e9));
    return numbers;
}

std::string utf8(const automation::String& text) {
    return text.utf8();
}

void compareNumber(Conformance& conformance, std::string_view locale, double number) {
    const tests::system::Locale id = platform::GetUserDefaultLCID();
    const auto add = [&](const char* function, std::string ours, std::string systems) {
        conformance.add({function, std::string(locale), {}, number, std::move(ours), std::move(systems)});
    };
    add("double", utf8(automation::CStr(number)), tests::system::textFromDouble(id, number));
    if (std::abs(number) < 1e38) {
        const float single = static_cast<float>(number);
        add("single", utf8(automation::CStr(single)), tests::system::textFromSingle(id, single));
    }
    if (std::abs(number) < 2e9) {
        const std::int32_t whole = automation::CLng(number);
        add("long", utf8(automation::CStr(whole)), tests::system::textFromLong(id, whole));
        const automation::Currency money = automation::CCur(number);
        add("currency", utf8(automation::CStr(money)), tests::system::textFromCurrency(id, money.scaled()));
        const automation::Decimal decimal = automation::CDec(number).rounded(10);
        add("decimal", utf8(automation::CStr(decimal)),
            tests::system::textFromDecimal(id, automation::String::fromUtf8(decimal.text())));
    }
    if (number > -600000 && number < 2900000)
        add("date", utf8(automation::CStr(automation::Date(number))),
            tests::system::textFromDate(id, number));
}

double valueOf(std::string text) {
    std::replace(text.begin(), text.end(), ',', '.');
    return std::strtod(text.c_str(), nullptr);
}

/// Whether both texts write the same fraction, one of them with an exponent.
bool isFractionInOtherForm(const ConformanceCase& difference) {
    const auto hasExponent = [](const std::string& text) { return text.find('E') != std::string::npos; };
    const double ours = valueOf(difference.ours), systems = valueOf(difference.systems);
    return std::abs(difference.number) < 1 &&
           hasExponent(difference.ours) != hasExponent(difference.systems) &&
           std::abs(ours - systems) <= std::abs(ours) * 1e-6;
}

/// Whether the texts are the same but for zeros before the year, which lies before 1000.
bool lacksZerosOfYear(const ConformanceCase& difference) {
    constexpr double firstLongYear = -328716; // 1 January 1000
    std::string ours = difference.ours, systems = difference.systems;
    std::erase(ours, '0');
    std::erase(systems, '0');
    return difference.number < firstLongYear && ours == systems;
}

/// Whether both texts have an exponent and differ in the decimal separator alone.
bool hasPointBeforeExponent(const ConformanceCase& difference) {
    std::string ours = difference.ours;
    for (char& unit : ours)
        if (unit == ',') unit = '.';
    return ours.find('E') != std::string::npos && ours == difference.systems;
}

const std::vector<KnownDifference> writingDifferences = {
    {"double", isFractionInOtherForm,
     "A fraction is written plainly while it has up to 15 decimals, else with an exponent "
     "(3.33333333333333E-02); Wine goes by its magnitude as C does."},
    {"single", isFractionInOtherForm, "The same with 7 decimals."},
    {"", hasPointBeforeExponent,
     "The decimal separator is the locale's before an exponent too; Wine leaves a point there."},
    {"date", lacksZerosOfYear, "A year of the pattern yyyy has four digits; Wine leaves out leading zeros."},
};

TEST(SystemConformance, ValuesWrittenAsTexts) {
    Conformance conformance;
    for (const std::string_view locale : locales) {
        const tests::LocaleScope scope(locale);
        for (const double number : sampleNumbers())
            compareNumber(conformance, locale, number);
        const tests::system::Locale id = platform::GetUserDefaultLCID();
        for (const bool value : {false, true}) {
            conformance.add({"boolean", std::string(locale), u"plain", 0, utf8(automation::plainText(value)),
                             tests::system::textFromBoolean(id, value, false)});
            conformance.add({"boolean", std::string(locale), u"localized", 0, utf8(automation::CStr(value)),
                             tests::system::textFromBoolean(id, value, true)});
        }
    }
    conformance.check(writingDifferences, 6000);
}

TEST(SystemConformance, DatesWrittenAsTexts) {
    Conformance conformance;
    std::mt19937 random(1899);
    std::uniform_int_distribution<int> seconds(0, automation::Date::secondsPerDay - 1);
    for (const std::string_view locale : locales) {
        const tests::LocaleScope scope(locale);
        const tests::system::Locale id = platform::GetUserDefaultLCID();
        for (std::int32_t day = automation::Date::firstDay + 366 * 900; day < automation::Date::lastDay;
             day += 1009) {
            for (const int second : {0, seconds(random)}) {
                const automation::Date date = automation::Date::fromDayAndSecond(day, second);
                conformance.add({"date",
                                 std::string(locale),
                                 {},
                                 date.value(),
                                 utf8(automation::CStr(date)),
                                 tests::system::textFromDate(id, date.value())});
            }
        }
    }
    conformance.check({}, 9000);
}

TEST(SystemConformance, WholeParts) {
    Conformance conformance;
    for (const double number : sampleNumbers()) {
        const auto add = [&](const char* function, double ours, std::string systems) {
            conformance.add({function, "", {}, number, exactText(ours), std::move(systems)});
        };
        add("int", automation::Int(Variant(number)).asDouble(), tests::system::wholeBelow(number));
        add("fix", automation::Fix(Variant(number)).asDouble(), tests::system::wholePart(number));
    }
    conformance.check({}, 1200);
}

/// Whether the number lies half-way between two neighbours at so many decimals, as far as a Double tells, and
/// each side gives another.
bool isHalf(const ConformanceCase& difference) {
    const double power = std::pow(10, difference.input[0] - u'0');
    const double scaled = std::abs(difference.number * power);
    const double gap = std::abs(valueOf(difference.systems) - valueOf(difference.ours)) * power;
    return scaled - std::floor(scaled) == 0.5 && std::abs(gap - 1) <= scaled * 1e-14;
}

bool isLastDigit(const ConformanceCase& difference) {
    const double ours = std::strtod(difference.ours.c_str(), nullptr);
    const double systems = std::strtod(difference.systems.c_str(), nullptr);
    return std::abs(ours - systems) <= std::abs(ours) * 1e-15;
}

const std::vector<KnownDifference> roundingDifferences = {
    {"round", isHalf,
     "Round goes half to even; Wine goes half away from zero, in 32 bits by digits beyond a Double's."},
    {"round", isLastDigit, "The rounded number is the nearest Double; Wine may miss it in the last digit."},
};

TEST(SystemConformance, Rounding) {
    Conformance conformance;
    for (const double number : sampleNumbers()) {
        for (int decimals = 0; decimals <= 6; ++decimals) {
            conformance.add({"round", "", std::u16string(1, static_cast<char16_t>(u'0' + decimals)), number,
                             exactText(automation::Round(number, decimals)),
                             tests::system::round(number, decimals)});
        }
    }
    conformance.check(roundingDifferences, 4000);
}

} // namespace
