// Numbers read from texts, held against the system's own conversions.

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
using tests::outcomeOf;

constexpr std::string_view locales[] = {"es-ES", "en-US"};

struct Reader {
    const char* name;
    std::string (*ours)(const Variant& text);
    std::string (*systems)(tests::system::Locale locale, std::u16string_view text);
};

const Reader readers[] = {
    {"double", [](const Variant& v) { return exactText(automation::CDbl(v)); },
     tests::system::doubleFromText},
    {"single", [](const Variant& v) { return exactText(static_cast<double>(automation::CSng(v))); },
     tests::system::singleFromText},
    {"long", [](const Variant& v) { return exactText(std::int64_t(automation::CLng(v))); },
     tests::system::longFromText},
    {"integer", [](const Variant& v) { return exactText(std::int64_t(automation::CInt(v))); },
     tests::system::integerFromText},
    {"byte", [](const Variant& v) { return exactText(std::int64_t(automation::CByte(v))); },
     tests::system::byteFromText},
    {"currency", [](const Variant& v) { return exactText(automation::CCur(v).scaled()); },
     tests::system::currencyFromText},
    {"decimal", [](const Variant& v) { return automation::CDec(v).normalized().text(); },
     tests::system::decimalFromText},
    {"boolean", [](const Variant& v) { return exactText(std::int64_t(automation::CBool(v) ? -1 : 0)); },
     tests::system::booleanFromText},
};

/// Texts of numbers: what may stand before, the digits with "," for the decimal and "." for the thousands
/// separator, what may stand after. "¤" is the currency symbol.
constexpr const char16_t* before[] = {u"",   u" ",  u"-", u"+",  u"- ", u"¤",
                                      u"-¤", u"¤-", u"(", u"(¤", u"--", u"¤("};
constexpr const char16_t* bodies[] = {u"0",
                                      u"7",
                                      u"12",
                                      u"255",
                                      u"256",
                                      u"32767",
                                      u"32768",
                                      u"65535",
                                      u"1,5",
                                      u"2,5",
                                      u"0,5",
                                      u"1,50001",
                                      u"2,49999",
                                      u"1.234",
                                      u"1.234,5",
                                      u"1..2",
                                      u"1,2.3",
                                      u",5",
                                      u"5,",
                                      u".5",
                                      u"1e3",
                                      u"1E+2",
                                      u"1e-2",
                                      u"1,5e1",
                                      u"1e",
                                      u"1d2",
                                      u"12x",
                                      u"1 2",
                                      u"&HFF",
                                      u"&H7FFF",
                                      u"&HFFFF",
                                      u"&O17",
                                      u"&HG",
                                      u"",
                                      u"000012",
                                      u"0,00005",
                                      u"0,00015",
                                      u"123,456789",
                                      u"1e40",
                                      u"2147483647",
                                      u"2147483648",
                                      u"2147483647,5",
                                      u"&HFFFFFFFF",
                                      u"&H80000000",
                                      u"99999999999999999999",
                                      u"0,1",
                                      u"1e-30",
                                      u"9007199254740993",
                                      u"922337203685477,5807",
                                      u"922337203685477,58075",
                                      u"1,2,3",
                                      u"%5"};
constexpr const char16_t* after[] = {u"", u" ", u"-", u"+", u")", u"¤", u" ¤", u"-¤", u")¤", u"%"};

std::u16string localized(std::u16string_view text, std::string_view locale) {
    const bool spanish = locale == "es-ES";
    std::u16string result;
    for (const char16_t unit : text) {
        if (unit == u',')
            result += spanish ? u',' : u'.';
        else if (unit == u'.')
            result += spanish ? u'.' : u',';
        else if (unit == u'¤')
            result += spanish ? u'€' : u'$';
        else
            result += unit;
    }
    return result;
}

void compareText(Conformance& conformance, std::string_view locale, const std::u16string& text) {
    for (const Reader& reader : readers) {
        ConformanceCase added{reader.name, std::string(locale), text, 0, {}, {}};
        added.ours = outcomeOf([&] { return reader.ours(Variant(text)); });
        added.systems = reader.systems(platform::GetUserDefaultLCID(), text);
        conformance.add(std::move(added));
    }
}

bool has(const ConformanceCase& difference, std::u16string_view piece) {
    return difference.input.find(piece) != std::u16string::npos;
}

bool isError(const std::string& outcome) {
    return outcome.starts_with("error");
}

bool isLiteral(const ConformanceCase& difference) {
    return has(difference, u"&");
}

bool hasCurrencySymbol(const ConformanceCase& difference) {
    return has(difference, u"€") || has(difference, u"$");
}

bool hasExponent(const ConformanceCase& difference) {
    return difference.input.find_first_of(u"eE") != std::u16string::npos;
}

/// What ours reads from `text` in the case's locale and type.
std::string ourReading(const ConformanceCase& difference, const std::u16string& text) {
    const tests::LocaleScope scope(difference.locale);
    const Reader* const reader =
        std::find_if(std::begin(readers), std::end(readers),
                     [&](const Reader& each) { return each.name == difference.function; });
    return outcomeOf([&] { return reader->ours(Variant(text)); });
}

/// Whether Wine gives the number of a literal without the sign that stands beside it.
bool isLiteralWithoutSign(const ConformanceCase& difference) {
    std::u16string text = difference.input;
    std::erase_if(text, [](char16_t unit) { return unit == u'-' || unit == u'(' || unit == u')'; });
    return isLiteral(difference) && text != difference.input &&
           ourReading(difference, text) == difference.systems;
}

/// Whether both sides give numbers that lie no further apart than the last digits of a Double.
bool isLastDigit(const ConformanceCase& difference) {
    if (isError(difference.ours) || isError(difference.systems)) return false;
    const double ours = std::strtod(difference.ours.c_str(), nullptr);
    const double systems = std::strtod(difference.systems.c_str(), nullptr);
    return std::abs(ours - systems) <= std::abs(ours) * 1e-15;
}

bool isOneApart(const ConformanceCase& difference) {
    if (isError(difference.ours) || isError(difference.systems)) return false;
    return std::abs(std::stoll(difference.ours) - std::stoll(difference.systems)) == 1;
}

// Wine is the system that these tests meet most; where it departs from what the runtime is documented or
// known to do, the runtime's way is kept.
const std::vector<KnownDifference> readingDifferences = {
    {"", [](const ConformanceCase& d) { return has(d, u"1d2") && d.systems == "error 13"; },
     "The exponent may be marked with D as well as E; Wine knows E only."},
    {"",
     [](const ConformanceCase& d) {
         return has(d, u"(") && has(d, u"-") && !has(d, u")") && d.ours == "error 13";
     },
     "A parenthesis must be closed; Wine lets a trailing minus sign close it."},
    {"",
     [](const ConformanceCase& d) { return isLiteral(d) && hasCurrencySymbol(d) && d.systems == "error 13"; },
     "A currency symbol may stand beside a literal as beside any number; Wine refuses it."},
    {"currency", [](const ConformanceCase& d) { return isLiteral(d) && d.systems == "error 6"; },
     "&H and &O literals are numbers for Currency too; Wine overflows on each of them."},
    {"", [](const ConformanceCase& d) { return has(d, u"&HFFFFFFFF") && d.systems == "error 6"; },
     "&HFFFFFFFF is -1 as &H80000000 is -2147483648; Wine overflows on the first for real numbers."},
    {"", isLiteralWithoutSign, "A sign belongs to the literal beside it; Wine drops it."},
    {"",
     [](const ConformanceCase& d) {
         return hasExponent(d) && hasCurrencySymbol(d) && d.systems == "error 13";
     },
     "A currency symbol before the digits does not forbid an exponent; Wine allows it behind them only."},
    {"double", isLastDigit, "Texts are rounded to the nearest Double; Wine may miss it in the last digits.",
     64},
    {"decimal",
     [](const ConformanceCase& d) {
         return has(d, u"1e-30") && d.ours == "0" && d.systems.ends_with("0.000000000000000000000000000001");
     },
     "A Decimal holds 28 decimals; Wine writes thirty into it."},
    {"currency",
     [](const ConformanceCase& d) { return has(d, u"922337203685477") && d.systems == "error 6"; },
     "Currency reads its whole range to the last digit; Wine reads it by way of a Double."},
    {"currency", isOneApart,
     "Currency rounds half to even on the digits of the text; Wine rounds a Double near them."},
};

TEST(SystemConformance, TextsReadAsNumbers) {
    Conformance conformance;
    for (const std::string_view locale : locales) {
        const tests::LocaleScope scope(locale);
        for (const char16_t* start : before)
            for (const char16_t* body : bodies)
                for (const char16_t* end : after)
                    compareText(conformance, locale, localized(std::u16string(start) + body + end, locale));
    }
    conformance.check(readingDifferences, 90000);
}

} // namespace
