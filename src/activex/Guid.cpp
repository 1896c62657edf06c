#include "activex/Guid.h"

#include <cstdio>

namespace activex {

namespace {

/// The 64-bit FNV-1a hash from a start value of one's own.
std::uint64_t hash(std::uint64_t start, std::u16string_view name) {
    constexpr std::uint64_t prime = 0x100000001B3u;
    std::uint64_t value = start;
    for (const char16_t unit : name)
        value = (value ^ unit) * prime;
    return value;
}

} // namespace

Guid Guid::ofName(const Guid& space, std::u16string_view name) {
    constexpr std::uint64_t basis = 0xCBF29CE484222325u;
    const std::uint64_t high = hash(basis ^ space.data1, name);
    const std::uint64_t low = hash(high + space.data2, name);
    Guid result;
    result.data1 = static_cast<std::uint32_t>(high >> 32);
    result.data2 = static_cast<std::uint16_t>(high >> 16);
    // Version 8 and the common variant: an identifier made in a way of one's own.
    result.data3 = static_cast<std::uint16_t>((high & 0x0FFF) | 0x8000);
    for (std::size_t i = 0; i < result.data4.size(); ++i)
        result.data4[i] = static_cast<std::uint8_t>(low >> (8 * (7 - i)));
    result.data4[0] = static_cast<std::uint8_t>((result.data4[0] & 0x3F) | 0x80);
    return result;
}

std::string Guid::text() const {
    std::array<char, 37> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x", data1,
                  data2, data3, data4[0], data4[1], data4[2], data4[3], data4[4], data4[5], data4[6],
                  data4[7]);
    return buffer.data();
}

} // namespace activex
