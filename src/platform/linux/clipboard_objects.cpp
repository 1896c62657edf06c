#include "platform/linux/clipboard_objects.h"

#include "platform/linux/png_file.h"
#include "platform/metafiles.h"
#include "platform/pictures.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

namespace {

DWORD kindOf(UINT format) {
    switch (format) {
    case CF_BITMAP:
        return OBJ_BITMAP;
    case CF_PALETTE:
        return OBJ_PAL;
    case CF_ENHMETAFILE:
        return OBJ_ENHMETAFILE;
    default:
        return 0;
    }
}

void end(UINT format, HANDLE object) {
    if (format == CF_ENHMETAFILE) {
        DeleteEnhMetaFile(HENHMETAFILE(object.value));
    } else {
        DeleteObject(HGDIOBJ(object.value));
    }
}

/// Header and pixels of a bitmap as 32 bits, bottom row first.
std::vector<BYTE> dibOf(HBITMAP bitmap) {
    BITMAP about;
    if (!GetObjectBitmap(bitmap, &about)) return {};
    BITMAPINFO info;
    info.bmiHeader.biWidth = about.bmWidth;
    info.bmiHeader.biHeight = about.bmHeight;
    info.bmiHeader.biBitCount = 32;
    const std::size_t pixels =
        sizeof(DWORD) * static_cast<std::size_t>(about.bmWidth) * static_cast<std::size_t>(about.bmHeight);
    info.bmiHeader.biSizeImage = static_cast<DWORD>(pixels);
    std::vector<BYTE> dib(sizeof info.bmiHeader + pixels);
    std::memcpy(dib.data(), &info.bmiHeader, sizeof info.bmiHeader);
    const HDC dc = CreateCompatibleDC({});
    GetDIBits(dc, bitmap, 0, static_cast<UINT>(about.bmHeight), dib.data() + sizeof info.bmiHeader, &info,
              DIB_RGB_COLORS);
    DeleteDC(dc);
    return dib;
}

HBITMAP bitmapOf(const PictureData& picture) {
    return CreateBitmap(picture.width, picture.height, 1, 32, picture.argb.data());
}

/// The types in which pictures are offered, the better first. The last one says that the content is ours.
constexpr const char* PngFile = "image/png";
constexpr const char* BmpFile = "image/bmp";
constexpr const char* EmfFile = "image/x-emf";
constexpr const char* OwnContent = "application/x-tesela-objects";

std::string text(std::span<const BYTE> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::span<const BYTE> bytesIn(const std::string& content) {
    return {reinterpret_cast<const BYTE*>(content.data()), content.size()};
}

/// A bitmap file of what CF_DIB holds.
std::string bmpFileOf(std::span<const BYTE> dib) {
    constexpr std::uint32_t headerSize = 14;
    BITMAPINFOHEADER about;
    std::memcpy(&about, dib.data(), sizeof about);
    const std::uint32_t colors =
        about.biBitCount <= 8 ? (about.biClrUsed ? about.biClrUsed : 1u << about.biBitCount) : 0;
    const std::uint32_t masks = about.biCompression == BI_BITFIELDS && about.biSize == sizeof about ? 3 : 0;
    const auto size = static_cast<std::uint32_t>(headerSize + dib.size());
    const std::uint32_t pixelsAt = headerSize + about.biSize + (colors + masks) * 4;
    std::string file = "BM";
    for (const std::uint32_t number : {size, 0u, pixelsAt})
        file.append(reinterpret_cast<const char*>(&number), sizeof number);
    return file + text(dib);
}

std::string pngFileOf(std::span<const BYTE> dib) {
    PictureData picture;
    if (decodeDib(dib, picture) != PictureError::None) return {};
    return pngOf({picture.width, picture.height, 32, picture.width * 4,
                  reinterpret_cast<std::uint8_t*>(picture.argb.data())});
}

} // namespace

ClipboardObjects& clipboardObjects() {
    // Never destroyed: the table of objects may go first.
    static ClipboardObjects& objects = *new ClipboardObjects;
    return objects;
}

void ClipboardObjects::clear() {
    for (const auto* objects : {&objects_, &taken_})
        for (const auto& [format, object] : *objects)
            end(format, object);
    objects_.clear();
    taken_.clear();
    bytes_.clear();
}

HANDLE ClipboardObjects::held(UINT format) const {
    const auto found = objects_.find(format);
    return found != objects_.end() ? found->second : HANDLE();
}

std::vector<BYTE> ClipboardObjects::heldBytes(UINT format) const {
    if (const auto found = bytes_.find(format); found != bytes_.end()) return found->second;
    const HANDLE bitmap = held(CF_BITMAP);
    return format == CF_DIB && bitmap ? dibOf(HBITMAP(bitmap.value)) : std::vector<BYTE>();
}

void ClipboardObjects::publish() const {
    ClipboardContent content{{OwnContent, "1"}};
    if (display().clipboardHas(PlainText)) content[PlainText] = display().clipboardBytes(PlainText);
    if (const std::vector<BYTE> dib = heldBytes(CF_DIB); dib.size() >= sizeof(BITMAPINFOHEADER)) {
        content[BmpFile] = bmpFileOf(dib);
        if (std::string png = pngFileOf(dib); !png.empty()) content[PngFile] = std::move(png);
    }
    if (const HENHMETAFILE metafile(held(CF_ENHMETAFILE).value); metafile) {
        std::vector<BYTE> file(GetEnhMetaFileBits(metafile, 0, nullptr));
        GetEnhMetaFileBits(metafile, static_cast<UINT>(file.size()), file.data());
        content[EmfFile] = text(file);
    }
    display().setClipboard(std::move(content));
}

void ClipboardObjects::dropStale() {
    if ((!objects_.empty() || !bytes_.empty()) && !display().clipboardHas(OwnContent)) clear();
}

HANDLE ClipboardObjects::take(UINT format) {
    if (format == CF_ENHMETAFILE) {
        const std::string file = display().clipboardBytes(EmfFile);
        return HANDLE(SetEnhMetaFileBits(static_cast<UINT>(file.size()), bytesIn(file).data()).value);
    }
    for (const char* type : {PngFile, BmpFile}) {
        PictureData picture;
        if (decodePicture(bytesIn(display().clipboardBytes(type)), picture) == PictureError::None)
            return HANDLE(bitmapOf(picture).value);
    }
    return {};
}

bool ClipboardObjects::has(UINT format) {
    dropStale();
    if (held(format) || bytes_.contains(format)) return true;
    if (format == CF_ENHMETAFILE) return display().clipboardHas(EmfFile);
    if (format != CF_DIB && format != CF_BITMAP) return false;
    return display().clipboardHas(PngFile) || display().clipboardHas(BmpFile);
}

int ClipboardObjects::count() {
    dropStale();
    int others = 0;
    for (const auto& [format, data] : bytes_)
        others += format != CF_DIB ? 1 : 0;
    const int bitmaps = has(CF_BITMAP) ? 2 : 0;
    return others + bitmaps + (has(CF_ENHMETAFILE) ? 1 : 0) + (held(CF_PALETTE) ? 1 : 0);
}

bool ClipboardObjects::set(UINT format, HANDLE object) {
    const DWORD kind = kindOf(format);
    if (kind == 0 || GetObjectType(HGDIOBJ(object.value)) != kind) return false;
    dropStale();
    if (const HANDLE former = held(format); former && former != object) end(format, former);
    objects_[format] = object;
    publish();
    return true;
}

HANDLE ClipboardObjects::object(UINT format) {
    if (!has(format)) return {};
    if (const HANDLE found = held(format)) return found;
    const auto dib = bytes_.find(CF_DIB);
    HANDLE made;
    if (format == CF_BITMAP && dib != bytes_.end()) {
        PictureData picture;
        if (decodeDib(dib->second, picture) == PictureError::None) made = HANDLE(bitmapOf(picture).value);
    } else {
        made = take(format);
    }
    // What was made for an earlier request ends with the next one.
    if (const auto former = taken_.find(format); former != taken_.end()) end(format, former->second);
    taken_.erase(format);
    if (made) taken_[format] = made;
    return made;
}

bool ClipboardObjects::setBytes(UINT format, std::span<const BYTE> bytes) {
    if (kindOf(format) != 0) return false;
    dropStale();
    bytes_[format] = {bytes.begin(), bytes.end()};
    publish();
    return true;
}

std::vector<BYTE> ClipboardObjects::bytes(UINT format) {
    dropStale();
    if (std::vector<BYTE> own = heldBytes(format); !own.empty() || format != CF_DIB) return own;
    const HANDLE bitmap = object(CF_BITMAP);
    return bitmap ? dibOf(HBITMAP(bitmap.value)) : std::vector<BYTE>();
}

} // namespace platform::driver
