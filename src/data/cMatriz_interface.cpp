// What programs see of cMatriz.

#include "data/cMatriz.h"

#include "automation/ClassTable.h"

namespace tesela {

using automation::Enumeration;
using automation::optional;
using automation::Variant;

namespace {

using Builder = automation::ClassTable::Builder<cMatriz>;

void addShape(Builder& table) {
    using ReadItem = Variant (cMatriz::*)(std::int32_t, std::int32_t) const;
    using WriteItem = void (cMatriz::*)(std::int32_t, std::int32_t, const Variant&);
    table.get("Rows", &cMatriz::Rows)
        .get("Cols", &cMatriz::Cols)
        .get("FirstRow", &cMatriz::FirstRow)
        .get("FirstCol", &cMatriz::FirstCol)
        .get("LastRow", &cMatriz::LastRow)
        .get("LastCol", &cMatriz::LastCol)
        .method("CheckBounds", &cMatriz::CheckBounds, {"lActivar"})
        .method(
            "Dimension2D", &cMatriz::Dimension2D,
            {"nDesdeCol", "nHastaCol", optional("nDesdeRow", 0), optional("nHastaRow", cMatriz::NoLastRow)})
        .get("Item", ReadItem(&cMatriz::Item), {"nCol", optional("nRow", -1)})
        .let("Item", WriteItem(&cMatriz::Item), {"nCol", "nRow"})
        .defaultMember();
}

void addConversions(Builder& table) {
    table.method("DataFromParameters", &cMatriz::DataFromParameters, {"nColumnas", "nLineas", "aParamSource"})
        .method("DataFromVariant1D", &cMatriz::DataFromVariant1D, {"aNew"})
        .method("DataFromVariant2D", &cMatriz::DataFromVariant2D, {"aSource"})
        .method("DataFromArray", &cMatriz::DataFromArray, {"aNew"})
        .method("DataFromMatriz", &cMatriz::DataFromMatriz, {"oSource"})
        .method("DataFromRecordSet", &cMatriz::DataFromRecordSet, {"oRS"})
        .method("DataFromDatos", &cMatriz::DataFromDatos, {"oDatos"})
        .method("DataFromString", &cMatriz::DataFromString,
                {"cCadena", "cSeparator", optional("nTotalColumnas", 0), optional("cTipos", u"")})
        .method("Clone", &cMatriz::Clone)
        .method("GetArray", &cMatriz::GetArray)
        .method("GetVariant", &cMatriz::GetVariant)
        .method("SubMatriz2D", &cMatriz::SubMatriz2D,
                {optional("nDesdeLinea", cMatriz::lowestLong), optional("nHastaLinea", cMatriz::highestLong),
                 optional("nDesdeColumna", cMatriz::lowestLong),
                 optional("nHastaColumna", cMatriz::highestLong)});
}

void addRows(Builder& table) {
    using ChangeRow = bool (cMatriz::*)(std::int32_t, bool&);
    table
        .method("BeginAddRows", &cMatriz::BeginAddRows,
                {optional("nNumeroPrevisto", 100), optional("nIncrementos", 100)})
        .method("EndAddRows", &cMatriz::EndAddRows)
        .method("AddRow", &cMatriz::AddRow, {"aRow"})
        .method("AddRowFromMatriz", &cMatriz::AddRowFromMatriz, {"oMatrizSource", "nSourceRow"})
        .method("ReplaceCol", &cMatriz::ReplaceCol,
                {"nCol", "xValue", optional("nColFiltro"), optional("xValueFiltro")})
        .method("UpdateRow", &cMatriz::UpdateRow, {"nRow", "aRow"})
        .method("InsertRowWithData", &cMatriz::InsertRowWithData, {"nRow", "lAutoDim", "aRow"})
        .method("InsertRow", ChangeRow(&cMatriz::InsertRow), {"nRow", optional("lAutoDim", true)})
        .method("DeleteRow", ChangeRow(&cMatriz::DeleteRow), {"nRow", optional("lAutoDim", true)})
        .method("DeleteRows", &cMatriz::DeleteRows, {"nColumn", "xMinValue", "xMaxValue"})
        .method("FilterRows", &cMatriz::FilterRows,
                {"nColumn", "xMinValue", "xMaxValue", optional("lDelete", false)})
        .method("Pivot", &cMatriz::Pivot)
        .method("Clear", &cMatriz::Clear)
        .method("SetFirstIndex", &cMatriz::SetFirstIndex, {"nCol", "nRow"});
}

void addSearch(Builder& table) {
    using Find = bool (cMatriz::*)(const Variant&, std::int32_t, std::int32_t&, std::int32_t) const;
    using ReadCompare = bool (cMatriz::*)() const;
    using WriteCompare = void (cMatriz::*)(bool);
    table.property("TextCompare", ReadCompare(&cMatriz::TextCompare), WriteCompare(&cMatriz::TextCompare))
        .method("Lookup", &cMatriz::Lookup,
                {"xSearchedValue", "nSearchedColumn", "nReturnedColumn", optional("xDefaultValue"),
                 optional("nDefaultRow")})
        .method("FindRow", Find(&cMatriz::FindRow),
                {"xValue", "nCol", optional("nRet"), optional("nModoComparacion", 0)})
        .method("SeekRow", &cMatriz::SeekRow,
                {"xValue", "nCol", optional("nRet"), optional("lAproximada", false)})
        .method("SortOnColumn", &cMatriz::SortOnColumn,
                {optional("nColumn", cMatriz::FirstSortColumn), optional("lAscending", true),
                 optional("lUseQuickSort", true)})
        .method("QSort", &cMatriz::QSort,
                {"nCol1", optional("nModoCol1", 1), optional("nCol2"), optional("nModoCol2", 0),
                 optional("nCol3"), optional("nModoCol3", 0), optional("nCol4"), optional("nModoCol4", 0),
                 optional("nCol5"), optional("nModoCol5", 0)});
}

void addSummary(Builder& table) {
    using ReadItem = Variant (cMatriz::*)(std::int32_t) const;
    using WriteItem = void (cMatriz::*)(std::int32_t, const Variant&);
    table
        .method("Sum", &cMatriz::Sum,
                {optional("nIndex", 0), optional("lRow", false), optional("nDecimales", -1)})
        .method("Scan", &cMatriz::Scan, {optional("nFromRow", cMatriz::ScanFromFirst)})
        .method("EndScan", &cMatriz::EndScan)
        .method("CurrentRowInScan", &cMatriz::CurrentRowInScan)
        .property("RowItem", ReadItem(&cMatriz::RowItem), WriteItem(&cMatriz::RowItem), {"nCol"})
        .method("Show", &cMatriz::Show)
        .method("CheckDuplicates", &cMatriz::CheckDuplicates,
                {"nCol", optional("nFirstFound"), optional("nSecondFound"), optional("xValueToSkip", true),
                 optional("lIgnoreCase", true)})
        .method("CrearMatrizAgrupada", &cMatriz::CrearMatrizAgrupada,
                {"axColumnsSelected", "axColumnsGroup"});
}

} // namespace

const automation::ClassTable& cMatriz::table() {
    static const automation::ClassTable table =
        automation::ClassTable::of<cMatriz>("cMatriz")
            .help("A table of values: rows and columns of any numbers, sorted, searched and summed.")
            .with(addShape)
            .with(addConversions)
            .with(addRows)
            .with(addSearch)
            .with(addSummary);
    return table;
}

const Enumeration& enumerationOf(tslMatriz_SortConstants) {
    static const Enumeration table("tslMatriz_SortConstants",
                                   {
                                       {"tslMatriz_Sort_Unsorted", tslMatriz_Sort_Unsorted},
                                       {"tslMatriz_Sort_Ascending", tslMatriz_Sort_Ascending},
                                       {"tslMatriz_Sort_Descending", tslMatriz_Sort_Descending},
                                   });
    return table;
}

const Enumeration& enumerationOf(tslMatrizFindCompareConstants) {
    static const Enumeration table("tslMatrizFindCompareConstants",
                                   {
                                       {"tslMatrizFindCompareIgual", tslMatrizFindCompareIgual},
                                       {"tslMatrizFindCompareMenorIgual", tslMatrizFindCompareMenorIgual},
                                       {"tslMatrizFindCompareMayorIgual", tslMatrizFindCompareMayorIgual},
                                       {"tslMatrizFindCompareMenor", tslMatrizFindCompareMenor},
                                       {"tslMatrizFindCompareMayor", tslMatrizFindCompareMayor},
                                       {"tslMatrizFindCompareDistinto", tslMatrizFindCompareDistinto},
                                       {"tslMatrizFindCompareAproximada", tslMatrizFindCompareAproximada},
                                       {"tslMatrizFindCompareMaskModes", tslMatrizFindCompareMaskModes},
                                       {"tslMatrizFindCompareIgnoreCase", tslMatrizFindCompareIgnoreCase},
                                   });
    return table;
}

} // namespace tesela
