// Picture files made of handles. The layouts are those of the platform's .bmp, .ico and .emf files.

#include "host/PictureFile.h"

#include "host/Picture.h"
#include "platform/gdi.h"

#include <cstring>

namespace host {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint16_t IconFile = 1;
constexpr std::uint16_t CursorFile = 2;
constexpr std::uint32_t ColorsOfOneBit = 2;
constexpr std::uint32_t BitmapFileHeaderSize = 14;
constexpr std::uint32_t IconHeaderSize = 6 + 16; ///< The directory with its one entry
constexpr int LargestStatedSide = 255;           ///< Beyond it the directory says 0

/// Numbers of two and four bytes, the low one first.
void put16(Bytes& bytes, std::uint32_t value) {
    bytes.push_back(static_cast<std::uint8_t>(value));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
}
void put32(Bytes& bytes, std::uint32_t value) {
    put16(bytes, value);
    put16(bytes, value >> 16);
}

/// A bitmap's rows as files keep them, the bottom one first.
struct Pixels {
    platform::BITMAPINFOHEADER header;
    std::uint32_t colors[ColorsOfOneBit] = {};
    Bytes rows;
};

Pixels pixelsOf(platform::HBITMAP bitmap, platform::WORD bits) {
    struct {
        platform::BITMAPINFOHEADER bmiHeader;
        std::uint32_t colors[256] = {};
    } info;
    platform::BITMAP about;
    Pixels pixels;
    if (!platform::GetObjectBitmap(bitmap, &about)) return pixels;
    info.bmiHeader.biWidth = about.bmWidth;
    info.bmiHeader.biHeight = about.bmHeight;
    info.bmiHeader.biBitCount = bits;
    constexpr std::size_t BitsOfRowUnit = 32;
    const std::size_t stride =
        (static_cast<std::size_t>(about.bmWidth) * bits + BitsOfRowUnit - 1) / BitsOfRowUnit * 4;
    pixels.rows.resize(stride * static_cast<std::size_t>(about.bmHeight));
    const platform::HDC dc = platform::CreateCompatibleDC({});
    platform::GetDIBits(dc, bitmap, 0, static_cast<platform::UINT>(about.bmHeight), pixels.rows.data(),
                        reinterpret_cast<platform::BITMAPINFO*>(&info), platform::DIB_RGB_COLORS);
    platform::DeleteDC(dc);
    pixels.header = info.bmiHeader;
    std::memcpy(pixels.colors, info.colors, sizeof pixels.colors);
    return pixels;
}

/// The header and, for 1 bit, the colours. `height` counts an icon's mask too.
void putHeader(Bytes& file, const Pixels& pixels, std::uint32_t height) {
    const bool oneBit = pixels.header.biBitCount == 1;
    put32(file, sizeof pixels.header);
    put32(file, static_cast<std::uint32_t>(pixels.header.biWidth));
    put32(file, height);
    put16(file, 1);
    put16(file, pixels.header.biBitCount);
    put32(file, platform::BI_RGB);
    put32(file, static_cast<std::uint32_t>(pixels.rows.size()));
    put32(file, 0);
    put32(file, 0);
    put32(file, oneBit ? ColorsOfOneBit : 0);
    put32(file, 0);
    if (!oneBit) return;
    for (const std::uint32_t color : pixels.colors)
        put32(file, color);
}

void append(Bytes& file, const Bytes& more) {
    file.insert(file.end(), more.begin(), more.end());
}

Bytes bitmapFile(platform::HBITMAP bitmap) {
    platform::BITMAP about;
    if (!platform::GetObjectBitmap(bitmap, &about)) return {};
    const Pixels pixels = pixelsOf(bitmap, about.bmBitsPixel == 1 ? 1 : 32);
    Bytes image;
    putHeader(image, pixels, static_cast<std::uint32_t>(pixels.header.biHeight));
    const auto start = BitmapFileHeaderSize + static_cast<std::uint32_t>(image.size());
    Bytes file{'B', 'M'};
    put32(file, start + static_cast<std::uint32_t>(pixels.rows.size()));
    put32(file, 0);
    put32(file, start);
    append(file, image);
    append(file, pixels.rows);
    return file;
}

/// The two bitmaps of an icon, ended with it.
struct IconParts {
    explicit IconParts(platform::HICON icon) : known(platform::GetIconInfo(icon, &info) != 0) {}
    ~IconParts() {
        if (!known) return;
        platform::DeleteObject(info.hbmMask);
        if (info.hbmColor) platform::DeleteObject(info.hbmColor);
    }
    IconParts(const IconParts&) = delete;
    IconParts& operator=(const IconParts&) = delete;

    platform::ICONINFO info;
    bool known;
};

Bytes iconFile(platform::HICON icon) {
    const IconParts parts(icon);
    if (!parts.known) return {};
    // A file keeps the colours first and the mask below them, as the rows of a bitmap twice as high. A
    // monochrome icon has its mask above its colours: from the bottom upward the same order.
    const bool monochrome = !parts.info.hbmColor;
    Pixels image = pixelsOf(monochrome ? parts.info.hbmMask : parts.info.hbmColor, monochrome ? 1 : 32);
    const auto width = image.header.biWidth;
    const auto height = monochrome ? image.header.biHeight / 2 : image.header.biHeight;
    if (!monochrome) append(image.rows, pixelsOf(parts.info.hbmMask, 1).rows);
    Bytes picture;
    putHeader(picture, image, static_cast<std::uint32_t>(height) * 2);
    append(picture, image.rows);

    const auto stated = [](platform::LONG side) {
        return static_cast<std::uint8_t>(side > LargestStatedSide ? 0 : side);
    };
    const bool cursor = !parts.info.fIcon;
    Bytes file;
    put16(file, 0);
    put16(file, cursor ? CursorFile : IconFile);
    put16(file, 1);
    file.push_back(stated(width));
    file.push_back(stated(height));
    put16(file, 0);
    put16(file, cursor ? parts.info.xHotspot : 1);
    put16(file, cursor ? parts.info.yHotspot : image.header.biBitCount);
    put32(file, static_cast<std::uint32_t>(picture.size()));
    put32(file, IconHeaderSize);
    append(file, picture);
    return file;
}

Bytes metafileFile(platform::HENHMETAFILE metafile) {
    Bytes file(platform::GetEnhMetaFileBits(metafile, 0, nullptr));
    platform::GetEnhMetaFileBits(metafile, static_cast<platform::UINT>(file.size()), file.data());
    return file;
}

} // namespace

std::vector<std::uint8_t> pictureFile(const Picture& picture) {
    if (!picture.source().empty()) return picture.source();
    if (picture.hEnhMetaFile()) return metafileFile(picture.hEnhMetaFile());
    if (picture.hIcon()) return iconFile(picture.hIcon());
    if (picture.hBitmap()) return bitmapFile(picture.hBitmap());
    return {};
}

} // namespace host
