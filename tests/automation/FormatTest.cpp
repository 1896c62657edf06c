#include "automation/Format.h"

#include "automation/Conversions.h"
#include "automation/Variant.h"
#include "support/ErrorOf.h"
#include "support/LocaleScope.h"
#include "support/ShortDates.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace automation;
using tests::errorOf;

/// Systems differ in the kind of blank inside "p. m.".
std::string withPlainBlanks(const String& text) {
    std::u16string result = text.string();
    for (char16_t& unit : result)
        if (unit == 0x00A0 || unit == 0x202F) unit = u' ';
    return String(result).utf8();
}

void checkFormat(std::string_view locale, const Variant& value, const char16_t* pattern,
                 std::u16string_view wanted) {
    const tests::LocaleScope scope(locale);
    EXPECT_EQ(withPlainBlanks(Format(value, pattern)), withPlainBlanks(wanted))
        << locale << " " << CStr(value).utf8() << " by " << String(pattern).utf8();
}

struct NumberCase {
    double value;
    const char16_t* pattern;
    const char16_t* english;
    const char16_t* spanish;
};

constexpr NumberCase numberCases[] = {
    {0, u"0", u"0", u"0"},
    {0.5, u"0", u"1", u"1"},
    {-0.5, u"0", u"-1", u"-1"},
    {2.5, u"0", u"3", u"3"},
    {-0.3, u"0", u"-0", u"-0"},
    {1234567.891, u"0", u"1234568", u"1234568"},
    {0, u"#", u"", u""},
    {0, u"#.##", u".", u","},
    {1, u"#.##", u"1.", u"1,"},
    {0.005, u"#.##", u".01", u",01"},
    {0, u"0.00", u"0.00", u"0,00"},
    {1.005, u"0.00", u"1.01", u"1,01"},
    {2.675, u"0.00", u"2.68", u"2,68"},
    {-2.675, u"0.00", u"-2.68", u"-2,68"},
    {999.995, u"0.00", u"1000.00", u"1000,00"},
    {999.995, u"#,##0.00", u"1,000.00", u"1.000,00"},
    {1234567.891, u"#,##0.00", u"1,234,567.89", u"1.234.567,89"},
    {1234567.891, u"#,###,##0.00", u"1,234,567.89", u"1.234.567,89"},
    {0, u"#,###,##0.00", u"0.00", u"0,00"},
    {12, u"0,000", u"0,012", u"0.012"},
    {1e15, u"#,##0", u"1,000,000,000,000,000", u"1.000.000.000.000.000"},
    {123456789012345678.0, u"0", u"123456789012346000", u"123456789012346000"},
    {0.1, u"0.000000000000000000", u"0.100000000000000000", u"0,100000000000000000"},
    {5, u"00000", u"00005", u"00005"},
    {5, u"#0#", u"05", u"05"},
    {1.5, u"0.0#", u"1.5", u"1,5"},
    {1.25, u"0.0#", u"1.25", u"1,25"},
    {0.125, u"0%", u"13%", u"13%"},
    {0.125, u"0.00%", u"12.50%", u"12,50%"},
    {-0.125, u"0.0%", u"-12.5%", u"-12,5%"},
    {1234567, u"0,", u"1235", u"1235"},
    {1234567, u"0,,", u"1", u"1"},
    {1234567, u"#,##0,", u"1,235", u"1.235"},
    {1234567, u"0.0,", u"1,234,567.0", u"1.234.567,0"},
    {1234567, u"0,.0", u"1234.6", u"1234,6"},
    {1234.5, u".0", u"1234.5", u"1234,5"},
    {1.5, u"0.0.0", u"1.5.0", u"1,5.0"},
    {12345, u"0.00E+00", u"1.23E+04", u"1,23E+04"},
    {0.00012345, u"0.00E+00", u"1.23E-04", u"1,23E-04"},
    {12345, u"0.00E-00", u"1.23E04", u"1,23E04"},
    {12345, u"0.00e+0", u"1.23e+4", u"1,23e+4"},
    {9.999, u"0.00E+00", u"1.00E+01", u"1,00E+01"},
    {0, u"0.00E+00", u"0.00E+00", u"0,00E+00"},
    {-1.5e300, u"0.0E+000", u"-1.5E+300", u"-1,5E+300"},
    {12345, u"##0.0E+0", u"123.5E+2", u"123,5E+2"},
    {5, u"0E0", u"0E5", u"0E5"},
    {1234567890, u"(000) 000-0000", u"(123) 456-7890", u"(123) 456-7890"},
    {-5, u"$0.00", u"-$5.00", u"-$5,00"},
    {5, u"\\x0", u"x5", u"x5"},
    {5, u"0 \"kg 0\"", u"5 kg 0", u"5 kg 0"},
    {5, u"\"open 0", u"open 0", u"open 0"},
    {5, u"0\\", u"5", u"5"},
    {5, u"x", u"x", u"x"},
    {-5, u"0.00;(0.00)", u"(5.00)", u"(5,00)"},
    {5, u"0.00;(0.00)", u"5.00", u"5,00"},
    {0, u"0.00;(0.00)", u"0.00", u"0,00"},
    {0, u"0;-0;\"zero\"", u"zero", u"zero"},
    {-5, u"0;;\"zero\"", u"-5", u"-5"},
    {0, u"0;;", u"0", u"0"},
    {5, u"0\";\"0", u"0;5", u"0;5"},
    {5, u"0;0;0;0;0;0", u"5", u"5"},
    {5, u";", u"", u""},
    {5, u"0:0", u"0:5", u"0:5"},
    {5, u"0-0", u"0-5", u"0-5"},
};

TEST(Format, WritesNumbersByPattern) {
    for (const NumberCase& test : numberCases) {
        checkFormat("en-US", test.value, test.pattern, test.english);
        checkFormat("es-ES", test.value, test.pattern, test.spanish);
    }
}

constexpr NumberCase namedNumberCases[] = {
    {1234.565, u"General Number", u"1234.565", u"1234,565"},
    {1e15, u"general number", u"1E+15", u"1E+15"},
    {1234.565, u"Currency", u"$1,234.57", u"1.234,57 €"},
    {-1234.565, u"Currency", u"($1,234.57)", u"-1.234,57 €"},
    {1234.565, u"Fixed", u"1234.57", u"1234,57"},
    {0.5, u"FIXED", u"0.50", u"0,50"},
    {1234.565, u"Standard", u"1,234.57", u"1.234,57"},
    {0.12345, u"Percent", u"12.35%", u"12,35%"},
    {1234.565, u"Scientific", u"1.23E+03", u"1,23E+03"},
    {0, u"Yes/No", u"No", u"No"},
    {-0.1, u"Yes/No", u"Yes", u"Sí"},
    {0, u"True/False", u"False", u"Falso"},
    {2, u"True/False", u"True", u"Verdadero"},
    {0, u"On/Off", u"Off", u"Desactivado"},
    {1, u"on/off", u"On", u"Activado"},
};

TEST(Format, KnowsTheNumericFormatsByName) {
    for (const NumberCase& test : namedNumberCases) {
        checkFormat("en-US", test.value, test.pattern, test.english);
        checkFormat("es-ES", test.value, test.pattern, test.spanish);
    }
}

TEST(Format, KeepsTheDigitsOfEachNumericType) {
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(Format(Currency::fromScaled(INT64_MAX), u"#,##0.0000"), u"922,337,203,685,477.5807");
    EXPECT_EQ(Format(CDec(u"1.2345678901234567890123"), u"0.0000000000000000000000"),
              u"1.2345678901234567890123");
    EXPECT_EQ(Format(0.1f, u"0.0000000000"), u"0.1000000015");
    EXPECT_EQ(Format(true, u"0"), u"-1");
    EXPECT_EQ(Format(true, u"Fixed"), u"-1.00");
    EXPECT_EQ(Format(std::int32_t(INT32_MIN), u"0"), u"-2147483648");
    EXPECT_EQ(Format(Date(2.5), u"0.0"), u"2.5");
}

struct DateCase {
    double value;
    const char16_t* pattern;
    const char16_t* english;
    const char16_t* spanish;
    const char16_t* swedish;
};

// 37653.4375 is 1 February 2003, 10:30, a Saturday; 0.75 the evening of day 0.
constexpr DateCase dateCases[] = {
    {37653.4375, u"d/m/yy", u"1/2/03", u"1/2/03", u"1-2-03"},
    {37653.4375, u"dd/mm/yyyy", u"01/02/2003", u"01/02/2003", u"01-02-2003"},
    {37653.4375, u"dd\\/mm", u"01/02", u"01/02", u"01/02"},
    {37653.4375, u"DD-MM-YYYY", u"01-02-2003", u"01-02-2003", u"01-02-2003"},
    {37653.4375, u"ddd d mmm", u"Sat 1 Feb", u"sáb 1 feb", nullptr},
    {37653.4375, u"dddd d mmmm yyyy", u"Saturday 1 February 2003", u"sábado 1 febrero 2003",
     u"lördag 1 februari 2003"},
    {37653.4375, u"d \"de\" mmmm", u"1 de February", u"1 de febrero", u"1 de februari"},
    {37653.4375, u"ttttt", u"10:30:00 AM", u"10:30:00", u"10:30:00"},
    {37653, u"ttttt", u"12:00:00 AM", u"0:00:00", u"00:00:00"},
    {37653.4375, u"h:n:s", u"10:30:0", u"10:30:0", u"10:30:0"},
    {37653.4375, u"hh:mm:ss", u"10:30:00", u"10:30:00", u"10:30:00"},
    {37653.4375, u"h m", u"10 30", u"10 30", u"10 30"},
    {37653.4375, u"m h", u"2 10", u"2 10", u"2 10"},
    {37653.4375, u"h:mm:ss m", u"10:30:00 2", u"10:30:00 2", u"10:30:00 2"},
    {37653.4375, u"hd m", u"101 2", u"101 2", u"101 2"},
    {0.75, u"h AM/PM", u"6 PM", u"6 PM", u"6 PM"},
    {0.75, u"hh:nn am/pm", u"06:00 pm", u"06:00 pm", u"06:00 pm"},
    {0.75, u"h a/p", u"6 p", u"6 p", u"6 p"},
    {0.75, u"h A/P", u"6 P", u"6 P", u"6 P"},
    {0.75, u"h AMPM", u"6 PM", u"6 p. m.", u"6 em"},
    {0.25, u"AM/PM h", u"AM 6", u"AM 6", u"AM 6"},
    {0, u"h AM/PM", u"12 AM", u"12 AM", u"12 AM"},
    {0.5, u"h AM/PM", u"12 PM", u"12 PM", u"12 PM"},
    {37653, u"q", u"1", u"1", u"1"},
    {37653, u"y", u"32", u"32", u"32"},
    {37653, u"yyy", u"0332", u"0332", u"0332"},
    {37653, u"w ww", u"7 5", u"7 5", u"7 5"},
    {-1.25, u"dd/mm/yyyy hh:nn", u"29/12/1899 06:00", u"29/12/1899 06:00", u"29-12-1899 06:00"},
    {37653, u"Long Date", u"Saturday, February 1, 2003", u"sábado, 1 de febrero de 2003",
     u"lördag 1 februari 2003"},
    {37653, u"Medium Date", u"01-Feb-03", u"01-feb-03", nullptr},
    {0.75, u"Long Time", u"6:00:00 PM", u"18:00:00", u"18:00:00"},
    {0.75, u"Medium Time", u"06:00 PM", u"06:00 p. m.", u"06:00 em"},
    {0.75, u"short time", u"18:00", u"18:00", u"18:00"},
    {37653, u"x", u"x", u"x", u"x"},
};

// What the locale's own pattern of short dates writes.
constexpr DateCase shortDateCases[] = {
    {37653.4375, u"ddddd", u"2/1/2003", u"01/02/2003", u"2003-02-01"},
    {37653.4375, u"c", u"2/1/2003 10:30:00 AM", u"01/02/2003 10:30:00", u"2003-02-01 10:30:00"},
    {37653, u"c", u"2/1/2003", u"01/02/2003", u"2003-02-01"},
    {0.75, u"c", u"6:00:00 PM", u"18:00:00", u"18:00:00"},
    {37653, u"Short Date", u"2/1/2003", u"01/02/2003", u"2003-02-01"},
    {37653.4375, u"General Date", u"2/1/2003 10:30:00 AM", u"01/02/2003 10:30:00", u"2003-02-01 10:30:00"},
};

/// A Spanish short date as the system at hand writes it.
std::u16string spanishShortDate(const char16_t* text) {
    const tests::LocaleScope scope("es-ES");
    return tests::asSystemWrites(text);
}

TEST(Format, WritesDatesByPatternAndByName) {
    for (const DateCase& test : dateCases) {
        checkFormat("en-US", Date(test.value), test.pattern, test.english);
        checkFormat("es-ES", Date(test.value), test.pattern, test.spanish);
        if (test.swedish) checkFormat("sv-SE", Date(test.value), test.pattern, test.swedish);
    }
}

TEST(Format, WritesShortDatesAsTheLocaleDoes) {
    for (const DateCase& test : shortDateCases) {
        checkFormat("en-US", Date(test.value), test.pattern, test.english);
        checkFormat("es-ES", Date(test.value), test.pattern, spanishShortDate(test.spanish));
        checkFormat("sv-SE", Date(test.value), test.pattern, test.swedish);
    }
}

TEST(Format, NumbersWeeksAsTheCallerWants) {
    const Date sunday(36527); // 2 January 2000
    EXPECT_EQ(Format(sunday, u"w", 2), u"7");
    EXPECT_EQ(Format(sunday, u"ww"), u"2");
    EXPECT_EQ(Format(sunday, u"ww", 2, 2), u"52");
    EXPECT_EQ(errorOf([&] { Format(sunday, u"ww", 8, 1); }), 5);
    EXPECT_EQ(errorOf([&] { Format(sunday, u"ww", 1, 4); }), 5);
}

struct TextCase {
    const char16_t* text;
    const char16_t* pattern;
    const char16_t* result;
};

constexpr TextCase textCases[] = {
    {u"abc", u"@", u"abc"},
    {u"abc", u"@@@@@@", u"   abc"},
    {u"abc", u"&&&&&&", u"abc"},
    {u"abc", u"!@@@@@@", u"abc   "},
    {u"abc", u"!&&&&&&|", u"abc|"},
    {u"ABC", u"<", u"abc"},
    {u"ÁrbOL", u">", u"ÁRBOL"},
    {u"abc", u">@@", u"ABC"},
    {u"abc", u"x> ", u"x ABC"},
    {u"12345", u"@-@-@", u"123-4-5"},
    {u"12345", u"!@-@-@", u"1-2-345"},
    {u"123456789", u"@@@-@@-@@@@", u"123-45-6789"},
    {u"12345678Z", u"@@.@@@.@@@-@", u"12.345.678-Z"},
    {u"ab", u"(@@@) @", u"(  a) b"},
    {u"", u"@@", u"  "},
    {u"", u"&", u""},
    {u"", u"@;none", u"none"},
    {u"x", u"@;none", u"x"},
    {u"abc", u"\"<\"@", u"<abc"},
    {u"abc", u"\\@@", u"@abc"},
};

TEST(Format, WritesTextsByPattern) {
    for (const TextCase& test : textCases)
        checkFormat("es-ES", test.text, test.pattern, test.result);
    const tests::LocaleScope scope("es-ES");
    EXPECT_EQ(Format(Variant::null(), u"@;none"), u"none");
    EXPECT_EQ(Format(1.5, u"@@@@@"), u"  1,5");
}

constexpr TextCase convertedCases[] = {
    {u"1234,5", u"#,##0.00", u"1.234,50"},
    {u"1234,5", u"Standard", u"1.234,50"},
    {u"abc", u"#,##0.00", u"abc"},
    {u"abc", u"dd/mm/yyyy", u"abc"},
    {u"abc", u"Fixed", u"abc"},
    {u"1/2/2003", u"yyyy-mm-dd", u"2003-02-01"},
    {u"36526", u"dd/mm/yyyy", u"01/01/2000"},
    {u"10:30", u"hh.nn", u"10.30"},
    {u"1/2/2003", u"0.00", u"1/2/2003"},
    {u"", u"0.00", u""},
    {u"", u"dd/mm/yyyy", u""},
    {u"1,50", u"General Number", u"1,5"},
    {u"abc", u"", u"abc"},
};

TEST(Format, ReadsTextsThatThePatternWantsAsNumbersOrDates) {
    for (const TextCase& test : convertedCases)
        checkFormat("es-ES", test.text, test.pattern, test.result);
}

TEST(Format, NumbersBeyondTheDatesStayNumbers) {
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(Format(1e15, u"dd/mm/yyyy"), u"1E+15");
    EXPECT_EQ(Format(-1234567.5, u"Short Date"), u"-1234567.5");
    EXPECT_EQ(Format(36526, u"Short Date"), u"1/1/2000");
}

TEST(Format, NullAndEmptyAreEmptyTextsUnlessASectionSaysMore) {
    for (const char16_t* pattern : {u"", u"0.00", u"dd/mm/yyyy", u"Fixed", u"Short Date", u"Yes/No", u"x"}) {
        EXPECT_EQ(Format(Variant::null(), pattern), u"");
        EXPECT_EQ(Format(Variant(), pattern), u"");
    }
    EXPECT_EQ(Format(Variant::null(), u"0;-0;0;\"nothing\""), u"nothing");
    EXPECT_EQ(errorOf([] { Format(Variant::missing(), u"0"); }), 13);
    EXPECT_EQ(errorOf([] { Format(Array::of({1}), u"0"); }), 13);
}

TEST(Format, WithoutAPatternIsTheTextOfTheValue) {
    const tests::LocaleScope scope("es-ES");
    EXPECT_EQ(Format(1.5), u"1,5");
    EXPECT_EQ(Format(true), u"Verdadero");
    EXPECT_EQ(Format(Date(36526)), tests::asSystemWrites(u"01/01/2000"));
}

TEST(Format, LongPatternsCostNoMoreThanTheirLength) {
    const std::u16string zeros(100000, u'0');
    EXPECT_EQ(Format(5, zeros).length(), zeros.size());
    EXPECT_EQ(Format(5, u"0." + zeros).length(), zeros.size() + 2);
    EXPECT_EQ(Format(5, u"0E+" + zeros).length(), zeros.size() + 3);
    EXPECT_EQ(Format(5, std::u16string(100000, u';')).length(), 0u);
    EXPECT_EQ(Format(u"a", std::u16string(100000, u'@')).length(), 100000u);
    EXPECT_EQ(Format(1e308, u"0").length(), 309u);
}

TEST(Format, FormatNumberFollowsTheLocaleAndTheCaller) {
    {
        const tests::LocaleScope scope("en-US");
        EXPECT_EQ(FormatNumber(1234.565), u"1,234.57");
        EXPECT_EQ(FormatNumber(-1234.565), u"-1,234.57");
        EXPECT_EQ(FormatNumber(0.5, 0), u"1");
        EXPECT_EQ(FormatNumber(0.5, 3, Tristate::No), u".500");
        EXPECT_EQ(FormatNumber(-0.5, 3, Tristate::No, Tristate::Yes), u"(.500)");
        EXPECT_EQ(FormatNumber(1234.5, 1, Tristate::Yes, Tristate::No, Tristate::No), u"1234.5");
        EXPECT_EQ(FormatNumber(-0.001), u"-0.00");
        EXPECT_EQ(FormatNumber(1e300, 0).length(), 301u + 100);
    }
    const tests::LocaleScope scope("es-ES");
    EXPECT_EQ(FormatNumber(1234.565), u"1.234,57");
    EXPECT_EQ(FormatNumber(u"1234,5", 1), u"1.234,5");
    EXPECT_EQ(errorOf([] { FormatNumber(1, -2); }), 5);
    EXPECT_EQ(errorOf([] { FormatNumber(1, 256); }), 5);
    EXPECT_EQ(errorOf([] { FormatNumber(1, 2, 5); }), 5);
    EXPECT_EQ(errorOf([] { FormatNumber(u"x"); }), 13);
    EXPECT_EQ(errorOf([] { FormatNumber(Variant::null()); }), 94);
}

TEST(Format, FormatCurrencyTakesTheLocalesForms) {
    {
        const tests::LocaleScope scope("en-US");
        EXPECT_EQ(FormatCurrency(1234.565), u"$1,234.57");
        EXPECT_EQ(FormatCurrency(-1234.565), u"($1,234.57)");
        EXPECT_EQ(FormatCurrency(-1234.565, 1, Tristate::Yes, Tristate::No), u"-$1,234.6");
    }
    const tests::LocaleScope scope("es-ES");
    EXPECT_EQ(FormatCurrency(1234.565), u"1.234,57 €");
    EXPECT_EQ(FormatCurrency(-1234.565), u"-1.234,57 €");
    EXPECT_EQ(FormatCurrency(-1234.565, 2, Tristate::Yes, Tristate::Yes), u"(1.234,57 €)");
}

TEST(Format, FormatPercentMultipliesByAHundred) {
    const tests::LocaleScope scope("en-US");
    EXPECT_EQ(FormatPercent(0.12345), u"12.35%");
    EXPECT_EQ(FormatPercent(-12.5, 0), u"-1,250%");
    EXPECT_EQ(FormatPercent(0), u"0.00%");
}

TEST(Format, FormatDateTimeHasFiveForms) {
    const tests::LocaleScope scope("es-ES");
    const Date date(37653.4375);
    EXPECT_EQ(FormatDateTime(date), tests::asSystemWrites(u"01/02/2003 10:30:00"));
    EXPECT_EQ(FormatDateTime(date, NamedDateFormat::LongDate), u"sábado, 1 de febrero de 2003");
    EXPECT_EQ(FormatDateTime(date, NamedDateFormat::ShortDate), tests::asSystemWrites(u"01/02/2003"));
    EXPECT_EQ(FormatDateTime(date, NamedDateFormat::LongTime), u"10:30:00");
    EXPECT_EQ(FormatDateTime(date, NamedDateFormat::ShortTime), u"10:30");
    EXPECT_EQ(errorOf([&] { FormatDateTime(date, 5); }), 5);
    EXPECT_EQ(errorOf([] { FormatDateTime(u"x"); }), 13);
}

} // namespace
