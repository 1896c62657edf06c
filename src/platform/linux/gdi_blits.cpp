// Copies between contexts, straight and stretched, and gradients.

#include "platform/gdi.h"
#include "platform/linux/blit.h"
#include "platform/linux/colors.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/rows.h"
#include "platform/linux/stretch.h"

#include <algorithm>
#include <limits>

namespace platform::driver {

namespace {

constexpr int colorScale = 256; ///< A vertex's components have eight bits more than a pixel's

struct Extent {
    LONG start;
    LONG end;
};

/// Where a side of a copy lies. A length below zero counts backwards from a first pixel that belongs to it.
Extent extentOf(LONG start, int length) {
    const LONG end = boundedCoordinate(std::int64_t{start} + length);
    return length >= 0 ? Extent{start, end} : Extent{end + 1, start + 1};
}

/// A place and a size as a rectangle, whose right lies left of left for a width below zero.
RECT rectOf(int x, int y, int width, int height) {
    return {x, y, boundedCoordinate(std::int64_t{x} + width), boundedCoordinate(std::int64_t{y} + height)};
}

RECT areaOf(const DeviceContext& context, int x, int y, int width, int height) {
    const POINT corner = context.toSurface(POINT{x, y});
    const Extent across = extentOf(corner.x, width);
    const Extent down = extentOf(corner.y, height);
    return {across.start, down.start, across.end, down.end};
}

std::uint32_t mixed(const TRIVERTEX& a, const TRIVERTEX& b, std::int64_t position, std::int64_t length) {
    const auto component = [&](WORD from, WORD to) {
        const std::int64_t sum = from * (length - position) + to * position;
        return static_cast<std::uint32_t>(sum / length / colorScale);
    };
    return component(a.Alpha, b.Alpha) << 24 | component(a.Red, b.Red) << 16 |
           component(a.Green, b.Green) << 8 | component(a.Blue, b.Blue);
}

/// Paints one rectangle of a gradient a line of equal colour at a time.
void fillGradient(DeviceContext& context, TRIVERTEX a, TRIVERTEX b, bool across) {
    if (across ? a.x > b.x : a.y > b.y) std::swap(a, b);
    const POINT first = context.toSurface(POINT{a.x, a.y});
    const POINT second = context.toSurface(POINT{b.x, b.y});
    const RECT area = ordered({first.x, first.y, second.x, second.y});
    const std::int64_t start = across ? area.left : area.top;
    const std::int64_t length = (across ? area.right : area.bottom) - start;
    for (const RECT& clip : context.drawable().rectangles()) {
        const RECT r = intersection(area, clip);
        if (isEmpty(r)) continue;
        std::vector<std::uint32_t> pixels;
        for (LONG i = across ? r.left : r.top; i < (across ? r.right : r.bottom); ++i)
            pixels.push_back(mixed(a, b, i - start, length));
        putGradient(context, r, pixels, across);
    }
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource, DWORD rop) {
    if (!usesSource(rop3Of(rop))) return PatBlt(dc, x, y, width, height, rop);
    DeviceContext* to = find<DeviceContext>(dc);
    DeviceContext* from = find<DeviceContext>(source);
    if (!to || !from) return FALSE_;
    if (to->recorder)
        to->recorder->blit(rectOf(x, y, width, height), {*from, rectOf(xSource, ySource, width, height)},
                           rop);
    const RECT area = areaOf(*to, x, y, width, height);
    const RECT sourceArea = areaOf(*from, xSource, ySource, width, height);
    copyArea(*to, area, *from, {sourceArea.left, sourceArea.top}, rop3Of(rop));
    return TRUE_;
}

BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                int widthSource, int heightSource, DWORD rop) {
    if (width == widthSource && height == heightSource)
        return BitBlt(dc, x, y, width, height, source, xSource, ySource, rop);
    if (!usesSource(rop3Of(rop))) return PatBlt(dc, x, y, width, height, rop);
    DeviceContext* to = find<DeviceContext>(dc);
    DeviceContext* from = find<DeviceContext>(source);
    if (!to || !from || widthSource == 0 || heightSource == 0) return FALSE_;
    if (width == 0 || height == 0) return TRUE_;
    if (to->recorder)
        to->recorder->blit(rectOf(x, y, width, height),
                           {*from, rectOf(xSource, ySource, widthSource, heightSource)}, rop);
    const Stretch stretch{areaOf(*to, x, y, width, height),
                          areaOf(*from, xSource, ySource, widthSource, heightSource),
                          width < 0,
                          height < 0,
                          widthSource < 0,
                          heightSource < 0};
    stretchArea(*to, *from, stretch, rop3Of(rop));
    return TRUE_;
}

BOOL GradientFill(HDC dc, const TRIVERTEX* vertices, DWORD vertexCount, const GRADIENT_RECT* meshes,
                  DWORD meshCount, DWORD mode) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !vertices || !meshes || vertexCount == 0 || meshCount == 0) return FALSE_;
    if (mode != GRADIENT_FILL_RECT_H && mode != GRADIENT_FILL_RECT_V) return FALSE_;
    for (DWORD i = 0; i < meshCount; ++i)
        if (meshes[i].UpperLeft >= vertexCount || meshes[i].LowerRight >= vertexCount) return FALSE_;
    if (context->recorder) context->recorder->gradient({vertices, vertexCount}, meshes, meshCount, mode);
    for (DWORD i = 0; i < meshCount; ++i)
        fillGradient(*context, vertices[meshes[i].UpperLeft], vertices[meshes[i].LowerRight],
                     mode == GRADIENT_FILL_RECT_H);
    return TRUE_;
}

} // namespace platform
