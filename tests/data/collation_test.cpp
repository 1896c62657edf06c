#include "data/collation.h"

#include "automation/Strings.h"
#include "platform/locale.h"

#include <algorithm>
#include <random>

using automation::String;
using tesela::TS_Compara;

namespace {

constexpr platform::LCID spanish = 0x0C0A;

std::string ansi(std::u16string_view text) {
    return String(text).ansi();
}

int compare(std::u16string_view a, std::u16string_view b) {
    return TS_Compara(String(a), String(b));
}

std::string keyOf(std::string_view text) {
    std::string key;
    tesela::appendSortKey(text, key);
    return key;
}

int signOf(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

int compareKeys(std::string_view a, std::string_view b) {
    return signOf(keyOf(a).compare(keyOf(b)));
}

/// The letters of the code page on whose places the systems agree.
std::u16string agreedLetters() {
    std::u16string letters;
    for (char16_t c = u'A'; c <= u'Z'; ++c)
        letters += {c, static_cast<char16_t>(c + 0x20)};
    for (char16_t c = 0xC0; c <= 0xFF; ++c) {
        if (std::u16string_view(u"×÷ÞþÅå").find(c) == std::u16string_view::npos) letters += c;
    }
    return letters + u"ŠšŽžŒœŸ";
}

int systemCompare(std::u16string_view a, std::u16string_view b) {
    const int order =
        platform::CompareStringW(spanish, platform::SORT_STRINGSORT, a.data(), static_cast<int>(a.size()),
                                 b.data(), static_cast<int>(b.size()));
    return order - platform::CSTR_EQUAL;
}

std::string randomText(std::mt19937& random, const std::string& characters, std::size_t longest) {
    std::string text(random() % (longest + 1), ' ');
    for (char& each : text)
        each = characters[random() % characters.size()];
    return text;
}

std::string allBytes() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

} // namespace

TEST(Collation, WordsStandAsInASpanishDictionary) {
    const std::u16string_view words[] = {
        u"",        u" ",     u"¡hola!",  u"¿qué?",  u"10",     u"2",      u"a",        u"á",
        u"abeja",   u"Abeja", u"ábaco x", u"camion", u"camión", u"Camión", u"camiones", u"canal",
        u"canas",   u"caña",  u"Caña",    u"cañada", u"capa",   u"chico",  u"cielo",    u"llama",
        u"llámame", u"luz",   u"nube",    u"ñandú",  u"Ñandú",  u"ñu",     u"oasis",    u"pingüino",
        u"pino",    u"rey",   u"señal",   u"senda",  u"zapato", u"Zúñiga",
    };
    std::vector<std::u16string_view> sorted(std::begin(words), std::end(words));
    std::sort(sorted.begin(), sorted.end(), [](auto a, auto b) { return compare(a, b) < 0; });
    const std::vector<std::u16string_view> dictionary = {
        u"",        u" ",     u"¡hola!", u"¿qué?",  u"10",     u"2",      u"a",        u"á",
        u"ábaco x", u"abeja", u"Abeja",  u"camion", u"camión", u"Camión", u"camiones", u"canal",
        u"canas",   u"caña",  u"Caña",   u"cañada", u"capa",   u"chico",  u"cielo",    u"llama",
        u"llámame", u"luz",   u"nube",   u"ñandú",  u"Ñandú",  u"ñu",     u"oasis",    u"pingüino",
        u"pino",    u"rey",   u"senda",  u"señal",  u"zapato", u"Zúñiga",
    };
    EXPECT_EQ(dictionary, sorted);
}

TEST(Collation, LettersDecideBeforeAccentsAndAccentsBeforeCase) {
    EXPECT_EQ(-1, compare(u"Ábaco", u"abad")) << "the fourth letter";
    EXPECT_EQ(1, compare(u"té", u"TE")) << "an accent against capitals";
    EXPECT_EQ(-1, compare(u"te", u"TE"));
    EXPECT_EQ(-1, compare(u"Té", u"TÉ"));
    EXPECT_EQ(1, compare(u"cáscaron", u"cascarón")) << "the first accent";
    EXPECT_EQ(-1, compare(u"aB", u"Ab")) << "the first capital";
    EXPECT_EQ(0, compare(u"Peñón", u"Peñón"));
    EXPECT_EQ(-1, compare(u"ny", u"ñ"));
    EXPECT_EQ(-1, compare(u"ñ", u"o"));
    EXPECT_EQ(-1, compare(u"Ñ", u"ña"));
}

TEST(Collation, AShorterTextStandsBeforeItsContinuation) {
    EXPECT_EQ(-1, compare(u"", u"a"));
    EXPECT_EQ(1, compare(u"a", u""));
    EXPECT_EQ(0, compare(u"", u""));
    EXPECT_EQ(-1, compare(u"MAR", u"mara"));
    EXPECT_EQ(-1, compare(u"mar", u"mar "));
}

TEST(Collation, SomeCharactersStandForSeveral) {
    EXPECT_EQ(-1, compare(u"ae", u"æ"));
    EXPECT_EQ(-1, compare(u"æ", u"af"));
    EXPECT_EQ(-1, compare(u"æ", u"Æ"));
    EXPECT_EQ(1, compare(u"œ", u"odz"));
    EXPECT_EQ(-1, compare(u"strasse", u"straße"));
    EXPECT_EQ(-1, compare(u"straße", u"strassf"));
    EXPECT_EQ(1, compare(u"…", u".."));
    EXPECT_EQ(-1, compare(u"...", u"…"));
    EXPECT_EQ(1, compare(u"¼", u"½"));
    EXPECT_EQ(-1, compare(u"¾", u"4"));
    EXPECT_EQ(-1, compare(u"tm", u"™"));
    EXPECT_EQ(1, compare(u"™", u"TM"));
}

TEST(Collation, ControlCharactersAndTheSoftHyphenCountForNothing) {
    const std::string bytes = allBytes();
    for (int code = 0; code < 256; ++code) {
        const bool counts = !(code < 9 || (code > 13 && code < 32) || code == 0x7F || code == 0x81 ||
                              code == 0x8D || code == 0x8F || code == 0x90 || code == 0x9D || code == 0xAD);
        const std::string with{'a', bytes[static_cast<std::size_t>(code)], 'b'};
        EXPECT_EQ(!counts, TS_Compara(std::string_view(with), "ab") == 0) << code;
        EXPECT_EQ(!counts, keyOf(with) == keyOf("ab")) << code;
    }
}

TEST(Collation, LettersStandWhereTheSystemPutsThem) {
    const std::u16string letters = agreedLetters();
    for (const char16_t a : letters)
        for (const char16_t b : letters)
            ASSERT_EQ(systemCompare({&a, 1}, {&b, 1}), compare({&a, 1}, {&b, 1})) << String({a, b}).utf8();
    // Ligatures are more than their two letters here; some systems see no difference.
    std::u16string plain;
    std::copy_if(letters.begin(), letters.end(), std::back_inserter(plain), [](char16_t c) {
        return std::u16string_view(u"ÆæŒœß").find(c) == std::u16string_view::npos;
    });
    std::mt19937 random(1492);
    for (int i = 0; i < 20000; ++i) {
        // Few letters, so that many pairs have the same ones with other accents and case.
        const std::u16string some{plain[random() % plain.size()], plain[random() % plain.size()], u'e', u'É'};
        std::u16string a, b;
        for (auto* text : {&a, &b})
            for (auto length = random() % 5; length > 0; --length)
                *text += some[random() % some.size()];
        ASSERT_EQ(systemCompare(a, b), compare(a, b)) << String(a).utf8() << " " << String(b).utf8();
    }
}

TEST(Collation, LettersOnWhichSystemsDisagreeHaveTheirPlaceInTheTable) {
    EXPECT_EQ(-1, compare(u"zz", u"þ")) << "a letter after z";
    EXPECT_EQ(-1, compare(u"þ", u"Þ"));
    EXPECT_EQ(-1, compare(u"â", u"å"));
    EXPECT_EQ(-1, compare(u"å", u"ä"));
    EXPECT_EQ(-1, compare(u"ä", u"ã"));
}

TEST(Collation, KeysCompareAsTheirTexts) {
    const std::string bytes = allBytes();
    std::mt19937 random(1605);
    for (const char a : bytes)
        for (const char b : bytes)
            ASSERT_EQ(TS_Compara(std::string_view(&a, 1), std::string_view(&b, 1)),
                      compareKeys({&a, 1}, {&b, 1}));
    const std::string sets[] = {bytes, ansi(u"aAáÁeEæÆ\u0001"), ansi(u"sSßšŠ…."), ansi(u"1½¼24⁄ñÑnN")};
    for (const std::string& set : sets)
        for (int i = 0; i < 20000; ++i) {
            const std::string a = randomText(random, set, 6), b = randomText(random, set, 6);
            ASSERT_EQ(TS_Compara(a, b), compareKeys(a, b))
                << testing::PrintToString(a) << testing::PrintToString(b);
            ASSERT_EQ(TS_Compara(a, b), -TS_Compara(b, a));
            ASSERT_EQ(0, TS_Compara(a, a));
        }
}

TEST(Collation, KeysOfPlainTextAreAsLongAsTheText) {
    EXPECT_EQ(12U, keyOf("casa grande 1").size() - 1);
    EXPECT_EQ("", keyOf(""));
    std::string key = "before";
    tesela::appendSortKey(String(u"mar"), key);
    EXPECT_EQ("before" + keyOf("mar"), key);
}

TEST(Collation, CapitalsCompareAsTheUpperCaseOfTheText) {
    const auto check = [](const String& text) {
        const std::string capitals = automation::UCase(text).ansi();
        EXPECT_EQ(0, tesela::compareCapitals(text, capitals)) << text.utf8();
        for (const char16_t* other : {u"ÑANDÚ", u"M", u"ŸÝ", u"ẞ", u"µ", u""}) {
            const std::string bytes = ansi(other);
            EXPECT_EQ(TS_Compara(capitals, bytes), tesela::compareCapitals(text, bytes)) << text.utf8();
        }
    };
    for (const char byte : allBytes())
        check(String::fromAnsi(std::string_view(&byte, 1)));
    check(u"Ñandú, ñu y ÿ");
    check(u"œuvre žluť");
    check(u"αβγ");
    check(String::repeat(u'ñ', 200));
}

TEST(Collation, OrdersTheWordsOfADictionary) {
    const std::vector<const char16_t*> dictionary = {u"",      u"caña",  u"cañón",  u"carro",
                                                     u"chico", u"llano", u"lluvia", u"nube",
                                                     u"Nube",  u"núbil", u"ñandú",  u"oasis"};
    for (std::size_t i = 0; i < dictionary.size(); ++i)
        for (std::size_t k = 0; k < dictionary.size(); ++k)
            EXPECT_EQ(signOf(static_cast<int>(i) - static_cast<int>(k)),
                      tesela::OCX_StrComp(dictionary[i], dictionary[k]))
                << i << " and " << k;
}

TEST(Collation, WideTextsCompareByTheirAnsiForm) {
    EXPECT_EQ(0, compare(u"日本", u"??")) << "what the code page lacks";
    EXPECT_EQ(0, TS_Compara(String(u"€ “x”"), String::fromAnsi("\x80 \x93x\x94")));
    const std::u16string longer(200, u'ñ');
    EXPECT_EQ(-1, compare(longer, longer + u"a"));
    EXPECT_EQ(1, compare(longer + u"ó", longer + u"o"));
}

TEST(Collation, TextsAndTheirCapitalsCompareAsTheirAnsiForms) {
    constexpr std::u16string_view characters = u"aAáñÑnÆæß½1¹⁄…'\u00AD\u0001\u00A0-zŽ€ŒoÿŸµαΑ日\xD83D\xDE00";
    std::mt19937 random(8);
    const auto make = [&] {
        std::u16string text(random() % 6, u' ');
        for (char16_t& each : text)
            each = characters[random() % characters.size()];
        return text;
    };
    for (int i = 0; i < 200000; ++i) {
        const std::u16string start = make(), one = start + make(), other = start + make();
        ASSERT_EQ(TS_Compara(ansi(one), ansi(other)), compare(one, other))
            << String(one).utf8() << " and " << String(other).utf8();
        const std::string capitals = automation::UCase(other).ansi();
        ASSERT_EQ(TS_Compara(automation::UCase(one).ansi(), capitals),
                  tesela::compareCapitals(String(one), capitals))
            << String(one).utf8() << " and " << String(other).utf8();
    }
}
