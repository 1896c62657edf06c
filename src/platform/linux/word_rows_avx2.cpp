// The same changes of words as the plain ones, eight words at once.

#include "platform/linux/word_rows.h"

#ifdef __x86_64__

#include <immintrin.h>

#define WITH_VECTORS __attribute__((target("avx2")))

#include "platform/linux/word_changes.h"

namespace platform::driver {

namespace {

constexpr unsigned full = 255;
constexpr unsigned half = 128;

struct EightWords {
    using Words = __m256i;
    static constexpr std::ptrdiff_t wordsAtOnce = 8;

    /// The compiler keeps the words in a register: it would load them again for each use, and loads are what
    /// the cheaper changes wait for.
    WITH_VECTORS Words operator()(const std::uint32_t* words) const {
        Words loaded = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(words));
        asm("" : "+x"(loaded));
        return loaded;
    }
    WITH_VECTORS static void store(std::uint32_t* words, Words values) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(words), values);
    }
};

constexpr std::ptrdiff_t wordsAtOnce = EightWords::wordsAtOnce;

/// Sixteen products of bytes and factors up to 255, divided by 255 to the nearest.
WITH_VECTORS inline __m256i dividedBy255(__m256i products) {
    const __m256i sums = _mm256_add_epi16(products, _mm256_set1_epi16(128));
    return _mm256_mulhi_epu16(sums, _mm256_set1_epi16(257));
}

/// Each byte of words times a factor up to 255, which stands twice in each word, divided by 255 to the
/// nearest.
WITH_VECTORS inline __m256i scaled(__m256i words, __m256i factors) {
    const __m256i even = _mm256_and_si256(words, _mm256_set1_epi16(full));
    const __m256i odd = _mm256_srli_epi16(words, 8);
    return _mm256_or_si256(dividedBy255(_mm256_mullo_epi16(even, factors)),
                           _mm256_slli_epi16(dividedBy255(_mm256_mullo_epi16(odd, factors)), 8));
}

struct Copy {
    using Vectors = EightWords;

    WITH_VECTORS __m256i operator()(__m256i, __m256i source) const { return source; }
};

/// Mixes source and target with one multiplication for both. It takes factors without sign and bytes with
/// one: the bytes lie 128 too low in it, and the sums, whose factors make 255 together, 255 times as much.
struct ConstantBlend {
    using Vectors = EightWords;
    unsigned alpha;

    WITH_VECTORS __m256i operator()(__m256i target, __m256i source) const {
        const __m256i lowered = _mm256_set1_epi8(-128);
        const __m256i to = _mm256_xor_si256(target, lowered);
        const __m256i from = _mm256_xor_si256(source, lowered);
        return _mm256_packus_epi16(mixed(_mm256_unpacklo_epi8(from, to)),
                                   mixed(_mm256_unpackhi_epi8(from, to)));
    }

private:
    WITH_VECTORS __m256i mixed(__m256i pairs) const {
        const __m256i factors = _mm256_set1_epi16(static_cast<short>((full - alpha) << 8 | alpha));
        const __m256i raised = _mm256_set1_epi16(128 * full);
        return dividedBy255(_mm256_add_epi16(_mm256_maddubs_epi16(factors, pairs), raised));
    }
};

/// The mix by 128 of 255, which comes to the middle of both; where that is not whole, to its neighbour on the
/// side of the source.
struct HalfBlend {
    using Vectors = EightWords;

    WITH_VECTORS __m256i operator()(__m256i target, __m256i source) const {
        // The average rounds up: of a higher target's bytes one less is taken.
        const __m256i less = _mm256_subs_epu8(target, _mm256_set1_epi8(1));
        return _mm256_avg_epu8(source, _mm256_max_epu8(less, _mm256_min_epu8(target, source)));
    }
};

/// Puts words over others by their own alpha.
struct AlphaBlend {
    using Vectors = EightWords;

    WITH_VECTORS __m256i operator()(__m256i target, __m256i source) const {
        const __m256i alphas = _mm256_shuffle_epi8(
            source, _mm256_setr_epi8(3, -1, 3, -1, 7, -1, 7, -1, 11, -1, 11, -1, 15, -1, 15, -1, //
                                     3, -1, 3, -1, 7, -1, 7, -1, 11, -1, 11, -1, 15, -1, 15, -1));
        const __m256i under = _mm256_sub_epi16(_mm256_set1_epi16(full), alphas);
        return _mm256_add_epi32(source, scaled(target, under));
    }
};

struct ScaledAlphaBlend {
    using Vectors = EightWords;
    unsigned alpha;

    WITH_VECTORS __m256i operator()(__m256i target, __m256i source) const {
        return AlphaBlend()(target, scaled(source, _mm256_set1_epi16(static_cast<short>(alpha))));
    }
};

/// Puts words over others, of which bytes are left times what stands in the words' shares.
struct SharesBlend {
    using Vectors = EightWords;
    std::ptrdiff_t toShares;

    template <class Load>
    WITH_VECTORS __m256i operator()(const Load& load, const std::uint32_t* under,
                                    const std::uint32_t* over) const {
        const __m256i target = load(under), shares = load(over + toShares);
        const __m256i highBytes = _mm256_set1_epi16(static_cast<short>(0xFF00));
        const __m256i even = rounded(_mm256_mulhi_epu16(_mm256_slli_epi16(target, 8), shares));
        const __m256i odd = rounded(_mm256_mulhi_epu16(_mm256_and_si256(target, highBytes), shares));
        const __m256i left = _mm256_or_si256(_mm256_srli_epi16(even, 8), _mm256_and_si256(odd, highBytes));
        return _mm256_add_epi32(load(over), left);
    }

private:
    /// So that the higher bytes are the nearest to the products.
    WITH_VECTORS static __m256i rounded(__m256i products) {
        return _mm256_add_epi16(products, _mm256_set1_epi16(128));
    }
};

struct OpaqueCopy {
    using Vectors = EightWords;
    std::uint32_t transparent;

    WITH_VECTORS __m256i operator()(__m256i target, __m256i source) const {
        const __m256i color = _mm256_set1_epi32(static_cast<int>(transparent << 8));
        const __m256i isTransparent = _mm256_cmpeq_epi32(_mm256_slli_epi32(source, 8), color);
        return _mm256_blendv_epi8(source, target, isTransparent);
    }
};

struct ColorCopy {
    using Vectors = EightWords;
    std::uint32_t leftOut;

    WITH_VECTORS __m256i operator()(__m256i target, __m256i source) const {
        const __m256i isLeftOut = _mm256_cmpeq_epi32(source, _mm256_set1_epi32(static_cast<int>(leftOut)));
        return _mm256_and_si256(_mm256_blendv_epi8(source, target, isLeftOut), _mm256_set1_epi32(0xFFFFFF));
    }
};

WITH_VECTORS void copy(const WordBlocks& blocks) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.copy(blocks);
    } else {
        changeWords(blocks, Copy());
    }
}

WITH_VECTORS void blendConstant(const WordBlocks& blocks, unsigned alpha) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.blendConstant(blocks, alpha);
    } else if (alpha == half) {
        changeWords(blocks, HalfBlend());
    } else {
        changeWords(blocks, ConstantBlend{alpha});
    }
}

WITH_VECTORS void blendAlpha(const WordBlocks& blocks, unsigned alpha) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.blendAlpha(blocks, alpha);
    } else if (alpha == full) {
        changeWords(blocks, AlphaBlend());
    } else {
        changeWords(blocks, ScaledAlphaBlend{alpha});
    }
}

WITH_VECTORS void blendShares(const WordBlocks& blocks, std::ptrdiff_t toShares) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.blendShares(blocks, toShares);
    } else {
        changeWords(blocks, SharesBlend{toShares});
    }
}

WITH_VECTORS void copyOpaque(const WordBlocks& blocks, std::uint32_t transparent) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.copyOpaque(blocks, transparent);
    } else {
        changeWords(blocks, OpaqueCopy{transparent});
    }
}

/// Eight times one value for all rows, and for each row its own.
struct SameValue {
    __m256i words;

    WITH_VECTORS __m256i at(int) const { return words; }
};

struct ValuesOfRows {
    const std::uint32_t* values;

    WITH_VECTORS __m256i at(int row) const { return _mm256_set1_epi32(static_cast<int>(values[row])); }
};

/// Rows of so many vectors.
template <int vectors, class Values>
WITH_VECTORS inline void fillNarrow(std::uint32_t* row, std::ptrdiff_t stride, int width, int height,
                                    const Values& values) {
    std::uint32_t* last = row + width - wordsAtOnce;
    for (int y = 0; y < height; ++y, row += stride, last += stride) {
        const __m256i words = values.at(y);
        for (int i = 0; i < vectors - 1; ++i)
            EightWords::store(row + i * wordsAtOnce, words);
        EightWords::store(last, words);
    }
}

template <class Values>
WITH_VECTORS inline void fillWide(std::uint32_t* row, std::ptrdiff_t stride, int width, int height,
                                  const Values& values) {
    for (int y = 0; y < height; ++y, row += stride) {
        const __m256i words = values.at(y);
        std::uint32_t* const last = row + width - wordsAtOnce;
        EightWords::store(row, words);
        for (std::uint32_t* at = row + wordsToLine<EightWords>(row); at < last; at += wordsAtOnce)
            EightWords::store(at, words);
        EightWords::store(last, words);
    }
}

template <class Values>
WITH_VECTORS inline void fillWith(std::uint32_t* first, std::ptrdiff_t stride, int width, int height,
                                  const Values& values) {
    switch (vectorsOf<EightWords>(width)) {
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

WITH_VECTORS void fill(std::uint32_t* first, std::ptrdiff_t stride, int width, int height,
                       std::uint32_t value) {
    if (width < wordsAtOnce) {
        plainWordRows.fill(first, stride, width, height, value);
    } else {
        fillWith(first, stride, width, height, SameValue{_mm256_set1_epi32(static_cast<int>(value))});
    }
}

WITH_VECTORS void fillRows(std::uint32_t* first, std::ptrdiff_t stride, int width, int height,
                           const std::uint32_t* values) {
    if (width < wordsAtOnce) {
        plainWordRows.fillRows(first, stride, width, height, values);
    } else {
        fillWith(first, stride, width, height, ValuesOfRows{values});
    }
}

/// Fewer words than a vector has: two halves of one, or two quarters, that may overlap.
WITH_VECTORS inline void fillFew(std::uint32_t* first, int width, __m128i words) {
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

WITH_VECTORS void fillSpans(const WordSpan* spans, int count, std::uint32_t value) {
    const __m256i words = _mm256_set1_epi32(static_cast<int>(value));
    for (; count > 0; --count, ++spans) {
        if (spans->width < wordsAtOnce) {
            fillFew(spans->first, spans->width, _mm256_castsi256_si128(words));
            continue;
        }
        std::uint32_t* const last = spans->first + spans->width - wordsAtOnce;
        for (std::uint32_t* at = spans->first; at < last; at += wordsAtOnce)
            EightWords::store(at, words);
        EightWords::store(last, words);
    }
}

WITH_VECTORS void copyColors(const WordBlocks& blocks, std::uint32_t leftOut) {
    if (blocks.width < wordsAtOnce) {
        plainWordRows.copyColors(blocks, leftOut);
    } else {
        changeWords(blocks, ColorCopy{leftOut});
    }
}

constexpr WordRows avx2Rows{copy,       blendConstant, blendAlpha, blendShares, copyOpaque,
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
