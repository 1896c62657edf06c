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

BOOL deleteFileAt(const std::string& path) {
    struct stat about {};
    if (path.empty()) return failed(ERROR_PATH_NOT_FOUND);
    if (lstat(path.c_str(), &about) != 0) return failed(errorOfPath(path, errno));
    if (S_ISDIR(about.st_mode)) return failed(ERROR_ACCESS_DENIED);
    if (S_ISREG(about.st_mode)) {
        if ((about.st_mode & writePermissions) == 0) return failed(ERROR_ACCESS_DENIED);
        const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        const bool free = driver::mayDelete({about.st_dev, about.st_ino}, fd);
        if (fd >= 0) close(fd);
        if (!free) return failed(ERROR_SHARING_VIOLATION);
    }
    return unlink(path.c_str()) == 0 ? TRUE_ : failed(errorFromErrno(errno));
}

} // namespace

BOOL DeleteFileW(const char16_t* name) {
    return deleteFileAt(systemPath(name));
}

BOOL DeleteFileA(const char* name) {
    return deleteFileAt(systemPath(wideFromAnsi(name)));
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
