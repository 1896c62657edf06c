#pragma once
// Calls by name with C++ arguments, and default members.

#include "automation/Object.h"
#include "automation/Variant.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace automation {

/// The object in a value: Error 424 when it holds none, Error 91 when it is Nothing.
Object& objectOf(const Variant& value);

/// Calls the method `name` of an object. Arguments by reference are given as `Variant::byRef(variable)`.
template <class... A>
Variant callMethod(Object& object, std::u16string_view name, A&&... arguments) {
    const std::array<Variant, sizeof...(A)> list{Variant(std::forward<A>(arguments))...};
    return object.invokeByName(name, CallKind::MethodOrGet, {list, {}});
}
template <class... A>
Variant callMethod(const Variant& object, std::u16string_view name, A&&... arguments) {
    const Ref<Object> held(&objectOf(object)); // the call may change the variable that it came from
    return callMethod(*held, name, std::forward<A>(arguments)...);
}

/// Reads the property `name`, with its index arguments if it has any.
template <class... A>
Variant getProperty(Object& object, std::u16string_view name, A&&... arguments) {
    const std::array<Variant, sizeof...(A)> list{Variant(std::forward<A>(arguments))...};
    return object.invokeByName(name, CallKind::MethodOrGet, {list, {}});
}
template <class... A>
Variant getProperty(const Variant& object, std::u16string_view name, A&&... arguments) {
    const Ref<Object> held(&objectOf(object));
    return getProperty(*held, name, std::forward<A>(arguments)...);
}

/// Writes the property `name`; index arguments come before the new value.
template <class... A>
void letProperty(Object& object, std::u16string_view name, A&&... indexesAndValue) {
    const std::array<Variant, sizeof...(A)> list{Variant(std::forward<A>(indexesAndValue))...};
    object.invokeByName(name, CallKind::Let, {list, {}});
}
template <class... A>
void letProperty(const Variant& object, std::u16string_view name, A&&... indexesAndValue) {
    const Ref<Object> held(&objectOf(object));
    letProperty(*held, name, std::forward<A>(indexesAndValue)...);
}

/// Writes a property that takes an object reference.
template <class... A>
void setProperty(Object& object, std::u16string_view name, A&&... indexesAndValue) {
    const std::array<Variant, sizeof...(A)> list{Variant(std::forward<A>(indexesAndValue))...};
    object.invokeByName(name, CallKind::Set, {list, {}});
}

template <class... A>
void setProperty(const Variant& object, std::u16string_view name, A&&... indexesAndValue) {
    const Ref<Object> held(&objectOf(object));
    setProperty(*held, name, std::forward<A>(indexesAndValue)...);
}

/// The value in a value context: references are followed and an object gives its default member, again
/// while that is an object. Error 91 for Nothing, Error 438 for an object without a default member.
Variant value(const Variant& source);

} // namespace automation
