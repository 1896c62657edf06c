#pragma once
// Resources linked into a program or library, by type and by number or name. Both systems build them from
// the same list in resource-script form; see target_resources in cmake/Resources.cmake.

#include "platform/errors.h"
#include "platform/types.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

enum class ResourceType : WORD {
    Bitmap = 2,
    RawData = 10,
    Cursor = 12, ///< A cursor with all its sizes
    Icon = 14,   ///< An icon with all its sizes
};

/// A resource's number, or its name without regard to case.
class ResourceName {
public:
    ResourceName(WORD number) : number_(number) {}
    ResourceName(std::u16string_view name) : name_(name) {}

    bool isNumber() const { return name_.empty(); }
    WORD number() const { return number_; }
    const std::u16string& name() const { return name_; }

private:
    WORD number_ = 0;
    std::u16string name_;
};

/// The resource as the bytes of the file that it was made from (.bmp, .ico, .cur, raw data); empty, with
/// ERROR_RESOURCE_TYPE_NOT_FOUND or ERROR_RESOURCE_NAME_NOT_FOUND, when the module has none.
std::vector<std::uint8_t> resourceBytes(HINSTANCE module, ResourceType type, const ResourceName& name);

/// One of the system's own bitmaps, icons and cursors by its number (OBM_, OIC_, OCR_), in its own size: the
/// value of a handle that the caller ends. 0 where there is none, which on Linux is always so.
std::uint32_t systemImage(ResourceType type, WORD number);

} // namespace platform
