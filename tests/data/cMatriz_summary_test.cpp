// Sums, groups, the walk through the rows, and what is shown.

#include "MatrizTest.h"

#include "data/TableView.h"
#include "support/MemberNames.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

using automation::Array;
using automation::Currency;
using automation::Date;
using automation::Variant;
using namespace tesela;

namespace {

class cMatrizSummary_ : public tests::MatrizTest {
protected:
    std::string grouped(const Variant& selected, const Variant& groups) const {
        return tests::textOf(*table->CrearMatrizAgrupada(selected, groups));
    }
};

TableView shown;
int timesShown = 0;

} // namespace

TEST_F(cMatrizSummary_, ColumnsAndRowsAreSummed) {
    fill({{1, 2.5, Currency::fromScaled(5)}, {3, 4, Currency(7)}});
    EXPECT_EQ(4, table->Sum(1).asLong());
    EXPECT_EQ(6.5, table->Sum(2).asDouble());
    EXPECT_EQ(Currency::fromScaled(70005), table->Sum(3).asCurrency());
    EXPECT_EQ(Currency::fromScaled(35005), table->Sum(1, true).asCurrency());
    table->SetFirstIndex(0, 0);
    EXPECT_EQ(4, table->Sum().asLong()) << "column 0";
    EXPECT_EQ(Currency(14), table->Sum(1, true).asCurrency());
}

TEST_F(cMatrizSummary_, NothingSumsToEmpty) {
    EXPECT_TRUE(table->Sum(1).isEmpty());
    const Variant zero = table->Sum(1, false, 2);
    EXPECT_EQ(automation::VT_R8, zero.type());
    EXPECT_EQ(0.0, zero.asDouble());
    fillColumn({5});
    EXPECT_TRUE(table->Sum().isEmpty()) << "there is no column 0";
    EXPECT_TRUE(table->Sum(0, false, 2).isEmpty()) << "nor is a failure rounded";
    EXPECT_TRUE(table->Sum(2, true).isEmpty());
}

TEST_F(cMatrizSummary_, SumsAddAsTheHostAdds) {
    fillColumn({u"a", u"b"});
    EXPECT_EQ("ab", table->Sum(1).asString().utf8());
    fillColumn({1, u"2,5"});
    EXPECT_EQ(3.5, table->Sum(1).asDouble());
    fillColumn({1, Variant::null(), 2});
    EXPECT_TRUE(table->Sum(1).isNull());
    EXPECT_TRUE(table->Sum(1, false, 2).isNull());
    fillColumn({Date(1), 2});
    EXPECT_EQ(Date(3), table->Sum(1).asDate());
    fillColumn({2147483647, 1});
    EXPECT_EQ(2147483648.0, table->Sum(1).asDouble());
}

TEST_F(cMatrizSummary_, AFailureGivesWhatWasReached) {
    fillColumn({1, 2, u"x", 4});
    EXPECT_EQ(3, table->Sum(1).asLong());
    fillColumn({1e308, 1e308, 1});
    EXPECT_EQ(1e308, table->Sum(1).asDouble());
    EXPECT_EQ(3, [&] {
        fillColumn({1, 2, Array::of({1})});
        return table->Sum(1).asLong();
    }());
    fillColumn({2.5});
    EXPECT_EQ(2.5, table->Sum(1, false, 400).asDouble()) << "no such power of ten";
}

TEST_F(cMatrizSummary_, HalvesAreRoundedAwayFrom0) {
    const struct {
        double value;
        std::int32_t decimals;
        double rounded;
    } cases[] = {{2.5, 0, 3},      {-2.5, 0, -3},    {2.4, 0, 2}, {-2.4, 0, -2}, {1.25, 1, 1.3},
                 {-1.25, 1, -1.3}, {1.125, 2, 1.13}, {0, 3, 0},   {5, 2, 5},     {0.5, 0, 1}};
    for (const auto& each : cases) {
        fillColumn({each.value});
        EXPECT_DOUBLE_EQ(each.rounded, table->Sum(1, false, each.decimals).asDouble()) << each.value;
    }
    fillColumn({Currency::fromScaled(12345)});
    EXPECT_DOUBLE_EQ(1.23, table->Sum(1, false, 2).asDouble());
    EXPECT_EQ(automation::VT_CY, table->Sum(1, false, -1).type());
}

TEST_F(cMatrizSummary_, AScanGoesThroughAllRowsAndStartsOver) {
    fillColumn({10, 20, 30});
    table->SetFirstIndex(1, 5);
    for (int round = 0; round < 2; ++round) {
        std::string seen;
        while (table->Scan())
            seen += std::to_string(table->CurrentRowInScan()) + ":" + tests::textOf(table->RowItem(1)) + " ";
        EXPECT_EQ("5:10 6:20 7:30 ", seen);
        EXPECT_TRUE(table->RowItem(1).isNull());
    }
}

TEST_F(cMatrizSummary_, AScanBeginsWhereItIsTold) {
    fillColumn({10, 20, 30});
    EXPECT_TRUE(table->Scan(3));
    EXPECT_EQ(30, table->RowItem(1).asLong());
    EXPECT_FALSE(table->Scan(3));
    for (const std::int32_t row : {0, 4, cMatriz::lowestLong, cMatriz::highestLong}) {
        EXPECT_FALSE(table->Scan(row));
        EXPECT_EQ(row, table->CurrentRowInScan());
    }
    EXPECT_TRUE(table->Scan(2));
    EXPECT_TRUE(table->Scan(1)) << "a scan that runs goes on";
    EXPECT_EQ(3, table->CurrentRowInScan());
    table->EndScan();
    EXPECT_TRUE(table->RowItem(1).isNull());
    EXPECT_TRUE(table->Scan());
    EXPECT_EQ(1, table->CurrentRowInScan());
}

TEST_F(cMatrizSummary_, CellsOfTheCursorAreWritten) {
    fill({{1, u"a"}, {2, u"b"}});
    table->RowItem(2, u"no scan");
    EXPECT_TRUE(table->Scan(2));
    table->RowItem(2, u"z");
    table->RowItem(3, u"no column");
    EXPECT_TRUE(table->RowItem(3).isNull());
    EXPECT_EQ("1 a, 2 z", text());
    automation::letProperty(*table, u"RowItem", 1, 7);
    EXPECT_EQ(7, automation::getProperty(*table, u"RowItem", 1).asLong());
}

TEST_F(cMatrizSummary_, AnEmptyTableEndsTheScan) {
    fillColumn({1, 2});
    EXPECT_TRUE(table->Scan());
    table->Clear();
    EXPECT_FALSE(table->Scan());
    EXPECT_TRUE(table->RowItem(1).isNull());
    fillColumn({1});
    EXPECT_TRUE(table->Scan());
    EXPECT_EQ(1, table->CurrentRowInScan());
}

TEST_F(cMatrizSummary_, GroupsStandInTheOrderOfTheirFirstOccurrence) {
    fill({{u"b", 1, 1.5}, {u"a", 2, 2.5}, {u"b", 1, 10}, {u"B", 1, 1}});
    const auto result = table->CrearMatrizAgrupada(Array::of({3}), Array::of({1}));
    EXPECT_EQ("11,5 b, 2,5 a, 1 B", tests::textOf(*result));
    EXPECT_EQ("3x2 from 1,1", tests::shapeOf(*result));
    EXPECT_EQ(automation::VT_CY, result->Item(1, 1).type());
    EXPECT_EQ("b 1 1,5, a 2 2,5, b 1 10, B 1 1", text()) << "the table is not changed";
    EXPECT_EQ("11,5 2 1 b, 2,5 2 2 a, 1 1 1 B", grouped(Array::of({3, 2}), Array::of({2, 1})));
}

TEST_F(cMatrizSummary_, ListsMayBeEmptyOrNoArrays) {
    fill({{u"b", 1}, {u"a", 2}, {u"b", 3}});
    EXPECT_EQ("b, a", grouped(Variant::missing(), Array::of({1})));
    EXPECT_EQ("6", grouped(Array::of({2}), 5)) << "all rows are one group";
    EXPECT_EQ("b, a", grouped(Array::of({}), Array::of({1})));
    EXPECT_EQ("-", grouped({}, {}));
    table->Clear();
    EXPECT_EQ("0x2 from 1,1", tests::shapeOf(*table->CrearMatrizAgrupada(Array::of({2}), Array::of({1}))));
}

TEST_F(cMatrizSummary_, GroupsTakeLogicalColumns) {
    fill({{u"b", 1}, {u"a", 2}, {u"b", 3}});
    table->SetFirstIndex(0, 0);
    EXPECT_EQ("4 b, 2 a", grouped(Array::of({1}), Array::of({0})));
    EXPECT_EQ("", grouped(Array::of({2}), Array::of({0}))) << "no such column";
    EXPECT_EQ("", grouped(Array::of({1}), Array::of({-1})));
    EXPECT_EQ("", grouped(Array::of({u"x"}), Array::of({0}))) << "no number";
}

TEST_F(cMatrizSummary_, EachNullIsAGroupOfItsOwnAndMixedTypesCompareAsTheHostDoes) {
    fill({{Variant::null(), 1}, {u"a", 2}, {Variant::null(), 3}, {u"a", 4}});
    EXPECT_EQ("1 Null, 6 a, 3 Null", grouped(Array::of({2}), Array::of({1})));
    fill({{1, 1}, {u"1", 2}, {1.0, 4}, {Currency(1), 8}, {true, 16}, {{}, 32}, {0, 64}, {u"", 128}});
    EXPECT_EQ("13 1, 2 1, 16 Verdadero, 224 -", grouped(Array::of({2}), Array::of({1})))
        << "Empty is equal to 0 and to the empty text";
}

TEST_F(cMatrizSummary_, ANullMakesTheTotalOfItsGroupNull) {
    fill({{u"b", 1}, {u"a", Variant::null()}, {u"b", 2}, {u"a", 5}});
    EXPECT_EQ("3 b, Null a", grouped(Array::of({2}), Array::of({1})));
    fill({{u"b", 1.25}, {u"b", Date(2)}, {u"b", true}});
    EXPECT_EQ("01/01/1900 6:00:00 b", grouped(Array::of({2}), Array::of({1}))) << "a date stays one";
}

TEST_F(cMatrizSummary_, AFailureEndsTheGroupingWithWhatWasReached) {
    fill({{u"b", 1}, {u"a", u"x"}, {u"b", 3}});
    EXPECT_EQ("1 b, 0 a", grouped(Array::of({2}), Array::of({1})));
    fill({{u"b", 1}, {Array::of({1}), 2}, {u"b", 3}});
    EXPECT_EQ("1 b", grouped(Array::of({2}), Array::of({1})));
}

TEST_F(cMatrizSummary_, GroupsOfAnyValuesAreThoseOfALookAtEachGroup) {
    const std::vector<Variant> kinds[] = {{1, 2, 3},
                                          {1.0, 2.5, -0.0, 0.0},
                                          {u"a", u"A", u"", u"12"},
                                          {true, false},
                                          {Currency(1), Currency(2)},
                                          {Date(1), Date(2)},
                                          {{}, Variant::null(), 0, u"", 12, u"12", 1.0F}};
    std::mt19937 random(21);
    const auto oneOf = [&](const std::vector<Variant>& values) { return values[random() % values.size()]; };
    const auto areEqual = [](const Variant& a, const Variant& b) { return automation::isEqual(a, b); };
    for (int round = 0; round < 2000; ++round) {
        const auto &first = kinds[random() % std::size(kinds)], &second = kinds[random() % std::size(kinds)];
        table->Dimension2D(1, 3, 1, 0);
        std::vector<Row> groups; // the total in front
        for (std::size_t rows = 1 + random() % 25; rows > 0; --rows) {
            const Row key{oneOf(first), oneOf(random() % 20 == 0 ? kinds[6] : second)};
            const auto amount = static_cast<std::int32_t>(random() % 100);
            table->AddRow({key[0], amount, key[1]});
            auto group = std::find_if(groups.begin(), groups.end(), [&](const Row& each) {
                return std::equal(key.begin(), key.end(), each.begin() + 1, areEqual);
            });
            if (group == groups.end()) group = groups.insert(group, {Currency(), key[0], key[1]});
            group->front() = automation::add(group->front(), amount);
        }
        const auto expected = automation::make<cMatriz>();
        expected->Dimension2D(1, 3, 1, 0);
        for (const Row& group : groups)
            expected->AddRow(group);
        ASSERT_EQ(tests::textOf(*expected), grouped(Array::of({2}), Array::of({1, 3}))) << text();
    }
}

TEST_F(cMatrizSummary_, GroupsOfManyRowsAreThoseOfAMap) {
    std::mt19937 random(4);
    table->Dimension2D(1, 3, 1, 20000);
    std::map<std::pair<std::int32_t, std::string>, std::int64_t> expected;
    for (std::int32_t row = 1; row <= 20000; ++row) {
        const auto number = static_cast<std::int32_t>(random() % 30);
        const std::string name = "n" + std::to_string(random() % 20);
        const auto amount = static_cast<std::int32_t>(random() % 1000);
        table->Item(1, row, number);
        table->Item(2, row, automation::String::fromUtf8(name));
        table->Item(3, row, amount);
        expected[{number, name}] += amount;
    }
    const auto result = table->CrearMatrizAgrupada(Array::of({3}), Array::of({1, 2}));
    ASSERT_EQ(expected.size(), static_cast<std::size_t>(result->Rows()));
    for (std::int32_t row = 1; row <= result->Rows(); ++row) {
        const auto sum =
            expected.find({result->Item(2, row).asLong(), result->Item(3, row).asString().utf8()});
        ASSERT_NE(expected.end(), sum);
        EXPECT_EQ(sum->second * Currency::scale, result->Item(1, row).asCurrency().scaled());
    }
}

TEST_F(cMatrizSummary_, AViewHasTheRowNumbersInFrontAndAColumnForEachOther) {
    fill({{1, u"a text of forty-six characters, told by the type", Date(5), Variant::null(), {}},
          {2, u"x", 7, 8, 9}});
    table->SetFirstIndex(10, 20);
    const TableView view = viewOf(*table);
    EXPECT_EQ("2 filas (20-21) x 5 columnas (10-14) = 10 celdas de datos.", view.caption.utf8());
    EXPECT_EQ("2x6 from 1,1", tests::shapeOf(*view.data));
    EXPECT_EQ(20, view.data->Item(1, 1).asLong());
    EXPECT_EQ(21, view.data->Item(1, 2).asLong());
    EXPECT_EQ("x", view.data->Item(3, 2).asString().utf8());
    ASSERT_EQ(6U, view.columns.size());
    EXPECT_EQ("Fila", view.columns[0].header.utf8());
    EXPECT_EQ(50, view.columns[0].width);
    const struct {
        const char* header;
        std::int32_t width;
        tslTipoDatoConstants type;
    } columns[] = {{"Col #10", 8 * 12, tslTipoDatoNumero},
                   {"Col #11", 8 * 48, tslTipoDatoCaracter},
                   {"Col #12", 8 * 12, tslTipoDatoFecha},
                   {"Col #13", 8 * 10, tslTipoDatoNumero},
                   {"Col #14", 8 * 12, tslTipoDatoNumero}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(columns[i].header, view.columns[i + 1].header.utf8());
        EXPECT_EQ(columns[i].width, view.columns[i + 1].width) << i;
        EXPECT_EQ(columns[i].type, view.columns[i + 1].type) << i;
    }
    EXPECT_EQ("2x5 from 20,10", shape());
}

TEST_F(cMatrizSummary_, AViewOfTheHighestNumbersHasAllCells) {
    fill({{1, u"a"}, {2, u"b"}});
    table->SetFirstIndex(cMatriz::highestLong, cMatriz::highestLong);
    const TableView view = viewOf(*table);
    EXPECT_EQ("2147483647 1 a, 2147483647 2 b", tests::textOf(*view.data));
    EXPECT_EQ("Col #2147483647", view.columns[2].header.utf8());
}

TEST_F(cMatrizSummary_, LongTextsAndValuesWithoutTextHaveTheirLimits) {
    fill({{automation::String::repeat(u'm', 500), Array::of({1})}});
    const TableView view = viewOf(*table);
    EXPECT_EQ(8 * 100, view.columns[1].width);
    EXPECT_EQ(8 * 12, view.columns[2].width);
}

TEST_F(cMatrizSummary_, ATableWithRowsIsGivenToTheDialog) {
    tableViewer() = [](const TableView& view) {
        shown = view;
        ++timesShown;
    };
    table->Show();
    EXPECT_EQ(0, timesShown) << "there is nothing to see";
    fillColumn({1});
    automation::callMethod(*table, u"Show");
    EXPECT_EQ(1, timesShown);
    EXPECT_EQ("1 filas (1-1) x 1 columnas (1-1) = 1 celdas de datos.", shown.caption.utf8());
    shown = {};
    tableViewer() = nullptr;
    table->Show();
    EXPECT_EQ(1, timesShown);
}

TEST_F(cMatrizSummary_, TheInterfaceStandsInItsOrder) {
    const std::vector<std::string> order{"Rows",
                                         "Cols",
                                         "FirstRow",
                                         "FirstCol",
                                         "LastRow",
                                         "LastCol",
                                         "CheckBounds",
                                         "Dimension2D",
                                         "Item",
                                         "DataFromParameters",
                                         "DataFromVariant1D",
                                         "DataFromVariant2D",
                                         "DataFromArray",
                                         "DataFromMatriz",
                                         "DataFromRecordSet",
                                         "DataFromDatos",
                                         "DataFromString",
                                         "Clone",
                                         "GetArray",
                                         "GetVariant",
                                         "SubMatriz2D",
                                         "BeginAddRows",
                                         "EndAddRows",
                                         "AddRow",
                                         "AddRowFromMatriz",
                                         "ReplaceCol",
                                         "UpdateRow",
                                         "InsertRowWithData",
                                         "InsertRow",
                                         "DeleteRow",
                                         "DeleteRows",
                                         "FilterRows",
                                         "Pivot",
                                         "Clear",
                                         "SetFirstIndex",
                                         "TextCompare",
                                         "Lookup",
                                         "FindRow",
                                         "SeekRow",
                                         "SortOnColumn",
                                         "QSort",
                                         "Sum",
                                         "Scan",
                                         "EndScan",
                                         "CurrentRowInScan",
                                         "RowItem",
                                         "Show",
                                         "CheckDuplicates",
                                         "CrearMatrizAgrupada"};
    EXPECT_EQ(order, tests::memberNames(cMatriz::table()));
}

TEST_F(cMatrizSummary_, Enumerations) {
    EXPECT_EQ(2, enumerationOf(tslMatriz_Sort_Unsorted).find(u"tslMatriz_Sort_Descending"));
    const auto& modes = enumerationOf(tslMatrizFindCompareIgual);
    EXPECT_EQ("tslMatrizFindCompareConstants", modes.name().utf8());
    EXPECT_EQ(9U, modes.entries().size());
    EXPECT_EQ(6, modes.find(u"tslMatrizFindCompareAproximada"));
    EXPECT_EQ(255, modes.find(u"tslMatrizFindCompareMaskModes"));
    EXPECT_EQ(256, modes.find(u"tslMatrizFindCompareIgnoreCase"));
}
