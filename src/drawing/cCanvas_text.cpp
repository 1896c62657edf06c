// Fonts and text.

#include "drawing/cCanvas_private.h"

#include "drawing/rounding.h"
#include "frame/Globales.h"
#include "host/MsgBox.h"

#include <algorithm>
#include <cmath>

namespace tesela {

using automation::Array;
using automation::String;

namespace {

constexpr std::int32_t deciPointsPerInch = 720;
constexpr std::int32_t defaultFaceBits = 3; ///< Of a style: which default typeface, 0 for none
constexpr std::int32_t ordinaryWeight = FontWeight_Medium;
constexpr double pi = 3.14159265358979;

std::int32_t weightOf(std::int32_t style) {
    return style & tslFontStyleBold ? FontWeight_Bold : ordinaryWeight;
}

/// Text as GDI's byte forms take it: one byte a character of the ANSI code page.
class AnsiText {
public:
    explicit AnsiText(const String& text) : bytes_(text.ansi()) {}
    const char* data() const { return bytes_.data(); }
    int length() const { return static_cast<int>(bytes_.size()); }

private:
    std::string bytes_;
};

} // namespace

// --- Fonts -----------------------------------------------------------------------------------------

platform::HFONT cCanvas::CreateFont(const String& cTypefaceName, std::int32_t height, std::int32_t width,
                                    bool lItalic, bool lUnderline, bool lStrikeOut, std::int32_t nEscapement,
                                    std::int32_t nOrientation, std::int32_t nWeight,
                                    FontCharSetConstants nCharSet,
                                    FontOutputPrecisionConstants nOutputPrecision,
                                    FontClipPrecisionConstants nClipPrecision, FontQualityConstants nQuality,
                                    FontPitchAndFamilyConstants nPitchAndFamily) {
    platform::LOGFONTW font;
    font.lfHeight = height;
    font.lfWidth = width;
    font.lfEscapement = nEscapement;
    font.lfOrientation = nOrientation;
    font.lfWeight = nWeight;
    font.lfItalic = lItalic;
    font.lfUnderline = lUnderline;
    font.lfStrikeOut = lStrikeOut;
    font.lfCharSet = static_cast<platform::BYTE>(nCharSet);
    font.lfOutPrecision = static_cast<platform::BYTE>(nOutputPrecision);
    font.lfClipPrecision = static_cast<platform::BYTE>(nClipPrecision);
    font.lfQuality = static_cast<platform::BYTE>(nQuality);
    font.lfPitchAndFamily = static_cast<platform::BYTE>(nPitchAndFamily);
    const std::u16string_view name = cTypefaceName.view().substr(0, platform::LF_FACESIZE - 1);
    std::copy(name.begin(), name.end(), font.lfFaceName);
    return platform::CreateFontIndirectW(&font);
}

void cCanvas::SelectFont(const String& cTypefaceName, std::int32_t height, std::int32_t width, bool lItalic,
                         bool lUnderline, bool lStrikeOut, std::int32_t nEscapement,
                         std::int32_t nOrientation, std::int32_t nWeight, FontCharSetConstants nCharSet,
                         FontOutputPrecisionConstants nOutputPrecision,
                         FontClipPrecisionConstants nClipPrecision, FontQualityConstants nQuality,
                         FontPitchAndFamilyConstants nPitchAndFamily) {
    selectOwned(nCurFont,
                CreateFont(cTypefaceName, height, width, lItalic, lUnderline, lStrikeOut, nEscapement,
                           nOrientation, nWeight, nCharSet, nOutputPrecision, nClipPrecision, nQuality,
                           nPitchAndFamily),
                u"Error de GDI en SelectFont");
}

platform::HFONT cCanvas::CreateSimpleFont(String& cTypeface, std::int32_t nSizeDeciPuntos,
                                          std::int32_t nStyle, std::int32_t nAngle,
                                          FontQualityConstants nQuality) {
    switch (nStyle & defaultFaceBits) {
    case tslFontStyleDefaultProportional:
        cTypeface = globales().cFontDefault;
        break;
    case tslFontStyleDefaultMonospaced:
        cTypeface = u"Courier";
        break;
    case tslFontStyleDefaultNumbers:
        cTypeface = u"Verdana";
        break;
    default:
        break;
    }
    const std::int32_t pixelsPerInch = platform::GetDeviceCaps(nPaintDC, platform::LOGPIXELSY);
    return CreateFont(cTypeface, -mulDiv(nSizeDeciPuntos, pixelsPerInch, deciPointsPerInch), 0,
                      (nStyle & tslFontStyleItalic) != 0, (nStyle & tslFontStyleUnderline) != 0,
                      (nStyle & tslFontStyleStrikeOut) != 0, nAngle, nAngle, weightOf(nStyle),
                      FontCharSet_ANSI, FontOutputPrecision_Default, FontClipPrecision_Default, nQuality);
}

/// Where the standard font of a style is kept; null for a style without one.
platform::HFONT* cCanvas::standardFont(std::int32_t style) {
    switch (style & defaultFaceBits) {
    case tslFontStyleDefaultProportional:
        return &nFontNormal;
    case tslFontStyleDefaultMonospaced:
        return &nFontFixed;
    case tslFontStyleDefaultNumbers:
        return &nFontNumbers;
    default:
        return nullptr;
    }
}

void cCanvas::SelectSimpleFont(String& cTypeface, std::int32_t nSizeDeciPuntos, std::int32_t nStyle,
                               std::int32_t nAngle, FontQualityConstants nQuality) {
    const platform::HFONT* standard = nFontFixed ? standardFont(nStyle) : nullptr;
    if (standard) {
        platform::SelectObject(nPaintDC, *standard);
        if (nCurFont) platform::DeleteObject(std::exchange(nCurFont, {}));
        return;
    }
    selectOwned(nCurFont, CreateSimpleFont(cTypeface, nSizeDeciPuntos, nStyle, nAngle, nQuality),
                u"Error de GDI en SelectSimpleFont");
}

void cCanvas::SelectStdFont(tslStdFontsConstants nStdFnt) {
    String none;
    switch (nStdFnt) {
    case tslStdFont_Normal:
        return SelectSimpleFont(none, 0, tslFontStyleDefaultProportional);
    case tslStdFont_Fixed:
        return SelectSimpleFont(none, 0, tslFontStyleDefaultMonospaced);
    case tslStdFont_Numbers:
        return SelectSimpleFont(none, 0, tslFontStyleDefaultNumbers);
    }
}

void cCanvas::makeStandardFont(platform::HFONT& font, String typeface, std::int32_t deciPoints) {
    if (!font) font = CreateSimpleFont(typeface, deciPoints);
}

void cCanvas::CreateStandardFonts(bool lUseScaleForForms, double nFactorAmpliacion) {
    const Globales& g = globales();
    double factor = nFactorAmpliacion == 0 ? 1.0 : nFactorAmpliacion;
    if (!lUseScaleForForms && factor == 1.0) {
        makeStandardFont(nFontNormal, g.cFontDefault, 82);
        makeStandardFont(nFontFixed, u"Courier", 98);
        makeStandardFont(nFontNumbers, u"Verdana", 82);
        return;
    }
    if (lUseScaleForForms) factor = factor * g.nFormZoom / 100;
    const String normal = g.lSansSerifScalable ? String(u"Microsoft Sans Serif") : g.cFontDefault;
    makeStandardFont(nFontNormal, normal, roundToLong(70 * factor));
    makeStandardFont(nFontFixed, u"Courier New", roundToLong(80 * factor));
    makeStandardFont(nFontNumbers, u"Verdana", roundToLong(70 * factor));
}

void cCanvas::SelectVBStdFont(const automation::Ref<host::StdFont>& oFont, std::int32_t nStyle,
                              std::int32_t nAngle, FontQualityConstants nQuality, double nWidthFactor) {
    if (!oFont) automation::throwError(automation::errors::ObjectVariableNotSet);
    const std::int32_t deciPoints = roundToLong(std::trunc(oFont->Size().toDouble() * 10));
    const std::int32_t height = -mulDiv(deciPoints, nPixelsPerInchY, deciPointsPerInch);
    const bool bold = oFont->Bold() || (nStyle & tslFontStyleBold);
    const auto select = [&](std::int32_t width) {
        SelectFont(oFont->Name(), height, width, oFont->Italic() || (nStyle & tslFontStyleItalic),
                   oFont->Underline() || (nStyle & tslFontStyleUnderline),
                   oFont->Strikethrough() || (nStyle & tslFontStyleStrikeOut), nAngle, nAngle,
                   bold ? FontWeight_Bold : ordinaryWeight, FontCharSet_Default, FontOutputPrecision_Default,
                   FontClipPrecision_Default, nQuality);
    };
    select(0);
    if (nWidthFactor > 0) select(roundToLong(nWidthFactor * GetTextMetricsA().tmAveCharWidth));
}

// --- Text ------------------------------------------------------------------------------------------

std::int32_t cCanvas::TextOut(std::int32_t nX, std::int32_t nY, const String& cText) {
    const AnsiText text(cText);
    return platform::TextOutA(nPaintDC, nX, nY, text.data(), text.length());
}

void cCanvas::TextOutWithBorder(std::int32_t nX, std::int32_t nY, const String& cText,
                                host::OLE_COLOR nTextColor, host::OLE_COLOR nBorderColor) {
    constexpr platform::POINT neighbours[] = {{-1, -1}, {0, -1}, {1, -1}, {-1, 0},
                                              {1, 0},   {-1, 1}, {0, 1},  {1, 1}};
    const AnsiText text(cText);
    SetTextColor(nBorderColor);
    for (const platform::POINT& neighbour : neighbours)
        platform::TextOutA(nPaintDC, saturatingSum(nX, neighbour.x), saturatingSum(nY, neighbour.y),
                           text.data(), text.length());
    SetTextColor(nTextColor);
    platform::TextOutA(nPaintDC, nX, nY, text.data(), text.length());
}

void cCanvas::TextOutRotatedOnCenter(const String& cText, double nAngulo, std::int32_t nCenterX,
                                     std::int32_t nCenterY) {
    std::int32_t textWidth = 0, textHeight = 0;
    if (!GetTextExtent(cText, textWidth, textHeight)) return;
    const double angle = nAngulo * pi / 180;
    const double cosine = std::cos(angle), sine = std::sin(angle);
    const std::int32_t width = roundToLong(textWidth * cosine + textHeight * sine);
    const std::int32_t height = roundToLong(textHeight * cosine + textWidth * sine);
    const std::int32_t rise = roundToLong(textHeight * cosine);
    TextOut(roundToLong(nCenterX - width / 2.0), roundToLong(nCenterY + height / 2.0 - rise), cText);
}

std::int32_t cCanvas::GetTextExtent(const String& cText, std::int32_t& width, std::int32_t& height) const {
    const AnsiText text(cText);
    platform::SIZE size;
    const platform::BOOL read = platform::GetTextExtentPoint32A(nPaintDC, text.data(), text.length(), &size);
    width = size.cx;
    height = size.cy;
    return read;
}

namespace {

struct Fit {
    bool read = false;
    std::int32_t characters = 0;
    std::vector<std::int32_t> widths;
    platform::SIZE size;
};

Fit fitText(platform::HDC dc, const String& cText, std::int32_t maxExtent) {
    const AnsiText text(cText);
    Fit fit;
    fit.widths.resize(static_cast<std::size_t>(text.length()));
    fit.read = platform::GetTextExtentExPointA(dc, text.data(), text.length(), maxExtent, &fit.characters,
                                               fit.widths.data(), &fit.size) != 0;
    if (!fit.read) fit.characters = 0;
    return fit;
}

} // namespace

std::int32_t cCanvas::GetTextFitInExtent(const String& cText, std::int32_t nMaxExtent, Array& aWidths,
                                         std::int32_t& width, std::int32_t& height) const {
    if (cText.empty()) return 0;
    const Fit fit = fitText(nPaintDC, cText, nMaxExtent);
    if (!fit.read) return 0;
    Array widths(automation::VT_I4, {{1, static_cast<std::uint32_t>(fit.widths.size())}});
    std::copy(fit.widths.begin(), fit.widths.end(), static_cast<std::int32_t*>(widths.data()));
    aWidths = std::move(widths);
    width = fit.size.cx;
    height = fit.size.cy;
    return fit.characters;
}

std::int32_t cCanvas::GetTextFitInExtent(const String& cText, std::int32_t nMaxExtent,
                                         std::vector<std::int32_t>& widths) const {
    if (cText.empty()) return 0;
    Fit fit = fitText(nPaintDC, cText, nMaxExtent);
    if (!fit.read) return 0;
    widths = std::move(fit.widths);
    return fit.characters;
}

TextAlignConstants cCanvas::TextAlign() const {
    return static_cast<TextAlignConstants>(platform::GetTextAlign(nPaintDC));
}

void cCanvas::TextAlign(TextAlignConstants nAlign) {
    platform::SetTextAlign(nPaintDC, static_cast<platform::UINT>(nAlign));
}

std::int32_t cCanvas::SetTextJustify(std::int32_t nExtraDots, std::int32_t nEspacios) {
    return platform::SetTextJustification(nPaintDC, nExtraDots, nEspacios);
}

TextMetricA_Type cCanvas::GetTextMetricsA() const {
    platform::TEXTMETRICA metrics;
    platform::GetTextMetricsA(nPaintDC, &metrics);
    return {metrics.tmHeight,           metrics.tmAscent,           metrics.tmDescent,
            metrics.tmInternalLeading,  metrics.tmExternalLeading,  metrics.tmAveCharWidth,
            metrics.tmMaxCharWidth,     metrics.tmWeight,           metrics.tmOverhang,
            metrics.tmDigitizedAspectX, metrics.tmDigitizedAspectY, metrics.tmFirstChar,
            metrics.tmLastChar,         metrics.tmDefaultChar,      metrics.tmBreakChar,
            metrics.tmItalic,           metrics.tmUnderlined,       metrics.tmStruckOut,
            metrics.tmPitchAndFamily,   metrics.tmCharSet};
}

} // namespace tesela
