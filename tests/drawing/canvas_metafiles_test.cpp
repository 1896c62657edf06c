// Enhanced metafiles: recorded on a canvas, played on it, and given to the clipboard.
#include "CanvasTest.h"
#include "drawing/rounding.h"
#include "host/Clipboard.h"
#include "platform/input.h"
#include "platform/metafiles.h"
#include "support/Canvas.h"
#include "support/Desk.h"
#include "support/TemporaryFolder.h"

using namespace tesela;
using namespace tests;
using automation::String;
using platform::HENHMETAFILE;

namespace {

/// A static canvas, whose target stands for the device that metafiles are recorded for.
class cCanvas_Metafiles : public support::Started {
protected:
    cCanvas_Metafiles() {
        canvas->Configure(screen, 0, 0, 40, 30);
        canvas->FillBox(0, 0, 39, 29, black);
    }
    ~cCanvas_Metafiles() override { platform::ReleaseDC({}, screen); }

    HENHMETAFILE recordBox(bool play) {
        EXPECT_TRUE(canvas->BeginRecordMetafile());
        canvas->FillBox(10, 5, 29, 24, red);
        return canvas->EndRecordMetafile(play);
    }
    static String descriptionOf(HENHMETAFILE metafile) {
        std::u16string text(platform::GetEnhMetaFileDescriptionW(metafile, 0, nullptr), u'\0');
        platform::GetEnhMetaFileDescriptionW(metafile, static_cast<platform::UINT>(text.size()), text.data());
        return String(text);
    }

    platform::HDC screen = platform::GetDC({});
    automation::Ref<cCanvas> canvas = automation::make<cCanvas>();
};

} // namespace

TEST_F(cCanvas_Metafiles, RecordingLeavesThePictureAlone) {
    const platform::HDC dc = canvas->GetPaintDC();
    ASSERT_TRUE(canvas->BeginRecordMetafile());
    EXPECT_NE(dc, canvas->GetPaintDC());
    canvas->FillBox(0, 0, 39, 29, red);
    const HENHMETAFILE metafile = canvas->EndRecordMetafile(false);
    EXPECT_TRUE(metafile);
    EXPECT_EQ(dc, canvas->GetPaintDC());
    EXPECT_EQ(black, canvas->GetPixel(20, 20));
    EXPECT_TRUE(canvas->DeleteMetafile(metafile));
    EXPECT_FALSE(canvas->DeleteMetafile(metafile));
}

TEST_F(cCanvas_Metafiles, TheRecordIsPlayedAtItsEndWhereItWasDrawn) {
    const HENHMETAFILE metafile = recordBox(true);
    ASSERT_TRUE(metafile);
    EXPECT_EQ(red, canvas->GetPixel(12, 7));
    EXPECT_EQ(red, canvas->GetPixel(27, 22));
    EXPECT_EQ(black, canvas->GetPixel(7, 2));
    EXPECT_EQ(black, canvas->GetPixel(32, 27));
    canvas->DeleteMetafile(metafile);
}

TEST_F(cCanvas_Metafiles, ARecordIsPlayedInAnyRectangle) {
    const HENHMETAFILE metafile = recordBox(false);
    EXPECT_TRUE(canvas->PlayMetafile(metafile, 20, 0, 20, 15));
    EXPECT_EQ(red, canvas->GetPixel(30, 7));
    EXPECT_EQ(black, canvas->GetPixel(10, 7));
    EXPECT_EQ(black, canvas->GetPixel(30, 20));
    EXPECT_TRUE(canvas->PlayMetafile(metafile, 0, 20, 20, 10));
    EXPECT_EQ(red, canvas->GetPixel(10, 25));
    EXPECT_EQ(black, canvas->GetPixel(10, 20));
    canvas->DeleteMetafile(metafile);
    EXPECT_FALSE(canvas->PlayMetafile(metafile, 0, 0, 10, 10));
}

TEST_F(cCanvas_Metafiles, TheHeaderTellsTheFrameAndWhoMadeIt) {
    ASSERT_TRUE(canvas->BeginRecordMetafile());
    canvas->FillBox(0, 0, 39, 29, red);
    HENHMETAFILE metafile = canvas->EndRecordMetafile(false);
    platform::ENHMETAHEADER header;
    ASSERT_NE(0u, platform::GetEnhMetaFileHeader(metafile, sizeof header, &header));
    EXPECT_EQ(
        (platform::RECT{0, 0, roundToLong(canvas->ScaleX(40, 3, 8)), roundToLong(canvas->ScaleY(30, 3, 8))}),
        header.rclFrame);
    EXPECT_EQ(String(std::u16string_view(u"Tesela Software OCX\0cCanvas class\0\0", 35)),
              descriptionOf(metafile));
    canvas->DeleteMetafile(metafile);
    ASSERT_TRUE(canvas->BeginRecordMetafile(u"", u"Programa", u"Dibujo"));
    metafile = canvas->EndRecordMetafile(false);
    EXPECT_EQ(String(std::u16string_view(u"Programa\0Dibujo\0\0", 17)), descriptionOf(metafile));
    canvas->DeleteMetafile(metafile);
}

TEST_F(cCanvas_Metafiles, ThePixelsOfTheCanvasAreMappedToTheirLengthOnTheDevice) {
    ASSERT_TRUE(canvas->BeginRecordMetafile());
    const platform::HDC dc = canvas->GetPaintDC();
    EXPECT_EQ(platform::MM_ANISOTROPIC, platform::GetMapMode(dc));
    platform::SIZE window, viewport;
    platform::GetWindowExtEx(dc, &window);
    platform::GetViewportExtEx(dc, &viewport);
    EXPECT_EQ((platform::SIZE{40, 30}), window);
    const auto caps = [this](int index) { return platform::GetDeviceCaps(screen, index); };
    EXPECT_EQ(roundToLong(40.0 / caps(platform::LOGPIXELSX) * 25.4 * caps(platform::HORZRES) /
                          caps(platform::HORZSIZE)),
              viewport.cx);
    EXPECT_EQ(roundToLong(30.0 / caps(platform::LOGPIXELSY) * 25.4 * caps(platform::VERTRES) /
                          caps(platform::VERTSIZE)),
              viewport.cy);
    canvas->DeleteMetafile(canvas->EndRecordMetafile(false));
}

TEST_F(cCanvas_Metafiles, ARecordGoesToAFile) {
    const support::TemporaryFolder folder;
    const std::u16string file = folder.file(u"dibujo.emf");
    ASSERT_TRUE(canvas->BeginRecordMetafile(file));
    canvas->FillBox(0, 0, 9, 9, red);
    canvas->DeleteMetafile(canvas->EndRecordMetafile(false));
    const std::string bytes = folder.read(u"dibujo.emf");
    ASSERT_GT(bytes.size(), 100u);
    EXPECT_EQ(" EMF", bytes.substr(40, 4));
    EXPECT_FALSE(canvas->BeginRecordMetafile(folder.path() + u"\\no\\hay\\carpeta.emf"));
    EXPECT_TRUE(canvas->GetPaintDC());
    canvas->FillBox(0, 0, 0, 0, blue);
    EXPECT_EQ(blue, canvas->GetPixel(0, 0)) << "still on the canvas";
}

TEST_F(cCanvas_Metafiles, AnEndWithoutABeginningGivesNothing) {
    const platform::HDC dc = canvas->GetPaintDC();
    EXPECT_FALSE(canvas->EndRecordMetafile());
    EXPECT_EQ(dc, canvas->GetPaintDC());
}

TEST_F(cCanvas_Metafiles, ACanvasThatWasNeverConfiguredRecordsNothing) {
    const auto fresh = automation::make<cCanvas>();
    const std::int32_t before = gdiObjects();
    EXPECT_EQ(automation::errors::Overflow, errorOf([&] { fresh->BeginRecordMetafile(); }));
    expectObjects(before);
    EXPECT_FALSE(fresh->EndRecordMetafile(false)) << "nothing is open";
}

TEST_F(cCanvas_Metafiles, WithoutATargetToMeasureByNothingIsRecorded) {
    const auto control = automation::make<cCanvas>();
    control->Configure({}, 0, 0, 10, 10, DCProvider_Auto, false);
    control->Resize(10, 10); // gives its target up
    const platform::HDC dc = control->GetPaintDC();
    const std::int32_t before = gdiObjects();
    EXPECT_EQ(automation::errors::Overflow, errorOf([&] { control->BeginRecordMetafile(); }));
    expectObjects(before);
    EXPECT_EQ(dc, control->GetPaintDC());
}

TEST_F(cCanvas_Metafiles, ACanvasThatEndsWhileRecordingLeavesNothing) {
    const std::int32_t before = gdiObjects();
    {
        const auto other = automation::make<cCanvas>();
        other->Configure(screen, 0, 0, 10, 10);
        ASSERT_TRUE(other->BeginRecordMetafile());
        other->SelectSimplePen(red);
    }
    expectObjects(before);
}

TEST_F(cCanvas_Metafiles, OneIsRecordedAtATime) {
    ASSERT_TRUE(canvas->BeginRecordMetafile());
    const platform::HDC recorder = canvas->GetPaintDC();
    EXPECT_FALSE(canvas->BeginRecordMetafile());
    EXPECT_EQ(recorder, canvas->GetPaintDC());
    canvas->FillBox(10, 5, 29, 24, red);
    canvas->DeleteMetafile(canvas->EndRecordMetafile());
    EXPECT_EQ(red, canvas->GetPixel(20, 15)) << "the first one goes on";
    ASSERT_TRUE(canvas->BeginRecordMetafile());
    canvas->DeleteMetafile(canvas->EndRecordMetafile());
}

TEST_F(cCanvas_Metafiles, ARecordingEndsWithTheContextAndLeavesThePicture) {
    const auto control = automation::make<cCanvas>();
    control->Configure(screen, 0, 0, 10, 10, DCProvider_Auto, false);
    control->FillBox(0, 0, 9, 9, red);
    const std::int32_t open = gdiObjects();
    // The target of such a canvas is the screen's context, which was given back: recording needs a living
    // one.
    control->Resize(10, 10, screen);
    control->FillBox(0, 0, 9, 9, red);
    ASSERT_TRUE(control->BeginRecordMetafile());
    control->FillBox(0, 0, 9, 9, black);
    control->EndPaint();
    EXPECT_FALSE(control->GetPaintDC());
    EXPECT_FALSE(control->EndRecordMetafile());
    control->BeginPaint();
    EXPECT_EQ(red, control->GetPixel(5, 5));
    expectObjects(open);
}

TEST_F(cCanvas_Metafiles, ConfiguringAnewEndsARecording) {
    const std::int32_t before = gdiObjects();
    ASSERT_TRUE(canvas->BeginRecordMetafile());
    canvas->Configure(screen, 0, 0, 40, 30);
    expectObjects(before);
    canvas->FillBox(0, 0, 39, 29, red);
    EXPECT_EQ(red, canvas->GetPixel(5, 5)) << "on the surface again";
    EXPECT_FALSE(canvas->EndRecordMetafile());
}

TEST_F(cCanvas_Metafiles, TheSurfaceIsResizedAndCopiedWhileARecordingGoesOn) {
    const std::int32_t before = gdiObjects();
    ASSERT_TRUE(canvas->BeginRecordMetafile());
    canvas->FillBox(0, 0, 39, 29, red);
    auto picture = canvas->BitMap2Picture();
    ASSERT_TRUE(picture);
    EXPECT_EQ(40, picture->pixels().cx);
    picture.reset();
    EXPECT_TRUE(canvas->Resize(60, 50));
    canvas->DeleteMetafile(canvas->EndRecordMetafile(false));
    expectObjects(before);
    canvas->FillBox(50, 40, 59, 49, red);
    EXPECT_EQ(red, canvas->GetPixel(59, 49)) << "in the new size";
    EXPECT_EQ(black, canvas->GetPixel(5, 5)) << "and empty";
}

TEST_F(cCanvas_Metafiles, APictureOfAMetafileIsPlayed) {
    const HENHMETAFILE metafile = recordBox(false);
    const auto picture = automation::make<host::Picture>(metafile);
    canvas->PaintPicture(picture, 0, 0);
    EXPECT_EQ(red, canvas->GetPixel(20, 15));
    EXPECT_EQ(black, canvas->GetPixel(2, 2));
    canvas->FillBox(0, 0, 39, 29, black);
    canvas->PaintPicture(picture, 0, 0, 20, 15);
    EXPECT_EQ(red, canvas->GetPixel(10, 7));
    EXPECT_EQ(black, canvas->GetPixel(20, 20));
    canvas->FillBox(0, 0, 39, 29, black);
    canvas->PaintPicture(picture, 20, 15, 20, 15);
    EXPECT_EQ(red, canvas->GetPixel(30, 22));
    EXPECT_EQ(black, canvas->GetPixel(10, 22));
    EXPECT_EQ(black, canvas->GetPixel(30, 7));
    const auto made = automation::make<cCanvas>();
    automation::Ref<automation::Object> object(picture);
    EXPECT_TRUE(made->CreateFromPicture(object, screen));
    EXPECT_EQ(red, made->GetPixel(20, 15));
}

TEST_F(cCanvas_Metafiles, TheClipboardTakesAMetafile) {
    const support::Desk desk;
    host::Clipboard::SetText(u"texto");
    canvas->CopyToClipboard(recordBox(false));
    EXPECT_FALSE(platform::CloseClipboard()) << "closed when all went well";
    EXPECT_EQ(u"", host::Clipboard::GetText()) << "alone there";
    EXPECT_TRUE(host::Clipboard::GetFormat(host::ClipboardFormat::EMetafile));
    const auto pasted = host::Clipboard::GetData(host::ClipboardFormat::EMetafile);
    canvas->PaintPicture(pasted, 0, 0);
    EXPECT_EQ(red, canvas->GetPixel(20, 15));
}

TEST_F(cCanvas_Metafiles, TheClipboardTakesACopyOfTheCanvas) {
    const support::Desk desk;
    canvas->FillBox(3, 3, 9, 9, red);
    host::Clipboard::SetText(u"texto");
    canvas->CopyToClipboard();
    EXPECT_EQ(u"", host::Clipboard::GetText()) << "alone there";
    EXPECT_TRUE(host::Clipboard::GetFormat(host::ClipboardFormat::DIB));
    const auto pasted = host::Clipboard::GetData(host::ClipboardFormat::DIB);
    canvas->FillBox(0, 0, 39, 29, blue);
    canvas->PaintPicture(pasted, 0, 0);
    EXPECT_EQ(red, canvas->GetPixel(4, 4));
    EXPECT_EQ(black, canvas->GetPixel(12, 12));
}

TEST_F(cCanvas_Metafiles, NothingGoesToTheClipboardWithoutASurface) {
    const support::Desk desk;
    host::Clipboard::SetText(u"texto");
    automation::make<cCanvas>()->CopyToClipboard();
    EXPECT_EQ(u"texto", host::Clipboard::GetText());
}
