// Orders, searches and sums against the same on a database in memory, with our order of texts.
#include "Tables.h"
#include "measurements.h"

#include <algorithm>
#include <stdexcept>

namespace bench {

using automation::Array;
using automation::Currency;
using automation::String;
using automation::Variant;
using tesela::cMatriz;
using tesela::tslMatriz_Sort_Ascending;
using tesela::tslMatriz_Sort_Descending;

namespace {

/// Both have to find the same, or nothing is compared.
void agree(std::int64_t ours, std::int64_t theirs, const char* what) {
    if (ours != theirs)
        throw std::runtime_error(std::string(what) + ": " + std::to_string(ours) + " and " +
                                 std::to_string(theirs));
}

void sort(cMatriz& table, Column column, tesela::tslMatriz_SortConstants order = tslMatriz_Sort_Ascending) {
    if (!table.QSort(column, order)) throw std::runtime_error("QSort");
}

Candidate sqliteOrder(Tables& tables, const std::string& terms) {
    return {"sqlite", [&tables, terms] {
                keep(Statement(tables.sqlite().database(), "SELECT * FROM t ORDER BY " + terms).run());
            }};
}

Candidate ourOrder(Tables& tables, Column column) {
    return {"ours", [&tables, column] { sort(tables.copy(), column); }, [&tables] { tables.renew(); }};
}

/// Rows that stand in order, in the reverse order, and that are all the same, against rows in any order:
/// below 1 they are slower.
void measureOrdered(Tables& tables, const std::string& name, Column column) {
    const auto ordered = tables.table().Clone(), reversed = tables.table().Clone(),
               same = tables.table().Clone();
    sort(*ordered, column);
    sort(*reversed, column, tslMatriz_Sort_Descending);
    same->ReplaceCol(column, tables.table().Item(column, 1));
    const struct {
        const char* name;
        const cMatriz& table;
    } inputs[] = {{"_sorted", *ordered}, {"_reversed", *reversed}, {"_equal", *same}};
    for (const auto& input : inputs)
        measure(name + input.name, rowCount,
                {{"ours", [&] { sort(tables.copy(), column); }, [&] { tables.renew(input.table); }},
                 {"random", [&] { sort(tables.copy(), column); }, [&] { tables.renew(); }}});
}

/// Of records that lie all over the table.
template <class Value>
std::vector<Value> sample(const std::vector<Record>& records, std::size_t count, Value Record::*field) {
    std::vector<Value> values;
    values.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        values.push_back(records[(i * 7919 + 500'000) % records.size()].*field);
    return values;
}

std::vector<Variant> variantsOf(const std::vector<std::int32_t>& numbers) {
    return {numbers.begin(), numbers.end()};
}

std::vector<Variant> variantsOf(const std::vector<std::string>& texts) {
    std::vector<Variant> values;
    values.reserve(texts.size());
    for (const std::string& text : texts)
        values.emplace_back(String::fromAnsi(text));
    return values;
}

std::int64_t bindAndRun(Statement& statement, std::int32_t value) {
    statement.bind(1, std::int64_t{value});
    return statement.runForNumber();
}

std::int64_t bindAndRun(Statement& statement, const std::string& value) {
    statement.bind(1, value);
    return statement.runForNumber();
}

/// Finds each value with `search` and with the statement, which gives the same number.
template <class Value, class Search>
void measureSearches(const std::string& name, SqliteTable& sqlite, const std::string& sql, Search search,
                     const std::vector<Value>& values) {
    const std::vector<Variant> sought = variantsOf(values);
    Statement statement(sqlite.database(), sql);
    for (std::size_t i = 0; i < values.size(); ++i)
        agree(search(sought[i]), bindAndRun(statement, values[i]), name.c_str());
    measure(name, static_cast<double>(values.size()),
            {{"ours",
              [&] {
                  for (const Variant& value : sought)
                      keep(search(value));
              }},
             {"sqlite",
              [&] {
                  for (const Value& value : values)
                      keep(bindAndRun(statement, value));
              }}},
            5);
}

} // namespace

void measureSortNumber(Tables& tables) {
    std::vector<std::pair<double, std::int32_t>> doubles;
    measure("qsort_number", rowCount,
            {ourOrder(tables, Amount),
             sqliteOrder(tables, "amount"),
             {"std_sort_of_doubles", [&] { std::sort(doubles.begin(), doubles.end()); },
              [&] {
                  doubles.clear();
                  for (const Record& record : tables.records())
                      doubles.emplace_back(static_cast<double>(record.amount),
                                           static_cast<std::int32_t>(doubles.size()));
              }}});
    measureOrdered(tables, "qsort_number", Amount);
}

void measureSortText(Tables& tables) {
    measure("qsort_text", rowCount, {ourOrder(tables, Name), sqliteOrder(tables, "name")});
    measureOrdered(tables, "qsort_text", Name);
}

void measureSortFiveKeys(Tables& tables) {
    const auto sortAll = [&] {
        const bool sorted = tables.copy().QSort(
            Town, tslMatriz_Sort_Ascending, Active, tslMatriz_Sort_Descending, Group,
            tslMatriz_Sort_Ascending, Name, tslMatriz_Sort_Ascending, Amount, tslMatriz_Sort_Descending);
        if (!sorted) throw std::runtime_error("QSort");
    };
    // A Boolean is -1 or 0.
    measure("qsort_five_keys", rowCount,
            {{"ours", sortAll, [&] { tables.renew(); }},
             sqliteOrder(tables, "town, active, grp, name, amount DESC")});
}

void measureFindRow(Tables& tables) {
    const cMatriz& table = tables.table();
    const auto searching = [&](Column column) {
        return [&table, column](const Variant& value) {
            std::int32_t row = 0;
            table.FindRow(value, column, row);
            return std::int64_t{row};
        };
    };
    measureSearches("findrow", tables.sqlite(), "SELECT rowid FROM t WHERE number=? LIMIT 1",
                    searching(Number), sample(tables.records(), 20, &Record::number));
    measureSearches("findrow_text", tables.sqlite(), "SELECT rowid FROM t WHERE name=? LIMIT 1",
                    searching(Name), sample(tables.records(), 20, &Record::name));
}

void measureLookup(Tables& tables) {
    const cMatriz& table = tables.table();
    const auto lookUp = [&](Column column) {
        return [&table, column](const Variant& value) {
            return std::int64_t{table.Lookup(value, column, Group, Variant(-1)).asLong()};
        };
    };
    measureSearches("lookup", tables.sqlite(), "SELECT grp FROM t WHERE number=? LIMIT 1", lookUp(Number),
                    sample(tables.records(), 20, &Record::number));
    measureSearches("lookup_text", tables.sqlite(), "SELECT grp FROM t WHERE name=? LIMIT 1", lookUp(Name),
                    sample(tables.records(), 20, &Record::name));
}

void measureSeekRow(Tables& tables) {
    // The database has an index where ours has the order of its rows.
    tables.sqlite().execute("CREATE INDEX by_number ON t(number)");
    tables.sqlite().execute("CREATE INDEX by_name ON t(name)");
    tables.renew();
    const auto seekAndRead = [&](Column column, Column read) {
        return [&tables, column, read](const Variant& value) {
            std::int32_t row = 0;
            tables.copy().SeekRow(value, column, row);
            const Variant cell = tables.copy().Item(read, row);
            return cell.isString() ? static_cast<std::int64_t>(cell.asString().length()) : cell.asLong();
        };
    };
    sort(tables.copy(), Number);
    measureSearches("seekrow", tables.sqlite(), "SELECT grp FROM t WHERE number=? LIMIT 1",
                    seekAndRead(Number, Group), sample(tables.records(), 20000, &Record::number));
    sort(tables.copy(), Name);
    measureSearches("seekrow_text", tables.sqlite(),
                    "SELECT length(CAST(name AS BLOB)) FROM t WHERE name=? LIMIT 1", seekAndRead(Name, Name),
                    sample(tables.records(), 20000, &Record::name));
    tables.sqlite().execute("DROP INDEX by_number");
    tables.sqlite().execute("DROP INDEX by_name");
}

void measureFilter(Tables& tables) {
    constexpr std::int32_t lowest = 50'000, highest = 300'000; // of -50,000 to 500,000
    Statement select(tables.sqlite().database(), "SELECT * FROM t WHERE amount BETWEEN ? AND ?");
    select.bind(1, lowest * Currency::scale);
    select.bind(2, highest * Currency::scale);
    tables.renew();
    tables.copy().FilterRows(Amount, Currency(lowest), Currency(highest));
    agree(tables.copy().Rows(), select.run(), "filter");
    measure("filter", rowCount,
            {{"ours", [&] { tables.copy().FilterRows(Amount, Currency(lowest), Currency(highest)); },
              [&] { tables.renew(); }},
             {"sqlite", [&] { keep(select.run()); }}});
}

void measureSum(Tables& tables) {
    Statement select(tables.sqlite().database(), "SELECT sum(amount) FROM t");
    agree(tables.table().Sum(Amount).asCurrency().scaled(), select.runForNumber(), "sum");
    measure("sum", rowCount,
            {{"ours", [&] { keep(tables.table().Sum(Amount)); }},
             {"sqlite", [&] { keep(select.runForNumber()); }}},
            7);
}

void measureGroups(Tables& tables) {
    const Array totals = Array::of({static_cast<std::int32_t>(Amount)});
    const auto group = [&](Column column, const char* name, const std::string& sql) {
        const Array columns = Array::of({static_cast<std::int32_t>(column)});
        Statement select(tables.sqlite().database(), sql);
        agree(tables.table().CrearMatrizAgrupada(totals, columns)->Rows(), select.run(), name);
        measure(name, rowCount,
                {{"ours", [&] { keep(tables.table().CrearMatrizAgrupada(totals, columns)->Rows()); }},
                 {"sqlite", [&] { keep(select.run()); }}});
    };
    group(Group, "group_1000", "SELECT grp, sum(amount) FROM t GROUP BY grp");
}

} // namespace bench
