// Shape and cells of tables.

#include "MatrizTest.h"

#include "support/ErrorOf.h"
#include "support/MemberNames.h"

using automation::Array;
using automation::Variant;
using namespace tesela;

namespace {

class cMatriz_ : public tests::MatrizTest {};

constexpr std::int32_t highest = cMatriz::highestLong;
constexpr std::int32_t lowest = cMatriz::lowestLong;

} // namespace

TEST_F(cMatriz_, ANewOneHasOneColumnAndNoRows) {
    EXPECT_EQ(1, table->Cols());
    EXPECT_EQ(0, table->Rows());
    EXPECT_EQ(1, table->FirstRow());
    EXPECT_EQ(0, table->LastRow());
    EXPECT_EQ(1, table->FirstCol());
    EXPECT_EQ(1, table->LastCol());
}

TEST_F(cMatriz_, AnEmptyTableReadsAsNullAndKeepsNothing) {
    for (const std::int32_t row : {-1, 0, 1}) {
        EXPECT_TRUE(table->Item(1, row).isNull());
        table->Item(1, row, 7);
        EXPECT_TRUE(table->Item(1, row).isNull());
    }
    EXPECT_TRUE(table->GetArray()(1, 1).isEmpty()) << "the one row of the array";
}

TEST_F(cMatriz_, CellsStartEmptyAndKeepWhatIsWritten) {
    table->Dimension2D(1, 2, 1, 3);
    EXPECT_EQ("- -, - -, - -", text());
    table->Item(2, 3, u"a");
    table->Item(1, 1, Variant::null());
    EXPECT_EQ("Null -, - -, - a", text());
}

TEST_F(cMatriz_, OutsideOfItsCellsItReadsAsNullAndDropsWrites) {
    table->Dimension2D(2, 3, 5, 6);
    const std::pair<std::int32_t, std::int32_t> outside[] = {
        {1, 5}, {4, 5}, {2, 4}, {2, 7}, {lowest, 5}, {highest, 6}, {2, lowest}, {3, highest}};
    for (const auto& [col, row] : outside) {
        table->Item(col, row, 1);
        EXPECT_TRUE(table->Item(col, row).isNull()) << col << ", " << row;
    }
    EXPECT_EQ("- -, - -", text());
}

TEST_F(cMatriz_, TheRowLeftOutIsTheRowMinus1) {
    table->Dimension2D(1, 1, 1, 2);
    EXPECT_TRUE(table->Item(1).isNull());
    table->Dimension2D(1, 1, -1, 0);
    table->Item(1, -1, 5);
    EXPECT_EQ(5, table->Item(1).asLong());
}

TEST_F(cMatriz_, AReferenceIsStoredAsItsValue) {
    table->Dimension2D(1, 1, 1, 1);
    std::int32_t variable = 3;
    table->Item(1, 1, Variant::byRef(variable));
    variable = 4;
    EXPECT_EQ(3, table->Item(1, 1).asLong());
}

TEST_F(cMatriz_, ALastColumnBelowTheFirstIsRaisedToIt) {
    table->Dimension2D(1, 0, 1, 3);
    EXPECT_EQ("3x1 from 1,1", shape());
    table->Dimension2D(5, -5, 1, 1);
    EXPECT_EQ("1x1 from 1,5", shape());
}

TEST_F(cMatriz_, WithoutLastRowDimensioningEmptiesTheTable) {
    fillColumn({1, 2});
    table->Dimension2D(3, 4);
    EXPECT_EQ("0x2 from 0,3", shape());
    EXPECT_EQ(-1, table->LastRow());
    EXPECT_EQ(4, table->LastCol());
    fillColumn({1, 2});
    table->Dimension2D(1, 1, 4, 3);
    EXPECT_EQ("0x1 from 4,1", shape());
    table->AddRow({7});
    EXPECT_EQ(7, table->Item(1, 4).asLong());
}

TEST_F(cMatriz_, RowsAreKeptWhileColumnsStay) {
    fill({{1, u"a"}, {2, u"b"}, {3, u"c"}});
    table->Dimension2D(1, 2, 1, 5);
    EXPECT_EQ("1 a, 2 b, 3 c, - -, - -", text());
    table->Dimension2D(1, 2, 1, 2);
    EXPECT_EQ("1 a, 2 b", text());
    table->Dimension2D(1, 2, 1, 3);
    EXPECT_EQ("1 a, 2 b, - -", text()) << "what was cut off does not come back";
    table->Dimension2D(1, 2, 10, 12);
    EXPECT_EQ("1 a, 2 b, - -", text()) << "in their order";
    EXPECT_EQ(10, table->FirstRow());
}

TEST_F(cMatriz_, OtherColumnsMakeTheCellsAnew) {
    for (const auto& [from, to] : {std::pair(1, 3), std::pair(0, 1), std::pair(2, 3), std::pair(1, 1)}) {
        fill({{1, u"a"}, {2, u"b"}});
        table->Dimension2D(from, to, 1, 2);
        for (std::int32_t col = from; col <= to; ++col)
            EXPECT_TRUE(table->Item(col, 1).isEmpty() && table->Item(col, 2).isEmpty());
    }
}

TEST_F(cMatriz_, RowsOfAnEmptyTableStartEmpty) {
    table->BeginAddRows(5);
    bool check = false;
    table->CheckBounds(check);
    table->Item(1, 3, u"in the reserve");
    check = true;
    table->CheckBounds(check);
    table->Dimension2D(1, 1, 1, 4);
    EXPECT_EQ("-, -, -, -", text());
}

TEST_F(cMatriz_, DimensioningForgetsTheShiftOfColumnsAndKeepsThatOfRows) {
    table->Dimension2D(1, 2, 1, 2);
    table->SetFirstIndex(11, 21);
    EXPECT_EQ("2x2 from 21,11", shape());
    table->Dimension2D(1, 2, 1, 2);
    EXPECT_EQ("2x2 from 21,1", shape());
    table->Dimension2D(1, 2, 5, 6);
    EXPECT_EQ("2x2 from 25,1", shape());
}

TEST_F(cMatriz_, LogicalNumbersMoveNoCell) {
    fill({{1, 2}, {3, 4}});
    table->SetFirstIndex(0, 0);
    EXPECT_EQ("2x2 from 0,0", shape());
    EXPECT_EQ(1, table->LastRow());
    EXPECT_EQ(1, table->LastCol());
    EXPECT_EQ(1, table->Item(0, 0).asLong());
    EXPECT_EQ(4, table->Item(1, 1).asLong());
    EXPECT_TRUE(table->Item(2, 2).isNull());
    table->SetFirstIndex(-10, 100);
    EXPECT_EQ(3, table->Item(-10, 101).asLong());
    EXPECT_EQ("1 2, 3 4", text());
    EXPECT_EQ(1, table->GetArray().lower(1)) << "the array keeps its own";
}

TEST_F(cMatriz_, AfterSetFirstIndexPositionsStayAndLogicalRowsMove) {
    fillColumn({1, 2, 3});
    table->SetFirstIndex(0, 0);
    EXPECT_EQ(1, table->Item(0, 0).asLong());
    table->UpdateRow(1, {u"first"});
    EXPECT_EQ("first, 2, 3", text());
    EXPECT_TRUE(table->InsertRow(1));
    EXPECT_EQ("first, 2, 2, 3", text()) << "the second";
}

TEST_F(cMatriz_, NumbersOutOfALongChangeNoIndexAndEndAtTheLong) {
    table->Dimension2D(1, 2, 1, 2);
    table->SetFirstIndex(lowest, 1);
    table->SetFirstIndex(1, lowest);
    EXPECT_EQ("2x2 from 1,1", shape());
    table->SetFirstIndex(highest, highest);
    EXPECT_EQ(highest, table->FirstRow());
    EXPECT_EQ(highest, table->LastRow());
    EXPECT_EQ(highest, table->LastCol());
    table->Item(highest, highest, 1);
    EXPECT_EQ(1, table->Item(highest, highest).asLong());
    table->SetFirstIndex(1, -2000000000);
    table->Dimension2D(1, 1, -2000000000, -1999999999);
    EXPECT_EQ(lowest, table->FirstRow());
    EXPECT_EQ(lowest, table->LastRow());
    EXPECT_TRUE(table->Item(1, lowest).isNull());
    table->Dimension2D(1, 1, lowest);
    EXPECT_EQ(2, table->Rows()) << "-2147483647 is a row like any other here";
    table->Dimension2D(1, 1, lowest, lowest);
    EXPECT_TRUE(table->DeleteRow(table->FirstRow()) || table->Rows() == 1);
}

TEST_F(cMatriz_, AbsurdSizesPutTheCellsOutOfReachUntilTheTableIsDimensionedAnew) {
    struct {
        std::int32_t fromCol, toCol, fromRow, toRow;
    } const absurd[] = {{1, 1, 1, highest},       {1, 8, 1, highest},      {lowest, highest, 1, 1},
                        {1, 1, lowest, highest},  {1, highest, 1, 0},      {lowest, highest, lowest, highest},
                        {1, 1000000, 1, 1000000}, {0, highest, 0, highest}};
    for (const auto& size : absurd) {
        fillColumn({1, 2, 3});
        table->Dimension2D(size.fromCol, size.toCol, size.fromRow, size.toRow);
        EXPECT_TRUE(table->Item(1, 1).isNull());
        table->Item(1, 1, 5);
        table->AddRow({4});
        EXPECT_FALSE(table->InsertRow(1));
        EXPECT_FALSE(table->DeleteRow(1));
        EXPECT_FALSE(table->FilterRows(1, 1, 3));
        table->UpdateRow(1, {5});
        table->ReplaceCol(1, 5);
        table->BeginAddRows();
        EXPECT_EQ(-1, table->EndAddRows());
        EXPECT_EQ("3x1 from 1,1", shape());
        table->Dimension2D(1, 1, 1, 3);
        EXPECT_EQ("1, 2, 3", text()) << "as it was";
    }
    table->Dimension2D(1, 1, 1, highest);
    table->Clear();
    table->AddRow({4});
    EXPECT_EQ("4", text());
}

TEST_F(cMatriz_, WithoutTheCheckReservedRowsAreReachedAndNothingBeyond) {
    table->BeginAddRows(3);
    bool check = false;
    table->CheckBounds(check);
    EXPECT_TRUE(table->Item(1, 3).isEmpty());
    table->Item(1, 2, 5);
    EXPECT_EQ(5, table->Item(1, 2).asLong());
    for (const std::int32_t row : {0, 4, lowest, highest})
        EXPECT_TRUE(table->Item(1, row).isNull());
    EXPECT_TRUE(table->Item(2, 1).isNull());
    check = true;
    table->CheckBounds(check);
    EXPECT_TRUE(table->Item(1, 2).isNull());
    EXPECT_EQ(0, table->Rows());
}

TEST_F(cMatriz_, ClearTakesTheRowsAndKeepsTheNumbering) {
    fill({{1, 2}, {3, 4}});
    table->SetFirstIndex(5, 7);
    table->Clear();
    EXPECT_EQ("0x2 from 7,5", shape());
    EXPECT_EQ(6, table->LastRow());
    EXPECT_EQ(1, table->GetArray().upper(2));
    table->AddRow({8});
    EXPECT_EQ("8 -", text());
}

TEST_F(cMatriz_, PivotExchangesRowsAndColumns) {
    fill({{1, 2}, {3, 4}, {5, 6}});
    table->Pivot();
    EXPECT_EQ("1 3 5, 2 4 6", text());
    EXPECT_EQ("2x3 from 1,1", shape());
    table->Pivot();
    EXPECT_EQ("1 2, 3 4, 5 6", text());
}

TEST_F(cMatriz_, PivotExchangesBasesAndNotShifts) {
    table->Dimension2D(10, 11, 20, 22);
    table->Item(10, 22, u"x");
    table->SetFirstIndex(1, 2);
    table->Pivot();
    // The physical numbers are 20..22 by 10..11 now, the shifts still 9 and 18.
    EXPECT_EQ("2x3 from -8,11", shape());
    EXPECT_EQ("- - x, - - -", text());
    EXPECT_EQ(20, table->GetArray().lower(1));
    EXPECT_EQ(10, table->GetArray().lower(2));
}

TEST_F(cMatriz_, PivotOfASquareExchangesTheFirstRowAndColumnAlone) {
    fill({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    table->Pivot();
    EXPECT_EQ("1 4 7, 2 5 6, 3 8 9", text());
    fill({{1, 2}, {3, 4}});
    table->Pivot();
    EXPECT_EQ("1 3, 2 4", text());
    fillColumn({1});
    table->Pivot();
    EXPECT_EQ("1", text());
}

TEST_F(cMatriz_, PivotOfAnEmptyTableDoesNothing) {
    table->Dimension2D(1, 3, 1, 0);
    table->Pivot();
    EXPECT_EQ("0x3 from 1,1", shape());
}

TEST_F(cMatriz_, TheItemIsTheDefaultMember) {
    table->Dimension2D(1, 2, 1, 1);
    automation::letProperty(*table, u"item", 2, 1, u"b");
    EXPECT_EQ("b", automation::getProperty(*table, u"ITEM", 2, 1).asString().utf8());
    const Variant arguments[] = {Variant(2), Variant(1)};
    const Variant got =
        table->invoke(automation::DISPID_VALUE, automation::CallKind::MethodOrGet, {arguments, {}});
    EXPECT_EQ("b", got.asString().utf8());
    EXPECT_TRUE(automation::getProperty(*table, u"Item", 1).isNull()) << "the row left out";
}

TEST_F(cMatriz_, ProgramsLeaveArgumentsOut) {
    automation::callMethod(*table, u"Dimension2D", 1, 2);
    EXPECT_EQ("0x2 from 0,1", shape());
    automation::callMethod(*table, u"BeginAddRows");
    automation::callMethod(*table, u"AddRow", 1, u"a");
    automation::callMethod(*table, u"AddRow");
    EXPECT_EQ(2, automation::callMethod(*table, u"EndAddRows").asLong());
    EXPECT_TRUE(automation::callMethod(*table, u"InsertRow", 0).asBoolean());
    EXPECT_EQ("1 a, 1 a, - -", text());
    EXPECT_TRUE(automation::callMethod(*table, u"InsertRowWithData", 1, false, u"x", u"y").asBoolean());
    automation::callMethod(*table, u"UpdateRow", 3, u"z");
    EXPECT_TRUE(automation::callMethod(*table, u"DeleteRow", 0).asBoolean());
    EXPECT_TRUE(automation::callMethod(*table, u"DataFromParameters", 1, 2, u"p", u"q").asBoolean());
    EXPECT_EQ("p, q", text());
    Variant list = Array::of({1, 2, 3});
    EXPECT_TRUE(automation::callMethod(*table, u"DataFromVariant1D", Variant::byRef(list)).asBoolean());
    EXPECT_EQ("1, 2, 3", text());
    EXPECT_TRUE(automation::callMethod(*table, u"DataFromMatriz", Variant(table)).asBoolean());
    EXPECT_FALSE(automation::callMethod(*table, u"DataFromMatriz", Variant::nothing()).asBoolean());
    const Variant part = automation::callMethod(*table, u"SubMatriz2D", 1, 2);
    EXPECT_EQ("2, 3", tests::textOf(static_cast<cMatriz&>(*part.asObject())));
}
