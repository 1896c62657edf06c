// Icons and cursors: a mask that lets the ground show through, and colours over it.

#include "platform/gdi.h"
#include "platform/linux/blend.h"
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

/// Where an icon comes to lie on the surface. A mapping may turn it round.
struct Place {
    RECT area;
    bool isLeftwards;
    bool isUpwards;

    explicit Place(const RECT& r)
        : area(areaOf(r)), isLeftwards(r.right < r.left), isUpwards(r.bottom < r.top) {}
    int width() const { return area.right - area.left; }
    int height() const { return area.bottom - area.top; }
    bool isTurned() const { return isLeftwards || isUpwards; }
};

/// A part of a bitmap stretched to a place's size, as a bitmap of the same depth.
std::unique_ptr<Bitmap> fitted(const Bitmap& from, const RECT& part, const Place& place) {
    const RECT all{0, 0, place.width(), place.height()};
    return stretched(from.surface, {all, part, place.isLeftwards, place.isUpwards}, all, COLORONCOLOR);
}

/// Multiplies colours by their alpha, as blends take them.
void multiplyByAlpha(const Surface& picture) {
    constexpr std::uint32_t full = 255;
    for (int y = 0; y < picture.height; ++y) {
        std::uint32_t* row = row32(picture, y);
        for (int x = 0; x < picture.width; ++x) {
            const std::uint32_t alpha = row[x] >> alphaShift;
            std::uint32_t word = row[x] & alphaBits;
            for (int shift = 0; shift < alphaShift; shift += 8)
                word |= ((row[x] >> shift & 0xFF) * alpha + full / 2) / full << shift;
            row[x] = word;
        }
    }
}

/// What a bitmap of an icon offers as the source of a copy to a place on the target.
SourcePixels pixelsOf(const Bitmap& bitmap, POINT at) {
    SourcePixels source;
    source.surface = &bitmap.surface;
    source.valid = {0, 0, bitmap.surface.width, bitmap.surface.height};
    source.offset = {-at.x, -at.y};
    // A mask shows in black and white whatever colours the target has set.
    source.bits = blackAndWhite;
    source.backValue = valueOfColor(bitmap.surface, blackAndWhite[1], blackAndWhite);
    return source;
}

void put(DeviceContext& context, const RECT& area, const Bitmap& picture, DWORD rop) {
    copyPixels(context, area, pixelsOf(picture, {area.left, area.top}), rop3Of(rop));
}

void blend(DeviceContext& context, const RECT& area, const Bitmap& picture) {
    constexpr BLENDFUNCTION byAlpha{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    blendPixels(context, area, pixelsOf(picture, {area.left, area.top}), byAlpha);
}

/// The picture of words with what they leave of the ground below them.
std::unique_ptr<Bitmap> withShares(std::unique_ptr<Bitmap> picture) {
    if (!picture) return nullptr;
    const Surface& from = picture->surface;
    auto both = makeBitmapLike(from, from.width, 2 * from.height);
    if (!both) return nullptr;
    for (int y = 0; y < from.height; ++y) {
        copyRow(from, 0, y, both->surface, 0, y, from.width);
        std::transform(row32(from, y), row32(from, y) + from.width, row32(both->surface, from.height + y),
                       shareLeftBy);
    }
    return both;
}

/// Blends a picture of words with their shares into the area of its size on words. Mostly all of it is to be
/// seen.
void blendKept(DeviceContext& context, const RECT& area, const Bitmap& picture) {
    const std::optional<PlainArea> plain = plainArea(context);
    if (!plain || !plain->covers(area)) {
        blend(context, area, picture);
        return;
    }
    const Surface& to = *context.surface;
    const Surface& from = picture.surface;
    const int height = from.height / 2;
    wordRows().blendShares({row32(to, area.top) + area.left, wordStride(to), row32(from, 0), wordStride(from),
                            from.width, height},
                           wordStride(from) * height);
}

/// The icon's AND mask, and its colours or its XOR mask, brought to a size.
std::unique_ptr<Bitmap> fittedMask(const Icon& icon, const Place& place) {
    return fitted(*icon.mask, {0, 0, icon.mask->surface.width, heightOf(icon)}, place);
}

std::unique_ptr<Bitmap> fittedImage(const Icon& icon, const Place& place) {
    const RECT all{0, 0, icon.mask->surface.width, heightOf(icon)};
    if (icon.color) return fitted(*icon.color, all, place);
    return fitted(*icon.mask, {all.left, all.bottom, all.right, 2 * all.bottom}, place);
}

std::unique_ptr<Bitmap> fittedBlend(const Icon& icon, const Place& place) {
    const Surface& picture = icon.blend->surface;
    return fitted(*icon.blend, {0, 0, picture.width, picture.height}, place);
}

/// Draws the parts that are asked for; either may be missing for want of memory.
void drawParts(DeviceContext& context, const RECT& area, const Bitmap* mask, const Bitmap* image,
               UINT flags) {
    const bool drawsImage = (flags & DI_IMAGE) != 0;
    const bool drawsMask = (flags & DI_MASK) != 0;
    if (drawsMask && mask) put(context, area, *mask, drawsImage ? SRCAND : SRCCOPY);
    if (drawsImage && image) put(context, area, *image, drawsMask ? SRCINVERT : SRCCOPY);
}

std::unique_ptr<Bitmap> asWords(const DeviceContext& context, std::unique_ptr<Bitmap> picture) {
    if (!picture || isPlain32(picture->surface)) return picture;
    auto words = makeBitmap(picture->surface.width, picture->surface.height, 32);
    if (!words) return nullptr;
    put(*makeContextOver(*words, context), {0, 0, words->surface.width, words->surface.height}, *picture,
        SRCCOPY);
    return words;
}

/// Whether it was last drawn on plain words in the size of the place.
bool isKeptFor(const Icon& icon, const Place& place) {
    const Bitmap* image = icon.words.image.get();
    return image && image->surface.width == place.width() &&
           image->surface.height == place.height() * (icon.blend ? 2 : 1);
}

/// Icons are mostly drawn again and again at one size.
const IconWords& wordsOf(Icon& icon, const DeviceContext& context, const Place& place) {
    if (isKeptFor(icon, place)) return icon.words;
    icon.words = {};
    if (icon.blend) {
        icon.words.image = withShares(fittedBlend(icon, place));
    } else {
        icon.words.mask = asWords(context, fittedMask(icon, place));
        icon.words.image = asWords(context, fittedImage(icon, place));
    }
    return icon.words;
}

void drawIcon(DeviceContext& context, Icon& icon, const Place& place, UINT flags) {
    constexpr int largestKept = 256; ///< Sides of icons that are kept as words
    context.needPixels();
    const RECT& area = place.area;
    // With few colours there is none between the icon's and the ground's: there its mask counts.
    const bool blends = (flags & DI_IMAGE) != 0 && icon.blend && !hasFewColors(*context.surface);
    const bool isKept = isPlain32(*context.surface) && !place.isTurned() && place.width() <= largestKept &&
                        place.height() <= largestKept;
    if (isKept && (blends || !icon.blend)) {
        const IconWords& words = wordsOf(icon, context, place);
        if (!blends) {
            drawParts(context, area, words.mask.get(), words.image.get(), flags);
        } else if (words.image) {
            blendKept(context, area, *words.image);
        }
    } else if (!blends) {
        drawParts(context, area, fittedMask(icon, place).get(), fittedImage(icon, place).get(), flags);
    } else if (const auto picture = fittedBlend(icon, place)) {
        blend(context, area, *picture);
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
    if (color && hasAlpha(color->surface)) {
        icon->blend = copyOf(*color);
        if (!icon->blend) return {};
        multiplyByAlpha(icon->blend->surface);
    }
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
    if (width < 1 || height < 1) return FALSE_;
    const RECT logical = rectOf(x, y, width, height);
    const Place place(context->toSurface(logical));
    constexpr int largest = 4096; ///< Beyond every sensible icon; the stretched picture is kept in memory
    if (place.width() > largest || place.height() > largest) return FALSE_;
    if (context->recorder) recordIcon(*context->recorder, *icon, logical, background, flags);
    if (const Brush* brush = find<Brush>(background))
        Painter(*context, *brush, rop3Of(PATCOPY)).fill(place.area);
    if (!isEmpty(place.area)) drawIcon(*context, *icon, place, flags);
    return TRUE_;
}

HICON CopyIcon(HICON handle) {
    ICONINFO info;
    if (!GetIconInfo(handle, &info)) return {};
    const HICON copy = CreateIconIndirect(&info);
    DeleteObject(info.hbmMask);
    if (info.hbmColor) DeleteObject(info.hbmColor);
    return copy;
}

BOOL DestroyIcon(HICON handle) {
    Icon* icon = find<Icon>(handle);
    if (!icon) return FALSE_;
    deleteObject(*icon);
    return TRUE_;
}

} // namespace platform
