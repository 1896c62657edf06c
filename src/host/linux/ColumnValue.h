#pragma once
// What a column of a database holds for a program: its type out of what it declares, and its values.

#include "automation/Enumeration.h"
#include "automation/Variant.h"
#include "platform/linux/database.h"

#include <cstdint>
#include <string_view>

namespace host {

/// Types of fields under their usual numbers.
enum class FieldType : std::int32_t {
    Integer = 3,
    Double = 5,
    Currency = 6,
    Boolean = 11,
    Variant = 12, ///< Nothing is declared: each value has the type it is stored with
    Date = 133,
    Time = 134,
    DateTime = 135,
    Text = 202,
    Binary = 205,
};
const automation::Enumeration& enumerationOf(FieldType);

/// A column's declaration, taken apart.
struct FieldDeclaration {
    FieldType type = FieldType::Variant;
    std::int32_t size = 0; ///< Characters of a text, bytes of another value; 0 without a limit
    int precision = 0;     ///< Digits of a number, 0 where none are declared
    int scale = 0;         ///< How many of them are decimals
};

/// Out of what CREATE TABLE says: "INTEGER", "VARCHAR(40)", "NUMERIC(10, 2)", "DATETIME", in any case.
FieldDeclaration fieldDeclaration(std::string_view declaredType);

/// The value as the column's type has it: a whole number is a Long, a larger one a Decimal; money is
/// Currency where that holds it exactly, else a Double; dates are texts of ISO form, Julian days or seconds
/// since 1970; NULL is Null. A value that cannot be read so keeps the type it is stored with.
automation::Variant columnValue(const platform::DatabaseValue& value, FieldType type);

} // namespace host
