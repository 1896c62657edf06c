// Filling an area that pixels of a colour bound.

#include "platform/gdi.h"
#include "platform/linux/colors.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/rows.h"
#include "platform/linux/shapes.h"

namespace platform::driver {

namespace {

/// Finds the area around a point, by runs of pixels from row to row.
class Flood {
public:
    Flood(const DeviceContext& context, const Region& drawable, std::uint32_t pixel, bool toBorder)
        : surface_(*context.surface), drawable_(drawable), box_(drawable.bounds()), pixel_(pixel),
          toBorder_(toBorder) {
        const auto width = static_cast<std::size_t>(box_.right - box_.left);
        const auto height = static_cast<std::size_t>(box_.bottom - box_.top);
        reached_.resize(width * height);
    }

    bool accepts(POINT p) const {
        const bool same = pixelAt(p) == pixel_;
        return same != toBorder_ && drawable_.contains(p);
    }

    Region around(POINT start) {
        pending_.push_back(start);
        while (!pending_.empty()) {
            const POINT p = pending_.back();
            pending_.pop_back();
            if (isOpen(p)) takeRun(p);
        }
        return Region::ofRows(std::move(runs_));
    }

private:
    std::uint32_t pixelAt(POINT p) const { return valueAt(surface_, p.x, p.y) & 0x00FFFFFF; }
    std::size_t index(POINT p) const {
        return static_cast<std::size_t>(p.y - box_.top) * static_cast<std::size_t>(box_.right - box_.left) +
               static_cast<std::size_t>(p.x - box_.left);
    }
    bool isOpen(POINT p) const {
        return p.x >= box_.left && p.x < box_.right && p.y >= box_.top && p.y < box_.bottom &&
               !reached_[index(p)] && accepts(p);
    }

    void takeRun(POINT p) {
        LONG left = p.x;
        while (isOpen({left - 1, p.y}))
            --left;
        LONG right = p.x + 1;
        while (isOpen({right, p.y}))
            ++right;
        for (LONG x = left; x < right; ++x)
            reached_[index({x, p.y})] = true;
        runs_.push_back({left, p.y, right, p.y + 1});
        lookAlong(left, right, p.y - 1);
        lookAlong(left, right, p.y + 1);
    }

    /// Notes one point of each run that touches the row above or below.
    void lookAlong(LONG left, LONG right, LONG y) {
        bool inRun = false;
        for (LONG x = left; x < right; ++x) {
            const bool open = isOpen({x, y});
            if (open && !inRun) pending_.push_back({x, y});
            inRun = open;
        }
    }

    const Surface& surface_;
    const Region& drawable_;
    RECT box_;
    std::uint32_t pixel_;
    bool toBorder_;
    std::vector<bool> reached_;
    std::vector<POINT> pending_;
    std::vector<RECT> runs_;
};

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL ExtFloodFill(HDC dc, int x, int y, COLORREF color, UINT mode) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || mode > FLOODFILLSURFACE) return FALSE_;
    if (context->recorder) context->recorder->floodFill({x, y}, color, mode);
    const POINT start = context->toSurface(POINT{x, y});
    const Region& drawable = context->drawable();
    if (!drawable.contains(start)) return FALSE_;
    const std::uint32_t pixel = nearestPixelOf(*context, color) & 0x00FFFFFF;
    Flood flood(*context, drawable, pixel, mode == FLOODFILLBORDER);
    if (!flood.accepts(start)) return FALSE_;
    fillWithBrush(*context, flood.around(start));
    return TRUE_;
}

} // namespace platform
