// Rows in order.

#include "MatrizTest.h"

#include "automation/ClassTable.h"
#include "automation/Operators.h"
#include "data/collation.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <random>

using automation::Array;
using automation::Currency;
using automation::Date;
using automation::Variant;
using namespace tesela;

namespace {

class cMatrizSort_ : public tests::MatrizTest {
protected:
    /// The second column, which says where each row came from.
    std::string origins() const {
        std::string text;
        for (std::int32_t row = table->FirstRow(); row <= table->LastRow(); ++row)
            text += tests::textOf(table->Item(table->LastCol(), row)) + " ";
        return text;
    }
    /// Rows of these keys, each with its number behind.
    void fillNumbered(const std::vector<Variant>& keys) const {
        table->Dimension2D(1, 2, 1, static_cast<std::int32_t>(keys.size()));
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const auto row = static_cast<std::int32_t>(i) + 1;
            table->Item(1, row, keys[i]);
            table->Item(2, row, row);
        }
    }
};

/// The sort as it is told: a partition around the middle row, step by step, on (key, row) pairs.
class StatedSort {
public:
    using Rows = std::vector<std::pair<Variant, std::int32_t>>;
    StatedSort(Rows rows, int mode, std::int32_t base, bool collate)
        : rows_(std::move(rows)), mode_(mode), base_(base), collate_(collate) {}

    bool run() {
        try {
            part(base_, base_ + static_cast<std::int32_t>(rows_.size()) - 1);
            return true;
        } catch (const automation::Error&) {
            return false;
        }
    }
    std::string origins() const {
        std::string text;
        for (const auto& row : rows_)
            text += std::to_string(row.second) + " ";
        return text;
    }

private:
    int compare(const Variant& a, const Variant& b) const { return tests::statedOrder(a, b, collate_); }
    std::pair<Variant, std::int32_t>& at(std::int32_t row) {
        return rows_.at(static_cast<std::size_t>(row - base_));
    }
    void part(std::int32_t lo, std::int32_t hi) {
        std::int32_t i = lo, j = hi;
        const Variant pivot = at(static_cast<std::int32_t>(std::nearbyint((double(lo) + hi) / 2))).first;
        do {
            for (int c; (c = compare(at(i).first, pivot)) != 0 && !(mode_ == 1 ? c > 0 : c < 0); ++i) {
            }
            for (int c; (c = compare(at(j).first, pivot)) != 0 && !(mode_ != 2 ? c < 0 : c > 0); --j) {
            }
            if (i <= j) std::swap(at(i++), at(j--));
        } while (i <= j);
        if (lo < j) part(lo, j);
        if (i < hi) part(i, hi);
    }

    Rows rows_;
    int mode_;
    std::int32_t base_;
    bool collate_;
};

/// An object whose value cannot be had.
class Refusing : public automation::Object {
public:
    static const automation::ClassTable& table() {
        static const automation::ClassTable table = automation::ClassTable::of<Refusing>("Refusing");
        return table;
    }
    const automation::ClassTable& classTable() const override { return table(); }
};

/// An object whose value is a number, and that does something when it is asked for.
class Asked : public automation::Object {
public:
    explicit Asked(std::function<void()> action) : action_(std::move(action)) {}
    Variant Value() const {
        action_();
        return 5;
    }
    static const automation::ClassTable& table() {
        static const automation::ClassTable table =
            automation::ClassTable::of<Asked>("Asked").get("Value", &Asked::Value).defaultMember();
        return table;
    }
    const automation::ClassTable& classTable() const override { return table(); }

private:
    std::function<void()> action_;
};

} // namespace

TEST_F(cMatrizSort_, OneKeyBothWays) {
    fillNumbered({3, 1, 2});
    EXPECT_TRUE(table->QSort(1));
    EXPECT_EQ("1 2, 2 3, 3 1", text());
    EXPECT_TRUE(table->QSort(1, tslMatriz_Sort_Descending));
    EXPECT_EQ("3 1, 2 3, 1 2", text());
}

TEST_F(cMatrizSort_, WithoutAFirstKeyRowsOrColumnNothingIsSorted) {
    fillNumbered({3, 1, 2});
    EXPECT_FALSE(table->QSort(1, tslMatriz_Sort_Unsorted));
    EXPECT_FALSE(table->QSort(3));
    EXPECT_FALSE(table->QSort(0));
    EXPECT_FALSE(table->QSort(1, 1, 3, 1)) << "a second key out of range";
    EXPECT_FALSE(table->QSort(1, 1, 1, 0, 9, 1)) << "in range counts behind the end of the list too";
    EXPECT_EQ("3 1, 1 2, 2 3", text());
    EXPECT_TRUE(table->QSort(1, 1, 99, 0));
    fillNumbered({1});
    EXPECT_FALSE(table->QSort(1));
    table->Clear();
    EXPECT_FALSE(table->QSort(1));
}

TEST_F(cMatrizSort_, UpToFiveKeysEachItsOwnWay) {
    fill({{1, u"b", 1, true, Date(2), 1},
          {1, u"a", 2, true, Date(1), 2},
          {1, u"a", 2, false, Date(3), 3},
          {0, u"z", 9, false, Date(9), 4},
          {1, u"a", 2, true, Date(2), 5},
          {1, u"a", 3, true, Date(1), 6}});
    EXPECT_TRUE(table->QSort(1, 1, 2, 1, 3, 2, 4, 1, 5, 2));
    // Numbers up, texts up, numbers down, True (-1) before False, dates down.
    EXPECT_EQ("4 6 5 2 3 1 ", origins());
}

TEST_F(cMatrizSort_, AModeOf0EndsTheListOfKeys) {
    fill({{1, 2, 1}, {1, 1, 2}, {0, 5, 3}});
    EXPECT_TRUE(table->QSort(1, 1, 2, 0, 3, 2));
    EXPECT_EQ("3", tests::textOf(table->Item(3, 1)));
    EXPECT_EQ(0, table->Item(1, 1).asLong());
}

TEST_F(cMatrizSort_, KeysAreLogicalColumns) {
    fill({{2, 1}, {1, 2}});
    table->SetFirstIndex(10, 20);
    EXPECT_FALSE(table->QSort(1));
    EXPECT_TRUE(table->QSort(11, 2));
    EXPECT_EQ("1 2, 2 1", text());
    table->SortOnColumn(11);
    EXPECT_EQ("2 1, 1 2", text());
}

TEST_F(cMatrizSort_, TextsAreOrderedAsInADictionaryOrByTheirUnits) {
    fillNumbered({u"nube", u"ñandú", u"Ábaco", u"zorro", u"abeja", u"Nube", u"oso"});
    EXPECT_TRUE(table->QSort(1));
    EXPECT_EQ("Ábaco 3, abeja 5, nube 1, Nube 6, ñandú 2, oso 7, zorro 4", text());
    table->TextCompare(false);
    EXPECT_TRUE(table->QSort(1));
    EXPECT_EQ("Nube 6, abeja 5, nube 1, oso 7, zorro 4, Ábaco 3, ñandú 2", text());
    EXPECT_FALSE(table->TextCompare());
}

TEST_F(cMatrizSort_, TextsOfAllLengthsAndUnitsAreOrderedByTheirUnits) {
    table->TextCompare(false);
    std::mt19937 random(7);
    std::vector<Variant> keys;
    for (int i = 0; i < 2000; ++i) {
        std::u16string text(random() % 12, u' ');
        for (char16_t& unit : text)
            unit = static_cast<char16_t>(random() % 4 == 0 ? random() % 0x10000 : random() % 3);
        keys.emplace_back(text);
    }
    for (const int mode : {1, 2}) {
        fillNumbered(keys);
        ASSERT_TRUE(table->QSort(1, mode));
        for (std::int32_t row = 2; row <= table->Rows(); ++row) {
            const int order = table->Item(1, row - 1).asString().compare(table->Item(1, row).asString());
            ASSERT_TRUE(mode == 1 ? order <= 0 : order >= 0) << row;
        }
    }
}

TEST_F(cMatrizSort_, EveryTypeIsOrderedAsTheHostComparesIt) {
    const std::vector<std::vector<Variant>> columns = {
        {5, -7, 2147483647, cMatriz::lowestLong, 0},
        {std::int16_t{5}, std::uint8_t{200}, -3, true, false},
        {2.5, -1e300, 1e300, -0.0, 3, Date(2.25)},
        {1.5F, -2.5F, 3, Date(2)},
        {Currency::fromScaled(5), Currency::fromScaled(-5), 3, Currency::fromScaled(9000000000000000000)},
        {Date(3), Date(-5.5), Date(40000.25)},
        {true, false, true},
        {automation::Decimal::fromInt64(5), 3, 4.5},
        {1.5F, 0.1, 2, 7},
        {u"b", 3, u"a", {}, 7.5},
        {{}, 3, -2},
    };
    for (const std::vector<Variant>& column : columns)
        for (const int mode : {1, 2}) {
            fillNumbered(column);
            ASSERT_TRUE(table->QSort(1, mode)) << text();
            for (std::int32_t row = 2; row <= table->Rows(); ++row) {
                const Variant a = table->Item(1, row - 1), b = table->Item(1, row);
                EXPECT_FALSE(mode == 1 ? automation::isLess(b, a) : automation::isLess(a, b)) << text();
            }
        }
}

TEST_F(cMatrizSort_, BesideNullsRowsAreExchangedStepByStep) {
    std::mt19937 random(20);
    for (int round = 0; round < 400; ++round) {
        StatedSort::Rows rows;
        std::vector<Variant> keys;
        for (std::size_t i = 0; i < 1 + random() % 40; ++i) {
            const auto number = static_cast<std::int32_t>(random() % 10);
            Variant key = number;
            switch (round % 4) {
            case 0:
                key = number * 0.5;
                break;
            case 1:
                key = Currency(number);
                break;
            case 2:
                if (random() % 2) key = u"x" + automation::textOf(number);
                break;
            default:
                break;
            }
            if (random() % 5 == 0) key = Variant::null();
            keys.push_back(key);
            rows.emplace_back(key, static_cast<std::int32_t>(i) + 1);
        }
        if (keys.size() < 2) continue;
        const int mode = static_cast<int>(1 + random() % 2);
        const auto base = static_cast<std::int32_t>(random() % 3) - 1;
        const auto fresh = automation::make<cMatriz>();
        fresh->Dimension2D(1, 2, base, base + static_cast<std::int32_t>(keys.size()) - 1);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            fresh->Item(1, base + static_cast<std::int32_t>(i), keys[i]);
            fresh->Item(2, base + static_cast<std::int32_t>(i), rows[i].second);
        }
        const bool isOneKind = std::all_of(keys.begin(), keys.end(), [&](const Variant& key) {
            return key.type() == keys[0].type() && !key.isNull();
        });
        if (isOneKind) continue; // equal keys may come otherwise then
        StatedSort stated(rows, mode, base, true);
        const bool succeeds = stated.run();
        ASSERT_EQ(succeeds, fresh->QSort(1, mode));
        std::string got;
        for (std::int32_t row = fresh->FirstRow(); row <= fresh->LastRow(); ++row)
            got += tests::textOf(fresh->Item(2, row)) + " ";
        ASSERT_EQ(stated.origins(), got) << "round " << round;
    }
}

TEST_F(cMatrizSort_, AFailureSticksAndLeavesEveryRowOnce) {
    fillNumbered({3, Array::of({1}), 2, 1, 5, 4});
    EXPECT_FALSE(table->QSort(1));
    std::string rows = origins();
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ("      123456", rows);
    fillNumbered({3, 1, 2});
    EXPECT_FALSE(table->QSort(1)) << "once failed, it fails";
    EXPECT_EQ("3 1, 1 2, 2 3", text());
    table->SortOnColumn(1);
    EXPECT_EQ("1 2, 2 3, 3 1", text()) << "the slow sort does it";
    EXPECT_TRUE(table->Clone()->QSort(2)) << "a copy has not failed";
}

TEST_F(cMatrizSort_, ValuesThatDoNotCompareFailTheSort) {
    for (const Variant& odd : {Variant(Array::of({1})), Variant::error(7), Variant::nothing(),
                               Variant(automation::make<Refusing>())}) {
        table = automation::make<cMatriz>();
        fillNumbered({3, 1, odd, 2, 0});
        EXPECT_FALSE(table->QSort(1));
        table->SortOnColumn();
        std::string rows = origins();
        std::sort(rows.begin(), rows.end());
        EXPECT_EQ("     12345", rows);
    }
}

TEST_F(cMatrizSort_, ANullBesideTextsFailsWhereItIsTheMeasure) {
    fillNumbered({u"b", Variant::null(), u"a"});
    EXPECT_FALSE(table->QSort(1)) << "the middle row: a text does not compare with it";
    table = automation::make<cMatriz>();
    fillNumbered({u"b", Variant::null(), u"a"});
    table->TextCompare(false);
    EXPECT_TRUE(table->QSort(1)) << "by units Null compares, as equal to all";
}

TEST_F(cMatrizSort_, ASortThatChangesItsTableFailsAndIsSafe) {
    const std::function<void()> actions[] = {
        [this] { table->Clear(); },
        [this] { table->Dimension2D(1, 1, 1, 3); },
        [this] { table->DeleteRow(1); },
        [this] { table->AddRow({1}); },
    };
    for (const auto& action : actions) {
        table = automation::make<cMatriz>();
        fillNumbered({3, 1, 2});
        table->Item(1, 2, Variant(automation::make<Asked>(action)));
        table->QSort(1);
        table->SortOnColumn(1, true, false);
        EXPECT_GE(table->Rows(), 0);
        fillNumbered({2, 1});
        table->SortOnColumn();
        EXPECT_EQ("1 2, 2 1", text());
    }
}

TEST_F(cMatrizSort_, UnknownModesSortDownwardsOrFailAndAreSafe) {
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        table = automation::make<cMatriz>();
        std::vector<Variant> keys;
        for (std::size_t i = 0; i < 2 + random() % 20; ++i)
            keys.emplace_back(static_cast<std::int32_t>(random() % 6));
        fillNumbered(keys);
        table->QSort(1, round % 2 ? 3 : -1);
        EXPECT_EQ(static_cast<std::int32_t>(keys.size()), table->Rows());
    }
}

TEST_F(cMatrizSort_, ColumnsAreSortedByTheFirstOneOrALogicalNumber) {
    fill({{2, u"x"}, {1, u"y"}, {3, u"w"}});
    table->SortOnColumn();
    EXPECT_EQ("1 y, 2 x, 3 w", text());
    table->SortOnColumn(2);
    EXPECT_EQ("3 w, 2 x, 1 y", text());
    table->SortOnColumn(1, false);
    EXPECT_EQ("3 w, 2 x, 1 y", text());
    for (const std::int32_t col : {0, 3, cMatriz::highestLong, cMatriz::lowestLong})
        table->SortOnColumn(col);
    EXPECT_EQ("3 w, 2 x, 1 y", text());
}

TEST_F(cMatrizSort_, TheSlowSortTakesTextsWithoutRegardToCase) {
    fillNumbered({u"B", u"a", u"A", u"b"});
    table->SortOnColumn(1, true, false);
    EXPECT_EQ("a 2, A 3, B 1, b 4", text());
    table->SortOnColumn(1, false, false);
    EXPECT_EQ("B 1, b 4, a 2, A 3", text()) << "equal keys in the order that the exchanges give";
}

TEST_F(cMatrizSort_, NullsOfTheSlowSortAreEmptyTextsOr0) {
    fillNumbered({u"b", Variant::null(), u"a"});
    table->SortOnColumn(1, true, false);
    EXPECT_EQ("Null 2, a 3, b 1", text());
    fillNumbered({2, Variant::null(), -1});
    table->SortOnColumn(1, true, false);
    EXPECT_EQ("-1 3, Null 2, 2 1", text());
}

TEST_F(cMatrizSort_, LargeTablesOfTheSlowSortMakeTheSameExchangesAsSmallOnes) {
    std::mt19937 random(5);
    for (const bool ascending : {true, false}) {
        std::vector<Variant> keys;
        std::vector<std::pair<std::int32_t, std::int32_t>> model; // key and number of the row
        for (std::int32_t i = 1; i <= 5000; ++i) {
            const auto key = static_cast<std::int32_t>(random() % 3000);
            const bool isNull = i % 50 == 0;
            keys.emplace_back(isNull ? Variant::null() : Variant(key));
            model.emplace_back(isNull ? 0 : key, i);
        }
        for (std::size_t i = 0; i < model.size(); ++i)
            for (std::size_t j = i + 1; j < model.size(); ++j)
                if (ascending ? model[i].first > model[j].first : model[i].first < model[j].first)
                    std::swap(model[i], model[j]);
        fillNumbered(keys);
        table->SortOnColumn(1, ascending, false);
        for (std::int32_t row = 1; row <= 5000; ++row)
            ASSERT_EQ(model[static_cast<std::size_t>(row - 1)].second, table->Item(2, row).asLong()) << row;
    }
}

TEST_F(cMatrizSort_, EqualKeysOfTheSlowSortStandAsTheExchangesLeaveThem) {
    constexpr std::int32_t rows = 7, keys = 3;
    std::int32_t combinations = 1;
    for (std::int32_t row = 0; row < rows; ++row)
        combinations *= keys;
    for (std::int32_t combination = 0; combination < combinations; ++combination)
        for (const bool ascending : {true, false}) {
            std::vector<Variant> column;
            for (std::int32_t rest = combination, row = 0; row < rows; ++row, rest /= keys)
                column.emplace_back(rest % keys);
            fillNumbered(column);
            std::string expected;
            std::vector<std::int32_t> order(rows);
            std::iota(order.begin(), order.end(), 0);
            const auto key = [&](std::int32_t row) {
                return column[static_cast<std::size_t>(order[static_cast<std::size_t>(row)])].asLong();
            };
            for (std::int32_t i = 0; i < rows; ++i) {
                for (std::int32_t j = i + 1; j < rows; ++j)
                    if (ascending ? key(i) > key(j) : key(i) < key(j))
                        std::swap(order[static_cast<std::size_t>(i)], order[static_cast<std::size_t>(j)]);
                expected += std::to_string(order[static_cast<std::size_t>(i)] + 1) + " ";
            }
            table->SortOnColumn(1, ascending, false);
            ASSERT_EQ(expected, origins()) << combination << (ascending ? " up" : " down");
        }
}

TEST_F(cMatrizSort_, TheSlowSortOrdersManyRowsInTheReverseOrder) {
    constexpr std::int32_t rows = 200000;
    std::vector<Variant> keys;
    for (std::int32_t row = 0; row < rows; ++row)
        keys.emplace_back((rows - row) / 2);
    fillNumbered(keys);
    table->SortOnColumn(1, true, false);
    for (std::int32_t row = 2; row <= rows; ++row)
        ASSERT_LE(table->Item(1, row - 1).asLong(), table->Item(1, row).asLong());
    EXPECT_EQ(rows, table->Item(2, 1).asLong());
}

TEST_F(cMatrizSort_, TheSlowSortOrdersManyRowsOfSeveralKinds) {
    std::mt19937 random(6);
    std::vector<Variant> keys;
    for (int i = 0; i < 5000; ++i) {
        const auto key = static_cast<std::int32_t>(random() % 3000);
        keys.emplace_back(i % 2 == 0 ? Variant(key) : Variant(automation::Currency(key)));
    }
    keys.emplace_back(1.5);
    fillNumbered(keys);
    table->SortOnColumn(1, true, false);
    std::vector<bool> seen(keys.size() + 1);
    for (std::int32_t row = 1; row <= table->Rows(); ++row) {
        seen[static_cast<std::size_t>(table->Item(2, row).asLong())] = true;
        if (row == 1) continue;
        ASSERT_LE(automation::CDbl(table->Item(1, row - 1)), automation::CDbl(table->Item(1, row)));
    }
    EXPECT_EQ(5001, std::count(seen.begin(), seen.end(), true));
}

TEST_F(cMatrizSort_, ManyRowsOfAllOrdersEndInOrder) {
    std::mt19937 random(11);
    const std::function<double(int)> makers[] = {
        [](int i) { return i; }, [](int i) { return -i; }, [](int) { return 4; },
        [&](int) { return static_cast<double>(random()) - 2e9; }, [](int i) { return i % 7; }};
    for (const auto& make : makers) {
        std::vector<Variant> keys;
        for (int i = 0; i < 20000; ++i)
            keys.emplace_back(make(i));
        fillNumbered(keys);
        ASSERT_TRUE(table->QSort(1));
        for (std::int32_t row = 2; row <= 20000; ++row)
            ASSERT_LE(table->Item(1, row - 1).asDouble(), table->Item(1, row).asDouble());
    }
}

TEST_F(cMatrizSort_, RowsMoveWhole) {
    std::mt19937 random(13);
    for (const std::int32_t cols : {1, 2, 8, 40}) {
        table->Dimension2D(1, cols, 1, 300);
        for (std::int32_t row = 1; row <= 300; ++row)
            table->Item(1, row, static_cast<std::int32_t>(random() % 100000));
        for (std::int32_t row = 1; row <= 300; ++row)
            for (std::int32_t col = 2; col <= cols; ++col)
                table->Item(col, row, automation::textOf(table->Item(1, row).asLong() + col));
        ASSERT_TRUE(table->QSort(1));
        for (std::int32_t row = 1; row <= 300; ++row)
            for (std::int32_t col = 2; col <= cols; ++col)
                ASSERT_EQ(automation::textOf(table->Item(1, row).asLong() + col),
                          table->Item(col, row).asString());
    }
}
