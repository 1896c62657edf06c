#include "automation/Variant.h"

#include "automation/Argument.h"
#include "automation/Object.h"
#include "automation/Record.h"

#include <utility>

namespace automation {

Variant::Variant(const Decimal& value) noexcept
    : tag_(VT_DECIMAL), scale_(static_cast<std::uint8_t>(value.scale())),
      sign_(value.isNegative() ? Decimal::negativeSign : 0), high_(value.high()) {
    payload_.bits = value.low();
}

Variant::Variant(Array value) noexcept : tag_(static_cast<VARTYPE>(VT_ARRAY | value.elementType())) {
    new (&payload_.array) Array(std::move(value));
}

Variant::Variant(Object* object) noexcept : Variant(Ref<Object>(object)) {}

Variant::Variant(Ref<Object> object) noexcept : tag_(VT_DISPATCH) {
    new (&payload_.object) Ref<Object>(std::move(object));
}

Variant::Variant(Ref<Record> record) noexcept : tag_(VT_RECORD) {
    new (&payload_.record) Ref<Record>(std::move(record));
}

Variant Variant::byRef(Array& v) noexcept {
    return Variant(VT_BYREF | VT_ARRAY | v.elementType(), &v);
}

void Variant::swap(Variant& other) noexcept {
    std::swap(tag_, other.tag_);
    std::swap(scale_, other.scale_);
    std::swap(sign_, other.sign_);
    std::swap(high_, other.high_);
    std::swap(payload_.bits, other.payload_.bits);
}

void Variant::copyCounted(const Variant& other) noexcept {
    switch (other.tag_) {
    case VT_DISPATCH:
        new (&payload_.object) Ref<Object>(other.payload_.object);
        break;
    case VT_RECORD:
        new (&payload_.record) Ref<Record>(other.payload_.record);
        break;
    default:
        new (&payload_.array) Array(other.payload_.array);
        break;
    }
    tag_ = other.tag_;
}

void Variant::releaseCounted() noexcept {
    // The tag goes first: what a released object does must not find this value half gone.
    switch (std::exchange(tag_, VT_EMPTY)) {
    case VT_DISPATCH:
        payload_.object.~Ref();
        break;
    case VT_RECORD:
        payload_.record.~Ref();
        break;
    default:
        payload_.array.~Array();
        break;
    }
}

Decimal Variant::asDecimal() const {
    expect(VT_DECIMAL);
    return Decimal(payload_.bits, high_, scale_, sign_ != 0);
}

const Array& Variant::asArray() const {
    if ((tag_ & (VT_ARRAY | VT_BYREF)) != VT_ARRAY) throwTypeMismatch();
    return payload_.array;
}

Array& Variant::arrayForWriting() {
    if (tag_ == (VT_BYREF | VT_VARIANT)) return static_cast<Variant*>(payload_.reference)->arrayForWriting();
    if (!isArray()) throwTypeMismatch();
    return isByRef() ? *static_cast<Array*>(payload_.reference) : payload_.array;
}

Variant Variant::dereferenced() const {
    if (!isByRef()) return *this;
    void* const variable = payload_.reference;
    if (isArray()) return *static_cast<Array*>(variable);
    switch (tag_ & ~VT_BYREF) {
    case VT_VARIANT:
        return static_cast<Variant*>(variable)->dereferenced();
    case VT_BOOL:
        return *static_cast<bool*>(variable);
    case VT_UI1:
        return *static_cast<std::uint8_t*>(variable);
    case VT_I2:
        return *static_cast<std::int16_t*>(variable);
    case VT_I4:
        return *static_cast<std::int32_t*>(variable);
    case VT_R4:
        return *static_cast<float*>(variable);
    case VT_R8:
        return *static_cast<double*>(variable);
    case VT_CY:
        return *static_cast<Currency*>(variable);
    case VT_DATE:
        return *static_cast<Date*>(variable);
    case VT_DECIMAL:
        return *static_cast<Decimal*>(variable);
    case VT_BSTR:
        return *static_cast<String*>(variable);
    case VT_RECORD:
        return *static_cast<Ref<Record>*>(variable);
    default:
        return *static_cast<Ref<Object>*>(variable);
    }
}

namespace {

template <class T>
void assign(void* variable, const Variant& value) {
    *static_cast<T*>(variable) = fromVariant<T>(value);
}

} // namespace

void Variant::storeThrough(const Variant& value) const {
    if (!isByRef()) return;
    void* const variable = payload_.reference;
    if (isArray()) {
        *static_cast<Array*>(variable) = argumentToArray(value);
        return;
    }
    switch (tag_ & ~VT_BYREF) {
    case VT_VARIANT:
        return assign<Variant>(variable, value);
    case VT_BOOL:
        return assign<bool>(variable, value);
    case VT_UI1:
        return assign<std::uint8_t>(variable, value);
    case VT_I2:
        return assign<std::int16_t>(variable, value);
    case VT_I4:
        return assign<std::int32_t>(variable, value);
    case VT_R4:
        return assign<float>(variable, value);
    case VT_R8:
        return assign<double>(variable, value);
    case VT_CY:
        return assign<Currency>(variable, value);
    case VT_DATE:
        return assign<Date>(variable, value);
    case VT_DECIMAL:
        return assign<Decimal>(variable, value);
    case VT_BSTR:
        return assign<String>(variable, value);
    case VT_RECORD:
        *static_cast<Ref<Record>*>(variable) = argumentToRecord(value);
        return;
    default:
        return assign<Ref<Object>>(variable, value);
    }
}

void Variant::store(const Variant& value) {
    if (isByRef()) {
        storeThrough(value);
    } else {
        *this = value.dereferenced();
    }
}

} // namespace automation
