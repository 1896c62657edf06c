#pragma once
// The order of a table's rows by keys.

#include "data/CellBlock.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tesela {

/// A column to sort by, counted from 0; mode 1 is ascending, any other descending.
struct SortKey {
    std::int64_t col = 0;
    std::int32_t mode = 0;
};

/// Orders the first `rows` rows: `order[i]` becomes the row that comes to stand at i. `collate` is that of
/// `compareCells`; `rowBase` is the first row's number, by which the general way chooses its pivots. False
/// when values do not compare: `order` is then what had been reached, each row once.
bool orderRows(const CellBlock& cells, std::int32_t rows, std::int32_t rowBase, std::span<const SortKey> keys,
               bool collate, std::vector<std::int32_t>& order);

} // namespace tesela
