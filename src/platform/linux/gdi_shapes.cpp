// Lines, rectangles, polygons and single pixels.

#include "platform/gdi.h"
#include "platform/linux/brush_pixels.h"
#include "platform/linux/colors.h"
#include "platform/linux/lines.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/painter.h"
#include "platform/linux/polygons.h"
#include "platform/linux/rows.h"
#include "platform/linux/shapes.h"
#include "platform/system_look.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace platform::driver {

namespace {

constexpr std::uint32_t lastColorBrush = COLOR_MENUBAR + 1;

/// A brush for one call: a live one, or a system colour given as its number plus one.
class CallBrush {
public:
    explicit CallBrush(HBRUSH handle) : brush_(find<Brush>(handle)) {
        if (!brush_ && handle.value > 0 && handle.value <= lastColorBrush)
            brush_ = find<Brush>(GetSysColorBrush(static_cast<int>(handle.value) - 1));
    }
    const Brush* get() const { return brush_; }

private:
    const Brush* brush_;
};

std::vector<POINT> surfacePoints(const DeviceContext& context, const POINT* points, int count) {
    std::vector<POINT> result;
    result.reserve(static_cast<std::size_t>(count) + 1);
    for (int i = 0; i < count; ++i)
        result.push_back(context.toSurface(points[i]));
    return result;
}

/// The area of a fill on the surface. One that extends to the left or upwards counts from its given corner,
/// which then belongs to it.
inline RECT patternBox(const DeviceContext& context, const RECT& logical) {
    RECT r = context.toSurface(logical);
    if (r.right < r.left) r = {r.right + 1, r.top, r.left + 1, r.bottom};
    if (r.bottom < r.top) r = {r.left, r.bottom + 1, r.right, r.top + 1};
    return r;
}

/// The inside of an outline in the current pen: what the brush fills.
RECT insideOf(RECT r, const Stroke& stroke) {
    if (stroke.paintsNothing()) return r;
    const int before = stroke.width() / 2;
    const int after = stroke.width() - before;
    return {r.left + after, r.top + after, r.right - before, r.bottom - before};
}

/// The way round an outline: dashes begin at the top right, or clockwise at the bottom right, and run to the
/// left.
std::array<POINT, 4> cornersOf(const RECT& r, bool clockwise) {
    const LONG first = clockwise ? r.bottom : r.top;
    const LONG last = clockwise ? r.top : r.bottom;
    return {POINT{r.right, first}, {r.left, first}, {r.left, last}, {r.right, last}};
}

/// Sets a pixel; false outside the clipping.
bool setPixel(DeviceContext& context, POINT at, COLORREF color) {
    if (context.recorder) context.recorder->pixel(at, color);
    const POINT p = context.toSurface(at);
    if (!context.drawable().contains(p)) return false;
    // The drawing mode counts as for a pen.
    maskPixel(*context.surface, p.x, p.y, masksOfMode(context.state.rop2, nearestPixelOf(context, color)));
    return true;
}

BOOL fillWithNewBrush(HDC dc, const RECT& rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    const BOOL filled = FillRect(dc, &rect, brush);
    DeleteObject(brush);
    return filled;
}

void drawOneByOne(HDC dc, std::span<const Line> lines) {
    for (const Line& line : lines) {
        MoveToEx(dc, line.x1, line.y1, nullptr);
        LineTo(dc, line.x2, line.y2);
    }
}

/// Draws lines where a logical unit is a pixel. Level ones in one colour are filled together.
void drawPlainLines(DeviceContext& context, std::span<const Line> lines, Masks ink) {
    constexpr std::size_t mostSpans = 16;
    std::array<WordSpan, mostSpans> spans;
    std::size_t count = 0;
    const auto fillSpans = [&] {
        wordRows().fillSpans(spans.data(), static_cast<int>(std::exchange(count, 0)), ink.flip);
    };
    const std::optional<PlainArea> area = ink.keep == 0 ? plainArea(context) : std::nullopt;
    const std::int64_t across = context.shiftAcross();
    const std::int64_t down = context.shiftDown();
    LONG lastX = 0;
    LONG lastY = 0;
    for (const Line& line : lines) {
        lastX = line.x2;
        lastY = line.y2;
        const POINT from{boundedCoordinate(line.x1 + across), boundedCoordinate(line.y1 + down)};
        const POINT to{boundedCoordinate(line.x2 + across), boundedCoordinate(line.y2 + down)};
        const bool forwards = from.x < to.x;
        if (!area || from.y != to.y) {
            drawPlainLine(context, from, to, ink);
        } else if (area->findSpan(forwards ? from.x : to.x + 1, from.y, forwards ? to.x : from.x + 1,
                                  spans[count]) &&
                   ++count == mostSpans) {
            fillSpans();
        }
    }
    fillSpans();
    context.state.position = {lastX, lastY};
}

/// Fills the frame of one logical unit inside a rectangle.
void fillFrame(const DeviceContext& context, const Painter& painter, const RECT& r) {
    painter.fill(patternBox(context, {r.left, r.top, r.right, r.top + 1}));
    painter.fill(patternBox(context, {r.left, r.bottom - 1, r.right, r.bottom}));
    painter.fill(patternBox(context, {r.left, r.top, r.left + 1, r.bottom}));
    painter.fill(patternBox(context, {r.right - 1, r.top, r.right, r.bottom}));
}

} // namespace

void fillWithBrush(DeviceContext& context, const Region& region) {
    const Painter painter(context, context.brush());
    if (painter.paintsNothing()) return;
    for (const RECT& r : region.rectangles())
        painter.fill(r);
}

Region figuresRegion(const std::vector<Figure>& figures, int fillMode, const RECT& bounds) {
    std::vector<std::vector<POINT>> polygons;
    polygons.reserve(figures.size());
    for (const Figure& figure : figures)
        polygons.push_back(figure.points);
    return polygonsRegion(polygons, fillMode, bounds);
}

void fillInside(DeviceContext& context, const Region& inside, const Stroke& stroke,
                const std::vector<Figure>& outlines) {
    const bool sparesOutline = !stroke.paintsNothing() && stroke.paintsAtOnce();
    fillWithBrush(context, sparesOutline ? inside.subtracted(stroke.area(outlines)) : inside);
}

void drawFigures(DeviceContext& context, const std::vector<Figure>& figures) {
    Stroke stroke(context);
    fillInside(context, figuresRegion(figures, context.state.polyFillMode, context.drawable().bounds()),
               stroke, figures);
    stroke.draw(figures);
}

void fillFigures(DeviceContext& context, const std::vector<Figure>& figures) {
    fillWithBrush(context, figuresRegion(figures, context.state.polyFillMode, context.drawable().bounds()));
}

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL MoveToEx(HDC dc, int x, int y, POINT* previous) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    if (previous) *previous = context->state.position;
    context->state.position = {x, y};
    context->state.path.move();
    return TRUE_;
}

BOOL GetCurrentPositionEx(HDC dc, POINT* position) {
    const DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !position) return FALSE_;
    *position = context->state.position;
    return TRUE_;
}

BOOL LineTo(HDC dc, int x, int y) {
    DeviceContext* context = find<DeviceContext>(dc);
    const Masks ink = context ? plainInk(*context) : leaveAlone;
    if (ink == leaveAlone) {
        const POINT end{x, y};
        return PolylineTo(dc, &end, 1);
    }
    drawPlainLine(*context, context->toSurface(context->state.position), context->toSurface(POINT{x, y}),
                  ink);
    context->state.position = {x, y};
    return TRUE_;
}

BOOL drawLines(HDC dc, const Line* lines, int count) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || count < 1) return FALSE_;
    const Masks ink = context->state.mapping.isUnscaled() ? plainInk(*context) : leaveAlone;
    const std::span<const Line> all(lines, static_cast<std::size_t>(count));
    if (ink == leaveAlone) {
        drawOneByOne(dc, all);
    } else {
        drawPlainLines(*context, all, ink);
    }
    return TRUE_;
}

BOOL Polyline(HDC dc, const POINT* points, int count) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !points || count < 2) return FALSE_;
    const std::vector<POINT> all = surfacePoints(*context, points, count);
    if (context->state.path.isOpen()) {
        context->state.path.add(all, PT_LINETO, false);
        return TRUE_;
    }
    if (context->recorder)
        context->recorder->points(RecordType::Polyline, points, static_cast<std::size_t>(count));
    Stroke(*context).draw(all, false);
    return TRUE_;
}

BOOL PolylineTo(HDC dc, const POINT* points, int count) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !points || count < 1) return FALSE_;
    std::vector<POINT> all = surfacePoints(*context, points, count);
    const POINT from = context->toSurface(context->state.position);
    if (context->state.path.isOpen()) {
        context->state.path.addTo(from, all, PT_LINETO);
    } else {
        if (context->recorder)
            context->recorder->points(RecordType::PolylineTo, points, static_cast<std::size_t>(count));
        all.insert(all.begin(), from);
        Stroke(*context).draw(all, false);
    }
    context->state.position = points[count - 1];
    return TRUE_;
}

BOOL Polygon(HDC dc, const POINT* points, int count) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !points || count < 2) return FALSE_;
    const std::vector<POINT> all = surfacePoints(*context, points, count);
    if (context->state.path.isOpen()) {
        context->state.path.add(all, PT_LINETO, true);
        return TRUE_;
    }
    if (context->recorder)
        context->recorder->points(RecordType::Polygon, points, static_cast<std::size_t>(count));
    drawFigures(*context, {{all, true}});
    return TRUE_;
}

BOOL Rectangle(HDC dc, int left, int top, int right, int bottom) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    RECT r = ordered(context->toSurface(RECT{left, top, right, bottom}));
    if (isEmpty(r)) return TRUE_;
    const bool collects = context->state.path.isOpen();
    if (context->recorder && !collects)
        context->recorder->box(RecordType::Rectangle, {left, top, right, bottom});
    --r.right;
    --r.bottom;
    const bool isClockwise = context->state.arcDirection == AD_CLOCKWISE;
    if (collects) {
        context->state.path.add(cornersOf(r, isClockwise), PT_LINETO, true);
        return TRUE_;
    }
    Stroke stroke(*context);
    if (!stroke.paintsNothing() && context->pen().data.lopnStyle == static_cast<UINT>(PS_INSIDEFRAME) &&
        stroke.width() > 1) {
        const int before = stroke.width() / 2;
        r = {r.left + before, r.top + before, r.right - (stroke.width() - 1) / 2,
             r.bottom - (stroke.width() - 1) / 2};
    }
    const std::array<POINT, 4> corners = cornersOf(r, isClockwise);
    if (stroke.paintsAtOnce() && stroke.isDashed()) {
        // The inside shows between the dashes.
        fillInside(*context, Region(r), stroke, {{{corners.begin(), corners.end()}, true}});
    } else {
        Painter(*context, context->brush()).fill(insideOf(r, stroke));
    }
    stroke.draw(corners, true);
    return TRUE_;
}

int FillRect(HDC dc, const RECT* rect, HBRUSH handle) {
    DeviceContext* context = find<DeviceContext>(dc);
    const CallBrush brush(handle);
    if (!context || !rect || !brush.get()) return FALSE_;
    if (context->recorder) context->recorder->fill(*rect, *brush.get());
    Painter(*context, *brush.get(), rop3Of(PATCOPY)).fill(patternBox(*context, *rect));
    return TRUE_;
}

BOOL fillSolidRect(HDC dc, const RECT& rect, COLORREF color) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    const bool isPlain = isOwnPixel(*context, color) || !isDithered(*context, color);
    if (context->recorder || !isPlain) return fillWithNewBrush(dc, rect, color);
    maskClipped(*context, patternBox(*context, rect), {0, pixelOf(*context, color)});
    return TRUE_;
}

int FrameRect(HDC dc, const RECT* rect, HBRUSH handle) {
    DeviceContext* context = find<DeviceContext>(dc);
    const CallBrush brush(handle);
    if (!context || !rect || !brush.get() || isEmpty(*rect)) return FALSE_;
    if (context->recorder) context->recorder->frame(*rect, *brush.get());
    fillFrame(*context, Painter(*context, *brush.get(), rop3Of(PATCOPY)), *rect);
    return TRUE_;
}

BOOL InvertRect(HDC dc, const RECT* rect) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !rect) return FALSE_;
    if (context->recorder) context->recorder->patternBlit(*rect, DSTINVERT);
    Painter(*context, 0u, rop3Of(DSTINVERT)).fill(patternBox(*context, *rect));
    return TRUE_;
}

BOOL DrawFocusRect(HDC dc, const RECT* rect) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !rect) return FALSE_;
    RECT r = ordered(context->toSurface(*rect));
    if (isEmpty(r)) return TRUE_;
    if (context->recorder) context->recorder->focusRect(*rect);
    --r.right;
    --r.bottom;
    Stroke::dotted(*context, masksOf(rop3Of(DSTINVERT), 0)).draw(cornersOf(r, false), true);
    return TRUE_;
}

COLORREF SetPixel(HDC dc, int x, int y, COLORREF color) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return CLR_INVALID;
    if (!setPixel(*context, {x, y}, color)) return CLR_INVALID;
    return colorOfPixel(*context, nearestPixelOf(*context, color));
}

BOOL SetPixelV(HDC dc, int x, int y, COLORREF color) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    setPixel(*context, {x, y}, color);
    return TRUE_;
}

COLORREF GetPixel(HDC dc, int x, int y) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return CLR_INVALID;
    const POINT p = context->toSurface(POINT{x, y});
    if (!context->drawable().contains(p)) return CLR_INVALID;
    return colorOfPixel(*context, valueAt(*context->surface, p.x, p.y));
}

BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD rop) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || usesSource(rop3Of(rop))) return FALSE_;
    const RECT box{x, y, boundedCoordinate(std::int64_t{x} + width),
                   boundedCoordinate(std::int64_t{y} + height)};
    if (context->recorder) context->recorder->patternBlit(box, rop);
    const Painter painter(*context, context->brush(), rop3Of(rop));
    painter.fill(patternBox(*context, box));
    return TRUE_;
}

} // namespace platform
