#include "platform/gdi.h"
#include "support/Canvas.h"
#include "support/Selected.h"

#include <gtest/gtest.h>

using namespace platform;
using test::Canvas;
using test::Selected;

namespace {

constexpr LOGBRUSH white{BS_SOLID, RGB(255, 255, 255), 0};

HPEN geometric(DWORD form, DWORD width) {
    return ExtCreatePen(PS_GEOMETRIC | form, width, &white, 0, nullptr);
}

} // namespace

TEST(Pens, JointsAreRoundBevelledOrPointed) {
    const struct {
        DWORD joint;
        const char* picture;
    } cases[] = {
        {PS_JOIN_BEVEL, "............\n"
                        ".......####.\n"
                        ".......####.\n"
                        "......#####.\n"
                        ".....######.\n"},
        {PS_JOIN_MITER, "............\n"
                        "...########.\n"
                        "...########.\n"
                        "...########.\n"
                        "...########.\n"},
    };
    for (const auto& each : cases) {
        const Canvas canvas(12, 5);
        const Selected pen(canvas.dc(), geometric(PS_ENDCAP_FLAT | each.joint, 8));
        const POINT corner[] = {{7, 30}, {7, 5}, {11, 5}};
        Polyline(canvas.dc(), corner, 3);
        EXPECT_EQ(canvas.text(), each.picture) << each.joint;
    }
}

TEST(Pens, APointedJointThatReachesTooFarIsBevelled) {
    const POINT turn[] = {{0, 10}, {10, 9}, {0, 8}};
    const Canvas canvas(40, 20);
    const Selected pen(canvas.dc(), geometric(PS_ENDCAP_FLAT | PS_JOIN_MITER, 4));
    Polyline(canvas.dc(), turn, 3);
    EXPECT_EQ(canvas.at(20, 9), 0u);
    SetMiterLimit(canvas.dc(), 100, nullptr);
    Polyline(canvas.dc(), turn, 3);
    EXPECT_EQ(canvas.at(20, 9), RGB(255, 255, 255));
}

TEST(Pens, CapsEndALineFlatSquareOrRound) {
    const struct {
        DWORD cap;
        const char* picture;
    } cases[] = {
        {PS_ENDCAP_FLAT, "..........\n...####...\n...####...\n...####...\n...####...\n..........\n"},
        {PS_ENDCAP_SQUARE, "..........\n.########.\n.########.\n.########.\n.########.\n..........\n"},
        {PS_ENDCAP_ROUND, "..........\n..######..\n.########.\n.########.\n..######..\n..........\n"},
    };
    for (const auto& each : cases) {
        const Canvas canvas(10, 6);
        const Selected pen(canvas.dc(), geometric(each.cap, 4));
        MoveToEx(canvas.dc(), 3, 3, nullptr);
        LineTo(canvas.dc(), 7, 3);
        EXPECT_EQ(canvas.text(), each.picture) << each.cap;
    }
}

TEST(Pens, GeometricOnesPaintACrossingOnce) {
    const Canvas canvas(5, 5);
    SetROP2(canvas.dc(), R2_XORPEN);
    const POINT there[] = {{1, 2}, {4, 2}, {1, 2}};
    {
        const Selected pen(canvas.dc(), geometric(0, 1));
        Polyline(canvas.dc(), there, 3);
    }
    EXPECT_EQ(canvas.at(2, 2), RGB(255, 255, 255));
    const Selected pen(canvas.dc(), CreatePen(PS_SOLID, 1, RGB(255, 255, 255)));
    Polyline(canvas.dc(), there, 3);
    EXPECT_EQ(canvas.at(2, 2), RGB(255, 255, 255)) << "a cosmetic one there and back again";
}

TEST(Pens, ASinglePointIsRoundWhereEndOrJointIs) {
    const POINT point[] = {{5, 5}, {5, 5}, {5, 5}};
    const auto paints = [&](DWORD form, bool closed) {
        const Canvas canvas(10, 10);
        const Selected pen(canvas.dc(), geometric(form, 6));
        SelectObject(canvas.dc(), GetStockObject(NULL_BRUSH));
        closed ? Polygon(canvas.dc(), point, 3) : Polyline(canvas.dc(), point, 3);
        return canvas.at(4, 4) != 0;
    };
    EXPECT_TRUE(paints(PS_ENDCAP_ROUND | PS_JOIN_BEVEL, false));
    EXPECT_FALSE(paints(PS_ENDCAP_SQUARE | PS_JOIN_ROUND, false));
    EXPECT_TRUE(paints(PS_ENDCAP_SQUARE | PS_JOIN_ROUND, true));
    EXPECT_FALSE(paints(PS_ENDCAP_ROUND | PS_JOIN_BEVEL, true));
}

TEST(Pens, CosmeticOnesAreOnePixelWideAndSolid) {
    EXPECT_FALSE(ExtCreatePen(PS_COSMETIC, 2, &white, 0, nullptr));
    const LOGBRUSH hatch{BS_HATCHED, 0, HS_CROSS};
    EXPECT_FALSE(ExtCreatePen(PS_COSMETIC, 1, &hatch, 0, nullptr));
    const HPEN pen = ExtCreatePen(PS_COSMETIC | PS_DOT, 1, &white, 0, nullptr);
    EXPECT_TRUE(pen);
    DeleteObject(pen);
}

TEST(Pens, OwnDashesNeedTheirStyle) {
    const DWORD dashes[] = {4, 2};
    const HPEN pen = ExtCreatePen(PS_COSMETIC | PS_USERSTYLE, 1, &white, 2, dashes);
    EXPECT_TRUE(pen);
    DeleteObject(pen);
    EXPECT_FALSE(ExtCreatePen(PS_COSMETIC | PS_USERSTYLE, 1, &white, 0, nullptr));
    EXPECT_FALSE(ExtCreatePen(PS_COSMETIC | PS_SOLID, 1, &white, 2, dashes));
}

TEST(Pens, DashesOfShapesBeginAtTheRightInTheArcDirection) {
    const auto painted = [](int direction) {
        const Canvas canvas(12, 12);
        const Selected pen(canvas.dc(), CreatePen(PS_DASH, 1, RGB(255, 255, 255)));
        SelectObject(canvas.dc(), GetStockObject(NULL_BRUSH));
        SetBkMode(canvas.dc(), TRANSPARENT);
        SetArcDirection(canvas.dc(), direction);
        Rectangle(canvas.dc(), 0, 0, 12, 12);
        return canvas.text();
    };
    // 18 pixels of ink and a gap of 6: the first side is whole.
    EXPECT_EQ(painted(AD_COUNTERCLOCKWISE).substr(0, 12), "############");
    EXPECT_EQ(painted(AD_CLOCKWISE).substr(11 * 13, 12), "############");
    EXPECT_NE(painted(AD_CLOCKWISE).substr(0, 12), "############");
}

TEST(Pens, WidthsAreMeasuredFromTheLogicalOrigin) {
    // A width of 3 at 1.5 pixels is 4 pixels or 5: its ends at 0 and 3 are rounded one by one.
    const auto rows = [](int origin) {
        const Canvas canvas(12, 24);
        SetMapMode(canvas.dc(), MM_ANISOTROPIC);
        SetWindowExtEx(canvas.dc(), 2, 2, nullptr);
        SetViewportExtEx(canvas.dc(), 3, 3, nullptr);
        SetWindowOrgEx(canvas.dc(), origin, origin, nullptr);
        const Selected pen(canvas.dc(), CreatePen(PS_SOLID, 3, RGB(255, 255, 255)));
        MoveToEx(canvas.dc(), 0, 8, nullptr);
        LineTo(canvas.dc(), 20, 8);
        SetMapMode(canvas.dc(), MM_TEXT);
        SetWindowOrgEx(canvas.dc(), 0, 0, nullptr);
        int count = 0;
        for (int y = 0; y < 24; ++y)
            count += canvas.at(6, y) != 0 ? 1 : 0;
        return count;
    };
    EXPECT_EQ(rows(0), 5);
    EXPECT_EQ(rows(-1), 4);
}

TEST(Pens, CosmeticOnesCountTheirDashesInUnitsOfThreePixels) {
    const Canvas canvas(20, 1);
    const DWORD dashes[] = {1, 2};
    const Selected pen(canvas.dc(), ExtCreatePen(PS_COSMETIC | PS_USERSTYLE, 1, &white, 2, dashes));
    LineTo(canvas.dc(), 20, 0);
    EXPECT_EQ(canvas.text(), "###......###......##\n");
}

TEST(Pens, AnOddNumberOfDashesGoesRoundTwice) {
    const Canvas canvas(18, 1);
    const DWORD dashes[] = {3, 1, 2};
    const Selected pen(canvas.dc(), ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, 1, &white, 3, dashes));
    LineTo(canvas.dc(), 18, 0);
    EXPECT_EQ(canvas.text(), "###.##...#..###.##\n");
}

TEST(Pens, DashesAreCutFarFromWhereTheLineBegan) {
    const Canvas canvas(20, 1);
    const DWORD dashes[] = {39990, 5};
    const Selected pen(canvas.dc(),
                       ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT, 1, &white, 2, dashes));
    MoveToEx(canvas.dc(), 40000, 0, nullptr);
    LineTo(canvas.dc(), -30000, 0);
    EXPECT_EQ(canvas.text(), "######.....#########\n");
}

TEST(Pens, ExtendedOnesLeaveTheirGapsEmptyInEveryBackgroundMode) {
    const Canvas canvas(12, 1);
    SetBkMode(canvas.dc(), OPAQUE);
    SetBkColor(canvas.dc(), RGB(255, 255, 255));
    const Selected pen(canvas.dc(), ExtCreatePen(PS_COSMETIC | PS_DOT, 1, &white, 0, nullptr));
    LineTo(canvas.dc(), 12, 0);
    EXPECT_EQ(canvas.text(), "###...###...\n");
}

TEST(Pens, DashesWithoutLengthPaintTheirCaps) {
    const Canvas canvas(34, 5);
    const Selected pen(canvas.dc(),
                       ExtCreatePen(PS_GEOMETRIC | PS_DASHDOT | PS_ENDCAP_SQUARE, 2, &white, 0, nullptr));
    MoveToEx(canvas.dc(), 2, 2, nullptr);
    LineTo(canvas.dc(), 32, 2);
    EXPECT_EQ(canvas.text(), "..................................\n"
                             ".######..##..######..##..######...\n"
                             ".######..##..######..##..######...\n"
                             "..................................\n"
                             "..................................\n");
}

TEST(Pens, ADashThatEndsAClosedLineGoesOnWithTheFirst) {
    const DWORD dashes[] = {8, 4};
    const POINT box[] = {{10, 10}, {20, 10}, {20, 20}, {10, 20}};
    const Canvas canvas(30, 30);
    const Selected pen(canvas.dc(), ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT | PS_JOIN_MITER,
                                                 4, &white, 2, dashes));
    Polygon(canvas.dc(), box, 4);
    EXPECT_EQ(canvas.at(8, 8), RGB(255, 255, 255)) << "the pointed joint of both";
}

TEST(Pens, ADashThatBeginsWhereAStraightLineGoesOnHasAJointThere) {
    const DWORD dashes[] = {1, 1};
    const POINT points[] = {{3, 4}, {4, 4}, {5, 4}, {6, 4}};
    const Canvas canvas(9, 8);
    const Selected pen(canvas.dc(), ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT | PS_JOIN_BEVEL,
                                                 4, &white, 2, dashes));
    Polyline(canvas.dc(), points, 4);
    EXPECT_EQ(canvas.text(), ".........\n"
                             ".........\n"
                             "...###...\n"
                             "...#.#...\n"
                             "...#.#...\n"
                             "...#.#...\n"
                             ".........\n"
                             ".........\n");
}

TEST(Pens, ADashAllTheWayRoundHasEnds) {
    const DWORD dashes[] = {40, 4};
    const POINT box[] = {{4, 4}, {8, 4}, {8, 8}, {4, 8}, {4, 4}};
    const DWORD form = PS_GEOMETRIC | PS_USERSTYLE | PS_ENDCAP_FLAT | PS_JOIN_ROUND;
    for (const int count : {4, 5}) {
        const Canvas canvas(12, 12);
        const Selected pen(canvas.dc(), ExtCreatePen(form, 4, &white, 2, dashes));
        Polygon(canvas.dc(), box, count);
        // The closing line without length has a joint with the line before it.
        EXPECT_EQ(canvas.at(3, 3), count == 5 ? RGB(255, 255, 255) : 0u) << count;
        EXPECT_EQ(canvas.at(9, 3), RGB(255, 255, 255)) << "a joint on the way";
    }
}

TEST(Pens, DashesOfAPointPaintIt) {
    const DWORD dashes[] = {3, 3};
    const POINT point[] = {{4, 4}, {4, 4}, {4, 4}};
    const Canvas canvas(9, 9);
    const Selected pen(canvas.dc(), ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, 6, &white, 2, dashes));
    Polyline(canvas.dc(), point, 3);
    EXPECT_EQ(canvas.at(4, 2), RGB(255, 255, 255));
    EXPECT_EQ(canvas.at(1, 1), 0u) << "a round cap";
}
