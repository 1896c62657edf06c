#include "platform/pictures.h"

#include "platform/picture_readers.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace platform {
namespace {

constexpr LONG himetricPerInch = 2540;
constexpr std::uint32_t emfSignature = 0x464D4520; // " EMF"
constexpr std::uint32_t placeableWmf = 0x9AC6CDD7;

bool startsWith(PictureBytes file, std::string_view signature) {
    return file.size() >= signature.size() &&
           std::equal(signature.begin(), signature.end(), file.begin(),
                      [](char c, std::uint8_t byte) { return static_cast<std::uint8_t>(c) == byte; });
}

/// The signature of an EMF lies 40 bytes after its beginning, which is the header record, number 1.
bool isEmf(PictureBytes file) {
    PictureByteReader reader(file);
    const bool header = reader.dword() == 1;
    reader.skip(36);
    return header && reader.dword() == emfSignature && !reader.failed();
}

bool isWmf(PictureBytes file) {
    constexpr std::uint16_t headerWords = 9;
    PictureByteReader reader(file);
    if (reader.dword() == placeableWmf) return true;
    return startsWith(file, std::string_view("\x01\x00\x09\x00\x00\x03", 6)) &&
           file.size() >= std::size_t{headerWords} * 2;
}

LONG himetric(int pixels, int pixelsPerInch) {
    if (pixelsPerInch <= 0) return 0;
    const std::int64_t scaled = std::int64_t{pixels} * himetricPerInch;
    return static_cast<LONG>((scaled + pixelsPerInch / 2) / pixelsPerInch);
}

PictureError decodeAs(PictureFormat format, PictureBytes file, const PictureRequest& request,
                      PictureData& picture) {
    switch (format) {
    case PictureFormat::Bmp:
        return decodeBmp(file, picture);
    case PictureFormat::Ico:
    case PictureFormat::Cur:
        return decodeIcon(file, request, picture);
    case PictureFormat::Png:
        return driver::decodePng(file, picture);
    case PictureFormat::Jpeg:
        return driver::decodeJpeg(file, picture);
    case PictureFormat::Gif:
        return driver::decodeGif(file, picture);
    case PictureFormat::Unknown:
    case PictureFormat::Wmf:
    case PictureFormat::Emf:
        break;
    }
    return PictureError::UnknownFormat;
}

void finish(PictureData& made, PictureFormat format, const PictureRequest& request, PictureData& picture) {
    made.format = format;
    made.widthHimetric = himetric(made.width, request.pixelsPerInch);
    made.heightHimetric = himetric(made.height, request.pixelsPerInch);
    picture = std::move(made);
}

} // namespace

void PictureByteReader::skip(std::size_t count) {
    if (count > left()) {
        failed_ = true;
        count = left();
    }
    at_ += count;
}

std::uint8_t PictureByteReader::byte() {
    if (left() == 0) {
        failed_ = true;
        return 0;
    }
    return bytes_[at_++];
}

std::uint16_t PictureByteReader::word() {
    const std::uint16_t low = byte();
    return static_cast<std::uint16_t>(low | byte() << 8);
}

std::uint32_t PictureByteReader::dword() {
    const std::uint32_t low = word();
    return low | std::uint32_t{word()} << 16;
}

PictureError checkPictureSize(std::int64_t width, std::int64_t height) {
    if (width <= 0 || height <= 0) return PictureError::Corrupt;
    const bool fits =
        width <= largestPictureSide && height <= largestPictureSide && width * height <= largestPicturePixels;
    return fits ? PictureError::None : PictureError::TooLarge;
}

PictureFormat pictureFormat(PictureBytes file) {
    constexpr std::pair<std::string_view, PictureFormat> signatures[] = {
        {"BM", PictureFormat::Bmp},
        {std::string_view("\0\0\1\0", 4), PictureFormat::Ico},
        {std::string_view("\0\0\2\0", 4), PictureFormat::Cur},
        {"\x89PNG\r\n\x1A\n", PictureFormat::Png},
        {"\xFF\xD8\xFF", PictureFormat::Jpeg},
        {"GIF87a", PictureFormat::Gif},
        {"GIF89a", PictureFormat::Gif},
    };
    for (const auto& [signature, format] : signatures) {
        if (startsWith(file, signature)) return format;
    }
    if (isEmf(file)) return PictureFormat::Emf;
    return isWmf(file) ? PictureFormat::Wmf : PictureFormat::Unknown;
}

PictureError decodePicture(PictureBytes file, PictureData& picture, const PictureRequest& request) {
    const PictureFormat format = pictureFormat(file);
    PictureData made;
    const PictureError error = decodeAs(format, file, request, made);
    if (error == PictureError::None) finish(made, format, request, picture);
    return error;
}

PictureError decodeDib(PictureBytes dib, PictureData& picture, const PictureRequest& request) {
    PictureData made;
    const PictureError error = decodeDibPixels(dib, false, 0, made);
    if (error == PictureError::None) finish(made, PictureFormat::Bmp, request, picture);
    return error;
}

} // namespace platform
