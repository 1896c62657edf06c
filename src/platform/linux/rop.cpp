#include "platform/linux/rop.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace platform::driver {

namespace {

/// Truth tables of R2_BLACK (1) to R2_WHITE (16) with the pen as pattern.
constexpr std::array<Rop3, 17> modeTable = {0xF0, 0x00, 0x05, 0x0A, 0x0F, 0x50, 0x55, 0x5A, 0x5F,
                                            0xA0, 0xA5, 0xAA, 0xAF, 0xF0, 0xF5, 0xFA, 0xFF};

constexpr Rop3 codeOf(DWORD rop) {
    return static_cast<Rop3>(rop >> 16);
}

/// What the four operations of the target are, for pattern and source known to be 0 or 1.
struct Cases {
    Masks p0s0, p0s1, p1s0, p1s1;
};

Masks maskPair(unsigned twoBits) {
    const std::uint32_t at0 = (twoBits & 1) ? ~0u : 0u;
    const std::uint32_t at1 = (twoBits & 2) ? ~0u : 0u;
    return {at0 ^ at1, at0};
}

Cases casesOf(Rop3 rop) {
    return {maskPair(rop & 3u), maskPair(rop >> 2 & 3u), maskPair(rop >> 4 & 3u), maskPair(rop >> 6 & 3u)};
}

std::uint32_t evaluate(const Cases& c, std::uint32_t d, std::uint32_t s, std::uint32_t p) {
    const std::uint32_t a = (d & c.p0s0.keep) ^ c.p0s0.flip;
    const std::uint32_t b = (d & c.p0s1.keep) ^ c.p0s1.flip;
    const std::uint32_t e = (d & c.p1s0.keep) ^ c.p1s0.flip;
    const std::uint32_t f = (d & c.p1s1.keep) ^ c.p1s1.flip;
    const std::uint32_t p0 = a ^ ((a ^ b) & s);
    const std::uint32_t p1 = e ^ ((e ^ f) & s);
    return p0 ^ ((p0 ^ p1) & p);
}

template <bool WithSource, bool WithPattern>
void generalSpan(std::uint32_t* d, const std::uint32_t* s, const std::uint32_t* p, std::size_t n, Rop3 rop) {
    const Cases cases = casesOf(rop);
    for (std::size_t i = 0; i < n; ++i)
        d[i] = evaluate(cases, d[i], WithSource ? s[i] : 0, WithPattern ? p[i] : 0);
}

void copySource(std::uint32_t* d, const std::uint32_t* s, const std::uint32_t*, std::size_t n, Rop3) {
    std::memmove(d, s, n * sizeof *d);
}

void copyPattern(std::uint32_t* d, const std::uint32_t*, const std::uint32_t* p, std::size_t n, Rop3) {
    std::memmove(d, p, n * sizeof *d);
}

void invertTarget(std::uint32_t* d, const std::uint32_t*, const std::uint32_t*, std::size_t n, Rop3) {
    for (std::size_t i = 0; i < n; ++i)
        d[i] = ~d[i];
}

void xorSource(std::uint32_t* d, const std::uint32_t* s, const std::uint32_t*, std::size_t n, Rop3) {
    for (std::size_t i = 0; i < n; ++i)
        d[i] ^= s[i];
}

void andSource(std::uint32_t* d, const std::uint32_t* s, const std::uint32_t*, std::size_t n, Rop3) {
    for (std::size_t i = 0; i < n; ++i)
        d[i] &= s[i];
}

void orSource(std::uint32_t* d, const std::uint32_t* s, const std::uint32_t*, std::size_t n, Rop3) {
    for (std::size_t i = 0; i < n; ++i)
        d[i] |= s[i];
}

void copyInvertedSource(std::uint32_t* d, const std::uint32_t* s, const std::uint32_t*, std::size_t n, Rop3) {
    for (std::size_t i = 0; i < n; ++i)
        d[i] = ~s[i];
}

void xorPattern(std::uint32_t* d, const std::uint32_t*, const std::uint32_t* p, std::size_t n, Rop3) {
    for (std::size_t i = 0; i < n; ++i)
        d[i] ^= p[i];
}

/// Calls `apply(byte, mask)` for each byte that holds some of the bits `from` to `to`.
template <class Apply>
void forEachByte(int from, int to, Apply apply) {
    if (from >= to) return;
    const int first = from >> 3;
    const int last = (to - 1) >> 3;
    constexpr std::uint8_t all = 0xFF;
    const auto head = static_cast<std::uint8_t>(all >> (from & 7));
    const auto tail = static_cast<std::uint8_t>(all << (7 - ((to - 1) & 7)));
    if (first == last) {
        apply(first, static_cast<std::uint8_t>(head & tail));
        return;
    }
    apply(first, head);
    for (int byte = first + 1; byte < last; ++byte)
        apply(byte, all); // a constant, so that the compiler takes many bytes at once
    apply(last, tail);
}

void applyToByte(std::uint8_t& byte, std::uint8_t mask, std::uint8_t keep, std::uint8_t flip) {
    const int changed = (byte & keep) ^ flip;
    byte = static_cast<std::uint8_t>((byte & ~mask) | (changed & mask));
}

} // namespace

Rop3 rop3OfMode(int rop2) {
    return rop2 >= R2_BLACK && rop2 <= R2_WHITE ? modeTable[static_cast<std::size_t>(rop2)] : codeOf(PATCOPY);
}

Masks masksOf(Rop3 rop, std::uint32_t pattern) {
    const Cases cases = casesOf(rop);
    const std::uint32_t at0 = evaluate(cases, 0, 0, pattern);
    const std::uint32_t at1 = evaluate(cases, ~0u, 0, pattern);
    return {at0 ^ at1, at0};
}

void applyMasks(std::uint32_t* row, std::size_t count, Masks masks) {
    if (masks.keep == 0) {
        std::fill_n(row, count, masks.flip);
    } else if (masks.keep == ~0u) {
        for (std::size_t i = 0; i < count; ++i)
            row[i] ^= masks.flip;
    } else {
        for (std::size_t i = 0; i < count; ++i)
            row[i] = (row[i] & masks.keep) ^ masks.flip;
    }
}

void applyMasksToBits(std::uint8_t* row, int from, int to, Masks masks) {
    const std::uint8_t keep = (masks.keep & 1) ? 0xFF : 0;
    const std::uint8_t flip = (masks.flip & 1) ? 0xFF : 0;
    forEachByte(from, to, [=](int byte, std::uint8_t mask) { applyToByte(row[byte], mask, keep, flip); });
}

void applyMasksToBits(std::uint8_t* row, int from, int to, std::span<const ByteMasks> masks) {
    std::size_t next = 0;
    forEachByte(from, to, [&](int byte, std::uint8_t mask) {
        applyToByte(row[byte], mask, masks[next].keep, masks[next].flip);
        if (++next == masks.size()) next = 0;
    });
}

Span spanFor(Rop3 rop) {
    switch (rop) {
    case codeOf(SRCCOPY):
        return copySource;
    case codeOf(PATCOPY):
        return copyPattern;
    case codeOf(DSTINVERT):
        return invertTarget;
    case codeOf(SRCINVERT):
        return xorSource;
    case codeOf(SRCAND):
        return andSource;
    case codeOf(SRCPAINT):
        return orSource;
    case codeOf(NOTSRCCOPY):
        return copyInvertedSource;
    case codeOf(PATINVERT):
        return xorPattern;
    default:
        break;
    }
    if (usesSource(rop)) return usesPattern(rop) ? generalSpan<true, true> : generalSpan<true, false>;
    return usesPattern(rop) ? generalSpan<false, true> : generalSpan<false, false>;
}

void combineBits(std::uint8_t* target, const std::uint8_t* source, const std::uint8_t* pattern, int from,
                 int to, Rop3 rop) {
    const Cases cases = casesOf(rop);
    forEachByte(from, to, [&](int byte, std::uint8_t mask) {
        const std::uint32_t s = source ? source[byte] : 0u;
        const std::uint32_t p = pattern ? pattern[byte] : 0u;
        const std::uint32_t combined = evaluate(cases, target[byte], s, p);
        target[byte] = static_cast<std::uint8_t>((target[byte] & ~mask) | (combined & mask));
    });
}

} // namespace platform::driver
