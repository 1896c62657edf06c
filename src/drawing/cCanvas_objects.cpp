// The objects and the state of the canvas's context.

#include "drawing/cCanvas.h"
#include "drawing/cCanvas_private.h"
#include "drawing/colours.h"
#include "frame/Globales.h"
#include "platform/windows.h"

namespace tesela {

automation::Variant cCanvas::DeleteDC(platform::HDC nHDC) {
    return static_cast<std::int32_t>(platform::DeleteDC(nHDC));
}

std::int32_t cCanvas::ReleaseDC(platform::HWND nHWND, platform::HDC nHDC) {
    return platform::ReleaseDC(nHWND, nHDC);
}

platform::HGDIOBJ cCanvas::SelectObject(platform::HGDIOBJ nHObject) {
    return platform::SelectObject(nPaintDC, nHObject);
}

std::int32_t cCanvas::DeleteObject(platform::HGDIOBJ nHObject) {
    return platform::DeleteObject(nHObject);
}

platform::HGDIOBJ cCanvas::GetStockObject(GDIStockObjectsConstants nObject) const {
    return platform::GetStockObject(nObject);
}

RECT_Type cCanvas::CreateRECT(std::int32_t left, std::int32_t top, std::int32_t right,
                              std::int32_t bottom) const {
    return {left, top, right, bottom};
}

void cCanvas::ComprobarPaletaSemitonos() {
    if (globales().lHighColor || nHalftonePalette) return;
    nHalftonePalette = platform::CreateHalftonePalette(nPaintDC);
    if (!nHalftonePalette) {
        reportGDIError(u"Error de G.D.I. en ComprobarPaletaSemitonos");
        return;
    }
    nOldPalette = platform::SelectPalette(nPaintDC, nHalftonePalette, platform::FALSE_);
    platform::RealizePalette(nPaintDC);
}

// --- Pens ------------------------------------------------------------------------------------------

platform::HPEN cCanvas::CreatePen(PenStyleConstants nStyle, std::int32_t width, host::OLE_COLOR nColor) {
    return platform::CreatePen(nStyle, width, colorRef(nColor));
}

void cCanvas::SelectPen(PenStyleConstants nStyle, std::int32_t width, host::OLE_COLOR nColor) {
    selectOwned(nCurPen, CreatePen(nStyle, width, nColor), u"Error de G.D.I. en SelectPen");
}

void cCanvas::SelectSimplePen(host::OLE_COLOR nColor) {
    SelectPen(PenStyle_Solid, 1, nColor);
}

void cCanvas::SelectNullPen() {
    platform::SelectObject(nPaintDC, platform::GetStockObject(platform::NULL_PEN));
    if (nCurPen) platform::DeleteObject(std::exchange(nCurPen, {}));
}

// --- Brushes ---------------------------------------------------------------------------------------

platform::HBRUSH cCanvas::CreateHatchBrush(HatchStyleConstants nStyle, host::OLE_COLOR nColor) {
    return platform::CreateHatchBrush(nStyle, colorRef(nColor));
}

void cCanvas::SelectHatchBrush(HatchStyleConstants nStyle, host::OLE_COLOR nColor) {
    selectOwned(nCurBrush, CreateHatchBrush(nStyle, nColor), u"Error de GDI en SelectHatchBrush");
}

platform::HBRUSH cCanvas::CreatePatternBrush(platform::HBITMAP hBitmap) {
    return platform::CreatePatternBrush(hBitmap);
}

void cCanvas::SelectPatternBrush(platform::HBITMAP hBitmap) {
    selectOwned(nCurBrush, CreatePatternBrush(hBitmap), u"Error de GDI en SelectPatternBrush");
}

platform::HBRUSH cCanvas::CreateSolidBrush(host::OLE_COLOR nColor) {
    return platform::CreateSolidBrush(colorRef(nColor));
}

void cCanvas::SelectSolidBrush(host::OLE_COLOR nColor) {
    selectOwned(nCurBrush, CreateSolidBrush(nColor), u"Error de GDI en SelectSolidBrush");
}

void cCanvas::SelectNullBrush() {
    platform::SelectObject(nPaintDC, platform::GetStockObject(platform::NULL_BRUSH));
    if (nCurBrush) platform::DeleteObject(std::exchange(nCurBrush, {}));
}

// --- State -----------------------------------------------------------------------------------------

std::int32_t cCanvas::SetDrawMode(BinaryMixModeConstants nMode) {
    return platform::SetROP2(nPaintDC, nMode);
}

std::int32_t cCanvas::SetBkMode(BackModeConstants nMode) {
    return platform::SetBkMode(nPaintDC, nMode);
}

host::OLE_COLOR cCanvas::SetBkColor(host::OLE_COLOR nColor) {
    return oleColor(platform::SetBkColor(nPaintDC, colorRef(nColor)));
}

host::OLE_COLOR cCanvas::SetTextColor(host::OLE_COLOR nColor) {
    return oleColor(platform::SetTextColor(nPaintDC, colorRef(nColor)));
}

host::OLE_COLOR cCanvas::GetNearestSolidColor(host::OLE_COLOR nColor) const {
    const std::int32_t color = tesela::GetVBSysColor(nColor);
    if (!nPaintDC) return color;
    return oleColor(platform::GetNearestColor(nPaintDC, static_cast<platform::COLORREF>(color)));
}

host::OLE_COLOR cCanvas::GetVBSysColor(host::OLE_COLOR nColor) const {
    return tesela::GetVBSysColor(nColor);
}

std::int32_t cCanvas::SetVBSysColor(SystemColorConstants nColor, host::OLE_COLOR nRGB) {
    constexpr std::int32_t numberBits = 0x00FFFFFF; // the system colour's own form is taken too
    const platform::INT index = nColor & numberBits;
    const auto color = static_cast<platform::COLORREF>(nRGB);
    return platform::SetSysColors(1, &index, &color);
}

platform::HDC cCanvas::GetDC(platform::HWND nHWND) {
    return platform::GetDC(nHWND);
}

platform::HDC cCanvas::GetWindowDC(platform::HWND nHWND) {
    return platform::GetWindowDC(nHWND);
}

std::int32_t cCanvas::GetDevCaps(GDIDeviceCapsConstants nIndex) const {
    return platform::GetDeviceCaps(nPaintDC, nIndex);
}

} // namespace tesela
