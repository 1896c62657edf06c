#include "automation/ClassTable.h"

#include "automation/LateBound.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

using namespace automation;

namespace {

enum Style : std::int32_t { styleFlat, styleRaised };

const Enumeration& enumerationOf(Style) {
    static const Enumeration table("StyleConstants",
                                   {{"styleFlat", styleFlat}, {"styleRaised", styleRaised}});
    return table;
}

struct Interval {
    Date from;
    std::int32_t days = 0;
};

const RecordTable& recordOf(const Interval*) {
    static const RecordTable table =
        RecordTable::of<Interval>("Interval").field("dFrom", &Interval::from).field("nDays", &Interval::days);
    return table;
}

/// Members that come from a base which is no object itself.
class Named {
public:
    String Alias() const { return alias_; }
    void Alias(const String& alias) { alias_ = alias; }

private:
    String alias_;
};

class Person final : public Object, public Named {
public:
    static const ClassTable& table();
    const ClassTable& classTable() const override { return table(); }

    String Name() const { return name_; }
    void Name(const String& name) { name_ = name; }
    std::int32_t Id() const { return 42; }
    Style Look() const { return look_; }
    void Look(Style look) { look_ = look; }
    Ref<Person> Parent() const { return parent_; }
    void Parent(Ref<Person> parent) { parent_ = std::move(parent); }
    Variant Slot(std::int32_t index) const { return slots_[index]; }
    void Slot(std::int32_t index, const Variant& value) { slots_[index] = value; }
    Variant Numbers() const { return Array::of({10, 20, 30}); }
    void Secret(double value) { secret = value; }

    std::int32_t Sum(std::int32_t a, std::int32_t b, std::int32_t c) const { return 100 * a + 10 * b + c; }
    void Swap(std::int32_t& a, String& b) {
        const std::int32_t old = a;
        a = static_cast<std::int32_t>(b.length());
        b = String::repeat(u'x', static_cast<std::size_t>(old));
    }
    bool Given(const Variant& value) { return !value.isMissing(); }
    String Join(std::u16string_view separator, const ParamArray& parts) {
        String result;
        for (const Variant& part : parts)
            result += (result.empty() ? String() : String(separator)) + argumentToString(part);
        return result;
    }
    void Count(ParamArray parts) {
        for (Variant& part : parts)
            part.store(static_cast<std::int32_t>(parts.size()));
    }
    std::int32_t Zero(std::int32_t number, const String& text, bool flag) {
        return number + static_cast<std::int32_t>(text.length()) + (flag ? 1 : 0);
    }
    Interval Longer(Interval& interval) {
        ++interval.days;
        return interval;
    }
    void Fail() { throw Error(513, u"Fallo propio"); }
    std::int32_t nAñoCompletar() const { return -1; }

    std::int32_t live = 0;
    double secret = 0;
    Event<const String&> Changed;

private:
    String name_ = u"Ana";
    Style look_ = styleFlat;
    Ref<Person> parent_;
    mutable std::map<std::int32_t, Variant> slots_;
};

const ClassTable& Person::table() {
    static const ClassTable table =
        ClassTable::of<Person>("Person")
            .help("A person of the tests")
            .property("Name", &Person::Name, &Person::Name)
            .defaultMember()
            .help("Full name")
            .get("Id", &Person::Id)
            .property("Look", &Person::Look, &Person::Look)
            .property("Parent", &Person::Parent, &Person::Parent)
            .property("Slot", &Person::Slot, &Person::Slot, {"nIndex"})
            .property("Alias", &Person::Alias, &Person::Alias)
            .get("Numbers", &Person::Numbers)
            .let("Secret", &Person::Secret)
            .method("Sum", &Person::Sum, {"a", "b", optional("c", 3)})
            .method<&Person::Swap>("Swap", {"a", "b"})
            .method("Given", &Person::Given, {optional("xValue")})
            .method("Join", &Person::Join, {"cSeparator", "aParts"})
            .method("Count", &Person::Count, {"aParts"})
            .method("Zero", &Person::Zero, {optional("n"), optional("c"), optional("l")})
            .method("Longer", &Person::Longer, {"xInterval"})
            .method("Fail", &Person::Fail)
            .hidden()
            .method("nA\xC3\xB1oCompletar", &Person::nAñoCompletar)
            .field("Live", &Person::live)
            .event("Changed", &Person::Changed, {"cWhat"});
    return table;
}

std::int32_t errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

Variant named(Object& object, std::u16string_view method, std::vector<Variant> positional,
              std::vector<NamedArgument> byName) {
    return object.invokeByName(method, CallKind::Method, {positional, byName});
}

} // namespace

TEST(ClassTable, FindsMembersWhateverTheCase) {
    Person person;
    EXPECT_EQ(getProperty(person, u"id").asLong(), 42);
    EXPECT_EQ(getProperty(person, u"ID").asLong(), 42);
    EXPECT_EQ(callMethod(person, u"NAÑOCOMPLETAR").asLong(), -1);
    EXPECT_EQ(callMethod(person, u"nañocompletar").asLong(), -1);
    EXPECT_EQ(person.memberId(u"NoSuchMember"), DISPID_UNKNOWN);
    EXPECT_EQ(errorOf([&] { callMethod(person, u"NoSuchMember"); }), 438);
}

TEST(ClassTable, ReadsAndWritesProperties) {
    Person person;
    letProperty(person, u"name", u"Eva");
    EXPECT_EQ(getProperty(person, u"Name").asString(), u"Eva");
    letProperty(person, u"Name", 12);
    EXPECT_EQ(person.Name(), u"12") << "values are converted to the property's type";
    letProperty(person, u"Alias", u"clientes");
    EXPECT_EQ(person.Alias(), u"clientes") << "members of a base";
    letProperty(person, u"Live", u"7");
    EXPECT_EQ(person.live, 7);
    EXPECT_EQ(getProperty(person, u"Live").asLong(), 7);
    letProperty(person, u"Secret", 2.5);
    EXPECT_EQ(person.secret, 2.5);
}

TEST(ClassTable, WritesAndReadsPropertiesWithArguments) {
    Person person;
    letProperty(person, u"Slot", 3, u"tres");
    EXPECT_EQ(getProperty(person, u"Slot", 3).asString(), u"tres");
    EXPECT_TRUE(getProperty(person, u"Slot", 4).isEmpty());
    EXPECT_EQ(errorOf([&] { getProperty(person, u"Slot"); }), 449);
    EXPECT_EQ(errorOf([&] { letProperty(person, u"Slot", u"tres"); }), 449);
}

TEST(ClassTable, RefusesKindsThatAMemberDoesNotHave) {
    Person person;
    EXPECT_EQ(errorOf([&] { letProperty(person, u"Id", 1); }), 438);
    EXPECT_EQ(errorOf([&] { getProperty(person, u"Secret"); }), 438);
    EXPECT_EQ(errorOf([&] { letProperty(person, u"Sum", 1); }), 438);
}

TEST(ClassTable, TakesObjectsByReferenceAndNothing) {
    const Ref<Person> child = make<Person>();
    const Ref<Person> parent = make<Person>();
    setProperty(*child, u"Parent", parent);
    EXPECT_EQ(child->Parent().get(), parent.get());
    EXPECT_EQ(getProperty(*child, u"Parent").asObject().get(), parent.get());
    setProperty(*child, u"Parent", Variant::nothing());
    EXPECT_FALSE(child->Parent());
    EXPECT_EQ(errorOf([&] { setProperty(*child, u"Parent", 5); }), 13);
}

TEST(ClassTable, PlacesPositionalNamedAndOptionalArguments) {
    Person person;
    EXPECT_EQ(callMethod(person, u"Sum", 1, 2, 4).asLong(), 124);
    EXPECT_EQ(callMethod(person, u"Sum", 1, 2).asLong(), 123) << "the stated default";
    EXPECT_EQ(callMethod(person, u"Sum", 1, 2, Variant::missing()).asLong(), 123);
    EXPECT_EQ(named(person, u"Sum", {}, {{u"C", 7}, {u"a", 1}, {u"b", 2}}).asLong(), 127);
    EXPECT_EQ(named(person, u"Sum", {5}, {{u"b", 6}}).asLong(), 563);
    EXPECT_EQ(callMethod(person, u"Sum", u"1", 2.5, true).asLong(), 119) << "converted, half to even";
}

TEST(ClassTable, RaisesTheErrorsOfWrongArguments) {
    Person person;
    EXPECT_EQ(errorOf([&] { callMethod(person, u"Sum", 1); }), 449);
    EXPECT_EQ(errorOf([&] { callMethod(person, u"Sum", Variant::missing(), 2); }), 449);
    EXPECT_EQ(errorOf([&] { callMethod(person, u"Sum", 1, 2, 3, 4); }), 450);
    EXPECT_EQ(errorOf([&] { named(person, u"Sum", {1, 2}, {{u"d", 3}}); }), 448);
    EXPECT_EQ(errorOf([&] { named(person, u"Sum", {1, 2}, {{u"a", 3}}); }), 448) << "given twice";
    EXPECT_EQ(errorOf([&] { callMethod(person, u"Sum", u"uno", 2); }), 13);
    EXPECT_EQ(errorOf([&] { callMethod(person, u"Sum", 1e10, 2); }), 6);
    EXPECT_EQ(errorOf([&] { callMethod(person, u"Sum", Variant::null(), 2); }), 94);
    EXPECT_EQ(errorOf([&] { callMethod(person, u"Fail"); }), 513);
}

TEST(ClassTable, WritesByReferenceArgumentsBack) {
    Person person;
    std::int32_t number = 3;
    String text = u"abcd";
    callMethod(person, u"Swap", Variant::byRef(number), Variant::byRef(text));
    EXPECT_EQ(number, 4);
    EXPECT_EQ(text, u"xxx");

    Variant anyNumber = std::int16_t{2};
    Variant anyText = u"z";
    callMethod(person, u"Swap", Variant::byRef(anyNumber), Variant::byRef(anyText));
    EXPECT_EQ(anyNumber.asLong(), 1) << "a Variant takes the member's type";
    EXPECT_EQ(anyText.asString(), u"xx");

    double wide = 5;
    callMethod(person, u"Swap", Variant::byRef(wide), u"constant");
    EXPECT_EQ(wide, 8.0) << "another type is converted back";
}

TEST(ClassTable, PassesRecordsByReference) {
    Person person;
    Ref<Record> record = recordOf(static_cast<const Interval*>(nullptr)).create();
    record->putField(u"nDays", 4);
    const Variant result = callMethod(person, u"Longer", Variant::byRef(record));
    EXPECT_EQ(record->field(u"nDays").asLong(), 5);
    EXPECT_EQ(result.asRecord()->field(u"NDAYS").asLong(), 5);
    EXPECT_EQ(errorOf([&] { callMethod(person, u"Longer", 5); }), 13);
}

TEST(ClassTable, LeavesOptionalArgumentsAtTheirZeroOrMissing) {
    Person person;
    EXPECT_FALSE(callMethod(person, u"Given").asBoolean());
    EXPECT_TRUE(callMethod(person, u"Given", Variant()).asBoolean());
    EXPECT_EQ(callMethod(person, u"Zero").asLong(), 0);
    EXPECT_EQ(callMethod(person, u"Zero", Variant::missing(), u"ab", true).asLong(), 3);
}

TEST(ClassTable, CollectsAParameterArray) {
    Person person;
    EXPECT_EQ(callMethod(person, u"Join", u"-", 1, u"b", std::uint8_t{2}).asString(), u"1-b-2");
    EXPECT_EQ(callMethod(person, u"Join", u"-").asString(), u"");
    std::int32_t first = 0;
    Variant second;
    callMethod(person, u"Count", Variant::byRef(first), Variant::byRef(second), 9);
    EXPECT_EQ(first, 3);
    EXPECT_EQ(second.asLong(), 3);
    EXPECT_EQ(person.Join(u"+", {1, 2}), u"1+2") << "from C++";
}

TEST(ClassTable, ResolvesDefaultMembers) {
    const Ref<Person> person = make<Person>();
    EXPECT_EQ(value(person).asString(), u"Ana");
    Variant held = person;
    EXPECT_EQ(value(Variant::byRef(held)).asString(), u"Ana");
    EXPECT_EQ(errorOf([] { value(Variant::nothing()); }), 91);
    EXPECT_EQ(callMethod(*person, u"Join", u"/", person).asString(), u"Ana")
        << "an object where text is wanted";
}

TEST(ClassTable, IndexesWhatAPropertyWithoutArgumentsGives) {
    Person person;
    EXPECT_EQ(getProperty(person, u"Numbers", 1).asLong(), 20);
    EXPECT_EQ(errorOf([&] { getProperty(person, u"Numbers", 3); }), 9);
    EXPECT_EQ(errorOf([&] { getProperty(person, u"Id", 1); }), 450);
}

TEST(ClassTable, NeedsAnObjectToCall) {
    EXPECT_EQ(errorOf([] { callMethod(Variant(3), u"Sum"); }), 424);
    EXPECT_EQ(errorOf([] { callMethod(Variant::nothing(), u"Sum"); }), 91);
}

TEST(ClassTable, KeepsAllItWasTold) {
    const ClassTable& table = Person::table();
    EXPECT_EQ(table.name(), u"Person");
    EXPECT_EQ(table.help(), u"A person of the tests");
    const Member* name = table.member(DISPID_VALUE, CallKind::Get);
    ASSERT_NE(name, nullptr);
    EXPECT_TRUE(name->isDefault);
    EXPECT_EQ(name->help, u"Full name");
    EXPECT_EQ(name->result.tag, VT_BSTR);
    EXPECT_EQ(table.member(DISPID_VALUE, CallKind::Let)->parameters.size(), 1u);

    const Member* look = table.member(table.find(u"Look"), CallKind::Get);
    ASSERT_NE(look->result.enumeration, nullptr);
    EXPECT_EQ(look->result.enumeration().name(), u"StyleConstants");
    EXPECT_EQ(look->result.enumeration().find(u"STYLERAISED"), styleRaised);

    const Member* parent = table.member(table.find(u"Parent"), CallKind::Set);
    EXPECT_EQ(parent->kind, MemberKind::Set);
    ASSERT_NE(parent->parameters.back().type.classTable, nullptr);
    EXPECT_EQ(&parent->parameters.back().type.classTable(), &table);

    const Member* swap = table.member(table.find(u"Swap"), CallKind::Method);
    EXPECT_TRUE(swap->parameters[0].byReference);
    EXPECT_EQ(swap->parameters[0].name, u"a");
    EXPECT_EQ(swap->result.tag, VT_VOID);

    const Member* join = table.member(table.find(u"Join"), CallKind::Method);
    EXPECT_TRUE(join->parameters[1].parameterArray);
    EXPECT_FALSE(join->parameters[1].byReference);

    const Member* sum = table.member(table.find(u"Sum"), CallKind::Method);
    EXPECT_TRUE(sum->parameters[2].optional);
    EXPECT_EQ(sum->parameters[2].defaultValue.asLong(), 3);
    EXPECT_TRUE(table.member(table.find(u"Fail"), CallKind::Method)->hidden);

    const Member* longer = table.member(table.find(u"Longer"), CallKind::Method);
    ASSERT_NE(longer->result.record, nullptr);
    EXPECT_EQ(longer->result.record().fields().size(), 2u);

    const Member* changed = table.event(u"changed");
    ASSERT_NE(changed, nullptr);
    EXPECT_EQ(changed->id, 1);
    EXPECT_EQ(changed->parameters[0].name, u"cWhat");
}

TEST(ClassTable, NumbersMembersInTheirOrder) {
    const ClassTable& table = Person::table();
    std::int32_t last = 0;
    for (const Member& member : table.members()) {
        if (member.kind == MemberKind::Event || member.isDefault) continue;
        EXPECT_GE(member.id, last) << member.name.utf8();
        last = member.id;
    }
    EXPECT_EQ(table.members().front().name, u"Name");
    EXPECT_EQ(table.members().back().name, u"Changed");
}

TEST(ClassTable, RefusesMoreNamesThanAFunctionHasArguments) {
    EXPECT_EQ(
        errorOf([] { const ClassTable table = ClassTable::of<Person>("x").get("Id", &Person::Id, {"a"}); }),
        450);
}

TEST(Object, OnTheStackOutlivesReferencesToIt) {
    Person person;
    {
        const Ref<Object> reference(&person);
        EXPECT_EQ(person.referenceCount(), 2);
    }
    EXPECT_EQ(person.referenceCount(), 1);
    EXPECT_EQ(person.Name(), u"Ana");
}

TEST(Enumeration, FindsNamesAndValues) {
    const Enumeration& table = enumerationOf(styleFlat);
    EXPECT_EQ(table.nameOf(1), u"styleRaised");
    EXPECT_EQ(table.nameOf(7), u"");
    EXPECT_FALSE(table.find(u"styleSunken").has_value());
}
