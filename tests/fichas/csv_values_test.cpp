#include "fichas/CsvValues.h"

#include "automation/Currency.h"
#include "automation/Variant.h"

#include <gtest/gtest.h>

using namespace fichas;
using automation::Currency;
using automation::Date;

namespace {

std::string digitsOf(std::u16string_view text, char16_t separator = u',') {
    const auto number = readNumber(text, separator);
    if (!number) return "no";
    return (number->negative ? "-" : "") + number->digits + "/" + std::to_string(number->decimals);
}

TEST(CsvNumbers, SpanishAndEnglishForms) {
    EXPECT_EQ(digitsOf(u"1.234,50"), "123450/2");
    EXPECT_EQ(digitsOf(u"1234,5"), "12345/1");
    EXPECT_EQ(digitsOf(u"-12.345.678"), "-12345678/0");
    EXPECT_EQ(digitsOf(u"1,234.50", u'.'), "123450/2");
    EXPECT_EQ(digitsOf(u" 12,50 € "), "1250/2");
    EXPECT_EQ(digitsOf(u"12-"), "-12/0");
    EXPECT_EQ(digitsOf(u"0,5"), "05/1");
}

TEST(CsvNumbers, WhatIsNoNumber) {
    for (const char16_t* text :
         {u"", u"-", u"1.23,4", u"12.34", u"1.2345", u".123", u"1..234", u"1,", u"1,2,3", u"1 2", u"007",
          u"00", u"12a", u"€", u"1234567890123456", u"1234.567"})
        EXPECT_EQ(digitsOf(text), "no");
    // Without a digit before the separator the number starts with its decimals.
    EXPECT_EQ(digitsOf(u",5"), "5/1");
}

Date dateOf(std::u16string_view text) {
    const auto date = readDate(text);
    return date ? date->value : Date();
}

TEST(CsvDates, SpanishAndIsoForms) {
    const Date day = Date::join(2024, 2, 29);
    for (const char16_t* text :
         {u"29/02/2024", u"29/2/2024", u"29-02-2024", u"29.02.2024", u"2024-02-29", u"29/02/24"})
        EXPECT_EQ(dateOf(text), day);
    EXPECT_EQ(dateOf(u"01/02/1985"), Date::join(1985, 2, 1));
    EXPECT_EQ(dateOf(u"01/02/85"), Date::join(1985, 2, 1));
    EXPECT_EQ(dateOf(u"2024-02-29T13:05:09"), Date::join(2024, 2, 29, 13, 5, 9));
    EXPECT_EQ(dateOf(u"29/02/2024 9:05"), Date::join(2024, 2, 29, 9, 5));
    EXPECT_EQ(dateOf(u"2024-02-29 13:05:09.250Z"), Date::join(2024, 2, 29, 13, 5, 9));
    EXPECT_TRUE(readDate(u"29/02/2024 9:05")->hasTime);
    EXPECT_FALSE(readDate(u"29/02/2024")->hasTime);
}

TEST(CsvDates, WhatIsNoDate) {
    for (const char16_t* text :
         {u"", u"29/02/2023", u"31/04/2024", u"32/01/2024", u"00/01/2024", u"1/13/2024", u"2024-2-29",
          u"1/2-2024", u"1/2/202", u"1/2", u"2024-02-29T", u"2024-02-29x", u"2024-02-29 25:00", u"hoy"})
        EXPECT_FALSE(readDate(text)) << std::string(text, text + std::char_traits<char16_t>::length(text));
}

TEST(CsvTimes, HoursMinutesAndSeconds) {
    EXPECT_EQ(readTime(u"13:05")->value(), Date::join(1899, 12, 30, 13, 5).value());
    EXPECT_EQ(readTime(u"0:00:59")->value(), Date::join(1899, 12, 30, 0, 0, 59).value());
    EXPECT_FALSE(readTime(u"24:00"));
    EXPECT_FALSE(readTime(u"12:60"));
    EXPECT_FALSE(readTime(u"12"));
}

TEST(CsvBooleans, WordsInAnyCase) {
    for (const char16_t* text : {u"sí", u"SÍ", u"Si", u"VERDADERO", u"true", u"S"})
        EXPECT_EQ(readBoolean(text), true);
    for (const char16_t* text : {u"no", u"No", u"FALSE", u"falso", u"n"})
        EXPECT_EQ(readBoolean(text), false);
    EXPECT_FALSE(readBoolean(u"quizá"));
}

CsvColumns columnsOf(const std::string& text, char16_t separator = u';') {
    return findColumns(splitLeniently(decode(text, Encoding::Utf8), separator, u'"', true, 1000), separator);
}
std::vector<ColumnType> typesOf(const std::string& text, char16_t separator = u';') {
    std::vector<ColumnType> types;
    for (const Column& column : columnsOf(text, separator).columns)
        types.push_back(column.type);
    return types;
}
using Types = std::vector<ColumnType>;

TEST(CsvColumns, TypesAreThoseOfAllValues) {
    EXPECT_EQ(typesOf("a;b;c;d;e;f;g\n"
                      "1;1,5;01/02/2024;sí;x;10:30;2024-01-02 10:30\n"
                      "22;;31/12/2024;no;1;11:00;2024-01-02\n"),
              (Types{ColumnType::Integer, ColumnType::Currency, ColumnType::Date, ColumnType::Boolean,
                     ColumnType::Text, ColumnType::Time, ColumnType::DateTime}));
}

TEST(CsvColumns, CodesWithLeadingZerosAndLongOnesAreText) {
    EXPECT_EQ(typesOf("cp;cuenta\n08001;12345678901234567890\n28001;12345678901234567891\n"),
              (Types{ColumnType::Text, ColumnType::Text}));
}

TEST(CsvColumns, MoreThanFourDecimalsAreADouble) {
    const CsvColumns columns = columnsOf("lat\n40,41678\n-3,7\n");
    EXPECT_EQ(columns.columns[0].type, ColumnType::Number);
    EXPECT_EQ(columns.columns[0].decimals, 5);
    EXPECT_DOUBLE_EQ(columns.value(0, u"40,41678").asDouble(), 40.41678);
}

TEST(CsvColumns, AmbiguousNumbersFollowTheOtherColumns) {
    // "1.234" beside decimal commas counts thousands; beside decimal points it has three decimals.
    EXPECT_EQ(columnsOf("a;b\n1.234;1,5\n2.345;2,5\n").value(0, u"1.234").asLong(), 1234);
    EXPECT_EQ(columnsOf("a;b\n1.234;1.55\n2.345;2.5\n").value(0, u"1.234").asCurrency(),
              Currency::fromScaled(12340));
    EXPECT_EQ(columnsOf("a;b\n1.234;x\n", u';').value(0, u"1.234").asLong(), 1234);
    EXPECT_EQ(columnsOf("a,b\n1.234,x\n", u',').value(0, u"1.234").asCurrency(), Currency::fromScaled(12340));
}

TEST(CsvColumns, AHeaderIsALineOfNames) {
    EXPECT_TRUE(columnsOf("id;nombre\n1;Ana\n").hasHeader);
    EXPECT_TRUE(columnsOf("nombre;ciudad\nAna;Soria\n").hasHeader);
    EXPECT_TRUE(columnsOf("activo;n\nsí;1\n").hasHeader);
    EXPECT_TRUE(columnsOf("nombre\n").hasHeader);
    EXPECT_FALSE(columnsOf("1;Ana\n2;Luis\n").hasHeader);
    EXPECT_FALSE(columnsOf("Ana;Ana\nLuis;Eva\n").hasHeader);
    EXPECT_TRUE(columnsOf("sí;no\nno;sí\n").hasHeader) << "two words that differ name the columns";
    EXPECT_FALSE(columnsOf("12/01/2024;x\n").hasHeader);
}

TEST(CsvColumns, NamelessColumnsAreNumbered) {
    const CsvColumns columns = columnsOf("1;Ana\n2;Luis\n");
    EXPECT_EQ(columns.columns[0].name, u"Columna 1");
    EXPECT_EQ(columns.columns[1].name, u"Columna 2");
    EXPECT_EQ(columnsOf("id;\n1;x\n").columns[1].name, u"Columna 2");
}

TEST(CsvColumns, ValuesHaveTheirColumnsTypeOrAreText) {
    const CsvColumns columns = columnsOf("n;p;f;b\n1;1,50;01/02/2024;sí\n");
    EXPECT_EQ(columns.value(0, u"3000000000").asDouble(), 3e9);
    EXPECT_EQ(columns.value(0, u"-2147483648").asLong(), INT32_MIN);
    EXPECT_EQ(columns.value(1, u"-0,05").asCurrency(), Currency::fromScaled(-500));
    EXPECT_EQ(columns.value(2, u"2/3/2024").asDate(), Date::join(2024, 3, 2));
    EXPECT_TRUE(columns.value(3, u"S").asBoolean());
    for (std::size_t c = 0; c < 4; ++c) {
        EXPECT_TRUE(columns.value(c, u"").isNull());
        EXPECT_TRUE(columns.value(c, u"  ").isNull());
        EXPECT_EQ(columns.value(c, u"¿?").asString(), u"¿?");
    }
}

} // namespace
