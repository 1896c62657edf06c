#include "fichas/ByteSource.h"

#include "fichas/RecordSource.h"
#include "platform/errors.h"
#include "platform/files.h"

#include <algorithm>
#include <cstring>

namespace fichas {

std::size_t MemoryBytes::read(std::int64_t offset, std::span<std::uint8_t> into) {
    const auto start = static_cast<std::size_t>(std::min(offset, size()));
    const std::size_t length = std::min(into.size(), bytes_.size() - start);
    if (length) std::memcpy(into.data(), bytes_.data() + start, length);
    return length;
}

namespace {

[[noreturn]] void failToOpen(const std::u16string& path, const std::string& name, platform::DWORD error) {
    using namespace platform;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY)
        throw SourceError(name + ": es una carpeta, no un archivo");
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        throw SourceError(name + ": no existe el archivo");
    case ERROR_ACCESS_DENIED:
        throw SourceError(name + ": no se tiene permiso para leer el archivo");
    case ERROR_SHARING_VIOLATION:
        throw SourceError(name + ": otro programa tiene abierto el archivo");
    default:
        throw SourceError(name + ": no se puede abrir el archivo (error " + std::to_string(error) + ")");
    }
}

} // namespace

FileBytes::FileBytes(const std::u16string& path, const std::string& name) : name_(name) {
    using namespace platform;
    file_ = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        nullptr, OPEN_EXISTING, FILE_FLAG_RANDOM_ACCESS, HANDLE());
    if (file_ == INVALID_HANDLE_VALUE) failToOpen(path, name, GetLastError());
    LONGLONG size = 0;
    if (!GetFileSizeEx(file_, &size)) {
        const DWORD error = GetLastError();
        CloseHandle(file_);
        failToOpen(path, name, error);
    }
    size_ = size;
}

FileBytes::~FileBytes() {
    platform::CloseHandle(file_);
}

std::size_t FileBytes::read(std::int64_t offset, std::span<std::uint8_t> into) {
    using namespace platform;
    constexpr std::size_t largestRead = 1 << 30;
    std::size_t done = 0;
    bool ok = SetFilePointerEx(file_, offset, nullptr, FILE_BEGIN) != FALSE_;
    while (ok && done < into.size()) {
        DWORD moved = 0;
        const auto wanted = static_cast<DWORD>(std::min(into.size() - done, largestRead));
        ok = ReadFile(file_, into.data() + done, wanted, &moved, nullptr) != FALSE_;
        if (moved == 0) break;
        done += moved;
    }
    if (!ok) throw SourceError(name_ + ": error al leer el archivo");
    return done;
}

FileStamp FileBytes::stamp() const {
    platform::LONGLONG size = 0;
    platform::FILETIME changed{};
    platform::GetFileSizeEx(file_, &size);
    platform::GetFileTime(file_, nullptr, nullptr, &changed);
    return {size,
            static_cast<std::int64_t>(std::uint64_t{changed.dwHighDateTime} << 32 | changed.dwLowDateTime)};
}

} // namespace fichas
