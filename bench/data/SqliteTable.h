#pragma once
// The peer of the table: a database in memory, without a journal, with our order of texts.

#include "records.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

/// A statement that is made once and run many times.
class Statement {
public:
    Statement(sqlite3* database, const std::string& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    void bind(int parameter, std::int64_t value);
    void bind(int parameter, double value);
    void bind(int parameter, std::string_view text); ///< Which must live until the next binding
    void bindNull(int parameter);

    /// Runs to the end; the number of rows that came.
    std::int64_t run();
    /// Runs and gives the first column of the first row, -1 without one.
    std::int64_t runForNumber();
    /// Runs and gives the length of the first column's text, -1 without a row.
    std::int64_t runForText();

private:
    sqlite3_stmt* statement_ = nullptr;
};

/// The table `t` with the columns number, name, town, born, amount, grp, active and remark.
class SqliteTable {
public:
    SqliteTable();
    ~SqliteTable();
    SqliteTable(const SqliteTable&) = delete;
    SqliteTable& operator=(const SqliteTable&) = delete;

    void clear();
    /// All in one transaction.
    void insert(const std::vector<Record>& records);
    void execute(const std::string& sql);
    sqlite3* database() const { return database_; }

private:
    sqlite3* database_ = nullptr;
};

} // namespace bench
