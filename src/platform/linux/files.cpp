// Files by handle: opening, reading, writing, positions and times.

#include "platform/files.h"

#include "platform/linux/file_names.h"
#include "platform/linux/file_sharing.h"
#include "platform/linux/kernel_objects.h"
#include "platform/locale.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace platform {
namespace {

using driver::errorFromErrno;
using driver::errorOfPath;
using driver::FileIdentity;
using driver::FileUse;
using driver::systemPath;

constexpr mode_t writePermissions = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t newFileMode = 0666;
constexpr std::int64_t unitsPerSecond = 10'000'000;
constexpr std::int64_t nanosecondsPerUnit = 100;
constexpr std::int64_t unixEpochInUnits = 116'444'736'000'000'000; // 1 January 1970
constexpr const char* creationAttribute = "user.tesela.created";

BOOL failed(DWORD code) {
    SetLastError(code);
    return FALSE_;
}

class OpenFile : public driver::KernelObject {
public:
    OpenFile(int descriptor, std::string path) : fd(descriptor), path_(std::move(path)) {}
    ~OpenFile() override {
        if (use) driver::leaveFileUse(use);
        if (deleteOnClose) unlink(path_.c_str());
        close(fd);
    }

    const int fd;
    int use = 0; ///< Its number in the table of share modes
    bool reads = false;
    bool writes = false;
    bool writesAttributes = false;
    bool appends = false;
    bool deleteOnClose = false;

private:
    std::string path_;
};

/// What the access bits ask for.
struct Access {
    bool reads;
    bool writes;
    bool appends;
    bool writesAttributes;

    explicit Access(DWORD bits)
        : reads(bits & (GENERIC_READ | GENERIC_ALL | FILE_READ_DATA)),
          writes(bits & (GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA)), appends(bits & FILE_APPEND_DATA),
          writesAttributes(bits & (GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_ATTRIBUTES)) {}

    bool changes() const { return writes || appends; }
};

/// A file opened by the system, and whether it was there before.
struct Opened {
    int fd = -1;
    bool existed = false;
    int error = 0;
};

int openWith(const std::string& path, const Access& access, int extra) {
    const int common = O_CLOEXEC | O_NOCTTY | extra;
    if (!access.changes()) return open(path.c_str(), O_RDONLY | common, newFileMode);
    // Reading too, where permitted, so that the locks that tell the share mode can be set.
    const int fd = open(path.c_str(), O_RDWR | common, newFileMode);
    return fd < 0 && errno == EACCES && !access.reads ? open(path.c_str(), O_WRONLY | common, newFileMode)
                                                      : fd;
}

Opened openOrCreate(const std::string& path, const Access& access, DWORD disposition) {
    const bool creates =
        disposition == CREATE_NEW || disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
    Opened result;
    if (creates) {
        result.fd = openWith(path, access, O_CREAT | O_EXCL);
        if (result.fd >= 0) return result;
        result.error = errno;
        if (errno != EEXIST || disposition == CREATE_NEW) return result;
    }
    result.existed = true;
    result.fd = openWith(path, access, 0);
    result.error = result.fd < 0 ? errno : 0;
    return result;
}

/// The platform refuses folders, and read-only files to those who write, whoever asks.
DWORD refusal(const struct stat& about, const Access& access, bool existed, DWORD disposition) {
    const bool readOnly = (about.st_mode & writePermissions) == 0;
    if (S_ISDIR(about.st_mode)) return ERROR_ACCESS_DENIED;
    const bool changes = access.changes() || disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING;
    return existed && readOnly && changes ? ERROR_ACCESS_DENIED : ERROR_SUCCESS;
}

HANDLE invalid(DWORD code) {
    SetLastError(code);
    return INVALID_HANDLE_VALUE;
}

/// Checks the opened file, enters its share mode and empties it if so asked.
DWORD prepare(OpenFile& file, const Opened& opened, DWORD share, DWORD disposition, DWORD flags,
              const Access& access) {
    struct stat about {};
    if (fstat(file.fd, &about) != 0) return errorFromErrno(errno);
    if (const DWORD refused = refusal(about, access, opened.existed, disposition)) return refused;
    const FileUse use{access.reads,
                      access.changes(),
                      (flags & FILE_FLAG_DELETE_ON_CLOSE) != 0,
                      (share & FILE_SHARE_READ) != 0,
                      (share & FILE_SHARE_WRITE) != 0,
                      (share & FILE_SHARE_DELETE) != 0};
    file.use = driver::enterFileUse(FileIdentity{about.st_dev, about.st_ino}, use, file.fd);
    if (!file.use) return ERROR_SHARING_VIOLATION;
    const bool empties = disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING;
    if (opened.existed && empties && ftruncate(file.fd, 0) != 0) return errorFromErrno(errno);
    if (!opened.existed && (flags & FILE_ATTRIBUTE_READONLY) != 0)
        fchmod(file.fd, about.st_mode & ~writePermissions);
    return ERROR_SUCCESS;
}

bool isDisposition(DWORD disposition) {
    return disposition >= CREATE_NEW && disposition <= TRUNCATE_EXISTING;
}

HANDLE createFile(std::u16string_view name, DWORD accessBits, DWORD share, DWORD disposition, DWORD flags) {
    const std::string path = systemPath(name);
    Access access(accessBits);
    if (path.empty()) return invalid(ERROR_PATH_NOT_FOUND);
    if (!isDisposition(disposition) || (disposition == TRUNCATE_EXISTING && !access.writes))
        return invalid(ERROR_INVALID_PARAMETER);
    // Emptying needs the system's permission to write even where the handle may not.
    Access systemAccess = access;
    systemAccess.writes = access.writes || disposition == CREATE_ALWAYS;
    const Opened opened = openOrCreate(path, systemAccess, disposition);
    if (opened.fd < 0) return invalid(errorOfPath(path, opened.error));
    auto file = std::make_shared<OpenFile>(opened.fd, path);
    if (const DWORD code = prepare(*file, opened, share, disposition, flags, access)) return invalid(code);
    file->reads = access.reads;
    file->writes = access.changes();
    file->writesAttributes = access.writesAttributes;
    file->appends = access.appends && !access.writes;
    file->deleteOnClose = (flags & FILE_FLAG_DELETE_ON_CLOSE) != 0;
    const HANDLE handle = driver::addKernelObject(std::move(file));
    if (handle == INVALID_HANDLE_VALUE) return handle;
    const bool tells = disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
    SetLastError(tells && opened.existed ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return handle;
}

FILETIME fileTimeOf(std::int64_t seconds, std::int64_t nanoseconds) {
    const auto units = static_cast<std::uint64_t>(seconds * unitsPerSecond +
                                                  nanoseconds / nanosecondsPerUnit + unixEpochInUnits);
    return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

std::int64_t unitsOf(const FILETIME& time) {
    return static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

timespec timespecOf(const FILETIME& time) {
    const std::int64_t units = unitsOf(time) - unixEpochInUnits;
    std::int64_t seconds = units / unitsPerSecond;
    std::int64_t rest = units % unitsPerSecond;
    if (rest < 0) {
        rest += unitsPerSecond;
        --seconds;
    }
    return {static_cast<time_t>(seconds), static_cast<long>(rest * nanosecondsPerUnit)};
}

FILETIME creationOf(int fd, const struct statx& about) {
    FILETIME kept;
    if (fgetxattr(fd, creationAttribute, &kept, sizeof kept) == static_cast<ssize_t>(sizeof kept))
        return kept;
    if (about.stx_mask & STATX_BTIME) return fileTimeOf(about.stx_btime.tv_sec, about.stx_btime.tv_nsec);
    return fileTimeOf(std::min(about.stx_mtime.tv_sec, about.stx_ctime.tv_sec), 0);
}

} // namespace

HANDLE CreateFileW(const char16_t* name, DWORD access, DWORD share, const void*, DWORD disposition,
                   DWORD flagsAndAttributes, HANDLE) {
    if (!name) return invalid(ERROR_PATH_NOT_FOUND);
    return createFile(name, access, share, disposition, flagsAndAttributes);
}

HANDLE CreateFileA(const char* name, DWORD access, DWORD share, const void*, DWORD disposition,
                   DWORD flagsAndAttributes, HANDLE) {
    if (!name) return invalid(ERROR_PATH_NOT_FOUND);
    return createFile(wideFromAnsi(name), access, share, disposition, flagsAndAttributes);
}

BOOL ReadFile(HANDLE handle, void* buffer, DWORD size, DWORD* moved, void*) {
    if (moved) *moved = 0;
    const auto file = driver::kernelObjectAs<OpenFile>(handle);
    if (!file) return FALSE_;
    if (!file->reads) return failed(ERROR_ACCESS_DENIED);
    ssize_t got = 0;
    do
        got = read(file->fd, buffer, size);
    while (got < 0 && errno == EINTR);
    if (got < 0) return failed(errorFromErrno(errno));
    if (moved) *moved = static_cast<DWORD>(got);
    return TRUE_;
}

BOOL WriteFile(HANDLE handle, const void* buffer, DWORD size, DWORD* moved, void*) {
    if (moved) *moved = 0;
    const auto file = driver::kernelObjectAs<OpenFile>(handle);
    if (!file) return FALSE_;
    if (!file->writes) return failed(ERROR_ACCESS_DENIED);
    if (file->appends) lseek(file->fd, 0, SEEK_END);
    const char* next = static_cast<const char*>(buffer);
    for (DWORD left = size; left > 0;) {
        const ssize_t put = write(file->fd, next, left);
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) return failed(errorFromErrno(errno));
        next += put;
        left -= static_cast<DWORD>(put);
        if (moved) *moved += static_cast<DWORD>(put);
    }
    return TRUE_;
}

BOOL SetFilePointerEx(HANDLE handle, LONGLONG distance, LONGLONG* position, DWORD method) {
    const auto file = driver::kernelObjectAs<OpenFile>(handle);
    if (!file) return FALSE_;
    if (method > FILE_END) return failed(ERROR_INVALID_PARAMETER);
    constexpr int origins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    const off_t now = lseek(file->fd, distance, origins[method]);
    if (now < 0) return failed(errno == EINVAL ? ERROR_NEGATIVE_SEEK : errorFromErrno(errno));
    if (position) *position = now;
    return TRUE_;
}

BOOL SetEndOfFile(HANDLE handle) {
    const auto file = driver::kernelObjectAs<OpenFile>(handle);
    if (!file) return FALSE_;
    if (!file->writes) return failed(ERROR_ACCESS_DENIED);
    const off_t now = lseek(file->fd, 0, SEEK_CUR);
    return ftruncate(file->fd, now) == 0 ? TRUE_ : failed(errorFromErrno(errno));
}

BOOL GetFileSizeEx(HANDLE handle, LONGLONG* size) {
    const auto file = driver::kernelObjectAs<OpenFile>(handle);
    if (!file) return FALSE_;
    struct stat about {};
    if (fstat(file->fd, &about) != 0) return failed(errorFromErrno(errno));
    *size = about.st_size;
    return TRUE_;
}

BOOL FlushFileBuffers(HANDLE handle) {
    const auto file = driver::kernelObjectAs<OpenFile>(handle);
    if (!file) return FALSE_;
    if (!file->writes) return failed(ERROR_ACCESS_DENIED);
    return fsync(file->fd) == 0 || errno == EINVAL ? TRUE_ : failed(errorFromErrno(errno));
}

BOOL GetFileTime(HANDLE handle, FILETIME* creation, FILETIME* lastAccess, FILETIME* lastWrite) {
    const auto file = driver::kernelObjectAs<OpenFile>(handle);
    if (!file) return FALSE_;
    struct statx about {};
    if (statx(file->fd, "", AT_EMPTY_PATH, STATX_BASIC_STATS | STATX_BTIME, &about) != 0)
        return failed(errorFromErrno(errno));
    if (creation) *creation = creationOf(file->fd, about);
    if (lastAccess) *lastAccess = fileTimeOf(about.stx_atime.tv_sec, about.stx_atime.tv_nsec);
    if (lastWrite) *lastWrite = fileTimeOf(about.stx_mtime.tv_sec, about.stx_mtime.tv_nsec);
    return TRUE_;
}

BOOL SetFileTime(HANDLE handle, const FILETIME* creation, const FILETIME* lastAccess,
                 const FILETIME* lastWrite) {
    const auto file = driver::kernelObjectAs<OpenFile>(handle);
    if (!file) return FALSE_;
    if (!file->writesAttributes) return failed(ERROR_ACCESS_DENIED);
    const timespec unchanged{0, UTIME_OMIT};
    const timespec times[] = {lastAccess ? timespecOf(*lastAccess) : unchanged,
                              lastWrite ? timespecOf(*lastWrite) : unchanged};
    if (futimens(file->fd, times) != 0) return failed(errorFromErrno(errno));
    // Without extended attributes the file keeps the system's own time of birth.
    if (creation) fsetxattr(file->fd, creationAttribute, creation, sizeof *creation, 0);
    return TRUE_;
}

} // namespace platform
