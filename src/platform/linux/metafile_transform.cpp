#include "platform/linux/metafile_transform.h"

#include <algorithm>
#include <cmath>

namespace platform::driver {

namespace {

/// Logical units to a millimetre of the modes with a fixed scale.
double unitsPerMillimetre(int mode) {
    constexpr double millimetresPerInch = 25.4;
    switch (mode) {
    case MM_LOMETRIC:
        return 10;
    case MM_HIMETRIC:
        return 100;
    case MM_LOENGLISH:
        return 100 / millimetresPerInch;
    case MM_HIENGLISH:
        return 1000 / millimetresPerInch;
    case MM_TWIPS:
        return 1440 / millimetresPerInch;
    default:
        return 10;
    }
}

/// An extent in whole pixels, one at least.
double shrunk(double extent, double factor) {
    const double whole = std::floor(extent * factor + 0.5);
    return whole != 0 ? whole : std::copysign(1, extent);
}

} // namespace

int roundedCoordinate(double value) {
    constexpr double far = 1 << 15;
    if (std::isnan(value)) return 0;
    return static_cast<int>(std::floor(std::clamp(value, -far, far) + 0.5));
}

Transform Transform::then(const Transform& next) const {
    return {m11 * next.m11 + m12 * next.m21,         m11 * next.m12 + m12 * next.m22,
            m21 * next.m11 + m22 * next.m21,         m21 * next.m12 + m22 * next.m22,
            dx * next.m11 + dy * next.m21 + next.dx, dx * next.m12 + dy * next.m22 + next.dy};
}

double Transform::scaleX() const {
    return std::hypot(m11, m12);
}

double Transform::scaleY() const {
    return std::hypot(m21, m22);
}

void MetafileMapping::setMode(int newMode, SIZE pixels, SIZE millimetres) {
    if (newMode < MM_TEXT || newMode > MM_ANISOTROPIC) return;
    mode = newMode;
    if (mode == MM_TEXT) {
        windowExtent = viewportExtent = {1, 1};
    } else if (mode != MM_ANISOTROPIC) {
        const double units = unitsPerMillimetre(mode);
        windowExtent = {millimetres.cx * units, millimetres.cy * units};
        viewportExtent = {static_cast<double>(pixels.cx), -static_cast<double>(pixels.cy)};
        if (mode == MM_ISOTROPIC) viewportExtent.y = -viewportExtent.y;
    }
}

void MetafileMapping::keepAspect(SIZE pixels, SIZE millimetres) {
    if (mode != MM_ISOTROPIC) return;
    const double pixelWidth = static_cast<double>(millimetres.cx) / pixels.cx;
    const double pixelHeight = static_cast<double>(millimetres.cy) / pixels.cy;
    const double scaleX = std::fabs(viewportExtent.x * pixelWidth / windowExtent.x);
    const double scaleY = std::fabs(viewportExtent.y * pixelHeight / windowExtent.y);
    if (scaleX > scaleY) viewportExtent.x = shrunk(viewportExtent.x, scaleY / scaleX);
    if (scaleY > scaleX) viewportExtent.y = shrunk(viewportExtent.y, scaleX / scaleY);
}

Transform MetafileMapping::toDevice() const {
    return world.then(Transform::move(-windowOrigin.x, -windowOrigin.y))
        .then(Transform::scale(viewportExtent.x / windowExtent.x, viewportExtent.y / windowExtent.y))
        .then(Transform::move(viewportOrigin.x, viewportOrigin.y));
}

} // namespace platform::driver
