#include "platform/linux/blit.h"

#include "platform/linux/brush_pixels.h"
#include "platform/linux/colors.h"
#include "platform/linux/painter.h"
#include "platform/linux/rows.h"

#include <algorithm>
#include <optional>

namespace platform::driver {

namespace {

constexpr std::uint32_t colorBits = 0x00FFFFFF;

/// Copies one rectangle row by row; everything that stays the same is found out once.
class Copier {
public:
    Copier(DeviceContext& target, const SourcePixels& source, Rop3 rop, int width)
        : target_(target), source_(source), rop_(rop), span_(spanFor(rop)) {
        const std::size_t words = static_cast<std::size_t>(width) + 1;
        if (usesPattern(rop)) pattern_.emplace(target, target.brush());
        if (target.surface->bitsPerPixel == 32) {
            if (source.surface->bitsPerPixel == 1) sourceWords_.resize(words);
            if (pattern_) patternWords_.resize(words);
        } else {
            const std::size_t bytes = words / 8 + 2;
            targetHasColors_ = hasSurfaceColors(target);
            targetColors_ = surfaceColors(target);
            bitMasks_ = bitMasks();
            sourceBits_.resize(bytes);
            if (pattern_) patternBits_.resize(bytes);
        }
    }

    void row(int x, int y, int count) {
        if (target_.surface->bitsPerPixel == 32) {
            wordRow(x, y, count);
        } else {
            bitRow(x, y, count);
        }
    }

private:
    void wordRow(int x, int y, int count) {
        const int fromX = x + source_.offset.x;
        const int fromY = y + source_.offset.y;
        const std::uint32_t* from = nullptr;
        if (source_.surface->bitsPerPixel == 32) {
            from = row32(*source_.surface, fromY) + fromX;
        } else {
            readRow(*source_.surface, fromX, fromY, count, source_.colors, sourceWords_.data());
            from = sourceWords_.data();
        }
        if (pattern_) pattern_->row32(x, y, count, patternWords_.data());
        span_(row32(*target_.surface, y) + x, from, patternWords_.data(), static_cast<std::size_t>(count),
              rop_);
    }

    void bitRow(int x, int y, int count) {
        const int first = x & 7;
        fetchBits(x + source_.offset.x, y + source_.offset.y, first, count);
        if (pattern_) pattern_->rowBits(x, y, count, patternBits_.data());
        combineBits(rowOf(*target_.surface, y) + (x >> 3), sourceBits_.data(),
                    pattern_ ? patternBits_.data() : nullptr, first, first + count, rop_);
    }

    void fetchBits(int fromX, int fromY, int first, int count) {
        if (source_.surface->bitsPerPixel == 1) {
            alignBits(rowOf(*source_.surface, fromY), fromX, sourceBits_.data(), first, count);
            if (bitMasks_ != leaveAlone)
                applyMasksToBits(sourceBits_.data(), first, first + count, bitMasks_);
            return;
        }
        const std::uint32_t* from = row32(*source_.surface, fromY) + fromX;
        for (int i = 0; i < count; ++i)
            putBit(sourceBits_.data(), first + i, bitOf(from[i] & colorBits));
    }

    /// The bit that a colour becomes: with a colour table the nearest, else 1 for the source's background.
    bool bitOf(std::uint32_t color) const {
        return targetHasColors_ ? nearestColor(targetColors_, color) == 1 : color == source_.backColor;
    }

    /// What becomes of the bits 0 and 1 of the source.
    Masks bitMasks() const {
        if (!targetHasColors_) return leaveAlone; // device bitmaps take bits as they are
        const std::uint32_t at0 = bitOf(source_.colors[0]) ? ~0u : 0u;
        const std::uint32_t at1 = bitOf(source_.colors[1]) ? ~0u : 0u;
        return {at0 ^ at1, at0};
    }

    DeviceContext& target_;
    const SourcePixels& source_;
    Rop3 rop_;
    Span span_;
    bool targetHasColors_ = false;
    ColorTable targetColors_{};
    Masks bitMasks_; ///< From bits of the source to bits of the target
    std::optional<PatternRows> pattern_;
    std::vector<std::uint32_t> sourceWords_;
    std::vector<std::uint32_t> patternWords_;
    std::vector<std::uint8_t> sourceBits_;
    std::vector<std::uint8_t> patternBits_;
};

RECT moved(const RECT& r, POINT by) {
    return {r.left + by.x, r.top + by.y, r.right + by.x, r.bottom + by.y};
}

bool onSamePixels(const Surface& a, const Surface& b) {
    return a.bits == b.bits;
}

/// A copy of part of a surface, for copies onto itself.
std::unique_ptr<Bitmap> excerpt(const Surface& from, const RECT& r) {
    auto copy = makeBitmap(r.right - r.left, r.bottom - r.top, from.bitsPerPixel);
    if (!copy) return nullptr;
    for (int y = r.top; y < r.bottom; ++y)
        copyRow(from, r.left, y, copy->surface, 0, y - r.top, r.right - r.left);
    return copy;
}

void copyOntoItself(DeviceContext& target, const RECT& area, const SourcePixels& source, Rop3 rop) {
    const RECT wanted = intersection(moved(area, source.offset), source.valid);
    if (isEmpty(wanted)) return;
    const std::unique_ptr<Bitmap> copy = excerpt(*source.surface, wanted);
    if (!copy) return;
    SourcePixels apart = source;
    apart.surface = &copy->surface;
    apart.offset = {source.offset.x - wanted.left, source.offset.y - wanted.top};
    apart.valid = {0, 0, copy->surface.width, copy->surface.height};
    copyPixels(target, area, apart, rop);
}

} // namespace

SourcePixels sourceOf(const DeviceContext& target, const DeviceContext& source, POINT offset) {
    SourcePixels pixels;
    pixels.surface = source.surface;
    pixels.valid =
        source.isMemory ? RECT{0, 0, source.surface->width, source.surface->height} : source.visible.bounds();
    pixels.offset = offset;
    pixels.backColor = pixelOfColor(source.state.backColor);
    const Bitmap* bitmap = source.selectedBitmap();
    pixels.colors = bitmap && bitmap->hasColors ? bitmap->colors
                                                : ColorTable{pixelOfColor(target.state.textColor),
                                                             pixelOfColor(target.state.backColor)};
    return pixels;
}

void copyPixels(DeviceContext& target, const RECT& area, const SourcePixels& source, Rop3 rop) {
    const RECT reachable = intersection(area, moved(source.valid, {-source.offset.x, -source.offset.y}));
    if (isEmpty(reachable)) return;
    for (const RECT& clip : target.drawable().rectangles()) {
        const RECT r = intersection(reachable, clip);
        if (isEmpty(r)) continue;
        Copier copier(target, source, rop, r.right - r.left);
        for (int y = r.top; y < r.bottom; ++y)
            copier.row(r.left, y, r.right - r.left);
    }
}

void copyArea(DeviceContext& target, const RECT& area, DeviceContext& source, POINT from, Rop3 rop) {
    const SourcePixels pixels = sourceOf(target, source, {from.x - area.left, from.y - area.top});
    const RECT clipped = intersection(area, target.drawable().bounds());
    if (isEmpty(clipped)) return;
    const bool overlaps = onSamePixels(*target.surface, *source.surface) &&
                          !isEmpty(intersection(clipped, moved(clipped, pixels.offset)));
    if (overlaps) {
        copyOntoItself(target, clipped, pixels, rop);
    } else {
        copyPixels(target, clipped, pixels, rop);
    }
}

void putGradient(DeviceContext& context, const RECT& r, const std::vector<std::uint32_t>& pixels,
                 bool across) {
    const Surface& surface = *context.surface;
    for (int y = r.top; y < r.bottom; ++y) {
        const std::uint32_t column = across ? 0 : pixels[static_cast<std::size_t>(y - r.top)];
        if (surface.bitsPerPixel == 32) {
            std::uint32_t* row = row32(surface, y) + r.left;
            if (across) {
                std::copy(pixels.begin(), pixels.end(), row);
            } else {
                std::fill_n(row, r.right - r.left, column);
            }
            continue;
        }
        for (int x = r.left; x < r.right; ++x) {
            const std::uint32_t pixel = across ? pixels[static_cast<std::size_t>(x - r.left)] : column;
            putBit(rowOf(surface, y), x, isDitheredWhite(colorOfPixel32(pixel), x, y));
        }
    }
}

} // namespace platform::driver
