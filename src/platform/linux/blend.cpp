#include "platform/linux/blend.h"

#include "platform/linux/rows.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr unsigned opaque = 255;
constexpr std::uint32_t evenBytes = 0x00FF00FF;

/// Each byte of a word times a factor up to 255, divided by 255 to the nearest.
constexpr std::uint32_t scaled(std::uint32_t word, std::uint32_t factor) {
    const auto pair = [factor](std::uint32_t two) {
        const std::uint32_t sum = two * factor + 0x00800080;
        return (sum + (sum >> 8 & evenBytes)) >> 8 & evenBytes;
    };
    return pair(word & evenBytes) | pair(word >> 8 & evenBytes) << 8;
}

/// All four bytes alike, divided by 255 to the nearest. The rows do not overlap.
void blendConstant(std::uint32_t* target, const std::uint32_t* source, std::size_t count, unsigned alpha) {
    const auto over = static_cast<std::uint16_t>(alpha);
    const auto under = static_cast<std::uint16_t>(opaque - alpha);
    auto* __restrict to = reinterpret_cast<std::uint8_t*>(target);
    const auto* __restrict from = reinterpret_cast<const std::uint8_t*>(source);
    // Sums stay within 16 bits, so that many bytes are mixed at once.
    for (std::size_t i = 0; i < count * 4; ++i) {
        const auto sum = static_cast<std::uint16_t>(from[i] * over + to[i] * under + 128);
        to[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(sum + (sum >> 8)) >> 8);
    }
}

/// Each pixel by its own alpha; its colours are multiplied by it already.
void blendAlpha(std::uint32_t* target, const std::uint32_t* source, std::size_t count, unsigned alpha) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t over = alpha == opaque ? source[i] : scaled(source[i], alpha);
        if (over == 0) continue;
        const std::uint32_t under = scaled(target[i], opaque - (over >> 24));
        target[i] = over + under;
    }
}

/// Blends rows of one rectangle through buffers where the pixels are no plain words.
class Blender {
public:
    Blender(DeviceContext& target, const SourcePixels& source, BLENDFUNCTION blend, int width)
        : surface_(*target.surface), source_(source), blend_(blend), finder_(target) {
        if (!isPlain32(surface_)) targetWords_.resize(static_cast<std::size_t>(width));
        if (!isPlain32(*source.surface)) sourceWords_.resize(static_cast<std::size_t>(width));
    }

    void row(int x, int y, int count) {
        const std::uint32_t* from = sourceRow(x + source_.offset.x, y + source_.offset.y, count);
        if (isPlain32(surface_)) {
            combine(row32(surface_, y) + x, from, count);
            return;
        }
        readRow(surface_, x, y, count, blackAndWhite, targetWords_.data());
        combine(targetWords_.data(), from, count);
        for (std::uint32_t& word : targetWords_)
            word = finder_.valueOf(word & 0x00FFFFFF);
        writeValues(surface_, x, y, count, targetWords_.data());
    }

private:
    const std::uint32_t* sourceRow(int x, int y, int count) {
        if (isPlain32(*source_.surface)) return row32(*source_.surface, y) + x;
        readRow(*source_.surface, x, y, count, source_.bits, sourceWords_.data());
        return sourceWords_.data();
    }

    void combine(std::uint32_t* to, const std::uint32_t* from, int count) const {
        const std::size_t n = static_cast<std::size_t>(count);
        if ((blend_.AlphaFormat & AC_SRC_ALPHA) != 0) {
            blendAlpha(to, from, n, blend_.SourceConstantAlpha);
        } else {
            blendConstant(to, from, n, blend_.SourceConstantAlpha);
        }
    }

    const Surface& surface_;
    const SourcePixels& source_;
    BLENDFUNCTION blend_;
    ValueFinder finder_;
    std::vector<std::uint32_t> targetWords_;
    std::vector<std::uint32_t> sourceWords_;
};

} // namespace

void blendPixels(DeviceContext& target, const RECT& area, const SourcePixels& source, BLENDFUNCTION blend) {
    for (const RECT& clip : target.drawable().rectangles()) {
        const RECT r = intersection(area, clip);
        if (isEmpty(r)) continue;
        Blender blender(target, source, blend, r.right - r.left);
        for (int y = r.top; y < r.bottom; ++y)
            blender.row(r.left, y, r.right - r.left);
    }
}

} // namespace platform::driver
