#include "automation/Operators.h"

#include "automation/ClassTable.h"
#include "automation/Object.h"

#include "platform/locale.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>
#include <vector>

using namespace automation;

namespace {

using Operator = Variant (*)(const Variant&, const Variant&);

// The operand types in the order of the tables below.
constexpr int typeCount = 12;
constexpr const char* typeNames[typeCount] = {"Empty",    "Null", "Integer", "Long",    "Single",  "Double",
                                              "Currency", "Date", "String",  "Boolean", "Decimal", "Byte"};

/// A seven of each type; the Boolean is True.
const Variant& seven(int type) {
    static const Variant values[typeCount] = {
        {},   Variant::null(),         std::int16_t{7}, 7, 7.0f, 7.0, Currency(7), Date(7), u"7",
        true, Decimal(7, 0, 0, false), std::uint8_t{7}};
    return values[type];
}

/// Letter of a result: its type, or an error. E Empty, N Null, 2 Integer, 4 Long, s Single, d Double, c
/// Currency, t Date, S String, B Boolean, D Decimal, b Byte; / Error 11, O Error 6, x Error 13, !
/// another error.
char letterOf(const std::function<Variant()>& action) {
    try {
        switch (action().type()) {
        case VT_EMPTY:
            return 'E';
        case VT_NULL:
            return 'N';
        case VT_I2:
            return '2';
        case VT_I4:
            return '4';
        case VT_R4:
            return 's';
        case VT_R8:
            return 'd';
        case VT_CY:
            return 'c';
        case VT_DATE:
            return 't';
        case VT_BSTR:
            return 'S';
        case VT_BOOL:
            return 'B';
        case VT_DECIMAL:
            return 'D';
        case VT_UI1:
            return 'b';
        default:
            return '?';
        }
    } catch (const Error& error) {
        return error.number() == 11 ? '/' : error.number() == 6 ? 'O' : error.number() == 13 ? 'x' : '!';
    }
}

struct PairTable {
    const char* name;
    Operator op;
    const char* rows[typeCount];
};

// Rows: left operand, columns: right operand, both in the order Empty Null Integer Long Single Double
// Currency Date String Boolean Decimal Byte.
const PairTable pairTables[] = {
    {"add",
     add,
     {"2N24sdctS2Db", "NNNNNNNNNNNN", "2N24sdctd2D2", "4N44ddctd4D4", "sNsdsdctdsDs", "dNddddctddDd",
      "cNccccctccDc", "tNttttttttDt", "SNddddctSdDd", "2N24sdctd2D2", "DNDDDDDDDDDD", "bN24sdctd2Db"}},
    {"subtract",
     subtract,
     {"2N24sdctd2D2", "NNNNNNNNNNNN", "2N24sdctd2D2", "4N44ddctd4D4", "sNsdsdctdsDs", "dNddddctddDd",
      "cNccccctccDc", "tNtttttdttDt", "dNddddctddDd", "2N24sdctd2D2", "DNDDDDDDDDDD", "bN24sdctd2Db"}},
    {"multiply",
     multiply,
     {"2N24sdcdd2Db", "NNNNNNNNNNNN", "2N24sdcdd2D2", "4N44ddcdd4D4", "sNsdsddddsDs", "dNddddddddDd",
      "cNccddcddcDc", "dNddddddddDd", "dNddddddddDd", "2N24sdcdd2D2", "DNDDDDDDDDDD", "bN24sdcdd2Db"}},
    {"divide",
     divide,
     {"ONddsdddddDd", "NNNNNNNNNNNN", "/NddsdddddDd", "/NddddddddDd", "/NsdsddddsDs", "/NddddddddDd",
      "/NddddddddDd", "/NddddddddDd", "/NddddddddDd", "/NddsdddddDd", "/NDDDDDDDDDD", "/NddsdddddDd"}},
    {"integerDivide",
     integerDivide,
     {"/N2444444242", "NNNNNNNNNNNN", "/N2444444242", "/N4444444444", "/N4444444444", "/N4444444444",
      "/N4444444444", "/N4444444444", "/N4444444444", "/N2444444242", "/N4444444444", "/N244444424b"}},
    {"modulo",
     modulo,
     {"/N4444444444", "NNNNNNNNNNNN", "/N2444444242", "/N4444444444", "/N4444444444", "/N4444444444",
      "/N4444444444", "/N4444444444", "/N4444444444", "/N2444444242", "/N4444444444", "/N244444424b"}},
    {"power",
     power,
     {"dNddddddd!dd", "NNNNNNNNNNNN", "dNdddddddddd", "dNdddddddddd", "dNdddddddddd", "dNdddddddddd",
      "dNdddddddddd", "dNdddddddddd", "dNdddddddddd", "dNdddddddddd", "dNdddddddddd", "dNdddddddddd"}},
    {"concatenate",
     concatenate,
     {"SSSSSSSSSSSS", "SNSSSSSSSSSS", "SSSSSSSSSSSS", "SSSSSSSSSSSS", "SSSSSSSSSSSS", "SSSSSSSSSSSS",
      "SSSSSSSSSSSS", "SSSSSSSSSSSS", "SSSSSSSSSSSS", "SSSSSSSSSSSS", "SSSSSSSSSSSS", "SSSSSSSSSSSS"}},
    {"logicalAnd",
     logicalAnd,
     {"222444442242", "2NNNNNNNNNNN", "2N2444442242", "4N4444444444", "4N4444444444", "4N4444444444",
      "4N4444444444", "4N4444444444", "2N244444BB42", "2N244444BB42", "4N4444444444", "2N244444224b"}},
    {"logicalOr",
     logicalOr,
     {"2N2444442242", "NN244444BB4b", "222444442242", "444444444444", "444444444444", "444444444444",
      "444444444444", "444444444444", "2B244444BB42", "2B244444BB42", "444444444444", "2b244444224b"}},
    {"logicalXor",
     logicalXor,
     {"2N2444444242", "NNNNNNNNNNNN", "2N2444444242", "4N4444444444", "4N4444444444", "4N4444444444",
      "4N4444444444", "4N4444444444", "4N4444444444", "2N2444444B42", "4N4444444444", "2N244444424b"}},
    {"logicalEqv",
     logicalEqv,
     {"2N2444444242", "NNNNNNNNNNNN", "2N2444444242", "4N4444444444", "4N4444444444", "4N4444444444",
      "4N4444444444", "4N4444444444", "4N4444444444", "2N2444444B42", "4N4444444444", "2N244444424b"}},
    {"logicalImp",
     logicalImp,
     {"222444442242", "NN244444BB4b", "222444442242", "444444444444", "444444444444", "444444444444",
      "444444444444", "444444444444", "2N244444BB42", "2N244444BB42", "444444444444", "2b244444224b"}},
};

class LocaleGuard {
public:
    explicit LocaleGuard(const char* name) { platform::overrideUserLocale(name); }
    LocaleGuard(const LocaleGuard&) = delete;
    LocaleGuard& operator=(const LocaleGuard&) = delete;
    ~LocaleGuard() { platform::overrideUserLocale(""); }
};

std::int32_t errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

class Boxed final : public Object {
public:
    explicit Boxed(Variant inside) : inside_(std::move(inside)) {}
    const ClassTable& classTable() const override {
        static const ClassTable table =
            ClassTable::of<Boxed>("Boxed").get("Value", &Boxed::Value).defaultMember();
        return table;
    }
    Variant Value() const { return inside_; }

private:
    Variant inside_;
};

} // namespace

TEST(Operators, GiveTheTypeThatEachPairOfTypesGives) {
    for (const PairTable& table : pairTables)
        for (int a = 0; a < typeCount; ++a)
            for (int b = 0; b < typeCount; ++b)
                EXPECT_EQ(letterOf([&] { return table.op(seven(a), seven(b)); }), table.rows[a][b])
                    << table.name << "(" << typeNames[a] << ", " << typeNames[b] << ")";
}

TEST(Operators, RefuseErrorValuesAndArrays) {
    for (const PairTable& table : pairTables)
        for (const Variant& wrong : {Variant::missing(), Variant(Array::of({1}))}) {
            EXPECT_EQ(letterOf([&] { return table.op(wrong, 1); }), 'x') << table.name;
            EXPECT_EQ(letterOf([&] { return table.op(1, wrong); }), 'x') << table.name;
        }
}

TEST(Operators, WidenWholeResultsThatOverflow) {
    const auto byte = [](int n) { return Variant(static_cast<std::uint8_t>(n)); };
    const auto integer = [](int n) { return Variant(static_cast<std::int16_t>(n)); };
    EXPECT_EQ(add(byte(200), byte(55)).asByte(), 255);
    EXPECT_EQ(add(byte(200), byte(56)).asInteger(), 256);
    EXPECT_EQ(subtract(byte(3), byte(5)).asInteger(), -2);
    EXPECT_EQ(multiply(byte(255), byte(255)).asLong(), 65025);
    EXPECT_EQ(add(integer(32767), integer(1)).asLong(), 32768);
    EXPECT_EQ(subtract(integer(-32768), true).asInteger(), -32767);
    EXPECT_EQ(multiply(integer(-32768), integer(-32768)).asLong(), 1073741824);
    EXPECT_EQ(add(2147483647, 1).asDouble(), 2147483648.0);
    EXPECT_EQ(multiply(65536, 65536).asDouble(), 4294967296.0);
    EXPECT_EQ(add(3.4e38f, 3.4e38f).type(), VT_R8);
    EXPECT_EQ(multiply(3.0e38f, 2.0f).type(), VT_R8);
    EXPECT_EQ(negate(integer(-32768)).asLong(), 32768);
    EXPECT_EQ(negate(std::numeric_limits<std::int32_t>::min()).asDouble(), 2147483648.0);
    EXPECT_EQ(negate(byte(5)).asInteger(), -5);
}

TEST(Operators, OverflowWhereNothingWiderIsLeft) {
    EXPECT_EQ(errorOf([] { add(1.7e308, 1.7e308); }), 6);
    EXPECT_EQ(errorOf([] { multiply(1e200, -1e200); }), 6);
    EXPECT_EQ(errorOf([] { power(10, 400); }), 6);
    EXPECT_EQ(errorOf([] { divide(1e300, 1e-300); }), 6);
    EXPECT_EQ(errorOf([] { integerDivide(std::numeric_limits<std::int32_t>::min(), -1); }), 6);
    EXPECT_EQ(errorOf([] { integerDivide(3e9, 2); }), 6);
    EXPECT_EQ(errorOf([] { logicalNot(3e9); }), 6);
}

TEST(Operators, CalculateDates) {
    EXPECT_EQ(add(Date(10), 1.5).asDate(), Date(11.5));
    EXPECT_EQ(subtract(Date(10), Date(3.25)).asDouble(), 6.75);
    EXPECT_EQ(subtract(Date(10), 3).asDate(), Date(7));
    EXPECT_EQ(add(Date(2958465), 1).asDouble(), 2958466.0) << "beyond the range of dates";
    EXPECT_EQ(negate(Date(2)).asDate(), Date(-2));
}

TEST(Operators, KeepMoneyAndDecimalsExact) {
    EXPECT_EQ(add(Currency::fromScaled(1), Currency::fromScaled(2)).asCurrency().scaled(), 3);
    EXPECT_EQ(multiply(Currency::fromScaled(12345), 3).asCurrency().scaled(), 37035);
    EXPECT_EQ(add(Currency(1), 0.33335).asCurrency().scaled(), 13334) << "rounded half to even";
    EXPECT_EQ(errorOf([] { multiply(Currency::fromScaled(std::numeric_limits<std::int64_t>::max()), 2); }),
              6);
    EXPECT_EQ(divide(Decimal(1, 0, 0, false), 3).asDecimal().text(), "0.3333333333333333333333333333");
    EXPECT_EQ(add(Decimal(1, 0, 1, false), Currency(2)).asDecimal().text(), "2.1");
    EXPECT_EQ(add(Decimal(5, 0, 0, false), true).asDecimal().text(), "4");
}

TEST(Operators, ReadTextsAsNumbersInTheLocale) {
    EXPECT_EQ(subtract(u"3", u"5").asDouble(), -2.0);
    EXPECT_EQ(errorOf([] { add(u"uno", 1); }), 13);
    EXPECT_EQ(errorOf([] { negate(u""); }), 13);
    {
        const LocaleGuard spanish("es-ES");
        EXPECT_EQ(add(u"1,5", 1).asDouble(), 2.5);
        EXPECT_EQ(multiply(u"1.000", u"2").asDouble(), 2000.0);
    }
    const LocaleGuard english("en-US");
    EXPECT_EQ(add(u"1.5", 1).asDouble(), 2.5);
    EXPECT_EQ(multiply(u"1,000", u"2").asDouble(), 2000.0);
}

TEST(Operators, JoinTexts) {
    EXPECT_EQ(add(u"12", u"3").asString(), u"123");
    const LocaleGuard spanish("es-ES");
    EXPECT_EQ(concatenate(u"n = ", 1.5).asString(), u"n = 1,5");
    EXPECT_EQ(concatenate(Variant::null(), u"a").asString(), u"a");
    EXPECT_EQ(concatenate(Variant(), 7).asString(), u"7");
    EXPECT_TRUE(concatenate(Variant::null(), Variant::null()).isNull());
}

TEST(Operators, DivideWithTheLanguagesErrors) {
    EXPECT_EQ(errorOf([] { divide(1, 0); }), 11);
    EXPECT_EQ(errorOf([] { divide(0, 0); }), 6);
    EXPECT_EQ(errorOf([] { integerDivide(7, 0.4); }), 11) << "the divisor is rounded first";
    EXPECT_EQ(errorOf([] { modulo(7, 0); }), 11);
    EXPECT_EQ(integerDivide(-7, 2).asLong(), -3);
    EXPECT_EQ(integerDivide(7.5, 1.5).asLong(), 4) << "8 by 2";
    EXPECT_EQ(modulo(-7, 3).asLong(), -1);
    EXPECT_EQ(modulo(7, -3).asLong(), 1);
    EXPECT_EQ(modulo(std::numeric_limits<std::int32_t>::min(), -1).asLong(), 0);
}

TEST(Operators, RaiseToPowers) {
    EXPECT_EQ(power(2, 10).asDouble(), 1024.0);
    EXPECT_EQ(power(-2, 3).asDouble(), -8.0);
    EXPECT_EQ(power(0, 0).asDouble(), 1.0);
    EXPECT_EQ(errorOf([] { power(-2, 0.5); }), 5);
    EXPECT_EQ(errorOf([] { power(0, -1); }), 5);
}

TEST(Operators, TreatBooleansAsMinusOneAndZero) {
    EXPECT_EQ(add(true, 0).asLong(), -1);
    EXPECT_EQ(multiply(true, true).asInteger(), 1);
    EXPECT_EQ(negate(true).asInteger(), 1);
    EXPECT_TRUE(logicalNot(false).asBoolean());
    EXPECT_EQ(logicalNot(std::uint8_t{1}).asByte(), 254);
    EXPECT_EQ(logicalNot(Variant()).asInteger(), -1);
    EXPECT_EQ(logicalNot(5).asLong(), -6);
}

TEST(Operators, LetNullTakePartAsUnknown) {
    const Variant null = Variant::null();
    EXPECT_FALSE(logicalAnd(false, null).asBoolean());
    EXPECT_TRUE(logicalAnd(true, null).isNull());
    EXPECT_TRUE(logicalOr(true, null).asBoolean());
    EXPECT_TRUE(logicalOr(null, false).isNull());
    EXPECT_TRUE(logicalXor(true, null).isNull());
    EXPECT_TRUE(logicalEqv(null, 1).isNull());
    EXPECT_TRUE(logicalImp(false, null).asBoolean());
    EXPECT_TRUE(logicalImp(true, null).isNull());
    EXPECT_TRUE(logicalImp(null, true).asBoolean());
    EXPECT_TRUE(logicalImp(null, false).isNull());
    EXPECT_TRUE(logicalNot(null).isNull());
}

TEST(Operators, WorkBitByBit) {
    const LocaleGuard spanish("es-ES");
    EXPECT_EQ(logicalAnd(12, 10).asLong(), 8);
    EXPECT_EQ(logicalOr(12, 10).asLong(), 14);
    EXPECT_EQ(logicalXor(12, 10).asLong(), 6);
    EXPECT_EQ(logicalEqv(12, 10).asLong(), -7);
    EXPECT_EQ(logicalImp(12, 10).asLong(), -5);
    EXPECT_TRUE(logicalAnd(u"True", true).asBoolean());
    EXPECT_TRUE(logicalAnd(u"Verdadero", u"#TRUE#").asBoolean()) << "the language's own word";
    EXPECT_EQ(logicalAnd(u"12", 10).asLong(), 8);
    EXPECT_TRUE(logicalAnd(u"12", u"3").asBoolean()) << "among themselves texts are Booleans";
    EXPECT_EQ(logicalXor(u"12", u"10").asLong(), 6) << "but not where bits are told apart";
    EXPECT_EQ(logicalImp(std::uint8_t{255}, Variant::null()).type(), VT_NULL);
    EXPECT_TRUE(logicalXor(1e300, Variant::null()).isNull());
}

TEST(Operators, CompareAcrossTypes) {
    struct Case {
        Variant a, b;
        Comparison expected;
    };
    const Case cases[] = {
        {1, 1.0, Comparison::Equal},
        {std::uint8_t{2}, std::int16_t{3}, Comparison::Less},
        {true, 0, Comparison::Less},
        {true, -1, Comparison::Equal},
        {Variant(), 0, Comparison::Equal},
        {Variant(), u"", Comparison::Equal},
        {Variant(), u"a", Comparison::Less},
        {u"a", Variant(), Comparison::Greater},
        {u"10", 9, Comparison::Greater},
        {100, u"9", Comparison::Less},
        {u"10", u"9", Comparison::Less},
        {true, u"", Comparison::Less},
        {Date(5), 5, Comparison::Equal},
        {Currency(1), 1.00001, Comparison::Equal},
        {Currency(1), 1.0001, Comparison::Less},
        {Currency(1), 1e300, Comparison::Less},
        {0.1f, 0.1, Comparison::Equal},
        {0.1f, 0.1001, Comparison::Less},
        {3e38f, 1e300, Comparison::Less},
        {Decimal(15, 0, 1, false), 1.5, Comparison::Equal},
        {Decimal(15, 0, 1, false), -1e300, Comparison::Greater},
        {Variant::null(), 1, Comparison::Null},
        {Variant::null(), Variant::null(), Comparison::Null},
        {u"x", Variant::null(), Comparison::Null},
        {Variant::error(1), Variant::error(1), Comparison::Equal},
    };
    for (const Case& c : cases) {
        const auto place = &c - cases;
        EXPECT_EQ(compare(c.a, c.b), c.expected) << place;
        const Comparison turned = c.expected == Comparison::Less      ? Comparison::Greater
                                  : c.expected == Comparison::Greater ? Comparison::Less
                                                                      : c.expected;
        EXPECT_EQ(compare(c.b, c.a), turned) << place;
    }
    EXPECT_EQ(errorOf([] { compare(Variant::missing(), 1); }), 13);
    EXPECT_EQ(errorOf([] { compare(Array::of({1}), 1); }), 13);
    EXPECT_FALSE(isEqual(Variant::null(), Variant::null()));
    EXPECT_TRUE(isLess(std::int16_t{-1}, 0.5));
}

TEST(Operators, OrderAlikeValuesAsCompareDoes) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    constexpr std::int64_t mostMoney = std::numeric_limits<std::int64_t>::max();
    const std::vector<std::vector<Variant>> alike = {
        {std::int16_t{-32768}, std::int16_t{0}, std::int16_t{7}},
        {-2147483647 - 1, -1, 0, 2147483647},
        {-infinite, -1.5, -0.0, 0.0, 2.5, infinite, none},
        {Currency::fromScaled(-mostMoney), Currency(0), Currency::fromScaled(1),
         Currency::fromScaled(mostMoney)},
        {Date(-1.25), Date(0), Date(36526.5)},
        {true, false},
        {u"", u"A", u"a", u"ab", u"\u00F1", u"\uFFFD"},
        {Variant(), Variant()},
        {Variant::null(), Variant::null()},
    };
    for (const auto& values : alike) {
        for (const Variant& a : values) {
            for (const Variant& b : values) {
                for (const TextCompare text : {TextCompare::Binary, TextCompare::Textual}) {
                    const Comparison order = compare(a, b, text);
                    EXPECT_EQ(isLess(a, b, text), order == Comparison::Less) << "type " << a.type();
                    EXPECT_EQ(isEqual(a, b, text), order == Comparison::Equal) << "type " << a.type();
                }
            }
        }
    }
}

TEST(Operators, CompareTextsByUnitsOrAsInADictionary) {
    const LocaleGuard spanish("es-ES");
    EXPECT_EQ(compare(u"a", u"B"), Comparison::Greater);
    EXPECT_EQ(compare(u"a", u"B", TextCompare::Textual), Comparison::Less);
    EXPECT_EQ(compare(u"ÁRBOL", u"árbol", TextCompare::Textual), Comparison::Equal);
    EXPECT_EQ(compare(u"nz", u"ña", TextCompare::Textual), Comparison::Less);
    EXPECT_NE(compare(u"ÁRBOL", u"árbol"), Comparison::Equal);
}

TEST(Operators, TakeTheDefaultMemberOfAnObject) {
    const Ref<Boxed> five = make<Boxed>(5);
    const Ref<Boxed> nested = make<Boxed>(Variant(five));
    EXPECT_EQ(add(five, 2).asLong(), 7);
    EXPECT_EQ(multiply(2, nested).asLong(), 10);
    EXPECT_EQ(compare(five, 5), Comparison::Equal);
    EXPECT_EQ(concatenate(five, u"!").asString(), u"5!");
    EXPECT_EQ(errorOf([] { add(Variant::nothing(), 1); }), 91);
    std::int32_t number = 3;
    EXPECT_EQ(add(Variant::byRef(number), nested).asLong(), 8);
}

TEST(Operators, AgreeWithWideIntegersOnRandomWholeNumbers) {
    std::mt19937_64 random(31);
    const auto number = [&]() -> std::int64_t {
        const int bits = static_cast<int>(random() % 32);
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(random()) >> bits) *
               (random() % 2 ? std::int64_t{1} : std::int64_t{-1});
    };
    const auto asVariant = [](std::int64_t n) {
        return n == static_cast<std::int16_t>(n) ? Variant(static_cast<std::int16_t>(n))
                                                 : Variant(static_cast<std::int32_t>(n));
    };
    for (int round = 0; round < 20000; ++round) {
        const std::int64_t a = std::max<std::int64_t>(number(), -2147483647);
        const std::int64_t b = std::max<std::int64_t>(number(), -2147483647);
        const Variant x = asVariant(a);
        const Variant y = asVariant(b);
        EXPECT_TRUE(isEqual(add(x, y), static_cast<double>(a + b)));
        EXPECT_TRUE(isEqual(subtract(x, y), static_cast<double>(a - b)));
        EXPECT_TRUE(isEqual(multiply(x, y), static_cast<double>(a * b)));
        EXPECT_EQ(compare(x, y) == Comparison::Less, a < b);
        if (b == 0) continue;
        // An Integer quotient that is too large for its type overflows.
        const bool tooLarge = x.type() == VT_I2 && y.type() == VT_I2 && a / b > 32767;
        if (!tooLarge) {
            EXPECT_TRUE(isEqual(integerDivide(x, y), static_cast<double>(a / b)));
        }
        EXPECT_TRUE(isEqual(modulo(x, y), static_cast<double>(a % b)));
    }
}
