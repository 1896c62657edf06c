#pragma once
// Values as the user reads them.

#include "automation/String.h"
#include "automation/Variant.h"
#include "fichas/RecordSource.h"

#include <cstdint>

namespace fichas {

/// One line of text: numbers with their column's decimals and grouped in thousands, whole numbers as they
/// are, dates and truth values in the locale's words, binary values by their size, nothing for Null.
automation::String displayText(const automation::Variant& value, const Column& column);

/// Numbers stand at the right.
bool standsAtRight(const automation::Variant& value, const Column& column);

/// "clientes — 1 de 3000"; while the count goes on "1 de más de 2000", and "ningún registro" without any.
automation::String titleText(const automation::String& name, std::int64_t record, std::int64_t knownCount,
                             bool countIsFinal);

} // namespace fichas
