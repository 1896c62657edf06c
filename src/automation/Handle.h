#pragma once
// The platform's handles in Variants: programs see a handle as a Long.

#include "automation/Argument.h"
#include "platform/types.h"

namespace automation {

template <class Kind>
void takesHandle(const platform::Handle<Kind>*);

/// A platform handle of any kind.
template <class H>
concept HandleType = requires(const H* handle) {
    takesHandle(handle);
};

template <HandleType H>
struct Conversion<H> {
    static H from(const Variant& value) { return H(static_cast<std::uint32_t>(argumentToLong(value))); }
    static Variant to(const H& handle) { return static_cast<std::int32_t>(handle.value); }
    static TypeDescription type() { return {VT_I4}; }
};

} // namespace automation
