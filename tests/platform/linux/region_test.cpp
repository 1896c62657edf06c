#include "platform/linux/surface.h"

#include <gtest/gtest.h>

#include <bitset>
#include <limits>
#include <random>

using namespace platform;
using platform::driver::Region;

namespace {

constexpr int side = 24;
using Pixels = std::bitset<side * side>;

std::size_t indexOf(int x, int y) {
    return static_cast<std::size_t>(y * side + x);
}

Pixels pixelsOf(const RECT& r) {
    Pixels pixels;
    for (int y = r.top; y < r.bottom; ++y)
        for (int x = r.left; x < r.right; ++x)
            pixels.set(indexOf(x, y));
    return pixels;
}

/// Marks the pixels of a region and counts on its rectangles being disjoint.
Pixels pixelsOf(const Region& region) {
    Pixels pixels;
    for (const RECT& r : region.rectangles()) {
        for (int y = r.top; y < r.bottom; ++y) {
            for (int x = r.left; x < r.right; ++x) {
                EXPECT_FALSE(pixels.test(indexOf(x, y))) << "rectangles overlap at " << x << ", " << y;
                pixels.set(indexOf(x, y));
            }
        }
    }
    return pixels;
}

/// Rows of rectangles of one height, from left to right without touching; equal rows above each other joined.
void expectBanded(const Region& region) {
    const std::span<const RECT> rects = region.rectangles();
    for (std::size_t i = 0; i < rects.size(); ++i) {
        ASSERT_LT(rects[i].left, rects[i].right);
        ASSERT_LT(rects[i].top, rects[i].bottom);
        if (i == 0) continue;
        const RECT& last = rects[i - 1];
        if (rects[i].top == last.top) {
            ASSERT_EQ(rects[i].bottom, last.bottom);
            ASSERT_GT(rects[i].left, last.right);
        } else {
            ASSERT_GE(rects[i].top, last.bottom);
        }
    }
}

class Source {
public:
    RECT rect() {
        const int x = number(0, side - 1);
        const int y = number(0, side - 1);
        return {x, y, number(x, side), number(y, side)};
    }
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(generator_); }

private:
    std::mt19937 generator_{20240517};
};

struct Pair {
    Region region;
    Pixels pixels;
};

Pair randomPair(Source& source) {
    Pair pair;
    for (int i = source.number(0, 6); i > 0; --i) {
        const RECT r = source.rect();
        const bool add = source.number(0, 3) > 0;
        pair.region = add ? pair.region.united(Region(r)) : pair.region.subtracted(Region(r));
        pair.pixels = add ? pair.pixels | pixelsOf(r) : pair.pixels & ~pixelsOf(r);
    }
    return pair;
}

} // namespace

TEST(Region, AgreesWithABitmapOnRandomSets) {
    Source source;
    for (int round = 0; round < 3000; ++round) {
        const Pair a = randomPair(source);
        const Pair b = randomPair(source);
        ASSERT_EQ(pixelsOf(a.region), a.pixels);
        ASSERT_EQ(pixelsOf(a.region.united(b.region)), a.pixels | b.pixels);
        ASSERT_EQ(pixelsOf(a.region.intersected(b.region)), a.pixels & b.pixels);
        ASSERT_EQ(pixelsOf(a.region.subtracted(b.region)), a.pixels & ~b.pixels);
        expectBanded(a.region);
        expectBanded(a.region.united(b.region));
        expectBanded(a.region.intersected(b.region));
        expectBanded(a.region.subtracted(b.region));
    }
}

TEST(Region, OfAllRectanglesIsTheirUnionOneByOne) {
    Source source;
    for (int round = 0; round < 3000; ++round) {
        std::vector<RECT> rects;
        Region united;
        for (int i = source.number(0, 12); i > 0; --i) {
            rects.push_back(source.rect());
            united = united.united(Region(rects.back()));
        }
        ASSERT_EQ(Region::ofAll(rects), united);
    }
}

TEST(Region, CutToARectangleIsTheIntersection) {
    Source source;
    for (int round = 0; round < 1000; ++round) {
        Region region = randomPair(source).region;
        const RECT r = source.rect();
        const Region expected = region.intersected(Region(r));
        region.cutTo(r);
        ASSERT_EQ(region, expected);
    }
}

TEST(Region, SameSetOfPixelsIsTheSameRegionHoweverItWasMade) {
    Source source;
    for (int round = 0; round < 1000; ++round) {
        const Pair a = randomPair(source);
        const Pair b = randomPair(source);
        const Region one = a.region.subtracted(b.region).united(b.region);
        const Region other = b.region.united(a.region);
        ASSERT_EQ(one, other);
    }
}

TEST(Region, ContainsExactlyItsPixels) {
    Source source;
    for (int round = 0; round < 200; ++round) {
        const Pair a = randomPair(source);
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                ASSERT_EQ(a.region.contains({x, y}), a.pixels.test(indexOf(x, y)));
    }
}

TEST(Region, EmptyAndInvertedRectanglesHoldNothing) {
    EXPECT_TRUE(Region(RECT{3, 3, 3, 9}).empty());
    EXPECT_TRUE(Region(RECT{9, 3, 3, 9}).empty());
    EXPECT_EQ(Region().bounds(), RECT{});
}

TEST(Region, BoundsCoverAllRectangles) {
    const Region region = Region(RECT{5, 1, 7, 3}).united(Region(RECT{1, 6, 2, 9}));
    EXPECT_EQ(region.bounds(), (RECT{1, 1, 7, 9}));
}

TEST(Region, MovingStopsAtTheLimitsOfCoordinates) {
    Region region(RECT{0, 0, 10, 10});
    region.translate(std::numeric_limits<LONG>::max(), 0);
    EXPECT_TRUE(region.empty());
    region = Region(RECT{0, 0, 10, 10});
    region.translate(-5, 7);
    EXPECT_EQ(region.bounds(), (RECT{-5, 7, 5, 17}));
}

TEST(Region, HandlesTheWholePlane) {
    constexpr LONG low = std::numeric_limits<LONG>::min();
    constexpr LONG high = std::numeric_limits<LONG>::max();
    const Region plane(RECT{low, low, high, high});
    const Region hole = plane.subtracted(Region(RECT{0, 0, 1, 1}));
    EXPECT_EQ(hole.rectangles().size(), 4u);
    EXPECT_EQ(hole.united(Region(RECT{0, 0, 1, 1})), plane);
}
