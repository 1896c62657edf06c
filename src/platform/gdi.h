#pragma once
// Drawing: device contexts, the objects that are selected into them, shapes, blits, text, regions and icons.
// Names, arguments and results are the platform's own. Coordinates are logical units of the context (pixels
// until an origin or mapping is set); rectangles leave out their right and bottom edge, lines their last
// pixel. An operation on a handle that is dead or of another kind does nothing and returns its failure value:
// no handle, 0 or FALSE, CLR_INVALID for colours.
//
// Objects made by Create... belong to the caller, who ends them with DeleteObject (contexts with DeleteDC,
// icons with DestroyIcon). An object that is still selected somewhere may be deleted: it lives on until the
// context lets it go. A bitmap can be selected into one context at a time.

#include "platform/gdi_types.h"

#include <functional>
#include <string>
#include <vector>

namespace platform {

// --- Device contexts -------------------------------------------------------------------------------

/// A memory context that draws on the bitmap selected into it: a single black pixel of 1 bit at first.
/// `like` may be no handle, which means the screen.
HDC CreateCompatibleDC(HDC like);

/// Ends a context made by CreateCompatibleDC. What the caller selected into it is let go, not deleted.
BOOL DeleteDC(HDC dc);

/// Pushes the whole state of the context; returns the depth after it, from 1, and 0 on failure.
int SaveDC(HDC dc);
/// Goes back to the state saved at `depth`, or `-depth` steps back when negative, and drops those above it.
BOOL RestoreDC(HDC dc, int depth);

/// One capability (HORZRES, BITSPIXEL, LOGPIXELSX, ...); 0 for an unknown one or a dead context.
int GetDeviceCaps(HDC dc, int index);

/// The colour that the context shows for this one.
COLORREF GetNearestColor(HDC dc, COLORREF color);

// --- Objects ---------------------------------------------------------------------------------------

/// Selects a bitmap, brush, pen or font and returns the one that it replaces. For a region the result's value
/// is the kind of region that the clipping became (NULLREGION, ...).
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
/// What is selected now of the kind OBJ_PEN, OBJ_BRUSH, OBJ_FONT or OBJ_BITMAP.
HGDIOBJ GetCurrentObject(HDC dc, DWORD type);
/// False for a dead handle. Deleting a stock object succeeds and does nothing.
BOOL DeleteObject(HGDIOBJ object);
/// WHITE_BRUSH, DEFAULT_GUI_FONT, ...; no handle for an unknown number. Not to be deleted.
HGDIOBJ GetStockObject(int index);
/// OBJ_...; 0 for a handle that is no live object.
DWORD GetObjectType(HGDIOBJ object);
DWORD GetObjectType(HDC dc);

/// What an object was made of. False for a handle that is no such object.
BOOL GetObjectBitmap(HBITMAP bitmap, BITMAP* data);
BOOL GetObjectBrush(HBRUSH brush, LOGBRUSH* data);
BOOL GetObjectPen(HPEN pen, LOGPEN* data);
BOOL GetObjectFont(HFONT font, LOGFONTW* data);
/// The number of entries.
BOOL GetObjectPalette(HPALETTE palette, WORD* count);

/// Live objects of this process: GR_GDIOBJECTS counts contexts, bitmaps, brushes, pens, fonts, regions and
/// palettes, GR_USEROBJECTS icons and windows. Stock objects are left out on Linux.
DWORD GetGuiResources(DWORD flags);

// --- Bitmaps ---------------------------------------------------------------------------------------

/// A bitmap with the depth of the context's device (of its bitmap, for a memory context), cleared to black.
/// A width or height of 0 gives one of 1x1 with 1 bit.
HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
/// A bitmap of 1, 4, 8, 16, 24 or 32 bits (1 plane) from rows that begin at multiples of two bytes, top row
/// first; cleared when `bits` is null. A height below zero counts as its absolute value.
HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits);

// Device-independent pixels: 1, 4 or 8 bits with a colour table, 16, 24 or 32 bits (BI_RGB, and BI_BITFIELDS
// with three masks in the place of the table for 16 and 32). With DIB_PAL_COLORS the table holds 16-bit
// indices into the context's palette. BI_RLE4 and BI_RLE8 are read, not written, and make no section.

/// A bitmap whose pixels the program can reach at `*bits`. `section` and `offset` are not used and may be 0.
HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                         DWORD offset);
/// A compatible bitmap, with the pixels of `bits` when CBM_INIT is set in `init`.
HBITMAP CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD init, const void* bits,
                       const BITMAPINFO* info, UINT usage);
/// Copies rows `start`... of the bitmap into `bits` in the format of `info->bmiHeader` and fills in its
/// colour table; returns the number of rows. With `bits` null it fills in the header instead.
int GetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, void* bits, BITMAPINFO* info, UINT usage);
/// The opposite way; `start` counts from the first row in memory.
int SetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, const void* bits, const BITMAPINFO* info,
              UINT usage);
/// Paints pixels 1:1; `ySource` counts from the bottom of a bottom-up picture. Returns the number of rows.
int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int xSource, int ySource, UINT start,
                      UINT lines, const void* bits, const BITMAPINFO* info, UINT usage);
/// Paints pixels stretched; returns the number of rows read.
int StretchDIBits(HDC dc, int x, int y, int width, int height, int xSource, int ySource, int widthSource,
                  int heightSource, const void* bits, const BITMAPINFO* info, UINT usage, DWORD rop);
/// The colours of the section of up to 8 bits that is selected into the context; returns how many were
/// copied.
UINT GetDIBColorTable(HDC dc, UINT start, UINT count, RGBQUAD* colors);
UINT SetDIBColorTable(HDC dc, UINT start, UINT count, const RGBQUAD* colors);

// --- Palettes --------------------------------------------------------------------------------------
// They decide what a display of 8 bits shows; on one with more the colours are what they are and realising
// a palette does nothing. Counts are of entries; 0 is the failure of all that return one.

HPALETTE CreatePalette(const LOGPALETTE* data);
/// 256 colours spread over the colour cube, with the 20 of the system at both ends.
HPALETTE CreateHalftonePalette(HDC dc);
/// Returns the palette that this one replaces.
HPALETTE SelectPalette(HDC dc, HPALETTE palette, BOOL forceBackground);
/// Brings the selected palette's colours to the display; returns how many entries were mapped anew.
UINT RealizePalette(HDC dc);
BOOL UnrealizeObject(HGDIOBJ object);
/// With `entries` null: how many there are.
UINT GetPaletteEntries(HPALETTE palette, UINT start, UINT count, PALETTEENTRY* entries);
UINT SetPaletteEntries(HPALETTE palette, UINT start, UINT count, const PALETTEENTRY* entries);
BOOL ResizePalette(HPALETTE palette, UINT count);
UINT GetNearestPaletteIndex(HPALETTE palette, COLORREF color);
/// What the display shows for each of its 256 values; 0 on one without palette.
UINT GetSystemPaletteEntries(HDC dc, UINT start, UINT count, PALETTEENTRY* entries);

// --- Pens and brushes ------------------------------------------------------------------------------

HBRUSH CreateSolidBrush(COLORREF color);
HBRUSH CreateHatchBrush(int style, COLORREF color);
/// The bitmap is copied. A pattern of 1 bit shows text colour for 0 and background colour for 1.
HBRUSH CreatePatternBrush(HBITMAP bitmap);
HBRUSH CreateBrushIndirect(const LOGBRUSH* data);
/// Widths of 0 and 1 draw lines of one pixel; above that the style is solid.
HPEN CreatePen(int style, int width, COLORREF color);
HPEN CreatePenIndirect(const LOGPEN* data);
/// PS_COSMETIC (width 1, a plain colour) or PS_GEOMETRIC, with a PS_... line style, end cap and joint. With
/// PS_USERSTYLE `dashes` holds `dashCount` (up to 16) lengths of dashes and gaps in turn: pixels for a
/// cosmetic pen, logical units for a geometric one.
HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD dashCount, const DWORD* dashes);

// --- State; each returns the previous value --------------------------------------------------------

COLORREF SetTextColor(HDC dc, COLORREF color);
COLORREF GetTextColor(HDC dc);
COLORREF SetBkColor(HDC dc, COLORREF color);
COLORREF GetBkColor(HDC dc);
int SetBkMode(HDC dc, int mode);
int GetBkMode(HDC dc);
UINT SetTextAlign(HDC dc, UINT align);
UINT GetTextAlign(HDC dc);
int SetROP2(HDC dc, int mode);
int GetROP2(HDC dc);
int SetPolyFillMode(HDC dc, int mode);
int GetPolyFillMode(HDC dc);
int SetStretchBltMode(HDC dc, int mode);
int GetStretchBltMode(HDC dc);
COLORREF SetDCBrushColor(HDC dc, COLORREF color);
COLORREF GetDCBrushColor(HDC dc);
COLORREF SetDCPenColor(HDC dc, COLORREF color);
COLORREF GetDCPenColor(HDC dc);
int SetTextCharacterExtra(HDC dc, int extra);
int GetTextCharacterExtra(HDC dc);
/// Spreads `extra` pixels over `count` spaces of the text that follows; 0 ends it.
BOOL SetTextJustification(HDC dc, int extra, int count);
/// Where patterns and hatches begin, in device pixels.
BOOL SetBrushOrgEx(HDC dc, int x, int y, POINT* previous);
BOOL GetBrushOrgEx(HDC dc, POINT* origin);

// --- Coordinates -----------------------------------------------------------------------------------

BOOL SetWindowOrgEx(HDC dc, int x, int y, POINT* previous);
BOOL GetWindowOrgEx(HDC dc, POINT* origin);
BOOL OffsetWindowOrgEx(HDC dc, int x, int y, POINT* previous);
BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* previous);
BOOL GetViewportOrgEx(HDC dc, POINT* origin);
BOOL OffsetViewportOrgEx(HDC dc, int x, int y, POINT* previous);
BOOL DPtoLP(HDC dc, POINT* points, int count);
BOOL LPtoDP(HDC dc, POINT* points, int count);

/// MM_...; returns the previous mode, 0 on failure. The metric and English modes and MM_TWIPS count upwards
/// and take their scale from the device's size. Extents stay where they are in MM_ANISOTROPIC only.
int SetMapMode(HDC dc, int mode);
int GetMapMode(HDC dc);
/// Extents set a scale of viewport to window. Outside of MM_ISOTROPIC and MM_ANISOTROPIC they change nothing
/// and succeed; an extent of 0 fails. MM_ISOTROPIC shrinks the viewport's to one scale for both axes.
BOOL SetWindowExtEx(HDC dc, int width, int height, SIZE* previous);
BOOL GetWindowExtEx(HDC dc, SIZE* extent);
BOOL SetViewportExtEx(HDC dc, int width, int height, SIZE* previous);
BOOL GetViewportExtEx(HDC dc, SIZE* extent);
/// Multiplies an extent by a fraction for each axis; a factor of 0 fails.
BOOL ScaleWindowExtEx(HDC dc, int multiplierX, int divisorX, int multiplierY, int divisorY, SIZE* previous);
BOOL ScaleViewportExtEx(HDC dc, int multiplierX, int divisorX, int multiplierY, int divisorY, SIZE* previous);

// --- Shapes ----------------------------------------------------------------------------------------

BOOL MoveToEx(HDC dc, int x, int y, POINT* previous);
BOOL GetCurrentPositionEx(HDC dc, POINT* position);
BOOL LineTo(HDC dc, int x, int y);
/// A line from one place to another.
struct Line {
    LONG x1, y1, x2, y2;
};
/// Lines as MoveToEx and LineTo draw each of them.
BOOL drawLines(HDC dc, const Line* lines, int count);
BOOL Polyline(HDC dc, const POINT* points, int count);
BOOL PolylineTo(HDC dc, const POINT* points, int count);
BOOL Polygon(HDC dc, const POINT* points, int count);
/// Outline in the pen, inside in the brush.
BOOL Rectangle(HDC dc, int left, int top, int right, int bottom);
/// Fills with a brush, without outline. A brush value up to COLOR_... + 1 stands for that system colour.
int FillRect(HDC dc, const RECT* rect, HBRUSH brush);
/// The same with a solid brush that is made for this call.
BOOL fillSolidRect(HDC dc, const RECT& rect, COLORREF color);
/// An outline one pixel wide in a brush.
int FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
BOOL InvertRect(HDC dc, const RECT* rect);
/// Inverts every second pixel of the outline; a second call takes it away.
BOOL DrawFocusRect(HDC dc, const RECT* rect);
BOOL DrawEdge(HDC dc, RECT* rect, UINT edge, UINT flags);
/// The colour really set, or CLR_INVALID outside the clipping.
COLORREF SetPixel(HDC dc, int x, int y, COLORREF color);
/// The same without telling the colour; true outside the clipping too.
BOOL SetPixelV(HDC dc, int x, int y, COLORREF color);
COLORREF GetPixel(HDC dc, int x, int y);

// --- Curves ----------------------------------------------------------------------------------------
// Ellipses lie in the rectangle without its right and bottom edge. Arcs run in the context's arc direction
// from the ray through the start point to that through the end point, both from the centre; equal rays give
// the whole ellipse.

BOOL Ellipse(HDC dc, int left, int top, int right, int bottom);
/// A rectangle whose corners are quarters of an ellipse of the given size.
BOOL RoundRect(HDC dc, int left, int top, int right, int bottom, int width, int height);
BOOL Arc(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd);
/// With a line from the current position to the start; the end becomes the current position.
BOOL ArcTo(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd);
/// The arc closed by a line between its ends, filled with the brush.
BOOL Chord(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd);
/// The arc closed by lines to the centre, filled with the brush.
BOOL Pie(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd);
/// AD_COUNTERCLOCKWISE or AD_CLOCKWISE; returns the previous direction, 0 on failure.
int SetArcDirection(HDC dc, int direction);
int GetArcDirection(HDC dc);

/// Several polygons filled as one by the polygon fill mode; `counts` holds the points of each, at least 2.
BOOL PolyPolygon(HDC dc, const POINT* points, const INT* counts, int polygons);
BOOL PolyPolyline(HDC dc, const POINT* points, const DWORD* counts, DWORD lines);
/// Cubic Béziers: a start, then two controls and an end for each. `count` is 3n + 1.
BOOL PolyBezier(HDC dc, const POINT* points, DWORD count);
/// The same from the current position, which goes along; `count` is 3n.
BOOL PolyBezierTo(HDC dc, const POINT* points, DWORD count);
/// Lines, curves and moves; `types` holds a PT_... for each point.
BOOL PolyDraw(HDC dc, const POINT* points, const BYTE* types, int count);

/// Fills with the brush the area around a point: up to a border of `color` (FLOODFILLBORDER), or as far as
/// it is of `color` itself (FLOODFILLSURFACE). False when nothing could be filled.
BOOL ExtFloodFill(HDC dc, int x, int y, COLORREF color, UINT mode);

// --- Paths -----------------------------------------------------------------------------------------
// Between BeginPath and EndPath lines and shapes are collected, in device coordinates, and not painted. The
// operations on a path need a closed bracket, fail without one, and all but FlattenPath, WidenPath and
// GetPath use the path up.

BOOL BeginPath(HDC dc);
BOOL EndPath(HDC dc);
/// Drops the path, whether its bracket is open or closed.
BOOL AbortPath(HDC dc);
/// Joins the last point of the open figure with its first. Only within a bracket.
BOOL CloseFigure(HDC dc);
BOOL StrokePath(HDC dc);
/// Closes open figures and fills with the brush in the polygon fill mode.
BOOL FillPath(HDC dc);
BOOL StrokeAndFillPath(HDC dc);
/// Turns curves into lines.
BOOL FlattenPath(HDC dc);
/// Replaces the path by the outline that a geometric pen would fill.
BOOL WidenPath(HDC dc);
/// The inside of the path as a new region, in device coordinates; no handle for an empty one.
HRGN PathToRegion(HDC dc);
/// Combines the clipping with the inside of the path by RGN_...
BOOL SelectClipPath(HDC dc, int mode);
/// Copies points (logical) and PT_... types; with a `count` of 0 only tells how many there are. -1 on
/// failure.
int GetPath(HDC dc, POINT* points, BYTE* types, int count);
/// How many widths a pointed joint may reach out before it is cut.
BOOL SetMiterLimit(HDC dc, float limit, float* previous);
BOOL GetMiterLimit(HDC dc, float* limit);

// --- Fills and copies ------------------------------------------------------------------------------

BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD rop);
/// Copies between contexts, which may be the same with overlapping areas. From 1 bit to colour, 0 becomes the
/// target's text colour and 1 its background colour; the other way, the source's background colour becomes 1
/// and every other colour 0.
BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource, DWORD rop);
/// Sizes below zero mirror.
BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                int widthSource, int heightSource, DWORD rop);
/// Copies under `rop`'s low three bytes where the 1-bit `mask` is 1 and under its highest byte elsewhere;
/// without a mask it is BitBlt. See MAKEROP4.
BOOL MaskBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource, HBITMAP mask,
             int xMask, int yMask, DWORD rop);
/// Copies a rectangle to a parallelogram whose corners top left, top right and bottom left are `points`,
/// where the 1-bit `mask`, when given, is 1.
BOOL PlgBlt(HDC dc, const POINT* points, HDC source, int xSource, int ySource, int widthSource,
            int heightSource, HBITMAP mask, int xMask, int yMask);
/// Stretches what is not of the one colour. Sizes below zero fail.
BOOL TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                    int widthSource, int heightSource, UINT transparent);
/// What copying all but one colour through masks of 1 bit comes to, at once: pixels of 32 bits come out with
/// their highest byte 0. The source begins at its origin. False, with nothing done, where it takes the masks.
BOOL copyColorsAtOnce(HDC dc, int x, int y, int width, int height, HDC source, COLORREF leftOut);
/// Stretches and blends. The source must lie wholly on its surface and not overlap the target; sizes below
/// zero fail. With AC_SRC_ALPHA the source has 32 bits with colours multiplied by their alpha.
BOOL AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                int widthSource, int heightSource, BLENDFUNCTION blend);
/// Rectangles (`meshes` are GRADIENT_RECTs) with the colour running across (GRADIENT_FILL_RECT_H) or down
/// (GRADIENT_FILL_RECT_V), or triangles between three colours (GRADIENT_FILL_TRIANGLE, GRADIENT_TRIANGLEs).
BOOL GradientFill(HDC dc, const TRIVERTEX* vertices, DWORD vertexCount, const void* meshes, DWORD meshCount,
                  DWORD mode);

// --- Text ------------------------------------------------------------------------------------------
// Lengths are in units (UTF-16) or bytes (the ANSI code page). The A forms convert and call the W forms.

HFONT CreateFontIndirectW(const LOGFONTW* data);
/// Sizes and angles as in LOGFONTW. A null or empty name takes any font of the pitch and family.
HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                  DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision,
                  DWORD quality, DWORD pitchAndFamily, const char* faceName);
/// Calls `each` once for every font family (or for each style of the family named in `filter->lfFaceName`)
/// until it returns 0; the result is the last one that it returned, 1 when there was none.
using FontEnumerator = std::function<int(const ENUMLOGFONTEXW& font, const TEXTMETRICW& metrics, DWORD type)>;
int EnumFontFamiliesExW(HDC dc, const LOGFONTW* filter, const FontEnumerator& each);

/// The names of all font families in their order, those for vertical writing ("@...") left out. Cheaper than
/// EnumFontFamiliesExW, which opens each font for its measures.
std::vector<std::u16string> fontFamilies();

BOOL TextOutW(HDC dc, int x, int y, const char16_t* text, int length);
BOOL TextOutA(HDC dc, int x, int y, const char* text, int length);
/// `rect` is filled with ETO_OPAQUE and clips with ETO_CLIPPED; `advances`, when given, holds the distance
/// from each character to the next.
BOOL ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, const char16_t* text, UINT length,
                 const INT* advances);
BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect, const char* text, UINT length,
                 const INT* advances);
/// Draws text in a rectangle by DT_... flags; `length` -1 reads up to the NUL. Returns the height of the
/// text.
int DrawTextW(HDC dc, const char16_t* text, int length, RECT* rect, UINT format);
int DrawTextA(HDC dc, const char* text, int length, RECT* rect, UINT format);
BOOL GetTextExtentPoint32W(HDC dc, const char16_t* text, int length, SIZE* size);
BOOL GetTextExtentPoint32A(HDC dc, const char* text, int length, SIZE* size);
/// How many characters fit in `maxExtent` (-1: no limit) (into `fit`) and the extent up to each of them (into
/// `extents`); `size` is that of the whole text.
BOOL GetTextExtentExPointW(HDC dc, const char16_t* text, int length, int maxExtent, INT* fit, INT* extents,
                           SIZE* size);
BOOL GetTextExtentExPointA(HDC dc, const char* text, int length, int maxExtent, INT* fit, INT* extents,
                           SIZE* size);
BOOL GetTextMetricsW(HDC dc, TEXTMETRICW* metrics);
BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);
/// Advance widths of the characters `first` to `last`.
BOOL GetCharWidth32W(HDC dc, UINT first, UINT last, INT* widths);
BOOL GetCharWidth32A(HDC dc, UINT first, UINT last, INT* widths);
/// The room before, of and after the ink of the characters `first` to `last`; FALSE for a bitmap font.
BOOL GetCharABCWidthsW(HDC dc, UINT first, UINT last, ABC* widths);
/// The name of the font in use with its NUL; returns the number of units written.
int GetTextFaceW(HDC dc, int size, char16_t* name);

// --- Regions and clipping --------------------------------------------------------------------------
// The operations with an int result return the kind of region that came out (NULLREGION, SIMPLEREGION,
// COMPLEXREGION), REGION_ERROR on failure.

HRGN CreateRectRgn(int left, int top, int right, int bottom);
HRGN CreateRectRgnIndirect(const RECT* rect);
/// An ellipse within a rectangle, without its right and bottom edge.
HRGN CreateEllipticRgn(int left, int top, int right, int bottom);
HRGN CreateEllipticRgnIndirect(const RECT* rect);
/// A rectangle whose corners are quarters of an ellipse of the given size.
HRGN CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height);
HRGN CreatePolygonRgn(const POINT* points, int count, int fillMode);
HRGN CreatePolyPolygonRgn(const POINT* points, const INT* counts, int polygons, int fillMode);
BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom);
int CombineRgn(HRGN target, HRGN a, HRGN b, int mode);
BOOL EqualRgn(HRGN a, HRGN b);
int OffsetRgn(HRGN region, int x, int y);
BOOL PtInRegion(HRGN region, int x, int y);
BOOL RectInRegion(HRGN region, const RECT* rect);
int GetRgnBox(HRGN region, RECT* box);
BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush);
/// The same with the brush that is selected.
BOOL PaintRgn(HDC dc, HRGN region);
/// The region's border, inwards from its edge, of the given width and height.
BOOL FrameRgn(HDC dc, HRGN region, HBRUSH brush, int width, int height);
BOOL InvertRgn(HDC dc, HRGN region);

/// Replaces the clipping by a copy of the region, in device pixels; no region takes it away.
int SelectClipRgn(HDC dc, HRGN region);
int ExtSelectClipRgn(HDC dc, HRGN region, int mode);
int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);
int OffsetClipRgn(HDC dc, int x, int y);
/// The box, in logical units, of what can be drawn on.
int GetClipBox(HDC dc, RECT* box);
/// Copies the clipping into the region: 1, or 0 when there is none, -1 on failure.
int GetClipRgn(HDC dc, HRGN region);
BOOL PtVisible(HDC dc, int x, int y);
BOOL RectVisible(HDC dc, const RECT* rect);

// --- Icons -----------------------------------------------------------------------------------------

/// The bitmaps are copied. Both must be given, but for a monochrome icon.
HICON CreateIconIndirect(const ICONINFO* info);
/// Makes new bitmaps, which the caller deletes.
BOOL GetIconInfo(HICON icon, ICONINFO* info);
/// Stretches the icon to `width` x `height` (its own size for 0 without DI_DEFAULTSIZE). `step` must be 0.
BOOL DrawIconEx(HDC dc, int x, int y, HICON icon, int width, int height, UINT step, HBRUSH background,
                UINT flags);
BOOL DestroyIcon(HICON icon);
/// A copy with a handle of its own.
HICON CopyIcon(HICON icon);

} // namespace platform
