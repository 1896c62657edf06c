#include "frame/CodigoUsoConjunto.h"
#include "support/Started.h"

using automation::Date;
using automation::String;
using namespace tesela;

namespace {

class CodigoUsoConjunto_ : public support::Started {};
constexpr double emptyDate = -53688;

} // namespace

TEST_F(CodigoUsoConjunto_, SmallDatesPackDaysAndMinutes) {
    const auto small = Date2SmallDate(Date::join(2024, 2, 29, 13, 45, 59));
    const auto days = static_cast<std::uint32_t>(Date::join(2024, 2, 29).value()) - 2;
    EXPECT_EQ(static_cast<std::int32_t>(days << 16 | (13 * 60 + 45)), small.nBinary);
    EXPECT_EQ(Date::join(2024, 2, 29), small.dFecha);
    EXPECT_DOUBLE_EQ((13 * 60 + 45) / 1440.0, small.dHora.value());
    EXPECT_DOUBLE_EQ(small.dFecha.value() + small.dHora.value(), small.dFullDate.value());
    EXPECT_DOUBLE_EQ(small.dFullDate.value(), SmallDate2Date(small.nBinary).value());
}

TEST_F(CodigoUsoConjunto_, TheFirstSmallDateIsTheFirstOf1900) {
    const auto small = Date2SmallDate(Date::join(1900, 1, 1));
    EXPECT_EQ(0, small.nBinary);
    EXPECT_EQ(Date::join(1900, 1, 1), small.dFullDate);
    const auto before = Date2SmallDate(Date(1.99999));
    EXPECT_EQ(0, before.nBinary);
    EXPECT_EQ(emptyDate, before.dFullDate.value());
    EXPECT_EQ(0, before.dFecha.value());
    EXPECT_EQ(0, before.dHora.value());
}

TEST_F(CodigoUsoConjunto_, TheLastSmallDateIsThe6thOfJune2079) {
    const auto last = Date2SmallDate(Date::join(2079, 6, 6, 23, 59, 59));
    EXPECT_EQ(static_cast<std::int32_t>(0xFFFFu << 16 | 1439u), last.nBinary);
    EXPECT_EQ(Date::join(2079, 6, 6), last.dFecha);
    EXPECT_EQ(emptyDate, Date2SmallDate(Date::join(2079, 6, 7)).dFullDate.value());
}

TEST_F(CodigoUsoConjunto_, AMomentThatRoundsToMidnightIsAWholeDayOfMinutes) {
    const auto small = Date2SmallDate(Date(65537.999999));
    EXPECT_EQ(static_cast<std::int32_t>(0xFFFFu << 16 | 1440u), small.nBinary);
    EXPECT_EQ(65537, small.dFecha.value());
    EXPECT_EQ(1, small.dHora.value());
    EXPECT_EQ(65538, small.dFullDate.value());
    EXPECT_EQ(65538, SmallDate2Date(small.nBinary).value());
}

TEST_F(CodigoUsoConjunto_, SmallNumbers0And1AreTheEmptyDate) {
    EXPECT_EQ(emptyDate, SmallDate2Date(0).value());
    EXPECT_EQ(emptyDate, SmallDate2Date(1).value());
    EXPECT_DOUBLE_EQ(2 + 2 / 1440.0, SmallDate2Date(2).value());
    EXPECT_EQ(Date::join(2079, 6, 6).value(), SmallDate2Date(static_cast<std::int32_t>(0xFFFF0000u)).value());
}

TEST_F(CodigoUsoConjunto_, EachMinuteOfADayComesBack) {
    const double day = Date::join(2001, 9, 9).value();
    for (int minute = 0; minute < 1440; ++minute) {
        const Date d(day + minute / 1440.0);
        ASSERT_NEAR(d.value(), SmallDate2Date(Date2SmallDate(d).nBinary).value(), 1e-9) << minute;
    }
}

TEST_F(CodigoUsoConjunto_, SpecialDates) {
    EXPECT_EQ(emptyDate, FechaEspecial(tslDateEmpty).value());
    EXPECT_EQ(0, FechaEspecial(tslDateZero).value());
    EXPECT_EQ(2958465.999988426, FechaEspecial(tslDateMax).value());
}

TEST_F(CodigoUsoConjunto_, TheRecordHasItsFieldsInTheirOrder) {
    const auto& table = recordOf(static_cast<const SmallDateTime*>(nullptr));
    EXPECT_EQ("SmallDateTime", table.name().utf8());
    std::vector<std::string> names;
    for (const auto& field : table.fields())
        names.push_back(field.name.utf8());
    EXPECT_EQ((std::vector<std::string>{"dFecha", "dHora", "dFullDate", "nBinary"}), names);
}

TEST_F(CodigoUsoConjunto_, TextCrossesToBytesThroughTheAnsiPage) {
    char bytes[8] = "xxxxxxx";
    String2Bytes(u"ñ€A", bytes);
    EXPECT_EQ('\xF1', bytes[0]);
    EXPECT_EQ('\x80', bytes[1]);
    EXPECT_EQ('A', bytes[2]);
    EXPECT_EQ('x', bytes[3]);
    String2Bytes(u"abc", bytes, 2);
    EXPECT_EQ(std::string("abAxxxx"), bytes);
    String2Bytes(u"z", bytes, 6);
    EXPECT_EQ(std::string("zbAxxxx"), bytes) << "never more than the text has";

    String text;
    Bytes2String("\xE1\xF1\0z", text, 4);
    EXPECT_EQ(String(std::u16string_view(u"áñ\0z", 4)), text);
    Bytes2String(bytes, text, 0);
    EXPECT_TRUE(text.empty());
}
