// Enhanced metafiles: recording, and their bytes as files, copies, headers and records.

#include "platform/linux/metafile_recorder.h"
#include "platform/locale.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

namespace {

/// What a metafile's context would draw on; nothing is.
Surface& unseenSurface() {
    static DWORD pixel = 0;
    static Surface surface{1, 1, 32, sizeof pixel, reinterpret_cast<BYTE*>(&pixel)};
    return surface;
}

/// The two parts of a description with the NULs that end them.
template <class Character>
std::basic_string<Character> wholeDescription(const Character* description) {
    if (!description) return {};
    const std::basic_string_view<Character> program(description);
    const std::basic_string_view<Character> picture(description + program.size() + 1);
    return {description, program.size() + picture.size() + 3};
}

HDC createRecording(HDC reference, RecordingTarget target) {
    HDC screen;
    if (!find<DeviceContext>(reference)) {
        if (reference) return {};
        reference = screen = CreateCompatibleDC({});
    }
    auto made = makeContext();
    DeviceContext& context = *made;
    context.isMemory = false;
    context.surface = &unseenSurface();
    context.visible =
        Region(RECT{0, 0, GetDeviceCaps(reference, HORZRES), GetDeviceCaps(reference, VERTRES)});
    context.recorder = std::make_unique<MetafileRecorder>(context, reference, std::move(target));
    if (screen) DeleteDC(screen);
    return HDC(addObject(std::move(made)));
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

HDC CreateEnhMetaFileW(HDC reference, const char16_t* file, const RECT* frame, const char16_t* description) {
    RecordingTarget target{file ? file : u"", {}, wholeDescription(description)};
    if (frame) target.frame = *frame;
    if (!target.file.empty() && !writeMetafileFile(target.file.c_str(), {})) return {};
    return createRecording(reference, std::move(target));
}

HDC CreateEnhMetaFileA(HDC reference, const char* file, const RECT* frame, const char* description) {
    const std::u16string name = wideFromAnsi(file ? file : "");
    const std::u16string parts = wideFromAnsi(wholeDescription(description));
    return CreateEnhMetaFileW(reference, file ? name.c_str() : nullptr, frame,
                              description ? parts.c_str() : nullptr);
}

HENHMETAFILE CloseEnhMetaFile(HDC dc) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !context->recorder) return {};
    std::vector<BYTE> bytes = context->recorder->finish();
    deleteObject(*context);
    return addMetafile(std::move(bytes));
}

BOOL GdiComment(HDC dc, UINT size, const BYTE* data) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !context->recorder || !data) return FALSE_;
    context->recorder->comment({data, size});
    return TRUE_;
}

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
