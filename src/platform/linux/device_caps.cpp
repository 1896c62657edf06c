// What the display says of itself: the values of a fresh Windows session, with the real size of the screen.

#include "platform/gdi.h"
#include "platform/linux/display_colors.h"
#include "platform/system_look.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr int dotsPerInch = 96;

struct Capability {
    int index;
    int value;
};

/// What does not depend on the depth.
constexpr Capability capabilities[] = {
    {DRIVERVERSION, 0x4000},
    {TECHNOLOGY, 1},
    {PLANES, 1},
    {NUMBRUSHES, -1},
    {NUMPENS, -1},
    {CURVECAPS, 511},
    {LINECAPS, 254},
    {POLYGONALCAPS, 255},
    {TEXTCAPS, 31223},
    {CLIPCAPS, 1},
    {ASPECTX, 36},
    {ASPECTY, 36},
    {ASPECTXY, 51},
    {LOGPIXELSX, dotsPerInch},
    {LOGPIXELSY, dotsPerInch},
    {NUMRESERVED, 20},
    {VREFRESH, 1},
};

constexpr int rasterCaps = 0xBE99;

/// What tells of the display's colours; 0 for an unknown number.
int colorCapability(int index) {
    const int depth = displayDepth();
    const bool hasPalette = depth == 8;
    switch (index) {
    case BITSPIXEL:
        return displayBitsPerPixel();
    case NUMCOLORS:
        return hasPalette ? 20 : depth == 4 ? 16 : -1;
    case RASTERCAPS:
        return hasPalette ? rasterCaps | RC_PALETTE : rasterCaps;
    case SIZEPALETTE:
        return hasPalette ? 256 : 0;
    case COLORRES:
        return hasPalette ? 18 : std::min(depth, 24);
    default:
        return 0;
    }
}

int millimetres(int pixels) {
    constexpr int tenthsPerInch = 254;
    constexpr int scale = dotsPerInch * 10;
    return (pixels * tenthsPerInch + scale / 2) / scale;
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

int GetDeviceCaps(HDC dc, int index) {
    if (!find<DeviceContext>(dc)) return 0;
    switch (index) {
    case HORZRES:
    case DESKTOPHORZRES:
        return GetSystemMetrics(SM_CXSCREEN);
    case VERTRES:
    case DESKTOPVERTRES:
        return GetSystemMetrics(SM_CYSCREEN);
    case HORZSIZE:
        return millimetres(GetSystemMetrics(SM_CXSCREEN));
    case VERTSIZE:
        return millimetres(GetSystemMetrics(SM_CYSCREEN));
    default:
        break;
    }
    for (const Capability& c : capabilities)
        if (c.index == index) return c.value;
    return colorCapability(index);
}

} // namespace platform
