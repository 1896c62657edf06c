#include "automation/Variant.h"

#include "automation/ClassTable.h"
#include "automation/Object.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace automation;

namespace {

class Counted final : public Object {
public:
    explicit Counted(int& living) : living_(living) { ++living_; }
    ~Counted() override { --living_; }
    const ClassTable& classTable() const override {
        static const ClassTable table = ClassTable::of<Counted>("Counted");
        return table;
    }

private:
    int& living_;
};

struct Typed {
    Variant value;
    VARTYPE type;
};

std::vector<Typed> oneOfEach() {
    return {{Variant(), 0},
            {Variant::null(), 1},
            {std::int16_t{7}, 2},
            {std::int32_t{7}, 3},
            {7.5f, 4},
            {7.5, 5},
            {Currency(7), 6},
            {Date(7), 7},
            {u"siete", 8},
            {Variant::nothing(), 9},
            {Variant::error(3), 10},
            {true, 11},
            {Decimal(7, 0, 0, false), 14},
            {std::uint8_t{7}, 17}};
}

} // namespace

TEST(Variant, TakesSixteenBytes) {
    EXPECT_EQ(sizeof(Variant), 16u);
}

TEST(Variant, HasTheTagsOfAutomation) {
    for (const Typed& each : oneOfEach())
        EXPECT_EQ(each.value.type(), each.type);
    EXPECT_EQ(Variant(Array::of({1, 2})).type(), 0x2000 | 12);
    EXPECT_EQ(Variant(Array(VT_UI1, {{0, 4}})).type(), 0x2000 | 17);
    std::int32_t number = 0;
    EXPECT_EQ(Variant::byRef(number).type(), 0x4000 | 3);
}

TEST(Variant, GivesOnlyItsOwnType) {
    for (const Typed& each : oneOfEach()) {
        const auto& v = each.value;
        const auto gives = [&](auto accessor) {
            try {
                (void)(v.*accessor)();
                return true;
            } catch (const Error&) {
                return false;
            }
        };
        EXPECT_EQ(gives(&Variant::asLong), each.type == VT_I4) << each.type;
        EXPECT_EQ(gives(&Variant::asInteger), each.type == VT_I2) << each.type;
        EXPECT_EQ(gives(&Variant::asByte), each.type == VT_UI1) << each.type;
        EXPECT_EQ(gives(&Variant::asSingle), each.type == VT_R4) << each.type;
        EXPECT_EQ(gives(&Variant::asDouble), each.type == VT_R8) << each.type;
        EXPECT_EQ(gives(&Variant::asCurrency), each.type == VT_CY) << each.type;
        EXPECT_EQ(gives(&Variant::asDate), each.type == VT_DATE) << each.type;
        EXPECT_EQ(gives(&Variant::asString), each.type == VT_BSTR) << each.type;
        EXPECT_EQ(gives(&Variant::asBoolean), each.type == VT_BOOL) << each.type;
        EXPECT_EQ(gives(&Variant::asObject), each.type == VT_DISPATCH) << each.type;
        EXPECT_EQ(gives(&Variant::asDecimal), each.type == VT_DECIMAL) << each.type;
        EXPECT_EQ(gives(&Variant::asError), each.type == VT_ERROR) << each.type;
        EXPECT_THROW(v.asArray(), Error) << each.type;
    }
    try {
        Variant(u"x").asLong();
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 13);
        EXPECT_EQ(error.description(), u"El tipo no coincide");
    }
}

TEST(Variant, KeepsItsValueThroughCopiesAndMoves) {
    Variant text = u"uno";
    const Variant copy = text;
    Variant moved = std::move(text);
    EXPECT_EQ(copy.asString(), u"uno");
    EXPECT_EQ(moved.asString(), u"uno");
    moved = 5;
    EXPECT_EQ(moved.asLong(), 5);
    EXPECT_EQ(copy.asString(), u"uno");
    Variant& self = moved;
    moved = self;
    EXPECT_EQ(moved.asLong(), 5);
}

TEST(Variant, HoldsADecimalWhole) {
    const Decimal number(0x123456789ABCDEF0u, 0xFEDCBA98u, 28, true);
    const Variant copy = Variant(number);
    EXPECT_EQ(copy.asDecimal().low(), number.low());
    EXPECT_EQ(copy.asDecimal().high(), number.high());
    EXPECT_EQ(copy.asDecimal().scale(), 28);
    EXPECT_TRUE(copy.asDecimal().isNegative());
}

TEST(Variant, LaysOutADecimalAsAutomationDoes) {
    const Variant value(Decimal(0x1122334455667788u, 0x99AABBCCu, 5, true));
    const unsigned char expected[16] = {14,   0,    5,    0x80, 0xCC, 0xBB, 0xAA, 0x99,
                                        0x88, 0x77, 0x66, 0x55, 0x44, 0x33, 0x22, 0x11};
    EXPECT_EQ(std::memcmp(static_cast<const void*>(&value), expected, sizeof expected), 0);
}

TEST(Variant, StoresTrueAsMinusOne) {
    const Variant value = true;
    std::int16_t raw = 0;
    std::memcpy(&raw, reinterpret_cast<const char*>(&value) + 8, sizeof raw);
    EXPECT_EQ(raw, -1);
}

TEST(Variant, CountsItsObject) {
    int living = 0;
    {
        Variant first = make<Counted>(living);
        Variant second = first;
        EXPECT_EQ(first.asObject()->referenceCount(), 2);
        first = Variant();
        EXPECT_EQ(living, 1);
        second = 3;
        EXPECT_EQ(living, 0);
    }
    EXPECT_EQ(living, 0);
}

TEST(Variant, TellsAMissingArgument) {
    EXPECT_TRUE(Variant::missing().isMissing());
    EXPECT_FALSE(Variant::error(5).isMissing());
    EXPECT_FALSE(Variant().isMissing());
    EXPECT_EQ(static_cast<std::uint32_t>(Variant::missing().asError()), 0x80020004u);
}

TEST(Variant, ReadsAndWritesThroughReferences) {
    std::int32_t number = 4;
    Variant reference = Variant::byRef(number);
    EXPECT_EQ(reference.dereferenced().asLong(), 4);
    reference.store(u"17");
    EXPECT_EQ(number, 17) << "the value is converted to the variable's type";

    String text;
    Variant::byRef(text).storeThrough(12);
    EXPECT_EQ(text, u"12");

    bool flag = false;
    Variant::byRef(flag).storeThrough(-1);
    EXPECT_TRUE(flag);

    Variant anything = 1;
    Variant outer = Variant::byRef(anything);
    outer.store(u"texto");
    EXPECT_EQ(anything.asString(), u"texto");
    EXPECT_EQ(outer.dereferenced().asString(), u"texto");
}

TEST(Variant, KeepsAVariableWhoseNewValueDoesNotConvert) {
    std::int32_t number = 4;
    EXPECT_THROW(Variant::byRef(number).storeThrough(u"siete"), Error);
    EXPECT_EQ(number, 4);
}

TEST(Variant, SharesAnArrayUntilItIsWritten) {
    Variant first = Array::of({1, 2, 3});
    Variant second = first;
    EXPECT_TRUE(first.asArray().sharesWith(second.asArray()));
    second.arrayForWriting().set(9, 0);
    EXPECT_EQ(first.asArray()(0).asLong(), 1);
    EXPECT_EQ(second.asArray()(0).asLong(), 9);
}

TEST(Variant, ReachesAnArrayThroughReferences) {
    Variant inner = Array::of({1, 2});
    Variant outer = Variant::byRef(inner);
    outer.arrayForWriting().set(5, 1);
    EXPECT_EQ(inner.asArray()(1).asLong(), 5);
    EXPECT_THROW(Variant(3).arrayForWriting(), Error);
}
