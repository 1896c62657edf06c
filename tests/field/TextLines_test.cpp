// Where long texts are broken, and how much of them is measured for it.
#include "field/TextLines.h"

#include "MeasuredText.h"

#include <algorithm>
#include <string>

using automation::String;
using tesela::TextLines;

namespace {

class TextLinesTest : public tests::MeasuredText {
protected:
    void find(std::size_t count, std::int32_t position = 0) { lines.find(count, position, measure()); }
    /// All lines, "|" between them.
    std::u16string broken(const String& text, int letters) {
        lines.take(text, letters * letterWidth);
        find(text.length() + 1);
        return shown(text);
    }
    std::u16string shown(const String& text) const {
        std::u16string result;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (i > 0) result += u'|';
            result += text.view().substr(static_cast<std::size_t>(lines[i].start),
                                         static_cast<std::size_t>(lines[i].length));
        }
        return result;
    }
    /// A text of so many words of nine letters.
    static std::u16string words(int count) {
        std::u16string text;
        for (int i = 0; i < count; ++i)
            text += u"abcdefghi ";
        return text;
    }

    TextLines lines;
};

} // namespace

TEST_F(TextLinesTest, BreaksBehindTheLastBlankThatFits) {
    EXPECT_EQ(u"uno |dos |tres", broken(u"uno dos tres", 6));
    EXPECT_EQ(u"uno dos |tres", broken(u"uno dos tres", 8));
    EXPECT_EQ(u"uno dos tres", broken(u"uno dos tres", 12));
}

TEST_F(TextLinesTest, BreaksAWordThatIsLongerThanALine) {
    EXPECT_EQ(u"abcd|efgh|ij", broken(u"abcdefghij", 4));
}

TEST_F(TextLinesTest, ALineHasACharacterHoweverNarrowItIs) {
    EXPECT_EQ(u"a|b|c", broken(u"abc", 0));
    EXPECT_EQ(u"a|b|c", broken(u"abc", 1));
}

TEST_F(TextLinesTest, AnEmptyTextHasOneLine) {
    EXPECT_EQ(u"", broken(u"", 5));
    EXPECT_EQ(1u, lines.size());
    EXPECT_EQ(0u, lines.at(0));
}

TEST_F(TextLinesTest, TheEndOfALineThatGoesOnIsTheStartOfTheNext) {
    broken(u"uno dos tres", 6);
    EXPECT_EQ(0u, lines.at(3));
    EXPECT_EQ(1u, lines.at(4));
    EXPECT_EQ(2u, lines.at(12));
}

TEST_F(TextLinesTest, NoMoreLinesAreFoundThanAreAskedFor) {
    const String text = words(100);
    lines.take(text, 10 * letterWidth);
    find(3);
    EXPECT_EQ(3u, lines.size());
    find(3, 500);
    EXPECT_EQ(51u, lines.size()) << "to the one that holds the position";
}

TEST_F(TextLinesTest, LinesOfATextThatBeginsAlikeAreKept) {
    std::u16string text = words(50);
    for (const std::size_t at : {499u, 300u, 255u, 250u, 10u, 0u}) {
        broken(text, 25);
        text.insert(at, u"xy");
        lines.take(text, 25 * letterWidth);
        find(text.size() + 1);
        const std::u16string kept = shown(text);
        lines.forget();
        EXPECT_EQ(broken(text, 25), kept) << at;
    }
    while (text.size() > 20) {
        text.resize(text.size() - 7);
        const std::u16string kept = broken(text, 25);
        lines.forget();
        EXPECT_EQ(broken(text, 25), kept);
    }
}

TEST_F(TextLinesTest, BreaksBehindLineFeeds) {
    EXPECT_EQ(u"uno\n|dos|tre|s", broken(u"uno\ndostres", 3));
    EXPECT_EQ(u"uno\n|dos", broken(u"uno\ndos", 3)) << "one that stands where the line is full";
    EXPECT_EQ(u"\n|\n|uno\n|", broken(u"\n\nuno\n", 20)) << "behind the last one there is an empty line";
    const String text = u"uno\r\ndos\n";
    broken(text, 20);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines.shown(0), u"uno") << "line ends don't show";
    EXPECT_EQ(lines.shown(1), u"dos");
    EXPECT_EQ(lines.shown(2), u"");
    EXPECT_EQ(lines.at(4), 0u);
    EXPECT_EQ(lines.at(5), 1u);
    EXPECT_EQ(lines.at(9), 2u);
}

TEST_F(TextLinesTest, ALineFeedThatComesOrGoesBreaksAnew) {
    std::u16string text = u"uno dos tres cuatro";
    for (const std::size_t at : {19u, 12u, 7u, 0u}) {
        broken(text, 8);
        text.insert(at, 1, u'\n');
        const std::u16string kept = broken(text, 8);
        lines.forget();
        EXPECT_EQ(broken(text, 8), kept) << at;
    }
    while (!text.empty()) {
        text.pop_back();
        const std::u16string kept = broken(text, 8);
        lines.forget();
        EXPECT_EQ(broken(text, 8), kept);
    }
}

TEST_F(TextLinesTest, AnotherWidthBreaksAnew) {
    broken(u"uno dos tres", 6);
    EXPECT_EQ(u"uno dos tres", broken(u"uno dos tres", 20));
}

TEST_F(TextLinesTest, AKeyInAMegabyteMeasuresOnlyWhatStandsNearIt) {
    std::u16string text = words(100000);
    constexpr int width = 40 * letterWidth;
    const auto end = [&] { return static_cast<std::int32_t>(text.size()); };
    const auto paint = [&](std::int32_t caret) {
        forgetCounts();
        lines.take(text, width);
        find(5, caret);
    };
    paint(0);
    EXPECT_GE(1, calls) << "the first lines only";
    paint(end());
    EXPECT_GE(1100, calls) << "pieces, not lines";
    EXPECT_GE(1200000u, characters);
    for (int i = 0; i < 3; ++i) {
        text += u'x';
        paint(end());
        EXPECT_GE(2, calls) << "a letter at the end";
        paint(end() - 1);
        EXPECT_EQ(0, calls) << "the caret alone";
    }
    text.insert(text.size() / 2, u"x");
    paint(end() / 2);
    EXPECT_GE(2, calls) << "a letter in the middle";
    text.insert(0, u"x");
    paint(1);
    EXPECT_GE(1, calls) << "a letter at the beginning";
}

TEST_F(TextLinesTest, LinesOfOneLetterAreMeasuredByThePieceToo) {
    const String text(std::u16string(100000, u'x'));
    lines.take(text, 1);
    find(1, 100000);
    EXPECT_EQ(100000u, lines.size());
    EXPECT_GE(100, calls);
}
