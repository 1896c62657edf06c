#include "fichas/linux/TableSource.h"

#include "automation/Error.h"

#include <algorithm>
#include <limits>

namespace fichas {

using automation::Variant;

namespace {

ColumnType typeOf(host::FieldType type) {
    switch (type) {
    case host::FieldType::Integer:
        return ColumnType::Integer;
    case host::FieldType::Double:
        return ColumnType::Number;
    case host::FieldType::Currency:
        return ColumnType::Currency;
    case host::FieldType::Boolean:
        return ColumnType::Boolean;
    case host::FieldType::Date:
        return ColumnType::Date;
    case host::FieldType::Time:
        return ColumnType::Time;
    case host::FieldType::DateTime:
        return ColumnType::DateTime;
    case host::FieldType::Binary:
        return ColumnType::Binary;
    case host::FieldType::Text:
    case host::FieldType::Variant:
        break;
    }
    return ColumnType::Text;
}

Column columnOf(const host::Field& field) {
    Column column;
    column.name = field.Name();
    column.type = typeOf(field.Type());
    if (column.type == ColumnType::Currency && field.Precision() > 0) column.decimals = field.NumericScale();
    return column;
}

/// Runs `work` with the errors of automation as those of a source.
template <class F>
auto withSourceErrors(F&& work) {
    try {
        return work();
    } catch (const automation::Error& error) {
        throw SourceError(error.what());
    }
}

} // namespace

TableSource::TableSource(const automation::String& path, const automation::String& table)
    : name_(table), records_(automation::make<host::Recordset>()) {
    withSourceErrors([&] { records_->Open(table, path); });
    const auto fields = records_->Fields();
    for (std::int32_t i = 0; i < fields->Count(); ++i)
        columns_.push_back(columnOf(*fields->Item(i)));
}

std::int64_t TableSource::count() {
    if (!isCounted_) {
        count_ = withSourceErrors([this] { return records_->RecordCount(); });
        isCounted_ = true;
    }
    return count_;
}

bool TableSource::read(std::int64_t record, std::vector<Variant>& values) {
    if (record < 1 || record > std::numeric_limits<std::int32_t>::max()) return false;
    try {
        records_->AbsolutePosition(static_cast<std::int32_t>(record));
        count_ = std::max(count_, record);
        std::vector<Variant> found;
        const auto fields = records_->Fields();
        found.reserve(columns_.size());
        for (std::int32_t i = 0; i < fields->Count(); ++i)
            found.push_back(fields->Item(i)->Value());
        values = std::move(found);
    } catch (const automation::Error& error) {
        if (error.number() == host::recordsetErrors::InvalidArgument) return false;
        // Another program has deleted the record since its place was noted: its place stays, empty.
        if (error.number() != host::recordsetErrors::RecordDeleted) throw SourceError(error.what());
        values.assign(columns_.size(), Variant::null());
    }
    return true;
}

} // namespace fichas
