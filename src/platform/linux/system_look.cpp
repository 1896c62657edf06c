// Metrics and parameters as a fresh session of Windows reports them. Only the size of the screen is
// the display's own.

#include "platform/system_look.h"

#include "platform/gdi.h"
#include "platform/linux/display.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace platform {

using namespace driver;

namespace {

/// GetSystemMetrics by number; 0 where the screen tells or nothing is known.
constexpr std::array<int, 100> Metrics{
    0,  0,  17, 17, 19, 1, 1, 3,   3,   17, 17, 32, 32, 32, 32,  19, 0, 0,   0,  1,  // 0 to 19
    17, 17, 0,  0,  0,  0, 0, 0,   112, 27, 18, 18, 4,  4,  112, 27, 4, 4,   75, 75, // 20 to 39
    0,  0,  0,  3,  0,  2, 2, 160, 24,  16, 16, 16, 15, 15, 18,  18, 8, 160, 24, 0,  // 40 to 59
    0,  0,  0,  3,  0,  0, 0, 0,   4,   4,  0,  13, 13, 0,  0,   1,  0, 0,   0,  0,  // 60 to 79
    1,  1,  0,  1,  1,  0, 0, 0,   0,   0,  90, 0,  0,  0,  0,   0,  0, 0,   0,  0,  // 80 to 99
};

/// Metrics that follow the size of the screen.
struct ScreenMetric {
    int index;
    bool vertical;
    int more; ///< Pixels added to the size
};

constexpr ScreenMetric ScreenMetrics[] = {
    {SM_CXSCREEN, false, 0},       {SM_CYSCREEN, true, 0},     {SM_CXFULLSCREEN, false, 0},
    {SM_CYFULLSCREEN, true, 11},   {SM_CXMAXTRACK, false, 12}, {SM_CYMAXTRACK, true, 12},
    {SM_CXMAXIMIZED, false, 8},    {SM_CYMAXIMIZED, true, 38}, {SM_CXVIRTUALSCREEN, false, 0},
    {SM_CYVIRTUALSCREEN, true, 0},
};

/// Parameters that are one number.
struct Parameter {
    UINT action;
    DWORD value;
};

constexpr Parameter Parameters[] = {
    {SPI_GETBEEP, 1},
    {SPI_GETBORDER, 1},
    {SPI_GETKEYBOARDSPEED, 31},
    {SPI_GETKEYBOARDDELAY, 1},
    {SPI_GETFONTSMOOTHING, 1},
    {SPI_GETFONTSMOOTHINGTYPE, FE_FONTSMOOTHINGSTANDARD},
    {SPI_GETWHEELSCROLLLINES, 3},
    {SPI_GETMOUSEHOVERTIME, 400},
    {SPI_GETMENUSHOWDELAY, 400},
    {SPI_GETKEYBOARDCUES, 1},
    {SPI_GETGRADIENTCAPTIONS, 1},
    {SPI_GETCARETWIDTH, 1},
    {SPI_GETFOREGROUNDLOCKTIMEOUT, 0},
};

LOGFONTW interfaceFont(LONG weight) {
    constexpr LONG EightPoints = -11;
    constexpr std::u16string_view Name = u"Tahoma";
    LOGFONTW font{};
    font.lfHeight = EightPoints;
    font.lfWeight = weight;
    font.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
    std::copy(Name.begin(), Name.end(), font.lfFaceName);
    return font;
}

NONCLIENTMETRICSW nonClientMetrics() {
    NONCLIENTMETRICSW m;
    m.cbSize = sizeof m;
    m.iBorderWidth = 1;
    m.iScrollWidth = m.iScrollHeight = 17;
    m.iCaptionWidth = m.iCaptionHeight = 18;
    m.lfCaptionFont = interfaceFont(FW_BOLD);
    m.iSmCaptionWidth = m.iSmCaptionHeight = 15;
    m.iMenuWidth = m.iMenuHeight = 18;
    m.lfSmCaptionFont = m.lfMenuFont = m.lfStatusFont = m.lfMessageFont = interfaceFont(FW_NORMAL);
    return m;
}

} // namespace

int GetSystemMetrics(int index) {
    for (const ScreenMetric& metric : ScreenMetrics) {
        if (metric.index != index) continue;
        const SIZE screen = display().screenSize();
        return (metric.vertical ? screen.cy : screen.cx) + metric.more;
    }
    return index >= 0 && index < static_cast<int>(Metrics.size()) ? Metrics[static_cast<std::size_t>(index)]
                                                                  : 0;
}

BOOL SystemParametersInfoA(UINT action, UINT, void* data, UINT) {
    if (!data) return FALSE_;
    if (action == SPI_GETWORKAREA) {
        *static_cast<RECT*>(data) = display().workArea();
        return TRUE_;
    }
    for (const Parameter& parameter : Parameters) {
        if (parameter.action != action) continue;
        *static_cast<DWORD*>(data) = parameter.value;
        return TRUE_;
    }
    return FALSE_;
}

BOOL SystemParametersInfoW(UINT action, UINT parameter, void* data, UINT winIni) {
    if (data && action == SPI_GETNONCLIENTMETRICS) {
        *static_cast<NONCLIENTMETRICSW*>(data) = nonClientMetrics();
        return TRUE_;
    }
    if (data && action == SPI_GETICONTITLELOGFONT) {
        *static_cast<LOGFONTW*>(data) = interfaceFont(FW_NORMAL);
        return TRUE_;
    }
    return SystemParametersInfoA(action, parameter, data, winIni);
}

} // namespace platform
