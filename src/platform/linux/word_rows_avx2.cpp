// The same changes of words as the plain ones, eight words at once.

#include "platform/linux/word_rows.h"

#ifdef __x86_64__

#include <immintrin.h>

// The program is compiled for every processor of its kind, these functions for those that have AVX2.
#define WITH_AVX2 __attribute__((target("avx2")))

namespace platform::driver {

namespace {

constexpr int wordsAtOnce = 8;
constexpr unsigned full = 255;

WITH_AVX2 inline __m256i load(const std::uint32_t* words) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(words));
}

WITH_AVX2 inline void store(std::uint32_t* words, __m256i values) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(words), values);
}

/// Gives words what `change` makes of them and the source's. Rows have at least as many words as are changed
/// at once. The last ones of a row are worked out first and stored last, for others may overlap them.
template <class Change>
WITH_AVX2 inline void changeRow(std::uint32_t* target, const std::uint32_t* source, int width,
                                const Change& change) {
    const int last = width - wordsAtOnce;
    const __m256i end = change(load(target + last), load(source + last));
    for (int x = 0; x < last; x += wordsAtOnce)
        store(target + x, change(load(target + x), load(source + x)));
    store(target + last, end);
}

/// Rows of the target are asked for before they are needed: in large pictures they lie on different pages,
/// and the processor does not foresee where a narrow rectangle goes on.
template <class Change>
WITH_AVX2 inline void changeWords(WordBlocks blocks, const Change& change) {
    constexpr int rowsAhead = 2;
    constexpr int wordsOfCacheLine = 16;
    for (; blocks.height > 0; --blocks.height, blocks.nextRow()) {
        const std::uint32_t* const ahead = blocks.target + rowsAhead * blocks.targetStride;
        for (int x = 0; blocks.height > rowsAhead && x < blocks.width; x += wordsOfCacheLine)
            __builtin_prefetch(ahead + x, 1);
        changeRow(blocks.target, blocks.source, blocks.width, change);
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
    WITH_AVX2 __m256i operator()(__m256i, __m256i source) const { return source; }
};

/// Mixes source and target with one multiplication for both. It takes factors without sign and bytes with
/// one: the bytes lie 128 too low in it, and the sums, whose factors make 255 together, 255 times as much.
struct ConstantBlend {
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

/// Puts words over others by their own alpha.
struct AlphaBlend {
    WITH_AVX2 __m256i operator()(__m256i target, __m256i source) const {
        const __m256i alphas = _mm256_shuffle_epi8(
            source, _mm256_setr_epi8(3, -1, 3, -1, 7, -1, 7, -1, 11, -1, 11, -1, 15, -1, 15, -1, //
                                     3, -1, 3, -1, 7, -1, 7, -1, 11, -1, 11, -1, 15, -1, 15, -1));
        const __m256i under = _mm256_sub_epi16(_mm256_set1_epi16(full), alphas);
        return _mm256_add_epi32(source, scaled(target, under));
    }
};

struct ScaledAlphaBlend {
    unsigned alpha;

    WITH_AVX2 __m256i operator()(__m256i target, __m256i source) const {
        return AlphaBlend()(target, scaled(source, _mm256_set1_epi16(static_cast<short>(alpha))));
    }
};

struct OpaqueCopy {
    std::uint32_t transparent;

    WITH_AVX2 __m256i operator()(__m256i target, __m256i source) const {
        const __m256i color = _mm256_set1_epi32(static_cast<int>(transparent << 8));
        const __m256i isTransparent = _mm256_cmpeq_epi32(_mm256_slli_epi32(source, 8), color);
        return _mm256_blendv_epi8(source, target, isTransparent);
    }
};

struct ColorCopy {
    std::uint32_t leftOut;

    WITH_AVX2 __m256i operator()(__m256i target, __m256i source) const {
        const __m256i isLeftOut = _mm256_cmpeq_epi32(source, _mm256_set1_epi32(static_cast<int>(leftOut)));
        return _mm256_and_si256(_mm256_blendv_epi8(source, target, isLeftOut), _mm256_set1_epi32(0xFFFFFF));
    }
};

WITH_AVX2 void copy(const WordBlocks& blocks) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows().copy(blocks);
    } else {
        changeWords(blocks, Copy());
    }
}

WITH_AVX2 void blendConstant(const WordBlocks& blocks, unsigned alpha) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows().blendConstant(blocks, alpha);
    } else {
        changeWords(blocks, ConstantBlend{alpha});
    }
}

WITH_AVX2 void blendAlpha(const WordBlocks& blocks, unsigned alpha) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows().blendAlpha(blocks, alpha);
    } else if (alpha == full) {
        changeWords(blocks, AlphaBlend());
    } else {
        changeWords(blocks, ScaledAlphaBlend{alpha});
    }
}

WITH_AVX2 void copyOpaque(const WordBlocks& blocks, std::uint32_t transparent) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows().copyOpaque(blocks, transparent);
    } else {
        changeWords(blocks, OpaqueCopy{transparent});
    }
}

/// The last words of a row reach back over what is filled already.
WITH_AVX2 void fill(std::uint32_t* row, std::ptrdiff_t stride, int width, int height, std::uint32_t value) {
    if (width < wordsAtOnce) {
        plainWordRows().fill(row, stride, width, height, value);
        return;
    }
    const __m256i words = _mm256_set1_epi32(static_cast<int>(value));
    for (; height > 0; --height, row += stride) {
        std::uint32_t* const last = row + width - wordsAtOnce;
        for (std::uint32_t* at = row; at < last; at += wordsAtOnce)
            store(at, words);
        store(last, words);
    }
}

WITH_AVX2 void copyColors(const WordBlocks& blocks, std::uint32_t leftOut) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows().copyColors(blocks, leftOut);
    } else {
        changeWords(blocks, ColorCopy{leftOut});
    }
}

constexpr WordRows avx2Rows{copy, blendConstant, blendAlpha, copyOpaque, copyColors, fill};

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
