#pragma once
// The pictures that a system has by number, drawn by the library for systems that have none.

#include "host/Picture.h"
#include "platform/resources.h"

namespace host {

/// A bitmap (OBM_), icon (OIC_) or cursor (OCR_) by its number, in the size that the system's metrics give
/// its kind and, for bitmaps, in the system's colours. Null for numbers that no system has.
automation::Ref<Picture> stockPicture(platform::ResourceType kind, std::int32_t number);

} // namespace host
