#include "platform/text_files.h"

#include "support/TemporaryFolder.h"

using namespace platform;

namespace {

constexpr auto none = TextFileError::None;

class TextFiles : public testing::Test {
protected:
    support::TemporaryFolder folder;
    TextFile file;
};

TEST_F(TextFiles, WritingMakesAnsiLinesEndedByCarriageReturnAndLineFeed) {
    ASSERT_EQ(file.open(folder.file(u"a"), TextFileMode::ForWriting, true), none);
    EXPECT_EQ(file.write(u"año "), none);
    EXPECT_EQ(file.writeLine(u"5 €"), none);
    EXPECT_EQ(file.writeLine(), none);
    file.close();
    EXPECT_EQ(folder.read(u"a"), "a\xF1o 5 \x80\r\n\r\n");
}

TEST_F(TextFiles, AppendingGoesOnAtTheEndAndWritingBeginsAnew) {
    folder.write(u"a", "one\r\n");
    ASSERT_EQ(file.open(folder.file(u"a"), TextFileMode::ForAppending), none);
    file.writeLine(u"two");
    file.close();
    EXPECT_EQ(folder.read(u"a"), "one\r\ntwo\r\n");
    ASSERT_EQ(file.open(folder.file(u"a"), TextFileMode::ForWriting), none);
    file.write(u"new");
    file.close();
    EXPECT_EQ(folder.read(u"a"), "new");
}

TEST_F(TextFiles, AMissingFileIsMadeOnlyOnRequest) {
    for (const auto mode : {TextFileMode::ForReading, TextFileMode::ForWriting, TextFileMode::ForAppending}) {
        EXPECT_EQ(file.open(folder.file(u"a"), mode), TextFileError::FileNotFound);
        EXPECT_FALSE(file.isOpen());
        EXPECT_FALSE(fileExists(folder.file(u"a")));
        EXPECT_EQ(file.open(folder.file(u"a"), mode, true), none);
        file.close();
        EXPECT_TRUE(fileExists(folder.file(u"a")));
        EXPECT_EQ(deleteFile(folder.file(u"a")), none);
    }
    EXPECT_EQ(file.open(folder.file(u"none\\a"), TextFileMode::ForWriting, true),
              TextFileError::PathNotFound);
    EXPECT_EQ(file.open(u"", TextFileMode::ForReading), TextFileError::InvalidCall);
}

TEST_F(TextFiles, ReadAllGivesTheRestAndThenFails) {
    folder.write(u"a", "first\r\ncami\xF3n");
    std::u16string text;
    ASSERT_EQ(file.open(folder.file(u"a"), TextFileMode::ForReading), none);
    EXPECT_EQ(file.readLine(text), none);
    EXPECT_EQ(text, u"first");
    EXPECT_EQ(file.readAll(text), none);
    EXPECT_EQ(text, u"camión");
    EXPECT_TRUE(file.atEndOfStream());
    EXPECT_EQ(file.readAll(text), TextFileError::PastEndOfFile);
}

TEST_F(TextFiles, LinesEndAtLineFeedsAndMaySpanManyReads) {
    const std::string longLine(200'000, 'x');
    folder.write(u"a", "one\n\r\n" + longLine + "\r\nlast");
    ASSERT_EQ(file.open(folder.file(u"a"), TextFileMode::ForReading), none);
    std::vector<std::u16string> lines;
    for (std::u16string line; file.readLine(line) == none;)
        lines.push_back(line);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], u"one");
    EXPECT_EQ(lines[1], u"");
    EXPECT_EQ(lines[2].size(), longLine.size());
    EXPECT_EQ(lines[3], u"last");
}

TEST_F(TextFiles, UnicodeFilesBearTheirMark) {
    ASSERT_EQ(file.open(folder.file(u"a"), TextFileMode::ForWriting, true, TextFileFormat::Unicode), none);
    file.writeLine(u"Ω");
    file.write(u"\u0A0Dx");
    file.close();
    EXPECT_EQ(folder.read(u"a"), std::string("\xFF\xFE\xA9\x03\r\0\n\0\x0D\x0Ax\0", 12));
    std::u16string line;
    ASSERT_EQ(file.open(folder.file(u"a"), TextFileMode::ForReading, false, TextFileFormat::Unicode), none);
    EXPECT_EQ(file.readLine(line), none);
    EXPECT_EQ(line, u"Ω");
    EXPECT_EQ(file.readLine(line), none);
    EXPECT_EQ(line, u"\u0A0Dx");
}

TEST_F(TextFiles, AFileOpenForWritingIsDeniedToOthers) {
    ASSERT_EQ(file.open(folder.file(u"a"), TextFileMode::ForAppending, true), none);
    TextFile other;
    EXPECT_EQ(other.open(folder.file(u"a"), TextFileMode::ForAppending, true),
              TextFileError::PermissionDenied);
    EXPECT_EQ(other.open(folder.file(u"a"), TextFileMode::ForReading), TextFileError::PermissionDenied);
    file.close();
    EXPECT_EQ(other.open(folder.file(u"a"), TextFileMode::ForReading), none);
}

TEST_F(TextFiles, EachModeRefusesTheOtherOperations) {
    std::u16string text;
    EXPECT_EQ(file.readAll(text), TextFileError::BadFileMode);
    EXPECT_EQ(file.write(u"x"), TextFileError::BadFileMode);
    file.open(folder.file(u"a"), TextFileMode::ForWriting, true);
    EXPECT_EQ(file.readAll(text), TextFileError::BadFileMode);
    file.close();
    file.open(folder.file(u"a"), TextFileMode::ForReading);
    EXPECT_EQ(file.write(u"x"), TextFileError::BadFileMode);
}

TEST_F(TextFiles, AMovedFileGoesOnInItsNewPlace) {
    file.open(folder.file(u"a"), TextFileMode::ForWriting, true);
    TextFile other = std::move(file);
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(other.write(u"x"), none);
    other.close();
    EXPECT_EQ(folder.read(u"a"), "x");
}

TEST_F(TextFiles, SizesAreOfFilesOnly) {
    folder.write(u"a", "12345");
    std::int64_t size = -1;
    EXPECT_EQ(fileSize(folder.file(u"a"), size), none);
    EXPECT_EQ(size, 5);
    EXPECT_EQ(fileSize(folder.file(u"b"), size), TextFileError::FileNotFound);
    EXPECT_EQ(fileSize(folder.path(), size), TextFileError::FileNotFound);
    EXPECT_EQ(size, 5);
    EXPECT_FALSE(fileExists(folder.path()));
}

TEST_F(TextFiles, AReadOnlyFileIsDeletedByForceOnly) {
    SetFileAttributesW(folder.write(u"a", "x").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(deleteFile(folder.file(u"a")), TextFileError::PermissionDenied);
    EXPECT_TRUE(fileExists(folder.file(u"a")));
    EXPECT_EQ(deleteFile(folder.file(u"a"), true), none);
    EXPECT_FALSE(fileExists(folder.file(u"a")));
    EXPECT_EQ(deleteFile(folder.file(u"a"), true), TextFileError::FileNotFound);
}

TEST_F(TextFiles, WildcardsDeleteAllThatMatch) {
    for (const char16_t* name : {u"a1.log", u"a2.LOG", u"b1.log", u"a1.txt"})
        folder.write(name, "x");
    EXPECT_EQ(deleteFile(folder.file(u"a?.log")), none);
    EXPECT_FALSE(fileExists(folder.file(u"a1.log")));
    EXPECT_FALSE(fileExists(folder.file(u"a2.LOG")));
    EXPECT_TRUE(fileExists(folder.file(u"b1.log")));
    EXPECT_TRUE(fileExists(folder.file(u"a1.txt")));
    EXPECT_EQ(deleteFile(folder.file(u"z*")), TextFileError::FileNotFound);
    EXPECT_EQ(deleteFile(folder.file(u"*1*")), none);
    EXPECT_TRUE(filesOfFolder(folder.path()).empty());
}

} // namespace
