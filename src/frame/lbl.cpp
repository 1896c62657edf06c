#include "frame/lbl.h"

#include "automation/Conversions.h"
#include "data/cFecha.h"
#include "host/MsgBox.h"

#include <array>

namespace tesela {

using automation::String;
using automation::Variant;

namespace {

constexpr host::OLE_COLOR defaultBackColor = host::systemColor(15); // &H8000000F
constexpr host::OLE_COLOR defaultForeColor = host::systemColor(8);  // &H80000008
constexpr float schemeHeight = 195;                                 // twips
constexpr double defaultFontSize = 8;

struct HeaderFont {
    tslSchemeConstants scheme;
    double size;
};
constexpr HeaderFont headerFonts[] = {{tslSchemeHeader_A, 12}, {tslSchemeHeader_B, 10}};
constexpr const char16_t* headerFontName = u"Arial";

} // namespace

lbl::lbl()
    : nDefBackColor(defaultBackColor), nDefForeColor(defaultForeColor),
      oFont(automation::make<host::StdFont>()) {
    ScaleMode(host::ScaleMode::Pixels);
    Label1.placeIn(*this);
    clickSubscription = Label1.Click.subscribe([this] {
        if (gateOpen()) raise(Click);
    });
    fontSubscription = oFont->FontChanged.subscribe([this](const String&) { fontChanged(); });
}

void lbl::onTerminate() {
    fontSubscription.leave();
    oFont.reset();
}

void lbl::UserControl_InitProperties() {
    Scheme(tslSchemeUseDefault);
    Caption(Extender().Name());
    ToolTip({});
    BackColor(Ambient().BackColor());
    ForeColor(Ambient().ForeColor());
    Enabled(true);
    TipoDato(tslTipoDatoCaracter);
    Alias({});
    Campo({});
}

void lbl::Enabled(bool value) {
    lInternalPreEnabled = value;
    Label1.Enabled(value);
    UserControl::Enabled(value);
    PropertyChanged(u"Enabled");
}

void lbl::Live(bool value) {
    setLive(value);
    Label1.Visible(value);
    Label1.Enabled(value);
}

void lbl::Caption(const String& value) {
    Label1.Caption(value);
    if (AutoSize() != tslAutoSize_NO) AutoSize(AutoSize());
    PropertyChanged(u"Caption");
}

Variant lbl::ValorVerdadero(tslDataFormatConstants& nFormato) const {
    if (nFormato == -1) nFormato = static_cast<tslDataFormatConstants>(nTipoDato);
    Variant caption(Caption());
    switch (nFormato) {
    case tslDataFormatCaracter:
        return caption;
    case tslDataFormatNumero:
        if (automation::IsNumeric(caption)) return automation::CDbl(caption);
        return std::int16_t{0};
    case tslDataFormatFecha:
    case tslDataFormatHora: {
        if (automation::IsDate(caption)) return automation::CDate(caption);
        const auto fecha = automation::make<cFecha>();
        fecha->SetEspecial(tslDateEmpty);
        if (nFormato == tslDataFormatFecha) return Variant(fecha);
        return fecha->GetDateTime(false);
    }
    }
    return false;
}

Variant lbl::ValorVerdadero() const {
    auto nFormato = static_cast<tslDataFormatConstants>(-1);
    return ValorVerdadero(nFormato);
}

void lbl::ToolTip(const String& value) {
    Label1.ToolTipText(value);
    PropertyChanged(u"ToolTip");
}

void lbl::BackColor(host::OLE_COLOR value) {
    Label1.BackColor(value);
    PropertyChanged(u"BackColor");
}

void lbl::ForeColor(host::OLE_COLOR value) {
    Label1.ForeColor(value);
    PropertyChanged(u"ForeColor");
}

tslBackStyleConstants lbl::BackStyle() const {
    return static_cast<tslBackStyleConstants>(Label1.BackStyle());
}
void lbl::BackStyle(tslBackStyleConstants value) {
    const auto style = static_cast<host::BackStyle>(value);
    Label1.BackStyle(style);
    UserControl::BackStyle(style);
    PropertyChanged(u"BackStyle");
}

tslBorderStyleConstants lbl::BorderStyle() const {
    return static_cast<tslBorderStyleConstants>(Label1.BorderStyle());
}
void lbl::BorderStyle(tslBorderStyleConstants value) {
    Label1.BorderStyle(static_cast<host::BorderStyle>(value));
    PropertyChanged(u"BorderStyle");
}

tslAlignmentConstants lbl::Alignment() const {
    return static_cast<tslAlignmentConstants>(Label1.Alignment());
}
void lbl::Alignment(tslAlignmentConstants value) {
    Label1.Alignment(static_cast<host::Alignment>(value));
    PropertyChanged(u"Alignment");
}

void lbl::Font(const automation::Ref<host::StdFont>& value) {
    if (!value) automation::throwError(automation::errors::ObjectVariableNotSet);
    ownFont().assign(*value);
    AutoSize(AutoSize());
    PropertyChanged(u"Font");
}

host::StdFont& lbl::ownFont() const {
    if (!oFont) automation::throwError(automation::errors::ObjectVariableNotSet);
    return *oFont;
}

void lbl::fontChanged() {
    UserControl::Font(*oFont);
    Label1.Font(*oFont);
    onResize();
}

tslAutoSizeConstants lbl::AutoSize() const {
    if (!Label1.AutoSize()) return tslAutoSize_NO;
    return Label1.WordWrap() ? tslAutoSize_Y : tslautoSize_X;
}

void lbl::AutoSize(tslAutoSizeConstants value) {
    if (value == tslAutoSize_XY) {
        value = tslautoSize_X;
        if (!Ambient().UserMode())
            host::MsgBox(
                u"La propiedad AutoSize del control LBL no puede tener el valor 'tslAutoSize_XY'.\r\n"
                u"Se ajustará automáticamente a 'tslautoSize_X'.",
                host::MsgBoxStyle::Exclamation, u"Error en el programa: valor de propiedad inválido");
    }
    switch (value) {
    case tslAutoSize_NO:
        Label1.AutoSize(false);
        Label1.WordWrap(false);
        break;
    case tslautoSize_X:
        Label1.AutoSize(true);
        Label1.WordWrap(false);
        takeLabelSize();
        break;
    case tslAutoSize_Y:
        // In this order, so that the label keeps its width when it begins to fit its height.
        Label1.WordWrap(true);
        Label1.AutoSize(true);
        takeLabelSize();
        break;
    case tslAutoSize_XY:
        break;
    }
    PropertyChanged(u"AutoSize");
}

float lbl::labelWidthTwips() const {
    return ScaleX(Label1.Width(), host::ScaleMode::Pixels, host::ScaleMode::Twips);
}
float lbl::labelHeightTwips() const {
    return ScaleY(Label1.Height(), host::ScaleMode::Pixels, host::ScaleMode::Twips);
}

void lbl::takeLabelSize() {
    Size(labelWidthTwips(), labelHeightTwips());
}

/// Lets the text wrap in another width than the one that its label had come to.
void lbl::wrapAt(float widthTwips) {
    AutoSize(tslAutoSize_NO);
    Size(widthTwips, Height());
    AutoSize(tslAutoSize_Y);
}

void lbl::onResize() {
    if (AutoSize() != tslAutoSize_NO && (labelWidthTwips() != Width() || labelHeightTwips() != Height()))
        takeLabelSize();
    Label1.Move(0, 0, ScaleWidth(), ScaleHeight());
}

void lbl::Scheme(tslSchemeConstants value) {
    switch (value) {
    case tslSchemeUseAmbient:
        BackColor(Ambient().BackColor());
        ForeColor(Ambient().ForeColor());
        Font(Ambient().Font());
        break;
    case tslSchemeUseDefault:
    case tslSchemeHeader_A:
    case tslSchemeHeader_B: {
        BackColor(nDefBackColor);
        ForeColor(nDefForeColor);
        String name = globales().cFontDefault;
        double size = defaultFontSize;
        for (const HeaderFont& header : headerFonts)
            if (header.scheme == value) {
                name = headerFontName;
                size = header.size;
            }
        assignFont(ownFont(), name, size, value != tslSchemeUseDefault);
        break;
    }
    default:
        nScheme = value;
        PropertyChanged(u"Scheme");
        return;
    }
    TipoDato(tslTipoDatoCaracter);
    BackStyle(tslBackStyleOpaque);
    BorderStyle(tslBorderStyleNone);
    Alignment(tslAlignmentLeftJustify);
    Height(schemeHeight);
    AutoSize(tslautoSize_X);
    nScheme = value;
    PropertyChanged(u"Scheme");
}

} // namespace tesela
