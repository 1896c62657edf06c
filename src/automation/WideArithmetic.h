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

/// Limbs in use.
template <std::size_t Limbs>
constexpr std::size_t lengthOf(const Integer<Limbs>& a) {
    std::size_t length = Limbs;
    while (length > 0 && a[length - 1] == 0)
        --length;
    return length;
}

/// a -= b * factor, where b has `length` limbs and stands at limb `at` of a; returns whether that went
/// below zero (a is then short of the next limb's one).
template <std::size_t Limbs>
constexpr bool subtractProduct(Integer<Limbs>& a, const Integer<Limbs>& b, std::size_t length, std::size_t at,
                               std::uint32_t factor) {
    std::uint64_t carry = 0;
    std::int64_t borrow = 0;
    for (std::size_t i = 0; i <= length; ++i) {
        if (i < length) carry += std::uint64_t{b[i]} * factor;
        borrow += std::int64_t{a[at + i]} - static_cast<std::uint32_t>(carry);
        a[at + i] = static_cast<std::uint32_t>(borrow);
        borrow >>= limbBits;
        carry >>= limbBits;
    }
    return borrow != 0;
}

/// Adds b back at limb `at` of a; returns whether a came out of the negative.
template <std::size_t Limbs>
constexpr bool addBack(Integer<Limbs>& a, const Integer<Limbs>& b, std::size_t length, std::size_t at) {
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i <= length; ++i) {
        carry += std::uint64_t{a[at + i]} + (i < length ? b[i] : 0);
        a[at + i] = static_cast<std::uint32_t>(carry);
        carry >>= limbBits;
    }
    return carry != 0;
}

/// a /= b; returns the remainder. The divisor is not zero and a uses at most Limbs - 1 limbs. Long
/// division in limbs, each digit of the quotient guessed from the two highest limbs of the dividend and
/// the highest of the divisor, which is shifted so that its top bit is set.
template <std::size_t Limbs>
constexpr Integer<Limbs> divide(Integer<Limbs>& a, const Integer<Limbs>& b) {
    const std::size_t length = lengthOf(b);
    if (length == 1) return {divideSmall(a, b[0])};
    if (compare(a, b) < 0) {
        const Integer<Limbs> rest = a;
        a = {};
        return rest;
    }
    Integer<Limbs> rest = a;
    Integer<Limbs> divisor = b;
    int shift = 0;
    for (; (divisor[length - 1] >> (limbBits - 1)) == 0; ++shift) {
        shiftIn(divisor, 0);
        shiftIn(rest, 0);
    }
    Integer<Limbs> quotient{};
    for (std::size_t at = Limbs - length; at-- > 0;) {
        const std::uint64_t top = (std::uint64_t{rest[at + length]} << limbBits) | rest[at + length - 1];
        std::uint64_t digit = top / divisor[length - 1];
        constexpr std::uint64_t largestDigit = 0xFFFFFFFFu;
        if (digit > largestDigit) digit = largestDigit;
        if (subtractProduct(rest, divisor, length, at, static_cast<std::uint32_t>(digit))) {
            // The guess was too high, by two at most.
            do
                --digit;
            while (!addBack(rest, divisor, length, at));
        }
        quotient[at] = static_cast<std::uint32_t>(digit);
    }
    a = quotient;
    for (; shift > 0; --shift) {
        for (std::size_t i = 0; i + 1 < Limbs; ++i)
            rest[i] = (rest[i] >> 1) | (rest[i + 1] << (limbBits - 1));
        rest[Limbs - 1] >>= 1;
    }
    return rest;
}

} // namespace automation::wide
