#pragma once

#include "platform/linux/surface.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace platform::driver {

/// The pixels of a top-level window, frame included, or of a picture. Device contexts keep a window's alive
/// while they are open.
class PixelStore {
public:
    Surface surface;

    /// Black pixels of that many bits. Those of `later` hold anything until `need` makes them black: large
    /// windows are then not gone through before somebody paints them.
    void make(int width, int height, int bitsPerPixel, const RECT& later = {});
    /// To be called before pixels of the part (surface coordinates) are drawn on or read.
    void need(const RECT& part);
    void needAll() { need({0, 0, surface.width, surface.height}); }

    /// All rows, one after the other.
    std::span<std::uint32_t> words() { return {memory_.get(), size_}; }

private:
    void blacken(LONG top, LONG bottom);

    std::unique_ptr<std::uint32_t[]> memory_;
    std::size_t size_ = 0; ///< In words
    std::size_t room_ = 0; ///< Words that the memory has room for
    RECT later_;           ///< Surface coordinates: still to be made black
};

} // namespace platform::driver
