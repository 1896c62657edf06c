#include "platform/gdi.h"
#include "support/Canvas.h"

#include <gtest/gtest.h>

using namespace platform;
using test::Canvas;

namespace {

/// A region that goes with its scope.
class OwnRegion {
public:
    OwnRegion(int left, int top, int right, int bottom) : handle_(CreateRectRgn(left, top, right, bottom)) {}
    explicit OwnRegion(HRGN handle) : handle_(handle) {}
    ~OwnRegion() { DeleteObject(handle_); }
    OwnRegion(const OwnRegion&) = delete;
    OwnRegion& operator=(const OwnRegion&) = delete;
    operator HRGN() const { return handle_; } // NOLINT(google-explicit-constructor)

private:
    HRGN handle_;
};

} // namespace

TEST(Regions, CombineInFiveWays) {
    const OwnRegion a(0, 0, 4, 4);
    const OwnRegion b(2, 0, 6, 4);
    const OwnRegion result(0, 0, 0, 0);
    const struct {
        int mode;
        int kind;
        RECT box;
    } cases[] = {
        {RGN_AND, SIMPLEREGION, {2, 0, 4, 4}},  {RGN_OR, SIMPLEREGION, {0, 0, 6, 4}},
        {RGN_XOR, COMPLEXREGION, {0, 0, 6, 4}}, {RGN_DIFF, SIMPLEREGION, {0, 0, 2, 4}},
        {RGN_COPY, SIMPLEREGION, {0, 0, 4, 4}},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(CombineRgn(result, a, b, each.mode), each.kind) << each.mode;
        RECT box;
        EXPECT_EQ(GetRgnBox(result, &box), each.kind) << each.mode;
        EXPECT_EQ(box, each.box) << each.mode;
    }
    EXPECT_TRUE(EqualRgn(result, a));
    EXPECT_FALSE(EqualRgn(result, b));
}

TEST(Regions, TheTargetMayBeOneOfTheSources) {
    const OwnRegion a(0, 0, 4, 4);
    const OwnRegion b(2, 2, 6, 6);
    EXPECT_EQ(CombineRgn(a, a, b, RGN_AND), SIMPLEREGION);
    RECT box;
    GetRgnBox(a, &box);
    EXPECT_EQ(box, (RECT{2, 2, 4, 4}));
}

TEST(Regions, NothingInCommonIsNothing) {
    const OwnRegion a(0, 0, 2, 2);
    const OwnRegion b(5, 5, 6, 6);
    EXPECT_EQ(CombineRgn(a, a, b, RGN_AND), NULLREGION);
    RECT box{1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(a, &box), NULLREGION);
    EXPECT_EQ(box, (RECT{0, 0, 0, 0}));
}

TEST(Regions, MoveAsAWhole) {
    const OwnRegion a(1, 1, 3, 3);
    EXPECT_EQ(OffsetRgn(a, 10, -5), SIMPLEREGION);
    EXPECT_TRUE(PtInRegion(a, 11, -4));
    EXPECT_FALSE(PtInRegion(a, 13, -4)) << "the right edge lies outside";
    const RECT beside{13, -4, 20, 0};
    const RECT touching{12, -3, 20, 0};
    EXPECT_FALSE(RectInRegion(a, &beside));
    EXPECT_TRUE(RectInRegion(a, &touching));
}

TEST(Regions, BecomeRectanglesAgain) {
    const OwnRegion a(CreateEllipticRgn(0, 0, 20, 20));
    EXPECT_FALSE(PtInRegion(a, 0, 0));
    EXPECT_TRUE(SetRectRgn(a, 8, 8, 2, 2)) << "edges in any order";
    RECT box;
    EXPECT_EQ(GetRgnBox(a, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{2, 2, 8, 8}));
}

TEST(Regions, AreFilledInvertedAndFramed) {
    const Canvas canvas(6, 4);
    const OwnRegion all(0, 0, 6, 4);
    const HBRUSH brush = HBRUSH(GetStockObject(WHITE_BRUSH).value);
    EXPECT_TRUE(FrameRgn(canvas.dc(), all, brush, 1, 1));
    EXPECT_EQ(canvas.text(), "######\n#....#\n#....#\n######\n");
    EXPECT_TRUE(InvertRgn(canvas.dc(), all));
    EXPECT_EQ(canvas.text(), "......\n.####.\n.####.\n......\n");
    EXPECT_TRUE(FillRgn(canvas.dc(), all, brush));
    EXPECT_EQ(canvas.text(), "######\n######\n######\n######\n");
    SelectObject(canvas.dc(), GetStockObject(BLACK_BRUSH));
    EXPECT_TRUE(PaintRgn(canvas.dc(), all));
    EXPECT_EQ(canvas.text(), "......\n......\n......\n......\n");
}

TEST(Regions, WrongHandlesFail) {
    const Canvas canvas(2, 2);
    const OwnRegion a(0, 0, 2, 2);
    const HRGN none;
    RECT box;
    EXPECT_EQ(CombineRgn(none, a, a, RGN_OR), REGION_ERROR);
    EXPECT_EQ(CombineRgn(a, none, a, RGN_OR), REGION_ERROR);
    EXPECT_EQ(CombineRgn(a, a, none, RGN_OR), REGION_ERROR);
    EXPECT_EQ(OffsetRgn(none, 1, 1), REGION_ERROR);
    EXPECT_EQ(GetRgnBox(none, &box), REGION_ERROR);
    EXPECT_FALSE(EqualRgn(none, a));
    EXPECT_FALSE(PtInRegion(none, 0, 0));
    EXPECT_FALSE(SetRectRgn(none, 0, 0, 1, 1));
    EXPECT_FALSE(PaintRgn(canvas.dc(), none));
    EXPECT_FALSE(FillRgn(canvas.dc(), a, HBRUSH()));
    EXPECT_FALSE(InvertRgn(HDC(), a));
}
