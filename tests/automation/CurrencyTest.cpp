#include "automation/Currency.h"
#include "automation/Error.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

using automation::Currency;
using automation::Error;

namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

std::int32_t errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(Currency, CountsTenThousandths) {
    EXPECT_EQ(Currency(3).scaled(), 30000);
    EXPECT_EQ(Currency(std::numeric_limits<std::int32_t>::min()).scaled(), -21474836480000);
    EXPECT_DOUBLE_EQ(Currency::fromScaled(12345).toDouble(), 1.2345);
}

TEST(Currency, RoundsDoublesHalfToEven) {
    struct Case {
        double value;
        std::int64_t scaled;
    };
    // Ties need fractions that a Double holds exactly.
    constexpr Case cases[] = {{0.03125, 312},   {0.09375, 938}, {0.15625, 1562}, {-0.03125, -312},
                              {-0.09375, -938}, {0.000051, 1},  {-0.000051, -1}, {-1.5, -15000}};
    for (const Case& c : cases)
        EXPECT_EQ(Currency::fromDouble(c.value).scaled(), c.scaled) << c.value;
}

TEST(Currency, OverflowsOutsideItsRange) {
    EXPECT_EQ(errorOf([] { Currency::fromDouble(922337203685477.6); }), 6);
    EXPECT_EQ(errorOf([] { Currency::fromDouble(-922337203685478.0); }), 6);
    EXPECT_EQ(errorOf([] { Currency::fromDouble(std::nan("")); }), 6);
    EXPECT_EQ(errorOf([] { Currency::fromScaled(largest) + Currency::fromScaled(1); }), 6);
    EXPECT_EQ(errorOf([] { Currency::fromScaled(smallest) - Currency::fromScaled(1); }), 6);
    EXPECT_EQ(errorOf([] { -Currency::fromScaled(smallest); }), 6);
    EXPECT_EQ(errorOf([] { Currency::fromScaled(largest) * Currency(2); }), 6);
}

TEST(Currency, ReachesBothEndsOfItsRange) {
    EXPECT_EQ((Currency::fromScaled(smallest) * Currency(1)).scaled(), smallest);
    EXPECT_EQ((Currency::fromScaled(largest) * Currency(1)).scaled(), largest);
    EXPECT_EQ(errorOf([] { Currency::fromScaled(smallest) * Currency(-1); }), 6);
}

TEST(Currency, RoundsProductsHalfToEven) {
    // 0.0001 times 0.5, 1.5, 2.5 tenths of the last place
    EXPECT_EQ((Currency::fromScaled(1) * Currency::fromScaled(5000)).scaled(), 0);
    EXPECT_EQ((Currency::fromScaled(3) * Currency::fromScaled(5000)).scaled(), 2);
    EXPECT_EQ((Currency::fromScaled(5) * Currency::fromScaled(5000)).scaled(), 2);
    EXPECT_EQ((Currency::fromScaled(-3) * Currency::fromScaled(5000)).scaled(), -2);
    EXPECT_EQ((Currency::fromScaled(1) * Currency::fromScaled(5001)).scaled(), 1);
}

TEST(Currency, MultipliesAsExactIntegersDo) {
    std::mt19937_64 random(7);
    for (int round = 0; round < 20000; ++round) {
        const auto a = static_cast<std::int64_t>(random() % 4000000000) - 2000000000;
        const auto b = static_cast<std::int64_t>(random() % 4000000000) - 2000000000;
        const std::int64_t exact = a * b;
        std::int64_t quotient = exact / 10000;
        const std::int64_t rest = std::abs(exact % 10000);
        if (rest > 5000 || (rest == 5000 && quotient % 2 != 0)) quotient += exact < 0 ? -1 : 1;
        EXPECT_EQ((Currency::fromScaled(a) * Currency::fromScaled(b)).scaled(), quotient) << a << " * " << b;
    }
}
