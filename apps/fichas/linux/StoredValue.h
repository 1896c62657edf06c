#pragma once
// Values as a database stores them.

#include "automation/Variant.h"
#include "fichas/RecordSource.h"
#include "platform/linux/database.h"

namespace fichas {

/// The value of a column of this type as it shall lie in the file: in the form of `former`, the value that it
/// replaces, where there are several. Dates are texts of ISO form, Julian days or seconds since 1970. Throws
/// automation::Error for a value that no such column takes.
platform::DatabaseValue storedValue(const automation::Variant& value, ColumnType type,
                                    const platform::DatabaseValue& former);

} // namespace fichas
