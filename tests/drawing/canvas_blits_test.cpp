// Block transfers, translucency and the opening animation.
#include "CanvasTest.h"
#include "drawing/colours.h"
#include "frame/Globales.h"
#include "platform/clock.h"
#include "platform/windows.h"
#include "support/Canvas.h"
#include "support/LibraryLog.h"

#include <limits>

using namespace tesela;
using namespace tests;
using platform::HDC;

namespace {

class cCanvas_Blits : public CanvasTest {
protected:
    cCanvas_Blits() {
        // Four by four: red, green above; blue, white below.
        const platform::RECT all{0, 0, 4, 4};
        platform::FillRect(source.dc(), &all,
                           platform::HBRUSH(platform::GetStockObject(platform::WHITE_BRUSH).value));
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 2; ++x) {
                source.set(x, y, red);
                source.set(x + 2, y, green);
                source.set(x, y + 2, blue);
            }
    }

    const test::Canvas source{4, 4};
};

} // namespace

TEST_F(cCanvas_Blits, BitBltCopiesAPartByARasterOperation) {
    EXPECT_EQ(1, canvas->BitBlt(source.dc(), 1, 1, 4, 4));
    EXPECT_EQ("......\n.RRGG.\n.RRGG.\n.BB##.\n.BB##.\n......\n", picture(6, 6));
    EXPECT_EQ(1, canvas->BitBlt(source.dc(), 0, 0, 2, 1, 2, 0, static_cast<std::int32_t>(platform::SRCCOPY)));
    EXPECT_EQ("GG..\n", picture(4, 1));
    canvas->BitBlt(source.dc(), 0, 0, 2, 1, 0, 2);
    EXPECT_EQ("BB..\n", picture(4, 1));
    canvas->FillBox(0, 0, 3, 3, white);
    canvas->BitBlt(source.dc(), 0, 0, 4, 4, 0, 0, static_cast<std::int32_t>(platform::SRCINVERT));
    EXPECT_EQ(yellow, at(0, 2)) << "white without blue";
    EXPECT_EQ(black, at(3, 3));
}

TEST_F(cCanvas_Blits, StretchBltTakesTheTargetsSizeForAMissingSourceSize) {
    canvas->StretchBlt(source.dc(), 0, 0, 2, 2);
    EXPECT_EQ("RR\nRR\n", picture(2, 2));
    canvas->StretchBlt(source.dc(), 0, 0, 8, 8, 0, 0, 4, 4);
    EXPECT_EQ("RRRRGGGG\n", picture(8, 1));
    EXPECT_EQ(white, at(7, 7));
    canvas->StretchBlt(source.dc(), 0, 0, 4, 4, 2, 2, 2, 2);
    EXPECT_EQ("####\n", picture(4, 1));
    canvas->StretchBlt(source.dc(), 0, 0, 4, 4, 2, 0, 2, 2, static_cast<std::int32_t>(platform::SRCINVERT));
    EXPECT_EQ(0xFF00FF, at(3, 3)) << "white without green";
}

TEST_F(cCanvas_Blits, DibStretchBltPaintsThroughItsBits) {
    for (const int bits : {32, 24, 16, 8, 4, 1}) {
        const test::Canvas picture1(9, 5, bits);
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 9; ++x)
                picture1.set(x, y, (x + y) % 3 == 0 ? 0xFFFFFF : 0);
        canvas->FillBox(0, 0, 23, 15, red);
        const std::int32_t before = gdiObjects();
        EXPECT_EQ(0, canvas->DIB_StretchBlt(picture1.dc(), 2, 1, 9, 5));
        expectObjects(before);
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 9; ++x)
                EXPECT_EQ((x + y) % 3 == 0 ? white : black, at(2 + x, 1 + y)) << x << ", " << y;
        EXPECT_EQ(red, at(1, 1));
        EXPECT_EQ(red, at(11, 1));
    }
}

TEST_F(cCanvas_Blits, DibStretchBltStretches) {
    EXPECT_EQ(0, canvas->DIB_StretchBlt(source.dc(), 0, 0, 8, 8, 0, 0, 4, 4));
    EXPECT_EQ("RRRRGGGG\n", picture(8, 1));
    EXPECT_EQ(white, at(7, 7));
}

TEST_F(cCanvas_Blits, DibStretchBltPaintsAPartByARasterOperation) {
    canvas->DIB_StretchBlt(source.dc(), 0, 0, 2, 2, 2, 0);
    EXPECT_EQ("##\n##\n", picture(2, 2)) << "rows count from the bottom";
    canvas->DIB_StretchBlt(source.dc(), 0, 0, 2, 2, 2, 2);
    EXPECT_EQ("GG\nGG\n", picture(2, 2));
    canvas->DIB_StretchBlt(source.dc(), 0, 0, 2, 2, 0, 2, 0, 0,
                           static_cast<std::int32_t>(platform::SRCPAINT));
    EXPECT_EQ("YY\nYY\n", picture(2, 2)) << "red and green";
}

TEST_F(cCanvas_Blits, DibStretchBltTellsAndLogsTheStepThatFailed) {
    const std::string before = support::libraryLog();
    EXPECT_EQ(0, canvas->DIB_StretchBlt(source.dc(), 0, 0, 4, 4));
    EXPECT_EQ(before, support::libraryLog()) << "nothing to tell";
    EXPECT_EQ(1, canvas->DIB_StretchBlt({}, 0, 0, 4, 4)) << "no bitmap in no context";
    const std::string first = support::libraryLog().substr(before.size());
    EXPECT_NE(std::string::npos, first.find("Error # 1 en \"cCanvas.DIB_StretchBlt()\""));
    EXPECT_NE(std::string::npos, first.find("{BOR}"));
    const auto unconfigured = automation::make<cCanvas>();
    EXPECT_EQ(7, unconfigured->DIB_StretchBlt(source.dc(), 0, 0, 4, 4)) << "nothing to paint on";
    EXPECT_NE(std::string::npos, support::libraryLog().find("Error # 7 en \"cCanvas.DIB_StretchBlt()\""));
}

TEST_F(cCanvas_Blits, TransparentBltLeavesOneColourOut) {
    canvas->FillBox(0, 0, 23, 15, yellow);
    const std::int32_t before = gdiObjects();
    canvas->TransparentBlt(source.dc(), 1, 1, 4, 4);
    EXPECT_EQ("YYYYYY\nYRRGGY\nYRRGGY\nYBBYYY\nYBBYYY\nYYYYYY\n", picture(6, 6)) << "white by default";
    expectObjects(before);
    canvas->FillBox(0, 0, 23, 15, yellow);
    canvas->TransparentBlt(source.dc(), 0, 0, 4, 4, 0, 0, 0, 0, green);
    EXPECT_EQ("RRYY\nRRYY\nBB##\nBB##\n", picture(4, 4));
}

TEST_F(cCanvas_Blits, TransparentBltPaintsTheSameWhereItsTargetIsCutOff) {
    canvas->FillBox(0, 0, 23, 15, yellow);
    EXPECT_EQ(1, canvas->TransparentBlt(source.dc(), 2, 1, 4, 4, 0, 0, 0, 0, green));
    EXPECT_EQ(1, canvas->TransparentBlt(source.dc(), 21, 1, 4, 4, 0, 0, 0, 0, green));
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(at(2 + x, y), at(21 + x, y)) << x << ", " << y;
}

TEST_F(cCanvas_Blits, TransparentBltReadsItsSourceFromTheCorner) {
    canvas->TransparentBlt(source.dc(), 0, 0, 2, 2, 10, 10, 0, 0, white);
    EXPECT_EQ("RR\nRR\n", picture(2, 2));
    canvas->TransparentBlt(source.dc(), 0, 0, 8, 8, 2, 2, 4, 4, white);
    EXPECT_EQ("RRRRGGGG\n", picture(8, 1)) << "stretched";
}

TEST_F(cCanvas_Blits, TransparentBltLeavesItsColourOutOfAStretchedSource) {
    canvas->FillBox(0, 0, 23, 15, yellow);
    const std::int32_t before = gdiObjects();
    EXPECT_EQ(1, canvas->TransparentBlt(source.dc(), 2, 1, 8, 4, 0, 0, 4, 4));
    expectObjects(before);
    EXPECT_EQ("YYYYYYYYYYYY\n"
              "YYRRRRGGGGYY\n"
              "YYRRRRGGGGYY\n"
              "YYBBBBYYYYYY\n"
              "YYBBBBYYYYYY\n"
              "YYYYYYYYYYYY\n",
              picture(12, 6));
    canvas->DrawBox(2, 1, 9, 4, white, black);
    canvas->TransparentBlt(source.dc(), 2, 1, 8, 4, 0, 0, 4, 4, red);
    EXPECT_EQ("YY####GGGGYY\n"
              "YY#RRRGGGGYY\n"
              "YYBBBB####YY\n"
              "YYBBBB####YY\n",
              picture(12, 5).substr(13))
        << "each pixel of the target where it was";
    canvas->TransparentBlt(source.dc(), 0, 0, 2, 2, 0, 0, 4, 4, yellow);
    EXPECT_EQ("RG\nB#\n", picture(2, 2)) << "shrunk";
}

TEST_F(cCanvas_Blits, AlphaBlendMixesAllButTheLastRowAndColumn) {
    canvas->AlphaBlend(source.dc(), 0, 0, 4, 4, 0, 0, 0, 0, 255);
    EXPECT_EQ("RRG.\nRRG.\nBB#.\n....\n", picture(4, 4)) << "255 is the opaque source";
    canvas->FillBox(0, 0, 3, 3, yellow);
    canvas->AlphaBlend(source.dc(), 0, 0, 4, 4, 0, 0, 0, 0, 0);
    EXPECT_EQ("YYYY\n", picture(4, 1)) << "0 leaves what is there";
    canvas->FillBox(0, 0, 3, 3, black);
    canvas->AlphaBlend(source.dc(), 0, 0, 4, 4);
    EXPECT_EQ(128, at(0, 0)) << "half by default";
}

TEST_F(cCanvas_Blits, AlphaBlendStretchesBothAreasWithoutTheirLast) {
    canvas->AlphaBlend(source.dc(), 0, 0, 7, 7, 0, 0, 4, 4, 255);
    EXPECT_EQ("RRRRGG.\n", picture(7, 1)) << "three columns on six";
    EXPECT_EQ("BBBB##.\n.......\n", picture(7, 7).substr(40));
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->AlphaBlend(source.dc(), 0, 0, 3, 3, 2, 1, 0, 0, 255);
    EXPECT_EQ("GG.\n##.\n...\n", picture(3, 3)) << "a part of the source";
}

TEST_F(cCanvas_Blits, AlphaBlendLeavesTheLastRowOfItsSourceOut) {
    const test::Canvas striped(4, 4);
    for (int x = 0; x < 4; ++x)
        striped.set(x, 3, red);
    canvas->FillBox(0, 0, 23, 15, white);
    canvas->AlphaBlend(striped.dc(), 0, 0, 10, 10, 0, 0, 4, 4, 255);
    EXPECT_EQ(".........#\n.........#\n##########\n", picture(10, 10).substr(77));
    for (int y = 0; y < 4; ++y) {
        striped.set(3, y, red);
        striped.set(y, 3, black);
    }
    canvas->FillBox(0, 0, 23, 15, white);
    canvas->AlphaBlend(striped.dc(), 0, 0, 10, 10, 0, 0, 4, 4, 255);
    EXPECT_EQ(".........#\n", picture(10, 1)) << "and the last column";
}

TEST_F(cCanvas_Blits, SizesAtTheEndsOfLongDoNotWrapRound) {
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                           most = std::numeric_limits<std::int32_t>::max();
    for (const std::int32_t size : {least, least + 1}) {
        EXPECT_EQ(0, canvas->AlphaBlend(source.dc(), 0, 0, size, size, 0, 0, 4, 4)) << size;
        EXPECT_EQ(0, canvas->AlphaBlend(source.dc(), 0, 0, 4, 4, 0, 0, size, size)) << size;
    }
    canvas->RectangleTranslucency(least, least, most, most, red, 255);
    canvas->RectangleTranslucency(most, most, least, least, red, 255);
    EXPECT_EQ("....\n", picture(4, 1));
}

TEST_F(cCanvas_Blits, ColoursAreMixedChannelByChannel) {
    const std::int32_t c1 = 0x204060, c2 = 0xE0A010;
    EXPECT_EQ(c1, canvas->CalculateColorMix(c1, c2, 255));
    // 32 + 191.25, 64 + 95.625, 96 - 79.6875: just short of the second colour.
    EXPECT_EQ(0xDFA010, canvas->CalculateColorMix(c1, c2, 0));
    EXPECT_EQ(254, canvas->CalculateColorMix(black, 255, 0)) << "of 256";
    EXPECT_EQ(0x020200, canvas->CalculateColorMix(0x030100, 0x020201, 127))
        << "halves go to the even neighbour";
    EXPECT_EQ(CalculateColorMix(c1, c2, 100), canvas->CalculateColorMix(c1, c2, 100));
    const std::int32_t system = host::colorButtonFace;
    EXPECT_EQ(15, canvas->CalculateColorMix(system, system, 128)) << "not resolved";
}

TEST_F(cCanvas_Blits, TranslucencyLaysAColourOverAnArea) {
    canvas->FillBox(0, 0, 23, 15, black);
    const std::int32_t before = gdiObjects();
    canvas->RectangleTranslucency(2, 2, 5, 5, red, 255);
    expectObjects(before);
    EXPECT_EQ("......\n......\n..RRR.\n..RRR.\n..RRR.\n......\n", picture(6, 6))
        << "the blend leaves the last row and column out";
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->ApplyTranslucency(red, 128);
    EXPECT_EQ(128, at(0, 0));
    EXPECT_EQ(128, at(23, 15));
}

TEST_F(cCanvas_Blits, TranslucencyColoursNoMoreThanTheCanvasMeasures) {
    canvas->FillBox(0, 0, 23, 15, white);
    canvas->RectangleTranslucency(-10, -4, 23, 15, red, 255);
    EXPECT_EQ(red, at(14, 12)) << "24 columns and 16 rows from the corner, and one more of each";
    EXPECT_EQ(black, at(15, 12));
    EXPECT_EQ(black, at(14, 13));
    EXPECT_EQ(white, at(23, 14)) << "the blend leaves its last column out";
}

TEST_F(cCanvas_Blits, TheOpeningFrameTakesItsTimeAndLeavesNothing) {
    const HDC screen = platform::GetDC({});
    const auto look = [&] {
        std::string seen;
        for (int y = 0; y < 100; y += 3)
            for (int x = 0; x < 100; ++x)
                seen += std::to_string(platform::GetPixel(screen, x, y)) + ' ';
        return seen;
    };
    const std::string before = look();
    const platform::DWORD start = platform::GetTickCount();
    const std::int32_t objects = gdiObjects();
    auto desktop = automation::make<cCanvas>();
    desktop->ExplodingRect(5, 5, 10, 10, 20, 20, 90, 80);
    EXPECT_EQ(5 + 70, desktop->Width()) << "as wide as both rectangles together";
    EXPECT_EQ(5 + 60, desktop->Height());
    desktop.reset();
    expectObjects(objects);
    constexpr platform::DWORD clockStep = 16; // the system's tick count moves in steps
    EXPECT_GE(platform::GetTickCount() - start, 180u - clockStep) << "two passes of nine steps of 10 ms";
    EXPECT_EQ(before, look());
    platform::ReleaseDC({}, screen);
}

TEST_F(cCanvas_Blits, WithoutEffectsNothingOpens) {
    globales().lGraphicsEffects = false;
    const platform::DWORD start = platform::GetTickCount();
    const auto desktop = automation::make<cCanvas>();
    desktop->ExplodingRect(5, 5, 10, 10, 20, 20, 90, 80);
    EXPECT_LT(platform::GetTickCount() - start, 100u);
    EXPECT_FALSE(desktop->GetPaintDC());
    globales().lGraphicsEffects = true;
}
