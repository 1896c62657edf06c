#include "platform/linux/pixel_store.h"

#include "platform/linux/display_colors.h"
#include "platform/linux/rows.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr int wordBits = 32;

/// All of the rectangle's rows outside of a part of it.
void fillAround(const Surface& surface, const RECT& part) {
    const auto clear = [&surface](LONG y, LONG left, LONG right) {
        std::fill(row32(surface, y) + left, row32(surface, y) + right, 0u);
    };
    for (LONG y = 0; y < surface.height; ++y) {
        const bool isBeside = y >= part.top && y < part.bottom;
        clear(y, 0, isBeside ? part.left : surface.width);
        if (isBeside) clear(y, part.right, surface.width);
    }
}

} // namespace

void PixelStore::make(int width, int height, int bitsPerPixel, const RECT& later) {
    constexpr int bytesPerWord = 4;
    const int rowWords = (width * bitsPerPixel + wordBits - 1) / wordBits;
    size_ = static_cast<std::size_t>(rowWords) * static_cast<std::size_t>(height);
    if (size_ > room_) {
        memory_ = std::make_unique_for_overwrite<std::uint32_t[]>(size_);
        room_ = size_;
    }
    surface = {width,
               height,
               bitsPerPixel,
               rowWords * bytesPerWord,
               reinterpret_cast<std::uint8_t*>(memory_.get()),
               deviceFormat(bitsPerPixel)};
    const RECT all{0, 0, width, height};
    const RECT part{std::max(later.left, all.left), std::max(later.top, all.top),
                    std::min(later.right, all.right), std::min(later.bottom, all.bottom)};
    // The pixels of a row that share a word are not told apart.
    const bool waits = bitsPerPixel == wordBits && part.left < part.right && part.top < part.bottom;
    later_ = waits ? part : RECT{};
    if (waits)
        fillAround(surface, later_);
    else
        std::ranges::fill(words(), 0u);
}

/// Goes to the end of the rows that is nearer: windows are mostly painted from one end to the other, so a row
/// is made black shortly before it is drawn on, and whole rows at once are quickest.
void PixelStore::need(const RECT& part) {
    const bool isReady = part.left >= later_.right || part.right <= later_.left ||
                         part.top >= later_.bottom || part.bottom <= later_.top;
    if (isReady) return;
    const LONG top = std::max(part.top, later_.top);
    const LONG bottom = std::min(part.bottom, later_.bottom);
    if (bottom - later_.top < later_.bottom - top) {
        blacken(later_.top, bottom);
        later_.top = bottom;
    } else {
        blacken(top, later_.bottom);
        later_.bottom = top;
    }
    if (later_.top == later_.bottom) later_ = {};
}

void PixelStore::blacken(LONG top, LONG bottom) {
    for (LONG y = top; y < bottom; ++y)
        std::fill(row32(surface, y) + later_.left, row32(surface, y) + later_.right, 0u);
}

} // namespace platform::driver
