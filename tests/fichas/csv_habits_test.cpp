#include "fichas/CsvHabits.h"

#include "automation/Currency.h"
#include "automation/Date.h"

#include <gtest/gtest.h>

#include <initializer_list>

using namespace fichas;
using automation::Currency;
using automation::Date;
using automation::Variant;

namespace {

CsvHabits learnt(ColumnType type, std::initializer_list<const char16_t*> fields,
                 char16_t decimalSeparator = u',') {
    CsvHabits habits(type, decimalSeparator);
    for (const char16_t* field : fields)
        habits.take(field, false);
    return habits;
}

Variant money(std::int64_t tenThousandths) {
    return Currency::fromScaled(tenThousandths);
}

Variant moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return Date::fromDayAndSecond(Date::dayNumberOf(year, month, day), (hour * 60 + minute) * 60 + second);
}

Variant time(int hour, int minute, int second = 0) {
    return Date::fromDayAndSecond(0, (hour * 60 + minute) * 60 + second);
}

TEST(CsvHabits, ANumberKeepsAtLeastTheDecimalsOfTheFormerOne) {
    const CsvHabits habits = learnt(ColumnType::Currency, {u"1,5", u"2,75"});
    EXPECT_EQ(habits.text(money(20000), u"1,50"), u"2,00");
    EXPECT_EQ(habits.text(money(21250), u"1,5"), u"2,125");
    EXPECT_EQ(habits.text(money(-30000), u"1,5"), u"-3,0");
    EXPECT_EQ(habits.text(money(5000), u""), u"0,50") << "as many as the column's longest";
    EXPECT_EQ(habits.text(money(-500), u"otra cosa"), u"-0,05");
}

TEST(CsvHabits, ANumberHasSeparatedThousandsWhereTheColumnHas) {
    const CsvHabits spanish = learnt(ColumnType::Currency, {u"12,50", u"1.234,50"});
    EXPECT_EQ(spanish.text(money(12345670000), u"12,50"), u"1.234.567,00");
    EXPECT_EQ(spanish.text(money(12345670000), u"4321,50"), u"1234567,00") << "as the former one";
    EXPECT_EQ(spanish.text(money(9990000), u"1.234,50"), u"999,00");
    const CsvHabits english = learnt(ColumnType::Integer, {u"12", u"1,234"}, u'.');
    EXPECT_EQ(english.text(Variant(98765), u"12"), u"98,765");
    EXPECT_EQ(learnt(ColumnType::Integer, {u"1234"}).text(Variant(98765), u"12"), u"98765");
}

TEST(CsvHabits, CurrencyAndSignsStayWhereTheyStand) {
    const CsvHabits habits = learnt(ColumnType::Currency, {u"10,00 €"});
    EXPECT_EQ(habits.text(money(25000), u"-1,50 €"), u"2,50 €");
    EXPECT_EQ(habits.text(money(-25000), u"1,50€"), u"-2,50€");
    EXPECT_EQ(habits.text(money(-25000), u"1,50-"), u"2,50-");
    EXPECT_EQ(habits.text(money(-25000), u""), u"-2,50 €");
}

TEST(CsvHabits, ADoubleIsWrittenWithAllItsDigits) {
    const CsvHabits habits = learnt(ColumnType::Number, {u"0.12345"}, u'.');
    EXPECT_EQ(habits.text(Variant(0.1234567), u"0.5"), u"0.1234567");
    EXPECT_EQ(habits.text(Variant(1e14), u"0.5"), u"100000000000000.0");
}

TEST(CsvHabits, ADateHasTheOrderSeparatorsAndZerosOfTheFormerOne) {
    const CsvHabits habits = learnt(ColumnType::Date, {u"2024-02-29"});
    const Variant day = moment(2025, 3, 4);
    EXPECT_EQ(habits.text(day, u"01/02/2024"), u"04/03/2025");
    EXPECT_EQ(habits.text(day, u"1-2-2024"), u"4-3-2025");
    EXPECT_EQ(habits.text(day, u"31.12.99"), u"04.03.25");
    EXPECT_EQ(habits.text(moment(1899, 3, 4), u"31.12.99"), u"04.03.1899") << "a short one would be 1999";
    EXPECT_EQ(habits.text(day, u""), u"2025-03-04");
    EXPECT_EQ(habits.text(moment(987, 3, 4), u"mañana"), u"0987-03-04");
}

TEST(CsvHabits, AnHourThatStaysIsWrittenAsItWas) {
    const CsvHabits habits = learnt(ColumnType::DateTime, {u"2024-02-29T10:30:15.250Z"});
    EXPECT_EQ(habits.text(moment(2025, 3, 4, 10, 30, 15), u"2024-02-29T10:30:15.250Z"),
              u"2025-03-04T10:30:15.250Z");
    EXPECT_EQ(habits.text(moment(2025, 3, 4, 9, 5), u"2024-02-29T10:30:15.250Z"), u"2025-03-04T09:05:00Z");
    EXPECT_EQ(habits.text(moment(2025, 3, 4, 9, 5), u"1/2/2024 9:00"), u"4/3/2025 9:05");
    EXPECT_EQ(habits.text(moment(2025, 3, 4), u"01/02/2024"), u"04/03/2025");
    EXPECT_EQ(habits.text(moment(2025, 3, 4, 9, 5), u"01/02/2024"), u"04/03/2025 09:05:00");
}

TEST(CsvHabits, ATimeHasSecondsWhereTheFormerOneHas) {
    const CsvHabits habits = learnt(ColumnType::Time, {u"08:15"});
    EXPECT_EQ(habits.text(time(7, 5), u"9:30"), u"7:05");
    EXPECT_EQ(habits.text(time(7, 5), u"09:30:20"), u"07:05:00");
    EXPECT_EQ(habits.text(time(7, 5), u""), u"07:05");
}

TEST(CsvHabits, TruthValuesHaveTheColumnsWords) {
    const auto words = [](std::initializer_list<const char16_t*> fields) {
        const CsvHabits habits = learnt(ColumnType::Boolean, fields);
        return habits.text(Variant(true), u"") + u'/' + habits.text(Variant(false), u"");
    };
    EXPECT_EQ(words({u"sí", u"no"}), u"sí/no");
    EXPECT_EQ(words({u"N"}), u"S/N");
    EXPECT_EQ(words({u"TRUE"}), u"TRUE/FALSE");
    EXPECT_EQ(words({u"Falso"}), u"Verdadero/Falso");
    EXPECT_EQ(words({u"No", u"Si"}), u"Si/No");
}

TEST(CsvHabits, NothingIsWrittenForNullAndTextsAsTheyAre) {
    const CsvHabits habits = learnt(ColumnType::Integer, {u"7"});
    EXPECT_EQ(habits.text(Variant::null(), u"5"), u"");
    EXPECT_EQ(learnt(ColumnType::Text, {u"a"}).text(Variant(u"R&D; \"x\""), u"5"), u"R&D; \"x\"");
}

TEST(CsvHabits, AColumnHasQuotesWhereAllItsValuesHaveThem) {
    CsvHabits habits(ColumnType::Text, u',');
    EXPECT_FALSE(habits.quotes()) << "nothing is known yet";
    habits.take(u"a", true);
    habits.take(u"", false);
    EXPECT_TRUE(habits.quotes());
    habits.take(u"b", false);
    EXPECT_FALSE(habits.quotes());
}

} // namespace
