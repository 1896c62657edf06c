// Clipping, the origin and paths.
#include "CanvasTest.h"

using namespace tesela;
using namespace tests;

namespace {

class cCanvas_Clipping : public CanvasTest {};

} // namespace

TEST_F(cCanvas_Clipping, ARectangleBoundsWhatIsDrawn) {
    EXPECT_EQ(platform::SIMPLEREGION, canvas->SetClippingRect({1, 1, 3, 3}));
    canvas->FillBox(0, 0, 23, 15, red);
    EXPECT_NE(0, canvas->ClearClipping());
    EXPECT_EQ("....\n.RR.\n.RR.\n....\n", picture(4, 4));
    canvas->FillBox(3, 3, 3, 3, blue);
    EXPECT_EQ(blue, at(3, 3));
}

TEST_F(cCanvas_Clipping, WithZeroTheOriginLiesOppositeToTheCorner) {
    canvas->SetClippingRect({2, 3, 9, 9}, true);
    std::int32_t x = 7, y = 7;
    EXPECT_EQ(1, canvas->GetWndOrg(x, y));
    EXPECT_EQ(-2, x);
    EXPECT_EQ(-3, y);
    canvas->SetPixel(0, 0, red);
    canvas->ClearClipping(true);
    EXPECT_EQ(red, at(2, 3)) << "the corner was 0, 0";
    canvas->GetWndOrg(x, y);
    EXPECT_EQ(0, x);
    EXPECT_EQ(0, y);
}

TEST_F(cCanvas_Clipping, ClearingWithoutZeroLeavesTheOrigin) {
    canvas->SetClippingRect({2, 3, 9, 9}, true);
    canvas->ClearClipping();
    std::int32_t x = 0, y = 0;
    canvas->GetWndOrg(x, y);
    EXPECT_EQ(-2, x);
    EXPECT_EQ(1, canvas->SetWndOrg(4, 5));
    canvas->GetWndOrg(x, y);
    EXPECT_EQ(4, x);
    EXPECT_EQ(5, y);
}

TEST_F(cCanvas_Clipping, IsToldWithItsKind) {
    RECT_Type box{5, 6, 7, 8};
    EXPECT_EQ(-1, canvas->GetClippingRect(box)) << "none";
    EXPECT_EQ((RECT_Type{5, 6, 7, 8}), box);
    canvas->SetClippingRect({2, 3, 9, 10});
    EXPECT_EQ(platform::SIMPLEREGION, canvas->GetClippingRect(box));
    EXPECT_EQ((RECT_Type{2, 3, 9, 10}), box);
    canvas->SetClippingRect({4, 4, 4, 4});
    EXPECT_EQ(platform::NULLREGION, canvas->GetClippingRect(box));
    RECT_Type unconfigured{1, 2, 3, 4};
    EXPECT_EQ(0, automation::make<cCanvas>()->GetClippingRect(unconfigured));
    EXPECT_EQ((RECT_Type{1, 2, 3, 4}), unconfigured);
}

TEST_F(cCanvas_Clipping, LeavesNoRegionBehind) {
    const std::int32_t before = gdiObjects();
    RECT_Type box{0, 0, 1, 1};
    for (int i = 0; i < 5; ++i) {
        canvas->SetClippingRect({1, 1, 5, 5}, i % 2 == 0);
        canvas->GetClippingRect(box);
    }
    canvas->ClearClipping(true);
    expectObjects(before);
}

TEST_F(cCanvas_Clipping, APathIsFilledAndStroked) {
    canvas->SelectSimplePen(red);
    canvas->SelectSolidBrush(green);
    EXPECT_EQ(1, canvas->BeginPath());
    canvas->MoveTo(1, 1);
    canvas->LineTo(6, 1);
    canvas->LineTo(6, 6);
    canvas->LineTo(1, 6);
    EXPECT_EQ(1, canvas->CloseFigure());
    EXPECT_EQ(1, canvas->EndPath());
    EXPECT_EQ(black, at(3, 1)) << "collected, not painted";
    EXPECT_EQ(1, canvas->StrokeAndFillPath());
    EXPECT_EQ(red, at(3, 1));
    EXPECT_EQ(green, at(3, 3));
    EXPECT_EQ(0, canvas->FillPath()) << "used up";
}

TEST_F(cCanvas_Clipping, APathIsStrokedOrFilledAlone) {
    const auto square = [this] {
        canvas->FillBox(0, 0, 23, 15, black);
        canvas->BeginPath();
        canvas->Rectangle(2, 2, 8, 8);
        canvas->EndPath();
    };
    canvas->SelectSimplePen(red);
    canvas->SelectSolidBrush(green);
    square();
    EXPECT_EQ(1, canvas->StrokePath());
    EXPECT_EQ(red, at(2, 5));
    EXPECT_EQ(black, at(5, 5));
    square();
    EXPECT_EQ(1, canvas->FillPath());
    EXPECT_EQ(green, at(5, 5));
}

TEST_F(cCanvas_Clipping, APathBecomesARegionOrTheClipping) {
    canvas->BeginPath();
    canvas->Rectangle(2, 2, 6, 6);
    canvas->EndPath();
    const platform::HRGN region = canvas->PathToRegion();
    ASSERT_TRUE(region);
    EXPECT_TRUE(platform::PtInRegion(region, 4, 4));
    EXPECT_FALSE(platform::PtInRegion(region, 10, 10));
    canvas->DeleteObject(region);
    canvas->BeginPath();
    canvas->Rectangle(2, 2, 6, 6);
    canvas->EndPath();
    EXPECT_EQ(1, canvas->SetClippingPath(ClipPathMode_Copy));
    canvas->FillBox(0, 0, 23, 15, red);
    canvas->ClearClipping();
    EXPECT_EQ(red, at(4, 4));
    EXPECT_EQ(black, at(10, 10));
}

TEST_F(cCanvas_Clipping, APathJoinsTheClippingByItsMode) {
    const struct {
        ClipPathModeConstants mode;
        std::int32_t left, both, right; ///< Of the clipping alone, of both, of the path alone
    } cases[] = {{ClipPathMode_And, black, red, black},
                 {ClipPathMode_Or, red, red, red},
                 {ClipPathMode_Xor, red, black, red},
                 {ClipPathMode_Diff, red, black, black},
                 {ClipPathMode_Copy, black, red, red}};
    for (const auto& one : cases) {
        canvas->FillBox(0, 0, 23, 15, black);
        canvas->SetClippingRect({0, 0, 6, 6});
        canvas->BeginPath();
        canvas->Rectangle(3, 0, 9, 6);
        canvas->EndPath();
        EXPECT_EQ(1, canvas->SetClippingPath(one.mode));
        canvas->FillBox(0, 0, 23, 15, red);
        canvas->ClearClipping();
        EXPECT_EQ(one.left, at(1, 3)) << one.mode;
        EXPECT_EQ(one.both, at(5, 3)) << one.mode;
        EXPECT_EQ(one.right, at(8, 3)) << one.mode;
    }
}

TEST_F(cCanvas_Clipping, AnAbortedPathIsGone) {
    canvas->BeginPath();
    canvas->Rectangle(2, 2, 6, 6);
    EXPECT_EQ(1, canvas->AbortPath());
    EXPECT_EQ(0, canvas->StrokePath());
    EXPECT_EQ(0, canvas->CloseFigure()) << "only within a bracket";
}
