#include "automation/String.h"

#include <gtest/gtest.h>

#include <random>
#include <unordered_set>

using automation::String;

namespace {

std::u16string randomText(std::mt19937& random, std::size_t longest) {
    constexpr char16_t alphabet[] = u"aábñÑz 0€";
    constexpr std::size_t letters = sizeof(alphabet) / sizeof(char16_t) - 1;
    std::u16string text;
    for (std::size_t length = random() % (longest + 1); length > 0; --length)
        text.push_back(alphabet[random() % letters]);
    return text;
}

} // namespace

TEST(String, IsOnePointerWide) {
    EXPECT_EQ(sizeof(String), sizeof(void*));
}

TEST(String, IsEmptyWhenMadeOfNothing) {
    EXPECT_TRUE(String().empty());
    EXPECT_TRUE(String(static_cast<const char16_t*>(nullptr)).empty());
    EXPECT_TRUE(String(u"").empty());
    EXPECT_EQ(String().length(), 0u);
    EXPECT_EQ(*String().c_str(), u'\0');
    EXPECT_EQ(String(), u"");
}

TEST(String, KeepsItsTextWhenTheCopyGoes) {
    const String original = u"Sesión";
    {
        const String copy = original;
        EXPECT_EQ(copy.c_str(), original.c_str()) << "a copy shares the characters";
    }
    EXPECT_EQ(original, u"Sesión");
}

TEST(String, SurvivesAssignmentToItself) {
    String text = u"igual";
    const String& same = text;
    text = same;
    EXPECT_EQ(text, u"igual");
}

TEST(String, EndsWithNulAndMayHoldNul) {
    const String text(std::u16string_view(u"a\0b", 3));
    EXPECT_EQ(text.length(), 3u);
    EXPECT_EQ(text.c_str()[3], u'\0');
    EXPECT_NE(text, String(u"a"));
}

TEST(String, ComparesWithOtherFormsOfText) {
    const String text = u"abc";
    EXPECT_EQ(text, u"abc");
    EXPECT_EQ(u"abc", text);
    EXPECT_EQ(text, std::u16string(u"abc"));
    EXPECT_EQ(text, std::u16string_view(u"abc"));
    EXPECT_LT(text, String(u"abd"));
    EXPECT_GT(text, u"ab");
    EXPECT_NE(text, u"ABC");
}

TEST(String, ConvertsToAndFromUtf8) {
    EXPECT_EQ(String::fromUtf8("a\xC3\xB1o \xE2\x82\xAC"), u"año €");
    EXPECT_EQ(String(u"año €").utf8(), "a\xC3\xB1o \xE2\x82\xAC");
}

TEST(String, ConvertsToAndFromAnsi) {
    EXPECT_EQ(String::fromAnsi("a\xF1o \x80"), u"año €");
    EXPECT_EQ(String(u"año €").ansi(), "a\xF1o \x80");
}

TEST(String, RepeatsAUnit) {
    EXPECT_EQ(String::repeat(u'x', 3), u"xxx");
    EXPECT_TRUE(String::repeat(u'x', 0).empty());
}

TEST(String, HashesByItsText) {
    std::unordered_set<String> names{u"uno", u"dos"};
    EXPECT_TRUE(names.count(String(std::u16string(u"u") + u"no")) == 1);
}

TEST(String, BehavesAsAStandardStringOnRandomTexts) {
    std::mt19937 random(20240615);
    for (int round = 0; round < 3000; ++round) {
        const std::u16string a = randomText(random, 12);
        const std::u16string b = randomText(random, 4);
        const String text(a);
        const std::size_t start = random() % 14;
        const std::size_t count = random() % 14;
        EXPECT_EQ(text.string(), a);
        EXPECT_EQ(text.length(), a.size());
        EXPECT_EQ((text + String(b)).string(), a + b);
        EXPECT_EQ((text + b).string(), a + b);
        EXPECT_EQ((b + text).string(), b + a);
        EXPECT_EQ(text.substring(start, count).string(), start < a.size() ? a.substr(start, count) : u"");
        EXPECT_EQ(text.right(count).string(), a.substr(a.size() - std::min(count, a.size())));
        EXPECT_EQ(text.left(count).string(), a.substr(0, count));
        EXPECT_EQ(text.find(b, start), a.find(b, start));
        EXPECT_EQ(text.compare(b) < 0, a < b);
        EXPECT_EQ(text == String(b), a == b);
    }
}

TEST(String, ReplacesAllOccurrencesFromTheLeft) {
    EXPECT_EQ(String(u"aaa").replaced(u"aa", u"b"), u"ba");
    EXPECT_EQ(String(u"d/M/yy").replaced(u"M", u"MM"), u"d/MM/yy");
    EXPECT_EQ(String(u"abc").replaced(u"", u"x"), u"abc");
    EXPECT_EQ(String(u"abc").replaced(u"abc", u""), u"");
}
