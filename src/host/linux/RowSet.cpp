#include "host/linux/RowSet.h"

#include "host/linux/SelectedRows.h"

#include <algorithm>

namespace host {

using platform::Database;
using platform::DatabaseError;
using platform::quotedIdentifier;
using platform::Statement;

namespace {

constexpr int misuse = 21; ///< SQLite's code for a call that makes no sense

std::string joined(const std::vector<std::string>& parts, const std::string& tail = "") {
    std::string text;
    for (const std::string& part : parts)
        text.append(text.empty() ? "" : ", ").append(part).append(tail);
    return text;
}

/// "n IN (1, 2)".
std::string among(const std::string& name, const std::vector<std::int64_t>& numbers) {
    std::vector<std::string> digits;
    digits.reserve(numbers.size());
    for (const std::int64_t number : numbers)
        digits.push_back(std::to_string(number));
    return name + " IN (" + joined(digits) + ")";
}

/// "(a, b)" compared with as many parameters: "(a, b) >= (?1, ?2)".
std::string comparison(const std::vector<std::string>& key, const std::string& operation) {
    const std::vector<std::string> marks(key.size(), "?");
    return " WHERE (" + joined(key) + ") " + operation + " (" + joined(marks) + ")";
}

} // namespace

void RowSet::describe(const Statement& statement) {
    columns_.clear();
    for (int i = 0; i < statement.columnCount(); ++i)
        columns_.push_back({statement.columnName(i), statement.declaredType(i)});
}

RowSet::Row RowSet::valuesOf(const Statement& statement) {
    Row values;
    for (int i = 0; i < statement.columnCount(); ++i)
        values.push_back(statement.value(i));
    return values;
}

std::string RowSet::expression(std::size_t column) const {
    return "t." + quotedIdentifier(columns_.at(column).name);
}

std::optional<std::int64_t> RowSet::positionOf(std::int64_t bookmark) {
    return exists(bookmark) ? std::optional(bookmark) : std::nullopt;
}

// ----------------------------------------------------------------------------------------- KeyedRows

KeyedRows::KeyedRows(Database database, const std::string& table, const std::vector<std::string>& key)
    : database_(std::move(database)), name_(table), key_(key), table_("main." + quotedIdentifier(table)) {
    std::vector<std::string>& columns = keyColumns_;
    for (const std::string& column : key)
        columns.push_back("t." + quotedIdentifier(column));
    const std::string from = " FROM " + table_ + " AS t";
    const std::string keys = "SELECT " + joined(columns) + from;
    const std::string rising = " ORDER BY " + joined(columns);
    const std::string falling = " ORDER BY " + joined(columns, " DESC");
    const auto prepare = [&](const std::string& sql) { return database_.prepare(sql); };
    countAll_ = prepare("SELECT count(*)" + from);
    first_ = prepare(keys + rising + " LIMIT 1");
    fromEnd_ = prepare(keys + falling + " LIMIT 1 OFFSET ?");
    after_ = prepare(keys + comparison(columns, ">=") + rising + " LIMIT 1 OFFSET ?");
    before_ = prepare(keys + comparison(columns, "<") + falling + " LIMIT 1 OFFSET ?");
    block_ = prepare(keys + comparison(columns, ">=") + rising + " LIMIT ?");
    row_ = prepare("SELECT *" + from + comparison(columns, "="));
    rowsFrom_ = prepare("SELECT *" + from + comparison(columns, ">=") + rising + " LIMIT ?");
    describe(row_);
}

/// Binds the key to the first parameters and returns the number of the next one.
int KeyedRows::bindKey(Statement& statement, const Key& key) {
    int parameter = 0;
    for (const platform::DatabaseValue& part : key)
        statement.bind(++parameter, part);
    return parameter + 1;
}

std::optional<KeyedRows::Key> KeyedRows::firstOf(Statement& statement) {
    if (!statement.step()) return std::nullopt;
    Key key = valuesOf(statement);
    statement.reset();
    return key;
}

std::int64_t KeyedRows::count() {
    if (!count_) {
        count_ = countAll_.step() ? countAll_.integer(0) : 0;
        countAll_.reset();
    }
    return *count_;
}

/// The block with a known start that lies nearest; the last one becomes known when it is nearer than any.
/// -1 for an empty table.
std::int64_t KeyedRows::nearestKnown(std::int64_t block) {
    if (starts_.empty()) {
        std::optional<Key> key = firstOf(first_);
        if (!key) {
            count_ = 0;
            return -1;
        }
        starts_.emplace(0, std::move(*key));
    }
    const auto above = starts_.lower_bound(block);
    const auto below = above == starts_.begin() ? above : std::prev(above);
    std::int64_t nearest = below->first;
    if (above != starts_.end() && above->first - block < std::abs(block - nearest)) nearest = above->first;
    if (count_ && *count_ > 0) {
        const std::int64_t last = (*count_ - 1) / blockLength;
        if (block <= last && last - block < std::abs(block - nearest)) {
            const std::int64_t rowsAfterItsFirst = (*count_ - 1) % blockLength;
            fromEnd_.bind(1, rowsAfterItsFirst);
            if (std::optional<Key> key = firstOf(fromEnd_)) {
                starts_.insert_or_assign(last, std::move(*key));
                nearest = last;
            }
        }
    }
    return nearest;
}

std::optional<KeyedRows::Key> KeyedRows::startOf(std::int64_t block) {
    std::int64_t known = nearestKnown(block);
    if (known < 0) return std::nullopt;
    while (known != block) {
        const bool forward = known < block;
        Statement& walk = forward ? after_ : before_;
        const int offset = bindKey(walk, starts_.at(known));
        walk.bind(offset, forward ? blockLength : blockLength - 1);
        std::optional<Key> key = firstOf(walk);
        if (!key) return std::nullopt;
        known += forward ? 1 : -1;
        starts_.insert_or_assign(known, std::move(*key));
    }
    return starts_.at(block);
}

bool KeyedRows::loadBlock(std::int64_t block) {
    if (block == loadedBlock_) return true;
    const std::optional<Key> start = startOf(block);
    if (!start) return false;
    keys_.clear();
    loadedBlock_ = block;
    // One row more than the block has: the first of the next block.
    block_.bind(bindKey(block_, *start), blockLength + 1);
    while (block_.step())
        keys_.push_back(valuesOf(block_));
    if (static_cast<std::int64_t>(keys_.size()) > blockLength) {
        starts_.insert_or_assign(block + 1, std::move(keys_.back()));
        keys_.pop_back();
    } else {
        count_ = block * blockLength + static_cast<std::int64_t>(keys_.size());
    }
    return true;
}

std::optional<KeyedRows::Key> KeyedRows::keyAt(std::int64_t position) {
    if (position < 1 || (count_ && position > *count_)) return std::nullopt;
    if (!loadBlock((position - 1) / blockLength)) return std::nullopt;
    const auto place = static_cast<std::size_t>((position - 1) % blockLength);
    if (place >= keys_.size()) return std::nullopt;
    return keys_[place];
}

bool KeyedRows::exists(std::int64_t position) {
    if (position < 1) return false;
    if (count_) return position <= *count_;
    return keyAt(position).has_value();
}

bool KeyedRows::read(std::int64_t position, Row& row) {
    const std::optional<Key> key = keyAt(position);
    if (!key) return false;
    bindKey(row_, *key);
    if (!row_.step()) return false;
    row = valuesOf(row_);
    row_.reset();
    return true;
}

std::optional<RowKey> KeyedRows::keyOf(std::int64_t position) {
    std::optional<Key> key = keyAt(position);
    if (!key) return std::nullopt;
    return RowKey{name_, key_, std::move(*key)};
}

void KeyedRows::readOn(std::int64_t position, std::int64_t limit, const Sink& sink) {
    const std::optional<Key> key = keyAt(position);
    if (!key) return;
    rowsFrom_.bind(bindKey(rowsFrom_, *key), limit);
    while (rowsFrom_.step())
        sink(rowsFrom_);
}

std::optional<std::int64_t> KeyedRows::find(std::int64_t position, bool forward,
                                            const std::string& condition) {
    const std::optional<Key> start = keyAt(position);
    if (!start) return std::nullopt;
    const std::string from = " FROM " + table_ + " AS t";
    Statement search = database_.prepare(
        "SELECT " + joined(keyColumns_) + from + comparison(keyColumns_, forward ? ">=" : "<=") + " AND " +
        condition + " ORDER BY " + joined(keyColumns_, forward ? "" : " DESC") + " LIMIT 1");
    bindKey(search, *start);
    const std::optional<Key> found = firstOf(search);
    if (!found) return std::nullopt;
    // How far away that is, SQLite counts.
    const std::vector<std::string> marks(keyColumns_.size(), "?");
    Statement distance = database_.prepare("SELECT count(*)" + from + comparison(keyColumns_, ">=") +
                                           " AND (" + joined(keyColumns_) + ") < (" + joined(marks) + ")");
    const int next = bindKey(distance, forward ? *start : *found);
    const Key& end = forward ? *found : *start;
    for (std::size_t i = 0; i < end.size(); ++i)
        distance.bind(next + static_cast<int>(i), end[i]);
    distance.step();
    const std::int64_t rows = distance.integer(0);
    return forward ? position + rows : position - rows;
}

std::unique_ptr<RowSet> KeyedRows::select(const std::string& condition, const std::string& order) const {
    return std::make_unique<SelectedRows>(database_, *this, SelectedRows::Source{table_, keyColumns_},
                                          condition, order);
}

// --------------------------------------------------------------------------------------- SpooledRows

/// The bookmark of a row is its place in the order of the keys.
std::string KeyedRows::conditionOf(const std::vector<std::int64_t>& bookmarks) const {
    const std::string key = joined(keyColumns_);
    std::vector<std::string> named, names;
    for (std::size_t i = 0; i < keyColumns_.size(); ++i) {
        names.push_back("k" + std::to_string(i));
        named.push_back(keyColumns_[i] + " AS " + names.back());
    }
    return "(" + key + ") IN (SELECT " + joined(names) + " FROM (SELECT " + joined(named) +
           ", row_number() OVER (ORDER BY " + key + ") AS n FROM " + table_ + " AS t) WHERE " +
           among("n", bookmarks) + ")";
}

SpooledRows::SpooledRows(Database database, const std::string& query) : database_(std::move(database)) {
    Statement source = database_.prepare(query);
    if (source.columnCount() == 0)
        throw DatabaseError(misuse, database_.path() + ": la consulta no devuelve filas");
    if (!source.readsOnly())
        throw DatabaseError(misuse, database_.path() + ": la consulta modifica la base de datos");
    describe(source);
    copy(source);
    rowsFrom_ =
        database_.prepare("SELECT t.* FROM temp.filas AS t WHERE t.rowid >= ? ORDER BY t.rowid LIMIT ?");
}

void SpooledRows::copy(Statement& query) {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(query.columnCount()));
    for (int i = 0; i < query.columnCount(); ++i)
        names.push_back("c" + std::to_string(i));
    // Columns without a type keep each value as the query gave it.
    database_.execute("DROP TABLE IF EXISTS temp.filas; CREATE TEMP TABLE filas(" + joined(names) +
                      "); BEGIN");
    try {
        const std::vector<std::string> marks(names.size(), "?");
        Statement insert = database_.prepare("INSERT INTO temp.filas VALUES(" + joined(marks) + ")");
        for (; query.step(); ++count_) {
            for (int i = 0; i < query.columnCount(); ++i)
                insert.bindColumn(i + 1, query, i);
            insert.run();
        }
    } catch (const DatabaseError&) {
        query.reset();
        database_.execute("ROLLBACK");
        throw;
    }
    database_.execute("COMMIT");
}

bool SpooledRows::read(std::int64_t position, Row& row) {
    if (!exists(position)) return false;
    rowsFrom_.bind(1, position).bind(2, 1);
    if (!rowsFrom_.step()) return false;
    row = valuesOf(rowsFrom_);
    rowsFrom_.reset();
    return true;
}

void SpooledRows::readOn(std::int64_t position, std::int64_t limit, const Sink& sink) {
    rowsFrom_.bind(1, position).bind(2, limit);
    while (rowsFrom_.step())
        sink(rowsFrom_);
}

std::string SpooledRows::expression(std::size_t column) const {
    return "t.c" + std::to_string(column);
}

std::optional<std::int64_t> SpooledRows::find(std::int64_t position, bool forward,
                                              const std::string& condition) {
    Statement search = database_.prepare("SELECT t.rowid FROM temp.filas AS t WHERE t.rowid " +
                                         std::string(forward ? ">=" : "<=") + " ? AND " + condition +
                                         " ORDER BY t.rowid " + (forward ? "" : "DESC ") + "LIMIT 1");
    search.bind(1, position);
    return search.step() ? std::optional(search.integer(0)) : std::nullopt;
}

std::unique_ptr<RowSet> SpooledRows::select(const std::string& condition, const std::string& order) const {
    return std::make_unique<SelectedRows>(database_, *this, SelectedRows::Source{"temp.filas", {"t.rowid"}},
                                          condition, order);
}

std::string SpooledRows::conditionOf(const std::vector<std::int64_t>& bookmarks) const {
    return among("t.rowid", bookmarks);
}

// ------------------------------------------------------------------------------------------- opening

std::unique_ptr<SourceRows> openRows(const Database& database, const std::string& source) {
    // Temporary tables do not take memory.
    database.execute("PRAGMA temp_store = FILE");
    const auto sameName = [&](const std::string& name) {
        return std::equal(name.begin(), name.end(), source.begin(), source.end(), [](char a, char b) {
            const auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
            return small(a) == small(b);
        });
    };
    for (const platform::TableInfo& table : database.tables()) {
        if (!sameName(table.name)) continue;
        const std::vector<std::string> key = database.keyColumns(table);
        if (!key.empty()) return std::make_unique<KeyedRows>(database, table.name, key);
        return std::make_unique<SpooledRows>(database, "SELECT * FROM main." + quotedIdentifier(table.name));
    }
    if (source.find_first_of(" \t\r\n(;") == std::string::npos)
        throw DatabaseError(misuse, database.path() + ": no hay ninguna tabla \"" + source + "\"");
    return std::make_unique<SpooledRows>(database, source);
}

} // namespace host
