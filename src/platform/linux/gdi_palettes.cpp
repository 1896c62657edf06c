// Palettes: the colours that a program wants of a display that shows few.

#include "platform/gdi.h"
#include "platform/linux/colors.h"
#include "platform/linux/display_colors.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

namespace {

constexpr UINT mostEntries = 0xFFFF;

HPALETTE addPalette(std::vector<PALETTEENTRY> entries) {
    auto palette = std::make_unique<Palette>();
    palette->entries = std::move(entries);
    return HPALETTE(addObject(std::move(palette)));
}

std::uint32_t colorOf(const PALETTEENTRY& entry) {
    return pixelOfColor(RGB(entry.peRed, entry.peGreen, entry.peBlue));
}

/// Copies entries `start`... of a list as far as there are some; returns how many.
template <class List>
UINT copyEntries(const List& from, UINT start, UINT count, PALETTEENTRY* to) {
    const UINT size = static_cast<UINT>(from.size());
    if (start >= size) return 0;
    const UINT copied = std::min(count, size - start);
    std::copy_n(from.begin() + start, copied, to);
    return copied;
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

HPALETTE CreatePalette(const LOGPALETTE* data) {
    if (!data) return {};
    std::vector<PALETTEENTRY> entries(data->palNumEntries);
    // A program may have reserved more entries behind the record than the record names.
    std::memcpy(entries.data(), data->palPalEntry, entries.size() * sizeof(PALETTEENTRY));
    return addPalette(std::move(entries));
}

HPALETTE CreateHalftonePalette(HDC dc) {
    if (dc && !find<DeviceContext>(dc)) return {};
    std::vector<PALETTEENTRY> entries;
    for (const std::uint32_t color : halftoneColors())
        entries.push_back(paletteEntryOf(color));
    return addPalette(std::move(entries));
}

HPALETTE SelectPalette(HDC dc, HPALETTE handle, BOOL) {
    DeviceContext* context = find<DeviceContext>(dc);
    Palette* palette = find<Palette>(handle);
    if (!context || !palette) return {};
    const HPALETTE previous = context->palette;
    retainObject(*palette);
    context->palette = handle;
    if (Palette* last = find<Palette>(previous)) releaseObject(*last);
    return previous;
}

UINT RealizePalette(HDC dc) {
    const DeviceContext* context = find<DeviceContext>(dc);
    Palette* palette = context ? find<Palette>(context->palette) : nullptr;
    if (!palette || palette->stock || palette->realised || displayDepth() != 8) return 0;
    palette->realised = true;
    return static_cast<UINT>(palette->entries.size());
}

BOOL UnrealizeObject(HGDIOBJ handle) {
    Object* object = findObject(handle.value);
    if (!object) return FALSE_;
    if (object->kind == HandleKind::Palette) static_cast<Palette*>(object)->realised = false;
    return TRUE_;
}

BOOL GetObjectPalette(HPALETTE handle, WORD* count) {
    const Palette* palette = find<Palette>(handle);
    if (!palette || !count) return FALSE_;
    *count = static_cast<WORD>(palette->entries.size());
    return TRUE_;
}

UINT GetPaletteEntries(HPALETTE handle, UINT start, UINT count, PALETTEENTRY* entries) {
    const Palette* palette = find<Palette>(handle);
    if (!palette) return 0;
    if (!entries) return static_cast<UINT>(palette->entries.size());
    return copyEntries(palette->entries, start, count, entries);
}

UINT SetPaletteEntries(HPALETTE handle, UINT start, UINT count, const PALETTEENTRY* entries) {
    Palette* palette = find<Palette>(handle);
    if (!palette || palette->stock || !entries || start >= palette->entries.size()) return 0;
    const UINT copied = std::min(count, static_cast<UINT>(palette->entries.size()) - start);
    std::copy_n(entries, copied, palette->entries.begin() + start);
    palette->realised = false;
    return copied;
}

BOOL ResizePalette(HPALETTE handle, UINT count) {
    Palette* palette = find<Palette>(handle);
    if (!palette || palette->stock || count > mostEntries) return FALSE_;
    palette->entries.resize(count);
    palette->realised = false;
    return TRUE_;
}

UINT GetNearestPaletteIndex(HPALETTE handle, COLORREF color) {
    const Palette* palette = find<Palette>(handle);
    if (!palette) return CLR_INVALID;
    std::vector<std::uint32_t> colors;
    for (const PALETTEENTRY& entry : palette->entries)
        colors.push_back(colorOf(entry));
    return static_cast<UINT>(nearestOf(colors.data(), colors.size(), pixelOfColor(color)));
}

UINT GetSystemPaletteEntries(HDC dc, UINT start, UINT count, PALETTEENTRY* entries) {
    if (!find<DeviceContext>(dc) || displayDepth() != 8) return 0;
    const std::vector<std::uint32_t>& colors = halftoneColors();
    if (!entries) return static_cast<UINT>(colors.size());
    std::vector<PALETTEENTRY> shown;
    shown.reserve(colors.size());
    for (const std::uint32_t color : colors)
        shown.push_back(paletteEntryOf(color));
    return copyEntries(shown, start, count, entries);
}

} // namespace platform
