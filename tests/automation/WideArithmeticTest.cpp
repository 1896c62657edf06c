#include "automation/WideArithmetic.h"

#include <gtest/gtest.h>

#include <random>

using namespace automation::wide;

namespace {

/// Random limbs, with many of those that carries and wrong guesses come from.
template <std::size_t Limbs>
Integer<Limbs> randomInteger(std::mt19937& random, std::size_t length) {
    constexpr std::uint32_t edges[] = {0, 1, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
    Integer<Limbs> result{};
    for (std::size_t i = 0; i < length; ++i)
        result[i] = random() % 2 ? edges[random() % std::size(edges)] : static_cast<std::uint32_t>(random());
    return result;
}

} // namespace

TEST(WideArithmetic, QuotientTimesDivisorPlusRemainderIsTheDividend) {
    std::mt19937 random(17);
    int divided = 0;
    for (int round = 0; round < 100000; ++round) {
        const auto dividend = randomInteger<8>(random, random() % 8);
        const auto divisor = randomInteger<8>(random, 1 + random() % 4);
        if (isZero(divisor)) continue;
        Integer<8> quotient = dividend;
        const Integer<8> rest = divide(quotient, divisor);
        ASSERT_LT(compare(rest, divisor), 0);
        Integer<16> back = product(quotient, divisor);
        addTo(back, resized<16>(rest));
        ASSERT_EQ(compare(back, resized<16>(dividend)), 0);
        ++divided;
    }
    EXPECT_GT(divided, 90000);
}

TEST(WideArithmetic, SmallOperationsInvertEachOther) {
    std::mt19937 random(18);
    for (int round = 0; round < 20000; ++round) {
        const auto start = randomInteger<8>(random, 7);
        const auto factor = static_cast<std::uint32_t>(random()) | 1;
        Integer<8> value = start;
        multiplySmall(value, factor);
        const std::uint32_t term = static_cast<std::uint32_t>(random()) % factor;
        addSmall(value, term);
        ASSERT_EQ(divideSmall(value, factor), term);
        ASSERT_EQ(value, start);
    }
}

TEST(WideArithmetic, SumsAndDifferencesInvertEachOther) {
    std::mt19937 random(19);
    for (int round = 0; round < 20000; ++round) {
        const auto a = randomInteger<6>(random, 5);
        const auto b = randomInteger<6>(random, 5);
        Integer<6> value = a;
        ASSERT_EQ(addTo(value, b), 0u);
        ASSERT_GE(compare(value, a), 0);
        subtractFrom(value, b);
        ASSERT_EQ(value, a);
    }
}
