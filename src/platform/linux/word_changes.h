#pragma once
// How rectangles of words are gone through in vectors, for the files that have vectors of one size each. Such
// a file says first what its functions are compiled for, as WITH_VECTORS; the program itself is compiled for
// every processor of its kind.
//
// A `Vectors` is a type of that file with the words of a vector, `wordsAtOnce`, their type `Words`, a call
// that loads them from an address, and `store`. A `Change` makes of a vector of the target and one of the
// source what the target gets, and names its `Vectors`; one that takes more is given what loads vectors and
// the two addresses. That these types are the file's own keeps what is compiled for one processor out of the
// others' code.

#include "platform/linux/word_rows.h"

#include <cstdint>
#include <cstdlib>

namespace platform::driver {

/// Vectors of a row. The last one ends with the row and may reach back over words of the one before.
template <class Vectors>
constexpr std::ptrdiff_t vectorsOf(int width) {
    return (width + Vectors::wordsAtOnce - 1) / Vectors::wordsAtOnce;
}

/// Words of a row up to the first that lies at a multiple of a vector's size; a whole vector if that is the
/// row's first.
template <class Vectors>
inline std::ptrdiff_t wordsToLine(const std::uint32_t* row) {
    const std::uintptr_t number = reinterpret_cast<std::uintptr_t>(row) / sizeof *row;
    return Vectors::wordsAtOnce - static_cast<std::ptrdiff_t>(number % Vectors::wordsAtOnce);
}

/// What a change makes of the words at two addresses.
template <class Change, class Load>
WITH_VECTORS inline auto changedBy(const Change& change, const Load& load, const std::uint32_t* under,
                                   const std::uint32_t* over) {
    using Words = typename Change::Vectors::Words;
    if constexpr (requires(Words words) { change(words, words); })
        return change(load(under), load(over));
    else
        return change(load, under, over);
}

/// Gives the words of so many rows what `change` makes of them and the source's: all is worked out before any
/// of it is stored, as the vectors of a row may overlap and the processor holds back what it loads near to
/// what was just stored.
template <int vectors, int rows, class Change>
WITH_VECTORS inline void changeRows(const WordBlocks& blocks, const Change& change) {
    using Vectors = typename Change::Vectors;
    const std::ptrdiff_t last = blocks.width - Vectors::wordsAtOnce;
    const auto at = [last](int vector) {
        return vector == vectors - 1 ? last : vector * Vectors::wordsAtOnce;
    };
    typename Vectors::Words changed[rows][vectors];
    for (int row = 0; row < rows; ++row)
        for (int i = 0; i < vectors; ++i)
            changed[row][i] = changedBy(change, Vectors(), blocks.target + row * blocks.targetStride + at(i),
                                        blocks.source + row * blocks.sourceStride + at(i));
    for (int row = 0; row < rows; ++row)
        for (int i = 0; i < vectors; ++i)
            Vectors::store(blocks.target + row * blocks.targetStride + at(i), changed[row][i]);
}

/// The same in all rows, each of so many vectors.
template <int vectors, class Change>
WITH_VECTORS inline void changeNarrow(WordBlocks blocks, const Change& change) {
    constexpr int rowsAtOnce = vectors > 2 ? 1 : 2;
    for (; blocks.height >= rowsAtOnce; blocks.height -= rowsAtOnce) {
        changeRows<vectors, rowsAtOnce>(blocks, change);
        for (int row = 0; row < rowsAtOnce; ++row)
            blocks.nextRow();
    }
    if (blocks.height > 0) changeRows<vectors, 1>(blocks, change);
}

template <class Change>
WITH_VECTORS inline void changeVector(const WordBlocks& blocks, std::ptrdiff_t x, const Change& change) {
    using Vectors = typename Change::Vectors;
    Vectors::store(blocks.target + x, changedBy(change, Vectors(), blocks.target + x, blocks.source + x));
}

/// The same in wider rows. What is stored between the ends lies in line with the processor's memory, two
/// vectors a turn, as the turns themselves cost a copy a third of its time; both ends, which others may
/// overlap, are worked out first and stored last. Rows that lie on different pages are to be asked for before
/// they are needed: the processor does not foresee where a narrow rectangle goes on.
template <bool asksAhead, class Change>
WITH_VECTORS inline void changeWide(WordBlocks blocks, const Change& change) {
    using Vectors = typename Change::Vectors;
    constexpr std::ptrdiff_t wordsAtOnce = Vectors::wordsAtOnce;
    constexpr int rowsAhead = 2;
    constexpr int wordsOfCacheLine = 16;
    const std::ptrdiff_t last = blocks.width - wordsAtOnce;
    for (; blocks.height > 0; --blocks.height, blocks.nextRow()) {
        const std::uint32_t* const ahead = blocks.target + rowsAhead * blocks.targetStride;
        for (int x = 0; asksAhead && blocks.height > rowsAhead && x < blocks.width; x += wordsOfCacheLine)
            __builtin_prefetch(ahead + x, 1);
        const auto start = changedBy(change, Vectors(), blocks.target, blocks.source);
        const auto end = changedBy(change, Vectors(), blocks.target + last, blocks.source + last);
        std::ptrdiff_t x = wordsToLine<Vectors>(blocks.target);
        for (; x + wordsAtOnce < last; x += 2 * wordsAtOnce) {
            changeVector(blocks, x, change);
            changeVector(blocks, x + wordsAtOnce, change);
        }
        if (x < last) changeVector(blocks, x, change);
        Vectors::store(blocks.target, start);
        Vectors::store(blocks.target + last, end);
    }
}

/// The same in rows of a vector or more.
template <class Change>
WITH_VECTORS inline void changeWords(const WordBlocks& blocks, const Change& change) {
    constexpr std::ptrdiff_t wordsOfPage = 1024;
    switch (vectorsOf<typename Change::Vectors>(blocks.width)) {
    case 1:
        return changeNarrow<1>(blocks, change);
    case 2:
        return changeNarrow<2>(blocks, change);
    case 3:
        return changeNarrow<3>(blocks, change);
    case 4:
        return changeNarrow<4>(blocks, change);
    default:
        return std::abs(blocks.targetStride) < wordsOfPage / 2 ? changeWide<false>(blocks, change)
                                                               : changeWide<true>(blocks, change);
    }
}

} // namespace platform::driver
