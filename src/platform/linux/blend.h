#pragma once
// Blending pixels over others.

#include "platform/linux/blit.h"

namespace platform::driver {

/// Blends plain words.
void blendWords(const WordBlocks& blocks, BLENDFUNCTION blend);

/// Blends the source's pixels into `area` of the target's surface. With AC_SRC_ALPHA the source's words hold
/// an alpha that their colours are multiplied by.
void blendPixels(DeviceContext& target, const RECT& area, const SourcePixels& source, BLENDFUNCTION blend);

} // namespace platform::driver
