#include "platform/resources.h"

#include "platform/linux/resource_table.h"
#include "platform/locale.h"

#include <algorithm>
#include <vector>

namespace platform {
namespace driver {
namespace {

std::vector<const ResourceTable*>& tables() {
    static std::vector<const ResourceTable*> all;
    return all;
}

} // namespace

ResourceTable::ResourceTable(std::span<const ResourceEntry> entries) : entries_(entries) {
    tables().push_back(this);
}

ResourceTable::~ResourceTable() {
    std::erase(tables(), this);
}

} // namespace driver

std::vector<std::uint8_t> resourceBytes(HINSTANCE, ResourceType type, const ResourceName& name) {
    const std::u16string wanted = upperCase(name.name());
    bool typeKnown = false;
    for (const auto* table : driver::tables()) {
        for (const auto& entry : table->entries()) {
            if (entry.type != type) continue;
            typeKnown = true;
            const bool same = name.isNumber() ? !entry.name && entry.number == name.number()
                                              : entry.name && wanted == entry.name;
            if (same) return {entry.begin, entry.end};
        }
    }
    SetLastError(typeKnown ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_RESOURCE_TYPE_NOT_FOUND);
    return {};
}

std::uint32_t systemImage(ResourceType, WORD) {
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return 0;
}

} // namespace platform
