// Icon and cursor files: a directory of pictures of several sizes, each a bitmap with a mask or a PNG.

#include "platform/picture_readers.h"

#include <cstdlib>
#include <limits>

namespace platform {
namespace {

constexpr std::uint16_t cursorType = 2;
constexpr int sideOfZero = 256;

struct Entry {
    int width = 0;
    int height = 0;
    int bits = 0;
    POINT hotSpot;
    std::size_t size = 0;
    std::size_t offset = 0;
};

int side(std::uint8_t stated) {
    return stated == 0 ? sideOfZero : stated;
}

Entry readEntry(PictureByteReader& reader, bool cursor) {
    Entry entry;
    entry.width = side(reader.byte());
    entry.height = side(reader.byte());
    reader.skip(2);
    const std::uint16_t first = reader.word();
    const std::uint16_t second = reader.word();
    entry.size = reader.dword();
    entry.offset = reader.dword();
    if (cursor)
        entry.hotSpot = {first, second};
    else
        entry.bits = second;
    return entry;
}

/// How far an entry is from what is asked for.
int distance(const Entry& entry, const PictureRequest& request) {
    const int height = request.height > 0 ? request.height : request.width;
    return std::abs(entry.width - request.width) + std::abs(entry.height - height);
}

bool isBetter(const Entry& entry, const Entry& best, const PictureRequest& request) {
    const int difference = distance(entry, request) - distance(best, request);
    return difference < 0 || (difference == 0 && entry.bits > best.bits);
}

void maskFromAlpha(PictureData& picture) {
    picture.mask.resize(picture.argb.size());
    for (std::size_t i = 0; i < picture.argb.size(); ++i)
        picture.mask[i] = picture.argb[i] >> 24 == 0 ? 1 : 0;
}

} // namespace

PictureError decodeIcon(PictureBytes file, const PictureRequest& request, PictureData& picture) {
    PictureByteReader reader(file);
    reader.skip(2);
    const bool cursor = reader.word() == cursorType;
    const int count = reader.word();
    if (reader.failed() || count == 0) return PictureError::Corrupt;
    Entry best = readEntry(reader, cursor);
    for (int i = 1; i < count && !reader.failed(); ++i) {
        const Entry entry = readEntry(reader, cursor);
        if (request.width > 0 && isBetter(entry, best, request)) best = entry;
    }
    if (reader.failed() || best.offset > file.size() || best.size > file.size() - best.offset)
        return PictureError::Corrupt;
    const PictureBytes image = file.subspan(best.offset, best.size);
    const bool png = pictureFormat(image) == PictureFormat::Png;
    const auto error = png ? driver::decodePng(image, picture) : decodeDibPixels(image, true, 0, picture);
    if (error != PictureError::None) return error;
    if (png) maskFromAlpha(picture);
    picture.hotSpot = cursor ? best.hotSpot : POINT{picture.width / 2, picture.height / 2};
    return PictureError::None;
}

} // namespace platform
