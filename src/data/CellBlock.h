#pragma once

#include "automation/Variant.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tesela {

/// The cells of a table in one block of memory, row after row. Rows and columns count from 0. A new cell is
/// Empty, which is all zero bits, and cells are moved by their bits: no kind of value minds that. What the
/// end of an object in a cell sets off finds the block whole.
class CellBlock {
public:
    /// As many cells as an array of the same size can hold.
    static constexpr std::int64_t mostCells = 0x7FFFFFFF / sizeof(automation::Variant);

    CellBlock() noexcept = default;
    /// Error 7 for a negative size, one of more than `mostCells`, or one that memory cannot hold.
    CellBlock(std::int64_t cols, std::int64_t rows);
    CellBlock(const CellBlock& other);
    CellBlock(CellBlock&& other) noexcept { swap(other); }
    CellBlock& operator=(CellBlock other) noexcept {
        swap(other);
        return *this;
    }
    ~CellBlock();
    void swap(CellBlock& other) noexcept;

    std::int32_t cols() const noexcept { return cols_; }
    std::int32_t rows() const noexcept { return rows_; }

    automation::Variant* row(std::int64_t row) noexcept { return cells_ + row * cols_; }
    const automation::Variant* row(std::int64_t row) const noexcept { return cells_ + row * cols_; }
    automation::Variant& at(std::int64_t col, std::int64_t row) noexcept { return this->row(row)[col]; }
    const automation::Variant& at(std::int64_t col, std::int64_t row) const noexcept {
        return this->row(row)[col];
    }

    /// Another number of rows; those that stay are kept and new ones are Empty. Memory grows by more than is
    /// asked for, so that rows may come one by one. Errors as of the constructor: nothing has changed then.
    void setRows(std::int64_t rows);
    /// Gives back what `setRows` took beforehand.
    void trim() noexcept;

    /// Leaves one Empty row.
    void clear() noexcept;

    /// Values that are in no cell any more and whose end may come back to the table: it is put off until the
    /// table is in order.
    using Ending = std::vector<automation::Variant>;

    /// Rows `first` to `last` - 1 move one place down, the row `last` is lost, and the row `first` stays as a
    /// copy.
    [[nodiscard]] Ending openRow(std::int64_t first, std::int64_t last) noexcept;
    /// Rows `first` + 1 to `last` move one place up over the row `first`; the row `last` becomes Empty.
    [[nodiscard]] Ending closeRow(std::int64_t first, std::int64_t last) noexcept;
    /// The row `to` must be Empty.
    void copyRow(std::int64_t from, std::int64_t to) noexcept;
    /// The rows in `keep`, ascending, move to the top in their order; what becomes of the others is open
    /// until they are cleared or cut off.
    void gatherRows(std::span<const std::int32_t> keep) noexcept;
    /// Row i becomes the one that was row `order[i]`; `order` holds each of the first rows once and is used
    /// up.
    void permuteRows(std::span<std::int32_t> order);
    /// The first `rows` rows as columns; they are Empty here afterwards. Error 7 as of the constructor.
    CellBlock turned(std::int64_t rows);

    /// Where the memory comes from; tests put functions here that fail.
    static inline void* (*allocate)(std::size_t count, std::size_t size) = nullptr;
    static inline void* (*reallocate)(void* block, std::size_t size) = nullptr;

private:
    std::size_t cellsBefore(std::int64_t row) const noexcept {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_);
    }
    std::size_t rowBytes() const noexcept { return cellsBefore(1) * sizeof(automation::Variant); }
    Ending take(std::int64_t firstRow, std::int64_t count) noexcept;
    void grow(std::int64_t rows);
    bool setCapacity(std::int64_t rows) noexcept;
    void swapRows(std::int64_t a, std::int64_t b) noexcept;

    automation::Variant* cells_ = nullptr;
    std::int32_t cols_ = 0;
    std::int32_t rows_ = 0;
    std::int32_t capacity_ = 0; ///< Rows that the memory has room for; those from `rows_` on are Empty
};

} // namespace tesela
