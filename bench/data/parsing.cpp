// Delimited text of 100 MB, as numbers, dates and texts, against cutting it into its pieces.
#include "Tables.h"
#include "measurements.h"

#include "automation/Conversions.h"

#include <cstdio>
#include <stdexcept>

namespace bench {

using automation::Variant;

namespace {

constexpr std::size_t wantedBytes = 100'000'000;
constexpr char16_t separator = u'|';
constexpr const char16_t* types = u"NSSDMNLS"; // as the columns are, which have no Null here

automation::String fieldOf(const Variant& value) {
    return value.isNull() ? u"01/02/2003" : automation::CStr(value);
}

/// Whole rows; 2 bytes a character.
std::u16string delimitedText(const std::vector<Record>& records) {
    std::u16string text;
    for (const Record& record : records) {
        if (text.size() * sizeof(char16_t) >= wantedBytes) break;
        for (const Variant& value : rowOf(record)) {
            text += fieldOf(value).view();
            text += separator;
        }
    }
    return text;
}

std::vector<std::u16string> split(std::u16string_view text) {
    std::vector<std::u16string> pieces;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return pieces;
}

} // namespace

void measureParsing(Tables& tables) {
    const automation::String text(delimitedText(tables.records()));
    const auto table = automation::make<tesela::cMatriz>();
    const double megabytes = static_cast<double>(text.length() * sizeof(char16_t)) / 1e6;
    const auto times = interleaved({{"ours",
                                     [&] {
                                         if (!table->DataFromString(text, u"|", 0, types))
                                             throw std::runtime_error("DataFromString");
                                     },
                                     [&] { table->Clear(); }},
                                    {"split", [&] { keep(split(text.view()).size()); }}},
                                   3);
    ratio("fromstring", "split", times[0], times[1]);
    std::printf("fromstring\t%.0f MB/s of %.0f MB, %d rows; split %.0f MB/s\n", megabytes / times[0],
                megabytes, table->Rows(), megabytes / times[1]);
}

} // namespace bench
