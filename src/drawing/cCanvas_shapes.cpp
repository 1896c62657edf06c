// Lines, frames, fills and shapes.

#include "drawing/cCanvas_private.h"

#include "automation/Conversions.h"
#include "drawing/rounding.h"
#include "host/MsgBox.h"

#include <array>
#include <cmath>
#include <limits>

namespace tesela {

using automation::Array;
using platform::POINT;

namespace {

/// The place after this one, as far as there is one.
constexpr std::int32_t next(std::int32_t place) {
    return place < std::numeric_limits<std::int32_t>::max() ? place + 1 : place;
}

/// The rectangle of inclusive corners.
platform::RECT inclusive(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) {
    return {x1, y1, next(x2), next(y2)};
}

/// A colour component of 8 bits in the high byte of 16.
platform::WORD component(host::OLE_COLOR color, int shift) {
    return static_cast<platform::WORD>((color >> shift & 0xFF) << 8);
}

platform::TRIVERTEX vertex(std::int32_t x, std::int32_t y, host::OLE_COLOR color) {
    return {x, y, component(color, 0), component(color, 8), component(color, 16), 0};
}

std::vector<POINT> points(std::int32_t count, const Array& aXCoord, const Array& aYCoord) {
    std::vector<POINT> result;
    if (count < 1) return result;
    const std::int32_t first = aXCoord.lower();
    for (std::int32_t i = first; count > 0; ++i, --count)
        result.push_back({automation::CLng(aXCoord(i)), automation::CLng(aYCoord(i))});
    return result;
}

int countOf(std::span<const POINT> vertices) {
    return static_cast<int>(vertices.size());
}

/// How many of so many points make whole curves that follow each other, and how many make curves from where
/// the last line ended.
int pointsOfCurves(std::int32_t count) {
    return count < 1 ? 0 : (count - 1) / 3 * 3 + 1;
}

int pointsOfCurvesTo(std::int32_t count) {
    return count < 1 ? 0 : count - count % 3;
}

/// The ellipse in a rectangle of inclusive corners, and the point of it at an angle.
struct EllipseOf {
    double cx, cy, rx, ry;

    EllipseOf(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom)
        : cx((static_cast<double>(left) + right) / 2), cy((static_cast<double>(top) + bottom) / 2),
          rx((static_cast<double>(right) - left + 1) / 2), ry((static_cast<double>(bottom) - top + 1) / 2) {}
    POINT at(double angle) const {
        return {roundToLong(cx + rx * std::cos(angle)), roundToLong(cy - ry * std::sin(angle))};
    }
};

} // namespace

// --- Pixels, lines and frames ----------------------------------------------------------------------

host::OLE_COLOR cCanvas::GetPixel(std::int32_t X, std::int32_t Y) const {
    return oleColor(platform::GetPixel(nPaintDC, X, Y));
}

std::int32_t cCanvas::SetPixel(std::int32_t X, std::int32_t Y, host::OLE_COLOR nRGB) {
    return platform::SetPixelV(nPaintDC, X, Y, static_cast<platform::COLORREF>(nRGB));
}

std::int32_t cCanvas::MoveTo(std::int32_t X, std::int32_t Y) {
    return platform::MoveToEx(nPaintDC, X, Y, nullptr);
}

std::int32_t cCanvas::LineTo(std::int32_t X, std::int32_t Y) {
    return platform::LineTo(nPaintDC, X, Y);
}

/// A solid pen of the least width in a colour that is resolved.
void cCanvas::selectLinePen(host::OLE_COLOR color) {
    selectOwned(nCurPen, platform::CreatePen(platform::PS_SOLID, 0, static_cast<platform::COLORREF>(color)),
                u"Error de G.D.I. en SelectPen");
}

void cCanvas::DrawLine(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                       host::OLE_COLOR nRGB) {
    const bool colored = nRGB != -1;
    const host::OLE_COLOR color = colored ? tesela::GetVBSysColor(nRGB) : nRGB;
    if (colored) selectLinePen(color);
    POINT end{x2, y2};
    if (x2 == noCoordinate && y2 == noCoordinate)
        end = {x1, y1};
    else
        MoveTo(x1, y1);
    LineTo(end.x, end.y);
    if (colored) SetPixel(end.x, end.y, color);
}

void cCanvas::DrawBox(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                      host::OLE_COLOR nRGB, host::OLE_COLOR nRGB_Shadow) {
    if (nRGB != -1) selectLinePen(tesela::GetVBSysColor(nRGB));
    MoveTo(x1, y2);
    LineTo(x1, y1);
    LineTo(x2, y1);
    const host::OLE_COLOR shadow = tesela::GetVBSysColor(nRGB_Shadow);
    if (nRGB_Shadow != -1) selectLinePen(shadow);
    LineTo(x2, y2);
    LineTo(x1, y2);
    if (nRGB_Shadow != -1) SetPixel(x1, y2, shadow);
}

// --- Fills -----------------------------------------------------------------------------------------

void cCanvas::FillBox(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                      host::OLE_COLOR nRGB) {
    platform::fillSolidRect(nPaintDC, inclusive(x1, y1, x2, y2), colorRef(nRGB));
}

std::int32_t cCanvas::FillRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                               platform::HBRUSH nHBrush) {
    const platform::HBRUSH brush = nHBrush == currentBrush ? nCurBrush : nHBrush;
    if (!brush) return 0;
    const platform::RECT box = inclusive(x1, y1, x2, y2);
    return platform::FillRect(nPaintDC, &box, brush);
}

std::int32_t cCanvas::GradientFillRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                                       bool lHorizontal, host::OLE_COLOR nRGB1, host::OLE_COLOR nRGB2) {
    const platform::TRIVERTEX vertices[] = {vertex(x1, y1, nRGB1), vertex(x2, y2, nRGB2)};
    const platform::GRADIENT_RECT corners{0, 1};
    return platform::GradientFill(nPaintDC, vertices, 2, &corners, 1,
                                  lHorizontal ? platform::GRADIENT_FILL_RECT_H
                                              : platform::GRADIENT_FILL_RECT_V);
}

std::int32_t cCanvas::FloodFill(std::int32_t X, std::int32_t Y, host::OLE_COLOR nColor, bool lReplaceColor) {
    return platform::ExtFloodFill(nPaintDC, X, Y, colorRef(nColor),
                                  lReplaceColor ? platform::FLOODFILLSURFACE : platform::FLOODFILLBORDER);
}

void cCanvas::Clear() {
    platform::fillSolidRect(nPaintDC, xPaintRect, colorRef(nClearColor));
}

// --- Shapes ----------------------------------------------------------------------------------------

std::int32_t cCanvas::Rectangle(std::int32_t left, std::int32_t top, std::int32_t nRight,
                                std::int32_t nBottom) {
    return platform::Rectangle(nPaintDC, left, top, next(nRight), next(nBottom));
}

std::int32_t cCanvas::Ellipse(std::int32_t left, std::int32_t top, std::int32_t nRight,
                              std::int32_t nBottom) {
    return platform::Ellipse(nPaintDC, left, top, next(nRight), next(nBottom));
}

std::int32_t cCanvas::RoundRect(std::int32_t left, std::int32_t top, std::int32_t nRight,
                                std::int32_t nBottom, std::int32_t nWidthEllipse,
                                std::int32_t nHeightEllipse) {
    return platform::RoundRect(nPaintDC, left, top, next(nRight), next(nBottom), next(nWidthEllipse),
                               next(nHeightEllipse));
}

std::int32_t cCanvas::Pie(std::int32_t left, std::int32_t top, std::int32_t nRight, std::int32_t nBottom,
                          std::int32_t nXStart, std::int32_t nYStart, std::int32_t nXEnd,
                          std::int32_t nYEnd) {
    return platform::Pie(nPaintDC, left, top, next(nRight), next(nBottom), nXStart, nYStart, nXEnd, nYEnd);
}

std::int32_t cCanvas::Chord(std::int32_t left, std::int32_t top, std::int32_t nRight, std::int32_t nBottom,
                            std::int32_t nXStart, std::int32_t nYStart, std::int32_t nXEnd,
                            std::int32_t nYEnd) {
    return platform::Chord(nPaintDC, left, top, next(nRight), next(nBottom), nXStart, nYStart, nXEnd, nYEnd);
}

std::int32_t cCanvas::Arc(std::int32_t left, std::int32_t top, std::int32_t nRight, std::int32_t nBottom,
                          std::int32_t nXStart, std::int32_t nYStart, std::int32_t nXEnd,
                          std::int32_t nYEnd) {
    return platform::Arc(nPaintDC, left, top, next(nRight), next(nBottom), nXStart, nYStart, nXEnd, nYEnd);
}

std::int32_t cCanvas::Sector(std::int32_t left, std::int32_t top, std::int32_t nRight, std::int32_t nBottom,
                             double nStartAngle, double nEndAngle) {
    const EllipseOf ellipse(left, top, nRight, nBottom);
    const POINT start = ellipse.at(nStartAngle);
    const POINT end = ellipse.at(nEndAngle);
    return Pie(left, top, nRight, nBottom, start.x, start.y, end.x, end.y);
}

std::int32_t cCanvas::Cuerda(std::int32_t left, std::int32_t top, std::int32_t nRight, std::int32_t nBottom,
                             double nStartAngle, double nEndAngle) {
    const EllipseOf ellipse(left, top, nRight, nBottom);
    const POINT start = ellipse.at(nStartAngle);
    const POINT end = ellipse.at(nEndAngle);
    return Chord(left, top, nRight, nBottom, start.x, start.y, end.x, end.y);
}

std::int32_t cCanvas::Arco(std::int32_t left, std::int32_t top, std::int32_t nRight, std::int32_t nBottom,
                           double nStartAngle, double nEndAngle) {
    const EllipseOf ellipse(left, top, nRight, nBottom);
    const POINT start = ellipse.at(nStartAngle);
    const POINT end = ellipse.at(nEndAngle);
    return Arc(left, top, nRight, nBottom, start.x, start.y, end.x, end.y);
}

// --- Polygons and curves ---------------------------------------------------------------------------

std::int32_t cCanvas::Polygon(std::span<const POINT> vertices) {
    return platform::Polygon(nPaintDC, vertices.data(), countOf(vertices));
}

std::int32_t cCanvas::Polyline(std::span<const POINT> vertices) {
    return platform::Polyline(nPaintDC, vertices.data(), countOf(vertices));
}

std::int32_t cCanvas::PolylineTo(std::span<const POINT> vertices) {
    return platform::PolylineTo(nPaintDC, vertices.data(), countOf(vertices));
}

std::int32_t cCanvas::PolyBezier(std::span<const POINT> vertices) {
    const int used = pointsOfCurves(countOf(vertices));
    return platform::PolyBezier(nPaintDC, vertices.data(), static_cast<platform::DWORD>(used));
}

std::int32_t cCanvas::PolyBezierTo(std::span<const POINT> vertices) {
    const int used = pointsOfCurvesTo(countOf(vertices));
    return platform::PolyBezierTo(nPaintDC, vertices.data(), static_cast<platform::DWORD>(used));
}

std::int32_t cCanvas::Polygon(std::int32_t nVertices, const Array& aXCoord, const Array& aYCoord) {
    return Polygon(points(nVertices, aXCoord, aYCoord));
}

std::int32_t cCanvas::Polyline(std::int32_t nVertices, const Array& aXCoord, const Array& aYCoord) {
    return Polyline(points(nVertices, aXCoord, aYCoord));
}

std::int32_t cCanvas::PolylineTo(std::int32_t nVertices, const Array& aXCoord, const Array& aYCoord) {
    return PolylineTo(points(nVertices, aXCoord, aYCoord));
}

std::int32_t cCanvas::PolyBezier(std::int32_t nVertices, const Array& aXCoord, const Array& aYCoord) {
    return PolyBezier(points(pointsOfCurves(nVertices), aXCoord, aYCoord));
}

std::int32_t cCanvas::PolyBezierTo(std::int32_t nVertices, const Array& aXCoord, const Array& aYCoord) {
    return PolyBezierTo(points(pointsOfCurvesTo(nVertices), aXCoord, aYCoord));
}

// --- The arrowhead ---------------------------------------------------------------------------------

/// The first line from the tip on, and not before 1, that may be seen.
std::int32_t cCanvas::firstSeen(POINT tip, POINT step, bool vertical) const {
    platform::RECT box{};
    platform::GetClipBox(nPaintDC, &box);
    const auto [low, high] = vertical ? std::minmax(box.left, box.right) : std::minmax(box.top, box.bottom);
    const std::int64_t start = vertical ? tip.x : tip.y;
    const std::int64_t away = (vertical ? step.x : step.y) > 0 ? low - start : start - high;
    constexpr std::int64_t margin = 1; // the pen may reach over its line
    return saturatingSum(std::max<std::int64_t>(away - margin, 1), 0);
}

/// Lines that grow by a pixel at both ends with each step away from the tip.
void cCanvas::drawScanLines(POINT tip, POINT step, std::int32_t count, bool vertical) {
    constexpr std::int32_t most = 1 << 17; // no surface has more of them
    constexpr std::size_t linesAtOnce = 16;
    std::array<platform::Line, linesAtOnce> lines;
    std::size_t used = 0;
    const auto draw = [&] { platform::drawLines(nPaintDC, lines.data(), static_cast<int>(used)); };
    const std::int32_t centre = vertical ? tip.y : tip.x;
    const std::int32_t first = count > most ? firstSeen(tip, step, vertical) : 1;
    const std::int32_t end =
        static_cast<std::int32_t>(std::min<std::int64_t>(count, std::int64_t{first} + most));
    for (std::int32_t k = first; k < end; ++k) {
        const std::int32_t at = vertical ? saturatingSum(tip.x, std::int64_t{k} * step.x)
                                         : saturatingSum(tip.y, std::int64_t{k} * step.y);
        const std::int32_t from = saturatingSum(centre, -k);
        const std::int32_t to = saturatingSum(centre, k + 1);
        lines[used++] = vertical ? platform::Line{at, from, at, to} : platform::Line{from, at, to, at};
        if (used == linesAtOnce) {
            draw();
            used = 0;
        }
    }
    if (used > 0) draw();
}

void cCanvas::DrawTriangle(std::int32_t nX, std::int32_t nY, std::int32_t nScanLines, host::OLE_COLOR nRGB,
                           std::int32_t nAngle) {
    const std::int32_t half = nScanLines / 2;
    POINT tip{nX, nY};
    POINT step;
    switch (nAngle) {
    case 0:
        tip.x = saturatingSum(tip.x, half);
        step.x = -1;
        break;
    case 90:
        tip.y = saturatingSum(tip.y, -half);
        step.y = 1;
        break;
    case 180:
        tip.x = saturatingSum(tip.x, -half);
        step.x = 1;
        break;
    case 270:
        tip.y = saturatingSum(tip.y, half);
        step.y = -1;
        break;
    default:
        host::MsgBox(u"cCanvas.DrawTriangle()\r\nÁngulo no soportado (" + automation::CStr(nAngle) + u")",
                     host::MsgBoxStyle::Exclamation, u"Error en parámetro");
        return;
    }
    const host::OLE_COLOR color = tesela::GetVBSysColor(nRGB);
    SetPixel(tip.x, tip.y, color);
    selectLinePen(color);
    drawScanLines(tip, step, nScanLines, step.x != 0);
}

} // namespace tesela
