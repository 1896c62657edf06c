#include "platform/linux/blend.h"

#include "platform/linux/display_colors.h"
#include "platform/linux/rows.h"

namespace platform::driver {

namespace {

/// Blends rows of one rectangle through buffers, for pixels that are no plain words.
class Blender {
public:
    Blender(DeviceContext& target, const SourcePixels& source, BLENDFUNCTION blend, int width)
        : surface_(*target.surface), source_(source), blend_(blend), finder_(target),
          targetWords_(static_cast<std::size_t>(width)), sourceWords_(static_cast<std::size_t>(width)) {}

    void row(int x, int y, int count) {
        readRow(*source_.surface, x + source_.offset.x, y + source_.offset.y, count, source_.bits,
                sourceWords_.data());
        readRow(surface_, x, y, count, blackAndWhite, targetWords_.data());
        blendWords({targetWords_.data(), 0, sourceWords_.data(), 0, count, 1}, blend_);
        if (!isPlain32(surface_)) findValues();
        writeValues(surface_, x, y, count, targetWords_.data());
    }

private:
    void findValues() {
        const bool has16Colors = surface_.bitsPerPixel == 4 && !showsDisplayPalette(surface_);
        if (!has16Colors) {
            finder_.valuesOf(targetWords_.data(), targetWords_.size());
            return;
        }
        for (std::uint32_t& word : targetWords_)
            word = surface_.format->blendedValueOf(word & 0x00FFFFFF);
    }

    const Surface& surface_;
    const SourcePixels& source_;
    BLENDFUNCTION blend_;
    ValueFinder finder_;
    std::vector<std::uint32_t> targetWords_;
    std::vector<std::uint32_t> sourceWords_;
};

} // namespace

void blendWords(const WordBlocks& blocks, BLENDFUNCTION blend) {
    const bool hasAlpha = (blend.AlphaFormat & AC_SRC_ALPHA) != 0;
    (hasAlpha ? wordRows().blendAlpha : wordRows().blendConstant)(blocks, blend.SourceConstantAlpha);
}

void blendPixels(DeviceContext& target, const RECT& area, const SourcePixels& source, BLENDFUNCTION blend) {
    const Region& drawable = target.drawable();
    const bool isDirect = isPlain32(*target.surface) && isPlain32(*source.surface);
    for (const RECT& clip : drawable.rectangles()) {
        const RECT r = intersection(area, clip);
        if (isEmpty(r)) continue;
        if (isDirect) {
            blendWords(wordBlocks(*target.surface, r, source), blend);
            continue;
        }
        Blender blender(target, source, blend, r.right - r.left);
        for (int y = r.top; y < r.bottom; ++y)
            blender.row(r.left, y, r.right - r.left);
    }
}

} // namespace platform::driver
