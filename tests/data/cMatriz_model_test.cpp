// A million operations in random order, each compared with a plain list of rows.

#include "MatrizTest.h"

#include "automation/Operators.h"

#include <algorithm>
#include <random>

using automation::Array;
using automation::ParamArray;
using automation::Variant;
using namespace tesela;

namespace {

/// The table as it is told: rows in lists, numbers beside them.
struct Model {
    std::vector<ParamArray> rows;
    std::int32_t cols = 1, arrayRows = 1;
    std::int32_t colBase = 1, colOffset = 0, rowBase = 1, rowOffset = 0;
    std::int32_t planned = 0, increment = 0, startRows = 0, capacityLast = 0, done = 0;

    std::int32_t count() const { return static_cast<std::int32_t>(rows.size()); }
    std::int32_t firstRow() const { return rowBase - rowOffset; }
    std::int32_t firstCol() const { return colBase - colOffset; }
    ParamArray& row(std::int32_t place) { return rows[static_cast<std::size_t>(place)]; }
    bool hasPlace(std::int32_t place) const { return place >= 0 && place < count(); }
    bool hasCol(std::int32_t place) const { return place >= 0 && place < cols; }

    void clear() {
        rows.clear();
        arrayRows = 1;
    }

    void dimension(std::int32_t fromCol, std::int32_t toCol, std::int32_t fromRow, std::int32_t toRow) {
        const std::int32_t newCols = std::max(toCol - fromCol, 0) + 1, newRows = toRow - fromRow + 1;
        const bool keep = !rows.empty() && newRows > 0 && fromCol == colBase && newCols == cols;
        if (!keep) rows.clear();
        cols = newCols;
        colBase = fromCol;
        colOffset = 0;
        rowBase = fromRow;
        rows.resize(static_cast<std::size_t>(std::max(newRows, 0)),
                    ParamArray(static_cast<std::size_t>(cols)));
        arrayRows = std::max(newRows, 1);
    }

    void begin(std::int32_t plan, std::int32_t more) {
        if (planned > 0) return;
        planned = std::max(plan, 1);
        increment = std::max(more, 10);
        startRows = count();
        capacityLast = rowBase + count() + planned - 1;
        done = 0;
        arrayRows = count() + planned;
    }

    std::int32_t end() {
        if (planned < 1) return -1;
        if (rowBase + startRows + done - 1 > 0)
            arrayRows = std::min(arrayRows, std::max({startRows + done, count(), 1}));
        planned = 0;
        return done;
    }

    /// Whether the next row of a bulk addition still lies in what is left of the array.
    bool canAdd() const {
        if (planned < 1) return true;
        const bool grows = rowBase + startRows + done > capacityLast;
        return count() < (grows ? std::max(capacityLast + increment - rowBase + 1, count()) : arrayRows);
    }

    void add(ParamArray values) {
        if (planned > 0) {
            ++done;
            if (rowBase + startRows + done - 1 > capacityLast) {
                capacityLast += increment;
                arrayRows = std::max(capacityLast - rowBase + 1, count());
            }
        } else {
            arrayRows = count() + 1;
        }
        values.resize(static_cast<std::size_t>(cols));
        rows.push_back(std::move(values));
    }

    bool insert(std::int32_t place, bool grow) {
        if (place == count()) {
            if (grow) add({});
            return grow;
        }
        if (!hasPlace(place)) return false;
        if (grow) {
            rows.emplace_back();
            ++arrayRows;
        }
        for (std::int32_t i = count() - 2; i >= place; --i)
            row(i + 1) = row(i);
        return true;
    }

    bool remove(std::int32_t place, bool shrink) {
        if (!hasPlace(place)) return false;
        if (!shrink) {
            for (std::int32_t i = place; i + 1 < count(); ++i)
                row(i) = row(i + 1);
        } else if (count() == 1) {
            clear();
        } else {
            rows.erase(rows.begin() + place);
            --arrayRows;
        }
        return true;
    }

    template <class Stays>
    bool filter(std::int32_t col, Stays stays) {
        if (rows.empty() || !hasCol(col)) return false;
        const auto goes = [&](const ParamArray& values) {
            return !stays(values[static_cast<std::size_t>(col)]);
        };
        rows.erase(std::remove_if(rows.begin(), rows.end(), goes), rows.end());
        arrayRows = std::max(count(), 1);
        return true;
    }

    void pivot() {
        if (rows.empty()) return;
        std::vector<ParamArray> turned(static_cast<std::size_t>(cols), ParamArray(rows.size()));
        for (std::size_t r = 0; r < rows.size(); ++r)
            for (std::size_t c = 0; c < turned.size(); ++c)
                turned[c][r] = rows[r][c];
        if (count() == cols) {
            for (std::size_t r = 1; r < rows.size(); ++r)
                for (std::size_t c = 1; c < rows.size(); ++c)
                    turned[r][c] = rows[r][c];
            rows = turned;
            return;
        }
        rows = turned;
        cols = static_cast<std::int32_t>(turned[0].size());
        arrayRows = count();
        std::swap(rowBase, colBase);
    }
};

bool isSame(const Variant& a, const Variant& b) {
    if (a.type() != b.type()) return false;
    return a.isEmpty() || a.isNull() || automation::isEqual(a, b);
}

class RandomRun {
public:
    explicit RandomRun(std::uint32_t seed) : random_(seed) {}

    void operate() {
        if (model_.count() > 12) {
            table_->Clear();
            model_.clear();
        }
        const int kinds = 24;
        const int kind = static_cast<int>(random_() % kinds);
        changeShape(kind);
        changeRows(kind);
        look(kind);
    }

    void compare() const {
        ASSERT_EQ(model_.count(), table_->Rows());
        ASSERT_EQ(model_.cols, table_->Cols());
        ASSERT_EQ(model_.firstRow(), table_->FirstRow());
        ASSERT_EQ(model_.firstCol(), table_->FirstCol());
        ASSERT_EQ(model_.firstRow() + model_.count() - 1, table_->LastRow());
        ASSERT_EQ(model_.firstCol() + model_.cols - 1, table_->LastCol());
        for (std::int32_t row = 0; row < model_.count(); ++row)
            for (std::int32_t col = 0; col < model_.cols; ++col)
                ASSERT_TRUE(isSame(model_.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)],
                                   table_->Item(model_.firstCol() + col, model_.firstRow() + row)));
        ASSERT_TRUE(table_->Item(model_.firstCol(), model_.firstRow() + model_.count()).isNull());
        ASSERT_TRUE(table_->Item(model_.firstCol() - 1, model_.firstRow()).isNull());
    }

private:
    std::int32_t upTo(std::int32_t most) {
        return static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(most + 1));
    }
    bool maybe() { return random_() % 2 == 0; }
    Variant anyValue() {
        switch (random_() % 6) {
        case 0:
            return texts_[random_() % texts_.size()];
        case 1:
            return Variant::null();
        case 2:
            return static_cast<double>(upTo(9));
        default:
            return upTo(9);
        }
    }
    ParamArray anyValues(std::int32_t most) {
        ParamArray values(static_cast<std::size_t>(upTo(most)));
        std::generate(values.begin(), values.end(), [this] { return anyValue(); });
        return values;
    }
    /// A logical number in or just beside the table.
    std::int32_t anyRow() { return model_.firstRow() - 1 + upTo(model_.count() + 2); }
    std::int32_t anyCol() { return model_.firstCol() - 1 + upTo(model_.cols + 1); }

    void changeShape(int kind) {
        switch (kind) {
        case 0: {
            const std::int32_t fromCol = maybe() ? model_.colBase : upTo(3) - 1;
            const std::int32_t toCol = maybe() ? fromCol + model_.cols - 1 : fromCol - 1 + upTo(4);
            const std::int32_t fromRow = upTo(4) - 2, toRow = fromRow - 2 + upTo(7);
            table_->Dimension2D(fromCol, toCol, fromRow, toRow);
            return model_.dimension(fromCol, toCol, fromRow, toRow);
        }
        case 1: {
            const std::int32_t col = upTo(6) - 3, row = upTo(6) - 3;
            table_->SetFirstIndex(col, row);
            model_.colOffset = model_.colBase - col;
            model_.rowOffset = model_.rowBase - row;
            return;
        }
        case 2:
            table_->Pivot();
            return model_.pivot();
        case 3:
            if (!maybe()) return;
            table_->Clear();
            return model_.clear();
        case 4: {
            const std::int32_t planned = upTo(12) - 2, increment = upTo(15);
            table_->BeginAddRows(planned, increment);
            return model_.begin(planned, increment);
        }
        case 5:
            EXPECT_EQ(model_.end(), table_->EndAddRows());
            return;
        default:
            return;
        }
    }

    void changeRows(int kind) {
        const std::int32_t row = anyRow(), col = anyCol();
        const std::int32_t rowPlace = row - model_.firstRow(), colPlace = col - model_.firstCol();
        switch (kind) {
        case 6:
        case 7:
        case 8: {
            const Variant value = anyValue();
            table_->Item(col, row, value);
            if (model_.hasPlace(rowPlace) && model_.hasCol(colPlace))
                model_.row(rowPlace)[static_cast<std::size_t>(colPlace)] = value;
            return;
        }
        case 9:
        case 10:
        case 11:
            if (model_.canAdd()) add(anyValues(model_.cols));
            return;
        case 12: {
            bool grow = maybe();
            if (rowPlace == model_.count() && grow && !model_.canAdd()) return;
            EXPECT_EQ(model_.insert(rowPlace, grow), table_->InsertRow(row, grow));
            return;
        }
        case 13: {
            const bool grow = maybe();
            if (rowPlace == model_.count() && grow && !model_.canAdd()) return;
            const ParamArray values = anyValues(model_.cols);
            const bool inserts = model_.insert(rowPlace, grow);
            EXPECT_EQ(inserts, table_->InsertRowWithData(row, grow, values));
            if (inserts) overwrite(row, values);
            return;
        }
        case 14: {
            bool shrink = maybe();
            EXPECT_EQ(model_.remove(rowPlace, shrink), table_->DeleteRow(row, shrink));
            return;
        }
        case 15: {
            const std::int32_t position = upTo(model_.count() + 1);
            const ParamArray values = anyValues(model_.cols + 2);
            table_->UpdateRow(position, values);
            return overwrite(position, values);
        }
        case 16:
            return replaceCol();
        case 17:
            return filter(col, colPlace);
        case 18:
            return copyRow(row, rowPlace);
        default:
            return;
        }
    }

    void add(const ParamArray& values) {
        table_->AddRow(values);
        model_.add(values);
    }

    void overwrite(std::int32_t position, const ParamArray& values) {
        if (!model_.hasPlace(position - 1)) return;
        const std::size_t count = std::min(values.size(), static_cast<std::size_t>(model_.cols));
        std::copy_n(values.begin(), count, model_.row(position - 1).begin());
    }

    void replaceCol() {
        const std::int32_t col = upTo(model_.cols + 1), filter = upTo(model_.cols + 1);
        const Variant value = anyValue(), searched = anyValue();
        const bool isFiltered = maybe();
        if (isFiltered) {
            table_->ReplaceCol(col, value, filter, searched);
        } else {
            table_->ReplaceCol(col, value);
        }
        if (!model_.hasCol(col - 1) || (isFiltered && !model_.hasCol(filter - 1))) return;
        for (ParamArray& row : model_.rows)
            if (!isFiltered || automation::isEqual(row[static_cast<std::size_t>(filter - 1)], searched))
                row[static_cast<std::size_t>(col - 1)] = value;
    }

    void filter(std::int32_t col, std::int32_t colPlace) {
        const std::int32_t least = upTo(5), most = least + upTo(5);
        const bool deletes = maybe();
        const auto stays = [&](const Variant& cell) {
            const auto low = automation::compare(cell, least), high = automation::compare(cell, most);
            if (low == automation::Comparison::Null) return false;
            const bool isBelow = low == automation::Comparison::Less;
            const bool isAbove = high == automation::Comparison::Greater;
            return deletes ? isBelow || isAbove : !isBelow && !isAbove;
        };
        EXPECT_EQ(model_.filter(colPlace, stays),
                  deletes ? table_->DeleteRows(col, least, most) : table_->FilterRows(col, least, most));
    }

    void copyRow(std::int32_t row, std::int32_t place) {
        if (!model_.canAdd()) return;
        const bool isThere = model_.hasPlace(place);
        EXPECT_EQ(isThere, table_->AddRowFromMatriz(table_, row));
        if (isThere) model_.add(ParamArray(model_.row(place)));
    }

    void look(int kind) {
        switch (kind) {
        case 19:
            return copyTable();
        case 20:
            return sort();
        case 21:
            return find();
        case 22:
            return walk();
        case 23: {
            const Array array = table_->GetArray();
            EXPECT_EQ((automation::Bound{model_.colBase, static_cast<std::uint32_t>(model_.cols)}),
                      array.bounds()[0]);
            EXPECT_EQ((automation::Bound{model_.rowBase, static_cast<std::uint32_t>(model_.arrayRows)}),
                      array.bounds()[1]);
            return;
        }
        default:
            return;
        }
    }

    void copyTable() {
        if (maybe()) {
            const auto copy = table_->Clone();
            table_->Clear();
            EXPECT_TRUE(table_->DataFromMatriz(copy));
        } else {
            EXPECT_TRUE(table_->DataFromArray(table_->GetArray()));
            // The reserved rows are in the array, and are rows like any others then.
            model_.rows.resize(static_cast<std::size_t>(std::max(model_.arrayRows, model_.count())),
                               ParamArray(static_cast<std::size_t>(model_.cols)));
            model_.colOffset = model_.rowOffset = 0;
        }
    }

    /// Sorts, and takes over the order when it is one of the same rows.
    void sort() {
        const std::int32_t col = anyCol();
        if (model_.hasCol(col - model_.firstCol())) table_->SortOnColumn(col, maybe(), maybe());
        std::vector<ParamArray> sorted;
        std::vector<bool> used(model_.rows.size());
        for (std::int32_t row = 0; row < model_.count(); ++row) {
            ParamArray values;
            for (std::int32_t c = 0; c < model_.cols; ++c)
                values.push_back(table_->Item(model_.firstCol() + c, model_.firstRow() + row));
            std::size_t found = 0;
            while (found < used.size() && (used[found] || !std::equal(values.begin(), values.end(),
                                                                      model_.rows[found].begin(), isSame)))
                ++found;
            ASSERT_LT(found, used.size()) << "a row that was not there";
            used[found] = true;
            sorted.push_back(values);
        }
        model_.rows = sorted;
    }

    void find() {
        const std::int32_t col = anyCol(), searched = upTo(9);
        table_->TextCompare(false);
        std::int32_t found = 0;
        const bool isFound = table_->FindRow(searched, col, found);
        table_->TextCompare(true);
        const std::int32_t place = col - model_.firstCol();
        const auto row = std::find_if(model_.rows.begin(), model_.rows.end(), [&](const ParamArray& values) {
            return model_.hasCol(place) &&
                   automation::isEqual(values[static_cast<std::size_t>(place)], searched);
        });
        ASSERT_EQ(row != model_.rows.end(), isFound);
        ASSERT_EQ(isFound ? model_.firstRow() + (row - model_.rows.begin()) : 0, found);
    }

    void walk() {
        std::int32_t row = model_.firstRow();
        for (; table_->Scan(); ++row)
            ASSERT_TRUE(isSame(table_->RowItem(model_.firstCol()), table_->Item(model_.firstCol(), row)));
        ASSERT_EQ(model_.firstRow() + model_.count(), row);
    }

    std::mt19937 random_;
    automation::Ref<cMatriz> table_ = automation::make<cMatriz>();
    Model model_;
    std::vector<Variant> texts_{u"a", u"B", u"ñandú", u"12"};
};

class cMatrizModel_ : public support::Started {};

} // namespace

TEST_F(cMatrizModel_, AMillionOperationsGiveWhatAPlainListGives) {
    constexpr std::uint32_t runs = 25;
    constexpr int operations = 41000;
    for (std::uint32_t seed = 1; seed <= runs; ++seed) {
        RandomRun run(seed);
        for (int i = 0; i < operations; ++i) {
            run.operate();
            run.compare();
            ASSERT_FALSE(HasFailure()) << "seed " << seed << ", operation " << i;
        }
    }
}
