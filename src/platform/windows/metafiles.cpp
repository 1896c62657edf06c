// Metafiles: forwards to the system.

#include "platform/metafiles.h"

#include "platform/windows/callbacks.h"
#include "platform/windows/convert.h"

namespace platform {

using driver::afterCallbacks;
using driver::as;
using driver::guarded;
using driver::handleFrom;
using driver::native;
using driver::wide;

namespace {

/// Whether metafiles can be measured by a context: the display's, or one that is still there. Wine doesn't
/// ask, and divides by the extent that a lost one has not when the metafile is closed.
bool canMeasure(HDC reference) {
    return !reference || ::GetDeviceCaps(native(reference), HORZSIZE) != 0;
}

} // namespace

HDC CreateEnhMetaFileA(HDC reference, const char* file, const RECT* frame, const char* description) {
    if (!canMeasure(reference)) return {};
    return handleFrom<HDC>(::CreateEnhMetaFileA(native(reference), file, as<::RECT>(frame), description));
}

HDC CreateEnhMetaFileW(HDC reference, const char16_t* file, const RECT* frame, const char16_t* description) {
    if (!canMeasure(reference)) return {};
    return handleFrom<HDC>(
        ::CreateEnhMetaFileW(native(reference), wide(file), as<::RECT>(frame), wide(description)));
}

HENHMETAFILE CloseEnhMetaFile(HDC dc) {
    return handleFrom<HENHMETAFILE>(::CloseEnhMetaFile(native(dc)));
}

BOOL DeleteEnhMetaFile(HENHMETAFILE metafile) {
    return ::DeleteEnhMetaFile(native(metafile));
}

BOOL PlayEnhMetaFile(HDC dc, HENHMETAFILE metafile, const RECT* rect) {
    return ::PlayEnhMetaFile(native(dc), native(metafile), as<::RECT>(rect));
}

HENHMETAFILE GetEnhMetaFileA(const char* file) {
    return handleFrom<HENHMETAFILE>(::GetEnhMetaFileA(file));
}

HENHMETAFILE GetEnhMetaFileW(const char16_t* file) {
    return handleFrom<HENHMETAFILE>(::GetEnhMetaFileW(wide(file)));
}

HENHMETAFILE CopyEnhMetaFileA(HENHMETAFILE metafile, const char* file) {
    return handleFrom<HENHMETAFILE>(::CopyEnhMetaFileA(native(metafile), file));
}

HENHMETAFILE CopyEnhMetaFileW(HENHMETAFILE metafile, const char16_t* file) {
    return handleFrom<HENHMETAFILE>(::CopyEnhMetaFileW(native(metafile), wide(file)));
}

UINT GetEnhMetaFileBits(HENHMETAFILE metafile, UINT size, BYTE* data) {
    return ::GetEnhMetaFileBits(native(metafile), size, data);
}

HENHMETAFILE SetEnhMetaFileBits(UINT size, const BYTE* data) {
    return handleFrom<HENHMETAFILE>(::SetEnhMetaFileBits(size, data));
}

HENHMETAFILE SetWinMetaFileBits(UINT size, const BYTE* data, HDC reference, const METAFILEPICT* picture) {
    ::METAFILEPICT about{};
    if (picture) about = {picture->mm, picture->xExt, picture->yExt, nullptr};
    return handleFrom<HENHMETAFILE>(
        ::SetWinMetaFileBits(size, data, native(reference), picture ? &about : nullptr));
}

UINT GetEnhMetaFileHeader(HENHMETAFILE metafile, UINT size, ENHMETAHEADER* header) {
    return ::GetEnhMetaFileHeader(native(metafile), size, as<::ENHMETAHEADER>(header));
}

UINT GetEnhMetaFileDescriptionW(HENHMETAFILE metafile, UINT size, char16_t* description) {
    return ::GetEnhMetaFileDescriptionW(native(metafile), size, wide(description));
}

namespace {

int CALLBACK passRecord(::HDC, ::HANDLETABLE*, const ::ENHMETARECORD* record, int, ::LPARAM parameter) {
    const auto& each = *reinterpret_cast<const MetafileEnumerator*>(parameter);
    const auto* bytes = reinterpret_cast<const BYTE*>(record);
    return guarded(0, [&] { return each(record->iType, {bytes, record->nSize}) ? 1 : 0; });
}

} // namespace

BOOL EnumEnhMetaFile(HENHMETAFILE metafile, const MetafileEnumerator& each) {
    auto* parameter = const_cast<MetafileEnumerator*>(&each);
    return afterCallbacks(::EnumEnhMetaFile(nullptr, native(metafile), passRecord, parameter, nullptr));
}

BOOL GdiComment(HDC dc, UINT size, const BYTE* data) {
    return ::GdiComment(native(dc), size, data);
}

} // namespace platform
