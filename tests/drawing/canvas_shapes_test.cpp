// Lines, frames, fills, shapes and the arrowhead.
#include "CanvasTest.h"
#include "platform/windows.h"
#include "support/Desk.h"
#include "support/MsgBoxAnswer.h"

#include <cmath>
#include <limits>

using namespace tesela;
using namespace tests;
using automation::Array;
using automation::Variant;

namespace {

class cCanvas_Shapes : public CanvasTest {
protected:
    /// What a platform call paints on a second canvas of the same kind.
    template <class Draw>
    std::string platformPicture(Draw draw) {
        const auto former = canvas;
        canvas = automation::make<cCanvas>();
        canvas->Configure({}, 0, 0, 24, 16, DCProvider_Auto, false);
        canvas->FillBox(0, 0, 24, 16, black);
        canvas->SelectSimplePen(red);
        canvas->SelectSolidBrush(green);
        draw(canvas->GetPaintDC());
        const std::string result = picture(24, 16);
        canvas = former;
        return result;
    }
    void selectColours() {
        canvas->SelectSimplePen(red);
        canvas->SelectSolidBrush(green);
    }
    std::size_t painted(std::int32_t color) const {
        std::size_t count = 0;
        for (std::int32_t y = 0; y < 16; ++y)
            for (std::int32_t x = 0; x < 24; ++x)
                count += at(x, y) == color;
        return count;
    }
};

Array longs(std::initializer_list<std::int32_t> values, std::int32_t lower = 0) {
    Array result(automation::VT_I4, {{lower, static_cast<std::uint32_t>(values.size())}});
    for (const std::int32_t value : values)
        result.set(Variant(value), lower++);
    return result;
}

constexpr double pi = 3.14159265358979;

} // namespace

TEST_F(cCanvas_Shapes, PixelsAreSetInTheColourAsItIs) {
    EXPECT_EQ(1, canvas->SetPixel(1, 1, 0x123456));
    EXPECT_EQ(0x123456, at(1, 1));
    EXPECT_EQ(-1, at(-1, 0));
    EXPECT_EQ(-1, at(24, 0));
}

TEST_F(cCanvas_Shapes, ALineInAColourHasItsLastPixel) {
    canvas->DrawLine(1, 1, 5, 1, red);
    EXPECT_EQ("........\n"
              ".RRRRR..\n"
              "........\n",
              picture(8, 3));
}

TEST_F(cCanvas_Shapes, ALineInThePenInUseLeavesItsLastPixelOut) {
    canvas->SelectSimplePen(green);
    canvas->DrawLine(1, 1, 5, 1);
    EXPECT_EQ(".GGGG...\n", picture(8, 2).substr(9));
}

TEST_F(cCanvas_Shapes, ALineWithoutItsSecondPointStartsAtTheCurrentPosition) {
    canvas->MoveTo(2, 0);
    canvas->DrawLine(2, 3, cCanvas::noCoordinate, cCanvas::noCoordinate, blue);
    EXPECT_EQ("....\n", picture(4, 5).substr(20)) << "the last row stays";
    EXPECT_EQ("..B.\n..B.\n..B.\n..B.\n", picture(4, 4));
    canvas->DrawLine(0, 3, cCanvas::noCoordinate, cCanvas::noCoordinate, red);
    EXPECT_EQ("RRR.\n", picture(4, 4).substr(15)) << "on from the end of the last one";
}

TEST_F(cCanvas_Shapes, OneCoordinateThatLooksLeftOutIsACoordinate) {
    canvas->DrawLine(3, 3, cCanvas::noCoordinate, 3, red);
    EXPECT_EQ("RRRR.\n", picture(5, 4).substr(18));
}

TEST_F(cCanvas_Shapes, AFrameDecidesItsCorners) {
    canvas->DrawBox(1, 1, 5, 4, red, blue);
    EXPECT_EQ(".......\n"
              ".RRRRB.\n"
              ".R...B.\n"
              ".R...B.\n"
              ".BBBBB.\n"
              ".......\n",
              picture(7, 6));
}

TEST_F(cCanvas_Shapes, AFrameInThePenInUseSetsNoCornerOfItsOwn) {
    canvas->SelectPen(PenStyle_Solid, 1, green);
    canvas->DrawBox(1, 1, 4, 4);
    EXPECT_EQ("......\n"
              ".GGGG.\n"
              ".G..G.\n"
              ".G..G.\n"
              ".GGGG.\n",
              picture(6, 5))
        << "the lines themselves meet in the corner where they began";
    const std::int32_t before = gdiObjects();
    canvas->DrawBox(1, 1, 4, 4);
    expectObjects(before);
}

TEST_F(cCanvas_Shapes, AFrameOfOneColourHasItsLastCornerSet) {
    canvas->SelectSimplePen(green);
    canvas->DrawBox(0, 0, 2, 2, -1, red);
    EXPECT_EQ("GGR\nG.R\nRRR\n", picture(3, 3));
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->DrawBox(0, 0, 2, 2, red);
    EXPECT_EQ("RRR\nR.R\nRRR\n", picture(3, 3));
}

TEST_F(cCanvas_Shapes, LinesFramesAndArrowheadsResolveSystemColours) {
    const std::int32_t highlight = canvas->GetVBSysColor(host::systemColor(platform::COLOR_HIGHLIGHT));
    canvas->DrawLine(0, 0, 3, 0, host::systemColor(platform::COLOR_HIGHLIGHT));
    EXPECT_EQ(highlight, at(1, 0));
    EXPECT_EQ(highlight, at(3, 0)) << "its last pixel";
    canvas->DrawBox(0, 2, 4, 6, host::systemColor(platform::COLOR_HIGHLIGHT), red);
    EXPECT_EQ(highlight, at(0, 2));
    canvas->DrawBox(6, 2, 10, 6, red, host::systemColor(platform::COLOR_HIGHLIGHT));
    EXPECT_EQ(highlight, at(10, 4));
    EXPECT_EQ(highlight, at(6, 6)) << "its corner";
    canvas->DrawTriangle(15, 5, 3, host::systemColor(platform::COLOR_HIGHLIGHT));
    EXPECT_EQ(highlight, at(15, 6)) << "its tip";
    EXPECT_EQ(highlight, at(14, 5));
    canvas->SelectSolidBrush(yellow);
    canvas->FillBox(0, 10, 5, 15, host::systemColor(platform::COLOR_HIGHLIGHT));
    canvas->FloodFill(2, 12, host::systemColor(platform::COLOR_HIGHLIGHT), true);
    EXPECT_EQ(yellow, at(5, 15));
}

TEST_F(cCanvas_Shapes, AColouredLineLeavesItsPenInUse) {
    canvas->DrawLine(0, 0, 3, 0, blue);
    platform::LOGPEN pen;
    platform::GetObjectPen(platform::HPEN(current(platform::OBJ_PEN).value), &pen);
    EXPECT_EQ(static_cast<platform::UINT>(platform::PS_SOLID), pen.lopnStyle);
    EXPECT_EQ(0, pen.lopnWidth.x);
    EXPECT_EQ(static_cast<platform::COLORREF>(blue), pen.lopnColor);
    canvas->DrawLine(0, 2, 3, 2);
    EXPECT_EQ("BBB.\n", picture(4, 3).substr(10));
}

TEST_F(cCanvas_Shapes, FillsCoverTheirLastRowAndColumn) {
    canvas->FillBox(0, 0, 0, 0, red);
    EXPECT_EQ("R..\n...\n", picture(3, 2));
    canvas->FillBox(1, 1, 3, 2, blue);
    EXPECT_EQ("R....\n.BBB.\n.BBB.\n.....\n", picture(5, 4));
    const std::int32_t before = gdiObjects();
    canvas->FillBox(0, 0, 10, 10, green);
    expectObjects(before);
}

TEST_F(cCanvas_Shapes, FillRectTakesABrushOrTheOneInUse) {
    canvas->FillRect(0, 0, 2, 2);
    EXPECT_EQ(24u * 16, painted(black)) << "none in use that is the canvas's";
    canvas->SelectSolidBrush(red);
    canvas->FillRect(0, 0, 1, 1);
    EXPECT_EQ("RR.\nRR.\n...\n", picture(3, 3));
    const auto brush = canvas->CreateSolidBrush(blue);
    canvas->FillRect(1, 1, 2, 2, brush);
    EXPECT_EQ("RR.\nRBB\n.BB\n", picture(3, 3));
    EXPECT_EQ(0, canvas->FillRect(0, 0, 9, 9, platform::HBRUSH()));
    EXPECT_EQ("RR.\n", picture(3, 1));
    canvas->DeleteObject(brush);
}

TEST_F(cCanvas_Shapes, GradientsLeaveTheirLastRowAndColumnOut) {
    canvas->GradientFillRect(0, 0, 0, 0, true, red, red);
    EXPECT_EQ(24u * 16, painted(black));
    EXPECT_EQ(1, canvas->GradientFillRect(1, 1, 4, 3, true, red, red));
    EXPECT_EQ(".....\n.RRR.\n.RRR.\n.....\n", picture(5, 4));
}

TEST_F(cCanvas_Shapes, GradientsRunAcrossOrDown) {
    canvas->GradientFillRect(0, 0, 16, 4, true, black, white);
    canvas->GradientFillRect(0, 8, 16, 16, false, white, red);
    EXPECT_EQ(black, at(0, 0));
    EXPECT_LT(at(1, 0), at(8, 0));
    EXPECT_EQ(at(8, 0), at(8, 3));
    EXPECT_EQ(at(0, 8), at(15, 8));
    EXPECT_LT(at(0, 15) & 0xFF00, at(0, 8) & 0xFF00);
}

TEST_F(cCanvas_Shapes, GradientsStartInTheirFirstColour) {
    for (const std::int32_t color : {0x123456, 0xFEDCBA, 0x80FF01}) {
        canvas->GradientFillRect(0, 0, 8, 4, true, color, color);
        EXPECT_EQ(color, at(3, 2));
        canvas->GradientFillRect(0, 4, 8, 8, false, color, black);
        EXPECT_EQ(color, at(3, 4));
        EXPECT_EQ(at(0, 6), at(7, 6)) << "down";
    }
}

TEST_F(cCanvas_Shapes, GradientsDoNotResolveSystemColours) {
    const std::int32_t face = host::colorButtonFace; // red 15, the rest 0
    canvas->GradientFillRect(0, 0, 4, 4, true, face, face);
    EXPECT_EQ(15, at(1, 1));
}

TEST_F(cCanvas_Shapes, ClearPaintsTheFaceOfButtons) {
    canvas->Clear();
    EXPECT_EQ(canvas->GetVBSysColor(host::colorButtonFace), at(0, 0));
    EXPECT_EQ(canvas->GetVBSysColor(host::colorButtonFace), at(23, 15));
}

TEST_F(cCanvas_Shapes, RectanglesIncludeTheirEdge) {
    selectColours();
    EXPECT_EQ(1, canvas->Rectangle(1, 1, 4, 3));
    EXPECT_EQ("......\n.RRRR.\n.RGGR.\n.RRRR.\n......\n", picture(6, 5));
}

TEST_F(cCanvas_Shapes, RoundShapesIncludeTheirEdge) {
    selectColours();
    canvas->Ellipse(2, 2, 20, 12);
    EXPECT_EQ(platformPicture([](platform::HDC dc) { platform::Ellipse(dc, 2, 2, 21, 13); }),
              picture(24, 16));
    EXPECT_EQ(red, at(11, 12));
    EXPECT_EQ(red, at(20, 7));
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->RoundRect(1, 1, 21, 13, 6, 4);
    EXPECT_EQ(platformPicture([](platform::HDC dc) { platform::RoundRect(dc, 1, 1, 22, 14, 7, 5); }),
              picture(24, 16));
}

TEST_F(cCanvas_Shapes, PiecesOfEllipsesTakeTheirPointsAsTheyAre) {
    const auto compare = [&](auto own, auto platforms) {
        canvas->FillBox(0, 0, 23, 15, black);
        selectColours();
        own();
        EXPECT_EQ(platformPicture(platforms), picture(24, 16));
        EXPECT_LT(painted(black), 24u * 16);
    };
    compare([&] { canvas->Pie(1, 1, 20, 12, 20, 6, 10, 1); },
            [](platform::HDC dc) { platform::Pie(dc, 1, 1, 21, 13, 20, 6, 10, 1); });
    compare([&] { canvas->Chord(1, 1, 20, 12, 20, 6, 10, 1); },
            [](platform::HDC dc) { platform::Chord(dc, 1, 1, 21, 13, 20, 6, 10, 1); });
    compare([&] { canvas->Arc(1, 1, 20, 12, 20, 6, 10, 1); },
            [](platform::HDC dc) { platform::Arc(dc, 1, 1, 21, 13, 20, 6, 10, 1); });
}

TEST_F(cCanvas_Shapes, AnglesRunCounterClockwiseFromTheRight) {
    // The ellipse from (1, 1) to (20, 12): middle (10.5, 6.5), radii 10 and 6.
    const struct {
        double start, end;
        platform::POINT from, to;
    } cases[] = {
        {0, pi / 2, {20, 6}, {11, 0}},         // 20.5 and 6.5 go to the even neighbour; 10.5 and a trace
        {pi, 3 * pi / 2, {0, 6}, {10, 12}},    // 0.5, 6.5; 10.5, 12.5
        {pi / 4, 5 * pi / 4, {18, 2}, {3, 11}} // 17.57, 2.26; 3.43, 10.74
    };
    for (const auto& one : cases) {
        canvas->FillBox(0, 0, 23, 15, black);
        selectColours();
        canvas->Sector(1, 1, 20, 12, one.start, one.end);
        EXPECT_EQ(platformPicture([&](platform::HDC dc) {
                      platform::Pie(dc, 1, 1, 21, 13, one.from.x, one.from.y, one.to.x, one.to.y);
                  }),
                  picture(24, 16));
        canvas->FillBox(0, 0, 23, 15, black);
        canvas->Cuerda(1, 1, 20, 12, one.start, one.end);
        EXPECT_EQ(platformPicture([&](platform::HDC dc) {
                      platform::Chord(dc, 1, 1, 21, 13, one.from.x, one.from.y, one.to.x, one.to.y);
                  }),
                  picture(24, 16));
        canvas->FillBox(0, 0, 23, 15, black);
        canvas->Arco(1, 1, 20, 12, one.start, one.end);
        EXPECT_EQ(platformPicture([&](platform::HDC dc) {
                      platform::Arc(dc, 1, 1, 21, 13, one.from.x, one.from.y, one.to.x, one.to.y);
                  }),
                  picture(24, 16));
    }
}

TEST_F(cCanvas_Shapes, FloodFillTakesASurfaceOrABorder) {
    canvas->DrawBox(2, 2, 8, 8, red, red);
    canvas->FillBox(4, 4, 4, 4, blue);
    canvas->SelectSolidBrush(green);
    EXPECT_EQ(1, canvas->FloodFill(3, 3, black, true));
    EXPECT_EQ(green, at(7, 7));
    EXPECT_EQ(blue, at(4, 4)) << "another colour";
    EXPECT_EQ(black, at(1, 1));
    canvas->SelectSolidBrush(yellow);
    EXPECT_EQ(1, canvas->FloodFill(3, 3, red, false));
    EXPECT_EQ(yellow, at(4, 4)) << "up to the border every colour";
    EXPECT_EQ(red, at(2, 2));
    EXPECT_EQ(black, at(1, 1));
}

TEST_F(cCanvas_Shapes, PolygonsCountFromTheLowerBoundOfTheirFirstArray) {
    selectColours();
    const std::string expected = platformPicture([](platform::HDC dc) {
        const platform::POINT corners[] = {{2, 1}, {12, 1}, {7, 9}};
        platform::Polygon(dc, corners, 3);
    });
    EXPECT_EQ(1, canvas->Polygon(3, longs({2, 12, 7}), longs({1, 1, 9})));
    EXPECT_EQ(expected, picture(24, 16));
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->Polygon(3, longs({2, 12, 7}, 5), longs({0, 0, 0, 1, 1, 9}, 2));
    EXPECT_EQ(expected, picture(24, 16));
    constexpr std::int32_t outOfRange = 9;
    EXPECT_EQ(outOfRange, errorOf([&] { canvas->Polygon(4, longs({2, 12, 7}), longs({1, 1, 9})); }));
    EXPECT_EQ(outOfRange, errorOf([&] { canvas->Polygon(3, longs({2, 12, 7}, 1), longs({1, 1, 9})); }));
    EXPECT_EQ(outOfRange, errorOf([&] { canvas->Polygon(1, Array(), Array()); }));
    EXPECT_EQ(0, canvas->Polygon(0, Array(), Array()));
    EXPECT_EQ(0, canvas->Polygon(-3, longs({2}), longs({1})));
}

TEST_F(cCanvas_Shapes, PolylinesLeaveTheirLastPixelOut) {
    canvas->SelectSimplePen(red);
    EXPECT_EQ(1, canvas->Polyline(3, longs({1, 4, 4}), longs({1, 1, 3})));
    EXPECT_EQ("......\n.RRRR.\n....R.\n......\n", picture(6, 4));
    canvas->MoveTo(0, 5);
    EXPECT_EQ(1, canvas->PolylineTo(2, longs({2, 2}), longs({5, 7})));
    EXPECT_EQ("RRR.\n..R.\n....\n", picture(4, 8).substr(25));
    canvas->LineTo(5, 7);
    EXPECT_EQ("..RRR.\n", picture(6, 8).substr(49)) << "on from the last point";
}

TEST_F(cCanvas_Shapes, CurvesLeaveOutWhatMakesNoWholeCurve) {
    selectColours();
    const platform::POINT points[] = {{1, 1}, {5, 14}, {15, 0}, {22, 12}, {3, 3}};
    const Array x = longs({1, 5, 15, 22, 3}), y = longs({1, 14, 0, 12, 3});
    const std::string four = platformPicture([&](platform::HDC dc) { platform::PolyBezier(dc, points, 4); });
    EXPECT_EQ(1, canvas->PolyBezier(5, x, y));
    EXPECT_EQ(four, picture(24, 16));
    EXPECT_LT(painted(black), 24u * 16);
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->MoveTo(2, 2);
    EXPECT_EQ(1, canvas->PolyBezierTo(5, x, y));
    EXPECT_EQ(platformPicture([&](platform::HDC dc) {
                  platform::MoveToEx(dc, 2, 2, nullptr);
                  platform::PolyBezierTo(dc, points, 3);
              }),
              picture(24, 16));
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->PolyBezier(4, x, y);
    EXPECT_EQ(four, picture(24, 16));
}

TEST_F(cCanvas_Shapes, ArraysOfCurvesNeedNoMorePointsThanAreUsed) {
    const Array four = longs({1, 5, 15, 22}), three = longs({1, 5, 15});
    EXPECT_EQ(1, canvas->PolyBezier(5, four, four));
    EXPECT_EQ(1, canvas->PolyBezier(6, four, four));
    EXPECT_EQ(1, canvas->PolyBezierTo(4, three, three));
    constexpr std::int32_t outOfRange = 9;
    EXPECT_EQ(outOfRange, errorOf([&] { canvas->PolyBezier(7, four, four); }));
    EXPECT_EQ(outOfRange, errorOf([&] { canvas->PolyBezierTo(6, three, three); }));
}

TEST_F(cCanvas_Shapes, TheArrowheadPointsFourWays) {
    canvas->DrawTriangle(4, 3, 4, red);
    EXPECT_EQ(".........\n"
              ".........\n"
              ".RRRRRRR.\n"
              "..RRRRR..\n"
              "...RRR...\n"
              "....R....\n"
              ".........\n",
              picture(9, 7));
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->DrawTriangle(4, 3, 3, red, 90);
    EXPECT_EQ(".........\n"
              ".........\n"
              "....R....\n"
              "...RRR...\n"
              "..RRRRR..\n"
              ".........\n",
              picture(9, 6));
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->DrawTriangle(3, 3, 3, red, 0);
    EXPECT_EQ(".......\n"
              "..R....\n"
              "..RR...\n"
              "..RRR..\n"
              "..RR...\n"
              "..R....\n"
              ".......\n",
              picture(7, 7));
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->DrawTriangle(3, 3, 3, red, 180);
    EXPECT_EQ(".......\n"
              "....R..\n"
              "...RR..\n"
              "..RRR..\n"
              "...RR..\n"
              "....R..\n"
              ".......\n",
              picture(7, 7));
}

TEST_F(cCanvas_Shapes, AnArrowheadOfOneLineIsAPixel) {
    canvas->DrawTriangle(3, 3, 1, red);
    EXPECT_EQ(red, at(3, 3));
    EXPECT_EQ(1u, painted(red));
    canvas->DrawTriangle(10, 10, 0, blue);
    canvas->DrawTriangle(14, 10, -5, blue, 0);
    EXPECT_EQ(2u, painted(blue)) << "the tip alone";
}

TEST_F(cCanvas_Shapes, AnArrowheadAtAnotherAngleIsAMessage) {
    support::Desk desk;
    support::MsgBoxAnswer answer(desk, platform::VK_RETURN);
    canvas->DrawTriangle(3, 3, 5, red, 45);
    EXPECT_EQ(1, answer.shown());
    EXPECT_EQ(u"Error en parámetro", answer.title());
    EXPECT_EQ(u"cCanvas.DrawTriangle()\r\nÁngulo no soportado (45)", answer.text());
    EXPECT_EQ(host::MsgBoxStyle::Exclamation, answer.style());
    EXPECT_EQ(24u * 16, painted(black));
}

TEST_F(cCanvas_Shapes, AnArrowheadCoversTheSurfaceHoweverFarItsTipIs) {
    for (const std::int32_t lines : {300000, 100'000'000})
        for (const std::int32_t angle : {0, 90, 180, 270}) {
            canvas->FillBox(0, 0, 23, 15, black);
            canvas->DrawTriangle(12, 8, lines, red, angle);
            EXPECT_EQ(24u * 16, painted(red)) << lines << " lines, " << angle;
        }
}

TEST_F(cCanvas_Shapes, LimitsOfLongDoNotWrapRound) {
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min(),
                           most = std::numeric_limits<std::int32_t>::max();
    canvas->FillBox(0, 0, most, most, red);
    EXPECT_EQ(24u * 16, painted(red));
    selectColours();
    canvas->Rectangle(least, least, most, most);
    canvas->Ellipse(-30000, -30000, 30000, 30000);
    EXPECT_EQ(green, at(12, 8));
    canvas->DrawTriangle(most, most, most, blue, 0);
    canvas->DrawTriangle(least, least, most, blue, 180);
    canvas->DrawTriangle(12, 8, most, blue, 90);
    canvas->DrawTriangle(12, 8, least, blue, 270);
    canvas->DrawLine(least, 3, most, 3, yellow);
    canvas->DrawBox(least, least, most, most, red, blue);
    constexpr std::int32_t overflow = 6;
    EXPECT_EQ(overflow, errorOf([&] { canvas->Sector(least, least, most, most, 0, 1); }))
        << "the ellipse reaches beyond";
}
