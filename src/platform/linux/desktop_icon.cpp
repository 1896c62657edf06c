#include "platform/linux/desktop_icon.h"

#include "platform/gdi.h"
#include "platform/linux/gdi_objects.h"
#include "platform/linux/rows.h"

#include <algorithm>

namespace platform::driver {

namespace {

constexpr std::uint32_t full = 255;
constexpr std::uint32_t white = 0xFFFFFF;

SIZE sizeOf(const Icon& icon) {
    const Surface& surface = icon.color ? icon.color->surface : icon.mask->surface;
    return {surface.width, icon.color ? surface.height : surface.height / 2};
}

/// The icon painted on a ground of one colour.
std::vector<std::uint32_t> paintedOn(HICON icon, SIZE size, std::uint32_t ground) {
    constexpr UINT wordBits = 32;
    std::vector<std::uint32_t> words(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy),
                                     ground);
    const HDC dc = CreateCompatibleDC({});
    const HBITMAP bitmap = CreateBitmap(size.cx, size.cy, 1, wordBits, words.data());
    const HGDIOBJ former = SelectObject(dc, bitmap);
    DrawIconEx(dc, 0, 0, icon, size.cx, size.cy, 0, {}, DI_NORMAL);
    SelectObject(dc, former);
    DeleteDC(dc);
    const Surface& painted = find<Bitmap>(bitmap)->surface;
    for (int y = 0; y < painted.height; ++y)
        std::copy_n(row32(painted, y), painted.width, words.begin() + std::ptrdiff_t{y} * painted.width);
    DeleteObject(bitmap);
    return words;
}

/// One pixel from how it looks on black and on white: what differs shines through.
std::uint32_t withAlpha(std::uint32_t onBlack, std::uint32_t onWhite) {
    const std::uint32_t through = std::min((onWhite >> 8 & full) - (onBlack >> 8 & full), full);
    const std::uint32_t alpha = full - through;
    if (!alpha) return 0;
    std::uint32_t pixel = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8)
        pixel |= std::min((onBlack >> shift & full) * full / alpha, full) << shift;
    return pixel;
}

} // namespace

IconPicture pictureOf(HICON handle) {
    const Icon* icon = find<Icon>(handle);
    if (!icon) return {};
    const SIZE size = sizeOf(*icon);
    IconPicture picture{size.cx, size.cy, paintedOn(handle, size, 0)};
    const std::vector<std::uint32_t> onWhite = paintedOn(handle, size, white);
    std::transform(picture.argb.begin(), picture.argb.end(), onWhite.begin(), picture.argb.begin(),
                   withAlpha);
    return picture;
}

} // namespace platform::driver
