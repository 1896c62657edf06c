// Sizes from one end of a Long to the other: what is asked for beyond reason is refused or cut to the
// surface, in little memory, and leaves nothing behind.
#include "drawing/CanvasTest.h"
#include "drawing/cHTML.h"
#include "platform/windows.h"
#include "support/Canvas.h"

#include <array>
#include <cmath>
#include <ctime>
#include <limits>
#include <sys/resource.h>

using namespace tesela;
using namespace tests;
using automation::String;

namespace {

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                       most = std::numeric_limits<std::int32_t>::max();
constexpr std::array<std::int32_t, 9> lengths = {least, -65535, -1, 0, 1, 32767, 65535, 1 << 24, most};

/// Whether surfaces of a size are small ones or such that nobody can have: those between are made, and take
/// the memory that was asked for.
bool isSmallOrBeyondReason(std::int32_t width, std::int32_t height) {
    constexpr double small = 1 << 20, bitsOfTheLargest = 1LL << 35;
    const double pixels = std::abs(static_cast<double>(width) * height);
    return pixels < small || pixels > bitsOfTheLargest;
}

/// The most memory that this process has held, in KiB.
long peakMemory() {
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// How long the processor has worked for this process.
double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

class cCanvas_Limits : public CanvasTest {
protected:
    cCanvas_Limits() {
        const platform::RECT all{0, 0, 16, 16};
        platform::FillRect(source.dc(), &all,
                           platform::HBRUSH(platform::GetStockObject(platform::WHITE_BRUSH).value));
        objects = gdiObjects();
        memory = peakMemory();
    }

    /// Calls an action with each pair of lengths; then the canvas is as usable as before.
    template <class Action>
    void forEachSize(Action action) {
        for (const std::int32_t width : lengths)
            for (const std::int32_t height : lengths) {
                SCOPED_TRACE(std::to_string(width) + " by " + std::to_string(height));
                action(width, height);
            }
        expectGoesOn();
    }
    void expectGoesOn() {
        constexpr long allowed = 160L * 1024; // KiB: what is between small and beyond reason takes more
        EXPECT_LT(peakMemory() - memory, allowed);
        canvas->Minimize_GDI_UsedResources();
        expectObjects(objects);
        canvas->FillBox(0, 0, 23, 15, blue);
        EXPECT_EQ(blue, at(23, 15));
    }

    const test::Canvas source{16, 16};
    std::int32_t objects = 0;
    long memory = 0;
};

} // namespace

TEST_F(cCanvas_Limits, OfCopies) {
    forEachSize([&](std::int32_t width, std::int32_t height) {
        canvas->BitBlt(source.dc(), 0, 0, width, height);
        canvas->StretchBlt(source.dc(), 0, 0, width, height, 0, 0, 16, 16);
        canvas->StretchBlt(source.dc(), 0, 0, 16, 16, 0, 0, width, height);
        canvas->SetStretchBltMode(StretchBlt_HalfTone);
        canvas->StretchBlt(source.dc(), 3, 3, width, height, 0, 0, 16, 16);
        canvas->StretchBlt(source.dc(), 0, 0, 16, 16, 0, 0, width, height);
        canvas->SetStretchBltMode(StretchBlt_BlackOnWhite);
        canvas->AlphaBlend(source.dc(), 0, 0, width, height, 0, 0, 16, 16);
        canvas->AlphaBlend(source.dc(), 0, 0, 16, 16, 0, 0, width, height);
        canvas->DIB_StretchBlt(source.dc(), 0, 0, width, height, 0, 0, 16, 16);
        canvas->DIB_StretchBlt(source.dc(), 0, 0, 16, 16, 0, 0, width, height);
    });
}

TEST_F(cCanvas_Limits, OfTranslucencyAndOfCopiesWithoutOneColour) {
    forEachSize([&](std::int32_t width, std::int32_t height) {
        if (!isSmallOrBeyondReason(width, height)) return;
        canvas->TransparentBlt(source.dc(), 0, 0, width, height, 0, 0, 16, 16);
        canvas->TransparentBlt(source.dc(), 0, 0, 16, 16, 0, 0, width, height);
        canvas->RectangleTranslucency(0, 0, width, height, red, 100);
    });
}

TEST_F(cCanvas_Limits, OfFillsAndShapes) {
    canvas->SelectSimplePen(red);
    canvas->SelectSolidBrush(green);
    objects = gdiObjects() - 2;
    forEachSize([&](std::int32_t x, std::int32_t y) {
        canvas->FillBox(0, 0, x, y, red);
        canvas->FillRect(x, y, 5, 5);
        canvas->GradientFillRect(0, 0, x, y, true, red, blue);
        canvas->GradientFillRect(x, y, 5, 5, false, red, blue);
        canvas->Rectangle(0, 0, x, y);
        canvas->DrawLine(0, 0, x, y, red);
        canvas->DrawBox(x, y, 5, 5, red, blue);
        canvas->FloodFill(x, y, red, true);
        canvas->SetPixel(x, y, red);
        EXPECT_EQ(x >= 0 && y >= 0 && x < 24 && y < 16 ? red : -1, canvas->GetPixel(x, y));
        canvas->SetClippingRect({0, 0, x, y}, true);
        canvas->FillBox(0, 0, 5, 5, red);
        canvas->ClearClipping(true);
    });
}

TEST_F(cCanvas_Limits, OfWhatIsRecorded) {
    const platform::HDC screen = platform::GetDC({});
    const auto recording = automation::make<cCanvas>();
    recording->Configure(screen, 0, 0, 24, 16);
    recording->FillBox(0, 0, 23, 15, black);
    ASSERT_TRUE(recording->BeginRecordMetafile());
    for (const std::int32_t x : lengths)
        for (const std::int32_t y : lengths) {
            recording->SetPixel(x, y, red);
            recording->DrawLine(0, 0, x, y, red);
            recording->DrawTriangle(x, y, 3, red);
            recording->DrawBox(x, y, 5, 5, red, blue);
            recording->FillBox(x, y, 5, 5, red);
            recording->FillBox(0, 0, x, y, red);
            recording->Rectangle(x, y, 5, 5);
            recording->BitBlt({}, x, y, 100, 10, 0, 0, platform::BLACKNESS);
            recording->BitBlt({}, 0, 0, x, y, 0, 0, platform::BLACKNESS);
            recording->BitBlt(source.dc(), x, y, 16, 16);
            recording->StretchBlt(source.dc(), 0, 0, x, y, 0, 0, 16, 16);
        }
    recording->FillBox(0, 0, 23, 15, blue);
    recording->FillBox(least, 2, most, 5, red);
    recording->FillBox(8, least, 9, most, green);
    recording->BitBlt({}, 0, most - 7, 100, 10, 0, 0, platform::BLACKNESS);
    const platform::HENHMETAFILE metafile = recording->EndRecordMetafile();
    EXPECT_TRUE(metafile);
    EXPECT_EQ(red, recording->GetPixel(1, 3));
    EXPECT_EQ(red, recording->GetPixel(22, 4));
    EXPECT_EQ(green, recording->GetPixel(8, 1));
    EXPECT_EQ(green, recording->GetPixel(8, 14));
    EXPECT_EQ(blue, recording->GetPixel(1, 8));
    EXPECT_TRUE(recording->DeleteMetafile(metafile));
    platform::ReleaseDC({}, screen);
}

TEST_F(cCanvas_Limits, OfRoundShapes) {
    canvas->SelectSolidBrush(green);
    objects = gdiObjects() - 1;
    forEachSize([&](std::int32_t x, std::int32_t y) {
        canvas->RoundRect(1, 1, 20, 12, x, y);
        platform::DeleteObject(platform::CreateRoundRectRgn(1, 1, 20, 12, x, y));
        canvas->Pie(1, 1, 20, 12, x, y, 5, 5);
        canvas->Chord(1, 1, 20, 12, 3, 4, x, y);
        if (x < 1 << 24 && y < 1 << 24) canvas->Ellipse(0, 0, x, y);
    });
}

TEST_F(cCanvas_Limits, OfPens) {
    for (const std::int32_t width : lengths) {
        canvas->SelectPen(PenStyle_Solid, width, red);
        canvas->DrawLine(2, 2, 20, 12);
        canvas->SelectPen(PenStyle_Dash, width, red);
        canvas->Ellipse(2, 2, 20, 12);
    }
    expectGoesOn();
}

TEST_F(cCanvas_Limits, HugePensOnHugeCurvesAreWorkForWhatShowsAlone) {
    const auto large = automation::make<cCanvas>();
    ASSERT_TRUE(large->Configure({}, 0, 0, 1000, 600, DCProvider_Auto, false));
    const double start = processorSeconds();
    for (const PenStyleConstants style : {PenStyle_Solid, PenStyle_InsideFrame}) {
        large->SelectPen(style, 500'000, red);
        large->Ellipse(-500'000, -500'000, 500'000, 500'000);
        large->RoundRect(5, 5, 500'000, 500'000, 300'000, 300'000);
    }
    EXPECT_LT(processorSeconds() - start, 1.0);
    EXPECT_EQ(red, large->GetPixel(0, 0));
    EXPECT_EQ(red, large->GetPixel(999, 599));
}

TEST_F(cCanvas_Limits, MixedColoursFillManyPixelsOfOneBitAtOnce) {
    const test::Canvas bits{16'384, 8192, 1};
    const platform::RECT all{1, 1, bits.width() - 1, bits.height() - 1};
    const double start = processorSeconds();
    platform::fillSolidRect(bits.dc(), all, grey);
    EXPECT_LT(processorSeconds() - start, 1.0);
    EXPECT_EQ(black, static_cast<std::int32_t>(bits.at(0, 0)));
    EXPECT_NE(bits.at(5000, 5000), bits.at(5001, 5000)) << "every other one is white";
}

TEST_F(cCanvas_Limits, OfPictures) {
    const auto bitmap = canvas->GetResPicture(std::int32_t{125}, 0);
    const auto icon = canvas->GetResPicture(std::int32_t{125});
    const platform::HDC screen = platform::GetDC({});
    const auto recording = automation::make<cCanvas>();
    recording->Configure(screen, 0, 0, 10, 10);
    recording->BeginRecordMetafile();
    recording->FillBox(0, 0, 9, 9, red);
    const auto metafile = automation::make<host::Picture>(recording->EndRecordMetafile(false));
    platform::ReleaseDC({}, screen);
    objects = gdiObjects();
    forEachSize([&](std::int32_t width, std::int32_t height) {
        for (const auto& picture1 : {bitmap, metafile}) {
            canvas->PaintPicture(picture1, 0, 0, width, height);
            canvas->PaintPicture(picture1, width, height, 5, 5);
            canvas->PaintPicture(picture1, 0, 0, 5, 5, width, height, 5, 5);
            canvas->PaintPicture(picture1, 0, 0, 5, 5, 0, 0, width, height);
        }
        canvas->PaintPicture(icon, width, height, 5, 5);
        constexpr std::int32_t own = 16; // where one length is left out
        if (!isSmallOrBeyondReason(width ? width : own, height ? height : own)) return;
        canvas->PaintPicture(icon, 0, 0, width, height);
        canvas->PaintPicture(icon, 0, 0, 5, 5, 0, 0, width, height);
    });
}

TEST_F(cCanvas_Limits, OfFonts) {
    for (const std::int32_t height : lengths)
        for (const std::int32_t width : {0, most}) {
            canvas->SelectFont(u"Verdana", height, width, true, true, true);
            canvas->TextOut(0, 0, u"a");
            std::int32_t textWidth = 0, textHeight = 0;
            canvas->GetTextExtent(u"abc", textWidth, textHeight);
            String face = u"Verdana";
            canvas->SelectSimpleFont(face, height, 0, width);
            canvas->TextOut(0, 0, u"a");
        }
    expectGoesOn();
}

TEST_F(cCanvas_Limits, OfSurfaces) {
    for (const std::int32_t width : {least, -65535, 65535, most})
        for (const std::int32_t height : {least, -65535, 65535, most}) {
            const auto large = automation::make<cCanvas>();
            large->Configure({}, 0, 0, width, height, DCProvider_Auto, false);
            EXPECT_TRUE(large->GetPaintDC());
            large->Clear();
            large->RectangleTranslucency(0, 0, 7, 7, red, 128);
            large->ApplyTranslucency(red, 128);
            large->EndPaint();
            large->BeginPaint();
            large->Resize(width, height, source.dc());
        }
    expectGoesOn();
}

TEST_F(cCanvas_Limits, OfMarkedUpText) {
    const auto html = automation::make<cHTML>();
    html->Canvas(canvas);
    for (const std::int32_t length : lengths) {
        html->SetMargenes(length, length, length);
        html->HTMLText(u"uno dos <B>tres</B> cuatro<BR>cinco");
        html->Render(false);
        html->SetMargenes(2, 2, length);
        html->Render(false);
    }
    html->Canvas({});
    expectGoesOn();
}
