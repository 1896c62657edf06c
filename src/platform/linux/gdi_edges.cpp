// The raised and sunken edges of DrawEdge.

#include "platform/gdi.h"
#include "platform/linux/device_context.h"
#include "platform/linux/painter.h"
#include "platform/system_look.h"

namespace platform::driver {

namespace {

/// The system colours of one ring of an edge: left and top, right and bottom.
struct Ring {
    int light;
    int shadow;
};

/// The four styles of a ring, each in its normal and its soft look.
struct RingStyle {
    UINT flag;
    Ring normal;
    Ring soft;
};

constexpr RingStyle outerRings[] = {
    {BDR_RAISEDOUTER, {COLOR_3DLIGHT, COLOR_3DDKSHADOW}, {COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW}},
    {BDR_SUNKENOUTER, {COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT}, {COLOR_3DDKSHADOW, COLOR_BTNHIGHLIGHT}},
};

constexpr RingStyle innerRings[] = {
    {BDR_RAISEDINNER, {COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW}, {COLOR_3DLIGHT, COLOR_BTNSHADOW}},
    {BDR_SUNKENINNER, {COLOR_3DDKSHADOW, COLOR_3DLIGHT}, {COLOR_BTNSHADOW, COLOR_3DLIGHT}},
};

constexpr UINT outerFlags = BDR_RAISEDOUTER | BDR_SUNKENOUTER;
constexpr UINT innerFlags = BDR_RAISEDINNER | BDR_SUNKENINNER;

/// The colours of the ring that `edge` asks for; false when it asks for none or for both.
bool ringOf(const RingStyle (&styles)[2], UINT edge, UINT flags, Ring& ring) {
    for (const RingStyle& style : styles) {
        if ((edge & (styles[0].flag | styles[1].flag)) != style.flag) continue;
        ring = (flags & BF_SOFT) != 0 ? style.soft : style.normal;
        const bool isOuter = (style.flag & outerFlags) != 0;
        if ((flags & BF_MONO) != 0) {
            ring = isOuter ? Ring{COLOR_WINDOWFRAME, COLOR_WINDOWFRAME} : Ring{COLOR_WINDOW, COLOR_WINDOW};
        } else if ((flags & BF_FLAT) != 0) {
            ring = isOuter ? Ring{COLOR_BTNSHADOW, COLOR_BTNSHADOW} : Ring{COLOR_BTNFACE, COLOR_BTNFACE};
        }
        return true;
    }
    return false;
}

void drawRing(HDC dc, const RECT& r, const Ring& ring, UINT flags) {
    const auto line = [&](UINT side, const RECT& part, int color) {
        if ((flags & side) != 0) FillRect(dc, &part, GetSysColorBrush(color));
    };
    line(BF_LEFT, {r.left, r.top, r.left + 1, r.bottom}, ring.light);
    line(BF_TOP, {r.left, r.top, r.right, r.top + 1}, ring.light);
    line(BF_RIGHT, {r.right - 1, r.top, r.right, r.bottom}, ring.shadow);
    line(BF_BOTTOM, {r.left, r.bottom - 1, r.right, r.bottom}, ring.shadow);
}

RECT shrunk(RECT r, UINT flags) {
    if ((flags & BF_LEFT) != 0) ++r.left;
    if ((flags & BF_TOP) != 0) ++r.top;
    if ((flags & BF_RIGHT) != 0) --r.right;
    if ((flags & BF_BOTTOM) != 0) --r.bottom;
    return r;
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL DrawEdge(HDC dc, RECT* rect, UINT edge, UINT flags) {
    if (!find<DeviceContext>(dc) || !rect) return FALSE_;
    RECT inside = *rect;
    Ring ring{};
    const bool bothOuter = (edge & outerFlags) == outerFlags;
    const bool bothInner = (edge & innerFlags) == innerFlags;
    if (ringOf(outerRings, edge, flags, ring)) {
        drawRing(dc, inside, ring, flags);
        inside = shrunk(inside, flags);
    }
    if (ringOf(innerRings, edge, flags, ring)) {
        drawRing(dc, inside, ring, flags);
        inside = shrunk(inside, flags);
    }
    if ((flags & BF_MIDDLE) != 0)
        FillRect(dc, &inside, GetSysColorBrush((flags & BF_MONO) != 0 ? COLOR_WINDOW : COLOR_BTNFACE));
    if ((flags & BF_ADJUST) != 0) *rect = inside;
    return !bothOuter && !bothInner;
}

} // namespace platform
