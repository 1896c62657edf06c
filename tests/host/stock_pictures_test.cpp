#include "host/StockPictures.h"
#include "platform/system_look.h"
#include "support/Canvas.h"

#include <gtest/gtest.h>

using namespace platform;
using host::stockPicture;
using test::Canvas;

namespace {

constexpr std::int32_t firstBitmap = 32734;
constexpr std::int32_t lastBitmap = 32767;

/// The picture on a background of its own.
class Shown {
public:
    Shown(ResourceType kind, std::int32_t number)
        : picture_(stockPicture(kind, number)), canvas_(picture_->pixels().cx, picture_->pixels().cy) {
        for (int y = 0; y < canvas_.height(); ++y)
            for (int x = 0; x < canvas_.width(); ++x)
                canvas_.set(x, y, ground);
        picture_->render(canvas_.dc(), 0, 0, canvas_.width(), canvas_.height());
    }
    const Canvas& canvas() const { return canvas_; }
    std::string text() const { return canvas_.text(); }

    static constexpr COLORREF ground = RGB(1, 254, 3);

private:
    automation::Ref<host::Picture> picture_;
    Canvas canvas_;
};

std::vector<std::int32_t> cursorNumbers() {
    return {32512, 32513, 32514, 32515, 32516, 32640, 32641, 32642,
            32643, 32644, 32645, 32646, 32648, 32649, 32650, 32651};
}

bool areMirrored(const Canvas& a, const Canvas& b) {
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if ((a.at(x, y) == GetSysColor(COLOR_BTNTEXT)) !=
                (b.at(b.width() - 1 - x, y) == GetSysColor(COLOR_BTNTEXT)))
                return false;
    return true;
}

} // namespace

TEST(StockPictures, ThereAreBitmapsOfAllNumbersButOne) {
    for (std::int32_t number = firstBitmap; number <= lastBitmap; ++number) {
        const auto picture = stockPicture(ResourceType::Bitmap, number);
        ASSERT_TRUE(picture) << number;
        EXPECT_EQ(picture->Type(), host::PictureType::Bitmap);
    }
    for (const std::int32_t number : {0, 1, firstBitmap - 1, lastBitmap + 1, -1})
        EXPECT_FALSE(stockPicture(ResourceType::Bitmap, number)) << number;
}

TEST(StockPictures, BitmapsHaveTheSizesOfTheSystem) {
    const auto sizeOf = [](std::int32_t number) {
        return stockPicture(ResourceType::Bitmap, number)->pixels();
    };
    EXPECT_EQ(sizeOf(32753), (SIZE{GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYVSCROLL)}));
    EXPECT_EQ(sizeOf(32750), (SIZE{GetSystemMetrics(SM_CXHSCROLL), GetSystemMetrics(SM_CYHSCROLL)}));
    EXPECT_EQ(sizeOf(32748), (SIZE{GetSystemMetrics(SM_CXSIZE) - 2, GetSystemMetrics(SM_CYSIZE) - 4}));
    EXPECT_EQ(sizeOf(32760), (SIZE{GetSystemMetrics(SM_CXMENUCHECK), GetSystemMetrics(SM_CYMENUCHECK)}));
}

TEST(StockPictures, ArrowsPointTheirWays) {
    for (const std::int32_t first : {32750, 32762})
        EXPECT_TRUE(areMirrored(Shown(ResourceType::Bitmap, first).canvas(),
                                Shown(ResourceType::Bitmap, first + 1).canvas()));
    const Shown up(ResourceType::Bitmap, 32753);
    const Canvas& canvas = up.canvas();
    const auto inked = [&](int y) {
        int count = 0;
        for (int x = 0; x < canvas.width(); ++x)
            if (canvas.at(x, y) == GetSysColor(COLOR_BTNTEXT)) ++count;
        return count;
    };
    const int middle = canvas.height() / 2;
    EXPECT_LT(inked(middle - 2), inked(middle));
    EXPECT_GT(inked(middle), 0);
}

TEST(StockPictures, TheTickRisesFromItsCorner) {
    EXPECT_EQ(Shown(ResourceType::Bitmap, 32760).text(), "#############\n"
                                                         "#############\n"
                                                         "#############\n"
                                                         "#########.###\n"
                                                         "########..###\n"
                                                         "###.###...###\n"
                                                         "###..#...####\n"
                                                         "###.....#####\n"
                                                         "####...######\n"
                                                         "#####.#######\n"
                                                         "#############\n"
                                                         "#############\n"
                                                         "#############\n");
}

TEST(StockPictures, IconsLetTheGroundThroughAtTheirCorners) {
    for (std::int32_t number = 32512; number <= 32518; ++number) {
        const Shown icon(ResourceType::Icon, number);
        EXPECT_EQ(icon.canvas().width(), GetSystemMetrics(SM_CXICON));
        EXPECT_EQ(icon.canvas().at(0, 0), Shown::ground) << number;
        EXPECT_NE(icon.canvas().at(16, 22), Shown::ground) << number;
    }
    EXPECT_FALSE(stockPicture(ResourceType::Icon, 32511));
    EXPECT_FALSE(stockPicture(ResourceType::Icon, 32519));
}

TEST(StockPictures, CursorsHaveTheirSizeAndLetTheGroundThrough) {
    for (const std::int32_t number : cursorNumbers()) {
        const Shown cursor(ResourceType::Cursor, number);
        EXPECT_EQ(cursor.canvas().width(), GetSystemMetrics(SM_CXCURSOR)) << number;
        EXPECT_EQ(cursor.canvas().at(31, 0), Shown::ground) << number;
        EXPECT_NE(cursor.text().find('.'), std::string::npos) << number << " has no black edge";
    }
    EXPECT_FALSE(stockPicture(ResourceType::Cursor, 32647));
    EXPECT_FALSE(stockPicture(ResourceType::Cursor, 1));
}

TEST(StockPictures, CursorsPointWithTheirHotSpots) {
    const auto hotSpotOf = [](std::int32_t number) {
        const auto cursor = stockPicture(ResourceType::Cursor, number);
        ICONINFO about;
        EXPECT_TRUE(GetIconInfo(HICON(static_cast<std::uint32_t>(cursor->Handle())), &about));
        EXPECT_FALSE(about.fIcon);
        DeleteObject(about.hbmMask);
        DeleteObject(about.hbmColor);
        return POINT{static_cast<LONG>(about.xHotspot), static_cast<LONG>(about.yHotspot)};
    };
    EXPECT_EQ(hotSpotOf(32512), (POINT{0, 0}));
    EXPECT_EQ(hotSpotOf(32515), (POINT{16, 16}));
    EXPECT_EQ(hotSpotOf(32649), (POINT{13, 2}));
}
