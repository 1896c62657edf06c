// Clipping, the origin and paths.

#include "drawing/cCanvas.h"
#include "drawing/rounding.h"

namespace tesela {

namespace {

/// A region that ends with its scope.
class ScopedRegion {
public:
    explicit ScopedRegion(const platform::RECT& box) : region_(platform::CreateRectRgnIndirect(&box)) {}
    ~ScopedRegion() { platform::DeleteObject(region_); }
    ScopedRegion(const ScopedRegion&) = delete;
    ScopedRegion& operator=(const ScopedRegion&) = delete;
    operator platform::HRGN() const { return region_; }

private:
    platform::HRGN region_;
};

} // namespace

std::int32_t cCanvas::ClearClipping(bool lZero) {
    const std::int32_t kind = platform::SelectClipRgn(nPaintDC, {});
    if (lZero) SetWndOrg(0, 0);
    return kind;
}

std::int32_t cCanvas::SetClippingRect(const RECT_Type& xClipRect, bool lZero) {
    const ScopedRegion region(xClipRect);
    const std::int32_t kind = platform::SelectClipRgn(nPaintDC, region);
    if (lZero)
        SetWndOrg(saturatingSum(0, -std::int64_t{xClipRect.left}),
                  saturatingSum(0, -std::int64_t{xClipRect.top}));
    return kind;
}

std::int32_t cCanvas::GetClippingRect(RECT_Type& xClipRect) const {
    constexpr int failed = -1, none = 0;
    const ScopedRegion region(xClipRect);
    const int copied = platform::GetClipRgn(nPaintDC, region);
    if (copied == failed) return 0;
    if (copied == none) return -1;
    platform::RECT box;
    const std::int32_t kind = platform::GetRgnBox(region, &box);
    xClipRect = box;
    return kind;
}

std::int32_t cCanvas::SetClippingPath(ClipPathModeConstants nMode) {
    return platform::SelectClipPath(nPaintDC, nMode);
}

std::int32_t cCanvas::GetWndOrg(std::int32_t& nX, std::int32_t& nY) const {
    platform::POINT origin;
    const std::int32_t read = platform::GetWindowOrgEx(nPaintDC, &origin);
    nX = origin.x;
    nY = origin.y;
    return read;
}

std::int32_t cCanvas::SetWndOrg(std::int32_t nX, std::int32_t nY) {
    return platform::SetWindowOrgEx(nPaintDC, nX, nY, nullptr);
}

std::int32_t cCanvas::BeginPath() {
    return platform::BeginPath(nPaintDC);
}

std::int32_t cCanvas::EndPath() {
    return platform::EndPath(nPaintDC);
}

std::int32_t cCanvas::AbortPath() {
    return platform::AbortPath(nPaintDC);
}

std::int32_t cCanvas::CloseFigure() {
    return platform::CloseFigure(nPaintDC);
}

std::int32_t cCanvas::StrokePath() {
    return platform::StrokePath(nPaintDC);
}

std::int32_t cCanvas::FillPath() {
    return platform::FillPath(nPaintDC);
}

std::int32_t cCanvas::StrokeAndFillPath() {
    return platform::StrokeAndFillPath(nPaintDC);
}

platform::HRGN cCanvas::PathToRegion() {
    return platform::PathToRegion(nPaintDC);
}

} // namespace tesela
