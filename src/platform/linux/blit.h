#pragma once
// Copying pixels from one surface to another under a raster operation.

#include "platform/linux/device_context.h"
#include "platform/linux/rop.h"
#include "platform/linux/word_rows.h"

#include <optional>

namespace platform::driver {

/// Where the pixels of a copy come from, and what they mean to a target of another depth.
struct SourcePixels {
    const Surface* surface = nullptr;
    RECT valid;                  ///< The part of the surface that may be read
    POINT offset;                ///< From the target's surface to this one
    TwoColors bits{};            ///< What 0 and 1 look like when the surface has no colours of its own
    std::uint32_t backValue = 0; ///< What becomes 1 on a device bitmap of 1 bit
    bool takesNearest = false;   ///< There, the nearer of black and white instead
};

/// A place and a size as a rectangle, whose right lies left of left for a width below zero.
RECT rectOf(int x, int y, int width, int height);

/// The area of a rectangle whose right may lie left of left: it then counts backwards from left, whose pixel
/// belongs to it. The same for bottom and top.
RECT areaOf(const RECT& r);

RECT moved(const RECT& r, POINT by);

/// Whether a copy only asks which of the source's pixels have the background colour.
bool becomesMask(const Surface& target, const SourcePixels& source);

/// What a context offers as the source of a copy to `target`.
SourcePixels sourceOf(const DeviceContext& target, const DeviceContext& source, POINT offset);

/// The words of an area of a surface and those that a copy takes for them; both have 32 bits.
WordBlocks wordBlocks(const Surface& target, const RECT& area, const SourcePixels& source);

/// Whether a copy to `area` changes pixels that it takes.
bool overlaps(const Surface& target, const RECT& area, const SourcePixels& source);

/// Lets a copy to `area` take its pixels from a picture of them, which is given; null when there are none or
/// memory does not suffice.
std::unique_ptr<Bitmap> takeApart(SourcePixels& source, const RECT& area);

/// The places in logical coordinates, and the size, of a copy that does not change it.
struct CopyPlaces {
    int x, y, width, height;
    int xSource, ySource;
};

/// The words of a copy in the most frequent case: from plain words of a bitmap to others, all of them there
/// and to be seen. It leaves nothing to clip; none in other cases.
std::optional<WordBlocks> plainBlocks(DeviceContext& target, const DeviceContext& source,
                                      const CopyPlaces& places);

/// Combines words by an operation without pattern.
void copyWords(const WordBlocks& blocks, Rop3 rop);

/// Copies the pixels of `area` (on the target's surface) that the source has.
void copyPixels(DeviceContext& target, const RECT& area, const SourcePixels& source, Rop3 rop);

/// Copies an area from another or the same context; `from` is where it begins on the source's surface.
void copyArea(DeviceContext& target, const RECT& area, DeviceContext& source, POINT from, Rop3 rop);

/// From colours 0x00RRGGBB to values of a context's surface, as copies translate them.
class ValueFinder {
public:
    explicit ValueFinder(const DeviceContext& target);
    /// For copies from a surface. The few colours of one with a colour table, or of 1 bit, are looked up
    /// exactly.
    ValueFinder(const DeviceContext& target, const Surface& source);

    std::uint32_t valueOf(std::uint32_t color);
    /// The same for a row of words, in place; their highest bytes do not count.
    void valuesOf(std::uint32_t* words, std::size_t count);

private:
    ValueFinder(const DeviceContext& target, bool isExact);
    std::uint32_t find(std::uint32_t color) const;

    struct Known {
        std::uint32_t color = ~0u;
        std::uint32_t value = 0;
    };

    const DeviceContext& target_;
    bool showsPalette_;
    bool isExact_;             ///< Finds no colours by the middle of their cube
    bool searches_;            ///< Compares a colour with those of a table
    std::vector<Known> known_; ///< Answers of searches, which take long
};

} // namespace platform::driver
