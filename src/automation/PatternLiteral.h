#pragma once
// Text that stands for itself in a pattern of Format: one character behind a backslash, or any between
// quotes.

#include "automation/TextBuilder.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace automation {

/// Length of the quoted or escaped text that starts a pattern, 0 when none does. The pattern is not empty.
inline std::size_t literalLength(std::u16string_view pattern) {
    if (pattern[0] == u'\\') return std::min<std::size_t>(2, pattern.size());
    if (pattern[0] != u'"') return 0;
    const std::size_t close = pattern.find(u'"', 1);
    return close == std::u16string_view::npos ? pattern.size() : close + 1;
}

/// Writes what such a text stands for.
inline void writeLiteral(TextBuilder& out, std::u16string_view literal) {
    if (literal[0] == u'\\') return out.add(literal.substr(1));
    literal.remove_prefix(1);
    if (!literal.empty() && literal.back() == u'"') literal.remove_suffix(1);
    out.add(literal);
}

} // namespace automation
