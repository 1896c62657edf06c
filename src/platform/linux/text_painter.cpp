#include "platform/linux/text_painter.h"

#include "platform/linux/colors.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/rows.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr int fullComponent = 255;

/// How light white comes out over black at each level of coverage: smoothed text would look thin if this were
/// in proportion.
constexpr std::array<int, fullCoverage + 1> ramp = {0x00, 0x4D, 0x68, 0x7C, 0x8C, 0x9A, 0xA7, 0xB2, 0xBD,
                                                    0xC7, 0xD0, 0xD9, 0xE1, 0xE9, 0xF0, 0xF8, 0xFF};

int blendedComponent(int under, int text, int low, int high) {
    if (under == text) return under;
    if (under > text) return text + (under - text) * (high - text) / (fullComponent - text);
    return text - (text - under) * (text - low) / text;
}

} // namespace

bool canSmooth(int bitsPerPixel) {
    constexpr int mostTableBits = 8;
    return bitsPerPixel > mostTableBits;
}

bool canSmooth(const Surface& surface) {
    return canSmooth(surface.bitsPerPixel);
}

namespace {

/// What text is drawn with: a colour where it may be smoothed, and then one that the surface has; else a
/// value.
std::uint32_t textPixel(const DeviceContext& context) {
    const Surface& surface = *context.surface;
    if (!canSmooth(surface)) return pixelOf(context, context.state.textColor);
    const std::uint32_t color = pixelOfColor(plainColor(context, context.state.textColor));
    return colorOfValue(surface, valueOfColor(surface, color, blackAndWhite), blackAndWhite);
}

} // namespace

TextPainter::TextPainter(DeviceContext& context, const RECT* clip)
    : clips_(context.drawable().rectangles()), surface_(*context.surface), hasClip_(clip != nullptr),
      clip_(clip ? *clip : RECT{}), pixel_(textPixel(context)) {}

void TextPainter::findRanges(std::size_t level) {
    for (std::size_t component = 0; component < 3; ++component) {
        const int text = static_cast<int>(pixel_ >> (8 * component) & 0xFF);
        const int rest = ramp[fullCoverage - level];
        ranges_[level][component] = {ramp[level] * text / fullComponent,
                                     rest + (fullComponent - rest) * text / fullComponent};
    }
}

void TextPainter::draw(const Glyph& glyph, int x, int y) {
    RECT box{x + glyph.left, y - glyph.top, x + glyph.left + glyph.width, y - glyph.top + glyph.height};
    const POINT corner{box.left, box.top};
    if (hasClip_) box = intersection(box, clip_);
    if (isEmpty(box)) return;
    for (const RECT& r : clips_) {
        const RECT part = intersection(box, r);
        if (isEmpty(part)) continue;
        const bool isWhole = part.right - part.left == glyph.width && part.bottom - part.top == glyph.height;
        if (isWhole && isPlain32(surface_)) {
            glyph.smooth ? drawSmoothRuns(glyph, corner) : drawRuns(glyph, corner);
            return;
        }
        drawClipped(glyph, corner.x, corner.y, part);
    }
}

std::uint32_t TextPainter::blend(std::uint32_t under, std::size_t level) const {
    std::uint32_t result = 0;
    for (std::size_t component = 0; component < 3; ++component) {
        const Range& range = ranges_[level][component];
        const std::size_t shift = 8 * component;
        const int value = blendedComponent(static_cast<int>(under >> shift & 0xFF),
                                           static_cast<int>(pixel_ >> shift & 0xFF), range.low, range.high);
        result |= static_cast<std::uint32_t>(value) << shift;
    }
    return result;
}

void TextPainter::findBlend(std::uint32_t under, std::size_t level) {
    if (under != ground_) {
        ground_ = under;
        blendKnown_ = 0;
    }
    const std::uint32_t bit = 1u << level;
    if ((rangesKnown_ & bit) == 0) {
        findRanges(level);
        rangesKnown_ |= bit;
    }
    blends_[level] = blend(under, level);
    blendKnown_ |= bit;
}

inline std::uint32_t TextPainter::blended(std::uint32_t under, std::size_t level) {
    if (under != ground_ || (blendKnown_ >> level & 1) == 0) findBlend(under, level);
    return blends_[level];
}

inline void TextPainter::drawWords(std::uint32_t* pixels, const std::uint8_t* coverage, int count) {
    for (int i = 0; i < count; ++i) {
        if (coverage[i] == fullCoverage)
            pixels[i] = pixel_;
        else if (coverage[i] > faintCoverage)
            pixels[i] = blended(pixels[i], coverage[i]);
    }
}

void TextPainter::drawRuns(const Glyph& glyph, POINT corner) {
    for (const GlyphRun& run : glyph.runs) {
        std::uint32_t* pixels = row32(surface_, corner.y + run.y) + corner.x + run.x;
        for (int i = 0; i < run.length; ++i)
            pixels[i] = pixel_;
    }
}

void TextPainter::drawSmoothRuns(const Glyph& glyph, POINT corner) {
    for (const GlyphRun& run : glyph.runs) {
        std::uint32_t* pixels = row32(surface_, corner.y + run.y) + corner.x + run.x;
        drawWords(pixels, glyph.coverage.data() + std::ptrdiff_t{run.y} * glyph.width + run.x, run.length);
    }
}

void TextPainter::drawClipped(const Glyph& glyph, int x, int y, const RECT& clip) {
    const int count = clip.right - clip.left;
    for (int row = clip.top; row < clip.bottom; ++row) {
        const std::uint8_t* coverage =
            glyph.coverage.data() + static_cast<std::ptrdiff_t>(row - y) * glyph.width + (clip.left - x);
        if (isPlain32(surface_)) {
            drawWords(row32(surface_, row) + clip.left, coverage, count);
            continue;
        }
        if (canSmooth(surface_)) {
            words_.resize(static_cast<std::size_t>(count));
            readRow(surface_, clip.left, row, count, blackAndWhite, words_.data());
            drawWords(words_.data(), coverage, count);
            writeRow(surface_, clip.left, row, count, blackAndWhite, words_.data());
            continue;
        }
        for (int i = 0; i < count; ++i)
            if (coverage[i] > fullCoverage / 2) writeValues(surface_, clip.left + i, row, 1, &pixel_);
    }
}

} // namespace platform::driver
