#include "platform/files.h"

#include "platform/windows/convert.h"

namespace platform {

using driver::as;
using driver::handleFrom;
using driver::native;
using driver::wide;

// Security records are opaque to the ring and never given.

HANDLE CreateFileA(const char* name, DWORD access, DWORD share, const void*, DWORD disposition,
                   DWORD flagsAndAttributes, HANDLE) {
    return handleFrom<HANDLE>(
        ::CreateFileA(name, access, share, nullptr, disposition, flagsAndAttributes, nullptr));
}

HANDLE CreateFileW(const char16_t* name, DWORD access, DWORD share, const void*, DWORD disposition,
                   DWORD flagsAndAttributes, HANDLE) {
    return handleFrom<HANDLE>(
        ::CreateFileW(wide(name), access, share, nullptr, disposition, flagsAndAttributes, nullptr));
}

BOOL CloseHandle(HANDLE handle) {
    return ::CloseHandle(native(handle));
}

BOOL ReadFile(HANDLE file, void* buffer, DWORD size, DWORD* moved, void*) {
    ::DWORD done = 0;
    const BOOL success = ::ReadFile(native(file), buffer, size, &done, nullptr);
    if (moved) *moved = done;
    return success;
}

BOOL WriteFile(HANDLE file, const void* buffer, DWORD size, DWORD* moved, void*) {
    ::DWORD done = 0;
    const BOOL success = ::WriteFile(native(file), buffer, size, &done, nullptr);
    if (moved) *moved = done;
    return success;
}

BOOL SetFilePointerEx(HANDLE file, LONGLONG distance, LONGLONG* position, DWORD method) {
    ::LARGE_INTEGER by{};
    ::LARGE_INTEGER now{};
    by.QuadPart = distance;
    const BOOL success = ::SetFilePointerEx(native(file), by, &now, method);
    if (success && position) *position = now.QuadPart;
    return success;
}

BOOL SetEndOfFile(HANDLE file) {
    return ::SetEndOfFile(native(file));
}

BOOL GetFileSizeEx(HANDLE file, LONGLONG* size) {
    ::LARGE_INTEGER value{};
    const BOOL success = ::GetFileSizeEx(native(file), &value);
    if (success) *size = value.QuadPart;
    return success;
}

BOOL FlushFileBuffers(HANDLE file) {
    return ::FlushFileBuffers(native(file));
}

BOOL GetFileTime(HANDLE file, FILETIME* creation, FILETIME* lastAccess, FILETIME* lastWrite) {
    return ::GetFileTime(native(file), as<::FILETIME>(creation), as<::FILETIME>(lastAccess),
                         as<::FILETIME>(lastWrite));
}

BOOL SetFileTime(HANDLE file, const FILETIME* creation, const FILETIME* lastAccess,
                 const FILETIME* lastWrite) {
    return ::SetFileTime(native(file), as<::FILETIME>(creation), as<::FILETIME>(lastAccess),
                         as<::FILETIME>(lastWrite));
}

BOOL DeleteFileA(const char* name) {
    return ::DeleteFileA(name);
}

BOOL DeleteFileW(const char16_t* name) {
    return ::DeleteFileW(wide(name));
}

BOOL ReplaceFileW(const char16_t* replaced, const char16_t* replacement, const char16_t*, DWORD flags, void*,
                  void*) {
    return ::ReplaceFileW(wide(replaced), wide(replacement), nullptr, flags, nullptr, nullptr);
}

DWORD GetFileAttributesA(const char* name) {
    return ::GetFileAttributesA(name);
}

DWORD GetFileAttributesW(const char16_t* name) {
    return ::GetFileAttributesW(wide(name));
}

BOOL SetFileAttributesA(const char* name, DWORD attributes) {
    return ::SetFileAttributesA(name, attributes);
}

BOOL SetFileAttributesW(const char16_t* name, DWORD attributes) {
    return ::SetFileAttributesW(wide(name), attributes);
}

BOOL CreateDirectoryW(const char16_t* name, const void*) {
    return ::CreateDirectoryW(wide(name), nullptr);
}

BOOL RemoveDirectoryW(const char16_t* name) {
    return ::RemoveDirectoryW(wide(name));
}

DWORD GetTempPathW(DWORD size, char16_t* buffer) {
    return ::GetTempPathW(size, wide(buffer));
}

std::vector<std::u16string> filesOfFolder(std::u16string_view folder) {
    std::u16string pattern(folder);
    if (!pattern.empty() && pattern.back() != u'\\' && pattern.back() != u'/') pattern += u'\\';
    pattern += u'*';
    std::vector<std::u16string> names;
    ::WIN32_FIND_DATAW entry{};
    const ::HANDLE search = ::FindFirstFileW(wide(pattern.c_str()), &entry);
    if (search == (::HANDLE)(::LONG_PTR)-1) return names;
    do {
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            names.emplace_back(reinterpret_cast<const char16_t*>(entry.cFileName));
    } while (::FindNextFileW(search, &entry));
    ::FindClose(search);
    return names;
}

} // namespace platform
