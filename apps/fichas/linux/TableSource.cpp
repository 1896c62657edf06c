#include "fichas/linux/TableSource.h"

#include "automation/Error.h"
#include "fichas/ColumnJudge.h"
#include "fichas/CsvValues.h"
#include "fichas/linux/StoredValue.h"
#include "platform/locale.h"

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
    if (column.type == ColumnType::Currency && field.Precision() > 0) {
        column.decimals = field.NumericScale();
        column.digits = std::max(field.Precision() - field.NumericScale(), 1);
    }
    const bool isLimited = field.DefinedSize() < std::numeric_limits<std::int32_t>::max();
    if (field.Type() == host::FieldType::Text && isLimited) column.length = field.DefinedSize();
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

/// A transaction that is taken back unless it is committed.
class Transaction {
public:
    explicit Transaction(const platform::Database& database) : database_(database) {
        database_.execute("BEGIN IMMEDIATE");
    }
    ~Transaction() {
        try {
            if (!isCommitted_) database_.execute("ROLLBACK");
        } catch (const platform::DatabaseError&) {
            // What failed before has taken it back already.
        }
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit() {
        database_.execute("COMMIT");
        isCommitted_ = true;
    }

private:
    const platform::Database& database_;
    bool isCommitted_ = false;
};

/// " WHERE "a" = ? AND "b" = ?": the row of a key.
std::string ofKey(const host::RowKey& key) {
    std::string text;
    for (const std::string& column : key.columns)
        text += (text.empty() ? " WHERE " : " AND ") + platform::quotedIdentifier(column) + " = ?";
    return text;
}

void bindKey(platform::Statement& statement, int parameter, const host::RowKey& key) {
    for (const platform::DatabaseValue& part : key.values)
        statement.bind(parameter++, part);
}

} // namespace

TableSource::TableSource(const automation::String& path, const automation::String& table)
    : path_(path), name_(table), records_(automation::make<host::Recordset>()) {
    withSourceErrors([&] { records_->Open(table, path); });
    const auto fields = records_->Fields();
    for (std::int32_t i = 0; i < fields->Count(); ++i) {
        columns_.push_back(columnOf(*fields->Item(i)));
        types_.push_back(fields->Item(i)->Type());
    }
    try {
        describeColumns();
    } catch (const platform::DatabaseError& error) {
        throw SourceError(error.what());
    }
    judgeColumns();
}

/// What the table says of its columns beside their types.
void TableSource::describeColumns() {
    const platform::Database database(path_.utf8());
    for (const platform::TableInfo& table : database.tables())
        if (table.name == name_.utf8()) takesChanges_ = !database.keyColumns(table).empty();
    for (const platform::ColumnInfo& info : database.columns(name_.utf8()))
        for (Column& column : columns_)
            if (column.name.utf8() == info.name) {
                column.isIdentifier = info.primaryKeyOrdinal > 0;
                column.isRequired = info.notNull;
            }
}

/// Finds out of the first records what the columns do not declare.
void TableSource::judgeColumns() {
    constexpr std::int64_t judgedRecords = 100;
    std::vector<ColumnJudge> judges(columns_.size());
    std::vector<Variant> values;
    for (std::int64_t record = 1; record <= judgedRecords && read(record, values); ++record)
        for (std::size_t i = 0; i < values.size(); ++i) {
            judges[i].take(values[i]);
            columns_[i].noteLines(values[i]);
        }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        Column& column = columns_[i];
        if (types_[i] == host::FieldType::Variant) column.type = judges[i].type();
        const bool hasDecimals = column.type == ColumnType::Number || column.type == ColumnType::Currency;
        if (hasDecimals && column.decimals < 0) column.decimals = judges[i].decimals();
    }
}

/// A text of ISO form is a date where its column has none but such.
Variant TableSource::asJudged(const Variant& value, std::size_t column) const {
    if (types_[column] != host::FieldType::Variant || !value.isString()) return value;
    return ColumnJudge::valueAs(columns_[column].type, value);
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
            found.push_back(asJudged(fields->Item(i)->Value(), static_cast<std::size_t>(i)));
        values = std::move(found);
    } catch (const automation::Error& error) {
        if (error.number() == host::recordsetErrors::InvalidArgument) return false;
        // Another program has deleted the record since its place was noted: its place stays, empty.
        if (error.number() != host::recordsetErrors::RecordDeleted) throw SourceError(error.what());
        values.assign(columns_.size(), Variant::null());
    }
    return true;
}

// ------------------------------------------------------------------------------------------- writing

const platform::Database& TableSource::writer() {
    if (!writer_) {
        platform::Database database(path_.utf8(), platform::Database::Access::ReadWrite);
        database.execute("PRAGMA foreign_keys = ON");
        writer_.emplace(std::move(database));
    }
    return *writer_;
}

host::RowKey TableSource::keyOf(std::int64_t record) {
    records_->AbsolutePosition(static_cast<std::int32_t>(record));
    auto key = records_->presentKey();
    if (!key) throw WriteError("estos registros sólo se pueden leer");
    return std::move(*key);
}

/// The row as it lies in the file, which must hold the values of `before`.
host::RowSet::Row TableSource::rowToChange(const host::RowKey& key, const std::vector<Variant>& before) {
    platform::Statement statement =
        writer().prepare("SELECT * FROM main." + platform::quotedIdentifier(key.table) + ofKey(key));
    bindKey(statement, 1, key);
    if (!statement.step()) throw ChangedMeanwhile("otro programa ha borrado este registro");
    host::RowSet::Row row;
    std::string changed;
    for (int i = 0; i < statement.columnCount(); ++i) {
        const auto column = static_cast<std::size_t>(i);
        row.push_back(statement.value(i));
        if (column >= columns_.size() || column >= before.size()) continue;
        const Variant present = asJudged(host::columnValue(row.back(), types_[column]), column);
        if (isSameValue(present, before[column])) continue;
        changed += (changed.empty() ? "" : ", ") + columns_[column].name.utf8();
    }
    if (!changed.empty()) throw ChangedMeanwhile("otro programa ha cambiado " + changed);
    return row;
}

void TableSource::update(const host::RowKey& key, const host::RowSet::Row& former,
                         const std::vector<Change>& changes) {
    std::string settings;
    for (const Change& change : changes)
        settings += (settings.empty() ? " SET " : ", ") +
                    platform::quotedIdentifier(columns_[change.column].name.utf8()) + " = ?";
    platform::Statement statement =
        writer().prepare("UPDATE main." + platform::quotedIdentifier(key.table) + settings + ofKey(key));
    int parameter = 1;
    for (const Change& change : changes)
        statement.bind(parameter++,
                       storedValue(change.value, columns_[change.column].type, former[change.column]));
    bindKey(statement, parameter, key);
    statement.run();
}

void TableSource::write(std::int64_t record, const std::vector<Variant>& before,
                        const std::vector<Change>& changes) {
    try {
        const host::RowKey key = keyOf(record);
        Transaction transaction(writer());
        update(key, rowToChange(key, before), changes);
        transaction.commit();
    } catch (const platform::DatabaseError& error) {
        throw WriteError(error.what());
    } catch (const automation::Error& error) {
        throw WriteError(error.what());
    }
}

} // namespace fichas
