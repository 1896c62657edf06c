// The canvas called by name, as programs of other languages call it.
#include "CanvasTest.h"
#include "automation/ClassTable.h"
#include "automation/Conversions.h"
#include "platform/windows.h"
#include "support/Canvas.h"

#include <map>
#include <set>

using namespace tesela;
using namespace tests;
using automation::Array;
using automation::callMethod;
using automation::getProperty;
using automation::Member;
using automation::MemberKind;
using automation::Ref;
using automation::String;
using automation::Variant;

namespace {

class cCanvas_ByName : public CanvasTest {
protected:
    template <class... A>
    Variant call(std::u16string_view name, A&&... arguments) {
        return callMethod(*canvas, name, std::forward<A>(arguments)...);
    }
    template <class... A>
    std::int32_t number(std::u16string_view name, A&&... arguments) {
        return automation::fromVariant<std::int32_t>(call(name, std::forward<A>(arguments)...));
    }
};

std::int32_t asLong(platform::HDC dc) {
    return static_cast<std::int32_t>(dc.value);
}

/// What an argument that is left out counts as, as text.
std::string defaultOf(const automation::Parameter& parameter) {
    const Variant& value = parameter.defaultValue;
    if (!value.isMissing())
        return value.type() == automation::VT_BOOL ? (value.asBoolean() ? "True" : "False")
                                                   : automation::CStr(value).utf8();
    switch (parameter.type.tag) { // nothing stated: the type's own zero
    case automation::VT_BSTR:
        return "";
    case automation::VT_BOOL:
        return "False";
    default:
        return "0";
    }
}

constexpr const char16_t* inOrder[] = {
    u"Minimize_GDI_UsedResources",
    u"DeleteDC",
    u"ReleaseDC",
    u"Configure",
    u"Resize",
    u"BeginPaint",
    u"EndPaint",
    u"Width",
    u"Height",
    u"ScaleX",
    u"ScaleY",
    u"CreateFromPicture",
    u"CreateInPictureBox",
    u"BeginRecordMetafile",
    u"EndRecordMetafile",
    u"DeleteMetafile",
    u"PlayMetafile",
    u"SelectObject",
    u"DeleteObject",
    u"GetStockObject",
    u"CreateRECT",
    u"ComprobarPaletaSemitonos",
    u"CreatePen",
    u"SelectPen",
    u"SelectSimplePen",
    u"SelectNullPen",
    u"CreateHatchBrush",
    u"SelectHatchBrush",
    u"CreatePatternBrush",
    u"SelectPatternBrush",
    u"CreateSolidBrush",
    u"SelectSolidBrush",
    u"SelectNullBrush",
    u"SetDrawMode",
    u"SetBkMode",
    u"SetBkColor",
    u"SetTextColor",
    u"GetNearestSolidColor",
    u"GetVBSysColor",
    u"SetVBSysColor",
    u"GetPixel",
    u"SetPixel",
    u"MoveTo",
    u"LineTo",
    u"DrawLine",
    u"GetDC",
    u"GetWindowDC",
    u"GetPaintDC",
    u"GetTargetDC",
    u"DrawBox",
    u"FillBox",
    u"FillRect",
    u"GradientFillRect",
    u"FloodFill",
    u"Clear",
    u"Rectangle",
    u"Ellipse",
    u"RoundRect",
    u"Pie",
    u"Chord",
    u"Sector",
    u"Cuerda",
    u"Arc",
    u"Arco",
    u"Polygon",
    u"Polyline",
    u"PolylineTo",
    u"PolyBezier",
    u"PolyBezierTo",
    u"DrawTriangle",
    u"CreateFont",
    u"CreateSimpleFont",
    u"SelectFont",
    u"SelectSimpleFont",
    u"SelectVBStdFont",
    u"CreateStandardFonts",
    u"SelectStdFont",
    u"TextOut",
    u"TextOutWithBorder",
    u"TextOutRotatedOnCenter",
    u"GetTextExtent",
    u"GetTextFitInExtent",
    u"TextAlign",
    u"TextAlign",
    u"SetTextJustify",
    u"GetTextMetricsA",
    u"GetDevCaps",
    u"CalculateTextSize",
    u"CalculatePenWidth",
    u"DIB_StretchBlt",
    u"BitBlt",
    u"StretchBlt",
    u"SetStretchBltMode",
    u"TransparentBlt",
    u"AlphaBlend",
    u"CalculateColorMix",
    u"RectangleTranslucency",
    u"ApplyTranslucency",
    u"PaintPicture",
    u"BitMap2Picture",
    u"Bytes2Picture",
    u"GetResPicture",
    u"GetSysPicture",
    u"Paint",
    u"ClearClipping",
    u"SetClippingRect",
    u"GetClippingRect",
    u"SetClippingPath",
    u"GetWndOrg",
    u"SetWndOrg",
    u"BeginPath",
    u"EndPath",
    u"AbortPath",
    u"CloseFigure",
    u"StrokePath",
    u"FillPath",
    u"StrokeAndFillPath",
    u"PathToRegion",
    u"CopyToClipboard",
    u"GlobalCtlCfg",
    u"GlobalCtlCfg",
    u"ExplodingRect",
};

} // namespace

TEST(cCanvas_Table, HasItsMembersInOrder) {
    const auto& members = cCanvas::table().members();
    ASSERT_EQ(122u, std::size(inOrder));
    ASSERT_EQ(std::size(inOrder), members.size());
    for (std::size_t i = 0; i < members.size(); ++i)
        EXPECT_EQ(inOrder[i], members[i].name) << i;
    EXPECT_EQ(u"cCanvas", cCanvas::table().name());
}

TEST(cCanvas_Table, SaysWhatMayBeLeftOutAndWhatThenCounts) {
    const std::map<std::string, std::string> expected = {
        {"Configure", "nHDC_Provider=0 lStatic_HDC_Target=True"},
        {"Resize", "nNewCompatDC=0"},
        {"ScaleX", "nFrom=3 nTo=3"},
        {"ScaleY", "nFrom=3 nTo=3"},
        {"CreateInPictureBox", "lCopyPicture=False"},
        {"BeginRecordMetafile", "cFileName= cAplicacion= cDescripcion="},
        {"EndRecordMetafile", "lPlayToTargetDC=True"},
        {"PlayMetafile", "nWidth=0 nHeight=0"},
        {"DrawLine", "x2=-32767 y2=-32767 nRGB=-1"},
        {"DrawBox", "nRGB=-1 nRGB_Shadow=-1"},
        {"FillRect", "nHBrush=-1"},
        {"DrawTriangle", "nAngle=270"},
        {"CreateFont", "nHeight=0 nWidth=0 lItalic=False lUnderline=False lStrikeOut=False nEscapement=0 "
                       "nOrientation=0 nWeight=400 nCharSet=1 nOutputPrecision=0 nClipPrecision=0 nQuality=0 "
                       "nPitchAndFamily=0"},
        {"SelectFont", "nHeight=0 nWidth=0 lItalic=False lUnderline=False lStrikeOut=False nEscapement=0 "
                       "nOrientation=0 nWeight=400 nCharSet=1 nOutputPrecision=0 nClipPrecision=0 nQuality=0 "
                       "nPitchAndFamily=0"},
        {"CreateSimpleFont", "nSizeDeciPuntos=0 nStyle=0 nAngle=0 nQuality=0"},
        {"SelectSimpleFont", "nSizeDeciPuntos=0 nStyle=0 nAngle=0 nQuality=0"},
        {"SelectVBStdFont", "nStyle=0 nAngle=0 nQuality=0 nWidthFactor=0"},
        {"CreateStandardFonts", "lUseScaleForForms=False nFactorAmpliacion=0"},
        {"GetTextFitInExtent", "nWidth=0 nHeight=0"},
        {"DIB_StretchBlt", "nXSrc=0 nYSrc=0 nSrcWidth=0 nSrcHeight=0 nRasterOp=13369376"},
        {"BitBlt", "nXSrc=0 nYSrc=0 nRasterOp=13369376"},
        {"StretchBlt", "nXSrc=0 nYSrc=0 nSrcWidth=0 nSrcHeight=0 nRasterOp=13369376"},
        {"TransparentBlt", "nXSrc=0 nYSrc=0 nSrcWidth=0 nSrcHeight=0 nTransparentColor=16777215"},
        {"AlphaBlend", "nXSrc=0 nYSrc=0 nSrcWidth=0 nSrcHeight=0 nTransparencia=128"},
        {"PaintPicture", "nWidth=0 nHeight=0 nXSrc=0 nYSrc=0 nWidthSrc=0 nHeightScr=0 nRasterOp=13369376"},
        {"BitMap2Picture", "hBitmap=0 hPalette=0 nType=0"},
        {"GetResPicture", "nType=1 nHInstance=0"},
        {"GetSysPicture", "nType=0"},
        {"Paint", "nActualDC=0 nOffsetXSource=0 nOffsetYSource=0 nOffsetXTarget=0 nOffsetYTarget=0 "
                  "nWidthSource=0 nHeightSource=0"},
        {"ClearClipping", "lZero=False"},
        {"SetClippingRect", "lZero=False"},
        {"CopyToClipboard", "nHEMF=0"},
    };
    std::map<std::string, std::string> found;
    for (const Member& member : cCanvas::table().members())
        for (const auto& parameter : member.parameters) {
            if (!parameter.optional) continue;
            std::string& list = found[member.name.utf8()];
            if (!list.empty()) list += ' ';
            list += parameter.name.utf8() + '=' + defaultOf(parameter);
        }
    EXPECT_EQ(expected, found);
}

TEST(cCanvas_Table, SaysWhatIsReadAndWrittenLikeAValue) {
    std::string kinds;
    for (const Member& member : cCanvas::table().members()) {
        if (member.kind == MemberKind::Get) kinds += "get " + member.name.utf8() + "; ";
        if (member.kind == MemberKind::Let) kinds += "let " + member.name.utf8() + "; ";
    }
    EXPECT_EQ("get Width; get Height; get TextAlign; let TextAlign; get GlobalCtlCfg; let GlobalCtlCfg; ",
              kinds);
}

TEST(cCanvas_Table, MarksWhatComesBackThroughItsArguments) {
    const auto byReference = [](std::u16string_view name) {
        std::vector<std::string> found;
        const auto& table = cCanvas::table();
        const Member* member = table.member(table.find(name), automation::CallKind::Method);
        for (const auto& parameter : member->parameters)
            if (parameter.byReference) found.push_back(parameter.name.utf8());
        return found;
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ((Names{"nOffsetXSource", "nOffsetYSource", "nOffsetXTarget", "nOffsetYTarget", "nWidthSource",
                     "nHeightSource"}),
              byReference(u"Paint"));
    EXPECT_EQ((Names{"cTypeface"}), byReference(u"CreateSimpleFont"));
    EXPECT_EQ((Names{"cTypeface"}), byReference(u"SelectSimpleFont"));
    EXPECT_EQ((Names{"nWidth", "nHeight"}), byReference(u"GetTextExtent"));
    EXPECT_EQ((Names{"aWidths", "nWidth", "nHeight"}), byReference(u"GetTextFitInExtent"));
    EXPECT_EQ((Names{"xClipRect"}), byReference(u"GetClippingRect"));
    EXPECT_EQ((Names{"nX", "nY"}), byReference(u"GetWndOrg"));
    EXPECT_EQ((Names{"oPic"}), byReference(u"CreateFromPicture"));
    EXPECT_EQ((Names{"oPBox"}), byReference(u"CreateInPictureBox"));
    EXPECT_EQ((Names{}), byReference(u"DrawLine"));
}

TEST(cCanvas_Table, BringsItsEnumerationsAlong) {
    std::set<std::string> names;
    for (const Member& member : cCanvas::table().members()) {
        if (member.result.enumeration) names.insert(member.result.enumeration().name().utf8());
        for (const auto& parameter : member.parameters)
            if (parameter.type.enumeration) names.insert(parameter.type.enumeration().name().utf8());
    }
    for (const char* name :
         {"DCProviderConstants", "PenStyleConstants", "HatchStyleConstants", "BackModeConstants",
          "BinaryMixModeConstants", "ClipPathModeConstants", "StretchBltConstants",
          "GDIStockObjectsConstants", "GDIDeviceCapsConstants", "FontCharSetConstants",
          "FontOutputPrecisionConstants", "FontClipPrecisionConstants", "FontQualityConstants",
          "FontPitchAndFamilyConstants", "TextAlignConstants", "SystemColorConstants", "tslStdFontsConstants",
          "tslCtlGlobalCfgConstants"})
        EXPECT_TRUE(names.contains(name)) << name;
    EXPECT_EQ(15, enumerationOf(SystemColor_BtnFace).find(u"systemcolor_btnface"));
    EXPECT_EQ(10, enumerationOf(BinaryMixMode_Not).find(u"BinaryMixMode_NotXorPen"));
    EXPECT_EQ(500, enumerationOf(FontWeight_Bold).find(u"FontWeight_Medium"));
    EXPECT_EQ(3, enumerationOf(BrushStyle_Solid).find(u"BrushStyle_Pattern"));
    EXPECT_EQ(7, enumerationOf(GDIObjectType_Pen).find(u"GDIObjectType_Bitmap"));
    EXPECT_EQ(32, enumerationOf(tslFontStyleBold).find(u"tslFontStyleStrikeOut"));
    EXPECT_EQ(14, enumerationOf(GDIObjectType_Pen).find(u"GDIObjectType_ColorSpace"));
    EXPECT_EQ(121, enumerationOf(GDIDeviceCaps_BitsPixel).find(u"GDIDeviceCaps_ColorMgmtCaps"));
    EXPECT_EQ(6, enumerationOf(FontQuality_Default).find(u"FontQuality_ClearTypeNatural"));
    EXPECT_EQ(64, enumerationOf(FontClipPrecision_Default).find(u"FontClipPrecision_DFADisable"));
    EXPECT_EQ(8, enumerationOf(FontPitchAndFamily_Default).find(u"FontPitchAndFamily_Mono"));
}

TEST_F(cCanvas_ByName, DrawsLinesBoxesAndFills) {
    call(u"FillBox", 0, 0, 2, 2, red);
    EXPECT_EQ(red, number(u"GetPixel", 2, 2));
    call(u"DrawLine", 4, 0, 7, 0, Variant::missing());
    call(u"drawline", 0, 5, 3, 5, blue);
    EXPECT_EQ(blue, number(u"GetPixel", 3, 5));
    call(u"DrawBox", 5, 5, 9, 9, green, red);
    EXPECT_EQ(green, number(u"GetPixel", 5, 5));
    EXPECT_EQ(red, number(u"GetPixel", 9, 9));
    call(u"SelectSolidBrush", yellow);
    call(u"FillRect", 12, 0, 13, 1);
    EXPECT_EQ(yellow, at(13, 1));
    EXPECT_EQ(1, number(u"GradientFillRect", 12, 4, 14, 6, true, red, red));
    EXPECT_EQ(red, at(13, 5));
    call(u"FloodFill", 23, 15, black, true);
    EXPECT_EQ(yellow, at(20, 10));
    call(u"SetPixel", 0, 0, white);
    EXPECT_EQ(white, at(0, 0));
    call(u"MoveTo", 0, 14);
    call(u"SelectSimplePen", red);
    call(u"LineTo", 3, 14);
    EXPECT_EQ(red, at(2, 14));
    call(u"Clear");
    EXPECT_EQ(number(u"GetVBSysColor", host::colorButtonFace), at(0, 0));
}

TEST_F(cCanvas_ByName, DrawsShapes) {
    call(u"SelectPen", PenStyle_Solid, 1, red);
    call(u"SelectHatchBrush", HatchStyle_Cross, green);
    for (const char16_t* shape : {u"Rectangle", u"Ellipse"}) {
        call(u"FillBox", 0, 0, 23, 15, black);
        EXPECT_EQ(1, number(shape, 1, 1, 20, 12));
        EXPECT_NE(std::string::npos, picture(24, 16).find('R'));
    }
    EXPECT_EQ(1, number(u"RoundRect", 1, 1, 20, 12, 4, 4));
    for (const char16_t* piece : {u"Pie", u"Chord", u"Arc"})
        EXPECT_EQ(1, number(piece, 1, 1, 20, 12, 20, 6, 10, 1));
    for (const char16_t* piece : {u"Sector", u"Cuerda", u"Arco"})
        EXPECT_EQ(1, number(piece, 1, 1, 20, 12, 0.0, 1.5));
    call(u"SelectNullBrush");
    call(u"SelectNullPen");
    call(u"DrawTriangle", 5, 5, 3, red);
    call(u"DrawTriangle", 15, 5, 3, red, 90);
    EXPECT_EQ(red, at(15, 4));
}

TEST_F(cCanvas_ByName, TakesArraysOfAnyNumbers) {
    call(u"SelectSimplePen", red);
    Array x(automation::VT_I4, {{1, 3}}), y(automation::VT_I2, {{1, 3}});
    const std::int32_t corners[][2] = {{1, 1}, {10, 1}, {5, 9}};
    for (std::int32_t i = 0; i < 3; ++i) {
        x.set(Variant(corners[i][0]), i + 1);
        y.set(Variant(corners[i][1]), i + 1);
    }
    for (const char16_t* name : {u"Polygon", u"Polyline", u"PolylineTo", u"PolyBezierTo"}) {
        call(u"FillBox", 0, 0, 23, 15, black);
        call(u"MoveTo", 0, 0);
        EXPECT_EQ(1, number(name, 3, Variant(x), Variant::byRef(y))) << String(name).utf8();
        EXPECT_NE(std::string::npos, picture(24, 16).find('R'));
    }
    const Variant mixed = Array::of({1, 5.0, std::int16_t{9}, u"12"});
    EXPECT_EQ(1, number(u"PolyBezier", 4, mixed, mixed));
}

TEST_F(cCanvas_ByName, GivesSizesThroughItsArguments) {
    call(u"SelectFont", u"Verdana", -12);
    std::int32_t width = 0, height = 0;
    EXPECT_EQ(1, number(u"GetTextExtent", u"texto", Variant::byRef(width), Variant::byRef(height)));
    EXPECT_GT(width, 10);
    EXPECT_GT(height, 5);
    Array widths;
    std::int32_t all = 0, tall = 0;
    EXPECT_EQ(5, number(u"GetTextFitInExtent", u"texto", width, Variant::byRef(widths), Variant::byRef(all),
                        Variant::byRef(tall)));
    EXPECT_EQ(width, all);
    EXPECT_EQ(height, tall);
    EXPECT_EQ(width, widths(5).asLong());
    Variant later = Array(automation::VT_I4);
    EXPECT_EQ(5, number(u"GetTextFitInExtent", u"texto", 1000, Variant::byRef(later)));
    EXPECT_EQ(5u, later.asArray().size());
}

TEST_F(cCanvas_ByName, PaintGivesItsVariablesBack) {
    const test::Canvas target(30, 20);
    call(u"FillBox", 0, 0, 23, 15, red);
    std::int32_t width = 0, height = 0;
    call(u"Paint", asLong(target.dc()), 0, 0, 2, 3, Variant::byRef(width), Variant::byRef(height));
    EXPECT_EQ(24, width);
    EXPECT_EQ(16, height);
    EXPECT_EQ(static_cast<platform::COLORREF>(red), target.at(2, 3));
    call(u"Paint", asLong(target.dc()));
    EXPECT_EQ(static_cast<platform::COLORREF>(red), target.at(0, 0));
}

TEST_F(cCanvas_ByName, MakesFontsAndTellsTheirNames) {
    String face = u"Arial";
    const std::int32_t font =
        number(u"CreateSimpleFont", Variant::byRef(face), 80, tslFontStyleDefaultNumbers);
    EXPECT_EQ(u"Verdana", face);
    EXPECT_NE(0, number(u"SelectObject", font));
    call(u"SelectObject", number(u"GetStockObject", GDIStockObjects_SystemFont));
    EXPECT_EQ(1, number(u"DeleteObject", font));
    EXPECT_EQ(1, number(u"DeleteObject", number(u"CreateFont", u"Arial", 12)));
    call(u"SelectSimpleFont", Variant::byRef(face), 80);
    call(u"CreateStandardFonts");
    call(u"CreateStandardFonts", true, 1.5);
    call(u"SelectStdFont", tslStdFont_Fixed);
    const auto object = automation::make<host::StdFont>();
    call(u"SelectVBStdFont", Variant(object), tslFontStyleBold, 0, 0, 1.2);
    const Variant metrics = call(u"GetTextMetricsA");
    EXPECT_EQ(700, metrics.asRecord()->field(u"tmweight").asLong());
    EXPECT_GT(metrics.asRecord()->field(u"tmHeight").asLong(), 0);
    EXPECT_EQ(automation::VT_UI1, metrics.asRecord()->field(u"tmItalic").type());
}

TEST_F(cCanvas_ByName, WritesText) {
    call(u"SetTextColor", white);
    call(u"SetBkColor", blue);
    call(u"SetBkMode", BackMode_Opaque);
    EXPECT_EQ(1, number(u"TextOut", 0, 0, u"x"));
    EXPECT_NE(std::string::npos, picture(24, 16).find('B'));
    call(u"TextOutWithBorder", 2, 2, u"x", red, green);
    call(u"TextOutRotatedOnCenter", u"x", 0, 10, 8);
    automation::setProperty(*canvas, u"TextAlign", TextAlign_Center);
    EXPECT_EQ(TextAlign_Center, getProperty(*canvas, u"TextAlign").asLong());
    EXPECT_EQ(1, number(u"SetTextJustify", 0, 0));
    EXPECT_EQ(11, number(u"CalculateTextSize", 82));
    EXPECT_EQ(automation::VT_R4, call(u"CalculatePenWidth", 2).type());
}

TEST_F(cCanvas_ByName, CopiesBlocks) {
    const test::Canvas source(8, 8);
    const platform::RECT all{0, 0, 8, 8};
    platform::FillRect(source.dc(), &all,
                       platform::HBRUSH(platform::GetStockObject(platform::WHITE_BRUSH).value));
    const std::int32_t dc = asLong(source.dc());
    EXPECT_EQ(1, number(u"BitBlt", dc, 0, 0, 4, 4));
    EXPECT_EQ(white, at(3, 3));
    EXPECT_EQ(1, number(u"StretchBlt", dc, 4, 0, 4, 4, 0, 0, 8, 8));
    EXPECT_EQ(0, number(u"DIB_StretchBlt", dc, 8, 0, 4, 4));
    EXPECT_EQ(white, at(9, 1));
    call(u"TransparentBlt", dc, 12, 0, 4, 4);
    EXPECT_EQ(black, at(13, 1));
    EXPECT_EQ(1, number(u"AlphaBlend", dc, 16, 0, 4, 4, 0, 0, 0, 0, std::uint8_t{255}));
    EXPECT_EQ(white, at(17, 1));
    call(u"SetStretchBltMode", StretchBlt_HalfTone);
    EXPECT_EQ(StretchBlt_HalfTone, number(u"SetStretchBltMode", StretchBlt_ColorOnColor));
    EXPECT_EQ(0x010203, number(u"CalculateColorMix", 0x010203, white, 255));
    constexpr std::int32_t overflow = 6;
    EXPECT_EQ(overflow, errorOf([&] { call(u"CalculateColorMix", 0, 0, 256); })) << "a byte";
    call(u"RectangleTranslucency", 0, 8, 4, 12, red, 255);
    EXPECT_EQ(red, at(1, 9));
    call(u"ApplyTranslucency", green, 0);
    call(u"SetDrawMode", BinaryMixMode_CopyPen);
    call(u"ExplodingRect", 0, 0, 1, 1, 2, 2, 9, 9);
}

TEST_F(cCanvas_ByName, HandlesObjectsAndContexts) {
    const std::int32_t before = gdiObjects();
    const test::Canvas pattern(8, 8, 1);
    const std::int32_t pen = number(u"CreatePen", PenStyle_Dot, 1, red);
    const std::int32_t hatch = number(u"CreateHatchBrush", HatchStyle_Cross, red);
    const std::int32_t solid = number(u"CreateSolidBrush", red);
    const std::int32_t tiles =
        number(u"CreatePatternBrush", static_cast<std::int32_t>(pattern.bitmap().value));
    call(u"SelectPatternBrush", static_cast<std::int32_t>(pattern.bitmap().value));
    for (const std::int32_t object : {pen, hatch, solid, tiles})
        EXPECT_EQ(1, number(u"DeleteObject", object));
    call(u"Minimize_GDI_UsedResources");
    expectObjects(before + 2);
    const std::int32_t screen = number(u"GetDC", 0);
    EXPECT_EQ(1, number(u"ReleaseDC", 0, screen));
    EXPECT_EQ(1, number(u"ReleaseDC", 0, number(u"GetWindowDC", 0)));
    EXPECT_EQ(0, number(u"DeleteDC", 0));
    EXPECT_EQ(asLong(canvas->GetPaintDC()), number(u"GetPaintDC"));
    EXPECT_EQ(96, number(u"GetDevCaps", GDIDeviceCaps_LogPixelsX));
    EXPECT_EQ(0x123456, number(u"GetNearestSolidColor", 0x123456));
    call(u"ComprobarPaletaSemitonos");
}

TEST_F(cCanvas_ByName, TravelsWithRecords) {
    Variant rect = call(u"CreateRECT", 1, 2, 5, 6);
    EXPECT_EQ(5, rect.asRecord()->field(u"right").asLong());
    EXPECT_NE(0, number(u"SetClippingRect", rect));
    Ref<automation::Record> read = automation::make<automation::RecordOf<RECT_Type>>();
    EXPECT_EQ(platform::SIMPLEREGION, number(u"GetClippingRect", Variant::byRef(read)));
    EXPECT_EQ(2, read->field(u"Top").asLong());
    EXPECT_NE(0, number(u"ClearClipping", true));
    std::int32_t x = 9, y = 9;
    EXPECT_EQ(1, number(u"SetWndOrg", 3, 4));
    EXPECT_EQ(1, number(u"GetWndOrg", Variant::byRef(x), Variant::byRef(y)));
    EXPECT_EQ(3, x);
    EXPECT_EQ(4, y);
    EXPECT_EQ(0, recordOf(static_cast<const TriVertex_TYPE*>(nullptr)).create()->field(u"alpha").asInteger());
    EXPECT_EQ(2u, recordOf(static_cast<const GradientRect_TYPE*>(nullptr)).fields().size());
    EXPECT_EQ(4u, recordOf(static_cast<const BlendFunction_TYPE*>(nullptr)).fields().size());
}

TEST_F(cCanvas_ByName, RecordsPaths) {
    EXPECT_EQ(1, number(u"BeginPath"));
    EXPECT_EQ(1, number(u"AbortPath"));
    for (const char16_t* use : {u"StrokePath", u"FillPath", u"StrokeAndFillPath", u"PathToRegion"}) {
        call(u"BeginPath");
        call(u"MoveTo", 1, 1);
        call(u"LineTo", 9, 1);
        call(u"LineTo", 5, 9);
        EXPECT_EQ(1, number(u"CloseFigure"));
        EXPECT_EQ(1, number(u"EndPath"));
        const std::int32_t result = number(use);
        EXPECT_NE(0, result) << String(use).utf8();
        if (use == std::u16string_view(u"PathToRegion")) call(u"DeleteObject", result);
    }
    call(u"BeginPath");
    call(u"Rectangle", 1, 1, 5, 5);
    call(u"EndPath");
    EXPECT_EQ(1, number(u"SetClippingPath", ClipPathMode_Copy));
}

TEST_F(cCanvas_ByName, CarriesPicturesAndMetafiles) {
    const Variant icon = call(u"GetResPicture", 125);
    ASSERT_TRUE(icon.isObject());
    call(u"PaintPicture", icon, 0, 0);
    EXPECT_EQ(red, at(1, 1));
    EXPECT_TRUE(call(u"GetResPicture", u"NADA").isNothing());
    call(u"GetSysPicture", 1);
    EXPECT_FALSE(call(u"BitMap2Picture").isNothing());
    EXPECT_TRUE(call(u"Bytes2Picture", Variant(Array(automation::VT_UI1))).isNothing());
    Ref<automation::Object> object = icon.asObject();
    EXPECT_TRUE(call(u"CreateFromPicture", Variant::byRef(object), 0).asBoolean());
    EXPECT_FALSE(call(u"CreateInPictureBox", Variant::byRef(object)).asBoolean());
    const platform::HDC screen = platform::GetDC({});
    EXPECT_TRUE(call(u"Configure", asLong(screen), 0, 0, 20, 20).asBoolean());
    EXPECT_EQ(asLong(screen), number(u"GetTargetDC"));
    EXPECT_TRUE(call(u"BeginRecordMetafile").asBoolean());
    call(u"FillBox", 0, 0, 9, 9, red);
    const std::int32_t metafile = number(u"EndRecordMetafile", false);
    EXPECT_TRUE(call(u"PlayMetafile", metafile, 0, 0, 20, 20).asBoolean());
    EXPECT_TRUE(call(u"DeleteMetafile", metafile).asBoolean());
    call(u"CopyToClipboard");
    platform::ReleaseDC({}, screen);
}

TEST_F(cCanvas_ByName, HasItsLifeAndItsSize) {
    EXPECT_TRUE(call(u"Configure", 0, 0, 0, 30, 20, DCProvider_Auto, false).asBoolean());
    EXPECT_EQ(30, getProperty(*canvas, u"Width").asLong());
    EXPECT_EQ(20, getProperty(*canvas, u"Height").asLong());
    call(u"EndPaint");
    EXPECT_EQ(0, number(u"GetPaintDC"));
    call(u"BeginPaint");
    EXPECT_TRUE(call(u"Resize", 40, 30).asBoolean());
    EXPECT_EQ(40, getProperty(*canvas, u"Width").asLong());
    EXPECT_EQ(automation::VT_R4, call(u"ScaleX", 10).type());
    EXPECT_EQ(15.0f, call(u"ScaleY", 1.0, 3, 1).asSingle());
    automation::setProperty(*canvas, u"GlobalCtlCfg", tslCtlGlobalCfg_Btn_Face, red);
    EXPECT_EQ(red, getProperty(*canvas, u"GlobalCtlCfg", tslCtlGlobalCfg_Btn_Face).asLong());
}

TEST_F(cCanvas_ByName, RefusesWrongArguments) {
    constexpr std::int32_t mismatch = 13, notOptional = 449, tooMany = 450, noMember = 438;
    EXPECT_EQ(mismatch, errorOf([&] { call(u"FillBox", 0, 0, 1, 1, u"rojo"); }));
    EXPECT_EQ(notOptional, errorOf([&] { call(u"FillBox", 0, 0, 1, 1); }));
    EXPECT_EQ(tooMany, errorOf([&] { call(u"Clear", 1); }));
    EXPECT_EQ(noMember, errorOf([&] { call(u"Borrar"); }));
    EXPECT_EQ(mismatch, errorOf([&] { call(u"SetClippingRect", 5); }));
    EXPECT_EQ(mismatch, errorOf([&] { call(u"PaintPicture", Variant(canvas), 0, 0); }));
}
