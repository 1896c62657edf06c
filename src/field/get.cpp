// The field's life, its look and its simple properties.

#include "field/get.h"

#include "automation/Numbers.h"
#include "automation/Strings.h"
#include "drawing/colours.h"
#include "drawing/rounding.h"
#include "host/InputBox.h"
#include "host/Raised.h"
#include "host/Session.h"
#include "platform/files.h"
#include "platform/windows.h"

#include <algorithm>
#include <cmath>

namespace tesela {

using automation::String;

namespace {

constexpr std::int32_t leastButtonWidth = 15; // pixels
constexpr double defaultFontSize = 8.25;      // points
constexpr std::int32_t widest = 32767;        // pixels

struct HeaderFont {
    tslSchemeConstants scheme;
    double size;
};
constexpr HeaderFont headerFonts[] = {{tslSchemeHeader_A, 12}, {tslSchemeHeader_B, 10}};
constexpr const char16_t* headerFontName = u"Arial";

/// Beside this file the fields that are drawn on a form ask what they shall be.
constexpr const char16_t* creationFile = u"C:\\Tesela-Control-Creation-ADD-IN.LOG";

} // namespace

get::get()
    : oFont(host::sharedFont(*host::plainFont())), xTonos(makeShades()), nButtonWidth(leastButtonWidth) {
    ScaleMode(host::ScaleMode::Pixels);
}

void get::onTerminate() {
    nNoRender = 1;
    dropButtonImages();
    oCanvas.reset();
    lCanvasValido = false;
    for (auto* companion : {&oControlAsociado, &oOSK, &oStBar})
        companion->reset();
    fontSubscription.leave();
    oFont.reset();
}

void get::UserControl_InitProperties() {
    beginReading();
    try {
        Scheme(tslSchemeUseDefault);
        TipoDato(tslTipoDatoCaracter);
        Text(Extender().Name());
        ToolTip({});
        BackColor(-1);
        ForeColor(-1);
        Enabled(true);
        Alias({});
        Campo({});
        if (!lUserMode) createByDialog();
    } catch (const automation::Error&) {
        // An answer that can't be used leaves a plain field.
    }
    finishReading();
}

/// While a form is designed: asks for the type of a new field, its length and its first text, "1,8,"0"".
void get::createByDialog() {
    if (platform::GetFileAttributesW(creationFile) == platform::INVALID_FILE_ATTRIBUTES) return;
    const String answer =
        host::InputBox(u"Tipo, longitud y texto inicial", u"¿Qué tipo de GET debe crearse?", u"0");
    if (answer.empty()) return;
    const std::size_t comma = answer.find(u",");
    const std::size_t quote = answer.find(u"\"");
    const std::int32_t wanted =
        comma == String::npos ? 0 : roundToLong(automation::Val(answer.substring(comma + 1)));
    const String text = quote == String::npos ? String() : answer.substring(quote + 1).replaced(u"\"", u"");
    MaxLength(wanted);
    switch (answer[0]) {
    case u'1':
        TipoDato(tslTipoDatoNumero);
        Text(text);
        break;
    case u'2':
        TipoDato(tslTipoDatoFecha);
        AutoSize(tslAutoSize_XY);
        Text(blankTemplate());
        break;
    case u'h':
    case u'H':
        Mascara(u"##:##");
        AutoSize(tslAutoSize_XY);
        Text(u"  :  ");
        break;
    default:
        Text(text);
    }
}

// --- State -----------------------------------------------------------------------------------------

void get::Enabled(bool value) {
    lInternalPreEnabled = value;
    UserControl::Enabled(value);
    Render();
    changed(u"Enabled");
}

void get::Live(bool value) {
    setLive(value);
    Render();
}

/// Where the container keeps no such property, nothing happens.
void get::setTabStop(bool value) {
    try {
        Extender().TabStop(value);
    } catch (const automation::Error&) {
    }
}

bool get::tabStop() const {
    try {
        return Extender().TabStop();
    } catch (const automation::Error&) {
        return true;
    }
}

void get::ShownEnabled(bool value) {
    lShownEnabled = value;
    {
        const HeldPaint held(*this);
        BackColor(-1);
    }
    Locked(!value);
    setTabStop(lEnabledGet && value);
    changed(u"ShownEnabled");
}

void get::EnabledGet(bool value) {
    lInternalPreEnabledGet = value;
    if (value == lEnabledGet) return;
    lEnabledGet = value;
    setTabStop(value && lShownEnabled);
    Render();
    changed(u"EnabledGet");
}

/// Enables a companion button; `wanted` notes the value for the application, changed or not.
void get::enableButton(bool& enabled, bool& wanted, bool value, bool isShown, const char16_t* property) {
    wanted = value;
    if (value == enabled) return;
    enabled = value;
    if (isShown) Render();
    changed(property);
}

void get::EnabledCombo(bool value) {
    enableButton(lEnabledCombo, lInternalPreEnabledBtnCombo, value, lBotonCombo, u"EnabledCombo");
}
void get::EnabledBuscar(bool value) {
    enableButton(lEnabledBuscar, lInternalPreEnabledBtnBuscar, value, lBotonBuscar, u"EnabledBuscar");
}
void get::EnabledFicha(bool value) {
    enableButton(lEnabledFicha, lInternalPreEnabledFicha, value, lBotonFicha, u"EnabledFicha");
}

void get::BotonCombo(bool value) {
    storeAndRender(lBotonCombo, value, u"BotonCombo");
}
void get::BotonBuscar(bool value) {
    storeAndRender(lBotonBuscar, value, u"BotonBuscar");
}
void get::BotonFicha(bool value) {
    storeAndRender(lBotonFicha, value, u"BotonFicha");
}

void get::ButtonWidth(std::int32_t value) {
    if (value < leastButtonWidth || value == nButtonWidth) return;
    dropButtonImages();
    nButtonWidth = value;
    onResize();
    changed(u"ButtonWidth");
}

// --- Look ------------------------------------------------------------------------------------------

String get::ToolTip() const {
    try {
        return Extender().ToolTipText();
    } catch (const automation::Error&) {
        return {}; // a container without tool tips
    }
}

void get::ToolTip(const String& value) {
    try {
        Extender().ToolTipText(value);
    } catch (const automation::Error&) {
    }
    changed(u"ToolTip");
}

host::OLE_COLOR get::slot(tslCtlGlobalCfgConstants index) {
    try {
        return automation::fromVariant<std::int32_t>(tesela::GlobalCtlCfg(index));
    } catch (const automation::Error&) {
        return 0; // an application may have put anything into the table
    }
}

void get::BackColor(host::OLE_COLOR value) {
    if (value == host::colorButtonFace) value = slot(tslCtlGlobalCfg_Get_DisabledBackColor);
    storeAndRender(nBackColor, value, u"BackColor");
}

void get::ForeColor(host::OLE_COLOR value) {
    if (value == -1) value = slot(tslCtlGlobalCfg_Get_ForeColor);
    storeAndRender(nForeColor, value, u"ForeColor");
}

void get::BorderStyle(tslBorderStyleConstants value) {
    storeAndRender(nBorderStyle, value, u"BorderStyle");
}

void get::Appearance(tslAppearanceConstants value) {
    if (value != nAppearance) storeAndRender(nAppearance, value, u"Appearance");
}

void get::Alignment(tslAlignmentConstants value) {
    if (value != nAlignment) storeAndRender(nAlignment, value, u"Alignment");
}

void get::AlwaysLeft(bool value) {
    lAlwaysLeft = value;
    if (nAlignment != tslAlignmentLeftJustify) Render();
}

void get::AutoSize(tslAutoSizeConstants value) {
    storeAndRender(nAutoSize, value, u"AutoSize");
}

void get::UserDrawnMode(tslCtlUserDrawnModeConstants value) {
    if (value != nUserDrawnMode) storeAndRender(nUserDrawnMode, value, u"UserDrawnMode");
}

void get::MultiLine(bool value) {
    storeAndRender(lMultiLine, value, u"MultiLine");
}

void get::MousePointer(std::int32_t value) {
    UserControl::MousePointer(static_cast<host::MousePointer>(value));
    changed(u"MousePointer");
}

automation::Ref<host::Picture> get::LoadStockIcon(std::int32_t nID) const {
    constexpr std::int32_t icon = 1;
    std::int32_t width = 0, height = 0;
    return LoadResIcon(nID, icon, width, height);
}

void get::Scheme(tslSchemeConstants value) {
    if (value != tslSchemeUseAmbient && value != tslSchemeUseDefault && value != tslSchemeHeader_A &&
        value != tslSchemeHeader_B) {
        store(nScheme, value, u"Scheme");
        return;
    }
    requireFont(); // error 91 before anything has changed
    if (value != tslSchemeUseDefault) lUserFont = true;
    if (value == tslSchemeUseAmbient) {
        BackColor(Ambient().BackColor());
        ForeColor(Ambient().ForeColor());
        Font(Ambient().Font());
    } else {
        BackColor(-1);
        ForeColor(-1);
        String name = globales().cFontDefault;
        double size = defaultFontSize;
        for (const HeaderFont& header : headerFonts)
            if (header.scheme == value) {
                name = headerFontName;
                size = header.size;
            }
        host::StdFont wanted;
        wanted.assign(*oFont);
        assignFont(wanted, name, size, value != tslSchemeUseDefault);
        takeFont(wanted);
    }
    TipoDato(tslTipoDatoCaracter);
    BorderStyle(tslBorderStyleFixedSingle);
    Alignment(tslAlignmentLeftJustify);
    Appearance(tslAppearance3D);
    AutoSize(tslAutoSize_Y);
    store(nScheme, value, u"Scheme");
}

// --- Font and size ---------------------------------------------------------------------------------

const automation::Ref<host::StdFont>& get::Font() {
    if (!oFont || lFuentePropia) return oFont;
    lFuentePropia = true;
    oFont = oFont->clone();
    fontSubscription = oFont->FontChanged.subscribe([this](const String&) { fontChanged(); });
    return oFont;
}

void get::Font(const automation::Ref<host::StdFont>& value) {
    if (!value) automation::throwError(automation::errors::ObjectVariableNotSet);
    requireFont();
    takeFont(*value);
    changed(u"Font");
}

/// Gives the font other attributes.
void get::takeFont(const host::StdFont& wanted) {
    if (wanted.equals(*oFont)) return;
    if (lFuentePropia) {
        oFont->assign(wanted);
    } else {
        oFont = host::sharedFont(wanted);
        fontChanged();
    }
}

void get::requireFont() const {
    if (!oFont) automation::throwError(automation::errors::ObjectVariableNotSet);
}

void get::FontWidth(float value) {
    nFontWidth = value < 0 ? 0 : value;
    changed(u"FontWidth");
    fontChanged();
}

void get::fontChanged() {
    nLineHeight = 0;
    lines.forget();
    alcance.reset();
    if (lReading) return; // once, when all properties are read
    UserControl::Font(*oFont);
    onResize();
}

/// While all properties are written neither paints nor new sizes count; the end makes up for them.
void get::beginReading() {
    lUserMode = Ambient().UserMode();
    nNoRender = 1;
    lReading = true;
}

void get::finishReading() {
    lReading = false;
    fontChanged();
    nNoRender = 0;
    Render();
}

/// The fields of a form mostly have one font, which is measured once.
void get::measureLine() {
    LineaMedida& last = globales().xLineaMedida;
    if (!last.oFont || nFontWidth != last.nFontWidth || !oFont->equals(*last.oFont))
        last = {oFont->clone(), nFontWidth, lineHeight()};
    nLineHeight = last.nAltura;
}

std::int32_t get::lineHeight() const {
    cCanvas& screen = *globales().oCanvasGlobal;
    screen.SelectVBStdFont(oFont, 0, 0, FontQuality_Default, nFontWidth);
    const std::int32_t height = screen.GetTextMetricsA().tmHeight;
    screen.Minimize_GDI_UsedResources();
    return height;
}

/// The width of so many letters "n", in pixels.
float get::lettersWidth(std::int64_t letters) const {
    const double width =
        static_cast<double>(TextWidth(u"n")) * static_cast<double>(std::max<std::int64_t>(letters, 0));
    return static_cast<float>(std::min<double>(width, widest));
}

/// The size, in pixels, that AutoSize makes of the present one.
platform::SIZE get::fittingSize(platform::SIZE now) const {
    const bool bordered = nBorderStyle == tslBorderStyleFixedSingle;
    const std::int32_t frame = bordered ? 6 : 2;
    if (nAutoSize == tslautoSize_X || nAutoSize == tslAutoSize_XY) {
        const std::int32_t point = nDigDecimales == 0 && nDigFantasma > 0;
        const std::int64_t letters = std::int64_t{std::max(nMaxLength, 0)} + nDigFantasma + point;
        now.cx = static_cast<std::int32_t>(lettersWidth(letters)) + 2 + frame + nButtonWidth * buttonCount();
        if (buttonCount() > 0) now.cx += bordered ? 3 : 1;
    }
    if (nAutoSize == tslAutoSize_Y || nAutoSize == tslAutoSize_XY) now.cy = nLineHeight + frame;
    return now;
}

void get::onResize() {
    if (!oFont || lReading || awaitsPlace()) return;
    if (nLineHeight == 0) measureLine();
    const auto pixels = [](float twips) { return static_cast<std::int32_t>(std::lround(twips)); };
    const platform::SIZE now{pixels(ScaleX(Width(), host::ScaleMode::Twips, host::ScaleMode::Pixels)),
                             pixels(ScaleY(Height(), host::ScaleMode::Twips, host::ScaleMode::Pixels))};
    const platform::SIZE wanted = fittingSize(now);
    if (lInResize || wanted == now) {
        lBotonEncima = false;
        Render();
        return;
    }
    const host::Raised resizing(lInResize);
    Size(ScaleX(static_cast<float>(wanted.cx), host::ScaleMode::Pixels, host::ScaleMode::Twips),
         ScaleY(static_cast<float>(wanted.cy), host::ScaleMode::Pixels, host::ScaleMode::Twips));
}

void get::BeginRefresh() {
    nNoRender = 1;
    lPendienteRender = false;
}

void get::EndRefresh() {
    nNoRender = 0;
    if (lPendienteRender) Render();
}

} // namespace tesela
