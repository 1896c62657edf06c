#include "platform/linux/device_context.h"

#include "platform/gdi.h"
#include "platform/linux/metafile_recorder.h"

#include <algorithm>
#include <cmath>

namespace platform::driver {

namespace {

/// The platform's own bound on device coordinates: 27 bits and a sign.
constexpr std::int64_t coordinateLimit = (1 << 27) - 1;

int moved(LONG value, LONG fromOrigin, LONG toOrigin) {
    return boundedCoordinate(std::int64_t{value} - fromOrigin + toOrigin);
}

int rounded(double value) {
    constexpr auto limit = static_cast<double>(coordinateLimit);
    return boundedCoordinate(static_cast<std::int64_t>(std::floor(std::clamp(value, -limit, limit) + 0.5)));
}

/// One axis of a mapping: device = logical * scale + offset.
struct Axis {
    double scale;
    double offset;

    Axis(LONG windowOrigin, LONG windowExtent, LONG viewportOrigin, LONG viewportExtent)
        : scale(static_cast<double>(viewportExtent) / windowExtent),
          offset(viewportOrigin - scale * windowOrigin) {}

    int toDevice(LONG logical) const { return rounded(logical * scale + offset); }
};

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

int boundedCoordinate(std::int64_t value) {
    return static_cast<int>(std::clamp(value, -coordinateLimit, coordinateLimit));
}

RECT ordered(RECT r) {
    if (r.left > r.right) std::swap(r.left, r.right);
    if (r.top > r.bottom) std::swap(r.top, r.bottom);
    return r;
}

RECT intersection(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

bool isEmpty(const RECT& r) {
    return r.left >= r.right || r.top >= r.bottom;
}

POINT Mapping::toDevice(POINT p) const {
    if (isUnscaled())
        return {moved(p.x, windowOrigin.x, viewportOrigin.x), moved(p.y, windowOrigin.y, viewportOrigin.y)};
    const Axis x(windowOrigin.x, windowExtent.cx, viewportOrigin.x, viewportExtent.cx);
    const Axis y(windowOrigin.y, windowExtent.cy, viewportOrigin.y, viewportExtent.cy);
    return {x.toDevice(p.x), y.toDevice(p.y)};
}

POINT Mapping::toLogical(POINT p) const {
    if (isUnscaled())
        return {moved(p.x, viewportOrigin.x, windowOrigin.x), moved(p.y, viewportOrigin.y, windowOrigin.y)};
    const Axis x(windowOrigin.x, windowExtent.cx, viewportOrigin.x, viewportExtent.cx);
    const Axis y(windowOrigin.y, windowExtent.cy, viewportOrigin.y, viewportExtent.cy);
    // The inverse of the matrix of both axes, by its determinant: which half rounds up depends on it.
    const double determinant = x.scale * y.scale;
    const double backX = y.scale / determinant;
    const double backY = x.scale / determinant;
    return {rounded(p.x * backX - x.offset * y.scale / determinant),
            rounded(p.y * backY - x.scale * y.offset / determinant)};
}

int Mapping::widthOnDevice(int logical) const {
    return std::abs(rounded(static_cast<double>(logical) * viewportExtent.cx / windowExtent.cx));
}

int Mapping::heightOnDevice(int logical) const {
    return std::abs(rounded(static_cast<double>(logical) * viewportExtent.cy / windowExtent.cy));
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

const Region& DeviceContext::drawable() {
    if (!drawableKnown_) {
        needPixels();
        drawable_ = recorder ? Region() : visible;
        if (state.clip) {
            Region clip = *state.clip;
            clip.translate(origin.x, origin.y);
            drawable_ = drawable_.intersected(clip);
        }
        drawableKnown_ = true;
    }
    return drawable_;
}

POINT DeviceContext::deviceToSurface(POINT p) const {
    return {boundedCoordinate(std::int64_t{p.x} + origin.x), boundedCoordinate(std::int64_t{p.y} + origin.y)};
}

POINT DeviceContext::toSurface(POINT logical) const {
    return deviceToSurface(state.mapping.toDevice(logical));
}

RECT DeviceContext::toSurface(const RECT& r) const {
    const POINT topLeft = toSurface(POINT{r.left, r.top});
    const POINT bottomRight = toSurface(POINT{r.right, r.bottom});
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
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

HDC createWindowDC(Surface& surface, POINT origin, const Region& visible) {
    auto context = makeContext();
    context->isMemory = false;
    context->surface = &surface;
    context->origin = origin;
    context->visible = visible.intersected(Region(RECT{0, 0, surface.width, surface.height}));
    return HDC(addObject(std::move(context)));
}

void makePixelsLater(HDC dc, std::function<void()> make) {
    if (DeviceContext* context = find<DeviceContext>(dc)) context->pixelMaker = std::move(make);
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
