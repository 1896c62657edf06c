// Sums, groups, duplicates, and the walk through the rows.

#include "data/cMatriz.h"

#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "automation/Operators.h"
#include "automation/Strings.h"
#include "data/cell_order.h"
#include "data/column_keys.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <string>
#include <unordered_map>
#include <vector>

namespace tesela {

using automation::Currency;
using automation::Ref;
using automation::Variant;

namespace {

void addTo(Variant& total, const Variant& cell) {
    if (total.type() == automation::VT_R8 && cell.type() == automation::VT_R8) {
        const double sum = total.asDouble() + cell.asDouble();
        if (std::isfinite(sum)) {
            total = sum;
            return;
        }
    }
    total = automation::add(total, cell.isObject() ? automation::value(Variant(cell)) : cell);
}

/// Rounded to so many decimals, halves away from 0.
double rounded(double value, std::int32_t decimals) {
    constexpr double half = 0.5;
    const double scale = std::pow(10.0, decimals);
    const double scaled = value * scale;
    if (!std::isfinite(scaled)) automation::throwError(automation::errors::Overflow);
    return std::trunc(scaled + (value < 0 ? -half : value > 0 ? half : 0)) / scale;
}

/// Finds the first of equal rows by bytes that stand for the cells of some columns.
class EqualRows {
public:
    explicit EqualRows(std::size_t rows) { firsts_.reserve(rows); }
    /// The number under which the key came first; `number` if that is now.
    std::int32_t firstWith(const std::string& key, std::int32_t number) {
        return firsts_.try_emplace(key, number).first->second;
    }

private:
    std::unordered_map<std::string, std::int32_t> firsts_;
};

struct Pair {
    std::int32_t first = -1, second = -1;
    bool found() const { return first >= 0; }
};

bool isSkipped(const Variant& value, const Variant& skip) {
    return skip.type() != automation::VT_BOOL && automation::isEqual(value, skip);
}

/// The first two equal values by comparing each with all that follow.
Pair firstPairByComparing(const std::vector<Variant>& values, const Variant& skip) {
    for (std::size_t i = 0; i + 1 < values.size(); ++i) {
        if (isSkipped(values[i], skip)) continue;
        for (std::size_t j = i + 1; j < values.size(); ++j)
            if (automation::isEqual(values[i], values[j]))
                return {static_cast<std::int32_t>(i), static_cast<std::int32_t>(j)};
    }
    return {};
}

/// The same for values of one kind, by looking at each once.
Pair firstPairByKeys(const std::vector<Variant>& values, ColumnKind kind, const Variant& skip) {
    Pair pair;
    EqualRows rows(values.size());
    std::string key;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i].isNull() || isSkipped(values[i], skip)) continue;
        key.clear();
        appendKey(values[i], kind, TextOrder::Units, key);
        const std::int32_t row = static_cast<std::int32_t>(i);
        const std::int32_t first = rows.firstWith(key, row);
        if (first != row && (!pair.found() || first < pair.first)) pair = {first, row};
    }
    return pair;
}

} // namespace

void cMatriz::addUp(Variant& total, std::int32_t nIndex, bool lRow) const {
    const std::int64_t line = lRow ? rowPlace(nIndex) : colPlace(nIndex);
    for (std::int32_t place = 0; place < (lRow ? nColCount : nRowCount); ++place) {
        if (line < 0 || line >= (lRow ? nRowCount : nColCount))
            automation::throwError(automation::errors::SubscriptOutOfRange);
        addTo(total, lRow ? cells.at(place, line) : cells.at(line, place));
    }
}

Variant cMatriz::Sum(std::int32_t nIndex, bool lRow, std::int32_t nDecimales) const {
    Variant total;
    try {
        addUp(total, nIndex, lRow);
        if (nDecimales > -1) total = rounded(automation::CDbl(total), nDecimales);
    } catch (const std::exception&) {
        // What was reached is the result.
    }
    return total;
}

bool cMatriz::Scan(std::int32_t nFromRow) {
    if (nRowCount == 0) return lScanning = false;
    if (lScanning) {
        lScanning = nScanRow < LastRow();
        if (nScanRow < highestLong) ++nScanRow;
    } else {
        nScanRow = nFromRow == ScanFromFirst ? FirstRow() : nFromRow;
        lScanning = rowPlace(nScanRow) >= 0;
    }
    return lScanning;
}

bool cMatriz::CheckDuplicates(std::int32_t nCol, std::int32_t& nFirstFound, std::int32_t& nSecondFound,
                              const Variant& xValueToSkip, bool lIgnoreCase) const {
    const std::int64_t col = colAtPosition(nCol);
    if (col < 0 || nRowCount == 0) return false;
    try {
        const bool inCapitals = lIgnoreCase && cells.at(col, 0).isString();
        const auto prepared = [inCapitals](const Variant& value) {
            return inCapitals && !value.isNull() ? Variant(automation::UCase(automation::CStr(value)))
                                                 : value;
        };
        Variant skip = automation::value(xValueToSkip);
        if (skip.type() != automation::VT_BOOL) skip = prepared(skip);
        std::vector<Variant> values;
        values.reserve(static_cast<std::size_t>(nRowCount));
        for (std::int32_t row = 0; row < nRowCount && col < nColCount; ++row)
            values.push_back(prepared(Variant(cells.at(col, row))));
        const ColumnKind kind = traitsOf({values.data(), 1, values.size()}).kind;
        const Pair pair = kind == ColumnKind::Mixed ? firstPairByComparing(values, skip)
                                                    : firstPairByKeys(values, kind, skip);
        if (!pair.found()) return false;
        nFirstFound = pair.first + 1;
        nSecondFound = pair.second + 1;
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

namespace {

/// The elements of an array of logical columns; none for what is no array.
std::vector<std::int32_t> numbersOf(const Variant& list) {
    std::vector<std::int32_t> numbers;
    const Variant source = list.dereferenced();
    if (!source.isArray()) return numbers;
    for (std::size_t place = 0; place < source.asArray().size(); ++place)
        numbers.push_back(automation::CLng(source.asArray().element(place)));
    return numbers;
}

/// Finds the group that a row belongs to. Where the columns are of one kind each it is by bytes, else by
/// comparing with each group.
class GroupFinder {
public:
    GroupFinder(const CellBlock& cells, std::int32_t rows, std::span<const std::int64_t> cols)
        : cells_(cells), cols_(cols), equalRows_(0) {
        for (const std::int64_t col : cols) {
            kinds_.push_back(traitsOf({&cells.at(col, 0), static_cast<std::size_t>(cells.cols()),
                                       static_cast<std::size_t>(rows)})
                                 .kind);
            isByKeys_ &= kinds_.back() != ColumnKind::Mixed;
        }
    }

    /// The group of the row, or -1 if it is a new one, which then is number `next`. `groups` are the cells of
    /// those there are, from the column `firstCol` on.
    std::int32_t find(std::int64_t row, std::int32_t next, const CellBlock& groups, std::int64_t firstCol) {
        return isByKeys_ ? findByKey(row, next) : findByComparing(row, next, groups, firstCol);
    }

private:
    std::int32_t findByKey(std::int64_t row, std::int32_t next) {
        key_.clear();
        for (std::size_t i = 0; i < cols_.size(); ++i) {
            const Variant& cell = cells_.at(cols_[i], row);
            if (cell.isNull()) return -1; // equal to no other
            appendKey(cell, kinds_[i], TextOrder::Units, key_);
        }
        const std::int32_t first = equalRows_.firstWith(key_, next);
        return first == next ? -1 : first;
    }

    std::int32_t findByComparing(std::int64_t row, std::int32_t next, const CellBlock& groups,
                                 std::int64_t firstCol) const {
        std::vector<Variant> cells; // held: their comparison may change the table
        for (const std::int64_t col : cols_)
            cells.push_back(cells_.at(col, row));
        for (std::int32_t group = 0; group < next; ++group) {
            std::size_t i = 0;
            while (i < cells.size() &&
                   automation::isEqual(groups.at(firstCol + static_cast<std::int64_t>(i), group), cells[i]))
                ++i;
            if (i == cells.size()) return group;
        }
        return -1;
    }

    const CellBlock& cells_;
    std::span<const std::int64_t> cols_;
    std::vector<ColumnKind> kinds_;
    bool isByKeys_ = true;
    EqualRows equalRows_;
    std::string key_;
};

} // namespace

Ref<cMatriz> cMatriz::CrearMatrizAgrupada(const Variant& axColumnsSelected,
                                          const Variant& axColumnsGroup) const {
    auto result = automation::make<cMatriz>();
    try {
        const std::vector<std::int32_t> selected = numbersOf(axColumnsSelected);
        const std::vector<std::int32_t> grouped = numbersOf(axColumnsGroup);
        result->dimension(1, static_cast<std::int64_t>(selected.size() + grouped.size()), 1, 0);
        std::vector<std::int64_t> totals, groups;
        const auto place = [this](std::int32_t nCol) { return colPlace(nCol); };
        std::transform(selected.begin(), selected.end(), std::back_inserter(totals), place);
        std::transform(grouped.begin(), grouped.end(), std::back_inserter(groups), place);
        const auto isOutside = [](std::int64_t col) { return col < 0; };
        if (nRowCount == 0 || std::any_of(totals.begin(), totals.end(), isOutside) ||
            std::any_of(groups.begin(), groups.end(), isOutside))
            return result;
        group(*result, totals, groups);
    } catch (const std::exception&) {
        // What was reached is the result.
    }
    return result;
}

/// Adds the groups to an empty table, totals first.
void cMatriz::group(cMatriz& result, std::span<const std::int64_t> totals,
                    std::span<const std::int64_t> groups) const {
    const std::int32_t cols = nColCount;
    const auto firstGroup = static_cast<std::int64_t>(totals.size());
    GroupFinder finder(cells, nRowCount, groups);
    for (std::int32_t row = 0; row < nRowCount; ++row) {
        std::int32_t line = finder.find(row, result.nRowCount, result.cells, firstGroup);
        if (row >= nRowCount || nColCount != cols) return; // a comparison has changed the table
        if (line < 0) {
            line = result.nRowCount;
            result.appendRow({});
            for (std::int64_t col = 0; col < firstGroup; ++col)
                result.cells.at(col, line) = Currency();
            for (std::size_t i = 0; i < groups.size(); ++i)
                result.cells.at(firstGroup + static_cast<std::int64_t>(i), line) = cells.at(groups[i], row);
        }
        for (std::int64_t col = 0; col < firstGroup; ++col) {
            if (row >= nRowCount || nColCount != cols) return;
            addTo(result.cells.at(col, line), cells.at(totals[static_cast<std::size_t>(col)], row));
        }
    }
}

} // namespace tesela
