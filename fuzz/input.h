#pragma once
// The fuzzer's bytes as the library takes them.

#include "platform/locale.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fuzz {

/// UTF-8 bytes as text; malformed ones become U+FFFD.
inline std::u16string text(const std::uint8_t* data, std::size_t size) {
    return platform::wideFromUtf8({reinterpret_cast<const char*>(data), size});
}

/// Takes one byte off the front; 0 when none is left.
inline std::uint8_t takeByte(const std::uint8_t*& data, std::size_t& size) {
    if (size == 0) return 0;
    --size;
    return *data++;
}

/// One of the three locales that differ in everything, by the byte.
inline void chooseLocale(std::uint8_t choice) {
    static const char* const names[] = {"es-ES", "en-US", "sv-SE"};
    platform::overrideUserLocale(names[choice % 3]);
}

} // namespace fuzz
