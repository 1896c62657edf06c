#pragma once
// A table at hand, and tables as text.

#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "automation/Operators.h"
#include "data/cMatriz.h"
#include "data/collation.h"
#include "support/Started.h"

#include <string>
#include <utility>

namespace tests {

/// A value as its text; Empty is "-", Null is "Null".
inline std::string textOf(const automation::Variant& value) {
    if (value.isEmpty()) return "-";
    if (value.isNull()) return "Null";
    if (value.isObject()) return "object";
    if (value.isArray()) return "array";
    return automation::CStr(value).utf8();
}

/// The rows in use, one after the other: "1 a, 2 b".
inline std::string textOf(const tesela::cMatriz& table) {
    std::string text;
    for (std::int32_t row = 0; row < table.Rows(); ++row) {
        if (row > 0) text += ", ";
        for (std::int32_t col = 0; col < table.Cols(); ++col) {
            if (col > 0) text += ' ';
            text += textOf(table.Item(table.FirstCol() + col, table.FirstRow() + row));
        }
    }
    return text;
}

/// "rows x cols from first row, first column".
inline std::string shapeOf(const tesela::cMatriz& table) {
    return std::to_string(table.Rows()) + "x" + std::to_string(table.Cols()) + " from " +
           std::to_string(table.FirstRow()) + "," + std::to_string(table.FirstCol());
}

/// How a table orders two values, as it is told: negative, 0 or positive.
inline int statedOrder(const automation::Variant& a, const automation::Variant& b, bool textCompare) {
    if (textCompare && a.isString()) return tesela::TS_Compara(a.asString(), automation::CStr(b));
    const auto order = automation::compare(a, b);
    if (order == automation::Comparison::Less) return -1;
    return order == automation::Comparison::Greater ? 1 : 0;
}

class MatrizTest : public support::Started {
protected:
    using Row = automation::ParamArray;

    /// Makes the table one of these rows, numbered from 1.
    void fill(const std::vector<Row>& rows) const {
        table->Dimension2D(1, static_cast<std::int32_t>(rows.front().size()), 1, 0);
        for (const Row& row : rows)
            table->AddRow(row);
    }
    /// One column of numbers.
    void fillColumn(std::initializer_list<automation::Variant> values) const {
        table->Dimension2D(1, 1, 1, 0);
        for (const automation::Variant& value : values)
            table->AddRow({value});
    }
    std::string text() const { return textOf(*table); }
    std::string shape() const { return shapeOf(*table); }

    automation::Ref<tesela::cMatriz> table = automation::make<tesela::cMatriz>();
};

} // namespace tests
