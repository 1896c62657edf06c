#include "automation/Strings.h"

#include "support/ErrorOf.h"
#include "support/LocaleScope.h"

#include <gtest/gtest.h>

namespace {

using namespace automation;
using tests::errorOf;

TEST(Strings, CaseKeepsTheLength) {
    EXPECT_EQ(UCase(u"árbol ñandú ß"), u"ÁRBOL ÑANDÚ ß");
    EXPECT_EQ(LCase(u"ÁRBOL ÑANDÚ Ü"), u"árbol ñandú ü");
    EXPECT_EQ(UCase(u""), u"");
}

TEST(Strings, TrimsTakeBlanksOnly) {
    EXPECT_EQ(LTrim(u"  a b  "), u"a b  ");
    EXPECT_EQ(RTrim(u"  a b  "), u"  a b");
    EXPECT_EQ(Trim(u"  a b  "), u"a b");
    EXPECT_EQ(Trim(u"\t a\u00A0"), u"\t a\u00A0");
    EXPECT_EQ(Trim(u"   "), u"");
    EXPECT_EQ(LTrim(u"   "), u"");
    EXPECT_EQ(RTrim(u"   "), u"");
}

TEST(Strings, LeftRightAndMidCountFromOne) {
    EXPECT_EQ(Left(u"abc", 2), u"ab");
    EXPECT_EQ(Left(u"abc", 9), u"abc");
    EXPECT_EQ(Right(u"abc", 2), u"bc");
    EXPECT_EQ(Right(u"abc", 0), u"");
    EXPECT_EQ(Mid(u"abc", 2), u"bc");
    EXPECT_EQ(Mid(u"abc", 2, 1), u"b");
    EXPECT_EQ(Mid(u"abc", 4), u"");
    EXPECT_EQ(Mid(u"abc", 99, 5), u"");
    EXPECT_EQ(errorOf([] { Left(u"abc", -1); }), 5);
    EXPECT_EQ(errorOf([] { Right(u"abc", -1); }), 5);
    EXPECT_EQ(errorOf([] { Mid(u"abc", 0); }), 5);
    EXPECT_EQ(errorOf([] { Mid(u"abc", 1, -1); }), 5);
}

TEST(Strings, SearchesFindTheFirstAndTheLast) {
    EXPECT_EQ(InStr(u"abcabc", u"c"), 3);
    EXPECT_EQ(InStr(4, u"abcabc", u"c"), 6);
    EXPECT_EQ(InStr(u"abc", u""), 1);
    EXPECT_EQ(InStr(u"", u"a"), 0);
    EXPECT_EQ(InStr(u"", u""), 0);
    EXPECT_EQ(InStr(9, u"abc", u"a"), 0);
    EXPECT_EQ(InStr(u"ABC", u"b"), 0);
    EXPECT_EQ(InStr(1, u"ÁBC", u"á", CompareMethod::Text), 1);
    EXPECT_EQ(errorOf([] { InStr(0, u"abc", u"a"); }), 5);
    EXPECT_EQ(errorOf([] { InStr(1, u"abc", u"a", 7); }), 5);
    EXPECT_EQ(InStrRev(u"abcabc", u"c"), 6);
    EXPECT_EQ(InStrRev(u"abcabc", u"c", 5), 3);
    EXPECT_EQ(InStrRev(u"abc", u"", 2), 2);
    EXPECT_EQ(InStrRev(u"abc", u"c", 9), 0);
    EXPECT_EQ(InStrRev(u"a", u"aa"), 0);
    EXPECT_EQ(errorOf([] { InStrRev(u"abc", u"a", 0); }), 5);
}

TEST(Strings, ReplaceStartsAtItsPositionAndCounts) {
    EXPECT_EQ(Replace(u"abcabc", u"b", u"--"), u"a--ca--c");
    EXPECT_EQ(Replace(u"abcabc", u"b", u"", 3), u"cac");
    EXPECT_EQ(Replace(u"aaaa", u"a", u"b", 1, 2), u"bbaa");
    EXPECT_EQ(Replace(u"abc", u"", u"x"), u"abc");
    EXPECT_EQ(Replace(u"abc", u"B", u"x", 1, -1, CompareMethod::Text), u"axc");
    EXPECT_EQ(Replace(u"abc", u"a", u"x", 9), u"");
    EXPECT_EQ(errorOf([] { Replace(u"abc", u"a", u"x", 0); }), 5);
}

TEST(Strings, SplitAndJoinAreInverse) {
    const std::vector<String> pieces = Split(u"a,b,,c", u",");
    ASSERT_EQ(pieces.size(), 4u);
    EXPECT_EQ(pieces[2], u"");
    EXPECT_EQ(Join(pieces, u","), u"a,b,,c");
    EXPECT_TRUE(Split(u"", u",").empty());
    EXPECT_EQ(Split(u"a,b,c", u",", 2).back(), u"b,c");
    EXPECT_EQ(Split(u"abc", u"").size(), 1u);
    EXPECT_EQ(Split(u"aXbxc", u"x", -1, CompareMethod::Text).size(), 3u);
    EXPECT_EQ(Join({}, u","), u"");
}

TEST(Strings, RepeatsAndReverses) {
    EXPECT_EQ(Space(3), u"   ");
    EXPECT_EQ(Repeat(3, u'x'), u"xxx");
    EXPECT_EQ(StrReverse(u"abc"), u"cba");
    EXPECT_EQ(errorOf([] { Space(-1); }), 5);
    EXPECT_EQ(errorOf([] { Repeat(-1, u'x'); }), 5);
}

TEST(Strings, CharactersCrossTheAnsiCodePage) {
    EXPECT_EQ(Asc(u"A"), 65);
    EXPECT_EQ(Asc(u"€"), 128);
    EXPECT_EQ(Asc(u"ñ"), 241);
    EXPECT_EQ(Chr(128), u"€");
    EXPECT_EQ(Chr(241), u"ñ");
    EXPECT_EQ(AscW(u"€"), 0x20AC);
    EXPECT_EQ(ChrW(0x20AC), u"€");
    EXPECT_EQ(ChrW(-1), u"\uFFFF");
    EXPECT_EQ(errorOf([] { Asc(u""); }), 5);
    EXPECT_EQ(errorOf([] { Chr(256); }), 5);
    EXPECT_EQ(errorOf([] { Chr(-1); }), 5);
    EXPECT_EQ(errorOf([] { ChrW(65536); }), 5);
    for (int code = 1; code < 256; ++code)
        EXPECT_EQ(Asc(Chr(code)), code);
}

TEST(Strings, ProperCaseRaisesTheFirstLetterOfEachWord) {
    EXPECT_EQ(StrConv(u"JUAN pÉREZ de la cruz", StringConversion::ProperCase), u"Juan Pérez De La Cruz");
    EXPECT_EQ(StrConv(u"ángel\tñuño\nóscar", StringConversion::ProperCase), u"Ángel\tÑuño\nÓscar");
    EXPECT_EQ(StrConv(u"o'neill-smith", StringConversion::ProperCase), u"O'neill-smith");
    EXPECT_EQ(StrConv(u"abc", StringConversion::UpperCase), u"ABC");
    EXPECT_EQ(StrConv(u"ABC", StringConversion::LowerCase), u"abc");
}

TEST(Strings, BytesPackAndUnpack) {
    const String packed = StrConv(u"abñ€", StringConversion::FromUnicode);
    ASSERT_EQ(packed.length(), 2u);
    EXPECT_EQ(packed[0], u'a' | u'b' << 8);
    EXPECT_EQ(packed[1], 0xF1 | 0x80 << 8);
    EXPECT_EQ(StrConv(packed, StringConversion::Unicode), u"abñ€");
    EXPECT_EQ(StrConv(u"abc", StringConversion::FromUnicode | StringConversion::UpperCase).length(), 2u);
    EXPECT_EQ(StrConv(u"Aa 1", StringConversion::Wide), u"Ａａ　１");
    EXPECT_EQ(StrConv(u"Ａａ　１", StringConversion::Narrow), u"Aa 1");
    EXPECT_EQ(StrConv(u"ひ", StringConversion::Katakana), u"ヒ");
    EXPECT_EQ(StrConv(u"ヒ", StringConversion::Hiragana), u"ひ");
    EXPECT_EQ(errorOf([] { StrConv(u"a", 0); }), 5);
    EXPECT_EQ(errorOf([] { StrConv(u"a", StringConversion::Wide | StringConversion::Narrow); }), 5);
    EXPECT_EQ(errorOf([] { StrConv(u"a", StringConversion::Unicode | StringConversion::FromUnicode); }), 5);
    EXPECT_EQ(errorOf([] { StrConv(u"a", 256); }), 5);
}

} // namespace
