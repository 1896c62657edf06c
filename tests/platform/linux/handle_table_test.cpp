#include "platform/gdi.h"
#include "platform/linux/handles.h"
#include "platform/linux/surface.h"

#include <gtest/gtest.h>

#include <set>

using namespace platform;
using platform::driver::handleCount;
using platform::driver::HandleKind;

TEST(HandleTable, CountsEachKindApart) {
    const std::uint32_t brushes = handleCount(HandleKind::Brush);
    const std::uint32_t pens = handleCount(HandleKind::Pen);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    EXPECT_EQ(handleCount(HandleKind::Brush), brushes + 1);
    EXPECT_EQ(handleCount(HandleKind::Pen), pens + 1);
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_EQ(handleCount(HandleKind::Brush), brushes);
    EXPECT_EQ(handleCount(HandleKind::Pen), pens + 1);
    EXPECT_NE(driver::describeHandles().find("Pen"), std::string::npos);
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_EQ(handleCount(HandleKind::Pen), pens);
}

TEST(HandleTable, StockObjectsAreNotCounted) {
    const std::uint32_t all = handleCount();
    EXPECT_TRUE(GetStockObject(WHITE_BRUSH));
    EXPECT_TRUE(GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(handleCount(), all);
}

TEST(HandleTable, AStaleHandleNeverFindsTheNextObjectInItsPlace) {
    std::set<std::uint32_t> seen;
    for (int i = 0; i < 5000; ++i) {
        const HBRUSH brush = CreateSolidBrush(RGB(0, 0, 0));
        ASSERT_TRUE(seen.insert(brush.value).second) << "handle given twice";
        ASSERT_TRUE(DeleteObject(brush));
        ASSERT_FALSE(DeleteObject(brush));
        ASSERT_EQ(GetObjectType(HGDIOBJ(brush)), 0u);
    }
}

TEST(HandleTable, GivesNoHandleWhenFullAndRecovers) {
    std::vector<HPEN> pens;
    while (const HPEN pen = CreatePen(PS_SOLID, 1, 0)) {
        pens.push_back(pen);
        ASSERT_LE(pens.size(), 70000u);
    }
    EXPECT_GT(pens.size(), 60000u);
    EXPECT_FALSE(CreateCompatibleDC(HDC()));
    for (const HPEN pen : pens)
        ASSERT_TRUE(DeleteObject(pen));
    const HBRUSH brush = CreateSolidBrush(0);
    EXPECT_TRUE(brush);
    EXPECT_TRUE(DeleteObject(brush));
}

TEST(HandleTable, ADeletedObjectCountsUntilItsLastContextLetsItGo) {
    const std::uint32_t all = handleCount();
    const HDC dc = CreateCompatibleDC(HDC());
    const HBRUSH brush = CreateSolidBrush(RGB(9, 9, 9));
    SelectObject(dc, brush);
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_EQ(handleCount(), all + 2);
    SelectObject(dc, GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(handleCount(), all + 1);
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_EQ(handleCount(), all);
}

TEST(HandleTable, SavedStatesHoldTheirObjects) {
    const std::uint32_t all = handleCount();
    const HDC dc = CreateCompatibleDC(HDC());
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 1, 1));
    SelectObject(dc, pen);
    EXPECT_EQ(SaveDC(dc), 1);
    SelectObject(dc, GetStockObject(BLACK_PEN));
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_TRUE(RestoreDC(dc, -1));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN).value, pen.value);
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_EQ(handleCount(), all);
}

TEST(WindowContext, DrawsNothingOutsideItsVisibleRegionAndIsCountedUntilReleased) {
    std::vector<std::uint32_t> pixels(20 * 10, 0);
    driver::Surface surface{20, 10, 32, 20 * 4, reinterpret_cast<std::uint8_t*>(pixels.data())};
    const std::uint32_t contexts = handleCount(HandleKind::DeviceContext);
    const HDC dc = driver::createWindowDC(surface, {5, 2}, driver::Region(RECT{5, 2, 9, 4}));
    EXPECT_EQ(GetObjectType(dc), OBJ_DC);
    EXPECT_EQ(handleCount(HandleKind::DeviceContext), contexts + 1);
    RECT box;
    EXPECT_EQ(GetClipBox(dc, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{0, 0, 4, 2}));
    EXPECT_FALSE(DeleteDC(dc));
    EXPECT_TRUE(driver::releaseWindowDC(dc));
    EXPECT_FALSE(driver::releaseWindowDC(dc));
    EXPECT_EQ(handleCount(HandleKind::DeviceContext), contexts);
}

TEST(WindowContext, AMemoryContextIsNotReleasedAsOneOfAWindow) {
    const HDC dc = CreateCompatibleDC(HDC());
    EXPECT_FALSE(driver::releaseWindowDC(dc));
    EXPECT_TRUE(DeleteDC(dc));
}
