#include "host/Picture.h"

#include "automation/ClassTable.h"
#include "automation/Error.h"
#include "host/ScaleMode.h"
#include "platform/files.h"
#include "platform/processes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {

namespace {

constexpr std::uint32_t AlphaBits = 0xFF000000u;
constexpr std::uint32_t ColorBits = 0x00FFFFFFu;
constexpr std::int32_t ResourceNotFound = 326;

bool isIcon(platform::PictureFormat format) {
    return format == platform::PictureFormat::Ico || format == platform::PictureFormat::Cur;
}

bool isMetafile(platform::PictureFormat format) {
    return format == platform::PictureFormat::Wmf || format == platform::PictureFormat::Emf;
}

/// A bitmap of 32 bits with these pixels, top row first.
platform::HBITMAP bitmapOf(const platform::PictureData& data, bool keepAlpha) {
    platform::BITMAPINFO info;
    info.bmiHeader.biWidth = data.width;
    info.bmiHeader.biHeight = -data.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const platform::HBITMAP bitmap =
        platform::CreateDIBSection({}, &info, platform::DIB_RGB_COLORS, &bits, {}, 0);
    if (!bitmap) throw automation::Error(automation::errors::OutOfMemory);
    auto* pixels = static_cast<std::uint32_t*>(bits);
    for (std::size_t i = 0; i < data.argb.size(); ++i)
        pixels[i] = keepAlpha ? data.argb[i] : data.argb[i] & ColorBits;
    return bitmap;
}

/// One bit a pixel: 1 where the screen stays.
platform::HBITMAP maskOf(const platform::PictureData& data) {
    constexpr std::size_t BitsPerWord = 16;
    const std::size_t stride = (static_cast<std::size_t>(data.width) + BitsPerWord - 1) / BitsPerWord * 2;
    std::vector<std::uint8_t> rows(stride * static_cast<std::size_t>(data.height));
    const auto width = static_cast<std::size_t>(data.width);
    for (std::size_t i = 0; i < data.argb.size(); ++i) {
        const bool keeps = data.mask.empty() ? (data.argb[i] & AlphaBits) == 0 : data.mask[i] != 0;
        const std::size_t x = i % width;
        if (keeps) rows[i / width * stride + x / 8] |= static_cast<std::uint8_t>(0x80u >> (x % 8));
    }
    return platform::CreateBitmap(data.width, data.height, 1, 1, rows.data());
}

std::int32_t himetric(int pixels, Axis axis) {
    return static_cast<std::int32_t>(
        std::lround(pixels * twipsPerPixel(axis) / twipsPerUnit(ScaleMode::Himetric, axis)));
}

std::int32_t pixelsOf(std::int32_t himetrics, Axis axis) {
    return static_cast<std::int32_t>(
        std::lround(himetrics * twipsPerUnit(ScaleMode::Himetric, axis) / twipsPerPixel(axis)));
}

/// From one edge of a frame to the other, which may lie farther than a number reaches.
std::int32_t lengthBetween(std::int32_t from, std::int32_t to) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(std::int64_t{to} - from, Limits::min(), Limits::max()));
}

std::vector<std::uint8_t> readFile(const automation::String& name) {
    const platform::HANDLE file =
        platform::CreateFileW(name.c_str(), platform::GENERIC_READ, platform::FILE_SHARE_READ, nullptr,
                              platform::OPEN_EXISTING, platform::FILE_ATTRIBUTE_NORMAL, {});
    if (file == platform::INVALID_HANDLE_VALUE) throw automation::Error(automation::errors::FileNotFound);
    platform::LONGLONG size = 0;
    platform::GetFileSizeEx(file, &size);
    constexpr platform::LONGLONG Largest = 512LL * 1024 * 1024;
    std::vector<std::uint8_t> bytes(
        static_cast<std::size_t>(std::clamp<platform::LONGLONG>(size, 0, Largest)));
    platform::DWORD moved = 0;
    platform::ReadFile(file, bytes.data(), static_cast<platform::DWORD>(bytes.size()), &moved, nullptr);
    platform::CloseHandle(file);
    bytes.resize(moved);
    return bytes;
}

} // namespace

Picture::Picture(const platform::PictureData& data) {
    takePixels(data);
}

Picture::Picture(platform::HBITMAP bitmap, platform::HPALETTE palette, HandleOwner owner)
    : type_(PictureType::Bitmap), bitmap_(bitmap), palette_(palette), owner_(owner) {
    platform::BITMAP about;
    if (platform::GetObjectBitmap(bitmap, &about)) size_ = {about.bmWidth, about.bmHeight};
}

Picture::Picture(platform::HENHMETAFILE metafile, PictureType type, HandleOwner owner)
    : type_(type), metafile_(metafile), owner_(owner) {
    platform::ENHMETAHEADER header;
    if (!platform::GetEnhMetaFileHeader(metafile, sizeof header, &header)) return;
    const platform::RECT& frame = header.rclFrame;
    himetricSize_ = {lengthBetween(frame.left, frame.right), lengthBetween(frame.top, frame.bottom)};
    size_ = {pixelsOf(himetricSize_.cx, Axis::Horizontal), pixelsOf(himetricSize_.cy, Axis::Vertical)};
}

Picture::Picture(platform::HICON icon, HandleOwner owner)
    : type_(PictureType::Icon), icon_(icon), owner_(owner) {
    platform::ICONINFO about;
    if (!platform::GetIconInfo(icon, &about)) return;
    platform::BITMAP mask;
    platform::GetObjectBitmap(about.hbmMask, &mask);
    // A monochrome icon's mask holds both of its halves.
    size_ = {mask.bmWidth, about.hbmColor ? mask.bmHeight : mask.bmHeight / 2};
    platform::DeleteObject(about.hbmMask);
    if (about.hbmColor) platform::DeleteObject(about.hbmColor);
}

Picture::~Picture() {
    if (owner_ == HandleOwner::Caller) return;
    if (bitmap_) platform::DeleteObject(bitmap_);
    if (palette_) platform::DeleteObject(palette_);
    if (icon_) platform::DestroyIcon(icon_);
    if (metafile_) platform::DeleteEnhMetaFile(metafile_);
}

void Picture::takePixels(const platform::PictureData& data) {
    size_ = {data.width, data.height};
    if (!isIcon(data.format) && !data.hasAlpha) {
        type_ = PictureType::Bitmap;
        bitmap_ = bitmapOf(data, false);
        return;
    }
    platform::ICONINFO parts;
    parts.fIcon = data.format == platform::PictureFormat::Cur ? platform::FALSE_ : platform::TRUE_;
    parts.xHotspot = static_cast<platform::DWORD>(data.hotSpot.x);
    parts.yHotspot = static_cast<platform::DWORD>(data.hotSpot.y);
    parts.hbmMask = maskOf(data);
    parts.hbmColor = bitmapOf(data, data.hasAlpha);
    icon_ = platform::CreateIconIndirect(&parts);
    platform::DeleteObject(parts.hbmMask);
    if (isIcon(data.format)) {
        type_ = PictureType::Icon;
        platform::DeleteObject(parts.hbmColor);
    } else {
        // A bitmap that leaves pixels out is drawn through an icon, yet its handle is a bitmap's.
        type_ = PictureType::Bitmap;
        bitmap_ = parts.hbmColor;
    }
}

std::int32_t Picture::Handle() const {
    if (metafile_) return static_cast<std::int32_t>(metafile_.value);
    return static_cast<std::int32_t>(type_ == PictureType::Icon ? icon_.value : bitmap_.value);
}

std::int32_t Picture::Width() const {
    return metafile_ ? himetricSize_.cx : himetric(size_.cx, Axis::Horizontal);
}

std::int32_t Picture::Height() const {
    return metafile_ ? himetricSize_.cy : himetric(size_.cy, Axis::Vertical);
}

void Picture::render(platform::HDC dc, int x, int y, int width, int height) const {
    if (metafile_) {
        const platform::RECT area{x, y, x + width, y + height};
        platform::PlayEnhMetaFile(dc, metafile_, &area);
        return;
    }
    if (icon_) {
        platform::DrawIconEx(dc, x, y, icon_, width, height, 0, {}, platform::DI_NORMAL);
        return;
    }
    if (!bitmap_) return;
    const platform::HDC source = platform::CreateCompatibleDC(dc);
    const platform::HGDIOBJ former = platform::SelectObject(source, bitmap_);
    if (width == size_.cx && height == size_.cy)
        platform::BitBlt(dc, x, y, width, height, source, 0, 0, platform::SRCCOPY);
    else
        platform::StretchBlt(dc, x, y, width, height, source, 0, 0, size_.cx, size_.cy, platform::SRCCOPY);
    platform::SelectObject(source, former);
    platform::DeleteDC(source);
}

automation::Ref<Picture> Picture::fromMetafile(const std::vector<std::uint8_t>& bytes) {
    const platform::MetafilePicture read = platform::readMetafilePicture(bytes);
    if (!read.metafile) throw automation::Error(automation::errors::InvalidPicture);
    const PictureType type = read.isOlder ? PictureType::Metafile : PictureType::EnhMetafile;
    auto picture = automation::make<Picture>(read.metafile, type);
    picture->himetricSize_ = {read.widthHimetric, read.heightHimetric};
    return picture;
}

automation::Ref<Picture> Picture::fromBytes(std::vector<std::uint8_t> bytes) {
    if (isMetafile(platform::pictureFormat(bytes))) {
        auto picture = fromMetafile(bytes);
        picture->source_ = std::move(bytes);
        return picture;
    }
    platform::PictureData data;
    if (platform::decodePicture(bytes, data) != platform::PictureError::None)
        throw automation::Error(automation::errors::InvalidPicture);
    auto picture = automation::make<Picture>(data);
    picture->source_ = std::move(bytes);
    return picture;
}

automation::Ref<Picture> LoadPicture(const automation::String& file) {
    if (file.empty()) return automation::make<Picture>();
    return Picture::fromBytes(readFile(file));
}

automation::Ref<Picture> LoadResPicture(const platform::ResourceName& id, ResourcePicture type) {
    platform::ResourceType kind = platform::ResourceType::Bitmap;
    if (type == ResourcePicture::Icon) kind = platform::ResourceType::Icon;
    if (type == ResourcePicture::Cursor) kind = platform::ResourceType::Cursor;
    std::vector<std::uint8_t> bytes = platform::resourceBytes(platform::moduleInstance(), kind, id);
    if (bytes.empty()) throw automation::Error(ResourceNotFound);
    return Picture::fromBytes(std::move(bytes));
}

const automation::ClassTable& Picture::table() {
    static const automation::ClassTable table = automation::ClassTable::of<Picture>("Picture")
                                                    .get("Handle", &Picture::Handle)
                                                    .defaultMember()
                                                    .get("Type", &Picture::Type)
                                                    .get("Width", &Picture::Width)
                                                    .get("Height", &Picture::Height)
                                                    .get("hPal", &Picture::hPal);
    return table;
}

} // namespace host
