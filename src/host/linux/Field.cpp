#include "host/linux/Field.h"

#include <limits>

namespace host {

const automation::ClassTable& Field::table() {
    static const automation::ClassTable table = automation::ClassTable::of<Field>("Field")
                                                    .get("Value", &Field::Value)
                                                    .defaultMember()
                                                    .get("Name", &Field::Name)
                                                    .get("Type", &Field::Type)
                                                    .get("DefinedSize", &Field::DefinedSize)
                                                    .get("ActualSize", &Field::ActualSize)
                                                    .get("Precision", &Field::Precision)
                                                    .get("NumericScale", &Field::NumericScale);
    return table;
}

const RecordCursor::Column& Field::column() const {
    const auto& columns = cursor_->columns();
    // The recordset may have been opened anew on something narrower.
    if (column_ >= columns.size()) throwRecordsetError(recordsetErrors::ItemNotFound);
    return columns[column_];
}

std::int32_t Field::DefinedSize() const {
    const std::int32_t declared = column().declaration.size;
    return declared ? declared : std::numeric_limits<std::int32_t>::max();
}

std::int32_t Field::ActualSize() const {
    using namespace automation;
    const Variant& value = cursor_->value(column_);
    switch (value.type()) {
    case VT_NULL:
        return 0;
    case VT_BSTR:
        return static_cast<std::int32_t>(value.asString().length());
    case VT_ARRAY | VT_UI1:
        return static_cast<std::int32_t>(value.asArray().size());
    case VT_BOOL:
        return sizeof(std::int16_t);
    case VT_I4:
        return sizeof(std::int32_t);
    case VT_DECIMAL:
        return sizeof(Variant);
    default:
        return sizeof(std::int64_t);
    }
}

} // namespace host
