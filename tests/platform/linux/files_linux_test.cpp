// What the platform promises of files and times and Wine, as root, does not keep: so it is tested here only.

#include "platform/files.h"
#include "platform/linux/kernel_objects.h"

#include "support/TemporaryFolder.h"

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace platform;

namespace {

class LinuxFiles : public testing::Test {
protected:
    HANDLE open(std::u16string_view name, DWORD access, DWORD share, DWORD disposition) {
        return CreateFileW(folder.file(name).c_str(), access, share, nullptr, disposition,
                           FILE_ATTRIBUTE_NORMAL, HANDLE());
    }

    support::TemporaryFolder folder;
};

TEST_F(LinuxFiles, AReadOnlyFileIsNotWritten) {
    SetFileAttributesW(folder.write(u"a", "text").c_str(), FILE_ATTRIBUTE_READONLY);
    for (const DWORD disposition : {OPEN_EXISTING, OPEN_ALWAYS, CREATE_ALWAYS, TRUNCATE_EXISTING}) {
        EXPECT_EQ(open(u"a", GENERIC_WRITE, 0, disposition), INVALID_HANDLE_VALUE);
        EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    }
    EXPECT_EQ(folder.read(u"a"), "text");
}

TEST_F(LinuxFiles, SettingTimesNeedsTheAccess) {
    folder.write(u"a", "text");
    const FILETIME time{0, 0x01C00000};
    const HANDLE reader = open(u"a", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    EXPECT_FALSE(SetFileTime(reader, nullptr, nullptr, &time));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    CloseHandle(reader);
}

TEST_F(LinuxFiles, TheTimeOfCreationIsKeptWhereTheFileSystemLets) {
    const FILETIME time{0x12345678, 0x01C00000};
    const HANDLE file = open(u"a", GENERIC_READ | GENERIC_WRITE, 0, CREATE_NEW);
    ASSERT_TRUE(SetFileTime(file, &time, nullptr, nullptr));
    FILETIME creation{};
    FILETIME write{};
    ASSERT_TRUE(GetFileTime(file, &creation, nullptr, &write));
    const bool kept =
        creation.dwHighDateTime == time.dwHighDateTime && creation.dwLowDateTime == time.dwLowDateTime;
    EXPECT_TRUE(kept || creation.dwHighDateTime == write.dwHighDateTime);
    CloseHandle(file);
}

TEST_F(LinuxFiles, TheLeapDayOfACommonYearIsRefused) {
    for (const WORD year : {2001, 1900}) {
        const SYSTEMTIME time{year, 2, 0, 29, 0, 0, 0, 0};
        FILETIME file{};
        EXPECT_FALSE(SystemTimeToFileTime(&time, &file));
    }
}

TEST_F(LinuxFiles, ClosedFilesLeaveNoHandle) {
    const int before = driver::openKernelHandles();
    const HANDLE file = open(u"a", GENERIC_WRITE, 0, CREATE_NEW);
    EXPECT_EQ(driver::openKernelHandles(), before + 1);
    CloseHandle(file);
    EXPECT_EQ(driver::openKernelHandles(), before);
}

/// The exit status of another process that opens the file: the error code, 0 for success.
int openInAnotherProcess(const std::u16string& path, DWORD access, DWORD share) {
    const pid_t child = fork();
    if (child == 0) {
        const HANDLE file =
            CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, HANDLE());
        _exit(file == INVALID_HANDLE_VALUE ? static_cast<int>(GetLastError()) : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WEXITSTATUS(status);
}

TEST_F(LinuxFiles, ShareModesBindOtherProcesses) {
    const DWORD all = FILE_SHARE_READ | FILE_SHARE_WRITE;
    const auto path = folder.write(u"a", "text");
    // The other process is made first and asks when told, so that it knows nothing of this one's table.
    int tell[2];
    ASSERT_EQ(pipe(tell), 0);
    const pid_t child = fork();
    if (child == 0) {
        char go = 0;
        const bool told = read(tell[0], &go, 1) == 1;
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, all, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, HANDLE());
        _exit(told && file == INVALID_HANDLE_VALUE ? static_cast<int>(GetLastError()) : 0);
    }
    const HANDLE writer = open(u"a", GENERIC_WRITE, 0, OPEN_EXISTING);
    ASSERT_EQ(write(tell[1], "x", 1), 1);
    int status = 0;
    waitpid(child, &status, 0);
    close(tell[0]);
    close(tell[1]);
    EXPECT_EQ(WEXITSTATUS(status), static_cast<int>(ERROR_SHARING_VIOLATION));
    CloseHandle(writer);
    EXPECT_EQ(openInAnotherProcess(path, GENERIC_READ, all), 0);
}

TEST_F(LinuxFiles, AFileThatTakesThePlaceOfAnotherHasItsPermissionsAndItsLinks) {
    folder.write(u"a", "former");
    ASSERT_EQ(chmod(folder.utf8File("a").c_str(), 0640), 0);
    ASSERT_EQ(symlink("a", folder.utf8File("link").c_str()), 0);
    folder.write(u"b", "new");
    EXPECT_TRUE(
        ReplaceFileW(folder.file(u"link").c_str(), folder.file(u"b").c_str(), nullptr, 0, nullptr, nullptr));
    struct stat about {};
    ASSERT_EQ(lstat(folder.utf8File("a").c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 07777, mode_t{0640});
    ASSERT_EQ(lstat(folder.utf8File("link").c_str(), &about), 0);
    EXPECT_TRUE(S_ISLNK(about.st_mode));
    EXPECT_EQ(folder.read(u"a"), "new");
}

TEST_F(LinuxFiles, AFileThatIsHeldDoesNotGiveItsPlace) {
    folder.write(u"a", "former");
    folder.write(u"b", "new");
    const HANDLE reader = open(u"a", GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    EXPECT_FALSE(
        ReplaceFileW(folder.file(u"a").c_str(), folder.file(u"b").c_str(), nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    CloseHandle(reader);
    EXPECT_EQ(folder.read(u"a"), "former");
}

} // namespace
