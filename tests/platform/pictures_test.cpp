#include "platform/pictures.h"

#include <algorithm>
#include <random>

using namespace platform;

namespace {

using Bytes = std::vector<std::uint8_t>;
using Pixels = std::vector<std::uint32_t>;

/// Builds files byte by byte.
struct Writer {
    Bytes bytes;

    Writer& u8(unsigned value) {
        bytes.push_back(static_cast<std::uint8_t>(value));
        return *this;
    }
    Writer& u16(unsigned value) { return u8(value & 0xFF).u8(value >> 8); }
    Writer& u32(std::uint32_t value) { return u16(value & 0xFFFF).u16(value >> 16); }
    Writer& add(const Bytes& more) {
        bytes.insert(bytes.end(), more.begin(), more.end());
        return *this;
    }
};

struct Dib {
    int width = 0;
    int height = 0;
    unsigned bits = 24;
    unsigned compression = 0;
    Pixels palette;
    Bytes data;
};

Bytes dibBytes(const Dib& dib) {
    Writer w;
    w.u32(40).u32(static_cast<std::uint32_t>(dib.width)).u32(static_cast<std::uint32_t>(dib.height));
    w.u16(1).u16(dib.bits).u32(dib.compression).u32(0).u32(0).u32(0);
    w.u32(static_cast<std::uint32_t>(dib.palette.size())).u32(0);
    for (const auto colour : dib.palette)
        w.u32(colour);
    return w.add(dib.data).bytes;
}

Bytes bmp(const Dib& dib) {
    const Bytes body = dibBytes(dib);
    const auto offset = static_cast<std::uint32_t>(14 + body.size() - dib.data.size());
    Writer w;
    w.u8('B').u8('M').u32(static_cast<std::uint32_t>(14 + body.size())).u32(0).u32(offset);
    return w.add(body).bytes;
}

PictureData decoded(const Bytes& file, const PictureRequest& request = {}) {
    PictureData picture;
    EXPECT_EQ(decodePicture(file, picture, request), PictureError::None);
    return picture;
}

PictureError errorOf(const Bytes& file) {
    PictureData picture;
    picture.width = 77;
    const PictureError error = decodePicture(file, picture);
    EXPECT_EQ(picture.width, 77) << "a failure leaves the picture alone";
    return error;
}

// Two by two pixels, red and green over blue and white with half of its alpha.
const Bytes smallPng = {
    0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48, 0x44, 0x52,
    0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x02, 0x08, 0x06, 0x00, 0x00, 0x00, 0x72, 0xB6, 0x0D,
    0x24, 0x00, 0x00, 0x00, 0x13, 0x49, 0x44, 0x41, 0x54, 0x78, 0xDA, 0x63, 0xF8, 0xCF, 0xC0, 0xF0,
    0x1F, 0x0C, 0x81, 0x34, 0x08, 0x34, 0x00, 0x00, 0x49, 0x49, 0x09, 0x78, 0x9C, 0x51, 0x17, 0x92,
    0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82,
};

// One pixel high, two wide: black and a transparent white.
const Bytes smallGif = {
    0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x02, 0x00, 0x01, 0x00, 0x80, 0x00, 0x00, 0x00, 0x00,
    0x00, 0xFF, 0xFF, 0xFF, 0x21, 0xF9, 0x04, 0x01, 0x00, 0x00, 0x01, 0x00, 0x2C, 0x00, 0x00,
    0x00, 0x00, 0x02, 0x00, 0x01, 0x00, 0x00, 0x02, 0x02, 0x44, 0x0A, 0x00, 0x3B,
};

// Eight by eight pixels of one grey.
const Bytes smallJpeg = {
    0xFF, 0xD8, 0xFF, 0xE0, 0x00, 0x10, 0x4A, 0x46, 0x49, 0x46, 0x00, 0x01, 0x01, 0x00, 0x00, 0x01,
    0x00, 0x01, 0x00, 0x00, 0xFF, 0xDB, 0x00, 0x43, 0x00, 0x03, 0x02, 0x02, 0x03, 0x02, 0x02, 0x03,
    0x03, 0x03, 0x03, 0x04, 0x03, 0x03, 0x04, 0x05, 0x08, 0x05, 0x05, 0x04, 0x04, 0x05, 0x0A, 0x07,
    0x07, 0x06, 0x08, 0x0C, 0x0A, 0x0C, 0x0C, 0x0B, 0x0A, 0x0B, 0x0B, 0x0D, 0x0E, 0x12, 0x10, 0x0D,
    0x0E, 0x11, 0x0E, 0x0B, 0x0B, 0x10, 0x16, 0x10, 0x11, 0x13, 0x14, 0x15, 0x15, 0x15, 0x0C, 0x0F,
    0x17, 0x18, 0x16, 0x14, 0x18, 0x12, 0x14, 0x15, 0x14, 0xFF, 0xC0, 0x00, 0x0B, 0x08, 0x00, 0x08,
    0x00, 0x08, 0x01, 0x01, 0x11, 0x00, 0xFF, 0xC4, 0x00, 0x14, 0x00, 0x01, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x06, 0xFF, 0xC4, 0x00, 0x14,
    0x10, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0xFF, 0xDA, 0x00, 0x08, 0x01, 0x01, 0x00, 0x00, 0x3F, 0x00, 0x56, 0xFF, 0xD9,
};

TEST(Pictures, TheFirstBytesTellTheFormat) {
    EXPECT_EQ(pictureFormat(smallPng), PictureFormat::Png);
    EXPECT_EQ(pictureFormat(smallGif), PictureFormat::Gif);
    EXPECT_EQ(pictureFormat(smallJpeg), PictureFormat::Jpeg);
    EXPECT_EQ(pictureFormat(Bytes{'B', 'M'}), PictureFormat::Bmp);
    EXPECT_EQ(pictureFormat(Bytes{0, 0, 1, 0}), PictureFormat::Ico);
    EXPECT_EQ(pictureFormat(Bytes{0, 0, 2, 0}), PictureFormat::Cur);
    EXPECT_EQ(pictureFormat(Bytes{0xD7, 0xCD, 0xC6, 0x9A}), PictureFormat::Wmf);
    Bytes emf(44, 0);
    emf[0] = 1;
    std::copy_n(" EMF", 4, emf.begin() + 40);
    EXPECT_EQ(pictureFormat(emf), PictureFormat::Emf);
    EXPECT_EQ(pictureFormat({}), PictureFormat::Unknown);
    EXPECT_EQ(pictureFormat(Bytes{'B'}), PictureFormat::Unknown);
    EXPECT_EQ(errorOf({}), PictureError::UnknownFormat);
    EXPECT_EQ(errorOf(emf), PictureError::UnknownFormat);
}

TEST(Pictures, BitmapsOfEachDepthDecode) {
    const Pixels expected = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF};
    const Pixels palette = {0x0000FF, 0xFFFFFF, 0xFF0000, 0x00FF00};
    const Dib cases[] = {
        {2, 2, 4, 0, palette, {0x01, 0, 0, 0, 0x23, 0, 0, 0}},
        {2, 2, 8, 0, palette, {0, 1, 0, 0, 2, 3, 0, 0}},
        {2, 2, 16, 0, {}, {0x1F, 0x00, 0xFF, 0x7F, 0x00, 0x7C, 0xE0, 0x03}},
        {2, 2, 24, 0, {}, {255, 0, 0, 255, 255, 255, 0, 0, 0, 0, 255, 0, 255, 0, 0, 0}},
        {2, 2, 32, 0, {}, {255, 0, 0, 9, 255, 255, 255, 9, 0, 0, 255, 9, 0, 255, 0, 9}},
        {2, -2, 24, 0, {}, {0, 0, 255, 0, 255, 0, 0, 0, 255, 0, 0, 255, 255, 255, 0, 0}},
        {2, 2, 8, 1, palette, {2, 0, 0, 0, 0, 1}},
    };
    for (const auto& dib : cases) {
        if (dib.compression != 0) continue;
        const PictureData picture = decoded(bmp(dib));
        EXPECT_EQ(picture.width, 2);
        EXPECT_EQ(picture.height, 2);
        EXPECT_EQ(picture.argb, expected) << dib.bits;
        EXPECT_FALSE(picture.hasAlpha);
        EXPECT_TRUE(picture.mask.empty());
    }
}

TEST(Pictures, OneBitBitmapsReadTheHighestBitFirst) {
    const Pixels palette = {0x000000, 0xFFFFFF};
    const auto picture = decoded(bmp({10, 1, 1, 0, palette, {0x80, 0x40, 0, 0}}));
    Pixels expected(10, 0xFF000000);
    expected[0] = expected[9] = 0xFFFFFFFF;
    EXPECT_EQ(picture.argb, expected);
}

TEST(Pictures, RunLengthCodedBitmapsDecode) {
    const Pixels palette = {0x000000, 0x111111, 0x222222, 0x333333};
    // Bottom row: two of 1, then 2 and 3 and 1 as they stand; top row: one step right, one of 3.
    const auto eight =
        decoded(bmp({5, 2, 8, 1, palette, {2, 1, 0, 3, 2, 3, 1, 0, 0, 0, 0, 2, 1, 0, 1, 3, 0, 1}}));
    EXPECT_EQ(eight.argb, (Pixels{0xFF000000, 0xFF333333, 0xFF000000, 0xFF000000, 0xFF000000, 0xFF111111,
                                  0xFF111111, 0xFF222222, 0xFF333333, 0xFF111111}));
    const auto four = decoded(bmp({5, 1, 4, 2, palette, {3, 0x12, 0, 3, 0x31, 0x20, 0, 1}}));
    EXPECT_EQ(four.argb, (Pixels{0xFF111111, 0xFF222222, 0xFF111111, 0xFF333333, 0xFF111111}));
}

TEST(Pictures, RunsThatNeverEndAreCorrupt) {
    EXPECT_EQ(errorOf(bmp({5, 2, 8, 1, {0, 1}, {2, 1}})), PictureError::Corrupt);
    EXPECT_EQ(errorOf(bmp({5, 2, 8, 1, {0, 1}, {0, 9, 1, 1}})), PictureError::Corrupt);
}

TEST(Pictures, RunsThatMoveBeyondTheirRowPaintNothingThere) {
    // Together these moves are one pixel short of 2 to the power of 32.
    constexpr std::size_t moves = 0xFFFFFFFFu / 255;
    Bytes data(4 * moves, 0);
    for (std::size_t i = 0; i < moves; ++i) {
        data[4 * i + 1] = 2;
        data[4 * i + 2] = 255;
    }
    data.insert(data.end(), {2, 1, 0, 1});
    const auto picture = decoded(bmp({4, 2, 8, 1, {0x000000, 0x111111}, std::move(data)}));
    EXPECT_EQ(picture.argb, Pixels(8, 0xFF000000));
}

TEST(Pictures, ABitmapWithoutItsFileHeaderDecodes) {
    PictureData picture;
    EXPECT_EQ(decodeDib(dibBytes({1, 1, 24, 0, {}, {1, 2, 3, 0}}), picture), PictureError::None);
    EXPECT_EQ(picture.argb, Pixels{0xFF030201});
    EXPECT_EQ(picture.widthHimetric, 26);
}

TEST(Pictures, SizesInHimetricFollowTheResolution) {
    const auto file = bmp({96, 48, 1, 0, {0, 1}, Bytes(12 * 48, 0)});
    EXPECT_EQ(decoded(file).widthHimetric, 2540);
    EXPECT_EQ(decoded(file).heightHimetric, 1270);
    EXPECT_EQ(decoded(file, {0, 0, 120}).widthHimetric, 2032);
}

TEST(Pictures, LyingBitmapsFailWithoutTakingMemory) {
    EXPECT_EQ(errorOf(bmp({30000, 30000, 32, 0, {}, {}})), PictureError::TooLarge);
    EXPECT_EQ(errorOf(bmp({0x7FFFFFFF, 2, 32, 0, {}, {}})), PictureError::TooLarge);
    EXPECT_EQ(errorOf(bmp({2, static_cast<int>(0x80000000), 32, 0, {}, {}})), PictureError::TooLarge);
    EXPECT_EQ(errorOf(bmp({8000, 8000, 32, 0, {}, Bytes(100, 0)})), PictureError::Corrupt);
    EXPECT_EQ(errorOf(bmp({-1, 2, 32, 0, {}, Bytes(100, 0)})), PictureError::Corrupt);
    EXPECT_EQ(errorOf(bmp({0, 2, 32, 0, {}, Bytes(100, 0)})), PictureError::Corrupt);
    EXPECT_EQ(errorOf(bmp({2, 2, 7, 0, {}, Bytes(100, 0)})), PictureError::Corrupt);
    EXPECT_EQ(errorOf(bmp({2, 2, 24, 1, {}, Bytes(100, 0)})), PictureError::Corrupt);
    EXPECT_EQ(errorOf(bmp({2, 2, 24, 5, {}, Bytes(100, 0)})), PictureError::Corrupt);
}

TEST(Pictures, PngKeepsItsAlpha) {
    const auto picture = decoded(smallPng);
    EXPECT_EQ(picture.width, 2);
    EXPECT_EQ(picture.argb, (Pixels{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0x80FFFFFF}));
    EXPECT_TRUE(picture.hasAlpha);
}

TEST(Pictures, GifGivesItsFirstFrameWithTransparency) {
    const auto picture = decoded(smallGif);
    EXPECT_EQ(picture.width, 2);
    EXPECT_EQ(picture.height, 1);
    ASSERT_EQ(picture.argb.size(), 2u);
    EXPECT_EQ(picture.argb[0], 0xFF000000);
    EXPECT_EQ(picture.argb[1] >> 24, 0u);
    EXPECT_TRUE(picture.hasAlpha);
}

TEST(Pictures, JpegDecodesOpaque) {
    const auto picture = decoded(smallJpeg);
    EXPECT_EQ(picture.width, 8);
    EXPECT_EQ(picture.height, 8);
    EXPECT_EQ(picture.argb, Pixels(64, 0xFF909090));
    EXPECT_FALSE(picture.hasAlpha);
}

/// An icon file of these images; each comes with the side that its directory states.
Bytes iconFile(unsigned type, const std::vector<std::pair<unsigned, Bytes>>& images, POINT hotSpot = {}) {
    Writer w;
    w.u16(0).u16(type).u16(static_cast<unsigned>(images.size()));
    auto offset = static_cast<std::uint32_t>(6 + 16 * images.size());
    for (const auto& [side, image] : images) {
        w.u8(side).u8(side).u8(0).u8(0);
        if (type == 2)
            w.u16(static_cast<unsigned>(hotSpot.x)).u16(static_cast<unsigned>(hotSpot.y));
        else
            w.u16(1).u16(32);
        w.u32(static_cast<std::uint32_t>(image.size())).u32(offset);
        offset += static_cast<std::uint32_t>(image.size());
    }
    for (const auto& [side, image] : images)
        w.add(image);
    return w.bytes;
}

TEST(Pictures, AnIconWithoutAlphaIsAsItsMaskSays) {
    const Bytes whole = dibBytes(
        {2, 4, 24, 0, {}, {1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0, 0x40, 0, 0, 0, 0x80, 0, 0, 0}});
    const auto picture = decoded(iconFile(1, {{2, whole}}));
    EXPECT_EQ(picture.argb, (Pixels{0x00090807, 0xFF0C0B0A, 0xFF030201, 0x00060504}));
    EXPECT_EQ(picture.mask, (Bytes{1, 0, 0, 1}));
    EXPECT_FALSE(picture.hasAlpha);
    EXPECT_EQ(picture.hotSpot, (POINT{1, 1}));
}

TEST(Pictures, AnIconWithAlphaKeepsIt) {
    const Bytes image = dibBytes({1, 2, 32, 0, {}, {1, 2, 3, 0x40, 0, 0, 0, 0}});
    const auto picture = decoded(iconFile(1, {{1, image}}));
    EXPECT_EQ(picture.argb, Pixels{0x40030201});
    EXPECT_TRUE(picture.hasAlpha);
}

TEST(Pictures, TheNearestSizeIsChosen) {
    const auto image = [](int side) {
        return dibBytes(
            {side, 2 * side, 32, 0, {}, Bytes(static_cast<std::size_t>(side * side * 4 + side * 4), 255)});
    };
    const Bytes file = iconFile(1, {{8, image(8)}, {16, image(16)}, {32, image(32)}});
    EXPECT_EQ(decoded(file).width, 8);
    EXPECT_EQ(decoded(file, {16, 16, 96}).width, 16);
    EXPECT_EQ(decoded(file, {30, 0, 96}).width, 32);
    EXPECT_EQ(decoded(file, {200, 200, 96}).width, 32);
    EXPECT_EQ(decoded(file, {1, 1, 96}).width, 8);
}

TEST(Pictures, IconsMayHoldPngs) {
    const auto picture = decoded(iconFile(2, {{2, smallPng}}, {1, 0}));
    EXPECT_EQ(picture.format, PictureFormat::Cur);
    EXPECT_EQ(picture.argb[3], 0x80FFFFFF);
    EXPECT_EQ(picture.hotSpot, (POINT{1, 0}));
    EXPECT_EQ(picture.mask, Bytes(4, 0));
}

TEST(Pictures, LyingIconsFail) {
    EXPECT_EQ(errorOf(Bytes{0, 0, 1, 0}), PictureError::Corrupt);
    EXPECT_EQ(errorOf(Bytes{0, 0, 1, 0, 0, 0}), PictureError::Corrupt);
    EXPECT_EQ(errorOf(Bytes{0, 0, 1, 0, 255, 255, 1, 1}), PictureError::Corrupt);
    Bytes outside = iconFile(1, {{2, smallPng}});
    outside[18] = outside[19] = outside[20] = outside[21] = 0xFF;
    EXPECT_EQ(errorOf(outside), PictureError::Corrupt);
    EXPECT_EQ(errorOf(iconFile(1, {{2, {}}})), PictureError::Corrupt);
    // Places in the directory itself, before the end but too long, and sums beyond 32 bits.
    const Bytes whole = iconFile(1, {{2, smallPng}});
    const auto size = static_cast<std::uint32_t>(whole.size());
    for (const std::uint32_t place : {0u, 6u, size - 4, size, size + 1, 0xFFFFFFF0u}) {
        Bytes misplaced = whole;
        for (std::size_t i = 0; i < 4; ++i)
            misplaced[18 + i] = static_cast<std::uint8_t>(place >> (8 * i));
        EXPECT_EQ(errorOf(misplaced), PictureError::Corrupt) << place;
    }
}

TEST(Pictures, SizesOf65535AreRefusedInEachFormat) {
    constexpr int most = 65535;
    for (const unsigned depth : {1u, 4u, 8u, 16u, 24u, 32u})
        EXPECT_EQ(errorOf(bmp({most, most, depth, 0, {0, 1}, Bytes(64, 0)})), PictureError::TooLarge)
            << depth;
    EXPECT_EQ(errorOf(bmp({most, most, 8, 1, {0, 1}, {0, 1}})), PictureError::TooLarge);
    EXPECT_EQ(errorOf(bmp({most, -most, 24, 0, {}, Bytes(64, 0)})), PictureError::TooLarge);
    Bytes png = smallPng;
    png[18] = png[19] = png[22] = png[23] = 0xFF;
    EXPECT_NE(errorOf(png), PictureError::None);
    Bytes jpeg = smallJpeg;
    const Bytes startOfFrame = {0xFF, 0xC0};
    const auto frame = std::search(jpeg.begin(), jpeg.end(), startOfFrame.begin(), startOfFrame.end());
    std::fill(frame + 5, frame + 9, std::uint8_t{0xFF});
    EXPECT_NE(errorOf(jpeg), PictureError::None);
    Bytes gif = smallGif;
    constexpr std::size_t screenAt = 6;
    constexpr std::size_t frameAt = 32;
    for (std::size_t i = 0; i < 4; ++i)
        gif[screenAt + i] = gif[frameAt + i] = 0xFF;
    EXPECT_NE(errorOf(gif), PictureError::None);
    EXPECT_NE(errorOf(iconFile(1, {{2, dibBytes({most, most, 32, 0, {}, Bytes(64, 0)})}})),
              PictureError::None);
}

/// A file that was two pixels before it was damaged either fails or still is.
void expectTwoPixelsAtMost(const Bytes& file) {
    PictureData picture;
    if (decodePicture(file, picture) == PictureError::None) {
        EXPECT_EQ(picture.argb.size(), 2u);
    }
}

TEST(Pictures, BrokenCodesOfAGifNeverDoWorseThanFail) {
    constexpr std::ptrdiff_t codeSizeAt = 37;
    ASSERT_EQ(smallGif[codeSizeAt], 2);
    const Bytes codes[] = {{0xFF, 0xFF}, {0x00, 0x00}, {0x04, 0x04},
                           {0x44, 0x44}, {0x7C, 0x01}, {0x64, 0xFF}};
    for (const unsigned codeSize : {0u, 1u, 2u, 8u, 11u, 12u, 255u}) {
        for (const Bytes& broken : codes) {
            Bytes file = smallGif;
            file[codeSizeAt] = static_cast<std::uint8_t>(codeSize);
            std::copy(broken.begin(), broken.end(), file.begin() + codeSizeAt + 2);
            expectTwoPixelsAtMost(file);
        }
        Bytes endless(smallGif.begin(), smallGif.end() - 2);
        endless[codeSizeAt] = static_cast<std::uint8_t>(codeSize);
        expectTwoPixelsAtMost(endless);
    }
}

TEST(Pictures, APngThatStatesMorePixelsThanItsBytesCanHoldIsCorrupt) {
    Bytes lying = smallPng;
    lying[18] = lying[22] = 0x1F; // 7938 by 7938
    EXPECT_EQ(errorOf(lying), PictureError::Corrupt);
}

TEST(Pictures, EachBeginningOfAFileEndsClearly) {
    const Bytes files[] = {smallPng, smallJpeg, iconFile(1, {{2, smallPng}}),
                           bmp({5, 1, 4, 2, {1, 2, 3}, {3, 0x12, 0, 3, 0x31, 0x20, 0, 1}}),
                           bmp({2, 2, 24, 0, {}, Bytes(16, 1)})};
    for (const auto& file : files) {
        for (std::size_t length = 0; length + 16 < file.size(); ++length)
            EXPECT_NE(errorOf(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length))),
                      PictureError::None)
                << length << " of " << file.size();
    }
}

TEST(Pictures, DamagedFilesNeverDoWorseThanFail) {
    std::mt19937 random(20240501);
    const Bytes files[] = {
        smallPng,
        smallGif,
        smallJpeg,
        iconFile(1, {{2, smallPng}, {1, dibBytes({1, 2, 32, 0, {}, Bytes(8, 9)})}}),
        bmp({5, 2, 8, 1, {1, 2, 3}, {2, 1, 0, 3, 2, 3, 1, 0, 0, 0, 0, 2, 1, 0, 1, 3, 0, 1}}),
        bmp({2, 2, 16, 3, {0xF800, 0x7E0, 0x1F}, Bytes(8, 77)})};
    for (const auto& file : files) {
        for (int round = 0; round < 100; ++round) {
            Bytes damaged = file;
            for (int change = 0; change < 3; ++change)
                damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
            PictureData picture;
            if (decodePicture(damaged, picture) == PictureError::None) {
                EXPECT_EQ(picture.argb.size(),
                          static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
            }
        }
    }
}

} // namespace
