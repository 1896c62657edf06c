#pragma once
// Columns whose values can be told apart and ordered by bytes.

#include "automation/Variant.h"

#include <cstdint>
#include <span>
#include <string>

namespace tesela {

/// What the values of a column have in common.
enum class ColumnKind {
    Boolean, ///< Booleans
    Whole,   ///< Whole numbers
    Real,    ///< Numbers and dates that compare as Doubles
    Money,   ///< Currency and whole numbers
    Text,
    Mixed ///< Values that do not compare with one another by one measure, or not at all
};

/// The values of a column, one every `stride`.
struct ColumnValues {
    const automation::Variant* first = nullptr;
    std::size_t stride = 1;
    std::size_t count = 0;
    const automation::Variant& operator[](std::size_t row) const { return first[row * stride]; }
};

struct ColumnTraits {
    ColumnKind kind = ColumnKind::Mixed;
    bool hasNull = false; ///< There are Nulls beside them
};

/// Looks at all values. An Empty counts as 0 among numbers; a column of nothing but Nulls is Mixed.
ColumnTraits traitsOf(const ColumnValues& values);

/// How the texts of keys are ordered.
enum class TextOrder { Units, Dictionary };

/// Appends bytes that stand for a value of a column of one kind: two keys compare by their bytes as the host
/// compares the values (texts by `order`), equal values have the same, and no key begins another.
void appendKey(const automation::Variant& value, ColumnKind kind, TextOrder order, std::string& key);

/// A number's double, for a Boolean, Whole or Real column.
double realOf(const automation::Variant& value);

} // namespace tesela
