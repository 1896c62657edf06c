#pragma once
// How far what two runs of a script left behind is apart.

#include "conformance/Picture.h"

#include <cstddef>

namespace conformance {

struct Difference {
    std::size_t pixels =
        0;             ///< That differ, of all pictures; all of one whose size differs or that is missing
    int component = 0; ///< The most by which red, green or blue of a pixel differs: 255 where a size does
    bool isInWhatIsShown = false; ///< What the `show` lines said
};

/// How many pixels of two pictures differ: of pictures of two sizes all of the larger one.
std::size_t differingPixels(const Picture& a, const Picture& b);

Difference difference(const Result& ours, const Result& theirs);

} // namespace conformance
