// Dates and times read from texts, held against the system's own conversion.

#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/Variant.h"
#include "automation/windows/Conformance.h"
#include "automation/windows/SystemConversions.h"
#include "support/LocaleScope.h"

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using automation::Variant;
using tests::Conformance;
using tests::ConformanceCase;
using tests::exactText;
using tests::KnownDifference;
using tests::outcomeOf;

constexpr std::string_view locales[] = {"es-ES", "en-US"};

std::u16string digits(int number) {
    const std::string text = std::to_string(number);
    return {text.begin(), text.end()};
}

void compareDate(Conformance& conformance, std::string_view locale, const std::u16string& text) {
    ConformanceCase added{"date", std::string(locale), text, 0, {}, {}};
    added.ours = outcomeOf([&] { return exactText(automation::CDate(Variant(text)).value()); });
    added.systems = tests::system::dateFromText(platform::GetUserDefaultLCID(), text);
    conformance.add(std::move(added));
}

bool isError(const std::string& outcome) {
    return outcome.starts_with("error");
}

/// Whether both are the same second, apart in the last bits of a fraction of a day alone.
bool isLastDigit(const ConformanceCase& difference) {
    constexpr double lastBits = 1e-11;
    if (isError(difference.ours) || isError(difference.systems)) return false;
    const double ours = std::strtod(difference.ours.c_str(), nullptr);
    const double systems = std::strtod(difference.systems.c_str(), nullptr);
    return std::abs(ours - systems) < lastBits;
}

bool has(const ConformanceCase& difference, std::u16string_view piece) {
    return difference.input.find(piece) != std::u16string::npos;
}

/// Both are dates a century apart, the system's in 2030 to 2049.
bool isLaterCentury(const ConformanceCase& difference) {
    constexpr double century = 36525, day2030 = 47484, day2050 = 54789;
    const double ours = std::strtod(difference.ours.c_str(), nullptr);
    const double systems = std::strtod(difference.systems.c_str(), nullptr);
    return systems >= day2030 && systems < day2050 && std::abs(systems - ours - century) < 1;
}

bool isWhole(const std::string& outcome) {
    return !isError(outcome) && outcome.find('.') == std::string::npos;
}

/// Three numbers joined by points whose middle or last one no time has.
bool isDottedDate(const ConformanceCase& difference) {
    const std::u16string_view text = difference.input;
    const std::size_t first = text.find(u'.'), last = text.rfind(u'.');
    return first != last && text.find_first_not_of(u"0123456789.") == text.npos && isWhole(difference.ours);
}

/// A day and a year of two digits around an English month: ours takes the first for the day, Wine the second.
bool isYearBeforeMonth(const ConformanceCase& difference) {
    std::u16string swapped = difference.input;
    const std::size_t before = swapped.find_first_of(u" -"), behind = swapped.find_last_of(u" -");
    if (difference.locale != "en-US" || before == behind) return false;
    swapped =
        swapped.substr(behind + 1) + swapped.substr(before, behind - before + 1) + swapped.substr(0, before);
    const tests::LocaleScope scope(difference.locale);
    ConformanceCase other = difference;
    other.ours = outcomeOf([&] { return exactText(automation::CDate(Variant(swapped)).value()); });
    return other.ours == other.systems || isLaterCentury(other);
}

const KnownDifference lastDigit = {
    "", isLastDigit,
    "A second has one fraction of the day, the nearest; Wine adds hours, minutes and seconds up.", 64};
const KnownDifference colonBeforeDate = {
    "", [](const ConformanceCase& d) { return has(d, u": 3/4") && isError(d.ours) && !isError(d.systems); },
    "A colon joins the parts of a time; Wine lets one before a blank take the day for the seconds."};
const KnownDifference laterCentury = {"", isLaterCentury,
                                      "Two-digit years lie in 1930 to 2029; Wine's end in 2049."};
const KnownDifference dottedDate = {
    "", [](const ConformanceCase& d) { return isDottedDate(d) && isError(d.systems); },
    "Three numbers joined by points are a date where they are no time; Wine takes points in times only."};
const KnownDifference longDateWords = {
    "", [](const ConformanceCase& d) { return d.locale == "es-ES" && has(d, u" de ") && isError(d.systems); },
    "The words of the locale's long date are skipped, so that a long date reads back; Wine refuses them."};
const KnownDifference dottedHalfDay = {
    "",
    [](const ConformanceCase& d) { return d.locale == "es-ES" && has(d, u" a. m.") && isError(d.systems); },
    "The locale's own marks of the half day are known, so that a written time reads back; Wine refuses "
    "those with points."};
const KnownDifference yearBeforeMonth = {
    "", isYearBeforeMonth,
    "A number before a month's name is the day if it can be, in English too; Wine takes it for the year "
    "there."};

constexpr int parts[] = {0,  1,  2,  5,  11,  12,   13,   28,   29,   30,
                         31, 32, 45, 99, 100, 1899, 2000, 2001, 9999, 10000};

TEST(SystemConformance, NumericDatesRead) {
    Conformance conformance;
    for (const std::string_view locale : {locales[0], locales[1], std::string_view("sv-SE")}) {
        const tests::LocaleScope scope(locale);
        for (const int a : parts) {
            for (const int b : parts) {
                for (const std::u16string separator : {u"/", u"-", u" ", u".", u", "}) {
                    const std::u16string two = digits(a) + separator + digits(b);
                    compareDate(conformance, locale, two);
                    for (const int c : parts)
                        if (separator != u", ") compareDate(conformance, locale, two + separator + digits(c));
                }
            }
        }
    }
    conformance.check({lastDigit, laterCentury, dottedDate}, 90000);
}

TEST(SystemConformance, NamedDatesRead) {
    constexpr const char16_t* names[][6] = {
        {u"enero", u"feb", u"MARZO", u"abr", u"septiembre", u"dic"},
        {u"January", u"feb", u"MARCH", u"Apr", u"September", u"dec"},
    };
    Conformance conformance;
    for (std::size_t i = 0; i < 2; ++i) {
        const tests::LocaleScope scope(locales[i]);
        for (const std::u16string month : names[i]) {
            for (const int a : parts) {
                for (const std::u16string separator : {u" ", u"-", u"/"}) {
                    compareDate(conformance, locales[i], digits(a) + separator + month);
                    compareDate(conformance, locales[i], month + separator + digits(a));
                }
                for (const int b : parts) {
                    compareDate(conformance, locales[i], digits(a) + u" " + month + u" " + digits(b));
                    compareDate(conformance, locales[i], digits(a) + u"-" + month + u"-" + digits(b));
                    compareDate(conformance, locales[i], month + u" " + digits(a) + u", " + digits(b));
                    compareDate(conformance, locales[i], digits(a) + u" " + digits(b) + u" " + month);
                    compareDate(conformance, locales[i], digits(a) + u" de " + month + u" de " + digits(b));
                }
            }
        }
    }
    conformance.check({laterCentury, longDateWords, yearBeforeMonth}, 20000);
}

TEST(SystemConformance, TimesRead) {
    constexpr int numbers[] = {0, 1, 9, 11, 12, 13, 23, 24, 59, 60, 100};
    constexpr const char16_t* tails[] = {u"",  u" AM", u" PM",    u"pm", u" p",
                                         u"a", u" x",  u" a. m.", u" ",  u":"};
    Conformance conformance;
    for (const std::string_view locale : locales) {
        const tests::LocaleScope scope(locale);
        for (const int hour : numbers) {
            for (const std::u16string tail : tails) {
                compareDate(conformance, locale, digits(hour) + tail);
                for (const int minute : numbers) {
                    const std::u16string time = digits(hour) + u":" + digits(minute);
                    compareDate(conformance, locale, time + tail);
                    compareDate(conformance, locale, u"3/4/2005 " + time + tail);
                    compareDate(conformance, locale, time + tail + u" 3/4/2005");
                    compareDate(conformance, locale, digits(hour) + u"." + digits(minute) + tail);
                    for (const int second : numbers)
                        compareDate(conformance, locale, time + u":" + digits(second) + tail);
                }
            }
        }
    }
    conformance.check({lastDigit, colonBeforeDate, dottedHalfDay}, 30000);
}

/// These speak the user's own locale, without an override.
TEST(SystemConformance, NamesOfMonthsAndDays) {
    const tests::LocaleScope scope("");
    Conformance conformance;
    for (const bool abbreviate : {false, true}) {
        for (int month = 0; month <= 13; ++month)
            conformance.add({"month", "", digits(month), 0,
                             outcomeOf([&] { return automation::MonthName(month, abbreviate).utf8(); }),
                             tests::system::userMonthName(month, abbreviate)});
        for (int firstDay = 0; firstDay <= 7; ++firstDay)
            for (int weekday = 1; weekday <= 8; ++weekday)
                conformance.add(
                    {"weekday", "", digits(weekday) + u" from " + digits(firstDay), 0,
                     outcomeOf([&] { return automation::WeekdayName(weekday, abbreviate, firstDay).utf8(); }),
                     tests::system::userWeekdayName(weekday, abbreviate, firstDay)});
    }
    conformance.check({}, 150);
}

} // namespace
