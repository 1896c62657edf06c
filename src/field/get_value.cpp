// The field's text and what it means.

#include "automation/Clock.h"
#include "automation/Conversions.h"
#include "automation/DateFunctions.h"
#include "automation/Format.h"
#include "automation/LateBound.h"
#include "automation/Names.h"
#include "automation/Numbers.h"
#include "automation/Operators.h"
#include "automation/Strings.h"
#include "field/get.h"
#include "field/masks.h"
#include "host/Raised.h"

#include <algorithm>
#include <cmath>

namespace tesela {

using automation::Date;
using automation::String;
using automation::Variant;

namespace {

constexpr Date elevens(-287861.0); ///< 11 November 1111: each digit of it is a 1
constexpr int mostDecimals = 22;   ///< That rounding takes
constexpr int currencyDecimals = 4;

int roundingDecimals(std::int32_t decimals) {
    return std::min(decimals, mostDecimals);
}

bool isSame(const Variant& a, const Variant& b) {
    try {
        return automation::isEqual(a, b);
    } catch (const automation::Error&) {
        return false; // values that can't be compared
    }
}

} // namespace

// --- The way in ------------------------------------------------------------------------------------

void get::Text(const String& value) {
    SetTextoInterno(value, false);
    Render();
    changed(u"Text");
}

void get::SetText(const String& cNewText) {
    cTexto = cNewText;
    fitPositions();
    Render();
}

/// The one way in which another text enters. Change tells of it if the text has become another one.
void get::SetTextoInterno(const String& cNuevo, bool lForzarFormato) {
    const String former = cTexto;
    takeText(cNuevo, lForzarFormato);
    if (!lEnSetTexto && cTexto != former) raiseInput(Change);
}

/// Stores a text in the form of the moment: filtered as typed with the focus, formatted without. A call from
/// inside another one only stores. Of the present text in another form, as the focus comes and goes, nobody
/// is told.
void get::takeText(const String& text, bool formats) {
    cTexto = text;
    if (lEnSetTexto) return;
    const host::Raised entering(lEnSetTexto);
    if (lHasFocus && !lLocked) {
        TypedText filtered = FiltrarTexto({cTexto, nCaret});
        cTexto = filtered.text;
        nCaret = std::max(filtered.caret, 0);
    }
    if (formats || !lHasFocus) cTexto = formatted(cTexto);
    fitPositions();
}

/// Caret and selection stay within the text.
void get::fitPositions() {
    const std::int32_t last = length();
    nCaret = std::clamp(nCaret, 0, last);
    nSelStart = std::clamp(nSelStart, 0, last);
    nSelLength = std::clamp(nSelLength, -nSelStart, last - nSelStart);
}

String get::formatted(const String& text) const {
    if (isNumber()) {
        if (text.empty() && isRecordIdentifier()) return {}; // a record that has none yet
        const double number = automation::IsNumeric(text) ? automation::doubleFromText(text) : 0;
        return automation::Format(automation::Round(number, roundingDecimals(nDigDecimales)), cMascara);
    }
    if (isDate()) {
        if (!automation::IsDate(text)) return blankTemplate();
        return automation::Format(automation::dateFromText(text), longDatePattern());
    }
    return cMascara.empty() ? text : LlenarMascara(text, cMascara);
}

String get::blankTemplate() const {
    return automation::Format(elevens, cMascara).replaced(u"1", u" ");
}

/// The zero before a separator at the beginning is left out where MaxLength has no room for it.
TypedText get::FiltrarTexto(const TypedText& typed) const {
    if (isNumber()) {
        const String& separator = globales().cSepDecimal;
        const TypedText filtered = filterNumber(typed, separator);
        const bool grown = filtered.text.length() > typed.text.length();
        const bool fits = nMaxLength <= 0 || filtered.text.length() <= static_cast<std::size_t>(nMaxLength);
        return fits || !grown ? filtered : filterNumber(typed, separator, LeadingZero::No);
    }
    if (isDate()) return filterDate(typed, globales().cSepFecha);
    const String cased = inCase(typed.text, nMayusculas);
    return {hasTextMask() ? withLiterals(cased, typed.text, cMascaraFocus) : cased, typed.caret};
}

/// Without a mask the one of the focus.
String get::LlenarMascara(const String& text, const String& mask) const {
    return fillMask(text, mask.empty() ? cMascaraFocus : mask);
}

bool get::roundsToZero() const {
    return automation::IsNumeric(cTexto) &&
           automation::Round(automation::doubleFromText(cTexto), roundingDecimals(nDigDecimales)) == 0;
}

bool get::showsNothing() const {
    if (!lVacioEnBlanco || lHasFocus) return false;
    return (isNumber() && roundsToZero()) || (isDate() && !automation::IsDate(cTexto));
}

String get::TextoAMostrar() const {
    if (showsNothing()) return {};
    if (cPasswordChar.empty()) return cTexto;
    return String::repeat(cPasswordChar[0], cTexto.length());
}

// --- The value -------------------------------------------------------------------------------------

Variant get::Value() {
    return ValorVerdadero();
}

void get::Value(const Variant& value) {
    std::int32_t format = -1;
    ValorVerdadero(format, value);
}

Variant get::ValorVerdadero() {
    std::int32_t format = -1;
    return ValorVerdadero(format, false);
}

Variant get::ValorVerdadero(std::int32_t& nFormato, const Variant& xNuevoValor) {
    const Variant given = xNuevoValor.dereferenced();
    const bool reads = given.type() == automation::VT_BOOL || given.isMissing();
    const bool identifier = nFormato == -1 && isRecordIdentifier();
    if (nFormato == -1) nFormato = ownFormat();
    try {
        if (!reads) {
            writeValue(identifier ? -1 : nFormato, given);
            return {};
        }
        return identifier ? readRecordIdentifier() : readValue(nFormato);
    } catch (const automation::Error&) {
        return {};
    }
}

bool get::isRecordIdentifier() const {
    constexpr std::u16string_view field = u"TESELAID";
    constexpr std::u16string_view prefix = u"SAYID_";
    if (automation::sameName(cCampo, field)) return true;
    if (!site()) return false;
    const String name = Extender().Name();
    return automation::sameName(name.view().substr(0, prefix.size()), prefix);
}

std::int32_t get::ownFormat() const {
    if (isRecordIdentifier()) return tslDataFormatNumero;
    if (cMascara == u"##:##" && nTipoDato == tslTipoDatoCaracter) return tslDataFormatHora;
    return nTipoDato;
}

Variant get::readRecordIdentifier() const {
    const String digits = u"0" + automation::Trim(cTexto);
    if (!automation::IsNumeric(digits)) return std::int32_t{0};
    try {
        return automation::CLng(digits);
    } catch (const automation::Error&) {
        return std::int32_t{0}; // beyond a Long
    }
}

Variant get::readValue(std::int32_t format) {
    const String text = trimmed(cTexto, nAutoTrim);
    switch (format) {
    case tslDataFormatCaracter:
        if (lHasFocus && !cMascaraFocus.empty()) return stripMask(cTexto, cMascaraFocus);
        if (!lHasFocus && !cMascara.empty()) return stripMask(cTexto, cMascara);
        return text;
    case tslDataFormatNumero:
        return readNumber(text);
    case tslDataFormatFecha:
        return readDate(text, true);
    case tslDataFormatHora:
        return readDate(text, false);
    default:
        return {};
    }
}

Variant get::readNumber(String text) const {
    text = text.replaced(globales().cSepMiles, u"");
    if (!automation::IsNumeric(text)) return std::int16_t{0};
    if (nDigDecimales > currencyDecimals) return automation::CDbl(text);
    try {
        return automation::CCur(text);
    } catch (const automation::Error&) {
        return std::int16_t{0}; // beyond a Currency
    }
}

cFecha& get::ownDate() {
    if (!oFecha) oFecha = automation::make<cFecha>();
    return *oFecha;
}

Variant get::readDate(const String& text, bool asObject) {
    if (automation::IsDate(text)) return automation::CDate(text);
    ownDate().SetEspecial(tslDateEmpty);
    return asObject ? Variant(oFecha) : Variant(ownDate().GetDateTime());
}

/// Writes a value; the format -1 is the field's own, record identifiers included.
void get::writeValue(std::int32_t format, Variant value) {
    const bool identifier = format == -1 && isRecordIdentifier();
    if (format == -1) format = ownFormat();
    try {
        value = automation::value(value.dereferenced());
        if (value.isNull()) value = u"(Null)";
        if (identifier) {
            const bool none = automation::Val(automation::CStr(value)) == 0;
            value = none ? Variant(u"") : Variant(automation::CLng(value));
        }
        if (identifier && value.isString())
            SetTextoInterno({}, false);
        else if (format == tslDataFormatCaracter)
            writeText(automation::CStr(value));
        else if (format == tslDataFormatNumero)
            writeNumber(value);
        else if (format == tslDataFormatFecha)
            writeDate(value);
        else if (format == tslDataFormatHora)
            writeHour(value);
    } catch (const automation::Error&) {
        // A value that can't be converted leaves what was written so far.
    }
    nCaret = 0;
    Render();
}

void get::writeText(String text) {
    if (nMaxLength > 0) text = text.left(static_cast<std::size_t>(nMaxLength));
    if (lHasFocus && hasTextMask()) text = LlenarMascara(text, cMascaraFocus);
    SetTextoInterno(text, false);
    if (cMascaraFocus.empty() && lHasFocus && nSeleccionado == tslSeleccionadoSiempre) selectAll();
}

void get::writeNumber(const Variant& value) {
    SetTextoInterno(u"0", false);
    const bool numeric = automation::IsNumeric(value);
    const Variant rounded =
        numeric ? automation::Round(value, roundingDecimals(nDigDecimales)) : Variant(std::int16_t{0});
    SetTextoInterno(automation::CStr(rounded), true);
    if (lHasFocus && nSeleccionado >= tslSeleccionadoNumeros) selectAll();
}

/// The date in a value; the empty date for anything else.
Date get::dateOr(const Variant& value) {
    return automation::IsDate(value) ? automation::CDate(value) : ownDate().SetEspecial(tslDateEmpty);
}

void get::writeDate(const Variant& value) {
    const Date date = dateOr(value);
    // The field's own object may have been handed out as its value.
    const auto none = automation::make<cFecha>();
    for (const auto special : {tslDateEmpty, tslDateMin, tslDateMax})
        if (date == none->SetEspecial(special)) {
            SetTextoInterno(blankTemplate(), false);
            return;
        }
    SetTextoInterno(automation::CStr(automation::DateValue(date)), false);
}

void get::writeHour(const Variant& value) {
    const Date date = dateOr(value);
    const bool none = date == ownDate().SetEspecial(tslDateEmpty);
    SetTextoInterno(automation::Format(none ? automation::Today() : date, u"Short Time"), false);
}

void get::selectAll() {
    nSelStart = 0;
    nSelLength = length();
}

// --- Changes ---------------------------------------------------------------------------------------

void get::HasChanged(bool value) {
    if (!value)
        cTextoOriginal = cTexto;
    else if (cTextoOriginal == cTexto)
        cTextoOriginal = cTexto.empty() ? String(u" ") : String();
}

const Variant& get::OriginalValue(bool lDesdeModificacionFicha) const {
    return lDesdeModificacionFicha ? xValorOriginalFicha : xValorOriginal;
}

bool get::ValueHasChanged(bool lDesdeModificacionFicha) {
    return !isSame(Value(), OriginalValue(lDesdeModificacionFicha));
}

void get::ResetValue(bool lDesdeModificacionFicha) {
    if (!ValueHasChanged(lDesdeModificacionFicha)) return;
    (lDesdeModificacionFicha ? xValorOriginalFicha : xValorOriginal) = Value();
}

void get::Reset() {
    Mascara({});
    MaxLength(0);
    Mayusculas(tslMayusculasNoFilter);
    AutoFormat(tslGetAutoFormatDefault);
    VacioEnBlanco(false);
    Seleccionado(tslSeleccionadoNumeros);
    TipoDato(tslTipoDatoCaracter);
    Text({});
    nCaret = 0;
    SelStart(0);
    SelLength(0);
    if (!lUserFont) resetFont();
}

// --- Properties of the text ------------------------------------------------------------------------

void get::Locked(bool value) {
    storeAndRender(lLocked, value, u"Locked");
}

void get::SelStart(std::int32_t value) {
    if (value < 0 || value > length()) return;
    nSelStart = value;
    Render();
    changed(u"SelStart");
}

/// Ends with the text, whichever of start and length was written first.
std::int32_t get::SelLength() const {
    return std::clamp(nSelLength, -nSelStart, length() - nSelStart);
}

void get::SelLength(std::int32_t value) {
    if (value < 0 || value > length()) return;
    nSelLength = value;
    Render();
    changed(u"SelLength");
}

void get::MaxLength(std::int32_t value) {
    if (value == nMaxLength) return;
    nMaxLength = value;
    if (lUserMode) {
        Render();
    } else {
        SetTextoInterno(cTexto, false);
        onResize();
    }
    changed(u"MaxLength");
}

void get::PasswordChar(const String& value) {
    storeAndRender(cPasswordChar, value, u"PasswordChar");
}

void get::AutoTrim(tslAutoTrimConstants value) {
    store(nAutoTrim, value, u"AutoTrim");
    if (lHasFocus) return;
    if (const String text = trimmed(cTexto, nAutoTrim); text != cTexto) Text(text);
}

void get::Mayusculas(tslMayusculasConstants value) {
    store(nMayusculas, value, u"Mayusculas");
}

void get::AutoFormat(tslGetAutoFormatConstants value) {
    store(nAutoFormat, value, u"AutoFormat");
}

void get::VacioEnBlanco(bool value) {
    lVacioEnBlanco = value;
    if (lUserMode) Render();
    changed(u"VacioEnBlanco");
}

void get::Seleccionado(tslSeleccionadoConstants value) {
    store(nSeleccionado, value, u"Seleccionado");
}

void get::CaracteresValidos(const String& value) {
    store(cCaracteresValidos, value, u"CaracteresValidos");
}

} // namespace tesela
