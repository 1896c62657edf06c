#include "platform/linux/metafile.h"

#include "platform/files.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

namespace {

constexpr std::size_t shortestHeader = 88; ///< The first version's
constexpr std::size_t longestFile = 256u << 20;
constexpr std::size_t recordAlignment = 4;

ENHMETAHEADER headerOf(std::span<const BYTE> bytes) {
    ENHMETAHEADER header;
    ENHMETARECORD first;
    std::memcpy(&first, bytes.data(), sizeof first);
    std::memset(static_cast<void*>(&header), 0, sizeof header);
    std::memcpy(static_cast<void*>(&header), bytes.data(),
                std::min({sizeof header, bytes.size(), std::size_t{first.nSize}}));
    return header;
}

bool isWhole(std::span<const BYTE> bytes) {
    constexpr DWORD headerType = 1;
    if (bytes.size() < shortestHeader) return false;
    const ENHMETAHEADER header = headerOf(bytes);
    return header.iType == headerType && header.dSignature == ENHMETAHEADER().dSignature &&
           header.nSize >= shortestHeader && header.nSize % recordAlignment == 0 &&
           header.nBytes >= header.nSize && header.nBytes <= bytes.size();
}

} // namespace

ENHMETAHEADER Metafile::header() const {
    return headerOf(bytes);
}

HENHMETAFILE addMetafile(std::vector<BYTE> bytes) {
    if (!isWhole(bytes)) return {};
    auto metafile = std::make_unique<Metafile>();
    bytes.resize(headerOf(bytes).nBytes);
    metafile->bytes = std::move(bytes);
    return HENHMETAFILE(addObject(std::move(metafile)));
}

bool forEachRecord(const Metafile& metafile, const MetafileEnumerator& each) {
    constexpr DWORD endType = 14;
    std::span<const BYTE> rest = metafile.bytes;
    ENHMETARECORD record;
    while (rest.size() >= sizeof record) {
        std::memcpy(&record, rest.data(), sizeof record);
        if (record.nSize < sizeof record || record.nSize > rest.size() || record.nSize % recordAlignment != 0)
            return false;
        if (!each(record.iType, rest.first(record.nSize))) return false;
        if (record.iType == endType) return true;
        rest = rest.subspan(record.nSize);
    }
    return false;
}

std::optional<std::vector<BYTE>> readMetafileFile(const char16_t* name) {
    const HANDLE file = CreateFileW(name, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, HANDLE());
    if (file == INVALID_HANDLE_VALUE) return std::nullopt;
    LONGLONG size = 0;
    GetFileSizeEx(file, &size);
    std::vector<BYTE> bytes;
    DWORD moved = 0;
    if (size > 0 && static_cast<std::size_t>(size) <= longestFile) {
        bytes.resize(static_cast<std::size_t>(size));
        ReadFile(file, bytes.data(), static_cast<DWORD>(size), &moved, nullptr);
        bytes.resize(moved);
    }
    CloseHandle(file);
    return bytes;
}

bool writeMetafileFile(const char16_t* name, const std::vector<BYTE>& bytes) {
    const HANDLE file =
        CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, HANDLE());
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD moved = 0;
    const BOOL written = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &moved, nullptr);
    CloseHandle(file);
    return written && moved == bytes.size();
}

} // namespace platform::driver
