#pragma once
// Filling rectangles of 32-bit words and changing them by others, many words at once where the processor can.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cwchar>

namespace platform::driver {

/// A rectangle of words and another of the same size that it takes from. The two do not overlap.
struct WordBlocks {
    std::uint32_t* target;
    std::ptrdiff_t targetStride; ///< Words from one row to the next
    const std::uint32_t* source;
    std::ptrdiff_t sourceStride;
    int width; ///< Words of a row
    int height;

    void nextRow() {
        target += targetStride;
        source += sourceStride;
    }
};

/// Words one after the other, at least one.
struct WordSpan {
    std::uint32_t* first;
    int width;
};

/// What can be done with such rectangles.
struct WordRows {
    void (*copy)(const WordBlocks& blocks);
    /// Mixes all four bytes of the words alike: the source's by `alpha`, up to 255, the target's by the rest,
    /// divided by 255 to the nearest.
    void (*blendConstant)(const WordBlocks& blocks, unsigned alpha);
    /// Puts words over others that show through by what each word's highest byte, its alpha, leaves. The
    /// other bytes are multiplied by it already; all four are first multiplied by `alpha`, up to 255.
    void (*blendAlpha)(const WordBlocks& blocks, unsigned alpha);
    /// The same by 255, with what each word leaves of the target in a second rectangle of the source's kind,
    /// `toShares` words behind it: `shareLeftBy` the word. It is kept for pictures that are blended again and
    /// again.
    void (*blendShares)(const WordBlocks& blocks, std::ptrdiff_t toShares);
    /// Copies the words whose lower three bytes are not those of `transparent`.
    void (*copyOpaque)(const WordBlocks& blocks, std::uint32_t transparent);
    /// Copies the words other than one. The highest byte of all words of the target becomes 0.
    void (*copyColors)(const WordBlocks& blocks, std::uint32_t leftOut);
    /// Sets all words of a rectangle. `stride` counts the words from one row to the next.
    void (*fill)(std::uint32_t* first, std::ptrdiff_t stride, int width, int height, std::uint32_t value);
    /// Sets all words of each row to the row's own value.
    void (*fillRows)(std::uint32_t* first, std::ptrdiff_t stride, int width, int height,
                     const std::uint32_t* values);
    /// Sets all words of spans.
    void (*fillSpans)(const WordSpan* spans, int count, std::uint32_t value);
};

/// What a word leaves of those that it is put over by its alpha, for `blendShares`: twice the same 16 bits, a
/// share of 65,536. A byte times this, its fraction rounded to the nearest, is what it is times what the
/// alpha leaves of 255, divided by 255 to the nearest.
constexpr std::uint32_t shareLeftBy(std::uint32_t word) {
    constexpr std::uint32_t full = 255;
    const std::uint32_t left = full - (word >> 24);
    const std::uint32_t rounded = ((left << 16) + full / 2) / full;
    return std::min(rounded, 0xFFFFu) * 0x10001;
}

/// For every processor.
extern const WordRows plainWordRows;

/// For the one that the program runs on if it has AVX2, null otherwise.
const WordRows* avx2WordRows();
/// The same for AVX-512.
const WordRows* avx512WordRows();

/// Those for this processor from the start of the program on, the plain ones until then.
extern const WordRows* fastestWordRows;
inline const WordRows& wordRows() {
    return *fastestWordRows;
}

/// Sets all words of a rectangle, which may be empty. Rows that follow each other without a gap are one for
/// the C library, whose fill suits areas larger than the processor's memory best.
inline void fillWords(std::uint32_t* first, std::ptrdiff_t stride, int width, int height,
                      std::uint32_t value) {
    if (width <= 0 || height <= 0) return;
    if (stride == width) {
        static_assert(sizeof(wchar_t) == sizeof value);
        std::wmemset(reinterpret_cast<wchar_t*>(first), static_cast<wchar_t>(value),
                     static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    } else {
        wordRows().fill(first, stride, width, height, value);
    }
}

} // namespace platform::driver
