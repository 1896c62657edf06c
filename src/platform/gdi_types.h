#pragma once
// Records and constants of the drawing operations in gdi.h, with the platform's names, values and layouts.

#include "platform/types.h"

#include <cstdint>

namespace platform {

// --- Raster operations -----------------------------------------------------------------------------

/// Three-operand raster operations. The third byte is the truth table: bit number 4P + 2S + D.
inline constexpr DWORD BLACKNESS = 0x00000042;
inline constexpr DWORD NOTSRCERASE = 0x001100A6;
inline constexpr DWORD NOTSRCCOPY = 0x00330008;
inline constexpr DWORD SRCERASE = 0x00440328;
inline constexpr DWORD DSTINVERT = 0x00550009;
inline constexpr DWORD PATINVERT = 0x005A0049;
inline constexpr DWORD SRCINVERT = 0x00660046;
inline constexpr DWORD SRCAND = 0x008800C6;
inline constexpr DWORD MERGEPAINT = 0x00BB0226;
inline constexpr DWORD MERGECOPY = 0x00C000CA;
inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr DWORD SRCPAINT = 0x00EE0086;
inline constexpr DWORD PATCOPY = 0x00F00021;
inline constexpr DWORD PATPAINT = 0x00FB0A09;
inline constexpr DWORD WHITENESS = 0x00FF0062;

/// For MaskBlt: one operation where the mask is 1, another where it is 0.
constexpr DWORD MAKEROP4(DWORD foreground, DWORD background) {
    return (background << 8 & 0xFF000000) | (foreground & 0x00FFFFFF);
}

/// Two-operand drawing modes of pens and brushes, for SetROP2.
inline constexpr int R2_BLACK = 1;
inline constexpr int R2_NOTMERGEPEN = 2;
inline constexpr int R2_MASKNOTPEN = 3;
inline constexpr int R2_NOTCOPYPEN = 4;
inline constexpr int R2_MASKPENNOT = 5;
inline constexpr int R2_NOT = 6;
inline constexpr int R2_XORPEN = 7;
inline constexpr int R2_NOTMASKPEN = 8;
inline constexpr int R2_MASKPEN = 9;
inline constexpr int R2_NOTXORPEN = 10;
inline constexpr int R2_NOP = 11;
inline constexpr int R2_MERGENOTPEN = 12;
inline constexpr int R2_COPYPEN = 13;
inline constexpr int R2_MERGEPENNOT = 14;
inline constexpr int R2_MERGEPEN = 15;
inline constexpr int R2_WHITE = 16;

inline constexpr int BLACKONWHITE = 1;
inline constexpr int WHITEONBLACK = 2;
inline constexpr int COLORONCOLOR = 3;
inline constexpr int HALFTONE = 4;

// --- Device context state --------------------------------------------------------------------------

inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

inline constexpr int ALTERNATE = 1; ///< Polygon fill: odd number of crossings
inline constexpr int WINDING = 2;   ///< Polygon fill: crossings in different directions count apart

/// Mapping modes: pixels, tenths and hundredths of a millimetre, hundredths and thousandths of an inch,
/// twips; then extents of one's own with the same scale on both axes or with any.
inline constexpr int MM_TEXT = 1;
inline constexpr int MM_LOMETRIC = 2;
inline constexpr int MM_HIMETRIC = 3;
inline constexpr int MM_LOENGLISH = 4;
inline constexpr int MM_HIENGLISH = 5;
inline constexpr int MM_TWIPS = 6;
inline constexpr int MM_ISOTROPIC = 7;
inline constexpr int MM_ANISOTROPIC = 8;

inline constexpr int AD_COUNTERCLOCKWISE = 1;
inline constexpr int AD_CLOCKWISE = 2;

/// The points of paths and of PolyDraw. PT_CLOSEFIGURE is added to the last point of a closed figure.
inline constexpr BYTE PT_CLOSEFIGURE = 1;
inline constexpr BYTE PT_LINETO = 2;
inline constexpr BYTE PT_BEZIERTO = 4;
inline constexpr BYTE PT_MOVETO = 6;

inline constexpr UINT FLOODFILLBORDER = 0;
inline constexpr UINT FLOODFILLSURFACE = 1;

inline constexpr UINT TA_NOUPDATECP = 0;
inline constexpr UINT TA_UPDATECP = 1;
inline constexpr UINT TA_LEFT = 0;
inline constexpr UINT TA_RIGHT = 2;
inline constexpr UINT TA_CENTER = 6;
inline constexpr UINT TA_TOP = 0;
inline constexpr UINT TA_BOTTOM = 8;
inline constexpr UINT TA_BASELINE = 24;

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF; ///< Result of a colour operation that failed
inline constexpr UINT GDI_ERROR = 0xFFFFFFFF;       ///< Result of SetTextAlign and others that failed

// --- Object types and stock objects ----------------------------------------------------------------

/// GetObjectType and GetCurrentObject.
inline constexpr DWORD OBJ_PEN = 1;
inline constexpr DWORD OBJ_BRUSH = 2;
inline constexpr DWORD OBJ_DC = 3;
inline constexpr DWORD OBJ_PAL = 5;
inline constexpr DWORD OBJ_FONT = 6;
inline constexpr DWORD OBJ_BITMAP = 7;
inline constexpr DWORD OBJ_REGION = 8;
inline constexpr DWORD OBJ_MEMDC = 10;
inline constexpr DWORD OBJ_EXTPEN = 11; ///< A pen made by ExtCreatePen
inline constexpr DWORD OBJ_ENHMETADC = 12;
inline constexpr DWORD OBJ_ENHMETAFILE = 13;

inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1;
inline constexpr int GRAY_BRUSH = 2;
inline constexpr int DKGRAY_BRUSH = 3;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int OEM_FIXED_FONT = 10;
inline constexpr int ANSI_FIXED_FONT = 11;
inline constexpr int ANSI_VAR_FONT = 12;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEVICE_DEFAULT_FONT = 14;
inline constexpr int DEFAULT_PALETTE = 15;
inline constexpr int SYSTEM_FIXED_FONT = 16;
inline constexpr int DEFAULT_GUI_FONT = 17;
inline constexpr int DC_BRUSH = 18;
inline constexpr int DC_PEN = 19;

// --- Pens and brushes ------------------------------------------------------------------------------

inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DASH = 1;
inline constexpr int PS_DOT = 2;
inline constexpr int PS_DASHDOT = 3;
inline constexpr int PS_DASHDOTDOT = 4;
inline constexpr int PS_NULL = 5;
inline constexpr int PS_INSIDEFRAME = 6;
inline constexpr int PS_USERSTYLE = 7; ///< These two for ExtCreatePen only
inline constexpr int PS_ALTERNATE = 8; ///< Every second pixel; cosmetic
inline constexpr DWORD PS_STYLE_MASK = 0x0000000F;
inline constexpr DWORD PS_ENDCAP_ROUND = 0x00000000;
inline constexpr DWORD PS_ENDCAP_SQUARE = 0x00000100;
inline constexpr DWORD PS_ENDCAP_FLAT = 0x00000200;
inline constexpr DWORD PS_ENDCAP_MASK = 0x00000F00;
inline constexpr DWORD PS_JOIN_ROUND = 0x00000000;
inline constexpr DWORD PS_JOIN_BEVEL = 0x00001000;
inline constexpr DWORD PS_JOIN_MITER = 0x00002000;
inline constexpr DWORD PS_JOIN_MASK = 0x0000F000;
inline constexpr DWORD PS_COSMETIC = 0x00000000;
inline constexpr DWORD PS_GEOMETRIC = 0x00010000;
inline constexpr DWORD PS_TYPE_MASK = 0x000F0000;

inline constexpr UINT BS_SOLID = 0;
inline constexpr UINT BS_NULL = 1;
inline constexpr UINT BS_HATCHED = 2;
inline constexpr UINT BS_PATTERN = 3;

inline constexpr int HS_HORIZONTAL = 0;
inline constexpr int HS_VERTICAL = 1;
inline constexpr int HS_FDIAGONAL = 2; ///< Down to the right
inline constexpr int HS_BDIAGONAL = 3; ///< Up to the right
inline constexpr int HS_CROSS = 4;
inline constexpr int HS_DIAGCROSS = 5;

struct LOGBRUSH {
    UINT lbStyle = BS_SOLID;
    COLORREF lbColor = 0;
    std::uintptr_t lbHatch = 0; ///< HS_... of a hatched brush, the bitmap's handle value of a pattern
};

struct LOGPEN {
    UINT lopnStyle = PS_SOLID;
    POINT lopnWidth; ///< Width in x; y has no meaning
    COLORREF lopnColor = 0;
};

// --- Bitmaps ---------------------------------------------------------------------------------------

/// What GetObjectBitmap tells of a bitmap.
struct BITMAP {
    LONG bmType = 0;
    LONG bmWidth = 0;
    LONG bmHeight = 0;
    LONG bmWidthBytes = 0; ///< Bytes of a row, a multiple of 2
    WORD bmPlanes = 1;
    WORD bmBitsPixel = 0;
    void* bmBits = nullptr; ///< The pixels of a DIB section, else null
};

inline constexpr DWORD BI_RGB = 0;
inline constexpr DWORD BI_RLE8 = 1;
inline constexpr DWORD BI_RLE4 = 2;
inline constexpr DWORD BI_BITFIELDS = 3;
inline constexpr UINT DIB_RGB_COLORS = 0;
inline constexpr UINT DIB_PAL_COLORS = 1;
inline constexpr DWORD CBM_INIT = 4;

struct BITMAPINFOHEADER {
    DWORD biSize = 40;
    LONG biWidth = 0;
    LONG biHeight = 0; ///< Positive: the bottom row comes first in memory. Negative: the top row
    WORD biPlanes = 1;
    WORD biBitCount = 0;
    DWORD biCompression = BI_RGB;
    DWORD biSizeImage = 0;
    LONG biXPelsPerMeter = 0;
    LONG biYPelsPerMeter = 0;
    DWORD biClrUsed = 0;
    DWORD biClrImportant = 0;
};

struct RGBQUAD {
    BYTE rgbBlue = 0;
    BYTE rgbGreen = 0;
    BYTE rgbRed = 0;
    BYTE rgbReserved = 0;
};

/// The header and the longest colour table that a bitmap can have.
struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[256];
};

// --- Palettes --------------------------------------------------------------------------------------

/// A colour that is an entry of the context's palette, or the entry nearest to a colour.
constexpr COLORREF PALETTEINDEX(WORD index) {
    return 0x01000000u | index;
}
constexpr COLORREF PALETTERGB(unsigned red, unsigned green, unsigned blue) {
    return 0x02000000u | RGB(red, green, blue);
}

inline constexpr BYTE PC_RESERVED = 1;
inline constexpr BYTE PC_EXPLICIT = 2;
inline constexpr BYTE PC_NOCOLLAPSE = 4;

struct PALETTEENTRY {
    BYTE peRed = 0;
    BYTE peGreen = 0;
    BYTE peBlue = 0;
    BYTE peFlags = 0;
    friend constexpr bool operator==(const PALETTEENTRY&, const PALETTEENTRY&) = default;
};

inline constexpr WORD paletteVersion = 0x0300;

/// The header and the most entries that a palette of a display of 8 bits has use for; a longer one goes on
/// behind.
struct LOGPALETTE {
    WORD palVersion = paletteVersion;
    WORD palNumEntries = 0;
    PALETTEENTRY palPalEntry[256];
};

// --- Icons -----------------------------------------------------------------------------------------

/// Icons and cursors. A monochrome one has no colour bitmap and a mask of double height, AND above XOR.
struct ICONINFO {
    BOOL fIcon = 1; ///< 0 for a cursor
    DWORD xHotspot = 0;
    DWORD yHotspot = 0;
    HBITMAP hbmMask;
    HBITMAP hbmColor;
};

inline constexpr UINT DI_MASK = 1;
inline constexpr UINT DI_IMAGE = 2;
inline constexpr UINT DI_NORMAL = 3;
inline constexpr UINT DI_DEFAULTSIZE = 8;

// --- Regions ---------------------------------------------------------------------------------------

inline constexpr int REGION_ERROR = 0; ///< The platform calls it ERROR
inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int COMPLEXREGION = 3;

inline constexpr int RGN_AND = 1;
inline constexpr int RGN_OR = 2;
inline constexpr int RGN_XOR = 3;
inline constexpr int RGN_DIFF = 4;
inline constexpr int RGN_COPY = 5;

// --- Edges and gradients ---------------------------------------------------------------------------

inline constexpr UINT BDR_RAISEDOUTER = 0x0001;
inline constexpr UINT BDR_SUNKENOUTER = 0x0002;
inline constexpr UINT BDR_RAISEDINNER = 0x0004;
inline constexpr UINT BDR_SUNKENINNER = 0x0008;
inline constexpr UINT EDGE_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER;
inline constexpr UINT EDGE_ETCHED = BDR_SUNKENOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_BUMP = BDR_RAISEDOUTER | BDR_SUNKENINNER;

inline constexpr UINT BF_LEFT = 0x0001;
inline constexpr UINT BF_TOP = 0x0002;
inline constexpr UINT BF_RIGHT = 0x0004;
inline constexpr UINT BF_BOTTOM = 0x0008;
inline constexpr UINT BF_RECT = 0x000F;
inline constexpr UINT BF_MIDDLE = 0x0800; ///< Fill the inside with the button face
inline constexpr UINT BF_SOFT = 0x1000;   ///< Softer buttons: the outer and inner light change places
inline constexpr UINT BF_ADJUST = 0x2000; ///< Shrink the caller's rectangle to the inside
inline constexpr UINT BF_FLAT = 0x4000;
inline constexpr UINT BF_MONO = 0x8000;

inline constexpr DWORD GRADIENT_FILL_RECT_H = 0;
inline constexpr DWORD GRADIENT_FILL_RECT_V = 1;
inline constexpr DWORD GRADIENT_FILL_TRIANGLE = 2;

/// A corner of a gradient. Colour components run from 0 to 0xFF00.
struct TRIVERTEX {
    LONG x = 0;
    LONG y = 0;
    WORD Red = 0;
    WORD Green = 0;
    WORD Blue = 0;
    WORD Alpha = 0;
};

struct GRADIENT_RECT {
    DWORD UpperLeft = 0; ///< Index of a vertex
    DWORD LowerRight = 0;
};

struct GRADIENT_TRIANGLE {
    DWORD Vertex1 = 0; ///< Index of a vertex
    DWORD Vertex2 = 0;
    DWORD Vertex3 = 0;
};

// --- Blends ----------------------------------------------------------------------------------------

inline constexpr BYTE AC_SRC_OVER = 0;
inline constexpr BYTE AC_SRC_ALPHA = 1;

struct BLENDFUNCTION {
    BYTE BlendOp = AC_SRC_OVER;
    BYTE BlendFlags = 0;
    BYTE SourceConstantAlpha = 255; ///< 255 is the opaque source, 0 leaves the target
    BYTE AlphaFormat = 0;           ///< AC_SRC_ALPHA: each pixel of the source has an alpha too
};

// --- Text ------------------------------------------------------------------------------------------

inline constexpr UINT ETO_OPAQUE = 0x0002;
inline constexpr UINT ETO_CLIPPED = 0x0004;

inline constexpr UINT DT_TOP = 0x0000;
inline constexpr UINT DT_LEFT = 0x0000;
inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_RIGHT = 0x0002;
inline constexpr UINT DT_VCENTER = 0x0004;
inline constexpr UINT DT_BOTTOM = 0x0008;
inline constexpr UINT DT_WORDBREAK = 0x0010;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_EXPANDTABS = 0x0040;
inline constexpr UINT DT_NOCLIP = 0x0100;
inline constexpr UINT DT_EXTERNALLEADING = 0x0200;
inline constexpr UINT DT_CALCRECT = 0x0400;
inline constexpr UINT DT_NOPREFIX = 0x0800;
inline constexpr UINT DT_EDITCONTROL = 0x2000;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;
inline constexpr UINT DT_HIDEPREFIX = 0x00100000;
inline constexpr UINT DT_PREFIXONLY = 0x00200000;

inline constexpr LONG FW_DONTCARE = 0;
inline constexpr LONG FW_NORMAL = 400;
inline constexpr LONG FW_MEDIUM = 500;
inline constexpr LONG FW_BOLD = 700;

inline constexpr BYTE ANSI_CHARSET = 0;
inline constexpr BYTE DEFAULT_CHARSET = 1;
inline constexpr BYTE SYMBOL_CHARSET = 2;
inline constexpr BYTE OEM_CHARSET = 255;

inline constexpr BYTE OUT_DEFAULT_PRECIS = 0;
inline constexpr BYTE OUT_TT_PRECIS = 4;
inline constexpr BYTE CLIP_DEFAULT_PRECIS = 0;

inline constexpr BYTE DEFAULT_QUALITY = 0;
inline constexpr BYTE DRAFT_QUALITY = 1;
inline constexpr BYTE PROOF_QUALITY = 2;
inline constexpr BYTE NONANTIALIASED_QUALITY = 3;
inline constexpr BYTE ANTIALIASED_QUALITY = 4;
inline constexpr BYTE CLEARTYPE_QUALITY = 5;

inline constexpr BYTE DEFAULT_PITCH = 0;
inline constexpr BYTE FIXED_PITCH = 1;
inline constexpr BYTE VARIABLE_PITCH = 2;
inline constexpr BYTE FF_ROMAN = 0x10;
inline constexpr BYTE FF_SWISS = 0x20;
inline constexpr BYTE FF_MODERN = 0x30;

inline constexpr BYTE TMPF_FIXED_PITCH = 0x01; ///< Set for a font that is *not* of fixed pitch
inline constexpr BYTE TMPF_VECTOR = 0x02;
inline constexpr BYTE TMPF_TRUETYPE = 0x04;

inline constexpr int LF_FACESIZE = 32;
inline constexpr int LF_FULLFACESIZE = 64;

struct LOGFONTW {
    LONG lfHeight = 0;     ///< Negative: height of the em. Positive: height of the cell. 0: the default size
    LONG lfWidth = 0;      ///< Average width of a character; 0 by the height
    LONG lfEscapement = 0; ///< Tenths of a degree, counter-clockwise
    LONG lfOrientation = 0;
    LONG lfWeight = FW_DONTCARE;
    BYTE lfItalic = 0;
    BYTE lfUnderline = 0;
    BYTE lfStrikeOut = 0;
    BYTE lfCharSet = ANSI_CHARSET;
    BYTE lfOutPrecision = OUT_DEFAULT_PRECIS;
    BYTE lfClipPrecision = CLIP_DEFAULT_PRECIS;
    BYTE lfQuality = DEFAULT_QUALITY;
    BYTE lfPitchAndFamily = DEFAULT_PITCH;
    char16_t lfFaceName[LF_FACESIZE] = {};
};

struct ENUMLOGFONTEXW {
    LOGFONTW elfLogFont;
    char16_t elfFullName[LF_FULLFACESIZE] = {};
    char16_t elfStyle[LF_FACESIZE] = {};
    char16_t elfScript[LF_FACESIZE] = {};
};

struct TEXTMETRICW {
    LONG tmHeight = 0; ///< Ascent and descent
    LONG tmAscent = 0;
    LONG tmDescent = 0;
    LONG tmInternalLeading = 0;
    LONG tmExternalLeading = 0;
    LONG tmAveCharWidth = 0;
    LONG tmMaxCharWidth = 0;
    LONG tmWeight = 0;
    LONG tmOverhang = 0;
    LONG tmDigitizedAspectX = 0;
    LONG tmDigitizedAspectY = 0;
    char16_t tmFirstChar = 0;
    char16_t tmLastChar = 0;
    char16_t tmDefaultChar = 0;
    char16_t tmBreakChar = 0;
    BYTE tmItalic = 0;
    BYTE tmUnderlined = 0;
    BYTE tmStruckOut = 0;
    BYTE tmPitchAndFamily = 0;
    BYTE tmCharSet = 0;
};

/// The same with characters of the ANSI code page.
struct TEXTMETRICA {
    LONG tmHeight = 0;
    LONG tmAscent = 0;
    LONG tmDescent = 0;
    LONG tmInternalLeading = 0;
    LONG tmExternalLeading = 0;
    LONG tmAveCharWidth = 0;
    LONG tmMaxCharWidth = 0;
    LONG tmWeight = 0;
    LONG tmOverhang = 0;
    LONG tmDigitizedAspectX = 0;
    LONG tmDigitizedAspectY = 0;
    BYTE tmFirstChar = 0;
    BYTE tmLastChar = 0;
    BYTE tmDefaultChar = 0;
    BYTE tmBreakChar = 0;
    BYTE tmItalic = 0;
    BYTE tmUnderlined = 0;
    BYTE tmStruckOut = 0;
    BYTE tmPitchAndFamily = 0;
    BYTE tmCharSet = 0;
};

/// The parts of a character's advance; their sum is the advance.
struct ABC {
    INT abcA = 0;  ///< From the pen position to the ink; below zero when the ink begins before it
    UINT abcB = 0; ///< Width of the ink
    INT abcC = 0;  ///< From the ink to the next pen position
};

/// The kinds that EnumFontFamiliesExW reports.
inline constexpr DWORD RASTER_FONTTYPE = 1;
inline constexpr DWORD DEVICE_FONTTYPE = 2;
inline constexpr DWORD TRUETYPE_FONTTYPE = 4;

// --- Device capabilities ---------------------------------------------------------------------------

inline constexpr int DRIVERVERSION = 0;
inline constexpr int TECHNOLOGY = 2;
inline constexpr int HORZSIZE = 4; ///< Millimetres
inline constexpr int VERTSIZE = 6;
inline constexpr int HORZRES = 8; ///< Pixels
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;
inline constexpr int PLANES = 14;
inline constexpr int NUMBRUSHES = 16;
inline constexpr int NUMPENS = 18;
inline constexpr int NUMMARKERS = 20;
inline constexpr int NUMFONTS = 22;
inline constexpr int NUMCOLORS = 24;
inline constexpr int PDEVICESIZE = 26;
inline constexpr int CURVECAPS = 28;
inline constexpr int LINECAPS = 30;
inline constexpr int POLYGONALCAPS = 32;
inline constexpr int TEXTCAPS = 34;
inline constexpr int CLIPCAPS = 36;
inline constexpr int RASTERCAPS = 38;
inline constexpr int ASPECTX = 40;
inline constexpr int ASPECTY = 42;
inline constexpr int ASPECTXY = 44;
inline constexpr int SHADEBLENDCAPS = 45;
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;
inline constexpr int RC_PALETTE = 0x0100; ///< In RASTERCAPS: the display has a palette
inline constexpr int SIZEPALETTE = 104;
inline constexpr int NUMRESERVED = 106;
inline constexpr int COLORRES = 108;
inline constexpr int PHYSICALWIDTH = 110;
inline constexpr int PHYSICALHEIGHT = 111;
inline constexpr int PHYSICALOFFSETX = 112;
inline constexpr int PHYSICALOFFSETY = 113;
inline constexpr int SCALINGFACTORX = 114;
inline constexpr int SCALINGFACTORY = 115;
inline constexpr int VREFRESH = 116;
inline constexpr int DESKTOPVERTRES = 117;
inline constexpr int DESKTOPHORZRES = 118;

/// What GetGuiResources counts.
inline constexpr DWORD GR_GDIOBJECTS = 0;
inline constexpr DWORD GR_USEROBJECTS = 1;

} // namespace platform
