#include "fichas/CsvIndex.h"

#include <gtest/gtest.h>
#include <random>

using namespace fichas;

namespace {

/// Memory that counts what is read of it.
class CountedBytes final : public ByteSource {
public:
    explicit CountedBytes(std::string bytes) : memory_(std::move(bytes)) {}
    std::int64_t size() const override { return memory_.size(); }
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> into) override {
        const std::size_t length = memory_.read(offset, into);
        bytesRead += static_cast<std::int64_t>(length);
        return length;
    }
    std::int64_t bytesRead = 0;

private:
    MemoryBytes memory_;
};

std::vector<CsvRow> readAll(const std::string& text, char16_t separator = u';') {
    CountedBytes bytes(text);
    CsvFormat format;
    format.encoding = Encoding::Utf8;
    format.separator = separator;
    CsvIndex index(bytes, format, "a.csv");
    std::vector<CsvRow> rows;
    while (const auto extent = index.find(static_cast<std::int64_t>(rows.size())))
        rows.push_back(index.fields(*extent));
    return rows;
}

std::string failureOf(const std::string& text, Encoding encoding = Encoding::Utf8) {
    CountedBytes bytes(text);
    CsvFormat format;
    format.encoding = encoding;
    CsvIndex index(bytes, format, "clientes.csv");
    try {
        while (!index.isComplete())
            index.advance(1);
    } catch (const SourceError& error) {
        return error.what();
    }
    return "";
}

using Rows = std::vector<CsvRow>;

TEST(CsvIndex, SplitsAtSeparatorsAndLineEnds) {
    EXPECT_EQ(readAll("a;b\n1;2\n"), (Rows{{u"a", u"b"}, {u"1", u"2"}}));
    EXPECT_EQ(readAll("a;b\r\n1;2"), (Rows{{u"a", u"b"}, {u"1", u"2"}}));
    EXPECT_EQ(readAll("a;b\r1;2\r"), (Rows{{u"a", u"b"}, {u"1", u"2"}}));
    EXPECT_EQ(readAll(";\n;\n"), (Rows{{u"", u""}, {u"", u""}}));
}

TEST(CsvIndex, LeavesBlankLinesOut) {
    EXPECT_EQ(readAll("\n\na;b\n\r\n1;2\n\n"), (Rows{{u"a", u"b"}, {u"1", u"2"}}));
}

TEST(CsvIndex, QuotesHoldSeparatorsLineEndsAndDoubledQuotes) {
    EXPECT_EQ(readAll("\"a;\nb\";\"c\"\"d\"\n\"\";x\n"), (Rows{{u"a;\nb", u"c\"d"}, {u"", u"x"}}));
    EXPECT_EQ(readAll("\"\"\"\";\"\"\n"), (Rows{{u"\"", u""}}));
}

TEST(CsvIndex, AQuoteWithinAFieldIsAnOrdinaryCharacter) {
    EXPECT_EQ(readAll("5\" x 3\";b\n"), (Rows{{u"5\" x 3\"", u"b"}}));
}

TEST(CsvIndex, KeepsTheLineOfARecordAfterLineEndsInQuotes) {
    CountedBytes bytes("a;b\n\"x\r\ny\nz\";2\n3;4\n");
    CsvIndex index(bytes, CsvFormat(), "a.csv");
    EXPECT_EQ(index.find(1)->line, 2);
    EXPECT_EQ(index.find(2)->line, 5);
    EXPECT_FALSE(index.find(3));
    EXPECT_FALSE(index.find(-1));
    EXPECT_EQ(index.found(), 3);
}

TEST(CsvIndex, ReadsUtf16BothWays) {
    const std::u16string text = u"ñ;\"b\nc\"\n1;\u20AC\n";
    for (const bool bigEndian : {false, true}) {
        std::string bytes;
        for (const char16_t c : text) {
            const char low = static_cast<char>(c & 0xFF);
            const char high = static_cast<char>(c >> 8);
            bytes += bigEndian ? high : low;
            bytes += bigEndian ? low : high;
        }
        CountedBytes source(bytes);
        CsvFormat format;
        format.encoding = bigEndian ? Encoding::Utf16BigEndian : Encoding::Utf16LittleEndian;
        CsvIndex index(source, format, "a.csv");
        EXPECT_EQ(index.fields(*index.find(0)), (CsvRow{u"ñ", u"b\nc"}));
        EXPECT_EQ(index.fields(*index.find(1)), (CsvRow{u"1", u"\u20AC"}));
        EXPECT_FALSE(index.find(2));
    }
}

TEST(CsvIndex, UndecidedBytesAreReadRecordByRecord) {
    CountedBytes bytes("a;b\nMu\xC3\xB1oz;1\nMu\xF1oz;2\n");
    CsvIndex index(bytes, CsvFormat(), "a.csv");
    EXPECT_EQ(index.fields(*index.find(1))[0], u"Muñoz");
    EXPECT_EQ(index.fields(*index.find(2))[0], u"Muñoz");
}

TEST(CsvIndex, NamesTheLineOfAnUnclosedQuote) {
    EXPECT_EQ(failureOf("a;b\n1;2\n3;\"x\n4;5\n"), "clientes.csv, línea 3: comillas sin cerrar");
    const std::string endless = "a;b\n1;\"" + std::string(20 << 20, 'x');
    EXPECT_EQ(failureOf(endless), "clientes.csv, línea 2: comillas sin cerrar");
}

TEST(CsvIndex, NamesTheLineOfTextAfterAQuote) {
    EXPECT_EQ(failureOf("a;b\n1;\"x\" y\n"),
              "clientes.csv, línea 2: hay texto después de las comillas de cierre");
}

TEST(CsvIndex, NamesTheLineWithAnotherNumberOfFields) {
    EXPECT_EQ(failureOf("a;b\n1;2\n3;4;5\n"),
              "clientes.csv, línea 3: hay 3 campos y en la primera línea 2 campos");
    EXPECT_EQ(failureOf("a;b\n\n1\n"), "clientes.csv, línea 3: hay 1 campo y en la primera línea 2 campos");
}

TEST(CsvIndex, NamesTheLineOfANulCharacter) {
    const std::string what = "hay un carácter nulo: no es un archivo de texto";
    EXPECT_EQ(failureOf(std::string("a;b\n1;\0\n", 8)), "clientes.csv, línea 2: " + what);
    EXPECT_EQ(failureOf(std::string("a;b\n1;\"x\n\0\"\n", 12)), "clientes.csv, línea 3: " + what);
    EXPECT_EQ(failureOf(std::string("\x89PNG\r\n\x1A\n\0\0", 10), Encoding::Windows1252),
              "clientes.csv, línea 3: " + what);
}

TEST(CsvIndex, NamesTheLineOfBrokenUtf8) {
    const std::string what = "hay caracteres que no son UTF-8";
    EXPECT_EQ(failureOf("ñ;b\n1;\xF1\n"), "clientes.csv, línea 2: " + what);
    EXPECT_EQ(failureOf("ñ;b\n1;2\n\xC3"), "clientes.csv, línea 3: " + what);
    EXPECT_EQ(failureOf("a;b\n1;\xED\xA0\x80\n"), "clientes.csv, línea 2: " + what);
    EXPECT_EQ(failureOf("a;b\n1;\xC0\x80\n"), "clientes.csv, línea 2: " + what);
    EXPECT_EQ(failureOf("a;b\n1;\xF0\x9F\x98\x80\n"), "");
}

TEST(CsvIndex, FindsWhatIsWrongAcrossTheSeamsOfPieces) {
    // Sequences and line ends that the border between two pieces cuts, wherever it falls.
    constexpr int pieceLength = 256 * 1024;
    for (int shift = 0; shift < 4; ++shift) {
        const std::string first(static_cast<std::size_t>(pieceLength - 2 - shift), 'x');
        EXPECT_EQ(failureOf(first + "\xE2\x82\xAC\r\n1\n"), "");
        EXPECT_EQ(failureOf(first + "\r\n1\r\n\"2\"\"\"\n"), "");
        EXPECT_EQ(failureOf(first + "\xE2\x82;\n"), "clientes.csv, línea 1: hay caracteres que no son UTF-8");
    }
}

TEST(CsvIndex, ABrokenFileStaysBroken) {
    CountedBytes bytes("a;b\n1;2;3\n");
    CsvIndex index(bytes, CsvFormat(), "a.csv");
    EXPECT_THROW(index.advance(1000), SourceError);
    EXPECT_THROW(index.advance(1000), SourceError);
    EXPECT_THROW((void)index.find(5), SourceError);
}

TEST(CsvIndex, LooksThroughTheFileOnceAndKeepsASparseIndex) {
    std::string text = "numero;nombre\n";
    constexpr int records = 200'000;
    for (int i = 1; i <= records; ++i)
        text += std::to_string(i) + ";nombre " + std::to_string(i) + "\n";
    const auto size = static_cast<std::int64_t>(text.size());
    CountedBytes bytes(std::move(text));
    CsvFormat format;
    format.encoding = Encoding::Utf8;
    CsvIndex index(bytes, format, "a.csv");

    EXPECT_EQ(index.fields(*index.find(1))[0], u"1");
    EXPECT_LT(bytes.bytesRead, size / 4) << "the first record needs only the start of the file";

    EXPECT_EQ(index.fields(*index.find(records))[1], u"nombre 200000");
    EXPECT_LT(bytes.bytesRead, size + size / 4);

    const std::int64_t before = bytes.bytesRead;
    constexpr int jumps = 100;
    for (int i = 0; i < jumps; ++i) {
        const int record = 1 + i * 7919 % records;
        const std::string number = std::to_string(record);
        EXPECT_EQ(index.fields(*index.find(record))[0], std::u16string(number.begin(), number.end()));
        EXPECT_EQ(index.find(record)->line, record + 1);
    }
    EXPECT_LT((bytes.bytesRead - before) / jumps, 80 * 1024) << "a jump reads one piece";
}

// -------------------------------------------------------------------- against a simple reference

std::string inQuotes(const std::string& field) {
    std::string text = "\"";
    for (const char c : field) {
        if (c == '"') text += '"';
        text += c;
    }
    return text + '"';
}

TEST(CsvIndex, WhatIsWrittenComesBack) {
    std::mt19937 random(7);
    const auto below = [&](unsigned n) { return random() % n; };
    const std::vector<std::string> pieces{"a",    "ñ",  "€", ";",  ",", "\"", "\n",
                                          "\r\n", "\r", " ", "12", "😀", "'"};
    for (int round = 0; round < 400; ++round) {
        const unsigned columns = 1 + below(5);
        const unsigned count = 1 + below(150);
        const std::string lineEnd = std::vector<std::string>{"\n", "\r\n", "\r"}[below(3)];
        std::vector<std::vector<std::string>> expected;
        std::string text;
        for (unsigned r = 0; r < count; ++r) {
            auto& row = expected.emplace_back();
            for (unsigned c = 0; c < columns; ++c) {
                std::string field;
                for (unsigned n = below(6); n > 0; --n)
                    field += pieces[below(static_cast<unsigned>(pieces.size()))];
                const bool mustQuote =
                    field.find_first_of(";\"\r\n") != std::string::npos || (columns == 1 && field.empty());
                text += (c ? ";" : "") + (mustQuote || below(4) == 0 ? inQuotes(field) : field);
                row.push_back(field);
            }
            if (r + 1 < count || below(2)) text += lineEnd;
        }
        CountedBytes bytes(text);
        CsvFormat format;
        format.encoding = Encoding::Utf8;
        CsvIndex index(bytes, format, "a.csv");
        // From the last to the first, so that every record is reached from its mark.
        for (unsigned r = count; r-- > 0;) {
            const auto extent = index.find(r);
            ASSERT_TRUE(extent) << text;
            CsvRow row;
            for (const std::string& field : expected[r])
                row.push_back(decode(field, Encoding::Utf8));
            ASSERT_EQ(index.fields(*extent), row) << text;
        }
        ASSERT_FALSE(index.find(count));
    }
}

} // namespace
