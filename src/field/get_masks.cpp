// The field's type, its masks, and the fonts that they ask for.

#include "field/get.h"
#include "field/masks.h"

#include <cmath>
#include <string>

namespace tesela {

using automation::String;

namespace {

constexpr const char16_t* maskFont = u"Courier";
constexpr const char16_t* numberFont = u"Verdana";
constexpr double maskFontSize = 10; // points
constexpr double numberFontSize = 8;
constexpr double normalFontSize = 8;
constexpr double maskTolerance = 0.5;
constexpr std::int32_t usualDigits = 10;
constexpr std::int32_t dateLength = 10;
constexpr float maskMargin = 8; // pixels

} // namespace

void get::Mascara(const String& value) {
    String mask = value;
    if (!value.empty()) {
        auto [display, edit] = splitMasks(value);
        mask = display;
        cMascaraFocus = edit;
        takeMask(mask);
    }
    if (mask == cMascara) return;
    cMascara = mask;
    changed(u"Mascara");
    MascaraFocus(cMascaraFocus);
    SetTextoInterno(cTexto, false);
    Render();
}

/// Fits font, digits, length and width to a mask.
void get::takeMask(const String& mask) {
    if (!lUserFont) {
        if (isNumber())
            useFont(numberFont, numberFontSize, maskTolerance);
        else
            useFont(maskFont, maskFontSize, maskTolerance);
    }
    if (isNumber()) {
        const NumberDigits digits = digitsOfMask(cMascaraFocus);
        nDigEnteros = digits.integers;
        nDigDecimales = digits.decimals;
    }
    const auto maskLength = static_cast<std::int32_t>(mask.length());
    MaxLength(maskLength);
    if (mask == cMascara || (nAutoSize != tslautoSize_X && nAutoSize != tslAutoSize_XY)) return;
    const std::int32_t point = nDigDecimales == 0 && nDigFantasma > 0;
    const float pixels = lettersWidth(std::int64_t{maskLength} + point + nDigFantasma) + maskMargin;
    const float twips = ScaleX(pixels, host::ScaleMode::Pixels, host::ScaleMode::Twips);
    if (twips != Width()) Size(twips, Height());
}

void get::MascaraFocus(const String& value) {
    store(cMascaraFocus, value, u"MascaraFocus");
}

void get::FormatoMascara(const String& cCombinado) {
    const CompactMask compact = readCompactMask(cCombinado);
    const bool same = compact.mask == cMascara;
    {
        const HeldPaint held(*this);
        if (compact.letterCase) Mayusculas(*compact.letterCase);
        if (compact.blankWhenEmpty) VacioEnBlanco(true);
        nDigFantasma = compact.phantomDigits;
        MascaraFocus({});
    }
    Mascara(compact.mask);
    if (same) onResize(); // the mask has changed nothing, but its phantom digits and blanks may have
}

void get::TipoDato(tslTipoDatoConstants value) {
    if (value == nTipoDato) return;
    LibraryControl::TipoDato(value);
    switch (value) {
    case tslTipoDatoCaracter:
        becomeText();
        break;
    case tslTipoDatoNumero:
        becomeNumber();
        break;
    case tslTipoDatoFecha:
        becomeDate();
        break;
    }
    if (!lUserMode) onResize();
}

void get::becomeText() {
    if (!lUserMode) {
        if (nAutoSize == tslAutoSize_XY)
            AutoSize(tslAutoSize_Y);
        else if (nAutoSize == tslautoSize_X)
            AutoSize(tslAutoSize_NO);
        if (!lUserFont) resetFont();
    }
    CaracteresValidos({});
    Alignment(tslAlignmentLeftJustify);
}

void get::becomeNumber() {
    const auto maskOfLength = [this] {
        FormatoMascara(u"(" + String::fromUtf8(std::to_string(nMaxLength)) + u",0)");
    };
    if (lUserMode) {
        if (cMascara.empty() && nDigEnteros == 0) maskOfLength();
    } else {
        if (nMaxLength == 0) {
            const std::size_t longest = std::max(cMascara.length(), cMascaraFocus.length());
            const std::size_t wanted = longest > 0 ? longest : cTexto.length();
            MaxLength(wanted > 0 ? static_cast<std::int32_t>(wanted) : usualDigits);
        }
        if (cMascara.empty()) maskOfLength();
        growAutoSize();
        if (!lUserFont) resetFont();
    }
    CaracteresValidos(u"0123456789+-" + globales().cSepDecimal);
    Alignment(tslAlignmentRightJustify);
}

void get::becomeDate() {
    if (!lUserMode) {
        MaxLength(dateLength);
        growAutoSize();
        if (!lUserFont) resetFont();
    }
    CaracteresValidos(u"0123456789+-/" + globales().cSepFecha);
    Alignment(tslAlignmentLeftJustify);
}

/// The width follows the digits too.
void get::growAutoSize() {
    if (nAutoSize == tslAutoSize_NO)
        AutoSize(tslautoSize_X);
    else if (nAutoSize == tslAutoSize_Y)
        AutoSize(tslAutoSize_XY);
}

// --- Fonts -----------------------------------------------------------------------------------------

void get::resetFont() {
    if (isNumber())
        useFont(numberFont, numberFontSize);
    else if (isDate() || !cMascara.empty())
        useFont(maskFont, maskFontSize);
    else
        useFont(globales().cFontDefault.c_str(), normalFontSize);
}

/// Takes a font; a size that is off by no more than the tolerance stays.
void get::useFont(const char16_t* name, double size, double tolerance) {
    requireFont();
    const bool isOfSize = std::fabs(oFont->Size().toDouble() - size) <= tolerance;
    if (isOfSize && oFont->Name() == name) return;
    host::StdFont wanted;
    wanted.assign(*oFont);
    wanted.Name(name);
    if (!isOfSize) wanted.Size(automation::Currency::fromDouble(size));
    takeFont(wanted);
}

void get::UserFont(bool value) {
    lUserFont = value;
    if (!value) resetFont();
    changed(u"UserFont");
}

void get::FntNumbers() {
    UserFont(true);
    useFont(numberFont, numberFontSize);
}

} // namespace tesela
