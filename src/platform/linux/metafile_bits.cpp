#include "platform/linux/metafile_bits.h"

#include "platform/picture_readers.h"

#include <cstdlib>
#include <cstring>
#include <limits>

namespace platform::driver {

namespace {

/// The header's beginning; nothing when it is cut short or of the oldest form.
std::optional<BITMAPINFOHEADER> headerOf(std::span<const BYTE> header) {
    BITMAPINFOHEADER result;
    if (header.size() < sizeof result) return std::nullopt;
    std::memcpy(&result, header.data(), sizeof result);
    if (result.biSize < sizeof result) return std::nullopt;
    return result;
}

/// Takes the pixels that a header states from a budget.
bool affordable(const std::optional<BITMAPINFOHEADER>& header, std::int64_t& budget) {
    if (header) budget -= std::abs(std::int64_t{header->biWidth} * header->biHeight);
    return budget >= 0;
}

/// Puts back the highest byte of pixels of 32 bits, which is alpha in some records and nothing in others.
void keepAlpha(const BITMAPINFOHEADER& header, std::span<const BYTE> bits, PictureData& picture) {
    const auto width = static_cast<std::size_t>(picture.width);
    const auto height = static_cast<std::size_t>(picture.height);
    if (header.biBitCount != 32 || bits.size() < picture.argb.size() * 4) return;
    for (std::size_t y = 0; y < height; ++y) {
        const std::size_t row = header.biHeight < 0 ? y : height - 1 - y;
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint32_t alpha = bits[(row * width + x) * 4 + 3];
            std::uint32_t& pixel = picture.argb[y * width + x];
            pixel = (pixel & 0x00FFFFFF) | alpha << 24;
        }
    }
}

} // namespace

std::optional<PictureData> pictureOf(std::span<const BYTE> header, std::span<const BYTE> bits,
                                     std::int64_t& budget) {
    const std::optional<BITMAPINFOHEADER> about = headerOf(header);
    if (!affordable(about, budget)) return std::nullopt;
    std::vector<BYTE> whole(header.begin(), header.end());
    whole.insert(whole.end(), bits.begin(), bits.end());
    PictureData picture;
    if (decodeDibPixels(whole, false, header.size(), picture) != PictureError::None) return std::nullopt;
    if (about) keepAlpha(*about, bits, picture);
    return picture;
}

std::optional<PictureData> packedPictureOf(std::span<const BYTE> dib, std::int64_t& budget) {
    PictureData picture;
    if (!affordable(headerOf(dib), budget) || decodeDibPixels(dib, false, 0, picture) != PictureError::None)
        return std::nullopt;
    return picture;
}

HBITMAP monoBitmapOf(std::span<const BYTE> header, std::span<const BYTE> bits) {
    constexpr int largestSide = 4096;
    const std::optional<BITMAPINFOHEADER> about = headerOf(header);
    if (!about || about->biBitCount != 1 || about->biWidth <= 0 || about->biWidth > largestSide ||
        about->biHeight == 0 || about->biHeight == std::numeric_limits<LONG>::min() ||
        std::abs(about->biHeight) > largestSide)
        return {};
    const auto width = static_cast<std::size_t>(about->biWidth);
    const auto height = static_cast<std::size_t>(std::abs(about->biHeight));
    const std::size_t stride = (width + 31) / 32 * 4;
    const std::size_t deviceStride = (width + 15) / 16 * 2;
    if (bits.size() < stride * height) return {};
    std::vector<BYTE> rows(deviceStride * height);
    for (std::size_t y = 0; y < height; ++y) {
        const std::size_t row = about->biHeight < 0 ? y : height - 1 - y;
        std::memcpy(rows.data() + y * deviceStride, bits.data() + row * stride, deviceStride);
    }
    return CreateBitmap(static_cast<int>(width), static_cast<int>(height), 1, 1, rows.data());
}

} // namespace platform::driver
