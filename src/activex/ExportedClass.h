#pragma once
// The classes that the control library gives to programs. A class gets its whole outer face from its member
// table: all that is stated here is that programs may create it, and its identifier.

#include "activex/Guid.h"
#include "automation/ClassTable.h"
#include "automation/Enumeration.h"
#include "automation/Object.h"

#include <cstdint>
#include <span>

namespace activex {

/// A class that programs can create.
struct ExportedClass {
    Guid id; ///< Of the class; those of its interface and of its events follow it
    const automation::ClassTable& (*table)();
    automation::Ref<automation::Object> (*create)();
    bool isControl; ///< Stands on forms: a host::Control

    Guid interfaceId() const { return id.next(1); }
    Guid eventsId() const { return id.next(2); }
    bool hasEvents() const;
    /// "_cFecha", the members of cFecha, and "__cFecha", its events.
    std::u16string interfaceName() const;
    std::u16string eventsName() const;
};

/// All of them, in the order of the type library.
std::span<const ExportedClass> exportedClasses();
/// The class of that identifier, of that name (whatever its case) or of that table; null where there is none.
const ExportedClass* exportedClass(const Guid& id);
const ExportedClass* exportedClass(std::u16string_view name);
const ExportedClass* exportedClass(const automation::ClassTable& table);

/// Enumerations that belong to the interface although no member of a class names them.
using EnumerationSource = const automation::Enumeration& (*)();
std::span<const EnumerationSource> looseEnumerations();

/// The type library itself.
extern const Guid libraryId;
inline constexpr char16_t libraryName[] = u"TeselaControls_basicos";
inline constexpr std::uint16_t libraryMajor = 1;
inline constexpr std::uint16_t libraryMinor = 0;

/// Identifiers of enumerations and records follow from their names.
Guid typeId(std::u16string_view name);

/// A name as the type library has it, where only ASCII letters can stand: "nAño" is "nAno".
std::u16string plainName(std::u16string_view name);

} // namespace activex
