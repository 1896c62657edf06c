// Fonts and text.
#include "CanvasTest.h"
#include "drawing/rounding.h"
#include "frame/Globales.h"
#include "platform/system_look.h"
#include "support/Canvas.h"

#include <cmath>
#include <limits>

using namespace tesela;
using namespace tests;
using automation::Array;
using automation::String;

namespace {

class cCanvas_Text : public CanvasTest {
protected:
    cCanvas_Text() {
        canvas->Configure({}, 0, 0, 120, 60, DCProvider_Auto, false);
        canvas->FillBox(0, 0, 119, 59, black);
    }
    platform::LOGFONTW font() const {
        platform::LOGFONTW data;
        platform::GetObjectFont(platform::HFONT(current(platform::OBJ_FONT).value), &data);
        return data;
    }
    static platform::LOGFONTW dataOf(platform::HFONT handle) {
        platform::LOGFONTW data;
        platform::GetObjectFont(handle, &data);
        platform::DeleteObject(handle);
        return data;
    }
    static String name(const platform::LOGFONTW& data) { return String(data.lfFaceName); }
    std::string pixels() const { return picture(120, 60); }
    void wipe() { canvas->FillBox(0, 0, 119, 59, black); }

    const std::int32_t P = canvas->GetDevCaps(GDIDeviceCaps_LogPixelsY);
};

} // namespace

TEST_F(cCanvas_Text, AFontIsMadeOfAllItsParts) {
    const auto data = dataOf(canvas->CreateFont(
        u"Arial", -13, 7, true, true, true, 300, 450, 600, FontCharSet_Symbol, FontOutputPrecision_TrueType,
        FontClipPrecision_Stroke, FontQuality_Proof,
        static_cast<FontPitchAndFamilyConstants>(FontPitchAndFamily_Variable + FontPitchAndFamily_Swiss)));
    EXPECT_EQ(u"Arial", name(data));
    EXPECT_EQ(-13, data.lfHeight);
    EXPECT_EQ(7, data.lfWidth);
    EXPECT_TRUE(data.lfItalic && data.lfUnderline && data.lfStrikeOut);
    EXPECT_EQ(300, data.lfEscapement);
    EXPECT_EQ(450, data.lfOrientation);
    EXPECT_EQ(600, data.lfWeight);
    EXPECT_EQ(2, data.lfCharSet);
    EXPECT_EQ(4, data.lfOutPrecision);
    EXPECT_EQ(2, data.lfClipPrecision);
    EXPECT_EQ(2, data.lfQuality);
    EXPECT_EQ(34, data.lfPitchAndFamily);
}

TEST_F(cCanvas_Text, TheDefaultsOfTheTwoFontCallsDiffer) {
    const auto plain = dataOf(canvas->CreateFont(u"Arial"));
    EXPECT_EQ(0, plain.lfHeight);
    EXPECT_EQ(400, plain.lfWeight);
    EXPECT_EQ(1, plain.lfCharSet);
    String face = u"Arial";
    const auto simple = dataOf(canvas->CreateSimpleFont(face));
    EXPECT_EQ(0, simple.lfHeight);
    EXPECT_EQ(500, simple.lfWeight) << "the library's ordinary weight";
    EXPECT_EQ(0, simple.lfCharSet);
}

TEST_F(cCanvas_Text, ASimpleFontIsMeasuredInTenthsOfAPoint) {
    String face = u"Arial";
    const auto data = dataOf(canvas->CreateSimpleFont(
        face, 98, tslFontStyleBold + tslFontStyleItalic + tslFontStyleUnderline + tslFontStyleStrikeOut, 900,
        FontQuality_Draft));
    EXPECT_EQ(-mulDiv(98, P, 720), data.lfHeight);
    EXPECT_EQ(700, data.lfWeight);
    EXPECT_TRUE(data.lfItalic && data.lfUnderline && data.lfStrikeOut);
    EXPECT_EQ(900, data.lfEscapement);
    EXPECT_EQ(900, data.lfOrientation);
    EXPECT_EQ(1, data.lfQuality);
    EXPECT_EQ(u"Arial", face);
}

TEST_F(cCanvas_Text, AStyleWithADefaultTypefaceTellsItsName) {
    const struct {
        std::int32_t style;
        String name;
    } cases[] = {{tslFontStyleDefaultProportional, globales().cFontDefault},
                 {tslFontStyleDefaultMonospaced + tslFontStyleBold, u"Courier"},
                 {tslFontStyleDefaultNumbers + tslFontStyleStrikeOut, u"Verdana"},
                 {tslFontStyleNormal + tslFontStyleItalic, u"Arial"}};
    for (const auto& one : cases) {
        String face = u"Arial";
        EXPECT_EQ(one.name, name(dataOf(canvas->CreateSimpleFont(face, 80, one.style))));
        EXPECT_EQ(one.name, face);
    }
}

TEST_F(cCanvas_Text, ANameTooLongIsCut) {
    const auto data = dataOf(canvas->CreateFont(String::repeat(u'x', 100)));
    EXPECT_EQ(31u, name(data).length());
}

TEST_F(cCanvas_Text, ASelectedFontReplacesTheFormerOne) {
    const std::int32_t before = gdiObjects();
    canvas->SelectFont(u"Arial", 12);
    EXPECT_EQ(u"Arial", name(font()));
    String face = u"Verdana";
    canvas->SelectSimpleFont(face, 100);
    EXPECT_EQ(u"Verdana", name(font()));
    expectObjects(before + 1);
}

TEST_F(cCanvas_Text, StandardFontsHaveTheirPlainSizes) {
    canvas->CreateStandardFonts();
    canvas->SelectStdFont(tslStdFont_Normal);
    EXPECT_EQ(globales().cFontDefault, name(font()));
    EXPECT_EQ(-mulDiv(82, P, 720), font().lfHeight);
    EXPECT_EQ(500, font().lfWeight);
    canvas->SelectStdFont(tslStdFont_Fixed);
    EXPECT_EQ(u"Courier", name(font()));
    EXPECT_EQ(-mulDiv(98, P, 720), font().lfHeight);
    canvas->SelectStdFont(tslStdFont_Numbers);
    EXPECT_EQ(u"Verdana", name(font()));
    EXPECT_EQ(-mulDiv(82, P, 720), font().lfHeight);
}

TEST_F(cCanvas_Text, StandardFontsAreMadeOnce) {
    const std::int32_t before = gdiObjects();
    canvas->CreateStandardFonts();
    expectObjects(before + 3);
    canvas->CreateStandardFonts(false, 2.0);
    expectObjects(before + 3);
    canvas->SelectStdFont(tslStdFont_Fixed);
    EXPECT_EQ(u"Courier", name(font())) << "the first ones stand";
}

TEST_F(cCanvas_Text, StandardFontsAreEnlargedByAFactorAndTheZoomOfForms) {
    const String normal =
        globales().lSansSerifScalable ? String(u"Microsoft Sans Serif") : globales().cFontDefault;
    canvas->CreateStandardFonts(false, 1.5);
    canvas->SelectStdFont(tslStdFont_Normal);
    EXPECT_EQ(normal, name(font()));
    EXPECT_EQ(-mulDiv(105, P, 720), font().lfHeight);
    canvas->SelectStdFont(tslStdFont_Fixed);
    EXPECT_EQ(u"Courier New", name(font()));
    EXPECT_EQ(-mulDiv(120, P, 720), font().lfHeight);
    canvas->SelectStdFont(tslStdFont_Numbers);
    EXPECT_EQ(-mulDiv(105, P, 720), font().lfHeight);

    canvas->Minimize_GDI_UsedResources();
    globales().nFormZoom = 125;
    canvas->CreateStandardFonts(false, 1.5);
    canvas->SelectStdFont(tslStdFont_Normal);
    EXPECT_EQ(-mulDiv(105, P, 720), font().lfHeight) << "the zoom is for forms";
    canvas->Minimize_GDI_UsedResources();
    canvas->CreateStandardFonts(true);
    canvas->SelectStdFont(tslStdFont_Normal);
    EXPECT_EQ(-mulDiv(88, P, 720), font().lfHeight) << "87.5 to the even neighbour";
    canvas->SelectStdFont(tslStdFont_Fixed);
    EXPECT_EQ(u"Courier New", name(font()));
    EXPECT_EQ(-mulDiv(100, P, 720), font().lfHeight);
    globales().nFormZoom = 100;

    canvas->Minimize_GDI_UsedResources();
    canvas->CreateStandardFonts(true, 1.0);
    canvas->SelectStdFont(tslStdFont_Fixed);
    EXPECT_EQ(-mulDiv(80, P, 720), font().lfHeight) << "the sizes of forms, not enlarged";

    for (const double factor : {0.5, -0.5}) {
        canvas->Minimize_GDI_UsedResources();
        canvas->CreateStandardFonts(false, factor);
        canvas->SelectStdFont(tslStdFont_Fixed);
        EXPECT_EQ(u"Courier New", name(font()));
        EXPECT_EQ(-mulDiv(roundToLong(80 * factor), P, 720), font().lfHeight) << factor;
    }
}

TEST_F(cCanvas_Text, ADefaultStyleTakesTheStandardFontOnceItIsThere) {
    String face = u"Arial";
    canvas->SelectSimpleFont(face, 0, tslFontStyleDefaultNumbers, 900);
    EXPECT_EQ(u"Verdana", name(font()));
    EXPECT_EQ(0, font().lfHeight) << "of size 0 before";
    EXPECT_EQ(900, font().lfEscapement);
    canvas->CreateStandardFonts();
    const std::int32_t before = gdiObjects();
    face = u"Arial";
    canvas->SelectSimpleFont(face, 300, tslFontStyleDefaultNumbers + tslFontStyleBold, 900);
    EXPECT_EQ(-mulDiv(82, P, 720), font().lfHeight);
    EXPECT_EQ(0, font().lfEscapement);
    EXPECT_EQ(500, font().lfWeight);
    EXPECT_EQ(u"Arial", face) << "not looked at";
    expectObjects(before - 1);
    canvas->SelectSimpleFont(face, 100, tslFontStyleBold);
    EXPECT_EQ(u"Arial", name(font())) << "no default typeface in this style";
}

TEST_F(cCanvas_Text, AFontObjectGivesItsAttributes) {
    const auto object = automation::make<host::StdFont>();
    object->Name(u"Arial");
    object->Size(automation::Currency::fromScaled(101900)); // 10.19
    object->Italic(true);
    canvas->SelectVBStdFont(object, tslFontStyleUnderline, 450, FontQuality_Draft);
    EXPECT_EQ(u"Arial", name(font()));
    EXPECT_EQ(-mulDiv(101, P, 720), font().lfHeight) << "101.9 tenths, truncated";
    EXPECT_NE(mulDiv(101, P, 720), mulDiv(102, P, 720));
    EXPECT_TRUE(font().lfItalic);
    EXPECT_TRUE(font().lfUnderline);
    EXPECT_FALSE(font().lfStrikeOut);
    EXPECT_EQ(500, font().lfWeight);
    EXPECT_EQ(450, font().lfEscapement);
    EXPECT_EQ(450, font().lfOrientation);
    EXPECT_EQ(1, font().lfQuality);
    EXPECT_EQ(1, font().lfCharSet);
    object->Bold(true);
    canvas->SelectVBStdFont(object);
    EXPECT_EQ(700, font().lfWeight);
    object->Bold(false);
    canvas->SelectVBStdFont(object, tslFontStyleBold);
    EXPECT_EQ(700, font().lfWeight);
    constexpr std::int32_t objectNotSet = 91;
    EXPECT_EQ(objectNotSet, errorOf([&] { canvas->SelectVBStdFont({}); }));
    constexpr std::int32_t overflow = 6;
    object->Size(automation::Currency(300'000'000));
    EXPECT_EQ(overflow, errorOf([&] { canvas->SelectVBStdFont(object); }))
        << "tenths of points beyond a Long";
}

TEST_F(cCanvas_Text, AFontObjectsAttributesAndTheStylesAddUp) {
    using Write = void (host::StdFont::*)(bool);
    const struct {
        Write write;
        tslFontStyleConstants style;
        platform::BYTE platform::LOGFONTW::*attribute;
    } attributes[] = {
        {&host::StdFont::Italic, tslFontStyleItalic, &platform::LOGFONTW::lfItalic},
        {&host::StdFont::Underline, tslFontStyleUnderline, &platform::LOGFONTW::lfUnderline},
        {&host::StdFont::Strikethrough, tslFontStyleStrikeOut, &platform::LOGFONTW::lfStrikeOut}};
    for (const auto& one : attributes) {
        const auto object = automation::make<host::StdFont>();
        canvas->SelectVBStdFont(object, tslFontStyleBold);
        EXPECT_FALSE(font().*one.attribute);
        canvas->SelectVBStdFont(object, one.style);
        EXPECT_TRUE(font().*one.attribute) << "by the style alone";
        EXPECT_EQ(500, font().lfWeight);
        (object.get()->*one.write)(true);
        canvas->SelectVBStdFont(object);
        EXPECT_TRUE(font().*one.attribute) << "by the object alone";
        EXPECT_EQ(1, font().lfItalic + font().lfUnderline + font().lfStrikeOut) << "and no other";
    }
}

TEST_F(cCanvas_Text, AWidthFactorStretchesTheLettersOnly) {
    const auto object = automation::make<host::StdFont>();
    object->Name(u"Arial");
    object->Size(automation::Currency(12));
    canvas->SelectVBStdFont(object);
    const auto plain = canvas->GetTextMetricsA();
    canvas->SelectVBStdFont(object, 0, 0, FontQuality_Default, 1.5);
    EXPECT_EQ(roundToLong(1.5 * plain.tmAveCharWidth), font().lfWidth);
    EXPECT_EQ(-mulDiv(120, P, 720), font().lfHeight);
    canvas->SelectVBStdFont(object, 0, 0, FontQuality_Default, -1.5);
    EXPECT_EQ(0, font().lfWidth) << "no factor";
}

TEST_F(cCanvas_Text, TextIsMeasuredAsTheBytesOfTheCodePage) {
    canvas->SelectFont(u"Verdana", -12);
    std::int32_t width = 0, height = 0, sum = 0;
    EXPECT_EQ(1, canvas->GetTextExtent(u"Año", width, height));
    for (const char16_t* letter : {u"A", u"ñ", u"o"}) {
        std::int32_t one = 0;
        canvas->GetTextExtent(letter, one, height);
        sum += one;
    }
    EXPECT_EQ(sum, width);
    EXPECT_EQ(canvas->GetTextMetricsA().tmHeight, height);
}

TEST_F(cCanvas_Text, TellsHowManyCharactersFit) {
    canvas->SelectFont(u"Verdana", -12);
    std::int32_t all = 0, height = 0, three = 0, ignored = 0;
    canvas->GetTextExtent(u"Textos", all, height);
    canvas->GetTextExtent(u"Tex", three, ignored);
    Array widths;
    std::int32_t width = 0;
    EXPECT_EQ(6, canvas->GetTextFitInExtent(u"Textos", 1000, widths, width, ignored));
    EXPECT_EQ(all, width);
    EXPECT_EQ(height, ignored);
    EXPECT_EQ(1, widths.lower());
    EXPECT_EQ(6, widths.upper());
    EXPECT_EQ(automation::VT_I4, widths.elementType());
    EXPECT_EQ(all, widths(6).asLong());
    EXPECT_EQ(three, widths(3).asLong());
    EXPECT_EQ(3, canvas->GetTextFitInExtent(u"Textos", three, widths, width, ignored));
    EXPECT_EQ(2, canvas->GetTextFitInExtent(u"Textos", three - 1, widths, width, ignored));
    EXPECT_EQ(6, widths.upper());
    EXPECT_EQ(0, canvas->GetTextFitInExtent(u"Textos", 0, widths, width, ignored));
}

TEST_F(cCanvas_Text, TheEmptyTextFitsWithoutAResult) {
    Array widths = Array::of({1, 2});
    std::int32_t width = 7, height = 8;
    EXPECT_EQ(0, canvas->GetTextFitInExtent(u"", 100, widths, width, height));
    EXPECT_EQ(2u, widths.size());
    EXPECT_EQ(7, width);
    EXPECT_EQ(8, height);
    const auto unconfigured = automation::make<cCanvas>();
    EXPECT_EQ(0, unconfigured->GetTextFitInExtent(u"texto", 100, widths, width, height));
    EXPECT_EQ(2u, widths.size()) << "no context to measure in";
    EXPECT_EQ(7, width);
}

TEST_F(cCanvas_Text, TextIsDrawnInItsColourWithoutABackground) {
    canvas->SelectFont(u"Verdana", -24);
    canvas->SetTextColor(red);
    canvas->FillBox(0, 0, 119, 59, yellow);
    EXPECT_EQ(1, canvas->TextOut(5, 5, u"HH"));
    const std::string drawn = pixels();
    EXPECT_NE(std::string::npos, drawn.find('R'));
    EXPECT_NE(std::string::npos, drawn.find('Y'));
    EXPECT_EQ(std::string::npos, drawn.find('#'));
}

TEST_F(cCanvas_Text, ABorderSurroundsTheText) {
    canvas->SelectFont(u"Verdana", -16);
    canvas->TextOutWithBorder(20, 20, u"abc", red, green);
    const std::string together = pixels();
    wipe();
    canvas->SetTextColor(green);
    for (const platform::POINT by :
         {platform::POINT{-1, -1}, {0, -1}, {1, -1}, {-1, 0}, {1, 0}, {-1, 1}, {0, 1}, {1, 1}})
        canvas->TextOut(20 + by.x, 20 + by.y, u"abc");
    canvas->SetTextColor(red);
    canvas->TextOut(20, 20, u"abc");
    EXPECT_EQ(pixels(), together);
    EXPECT_NE(std::string::npos, together.find('R'));
    EXPECT_NE(std::string::npos, together.find('G'));
    wipe();
    canvas->TextOutWithBorder(20, 20, u"abc", black, host::systemColor(platform::COLOR_HIGHLIGHT));
    std::size_t ofTheSystem = 0;
    for (std::int32_t y = 0; y < 60; ++y)
        for (std::int32_t x = 0; x < 120; ++x)
            ofTheSystem += at(x, y) == canvas->GetVBSysColor(host::systemColor(platform::COLOR_HIGHLIGHT));
    EXPECT_LT(20u, ofTheSystem);
}

TEST_F(cCanvas_Text, ABorderAtTheEndsOfLongDoesNotWrapRound) {
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                           most = std::numeric_limits<std::int32_t>::max();
    canvas->SelectFont(u"Verdana", -16);
    const std::string before = pixels();
    canvas->TextOutWithBorder(least, least, u"abc", red, green);
    canvas->TextOutWithBorder(most, most, u"abc", red, green);
    EXPECT_EQ(before, pixels());
}

TEST_F(cCanvas_Text, ATextIsCentredOnAPointWhateverItsAngle) {
    canvas->SelectFont(u"Verdana", -12);
    canvas->SetTextColor(white);
    std::int32_t W = 0, H = 0;
    canvas->GetTextExtent(u"centro", W, H);
    for (const double degrees : {0.0, 90.0, 30.0}) {
        const double angle = degrees * 3.14159265358979 / 180;
        const std::int32_t w = roundToLong(W * std::cos(angle) + H * std::sin(angle));
        const std::int32_t h = roundToLong(H * std::cos(angle) + W * std::sin(angle));
        const std::int32_t c = roundToLong(H * std::cos(angle));
        wipe();
        canvas->TextOutRotatedOnCenter(u"centro", degrees, 60, 30);
        const std::string centred = pixels();
        wipe();
        canvas->TextOut(roundToLong(60 - w / 2.0), roundToLong(30 + h / 2.0 - c), u"centro");
        EXPECT_EQ(pixels(), centred) << degrees;
        EXPECT_NE(std::string::npos, centred.find('#')) << degrees;
    }
}

TEST_F(cCanvas_Text, AlignmentIsReadAndWritten) {
    EXPECT_EQ(0, canvas->TextAlign());
    canvas->TextAlign(TextAlign_Right);
    EXPECT_EQ(TextAlign_Right, canvas->TextAlign());
    canvas->SelectFont(u"Verdana", -12);
    canvas->SetTextColor(white);
    canvas->TextOut(119, 0, u"abc");
    const std::string right = pixels();
    wipe();
    std::int32_t width = 0, height = 0;
    canvas->GetTextExtent(u"abc", width, height);
    canvas->TextAlign(static_cast<TextAlignConstants>(TextAlign_Left + TextAlign_Top));
    canvas->TextOut(119 - width, 0, u"abc");
    EXPECT_EQ(pixels(), right);
}

TEST_F(cCanvas_Text, JustificationSpreadsDotsOverBlanks) {
    canvas->SelectFont(u"Verdana", -12);
    std::int32_t plain = 0, spread = 0, height = 0;
    canvas->GetTextExtent(u"a b c", plain, height);
    EXPECT_EQ(1, canvas->SetTextJustify(10, 2));
    canvas->GetTextExtent(u"a b c", spread, height);
    EXPECT_EQ(plain + 10, spread);
    canvas->SetTextJustify(0, 0);
}

TEST_F(cCanvas_Text, MetricsAreThoseOfTheFont) {
    canvas->SelectFont(u"Verdana", -20, 0, true, false, false, 0, 0, 700);
    const TextMetricA_Type metrics = canvas->GetTextMetricsA();
    EXPECT_EQ(metrics.tmAscent + metrics.tmDescent, metrics.tmHeight);
    EXPECT_EQ(700, metrics.tmWeight);
    EXPECT_NE(0, metrics.tmItalic);
    EXPECT_GT(metrics.tmAveCharWidth, 0);
    EXPECT_EQ(0, automation::make<cCanvas>()->GetTextMetricsA().tmHeight);
}

TEST_F(cCanvas_Text, MetricsComeFieldByField) {
    bool overhangs = false, hasCharacterSet = false, hasLeading = false;
    for (const char16_t* face : {u"Arial", u"Courier New", u"System", u"Terminal", u"Courier"})
        for (const bool underlined : {false, true}) {
            canvas->SelectFont(face, -20, 0, false, underlined, !underlined, 0, 0, FontWeight_Bold,
                               FontCharSet_OEM);
            platform::TEXTMETRICA expected;
            platform::GetTextMetricsA(canvas->GetPaintDC(), &expected);
            const TextMetricA_Type metrics = canvas->GetTextMetricsA();
            const auto of = [](const auto& all) {
                return std::vector<std::int32_t>{
                    all.tmHeight,           all.tmAscent,           all.tmDescent,
                    all.tmInternalLeading,  all.tmExternalLeading,  all.tmAveCharWidth,
                    all.tmMaxCharWidth,     all.tmWeight,           all.tmOverhang,
                    all.tmDigitizedAspectX, all.tmDigitizedAspectY, all.tmFirstChar,
                    all.tmLastChar,         all.tmDefaultChar,      all.tmBreakChar,
                    all.tmItalic,           all.tmUnderlined,       all.tmStruckOut,
                    all.tmPitchAndFamily,   all.tmCharSet};
            };
            EXPECT_EQ(of(expected), of(metrics)) << String(face).utf8();
            EXPECT_EQ(underlined, metrics.tmUnderlined != 0);
            EXPECT_EQ(underlined, metrics.tmStruckOut == 0);
            overhangs |= metrics.tmOverhang != 0;
            hasCharacterSet |= metrics.tmCharSet != 0;
            hasLeading |= metrics.tmInternalLeading != metrics.tmExternalLeading;
        }
    EXPECT_TRUE(overhangs || hasCharacterSet || hasLeading) << "no field told from another";
}
