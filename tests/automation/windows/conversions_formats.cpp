// Numbers, dates and texts formatted by pattern and by name, held against the system's own formats.

#include "automation/Format.h"

#include "automation/Conversions.h"
#include "automation/Variant.h"
#include "automation/windows/Conformance.h"
#include "automation/windows/SystemConversions.h"
#include "support/LocaleScope.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using automation::Variant;
using tests::Conformance;
using tests::ConformanceCase;
using tests::KnownDifference;
using tests::outcomeOf;

constexpr std::string_view locales[] = {"es-ES", "en-US"};

constexpr double numbers[] = {0,         1,      -1,    0.5,     -0.5, 2.5,    1234567.891, -1234567.891,
                              0.005,     0.125,  12.34, 999.995, 1e15, 1e-7,   -0.001,      1000,
                              987654321, -99.99, 0.75,  5,       45,   123456, 1234.5,      3.14159,
                              -2,        10,     100};

constexpr const char16_t* numberPatterns[] = {u"0",
                                              u"#",
                                              u"0.00",
                                              u"#.##",
                                              u"#,##0.00",
                                              u"0,000",
                                              u"#,##0",
                                              u"0.0#",
                                              u"00000",
                                              u"#0.0",
                                              u"0%",
                                              u"0.00%",
                                              u"#.0%",
                                              u"0.00E+00",
                                              u"0.00e-00",
                                              u"0.0E+000",
                                              u"$#,##0.00;($#,##0.00)",
                                              u"0;;\"zero\"",
                                              u"0;-0;\"z\"",
                                              u"0.00;",
                                              u"0.0\\x",
                                              u"0 \"kg\"",
                                              u"(000) 000-0000",
                                              u"General Number",
                                              u"Fixed",
                                              u"Standard",
                                              u"Percent",
                                              u"Scientific",
                                              u"Yes/No",
                                              u"True/False",
                                              u"On/Off",
                                              u"0.",
                                              u"0.0.0",
                                              u"*0",
                                              u"0-",
                                              u"+0",
                                              u"\"abc\"0",
                                              u"#,##0.00 \"x\"",
                                              u"##0.00",
                                              u"0.000000",
                                              u"#,###,##0.00",
                                              u"0,",
                                              u"0,,",
                                              u"#,##0,",
                                              u".0",
                                              u".00",
                                              u"##0.0E+0",
                                              u"#E+0",
                                              u"\"only\"",
                                              u"Currency",
                                              u"-0",
                                              u"#-#",
                                              u"0:0",
                                              u"[0]",
                                              u"0;(0);-",
                                              u"!@@@@@@@@@@",
                                              u"@@@@@@@@@@",
                                              u"&&&&",
                                              u"<",
                                              u"0\\"};

bool has(const ConformanceCase& difference, std::u16string_view piece) {
    return difference.input.find(piece) != std::u16string::npos;
}

bool isNamed(const ConformanceCase& difference, std::u16string_view name) {
    return difference.input == name;
}

bool isTextPattern(const ConformanceCase& difference) {
    return difference.input.find_first_of(u"@&<") != std::u16string::npos;
}

std::string without(std::string text, char left) {
    std::erase(text, left);
    return text;
}

std::string lowered(std::string text) {
    for (char& unit : text)
        if (unit >= 'A' && unit <= 'Z') unit = static_cast<char>(unit - 'A' + 'a');
    return text;
}

/// Whether rounding carries a digit before the first one that the number has.
bool carries(const ConformanceCase& difference) {
    const double magnitude = std::abs(difference.number);
    return magnitude < 1 || magnitude == 999.995 || magnitude == 99.99;
}

// Wine is the system that these tests meet most; where it departs from what the runtime is documented or
// known to do, the runtime's way is kept.
const std::vector<KnownDifference> numberDifferences = {
    {"", [](const ConformanceCase& d) { return isNamed(d, u"Currency"); },
     "Currency follows the locale's forms; Wine writes the American ones with other signs."},
    {"", [](const ConformanceCase& d) { return d.input.ends_with(u','); },
     "Commas before the point or the end divide by a thousand each; Wine groups digits for them."},
    {"", [](const ConformanceCase& d) { return d.input.starts_with(u'.'); },
     "Digits without a place stand before the point; Wine loses them."},
    {"",
     [](const ConformanceCase& d) { return d.number < 0 && without(d.ours, '-') == without(d.systems, '-'); },
     "The sign stands before all else; Wine puts it before the first digit."},
    {"", [](const ConformanceCase& d) { return isNamed(d, u"General Number") && carries(d); },
     "Small fractions are written plainly up to 15 decimals, as CStr does; Wine goes by their magnitude."},
    {"", [](const ConformanceCase& d) { return d.input.starts_with(u'!'); },
     "\"!\" fills the places from the left; Wine takes no notice."},
    {"", isTextPattern, "A text pattern takes the text of CStr; Wine lowers its letters."},
    {"", carries, "A digit that rounding carries to the front is written; Wine loses it."},
    {"", [](const ConformanceCase& d) { return d.number == 0 && isNamed(d, u"##0.0E+0"); },
     "Zero has the exponent 0; Wine scales it to the places."},
};

TEST(SystemConformance, NumbersFormatted) {
    Conformance conformance;
    for (const std::string_view locale : locales) {
        const tests::LocaleScope scope(locale);
        const tests::system::Locale id = platform::GetUserDefaultLCID();
        for (const std::u16string pattern : numberPatterns)
            for (const double number : numbers)
                conformance.add({"number", std::string(locale), pattern, number,
                                 outcomeOf([&] { return automation::Format(number, pattern).utf8(); }),
                                 tests::system::formatNumber(id, number, pattern)});
    }
    conformance.check(numberDifferences, 3000);
}

constexpr double dates[] = {0,           0.5,   0.25,     36526,         36526.5,  37653.4375,
                            45000.99999, -1.25, 1.123456, 38718.6,       36161.9,  2958465,
                            -657434,     36584, 36585.75, 40000.0416667, -36522.5, 43830.999};

// Weeks of the year are left to a table of their own: Wine counts them from the day of the year alone.
constexpr const char16_t* datePatterns[] = {u"d",
                                            u"dd",
                                            u"ddd",
                                            u"dddd",
                                            u"ddddd",
                                            u"m",
                                            u"mm",
                                            u"mmm",
                                            u"mmmm",
                                            u"q",
                                            u"y",
                                            u"yy",
                                            u"yyyy",
                                            u"w",

                                            u"h",
                                            u"hh",
                                            u"n",
                                            u"nn",
                                            u"s",
                                            u"ss",
                                            u"ttttt",
                                            u"AM/PM",
                                            u"am/pm",
                                            u"A/P",
                                            u"a/p",
                                            u"AMPM",
                                            u"h:m",
                                            u"hh:mm:ss",
                                            u"h m",
                                            u"hh:nn AMPM",
                                            u"h AM/PM",
                                            u"d/m/yyyy",
                                            u"d/m/yyyy h:mm",
                                            u"h:mm:ss m",
                                            u"General Date",
                                            u"Short Date",
                                            u"Long Date",
                                            u"Long Time",
                                            u"Medium Time",
                                            u"Short Time",
                                            u"dd\\d",
                                            u"dd \"de\" mmmm",
                                            u"dd-mm-yyyy",
                                            u"d.m.yy",
                                            u"hh-mm",
                                            u"h.mm",
                                            u"yyyy\\-mm",
                                            u"x",
                                            u"c",
                                            u"short date",
                                            u"DD/MM/YY",
                                            u"hh:mm dd",
                                            u"s m",
                                            u"hd m",
                                            u"yyyymmdd",
                                            u"mm/yyyy",
                                            u"dddddd"};

const std::vector<KnownDifference> dateDifferences = {
    {"", [](const ConformanceCase& d) { return d.number == automation::Date::firstDay; },
     "A year of four digits has leading zeros; Wine leaves them out."},
    {"", [](const ConformanceCase& d) { return isNamed(d, u"ttttt") || isNamed(d, u"Long Time"); },
     "Midnight has a time; Wine writes none."},
    {"", [](const ConformanceCase& d) { return isNamed(d, u"h AM/PM"); },
     "A mark of the half day makes the hours twelve; Wine does so before some marks only."},
    {"", [](const ConformanceCase& d) { return isNamed(d, u"Long Date") || isNamed(d, u"dddddd"); },
     "Quotes in the locale's long date keep its words; Wine reads letters out of them."},
    {"", [](const ConformanceCase& d) { return isNamed(d, u"c") && d.systems.starts_with(d.ours); },
     "Nothing follows the general date; Wine runs past the end of its tokens."},
};

TEST(SystemConformance, DatesFormatted) {
    Conformance conformance;
    for (const std::string_view locale : locales) {
        const tests::LocaleScope scope(locale);
        const tests::system::Locale id = platform::GetUserDefaultLCID();
        for (const std::u16string pattern : datePatterns)
            for (const double date : dates)
                conformance.add({"date", std::string(locale), pattern, date, outcomeOf([&] {
                                     return automation::Format(automation::Date(date), pattern).utf8();
                                 }),
                                 tests::system::formatDate(id, date, pattern, 1, 1)});
    }
    conformance.check(dateDifferences, 2000);
}

constexpr const char16_t* texts[] = {u"abc", u"ABC def",  u"12345", u"12", u"x",
                                     u"",    u"1/2/2003", u"10:30", u"0"};
constexpr const char16_t* textPatterns[] = {u"@",          u"@@@@@@",     u"&&&&&&",         u"<",
                                            u">",          u"> ",         u">@@@@@@@@",      u"@-@-@",
                                            u"<@@@@@@@@",  u"@;empty",    u"@@;\"none\"",    u"(@@@) @",
                                            u"\"q\"@",     u"\\@@",       u"0.00",           u"#,##0.00",
                                            u"dd/mm/yyyy", u"d",          u"General Number", u"Short Date",
                                            u"Yes/No",     u"True/False", u"Fixed",          u"0%",
                                            u"0;;;n",      u"hh:nn",      u"!@@@@@@",        u"&-&",
                                            u"x"};

const std::vector<KnownDifference> textDifferences = {
    {"", [](const ConformanceCase& d) { return lowered(d.ours) == d.systems; },
     "Only \"<\" lowers letters; Wine lowers those of each text pattern."},
    {"", [](const ConformanceCase& d) { return has(d, u"!@"); },
     "\"!\" fills the places from the left; Wine takes no notice."},
    {"", [](const ConformanceCase& d) { return has(d, u"@-@") || has(d, u"(@@@) @") || has(d, u"&-&"); },
     "Places are filled from the right and the first one takes what is too long; Wine fills them from the "
     "left."},
    {"", [](const ConformanceCase& d) { return d.input.starts_with(u" by ") && d.ours.empty(); },
     "An empty text is no date; Wine makes it day 0."},
};

TEST(SystemConformance, TextsFormatted) {
    Conformance conformance;
    for (const std::string_view locale : locales) {
        const tests::LocaleScope scope(locale);
        const tests::system::Locale id = platform::GetUserDefaultLCID();
        for (const std::u16string pattern : textPatterns)
            for (const std::u16string text : texts)
                conformance.add({"text", std::string(locale), text + u" by " + pattern, 0,
                                 outcomeOf([&] { return automation::Format(text, pattern).utf8(); }),
                                 tests::system::formatText(id, text, pattern)});
    }
    conformance.check(textDifferences, 500);
}

const std::vector<KnownDifference> userDifferences = {
    {"", [](const ConformanceCase& d) { return d.systems == "error 13"; },
     "Any number has a form; Wine reads it back from a text of its own and fails for exponents and for money "
     "of other locales."},
    {"",
     [](const ConformanceCase& d) {
         return d.input.starts_with(u"0 ") && without(d.ours, '0') == without(d.systems, '0');
     },
     "A number without decimals has a digit at least; Wine leaves zero out."},
    {"", carries, "A digit that rounding carries to the front takes part in grouping; Wine forgets it."},
    {"currency", [](const ConformanceCase& d) { return d.number < 0; },
     "Negative money without parentheses keeps the locale's place of the symbol; Wine moves it to the "
     "front."},
    {"datetime", [](const ConformanceCase& d) { return d.number == automation::Date::firstDay; },
     "A year of four digits has leading zeros; Wine leaves them out."},
    {"datetime", [](const ConformanceCase& d) { return isNamed(d, u"3") && d.systems.empty(); },
     "Midnight has a time; Wine writes none."},
    {"datetime", [](const ConformanceCase& d) { return isNamed(d, u"1"); },
     "Quotes in the locale's long date keep its words; Wine reads letters out of them."},
};

/// These speak the user's own locale, without an override.
TEST(SystemConformance, NumbersFormattedByTheLocalesForms) {
    const tests::LocaleScope scope("");
    Conformance conformance;
    for (const double number : numbers) {
        for (const int decimals : {-1, 0, 1, 3}) {
            for (const int leading : {-2, -1, 0}) {
                for (const int parentheses : {-2, -1, 0}) {
                    for (const int group : {-2, -1, 0}) {
                        const auto add = [&](const char* function, auto ours, std::string systems) {
                            const std::string input =
                                std::to_string(decimals) + " " + std::to_string(leading) + " " +
                                std::to_string(parentheses) + " " + std::to_string(group);
                            conformance.add(
                                {function, "", std::u16string(input.begin(), input.end()), number,
                                 outcomeOf([&] {
                                     return ours(number, decimals, leading, parentheses, group).utf8();
                                 }),
                                 std::move(systems)});
                        };
                        namespace sys = tests::system;
                        add(
                            "number", [](auto... a) { return automation::FormatNumber(a...); },
                            sys::userFormatNumber(number, decimals, leading, parentheses, group));
                        add(
                            "currency", [](auto... a) { return automation::FormatCurrency(a...); },
                            sys::userFormatCurrency(number, decimals, leading, parentheses, group));
                        add(
                            "percent", [](auto... a) { return automation::FormatPercent(a...); },
                            sys::userFormatPercent(number, decimals, leading, parentheses, group));
                    }
                }
            }
        }
    }
    for (const double date : dates)
        for (int named = 0; named <= 5; ++named)
            conformance.add(
                {"datetime", "", std::u16string(1, static_cast<char16_t>(u'0' + named)), date,
                 outcomeOf([&] { return automation::FormatDateTime(automation::Date(date), named).utf8(); }),
                 tests::system::userFormatDateTime(date, named)});
    conformance.check(userDifferences, 8000);
}

} // namespace
