#include "fichas/Display.h"

#include "automation/Array.h"
#include "automation/Conversions.h"
#include "automation/Format.h"

namespace fichas {

using automation::String;
using automation::Variant;

namespace {

String grouped(const Variant& value, int decimals) {
    return automation::FormatNumber(value, decimals, automation::Tristate::Yes, automation::Tristate::No,
                                    automation::Tristate::Yes);
}

String numberText(const Variant& value, const Column& column) {
    if (column.decimals > 0) return grouped(value, column.decimals);
    if (value.type() == automation::VT_CY && column.decimals < 0)
        return automation::Format(value, u"#,##0.00##");
    return automation::CStr(value);
}

/// Line ends and tabs would leave the line.
String oneLine(const String& text) {
    std::u16string line;
    bool blank = false;
    for (const char16_t c : text.view()) {
        const bool breaks = c == u'\r' || c == u'\n' || c == u'\t';
        if (!breaks) line += c;
        if (breaks && !blank) line += u' ';
        blank = breaks;
    }
    return line;
}

bool isNumber(const Variant& value) {
    switch (value.type()) {
    case automation::VT_I4:
    case automation::VT_R8:
    case automation::VT_CY:
    case automation::VT_DECIMAL:
        return true;
    default:
        return false;
    }
}

} // namespace

String displayText(const Variant& value, const Column& column) {
    if (value.isNull() || value.isEmpty()) return {};
    if (value.isString()) return oneLine(value.asString());
    if (value.isArray()) {
        const auto size = static_cast<double>(value.asArray().size());
        return grouped(size, 0) + (size == 1 ? u" byte" : u" bytes");
    }
    if (value.type() == automation::VT_BOOL) return automation::Format(value, u"Yes/No");
    return isNumber(value) ? numberText(value, column) : automation::CStr(value);
}

bool standsAtRight(const Variant& value, const Column& column) {
    if (value.isString()) return false;
    return isNumber(value) || column.type == ColumnType::Integer || column.type == ColumnType::Number ||
           column.type == ColumnType::Currency;
}

String titleText(const String& name, std::int64_t record, std::int64_t knownCount, bool countIsFinal) {
    if (record < 1) return name + u" — ningún registro";
    const std::string count = (countIsFinal ? "" : "más de ") + std::to_string(knownCount);
    return name + u" — " + String::fromUtf8(std::to_string(record) + " de " + count);
}

} // namespace fichas
