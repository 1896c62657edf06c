#include "platform/linux/blit.h"

#include "platform/linux/brush_pixels.h"
#include "platform/linux/colors.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/painter.h"
#include "platform/linux/rows.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace platform::driver {

namespace {

constexpr std::uint32_t colorBits = 0x00FFFFFF;
constexpr int wordSize = 4;

/// Copies one rectangle row by row; everything that stays the same is found out once.
class Copier {
public:
    Copier(DeviceContext& target, const SourcePixels& source, Rop3 rop, int width)
        : target_(target), source_(source), rop_(rop), span_(spanFor(rop)), finder_(target, *source.surface),
          way_(wayOf(*target.surface, *source.surface)) {
        const std::size_t words = static_cast<std::size_t>(width) + 1;
        if (usesPattern(rop)) pattern_.emplace(target, target.brush());
        if (way_ == Way::Bits) {
            const std::size_t bytes = words / 8 + 2;
            bitMasks_ = bitMasks();
            sourceBits_.resize(bytes);
            if (pattern_) patternBits_.resize(bytes);
            return;
        }
        if (way_ != Way::Words) targetWords_.resize(words);
        if (way_ != Way::Words || source.surface->bitsPerPixel != 32) sourceWords_.resize(words);
        if (pattern_) patternWords_.resize(words);
    }

    void row(int x, int y, int count) {
        switch (way_) {
        case Way::Words:
            wordRow(x, y, count);
            break;
        case Way::Bits:
            bitRow(x, y, count);
            break;
        case Way::Values:
            valueRow(x, y, count);
            break;
        }
    }

private:
    /// Words of 32 bits in place, bits to bits, or any values through buffers of words.
    enum class Way { Words, Bits, Values };

    static Way wayOf(const Surface& target, const Surface& source) {
        if (target.bitsPerPixel == 1 && source.bitsPerPixel == 1) return Way::Bits;
        const bool fromWords = haveSameFormat(target, source) || source.bitsPerPixel != 32;
        return isPlain32(target) && fromWords ? Way::Words : Way::Values;
    }

    void wordRow(int x, int y, int count) {
        const int fromX = x + source_.offset.x;
        const int fromY = y + source_.offset.y;
        const std::uint32_t* from = nullptr;
        if (source_.surface->bitsPerPixel == 32) {
            from = row32(*source_.surface, fromY) + fromX;
        } else {
            readRow(*source_.surface, fromX, fromY, count, source_.bits, sourceWords_.data());
            from = sourceWords_.data();
        }
        if (pattern_) pattern_->row32(x, y, count, patternWords_.data());
        span_(row32(*target_.surface, y) + x, from, patternWords_.data(), static_cast<std::size_t>(count),
              rop_);
    }

    void valueRow(int x, int y, int count) {
        fetchValues(x + source_.offset.x, y + source_.offset.y, count);
        readValues(*target_.surface, x, y, count, targetWords_.data());
        if (pattern_) pattern_->row32(x, y, count, patternWords_.data());
        span_(targetWords_.data(), sourceWords_.data(), patternWords_.data(), static_cast<std::size_t>(count),
              rop_);
        writeValues(*target_.surface, x, y, count, targetWords_.data());
    }

    void fetchValues(int fromX, int fromY, int count) {
        if (haveSameFormat(*target_.surface, *source_.surface)) {
            readValues(*source_.surface, fromX, fromY, count, sourceWords_.data());
            return;
        }
        if (becomesMask(*target_.surface, source_)) {
            readValues(*source_.surface, fromX, fromY, count, sourceWords_.data());
            for (std::uint32_t& word : sourceWords_)
                word = word == source_.backValue ? ~0u : 0u;
            return;
        }
        readRow(*source_.surface, fromX, fromY, count, source_.bits, sourceWords_.data());
        finder_.valuesOf(sourceWords_.data(), static_cast<std::size_t>(count));
    }

    void bitRow(int x, int y, int count) {
        const int first = x & 7;
        const int fromX = x + source_.offset.x;
        alignBits(rowOf(*source_.surface, y + source_.offset.y), fromX, sourceBits_.data(), first, count);
        if (bitMasks_ != leaveAlone) applyMasksToBits(sourceBits_.data(), first, first + count, bitMasks_);
        if (pattern_) pattern_->rowBits(x, y, count, patternBits_.data());
        combineBits(rowOf(*target_.surface, y) + (x >> 3), sourceBits_.data(),
                    pattern_ ? patternBits_.data() : nullptr, first, first + count, rop_);
    }

    /// What becomes of the bits 0 and 1 of the source.
    Masks bitMasks() {
        const Surface& source = *source_.surface;
        const bool takesBits = !target_.surface->format && !source.format && !source_.takesNearest;
        if (takesBits) return leaveAlone; // device bitmaps take bits as they are
        std::uint32_t at0 = source_.backValue == 0 ? ~0u : 0u;
        std::uint32_t at1 = ~at0;
        if (!becomesMask(*target_.surface, source_)) {
            at0 = finder_.valueOf(colorOfValue(source, 0, source_.bits));
            at1 = finder_.valueOf(colorOfValue(source, 1, source_.bits));
        }
        return {at0 ^ at1, at0};
    }

    DeviceContext& target_;
    const SourcePixels& source_;
    Rop3 rop_;
    Span span_;
    ValueFinder finder_;
    Way way_;
    Masks bitMasks_; ///< From bits of the source to bits of the target
    std::optional<PatternRows> pattern_;
    std::vector<std::uint32_t> targetWords_;
    std::vector<std::uint32_t> sourceWords_;
    std::vector<std::uint32_t> patternWords_;
    std::vector<std::uint8_t> sourceBits_;
    std::vector<std::uint8_t> patternBits_;
};

/// A copy of part of a surface, for copies onto itself.
std::unique_ptr<Bitmap> excerpt(const Surface& from, const RECT& r) {
    auto copy = makeBitmapLike(from, r.right - r.left, r.bottom - r.top);
    if (!copy) return nullptr;
    for (int y = r.top; y < r.bottom; ++y)
        copyRow(from, r.left, y, copy->surface, 0, y - r.top, r.right - r.left);
    return copy;
}

/// Moves an area of a surface, first the rows that others come to lie on.
void moveRows(const Surface& surface, const RECT& area, POINT offset) {
    const int height = area.bottom - area.top;
    for (int i = 0; i < height; ++i) {
        const int y = offset.y < 0 ? area.bottom - 1 - i : area.top + i;
        copyRow(surface, area.left + offset.x, y + offset.y, surface, area.left, y, area.right - area.left);
    }
}

void copyOntoItself(DeviceContext& target, const RECT& area, SourcePixels source, Rop3 rop) {
    const bool isMoved = rop == rop3Of(SRCCOPY) && target.surface->bitsPerPixel >= 8;
    if (isMoved && target.drawable().rectangles().size() == 1) {
        const RECT part = intersection(area, moved(source.valid, {-source.offset.x, -source.offset.y}));
        moveRows(*target.surface, part, source.offset);
    } else if (const std::unique_ptr<Bitmap> apart = takeApart(source, area)) {
        copyPixels(target, area, source, rop);
    }
}

WordBlocks blocksAt(const Surface& to, POINT at, const Surface& from, POINT fromAt, int width, int height) {
    return {row32(to, at.y) + at.x, wordStride(to), row32(from, fromAt.y) + fromAt.x,
            wordStride(from),       width,          height};
}

} // namespace

RECT rectOf(int x, int y, int width, int height) {
    return {x, y, boundedCoordinate(std::int64_t{x} + width), boundedCoordinate(std::int64_t{y} + height)};
}

RECT areaOf(const RECT& r) {
    RECT area = r;
    if (r.right < r.left) {
        area.left = r.right + 1;
        area.right = r.left + 1;
    }
    if (r.bottom < r.top) {
        area.top = r.bottom + 1;
        area.bottom = r.top + 1;
    }
    return area;
}

RECT moved(const RECT& r, POINT by) {
    return {r.left + by.x, r.top + by.y, r.right + by.x, r.bottom + by.y};
}

bool becomesMask(const Surface& target, const SourcePixels& source) {
    return target.bitsPerPixel == 1 && !target.format && !source.takesNearest;
}

SourcePixels sourceOf(const DeviceContext& target, const DeviceContext& source, POINT offset) {
    source.needPixels();
    SourcePixels pixels;
    pixels.surface = source.surface;
    pixels.valid =
        source.isMemory ? RECT{0, 0, source.surface->width, source.surface->height} : source.visible.bounds();
    pixels.offset = offset;
    pixels.backValue = nearestPixelOf(source, source.state.backColor);
    pixels.bits = {pixelOfColor(target.state.textColor), pixelOfColor(target.state.backColor)};
    return pixels;
}

WordBlocks wordBlocks(const Surface& target, const RECT& area, const SourcePixels& source) {
    return blocksAt(target, {area.left, area.top}, *source.surface,
                    {area.left + source.offset.x, area.top + source.offset.y}, area.right - area.left,
                    area.bottom - area.top);
}

bool overlaps(const Surface& target, const RECT& area, const SourcePixels& source) {
    return target.bits == source.surface->bits && !isEmpty(intersection(area, moved(area, source.offset)));
}

std::unique_ptr<Bitmap> takeApart(SourcePixels& source, const RECT& area) {
    const RECT wanted = intersection(moved(area, source.offset), source.valid);
    if (isEmpty(wanted)) return nullptr;
    std::unique_ptr<Bitmap> picture = excerpt(*source.surface, wanted);
    if (!picture) return nullptr;
    source.surface = &picture->surface;
    source.offset = {source.offset.x - wanted.left, source.offset.y - wanted.top};
    source.valid = {0, 0, picture->surface.width, picture->surface.height};
    return picture;
}

std::optional<WordBlocks> plainBlocks(DeviceContext& target, const DeviceContext& source,
                                      const CopyPlaces& places) {
    const bool isUnscaled = target.state.mapping.isUnscaled() && source.state.mapping.isUnscaled();
    const std::span<const RECT> clips = target.drawable().rectangles();
    if (!isUnscaled || clips.size() != 1 || !source.isMemory) return {};
    const Surface& to = *target.surface;
    const Surface& from = *source.surface;
    const bool areApart = to.bits != from.bits;
    if (!areApart || !isPlain32(to) || !isPlain32(from) || places.width <= 0 || places.height <= 0) return {};
    const std::int64_t left = places.x + target.shiftAcross();
    const std::int64_t top = places.y + target.shiftDown();
    const std::int64_t fromLeft = places.xSource + source.shiftAcross();
    const std::int64_t fromTop = places.ySource + source.shiftDown();
    const bool isSeen = left >= clips[0].left && left + places.width <= clips[0].right &&
                        top >= clips[0].top && top + places.height <= clips[0].bottom;
    const bool isThere = fromLeft >= 0 && fromLeft + places.width <= from.width && fromTop >= 0 &&
                         fromTop + places.height <= from.height;
    if (!isSeen || !isThere) return {};
    return blocksAt(to, {static_cast<LONG>(left), static_cast<LONG>(top)}, from,
                    {static_cast<LONG>(fromLeft), static_cast<LONG>(fromTop)}, places.width, places.height);
}

void copyWords(const WordBlocks& blocks, Rop3 rop) {
    const std::size_t count = static_cast<std::size_t>(blocks.width);
    const bool isWhole = blocks.targetStride == blocks.width && blocks.sourceStride == blocks.width;
    if (rop == rop3Of(SRCCOPY) && isWhole) {
        std::memcpy(blocks.target, blocks.source, count * static_cast<std::size_t>(blocks.height) * wordSize);
    } else if (rop == rop3Of(SRCCOPY)) {
        wordRows().copy(blocks);
    } else {
        const Span span = spanFor(rop);
        for (WordBlocks rest = blocks; rest.height > 0; --rest.height, rest.nextRow())
            span(rest.target, rest.source, nullptr, count, rop);
    }
}

void copyPixels(DeviceContext& target, const RECT& area, const SourcePixels& source, Rop3 rop) {
    const RECT reachable = intersection(area, moved(source.valid, {-source.offset.x, -source.offset.y}));
    if (isEmpty(reachable)) return;
    const bool isDirect = isPlain32(*target.surface) && isPlain32(*source.surface) && !usesPattern(rop);
    for (const RECT& clip : target.drawable().rectangles()) {
        const RECT r = intersection(reachable, clip);
        if (isEmpty(r)) continue;
        if (isDirect) {
            copyWords(wordBlocks(*target.surface, r, source), rop);
            continue;
        }
        Copier copier(target, source, rop, r.right - r.left);
        for (int y = r.top; y < r.bottom; ++y)
            copier.row(r.left, y, r.right - r.left);
    }
}

void copyArea(DeviceContext& target, const RECT& area, DeviceContext& source, POINT from, Rop3 rop) {
    const SourcePixels pixels = sourceOf(target, source, {from.x - area.left, from.y - area.top});
    const RECT clipped = intersection(area, target.drawable().bounds());
    if (isEmpty(clipped)) return;
    if (overlaps(*target.surface, clipped, pixels)) {
        copyOntoItself(target, clipped, pixels, rop);
    } else {
        copyPixels(target, clipped, pixels, rop);
    }
}

ValueFinder::ValueFinder(const DeviceContext& target, bool isExact)
    : target_(target), showsPalette_(showsDisplayPalette(*target.surface)), isExact_(isExact) {
    constexpr std::size_t sortedColors = 256; // a format of so many finds them by itself
    const PixelFormat* format = target.surface->format;
    searches_ = showsPalette_ || target.surface->bitsPerPixel == 1 ||
                (format && format->hasTable() && (isExact || format->colors().size() < sortedColors));
}

ValueFinder::ValueFinder(const DeviceContext& target) : ValueFinder(target, false) {}

ValueFinder::ValueFinder(const DeviceContext& target, const Surface& source)
    : ValueFinder(target, hasFewColors(source)) {}

std::uint32_t ValueFinder::find(std::uint32_t color) const {
    const Surface& surface = *target_.surface;
    if (showsPalette_) return paletteValueOf(target_, color);
    const bool hasManyEntries = !isExact_ && surface.format && surface.bitsPerPixel != 1;
    return hasManyEntries ? surface.format->copiedValueOf(color)
                          : valueOfColor(surface, color, blackAndWhite);
}

std::uint32_t ValueFinder::valueOf(std::uint32_t color) {
    if (!searches_) return find(color);
    constexpr std::size_t knownCount = 256;
    constexpr std::uint32_t spread = 0x9E3779B1u; // mixes the bits of similar colours
    constexpr int shift = 24;
    if (known_.empty()) known_.resize(knownCount);
    Known& known = known_[color * spread >> shift];
    if (known.color != color) known = {color, find(color)};
    return known.value;
}

void ValueFinder::valuesOf(std::uint32_t* words, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        words[i] &= colorBits;
    if (searches_) {
        for (std::size_t i = 0; i < count; ++i)
            words[i] = valueOf(words[i]);
    } else if (target_.surface->format) {
        target_.surface->format->copiedValuesOf(words, count);
    }
}

} // namespace platform::driver
