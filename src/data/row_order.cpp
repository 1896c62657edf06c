#include "data/row_order.h"

#include "data/cell_order.h"
#include "data/column_keys.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <string>
#include <string_view>

namespace tesela {

using automation::Variant;

namespace {

constexpr std::int32_t ascending = 1;
constexpr std::int32_t descending = 2;

/// What compares a row with the pivot: the sign by the first key that tells them apart, and the mode of
/// that key.
struct Decision {
    int order = 0;
    std::int32_t mode = ascending;

    bool stopsUpward() const { return order == 0 || (mode == ascending ? order > 0 : order < 0); }
    bool stopsDownward() const { return order == 0 || (mode != descending ? order < 0 : order > 0); }
};

/// The middle of two rows by their numbers, half to even.
std::int64_t middleOf(std::int64_t low, std::int64_t high, std::int64_t base) {
    const std::int64_t sum = low + high + 2 * base;
    const std::int64_t below = sum >> 1;
    const bool up = (sum & 1) != 0 && (below & 1) != 0;
    return below + (up ? 1 : 0) - base;
}

/// Partitions the entries, and the parts again, with a pivot from the middle. It is the order of rows whose
/// values do not all compare by one measure, such as those beside a Null: what comes out depends on each
/// step. `decide(entry, pivot)` may throw; the entries are then as far as they came. False when it
/// contradicts itself.
template <class Entry, class Decide>
bool partitionSort(std::vector<Entry>& entries, std::int64_t base, Decide decide) {
    struct Range {
        std::int64_t low, high;
    };
    const auto count = static_cast<std::int64_t>(entries.size());
    const auto at = [&](std::int64_t place) -> Entry& { return entries[static_cast<std::size_t>(place)]; };
    std::vector<Range> open{{0, count - 1}};
    while (!open.empty()) {
        const auto [low, high] = open.back();
        open.pop_back();
        std::int64_t i = low, j = high;
        const Entry pivot = at(middleOf(low, high, base));
        do {
            while (i < count && !decide(at(i), pivot).stopsUpward())
                ++i;
            while (j >= 0 && !decide(at(j), pivot).stopsDownward())
                --j;
            if (i == count || j < 0) return false;
            if (i <= j) std::swap(at(i++), at(j--));
        } while (i <= j);
        if (i <= low || j >= high) return false;
        if (i < high) open.push_back({i, high});
        if (low < j) open.push_back({low, j});
    }
    return true;
}

ColumnValues valuesOf(const CellBlock& cells, std::int64_t col, std::int32_t rows) {
    return {&cells.at(col, 0), static_cast<std::size_t>(cells.cols()), static_cast<std::size_t>(rows)};
}

/// Writes the rows of the entries into `order`.
template <class Entry>
void takeOrder(const std::vector<Entry>& entries, std::vector<std::int32_t>& order) {
    std::transform(entries.begin(), entries.end(), order.begin(),
                   [](const Entry& entry) { return entry.row; });
}

/// Runs the partition sort and takes over what it reached, whether it came to its end or not.
template <class Entry, class Decide>
bool orderByPartition(std::vector<Entry>& entries, std::int32_t base, Decide decide,
                      std::vector<std::int32_t>& order) {
    bool isOrdered = false;
    try {
        isOrdered = partitionSort(entries, base, decide);
    } catch (const automation::Error&) {
    }
    takeOrder(entries, order);
    return isOrdered;
}

/// One key of numbers, some of them Null: not a number is neither less nor greater than any.
bool orderByNumbers(const ColumnValues& values, std::int32_t mode, std::int32_t base,
                    std::vector<std::int32_t>& order) {
    struct Entry {
        double number;
        std::int32_t row;
    };
    std::vector<Entry> entries(values.count);
    for (std::size_t row = 0; row < values.count; ++row) {
        const bool isNull = values[row].isNull();
        entries[row] = {isNull ? std::numeric_limits<double>::quiet_NaN() : realOf(values[row]),
                        static_cast<std::int32_t>(row)};
    }
    const auto decide = [mode](const Entry& entry, const Entry& pivot) {
        return Decision{entry.number < pivot.number ? -1 : entry.number > pivot.number ? 1 : 0, mode};
    };
    return orderByPartition(entries, base, decide, order);
}

/// Any keys of any values.
bool orderByValues(const CellBlock& cells, std::span<const SortKey> keys, std::int32_t base, bool collate,
                   std::vector<std::int32_t>& order) {
    struct Entry {
        std::int32_t row;
    };
    // Copies: what a comparison sets off may change the table.
    std::vector<Variant> values;
    values.reserve(order.size() * keys.size());
    std::vector<Entry> entries(order.size());
    for (std::size_t row = 0; row < order.size(); ++row) {
        entries[row].row = static_cast<std::int32_t>(row);
        for (const SortKey& key : keys)
            values.push_back(cells.at(key.col, static_cast<std::int64_t>(row)));
    }
    const auto decide = [&](const Entry& entry, const Entry& pivot) {
        const Variant* a = &values[static_cast<std::size_t>(entry.row) * keys.size()];
        const Variant* b = &values[static_cast<std::size_t>(pivot.row) * keys.size()];
        for (const SortKey& key : keys)
            if (const int c = compareCells(*a++, *b++, collate)) return Decision{c, key.mode};
        return Decision{};
    };
    return orderByPartition(entries, base, decide, order);
}

/// The keys of a row as bytes: the first eight of them at hand, the others in a store.
struct ByteEntry {
    std::uint64_t head = 0;
    std::uint32_t rest = 0; ///< Where the length of the others, and then they, stand in the store
    std::int32_t row = 0;
};

class ByteKeys {
public:
    explicit ByteKeys(std::size_t rows) { entries_.reserve(rows); }

    /// `key` is the whole one of the row.
    void add(std::string_view key, std::int32_t row) {
        ByteEntry entry;
        constexpr std::size_t headLength = sizeof entry.head;
        for (std::size_t i = 0; i < headLength; ++i)
            entry.head = entry.head << 8 | (i < key.size() ? static_cast<std::uint8_t>(key[i]) : 0U);
        entry.row = row;
        if (key.size() > headLength) {
            entry.rest = static_cast<std::uint32_t>(store_.size());
            const auto length = static_cast<std::uint32_t>(key.size() - headLength);
            store_.append(reinterpret_cast<const char*>(&length), sizeof length);
            store_ += key.substr(headLength);
            hasRests_ = true;
        }
        entries_.push_back(entry);
    }

    /// No key begins another, so keys of eight bytes and less are told apart by them.
    void sort() {
        if (hasRests_) {
            std::sort(entries_.begin(), entries_.end(), [this](const ByteEntry& a, const ByteEntry& b) {
                if (a.head != b.head) return a.head < b.head;
                const int order = restOf(a).compare(restOf(b));
                return order != 0 ? order < 0 : a.row < b.row;
            });
        } else {
            std::sort(entries_.begin(), entries_.end(), [](const ByteEntry& a, const ByteEntry& b) {
                return a.head != b.head ? a.head < b.head : a.row < b.row;
            });
        }
    }

    std::size_t storedBytes() const { return store_.size(); }
    const std::vector<ByteEntry>& entries() const { return entries_; }

private:
    std::string_view restOf(const ByteEntry& entry) const {
        std::uint32_t length = 0;
        std::memcpy(&length, store_.data() + entry.rest, sizeof length);
        return {store_.data() + entry.rest + sizeof length, length};
    }

    std::vector<ByteEntry> entries_;
    std::string store_ = std::string(sizeof(std::uint32_t), '\0'); ///< Begins with the rest of short keys
    bool hasRests_ = false;
};

/// Keys of columns of one kind each; false when their bytes are too many.
bool orderByBytes(const std::vector<ColumnValues>& columns, const std::vector<ColumnTraits>& traits,
                  std::span<const SortKey> keys, bool collate, std::vector<std::int32_t>& order) {
    constexpr std::size_t mostBytes = 0x7FFFFFFF;
    const TextOrder textOrder = collate ? TextOrder::Dictionary : TextOrder::Units;
    ByteKeys rows(order.size());
    std::string key;
    for (std::size_t row = 0; row < order.size(); ++row) {
        key.clear();
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const std::size_t from = key.size();
            appendKey(columns[i][row], traits[i].kind, textOrder, key);
            if (keys[i].mode == descending)
                for (std::size_t place = from; place < key.size(); ++place)
                    key[place] = static_cast<char>(~key[place]);
        }
        if (rows.storedBytes() + key.size() > mostBytes) return false;
        rows.add(key, static_cast<std::int32_t>(row));
    }
    rows.sort();
    takeOrder(rows.entries(), order);
    return true;
}

bool isNumber(ColumnKind kind) {
    return kind == ColumnKind::Boolean || kind == ColumnKind::Whole || kind == ColumnKind::Real;
}

} // namespace

bool orderRows(const CellBlock& cells, std::int32_t rows, std::int32_t rowBase, std::span<const SortKey> keys,
               bool collate, std::vector<std::int32_t>& order) {
    order.resize(static_cast<std::size_t>(rows));
    std::iota(order.begin(), order.end(), 0);
    std::vector<ColumnValues> columns;
    std::vector<ColumnTraits> traits;
    bool isByBytes = true;
    for (const SortKey& key : keys) {
        columns.push_back(valuesOf(cells, key.col, rows));
        traits.push_back(traitsOf(columns.back()));
        const bool isKnownMode = key.mode == ascending || key.mode == descending;
        isByBytes &= isKnownMode && traits.back().kind != ColumnKind::Mixed && !traits.back().hasNull;
    }
    if (isByBytes && orderByBytes(columns, traits, keys, collate, order)) return true;
    if (keys.size() == 1 && isNumber(traits[0].kind))
        return orderByNumbers(columns[0], keys[0].mode, rowBase, order);
    return orderByValues(cells, keys, rowBase, collate, order);
}

} // namespace tesela
