#include "platform/gdi.h"
#include "support/Canvas.h"
#include "support/Selected.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace platform;
using test::Canvas;
using test::Selected;

namespace {

/// The path in words: M and L with a point, B with one of a curve's three; a small letter closes the figure.
std::string pathOf(HDC dc) {
    const int count = GetPath(dc, nullptr, nullptr, 0);
    if (count <= 0) return count == 0 ? "" : "none";
    std::vector<POINT> points(static_cast<std::size_t>(count));
    std::vector<BYTE> types(static_cast<std::size_t>(count));
    GetPath(dc, points.data(), types.data(), count);
    std::string words;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const int kind = types[i] & ~PT_CLOSEFIGURE;
        const char letter = kind == PT_MOVETO ? 'M' : kind == PT_LINETO ? 'L' : 'B';
        const bool closes = (types[i] & PT_CLOSEFIGURE) != 0;
        words += std::string(words.empty() ? "" : " ") + static_cast<char>(closes ? letter + 32 : letter);
        words += std::to_string(points[i].x) + "," + std::to_string(points[i].y);
    }
    return words;
}

/// A path with one open corner: two lines.
void collectCorner(HDC dc) {
    BeginPath(dc);
    MoveToEx(dc, 1, 1, nullptr);
    LineTo(dc, 5, 1);
    LineTo(dc, 5, 4);
}

} // namespace

TEST(Paths, CollectInsteadOfPainting) {
    const Canvas canvas(8, 8);
    SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
    collectCorner(canvas.dc());
    EXPECT_EQ(canvas.at(2, 1), 0u);
    EXPECT_TRUE(EndPath(canvas.dc()));
    EXPECT_EQ(pathOf(canvas.dc()), "M1,1 L5,1 L5,4");
}

TEST(Paths, TakeTheOutlinesOfTextInsteadOfItsPixelsAndGround) {
    const Canvas canvas(60, 60);
    const Selected font(canvas.dc(), CreateFontA(40, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, 0, 0,
                                                 DEFAULT_QUALITY, 0, "Arial"));
    SetBkMode(canvas.dc(), OPAQUE);
    SetBkColor(canvas.dc(), 0x0000FF);
    BeginPath(canvas.dc());
    EXPECT_TRUE(TextOutA(canvas.dc(), 10, 20, "L", 1));
    EndPath(canvas.dc());
    EXPECT_EQ(pathOf(canvas.dc()), "M13,53 L13,28 L16,28 L16,51 L29,51 l29,53");
    EXPECT_EQ(canvas.at(11, 22), 0u);
}

TEST(Paths, AreReadOnlyOnceTheyAreEnded) {
    const Canvas canvas(8, 8);
    collectCorner(canvas.dc());
    EXPECT_EQ(GetPath(canvas.dc(), nullptr, nullptr, 0), -1);
    EXPECT_FALSE(StrokePath(canvas.dc()));
    EXPECT_FALSE(FlattenPath(canvas.dc()));
    EXPECT_FALSE(WidenPath(canvas.dc()));
    EXPECT_FALSE(PathToRegion(canvas.dc()));
    EXPECT_TRUE(EndPath(canvas.dc()));
    EXPECT_FALSE(EndPath(canvas.dc()));
}

TEST(Paths, GetPathNeedsRoomForAllPoints) {
    const Canvas canvas(8, 8);
    collectCorner(canvas.dc());
    EndPath(canvas.dc());
    POINT points[3];
    BYTE types[3];
    EXPECT_EQ(GetPath(canvas.dc(), points, types, 0), 3);
    EXPECT_EQ(GetPath(canvas.dc(), points, types, 2), -1);
    EXPECT_EQ(GetPath(canvas.dc(), points, types, 3), 3);
}

TEST(Paths, AbortingDropsOpenAndEndedOnes) {
    const Canvas canvas(8, 8);
    collectCorner(canvas.dc());
    EXPECT_TRUE(AbortPath(canvas.dc()));
    EXPECT_FALSE(EndPath(canvas.dc()));
    collectCorner(canvas.dc());
    EndPath(canvas.dc());
    EXPECT_TRUE(AbortPath(canvas.dc()));
    EXPECT_EQ(pathOf(canvas.dc()), "none");
    EXPECT_TRUE(AbortPath(canvas.dc()));
}

TEST(Paths, CloseFigureMarksTheLastPointOfAnOpenPath) {
    const Canvas canvas(8, 8);
    EXPECT_FALSE(CloseFigure(canvas.dc()));
    collectCorner(canvas.dc());
    EXPECT_TRUE(CloseFigure(canvas.dc()));
    EndPath(canvas.dc());
    EXPECT_EQ(pathOf(canvas.dc()), "M1,1 L5,1 l5,4");
    EXPECT_FALSE(CloseFigure(canvas.dc()));
}

TEST(Paths, StrokingClosesOnlyWhatWasClosed) {
    const Canvas canvas(7, 6);
    SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
    collectCorner(canvas.dc());
    EndPath(canvas.dc());
    EXPECT_TRUE(StrokePath(canvas.dc()));
    EXPECT_EQ(canvas.text(), ".......\n"
                             ".#####.\n"
                             ".....#.\n"
                             ".....#.\n"
                             ".......\n"
                             ".......\n");
    EXPECT_EQ(pathOf(canvas.dc()), "none") << "stroking uses the path up";
}

TEST(Paths, FillingClosesFiguresAndLeavesTheRightAndLowerEdge) {
    const Canvas canvas(7, 6);
    SelectObject(canvas.dc(), GetStockObject(WHITE_BRUSH));
    collectCorner(canvas.dc());
    EndPath(canvas.dc());
    EXPECT_TRUE(FillPath(canvas.dc()));
    EXPECT_EQ(canvas.text(), ".......\n"
                             ".####..\n"
                             "...##..\n"
                             "....#..\n"
                             ".......\n"
                             ".......\n");
}

TEST(Paths, StrokeAndFillClosesOpenFigures) {
    const Canvas canvas(7, 6);
    SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
    const Selected brush(canvas.dc(), CreateSolidBrush(RGB(0, 0, 255)));
    BeginPath(canvas.dc());
    const POINT corners[] = {{1, 1}, {5, 1}, {5, 4}, {1, 4}};
    Polyline(canvas.dc(), corners, 4);
    EndPath(canvas.dc());
    EXPECT_TRUE(StrokeAndFillPath(canvas.dc()));
    EXPECT_EQ(canvas.text(), ".......\n"
                             ".#####.\n"
                             ".#+++#.\n"
                             ".#+++#.\n"
                             ".#####.\n"
                             ".......\n");
}

TEST(Paths, FlatteningMakesLinesOfCurves) {
    const Canvas canvas(8, 8);
    BeginPath(canvas.dc());
    const POINT curve[] = {{0, 0}, {0, 40}, {40, 40}, {40, 0}};
    PolyBezier(canvas.dc(), curve, 4);
    EndPath(canvas.dc());
    EXPECT_EQ(pathOf(canvas.dc()), "M0,0 B0,40 B40,40 B40,0");
    EXPECT_TRUE(FlattenPath(canvas.dc()));
    const std::string flat = pathOf(canvas.dc());
    EXPECT_EQ(flat.find('B'), std::string::npos);
    EXPECT_EQ(flat.substr(0, 4), "M0,0");
    EXPECT_EQ(flat.substr(flat.size() - 5), "L40,0");
    EXPECT_TRUE(FlattenPath(canvas.dc()));
    EXPECT_EQ(pathOf(canvas.dc()), flat) << "lines stay as they are";
}

TEST(Paths, BecomeRegionsByTheFillingMode) {
    const Canvas canvas(8, 8);
    for (const int mode : {ALTERNATE, WINDING}) {
        SetPolyFillMode(canvas.dc(), mode);
        BeginPath(canvas.dc());
        const POINT outer[] = {{0, 0}, {8, 0}, {8, 8}, {0, 8}};
        const POINT inner[] = {{2, 2}, {6, 2}, {6, 6}, {2, 6}};
        Polygon(canvas.dc(), outer, 4);
        Polygon(canvas.dc(), inner, 4);
        EndPath(canvas.dc());
        const HRGN region = PathToRegion(canvas.dc());
        EXPECT_TRUE(PtInRegion(region, 1, 1));
        EXPECT_EQ(PtInRegion(region, 4, 4) != 0, mode == WINDING);
        EXPECT_EQ(pathOf(canvas.dc()), "none");
        DeleteObject(region);
    }
}

TEST(Paths, ClipWhatIsDrawnLater) {
    const Canvas canvas(6, 3);
    BeginPath(canvas.dc());
    Rectangle(canvas.dc(), 1, 0, 5, 3);
    EndPath(canvas.dc());
    EXPECT_TRUE(SelectClipPath(canvas.dc(), RGN_COPY));
    PatBlt(canvas.dc(), 0, 0, 6, 3, WHITENESS);
    SelectClipRgn(canvas.dc(), HRGN());
    EXPECT_EQ(canvas.text(), ".###..\n"
                             ".###..\n"
                             "......\n");
    EXPECT_FALSE(SelectClipPath(canvas.dc(), RGN_COPY)) << "there is no path any more";
}

TEST(Paths, WideningSurroundsTheLine) {
    const Canvas canvas(20, 20);
    const LOGBRUSH ink{BS_SOLID, RGB(255, 255, 255), 0};
    const Selected pen(canvas.dc(),
                       ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER, 4, &ink, 0, nullptr));
    BeginPath(canvas.dc());
    MoveToEx(canvas.dc(), 4, 10, nullptr);
    LineTo(canvas.dc(), 16, 10);
    EndPath(canvas.dc());
    ASSERT_TRUE(WidenPath(canvas.dc()));
    const HRGN region = PathToRegion(canvas.dc());
    RECT box;
    EXPECT_EQ(GetRgnBox(region, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{4, 8, 16, 12}));
    DeleteObject(region);
}

TEST(Paths, WideningRunsAlongBothSidesOfABendTheGreaterHalfOutside) {
    const Canvas canvas(60, 60);
    const LOGBRUSH ink{BS_SOLID, RGB(255, 255, 255), 0};
    const Selected pen(canvas.dc(),
                       ExtCreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_BEVEL, 5, &ink, 0, nullptr));
    const POINT bend[] = {{10, 30}, {30, 30}, {30, 50}};
    BeginPath(canvas.dc());
    Polyline(canvas.dc(), bend, 3);
    EndPath(canvas.dc());
    ASSERT_TRUE(WidenPath(canvas.dc()));
    EXPECT_EQ(pathOf(canvas.dc()), "M10,33 L10,28 L30,27 L33,30 L33,50 L28,50 L28,30 L30,32");
}

TEST(Paths, WideningAClosedFigureGivesOneForEitherSide) {
    const Canvas canvas(60, 60);
    const LOGBRUSH ink{BS_SOLID, RGB(255, 255, 255), 0};
    const Selected pen(canvas.dc(), ExtCreatePen(PS_GEOMETRIC | PS_JOIN_MITER, 4, &ink, 0, nullptr));
    const POINT box[] = {{10, 10}, {40, 10}, {40, 30}, {10, 30}};
    BeginPath(canvas.dc());
    Polygon(canvas.dc(), box, 4);
    EndPath(canvas.dc());
    ASSERT_TRUE(WidenPath(canvas.dc()));
    EXPECT_EQ(pathOf(canvas.dc()), "M8,8 L42,8 L42,32 L8,32 "
                                   "M12,30 L10,28 L40,28 L38,30 L38,10 L40,12 L10,12 L12,10");
}

TEST(Paths, CurvesGoOnFromTheCurrentPosition) {
    const Canvas canvas(8, 8);
    BeginPath(canvas.dc());
    MoveToEx(canvas.dc(), 2, 3, nullptr);
    const POINT curve[] = {{2, 9}, {8, 9}, {8, 3}};
    EXPECT_TRUE(PolyBezierTo(canvas.dc(), curve, 3));
    LineTo(canvas.dc(), 0, 0);
    EndPath(canvas.dc());
    EXPECT_EQ(pathOf(canvas.dc()), "M2,3 B2,9 B8,9 B8,3 L0,0");
}

TEST(Paths, PolyDrawMovesDrawsAndCloses) {
    const Canvas canvas(8, 8);
    BeginPath(canvas.dc());
    const POINT points[] = {{1, 1}, {4, 1}, {4, 4}, {6, 6}, {6, 7}, {7, 7}, {7, 6}};
    const BYTE types[] = {PT_MOVETO,   PT_LINETO,  PT_LINETO | PT_CLOSEFIGURE, PT_MOVETO, PT_BEZIERTO,
                          PT_BEZIERTO, PT_BEZIERTO};
    EXPECT_TRUE(PolyDraw(canvas.dc(), points, types, 7));
    EndPath(canvas.dc());
    EXPECT_EQ(pathOf(canvas.dc()), "M1,1 L4,1 l4,4 M6,6 B6,7 B7,7 B7,6");
}

TEST(Paths, PolyDrawRefusesHalfACurve) {
    const Canvas canvas(8, 8);
    const POINT points[] = {{1, 1}, {4, 1}, {4, 4}};
    const BYTE types[] = {PT_MOVETO, PT_BEZIERTO, PT_BEZIERTO};
    EXPECT_FALSE(PolyDraw(canvas.dc(), points, types, 3));
}

TEST(Paths, BeziersCountTheirPointsInThrees) {
    const Canvas canvas(8, 8);
    const POINT points[] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}};
    EXPECT_FALSE(PolyBezier(canvas.dc(), points, 3));
    EXPECT_FALSE(PolyBezier(canvas.dc(), points, 5));
    EXPECT_TRUE(PolyBezier(canvas.dc(), points, 4));
    EXPECT_FALSE(PolyBezierTo(canvas.dc(), points, 4));
    EXPECT_TRUE(PolyBezierTo(canvas.dc(), points, 3));
}

TEST(Paths, ArcToDrawsALineToTheArcAndEndsOnIt) {
    const Canvas canvas(8, 8);
    BeginPath(canvas.dc());
    MoveToEx(canvas.dc(), 50, 50, nullptr);
    EXPECT_TRUE(ArcTo(canvas.dc(), 0, 0, 21, 21, 40, 10, 10, -40));
    EndPath(canvas.dc());
    EXPECT_EQ(pathOf(canvas.dc()).substr(0, 14), "M50,50 L20,10 ");
    POINT position;
    GetCurrentPositionEx(canvas.dc(), &position);
    EXPECT_NEAR(position.x, 10, 1);
    EXPECT_NEAR(position.y, 0, 1);
}

TEST(Paths, NoContextNoPath) {
    const HDC none;
    EXPECT_FALSE(BeginPath(none));
    EXPECT_FALSE(EndPath(none));
    EXPECT_FALSE(AbortPath(none));
    EXPECT_FALSE(CloseFigure(none));
    EXPECT_FALSE(StrokePath(none));
    EXPECT_FALSE(FillPath(none));
    EXPECT_FALSE(StrokeAndFillPath(none));
    EXPECT_FALSE(FlattenPath(none));
    EXPECT_FALSE(WidenPath(none));
    EXPECT_FALSE(PathToRegion(none));
    EXPECT_FALSE(SelectClipPath(none, RGN_COPY));
    EXPECT_EQ(GetPath(none, nullptr, nullptr, 0), -1);
}
