#pragma once
// What the interface tells about the type of an argument, a result or a field.

#include "automation/VariantType.h"

namespace automation {

class ClassTable;
class Enumeration;
class RecordTable;

/// A type of the interface. The pointers are null where they do not apply; tables are reached through
/// functions because classes may name each other.
struct TypeDescription {
    VARTYPE tag = VT_VOID; ///< With VT_ARRAY for arrays
    const Enumeration& (*enumeration)() = nullptr;
    const RecordTable& (*record)() = nullptr;
    const ClassTable& (*classTable)() = nullptr; ///< Null for an object of any class
};

} // namespace automation
