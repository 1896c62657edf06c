#include "platform/linux/word_rows.h"

#include <cstring>
#include <initializer_list>

namespace platform::driver {

namespace {

constexpr std::uint32_t full = 255;
constexpr std::uint32_t evenBytes = 0x00FF00FF;
constexpr std::uint32_t colorBits = 0x00FFFFFF;
constexpr int alphaShift = 24;

/// Two products of bytes and factors up to 255, 16 bits apart, divided by 255 to the nearest.
std::uint32_t dividedBy255(std::uint32_t products) {
    const std::uint32_t sums = products + 0x00800080;
    return (sums + (sums >> 8 & evenBytes)) >> 8 & evenBytes;
}

/// Each byte of a word times a factor up to 255, divided by 255 to the nearest.
std::uint32_t scaled(std::uint32_t word, std::uint32_t factor) {
    return dividedBy255((word & evenBytes) * factor) | dividedBy255((word >> 8 & evenBytes) * factor) << 8;
}

/// Gives the words of a row what `change` makes of them and the source's.
template <class Change>
void changeRow(std::uint32_t* __restrict target, const std::uint32_t* __restrict source, int width,
               Change change) {
    for (int x = 0; x < width; ++x)
        target[x] = change(target[x], source[x]);
}

template <class Change>
void changeWords(WordBlocks blocks, Change change) {
    for (; blocks.height > 0; --blocks.height, blocks.nextRow())
        changeRow(blocks.target, blocks.source, blocks.width, change);
}

void copy(const WordBlocks& blocks) {
    const std::size_t bytes = static_cast<std::size_t>(blocks.width) * sizeof *blocks.target;
    for (WordBlocks rest = blocks; rest.height > 0; --rest.height, rest.nextRow())
        std::memcpy(rest.target, rest.source, bytes);
}

/// Sums stay within 16 bits, so that the compiler mixes many bytes at once.
void blendBytes(std::uint8_t* __restrict target, const std::uint8_t* __restrict source, int count,
                unsigned alpha) {
    const auto over = static_cast<std::uint16_t>(alpha);
    const auto under = static_cast<std::uint16_t>(full - alpha);
    for (int i = 0; i < count; ++i) {
        const auto sum = static_cast<std::uint16_t>(source[i] * over + target[i] * under + 128);
        target[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(sum + (sum >> 8)) >> 8);
    }
}

void blendConstant(const WordBlocks& blocks, unsigned alpha) {
    constexpr int bytesOfWord = 4;
    for (WordBlocks rest = blocks; rest.height > 0; --rest.height, rest.nextRow())
        blendBytes(reinterpret_cast<std::uint8_t*>(rest.target),
                   reinterpret_cast<const std::uint8_t*>(rest.source), rest.width * bytesOfWord, alpha);
}

void blendAlpha(const WordBlocks& blocks, unsigned alpha) {
    changeWords(blocks, [alpha](std::uint32_t to, std::uint32_t from) {
        const std::uint32_t over = alpha == full ? from : scaled(from, alpha);
        return over + scaled(to, full - (over >> alphaShift));
    });
}

/// One word at a time, the alpha itself is as quick as the shares that stand for it.
void blendShares(const WordBlocks& blocks, std::ptrdiff_t) {
    blendAlpha(blocks, full);
}

void copyOpaque(const WordBlocks& blocks, std::uint32_t transparent) {
    changeWords(blocks, [transparent = transparent & colorBits](std::uint32_t to, std::uint32_t from) {
        return (from & colorBits) != transparent ? from : to;
    });
}

/// Four words that may lie at any word's address.
using FourWords __attribute__((vector_size(16), aligned(4), may_alias)) = std::uint32_t;
constexpr int four = 4;

/// Four words at a time; the last four reach back over what is filled already.
void fillByFours(std::uint32_t* row, std::ptrdiff_t stride, int width, int height, std::uint32_t value) {
    const FourWords words = {value, value, value, value};
    for (; height > 0; --height, row += stride) {
        std::uint32_t* const last = row + width - four;
        for (std::uint32_t* at = row; at < last; at += four)
            *reinterpret_cast<FourWords*>(at) = words;
        *reinterpret_cast<FourWords*>(last) = words;
    }
}

void fill(std::uint32_t* first, std::ptrdiff_t stride, int width, int height, std::uint32_t value) {
    if (width >= four) {
        fillByFours(first, stride, width, height, value);
        return;
    }
    for (; height > 0; --height, first += stride)
        for (int x = 0; x < width; ++x)
            first[x] = value;
}

void fillRows(std::uint32_t* first, std::ptrdiff_t stride, int width, int height,
              const std::uint32_t* values) {
    for (int y = 0; y < height; ++y, first += stride)
        fill(first, stride, width, 1, values[y]);
}

void fillSpans(const WordSpan* spans, int count, std::uint32_t value) {
    for (const WordSpan* span = spans; span != spans + count; ++span)
        fill(span->first, 0, span->width, 1, value);
}

void copyColors(const WordBlocks& blocks, std::uint32_t leftOut) {
    changeWords(blocks, [leftOut](std::uint32_t to, std::uint32_t from) {
        return (from != leftOut ? from : to) & colorBits;
    });
}

/// Chooses them when the program starts.
const struct FastestRows {
    FastestRows() {
        for (const WordRows* rows : {avx2WordRows(), avx512WordRows()})
            if (rows) fastestWordRows = rows;
    }
} fastestRows;

} // namespace

constinit const WordRows plainWordRows{copy,       blendConstant, blendAlpha, blendShares, copyOpaque,
                                       copyColors, fill,          fillRows,   fillSpans};

constinit const WordRows* fastestWordRows = &plainWordRows;

} // namespace platform::driver
