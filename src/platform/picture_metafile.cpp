// Metafiles as picture files.

#include "platform/metafiles.h"
#include "platform/picture_readers.h"

#include <limits>

namespace platform {
namespace {

constexpr LONG himetricPerInch = 2540;
constexpr std::size_t placeableSize = 22;
constexpr std::uint32_t placeableKey = 0x9AC6CDD7;

/// What stands before a placeable metafile: where its picture lies, in so many units to an inch.
struct Placement {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int unitsPerInch = 0;
};

bool readPlacement(PictureBytes file, Placement& placement) {
    PictureByteReader reader(file);
    if (reader.dword() != placeableKey) return false;
    reader.skip(2);
    const auto number = [&] { return static_cast<std::int16_t>(reader.word()); };
    placement.left = number();
    placement.top = number();
    placement.right = number();
    placement.bottom = number();
    placement.unitsPerInch = reader.word();
    return !reader.failed() && file.size() > placeableSize && placement.unitsPerInch > 0 &&
           placement.right > placement.left && placement.bottom > placement.top;
}

MetafilePicture readOlder(PictureBytes file, const Placement& placement) {
    const auto himetric = [&](int units) {
        return static_cast<LONG>(std::int64_t{units} * himetricPerInch / placement.unitsPerInch);
    };
    MetafilePicture picture;
    picture.isOlder = true;
    picture.widthHimetric = himetric(placement.right - placement.left);
    picture.heightHimetric = himetric(placement.bottom - placement.top);
    METAFILEPICT size;
    size.xExt = picture.widthHimetric;
    size.yExt = picture.heightHimetric;
    const PictureBytes records = file.subspan(placeableSize);
    picture.metafile = SetWinMetaFileBits(static_cast<UINT>(records.size()), records.data(), {}, &size);
    return picture;
}

/// The length between two edges; false for one that is not positive or exceeds its type.
bool readLength(LONG from, LONG to, LONG& length) {
    const std::int64_t difference = std::int64_t{to} - from;
    if (difference <= 0 || difference > std::numeric_limits<LONG>::max()) return false;
    length = static_cast<LONG>(difference);
    return true;
}

} // namespace

MetafilePicture readMetafilePicture(std::span<const BYTE> file) {
    Placement placement;
    if (readPlacement(file, placement)) return readOlder(file, placement);
    if (pictureFormat(file) != PictureFormat::Emf) return {};
    MetafilePicture picture;
    picture.metafile = SetEnhMetaFileBits(static_cast<UINT>(file.size()), file.data());
    ENHMETAHEADER header;
    if (!GetEnhMetaFileHeader(picture.metafile, sizeof header, &header)) return {};
    const bool hasSize = readLength(header.rclFrame.left, header.rclFrame.right, picture.widthHimetric) &&
                         readLength(header.rclFrame.top, header.rclFrame.bottom, picture.heightHimetric);
    if (hasSize) return picture;
    DeleteEnhMetaFile(picture.metafile);
    return {};
}

} // namespace platform
