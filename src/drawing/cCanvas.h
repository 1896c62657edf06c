#pragma once

#include "automation/Array.h"
#include "automation/Handle.h"
#include "automation/Object.h"
#include "automation/String.h"
#include "automation/Variant.h"
#include "drawing/canvas_enumerations.h"
#include "drawing/canvas_records.h"
#include "frame/GlobalCtlCfg.h"
#include "host/Colors.h"
#include "host/Picture.h"
#include "host/StdFont.h"
#include "platform/gdi.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tesela {

/// The surface on which every control paints: a device context, as a rule that of a private bitmap which is
/// then copied to the control, and the pens, brushes, fonts and the palette selected into it.
///
/// Coordinates are pixels. Shapes cover the right and bottom edge that they are given, fills too; gradients
/// don't. Colours are automation colours, system colours included, unless a member says otherwise. Members
/// that pass straight to a GDI operation give its result. Drawing on a canvas without a context does nothing.
///
/// Between paints a canvas that isn't static holds its bitmap and no other object: BeginPaint opens a
/// context, EndPaint lets go of it with everything selected.
class cCanvas : public automation::Object {
public:
    cCanvas();
    ~cCanvas() override;

    // The surface: cCanvas.cpp

    /// Frees everything that painting makes again: the pen, brush and font in use and the standard fonts.
    void Minimize_GDI_UsedResources();
    /// Sets the canvas up with a bitmap of its own like those of `nTargetDC`, or on that context itself
    /// (DCProvider_User). A canvas that isn't static ignores `nTargetDC` and follows the screen; its target
    /// arrives with each Paint. `nLeft`, `nTop` is where Paint puts the surface. False if there is no bitmap;
    /// with a target of 0 it is True and nothing is made: the canvas has no context until the next Configure.
    bool Configure(platform::HDC nTargetDC, std::int32_t nLeft, std::int32_t nTop, std::int32_t nWidth,
                   std::int32_t nHeight, DCProviderConstants nHDC_Provider = DCProvider_Auto,
                   bool lStatic_HDC_Target = true);
    /// Makes the bitmap anew, empty, while the context is open. Without a target, which for a canvas that
    /// isn't static is `nNewCompatDC`, only the size is noted.
    bool Resize(std::int32_t nWidth, std::int32_t nHeight, platform::HDC nNewCompatDC = {});
    /// Open and close the context of a canvas that isn't static. A second call in a row does nothing. What
    /// was set or selected in the context doesn't outlive EndPaint; the picture does.
    void BeginPaint();
    void EndPaint();
    /// Copies the surface to its target: the static one, or `nActualDC`. Sizes of 0 take the canvas's own and
    /// come back so; the target offsets come back with the canvas's place added, each time.
    void Paint(platform::HDC nActualDC, std::int32_t& nOffsetXSource, std::int32_t& nOffsetYSource,
               std::int32_t& nOffsetXTarget, std::int32_t& nOffsetYTarget, std::int32_t& nWidthSource,
               std::int32_t& nHeightSource);
    void Paint(platform::HDC nActualDC = {});
    std::int32_t Width() const { return nWidth; }
    std::int32_t Height() const { return nHeight; }
    platform::HDC GetPaintDC() const { return nPaintDC; }
    /// The static target; a canvas that isn't static shows a message and gives its paint context.
    platform::HDC GetTargetDC() const;
    /// A canvas of a picture's size with the picture on it. Pictures that are no bitmap and no metafile leave
    /// the canvas as it is and give True all the same. A picture that doesn't answer counts as empty.
    bool CreateFromPicture(automation::Ref<automation::Object>& oPic, platform::HDC nDC_Target);
    /// Draws into a picture box, which is made to keep what is drawn and to count in pixels. With
    /// `lCopyPicture` the canvas starts with what the box shows. False for anything but a picture box.
    bool CreateInPictureBox(automation::Ref<automation::Object>& oPBox, bool lCopyPicture = false);

    // Units: cCanvas_scale.cpp

    /// Converts a length between units (1 twips, 2 points, 3 pixels, 5 inches, 6 millimetres, 7 centimetres,
    /// 8 himetric) at the canvas's resolution; 0 for any other unit. From millimetres, centimetres and
    /// himetric to points, and from the first two to twips, the result is that many pixels per inch times
    /// the length.
    float ScaleX(float nLongitud, std::int32_t nFrom = 3, std::int32_t nTo = 3) const;
    float ScaleY(float nLongitud, std::int32_t nFrom = 3, std::int32_t nTo = 3) const;
    /// Tenths of a point to pixels.
    std::int32_t CalculateTextSize(std::int32_t nSizeDeciPuntos) const;
    /// Millimetres to pixels, not rounded.
    float CalculatePenWidth(float nWidthMillimeters) const;

    // Metafiles: cCanvas_metafiles.cpp

    /// Sends all drawing into an enhanced metafile, in memory without a file name, until EndRecordMetafile.
    bool BeginRecordMetafile(const automation::String& cFileName = {},
                             const automation::String& cAplicacion = {},
                             const automation::String& cDescripcion = {});
    /// Gives the metafile, which the caller ends with DeleteMetafile, and plays it on the canvas if wanted.
    platform::HENHMETAFILE EndRecordMetafile(bool lPlayToTargetDC = true);
    bool DeleteMetafile(platform::HENHMETAFILE nHEMF);
    bool PlayMetafile(platform::HENHMETAFILE nHEMF, std::int32_t nX, std::int32_t nY, std::int32_t nWidth = 0,
                      std::int32_t nHeight = 0);
    /// Gives a metafile, or without one a copy of the canvas, to the clipboard.
    void CopyToClipboard(platform::HENHMETAFILE nHEMF = {});

    // Objects and state: cCanvas_objects.cpp. Create... give a new object that the caller ends with
    // DeleteObject; Select... put one in use that the canvas owns until the next one. When an object can't be
    // made a message says so and the old one stays.

    automation::Variant DeleteDC(platform::HDC nHDC);
    std::int32_t ReleaseDC(platform::HWND nHWND, platform::HDC nHDC);
    platform::HGDIOBJ SelectObject(platform::HGDIOBJ nHObject);
    std::int32_t DeleteObject(platform::HGDIOBJ nHObject);
    platform::HGDIOBJ GetStockObject(GDIStockObjectsConstants nObject) const;
    RECT_Type CreateRECT(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight,
                         std::int32_t nBottom) const;
    /// On a display of few colours, selects the half-tone palette once.
    void ComprobarPaletaSemitonos();
    platform::HPEN CreatePen(PenStyleConstants nStyle, std::int32_t nWidth, host::OLE_COLOR nColor);
    void SelectPen(PenStyleConstants nStyle, std::int32_t nWidth, host::OLE_COLOR nColor);
    /// Solid, one pixel wide.
    void SelectSimplePen(host::OLE_COLOR nColor);
    void SelectNullPen();
    platform::HBRUSH CreateHatchBrush(HatchStyleConstants nStyle, host::OLE_COLOR nColor);
    void SelectHatchBrush(HatchStyleConstants nStyle, host::OLE_COLOR nColor);
    platform::HBRUSH CreatePatternBrush(platform::HBITMAP hBitmap);
    void SelectPatternBrush(platform::HBITMAP hBitmap);
    platform::HBRUSH CreateSolidBrush(host::OLE_COLOR nColor);
    void SelectSolidBrush(host::OLE_COLOR nColor);
    void SelectNullBrush();
    std::int32_t SetDrawMode(BinaryMixModeConstants nMode);
    std::int32_t SetBkMode(BackModeConstants nMode);
    host::OLE_COLOR SetBkColor(host::OLE_COLOR nColor);
    host::OLE_COLOR SetTextColor(host::OLE_COLOR nColor);
    /// What the device shows for a colour.
    host::OLE_COLOR GetNearestSolidColor(host::OLE_COLOR nColor) const;
    host::OLE_COLOR GetVBSysColor(host::OLE_COLOR nColor) const;
    /// Changes a system colour for the whole desktop.
    std::int32_t SetVBSysColor(SystemColorConstants nColor, host::OLE_COLOR nRGB);
    platform::HDC GetDC(platform::HWND nHWND);
    platform::HDC GetWindowDC(platform::HWND nHWND);
    std::int32_t GetDevCaps(GDIDeviceCapsConstants nIndex) const;

    // Lines, fills and shapes: cCanvas_shapes.cpp

    /// -1 outside of the surface.
    host::OLE_COLOR GetPixel(std::int32_t X, std::int32_t Y) const;
    /// The colour is passed as it is.
    std::int32_t SetPixel(std::int32_t X, std::int32_t Y, host::OLE_COLOR nRGB);
    std::int32_t MoveTo(std::int32_t X, std::int32_t Y);
    /// Without the last pixel.
    std::int32_t LineTo(std::int32_t X, std::int32_t Y);
    /// A line with its last pixel in a colour, or without it in the pen in use (-1). Without a second point
    /// it runs from the current position to the first.
    void DrawLine(std::int32_t x1, std::int32_t y1, std::int32_t x2 = noCoordinate,
                  std::int32_t y2 = noCoordinate, host::OLE_COLOR nRGB = -1);
    /// A frame in two colours. Top left belongs to `nRGB`, the other three corners to `nRGB_Shadow`; -1 draws
    /// that half in the pen in use.
    void DrawBox(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                 host::OLE_COLOR nRGB = -1, host::OLE_COLOR nRGB_Shadow = -1);
    void FillBox(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, host::OLE_COLOR nRGB);
    /// The brush -1 is the one that the canvas has selected; 0 paints nothing.
    std::int32_t FillRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                          platform::HBRUSH nHBrush = currentBrush);
    /// From one colour to another; system colours are not resolved. Leaves out `x2` and `y2`.
    std::int32_t GradientFillRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                                  bool lHorizontal, host::OLE_COLOR nRGB1, host::OLE_COLOR nRGB2);
    /// Fills with the brush in use the area of `nColor` around a point, or the one that ends at it.
    std::int32_t FloodFill(std::int32_t X, std::int32_t Y, host::OLE_COLOR nColor, bool lReplaceColor);
    /// Fills the surface with the face of buttons.
    void Clear();
    std::int32_t Rectangle(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight, std::int32_t nBottom);
    std::int32_t Ellipse(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight, std::int32_t nBottom);
    std::int32_t RoundRect(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight, std::int32_t nBottom,
                           std::int32_t nWidthEllipse, std::int32_t nHeightEllipse);
    /// From the ray through the first point to that through the second, counter-clockwise.
    std::int32_t Pie(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight, std::int32_t nBottom,
                     std::int32_t nXStart, std::int32_t nYStart, std::int32_t nXEnd, std::int32_t nYEnd);
    std::int32_t Chord(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight, std::int32_t nBottom,
                       std::int32_t nXStart, std::int32_t nYStart, std::int32_t nXEnd, std::int32_t nYEnd);
    std::int32_t Arc(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight, std::int32_t nBottom,
                     std::int32_t nXStart, std::int32_t nYStart, std::int32_t nXEnd, std::int32_t nYEnd);
    /// Pie, Chord and Arc by angles: radians, counter-clockwise from the right.
    std::int32_t Sector(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight, std::int32_t nBottom,
                        double nStartAngle, double nEndAngle);
    std::int32_t Cuerda(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight, std::int32_t nBottom,
                        double nStartAngle, double nEndAngle);
    std::int32_t Arco(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight, std::int32_t nBottom,
                      double nStartAngle, double nEndAngle);
    /// `nVertices` points, from the lower bound of `aXCoord` on in both arrays. Error 9 where one of them has
    /// no more.
    std::int32_t Polygon(std::int32_t nVertices, const automation::Array& aXCoord,
                         const automation::Array& aYCoord);
    std::int32_t Polyline(std::int32_t nVertices, const automation::Array& aXCoord,
                          const automation::Array& aYCoord);
    std::int32_t PolylineTo(std::int32_t nVertices, const automation::Array& aXCoord,
                            const automation::Array& aYCoord);
    /// Points at the end that make no whole curve are left out.
    std::int32_t PolyBezier(std::int32_t nVertices, const automation::Array& aXCoord,
                            const automation::Array& aYCoord);
    std::int32_t PolyBezierTo(std::int32_t nVertices, const automation::Array& aXCoord,
                              const automation::Array& aYCoord);
    std::int32_t Polygon(std::span<const platform::POINT> vertices);
    std::int32_t Polyline(std::span<const platform::POINT> vertices);
    std::int32_t PolylineTo(std::span<const platform::POINT> vertices);
    std::int32_t PolyBezier(std::span<const platform::POINT> vertices);
    std::int32_t PolyBezierTo(std::span<const platform::POINT> vertices);
    /// An arrowhead of `nScanLines` lines whose tip points to 0 (right), 90 (up), 180 or 270 degrees, centred
    /// on the point along its axis. A message for any other angle.
    void DrawTriangle(std::int32_t nX, std::int32_t nY, std::int32_t nScanLines, host::OLE_COLOR nRGB,
                      std::int32_t nAngle = 270);

    // Fonts and text: cCanvas_text.cpp

    /// Heights above 0 are those of the cell, below 0 of the letters, in pixels; angles are tenths of a
    /// degree.
    platform::HFONT CreateFont(const automation::String& cTypefaceName, std::int32_t nHeight = 0,
                               std::int32_t nWidth = 0, bool lItalic = false, bool lUnderline = false,
                               bool lStrikeOut = false, std::int32_t nEscapement = 0,
                               std::int32_t nOrientation = 0, std::int32_t nWeight = FontWeight_Normal,
                               FontCharSetConstants nCharSet = FontCharSet_Default,
                               FontOutputPrecisionConstants nOutputPrecision = FontOutputPrecision_Default,
                               FontClipPrecisionConstants nClipPrecision = FontClipPrecision_Default,
                               FontQualityConstants nQuality = FontQuality_Default,
                               FontPitchAndFamilyConstants nPitchAndFamily = FontPitchAndFamily_Default);
    /// A size in tenths of a point. A style with a default typeface puts its name into `cTypeface`.
    platform::HFONT CreateSimpleFont(automation::String& cTypeface, std::int32_t nSizeDeciPuntos = 0,
                                     std::int32_t nStyle = 0, std::int32_t nAngle = 0,
                                     FontQualityConstants nQuality = FontQuality_Default);
    void SelectFont(const automation::String& cTypefaceName, std::int32_t nHeight = 0,
                    std::int32_t nWidth = 0, bool lItalic = false, bool lUnderline = false,
                    bool lStrikeOut = false, std::int32_t nEscapement = 0, std::int32_t nOrientation = 0,
                    std::int32_t nWeight = FontWeight_Normal,
                    FontCharSetConstants nCharSet = FontCharSet_Default,
                    FontOutputPrecisionConstants nOutputPrecision = FontOutputPrecision_Default,
                    FontClipPrecisionConstants nClipPrecision = FontClipPrecision_Default,
                    FontQualityConstants nQuality = FontQuality_Default,
                    FontPitchAndFamilyConstants nPitchAndFamily = FontPitchAndFamily_Default);
    /// A style with a default typeface takes the standard font of that kind, where CreateStandardFonts has
    /// made them, and looks at nothing else.
    void SelectSimpleFont(automation::String& cTypeface, std::int32_t nSizeDeciPuntos = 0,
                          std::int32_t nStyle = 0, std::int32_t nAngle = 0,
                          FontQualityConstants nQuality = FontQuality_Default);
    /// A font object's font. The flags of `nStyle` add to its own attributes; a positive `nWidthFactor`
    /// stretches its letters in width.
    void SelectVBStdFont(const automation::Ref<host::StdFont>& oFont, std::int32_t nStyle = 0,
                         std::int32_t nAngle = 0, FontQualityConstants nQuality = FontQuality_Default,
                         double nWidthFactor = 0.0);
    /// Makes those of the three standard fonts that don't exist yet, in their plain sizes or enlarged by a
    /// factor and, for forms, by the zoom of the library's forms.
    void CreateStandardFonts(bool lUseScaleForForms = false, double nFactorAmpliacion = 0.0);
    void SelectStdFont(tslStdFontsConstants nStdFnt);
    std::int32_t TextOut(std::int32_t nX, std::int32_t nY, const automation::String& cText);
    void TextOutWithBorder(std::int32_t nX, std::int32_t nY, const automation::String& cText,
                           host::OLE_COLOR nTextColor, host::OLE_COLOR nBorderColor);
    /// Puts text in a font that runs at `nAngulo` degrees with its middle on a point.
    void TextOutRotatedOnCenter(const automation::String& cText, double nAngulo, std::int32_t nCenterX,
                                std::int32_t nCenterY);
    std::int32_t GetTextExtent(const automation::String& cText, std::int32_t& nWidth,
                               std::int32_t& nHeight) const;
    /// How many characters fit in `nMaxExtent`. `aWidths` receives the extents up to each character, counted
    /// from 1, and the others the size of the whole; all stay as they are for the empty text.
    std::int32_t GetTextFitInExtent(const automation::String& cText, std::int32_t nMaxExtent,
                                    automation::Array& aWidths, std::int32_t& nWidth,
                                    std::int32_t& nHeight) const;
    std::int32_t GetTextFitInExtent(const automation::String& cText, std::int32_t nMaxExtent,
                                    std::vector<std::int32_t>& widths) const;
    TextAlignConstants TextAlign() const;
    void TextAlign(TextAlignConstants nAlign);
    std::int32_t SetTextJustify(std::int32_t nExtraDots, std::int32_t nEspacios);
    TextMetricA_Type GetTextMetricsA() const;

    // Blits: cCanvas_blits.cpp. Source sizes of 0 take the target's.

    /// For devices that can't stretch from a bitmap of their own. 0, or the number of the step that failed,
    /// which the log then tells.
    std::int32_t DIB_StretchBlt(platform::HDC nSourceDC, std::int32_t nX, std::int32_t nY,
                                std::int32_t nWidth, std::int32_t nHeight, std::int32_t nXSrc = 0,
                                std::int32_t nYSrc = 0, std::int32_t nSrcWidth = 0,
                                std::int32_t nSrcHeight = 0, std::int32_t nRasterOp = sourceCopy);
    std::int32_t BitBlt(platform::HDC nHSourceDC, std::int32_t nX, std::int32_t nY, std::int32_t nWidth,
                        std::int32_t nHeight, std::int32_t nXSrc = 0, std::int32_t nYSrc = 0,
                        std::int32_t nRasterOp = sourceCopy);
    std::int32_t StretchBlt(platform::HDC nHSourceDC, std::int32_t nX, std::int32_t nY, std::int32_t nWidth,
                            std::int32_t nHeight, std::int32_t nXSrc = 0, std::int32_t nYSrc = 0,
                            std::int32_t nSrcWidth = 0, std::int32_t nSrcHeight = 0,
                            std::int32_t nRasterOp = sourceCopy);
    std::int32_t SetStretchBltMode(StretchBltConstants nMode);
    /// Copies all but one colour. The source always starts at its origin, whatever `nXSrc` and `nYSrc` say.
    std::int32_t TransparentBlt(platform::HDC nHSourceDC, std::int32_t nX, std::int32_t nY,
                                std::int32_t nWidth, std::int32_t nHeight, std::int32_t nXSrc = 0,
                                std::int32_t nYSrc = 0, std::int32_t nSrcWidth = 0,
                                std::int32_t nSrcHeight = 0, host::OLE_COLOR nTransparentColor = 0xFFFFFF);
    /// Mixes the source in; 255 of `nTransparencia` shows it whole, 0 not at all. The last column and row of
    /// both areas are left out.
    std::int32_t AlphaBlend(platform::HDC nHSourceDC, std::int32_t nX, std::int32_t nY, std::int32_t nWidth,
                            std::int32_t nHeight, std::int32_t nXSrc = 0, std::int32_t nYSrc = 0,
                            std::int32_t nSrcWidth = 0, std::int32_t nSrcHeight = 0,
                            std::uint8_t nTransparencia = 128);
    /// See colours.h; system colours are not resolved.
    host::OLE_COLOR CalculateColorMix(host::OLE_COLOR nColor1, host::OLE_COLOR nColor2,
                                      std::uint8_t nTransparency) const;
    /// Lays a colour over an area, or over the whole canvas: 255 hides what was there.
    void RectangleTranslucency(std::int32_t nLeft, std::int32_t nTop, std::int32_t nRight,
                               std::int32_t nBottom, host::OLE_COLOR nColor, std::uint8_t nTransparency);
    void ApplyTranslucency(host::OLE_COLOR nColor, std::uint8_t nTransparency);
    /// An animation on the desktop: a frame that opens from one rectangle to another.
    void ExplodingRect(std::int32_t nInicialX1, std::int32_t nInicialY1, std::int32_t nInicialX2,
                       std::int32_t nInicialY2, std::int32_t nFinalX1, std::int32_t nFinalY1,
                       std::int32_t nFinalX2, std::int32_t nFinalY2);

    // Pictures: cCanvas_pictures.cpp

    /// Sizes of 0 are the picture's own; the target then follows the source. An icon with a source size of
    /// its own is scaled with what lies under it, so that it comes out smooth.
    void PaintPicture(const automation::Ref<host::Picture>& oPicture, std::int32_t nX, std::int32_t nY,
                      std::int32_t nWidth = 0, std::int32_t nHeight = 0, std::int32_t nXSrc = 0,
                      std::int32_t nYSrc = 0, std::int32_t nWidthSrc = 0, std::int32_t nHeightScr = 0,
                      std::int32_t nRasterOp = sourceCopy);
    /// A picture that owns the handle: a bitmap, or an icon or cursor for `nType` 1 and 2. Without a handle
    /// the picture gets a copy of the canvas. Nothing if it can't be made.
    automation::Ref<host::Picture> BitMap2Picture(platform::HGDIOBJ hBitmap = {},
                                                  platform::HPALETTE hPalette = {}, std::int32_t nType = 0);
    /// The picture in the bytes of a picture file; Nothing for bytes that are none.
    automation::Ref<host::Picture> Bytes2Picture(const automation::Array& aBytes);
    /// A picture of a module's resources (without one, this library's) by number or name: `nType` 1 an icon,
    /// 2 a cursor, else a bitmap. Nothing if there is none.
    automation::Ref<host::Picture> GetResPicture(const automation::Variant& xResourceID,
                                                 std::int32_t nType = 1, platform::HINSTANCE nHInstance = {});
    /// One of the system's own pictures by its number (OBM_, OIC_, OCR_). On a system without any the library
    /// draws them.
    automation::Ref<host::Picture> GetSysPicture(const automation::Variant& nID, std::int32_t nType = 0);

    // Clipping, origin and paths: cCanvas_clipping.cpp

    /// With `lZero` the corner of the rectangle becomes the origin, and (0, 0) again when the clipping goes.
    std::int32_t ClearClipping(bool lZero = false);
    std::int32_t SetClippingRect(const RECT_Type& xClipRect, bool lZero = false);
    /// The box of the clipping and the kind of region that it is; -1 without a clipping, 0 on failure, and
    /// then the rectangle stays as it is.
    std::int32_t GetClippingRect(RECT_Type& xClipRect) const;
    std::int32_t SetClippingPath(ClipPathModeConstants nMode);
    std::int32_t GetWndOrg(std::int32_t& nX, std::int32_t& nY) const;
    std::int32_t SetWndOrg(std::int32_t nX, std::int32_t nY);
    std::int32_t BeginPath();
    std::int32_t EndPath();
    std::int32_t AbortPath();
    std::int32_t CloseFigure();
    std::int32_t StrokePath();
    std::int32_t FillPath();
    std::int32_t StrokeAndFillPath();
    platform::HRGN PathToRegion();

    /// The colour table that all controls share.
    automation::Variant GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex) const;
    void GlobalCtlCfg(tslCtlGlobalCfgConstants nIndex, const automation::Variant& xValue);

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

    /// A coordinate left out.
    static constexpr std::int32_t noCoordinate = -32767;
    static constexpr platform::HBRUSH currentBrush{0xFFFFFFFF};
    static constexpr std::int32_t sourceCopy = static_cast<std::int32_t>(platform::SRCCOPY);

private:
    /// Where a picture goes, and what part of it.
    struct PictureArea {
        std::int32_t x, y;
        platform::SIZE target;
        std::int32_t xSource, ySource;
        platform::SIZE source;
    };

    static void reportGDIError(const char16_t* text);

    void noteSize(std::int32_t width, std::int32_t height);
    void releaseSurface();
    void dropRecording();
    /// The context of the surface, which waits while a metafile is recorded.
    platform::HDC surfaceDC() const { return nSavedPaintDC ? nSavedPaintDC : nPaintDC; }
    bool makeSurface(platform::HDC reference);
    bool selectBitmap();
    template <class Handle>
    bool selectOwned(Handle& owned, Handle object, const char16_t* failure);
    template <class Handle>
    void dropOwned(Handle& owned, int stockObject);
    void selectLinePen(host::OLE_COLOR color);
    std::int32_t firstSeen(platform::POINT tip, platform::POINT step, bool vertical) const;
    void drawScanLines(platform::POINT tip, platform::POINT step, std::int32_t count, bool vertical);
    platform::HFONT* standardFont(std::int32_t style);
    void makeStandardFont(platform::HFONT& font, automation::String typeface, std::int32_t deciPoints);
    void paintBitmap(platform::HBITMAP bitmap, const PictureArea& area, platform::DWORD rasterOp);
    void paintScaledIcon(platform::HICON icon, const PictureArea& area);

    DCProviderConstants nHDC_Provider = DCProvider_Auto;
    platform::HDC nTargetDC;     ///< Of a canvas that isn't static: the screen's, already given back
    platform::HDC nPaintDC;      ///< Where everything is drawn
    platform::HDC nSavedPaintDC; ///< While a metafile is recorded
    bool lStatic_HDC_Target = false;
    bool lPaintDCReleased = false; ///< Between EndPaint and BeginPaint
    platform::HGDIOBJ nOldBitmap;  ///< What the context held before the canvas's bitmap
    platform::HBITMAP nBitmap;
    // In use and owned; no handle when a stock object or a standard font is in use.
    platform::HPEN nCurPen;
    platform::HBRUSH nCurBrush;
    platform::HFONT nCurFont;
    platform::HFONT nFontNormal;
    platform::HFONT nFontFixed;
    platform::HFONT nFontNumbers;
    platform::RECT xPaintRect;
    std::int32_t nWidth = 0;
    std::int32_t nHeight = 0;
    std::int32_t nLeft = 0; ///< Where Paint puts the surface
    std::int32_t nTop = 0;
    host::OLE_COLOR nClearColor;
    std::int32_t nPixelsPerInchX = 0;
    std::int32_t nPixelsPerInchY = 0;
    platform::HPALETTE nOldPalette;
    platform::HPALETTE nHalftonePalette;
};

} // namespace tesela
