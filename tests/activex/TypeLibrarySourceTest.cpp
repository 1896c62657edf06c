#include "activex/TypeLibrarySource.h"
#include "activex/ExportedClass.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using activex::ExportedClass;

const std::string& source() {
    static const std::string text = activex::typeLibrarySource();
    return text;
}

bool has(const std::string& piece) {
    return source().find(piece) != std::string::npos;
}

TEST(TypeLibrarySource, NamesTheMembersOfAClassInTheOrderOfItsTable) {
    for (const ExportedClass& each : activex::exportedClasses()) {
        const std::string name = each.table().name().utf8();
        std::size_t place = source().find("dispinterface _" + name + " {");
        ASSERT_NE(place, std::string::npos) << name;
        for (const automation::Member& member : each.table().members()) {
            if (member.kind == automation::MemberKind::Event) continue;
            place =
                source().find(" " + automation::String(activex::plainName(member.name)).utf8() + "(", place);
            ASSERT_NE(place, std::string::npos) << name << "." << member.name.utf8();
        }
    }
}

TEST(TypeLibrarySource, HasEventsInAnInterfaceOfTheirOwn) {
    EXPECT_TRUE(has("dispinterface __lbl {"));
    EXPECT_TRUE(has("[default, source] dispinterface __lbl;"));
    EXPECT_FALSE(has("dispinterface __cFecha"));
}

TEST(TypeLibrarySource, StatesKindsDefaultsAndReferences) {
    EXPECT_TRUE(has("[id(0), propget] DATE Value()"));
    EXPECT_TRUE(has("[id(0), propput] void Value([in] DATE Valor)"));
    EXPECT_TRUE(has("[in, out, optional, defaultvalue(-1)] tslDataFormatConstants* nFormato"));
    EXPECT_TRUE(has("propget] Font* Font()"));
    EXPECT_TRUE(has("propputref] void Canvas([in] _cCanvas* Valor)"));
}

TEST(TypeLibrarySource, TellsTheElementsOfArraysWhichAreVariablesOfTheCaller) {
    EXPECT_TRUE(has("propget] SAFEARRAY(unsigned char) Raw()"));
    EXPECT_TRUE(has("VARIANT_BOOL WriteBinary([in, out] SAFEARRAY(unsigned char)* aBinArray, "));
    EXPECT_TRUE(has("VARIANT_BOOL ReadBinary([in, out] SAFEARRAY(unsigned char)* aBinArray, "));
    EXPECT_TRUE(has("Picture* Bytes2Picture([in, out] SAFEARRAY(unsigned char)* aBytes)"));
    EXPECT_TRUE(has("long Polygon([in] long nVertices, [in, out] SAFEARRAY(long)* aXCoord, "
                    "[in, out] SAFEARRAY(long)* aYCoord)"));
    EXPECT_TRUE(has("[in, out] SAFEARRAY(long)* aWidths"));
    EXPECT_TRUE(has("VARIANT_BOOL DataFromArray([in, out] SAFEARRAY(VARIANT)* aNew)"));
    EXPECT_TRUE(has("SAFEARRAY(VARIANT) GetArray()"));
    EXPECT_TRUE(has("void AddRow([in, out] SAFEARRAY(VARIANT)* aRow)"));
}

TEST(TypeLibrarySource, TellsEnumerationsWithTheirValuesEvenThoseNoMemberNames) {
    EXPECT_TRUE(
        has("enum tslSchemeConstants {\n        tslSchemeUseActual = 0,\n        tslSchemeUseAmbient = 1,"));
    EXPECT_TRUE(has("tslCtlUserDrawnMode_Foreground = 2,"));
}

TEST(TypeLibrarySource, IsPlainText) {
    EXPECT_TRUE(std::all_of(source().begin(), source().end(),
                            [](char c) { return c == '\n' || (c >= ' ' && c < 127); }));
    EXPECT_TRUE(has(" nAno"));
}

} // namespace
