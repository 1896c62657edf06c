#pragma once
// The pictures inside records.

#include "platform/gdi.h"
#include "platform/pictures.h"

#include <optional>

namespace platform::driver {

/// Decodes a device-independent bitmap whose header with colours and whose pixels lie apart. Takes its pixels
/// from a budget; nothing when they are broken or the budget does not suffice. The alpha of 32 bits is kept
/// as it stands.
std::optional<PictureData> pictureOf(std::span<const BYTE> header, std::span<const BYTE> bits,
                                     std::int64_t& budget);

/// The same of a bitmap whose pixels follow its header.
std::optional<PictureData> packedPictureOf(std::span<const BYTE> dib, std::int64_t& budget);

/// A bitmap of 1 bit with the bits as they stand, whatever colours the header gives them.
HBITMAP monoBitmapOf(std::span<const BYTE> header, std::span<const BYTE> bits);

} // namespace platform::driver
