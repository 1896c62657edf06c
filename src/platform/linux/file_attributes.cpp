// Files by name: attributes, deletion and folders.

#include "platform/files.h"
#include "platform/linux/file_names.h"
#include "platform/linux/file_sharing.h"
#include "platform/locale.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

using driver::errorFromErrno;
using driver::errorOfPath;
using driver::systemPath;

constexpr mode_t writePermissions = S_IWUSR | S_IWGRP | S_IWOTH;

BOOL failed(DWORD code) {
    SetLastError(code);
    return FALSE_;
}

bool isHidden(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    return name.size() > 1 && name[0] == '.' && name != "..";
}

DWORD attributesOf(const std::string& path) {
    struct stat about {};
    if (stat(path.c_str(), &about) != 0) {
        SetLastError(errorOfPath(path, errno));
        return INVALID_FILE_ATTRIBUTES;
    }
    DWORD attributes = isHidden(path) ? FILE_ATTRIBUTE_HIDDEN : 0;
    if ((about.st_mode & writePermissions) == 0) attributes |= FILE_ATTRIBUTE_READONLY;
    if (S_ISDIR(about.st_mode)) return attributes | FILE_ATTRIBUTE_DIRECTORY;
    if (!S_ISREG(about.st_mode)) return attributes | FILE_ATTRIBUTE_DEVICE;
    return attributes | FILE_ATTRIBUTE_ARCHIVE;
}

BOOL setAttributes(const std::string& path, DWORD attributes) {
    struct stat about {};
    if (stat(path.c_str(), &about) != 0) return failed(errorOfPath(path, errno));
    const mode_t mode = about.st_mode & 07777;
    // Writing comes back to those who may read, as far as the creation mask lets it be.
    const mode_t mask = umask(0);
    umask(mask);
    const mode_t readers = (mode & (S_IRUSR | S_IRGRP | S_IROTH)) >> 1;
    const mode_t wanted =
        attributes & FILE_ATTRIBUTE_READONLY ? mode & ~writePermissions : mode | S_IWUSR | (readers & ~mask);
    if (wanted == mode || chmod(path.c_str(), wanted) == 0) return TRUE_;
    return failed(errorFromErrno(errno));
}

/// Why a file may not be deleted; ERROR_SUCCESS where it may.
DWORD whyNotDelete(const std::string& path, const struct stat& about) {
    if (S_ISDIR(about.st_mode)) return ERROR_ACCESS_DENIED;
    if (!S_ISREG(about.st_mode)) return ERROR_SUCCESS;
    if ((about.st_mode & writePermissions) == 0) return ERROR_ACCESS_DENIED;
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    const bool free = driver::mayDelete({about.st_dev, about.st_ino}, fd);
    if (fd >= 0) close(fd);
    return free ? ERROR_SUCCESS : ERROR_SHARING_VIOLATION;
}

BOOL deleteFileAt(const std::string& path) {
    struct stat about {};
    if (path.empty()) return failed(ERROR_PATH_NOT_FOUND);
    if (lstat(path.c_str(), &about) != 0) return failed(errorOfPath(path, errno));
    if (const DWORD refused = whyNotDelete(path, about)) return failed(refused);
    return unlink(path.c_str()) == 0 ? TRUE_ : failed(errorFromErrno(errno));
}

/// What the system holds in memory of a folder goes to the disk.
void flushFolderOf(const std::string& path) {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    const int fd = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY);
    if (fd < 0) return;
    fsync(fd);
    close(fd);
}

BOOL replaceFile(const std::string& name, const std::string& replacement) {
    std::error_code problem;
    const std::string replaced = std::filesystem::canonical(name, problem).string();
    if (problem) return failed(errorOfPath(name, problem.value()));
    struct stat about {};
    if (stat(replaced.c_str(), &about) != 0) return failed(errorOfPath(replaced, errno));
    if (const DWORD refused = whyNotDelete(replaced, about)) return failed(refused);
    struct stat aboutNew {};
    if (stat(replacement.c_str(), &aboutNew) != 0) return failed(errorOfPath(replacement, errno));
    if (const DWORD refused = whyNotDelete(replacement, aboutNew)) return failed(refused);
    // Another user's file becomes one's own where it can't be helped, as with every program that saves so.
    const bool isOwned = chown(replacement.c_str(), about.st_uid, about.st_gid) == 0 ||
                         chown(replacement.c_str(), static_cast<uid_t>(-1), about.st_gid) == 0;
    const mode_t mode = about.st_mode & (isOwned ? 0777 : 0707);
    if (chmod(replacement.c_str(), mode) != 0) return failed(errorFromErrno(errno));
    if (rename(replacement.c_str(), replaced.c_str()) != 0) return failed(errorFromErrno(errno));
    flushFolderOf(replaced);
    return TRUE_;
}

} // namespace

BOOL DeleteFileW(const char16_t* name) {
    return deleteFileAt(systemPath(name));
}

BOOL DeleteFileA(const char* name) {
    return deleteFileAt(systemPath(wideFromAnsi(name)));
}

BOOL ReplaceFileW(const char16_t* replaced, const char16_t* replacement, const char16_t*, DWORD, void*,
                  void*) {
    return replaceFile(systemPath(replaced), systemPath(replacement));
}

DWORD GetFileAttributesW(const char16_t* name) {
    return attributesOf(systemPath(name));
}

DWORD GetFileAttributesA(const char* name) {
    return attributesOf(systemPath(wideFromAnsi(name)));
}

BOOL SetFileAttributesW(const char16_t* name, DWORD attributes) {
    return setAttributes(systemPath(name), attributes);
}

BOOL SetFileAttributesA(const char* name, DWORD attributes) {
    return setAttributes(systemPath(wideFromAnsi(name)), attributes);
}

BOOL CreateDirectoryW(const char16_t* name, const void*) {
    const std::string path = systemPath(name);
    if (mkdir(path.c_str(), 0777) == 0) return TRUE_;
    if (errno == EEXIST) return failed(ERROR_ALREADY_EXISTS);
    return failed(errno == ENOENT ? ERROR_PATH_NOT_FOUND : errorFromErrno(errno));
}

BOOL RemoveDirectoryW(const char16_t* name) {
    const std::string path = systemPath(name);
    return rmdir(path.c_str()) == 0 ? TRUE_ : failed(errorOfPath(path, errno));
}

DWORD GetTempPathW(DWORD size, char16_t* buffer) {
    const char* chosen = std::getenv("TMPDIR");
    std::u16string folder = wideFromUtf8(chosen && *chosen ? chosen : "/tmp");
    if (folder.back() != u'/') folder += u'/';
    const auto length = static_cast<DWORD>(folder.size());
    if (size <= length) return length + 1;
    folder.copy(buffer, length);
    buffer[length] = u'\0';
    return length;
}

std::vector<std::u16string> filesOfFolder(std::u16string_view folder) {
    std::vector<std::u16string> names;
    std::error_code problem;
    const std::string path = systemPath(folder);
    for (std::filesystem::directory_iterator at(path.empty() ? "." : path, problem), end;
         !problem && at != end; at.increment(problem)) {
        std::error_code unreadable;
        if (!at->is_directory(unreadable)) names.push_back(wideFromUtf8(at->path().filename().string()));
    }
    return names;
}

} // namespace platform
