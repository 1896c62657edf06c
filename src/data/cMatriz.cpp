#include "data/cMatriz.h"

#include <algorithm>
#include <exception>

namespace tesela {

using automation::Ref;

cMatriz::cMatriz() {
    dimension(1, 1, 1, 0);
    lDimensioned = true;
}

cMatriz::~cMatriz() = default;

void cMatriz::CheckBounds(bool& lActivar) {
    lCheckBounds = lActivar;
}

void cMatriz::Dimension2D(std::int32_t nDesdeCol, std::int32_t nHastaCol, std::int32_t nDesdeRow,
                          std::int32_t nHastaRow) {
    try {
        dimension(nDesdeCol, nHastaCol, nDesdeRow, nHastaRow);
        lDimensioned = true;
    } catch (const std::exception&) {
        lDimensioned = false;
    }
}

/// As `Dimension2D`; throws and changes nothing when memory is out.
void cMatriz::dimension(std::int64_t firstColumn, std::int64_t lastColumn, std::int64_t firstLine,
                        std::int64_t lastLine) {
    const std::int64_t cols = std::max(lastColumn - firstColumn, std::int64_t{0}) + 1;
    const std::int64_t rows = std::max(lastLine - firstLine + 1, std::int64_t{0});
    const bool keep = rows > 0 && nRowCount > 0 && firstColumn == nColBase && cols == nColCount;
    CellBlock old; // ends when the new shape stands
    if (!keep) {
        old = CellBlock(cols, std::max(rows, std::int64_t{1}));
        cells.swap(old);
    } else if (rows > cells.rows()) {
        cells.setRows(rows);
    }
    nColBase = static_cast<std::int32_t>(firstColumn);
    nColCount = static_cast<std::int32_t>(cols);
    nColOffset = 0;
    nRowBase = static_cast<std::int32_t>(firstLine);
    nRowCount = static_cast<std::int32_t>(rows);
    if (keep) cells.setRows(rows);
}

void cMatriz::SetFirstIndex(std::int32_t nCol, std::int32_t nRow) {
    const std::int64_t col = std::int64_t{nColBase} - nCol;
    const std::int64_t row = std::int64_t{nRowBase} - nRow;
    if (inLong(col) != col || inLong(row) != row) return;
    nColOffset = static_cast<std::int32_t>(col);
    nRowOffset = static_cast<std::int32_t>(row);
}

void cMatriz::Clear() {
    nRowCount = 0;
    lDimensioned = true;
    cells.clear();
}

void cMatriz::Pivot() {
    if (nRowCount == 0 || !lDimensioned) return;
    if (nRowCount == nColCount) {
        // The exchange of all pairs passes twice over those that hold neither the first row nor the first
        // column, and undoes itself there.
        for (std::int32_t i = 1; i < nRowCount; ++i)
            cells.at(0, i).swap(cells.at(i, 0));
        return;
    }
    try {
        CellBlock turned = cells.turned(nRowCount);
        cells.swap(turned);
    } catch (const std::exception&) {
        return;
    }
    std::swap(nRowCount, nColCount);
    std::swap(nRowBase, nColBase);
}

void cMatriz::copyFrom(const cMatriz& source) {
    if (&source == this) return;
    CellBlock copy(source.cells);
    cells.swap(copy);
    lDimensioned = source.nColCount >= 1;
    nRowCount = source.nRowCount;
    nRowBase = source.nRowBase;
    nRowOffset = source.nRowOffset;
    nColCount = source.nColCount;
    nColBase = source.nColBase;
    nColOffset = source.nColOffset;
}

bool cMatriz::DataFromMatriz(const Ref<cMatriz>& oSource) {
    if (!oSource) return false;
    try {
        copyFrom(*oSource);
    } catch (const std::exception&) {
        return false;
    }
    return lDimensioned;
}

Ref<cMatriz> cMatriz::Clone() const {
    auto copy = automation::make<cMatriz>();
    copy->copyFrom(*this);
    return copy;
}

Ref<cMatriz> cMatriz::SubMatriz2D(std::int32_t nDesdeLinea, std::int32_t nHastaLinea,
                                  std::int32_t nDesdeColumna, std::int32_t nHastaColumna) const {
    const auto held = [](std::int32_t value, std::int64_t first, std::int32_t count) {
        return std::max(std::min(std::int64_t{value}, first + count - 1), first);
    };
    const std::int64_t fromRow = held(nDesdeLinea, nRowBase, nRowCount);
    const std::int64_t toRow = nRowCount == 0 ? fromRow - 1 : held(nHastaLinea, nRowBase, nRowCount);
    const std::int64_t fromCol = held(nDesdeColumna, nColBase, nColCount);
    const std::int64_t toCol = std::max(held(nHastaColumna, nColBase, nColCount), fromCol);
    auto part = automation::make<cMatriz>();
    part->dimension(fromCol, toCol, fromRow, toRow);
    for (std::int64_t row = fromRow; row <= toRow; ++row)
        for (std::int64_t col = fromCol; col <= toCol; ++col)
            part->cells.at(col - fromCol, row - fromRow) =
                Item(static_cast<std::int32_t>(col), static_cast<std::int32_t>(row));
    return part;
}

} // namespace tesela
