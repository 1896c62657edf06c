#include "platform/files.h"

#include "support/TemporaryFolder.h"

#include <cstring>

using namespace platform;

namespace {

constexpr DWORD readAndWrite = GENERIC_READ | GENERIC_WRITE;

class Files : public testing::Test {
protected:
    HANDLE open(std::u16string_view name, DWORD access, DWORD share, DWORD disposition,
                DWORD flags = FILE_ATTRIBUTE_NORMAL) {
        return CreateFileW(folder.file(name).c_str(), access, share, nullptr, disposition, flags, HANDLE());
    }
    static std::string readText(HANDLE file, DWORD size) {
        std::string text(size, '\0');
        DWORD moved = 0;
        EXPECT_TRUE(ReadFile(file, text.data(), size, &moved, nullptr));
        text.resize(moved);
        return text;
    }
    static DWORD writeText(HANDLE file, std::string_view text) {
        DWORD moved = 0;
        EXPECT_TRUE(WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &moved, nullptr));
        return moved;
    }

    support::TemporaryFolder folder;
};

TEST_F(Files, CreateNewMakesAFileOnce) {
    const HANDLE first = open(u"a", GENERIC_WRITE, 0, CREATE_NEW);
    ASSERT_NE(first, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_EQ(open(u"a", GENERIC_WRITE, 0, CREATE_NEW), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_FILE_EXISTS);
}

TEST_F(Files, AnOpenHandleIsPositiveAsASignedNumber) {
    const HANDLE file = open(u"a", GENERIC_WRITE, 0, CREATE_NEW);
    EXPECT_GT(static_cast<LONG>(file.value), 0);
    CloseHandle(file);
}

TEST_F(Files, CreateAlwaysEmptiesAndTellsThatTheFileExisted) {
    folder.write(u"a", "text");
    const HANDLE file = open(u"a", GENERIC_WRITE, 0, CREATE_ALWAYS);
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    LONGLONG size = -1;
    EXPECT_TRUE(GetFileSizeEx(file, &size));
    EXPECT_EQ(size, 0);
    CloseHandle(file);
    const HANDLE fresh = open(u"b", GENERIC_WRITE, 0, CREATE_ALWAYS);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    CloseHandle(fresh);
}

TEST_F(Files, OpenAlwaysKeepsTheContentAndTellsThatTheFileExisted) {
    folder.write(u"a", "text");
    const HANDLE file = open(u"a", readAndWrite, 0, OPEN_ALWAYS);
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(readText(file, 10), "text");
    CloseHandle(file);
    const HANDLE fresh = open(u"b", readAndWrite, 0, OPEN_ALWAYS);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    CloseHandle(fresh);
}

TEST_F(Files, TruncateExistingEmptiesAndNeedsTheFile) {
    folder.write(u"a", "text");
    CloseHandle(open(u"a", GENERIC_WRITE, 0, TRUNCATE_EXISTING));
    EXPECT_EQ(folder.read(u"a"), "");
    EXPECT_EQ(open(u"b", GENERIC_WRITE, 0, TRUNCATE_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(Files, AMissingFileAndAMissingFolderAreToldApart) {
    EXPECT_EQ(open(u"none", GENERIC_READ, 0, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(open(u"none\\a", GENERIC_READ, 0, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(open(u"none\\a", GENERIC_WRITE, 0, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(CreateFileW(u"", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, HANDLE()), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST_F(Files, AnUnknownDispositionIsRefused) {
    EXPECT_EQ(open(u"a", GENERIC_READ, 0, 0), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(open(u"a", GENERIC_READ, 0, 6), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(Files, AFolderIsNoFile) {
    EXPECT_EQ(CreateFileW(folder.path().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, HANDLE()),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST_F(Files, AnsiNamesReachTheFileWithTheWideName) {
    const HANDLE file = CreateFileA(folder.ansiFile(u"año.txt").c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, HANDLE());
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    writeText(file, "x");
    CloseHandle(file);
    EXPECT_EQ(folder.read(u"año.txt"), "x");
    EXPECT_EQ(filesOfFolder(folder.path()), std::vector<std::u16string>{u"año.txt"});
}

TEST_F(Files, ExclusiveUseShutsOthersOut) {
    const HANDLE file = open(u"a", GENERIC_WRITE, 0, CREATE_NEW);
    EXPECT_EQ(open(u"a", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(open(u"a", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, CREATE_ALWAYS),
              INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    CloseHandle(file);
    const HANDLE again = open(u"a", GENERIC_READ, 0, OPEN_EXISTING);
    EXPECT_NE(again, INVALID_HANDLE_VALUE);
    CloseHandle(again);
}

TEST_F(Files, TheSecondMustLetTheFirstGoOnToo) {
    folder.write(u"a", "text");
    const HANDLE writer = open(u"a", GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING);
    EXPECT_EQ(open(u"a", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    const HANDLE reader = open(u"a", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    EXPECT_NE(reader, INVALID_HANDLE_VALUE);
    CloseHandle(reader);
    CloseHandle(writer);
}

TEST_F(Files, AskingAboutAFileCollidesWithNobody) {
    const HANDLE writer = open(u"a", GENERIC_WRITE, 0, CREATE_NEW);
    writeText(writer, "12345");
    const HANDLE asker = open(u"a", FILE_READ_ATTRIBUTES, FILE_SHARE_READ, OPEN_EXISTING);
    ASSERT_NE(asker, INVALID_HANDLE_VALUE);
    LONGLONG size = 0;
    EXPECT_TRUE(GetFileSizeEx(asker, &size));
    EXPECT_EQ(size, 5);
    CloseHandle(asker);
    CloseHandle(writer);
}

TEST_F(Files, ReadingAndWritingNeedTheirAccess) {
    folder.write(u"a", "text");
    char byte = 'x';
    DWORD moved = 7;
    const HANDLE reader = open(u"a", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    EXPECT_FALSE(WriteFile(reader, &byte, 1, &moved, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(moved, 0u);
    CloseHandle(reader);
    const HANDLE writer = open(u"a", GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_FALSE(ReadFile(writer, &byte, 1, &moved, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    CloseHandle(writer);
}

TEST_F(Files, ReadingAtTheEndSucceedsWithNothing) {
    folder.write(u"a", "abc");
    const HANDLE file = open(u"a", GENERIC_READ, 0, OPEN_EXISTING);
    EXPECT_EQ(readText(file, 2), "ab");
    EXPECT_EQ(readText(file, 2), "c");
    EXPECT_EQ(readText(file, 2), "");
    CloseHandle(file);
}

TEST_F(Files, PositionsMoveFromBeginningPresentAndEnd) {
    folder.write(u"a", "0123456789");
    const HANDLE file = open(u"a", GENERIC_READ, 0, OPEN_EXISTING);
    LONGLONG position = 0;
    EXPECT_TRUE(SetFilePointerEx(file, 4, &position, FILE_BEGIN));
    EXPECT_EQ(position, 4);
    EXPECT_TRUE(SetFilePointerEx(file, -1, &position, FILE_CURRENT));
    EXPECT_EQ(position, 3);
    EXPECT_TRUE(SetFilePointerEx(file, -2, &position, FILE_END));
    EXPECT_EQ(position, 8);
    EXPECT_EQ(readText(file, 5), "89");
    EXPECT_TRUE(SetFilePointerEx(file, 0, nullptr, FILE_BEGIN));
    EXPECT_EQ(readText(file, 1), "0");
    CloseHandle(file);
}

TEST_F(Files, APositionBeforeTheBeginningIsRefused) {
    folder.write(u"a", "0123");
    const HANDLE file = open(u"a", GENERIC_READ, 0, OPEN_EXISTING);
    LONGLONG position = 0;
    EXPECT_FALSE(SetFilePointerEx(file, -1, &position, FILE_BEGIN));
    EXPECT_EQ(GetLastError(), ERROR_NEGATIVE_SEEK);
    EXPECT_FALSE(SetFilePointerEx(file, 0, &position, 3));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    CloseHandle(file);
}

TEST_F(Files, PositionsBeyondFourGigabytesHold) {
    constexpr LONGLONG far = 5'000'000'000;
    const HANDLE file = open(u"a", readAndWrite, 0, CREATE_NEW);
    LONGLONG position = 0;
    ASSERT_TRUE(SetFilePointerEx(file, far, &position, FILE_BEGIN));
    EXPECT_EQ(position, far);
    EXPECT_TRUE(SetFilePointerEx(file, 0, &position, FILE_CURRENT));
    EXPECT_EQ(position, far);
    LONGLONG size = -1;
    EXPECT_TRUE(GetFileSizeEx(file, &size));
    EXPECT_EQ(size, 0) << "moving alone does not make the file longer";
    CloseHandle(file);
}

TEST_F(Files, SetEndOfFileCutsAtThePosition) {
    folder.write(u"a", "0123456789");
    const HANDLE file = open(u"a", readAndWrite, 0, OPEN_EXISTING);
    SetFilePointerEx(file, 4, nullptr, FILE_BEGIN);
    EXPECT_TRUE(SetEndOfFile(file));
    CloseHandle(file);
    EXPECT_EQ(folder.read(u"a"), "0123");
}

TEST_F(Files, AppendingAccessAlwaysWritesAtTheEnd) {
    folder.write(u"a", "one ");
    const HANDLE file = open(u"a", FILE_APPEND_DATA, 0, OPEN_EXISTING);
    SetFilePointerEx(file, 0, nullptr, FILE_BEGIN);
    EXPECT_EQ(writeText(file, "two"), 3u);
    CloseHandle(file);
    EXPECT_EQ(folder.read(u"a"), "one two");
}

TEST_F(Files, AClosedHandleFailsCleanly) {
    const HANDLE file = open(u"a", GENERIC_WRITE, 0, CREATE_NEW);
    EXPECT_TRUE(FlushFileBuffers(file));
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_FALSE(CloseHandle(file));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    DWORD moved = 0;
    EXPECT_FALSE(WriteFile(file, "x", 1, &moved, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    LONGLONG size = 0;
    EXPECT_FALSE(GetFileSizeEx(file, &size));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(Files, TimesAreSetAndReadBack) {
    const SYSTEMTIME calendar{2001, 2, 0, 3, 4, 5, 6, 700};
    const SYSTEMTIME later{2011, 2, 0, 3, 4, 5, 6, 0};
    FILETIME first, second, creation, access, write;
    SystemTimeToFileTime(&calendar, &first);
    SystemTimeToFileTime(&later, &second);
    const HANDLE file = open(u"a", readAndWrite, 0, CREATE_NEW);
    EXPECT_TRUE(SetFileTime(file, nullptr, &second, &first));
    EXPECT_TRUE(GetFileTime(file, &creation, &access, &write));
    SYSTEMTIME read;
    FileTimeToSystemTime(&write, &read);
    EXPECT_EQ(read.wYear, 2001);
    EXPECT_EQ(read.wSecond, 6);
    FileTimeToSystemTime(&access, &read);
    EXPECT_EQ(read.wYear, 2011);
    CloseHandle(file);
}

TEST_F(Files, AReadOnlyFileIsNotDeleted) {
    folder.write(u"a", "text");
    const std::string name = folder.ansiFile(u"a");
    EXPECT_TRUE(SetFileAttributesA(name.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_NE(GetFileAttributesA(name.c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
    EXPECT_FALSE(DeleteFileA(name.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(SetFileAttributesA(name.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(DeleteFileA(name.c_str()));
    EXPECT_EQ(GetFileAttributesA(name.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(Files, AnOpenFileIsDeletedOnlyIfItsHolderLets) {
    folder.write(u"a", "text");
    const HANDLE file = open(u"a", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    EXPECT_FALSE(DeleteFileW(folder.file(u"a").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    CloseHandle(file);
    EXPECT_TRUE(DeleteFileW(folder.file(u"a").c_str()));
}

TEST_F(Files, DeleteOnCloseRemovesTheFile) {
    CloseHandle(open(u"a", GENERIC_WRITE, FILE_SHARE_DELETE, CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE));
    EXPECT_EQ(GetFileAttributesW(folder.file(u"a").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(Files, FoldersTellThatTheyAreAndAreMadeOnce) {
    EXPECT_NE(GetFileAttributesW(folder.path().c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_FALSE(CreateDirectoryW(folder.path().c_str(), nullptr));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(CreateDirectoryW(folder.file(u"none\\sub").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(DeleteFileW(folder.path().c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST_F(Files, AFileTakesThePlaceOfAnotherInOneStep) {
    folder.write(u"a", "former");
    folder.write(u"b", "new");
    const HANDLE reader =
        open(u"a", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    EXPECT_TRUE(
        ReplaceFileW(folder.file(u"a").c_str(), folder.file(u"b").c_str(), nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(folder.read(u"a"), "new");
    EXPECT_EQ(GetFileAttributesW(folder.file(u"b").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(readText(reader, 10), "former") << "who has it open keeps the former one";
    CloseHandle(reader);
}

TEST_F(Files, NothingTakesThePlaceOfAFileThatIsNotThereOrReadOnly) {
    folder.write(u"b", "new");
    const auto replaceA = [&] {
        return ReplaceFileW(folder.file(u"a").c_str(), folder.file(u"b").c_str(), nullptr, 0, nullptr,
                            nullptr);
    };
    EXPECT_FALSE(replaceA());
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    folder.write(u"a", "former");
    SetFileAttributesW(folder.file(u"a").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(replaceA());
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(folder.read(u"a"), "former");
    EXPECT_EQ(folder.read(u"b"), "new");
    EXPECT_FALSE(
        ReplaceFileW(folder.file(u"b").c_str(), folder.file(u"c").c_str(), nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(folder.read(u"b"), "new");
}

} // namespace
