// Bitmaps: 1, 4, 8, 16, 24 and 32 bits, run-length coded ones, top-down ones, those of the oldest header,
// and the pair of pixels and mask that an icon holds.

#include "platform/picture_readers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>

namespace platform {
namespace {

constexpr std::size_t fileHeaderSize = 14;
constexpr std::uint32_t coreHeaderSize = 12;
constexpr std::uint32_t infoHeaderSize = 40;
constexpr std::uint32_t headerSizeWithAlpha = 56;
constexpr std::uint32_t opaque = 0xFF000000;

enum Compression : std::uint32_t { plain = 0, runs8 = 1, runs4 = 2, bitFields = 3, alphaBitFields = 6 };

/// Where one colour lies in a pixel of 16 or 32 bits.
struct Channel {
    std::uint32_t mask = 0;

    std::uint32_t of(std::uint32_t pixel) const {
        if (mask == 0) return 0;
        const int shift = std::countr_zero(mask);
        const std::uint64_t highest = mask >> shift;
        return static_cast<std::uint32_t>(std::uint64_t{(pixel & mask) >> shift} * 255 / highest);
    }
};

struct Header {
    int width = 0;
    int height = 0;
    bool topDown = false;
    int bits = 0;
    std::uint32_t compression = plain;
    std::array<Channel, 4> channels; ///< Red, green, blue, alpha
    std::vector<std::uint32_t> palette;
    std::size_t end = 0; ///< Where the pixels begin if nothing else says so

    std::size_t stride() const {
        return (static_cast<std::size_t>(width) * static_cast<unsigned>(bits) + 31) / 32 * 4;
    }
};

bool isKnownDepth(int bits) {
    constexpr int depths[] = {1, 4, 8, 16, 24, 32};
    return std::find(std::begin(depths), std::end(depths), bits) != std::end(depths);
}

bool suits(std::uint32_t compression, int bits) {
    switch (compression) {
    case plain:
        return true;
    case runs8:
        return bits == 8;
    case runs4:
        return bits == 4;
    case bitFields:
    case alphaBitFields:
        return bits == 16 || bits == 32;
    default:
        return false;
    }
}

void readChannels(PictureByteReader& reader, std::uint32_t size, Header& header) {
    const bool fields = header.compression == bitFields || header.compression == alphaBitFields;
    const bool alpha = header.compression == alphaBitFields || size >= headerSizeWithAlpha;
    if (fields) {
        for (int i = 0; i < (alpha ? 4 : 3); ++i)
            header.channels[static_cast<std::size_t>(i)].mask = reader.dword();
    } else if (header.bits == 16) {
        header.channels = {{{0x7C00}, {0x03E0}, {0x001F}, {0}}};
    } else {
        header.channels = {{{0x00FF0000}, {0x0000FF00}, {0x000000FF}, {0}}};
    }
}

void readPalette(PictureByteReader& reader, bool core, std::uint32_t used, Header& header) {
    if (header.bits > 8) {
        // A palette here only advises; it is stepped over.
        reader.skip(std::min<std::size_t>(used, 256) * 4);
        return;
    }
    const std::uint32_t most = 1u << header.bits;
    const std::uint32_t count = used == 0 ? most : std::min(used, most);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t blue = reader.byte();
        const std::uint32_t green = reader.byte();
        const std::uint32_t red = reader.byte();
        if (!core) reader.skip(1);
        header.palette.push_back(opaque | red << 16 | green << 8 | blue);
    }
    header.palette.resize(most, opaque);
}

PictureError readSize(std::int64_t width, std::int64_t height, bool inIcon, Header& header) {
    header.topDown = height < 0;
    const std::int64_t rows = std::abs(height) / (inIcon ? 2 : 1);
    if (const auto error = checkPictureSize(width, rows); error != PictureError::None) return error;
    header.width = static_cast<int>(width);
    header.height = static_cast<int>(rows);
    return PictureError::None;
}

PictureError readHeader(PictureBytes dib, bool inIcon, Header& header) {
    PictureByteReader reader(dib);
    const std::uint32_t size = reader.dword();
    const bool core = size == coreHeaderSize;
    if (!core && size < infoHeaderSize) return PictureError::Corrupt;
    const std::int64_t width = core ? reader.word() : reader.number();
    const std::int64_t height = core ? reader.word() : reader.number();
    reader.skip(2); // planes
    header.bits = reader.word();
    std::uint32_t used = 0;
    if (!core) {
        header.compression = reader.dword();
        reader.skip(12); // size of the pixels and resolution
        used = reader.dword();
        reader.skip(4);
    }
    if (reader.failed() || !isKnownDepth(header.bits) || !suits(header.compression, header.bits))
        return PictureError::Corrupt;
    if (const auto error = readSize(width, height, inIcon, header); error != PictureError::None) return error;
    const bool coded = header.compression == runs8 || header.compression == runs4;
    if (coded && header.topDown) return PictureError::Corrupt;
    readChannels(reader, size, header);
    if (!core && reader.position() < size) reader.skip(size - reader.position());
    readPalette(reader, core, used, header);
    header.end = reader.position();
    return reader.failed() ? PictureError::Corrupt : PictureError::None;
}

std::uint32_t pixelAt(const Header& header, const std::uint8_t* row, int x) {
    const auto column = static_cast<std::size_t>(x);
    switch (header.bits) {
    case 1:
        return header.palette[row[column / 8] >> (7 - column % 8) & 1];
    case 4:
        return header.palette[column % 2 == 0 ? row[column / 2] >> 4 : row[column / 2] & 0x0F];
    case 8:
        return header.palette[row[column]];
    case 24:
        return opaque | std::uint32_t{row[3 * column + 2]} << 16 | std::uint32_t{row[3 * column + 1]} << 8 |
               row[3 * column];
    default:
        break;
    }
    const std::size_t bytes = static_cast<std::size_t>(header.bits) / 8;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes; ++i)
        value |= std::uint32_t{row[column * bytes + i]} << (8 * i);
    const auto& [red, green, blue, alpha] = header.channels;
    const std::uint32_t a = alpha.mask != 0 ? alpha.of(value) << 24 : opaque;
    return a | red.of(value) << 16 | green.of(value) << 8 | blue.of(value);
}

/// A row without its last padding may end the file.
bool holdsRows(PictureBytes bytes, std::size_t stride, std::size_t used, int rows) {
    return bytes.size() >= stride * static_cast<std::size_t>(rows - 1) + used;
}

PictureError readPlain(const Header& header, PictureBytes bytes, PictureData& picture) {
    const std::size_t used =
        (static_cast<std::size_t>(header.width) * static_cast<unsigned>(header.bits) + 7) / 8;
    if (!holdsRows(bytes, header.stride(), used, header.height)) return PictureError::Corrupt;
    picture.argb.resize(static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height));
    for (int y = 0; y < header.height; ++y) {
        const int source = header.topDown ? y : header.height - 1 - y;
        const std::uint8_t* row = bytes.data() + header.stride() * static_cast<std::size_t>(source);
        std::uint32_t* out =
            picture.argb.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(header.width);
        for (int x = 0; x < header.width; ++x)
            out[x] = pixelAt(header, row, x);
    }
    return PictureError::None;
}

/// Run-length coded pixels, bottom row first. What the runs leave out has colour 0.
class RunReader {
public:
    RunReader(const Header& header, PictureBytes bytes, PictureData& picture)
        : header_(header), reader_(bytes), picture_(picture) {}

    PictureError read() {
        const auto count = static_cast<std::size_t>(header_.width) * static_cast<std::size_t>(header_.height);
        picture_.argb.assign(count, header_.palette[0]);
        while (!ended_ && !reader_.failed()) {
            const int count1 = reader_.byte();
            const int value = reader_.byte();
            if (reader_.failed()) break;
            if (count1 > 0)
                repeat(count1, value);
            else if (value > lastEscape)
                literal(value);
            else
                escape(value);
        }
        return ended_ ? PictureError::None : PictureError::Corrupt;
    }

private:
    enum Escape { endOfLine = 0, endOfBitmap = 1, move = 2, lastEscape = 2 };

    void put(int index) {
        if (x_ < header_.width && y_ < header_.height) {
            const auto row = static_cast<std::size_t>(header_.height - 1 - y_);
            picture_.argb[row * static_cast<std::size_t>(header_.width) + static_cast<std::size_t>(x_)] =
                header_.palette[static_cast<std::size_t>(index)];
            ++x_;
        }
    }
    void repeat(int count, int value) {
        for (int i = 0; i < count; ++i)
            put(header_.bits == 8 ? value : i % 2 == 0 ? value >> 4 : value & 0x0F);
    }
    void literal(int count) {
        const int bytes = header_.bits == 8 ? count : (count + 1) / 2;
        for (int i = 0; i < bytes; ++i) {
            const int value = reader_.byte();
            if (header_.bits == 8) {
                put(value);
                continue;
            }
            put(value >> 4);
            if (2 * i + 1 < count) put(value & 0x0F);
        }
        if (bytes % 2 != 0) reader_.skip(1);
    }
    void escape(int code) {
        if (code == endOfBitmap) {
            ended_ = true;
        } else if (code == endOfLine) {
            x_ = 0;
            ++y_;
        } else {
            // Any number of moves stays at the end of the row.
            x_ = std::min(x_ + reader_.byte(), header_.width);
            y_ += reader_.byte();
        }
        // Files whose last line ends without the end mark are whole too.
        if (y_ >= header_.height) ended_ = true;
    }

    const Header& header_;
    PictureByteReader reader_;
    PictureData& picture_;
    int x_ = 0;
    int y_ = 0;
    bool ended_ = false;
};

/// The mask of an icon: one bit a pixel, after the pixels. Missing bytes show the whole icon.
void readMask(const Header& header, PictureBytes bytes, PictureData& picture) {
    const std::size_t stride = (static_cast<std::size_t>(header.width) + 31) / 32 * 4;
    picture.mask.assign(picture.argb.size(), 0);
    for (int y = 0; y < header.height; ++y) {
        const auto source = static_cast<std::size_t>(header.topDown ? y : header.height - 1 - y);
        for (int x = 0; x < header.width; ++x) {
            const std::size_t at = source * stride + static_cast<std::size_t>(x) / 8;
            if (at >= bytes.size()) break;
            picture.mask[static_cast<std::size_t>(y) * static_cast<std::size_t>(header.width) +
                         static_cast<std::size_t>(x)] = bytes[at] >> (7 - x % 8) & 1;
        }
    }
}

/// An icon of 32 bits whose highest bytes are not all 0 has alpha there; any other is as its mask says.
void settleIconAlpha(const Header& header, PictureBytes pixels, PictureData& picture) {
    bool alpha = false;
    if (header.bits == 32 && header.compression == plain) {
        for (std::size_t i = 0; i < picture.argb.size() && !alpha; ++i)
            alpha = pixels[4 * i + 3] != 0;
    }
    picture.hasAlpha = alpha;
    for (int y = 0; y < header.height; ++y) {
        const auto source = static_cast<std::size_t>(header.topDown ? y : header.height - 1 - y);
        for (int x = 0; x < header.width; ++x) {
            const std::size_t i = static_cast<std::size_t>(y) * static_cast<std::size_t>(header.width) +
                                  static_cast<std::size_t>(x);
            const std::size_t from = source * header.stride() + 4 * static_cast<std::size_t>(x) + 3;
            const std::uint32_t a = alpha ? pixels[from] : picture.mask[i] ? 0u : 255u;
            picture.argb[i] = (picture.argb[i] & 0x00FFFFFF) | a << 24;
        }
    }
}

} // namespace

PictureError decodeDibPixels(PictureBytes dib, bool inIcon, std::size_t pixelsAt, PictureData& picture) {
    Header header;
    if (const auto error = readHeader(dib, inIcon, header); error != PictureError::None) return error;
    const std::size_t begin = pixelsAt >= header.end ? pixelsAt : header.end;
    if (begin > dib.size()) return PictureError::Corrupt;
    const PictureBytes pixels = dib.subspan(begin);
    const bool coded = header.compression == runs8 || header.compression == runs4;
    if (inIcon && coded) return PictureError::Corrupt;
    picture.width = header.width;
    picture.height = header.height;
    const auto error = coded ? RunReader(header, pixels, picture).read() : readPlain(header, pixels, picture);
    if (error != PictureError::None) return error;
    if (inIcon) {
        const std::size_t size = header.stride() * static_cast<std::size_t>(header.height);
        readMask(header, pixels.subspan(std::min(size, pixels.size())), picture);
        settleIconAlpha(header, pixels, picture);
    } else {
        picture.hasAlpha = header.channels[3].mask != 0;
    }
    return PictureError::None;
}

PictureError decodeBmp(PictureBytes file, PictureData& picture) {
    PictureByteReader reader(file);
    reader.skip(10);
    const std::size_t pixelsAt = reader.dword();
    if (reader.failed()) return PictureError::Corrupt;
    return decodeDibPixels(file.subspan(fileHeaderSize), false,
                           pixelsAt > fileHeaderSize ? pixelsAt - fileHeaderSize : 0, picture);
}

} // namespace platform
