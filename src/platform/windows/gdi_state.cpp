// The state of a device context, its coordinates and its clipping, and regions: forwards to the system.

#include "platform/gdi.h"

#include "platform/windows/convert.h"

namespace platform {

using driver::as;
using driver::handleFrom;
using driver::native;

COLORREF SetTextColor(HDC dc, COLORREF color) {
    return ::SetTextColor(native(dc), color);
}

COLORREF GetTextColor(HDC dc) {
    return ::GetTextColor(native(dc));
}

COLORREF SetBkColor(HDC dc, COLORREF color) {
    return ::SetBkColor(native(dc), color);
}

COLORREF GetBkColor(HDC dc) {
    return ::GetBkColor(native(dc));
}

int SetBkMode(HDC dc, int mode) {
    return ::SetBkMode(native(dc), mode);
}

int GetBkMode(HDC dc) {
    return ::GetBkMode(native(dc));
}

UINT SetTextAlign(HDC dc, UINT align) {
    return ::SetTextAlign(native(dc), align);
}

UINT GetTextAlign(HDC dc) {
    return ::GetTextAlign(native(dc));
}

int SetROP2(HDC dc, int mode) {
    return ::SetROP2(native(dc), mode);
}

int GetROP2(HDC dc) {
    return ::GetROP2(native(dc));
}

int SetPolyFillMode(HDC dc, int mode) {
    return ::SetPolyFillMode(native(dc), mode);
}

int GetPolyFillMode(HDC dc) {
    return ::GetPolyFillMode(native(dc));
}

int SetStretchBltMode(HDC dc, int mode) {
    return ::SetStretchBltMode(native(dc), mode);
}

int GetStretchBltMode(HDC dc) {
    return ::GetStretchBltMode(native(dc));
}

COLORREF SetDCBrushColor(HDC dc, COLORREF color) {
    return ::SetDCBrushColor(native(dc), color);
}

COLORREF GetDCBrushColor(HDC dc) {
    return ::GetDCBrushColor(native(dc));
}

COLORREF SetDCPenColor(HDC dc, COLORREF color) {
    return ::SetDCPenColor(native(dc), color);
}

COLORREF GetDCPenColor(HDC dc) {
    return ::GetDCPenColor(native(dc));
}

int SetTextCharacterExtra(HDC dc, int extra) {
    return ::SetTextCharacterExtra(native(dc), extra);
}

int GetTextCharacterExtra(HDC dc) {
    return ::GetTextCharacterExtra(native(dc));
}

BOOL SetTextJustification(HDC dc, int extra, int count) {
    return ::SetTextJustification(native(dc), extra, count);
}

BOOL SetBrushOrgEx(HDC dc, int x, int y, POINT* previous) {
    return ::SetBrushOrgEx(native(dc), x, y, as<::POINT>(previous));
}

BOOL GetBrushOrgEx(HDC dc, POINT* origin) {
    return ::GetBrushOrgEx(native(dc), as<::POINT>(origin));
}

BOOL SetWindowOrgEx(HDC dc, int x, int y, POINT* previous) {
    return ::SetWindowOrgEx(native(dc), x, y, as<::POINT>(previous));
}

BOOL GetWindowOrgEx(HDC dc, POINT* origin) {
    return ::GetWindowOrgEx(native(dc), as<::POINT>(origin));
}

BOOL OffsetWindowOrgEx(HDC dc, int x, int y, POINT* previous) {
    return ::OffsetWindowOrgEx(native(dc), x, y, as<::POINT>(previous));
}

BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* previous) {
    return ::SetViewportOrgEx(native(dc), x, y, as<::POINT>(previous));
}

BOOL GetViewportOrgEx(HDC dc, POINT* origin) {
    return ::GetViewportOrgEx(native(dc), as<::POINT>(origin));
}

BOOL OffsetViewportOrgEx(HDC dc, int x, int y, POINT* previous) {
    return ::OffsetViewportOrgEx(native(dc), x, y, as<::POINT>(previous));
}

BOOL DPtoLP(HDC dc, POINT* points, int count) {
    return ::DPtoLP(native(dc), as<::POINT>(points), count);
}

BOOL LPtoDP(HDC dc, POINT* points, int count) {
    return ::LPtoDP(native(dc), as<::POINT>(points), count);
}

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
    return handleFrom<HRGN>(::CreateRectRgn(left, top, right, bottom));
}

HRGN CreateRectRgnIndirect(const RECT* rect) {
    return handleFrom<HRGN>(::CreateRectRgnIndirect(as<::RECT>(rect)));
}

BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom) {
    return ::SetRectRgn(native(region), left, top, right, bottom);
}

int CombineRgn(HRGN target, HRGN a, HRGN b, int mode) {
    return ::CombineRgn(native(target), native(a), native(b), mode);
}

BOOL EqualRgn(HRGN a, HRGN b) {
    return ::EqualRgn(native(a), native(b));
}

int OffsetRgn(HRGN region, int x, int y) {
    return ::OffsetRgn(native(region), x, y);
}

BOOL PtInRegion(HRGN region, int x, int y) {
    return ::PtInRegion(native(region), x, y);
}

BOOL RectInRegion(HRGN region, const RECT* rect) {
    return ::RectInRegion(native(region), as<::RECT>(rect));
}

int GetRgnBox(HRGN region, RECT* box) {
    return ::GetRgnBox(native(region), as<::RECT>(box));
}

int SelectClipRgn(HDC dc, HRGN region) {
    return ::SelectClipRgn(native(dc), native(region));
}

int ExtSelectClipRgn(HDC dc, HRGN region, int mode) {
    return ::ExtSelectClipRgn(native(dc), native(region), mode);
}

int IntersectClipRect(HDC dc, int left, int top, int right, int bottom) {
    return ::IntersectClipRect(native(dc), left, top, right, bottom);
}

int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom) {
    return ::ExcludeClipRect(native(dc), left, top, right, bottom);
}

int OffsetClipRgn(HDC dc, int x, int y) {
    return ::OffsetClipRgn(native(dc), x, y);
}

int GetClipBox(HDC dc, RECT* box) {
    return ::GetClipBox(native(dc), as<::RECT>(box));
}

int GetClipRgn(HDC dc, HRGN region) {
    return ::GetClipRgn(native(dc), native(region));
}

BOOL PtVisible(HDC dc, int x, int y) {
    return ::PtVisible(native(dc), x, y);
}

BOOL RectVisible(HDC dc, const RECT* rect) {
    return ::RectVisible(native(dc), as<::RECT>(rect));
}

} // namespace platform
