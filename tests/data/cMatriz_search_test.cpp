// Rows found by their values.

#include "MatrizTest.h"

#include "automation/ClassTable.h"
#include "automation/Clock.h"
#include "automation/Format.h"
#include "automation/Operators.h"
#include "automation/Strings.h"

#include <random>

using automation::Array;
using automation::Date;
using automation::String;
using automation::Variant;
using namespace tesela;

namespace {

class cMatrizSearch_ : public tests::MatrizTest {
protected:
    std::int32_t find(const Variant& value, std::int32_t mode = tslMatrizFindCompareIgual,
                      std::int32_t col = 1) const {
        std::int32_t row = 77;
        const bool found = table->FindRow(value, col, row, mode);
        EXPECT_EQ(found, row != 0);
        return row;
    }
    /// "found at 3" or "not found, 2".
    std::string seek(const Variant& value, bool approximate = false) const {
        std::int32_t row = 77;
        const bool found = table->SeekRow(value, 1, row, approximate);
        return (found ? "found at " : "not found, ") + std::to_string(row);
    }
};

/// The searches as they are told, step by step, on one column whose physical and logical numbers are the
/// same.
class StatedSearch {
public:
    explicit StatedSearch(const cMatriz& table) : table_(table) {}

    /// Row of `FindRow`, 0 for none.
    std::int32_t find(Variant value, std::int32_t mode) const {
        const bool ignoreCase = mode & tslMatrizFindCompareIgnoreCase;
        mode &= tslMatrizFindCompareMaskModes;
        try {
            if (ignoreCase) value = automation::UCase(automation::CStr(value));
            const String start = mode == tslMatrizFindCompareAproximada
                                     ? automation::RTrim(automation::CStr(value))
                                     : String();
            for (std::int32_t row = table_.FirstRow(); row <= table_.LastRow(); ++row) {
                Variant own = cell(row);
                if (mode == tslMatrizFindCompareAproximada) {
                    String text = areDates() ? automation::Format(own, pattern) : automation::CStr(own);
                    if (ignoreCase) text = automation::UCase(text);
                    text = text.left(start.length());
                    if (isSame(text, start)) return row;
                    continue;
                }
                if (ignoreCase) own = automation::UCase(automation::CStr(own));
                if (qualifies(findOrder(own, value), mode)) return row;
            }
        } catch (const automation::Error&) {
        }
        return 0;
    }

    /// Rows of `CheckDuplicates`, as the positions of a table from 1; 0 and 0 for none.
    std::pair<std::int32_t, std::int32_t> duplicates(const Variant& skip, bool ignoreCase) const {
        const bool inCapitals = ignoreCase && type() == automation::VT_BSTR;
        const auto prepared = [&](const Variant& value) {
            return inCapitals && !value.isNull() ? Variant(automation::UCase(automation::CStr(value)))
                                                 : value;
        };
        const bool skips = skip.type() != automation::VT_BOOL;
        for (std::int32_t i = table_.FirstRow(); i < table_.LastRow(); ++i) {
            if (skips && automation::isEqual(prepared(cell(i)), prepared(skip))) continue;
            for (std::int32_t j = i + 1; j <= table_.LastRow(); ++j)
                if (automation::isEqual(prepared(cell(i)), prepared(cell(j))))
                    return {i - table_.FirstRow() + 1, j - table_.FirstRow() + 1};
        }
        return {0, 0};
    }

    /// Result and row of `SeekRow`.
    std::pair<bool, std::int32_t> seek(const Variant& value, bool approximate) const {
        try {
            return halve(value, approximate);
        } catch (const automation::Error&) {
            return {false, 0};
        }
    }

private:
    static constexpr std::u16string_view pattern = u"dd/MM/yyyy";

    Variant cell(std::int32_t row) const { return table_.Item(table_.FirstCol(), row); }
    automation::VARTYPE type() const { return cell(table_.FirstRow()).type(); }
    bool areDates() const { return type() == automation::VT_DATE; }
    bool areTexts() const { return type() == automation::VT_BSTR || type() == automation::VT_BOOL; }
    int order(const Variant& a, const Variant& b) const {
        return tests::statedOrder(a, b, table_.TextCompare());
    }
    bool isSame(const String& a, const String& b) const {
        return table_.TextCompare() ? order(a, b) == 0 : a == b;
    }
    int findOrder(const Variant& a, const Variant& b) const {
        if (table_.TextCompare()) return order(a, b);
        const auto order = automation::compare(a, b);
        return order == automation::Comparison::Equal ? 0 : order == automation::Comparison::Less ? -1 : 1;
    }
    static bool qualifies(int order, std::int32_t mode) {
        const bool does[] = {order == 0, order < 1, order >= 0, order < 0, order >= 1, order != 0};
        return mode < 6 && does[mode];
    }

    std::pair<bool, std::int32_t> halve(const Variant& value, bool approximate) const {
        std::int32_t lo = table_.FirstRow(), hi = table_.LastRow();
        String sought = automation::RTrim(automation::CStr(value));
        bool descending = lo < hi && order(cell(lo), cell(hi)) > 0;
        if (areDates()) {
            if (!sought.empty())
                sought += automation::Format(automation::Today(), pattern).substring(sought.length());
            descending = automation::CDate(cell(lo)) > automation::CDate(cell(hi));
        } else if (areTexts()) {
            sought = automation::UCase(sought);
        }
        for (;;) {
            const std::int32_t mid = (lo + hi) / 2;
            const String text = areDates() ? automation::Format(cell(mid), pattern)
                                           : automation::UCase(automation::CStr(cell(mid)));
            if (isSame(text, sought)) return {true, mid};
            if (!approximate) {
                if (automation::isEqual(cell(mid), value)) return {true, mid};
                if (lo >= hi) return {false, mid};
            } else if (lo + 4 >= hi) {
                return lookThrough(sought, lo, hi, descending);
            }
            const bool below = areDates()   ? automation::CDate(sought) < automation::CDate(text)
                               : areTexts() ? order(sought, text) < 0
                                            : automation::CDbl(sought) < automation::CDbl(text);
            if (below != descending) {
                hi = mid - 1;
            } else {
                lo = mid + 1;
            }
            if (lo > hi) return {false, mid};
        }
    }

    std::pair<bool, std::int32_t> lookThrough(const String& sought, std::int32_t lo, std::int32_t hi,
                                              bool descending) const {
        if (lo > table_.FirstRow()) --lo;
        if (hi < table_.LastRow()) ++hi;
        const auto typed = [&](const Variant& value) -> Variant {
            if (areDates()) return automation::CDate(value);
            if (!areTexts()) return automation::CDbl(value);
            return automation::UCase(automation::CStr(value)).left(sought.length());
        };
        const Variant wanted = typed(sought);
        const std::int32_t step = descending ? -1 : 1, end = descending ? lo : hi;
        for (std::int32_t row = descending ? hi : lo;; row += step) {
            const int found = order(typed(cell(row)), wanted);
            if (found == 0) return {true, row};
            if (found > 0) return {false, row - step};
            if (row == end) return {false, row};
        }
    }

    const cMatriz& table_;
};

/// Columns of one kind, with a value of another now and then, in any order; and values to look for in them.
class RandomColumns {
public:
    explicit RandomColumns(std::uint32_t seed) : random_(seed) {}

    std::uint32_t below(std::uint32_t end) { return static_cast<std::uint32_t>(random_() % end); }

    /// A value of the kind; 0 to 6.
    Variant value(std::uint32_t kind) {
        const auto number = static_cast<std::int32_t>(below(30)) - 10;
        const char16_t* const words[] = {u"ana", u"Ana", u"árbol", u"Beatriz", u"ñu",   u"Nube", u"nubes",
                                         u"",    u"zoe", u"12",    u"ZOE ",    u"nube", u"-3",   u"\u00AD"};
        switch (kind) {
        case 0:
            return number;
        case 1:
            return number * 0.25;
        case 2:
            return automation::Currency::fromScaled(number * 2500);
        case 3:
            return words[below(std::size(words))];
        case 4:
            return below(2) == 0;
        case 5:
            return Date(automation::Today().value() + number + (below(4) == 0 ? 0.5 : 0));
        default:
            return below(2) == 0 ? Variant() : Variant::null();
        }
    }

    void fill(cMatriz& table) {
        const auto base = static_cast<std::int32_t>(below(12)) - 8;
        kind_ = below(6);
        std::vector<Variant> values;
        for (std::uint32_t i = 0, count = 1 + below(40); i < count; ++i)
            values.push_back(value(kind_));
        const std::uint32_t order = below(4);
        if (order < 3)
            std::sort(values.begin(), values.end(), [&](const Variant& a, const Variant& b) {
                return tests::statedOrder(a, b, order != 0) < 0;
            });
        if (below(2) == 0) std::reverse(values.begin(), values.end());
        if (below(3) == 0) values[below(static_cast<std::uint32_t>(values.size()))] = value(below(7));
        table.Dimension2D(1, 1, base, base + static_cast<std::int32_t>(values.size()) - 1);
        for (std::size_t i = 0; i < values.size(); ++i)
            table.Item(1, base + static_cast<std::int32_t>(i), values[i]);
        table.TextCompare(below(3) != 0);
    }

    Variant sought() {
        const Variant whole = value(below(4) == 0 ? below(7) : kind_);
        if (below(3) != 0 || whole.isNull()) return whole;
        const String text = automation::CStr(whole);
        return text.left(below(static_cast<std::uint32_t>(text.length()) + 1)) + u" ";
    }

private:
    std::mt19937 random_;
    std::uint32_t kind_ = 0;
};

} // namespace

TEST_F(cMatrizSearch_, RowsAreSoughtStepByStepInColumnsOfAnyKindAndOrder) {
    RandomColumns columns(31);
    for (int round = 0; round < 2000; ++round) {
        columns.fill(*table);
        const StatedSearch stated(*table);
        for (int i = 0; i < 20; ++i) {
            const Variant value = columns.sought();
            for (const bool approximate : {false, true}) {
                std::int32_t row = 77;
                const bool found = table->SeekRow(value, 1, row, approximate);
                ASSERT_EQ(stated.seek(value, approximate), std::pair(found, row))
                    << tests::textOf(value) << " in " << text() << " from " << table->FirstRow()
                    << (approximate ? ", approximately" : "") << (table->TextCompare() ? "" : ", by units");
            }
        }
    }
}

TEST_F(cMatrizSearch_, RowsAreFoundStepByStepInColumnsOfAnyKind) {
    RandomColumns columns(32);
    for (int round = 0; round < 1000; ++round) {
        columns.fill(*table);
        if (table->FirstRow() <= 0 && table->LastRow() >= 0) continue; // row 0 means none
        const StatedSearch stated(*table);
        for (std::int32_t mode = 0; mode <= 7; ++mode)
            for (const std::int32_t flag : {0, std::int32_t{tslMatrizFindCompareIgnoreCase}}) {
                const Variant value = columns.sought();
                ASSERT_EQ(stated.find(value, mode + flag), find(value, mode + flag))
                    << tests::textOf(value) << " in " << text() << ", mode " << mode + flag
                    << (table->TextCompare() ? "" : ", by units");
            }
    }
}

TEST_F(cMatrizSearch_, DuplicatesAreTheFirstPairInColumnsOfAnyKind) {
    RandomColumns columns(33);
    for (int round = 0; round < 3000; ++round) {
        columns.fill(*table);
        for (const bool ignoreCase : {true, false}) {
            const Variant skip = columns.sought();
            std::int32_t first = 0, second = 0;
            const bool found = table->CheckDuplicates(1, first, second, skip, ignoreCase);
            const auto stated = StatedSearch(*table).duplicates(skip, ignoreCase);
            ASSERT_EQ(stated, std::pair(first, second)) << text() << ", without " << tests::textOf(skip);
            ASSERT_EQ(stated.first != 0, found);
        }
    }
}

TEST_F(cMatrizSearch_, AnExactSearchThatFindsNothingGivesTheRowWhereItEnded) {
    fillColumn({10, 20, 30, 40, 50, 60, 70});
    EXPECT_EQ("not found, 1", seek(5));
    EXPECT_EQ("not found, 1", seek(15)) << "the halves 4, 2, 1";
    EXPECT_EQ("not found, 3", seek(25));
    EXPECT_EQ("not found, 5", seek(45));
    EXPECT_EQ("not found, 7", seek(99));
}

TEST_F(cMatrizSearch_, ProgramsAreGivenTheRowsOrLeaveThemOut) {
    fill({{1, u"a"}, {2, u"b"}, {3, u"b"}});
    std::int32_t row = 0, second = 0;
    EXPECT_TRUE(automation::callMethod(*table, u"FindRow", u"b", 2, Variant::byRef(row)).asBoolean());
    EXPECT_EQ(2, row);
    EXPECT_TRUE(automation::callMethod(*table, u"FindRow", u"b", 2).asBoolean());
    EXPECT_TRUE(automation::callMethod(*table, u"FindRow", u"B", 2, Variant::missing(), 256).asBoolean());
    EXPECT_TRUE(automation::callMethod(*table, u"SeekRow", 3, 1, Variant::byRef(row)).asBoolean());
    EXPECT_EQ(3, row);
    EXPECT_FALSE(automation::callMethod(*table, u"SeekRow", 9, 1, Variant::missing(), true).asBoolean());
    EXPECT_TRUE(
        automation::callMethod(*table, u"CheckDuplicates", 2, Variant::byRef(row), Variant::byRef(second))
            .asBoolean());
    EXPECT_EQ(2, row);
    EXPECT_EQ(3, second);
    EXPECT_TRUE(automation::callMethod(*table, u"QSort", 1, 2).asBoolean());
    EXPECT_EQ("3 b, 2 b, 1 a", text());
    automation::callMethod(*table, u"SortOnColumn");
    EXPECT_EQ("1 a, 2 b, 3 b", text());
}

TEST_F(cMatrizSearch_, TheFirstRowThatQualifiesIsFound) {
    fillColumn({5, 3, 7, 3, 9});
    EXPECT_EQ(2, find(3));
    EXPECT_EQ(0, find(4));
    EXPECT_EQ(2, find(4, tslMatrizFindCompareMenorIgual));
    EXPECT_EQ(1, find(5, tslMatrizFindCompareMenorIgual));
    EXPECT_EQ(3, find(6, tslMatrizFindCompareMayorIgual));
    EXPECT_EQ(2, find(5, tslMatrizFindCompareMenor));
    EXPECT_EQ(3, find(5, tslMatrizFindCompareMayor));
    EXPECT_EQ(2, find(5, tslMatrizFindCompareDistinto));
    EXPECT_EQ(0, find(9, tslMatrizFindCompareMayor));
    for (const std::int32_t mode : {7, 255, -1})
        EXPECT_EQ(0, find(5, mode)) << "no such mode";
    EXPECT_EQ(1, find(5, 512)) << "only the low byte counts";
}

TEST_F(cMatrizSearch_, NumbersOfRowsAreLogical) {
    fill({{1, u"a"}, {2, u"b"}});
    table->SetFirstIndex(0, 10);
    EXPECT_EQ(11, find(2, 0, 0));
    EXPECT_EQ(0, find(2, 0, 2)) << "there is no such column";
    EXPECT_TRUE(table->FindRow(u"b", 1));
    table->Clear();
    EXPECT_EQ(0, find(2, 0, 0));
}

TEST_F(cMatrizSearch_, TextsAreFoundAsTheyCompare) {
    fillColumn({u"nube", u"Ñandú", u"ñandú", u"Zorro"});
    EXPECT_EQ(3, find(u"ñandú"));
    EXPECT_EQ(0, find(u"zorro"));
    EXPECT_EQ(4, find(u"zorro", tslMatrizFindCompareIgual + tslMatrizFindCompareIgnoreCase));
    EXPECT_EQ(2, find(u"ñandú", tslMatrizFindCompareIgnoreCase));
    EXPECT_EQ(2, find(u"nz", tslMatrizFindCompareMayor)) << "ñ follows n";
    table->TextCompare(false);
    EXPECT_EQ(1, find(u"az", tslMatrizFindCompareMayor));
    EXPECT_EQ(1, find(u"Ñ", tslMatrizFindCompareMenor)) << "n comes before by units";
}

TEST_F(cMatrizSearch_, BesideTextsAValueCountsAsText) {
    fillColumn({u"x", u"12", 12});
    EXPECT_EQ(2, find(12));
    table->TextCompare(false);
    EXPECT_EQ(3, find(12)) << "by the host's comparison a text is no number";
}

TEST_F(cMatrizSearch_, NullIsEqualToEverythingInADictionaryAndGreaterOtherwise) {
    fillColumn({1, Variant::null(), 3});
    EXPECT_EQ(2, find(3));
    EXPECT_EQ(2, find(0, tslMatrizFindCompareMenorIgual));
    table->TextCompare(false);
    EXPECT_EQ(3, find(3));
    EXPECT_EQ(2, find(2, tslMatrizFindCompareMayor));
}

TEST_F(cMatrizSearch_, AFailureCountsAsNotFound) {
    fillColumn({Array::of({1}), 5});
    EXPECT_EQ(0, find(5)) << "before the value there is one that does not compare";
    fillColumn({5, Array::of({1})});
    EXPECT_EQ(1, find(5)) << "found before the failure";
    fillColumn({u"a", Variant::null(), u"b"});
    EXPECT_EQ(0, find(u"B", tslMatrizFindCompareIgnoreCase)) << "Null has no text";
    EXPECT_EQ(1, find(u"A", tslMatrizFindCompareIgnoreCase));
    EXPECT_EQ(0, find(Variant::null()));
    EXPECT_EQ(0, find(Variant::nothing()));
    EXPECT_EQ(0, find(Array::of({1})));
    EXPECT_EQ(0, find(Variant::error(5)));
}

TEST_F(cMatrizSearch_, TextsAreFoundByTheirBeginning) {
    fillColumn({u"Lorca", u"Málaga", u"Madrid", u"Maó"});
    EXPECT_EQ(3, find(u"Mad", tslMatrizFindCompareAproximada));
    EXPECT_EQ(3, find(u"Ma   ", tslMatrizFindCompareAproximada)) << "blanks at the end do not count";
    EXPECT_EQ(0, find(u"ma", tslMatrizFindCompareAproximada));
    EXPECT_EQ(3, find(u"ma", tslMatrizFindCompareAproximada + tslMatrizFindCompareIgnoreCase));
    EXPECT_EQ(1, find(u"", tslMatrizFindCompareAproximada)) << "every text begins with nothing";
    EXPECT_EQ(0, find(u"Madrid y más", tslMatrizFindCompareAproximada));
    table->TextCompare(false);
    EXPECT_EQ(4, find(u"Maó", tslMatrizFindCompareAproximada));
    fillColumn({123, 1245, 12.5});
    EXPECT_EQ(2, find(124, tslMatrizFindCompareAproximada));
    EXPECT_EQ(3, find(u"12,", tslMatrizFindCompareAproximada)) << "as the locale writes numbers";
}

TEST_F(cMatrizSearch_, DatesAreFoundByTheBeginningOfTheLibrarysPattern) {
    fillColumn({Date::join(2001, 2, 3), Date::join(2001, 12, 5), Date::join(2002, 12, 5, 10)});
    EXPECT_EQ(2, find(u"05/12", tslMatrizFindCompareAproximada));
    EXPECT_EQ(3, find(u"05/12/2002", tslMatrizFindCompareAproximada));
    EXPECT_EQ(1, find(Date::join(2001, 2, 3), tslMatrizFindCompareAproximada));
}

TEST_F(cMatrizSearch_, LookupGivesTheOtherColumn) {
    fill({{1, u"uno"}, {2, u"dos"}, {3, u"tres"}});
    EXPECT_EQ("dos", table->Lookup(2, 1, 2).asString().utf8());
    EXPECT_EQ("none", table->Lookup(9, 1, 2, u"none").asString().utf8());
    EXPECT_EQ("tres", table->Lookup(9, 1, 2, Variant::missing(), 3).asString().utf8());
    EXPECT_TRUE(table->Lookup(9, 1, 2).isNull()) << "there is no row 0";
    EXPECT_TRUE(table->Lookup(2, 1, 5).isNull());
    EXPECT_EQ("dos", automation::callMethod(*table, u"Lookup", 2, 1, 2).asString().utf8());
    EXPECT_EQ("tres",
              automation::callMethod(*table, u"Lookup", 9, 1, 2, Variant::missing(), 3).asString().utf8());
    EXPECT_TRUE(automation::callMethod(*table, u"Lookup", 9, 1, 2, Variant::null()).isNull());
}

TEST_F(cMatrizSearch_, SeekingHalvesAscendingAndDescendingColumns) {
    table->Dimension2D(1, 1, 1, 101);
    const auto other = automation::make<cMatriz>();
    other->Dimension2D(1, 1, 1, 101);
    for (std::int32_t row = 1; row <= 101; ++row) {
        table->Item(1, row, row * 2);
        other->Item(1, row, 204 - row * 2);
    }
    std::int32_t found = 0;
    for (std::int32_t row = 1; row <= 101; ++row) {
        EXPECT_EQ("found at " + std::to_string(row), seek(row * 2));
        EXPECT_EQ("found at " + std::to_string(row), seek(automation::textOf(row * 2)));
        EXPECT_TRUE(other->SeekRow(204 - row * 2, 1, found));
        EXPECT_EQ(row, found);
        EXPECT_FALSE(table->SeekRow(row * 2 + 1, 1, found));
    }
}

TEST_F(cMatrizSearch_, AnApproximateSearchEndsBeforeThePlaceOfTheValue) {
    for (const std::int32_t rows : {1, 2, 5, 6, 50}) {
        table->Dimension2D(1, 1, 1, rows);
        for (std::int32_t row = 1; row <= rows; ++row)
            table->Item(1, row, row * 10);
        for (std::int32_t row = 1; row <= rows; ++row) {
            EXPECT_EQ("found at " + std::to_string(row), seek(row * 10, true));
            EXPECT_EQ("not found, " + std::to_string(row), seek(row * 10 + 5, true));
        }
        EXPECT_EQ("not found, 0", seek(5, true)) << "before the first";
        EXPECT_EQ("not found, " + std::to_string(rows), seek(100000, true));
    }
}

TEST_F(cMatrizSearch_, InDescendingTablesItWalksTheOtherWay) {
    fillColumn({50, 40, 30, 20, 10});
    EXPECT_EQ("found at 2", seek(40, true));
    EXPECT_EQ("not found, 3", seek(35, true)) << "the row before it in ascending order";
    EXPECT_EQ("not found, 6", seek(5, true)) << "none is below";
    EXPECT_EQ("not found, 1", seek(99, true));
}

TEST_F(cMatrizSearch_, TextsAreSoughtByTheirBeginningWithoutRegardToCase) {
    fillColumn(
        {u"ana", u"Beatriz", u"Carmen", u"carolina", u"Diego", u"elena", u"Fernando", u"ñuño", u"zoe"});
    EXPECT_EQ("found at 3", seek(u"CARMEN"));
    EXPECT_EQ("found at 4", seek(u"caro", true));
    EXPECT_EQ("found at 3", seek(u"car", true)) << "the first of them";
    EXPECT_EQ("found at 8", seek(u"ñ", true));
    EXPECT_EQ("not found, 5", seek(u"dz", true));
    EXPECT_EQ("not found, 9", seek(u"zz", true));
    EXPECT_EQ("found at 9", seek(u"zoe  ")) << "blanks at the end do not count";
    EXPECT_EQ("not found", seek(u"carme").substr(0, 9)) << "not by a part";
}

TEST_F(cMatrizSearch_, APartlyTypedDateIsCompletedWithToday) {
    const Date today = automation::Today();
    const auto start = static_cast<std::int32_t>(today.value()) - 20;
    table->Dimension2D(1, 1, 1, 41);
    for (std::int32_t row = 1; row <= 41; ++row)
        table->Item(1, row, Date(start + row - 1));
    const String text = automation::Format(today, u"dd/MM/yyyy");
    for (const std::size_t typed : {1U, 2U, 5U, 6U, 10U}) {
        EXPECT_EQ("found at 21", seek(text.left(typed))) << typed;
        EXPECT_EQ("found at 21", seek(text.left(typed), true)) << typed;
    }
    EXPECT_EQ("found at 5", seek(Date(start + 4)));
    EXPECT_EQ("not found, 41", seek(Date(start + 100), true));
    EXPECT_EQ("not found, 0", seek(u"")) << "no date at all";
    EXPECT_EQ("not found, 0", seek(u"zz"));
}

TEST_F(cMatrizSearch_, DescendingDatesAreSoughtToo) {
    fillColumn({Date::join(2012, 1, 1), Date::join(2011, 12, 5), Date::join(2011, 2, 9),
                Date::join(2010, 5, 5), Date::join(2009, 6, 6), Date::join(2008, 7, 7),
                Date::join(2007, 8, 8)});
    EXPECT_EQ("found at 6", seek(u"07/07/2008"));
    EXPECT_EQ("found at 3", seek(u"09/02/2011", true));
    EXPECT_EQ("not found, 4", seek(u"01/01/2011", true));
}

TEST_F(cMatrizSearch_, FailuresOfASeekGiveRow0) {
    EXPECT_EQ("not found, 0", seek(1)) << "an empty table";
    fillColumn({1, 2, 3});
    EXPECT_EQ("not found, 0", seek(Variant::null()));
    EXPECT_EQ("not found, 0", seek(u"x")) << "no number";
    EXPECT_EQ("not found, 0", seek(Array::of({1})));
    std::int32_t row = 5;
    EXPECT_FALSE(table->SeekRow(1, 2, row));
    EXPECT_EQ(0, row);
    fillColumn({1, Variant::null(), 3});
    EXPECT_EQ("not found, 0", seek(3)) << "Null has no text";
    fillColumn({Variant(table), 2});
    EXPECT_EQ("not found, 0", seek(2));
    table->Clear();
}

TEST_F(cMatrizSearch_, SoughtRowsAreLogicalWhateverTheBases) {
    for (const std::int32_t base : {-7, -1, 0, 5}) {
        table->Dimension2D(1, 1, base, base + 9);
        for (std::int32_t row = 0; row < 10; ++row)
            table->Item(1, base + row, row);
        table->SetFirstIndex(1, 100);
        for (std::int32_t row = 0; row < 10; ++row) {
            EXPECT_EQ("found at " + std::to_string(100 + row), seek(row));
            EXPECT_EQ("found at " + std::to_string(100 + row), seek(row, true));
        }
        table->SetFirstIndex(1, base);
    }
}

TEST_F(cMatrizSearch_, SeekingFindsWhatALinearSearchFinds) {
    std::mt19937 random(9);
    for (int round = 0; round < 300; ++round) {
        const auto rows = static_cast<std::int32_t>(1 + random() % 60);
        std::vector<std::int32_t> values;
        for (std::int32_t i = 0; i < rows; ++i)
            values.push_back(static_cast<std::int32_t>(random() % 100));
        std::sort(values.begin(), values.end());
        values.erase(std::unique(values.begin(), values.end()), values.end());
        if (round % 2) std::reverse(values.begin(), values.end());
        table->Dimension2D(1, 1, 1, static_cast<std::int32_t>(values.size()));
        for (std::size_t i = 0; i < values.size(); ++i)
            table->Item(1, static_cast<std::int32_t>(i) + 1, values[i]);
        for (std::int32_t value = 0; value < 100; ++value) {
            const bool isThere = std::count(values.begin(), values.end(), value) != 0;
            std::int32_t row = 0;
            ASSERT_EQ(isThere, table->SeekRow(value, 1, row));
            ASSERT_TRUE(!isThere || table->Item(1, row).asLong() == value);
            ASSERT_EQ(isThere, table->SeekRow(value, 1, row, true));
            ASSERT_TRUE(!isThere || table->Item(1, row).asLong() == value);
        }
    }
}

TEST_F(cMatrizSearch_, DuplicatesAreFoundByPosition) {
    fill({{1, u"a"}, {2, u"b"}, {3, u"B"}, {2, u"a"}});
    table->SetFirstIndex(10, 10);
    std::int32_t first = 0, second = 0;
    EXPECT_TRUE(table->CheckDuplicates(1, first, second));
    EXPECT_EQ(2, first);
    EXPECT_EQ(4, second);
    EXPECT_TRUE(table->CheckDuplicates(2, first, second));
    EXPECT_EQ(1, first) << "the first of a pair comes as early as can be";
    EXPECT_EQ(4, second);
    EXPECT_TRUE(table->CheckDuplicates(2, first, second, u"A"));
    EXPECT_EQ(2, first) << "the value to skip does not count, without regard to case";
    EXPECT_EQ(3, second);
    EXPECT_FALSE(table->CheckDuplicates(2, first, second, u"a", false));
    EXPECT_EQ(2, first) << "left alone";
    EXPECT_FALSE(table->CheckDuplicates(1, first, second, 2));
    for (const std::int32_t col : {0, 3, -1})
        EXPECT_FALSE(table->CheckDuplicates(col, first, second));
    table->Clear();
    EXPECT_FALSE(table->CheckDuplicates(1, first, second));
}

TEST_F(cMatrizSearch_, ABooleanSkipsNoDuplicate) {
    fillColumn({true, false, true});
    std::int32_t first = 0, second = 0;
    EXPECT_TRUE(table->CheckDuplicates(1, first, second, true));
    EXPECT_EQ(3, second);
    EXPECT_TRUE(automation::callMethod(*table, u"CheckDuplicates", 1).asBoolean());
}

TEST_F(cMatrizSearch_, NullIsNoDuplicateAndMixedTypesCompareAsTheHostDoes) {
    std::int32_t first = 0, second = 0;
    fillColumn({Variant::null(), Variant::null()});
    EXPECT_FALSE(table->CheckDuplicates(1, first, second));
    fillColumn({u"a", Variant::null(), u"A"});
    EXPECT_TRUE(table->CheckDuplicates(1, first, second));
    EXPECT_EQ(3, second);
    fillColumn({1, u"1", 1.5, automation::Currency(1)});
    EXPECT_TRUE(table->CheckDuplicates(1, first, second));
    EXPECT_EQ(4, second);
    fillColumn({1, Array::of({1}), 1});
    EXPECT_FALSE(table->CheckDuplicates(1, first, second)) << "a failure";
}
