#include "fichas/FileRewrite.h"

#include "fichas/RecordSource.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/locale.h"

#include <algorithm>
#include <utility>

namespace fichas {

namespace {

[[noreturn]] void fail(platform::DWORD error) {
    switch (error) {
    case platform::ERROR_ACCESS_DENIED:
    case platform::ERROR_WRITE_PROTECT:
        throw WriteError("no se tiene permiso para cambiar el archivo o su carpeta");
    case platform::ERROR_FILE_NOT_FOUND:
    case platform::ERROR_PATH_NOT_FOUND:
        throw WriteError("el archivo ya no existe");
    case platform::ERROR_DISK_FULL:
        throw WriteError("no cabe en el disco");
    case platform::ERROR_SHARING_VIOLATION:
    case platform::ERROR_LOCK_VIOLATION:
        throw WriteError("otro programa tiene abierto el archivo");
    default:
        throw WriteError("no se puede escribir el archivo (error " + std::to_string(error) + ")");
    }
}

/// Opens the file as if it were to be written, and tells why it can't be.
platform::DWORD whyNotWrite(const std::u16string& path) {
    using namespace platform;
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, HANDLE());
    if (file == INVALID_HANDLE_VALUE) return GetLastError();
    CloseHandle(file);
    return ERROR_SUCCESS;
}

} // namespace

bool FileRewrite::isAllowed(const std::u16string& path) {
    const platform::DWORD refused = whyNotWrite(path);
    return refused == platform::ERROR_SUCCESS || refused == platform::ERROR_SHARING_VIOLATION;
}

FileRewrite::FileRewrite(std::u16string path) : path_(std::move(path)) {
    using namespace platform;
    if (const DWORD refused = whyNotWrite(path_)) fail(refused);
    constexpr int mostNames = 100;
    for (int i = 1; i <= mostNames && !isThere_; ++i) {
        beside_ = path_ + u".~" + wideFromUtf8(std::to_string(i));
        file_ = CreateFileW(beside_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                            HANDLE());
        isThere_ = file_ != INVALID_HANDLE_VALUE;
        if (!isThere_ && (GetLastError() != ERROR_FILE_EXISTS || i == mostNames)) fail(GetLastError());
    }
}

FileRewrite::~FileRewrite() {
    close();
    if (isThere_) platform::DeleteFileW(beside_.c_str());
}

void FileRewrite::close() {
    if (file_ != platform::INVALID_HANDLE_VALUE) platform::CloseHandle(file_);
    file_ = platform::INVALID_HANDLE_VALUE;
}

void FileRewrite::write(std::span<const std::uint8_t> bytes) {
    using namespace platform;
    constexpr std::size_t largestWrite = 1 << 30;
    while (!bytes.empty()) {
        DWORD moved = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), largestWrite));
        if (!WriteFile(file_, bytes.data(), wanted, &moved, nullptr)) fail(GetLastError());
        if (moved == 0) fail(ERROR_DISK_FULL);
        bytes = bytes.subspan(moved);
    }
}

void FileRewrite::finish() {
    using namespace platform;
    if (!FlushFileBuffers(file_)) fail(GetLastError());
    close();
    if (!ReplaceFileW(path_.c_str(), beside_.c_str(), nullptr, 0, nullptr, nullptr)) fail(GetLastError());
    isThere_ = false;
}

} // namespace fichas
