// Regions as objects, and the clipping of device contexts.

#include "platform/gdi.h"
#include "platform/linux/device_context.h"
#include "platform/linux/ellipses.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/painter.h"
#include "platform/linux/polygons.h"
#include "platform/linux/shapes.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace platform::driver {

namespace {

int kindOf(const Region& region) {
    switch (region.rectangles().size()) {
    case 0:
        return NULLREGION;
    case 1:
        return SIMPLEREGION;
    default:
        return COMPLEXREGION;
    }
}

Region combined(const Region& a, const Region& b, int mode) {
    switch (mode) {
    case RGN_AND:
        return a.intersected(b);
    case RGN_OR:
        return a.united(b);
    case RGN_XOR:
        return a.subtracted(b).united(b.subtracted(a));
    case RGN_DIFF:
        return a.subtracted(b);
    default:
        return a;
    }
}

/// The clipping as it stands, in device coordinates: without one, all of the surface that may be drawn on.
Region currentClip(const DeviceContext& context) {
    if (context.state.clip) return *context.state.clip;
    Region all = context.visible;
    all.translate(-context.origin.x, -context.origin.y);
    return all;
}

int setClip(DeviceContext& context, Region clip) {
    context.state.clip = std::move(clip);
    context.clipChanged();
    return kindOf(*context.state.clip);
}

RECT deviceRect(const DeviceContext& context, int left, int top, int right, int bottom) {
    return ordered(context.state.mapping.toDevice(RECT{left, top, right, bottom}));
}

/// Rows and columns further out hold no pixels of any surface.
constexpr RECT everywhere{-0x8000, -0x8000, 0x8000, 0x8000};

/// Ellipses of regions leave out one more pixel on the right and at the bottom.
HRGN addRound(const RECT& box, SIZE corner) {
    const RECT inner{box.left, box.top, box.right - 1, box.bottom - 1};
    return addRegion(roundRegion(inner, corner, inner));
}

/// The part of a region less than a width and height from outside of it.
Region frameOf(const Region& region, int width, int height) {
    Region inside = region;
    for (const POINT step : {POINT{width, 0}, POINT{-width, 0}, POINT{0, height}, POINT{0, -height}}) {
        Region moved = region;
        moved.translate(step.x, step.y);
        inside = inside.intersected(moved);
    }
    return region.subtracted(inside);
}

/// Fills a region given in logical units.
void fillLogical(DeviceContext& context, const Region& region, const Painter& painter) {
    for (const RECT& r : region.rectangles())
        painter.fill(ordered(context.toSurface(r)));
}

/// A logical distance in pixels, with its sign; a half counts away from zero.
LONG lengthOnDevice(int logical, const AxisScale& scale) {
    return boundedCoordinate(std::llround(logical * scale.toDevice));
}

} // namespace

HRGN addRegion(Region region) {
    auto object = std::make_unique<RegionObject>();
    object->region = std::move(region);
    return HRGN(addObject(std::move(object)));
}

} // namespace platform::driver

namespace platform {

using namespace driver;

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
    return addRegion(Region(ordered({left, top, right, bottom})));
}

HRGN CreateRectRgnIndirect(const RECT* rect) {
    return rect ? CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : HRGN();
}

HRGN CreateEllipticRgn(int left, int top, int right, int bottom) {
    const RECT box = ordered({left, top, right, bottom});
    return addRound(box, sizeOf(box));
}

HRGN CreateEllipticRgnIndirect(const RECT* rect) {
    return rect ? CreateEllipticRgn(rect->left, rect->top, rect->right, rect->bottom) : HRGN();
}

HRGN CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height) {
    return addRound(ordered({left, top, right, bottom}),
                    {std::abs(std::max(width, -0x7FFFFFFF)), std::abs(std::max(height, -0x7FFFFFFF))});
}

HRGN CreatePolygonRgn(const POINT* points, int count, int fillMode) {
    return CreatePolyPolygonRgn(points, &count, 1, fillMode);
}

HRGN CreatePolyPolygonRgn(const POINT* points, const INT* counts, int polygons, int fillMode) {
    if (!points || !counts || polygons < 1 || fillMode < ALTERNATE || fillMode > WINDING) return {};
    std::vector<std::vector<POINT>> all;
    for (int i = 0; i < polygons; ++i) {
        if (counts[i] < 2) return {};
        all.emplace_back(points, points + counts[i]);
        points += counts[i];
    }
    return addRegion(polygonsRegion(all, fillMode, everywhere));
}

BOOL SetRectRgn(HRGN handle, int left, int top, int right, int bottom) {
    RegionObject* object = find<RegionObject>(handle);
    if (!object) return FALSE_;
    object->region = Region(ordered({left, top, right, bottom}));
    return TRUE_;
}

int CombineRgn(HRGN target, HRGN first, HRGN second, int mode) {
    RegionObject* result = find<RegionObject>(target);
    const RegionObject* a = find<RegionObject>(first);
    if (!result || !a) return REGION_ERROR;
    if (mode == RGN_COPY) {
        result->region = Region(a->region);
        return kindOf(result->region);
    }
    const RegionObject* b = find<RegionObject>(second);
    if (!b || mode < RGN_AND || mode > RGN_DIFF) return REGION_ERROR;
    result->region = combined(a->region, b->region, mode);
    return kindOf(result->region);
}

BOOL EqualRgn(HRGN first, HRGN second) {
    const RegionObject* a = find<RegionObject>(first);
    const RegionObject* b = find<RegionObject>(second);
    return a && b && a->region == b->region;
}

int OffsetRgn(HRGN handle, int x, int y) {
    RegionObject* object = find<RegionObject>(handle);
    if (!object) return REGION_ERROR;
    object->region.translate(x, y);
    return kindOf(object->region);
}

BOOL PtInRegion(HRGN handle, int x, int y) {
    const RegionObject* object = find<RegionObject>(handle);
    return object && object->region.contains({x, y});
}

BOOL RectInRegion(HRGN handle, const RECT* rect) {
    const RegionObject* object = find<RegionObject>(handle);
    return object && rect && !object->region.intersected(Region(ordered(*rect))).empty();
}

int GetRgnBox(HRGN handle, RECT* box) {
    const RegionObject* object = find<RegionObject>(handle);
    if (!object || !box) return REGION_ERROR;
    *box = object->region.bounds();
    return kindOf(object->region);
}

BOOL FillRgn(HDC dc, HRGN handle, HBRUSH brush) {
    DeviceContext* context = find<DeviceContext>(dc);
    const RegionObject* object = find<RegionObject>(handle);
    const Brush* with = find<Brush>(brush);
    if (!context || !object || !with) return FALSE_;
    if (context->recorder) context->recorder->region(RecordType::FillRgn, object->region, with);
    fillLogical(*context, object->region, Painter(*context, *with));
    return TRUE_;
}

BOOL PaintRgn(HDC dc, HRGN handle) {
    DeviceContext* context = find<DeviceContext>(dc);
    const RegionObject* object = find<RegionObject>(handle);
    if (!context || !object) return FALSE_;
    if (context->recorder) context->recorder->region(RecordType::PaintRgn, object->region, nullptr);
    fillLogical(*context, object->region, Painter(*context, context->brush()));
    return TRUE_;
}

BOOL FrameRgn(HDC dc, HRGN handle, HBRUSH brush, int width, int height) {
    DeviceContext* context = find<DeviceContext>(dc);
    const RegionObject* object = find<RegionObject>(handle);
    const Brush* with = find<Brush>(brush);
    if (!context || !object || !with || width <= 0 || height <= 0) return FALSE_;
    if (context->recorder)
        context->recorder->region(RecordType::FrameRgn, object->region, with, {width, height});
    fillLogical(*context, frameOf(object->region, width, height), Painter(*context, *with));
    return TRUE_;
}

BOOL InvertRgn(HDC dc, HRGN handle) {
    DeviceContext* context = find<DeviceContext>(dc);
    const RegionObject* object = find<RegionObject>(handle);
    if (!context || !object) return FALSE_;
    if (context->recorder) context->recorder->region(RecordType::InvertRgn, object->region, nullptr);
    fillLogical(*context, object->region, Painter(*context, 0u, rop3Of(DSTINVERT)));
    return TRUE_;
}

int SelectClipRgn(HDC dc, HRGN handle) {
    return ExtSelectClipRgn(dc, handle, RGN_COPY);
}

int ExtSelectClipRgn(HDC dc, HRGN handle, int mode) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || mode < RGN_AND || mode > RGN_COPY) return REGION_ERROR;
    const RegionObject* object = find<RegionObject>(handle);
    if (!object) {
        if (handle || mode != RGN_COPY) return REGION_ERROR;
        context->state.clip.reset();
        context->clipChanged();
        return SIMPLEREGION;
    }
    if (mode == RGN_COPY) return setClip(*context, object->region);
    return setClip(*context, combined(currentClip(*context), object->region, mode));
}

int IntersectClipRect(HDC dc, int left, int top, int right, int bottom) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return REGION_ERROR;
    const Region rect(deviceRect(*context, left, top, right, bottom));
    return setClip(*context, context->state.clip ? context->state.clip->intersected(rect) : rect);
}

int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return REGION_ERROR;
    return setClip(*context,
                   currentClip(*context).subtracted(Region(deviceRect(*context, left, top, right, bottom))));
}

int OffsetClipRgn(HDC dc, int x, int y) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return REGION_ERROR;
    if (!context->state.clip) return SIMPLEREGION;
    Region clip = *context->state.clip;
    const Mapping& mapping = context->state.mapping;
    clip.translate(lengthOnDevice(x, mapping.across()), lengthOnDevice(y, mapping.down()));
    return setClip(*context, std::move(clip));
}

int GetClipBox(HDC dc, RECT* box) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !box) return REGION_ERROR;
    // The box of the clipping is cut to the surface, its kind is not.
    const std::optional<Region>& clip = context->state.clip;
    RECT r = context->visible.bounds();
    if (clip) {
        RECT clipBox = clip->bounds();
        clipBox = {clipBox.left + context->origin.x, clipBox.top + context->origin.y,
                   clipBox.right + context->origin.x, clipBox.bottom + context->origin.y};
        r = intersection(r, clipBox);
    }
    const auto logical = [&](LONG x, LONG y) {
        return context->state.mapping.toLogical({x - context->origin.x, y - context->origin.y});
    };
    const POINT topLeft = logical(r.left, r.top);
    const POINT bottomRight = logical(r.right, r.bottom);
    *box = {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
    if (isEmpty(r)) return NULLREGION;
    return kindOf(clip ? *clip : context->visible);
}

int GetClipRgn(HDC dc, HRGN handle) {
    const DeviceContext* context = find<DeviceContext>(dc);
    RegionObject* object = find<RegionObject>(handle);
    if (!context || !object) return -1;
    if (!context->state.clip) return 0;
    object->region = *context->state.clip;
    return 1;
}

BOOL PtVisible(HDC dc, int x, int y) {
    DeviceContext* context = find<DeviceContext>(dc);
    return context && context->drawable().contains(context->toSurface(POINT{x, y}));
}

BOOL RectVisible(HDC dc, const RECT* rect) {
    DeviceContext* context = find<DeviceContext>(dc);
    return context && rect &&
           !context->drawable().intersected(Region(ordered(context->toSurface(*rect)))).empty();
}

} // namespace platform
