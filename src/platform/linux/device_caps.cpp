// What the display says of itself: the values of a fresh Windows session, with the real size of the screen.

#include "platform/gdi.h"
#include "platform/linux/device_context.h"
#include "platform/system_look.h"

#include <cstdlib>
#include <string_view>

namespace platform::driver {

namespace {

constexpr int dotsPerInch = 96;
constexpr int trueColorBits = 32;
constexpr int paletteBits = 8;
constexpr int paletteRasterCaps = 0x0100;

struct Capability {
    int index;
    int trueColor; ///< Value of a display with 32 bits a pixel
    int palette;   ///< Value of one with 8 bits
};

constexpr Capability capabilities[] = {
    {DRIVERVERSION, 0x4000, 0x4000},
    {TECHNOLOGY, 1, 1},
    {BITSPIXEL, trueColorBits, paletteBits},
    {PLANES, 1, 1},
    {NUMBRUSHES, -1, -1},
    {NUMPENS, -1, -1},
    {NUMCOLORS, -1, 20},
    {CURVECAPS, 511, 511},
    {LINECAPS, 254, 254},
    {POLYGONALCAPS, 255, 255},
    {TEXTCAPS, 31223, 31223},
    {CLIPCAPS, 1, 1},
    {RASTERCAPS, 48793, 48793 | paletteRasterCaps},
    {ASPECTX, 36, 36},
    {ASPECTY, 36, 36},
    {ASPECTXY, 51, 51},
    {LOGPIXELSX, dotsPerInch, dotsPerInch},
    {LOGPIXELSY, dotsPerInch, dotsPerInch},
    {SIZEPALETTE, 0, 256},
    {NUMRESERVED, 20, 20},
    {COLORRES, 24, 18},
    {VREFRESH, 1, 1},
};

/// TESELA_DEPTH=8 lets the display pass for one with a palette.
bool hasPalette() {
    const char* depth = std::getenv("TESELA_DEPTH");
    return depth && std::string_view(depth) == "8";
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
        if (c.index == index) return hasPalette() ? c.palette : c.trueColor;
    return 0;
}

} // namespace platform
