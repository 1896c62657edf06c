// Ellipses, arcs and Bézier curves, and figures of several parts.

#include "platform/gdi.h"
#include "platform/linux/beziers.h"
#include "platform/linux/ellipses.h"
#include "platform/linux/lines.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/painter.h"
#include "platform/linux/polygons.h"
#include "platform/linux/shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::driver {

namespace {

/// With the last pixels as edges.
RECT inclusive(const RECT& r) {
    return {r.left, r.top, r.right - 1, r.bottom - 1};
}

/// Curves are made whole, so they are held where no surface has pixels any more.
template <class Number>
Number held(Number value) {
    constexpr Number farthest = 1 << 15;
    return std::clamp(value, -farthest, farthest);
}

/// The box of a curve on the surface.
RECT curveBox(const DeviceContext& context, const RECT& logical) {
    const RECT r = ordered(context.toSurface(logical));
    return {held(r.left), held(r.top), held(r.right), held(r.bottom)};
}

/// A pen that stays inside its frame draws a smaller curve. Where it is too wide for the frame, the sides
/// change places.
RECT withinFrame(const RECT& r, const DeviceContext& context, const Stroke& stroke) {
    if (context.pen().data.lopnStyle != static_cast<UINT>(PS_INSIDEFRAME) || stroke.width() <= 1) return r;
    const int before = stroke.width() / 2;
    const int after = (stroke.width() - 1) / 2;
    return {r.left + before, r.top + before, r.right - after, r.bottom - after};
}

/// The same with right and bottom behind left and top.
RECT turnedRight(const RECT& r) {
    const RECT edges = ordered(inclusive(r));
    return {edges.left, edges.top, edges.right + 1, edges.bottom + 1};
}

/// Where a curve in a box may paint with a pen; and around what can be seen, where a curve may lie that
/// paints there.
RECT paintedArea(const RECT& box, const Stroke& stroke) {
    const int margin = 2 * stroke.width() + 1;
    return {box.left - margin, box.top - margin, box.right + margin, box.bottom + margin};
}

/// The parts of a curve, whose lines are short, that come near what can be seen; the whole of it where dashes
/// depend on what lies before.
std::vector<Figure> visibleParts(const std::vector<POINT>& outline, bool closed, const Stroke& stroke,
                                 const RECT& visible) {
    const RECT near = paintedArea(visible, stroke);
    const auto isNear = [&](POINT p) { return contains(near, p); };
    if (stroke.isDashed() || std::all_of(outline.begin(), outline.end(), isNear)) return {{outline, closed}};
    std::vector<POINT> points = outline;
    if (closed) points.push_back(points.front());
    std::vector<Figure> parts;
    for (auto first = std::find_if(points.begin(), points.end(), isNear); first != points.end();) {
        const auto last = std::find_if_not(first, points.end(), isNear);
        // The lines that come in and go out belong to the part.
        const auto begin = first == points.begin() ? first : first - 1;
        const auto end = last == points.end() ? last : last + 1;
        parts.push_back({{begin, end}, false});
        first = std::find_if(last, points.end(), isNear);
    }
    return parts;
}

/// What masks set pixels to when they don't look at what was there; true too when they leave all alone.
bool isPlain(const Masks* masks, std::optional<std::uint32_t>& value) {
    if (!masks || (masks->keep != 0 && *masks != leaveAlone)) return false;
    if (masks->keep == 0) value = masks->flip;
    return true;
}

bool covers(const Region& region, const RECT& r) {
    if (region.rectangles().size() != 1) return false;
    const RECT& all = region.rectangles().front();
    return r.left >= all.left && r.top >= all.top && r.right <= all.right && r.bottom <= all.bottom;
}

/// An ellipse or a rectangle with round corners in a plain brush and a thin pen, all of it to be seen: most
/// are. False for all others, of which nothing is painted.
bool paintPlainRound(DeviceContext& context, const RECT& box, SIZE corner) {
    const bool isRound = !isThin(corner) && !isThin(sizeOf(box));
    if (!isRound || context.surface->bitsPerPixel != 32 || !covers(context.drawable(), box)) return false;
    const bool hasPen = context.pen().data.lopnStyle != static_cast<UINT>(PS_NULL);
    const Masks ink = hasPen ? plainInk(context) : leaveAlone;
    if (hasPen && ink == leaveAlone) return false;
    const Painter brush(context, context.brush());
    std::optional<std::uint32_t> inside;
    std::optional<std::uint32_t> outline;
    if (!isPlain(brush.plainMasks(), inside) || !isPlain(&ink, outline)) return false;
    paintRound32(*context.surface, box, corner, inside, outline);
    return true;
}

/// What the brush fills of a round shape that is too thin for curves. It ends before the right and bottom
/// side; the others belong to it where a pen paints them at once or not at all, but not the gaps of a thin
/// line.
RECT insideOfSides(const RECT& r, const Stroke& stroke) {
    const int sides = stroke.paintsNothing() || stroke.paintsAtOnce() ? 0 : 1;
    return {r.left + sides, r.top + sides, r.right - 1, r.bottom - 1};
}

/// An ellipse or a rectangle with round corners.
void paintRound(DeviceContext& context, const RECT& box, SIZE corner) {
    if (paintPlainRound(context, box, corner)) return;
    Stroke stroke(context);
    const RECT inner = withinFrame(box, context, stroke);
    const RECT r = turnedRight(inner);
    const RECT visible = context.drawable().bounds();
    if (isEmpty(intersection(paintedArea(r, stroke), visible))) return;
    if (isEmpty(inner)) corner = {};
    const std::vector<POINT> outline = roundOutline(r, corner, context.state.arcDirection == AD_CLOCKWISE);
    const bool isRectangle = isThin(corner) || isThin(sizeOf(r));
    const Region inside = isRectangle ? Region(insideOfSides(r, stroke)) : roundRegion(r, corner, visible);
    const std::vector<Figure> outlines =
        isRectangle ? std::vector<Figure>{{outline, true}} : visibleParts(outline, true, stroke, visible);
    fillInside(context, inside, stroke, outlines);
    stroke.draw(outlines);
}

enum class ArcKind { Open, Chord, Pie };

/// An arc's call, in surface coordinates: as it is drawn, and before anything was rounded, which is how it is
/// collected in a path.
struct ArcCall {
    RECT box;
    ArcRays rays;
    ExactRect exactBox;
    ExactPoint exactStart;
    ExactPoint exactEnd;
};

ExactPoint exactOnSurface(const DeviceContext& context, POINT logical) {
    const ExactPoint p = context.state.mapping.toDeviceExact(logical);
    return {held(p.x + context.origin.x), held(p.y + context.origin.y)};
}

/// A side that changes places with the one opposite loses its fraction, as on the platform.
ExactRect exactCurveBox(const DeviceContext& context, const RECT& logical) {
    const ExactPoint a = exactOnSurface(context, {logical.left, logical.top});
    const ExactPoint b = exactOnSurface(context, {logical.right, logical.bottom});
    ExactRect box{a.x, a.y, b.x, b.y};
    if (box.left > box.right) box = {b.x, box.top, std::trunc(a.x), box.bottom};
    if (box.top > box.bottom) box = {box.left, b.y, box.right, std::trunc(a.y)};
    return box;
}

ArcCall arcCall(const DeviceContext& context, const RECT& logical, POINT start, POINT end) {
    return {curveBox(context, logical),
            {context.toSurface(start), context.toSurface(end), context.state.arcDirection == AD_CLOCKWISE},
            exactCurveBox(context, logical),
            exactOnSurface(context, start),
            exactOnSurface(context, end)};
}

/// The angles of an arc that is collected as curves, in its direction.
ArcAngles anglesOf(const ArcCall& arc) {
    constexpr double pi = std::numbers::pi;
    const ExactRect& r = arc.exactBox;
    const auto angle = [&](ExactPoint p) {
        const double x = 2.0 * (p.x - r.left) / (r.right - r.left) - 1;
        const double y = 2.0 * (p.y - r.top) / (r.bottom - r.top) - 1;
        return std::atan2(y, x);
    };
    ArcAngles angles{angle(arc.exactStart), angle(arc.exactEnd)};
    if (arc.rays.clockwise && angles.end <= angles.start) angles.end += 2 * pi;
    if (!arc.rays.clockwise && angles.end >= angles.start) angles.end -= 2 * pi;
    return angles;
}

std::vector<POINT> curvesOf(const ArcCall& arc) {
    const ExactRect& r = arc.exactBox;
    return arcCurves({r.left, r.top, r.right - 1, r.bottom - 1}, anglesOf(arc));
}

/// The pixels of an arc, and the box in which they lie.
struct DrawnArc {
    RECT box;
    std::vector<POINT> points;
};

DrawnArc drawnArc(const DeviceContext& context, const ArcCall& arc, const Stroke& stroke) {
    const RECT box = withinFrame(arc.box, context, stroke);
    if (isEmpty(box)) return {box, {}};
    return {box, arcOutline(box, arc.rays)};
}

void collectArc(DeviceContext& context, const ArcCall& arc, ArcKind kind) {
    const std::vector<POINT> curve = curvesOf(arc);
    Path& path = context.state.path;
    path.add(curve, PT_BEZIERTO, false);
    if (kind == ArcKind::Pie) {
        const ExactRect& r = arc.exactBox;
        const POINT centre{static_cast<LONG>((r.left + r.right - 1) / 2),
                           static_cast<LONG>((r.top + r.bottom - 1) / 2)};
        path.continueWith(centre, PT_LINETO);
    }
    if (kind != ArcKind::Open) path.closeFigure();
}

void paintArc(DeviceContext& context, const ArcCall& arc, ArcKind kind) {
    Stroke stroke(context);
    const RECT visible = context.drawable().bounds();
    if (isEmpty(intersection(paintedArea(arc.box, stroke), visible))) return;
    DrawnArc drawn = drawnArc(context, arc, stroke);
    if (drawn.points.empty()) return;
    if (kind == ArcKind::Pie) drawn.points.push_back(centreOf(drawn.box));
    // A single pixel is no line, however wide the pen; one on an axis comes twice, and is.
    if (drawn.points.size() < 2) return;
    if (kind == ArcKind::Open) {
        stroke.draw(visibleParts(drawn.points, false, stroke, visible));
    } else {
        drawFigures(context, {{drawn.points, true}});
    }
}

BOOL drawArc(HDC dc, const RECT& logical, POINT start, POINT end, ArcKind kind) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    constexpr RecordType records[] = {RecordType::Arc, RecordType::Chord, RecordType::Pie};
    const bool collects = context->state.path.isOpen();
    if (context->recorder && !collects)
        context->recorder->arc(records[static_cast<int>(kind)], logical, start, end);
    const ArcCall arc = arcCall(*context, logical, start, end);
    if (isEmpty(arc.box)) return TRUE_;
    if (collects) {
        collectArc(*context, arc, kind);
    } else {
        paintArc(*context, arc, kind);
    }
    return TRUE_;
}

BOOL drawRound(HDC dc, const RECT& logical, std::optional<SIZE> corner) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    const bool collects = context->state.path.isOpen();
    if (context->recorder && !collects) {
        if (corner) {
            context->recorder->roundRect(logical, *corner);
        } else {
            context->recorder->box(RecordType::Ellipse, logical);
        }
    }
    const RECT box = curveBox(*context, logical);
    if (isEmpty(box)) return TRUE_;
    const SIZE size = context->state.mapping.sizeOnDevice(corner ? *corner : sizeOf(logical));
    if (!collects) {
        paintRound(*context, box, size);
        return TRUE_;
    }
    RoundCurves curves = corner ? roundRectCurves(inclusive(box), size) : ellipseCurves(inclusive(box));
    // The way back has the same kinds of points in the same order.
    if (context->state.arcDirection == AD_CLOCKWISE) std::reverse(curves.points.begin(), curves.points.end());
    context->state.path.add(curves.points, curves.types);
    return TRUE_;
}

/// Splits points by the counts of the figures; nothing when a count is below `least`.
template <class Count>
std::vector<Figure> figuresOf(const DeviceContext& context, const POINT* points, const Count* counts,
                              std::size_t figures, Count least) {
    std::vector<Figure> result;
    for (std::size_t i = 0; i < figures; ++i) {
        if (counts[i] < least) return {};
        Figure figure;
        for (Count j = 0; j < counts[i]; ++j)
            figure.points.push_back(context.toSurface(*points++));
        result.push_back(std::move(figure));
    }
    return result;
}

std::vector<POINT> surfacePoints(const DeviceContext& context, const POINT* points, std::size_t count) {
    std::vector<POINT> result;
    result.reserve(count + 1);
    for (std::size_t i = 0; i < count; ++i)
        result.push_back(context.toSurface(points[i]));
    return result;
}

/// Curves that are not collected become lines in logical units.
void drawCurves(DeviceContext& context, const std::vector<POINT>& logical) {
    const std::vector<POINT> lines = linesOfBeziers(logical);
    Stroke(context).draw(surfacePoints(context, lines.data(), lines.size()), false);
}

bool arePointTypes(const BYTE* types, int count) {
    for (int i = 0; i < count; ++i) {
        const int kind = types[i] & ~PT_CLOSEFIGURE;
        if (kind == PT_MOVETO || kind == PT_LINETO) continue;
        if (kind != PT_BEZIERTO || i + 2 >= count || types[i] != PT_BEZIERTO || types[i + 1] != PT_BEZIERTO ||
            (types[i + 2] & ~PT_CLOSEFIGURE) != PT_BEZIERTO)
            return false;
        i += 2;
    }
    return true;
}

/// Adds the points of PolyDraw to a path. The last of them becomes the current position.
void collectDrawing(DeviceContext& context, Path& path, const POINT* points, const BYTE* types, int count) {
    POINT position = context.state.position;
    POINT figureStart = position;
    for (int i = 0; i < count; ++i) {
        const int kind = types[i] & ~PT_CLOSEFIGURE;
        if (kind == PT_MOVETO) {
            path.move();
            position = figureStart = points[i];
            continue;
        }
        const std::size_t taken = kind == PT_BEZIERTO ? 3 : 1;
        path.addTo(context.toSurface(position), surfacePoints(context, points + i, taken),
                   static_cast<BYTE>(kind));
        i += static_cast<int>(taken) - 1;
        position = points[i];
        if (types[i] & PT_CLOSEFIGURE) {
            path.closeFigure();
            position = figureStart;
        }
    }
    if (count > 0) context.state.position = points[count - 1];
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL Ellipse(HDC dc, int left, int top, int right, int bottom) {
    return drawRound(dc, {left, top, right, bottom}, {});
}

BOOL RoundRect(HDC dc, int left, int top, int right, int bottom, int width, int height) {
    if (width == 0 || height == 0) return Rectangle(dc, left, top, right, bottom);
    return drawRound(dc, {left, top, right, bottom}, SIZE{width, height});
}

BOOL Arc(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
    return drawArc(dc, {left, top, right, bottom}, {xStart, yStart}, {xEnd, yEnd}, ArcKind::Open);
}

BOOL Chord(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
    return drawArc(dc, {left, top, right, bottom}, {xStart, yStart}, {xEnd, yEnd}, ArcKind::Chord);
}

BOOL Pie(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
    return drawArc(dc, {left, top, right, bottom}, {xStart, yStart}, {xEnd, yEnd}, ArcKind::Pie);
}

BOOL ArcTo(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    const ArcCall arc = arcCall(*context, {left, top, right, bottom}, {xStart, yStart}, {xEnd, yEnd});
    if (isEmpty(arc.box)) return FALSE_;
    const POINT from = context->toSurface(context->state.position);
    if (context->state.path.isOpen()) {
        const std::vector<POINT> curve = curvesOf(arc);
        context->state.path.addTo(from, {curve.data(), 1}, PT_LINETO);
        context->state.path.addTo(from, {curve.data() + 1, curve.size() - 1}, PT_BEZIERTO);
    } else {
        if (context->recorder)
            context->recorder->arc(RecordType::ArcTo, {left, top, right, bottom}, {xStart, yStart},
                                   {xEnd, yEnd});
        Stroke stroke(*context);
        std::vector<POINT> points = drawnArc(*context, arc, stroke).points;
        if (points.empty()) return FALSE_;
        points.insert(points.begin(), from);
        stroke.draw(points, false);
    }
    const POINT end = pointAtAngle(arc.exactBox, anglesOf(arc).end);
    context->state.position =
        context->state.mapping.toLogical({end.x - context->origin.x, end.y - context->origin.y});
    return TRUE_;
}

BOOL PolyPolygon(HDC dc, const POINT* points, const INT* counts, int polygons) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !points || !counts || polygons < 1) return FALSE_;
    std::vector<Figure> figures =
        figuresOf(*context, points, counts, static_cast<std::size_t>(polygons), INT{2});
    if (figures.empty()) return FALSE_;
    for (Figure& figure : figures)
        figure.closed = true;
    if (context->state.path.isOpen()) {
        for (const Figure& figure : figures)
            context->state.path.add(figure.points, PT_LINETO, true);
        return TRUE_;
    }
    if (context->recorder) {
        const std::vector<DWORD> sizes(counts, counts + polygons);
        context->recorder->polyPoints(RecordType::PolyPolygon, points, sizes.data(), sizes.size());
    }
    drawFigures(*context, figures);
    return TRUE_;
}

BOOL PolyPolyline(HDC dc, const POINT* points, const DWORD* counts, DWORD lines) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !points || !counts || lines < 1) return FALSE_;
    const std::vector<Figure> figures = figuresOf(*context, points, counts, lines, DWORD{2});
    if (figures.empty()) return FALSE_;
    if (context->state.path.isOpen()) {
        for (const Figure& figure : figures)
            context->state.path.add(figure.points, PT_LINETO, false);
        return TRUE_;
    }
    if (context->recorder) context->recorder->polyPoints(RecordType::PolyPolyline, points, counts, lines);
    Stroke(*context).draw(figures);
    return TRUE_;
}

BOOL PolyBezier(HDC dc, const POINT* points, DWORD count) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !points || count < 4 || count % 3 != 1) return FALSE_;
    if (context->state.path.isOpen()) {
        context->state.path.add(surfacePoints(*context, points, count), PT_BEZIERTO, false);
        return TRUE_;
    }
    if (context->recorder) context->recorder->points(RecordType::PolyBezier, points, count);
    drawCurves(*context, {points, points + count});
    return TRUE_;
}

BOOL PolyBezierTo(HDC dc, const POINT* points, DWORD count) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !points || count < 3 || count % 3 != 0) return FALSE_;
    const POINT from = context->state.position;
    if (context->state.path.isOpen()) {
        context->state.path.addTo(context->toSurface(from), surfacePoints(*context, points, count),
                                  PT_BEZIERTO);
    } else {
        if (context->recorder) context->recorder->points(RecordType::PolyBezierTo, points, count);
        std::vector<POINT> curves{from};
        curves.insert(curves.end(), points, points + count);
        drawCurves(*context, curves);
    }
    context->state.position = points[count - 1];
    return TRUE_;
}

BOOL PolyDraw(HDC dc, const POINT* points, const BYTE* types, int count) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !points || !types || count < 0 || !arePointTypes(types, count)) return FALSE_;
    if (context->state.path.isOpen()) {
        collectDrawing(*context, context->state.path, points, types, count);
        return TRUE_;
    }
    if (context->recorder) context->recorder->polyDraw(points, types, static_cast<std::size_t>(count));
    Path drawing;
    collectDrawing(*context, drawing, points, types, count);
    Stroke(*context).draw(drawing.figures());
    return TRUE_;
}

} // namespace platform
