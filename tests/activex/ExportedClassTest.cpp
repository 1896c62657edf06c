#include "activex/ExportedClass.h"
#include "activex/InterfaceTypes.h"
#include "host/Control.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using activex::ExportedClass;
using activex::exportedClass;
using activex::exportedClasses;
using activex::Guid;

TEST(ExportedClass, IdentifiersOfClassesAndInterfacesAreAllDifferent) {
    std::set<Guid> seen{activex::libraryId};
    for (const ExportedClass& each : exportedClasses()) {
        EXPECT_TRUE(seen.insert(each.id).second) << each.table().name().utf8();
        EXPECT_TRUE(seen.insert(each.interfaceId()).second) << each.table().name().utf8();
        EXPECT_TRUE(seen.insert(each.eventsId()).second) << each.table().name().utf8();
    }
    for (const auto* each : activex::interfaceTypes().enumerations())
        EXPECT_TRUE(seen.insert(activex::typeId(each->name())).second) << each->name().utf8();
    for (const auto* each : activex::interfaceTypes().records())
        EXPECT_TRUE(seen.insert(activex::typeId(each->name())).second) << each->name().utf8();
}

TEST(ExportedClass, ProgramsRememberTheseIdentifiers) {
    EXPECT_EQ(activex::libraryId.text(), "9c00e9bd-6f73-4e7c-b3b3-1e3c8ab12bcd");
    EXPECT_EQ(exportedClass(u"lbl")->id.text(), "005a2e3c-010c-46f3-80ad-34323d9f2e77");
    EXPECT_EQ(exportedClass(u"cFecha")->id.text(), "cfe57c10-eb09-49d7-99e5-fdcc34aab4a0");
    EXPECT_EQ(exportedClass(u"cFecha")->interfaceId().text(), "cfe57c11-eb09-49d7-99e5-fdcc34aab4a0");
    EXPECT_EQ(activex::typeId(u"tslDateConstants").text(), "469f1d62-a5cb-8b78-a060-ef3bab05ed37");
}

TEST(ExportedClass, IsFoundByNameWhateverItsCaseAndByIdentifierAndTable) {
    const ExportedClass* found = exportedClass(u"CFECHA");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(exportedClass(found->id), found);
    EXPECT_EQ(exportedClass(found->table()), found);
    EXPECT_EQ(exportedClass(u"cNada"), nullptr);
    EXPECT_EQ(exportedClass(Guid()), nullptr);
}

TEST(ExportedClass, MakesObjectsOfItsOwnTable) {
    for (const ExportedClass& each : exportedClasses()) {
        const auto object = each.create();
        EXPECT_EQ(&object->classTable(), &each.table()) << each.table().name().utf8();
        EXPECT_EQ(dynamic_cast<host::Control*>(object.get()) != nullptr, each.isControl)
            << each.table().name().utf8();
    }
}

TEST(Guid, ReadsWhatItWrites) {
    constexpr Guid id = Guid::parse("01234567-89ab-cdef-0123-456789abcdef");
    EXPECT_EQ(id.text(), "01234567-89ab-cdef-0123-456789abcdef");
    EXPECT_EQ(id.next(2).text(), "01234569-89ab-cdef-0123-456789abcdef");
}

TEST(PlainName, HasNoAccents) {
    EXPECT_EQ(activex::plainName(u"nAño"), u"nAno");
    EXPECT_EQ(activex::plainName(u"Período_ÁÉ"), u"Periodo_AE");
}

} // namespace
