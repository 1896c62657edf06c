#include "platform/linux/mask_region.h"

#include "platform/linux/rows.h"

namespace platform::driver {

bool isPartOf(const RECT& part, const Surface& mask) {
    return 0 <= part.left && part.left <= part.right && part.right <= mask.width && 0 <= part.top &&
           part.top <= part.bottom && part.bottom <= mask.height;
}

Region maskRegion(const Surface& mask, const RECT& part) {
    std::vector<RECT> runs;
    for (LONG y = part.top; y < part.bottom; ++y) {
        for (LONG x = part.left; x < part.right;) {
            LONG end = x;
            while (end < part.right && valueAt(mask, end, y) != 0)
                ++end;
            if (end > x) runs.push_back({x - part.left, y - part.top, end - part.left, y - part.top + 1});
            x = end + 1;
        }
    }
    return Region::ofRows(std::move(runs));
}

} // namespace platform::driver
