#include "fichas/window/NameIndex.h"

#include "FakeSource.h"
#include "support/Started.h"

using automation::Variant;
using fichas::Column;
using fichas::ColumnType;
using fichas::NameIndex;

namespace {

class NameIndexTest : public support::Started {
protected:
    static NameIndex indexOf(const std::vector<Variant>& names) {
        std::vector<std::vector<Variant>> rows;
        for (const Variant& name : names)
            rows.push_back({name});
        tests::FakeSource source({{u"nombre"}}, rows);
        return NameIndex(source, 0);
    }
};

std::optional<std::size_t> nameColumnOf(const std::vector<Column>& columns) {
    return fichas::nameColumn(columns);
}

} // namespace

TEST_F(NameIndexTest, TheColumnOfTheNameIsTheOneThatIsCalledSo) {
    EXPECT_EQ(1u, nameColumnOf({{u"código"}, {u"Nombre y apellidos"}, {u"nombre"}}));
    EXPECT_EQ(2u, nameColumnOf({{u"id", ColumnType::Integer}, {u"código"}, {u"DESCRIPCIÓN"}}));
    EXPECT_EQ(2u, nameColumnOf({{u"nombre", ColumnType::Integer}, {u"n", ColumnType::Number}, {u"código"}}))
        << "the first with text";
    EXPECT_FALSE(nameColumnOf({{u"nombre", ColumnType::Date}}));
    EXPECT_FALSE(nameColumnOf({}));
}

TEST_F(NameIndexTest, TheFirstNameInTheOrderThatBeginsSoIsFound) {
    const NameIndex index =
        indexOf({u"Zapata", u"Álvarez", u"Marta", u"alba", u"María", u"ñu", u"nube", u"Marta"});
    const struct {
        const char16_t* start;
        std::int64_t record;
    } cases[] = {{u"m", 5},   {u"MART", 3}, {u"marta", 3}, {u"a", 4},   {u"al", 4},    {u"alv", 2},
                 {u"álv", 2}, {u"n", 7},    {u"ñ", 6},     {u"zap", 1}, {u"zapata", 1}};
    for (const auto& each : cases) {
        const auto found = index.seek(each.start);
        ASSERT_TRUE(found) << automation::String(each.start).utf8();
        EXPECT_TRUE(found->begins) << automation::String(each.start).utf8();
        EXPECT_EQ(each.record, found->record) << automation::String(each.start).utf8();
    }
}

TEST_F(NameIndexTest, WhereNoNameBeginsSoTheNextOneIsFound) {
    const NameIndex index = indexOf({u"Zapata", u"Marta", u"Alba"});
    const struct {
        const char16_t* start;
        std::int64_t record;
    } cases[] = {{u"1", 3}, {u"ab", 3}, {u"alc", 2}, {u"martas", 1}, {u"z", 1}, {u"t", 1}};
    for (const auto& each : cases) {
        const auto found = index.seek(each.start);
        ASSERT_TRUE(found) << automation::String(each.start).utf8();
        EXPECT_EQ(automation::String(each.start) == u"z", found->begins);
        EXPECT_EQ(each.record, found->record) << automation::String(each.start).utf8();
    }
    EXPECT_FALSE(index.seek(u"zb"));
    EXPECT_FALSE(index.seek(u"þ"));
}

TEST_F(NameIndexTest, RecordsWithoutANameAreLeftOut) {
    const NameIndex index = indexOf({Variant::null(), u"Eva", Variant::null()});
    ASSERT_TRUE(index.seek(u"e"));
    EXPECT_EQ(2, index.seek(u"e")->record);
    EXPECT_FALSE(indexOf({}).seek(u"a"));
    EXPECT_FALSE(indexOf({Variant::null()}).seek(u"a"));
}

TEST_F(NameIndexTest, AllNamesOfALongTableAreFound) {
    std::vector<Variant> names;
    for (int i = 0; i < 5000; ++i) // in an order that has nothing to do with theirs
        names.emplace_back(u"Cliente " + std::u16string(1, static_cast<char16_t>(u'A' + i * 7 % 26)) +
                           automation::String::fromUtf8(std::to_string(i * 7919 % 5000)).string());
    const NameIndex index = indexOf(names);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto found = index.seek(names[i].asString());
        ASSERT_TRUE(found && found->begins);
        const auto& name = names[static_cast<std::size_t>(found->record - 1)].asString();
        ASSERT_TRUE(name.view().starts_with(names[i].asString()))
            << name.utf8() << names[i].asString().utf8();
    }
}
