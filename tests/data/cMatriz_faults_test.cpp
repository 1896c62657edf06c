// Tables when memory is out, and when a cell's end comes back to its table.

#include "MatrizTest.h"

#include "automation/ClassTable.h"
#include "support/ErrorOf.h"
#include "support/LibraryLog.h"

#include <cstdlib>
#include <functional>

using automation::Object;
using automation::Variant;
using namespace tesela;

namespace {

int grantsLeft = 0;

void* allocateWhileGranted(std::size_t count, std::size_t size) {
    return grantsLeft-- > 0 ? std::calloc(count, size) : nullptr;
}

void* reallocateWhileGranted(void* block, std::size_t size) {
    return grantsLeft-- > 0 ? std::realloc(block, size) : nullptr;
}

/// While it lives, tables get memory only so many times.
class ScarceMemory {
public:
    explicit ScarceMemory(int grants = 0) {
        grantsLeft = grants;
        CellBlock::allocate = allocateWhileGranted;
        CellBlock::reallocate = reallocateWhileGranted;
    }
    ~ScarceMemory() {
        CellBlock::allocate = nullptr;
        CellBlock::reallocate = nullptr;
    }
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;
};

/// An object that does something when it ends or when its value is asked for.
class Meddler : public Object {
public:
    explicit Meddler(std::function<void()> action) : action_(std::move(action)) {}
    ~Meddler() override {
        if (atEnd) action_();
    }
    Variant Value() const {
        action_();
        return 1;
    }
    static const automation::ClassTable& table() {
        static const automation::ClassTable table =
            automation::ClassTable::of<Meddler>("Meddler").get("Value", &Meddler::Value).defaultMember();
        return table;
    }
    const automation::ClassTable& classTable() const override { return table(); }

    bool atEnd = false;

private:
    std::function<void()> action_;
};

class cMatrizFaults_ : public tests::MatrizTest {
protected:
    /// Every row in use is one of the array, and reads.
    void expectWhole() const {
        EXPECT_GE(table->Rows(), 0);
        EXPECT_LE(table->Rows(), static_cast<std::int64_t>(table->GetArray().bounds()[1].count));
        for (std::int32_t row = table->FirstRow(); row <= table->LastRow(); ++row)
            for (std::int32_t col = table->FirstCol(); col <= table->LastCol(); ++col)
                EXPECT_EQ(automation::IsEmpty(table->Item(col, row)),
                          tests::textOf(table->Item(col, row)) == "-");
    }
    /// Three rows whose middle one holds an object that does `action` when it ends.
    void fillAround(std::function<void()> action) const {
        fill({{1, u"a"}, {2, u"b"}, {3, u"c"}});
        const auto meddler = automation::make<Meddler>(std::move(action));
        meddler->atEnd = true;
        table->Item(1, 2, Variant(meddler));
    }
};

} // namespace

TEST_F(cMatrizFaults_, WithoutMemoryForARowTheTableStaysAndTheLogSaysSo) {
    for (int i = 1; i <= 64; ++i)
        table->AddRow({i});
    const std::string before = text();
    {
        const ScarceMemory none;
        for (int i = 1; i <= 64; ++i) // some rows have room already
            table->AddRow({i});
        EXPECT_LT(table->Rows(), 128);
        table->BeginAddRows(100000);
        EXPECT_EQ(-1, table->EndAddRows());
        table->Dimension2D(1, 1, 1, 100000);
        EXPECT_TRUE(table->Item(1, 1).isNull());
    }
    table->Dimension2D(1, 1, 1, 64);
    EXPECT_EQ(before, text());
    EXPECT_NE(std::string::npos, support::libraryLog().find("Error N\xBA"
                                                            "7 en AddRow: Memoria insuficiente"));
}

TEST_F(cMatrizFaults_, RowsBeyondTheMemoryAreRefusedOneByOne) {
    std::int32_t rows = 0;
    {
        const ScarceMemory few(3);
        for (int i = 1; i <= 1000; ++i)
            table->AddRow({i});
        rows = table->Rows();
    }
    EXPECT_LT(rows, 1000);
    for (std::int32_t row = 1; row <= rows; ++row)
        ASSERT_EQ(row, table->Item(1, row).asLong());
    table->AddRow({u"again"});
    EXPECT_EQ(rows + 1, table->Rows());
}

TEST_F(cMatrizFaults_, ABulkAdditionThatFailsCanGoOn) {
    table->BeginAddRows(2, 100000);
    table->AddRow({1});
    table->AddRow({2});
    {
        const ScarceMemory none;
        table->AddRow({3});
        table->AddRow({3});
    }
    EXPECT_EQ("1, 2", text());
    table->AddRow({3});
    EXPECT_EQ(3, table->EndAddRows()) << "rows that were refused do not count";
    EXPECT_EQ("1, 2, 3", text());
}

TEST_F(cMatrizFaults_, WithoutMemoryOtherOperationsChangeNothing) {
    fill({{1, u"a"}, {2, u"b"}, {3, u"c"}});
    const auto copy = automation::make<cMatriz>();
    {
        const ScarceMemory none;
        table->Pivot();
        EXPECT_FALSE(copy->DataFromMatriz(table));
        EXPECT_FALSE(copy->DataFromArray(table->GetArray()));
        EXPECT_EQ(automation::errors::OutOfMemory, tests::errorOf([&] { table->Clone(); }));
        EXPECT_EQ(automation::errors::OutOfMemory, tests::errorOf([&] { table->SubMatriz2D(); }));
        EXPECT_EQ(automation::errors::OutOfMemory, tests::errorOf([&] { automation::make<cMatriz>(); }));
        while (table->Rows() < 1000 && table->InsertRow(1)) {
        }
    }
    EXPECT_LT(table->Rows(), 1000);
    while (table->Rows() > 3)
        table->DeleteRow(1);
    EXPECT_EQ("1 a, 2 b, 3 c", text());
    EXPECT_EQ("0x1 from 1,1", tests::shapeOf(*copy));
}

TEST_F(cMatrizFaults_, AFailedDimensioningOfOtherColumnsKeepsTheCells) {
    fill({{1, u"a"}, {2, u"b"}});
    {
        const ScarceMemory none;
        table->Dimension2D(1, 3, 1, 2);
    }
    EXPECT_TRUE(table->Item(1, 1).isNull());
    table->Dimension2D(1, 2, 1, 2);
    EXPECT_EQ("1 a, 2 b", text());
}

TEST_F(cMatrizFaults_, WithoutMemoryATableIsClearedAllTheSame) {
    fill({{1, u"a"}, {2, u"b"}});
    const ScarceMemory none;
    table->Clear();
    EXPECT_EQ("0x2 from 1,1", shape());
    table->AddRow({9});
    EXPECT_EQ("9 -", text());
}

TEST_F(cMatrizFaults_, WhatTheEndOfACellDoesToItsTableIsSafe) {
    const std::function<void()> actions[] = {
        [this] { table->Clear(); },
        [this] { table->Dimension2D(1, 1, 1, 1); },
        [this] { table->Dimension2D(1, 5, 1, 100); },
        [this] { table->DeleteRow(1); },
        [this] { table->AddRow({8}); },
        [this] { table->Pivot(); },
    };
    const std::function<void()> operations[] = {
        [this] { table->Clear(); },
        [this] { table->DeleteRow(2); },
        [this] { table->Item(1, 2, 5); },
        [this] {
            table->UpdateRow(2, {5, 6});
        },
        [this] { table->ReplaceCol(1, 7); },
        [this] { table->FilterRows(2, u"c", u"z"); },
        [this] { table->Dimension2D(1, 2, 1, 1); },
        [this] { table->Dimension2D(1, 9, 1, 1); },
        [this] {
            bool lAutoDim = false;
            table->DeleteRow(2, lAutoDim);
        },
        [this] {
            bool lAutoDim = false;
            table->DeleteRow(3);
            table->InsertRow(1, lAutoDim);
        },
    };
    for (const auto& action : actions)
        for (const auto& operation : operations) {
            fillAround(action);
            operation();
            expectWhole();
            fill({{1, 2}, {3, 4}});
            EXPECT_EQ("1 2, 3 4", text());
        }
}

TEST_F(cMatrizFaults_, WhatAComparisonDoesToItsTableIsSafe) {
    const std::function<void()> actions[] = {
        [this] { table->Clear(); },
        [this] { table->Dimension2D(1, 1, 1, 1); },
        [this] { table->Dimension2D(1, 5, 1, 100); },
        [this] { table->DeleteRow(1); },
        [this] { table->Pivot(); },
    };
    const std::function<void()> operations[] = {
        [this] { table->FilterRows(1, 1, 3); },
        [this] { table->FilterRows(1, table->Item(1, 2), 3); },
        [this] { table->ReplaceCol(2, u"x", 1, 1); },
    };
    for (const auto& action : actions)
        for (const auto& operation : operations) {
            fill({{1, u"a"}, {2, u"b"}, {3, u"c"}});
            table->Item(1, 2, Variant(automation::make<Meddler>(action)));
            operation();
            expectWhole();
            fill({{1, 2}, {3, 4}});
            EXPECT_EQ("1 2, 3 4", text());
        }
}
