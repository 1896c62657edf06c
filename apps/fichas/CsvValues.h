#pragma once
// What the columns of a CSV file hold, found out from their first values, and the values themselves.

#include "automation/Date.h"
#include "fichas/CsvFormat.h"
#include "fichas/RecordSource.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fichas {

/// A value without the blanks around it.
std::u16string_view trimmed(std::u16string_view text);

/// A number as written: its digits without separators.
struct WrittenNumber {
    bool negative = false;
    std::string digits;  ///< At least one
    int decimals = 0;    ///< How many of them stand after the decimal separator
    bool isPlain = true; ///< Without group separators
};

/// Reads a number with the given decimal separator, the other one of point and comma between groups of
/// three: "-1.234,50" with a comma. A sign before or after and a euro sign after are taken; a leading zero
/// before another digit makes it a code and no number.
std::optional<WrittenNumber> readNumber(std::u16string_view text, char16_t decimalSeparator);

/// A date: dd/mm/yyyy (also with - or . and with one digit or a year of two: 30 to 99 are of the last
/// century) or yyyy-mm-dd, alone or with a time after a blank or a T.
struct WrittenDate {
    automation::Date value;
    bool hasTime = false;
};
std::optional<WrittenDate> readDate(std::u16string_view text);

/// A time of day: hh:mm or hh:mm:ss.
std::optional<automation::Date> readTime(std::u16string_view text);

/// sí and no, verdadero and falso, true and false, s and n, in any case.
std::optional<bool> readBoolean(std::u16string_view text);

/// The columns' names and types and how their values are read.
struct CsvColumns {
    std::vector<Column> columns;
    std::vector<char16_t> decimalSeparators; ///< Of each column
    bool hasHeader = false;

    /// The value of a field: Null for an empty one, a String where it is not of the column's type.
    automation::Variant value(std::size_t column, const std::u16string& field) const;
};

/// Judges the first rows of a file. The first row is a header when it holds nothing but texts, none of them
/// twice, and stands above values or names every column. A column whose numbers read both ways, like
/// "1.234", is taken as most of the other columns write theirs, and failing that as files with such a
/// separator do.
CsvColumns findColumns(const std::vector<CsvRow>& rows, char16_t separator);

} // namespace fichas
