#include "platform/linux/fill32.h"

#include <cwchar>

namespace platform::driver {

namespace {

/// Four pixels that may lie at any pixel's address.
using FourPixels __attribute__((vector_size(16), aligned(4), may_alias)) = std::uint32_t;
constexpr std::ptrdiff_t four = 4;

/// From this width on the C library's fill, made for each processor, is worth its call.
constexpr std::ptrdiff_t wide = 48;

std::uint32_t* below(std::uint32_t* row, std::ptrdiff_t stride) {
    return reinterpret_cast<std::uint32_t*>(reinterpret_cast<std::uint8_t*>(row) + stride);
}

void fillMany(std::uint32_t* first, std::ptrdiff_t count, std::uint32_t value) {
    static_assert(sizeof(wchar_t) == sizeof *first);
    std::wmemset(reinterpret_cast<wchar_t*>(first), static_cast<wchar_t>(value),
                 static_cast<std::size_t>(count));
}

void fillWide(std::uint32_t* row, std::ptrdiff_t stride, std::ptrdiff_t width, std::ptrdiff_t height,
              std::uint32_t value) {
    for (; height > 0; --height, row = below(row, stride))
        fillMany(row, width, value);
}

/// Four pixels at a time; the last four reach back over what is filled already.
void fillNarrow(std::uint32_t* row, std::ptrdiff_t stride, std::ptrdiff_t width, std::ptrdiff_t height,
                std::uint32_t value) {
    const FourPixels pixels = {value, value, value, value};
    for (; height > 0; --height, row = below(row, stride)) {
        std::uint32_t* const last = row + width - four;
        for (std::uint32_t* at = row; at < last; at += four)
            *reinterpret_cast<FourPixels*>(at) = pixels;
        *reinterpret_cast<FourPixels*>(last) = pixels;
    }
}

void fillThin(std::uint32_t* row, std::ptrdiff_t stride, std::ptrdiff_t width, std::ptrdiff_t height,
              std::uint32_t value) {
    for (; height > 0; --height, row = below(row, stride)) {
        row[0] = value;
        for (std::ptrdiff_t x = 1; x < width; ++x)
            row[x] = value;
    }
}

} // namespace

void fillPixels(std::uint32_t* first, std::ptrdiff_t stride, std::ptrdiff_t width, std::ptrdiff_t height,
                std::uint32_t value) {
    if (width <= 0 || height <= 0) return;
    constexpr std::ptrdiff_t pixelBytes = sizeof *first;
    if (stride == width * pixelBytes) {
        fillMany(first, width * height, value);
    } else if (width >= wide) {
        fillWide(first, stride, width, height, value);
    } else if (width >= four) {
        fillNarrow(first, stride, width, height, value);
    } else {
        fillThin(first, stride, width, height, value);
    }
}

} // namespace platform::driver
