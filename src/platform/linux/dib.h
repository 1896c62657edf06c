#pragma once
// Device-independent pixels as a header describes them.

#include "platform/linux/device_context.h"

#include <memory>

namespace platform::driver {

/// Bytes of a row that begins at multiples of `alignment` bytes.
std::int64_t rowBytes(std::int64_t width, int bitsPerPixel, int alignment);

inline constexpr int dibAlignment = 4;
inline constexpr int deviceAlignment = 2;

/// What a BITMAPINFO says.
struct DibLayout {
    int width = 0;
    int height = 0; ///< Rows, above zero
    bool bottomUp = true;
    int bitsPerPixel = 0;
    DWORD compression = BI_RGB;
    std::unique_ptr<PixelFormat> format; ///< Null for 24 bits and for plain words of 32

    bool isCoded() const { return compression == BI_RLE4 || compression == BI_RLE8; }
};

/// Reads a header with its colours or masks into `layout`; `context` has the palette for DIB_PAL_COLORS.
/// False for what no bitmap has.
bool readLayout(const DeviceContext* context, const BITMAPINFO& info, UINT usage, DibLayout& layout);

/// The same without the colours.
bool readMeasures(const BITMAPINFOHEADER& header, DibLayout& layout);

/// The colour table behind a header, or the three masks in its place.
RGBQUAD* colorsBehind(BITMAPINFO& info);
const RGBQUAD* colorsBehind(const BITMAPINFO& info);

std::uint32_t colorFromQuad(const RGBQUAD& quad);
RGBQUAD quadFromColor(std::uint32_t color);

/// Whether bitmaps of this depth can be made.
bool isDepth(int bitsPerPixel);

/// A surface over a program's rows in memory, of which `bits` is the first.
Surface surfaceOver(void* bits, int width, int lines, int bitsPerPixel, bool bottomUp);

/// Pixels that a program gave: over its own memory, or unpacked from codes.
class DibPixels {
public:
    /// The `lines` rows that lie at `bits`. `byteCount` bounds the codes of BI_RLE4 and BI_RLE8.
    DibPixels(const DibLayout& layout, const void* bits, int lines, std::size_t byteCount);

    /// No rows when memory did not suffice.
    const Surface& surface() const { return surface_; }

private:
    std::unique_ptr<Bitmap> unpacked_;
    Surface surface_;
};

} // namespace platform::driver
