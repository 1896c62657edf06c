// Find, Filter and Sort of a recordset.
#include "automation/Array.h"
#include "automation/Error.h"
#include "automation/LateBound.h"
#include "host/linux/Recordset.h"
#include "support/ErrorOf.h"
#include "support/LocaleScope.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

using automation::Array;
using automation::String;
using automation::Variant;
using host::Recordset;
using platform::Database;
using tests::errorOf;

namespace {

constexpr std::int32_t noCurrentRecord = host::recordsetErrors::NoCurrentRecord;
constexpr std::int32_t invalidArgument = host::recordsetErrors::InvalidArgument;
constexpr std::int32_t itemNotFound = host::recordsetErrors::ItemNotFound;

/// A database in the folder, as SQLite names it.
std::string pathIn(const support::TemporaryFolder& folder) {
    std::string path = platform::utf8FromWide(folder.file(u"a.sqlite"));
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// Opened on the table as it is, as a table without rowid and as a query: each finds its rows in its own way.
class CriteriaTest : public testing::TestWithParam<const char16_t*> {
protected:
    void SetUp() override {
        const char* rows = "(1, 'Ana', 'Cádiz', 10.5, '2024-01-31', 1, 'x'),"
                           "(2, 'ñaque', 'Ávila', -3, '2023-12-01', 0, 7),"
                           "(3, 'EVA', NULL, 100, NULL, 1, 'y'),"
                           "(5, 'Nuria', 'Cáceres', 10.5, '2024-02-29 13:05:00', 0, NULL),"
                           "(8, 'O''Hara', 'cádiz', NULL, '1899-12-29', NULL, 3.5),"
                           "(9, 'Óscar', 'Zamora', 7, '2024-02-29', 0, '2024-02-29')";
        const std::string columns =
            "(id INTEGER PRIMARY KEY, nombre TEXT, \"su ciudad\" TEXT, importe NUMERIC(10,2), "
            "alta DATE, activo BOOLEAN, libre)";
        Database(path(), Database::Access::Create)
            .execute("CREATE TABLE gente" + columns + "; INSERT INTO gente VALUES" + rows +
                     "; CREATE TABLE sueltos" + columns + " WITHOUT ROWID; INSERT INTO sueltos VALUES" +
                     rows);
        records.Open(GetParam(), String::fromUtf8(path()));
    }
    std::string path() const { return pathIn(folder_); }

    std::int32_t id() const { return records.Fields()->Item(u"id")->Value().asLong(); }
    /// The records that are there, by their keys.
    std::string all() {
        std::string keys;
        if (records.BOF() && records.AtEOF()) return keys;
        for (records.MoveFirst(); !records.AtEOF(); records.MoveNext())
            keys += (keys.empty() ? "" : " ") + std::to_string(id());
        return keys;
    }
    std::string where(const char16_t* criteria) {
        records.Filter(criteria);
        return all();
    }
    std::string by(const char16_t* columns) {
        records.Sort(columns);
        return all();
    }
    /// Where a search from the first record leads: a key, "BOF" or "EOF".
    std::string found(const char16_t* criteria) {
        records.MoveFirst();
        records.Find(criteria);
        return here();
    }
    std::string here() const {
        return records.AtEOF() ? "EOF" : records.BOF() ? "BOF" : std::to_string(id());
    }

    tests::LocaleScope spanish{"es-ES"};
    support::TemporaryFolder folder_;
    Recordset records;
};

std::string nameOf(const testing::TestParamInfo<const char16_t*>& source) {
    const char* names[] = {"Table", "TableWithoutRowid", "Query"};
    return names[source.index];
}
INSTANTIATE_TEST_SUITE_P(Sources, CriteriaTest,
                         testing::Values(u"gente", u"sueltos", u"SELECT * FROM gente ORDER BY id"), nameOf);

TEST_P(CriteriaTest, NumbersAreCompared) {
    EXPECT_EQ(where(u"importe = 10.5"), "1 5");
    EXPECT_EQ(where(u"importe <> 10.5"), "2 3 9") << "Null is neither equal nor different";
    EXPECT_EQ(where(u"importe < 7"), "2");
    EXPECT_EQ(where(u"IMPORTE<=7"), "2 9");
    EXPECT_EQ(where(u"importe > 1e1"), "1 3 5");
    EXPECT_EQ(where(u"importe >= 100"), "3");
    EXPECT_EQ(where(u"importe > -3.5"), "1 2 3 5 9");
    EXPECT_EQ(where(u"importe = '10,5'"), "1 5") << "a text is a number of the locale";
    EXPECT_EQ(where(u"id = 4"), "");
}

TEST_P(CriteriaTest, TextsAreComparedAsInTheDictionary) {
    EXPECT_EQ(where(u"nombre = 'eva'"), "3") << "without regard to case";
    EXPECT_EQ(where(u"nombre = 'Oscar'"), "") << "accents count";
    EXPECT_EQ(where(u"nombre = 'ÓSCAR'"), "9");
    EXPECT_EQ(where(u"nombre = 'o''hara'"), "8");
    EXPECT_EQ(where(u"nombre > 'nz'"), "2 8 9") << "ñ comes behind n";
    EXPECT_EQ(where(u"nombre < 'Nuria'"), "1 3");
    EXPECT_EQ(where(u"nombre <= 'nuria'"), "1 3 5");
    EXPECT_EQ(where(u"[su ciudad] <> 'cádiz'"), "2 5 9");
    EXPECT_EQ(where(u"nombre = ''"), "");
}

TEST_P(CriteriaTest, PatternsBeginOrContain) {
    EXPECT_EQ(where(u"[Su Ciudad] LIKE 'cá*'"), "1 5 8");
    EXPECT_EQ(where(u"[su ciudad] like 'C%'"), "1 5 8");
    EXPECT_EQ(where(u"nombre like '*ar*'"), "8 9");
    EXPECT_EQ(where(u"nombre like 'eva'"), "3");
    EXPECT_EQ(where(u"nombre like '*'"), "1 2 3 5 8 9");
    EXPECT_EQ(where(u"nombre like '_va*'"), "") << "other signs stand for themselves";
    for (const char16_t* wrong :
         {u"nombre like '*ar'", u"nombre like 'a*r'", u"nombre like 'a*r*'", u"importe like '1*'"})
        EXPECT_EQ(errorOf([&] { records.Filter(wrong); }), invalidArgument);
}

TEST_P(CriteriaTest, DatesAreCompared) {
    EXPECT_EQ(where(u"alta = #2024-02-29#"), "9");
    EXPECT_EQ(where(u"alta >= #2/29/2024#"), "5 9") << "the month comes first between signs";
    EXPECT_EQ(where(u"alta < '01/02/2024'"), "1 2 8") << "a text is a date of the locale";
    EXPECT_EQ(where(u"alta = #2/29/2024 13:05#"), "5");
    EXPECT_EQ(errorOf([&] { records.Filter(u"alta = 'mañana'"); }), invalidArgument);
    EXPECT_EQ(errorOf([&] { records.Filter(u"alta = #mañana#"); }), invalidArgument);
}

TEST_P(CriteriaTest, BooleansAndNullsAreAskedFor) {
    EXPECT_EQ(where(u"activo = True"), "1 3");
    EXPECT_EQ(where(u"activo = false"), "2 5 9");
    EXPECT_EQ(where(u"activo <> 0"), "1 3");
    EXPECT_EQ(where(u"activo = Null"), "8");
    EXPECT_EQ(where(u"[su ciudad] <> NULL"), "1 2 5 8 9");
    EXPECT_EQ(errorOf([&] { records.Filter(u"activo > Null"); }), invalidArgument);
}

TEST_P(CriteriaTest, AColumnWithoutTypeIsTakenAsTheValueIs) {
    EXPECT_EQ(where(u"libre = 'X'"), "1");
    EXPECT_EQ(where(u"libre > 3"), "2 8");
    EXPECT_EQ(where(u"libre = #2024-02-29#"), "9");
}

TEST_P(CriteriaTest, ComparisonsAreJoinedFromLeftToRight) {
    EXPECT_EQ(where(u"importe = 10.5 and activo = true"), "1");
    EXPECT_EQ(where(u"id = 9 or id = 1 and activo = true"), "1") << "neither binds closer";
    EXPECT_EQ(where(u"id = 9 or (id = 1 and activo = true)"), "1 9");
    EXPECT_EQ(where(u"(((id=1)OR(id=2)))AND nombre<>'Ana'"), "2");
}

TEST_P(CriteriaTest, WhatIsNoCriteriaIsRefusedAndChangesNothing) {
    records.Filter(u"id < 3");
    for (const char16_t* wrong :
         {u"id", u"id =", u"= 1", u"id = 1 and", u"id = 1 id = 2", u"id == 1", u"(id = 1", u"id = 1)",
          u"id = 1x", u"id = 1.2.3", u"id = --1", u"nombre = 'Ana", u"nombre = Ana", u"[id = 1",
          u"id = 'uno'", u"alta = #1", u"nombre = True", u"id = 1; DELETE FROM gente"})
        EXPECT_EQ(errorOf([&] { records.Filter(wrong); }), invalidArgument) << String(wrong).utf8();
    EXPECT_EQ(errorOf([&] { records.Filter(u"edad = 1"); }), itemNotFound);
    EXPECT_EQ(errorOf([&] { records.Filter(std::int32_t{2}); }), invalidArgument);
    const std::u16string deep = std::u16string(10000, u'(') + u"id = 1" + std::u16string(10000, u')');
    EXPECT_EQ(errorOf([&] { records.Filter(String(deep)); }), invalidArgument);
    EXPECT_EQ(records.Filter().asString(), u"id < 3");
    EXPECT_EQ(all(), "1 2");
}

TEST_P(CriteriaTest, AFilterMakesASetOfItsOwn) {
    records.MoveLast();
    records.Filter(u"importe >= 7");
    EXPECT_EQ(id(), 1) << "it begins at its first record";
    EXPECT_EQ(records.RecordCount(), 4);
    records.MoveLast();
    EXPECT_EQ(id(), 9);
    EXPECT_EQ(records.AbsolutePosition(), 4);
    EXPECT_EQ(records.GetRows(std::int32_t{2}, std::int32_t{1}, u"id").asArray()(0, 1).asLong(), 3);

    records.Filter(u"id > 100");
    EXPECT_TRUE(records.BOF());
    EXPECT_TRUE(records.AtEOF());
    EXPECT_EQ(records.RecordCount(), 0);
    EXPECT_EQ(records.Filter().asString(), u"id > 100");

    records.Filter(Recordset::adFilterNone);
    EXPECT_EQ(records.Filter().asLong(), Recordset::adFilterNone);
    EXPECT_EQ(all(), "1 2 3 5 8 9");
    records.Filter(u"id = 1");
    EXPECT_EQ(where(u""), "1 2 3 5 8 9");
}

TEST_P(CriteriaTest, RecordsAreSortedByColumns) {
    EXPECT_EQ(by(u"nombre"), "1 3 5 2 8 9") << "ñ behind n, o with and without accent together";
    EXPECT_EQ(by(u"[su ciudad] DESC, id desc"), "9 8 1 5 2 3");
    EXPECT_EQ(by(u"importe, alta desc"), "8 2 9 5 1 3") << "Null comes first";
    EXPECT_EQ(by(u"alta asc"), "3 8 2 1 9 5");
    EXPECT_EQ(records.Sort(), u"alta asc");
    EXPECT_EQ(by(u""), "1 2 3 5 8 9");
    EXPECT_EQ(by(u"activo"), "8 2 5 9 1 3") << "what is equal stays in its order";
    EXPECT_EQ(errorOf([&] { records.Sort(u"edad"); }), itemNotFound);
    for (const char16_t* wrong : {u"nombre,", u",nombre", u"nombre up", u"nombre id", u"nombre asc desc"})
        EXPECT_NE(errorOf([&] { records.Sort(wrong); }), 0) << String(wrong).utf8();
    EXPECT_EQ(records.Sort(), u"activo");
}

TEST_P(CriteriaTest, FilterAndSortGoTogetherAndLastUntilClose) {
    records.Sort(u"importe desc");
    EXPECT_EQ(where(u"importe >= 7"), "3 1 5 9");
    EXPECT_EQ(by(u"nombre desc"), "9 5 3 1");
    records.Requery();
    EXPECT_EQ(all(), "9 5 3 1");
    records.Close();
    records.Open();
    EXPECT_EQ(records.Sort(), u"");
    EXPECT_EQ(records.Filter().asLong(), Recordset::adFilterNone);
    EXPECT_EQ(all(), "1 2 3 5 8 9");
}

TEST_P(CriteriaTest, FindGoesToTheNextRecordThatMeetsIt) {
    EXPECT_EQ(found(u"importe = 10.5"), "1") << "the present record counts";
    records.Find(u"importe = 10.5", 1);
    EXPECT_EQ(here(), "5");
    records.Find(u"importe = 10.5", 1);
    EXPECT_EQ(here(), "EOF");
    EXPECT_EQ(found(u"nombre like 'o*'"), "8");
    EXPECT_EQ(found(u"nombre > 'p'"), "EOF");
    EXPECT_EQ(records.AbsolutePosition(), Recordset::adPosEOF);

    records.MoveLast();
    records.Find(u"importe = 10.5", 0, Recordset::adSearchBackward);
    EXPECT_EQ(here(), "5");
    EXPECT_EQ(records.AbsolutePosition(), 4);
    records.Find(u"importe = 10.5", 1, Recordset::adSearchBackward);
    EXPECT_EQ(here(), "1");
    records.Find(u"importe > 10.5", 0, Recordset::adSearchBackward);
    EXPECT_EQ(here(), "BOF");
}

TEST_P(CriteriaTest, FindBeginsWhereItIsTold) {
    records.AbsolutePosition(4);
    const Variant bookmark = records.Bookmark();
    records.Find(u"id > 1", 0, Recordset::adSearchForward, std::int32_t{1});
    EXPECT_EQ(here(), "2");
    records.Find(u"id > 1", 0, Recordset::adSearchForward, bookmark);
    EXPECT_EQ(here(), "5");
    records.MoveLast();
    records.MoveNext();
    EXPECT_EQ(errorOf([&] { records.Find(u"id > 1"); }), noCurrentRecord);
    records.Find(u"id < 9", 0, Recordset::adSearchBackward, std::int32_t{2});
    EXPECT_EQ(here(), "8");
    EXPECT_EQ(errorOf([&] { records.Find(u"id > 1 and id < 3"); }), invalidArgument) << "one comparison";
    EXPECT_EQ(errorOf([&] { records.Find(u"id > 1", 0, 3); }), invalidArgument);
    EXPECT_EQ(here(), "8");
}

TEST_P(CriteriaTest, FindGoesThroughWhatIsFilteredAndSorted) {
    records.Filter(u"importe >= 7");
    records.Sort(u"nombre desc");
    ASSERT_EQ(all(), "9 5 3 1");
    EXPECT_EQ(found(u"importe = 10.5"), "5");
    records.Find(u"importe = 10.5", 1);
    EXPECT_EQ(here(), "1");
    records.Find(u"importe = 100", 0, Recordset::adSearchBackward);
    EXPECT_EQ(here(), "3");
    EXPECT_EQ(found(u"id = 2"), "EOF");
}

TEST_P(CriteriaTest, ABookmarkHoldsUnderAnotherFilterAndOrder) {
    records.Filter(u"importe >= 7");
    records.Sort(u"nombre desc");
    records.AbsolutePosition(2);
    const Variant bookmark = records.Bookmark();
    records.Filter(Recordset::adFilterNone);
    records.Bookmark(bookmark);
    EXPECT_EQ(id(), 5);
    records.Sort(u"");
    records.Bookmark(bookmark);
    EXPECT_EQ(id(), 5);
    EXPECT_EQ(records.AbsolutePosition(), 4);
    records.Filter(u"id > 3");
    records.Bookmark(bookmark);
    EXPECT_EQ(records.AbsolutePosition(), 1);
    records.Filter(u"id < 3");
    EXPECT_EQ(errorOf([&] { records.Bookmark(bookmark); }), invalidArgument);
}

TEST_P(CriteriaTest, AnArrayOfBookmarksIsAFilter) {
    const auto bookmarkOf = [this](const char16_t* criteria) {
        records.MoveFirst();
        records.Find(criteria);
        return records.Bookmark();
    };
    records.Filter(u"id > 1");
    const Variant three = Array::of({bookmarkOf(u"id = 9"), bookmarkOf(u"id = 2"), bookmarkOf(u"id = 5")});
    records.Filter(three);
    EXPECT_EQ(all(), "2 5 9");
    EXPECT_EQ(records.RecordCount(), 3);
    EXPECT_EQ(records.Filter().asArray().size(), 3u);
    EXPECT_EQ(by(u"nombre DESC"), "9 2 5") << "an order keeps it";
    records.Requery();
    EXPECT_EQ(all(), "9 2 5");
    records.Filter(Array::of({Variant(1000.0)}));
    EXPECT_EQ(all(), "") << "no such record";
    records.Filter(Array());
    EXPECT_EQ(all(), "");
    records.Filter(u" ");
    records.Sort(u"");
    EXPECT_EQ(all(), "1 2 3 5 8 9");
    records.Filter(u"id = 1");
    for (const Variant& wrong : {Variant(0.0), Variant(1.5), Variant(std::int32_t{1}), Variant(u"1")})
        EXPECT_EQ(errorOf([&] { records.Filter(Array::of({wrong})); }), invalidArgument);
    EXPECT_EQ(all(), "1") << "the former one stays";
}

TEST_P(CriteriaTest, ARecordThatOthersDeleteIsMissedWhenItIsRead) {
    records.Filter(u"id <= 3");
    Database(path(), Database::Access::ReadWrite)
        .execute("DELETE FROM gente WHERE id = 2; DELETE FROM sueltos WHERE id = 2");
    records.MoveNext();
    if (records.Source().view().starts_with(u"SELECT"))
        EXPECT_EQ(id(), 2) << "a query is read once";
    else
        EXPECT_EQ(errorOf([&] { id(); }), host::recordsetErrors::RecordDeleted);
    records.MoveNext();
    EXPECT_EQ(id(), 3);
    records.Requery();
    EXPECT_EQ(all(), "1 3");
}

TEST_P(CriteriaTest, TheyAreReachedByName) {
    const auto object = automation::make<Recordset>();
    automation::callMethod(*object, u"Open", GetParam(), String::fromUtf8(path()));
    automation::letProperty(*object, u"Filter", u"importe >= 7");
    automation::letProperty(*object, u"Sort", u"nombre DESC");
    EXPECT_EQ(automation::getProperty(*object, u"RecordCount").asLong(), 4);
    EXPECT_EQ(automation::getProperty(*object, u"Sort").asString(), u"nombre DESC");
    automation::callMethod(*object, u"Find", u"id < 4");
    EXPECT_EQ(automation::getProperty(*object, u"AbsolutePosition").asLong(), 3);
    automation::letProperty(*object, u"Filter", std::int32_t{0});
    EXPECT_EQ(automation::getProperty(*object, u"RecordCount").asLong(), 6);
}

TEST_P(CriteriaTest, AClosedRecordsetRefusesThem) {
    records.Close();
    EXPECT_EQ(errorOf([&] { records.Filter(u"id = 1"); }), host::recordsetErrors::ObjectClosed);
    EXPECT_EQ(errorOf([&] { (void)records.Filter(); }), host::recordsetErrors::ObjectClosed);
    EXPECT_EQ(errorOf([&] { records.Sort(u"id"); }), host::recordsetErrors::ObjectClosed);
    EXPECT_EQ(errorOf([&] { records.Find(u"id = 1"); }), host::recordsetErrors::ObjectClosed);
}

TEST(Criteria, AMillionRecordsAreChosenAndSortedOutOfMemory) {
    constexpr int rows = 1'000'000;
    const support::TemporaryFolder folder;
    const std::string path = pathIn(folder);
    Database(path, Database::Access::Create)
        .execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;"
                 "CREATE TABLE t(id INTEGER PRIMARY KEY, resto INTEGER);"
                 "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000000) "
                 "INSERT INTO t SELECT i, i % 1000 FROM n");
    Recordset records;
    records.Open(u"t", String::fromUtf8(path));
    const std::int64_t before = Database::memoryUsed();
    records.Sort(u"resto desc");
    EXPECT_EQ(records.RecordCount(), rows);
    EXPECT_EQ(records.Fields()->Item(0)->Value().asLong(), 999);
    records.MoveLast();
    EXPECT_EQ(records.Fields()->Item(0)->Value().asLong(), rows);
    records.Sort(u"");
    records.Filter(u"resto > 499");
    EXPECT_EQ(records.RecordCount(), rows / 2);
    records.Filter(Recordset::adFilterNone);
    records.Find(u"id = 999999");
    EXPECT_EQ(records.AbsolutePosition(), 999'999);
    constexpr std::int64_t someMegabytes = 24 << 20;
    EXPECT_LT(Database::memoryUsed() - before, someMegabytes);
}

} // namespace
