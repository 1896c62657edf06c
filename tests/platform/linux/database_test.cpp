#include "platform/linux/database.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

using namespace platform;

namespace {

class DatabaseTest : public testing::Test {
protected:
    std::string file(const std::string& name) const { return folder.utf8File(name); }
    std::string write(const std::string& name, const std::string& bytes) const {
        folder.write(platform::wideFromUtf8(name), bytes);
        return file(name);
    }
    static std::string failureOf(const std::string& path) {
        try {
            Database database(path);
        } catch (const DatabaseError& error) {
            return error.what();
        }
        return "";
    }

    support::TemporaryFolder folder;
};

TEST_F(DatabaseTest, OpeningSaysWhatIsWrongWithTheFile) {
    EXPECT_EQ(failureOf(file("nada.sqlite")), file("nada.sqlite") + ": no existe el archivo");
    EXPECT_EQ(failureOf(folder.utf8Path()), folder.utf8Path() + ": es una carpeta, no un archivo");
    const std::string text = write("texto.sqlite", std::string(5000, 'x'));
    EXPECT_EQ(failureOf(text), text + ": no es una base de datos SQLite");
}

TEST_F(DatabaseTest, ATruncatedDatabaseIsReportedAsDamaged) {
    const std::string path = file("rota.sqlite");
    {
        Database database(path, Database::Access::Create);
        database.execute("CREATE TABLE t(a); "
                         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 5000) "
                         "INSERT INTO t SELECT printf('%050d', i) FROM n;");
    }
    std::filesystem::resize_file(path, 3 * 4096);
    try {
        Database database(path);
        database.prepare("SELECT * FROM t").run();
        FAIL() << "the damage went unseen";
    } catch (const DatabaseError& error) {
        EXPECT_EQ(std::string(error.what()), path + ": la base de datos está dañada");
    }
}

TEST_F(DatabaseTest, ReadOnlyRefusesToWrite) {
    const std::string path = file("a.sqlite");
    Database(path, Database::Access::Create).execute("CREATE TABLE t(a)");
    const Database readOnly(path);
    EXPECT_THROW(readOnly.execute("INSERT INTO t VALUES(1)"), DatabaseError);
    const Database readWrite(path, Database::Access::ReadWrite);
    readWrite.execute("INSERT INTO t VALUES(1)");
    EXPECT_EQ(readWrite.changes(), 1);
    EXPECT_EQ(readWrite.lastInsertedRowid(), 1);
}

TEST_F(DatabaseTest, ValuesKeepTheirStorageBothWays) {
    const Database database(":memory:", Database::Access::Create);
    database.execute("CREATE TABLE t(a, b, c, d, e)");
    const std::string withNul("a\0ñ", 4);
    const Bytes bytes{0, 255, 7};
    database.prepare("INSERT INTO t VALUES(?, ?, ?, ?, ?)")
        .bind(1, std::int64_t{1} << 40)
        .bind(2, 0.1)
        .bind(3, std::string_view(withNul))
        .bind(4, std::span<const std::uint8_t>(bytes))
        .bind(5, nullptr)
        .run();
    Statement row = database.prepare("SELECT * FROM t");
    ASSERT_TRUE(row.step());
    EXPECT_EQ(row.storage(0), Storage::Integer);
    EXPECT_EQ(row.integer(0), std::int64_t{1} << 40);
    EXPECT_EQ(row.storage(1), Storage::Real);
    EXPECT_EQ(row.real(1), 0.1);
    EXPECT_EQ(row.text(2), withNul);
    EXPECT_EQ(std::get<Bytes>(row.value(3)), bytes);
    EXPECT_TRUE(row.isNull(4));
    EXPECT_FALSE(row.step());
}

TEST_F(DatabaseTest, AnEmptyTextAndAnEmptyBlobAreNotNull) {
    const Database database(":memory:", Database::Access::Create);
    Statement row = database.prepare("SELECT ?1, ?2");
    row.bind(1, std::string_view()).bind(2, std::span<const std::uint8_t>());
    ASSERT_TRUE(row.step());
    EXPECT_EQ(row.storage(0), Storage::Text);
    EXPECT_EQ(row.storage(1), Storage::Blob);
}

TEST_F(DatabaseTest, AStatementRunsAgainAfterItsEndAndAfterNewValues) {
    const Database database(":memory:", Database::Access::Create);
    Statement row = database.prepare("SELECT ?1 + 1");
    for (int i = 0; i < 3; ++i) {
        row.bind(1, i);
        ASSERT_TRUE(row.step());
        EXPECT_EQ(row.integer(0), i + 1);
    }
    EXPECT_FALSE(row.step());
    ASSERT_TRUE(row.step());
    EXPECT_EQ(row.integer(0), 3);
}

TEST_F(DatabaseTest, AStatementOutlivesItsDatabaseObject) {
    Statement row;
    {
        const Database database(":memory:", Database::Access::Create);
        row = database.prepare("SELECT 42");
    }
    ASSERT_TRUE(row.step());
    EXPECT_EQ(row.integer(0), 42);
}

TEST_F(DatabaseTest, OnlyOneStatementIsPreparedAtATime) {
    const Database database(":memory:", Database::Access::Create);
    EXPECT_THROW((void)database.prepare("SELECT 1; SELECT 2"), DatabaseError);
    EXPECT_THROW((void)database.prepare("  ; "), DatabaseError);
    EXPECT_NO_THROW((void)database.prepare("SELECT 1 ; \n"));
    try {
        (void)database.prepare("SELECT * FROM nadie");
        FAIL() << "a table that is missing went unseen";
    } catch (const DatabaseError& error) {
        EXPECT_NE(std::string(error.what()).find("nadie"), std::string::npos);
    }
}

TEST_F(DatabaseTest, TablesAndColumnsAreListedAsDeclared) {
    const Database database(":memory:", Database::Access::Create);
    database.execute("CREATE TABLE clientes(id INTEGER PRIMARY KEY, nombre VARCHAR(40) NOT NULL, x);"
                     "CREATE TABLE pares(b TEXT, a INTEGER, PRIMARY KEY(a, b)) WITHOUT ROWID;"
                     "CREATE VIEW nombres AS SELECT nombre FROM clientes;");
    const std::vector<TableInfo> tables = database.tables();
    ASSERT_EQ(tables.size(), 3u);
    EXPECT_EQ(tables[0].name, "clientes");
    EXPECT_TRUE(tables[0].hasRowid);
    EXPECT_EQ(tables[1].name, "pares");
    EXPECT_FALSE(tables[1].hasRowid);
    EXPECT_EQ(tables[2].kind, TableKind::View);

    const std::vector<ColumnInfo> columns = database.columns("clientes");
    ASSERT_EQ(columns.size(), 3u);
    EXPECT_EQ(columns[0].primaryKeyOrdinal, 1);
    EXPECT_EQ(columns[1].declaredType, "VARCHAR(40)");
    EXPECT_TRUE(columns[1].notNull);
    EXPECT_EQ(columns[2].declaredType, "");
    EXPECT_TRUE(database.columns("nadie").empty());
}

TEST_F(DatabaseTest, KeysAreFoundForEveryKindOfTable) {
    const Database database(":memory:", Database::Access::Create);
    database.execute("CREATE TABLE plain(a);"
                     "CREATE TABLE shadowed(RowId TEXT);"
                     "CREATE TABLE hidden(rowid, oid, _rowid_);"
                     "CREATE TABLE pairs(b TEXT, a INTEGER, PRIMARY KEY(a, b)) WITHOUT ROWID;"
                     "CREATE TABLE falling(a, PRIMARY KEY(a DESC)) WITHOUT ROWID;"
                     "CREATE VIEW v AS SELECT 1 AS x;");
    const std::vector<TableInfo> tables = database.tables();
    ASSERT_EQ(tables.size(), 6u);
    using Names = std::vector<std::string>;
    EXPECT_EQ(database.keyColumns(tables[0]), Names{"rowid"});
    EXPECT_EQ(database.keyColumns(tables[1]), Names{"_rowid_"});
    EXPECT_EQ(database.keyColumns(tables[2]), Names{});
    EXPECT_EQ(database.keyColumns(tables[3]), (Names{"a", "b"}));
    EXPECT_EQ(database.keyColumns(tables[4]), Names{});
    EXPECT_EQ(database.keyColumns(tables[5]), Names{});
}

TEST_F(DatabaseTest, WorkCountsRowsAndInstructions) {
    const Database database(":memory:", Database::Access::Create);
    database.execute("CREATE TABLE t(a); INSERT INTO t VALUES(1), (2), (3)");
    const DatabaseWork before = database.work();
    database.prepare("SELECT a FROM t").run();
    EXPECT_EQ(database.work().rows - before.rows, 3);
    EXPECT_GT(database.work().instructions, before.instructions);
}

TEST_F(DatabaseTest, DataVersionTellsOfAnotherConnectionsChange) {
    const std::string path = file("a.sqlite");
    const Database one(path, Database::Access::Create);
    one.execute("CREATE TABLE t(a)");
    const std::int64_t before = one.dataVersion();
    EXPECT_EQ(one.dataVersion(), before);
    Database(path, Database::Access::ReadWrite).execute("INSERT INTO t VALUES(1)");
    EXPECT_NE(one.dataVersion(), before);
}

TEST(QuotedIdentifier, DoublesInnerQuotes) {
    EXPECT_EQ(quotedIdentifier("a\"b"), "\"a\"\"b\"");
}

} // namespace
