#include "platform/linux/pixel_format.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace platform::driver {

namespace {

constexpr int componentBits = 8;
constexpr int positions[] = {16, 8, 0}; ///< Of red, green and blue in a colour
constexpr std::size_t largestTable = 256;
constexpr std::uint32_t cubeSide = 8;
constexpr int cubeBits = 5;

std::uint32_t component(std::uint32_t color, int shift) {
    return color >> shift & 0xFF;
}

std::uint32_t squaredDistance(std::uint32_t a, std::uint32_t b) {
    std::uint32_t sum = 0;
    for (int shift = 0; shift <= 16; shift += componentBits) {
        const int difference = static_cast<int>(component(a, shift)) - static_cast<int>(component(b, shift));
        sum += static_cast<std::uint32_t>(difference * difference);
    }
    return sum;
}

std::uint32_t middleOfCube(std::uint32_t color) {
    constexpr std::uint32_t corner = 0x010101 * (256 - cubeSide);
    constexpr std::uint32_t half = 0x010101 * (cubeSide / 2);
    return (color & corner) + half;
}

std::size_t cubeOf(std::uint32_t color) {
    constexpr int dropped = componentBits - cubeBits;
    return component(color, 16) >> dropped << (2 * cubeBits) | component(color, 8) >> dropped << cubeBits |
           component(color, 0) >> dropped;
}

} // namespace

ColorField::ColorField(std::uint32_t m)
    : mask(m), shift(m != 0 ? std::countr_zero(m) : 0), bits(std::popcount(m)) {}

std::uint32_t ColorField::of(std::uint32_t value) const {
    if (bits == 0) return 0;
    const std::uint32_t part = (value & mask) >> shift;
    if (bits >= componentBits) return part >> (bits - componentBits);
    // The highest bits are repeated below, so that all ones become 255.
    std::uint32_t result = 0;
    for (int at = componentBits - bits; at > -bits; at -= bits)
        result |= at >= 0 ? part << at : part >> -at;
    return result;
}

std::uint32_t ColorField::place(std::uint32_t value) const {
    const std::uint32_t part =
        bits >= componentBits ? value << (bits - componentBits) : value >> (componentBits - bits);
    return part << shift & mask;
}

void ColorField::addComponents(const std::uint32_t* values, std::uint32_t* out, std::size_t count,
                               int position) const {
    const ColorField field = *this; // nothing that `out` could change
    const bool isRepeatedOnce = bits >= componentBits / 2 && bits < componentBits;
    if (!isRepeatedOnce) {
        for (std::size_t i = 0; i < count; ++i)
            out[i] |= field.of(values[i]) << position;
        return;
    }
    const int up = componentBits - bits;
    const int down = bits - up;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t part = (values[i] & field.mask) >> field.shift;
        out[i] |= (part << up | part >> down) << position;
    }
}

void ColorField::addPlaces(const std::uint32_t* colors, std::uint32_t* out, std::size_t count,
                           int position) const {
    const ColorField field = *this;
    const int up = std::max(bits - componentBits, 0);
    const int down = std::max(componentBits - bits, 0);
    for (std::size_t i = 0; i < count; ++i)
        out[i] |= (colors[i] >> position & 0xFF) << up >> down << field.shift & field.mask;
}

PixelFormat::PixelFormat(std::vector<std::uint32_t> colors) : colors_(std::move(colors)) {}

PixelFormat::PixelFormat(std::uint32_t redMask, std::uint32_t greenMask, std::uint32_t blueMask)
    : fields_{ColorField(redMask), ColorField(greenMask), ColorField(blueMask)} {}

std::uint32_t PixelFormat::colorOf(std::uint32_t value) const {
    if (hasTable()) return value < colors_.size() ? colors_[value] : 0;
    return fields_[0].of(value) << 16 | fields_[1].of(value) << 8 | fields_[2].of(value);
}

std::uint32_t PixelFormat::valueOf(std::uint32_t color) const {
    if (hasTable()) return static_cast<std::uint32_t>(nearestOf(colors_.data(), colors_.size(), color));
    return fields_[0].place(component(color, 16)) | fields_[1].place(component(color, 8)) |
           fields_[2].place(component(color, 0));
}

std::uint32_t PixelFormat::copiedValueOf(std::uint32_t color) const {
    return colors_.size() == largestTable ? valueOfCube(color) : valueOf(color);
}

std::uint32_t PixelFormat::blendedValueOf(std::uint32_t color) const {
    constexpr std::size_t fewest = 16;
    return colors_.size() >= fewest ? valueOfCube(color) : valueOf(color);
}

std::uint32_t PixelFormat::valueOfCube(std::uint32_t color) const {
    if (cubes_.empty()) cubes_.assign(std::size_t{1} << (3 * cubeBits), -1);
    std::int16_t& known = cubes_[cubeOf(color)];
    if (known < 0) known = static_cast<std::int16_t>(valueOf(middleOfCube(color)));
    return static_cast<std::uint32_t>(known);
}

template <class Add>
void PixelFormat::joinFields(std::uint32_t* row, std::size_t count, Add add) const {
    constexpr std::size_t atOnce = 64;
    while (count > 0) {
        const std::size_t part = std::min(count, atOnce);
        std::uint32_t joined[atOnce] = {};
        for (std::size_t i = 0; i < fields_.size(); ++i)
            add(fields_[i], row, joined, part, positions[i]);
        std::copy_n(joined, part, row);
        row += part;
        count -= part;
    }
}

void PixelFormat::colorsOf(std::uint32_t* values, std::size_t count) const {
    if (!hasTable()) {
        joinFields(values, count,
                   [](const ColorField& field, auto... rest) { field.addComponents(rest...); });
        return;
    }
    const std::uint32_t* const table = colors_.data();
    const std::size_t size = colors_.size();
    for (std::size_t i = 0; i < count; ++i)
        values[i] = values[i] < size ? table[values[i]] : 0;
}

void PixelFormat::copiedValuesOf(std::uint32_t* colors, std::size_t count) const {
    if (!hasTable()) {
        joinFields(colors, count, [](const ColorField& field, auto... rest) { field.addPlaces(rest...); });
        return;
    }
    for (std::size_t i = 0; i < count; ++i)
        colors[i] = copiedValueOf(colors[i]);
}

bool operator==(const PixelFormat& a, const PixelFormat& b) {
    if (a.hasTable() || b.hasTable()) return a.colors_ == b.colors_;
    for (std::size_t i = 0; i < a.fields_.size(); ++i)
        if (a.fields_[i].mask != b.fields_[i].mask) return false;
    return true;
}

std::size_t nearestOf(const std::uint32_t* colors, std::size_t count, std::uint32_t color) {
    std::size_t best = 0;
    std::uint32_t least = ~0u;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t distance = squaredDistance(colors[i], color);
        if (distance < least) {
            least = distance;
            best = i;
        }
    }
    return best;
}

const PixelFormat& fiveBitFields() {
    static const PixelFormat format(0x7C00, 0x03E0, 0x001F);
    return format;
}

} // namespace platform::driver
