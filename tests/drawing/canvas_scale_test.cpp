// Units of length: the whole table, at the resolution of the screen.
#include "CanvasTest.h"
#include "drawing/rounding.h"

using namespace tesela;

namespace {

class cCanvas_Scale : public tests::CanvasTest {
protected:
    double P = canvas->GetDevCaps(GDIDeviceCaps_LogPixelsX);
};

constexpr std::int32_t twips = 1, points = 2, pixels = 3, inches = 5, millimetres = 6, centimetres = 7,
                       himetric = 8;

} // namespace

TEST_F(cCanvas_Scale, ConvertsEachPairOfUnits) {
    const double v = 100;
    const auto round = [](double value) { return std::nearbyint(value); };
    const struct {
        std::int32_t from, to;
        double result;
    } table[] = {
        {twips, twips, v},
        {twips, points, v / 20},
        {twips, pixels, round(v * P / 1440)},
        {twips, inches, v / 1440},
        {twips, millimetres, v * 25.4 / 1440},
        {twips, centimetres, v * 2.54 / 1440},
        {twips, himetric, v * 2540 / 1440},
        {points, twips, v * 20},
        {points, points, v},
        {points, pixels, round(v * P / 72)},
        {points, inches, v / 72},
        {points, millimetres, v * 25.4 / 72},
        {points, centimetres, v * 2.54 / 72},
        {points, himetric, v * 2540 / 72},
        {pixels, twips, v * 1440 / P},
        {pixels, points, v * 72 / P},
        {pixels, pixels, v},
        {pixels, inches, v / P},
        {pixels, millimetres, v * 25.4 / P},
        {pixels, centimetres, v * 2.54 / P},
        {pixels, himetric, v * 2540 / P},
        {inches, twips, v * 1440},
        {inches, points, v * 72},
        {inches, pixels, v * P},
        {inches, inches, v},
        {inches, millimetres, v * 25.4},
        {inches, centimetres, v * 2.54},
        {inches, himetric, v * 2540},
        {millimetres, twips, v * P * 1440 / 25.4},
        {millimetres, points, v * P * 72 / 25.4},
        {millimetres, pixels, v * P / 25.4},
        {millimetres, inches, v / 25.4},
        {millimetres, millimetres, v},
        {millimetres, centimetres, v / 10},
        {millimetres, himetric, v * 100},
        {centimetres, twips, v * P * 1440 / 2.54},
        {centimetres, points, v * P * 72 / 2.54},
        {centimetres, pixels, v * P / 2.54},
        {centimetres, inches, v / 2.54},
        {centimetres, millimetres, v * 10},
        {centimetres, centimetres, v},
        {centimetres, himetric, v * 1000},
        {himetric, twips, v * 1440 / 2540},
        {himetric, points, v * P * 72 / 2540},
        {himetric, pixels, v * P / 2540},
        {himetric, inches, v / 2540},
        {himetric, millimetres, v / 100},
        {himetric, centimetres, v / 1000},
        {himetric, himetric, v},
    };
    for (const auto& pair : table) {
        EXPECT_EQ(static_cast<float>(pair.result), canvas->ScaleX(100, pair.from, pair.to))
            << pair.from << " to " << pair.to;
        EXPECT_EQ(static_cast<float>(pair.result), canvas->ScaleY(100, pair.from, pair.to))
            << pair.from << " to " << pair.to;
    }
}

TEST_F(cCanvas_Scale, MillimetresToTwipsCarryTheResolution) {
    EXPECT_EQ(static_cast<float>(10 * P * 1440 / 25.4), canvas->ScaleX(10, millimetres, twips));
}

TEST_F(cCanvas_Scale, OnlyTwipsAndPointsToPixelsAreRoundedToEven) {
    ASSERT_EQ(96, P);
    EXPECT_EQ(0.0f, canvas->ScaleX(7.5f, twips, pixels)) << "0.5";
    EXPECT_EQ(2.0f, canvas->ScaleX(22.5f, twips, pixels)) << "1.5";
    EXPECT_EQ(2.0f, canvas->ScaleX(37.5f, twips, pixels)) << "2.5";
    EXPECT_EQ(1.0f, canvas->ScaleY(1, points, pixels));
    EXPECT_EQ(1.5f, canvas->ScaleX(1.0f / 64, inches, pixels));
}

TEST_F(cCanvas_Scale, UnitsThatThereAreNotGiveZero) {
    for (const std::int32_t unit : {-1, 0, 4, 9, 1000}) {
        EXPECT_EQ(0.0f, canvas->ScaleX(10, unit, pixels));
        EXPECT_EQ(0.0f, canvas->ScaleX(10, pixels, unit));
        EXPECT_EQ(0.0f, canvas->ScaleY(10, unit, unit));
    }
    EXPECT_EQ(10.0f, canvas->ScaleX(10)) << "pixels to pixels";
}

TEST_F(cCanvas_Scale, MeasuresTextAndPens) {
    ASSERT_EQ(96, P);
    EXPECT_EQ(11, canvas->CalculateTextSize(82)) << "10.93";
    EXPECT_EQ(-11, canvas->CalculateTextSize(-82));
    EXPECT_EQ(static_cast<float>(2.5 * 96 / 25.4), canvas->CalculatePenWidth(2.5f));
}

TEST(Rounding, GoesToTheEvenNeighbour) {
    EXPECT_EQ(0, roundToLong(0.5));
    EXPECT_EQ(2, roundToLong(1.5));
    EXPECT_EQ(2, roundToLong(2.5));
    EXPECT_EQ(-2, roundToLong(-2.5));
    constexpr std::int32_t overflow = 6;
    EXPECT_EQ(overflow, tests::errorOf([] { roundToLong(2147483648.0); }));
    EXPECT_EQ(overflow, tests::errorOf([] { roundToLong(std::nan("")); }));
    EXPECT_EQ(2147483647, roundToLong(2147483647.4));
}

TEST(Rounding, OfAFractionGoesAwayFromZero) {
    EXPECT_EQ(3, mulDiv(5, 1, 2));
    EXPECT_EQ(-3, mulDiv(-5, 1, 2));
    EXPECT_EQ(-3, mulDiv(5, 1, -2));
    EXPECT_EQ(-1, mulDiv(5, 1, 0));
    EXPECT_EQ(-1, mulDiv(0x7FFFFFFF, 4, 1));
    EXPECT_EQ(0, mulDiv(0, 96, 720));
}
