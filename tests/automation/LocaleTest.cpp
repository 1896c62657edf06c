#include "automation/Locale.h"

#include "support/LocaleScope.h"

#include <gtest/gtest.h>

namespace {

using automation::DateOrder;
using automation::Locale;

TEST(Locale, FollowsTheUsersChoice) {
    {
        const tests::LocaleScope scope("es-ES");
        ASSERT_TRUE(scope.known());
        EXPECT_EQ(Locale::user().decimal, u",");
        EXPECT_EQ(Locale::user().thousands, u".");
        EXPECT_EQ(Locale::user().dateOrder, DateOrder::DayMonthYear);
    }
    {
        const tests::LocaleScope scope("en-US");
        ASSERT_TRUE(scope.known());
        EXPECT_EQ(Locale::user().decimal, u".");
        EXPECT_EQ(Locale::user().thousands, u",");
        EXPECT_EQ(Locale::user().dateOrder, DateOrder::MonthDayYear);
    }
    const tests::LocaleScope scope("sv-SE");
    ASSERT_TRUE(scope.known());
    EXPECT_EQ(Locale::user().decimal, u",");
    EXPECT_EQ(Locale::user().dateOrder, DateOrder::YearMonthDay);
    EXPECT_EQ(Locale::user().dateSeparator, u"-");
}

TEST(Locale, CountsDaysFromSundayAndMonthsFromJanuary) {
    const tests::LocaleScope scope("es-ES");
    EXPECT_EQ(Locale::user().dayNames[0], u"domingo");
    EXPECT_EQ(Locale::user().dayNames[1], u"lunes");
    EXPECT_EQ(Locale::user().dayNames[6], u"sábado");
    EXPECT_EQ(Locale::user().monthNames[0], u"enero");
    EXPECT_EQ(Locale::user().monthNames[11], u"diciembre");
}

TEST(Locale, TellsTheFirstDayAndTheFirstWeekAsTheLanguageNumbersThem) {
    {
        const tests::LocaleScope scope("es-ES");
        EXPECT_EQ(Locale::user().firstDayOfWeek, 2);
        EXPECT_EQ(Locale::user().firstWeekOfYear, 2);
    }
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(Locale::user().firstDayOfWeek, 1);
    EXPECT_EQ(Locale::user().firstWeekOfYear, 1);
}

TEST(Locale, HasTheLanguagesOwnWordsForBooleans) {
    {
        const tests::LocaleScope scope("es-ES");
        EXPECT_EQ(Locale::user().trueText, u"Verdadero");
        EXPECT_EQ(Locale::user().noText, u"No");
    }
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(Locale::user().trueText, u"True");
    EXPECT_EQ(Locale::user().yesText, u"Yes");
}

} // namespace
