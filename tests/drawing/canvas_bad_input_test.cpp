// What no program should hand to a canvas and some will: handles of the wrong kind, fonts that do not exist,
// pictures that are cut short. Each fails as it is told, and nothing is left behind.
#include "CanvasTest.h"
#include "support/Canvas.h"

#include <algorithm>

using namespace tesela;
using namespace tests;
using automation::Array;
using automation::String;

namespace {

/// Handles of each kind, one that is no more, one that never was, and none.
class cCanvas_BadInput : public CanvasTest {
protected:
    cCanvas_BadInput() {
        const platform::HBRUSH gone = canvas->CreateSolidBrush(red);
        canvas->DeleteObject(gone);
        noContexts = {0, 0x7FFF1234, gone.value, pen.value, brush.value, font.value, bitmap.value};
        noObjects = {0, 0x7FFF1234, gone.value};
        before = gdiObjects();
    }
    ~cCanvas_BadInput() override {
        for (const platform::HGDIOBJ object : {pen, brush, font, bitmap})
            canvas->DeleteObject(object);
    }

    const platform::HGDIOBJ pen = canvas->CreatePen(PenStyle_Solid, 1, red);
    const platform::HGDIOBJ brush = canvas->CreateSolidBrush(red);
    const platform::HGDIOBJ font = canvas->CreateFont(u"Arial", 10);
    const platform::HGDIOBJ bitmap = platform::CreateBitmap(8, 8, 1, 1, nullptr);
    std::vector<std::uint32_t> noContexts, noObjects;
    std::int32_t before = 0;
};

} // namespace

TEST_F(cCanvas_BadInput, NothingIsCopiedFromWhatIsNoContext) {
    for (const std::uint32_t value : noContexts) {
        const platform::HDC source(value);
        EXPECT_EQ(0, canvas->BitBlt(source, 0, 0, 8, 8)) << value;
        EXPECT_EQ(0, canvas->StretchBlt(source, 0, 0, 8, 8, 0, 0, 4, 4)) << value;
        EXPECT_EQ(0, canvas->AlphaBlend(source, 0, 0, 8, 8)) << value;
        EXPECT_EQ(1, canvas->DIB_StretchBlt(source, 0, 0, 8, 8)) << value;
        EXPECT_EQ("..........\n", picture(10, 1)) << value;
        canvas->TransparentBlt(source, 0, 0, 8, 8);
        canvas->Paint(source);
        EXPECT_EQ(0, automation::fromVariant<std::int32_t>(canvas->DeleteDC(source))) << value;
        EXPECT_EQ(0, canvas->ReleaseDC({}, source)) << value;
        expectObjects(before);
    }
}

TEST_F(cCanvas_BadInput, ACanvasOfWhatIsNoContextHasNoSurface) {
    for (const std::uint32_t value : noContexts) {
        if (value == 0) continue; // to be configured later
        for (const DCProviderConstants provider : {DCProvider_Auto, DCProvider_User}) {
            const auto made = automation::make<cCanvas>();
            EXPECT_EQ(provider == DCProvider_User,
                      made->Configure(platform::HDC(value), 0, 0, 8, 8, provider))
                << value;
            made->SelectNullPen();
            made->FillBox(0, 0, 7, 7, red);
            made->DrawBox(0, 0, 7, 7);
            made->Paint();
            EXPECT_EQ(-1, made->GetPixel(0, 0)) << value;
            EXPECT_EQ(0, made->TextOut(0, 0, u"texto")) << value;
            EXPECT_FALSE(made->BitMap2Picture()) << value;
        }
        expectObjects(before);
    }
    for (const platform::HGDIOBJ object : {pen, brush, font, bitmap})
        EXPECT_NE(0u, platform::GetObjectType(object)) << "still the caller's";
}

TEST_F(cCanvas_BadInput, ResizingForWhatIsNoContextLosesThePictureOnly) {
    EXPECT_FALSE(canvas->Resize(30, 20, platform::HDC(0x7FFF1234)));
    canvas->FillBox(0, 0, 5, 5, red);
    EXPECT_TRUE(canvas->Resize(30, 20, canvas->GetPaintDC()));
    const test::Canvas target(4, 4);
    EXPECT_TRUE(canvas->Resize(30, 20, target.dc()));
    canvas->FillBox(0, 0, 29, 19, green);
    EXPECT_EQ(green, at(29, 19));
}

TEST_F(cCanvas_BadInput, WhatIsNoObjectIsNotSelectedNorEndedNorPlayed) {
    for (const std::uint32_t value : noObjects) {
        EXPECT_FALSE(canvas->SelectObject(platform::HGDIOBJ(value))) << value;
        EXPECT_EQ(0, canvas->DeleteObject(platform::HGDIOBJ(value))) << value;
        EXPECT_FALSE(canvas->CreatePatternBrush(platform::HBITMAP(value))) << value;
    }
    for (const std::uint32_t value : noContexts) {
        const platform::HENHMETAFILE metafile(value);
        EXPECT_FALSE(canvas->PlayMetafile(metafile, 0, 0, 8, 8)) << value;
        EXPECT_FALSE(canvas->DeleteMetafile(metafile)) << value;
    }
    EXPECT_FALSE(canvas->SelectObject(platform::HGDIOBJ(canvas->GetPaintDC().value))) << "a context";
    EXPECT_FALSE(canvas->CreatePatternBrush(platform::HBITMAP(pen.value)));
    EXPECT_EQ("..........\n", picture(10, 1));
    for (const platform::HGDIOBJ object : {pen, brush, font, bitmap})
        EXPECT_NE(0u, platform::GetObjectType(object));
    expectObjects(before);
}

TEST_F(cCanvas_BadInput, APictureWhoseBitmapWasEndedShowsNothing) {
    const platform::HBITMAP ended = platform::CreateBitmap(8, 8, 1, 1, nullptr);
    const auto picture1 = canvas->BitMap2Picture(ended);
    ASSERT_TRUE(picture1);
    canvas->DeleteObject(ended);
    canvas->FillBox(0, 0, 23, 15, yellow);
    canvas->PaintPicture(picture1, 0, 0, 8, 8, 0, 0, 8, 8);
    EXPECT_EQ(".YYYYYYYYY\nYYYYYYYYYY\n", picture(10, 2)) << "but the pixel of a context without a bitmap";
}

TEST_F(cCanvas_BadInput, AFontThatDoesNotExistIsAnotherOne) {
    canvas->SelectFont(u"No hay tal letra", -14);
    platform::LOGFONTW asked;
    platform::GetObjectFont(platform::HFONT(current(platform::OBJ_FONT).value), &asked);
    EXPECT_EQ(String(u"No hay tal letra"), String(asked.lfFaceName)) << "asked for as it was";
    std::int32_t width = 0, height = 0;
    EXPECT_EQ(1, canvas->GetTextExtent(u"abc", width, height));
    EXPECT_GT(width, 0);
    EXPECT_EQ(canvas->GetTextMetricsA().tmHeight, height);
    canvas->SetTextColor(white);
    EXPECT_EQ(1, canvas->TextOut(0, 0, u"HHH"));
    EXPECT_NE(std::string::npos, picture(24, 16).find('#'));
    for (const char16_t* name : {u"", u" ", u"\x2028\xD800", u"@", u"-1", u"../../etc/passwd", u"%s%n"}) {
        canvas->SelectFont(name, -14);
        EXPECT_EQ(1, canvas->GetTextExtent(u"abc", width, height)) << String(name).utf8();
        EXPECT_GT(width, 0) << String(name).utf8();
    }
    canvas->Minimize_GDI_UsedResources();
    expectObjects(before);
}

TEST_F(cCanvas_BadInput, APictureFileThatIsCutShortIsNoPicture) {
    constexpr std::int32_t bitmapType = 0, iconType = 1, cursorType = 2, number = 125;
    for (const std::int32_t type : {bitmapType, iconType, cursorType}) {
        const auto whole = canvas->GetResPicture(number, type);
        ASSERT_TRUE(whole);
        const auto source = whole->source();
        const std::vector<std::uint8_t> file(source.begin(), source.end());
        const std::int32_t objects = gdiObjects();
        const std::size_t step = std::max<std::size_t>(file.size() / 64, 1);
        for (std::size_t length = 0; length + 4 < file.size(); length += step)
            EXPECT_FALSE(canvas->Bytes2Picture(Array::ofBytes(std::span(file).first(length))))
                << type << ": " << length << " of " << file.size();
        for (std::size_t place = 0; place < std::min<std::size_t>(file.size(), 64); ++place) {
            std::vector<std::uint8_t> lying = file;
            lying[place] = 0xFF;
            canvas->Bytes2Picture(Array::ofBytes(lying)); // whatever it is, it goes again
        }
        expectObjects(objects);
    }
}
