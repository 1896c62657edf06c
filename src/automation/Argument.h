#pragma once
// How C++ types travel in Variants: the conversions of arguments, results and fields.

#include "automation/Enumeration.h"
#include "automation/Object.h"
#include "automation/TypeDescription.h"
#include "automation/Variant.h"

#include <concepts>
#include <string_view>
#include <type_traits>
#include <vector>

namespace automation {

template <class S>
class RecordOf;

/// Arguments of a parameter array.
using ParamArray = std::vector<Variant>;

/// A structure that has its record table.
template <class S>
concept Recorded = std::is_class_v<S> && requires(const S* record) {
    { recordOf(record) } -> std::same_as<const RecordTable&>;
};

/// A class that gives its table without an object: `static const ClassTable& table();`.
template <class T>
concept Tabled = requires {
    { T::table() } -> std::same_as<const ClassTable&>;
};

/// Conversions of an argument as late-bound calls make them. References are followed and objects give
/// their default member where a plain value is wanted. Error 13 where there is no conversion, 6 for a
/// number out of range, 94 for Null.
bool argumentToBoolean(const Variant& value);
std::uint8_t argumentToByte(const Variant& value);
std::int16_t argumentToInteger(const Variant& value);
std::int32_t argumentToLong(const Variant& value);
float argumentToSingle(const Variant& value);
double argumentToDouble(const Variant& value);
Currency argumentToCurrency(const Variant& value);
Date argumentToDate(const Variant& value);
Decimal argumentToDecimal(const Variant& value);
String argumentToString(const Variant& value);
/// The object, null for Nothing; Error 13 for what is no object.
Ref<Object> argumentToObject(const Variant& value);
Array argumentToArray(const Variant& value);
Ref<Record> argumentToRecord(const Variant& value);

/// How a C++ type is read from a Variant, written to one and described. Specialised below.
template <class T>
struct Conversion;

#define AUTOMATION_PLAIN_CONVERSION(Type, Tag, Function)                                                     \
    template <>                                                                                              \
    struct Conversion<Type> {                                                                                \
        static Type from(const Variant& value) { return Function(value); }                                   \
        static Variant to(const Type& value) { return Variant(value); }                                      \
        static TypeDescription type() { return {Tag}; }                                                      \
    };
AUTOMATION_PLAIN_CONVERSION(bool, VT_BOOL, argumentToBoolean)
AUTOMATION_PLAIN_CONVERSION(std::uint8_t, VT_UI1, argumentToByte)
AUTOMATION_PLAIN_CONVERSION(std::int16_t, VT_I2, argumentToInteger)
AUTOMATION_PLAIN_CONVERSION(std::int32_t, VT_I4, argumentToLong)
AUTOMATION_PLAIN_CONVERSION(float, VT_R4, argumentToSingle)
AUTOMATION_PLAIN_CONVERSION(double, VT_R8, argumentToDouble)
AUTOMATION_PLAIN_CONVERSION(Currency, VT_CY, argumentToCurrency)
AUTOMATION_PLAIN_CONVERSION(Date, VT_DATE, argumentToDate)
AUTOMATION_PLAIN_CONVERSION(Decimal, VT_DECIMAL, argumentToDecimal)
AUTOMATION_PLAIN_CONVERSION(String, VT_BSTR, argumentToString)
AUTOMATION_PLAIN_CONVERSION(Array, VT_ARRAY | VT_VARIANT, argumentToArray)
#undef AUTOMATION_PLAIN_CONVERSION

/// Text that a member only looks at: as an argument only.
template <>
struct Conversion<std::u16string_view> {
    static TypeDescription type() { return {VT_BSTR}; }
};

template <>
struct Conversion<Variant> {
    static Variant from(const Variant& value) { return value.dereferenced(); }
    static Variant to(const Variant& value) { return value; }
    static TypeDescription type() { return {VT_VARIANT}; }
};

/// Colours and handles: 32 bits that programs see as a Long.
template <>
struct Conversion<std::uint32_t> {
    static std::uint32_t from(const Variant& value) {
        return static_cast<std::uint32_t>(argumentToLong(value));
    }
    static Variant to(std::uint32_t value) { return static_cast<std::int32_t>(value); }
    static TypeDescription type() { return {VT_I4}; }
};

template <EnumerationType E>
struct Conversion<E> {
    static E from(const Variant& value) { return static_cast<E>(argumentToLong(value)); }
    static Variant to(E value) { return static_cast<std::int32_t>(value); }
    static TypeDescription type() {
        TypeDescription description{VT_I4};
        if constexpr (Enumerated<E>) {
            description.enumeration = []() -> const Enumeration& { return enumerationOf(E()); };
        }
        return description;
    }
};

template <std::derived_from<Object> T>
struct Conversion<Ref<T>> {
    static Ref<T> from(const Variant& value) {
        const Ref<Object> object = argumentToObject(value);
        if (!object) return {};
        T* exact = dynamic_cast<T*>(object.get());
        if (!exact) throwTypeMismatch();
        return Ref<T>(exact);
    }
    static Variant to(const Ref<T>& value) { return Variant(value); }
    static TypeDescription type() {
        TypeDescription description{VT_DISPATCH};
        if constexpr (Tabled<T>) description.classTable = &T::table;
        return description;
    }
};

template <>
struct Conversion<ParamArray> {
    static ParamArray from(const Variant& value);
    static Variant to(const ParamArray& value);
    static TypeDescription type() { return {VT_ARRAY | VT_VARIANT}; }
};

template <Recorded S>
struct Conversion<S> {
    static S from(const Variant& value) {
        const Ref<Record> record = argumentToRecord(value);
        auto* exact = dynamic_cast<RecordOf<S>*>(record.get());
        if (!exact) throwTypeMismatch();
        return exact->value;
    }
    static Variant to(const S& value) { return Variant(Ref<Record>(make<RecordOf<S>>(value))); }
    static TypeDescription type() {
        TypeDescription description{VT_RECORD};
        description.record = []() -> const RecordTable& { return recordOf(static_cast<const S*>(nullptr)); };
        return description;
    }
};

/// A C++ value out of a Variant, a Variant out of a C++ value, and the description of a C++ type.
template <class T>
T fromVariant(const Variant& value) {
    return Conversion<T>::from(value);
}
template <class T>
Variant toVariant(const T& value) {
    return Conversion<T>::to(value);
}
template <class T>
TypeDescription describe() {
    if constexpr (std::is_void_v<T>) {
        return {};
    } else {
        return Conversion<std::remove_cvref_t<T>>::type();
    }
}

/// An argument as the caller passed it, its reference not followed: for members that need the caller's own
/// variable. It must not outlive the call.
struct PassedArgument {
    Variant value;
};

template <>
struct Conversion<PassedArgument> {
    static PassedArgument from(const Variant& value) { return {value}; }
    static TypeDescription type() { return {VT_VARIANT}; }
};

/// Types of variables that can be written.
template <class T>
concept Writable = !std::is_const_v<T>;

/// Types whose variables a Variant can refer to directly.
template <class T>
concept Referable = requires(T& variable) {
    Variant::byRef(variable);
};

} // namespace automation

#include "automation/Record.h"
