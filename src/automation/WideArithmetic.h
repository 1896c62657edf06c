#pragma once
// Unsigned integers of up to 256 bits in 32-bit limbs, for the exact arithmetic of Decimal and Currency.
// Written out in limbs because 32-bit compilers have no wider integer.

#include <array>
#include <cstddef>
#include <cstdint>

namespace automation::wide {

/// Least significant limb first.
template <std::size_t Limbs>
using Integer = std::array<std::uint32_t, Limbs>;

inline constexpr int limbBits = 32;

template <std::size_t Limbs>
constexpr bool isZero(const Integer<Limbs>& a) {
    for (std::uint32_t limb : a)
        if (limb != 0) return false;
    return true;
}

/// -1, 0 or 1.
template <std::size_t Limbs>
constexpr int compare(const Integer<Limbs>& a, const Integer<Limbs>& b) {
    for (std::size_t i = Limbs; i-- > 0;)
        if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    return 0;
}

/// The top bits beyond the result's limbs are lost.
template <std::size_t To, std::size_t From>
constexpr Integer<To> resized(const Integer<From>& a) {
    Integer<To> result{};
    for (std::size_t i = 0; i < To && i < From; ++i)
        result[i] = a[i];
    return result;
}

/// a += b; returns the carry.
template <std::size_t Limbs>
constexpr std::uint32_t addTo(Integer<Limbs>& a, const Integer<Limbs>& b) {
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < Limbs; ++i) {
        carry += std::uint64_t{a[i]} + b[i];
        a[i] = static_cast<std::uint32_t>(carry);
        carry >>= limbBits;
    }
    return static_cast<std::uint32_t>(carry);
}

/// a += small; returns the carry.
template <std::size_t Limbs>
constexpr std::uint32_t addSmall(Integer<Limbs>& a, std::uint32_t small) {
    std::uint64_t carry = small;
    for (std::size_t i = 0; i < Limbs && carry != 0; ++i) {
        carry += a[i];
        a[i] = static_cast<std::uint32_t>(carry);
        carry >>= limbBits;
    }
    return static_cast<std::uint32_t>(carry);
}

/// a -= b, where a is not below b.
template <std::size_t Limbs>
constexpr void subtractFrom(Integer<Limbs>& a, const Integer<Limbs>& b) {
    std::int64_t borrow = 0;
    for (std::size_t i = 0; i < Limbs; ++i) {
        borrow += std::int64_t{a[i]} - b[i];
        a[i] = static_cast<std::uint32_t>(borrow);
        borrow >>= limbBits;
    }
}

/// a *= small; returns what overflowed.
template <std::size_t Limbs>
constexpr std::uint32_t multiplySmall(Integer<Limbs>& a, std::uint32_t small) {
    std::uint64_t carry = 0;
    for (std::uint32_t& limb : a) {
        carry += std::uint64_t{limb} * small;
        limb = static_cast<std::uint32_t>(carry);
        carry >>= limbBits;
    }
    return static_cast<std::uint32_t>(carry);
}

/// a /= small; returns the remainder.
template <std::size_t Limbs>
constexpr std::uint32_t divideSmall(Integer<Limbs>& a, std::uint32_t small) {
    std::uint64_t rest = 0;
    for (std::size_t i = Limbs; i-- > 0;) {
        rest = (rest << limbBits) | a[i];
        a[i] = static_cast<std::uint32_t>(rest / small);
        rest %= small;
    }
    return static_cast<std::uint32_t>(rest);
}

template <std::size_t A, std::size_t B>
constexpr Integer<A + B> product(const Integer<A>& a, const Integer<B>& b) {
    Integer<A + B> result{};
    for (std::size_t i = 0; i < A; ++i) {
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < B; ++j) {
            carry += std::uint64_t{a[i]} * b[j] + result[i + j];
            result[i + j] = static_cast<std::uint32_t>(carry);
            carry >>= limbBits;
        }
        result[i + B] = static_cast<std::uint32_t>(carry);
    }
    return result;
}

/// a becomes twice a plus `bit`; returns the bit pushed out.
template <std::size_t Limbs>
constexpr std::uint32_t shiftIn(Integer<Limbs>& a, std::uint32_t bit) {
    for (std::uint32_t& limb : a) {
        const std::uint32_t out = limb >> (limbBits - 1);
        limb = (limb << 1) | bit;
        bit = out;
    }
    return bit;
}

/// a /= b; returns the remainder. The divisor is not zero and has at most Limbs - 1 limbs in use.
template <std::size_t Limbs>
constexpr Integer<Limbs> divide(Integer<Limbs>& a, const Integer<Limbs>& b) {
    Integer<Limbs> rest{};
    for (std::size_t bit = Limbs * limbBits; bit-- > 0;) {
        std::uint32_t& limb = a[bit / limbBits];
        const std::uint32_t mask = std::uint32_t{1} << (bit % limbBits);
        shiftIn(rest, (limb & mask) ? 1u : 0u);
        if (compare(rest, b) >= 0) {
            subtractFrom(rest, b);
            limb |= mask;
        } else {
            limb &= ~mask;
        }
    }
    return rest;
}

} // namespace automation::wide
