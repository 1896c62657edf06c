#pragma once
// Values between the library and the system.

#include "activex/windows/System.h"

namespace activex {

/// A value of the system that goes with its block.
class SystemValue : public ::VARIANT {
public:
    SystemValue() noexcept { ::VariantInit(this); }
    SystemValue(const SystemValue&) = delete;
    SystemValue& operator=(const SystemValue&) = delete;
    ~SystemValue() { ::VariantClear(this); }
};

/// The library's value of a system's one, references followed. Whole numbers that a Long cannot hold become
/// Decimals. Throws automation::Error 458 for types that the library has no use for.
automation::Variant fromSystem(const ::VARIANT& value);

/// The system's value of a library's one; `target` counts as uninitialised memory. Throws automation::Error.
void toSystem(const automation::Variant& value, ::VARIANT& target);

/// Writes a value through a reference (VT_BYREF) as the type that it refers to. A value that is no reference
/// is left alone. Throws automation::Error 13 or 6 for a value that the variable cannot take.
void storeThrough(const ::VARIANT& reference, const automation::Variant& value);

/// A new reference value to what `holder` holds; they share their memory.
::VARIANT referenceTo(::VARIANT& holder);

/// Changes the type of a system's value in its place; throws automation::Error.
void changeType(::VARIANT& value, VARTYPE type);

/// The text of a system's string, which may be null; a new system's string.
automation::String fromBstr(const wchar_t* text);
::BSTR toBstr(std::u16string_view text);

/// Throws the automation::Error of a failure code.
void check(::HRESULT result);

// Arrays and records.
automation::Array fromSystem(::SAFEARRAY* array, VARTYPE element);
::SAFEARRAY* toSystem(const automation::Array& array);
automation::Ref<automation::Record> fromSystem(void* record, ::IRecordInfo* info);
/// Writes the fields into memory that holds a record of that type.
void storeRecord(const automation::Record& record, void* memory, ::IRecordInfo* info);
void toSystem(const automation::Record& record, ::VARIANT& target);

} // namespace activex
