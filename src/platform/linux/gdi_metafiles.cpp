// Enhanced metafiles as bytes: files, copies, headers and records.

#include "platform/linux/metafile.h"

#include "platform/locale.h"

#include <algorithm>
#include <cstring>

namespace platform {

using namespace driver;

BOOL DeleteEnhMetaFile(HENHMETAFILE handle) {
    Metafile* metafile = find<Metafile>(handle);
    if (!metafile) return FALSE_;
    deleteObject(*metafile);
    return TRUE_;
}

HENHMETAFILE GetEnhMetaFileW(const char16_t* file) {
    if (!file) return {};
    std::optional<std::vector<BYTE>> bytes = readMetafileFile(file);
    return bytes ? addMetafile(std::move(*bytes)) : HENHMETAFILE();
}

HENHMETAFILE GetEnhMetaFileA(const char* file) {
    return file ? GetEnhMetaFileW(wideFromAnsi(file).c_str()) : HENHMETAFILE();
}

HENHMETAFILE CopyEnhMetaFileW(HENHMETAFILE handle, const char16_t* file) {
    const Metafile* metafile = find<Metafile>(handle);
    if (!metafile || (file && !writeMetafileFile(file, metafile->bytes))) return {};
    return addMetafile(metafile->bytes);
}

HENHMETAFILE CopyEnhMetaFileA(HENHMETAFILE handle, const char* file) {
    if (!file) return CopyEnhMetaFileW(handle, nullptr);
    return CopyEnhMetaFileW(handle, wideFromAnsi(file).c_str());
}

UINT GetEnhMetaFileBits(HENHMETAFILE handle, UINT size, BYTE* data) {
    const Metafile* metafile = find<Metafile>(handle);
    if (!metafile) return 0;
    const auto length = static_cast<UINT>(metafile->bytes.size());
    if (!data) return length;
    if (size < length) return 0;
    std::memcpy(data, metafile->bytes.data(), length);
    return length;
}

HENHMETAFILE SetEnhMetaFileBits(UINT size, const BYTE* data) {
    return data ? addMetafile({data, data + size}) : HENHMETAFILE();
}

UINT GetEnhMetaFileHeader(HENHMETAFILE handle, UINT size, ENHMETAHEADER* header) {
    const Metafile* metafile = find<Metafile>(handle);
    if (!metafile) return 0;
    const ENHMETAHEADER whole = metafile->header();
    const UINT length = std::min<UINT>(whole.nSize, sizeof whole);
    if (!header) return length;
    const UINT copied = std::min(size, length);
    std::memcpy(static_cast<void*>(header), &whole, copied);
    return copied;
}

UINT GetEnhMetaFileDescriptionW(HENHMETAFILE handle, UINT size, char16_t* description) {
    const Metafile* metafile = find<Metafile>(handle);
    if (!metafile) return 0;
    const ENHMETAHEADER header = metafile->header();
    const std::uint64_t end = header.offDescription + std::uint64_t{header.nDescription} * sizeof(char16_t);
    if (header.nDescription == 0 || header.offDescription == 0 || end > header.nSize) return 0;
    if (!description) return header.nDescription;
    const UINT copied = std::min(size, header.nDescription);
    std::memcpy(description, metafile->bytes.data() + header.offDescription, copied * sizeof(char16_t));
    return copied;
}

BOOL EnumEnhMetaFile(HENHMETAFILE handle, const MetafileEnumerator& each) {
    const Metafile* metafile = find<Metafile>(handle);
    return metafile && forEachRecord(*metafile, each);
}

} // namespace platform
