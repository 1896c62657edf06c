// The changes of words that are quicker by sixteen words at once; the others are those of eight.

#include "platform/linux/word_rows.h"

#ifdef __x86_64__

#include <immintrin.h>

#define WITH_VECTORS __attribute__((target("avx512f,avx512bw")))

#include "platform/linux/word_changes.h"

namespace platform::driver {

namespace {

struct SixteenWords {
    using Words = __m512i;
    static constexpr std::ptrdiff_t wordsAtOnce = 16;

    /// The compiler keeps the words in a register: it would load them again for each use.
    WITH_VECTORS Words operator()(const std::uint32_t* words) const {
        Words loaded = _mm512_loadu_si512(words);
        asm("" : "+v"(loaded));
        return loaded;
    }
    WITH_VECTORS static void store(std::uint32_t* words, Words values) { _mm512_storeu_si512(words, values); }
};

/// Loads fewer words than a vector has, zeros for the others.
struct FewWords {
    __mmask16 inside;

    WITH_VECTORS __m512i operator()(const std::uint32_t* words) const {
        return _mm512_maskz_loadu_epi32(inside, words);
    }
};

constexpr unsigned full = 255;

/// 32 products of bytes and factors up to 255, divided by 255 to the nearest.
WITH_VECTORS inline __m512i dividedBy255(__m512i products) {
    const __m512i sums = _mm512_add_epi16(products, _mm512_set1_epi16(128));
    return _mm512_mulhi_epu16(sums, _mm512_set1_epi16(257));
}

/// Each byte of words times a factor up to 255, which stands twice in each word, divided by 255 to the
/// nearest.
WITH_VECTORS inline __m512i scaled(__m512i words, __m512i factors) {
    const __m512i even = _mm512_and_si512(words, _mm512_set1_epi16(full));
    const __m512i odd = _mm512_srli_epi16(words, 8);
    const __m512i moved = _mm512_set4_epi32(0x0E0E0C0C, 0x0A0A0808, 0x06060404, 0x02020000);
    constexpr __mmask64 oddBytes = 0xAAAAAAAAAAAAAAAA;
    return _mm512_mask_shuffle_epi8(dividedBy255(_mm512_mullo_epi16(even, factors)), oddBytes,
                                    dividedBy255(_mm512_mullo_epi16(odd, factors)), moved);
}

struct Copy {
    using Vectors = SixteenWords;

    WITH_VECTORS __m512i operator()(__m512i, __m512i source) const { return source; }
};

/// Puts words over others by their own alpha: what the alpha takes of the target goes, the source comes.
struct AlphaBlend {
    using Vectors = SixteenWords;

    WITH_VECTORS __m512i operator()(__m512i target, __m512i source) const {
        constexpr int none = static_cast<int>(0x80008000);
        const __m512i alphas = _mm512_shuffle_epi8(
            source, _mm512_set4_epi32(none | 0x0F000F, none | 0x0B000B, none | 0x070007, none | 0x030003));
        return _mm512_sub_epi32(_mm512_add_epi32(source, target), scaled(target, alphas));
    }
};

struct ScaledAlphaBlend {
    using Vectors = SixteenWords;
    unsigned alpha;

    WITH_VECTORS __m512i operator()(__m512i target, __m512i source) const {
        return AlphaBlend()(target, scaled(source, _mm512_set1_epi16(static_cast<short>(alpha))));
    }
};

constexpr int colorBits = 0xFFFFFF;

/// Puts words over others, of which bytes are left times what stands in the words' shares.
struct SharesBlend {
    using Vectors = SixteenWords;
    std::ptrdiff_t toShares;

    template <class Load>
    WITH_VECTORS __m512i operator()(const Load& load, const std::uint32_t* under,
                                    const std::uint32_t* over) const {
        const __m512i target = load(under), shares = load(over + toShares);
        const __m512i even = rounded(_mm512_mulhi_epu16(_mm512_slli_epi16(target, 8), shares));
        const __m512i odd =
            rounded(_mm512_mulhi_epu16(_mm512_and_si512(target, _mm512_set1_epi16(highByte)), shares));
        const __m512i moved = _mm512_set4_epi32(0x0F0F0D0D, 0x0B0B0909, 0x07070505, 0x03030101);
        constexpr __mmask64 evenBytes = 0x5555555555555555;
        return _mm512_add_epi32(load(over), _mm512_mask_shuffle_epi8(odd, evenBytes, even, moved));
    }

private:
    static constexpr short highByte = static_cast<short>(0xFF00);

    /// So that the higher bytes are the nearest to the products.
    WITH_VECTORS static __m512i rounded(__m512i products) {
        return _mm512_add_epi16(products, _mm512_set1_epi16(128));
    }
};

struct OpaqueCopy {
    using Vectors = SixteenWords;
    std::uint32_t transparent;

    WITH_VECTORS __m512i operator()(__m512i target, __m512i source) const {
        const __m512i color = _mm512_set1_epi32(static_cast<int>(transparent));
        const __mmask16 isOpaque =
            _mm512_test_epi32_mask(_mm512_xor_si512(source, color), _mm512_set1_epi32(colorBits));
        return _mm512_mask_mov_epi32(target, isOpaque, source);
    }
};

struct ColorCopy {
    using Vectors = SixteenWords;
    std::uint32_t leftOut;

    WITH_VECTORS __m512i operator()(__m512i target, __m512i source) const {
        const __m512i colors = _mm512_set1_epi32(colorBits);
        const __mmask16 isTaken =
            _mm512_cmpneq_epi32_mask(source, _mm512_set1_epi32(static_cast<int>(leftOut)));
        return _mm512_mask_and_epi32(_mm512_and_si512(target, colors), isTaken, source, colors);
    }
};

/// The same in rows of any width: of those narrower than a vector only the words are touched that they have.
template <class Change>
WITH_VECTORS inline void changeAll(WordBlocks blocks, const Change& change) {
    if (blocks.width >= SixteenWords::wordsAtOnce) return changeWords(blocks, change);
    const auto inside = static_cast<__mmask16>((1u << blocks.width) - 1);
    for (; blocks.height > 0; --blocks.height, blocks.nextRow()) {
        const __m512i changed = changedBy(change, FewWords{inside}, blocks.target, blocks.source);
        _mm512_mask_storeu_epi32(blocks.target, inside, changed);
    }
}

WITH_VECTORS void copy(const WordBlocks& blocks) {
    changeAll(blocks, Copy());
}

WITH_VECTORS void blendAlpha(const WordBlocks& blocks, unsigned alpha) {
    if (alpha == full) {
        changeAll(blocks, AlphaBlend());
    } else {
        changeAll(blocks, ScaledAlphaBlend{alpha});
    }
}

WITH_VECTORS void blendShares(const WordBlocks& blocks, std::ptrdiff_t toShares) {
    changeAll(blocks, SharesBlend{toShares});
}

WITH_VECTORS void copyOpaque(const WordBlocks& blocks, std::uint32_t transparent) {
    changeAll(blocks, OpaqueCopy{transparent});
}

WITH_VECTORS void copyColors(const WordBlocks& blocks, std::uint32_t leftOut) {
    changeAll(blocks, ColorCopy{leftOut});
}

WordRows rows() {
    WordRows result = *avx2WordRows();
    result.copy = copy;
    result.blendAlpha = blendAlpha;
    result.blendShares = blendShares;
    result.copyOpaque = copyOpaque;
    result.copyColors = copyColors;
    return result;
}

} // namespace

const WordRows* avx512WordRows() {
    // Processors with VBMI2 run such vectors at their full clock, the first ones with AVX-512 did not.
    if (!avx2WordRows() || !__builtin_cpu_supports("avx512bw") || !__builtin_cpu_supports("avx512vbmi2"))
        return nullptr;
    static const WordRows avx512Rows = rows();
    return &avx512Rows;
}

} // namespace platform::driver

#else

namespace platform::driver {

const WordRows* avx512WordRows() {
    return nullptr;
}

} // namespace platform::driver

#endif
