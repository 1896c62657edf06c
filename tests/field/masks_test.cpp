#include "field/masks.h"

#include <gtest/gtest.h>

using namespace tesela;

namespace {

std::string filled(std::u16string_view text, std::u16string_view mask) {
    return fillMask(text, mask).utf8();
}

} // namespace

TEST(fillMask, ALiteralThatWasNotTypedIsPutIn) {
    EXPECT_EQ("12/xy", filled(u"12xy", u"##/AA"));
}

TEST(fillMask, ALiteralThatWasTypedIsUsedUp) {
    EXPECT_EQ("12/xy", filled(u"12/xy", u"##/AA"));
}

TEST(fillMask, WhatDoesNotFitBecomesABlankAndIsUsedUp) {
    EXPECT_EQ(" 2/ y", filled(u"a21y", u"##/AA"));
    EXPECT_EQ("1 /  ", filled(u"1", u"##/AA"));
}

TEST(fillMask, LettersAreThoseOfTheSpanishAlphabetWithoutAccents) {
    EXPECT_EQ("ñÑçÇzA", filled(u"ñÑçÇzA", u"AAAAAA"));
    EXPECT_EQ("      ", filled(u"áÜ1_ß ", u"AAAAAA"));
}

TEST(fillMask, XTakesAnything) {
    EXPECT_EQ("á-1 ", filled(u"á-1", u"XXXX"));
}

TEST(fillMask, AZeroIsALiteral) {
    EXPECT_EQ("0012", filled(u"12", u"00##"));
    EXPECT_EQ("0012", filled(u"0012", u"00##"));
    EXPECT_EQ("0034", filled(u"0034", u"00##"));
}

TEST(fillMask, HasTheLengthOfTheMask) {
    EXPECT_EQ("  :  ", filled(u"", u"##:##"));
    EXPECT_EQ("12:34", filled(u"123456789", u"##:##"));
    EXPECT_EQ("", filled(u"texto", u""));
}

TEST(stripMask, TakesTheCharactersAtThePlaces) {
    EXPECT_EQ("12xy", stripMask(u"12/xy", u"##/AA").utf8());
    EXPECT_EQ("0012", stripMask(u"0012", u"00##").utf8()) << "a zero is a place here";
    EXPECT_EQ("12", stripMask(u"12", u"##/AA").utf8()) << "a text shorter than its mask";
    EXPECT_EQ("", stripMask(u"", u"##").utf8());
}

TEST(splitMasks, APairHasADisplayAndAnEditMask) {
    const auto [display, edit] = splitMasks(u"dd/MM/yyyy;;dd/MM/yy");
    EXPECT_EQ("dd/MM/yyyy", display.utf8());
    EXPECT_EQ("dd/MM/yy", edit.utf8());
}

TEST(splitMasks, OneMaskServesForBoth) {
    const auto [display, edit] = splitMasks(u"##;#");
    EXPECT_EQ("##;#", display.utf8());
    EXPECT_EQ("##;#", edit.utf8());
}

TEST(splitMasks, EitherSideMayBeEmpty) {
    EXPECT_EQ("##", splitMasks(u"##;;").first.utf8());
    EXPECT_EQ("", splitMasks(u"##;;").second.utf8());
    EXPECT_EQ("", splitMasks(u";;##").first.utf8());
    EXPECT_EQ("##", splitMasks(u";;##").second.utf8());
}

TEST(digitsOfMask, CountsWithoutSeparators) {
    EXPECT_EQ((NumberDigits{7, 2}), digitsOfMask(u"#,###,##0.00"));
    EXPECT_EQ((NumberDigits{3, 0}), digitsOfMask(u"##0"));
    EXPECT_EQ((NumberDigits{0, 3}), digitsOfMask(u".000"));
    EXPECT_EQ((NumberDigits{}), digitsOfMask(u""));
    EXPECT_EQ((NumberDigits{1, 4}), digitsOfMask(u"0.00.0,0")) << "the first point counts";
}

TEST(readCompactMask, NamesIntegersDecimalsAndPhantomDigits) {
    const CompactMask mask = readCompactMask(u"Z(7,2)");
    EXPECT_EQ("#,###,##0.00", mask.mask.utf8());
    EXPECT_TRUE(mask.blankWhenEmpty);
    EXPECT_FALSE(mask.letterCase);
    EXPECT_EQ(0, mask.phantomDigits);
    EXPECT_EQ(3, readCompactMask(u"(4,0,3)").phantomDigits);
    EXPECT_EQ("#,##0", readCompactMask(u"(4,0,3)").mask.utf8());
}

TEST(readCompactMask, GroupsTheIntegersByThree) {
    const std::pair<const char16_t*, const char*> cases[] = {{u"(1)", "0"},
                                                             {u"(3)", "##0"},
                                                             {u"(4)", "#,##0"},
                                                             {u"(6)", "###,##0"},
                                                             {u"(0)", ""},
                                                             {u"(0,2)", ".00"},
                                                             {u"(1,1)", "0.0"},
                                                             {u"(,3)", ".000"},
                                                             {u"()", ""},
                                                             {u"(x,y,z)", ""},
                                                             {u"(-4,-2)", ""},
                                                             {u"(21)", "###,###,###,###,###,###,##0"},
                                                             {u"(999)", "###,###,###,###,###,###,##0"}};
    for (const auto& [text, pattern] : cases)
        EXPECT_EQ(pattern, readCompactMask(text).mask.utf8()) << automation::String(text).utf8();
}

TEST(readCompactMask, TheCaseLettersComeInOneOrder) {
    EXPECT_EQ(tslMayusculasNoFilter, readCompactMask(u"xAA").letterCase);
    EXPECT_EQ(tslMayusculasLCase, readCompactMask(u"mAA").letterCase);
    EXPECT_EQ(tslMayusculasUCase, readCompactMask(u"MAA").letterCase);
    EXPECT_EQ(tslMayusculasProper, readCompactMask(u"PAA").letterCase);
    EXPECT_EQ(tslMayusculasProper, readCompactMask(u"xmMPAA").letterCase)
        << "each is taken off, the last holds";
    EXPECT_EQ("AA", readCompactMask(u"xmMPZAA").mask.utf8());
    EXPECT_EQ("mAA", readCompactMask(u"MmAA").mask.utf8()) << "out of order it belongs to the mask";
}

TEST(readCompactMask, WhatFollowsTheNumberStaysInTheMask) {
    EXPECT_EQ("##0.0 %", readCompactMask(u"(3,1) %").mask.utf8());
    EXPECT_EQ("##0", readCompactMask(u"(3").mask.utf8()) << "a parenthesis that nothing closes";
    EXPECT_EQ("", readCompactMask(u"").mask.utf8());
}

TEST(readCompactMask, ASeaOfDecimalsHasABound) {
    EXPECT_EQ(257u, readCompactMask(u"(1,2000000000)").mask.length());
    EXPECT_EQ("", readCompactMask(u"(99999999999999)").mask.utf8()) << "a number beyond a Long is none";
}
