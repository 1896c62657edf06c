// Rows found by their values.

#include "data/cMatriz.h"

#include "automation/Characters.h"
#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/Format.h"
#include "automation/LateBound.h"
#include "automation/Strings.h"
#include "data/cell_order.h"
#include "frame/Globales.h"

#include <exception>
#include <optional>

namespace tesela {

using automation::String;
using automation::Variant;

namespace {

String datePattern() {
    EnsureInicio();
    return longDatePattern();
}

String upperText(const Variant& value) {
    return automation::UCase(automation::CStr(value));
}

bool qualifies(std::int32_t mode, int order) {
    switch (mode) {
    case tslMatrizFindCompareIgual:
        return order == 0;
    case tslMatrizFindCompareMenorIgual:
        return order < 1;
    case tslMatrizFindCompareMayorIgual:
        return order >= 0;
    case tslMatrizFindCompareMenor:
        return order < 0;
    case tslMatrizFindCompareMayor:
        return order >= 1;
    case tslMatrizFindCompareDistinto:
        return order != 0;
    default:
        return false;
    }
}

/// Compares cells with one value.
class Searched {
public:
    Searched(const Variant& value, bool collate) : value_(value), collate_(collate) {}

    int operator()(const Variant& cell) const {
        if (collate_ && cell.isString()) return TS_Compara(cell.asString(), text());
        if (collate_) return hostOrder(cell, value_);
        // What does not compare with the value, such as a Null, counts as greater here.
        return automation::isEqual(cell, value_) ? 0 : automation::isLess(cell, value_) ? -1 : 1;
    }

    /// Whether a text is another for certain: it begins with another letter or digit.
    bool isOtherText(const Variant& cell) const {
        if (!collate_ || !cell.isString() || cell.asString().empty() || text().empty()) return false;
        const char16_t a = cell.asString()[0], b = text()[0];
        return isPlain(a) && isPlain(b) && (a | caseBit) != (b | caseBit);
    }

private:
    static constexpr char16_t caseBit = 0x20;
    static bool isPlain(char16_t unit) {
        return automation::isAsciiLetter(unit) || automation::isDigit(unit);
    }
    const String& text() const {
        if (!text_) text_ = automation::CStr(value_);
        return *text_;
    }

    const Variant& value_;
    bool collate_;
    mutable std::optional<String> text_; ///< Made for the first text it is compared with: there may be none
};

/// A search in an ordered column, by halving it. Rows count from 0.
class HalvingSearch {
public:
    struct Result {
        bool found;
        std::int64_t row;
    };

    HalvingSearch(const CellBlock& cells, std::int64_t col, std::int32_t rows, std::int32_t rowBase,
                  bool collate, const Variant& value)
        : cells_(cells), col_(col), last_(rows - 1), base_(rowBase), collate_(collate), value_(value) {
        const Variant first = cell(0), end = cell(last_);
        text_ = automation::RTrim(automation::CStr(value));
        isDescending_ = last_ > 0 && compareCells(first, end, collate_) > 0;
        switch (first.type()) {
        case automation::VT_DATE:
            prepareDates(first, end);
            break;
        case automation::VT_BSTR:
        case automation::VT_BOOL:
            kind_ = Kind::Text;
            text_ = automation::UCase(text_);
            bytes_ = text_.ansi();
            break;
        default:
            whole_ = wholeNumber(value);
            break;
        }
    }

    Result exact() const {
        return halve([&](std::int64_t low, std::int64_t middle, std::int64_t high) -> std::optional<Result> {
            const auto isValue = [&](const Variant& held) { return automation::isEqual(held, value_); };
            if (testHeld(at(middle), isValue)) return Result{true, middle};
            if (low >= high) return Result{false, middle};
            return {};
        });
    }

    Result approximate() const {
        constexpr std::int64_t window = 4; // so near the end the rest is looked through
        return halve([&](std::int64_t low, std::int64_t, std::int64_t high) -> std::optional<Result> {
            if (low + window >= high) return lookThrough(low, high);
            return {};
        });
    }

private:
    enum class Kind { Number, Date, Text };

    static constexpr int stepsAhead = 2;

    const Variant& at(std::int64_t row) const {
        if (row < 0 || row >= cells_.rows() || col_ >= cells_.cols())
            automation::throwError(automation::errors::SubscriptOutOfRange);
        return cells_.at(col_, row);
    }
    Variant cell(std::int64_t row) const { return at(row); }

    static std::optional<std::int32_t> wholeNumber(const Variant& value) {
        switch (value.type()) {
        case automation::VT_UI1:
            return value.asByte();
        case automation::VT_I2:
            return value.asInteger();
        case automation::VT_I4:
            return value.asLong();
        default:
            return {};
        }
    }

    void prepareDates(const Variant& first, const Variant& end) {
        kind_ = Kind::Date;
        pattern_ = datePattern();
        if (!text_.empty())
            text_ += automation::Format(automation::Today(), pattern_).substring(text_.length());
        isDescending_ = automation::CDate(first) > automation::CDate(end);
    }

    String textOf(const Variant& cell) const {
        return kind_ == Kind::Date ? automation::Format(cell, pattern_) : upperText(cell);
    }

    bool isSame(const String& rowText) const {
        return collate_ ? TS_Compara(rowText, text_) == 0 : rowText == text_;
    }

    /// Whether the searched text lies before a row's in ascending order.
    bool isBefore(const String& rowText) const {
        switch (kind_) {
        case Kind::Number:
            if (!number_) number_ = automation::doubleFromText(text_);
            return *number_ < automation::doubleFromText(rowText);
        case Kind::Date:
            if (!date_) date_ = automation::dateFromText(text_);
            return *date_ < automation::dateFromText(rowText);
        default:
            return compareCells(text_, rowText, collate_) < 0;
        }
    }

    /// The order of a row's text and the searched one where the row's need not be made for it: whole numbers
    /// compare as their texts do, and capitals can be compared without writing them down.
    std::optional<int> orderAsIs(const Variant& cell) const {
        if (kind_ == Kind::Text && collate_ && cell.isString())
            return compareCapitals(cell.asString(), bytes_);
        const auto number = whole_ ? wholeNumber(cell) : std::nullopt;
        if (!number) return {};
        return *number < *whole_ ? -1 : *number > *whole_ ? 1 : 0;
    }

    std::int64_t middleOf(std::int64_t low, std::int64_t high) const {
        return (low + high + 2 * base_) / 2 - base_;
    }

    /// Sends for the memory of the rows that may come in the next steps, of which the search would wait for
    /// each: the cells of those `steps` steps away, and the texts of those a step nearer.
    void fetch(std::int64_t low, std::int64_t high, int steps) const {
        if (low > high) return;
        const std::int64_t middle = middleOf(low, high);
        const Variant& cell = cells_.at(col_, middle);
        if (steps == 0) {
            __builtin_prefetch(&cell);
            return;
        }
        if (steps == 1 && cell.isString()) __builtin_prefetch(cell.asString().c_str());
        fetch(low, middle - 1, steps - 1);
        fetch(middle + 1, high, steps - 1);
    }

    /// Halves the rows until the text is found, `look` has a result, or none are left.
    template <class Look>
    Result halve(Look look) const {
        std::int64_t low = 0, high = last_;
        for (;;) {
            const std::int64_t middle = middleOf(low, high);
            if (kind_ == Kind::Text && last_ < cells_.rows() && col_ < cells_.cols())
                fetch(low, high, stepsAhead);
            const std::optional<int> order = orderAsIs(at(middle));
            const String rowText = order ? String() : textOf(cell(middle));
            if (order ? *order == 0 : isSame(rowText)) return {true, middle};
            if (const auto result = look(low, middle, high)) return *result;
            const bool isBeforeRow = order ? *order > 0 : isBefore(rowText);
            if (isBeforeRow != isDescending_) {
                high = middle - 1;
            } else {
                low = middle + 1;
            }
            if (low > high) return {false, middle};
        }
    }

    /// The searched value, or a row's, in the type of the column.
    Variant typed(const Variant& value) const {
        switch (kind_) {
        case Kind::Number:
            return automation::CDbl(value);
        case Kind::Date:
            return automation::CDate(value);
        default:
            return upperText(value).left(text_.length());
        }
    }

    /// Walks in ascending order from one row before to one row behind.
    Result lookThrough(std::int64_t low, std::int64_t high) const {
        const Variant searched = typed(text_);
        low = std::max(low - 1, std::int64_t{0});
        high = std::min(high + 1, last_);
        const std::int64_t step = isDescending_ ? -1 : 1;
        const std::int64_t end = isDescending_ ? low : high;
        for (std::int64_t row = isDescending_ ? high : low;; row += step) {
            const int order = compareCells(typed(cell(row)), searched, collate_);
            if (order == 0) return {true, row};
            if (order > 0) return {false, row - step};
            if (row == end) return {false, row};
        }
    }

    const CellBlock& cells_;
    std::int64_t col_;
    std::int64_t last_;
    std::int64_t base_;
    bool collate_;
    const Variant& value_;
    Kind kind_ = Kind::Number;
    String text_;
    std::string bytes_;                 ///< The searched text in a column of texts, in the ANSI code page
    std::optional<std::int32_t> whole_; ///< The searched number in a column of numbers, if it is a whole one
    mutable std::optional<double> number_;         ///< Read from the text when a row of numbers asks for it,
    mutable std::optional<automation::Date> date_; ///< and of dates: it may not be one
    String pattern_;
    bool isDescending_ = false;
};

} // namespace

/// The first row whose cell in the column qualifies, or -1.
template <class Test>
std::int64_t cMatriz::firstRowWhere(std::int64_t col, Test test) const {
    for (std::int32_t row = 0; row < nRowCount && col < nColCount; ++row)
        if (testHeld(cells.at(col, row), test)) return row;
    return -1;
}

std::int64_t cMatriz::findRow(const Variant& searched, std::int64_t col, std::int32_t mode) const {
    const bool ignoreCase = (mode & tslMatrizFindCompareIgnoreCase) != 0;
    const std::int32_t comparison = mode & tslMatrizFindCompareMaskModes;
    if (comparison == tslMatrizFindCompareAproximada) return findText(searched, col, ignoreCase);
    if (ignoreCase) {
        const Variant capitals = upperText(searched);
        const Searched order(capitals, lTextCompare);
        return firstRowWhere(
            col, [&](const Variant& cell) { return qualifies(comparison, order(upperText(cell))); });
    }
    const Searched order(searched, lTextCompare);
    if (comparison == tslMatrizFindCompareIgual)
        return firstRowWhere(
            col, [&](const Variant& cell) { return !order.isOtherText(cell) && order(cell) == 0; });
    return firstRowWhere(col, [&](const Variant& cell) { return qualifies(comparison, order(cell)); });
}

/// The first row whose text begins with the value's.
std::int64_t cMatriz::findText(const Variant& searched, std::int64_t col, bool ignoreCase) const {
    const bool areDates = nRowCount > 0 && cells.at(col, 0).type() == automation::VT_DATE;
    const String pattern = areDates ? datePattern() : String();
    String start = automation::RTrim(automation::CStr(searched));
    if (ignoreCase) start = automation::UCase(start);
    return firstRowWhere(col, [&](const Variant& cell) {
        String text = areDates ? automation::Format(cell, pattern) : automation::CStr(cell);
        if (ignoreCase) text = automation::UCase(text);
        text = text.left(start.length());
        return lTextCompare ? TS_Compara(text, start) == 0 : text == start;
    });
}

bool cMatriz::FindRow(const Variant& xValue, std::int32_t nCol, std::int32_t& nRet,
                      std::int32_t nModoComparacion) const {
    nRet = 0;
    const std::int64_t col = colPlace(nCol);
    if (col < 0) return false;
    try {
        const std::int64_t row = findRow(automation::value(xValue), col, nModoComparacion);
        if (row < 0) return false;
        nRet = inLong(firstRow() + row);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

Variant cMatriz::Lookup(const Variant& xSearchedValue, std::int32_t nSearchedColumn,
                        std::int32_t nReturnedColumn, const Variant& xDefaultValue,
                        std::int32_t nDefaultRow) const {
    std::int32_t row = 0;
    if (FindRow(xSearchedValue, nSearchedColumn, row)) return Item(nReturnedColumn, row);
    return xDefaultValue.isMissing() ? Item(nReturnedColumn, nDefaultRow) : xDefaultValue;
}

bool cMatriz::SeekRow(const Variant& xValue, std::int32_t nCol, std::int32_t& nRet, bool lAproximada) const {
    nRet = 0;
    const std::int64_t col = colPlace(nCol);
    if (col < 0 || nRowCount == 0) return false;
    try {
        const Variant value = automation::value(xValue);
        const HalvingSearch search(cells, col, nRowCount, nRowBase, lTextCompare, value);
        const HalvingSearch::Result result = lAproximada ? search.approximate() : search.exact();
        nRet = inLong(firstRow() + result.row);
        return result.found;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace tesela
