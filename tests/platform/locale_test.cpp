#include "platform/locale.h"

#include "platform/errors.h"

#include <algorithm>
#include <string>
#include <vector>

using namespace platform;

namespace {

constexpr LCID spanish = 0x0C0A;
constexpr LCID english = 0x0409;
constexpr LCID swedish = 0x041D;

std::u16string info(LCID locale, LCTYPE type) {
    char16_t text[100];
    const int length = GetLocaleInfoW(locale, type, text, 100);
    return length > 0 ? std::u16string(text, static_cast<std::size_t>(length - 1)) : u"(none)";
}

int compare(std::u16string_view a, std::u16string_view b, DWORD flags = 0, LCID locale = spanish) {
    return CompareStringW(locale, flags, a.data(), static_cast<int>(a.size()), b.data(),
                          static_cast<int>(b.size()));
}

class Locale : public testing::Test {
protected:
    ~Locale() override { overrideUserLocale({}); }
};

TEST_F(Locale, SeparatorsOrderAndPatternsAreTheCountrys) {
    const struct {
        LCID locale;
        const char16_t *language, *decimal, *thousand, *date, *time, *order, *list;
    } cases[] = {{spanish, u"0c0a", u",", u".", u"/", u":", u"1", u";"},
                 {english, u"0409", u".", u",", u"/", u":", u"0", u","},
                 {swedish, u"041d", u",", u"\u00A0", u"-", u":", u"2", u";"}};
    for (const auto& c : cases) {
        EXPECT_EQ(info(c.locale, LOCALE_ILANGUAGE), c.language);
        EXPECT_EQ(info(c.locale, LOCALE_SDECIMAL), c.decimal);
        EXPECT_EQ(info(c.locale, LOCALE_STHOUSAND), c.thousand);
        EXPECT_EQ(info(c.locale, LOCALE_SDATE), c.date);
        EXPECT_EQ(info(c.locale, LOCALE_STIME), c.time);
        EXPECT_EQ(info(c.locale, LOCALE_IDATE), c.order);
        EXPECT_EQ(info(c.locale, LOCALE_SLIST), c.list);
        EXPECT_EQ(info(c.locale, LOCALE_SGROUPING), u"3;0");
        EXPECT_EQ(info(c.locale, LOCALE_SNEGATIVESIGN), u"-");
    }
}

TEST_F(Locale, DatePatternsAreThePlatforms) {
    EXPECT_EQ(info(english, LOCALE_SSHORTDATE), u"M/d/yyyy");
    EXPECT_EQ(info(swedish, LOCALE_SSHORTDATE), u"yyyy-MM-dd");
    EXPECT_EQ(info(spanish, LOCALE_SLONGDATE), u"dddd, d 'de' MMMM 'de' yyyy");
    EXPECT_EQ(info(english, LOCALE_SLONGDATE), u"dddd, MMMM d, yyyy");
    EXPECT_EQ(info(spanish, LOCALE_STIMEFORMAT), u"H:mm:ss");
    EXPECT_EQ(info(english, LOCALE_STIMEFORMAT), u"h:mm:ss tt");
    EXPECT_EQ(info(swedish, LOCALE_STIMEFORMAT), u"HH:mm:ss");
    EXPECT_EQ(info(english, LOCALE_S1159), u"AM");
    EXPECT_EQ(info(english, LOCALE_S2359), u"PM");
}

struct LocaleString {
    LCTYPE type;
    const char16_t *english, *swedish;
};

/// Every type of string but the names, in American English and in a locale of the order year, month, day.
constexpr LocaleString localeStrings[] = {
    {LOCALE_ILANGUAGE, u"0409", u"041d"},
    {LOCALE_SLIST, u",", u";"},
    {LOCALE_SDECIMAL, u".", u","},
    {LOCALE_STHOUSAND, u",", u"\u00A0"},
    {LOCALE_SGROUPING, u"3;0", u"3;0"},
    {LOCALE_IDIGITS, u"2", u"2"},
    {LOCALE_ILZERO, u"1", u"1"},
    {LOCALE_SCURRENCY, u"$", u"kr"},
    {LOCALE_SINTLSYMBOL, u"USD", u"SEK"},
    {LOCALE_SMONDECIMALSEP, u".", u","},
    {LOCALE_SMONTHOUSANDSEP, u",", u"\u00A0"},
    {LOCALE_SMONGROUPING, u"3;0", u"3;0"},
    {LOCALE_ICURRDIGITS, u"2", u"2"},
    {LOCALE_IINTLCURRDIGITS, u"2", u"2"},
    {LOCALE_ICURRENCY, u"0", u"3"},
    {LOCALE_INEGCURR, u"0", u"8"},
    {LOCALE_SDATE, u"/", u"-"},
    {LOCALE_STIME, u":", u":"},
    {LOCALE_SSHORTDATE, u"M/d/yyyy", u"yyyy-MM-dd"},
    {LOCALE_SLONGDATE, u"dddd, MMMM d, yyyy", u"dddd d MMMM yyyy"},
    {LOCALE_IDATE, u"0", u"2"},
    {LOCALE_ITIME, u"0", u"1"},
    {LOCALE_ICENTURY, u"1", u"1"},
    {LOCALE_S1159, u"AM", u"fm"},
    {LOCALE_S2359, u"PM", u"em"},
    {LOCALE_SPOSITIVESIGN, u"", u""},
    {LOCALE_SNEGATIVESIGN, u"-", u"-"},
    {LOCALE_SISO639LANGNAME, u"en", u"sv"},
    {LOCALE_SISO3166CTRYNAME, u"US", u"SE"},
    {LOCALE_SNAME, u"en-US", u"sv-SE"},
    {LOCALE_SSHORTTIME, u"h:mm tt", u"HH:mm"},
    {LOCALE_STIMEFORMAT, u"h:mm:ss tt", u"HH:mm:ss"},
    {LOCALE_SYEARMONTH, u"MMMM yyyy", u"MMMM yyyy"},
    {LOCALE_INEGNUMBER, u"1", u"1"},
    {LOCALE_IFIRSTDAYOFWEEK, u"6", u"0"},
    {LOCALE_IFIRSTWEEKOFYEAR, u"0", u"2"},
};

/// What GetLocaleInfoA gives, or "(none)".
std::string ansiInfo(LCID locale, LCTYPE type) {
    char text[100];
    const int length = GetLocaleInfoA(locale, type, text, sizeof text);
    return length > 0 ? std::string(text, static_cast<std::size_t>(length - 1)) : "(none)";
}

void expectInfo(LCID locale, LCTYPE type, std::u16string_view wanted) {
    EXPECT_EQ(info(locale, type), wanted) << std::hex << locale << " " << type;
    EXPECT_EQ(ansiInfo(locale, type), ansiFromWide(wanted)) << std::hex << locale << " " << type;
}

TEST_F(Locale, EachStringIsTheSystems) {
    for (const LocaleString& each : localeStrings) {
        expectInfo(english, each.type, each.english);
        expectInfo(swedish, each.type, each.swedish);
    }
}

struct NameRow {
    LCID locale;
    LCTYPE first;
    std::vector<const char16_t*> names;
};

TEST_F(Locale, EachNameIsTheSystems) {
    const NameRow rows[] = {
        {english,
         LOCALE_SDAYNAME1,
         {u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday", u"Sunday"}},
        {english, LOCALE_SABBREVDAYNAME1, {u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat", u"Sun"}},
        {english,
         LOCALE_SMONTHNAME1,
         {u"January", u"February", u"March", u"April", u"May", u"June", u"July", u"August", u"September",
          u"October", u"November", u"December"}},
        {english,
         LOCALE_SABBREVMONTHNAME1,
         {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"}},
        {swedish,
         LOCALE_SDAYNAME1,
         {u"m\u00E5ndag", u"tisdag", u"onsdag", u"torsdag", u"fredag", u"l\u00F6rdag", u"s\u00F6ndag"}},
        {swedish,
         LOCALE_SABBREVDAYNAME1,
         {u"m\u00E5n", u"tis", u"ons", u"tors", u"fre", u"l\u00F6r", u"s\u00F6n"}},
        {swedish,
         LOCALE_SMONTHNAME1,
         {u"januari", u"februari", u"mars", u"april", u"maj", u"juni", u"juli", u"augusti", u"september",
          u"oktober", u"november", u"december"}},
        {swedish,
         LOCALE_SABBREVMONTHNAME1,
         {u"jan.", u"feb.", u"mars", u"apr.", u"maj", u"juni", u"juli", u"aug.", u"sep.", u"okt.", u"nov.",
          u"dec."}},
    };
    for (const NameRow& row : rows)
        for (std::size_t i = 0; i < row.names.size(); ++i)
            expectInfo(row.locale, row.first + static_cast<LCTYPE>(i), row.names[i]);
}

TEST_F(Locale, TheSpanishShortDateHasTwoDigitsForDayAndMonth) {
    ASSERT_TRUE(overrideUserLocale("es-ES"));
    EXPECT_EQ(info(GetUserDefaultLCID(), LOCALE_SSHORTDATE), u"dd/MM/yyyy");
}

TEST_F(Locale, MoneyIsWrittenAsInTheCountry) {
    EXPECT_EQ(info(spanish, LOCALE_SCURRENCY), u"€");
    EXPECT_EQ(info(spanish, LOCALE_ICURRENCY), u"3");
    EXPECT_EQ(info(spanish, LOCALE_INEGCURR), u"8");
    EXPECT_EQ(info(english, LOCALE_SCURRENCY), u"$");
    EXPECT_EQ(info(english, LOCALE_ICURRENCY), u"0");
    EXPECT_EQ(info(english, LOCALE_INEGCURR), u"0");
    EXPECT_EQ(info(swedish, LOCALE_SCURRENCY), u"kr");
    EXPECT_EQ(info(swedish, LOCALE_ICURRDIGITS), u"2");
}

TEST_F(Locale, NamesBeginOnMondayAndInJanuary) {
    EXPECT_EQ(info(spanish, LOCALE_SDAYNAME1), u"lunes");
    EXPECT_EQ(info(spanish, LOCALE_SDAYNAME1 + 2), u"miércoles");
    EXPECT_EQ(info(spanish, LOCALE_SDAYNAME1 + 6), u"domingo");
    EXPECT_EQ(info(spanish, LOCALE_SABBREVDAYNAME1 + 5), u"sáb");
    EXPECT_EQ(info(spanish, LOCALE_SMONTHNAME1), u"enero");
    EXPECT_EQ(info(spanish, LOCALE_SMONTHNAME1 + 11), u"diciembre");
    EXPECT_EQ(info(spanish, LOCALE_SABBREVMONTHNAME1 + 8), u"sept");
    EXPECT_EQ(info(english, LOCALE_SMONTHNAME1 + 1), u"February");
    EXPECT_EQ(info(swedish, LOCALE_SDAYNAME1 + 5), u"lördag");
    EXPECT_EQ(info(spanish, LOCALE_IFIRSTDAYOFWEEK), u"0");
    EXPECT_EQ(info(english, LOCALE_IFIRSTDAYOFWEEK), u"6");
}

TEST_F(Locale, TheBufferTakesTheTextWithItsEndOrNothing) {
    char text[4] = "abc";
    EXPECT_EQ(GetLocaleInfoA(spanish, LOCALE_SCURRENCY, text, 4), 2);
    EXPECT_EQ(std::string(text), "\x80");
    EXPECT_EQ(GetLocaleInfoA(spanish, LOCALE_SDAYNAME1, nullptr, 0), 6);
    EXPECT_EQ(GetLocaleInfoA(spanish, LOCALE_SDAYNAME1, text, 4), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    char16_t wide[6];
    EXPECT_EQ(GetLocaleInfoW(spanish, LOCALE_SDAYNAME1, wide, 6), 6);
    EXPECT_EQ(GetLocaleInfoW(spanish, LOCALE_SDAYNAME1, wide, 5), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST_F(Locale, AnUnknownTypeIsRefused) {
    char16_t text[10];
    EXPECT_EQ(GetLocaleInfoW(spanish, 0x0FFF, text, 10), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_FLAGS);
}

TEST_F(Locale, TheUsersLocaleChangesAndComesBack) {
    const LCID own = GetUserDefaultLCID();
    for (const auto& [name, id] : {std::pair{"sv-SE", swedish}, {"en-US", english}, {"es-ES", spanish}}) {
        EXPECT_TRUE(overrideUserLocale(name));
        EXPECT_EQ(GetUserDefaultLCID(), id);
        EXPECT_EQ(info(GetUserDefaultLCID(), LOCALE_SDECIMAL), info(id, LOCALE_SDECIMAL));
    }
    EXPECT_FALSE(overrideUserLocale("xx-XX"));
    EXPECT_EQ(GetUserDefaultLCID(), spanish) << "an unknown name changes nothing";
    EXPECT_TRUE(overrideUserLocale(""));
    EXPECT_EQ(GetUserDefaultLCID(), own);
}

TEST_F(Locale, OtherCountriesComeFromTheSystemsData) {
    constexpr LCID german = 0x0407;
    ASSERT_TRUE(overrideUserLocale("de-DE"));
    EXPECT_EQ(GetUserDefaultLCID(), german);
    EXPECT_EQ(info(german, LOCALE_SDECIMAL), u",");
    EXPECT_EQ(info(german, LOCALE_STHOUSAND), u".");
    EXPECT_EQ(info(german, LOCALE_SDATE), u".");
    EXPECT_EQ(info(german, LOCALE_IDATE), u"1");
    EXPECT_EQ(info(german, LOCALE_STIMEFORMAT), u"HH:mm:ss");
    EXPECT_EQ(info(german, LOCALE_SDAYNAME1), u"Montag");
    EXPECT_EQ(info(german, LOCALE_SMONTHNAME1 + 2), u"März");
    EXPECT_EQ(info(german, LOCALE_SCURRENCY), u"€");
    EXPECT_EQ(info(german, LOCALE_ICURRENCY), u"3");
    EXPECT_EQ(info(german, LOCALE_ILANGUAGE), u"0407");
    EXPECT_EQ(info(german, LOCALE_IFIRSTDAYOFWEEK), u"0");
}

TEST_F(Locale, AnsiIsTheWesternCodePage) {
    EXPECT_EQ(GetACP(), 1252u);
    EXPECT_EQ(ansiFromWide(u"El niño pagó 5 €"), "El ni\xF1o pag\xF3 5 \x80");
    EXPECT_EQ(wideFromAnsi("\x80\x8E\xFF\xA0"), u"€Ž\u00FF\u00A0");
    std::string all;
    for (int c = 0; c < 256; ++c)
        all += static_cast<char>(c);
    EXPECT_EQ(ansiFromWide(wideFromAnsi(all)), all);
}

TEST_F(Locale, WhatTheCodePageLacksBecomesSimilarOrAQuestionMark) {
    EXPECT_EQ(ansiFromWide(u"Łódź"), "L\xF3"
                                     "dz");
    EXPECT_EQ(ansiFromWide(u"\uFF21\u2010\u2215"), "A-/");
    EXPECT_EQ(ansiFromWide(u"日本"), "??");
    EXPECT_EQ(ansiFromWide(u"\U0001F600"), "??");
}

TEST_F(Locale, Utf8GoesThereAndBack) {
    const std::u16string text = u"a\u00F1\u20AC\U0001F600\uFFFF";
    EXPECT_EQ(utf8FromWide(text), "a\xC3\xB1\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBF");
    EXPECT_EQ(wideFromUtf8(utf8FromWide(text)), text);
}

TEST_F(Locale, MalformedTextBecomesReplacements) {
    EXPECT_EQ(utf8FromWide(std::u16string{u'a', 0xD800, u'b', 0xDC00}), "a\xEF\xBF\xBD"
                                                                        "b\xEF\xBF\xBD");
    const struct {
        const char* bytes;
        const char16_t* text;
    } cases[] = {{"\x80", u"\uFFFD"},
                 {"\xC3", u"\uFFFD"},
                 {"\xC3"
                  "a",
                  u"\uFFFD"
                  u"a"},
                 {"\xC0\xAF", u"\uFFFD\uFFFD"},
                 {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},
                 {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
                 {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                 {"\xE2\x82", u"\uFFFD"}};
    for (const auto& c : cases)
        EXPECT_EQ(wideFromUtf8(c.bytes), c.text);
}

TEST_F(Locale, ComparisonFollowsTheDictionary) {
    const std::u16string_view ascending[] = {u"",  u"1", u"2",  u"10a", u"a", u"á", u"az",
                                             u"b", u"n", u"nz", u"ñ",   u"o", u"z"};
    EXPECT_EQ(compare(u"10", u"2"), CSTR_LESS_THAN);
    for (std::size_t i = 0; i + 1 < std::size(ascending); ++i) {
        if (ascending[i] == u"2") continue;
        EXPECT_EQ(compare(ascending[i], ascending[i + 1]), CSTR_LESS_THAN) << i;
        EXPECT_EQ(compare(ascending[i + 1], ascending[i]), CSTR_GREATER_THAN) << i;
    }
    EXPECT_EQ(compare(u"camión", u"camión"), CSTR_EQUAL);
    EXPECT_EQ(compare(u"a", u"A"), CSTR_LESS_THAN);
    EXPECT_EQ(compare(u"A", u"b"), CSTR_LESS_THAN);
    EXPECT_EQ(compare(u"ab", u"a\u0301"
                             u"a"),
              CSTR_GREATER_THAN);
}

TEST_F(Locale, CaseMayBeLeftOutOfTheComparison) {
    EXPECT_EQ(compare(u"CAMIÓN", u"camión", NORM_IGNORECASE), CSTR_EQUAL);
    EXPECT_EQ(compare(u"CAMIÓN", u"camion", NORM_IGNORECASE), CSTR_GREATER_THAN);
    EXPECT_EQ(compare(u"Ñ", u"n", NORM_IGNORECASE), CSTR_GREATER_THAN);
}

TEST_F(Locale, HyphensCountOnlyBetweenTheSameWords) {
    EXPECT_EQ(compare(u"co-op", u"coop"), CSTR_GREATER_THAN);
    EXPECT_EQ(compare(u"co-op", u"cooq"), CSTR_LESS_THAN);
    EXPECT_EQ(compare(u"co-oq", u"coop"), CSTR_GREATER_THAN);
}

TEST_F(Locale, SwedishPutsItsLettersAfterZ) {
    EXPECT_EQ(compare(u"ö", u"z", 0, swedish), CSTR_GREATER_THAN);
    EXPECT_EQ(compare(u"ö", u"z", 0, spanish), CSTR_LESS_THAN);
}

TEST_F(Locale, LengthsMayBeLeftToTheEndMark) {
    EXPECT_EQ(CompareStringW(spanish, 0, u"abc", -1, u"abd", -1), CSTR_LESS_THAN);
    EXPECT_EQ(CompareStringW(spanish, 0, u"abc", 2, u"abd", 2), CSTR_EQUAL);
}

TEST_F(Locale, CaseMapsOneToOne) {
    EXPECT_EQ(upperCase(u"El niño pagó 5 € ÿ"), u"EL NIÑO PAGÓ 5 € Ÿ");
    EXPECT_EQ(lowerCase(u"ÁRBOL ŒUVRE ΑΩ"), u"árbol œuvre αω");
    EXPECT_EQ(upperCase(u"straße µ ı ς"), u"STRAßE µ ı ς") << "what has no way back stays";
    EXPECT_EQ(lowerCase(u"İ"), u"İ");
}

} // namespace
