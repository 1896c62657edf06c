// Rows in order.

#include "data/cMatriz.h"

#include "automation/Conversions.h"
#include "automation/Strings.h"
#include "data/cell_order.h"
#include "data/column_keys.h"
#include "data/row_order.h"

#include <algorithm>
#include <array>
#include <exception>
#include <numeric>
#include <vector>

namespace tesela {

using automation::String;
using automation::Variant;

namespace {

/// The key of the slow sort. A text column is ordered by capitals; Null counts as "" or 0; what does not
/// convert is Empty.
Variant slowKey(const Variant& cell, bool isText) {
    if (!isText) return cell.isNull() ? Variant(0) : cell;
    if (cell.isNull()) return String();
    try {
        return automation::UCase(automation::CStr(cell));
    } catch (const automation::Error&) {
        return {};
    }
}

using Order = std::vector<std::int32_t>;

/// Compares each place with each later one and exchanges what stands the wrong way round.
template <class Precedes>
void exchangeSort(Order& order, Precedes precedes) {
    for (std::size_t i = 0; i < order.size(); ++i)
        for (std::size_t j = i + 1; j < order.size(); ++j)
            if (precedes(order[j], order[i])) std::swap(order[i], order[j]);
}

/// The place of each value among all, from 0; equal values have the same.
template <class Precedes>
std::vector<std::int32_t> ranksOf(Order order, Precedes precedes) {
    std::sort(order.begin(), order.end(), precedes);
    std::vector<std::int32_t> ranks(order.size());
    std::int32_t rank = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && precedes(order[i - 1], order[i])) ++rank;
        ranks[static_cast<std::size_t>(order[i])] = rank;
    }
    return ranks;
}

/// The rows of one rank that were met so far, in the order that the exchanges have given them, as a ring:
/// `last` is the last one, `next` of each row the one that follows it, of the last the first.
struct Peers {
    std::int32_t last = -1, count = 0;
    std::int32_t lesser = 0; ///< Rows of lower rank that were met when it was last put in order
};

/// Moves as many rows from the front of the ring to its end as rows of lower rank were met since.
void turn(Peers& peers, std::int32_t lesser, const std::vector<std::int32_t>& next) {
    const std::int32_t turns = peers.count == 0 ? 0 : (lesser - peers.lesser) % peers.count;
    for (std::int32_t i = 0; i < turns; ++i)
        peers.last = next[static_cast<std::size_t>(peers.last)];
    peers.lesser = lesser;
}

/// Counts of ranks, and how many there are below one.
class RankCounts {
public:
    explicit RankCounts(std::size_t ranks) : sums_(ranks + 1) {}
    void add(std::int32_t rank) {
        for (std::size_t i = static_cast<std::size_t>(rank) + 1; i < sums_.size(); i += i & (~i + 1))
            ++sums_[i];
    }
    std::int32_t below(std::int32_t rank) const {
        std::int32_t sum = 0;
        for (auto i = static_cast<std::size_t>(rank); i > 0; i -= i & (~i + 1))
            sum += sums_[i];
        return sum;
    }

private:
    std::vector<std::int32_t> sums_; ///< Each of as many counts as its number's lowest bit says
};

/// The order to which the exchanges of `exchangeSort` lead, equal keys included, without making them. They
/// come to the same as putting row after row behind its peers among those before it, where each row turns
/// the peers of every higher rank by one: their first becomes their last.
Order orderByRank(const std::vector<std::int32_t>& ranks) {
    std::vector<Peers> peers(ranks.size());
    std::vector<std::int32_t> next(ranks.size());
    RankCounts met(ranks.size());
    for (std::size_t i = 0; i < ranks.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i);
        Peers& own = peers[static_cast<std::size_t>(ranks[i])];
        turn(own, met.below(ranks[i]), next);
        next[i] = row;
        if (own.count++ > 0) std::swap(next[i], next[static_cast<std::size_t>(own.last)]);
        own.last = row;
        met.add(ranks[i]);
    }
    Order order;
    order.reserve(ranks.size());
    for (std::size_t rank = 0; order.size() < ranks.size(); ++rank) {
        turn(peers[rank], static_cast<std::int32_t>(order.size()), next);
        for (std::int32_t i = 0, row = peers[rank].last; i < peers[rank].count; ++i) {
            row = next[static_cast<std::size_t>(row)];
            order.push_back(row);
        }
    }
    return order;
}

/// Merges ever longer runs. It comes to its end whatever the comparisons say.
template <class Precedes>
void mergeSort(Order& order, Precedes precedes) {
    Order merged(order.size());
    for (std::size_t run = 1; run < order.size(); run *= 2) {
        for (std::size_t start = 0; start < order.size(); start += 2 * run) {
            const std::size_t middle = std::min(start + run, order.size());
            const std::size_t end = std::min(middle + run, order.size());
            std::size_t left = start, right = middle;
            for (std::size_t place = start; place < end; ++place) {
                const bool takeRight = left == middle || (right < end && precedes(order[right], order[left]));
                merged[place] = takeRight ? order[right++] : order[left++];
            }
        }
        order.swap(merged);
    }
}

} // namespace

bool cMatriz::QSort(std::int32_t nCol1, std::int32_t nModoCol1, std::int32_t nCol2, std::int32_t nModoCol2,
                    std::int32_t nCol3, std::int32_t nModoCol3, std::int32_t nCol4, std::int32_t nModoCol4,
                    std::int32_t nCol5, std::int32_t nModoCol5) {
    const std::array<SortKey, 5> given{{{colPlace(nCol1), nModoCol1},
                                        {colPlace(nCol2), nModoCol2},
                                        {colPlace(nCol3), nModoCol3},
                                        {colPlace(nCol4), nModoCol4},
                                        {colPlace(nCol5), nModoCol5}}};
    const bool areThere = std::all_of(given.begin(), given.end(), [](const SortKey& key) {
        return key.mode == tslMatriz_Sort_Unsorted || key.col >= 0;
    });
    const auto end = std::find_if(given.begin(), given.end(),
                                  [](const SortKey& key) { return key.mode == tslMatriz_Sort_Unsorted; });
    if (!areThere || end == given.begin() || nRowCount < 2) return false;
    return sortRows({given.begin(), end});
}

/// Sorts by the keys unless a sort has failed before; whether it succeeded.
bool cMatriz::sortRows(std::span<const SortKey> keys) {
    if (lSortFailed) return false;
    try {
        Order order;
        lSortFailed = !orderRows(cells, nRowCount, nRowBase, keys, lTextCompare, order);
        if (!permute(order)) lSortFailed = true;
    } catch (const std::exception&) {
        lSortFailed = true;
    }
    return !lSortFailed;
}

/// Puts the rows into an order; false if there are not as many any more.
bool cMatriz::permute(std::span<std::int32_t> order) {
    if (static_cast<std::int64_t>(order.size()) != nRowCount) return false;
    cells.permuteRows(order);
    return true;
}

void cMatriz::SortOnColumn(std::int32_t nColumn, bool lAscending, bool lUseQuickSort) {
    const std::int64_t col = nColumn == FirstSortColumn ? (lDimensioned ? 0 : -1) : colPlace(nColumn);
    if (col < 0 || nRowCount < 2) return;
    const SortKey key{col, lAscending ? tslMatriz_Sort_Ascending : tslMatriz_Sort_Descending};
    if (lUseQuickSort && sortRows({&key, 1})) return;
    if (col >= nColCount) return;
    try {
        sortSlowly(col, lAscending);
    } catch (const std::exception&) {
        // The rows stay as they are.
    }
}

void cMatriz::sortSlowly(std::int64_t col, bool lAscending) {
    constexpr std::size_t fewRows = 4000; // so many are exchanged in no time
    const bool isText = cells.at(col, 0).isString();
    std::vector<Variant> keys;
    keys.reserve(static_cast<std::size_t>(nRowCount));
    for (std::int32_t row = 0; row < nRowCount && col < nColCount; ++row) {
        const Variant cell = cells.at(col, row);
        keys.push_back(slowKey(cell, isText));
    }
    const auto precedes = [&](std::int32_t a, std::int32_t b) {
        const int order =
            compareCells(keys[static_cast<std::size_t>(b)], keys[static_cast<std::size_t>(a)], lTextCompare);
        return lAscending ? order > 0 : order < 0;
    };
    Order order(keys.size());
    std::iota(order.begin(), order.end(), 0);
    const ColumnTraits traits = traitsOf({keys.data(), 1, keys.size()});
    if (traits.kind != ColumnKind::Mixed && !traits.hasNull) {
        order = orderByRank(ranksOf(std::move(order), precedes));
    } else if (order.size() <= fewRows) {
        exchangeSort(order, precedes);
    } else {
        mergeSort(order, precedes); // values of several kinds; equal ones keep their order
    }
    permute(order);
}

} // namespace tesela
