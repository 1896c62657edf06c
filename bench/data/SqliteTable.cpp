#include "SqliteTable.h"

#include "data/collation.h"

#include <sqlite3.h>
#include <stdexcept>

namespace bench {

namespace {

int compareTexts(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return tesela::TS_Compara(
        std::string_view(static_cast<const char*>(a), static_cast<std::size_t>(lengthA)),
        std::string_view(static_cast<const char*>(b), static_cast<std::size_t>(lengthB)));
}

} // namespace

Statement::Statement(sqlite3* database, const std::string& sql) {
    if (sqlite3_prepare_v2(database, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK)
        throw std::runtime_error(sql + ": " + sqlite3_errmsg(database));
}

Statement::~Statement() {
    sqlite3_finalize(statement_);
}

void Statement::bind(int parameter, std::int64_t value) {
    sqlite3_bind_int64(statement_, parameter, value);
}

void Statement::bind(int parameter, double value) {
    sqlite3_bind_double(statement_, parameter, value);
}

void Statement::bind(int parameter, std::string_view text) {
    sqlite3_bind_text(statement_, parameter, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

void Statement::bindNull(int parameter) {
    sqlite3_bind_null(statement_, parameter);
}

std::int64_t Statement::run() {
    std::int64_t rows = 0;
    while (sqlite3_step(statement_) == SQLITE_ROW)
        ++rows;
    sqlite3_reset(statement_);
    return rows;
}

std::int64_t Statement::runForNumber() {
    const std::int64_t number =
        sqlite3_step(statement_) == SQLITE_ROW ? sqlite3_column_int64(statement_, 0) : std::int64_t{-1};
    sqlite3_reset(statement_);
    return number;
}

std::int64_t Statement::runForText() {
    std::int64_t length = -1;
    if (sqlite3_step(statement_) == SQLITE_ROW)
        length = std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement_, 0))).size();
    sqlite3_reset(statement_);
    return length;
}

SqliteTable::SqliteTable() {
    if (sqlite3_open(":memory:", &database_) != SQLITE_OK) throw std::runtime_error("sqlite3_open");
    execute("PRAGMA journal_mode=OFF");
    execute("PRAGMA synchronous=OFF");
    execute("PRAGMA temp_store=MEMORY");
    sqlite3_create_collation(database_, "es", SQLITE_UTF8, nullptr, compareTexts);
    execute("CREATE TABLE t(number INTEGER, name TEXT COLLATE es, town TEXT COLLATE es, born REAL, amount "
            "INTEGER, "
            "grp INTEGER, active INTEGER, remark TEXT COLLATE es)");
}

SqliteTable::~SqliteTable() {
    sqlite3_close(database_);
}

void SqliteTable::execute(const std::string& sql) {
    Statement(database_, sql).run();
}

void SqliteTable::clear() {
    execute("DELETE FROM t");
}

void SqliteTable::insert(const std::vector<Record>& records) {
    execute("BEGIN");
    Statement insertion(database_, "INSERT INTO t VALUES(?,?,?,?,?,?,?,?)");
    for (const Record& record : records) {
        insertion.bind(Number, std::int64_t{record.number});
        insertion.bind(Name, record.name);
        insertion.bind(Town, record.town);
        record.born ? insertion.bind(Born, *record.born) : insertion.bindNull(Born);
        insertion.bind(Amount, record.amount);
        insertion.bind(Group, std::int64_t{record.group});
        insertion.bind(Active, std::int64_t{record.active});
        record.remark ? insertion.bind(Remark, *record.remark) : insertion.bindNull(Remark);
        insertion.run();
    }
    execute("COMMIT");
}

} // namespace bench
