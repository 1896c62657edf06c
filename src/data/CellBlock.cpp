#include "data/CellBlock.h"

#include "platform/memory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace tesela {

using automation::Variant;

namespace {

constexpr std::size_t largeBlock = 4 << 20; // bytes from which on pages by the thousand are to be had
constexpr std::int64_t growthShare = 8;     // one more row is taken beforehand for so many that there are

void* zeroed(std::size_t count, std::size_t size) {
    return CellBlock::allocate ? CellBlock::allocate(count, size) : std::calloc(count, size);
}

void* resized(void* block, std::size_t size) {
    return CellBlock::reallocate ? CellBlock::reallocate(block, size) : std::realloc(block, size);
}

/// Cells as the plain bytes that they are moved as.
void* bytesOf(Variant* cells) {
    return cells;
}

/// Whether nothing happens when the value ends that anybody could notice.
bool endsQuietly(const Variant& cell) {
    return cell.type() <= automation::VT_BSTR || cell.type() == automation::VT_BOOL;
}

void emptyQuietly(Variant& cell) noexcept {
    cell.~Variant();
    new (&cell) Variant();
}

} // namespace

CellBlock::CellBlock(std::int64_t cols, std::int64_t rows) {
    if (cols < 0 || cols > mostCells) automation::throwError(automation::errors::OutOfMemory);
    cols_ = static_cast<std::int32_t>(cols);
    setRows(rows);
}

CellBlock::CellBlock(const CellBlock& other) : CellBlock(other.cols_, other.rows_) {
    const std::size_t count = cellsBefore(rows_);
    for (std::size_t i = 0; i < count; ++i)
        new (cells_ + i) Variant(other.cells_[i]);
}

CellBlock::~CellBlock() {
    std::for_each(cells_, cells_ + cellsBefore(rows_), emptyQuietly);
    std::free(bytesOf(cells_));
}

void CellBlock::swap(CellBlock& other) noexcept {
    std::swap(cells_, other.cells_);
    std::swap(cols_, other.cols_);
    std::swap(rows_, other.rows_);
    std::swap(capacity_, other.capacity_);
}

void CellBlock::setRows(std::int64_t rows) {
    if (rows < 0 || (cols_ != 0 && rows > mostCells / cols_))
        automation::throwError(automation::errors::OutOfMemory);
    if (rows > capacity_) grow(rows);
    const Ending ending = rows < rows_ ? take(rows, rows_ - rows) : Ending();
    rows_ = static_cast<std::int32_t>(rows);
    constexpr std::int32_t mostSpare = 4, fewRows = 32;
    if (capacity_ > rows_ + rows_ / mostSpare + fewRows) trim();
}

void CellBlock::clear() noexcept {
    const Ending ending = take(0, rows_);
    rows_ = std::min(rows_, 1);
    trim();
}

void CellBlock::grow(std::int64_t rows) {
    const bool byMuch = rows / 2 > rows_; // asked for on purpose, and nothing to be added to
    const std::int64_t roomy =
        byMuch ? rows : std::min(rows + rows / growthShare, mostCells / std::max(cols_, 1));
    if (!setCapacity(roomy) && (roomy == rows || !setCapacity(rows)))
        automation::throwError(automation::errors::OutOfMemory);
}

bool CellBlock::setCapacity(std::int64_t rows) noexcept {
    const std::size_t size = std::max(static_cast<std::size_t>(rows) * rowBytes(), sizeof(Variant));
    const std::size_t used = cellsBefore(rows_) * sizeof(Variant);
    // Memory that comes zeroed costs nothing until it is touched: worth it where little is to be copied.
    const bool anew = !cells_ || used < size / 4;
    void* block = anew ? zeroed(size, 1) : resized(bytesOf(cells_), size);
    if (!block) return false;
    if (size >= largeBlock) platform::preferLargePages(block, size);
    if (!anew) {
        if (rows > rows_) std::memset(static_cast<char*>(block) + used, 0, size - used);
    } else if (cells_) {
        std::memcpy(block, bytesOf(cells_), std::min(used, size));
        std::free(bytesOf(cells_));
    }
    cells_ = static_cast<Variant*>(block);
    capacity_ = static_cast<std::int32_t>(rows);
    return true;
}

void CellBlock::trim() noexcept {
    if (capacity_ != rows_) setCapacity(rows_);
}

/// Empties rows. Texts and numbers end at once; where no memory is left to put the end of other values off,
/// they do too.
CellBlock::Ending CellBlock::take(std::int64_t firstRow, std::int64_t count) noexcept {
    Ending ending;
    Variant* const end = row(firstRow + count);
    for (Variant* cell = row(firstRow); cell != end; ++cell) {
        if (!endsQuietly(*cell)) {
            try {
                ending.emplace_back();
                ending.back().swap(*cell);
            } catch (const std::bad_alloc&) {
            }
        }
        emptyQuietly(*cell);
    }
    return ending;
}

CellBlock::Ending CellBlock::openRow(std::int64_t first, std::int64_t last) noexcept {
    if (first >= last) return {};
    Ending ending = take(last, 1);
    std::memmove(bytesOf(row(first + 1)), bytesOf(row(first)),
                 static_cast<std::size_t>(last - first) * rowBytes());
    std::memset(bytesOf(row(first)), 0, rowBytes());
    copyRow(first + 1, first);
    return ending;
}

CellBlock::Ending CellBlock::closeRow(std::int64_t first, std::int64_t last) noexcept {
    Ending ending = take(first, 1);
    std::memmove(bytesOf(row(first)), bytesOf(row(first + 1)),
                 static_cast<std::size_t>(last - first) * rowBytes());
    std::memset(bytesOf(row(last)), 0, rowBytes());
    return ending;
}

void CellBlock::copyRow(std::int64_t from, std::int64_t to) noexcept {
    for (std::int32_t col = 0; col < cols_; ++col)
        new (&at(col, to)) Variant(at(col, from));
}

CellBlock CellBlock::turned(std::int64_t rows) {
    CellBlock result(rows, cols_);
    for (std::int64_t place = 0; place < rows; ++place)
        for (std::int32_t col = 0; col < cols_; ++col)
            std::memcpy(bytesOf(&result.at(place, col)), bytesOf(&at(col, place)), sizeof(Variant));
    std::memset(bytesOf(cells_), 0, static_cast<std::size_t>(rows) * rowBytes());
    return result;
}

void CellBlock::swapRows(std::int64_t a, std::int64_t b) noexcept {
    for (std::int32_t col = 0; col < cols_; ++col)
        at(col, a).swap(at(col, b));
}

void CellBlock::gatherRows(std::span<const std::int32_t> keep) noexcept {
    std::int64_t place = 0;
    for (const std::int32_t row : keep) {
        if (row != place) swapRows(place, row);
        ++place;
    }
}

void CellBlock::permuteRows(std::span<std::int32_t> order) {
    constexpr std::size_t fewCells = 32;
    alignas(Variant) unsigned char few[fewCells * sizeof(Variant)];
    std::vector<unsigned char> many;
    unsigned char* aside = few;
    if (rowBytes() > sizeof few) {
        many.resize(rowBytes());
        aside = many.data();
    }
    // Along each cycle: a row is put aside, the others move up, and it takes the last place.
    for (std::size_t start = 0; start < order.size(); ++start) {
        auto place = static_cast<std::int64_t>(start);
        if (order[start] == place) continue;
        std::memcpy(aside, bytesOf(row(place)), rowBytes());
        while (order[static_cast<std::size_t>(place)] != static_cast<std::int64_t>(start)) {
            const std::int64_t from = order[static_cast<std::size_t>(place)];
            std::memcpy(bytesOf(row(place)), bytesOf(row(from)), rowBytes());
            order[static_cast<std::size_t>(place)] = static_cast<std::int32_t>(place);
            place = from;
        }
        std::memcpy(bytesOf(row(place)), aside, rowBytes());
        order[static_cast<std::size_t>(place)] = static_cast<std::int32_t>(place);
    }
}

} // namespace tesela
