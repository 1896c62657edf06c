// Tables out of other shapes.

#include "data/cMatriz.h"

#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "automation/Strings.h"
#include "frame/Globales.h"
#include "host/MsgBox.h"

#include <algorithm>
#include <exception>
#include <new>

namespace tesela {

using automation::Array;
using automation::Error;
using automation::Object;
using automation::Ref;
using automation::String;
using automation::Variant;

namespace {

void showError(const String& text) {
    host::MsgBox(text, host::MsgBoxStyle::Critical, u"Error definiendo matriz");
}

/// Shows the message and tells the application's assertion object, whose own errors do not count.
void showAndAssert(const String& text) {
    showError(text);
    const Ref<Object> application = globales().oAppAssert;
    if (!application) return;
    try {
        automation::callMethod(*application, u"AssertFromOCX", text);
    } catch (const Error&) {
    }
}

String textOf(const Error& error) {
    return u"Error #" + automation::textOf(error.number()) + u"\r" + error.description();
}

/// The message of a table that is too small; the numbers are those of the place that was reached.
String tooManyParameters(std::int32_t col, std::int32_t line) {
    return u"El número de parámetros pasado a la función DataFromParameters() no coincide con el tamaño de "
           u"la "
           u"matriz.\r\nÉsta debería ser de " +
           automation::textOf(col) + u" columna(s) y " + automation::textOf(line) + u" línea(s): en total, " +
           automation::textOf(col * line) + u" parámetros.";
}

Variant converted(std::u16string_view text, char16_t type) {
    switch (type) {
    case u'N':
        return automation::doubleFromText(text);
    case u'M':
        return automation::CCur(String(text));
    case u'D':
        return automation::dateFromText(text);
    case u'L':
        return automation::CBool(String(text));
    default:
        return text;
    }
}

/// Calls a method and leaves its errors out of account; the result is Empty then.
Variant tried(Object& object, std::u16string_view method) {
    try {
        return automation::callMethod(object, method);
    } catch (const Error&) {
        return {};
    }
}

} // namespace

bool cMatriz::DataFromParameters(std::int32_t nColumnas, std::int32_t nLineas,
                                 const automation::ParamArray& aParamSource) {
    try {
        return fillFromParameters(nColumnas, nLineas, aParamSource);
    } catch (const Error& error) {
        showAndAssert(textOf(error));
    } catch (const std::bad_alloc&) {
        showAndAssert(textOf(Error(automation::errors::OutOfMemory)));
    }
    return false;
}

bool cMatriz::fillFromParameters(std::int32_t nColumnas, std::int32_t nLineas,
                                 std::span<const Variant> values) {
    Dimension2D(1, nColumnas, 1, nLineas);
    if (!lDimensioned) automation::throwError(automation::errors::OutOfMemory);
    std::int32_t col = 1, line = 1;
    for (const Variant& value : values) {
        if (line > nLineas || col > nColumnas) {
            showAndAssert(tooManyParameters(col, line));
            return false;
        }
        putAt(col - 1, line - 1, value);
        line += col / nColumnas;
        col = col % nColumnas + 1;
    }
    return static_cast<std::int64_t>(values.size()) == std::int64_t{nColumnas} * nLineas;
}

bool cMatriz::DataFromVariant1D(Variant& aNew) {
    const Variant source = aNew.dereferenced();
    if (!source.isArray() || source.asArray().dimensions() != 1) return false;
    const Array& array = source.asArray();
    const std::int64_t last = std::int64_t{array.lower()} + static_cast<std::int64_t>(array.size()) - 1;
    if (last > highestLong) return false;
    try {
        dimension(1, 1, array.lower(), last);
    } catch (const std::exception&) {
        return false;
    }
    lDimensioned = true;
    for (std::size_t place = 0; place < array.size(); ++place)
        putAt(0, static_cast<std::int64_t>(place), array.element(place));
    return true;
}

bool cMatriz::DataFromVariant2D(Variant& aSource) {
    const Variant source = aSource.dereferenced();
    return source.isArray() && DataFromArray(source.asArray());
}

bool cMatriz::DataFromArray(const Array& aNew) {
    if (aNew.dimensions() != 2 || aNew.bounds()[0].count == 0) return false;
    const std::int64_t cols = aNew.bounds()[0].count, rows = aNew.bounds()[1].count;
    if (aNew.lower(1) + cols - 1 > highestLong || aNew.lower(2) + rows - 1 > highestLong) return false;
    try {
        CellBlock taken(cols, std::max(rows, std::int64_t{1}));
        for (std::size_t place = 0; place < aNew.size(); ++place)
            put(taken.row(0)[place], aNew.element(place));
        cells.swap(taken);
        lDimensioned = true;
        nColBase = aNew.lower(1);
        nColCount = static_cast<std::int32_t>(cols);
        nRowBase = aNew.lower(2);
        nRowCount = static_cast<std::int32_t>(rows);
        nColOffset = nRowOffset = 0;
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

Array cMatriz::GetArray() const {
    Array result(automation::VT_VARIANT, {{nColBase, static_cast<std::uint32_t>(cells.cols())},
                                          {nRowBase, static_cast<std::uint32_t>(cells.rows())}});
    const std::span<Variant> elements = result.variants();
    std::copy(cells.row(0), cells.row(cells.rows()), elements.begin());
    return result;
}

bool cMatriz::DataFromRecordSet(const Ref<Object>& oRS) {
    if (!oRS || oRS->typeName() != u"Recordset") return false;
    tried(*oRS, u"MoveFirst");
    Variant rows = tried(*oRS, u"GetRows");
    return DataFromVariant2D(rows);
}

bool cMatriz::DataFromDatos(const Ref<Object>& oDatos) {
    if (!oDatos || oDatos->typeName() != u"cDatos") return false;
    const std::int32_t fields = automation::CLng(automation::getProperty(*oDatos, u"FieldCount"));
    const std::int32_t count = automation::CLng(automation::getProperty(*oDatos, u"RecCount"));
    Dimension2D(1, fields, 1, count);
    if (!lDimensioned) return false;
    for (std::int64_t row = 0; automation::CBool(automation::callMethod(*oDatos, u"Scan")); ++row) {
        if (row >= nRowCount) break;
        for (std::int32_t col = 0; col < fields; ++col)
            putAt(col, row, automation::callMethod(*oDatos, u"Field_ByColumnNumber", col));
    }
    return true;
}

bool cMatriz::DataFromString(const String& cCadena, const String& cSeparator, std::int32_t nTotalColumnas,
                             const String& cTipos) {
    if (cCadena.empty() || cSeparator.length() != 1 || (cTipos.empty() && nTotalColumnas == 0)) return false;
    const String types = automation::UCase(cTipos);
    EndAddRows();
    const auto fail = [this](const Error& error) {
        bulk = {};
        Clear();
        showError(textOf(error));
    };
    try {
        Dimension2D(1, types.empty() ? nTotalColumnas : static_cast<std::int32_t>(types.length()), 1, 0);
        if (!lDimensioned) automation::throwError(automation::errors::OutOfMemory);
        BeginAddRows();
        const bool isComplete = splitText(cCadena, cSeparator[0], types);
        EndAddRows();
        if (!isComplete) Clear();
        return isComplete;
    } catch (const Error& error) {
        fail(error);
    } catch (const std::bad_alloc&) {
        fail(Error(automation::errors::OutOfMemory));
    }
    return false;
}

/// Adds the pieces of the text as rows; whether the last row is complete.
bool cMatriz::splitText(std::u16string_view text, char16_t separator, std::u16string_view types) {
    std::int32_t col = 0;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find(separator), text.size());
        const char16_t type = types.empty() ? u'C' : types[static_cast<std::size_t>(col)];
        Variant value = converted(text.substr(0, length), type);
        if (col == 0) appendRow({});
        cells.at(col, nRowCount - 1) = std::move(value);
        text.remove_prefix(std::min(length + 1, text.size()));
        if (++col == nColCount) col = 0;
    }
    return col == 0;
}

} // namespace tesela
