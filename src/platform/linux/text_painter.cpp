#include "platform/linux/text_painter.h"

#include "platform/linux/colors.h"
#include "platform/linux/rows.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr int fullComponent = 255;

/// How light white comes out over black at each level of coverage: smoothed text would look thin if this were
/// in proportion.
constexpr std::array<int, fullCoverage + 1> ramp = {0x00, 0x4D, 0x68, 0x7C, 0x8C, 0x9A, 0xA7, 0xB2, 0xBD,
                                                    0xC7, 0xD0, 0xD9, 0xE1, 0xE9, 0xF0, 0xF8, 0xFF};

/// Coverage up to this leaves no trace.
constexpr int faintest = 1;

int blendedComponent(int under, int text, int low, int high) {
    if (under == text) return under;
    if (under > text) return text + (under - text) * (high - text) / (fullComponent - text);
    return text - (text - under) * (text - low) / text;
}

} // namespace

TextPainter::TextPainter(DeviceContext& context, const RECT* clip)
    : context_(context), pixel_(pixelOf(context, context.state.textColor)) {
    for (const RECT& r : context.drawable().rectangles()) {
        const RECT part = clip ? intersection(r, *clip) : r;
        if (!isEmpty(part)) clips_.push_back(part);
    }
    for (int level = 0; level <= fullCoverage; ++level) {
        for (int component = 0; component < 3; ++component) {
            const int text = static_cast<int>(pixel_ >> (8 * component) & 0xFF);
            const int rest = ramp[static_cast<std::size_t>(fullCoverage - level)];
            Range& range = ranges_[static_cast<std::size_t>(level)][static_cast<std::size_t>(component)];
            range.low = ramp[static_cast<std::size_t>(level)] * text / fullComponent;
            range.high = rest + (fullComponent - rest) * text / fullComponent;
        }
    }
}

void TextPainter::draw(const Glyph& glyph, int x, int y) const {
    const RECT box{x + glyph.left, y - glyph.top, x + glyph.left + glyph.width, y - glyph.top + glyph.height};
    for (const RECT& clip : clips_) {
        const RECT part = intersection(box, clip);
        if (!isEmpty(part)) drawClipped(glyph, box.left, box.top, part);
    }
}

std::uint32_t TextPainter::blended(std::uint32_t under, int coverage) const {
    std::uint32_t result = 0;
    for (int component = 0; component < 3; ++component) {
        const Range& range = ranges_[static_cast<std::size_t>(coverage)][static_cast<std::size_t>(component)];
        const int shift = 8 * component;
        const int value = blendedComponent(static_cast<int>(under >> shift & 0xFF),
                                           static_cast<int>(pixel_ >> shift & 0xFF), range.low, range.high);
        result |= static_cast<std::uint32_t>(value) << shift;
    }
    return result;
}

void TextPainter::drawClipped(const Glyph& glyph, int x, int y, const RECT& clip) const {
    const Surface& surface = *context_.surface;
    for (int row = clip.top; row < clip.bottom; ++row) {
        const std::uint8_t* coverage =
            glyph.coverage.data() + static_cast<std::ptrdiff_t>(row - y) * glyph.width - x;
        if (surface.bitsPerPixel == 32) {
            std::uint32_t* pixels = row32(surface, row);
            for (int column = clip.left; column < clip.right; ++column) {
                if (coverage[column] <= faintest) continue;
                pixels[column] =
                    coverage[column] == fullCoverage ? pixel_ : blended(pixels[column], coverage[column]);
            }
        } else {
            std::uint8_t* bits = rowOf(surface, row);
            for (int column = clip.left; column < clip.right; ++column)
                if (coverage[column] > fullCoverage / 2) putBit(bits, column, pixel_ != 0);
        }
    }
}

} // namespace platform::driver
