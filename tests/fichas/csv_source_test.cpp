#include "fichas/CsvSource.h"

#include "automation/Currency.h"

#include <gtest/gtest.h>

using namespace fichas;
using automation::Variant;

namespace {

CsvSource open(const std::string& text) {
    return CsvSource(std::make_unique<MemoryBytes>(text), "clientes.csv");
}

std::string failureOf(const std::string& text) {
    try {
        CsvSource source = open(text);
        source.count();
    } catch (const SourceError& error) {
        return error.what();
    }
    return "";
}

TEST(CsvSource, RecordsAreNumberedFromOneAfterTheHeader) {
    CsvSource source = open("id;nombre;saldo\n1;Ana;1,50\n2;;-3\n");
    EXPECT_EQ(source.name(), u"clientes.csv");
    ASSERT_EQ(source.columns().size(), 3u);
    EXPECT_EQ(source.columns()[2].name, u"saldo");
    EXPECT_EQ(source.count(), 2);
    EXPECT_TRUE(source.countIsFinal());
    std::vector<Variant> values;
    ASSERT_TRUE(source.read(2, values));
    EXPECT_EQ(values[0].asLong(), 2);
    EXPECT_TRUE(values[1].isNull());
    EXPECT_EQ(values[2].asCurrency(), automation::Currency(-3));
    EXPECT_FALSE(source.read(0, values));
    EXPECT_FALSE(source.read(3, values));
    EXPECT_EQ(values.size(), 3u) << "a record that there is not leaves the values alone";
}

TEST(CsvSource, WithoutAHeaderTheFirstLineIsTheFirstRecord) {
    CsvSource source = open("1;Ana\n2;Eva\n");
    std::vector<Variant> values;
    ASSERT_TRUE(source.read(1, values));
    EXPECT_EQ(values[1].asString(), u"Ana");
    EXPECT_EQ(source.count(), 2);
}

TEST(CsvSource, AHeaderAloneHasNoRecords) {
    CsvSource source = open("id;nombre\n");
    EXPECT_EQ(source.count(), 0);
    std::vector<Variant> values;
    EXPECT_FALSE(source.read(1, values));
}

TEST(CsvSource, SaysWhatIsWrongAndWhere) {
    const std::string head = "id;nombre\n1;Ana\n";
    EXPECT_EQ(failureOf(""), "clientes.csv, línea 1: el archivo está vacío");
    EXPECT_EQ(failureOf("\n\n"), "clientes.csv, línea 1: el archivo está vacío");
    EXPECT_EQ(failureOf("\xEF\xBB\xBF"), "clientes.csv, línea 1: el archivo está vacío");
    EXPECT_EQ(failureOf(head + "2;\"Eva\n3;Luz\n"), "clientes.csv, línea 3: comillas sin cerrar");
    EXPECT_EQ(failureOf(head + "2\n"), "clientes.csv, línea 3: hay 1 campo y en la primera línea 2 campos");
    EXPECT_EQ(failureOf("\xEF\xBB\xBF" + head + "2;\xE1\n"),
              "clientes.csv, línea 3: hay caracteres que no son UTF-8");
    EXPECT_EQ(failureOf("sep=;\n" + head + "2;3;4\n"),
              "clientes.csv, línea 4: hay 3 campos y en la primera línea 2 campos");
}

TEST(CsvSource, AFaultFarIntoTheFileComesOutWhenItIsReached) {
    std::string text = "id;nombre\n";
    constexpr int records = 300'000;
    for (int i = 1; i <= records; ++i)
        text += std::to_string(i) + ";nombre\n";
    text += "x;y;z\n";
    CsvSource source = open(text);
    std::vector<Variant> values;
    EXPECT_TRUE(source.read(1, values));
    EXPECT_FALSE(source.countIsFinal());
    EXPECT_THROW(source.count(), SourceError);
    EXPECT_EQ(failureOf(text), "clientes.csv, línea 300002: hay 3 campos y en la primera línea 2 campos");
}

TEST(CsvSource, CountingGoesOnInSteps) {
    std::string text = "id;nombre\n";
    constexpr int records = 500'000;
    for (int i = 1; i <= records; ++i)
        text += std::to_string(i) + ";un nombre cualquiera\n";
    CsvSource source = open(text);
    int steps = 0;
    for (; !source.countIsFinal(); ++steps) {
        const std::int64_t before = source.knownCount();
        source.countOn();
        EXPECT_GE(source.knownCount(), before);
    }
    EXPECT_GT(steps, 1);
    EXPECT_LT(steps, 10);
    EXPECT_EQ(source.knownCount(), records);
}

TEST(CsvSource, Windows1252AndUtf8GiveTheSameText) {
    CsvSource ansi = open("nombre;a\xF1o\nIb\xE1\xF1"
                          "ez;1\n");
    CsvSource utf8 = open("nombre;año\nIbáñez;1\n");
    std::vector<Variant> one;
    std::vector<Variant> other;
    ASSERT_TRUE(ansi.read(1, one) && utf8.read(1, other));
    EXPECT_EQ(one[0].asString(), other[0].asString());
    EXPECT_EQ(ansi.columns()[1].name, utf8.columns()[1].name);
}

std::string fileFailureOf(const std::u16string& path) {
    try {
        FileBytes bytes(path, "x.csv");
    } catch (const SourceError& error) {
        return error.what();
    }
    return "";
}

TEST(FileBytes, SaysWhyAFileCannotBeOpened) {
    EXPECT_EQ(fileFailureOf(u"no-such-folder/x.csv"), "x.csv: no existe el archivo");
    EXPECT_EQ(fileFailureOf(u"no-such-file.csv"), "x.csv: no existe el archivo");
    EXPECT_EQ(fileFailureOf(u"."), "x.csv: es una carpeta, no un archivo");
}

} // namespace
