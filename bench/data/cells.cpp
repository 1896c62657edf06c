// Rows and cells: a database in memory that takes the same rows, and a plain vector of the same values.
#include "Tables.h"
#include "measurements.h"

#include <cstdio>
#include <malloc.h>
#include <stdexcept>
#include <unistd.h>

namespace bench {

using automation::Variant;
using tesela::cMatriz;

namespace {

constexpr std::size_t cellCount = std::size_t{rowCount} * columnCount;

/// What a program would write itself: rows one after another, subscripts from 1 that are looked at.
class PlainTable {
public:
    explicit PlainTable(const cMatriz& source) : columns_(source.Cols()), cells_(cellCount) {
        for (std::int32_t row = 1; row <= rowCount; ++row)
            for (std::int32_t col = 1; col <= columnCount; ++col)
                cells_[place(col, row)] = source.Item(col, row);
    }
    Variant get(std::int32_t col, std::int32_t row) const { return cells_.at(place(col, row)); }
    void let(std::int32_t col, std::int32_t row, const Variant& value) { cells_.at(place(col, row)) = value; }

private:
    std::size_t place(std::int32_t col, std::int32_t row) const {
        if (col < 1 || col > columns_ || row < 1) throw std::out_of_range("subscript");
        return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(columns_) +
               static_cast<std::size_t>(col - 1);
    }
    std::int32_t columns_;
    std::vector<Variant> cells_;
};

template <class Read>
void readAll(Read read) {
    std::size_t texts = 0;
    for (std::int32_t row = 1; row <= rowCount; ++row)
        for (std::int32_t col = 1; col <= columnCount; ++col)
            texts += read(col, row).isString();
    keep(texts);
}

template <class Write>
void writeAll(const std::vector<automation::ParamArray>& rows, Write write) {
    for (std::int32_t row = 1; row <= rowCount; ++row)
        for (std::int32_t col = 1; col <= columnCount; ++col)
            write(col, row, rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(col - 1)]);
}

/// Bytes of this process that lie in memory.
double residentBytes() {
    long pages = 0, resident = 0;
    if (FILE* file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%ld %ld", &pages, &resident) != 2) resident = 0;
        std::fclose(file);
    }
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// A table of as many rows as always with the values that `make` gives, added in bulk; bytes of a cell.
template <class Make>
double bytesOfCell(Make make) {
    malloc_trim(0); // what others have left is not to be used again
    const double before = residentBytes();
    const auto table = makeTable();
    table->BeginAddRows();
    for (std::int32_t row = 0; row < rowCount; ++row) {
        automation::ParamArray values;
        for (std::int32_t col = 0; col < columnCount; ++col)
            values.push_back(make(row + col));
        table->AddRow(values);
    }
    table->EndAddRows();
    malloc_trim(0); // what the table has left while it grew is no part of it
    return (residentBytes() - before) / cellCount;
}

} // namespace

void measureAddRow(Tables& tables) {
    const auto rows = tables.rows();
    automation::Ref<cMatriz> table;
    SqliteTable sqlite;
    measure("addrow_bulk", rowCount,
            {{"ours",
              [&] {
                  table->BeginAddRows(rowCount);
                  for (const auto& row : rows)
                      table->AddRow(row);
                  table->EndAddRows();
              },
              [&] { table = makeTable(); }},
             {"sqlite", [&] { sqlite.insert(tables.records()); }, [&] { sqlite.clear(); }}});
}

void measureItemGet(Tables& tables) {
    const cMatriz& table = tables.table();
    const PlainTable plain(table);
    measure("item_get", cellCount,
            {{"ours", [&] { readAll([&](auto col, auto row) { return table.Item(col, row); }); }},
             {"vector", [&] { readAll([&](auto col, auto row) { return plain.get(col, row); }); }}},
            7);
}

void measureItemLet(Tables& tables) {
    const auto rows = tables.rows();
    tables.renew();
    cMatriz& table = tables.copy();
    PlainTable plain(table);
    measure(
        "item_let", cellCount,
        {{"ours",
          [&] {
              writeAll(rows, [&](auto col, auto row, const Variant& value) { table.Item(col, row, value); });
          }},
         {"vector",
          [&] {
              writeAll(rows, [&](auto col, auto row, const Variant& value) { plain.let(col, row, value); });
          }}},
        7);
}

void measureMemory(Tables&) {
    constexpr double most = 17;
    const double number = bytesOfCell([](std::int32_t i) { return Variant(static_cast<double>(i)); });
    std::printf("memory\tnumeric cell\t%.2f bytes\n", number);
    ratio("memory", "17_bytes", number, most);
    for (const std::size_t length : {4, 12, 40}) {
        const std::u16string text(length, u'ñ');
        const double bytes = bytesOfCell([&](std::int32_t) { return Variant(text); });
        std::printf("memory\ttext of %zu characters\t%.1f bytes more\n", length, bytes - number);
    }
}

} // namespace bench
