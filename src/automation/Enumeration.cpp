#include "automation/Enumeration.h"

#include "automation/Names.h"

namespace automation {

std::optional<std::int32_t> Enumeration::find(std::u16string_view name) const {
    for (const Entry& entry : entries_)
        if (sameName(entry.name, name)) return entry.value;
    return std::nullopt;
}

String Enumeration::nameOf(std::int32_t value) const {
    for (const Entry& entry : entries_)
        if (entry.value == value) return entry.name;
    return {};
}

} // namespace automation
