#pragma once
// A device context: the surface it draws on, the clipping, and the state that SaveDC keeps.

#include "platform/linux/gdi_objects.h"
#include "platform/linux/path.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

namespace platform::driver {

/// The platform's own bound on device coordinates: 27 bits and a sign.
inline constexpr std::int64_t coordinateLimit = (1 << 27) - 1;

/// The sum held within the range of a coordinate, far from its ends, so that differences of two never
/// overflow.
constexpr int boundedCoordinate(std::int64_t value) {
    if (value >= -coordinateLimit && value <= coordinateLimit) [[likely]]
        return static_cast<int>(value);
    return static_cast<int>(value < 0 ? -coordinateLimit : coordinateLimit);
}

constexpr RECT intersection(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

constexpr bool isEmpty(const RECT& r) {
    return r.left >= r.right || r.top >= r.bottom;
}

/// The rectangle with left <= right and top <= bottom.
RECT ordered(RECT r);

/// A point that lies between pixels too.
struct ExactPoint {
    double x = 0;
    double y = 0;
};

/// What a length along one axis is multiplied with; negative where the axis points against that of the
/// device.
struct AxisScale {
    double toDevice = 1;
    double toLogical = 1;
};

/// One axis of a mapping: device = logical * scale + offset. Scale and offset are held in single precision,
/// as the platform holds them: it decides which halves round up.
struct MappingAxis {
    float scale = 1;
    float offset = 0;
};

/// Both axes of a mapping that is told by them alone.
struct MappingAxes {
    MappingAxis across;
    MappingAxis down;
};

/// How logical coordinates become device coordinates.
struct Mapping {
    int mode = MM_TEXT;
    POINT windowOrigin;
    POINT viewportOrigin;
    SIZE windowExtent{1, 1};
    SIZE viewportExtent{1, 1};
    std::optional<MappingAxes> axes; ///< In place of origins and extents

    /// The mapping of the records of a metafile that is played.
    static Mapping of(const MappingAxes& axes) {
        Mapping result;
        result.viewportExtent = {0, 0}; // no unit is taken for a pixel
        result.axes = axes;
        return result;
    }

    /// True when a logical unit is a pixel, to the right and down.
    bool isUnscaled() const { return windowExtent == viewportExtent; }
    POINT toDevice(POINT p) const {
        if (!isUnscaled()) return scaled(p);
        return {moved(p.x, windowOrigin.x, viewportOrigin.x), moved(p.y, windowOrigin.y, viewportOrigin.y)};
    }
    MappingAxes toAxes() const;
    /// Before it is rounded.
    ExactPoint toDeviceExact(POINT logical) const;
    POINT toLogical(POINT device) const;
    /// The four edges apart, so that right may come out left of left; see `ordered`.
    RECT toDevice(const RECT& logical) const;
    AxisScale across() const;
    AxisScale down() const;
    /// Pixels of a length along the vertical axis, cut to whole ones; not negative.
    int heightOnDevice(int logical) const;
    /// Pixels of a size that is measured from the logical origin: each end is rounded by itself, so the
    /// origins count. Not negative.
    SIZE sizeOnDevice(SIZE logical) const;

private:
    static int moved(LONG value, LONG fromOrigin, LONG toOrigin) {
        return boundedCoordinate(std::int64_t{value} - fromOrigin + toOrigin);
    }
    POINT scaled(POINT p) const;
};

/// Everything that SaveDC pushes and RestoreDC brings back.
struct ContextState {
    Mapping mapping;
    HBRUSH brush;
    HPEN pen;
    HFONT font;
    COLORREF textColor = 0x00000000;
    COLORREF backColor = 0x00FFFFFF;
    COLORREF dcBrushColor = 0x00FFFFFF;
    COLORREF dcPenColor = 0x00000000;
    int backMode = OPAQUE;
    int rop2 = R2_COPYPEN;
    int polyFillMode = ALTERNATE;
    int stretchMode = BLACKONWHITE;
    UINT textAlign = 0;
    int characterExtra = 0;
    int breakExtra = 0; ///< In pixels, spread over breakCount spaces
    int breakCount = 0;
    alignas(sizeof(POINT)) POINT position; ///< Within one cache line: lines read it when it was just written
    POINT brushOrigin;
    int arcDirection = AD_COUNTERCLOCKWISE;
    float miterLimit = 10;
    Path path;
    std::optional<Region> clip; ///< Device coordinates
};

class MetafileRecorder;

struct DeviceContext : Object, Pooled<DeviceContext> {
    static constexpr HandleKind objectKind = HandleKind::DeviceContext;
    DeviceContext();
    ~DeviceContext() override;

    bool isMemory = true;
    HBITMAP bitmap; ///< Of a memory context
    HPALETTE palette;
    std::unique_ptr<MetafileRecorder> recorder; ///< Of a metafile's context, on which nothing is painted
    Surface* surface = nullptr;                 ///< The bitmap's, or the window's
    POINT origin;                               ///< Device (0, 0) on the surface

private:
    // These lie beside what else every drawing reads first.
    Region drawable_;
    bool drawableKnown_ = false;

public:
    ContextState state;
    Region visible; ///< In surface coordinates
    std::vector<ContextState> saved;

    Brush& brush() const { return *find<Brush>(state.brush); }
    Pen& pen() const { return *find<Pen>(state.pen); }
    Font& font() const { return *find<Font>(state.font); }
    Bitmap* selectedBitmap() const { return find<Bitmap>(bitmap); }

    /// Makes the pixels at the first need; see makePixelsLater.
    mutable std::function<void()> pixelMaker;
    void needPixels() const {
        if (pixelMaker) std::exchange(pixelMaker, nullptr)();
    }

    /// What may be drawn on, in surface coordinates.
    const Region& drawable() {
        if (!drawableKnown_) findDrawable();
        return drawable_;
    }
    void clipChanged() { drawableKnown_ = false; }

    POINT deviceToSurface(POINT p) const {
        return {boundedCoordinate(std::int64_t{p.x} + origin.x),
                boundedCoordinate(std::int64_t{p.y} + origin.y)};
    }
    /// From logical coordinates to the surface when a logical unit is a pixel.
    std::int64_t shiftAcross() const {
        return std::int64_t{state.mapping.viewportOrigin.x} - state.mapping.windowOrigin.x + origin.x;
    }
    std::int64_t shiftDown() const {
        return std::int64_t{state.mapping.viewportOrigin.y} - state.mapping.windowOrigin.y + origin.y;
    }
    POINT toSurface(POINT logical) const {
        if (!state.mapping.isUnscaled()) return deviceToSurface(state.mapping.toDevice(logical));
        return {boundedCoordinate(logical.x + shiftAcross()), boundedCoordinate(logical.y + shiftDown())};
    }
    /// Back from the surface to logical coordinates.
    POINT toLogical(POINT p) const {
        return state.mapping.toLogical({boundedCoordinate(std::int64_t{p.x} - origin.x),
                                        boundedCoordinate(std::int64_t{p.y} - origin.y)});
    }
    RECT toSurface(const RECT& r) const {
        if (!state.mapping.isUnscaled()) return scaledToSurface(r);
        const std::int64_t across = shiftAcross();
        const std::int64_t down = shiftDown();
        return {boundedCoordinate(r.left + across), boundedCoordinate(r.top + down),
                boundedCoordinate(r.right + across), boundedCoordinate(r.bottom + down)};
    }

private:
    RECT scaledToSurface(const RECT& r) const;
    void findDrawable();
};

/// A context in its initial state, with its stock objects selected; drawing on nothing yet.
std::unique_ptr<DeviceContext> makeContext();

/// A context without handle that draws on a bitmap in the colours of another context's palette. The bitmap
/// must outlive it.
std::unique_ptr<DeviceContext> makeContextOver(Bitmap& bitmap, const DeviceContext& like);

} // namespace platform::driver
