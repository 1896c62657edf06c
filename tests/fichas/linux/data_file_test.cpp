#include "fichas/DataFile.h"

#include "automation/Currency.h"
#include "automation/Date.h"
#include "platform/linux/database.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace fichas;
using automation::String;
using automation::Variant;
using platform::Database;

namespace {

class DataFileTest : public testing::Test {
protected:
    std::string path(const std::string& name) const { return folder.utf8File(name); }
    String write(const std::string& name, const std::string& bytes) const {
        folder.write(platform::wideFromUtf8(name), bytes);
        return String::fromUtf8(path(name));
    }
    String makeDatabase(const std::string& name, const std::string& sql) const {
        Database(path(name), Database::Access::Create).execute(sql);
        return String::fromUtf8(path(name));
    }
    static std::string failureOf(const String& file, const String& table = {}) {
        try {
            const auto data = openFile(file);
            data->open(table.empty() ? data->tables()[0] : table)->count();
        } catch (const SourceError& error) {
            return error.what();
        }
        return "";
    }

    support::TemporaryFolder folder;
};

TEST_F(DataFileTest, ADatabaseIsKnownByItsContentWhateverItsName) {
    const String file =
        makeDatabase("datos.csv", "CREATE TABLE uno(a); CREATE TABLE dos(a); CREATE VIEW tres AS SELECT 1");
    EXPECT_EQ(openFile(file)->tables(), (std::vector<String>{u"uno", u"dos", u"tres"}));
}

TEST_F(DataFileTest, AnythingElseIsReadAsCsv) {
    const String file = write("datos.txt", "id;nombre\n1;Ana\n");
    const auto data = openFile(file);
    EXPECT_EQ(data->tables(), (std::vector<String>{u"datos.txt"}));
    EXPECT_EQ(data->open(u"datos.txt")->count(), 1);
}

TEST_F(DataFileTest, TheRecordsOfATableAreReadByNumber) {
    const String file =
        makeDatabase("a.sqlite", "CREATE TABLE t(id INTEGER PRIMARY KEY, precio NUMERIC(10,2), dia DATE);"
                                 "INSERT INTO t VALUES(5, 1.5, '2024-02-29'), (9, NULL, 'ayer')");
    const auto source = openFile(file)->open(u"T");
    EXPECT_EQ(source->name(), u"t");
    ASSERT_EQ(source->columns().size(), 3u);
    EXPECT_EQ(source->columns()[1].type, ColumnType::Currency);
    EXPECT_EQ(source->columns()[1].decimals, 2);
    std::vector<Variant> values;
    ASSERT_TRUE(source->read(1, values));
    EXPECT_FALSE(source->countIsFinal());
    EXPECT_EQ(values[0].asLong(), 5);
    EXPECT_EQ(values[1].asCurrency(), automation::Currency::fromScaled(15000));
    EXPECT_EQ(values[2].asDate(), automation::Date::join(2024, 2, 29));
    ASSERT_TRUE(source->read(2, values));
    EXPECT_TRUE(values[1].isNull());
    EXPECT_EQ(values[2].asString(), u"ayer");
    EXPECT_FALSE(source->read(3, values));
    EXPECT_FALSE(source->read(0, values));
    source->countOn();
    EXPECT_TRUE(source->countIsFinal());
    EXPECT_EQ(source->knownCount(), 2);
}

TEST_F(DataFileTest, ARecordThatHasGoneKeepsItsPlace) {
    const String file =
        makeDatabase("a.sqlite", "CREATE TABLE t(a INTEGER PRIMARY KEY); INSERT INTO t VALUES(1), (2), (3)");
    const auto source = openFile(file)->open(u"t");
    EXPECT_EQ(source->count(), 3);
    std::vector<Variant> values;
    ASSERT_TRUE(source->read(1, values));
    Database(file.utf8(), Database::Access::ReadWrite).execute("DELETE FROM t WHERE a = 2");
    ASSERT_TRUE(source->read(2, values));
    EXPECT_TRUE(values[0].isNull());
    ASSERT_TRUE(source->read(3, values));
    EXPECT_EQ(values[0].asLong(), 3);
}

TEST_F(DataFileTest, WhatCannotBeOpenedSaysWhy) {
    const std::string missing = path("nada.sqlite");
    EXPECT_EQ(failureOf(String::fromUtf8(missing)), missing + ": no existe el archivo");
    EXPECT_EQ(failureOf(String::fromUtf8(folder.utf8Path())),
              folder.utf8Path() + ": es una carpeta, no un archivo");
    const String text = write("texto.sqlite", "id;nombre\n1;Ana\n");
    EXPECT_EQ(failureOf(text), text.utf8() + ": no es una base de datos SQLite");
    const String empty = makeDatabase("vacia.sqlite", "PRAGMA user_version = 1");
    EXPECT_EQ(failureOf(empty), empty.utf8() + ": la base de datos no tiene ninguna tabla");
    const String two = makeDatabase("dos.sqlite", "CREATE TABLE a(x); CREATE TABLE b(x)");
    EXPECT_EQ(failureOf(two, u"c"), two.utf8() + ": no hay ninguna tabla \"c\"; hay a, b");
    const String csv = write("a.csv", "id;nombre\n1;\"Ana\n");
    EXPECT_EQ(failureOf(csv), "a.csv, línea 2: comillas sin cerrar");
    EXPECT_EQ(failureOf(csv, u"clientes"),
              "a.csv: un archivo CSV no tiene tablas y se ha pedido \"clientes\"");
    EXPECT_EQ(failureOf(write("vacio.csv", "")), "vacio.csv, línea 1: el archivo está vacío");
}

TEST_F(DataFileTest, AFileWithoutPermissionSaysSo) {
    if (geteuid() == 0) {
        // The superuser may read everything; what is left to see is that the file opens.
        const String csv = write("a.csv", "id\n1\n");
        std::filesystem::permissions(path("a.csv"), std::filesystem::perms::none);
        EXPECT_EQ(failureOf(csv), "");
        return;
    }
    const String csv = write("a.csv", "id\n1\n");
    std::filesystem::permissions(path("a.csv"), std::filesystem::perms::none);
    EXPECT_EQ(failureOf(csv), csv.utf8() + ": no se tiene permiso para leer el archivo");
}

} // namespace
