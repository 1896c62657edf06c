// All kinds of word rows against the plain formula, for every width around the number of words that are
// changed at once.

#include "platform/linux/word_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

using namespace platform::driver;

namespace {

constexpr int widest = 136; ///< Words: some vectors of either size between the ends
constexpr int stride = widest + 8;
constexpr int rows = 5;
constexpr unsigned full = 255;

/// Words in which all bytes vary, the same in each run.
std::vector<std::uint32_t> words(std::uint32_t seed) {
    std::vector<std::uint32_t> result(stride * rows);
    for (std::uint32_t& word : result) {
        seed = seed * 1664525u + 1013904223u;
        word = seed ^ seed >> 15;
    }
    return result;
}

/// The target's words after a change of its middle rows from the second word on.
template <class Change>
std::vector<std::uint32_t> changed(int width, Change change) {
    std::vector<std::uint32_t> target = words(1);
    const std::vector<std::uint32_t> source = words(2);
    change(WordBlocks{target.data() + stride + 1, stride, source.data() + 3, stride, width, rows - 2});
    return target;
}

/// The same change word by word.
template <class Formula>
std::vector<std::uint32_t> expected(int width, Formula formula) {
    return changed(width, [&](WordBlocks blocks) {
        for (int y = 0; y < blocks.height; ++y, blocks.nextRow())
            for (int x = 0; x < blocks.width; ++x)
                blocks.target[x] = formula(blocks.target[x], blocks.source[x]);
    });
}

/// What `mix` makes of the four bytes of two words.
template <class Mix>
std::uint32_t bytewise(std::uint32_t a, std::uint32_t b, Mix mix) {
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8)
        result |= static_cast<std::uint32_t>(mix(a >> shift & full, b >> shift & full)) << shift;
    return result;
}

std::uint32_t divided(std::uint32_t product) {
    return (product + full / 2) / full;
}

/// All that this processor can do.
std::vector<const WordRows*> kinds() {
    std::vector<const WordRows*> result{&plainWordRows};
    for (const WordRows* kind : {avx2WordRows(), avx512WordRows()})
        if (kind) result.push_back(kind);
    return result;
}

class WordRowsTest : public testing::TestWithParam<const WordRows*> {};

} // namespace

TEST_P(WordRowsTest, CopiesWhatLiesInTheRectangle) {
    for (int width = 0; width <= widest; ++width) {
        const auto copy = [&](WordBlocks blocks) { GetParam()->copy(blocks); };
        const auto formula = [](std::uint32_t, std::uint32_t from) { return from; };
        ASSERT_EQ(changed(width, copy), expected(width, formula)) << width << " words";
    }
}

TEST_P(WordRowsTest, BlendsBothByOneAlphaToTheNearest) {
    for (int width = 0; width <= widest; ++width)
        for (const unsigned alpha : {0u, 1u, 77u, 127u, 128u, 254u, 255u}) {
            const auto over = [&](WordBlocks blocks) { GetParam()->blendConstant(blocks, alpha); };
            const auto formula = [&](std::uint32_t to, std::uint32_t from) {
                return bytewise(to, from, [&](std::uint32_t t, std::uint32_t s) {
                    return divided(s * alpha + t * (full - alpha));
                });
            };
            ASSERT_EQ(changed(width, over), expected(width, formula)) << width << " words, alpha " << alpha;
        }
}

TEST_P(WordRowsTest, BlendsEveryPairOfBytesByEveryAlpha) {
    std::vector<std::uint32_t> source(256);
    for (std::uint32_t value = 0; value < 256; ++value)
        source[value] = value * 0x01010101u;
    for (unsigned alpha = 0; alpha <= full; ++alpha)
        for (std::uint32_t under = 0; under <= full; ++under) {
            std::vector<std::uint32_t> target(256, under * 0x01010101u);
            GetParam()->blendConstant({target.data(), 0, source.data(), 0, 256, 1}, alpha);
            for (std::uint32_t value = 0; value < 256; ++value)
                ASSERT_EQ(target[value], divided(value * alpha + under * (full - alpha)) * 0x01010101u)
                    << value << " over " << under << " by " << alpha;
        }
}

TEST_P(WordRowsTest, BlendsEachWordByItsOwnAlpha) {
    for (int width = 0; width <= widest; ++width)
        for (const unsigned alpha : {0u, 1u, 128u, 255u}) {
            const auto over = [&](WordBlocks blocks) { GetParam()->blendAlpha(blocks, alpha); };
            const auto formula = [&](std::uint32_t to, std::uint32_t from) {
                const auto scaled = [](std::uint32_t word, std::uint32_t factor) {
                    return bytewise(
                        word, 0, [&](std::uint32_t byte, std::uint32_t) { return divided(byte * factor); });
                };
                const std::uint32_t weighed = scaled(from, alpha);
                return weighed + scaled(to, full - (weighed >> 24));
            };
            ASSERT_EQ(changed(width, over), expected(width, formula)) << width << " words, alpha " << alpha;
        }
}

TEST_P(WordRowsTest, BlendsByWhatEachWordLeaves) {
    for (int width = 0; width <= widest; ++width) {
        std::vector<std::uint32_t> source = words(2);
        const auto below = static_cast<std::ptrdiff_t>(source.size());
        source.resize(2 * source.size());
        std::transform(source.begin(), source.begin() + below, source.begin() + below, shareLeftBy);
        const auto by = [&](auto blend) {
            return changed(width, [&](WordBlocks blocks) {
                blocks.source = source.data() + 3;
                blend(blocks);
            });
        };
        ASSERT_EQ(by([&](const WordBlocks& blocks) { GetParam()->blendShares(blocks, below); }),
                  by([](const WordBlocks& blocks) { plainWordRows.blendAlpha(blocks, full); }))
            << width << " words";
    }
}

TEST_P(WordRowsTest, LeavesOfEveryByteWhatEveryAlphaLeaves) {
    for (std::uint32_t alpha = 0; alpha <= full; ++alpha) {
        std::vector<std::uint32_t> target(256), source(2 * 256, alpha << 24), left(256);
        std::fill(source.begin() + 256, source.end(), shareLeftBy(alpha << 24));
        for (std::uint32_t value = 0; value < 256; ++value) {
            target[value] = value * 0x01010101u;
            left[value] = divided(value * (full - alpha)) * 0x01010101u + (alpha << 24);
        }
        GetParam()->blendShares({target.data(), 256, source.data(), 256, 256, 1}, 256);
        ASSERT_EQ(target, left) << "alpha " << alpha;
    }
}

TEST_P(WordRowsTest, CopiesWhatIsNotOfTheTransparentColourWhateverItsHighestByte) {
    for (int width = 0; width <= widest; ++width)
        for (const std::uint32_t word : {words(2)[4], words(2)[9]}) {
            const std::uint32_t transparent = word & 0xFFFFFF;
            const auto copy = [&](WordBlocks blocks) { GetParam()->copyOpaque(blocks, transparent); };
            const auto formula = [&](std::uint32_t to, std::uint32_t from) {
                return (from & 0xFFFFFF) == transparent ? to : from;
            };
            ASSERT_EQ(changed(width, copy), expected(width, formula)) << width << " words";
        }
}

TEST_P(WordRowsTest, FillsEveryWidth) {
    for (int width = 0; width <= widest; ++width) {
        const auto fill = [](WordBlocks blocks) {
            GetParam()->fill(blocks.target, blocks.targetStride, blocks.width, blocks.height, 0x12345678);
        };
        const auto formula = [](std::uint32_t, std::uint32_t) { return 0x12345678u; };
        ASSERT_EQ(changed(width, fill), expected(width, formula)) << width << " words";
    }
}

TEST_P(WordRowsTest, FillsEveryRowWithItsOwnValue) {
    const std::vector<std::uint32_t> values = words(3);
    for (int width = 0; width <= widest; ++width) {
        const auto fill = [&](WordBlocks blocks) {
            GetParam()->fillRows(blocks.target, blocks.targetStride, blocks.width, blocks.height,
                                 values.data());
        };
        const std::vector<std::uint32_t> result = changed(width, fill);
        std::vector<std::uint32_t> target = words(1);
        for (int y = 1; y < rows - 1; ++y)
            for (int x = 1; x <= width; ++x)
                target[static_cast<std::size_t>(y * stride + x)] = values[static_cast<std::size_t>(y - 1)];
        ASSERT_EQ(result, target) << width << " words";
    }
}

TEST_P(WordRowsTest, FillsSpans) {
    for (int width = 1; width <= widest; ++width) {
        const auto fill = [&](WordBlocks blocks) {
            const WordSpan spans[] = {{blocks.target, width}, {blocks.target + blocks.targetStride, 1}};
            GetParam()->fillSpans(spans, 2, 0x12345678);
        };
        std::vector<std::uint32_t> target = words(1);
        const auto first = target.begin() + stride + 1;
        std::fill(first, first + width, 0x12345678u);
        first[stride] = 0x12345678u;
        ASSERT_EQ(changed(width, fill), target) << width << " words";
    }
}

TEST_P(WordRowsTest, CopiesTheColoursOfAllWordsButOne) {
    for (int width = 0; width <= widest; ++width)
        for (const std::uint32_t leftOut : {words(2)[4], words(2)[9]}) {
            const auto copy = [&](WordBlocks blocks) { GetParam()->copyColors(blocks, leftOut); };
            const auto formula = [&](std::uint32_t to, std::uint32_t from) {
                return (from == leftOut ? to : from) & 0xFFFFFF;
            };
            ASSERT_EQ(changed(width, copy), expected(width, formula)) << width << " words";
        }
}

/// All changes of words by others.
template <class Check>
void forEachChange(const WordRows& kind, Check check) {
    check([&](const WordBlocks& b) { kind.copy(b); });
    check([&](const WordBlocks& b) { kind.blendConstant(b, 128); });
    check([&](const WordBlocks& b) { kind.blendConstant(b, 77); });
    check([&](const WordBlocks& b) { kind.blendAlpha(b, 255); });
    check([&](const WordBlocks& b) { kind.blendAlpha(b, 77); });
    check([&](const WordBlocks& b) { kind.copyOpaque(b, 0x123456); });
    check([&](const WordBlocks& b) { kind.copyColors(b, 0x123456); });
}

TEST_P(WordRowsTest, ReachesRowsFarApartAndFromBelow) {
    constexpr int farApart = 600, mostRows = 5, sourceStride = 150;
    std::vector<std::uint32_t> source(sourceStride * mostRows);
    std::ranges::generate(source, [seed = 7u]() mutable { return seed = seed * 1664525u + 1013904223u; });
    for (const int targetStride : {farApart, -farApart})
        for (int height = 0; height <= mostRows; ++height)
            for (const int width : {1, 7, 8, 15, 16, 17, 24, 33, 48, 64, 65, 100, widest}) {
                std::vector<std::vector<std::uint32_t>> results;
                const auto keep = [&](auto change) {
                    std::vector<std::uint32_t> target(farApart * mostRows, 0x40506070);
                    std::uint32_t* const first =
                        target.data() + (targetStride > 0 ? 0 : farApart * (mostRows - 1));
                    change(WordBlocks{first + 3, targetStride, source.data(), sourceStride, width, height});
                    results.push_back(std::move(target));
                };
                forEachChange(plainWordRows, keep);
                const auto plain = std::exchange(results, {});
                forEachChange(*GetParam(), keep);
                ASSERT_EQ(results, plain) << width << " by " << height;
            }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, WordRowsTest, testing::ValuesIn(kinds()));
