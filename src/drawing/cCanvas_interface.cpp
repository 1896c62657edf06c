// The canvas's member table.

#include "drawing/cCanvas.h"

#include "automation/ClassTable.h"

namespace tesela {

namespace {

using automation::Array;
using automation::ClassTable;
using automation::optional;
using Builder = ClassTable::Builder<cCanvas>;
using Long = std::int32_t;

// One function for each stretch of the interface, in its order.

void surface(Builder& table) {
    table.method("Minimize_GDI_UsedResources", &cCanvas::Minimize_GDI_UsedResources)
        .method("DeleteDC", &cCanvas::DeleteDC, {"nHDC"})
        .method("ReleaseDC", &cCanvas::ReleaseDC, {"nHWND", "nHDC"})
        .method("Configure", &cCanvas::Configure,
                {"nTargetDC", "nLeft", "nTop", "nWidth", "nHeight",
                 optional("nHDC_Provider", DCProvider_Auto), optional("lStatic_HDC_Target", true)})
        .method("Resize", &cCanvas::Resize, {"nWidth", "nHeight", optional("nNewCompatDC")})
        .method("BeginPaint", &cCanvas::BeginPaint)
        .method("EndPaint", &cCanvas::EndPaint)
        .get("Width", &cCanvas::Width)
        .get("Height", &cCanvas::Height)
        .method("ScaleX", &cCanvas::ScaleX,
                {"nLongitud", optional("nFrom", Long{3}), optional("nTo", Long{3})})
        .method("ScaleY", &cCanvas::ScaleY,
                {"nLongitud", optional("nFrom", Long{3}), optional("nTo", Long{3})})
        .method("CreateFromPicture", &cCanvas::CreateFromPicture, {"oPic", "nDC_Target"})
        .method("CreateInPictureBox", &cCanvas::CreateInPictureBox, {"oPBox", optional("lCopyPicture")})
        .method("BeginRecordMetafile", &cCanvas::BeginRecordMetafile,
                {optional("cFileName"), optional("cAplicacion"), optional("cDescripcion")})
        .method("EndRecordMetafile", &cCanvas::EndRecordMetafile, {optional("lPlayToTargetDC", true)})
        .method("DeleteMetafile", &cCanvas::DeleteMetafile, {"nHEMF"})
        .method("PlayMetafile", &cCanvas::PlayMetafile,
                {"nHEMF", "nX", "nY", optional("nWidth"), optional("nHeight")});
}

void objects(Builder& table) {
    table.method("SelectObject", &cCanvas::SelectObject, {"nHObject"})
        .method("DeleteObject", &cCanvas::DeleteObject, {"nHObject"})
        .method("GetStockObject", &cCanvas::GetStockObject, {"nObject"})
        .method("CreateRECT", &cCanvas::CreateRECT, {"nLeft", "nTop", "nRight", "nBottom"})
        .method("ComprobarPaletaSemitonos", &cCanvas::ComprobarPaletaSemitonos)
        .method("CreatePen", &cCanvas::CreatePen, {"nStyle", "nWidth", "nColor"})
        .method("SelectPen", &cCanvas::SelectPen, {"nStyle", "nWidth", "nColor"})
        .method("SelectSimplePen", &cCanvas::SelectSimplePen, {"nColor"})
        .method("SelectNullPen", &cCanvas::SelectNullPen)
        .method("CreateHatchBrush", &cCanvas::CreateHatchBrush, {"nStyle", "nColor"})
        .method("SelectHatchBrush", &cCanvas::SelectHatchBrush, {"nStyle", "nColor"})
        .method("CreatePatternBrush", &cCanvas::CreatePatternBrush, {"hBitmap"})
        .method("SelectPatternBrush", &cCanvas::SelectPatternBrush, {"hBitmap"})
        .method("CreateSolidBrush", &cCanvas::CreateSolidBrush, {"nColor"})
        .method("SelectSolidBrush", &cCanvas::SelectSolidBrush, {"nColor"})
        .method("SelectNullBrush", &cCanvas::SelectNullBrush)
        .method("SetDrawMode", &cCanvas::SetDrawMode, {"nMode"})
        .method("SetBkMode", &cCanvas::SetBkMode, {"nMode"})
        .method("SetBkColor", &cCanvas::SetBkColor, {"nColor"})
        .method("SetTextColor", &cCanvas::SetTextColor, {"nColor"})
        .method("GetNearestSolidColor", &cCanvas::GetNearestSolidColor, {"nColor"})
        .method("GetVBSysColor", &cCanvas::GetVBSysColor, {"nColor"})
        .method("SetVBSysColor", &cCanvas::SetVBSysColor, {"nColor", "nRGB"});
}

void linesAndFills(Builder& table) {
    table.method("GetPixel", &cCanvas::GetPixel, {"X", "Y"})
        .method("SetPixel", &cCanvas::SetPixel, {"X", "Y", "nRGB"})
        .method("MoveTo", &cCanvas::MoveTo, {"X", "Y"})
        .method("LineTo", &cCanvas::LineTo, {"X", "Y"})
        .method("DrawLine", &cCanvas::DrawLine,
                {"x1", "y1", optional("x2", cCanvas::noCoordinate), optional("y2", cCanvas::noCoordinate),
                 optional("nRGB", Long{-1})})
        .method("GetDC", &cCanvas::GetDC, {"nHWND"})
        .method("GetWindowDC", &cCanvas::GetWindowDC, {"nHWND"})
        .method("GetPaintDC", &cCanvas::GetPaintDC)
        .method("GetTargetDC", &cCanvas::GetTargetDC)
        .method("DrawBox", &cCanvas::DrawBox,
                {"x1", "y1", "x2", "y2", optional("nRGB", Long{-1}), optional("nRGB_Shadow", Long{-1})})
        .method("FillBox", &cCanvas::FillBox, {"x1", "y1", "x2", "y2", "nRGB"})
        .method("FillRect", &cCanvas::FillRect, {"x1", "y1", "x2", "y2", optional("nHBrush", Long{-1})})
        .method("GradientFillRect", &cCanvas::GradientFillRect,
                {"x1", "y1", "x2", "y2", "lHorizontal", "nRGB1", "nRGB2"})
        .method("FloodFill", &cCanvas::FloodFill, {"X", "Y", "nColor", "lReplaceColor"})
        .method("Clear", &cCanvas::Clear);
}

void shapes(Builder& table) {
    using Vertices = Long (cCanvas::*)(Long, const Array&, const Array&);
    table.method("Rectangle", &cCanvas::Rectangle, {"nLeft", "nTop", "nRight", "nBottom"})
        .method("Ellipse", &cCanvas::Ellipse, {"nLeft", "nTop", "nRight", "nBottom"})
        .method("RoundRect", &cCanvas::RoundRect,
                {"nLeft", "nTop", "nRight", "nBottom", "nWidthEllipse", "nHeightEllipse"})
        .method("Pie", &cCanvas::Pie,
                {"nLeft", "nTop", "nRight", "nBottom", "nXStart", "nYStart", "nXEnd", "nYEnd"})
        .method("Chord", &cCanvas::Chord,
                {"nLeft", "nTop", "nRight", "nBottom", "nXStart", "nYStart", "nXEnd", "nYEnd"})
        .method("Sector", &cCanvas::Sector,
                {"nLeft", "nTop", "nRight", "nBottom", "nStartAngle", "nEndAngle"})
        .method("Cuerda", &cCanvas::Cuerda,
                {"nLeft", "nTop", "nRight", "nBottom", "nStartAngle", "nEndAngle"})
        .method("Arc", &cCanvas::Arc,
                {"nLeft", "nTop", "nRight", "nBottom", "nXStart", "nYStart", "nXEnd", "nYEnd"})
        .method("Arco", &cCanvas::Arco, {"nLeft", "nTop", "nRight", "nBottom", "nStartAngle", "nEndAngle"})
        .method("Polygon", Vertices(&cCanvas::Polygon), {"nVertices", "aXCoord", "aYCoord"})
        .elements(automation::VT_I4)
        .method("Polyline", Vertices(&cCanvas::Polyline), {"nVertices", "aXCoord", "aYCoord"})
        .elements(automation::VT_I4)
        .method("PolylineTo", Vertices(&cCanvas::PolylineTo), {"nVertices", "aXCoord", "aYCoord"})
        .elements(automation::VT_I4)
        .method("PolyBezier", Vertices(&cCanvas::PolyBezier), {"nVertices", "aXCoord", "aYCoord"})
        .elements(automation::VT_I4)
        .method("PolyBezierTo", Vertices(&cCanvas::PolyBezierTo), {"nVertices", "aXCoord", "aYCoord"})
        .elements(automation::VT_I4)
        .method("DrawTriangle", &cCanvas::DrawTriangle,
                {"nX", "nY", "nScanLines", "nRGB", optional("nAngle", Long{270})});
}

void text(Builder& table) {
    using Fit = Long (cCanvas::*)(const automation::String&, Long, Array&, Long&, Long&) const;
    const automation::ParameterNames fontNames = {"cTypefaceName",
                                                  optional("nHeight"),
                                                  optional("nWidth"),
                                                  optional("lItalic"),
                                                  optional("lUnderline"),
                                                  optional("lStrikeOut"),
                                                  optional("nEscapement"),
                                                  optional("nOrientation"),
                                                  optional("nWeight", FontWeight_Normal),
                                                  optional("nCharSet", FontCharSet_Default),
                                                  optional("nOutputPrecision"),
                                                  optional("nClipPrecision"),
                                                  optional("nQuality"),
                                                  optional("nPitchAndFamily")};
    const automation::ParameterNames simpleFontNames = {"cTypeface", optional("nSizeDeciPuntos"),
                                                        optional("nStyle"), optional("nAngle"),
                                                        optional("nQuality")};
    table.method("CreateFont", &cCanvas::CreateFont, fontNames)
        .method("CreateSimpleFont", &cCanvas::CreateSimpleFont, simpleFontNames)
        .method("SelectFont", &cCanvas::SelectFont, fontNames)
        .method("SelectSimpleFont", &cCanvas::SelectSimpleFont, simpleFontNames)
        .method(
            "SelectVBStdFont", &cCanvas::SelectVBStdFont,
            {"oFont", optional("nStyle"), optional("nAngle"), optional("nQuality"), optional("nWidthFactor")})
        .method("CreateStandardFonts", &cCanvas::CreateStandardFonts,
                {optional("lUseScaleForForms"), optional("nFactorAmpliacion")})
        .method("SelectStdFont", &cCanvas::SelectStdFont, {"nStdFnt"})
        .method("TextOut", &cCanvas::TextOut, {"nX", "nY", "cText"})
        .method("TextOutWithBorder", &cCanvas::TextOutWithBorder,
                {"nX", "nY", "cText", "nTextColor", "nBorderColor"})
        .method("TextOutRotatedOnCenter", &cCanvas::TextOutRotatedOnCenter,
                {"cText", "nAngulo", "nCenterX", "nCenterY"})
        .method("GetTextExtent", &cCanvas::GetTextExtent, {"cText", "nWidth", "nHeight"})
        .method("GetTextFitInExtent", Fit(&cCanvas::GetTextFitInExtent),
                {"cText", "nMaxExtent", "aWidths", optional("nWidth"), optional("nHeight")})
        .elements(automation::VT_I4)
        .property("TextAlign", static_cast<TextAlignConstants (cCanvas::*)() const>(&cCanvas::TextAlign),
                  static_cast<void (cCanvas::*)(TextAlignConstants)>(&cCanvas::TextAlign))
        .method("SetTextJustify", &cCanvas::SetTextJustify, {"nExtraDots", "nEspacios"})
        .method("GetTextMetricsA", &cCanvas::GetTextMetricsA)
        .method("GetDevCaps", &cCanvas::GetDevCaps, {"nIndex"})
        .method("CalculateTextSize", &cCanvas::CalculateTextSize, {"nSizeDeciPuntos"})
        .method("CalculatePenWidth", &cCanvas::CalculatePenWidth, {"nWidthMillimeters"});
}

void blits(Builder& table) {
    table
        .method("DIB_StretchBlt", &cCanvas::DIB_StretchBlt,
                {"nSourceDC", "nX", "nY", "nWidth", "nHeight", optional("nXSrc"), optional("nYSrc"),
                 optional("nSrcWidth"), optional("nSrcHeight"), optional("nRasterOp", cCanvas::sourceCopy)})
        .method("BitBlt", &cCanvas::BitBlt,
                {"nHSourceDC", "nX", "nY", "nWidth", "nHeight", optional("nXSrc"), optional("nYSrc"),
                 optional("nRasterOp", cCanvas::sourceCopy)})
        .method("StretchBlt", &cCanvas::StretchBlt,
                {"nHSourceDC", "nX", "nY", "nWidth", "nHeight", optional("nXSrc"), optional("nYSrc"),
                 optional("nSrcWidth"), optional("nSrcHeight"), optional("nRasterOp", cCanvas::sourceCopy)})
        .method("SetStretchBltMode", &cCanvas::SetStretchBltMode, {"nMode"})
        .method("TransparentBlt", &cCanvas::TransparentBlt,
                {"nHSourceDC", "nX", "nY", "nWidth", "nHeight", optional("nXSrc"), optional("nYSrc"),
                 optional("nSrcWidth"), optional("nSrcHeight"),
                 optional("nTransparentColor", Long{0xFFFFFF})})
        .method("AlphaBlend", &cCanvas::AlphaBlend,
                {"nHSourceDC", "nX", "nY", "nWidth", "nHeight", optional("nXSrc"), optional("nYSrc"),
                 optional("nSrcWidth"), optional("nSrcHeight"), optional("nTransparencia", Long{128})})
        .method("CalculateColorMix", &cCanvas::CalculateColorMix, {"nColor1", "nColor2", "nTransparency"})
        .method("RectangleTranslucency", &cCanvas::RectangleTranslucency,
                {"nLeft", "nTop", "nRight", "nBottom", "nColor", "nTransparency"})
        .method("ApplyTranslucency", &cCanvas::ApplyTranslucency, {"nColor", "nTransparency"});
}

void pictures(Builder& table) {
    using Paint = void (cCanvas::*)(platform::HDC, Long&, Long&, Long&, Long&, Long&, Long&);
    table
        .method("PaintPicture", &cCanvas::PaintPicture,
                {"oPicture", "nX", "nY", optional("nWidth"), optional("nHeight"), optional("nXSrc"),
                 optional("nYSrc"), optional("nWidthSrc"), optional("nHeightScr"),
                 optional("nRasterOp", cCanvas::sourceCopy)})
        .method("BitMap2Picture", &cCanvas::BitMap2Picture,
                {optional("hBitmap"), optional("hPalette"), optional("nType")})
        .method("Bytes2Picture", &cCanvas::Bytes2Picture, {"aBytes"})
        .elements(automation::VT_UI1)
        .method("GetResPicture", &cCanvas::GetResPicture,
                {"xResourceID", optional("nType", Long{1}), optional("nHInstance")})
        .method("GetSysPicture", &cCanvas::GetSysPicture, {"nID", optional("nType")})
        .method("Paint", Paint(&cCanvas::Paint),
                {optional("nActualDC"), optional("nOffsetXSource"), optional("nOffsetYSource"),
                 optional("nOffsetXTarget"), optional("nOffsetYTarget"), optional("nWidthSource"),
                 optional("nHeightSource")});
}

void clipping(Builder& table) {
    using ReadTable = automation::Variant (cCanvas::*)(tslCtlGlobalCfgConstants) const;
    using WriteTable = void (cCanvas::*)(tslCtlGlobalCfgConstants, const automation::Variant&);
    table.method("ClearClipping", &cCanvas::ClearClipping, {optional("lZero")})
        .method("SetClippingRect", &cCanvas::SetClippingRect, {"xClipRect", optional("lZero")})
        .method("GetClippingRect", &cCanvas::GetClippingRect, {"xClipRect"})
        .method("SetClippingPath", &cCanvas::SetClippingPath, {"nMode"})
        .method("GetWndOrg", &cCanvas::GetWndOrg, {"nX", "nY"})
        .method("SetWndOrg", &cCanvas::SetWndOrg, {"nX", "nY"})
        .method("BeginPath", &cCanvas::BeginPath)
        .method("EndPath", &cCanvas::EndPath)
        .method("AbortPath", &cCanvas::AbortPath)
        .method("CloseFigure", &cCanvas::CloseFigure)
        .method("StrokePath", &cCanvas::StrokePath)
        .method("FillPath", &cCanvas::FillPath)
        .method("StrokeAndFillPath", &cCanvas::StrokeAndFillPath)
        .method("PathToRegion", &cCanvas::PathToRegion)
        .method("CopyToClipboard", &cCanvas::CopyToClipboard, {optional("nHEMF")})
        .property("GlobalCtlCfg", ReadTable(&cCanvas::GlobalCtlCfg), WriteTable(&cCanvas::GlobalCtlCfg),
                  {"nIndex"})
        .method("ExplodingRect", &cCanvas::ExplodingRect,
                {"nInicialX1", "nInicialY1", "nInicialX2", "nInicialY2", "nFinalX1", "nFinalY1", "nFinalX2",
                 "nFinalY2"});
}

} // namespace

const ClassTable& cCanvas::table() {
    static const ClassTable table = ClassTable::of<cCanvas>("cCanvas")
                                        .help("A surface to draw on, over GDI.")
                                        .with(surface)
                                        .with(objects)
                                        .with(linesAndFills)
                                        .with(shapes)
                                        .with(text)
                                        .with(blits)
                                        .with(pictures)
                                        .with(clipping);
    return table;
}

} // namespace tesela
