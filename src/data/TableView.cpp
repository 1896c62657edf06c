#include "data/TableView.h"

#include "automation/Conversions.h"

#include <algorithm>

namespace tesela {

using automation::String;
using automation::Variant;

namespace {

/// A number so many after another; it stops at the end of a Long.
std::int32_t after(std::int32_t first, std::int32_t steps) {
    const std::int64_t number = std::int64_t{first} + steps;
    return static_cast<std::int32_t>(std::min(number, std::int64_t{cMatriz::highestLong}));
}

/// Pixels for the text of a cell; what has no text takes the least.
std::int32_t widthFor(const Variant& cell) {
    constexpr std::int32_t pixelsPerCharacter = 8, ofNull = 10, least = 12, most = 100;
    if (cell.isNull()) return pixelsPerCharacter * ofNull;
    std::int32_t length = 0;
    try {
        length = static_cast<std::int32_t>(automation::CStr(cell).length());
    } catch (const automation::Error&) {
        length = 0;
    }
    return pixelsPerCharacter * std::clamp(length, least, most);
}

tslTipoDatoConstants typeFor(const Variant& cell) {
    if (cell.isString()) return tslTipoDatoCaracter;
    return cell.type() == automation::VT_DATE ? tslTipoDatoFecha : tslTipoDatoNumero;
}

String captionFor(const cMatriz& table) {
    const auto text = [](std::int32_t number) { return automation::textOf(number); };
    const auto range = [&](std::int32_t first, std::int32_t last) {
        return u"(" + text(first) + u"-" + text(last) + u")";
    };
    return text(table.Rows()) + u" filas " + range(table.FirstRow(), table.LastRow()) + u" x " +
           text(table.Cols()) + u" columnas " + range(table.FirstCol(), table.LastCol()) + u" = " +
           text(table.Rows() * table.Cols()) + u" celdas de datos.";
}

automation::Ref<cMatriz> numberedCopy(const cMatriz& table) {
    auto copy = automation::make<cMatriz>();
    copy->Dimension2D(1, table.Cols() + 1, 1, table.Rows());
    const automation::Array cells = table.GetArray(); // row after row
    std::size_t place = 0;
    for (std::int32_t row = 0; row < table.Rows(); ++row) {
        copy->Item(1, row + 1, after(table.FirstRow(), row));
        for (std::int32_t col = 0; col < table.Cols(); ++col)
            copy->Item(col + 2, row + 1, cells.element(place++));
    }
    return copy;
}

} // namespace

TableView viewOf(const cMatriz& table) {
    constexpr std::int32_t numberWidth = 50;
    TableView view;
    view.data = numberedCopy(table);
    view.caption = captionFor(table);
    view.columns.push_back({u"Fila", numberWidth, tslTipoDatoNumero});
    for (std::int32_t col = 0; col < table.Cols(); ++col) {
        const Variant first = view.data->Item(col + 2, 1);
        view.columns.push_back(
            {u"Col #" + automation::textOf(after(table.FirstCol(), col)), widthFor(first), typeFor(first)});
    }
    return view;
}

TableViewer& tableViewer() {
    static TableViewer viewer = nullptr;
    return viewer;
}

void cMatriz::Show() const {
    if (nRowCount == 0 || !lDimensioned) return;
    if (const TableViewer open = tableViewer()) open(viewOf(*this));
}

} // namespace tesela
