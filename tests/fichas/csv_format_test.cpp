#include "fichas/CsvFormat.h"

#include <gtest/gtest.h>

using namespace fichas;

namespace {

CsvFormat formatOf(const std::string& text) {
    return findFormat({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}
Encoding encodingOf(const std::string& text) {
    return formatOf(text).encoding;
}

TEST(CsvFormat, TheEncodingFollowsMarkAndBytes) {
    EXPECT_EQ(encodingOf("a;b\n1;2\n"), Encoding::Undecided);
    EXPECT_EQ(encodingOf("\xEF\xBB\xBF"
                         "a;b\n"),
              Encoding::Utf8);
    EXPECT_EQ(encodingOf("año;b\n"), Encoding::Utf8);
    EXPECT_EQ(encodingOf("a\xF1o;b\n"), Encoding::Windows1252);
    EXPECT_EQ(encodingOf("caf\xE9 y t\xE9;\x80 12\n"), Encoding::Windows1252);
    EXPECT_EQ(encodingOf(std::string("\xFF\xFE"
                                     "a\0;\0b\0\n\0",
                                     10)),
              Encoding::Utf16LittleEndian);
    EXPECT_EQ(encodingOf(std::string("\xFE\xFF\0a\0;\0b\0\n", 10)), Encoding::Utf16BigEndian);
    EXPECT_EQ(encodingOf(""), Encoding::Undecided);
}

TEST(CsvFormat, OneBrokenByteAmongManySequencesIsStillUtf8) {
    EXPECT_EQ(encodingOf("ñ;á;é\nñ;\xF1;ó\n"), Encoding::Utf8);
}

TEST(CsvFormat, ASequenceCutByTheEndOfTheHeadDecidesNothing) {
    EXPECT_EQ(encodingOf("a;b\n\xC3"), Encoding::Undecided);
    EXPECT_EQ(encodingOf("ñ;b\n\xE2\x82"), Encoding::Utf8);
}

TEST(CsvFormat, TheMarkIsNoPartOfTheFirstField) {
    EXPECT_EQ(formatOf("\xEF\xBB\xBF"
                       "a;b\n")
                  .start,
              3);
    EXPECT_EQ(formatOf("a;b\n").start, 0);
}

TEST(CsvFormat, FindsTheSeparator) {
    EXPECT_EQ(formatOf("a;b;c\n1;2;3\n").separator, u';');
    EXPECT_EQ(formatOf("a,b,c\n1,2,3\n").separator, u',');
    EXPECT_EQ(formatOf("a\tb\n1\t2\n").separator, u'\t');
    EXPECT_EQ(formatOf("a|b\n1|2\n").separator, u'|');
    EXPECT_EQ(formatOf("nombre\nAna\n").separator, u';');
}

TEST(CsvFormat, DecimalCommasAreNoSeparators) {
    EXPECT_EQ(formatOf("1,5;2,5;3,5\n4,5;5,5;6,5\n").separator, u';');
    EXPECT_EQ(formatOf("precio;iva\n1,5;21\n2;10\n").separator, u';');
}

TEST(CsvFormat, SeparatorsWithinQuotesDoNotCount) {
    EXPECT_EQ(formatOf("\"a;x;y\",b\n\"c;z\",d\n").separator, u',');
    EXPECT_EQ(formatOf("a,b\n\"x\n;;;;\",d\n").separator, u',');
}

TEST(CsvFormat, AFewUnevenLinesDoNotHideTheSeparator) {
    EXPECT_EQ(formatOf("a,b,c\n1,2,3\n4,5,6\n7,8\n").separator, u',');
}

TEST(CsvFormat, AFirstLineMayStateTheSeparator) {
    const CsvFormat format = formatOf("sep=|\r\na;x|b\r\n");
    EXPECT_EQ(format.separator, u'|');
    EXPECT_EQ(format.start, 7);
    EXPECT_EQ(format.firstLine, 2);
}

TEST(CsvFormat, SingleQuotesServeWhereFieldsStandBetweenThem) {
    EXPECT_EQ(formatOf("'a';'b'\n'c;d';'e'\n").quote, u'\'');
    EXPECT_EQ(formatOf("\"a\";'b'\n").quote, u'"');
    EXPECT_EQ(formatOf("'tis;b\nc;d\n").quote, u'"');
}

TEST(CsvFormat, OneLineWithoutAnEndIsEnough) {
    EXPECT_EQ(formatOf("a,b,c").separator, u',');
}

TEST(CsvEncoding, Windows1252HasItsOwnCharactersFrom80To9F) {
    EXPECT_EQ(decode("\x80\x93\x94\xE1", Encoding::Windows1252), u"\u20AC\u201C\u201Dá");
}

TEST(CsvEncoding, TheCheckerTakesTextInPiecesOfAnyLength) {
    const std::string text = "aña€😀 plain text that is long enough";
    for (std::size_t length = 1; length < text.size(); ++length) {
        Utf8Checker checker;
        for (std::size_t i = 0; i < text.size(); i += length) {
            const std::string piece = text.substr(i, length);
            EXPECT_EQ(checker.check({reinterpret_cast<const std::uint8_t*>(piece.data()), piece.size()}),
                      Utf8Checker::valid);
        }
        EXPECT_FALSE(checker.isWithinSequence());
    }
}

} // namespace
