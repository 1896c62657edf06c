#include "platform/linux/database.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

struct DatabaseConnection {
    std::string path;
    sqlite3* handle = nullptr;
    DatabaseWork work;

    DatabaseConnection() = default;
    DatabaseConnection(const DatabaseConnection&) = delete;
    DatabaseConnection& operator=(const DatabaseConnection&) = delete;
    ~DatabaseConnection() { sqlite3_close_v2(handle); }
};

namespace {

constexpr int busyMilliseconds = 2000;

/// What a result code says to a user; null where SQLite's own message says more.
const char* explanation(int code) {
    switch (code & 0xFF) {
    case SQLITE_NOTADB:
        return "no es una base de datos SQLite";
    case SQLITE_CORRUPT:
        return "la base de datos está dañada";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return "otro programa tiene bloqueada la base de datos";
    case SQLITE_READONLY:
        return "la base de datos es de sólo lectura";
    case SQLITE_IOERR:
        return "error al leer o escribir en el disco";
    case SQLITE_FULL:
        return "no queda espacio en el disco";
    case SQLITE_NOMEM:
        return "no queda memoria";
    case SQLITE_CANTOPEN:
        return "no se puede abrir el archivo";
    case SQLITE_TOOBIG:
        return "un valor es demasiado grande";
    default:
        return nullptr;
    }
}

/// What a constraint that refused a row says to a user; a trigger's own words as they are.
std::string refusal(sqlite3* handle) {
    std::string message = sqlite3_errmsg(handle);
    // Behind the colon stand the columns, or the name of the condition.
    const std::size_t colon = message.find(": ");
    const std::string what = colon == std::string::npos ? "" : message.substr(colon + 2);
    switch (sqlite3_extended_errcode(handle)) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return "ya hay otro registro con el mismo valor de " + what;
    case SQLITE_CONSTRAINT_NOTNULL:
        return "falta el valor de " + what;
    case SQLITE_CONSTRAINT_CHECK:
        return "no se cumple la condición " + what;
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return "no hay ningún registro al que se pueda referir";
    case SQLITE_CONSTRAINT_DATATYPE:
        return "un valor no es del tipo de su columna";
    default:
        return message;
    }
}

[[noreturn]] void fail(const DatabaseConnection& connection, int code) {
    if ((code & 0xFF) == SQLITE_CONSTRAINT)
        throw DatabaseError(SQLITE_CONSTRAINT, connection.path + ": " + refusal(connection.handle));
    const char* known = explanation(code);
    const std::string text =
        known ? known : "error de la base de datos: " + std::string(sqlite3_errmsg(connection.handle));
    throw DatabaseError(code & 0xFF, connection.path + ": " + text);
}

/// Says before SQLite is asked what it would only call "unable to open".
void requireReadableFile(const std::string& path) {
    struct stat status = {};
    const char* reason = nullptr;
    if (stat(path.c_str(), &status) != 0)
        reason = errno == EACCES ? "no se tiene permiso para leer el archivo" : "no existe el archivo";
    else if (S_ISDIR(status.st_mode))
        reason = "es una carpeta, no un archivo";
    else if (access(path.c_str(), R_OK) != 0)
        reason = "no se tiene permiso para leer el archivo";
    if (reason) throw DatabaseError(SQLITE_CANTOPEN, path + ": " + reason);
}

int openFlags(Database::Access access) {
    switch (access) {
    case Database::Access::ReadOnly:
        return SQLITE_OPEN_READONLY;
    case Database::Access::ReadWrite:
        return SQLITE_OPEN_READWRITE;
    case Database::Access::Create:
        return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    }
    return SQLITE_OPEN_READONLY;
}

// ------------------------------------------------------------------------------- functions of our own

using Function = std::function<DatabaseValue(const DatabaseValue&)>;

DatabaseValue argument(sqlite3_value* value) {
    const auto length = [value] { return static_cast<std::size_t>(sqlite3_value_bytes(value)); };
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return sqlite3_value_int64(value);
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    case SQLITE_TEXT: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
        return std::string(text, length());
    }
    case SQLITE_BLOB: {
        const auto* data = static_cast<const std::uint8_t*>(sqlite3_value_blob(value));
        return Bytes(data, data + length());
    }
    default:
        return std::monostate{};
    }
}

struct Result {
    sqlite3_context* context;
    void operator()(std::monostate) const { sqlite3_result_null(context); }
    void operator()(std::int64_t number) const { sqlite3_result_int64(context, number); }
    void operator()(double number) const { sqlite3_result_double(context, number); }
    void operator()(const std::string& text) const {
        sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void operator()(const Bytes& bytes) const {
        if (bytes.empty())
            sqlite3_result_zeroblob(context, 0);
        else
            sqlite3_result_blob64(context, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
    }
};

void callFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    const auto& function = *static_cast<const Function*>(sqlite3_user_data(context));
    try {
        std::visit(Result{context}, function(argument(arguments[0])));
    } catch (const std::exception& failure) {
        sqlite3_result_error(context, failure.what(), -1);
    }
}

void dropFunction(void* function) {
    delete static_cast<Function*>(function);
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n;") == std::string_view::npos;
}

} // namespace

// ---------------------------------------------------------------------------------------- Statement

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Statement& Statement::operator=(Statement&& other) noexcept {
    // The statement goes before the connection that it belongs to.
    statement_ = std::move(other.statement_);
    connection_ = std::move(other.connection_);
    running_ = other.running_;
    return *this;
}

Statement::~Statement() {
    if (statement_) countWork();
}

void Statement::check(int result) const {
    if (result != SQLITE_OK) fail(*connection_, result);
}

void Statement::beginBinding() {
    if (running_) reset();
}

void Statement::countWork() {
    connection_->work.instructions += sqlite3_stmt_status(statement_.get(), SQLITE_STMTSTATUS_VM_STEP, 1);
}

Statement& Statement::bind(int parameter, std::nullptr_t) {
    beginBinding();
    check(sqlite3_bind_null(statement_.get(), parameter));
    return *this;
}

Statement& Statement::bind(int parameter, std::int64_t value) {
    beginBinding();
    check(sqlite3_bind_int64(statement_.get(), parameter, value));
    return *this;
}

Statement& Statement::bind(int parameter, double value) {
    beginBinding();
    check(sqlite3_bind_double(statement_.get(), parameter, value));
    return *this;
}

Statement& Statement::bind(int parameter, std::string_view utf8) {
    beginBinding();
    // A null pointer would bind NULL, and the empty text is no NULL.
    const char* text = utf8.data() ? utf8.data() : "";
    check(sqlite3_bind_text64(statement_.get(), parameter, text, utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Statement& Statement::bind(int parameter, std::span<const std::uint8_t> bytes) {
    beginBinding();
    const void* data = bytes.data() ? static_cast<const void*>(bytes.data()) : "";
    check(sqlite3_bind_blob64(statement_.get(), parameter, data, bytes.size(), SQLITE_TRANSIENT));
    return *this;
}

Statement& Statement::bind(int parameter, const DatabaseValue& value) {
    struct Binder {
        Statement& statement;
        int parameter;
        void operator()(std::monostate) const { statement.bind(parameter, nullptr); }
        void operator()(std::int64_t number) const { statement.bind(parameter, number); }
        void operator()(double number) const { statement.bind(parameter, number); }
        void operator()(const std::string& text) const { statement.bind(parameter, std::string_view(text)); }
        void operator()(const Bytes& bytes) const {
            statement.bind(parameter, std::span<const std::uint8_t>(bytes));
        }
    };
    std::visit(Binder{*this, parameter}, value);
    return *this;
}

Statement& Statement::bindColumn(int parameter, const Statement& other, int column) {
    beginBinding();
    check(sqlite3_bind_value(statement_.get(), parameter,
                             sqlite3_column_value(other.statement_.get(), column)));
    return *this;
}

bool Statement::step() {
    const int result = sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) {
        running_ = true;
        ++connection_->work.rows;
        return true;
    }
    if (result != SQLITE_DONE) {
        // The message is lost by the reset, so it is read first.
        try {
            fail(*connection_, result);
        } catch (const DatabaseError&) {
            reset();
            throw;
        }
    }
    reset();
    return false;
}

void Statement::run() {
    while (step()) {
    }
}

void Statement::reset() {
    countWork();
    sqlite3_reset(statement_.get());
    running_ = false;
}

int Statement::columnCount() const {
    return sqlite3_column_count(statement_.get());
}

std::string Statement::columnName(int column) const {
    const char* name = sqlite3_column_name(statement_.get(), column);
    return name ? name : "";
}

std::string Statement::declaredType(int column) const {
    const char* type = sqlite3_column_decltype(statement_.get(), column);
    return type ? type : "";
}

bool Statement::readsOnly() const {
    return sqlite3_stmt_readonly(statement_.get()) != 0;
}

int Statement::parameterCount() const {
    return sqlite3_bind_parameter_count(statement_.get());
}

Storage Statement::storage(int column) const {
    switch (sqlite3_column_type(statement_.get(), column)) {
    case SQLITE_INTEGER:
        return Storage::Integer;
    case SQLITE_FLOAT:
        return Storage::Real;
    case SQLITE_TEXT:
        return Storage::Text;
    case SQLITE_BLOB:
        return Storage::Blob;
    default:
        return Storage::Null;
    }
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(statement_.get(), column);
}

std::string_view Statement::text(int column) const {
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    if (!data) return {};
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

std::span<const std::uint8_t> Statement::blob(int column) const {
    const auto* data = static_cast<const std::uint8_t*>(sqlite3_column_blob(statement_.get(), column));
    if (!data) return {};
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

DatabaseValue Statement::value(int column) const {
    switch (storage(column)) {
    case Storage::Integer:
        return integer(column);
    case Storage::Real:
        return real(column);
    case Storage::Text:
        return std::string(text(column));
    case Storage::Blob: {
        const auto bytes = blob(column);
        return Bytes(bytes.begin(), bytes.end());
    }
    case Storage::Null:
        break;
    }
    return std::monostate{};
}

// ----------------------------------------------------------------------------------------- Database

Database::Database(const std::string& path, Access access)
    : connection_(std::make_shared<DatabaseConnection>()) {
    connection_->path = path;
    if (access != Access::Create && path != ":memory:") requireReadableFile(path);
    const int result = sqlite3_open_v2(path.c_str(), &connection_->handle, openFlags(access), nullptr);
    if (result != SQLITE_OK) fail(*connection_, result);
    sqlite3_busy_timeout(connection_->handle, busyMilliseconds);
    // SQLite opens lazily: only a first read tells whether this is a database at all.
    prepare("SELECT count(*) FROM sqlite_schema").run();
}

Statement Database::prepare(std::string_view sql) const {
    if (sql.size() > INT_MAX) throw DatabaseError(SQLITE_TOOBIG, path() + ": la consulta es demasiado larga");
    sqlite3_stmt* prepared = nullptr;
    const char* tail = nullptr;
    const int result =
        sqlite3_prepare_v2(connection_->handle, sql.data(), static_cast<int>(sql.size()), &prepared, &tail);
    if (result != SQLITE_OK) fail(*connection_, result);
    Statement statement(connection_, prepared);
    if (!prepared) throw DatabaseError(SQLITE_MISUSE, path() + ": la consulta está vacía");
    if (!isBlank(sql.substr(static_cast<std::size_t>(tail - sql.data()))))
        throw DatabaseError(SQLITE_MISUSE, path() + ": sólo se admite una consulta cada vez");
    return statement;
}

void Database::execute(const std::string& sql) const {
    const int result = sqlite3_exec(connection_->handle, sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) fail(*connection_, result);
}

const std::string& Database::path() const {
    return connection_->path;
}

std::int64_t Database::changes() const {
    return sqlite3_changes64(connection_->handle);
}

std::int64_t Database::lastInsertedRowid() const {
    return sqlite3_last_insert_rowid(connection_->handle);
}

std::vector<TableInfo> Database::tables() const {
    Statement list = prepare("SELECT s.name, l.type, l.wr FROM main.sqlite_schema AS s "
                             "JOIN pragma_table_list AS l ON l.schema = 'main' AND l.name = s.name "
                             "WHERE s.type IN ('table', 'view') AND l.type <> 'shadow' "
                             "AND s.name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY s.rowid");
    std::vector<TableInfo> found;
    while (list.step()) {
        TableInfo& table = found.emplace_back();
        table.name = list.text(0);
        const std::string_view type = list.text(1);
        if (type == "view") table.kind = TableKind::View;
        if (type == "virtual") table.kind = TableKind::Virtual;
        table.hasRowid = table.kind == TableKind::Table && list.integer(2) == 0;
    }
    return found;
}

std::vector<ColumnInfo> Database::columns(std::string_view table) const {
    constexpr int hiddenColumnOfVirtualTable = 1;
    Statement list =
        prepare("SELECT name, type, pk, \"notnull\", hidden FROM pragma_table_xinfo(?1, 'main')");
    list.bind(1, table);
    std::vector<ColumnInfo> found;
    while (list.step()) {
        if (list.integer(4) == hiddenColumnOfVirtualTable) continue;
        ColumnInfo& column = found.emplace_back();
        column.name = list.text(0);
        column.declaredType = list.text(1);
        column.primaryKeyOrdinal = static_cast<int>(list.integer(2));
        column.notNull = list.integer(3) != 0;
    }
    return found;
}

std::vector<std::string> Database::keyColumns(const TableInfo& table) const {
    if (table.kind != TableKind::Table) return {};
    const std::vector<ColumnInfo> all = columns(table.name);
    if (table.hasRowid) {
        // A column of the user's may bear one of the rowid's names and hide it.
        for (const char* alias : {"rowid", "_rowid_", "oid"}) {
            const bool hidden = std::any_of(all.begin(), all.end(), [&](const ColumnInfo& column) {
                return sqlite3_stricmp(column.name.c_str(), alias) == 0;
            });
            if (!hidden) return {alias};
        }
        return {};
    }
    Statement key = prepare("SELECT x.name, x.\"desc\" FROM pragma_index_list(?1, 'main') AS i "
                            "JOIN pragma_index_xinfo(i.name, 'main') AS x "
                            "WHERE i.origin = 'pk' AND x.key ORDER BY x.seqno");
    key.bind(1, std::string_view(table.name));
    std::vector<std::string> names;
    while (key.step()) {
        if (key.integer(1) != 0) return {};
        names.emplace_back(key.text(0));
    }
    return names;
}

std::int64_t Database::dataVersion() const {
    Statement version = prepare("PRAGMA data_version");
    return version.step() ? version.integer(0) : 0;
}

void Database::define(const std::string& name, Function function) const {
    const int result = sqlite3_create_function_v2(
        connection_->handle, name.c_str(), 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
        new Function(std::move(function)), callFunction, nullptr, nullptr, dropFunction);
    if (result != SQLITE_OK) fail(*connection_, result);
}

const DatabaseWork& Database::work() const {
    return connection_->work;
}

std::int64_t Database::memoryUsed() {
    return sqlite3_memory_used();
}

std::string quotedIdentifier(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

} // namespace platform
