// Coordinate systems: origins, extents and mapping modes.

#include "platform/gdi.h"
#include "platform/linux/device_context.h"
#include "platform/linux/metafile_recorder.h"

#include <algorithm>
#include <cmath>

namespace platform::driver {

namespace {

BOOL readOrigin(HDC dc, POINT Mapping::*origin, POINT* value) {
    const DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !value) return FALSE_;
    *value = context->state.mapping.*origin;
    return TRUE_;
}

/// How many logical units a mode has in how many millimetres of the device.
struct Metric {
    int mode;
    int units;
    int tenthsOfMillimetres;
};

constexpr Metric metrics[] = {
    {MM_LOMETRIC, 10, 10},     {MM_HIMETRIC, 100, 10}, {MM_LOENGLISH, 100, 254},
    {MM_HIENGLISH, 1000, 254}, {MM_TWIPS, 1440, 254},  {MM_ISOTROPIC, 10, 10},
};

int rounded(double value) {
    return boundedCoordinate(static_cast<std::int64_t>(std::floor(value + 0.5)));
}

/// The device as one window: its size in the mode's units against its pixels, upwards.
void setMetric(HDC dc, Mapping& mapping, const Metric& metric) {
    const auto units = [&](int millimetres) {
        return rounded(millimetres * 10.0 * metric.units / metric.tenthsOfMillimetres);
    };
    mapping.windowExtent = {units(GetDeviceCaps(dc, HORZSIZE)), units(GetDeviceCaps(dc, VERTSIZE))};
    mapping.viewportExtent = {GetDeviceCaps(dc, HORZRES), -GetDeviceCaps(dc, VERTRES)};
}

/// Shrinks one of the viewport's extents until a unit is as long on both axes of the device.
void makeIsotropic(HDC dc, Mapping& mapping) {
    SIZE& viewport = mapping.viewportExtent;
    const auto unit = [&](LONG extent, LONG window, int size, int pixels) {
        return std::abs(static_cast<double>(extent) * size / pixels / window);
    };
    const double x =
        unit(viewport.cx, mapping.windowExtent.cx, GetDeviceCaps(dc, HORZSIZE), GetDeviceCaps(dc, HORZRES));
    const double y =
        unit(viewport.cy, mapping.windowExtent.cy, GetDeviceCaps(dc, VERTSIZE), GetDeviceCaps(dc, VERTRES));
    const auto shrunk = [](LONG extent, double factor) {
        const int result = rounded(extent * factor);
        return result != 0 ? result : extent < 0 ? -1 : 1;
    };
    if (x > y) viewport.cx = shrunk(viewport.cx, y / x);
    if (y > x) viewport.cy = shrunk(viewport.cy, x / y);
}

/// Sets or moves one of the two origins and tells what it was.
BOOL changeOrigin(HDC dc, POINT Mapping::*origin, POINT value, bool relative, POINT* previous) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    Mapping& mapping = context->state.mapping;
    POINT& current = mapping.*origin;
    if (previous) *previous = current;
    if (relative) {
        value.x = boundedCoordinate(std::int64_t{value.x} + current.x);
        value.y = boundedCoordinate(std::int64_t{value.y} + current.y);
    }
    current = value;
    if (mapping.mode == MM_ISOTROPIC) {
        const Mapping before = mapping;
        makeIsotropic(dc, mapping); // rounding may shrink it once more
        if (context->recorder) context->recorder->extentsFitted(before);
    }
    return TRUE_;
}

bool hasOwnExtents(const Mapping& mapping) {
    return mapping.mode == MM_ISOTROPIC || mapping.mode == MM_ANISOTROPIC;
}

BOOL changeExtent(HDC dc, SIZE Mapping::*extent, SIZE value, SIZE* previous) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    Mapping& mapping = context->state.mapping;
    if (previous) *previous = mapping.*extent;
    if (!hasOwnExtents(mapping)) return TRUE_;
    if (value.cx == 0 || value.cy == 0) return FALSE_;
    const Mapping before = mapping;
    mapping.*extent = value;
    if (mapping.mode == MM_ISOTROPIC) makeIsotropic(dc, mapping);
    const bool isViewport = extent == &Mapping::viewportExtent;
    if (context->recorder) context->recorder->extentsFitted(before, isViewport ? &value : nullptr);
    return TRUE_;
}

BOOL readExtent(HDC dc, SIZE Mapping::*extent, SIZE* value) {
    const DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !value) return FALSE_;
    *value = context->state.mapping.*extent;
    return TRUE_;
}

/// A fraction of an extent, cut to a whole number that is not 0.
int scaled(LONG extent, int multiplier, int divisor) {
    const std::int64_t result = std::int64_t{extent} * multiplier / divisor;
    return result == 0 ? 1 : boundedCoordinate(result);
}

struct Fraction {
    int multiplier;
    int divisor;
    bool isUsable() const { return multiplier != 0 && divisor != 0; }
};

BOOL scaleExtent(HDC dc, SIZE Mapping::*extent, Fraction x, Fraction y, SIZE* previous) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context) return FALSE_;
    Mapping& mapping = context->state.mapping;
    if (previous) *previous = mapping.*extent;
    if (!hasOwnExtents(mapping)) return TRUE_;
    if (!x.isUsable() || !y.isUsable()) return FALSE_;
    const Mapping before = mapping;
    SIZE& value = mapping.*extent;
    value = {scaled(value.cx, x.multiplier, x.divisor), scaled(value.cy, y.multiplier, y.divisor)};
    const SIZE asked = value;
    if (mapping.mode == MM_ISOTROPIC) makeIsotropic(dc, mapping);
    const bool isViewport = extent == &Mapping::viewportExtent;
    if (context->recorder) context->recorder->extentsFitted(before, isViewport ? &asked : nullptr);
    return TRUE_;
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL SetWindowOrgEx(HDC dc, int x, int y, POINT* previous) {
    return changeOrigin(dc, &Mapping::windowOrigin, {x, y}, false, previous);
}
BOOL GetWindowOrgEx(HDC dc, POINT* origin) {
    return readOrigin(dc, &Mapping::windowOrigin, origin);
}
BOOL OffsetWindowOrgEx(HDC dc, int x, int y, POINT* previous) {
    return changeOrigin(dc, &Mapping::windowOrigin, {x, y}, true, previous);
}

BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* previous) {
    return changeOrigin(dc, &Mapping::viewportOrigin, {x, y}, false, previous);
}
BOOL GetViewportOrgEx(HDC dc, POINT* origin) {
    return readOrigin(dc, &Mapping::viewportOrigin, origin);
}
BOOL OffsetViewportOrgEx(HDC dc, int x, int y, POINT* previous) {
    return changeOrigin(dc, &Mapping::viewportOrigin, {x, y}, true, previous);
}

BOOL DPtoLP(HDC dc, POINT* points, int count) {
    const DeviceContext* context = find<DeviceContext>(dc);
    if (!context || (!points && count > 0)) return FALSE_;
    for (int i = 0; i < count; ++i)
        points[i] = context->state.mapping.toLogical(points[i]);
    return TRUE_;
}

BOOL LPtoDP(HDC dc, POINT* points, int count) {
    const DeviceContext* context = find<DeviceContext>(dc);
    if (!context || (!points && count > 0)) return FALSE_;
    for (int i = 0; i < count; ++i)
        points[i] = context->state.mapping.toDevice(points[i]);
    return TRUE_;
}

int SetMapMode(HDC dc, int mode) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || mode < MM_TEXT || mode > MM_ANISOTROPIC) return 0;
    Mapping& mapping = context->state.mapping;
    const int previous = mapping.mode;
    if (mode == previous && hasOwnExtents(mapping)) return previous;
    mapping.mode = mode;
    if (mode == MM_TEXT) mapping.windowExtent = mapping.viewportExtent = {1, 1};
    for (const Metric& metric : metrics)
        if (metric.mode == mode) setMetric(dc, mapping, metric);
    return previous;
}

int GetMapMode(HDC dc) {
    const DeviceContext* context = find<DeviceContext>(dc);
    return context ? context->state.mapping.mode : 0;
}

BOOL SetWindowExtEx(HDC dc, int width, int height, SIZE* previous) {
    return changeExtent(dc, &Mapping::windowExtent, {width, height}, previous);
}
BOOL GetWindowExtEx(HDC dc, SIZE* extent) {
    return readExtent(dc, &Mapping::windowExtent, extent);
}

BOOL SetViewportExtEx(HDC dc, int width, int height, SIZE* previous) {
    return changeExtent(dc, &Mapping::viewportExtent, {width, height}, previous);
}
BOOL GetViewportExtEx(HDC dc, SIZE* extent) {
    return readExtent(dc, &Mapping::viewportExtent, extent);
}

BOOL ScaleWindowExtEx(HDC dc, int multiplierX, int divisorX, int multiplierY, int divisorY, SIZE* previous) {
    return scaleExtent(dc, &Mapping::windowExtent, {multiplierX, divisorX}, {multiplierY, divisorY},
                       previous);
}
BOOL ScaleViewportExtEx(HDC dc, int multiplierX, int divisorX, int multiplierY, int divisorY,
                        SIZE* previous) {
    return scaleExtent(dc, &Mapping::viewportExtent, {multiplierX, divisorX}, {multiplierY, divisorY},
                       previous);
}

} // namespace platform
