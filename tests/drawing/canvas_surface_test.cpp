// The canvas's surface: configuration, the life of its context and its bitmap, painting on a target.
#include "CanvasTest.h"
#include "automation/ClassTable.h"
#include "frame/Globales.h"
#include "host/Form.h"
#include "host/PictureBox.h"
#include "platform/windows.h"
#include "support/Canvas.h"
#include "support/Desk.h"
#include "support/LibraryLog.h"
#include "support/MsgBoxAnswer.h"

#include <cmath>

using namespace tesela;
using namespace tests;
using automation::Ref;
using automation::String;
using automation::Variant;
using platform::HDC;

namespace {

class cCanvas_Surface : public CanvasTest {};

std::size_t occurrences(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

} // namespace

TEST(cCanvas_, StartsWithNothing) {
    const auto canvas = automation::make<cCanvas>();
    EXPECT_EQ(0, canvas->Width());
    EXPECT_EQ(0, canvas->Height());
    EXPECT_FALSE(canvas->GetPaintDC());
}

TEST(cCanvas_, WithoutAStaticTargetIsConfiguredWithoutAContext) {
    const auto canvas = automation::make<cCanvas>();
    EXPECT_TRUE(canvas->Configure({}, 1, 2, 30, 20));
    EXPECT_FALSE(canvas->GetPaintDC());
    EXPECT_EQ(30, canvas->Width());
    EXPECT_EQ(20, canvas->Height());
    canvas->FillBox(0, 0, 5, 5, red);
    canvas->DrawBox(0, 0, 5, 5, red, blue);
    canvas->DrawTriangle(3, 3, 3, red);
    EXPECT_EQ(0, canvas->TextOut(0, 0, u"nada"));
    EXPECT_EQ(-1, canvas->GetPixel(0, 0));
}

TEST_F(cCanvas_Surface, AnIdleControlHoldsOneBitmapAndNothingElse) {
    const auto control = automation::make<cCanvas>();
    const std::int32_t before = gdiObjects();
    ASSERT_TRUE(control->Configure({}, 0, 0, 101, 25, DCProvider_Auto, false));
    expectObjects(before + 2);
    control->SelectSimplePen(red);
    control->SelectSolidBrush(green);
    String face = u"Verdana";
    control->SelectSimpleFont(face, 80);
    control->CreateStandardFonts();
    control->TextOut(1, 1, u"texto");
    control->FillBox(0, 0, 9, 9, blue);
    control->EndPaint();
    expectObjects(before + 1);
    for (int i = 0; i < 3; ++i) {
        control->BeginPaint();
        control->SelectSimplePen(red);
        control->Rectangle(0, 0, 5, 5);
        control->EndPaint();
    }
    expectObjects(before + 1);
}

TEST_F(cCanvas_Surface, EverythingEndsWithTheCanvas) {
    const std::int32_t before = gdiObjects();
    {
        const test::Canvas target(10, 10);
        const auto own = automation::make<cCanvas>();
        own->Configure(target.dc(), 0, 0, 8, 8);
        own->SelectSimplePen(red);
        own->SelectHatchBrush(HatchStyle_Cross, blue);
        own->CreateStandardFonts();
        own->SelectStdFont(tslStdFont_Fixed);
        own->SelectFont(u"Arial", 12);
        const auto users = automation::make<cCanvas>();
        users->Configure(target.dc(), 0, 0, 8, 8, DCProvider_User);
        users->SelectSimplePen(red);
        users->SelectSolidBrush(green);
    }
    expectObjects(before);
}

TEST_F(cCanvas_Surface, ConfiguredAgainLeavesNothingBehind) {
    const std::int32_t before = gdiObjects();
    for (int size = 1; size < 20; ++size)
        ASSERT_TRUE(canvas->Configure({}, 0, 0, size, size, DCProvider_Auto, false));
    expectObjects(before);
    canvas->EndPaint();
    const std::int32_t idle = gdiObjects();
    ASSERT_TRUE(canvas->Configure({}, 0, 0, 40, 20, DCProvider_Auto, false));
    EXPECT_TRUE(canvas->GetPaintDC()) << "open for the first paint";
    canvas->EndPaint();
    expectObjects(idle);
}

TEST_F(cCanvas_Surface, ABorrowedTargetIsIgnored) {
    const test::Canvas target(10, 10, 1);
    ASSERT_TRUE(canvas->Configure(target.dc(), 0, 0, 24, 16, DCProvider_Auto, false));
    canvas->FillBox(0, 0, 23, 15, red);
    EXPECT_EQ(red, at(23, 15)) << "colours of the screen, not of the bitmap of 1 bit";
    const auto other = automation::make<cCanvas>();
    ASSERT_TRUE(other->Configure({}, 0, 0, 24, 16, DCProvider_Auto, false));
    EXPECT_EQ(other->GetDevCaps(GDIDeviceCaps_BitsPixel), canvas->GetDevCaps(GDIDeviceCaps_BitsPixel));
}

TEST_F(cCanvas_Surface, AStaticCanvasIsMadeLikeItsTarget) {
    const test::Canvas target(10, 10, 1);
    const auto mono = automation::make<cCanvas>();
    ASSERT_TRUE(mono->Configure(target.dc(), 0, 0, 8, 8));
    mono->FillBox(0, 0, 7, 7, 0xF0F0F0);
    EXPECT_EQ(white, mono->GetPixel(3, 3));
}

TEST_F(cCanvas_Surface, TheUsersContextIsDrawnOnItself) {
    const test::Canvas target(10, 10);
    const auto users = automation::make<cCanvas>();
    const std::int32_t before = gdiObjects();
    ASSERT_TRUE(users->Configure(target.dc(), 2, 2, 8, 8, DCProvider_User));
    expectObjects(before);
    EXPECT_EQ(target.dc(), users->GetPaintDC());
    EXPECT_EQ(target.dc(), users->GetTargetDC());
    users->FillBox(1, 1, 2, 2, red);
    EXPECT_EQ(static_cast<platform::COLORREF>(red), target.at(1, 1));
    EXPECT_EQ(platform::TRANSPARENT, platform::GetBkMode(target.dc()));
}

TEST_F(cCanvas_Surface, TheUsersContextOutlivesTheCanvas) {
    const test::Canvas target(10, 10);
    auto users = automation::make<cCanvas>();
    users->Configure(target.dc(), 0, 0, 8, 8, DCProvider_User);
    EXPECT_TRUE(users->Configure({}, 0, 0, 8, 8)) << "no target: nothing changes but the size";
    EXPECT_EQ(target.dc(), users->GetPaintDC());
    users.reset();
    EXPECT_EQ(static_cast<platform::DWORD>(platform::OBJ_MEMDC), platform::GetObjectType(target.dc()));
}

TEST_F(cCanvas_Surface, AContextOfItsOwnEndsWhateverWasAskedForLater) {
    const std::int32_t before = gdiObjects();
    auto own = automation::make<cCanvas>();
    own->Configure({}, 0, 0, 8, 8, DCProvider_Auto, false);
    EXPECT_TRUE(own->Configure({}, 0, 0, 9, 9, DCProvider_User));
    EXPECT_EQ(9, own->Width());
    own.reset();
    expectObjects(before);
}

TEST_F(cCanvas_Surface, ACanvasNeverConfiguredHasNothingToOpenOrClose) {
    const auto bare = automation::make<cCanvas>();
    bare->EndPaint();
    bare->BeginPaint();
    EXPECT_FALSE(bare->GetPaintDC());
    EXPECT_TRUE(bare->Resize(5, 6));
    EXPECT_EQ(5, bare->Width());
    EXPECT_EQ(6, bare->Height());
}

TEST_F(cCanvas_Surface, ABitmapThatCannotBeMadeLeavesTheContextValid) {
    const test::Canvas target(10, 10);
    const auto large = automation::make<cCanvas>();
    EXPECT_FALSE(large->Configure(target.dc(), 0, 0, 0x7FFFFFFF, 0x7FFFFFFF));
    EXPECT_TRUE(large->GetPaintDC());
    EXPECT_GT(large->GetDevCaps(GDIDeviceCaps_LogPixelsX), 0);
    EXPECT_TRUE(large->Resize(4, 4));
    large->FillBox(0, 0, 3, 3, red);
    EXPECT_EQ(red, large->GetPixel(3, 3));
    EXPECT_FALSE(large->Resize(0x7FFFFFFF, 0x7FFFFFFF));
    EXPECT_TRUE(large->GetPaintDC());
}

TEST_F(cCanvas_Surface, ResizeMakesAnEmptyBitmapOfTheNewSize) {
    const test::Canvas target(10, 10);
    const auto own = automation::make<cCanvas>();
    own->Configure(target.dc(), 0, 0, 4, 4);
    own->FillBox(0, 0, 3, 3, red);
    const std::int32_t before = gdiObjects();
    EXPECT_TRUE(own->Resize(12, 9));
    expectObjects(before);
    EXPECT_EQ(12, own->Width());
    EXPECT_EQ(9, own->Height());
    EXPECT_EQ(black, own->GetPixel(0, 0));
    own->FillBox(11, 8, 11, 8, green);
    EXPECT_EQ(green, own->GetPixel(11, 8));
}

TEST_F(cCanvas_Surface, ResizeOfAStaticCanvasStaysWithItsTarget) {
    const test::Canvas target(10, 10), mono(1, 1, 1);
    const auto own = automation::make<cCanvas>();
    own->Configure(target.dc(), 0, 0, 4, 4);
    EXPECT_TRUE(own->Resize(6, 6, mono.dc()));
    own->FillBox(0, 0, 5, 5, red);
    EXPECT_EQ(red, own->GetPixel(5, 5));
    EXPECT_EQ(target.dc(), own->GetTargetDC());
}

TEST_F(cCanvas_Surface, ResizeOfABorrowingCanvasTakesTheNewContext) {
    const test::Canvas compatible(1, 1);
    canvas->FillBox(0, 0, 23, 15, red);
    EXPECT_TRUE(canvas->Resize(50, 40)) << "without a context only the size is noted";
    EXPECT_EQ(50, canvas->Width());
    EXPECT_EQ(red, at(0, 0)) << "the bitmap stays";
    EXPECT_EQ(-1, at(40, 30)) << "with its size";
    EXPECT_TRUE(canvas->Resize(50, 40, compatible.dc()));
    canvas->FillBox(0, 0, 49, 39, green);
    EXPECT_EQ(green, at(49, 39));
}

TEST_F(cCanvas_Surface, ABitmapThatACallersContextGotByResizeEndsWithTheNextConfiguration) {
    const test::Canvas first(8, 8), second(8, 8);
    const platform::HGDIOBJ ofFirst = platform::GetCurrentObject(first.dc(), platform::OBJ_BITMAP);
    const platform::HGDIOBJ ofSecond = platform::GetCurrentObject(second.dc(), platform::OBJ_BITMAP);
    const std::int32_t before = gdiObjects();
    for (const auto provider : {DCProvider_User, DCProvider_Auto}) {
        auto own = automation::make<cCanvas>();
        own->Configure(first.dc(), 0, 0, 8, 8, DCProvider_User);
        EXPECT_TRUE(own->Resize(20, 20));
        EXPECT_NE(ofFirst, platform::GetCurrentObject(first.dc(), platform::OBJ_BITMAP));
        own->Configure(second.dc(), 0, 0, 8, 8, provider);
        EXPECT_EQ(ofFirst, platform::GetCurrentObject(first.dc(), platform::OBJ_BITMAP));
        own = {};
        EXPECT_EQ(ofSecond, platform::GetCurrentObject(second.dc(), platform::OBJ_BITMAP));
        expectObjects(before);
    }
}

TEST_F(cCanvas_Surface, ThePictureOutlivesEndPaint) {
    canvas->FillBox(2, 3, 5, 6, red);
    canvas->EndPaint();
    EXPECT_FALSE(canvas->GetPaintDC());
    canvas->BeginPaint();
    EXPECT_EQ(red, at(5, 6));
    EXPECT_EQ(black, at(6, 7));
}

TEST_F(cCanvas_Surface, TheStateOfTheContextDoesNotOutliveEndPaint) {
    canvas->SelectSimplePen(red);
    canvas->SelectSolidBrush(green);
    canvas->SetDrawMode(BinaryMixMode_Not);
    canvas->SetBkMode(BackMode_Opaque);
    canvas->SetClippingRect({0, 0, 1, 1});
    canvas->EndPaint();
    canvas->BeginPaint();
    const HDC dc = canvas->GetPaintDC();
    EXPECT_EQ(platform::GetStockObject(platform::BLACK_PEN),
              platform::GetCurrentObject(dc, platform::OBJ_PEN));
    EXPECT_EQ(platform::GetStockObject(platform::WHITE_BRUSH),
              platform::GetCurrentObject(dc, platform::OBJ_BRUSH));
    EXPECT_EQ(platform::R2_COPYPEN, platform::GetROP2(dc));
    EXPECT_EQ(platform::TRANSPARENT, platform::GetBkMode(dc)) << "the canvas's own default";
    RECT_Type clip;
    EXPECT_EQ(-1, canvas->GetClippingRect(clip));
}

TEST_F(cCanvas_Surface, ASecondBeginPaintOrEndPaintDoesNothing) {
    const HDC first = canvas->GetPaintDC();
    canvas->BeginPaint();
    EXPECT_EQ(first, canvas->GetPaintDC()) << "open since Configure";
    canvas->EndPaint();
    const std::int32_t idle = gdiObjects();
    canvas->EndPaint();
    expectObjects(idle);
    canvas->BeginPaint();
    const HDC open = canvas->GetPaintDC();
    const std::int32_t painting = gdiObjects();
    canvas->BeginPaint();
    EXPECT_EQ(open, canvas->GetPaintDC());
    expectObjects(painting);
}

TEST_F(cCanvas_Surface, AStaticCanvasKeepsItsContext) {
    const test::Canvas target(10, 10);
    const auto own = automation::make<cCanvas>();
    own->Configure(target.dc(), 0, 0, 4, 4);
    const HDC dc = own->GetPaintDC();
    own->EndPaint();
    EXPECT_EQ(dc, own->GetPaintDC());
    own->BeginPaint();
    EXPECT_EQ(dc, own->GetPaintDC());
}

TEST_F(cCanvas_Surface, AStaticCanvasIsNotOpenedEvenWhenItsContextWasLetGoBefore) {
    canvas->EndPaint();
    EXPECT_TRUE(canvas->Configure({}, 0, 0, 24, 16)) << "static from now on, without a target";
    canvas->BeginPaint();
    EXPECT_FALSE(canvas->GetPaintDC());
}

TEST_F(cCanvas_Surface, PaintCopiesToTheGivenContext) {
    const test::Canvas target(30, 20);
    canvas->FillBox(0, 0, 23, 15, red);
    canvas->Paint(target.dc());
    EXPECT_EQ(static_cast<platform::COLORREF>(red), target.at(23, 15));
    EXPECT_EQ(0u, target.at(24, 15));
    EXPECT_EQ(0u, target.at(23, 16));
}

TEST_F(cCanvas_Surface, PaintGivesItsSizesAndOffsetsBack) {
    const test::Canvas target(40, 30);
    ASSERT_TRUE(canvas->Configure({}, 3, 4, 24, 16, DCProvider_Auto, false));
    canvas->FillBox(0, 0, 23, 15, red);
    std::int32_t xSource = 0, ySource = 0, xTarget = 0, yTarget = 0, width = 0, height = 0;
    canvas->Paint(target.dc(), xSource, ySource, xTarget, yTarget, width, height);
    EXPECT_EQ(24, width);
    EXPECT_EQ(16, height);
    EXPECT_EQ(3, xTarget);
    EXPECT_EQ(4, yTarget);
    EXPECT_EQ(0u, target.at(2, 4));
    EXPECT_EQ(static_cast<platform::COLORREF>(red), target.at(3, 4));
    canvas->Paint(target.dc(), xSource, ySource, xTarget, yTarget, width, height);
    EXPECT_EQ(6, xTarget) << "the same variables move the picture again";
    EXPECT_EQ(8, yTarget);
    EXPECT_EQ(static_cast<platform::COLORREF>(red), target.at(29, 23));
}

TEST_F(cCanvas_Surface, PaintCopiesAPart) {
    const test::Canvas target(30, 20);
    canvas->FillBox(5, 6, 7, 7, green);
    std::int32_t xSource = 5, ySource = 6, xTarget = 1, yTarget = 2, width = 3, height = 2;
    canvas->Paint(target.dc(), xSource, ySource, xTarget, yTarget, width, height);
    EXPECT_EQ(static_cast<platform::COLORREF>(green), target.at(1, 2));
    EXPECT_EQ(static_cast<platform::COLORREF>(green), target.at(3, 3));
    EXPECT_EQ(0u, target.at(4, 3));
    EXPECT_EQ(0u, target.at(5, 6));
}

TEST_F(cCanvas_Surface, AStaticCanvasPaintsOnItsTargetOnly) {
    const test::Canvas target(10, 10), other(10, 10);
    const auto own = automation::make<cCanvas>();
    own->Configure(target.dc(), 1, 1, 4, 4);
    own->FillBox(0, 0, 3, 3, blue);
    own->Paint(other.dc());
    EXPECT_EQ(static_cast<platform::COLORREF>(blue), target.at(1, 1));
    EXPECT_EQ(0u, other.at(1, 1));
}

TEST_F(cCanvas_Surface, PaintingNowhereIsLogged) {
    const std::string before = support::libraryLog();
    std::int32_t xSource = 0, ySource = 0, xTarget = 0, yTarget = 0, width = 0, height = 0;
    canvas->Paint({}, xSource, ySource, xTarget, yTarget, width, height);
    EXPECT_EQ(24, width) << "given back all the same";
    const std::string added = support::libraryLog().substr(before.size());
    EXPECT_EQ(1u, occurrences(added, "Uso de un hDC inv\xE1lido"));
    EXPECT_EQ(1u, occurrences(added, "{BOR}"));
    EXPECT_EQ(1u, occurrences(added, "{EOR}"));
}

TEST_F(cCanvas_Surface, TheTargetOfABorrowingCanvasIsAMessage) {
    support::Desk desk;
    support::MsgBoxAnswer answer(desk, platform::VK_RETURN);
    EXPECT_EQ(canvas->GetPaintDC(), canvas->GetTargetDC());
    EXPECT_EQ(1, answer.shown());
    EXPECT_EQ(u"Error gráfico G.D.I.", answer.title());
    EXPECT_EQ(u"No puede retornarse el hDC: no es estático", answer.text());
    EXPECT_EQ(host::MsgBoxStyle::Critical, answer.style());
}

TEST_F(cCanvas_Surface, MinimizeFreesWhatIsInUse) {
    const std::int32_t before = gdiObjects();
    canvas->SelectSimplePen(red);
    canvas->SelectSolidBrush(blue);
    canvas->SelectFont(u"Arial", 10);
    canvas->CreateStandardFonts();
    expectObjects(before + 6);
    canvas->Minimize_GDI_UsedResources();
    expectObjects(before);
    const HDC dc = canvas->GetPaintDC();
    EXPECT_EQ(platform::GetStockObject(platform::BLACK_PEN),
              platform::GetCurrentObject(dc, platform::OBJ_PEN));
    EXPECT_EQ(platform::GetStockObject(platform::WHITE_BRUSH),
              platform::GetCurrentObject(dc, platform::OBJ_BRUSH));
    EXPECT_EQ(platform::GetStockObject(platform::SYSTEM_FONT),
              platform::GetCurrentObject(dc, platform::OBJ_FONT));
    canvas->Minimize_GDI_UsedResources();
    expectObjects(before);
}

// --- Picture boxes ---------------------------------------------------------------------------------

namespace {

class cCanvas_PictureBox : public CanvasTest {
protected:
    cCanvas_PictureBox() {
        form->SetClientSize(3000, 3000);
        form->Show();
        box = &form->add<host::PictureBox>(u"PBox1");
        box->Extender().Move(0, 0, 1500, 900);
    }
    ~cCanvas_PictureBox() override { form->unload(); }

    support::Desk desk;
    automation::Ref<host::Form> form = automation::make<host::Form>(u"Form1");
    host::PictureBox* box = nullptr;
};

} // namespace

TEST_F(cCanvas_PictureBox, IsDrawnOnInPixels) {
    Ref<automation::Object> object(box);
    const auto drawing = automation::make<cCanvas>();
    ASSERT_TRUE(drawing->CreateInPictureBox(object));
    EXPECT_TRUE(box->AutoRedraw());
    EXPECT_EQ(host::ScaleMode::Pixels, box->ScaleMode());
    EXPECT_EQ(static_cast<std::int32_t>(box->ScaleWidth()), drawing->Width());
    EXPECT_EQ(static_cast<std::int32_t>(box->ScaleHeight()), drawing->Height());
    EXPECT_GT(drawing->Width(), 50);
    drawing->FillBox(3, 4, 10, 10, red);
    drawing->Paint();
    EXPECT_EQ(static_cast<platform::COLORREF>(red), platform::GetPixel(box->hDC(), 3, 4));
}

TEST_F(cCanvas_PictureBox, StartsWithWhatTheBoxShows) {
    box->AutoRedraw(true);
    box->BackColor(green);
    box->Cls();
    Ref<automation::Object> object(box);
    const auto drawing = automation::make<cCanvas>();
    ASSERT_TRUE(drawing->CreateInPictureBox(object, true));
    EXPECT_EQ(green, drawing->GetPixel(0, 0));
    EXPECT_EQ(green, drawing->GetPixel(drawing->Width() - 1, drawing->Height() - 1));
    ASSERT_TRUE(drawing->CreateInPictureBox(object));
    EXPECT_EQ(black, drawing->GetPixel(0, 0));
}

TEST_F(cCanvas_PictureBox, NothingElseIsTouched) {
    const auto drawing = automation::make<cCanvas>();
    Ref<automation::Object> nothing;
    EXPECT_FALSE(drawing->CreateInPictureBox(nothing));
    Ref<automation::Object> other(canvas);
    EXPECT_FALSE(drawing->CreateInPictureBox(other));
    Ref<automation::Object> windowless(automation::make<host::PictureBox>());
    EXPECT_FALSE(drawing->CreateInPictureBox(windowless)) << "no context yet";
    EXPECT_EQ(0, drawing->Width());
}

namespace {

/// What answers as a picture box of any size, and is none.
class BoxOfAnySize : public automation::Object {
public:
    BoxOfAnySize(HDC context, std::int32_t width) : context_(context), width_(width) {}
    bool HasDC() const { return true; }
    bool AutoRedraw() const { return true; }
    void AutoRedraw(bool) {}
    std::int32_t ScaleMode() const { return 3; }
    void ScaleMode(std::int32_t) {}
    std::int32_t hDC() const { return static_cast<std::int32_t>(context_.value); }
    std::int32_t ScaleWidth() const { return width_; }
    std::int32_t ScaleHeight() const { return width_; }

    const automation::ClassTable& classTable() const override {
        using Box = BoxOfAnySize;
        static const automation::ClassTable table =
            automation::ClassTable::of<Box>("PictureBox")
                .get("HasDC", &Box::HasDC)
                .property("AutoRedraw", static_cast<bool (Box::*)() const>(&Box::AutoRedraw),
                          static_cast<void (Box::*)(bool)>(&Box::AutoRedraw))
                .property("ScaleMode", static_cast<std::int32_t (Box::*)() const>(&Box::ScaleMode),
                          static_cast<void (Box::*)(std::int32_t)>(&Box::ScaleMode))
                .get("hDC", &Box::hDC)
                .get("ScaleWidth", &Box::ScaleWidth)
                .get("ScaleHeight", &Box::ScaleHeight);
        return table;
    }

private:
    HDC context_;
    std::int32_t width_;
};

} // namespace

TEST_F(cCanvas_Surface, APictureBoxTooLargeForABitmapIsFalse) {
    const test::Canvas target(10, 10);
    const auto drawing = automation::make<cCanvas>();
    Ref<automation::Object> box(automation::make<BoxOfAnySize>(target.dc(), 10));
    EXPECT_TRUE(drawing->CreateInPictureBox(box));
    Ref<automation::Object> large(automation::make<BoxOfAnySize>(target.dc(), 0x7FFFFFFF));
    EXPECT_FALSE(drawing->CreateInPictureBox(large));
}

// --- Pictures --------------------------------------------------------------------------------------

TEST_F(cCanvas_Surface, IsMadeOfABitmap) {
    const test::Canvas target(4, 4);
    Ref<automation::Object> picture(canvas->GetResPicture(std::int32_t{125}, 0));
    ASSERT_TRUE(picture);
    const auto made = automation::make<cCanvas>();
    EXPECT_TRUE(made->CreateFromPicture(picture, target.dc()));
    EXPECT_EQ(10, made->Width());
    EXPECT_EQ(6, made->Height());
    EXPECT_EQ(yellow, made->GetPixel(0, 0));
    EXPECT_EQ(yellow, made->GetPixel(9, 5));
    EXPECT_EQ(target.dc(), made->GetTargetDC());
}

TEST_F(cCanvas_Surface, IsNotMadeOfAnIconAndSaysTrue) {
    const test::Canvas target(4, 4);
    const auto made = automation::make<cCanvas>();
    Ref<automation::Object> icon(canvas->GetResPicture(std::int32_t{125}));
    ASSERT_TRUE(icon);
    EXPECT_TRUE(made->CreateFromPicture(icon, target.dc()));
    EXPECT_EQ(0, made->Width());
    EXPECT_FALSE(made->GetPaintDC());
    Ref<automation::Object> empty(automation::make<host::Picture>());
    EXPECT_TRUE(made->CreateFromPicture(empty, target.dc()));
    EXPECT_FALSE(made->GetPaintDC());
}

namespace {

/// What answers as a picture of a kind, and is none.
class Claim : public automation::Object {
public:
    explicit Claim(std::int32_t kind, std::int32_t width = 2540) : kind_(kind), width_(width) {}
    std::int32_t Type() const { return kind_; }
    std::int32_t Width() const { return width_; }
    std::int32_t Height() const { return 1280; }

    const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table = automation::ClassTable::of<Claim>("Claim")
                                                        .get("Type", &Claim::Type)
                                                        .get("Width", &Claim::Width)
                                                        .get("Height", &Claim::Height);
        return table;
    }

private:
    std::int32_t kind_, width_;
};

} // namespace

TEST_F(cCanvas_Surface, TheKindOfAPictureDecidesWhetherACanvasIsMade) {
    const test::Canvas target(4, 4);
    const std::int32_t P = canvas->GetDevCaps(GDIDeviceCaps_LogPixelsX);
    for (std::int32_t kind = 0; kind <= 5; ++kind) {
        const auto made = automation::make<cCanvas>();
        Ref<automation::Object> picture(automation::make<Claim>(kind));
        EXPECT_TRUE(made->CreateFromPicture(picture, target.dc()));
        const bool hasImage = kind == 1 || kind == 2 || kind == 4;
        EXPECT_EQ(hasImage ? P : 0, made->Width()) << kind;
        EXPECT_EQ(hasImage ? static_cast<std::int32_t>(std::nearbyint(1280.0 * P / 2540)) : 0, made->Height())
            << kind;
    }
    constexpr std::int32_t bitmap = 1;
    Ref<automation::Object> picture(automation::make<Claim>(bitmap, 0x7FFFFFFF));
    EXPECT_FALSE(automation::make<cCanvas>()->CreateFromPicture(picture, target.dc()))
        << "too wide for a bitmap";
}

TEST_F(cCanvas_Surface, FaultsOfThePictureAreIgnored) {
    const test::Canvas target(4, 4);
    for (Ref<automation::Object> picture : {Ref<automation::Object>(), Ref<automation::Object>(canvas)}) {
        const auto made = automation::make<cCanvas>();
        EXPECT_TRUE(made->CreateFromPicture(picture, target.dc()));
        EXPECT_TRUE(made->GetPaintDC()) << "a kind that isn't told counts as a bitmap";
    }
}

// --- The shared start ------------------------------------------------------------------------------

TEST_F(cCanvas_Surface, TheLibraryHasOneOfASinglePixel) {
    const auto shared = globales().oCanvasGlobal;
    ASSERT_TRUE(shared);
    EXPECT_EQ(1, shared->Width());
    EXPECT_EQ(1, shared->Height());
    EXPECT_EQ(globales().lHighColor, shared->GetDevCaps(GDIDeviceCaps_BitsPixel) >= 15);
    EXPECT_EQ(shared->GetVBSysColor(host::colorButtonFace),
              static_cast<std::int32_t>(platform::GetSysColor(platform::COLOR_BTNFACE)));
}

TEST_F(cCanvas_Surface, ReachesTheSharedColourTable) {
    canvas->GlobalCtlCfg(tslCtlGlobalCfg_Btn_Face, Variant(red));
    EXPECT_EQ(red, automation::fromVariant<std::int32_t>(GlobalCtlCfg(tslCtlGlobalCfg_Btn_Face)));
    EXPECT_EQ(red, automation::fromVariant<std::int32_t>(canvas->GlobalCtlCfg(tslCtlGlobalCfg_Btn_Face)));
    EXPECT_EQ(24u, canvas->GlobalCtlCfg(tslCtlGlobalCfg_AllValues).asArray().size());
}
