#pragma once
// How the values of a column are written in a file.

#include "automation/Variant.h"
#include "fichas/RecordSource.h"

#include <string>
#include <string_view>

namespace fichas {

/// Learns from the values that a column has how the next one is to be written: its quotes, decimals,
/// thousands and currency, the order and the separators of dates, the words of truth values.
class CsvHabits {
public:
    CsvHabits(ColumnType type, char16_t decimalSeparator)
        : type_(type), decimalSeparator_(decimalSeparator) {}

    /// A field of the column: its text without quotes, and whether it had some.
    void take(std::u16string_view field, bool isQuoted);

    /// Whether all values stand between quotes.
    bool quotes() const { return any_ && allQuoted_; }

    /// The text of a value that comes in the place of `former`: in the form of that one, or where there was
    /// none or it was of another type, in the column's. Nothing for Null.
    std::u16string text(const automation::Variant& value, std::u16string_view former) const;

private:
    std::u16string number(const automation::Variant& value, std::u16string_view model) const;
    std::u16string truth(bool value) const;
    bool isOfType(std::u16string_view field) const;

    ColumnType type_;
    char16_t decimalSeparator_;
    bool any_ = false;
    bool allQuoted_ = true;
    std::u16string sample_; ///< The first value of the column's type
    bool grouped_ = false;  ///< Some number has separated thousands
    int decimals_ = 0;      ///< The most of a number
    std::u16string yes_, no_;
};

} // namespace fichas
