#pragma once
// Picture files to pixels: BMP, ICO and CUR (with PNG inside too), PNG, JPEG and the first frame of a GIF.
// Whatever a file says of its own sizes is bounded before memory is taken.

#include "platform/types.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace platform {

enum class PictureFormat { Unknown, Bmp, Ico, Cur, Png, Jpeg, Gif, Wmf, Emf };

enum class PictureError {
    None,
    UnknownFormat, ///< None of the formats that are decoded; metafiles are drawn elsewhere
    Corrupt,       ///< The bytes end early or contradict themselves
    TooLarge,      ///< More than largestPictureSide on a side, or more than largestPicturePixels in all
};

inline constexpr int largestPictureSide = 32767;
inline constexpr std::int64_t largestPicturePixels = 64LL * 1024 * 1024;

/// A decoded picture.
struct PictureData {
    PictureFormat format = PictureFormat::Unknown;
    int width = 0; ///< Pixels
    int height = 0;
    std::vector<std::uint32_t> argb; ///< 0xAARRGGBB, colours not multiplied by alpha, top row first
    std::vector<std::uint8_t> mask;  ///< Icons and cursors: one byte a pixel, 1 keeps the screen
    bool hasAlpha = false;           ///< Some pixel's alpha is neither 0 nor 255, or the format carries one
    POINT hotSpot;                   ///< Cursors; the centre of an icon
    LONG widthHimetric = 0;          ///< The size in hundredths of a millimetre at `pixelsPerInch`
    LONG heightHimetric = 0;
};

/// What a picture is asked for.
struct PictureRequest {
    int width = 0;  ///< Icons and cursors: the nearest size to this; 0 takes the file's first entry
    int height = 0; ///< 0 is the same as `width`
    int pixelsPerInch = 96;
};

/// The format that the first bytes show.
PictureFormat pictureFormat(std::span<const std::uint8_t> file);

/// Decodes the file's bytes; on an error `picture` is left as it was.
PictureError decodePicture(std::span<const std::uint8_t> file, PictureData& picture,
                           const PictureRequest& request = {});

/// Reads a bitmap without its file header, as bitmap resources and the clipboard hold it.
PictureError decodeDib(std::span<const std::uint8_t> dib, PictureData& picture,
                       const PictureRequest& request = {});

} // namespace platform
