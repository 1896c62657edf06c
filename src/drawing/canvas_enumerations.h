#pragma once
// The platform's drawing constants and those of the canvas, under the names of the interface.

#include "automation/Enumeration.h"

#include <cstdint>

namespace tesela {

/// Whose device context a canvas draws on.
enum DCProviderConstants : std::int32_t {
    DCProvider_Auto = 0, ///< Its own, with a bitmap of its own
    DCProvider_User = 1, ///< The caller's
};

/// A style of letters: one of the first four plus any of the others.
enum tslFontStyleConstants : std::int32_t {
    tslFontStyleNormal = 0,
    tslFontStyleDefaultProportional = 1,
    tslFontStyleDefaultMonospaced = 2,
    tslFontStyleDefaultNumbers = 3,
    tslFontStyleBold = 4,
    tslFontStyleItalic = 8,
    tslFontStyleUnderline = 16,
    tslFontStyleStrikeOut = 32,
};

/// The fonts that CreateStandardFonts makes.
enum tslStdFontsConstants : std::int32_t {
    tslStdFont_Normal = 0,
    tslStdFont_Fixed = 1,
    tslStdFont_Numbers = 2,
};

/// What a graphic object is.
enum GDIObjectTypeConstants : std::int32_t {
    GDIObjectType_Pen = 1,
    GDIObjectType_Brush = 2,
    GDIObjectType_DC = 3,
    GDIObjectType_MetaDC = 4,
    GDIObjectType_Palette = 5,
    GDIObjectType_Font = 6,
    GDIObjectType_Bitmap = 7,
    GDIObjectType_Region = 8,
    GDIObjectType_Metafile = 9,
    GDIObjectType_MemDC = 10,
    GDIObjectType_ExtPen = 11,
    GDIObjectType_EnhMetaDC = 12,
    GDIObjectType_EnhMetafile = 13,
    GDIObjectType_ColorSpace = 14,
};

enum PenStyleConstants : std::int32_t {
    PenStyle_Solid = 0,
    PenStyle_Dash = 1,
    PenStyle_Dot = 2,
    PenStyle_DashDot = 3,
    PenStyle_DashDotDot = 4,
    PenStyle_Null = 5,
    PenStyle_InsideFrame = 6,
    PenStyle_UserStyle = 7, ///< This and the next: of pens that CreatePen does not make
    PenStyle_Alternate = 8,
};

enum BrushStyleConstants : std::int32_t {
    BrushStyle_Solid = 0,
    BrushStyle_Null = 1,
    BrushStyle_Hatched = 2,
    BrushStyle_Pattern = 3,
    BrushStyle_Indexed = 4,
    BrushStyle_DIBPattern = 5,
    BrushStyle_DIBPatternPt = 6,
    BrushStyle_Pattern8x8 = 7,
    BrushStyle_DIBPattern8x8 = 8,
    BrushStyle_MonoPattern = 9,
};

enum HatchStyleConstants : std::int32_t {
    HatchStyle_Horizontal = 0,
    HatchStyle_Vertical = 1,
    HatchStyle_FDiagonal = 2,
    HatchStyle_BDiagonal = 3,
    HatchStyle_Cross = 4,
    HatchStyle_DiagCross = 5,
};

/// Whether text and hatches fill what lies between their strokes.
enum BackModeConstants : std::int32_t {
    BackMode_Transparent = 1,
    BackMode_Opaque = 2,
};

/// How pens and brushes are mixed with what is there.
enum BinaryMixModeConstants : std::int32_t {
    BinaryMixMode_Black = 1,
    BinaryMixMode_NotMergePen = 2,
    BinaryMixMode_MaskNotPen = 3,
    BinaryMixMode_NotCopyPen = 4,
    BinaryMixMode_MaskPenNot = 5,
    BinaryMixMode_Not = 6,
    BinaryMixMode_XorPen = 7,
    BinaryMixMode_NotMaskPen = 8,
    BinaryMixMode_MaskPen = 9,
    BinaryMixMode_NotXorPen = 10,
    BinaryMixMode_Nop = 11,
    BinaryMixMode_MergeNotPen = 12,
    BinaryMixMode_CopyPen = 13,
    BinaryMixMode_MergePenNot = 14,
    BinaryMixMode_MergePen = 15,
    BinaryMixMode_White = 16,
};

/// How a path joins the clipping.
enum ClipPathModeConstants : std::int32_t {
    ClipPathMode_And = 1,
    ClipPathMode_Or = 2,
    ClipPathMode_Xor = 3,
    ClipPathMode_Diff = 4,
    ClipPathMode_Copy = 5,
};

/// How rows and columns are joined when a picture shrinks.
enum StretchBltConstants : std::int32_t {
    StretchBlt_BlackOnWhite = 1,
    StretchBlt_WhiteOnBlack = 2,
    StretchBlt_ColorOnColor = 3,
    StretchBlt_HalfTone = 4,
};

enum GDIStockObjectsConstants : std::int32_t {
    GDIStockObjects_WhiteBrush = 0,
    GDIStockObjects_LtGrayBrush = 1,
    GDIStockObjects_GrayBrush = 2,
    GDIStockObjects_DkGrayBrush = 3,
    GDIStockObjects_BlackBrush = 4,
    GDIStockObjects_NullBrush = 5,
    GDIStockObjects_WhitePen = 6,
    GDIStockObjects_BlackPen = 7,
    GDIStockObjects_NullPen = 8,
    GDIStockObjects_OEMFixedFont = 10,
    GDIStockObjects_ANSIFixedFont = 11,
    GDIStockObjects_ANSIVarFont = 12,
    GDIStockObjects_SystemFont = 13,
    GDIStockObjects_DeviceDefaultFont = 14,
    GDIStockObjects_DefaultPalette = 15,
    GDIStockObjects_SystemFixedFont = 16,
    GDIStockObjects_DefaultGUIFont = 17,
    GDIStockObjects_DCBrush = 18,
    GDIStockObjects_DCPen = 19,
};

enum GDIDeviceCapsConstants : std::int32_t {
    GDIDeviceCaps_DriverVersion = 0,
    GDIDeviceCaps_Technology = 2,
    GDIDeviceCaps_HorzSize = 4,
    GDIDeviceCaps_VertSize = 6,
    GDIDeviceCaps_HorzRes = 8,
    GDIDeviceCaps_VertRes = 10,
    GDIDeviceCaps_BitsPixel = 12,
    GDIDeviceCaps_Planes = 14,
    GDIDeviceCaps_NumBrushes = 16,
    GDIDeviceCaps_NumPens = 18,
    GDIDeviceCaps_NumMarkers = 20,
    GDIDeviceCaps_NumFonts = 22,
    GDIDeviceCaps_NumColors = 24,
    GDIDeviceCaps_PDeviceSize = 26,
    GDIDeviceCaps_CurveCaps = 28,
    GDIDeviceCaps_LineCaps = 30,
    GDIDeviceCaps_PolygonalCaps = 32,
    GDIDeviceCaps_TextCaps = 34,
    GDIDeviceCaps_ClipCaps = 36,
    GDIDeviceCaps_RasterCaps = 38,
    GDIDeviceCaps_AspectX = 40,
    GDIDeviceCaps_AspectY = 42,
    GDIDeviceCaps_AspectXY = 44,
    GDIDeviceCaps_ShadeBlendCaps = 45,
    GDIDeviceCaps_LogPixelsX = 88,
    GDIDeviceCaps_LogPixelsY = 90,
    GDIDeviceCaps_SizePalette = 104,
    GDIDeviceCaps_NumReserved = 106,
    GDIDeviceCaps_ColorRes = 108,
    GDIDeviceCaps_PhysicalWidth = 110,
    GDIDeviceCaps_PhysicalHeight = 111,
    GDIDeviceCaps_PhysicalOffsetX = 112,
    GDIDeviceCaps_PhysicalOffsetY = 113,
    GDIDeviceCaps_ScalingFactorX = 114,
    GDIDeviceCaps_ScalingFactorY = 115,
    GDIDeviceCaps_VRefresh = 116,
    GDIDeviceCaps_DesktopVertRes = 117,
    GDIDeviceCaps_DesktopHorzRes = 118,
    GDIDeviceCaps_BltAlignment = 119,
    GDIDeviceCaps_ColorMgmtCaps = 121,
};

enum FontWeightConstants : std::int32_t {
    FontWeight_DontCare = 0,
    FontWeight_Thin = 100,
    FontWeight_ExtraLight = 200,
    FontWeight_Light = 300,
    FontWeight_Normal = 400,
    FontWeight_Medium = 500,
    FontWeight_SemiBold = 600,
    FontWeight_Bold = 700,
    FontWeight_ExtraBold = 800,
    FontWeight_Heavy = 900,
};

enum FontCharSetConstants : std::int32_t {
    FontCharSet_ANSI = 0,
    FontCharSet_Default = 1,
    FontCharSet_Symbol = 2,
    FontCharSet_Mac = 77,
    FontCharSet_ShiftJIS = 128,
    FontCharSet_Hangul = 129,
    FontCharSet_Johab = 130,
    FontCharSet_GB2312 = 134,
    FontCharSet_ChineseBig5 = 136,
    FontCharSet_Greek = 161,
    FontCharSet_Turkish = 162,
    FontCharSet_Vietnamese = 163,
    FontCharSet_Hebrew = 177,
    FontCharSet_Arabic = 178,
    FontCharSet_Baltic = 186,
    FontCharSet_Russian = 204,
    FontCharSet_Thai = 222,
    FontCharSet_EastEurope = 238,
    FontCharSet_OEM = 255,
};

enum FontOutputPrecisionConstants : std::int32_t {
    FontOutputPrecision_Default = 0,
    FontOutputPrecision_String = 1,
    FontOutputPrecision_Character = 2,
    FontOutputPrecision_Stroke = 3,
    FontOutputPrecision_TrueType = 4,
    FontOutputPrecision_Device = 5,
    FontOutputPrecision_Raster = 6,
    FontOutputPrecision_TrueTypeOnly = 7,
    FontOutputPrecision_Outline = 8,
    FontOutputPrecision_ScreenOutline = 9,
    FontOutputPrecision_PostScriptOnly = 10,
};

enum FontClipPrecisionConstants : std::int32_t {
    FontClipPrecision_Default = 0,
    FontClipPrecision_Character = 1,
    FontClipPrecision_Stroke = 2,
    FontClipPrecision_Mask = 15,
    FontClipPrecision_LHAngles = 16,
    FontClipPrecision_TTAlways = 32,
    FontClipPrecision_DFADisable = 64,
    FontClipPrecision_Embedded = 128,
};

enum FontQualityConstants : std::int32_t {
    FontQuality_Default = 0,
    FontQuality_Draft = 1,
    FontQuality_Proof = 2,
    FontQuality_NonAntialiased = 3,
    FontQuality_Antialiased = 4,
    FontQuality_ClearType = 5,
    FontQuality_ClearTypeNatural = 6,
};

/// A pitch (below 16) and a family (16 and above), combined by addition.
enum FontPitchAndFamilyConstants : std::int32_t {
    FontPitchAndFamily_Default = 0,
    FontPitchAndFamily_Fixed = 1,
    FontPitchAndFamily_Variable = 2,
    FontPitchAndFamily_Mono = 8,
    FontPitchAndFamily_Roman = 16,
    FontPitchAndFamily_Swiss = 32,
    FontPitchAndFamily_Modern = 48,
    FontPitchAndFamily_Script = 64,
    FontPitchAndFamily_Decorative = 80,
};

/// One of each row, combined by addition.
enum TextAlignConstants : std::int32_t {
    TextAlign_NoUpdateCP = 0,
    TextAlign_UpdateCP = 1,
    TextAlign_Left = 0,
    TextAlign_Right = 2,
    TextAlign_Center = 6,
    TextAlign_Top = 0,
    TextAlign_Bottom = 8,
    TextAlign_BaseLine = 24,
    TextAlign_RTLReading = 256,
};

enum SystemColorConstants : std::int32_t {
    SystemColor_ScrollBar = 0,
    SystemColor_Background = 1,
    SystemColor_ActiveCaption = 2,
    SystemColor_InactiveCaption = 3,
    SystemColor_Menu = 4,
    SystemColor_Window = 5,
    SystemColor_WindowFrame = 6,
    SystemColor_MenuText = 7,
    SystemColor_WindowText = 8,
    SystemColor_CaptionText = 9,
    SystemColor_ActiveBorder = 10,
    SystemColor_InactiveBorder = 11,
    SystemColor_AppWorkspace = 12,
    SystemColor_Highlight = 13,
    SystemColor_HighlightText = 14,
    SystemColor_BtnFace = 15,
    SystemColor_BtnShadow = 16,
    SystemColor_GrayText = 17,
    SystemColor_BtnText = 18,
    SystemColor_InactiveCaptionText = 19,
    SystemColor_BtnHighlight = 20,
    SystemColor_DkShadow3D = 21,
    SystemColor_Light3D = 22,
    SystemColor_InfoText = 23,
    SystemColor_InfoBk = 24,
    SystemColor_HotLight = 26,
    SystemColor_GradientActiveCaption = 27,
    SystemColor_GradientInactiveCaption = 28,
    SystemColor_MenuHilight = 29,
    SystemColor_MenuBar = 30,
};

const automation::Enumeration& enumerationOf(DCProviderConstants);
const automation::Enumeration& enumerationOf(tslFontStyleConstants);
const automation::Enumeration& enumerationOf(tslStdFontsConstants);
const automation::Enumeration& enumerationOf(GDIObjectTypeConstants);
const automation::Enumeration& enumerationOf(PenStyleConstants);
const automation::Enumeration& enumerationOf(BrushStyleConstants);
const automation::Enumeration& enumerationOf(HatchStyleConstants);
const automation::Enumeration& enumerationOf(BackModeConstants);
const automation::Enumeration& enumerationOf(BinaryMixModeConstants);
const automation::Enumeration& enumerationOf(ClipPathModeConstants);
const automation::Enumeration& enumerationOf(StretchBltConstants);
const automation::Enumeration& enumerationOf(GDIStockObjectsConstants);
const automation::Enumeration& enumerationOf(GDIDeviceCapsConstants);
const automation::Enumeration& enumerationOf(FontWeightConstants);
const automation::Enumeration& enumerationOf(FontCharSetConstants);
const automation::Enumeration& enumerationOf(FontOutputPrecisionConstants);
const automation::Enumeration& enumerationOf(FontClipPrecisionConstants);
const automation::Enumeration& enumerationOf(FontQualityConstants);
const automation::Enumeration& enumerationOf(FontPitchAndFamilyConstants);
const automation::Enumeration& enumerationOf(TextAlignConstants);
const automation::Enumeration& enumerationOf(SystemColorConstants);

} // namespace tesela
