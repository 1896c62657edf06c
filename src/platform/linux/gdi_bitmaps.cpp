// Bitmaps: making them, and their pixels in the form of device-independent bitmaps.

#include "platform/gdi.h"
#include "platform/linux/device_context.h"
#include "platform/linux/rows.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace platform::driver {

namespace {

constexpr std::int64_t memoryLimit = std::numeric_limits<std::int32_t>::max();
constexpr int bitsPerByte = 8;

/// Bytes of a row that begins at multiples of `alignment` bytes.
std::int64_t rowBytes(std::int64_t width, int bitsPerPixel, int alignment) {
    const std::int64_t bits = std::int64_t{alignment} * bitsPerByte;
    return (width * bitsPerPixel + bits - 1) / bits * alignment;
}

constexpr int dibAlignment = 4;
constexpr int deviceAlignment = 2;

bool isDepth(int bitsPerPixel) {
    return bitsPerPixel == 1 || bitsPerPixel == 32;
}

std::uint32_t pixelFromQuad(const RGBQUAD& quad) {
    return static_cast<std::uint32_t>(quad.rgbRed) << 16 | static_cast<std::uint32_t>(quad.rgbGreen) << 8 |
           quad.rgbBlue;
}

RGBQUAD quadFromPixel(std::uint32_t pixel) {
    return {static_cast<BYTE>(pixel), static_cast<BYTE>(pixel >> 8), static_cast<BYTE>(pixel >> 16), 0};
}

ColorTable colorsOf(const BITMAPINFO& info) {
    return {pixelFromQuad(info.bmiColors[0]), pixelFromQuad(info.bmiColors[1])};
}

constexpr ColorTable blackAndWhite = {0x000000, 0xFFFFFF};

/// The height and direction of a header: height below zero puts the top row first.
struct Rows {
    int count;
    bool bottomUp;
};

bool readHeader(const BITMAPINFOHEADER& header, Rows& rows) {
    if (header.biSize < sizeof(BITMAPINFOHEADER) || header.biWidth <= 0 || header.biHeight == 0) return false;
    if (header.biHeight == std::numeric_limits<LONG>::min()) return false;
    if (!isDepth(header.biBitCount) || header.biPlanes != 1 || header.biCompression != BI_RGB) return false;
    rows = {header.biHeight < 0 ? -header.biHeight : header.biHeight, header.biHeight > 0};
    return true;
}

/// A surface over a program's rows in memory, of which `bits` is the first.
Surface surfaceOver(void* bits, int width, int lines, int bitsPerPixel, bool bottomUp) {
    const int stride = static_cast<int>(rowBytes(width, bitsPerPixel, dibAlignment));
    Surface surface{width, lines, bitsPerPixel, stride, static_cast<std::uint8_t*>(bits)};
    if (bottomUp) {
        surface.bits += std::ptrdiff_t{stride} * (lines - 1);
        surface.stride = -stride;
    }
    return surface;
}

/// Which rows of a bitmap (from the top) the scan lines `start`... of a transfer are.
struct Scan {
    int firstRow;
    int lines;
};

Scan scanOf(UINT start, UINT lines, int height, bool bottomUp) {
    if (start >= static_cast<UINT>(height)) return {0, 0};
    const int count = static_cast<int>(std::min(lines, static_cast<UINT>(height) - start));
    const int first = bottomUp ? height - static_cast<int>(start) - count : static_cast<int>(start);
    return {first, count};
}

ColorTable tableOf(const Bitmap& bitmap) {
    return bitmap.hasColors ? bitmap.colors : blackAndWhite;
}

void fillHeader(const Bitmap& bitmap, BITMAPINFOHEADER& header) {
    header.biWidth = bitmap.surface.width;
    header.biHeight = bitmap.isSection && !bitmap.bottomUp ? -bitmap.surface.height : bitmap.surface.height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bitmap.surface.bitsPerPixel);
    header.biCompression = BI_RGB;
    header.biSizeImage = static_cast<DWORD>(
        rowBytes(bitmap.surface.width, bitmap.surface.bitsPerPixel, dibAlignment) * bitmap.surface.height);
    header.biClrUsed = 0;
    header.biClrImportant = 0;
}

/// Copies rows between surfaces of any depth; the colours of a 1-bit side are its table's.
void copyRows(const Surface& from, int fromRow, const ColorTable& fromColors, const Surface& to, int toRow,
              const ColorTable& toColors, int lines) {
    const int width = std::min(from.width, to.width);
    if (from.bitsPerPixel == to.bitsPerPixel && (from.bitsPerPixel == 32 || fromColors == toColors)) {
        for (int i = 0; i < lines; ++i)
            copyRow(from, 0, fromRow + i, to, 0, toRow + i, width);
        return;
    }
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width));
    for (int i = 0; i < lines; ++i) {
        readRow(from, 0, fromRow + i, width, fromColors, pixels.data());
        writeRow(to, 0, toRow + i, width, toColors, pixels.data());
    }
}

} // namespace

std::unique_ptr<Bitmap> makeBitmap(int width, int height, int bitsPerPixel, bool bottomUp) {
    if (width <= 0 || height <= 0 || !isDepth(bitsPerPixel)) return nullptr;
    const std::int64_t stride = rowBytes(width, bitsPerPixel, dibAlignment);
    if (stride > memoryLimit / height) return nullptr;
    auto bitmap = std::make_unique<Bitmap>();
    bitmap->memory.reset(static_cast<std::uint8_t*>(
        std::calloc(static_cast<std::size_t>(height), static_cast<std::size_t>(stride))));
    if (!bitmap->memory) return nullptr;
    bitmap->bottomUp = bottomUp;
    bitmap->surface = surfaceOver(bitmap->memory.get(), width, height, bitsPerPixel, bottomUp);
    return bitmap;
}

std::unique_ptr<Bitmap> copyOf(const Bitmap& source) {
    auto copy = makeBitmap(source.surface.width, source.surface.height, source.surface.bitsPerPixel);
    if (!copy) return nullptr;
    copy->hasColors = source.hasColors;
    copy->colors = source.colors;
    for (int y = 0; y < source.surface.height; ++y)
        copyRow(source.surface, 0, y, copy->surface, 0, y, source.surface.width);
    return copy;
}

} // namespace platform::driver

namespace platform {

using namespace driver;

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height) {
    const DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return {};
    if (width == 0 || height == 0) return HBITMAP(stockObject(defaultBitmapIndex));
    int depth = context->surface->bitsPerPixel;
    if (const Bitmap* selected = context->selectedBitmap(); selected && selected->isSection && depth == 1) {
        auto bitmap = makeBitmap(width, height, depth);
        if (!bitmap) return {};
        bitmap->hasColors = selected->hasColors;
        bitmap->colors = selected->colors;
        return HBITMAP(addObject(std::move(bitmap)));
    }
    return CreateBitmap(width, height, 1, static_cast<UINT>(depth), nullptr);
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits) {
    if (planes != 1 || (bitsPerPixel != 1 && bitsPerPixel != 32)) return {};
    if (width == std::numeric_limits<int>::min() || height == std::numeric_limits<int>::min()) return {};
    if (width == 0 || height == 0) return HBITMAP(stockObject(defaultBitmapIndex));
    width = width < 0 ? -width : width;
    height = height < 0 ? -height : height;
    const int depth = static_cast<int>(bitsPerPixel);
    auto bitmap = makeBitmap(width, height, depth);
    if (!bitmap) return {};
    if (bits) {
        const std::size_t sourceStride = static_cast<std::size_t>(rowBytes(width, depth, deviceAlignment));
        for (int y = 0; y < height; ++y) {
            std::memcpy(bitmap->surface.bits + std::ptrdiff_t{bitmap->surface.stride} * y,
                        static_cast<const std::uint8_t*>(bits) + sourceStride * static_cast<std::size_t>(y),
                        sourceStride);
        }
    }
    return HBITMAP(addObject(std::move(bitmap)));
}

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits, HANDLE, DWORD) {
    if (bits) *bits = nullptr;
    Rows rows{};
    if (!info || usage != DIB_RGB_COLORS || !readHeader(info->bmiHeader, rows)) return {};
    auto bitmap = makeBitmap(info->bmiHeader.biWidth, rows.count, info->bmiHeader.biBitCount, rows.bottomUp);
    if (!bitmap) return {};
    bitmap->isSection = true;
    if (info->bmiHeader.biBitCount == 1) {
        bitmap->hasColors = true;
        bitmap->colors = colorsOf(*info);
    }
    if (bits) *bits = bitmap->memory.get();
    return HBITMAP(addObject(std::move(bitmap)));
}

BOOL GetObjectBitmap(HBITMAP handle, BITMAP* data) {
    const Bitmap* bitmap = find<Bitmap>(handle);
    if (!bitmap || !data) return FALSE_;
    const Surface& surface = bitmap->surface;
    const int alignment = bitmap->isSection ? dibAlignment : deviceAlignment;
    *data = {};
    data->bmWidth = surface.width;
    data->bmHeight = surface.height;
    data->bmWidthBytes = static_cast<LONG>(rowBytes(surface.width, surface.bitsPerPixel, alignment));
    data->bmBitsPixel = static_cast<WORD>(surface.bitsPerPixel);
    data->bmBits = bitmap->isSection ? bitmap->memory.get() : nullptr;
    return TRUE_;
}

int GetDIBits(HDC dc, HBITMAP handle, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage) {
    const Bitmap* bitmap = find<Bitmap>(handle);
    if (!find<DeviceContext>(dc) || !bitmap || !info || usage != DIB_RGB_COLORS) return 0;
    BITMAPINFOHEADER& header = info->bmiHeader;
    if (!bits && header.biBitCount == 0) {
        if (header.biSize < sizeof(BITMAPINFOHEADER)) return 0;
        fillHeader(*bitmap, header);
        return bitmap->surface.height;
    }
    Rows rows{};
    if (!readHeader(header, rows)) return 0;
    const ColorTable colors = bitmap->surface.bitsPerPixel == 1 ? tableOf(*bitmap) : blackAndWhite;
    if (header.biBitCount == 1) {
        info->bmiColors[0] = quadFromPixel(colors[0]);
        info->bmiColors[1] = quadFromPixel(colors[1]);
    }
    header.biSizeImage =
        static_cast<DWORD>(rowBytes(header.biWidth, header.biBitCount, dibAlignment) * rows.count);
    if (!bits) return bitmap->surface.height;
    const Scan scan = scanOf(start, lines, bitmap->surface.height, rows.bottomUp);
    const Surface out = surfaceOver(bits, header.biWidth, scan.lines, header.biBitCount, rows.bottomUp);
    copyRows(bitmap->surface, scan.firstRow, colors, out, 0, colors, scan.lines);
    return scan.lines;
}

int SetDIBits(HDC dc, HBITMAP handle, UINT start, UINT lines, const void* bits, const BITMAPINFO* info,
              UINT usage) {
    Bitmap* bitmap = find<Bitmap>(handle);
    if ((dc && !find<DeviceContext>(dc)) || !bitmap || !info || !bits || usage != DIB_RGB_COLORS) return 0;
    Rows rows{};
    if (!readHeader(info->bmiHeader, rows)) return 0;
    const Scan scan =
        scanOf(start, std::min(lines, static_cast<UINT>(rows.count)), bitmap->surface.height, rows.bottomUp);
    // The transfer only reads from `bits`; a surface serves both directions.
    const Surface in = surfaceOver(const_cast<void*>(bits), info->bmiHeader.biWidth, scan.lines,
                                   info->bmiHeader.biBitCount, rows.bottomUp);
    const ColorTable from = info->bmiHeader.biBitCount == 1 ? colorsOf(*info) : blackAndWhite;
    copyRows(in, 0, from, bitmap->surface, scan.firstRow, tableOf(*bitmap), scan.lines);
    return scan.lines;
}

} // namespace platform
