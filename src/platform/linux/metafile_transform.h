#pragma once
// From the logical units of a metafile's records to the pixels that it is played on.

#include "platform/linux/metafile_records.h"

namespace platform::driver {

/// A point between pixels.
struct RealPoint {
    double x = 0;
    double y = 0;
};

/// The nearest whole number, held where a drawing from outside can't make shapes beyond all measure.
int roundedCoordinate(double value);

/// x' = m11 x + m21 y + dx, y' = m12 x + m22 y + dy.
struct Transform {
    double m11 = 1;
    double m12 = 0;
    double m21 = 0;
    double m22 = 1;
    double dx = 0;
    double dy = 0;

    static Transform of(const FileTransform& t) { return {t.m11, t.m12, t.m21, t.m22, t.dx, t.dy}; }
    static Transform scale(double x, double y) { return {x, 0, 0, y, 0, 0}; }
    static Transform move(double x, double y) { return {1, 0, 0, 1, x, y}; }

    RealPoint apply(RealPoint p) const { return {m11 * p.x + m21 * p.y + dx, m12 * p.x + m22 * p.y + dy}; }

    /// First this one, then the other.
    Transform then(const Transform& next) const;

    /// True when rectangles stay upright.
    bool isUpright() const { return m12 == 0 && m21 == 0; }

    /// The lengths that one unit along each axis has afterwards.
    double scaleX() const;
    double scaleY() const;
};

/// The coordinate system that the records of a metafile set up.
struct MetafileMapping {
    int mode = MM_TEXT;
    RealPoint windowOrigin;
    RealPoint windowExtent{1, 1};
    RealPoint viewportOrigin;
    RealPoint viewportExtent{1, 1};
    Transform world;

    bool hasOwnExtents() const { return mode == MM_ISOTROPIC || mode == MM_ANISOTROPIC; }

    /// Takes the extents of a mode on a device of so many pixels and millimetres.
    void setMode(int newMode, SIZE pixels, SIZE millimetres);

    /// Makes the scales of both axes the same in MM_ISOTROPIC by shrinking one extent of the viewport, to
    /// whole pixels.
    void keepAspect(SIZE pixels, SIZE millimetres);

    /// From logical units to the recording device's pixels.
    Transform toDevice() const;
};

} // namespace platform::driver
