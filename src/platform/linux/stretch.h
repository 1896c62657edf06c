#pragma once
// Copies with a change of size.

#include "platform/linux/blit.h"

namespace platform::driver {

/// A copy from one area to another of a different size; both in surface coordinates.
struct Stretch {
    RECT to;
    RECT from;
    bool targetLeftwards =
        false; ///< Sides given from right to left or bottom to top; both of them cancel out
    bool targetUpwards = false;
    bool sourceLeftwards = false;
    bool sourceUpwards = false;

    /// Between rectangles whose right may lie left of left and bottom above top.
    static Stretch between(const RECT& to, const RECT& from);
    bool changesSize() const;
    bool isMirrored() const;
};

/// The part of the stretched source that lies in `part` of the target's area, as a bitmap like the source's,
/// joined as a stretch mode says; null when memory does not suffice.
std::unique_ptr<Bitmap> stretched(const Surface& source, const Stretch& stretch, const RECT& part, int mode);

/// Copies stretched; the source's `valid` and `offset` do not count.
void stretchArea(DeviceContext& target, const SourcePixels& source, const Stretch& stretch, Rop3 rop);

} // namespace platform::driver
