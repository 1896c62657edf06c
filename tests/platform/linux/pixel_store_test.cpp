#include <gtest/gtest.h>

#include "platform/linux/pixel_store.h"
#include "platform/linux/rows.h"

#include <algorithm>

namespace {

using namespace platform;
using driver::PixelStore;

constexpr std::uint32_t ink = 0x123456;
constexpr int width = 10, height = 12;
constexpr RECT inner{2, 3, 8, 11};

/// A store whose memory held ink before: what isn't made black shows it.
PixelStore usedStore(const RECT& later, int bitsPerPixel = 32) {
    PixelStore store;
    store.make(width, height, 32);
    std::ranges::fill(store.words(), ink);
    store.make(width, height, bitsPerPixel, later);
    return store;
}

bool isBlack(const PixelStore& store, const RECT& part) {
    for (LONG y = part.top; y < part.bottom; ++y)
        for (LONG x = part.left; x < part.right; ++x)
            if (driver::row32(store.surface, y)[x] != 0) return false;
    return true;
}

void draw(const PixelStore& store, const RECT& part) {
    for (LONG y = part.top; y < part.bottom; ++y)
        std::fill(driver::row32(store.surface, y) + part.left, driver::row32(store.surface, y) + part.right,
                  ink);
}

TEST(PixelStore, IsBlackAtOnceOutsideOfWhatCanWait) {
    const PixelStore store = usedStore(inner);
    EXPECT_TRUE(isBlack(store, {0, 0, width, inner.top}));
    EXPECT_TRUE(isBlack(store, {0, inner.bottom, width, height}));
    EXPECT_TRUE(isBlack(store, {0, 0, inner.left, height}));
    EXPECT_TRUE(isBlack(store, {inner.right, 0, width, height}));
    EXPECT_FALSE(isBlack(store, inner));
}

TEST(PixelStore, IsBlackWhereverItWasAskedFor) {
    PixelStore upwards = usedStore(inner), downwards = usedStore(inner), middle = usedStore(inner);
    const RECT above{3, 0, 5, 5}, below{3, 9, 5, height}, between{4, 6, 6, 8};
    upwards.need(below);
    downwards.need(above);
    middle.need(between);
    EXPECT_TRUE(isBlack(upwards, below));
    EXPECT_TRUE(isBlack(downwards, above));
    EXPECT_TRUE(isBlack(middle, between));
    for (PixelStore* store : {&upwards, &downwards, &middle}) {
        EXPECT_FALSE(isBlack(*store, inner)) << "the rest waits";
        store->needAll();
        EXPECT_TRUE(isBlack(*store, {0, 0, width, height}));
    }
}

TEST(PixelStore, KeepsWhatWasDrawnWhenMoreOfItIsNeeded) {
    for (const RECT& drawn : {RECT{2, 9, 5, 11}, RECT{2, 3, 5, 5}, RECT{4, 6, 6, 8}}) {
        PixelStore store = usedStore(inner);
        store.need(drawn);
        draw(store, drawn);
        draw(store, {0, 0, inner.left, height}); // beside of what waits
        store.need({5, 5, 6, 6});
        store.needAll();
        const auto inked = std::ranges::count(store.words(), ink);
        EXPECT_EQ((drawn.right - drawn.left) * (drawn.bottom - drawn.top) + inner.left * height, inked);
        EXPECT_EQ(width * height - inked, std::ranges::count(store.words(), 0u));
    }
}

TEST(PixelStore, IsBlackAtOnceWhereNothingCanWaitOrPixelsShareWords) {
    EXPECT_TRUE(isBlack(usedStore({}), {0, 0, width, height}));
    EXPECT_TRUE(isBlack(usedStore({width, 0, 2 * width, height}), {0, 0, width, height}));
    PixelStore bits = usedStore({0, 0, width, height}, 1);
    EXPECT_EQ(height, std::ranges::count(bits.words(), 0u));
}

TEST(PixelStore, WaitsNowhereOutsideOfItself) {
    PixelStore store = usedStore({-5, -5, 2 * width, 2 * height});
    EXPECT_FALSE(isBlack(store, {0, 0, width, height}));
    store.needAll();
    EXPECT_TRUE(isBlack(store, {0, 0, width, height}));
}

} // namespace
