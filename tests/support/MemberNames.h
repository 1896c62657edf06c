#pragma once
// The members of a class as programs see them.

#include "automation/ClassTable.h"

#include <string>
#include <vector>

namespace tests {

/// The names of the table's members in their order; a property that is read and written counts once.
inline std::vector<std::string> memberNames(const automation::ClassTable& table) {
    std::vector<std::string> names;
    for (const auto& member : table.members())
        if (names.empty() || names.back() != member.name.utf8()) names.push_back(member.name.utf8());
    return names;
}

} // namespace tests
