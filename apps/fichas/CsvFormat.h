#pragma once
// How a CSV file is written: found out from its first lines.

#include "fichas/CsvEncoding.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace fichas {

using CsvRow = std::vector<std::u16string>;

struct CsvFormat {
    Encoding encoding = Encoding::Undecided;
    char16_t separator = u';';
    char16_t quote = u'"';
    std::int64_t start = 0; ///< Offset of the first line: after a byte-order mark and a "sep=" line
    int firstLine = 1;      ///< Its number
};

/// The encoding by CsvEncoding's rules; the separator is the one of ; tab | and comma that gives the most
/// even lines, or what a first line "sep=X" says; the quote is " unless fields stand between '.
/// `head` is the start of the file and may end anywhere.
CsvFormat findFormat(std::span<const std::uint8_t> head);

/// Splits text into rows without judging it: an unclosed quote lasts to the end, blank lines are left out.
/// At most `limit` rows. Where `isWhole` is false the last row may be cut and is dropped.
std::vector<CsvRow> splitLeniently(std::u16string_view text, char16_t separator, char16_t quote, bool isWhole,
                                   std::size_t limit);

/// A field of a record: its place in the record's text, quotes and all, and whether it has quotes.
struct CsvField {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool isQuoted = false;
};

/// The fields of a record that CsvIndex has found sound.
std::vector<CsvField> findFields(std::u16string_view record, char16_t separator, char16_t quote);

/// The text of a field without its quotes.
std::u16string fieldText(std::u16string_view record, const CsvField& field, char16_t quote);

/// A text between quotes, those within doubled.
std::u16string quoted(std::u16string_view text, char16_t quote);

} // namespace fichas
