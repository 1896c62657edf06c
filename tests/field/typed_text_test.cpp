#include "automation/DateFunctions.h"
#include "field/typed_text.h"
#include "support/ErrorOf.h"

#include <gtest/gtest.h>

using automation::Date;
using automation::DateSerial;
using automation::String;
using namespace tesela;

namespace {

std::string number(const char16_t* text, std::int32_t& caret) {
    const TypedText typed = filterNumber({text, caret}, u",");
    caret = typed.caret;
    return typed.text.utf8();
}
std::string number(const char16_t* text) {
    std::int32_t caret = 0;
    return number(text, caret);
}

const Date today = DateSerial(2026, 11, 21);

DateEntry dayFirst() {
    return {u"/", u"1", today, -1};
}

std::optional<Date> date(std::u16string_view text, const DateEntry& entry = dayFirst()) {
    return typedDate(text, entry);
}

std::optional<double> hour(std::u16string_view text) {
    const auto time = typedTime(text, u":");
    return time ? std::optional(time->time.value() * 24) : std::nullopt;
}

std::string listed(std::u16string_view text) {
    const CodeList list(CodeList::normalised(text));
    return list.fault() == CodeList::Fault::None ? list.text().utf8() : "fault";
}

} // namespace

TEST(filterNumber, KeepsASignDigitsAndOneSeparator) {
    EXPECT_EQ("1234,5", number(u"1.234,5"));
    EXPECT_EQ("-12", number(u"  -1a2"));
    EXPECT_EQ("12", number(u"1-2"));
    EXPECT_EQ("1,23", number(u"1,2,3"));
    EXPECT_EQ("", number(u"abc"));
    EXPECT_EQ("-", number(u"-"));
    EXPECT_EQ("12", number(u"+12")) << "a plus is no part of a number";
}

TEST(filterNumber, ASeparatorAtTheBeginningGetsAZero) {
    std::int32_t caret = 0;
    EXPECT_EQ("0,5", number(u",5", caret));
    EXPECT_EQ(1, caret);
    caret = 0;
    EXPECT_EQ("-0,5", number(u"-,5", caret));
}

TEST(filterNumber, TheZeroMayBeLeftOut) {
    EXPECT_EQ(u",5", filterNumber({u",5", 1}, u",", LeadingZero::No).text);
}

TEST(filterNumber, TheCaretGoesBackOverWhatIsDroppedBeforeIt) {
    std::int32_t caret = 1;
    EXPECT_EQ("12", number(u"1a2", caret));
    EXPECT_EQ(0, caret);
    caret = 1;
    EXPECT_EQ("12", number(u"12a", caret));
    EXPECT_EQ(1, caret) << "what is dropped behind it leaves it";
    caret = 0;
    EXPECT_EQ("", number(u"a", caret));
    EXPECT_EQ(-1, caret);
}

TEST(filterNumber, FollowsTheLocalesSeparator) {
    EXPECT_EQ("1.5", filterNumber({u"1.5", 0}, u".").text.utf8());
    EXPECT_EQ("15", filterNumber({u"1,5", 0}, u".").text.utf8());
    EXPECT_EQ("15", filterNumber({u"1,5", 0}, u"").text.utf8()) << "a locale without one";
}

TEST(filterDate, KeepsDigitsBlanksAndSeparators) {
    EXPECT_EQ("1/2-3 4", filterDate({u"1/2-3 4x", 0}, u"/").text.utf8());
    EXPECT_EQ("1.2", filterDate({u"1.2", 0}, u".").text.utf8());
    EXPECT_EQ("12", filterDate({u"1.2", 0}, u"/").text.utf8());
}

TEST(filterDate, KeepsOneSignInFront) {
    EXPECT_EQ("+3", filterDate({u"+3", 0}, u"/").text.utf8());
    EXPECT_EQ("-3", filterDate({u"-3", 0}, u"/").text.utf8());
    EXPECT_EQ("+3", filterDate({u"++3", 0}, u"/").text.utf8());
    EXPECT_EQ("3", filterDate({u"3+", 0}, u"/").text.utf8());
}

TEST(inCase, ChangesTheLetters) {
    EXPECT_EQ("áñB", inCase(u"áñB", tslMayusculasNoFilter).utf8());
    EXPECT_EQ("ÁÑB", inCase(u"áñB", tslMayusculasUCase).utf8());
    EXPECT_EQ("áñb", inCase(u"áñB", tslMayusculasLCase).utf8());
    EXPECT_EQ("Uno Dos", inCase(u"uno DOS", tslMayusculasProper).utf8());
}

TEST(trimmed, TakesBlanksOffTheEndsThatItsBitsName) {
    EXPECT_EQ(" a ", trimmed(u" a ", tslAutoTrim_NO).utf8());
    EXPECT_EQ("a ", trimmed(u" a ", tslAutoTrim_Left).utf8());
    EXPECT_EQ(" a", trimmed(u" a ", tslAutoTrim_Right).utf8());
    EXPECT_EQ("a", trimmed(u" a ", tslAutoTrim_Both).utf8());
}

TEST(typedDate, ThreePartsMakeADate) {
    EXPECT_EQ(DateSerial(2024, 2, 29), date(u"29/2/2024"));
    EXPECT_EQ(DateSerial(2024, 2, 29), date(u"29-2/24")) << "two digits are of this century";
    EXPECT_EQ(DateSerial(1999, 12, 31), date(u"31/12/99"));
}

TEST(typedDate, ADayThatThereIsNotIsRefused) {
    for (const auto* text :
         {u"31/2/2024", u"30/2/2024", u"0/1/2024", u"1/0/2024", u"1/13/2024", u"32/1/2024"})
        EXPECT_FALSE(date(text)) << String(text).utf8();
}

TEST(typedDate, OneOrTwoNumbersAreNone) {
    EXPECT_FALSE(date(u"5"));
    EXPECT_FALSE(date(u"5-3"));
    EXPECT_FALSE(date(u"hola"));
}

TEST(typedDate, ABlankLastPartIsTheCompletingYear) {
    EXPECT_EQ(DateSerial(2026, 3, 5), date(u"5-3-"));
    EXPECT_EQ(DateSerial(2026, 3, 5), date(u"5/3/    "));
    DateEntry entry = dayFirst();
    entry.completingYear = 2030;
    EXPECT_EQ(DateSerial(2030, 3, 5), date(u"5-3-", entry));
}

TEST(typedDate, ABlankMiddleIsThePresentMonthAndYear) {
    EXPECT_EQ(DateSerial(2026, 11, 5), date(u"5--"));
    DateEntry entry = dayFirst();
    entry.completingYear = 2030;
    EXPECT_EQ(DateSerial(2026, 11, 5), date(u"5--", entry)) << "not the completing year";
}

TEST(typedDate, TheLocaleSaysWhatTheNumbersMean) {
    DateEntry entry = dayFirst();
    entry.order = u"0";
    EXPECT_EQ(DateSerial(2024, 2, 29), date(u"2/29/2024", entry));
    entry.order = u"2";
    EXPECT_EQ(DateSerial(2024, 2, 29), date(u"2024/2/29", entry));
    entry.separator = u".";
    entry.order = u"1";
    EXPECT_EQ(DateSerial(2024, 2, 29), date(u"29.2.2024", entry));
}

TEST(typedDate, TheCalendarBeginsIn1753) {
    EXPECT_FALSE(date(u"31/12/1752"));
    EXPECT_EQ(DateSerial(1753, 1, 1), date(u"1/1/1753"));
    EXPECT_EQ(DateSerial(9999, 12, 31), date(u"31/12/9999"));
    EXPECT_EQ(5, tests::errorOf([] { date(u"1/1/10000"); }));
    EXPECT_EQ(6, tests::errorOf([] { date(u"1/1/99999999999"); }));
}

TEST(relativeDate, CountsDaysFromToday) {
    EXPECT_EQ(today, relativeDate(u"+0", today));
    EXPECT_EQ(DateSerial(2026, 11, 20), relativeDate(u"-1", today));
    EXPECT_EQ(DateSerial(2026, 12, 1), relativeDate(u"+10", today));
    EXPECT_EQ(DateSerial(2027, 11, 21), relativeDate(u"+365", today));
}

TEST(relativeDate, NeedsASignAndANumber) {
    for (const auto* text : {u"", u"1", u"+", u"-", u"+a", u"+00"})
        EXPECT_FALSE(relativeDate(text, today)) << String(text).utf8();
    EXPECT_NE(0, tests::errorOf([] { relativeDate(u"+9999999", today); }));
    EXPECT_NE(0, tests::errorOf([] { relativeDate(u"-99999999999", today); }));
}

TEST(isBlankDate, SeparatorsAndBlanksAreNothingTyped) {
    EXPECT_TRUE(isBlankDate(u"  /  /    ", u"/"));
    EXPECT_TRUE(isBlankDate(u" - - ", u"/"));
    EXPECT_TRUE(isBlankDate(u"", u"/"));
    EXPECT_FALSE(isBlankDate(u"  /  /    ", u".")) << "only the locale's own separator";
    EXPECT_FALSE(isBlankDate(u" 1/  /    ", u"/"));
}

TEST(typedTime, HoursAndMinutes) {
    EXPECT_DOUBLE_EQ(23 + 59 / 60.0, hour(u"23:59").value());
    EXPECT_DOUBLE_EQ(1 + 5 / 60.0, hour(u"1:5").value());
    EXPECT_DOUBLE_EQ(1, hour(u" 1:  ").value());
    EXPECT_FALSE(hour(u"24:00"));
    EXPECT_FALSE(hour(u"23:60"));
    EXPECT_FALSE(hour(u"-1:00"));
    EXPECT_FALSE(hour(u"12"));
    EXPECT_TRUE(typedTime(u"12.30", u"."));
}

TEST(typedTime, NothingTypedIsMidnight) {
    EXPECT_TRUE(typedTime(u"  :  ", u":")->blank);
    EXPECT_TRUE(typedTime(u"", u":")->blank);
    EXPECT_FALSE(typedTime(u"0:00", u":")->blank);
    EXPECT_EQ(Date(), typedTime(u" ", u":")->time);
}

TEST(CodeList, IsWrittenInOrder) {
    EXPECT_EQ("1-2, 3", listed(u"3,1-2"));
    EXPECT_EQ("1, 5-9, 20-", listed(u"1, 5-9, 20-"));
    EXPECT_EQ("-7", listed(u"-7"));
    EXPECT_EQ("7-", listed(u"7-"));
    EXPECT_EQ("2-5", listed(u"5-2"));
    EXPECT_EQ("7", listed(u"7-7"));
    EXPECT_EQ("", listed(u""));
    EXPECT_EQ("1, 2", listed(u",,1,,2,,"));
}

TEST(CodeList, BlanksSeparateAndStandAroundDashes) {
    EXPECT_EQ("1,5-9,20", CodeList::normalised(u"  1   5 -  9  20 ,").utf8());
    EXPECT_EQ("1-5", CodeList::normalised(u"1----5").utf8());
    EXPECT_EQ("1,2", CodeList::normalised(u"1 , , 2,").utf8());
}

TEST(CodeList, NamesItsFaultAndWhereItStands) {
    const struct {
        const char16_t* text;
        CodeList::Fault fault;
        int start, length;
    } cases[] = {
        {u"1-2-3", CodeList::Fault::TwoDashes, 0, 5},
        {u"-", CodeList::Fault::NoBounds, 0, 1},
        {u"4,-,2-2-2", CodeList::Fault::NoBounds, 2, 1},
        {u"5,4,5", CodeList::Fault::EqualElements, 0, 1},
        {u"1,1-3", CodeList::Fault::ElementInRange, 0, 1},
        {u"1-3,2", CodeList::Fault::RangeOverElement, 0, 3},
        {u"2,1-3", CodeList::Fault::RangeOverElement, 2, 3},
        {u"7,1-5,5-9", CodeList::Fault::RangesOverlap, 2, 3},
        {u"3-,100", CodeList::Fault::RangeOverElement, 0, 2},
        {u"-4,2-9", CodeList::Fault::RangesOverlap, 0, 2},
        {u"5,5-9,1", CodeList::Fault::RangeOverElement, 2, 3}, // 1 changes places with the first 5
        {u"5,5,1", CodeList::Fault::EqualElements, 2, 1},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(String(expected.text).utf8());
        const CodeList list(expected.text);
        EXPECT_EQ(expected.fault, list.fault());
        EXPECT_EQ(expected.start, list.faultStart());
        EXPECT_EQ(expected.length, list.faultLength());
    }
}

TEST(CodeList, NeighboursThatDoNotTouchAreFine) {
    EXPECT_EQ("1-3, 4, 5-9, 10", listed(u"10,5-9,4,1-3"));
}

TEST(CodeList, ACodeBeyondALongIsAnError) {
    EXPECT_EQ(6, tests::errorOf([] { listed(u"99999999999"); }));
}

TEST(CodeList, AHundredThousandCodesAreChecked) {
    std::u16string text;
    for (int i = 100000; i > 0; --i) {
        for (const char c : std::to_string(2 * i))
            text += static_cast<char16_t>(c);
        text += u',';
    }
    EXPECT_EQ(CodeList::Fault::None, CodeList(CodeList::normalised(text)).fault());
    EXPECT_EQ(CodeList::Fault::EqualElements, CodeList(CodeList::normalised(text + u"44")).fault());
}

TEST(CodeList, EachFaultHasItsWords) {
    EXPECT_EQ("", CodeList::message(CodeList::Fault::None).utf8());
    EXPECT_EQ("No puede haber más de 1 guión entre un par de comas.",
              CodeList::message(CodeList::Fault::TwoDashes).utf8());
    EXPECT_EQ("Un rango necesita especificar al menos un valor (el inicial o el final).",
              CodeList::message(CodeList::Fault::NoBounds).utf8());
    EXPECT_EQ("Dos elementos son iguales.", CodeList::message(CodeList::Fault::EqualElements).utf8());
    EXPECT_EQ("Un elemento está incluido en el rango que le sigue.",
              CodeList::message(CodeList::Fault::ElementInRange).utf8());
    EXPECT_EQ("Un rango incluye a un elemento posterior.",
              CodeList::message(CodeList::Fault::RangeOverElement).utf8());
    EXPECT_EQ("Dos rangos se solapan.", CodeList::message(CodeList::Fault::RangesOverlap).utf8());
}
