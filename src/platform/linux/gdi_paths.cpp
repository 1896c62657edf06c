// Paths of a device context.

#include "platform/gdi.h"
#include "platform/linux/lines.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/shapes.h"
#include "platform/linux/widened_path.h"

namespace platform::driver {

namespace {

/// Regions are made whole, but within reason: beyond, no surface has pixels.
constexpr RECT everywhere{-0x8000, -0x8000, 0x8000, 0x8000};

/// The context with a path whose bracket is closed, or null.
DeviceContext* withPath(HDC dc) {
    DeviceContext* context = find<DeviceContext>(dc);
    return context && context->state.path.isReady() ? context : nullptr;
}

/// The path, which the context then has no more.
Path takePath(DeviceContext& context) {
    Path path = std::move(context.state.path);
    context.state.path.drop();
    return path;
}

std::vector<POINT> devicePoints(const DeviceContext& context, const Path& path) {
    std::vector<POINT> points = path.points();
    for (POINT& p : points)
        p = {p.x - context.origin.x, p.y - context.origin.y};
    return points;
}

void record(DeviceContext& context, RecordType type) {
    if (context.recorder)
        context.recorder->path(type, devicePoints(context, context.state.path), context.state.path.types());
}

/// The inside in device coordinates.
Region insideOf(const DeviceContext& context, const Path& path) {
    const std::vector<Figure> figures = path.figures();
    Region region = figuresRegion(figures, context.state.polyFillMode, everywhere);
    region.translate(-context.origin.x, -context.origin.y);
    return region;
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL BeginPath(HDC dc) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    if (!context->state.path.isOpen()) context->state.path.begin();
    return TRUE_;
}

BOOL EndPath(HDC dc) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !context->state.path.isOpen()) return FALSE_;
    context->state.path.end();
    return TRUE_;
}

BOOL AbortPath(HDC dc) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    context->state.path.drop();
    return TRUE_;
}

BOOL CloseFigure(HDC dc) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !context->state.path.isOpen()) return FALSE_;
    context->state.path.closeFigure();
    return TRUE_;
}

BOOL StrokePath(HDC dc) {
    DeviceContext* context = withPath(dc);
    if (!context) return FALSE_;
    record(*context, RecordType::StrokePath);
    Stroke(*context).draw(takePath(*context).figures());
    return TRUE_;
}

BOOL FillPath(HDC dc) {
    DeviceContext* context = withPath(dc);
    if (!context) return FALSE_;
    record(*context, RecordType::FillPath);
    fillFigures(*context, takePath(*context).figures());
    return TRUE_;
}

BOOL StrokeAndFillPath(HDC dc) {
    DeviceContext* context = withPath(dc);
    if (!context) return FALSE_;
    record(*context, RecordType::StrokeAndFillPath);
    std::vector<Figure> figures = takePath(*context).figures();
    for (Figure& figure : figures)
        figure.closed = true;
    drawFigures(*context, figures);
    return TRUE_;
}

BOOL FlattenPath(HDC dc) {
    DeviceContext* context = withPath(dc);
    if (!context) return FALSE_;
    context->state.path.flatten();
    return TRUE_;
}

BOOL WidenPath(HDC dc) {
    DeviceContext* context = withPath(dc);
    if (!context) return FALSE_;
    const Stroke stroke(*context);
    if (stroke.paintsNothing()) return FALSE_;
    context->state.path.replace(widened(context->state.path.figures(), stroke.shape()));
    return TRUE_;
}

HRGN PathToRegion(HDC dc) {
    DeviceContext* context = withPath(dc);
    if (!context || context->state.path.points().empty()) return {};
    return addRegion(insideOf(*context, takePath(*context)));
}

BOOL SelectClipPath(HDC dc, int mode) {
    DeviceContext* context = withPath(dc);
    if (!context) return FALSE_;
    if (context->state.path.points().empty()) {
        takePath(*context);
        return FALSE_;
    }
    const HRGN region = addRegion(insideOf(*context, takePath(*context)));
    const bool done = ExtSelectClipRgn(dc, region, mode) != REGION_ERROR;
    DeleteObject(region);
    return done;
}

int GetPath(HDC dc, POINT* points, BYTE* types, int count) {
    const DeviceContext* context = withPath(dc);
    if (!context) return -1;
    const Path& path = context->state.path;
    const int size = static_cast<int>(path.points().size());
    if (count == 0) return size;
    if (count < size || !points || !types) return -1;
    const std::vector<POINT> device = devicePoints(*context, path);
    for (int i = 0; i < size; ++i) {
        const std::size_t index = static_cast<std::size_t>(i);
        points[i] = context->state.mapping.toLogical(device[index]);
        types[i] = path.types()[index];
    }
    return size;
}

} // namespace platform
