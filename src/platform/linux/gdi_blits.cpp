// Copies between contexts, straight and stretched.

#include "platform/gdi.h"
#include "platform/linux/blend.h"
#include "platform/linux/blit.h"
#include "platform/linux/colors.h"
#include "platform/linux/mask_region.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/rows.h"
#include "platform/linux/stretch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace platform::driver {

namespace {

constexpr std::uint32_t colorBits = 0x00FFFFFF;

/// The two areas of a stretched copy between contexts.
struct CopyAreas {
    int x, y, width, height;
    int xSource, ySource, widthSource, heightSource;

    Stretch between(const DeviceContext& to, const DeviceContext& from) const {
        return Stretch::between(to.toSurface(target()), from.toSurface(source()));
    }
    std::optional<WordBlocks> plainBlocks(DeviceContext& to, const DeviceContext& from) const {
        if (width != widthSource || height != heightSource) return {};
        return driver::plainBlocks(to, from, {x, y, width, height, xSource, ySource});
    }
    RECT target() const { return rectOf(x, y, width, height); }
    RECT source() const { return rectOf(xSource, ySource, widthSource, heightSource); }
    /// The blends take no mirrored areas.
    bool isBackwards() const { return width < 0 || height < 0 || widthSource < 0 || heightSource < 0; }
    bool isEmpty() const { return width == 0 || height == 0 || widthSource == 0 || heightSource == 0; }
};

/// As records and callers in other languages hold it.
DWORD wordOf(BLENDFUNCTION blend) {
    DWORD word = 0;
    static_assert(sizeof word == sizeof blend);
    std::memcpy(&word, &blend, sizeof word);
    return word;
}

bool liesIn(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

/// The colours of the part of a surface that a stretch takes, as words. The stretch then begins at their
/// corner.
std::unique_ptr<Bitmap> colorsOf(const Surface& from, Stretch& stretch) {
    const RECT part = intersection(stretch.from, {0, 0, from.width, from.height});
    if (isEmpty(part)) return nullptr;
    const int width = part.right - part.left;
    auto colors = makeBitmap(width, part.bottom - part.top, 32);
    if (!colors) return nullptr;
    for (int y = part.top; y < part.bottom; ++y)
        readRow(from, part.left, y, width, blackAndWhite, row32(colors->surface, y - part.top));
    stretch.from = moved(stretch.from, {-part.left, -part.top});
    return colors;
}

/// The source of a copy brought to the size of its target.
class FittedSource {
public:
    FittedSource(DeviceContext& to, const DeviceContext& from, const Stretch& stretch, int mode) {
        const RECT part = intersection(stretch.to, to.drawable().bounds());
        pixels_ =
            sourceOf(to, from, {stretch.from.left - stretch.to.left, stretch.from.top - stretch.to.top});
        pixels_.bits = blackAndWhite;
        if (driver::isEmpty(part)) return;
        if (!stretch.changesSize()) {
            if (overlaps(*to.surface, part, pixels_)) picture_ = takeApart(pixels_, part);
            return;
        }
        Stretch shifted = stretch;
        const bool joinsNumbers = !haveSameFormat(*to.surface, *from.surface) && mode == BLACKONWHITE &&
                                  from.surface->format && from.surface->format->hasTable();
        const auto colors = joinsNumbers ? colorsOf(*from.surface, shifted) : nullptr;
        picture_ = stretched(colors ? colors->surface : *from.surface, shifted, part, mode);
        if (!picture_) return;
        pixels_.surface = &picture_->surface;
        pixels_.valid = {0, 0, picture_->surface.width, picture_->surface.height};
        pixels_.offset = {-part.left, -part.top};
    }
    const SourcePixels& pixels() const { return pixels_; }

private:
    std::unique_ptr<Bitmap> picture_;
    SourcePixels pixels_;
};

void copyOrStretch(DeviceContext& to, DeviceContext& from, const Stretch& stretch, Rop3 rop) {
    if (stretch.changesSize() || stretch.isMirrored()) {
        stretchArea(to, sourceOf(to, from, {}), stretch, rop);
    } else {
        copyArea(to, stretch.to, from, {stretch.from.left, stretch.from.top}, rop);
    }
}

/// Copies what is not of one colour, a row at a time through buffers.
class OpaqueCopier {
public:
    OpaqueCopier(const DeviceContext& target, const SourcePixels& source, std::uint32_t transparent,
                 int width)
        : surface_(*target.surface), source_(source), transparent_(transparent),
          finder_(target, *source.surface), colors_(static_cast<std::size_t>(width)),
          values_(static_cast<std::size_t>(width)) {}

    void row(int x, int y, int count) {
        readRow(*source_.surface, x + source_.offset.x, y + source_.offset.y, count, source_.bits,
                colors_.data());
        readValues(surface_, x, y, count, values_.data());
        for (std::size_t i = 0; i < colors_.size(); ++i)
            if ((colors_[i] & colorBits) != transparent_)
                values_[i] = isPlain32(surface_) ? colors_[i] : finder_.valueOf(colors_[i] & colorBits);
        writeValues(surface_, x, y, count, values_.data());
    }

private:
    const Surface& surface_;
    const SourcePixels& source_;
    std::uint32_t transparent_;
    ValueFinder finder_;
    std::vector<std::uint32_t> colors_;
    std::vector<std::uint32_t> values_;
};

/// Copies what is not of one colour.
void copyOpaque(DeviceContext& target, const RECT& area, const SourcePixels& source,
                std::uint32_t transparent) {
    const Region& drawable = target.drawable();
    const bool isDirect = isPlain32(*target.surface) && isPlain32(*source.surface);
    for (const RECT& clip : drawable.rectangles()) {
        const RECT r = intersection(area, clip);
        if (isEmpty(r)) continue;
        if (isDirect) {
            wordRows().copyOpaque(wordBlocks(*target.surface, r, source), transparent);
            continue;
        }
        OpaqueCopier copier(target, source, transparent, r.right - r.left);
        for (int y = r.top; y < r.bottom; ++y)
            copier.row(r.left, y, r.right - r.left);
    }
}

/// The pixels of the target under set ones of a mask, which is stretched as the source is.
Region setPixels(DeviceContext& context, const Bitmap& mask, const Stretch& stretch) {
    if (!stretch.changesSize()) {
        Region region = maskRegion(mask.surface, stretch.from);
        region.translate(stretch.to.left, stretch.to.top);
        return region;
    }
    const RECT part = intersection(stretch.to, context.drawable().bounds());
    if (isEmpty(part)) return {};
    const auto fitted = stretched(mask.surface, stretch, part, context.state.stretchMode);
    if (!fitted) return {};
    Region region = maskRegion(fitted->surface, {0, 0, part.right - part.left, part.bottom - part.top});
    region.translate(part.left, part.top);
    return region;
}

/// Narrows a context's clipping for one drawing.
class ClipScope {
public:
    ClipScope(DeviceContext& context, const Region& onSurface)
        : context_(context), before_(context.state.clip) {
        Region clip = onSurface;
        clip.translate(-context.origin.x, -context.origin.y);
        context.state.clip = before_ ? before_->intersected(clip) : clip;
        context.clipChanged();
    }
    ~ClipScope() {
        context_.state.clip = before_;
        context_.clipChanged();
    }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

private:
    DeviceContext& context_;
    std::optional<Region> before_;
};

bool isMask(const Bitmap* bitmap) {
    return bitmap && bitmap->surface.bitsPerPixel == 1;
}

/// Where PlgBlt paints: three corners, the fourth being what they leave.
struct Parallelogram {
    POINT topLeft;
    POINT topRight;
    POINT bottomLeft;

    std::int64_t determinant() const {
        return std::int64_t{topRight.x - topLeft.x} * (bottomLeft.y - topLeft.y) -
               std::int64_t{topRight.y - topLeft.y} * (bottomLeft.x - topLeft.x);
    }
    bool isFlat() const { return determinant() == 0; }
    /// A rectangle, perhaps turned round, but neither turned aside nor leaning.
    bool isUpright() const { return topLeft.y == topRight.y && topLeft.x == bottomLeft.x; }

    RECT bounds() const {
        const POINT fourth{boundedCoordinate(std::int64_t{topRight.x} + bottomLeft.x - topLeft.x),
                           boundedCoordinate(std::int64_t{topRight.y} + bottomLeft.y - topLeft.y)};
        const auto [left, right] = std::minmax({topLeft.x, topRight.x, bottomLeft.x, fourth.x});
        const auto [top, bottom] = std::minmax({topLeft.y, topRight.y, bottomLeft.y, fourth.y});
        return {left, top, right, bottom};
    }

    /// The pixel of a picture of that size that lies under the middle of a pixel; below zero or beyond the
    /// size outside.
    POINT inside(POINT p, int width, int height) const {
        const double size = static_cast<double>(determinant());
        const double x = p.x + 0.5 - topLeft.x;
        const double y = p.y + 0.5 - topLeft.y;
        const double across =
            (x * (bottomLeft.y - topLeft.y) - y * (bottomLeft.x - topLeft.x)) / size * width;
        const double down = (y * (topRight.x - topLeft.x) - x * (topRight.y - topLeft.y)) / size * height;
        const auto whole = [](double value) {
            constexpr double farthest = 0x7FFFFFFF;
            return static_cast<LONG>(std::floor(std::clamp(value, -1.0, farthest)));
        };
        return {whole(across), whole(down)};
    }
};

POINT sumOf(POINT a, POINT b) {
    return {boundedCoordinate(std::int64_t{a.x} + b.x), boundedCoordinate(std::int64_t{a.y} + b.y)};
}

bool holds(const Surface& surface, POINT p) {
    return contains({0, 0, surface.width, surface.height}, p);
}

void copyPixel(DeviceContext& target, POINT to, const SourcePixels& source, POINT from, ValueFinder& finder) {
    std::uint32_t value = valueAt(*source.surface, from.x, from.y);
    if (!haveSameFormat(*target.surface, *source.surface)) {
        const std::uint32_t color = colorOfValue(*source.surface, value, source.bits);
        const bool isBack = value == source.backValue;
        value = becomesMask(*target.surface, source) ? (isBack ? ~0u : 0u) : finder.valueOf(color);
    }
    writeValues(*target.surface, to.x, to.y, 1, &value);
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource, DWORD rop) {
    if (!usesSource(rop3Of(rop))) return PatBlt(dc, x, y, width, height, rop);
    DeviceContext* to = find<DeviceContext>(dc);
    DeviceContext* from = find<DeviceContext>(source);
    if (!to || !from) return FALSE_;
    if (const auto blocks = plainBlocks(*to, *from, {x, y, width, height, xSource, ySource});
        blocks && !usesPattern(rop3Of(rop))) {
        copyWords(*blocks, rop3Of(rop));
        return TRUE_;
    }
    const CopyAreas areas{x, y, width, height, xSource, ySource, width, height};
    if (to->recorder) to->recorder->blit(areas.target(), {*from, areas.source()}, rop);
    copyOrStretch(*to, *from, areas.between(*to, *from), rop3Of(rop));
    return TRUE_;
}

BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                int widthSource, int heightSource, DWORD rop) {
    if (width == widthSource && height == heightSource)
        return BitBlt(dc, x, y, width, height, source, xSource, ySource, rop);
    if (!usesSource(rop3Of(rop))) return PatBlt(dc, x, y, width, height, rop);
    DeviceContext* to = find<DeviceContext>(dc);
    DeviceContext* from = find<DeviceContext>(source);
    if (!to || !from || widthSource == 0 || heightSource == 0) return FALSE_;
    if (width == 0 || height == 0) return TRUE_;
    const CopyAreas areas{x, y, width, height, xSource, ySource, widthSource, heightSource};
    if (to->recorder) to->recorder->blit(areas.target(), {*from, areas.source()}, rop);
    copyOrStretch(*to, *from, areas.between(*to, *from), rop3Of(rop));
    return TRUE_;
}

BOOL MaskBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
             HBITMAP maskHandle, int xMask, int yMask, DWORD rop) {
    const DWORD foreground = foregroundOf(rop);
    const DWORD background = backgroundOf(rop);
    if (!maskHandle) return BitBlt(dc, x, y, width, height, source, xSource, ySource, foreground);
    DeviceContext* context = find<DeviceContext>(dc);
    const Bitmap* mask = find<Bitmap>(maskHandle);
    const RECT part = rectOf(xMask, yMask, width, height);
    if (!context || !isMask(mask) || !isPartOf(part, mask->surface)) return FALSE_;
    if (context->recorder) {
        DeviceContext* from = find<DeviceContext>(source);
        if (!from && (usesSource(rop3Of(foreground)) || usesSource(rop3Of(background)))) return FALSE_;
        const RECT sourceArea = rectOf(xSource, ySource, width, height);
        context->recorder->maskedBlit(rectOf(x, y, width, height), from, sourceArea, *mask, {xMask, yMask},
                                      rop);
        return TRUE_;
    }
    const Stretch ofMask = Stretch::between(context->toSurface(rectOf(x, y, width, height)), part);
    const RECT& area = ofMask.to;
    const Region set = setPixels(*context, *mask, ofMask);
    const auto copyWithin = [&](const Region& region, DWORD operation) {
        const ClipScope clip(*context, region);
        return BitBlt(dc, x, y, width, height, source, xSource, ySource, operation);
    };
    return copyWithin(set, foreground) && copyWithin(Region(area).subtracted(set), background);
}

BOOL PlgBlt(HDC dc, const POINT* points, HDC source, int xSource, int ySource, int widthSource,
            int heightSource, HBITMAP maskHandle, int xMask, int yMask) {
    DeviceContext* to = find<DeviceContext>(dc);
    DeviceContext* from = find<DeviceContext>(source);
    const Bitmap* mask = find<Bitmap>(maskHandle);
    if (!to || !from || !points || (maskHandle && !isMask(mask))) return FALSE_;
    const POINT start = from->toSurface(POINT{xSource, ySource});
    const Parallelogram target{to->toSurface(points[0]), to->toSurface(points[1]), to->toSurface(points[2])};
    if (target.isFlat() || widthSource <= 0 || heightSource <= 0) return FALSE_;
    if (to->recorder) {
        const RECT area = rectOf(xSource, ySource, widthSource, heightSource);
        to->recorder->parallelogram(points, {*from, area}, mask, {xMask, yMask});
        return TRUE_;
    }
    const SourcePixels pixels = sourceOf(*to, *from, {});
    const RECT taken{start.x, start.y, boundedCoordinate(std::int64_t{start.x} + widthSource),
                     boundedCoordinate(std::int64_t{start.y} + heightSource)};
    if (target.isUpright() && !mask && liesIn(taken, pixels.valid)) {
        const int width = boundedCoordinate(std::int64_t{points[1].x} - points[0].x);
        const int height = boundedCoordinate(std::int64_t{points[2].y} - points[0].y);
        return StretchBlt(dc, points[0].x, points[0].y, width, height, source, xSource, ySource, widthSource,
                          heightSource, SRCCOPY);
    }
    ValueFinder finder(*to, *from->surface);
    for (const RECT& clip : to->drawable().rectangles()) {
        const RECT r = intersection(target.bounds(), clip);
        for (int y = r.top; y < r.bottom; ++y) {
            for (int x = r.left; x < r.right; ++x) {
                POINT at = target.inside({x, y}, widthSource, heightSource);
                if (at.x < 0 || at.y < 0 || at.x >= widthSource || at.y >= heightSource) continue;
                const POINT onMask = sumOf(at, {xMask, yMask});
                if (mask &&
                    (!holds(mask->surface, onMask) || valueAt(mask->surface, onMask.x, onMask.y) == 0))
                    continue;
                at = sumOf(at, start);
                if (!contains(pixels.valid, at)) continue;
                copyPixel(*to, {x, y}, pixels, at, finder);
            }
        }
    }
    return TRUE_;
}

BOOL TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                    int widthSource, int heightSource, UINT transparent) {
    DeviceContext* to = find<DeviceContext>(dc);
    DeviceContext* from = find<DeviceContext>(source);
    const CopyAreas areas{x, y, width, height, xSource, ySource, widthSource, heightSource};
    if (!to || !from || areas.isBackwards()) return FALSE_;
    if (areas.isEmpty()) return TRUE_;
    if (const auto blocks = areas.plainBlocks(*to, *from)) {
        wordRows().copyOpaque(*blocks, pixelOfColor(transparent) & colorBits);
        return TRUE_;
    }
    if (to->recorder)
        to->recorder->blend(RecordType::TransparentBlt, areas.target(), {*from, areas.source()}, transparent);
    const Stretch stretch = areas.between(*to, *from);
    const FittedSource fitted(*to, *from, stretch, BLACKONWHITE);
    const SourcePixels& pixels = fitted.pixels();
    const RECT area = intersection(stretch.to, moved(pixels.valid, {-pixels.offset.x, -pixels.offset.y}));
    copyOpaque(*to, area, pixels, pixelOfColor(transparent) & colorBits);
    return TRUE_;
}

BOOL copyColorsAtOnce(HDC dc, int x, int y, int width, int height, HDC source, COLORREF leftOut) {
    DeviceContext* to = find<DeviceContext>(dc);
    const DeviceContext* from = find<DeviceContext>(source);
    if (!to || !from || leftOut > colorBits) return FALSE_;
    const auto blocks = plainBlocks(*to, *from, {x, y, width, height, 0, 0});
    if (!blocks) return FALSE_;
    wordRows().copyColors(*blocks, pixelOfColor(leftOut));
    return TRUE_;
}

BOOL AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                int widthSource, int heightSource, BLENDFUNCTION blend) {
    DeviceContext* to = find<DeviceContext>(dc);
    DeviceContext* from = find<DeviceContext>(source);
    const CopyAreas areas{x, y, width, height, xSource, ySource, widthSource, heightSource};
    if (!to || !from || areas.isBackwards()) return FALSE_;
    if (areas.isEmpty()) return TRUE_;
    if (const auto blocks = areas.plainBlocks(*to, *from)) {
        blendWords(*blocks, blend);
        return TRUE_;
    }
    const Stretch stretch = areas.between(*to, *from);
    const bool overlaps = to == from && !isEmpty(intersection(stretch.to, stretch.from));
    if (overlaps || !liesIn(stretch.from, sourceOf(*to, *from, {}).valid)) return FALSE_;
    if (!to->recorder && isEmpty(intersection(stretch.to, to->drawable().bounds()))) return TRUE_;
    if ((blend.AlphaFormat & AC_SRC_ALPHA) != 0 && !isPlain32(*from->surface)) return FALSE_;
    if (to->recorder)
        to->recorder->blend(RecordType::AlphaBlend, areas.target(), {*from, areas.source()}, wordOf(blend));
    const FittedSource fitted(*to, *from, stretch, COLORONCOLOR);
    blendPixels(*to, stretch.to, fitted.pixels(), blend);
    return TRUE_;
}

} // namespace platform
