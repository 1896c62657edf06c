#pragma once
// An object that is selected while a test runs.

#include "platform/gdi.h"

namespace test {

/// Selects an object for the length of a scope and deletes it.
class Selected {
public:
    Selected(platform::HDC dc, platform::HGDIOBJ object)
        : dc_(dc), object_(object), former_(platform::SelectObject(dc, object)) {}
    ~Selected() {
        platform::SelectObject(dc_, former_);
        platform::DeleteObject(object_);
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    platform::HDC dc_;
    platform::HGDIOBJ object_;
    platform::HGDIOBJ former_;
};

} // namespace test
