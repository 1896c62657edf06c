#include "host/linux/RecordCursor.h"

#include "automation/Error.h"

namespace host {

void throwRecordsetError(std::int32_t number) {
    static constexpr struct {
        std::int32_t number;
        const char16_t* text;
    } texts[] = {
        {recordsetErrors::InvalidArgument,
         u"Los argumentos no son del tipo correcto o están fuera del intervalo"},
        {recordsetErrors::NoCurrentRecord, u"No hay ningún registro activo: BOF o EOF es True"},
        {recordsetErrors::ItemNotFound, u"No hay ningún campo con ese nombre o ese índice"},
        {recordsetErrors::ObjectClosed, u"La operación no se permite si el objeto está cerrado"},
        {recordsetErrors::ObjectOpen, u"La operación no se permite si el objeto está abierto"},
        {recordsetErrors::RecordDeleted, u"El registro se ha eliminado"},
    };
    for (const auto& entry : texts)
        if (entry.number == number) throw automation::Error(number, entry.text, u"Recordset");
    throw automation::Error(number);
}

void RecordCursor::open(std::unique_ptr<SourceRows> rows) {
    source_ = std::move(rows);
    columns_.clear();
    for (const RowSet::Column& column : source_->columns())
        columns_.push_back(
            {automation::String::fromUtf8(column.name), fieldDeclaration(column.declaredType)});
    moveTo(1);
}

void RecordCursor::select(const std::string& condition, const std::string& order) {
    selected_.reset(); // it shares its place with the next one
    if (!condition.empty() || !order.empty()) selected_ = source_->select(condition, order);
    moveTo(1);
}

std::string RecordCursor::conditionOf(const std::vector<std::int64_t>& bookmarks) const {
    return source_->conditionOf(bookmarks);
}

void RecordCursor::close() {
    selected_.reset();
    source_.reset();
    columns_.clear();
    values_.clear();
    isLoaded_ = false;
    position_ = 0;
    isPastEnd_ = false;
}

const std::vector<RecordCursor::Column>& RecordCursor::columns() const {
    if (!source_) throwRecordsetError(recordsetErrors::ObjectClosed);
    return columns_;
}

RowSet& RecordCursor::rows() const {
    if (!source_) throwRecordsetError(recordsetErrors::ObjectClosed);
    return selected_ ? *selected_ : *source_;
}

void RecordCursor::moveTo(std::int64_t position) {
    isLoaded_ = false;
    isPastEnd_ = false;
    position_ = std::max<std::int64_t>(position, 0);
    if (position_ > 0 && !rows().exists(position_)) moveToEnd();
}

void RecordCursor::moveToEnd() {
    isLoaded_ = false;
    isPastEnd_ = true;
    const std::int64_t count = rows().count();
    // An empty set has both ends in one place.
    position_ = count == 0 ? 0 : count + 1;
}

void RecordCursor::load() {
    RowSet::Row row;
    if (!rows().read(position_, row)) throwRecordsetError(recordsetErrors::RecordDeleted);
    values_.clear();
    for (std::size_t i = 0; i < row.size(); ++i)
        values_.push_back(columnValue(row[i], columns_[i].declaration.type));
    isLoaded_ = true;
}

const automation::Variant& RecordCursor::value(std::size_t column) {
    if (!source_) throwRecordsetError(recordsetErrors::ObjectClosed);
    if (!isOnRow()) throwRecordsetError(recordsetErrors::NoCurrentRecord);
    if (!isLoaded_) withDatabaseErrors([this] { load(); });
    return values_.at(column);
}

} // namespace host
