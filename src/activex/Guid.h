#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace activex {

/// An identifier of 128 bits, laid out as the system lays it out.
struct Guid {
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::array<std::uint8_t, 8> data4{};

    /// From "01234567-89ab-cdef-0123-456789abcdef"; anything else does not compile.
    static consteval Guid parse(std::string_view text);
    /// The identifier that always belongs to a name within `space`: for what has none in the table.
    static Guid ofName(const Guid& space, std::u16string_view name);

    /// The identifier `count` further on; those of one class follow each other.
    constexpr Guid next(std::uint32_t count) const {
        Guid result = *this;
        result.data1 += count;
        return result;
    }
    /// In the form that `parse` reads, in lower case.
    std::string text() const;

    friend bool operator==(const Guid&, const Guid&) = default;
    friend auto operator<=>(const Guid&, const Guid&) = default;
};

consteval Guid Guid::parse(std::string_view text) {
    constexpr std::size_t length = 36;
    if (text.size() != length) throw std::invalid_argument("the length of an identifier");
    std::array<std::uint8_t, 16> bytes{};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == 8 || i == 13 || i == 18 || i == 23) {
            if (text[i] != '-') throw std::invalid_argument("the hyphens of an identifier");
            continue;
        }
        const char c = text[i];
        int value = -1;
        if (c >= '0' && c <= '9') value = c - '0';
        if (c >= 'a' && c <= 'f') value = c - 'a' + 10;
        if (value < 0) throw std::invalid_argument("the digits of an identifier");
        bytes[digits / 2] = static_cast<std::uint8_t>(bytes[digits / 2] * 16 + value);
        ++digits;
    }
    Guid result;
    for (std::size_t i = 0; i < 4; ++i)
        result.data1 = result.data1 << 8 | bytes[i];
    result.data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
    result.data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
    for (std::size_t i = 0; i < 8; ++i)
        result.data4[i] = bytes[8 + i];
    return result;
}

} // namespace activex
