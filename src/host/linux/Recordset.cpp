#include "host/linux/Recordset.h"

#include "automation/Array.h"
#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "platform/locale.h"

#include <cmath>
#include <limits>

namespace host {

using automation::Array;
using automation::String;
using automation::Variant;

namespace {

/// The file in "Data Source=path;..." or in the path alone.
std::string pathOf(const String& connection) {
    constexpr std::u16string_view key = u"data source=";
    const std::u16string small = platform::lowerCase(connection);
    const std::size_t place = small.find(key);
    if (place == std::u16string::npos) return connection.utf8();
    const std::size_t start = place + key.size();
    return connection.substring(start, connection.find(u";", start) - start).utf8();
}

/// The number that a bookmark is. Error 3001 for a value that is none.
std::int64_t bookmarkNumber(const Variant& bookmark) {
    constexpr double largest = 9007199254740992.0; // whole numbers that a Double holds
    const double number = bookmark.type() == automation::VT_R8 ? bookmark.asDouble() : 0;
    if (!(number >= 1 && number < largest) || number != std::floor(number))
        throwRecordsetError(recordsetErrors::InvalidArgument);
    return static_cast<std::int64_t>(number);
}

String trimmed(const String& text) {
    const std::u16string_view all = text;
    const std::size_t first = all.find_first_not_of(u" \t\r\n");
    if (first == std::u16string_view::npos) return {};
    return all.substr(first, all.find_last_not_of(u" \t\r\n") - first + 1);
}

} // namespace

const automation::ClassTable& Recordset::table() {
    using automation::optional;
    static const automation::ClassTable table =
        automation::ClassTable::of<Recordset>("Recordset")
            .get("Fields", &Recordset::FieldsOrOne, {optional("Index")})
            .defaultMember()
            .method("Open", &Recordset::Open, {optional("Source"), optional("ActiveConnection")})
            .method("Close", &Recordset::Close)
            .method("Requery", &Recordset::Requery)
            .property("Source", &Recordset::Source, &Recordset::Source)
            .property("ActiveConnection", &Recordset::ActiveConnection, &Recordset::ActiveConnection)
            .get("State", &Recordset::State)
            .get("BOF", &Recordset::BOF)
            .get("EOF", &Recordset::AtEOF)
            .method("MoveFirst", &Recordset::MoveFirst)
            .method("MoveLast", &Recordset::MoveLast)
            .method("MoveNext", &Recordset::MoveNext)
            .method("MovePrevious", &Recordset::MovePrevious)
            .method("Move", &Recordset::Move, {"NumRecords", optional("Start")})
            .property("AbsolutePosition", &Recordset::AbsolutePosition, &Recordset::AbsolutePosition)
            .get("RecordCount", &Recordset::RecordCount)
            .property("Bookmark", &Recordset::Bookmark, &Recordset::Bookmark)
            .method("Find", &Recordset::Find,
                    {"Criteria", optional("SkipRecords", 0), optional("SearchDirection", adSearchForward),
                     optional("Start")})
            .property("Filter", &Recordset::Filter, &Recordset::Filter)
            .property("Sort", &Recordset::Sort, &Recordset::Sort)
            .method("GetRows", &Recordset::GetRows,
                    {optional("Rows", adGetRowsRest), optional("Start"), optional("Fields")});
    return table;
}

Recordset::Recordset()
    : cursor_(std::make_shared<RecordCursor>()), fields_(automation::make<host::Fields>(cursor_)) {}

Recordset::~Recordset() {
    cursor_->close();
}

// ------------------------------------------------------------------------------- opening and closing

void Recordset::Open(const Variant& source, const Variant& connection) {
    if (cursor_->isOpen()) throwRecordsetError(recordsetErrors::ObjectOpen);
    if (!source.isMissing()) source_ = automation::CStr(automation::value(source));
    if (!connection.isMissing()) connection_ = automation::CStr(automation::value(connection));
    if (trimmed(source_).empty() || connection_.empty())
        throwRecordsetError(recordsetErrors::InvalidArgument);
    withDatabaseErrors([this] {
        auto database = std::make_unique<platform::Database>(pathOf(connection_));
        defineCriteriaFunctions(*database);
        cursor_->open(openRows(*database, trimmed(source_).utf8()));
        database_ = std::move(database);
    });
}

void Recordset::Close() {
    if (!cursor_->isOpen()) throwRecordsetError(recordsetErrors::ObjectClosed);
    cursor_->close();
    database_.reset();
    filter_ = adFilterNone;
    sort_ = {};
}

void Recordset::Requery() {
    if (!cursor_->isOpen()) throwRecordsetError(recordsetErrors::ObjectClosed);
    // The old rows may use the same temporary table.
    cursor_->close();
    withDatabaseErrors([this] { cursor_->open(openRows(*database_, trimmed(source_).utf8())); });
    select(filter_, sort_);
}

void Recordset::Source(const String& value) {
    if (cursor_->isOpen()) throwRecordsetError(recordsetErrors::ObjectOpen);
    source_ = value;
}

void Recordset::ActiveConnection(const String& value) {
    if (cursor_->isOpen()) throwRecordsetError(recordsetErrors::ObjectOpen);
    connection_ = value;
}

platform::DatabaseWork Recordset::work() const {
    return database_ ? database_->work() : platform::DatabaseWork();
}

// --------------------------------------------------------------------------------------------- moving

bool Recordset::BOF() const {
    (void)cursor_->rows();
    return cursor_->isBefore();
}

bool Recordset::AtEOF() const {
    (void)cursor_->rows();
    return cursor_->isAfter();
}

void Recordset::MoveFirst() {
    withDatabaseErrors([this] {
        if (!cursor_->rows().exists(1)) throwRecordsetError(recordsetErrors::NoCurrentRecord);
        cursor_->moveTo(1);
    });
}

void Recordset::MoveLast() {
    withDatabaseErrors([this] {
        const std::int64_t count = cursor_->rows().count();
        if (count == 0) throwRecordsetError(recordsetErrors::NoCurrentRecord);
        cursor_->moveTo(count);
    });
}

void Recordset::MoveNext() {
    if (AtEOF()) throwRecordsetError(recordsetErrors::NoCurrentRecord);
    withDatabaseErrors([this] { cursor_->moveTo(cursor_->position() + 1); });
}

void Recordset::MovePrevious() {
    if (BOF()) throwRecordsetError(recordsetErrors::NoCurrentRecord);
    withDatabaseErrors([this] { cursor_->moveTo(cursor_->position() - 1); });
}

void Recordset::Move(std::int32_t records, const Variant& start) {
    withDatabaseErrors([&] {
        const std::int64_t from = start.isMissing() ? cursor_->position() : positionOf(start);
        const bool fromPresent = start.isMissing();
        if ((fromPresent && records > 0 && AtEOF()) || (fromPresent && records < 0 && BOF()))
            throwRecordsetError(recordsetErrors::NoCurrentRecord);
        if (fromPresent && records == 0 && !cursor_->isOnRow())
            throwRecordsetError(recordsetErrors::NoCurrentRecord);
        cursor_->moveTo(from + records);
    });
}

/// What a caller means by a place to start from.
std::int64_t Recordset::positionOf(const Variant& bookmark) const {
    enum Place : std::int32_t { present = 0, first = 1, last = 2 };
    const Variant plain = automation::value(bookmark);
    if (plain.type() == automation::VT_R8) {
        const auto position = cursor_->rows().positionOf(bookmarkNumber(plain));
        if (!position) throwRecordsetError(recordsetErrors::InvalidArgument);
        return *position;
    }
    switch (automation::CLng(plain)) {
    case present:
        if (!cursor_->isOnRow()) throwRecordsetError(recordsetErrors::NoCurrentRecord);
        return cursor_->position();
    case first:
        return 1;
    case last:
        return cursor_->rows().count();
    default:
        throwRecordsetError(recordsetErrors::InvalidArgument);
    }
}

std::int32_t Recordset::AbsolutePosition() const {
    (void)cursor_->rows();
    if (cursor_->isAfter()) return cursor_->isBefore() ? adPosUnknown : adPosEOF;
    if (cursor_->isBefore()) return adPosBOF;
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    return cursor_->position() > largest ? adPosUnknown : static_cast<std::int32_t>(cursor_->position());
}

void Recordset::AbsolutePosition(std::int32_t value) {
    withDatabaseErrors([&] {
        if (!cursor_->rows().exists(value)) throwRecordsetError(recordsetErrors::InvalidArgument);
        cursor_->moveTo(value);
    });
}

std::int32_t Recordset::RecordCount() const {
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    const std::int64_t count = withDatabaseErrors([this] { return cursor_->rows().count(); });
    return static_cast<std::int32_t>(std::min(count, largest));
}

Variant Recordset::Bookmark() const {
    (void)cursor_->rows();
    if (!cursor_->isOnRow()) throwRecordsetError(recordsetErrors::NoCurrentRecord);
    return withDatabaseErrors(
        [this] { return static_cast<double>(cursor_->rows().bookmark(cursor_->position())); });
}

std::optional<RowKey> Recordset::presentKey() const {
    if (!cursor_->isOnRow()) throwRecordsetError(recordsetErrors::NoCurrentRecord);
    return withDatabaseErrors([this] { return cursor_->rows().keyOf(cursor_->position()); });
}

void Recordset::Bookmark(const Variant& value) {
    withDatabaseErrors([&] {
        if (value.type() != automation::VT_R8) throwRecordsetError(recordsetErrors::InvalidArgument);
        cursor_->moveTo(positionOf(value));
    });
}

// ----------------------------------------------------------------------------------------- choosing

std::vector<CriteriaColumn> Recordset::criteriaColumns() const {
    std::vector<CriteriaColumn> columns;
    const RowSet& rows = cursor_->rows();
    for (std::size_t i = 0; i < cursor_->columns().size(); ++i) {
        const RecordCursor::Column& column = cursor_->columns()[i];
        columns.push_back({column.name, column.declaration.type, rows.expression(i)});
    }
    return columns;
}

void Recordset::Find(const String& criteria, std::int32_t skipRecords, std::int32_t direction,
                     const Variant& start) {
    const std::string condition = findCondition(criteria, criteriaColumns());
    if (direction != adSearchForward && direction != adSearchBackward)
        throwRecordsetError(recordsetErrors::InvalidArgument);
    const bool forward = direction == adSearchForward;
    withDatabaseErrors([&] {
        if (start.isMissing() && !cursor_->isOnRow()) throwRecordsetError(recordsetErrors::NoCurrentRecord);
        const std::int64_t from = start.isMissing() ? cursor_->position() : positionOf(start);
        const auto found =
            cursor_->rows().find(from + std::int64_t{direction} * skipRecords, forward, condition);
        if (found)
            cursor_->moveTo(*found);
        else if (forward)
            cursor_->moveToEnd();
        else
            cursor_->moveTo(0);
    });
}

/// What a filter says, in SQL; empty for none.
std::string Recordset::conditionOf(const Variant& filter, const std::vector<CriteriaColumn>& columns) const {
    if (filter.isString()) return filterCondition(filter.asString(), columns);
    if (!filter.isArray()) return {};
    const Array& list = filter.asArray();
    std::vector<std::int64_t> bookmarks;
    bookmarks.reserve(list.size());
    for (std::size_t i = 0; i < list.size(); ++i)
        bookmarks.push_back(bookmarkNumber(automation::value(list.element(i))));
    return cursor_->conditionOf(bookmarks);
}

void Recordset::select(Variant filter, String sort) {
    const std::vector<CriteriaColumn> columns = criteriaColumns();
    const std::string condition = conditionOf(filter, columns);
    const std::string order = orderTerms(sort, columns);
    // Should SQLite fail, all records are back.
    filter_ = adFilterNone;
    sort_ = {};
    withDatabaseErrors([&] { cursor_->select(condition, order); });
    filter_ = std::move(filter);
    sort_ = std::move(sort);
}

Variant Recordset::Filter() const {
    (void)cursor_->rows();
    return filter_;
}

void Recordset::Filter(const Variant& criteria) {
    Variant plain = automation::value(criteria);
    const bool chooses = plain.isArray() || (plain.isString() && !trimmed(plain.asString()).empty());
    if (!chooses && !plain.isString() && automation::CLng(plain) != adFilterNone)
        throwRecordsetError(recordsetErrors::InvalidArgument);
    select(chooses ? std::move(plain) : Variant(adFilterNone), sort_);
}

void Recordset::Sort(const String& columns) {
    select(filter_, columns);
}

// -------------------------------------------------------------------------------------------- reading

Variant Recordset::FieldsOrOne(const Variant& index) const {
    if (index.isMissing()) return fields_;
    return fields_->Item(index);
}

std::vector<std::size_t> Recordset::columnsOf(const Variant& fields) const {
    std::vector<std::size_t> columns;
    if (fields.isMissing()) {
        for (std::size_t i = 0; i < cursor_->columns().size(); ++i)
            columns.push_back(i);
    } else if (fields.isArray()) {
        const Array list = fields.dereferenced().asArray();
        for (std::size_t i = 0; i < list.size(); ++i)
            columns.push_back(fields_->find(list.element(i)));
    } else {
        columns.push_back(fields_->find(fields));
    }
    return columns;
}

Variant Recordset::GetRows(std::int32_t rows, const Variant& start, const Variant& fields) {
    return withDatabaseErrors([&]() -> Variant {
        if (rows < adGetRowsRest) throwRecordsetError(recordsetErrors::InvalidArgument);
        const std::vector<std::size_t> columns = columnsOf(fields);
        std::int64_t position = cursor_->position();
        if (!start.isMissing())
            position = positionOf(start);
        else if (!cursor_->isOnRow())
            throwRecordsetError(recordsetErrors::NoCurrentRecord);
        if (!cursor_->rows().exists(position)) throwRecordsetError(recordsetErrors::NoCurrentRecord);

        const std::int64_t limit = rows == adGetRowsRest ? std::numeric_limits<std::int64_t>::max() : rows;
        std::vector<Variant> values;
        std::uint32_t found = 0;
        cursor_->rows().readOn(position, limit, [&](const platform::Statement& row) {
            for (const std::size_t column : columns)
                values.push_back(columnValue(row.value(static_cast<int>(column)),
                                             cursor_->columns()[column].declaration.type));
            ++found;
        });
        Array array(automation::VT_VARIANT, {{0, static_cast<std::uint32_t>(columns.size())}, {0, found}});
        if (!values.empty()) std::move(values.begin(), values.end(), array.variants().begin());
        cursor_->moveTo(position + found);
        return array;
    });
}

} // namespace host
