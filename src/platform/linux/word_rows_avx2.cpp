// The same changes of words as the plain ones, eight words at once.

#include "platform/linux/word_rows.h"

#ifdef __x86_64__

#include <cstdlib>
#include <immintrin.h>

// The program is compiled for every processor of its kind, these functions for those that have AVX2.
#define WITH_AVX2 __attribute__((target("avx2")))

namespace platform::driver {

namespace {

constexpr std::ptrdiff_t wordsAtOnce = 8;
constexpr unsigned full = 255;
constexpr unsigned half = 128;

WITH_AVX2 inline __m256i load(const std::uint32_t* words) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(words));
}

WITH_AVX2 inline void store(std::uint32_t* words, __m256i values) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(words), values);
}

/// The same words, which the compiler keeps in a register from here on: it would load them again for each
/// use, and loads are what the cheaper changes wait for.
WITH_AVX2 inline __m256i loaded(__m256i words) {
    asm("" : "+x"(words));
    return words;
}

/// Vectors of a row. The last one ends with the row and may reach back over words of the one before.
constexpr std::ptrdiff_t vectorsOf(int width) {
    return (width + wordsAtOnce - 1) / wordsAtOnce;
}

/// Words of a row up to the first that lies at a multiple of a vector's size; a whole vector if that is the
/// row's first.
inline std::ptrdiff_t wordsToLine(const std::uint32_t* row) {
    const std::uintptr_t number = reinterpret_cast<std::uintptr_t>(row) / sizeof *row;
    return wordsAtOnce - static_cast<std::ptrdiff_t>(number % wordsAtOnce);
}

/// Gives words what `change` makes of them and the source's, in rows of so many vectors: all of a row is
/// worked out before any of it is stored.
template <int vectors, class Change>
WITH_AVX2 inline void changeNarrow(WordBlocks blocks, const Change& change) {
    const std::ptrdiff_t last = blocks.width - wordsAtOnce;
    for (; blocks.height > 0; --blocks.height, blocks.nextRow()) {
        __m256i changed[vectors];
        for (int i = 0; i < vectors; ++i) {
            const std::ptrdiff_t x = i == vectors - 1 ? last : i * wordsAtOnce;
            changed[i] = change(load(blocks.target + x), load(blocks.source + x));
        }
        for (int i = 0; i < vectors - 1; ++i)
            store(blocks.target + i * wordsAtOnce, changed[i]);
        store(blocks.target + last, changed[vectors - 1]);
    }
}

template <class Change>
WITH_AVX2 inline void changeVector(const WordBlocks& blocks, std::ptrdiff_t x, const Change& change) {
    store(blocks.target + x, change(load(blocks.target + x), load(blocks.source + x)));
}

/// The same in wider rows. What is stored between the ends lies in line with the processor's memory, two
/// vectors a turn, as the turns themselves cost a copy a third of its time; both ends, which others may
/// overlap, are worked out first and stored last. Rows that lie on different pages are asked for before they
/// are needed: the processor does not foresee where a narrow rectangle goes on.
template <class Change>
WITH_AVX2 inline void changeWide(WordBlocks blocks, const Change& change) {
    constexpr int rowsAhead = 2;
    constexpr int wordsOfCacheLine = 16;
    constexpr std::ptrdiff_t wordsOfPage = 1024;
    const bool asksAhead = Change::readsTarget && std::abs(blocks.targetStride) >= wordsOfPage / 2;
    const std::ptrdiff_t last = blocks.width - wordsAtOnce;
    for (; blocks.height > 0; --blocks.height, blocks.nextRow()) {
        const std::uint32_t* const ahead = blocks.target + rowsAhead * blocks.targetStride;
        for (int x = 0; asksAhead && blocks.height > rowsAhead && x < blocks.width; x += wordsOfCacheLine)
            __builtin_prefetch(ahead + x, 1);
        const __m256i start = change(load(blocks.target), load(blocks.source));
        const __m256i end = change(load(blocks.target + last), load(blocks.source + last));
        std::ptrdiff_t x = wordsToLine(blocks.target);
        for (; x + wordsAtOnce < last; x += 2 * wordsAtOnce) {
            changeVector(blocks, x, change);
            changeVector(blocks, x + wordsAtOnce, change);
        }
        if (x < last) changeVector(blocks, x, change);
        store(blocks.target, start);
        store(blocks.target + last, end);
    }
}

/// The same in rows of a vector or more.
template <class Change>
WITH_AVX2 inline void changeWords(const WordBlocks& blocks, const Change& change) {
    switch (vectorsOf(blocks.width)) {
    case 1:
        return changeNarrow<1>(blocks, change);
    case 2:
        return changeNarrow<2>(blocks, change);
    case 3:
        return changeNarrow<3>(blocks, change);
    case 4:
        return changeNarrow<4>(blocks, change);
    default:
        return changeWide(blocks, change);
    }
}

/// Sixteen products of bytes and factors up to 255, divided by 255 to the nearest.
WITH_AVX2 inline __m256i dividedBy255(__m256i products) {
    const __m256i sums = _mm256_add_epi16(products, _mm256_set1_epi16(128));
    return _mm256_mulhi_epu16(sums, _mm256_set1_epi16(257));
}

/// Each byte of words times a factor up to 255, which stands twice in each word, divided by 255 to the
/// nearest.
WITH_AVX2 inline __m256i scaled(__m256i words, __m256i factors) {
    const __m256i even = _mm256_and_si256(words, _mm256_set1_epi16(full));
    const __m256i odd = _mm256_srli_epi16(words, 8);
    return _mm256_or_si256(dividedBy255(_mm256_mullo_epi16(even, factors)),
                           _mm256_slli_epi16(dividedBy255(_mm256_mullo_epi16(odd, factors)), 8));
}

struct Copy {
    static constexpr bool readsTarget = false;

    WITH_AVX2 __m256i operator()(__m256i, __m256i source) const { return source; }
};

/// Mixes source and target with one multiplication for both. It takes factors without sign and bytes with
/// one: the bytes lie 128 too low in it, and the sums, whose factors make 255 together, 255 times as much.
struct ConstantBlend {
    static constexpr bool readsTarget = true;
    unsigned alpha;

    WITH_AVX2 __m256i operator()(__m256i target, __m256i source) const {
        const __m256i lowered = _mm256_set1_epi8(-128);
        const __m256i to = _mm256_xor_si256(target, lowered);
        const __m256i from = _mm256_xor_si256(source, lowered);
        return _mm256_packus_epi16(mixed(_mm256_unpacklo_epi8(from, to)),
                                   mixed(_mm256_unpackhi_epi8(from, to)));
    }

private:
    WITH_AVX2 __m256i mixed(__m256i pairs) const {
        const __m256i factors = _mm256_set1_epi16(static_cast<short>((full - alpha) << 8 | alpha));
        const __m256i raised = _mm256_set1_epi16(128 * full);
        return dividedBy255(_mm256_add_epi16(_mm256_maddubs_epi16(factors, pairs), raised));
    }
};

/// The mix by 128 of 255, which comes to the middle of both; where that is not whole, to its neighbour on the
/// side of the source.
struct HalfBlend {
    static constexpr bool readsTarget = true;

    WITH_AVX2 __m256i operator()(__m256i target, __m256i source) const {
        // The average rounds up: of a higher target's bytes one less is taken.
        const __m256i less = _mm256_subs_epu8(target, _mm256_set1_epi8(1));
        return _mm256_avg_epu8(source, _mm256_max_epu8(less, _mm256_min_epu8(target, source)));
    }
};

/// Puts words over others by their own alpha.
struct AlphaBlend {
    static constexpr bool readsTarget = true;

    WITH_AVX2 __m256i operator()(__m256i target, __m256i source) const {
        const __m256i alphas = _mm256_shuffle_epi8(
            source, _mm256_setr_epi8(3, -1, 3, -1, 7, -1, 7, -1, 11, -1, 11, -1, 15, -1, 15, -1, //
                                     3, -1, 3, -1, 7, -1, 7, -1, 11, -1, 11, -1, 15, -1, 15, -1));
        const __m256i under = _mm256_sub_epi16(_mm256_set1_epi16(full), alphas);
        return _mm256_add_epi32(source, scaled(target, under));
    }
};

struct ScaledAlphaBlend {
    static constexpr bool readsTarget = true;
    unsigned alpha;

    WITH_AVX2 __m256i operator()(__m256i target, __m256i source) const {
        return AlphaBlend()(target, scaled(source, _mm256_set1_epi16(static_cast<short>(alpha))));
    }
};

struct OpaqueCopy {
    static constexpr bool readsTarget = true;
    std::uint32_t transparent;

    WITH_AVX2 __m256i operator()(__m256i target, __m256i words) const {
        const __m256i source = loaded(words);
        const __m256i color = _mm256_set1_epi32(static_cast<int>(transparent << 8));
        const __m256i isTransparent = _mm256_cmpeq_epi32(_mm256_slli_epi32(source, 8), color);
        return _mm256_blendv_epi8(source, target, isTransparent);
    }
};

struct ColorCopy {
    static constexpr bool readsTarget = true;
    std::uint32_t leftOut;

    WITH_AVX2 __m256i operator()(__m256i target, __m256i words) const {
        const __m256i source = loaded(words);
        const __m256i isLeftOut = _mm256_cmpeq_epi32(source, _mm256_set1_epi32(static_cast<int>(leftOut)));
        return _mm256_and_si256(_mm256_blendv_epi8(source, target, isLeftOut), _mm256_set1_epi32(0xFFFFFF));
    }
};

WITH_AVX2 void copy(const WordBlocks& blocks) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.copy(blocks);
    } else {
        changeWords(blocks, Copy());
    }
}

WITH_AVX2 void blendConstant(const WordBlocks& blocks, unsigned alpha) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.blendConstant(blocks, alpha);
    } else if (alpha == half) {
        changeWords(blocks, HalfBlend());
    } else {
        changeWords(blocks, ConstantBlend{alpha});
    }
}

WITH_AVX2 void blendAlpha(const WordBlocks& blocks, unsigned alpha) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.blendAlpha(blocks, alpha);
    } else if (alpha == full) {
        changeWords(blocks, AlphaBlend());
    } else {
        changeWords(blocks, ScaledAlphaBlend{alpha});
    }
}

WITH_AVX2 void copyOpaque(const WordBlocks& blocks, std::uint32_t transparent) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.copyOpaque(blocks, transparent);
    } else {
        changeWords(blocks, OpaqueCopy{transparent});
    }
}

/// Eight times one value for all rows, and for each row its own.
struct SameValue {
    __m256i words;

    WITH_AVX2 __m256i at(int) const { return words; }
};

struct ValuesOfRows {
    const std::uint32_t* values;

    WITH_AVX2 __m256i at(int row) const { return _mm256_set1_epi32(static_cast<int>(values[row])); }
};

/// Rows of so many vectors.
template <int vectors, class Values>
WITH_AVX2 inline void fillNarrow(std::uint32_t* row, std::ptrdiff_t stride, int width, int height,
                                 const Values& values) {
    std::uint32_t* last = row + width - wordsAtOnce;
    for (int y = 0; y < height; ++y, row += stride, last += stride) {
        const __m256i words = values.at(y);
        for (int i = 0; i < vectors - 1; ++i)
            store(row + i * wordsAtOnce, words);
        store(last, words);
    }
}

template <class Values>
WITH_AVX2 inline void fillWide(std::uint32_t* row, std::ptrdiff_t stride, int width, int height,
                               const Values& values) {
    for (int y = 0; y < height; ++y, row += stride) {
        const __m256i words = values.at(y);
        std::uint32_t* const last = row + width - wordsAtOnce;
        store(row, words);
        for (std::uint32_t* at = row + wordsToLine(row); at < last; at += wordsAtOnce)
            store(at, words);
        store(last, words);
    }
}

template <class Values>
WITH_AVX2 inline void fillWith(std::uint32_t* first, std::ptrdiff_t stride, int width, int height,
                               const Values& values) {
    switch (vectorsOf(width)) {
    case 1:
        return fillNarrow<1>(first, stride, width, height, values);
    case 2:
        return fillNarrow<2>(first, stride, width, height, values);
    case 3:
        return fillNarrow<3>(first, stride, width, height, values);
    default:
        return fillWide(first, stride, width, height, values);
    }
}

WITH_AVX2 void fill(std::uint32_t* first, std::ptrdiff_t stride, int width, int height, std::uint32_t value) {
    if (width < wordsAtOnce) {
        plainWordRows.fill(first, stride, width, height, value);
    } else {
        fillWith(first, stride, width, height, SameValue{_mm256_set1_epi32(static_cast<int>(value))});
    }
}

WITH_AVX2 void fillRows(std::uint32_t* first, std::ptrdiff_t stride, int width, int height,
                        const std::uint32_t* values) {
    if (width < wordsAtOnce) {
        plainWordRows.fillRows(first, stride, width, height, values);
    } else {
        fillWith(first, stride, width, height, ValuesOfRows{values});
    }
}

/// Fewer words than a vector has: two halves of one, or two quarters, that may overlap.
WITH_AVX2 inline void fillFew(std::uint32_t* first, int width, __m128i words) {
    constexpr int wordsOfHalf = 4;
    constexpr int wordsOfQuarter = 2;
    if (width >= wordsOfHalf) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(first), words);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(first + width - wordsOfHalf), words);
    } else if (width >= wordsOfQuarter) {
        _mm_storeu_si64(first, words);
        _mm_storeu_si64(first + width - wordsOfQuarter, words);
    } else {
        _mm_storeu_si32(first, words);
    }
}

WITH_AVX2 void fillSpans(const WordSpan* spans, int count, std::uint32_t value) {
    const __m256i words = _mm256_set1_epi32(static_cast<int>(value));
    for (; count > 0; --count, ++spans) {
        if (spans->width < wordsAtOnce) {
            fillFew(spans->first, spans->width, _mm256_castsi256_si128(words));
            continue;
        }
        std::uint32_t* const last = spans->first + spans->width - wordsAtOnce;
        for (std::uint32_t* at = spans->first; at < last; at += wordsAtOnce)
            store(at, words);
        store(last, words);
    }
}

WITH_AVX2 void copyColors(const WordBlocks& blocks, std::uint32_t leftOut) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.copyColors(blocks, leftOut);
    } else {
        changeWords(blocks, ColorCopy{leftOut});
    }
}

constexpr WordRows avx2Rows{copy,       blendConstant, blendAlpha, copyOpaque,
                            copyColors, fill,          fillRows,   fillSpans};

} // namespace

const WordRows* avx2WordRows() {
    return __builtin_cpu_supports("avx2") ? &avx2Rows : nullptr;
}

} // namespace platform::driver

#else

namespace platform::driver {

const WordRows* avx2WordRows() {
    return nullptr;
}

} // namespace platform::driver

#endif
