#include "host/linux/SelectedRows.h"

namespace host {

using platform::Statement;

namespace {

/// "name0, name1, ..." for each part of a key.
std::string each(std::size_t parts, const std::string& name) {
    std::string text;
    for (std::size_t i = 0; i < parts; ++i)
        text += (i == 0 ? "" : ", ") + name + std::to_string(i);
    return text;
}

std::string listed(const std::vector<std::string>& key) {
    std::string text;
    for (const std::string& part : key)
        text += (text.empty() ? "" : ", ") + part;
    return text;
}

} // namespace

SelectedRows::SelectedRows(platform::Database database, const RowSet& from, const Source& source,
                           const std::string& condition, const std::string& order)
    : database_(std::move(database)), from_(from) {
    describe(from.columns());
    note(source, condition, order);
    prepare(source);
}

/// The temporary table: each row's number and its key.
void SelectedRows::note(const Source& source, const std::string& condition, const std::string& order) {
    const std::string names = each(source.key.size(), "k");
    const std::string key = listed(source.key);
    database_.execute("DROP TABLE IF EXISTS temp.elegidas; "
                      "CREATE TEMP TABLE elegidas(n INTEGER PRIMARY KEY, " +
                      names + ")");
    database_
        .prepare("INSERT INTO temp.elegidas(" + names + ") SELECT " + key + " FROM " + source.table +
                 " AS t" + (condition.empty() ? "" : " WHERE " + condition) + " ORDER BY " +
                 (order.empty() ? "" : order + ", ") + key)
        .run();
    count_ = database_.changes();
}

void SelectedRows::prepare(const Source& source) {
    const std::size_t parts = source.key.size();
    const std::string key = "(" + listed(source.key) + ")";
    // The source's side first: its columns say how texts of a key are compared.
    joined_ = "temp.elegidas AS e CROSS JOIN " + source.table + " AS t ON " + key + " = (" +
              each(parts, "e.k") + ")";
    row_ = database_.prepare("SELECT t.* FROM " + joined_ + " WHERE e.n = ?");
    rowsFrom_ = database_.prepare("SELECT t.* FROM " + joined_ + " WHERE e.n >= ? ORDER BY e.n LIMIT ?");
    rank_ = database_.prepare("SELECT count(*) FROM " + source.table + " AS t WHERE " + key + " <= (SELECT " +
                              each(parts, "e.k") + " FROM temp.elegidas AS e WHERE e.n = ?)");
    std::string named;
    for (std::size_t i = 0; i < parts; ++i)
        named += (i == 0 ? "" : ", ") + source.key[i] + " AS k" + std::to_string(i);
    positionOf_ =
        database_.prepare("SELECT e.n FROM (SELECT " + named + " FROM " + source.table + " AS t ORDER BY " +
                          listed(source.key) + " LIMIT 1 OFFSET ?) AS s CROSS JOIN temp.elegidas AS e ON (" +
                          each(parts, "s.k") + ") = (" + each(parts, "e.k") + ")");
}

bool SelectedRows::read(std::int64_t position, Row& row) {
    row_.bind(1, position);
    if (!row_.step()) return false;
    row = valuesOf(row_);
    row_.reset();
    return true;
}

void SelectedRows::readOn(std::int64_t position, std::int64_t limit, const Sink& sink) {
    rowsFrom_.bind(1, position).bind(2, limit);
    while (rowsFrom_.step())
        sink(rowsFrom_);
}

std::optional<std::int64_t> SelectedRows::find(std::int64_t position, bool forward,
                                               const std::string& condition) {
    Statement search =
        database_.prepare("SELECT e.n FROM " + joined_ + " WHERE e.n " + (forward ? ">=" : "<=") + " ? AND " +
                          condition + " ORDER BY e.n " + (forward ? "" : "DESC ") + "LIMIT 1");
    search.bind(1, position);
    return search.step() ? std::optional(search.integer(0)) : std::nullopt;
}

std::int64_t SelectedRows::bookmark(std::int64_t position) {
    rank_.bind(1, position);
    const std::int64_t rank = rank_.step() ? rank_.integer(0) : 0;
    rank_.reset();
    return rank;
}

std::optional<std::int64_t> SelectedRows::positionOf(std::int64_t bookmark) {
    positionOf_.bind(1, bookmark - 1);
    if (bookmark < 1 || !positionOf_.step()) return std::nullopt;
    const std::int64_t position = positionOf_.integer(0);
    positionOf_.reset();
    return position;
}

} // namespace host
