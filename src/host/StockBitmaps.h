#pragma once

#include "platform/pictures.h"

#include <optional>

namespace host {

/// The system's bitmap of a number (OBM_); nothing for other numbers.
std::optional<platform::PictureData> stockBitmap(std::int32_t number);

} // namespace host
