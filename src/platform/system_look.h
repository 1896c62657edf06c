#pragma once
// What the desktop says of itself: metrics, colours and parameters. On Linux they are those of a fresh
// Windows session, so that pictures agree; only the size of the screen is the real one.

#include "platform/gdi_types.h"
#include "platform/types.h"

namespace platform {

// GetSystemMetrics. Pixels.
inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CXVSCROLL = 2;
inline constexpr int SM_CYHSCROLL = 3;
inline constexpr int SM_CYCAPTION = 4;
inline constexpr int SM_CXBORDER = 5;
inline constexpr int SM_CYBORDER = 6;
inline constexpr int SM_CXDLGFRAME = 7;
inline constexpr int SM_CXFIXEDFRAME = 7;
inline constexpr int SM_CYDLGFRAME = 8;
inline constexpr int SM_CYFIXEDFRAME = 8;
inline constexpr int SM_CYVTHUMB = 9;
inline constexpr int SM_CXHTHUMB = 10;
inline constexpr int SM_CXICON = 11;
inline constexpr int SM_CYICON = 12;
inline constexpr int SM_CXCURSOR = 13;
inline constexpr int SM_CYCURSOR = 14;
inline constexpr int SM_CYMENU = 15;
inline constexpr int SM_CXFULLSCREEN = 16;
inline constexpr int SM_CYFULLSCREEN = 17;
inline constexpr int SM_MOUSEPRESENT = 19;
inline constexpr int SM_CYVSCROLL = 20;
inline constexpr int SM_CXHSCROLL = 21;
inline constexpr int SM_SWAPBUTTON = 23;
inline constexpr int SM_CXMIN = 28;
inline constexpr int SM_CYMIN = 29;
inline constexpr int SM_CXSIZE = 30;
inline constexpr int SM_CYSIZE = 31;
inline constexpr int SM_CXFRAME = 32;
inline constexpr int SM_CXSIZEFRAME = 32;
inline constexpr int SM_CYFRAME = 33;
inline constexpr int SM_CYSIZEFRAME = 33;
inline constexpr int SM_CXMINTRACK = 34;
inline constexpr int SM_CYMINTRACK = 35;
inline constexpr int SM_CXDOUBLECLK = 36;
inline constexpr int SM_CYDOUBLECLK = 37;
inline constexpr int SM_CMOUSEBUTTONS = 43;
inline constexpr int SM_CXEDGE = 45;
inline constexpr int SM_CYEDGE = 46;
inline constexpr int SM_CXSMICON = 49;
inline constexpr int SM_CYSMICON = 50;
inline constexpr int SM_CYSMCAPTION = 51;
inline constexpr int SM_CXSMSIZE = 52;
inline constexpr int SM_CYSMSIZE = 53;
inline constexpr int SM_CXMAXTRACK = 59;
inline constexpr int SM_CYMAXTRACK = 60;
inline constexpr int SM_CXMAXIMIZED = 61;
inline constexpr int SM_CYMAXIMIZED = 62;
inline constexpr int SM_CXDRAG = 68;
inline constexpr int SM_CYDRAG = 69;
inline constexpr int SM_MOUSEWHEELPRESENT = 75;
inline constexpr int SM_XVIRTUALSCREEN = 76;
inline constexpr int SM_YVIRTUALSCREEN = 77;
inline constexpr int SM_CXMENUCHECK = 71;
inline constexpr int SM_CYMENUCHECK = 72;
inline constexpr int SM_CXVIRTUALSCREEN = 78;
inline constexpr int SM_CYVIRTUALSCREEN = 79;
inline constexpr int SM_CMONITORS = 80;
inline constexpr int SM_CXPADDEDBORDER = 92;
inline constexpr int SM_REMOTESESSION = 0x1000;

/// 0 for an unknown number.
int GetSystemMetrics(int index);

// System colours.
inline constexpr int COLOR_SCROLLBAR = 0;
inline constexpr int COLOR_BACKGROUND = 1;
inline constexpr int COLOR_DESKTOP = 1;
inline constexpr int COLOR_ACTIVECAPTION = 2;
inline constexpr int COLOR_INACTIVECAPTION = 3;
inline constexpr int COLOR_MENU = 4;
inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWFRAME = 6;
inline constexpr int COLOR_MENUTEXT = 7;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_CAPTIONTEXT = 9;
inline constexpr int COLOR_ACTIVEBORDER = 10;
inline constexpr int COLOR_INACTIVEBORDER = 11;
inline constexpr int COLOR_APPWORKSPACE = 12;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_3DFACE = 15;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_3DSHADOW = 16;
inline constexpr int COLOR_GRAYTEXT = 17;
inline constexpr int COLOR_BTNTEXT = 18;
inline constexpr int COLOR_INACTIVECAPTIONTEXT = 19;
inline constexpr int COLOR_BTNHIGHLIGHT = 20;
inline constexpr int COLOR_3DHIGHLIGHT = 20;
inline constexpr int COLOR_3DHILIGHT = 20;
inline constexpr int COLOR_3DDKSHADOW = 21;
inline constexpr int COLOR_3DLIGHT = 22;
inline constexpr int COLOR_INFOTEXT = 23;
inline constexpr int COLOR_INFOBK = 24;
inline constexpr int COLOR_HOTLIGHT = 26;
inline constexpr int COLOR_GRADIENTACTIVECAPTION = 27;
inline constexpr int COLOR_GRADIENTINACTIVECAPTION = 28;
inline constexpr int COLOR_MENUHILIGHT = 29;
inline constexpr int COLOR_MENUBAR = 30;

/// 0 (black) for an unknown number.
COLORREF GetSysColor(int index);

/// Changes colours for all programs of the session; on Linux for this program. All windows are painted anew.
BOOL SetSysColors(int count, const INT* indices, const COLORREF* colors);

/// A brush that belongs to the system: DeleteObject does nothing to it. 0 for an unknown number.
HBRUSH GetSysColorBrush(int index);

// SystemParametersInfoA and SystemParametersInfoW.
inline constexpr UINT SPI_GETBEEP = 0x0001;
inline constexpr UINT SPI_GETBORDER = 0x0005;
inline constexpr UINT SPI_GETKEYBOARDSPEED = 0x000A;     ///< DWORD 0 to 31: about 2.5 to 30 a second
inline constexpr UINT SPI_GETKEYBOARDDELAY = 0x0016;     ///< int 0 to 3: about 250 ms to 1 s
inline constexpr UINT SPI_GETICONTITLELOGFONT = 0x001F;  ///< LOGFONTW
inline constexpr UINT SPI_GETNONCLIENTMETRICS = 0x0029;  ///< NONCLIENTMETRICSW
inline constexpr UINT SPI_GETWORKAREA = 0x0030;          ///< RECT
inline constexpr UINT SPI_GETFONTSMOOTHING = 0x004A;     ///< BOOL
inline constexpr UINT SPI_GETFONTSMOOTHINGTYPE = 0x200A; ///< UINT
inline constexpr UINT SPI_GETWHEELSCROLLLINES = 0x0068;  ///< UINT
inline constexpr UINT SPI_GETMOUSEHOVERTIME = 0x0066;    ///< UINT, milliseconds
inline constexpr UINT SPI_GETMENUSHOWDELAY = 0x006A;     ///< DWORD, milliseconds
inline constexpr UINT SPI_GETKEYBOARDCUES = 0x100A;      ///< BOOL: access keys are always underlined
inline constexpr UINT SPI_GETGRADIENTCAPTIONS = 0x1008;  ///< BOOL
inline constexpr UINT SPI_GETCARETWIDTH = 0x2006;        ///< DWORD, pixels
inline constexpr UINT SPI_GETFOREGROUNDLOCKTIMEOUT = 0x2000;
inline constexpr UINT FE_FONTSMOOTHINGSTANDARD = 1;
inline constexpr UINT FE_FONTSMOOTHINGCLEARTYPE = 2;

/// What the parts of a window's frame measure, in pixels, and their fonts.
struct NONCLIENTMETRICSW {
    UINT cbSize = 0;
    INT iBorderWidth = 0;
    INT iScrollWidth = 0;
    INT iScrollHeight = 0;
    INT iCaptionWidth = 0;
    INT iCaptionHeight = 0;
    LOGFONTW lfCaptionFont;
    INT iSmCaptionWidth = 0;
    INT iSmCaptionHeight = 0;
    LOGFONTW lfSmCaptionFont;
    INT iMenuWidth = 0;
    INT iMenuHeight = 0;
    LOGFONTW lfMenuFont;
    LOGFONTW lfStatusFont;
    LOGFONTW lfMessageFont;
    INT iPaddedBorderWidth = 0;
};

/// Reads a parameter into `data`, whose type is told beside the number. False for an unknown number.
BOOL SystemParametersInfoA(UINT action, UINT parameter, void* data, UINT winIni);

/// The same, and the parameters with fonts: SPI_GETNONCLIENTMETRICS (NONCLIENTMETRICSW) and
/// SPI_GETICONTITLELOGFONT (LOGFONTW).
BOOL SystemParametersInfoW(UINT action, UINT parameter, void* data, UINT winIni);

} // namespace platform
