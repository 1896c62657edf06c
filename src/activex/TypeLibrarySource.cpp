#include "activex/TypeLibrarySource.h"

#include "activex/ExportedClass.h"
#include "activex/InterfaceTypes.h"
#include "host/Picture.h"
#include "host/StdFont.h"

namespace activex {

using automation::ClassTable;
using automation::Member;
using automation::MemberKind;
using automation::Parameter;
using automation::RecordTable;
using automation::String;
using automation::TypeDescription;
using automation::Variant;
using automation::VARTYPE;

namespace {

std::string utf8(std::u16string_view text) {
    return String(text).utf8();
}

/// A name of the tables as an identifier of the language.
std::string identifier(std::u16string_view name) {
    return utf8(plainName(name));
}

/// Text between quotes. The type library has no more than ASCII letters.
std::string quoted(std::u16string_view text) {
    std::string result = "\"";
    for (const char16_t unit : plainName(text)) {
        if (unit == u'"' || unit == u'\\') result += '\\';
        result += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    return result + "\"";
}

std::string plainType(VARTYPE tag) {
    switch (tag) {
    case automation::VT_VOID:
        return "void";
    case automation::VT_BOOL:
        return "VARIANT_BOOL";
    case automation::VT_UI1:
        return "unsigned char";
    case automation::VT_I2:
        return "short";
    case automation::VT_I4:
        return "long";
    case automation::VT_R4:
        return "float";
    case automation::VT_R8:
        return "double";
    case automation::VT_CY:
        return "CURRENCY";
    case automation::VT_DATE:
        return "DATE";
    case automation::VT_DECIMAL:
        return "DECIMAL";
    case automation::VT_BSTR:
        return "BSTR";
    case automation::VT_DISPATCH:
        return "IDispatch*";
    default:
        return "VARIANT";
    }
}

/// Fonts and pictures have interfaces of the system, objects of this library their own; any other object is
/// only known by its members' names.
std::string objectType(const ClassTable& table) {
    if (&table == &host::StdFont::table()) return "Font*";
    if (&table == &host::Picture::table()) return "Picture*";
    const ExportedClass* found = exportedClass(table);
    return found ? identifier(found->interfaceName()) + "*" : "IDispatch*";
}

std::string typeName(const TypeDescription& type) {
    if (type.tag & automation::VT_ARRAY)
        return "SAFEARRAY(" + plainType(type.tag & automation::VT_TYPEMASK) + ")";
    if (type.enumeration) return identifier(type.enumeration().name());
    if (type.record) return identifier(type.record().name());
    if (type.classTable) return objectType(type.classTable());
    return plainType(type.tag);
}

/// The default as the interface compiler can write it; empty where it cannot. Defaults of Variants, real
/// numbers and dates are known to the object alone, to which the argument is then missing.
std::string defaultText(const Parameter& parameter) {
    const Variant& value = parameter.defaultValue;
    if (parameter.type.tag == automation::VT_BSTR)
        return quoted(value.isString() ? value.asString().view() : std::u16string_view());
    switch (parameter.type.tag) {
    case automation::VT_BOOL:
        return automation::fromVariant<bool>(value.isMissing() ? Variant(false) : value) ? "-1" : "0";
    case automation::VT_UI1:
    case automation::VT_I2:
    case automation::VT_I4:
        return std::to_string(value.isMissing() ? 0 : automation::fromVariant<std::int32_t>(value));
    default:
        return {};
    }
}

bool isArray(const Parameter& parameter) {
    return (parameter.type.tag & automation::VT_ARRAY) != 0;
}

/// An array is a variable of the caller's even where it is only read: programs have no others.
std::string attributes(const Parameter& parameter) {
    std::string result = parameter.byReference || isArray(parameter) ? "in, out" : "in";
    if (!parameter.optional) return result;
    result += ", optional";
    const std::string value = defaultText(parameter);
    if (!value.empty()) result += ", defaultvalue(" + value + ")";
    return result;
}

std::string parameterText(const Parameter& parameter) {
    if (parameter.parameterArray) return "[in, out] SAFEARRAY(VARIANT)* " + identifier(parameter.name);
    // Records and arrays travel by reference only.
    const bool pointer = parameter.byReference || isArray(parameter) || parameter.type.record;
    return "[" + attributes(parameter) + "] " + typeName(parameter.type) + (pointer ? "* " : " ") +
           identifier(parameter.name);
}

bool takesAllArguments(const Member& member) {
    return !member.parameters.empty() && member.parameters.back().parameterArray;
}

std::string memberText(const Member& member, const char* kind, const std::string& result,
                       const std::string& parameters) {
    std::string text = "        [id(" + std::to_string(member.id) + ")";
    text += kind;
    if (takesAllArguments(member)) text += ", vararg";
    if (member.hidden) text += ", hidden";
    if (!member.help.empty()) text += ", helpstring(" + quoted(member.help) + ")";
    return text + "] " + result + " " + identifier(member.name) + "(" + parameters + ");\n";
}

std::string parametersText(const Member& member) {
    std::string text;
    for (const Parameter& parameter : member.parameters)
        text += (text.empty() ? "" : ", ") + parameterText(parameter);
    return text;
}

std::string memberTexts(const Member& member) {
    const std::string parameters = parametersText(member);
    switch (member.kind) {
    case MemberKind::Get:
        return memberText(member, ", propget", typeName(member.result), parameters);
    case MemberKind::Let:
        return memberText(member, ", propput", "void", parameters);
    case MemberKind::Set:
        return memberText(member, ", propputref", "void", parameters);
    case MemberKind::Field:
        return memberText(member, ", propget", typeName(member.result), {}) +
               memberText(member, ", propput", "void", "[in] " + typeName(member.result) + " Valor");
    default:
        return memberText(member, "", typeName(member.result), parameters);
    }
}

std::string typeHead(const Guid& id, std::u16string_view help, const char* more = "") {
    std::string text = "    [uuid(" + id.text() + ")" + more;
    if (!help.empty()) text += ", helpstring(" + quoted(help) + ")";
    return text + "]\n";
}

std::string interfaceText(const ExportedClass& exported, bool events) {
    std::string text = typeHead(events ? exported.eventsId() : exported.interfaceId(), {}, ", hidden");
    text += "    dispinterface " + identifier(events ? exported.eventsName() : exported.interfaceName()) +
            " {\n      properties:\n      methods:\n";
    for (const Member& member : exported.table().members())
        if ((member.kind == MemberKind::Event) == events) text += memberTexts(member);
    return text + "    };\n";
}

std::string classText(const ExportedClass& exported) {
    std::string text = typeHead(exported.id, exported.table().help(), exported.isControl ? ", control" : "");
    text += "    coclass " + identifier(exported.table().name()) + " {\n";
    text += "        [default] dispinterface " + identifier(exported.interfaceName()) + ";\n";
    if (exported.hasEvents())
        text += "        [default, source] dispinterface " + identifier(exported.eventsName()) + ";\n";
    return text + "    };\n";
}

std::string enumerationText(const automation::Enumeration& enumeration) {
    const std::string name = identifier(enumeration.name());
    std::string text = "    typedef [uuid(" + typeId(enumeration.name()).text() + ")";
    if (!enumeration.help().empty()) text += ", helpstring(" + quoted(enumeration.help()) + ")";
    text += "] enum " + name + " {\n";
    for (const auto& entry : enumeration.entries())
        text += "        " + identifier(entry.name) + " = " + std::to_string(entry.value) + ",\n";
    return text + "    } " + name + ";\n";
}

std::string recordText(const RecordTable& record) {
    const std::string name = identifier(record.name());
    std::string text = "    typedef [uuid(" + typeId(record.name()).text() + ")] struct " + name + " {\n";
    for (const RecordTable::Field& field : record.fields())
        text += "        " + typeName(field.type) + " " + identifier(field.name) + ";\n";
    return text + "    } " + name + ";\n";
}

} // namespace

std::string typeLibrarySource() {
    std::string text = "// Made from the member tables; do not edit.\nimport \"automation.idl\";\n\n[uuid(" +
                       libraryId.text() + "), version(" + std::to_string(libraryMajor) + "." +
                       std::to_string(libraryMinor) +
                       "), lcid(0), helpstring(\"Tesela: controls and classes for data entry\")]\nlibrary " +
                       utf8(libraryName) + "\n{\n    importlib(\"stdole2.tlb\");\n";
    for (const ExportedClass& each : exportedClasses())
        text += "    dispinterface " + identifier(each.interfaceName()) + ";\n";
    for (const automation::Enumeration* each : interfaceTypes().enumerations())
        text += enumerationText(*each);
    for (const RecordTable* each : interfaceTypes().records())
        text += recordText(*each);
    for (const ExportedClass& each : exportedClasses()) {
        text += interfaceText(each, false);
        if (each.hasEvents()) text += interfaceText(each, true);
        text += classText(each);
    }
    return text + "}\n";
}

} // namespace activex
