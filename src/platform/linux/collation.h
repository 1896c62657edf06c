#pragma once
// Dictionary order for what sorts many texts by their bytes.

#include <cstdint>
#include <string_view>
#include <vector>

namespace platform::driver {

/// Bytes whose order is that of the texts in the dictionary of the user's locale, without regard to case.
/// Empty where the locale has no rules.
std::vector<std::uint8_t> sortKey(std::u16string_view text);

} // namespace platform::driver
