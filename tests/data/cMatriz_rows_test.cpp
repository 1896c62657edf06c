// Rows that are added, written, inserted, deleted and filtered.

#include "MatrizTest.h"

#include "support/Desk.h"
#include "support/LibraryLog.h"
#include "support/MsgBoxAnswer.h"

using automation::Array;
using automation::Date;
using automation::Variant;
using namespace tesela;

namespace {

class cMatrizRows_ : public tests::MatrizTest {
protected:
    /// The last row of the array, reserved ones counted.
    std::int32_t lastOfArray() const { return table->GetArray().upper(2); }
};

} // namespace

TEST_F(cMatrizRows_, ARowBeginsAtTheFirstColumnAndTheRestIsEmpty) {
    table->Dimension2D(3, 5, 1, 0);
    table->AddRow({1, u"a", true});
    table->AddRow({2});
    table->AddRow({});
    EXPECT_EQ("1 a Verdadero, 2 - -, - - -", text());
    EXPECT_EQ(3, table->LastRow());
    EXPECT_EQ(3, lastOfArray());
}

TEST_F(cMatrizRows_, TooManyValuesAreLeftOutWithAMessage) {
    support::Desk desk;
    support::MsgBoxAnswer answer(desk, platform::VK_RETURN);
    table->Dimension2D(1, 2, 1, 0);
    table->AddRow({1, 2, 3, 4});
    EXPECT_EQ(1, answer.shown());
    EXPECT_EQ("Error en cMatriz.AddRow()", answer.title().utf8());
    EXPECT_EQ("Error en Nº de parámetros: Actuales=4; Esperados=2.", answer.text().utf8());
    EXPECT_EQ("1 2", text());
}

TEST_F(cMatrizRows_, BulkAddingReservesWhatIsPlannedAndGrowsByTheIncrement) {
    table->BeginAddRows(3, 12);
    EXPECT_EQ(3, lastOfArray());
    EXPECT_EQ(0, table->Rows());
    for (int i = 1; i <= 3; ++i)
        table->AddRow({i});
    EXPECT_EQ(3, lastOfArray());
    table->AddRow({4});
    EXPECT_EQ(15, lastOfArray());
    EXPECT_EQ(4, table->Rows());
    EXPECT_TRUE(table->Item(1, 5).isNull()) << "reserved rows are not in use";
    EXPECT_EQ(4, table->EndAddRows());
    EXPECT_EQ(4, lastOfArray());
    EXPECT_EQ("1, 2, 3, 4", text());
}

TEST_F(cMatrizRows_, AtLeastOneRowIsReservedAndTenMore) {
    table->BeginAddRows(0, 0);
    EXPECT_EQ(1, lastOfArray());
    table->AddRow({1});
    EXPECT_EQ(1, lastOfArray());
    table->AddRow({2});
    EXPECT_EQ(11, lastOfArray());
    EXPECT_EQ(2, table->EndAddRows());
    table->BeginAddRows(-5, -5);
    EXPECT_EQ(3, lastOfArray());
}

TEST_F(cMatrizRows_, TheReserveComesOnTopOfTheRowsThatThereAre) {
    fillColumn({1, 2});
    table->BeginAddRows(2);
    EXPECT_EQ(4, lastOfArray());
    table->BeginAddRows(50);
    EXPECT_EQ(4, lastOfArray()) << "a second call changes nothing";
    table->AddRow({3});
    EXPECT_EQ(1, table->EndAddRows());
    EXPECT_EQ("1, 2, 3", text());
    EXPECT_EQ(-1, table->EndAddRows());
}

TEST_F(cMatrizRows_, AnEndWithoutABeginningGivesMinus1) {
    EXPECT_EQ(-1, table->EndAddRows());
}

TEST_F(cMatrizRows_, AReserveThatEndsAtOrBelow0IsKept) {
    table->Dimension2D(1, 1, -5, -6);
    table->BeginAddRows(20);
    table->AddRow({1});
    EXPECT_EQ(1, table->EndAddRows());
    EXPECT_EQ(14, lastOfArray());
    EXPECT_EQ(1, table->Rows());
    table->AddRow({2});
    EXPECT_EQ(-4, lastOfArray()) << "outside of bulk adding the array ends with the row";
    EXPECT_EQ("1, 2", text());
}

TEST_F(cMatrizRows_, BulkAddingNearTheEndOfTheNumbersIsRefused) {
    table->Dimension2D(1, 1, 2147483647, 2147483647);
    table->BeginAddRows(1);
    EXPECT_EQ(-1, table->EndAddRows());
    table->AddRow({1});
    EXPECT_EQ(1, table->Rows());
    EXPECT_NE(std::string::npos, support::libraryLog().find("Error N\xBA"
                                                            "6 en AddRow: Desbordamiento"));
    EXPECT_FALSE(table->InsertRow(2147483647)) << "no number is left for the row that moves";
    table->BeginAddRows(2147483647);
    EXPECT_EQ(-1, table->EndAddRows());
}

TEST_F(cMatrizRows_, OtherOperationsLeaveTheBookkeepingOfTheReserveAlone) {
    table->BeginAddRows(10);
    for (int i = 1; i <= 4; ++i)
        table->AddRow({i});
    EXPECT_TRUE(table->DeleteRow(2));
    EXPECT_EQ(9, lastOfArray());
    EXPECT_TRUE(table->InsertRow(1));
    EXPECT_EQ(10, lastOfArray());
    table->AddRow({5});
    EXPECT_EQ("1, 1, 3, 4, 5", text());
    EXPECT_TRUE(table->InsertRow(1));
    EXPECT_EQ(5, table->EndAddRows()) << "as many as AddRow has added";
    EXPECT_EQ("1, 1, 1, 3, 4, 5", text()) << "no row in use is lost";
}

TEST_F(cMatrizRows_, ARowBeyondWhatIsLeftOfTheArrayIsRefusedWithAMessage) {
    support::Desk desk;
    support::MsgBoxAnswer answer(desk, platform::VK_RETURN);
    table->BeginAddRows(10);
    table->AddRow({1});
    table->Clear();
    table->AddRow({2});
    EXPECT_EQ(0, answer.shown()) << "the one row of an empty array";
    table->AddRow({3});
    EXPECT_EQ(1, answer.shown());
    EXPECT_EQ("Error: subíndice fuera de límites", answer.text().utf8());
    EXPECT_NE(std::string::npos, support::libraryLog().find("Error N\xBA"
                                                            "9 en AddRow: Sub\xED"
                                                            "ndice fuera del intervalo"));
    EXPECT_EQ("2", text());
    EXPECT_EQ(2, table->EndAddRows());
    EXPECT_EQ("2", text());
}

TEST_F(cMatrizRows_, ARowOfAnotherTableIsCopied) {
    const auto source = automation::make<cMatriz>();
    source->Dimension2D(1, 2, 10, 11);
    source->Item(1, 11, u"x");
    source->Item(2, 11, 5);
    table->Dimension2D(1, 2, 1, 0);
    EXPECT_TRUE(table->AddRowFromMatriz(source, 11));
    EXPECT_TRUE(table->AddRowFromMatriz(source, 10));
    EXPECT_EQ("x 5, - -", text());
    EXPECT_TRUE(table->AddRowFromMatriz(table, 1)) << "its own";
    EXPECT_EQ("x 5, - -, x 5", text());
}

TEST_F(cMatrizRows_, RowsOfTablesThatDifferAreNotCopied) {
    const auto source = automation::make<cMatriz>();
    table->Dimension2D(1, 2, 1, 0);
    EXPECT_FALSE(table->AddRowFromMatriz(nullptr, 1));
    source->Dimension2D(1, 3, 1, 1);
    EXPECT_FALSE(table->AddRowFromMatriz(source, 1)) << "more columns";
    source->Dimension2D(2, 3, 1, 1);
    EXPECT_FALSE(table->AddRowFromMatriz(source, 1)) << "other numbers";
    source->Dimension2D(1, 2, 1, 0);
    EXPECT_FALSE(table->AddRowFromMatriz(source, 1)) << "no rows";
    source->Dimension2D(1, 2, 1, 2);
    EXPECT_FALSE(table->AddRowFromMatriz(source, 0));
    EXPECT_FALSE(table->AddRowFromMatriz(source, 3));
    source->SetFirstIndex(1, 0);
    EXPECT_TRUE(table->AddRowFromMatriz(source, 0)) << "the logical number";
    EXPECT_EQ(1, table->Rows());
}

TEST_F(cMatrizRows_, AColumnIsReplacedByPosition) {
    fill({{1, u"a"}, {2, u"b"}, {1, u"c"}});
    table->SetFirstIndex(100, 100);
    table->ReplaceCol(2, u"z");
    EXPECT_EQ("1 z, 2 z, 1 z", text());
    table->ReplaceCol(2, u"uno", 1, 1);
    EXPECT_EQ("1 uno, 2 z, 1 uno", text());
    table->ReplaceCol(1, 9, 2, u"uno");
    EXPECT_EQ("9 uno, 2 z, 9 uno", text());
    table->ReplaceCol(1, 0, 1, 9);
    EXPECT_EQ("0 uno, 2 z, 0 uno", text()) << "the filter's own column";
}

TEST_F(cMatrizRows_, ReplacingColumnsThatThereAreNotDoesNothing) {
    fill({{1, 2}});
    for (const std::int32_t col : {0, 3, -1, cMatriz::highestLong, cMatriz::lowestLong}) {
        table->ReplaceCol(col, 7);
        table->ReplaceCol(1, 7, col, 1);
    }
    EXPECT_EQ("1 2", text());
    table->ReplaceCol(1, 7, 99);
    EXPECT_EQ("7 2", text()) << "without a value the filter's column counts for nothing";
    table->ReplaceCol(1, 8, 1, Variant::nothing());
    EXPECT_EQ("8 2", text()) << "an object is no filter";
}

TEST_F(cMatrizRows_, FiltersThatDoNotCompareReplaceNothing) {
    fillColumn({1, Variant::null(), Array::of({1}), Variant(table), Variant::error(5), 1});
    table->ReplaceCol(1, u"x", 1, 1);
    EXPECT_EQ("x, Null, array, object, Error 5, x", text());
    table->ReplaceCol(1, u"y", 1, Variant::null());
    EXPECT_EQ("x, Null, array, object, Error 5, x", text()) << "Null is equal to nothing";
    table->Clear();
}

TEST_F(cMatrizRows_, ARowIsOverwrittenByPosition) {
    fill({{1, 2, 3}, {4, 5, 6}});
    table->SetFirstIndex(0, 0);
    table->UpdateRow(2, {u"a", u"b"});
    EXPECT_EQ("1 2 3, a b 6", text());
    table->UpdateRow(1, {7, 8, 9, 10, 11});
    EXPECT_EQ("7 8 9, a b 6", text()) << "values beyond the columns are left out";
    for (const std::int32_t row : {0, 3, -1, cMatriz::highestLong, cMatriz::lowestLong})
        table->UpdateRow(row, {0});
    EXPECT_EQ("7 8 9, a b 6", text());
}

TEST_F(cMatrizRows_, AnInsertedRowIsACopyOfTheOneThatMovesDown) {
    fillColumn({1, 2, 3});
    EXPECT_TRUE(table->InsertRow(2));
    EXPECT_EQ("1, 2, 2, 3", text());
    EXPECT_TRUE(table->InsertRow(1));
    EXPECT_EQ("1, 1, 2, 2, 3", text());
    EXPECT_TRUE(table->InsertRow(6));
    EXPECT_EQ("1, 1, 2, 2, 3, -", text()) << "past the last one an Empty row";
    EXPECT_FALSE(table->InsertRow(8));
    EXPECT_FALSE(table->InsertRow(0));
}

TEST_F(cMatrizRows_, WithoutNewLengthTheLastRowIsLost) {
    bool grow = false;
    fillColumn({1, 2, 3});
    EXPECT_TRUE(table->InsertRow(1, grow));
    EXPECT_EQ("1, 1, 2", text());
    EXPECT_TRUE(table->InsertRow(3, grow));
    EXPECT_EQ("1, 1, 2", text()) << "nothing moves over the last one";
    EXPECT_FALSE(table->InsertRow(4, grow)) << "just past the end";
    EXPECT_EQ("1, 1, 2", text());
}

TEST_F(cMatrizRows_, InsertedDataOverwriteTheRowAtThePosition) {
    fill({{1, u"a"}, {2, u"b"}});
    EXPECT_TRUE(table->InsertRowWithData(2, true, {9}));
    EXPECT_EQ("1 a, 9 b, 2 b", text()) << "what is not given stays";
    EXPECT_TRUE(table->InsertRowWithData(4, true, {7, 8}));
    EXPECT_EQ("1 a, 9 b, 2 b, 7 8", text());
    EXPECT_TRUE(table->InsertRowWithData(1, false, {0, 0}));
    EXPECT_EQ("0 0, 1 a, 9 b, 2 b", text());
    EXPECT_FALSE(table->InsertRowWithData(9, true, {5}));
    EXPECT_FALSE(table->InsertRowWithData(5, false, {5}));
    EXPECT_EQ(4, table->Rows());
}

TEST_F(cMatrizRows_, InsertedDataGoToThePositionThoughTheRoomIsAtTheLogicalRow) {
    fillColumn({1, 2, 3});
    table->SetFirstIndex(1, 0);
    EXPECT_TRUE(table->InsertRowWithData(1, true, {u"x"}));
    EXPECT_EQ("x, 2, 2, 3", text());
    EXPECT_TRUE(table->InsertRowWithData(0, true, {u"y"}));
    EXPECT_EQ("x, x, 2, 2, 3", text()) << "there is no position 0";
}

TEST_F(cMatrizRows_, ADeletedRowIsClosedUp) {
    fillColumn({1, 2, 3});
    EXPECT_TRUE(table->DeleteRow(2));
    EXPECT_EQ("1, 3", text());
    EXPECT_EQ(2, lastOfArray());
    EXPECT_FALSE(table->DeleteRow(3));
    EXPECT_FALSE(table->DeleteRow(0));
    EXPECT_TRUE(table->DeleteRow(2));
    EXPECT_TRUE(table->DeleteRow(1));
    EXPECT_EQ("0x1 from 1,1", shape()) << "not a row of Empty cells";
    EXPECT_FALSE(table->DeleteRow(1));
}

TEST_F(cMatrizRows_, WithoutNewLengthTheLastRowStandsTwice) {
    bool shrink = false;
    fill({{1, u"a"}, {2, u"b"}, {3, u"c"}});
    EXPECT_TRUE(table->DeleteRow(1, shrink));
    EXPECT_EQ("2 b, 3 c, 3 c", text());
    EXPECT_TRUE(table->DeleteRow(3, shrink));
    EXPECT_EQ("2 b, 3 c, 3 c", text());
}

TEST_F(cMatrizRows_, FilteringKeepsRowsBetweenTheEndsInTheirOrder) {
    fill({{3, u"a"}, {1, u"b"}, {5, u"c"}, {2, u"d"}, {4, u"e"}});
    EXPECT_TRUE(table->FilterRows(1, 2, 4));
    EXPECT_EQ("3 a, 2 d, 4 e", text());
    EXPECT_EQ(3, lastOfArray());
    EXPECT_TRUE(table->FilterRows(2, u"b", u"d", true));
    EXPECT_EQ("3 a, 4 e", text()) << "those outside";
    EXPECT_TRUE(table->DeleteRows(1, 4, 9));
    EXPECT_EQ("3 a", text()) << "rows below or above are kept: the others are deleted";
}

TEST_F(cMatrizRows_, FilteringThatKeepsNothingClears) {
    fillColumn({1, 2});
    EXPECT_TRUE(table->FilterRows(1, 5, 6));
    EXPECT_EQ("0x1 from 1,1", shape());
    EXPECT_FALSE(table->FilterRows(1, 0, 9)) << "an empty table";
}

TEST_F(cMatrizRows_, FilteringTakesLogicalColumns) {
    fill({{1, 20}, {2, 10}});
    table->SetFirstIndex(0, 0);
    EXPECT_FALSE(table->FilterRows(2, 0, 99));
    EXPECT_FALSE(table->FilterRows(-1, 0, 99));
    EXPECT_TRUE(table->FilterRows(1, 15, 99));
    EXPECT_EQ("1 20", text());
}

TEST_F(cMatrizRows_, NullPassesNoFilterAndTypesCompareAsTheHostComparesThem) {
    fillColumn({Variant::null(), 1, 2.5, automation::Currency(2), Date(3), u"2", true, {}});
    const auto copy = table->Clone();
    EXPECT_TRUE(table->FilterRows(1, 2, 3));
    EXPECT_EQ("2,5, 2, 02/01/1900", text()) << "a text is greater than any number";
    EXPECT_TRUE(copy->FilterRows(1, 2, 3, true));
    EXPECT_EQ("1, 2, Verdadero, -", tests::textOf(*copy));
    fillColumn({1, 2});
    EXPECT_TRUE(table->FilterRows(1, Variant::null(), 5)) << "nothing lies at or above Null";
    EXPECT_EQ(0, table->Rows());
}

TEST_F(cMatrizRows_, ValuesThatDoNotCompareLeaveTheTableAsItWas) {
    for (const Variant& odd : {Variant(Array::of({1})), Variant::error(7), Variant::nothing(),
                               Variant(automation::make<cMatriz>())}) {
        fillColumn({1, 2, odd, 0});
        EXPECT_FALSE(table->FilterRows(1, 1, 1));
        EXPECT_EQ(4, table->Rows());
        EXPECT_FALSE(table->FilterRows(1, odd, 1));
        EXPECT_FALSE(table->DeleteRows(1, 1, odd) && !odd.isError());
        EXPECT_EQ(4, table->Rows());
        EXPECT_EQ(1, table->Item(1, 1).asLong());
    }
}
