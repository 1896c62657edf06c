// Pens, brushes, palettes and the state of the context: what is created, selected, owned and reported.
#include "CanvasReport.h"
#include "frame/Globales.h"
#include "host/Form.h"
#include "platform/windows.h"
#include "support/Canvas.h"

using namespace tesela;
using namespace tests;
using platform::HGDIOBJ;

namespace {

class cCanvas_Objects : public CanvasTest {
protected:
    platform::LOGPEN pen() const {
        platform::LOGPEN data;
        platform::GetObjectPen(platform::HPEN(current(platform::OBJ_PEN).value), &data);
        return data;
    }
    platform::LOGBRUSH brush() const {
        platform::LOGBRUSH data;
        platform::GetObjectBrush(platform::HBRUSH(current(platform::OBJ_BRUSH).value), &data);
        return data;
    }
};

class cCanvas_Report : public CanvasReport {};

} // namespace

TEST_F(cCanvas_Objects, ASelectedPenReplacesAndEndsTheFormerOne) {
    const std::int32_t before = gdiObjects();
    canvas->SelectPen(PenStyle_Dash, 1, red);
    const HGDIOBJ first = current(platform::OBJ_PEN);
    EXPECT_EQ(static_cast<platform::UINT>(platform::PS_DASH), pen().lopnStyle);
    EXPECT_EQ(static_cast<platform::COLORREF>(red), pen().lopnColor);
    canvas->SelectPen(PenStyle_Solid, 4, blue);
    EXPECT_EQ(4, pen().lopnWidth.x);
    EXPECT_EQ(0u, platform::GetObjectType(first));
    expectObjects(before + 1);
}

TEST_F(cCanvas_Objects, TheSimplePenIsSolidAndOnePixelWide) {
    canvas->SelectSimplePen(green);
    EXPECT_EQ(static_cast<platform::UINT>(platform::PS_SOLID), pen().lopnStyle);
    EXPECT_EQ(1, pen().lopnWidth.x);
    EXPECT_EQ(static_cast<platform::COLORREF>(green), pen().lopnColor);
}

TEST_F(cCanvas_Objects, TheNullPenAndBrushAreStockAndEndTheOwnedOnes) {
    const std::int32_t before = gdiObjects();
    canvas->SelectSimplePen(green);
    canvas->SelectSolidBrush(green);
    canvas->SelectNullPen();
    canvas->SelectNullBrush();
    EXPECT_EQ(platform::GetStockObject(platform::NULL_PEN), current(platform::OBJ_PEN));
    EXPECT_EQ(platform::GetStockObject(platform::NULL_BRUSH), current(platform::OBJ_BRUSH));
    expectObjects(before);
    canvas->SelectNullPen();
    canvas->SelectNullBrush();
    expectObjects(before);
}

TEST_F(cCanvas_Objects, SystemColoursAreResolvedForPensBrushesAndText) {
    const auto face = platform::GetSysColor(platform::COLOR_BTNFACE);
    canvas->SelectSimplePen(host::colorButtonFace);
    EXPECT_EQ(face, pen().lopnColor);
    canvas->SelectSolidBrush(host::colorButtonFace);
    EXPECT_EQ(face, brush().lbColor);
    canvas->SelectHatchBrush(HatchStyle_Vertical, host::colorButtonFace);
    EXPECT_EQ(face, brush().lbColor);
    canvas->SetTextColor(host::colorButtonFace);
    EXPECT_EQ(face, platform::GetTextColor(canvas->GetPaintDC()));
    EXPECT_EQ(static_cast<std::int32_t>(face), canvas->SetTextColor(red)) << "the previous colour";
    canvas->SetBkColor(host::colorButtonFace);
    EXPECT_EQ(face, platform::GetBkColor(canvas->GetPaintDC()));
    canvas->FillBox(0, 0, 0, 0, host::colorButtonFace);
    EXPECT_EQ(static_cast<std::int32_t>(face), at(0, 0));
}

TEST_F(cCanvas_Objects, ASystemColourIsNumberedByTwentyFourBits) {
    EXPECT_EQ(static_cast<std::int32_t>(platform::GetSysColor(platform::COLOR_WINDOW)),
              canvas->GetVBSysColor(host::colorWindowBackground));
    EXPECT_EQ(0, canvas->GetVBSysColor(host::systemColor(0x100 + platform::COLOR_WINDOW)));
    EXPECT_EQ(0, canvas->GetVBSysColor(-1));
    EXPECT_EQ(0x123456, canvas->GetVBSysColor(0x123456));
}

TEST_F(cCanvas_Objects, TheNearestColourIsTheDevices) {
    EXPECT_EQ(0x123456, canvas->GetNearestSolidColor(0x123456));
    EXPECT_EQ(canvas->GetVBSysColor(host::colorButtonFace),
              canvas->GetNearestSolidColor(host::colorButtonFace));
    const test::Canvas mono(4, 4, 1);
    const auto onMono = automation::make<cCanvas>();
    EXPECT_EQ(0x0A0B0C, onMono->GetNearestSolidColor(0x0A0B0C)) << "without a context nothing is asked";
    onMono->Configure(mono.dc(), 0, 0, 4, 4);
    EXPECT_EQ(white, onMono->GetNearestSolidColor(0xF0F0F0));
    EXPECT_EQ(black, onMono->GetNearestSolidColor(0x0A0B0C));
}

TEST_F(cCanvas_Objects, CreatedObjectsBelongToTheCaller) {
    const std::int32_t before = gdiObjects();
    const test::Canvas pattern(8, 8, 1);
    const std::int32_t withPattern = gdiObjects();
    const HGDIOBJ objects[] = {canvas->CreatePen(PenStyle_Solid, 3, red),
                               canvas->CreateHatchBrush(HatchStyle_Cross, red),
                               canvas->CreatePatternBrush(pattern.bitmap()), canvas->CreateSolidBrush(red),
                               canvas->CreateFont(u"Arial", 10)};
    expectObjects(withPattern + 5);
    canvas->SelectObject(objects[0]);
    canvas->Minimize_GDI_UsedResources();
    EXPECT_EQ(objects[0], current(platform::OBJ_PEN)) << "not the canvas's to take away";
    EXPECT_EQ(objects[0], canvas->SelectObject(canvas->GetStockObject(GDIStockObjects_BlackPen)));
    for (const HGDIOBJ object : objects)
        EXPECT_EQ(1, canvas->DeleteObject(object));
    EXPECT_EQ(0, canvas->DeleteObject(objects[0]));
    expectObjects(before + 2);
}

TEST_F(cCanvas_Objects, ContextsAreGotAndGivenBack) {
    const auto screen = canvas->GetDC({});
    EXPECT_TRUE(screen);
    EXPECT_EQ(1, canvas->ReleaseDC({}, screen));
    const auto window = canvas->GetWindowDC({});
    EXPECT_TRUE(window);
    EXPECT_EQ(1, canvas->ReleaseDC({}, window));
    const auto memory = platform::CreateCompatibleDC({});
    EXPECT_EQ(1, automation::fromVariant<std::int32_t>(canvas->DeleteDC(memory)));
    EXPECT_EQ(0, automation::fromVariant<std::int32_t>(canvas->DeleteDC(memory)));
    EXPECT_EQ(0, canvas->ReleaseDC({}, memory)) << "gone";
}

TEST_F(cCanvas_Objects, AWindowHasAContextForItsInsideAndOneForAllOfIt) {
    const support::Desk desk;
    const auto form = automation::make<host::Form>(u"Form1");
    form->SetClientSize(3000, 1500);
    form->Show();
    const auto sizeOf = [&](platform::HDC dc) {
        platform::RECT box;
        platform::GetClipBox(dc, &box);
        EXPECT_EQ(1, canvas->ReleaseDC(form->hWnd(), dc));
        return platform::SIZE{box.right - box.left, box.bottom - box.top};
    };
    platform::RECT inside, frame;
    platform::GetClientRect(form->hWnd(), &inside);
    platform::GetWindowRect(form->hWnd(), &frame);
    EXPECT_EQ((platform::SIZE{inside.right, inside.bottom}), sizeOf(canvas->GetDC(form->hWnd())));
    EXPECT_EQ((platform::SIZE{frame.right - frame.left, frame.bottom - frame.top}),
              sizeOf(canvas->GetWindowDC(form->hWnd())));
    EXPECT_GT(frame.bottom - frame.top, inside.bottom);
    form->unload();
}

TEST_F(cCanvas_Objects, StateIsReturnedAsItWas) {
    EXPECT_EQ(BinaryMixMode_CopyPen, canvas->SetDrawMode(BinaryMixMode_XorPen));
    EXPECT_EQ(BinaryMixMode_XorPen, canvas->SetDrawMode(BinaryMixMode_CopyPen));
    EXPECT_EQ(BackMode_Transparent, canvas->SetBkMode(BackMode_Opaque));
    EXPECT_EQ(BackMode_Opaque, canvas->SetBkMode(BackMode_Transparent));
    EXPECT_EQ(white, canvas->SetBkColor(red));
    EXPECT_EQ(red, canvas->SetBkColor(white));
    canvas->SetStretchBltMode(StretchBlt_HalfTone);
    EXPECT_EQ(StretchBlt_HalfTone, canvas->SetStretchBltMode(StretchBlt_ColorOnColor));
    EXPECT_EQ((RECT_Type{1, 2, 3, 4}), canvas->CreateRECT(1, 2, 3, 4));
}

TEST_F(cCanvas_Report, OfABrushWithoutItsHatch) {
    canvas->SelectSolidBrush(red);
    const HGDIOBJ before = current(platform::OBJ_BRUSH);
    expectReport(u"Error de GDI en SelectHatchBrush",
                 [this] { canvas->SelectHatchBrush(static_cast<HatchStyleConstants>(1000), red); });
    EXPECT_EQ(before, current(platform::OBJ_BRUSH)) << "the old one stays";
}

TEST_F(cCanvas_Report, OfABrushWithoutItsPattern) {
    expectReport(u"Error de GDI en SelectPatternBrush",
                 [this] { canvas->SelectPatternBrush(platform::HBITMAP(0x7FFF1234)); });
}

TEST_F(cCanvas_Objects, ASystemColourIsChangedForAll) {
    const std::int32_t before = canvas->GetVBSysColor(host::colorButtonFace);
    EXPECT_EQ(1, canvas->SetVBSysColor(SystemColor_BtnFace, red));
    EXPECT_EQ(red, canvas->GetVBSysColor(host::colorButtonFace));
    canvas->Clear();
    EXPECT_EQ(red, at(0, 0));
    EXPECT_EQ(1, canvas->SetVBSysColor(SystemColor_BtnFace, before));
    EXPECT_EQ(before, canvas->GetVBSysColor(host::colorButtonFace));
    const auto byColour = static_cast<SystemColorConstants>(host::colorButtonFace);
    EXPECT_EQ(1, canvas->SetVBSysColor(byColour, green));
    EXPECT_EQ(green, canvas->GetVBSysColor(host::colorButtonFace)) << "the form that colours have is taken";
    EXPECT_EQ(1, canvas->SetVBSysColor(SystemColor_BtnFace, before));
}

TEST_F(cCanvas_Objects, AStandardFontInUseEndsWithTheOthers) {
    const std::int32_t before = gdiObjects();
    canvas->CreateStandardFonts();
    canvas->SelectStdFont(tslStdFont_Fixed);
    canvas->Minimize_GDI_UsedResources();
    canvas->SelectObject(canvas->GetStockObject(GDIStockObjects_SystemFont));
    expectObjects(before);
}

TEST_F(cCanvas_Objects, ADisplayOfManyColoursNeedsNoPalette) {
    const std::int32_t before = gdiObjects();
    ASSERT_TRUE(globales().lHighColor);
    canvas->ComprobarPaletaSemitonos();
    expectObjects(before);
}

TEST_F(cCanvas_Objects, ADisplayOfFewColoursGetsOneHalftonePalette) {
    globales().lHighColor = false;
    const std::int32_t before = gdiObjects();
    canvas->ComprobarPaletaSemitonos();
    expectObjects(before + 1);
    canvas->ComprobarPaletaSemitonos();
    expectObjects(before + 1);
    EXPECT_EQ(static_cast<platform::DWORD>(platform::OBJ_PAL),
              platform::GetObjectType(current(platform::OBJ_PAL)));
    canvas.reset();
    expectObjects(before - 2);
    globales().lHighColor = true;
}

TEST_F(cCanvas_Objects, AContextOfTheCallerGetsItsOwnPaletteBack) {
    const test::Canvas target(4, 4);
    const HGDIOBJ palette = platform::GetCurrentObject(target.dc(), platform::OBJ_PAL);
    auto users = automation::make<cCanvas>();
    users->Configure(target.dc(), 0, 0, 4, 4, DCProvider_User);
    globales().lHighColor = false;
    users->ComprobarPaletaSemitonos();
    globales().lHighColor = true;
    EXPECT_NE(palette, platform::GetCurrentObject(target.dc(), platform::OBJ_PAL));
    users.reset();
    EXPECT_EQ(palette, platform::GetCurrentObject(target.dc(), platform::OBJ_PAL));
}
