#pragma once
// What the key press read last from the queue types, when the display knows it.

#include "platform/windows.h"

#include <string>

namespace platform::driver {

struct LastTyped {
    bool known = false; ///< False: the layout tells
    WPARAM key = 0;
    DWORD time = 0;
    std::u16string text;
    char16_t plain = 0; ///< What the key types by itself, for Alt; 0: ask the layout
};

LastTyped& lastTyped();

} // namespace platform::driver
