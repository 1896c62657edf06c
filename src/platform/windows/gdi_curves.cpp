// Curves, paths, shaped regions and mapping: forwards to the system.

#include "platform/gdi.h"

#include "platform/windows/convert.h"

namespace platform {

using driver::as;
using driver::handleFrom;
using driver::native;

int SetMapMode(HDC dc, int mode) {
    return ::SetMapMode(native(dc), mode);
}

int GetMapMode(HDC dc) {
    return ::GetMapMode(native(dc));
}

int SetArcDirection(HDC dc, int direction) {
    return ::SetArcDirection(native(dc), direction);
}

int GetArcDirection(HDC dc) {
    return ::GetArcDirection(native(dc));
}

BOOL SetWindowExtEx(HDC dc, int width, int height, SIZE* previous) {
    return ::SetWindowExtEx(native(dc), width, height, as<::SIZE>(previous));
}

BOOL GetWindowExtEx(HDC dc, SIZE* extent) {
    return ::GetWindowExtEx(native(dc), as<::SIZE>(extent));
}

BOOL SetViewportExtEx(HDC dc, int width, int height, SIZE* previous) {
    return ::SetViewportExtEx(native(dc), width, height, as<::SIZE>(previous));
}

BOOL GetViewportExtEx(HDC dc, SIZE* extent) {
    return ::GetViewportExtEx(native(dc), as<::SIZE>(extent));
}

BOOL ScaleWindowExtEx(HDC dc, int multiplierX, int divisorX, int multiplierY, int divisorY, SIZE* previous) {
    return ::ScaleWindowExtEx(native(dc), multiplierX, divisorX, multiplierY, divisorY, as<::SIZE>(previous));
}

BOOL ScaleViewportExtEx(HDC dc, int multiplierX, int divisorX, int multiplierY, int divisorY,
                        SIZE* previous) {
    return ::ScaleViewportExtEx(native(dc), multiplierX, divisorX, multiplierY, divisorY,
                                as<::SIZE>(previous));
}

HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD dashCount, const DWORD* dashes) {
    return handleFrom<HPEN>(::ExtCreatePen(style, width, as<::LOGBRUSH>(brush), dashCount,
                                           reinterpret_cast<const ::DWORD*>(dashes)));
}

BOOL SetPixelV(HDC dc, int x, int y, COLORREF color) {
    return ::SetPixelV(native(dc), x, y, color);
}

BOOL Ellipse(HDC dc, int left, int top, int right, int bottom) {
    return ::Ellipse(native(dc), left, top, right, bottom);
}

BOOL RoundRect(HDC dc, int left, int top, int right, int bottom, int width, int height) {
    return ::RoundRect(native(dc), left, top, right, bottom, width, height);
}

BOOL Arc(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
    return ::Arc(native(dc), left, top, right, bottom, xStart, yStart, xEnd, yEnd);
}

BOOL ArcTo(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
    return ::ArcTo(native(dc), left, top, right, bottom, xStart, yStart, xEnd, yEnd);
}

BOOL Chord(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
    return ::Chord(native(dc), left, top, right, bottom, xStart, yStart, xEnd, yEnd);
}

BOOL Pie(HDC dc, int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
    return ::Pie(native(dc), left, top, right, bottom, xStart, yStart, xEnd, yEnd);
}

BOOL PolyPolygon(HDC dc, const POINT* points, const INT* counts, int polygons) {
    return ::PolyPolygon(native(dc), as<::POINT>(points), counts, polygons);
}

BOOL PolyPolyline(HDC dc, const POINT* points, const DWORD* counts, DWORD lines) {
    return ::PolyPolyline(native(dc), as<::POINT>(points), reinterpret_cast<const ::DWORD*>(counts), lines);
}

BOOL PolyBezier(HDC dc, const POINT* points, DWORD count) {
    return ::PolyBezier(native(dc), as<::POINT>(points), count);
}

BOOL PolyBezierTo(HDC dc, const POINT* points, DWORD count) {
    return ::PolyBezierTo(native(dc), as<::POINT>(points), count);
}

BOOL PolyDraw(HDC dc, const POINT* points, const BYTE* types, int count) {
    return ::PolyDraw(native(dc), as<::POINT>(points), types, count);
}

BOOL ExtFloodFill(HDC dc, int x, int y, COLORREF color, UINT mode) {
    return ::ExtFloodFill(native(dc), x, y, color, mode);
}

BOOL BeginPath(HDC dc) {
    return ::BeginPath(native(dc));
}

BOOL EndPath(HDC dc) {
    return ::EndPath(native(dc));
}

BOOL AbortPath(HDC dc) {
    return ::AbortPath(native(dc));
}

BOOL CloseFigure(HDC dc) {
    return ::CloseFigure(native(dc));
}

BOOL StrokePath(HDC dc) {
    return ::StrokePath(native(dc));
}

BOOL FillPath(HDC dc) {
    return ::FillPath(native(dc));
}

BOOL StrokeAndFillPath(HDC dc) {
    return ::StrokeAndFillPath(native(dc));
}

BOOL FlattenPath(HDC dc) {
    return ::FlattenPath(native(dc));
}

BOOL WidenPath(HDC dc) {
    return ::WidenPath(native(dc));
}

HRGN PathToRegion(HDC dc) {
    return handleFrom<HRGN>(::PathToRegion(native(dc)));
}

BOOL SelectClipPath(HDC dc, int mode) {
    return ::SelectClipPath(native(dc), mode);
}

int GetPath(HDC dc, POINT* points, BYTE* types, int count) {
    return ::GetPath(native(dc), as<::POINT>(points), types, count);
}

BOOL SetMiterLimit(HDC dc, float limit, float* previous) {
    return ::SetMiterLimit(native(dc), limit, previous);
}

BOOL GetMiterLimit(HDC dc, float* limit) {
    return ::GetMiterLimit(native(dc), limit);
}

HRGN CreateEllipticRgn(int left, int top, int right, int bottom) {
    return handleFrom<HRGN>(::CreateEllipticRgn(left, top, right, bottom));
}

HRGN CreateEllipticRgnIndirect(const RECT* rect) {
    return handleFrom<HRGN>(::CreateEllipticRgnIndirect(as<::RECT>(rect)));
}

HRGN CreateRoundRectRgn(int left, int top, int right, int bottom, int width, int height) {
    return handleFrom<HRGN>(::CreateRoundRectRgn(left, top, right, bottom, width, height));
}

HRGN CreatePolygonRgn(const POINT* points, int count, int fillMode) {
    return handleFrom<HRGN>(::CreatePolygonRgn(as<::POINT>(points), count, fillMode));
}

HRGN CreatePolyPolygonRgn(const POINT* points, const INT* counts, int polygons, int fillMode) {
    return handleFrom<HRGN>(::CreatePolyPolygonRgn(as<::POINT>(points), counts, polygons, fillMode));
}

BOOL PaintRgn(HDC dc, HRGN region) {
    return ::PaintRgn(native(dc), native(region));
}

BOOL FrameRgn(HDC dc, HRGN region, HBRUSH brush, int width, int height) {
    return ::FrameRgn(native(dc), native(region), native(brush), width, height);
}

BOOL InvertRgn(HDC dc, HRGN region) {
    return ::InvertRgn(native(dc), native(region));
}

} // namespace platform
