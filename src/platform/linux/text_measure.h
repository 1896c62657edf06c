#pragma once
// The room that text takes.

#include "platform/linux/device_context.h"

#include <string_view>

namespace platform::driver {

struct TextBox {
    RECT bounds; ///< Device units
    /// From each character to the next, logical units, each rounded by itself: they may add up to more or
    /// less than the length of the text.
    std::vector<INT> advances;
};

/// Measures text as ExtTextOut would draw it in the context's font; `given` are the caller's own distances or
/// null.
TextBox measureText(DeviceContext& context, POINT at, std::u16string_view text, const INT* given);

} // namespace platform::driver
