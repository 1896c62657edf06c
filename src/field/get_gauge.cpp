// The bar of progress behind the text, and the bands that guide the eye along long numbers.

#include "automation/Conversions.h"
#include "automation/Format.h"
#include "drawing/colours.h"
#include "drawing/rounding.h"
#include "field/get.h"
#include "platform/windows.h"

#include <algorithm>

namespace tesela {

using automation::String;

namespace {

constexpr host::OLE_COLOR white = 0xFFFFFF;
constexpr std::int32_t margin = 2; // pixels around the bar
constexpr std::int32_t mostDecimals = 15;

} // namespace

void get::setGaugeColor(host::OLE_COLOR color) {
    constexpr std::uint8_t share = 64;
    xGauge.nColor = GetVBSysColor(color);
    xGauge.nColorClaro =
        globales().lHighColor ? CalculateColorMix(xGauge.nColor, white, share) : xGauge.nColor;
}

void get::startGauge(bool lShowPorcentaje, std::int32_t nNumDec, host::OLE_COLOR nBaseColor) {
    xGauge.lShowPorcentaje = lShowPorcentaje;
    xGauge.cFmtPorcentaje = u"##0";
    if (nNumDec > 0)
        xGauge.cFmtPorcentaje +=
            u"." + String::repeat(u'0', static_cast<std::size_t>(std::min(nNumDec, mostDecimals)));
    const host::OLE_COLOR usual = globales().lHighColor ? slot(tslCtlGlobalCfg_Grd_SelRowShadowColor)
                                                        : host::systemColor(SystemColor_BtnHighlight);
    setGaugeColor(nBaseColor >= 0 ? nBaseColor : usual);
}

void get::PaintGauge(double nCurrent, double nMax, bool lShowPorcentaje, std::int32_t nNumDec,
                     host::OLE_COLOR nBaseColor) {
    xGauge.lAuto = false;
    xGauge.nCurrent = nCurrent;
    xGauge.nMax = nMax;
    startGauge(lShowPorcentaje, nNumDec, nBaseColor);
    if (!oFont || !hWnd()) return;
    if (!lInRender && !hasPicture()) return;
    if (!lInRender) oCanvas->BeginPaint();
    oCanvas->SelectVBStdFont(oFont, 0, 0, FontQuality_Default, nFontWidth);
    paintGaugeBar();
    if (lInRender) return; // a handler adds it to the picture that is being made
    showCanvas();
    oCanvas->EndPaint();
}

void get::AutoPaintGauge(double nCurrent, double nMax, bool lShowPorcentaje, std::int32_t nNumDec,
                         host::OLE_COLOR nBaseColor) {
    if (!xGauge.lAuto) {
        startGauge(lShowPorcentaje, nNumDec, nBaseColor);
        xGauge.nMax = nMax;
    }
    if (nBaseColor >= 0) setGaugeColor(nBaseColor);
    xGauge.nCurrent = nCurrent;
    xGauge.lAuto = nCurrent > 0 || nMax > 0;
    Refresh();
}

/// Paints the bar on the canvas, whose context is open and has the font.
void get::paintGaugeBar() {
    if (!(xGauge.nCurrent > 0) || !(xGauge.nMax > 0)) return;
    cCanvas& c = *oCanvas;
    const double ratio = xGauge.nCurrent / xGauge.nMax;
    const std::int32_t available = c.Width() - 2 * margin - nButtonWidth * buttonCount();
    const std::int32_t barRight =
        roundToLong(std::clamp<double>(available * ratio, 0, std::max(c.Width(), 0)) + margin);
    const std::int32_t top = margin, end = c.Height() - margin;
    const std::int32_t turn = top + (end - top) / 4;
    if (globales().lHighColor) {
        c.GradientFillRect(margin, top, barRight, turn, false, xGauge.nColorClaro, xGauge.nColor);
        c.GradientFillRect(margin, turn, barRight, end, false, xGauge.nColor, xGauge.nColorClaro);
    } else {
        c.FillBox(margin, top, barRight - 1, end - 1, xGauge.nColor);
    }
    if (!xGauge.lShowPorcentaje) return;
    const String text = automation::Format(100 * ratio, xGauge.cFmtPorcentaje) + u"%";
    std::int32_t width = 0, height = 0;
    c.GetTextExtent(text, width, height);
    const std::int32_t x = margin + (available - width) / 2, y = (c.Height() - height) / 2;
    c.SetBkMode(BackMode_Transparent);
    c.SetTextColor(white);
    c.TextOut(x + 1, y + 1, text);
    c.SetTextColor(0);
    c.TextOut(x, y, text);
}

void get::PaintHGradient(std::int32_t nChars, host::OLE_COLOR nColor1, host::OLE_COLOR nColor2) {
    constexpr std::int32_t usualGroup = 5;
    constexpr std::uint8_t share = 224;
    if (!(nUserDrawnMode & tslCtlUserDrawnMode_Background) || nMaxLength <= 0 || !oCanvas) return;
    if (nChars < 1) nChars = usualGroup;
    if (nColor1 == -1)
        nColor1 = slot(lHasFocus ? tslCtlGlobalCfg_Get_FocusBackColor : tslCtlGlobalCfg_Get_BackColor);
    nColor1 = GetVBSysColor(nColor1);
    nColor2 = nColor2 == -1 ? CalculateColorMix(nColor1, 0, share) : GetVBSysColor(nColor2);
    cCanvas& c = *oCanvas;
    c.FillBox(0, 0, c.Width() - 1, c.Height() - 1, nColor1);
    std::int32_t letter = 0, height = 0;
    c.GetTextExtent(u"0", letter, height);
    const std::int64_t group = std::int64_t{letter} * nChars;
    const std::int32_t groups = nMaxLength / nChars;
    std::int64_t x = nBordeX + 1;
    for (std::int32_t i = 0; i < groups && x < nTextRight && group > 0; ++i, x += group)
        c.GradientFillRect(static_cast<std::int32_t>(x), 0, saturatingSum(x, group), c.Height(), true,
                           nColor1, nColor2);
    // What is left of the last group stays flat.
    if (x < c.Width()) c.FillBox(static_cast<std::int32_t>(x), 0, c.Width() - 1, c.Height() - 1, nColor1);
}

} // namespace tesela
