#pragma once
// The tagged value of the automation interface.

#include "automation/Array.h"
#include "automation/Currency.h"
#include "automation/Date.h"
#include "automation/Decimal.h"
#include "automation/Error.h"
#include "automation/Ref.h"
#include "automation/String.h"
#include "automation/VariantType.h"

#include <concepts>
#include <cstdint>
#include <type_traits>

namespace automation {

class Object;
class Record;

template <class T>
concept EnumerationType = std::is_enum_v<T>;
/// Arithmetic types without an automation counterpart.
template <class T>
concept ForeignNumber = std::is_arithmetic_v<T> && !std::same_as<T, bool>;

/// A value with its type, 16 bytes, laid out as automation lays it out (a Decimal shares the tag's
/// block). Strings, arrays and records are shared and immutable or copied on write, objects are counted.
/// The `as...` accessors give the value of exactly that type and throw Error 13 otherwise; the `C...`
/// functions of Conversions.h convert.
class Variant {
public:
    Variant() noexcept {}
    template <std::same_as<bool> B>
    Variant(B value) noexcept : tag_(VT_BOOL) {
        payload_.i2 = value ? -1 : 0;
    }
    Variant(std::uint8_t value) noexcept : tag_(VT_UI1) { payload_.ui1 = value; }
    Variant(std::int16_t value) noexcept : tag_(VT_I2) { payload_.i2 = value; }
    Variant(std::int32_t value) noexcept : tag_(VT_I4) { payload_.i4 = value; }
    Variant(float value) noexcept : tag_(VT_R4) { payload_.r4 = value; }
    Variant(double value) noexcept : tag_(VT_R8) { payload_.r8 = value; }
    Variant(Currency value) noexcept : tag_(VT_CY) { payload_.cy = value.scaled(); }
    Variant(Date value) noexcept : tag_(VT_DATE) { payload_.r8 = value.value(); }
    Variant(const Decimal& value) noexcept;
    Variant(String value) noexcept : tag_(VT_BSTR) { new (&payload_.string) String(std::move(value)); }
    Variant(const char16_t* value) : Variant(String(value)) {}
    Variant(std::u16string_view value) : Variant(String(value)) {}
    Variant(const std::u16string& value) : Variant(String(value)) {}
    Variant(Array value) noexcept;
    /// Null is Nothing.
    Variant(Object* object) noexcept;
    Variant(Ref<Object> object) noexcept;
    template <class T>
    Variant(const Ref<T>& object) noexcept : Variant(static_cast<Object*>(object.get())) {}
    Variant(Ref<Record> record) noexcept;
    /// Enumerations travel as Long.
    template <EnumerationType E>
    Variant(E value) noexcept : Variant(static_cast<std::int32_t>(value)) {}
    /// Types without an automation counterpart: say which one is meant.
    template <ForeignNumber T>
    Variant(T) = delete;

    Variant(const Variant& other) noexcept : Variant() { copyFrom(other); }
    Variant(Variant&& other) noexcept { takeFrom(other); }
    Variant& operator=(const Variant& other) noexcept {
        if (this != &other) {
            Variant copy(other);
            swap(copy);
        }
        return *this;
    }
    Variant& operator=(Variant&& other) noexcept {
        swap(other);
        return *this;
    }
    ~Variant() {
        if (tag_ == VT_BSTR) {
            payload_.string.~String();
        } else if (isCounted()) {
            releaseCounted();
        }
    }
    void swap(Variant& other) noexcept;

    static Variant null() noexcept { return Variant(VT_NULL, 0); }
    static Variant nothing() noexcept { return Variant(static_cast<Object*>(nullptr)); }
    /// A value of type Error with a failure code.
    static Variant error(HResult code) noexcept { return Variant(VT_ERROR, code); }
    /// The value that stands for an argument left out.
    static Variant missing() noexcept { return error(DISP_E_PARAMNOTFOUND); }

    /// References to variables, for by-reference arguments. The variable must outlive the value.
    static Variant byRef(Variant& v) noexcept { return Variant(VT_BYREF | VT_VARIANT, &v); }
    static Variant byRef(bool& v) noexcept { return Variant(VT_BYREF | VT_BOOL, &v); }
    static Variant byRef(std::uint8_t& v) noexcept { return Variant(VT_BYREF | VT_UI1, &v); }
    static Variant byRef(std::int16_t& v) noexcept { return Variant(VT_BYREF | VT_I2, &v); }
    static Variant byRef(std::int32_t& v) noexcept { return Variant(VT_BYREF | VT_I4, &v); }
    static Variant byRef(float& v) noexcept { return Variant(VT_BYREF | VT_R4, &v); }
    static Variant byRef(double& v) noexcept { return Variant(VT_BYREF | VT_R8, &v); }
    static Variant byRef(Currency& v) noexcept { return Variant(VT_BYREF | VT_CY, &v); }
    static Variant byRef(Date& v) noexcept { return Variant(VT_BYREF | VT_DATE, &v); }
    static Variant byRef(Decimal& v) noexcept { return Variant(VT_BYREF | VT_DECIMAL, &v); }
    static Variant byRef(String& v) noexcept { return Variant(VT_BYREF | VT_BSTR, &v); }
    static Variant byRef(Ref<Object>& v) noexcept { return Variant(VT_BYREF | VT_DISPATCH, &v); }
    static Variant byRef(Ref<Record>& v) noexcept { return Variant(VT_BYREF | VT_RECORD, &v); }
    static Variant byRef(Array& v) noexcept;

    /// The tag with its array and by-reference bits.
    VARTYPE type() const noexcept { return tag_; }
    bool isEmpty() const noexcept { return tag_ == VT_EMPTY; }
    bool isNull() const noexcept { return tag_ == VT_NULL; }
    bool isString() const noexcept { return tag_ == VT_BSTR; }
    bool isObject() const noexcept { return tag_ == VT_DISPATCH; }
    bool isNothing() const noexcept { return tag_ == VT_DISPATCH && !payload_.object; }
    bool isError() const noexcept { return tag_ == VT_ERROR; }
    bool isMissing() const noexcept { return tag_ == VT_ERROR && payload_.i4 == DISP_E_PARAMNOTFOUND; }
    bool isArray() const noexcept { return (tag_ & VT_ARRAY) != 0; }
    bool isByRef() const noexcept { return (tag_ & VT_BYREF) != 0; }

    bool asBoolean() const { return expect(VT_BOOL).i2 != 0; }
    std::uint8_t asByte() const { return expect(VT_UI1).ui1; }
    std::int16_t asInteger() const { return expect(VT_I2).i2; }
    std::int32_t asLong() const { return expect(VT_I4).i4; }
    float asSingle() const { return expect(VT_R4).r4; }
    double asDouble() const { return expect(VT_R8).r8; }
    Currency asCurrency() const { return Currency::fromScaled(expect(VT_CY).cy); }
    Date asDate() const { return Date(expect(VT_DATE).r8); }
    Decimal asDecimal() const;
    HResult asError() const { return expect(VT_ERROR).i4; }
    const String& asString() const { return expect(VT_BSTR).string; }
    const Ref<Object>& asObject() const { return expect(VT_DISPATCH).object; }
    const Ref<Record>& asRecord() const { return expect(VT_RECORD).record; }
    const Array& asArray() const;
    /// The array inside, to be written; Error 13 when this is no array. The element type must stay.
    Array& arrayForWriting();

    /// The variable that this refers to, of the type that the tag names; null without a reference.
    void* reference() const noexcept { return isByRef() ? payload_.reference : nullptr; }
    /// The value behind a reference, or this value.
    Variant dereferenced() const;
    /// Writes through a reference, converting to the variable's type; without a reference, replaces
    /// this value.
    void store(const Variant& value);
    /// Writes through the reference; without one, nothing happens.
    void storeThrough(const Variant& value) const;

private:
    union Payload {
        std::uint64_t bits;
        std::uint8_t ui1;
        std::int16_t i2;
        std::int32_t i4;
        float r4;
        double r8;
        std::int64_t cy;
        void* reference;
        String string;
        Ref<Object> object;
        Ref<Record> record;
        Array array;
        constexpr Payload() noexcept : bits(0) {}
        ~Payload() {}
    };

    Variant(int tag, HResult code) noexcept : tag_(static_cast<VARTYPE>(tag)) { payload_.i4 = code; }
    Variant(int tag, void* variable) noexcept : tag_(static_cast<VARTYPE>(tag)) {
        payload_.reference = variable;
    }

    bool isCounted() const noexcept {
        return tag_ == VT_BSTR || tag_ == VT_DISPATCH || tag_ == VT_RECORD ||
               (tag_ & (VT_ARRAY | VT_BYREF)) == VT_ARRAY;
    }
    const Payload& expect(VARTYPE tag) const {
        if (tag_ != tag) throwTypeMismatch();
        return payload_;
    }
    void takeFrom(Variant& other) noexcept {
        tag_ = other.tag_;
        scale_ = other.scale_;
        sign_ = other.sign_;
        high_ = other.high_;
        payload_.bits = other.payload_.bits;
        other.tag_ = VT_EMPTY;
    }
    void copyFrom(const Variant& other) noexcept {
        if (other.tag_ == VT_BSTR) {
            new (&payload_.string) String(other.payload_.string);
            tag_ = VT_BSTR;
            return;
        }
        if (other.isCounted()) {
            copyCounted(other);
            return;
        }
        tag_ = other.tag_;
        scale_ = other.scale_;
        sign_ = other.sign_;
        high_ = other.high_;
        payload_.bits = other.payload_.bits;
    }
    void copyCounted(const Variant& other) noexcept;
    void releaseCounted() noexcept;

    // A Decimal keeps its scale, sign and highest 32 bits beside the tag and the rest in the payload.
    VARTYPE tag_ = VT_EMPTY;
    std::uint8_t scale_ = 0;
    std::uint8_t sign_ = 0;
    std::uint32_t high_ = 0;
    alignas(8) Payload payload_;
};

static_assert(sizeof(Variant) == 16);

template <class... I>
Variant Array::operator()(I... subscripts) const {
    const std::int32_t list[] = {static_cast<std::int32_t>(subscripts)...};
    return at(list);
}

template <class... I>
void Array::set(const Variant& value, I... subscripts) {
    const std::int32_t list[] = {static_cast<std::int32_t>(subscripts)...};
    put(list, value);
}

} // namespace automation
