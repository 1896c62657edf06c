#pragma once
// A window's icon as the desktops take it.

#include "platform/gdi_types.h"

#include <cstdint>
#include <vector>

namespace platform::driver {

/// 0xAARRGGBB words, top row first, colours not multiplied by their alpha. Empty for no icon.
struct IconPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> argb;
};

IconPicture pictureOf(HICON icon);

} // namespace platform::driver
