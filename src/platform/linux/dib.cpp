#include "platform/linux/dib.h"

#include "platform/linux/colors.h"
#include "platform/linux/display_colors.h"
#include "platform/linux/rows.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace platform::driver {

namespace {

constexpr int bitsPerByte = 8;
constexpr int mostTableBits = 8;

bool suits(DWORD compression, int bitsPerPixel) {
    switch (compression) {
    case BI_RGB:
        return true;
    case BI_BITFIELDS:
        return bitsPerPixel == 16 || bitsPerPixel == 32;
    case BI_RLE4:
        return bitsPerPixel == 4;
    case BI_RLE8:
        return bitsPerPixel == 8;
    default:
        return false;
    }
}

PixelFormat tableOf(const BITMAPINFO& info, int bitsPerPixel) {
    const std::size_t most = std::size_t{1} << bitsPerPixel;
    const std::size_t used = info.bmiHeader.biClrUsed;
    const std::size_t count = used == 0 ? most : std::min(used, most);
    const RGBQUAD* quads = colorsBehind(info);
    std::vector<std::uint32_t> colors(most, 0);
    std::transform(quads, quads + count, colors.begin(), colorFromQuad);
    return PixelFormat(std::move(colors));
}

/// The table as numbers of colours in the context's palette.
PixelFormat paletteTable(const DeviceContext& context, const BITMAPINFO& info, int bitsPerPixel) {
    const std::size_t most = std::size_t{1} << bitsPerPixel;
    const std::size_t used = info.bmiHeader.biClrUsed;
    const std::size_t count = used == 0 ? most : std::min(used, most);
    std::vector<std::uint16_t> numbers(count);
    std::memcpy(numbers.data(), colorsBehind(info), count * sizeof(std::uint16_t));
    std::vector<std::uint32_t> colors(most, 0);
    std::transform(numbers.begin(), numbers.end(), colors.begin(), [&](std::uint16_t number) {
        return pixelOfColor(plainColor(context, PALETTEINDEX(number)));
    });
    return PixelFormat(std::move(colors));
}

constexpr std::uint32_t plainMasks[3] = {0x00FF0000, 0x0000FF00, 0x000000FF};

std::unique_ptr<PixelFormat> fieldsOf(const BITMAPINFO& info, int bitsPerPixel) {
    if (info.bmiHeader.biCompression != BI_BITFIELDS)
        return bitsPerPixel == 16 ? std::make_unique<PixelFormat>(fiveBitFields()) : nullptr;
    std::uint32_t masks[3];
    std::memcpy(masks, colorsBehind(info), sizeof masks);
    const bool none = masks[0] == 0 && masks[1] == 0 && masks[2] == 0;
    if (bitsPerPixel == 32 && (none || std::equal(masks, masks + 3, plainMasks))) return nullptr;
    if (none) return std::make_unique<PixelFormat>(fiveBitFields());
    return std::make_unique<PixelFormat>(masks[0], masks[1], masks[2]);
}

/// Unpacks the codes of BI_RLE4 and BI_RLE8, bottom row first. What they leave out stays 0.
class RunUnpacker {
public:
    RunUnpacker(const Surface& target, const std::uint8_t* codes, std::size_t count)
        : target_(target), at_(codes), end_(codes + count) {}

    void unpack() {
        while (y_ < target_.height && end_ - at_ >= 2) {
            const int count = *at_++;
            const int value = *at_++;
            if (count > 0) {
                repeat(count, value);
            } else if (value > lastEscape) {
                literal(value);
            } else if (!escape(value)) {
                return;
            }
        }
    }

private:
    enum Escape { endOfLine = 0, endOfBitmap = 1, move = 2, lastEscape = 2 };

    void put(int value) {
        if (x_ >= target_.width) return;
        const std::uint32_t word = static_cast<std::uint32_t>(value);
        writeValues(target_, x_++, target_.height - 1 - y_, 1, &word);
    }
    int half(int byte, int index) const {
        if (target_.bitsPerPixel == mostTableBits) return byte;
        return index % 2 == 0 ? byte >> 4 : byte & 0x0F;
    }
    void repeat(int count, int value) {
        for (int i = 0; i < count; ++i)
            put(half(value, i));
    }
    void literal(int count) {
        const int perByte = target_.bitsPerPixel == mostTableBits ? 1 : 2;
        const std::ptrdiff_t bytes = (count + perByte - 1) / perByte;
        const std::ptrdiff_t here = std::min(bytes, end_ - at_);
        for (int i = 0; i < count && i / perByte < here; ++i)
            put(half(at_[i / perByte], i));
        at_ += std::min(bytes + bytes % 2, end_ - at_);
    }
    bool escape(int code) {
        if (code == endOfBitmap) return false;
        if (code == endOfLine) {
            x_ = 0;
            ++y_;
            return true;
        }
        if (end_ - at_ < 2) return false;
        x_ = std::min(x_ + *at_++, target_.width);
        y_ += *at_++;
        return true;
    }

    const Surface& target_;
    const std::uint8_t* at_;
    const std::uint8_t* end_;
    int x_ = 0;
    int y_ = 0;
};

} // namespace

std::int64_t rowBytes(std::int64_t width, int bitsPerPixel, int alignment) {
    const std::int64_t bits = std::int64_t{alignment} * bitsPerByte;
    return (width * bitsPerPixel + bits - 1) / bits * alignment;
}

bool isDepth(int bitsPerPixel) {
    constexpr int depths[] = {1, 4, 8, 16, 24, 32};
    return std::find(std::begin(depths), std::end(depths), bitsPerPixel) != std::end(depths);
}

RGBQUAD* colorsBehind(BITMAPINFO& info) {
    auto* bytes = reinterpret_cast<std::uint8_t*>(&info);
    return reinterpret_cast<RGBQUAD*>(bytes + info.bmiHeader.biSize);
}

const RGBQUAD* colorsBehind(const BITMAPINFO& info) {
    return colorsBehind(const_cast<BITMAPINFO&>(info));
}

std::uint32_t colorFromQuad(const RGBQUAD& quad) {
    return static_cast<std::uint32_t>(quad.rgbRed) << 16 | static_cast<std::uint32_t>(quad.rgbGreen) << 8 |
           quad.rgbBlue;
}

RGBQUAD quadFromColor(std::uint32_t color) {
    return {static_cast<BYTE>(color), static_cast<BYTE>(color >> 8), static_cast<BYTE>(color >> 16), 0};
}

bool readMeasures(const BITMAPINFOHEADER& header, DibLayout& layout) {
    constexpr DWORD longestHeader = 124;
    if (header.biSize < sizeof(BITMAPINFOHEADER) || header.biSize > longestHeader) return false;
    if (header.biWidth <= 0 || header.biHeight == 0) return false;
    if (header.biHeight == std::numeric_limits<LONG>::min()) return false;
    if (!isDepth(header.biBitCount) || header.biPlanes != 1) return false;
    if (!suits(header.biCompression, header.biBitCount)) return false;
    layout.width = header.biWidth;
    layout.height = header.biHeight < 0 ? -header.biHeight : header.biHeight;
    layout.bottomUp = header.biHeight > 0;
    layout.bitsPerPixel = header.biBitCount;
    layout.compression = header.biCompression;
    constexpr std::int64_t memoryLimit = std::numeric_limits<std::int32_t>::max();
    if (rowBytes(layout.width, layout.bitsPerPixel, dibAlignment) > memoryLimit / layout.height) return false;
    return layout.bottomUp || !layout.isCoded();
}

bool readLayout(const DeviceContext* context, const BITMAPINFO& info, UINT usage, DibLayout& layout) {
    if (usage > DIB_PAL_COLORS || !readMeasures(info.bmiHeader, layout)) return false;
    if (layout.bitsPerPixel > mostTableBits) {
        layout.format = fieldsOf(info, layout.bitsPerPixel);
    } else if (usage == DIB_RGB_COLORS) {
        layout.format = std::make_unique<PixelFormat>(tableOf(info, layout.bitsPerPixel));
    } else {
        if (!context) return false;
        layout.format = std::make_unique<PixelFormat>(paletteTable(*context, info, layout.bitsPerPixel));
    }
    return true;
}

Surface surfaceOver(void* bits, int width, int lines, int bitsPerPixel, bool bottomUp) {
    Surface surface;
    surface.width = width;
    surface.height = lines;
    surface.bitsPerPixel = bitsPerPixel;
    surface.stride = static_cast<int>(rowBytes(width, bitsPerPixel, dibAlignment));
    surface.bits = static_cast<std::uint8_t*>(bits);
    if (bottomUp) {
        surface.bits += std::ptrdiff_t{surface.stride} * (lines - 1);
        surface.stride = -surface.stride;
    }
    return surface;
}

DibPixels::DibPixels(const DibLayout& layout, const void* bits, int lines, std::size_t byteCount) {
    if (layout.isCoded()) {
        unpacked_ = makeBitmap(layout.width, lines, layout.bitsPerPixel);
        if (unpacked_) {
            RunUnpacker(unpacked_->surface, static_cast<const std::uint8_t*>(bits), byteCount).unpack();
            surface_ = unpacked_->surface;
        }
    } else {
        // Pixels that were given are only read; a surface serves both directions.
        surface_ =
            surfaceOver(const_cast<void*>(bits), layout.width, lines, layout.bitsPerPixel, layout.bottomUp);
    }
    surface_.format = layout.format.get();
}

} // namespace platform::driver
