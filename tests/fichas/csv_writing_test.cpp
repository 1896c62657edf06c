// Records that are written into CSV files.
#include "fichas/CsvSource.h"

#include "automation/Currency.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>

using namespace fichas;
using automation::Variant;

namespace {

class CsvWriting : public testing::Test {
protected:
    void open(std::string_view text) {
        source_.reset(); // which lets go of the former file
        source_.emplace(folder_.write(u"datos.csv", text));
    }
    std::string file() const { return folder_.read(u"datos.csv"); }
    /// Another program, which the platform's share modes mean nothing to, writes the file.
    void elsewhere(std::string_view text) const {
        std::ofstream(folder_.utf8File("datos.csv"), std::ios::binary) << text;
    }
    /// Writes a value and gives the file.
    std::string after(std::int64_t record, std::size_t column, Variant value) {
        write(record, {{column, std::move(value)}});
        return file();
    }
    void write(std::int64_t record, const std::vector<Change>& changes) {
        std::vector<Variant> before;
        ASSERT_TRUE(source_->read(record, before));
        source_->write(record, before, changes);
    }
    /// Why the changes of a record that was read before are not written; empty where they are.
    std::string refusal(std::int64_t record, const std::vector<Variant>& before,
                        const std::vector<Change>& changes) {
        try {
            source_->write(record, before, changes);
        } catch (const WriteError& error) {
            return error.what();
        }
        return {};
    }
    std::string refusal(std::int64_t record, const std::vector<Change>& changes) {
        return refusal(record, values(record), changes);
    }
    std::vector<Variant> values(std::int64_t record) {
        std::vector<Variant> values;
        EXPECT_TRUE(source_->read(record, values)) << record;
        return values;
    }
    std::string text(std::int64_t record, std::size_t column) {
        return values(record)[column].asString().utf8();
    }
    bool stands(const std::u16string& name) const {
        return platform::GetFileAttributesW(folder_.file(name).c_str()) != platform::INVALID_FILE_ATTRIBUTES;
    }

    support::TemporaryFolder folder_;
    std::optional<CsvSource> source_;
};

TEST_F(CsvWriting, OnlyTheFieldConcernedIsWritten) {
    open("id; nombre ;precio\r\n1;\"Ana\";1,50\r\n\r\n2; Eva;\r\n3;Luz;-3,2");
    ASSERT_TRUE(source_->takesChanges());
    EXPECT_EQ(after(2, 1, u"Eva María"),
              "id; nombre ;precio\r\n1;\"Ana\";1,50\r\n\r\n2;Eva María;\r\n3;Luz;-3,2");
}

TEST_F(CsvWriting, ByteOrderMarkLineEndsAndOtherRowsStayByteForByte) {
    const std::string head = "\xEF\xBB\xBFsep=;\nid;nombre;precio\r1;'Ñandú';1,50\r\n\r\n";
    open(head + "2; Eva;\r\n3;Luz;-3,2");
    EXPECT_EQ(after(2, 1, u"Íñigo"), head + "2;Íñigo;\r\n3;Luz;-3,2");
    EXPECT_EQ(after(3, 2, automation::Currency(4)), head + "2;Íñigo;\r\n3;Luz;4,0");
}

TEST_F(CsvWriting, TheLastFieldBeforeTheLineEndCanBeFilled) {
    open("id;nombre;precio\r\n1;Ana;\r\n2;Eva;2,00\r\n");
    EXPECT_EQ(after(1, 2, automation::Currency(7)), "id;nombre;precio\r\n1;Ana;7,00\r\n2;Eva;2,00\r\n");
}

TEST_F(CsvWriting, SeveralFieldsOfARecordAreWrittenAtOnce) {
    open("id,nombre,precio\n1,Ana,1.50\n2,Eva,\n");
    write(1, {{1, Variant(u"Ana María")}, {0, Variant(10)}, {2, Variant::null()}});
    EXPECT_EQ(file(), "id,nombre,precio\n10,Ana María,\n2,Eva,\n");
}

TEST_F(CsvWriting, QuotesStandWhereTheyStoodAndWhereTheyAreNeeded) {
    open("id;nombre\n1;\"Ana\"\n2;Eva\n3;Luz\n");
    EXPECT_EQ(after(1, 1, u"Eva"), "id;nombre\n1;\"Eva\"\n2;Eva\n3;Luz\n");
    EXPECT_EQ(after(2, 1, u"a;b"), "id;nombre\n1;\"Eva\"\n2;\"a;b\"\n3;Luz\n");
    EXPECT_EQ(after(3, 1, u"5\" x"), "id;nombre\n1;\"Eva\"\n2;\"a;b\"\n3;\"5\"\" x\"\n");
    EXPECT_EQ(text(3, 1), "5\" x");
    EXPECT_EQ(after(1, 1, Variant::null()), "id;nombre\n1;\"\"\n2;\"a;b\"\n3;\"5\"\" x\"\n");
    EXPECT_EQ(after(2, 1, u"dos\r\nlíneas"), "id;nombre\n1;\"\"\n2;\"dos\r\nlíneas\"\n3;\"5\"\" x\"\n");
}

TEST_F(CsvWriting, AnEmptyFieldGetsTheQuotesOfItsColumn) {
    open("\"id\",\"nombre\"\n\"1\",\"Ana\"\n\"2\",\n");
    EXPECT_EQ(after(2, 1, u"Eva"), "\"id\",\"nombre\"\n\"1\",\"Ana\"\n\"2\",\"Eva\"\n");
}

TEST_F(CsvWriting, SingleQuotesAreKept) {
    open("id|nombre\n1|'Ana'\n2|'Eva'\n");
    EXPECT_EQ(after(1, 1, u"O'Hara"), "id|nombre\n1|'O''Hara'\n2|'Eva'\n");
    EXPECT_EQ(text(1, 1), "O'Hara");
}

TEST_F(CsvWriting, TheOnlyFieldOfARecordNeverBecomesABlankLine) {
    open("nombre\nAna\nEva\n");
    EXPECT_EQ(after(1, 0, Variant::null()), "nombre\n\"\"\nEva\n");
    EXPECT_TRUE(values(1)[0].isNull());
    EXPECT_EQ(text(2, 0), "Eva");
}

TEST_F(CsvWriting, EachEncodingIsKept) {
    open("c\363digo;nombre\n1;\xD1u\n2;x\n");
    EXPECT_EQ(after(2, 1, u"España 5 €"), "c\363digo;nombre\n1;\xD1u\n2;Espa\361a 5 \x80\n");
    const std::string utf16("\xFF\xFEi\0;\0n\0\n\0001\0;\0a\0\n\0", 18);
    open(utf16);
    EXPECT_EQ(after(1, 1, u"Ω"), utf16.substr(0, 14) + "\xA9\x03\n" + std::string(1, '\0'));
    const std::string swapped("\xFE\xFF\0i\0;\0n\0\n\0001\0;\0a\0\n", 18);
    open(swapped);
    EXPECT_EQ(after(1, 1, u"Ω"), swapped.substr(0, 14) + "\x03\xA9" + std::string("\0\n", 2));
    open("id;nombre\n1;Ana\n");
    EXPECT_EQ(after(1, 1, u"Íñigo"), "id;nombre\n1;Íñigo\n") << "where nothing says, UTF-8";
}

TEST_F(CsvWriting, WhatTheEncodingLacksIsRefusedAndNothingIsWritten) {
    const std::string content = "c\363digo;nombre\n1;\xD1u\n";
    open(content);
    EXPECT_EQ(refusal(1, {{1, Variant(u"☃")}}),
              "la codificación del archivo no tiene todos los caracteres que se han tecleado");
    EXPECT_EQ(file(), content);
}

TEST_F(CsvWriting, RecordsBehindAreFoundWhereTheyLieNow) {
    std::string content = "id;nombre\n";
    constexpr int records = 1000;
    for (int i = 1; i <= records; ++i)
        content += std::to_string(i) + ";n" + std::to_string(i) + "\n";
    open(content);
    EXPECT_EQ(source_->count(), records);
    write(3, {{1, Variant(u"un nombre\nde dos líneas")}});
    write(500, {{1, Variant::null()}});
    write(1000, {{1, Variant(u"el último")}});
    for (const int record : {1, 4, 63, 64, 65, 499, 501, 999})
        EXPECT_EQ(text(record, 1), "n" + std::to_string(record));
    EXPECT_EQ(text(3, 1), "un nombre\nde dos líneas");
    EXPECT_EQ(text(1000, 1), "el último");
    EXPECT_EQ(source_->count(), records);
    EXPECT_FALSE(stands(u"datos.csv.~1"));
}

TEST_F(CsvWriting, LinesAreCountedOnBehindALongerRecord) {
    std::string content = "id;nombre\n1;Ana\n";
    for (int i = 2; i <= 400'000; ++i)
        content += "2;x\n";
    open(content + "3\n");
    write(1, {{1, Variant(u"tres\nlíneas\nmás")}});
    try {
        source_->count();
        FAIL() << "the last line is broken";
    } catch (const SourceError& error) {
        EXPECT_STREQ(error.what(), "datos.csv, línea 400004: hay 1 campo y en la primera línea 2 campos");
    }
}

TEST_F(CsvWriting, WhatAnotherProgramDidElsewhereInTheFileStays) {
    open("id;nombre\n1;Ana\n2;Eva\n");
    source_->count();
    const std::vector<Variant> before = values(2);
    elsewhere("id;nombre\n1;Ana María\n2;Eva\n3;Luz\n");
    EXPECT_EQ(refusal(2, before, {{1, Variant(u"Berta")}}), "");
    EXPECT_EQ(file(), "id;nombre\n1;Ana María\n2;Berta\n3;Luz\n");
    EXPECT_EQ(source_->count(), 3);
    EXPECT_EQ(text(1, 1), "Ana María");
}

TEST_F(CsvWriting, ARecordThatIsAnotherOneByNowIsNotWritten) {
    open("id;nombre\n1;Ana\n2;Eva\n");
    const std::vector<Variant> before = values(2);
    const std::string now = "id;nombre\n0;Luz\n1;Ana\n2;Eva\n";
    elsewhere(now);
    const std::vector<Change> changes{{1, Variant(u"Berta")}};
    const std::string reason = "otro programa ha cambiado este registro en el archivo";
    EXPECT_EQ(refusal(2, before, changes), reason);
    EXPECT_EQ(refusal(2, before, changes), reason) << "a second attempt does not overwrite another's record";
    EXPECT_EQ(file(), now);
    EXPECT_EQ(text(2, 1), "Ana") << "what is read now is what is there";
    EXPECT_EQ(refusal(3, {{1, Variant(u"Berta")}}), "");
    EXPECT_EQ(file(), "id;nombre\n0;Luz\n1;Ana\n2;Berta\n");
}

TEST_F(CsvWriting, AFileThatHasBecomeAnotherOneIsNotWritten) {
    const std::string content = "id;nombre\n1;Ana\n2;Eva\n";
    const auto refused = [&](const std::string& now) {
        open(content);
        const std::vector<Variant> before = values(2);
        elsewhere(now);
        const std::string reason = refusal(2, before, {{1, Variant(u"Berta")}});
        EXPECT_EQ(file(), now);
        return reason;
    };
    EXPECT_EQ(refused("id;nombre\n1;Ana\n"), "otro programa ha borrado este registro del archivo");
    EXPECT_EQ(refused("id;apellido\n1;Ana\n2;Eva\n"), "otro programa ha cambiado las columnas del archivo");
    EXPECT_EQ(refused("id;nombre\n1;\"Ana\n2;Eva\n"), "datos.csv, línea 2: comillas sin cerrar");
}

TEST_F(CsvWriting, BytesWithoutAFileTakeNoChanges) {
    CsvSource memory(std::make_unique<MemoryBytes>("id;nombre\n1;Ana\n"), "datos.csv");
    EXPECT_FALSE(memory.takesChanges());
    EXPECT_THROW(memory.write(1, {}, {}), WriteError);
}

TEST_F(CsvWriting, AValueThatWouldReadAsAnotherOneIsRefused) {
    open("id;nombre\n1;Ana\n");
    EXPECT_EQ(refusal(1, {{0, Variant(u"no es un número")}}), "");
    EXPECT_EQ(refusal(1, {{0, Variant(1e20)}}), "id: el archivo no puede guardar este valor");
    EXPECT_EQ(refusal(1, {{1, Variant(u" ")}}), "nombre: el archivo no puede guardar este valor");
    EXPECT_EQ(file(), "id;nombre\nno es un número;Ana\n");
}

TEST_F(CsvWriting, AFileBesideOfTheSameNameIsLeftAlone) {
    folder_.write(u"datos.csv.~1", "de otro");
    open("id;nombre\n1;Ana\n");
    EXPECT_EQ(after(1, 1, u"Eva"), "id;nombre\n1;Eva\n");
    EXPECT_EQ(folder_.read(u"datos.csv.~1"), "de otro");
    EXPECT_FALSE(stands(u"datos.csv.~2"));
}

} // namespace
