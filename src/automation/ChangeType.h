#pragma once
// Conversion of a value to a type named by its tag.

#include "automation/Variant.h"

namespace automation {

/// The value as one of type `type`; VT_VARIANT leaves it as it is. References are followed, objects give
/// their default member where no object is wanted. Error 13 where there is no conversion, 6 for a number
/// out of range, 94 for Null.
Variant changeType(const Variant& value, VARTYPE type);

} // namespace automation
