#pragma once

#include "automation/Argument.h"
#include "automation/Enumeration.h"
#include "automation/Object.h"
#include "automation/String.h"
#include "automation/Variant.h"
#include "data/CellBlock.h"
#include "data/row_order.h"

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <utility>

namespace tesela {

/// How a key orders the rows.
enum tslMatriz_SortConstants : std::int32_t {
    tslMatriz_Sort_Unsorted = 0, ///< The key is not used
    tslMatriz_Sort_Ascending = 1,
    tslMatriz_Sort_Descending = 2,
};

/// Which rows a search finds: those whose cell is so to the value.
enum tslMatrizFindCompareConstants : std::int32_t {
    tslMatrizFindCompareIgual = 0,
    tslMatrizFindCompareMenorIgual = 1,
    tslMatrizFindCompareMayorIgual = 2,
    tslMatrizFindCompareMenor = 3,
    tslMatrizFindCompareMayor = 4,
    tslMatrizFindCompareDistinto = 5,
    tslMatrizFindCompareAproximada = 6, ///< Text that begins with the value
    tslMatrizFindCompareMaskModes = 255,
    tslMatrizFindCompareIgnoreCase = 256, ///< Added to one of the others
};

const automation::Enumeration& enumerationOf(tslMatriz_SortConstants);
const automation::Enumeration& enumerationOf(tslMatrizFindCompareConstants);

/// A table of values, the type in which the library passes lists and tables around. Rows and columns have two
/// numbers: the physical one, which `Dimension2D` states, and the logical one, which most members take: it is
/// shifted by `SetFirstIndex` without moving a cell. Some members take a position instead, which counts from
/// 1 whatever the numbers are. A number that there is not is no error: it reads as Null, and what is to be
/// written there is dropped. A table has at least one column; it may have no rows. A number beyond a Long
/// stops at its end.
///
/// Rows that are added one by one with `AddRow` each count as a new dimensioning. `BeginAddRows` reserves
/// rows beforehand; until `EndAddRows` the array then has more rows than are in use, which only `GetArray`
/// and `GetVariant` show. Other operations leave the bookkeeping of the reserve alone: what they take from
/// the array is not added again.
///
/// When memory is out, or a size is absurd, the table stays as it was. So it does when values do not
/// compare while rows are filtered.
class cMatriz : public automation::Object {
public:
    static constexpr std::int32_t NoLastRow = -2147483647; ///< `Dimension2D`: a table without rows
    static constexpr std::int32_t FirstSortColumn = -2100000000;
    static constexpr std::int32_t ScanFromFirst = -2147483647;
    static constexpr std::int32_t lowestLong = std::numeric_limits<std::int32_t>::min();
    static constexpr std::int32_t highestLong = std::numeric_limits<std::int32_t>::max();

    /// One column, no rows, both numbered from 1.
    cMatriz();
    ~cMatriz() override;

    // Shape

    std::int32_t Rows() const { return nRowCount; }
    std::int32_t Cols() const { return nColCount; }
    std::int32_t FirstRow() const { return inLong(firstRow()); }
    std::int32_t FirstCol() const { return inLong(firstCol()); }
    std::int32_t LastRow() const { return inLong(firstRow() + nRowCount - 1); }
    std::int32_t LastCol() const { return inLong(firstCol() + nColCount - 1); }

    /// Whether subscripts are held to the rows in use; without, the reserved rows are reached too.
    void CheckBounds(bool& lActivar);
    /// Physical numbers of the first and last column and row. A last column below the first is raised to it;
    /// a last row below the first empties the table. Cells stay, in their order, where columns keep their
    /// numbers. Logical columns become the physical ones, logical rows keep their shift. When this fails
    /// the cells are out of reach until the table is dimensioned anew.
    void Dimension2D(std::int32_t nDesdeCol, std::int32_t nHastaCol, std::int32_t nDesdeRow = 0,
                     std::int32_t nHastaRow = NoLastRow);
    /// Gives the first column and row these logical numbers; numbers out of a Long change nothing.
    void SetFirstIndex(std::int32_t nCol, std::int32_t nRow);
    /// Takes all rows away. Columns, and both numberings, stay.
    void Clear();
    /// Exchanges rows and columns, but for a square table the first row and the first column alone.
    void Pivot();

    // Cells

    /// A copy of the cell at logical numbers, Null where there is none.
    automation::Variant Item(std::int32_t nCol, std::int32_t nRow = -1) const {
        const automation::Variant* cell = reach(nCol, nRow);
        return cell ? *cell : automation::Variant::null();
    }
    void Item(std::int32_t nCol, std::int32_t nRow, const automation::Variant& value) {
        if (automation::Variant* cell = reach(nCol, nRow)) put(*cell, value);
    }

    // From and to other shapes

    /// Fills a table of `nLineas` rows by `nColumnas` columns, both from 1, row by row. True if there was a
    /// value for each cell. More values, or a failure, show a message and tell the application's assertion
    /// object.
    bool DataFromParameters(std::int32_t nColumnas, std::int32_t nLineas,
                            const automation::ParamArray& aParamSource);
    /// One column from 1, rows as the array numbers its elements. False for anything but an array of one
    /// dimension.
    bool DataFromVariant1D(automation::Variant& aNew);
    /// As `DataFromArray`; False for what is no array.
    bool DataFromVariant2D(automation::Variant& aSource);
    /// Takes an array of two dimensions, columns first, with its bounds; False for any other.
    bool DataFromArray(const automation::Array& aNew);
    /// Becomes a copy, reserved rows too; False for Nothing.
    bool DataFromMatriz(const automation::Ref<cMatriz>& oSource);
    /// The records of an object of type "Recordset", fields as columns, through MoveFirst and GetRows; False
    /// for other objects and where these give no table.
    bool DataFromRecordSet(const automation::Ref<automation::Object>& oRS);
    /// The records of an object of type "cDatos", through FieldCount, RecCount, Scan and
    /// Field_ByColumnNumber. Records that it scans beyond RecCount are left out; errors of the object are
    /// passed on.
    bool DataFromDatos(const automation::Ref<automation::Object>& oDatos);
    /// Cuts a text at each `cSeparator` (one character) and fills rows of `nTotalColumnas` columns with the
    /// pieces, numbered from 1. `cTipos` has a letter for each column and then says how many there are: N
    /// Double, M Currency, D Date, L Boolean, others text, converted as the user's locale writes them. An
    /// incomplete last row empties the table; a piece that does not convert does so too, with a message.
    bool DataFromString(const automation::String& cCadena, const automation::String& cSeparator,
                        std::int32_t nTotalColumnas = 0, const automation::String& cTipos = {});
    automation::Ref<cMatriz> Clone() const;
    /// A copy of the cells, columns first, with the physical numbers; reserved rows too.
    automation::Array GetArray() const;
    automation::Variant GetVariant() const { return GetArray(); }
    /// A table of the cells between these physical numbers, each held to what there is. The cells are read by
    /// logical numbers: it is what was asked for while both are the same.
    automation::Ref<cMatriz> SubMatriz2D(std::int32_t nDesdeLinea = lowestLong,
                                         std::int32_t nHastaLinea = highestLong,
                                         std::int32_t nDesdeColumna = lowestLong,
                                         std::int32_t nHastaColumna = highestLong) const;

    // Rows

    /// Reserves so many rows (at least 1) and takes so many more (at least 10) when they are used up. Nothing
    /// happens while that is so already.
    void BeginAddRows(std::int32_t nNumeroPrevisto = 100, std::int32_t nIncrementos = 100);
    /// Gives the rest of the reserve back; rows added since, or -1 if nothing was reserved.
    std::int32_t EndAddRows();
    /// Adds a row with these values from the first column on and Empty cells behind. Too many are left out,
    /// with a message; other failures are logged.
    void AddRow(const automation::ParamArray& aRow) { addRow(aRow); }
    /// Adds a copy of a row, by its logical number, of a table with the same columns; False otherwise.
    bool AddRowFromMatriz(const automation::Ref<cMatriz>& oMatrizSource, std::int32_t nSourceRow);
    /// Writes the value to all rows of the column at a position, or with a filter to those rows whose cell at
    /// the position `nColFiltro` is equal to `xValueFiltro`; an object counts as no filter.
    void ReplaceCol(std::int32_t nCol, const automation::Variant& xValue, std::int32_t nColFiltro = 0,
                    const automation::Variant& xValueFiltro = automation::Variant::missing());
    /// Overwrites the row at a position from the first column on.
    void UpdateRow(std::int32_t nRow, const automation::ParamArray& aRow);
    /// `InsertRow`, then the values overwrite the row at the *position* `nRow`.
    bool InsertRowWithData(std::int32_t nRow, bool lAutoDim, const automation::ParamArray& aRow);
    /// Makes room at a logical number: the rows from there on move one down and the row stays as a copy of
    /// itself. One past the last an Empty row is added. Without `lAutoDim` the table keeps its length and the
    /// last row is lost. False where there is no such row.
    bool InsertRow(std::int32_t nRow, bool& lAutoDim);
    bool InsertRow(std::int32_t nRow) {
        bool lAutoDim = true;
        return InsertRow(nRow, lAutoDim);
    }
    /// Takes a row away by its logical number. Without `lAutoDim` the table keeps its length and the last row
    /// stands there twice.
    bool DeleteRow(std::int32_t nRow, bool& lAutoDim);
    bool DeleteRow(std::int32_t nRow) {
        bool lAutoDim = true;
        return DeleteRow(nRow, lAutoDim);
    }
    /// Takes away the rows whose cell in the logical column lies between the two values, both included, and
    /// those whose cell is Null. False for a column that there is not, an empty table, and values that do not
    /// compare.
    bool DeleteRows(std::int32_t nColumn, const automation::Variant& xMinValue,
                    const automation::Variant& xMaxValue);
    /// Keeps the rows whose cell lies between the two values, ends included, or with `lDelete` those whose
    /// cell lies outside; rows with a Null there go either way.
    bool FilterRows(std::int32_t nColumn, const automation::Variant& xMinValue,
                    const automation::Variant& xMaxValue, bool lDelete = false);

    // Order. The numbers are logical ones.

    /// Whether texts compare as a Spanish dictionary orders them, or else by their units; True at first.
    bool TextCompare() const { return lTextCompare; }
    void TextCompare(bool value) { lTextCompare = value; }
    /// Sorts the rows by up to five columns (`tslMatriz_SortConstants`); the first mode of 0 ends the list.
    /// Rows that are equal in all of them come in any order. False, changing nothing, without a first key,
    /// for a column that there is not and for fewer than two rows. Values that do not compare end the sort
    /// with the rows in the order that they had reached; every later sort of this table then fails at once.
    bool QSort(std::int32_t nCol1, std::int32_t nModoCol1 = tslMatriz_Sort_Ascending, std::int32_t nCol2 = 0,
               std::int32_t nModoCol2 = 0, std::int32_t nCol3 = 0, std::int32_t nModoCol3 = 0,
               std::int32_t nCol4 = 0, std::int32_t nModoCol4 = 0, std::int32_t nCol5 = 0,
               std::int32_t nModoCol5 = 0);
    /// Sorts by one column, by default the first. Without the quick sort, or where that fails, texts are
    /// ordered without regard to case and Null as "" or 0, by the type of the first row's cell; when not even
    /// that compares the rows stay as they are.
    void SortOnColumn(std::int32_t nColumn = FirstSortColumn, bool lAscending = true,
                      bool lUseQuickSort = true);

    // Search. Failures count as not found. `nRet` receives a logical number, 0 when nothing was found.

    /// The cell of the first row whose searched column is equal to the value. Without such a row it is the
    /// default value, or where none is given the cell of the row `nDefaultRow`.
    automation::Variant Lookup(const automation::Variant& xSearchedValue, std::int32_t nSearchedColumn,
                               std::int32_t nReturnedColumn,
                               const automation::Variant& xDefaultValue = automation::Variant::missing(),
                               std::int32_t nDefaultRow = 0) const;
    /// The first row whose cell is to the value as the mode says (`tslMatrizFindCompareConstants`). Among
    /// texts that compare as in a dictionary a Null is equal to everything.
    bool FindRow(const automation::Variant& xValue, std::int32_t nCol, std::int32_t& nRet,
                 std::int32_t nModoComparacion = tslMatrizFindCompareIgual) const;
    bool FindRow(const automation::Variant& xValue, std::int32_t nCol) const {
        std::int32_t nRet = 0;
        return FindRow(xValue, nCol, nRet);
    }
    /// Looks for a value in a column in ascending or descending order by halving it. The search goes by text:
    /// a date that is typed in part is completed with the end of today's. When the value is not there `nRet`
    /// is the row at which the search ended, or with `lAproximada` the one before which it would stand.
    /// `lAproximada` also finds texts that begin with the value.
    bool SeekRow(const automation::Variant& xValue, std::int32_t nCol, std::int32_t& nRet,
                 bool lAproximada = false) const;
    /// The first two rows, by position, whose cells of the column at a position are equal. Texts are equal
    /// without regard to case unless `lIgnoreCase` says otherwise; rows with `xValueToSkip` do not count, a
    /// Boolean skips none.
    bool CheckDuplicates(std::int32_t nCol, std::int32_t& nFirstFound, std::int32_t& nSecondFound,
                         const automation::Variant& xValueToSkip = true, bool lIgnoreCase = true) const;

    // Sums

    /// All rows of a logical column, or with `lRow` all columns of a logical row, added as the host adds;
    /// Empty for none. With `nDecimales` above -1 rounded to a Double, halves away from 0. A failure ends
    /// it with what had been reached.
    automation::Variant Sum(std::int32_t nIndex = 0, bool lRow = false, std::int32_t nDecimales = -1) const;
    /// A new table with a row for each different combination of the cells in the columns of the second list:
    /// the totals of the columns of the first list, from Currency 0, then those cells. Rows stand in the
    /// order of their first occurrence. Lists are arrays of logical numbers. Null is equal to nothing. A
    /// failure ends it with what had been reached.
    automation::Ref<cMatriz> CrearMatrizAgrupada(const automation::Variant& axColumnsSelected,
                                                 const automation::Variant& axColumnsGroup) const;

    // Cursor: While table.Scan ... Wend

    /// Goes to the next row, or begins with the first or a given logical row; False at the end.
    bool Scan(std::int32_t nFromRow = ScanFromFirst);
    void EndScan() { lScanning = false; }
    std::int32_t CurrentRowInScan() const { return nScanRow; }
    /// A cell of the cursor's row; Null outside of a scan, when nothing is written either.
    automation::Variant RowItem(std::int32_t nCol) const {
        return lScanning ? Item(nCol, nScanRow) : automation::Variant::null();
    }
    void RowItem(std::int32_t nCol, const automation::Variant& value) {
        if (lScanning) Item(nCol, nScanRow, value);
    }

    /// Opens a window to look at a table that has rows: `viewOf` (TableView.h) prepares it, and the dialog
    /// that is registered there shows it. As long as none is, nothing opens.
    void Show() const;

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    /// The bookkeeping of a bulk addition; all 0 outside of one.
    struct BulkAddition {
        std::int32_t planned = 0;
        std::int32_t increment = 0;
        std::int32_t startRows = 0;    ///< Rows when it began
        std::int32_t capacityLast = 0; ///< Physical number of the last row that the reserve reaches
        std::int32_t done = 0;         ///< Rows added since
    };

    static std::int32_t inLong(std::int64_t value) {
        return static_cast<std::int32_t>(value < lowestLong    ? lowestLong
                                         : value > highestLong ? highestLong
                                                               : value);
    }
    std::int64_t firstRow() const { return std::int64_t{nRowBase} - nRowOffset; }
    std::int64_t firstCol() const { return std::int64_t{nColBase} - nColOffset; }

    // Places count from 0. A place out of the table is negative.
    std::int64_t rowPlace(std::int32_t nRow) const { return placeBelow(nRowCount, nRow - firstRow()); }
    std::int64_t colPlace(std::int32_t nCol) const { return placeBelow(nColCount, nCol - firstCol()); }
    /// The place of a position, which counts from 1.
    std::int64_t rowAtPosition(std::int32_t position) const {
        return placeBelow(nRowCount, std::int64_t{position} - 1);
    }
    std::int64_t colAtPosition(std::int32_t position) const {
        return placeBelow(nColCount, std::int64_t{position} - 1);
    }
    std::int64_t placeBelow(std::int32_t count, std::int64_t place) const {
        return lDimensioned && place < count ? place : -1;
    }

    /// The cell at logical numbers, or null.
    const automation::Variant* reach(std::int32_t nCol, std::int32_t nRow) const {
        const std::int64_t col = nCol - firstCol();
        const std::int64_t row = nRow - firstRow();
        const std::int32_t rows = lCheckBounds ? nRowCount : cells.rows();
        const bool inside = col >= 0 && col < nColCount && row >= 0 && row < rows && lDimensioned;
        return inside ? &cells.at(col, row) : nullptr;
    }
    automation::Variant* reach(std::int32_t nCol, std::int32_t nRow) {
        return const_cast<automation::Variant*>(std::as_const(*this).reach(nCol, nRow));
    }
    static void put(automation::Variant& cell, const automation::Variant& value) {
        if (value.isByRef())
            put(cell, value.dereferenced());
        else if (cell.isEmpty())
            new (&cell) automation::Variant(value);
        else
            cell = value; // the old value ends when the cell has the new one
    }
    /// Writes a cell of the rows in use by its place; nothing where there is none.
    void putAt(std::int64_t col, std::int64_t row, const automation::Variant& value) {
        if (col < nColCount && row < nRowCount) put(cells.at(col, row), value);
    }
    void putRow(std::int64_t row, std::span<const automation::Variant> values);

    void dimension(std::int64_t firstColumn, std::int64_t lastColumn, std::int64_t firstLine,
                   std::int64_t lastLine);
    void copyFrom(const cMatriz& source);
    bool fillFromParameters(std::int32_t nColumnas, std::int32_t nLineas,
                            std::span<const automation::Variant> values);
    bool splitText(std::u16string_view text, char16_t separator, std::u16string_view types);
    bool addRow(std::span<const automation::Variant> values);
    void appendRow(std::span<const automation::Variant> values);
    void growReserve();
    void keepRows(std::span<const std::int32_t> keep);
    bool sortRows(std::span<const SortKey> keys);
    void sortSlowly(std::int64_t col, bool lAscending);
    bool permute(std::span<std::int32_t> order);
    std::int64_t findRow(const automation::Variant& searched, std::int64_t col, std::int32_t mode) const;
    std::int64_t findText(const automation::Variant& searched, std::int64_t col, bool ignoreCase) const;
    template <class Test>
    std::int64_t firstRowWhere(std::int64_t col, Test test) const;
    void addUp(automation::Variant& total, std::int32_t nIndex, bool lRow) const;
    void group(cMatriz& result, std::span<const std::int64_t> totals,
               std::span<const std::int64_t> groups) const;

    CellBlock cells; ///< The rows of the array: those in use, those reserved, one if the table is empty
    bool lDimensioned = false;
    bool lCheckBounds = true;
    std::int32_t nRowCount = 0; ///< Rows in use
    std::int32_t nRowBase = 0;
    std::int32_t nRowOffset = 0; ///< Physical less logical number
    std::int32_t nColCount = 0;
    std::int32_t nColBase = 0;
    std::int32_t nColOffset = 0;
    BulkAddition bulk;
    bool lTextCompare = true;
    bool lSortFailed = false;
    bool lScanning = false;
    std::int32_t nScanRow = 0; ///< Logical
};

} // namespace tesela
