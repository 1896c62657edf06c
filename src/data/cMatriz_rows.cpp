// Rows that come and go.

#include "data/cMatriz.h"

#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "data/cell_order.h"
#include "frame/Globales.h"
#include "host/MsgBox.h"

#include <algorithm>
#include <exception>
#include <new>
#include <utility>
#include <vector>

namespace tesela {

using automation::Error;
using automation::Ref;
using automation::Variant;
namespace errors = automation::errors;

namespace {

void reportTooMany(std::size_t given, std::int32_t columns) {
    host::MsgBox(u"Error en Nº de parámetros: Actuales=" +
                     automation::textOf(static_cast<std::int32_t>(given)) + u"; Esperados=" +
                     automation::textOf(columns) + u".",
                 host::MsgBoxStyle::Exclamation, u"Error en cMatriz.AddRow()");
}

void reportFailure(const Error& error) {
    EnsureInicio();
    globales().oLogFile->WriteLog(u"Error Nº" + automation::textOf(error.number()) + u" en AddRow: " +
                                  error.description());
    if (error.number() == errors::SubscriptOutOfRange) host::MsgBox(u"Error: subíndice fuera de límites");
}

/// Values that do not compare are not equal.
bool areEqual(const Variant& cell, const Variant& value) {
    try {
        return testHeld(cell, [&](const Variant& held) { return automation::isEqual(held, value); });
    } catch (const Error&) {
        return false;
    }
}

bool isAtLeast(const Variant& a, const Variant& b) {
    return automation::testAlike(
        a, b, automation::TextCompare::Binary, [](const auto& x, const auto& y) { return !(x < y); },
        [&] {
            const automation::Comparison order = automation::compare(a, b);
            return order == automation::Comparison::Equal || order == automation::Comparison::Greater;
        });
}

} // namespace

void cMatriz::BeginAddRows(std::int32_t nNumeroPrevisto, std::int32_t nIncrementos) {
    constexpr std::int32_t leastIncrement = 10;
    if (!lDimensioned || bulk.planned > 0) return;
    const std::int32_t planned = std::max(nNumeroPrevisto, 1);
    const std::int64_t last = std::int64_t{nRowBase} + nRowCount + planned - 1;
    if (last > highestLong) return;
    try {
        cells.setRows(std::int64_t{nRowCount} + planned);
    } catch (const std::exception&) {
        return;
    }
    bulk = {planned, std::max(nIncrementos, leastIncrement), nRowCount, static_cast<std::int32_t>(last), 0};
}

std::int32_t cMatriz::EndAddRows() {
    if (bulk.planned < 1) return -1;
    const BulkAddition ended = std::exchange(bulk, {});
    const std::int64_t rows = std::int64_t{ended.startRows} + ended.done;
    if (nRowBase + rows - 1 > 0) {
        // Rows that were taken away meanwhile do not come back, and those in use stay.
        const std::int64_t least = std::max(nRowCount, 1);
        cells.setRows(std::min(std::max(rows, least), std::int64_t{cells.rows()}));
        cells.trim();
    }
    return ended.done;
}

/// Adds a row as `AddRow`; whether it was added.
bool cMatriz::addRow(std::span<const Variant> values) {
    if (!lDimensioned) return false;
    if (values.size() > static_cast<std::size_t>(nColCount)) reportTooMany(values.size(), nColCount);
    try {
        appendRow(values);
        return true;
    } catch (const Error& error) {
        reportFailure(error);
    } catch (const std::bad_alloc&) {
        reportFailure(Error(errors::OutOfMemory));
    }
    return false;
}

void cMatriz::appendRow(std::span<const Variant> values) {
    if (std::int64_t{nRowBase} + nRowCount > highestLong) automation::throwError(errors::Overflow);
    if (bulk.planned > 0) {
        growReserve();
    } else {
        cells.setRows(std::int64_t{nRowCount} + 1);
    }
    putRow(nRowCount, values);
    ++nRowCount;
}

/// Counts one more row of a bulk addition and sees to it that the reserve holds it. Error 9 when other
/// operations have taken from the array what the bookkeeping takes for reserved.
void cMatriz::growReserve() {
    BulkAddition next = bulk;
    ++next.done;
    if (std::int64_t{nRowBase} + next.startRows + next.done - 1 > next.capacityLast) {
        const std::int64_t last = std::int64_t{next.capacityLast} + next.increment;
        if (last > highestLong) automation::throwError(errors::Overflow);
        next.capacityLast = static_cast<std::int32_t>(last);
        cells.setRows(std::max(last - nRowBase + 1, std::int64_t{nRowCount}));
    }
    if (nRowCount >= cells.rows()) automation::throwError(errors::SubscriptOutOfRange);
    bulk = next;
}

/// Overwrites a row of the array from the first column on, as far as there are columns.
void cMatriz::putRow(std::int64_t row, std::span<const Variant> values) {
    std::int32_t col = 0;
    for (const Variant& value : values) {
        if (col >= cells.cols() || row >= cells.rows()) return;
        put(cells.at(col++, row), value);
    }
}

bool cMatriz::AddRowFromMatriz(const Ref<cMatriz>& oMatrizSource, std::int32_t nSourceRow) {
    if (!oMatrizSource) return false;
    const cMatriz& source = *oMatrizSource;
    if (source.firstCol() != firstCol() || source.nColCount != nColCount) return false;
    const std::int64_t row = source.rowPlace(nSourceRow);
    if (row < 0 || !addRow({})) return false;
    for (std::int32_t col = 0; col < nColCount; ++col)
        putAt(col, nRowCount - 1, source.cells.at(col, row));
    return true;
}

void cMatriz::ReplaceCol(std::int32_t nCol, const Variant& xValue, std::int32_t nColFiltro,
                         const Variant& xValueFiltro) {
    const std::int64_t col = colAtPosition(nCol);
    const Variant filter = xValueFiltro.dereferenced();
    const bool isFiltered = !filter.isObject() && !filter.isMissing();
    const std::int64_t filterCol = isFiltered ? colAtPosition(nColFiltro) : 0;
    if (col < 0 || filterCol < 0) return;
    const Variant value = xValue.dereferenced();
    const std::int64_t cols = std::max(col, filterCol) + 1;
    for (std::int64_t row = 0; row < nRowCount && cols <= nColCount; ++row)
        if (!isFiltered || areEqual(cells.at(filterCol, row), filter)) putAt(col, row, value);
}

void cMatriz::UpdateRow(std::int32_t nRow, const automation::ParamArray& aRow) {
    const std::int64_t row = rowAtPosition(nRow);
    if (row >= 0) putRow(row, aRow);
}

bool cMatriz::InsertRowWithData(std::int32_t nRow, bool lAutoDim, const automation::ParamArray& aRow) {
    if (!InsertRow(nRow, lAutoDim)) return false;
    UpdateRow(nRow, aRow);
    return true;
}

bool cMatriz::InsertRow(std::int32_t nRow, bool& lAutoDim) {
    const std::int64_t row = nRow - firstRow();
    if (!lDimensioned || row < 0 || row > nRowCount) return false;
    if (row == nRowCount) return lAutoDim && addRow({});
    if (lAutoDim) {
        if (std::int64_t{nRowBase} + nRowCount > highestLong) return false;
        try {
            cells.setRows(std::int64_t{cells.rows()} + 1);
        } catch (const std::exception&) {
            return false;
        }
        ++nRowCount;
    }
    const CellBlock::Ending ending = cells.openRow(row, nRowCount - 1);
    return true;
}

bool cMatriz::DeleteRow(std::int32_t nRow, bool& lAutoDim) {
    const std::int64_t row = rowPlace(nRow);
    if (row < 0) return false;
    const std::int64_t last = nRowCount - 1;
    if (!lAutoDim) {
        if (row == last) return true;
        const CellBlock::Ending ending = cells.closeRow(row, last);
        cells.copyRow(last - 1, last);
    } else if (last == 0) {
        Clear();
    } else {
        const CellBlock::Ending ending = cells.closeRow(row, last);
        --nRowCount;
        cells.setRows(cells.rows() - 1);
    }
    return true;
}

bool cMatriz::DeleteRows(std::int32_t nColumn, const Variant& xMinValue, const Variant& xMaxValue) {
    return FilterRows(nColumn, xMinValue, xMaxValue, true);
}

bool cMatriz::FilterRows(std::int32_t nColumn, const Variant& xMinValue, const Variant& xMaxValue,
                         bool lDelete) {
    const std::int64_t col = colPlace(nColumn);
    if (col < 0 || nRowCount == 0) return false;
    // All comparisons come before any row moves: they may fail.
    try {
        const Variant least = automation::value(xMinValue), most = automation::value(xMaxValue);
        const auto stays = [&](const Variant& cell) {
            return lDelete ? automation::isLess(cell, least) || automation::isLess(most, cell)
                           : isAtLeast(cell, least) && isAtLeast(most, cell);
        };
        std::vector<std::int32_t> keep;
        for (std::int32_t row = 0; row < nRowCount && col < nColCount; ++row)
            if (testHeld(cells.at(col, row), stays)) keep.push_back(row);
        keepRows(keep);
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

void cMatriz::keepRows(std::span<const std::int32_t> keep) {
    if (keep.empty()) return Clear();
    if (keep.back() >= nRowCount) return; // a comparison has changed the table meanwhile
    cells.gatherRows(keep);
    nRowCount = static_cast<std::int32_t>(keep.size());
    cells.setRows(nRowCount);
}

} // namespace tesela
