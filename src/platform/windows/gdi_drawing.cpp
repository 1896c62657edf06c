// Shapes, fills and copies: forwards to the system.

#include "platform/gdi.h"

#include "platform/windows/convert.h"

namespace platform {

using driver::as;
using driver::native;

BOOL MoveToEx(HDC dc, int x, int y, POINT* previous) {
    return ::MoveToEx(native(dc), x, y, as<::POINT>(previous));
}

BOOL GetCurrentPositionEx(HDC dc, POINT* position) {
    return ::GetCurrentPositionEx(native(dc), as<::POINT>(position));
}

BOOL LineTo(HDC dc, int x, int y) {
    return ::LineTo(native(dc), x, y);
}

BOOL drawLines(HDC dc, const Line* lines, int count) {
    bool done = true;
    for (const Line* line = lines; line != lines + count; ++line) {
        done = MoveToEx(dc, line->x1, line->y1, nullptr) && done;
        done = LineTo(dc, line->x2, line->y2) && done;
    }
    return done ? TRUE_ : FALSE_;
}

BOOL Polyline(HDC dc, const POINT* points, int count) {
    return ::Polyline(native(dc), as<::POINT>(points), count);
}

BOOL PolylineTo(HDC dc, const POINT* points, int count) {
    return ::PolylineTo(native(dc), as<::POINT>(points), count);
}

BOOL Polygon(HDC dc, const POINT* points, int count) {
    return ::Polygon(native(dc), as<::POINT>(points), count);
}

BOOL Rectangle(HDC dc, int left, int top, int right, int bottom) {
    return ::Rectangle(native(dc), left, top, right, bottom);
}

int FillRect(HDC dc, const RECT* rect, HBRUSH brush) {
    return ::FillRect(native(dc), as<::RECT>(rect), native(brush));
}

BOOL fillSolidRect(HDC dc, const RECT& rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    const BOOL filled = FillRect(dc, &rect, brush);
    DeleteObject(brush);
    return filled;
}

int FrameRect(HDC dc, const RECT* rect, HBRUSH brush) {
    return ::FrameRect(native(dc), as<::RECT>(rect), native(brush));
}

BOOL InvertRect(HDC dc, const RECT* rect) {
    return ::InvertRect(native(dc), as<::RECT>(rect));
}

BOOL DrawFocusRect(HDC dc, const RECT* rect) {
    return ::DrawFocusRect(native(dc), as<::RECT>(rect));
}

BOOL DrawEdge(HDC dc, RECT* rect, UINT edge, UINT flags) {
    return ::DrawEdge(native(dc), as<::RECT>(rect), edge, flags);
}

COLORREF SetPixel(HDC dc, int x, int y, COLORREF color) {
    return ::SetPixel(native(dc), x, y, color);
}

COLORREF GetPixel(HDC dc, int x, int y) {
    return ::GetPixel(native(dc), x, y);
}

BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD rop) {
    return ::PatBlt(native(dc), x, y, width, height, rop);
}

BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource, DWORD rop) {
    return ::BitBlt(native(dc), x, y, width, height, native(source), xSource, ySource, rop);
}

BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                int widthSource, int heightSource, DWORD rop) {
    return ::StretchBlt(native(dc), x, y, width, height, native(source), xSource, ySource, widthSource,
                        heightSource, rop);
}

BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush) {
    return ::FillRgn(native(dc), native(region), native(brush));
}

BOOL MaskBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource, HBITMAP mask,
             int xMask, int yMask, DWORD rop) {
    return ::MaskBlt(native(dc), x, y, width, height, native(source), xSource, ySource, native(mask), xMask,
                     yMask, rop);
}

BOOL PlgBlt(HDC dc, const POINT* points, HDC source, int xSource, int ySource, int widthSource,
            int heightSource, HBITMAP mask, int xMask, int yMask) {
    return ::PlgBlt(native(dc), as<::POINT>(points), native(source), xSource, ySource, widthSource,
                    heightSource, native(mask), xMask, yMask);
}

BOOL TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                    int widthSource, int heightSource, UINT transparent) {
    return ::TransparentBlt(native(dc), x, y, width, height, native(source), xSource, ySource, widthSource,
                            heightSource, transparent);
}

BOOL copyColorsAtOnce(HDC, int, int, int, int, HDC, COLORREF) {
    return FALSE_; // the system has no such call
}

BOOL AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                int widthSource, int heightSource, BLENDFUNCTION blend) {
    return ::AlphaBlend(native(dc), x, y, width, height, native(source), xSource, ySource, widthSource,
                        heightSource, *as<::BLENDFUNCTION>(&blend));
}

BOOL GradientFill(HDC dc, const TRIVERTEX* vertices, DWORD vertexCount, const void* meshes, DWORD meshCount,
                  DWORD mode) {
    // The system only reads the vertices and the meshes.
    auto* points = const_cast<::TRIVERTEX*>(as<::TRIVERTEX>(vertices));
    return ::GradientFill(native(dc), points, vertexCount, const_cast<void*>(meshes), meshCount, mode);
}

} // namespace platform
