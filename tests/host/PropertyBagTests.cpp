#include "HostTest.h"

#include "host/StdFont.h"

namespace host {

using automation::Variant;

TEST(PropertyBag, AMissingNameReadsItsDefault) {
    PropertyBag bag;
    EXPECT_EQ(bag.ReadProperty(u"Caption", u"def").asString(), u"def");
    EXPECT_TRUE(bag.ReadProperty(u"Caption").isEmpty());
}

TEST(PropertyBag, AValueEqualToItsDefaultIsNotStored) {
    PropertyBag bag;
    bag.WriteProperty(u"A", 5, 5);
    bag.WriteProperty(u"B", u"x", u"x");
    bag.WriteProperty(u"C", true, true);
    bag.WriteProperty(u"D", Variant::null(), Variant::null());
    bag.WriteProperty(u"E", short{5}, 5);
    bag.WriteProperty(u"F", automation::Currency(2), automation::Currency(2));
    EXPECT_TRUE(bag.items().empty());
}

TEST(PropertyBag, TextsAreDefaultsOnlyLetterByLetter) {
    PropertyBag bag;
    bag.WriteProperty(u"A", u"Hola", u"hola");
    bag.WriteProperty(u"B", u"1", 1);
    EXPECT_EQ(bag.items().size(), 2u);
}

TEST(PropertyBag, NamesCompareWithoutCaseAndKeepTheirOrder) {
    PropertyBag bag;
    bag.WriteProperty(u"Zeta", 1);
    bag.WriteProperty(u"Alfa", 2);
    bag.WriteProperty(u"ZETA", 3);
    ASSERT_EQ(bag.items().size(), 2u);
    EXPECT_EQ(bag.items()[0].first, u"Zeta");
    EXPECT_EQ(bag.ReadProperty(u"zeta").asLong(), 3);
    EXPECT_TRUE(bag.contains(u"ALFA"));
}

TEST(PropertyBag, WritingTheDefaultTakesAStoredValueAway) {
    PropertyBag bag;
    bag.WriteProperty(u"A", 1, 0);
    bag.WriteProperty(u"A", 0, 0);
    EXPECT_FALSE(bag.contains(u"A"));
}

TEST(PropertyBag, FontsAreEqualByTheirAttributesAndStoredAsTheyAre) {
    auto font = automation::make<StdFont>();
    auto same = automation::make<StdFont>();
    PropertyBag bag;
    bag.WriteProperty(u"Font", font, same);
    EXPECT_FALSE(bag.contains(u"Font"));
    font->Size(12);
    bag.WriteProperty(u"Font", font, same);
    ASSERT_TRUE(bag.contains(u"Font"));
    font->Size(20);
    const auto stored = bag.ReadProperty(u"Font").asObject();
    EXPECT_EQ(dynamic_cast<StdFont&>(*stored).Size(), automation::Currency(12));
}

TEST(PropertyBag, ContentsReadBackAsTheyWereForEachType) {
    auto font = automation::make<StdFont>();
    font->Name(u"Courier New");
    font->Size(automation::Currency::fromScaled(97500));
    font->Underline(true);
    PropertyBag bag;
    bag.WriteProperty(u"Text", u"líneas \"dos\"\r\ny\ttres \\ \u0001 \u2028 \U0001F600");
    bag.WriteProperty(u"Int", std::int16_t{-32768});
    bag.WriteProperty(u"Long", std::int32_t{-2147483647 - 1});
    bag.WriteProperty(u"Byte", std::uint8_t{255});
    bag.WriteProperty(u"Single", 0.1F);
    bag.WriteProperty(u"Double", 1.0 / 3);
    bag.WriteProperty(u"Money", automation::Currency::fromScaled(-9223372036854775807LL - 1));
    bag.WriteProperty(u"Cent", automation::Currency::fromScaled(-100));
    bag.WriteProperty(u"Date", automation::Date(45000.75));
    bag.WriteProperty(u"Yes", true);
    bag.WriteProperty(u"Null", Variant::null());
    bag.WriteProperty(u"Nothing", Variant::nothing());
    bag.WriteProperty(u"Empty", Variant(), 1);
    bag.WriteProperty(u"Font", font);
    PropertyBag read;
    read.Contents(bag.Contents());
    ASSERT_EQ(read.items().size(), bag.items().size());
    for (std::size_t i = 0; i < bag.items().size(); ++i) {
        const auto& [name, value] = bag.items()[i];
        EXPECT_EQ(read.items()[i].first, name);
        EXPECT_EQ(read.items()[i].second.type(), value.type()) << name.utf8();
        PropertyBag probe;
        probe.WriteProperty(name, read.items()[i].second, value);
        EXPECT_TRUE(probe.items().empty()) << name.utf8();
    }
    EXPECT_EQ(read.Contents(), bag.Contents());
}

} // namespace host
