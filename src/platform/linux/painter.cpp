#include "platform/linux/painter.h"

#include "platform/linux/brush_pixels.h"
#include "platform/linux/colors.h"
#include "platform/linux/rows.h"

#include <algorithm>

namespace platform::driver {

namespace {

int wrapped(std::int64_t value, int size) {
    const int rest = static_cast<int>(value % size);
    return rest < 0 ? rest + size : rest;
}

COLORREF solidColor(const DeviceContext& context, const Brush& brush) {
    const bool isDcBrush = brush.stock && brush.handle == stockObject(DC_BRUSH);
    return isDcBrush ? context.state.dcBrushColor : brush.data.lbColor;
}

bool isTiled(const DeviceContext& context, const Brush& brush) {
    switch (brush.data.lbStyle) {
    case BS_HATCHED:
    case BS_PATTERN:
        return true;
    case BS_SOLID:
        return isDithered(context, solidColor(context, brush));
    default:
        return false;
    }
}

BrushPixels tilePixels(const DeviceContext& context, const Brush& brush) {
    if (brush.data.lbStyle == BS_SOLID) return ditherPixels(context, solidColor(context, brush));
    return pixelsOf(context, brush);
}

} // namespace

void maskEachClipped(DeviceContext& context, const RECT& r, Masks masks) {
    for (const RECT& clip : context.drawable().rectangles()) {
        const RECT part = intersection(r, clip);
        if (!isEmpty(part))
            maskRectangle(*context.surface, part.left, part.top, part.right, part.bottom, masks);
    }
}

Painter::Painter(DeviceContext& context, const Brush& brush, Rop3 rop) : context_(context) {
    if (usesPattern(rop)) {
        paintPattern(brush, rop);
    } else {
        masks_ = masksOf(rop, 0);
    }
}

Painter::Painter(DeviceContext& context, const Brush& brush) : context_(context) {
    paintPattern(brush, rop3OfMode(context.state.rop2));
}

void Painter::paintPattern(const Brush& brush, Rop3 rop) {
    if (brush.data.lbStyle == BS_NULL) {
        masks_ = leaveAlone;
    } else if (isTiled(context_, brush)) {
        makeTile(brush, rop);
    } else {
        masks_ = masksOf(rop, pixelOf(context_, solidColor(context_, brush)));
    }
}

Painter::Painter(DeviceContext& context, std::uint32_t pixel, Rop3 rop)
    : context_(context), masks_(masksOf(rop, pixel)) {}

void Painter::makeTile(const Brush& brush, Rop3 rop) {
    const BrushPixels pixels = tilePixels(context_, brush);
    auto tile = std::make_shared<Tile>();
    tile->width = pixels.width;
    tile->height = pixels.height;
    tile->origin = context_.deviceToSurface(context_.state.brushOrigin);
    tile->masks.reserve(pixels.pixels.size());
    for (std::size_t i = 0; i < pixels.pixels.size(); ++i) {
        const bool hole = !pixels.opaque.empty() && !pixels.opaque[i];
        tile->masks.push_back(hole ? leaveAlone : masksOf(rop, pixels.pixels[i]));
    }
    tile_ = std::move(tile);
}

void Painter::fill(const RECT& r) const {
    if (paintsNothing()) return;
    if (!tile_) {
        maskClipped(context_, r, masks_);
        return;
    }
    for (const RECT& clip : context_.drawable().rectangles()) {
        const RECT part = intersection(r, clip);
        if (isEmpty(part)) continue;
        if (context_.surface->bitsPerPixel == 1) {
            fillTiledBits(part);
        } else {
            fillTiled(part);
        }
    }
}

int Painter::Tile::columnAt(int x) const {
    return wrapped(std::int64_t{x} - origin.x, width);
}

int Painter::Tile::rowAt(int y) const {
    return wrapped(std::int64_t{y} - origin.y, height);
}

void Painter::fillTiled(const RECT& r) const {
    const Surface& surface = *context_.surface;
    const int startX = tile_->columnAt(r.left);
    int tileY = tile_->rowAt(r.top);
    for (int y = r.top; y < r.bottom; ++y) {
        const Masks* masks = tile_->row(tileY);
        int tileX = startX;
        for (int x = r.left; x < r.right; ++x) {
            maskPixel(surface, x, y, masks[tileX]);
            if (++tileX == tile_->width) tileX = 0;
        }
        if (++tileY == tile_->height) tileY = 0;
    }
}

/// Eight pixels at once: after as many bytes as the tile has columns they begin anew.
void Painter::fillTiledBits(const RECT& r) const {
    constexpr int bitsOfByte = 8;
    const int firstByte = r.left >> 3;
    const int bytes = std::min(tile_->width, ((r.right - 1) >> 3) - firstByte + 1);
    const int startX = tile_->columnAt(firstByte * bitsOfByte);
    std::vector<ByteMasks> byteMasks(static_cast<std::size_t>(bytes));
    int tileY = tile_->rowAt(r.top);
    for (int y = r.top; y < r.bottom; ++y) {
        const Masks* masks = tile_->row(tileY);
        int tileX = startX;
        for (ByteMasks& byte : byteMasks)
            for (int bit = 0; bit < bitsOfByte; ++bit) {
                byte.keep = static_cast<std::uint8_t>(byte.keep << 1 | (masks[tileX].keep & 1));
                byte.flip = static_cast<std::uint8_t>(byte.flip << 1 | (masks[tileX].flip & 1));
                if (++tileX == tile_->width) tileX = 0;
            }
        applyMasksToBits(rowOf(*context_.surface, y), r.left, r.right, byteMasks);
        if (++tileY == tile_->height) tileY = 0;
    }
}

PatternRows::PatternRows(const DeviceContext& context, const Brush& brush)
    : origin_(context.deviceToSurface(context.state.brushOrigin)) {
    if (isTiled(context, brush)) {
        BrushPixels pixels = tilePixels(context, brush);
        width_ = pixels.width;
        height_ = pixels.height;
        pixels_ = std::move(pixels.pixels);
    } else {
        pixels_.assign(1, brush.data.lbStyle == BS_NULL ? 0 : pixelOf(context, solidColor(context, brush)));
    }
}

std::uint32_t PatternRows::at(int x, int y) const {
    const int column = wrapped(std::int64_t{x} - origin_.x, width_);
    const int row = wrapped(std::int64_t{y} - origin_.y, height_);
    return pixels_[static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
                   static_cast<std::size_t>(column)];
}

void PatternRows::row32(int x, int y, int count, std::uint32_t* out) const {
    for (int i = 0; i < count; ++i)
        out[i] = at(x + i, y);
}

void PatternRows::rowBits(int x, int y, int count, std::uint8_t* out) const {
    for (int i = 0; i < count; ++i)
        putBit(out, (x & 7) + i, at(x + i, y) != 0);
}

} // namespace platform::driver
