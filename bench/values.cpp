// Values against the standard library's conversions and ICU's formatters, on the same data.
#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/Format.h"
#include "automation/Operators.h"
#include "automation/Variant.h"
#include "measure.h"
#include "platform/locale.h"

#include <charconv>
#include <functional>
#include <random>
#include <string>
#include <unicode/decimfmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/unistr.h>
#include <variant>

using automation::Date;
using automation::String;
using automation::Variant;

namespace {

constexpr int count = 20000;

using StandardValue = std::variant<std::monostate, std::int32_t, double, std::string>;

struct Data {
    std::vector<double> numbers;
    std::vector<std::string> ascii; // as the standard library reads them
    std::vector<Variant> texts;     // the same texts as values
    std::vector<Variant> values;
    std::vector<Variant> mixed;
    std::vector<StandardValue> standard;
    std::vector<StandardValue> standardNumbers;
    std::vector<Variant> dates;
    std::vector<UDate> icuDates;
};

/// Amounts as a data-entry program meets them: two to four decimals, up to nine digits before them.
Data makeData() {
    std::mt19937_64 random(20240229);
    Data data;
    for (int i = 0; i < count; ++i) {
        const auto digits = static_cast<std::int64_t>(random() % 10'000'000'000'000ULL) - 5'000'000'000'000LL;
        const double scale[] = {100, 10000, 1e8};
        const double number = static_cast<double>(digits) / scale[random() % 3];
        char text[40];
        const auto end = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 4).ptr;
        data.numbers.push_back(number);
        data.ascii.emplace_back(text, end);
        data.texts.emplace_back(String::fromUtf8(data.ascii.back()));
        data.values.emplace_back(number);
        data.standardNumbers.emplace_back(number);
        const auto whole = static_cast<std::int32_t>(random());
        switch (random() % 3) {
        case 0:
            data.mixed.emplace_back(whole);
            data.standard.emplace_back(whole);
            break;
        case 1:
            data.mixed.emplace_back(number);
            data.standard.emplace_back(number);
            break;
        default:
            data.mixed.emplace_back(data.texts.back());
            data.standard.emplace_back(data.ascii.back());
        }
        const double day =
            static_cast<double>(random() % 60000) + static_cast<double>(random() % 86400) / 86400;
        data.dates.emplace_back(Date(day));
        data.icuDates.push_back((day - 25569) * 86400000.0);
    }
    return data;
}

void copies(const Data& data) {
    bench::compare("variant_copy", {{"ours",
                                     [&] {
                                         std::vector<Variant> copy(data.mixed);
                                         bench::keep(copy.data());
                                     }},
                                    {"std_variant", [&] {
                                         auto copy = data.standard;
                                         bench::keep(copy.data());
                                     }}});
}

/// How many values are less than the one before, by `Less`.
template <class Value, class Less>
int countDescents(const std::vector<Value>& values, Less less) {
    int descents = 0;
    for (std::size_t i = 1; i < values.size(); ++i)
        descents += less(values[i - 1], values[i]);
    return descents;
}

/// Values of one type, ours made of the standard library's by `Make`.
template <class Make>
void comparisonsOf(const std::string& name, const std::vector<StandardValue>& standard, Make make) {
    std::vector<Variant> values;
    values.reserve(standard.size());
    for (const StandardValue& each : standard)
        values.push_back(make(each));
    const auto isLess = [](const Variant& a, const Variant& b) { return automation::isLess(a, b); };
    bench::compare(name, {{"ours", [&] { bench::keep(countDescents(values, isLess)); }},
                          {"std_variant", [&] { bench::keep(countDescents(standard, std::less<>())); }}});
}

void comparisons(const Data& data) {
    std::vector<StandardValue> longs, texts;
    for (const double number : data.numbers)
        longs.emplace_back(static_cast<std::int32_t>(number));
    for (const std::string& text : data.ascii)
        texts.emplace_back(text);
    comparisonsOf("variant_compare", data.standardNumbers,
                  [](const StandardValue& v) { return Variant(std::get<double>(v)); });
    comparisonsOf("variant_compare_long", longs,
                  [](const StandardValue& v) { return Variant(std::get<std::int32_t>(v)); });
    comparisonsOf("variant_compare_string", texts,
                  [](const StandardValue& v) { return Variant(String::fromUtf8(std::get<std::string>(v))); });
}

void readNumbers(const Data& data) {
    bench::compare("cdbl", {{"ours",
                             [&] {
                                 double sum = 0;
                                 for (const Variant& text : data.texts)
                                     sum += automation::CDbl(text);
                                 bench::keep(sum);
                             }},
                            {"from_chars",
                             [&] {
                                 double sum = 0, number = 0;
                                 for (const std::string& text : data.ascii) {
                                     std::from_chars(text.data(), text.data() + text.size(), number);
                                     sum += number;
                                 }
                                 bench::keep(sum);
                             }},
                            {"stod", [&] {
                                 double sum = 0;
                                 for (const std::string& text : data.ascii)
                                     sum += std::stod(text);
                                 bench::keep(sum);
                             }}});
}

void writeNumbers(const Data& data) {
    bench::compare(
        "cstr",
        {{"ours",
          [&] {
              std::size_t length = 0;
              for (const Variant& value : data.values)
                  length += automation::CStr(value).length();
              bench::keep(length);
          }},
         {"to_chars",
          [&] {
              std::size_t length = 0;
              char text[64];
              for (const double number : data.numbers)
                  length +=
                      std::string(
                          text,
                          std::to_chars(text, text + sizeof text, number, std::chars_format::general, 15).ptr)
                          .size();
              bench::keep(length);
          }},
         {"snprintf", [&] {
              std::size_t length = 0;
              char text[64];
              for (const double number : data.numbers)
                  length +=
                      std::string(text,
                                  static_cast<std::size_t>(std::snprintf(text, sizeof text, "%.15g", number)))
                          .size();
              bench::keep(length);
          }}});
}

void formatNumbers(const Data& data) {
    UErrorCode status = U_ZERO_ERROR;
    icu::DecimalFormat format(u"#,##0.00", icu::DecimalFormatSymbols(icu::Locale("es", "ES"), status),
                              status);
    bench::compare("format_number", {{"ours",
                                      [&] {
                                          std::size_t length = 0;
                                          for (const Variant& value : data.values)
                                              length += automation::Format(value, u"#,##0.00").length();
                                          bench::keep(length);
                                      }},
                                     {"icu", [&] {
                                          std::int32_t length = 0;
                                          for (const double number : data.numbers) {
                                              icu::UnicodeString text;
                                              format.format(number, text);
                                              length += text.length();
                                          }
                                          bench::keep(length);
                                      }}});
}

void formatDates(const Data& data) {
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(u"dd/MM/yyyy HH:mm:ss", icu::Locale("es", "ES"), status);
    format.setTimeZone(*icu::TimeZone::getGMT());
    bench::compare("format_date", {{"ours",
                                    [&] {
                                        std::size_t length = 0;
                                        for (const Variant& date : data.dates)
                                            length +=
                                                automation::Format(date, u"dd/mm/yyyy hh:nn:ss").length();
                                        bench::keep(length);
                                    }},
                                   {"icu", [&] {
                                        std::int32_t length = 0;
                                        for (const UDate date : data.icuDates) {
                                            icu::UnicodeString text;
                                            format.format(date, text);
                                            length += text.length();
                                        }
                                        bench::keep(length);
                                    }}});
}

} // namespace

int main() {
    platform::overrideUserLocale("es-ES");
    Data data = makeData();
    copies(data);
    comparisons(data);
    // The standard library reads a point; both sides read the same characters.
    platform::overrideUserLocale("en-US");
    readNumbers(data);
    platform::overrideUserLocale("es-ES");
    writeNumbers(data);
    formatNumbers(data);
    formatDates(data);
    return 0;
}
