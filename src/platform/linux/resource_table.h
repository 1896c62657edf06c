#pragma once
// The resources that the build links into a program: see target_resources in cmake/Resources.cmake.

#include "platform/resources.h"

#include <span>

namespace platform::driver {

struct ResourceEntry {
    ResourceType type;
    WORD number;
    const char16_t* name; ///< In capitals; null for a numbered resource
    const unsigned char* begin;
    const unsigned char* end;
};

/// A table made while the program starts is searched from then on.
class ResourceTable {
public:
    explicit ResourceTable(std::span<const ResourceEntry> entries);
    ~ResourceTable();
    ResourceTable(const ResourceTable&) = delete;
    ResourceTable& operator=(const ResourceTable&) = delete;

    std::span<const ResourceEntry> entries() const { return entries_; }

private:
    std::span<const ResourceEntry> entries_;
};

} // namespace platform::driver
