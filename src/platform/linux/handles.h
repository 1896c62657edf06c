#pragma once
// Counts of live handles by kind, so that a test can say that nothing leaks.

#include <cstdint>
#include <string>

namespace platform::driver {

enum class HandleKind : std::uint8_t {
    None,
    DeviceContext,
    Bitmap,
    Brush,
    Pen,
    Font,
    Region,
    Palette,
    MetaFile,
    Icon
};

/// Live handles of a kind. Stock objects do not count.
std::uint32_t handleCount(HandleKind kind);

/// Live handles of all kinds.
std::uint32_t handleCount();

/// "DeviceContext 2, Bitmap 1": the kinds with live handles, for the message of a failed test. Empty when
/// there are none.
std::string describeHandles();

} // namespace platform::driver
