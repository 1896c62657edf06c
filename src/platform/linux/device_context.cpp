#include "platform/linux/device_context.h"

#include "platform/gdi.h"
#include "platform/linux/metafile_recorder.h"

#include <algorithm>
#include <cmath>

namespace platform::driver {

namespace {

int rounded(double value) {
    constexpr auto limit = static_cast<double>(coordinateLimit);
    return boundedCoordinate(static_cast<std::int64_t>(std::floor(std::clamp(value, -limit, limit) + 0.5)));
}

/// One axis of a mapping at work.
struct Axis : MappingAxis {
    explicit Axis(const MappingAxis& axis) : MappingAxis(axis) {}
    Axis(LONG windowOrigin, LONG windowExtent, LONG viewportOrigin, LONG viewportExtent) {
        const double exact = static_cast<double>(viewportExtent) / windowExtent;
        scale = static_cast<float>(exact);
        offset = static_cast<float>(viewportOrigin - exact * windowOrigin);
    }

    /// The way back, by the determinant of both axes' matrix.
    Axis inverse(const Axis& other) const {
        const float determinant = scale * other.scale;
        Axis result = *this;
        result.scale = other.scale / determinant;
        result.offset = -offset * result.scale;
        return result;
    }

    AxisScale scales(const Axis& other) const { return {scale, inverse(other).scale}; }

    double exact(LONG value) const { return static_cast<double>(value) * scale + offset; }
    int apply(LONG value) const { return rounded(exact(value)); }
    /// Of a length, cut to whole pixels.
    int cutLength(LONG value) const {
        return boundedCoordinate(static_cast<std::int64_t>(std::fabs(static_cast<double>(value) * scale)));
    }
};

Axis horizontal(const Mapping& m) {
    if (m.axes) return Axis(m.axes->across);
    return {m.windowOrigin.x, m.windowExtent.cx, m.viewportOrigin.x, m.viewportExtent.cx};
}

Axis vertical(const Mapping& m) {
    if (m.axes) return Axis(m.axes->down);
    return {m.windowOrigin.y, m.windowExtent.cy, m.viewportOrigin.y, m.viewportExtent.cy};
}

template <class Kind>
void retain(Handle<Kind> handle) {
    if (Object* object = findObject(handle.value)) retainObject(*object);
}

template <class Kind>
void release(Handle<Kind> handle) {
    if (Object* object = findObject(handle.value)) releaseObject(*object);
}

void retainSelection(const ContextState& state) {
    retain(state.brush);
    retain(state.pen);
    retain(state.font);
}

void releaseSelection(const ContextState& state) {
    release(state.brush);
    release(state.pen);
    release(state.font);
}

} // namespace

RECT ordered(RECT r) {
    if (r.left > r.right) std::swap(r.left, r.right);
    if (r.top > r.bottom) std::swap(r.top, r.bottom);
    return r;
}

POINT Mapping::scaled(POINT p) const {
    return {horizontal(*this).apply(p.x), vertical(*this).apply(p.y)};
}

MappingAxes Mapping::toAxes() const {
    return {horizontal(*this), vertical(*this)};
}

ExactPoint Mapping::toDeviceExact(POINT p) const {
    return {horizontal(*this).exact(p.x), vertical(*this).exact(p.y)};
}

POINT Mapping::toLogical(POINT p) const {
    if (isUnscaled())
        return {moved(p.x, viewportOrigin.x, windowOrigin.x), moved(p.y, viewportOrigin.y, windowOrigin.y)};
    const Axis x = horizontal(*this);
    const Axis y = vertical(*this);
    return {x.inverse(y).apply(p.x), y.inverse(x).apply(p.y)};
}

AxisScale Mapping::across() const {
    return isUnscaled() ? AxisScale() : horizontal(*this).scales(vertical(*this));
}

AxisScale Mapping::down() const {
    return isUnscaled() ? AxisScale() : vertical(*this).scales(horizontal(*this));
}

int Mapping::heightOnDevice(int logical) const {
    return vertical(*this).cutLength(logical);
}

SIZE Mapping::sizeOnDevice(SIZE logical) const {
    const POINT start = toDevice(POINT{});
    const POINT end = toDevice(POINT{logical.cx, logical.cy});
    return {std::abs(end.x - start.x), std::abs(end.y - start.y)};
}

RECT Mapping::toDevice(const RECT& r) const {
    const POINT topLeft = toDevice(POINT{r.left, r.top});
    const POINT bottomRight = toDevice(POINT{r.right, r.bottom});
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

DeviceContext::DeviceContext() : Object(objectKind) {}

DeviceContext::~DeviceContext() {
    for (const ContextState& s : saved)
        releaseSelection(s);
    releaseSelection(state);
    release(palette);
    if (Bitmap* selected = selectedBitmap()) {
        selected->owner = 0;
        releaseObject(*selected);
    }
}

RECT DeviceContext::scaledToSurface(const RECT& r) const {
    const POINT topLeft = toSurface(POINT{r.left, r.top});
    const POINT bottomRight = toSurface(POINT{r.right, r.bottom});
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

void DeviceContext::findDrawable() {
    needPixels();
    drawable_ = recorder ? Region() : visible;
    if (state.clip) {
        Region clip = *state.clip;
        clip.translate(origin.x, origin.y);
        drawable_ = drawable_.intersected(clip);
    }
    drawableKnown_ = true;
}

std::unique_ptr<DeviceContext> makeContext() {
    auto context = std::make_unique<DeviceContext>();
    context->state.brush = stock<BrushKind>(WHITE_BRUSH);
    context->state.pen = stock<PenKind>(BLACK_PEN);
    context->state.font = stock<FontKind>(SYSTEM_FONT);
    retainSelection(context->state);
    context->palette = stock<PaletteKind>(DEFAULT_PALETTE);
    retain(context->palette);
    return context;
}

std::unique_ptr<DeviceContext> makeContextOver(Bitmap& bitmap, const DeviceContext& like) {
    auto context = makeContext();
    release(context->palette);
    context->palette = like.palette;
    retain(context->palette);
    context->surface = &bitmap.surface;
    context->visible = Region(RECT{0, 0, bitmap.surface.width, bitmap.surface.height});
    return context;
}

HDC createWindowDC(Surface& surface, POINT origin, Region visible) {
    auto context = makeContext();
    context->isMemory = false;
    context->surface = &surface;
    context->origin = origin;
    visible.cutTo({0, 0, surface.width, surface.height});
    context->visible = std::move(visible);
    return HDC(addObject(std::move(context)));
}

void makePixelsLater(HDC dc, std::function<void()> make) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return;
    context->pixelMaker = std::move(make);
    context->clipChanged(); // what asks for the area to draw on needs the pixels
}

bool releaseWindowDC(HDC dc) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || context->isMemory || context->recorder) return false;
    deleteObject(*context);
    return true;
}

} // namespace platform::driver

namespace platform {

using namespace driver;

HDC CreateCompatibleDC(HDC like) {
    if (like && !find<DeviceContext>(like)) return {};
    auto context = makeContext();
    context->bitmap = stock<BitmapKind>(defaultBitmapIndex);
    Bitmap* bitmap = context->selectedBitmap();
    retainObject(*bitmap);
    context->surface = &bitmap->surface;
    context->visible = Region(RECT{0, 0, bitmap->surface.width, bitmap->surface.height});
    return HDC(addObject(std::move(context)));
}

BOOL DeleteDC(HDC dc) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !context->isMemory) return FALSE_;
    deleteObject(*context);
    return TRUE_;
}

int SaveDC(HDC dc) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return 0;
    retainSelection(context->state);
    context->saved.push_back(context->state);
    return static_cast<int>(context->saved.size());
}

BOOL RestoreDC(HDC dc, int depth) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    const int saved = static_cast<int>(context->saved.size());
    if (depth < 0) depth = depth < -saved ? 0 : saved + depth + 1;
    if (depth < 1 || depth > saved) return FALSE_;
    while (static_cast<int>(context->saved.size()) >= depth) {
        releaseSelection(context->state);
        context->state = std::move(context->saved.back());
        context->saved.pop_back();
    }
    context->clipChanged();
    return TRUE_;
}

} // namespace platform
