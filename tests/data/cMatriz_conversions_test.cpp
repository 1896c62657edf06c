// Tables out of other shapes.

#include "MatrizTest.h"

#include "automation/ClassTable.h"
#include "support/Desk.h"
#include "support/ErrorOf.h"
#include "support/MsgBoxAnswer.h"

using automation::Array;
using automation::Currency;
using automation::Date;
using automation::Object;
using automation::String;
using automation::Variant;
using namespace tesela;

namespace {

class cMatrizConversions_ : public tests::MatrizTest {
protected:
    /// The text of the one message that `call` shows, "" if it shows none; its title must be the usual one.
    template <class Call>
    std::string messageOf(Call call) {
        support::MsgBoxAnswer answer(desk, platform::VK_RETURN);
        call();
        EXPECT_LE(answer.shown(), 1);
        EXPECT_EQ(answer.shown() == 0 ? "" : "Error definiendo matriz", answer.title().utf8());
        return answer.text().utf8();
    }

    support::Desk desk;
};

/// The application's object for assertions.
class Application : public Object {
public:
    void AssertFromOCX(const String& text) {
        texts.push_back(text.utf8());
        if (fails) automation::throwError(automation::errors::InvalidCall);
    }
    static const automation::ClassTable& table() {
        static const automation::ClassTable table =
            automation::ClassTable::of<Application>("Application")
                .method("AssertFromOCX", &Application::AssertFromOCX, {"cTxtMsg"});
        return table;
    }
    const automation::ClassTable& classTable() const override { return table(); }

    std::vector<std::string> texts;
    bool fails = false;
};

/// Records of the program's own: `records` rows of as many columns as it is told.
class Datos : public Object {
public:
    std::int32_t FieldCount() const { return fields; }
    std::int32_t RecCount() const { return told; }
    bool Scan() { return ++current <= records; }
    Variant Field_ByColumnNumber(std::int32_t column) {
        if (current == failing) automation::throwError(automation::errors::InvalidCall);
        return current * 10 + column;
    }
    static const automation::ClassTable& table() {
        static const automation::ClassTable table =
            automation::ClassTable::of<Datos>("cDatos")
                .get("FieldCount", &Datos::FieldCount)
                .get("RecCount", &Datos::RecCount)
                .method("Scan", &Datos::Scan)
                .method("Field_ByColumnNumber", &Datos::Field_ByColumnNumber, {"nColumn"});
        return table;
    }
    const automation::ClassTable& classTable() const override { return table(); }

    std::int32_t fields = 2, told = 3, records = 3, current = 0, failing = -1;
};

/// A record set of the program's own.
class Records : public Object {
public:
    void MoveFirst() {
        ++moves;
        if (failsToMove) automation::throwError(automation::errors::InvalidCall);
    }
    Variant GetRows() const {
        if (rows.isError()) automation::throwError(automation::errors::InvalidCall);
        return rows;
    }
    static const automation::ClassTable& table() {
        static const automation::ClassTable table = automation::ClassTable::of<Records>("Recordset")
                                                        .method("MoveFirst", &Records::MoveFirst)
                                                        .method("GetRows", &Records::GetRows);
        return table;
    }
    const automation::ClassTable& classTable() const override { return table(); }

    Variant rows;
    int moves = 0;
    bool failsToMove = false;
};

Array twoByThree() {
    Array array(automation::VT_VARIANT, {{5, 2}, {-1, 3}});
    for (std::int32_t row = -1; row <= 1; ++row)
        for (std::int32_t col = 5; col <= 6; ++col)
            array.set(10 * row + col, col, row);
    return array;
}

} // namespace

TEST_F(cMatrizConversions_, ParametersFillTheTableRowByRow) {
    EXPECT_TRUE(table->DataFromParameters(2, 3, {1, 2, 3, 4, u"a", u"b"}));
    EXPECT_EQ("1 2, 3 4, a b", text());
    EXPECT_EQ("3x2 from 1,1", shape());
    EXPECT_TRUE(table->DataFromParameters(3, 0, {}));
    EXPECT_EQ("0x3 from 1,1", shape());
}

TEST_F(cMatrizConversions_, TooFewParametersLeaveEmptyCellsAndSayNothing) {
    EXPECT_EQ("", messageOf([&] { EXPECT_FALSE(table->DataFromParameters(2, 2, {1, 2, 3})); }));
    EXPECT_EQ("1 2, 3 -", text());
}

TEST_F(cMatrizConversions_, TooManyParametersAreReportedWithThePlaceThatWasReached) {
    const auto application = automation::make<Application>();
    globales().oAppAssert = application;
    const auto message = [](const std::string& size) {
        return "El número de parámetros pasado a la función DataFromParameters() no coincide con el tamaño "
               "de "
               "la matriz.\r\nÉsta debería ser de " +
               size + " parámetros.";
    };
    const std::string afterLast = message("1 columna(s) y 3 línea(s): en total, 3");
    const std::string atOnce = message("1 columna(s) y 1 línea(s): en total, 1");
    EXPECT_EQ(afterLast, messageOf([&] { EXPECT_FALSE(table->DataFromParameters(2, 2, {1, 2, 3, 4, 5})); }));
    EXPECT_EQ("1 2, 3 4", text());
    EXPECT_EQ(std::vector<std::string>{afterLast}, application->texts);
    application->fails = true;
    EXPECT_EQ(atOnce, messageOf([&] { EXPECT_FALSE(table->DataFromParameters(0, 5, {1})); }))
        << "the object's own errors do not count";
    globales().oAppAssert = automation::make<Datos>();
    EXPECT_EQ(atOnce, messageOf([&] { EXPECT_FALSE(table->DataFromParameters(1, -1, {1})); }))
        << "nor does an object without the method";
    globales().oAppAssert = nullptr;
}

TEST_F(cMatrizConversions_, AbsurdSizesOfParametersAreReported) {
    EXPECT_EQ("Error #7\rMemoria insuficiente",
              messageOf([&] { EXPECT_FALSE(table->DataFromParameters(2147483647, 2147483647, {1})); }));
}

TEST_F(cMatrizConversions_, AnArrayOfOneDimensionBecomesAColumn) {
    Variant list = Array::ofVariants(std::vector<Variant>{1, u"a", Variant::null()}, 5);
    EXPECT_TRUE(table->DataFromVariant1D(list));
    EXPECT_EQ("3x1 from 5,1", shape());
    EXPECT_EQ("1, a, Null", text());
    const std::uint8_t bytes[] = {7, 8};
    Variant typed = Array::ofBytes(bytes);
    EXPECT_TRUE(table->DataFromVariant1D(typed));
    EXPECT_EQ("7, 8", text());
    EXPECT_EQ(automation::VT_UI1, table->Item(1, 0).type());
    Variant none = Array::of({});
    EXPECT_TRUE(table->DataFromVariant1D(none));
    EXPECT_EQ("0x1 from 0,1", shape());
}

TEST_F(cMatrizConversions_, OtherValuesMakeNoColumn) {
    fillColumn({1});
    for (Variant value : {Variant(5), Variant(u"a"), Variant(twoByThree()), Variant(Array()), Variant(table),
                          Variant(Array(automation::VT_I4, {{2147483647, 2}}))})
        EXPECT_FALSE(table->DataFromVariant1D(value));
    EXPECT_EQ("1", text());
    table->Clear();
}

TEST_F(cMatrizConversions_, AnArrayOfTwoDimensionsIsTakenWithItsBounds) {
    table->SetFirstIndex(100, 100);
    EXPECT_TRUE(table->DataFromArray(twoByThree()));
    EXPECT_EQ("3x2 from -1,5", shape());
    EXPECT_EQ("-5 -4, 5 6, 15 16", text());
    EXPECT_TRUE(table->Clone()->GetArray().bounds()[0] == (automation::Bound{5, 2}));
    Variant whole = twoByThree();
    table->Clear();
    EXPECT_TRUE(table->DataFromVariant2D(whole));
    EXPECT_EQ("-5 -4, 5 6, 15 16", text());
    Array longs(automation::VT_I4, {{1, 1}, {1, 2}});
    longs.set(9, 1, 2);
    EXPECT_TRUE(table->DataFromArray(longs));
    EXPECT_EQ("0, 9", text());
    EXPECT_TRUE(table->DataFromArray(Array(automation::VT_VARIANT, {{1, 2}, {4, 0}})));
    EXPECT_EQ("0x2 from 4,1", shape());
}

TEST_F(cMatrizConversions_, OtherArraysAreRefused) {
    fillColumn({1});
    EXPECT_FALSE(table->DataFromArray(Array()));
    EXPECT_FALSE(table->DataFromArray(Array::of({1, 2})));
    EXPECT_FALSE(table->DataFromArray(Array(automation::VT_VARIANT, {{1, 2}, {1, 2}, {1, 2}})));
    EXPECT_FALSE(table->DataFromArray(Array(automation::VT_VARIANT, {{1, 0}, {1, 2}})));
    EXPECT_FALSE(table->DataFromArray(Array(automation::VT_VARIANT, {{1, 2}, {2147483647, 2}})));
    EXPECT_FALSE(table->DataFromArray(Array(automation::VT_VARIANT, {{2147483647, 2}, {1, 2}})));
    Variant number = 5;
    EXPECT_FALSE(table->DataFromVariant2D(number));
    EXPECT_EQ("1", text());
}

TEST_F(cMatrizConversions_, AnArrayTakenIsACopy) {
    Array array = twoByThree();
    EXPECT_TRUE(table->DataFromArray(array));
    array.set(u"changed", 5, -1);
    EXPECT_EQ(-5, table->Item(5, -1).asLong());
    Array out = table->GetArray();
    out.set(u"changed", 5, -1);
    EXPECT_EQ(-5, table->Item(5, -1).asLong());
    EXPECT_EQ(-4, table->GetVariant().asArray()(6, -1).asLong());
}

TEST_F(cMatrizConversions_, ACloneHasCellsShapeAndShiftsAndIsIndependent) {
    fill({{1, u"a"}, {2, u"b"}});
    table->SetFirstIndex(3, 7);
    const auto copy = table->Clone();
    EXPECT_EQ("2x2 from 7,3", tests::shapeOf(*copy));
    copy->Item(3, 7, u"changed");
    EXPECT_EQ("1 a, 2 b", text());
    EXPECT_EQ("changed a, 2 b", tests::textOf(*copy));
    EXPECT_EQ(1, copy->GetArray().lower(1));
    EXPECT_TRUE(table->DataFromMatriz(copy));
    EXPECT_EQ("changed a, 2 b", text());
    EXPECT_TRUE(table->DataFromMatriz(table)) << "of itself";
    EXPECT_EQ("changed a, 2 b", text());
    EXPECT_FALSE(table->DataFromMatriz(nullptr));
}

TEST_F(cMatrizConversions_, CopiesHaveTheReservedRowsToo) {
    table->BeginAddRows(5);
    table->AddRow({1});
    EXPECT_EQ(5, table->GetArray().upper(2));
    const auto copy = table->Clone();
    EXPECT_EQ(1, copy->Rows());
    EXPECT_EQ(5, copy->GetArray().upper(2));
    EXPECT_EQ(-1, copy->EndAddRows()) << "but it is not adding";
    copy->AddRow({2});
    EXPECT_EQ("1, 2", tests::textOf(*copy));
}

TEST_F(cMatrizConversions_, APartIsHeldToWhatThereIs) {
    fill({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
    EXPECT_EQ("1 2 3, 4 5 6, 7 8 9", tests::textOf(*table->SubMatriz2D()));
    const auto part = table->SubMatriz2D(2, 99, 2, 2);
    EXPECT_EQ("5, 8", tests::textOf(*part));
    EXPECT_EQ("2x1 from 2,2", tests::shapeOf(*part));
    EXPECT_EQ("9", tests::textOf(*table->SubMatriz2D(50, 60, 50, 60)));
    EXPECT_EQ("1", tests::textOf(*table->SubMatriz2D(-5, -4, -5, -4)));
    EXPECT_EQ(0, table->SubMatriz2D(3, 2)->Rows());
    EXPECT_EQ("2, 5, 8", tests::textOf(*table->SubMatriz2D(1, 3, 2, 1))) << "columns are raised";
    table->Clear();
    EXPECT_EQ("0x3 from 1,1", tests::shapeOf(*table->SubMatriz2D()));
}

TEST_F(cMatrizConversions_, APartOfAShiftedTableReadsByLogicalNumbers) {
    fill({{1, 2}, {3, 4}});
    table->SetFirstIndex(0, 0);
    EXPECT_EQ("4 Null, Null Null", tests::textOf(*table->SubMatriz2D()));
}

TEST_F(cMatrizConversions_, ATextIsCutIntoRows) {
    EXPECT_TRUE(table->DataFromString(u"a;b;c;d", u";", 2));
    EXPECT_EQ("a b, c d", text());
    EXPECT_EQ("2x2 from 1,1", shape());
    EXPECT_EQ(2, table->GetArray().upper(2));
    EXPECT_TRUE(table->DataFromString(u"a;b;c;d;", u";", 2)) << "a separator at the end adds nothing";
    EXPECT_EQ("a b, c d", text());
    EXPECT_TRUE(table->DataFromString(u";;x;", u";", 1));
    EXPECT_EQ(", , x", text()) << "empty pieces are texts";
    EXPECT_TRUE(table->DataFromString(u"a;b", u"|", -3)) << "no columns are one column";
    EXPECT_EQ("a;b", text());
}

TEST_F(cMatrizConversions_, AnIncompleteLastRowEmptiesTheTable) {
    EXPECT_EQ("", messageOf([&] { EXPECT_FALSE(table->DataFromString(u"a;b;c", u";", 2)); }));
    EXPECT_EQ("0x2 from 1,1", shape());
}

TEST_F(cMatrizConversions_, WithoutTextSeparatorOrColumnsNothingChanges) {
    fillColumn({1});
    EXPECT_FALSE(table->DataFromString(u"", u";", 1));
    EXPECT_FALSE(table->DataFromString(u"a;b", u"", 1));
    EXPECT_FALSE(table->DataFromString(u"a;b", u";;", 1));
    EXPECT_FALSE(table->DataFromString(u"a;b", u";"));
    EXPECT_EQ("1", text());
}

TEST_F(cMatrizConversions_, TypesConvertAsTheLocaleWrites) {
    EXPECT_TRUE(
        table->DataFromString(u"1.234,5|2,25|3/2/2001|Verdadero|x|-1|0|1/1/1999|0||", u"|", 77, u"nmdLc"));
    EXPECT_EQ(5, table->Cols()) << "the letters say how many";
    EXPECT_EQ(1234.5, table->Item(1, 1).asDouble());
    EXPECT_EQ(Currency::fromScaled(22500), table->Item(2, 1).asCurrency());
    EXPECT_EQ(Date::join(2001, 2, 3), table->Item(3, 1).asDate());
    EXPECT_TRUE(table->Item(4, 1).asBoolean());
    EXPECT_EQ("x", table->Item(5, 1).asString().utf8());
    EXPECT_FALSE(table->Item(4, 2).asBoolean());
    EXPECT_EQ("", table->Item(5, 2).asString().utf8());
    startIn("en-US");
    EXPECT_TRUE(table->DataFromString(u"1,234.5|02/03/2001", u"|", 0, u"ND"));
    EXPECT_EQ(1234.5, table->Item(1, 1).asDouble());
    EXPECT_EQ(Date::join(2001, 2, 3), table->Item(2, 1).asDate());
}

TEST_F(cMatrizConversions_, APieceThatDoesNotConvertIsReportedAndEmptiesTheTable) {
    EXPECT_EQ("Error #13\rEl tipo no coincide",
              messageOf([&] { EXPECT_FALSE(table->DataFromString(u"1|2|x|4", u"|", 0, u"N")); }));
    EXPECT_EQ("0x1 from 1,1", shape());
    EXPECT_EQ(-1, table->EndAddRows());
    EXPECT_EQ("Error #6\rDesbordamiento",
              messageOf([&] { EXPECT_FALSE(table->DataFromString(u"1e999", u"|", 0, u"N")); }));
    EXPECT_EQ("Error #7\rMemoria insuficiente",
              messageOf([&] { EXPECT_FALSE(table->DataFromString(u"a", u"|", 2147483647)); }));
}

TEST_F(cMatrizConversions_, ATextEndsABulkAddition) {
    table->BeginAddRows(50);
    table->AddRow({1});
    EXPECT_TRUE(table->DataFromString(u"a;b;c", u";", 1));
    EXPECT_EQ("a, b, c", text());
    EXPECT_EQ(-1, table->EndAddRows());
}

TEST_F(cMatrizConversions_, ARecordSetGivesFieldsAsColumns) {
    const auto records = automation::make<Records>();
    records->rows = twoByThree();
    EXPECT_TRUE(table->DataFromRecordSet(records));
    EXPECT_EQ(1, records->moves);
    EXPECT_EQ("-5 -4, 5 6, 15 16", text());
    records->failsToMove = true;
    EXPECT_TRUE(table->DataFromRecordSet(records)) << "errors of the object do not count";
}

TEST_F(cMatrizConversions_, OtherObjectsAndRecordSetsWithoutRowsGiveNothing) {
    fillColumn({1});
    EXPECT_FALSE(table->DataFromRecordSet(nullptr));
    EXPECT_FALSE(table->DataFromRecordSet(automation::make<Datos>()));
    EXPECT_FALSE(table->DataFromDatos(nullptr));
    EXPECT_FALSE(table->DataFromDatos(automation::make<Records>()));
    const auto records = automation::make<Records>();
    EXPECT_FALSE(table->DataFromRecordSet(records)) << "Empty instead of rows";
    records->rows = Variant::error(5);
    EXPECT_FALSE(table->DataFromRecordSet(records)) << "an error instead of rows";
    records->rows = Array::of({1});
    EXPECT_FALSE(table->DataFromRecordSet(records));
    EXPECT_EQ("1", text());
}

TEST_F(cMatrizConversions_, DataObjectsAreScanned) {
    const auto records = automation::make<Datos>();
    EXPECT_TRUE(table->DataFromDatos(records));
    EXPECT_EQ("10 11, 20 21, 30 31", text());
    EXPECT_EQ("3x2 from 1,1", shape());
    EXPECT_EQ(4, records->current) << "until Scan says that there are no more";
}

TEST_F(cMatrizConversions_, DataObjectsThatTellAnotherCountAreHeldToIt) {
    const auto records = automation::make<Datos>();
    records->told = 2;
    EXPECT_TRUE(table->DataFromDatos(records));
    EXPECT_EQ("10 11, 20 21", text());
    records->told = 4;
    records->current = 0;
    EXPECT_TRUE(table->DataFromDatos(records));
    EXPECT_EQ("10 11, 20 21, 30 31, - -", text());
    records->told = 2147483647;
    EXPECT_FALSE(table->DataFromDatos(records));
    records->told = records->records = 0;
    EXPECT_TRUE(table->DataFromDatos(records));
    EXPECT_EQ("0x2 from 1,1", shape());
    records->fields = -1;
    records->told = records->records = 1;
    EXPECT_TRUE(table->DataFromDatos(records));
    EXPECT_EQ("-", text());
}

TEST_F(cMatrizConversions_, ErrorsOfADataObjectArePassedOn) {
    const auto records = automation::make<Datos>();
    records->failing = 2;
    EXPECT_EQ(automation::errors::InvalidCall, tests::errorOf([&] { table->DataFromDatos(records); }));
    EXPECT_EQ("10 11, - -, - -", text());
}
