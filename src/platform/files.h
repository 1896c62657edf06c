#pragma once
// Files by handle. Names are bytes of the ANSI code page (...A) or UTF-16 (...W). On Linux "\" separates
// folders just as "/" does, and a share mode binds the handles of this process and, by advisory locks, the
// other programs that use this library.

#include "platform/clock.h"
#include "platform/errors.h"
#include "platform/types.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

inline constexpr DWORD FILE_READ_DATA = 0x00000001;
inline constexpr DWORD FILE_WRITE_DATA = 0x00000002;
inline constexpr DWORD FILE_APPEND_DATA = 0x00000004; ///< Alone: every write goes to the end of the file
inline constexpr DWORD FILE_READ_ATTRIBUTES = 0x00000080;
inline constexpr DWORD FILE_WRITE_ATTRIBUTES = 0x00000100;
inline constexpr DWORD GENERIC_ALL = 0x10000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;
inline constexpr DWORD GENERIC_READ = 0x80000000;

inline constexpr DWORD FILE_SHARE_READ = 1;
inline constexpr DWORD FILE_SHARE_WRITE = 2;
inline constexpr DWORD FILE_SHARE_DELETE = 4;

inline constexpr DWORD CREATE_NEW = 1;        ///< Fails with ERROR_FILE_EXISTS if the file exists
inline constexpr DWORD CREATE_ALWAYS = 2;     ///< Empties an existing file
inline constexpr DWORD OPEN_EXISTING = 3;     ///< Fails with ERROR_FILE_NOT_FOUND if there is none
inline constexpr DWORD OPEN_ALWAYS = 4;       ///< Creates it if there is none
inline constexpr DWORD TRUNCATE_EXISTING = 5; ///< Empties it; needs GENERIC_WRITE

inline constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x00000001;
inline constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x00000002; ///< On Linux: the name starts with a dot
inline constexpr DWORD FILE_ATTRIBUTE_SYSTEM = 0x00000004;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x00000010;
inline constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x00000020;
inline constexpr DWORD FILE_ATTRIBUTE_DEVICE = 0x00000040;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x00000080;
inline constexpr DWORD FILE_ATTRIBUTE_TEMPORARY = 0x00000100;
inline constexpr DWORD FILE_FLAG_WRITE_THROUGH = 0x80000000;
inline constexpr DWORD FILE_FLAG_RANDOM_ACCESS = 0x10000000;
inline constexpr DWORD FILE_FLAG_SEQUENTIAL_SCAN = 0x08000000;
inline constexpr DWORD FILE_FLAG_DELETE_ON_CLOSE = 0x04000000;
inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

inline constexpr DWORD FILE_BEGIN = 0;
inline constexpr DWORD FILE_CURRENT = 1;
inline constexpr DWORD FILE_END = 2;

/// Opens or creates a file; INVALID_HANDLE_VALUE on failure. `access` 0 only asks about the file. After
/// CREATE_ALWAYS and OPEN_ALWAYS of a file that existed the last error is ERROR_ALREADY_EXISTS, of a new one
/// 0. Sharing that collides with an open handle fails with ERROR_SHARING_VIOLATION; a folder, or writing to
/// a read-only file, with ERROR_ACCESS_DENIED. The security record and the template are always null.
HANDLE CreateFileA(const char* name, DWORD access, DWORD share, const void* security, DWORD disposition,
                   DWORD flagsAndAttributes, HANDLE pattern);
HANDLE CreateFileW(const char16_t* name, DWORD access, DWORD share, const void* security, DWORD disposition,
                   DWORD flagsAndAttributes, HANDLE pattern);

/// False with ERROR_INVALID_HANDLE for a handle that is closed or was never given out.
BOOL CloseHandle(HANDLE handle);

/// Moves up to `size` bytes and tells how many; at the end of the file it succeeds with 0 bytes. The
/// overlapped record is always null.
BOOL ReadFile(HANDLE file, void* buffer, DWORD size, DWORD* moved, void* overlapped);
BOOL WriteFile(HANDLE file, const void* buffer, DWORD size, DWORD* moved, void* overlapped);

/// Moves the position by a signed distance from the beginning, the present position or the end. `position`
/// may be null. Positions past the end are allowed; before the beginning it fails with ERROR_NEGATIVE_SEEK.
BOOL SetFilePointerEx(HANDLE file, LONGLONG distance, LONGLONG* position, DWORD method);

/// Cuts or extends the file to its present position.
BOOL SetEndOfFile(HANDLE file);

BOOL GetFileSizeEx(HANDLE file, LONGLONG* size);
BOOL FlushFileBuffers(HANDLE file);

/// Times of the open file in UTC; a null pointer leaves that time alone. On Linux the time of creation is
/// kept with the file where its file system has extended attributes; elsewhere it is the file's own birth.
BOOL GetFileTime(HANDLE file, FILETIME* creation, FILETIME* lastAccess, FILETIME* lastWrite);
BOOL SetFileTime(HANDLE file, const FILETIME* creation, const FILETIME* lastAccess,
                 const FILETIME* lastWrite);

/// Fails with ERROR_ACCESS_DENIED for folders and read-only files, with ERROR_SHARING_VIOLATION for files
/// that are open without FILE_SHARE_DELETE.
BOOL DeleteFileA(const char* name);
BOOL DeleteFileW(const char16_t* name);

/// Puts the file `replacement` in the place of the file `replaced`, in one step: whoever opens that one sees
/// the whole former file or the whole new one. It takes over its permissions; on Linux its owner too, where
/// that may be, and a symbolic link goes on leading to it. Fails as DeleteFileW would for `replaced`, and
/// where both do not lie on one volume; then both stay as they are. The other arguments are null and 0.
BOOL ReplaceFileW(const char16_t* replaced, const char16_t* replacement, const char16_t* backup, DWORD flags,
                  void* exclude, void* reserved);

/// Attribute bits, INVALID_FILE_ATTRIBUTES on failure.
DWORD GetFileAttributesA(const char* name);
DWORD GetFileAttributesW(const char16_t* name);

/// On Linux only FILE_ATTRIBUTE_READONLY has an effect: it is the write permission.
BOOL SetFileAttributesA(const char* name, DWORD attributes);
BOOL SetFileAttributesW(const char16_t* name, DWORD attributes);

/// Fails with ERROR_ALREADY_EXISTS, or ERROR_PATH_NOT_FOUND if the parent folder is missing.
BOOL CreateDirectoryW(const char16_t* name, const void* security);

/// Removes an empty folder.
BOOL RemoveDirectoryW(const char16_t* name);

/// The folder for temporary files with its final separator. Returns the characters without the NUL, or the
/// size needed with it when the buffer is too small.
DWORD GetTempPathW(DWORD size, char16_t* buffer);

/// The names of a folder's files, folders left out, in no order; empty for a folder that cannot be read.
std::vector<std::u16string> filesOfFolder(std::u16string_view folder);

} // namespace platform
