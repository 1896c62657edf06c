// The non-client area: its widths, what lies where on it, and its classic look.

#include "platform/gdi.h"
#include "platform/linux/display.h"
#include "platform/linux/window_system.h"
#include "platform/locale.h"

#include <array>

namespace platform::driver {

namespace {

constexpr int ButtonMargin = 2;
constexpr int TextMargin = 4;

bool hasCaption(const Window& window) {
    return (window.style & WS_CAPTION) == WS_CAPTION;
}

int captionHeight(DWORD exStyle) {
    return GetSystemMetrics(exStyle & WS_EX_TOOLWINDOW ? SM_CYSMCAPTION : SM_CYCAPTION);
}

/// Width of the line around the window, without caption and sunken edges.
int borderWidth(DWORD style, DWORD exStyle) {
    const bool dialog = exStyle & WS_EX_DLGMODALFRAME;
    int width = 0;
    if (!dialog && (exStyle & WS_EX_STATICEDGE))
        width = 1;
    else if (dialog || (style & (WS_THICKFRAME | WS_DLGFRAME)))
        width = 2;
    if (style & WS_THICKFRAME) width += GetSystemMetrics(SM_CXFRAME) - GetSystemMetrics(SM_CXDLGFRAME);
    if (dialog || (style & (WS_BORDER | WS_DLGFRAME))) width += GetSystemMetrics(SM_CXBORDER);
    return width;
}

/// Where the caption lies, and its buttons from right to left. The two boxes come together: one that the
/// window doesn't have is disabled.
struct CaptionPlaces {
    RECT bar;
    RECT close;
    RECT maximize;
    RECT minimize;
};

CaptionPlaces captionPlaces(const Window& window, const RECT& frame) {
    CaptionPlaces places;
    if (!hasCaption(window)) return places;
    const int border = borderWidth(window.style, window.exStyle);
    const int height = captionHeight(window.exStyle);
    places.bar = {frame.left + border, frame.top + border, frame.right - border,
                  frame.top + border + height - 1};
    if (!(window.style & WS_SYSMENU)) return places;
    const int side = height - 1 - 2 * ButtonMargin;
    RECT button{places.bar.right - ButtonMargin - side, places.bar.top + ButtonMargin,
                places.bar.right - ButtonMargin, places.bar.bottom - ButtonMargin};
    places.close = button;
    if (window.exStyle & WS_EX_TOOLWINDOW) return places;
    if (!(window.style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX))) return places;
    button = offset(button, -side - ButtonMargin, 0);
    places.maximize = button;
    places.minimize = offset(button, -side, 0);
    return places;
}

int hitSizingEdge(const RECT& frame, POINT p, int border) {
    const int corner = border + GetSystemMetrics(SM_CYCAPTION);
    static constexpr std::array<std::array<int, 3>, 3> Hits{{{HTTOPLEFT, HTTOP, HTTOPRIGHT},
                                                             {HTLEFT, HTNOWHERE, HTRIGHT},
                                                             {HTBOTTOMLEFT, HTBOTTOM, HTBOTTOMRIGHT}}};
    const auto third = [](LONG at, LONG low, LONG high, int width) -> std::size_t {
        return at < low + width ? 0 : at >= high - width ? 2 : 1;
    };
    const bool onSide = third(p.x, frame.left, frame.right, border) != 1;
    const bool onTop = third(p.y, frame.top, frame.bottom, border) != 1;
    if (!onSide && !onTop) return HTNOWHERE;
    const std::size_t row = third(p.y, frame.top, frame.bottom, corner);
    const std::size_t column = third(p.x, frame.left, frame.right, corner);
    return Hits[row][column];
}

/// In one colour that the display has: lines of a pixel and letters would be lost in a mixture.
void fill(HDC dc, const RECT& r, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(GetNearestColor(dc, color));
    FillRect(dc, &r, brush);
    DeleteObject(brush);
}

/// Two lines, light above and left, dark below and right.
void drawRim(HDC dc, RECT& r, int light, int dark) {
    fill(dc, {r.left, r.top, r.right - 1, r.top + 1}, GetSysColor(light));
    fill(dc, {r.left, r.top, r.left + 1, r.bottom - 1}, GetSysColor(light));
    fill(dc, {r.left, r.bottom - 1, r.right, r.bottom}, GetSysColor(dark));
    fill(dc, {r.right - 1, r.top, r.right, r.bottom}, GetSysColor(dark));
    r = {r.left + 1, r.top + 1, r.right - 1, r.bottom - 1};
}

/// The sign on a button of the caption: a line, a window or a cross.
void drawSign(HDC dc, const RECT& sign, int hit, COLORREF ink) {
    if (hit == HTMINBUTTON) fill(dc, {sign.left, sign.bottom - 2, sign.right - 2, sign.bottom}, ink);
    if (hit == HTMAXBUTTON) {
        const HBRUSH brush = CreateSolidBrush(ink);
        FrameRect(dc, &sign, brush);
        DeleteObject(brush);
        fill(dc, {sign.left, sign.top, sign.right, sign.top + 2}, ink);
    }
    if (hit != HTCLOSE) return;
    const LONG side = std::min(widthOf(sign), heightOf(sign));
    for (LONG i = 0; i < side; ++i) {
        const LONG y = sign.top + i;
        fill(dc, {sign.left + i, y, sign.left + i + 2, y + 1}, ink);
        fill(dc, {sign.left + side - 1 - i, y, sign.left + side + 1 - i, y + 1}, ink);
    }
}

/// A disabled button's sign is embossed: a light one shines forth below and right of a grey one.
void drawCaptionButton(HDC dc, RECT r, int hit, bool enabled) {
    if (hasNoArea(r)) return;
    fill(dc, r, GetSysColor(COLOR_BTNFACE));
    drawRim(dc, r, COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW);
    const LONG inset = 2;
    const RECT sign{r.left + inset, r.top + inset, r.right - inset, r.bottom - inset};
    if (!enabled) drawSign(dc, offset(sign, 1, 1), hit, GetSysColor(COLOR_BTNHIGHLIGHT));
    drawSign(dc, sign, hit, GetSysColor(enabled ? COLOR_BTNTEXT : COLOR_BTNSHADOW));
}

void drawTitle(HDC dc, const Window& window, RECT r, COLORREF ink) {
    NONCLIENTMETRICSW metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const HFONT font = CreateFontIndirectW(&metrics.lfCaptionFont);
    const HGDIOBJ former = SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, ink);
    const std::u16string title = wideFromAnsi(window.text);
    DrawTextW(dc, title.c_str(), static_cast<int>(title.size()), &r,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(dc, former);
    DeleteObject(font);
}

void drawCaption(HDC dc, const Window& window, const RECT& frame) {
    const CaptionPlaces places = captionPlaces(window, frame);
    const bool active = window.shownActive;
    fill(dc, {places.bar.left, places.bar.top, places.bar.right, places.bar.bottom + 1},
         GetSysColor(COLOR_BTNFACE));
    fill(dc, places.bar, GetSysColor(active ? COLOR_ACTIVECAPTION : COLOR_INACTIVECAPTION));
    RECT title = places.bar;
    title.left += TextMargin;
    const RECT leftmost = !hasNoArea(places.minimize) ? places.minimize : places.close;
    if (!hasNoArea(leftmost)) title.right = leftmost.left - ButtonMargin;
    drawTitle(dc, window, title, GetSysColor(active ? COLOR_CAPTIONTEXT : COLOR_INACTIVECAPTIONTEXT));
    drawCaptionButton(dc, places.close, HTCLOSE, !(window.windowClass->style & CS_NOCLOSE));
    drawCaptionButton(dc, places.maximize, HTMAXBUTTON, window.is(WS_MAXIMIZEBOX));
    drawCaptionButton(dc, places.minimize, HTMINBUTTON, window.is(WS_MINIMIZEBOX));
}

/// The frame of a sizeable, dialog or plain window, from outside in.
void drawBorder(HDC dc, const Window& window, RECT r) {
    const int width = borderWidth(window.style, window.exStyle);
    const bool raised =
        (window.style & (WS_DLGFRAME | WS_THICKFRAME)) || (window.exStyle & WS_EX_DLGMODALFRAME);
    if (!raised) {
        if (window.exStyle & WS_EX_STATICEDGE) drawRim(dc, r, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT);
        if (window.style & WS_BORDER) drawRim(dc, r, COLOR_WINDOWFRAME, COLOR_WINDOWFRAME);
        return;
    }
    const RECT inner{r.left + width, r.top + width, r.right - width, r.bottom - width};
    fill(dc, {r.left, r.top, r.right, inner.top}, GetSysColor(COLOR_BTNFACE));
    fill(dc, {r.left, inner.bottom, r.right, r.bottom}, GetSysColor(COLOR_BTNFACE));
    fill(dc, {r.left, r.top, inner.left, r.bottom}, GetSysColor(COLOR_BTNFACE));
    fill(dc, {inner.right, r.top, r.right, r.bottom}, GetSysColor(COLOR_BTNFACE));
    drawRim(dc, r, COLOR_3DLIGHT, COLOR_3DDKSHADOW);
    drawRim(dc, r, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW);
}

} // namespace

RECT frameWidths(DWORD style, DWORD exStyle) {
    const int border = borderWidth(style, exStyle);
    const int edge = exStyle & WS_EX_CLIENTEDGE ? GetSystemMetrics(SM_CXEDGE) : 0;
    RECT widths{border + edge, border + edge, border + edge, border + edge};
    if ((style & WS_CAPTION) == WS_CAPTION) widths.top += captionHeight(exStyle);
    return widths;
}

int hitTestFrame(const Window& window, POINT screen) {
    const RECT frame = screenFrame(window);
    if (!contains(frame, screen)) return HTNOWHERE;
    if (contains(screenClient(window), screen)) return HTCLIENT;
    const int border = borderWidth(window.style, window.exStyle);
    if ((window.style & WS_THICKFRAME) && !window.is(WS_MAXIMIZE)) {
        const int edge = hitSizingEdge(frame, screen, border);
        if (edge != HTNOWHERE) return edge;
    }
    const CaptionPlaces places = captionPlaces(window, frame);
    if (contains(places.close, screen)) return HTCLOSE;
    if (contains(places.maximize, screen)) return HTMAXBUTTON;
    if (contains(places.minimize, screen)) return HTMINBUTTON;
    if (contains(places.bar, screen)) return HTCAPTION;
    return HTBORDER;
}

void paintFrame(Window& window) {
    if (!isShown(window) || screenFrame(window) == screenClient(window)) return;
    const HDC dc = openFrameContext(window);
    if (!dc) return;
    RECT whole{0, 0, widthOf(window.frame), heightOf(window.frame)};
    const POINT inner{window.client.left - window.frame.left, window.client.top - window.frame.top};
    if (!isTopLevel(window) || display().drawsFrames() || !hasCaption(window)) {
        drawBorder(dc, window, whole);
        if (hasCaption(window)) drawCaption(dc, window, whole);
    }
    if (window.exStyle & WS_EX_CLIENTEDGE) {
        RECT edge{inner.x - 2, inner.y - 2, inner.x + widthOf(window.client) + 2,
                  inner.y + heightOf(window.client) + 2};
        drawRim(dc, edge, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT);
        drawRim(dc, edge, COLOR_3DDKSHADOW, COLOR_3DLIGHT);
    }
    ReleaseDC(window.handle, dc);
}

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle) {
    if (!rect) return FALSE_;
    const RECT widths = frameWidths(style, exStyle);
    rect->left -= widths.left;
    rect->top -= widths.top + (menu ? GetSystemMetrics(SM_CYMENU) : 0);
    rect->right += widths.right;
    rect->bottom += widths.bottom;
    return TRUE_;
}

} // namespace platform
