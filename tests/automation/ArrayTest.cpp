#include "automation/Array.h"
#include "automation/Object.h"
#include "automation/Variant.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

using namespace automation;

namespace {

std::int32_t errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(Array, HasBoundsOfItsOwn) {
    const Array array(VT_VARIANT, {{1, 3}, {-2, 5}});
    EXPECT_EQ(array.dimensions(), 2);
    EXPECT_EQ(array.lower(1), 1);
    EXPECT_EQ(array.upper(1), 3);
    EXPECT_EQ(array.lower(2), -2);
    EXPECT_EQ(array.upper(2), 2);
    EXPECT_EQ(array.size(), 15u);
    EXPECT_EQ(errorOf([&] { array.lower(3); }), 9);
    EXPECT_EQ(errorOf([&] { array.upper(0); }), 9);
}

TEST(Array, StartsWithItsTypesEmptyValues) {
    EXPECT_TRUE(Array(VT_VARIANT, {{0, 1}})(0).isEmpty());
    EXPECT_EQ(Array(VT_I4, {{0, 1}})(0).asLong(), 0);
    EXPECT_EQ(Array(VT_BSTR, {{0, 1}})(0).asString(), u"");
    EXPECT_TRUE(Array(VT_DISPATCH, {{0, 1}})(0).isNothing());
    EXPECT_FALSE(Array(VT_BOOL, {{0, 1}})(0).asBoolean());
    EXPECT_EQ(Array(VT_DATE, {{0, 1}})(0).asDate(), Date(0));
    EXPECT_TRUE(Array(VT_DECIMAL, {{0, 1}})(0).asDecimal().isZero());
}

TEST(Array, ChecksItsBounds) {
    Array array(VT_I4, {{1, 2}, {0, 2}});
    struct Place {
        int i, j;
    };
    for (const Place& p : {Place{0, 0}, {3, 0}, {1, -1}, {1, 2}}) {
        EXPECT_EQ(errorOf([&] { array(p.i, p.j); }), 9) << p.i << "," << p.j;
        EXPECT_EQ(errorOf([&] { array.set(1, p.i, p.j); }), 9) << p.i << "," << p.j;
    }
    EXPECT_EQ(errorOf([&] { array(1); }), 9) << "too few subscripts";
    EXPECT_EQ(errorOf([&] { array(1, 0, 0); }), 9) << "too many subscripts";
    EXPECT_EQ(errorOf([] { Array()(0); }), 9) << "no dimensions";
}

TEST(Array, TakesOneToSixtyDimensions) {
    const std::vector<Bound> sixty(60, Bound{0, 1});
    const Array array(VT_I2, sixty);
    EXPECT_EQ(array.dimensions(), 60);
    EXPECT_EQ(array.at(std::vector<std::int32_t>(60, 0)).asInteger(), 0);
    EXPECT_EQ(errorOf([] { Array(VT_I2, std::vector<Bound>(61, Bound{0, 1})); }), 9);
}

TEST(Array, RefusesSizesThatMemoryCannotHold) {
    EXPECT_EQ(errorOf([] { Array(VT_VARIANT, {{0, 0xFFFFFFFFu}, {0, 0xFFFFFFFFu}, {0, 0xFFFFFFFFu}}); }), 7);
}

TEST(Array, RefusesElementTypesThatArraysCannotHave) {
    EXPECT_EQ(errorOf([] { Array(VT_NULL, {{0, 1}}); }), 5);
}

TEST(Array, VariesTheFirstSubscriptFastest) {
    Array array(VT_I4, {{0, 2}, {0, 3}});
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 3; ++j)
            array.set(10 * i + j, i, j);
    const auto* raw = static_cast<const std::int32_t*>(std::as_const(array).data());
    EXPECT_EQ(std::vector<std::int32_t>(raw, raw + 6), (std::vector<std::int32_t>{0, 10, 1, 11, 2, 12}));
}

TEST(Array, ConvertsWhatIsPutIntoATypedElement) {
    Array array(VT_I2, {{0, 1}});
    array.set(u"12", 0);
    EXPECT_EQ(array(0).asInteger(), 12);
    EXPECT_EQ(errorOf([&] { array.set(100000, 0); }), 6);
    EXPECT_EQ(errorOf([&] { array.set(u"doce", 0); }), 13);
    EXPECT_EQ(array(0).asInteger(), 12);
}

TEST(Array, HoldsEveryElementType) {
    const std::vector<Variant> values = {
        std::uint8_t{200}, std::int16_t{-3}, 70000,    1.5f, 2.5,
        Currency(4),       Date(36526.5),    u"texto", true, Decimal(9, 1, 3, true)};
    for (const Variant& value : values) {
        Array array(value.type(), {{5, 2}});
        array.set(value, 6);
        const Array copy = array;
        array.set(array(5), 6);
        EXPECT_EQ(copy(6).type(), value.type());
        EXPECT_FALSE(copy.sharesWith(array));
    }
}

TEST(Array, HasValueSemantics) {
    Array first(VT_BSTR, {{1, 2}});
    first.set(u"uno", 1);
    Array second = first;
    EXPECT_TRUE(second.sharesWith(first));
    second.set(u"otro", 1);
    EXPECT_EQ(first(1).asString(), u"uno");
    EXPECT_EQ(second(1).asString(), u"otro");
}

TEST(Array, MayHoldACopyOfItself) {
    Array array(VT_VARIANT, {{0, 1}});
    array.set(array, 0);
    EXPECT_TRUE(array(0).asArray()(0).isEmpty());
}

TEST(Array, KeepsElementsWhenItsLastDimensionGrowsOrShrinks) {
    Array array(VT_VARIANT, {{1, 2}, {1, 2}});
    int n = 0;
    for (int j = 1; j <= 2; ++j)
        for (int i = 1; i <= 2; ++i)
            array.set(String::repeat(u'x', static_cast<std::size_t>(++n)), i, j);
    const Array before = array;
    const Bound larger[] = {{1, 2}, {1, 4}};
    array.redimPreserve(larger);
    EXPECT_EQ(array(2, 2).asString(), u"xxxx");
    EXPECT_TRUE(array(1, 3).isEmpty());
    const Bound shorter[] = {{1, 2}, {1, 1}};
    array.redimPreserve(shorter);
    EXPECT_EQ(array(2, 1).asString(), u"xx");
    EXPECT_EQ(array.size(), 2u);
    EXPECT_EQ(before(2, 2).asString(), u"xxxx") << "a copy is not touched";
}

TEST(Array, LetsOnlyTheLastUpperBoundChangeWhileItsElementsStay) {
    Array array(VT_I4, {{0, 2}, {0, 2}});
    const Bound first[] = {{0, 3}, {0, 2}};
    const Bound lower[] = {{0, 2}, {1, 2}};
    const Bound fewer[] = {{0, 2}};
    EXPECT_EQ(errorOf([&] { array.redimPreserve(first); }), 9);
    EXPECT_EQ(errorOf([&] { array.redimPreserve(lower); }), 9);
    EXPECT_EQ(errorOf([&] { array.redimPreserve(fewer); }), 9);
    EXPECT_EQ(array.dimensions(), 2);
}

TEST(Array, LosesItsElementsWhenItIsErasedOrGetsNewDimensions) {
    Array array = Array::of({1, 2, 3});
    const Bound bounds[] = {{4, 2}};
    array.redim(bounds);
    EXPECT_TRUE(array(4).isEmpty());
    array.erase();
    EXPECT_EQ(array.dimensions(), 0);
    EXPECT_EQ(array.size(), 0u);
}

TEST(Array, MayHaveNoElements) {
    const Array array = Array::of({});
    EXPECT_EQ(array.dimensions(), 1);
    EXPECT_EQ(array.upper(), -1);
    EXPECT_EQ(errorOf([&] { array(0); }), 9);
    EXPECT_TRUE(array.variants().empty());
}

TEST(Array, GivesItsBytesAsOneBlock) {
    const std::uint8_t bytes[] = {1, 2, 3};
    Array array = Array::ofBytes(bytes, 1);
    const Array copy = array;
    array.bytes()[0] = 9;
    EXPECT_EQ(array(1).asByte(), 9);
    EXPECT_EQ(copy(1).asByte(), 1);
    EXPECT_EQ(errorOf([&] { array.variants(); }), 13);
}

TEST(Array, FollowsAModelThroughRandomWritesAndCopies) {
    std::mt19937 random(99);
    std::vector<Array> arrays(4, Array(VT_VARIANT, {{-3, 7}, {10, 5}}));
    std::vector<std::vector<int>> models(4, std::vector<int>(35, 0));
    for (int step = 0; step < 20000; ++step) {
        const std::size_t a = random() % 4;
        const std::size_t b = random() % 4;
        if (random() % 5 == 0) {
            arrays[a] = arrays[b];
            models[a] = models[b];
            continue;
        }
        const int i = static_cast<int>(random() % 7);
        const int j = static_cast<int>(random() % 5);
        const auto place = static_cast<std::size_t>(i + 7 * j);
        const Variant held = arrays[a](i - 3, j + 10);
        ASSERT_EQ(held.isEmpty() ? 0 : held.asLong(), models[a][place]);
        arrays[a].set(step, i - 3, j + 10);
        models[a][place] = step;
    }
}
