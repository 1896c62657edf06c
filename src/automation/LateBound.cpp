#include "automation/LateBound.h"

namespace automation {

Object& objectOf(const Variant& source) {
    const Variant plain = source.dereferenced();
    if (!plain.isObject()) throwError(errors::ObjectRequired);
    if (plain.isNothing()) throwError(errors::ObjectVariableNotSet);
    // The caller's value keeps the object alive.
    return *plain.asObject();
}

Variant value(const Variant& source) {
    if (!source.isByRef() && !source.isObject()) return source;
    Variant result = source.dereferenced();
    while (result.isObject()) {
        if (result.isNothing()) throwError(errors::ObjectVariableNotSet);
        const Ref<Object> object = result.asObject();
        result = object->invoke(DISPID_VALUE, CallKind::MethodOrGet, {}).dereferenced();
    }
    return result;
}

} // namespace automation
