#include "host/linux/Recordset.h"

#include "automation/Conversions.h"
#include "automation/Currency.h"
#include "automation/Date.h"
#include "automation/Decimal.h"
#include "automation/Error.h"
#include "automation/LateBound.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <random>

using automation::Array;
using automation::Currency;
using automation::Date;
using automation::Variant;
using host::Recordset;
using platform::Database;

namespace {

constexpr std::int32_t noCurrentRecord = 3021;
constexpr std::int32_t invalidArgument = 3001;

class RecordsetTest : public testing::Test {
protected:
    std::string path() const { return folder.utf8File("a.sqlite"); }
    automation::String connection() const { return automation::String::fromUtf8(path()); }
    void execute(const std::string& sql) const { Database(path(), Database::Access::Create).execute(sql); }

    /// A table of `rows` rows with keys far apart: row i has the key 10 * i and the text "texto i".
    void makeTable(int rows, const std::string& options = "") const {
        execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;"
                "CREATE TABLE t(id INTEGER PRIMARY KEY NOT NULL, texto TEXT)" +
                options +
                ";"
                "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                std::to_string(rows) +
                ") INSERT INTO t SELECT 10 * i, 'texto ' || i FROM n WHERE i <= " + std::to_string(rows));
    }
    void open(Recordset& records, const char16_t* source) const { records.Open(source, connection()); }

    static std::int32_t id(const Recordset& records) { return records.Fields()->Item(0)->Value().asLong(); }

    support::TemporaryFolder folder;
};

std::int32_t errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const automation::Error& error) {
        return error.number();
    }
    return 0;
}

TEST_F(RecordsetTest, WalksFromTheFirstRecordToTheEnd) {
    makeTable(3);
    Recordset records;
    open(records, u"t");
    EXPECT_FALSE(records.BOF());
    EXPECT_FALSE(records.AtEOF());
    for (int i = 1; i <= 3; ++i, records.MoveNext()) {
        EXPECT_EQ(id(records), 10 * i);
        EXPECT_EQ(records.AbsolutePosition(), i);
    }
    EXPECT_TRUE(records.AtEOF());
    EXPECT_FALSE(records.BOF());
    EXPECT_EQ(records.AbsolutePosition(), Recordset::adPosEOF);
    EXPECT_EQ(errorOf([&] { records.MoveNext(); }), noCurrentRecord);
    EXPECT_EQ(errorOf([&] { (void)records.Fields()->Item(0)->Value(); }), noCurrentRecord);
    records.MovePrevious();
    EXPECT_EQ(id(records), 30);
}

TEST_F(RecordsetTest, WalksBackBeforeTheFirstRecord) {
    makeTable(2);
    Recordset records;
    open(records, u"t");
    records.MovePrevious();
    EXPECT_TRUE(records.BOF());
    EXPECT_EQ(records.AbsolutePosition(), Recordset::adPosBOF);
    EXPECT_EQ(errorOf([&] { records.MovePrevious(); }), noCurrentRecord);
    records.MoveNext();
    EXPECT_EQ(id(records), 10);
}

TEST_F(RecordsetTest, AnEmptyTableIsAtBothEnds) {
    makeTable(0);
    Recordset records;
    open(records, u"t");
    EXPECT_TRUE(records.BOF());
    EXPECT_TRUE(records.AtEOF());
    EXPECT_EQ(records.RecordCount(), 0);
    EXPECT_EQ(records.AbsolutePosition(), Recordset::adPosUnknown);
    for (const auto& move : std::vector<std::function<void()>>{
             [&] { records.MoveFirst(); }, [&] { records.MoveLast(); }, [&] { records.MoveNext(); },
             [&] { records.MovePrevious(); }, [&] { records.Move(0); }, [&] { records.GetRows(); },
             [&] { (void)records.Bookmark(); }})
        EXPECT_EQ(errorOf(move), noCurrentRecord);
}

TEST_F(RecordsetTest, MovesByCountFromHereAndFromElsewhere) {
    makeTable(1000);
    Recordset records;
    open(records, u"t");
    records.Move(499);
    EXPECT_EQ(id(records), 5000);
    records.Move(-100);
    EXPECT_EQ(id(records), 4000);
    const Variant bookmark = records.Bookmark();
    records.Move(-1, std::int32_t{2});
    EXPECT_EQ(id(records), 9990);
    records.Move(2, std::int32_t{1});
    EXPECT_EQ(id(records), 30);
    records.Move(1, bookmark);
    EXPECT_EQ(id(records), 4010);
    records.Bookmark(bookmark);
    EXPECT_EQ(id(records), 4000);
    records.Move(5000);
    EXPECT_TRUE(records.AtEOF());
    EXPECT_EQ(errorOf([&] { records.Move(1); }), noCurrentRecord);
    records.Move(-5000);
    EXPECT_TRUE(records.BOF());
}

TEST_F(RecordsetTest, AbsolutePositionGoesToARecord) {
    makeTable(1000);
    Recordset records;
    open(records, u"t");
    for (const int position : {1, 1000, 257, 256, 512, 999, 2}) {
        records.AbsolutePosition(position);
        EXPECT_EQ(id(records), 10 * position);
    }
    for (const int position : {0, -1, 1001})
        EXPECT_EQ(errorOf([&] { records.AbsolutePosition(position); }), invalidArgument);
    EXPECT_EQ(records.AbsolutePosition(), 2);
}

TEST_F(RecordsetTest, BookmarksOfNoRecordAreRefused) {
    makeTable(3);
    Recordset records;
    open(records, u"t");
    for (const Variant& bookmark :
         {Variant(0.0), Variant(4.0), Variant(1.5), Variant(1e300), Variant(std::int32_t{1}), Variant(u"1")})
        EXPECT_EQ(errorOf([&] { records.Bookmark(bookmark); }), invalidArgument);
}

TEST_F(RecordsetTest, RandomMovesAgreeWithAPlainList) {
    constexpr int rows = 1500;
    makeTable(rows);
    Recordset records;
    open(records, u"t");
    std::mt19937 random(11);
    int position = 1; // 0 before, rows + 1 after
    for (int i = 0; i < 3000; ++i) {
        switch (random() % 6) {
        case 0:
            records.MoveFirst(), position = 1;
            break;
        case 1:
            records.MoveLast(), position = rows;
            break;
        case 2:
            if (position <= rows) records.MoveNext(), ++position;
            break;
        case 3:
            if (position >= 1) records.MovePrevious(), --position;
            break;
        case 4:
            position = 1 + static_cast<int>(random() % rows), records.AbsolutePosition(position);
            break;
        default:
            const int by = static_cast<int>(random() % 2001) - 1000;
            if ((by > 0 && position > rows) || (by < 0 && position < 1) ||
                (by == 0 && (position < 1 || position > rows)))
                break;
            records.Move(by);
            position = std::clamp(position + by, 0, rows + 1);
        }
        ASSERT_EQ(records.BOF(), position == 0);
        ASSERT_EQ(records.AtEOF(), position == rows + 1);
        if (position >= 1 && position <= rows) {
            ASSERT_EQ(id(records), 10 * position);
        }
    }
}

// -------------------------------------------------------------------------------------- long tables

constexpr int manyRows = 1'000'000;

TEST_F(RecordsetTest, AMillionRowsAreReachedWithLittleWork) {
    makeTable(manyRows);
    Recordset records;
    open(records, u"t");
    EXPECT_EQ(id(records), 10);
    EXPECT_LT(records.work().rows, 1000) << "opening reads one block of keys";

    records.MoveLast();
    EXPECT_EQ(id(records), 10 * manyRows);
    EXPECT_EQ(records.AbsolutePosition(), manyRows);
    for (int i = 0; i < 1000; ++i)
        records.MovePrevious();
    EXPECT_EQ(id(records), 10 * (manyRows - 1000));
    EXPECT_LT(records.work().rows, 5000) << "the last rows are reached from the end";
    EXPECT_LT(records.work().instructions, 500'000);

    records.AbsolutePosition(manyRows / 2);
    EXPECT_EQ(id(records), 10 * (manyRows / 2));
    const std::int64_t before = records.work().rows;
    records.AbsolutePosition(manyRows / 2 - 300);
    records.AbsolutePosition(manyRows / 2 + 300);
    EXPECT_LT(records.work().rows - before, 2000) << "what lies near a known place is found from there";
}

TEST_F(RecordsetTest, AMillionRowsTakeLittleMemory) {
    makeTable(manyRows);
    const std::int64_t before = Database::memoryUsed();
    Recordset records;
    open(records, u"t");
    std::int64_t sum = 0;
    constexpr int stride = 100;
    for (; !records.AtEOF(); records.Move(stride))
        sum += id(records);
    EXPECT_EQ(sum, std::int64_t{10} * (manyRows / stride) * (manyRows - stride + 2) / 2);
    constexpr std::int64_t someMegabytes = 8 << 20;
    EXPECT_LT(Database::memoryUsed() - before, someMegabytes);
}

TEST_F(RecordsetTest, AQueryOfManyRowsIsSpooledOutOfMemory) {
    constexpr int rows = 300'000;
    makeTable(rows);
    const std::int64_t before = Database::memoryUsed();
    Recordset records;
    open(records, u"SELECT id, texto, printf('%200d', id) AS largo FROM t ORDER BY id DESC");
    EXPECT_EQ(records.RecordCount(), rows);
    EXPECT_EQ(id(records), 10 * rows);
    records.MoveLast();
    EXPECT_EQ(id(records), 10);
    records.AbsolutePosition(rows / 2);
    EXPECT_EQ(id(records), 10 * (rows / 2 + 1));
    constexpr std::int64_t someMegabytes = 12 << 20;
    EXPECT_LT(Database::memoryUsed() - before, someMegabytes) << "the rows take 60 megabytes";
}

// -------------------------------------------------------------------------------- kinds of sources

TEST_F(RecordsetTest, TablesWithoutRowidGoByTheirKey) {
    execute("CREATE TABLE lineas(linea INTEGER, pedido TEXT COLLATE NOCASE, n, PRIMARY KEY(pedido, linea)) "
            "WITHOUT ROWID;"
            "WITH RECURSIVE i(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM i WHERE i < 1999) "
            "INSERT INTO lineas SELECT i % 4, printf('P%05d', i / 4), i FROM i;");
    Recordset records;
    open(records, u"lineas");
    EXPECT_EQ(records.RecordCount(), 2000);
    const auto n = [&] { return records.Fields()->Item(u"n")->Value().asLong(); };
    for (const int position : {1, 2000, 1000, 257, 256, 1999}) {
        records.AbsolutePosition(position);
        EXPECT_EQ(n(), position - 1);
    }
    records.MoveLast();
    for (int i = 1999; i > 1400; --i, records.MovePrevious())
        ASSERT_EQ(n(), i);
}

TEST_F(RecordsetTest, ViewsQueriesAndTablesWithHiddenRowidsAreRead) {
    execute("CREATE TABLE raro(rowid TEXT, oid TEXT, _rowid_ TEXT); INSERT INTO raro VALUES('a', 'b', 'c');"
            "CREATE VIEW vista AS SELECT 7 AS siete UNION ALL SELECT 8;");
    Recordset records;
    open(records, u"raro");
    EXPECT_EQ(records.Fields()->Item(u"oid")->Value().asString(), u"b");
    records.Close();
    open(records, u"VISTA");
    EXPECT_EQ(records.RecordCount(), 2);
    records.Close();
    open(records, u"WITH x(a) AS (VALUES(1), (2), (3)) SELECT a, a * a AS b FROM x");
    records.MoveLast();
    EXPECT_EQ(records.Fields()->Item(u"b")->Value().asLong(), 9);
}

TEST_F(RecordsetTest, NamesThatNeedQuotesAreOrdinaryNames) {
    execute("CREATE TABLE \"los \"\"datos\"\"\"(\"una columna\" INTEGER); "
            "INSERT INTO \"los \"\"datos\"\"\" VALUES(5);");
    Recordset records;
    open(records, u"los \"datos\"");
    EXPECT_EQ(records.Fields()->Item(u"Una Columna")->Value().asLong(), 5);
}

TEST_F(RecordsetTest, WhatCannotBeOpenedSaysWhy) {
    makeTable(1);
    Recordset records;
    const auto message = [&](const char16_t* source, const automation::String& where) -> std::string {
        try {
            records.Open(source, where);
        } catch (const automation::Error& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(message(u"clientes", connection()), path() + ": no hay ninguna tabla \"clientes\"");
    EXPECT_EQ(message(u"DELETE FROM t RETURNING id", connection()),
              path() + ": la consulta modifica la base de datos");
    EXPECT_EQ(message(u"t", connection() + u"x"), path() + "x: no existe el archivo");
    EXPECT_NE(message(u"SELECT nada FROM t", connection()).find("nada"), std::string::npos);
    EXPECT_EQ(errorOf([] { Recordset().Open(); }), invalidArgument);
    EXPECT_EQ(records.State(), Recordset::adStateClosed);
    open(records, u"t");
    EXPECT_EQ(errorOf([&] { records.Open(u"t", connection()); }), 3705);
}

TEST_F(RecordsetTest, AConnectionMayBeWrittenWithItsKey) {
    makeTable(1);
    Recordset records;
    records.Source(u" t ");
    records.ActiveConnection(u"Provider=x;data source=" + connection() + u";Mode=1");
    records.Open();
    EXPECT_EQ(records.State(), Recordset::adStateOpen);
    EXPECT_EQ(records.RecordCount(), 1);
}

TEST_F(RecordsetTest, AClosedRecordsetRefusesToWork) {
    makeTable(1);
    Recordset records;
    const auto all = std::vector<std::function<void()>>{[&] { records.Close(); },
                                                        [&] { (void)records.BOF(); },
                                                        [&] { (void)records.AtEOF(); },
                                                        [&] { records.MoveFirst(); },
                                                        [&] { records.MoveLast(); },
                                                        [&] { records.MoveNext(); },
                                                        [&] { records.MovePrevious(); },
                                                        [&] { (void)records.RecordCount(); },
                                                        [&] { records.GetRows(); },
                                                        [&] { records.Requery(); },
                                                        [&] { (void)records.Bookmark(); },
                                                        [&] { records.Move(1); },
                                                        [&] { records.AbsolutePosition(1); },
                                                        [&] { (void)records.Fields()->Item(0); }};
    for (const auto& call : all)
        EXPECT_EQ(errorOf(call), 3704);
    open(records, u"t");
    const auto field = records.Fields()->Item(0);
    records.Close();
    for (const auto& call : all)
        EXPECT_EQ(errorOf(call), 3704);
    EXPECT_EQ(errorOf([&] { (void)field->Value(); }), 3704);
    EXPECT_EQ(records.Fields()->Count(), 0);
}

TEST_F(RecordsetTest, AFieldMayOutliveItsRecordset) {
    makeTable(1);
    automation::Ref<host::Field> field;
    {
        Recordset records;
        open(records, u"t");
        field = records.Fields()->Item(0);
    }
    EXPECT_EQ(errorOf([&] { (void)field->Value(); }), 3704);
    EXPECT_EQ(errorOf([&] { (void)field->Name(); }), 3704);
}

TEST_F(RecordsetTest, WhatOthersWriteShowsAfterRequery) {
    makeTable(3);
    Recordset records;
    open(records, u"t");
    EXPECT_EQ(records.RecordCount(), 3);
    execute("INSERT INTO t VALUES(35, 'x')");
    EXPECT_EQ(records.RecordCount(), 3);
    records.Requery();
    EXPECT_EQ(records.RecordCount(), 4);
    EXPECT_EQ(records.AbsolutePosition(), 1);
}

TEST_F(RecordsetTest, ARecordThatOthersDeletedIsReportedAndPassed) {
    makeTable(3);
    Recordset records;
    open(records, u"t");
    execute("DELETE FROM t WHERE id = 20");
    records.MoveNext();
    EXPECT_EQ(errorOf([&] { id(records); }), host::recordsetErrors::RecordDeleted);
    records.MoveNext();
    EXPECT_EQ(id(records), 30);
}

TEST_F(RecordsetTest, ReadingLeavesTheFileFreeForOthersToWrite) {
    makeTable(1000);
    Recordset records;
    open(records, u"t");
    records.MoveNext();
    EXPECT_EQ(id(records), 20);
    EXPECT_NO_THROW(execute("DELETE FROM t WHERE id > 100"));
}

// ------------------------------------------------------------------------------------ fields, values

TEST_F(RecordsetTest, ValuesHaveTheTypeThatTheirColumnDeclares) {
    execute(
        "CREATE TABLE v(entero INTEGER, largo BIGINT, real REAL, precio NUMERIC(10,2), texto VARCHAR(30), "
        "dia DATE, momento DATETIME, hora TIME, si BOOLEAN, bytes BLOB, nada TEXT, libre);"
        "INSERT INTO v VALUES(-5, 5000000000, 1.5, 12.34, 'año', '2024-02-29', '2024-02-29 13:05:09', "
        "'13:05', 1, x'00FF', NULL, 'x');");
    Recordset records;
    open(records, u"v");
    const auto value = [&](const char16_t* name) { return records.Fields()->Item(name)->Value(); };
    EXPECT_EQ(value(u"entero").asLong(), -5);
    EXPECT_EQ(value(u"largo").asDecimal(), automation::Decimal::fromInt64(5000000000));
    EXPECT_EQ(value(u"real").asDouble(), 1.5);
    EXPECT_EQ(value(u"precio").asCurrency(), Currency::fromScaled(123400));
    EXPECT_EQ(value(u"texto").asString(), u"año");
    EXPECT_EQ(value(u"dia").asDate(), Date::join(2024, 2, 29));
    EXPECT_EQ(value(u"momento").asDate(), Date::join(2024, 2, 29, 13, 5, 9));
    EXPECT_EQ(value(u"hora").asDate(), Date::join(1899, 12, 30, 13, 5));
    EXPECT_TRUE(value(u"si").asBoolean());
    const Array bytes = value(u"bytes").asArray();
    EXPECT_EQ(bytes.bytes()[1], 255);
    EXPECT_TRUE(value(u"nada").isNull());
    EXPECT_EQ(value(u"libre").asString(), u"x");
}

TEST(ColumnValue, DatesAreTextsJulianDaysOrSecondsSince1970) {
    using host::columnValue;
    using host::FieldType;
    const Date expected = Date::join(2024, 2, 29, 12, 0, 0);
    for (const platform::DatabaseValue& stored : std::vector<platform::DatabaseValue>{
             std::string("2024-02-29 12:00:00"), std::string("2024-02-29T12:00Z"),
             std::string("2024-02-29 12:00:00.250"), std::int64_t{2460370}, 2460370.0,
             std::int64_t{1709208000}, std::int64_t{1709208000000}})
        EXPECT_EQ(columnValue(stored, FieldType::DateTime).asDate(), expected);
    EXPECT_EQ(columnValue(2415018.25, FieldType::DateTime).asDate(), Date::join(1899, 12, 29, 18, 0, 0));
    EXPECT_EQ(columnValue(std::string("mañana"), FieldType::Date).asString(), u"mañana");
    EXPECT_EQ(columnValue(std::string("2023-02-29"), FieldType::Date).asString(), u"2023-02-29");
    EXPECT_EQ(columnValue(1e300, FieldType::Date).asDouble(), 1e300);
}

TEST(ColumnValue, MoneyIsCurrencyOnlyWhereItIsExact) {
    using host::columnValue;
    using host::FieldType;
    EXPECT_EQ(columnValue(0.1, FieldType::Currency).asCurrency(), Currency::fromScaled(1000));
    EXPECT_EQ(columnValue(1.0 / 3, FieldType::Currency).asDouble(), 1.0 / 3);
    EXPECT_EQ(columnValue(1e20, FieldType::Currency).asDouble(), 1e20);
    EXPECT_EQ(columnValue(std::int64_t{-7}, FieldType::Currency).asCurrency(), Currency(-7));
    EXPECT_EQ(columnValue(INT64_MAX, FieldType::Currency).type(), automation::VT_DECIMAL);
    EXPECT_EQ(columnValue(std::string("gratis"), FieldType::Currency).asString(), u"gratis");
}

TEST(ColumnValue, DeclarationsAreReadInAnyCase) {
    using host::fieldDeclaration;
    using host::FieldType;
    EXPECT_EQ(fieldDeclaration("integer").type, FieldType::Integer);
    EXPECT_EQ(fieldDeclaration("Unsigned Big Int").type, FieldType::Integer);
    EXPECT_EQ(fieldDeclaration("double precision").type, FieldType::Double);
    EXPECT_EQ(fieldDeclaration("timestamp").type, FieldType::DateTime);
    EXPECT_EQ(fieldDeclaration("bool").type, FieldType::Boolean);
    EXPECT_EQ(fieldDeclaration("NVARCHAR(12)").size, 12);
    EXPECT_EQ(fieldDeclaration("").type, FieldType::Variant);
    const host::FieldDeclaration price = fieldDeclaration("decimal( 10 , 2 )");
    EXPECT_EQ(price.type, FieldType::Currency);
    EXPECT_EQ(price.precision, 10);
    EXPECT_EQ(price.scale, 2);
    EXPECT_EQ(fieldDeclaration("NUMERIC(").scale, 0);
}

TEST_F(RecordsetTest, FieldsTellAboutTheirColumns) {
    execute("CREATE TABLE v(codigo VARCHAR(12), precio NUMERIC(10,2), nota TEXT); INSERT INTO v "
            "VALUES('ñandú', 1, NULL)");
    Recordset records;
    open(records, u"v");
    const auto fields = records.Fields();
    EXPECT_EQ(fields->Count(), 3);
    EXPECT_EQ(fields->Item(0)->Name(), u"codigo");
    EXPECT_EQ(fields->Item(0)->DefinedSize(), 12);
    EXPECT_EQ(fields->Item(0)->ActualSize(), 5);
    EXPECT_EQ(fields->Item(u"PRECIO")->NumericScale(), 2);
    EXPECT_EQ(fields->Item(1)->Precision(), 10);
    EXPECT_EQ(fields->Item(1)->ActualSize(), 8);
    EXPECT_EQ(fields->Item(2)->ActualSize(), 0);
    EXPECT_EQ(fields->Item(2)->DefinedSize(), INT32_MAX);
    for (const Variant& index : {Variant(std::int32_t{3}), Variant(std::int32_t{-1}), Variant(u"otro")})
        EXPECT_EQ(errorOf([&] { (void)fields->Item(index); }), 3265);
}

TEST_F(RecordsetTest, GetRowsGivesFieldsByRows) {
    makeTable(600);
    Recordset records;
    open(records, u"t");
    records.MoveNext();
    const Array some = records.GetRows(300).asArray();
    EXPECT_EQ(some.dimensions(), 2);
    EXPECT_EQ(some.lower(1), 0);
    EXPECT_EQ(some.upper(1), 1);
    EXPECT_EQ(some.lower(2), 0);
    EXPECT_EQ(some.upper(2), 299);
    EXPECT_EQ(some(0, 0).asLong(), 20);
    EXPECT_EQ(some(1, 299).asString(), u"texto 301");
    EXPECT_EQ(records.AbsolutePosition(), 302);

    const Array rest = records.GetRows().asArray();
    EXPECT_EQ(rest.upper(2), 600 - 302);
    EXPECT_TRUE(records.AtEOF());
    EXPECT_EQ(errorOf([&] { records.GetRows(); }), noCurrentRecord);

    const Array last = records.GetRows(5, std::int32_t{2}, u"texto").asArray();
    EXPECT_EQ(last.upper(1), 0);
    EXPECT_EQ(last.upper(2), 0);
    EXPECT_EQ(last(0, 0).asString(), u"texto 600");

    const Array turned = records.GetRows(1, 3.0, Array::of({u"texto", std::int32_t{0}})).asArray();
    EXPECT_EQ(turned(0, 0).asString(), u"texto 3");
    EXPECT_EQ(turned(1, 0).asLong(), 30);
}

TEST_F(RecordsetTest, AnswersCallsByName) {
    makeTable(3);
    const auto records = automation::make<Recordset>();
    EXPECT_EQ(automation::TypeName(Variant(records)), u"Recordset");
    automation::callMethod(*records, u"open", u"t", connection());
    automation::callMethod(*records, u"MOVELAST");
    EXPECT_EQ(automation::getProperty(*records, u"AbsolutePosition").asLong(), 3);
    EXPECT_FALSE(automation::getProperty(*records, u"EOF").asBoolean());
    const Variant fields = automation::getProperty(*records, u"Fields");
    EXPECT_EQ(automation::getProperty(fields, u"Count").asLong(), 2);
    const Variant field = automation::getProperty(*records, u"Fields", u"texto");
    EXPECT_EQ(automation::value(field).asString(), u"texto 3");
    EXPECT_EQ(automation::value(automation::getProperty(fields, u"Item", std::int32_t{0})).asLong(), 30);
    automation::letProperty(*records, u"AbsolutePosition", std::int32_t{2});
    EXPECT_EQ(automation::value(field).asString(), u"texto 2");
    const Variant rows = automation::callMethod(*records, u"GetRows");
    EXPECT_EQ(rows.asArray().upper(2), 1);
    automation::callMethod(*records, u"Close");
    EXPECT_EQ(automation::getProperty(*records, u"State").asLong(), 0);
}

} // namespace
