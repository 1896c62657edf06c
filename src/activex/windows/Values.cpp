#include "activex/windows/Values.h"

#include "activex/windows/Objects.h"

#include <cstring>
#include <limits>

namespace activex {

using automation::Variant;

namespace {

template <class T>
T at(const void* memory) {
    T value;
    // NOLINTNEXTLINE(bugprone-sizeof-expression): of a pointer the pointer is meant
    std::memcpy(&value, memory, sizeof(T));
    return value;
}

/// Whole numbers that fit go as a Long.
Variant wholeNumber(std::int64_t value) {
    if (value >= std::numeric_limits<std::int32_t>::min() &&
        value <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(value);
    return automation::Decimal::fromInt64(value);
}

Variant wholeNumber(std::uint64_t value) {
    if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
        return wholeNumber(static_cast<std::int64_t>(value));
    return automation::Decimal(value, 0, 0, false);
}

Variant decimalAt(const void* memory) {
    const auto value = at<::DECIMAL>(memory);
    return automation::Decimal(value.Lo64, value.Hi32, value.scale, (value.sign & DECIMAL_NEG) != 0);
}

/// What stands at an address as the type says.
Variant readAt(VARTYPE type, const void* memory) {
    switch (type) {
    case VT_I1:
        return static_cast<std::int16_t>(at<signed char>(memory));
    case VT_UI1:
        return at<std::uint8_t>(memory);
    case VT_I2:
        return at<std::int16_t>(memory);
    case VT_UI2:
        return static_cast<std::int32_t>(at<std::uint16_t>(memory));
    case VT_I4:
    case VT_INT:
    case VT_UI4: // colours and handles: their bits
    case VT_UINT:
        return at<std::int32_t>(memory);
    case VT_I8:
        return wholeNumber(at<std::int64_t>(memory));
    case VT_UI8:
        return wholeNumber(at<std::uint64_t>(memory));
    case VT_R4:
        return at<float>(memory);
    case VT_R8:
        return at<double>(memory);
    case VT_CY:
        return automation::Currency::fromScaled(at<std::int64_t>(memory));
    case VT_DATE:
        return automation::Date(at<double>(memory));
    case VT_BOOL:
        return at<::VARIANT_BOOL>(memory) != VARIANT_FALSE;
    case VT_ERROR:
        return Variant::error(at<std::int32_t>(memory));
    case VT_BSTR:
        return fromBstr(at<::BSTR>(memory));
    case VT_DECIMAL:
        return decimalAt(memory);
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return Variant(objectOf(at<::IUnknown*>(memory)));
    case VT_VARIANT:
        return fromSystem(*static_cast<const ::VARIANT*>(memory));
    default:
        automation::throwError(automation::errors::TypeNotSupported);
    }
}

bool isArray(VARTYPE type) {
    return (type & VT_ARRAY) != 0;
}

template <class T>
void put(::VARIANT& target, VARTYPE type, T value) {
    target.vt = type;
    // NOLINTNEXTLINE(bugprone-sizeof-expression): of a pointer the pointer is meant
    std::memcpy(&target.llVal, &value, sizeof(T));
}

void putDecimal(const automation::Decimal& value, ::VARIANT& target) {
    target.decVal.Lo64 = value.low();
    target.decVal.Hi32 = value.high();
    target.decVal.scale = static_cast<BYTE>(value.scale());
    target.decVal.sign = value.isNegative() ? DECIMAL_NEG : 0;
    target.vt = VT_DECIMAL; // shares its block with the number, so it comes last
}

/// Frees what a variable of the type holds, and says how many bytes it takes.
std::size_t clearAt(VARTYPE type, void* memory) {
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    case VT_BSTR:
        ::SysFreeString(at<::BSTR>(memory));
        return sizeof(::BSTR);
    case VT_DISPATCH:
    case VT_UNKNOWN:
        if (auto* object = at<::IUnknown*>(memory)) object->Release();
        return sizeof(::IUnknown*);
    default:
        return 8;
    }
}

void storeArray(::SAFEARRAY** variable, const Variant& value) {
    if (!value.isArray()) automation::throwTypeMismatch();
    ::SAFEARRAY* fresh = toSystem(value.asArray());
    if (*variable && FAILED(::SafeArrayDestroy(*variable))) {
        ::SafeArrayDestroy(fresh);
        automation::throwError(automation::errors::ArrayFixedOrLocked);
    }
    *variable = fresh;
}

/// Into a variable that is itself a system's value, perhaps one that refers on.
void storeVariant(::VARIANT& variable, const Variant& value) {
    if (variable.vt & VT_BYREF) {
        storeThrough(variable, value);
        return;
    }
    ::VARIANT fresh;
    toSystem(value, fresh);
    ::VariantClear(&variable);
    variable = fresh;
}

} // namespace

void check(::HRESULT result) {
    if (FAILED(result)) throw automation::Error(automation::Error::numberOf(result));
}

automation::String fromBstr(const wchar_t* text) {
    if (!text) return {};
    return std::u16string_view(reinterpret_cast<const char16_t*>(text),
                               ::SysStringLen(const_cast<::BSTR>(text)));
}

::BSTR toBstr(std::u16string_view text) {
    ::BSTR result = ::SysAllocStringLen(wide(text.data()), static_cast<::UINT>(text.size()));
    if (!result) throw std::bad_alloc();
    return result;
}

Variant fromSystem(const ::VARIANT& value) {
    const auto type = static_cast<VARTYPE>(value.vt & ~VT_BYREF);
    const bool byReference = (value.vt & VT_BYREF) != 0;
    if (byReference && !value.byref) automation::throwTypeMismatch();
    if (isArray(type))
        return fromSystem(byReference ? *value.pparray : value.parray,
                          static_cast<VARTYPE>(type & VT_TYPEMASK));
    switch (type) {
    case VT_EMPTY:
        return {};
    case VT_NULL:
        return Variant::null();
    case VT_RECORD:
        return Variant(fromSystem(value.pvRecord, value.pRecInfo));
    case VT_DECIMAL:
        return decimalAt(byReference ? value.pdecVal : &value.decVal);
    default:
        return readAt(type, byReference ? value.byref : &value.llVal);
    }
}

void toSystem(const Variant& source, ::VARIANT& target) {
    const Variant value = source.dereferenced();
    ::VariantInit(&target);
    if (value.isArray()) {
        target.parray = toSystem(value.asArray());
        target.vt = value.type() == (VT_ARRAY | VT_RECORD) ? VT_ARRAY | VT_VARIANT : value.type();
        return;
    }
    switch (value.type()) {
    case VT_EMPTY:
    case VT_NULL:
        target.vt = value.type();
        break;
    case VT_BOOL:
        put(target, VT_BOOL, value.asBoolean() ? VARIANT_TRUE : VARIANT_FALSE);
        break;
    case VT_UI1:
        put(target, VT_UI1, value.asByte());
        break;
    case VT_I2:
        put(target, VT_I2, value.asInteger());
        break;
    case VT_I4:
        put(target, VT_I4, value.asLong());
        break;
    case VT_R4:
        put(target, VT_R4, value.asSingle());
        break;
    case VT_R8:
        put(target, VT_R8, value.asDouble());
        break;
    case VT_CY:
        put(target, VT_CY, value.asCurrency().scaled());
        break;
    case VT_DATE:
        put(target, VT_DATE, value.asDate().value());
        break;
    case VT_ERROR:
        put(target, VT_ERROR, value.asError());
        break;
    case VT_DECIMAL:
        putDecimal(value.asDecimal(), target);
        break;
    case VT_BSTR:
        put(target, VT_BSTR, toBstr(value.asString()));
        break;
    case VT_DISPATCH:
        put(target, VT_DISPATCH, dispatchOf(value.asObject().get()));
        break;
    case VT_RECORD:
        toSystem(*value.asRecord(), target);
        break;
    default:
        automation::throwError(automation::errors::TypeNotSupported);
    }
}

void changeType(::VARIANT& value, VARTYPE type) {
    if (value.vt == type || type == VT_VARIANT) return;
    check(::VariantChangeType(&value, &value, 0, type));
}

::VARIANT referenceTo(::VARIANT& holder) {
    ::VARIANT reference;
    ::VariantInit(&reference);
    switch (holder.vt) {
    case VT_EMPTY:
    case VT_NULL:
        reference.vt = VT_BYREF | VT_VARIANT;
        reference.pvarVal = &holder;
        break;
    case VT_RECORD:
        reference = holder;
        reference.vt = VT_BYREF | VT_RECORD;
        break;
    case VT_DECIMAL:
        reference.vt = VT_BYREF | VT_DECIMAL;
        reference.pdecVal = &holder.decVal;
        break;
    default:
        reference.vt = static_cast<VARTYPE>(VT_BYREF | holder.vt);
        reference.byref = &holder.llVal;
        break;
    }
    return reference;
}

void storeThrough(const ::VARIANT& reference, const Variant& value) {
    if (!(reference.vt & VT_BYREF) || !reference.byref) return;
    const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
    if (isArray(type)) {
        storeArray(reference.pparray, value.dereferenced());
        return;
    }
    switch (type) {
    case VT_VARIANT:
        storeVariant(*reference.pvarVal, value);
        return;
    case VT_RECORD:
        storeRecord(*automation::argumentToRecord(value), reference.pvRecord, reference.pRecInfo);
        return;
    default:
        break;
    }
    SystemValue fresh;
    toSystem(value, fresh);
    changeType(fresh, type);
    if (type == VT_DECIMAL) {
        *reference.pdecVal = fresh.decVal;
        reference.pdecVal->wReserved = 0;
        return;
    }
    std::memcpy(reference.byref, &fresh.llVal, clearAt(type, reference.byref));
    fresh.vt = VT_EMPTY; // the variable owns it now
}

} // namespace activex
