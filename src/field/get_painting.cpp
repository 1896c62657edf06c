// How the field paints itself: everything goes to its canvas, and the canvas to the window.

#include "drawing/colours.h"
#include "drawing/rounding.h"
#include "field/get.h"
#include "host/Raised.h"
#include "platform/windows.h"

#include <algorithm>
#include <map>
#include <optional>

namespace tesela {

using automation::String;

namespace {

constexpr host::OLE_COLOR white = 0xFFFFFF;
constexpr host::OLE_COLOR black = 0;
constexpr host::OLE_COLOR noColor = -1;     ///< Of a background that isn't flat
constexpr std::int32_t scrollMargin = 8;    ///< Pixels that stay free behind the caret
constexpr std::int32_t widest = 0x7FFFFFFF; ///< No limit to a width
constexpr std::int32_t largeIcon = 32, smallIcon = 16;

constexpr std::int32_t searchSmall = 111, searchLarge = 137; ///< Icons of the library's resources
constexpr std::int32_t recordSmall = 112, recordLarge = 401;

host::OLE_COLOR mixed(host::OLE_COLOR a, host::OLE_COLOR b, std::uint8_t share) {
    return CalculateColorMix(GetVBSysColor(a), GetVBSysColor(b), share);
}

} // namespace

get::Shades get::makeShades() {
    const auto tableColor = [](tslCtlGlobalCfgConstants index) { return GetVBSysColor(slot(index)); };
    const host::OLE_COLOR face = tableColor(tslCtlGlobalCfg_Btn_Face);
    if (!globales().lHighColor) {
        const auto system = [](int number) { return GetVBSysColor(host::systemColor(number)); };
        return {face,
                system(SystemColor_Light3D),
                system(SystemColor_BtnHighlight),
                system(SystemColor_BtnShadow),
                system(SystemColor_DkShadow3D),
                face};
    }
    const host::OLE_COLOR fade = tableColor(tslCtlGlobalCfg_Btn_MaxGradientColor);
    // The fields of a form mostly have the same shades, which are mixed once.
    struct Mixed {
        host::OLE_COLOR fade;
        Shades shades;
    };
    static std::optional<Mixed> last;
    if (!last || face != last->shades.face || fade != last->fade)
        last = {fade,
                {face, mixed(face, white, 240), mixed(face, white, 64), mixed(face, black, 160),
                 mixed(face, black, 80), mixed(face, fade, 64)}};
    return last->shades;
}

namespace {

/// All that the picture of a button's icon depends on.
struct IconLook {
    std::int32_t number;
    std::int32_t top, bottom, edge; ///< Where it lies on the button's shading
    host::OLE_COLOR face, gradientBase;
    bool highColor;
    auto operator<=>(const IconLook&) const = default;
};

} // namespace

/// An icon of a button, and greyed. Fields that look the same share one, as long as one of them lives.
struct get::ButtonIcon {
    explicit ButtonIcon(const IconLook& icon) : look(icon) {}
    static std::shared_ptr<ButtonIcon> of(const IconLook& look);

    const IconLook look;
    automation::Ref<host::Picture> picture;
    automation::Ref<cCanvas> grey; ///< Null until a disabled button needs it
};

std::shared_ptr<get::ButtonIcon> get::ButtonIcon::of(const IconLook& look) {
    static std::map<IconLook, std::weak_ptr<ButtonIcon>> all;
    if (const auto found = all.find(look); found != all.end())
        if (auto icon = found->second.lock()) return icon;
    std::erase_if(all, [](const auto& entry) { return entry.second.expired(); });
    auto icon = std::make_shared<ButtonIcon>(look);
    all[look] = icon;
    return icon;
}

/// One paint of one field.
class get::Painter {
public:
    explicit Painter(get& field)
        : f(field), canvas(field.oCanvas), c(*canvas), right(c.Width() - 1), bottom(c.Height() - 1) {}

    void paint();
    /// Where the characters of the line lie, for the mouse.
    std::int32_t characterAt(std::int32_t x, std::int32_t y);

private:
    void begin();
    void background();
    void gradient(host::OLE_COLOR edge, host::OLE_COLOR middle, host::OLE_COLOR flat);
    void bands(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, host::OLE_COLOR edge,
               host::OLE_COLOR middle);
    void text();
    void singleLine();
    void wholeText(std::int32_t x, TextAlignConstants side);
    /// A piece of the text: where it begins, in characters and in pixels.
    struct Part {
        String text;
        std::int32_t start, x;
    };
    Part visiblePart(std::int32_t x);
    void breakLines(std::size_t count, std::int32_t position);
    void multiLine();
    void placeCaretIn(std::size_t row);
    void line(const String& part, std::int32_t start, std::int32_t x, std::int32_t y);
    void selected(const String& part, std::int32_t start, std::int32_t x, std::int32_t y);
    void border();
    void frame(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, bool sunk);
    void buttons();
    std::int32_t button(Companion companion, std::int32_t x);
    void arrow(std::int32_t x, std::int32_t shift, bool enabled);
    void icon(std::shared_ptr<ButtonIcon>& which, std::int32_t number, std::int32_t x, std::int32_t shift,
              bool enabled);
    void makeGrey(ButtonIcon& which, std::int32_t size, std::int32_t x, std::int32_t y);
    void letApplicationPaint(const automation::Event<automation::Ref<cCanvas>&>& event);

    /// A text of which only what shows is measured and painted.
    bool isLong() const { return !f.lMultiLine && shown.length() > TextReach::blockLength; }
    TextReach& reach();
    TextReach::Measure measure() const {
        return [this](std::u16string_view piece, std::vector<std::int32_t>& reach) {
            c.GetTextFitInExtent(piece, widest, reach);
        };
    }
    /// Where the characters of the single line end.
    std::int32_t widthBefore(std::int32_t position) {
        const auto count = static_cast<std::size_t>(position);
        return isLong() ? reach().reach(count, measure()) : width(shown.view().substr(0, count));
    }
    std::int32_t nearestInLong(std::int32_t x);
    std::int32_t width(std::u16string_view part) const {
        std::int32_t w = 0, h = 0;
        c.GetTextExtent(part, w, h);
        return part.empty() ? 0 : w;
    }
    tslAlignmentConstants alignment() const {
        return f.lHasFocus || f.lAlwaysLeft ? tslAlignmentLeftJustify : f.nAlignment;
    }
    bool canBeEdited() const { return f.Enabled() && f.lEnabledGet; }
    host::OLE_COLOR textColor() const {
        return canBeEdited() ? f.nForeColor : f.slot(tslCtlGlobalCfg_Get_DisabledForeColor);
    }
    std::int32_t lineWidth() const { return f.nTextRight - 2 * f.nBordeX - 9; }
    std::int32_t firstX() const { return f.nBordeX + 1; }
    std::int32_t firstY() const { return f.nBordeY + 1; }
    std::int32_t lineY(std::size_t row) const {
        return saturatingSum(firstY(), static_cast<std::int64_t>(row) * f.nLineHeight);
    }
    /// How many characters of a part lie left of a place, the nearer of two positions.
    std::int32_t nearest(std::u16string_view part, std::int32_t x) const;

    get& f;
    const automation::Ref<cCanvas> canvas; ///< A handler may end the field
    cCanvas& c;
    const std::int32_t right, bottom;
    String shown;
    host::OLE_COLOR paper = noColor;
};

// --- The whole -------------------------------------------------------------------------------------

void get::Render() {
    lPendienteRender = true;
    if (nNoRender == 1 || lInRender || !oFont || !hWnd()) return;
    // Nobody sees a field on a hidden form: its first paint makes the picture, unless the application paints.
    lRenderAlMostrar = nUserDrawnMode == tslCtlUserDrawnMode_Default && !platform::IsWindowVisible(hWnd());
    if (lRenderAlMostrar || !prepareCanvas()) return;
    const automation::Ref<automation::Object> alive(this);
    try {
        const host::Raised painting(lInRender);
        Painter(*this).paint();
    } catch (const automation::Error&) {
        // A drawing call that fails never stops the field; what was painted so far is shown.
    }
    if (!oCanvas || !hWnd()) return;
    placeCaret();
    oCanvas->EndPaint();
}

/// Makes the canvas for the first time, or anew for another size; false for a field of no size.
bool get::prepareCanvas() {
    const platform::SIZE size = clientSize();
    if (size.cx <= 0 || size.cy <= 0) return false;
    if (lCanvasValido && oCanvas->Width() == size.cx && oCanvas->Height() == size.cy) return true;
    oCanvas = automation::make<cCanvas>();
    lCanvasValido = oCanvas->Configure({}, 0, 0, size.cx, size.cy, DCProvider_Auto, false);
    return lCanvasValido;
}

/// Whether there is a picture of the field, which is made now if none was yet. It may have the size of before
/// while painting is held.
bool get::hasPicture() {
    if (!lCanvasValido) Render();
    return lCanvasValido;
}

/// Copies the canvas, whose context is open, to the window.
void get::showCanvas() {
    if (paintContext()) {
        oCanvas->Paint(paintContext());
        return;
    }
    const platform::HDC window = platform::GetDC(hWnd());
    oCanvas->Paint(window);
    platform::ReleaseDC(hWnd(), window);
}

bool get::canvasCoversWindow() const {
    const platform::SIZE size = clientSize();
    return lCanvasValido && oCanvas->Width() >= size.cx && oCanvas->Height() >= size.cy;
}

/// While painting is held there may be no picture, or one of another size: then the background shows.
void get::onPaint() {
    if (lInRender) return; // a handler lets messages through; the paint that is under way ends with a picture
    if (!lCanvasValido || lRenderAlMostrar) {
        Render();
        if (lRenderAlMostrar || !lCanvasValido) paintBackground(hDC());
        return;
    }
    if (!canvasCoversWindow()) paintBackground(hDC());
    oCanvas->BeginPaint();
    oCanvas->Paint(hDC());
    oCanvas->EndPaint();
}

void get::Painter::begin() {
    c.BeginPaint();
    c.SelectVBStdFont(f.oFont, 0, 0, FontQuality_Default, f.nFontWidth);
    if (f.nLineHeight == 0) f.nLineHeight = c.GetTextMetricsA().tmHeight;
    shown = f.TextoAMostrar();
    f.nBordeX = f.nBordeY = f.nBorderStyle == tslBorderStyleFixedSingle ? 2 : 0;
    f.nTextRight = right - f.nButtonWidth * f.buttonCount();
    if (f.buttonCount() > 0) f.nTextRight -= 1 + f.nBordeX;
    f.nTextBottom = bottom;
}

void get::Painter::paint() {
    begin();
    background();
    if (f.nUserDrawnMode & tslCtlUserDrawnMode_Background) {
        letApplicationPaint(f.PaintBackground);
        if (!f.oFont) return;
        c.SelectVBStdFont(f.oFont, 0, 0, FontQuality_Default, f.nFontWidth);
    }
    if (f.xGauge.lAuto) f.paintGaugeBar();
    text();
    border();
    buttons();
    if (f.nUserDrawnMode & tslCtlUserDrawnMode_Foreground) letApplicationPaint(f.UserDrawn);
}

void get::Painter::letApplicationPaint(const automation::Event<automation::Ref<cCanvas>&>& event) {
    automation::Ref<cCanvas> given = canvas;
    try {
        f.raise(event, given);
    } catch (const automation::Error&) {
        // An error of the handler ends its own painting only.
    }
}

// --- Background and border -------------------------------------------------------------------------

void get::Painter::background() {
    const bool fades = f.lShownEnabled && f.lLocked && f.tabStop();
    const auto plain =
        f.lShownEnabled ? tslCtlGlobalCfg_Get_BackColor : tslCtlGlobalCfg_Get_DisabledBackColor;
    if (!f.lHasFocus) {
        if (fades && f.nBackColor == -1) {
            const host::OLE_COLOR disabled = f.slot(tslCtlGlobalCfg_Get_DisabledBackColor);
            return gradient(mixed(disabled, black, 224), white, QBColor(15));
        }
        paper = f.nBackColor == -1 ? f.slot(plain) : f.nBackColor;
    } else if (!f.lShownEnabled || !f.lEnabledGet) {
        paper = f.slot(plain);
    } else {
        const host::OLE_COLOR focused = f.slot(tslCtlGlobalCfg_Get_FocusBackColor);
        if (fades) return gradient(mixed(focused, white, 128), mixed(focused, black, 208), QBColor(7));
        paper = focused;
    }
    c.FillBox(0, 0, right, bottom, paper);
}

void get::Painter::gradient(host::OLE_COLOR edge, host::OLE_COLOR middle, host::OLE_COLOR flat) {
    paper = noColor;
    if (globales().lHighColor)
        bands(0, 0, right, bottom, edge, middle);
    else
        c.FillBox(0, 0, right, bottom, flat);
}

/// A fade over the first quarter of the height and back over the rest.
void get::Painter::bands(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                         host::OLE_COLOR edge, host::OLE_COLOR middle) {
    const std::int32_t turn = std::min(y1 + (y2 - y1 + 1) / 4 + 2, y2 + 1);
    c.GradientFillRect(x1, y1, x2 + 1, turn, false, edge, middle);
    c.GradientFillRect(x1, turn, x2 + 1, y2 + 1, false, middle, edge);
}

void get::Painter::border() {
    if (f.nBorderStyle == tslBorderStyleFixedSingle) frame(0, 0, right, bottom, true);
}

/// The border of the field or of a button, in its appearance.
void get::Painter::frame(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, bool sunk) {
    const Shades& s = f.xTonos;
    if (f.nAppearance == tslAppearanceFlat) {
        c.DrawBox(x1, y1, x2, y2, s.dark, s.dark);
    } else if (sunk) {
        c.DrawBox(x1, y1, x2, y2, s.dark, s.light);
        c.DrawBox(x1 + 1, y1 + 1, x2 - 1, y2 - 1, s.darkest, s.lightest);
    } else {
        c.DrawBox(x1, y1, x2, y2, s.light, s.darkest);
        c.DrawBox(x1 + 1, y1 + 1, x2 - 1, y2 - 1, s.lightest, s.dark);
    }
}

// --- Text ------------------------------------------------------------------------------------------

void get::Painter::text() {
    f.nTextX = f.nCaretX = firstX();
    f.nCaretY = firstY();
    c.SetBkMode(BackMode_Transparent);
    c.SetTextColor(textColor());
    const bool clips = f.buttonCount() > 0; // behind the buttons a column of the field shows
    if (clips) c.SetClippingRect({0, 0, f.nTextRight + 1, bottom + 1});
    if (f.lMultiLine)
        multiLine();
    else
        singleLine();
    if (clips) c.ClearClipping();
    c.TextAlign(TextAlign_Left);
}

void get::Painter::singleLine() {
    switch (alignment()) {
    case tslAlignmentRightJustify: {
        const std::int32_t edge = f.nTextRight - 1 - f.nBordeX;
        if (f.nDigFantasma <= 0) return wholeText(edge, TextAlign_Right);
        const String zeros = (f.nDigDecimales == 0 ? u"." : u"") +
                             String::repeat(u'0', static_cast<std::size_t>(f.nDigFantasma));
        wholeText(edge - width(zeros), TextAlign_Right);
        if (paper != noColor && !shown.empty()) {
            c.SetTextColor(mixed(textColor(), paper, 96));
            c.TextAlign(TextAlign_Right);
            c.TextOut(edge, firstY(), zeros);
        }
        return;
    }
    case tslAlignmentCenter:
        wholeText(roundToLong(f.nTextRight / 2.0), TextAlign_Center);
        return;
    default:
        break;
    }
    if (f.lHasFocus) {
        f.nCaretX = saturatingSum(f.nCaretX, widthBefore(f.nCaret));
        const std::int32_t beyond = f.nCaretX - (f.nTextRight - f.nBordeX - scrollMargin);
        if (beyond > 0 && f.cMascaraFocus.empty() && !f.isDate()) {
            f.nTextX -= beyond;
            f.nCaretX -= beyond;
        }
    }
    if (!isLong()) return line(shown, 0, f.nTextX, firstY());
    const Part part = visiblePart(f.nTextX);
    line(part.text, part.start, part.x, firstY());
}

/// What the letters of the single line are measured by, which knows the text.
TextReach& get::Painter::reach() {
    if (!f.alcance) f.alcance = std::make_unique<TextReach>();
    f.alcance->take(shown);
    return *f.alcance;
}

/// The characters of a long text that may show when it begins at x.
get::Painter::Part get::Painter::visiblePart(std::int32_t x) {
    TextReach& letters = reach();
    const auto before = [&](std::int32_t place) {
        return letters.at(saturatingSum(place, -std::int64_t{x}), measure());
    };
    // One more on both sides: letters may lean over their place.
    const std::size_t from = std::max<std::size_t>(before(0), 1) - 1, to = before(right + 1) + 2;
    return {shown.substring(from, to - from), static_cast<std::int32_t>(from),
            saturatingSum(x, letters.reach(from, measure()))};
}

/// Paints the single line with its end or its middle at x.
void get::Painter::wholeText(std::int32_t x, TextAlignConstants side) {
    if (!isLong()) {
        c.TextAlign(side);
        c.TextOut(x, firstY(), shown);
        return;
    }
    const std::int32_t all = widthBefore(static_cast<std::int32_t>(shown.length()));
    const Part part = visiblePart(saturatingSum(x, -std::int64_t{side == TextAlign_Center ? all / 2 : all}));
    c.TextOut(part.x, firstY(), part.text);
}

void get::Painter::multiLine() {
    const auto rows =
        static_cast<std::size_t>(std::max(bottom - firstY(), 0) / std::max(f.nLineHeight, 1)) + 1;
    breakLines(rows, f.nCaret);
    placeCaretIn(f.lines.at(f.nCaret));
    const std::int32_t edge = f.nTextRight - 1 - f.nBordeX;
    for (std::size_t i = 0; i < std::min(rows, f.lines.size()); ++i) {
        const TextLines::Line& place = f.lines[i];
        const String part(f.lines.shown(i));
        const std::int32_t taken = alignment() == tslAlignmentLeftJustify ? 0 : width(part);
        std::int32_t x = firstX();
        if (alignment() == tslAlignmentRightJustify) x = edge - taken;
        if (alignment() == tslAlignmentCenter) x = (f.nTextRight - taken) / 2;
        line(part, place.start, x, lineY(i));
    }
}

/// Finds so many lines of the text, and the one that holds a position.
void get::Painter::breakLines(std::size_t count, std::int32_t position) {
    f.lines.take(shown, std::max(lineWidth(), 0));
    f.lines.find(count, position, measure());
}

void get::Painter::placeCaretIn(std::size_t row) {
    const TextLines::Line& place = f.lines[row];
    const std::u16string_view before = shown.view().substr(static_cast<std::size_t>(place.start),
                                                           static_cast<std::size_t>(f.nCaret - place.start));
    f.nCaretX = firstX() + width(before);
    f.nCaretY = lineY(row);
    f.nLineaAnterior = row > 0 ? f.lines[row - 1].start + 1 : 0;
    f.nLineaSiguiente = place.start + place.length + 1;
}

void get::Painter::line(const String& part, std::int32_t start, std::int32_t x, std::int32_t y) {
    c.TextOut(x, y, part);
    if (f.lHasFocus && f.hasSelection()) selected(part, start, x, y);
}

/// Paints the selected piece of a line again, in the colours of selections.
void get::Painter::selected(const String& part, std::int32_t start, std::int32_t x, std::int32_t y) {
    const auto [low, high] = f.selection();
    const auto count = static_cast<std::int32_t>(part.length());
    const auto from = static_cast<std::size_t>(std::clamp(low - start, 0, count));
    const auto to = static_cast<std::size_t>(std::clamp(high - start, 0, count));
    if (from >= to) return;
    c.SetBkMode(BackMode_Opaque);
    c.SetBkColor(host::systemColor(SystemColor_Highlight));
    c.SetTextColor(host::systemColor(SystemColor_HighlightText));
    c.TextOut(x + width(part.left(from)), y, part.substring(from, to - from));
    c.SetBkMode(BackMode_Transparent);
    c.SetTextColor(textColor());
}

// --- Companion buttons -----------------------------------------------------------------------------

void get::Painter::buttons() {
    std::int32_t x = f.nTextRight + 1;
    f.nBtnComboX = f.nBtnBuscarX = f.nBtnFichaX = 0;
    if (f.lBotonCombo) x += button(Companion::Combo, f.nBtnComboX = x);
    if (f.lBotonBuscar) x += button(Companion::Search, f.nBtnBuscarX = x);
    if (f.lBotonFicha) button(Companion::Record, f.nBtnFichaX = x);
}

/// Paints one button and gives its width.
std::int32_t get::Painter::button(Companion companion, std::int32_t x) {
    constexpr host::OLE_COLOR pressedTint = 0xFFA0C0;
    const bool pressed = f.nBotonPulsado == companion && f.lBotonEncima;
    const std::int32_t x2 = x + f.nButtonWidth - 1;
    const std::int32_t y1 = f.nBordeY, y2 = bottom - f.nBordeY;
    const host::OLE_COLOR face = pressed ? mixed(f.xTonos.face, pressedTint, 128) : f.xTonos.face;
    if (globales().lHighColor)
        bands(x, y1, x2, y2, face, f.xTonos.gradientBase);
    else
        c.FillBox(x, y1, x2, y2, face);
    const bool enabled = f.Enabled() && f.isEnabled(companion);
    const bool large = f.nButtonWidth >= largeIcon && bottom + 1 >= largeIcon;
    c.SetClippingRect({x, y1, x2 + 1, y2 + 1}); // icons are wider than the narrowest buttons
    if (companion == Companion::Combo)
        arrow(x, pressed, enabled);
    else if (companion == Companion::Search)
        icon(f.searchIcon, large ? searchLarge : searchSmall, x, pressed, enabled);
    else
        icon(f.recordIcon, large ? recordLarge : recordSmall, x, pressed, enabled);
    c.ClearClipping();
    frame(x, y1, x2, y2, pressed);
    return f.nButtonWidth;
}

void get::Painter::arrow(std::int32_t x, std::int32_t shift, bool enabled) {
    constexpr std::int32_t leastArrow = 4, down = 270;
    const std::int32_t size = std::max(std::min(f.nButtonWidth, bottom + 1) / 4, leastArrow);
    const std::int32_t tipX = x + (f.nButtonWidth - 1) / 2 + shift;
    const std::int32_t tipY = bottom / 2 + shift;
    if (!enabled) c.DrawTriangle(tipX + 1, tipY + 1, size, f.xTonos.light, down);
    c.DrawTriangle(tipX, tipY, size, enabled ? f.slot(tslCtlGlobalCfg_Btn_ForeColor) : f.xTonos.dark, down);
}

void get::Painter::icon(std::shared_ptr<ButtonIcon>& which, std::int32_t number, std::int32_t x,
                        std::int32_t shift, bool enabled) {
    const std::int32_t size = number == searchLarge || number == recordLarge ? largeIcon : smallIcon;
    const std::int32_t left = x + (f.nButtonWidth - size) / 2 + shift;
    const std::int32_t top = (bottom + 1 - size) / 2 + shift;
    const IconLook look{
        number, top, bottom, f.nBordeY, f.xTonos.face, f.xTonos.gradientBase, globales().lHighColor};
    if (!which || which->look != look) which = ButtonIcon::of(look);
    if (!which->picture) which->picture = f.LoadStockIcon(number);
    if (!which->picture) return;
    if (enabled) {
        c.PaintPicture(which->picture, left, top, size, size);
        return;
    }
    if (!which->grey) makeGrey(*which, size, left, top);
    which->grey->BeginPaint();
    c.BitBlt(which->grey->GetPaintDC(), left, top, size, size);
    which->grey->EndPaint();
}

/// The icon, faded into the face of the buttons, on a copy of what lies under it. With few colours every
/// other pixel of it is left out instead.
void get::Painter::makeGrey(ButtonIcon& which, std::int32_t size, std::int32_t x, std::int32_t y) {
    constexpr std::uint8_t share = 64;
    const host::OLE_COLOR face = f.xTonos.face;
    // With few colours the device may show the face as a pattern: the icon is where two grounds differ by it.
    const auto ground = automation::make<cCanvas>(), plain = automation::make<cCanvas>();
    which.grey = automation::make<cCanvas>();
    for (auto* each : {ground.get(), plain.get(), which.grey.get()})
        each->Configure({}, 0, 0, size, size, DCProvider_Auto, false);
    for (auto* each : {ground.get(), plain.get()})
        each->FillBox(0, 0, size - 1, size - 1, face);
    plain->PaintPicture(which.picture, 0, 0, size, size);
    which.grey->BitBlt(c.GetPaintDC(), 0, 0, size, size, x, y);
    for (std::int32_t row = 0; row < size; ++row)
        for (std::int32_t column = 0; column < size; ++column) {
            const host::OLE_COLOR pixel = plain->GetPixel(column, row);
            if (pixel == ground->GetPixel(column, row)) continue;
            if (globales().lHighColor)
                which.grey->SetPixel(column, row, mixed(pixel, face, share));
            else if ((row + column) % 2 == 0)
                which.grey->SetPixel(column, row, pixel);
        }
    which.grey->EndPaint();
}

void get::dropButtonImages() {
    searchIcon.reset();
    recordIcon.reset();
}

// --- The mouse -------------------------------------------------------------------------------------

std::int32_t get::Painter::nearest(std::u16string_view part, std::int32_t x) const {
    if (x <= 0 || part.empty()) return 0;
    // Even of the narrowest letters no more lie left of the place. Widths are told of letters that fit only.
    const auto most = static_cast<std::size_t>(x) + 1;
    const std::u16string_view near = part.substr(0, most);
    std::vector<std::int32_t> widths;
    c.GetTextFitInExtent(near, widest, widths);
    const auto beyond = std::upper_bound(widths.begin(), widths.end(), x);
    auto position = static_cast<std::size_t>(beyond - widths.begin());
    const std::int32_t left = position > 0 ? widths[position - 1] : 0;
    if (beyond != widths.end() && *beyond - x < x - left) ++position;
    return static_cast<std::int32_t>(std::min(position, part.size()));
}

std::int32_t get::Painter::nearestInLong(std::int32_t x) {
    TextReach& letters = reach();
    const std::size_t position = letters.at(x, measure());
    const std::int32_t left = letters.reach(position, measure());
    const std::int32_t next = letters.reach(position + 1, measure());
    const bool isNextNearer = next > x && next - x < x - left;
    return static_cast<std::int32_t>(std::min(position + isNextNearer, shown.length()));
}

std::int32_t get::Painter::characterAt(std::int32_t x, std::int32_t y) {
    begin();
    std::int32_t position = f.length();
    if (y < f.nBordeY) {
        position = 0;
    } else if (f.lMultiLine) {
        const auto row = static_cast<std::size_t>((y - f.nBordeY) / std::max(f.nLineHeight, 1));
        breakLines(row + 2, 0);
        if (row < f.lines.size()) {
            const TextLines::Line& place = f.lines[row];
            const std::int32_t inLine = nearest(shown.view().substr(static_cast<std::size_t>(place.start),
                                                                    static_cast<std::size_t>(place.length)),
                                                x - firstX());
            // The end of a line that goes on is the start of the next one.
            const bool goesOn = row + 1 < f.lines.size();
            position = place.start + std::min(inLine, place.length - goesOn);
        }
    } else {
        position = isLong() ? nearestInLong(x - f.nTextX) : nearest(shown, x - f.nTextX);
    }
    c.EndPaint();
    return std::clamp(position, 0, f.length());
}

std::int32_t get::PosicionDesdePixel(std::int32_t x, std::int32_t y) {
    if (!oFont || lInRender || !hasPicture()) return nCaret;
    std::int32_t position = Painter(*this).characterAt(x, y);
    if (position > 0 && (isLiteralAt(position) || isDateSeparatorAt(position))) --position;
    return position;
}

} // namespace tesela
