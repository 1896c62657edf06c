// Pictures and gradients of a metafile that is played.

#include "platform/linux/mask_region.h"
#include "platform/linux/metafile_bits.h"
#include "platform/linux/metafile_player.h"
#include "platform/linux/shapes.h"

#include <algorithm>
#include <array>

namespace platform::driver {

class MetafilePlayer::Picture {
public:
    Picture(HDC like, const PictureData& data)
        : dc_(CreateCompatibleDC(like)),
          bitmap_(CreateBitmap(data.width, data.height, 1, 32, data.argb.data())),
          former_(SelectObject(dc_, bitmap_)), height_(data.height) {}
    ~Picture() {
        SelectObject(dc_, former_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    HDC dc() const { return dc_; }
    int height() const { return height_; }

private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ former_;
    int height_;
};

namespace {

/// A bitmap that ends with its scope; it may be none.
class OwnBitmap {
public:
    explicit OwnBitmap(HBITMAP handle) : handle_(handle) {}
    ~OwnBitmap() { DeleteObject(handle_); }
    OwnBitmap(const OwnBitmap&) = delete;
    OwnBitmap& operator=(const OwnBitmap&) = delete;

    HBITMAP handle() const { return handle_; }
    const Bitmap* get() const { return find<Bitmap>(handle_); }

private:
    HBITMAP handle_;
};

} // namespace

MetafilePlayer::BitsPlace MetafilePlayer::readPlace(RecordReader& reader) {
    return reader.value<BitsPlace>();
}

void MetafilePlayer::blit(const RECT& target, const Picture& picture, const RECT& source, DWORD rop) {
    const RECT r = toTarget(target);
    StretchBlt(dc_, r.left, r.top, r.right - r.left, r.bottom - r.top, picture.dc(), source.left, source.top,
               source.right - source.left, source.bottom - source.top, rop);
}

MetafilePlayer::CopyStart MetafilePlayer::readCopyStart(RecordReader& reader) {
    CopyStart start;
    reader.skip(sizeof(RECT));
    start.at = reader.value<POINT>();
    start.size = reader.value<SIZE>();
    start.operation = reader.number();
    start.from = reader.value<POINT>();
    reader.skip(sizeof(FileTransform) + sizeof(COLORREF));
    start.place = readPlace(reader);
    return start;
}

void MetafilePlayer::fillBox(const RECT& target, DWORD rop) {
    const RECT r = toTarget(target);
    PatBlt(dc_, r.left, r.top, r.right - r.left, r.bottom - r.top, rop);
}

std::optional<PictureData> MetafilePlayer::pictureAt(RecordReader& reader, const BitsPlace& place) {
    auto data = pictureOf(reader.at(place.headerAt, place.headerSize),
                          reader.at(place.bitsAt, place.bitsSize), pixelsLeft_);
    if (reader.failed()) return std::nullopt;
    return data;
}

void MetafilePlayer::bitBlt(RecordReader& reader) {
    const CopyStart start = readCopyStart(reader);
    if (reader.failed()) return;
    if (start.place.bitsSize == 0) {
        fillBox(start.target(), start.operation);
    } else if (const auto data = pictureAt(reader, start.place)) {
        blit(start.target(), Picture(dc_, *data), start.source(), start.operation);
    }
}

HBITMAP MetafilePlayer::maskAt(RecordReader& reader, const BitsPlace& place) {
    const HBITMAP mask =
        monoBitmapOf(reader.at(place.headerAt, place.headerSize), reader.at(place.bitsAt, place.bitsSize));
    if (BITMAP about; GetObjectBitmap(mask, &about)) {
        pixelsLeft_ -= std::int64_t{about.bmWidth} * about.bmHeight;
        if (pixelsLeft_ >= 0) return mask;
        DeleteObject(mask);
    }
    reader.fail();
    return {};
}

std::optional<Region> MetafilePlayer::maskedArea(POINT at, const Bitmap& mask, const RECT& part) const {
    Region set = maskRegion(mask.surface, part);
    set.translate(at.x, at.y);
    return onTarget(set);
}

template <class Draw>
void MetafilePlayer::drawWithin(const Region& region, const Draw& draw) {
    const HRGN handle = addRegion(region);
    SaveDC(dc_);
    ExtSelectClipRgn(dc_, handle, RGN_AND);
    draw();
    RestoreDC(dc_, -1);
    DeleteObject(handle);
}

void MetafilePlayer::maskBlt(RecordReader& reader) {
    const CopyStart start = readCopyStart(reader);
    const POINT maskFrom = reader.value<POINT>();
    const BitsPlace maskPlace = readPlace(reader);
    if (reader.failed()) return;
    const RECT target = start.target();
    const std::optional<PictureData> data =
        start.place.bitsSize > 0 ? pictureAt(reader, start.place) : std::optional<PictureData>();
    std::optional<Picture> picture;
    if (data) picture.emplace(dc_, *data);
    const auto copy = [&](DWORD operation) {
        if (picture)
            blit(target, *picture, start.source(), operation);
        else
            fillBox(target, operation); // refuses operations that have a source
    };
    if (maskPlace.bitsSize == 0) {
        copy(foregroundOf(start.operation));
        return;
    }
    const OwnBitmap mask(maskAt(reader, maskPlace));
    const RECT part = rectOf(maskFrom.x, maskFrom.y, start.size.cx, start.size.cy);
    if (!mask.get() || !isPartOf(part, mask.get()->surface)) {
        reader.fail();
        return;
    }
    const std::optional<Region> set = maskedArea(start.at, *mask.get(), part);
    if (!set) {
        reader.fail();
        return;
    }
    drawWithin(*set, [&] { copy(foregroundOf(start.operation)); });
    drawWithin(Region(ordered(toTarget(target))).subtracted(*set),
               [&] { copy(backgroundOf(start.operation)); });
}

void MetafilePlayer::plgBlt(RecordReader& reader) {
    reader.skip(sizeof(RECT));
    auto corners = reader.value<std::array<POINT, 3>>();
    const POINT from = reader.value<POINT>();
    const SIZE size = reader.value<SIZE>();
    reader.skip(sizeof(FileTransform) + sizeof(COLORREF));
    const BitsPlace place = readPlace(reader);
    const POINT maskFrom = reader.value<POINT>();
    const BitsPlace maskPlace = readPlace(reader);
    const std::optional<PictureData> data = pictureAt(reader, place);
    if (!data) return;
    const OwnBitmap mask(maskPlace.bitsSize > 0 ? maskAt(reader, maskPlace) : HBITMAP());
    if (reader.failed()) return;
    for (POINT& corner : corners)
        corner = toTarget(corner);
    const Picture picture(dc_, *data);
    PlgBlt(dc_, corners.data(), picture.dc(), from.x, from.y, size.cx, size.cy, mask.handle(), maskFrom.x,
           maskFrom.y);
}

template <class Draw>
void MetafilePlayer::readStretch(RecordReader& reader, const Draw& draw) {
    const CopyStart start = readCopyStart(reader);
    const SIZE fromSize = reader.value<SIZE>();
    const auto data = pictureAt(reader, start.place);
    if (!data) return;
    draw(start.target(), Picture(dc_, *data), rectOf(start.from.x, start.from.y, fromSize.cx, fromSize.cy),
         start.operation);
}

void MetafilePlayer::stretchBlt(RecordReader& reader) {
    readStretch(reader, [this](const RECT& target, const Picture& picture, const RECT& source, DWORD rop) {
        blit(target, picture, source, rop);
    });
}

void MetafilePlayer::alphaBlend(RecordReader& reader) {
    readStretch(reader, [this](const RECT& target, const Picture& picture, const RECT& source, DWORD word) {
        BLENDFUNCTION function;
        static_assert(sizeof function == sizeof word);
        std::memcpy(static_cast<void*>(&function), &word, sizeof function);
        const RECT r = ordered(toTarget(target));
        AlphaBlend(dc_, r.left, r.top, r.right - r.left, r.bottom - r.top, picture.dc(), source.left,
                   source.top, source.right - source.left, source.bottom - source.top, function);
    });
}

void MetafilePlayer::transparentBlt(RecordReader& reader) {
    readStretch(reader, [this](const RECT& target, const Picture& picture, const RECT& source, DWORD color) {
        const RECT r = ordered(toTarget(target));
        TransparentBlt(dc_, r.left, r.top, r.right - r.left, r.bottom - r.top, picture.dc(), source.left,
                       source.top, source.right - source.left, source.bottom - source.top, color);
    });
}

void MetafilePlayer::setDIBitsToDevice(RecordReader& reader) {
    reader.skip(sizeof(RECT));
    const POINT at = reader.value<POINT>();
    const POINT from = reader.value<POINT>();
    const SIZE size = reader.value<SIZE>();
    const DWORD headerAt = reader.number();
    const DWORD headerSize = reader.number();
    const DWORD bitsAt = reader.number();
    const DWORD bitsSize = reader.number();
    const auto data = pictureOf(reader.at(headerAt, headerSize), reader.at(bitsAt, bitsSize), pixelsLeft_);
    if (reader.failed() || !data) return;
    const Picture picture(dc_, *data);
    // The source counts from the bottom; the picture is not scaled.
    const POINT corner = toTarget(at);
    StretchBlt(dc_, corner.x, corner.y, size.cx, size.cy, picture.dc(), from.x,
               boundedCoordinate(std::int64_t{picture.height()} - from.y - size.cy), size.cx, size.cy,
               SRCCOPY);
}

void MetafilePlayer::stretchDIBits(RecordReader& reader) {
    reader.skip(sizeof(RECT));
    const POINT at = reader.value<POINT>();
    const POINT from = reader.value<POINT>();
    const SIZE fromSize = reader.value<SIZE>();
    const DWORD headerAt = reader.number();
    const DWORD headerSize = reader.number();
    const DWORD bitsAt = reader.number();
    const DWORD bitsSize = reader.number();
    reader.skip(sizeof(DWORD)); // what the colours are
    const DWORD rop = reader.number();
    const SIZE size = reader.value<SIZE>();
    const auto data = pictureOf(reader.at(headerAt, headerSize), reader.at(bitsAt, bitsSize), pixelsLeft_);
    if (reader.failed() || !data) return;
    const Picture picture(dc_, *data);
    const LONG top = boundedCoordinate(std::int64_t{picture.height()} - from.y - fromSize.cy);
    blit(rectOf(at.x, at.y, size.cx, size.cy), picture, rectOf(from.x, top, fromSize.cx, fromSize.cy), rop);
}

void MetafilePlayer::fillGradient(RecordReader& reader) {
    reader.skip(sizeof(RECT));
    const DWORD vertexCount = reader.number();
    const DWORD meshCount = reader.number();
    const DWORD mode = reader.number();
    if (reader.failed() || vertexCount > reader.left() / sizeof(TRIVERTEX)) {
        reader.fail();
        return;
    }
    std::vector<TRIVERTEX> vertices;
    for (DWORD i = 0; i < vertexCount; ++i) {
        TRIVERTEX vertex = reader.value<TRIVERTEX>();
        const POINT p = toTarget(vertex.x, vertex.y);
        vertex.x = p.x;
        vertex.y = p.y;
        vertices.push_back(vertex);
    }
    const std::size_t meshSize =
        mode == GRADIENT_FILL_TRIANGLE ? sizeof(GRADIENT_TRIANGLE) : sizeof(GRADIENT_RECT);
    if (mode > GRADIENT_FILL_TRIANGLE || meshCount > reader.left() / meshSize) {
        reader.fail();
        return;
    }
    std::vector<DWORD> meshes;
    for (std::size_t i = 0; i < meshCount * meshSize / sizeof(DWORD); ++i)
        meshes.push_back(reader.number());
    GradientFill(dc_, vertices.data(), vertexCount, meshes.data(), meshCount, mode);
}

} // namespace platform::driver
