#pragma once

#include "platform/pictures.h"

#include <optional>

namespace host {

/// The system's cursor of a number (OCR_); nothing for other numbers.
std::optional<platform::PictureData> stockCursor(std::int32_t number);

} // namespace host
