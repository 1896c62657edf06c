#include "fichas/Display.h"

#include "automation/Array.h"
#include "automation/Currency.h"
#include "automation/Date.h"
#include "automation/Decimal.h"
#include "platform/locale.h"

#include <gtest/gtest.h>

using namespace fichas;
using automation::Array;
using automation::Currency;
using automation::Date;
using automation::String;
using automation::Variant;

namespace {

class DisplayTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(platform::overrideUserLocale("es-ES")); }
    void TearDown() override { platform::overrideUserLocale(""); }

    static String shown(const Variant& value, ColumnType type, int decimals = -1) {
        return displayText(value, Column{u"x", type, decimals});
    }
};

TEST_F(DisplayTest, NumbersHaveTheirColumnsDecimals) {
    EXPECT_EQ(shown(std::int32_t{12345}, ColumnType::Integer), u"12345");
    EXPECT_EQ(shown(Currency::fromScaled(12345600), ColumnType::Currency, 2), u"1.234,56");
    EXPECT_EQ(shown(Currency(12), ColumnType::Currency, 2), u"12,00");
    EXPECT_EQ(shown(Currency::fromScaled(123456), ColumnType::Currency), u"12,3456");
    EXPECT_EQ(shown(0.552, ColumnType::Number), u"0,552");
    EXPECT_EQ(shown(-3.7, ColumnType::Number, 5), u"-3,70000");
    EXPECT_EQ(shown(automation::Decimal::fromInt64(5000000000), ColumnType::Integer), u"5000000000");
}

TEST_F(DisplayTest, DatesAndTruthValuesFollowTheLocale) {
    EXPECT_EQ(shown(Date::join(2024, 2, 29), ColumnType::Date), u"29/02/2024");
    EXPECT_EQ(shown(Date::join(2024, 2, 29, 9, 5, 7), ColumnType::DateTime), u"29/02/2024 9:05:07");
    EXPECT_EQ(shown(Date::join(1899, 12, 30, 13, 5), ColumnType::Time), u"13:05:00");
    EXPECT_EQ(shown(true, ColumnType::Boolean), u"Sí");
    EXPECT_EQ(shown(false, ColumnType::Boolean), u"No");
    ASSERT_TRUE(platform::overrideUserLocale("en-US"));
    EXPECT_EQ(shown(Date::join(2024, 2, 29), ColumnType::Date), u"2/29/2024");
    EXPECT_EQ(shown(Currency::fromScaled(12345600), ColumnType::Currency, 2), u"1,234.56");
    EXPECT_EQ(shown(true, ColumnType::Boolean), u"Yes");
}

TEST_F(DisplayTest, TextsStayOnOneLine) {
    EXPECT_EQ(shown(u"uno\r\ndos\ttres", ColumnType::Text), u"uno dos tres");
    EXPECT_EQ(shown(u"", ColumnType::Text), u"");
}

TEST_F(DisplayTest, NullIsNothingAndBytesAreASize) {
    EXPECT_EQ(shown(Variant::null(), ColumnType::Currency, 2), u"");
    const std::vector<std::uint8_t> bytes(1234);
    EXPECT_EQ(shown(Array::ofBytes(bytes), ColumnType::Binary), u"1.234 bytes");
    EXPECT_EQ(shown(Array::ofBytes(std::span(bytes).first(1)), ColumnType::Binary), u"1 byte");
}

TEST_F(DisplayTest, NumbersStandAtTheRightAndStrayTextsDoNot) {
    const Column money{u"x", ColumnType::Currency, 2};
    const Column text{u"x", ColumnType::Text, -1};
    EXPECT_TRUE(standsAtRight(Currency(1), money));
    EXPECT_TRUE(standsAtRight(Variant::null(), money));
    EXPECT_FALSE(standsAtRight(u"gratis", money));
    EXPECT_TRUE(standsAtRight(std::int32_t{1}, text));
    EXPECT_FALSE(standsAtRight(u"1", text));
    EXPECT_FALSE(standsAtRight(Date(), Column{u"x", ColumnType::Date, -1}));
}

TEST(Title, TellsTableAndPosition) {
    EXPECT_EQ(titleText(u"clientes", 1, 3000, true), u"clientes — 1 de 3000");
    EXPECT_EQ(titleText(u"a.csv", 7, 2000, false), u"a.csv — 7 de más de 2000");
    EXPECT_EQ(titleText(u"vacía", 0, 0, true), u"vacía — ningún registro");
}

} // namespace
