#include "platform/gdi.h"
#include "support/Canvas.h"
#include "support/Selected.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

using namespace platform;
using test::Canvas;
using test::Selected;

namespace {

constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF black = RGB(0, 0, 0);

HBRUSH stockBrush(int index) {
    return HBRUSH(GetStockObject(index).value);
}

} // namespace

TEST(Lines, LeaveOutTheirLastPixel) {
    const Canvas canvas(8, 3);
    SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
    MoveToEx(canvas.dc(), 1, 1, nullptr);
    LineTo(canvas.dc(), 5, 1);
    EXPECT_EQ(canvas.text(), "........\n"
                             ".####...\n"
                             "........\n");
    POINT position;
    GetCurrentPositionEx(canvas.dc(), &position);
    EXPECT_EQ(position, (POINT{5, 1}));
}

TEST(Lines, RunBackwardsFromTheirFirstPixel) {
    const Canvas canvas(8, 1);
    SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
    MoveToEx(canvas.dc(), 6, 0, nullptr);
    LineTo(canvas.dc(), 2, 0);
    EXPECT_EQ(canvas.text(), "...####.\n");
}

TEST(Lines, ToTheirOwnStartDrawNothing) {
    const Canvas canvas(3, 3);
    SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
    MoveToEx(canvas.dc(), 1, 1, nullptr);
    EXPECT_TRUE(LineTo(canvas.dc(), 1, 1));
    EXPECT_EQ(canvas.at(1, 1), black);
}

TEST(Lines, HalfStepsFollowThePlatformsRuleInAllDirections) {
    // A rise of two over four passes exactly between two pixels twice.
    const Canvas canvas(11, 11);
    SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
    for (const int dx : {-4, 4}) {
        for (const int dy : {-2, 2}) {
            MoveToEx(canvas.dc(), 5, 5, nullptr);
            LineTo(canvas.dc(), 5 + dx, 5 + dy);
        }
    }
    EXPECT_EQ(canvas.text(), "...........\n"
                             "...........\n"
                             "...........\n"
                             "..#.....#..\n"
                             "...##.##...\n"
                             "....###....\n"
                             "..##...##..\n"
                             "...........\n"
                             "...........\n"
                             "...........\n"
                             "...........\n");
}

TEST(Lines, FarEndsAreClippedWithoutChangingTheSlope) {
    const Canvas whole(200, 60);
    const Canvas part(200, 60);
    SelectObject(whole.dc(), GetStockObject(WHITE_PEN));
    SelectObject(part.dc(), GetStockObject(WHITE_PEN));
    IntersectClipRect(part.dc(), 90, 20, 130, 35);
    for (const Canvas* canvas : {&whole, &part}) {
        MoveToEx(canvas->dc(), -5000, -1500, nullptr);
        LineTo(canvas->dc(), 7000, 2101);
    }
    for (int y = 20; y < 35; ++y)
        for (int x = 90; x < 130; ++x)
            ASSERT_EQ(part.at(x, y), whole.at(x, y)) << x << ", " << y;
}

TEST(Lines, EnormousCoordinatesEndQuickly) {
    const Canvas canvas(20, 20);
    constexpr int high = std::numeric_limits<int>::max();
    constexpr int low = std::numeric_limits<int>::min();
    SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
    MoveToEx(canvas.dc(), low, low, nullptr);
    LineTo(canvas.dc(), high, high);
    Rectangle(canvas.dc(), low, low, high, high);
    const RECT rect{low, low, high, high};
    FillRect(canvas.dc(), &rect, stockBrush(GRAY_BRUSH));
    EXPECT_EQ(canvas.at(10, 10), RGB(128, 128, 128));
}

TEST(Lines, DashedPensShowTheBackgroundOnlyWhenOpaque) {
    for (const int mode : {TRANSPARENT, OPAQUE}) {
        const Canvas canvas(14, 1);
        const Selected pen(canvas.dc(), CreatePen(PS_DOT, 1, white));
        SetBkMode(canvas.dc(), mode);
        SetBkColor(canvas.dc(), RGB(0, 0, 200));
        MoveToEx(canvas.dc(), 0, 0, nullptr);
        LineTo(canvas.dc(), 12, 0);
        EXPECT_EQ(canvas.text(), mode == OPAQUE ? "###+++###+++..\n" : "###...###.....\n");
    }
}

TEST(Lines, EveryDrawingModeCombinesPenAndTargetBitByBit) {
    const COLORREF pen = RGB(0x0F, 0x33, 0x55);
    const COLORREF under = RGB(0xF3, 0x3C, 0x99);
    for (int mode = R2_BLACK; mode <= R2_WHITE; ++mode) {
        const Canvas canvas(3, 1);
        canvas.set(1, 0, under);
        const Selected selected(canvas.dc(), CreatePen(PS_SOLID, 1, pen));
        SetROP2(canvas.dc(), mode);
        MoveToEx(canvas.dc(), 1, 0, nullptr);
        LineTo(canvas.dc(), 2, 0);
        // The mode less one is the truth table, with the pen as the higher and the target as the lower bit.
        COLORREF expected = 0;
        for (int bit = 0; bit < 24; ++bit) {
            const int index = static_cast<int>((pen >> bit & 1) << 1 | (under >> bit & 1));
            if ((mode - 1) >> index & 1) expected |= 1u << bit;
        }
        EXPECT_EQ(canvas.at(1, 0), expected) << "mode " << mode;
    }
}

TEST(Rectangles, OutlineInThePenAndInsideInTheBrush) {
    const Canvas canvas(8, 6);
    const Selected brush(canvas.dc(), CreateSolidBrush(RGB(10, 20, 30)));
    SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
    Rectangle(canvas.dc(), 1, 1, 7, 5);
    EXPECT_EQ(canvas.text(), "........\n"
                             ".######.\n"
                             ".#++++#.\n"
                             ".#++++#.\n"
                             ".######.\n"
                             "........\n");
}

TEST(Rectangles, WithoutPenAreOnePixelSmaller) {
    const Canvas canvas(6, 4);
    SelectObject(canvas.dc(), GetStockObject(NULL_PEN));
    Rectangle(canvas.dc(), 1, 1, 5, 4);
    EXPECT_EQ(canvas.text(), "......\n"
                             ".###..\n"
                             ".###..\n"
                             "......\n");
}

TEST(Rectangles, GivenBackwardsAreTheSame) {
    const Canvas forwards(9, 9);
    const Canvas backwards(9, 9);
    Rectangle(forwards.dc(), 2, 2, 7, 6);
    Rectangle(backwards.dc(), 7, 6, 2, 2);
    EXPECT_EQ(forwards.text(), backwards.text());
}

TEST(Rectangles, AWidePenGrowsToBothSides) {
    const Canvas canvas(12, 10);
    const Selected pen(canvas.dc(), CreatePen(PS_SOLID, 2, white));
    const Selected brush(canvas.dc(), CreateSolidBrush(RGB(10, 20, 30)));
    Rectangle(canvas.dc(), 3, 3, 9, 8);
    EXPECT_EQ(canvas.text(), "............\n"
                             "............\n"
                             "..#######...\n"
                             "..#######...\n"
                             "..##+++##...\n"
                             "..##+++##...\n"
                             "..#######...\n"
                             "..#######...\n"
                             "............\n"
                             "............\n");
}

TEST(Fills, LeaveOutTheRightAndBottomEdge) {
    const Canvas canvas(5, 4);
    const RECT rect{1, 1, 4, 3};
    EXPECT_TRUE(FillRect(canvas.dc(), &rect, stockBrush(WHITE_BRUSH)));
    EXPECT_EQ(canvas.text(), ".....\n"
                             ".###.\n"
                             ".###.\n"
                             ".....\n");
}

TEST(Fills, OfEveryWidthTouchNothingBesideThem) {
    constexpr int widest = 70, left = 3;
    const Canvas canvas(widest + 2 * left, 4);
    for (int width = 1; width <= widest; ++width) {
        PatBlt(canvas.dc(), 0, 0, canvas.width(), canvas.height(), BLACKNESS);
        ASSERT_TRUE(fillSolidRect(canvas.dc(), {left, 1, left + width, 3}, white));
        for (int y = 0; y < canvas.height(); ++y)
            for (int x = 0; x < canvas.width(); ++x) {
                const bool inside = x >= left && x < left + width && y >= 1 && y < 3;
                ASSERT_EQ(canvas.at(x, y), inside ? white : black) << width << ": " << x << ", " << y;
            }
    }
}

TEST(Fills, InAPlainColourAreThoseOfASolidBrush) {
    constexpr COLORREF colors[] = {black, white, RGB(10, 200, 30), RGB(128, 128, 128), PALETTEINDEX(3)};
    for (const int depth : {1, 4, 8, 16, 24, 32}) {
        for (const COLORREF color : colors) {
            const Canvas filled(9, 9, depth), expected(9, 9, depth);
            const RECT box{7, 1, 2, 6}; // to the left
            const HBRUSH brush = CreateSolidBrush(color);
            EXPECT_EQ(fillSolidRect(filled.dc(), box, color), FillRect(expected.dc(), &box, brush));
            DeleteObject(brush);
            for (int y = 0; y < 9; ++y)
                for (int x = 0; x < 9; ++x)
                    ASSERT_EQ(filled.at(x, y), expected.at(x, y)) << depth << ": " << x << ", " << y;
        }
    }
}

TEST(Fills, InAPlainColourKeepNoBrush) {
    const Canvas canvas(4, 4);
    const DWORD before = GetGuiResources(GR_GDIOBJECTS);
    fillSolidRect(canvas.dc(), {0, 0, 4, 4}, white);
    EXPECT_EQ(GetGuiResources(GR_GDIOBJECTS), before);
}

TEST(Fills, FramesAreOnePixelWide) {
    const Canvas canvas(6, 5);
    const RECT rect{1, 1, 5, 4};
    FrameRect(canvas.dc(), &rect, stockBrush(WHITE_BRUSH));
    EXPECT_EQ(canvas.text(), "......\n"
                             ".####.\n"
                             ".#..#.\n"
                             ".####.\n"
                             "......\n");
}

TEST(Fills, InvertingTwiceBringsBackThePicture) {
    const Canvas canvas(4, 4);
    canvas.set(1, 1, RGB(1, 2, 3));
    const RECT rect{0, 0, 3, 3};
    InvertRect(canvas.dc(), &rect);
    EXPECT_EQ(canvas.at(1, 1), RGB(254, 253, 252));
    EXPECT_EQ(canvas.at(3, 3), black);
    InvertRect(canvas.dc(), &rect);
    EXPECT_EQ(canvas.at(1, 1), RGB(1, 2, 3));
}

TEST(Fills, TheFocusRectangleIsDottedAndGoesAwayWithItself) {
    const Canvas canvas(9, 5);
    const RECT rect{1, 0, 8, 5};
    DrawFocusRect(canvas.dc(), &rect);
    EXPECT_EQ(canvas.text(), ".#.#.#.#.\n"
                             ".........\n"
                             ".#.....#.\n"
                             ".........\n"
                             ".#.#.#.#.\n");
    DrawFocusRect(canvas.dc(), &rect);
    EXPECT_EQ(canvas.text(), Canvas(9, 5).text());
}

TEST(Fills, HatchesFollowTheBrushOriginAndTheBackgroundMode) {
    const Canvas canvas(16, 8);
    SetBkMode(canvas.dc(), TRANSPARENT);
    const HBRUSH brush = CreateHatchBrush(HS_VERTICAL, white);
    const RECT rect{0, 0, 16, 8};
    FillRect(canvas.dc(), &rect, brush);
    EXPECT_EQ(canvas.text().substr(0, 17), "....#.......#...\n");
    SetBkMode(canvas.dc(), OPAQUE);
    SetBkColor(canvas.dc(), RGB(0, 0, 99));
    SetBrushOrgEx(canvas.dc(), 1, 0, nullptr);
    FillRect(canvas.dc(), &rect, brush);
    EXPECT_EQ(canvas.text().substr(0, 17), "+++++#+++++++#++\n");
    EXPECT_TRUE(DeleteObject(brush));
}

TEST(Fills, APatternTakesTextAndBackgroundColour) {
    const std::uint16_t bits[] = {0x00AA, 0x0055, 0x00AA, 0x0055, 0x00AA, 0x0055, 0x00AA, 0x0055};
    const HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, bits);
    const HBRUSH brush = CreatePatternBrush(bitmap);
    EXPECT_TRUE(DeleteObject(bitmap));
    const Canvas canvas(4, 2);
    SetTextColor(canvas.dc(), RGB(0, 0, 50));
    SetBkColor(canvas.dc(), white);
    const RECT rect{0, 0, 4, 2};
    FillRect(canvas.dc(), &rect, brush);
    EXPECT_EQ(canvas.text(), "#+#+\n"
                             "+#+#\n");
    EXPECT_TRUE(DeleteObject(brush));
}

TEST(RoundShapes, AreTheSameInPartsAsAtOnce) {
    constexpr int side = 16;
    const HRGN parts = CreateRectRgn(0, 0, side + 2, side + 2), corner = CreateRectRgn(0, 0, 1, 1);
    CombineRgn(parts, parts, corner, RGN_DIFF);
    const auto painted = [&](int width, int height, int pen, int brush, HRGN clip) {
        const Canvas canvas(side + 2, side + 2);
        const HDC dc = canvas.dc();
        SelectClipRgn(dc, clip);
        SelectObject(dc, GetStockObject(pen));
        SelectObject(dc, GetStockObject(brush));
        if (width % 3 == 0) {
            RoundRect(dc, 1, 1, 1 + width, 1 + height, 7, height / 2);
        } else {
            Ellipse(dc, 1, 1, 1 + width, 1 + height);
        }
        SelectClipRgn(dc, HRGN());
        return canvas.text();
    };
    for (const int pen : {WHITE_PEN, NULL_PEN})
        for (const int brush : {GRAY_BRUSH, NULL_BRUSH})
            for (int width = 1; width <= side; ++width)
                for (int height = 1; height <= side; ++height)
                    for (const bool isFirst : {true, false}) // the next time its rows are known
                        ASSERT_EQ(painted(width, height, pen, brush, HRGN()),
                                  painted(width, height, pen, brush, parts))
                            << width << " by " << height << " in pen " << pen << " and brush " << brush
                            << (isFirst ? "" : " again");
    DeleteObject(corner);
    DeleteObject(parts);
}

TEST(RoundShapes, TooThinForCurvesLeaveTheGapsOfDottedPensEmpty) {
    const Canvas canvas(12, 5);
    const Selected pen(canvas.dc(), CreatePen(PS_DOT, 1, white));
    SelectObject(canvas.dc(), GetStockObject(GRAY_BRUSH));
    SetBkMode(canvas.dc(), TRANSPARENT);
    RoundRect(canvas.dc(), 0, 0, 12, 5, 2, 2);
    EXPECT_EQ(canvas.text(), "...###...###\n"
                             "#++++++++++.\n"
                             "#++++++++++.\n"
                             "#++++++++++.\n"
                             "...###...###\n");
}

TEST(RoundShapes, ArcsOfFlatEllipsesEndWithTheQuarterOfTheirRay) {
    const auto painted = [](POINT start, POINT end) {
        const Canvas canvas(7, 4);
        SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
        Arc(canvas.dc(), 1, 1, 6, 3, start.x, start.y, end.x, end.y);
        return canvas.text();
    };
    EXPECT_EQ(painted({9, 2}, {0, -9}), ".......\n"
                                        "....##.\n"
                                        ".......\n"
                                        ".......\n")
        << "from the right to the upper left";
    EXPECT_EQ(painted({9, 2}, {4, -9}), ".......\n"
                                        ".....#.\n"
                                        ".......\n"
                                        ".......\n")
        << "to the upper right";
    EXPECT_EQ(painted({9, 2}, {9, 2}), ".......\n"
                                       ".#####.\n"
                                       ".####..\n"
                                       ".......\n")
        << "all the way round, without the last pixel";
}

TEST(Polygons, FillByTheChosenRule) {
    // A square inside a square, drawn in the same direction.
    const POINT points[] = {{1, 1}, {9, 1}, {9, 9}, {1, 9}, {1, 1}, {3, 3}, {7, 3}, {7, 7}, {3, 7}, {3, 3}};
    for (const int mode : {ALTERNATE, WINDING}) {
        const Canvas canvas(11, 11);
        SelectObject(canvas.dc(), GetStockObject(NULL_PEN));
        SelectObject(canvas.dc(), GetStockObject(WHITE_BRUSH));
        SetPolyFillMode(canvas.dc(), mode);
        EXPECT_TRUE(Polygon(canvas.dc(), points, 10));
        EXPECT_EQ(canvas.at(5, 5), mode == WINDING ? white : black);
        EXPECT_EQ(canvas.at(2, 5), white);
        EXPECT_EQ(canvas.at(9, 5), black);
    }
}

TEST(Polygons, NeedTwoPoints) {
    const Canvas canvas(4, 4);
    const POINT points[] = {{1, 1}, {2, 2}};
    EXPECT_FALSE(Polygon(canvas.dc(), points, 1));
    EXPECT_FALSE(Polyline(canvas.dc(), points, 1));
    EXPECT_TRUE(Polyline(canvas.dc(), points, 2));
}

/// Ways of drawing lines: a mode, a pen's width, a place of the logical origin, and whether a strip is
/// clipped.
struct LineWay {
    int mode;
    int width;
    int origin;
    bool isClipped;
};

void drawTwice(const LineWay& way, const std::vector<Line>& lines) {
    constexpr int size = 24;
    const Canvas together(size, size);
    const Canvas apart(size, size);
    for (const Canvas* canvas : {&together, &apart}) {
        const Selected pen(canvas->dc(), CreatePen(PS_SOLID, way.width, RGB(10, 200, 90)));
        PatBlt(canvas->dc(), 3, 3, 9, 9, WHITENESS);
        SetROP2(canvas->dc(), way.mode);
        SetWindowOrgEx(canvas->dc(), way.origin, -way.origin, nullptr);
        if (way.isClipped) ExcludeClipRect(canvas->dc(), 2, 4, 9, 7);
        if (canvas == &together) {
            EXPECT_TRUE(drawLines(canvas->dc(), lines.data(), static_cast<int>(lines.size())));
        } else {
            for (const Line& line : lines) {
                MoveToEx(canvas->dc(), line.x1, line.y1, nullptr);
                LineTo(canvas->dc(), line.x2, line.y2);
            }
        }
        SetWindowOrgEx(canvas->dc(), 0, 0, nullptr);
    }
    ASSERT_EQ(together.text(), apart.text()) << "mode " << way.mode << ", width " << way.width;
    POINT position;
    GetCurrentPositionEx(together.dc(), &position);
    ASSERT_EQ(position, (POINT{lines.back().x2, lines.back().y2}));
}

TEST(Lines, DrawnTogetherLookAsOneByOne) {
    std::mt19937 random(41);
    std::uniform_int_distribution<int> place(-6, 30);
    for (const int mode : {R2_COPYPEN, R2_XORPEN, R2_NOP, R2_WHITE})
        for (const int width : {0, 1, 3})
            for (const int origin : {0, -5})
                for (const bool isClipped : {false, true}) {
                    std::vector<Line> lines;
                    for (int i = 0; i < 40; ++i) {
                        const LONG x1 = place(random), y1 = place(random);
                        const bool isLevel = i % 3 != 0, isUpright = i % 3 == 2;
                        lines.push_back({x1, y1, isUpright ? x1 : place(random),
                                         isLevel && !isUpright ? y1 : place(random)});
                    }
                    ASSERT_NO_FATAL_FAILURE(drawTwice({mode, width, origin, isClipped}, lines));
                }
}

TEST(Lines, DrawnTogetherAreCollectedByAPath) {
    const Canvas canvas(8, 8);
    const Line lines[] = {{1, 1, 5, 1}, {6, 6, 2, 3}};
    BeginPath(canvas.dc());
    drawLines(canvas.dc(), lines, 2);
    EndPath(canvas.dc());
    EXPECT_EQ(GetPath(canvas.dc(), nullptr, nullptr, 0), 4);
    EXPECT_EQ(canvas.at(2, 1), black);
}

TEST(Pixels, OutsideTheSurfaceHaveNoColour) {
    const Canvas canvas(3, 3);
    EXPECT_EQ(canvas.at(-1, 0), CLR_INVALID);
    EXPECT_EQ(canvas.at(3, 0), CLR_INVALID);
    EXPECT_EQ(canvas.at(0, 3), CLR_INVALID);
    EXPECT_EQ(canvas.at(2, 2), black);
}

TEST(Edges, ARaisedEdgeTakesTwoRings) {
    const Canvas canvas(10, 8);
    RECT rect{1, 1, 9, 7};
    EXPECT_TRUE(DrawEdge(canvas.dc(), &rect, EDGE_RAISED, BF_RECT | BF_ADJUST));
    EXPECT_EQ(rect, (RECT{3, 3, 7, 5}));
    EXPECT_EQ(canvas.at(3, 3), black);
}

TEST(Clipping, BoundsEverythingThatIsDrawn) {
    std::mt19937 generator(7);
    std::uniform_int_distribution<int> coordinate(-10, 40);
    for (int round = 0; round < 300; ++round) {
        const Canvas canvas(30, 30);
        const HRGN clip = CreateRectRgn(5, 5, 12, 20);
        const HRGN more = CreateRectRgn(10, 15, 25, 25);
        CombineRgn(clip, clip, more, RGN_XOR);
        SelectClipRgn(canvas.dc(), clip);
        SelectObject(canvas.dc(), GetStockObject(WHITE_PEN));
        const auto any = [&] { return coordinate(generator); };
        MoveToEx(canvas.dc(), any(), any(), nullptr);
        LineTo(canvas.dc(), any(), any());
        Rectangle(canvas.dc(), any(), any(), any(), any());
        PatBlt(canvas.dc(), any(), any(), any(), any(), WHITENESS);
        SelectClipRgn(canvas.dc(), HRGN());
        for (int y = 0; y < 30; ++y) {
            for (int x = 0; x < 30; ++x) {
                const bool drawn = canvas.at(x, y) != black;
                ASSERT_TRUE(!drawn || PtInRegion(clip, x, y)) << x << ", " << y;
            }
        }
        DeleteObject(clip);
        DeleteObject(more);
    }
}

TEST(Clipping, TellsWhatKindOfRegionItBecame) {
    const Canvas canvas(10, 10);
    RECT box;
    EXPECT_EQ(IntersectClipRect(canvas.dc(), 2, 2, 6, 6), SIMPLEREGION);
    EXPECT_EQ(ExcludeClipRect(canvas.dc(), 3, 3, 4, 4), COMPLEXREGION);
    EXPECT_EQ(GetClipBox(canvas.dc(), &box), COMPLEXREGION);
    EXPECT_EQ(box, (RECT{2, 2, 6, 6}));
    EXPECT_EQ(ExcludeClipRect(canvas.dc(), 0, 0, 10, 10), NULLREGION);
    EXPECT_EQ(SelectClipRgn(canvas.dc(), HRGN()), SIMPLEREGION);
    EXPECT_EQ(GetClipBox(canvas.dc(), &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{0, 0, 10, 10}));
}

TEST(Clipping, GetClipRgnTellsWhetherThereIsOne) {
    const Canvas canvas(10, 10);
    const HRGN region = CreateRectRgn(0, 0, 1, 1);
    EXPECT_EQ(GetClipRgn(canvas.dc(), region), 0);
    IntersectClipRect(canvas.dc(), 2, 3, 6, 7);
    EXPECT_EQ(GetClipRgn(canvas.dc(), region), 1);
    RECT box;
    EXPECT_EQ(GetRgnBox(region, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{2, 3, 6, 7}));
    EXPECT_TRUE(DeleteObject(region));
    EXPECT_EQ(GetClipRgn(canvas.dc(), region), -1);
}

TEST(Coordinates, OriginsShiftDrawingAndClipping) {
    const Canvas canvas(10, 10);
    POINT previous;
    SetWindowOrgEx(canvas.dc(), 100, 200, &previous);
    EXPECT_EQ(previous, (POINT{0, 0}));
    SetViewportOrgEx(canvas.dc(), 2, 3, nullptr);
    SetPixel(canvas.dc(), 101, 201, white);
    IntersectClipRect(canvas.dc(), 100, 200, 104, 204);
    RECT box;
    GetClipBox(canvas.dc(), &box);
    EXPECT_EQ(box, (RECT{100, 200, 104, 204}));
    POINT points[] = {{100, 200}, {103, 204}};
    EXPECT_TRUE(LPtoDP(canvas.dc(), points, 2));
    EXPECT_EQ(points[0], (POINT{2, 3}));
    EXPECT_TRUE(DPtoLP(canvas.dc(), points, 2));
    EXPECT_EQ(points[1], (POINT{103, 204}));
    SetWindowOrgEx(canvas.dc(), 0, 0, nullptr);
    SetViewportOrgEx(canvas.dc(), 0, 0, nullptr);
    SelectClipRgn(canvas.dc(), HRGN());
    EXPECT_EQ(canvas.at(3, 4), white);
}

TEST(Clipping, IsMovedByLogicalUnits) {
    const Canvas canvas(64, 64);
    const HRGN region = CreateRectRgn(10, 10, 20, 20);
    SelectClipRgn(canvas.dc(), region);
    DeleteObject(region);
    SetMapMode(canvas.dc(), MM_ANISOTROPIC);
    SetWindowExtEx(canvas.dc(), 2, 1, nullptr);
    SetViewportExtEx(canvas.dc(), 3, -2, nullptr);
    SetViewportOrgEx(canvas.dc(), 5, 64, nullptr);
    EXPECT_EQ(OffsetClipRgn(canvas.dc(), 3, -4), SIMPLEREGION);
    SetMapMode(canvas.dc(), MM_TEXT);
    SetViewportOrgEx(canvas.dc(), 0, 0, nullptr);
    RECT box;
    GetClipBox(canvas.dc(), &box);
    EXPECT_EQ(box, (RECT{15, 18, 25, 28})) << "four and a half pixels to the right, eight down";
}

namespace {

/// Curves and dashed lines that reach far out of the middle of a canvas.
void drawFarReaching(HDC dc) {
    Ellipse(dc, -300, 40, 90, 400);
    RoundRect(dc, 60, 70, 500, 300, 80, 50);
    Arc(dc, -100, -100, 110, 110, 200, 0, 0, 200);
    Pie(dc, 20, 20, 600, 500, 600, 20, 20, 500);
    const POINT line[] = {{-4000, 20}, {70, 60}, {90, 3000}, {100, 100}, {5000, 75}};
    Polyline(dc, line, 5);
}

HPEN dashedPen(DWORD style, DWORD width) {
    const LOGBRUSH brush{BS_SOLID, white, 0};
    return ExtCreatePen(PS_GEOMETRIC | style, width, &brush, 0, nullptr);
}

} // namespace

TEST(Clipping, TheVisiblePartOfWhatReachesFarOutIsTheSame) {
    constexpr int side = 160;
    constexpr RECT part{50, 50, 110, 110};
    const auto pens = {
        CreatePen(PS_SOLID, 0, white), CreatePen(PS_SOLID, 9, white), CreatePen(PS_DASHDOT, 1, white),
        dashedPen(PS_DASH | PS_ENDCAP_SQUARE | PS_JOIN_MITER, 7), dashedPen(PS_SOLID | PS_JOIN_ROUND, 20)};
    for (const HPEN pen : pens) {
        const Canvas whole(side, side);
        const Canvas clipped(side, side);
        IntersectClipRect(clipped.dc(), part.left, part.top, part.right, part.bottom);
        for (const Canvas* canvas : {&whole, &clipped}) {
            const HGDIOBJ formerPen = SelectObject(canvas->dc(), pen);
            const HGDIOBJ formerBrush = SelectObject(canvas->dc(), GetStockObject(GRAY_BRUSH));
            drawFarReaching(canvas->dc());
            SelectObject(canvas->dc(), formerBrush);
            SelectObject(canvas->dc(), formerPen);
        }
        DeleteObject(pen);
        for (int y = part.top; y < part.bottom; ++y)
            for (int x = part.left; x < part.right; ++x)
                ASSERT_EQ(clipped.at(x, y), whole.at(x, y)) << x << "," << y;
    }
}
