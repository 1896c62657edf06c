// The type library that lies in the control library, compared with the member tables.

#include "activex/windows/ControlLibrary.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using activex::ComPointer;
using activex::ExportedClass;
using automation::Member;
using automation::MemberKind;
using automation::Parameter;
using automation::TypeDescription;

ComPointer<::ITypeLib> library() {
    ComPointer<::ITypeLib> result;
    ::LoadTypeLibEx(activex::wide(support::controlLibraryFile().c_str()), REGKIND_NONE, result.out());
    return result;
}

ComPointer<::ITypeInfo> typeOf(const activex::Guid& id) {
    ComPointer<::ITypeInfo> result;
    library()->GetTypeInfoOfGuid(activex::native(id), result.out());
    return result;
}

std::string taken(::BSTR text) {
    const std::string result = activex::fromBstr(text).utf8();
    ::SysFreeString(text);
    return result;
}

std::string nameOf(::ITypeInfo& type, ::MEMBERID member = MEMBERID_NIL) {
    ::BSTR name = nullptr;
    type.GetDocumentation(member, &name, nullptr, nullptr, nullptr);
    return taken(name);
}

std::string helpOf(::ITypeInfo& type, ::MEMBERID member = MEMBERID_NIL) {
    ::BSTR help = nullptr;
    type.GetDocumentation(member, nullptr, &help, nullptr, nullptr);
    return taken(help);
}

std::string plain(const automation::String& name) {
    return automation::String(activex::plainName(name)).utf8();
}

/// A description that is given back to its owner.
class Function {
public:
    Function(::ITypeInfo& type, ::UINT index) : type_(type) { type.GetFuncDesc(index, &description_); }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;
    ~Function() {
        if (description_) type_.ReleaseFuncDesc(description_);
    }
    const ::FUNCDESC* operator->() const { return description_; }
    explicit operator bool() const { return description_ != nullptr; }

private:
    ::ITypeInfo& type_;
    ::FUNCDESC* description_ = nullptr;
};

::TYPEATTR attributes(::ITypeInfo& type) {
    ::TYPEATTR* found = nullptr;
    type.GetTypeAttr(&found);
    const ::TYPEATTR copy = *found;
    type.ReleaseTypeAttr(found);
    return copy;
}

/// A type in words: "I4", "ref BSTR", "array of VARIANT", "tslDateConstants", "ref _cCanvas".
std::string words(::ITypeInfo& type, const ::TYPEDESC& description) {
    static const std::map<int, std::string> names{
        {VT_VOID, "void"},      {VT_BOOL, "BOOL"}, {VT_UI1, "UI1"},         {VT_I2, "I2"},
        {VT_I4, "I4"},          {VT_R4, "R4"},     {VT_R8, "R8"},           {VT_CY, "CY"},
        {VT_DATE, "DATE"},      {VT_BSTR, "BSTR"}, {VT_VARIANT, "VARIANT"}, {VT_DISPATCH, "object"},
        {VT_DECIMAL, "DECIMAL"}};
    if (description.vt == VT_PTR) return "ref " + words(type, *description.lptdesc);
    if (description.vt == VT_SAFEARRAY) return "array of " + words(type, *description.lptdesc);
    if (description.vt == VT_USERDEFINED) {
        ComPointer<::ITypeInfo> other;
        type.GetRefTypeInfo(description.hreftype, other.out());
        return other ? nameOf(*other.get()) : "lost";
    }
    const auto found = names.find(description.vt);
    return found == names.end() ? "type " + std::to_string(description.vt) : found->second;
}

std::string words(const TypeDescription& type) {
    static const std::map<int, std::string> names{
        {VT_VOID, "void"},      {VT_BOOL, "BOOL"}, {VT_UI1, "UI1"},         {VT_I2, "I2"},
        {VT_I4, "I4"},          {VT_R4, "R4"},     {VT_R8, "R8"},           {VT_CY, "CY"},
        {VT_DATE, "DATE"},      {VT_BSTR, "BSTR"}, {VT_VARIANT, "VARIANT"}, {VT_DISPATCH, "object"},
        {VT_DECIMAL, "DECIMAL"}};
    if (type.tag & VT_ARRAY) return "array of " + names.at(type.tag & VT_TYPEMASK);
    if (type.enumeration) return plain(type.enumeration().name());
    if (type.record) return plain(type.record().name());
    if (!type.classTable) return names.at(type.tag);
    if (&type.classTable() == &host::StdFont::table()) return "ref Font";
    if (&type.classTable() == &host::Picture::table()) return "ref Picture";
    const ExportedClass* exported = activex::exportedClass(type.classTable());
    return exported ? "ref " + automation::String(exported->interfaceName()).utf8() : "object";
}

std::string words(const Parameter& parameter) {
    if (parameter.parameterArray) return "ref array of VARIANT";
    const bool reference =
        parameter.byReference || parameter.type.record || (parameter.type.tag & VT_ARRAY) != 0;
    return (reference ? "ref " : "") + words(parameter.type);
}

void compareDefault(const Parameter& parameter, const ::PARAMDESC& description) {
    const bool has = (description.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0;
    switch (parameter.type.tag) {
    case VT_BSTR:
    case VT_I4:
    case VT_I2:
    case VT_UI1:
    case VT_BOOL:
        break;
    default:
        EXPECT_FALSE(has);
        return;
    }
    ASSERT_TRUE(has);
    const automation::Variant value = activex::fromSystem(description.pparamdescex->varDefaultValue);
    const bool stated = !parameter.defaultValue.isMissing();
    if (parameter.type.tag == VT_BSTR) {
        EXPECT_EQ(automation::CStr(value), stated ? automation::CStr(parameter.defaultValue) : u"");
    } else {
        EXPECT_EQ(automation::CDbl(value), stated ? automation::CDbl(parameter.defaultValue) : 0);
    }
}

void compareParameters(::ITypeInfo& type, const Function& function,
                       const std::vector<Parameter>& parameters) {
    ASSERT_EQ(function->cParams, static_cast<SHORT>(parameters.size()));
    std::vector<::BSTR> names(parameters.size() + 1);
    ::UINT count = 0;
    type.GetNames(function->memid, names.data(), static_cast<::UINT>(names.size()), &count);
    std::vector<std::string> texts;
    for (::UINT i = 0; i < count; ++i)
        texts.push_back(taken(names[i]));
    const bool writes = (function->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        SCOPED_TRACE(parameters[i].name.utf8());
        const ::ELEMDESC& element = function->lprgelemdescParam[i];
        EXPECT_EQ(words(type, element.tdesc), words(parameters[i]));
        EXPECT_EQ((element.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0, parameters[i].optional);
        EXPECT_EQ((element.paramdesc.wParamFlags & PARAMFLAG_FOUT) != 0,
                  parameters[i].byReference || (parameters[i].type.tag & VT_ARRAY) != 0);
        if (parameters[i].optional) compareDefault(parameters[i], element.paramdesc);
        // Names are kept without regard to their case, and that of a new value is not given.
        if (!writes && i + 1 < texts.size()) {
            EXPECT_EQ(::lstrcmpiA(texts[i + 1].c_str(), plain(parameters[i].name).c_str()), 0);
        }
    }
}

int kindOf(MemberKind kind) {
    switch (kind) {
    case MemberKind::Get:
        return INVOKE_PROPERTYGET;
    case MemberKind::Let:
        return INVOKE_PROPERTYPUT;
    case MemberKind::Set:
        return INVOKE_PROPERTYPUTREF;
    default:
        return INVOKE_FUNC;
    }
}

void compareField(::ITypeInfo& type, ::UINT& index, const Member& member) {
    const Function read(type, index++);
    const Function write(type, index++);
    ASSERT_TRUE(read && write);
    EXPECT_EQ(read->memid, member.id);
    EXPECT_EQ(write->memid, member.id);
    EXPECT_EQ(read->invkind, INVOKE_PROPERTYGET);
    EXPECT_EQ(write->invkind, INVOKE_PROPERTYPUT);
    EXPECT_EQ(words(type, read->elemdescFunc.tdesc), words(member.result));
}

void compareMember(::ITypeInfo& type, ::UINT& index, const Member& member) {
    if (member.kind == MemberKind::Field) return compareField(type, index, member);
    const Function function(type, index++);
    ASSERT_TRUE(function);
    EXPECT_EQ(function->memid, member.id);
    EXPECT_EQ(function->invkind, kindOf(member.kind));
    EXPECT_EQ(words(type, function->elemdescFunc.tdesc), words(member.result));
    EXPECT_EQ((function->wFuncFlags & FUNCFLAG_FHIDDEN) != 0, member.hidden);
    EXPECT_EQ(helpOf(type, function->memid), plain(member.help));
    compareParameters(type, function, member.parameters);
}

void compareInterface(const ExportedClass& exported, bool events) {
    const auto type = typeOf(events ? exported.eventsId() : exported.interfaceId());
    ASSERT_TRUE(type);
    EXPECT_EQ(nameOf(*type.get()),
              automation::String(events ? exported.eventsName() : exported.interfaceName()).utf8());
    EXPECT_EQ(attributes(*type.get()).typekind, TKIND_DISPATCH);
    ::UINT index = 0;
    for (const Member& member : exported.table().members()) {
        if ((member.kind == MemberKind::Event) != events) continue;
        SCOPED_TRACE(member.name.utf8());
        compareMember(*type.get(), index, member);
        EXPECT_EQ(::lstrcmpiA(nameOf(*type.get(), member.id).c_str(), plain(member.name).c_str()), 0);
    }
    // The type library counts the members of IDispatch too, where a reader asks for them.
    EXPECT_EQ(attributes(*type.get()).cFuncs, index);
}

TEST(TypeLibrary, LiesInTheControlLibrary) {
    ASSERT_TRUE(library());
    ::BSTR name = nullptr;
    library()->GetDocumentation(-1, &name, nullptr, nullptr, nullptr);
    EXPECT_EQ(taken(name), "TeselaControls_basicos");
    ::TLIBATTR* found = nullptr;
    library()->GetLibAttr(&found);
    EXPECT_EQ(activex::fromNative(found->guid), activex::libraryId);
    EXPECT_EQ(found->wMajorVerNum, activex::libraryMajor);
    EXPECT_EQ(found->wMinorVerNum, activex::libraryMinor);
    library()->ReleaseTLibAttr(found);
}

TEST(TypeLibrary, TellsTheMembersOfEachClassAsItsTableDoes) {
    for (const ExportedClass& each : activex::exportedClasses()) {
        SCOPED_TRACE(each.table().name().utf8());
        compareInterface(each, false);
    }
}

TEST(TypeLibrary, TellsTheEventsOfEachClassAsItsTableDoes) {
    for (const ExportedClass& each : activex::exportedClasses()) {
        if (!each.hasEvents()) continue;
        SCOPED_TRACE(each.table().name().utf8());
        compareInterface(each, true);
    }
}

TEST(TypeLibrary, TellsOfEachClassItsInterfaceItsEventsAndWhatItIs) {
    for (const ExportedClass& each : activex::exportedClasses()) {
        SCOPED_TRACE(each.table().name().utf8());
        const auto type = typeOf(each.id);
        ASSERT_TRUE(type);
        const ::TYPEATTR found = attributes(*type.get());
        EXPECT_EQ(found.typekind, TKIND_COCLASS);
        EXPECT_EQ(nameOf(*type.get()), each.table().name().utf8());
        EXPECT_EQ(helpOf(*type.get()), plain(each.table().help()));
        EXPECT_EQ((found.wTypeFlags & TYPEFLAG_FCONTROL) != 0, each.isControl);
        ASSERT_EQ(found.cImplTypes, each.hasEvents() ? 2 : 1);
        for (::UINT i = 0; i < found.cImplTypes; ++i) {
            int flags = 0;
            type->GetImplTypeFlags(i, &flags);
            EXPECT_EQ(flags, i == 0 ? IMPLTYPEFLAG_FDEFAULT : IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
        }
    }
}

TEST(TypeLibrary, TellsTheConstantsOfEachEnumeration) {
    for (const automation::Enumeration* each : activex::interfaceTypes().enumerations()) {
        SCOPED_TRACE(each->name().utf8());
        const auto type = typeOf(activex::typeId(each->name()));
        ASSERT_TRUE(type);
        EXPECT_EQ(attributes(*type.get()).typekind, TKIND_ENUM);
        ASSERT_EQ(attributes(*type.get()).cVars, each->entries().size());
        for (::UINT i = 0; i < each->entries().size(); ++i) {
            ::VARDESC* constant = nullptr;
            type->GetVarDesc(i, &constant);
            EXPECT_EQ(nameOf(*type.get(), constant->memid), plain(each->entries()[i].name));
            EXPECT_EQ(automation::CLng(activex::fromSystem(*constant->lpvarValue)), each->entries()[i].value);
            type->ReleaseVarDesc(constant);
        }
    }
}

TEST(TypeLibrary, TellsTheFieldsOfEachRecord) {
    for (const automation::RecordTable* each : activex::interfaceTypes().records()) {
        SCOPED_TRACE(each->name().utf8());
        const auto type = typeOf(activex::typeId(each->name()));
        ASSERT_TRUE(type);
        EXPECT_EQ(attributes(*type.get()).typekind, TKIND_RECORD);
        ASSERT_EQ(attributes(*type.get()).cVars, each->fields().size());
        for (::UINT i = 0; i < each->fields().size(); ++i) {
            ::VARDESC* field = nullptr;
            type->GetVarDesc(i, &field);
            EXPECT_EQ(nameOf(*type.get(), field->memid), plain(each->fields()[i].name));
            EXPECT_EQ(words(*type.get(), field->elemdescVar.tdesc), words(each->fields()[i].type));
            type->ReleaseVarDesc(field);
        }
    }
}

} // namespace
