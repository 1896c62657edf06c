#include "platform/linux/clipboard_objects.h"

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

HBITMAP bitmapOf(std::span<const BYTE> dib) {
    PictureData picture;
    if (decodeDib(dib, picture) != PictureError::None) return {};
    return CreateBitmap(picture.width, picture.height, 1, 32, picture.argb.data());
}

} // namespace

ClipboardObjects& clipboardObjects() {
    // Never destroyed: the table of objects may go first.
    static ClipboardObjects& objects = *new ClipboardObjects;
    return objects;
}

void ClipboardObjects::clear() {
    for (const auto& [format, object] : objects_)
        end(format, object);
    objects_.clear();
    bytes_.clear();
}

HANDLE ClipboardObjects::held(UINT format) const {
    const auto found = objects_.find(format);
    return found != objects_.end() ? found->second : HANDLE();
}

bool ClipboardObjects::has(UINT format) const {
    if (held(format) || bytes_.contains(format)) return true;
    if (format == CF_DIB) return static_cast<bool>(held(CF_BITMAP));
    return format == CF_BITMAP && bytes_.contains(CF_DIB);
}

int ClipboardObjects::count() const {
    const bool onlyOne = held(CF_BITMAP) ? !bytes_.contains(CF_DIB) : bytes_.contains(CF_DIB);
    return static_cast<int>(objects_.size() + bytes_.size()) + (onlyOne ? 1 : 0);
}

bool ClipboardObjects::set(UINT format, HANDLE object) {
    const DWORD kind = kindOf(format);
    if (kind == 0 || GetObjectType(HGDIOBJ(object.value)) != kind) return false;
    if (const HANDLE former = held(format); former && former != object) end(format, former);
    objects_[format] = object;
    return true;
}

HANDLE ClipboardObjects::object(UINT format) {
    if (const HANDLE found = held(format)) return found;
    const auto dib = bytes_.find(CF_DIB);
    if (format != CF_BITMAP || dib == bytes_.end()) return {};
    const HBITMAP made = bitmapOf(dib->second);
    if (made) objects_[CF_BITMAP] = HANDLE(made.value);
    return HANDLE(made.value);
}

bool ClipboardObjects::setBytes(UINT format, std::span<const BYTE> bytes) {
    if (kindOf(format) != 0) return false;
    bytes_[format] = {bytes.begin(), bytes.end()};
    return true;
}

std::vector<BYTE> ClipboardObjects::bytes(UINT format) const {
    if (const auto found = bytes_.find(format); found != bytes_.end()) return found->second;
    const HANDLE bitmap = held(CF_BITMAP);
    return format == CF_DIB && bitmap ? dibOf(HBITMAP(bitmap.value)) : std::vector<BYTE>();
}

} // namespace platform::driver
