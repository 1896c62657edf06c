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

/// Whether both are the same second.
bool isLastDigit(const ConformanceCase& difference) {
    constexpr double halfSecond = 0.5 / automation::Date::secondsPerDay;
    if (difference.ours.starts_with("error") || difference.systems.starts_with("error")) return false;
    const double ours = std::strtod(difference.ours.c_str(), nullptr);
    const double systems = std::strtod(difference.systems.c_str(), nullptr);
    return std::abs(ours - systems) < halfSecond;
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

bool hasMonth(const ConformanceCase& difference) {
    for (const std::u16string_view name : {u"January", u"feb", u"MARCH", u"Apr", u"September", u"dec"})
        if (has(difference, name)) return true;
    return false;
}

bool isDotted(const ConformanceCase& difference) {
    const std::size_t first = difference.input.find(u'.');
    return first != std::u16string::npos && difference.input.find(u'.', first + 1) != std::u16string::npos;
}

const std::vector<KnownDifference> readingDifferences = {
    {"", isLastDigit,
     "A second has one fraction of the day, the nearest; Wine adds hours, minutes and seconds up."},
    {"", [](const ConformanceCase& d) { return has(d, u": "); },
     "A colon joins numbers; Wine lets one before a blank take the day for the seconds."},
    {"", isLaterCentury, "Two-digit years lie in 1930 to 2029; Wine's end in 2049."},
    {"", [](const ConformanceCase& d) { return isDotted(d) && d.systems == "error 13"; },
     "Three numbers joined by points are a date where they are no time; Wine takes points in times only."},
    {"", [](const ConformanceCase& d) { return has(d, u" de ") && d.systems == "error 13"; },
     "The words of the locale's long date are skipped, so that a long date reads back; Wine refuses them."},
    {"", [](const ConformanceCase& d) { return has(d, u". m.") && d.systems == "error 13"; },
     "The locale's own marks of the half day are known, so that a written time reads back; Wine refuses "
     "those "
     "with points."},
    {"", [](const ConformanceCase& d) { return d.locale == "en-US" && hasMonth(d) && d.ours != "error 13"; },
     "A number before a month's name is the day if it can be, in English too; Wine takes it for the year "
     "there."},
    {"", [](const ConformanceCase& d) { return has(d, u" p") || has(d, u"a"); },
     "One letter marks the half day wherever two do after minutes; Wine takes some and leaves others."},
};

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
    conformance.check(readingDifferences, 90000);
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
    conformance.check(readingDifferences, 20000);
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
    conformance.check(readingDifferences, 30000);
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
