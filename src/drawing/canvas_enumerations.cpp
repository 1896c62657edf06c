#include "drawing/canvas_enumerations.h"

namespace tesela {

const automation::Enumeration& enumerationOf(DCProviderConstants) {
    static const automation::Enumeration table("DCProviderConstants",
                                               {
                                                   {"DCProvider_Auto", DCProvider_Auto},
                                                   {"DCProvider_User", DCProvider_User},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(tslFontStyleConstants) {
    static const automation::Enumeration table(
        "tslFontStyleConstants", {
                                     {"tslFontStyleNormal", tslFontStyleNormal},
                                     {"tslFontStyleDefaultProportional", tslFontStyleDefaultProportional},
                                     {"tslFontStyleDefaultMonospaced", tslFontStyleDefaultMonospaced},
                                     {"tslFontStyleDefaultNumbers", tslFontStyleDefaultNumbers},
                                     {"tslFontStyleBold", tslFontStyleBold},
                                     {"tslFontStyleItalic", tslFontStyleItalic},
                                     {"tslFontStyleUnderline", tslFontStyleUnderline},
                                     {"tslFontStyleStrikeOut", tslFontStyleStrikeOut},
                                 });
    return table;
}

const automation::Enumeration& enumerationOf(tslStdFontsConstants) {
    static const automation::Enumeration table("tslStdFontsConstants",
                                               {
                                                   {"tslStdFont_Normal", tslStdFont_Normal},
                                                   {"tslStdFont_Fixed", tslStdFont_Fixed},
                                                   {"tslStdFont_Numbers", tslStdFont_Numbers},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(GDIObjectTypeConstants) {
    static const automation::Enumeration table("GDIObjectTypeConstants",
                                               {
                                                   {"GDIObjectType_Pen", GDIObjectType_Pen},
                                                   {"GDIObjectType_Brush", GDIObjectType_Brush},
                                                   {"GDIObjectType_DC", GDIObjectType_DC},
                                                   {"GDIObjectType_MetaDC", GDIObjectType_MetaDC},
                                                   {"GDIObjectType_Palette", GDIObjectType_Palette},
                                                   {"GDIObjectType_Font", GDIObjectType_Font},
                                                   {"GDIObjectType_Bitmap", GDIObjectType_Bitmap},
                                                   {"GDIObjectType_Region", GDIObjectType_Region},
                                                   {"GDIObjectType_Metafile", GDIObjectType_Metafile},
                                                   {"GDIObjectType_MemDC", GDIObjectType_MemDC},
                                                   {"GDIObjectType_ExtPen", GDIObjectType_ExtPen},
                                                   {"GDIObjectType_EnhMetaDC", GDIObjectType_EnhMetaDC},
                                                   {"GDIObjectType_EnhMetafile", GDIObjectType_EnhMetafile},
                                                   {"GDIObjectType_ColorSpace", GDIObjectType_ColorSpace},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(PenStyleConstants) {
    static const automation::Enumeration table("PenStyleConstants",
                                               {
                                                   {"PenStyle_Solid", PenStyle_Solid},
                                                   {"PenStyle_Dash", PenStyle_Dash},
                                                   {"PenStyle_Dot", PenStyle_Dot},
                                                   {"PenStyle_DashDot", PenStyle_DashDot},
                                                   {"PenStyle_DashDotDot", PenStyle_DashDotDot},
                                                   {"PenStyle_Null", PenStyle_Null},
                                                   {"PenStyle_InsideFrame", PenStyle_InsideFrame},
                                                   {"PenStyle_UserStyle", PenStyle_UserStyle},
                                                   {"PenStyle_Alternate", PenStyle_Alternate},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(BrushStyleConstants) {
    static const automation::Enumeration table("BrushStyleConstants",
                                               {
                                                   {"BrushStyle_Solid", BrushStyle_Solid},
                                                   {"BrushStyle_Null", BrushStyle_Null},
                                                   {"BrushStyle_Hatched", BrushStyle_Hatched},
                                                   {"BrushStyle_Pattern", BrushStyle_Pattern},
                                                   {"BrushStyle_Indexed", BrushStyle_Indexed},
                                                   {"BrushStyle_DIBPattern", BrushStyle_DIBPattern},
                                                   {"BrushStyle_DIBPatternPt", BrushStyle_DIBPatternPt},
                                                   {"BrushStyle_Pattern8x8", BrushStyle_Pattern8x8},
                                                   {"BrushStyle_DIBPattern8x8", BrushStyle_DIBPattern8x8},
                                                   {"BrushStyle_MonoPattern", BrushStyle_MonoPattern},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(HatchStyleConstants) {
    static const automation::Enumeration table("HatchStyleConstants",
                                               {
                                                   {"HatchStyle_Horizontal", HatchStyle_Horizontal},
                                                   {"HatchStyle_Vertical", HatchStyle_Vertical},
                                                   {"HatchStyle_FDiagonal", HatchStyle_FDiagonal},
                                                   {"HatchStyle_BDiagonal", HatchStyle_BDiagonal},
                                                   {"HatchStyle_Cross", HatchStyle_Cross},
                                                   {"HatchStyle_DiagCross", HatchStyle_DiagCross},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(BackModeConstants) {
    static const automation::Enumeration table("BackModeConstants",
                                               {
                                                   {"BackMode_Transparent", BackMode_Transparent},
                                                   {"BackMode_Opaque", BackMode_Opaque},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(BinaryMixModeConstants) {
    static const automation::Enumeration table("BinaryMixModeConstants",
                                               {
                                                   {"BinaryMixMode_Black", BinaryMixMode_Black},
                                                   {"BinaryMixMode_NotMergePen", BinaryMixMode_NotMergePen},
                                                   {"BinaryMixMode_MaskNotPen", BinaryMixMode_MaskNotPen},
                                                   {"BinaryMixMode_NotCopyPen", BinaryMixMode_NotCopyPen},
                                                   {"BinaryMixMode_MaskPenNot", BinaryMixMode_MaskPenNot},
                                                   {"BinaryMixMode_Not", BinaryMixMode_Not},
                                                   {"BinaryMixMode_XorPen", BinaryMixMode_XorPen},
                                                   {"BinaryMixMode_NotMaskPen", BinaryMixMode_NotMaskPen},
                                                   {"BinaryMixMode_MaskPen", BinaryMixMode_MaskPen},
                                                   {"BinaryMixMode_NotXorPen", BinaryMixMode_NotXorPen},
                                                   {"BinaryMixMode_Nop", BinaryMixMode_Nop},
                                                   {"BinaryMixMode_MergeNotPen", BinaryMixMode_MergeNotPen},
                                                   {"BinaryMixMode_CopyPen", BinaryMixMode_CopyPen},
                                                   {"BinaryMixMode_MergePenNot", BinaryMixMode_MergePenNot},
                                                   {"BinaryMixMode_MergePen", BinaryMixMode_MergePen},
                                                   {"BinaryMixMode_White", BinaryMixMode_White},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(ClipPathModeConstants) {
    static const automation::Enumeration table("ClipPathModeConstants",
                                               {
                                                   {"ClipPathMode_And", ClipPathMode_And},
                                                   {"ClipPathMode_Or", ClipPathMode_Or},
                                                   {"ClipPathMode_Xor", ClipPathMode_Xor},
                                                   {"ClipPathMode_Diff", ClipPathMode_Diff},
                                                   {"ClipPathMode_Copy", ClipPathMode_Copy},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(StretchBltConstants) {
    static const automation::Enumeration table("StretchBltConstants",
                                               {
                                                   {"StretchBlt_BlackOnWhite", StretchBlt_BlackOnWhite},
                                                   {"StretchBlt_WhiteOnBlack", StretchBlt_WhiteOnBlack},
                                                   {"StretchBlt_ColorOnColor", StretchBlt_ColorOnColor},
                                                   {"StretchBlt_HalfTone", StretchBlt_HalfTone},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(GDIStockObjectsConstants) {
    static const automation::Enumeration table(
        "GDIStockObjectsConstants",
        {
            {"GDIStockObjects_WhiteBrush", GDIStockObjects_WhiteBrush},
            {"GDIStockObjects_LtGrayBrush", GDIStockObjects_LtGrayBrush},
            {"GDIStockObjects_GrayBrush", GDIStockObjects_GrayBrush},
            {"GDIStockObjects_DkGrayBrush", GDIStockObjects_DkGrayBrush},
            {"GDIStockObjects_BlackBrush", GDIStockObjects_BlackBrush},
            {"GDIStockObjects_NullBrush", GDIStockObjects_NullBrush},
            {"GDIStockObjects_WhitePen", GDIStockObjects_WhitePen},
            {"GDIStockObjects_BlackPen", GDIStockObjects_BlackPen},
            {"GDIStockObjects_NullPen", GDIStockObjects_NullPen},
            {"GDIStockObjects_OEMFixedFont", GDIStockObjects_OEMFixedFont},
            {"GDIStockObjects_ANSIFixedFont", GDIStockObjects_ANSIFixedFont},
            {"GDIStockObjects_ANSIVarFont", GDIStockObjects_ANSIVarFont},
            {"GDIStockObjects_SystemFont", GDIStockObjects_SystemFont},
            {"GDIStockObjects_DeviceDefaultFont", GDIStockObjects_DeviceDefaultFont},
            {"GDIStockObjects_DefaultPalette", GDIStockObjects_DefaultPalette},
            {"GDIStockObjects_SystemFixedFont", GDIStockObjects_SystemFixedFont},
            {"GDIStockObjects_DefaultGUIFont", GDIStockObjects_DefaultGUIFont},
            {"GDIStockObjects_DCBrush", GDIStockObjects_DCBrush},
            {"GDIStockObjects_DCPen", GDIStockObjects_DCPen},
        });
    return table;
}

const automation::Enumeration& enumerationOf(GDIDeviceCapsConstants) {
    static const automation::Enumeration table(
        "GDIDeviceCapsConstants", {
                                      {"GDIDeviceCaps_DriverVersion", GDIDeviceCaps_DriverVersion},
                                      {"GDIDeviceCaps_Technology", GDIDeviceCaps_Technology},
                                      {"GDIDeviceCaps_HorzSize", GDIDeviceCaps_HorzSize},
                                      {"GDIDeviceCaps_VertSize", GDIDeviceCaps_VertSize},
                                      {"GDIDeviceCaps_HorzRes", GDIDeviceCaps_HorzRes},
                                      {"GDIDeviceCaps_VertRes", GDIDeviceCaps_VertRes},
                                      {"GDIDeviceCaps_BitsPixel", GDIDeviceCaps_BitsPixel},
                                      {"GDIDeviceCaps_Planes", GDIDeviceCaps_Planes},
                                      {"GDIDeviceCaps_NumBrushes", GDIDeviceCaps_NumBrushes},
                                      {"GDIDeviceCaps_NumPens", GDIDeviceCaps_NumPens},
                                      {"GDIDeviceCaps_NumMarkers", GDIDeviceCaps_NumMarkers},
                                      {"GDIDeviceCaps_NumFonts", GDIDeviceCaps_NumFonts},
                                      {"GDIDeviceCaps_NumColors", GDIDeviceCaps_NumColors},
                                      {"GDIDeviceCaps_PDeviceSize", GDIDeviceCaps_PDeviceSize},
                                      {"GDIDeviceCaps_CurveCaps", GDIDeviceCaps_CurveCaps},
                                      {"GDIDeviceCaps_LineCaps", GDIDeviceCaps_LineCaps},
                                      {"GDIDeviceCaps_PolygonalCaps", GDIDeviceCaps_PolygonalCaps},
                                      {"GDIDeviceCaps_TextCaps", GDIDeviceCaps_TextCaps},
                                      {"GDIDeviceCaps_ClipCaps", GDIDeviceCaps_ClipCaps},
                                      {"GDIDeviceCaps_RasterCaps", GDIDeviceCaps_RasterCaps},
                                      {"GDIDeviceCaps_AspectX", GDIDeviceCaps_AspectX},
                                      {"GDIDeviceCaps_AspectY", GDIDeviceCaps_AspectY},
                                      {"GDIDeviceCaps_AspectXY", GDIDeviceCaps_AspectXY},
                                      {"GDIDeviceCaps_ShadeBlendCaps", GDIDeviceCaps_ShadeBlendCaps},
                                      {"GDIDeviceCaps_LogPixelsX", GDIDeviceCaps_LogPixelsX},
                                      {"GDIDeviceCaps_LogPixelsY", GDIDeviceCaps_LogPixelsY},
                                      {"GDIDeviceCaps_SizePalette", GDIDeviceCaps_SizePalette},
                                      {"GDIDeviceCaps_NumReserved", GDIDeviceCaps_NumReserved},
                                      {"GDIDeviceCaps_ColorRes", GDIDeviceCaps_ColorRes},
                                      {"GDIDeviceCaps_PhysicalWidth", GDIDeviceCaps_PhysicalWidth},
                                      {"GDIDeviceCaps_PhysicalHeight", GDIDeviceCaps_PhysicalHeight},
                                      {"GDIDeviceCaps_PhysicalOffsetX", GDIDeviceCaps_PhysicalOffsetX},
                                      {"GDIDeviceCaps_PhysicalOffsetY", GDIDeviceCaps_PhysicalOffsetY},
                                      {"GDIDeviceCaps_ScalingFactorX", GDIDeviceCaps_ScalingFactorX},
                                      {"GDIDeviceCaps_ScalingFactorY", GDIDeviceCaps_ScalingFactorY},
                                      {"GDIDeviceCaps_VRefresh", GDIDeviceCaps_VRefresh},
                                      {"GDIDeviceCaps_DesktopVertRes", GDIDeviceCaps_DesktopVertRes},
                                      {"GDIDeviceCaps_DesktopHorzRes", GDIDeviceCaps_DesktopHorzRes},
                                      {"GDIDeviceCaps_BltAlignment", GDIDeviceCaps_BltAlignment},
                                      {"GDIDeviceCaps_ColorMgmtCaps", GDIDeviceCaps_ColorMgmtCaps},
                                  });
    return table;
}

const automation::Enumeration& enumerationOf(FontWeightConstants) {
    static const automation::Enumeration table("FontWeightConstants",
                                               {
                                                   {"FontWeight_DontCare", FontWeight_DontCare},
                                                   {"FontWeight_Thin", FontWeight_Thin},
                                                   {"FontWeight_ExtraLight", FontWeight_ExtraLight},
                                                   {"FontWeight_Light", FontWeight_Light},
                                                   {"FontWeight_Normal", FontWeight_Normal},
                                                   {"FontWeight_Medium", FontWeight_Medium},
                                                   {"FontWeight_SemiBold", FontWeight_SemiBold},
                                                   {"FontWeight_Bold", FontWeight_Bold},
                                                   {"FontWeight_ExtraBold", FontWeight_ExtraBold},
                                                   {"FontWeight_Heavy", FontWeight_Heavy},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(FontCharSetConstants) {
    static const automation::Enumeration table("FontCharSetConstants",
                                               {
                                                   {"FontCharSet_ANSI", FontCharSet_ANSI},
                                                   {"FontCharSet_Default", FontCharSet_Default},
                                                   {"FontCharSet_Symbol", FontCharSet_Symbol},
                                                   {"FontCharSet_Mac", FontCharSet_Mac},
                                                   {"FontCharSet_ShiftJIS", FontCharSet_ShiftJIS},
                                                   {"FontCharSet_Hangul", FontCharSet_Hangul},
                                                   {"FontCharSet_Johab", FontCharSet_Johab},
                                                   {"FontCharSet_GB2312", FontCharSet_GB2312},
                                                   {"FontCharSet_ChineseBig5", FontCharSet_ChineseBig5},
                                                   {"FontCharSet_Greek", FontCharSet_Greek},
                                                   {"FontCharSet_Turkish", FontCharSet_Turkish},
                                                   {"FontCharSet_Vietnamese", FontCharSet_Vietnamese},
                                                   {"FontCharSet_Hebrew", FontCharSet_Hebrew},
                                                   {"FontCharSet_Arabic", FontCharSet_Arabic},
                                                   {"FontCharSet_Baltic", FontCharSet_Baltic},
                                                   {"FontCharSet_Russian", FontCharSet_Russian},
                                                   {"FontCharSet_Thai", FontCharSet_Thai},
                                                   {"FontCharSet_EastEurope", FontCharSet_EastEurope},
                                                   {"FontCharSet_OEM", FontCharSet_OEM},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(FontOutputPrecisionConstants) {
    static const automation::Enumeration table(
        "FontOutputPrecisionConstants",
        {
            {"FontOutputPrecision_Default", FontOutputPrecision_Default},
            {"FontOutputPrecision_String", FontOutputPrecision_String},
            {"FontOutputPrecision_Character", FontOutputPrecision_Character},
            {"FontOutputPrecision_Stroke", FontOutputPrecision_Stroke},
            {"FontOutputPrecision_TrueType", FontOutputPrecision_TrueType},
            {"FontOutputPrecision_Device", FontOutputPrecision_Device},
            {"FontOutputPrecision_Raster", FontOutputPrecision_Raster},
            {"FontOutputPrecision_TrueTypeOnly", FontOutputPrecision_TrueTypeOnly},
            {"FontOutputPrecision_Outline", FontOutputPrecision_Outline},
            {"FontOutputPrecision_ScreenOutline", FontOutputPrecision_ScreenOutline},
            {"FontOutputPrecision_PostScriptOnly", FontOutputPrecision_PostScriptOnly},
        });
    return table;
}

const automation::Enumeration& enumerationOf(FontClipPrecisionConstants) {
    static const automation::Enumeration table(
        "FontClipPrecisionConstants", {
                                          {"FontClipPrecision_Default", FontClipPrecision_Default},
                                          {"FontClipPrecision_Character", FontClipPrecision_Character},
                                          {"FontClipPrecision_Stroke", FontClipPrecision_Stroke},
                                          {"FontClipPrecision_Mask", FontClipPrecision_Mask},
                                          {"FontClipPrecision_LHAngles", FontClipPrecision_LHAngles},
                                          {"FontClipPrecision_TTAlways", FontClipPrecision_TTAlways},
                                          {"FontClipPrecision_DFADisable", FontClipPrecision_DFADisable},
                                          {"FontClipPrecision_Embedded", FontClipPrecision_Embedded},
                                      });
    return table;
}

const automation::Enumeration& enumerationOf(FontQualityConstants) {
    static const automation::Enumeration table(
        "FontQualityConstants", {
                                    {"FontQuality_Default", FontQuality_Default},
                                    {"FontQuality_Draft", FontQuality_Draft},
                                    {"FontQuality_Proof", FontQuality_Proof},
                                    {"FontQuality_NonAntialiased", FontQuality_NonAntialiased},
                                    {"FontQuality_Antialiased", FontQuality_Antialiased},
                                    {"FontQuality_ClearType", FontQuality_ClearType},
                                    {"FontQuality_ClearTypeNatural", FontQuality_ClearTypeNatural},
                                });
    return table;
}

const automation::Enumeration& enumerationOf(FontPitchAndFamilyConstants) {
    static const automation::Enumeration table(
        "FontPitchAndFamilyConstants", {
                                           {"FontPitchAndFamily_Default", FontPitchAndFamily_Default},
                                           {"FontPitchAndFamily_Fixed", FontPitchAndFamily_Fixed},
                                           {"FontPitchAndFamily_Variable", FontPitchAndFamily_Variable},
                                           {"FontPitchAndFamily_Mono", FontPitchAndFamily_Mono},
                                           {"FontPitchAndFamily_Roman", FontPitchAndFamily_Roman},
                                           {"FontPitchAndFamily_Swiss", FontPitchAndFamily_Swiss},
                                           {"FontPitchAndFamily_Modern", FontPitchAndFamily_Modern},
                                           {"FontPitchAndFamily_Script", FontPitchAndFamily_Script},
                                           {"FontPitchAndFamily_Decorative", FontPitchAndFamily_Decorative},
                                       });
    return table;
}

const automation::Enumeration& enumerationOf(TextAlignConstants) {
    static const automation::Enumeration table("TextAlignConstants",
                                               {
                                                   {"TextAlign_NoUpdateCP", TextAlign_NoUpdateCP},
                                                   {"TextAlign_UpdateCP", TextAlign_UpdateCP},
                                                   {"TextAlign_Left", TextAlign_Left},
                                                   {"TextAlign_Right", TextAlign_Right},
                                                   {"TextAlign_Center", TextAlign_Center},
                                                   {"TextAlign_Top", TextAlign_Top},
                                                   {"TextAlign_Bottom", TextAlign_Bottom},
                                                   {"TextAlign_BaseLine", TextAlign_BaseLine},
                                                   {"TextAlign_RTLReading", TextAlign_RTLReading},
                                               });
    return table;
}

const automation::Enumeration& enumerationOf(SystemColorConstants) {
    static const automation::Enumeration table(
        "SystemColorConstants",
        {
            {"SystemColor_ScrollBar", SystemColor_ScrollBar},
            {"SystemColor_Background", SystemColor_Background},
            {"SystemColor_ActiveCaption", SystemColor_ActiveCaption},
            {"SystemColor_InactiveCaption", SystemColor_InactiveCaption},
            {"SystemColor_Menu", SystemColor_Menu},
            {"SystemColor_Window", SystemColor_Window},
            {"SystemColor_WindowFrame", SystemColor_WindowFrame},
            {"SystemColor_MenuText", SystemColor_MenuText},
            {"SystemColor_WindowText", SystemColor_WindowText},
            {"SystemColor_CaptionText", SystemColor_CaptionText},
            {"SystemColor_ActiveBorder", SystemColor_ActiveBorder},
            {"SystemColor_InactiveBorder", SystemColor_InactiveBorder},
            {"SystemColor_AppWorkspace", SystemColor_AppWorkspace},
            {"SystemColor_Highlight", SystemColor_Highlight},
            {"SystemColor_HighlightText", SystemColor_HighlightText},
            {"SystemColor_BtnFace", SystemColor_BtnFace},
            {"SystemColor_BtnShadow", SystemColor_BtnShadow},
            {"SystemColor_GrayText", SystemColor_GrayText},
            {"SystemColor_BtnText", SystemColor_BtnText},
            {"SystemColor_InactiveCaptionText", SystemColor_InactiveCaptionText},
            {"SystemColor_BtnHighlight", SystemColor_BtnHighlight},
            {"SystemColor_DkShadow3D", SystemColor_DkShadow3D},
            {"SystemColor_Light3D", SystemColor_Light3D},
            {"SystemColor_InfoText", SystemColor_InfoText},
            {"SystemColor_InfoBk", SystemColor_InfoBk},
            {"SystemColor_HotLight", SystemColor_HotLight},
            {"SystemColor_GradientActiveCaption", SystemColor_GradientActiveCaption},
            {"SystemColor_GradientInactiveCaption", SystemColor_GradientInactiveCaption},
            {"SystemColor_MenuHilight", SystemColor_MenuHilight},
            {"SystemColor_MenuBar", SystemColor_MenuBar},
        });
    return table;
}

} // namespace tesela
