#pragma once
// The readers of each picture format. Those of BMP and ICO are our own and the same on each system; the
// others are the driver's.

#include "platform/pictures.h"

#include <span>

namespace platform {

using PictureBytes = std::span<const std::uint8_t>;

/// Reads little-endian numbers out of bytes; what lies past their end reads as 0 and sets `failed`.
class PictureByteReader {
public:
    explicit PictureByteReader(PictureBytes bytes) : bytes_(bytes) {}

    bool failed() const { return failed_; }
    std::size_t position() const { return at_; }
    std::size_t left() const { return bytes_.size() - at_; }
    void skip(std::size_t count);
    std::uint8_t byte();
    std::uint16_t word();
    std::uint32_t dword();
    std::int32_t number() { return static_cast<std::int32_t>(dword()); }

private:
    PictureBytes bytes_;
    std::size_t at_ = 0;
    bool failed_ = false;
};

/// None, or TooLarge and Corrupt for sizes that no picture has.
PictureError checkPictureSize(std::int64_t width, std::int64_t height);

/// A picture file with its file header.
PictureError decodeBmp(PictureBytes file, PictureData& picture);

/// The picture below a bitmap's header. In an icon the mask stands below the pixels and the header states
/// the height of both. `pixelsAt` is where the pixels begin, 0 where they follow the header.
PictureError decodeDibPixels(PictureBytes dib, bool inIcon, std::size_t pixelsAt, PictureData& picture);

/// An icon or cursor file.
PictureError decodeIcon(PictureBytes file, const PictureRequest& request, PictureData& picture);

namespace driver {

/// These fill the size, the pixels and `hasAlpha`.
PictureError decodePng(PictureBytes file, PictureData& picture);
PictureError decodeJpeg(PictureBytes file, PictureData& picture);
PictureError decodeGif(PictureBytes file, PictureData& picture);

} // namespace driver
} // namespace platform
