#include "automation/Array.h"

#include "automation/ChangeType.h"
#include "automation/Object.h"
#include "automation/Record.h"

#include <cstring>
#include <limits>
#include <memory>
#include <new>

namespace automation {

namespace {

std::size_t elementSize(VARTYPE element) {
    switch (element) {
    case VT_VARIANT:
        return sizeof(Variant);
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_RECORD:
        return sizeof(void*);
    case VT_UI1:
        return sizeof(std::uint8_t);
    case VT_I2:
    case VT_BOOL:
        return sizeof(std::int16_t);
    case VT_I4:
    case VT_R4:
    case VT_ERROR:
        return sizeof(std::int32_t);
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return sizeof(std::int64_t);
    case VT_DECIMAL:
        return sizeof(Decimal);
    default:
        throwError(errors::InvalidCall);
    }
}

template <class T>
void destroyElements(void* first, std::size_t from, std::size_t to) noexcept {
    for (std::size_t i = from; i < to; ++i)
        static_cast<T*>(first)[i].~T();
}

template <class T>
void copyElements(void* to, const void* from, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        new (static_cast<T*>(to) + i) T(static_cast<const T*>(from)[i]);
}

} // namespace

// All element types have an all-zero start value, and none minds being moved in memory.
struct Array::Data {
    std::uint32_t count = 1;
    VARTYPE element = VT_VARIANT;
    std::size_t elementSize = 0;
    std::size_t total = 0;
    std::vector<Bound> bounds;
    void* elements = nullptr;

    Data() = default;
    Data(const Data&) = delete;
    Data& operator=(const Data&) = delete;
    ~Data() {
        destroy(0, total);
        ::operator delete(elements);
    }

    /// Room for the elements of `sizes`, all zero. Bounds and total are taken over.
    void allocate(std::span<const Bound> sizes) {
        constexpr std::size_t most = std::numeric_limits<std::int32_t>::max();
        if (sizes.size() > maxDimensions) throwError(errors::SubscriptOutOfRange);
        std::uint64_t wanted = sizes.empty() ? 0 : 1;
        for (const Bound& bound : sizes) {
            wanted *= bound.count;
            if (wanted * elementSize > most) throwError(errors::OutOfMemory);
        }
        void* block = wanted == 0 ? nullptr : ::operator new(static_cast<std::size_t>(wanted) * elementSize);
        if (block) std::memset(block, 0, static_cast<std::size_t>(wanted) * elementSize);
        bounds.assign(sizes.begin(), sizes.end());
        total = static_cast<std::size_t>(wanted);
        elements = block;
    }

    void destroy(std::size_t from, std::size_t to) noexcept {
        switch (element) {
        case VT_VARIANT:
            return destroyElements<Variant>(elements, from, to);
        case VT_BSTR:
            return destroyElements<String>(elements, from, to);
        case VT_DISPATCH:
            return destroyElements<Ref<Object>>(elements, from, to);
        case VT_RECORD:
            return destroyElements<Ref<Record>>(elements, from, to);
        default:
            return;
        }
    }

    void copyFrom(const Data& source) {
        switch (element) {
        case VT_VARIANT:
            return copyElements<Variant>(elements, source.elements, total);
        case VT_BSTR:
            return copyElements<String>(elements, source.elements, total);
        case VT_DISPATCH:
            return copyElements<Ref<Object>>(elements, source.elements, total);
        case VT_RECORD:
            for (std::size_t i = 0; i < total; ++i) {
                const auto& record = static_cast<const Ref<Record>*>(source.elements)[i];
                if (record) static_cast<Ref<Record>*>(elements)[i] = record->clone();
            }
            return;
        default:
            if (total != 0) std::memcpy(elements, source.elements, total * elementSize);
        }
    }

    template <class T>
    T& as(std::size_t place) const {
        return static_cast<T*>(elements)[place];
    }
};

Array::Data* Array::allocate(VARTYPE element, std::span<const Bound> bounds) {
    auto data = std::make_unique<Data>();
    data->element = element;
    data->elementSize = automation::elementSize(element);
    data->allocate(bounds);
    return data.release();
}

Array::Data* Array::clone(const Data& source) {
    Data* data = allocate(source.element, source.bounds);
    data->copyFrom(source);
    return data;
}

void Array::release(Data* data) noexcept {
    if (data && --data->count == 0) delete data;
}

Array::Array(VARTYPE element, std::span<const Bound> bounds) : data_(allocate(element, bounds)) {}

Array::Array(const Array& other) noexcept : data_(other.data_) {
    if (data_) ++data_->count;
}

Array& Array::operator=(const Array& other) noexcept {
    Array copy(other);
    std::swap(data_, copy.data_);
    return *this;
}

Array& Array::operator=(Array&& other) noexcept {
    std::swap(data_, other.data_);
    return *this;
}

Array::~Array() {
    release(data_);
}

void Array::detach() {
    if (!data_ || data_->count == 1) return;
    Data* own = clone(*data_);
    --data_->count;
    data_ = own;
}

Array Array::of(std::initializer_list<Variant> values) {
    return ofVariants(std::span<const Variant>(values.begin(), values.size()));
}

Array Array::ofVariants(std::span<const Variant> values, std::int32_t lower) {
    Array result(VT_VARIANT, {{lower, static_cast<std::uint32_t>(values.size())}});
    for (std::size_t i = 0; i < values.size(); ++i)
        result.data_->as<Variant>(i) = values[i];
    return result;
}

Array Array::ofBytes(std::span<const std::uint8_t> bytes, std::int32_t lower) {
    Array result(VT_UI1, {{lower, static_cast<std::uint32_t>(bytes.size())}});
    if (!bytes.empty()) std::memcpy(result.data_->elements, bytes.data(), bytes.size());
    return result;
}

VARTYPE Array::elementType() const noexcept {
    return data_ ? data_->element : VT_VARIANT;
}

int Array::dimensions() const noexcept {
    return data_ ? static_cast<int>(data_->bounds.size()) : 0;
}

std::span<const Bound> Array::bounds() const noexcept {
    return data_ ? std::span<const Bound>(data_->bounds) : std::span<const Bound>();
}

std::int32_t Array::lower(int dimension) const {
    if (dimension < 1 || dimension > dimensions()) throwError(errors::SubscriptOutOfRange);
    return data_->bounds[static_cast<std::size_t>(dimension) - 1].lower;
}

std::int32_t Array::upper(int dimension) const {
    const std::int32_t first = lower(dimension);
    const Bound& bound = data_->bounds[static_cast<std::size_t>(dimension) - 1];
    return static_cast<std::int32_t>(first + static_cast<std::int64_t>(bound.count) - 1);
}

std::size_t Array::size() const noexcept {
    return data_ ? data_->total : 0;
}

std::size_t Array::placeOf(std::span<const std::int32_t> subscripts) const {
    if (!data_ || subscripts.empty() || subscripts.size() != data_->bounds.size())
        throwError(errors::SubscriptOutOfRange);
    std::size_t place = 0;
    std::size_t stride = 1;
    for (std::size_t d = 0; d < subscripts.size(); ++d) {
        const Bound& bound = data_->bounds[d];
        const std::int64_t offset = std::int64_t{subscripts[d]} - bound.lower;
        if (offset < 0 || offset >= std::int64_t{bound.count}) throwError(errors::SubscriptOutOfRange);
        place += static_cast<std::size_t>(offset) * stride;
        stride *= bound.count;
    }
    return place;
}

Variant Array::at(std::span<const std::int32_t> subscripts) const {
    return valueAt(placeOf(subscripts));
}

void Array::put(std::span<const std::int32_t> subscripts, const Variant& value) {
    putElement(placeOf(subscripts), value);
}

Variant Array::element(std::size_t place) const {
    if (place >= size()) throwError(errors::SubscriptOutOfRange);
    return valueAt(place);
}

Variant Array::valueAt(std::size_t place) const {
    switch (data_->element) {
    case VT_VARIANT:
        return data_->as<Variant>(place);
    case VT_BSTR:
        return data_->as<String>(place);
    case VT_DISPATCH:
        return data_->as<Ref<Object>>(place);
    case VT_RECORD:
        return data_->as<Ref<Record>>(place);
    case VT_UI1:
        return data_->as<std::uint8_t>(place);
    case VT_I2:
        return data_->as<std::int16_t>(place);
    case VT_BOOL:
        return data_->as<std::int16_t>(place) != 0;
    case VT_I4:
        return data_->as<std::int32_t>(place);
    case VT_ERROR:
        return Variant::error(data_->as<std::int32_t>(place));
    case VT_R4:
        return data_->as<float>(place);
    case VT_R8:
        return data_->as<double>(place);
    case VT_CY:
        return Currency::fromScaled(data_->as<std::int64_t>(place));
    case VT_DATE:
        return Date(data_->as<double>(place));
    default:
        return data_->as<Decimal>(place);
    }
}

void Array::putElement(std::size_t place, const Variant& value) {
    if (place >= size()) throwError(errors::SubscriptOutOfRange);
    // Converted and swapped in whole: what the old element's end sets off finds the array consistent.
    Variant converted = changeType(value, data_->element);
    detach();
    switch (data_->element) {
    case VT_VARIANT:
        data_->as<Variant>(place).swap(converted);
        break;
    case VT_BSTR:
        data_->as<String>(place) = converted.asString();
        break;
    case VT_DISPATCH:
        data_->as<Ref<Object>>(place) = converted.asObject();
        break;
    case VT_RECORD:
        data_->as<Ref<Record>>(place) = converted.asRecord();
        break;
    case VT_UI1:
        data_->as<std::uint8_t>(place) = converted.asByte();
        break;
    case VT_I2:
        data_->as<std::int16_t>(place) = converted.asInteger();
        break;
    case VT_BOOL:
        data_->as<std::int16_t>(place) = converted.asBoolean() ? -1 : 0;
        break;
    case VT_I4:
        data_->as<std::int32_t>(place) = converted.asLong();
        break;
    case VT_ERROR:
        data_->as<std::int32_t>(place) = converted.asError();
        break;
    case VT_R4:
        data_->as<float>(place) = converted.asSingle();
        break;
    case VT_R8:
        data_->as<double>(place) = converted.asDouble();
        break;
    case VT_CY:
        data_->as<std::int64_t>(place) = converted.asCurrency().scaled();
        break;
    case VT_DATE:
        data_->as<double>(place) = converted.asDate().value();
        break;
    default:
        data_->as<Decimal>(place) = converted.asDecimal();
        break;
    }
}

std::span<const Variant> Array::variants() const {
    if (elementType() != VT_VARIANT) throwTypeMismatch();
    if (size() == 0) return {};
    return {static_cast<const Variant*>(data_->elements), size()};
}

std::span<Variant> Array::variants() {
    if (elementType() != VT_VARIANT) throwTypeMismatch();
    if (size() == 0) return {};
    detach();
    return {static_cast<Variant*>(data_->elements), size()};
}

std::span<const std::uint8_t> Array::bytes() const {
    if (elementType() != VT_UI1) throwTypeMismatch();
    return {static_cast<const std::uint8_t*>(data()), size()};
}

std::span<std::uint8_t> Array::bytes() {
    if (elementType() != VT_UI1) throwTypeMismatch();
    return {static_cast<std::uint8_t*>(data()), size()};
}

void Array::redim(std::span<const Bound> bounds) {
    *this = Array(elementType(), bounds);
}

void Array::redimPreserve(std::span<const Bound> bounds) {
    if (dimensions() == 0) return redim(bounds);
    const std::size_t last = data_->bounds.size() - 1;
    bool onlyUpperEnd = bounds.size() == data_->bounds.size();
    for (std::size_t d = 0; onlyUpperEnd && d <= last; ++d)
        onlyUpperEnd = bounds[d].lower == data_->bounds[d].lower &&
                       (d == last || bounds[d].count == data_->bounds[d].count);
    if (!onlyUpperEnd) throwError(errors::SubscriptOutOfRange);

    // The last subscript varies slowest, so the elements that stay are the first of the block.
    detach();
    Array grown(data_->element, bounds);
    const std::size_t kept = std::min(data_->total, grown.data_->total);
    if (kept != 0) {
        std::memcpy(grown.data_->elements, data_->elements, kept * data_->elementSize);
        std::memset(data_->elements, 0, kept * data_->elementSize);
    }
    std::swap(data_, grown.data_);
}

void Array::erase() {
    *this = Array(elementType());
}

const void* Array::data() const noexcept {
    return data_ ? data_->elements : nullptr;
}

void* Array::data() {
    detach();
    return data_ ? data_->elements : nullptr;
}

} // namespace automation
