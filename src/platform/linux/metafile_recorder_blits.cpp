// Fills and pictures of a recorded context.

#include "platform/linux/metafile_recorder.h"
#include "platform/linux/word_sheet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace platform::driver {

namespace {

constexpr int wordBits = 32;
constexpr std::int64_t mostPixels = 1 << 26; ///< Of one picture in a record

LONG widthOf(const RECT& r) {
    return r.right - r.left;
}
LONG heightOf(const RECT& r) {
    return r.bottom - r.top;
}

/// Records tell lengths: those of a bounded rectangle are never too long for a number.
RECT bounded(const RECT& r) {
    return {boundedCoordinate(r.left), boundedCoordinate(r.top), boundedCoordinate(r.right),
            boundedCoordinate(r.bottom)};
}

BITMAPINFOHEADER headerOf(int width, int height, int bitsPerPixel) {
    BITMAPINFOHEADER header;
    header.biWidth = width;
    header.biHeight = height;
    header.biBitCount = static_cast<WORD>(bitsPerPixel);
    return header;
}

/// Where the bits of a picture lie that there is not, or that are still to be written.
constexpr std::array<DWORD, 4> noBits{};

bool hasAlpha(const std::vector<std::uint32_t>& words) {
    return std::any_of(words.begin(), words.end(), [](std::uint32_t word) { return word >> 24 != 0; });
}

std::uint32_t multipliedByAlpha(std::uint32_t word) {
    constexpr std::uint32_t full = 255;
    const std::uint32_t alpha = word >> 24;
    std::uint32_t result = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8)
        result |= ((word >> shift & 0xFF) * alpha + full / 2) / full << shift;
    return result;
}

} // namespace

void MetafileRecorder::writeBits(RecordWriter& writer, std::size_t offsets, const Pixels& pixels) {
    const BITMAPINFOHEADER header = headerOf(pixels.width, pixels.height, wordBits);
    const std::size_t at = writer.size();
    writer.value(header);
    const auto width = static_cast<std::size_t>(pixels.width);
    for (int y = pixels.height - 1; y >= 0; --y)
        writer.block(pixels.words.data() + static_cast<std::size_t>(y) * width, width * sizeof(DWORD));
    writer.put(offsets, static_cast<DWORD>(at));
    writer.put(offsets + 4, sizeof header);
    writer.put(offsets + 8, static_cast<DWORD>(at + sizeof header));
    writer.put(offsets + 12, static_cast<DWORD>(pixels.words.size() * sizeof(DWORD)));
}

void MetafileRecorder::writeDib(RecordWriter& writer, std::size_t offsets, const Dib& dib) {
    const std::size_t at = writer.size();
    writer.block(dib.header.data(), dib.header.size()).block(dib.bits.data(), dib.bits.size());
    writer.put(offsets, static_cast<DWORD>(at));
    writer.put(offsets + 4, static_cast<DWORD>(dib.header.size()));
    writer.put(offsets + 8, static_cast<DWORD>(at + dib.header.size()));
    writer.put(offsets + 12, static_cast<DWORD>(dib.bits.size()));
}

MetafileRecorder::Dib MetafileRecorder::dibOf(const Bitmap& bitmap, int depth) const {
    const int width = bitmap.surface.width;
    const int height = bitmap.surface.height;
    const std::size_t headerSize = sizeof(BITMAPINFOHEADER) + (depth == 1 ? 2 * sizeof(RGBQUAD) : 0);
    const std::size_t stride =
        (static_cast<std::size_t>(width) * static_cast<std::size_t>(depth) + 31) / 32 * 4;
    Dib dib{std::vector<BYTE>(headerSize), std::vector<BYTE>(stride * static_cast<std::size_t>(height))};
    BITMAPINFO info;
    info.bmiHeader = headerOf(width, height, depth);
    const HBITMAP copy(addObject(copyOf(bitmap)));
    GetDIBits(HDC(context_.handle), copy, 0, static_cast<UINT>(height), dib.bits.data(), &info,
              DIB_RGB_COLORS);
    DeleteObject(copy);
    std::memcpy(dib.header.data(), &info, headerSize);
    return dib;
}

void MetafileRecorder::writePatternBrush(DWORD entry, const Bitmap& pattern) {
    constexpr std::size_t offsets = 16;
    const bool isMono = pattern.surface.bitsPerPixel == 1 && !pattern.surface.format;
    const Dib dib = dibOf(pattern, isMono ? 1 : wordBits);
    RecordWriter writer = record(isMono ? RecordType::CreateMonoBrush : RecordType::CreateDibPatternBrushPt);
    writer.value(entry).value(DWORD{DIB_RGB_COLORS}).value(noBits);
    writeDib(writer, offsets, dib);
}

void MetafileRecorder::patternBlit(const RECT& r, DWORD rop) {
    writeState();
    const RECT box = bounded(r);
    const RECT bounds = addBounds(box);
    RecordWriter writer = drawing(RecordType::BitBlt, bounds);
    writer.value(box.left).value(box.top).value(widthOf(box)).value(heightOf(box)).value(rop);
    writer.value(POINT{}).value(FileTransform{}).value(RGB(255, 255, 255)).value(DWORD{DIB_RGB_COLORS});
    writer.value(noBits);
}

void MetafileRecorder::fill(const RECT& r, const Brush& brush, DWORD rop) {
    const HBRUSH selected = context_.state.brush;
    context_.state.brush = HBRUSH(brush.handle);
    patternBlit(r, rop);
    context_.state.brush = selected;
}

void MetafileRecorder::frame(const RECT& r, const Brush& brush) {
    fill({r.left, r.top, r.right, r.top + 1}, brush);
    fill({r.left, r.bottom - 1, r.right, r.bottom}, brush);
    fill({r.left, r.top + 1, r.left + 1, r.bottom - 1}, brush);
    fill({r.right - 1, r.top + 1, r.right, r.bottom - 1}, brush);
}

void MetafileRecorder::focusRect(const RECT& r) {
    const RECT box = bounded(r);
    constexpr WORD everySecond[] = {0x5500, 0xAA00, 0x5500, 0xAA00, 0x5500, 0xAA00, 0x5500, 0xAA00};
    constexpr int side = 8;
    const HBITMAP bits = CreateBitmap(side, side, 1, 1, everySecond);
    const HBRUSH handle = CreatePatternBrush(bits);
    DeleteObject(bits);
    const ContextState& state = context_.state;
    const COLORREF text = state.textColor;
    const COLORREF back = state.backColor;
    context_.state.textColor = RGB(0, 0, 0);
    context_.state.backColor = RGB(255, 255, 255);
    if (const Brush* brush = find<Brush>(handle)) {
        fill({box.left, box.top, box.right, box.top + 1}, *brush, PATINVERT);
        fill({box.left, box.bottom - 1, box.right, box.bottom}, *brush, PATINVERT);
        fill({box.left, box.top + 1, box.left + 1, box.bottom - 1}, *brush, PATINVERT);
        fill({box.right - 1, box.top + 1, box.right, box.bottom - 1}, *brush, PATINVERT);
    }
    context_.state.textColor = text;
    context_.state.backColor = back;
    DeleteObject(handle);
}

MetafileRecorder::Pixels MetafileRecorder::pixelsOf(const BlitSource& source, RECT& target) const {
    const HDC from(source.context.handle);
    const RECT wanted = source.context.toSurface(source.area);
    const RECT area = intersection(ordered(wanted), source.context.visible.bounds());
    const std::int64_t count = std::int64_t{widthOf(area)} * heightOf(area);
    if (isEmpty(area) || count > mostPixels) return {};
    // What lies outside of the source is not drawn: the target shrinks by the same share.
    const auto along = [](LONG from1, LONG to1, LONG from2, LONG to2, LONG at) {
        return from2 == from1
                   ? to1
                   : static_cast<LONG>(to1 + (std::int64_t{at} - from1) * (to2 - to1) / (from2 - from1));
    };
    const RECT whole = target;
    const bool mirroredX = wanted.right < wanted.left;
    const bool mirroredY = wanted.bottom < wanted.top;
    target.left =
        along(wanted.left, whole.left, wanted.right, whole.right, mirroredX ? area.right : area.left);
    target.right =
        along(wanted.left, whole.left, wanted.right, whole.right, mirroredX ? area.left : area.right);
    target.top =
        along(wanted.top, whole.top, wanted.bottom, whole.bottom, mirroredY ? area.bottom : area.top);
    target.bottom =
        along(wanted.top, whole.top, wanted.bottom, whole.bottom, mirroredY ? area.top : area.bottom);
    const WordSheet sheet(widthOf(area), heightOf(area));
    SetTextColor(sheet.dc(), context_.state.textColor);
    SetBkColor(sheet.dc(), context_.state.backColor);
    const POINT corner = source.context.state.mapping.toLogical(
        {area.left - source.context.origin.x, area.top - source.context.origin.y});
    BitBlt(sheet.dc(), 0, 0, widthOf(area), heightOf(area), from, corner.x, corner.y, SRCCOPY);
    Pixels pixels{widthOf(area), heightOf(area), {sheet.words(), sheet.words() + count}};
    if (mirroredX) std::swap(target.left, target.right);
    if (mirroredY) std::swap(target.top, target.bottom);
    return pixels;
}

void MetafileRecorder::writeBlit(RecordType type, const RECT& target, const Pixels& pixels, DWORD parameter) {
    if (pixels.words.empty()) return;
    constexpr std::size_t offsets = 84;
    writeState();
    const RECT bounds = addBounds(target);
    RecordWriter writer = drawing(type, bounds);
    writer.value(target.left)
        .value(target.top)
        .value(widthOf(target))
        .value(heightOf(target))
        .value(parameter);
    writer.value(POINT{}).value(FileTransform{}).value(RGB(255, 255, 255)).value(DWORD{DIB_RGB_COLORS});
    writer.value(noBits);
    if (type != RecordType::BitBlt) writer.value(SIZE{pixels.width, pixels.height});
    writeBits(writer, offsets, pixels);
}

void MetafileRecorder::blit(const RECT& target, const BlitSource& source, DWORD rop) {
    RECT shrunk = target;
    const Pixels pixels = pixelsOf(source, shrunk);
    const bool isSameSize = widthOf(shrunk) == pixels.width && heightOf(shrunk) == pixels.height;
    writeBlit(isSameSize ? RecordType::BitBlt : RecordType::StretchBlt, shrunk, pixels, rop);
}

void MetafileRecorder::maskedBlit(const RECT& target, DeviceContext* source, const RECT& sourceArea,
                                  const Bitmap& mask, POINT maskFrom, DWORD rop) {
    constexpr std::size_t offsets = 84;
    constexpr std::size_t maskOffsets = 112;
    RECT shrunk = target;
    Pixels pixels;
    if (source) pixels = pixelsOf({*source, sourceArea}, shrunk);
    if (source && pixels.words.empty()) return;
    writeState();
    const Dib maskDib = dibOf(mask, 1);
    const RECT bounds = addBounds(shrunk);
    RecordWriter writer = drawing(RecordType::MaskBlt, bounds);
    writer.value(shrunk.left).value(shrunk.top).value(widthOf(shrunk)).value(heightOf(shrunk)).value(rop);
    writer.value(POINT{}).value(FileTransform{}).value(RGB(255, 255, 255)).value(DWORD{DIB_RGB_COLORS});
    writer.value(noBits);
    writer.value(POINT{maskFrom.x + shrunk.left - target.left, maskFrom.y + shrunk.top - target.top});
    writer.value(DWORD{DIB_RGB_COLORS}).value(noBits);
    if (source) writeBits(writer, offsets, pixels);
    writeDib(writer, maskOffsets, maskDib);
}

void MetafileRecorder::parallelogram(const POINT* corners, const BlitSource& source, const Bitmap* mask,
                                     POINT maskFrom) {
    constexpr std::size_t offsets = 96;
    constexpr std::size_t maskOffsets = 124;
    RECT shrunk = source.area;
    const Pixels pixels = pixelsOf(source, shrunk);
    if (pixels.words.empty()) return;
    // What the source does not have is cut off the parallelogram too.
    const auto cornerAt = [&](LONG x, LONG y) {
        const double across = static_cast<double>(x - source.area.left) / widthOf(source.area);
        const double down = static_cast<double>(y - source.area.top) / heightOf(source.area);
        const auto along = [&](LONG POINT::*axis) {
            const double from = corners[0].*axis;
            return static_cast<LONG>(
                std::lround(from + across * (corners[1].*axis - from) + down * (corners[2].*axis - from)));
        };
        return POINT{along(&POINT::x), along(&POINT::y)};
    };
    const std::array<POINT, 3> cut = {cornerAt(shrunk.left, shrunk.top), cornerAt(shrunk.right, shrunk.top),
                                      cornerAt(shrunk.left, shrunk.bottom)};
    const POINT fourth = cornerAt(shrunk.right, shrunk.bottom);
    const std::array<POINT, 4> outline = {cut[0], cut[1], fourth, cut[2]};
    writeState();
    const RECT bounds = addBounds(outline.data(), outline.size());
    RecordWriter writer = drawing(RecordType::PlgBlt, bounds);
    writer.value(cut).value(POINT{}).value(SIZE{pixels.width, pixels.height});
    writer.value(FileTransform{}).value(RGB(255, 255, 255)).value(DWORD{DIB_RGB_COLORS}).value(noBits);
    writer.value(boundedCoordinate(std::int64_t{maskFrom.x} + shrunk.left - source.area.left))
        .value(boundedCoordinate(std::int64_t{maskFrom.y} + shrunk.top - source.area.top));
    writer.value(DWORD{DIB_RGB_COLORS}).value(noBits);
    writeBits(writer, offsets, pixels);
    if (mask) writeDib(writer, maskOffsets, dibOf(*mask, 1));
}

void MetafileRecorder::blend(RecordType type, const RECT& target, const BlitSource& source, DWORD parameter) {
    RECT shrunk = target;
    const Pixels pixels = pixelsOf(source, shrunk);
    writeBlit(type, shrunk, pixels, parameter);
}

void MetafileRecorder::gradient(std::span<const TRIVERTEX> vertices, const void* meshes, DWORD meshCount,
                                DWORD mode) {
    constexpr std::size_t triangle = 3 * sizeof(DWORD);
    const std::size_t meshSize = mode <= GRADIENT_FILL_RECT_V ? sizeof(GRADIENT_RECT) : triangle;
    writeState();
    std::vector<POINT> points;
    for (const TRIVERTEX& vertex : vertices)
        points.push_back({vertex.x, vertex.y});
    const RECT bounds = addBounds(points.data(), points.size());
    RecordWriter writer = drawing(RecordType::GradientFill, bounds);
    writer.value(static_cast<DWORD>(vertices.size())).value(meshCount).value(mode);
    writer.block(vertices.data(), vertices.size_bytes()).block(meshes, meshCount * meshSize);
    // Meshes take the room of triangles in any mode.
    const std::vector<BYTE> rest((triangle - meshSize) * meshCount);
    writer.block(rest.data(), rest.size());
}

std::optional<MetafileRecorder::Pixels> MetafileRecorder::iconPixels(const Bitmap& bitmap,
                                                                     const RECT& area) const {
    auto copy = copyOf(bitmap);
    if (!copy) return std::nullopt;
    const HBITMAP handle(addObject(std::move(copy)));
    const HDC dc = CreateCompatibleDC({});
    const HGDIOBJ former = SelectObject(dc, handle);
    const WordSheet sheet(widthOf(area), heightOf(area));
    BitBlt(sheet.dc(), 0, 0, widthOf(area), heightOf(area), dc, area.left, area.top, SRCCOPY);
    const auto count = static_cast<std::size_t>(widthOf(area)) * static_cast<std::size_t>(heightOf(area));
    Pixels pixels{widthOf(area), heightOf(area), {sheet.words(), sheet.words() + count}};
    SelectObject(dc, former);
    DeleteDC(dc);
    DeleteObject(handle);
    return pixels;
}

void MetafileRecorder::icon(const Icon& icon, const RECT& r, UINT flags) {
    constexpr DWORD blendWithAlpha = 0x01FF0000; ///< Full constant alpha, AC_SRC_ALPHA
    const int width = icon.mask->surface.width;
    const int height = icon.color ? icon.mask->surface.height : icon.mask->surface.height / 2;
    const bool drawsImage = (flags & DI_IMAGE) != 0;
    const bool drawsMask = (flags & DI_MASK) != 0;
    const RECT all{0, 0, width, height};
    const std::optional<Pixels> mask = iconPixels(*icon.mask, all);
    std::optional<Pixels> image =
        icon.color ? iconPixels(*icon.color, all) : iconPixels(*icon.mask, {0, height, width, 2 * height});
    if (!mask || !image) return;
    if (drawsImage && icon.color && hasAlpha(image->words)) {
        for (std::uint32_t& word : image->words)
            word = multipliedByAlpha(word);
        writeBlit(RecordType::AlphaBlend, r, *image, blendWithAlpha);
        return;
    }
    if (drawsMask) writeBlit(RecordType::StretchBlt, r, *mask, drawsImage ? SRCAND : SRCCOPY);
    if (drawsImage) writeBlit(RecordType::StretchBlt, r, *image, drawsMask ? SRCINVERT : SRCCOPY);
}

} // namespace platform::driver
