// Device contexts, bitmaps, brushes, pens and icons: forwards to the system.

#include "platform/gdi.h"

#include "platform/windows/convert.h"

namespace platform {

using driver::as;
using driver::handleFrom;
using driver::native;

HDC CreateCompatibleDC(HDC like) {
    return handleFrom<HDC>(::CreateCompatibleDC(native(like)));
}

BOOL DeleteDC(HDC dc) {
    return ::DeleteDC(native(dc));
}

int SaveDC(HDC dc) {
    return ::SaveDC(native(dc));
}

BOOL RestoreDC(HDC dc, int depth) {
    return ::RestoreDC(native(dc), depth);
}

int GetDeviceCaps(HDC dc, int index) {
    return ::GetDeviceCaps(native(dc), index);
}

COLORREF GetNearestColor(HDC dc, COLORREF color) {
    return ::GetNearestColor(native(dc), color);
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object) {
    return handleFrom<HGDIOBJ>(::SelectObject(native(dc), native(object)));
}

HGDIOBJ GetCurrentObject(HDC dc, DWORD type) {
    return handleFrom<HGDIOBJ>(::GetCurrentObject(native(dc), type));
}

BOOL DeleteObject(HGDIOBJ object) {
    return ::DeleteObject(native(object));
}

HGDIOBJ GetStockObject(int index) {
    return handleFrom<HGDIOBJ>(::GetStockObject(index));
}

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height) {
    return handleFrom<HBITMAP>(::CreateCompatibleBitmap(native(dc), width, height));
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits) {
    return handleFrom<HBITMAP>(::CreateBitmap(width, height, planes, bitsPerPixel, bits));
}

HBRUSH CreateSolidBrush(COLORREF color) {
    return handleFrom<HBRUSH>(::CreateSolidBrush(color));
}

HBRUSH CreateHatchBrush(int style, COLORREF color) {
    return handleFrom<HBRUSH>(::CreateHatchBrush(style, color));
}

HBRUSH CreatePatternBrush(HBITMAP bitmap) {
    return handleFrom<HBRUSH>(::CreatePatternBrush(native(bitmap)));
}

HBRUSH CreateBrushIndirect(const LOGBRUSH* data) {
    return handleFrom<HBRUSH>(::CreateBrushIndirect(as<::LOGBRUSH>(data)));
}

HPEN CreatePen(int style, int width, COLORREF color) {
    return handleFrom<HPEN>(::CreatePen(style, width, color));
}

HPEN CreatePenIndirect(const LOGPEN* data) {
    return handleFrom<HPEN>(::CreatePenIndirect(as<::LOGPEN>(data)));
}

BOOL DrawIconEx(HDC dc, int x, int y, HICON icon, int width, int height, UINT step, HBRUSH background,
                UINT flags) {
    return ::DrawIconEx(native(dc), x, y, native(icon), width, height, step, native(background), flags);
}

HICON CopyIcon(HICON icon) {
    return handleFrom<HICON>(::CopyIcon(native(icon)));
}

BOOL DestroyIcon(HICON icon) {
    return ::DestroyIcon(native(icon));
}

namespace {

/// GetObject tells about objects of any kind: the kind is looked at first.
template <class Native, class Ours>
BOOL describe(::HGDIOBJ object, ::DWORD type, Ours* data) {
    if (::GetObjectType(object) != type) return FALSE_;
    return ::GetObjectW(object, sizeof(Native), as<Native>(data)) != 0;
}

} // namespace

DWORD GetObjectType(HGDIOBJ object) {
    return ::GetObjectType(native(object));
}

DWORD GetObjectType(HDC dc) {
    return ::GetObjectType(native(dc));
}

BOOL GetObjectBitmap(HBITMAP bitmap, BITMAP* data) {
    return describe<::BITMAP>(native(bitmap), OBJ_BITMAP, data);
}

BOOL GetObjectBrush(HBRUSH brush, LOGBRUSH* data) {
    return describe<::LOGBRUSH>(native(brush), OBJ_BRUSH, data);
}

BOOL GetObjectPen(HPEN pen, LOGPEN* data) {
    return describe<::LOGPEN>(native(pen), OBJ_PEN, data);
}

BOOL GetObjectFont(HFONT font, LOGFONTW* data) {
    return describe<::LOGFONTW>(native(font), OBJ_FONT, data);
}

BOOL GetObjectPalette(HPALETTE palette, WORD* count) {
    if (!count || ::GetObjectType(native(palette)) != OBJ_PAL) return FALSE_;
    return ::GetObjectW(native(palette), sizeof *count, count) != 0;
}

DWORD GetGuiResources(DWORD flags) {
    return ::GetGuiResources(::GetCurrentProcess(), flags);
}

HICON CreateIconIndirect(const ICONINFO* info) {
    ::ICONINFO data{info->fIcon, info->xHotspot, info->yHotspot, native(info->hbmMask),
                    native(info->hbmColor)};
    return handleFrom<HICON>(::CreateIconIndirect(&data));
}

BOOL GetIconInfo(HICON icon, ICONINFO* info) {
    ::ICONINFO data{};
    if (!::GetIconInfo(native(icon), &data)) return FALSE_;
    *info = {data.fIcon, data.xHotspot, data.yHotspot, handleFrom<HBITMAP>(data.hbmMask),
             handleFrom<HBITMAP>(data.hbmColor)};
    return TRUE_;
}

} // namespace platform
