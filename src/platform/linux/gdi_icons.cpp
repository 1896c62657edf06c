// Icons and cursors: a mask that lets the ground show through, and colours over it.

#include "platform/gdi.h"
#include "platform/linux/blit.h"
#include "platform/linux/device_context.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/painter.h"
#include "platform/linux/rows.h"
#include "platform/linux/stretch.h"
#include "platform/system_look.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr std::uint32_t alphaBits = 0xFF000000;
constexpr int alphaShift = 24;

/// A memory context over a bitmap that has no handle, for the length of one drawing.
class BitmapContext {
public:
    explicit BitmapContext(Bitmap& bitmap) : context_(makeContext()) {
        context_->surface = &bitmap.surface;
        context_->visible = Region(RECT{0, 0, bitmap.surface.width, bitmap.surface.height});
    }
    DeviceContext& get() { return *context_; }

private:
    std::unique_ptr<DeviceContext> context_;
};

int heightOf(const Icon& icon) {
    return icon.color ? icon.color->surface.height : icon.mask->surface.height / 2;
}

bool hasAlpha(const Surface& surface) {
    if (surface.bitsPerPixel != 32) return false;
    for (int y = 0; y < surface.height; ++y) {
        const std::uint32_t* row = row32(surface, y);
        if (std::any_of(row, row + surface.width, [](std::uint32_t p) { return (p & alphaBits) != 0; }))
            return true;
    }
    return false;
}

/// A part of a bitmap stretched to a size, as a bitmap of the same depth.
std::unique_ptr<Bitmap> fitted(const Bitmap& from, const RECT& part, int width, int height) {
    const RECT area{0, 0, width, height};
    return stretched(from.surface, {area, part}, area, COLORONCOLOR);
}

std::uint32_t mixed(std::uint32_t under, std::uint32_t over) {
    const std::uint32_t alpha = over >> alphaShift;
    std::uint32_t result = 0;
    for (int shift = 0; shift < alphaShift; shift += 8) {
        constexpr std::uint32_t full = 255;
        const std::uint32_t a = under >> shift & 0xFF;
        const std::uint32_t b = over >> shift & 0xFF;
        result |= (b * alpha + a * (full - alpha) + full / 2) / full << shift;
    }
    return result;
}

/// Blends a picture with alpha into a 32-bit target.
void blend(DeviceContext& context, POINT at, const Surface& picture) {
    const RECT area{at.x, at.y, at.x + picture.width, at.y + picture.height};
    for (const RECT& clip : context.drawable().rectangles()) {
        const RECT r = intersection(area, clip);
        for (int y = r.top; y < r.bottom && r.left < r.right; ++y) {
            std::uint32_t* to = row32(*context.surface, y);
            const std::uint32_t* from = row32(picture, y - at.y) - at.x;
            for (int x = r.left; x < r.right; ++x)
                to[x] = mixed(to[x], from[x]);
        }
    }
}

void put(DeviceContext& context, const RECT& area, Bitmap& picture, DWORD rop) {
    BitmapContext source(picture);
    // A mask shows in black and white whatever colours the target has set.
    const ContextState before = context.state;
    context.state.textColor = RGB(0, 0, 0);
    context.state.backColor = RGB(255, 255, 255);
    copyArea(context, area, source.get(), {0, 0}, rop3Of(rop));
    context.state.textColor = before.textColor;
    context.state.backColor = before.backColor;
}

void drawIcon(DeviceContext& context, Icon& icon, const RECT& area, UINT flags) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    const int ownWidth = icon.mask->surface.width;
    const int ownHeight = heightOf(icon);
    const RECT all{0, 0, ownWidth, ownHeight};
    const bool drawsImage = (flags & DI_IMAGE) != 0;
    const bool drawsMask = (flags & DI_MASK) != 0;
    if (drawsImage && icon.color && hasAlpha(icon.color->surface) && context.surface->bitsPerPixel == 32) {
        if (const auto picture = fitted(*icon.color, all, width, height))
            blend(context, {area.left, area.top}, picture->surface);
        return;
    }
    if (drawsMask) {
        const auto mask = fitted(*icon.mask, all, width, height);
        if (mask) put(context, area, *mask, drawsImage ? SRCAND : SRCCOPY);
    }
    if (drawsImage) {
        const RECT lower{0, ownHeight, ownWidth, 2 * ownHeight};
        const auto picture =
            icon.color ? fitted(*icon.color, all, width, height) : fitted(*icon.mask, lower, width, height);
        if (picture) put(context, area, *picture, drawsMask ? SRCINVERT : SRCCOPY);
    }
}

int sizeOr(int wanted, UINT flags, int metric, int own) {
    if (wanted != 0) return wanted;
    return (flags & DI_DEFAULTSIZE) != 0 ? GetSystemMetrics(metric) : own;
}

void recordIcon(MetafileRecorder& recorder, const Icon& icon, const RECT& r, HBRUSH background, UINT flags) {
    if (const Brush* brush = find<Brush>(background)) recorder.fill(r, *brush);
    recorder.icon(icon, r, flags);
}

HBITMAP addCopy(const Bitmap& bitmap) {
    std::unique_ptr<Bitmap> copy = copyOf(bitmap);
    return copy ? HBITMAP(addObject(std::move(copy))) : HBITMAP();
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

HICON CreateIconIndirect(const ICONINFO* info) {
    if (!info) return {};
    const Bitmap* mask = find<Bitmap>(info->hbmMask);
    const Bitmap* color = find<Bitmap>(info->hbmColor);
    if (!mask || (info->hbmColor && !color)) return {};
    auto icon = std::make_unique<Icon>();
    icon->isIcon = info->fIcon != 0;
    icon->mask = copyOf(*mask);
    if (color) icon->color = copyOf(*color);
    if (!icon->mask || (color && !icon->color)) return {};
    if (!color && mask->surface.height < 2) return {};
    if (icon->isIcon) {
        // The hot spot of an icon is its middle, whatever the record says.
        icon->xHotspot = static_cast<DWORD>(mask->surface.width / 2);
        icon->yHotspot = static_cast<DWORD>(heightOf(*icon) / 2);
    } else {
        icon->xHotspot = info->xHotspot;
        icon->yHotspot = info->yHotspot;
    }
    return HICON(addObject(std::move(icon)));
}

BOOL GetIconInfo(HICON handle, ICONINFO* info) {
    const Icon* icon = find<Icon>(handle);
    if (!icon || !info) return FALSE_;
    const HBITMAP mask = addCopy(*icon->mask);
    const HBITMAP color = icon->color ? addCopy(*icon->color) : HBITMAP();
    if (!mask || (icon->color && !color)) {
        DeleteObject(mask);
        DeleteObject(color);
        return FALSE_;
    }
    *info = {icon->isIcon ? TRUE_ : FALSE_, icon->xHotspot, icon->yHotspot, mask, color};
    return TRUE_;
}

BOOL DrawIconEx(HDC dc, int x, int y, HICON handle, int width, int height, UINT step, HBRUSH background,
                UINT flags) {
    DeviceContext* context = find<DeviceContext>(dc);
    Icon* icon = find<Icon>(handle);
    if (!context || !icon || step != 0) return FALSE_;
    width = sizeOr(width, flags, SM_CXICON, icon->mask->surface.width);
    height = sizeOr(height, flags, SM_CYICON, heightOf(*icon));
    constexpr int largest = 4096; ///< Beyond every sensible icon; the stretched picture is kept in memory
    if (width < 1 || height < 1 || width > largest || height > largest) return FALSE_;
    if (context->recorder)
        recordIcon(*context->recorder, *icon, {x, y, x + width, y + height}, background, flags);
    const POINT at = context->toSurface(POINT{x, y});
    const RECT area{at.x, at.y, at.x + width, at.y + height};
    if (const Brush* brush = find<Brush>(background)) Painter(*context, *brush, rop3Of(PATCOPY)).fill(area);
    drawIcon(*context, *icon, area, flags);
    return TRUE_;
}

BOOL DestroyIcon(HICON handle) {
    Icon* icon = find<Icon>(handle);
    if (!icon) return FALSE_;
    deleteObject(*icon);
    return TRUE_;
}

} // namespace platform
