// Bitmaps: making them, and what is told of them.

#include "platform/gdi.h"
#include "platform/linux/dib.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/rows.h"

#include <cstdlib>
#include <cstring>
#include <limits>

namespace platform::driver {

namespace {

constexpr std::int64_t memoryLimit = std::numeric_limits<std::int32_t>::max();

/// Copies a program's rows, which begin at multiples of two bytes.
void fillRows(Bitmap& bitmap, const void* bits) {
    const Surface& surface = bitmap.surface;
    const std::size_t bytes =
        static_cast<std::size_t>(rowBytes(surface.width, surface.bitsPerPixel, deviceAlignment));
    for (int y = 0; y < surface.height; ++y) {
        const auto* row = static_cast<const std::uint8_t*>(bits) + bytes * static_cast<std::size_t>(y);
        std::memcpy(rowOf(surface, y), row, bytes);
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
    bitmap->surface.format = deviceFormat(bitsPerPixel);
    return bitmap;
}

std::unique_ptr<Bitmap> makeBitmapLike(const Surface& surface, int width, int height) {
    auto bitmap = makeBitmap(width, height, surface.bitsPerPixel);
    if (bitmap) bitmap->surface.format = surface.format;
    return bitmap;
}

void setFormat(Bitmap& bitmap, const PixelFormat& format) {
    bitmap.format = std::make_unique<PixelFormat>(format);
    bitmap.surface.format = bitmap.format.get();
}

std::unique_ptr<Bitmap> copyOf(const Bitmap& source) {
    auto copy = makeBitmapLike(source.surface, source.surface.width, source.surface.height);
    if (!copy) return nullptr;
    if (source.format) setFormat(*copy, *source.format);
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
    const Bitmap* selected = context->selectedBitmap();
    const int depth = context->surface->bitsPerPixel;
    // A section is no wider than nothing; a height below zero only says which row comes first.
    if (selected && selected->isSection && depth != 1 && width < 0) return {};
    if (!selected || !selected->format)
        return CreateBitmap(width, height, 1, static_cast<UINT>(depth), nullptr);
    if (height == std::numeric_limits<int>::min()) return {};
    auto bitmap = makeBitmap(width, std::abs(height), depth);
    if (!bitmap) return {};
    // What is compatible with a section has its colours and can be selected wherever a section can.
    setFormat(*bitmap, *selected->format);
    bitmap->isSection = selected->isSection && depth != 1;
    return HBITMAP(addObject(std::move(bitmap)));
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits) {
    if (planes != 1 || bitsPerPixel > 32 || !isDepth(static_cast<int>(bitsPerPixel))) return {};
    if (width == std::numeric_limits<int>::min() || height == std::numeric_limits<int>::min()) return {};
    if (width == 0 || height == 0) return HBITMAP(stockObject(defaultBitmapIndex));
    width = width < 0 ? -width : width;
    height = height < 0 ? -height : height;
    auto bitmap = makeBitmap(width, height, static_cast<int>(bitsPerPixel));
    if (!bitmap) return {};
    if (bits) fillRows(*bitmap, bits);
    return HBITMAP(addObject(std::move(bitmap)));
}

HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE, DWORD) {
    if (bits) *bits = nullptr;
    DibLayout layout;
    if (!info || !readLayout(find<DeviceContext>(dc), *info, usage, layout) || layout.isCoded()) return {};
    auto bitmap = makeBitmap(layout.width, layout.height, layout.bitsPerPixel, layout.bottomUp);
    if (!bitmap) return {};
    bitmap->isSection = true;
    if (layout.format) setFormat(*bitmap, *layout.format);
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

} // namespace platform
