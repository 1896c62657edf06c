#pragma once
// SQLite, seen through one door: connections, statements and what a database says about its tables.
// Nothing else in the project includes SQLite's header. Failures are thrown as DatabaseError, whose text
// is meant for the user: it names the file and says in Spanish what is wrong with it.

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace platform {

/// What went wrong, in UTF-8, and SQLite's primary result code (26 is "not a database").
class DatabaseError : public std::runtime_error {
public:
    DatabaseError(int code, const std::string& text) : std::runtime_error(text), code_(code) {}
    int code() const { return code_; }

private:
    int code_;
};

/// How a value lies in the file, whatever its column declares.
enum class Storage { Null, Integer, Real, Text, Blob };

using Bytes = std::vector<std::uint8_t>;

/// A value taken out of a statement; text is UTF-8 and may hold NUL characters.
using DatabaseValue = std::variant<std::monostate, std::int64_t, double, std::string, Bytes>;

enum class TableKind { Table, View, Virtual };

struct TableInfo {
    std::string name;
    TableKind kind = TableKind::Table;
    bool hasRowid = true; ///< False for views, virtual tables and tables WITHOUT ROWID
};

struct ColumnInfo {
    std::string name;
    std::string declaredType;  ///< As written in CREATE TABLE; empty where nothing is declared
    int primaryKeyOrdinal = 0; ///< 1-based place in the primary key, 0 for a column outside it
    bool notNull = false;
};

/// How much a connection has done: what tests hold to bounds that do not depend on a clock.
struct DatabaseWork {
    std::int64_t rows = 0;         ///< Rows handed out by Statement::step
    std::int64_t instructions = 0; ///< Steps of SQLite's virtual machine, of the statements reset or ended
};

struct DatabaseConnection; ///< Shared by a Database and its statements, private to the driver

/// One prepared statement. It may outlive the Database object that made it: the file stays open for it.
class Statement {
public:
    Statement() = default;
    Statement(Statement&&) noexcept = default;
    Statement& operator=(Statement&& other) noexcept;
    ~Statement();

    /// Parameters are numbered from 1. Binding ends a running execution.
    Statement& bind(int parameter, std::nullptr_t);
    Statement& bind(int parameter, std::int64_t value);
    Statement& bind(int parameter, int value) { return bind(parameter, std::int64_t{value}); }
    Statement& bind(int parameter, double value);
    Statement& bind(int parameter, std::string_view utf8);
    Statement& bind(int parameter, const char* utf8) { return bind(parameter, std::string_view(utf8)); }
    Statement& bind(int parameter, std::span<const std::uint8_t> bytes);
    Statement& bind(int parameter, const DatabaseValue& value);

    /// Binds what `column` of the other statement's present row holds, with its storage unchanged.
    Statement& bindColumn(int parameter, const Statement& other, int column);

    /// Goes to the next row; false at the end, after which the statement is ready for another execution.
    bool step();

    /// Executes a statement that gives no rows and makes it ready for the next execution.
    void run();

    /// Ends the execution and with it the lock on the file; the bound values stay.
    void reset();

    /// Columns are numbered from 0.
    int columnCount() const;
    std::string columnName(int column) const;
    std::string declaredType(int column) const; ///< Empty for an expression
    bool readsOnly() const;
    int parameterCount() const;

    /// Typed reads of the present row, converted as SQLite converts. Views last until the next step or
    /// reset.
    Storage storage(int column) const;
    bool isNull(int column) const { return storage(column) == Storage::Null; }
    std::int64_t integer(int column) const;
    double real(int column) const;
    std::string_view text(int column) const;
    std::span<const std::uint8_t> blob(int column) const;
    DatabaseValue value(int column) const;

private:
    friend class Database;
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };

    Statement(std::shared_ptr<DatabaseConnection> connection, sqlite3_stmt* statement)
        : connection_(std::move(connection)), statement_(statement) {}
    void check(int result) const;
    void beginBinding();
    void countWork();

    std::shared_ptr<DatabaseConnection> connection_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
    bool running_ = false;
};

/// A connection to one database file.
class Database {
public:
    enum class Access {
        ReadOnly,  ///< The file must exist
        ReadWrite, ///< The file must exist
        Create,    ///< Makes the file if it is missing
    };

    /// Opens the file and reads its header, so that a missing file, a folder, a file that may not be read
    /// and a file of another kind fail here. ":memory:" is a database without a file.
    explicit Database(const std::string& path, Access access = Access::ReadOnly);

    /// Prepares the one statement in `sql`; text after it is an error.
    Statement prepare(std::string_view sql) const;

    /// Executes all statements in `sql`, dropping their rows.
    void execute(const std::string& sql) const;

    const std::string& path() const;

    /// Rows inserted, changed or deleted by the last such statement.
    std::int64_t changes() const;
    std::int64_t lastInsertedRowid() const;

    /// Tables and views of the file in the order of their making, without SQLite's own.
    std::vector<TableInfo> tables() const;

    /// The table's columns in order, hidden ones left out; empty when there is no such table.
    std::vector<ColumnInfo> columns(std::string_view table) const;

    /// The columns whose ascending order identifies and orders the rows of a table: the name under which its
    /// rowid can be read, or the primary key of a table WITHOUT ROWID. Empty where rows have no such key
    /// (views, virtual tables) or where the key is stored in descending order.
    std::vector<std::string> keyColumns(const TableInfo& table) const;

    /// A number that changes when another connection has changed the file.
    std::int64_t dataVersion() const;

    /// Gives the statements of this connection a function of one argument, which depends on nothing else.
    /// What it throws ends the statement.
    void define(const std::string& name, std::function<DatabaseValue(const DatabaseValue&)> function) const;

    const DatabaseWork& work() const;

    /// Bytes that SQLite holds in this process now.
    static std::int64_t memoryUsed();

private:
    std::shared_ptr<DatabaseConnection> connection_;
};

/// The name between double quotes, ready to stand in a statement.
std::string quotedIdentifier(std::string_view name);

} // namespace platform
