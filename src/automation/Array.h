#pragma once
// Arrays of automation values with bounds of their own.

#include "automation/VariantType.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

namespace automation {

class Variant;

/// One dimension: its lowest subscript and how many there are.
struct Bound {
    std::int32_t lower = 0;
    std::uint32_t count = 0;
    friend bool operator==(const Bound&, const Bound&) = default;
};

/// An array of Variants or of one element type, with 1 to 60 dimensions. It has value semantics: a copy
/// shares the elements until one of the two is written. The first subscript varies fastest. A subscript
/// out of its bounds, or a wrong number of them, throws Error 9; so does any access to an array that has
/// no dimensions yet.
class Array {
public:
    static constexpr int maxDimensions = 60;

    /// No dimensions, elements of type Variant.
    Array() noexcept = default;
    /// Elements start Empty, zero, "" or Nothing. Error 5 for an element type that arrays cannot have,
    /// Error 9 for more than 60 dimensions, Error 7 for a size that memory cannot hold.
    explicit Array(VARTYPE element, std::span<const Bound> bounds = {});
    Array(VARTYPE element, std::initializer_list<Bound> bounds)
        : Array(element, std::span<const Bound>(bounds.begin(), bounds.size())) {}
    Array(const Array& other) noexcept;
    Array(Array&& other) noexcept : data_(other.data_) { other.data_ = nullptr; }
    Array& operator=(const Array& other) noexcept;
    Array& operator=(Array&& other) noexcept;
    ~Array();

    /// One dimension of Variants from 0, as the language's array function gives.
    static Array of(std::initializer_list<Variant> values);
    static Array ofVariants(std::span<const Variant> values, std::int32_t lower = 0);
    static Array ofBytes(std::span<const std::uint8_t> bytes, std::int32_t lower = 0);

    VARTYPE elementType() const noexcept;
    int dimensions() const noexcept;
    /// Bounds of a dimension counted from 1; Error 9 for one that there is not.
    std::int32_t lower(int dimension = 1) const;
    std::int32_t upper(int dimension = 1) const;
    std::span<const Bound> bounds() const noexcept;
    /// Elements in all.
    std::size_t size() const noexcept;

    Variant at(std::span<const std::int32_t> subscripts) const;
    /// The value is converted to the element's type (Error 13 or 6 when it cannot be).
    void put(std::span<const std::int32_t> subscripts, const Variant& value);
    template <class... I>
    Variant operator()(I... subscripts) const;
    template <class... I>
    void set(const Variant& value, I... subscripts);

    /// Elements by their place in memory, 0 to size - 1.
    Variant element(std::size_t place) const;
    void putElement(std::size_t place, const Variant& value);
    /// Place in memory of the element at the subscripts.
    std::size_t placeOf(std::span<const std::int32_t> subscripts) const;

    /// The elements of an array of Variants; Error 13 for another element type.
    std::span<const Variant> variants() const;
    std::span<Variant> variants();
    /// The elements of an array of bytes (VT_UI1); Error 13 for another element type.
    std::span<const std::uint8_t> bytes() const;
    std::span<std::uint8_t> bytes();

    /// New dimensions, elements at their start values.
    void redim(std::span<const Bound> bounds);
    /// Another upper end of the last dimension, elements that stay kept. Error 9 for any other change.
    void redimPreserve(std::span<const Bound> bounds);
    /// Takes all dimensions away.
    void erase();

    /// The address of the elements for code that moves blocks; null without elements. Booleans are 16-bit
    /// -1 and 0, dates doubles, currency 64-bit integers.
    const void* data() const noexcept;
    void* data();

    /// Whether both share their elements.
    bool sharesWith(const Array& other) const noexcept { return data_ == other.data_; }

private:
    struct Data;
    explicit Array(Data* data) noexcept : data_(data) {}
    void detach();
    Variant valueAt(std::size_t place) const; ///< A place that there is
    static Data* allocate(VARTYPE element, std::span<const Bound> bounds);
    static Data* clone(const Data& source);
    static void release(Data* data) noexcept;

    Data* data_ = nullptr;
};

static_assert(sizeof(Array) == sizeof(void*));

} // namespace automation

// The templates above are defined where Variant is complete.
#include "automation/Variant.h"
