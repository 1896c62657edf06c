#pragma once
// Short dates as the system at hand writes them.

#include "automation/Locale.h"

#include <string>
#include <string_view>

namespace tests {

/// A text with dates written "dd/MM/yyyy", as the user's locale writes them where it has that order: some
/// systems leave out the leading zeros of day and month.
inline std::u16string asSystemWrites(std::u16string_view text) {
    std::u16string result(text);
    if (automation::Locale::user().shortDate != u"d/M/yyyy") return result;
    for (std::size_t i = 0; i + 2 < result.size(); ++i) {
        const bool starts = i == 0 || result[i - 1] == u'/';
        if (starts && result[i] == u'0' && result[i + 2] == u'/') result.erase(i, 1);
    }
    return result;
}

} // namespace tests
