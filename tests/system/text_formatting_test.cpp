#include "system/text_formatting.h"

#include <gtest/gtest.h>

using namespace tesela;

namespace {

std::string formatted(std::u16string_view text, std::int32_t format) {
    return AutoFormatearTexto(text, format).utf8();
}

constexpr std::int32_t both = tslGetAutoFormatProperCase | tslGetAutoFormatEspacioTrasPunto;

} // namespace

TEST(EsNumeroRomano, LooksAtTheLettersAndNotAtTheirOrder) {
    for (const auto* text : {u"XIV", u"mmxxvi", u"IIII", u"MIM", u" iv "})
        EXPECT_TRUE(EsNumeroRomano(text)) << automation::String(text).utf8();
    for (const auto* text : {u"XIVa", u"1", u"I V", u"X."})
        EXPECT_FALSE(EsNumeroRomano(text)) << automation::String(text).utf8();
}

TEST(EsNumeroRomano, IsTrueForNoTextAtAll) {
    EXPECT_TRUE(EsNumeroRomano(u""));
    EXPECT_TRUE(EsNumeroRomano(u"  "));
}

TEST(AutoFormatearTexto, TrimsAndLeavesWordsAsTheyAre) {
    EXPECT_EQ("calle Mayor 3", formatted(u"  calle Mayor 3 ", tslGetAutoFormatDefault));
    EXPECT_EQ("", formatted(u"", both));
    EXPECT_EQ("", formatted(u"   ", both));
}

TEST(AutoFormatearTexto, RomanNumeralsAreCapitalsWhateverTheFlags) {
    EXPECT_EQ("alfonso XIII", formatted(u"alfonso xiii", tslGetAutoFormatDefault));
    EXPECT_EQ("Alfonso XIII", formatted(u"alfonso xiii", tslGetAutoFormatProperCase));
    EXPECT_EQ("siglo XX.", formatted(u"siglo xx.", tslGetAutoFormatDefault));
}

TEST(AutoFormatearTexto, ProperCaseCapitalisesEachWord) {
    EXPECT_EQ("Juan Núñez", formatted(u"JUAN núñez", tslGetAutoFormatProperCase));
    EXPECT_EQ("Ana-Belén/Òscar (Hijo) <A>",
              formatted(u"ana-belén/òscar (hijo) <a>", tslGetAutoFormatProperCase));
}

TEST(AutoFormatearTexto, WordsThatADelimiterEndsAreNotTakenForNumerals) {
    EXPECT_EQ("xx-xx/xx,xx;XX", formatted(u"xx-xx/xx,xx;xx", tslGetAutoFormatDefault));
}

TEST(AutoFormatearTexto, CommasGetNoBlankOfTheirOwn) {
    EXPECT_EQ("uno,dos; tres", formatted(u"uno,dos; tres", both & tslGetAutoFormatEspacioTrasPunto));
}

TEST(AutoFormatearTexto, ABlankFollowsAPointWithTheFlagOrWhereOneStood) {
    EXPECT_EQ("s.a.", formatted(u"s.a.", tslGetAutoFormatDefault));
    EXPECT_EQ("s. a.", formatted(u"s.a.", tslGetAutoFormatEspacioTrasPunto));
    EXPECT_EQ("uno. dos", formatted(u"uno. dos", tslGetAutoFormatDefault));
    EXPECT_EQ("uno. dos", formatted(u"uno. dos", tslGetAutoFormatEspacioTrasPunto)) << "one blank, not two";
    EXPECT_EQ("Av. Uno. Dos", formatted(u"AV.UNO.DOS", both));
}
