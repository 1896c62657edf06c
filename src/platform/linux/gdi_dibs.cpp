// Device-independent pixels in and out of bitmaps and contexts.

#include "platform/gdi.h"
#include "platform/linux/colors.h"
#include "platform/linux/dib.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/rows.h"
#include "platform/linux/stretch.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

namespace {

constexpr int mostTableBits = 8;

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

/// Fields are told of pixels of 16 and 32 bits.
bool tellsFields(int bitsPerPixel) {
    return bitsPerPixel == 16 || bitsPerPixel == 32;
}

void fillHeader(const Bitmap& bitmap, BITMAPINFOHEADER& header) {
    const Surface& surface = bitmap.surface;
    header.biWidth = surface.width;
    header.biHeight = bitmap.isSection && !bitmap.bottomUp ? -surface.height : surface.height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(surface.bitsPerPixel);
    header.biCompression = tellsFields(surface.bitsPerPixel) ? BI_BITFIELDS : BI_RGB;
    header.biSizeImage =
        static_cast<DWORD>(rowBytes(surface.width, surface.bitsPerPixel, dibAlignment) * surface.height);
    header.biClrUsed = 0;
    header.biClrImportant = 0;
}

/// The format that pixels of a bitmap are given out in: its own when depths agree, else the usual one.
PixelFormat formatFor(const Bitmap& bitmap, int bitsPerPixel) {
    const Surface& surface = bitmap.surface;
    if (surface.bitsPerPixel == bitsPerPixel && surface.format) return *surface.format;
    if (bitsPerPixel == 1) return PixelFormat({blackAndWhite.begin(), blackAndWhite.end()});
    if (bitsPerPixel <= mostTableBits) return *deviceFormat(bitsPerPixel);
    return bitsPerPixel == 16 ? fiveBitFields() : PixelFormat(0x00FF0000, 0x0000FF00, 0x000000FF);
}

/// Numbers of palette entries where the program asked for them instead of colours.
void writeTable(const PixelFormat& format, UINT usage, BITMAPINFO& info) {
    RGBQUAD* out = colorsBehind(info);
    if (usage == DIB_PAL_COLORS) {
        std::vector<WORD> numbers(format.colors().size());
        for (std::size_t i = 0; i < numbers.size(); ++i)
            numbers[i] = static_cast<WORD>(i);
        std::memcpy(static_cast<void*>(out), numbers.data(), numbers.size() * sizeof(WORD));
        return;
    }
    std::transform(format.colors().begin(), format.colors().end(), out, quadFromColor);
}

void writeFields(const PixelFormat& format, BITMAPINFO& info) {
    std::uint32_t masks[3];
    for (std::size_t i = 0; i < 3; ++i)
        masks[i] = format.fields()[i].mask;
    std::memcpy(static_cast<void*>(colorsBehind(info)), masks, sizeof masks);
}

/// Copies rows between surfaces of any depth by their colours.
void copyRows(const Surface& from, int fromRow, const Surface& to, int toRow, int lines) {
    const int width = std::min(from.width, to.width);
    if (haveSameFormat(from, to)) {
        for (int i = 0; i < lines; ++i)
            copyRow(from, 0, fromRow + i, to, 0, toRow + i, width);
        return;
    }
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width));
    const ColorSearch search = hasFewColors(from) ? ColorSearch::Exact : ColorSearch::ByCubes;
    for (int i = 0; i < lines; ++i) {
        readRow(from, 0, fromRow + i, width, blackAndWhite, pixels.data());
        writeRow(to, 0, toRow + i, width, blackAndWhite, pixels.data(), search);
    }
}

/// The most bytes that the codes of a picture take when its header does not say it: two for every pixel and
/// row, and the end.
std::size_t codeBytes(const BITMAPINFO& info, const DibLayout& layout) {
    if (info.bmiHeader.biSizeImage != 0) return info.bmiHeader.biSizeImage;
    return 2 * (static_cast<std::size_t>(layout.width) + 1) * static_cast<std::size_t>(layout.height) + 2;
}

/// A picture in a memory context, for the length of one call.
class PictureContext {
public:
    PictureContext(HDC like, const void* bits, const BITMAPINFO* info, UINT usage)
        : dc_(CreateCompatibleDC(like)) {
        BITMAPINFO plain;
        plain.bmiHeader.biWidth = info->bmiHeader.biWidth;
        plain.bmiHeader.biHeight = info->bmiHeader.biHeight;
        plain.bmiHeader.biBitCount = 32;
        bitmap_ = CreateDIBSection(dc_, &plain, DIB_RGB_COLORS, nullptr, {}, 0);
        SetDIBits(like, bitmap_, 0, ~0u, bits, info, usage);
        former_ = SelectObject(dc_, bitmap_);
    }
    ~PictureContext() {
        SelectObject(dc_, former_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    PictureContext(const PictureContext&) = delete;
    PictureContext& operator=(const PictureContext&) = delete;
    HDC dc() const { return dc_; }

private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ former_;
};

/// What a picture offers as the source of a copy.
SourcePixels sourceOf(const Surface& surface) {
    SourcePixels source;
    source.surface = &surface;
    source.valid = {0, 0, surface.width, surface.height};
    source.backValue = valueOfColor(surface, blackAndWhite[1], blackAndWhite);
    return source;
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

HBITMAP CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                       const BITMAPINFO* info, UINT usage) {
    if (!header || !find<DeviceContext>(dc) || header->biWidth < 0) return {};
    const int height = header->biHeight < 0 ? -boundedCoordinate(header->biHeight) : header->biHeight;
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, header->biWidth, height);
    if (bitmap && (init & CBM_INIT) != 0)
        SetDIBits(dc, bitmap, 0, static_cast<UINT>(height), bits, info, usage);
    return bitmap;
}

int GetDIBits(HDC dc, HBITMAP handle, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage) {
    const Bitmap* bitmap = find<Bitmap>(handle);
    if (!find<DeviceContext>(dc) || !bitmap || !info || usage > DIB_PAL_COLORS) return 0;
    BITMAPINFOHEADER& header = info->bmiHeader;
    if (!bits && header.biBitCount == 0) {
        if (header.biSize < sizeof(BITMAPINFOHEADER)) return 0;
        fillHeader(*bitmap, header);
        return bitmap->surface.height;
    }
    DibLayout layout;
    if (!readMeasures(header, layout) || layout.isCoded()) return 0;
    const PixelFormat format = formatFor(*bitmap, layout.bitsPerPixel);
    if (layout.bitsPerPixel <= mostTableBits) {
        writeTable(format, usage, *info);
    } else if (layout.compression == BI_BITFIELDS) {
        writeFields(format, *info);
    }
    header.biSizeImage =
        static_cast<DWORD>(rowBytes(layout.width, layout.bitsPerPixel, dibAlignment) * layout.height);
    if (!bits) return bitmap->surface.height;
    const Scan scan = scanOf(start, lines, bitmap->surface.height, layout.bottomUp);
    Surface out = surfaceOver(bits, layout.width, scan.lines, layout.bitsPerPixel, layout.bottomUp);
    const bool isPlain = layout.bitsPerPixel == 24 ||
                         (layout.bitsPerPixel == 32 && (layout.compression == BI_RGB || !bitmap->format));
    const PixelFormat fields =
        layout.compression == BI_RGB && layout.bitsPerPixel == 16 ? fiveBitFields() : format;
    out.format = isPlain ? nullptr : &fields;
    copyRows(bitmap->surface, scan.firstRow, out, 0, scan.lines);
    return scan.lines;
}

int SetDIBits(HDC dc, HBITMAP handle, UINT start, UINT lines, const void* bits, const BITMAPINFO* info,
              UINT usage) {
    const Bitmap* bitmap = find<Bitmap>(handle);
    const DeviceContext* context = find<DeviceContext>(dc);
    DibLayout layout;
    if ((dc && !context) || !bitmap || !info || !bits) return 0;
    if (!readLayout(context, *info, usage, layout)) return 0;
    if (layout.isCoded()) {
        start = 0;
        lines = static_cast<UINT>(layout.height);
    }
    // Rows are counted in the given picture, whose top comes to lie on the bitmap's.
    const Scan scan = scanOf(start, lines, layout.height, layout.bottomUp);
    const int taken = std::min(scan.lines, bitmap->surface.height - scan.firstRow);
    if (taken <= 0) return 0;
    const DibPixels in(layout, bits, scan.lines, codeBytes(*info, layout));
    if (in.surface().height == 0) return 0;
    copyRows(in.surface(), 0, bitmap->surface, scan.firstRow, taken);
    return scan.lines;
}

int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int xSource, int ySource, UINT start,
                      UINT lines, const void* bits, const BITMAPINFO* info, UINT usage) {
    DeviceContext* context = find<DeviceContext>(dc);
    DibLayout layout;
    if (!context || !info || !bits || !readLayout(context, *info, usage, layout)) return 0;
    if (layout.isCoded()) {
        start = 0;
        lines = static_cast<UINT>(layout.height);
    }
    const Scan scan = scanOf(start, lines, layout.height, layout.bottomUp);
    if (scan.lines == 0) return 0;
    const DibPixels picture(layout, bits, scan.lines, codeBytes(*info, layout));
    if (picture.surface().height == 0) return 0;
    if (context->recorder && scan.lines == layout.height) {
        const PictureContext from(dc, bits, info, usage);
        const int top = layout.bottomUp ? layout.height - ySource - boundedCoordinate(height) : ySource;
        BitBlt(dc, x, y, boundedCoordinate(width), boundedCoordinate(height), from.dc(), xSource, top,
               SRCCOPY);
        return scan.lines;
    }
    const POINT corner = context->toSurface(POINT{x, y});
    const RECT area = rectOf(corner.x, corner.y, boundedCoordinate(width), boundedCoordinate(height));
    // Sources count from the first row in memory, and the area's lowest row is the one that they name.
    const std::int64_t top =
        layout.bottomUp ? std::int64_t{layout.height} - ySource - static_cast<std::int64_t>(height) : ySource;
    SourcePixels source = sourceOf(picture.surface());
    source.takesNearest = true;
    source.offset = {boundedCoordinate(std::int64_t{xSource} - corner.x),
                     boundedCoordinate(top - scan.firstRow - corner.y)};
    copyPixels(*context, area, source, rop3Of(SRCCOPY));
    return scan.lines;
}

int StretchDIBits(HDC dc, int x, int y, int width, int height, int xSource, int ySource, int widthSource,
                  int heightSource, const void* bits, const BITMAPINFO* info, UINT usage, DWORD rop) {
    DeviceContext* context = find<DeviceContext>(dc);
    DibLayout layout;
    if (!context || !info || !bits || !readLayout(context, *info, usage, layout)) return 0;
    const DibPixels picture(layout, bits, layout.height, codeBytes(*info, layout));
    if (picture.surface().height == 0) return 0;
    const int top =
        layout.bottomUp ? boundedCoordinate(std::int64_t{layout.height} - ySource - heightSource) : ySource;
    if (context->recorder) {
        const PictureContext from(dc, bits, info, usage);
        StretchBlt(dc, x, y, width, height, from.dc(), xSource, top, widthSource, heightSource, rop);
        return layout.height;
    }
    const SourcePixels source = sourceOf(picture.surface());
    const Stretch stretch = Stretch::between(context->toSurface(rectOf(x, y, width, height)),
                                             rectOf(xSource, top, widthSource, heightSource));
    if (!usesSource(rop3Of(rop))) {
        PatBlt(dc, x, y, width, height, rop);
    } else if (!stretch.changesSize() && !stretch.isMirrored()) {
        SourcePixels moved = source;
        moved.offset = {stretch.from.left - stretch.to.left, stretch.from.top - stretch.to.top};
        copyPixels(*context, stretch.to, moved, rop3Of(rop));
    } else {
        stretchArea(*context, source, stretch, rop3Of(rop));
    }
    return layout.height;
}

UINT GetDIBColorTable(HDC dc, UINT start, UINT count, RGBQUAD* colors) {
    const DeviceContext* context = find<DeviceContext>(dc);
    const Bitmap* bitmap = context ? context->selectedBitmap() : nullptr;
    if (!bitmap || !bitmap->isSection || !bitmap->format || !bitmap->format->hasTable() || !colors) return 0;
    const std::vector<std::uint32_t>& table = bitmap->format->colors();
    if (start >= table.size()) return 0;
    const UINT copied = std::min(count, static_cast<UINT>(table.size()) - start);
    std::transform(table.begin() + start, table.begin() + start + copied, colors, quadFromColor);
    return copied;
}

UINT SetDIBColorTable(HDC dc, UINT start, UINT count, const RGBQUAD* colors) {
    const DeviceContext* context = find<DeviceContext>(dc);
    Bitmap* bitmap = context ? context->selectedBitmap() : nullptr;
    if (!bitmap || !bitmap->isSection || !bitmap->format || !bitmap->format->hasTable() || !colors) return 0;
    std::vector<std::uint32_t> table = bitmap->format->colors();
    if (start >= table.size()) return 0;
    const UINT copied = std::min(count, static_cast<UINT>(table.size()) - start);
    std::transform(colors, colors + copied, table.begin() + start, colorFromQuad);
    setFormat(*bitmap, PixelFormat(std::move(table)));
    return copied;
}

} // namespace platform
