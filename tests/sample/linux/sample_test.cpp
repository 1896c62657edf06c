#include "platform/linux/database.h"
#include "sample/Identity.h"
#include "sample/Names.h"
#include "sample/Places.h"
#include "sample/SampleDatabase.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using platform::Database;
using platform::Statement;

namespace {

class SampleTest : public testing::Test {
protected:
    void SetUp() override { sample::writeSampleDatabase(file("a")); }
    std::string file(const std::string& name) const { return folder.utf8File(name + ".sqlite"); }
    std::int64_t number(const std::string& sql) const {
        Statement statement = Database(file("a")).prepare(sql);
        return statement.step() ? statement.integer(0) : -1;
    }
    std::string bytes(const std::string& name) const {
        return folder.read(platform::wideFromUtf8(name + ".sqlite"));
    }
    support::TemporaryFolder folder;
};

TEST_F(SampleTest, IsTheSameBytesEachTime) {
    sample::writeSampleDatabase(file("b"));
    EXPECT_EQ(bytes("a"), bytes("b"));
    EXPECT_FALSE(bytes("a").empty());
}

TEST_F(SampleTest, ReplacesAFileThatIsThere) {
    std::ofstream(file("b")) << "something else";
    sample::writeSampleDatabase(file("b"));
    EXPECT_EQ(bytes("a"), bytes("b"));
}

TEST_F(SampleTest, LeavesNothingBehindWhereItCannotWrite) {
    EXPECT_THROW(sample::writeSampleDatabase(folder.utf8File("no/x.sqlite")), platform::DatabaseError);
    EXPECT_FALSE(std::filesystem::exists(folder.utf8File("no")));
}

TEST_F(SampleTest, HoldsThousandsOfRows) {
    EXPECT_EQ(number("SELECT count(*) FROM clientes"), sample::customerCount);
    EXPECT_EQ(number("SELECT count(*) FROM articulos"), sample::articleCount);
    EXPECT_EQ(number("SELECT count(*) FROM pedidos"), sample::orderCount);
    const std::int64_t lines = number("SELECT count(*) FROM lineas");
    EXPECT_GT(lines, 20000);
    EXPECT_LT(lines, 30000);
}

TEST_F(SampleTest, TaxNumbersAndBarCodesCarryTheirCheckCharacters) {
    Statement nif = Database(file("a")).prepare("SELECT nif FROM clientes");
    while (nif.step())
        EXPECT_TRUE(sample::isValidNif(nif.text(0))) << nif.text(0);
    Statement code = Database(file("a")).prepare("SELECT codigo_barras FROM articulos");
    while (code.step())
        EXPECT_TRUE(sample::isValidEan13(code.text(0))) << code.text(0);
}

TEST_F(SampleTest, PostalCodesBelongToTheirProvinces) {
    Statement row = Database(file("a")).prepare("SELECT codigo_postal, provincia FROM clientes");
    while (row.step()) {
        ASSERT_EQ(row.text(0).size(), 5u);
        bool found = false;
        for (const sample::Place& place : sample::places())
            found =
                found || (row.text(1) == place.province &&
                          std::stoi(std::string(row.text(0).substr(0, 2))) == place.firstPostalCode / 1000);
        EXPECT_TRUE(found) << row.text(0) << " " << row.text(1);
    }
}

TEST_F(SampleTest, OrdersAddUpAndPointToWhatExists) {
    EXPECT_EQ(number("SELECT count(*) FROM pedidos AS p WHERE abs(base - (SELECT sum(importe) FROM lineas "
                     "WHERE pedido = p.id)) > 0.001"),
              0);
    EXPECT_EQ(number("SELECT count(*) FROM pedidos WHERE abs(total - base - cuota_iva - coalesce(portes, 0)) "
                     "> 0.001"),
              0);
    EXPECT_EQ(number("SELECT count(*) FROM pragma_foreign_key_check"), 0);
    EXPECT_EQ(number("SELECT count(*) FROM pedidos WHERE date(fecha) IS NULL OR fecha_entrega < date(fecha)"),
              0);
}

TEST_F(SampleTest, HasGapsWhereAProgramMustCopeWithThem) {
    for (const char* column : {"contacto", "telefono", "correo", "limite_credito", "observaciones"}) {
        const std::int64_t gaps =
            number("SELECT count(*) FROM clientes WHERE " + std::string(column) + " IS NULL");
        EXPECT_GT(gaps, 0) << column;
        EXPECT_LT(gaps, sample::customerCount) << column;
    }
}

TEST(SampleIdentity, CheckCharactersFollowThePublishedExamples) {
    EXPECT_EQ(sample::nifOfPerson(12345678), "12345678Z");
    EXPECT_EQ(sample::nifOfForeigner(1234567), "X1234567L");
    EXPECT_EQ(sample::nifOfCompany('A', 58, 81850), "A58818501");
    EXPECT_EQ(sample::ean13(841234567890), "8412345678905");
    EXPECT_FALSE(sample::isValidNif("12345678A"));
    EXPECT_FALSE(sample::isValidNif("A58818502"));
    EXPECT_FALSE(sample::isValidNif(""));
    EXPECT_FALSE(sample::isValidEan13("8412345678904"));
}

TEST(SampleNames, MailAddressesHaveNeitherAccentsNorSpaces) {
    EXPECT_EQ(sample::plainWord("Íñigo Güell Ça, S.L."), "inigo.guell.ca.sl");
}

} // namespace
