// How far the characters of long texts reach, and how much of them is measured for it.
#include "field/TextReach.h"

#include "MeasuredText.h"

#include <limits>
#include <string>

using tesela::TextReach;

namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

class TextReachTest : public tests::MeasuredText {
protected:
    TextReachTest() : MeasuredText(3) {}

    std::int32_t reach(std::size_t position) { return letters.reach(position, measure()); }
    std::size_t at(std::int32_t x) { return letters.at(x, measure()); }

    TextReach letters;
};

} // namespace

TEST_F(TextReachTest, CharactersReachAsFarAsAllBeforeThem) {
    letters.take(u"aib");
    EXPECT_EQ(reach(0), 0);
    EXPECT_EQ(reach(1), 10);
    EXPECT_EQ(reach(2), 13);
    EXPECT_EQ(reach(3), 23);
    EXPECT_EQ(reach(9), 23);
}

TEST_F(TextReachTest, APlaceHasTheCharactersThatEndBeforeIt) {
    letters.take(u"aib");
    EXPECT_EQ(at(-1), 0u);
    EXPECT_EQ(at(0), 0u);
    EXPECT_EQ(at(9), 0u);
    EXPECT_EQ(at(10), 1u);
    EXPECT_EQ(at(13), 2u);
    EXPECT_EQ(at(22), 2u);
    EXPECT_EQ(at(23), 3u);
    EXPECT_EQ(at(1000), 3u);
    letters.take(u"");
    EXPECT_EQ(at(5), 0u);
    EXPECT_EQ(reach(0), 0);
}

TEST_F(TextReachTest, BlocksAddUpAtTheirEdges) {
    constexpr std::size_t block = TextReach::blockLength;
    const std::u16string text = std::u16string(block, u'a') + std::u16string(block, u'i') + u"b";
    letters.take(text);
    constexpr auto first = static_cast<std::int32_t>(block) * 10;
    constexpr auto second = first + static_cast<std::int32_t>(block) * 3;
    EXPECT_EQ(reach(block), first);
    EXPECT_EQ(reach(block + 1), first + 3);
    EXPECT_EQ(reach(2 * block), second);
    EXPECT_EQ(reach(2 * block + 1), second + 10);
    EXPECT_EQ(at(first - 1), block - 1);
    EXPECT_EQ(at(first), block);
    EXPECT_EQ(at(second), 2 * block);
    EXPECT_EQ(at(second + 9), 2 * block);
    EXPECT_EQ(at(second + 10), 2 * block + 1);
    for (std::size_t position = 0; position <= text.size(); ++position)
        ASSERT_EQ(at(reach(position)), position);
}

TEST_F(TextReachTest, TypingAtTheEndOfAMegabyteMeasuresLittle) {
    std::u16string text(megabyte, u'a');
    letters.take(text);
    EXPECT_EQ(reach(text.size()), static_cast<std::int32_t>(megabyte) * 10);
    forgetCounts();
    for (int key = 1; key <= 10; ++key) {
        text += u'i';
        letters.take(text);
        EXPECT_EQ(reach(text.size()), static_cast<std::int32_t>(megabyte) * 10 + 3 * key);
        EXPECT_EQ(at(static_cast<std::int32_t>(megabyte) * 10 - 5), megabyte - 1);
    }
    EXPECT_LE(calls, 10 * 3);
    EXPECT_LE(characters, 10u * 3 * TextReach::blockLength);
}

TEST_F(TextReachTest, TypingAtTheBeginningOfAMegabyteMeasuresLittle) {
    std::u16string text(megabyte, u'a');
    letters.take(text);
    reach(text.size());
    forgetCounts();
    for (int key = 0; key < 10; ++key) {
        text.insert(text.begin(), u'i');
        letters.take(text);
        reach(static_cast<std::size_t>(key) + 1);
        at(300);
    }
    EXPECT_LE(calls, 10 * 3);
    EXPECT_LE(characters, 10u * 3 * TextReach::blockLength);
}

TEST_F(TextReachTest, WhatStandsBehindAChangeIsMeasuredAnew) {
    constexpr std::size_t block = TextReach::blockLength;
    std::u16string text(3 * block, u'a');
    letters.take(text);
    reach(text.size());
    text[block + 5] = u'i';
    letters.take(text);
    forgetCounts();
    EXPECT_EQ(reach(text.size()), static_cast<std::int32_t>(text.size()) * 10 - 7);
    EXPECT_EQ(characters, 2 * block) << "the first block is known";
    letters.take(text.substr(0, block));
    EXPECT_EQ(reach(block), static_cast<std::int32_t>(block) * 10);
    EXPECT_EQ(at(std::numeric_limits<std::int32_t>::max()), block);
}
