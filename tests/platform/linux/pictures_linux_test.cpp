// How many scans a JPEG picture may have; on Windows the codec of the system decides that for itself.

#include "platform/pictures.h"

#include <gtest/gtest.h>

#include <array>

using namespace platform;

namespace {

using Bytes = std::vector<std::uint8_t>;

/// A progressive file of so many grey pixels each way, 8 or a multiple of 1,024: one scan of their mean, then
/// some that add nothing to it.
Bytes progressiveJpeg(int side, int emptyScans) {
    constexpr int blocksOfRun = 1 << 14;
    const int blocks = side / 8 * (side / 8);
    Bytes file = {0xFF, 0xD8, 0xFF, 0xDB, 0x00, 0x43, 0x00};
    file.resize(file.size() + 64, 3); // what coefficients are divided by
    const auto add = [&](std::initializer_list<int> bytes) {
        file.insert(file.end(), bytes.begin(), bytes.end());
    };
    const int high = side >> 8, low = side & 0xFF;
    add({0xFF, 0xC2, 0x00, 0x0B, 0x08, high, low, high, low, 0x01, 0x01, 0x11, 0x00});
    // Codes of one and two bits. 0 is a mean of six bits and the end of a block, 10 the same mean as before
    // and the end of a run of blocks.
    for (const auto& [table, symbol, longer] : {std::array{0x00, 6, 0}, {0x10, 0, 0xE0}}) {
        add({0xFF, 0xC4, 0x00, 0x15, table, 0x01, 0x01});
        file.resize(file.size() + 14);
        add({symbol, longer});
    }
    add({0xFF, 0xDA, 0x00, 0x08, 0x01, 0x01, 0x00, 0x00, 0x00, 0x00, 0x57});
    file.resize(file.size() + static_cast<std::size_t>(2 * blocks + 4) / 8, 0x55);
    for (int i = 0; i < emptyScans; ++i) {
        add({0xFF, 0xDA, 0x00, 0x08, 0x01, 0x01, 0x00, 0x01, 0x3F, 0x00});
        if (blocks == 1) add({0x7F});
        for (int run = 0; run < blocks / blocksOfRun; ++run)
            add({0x80, 0x00});
    }
    add({0xFF, 0xD9});
    return file;
}

} // namespace

TEST(PicturesOfTheSystem, AJpegOfManyScansIsReadAndOneOfTooManyIsCorrupt) {
    PictureData picture;
    for (const int emptyScans : {1, 10, 499}) {
        ASSERT_EQ(decodePicture(progressiveJpeg(8, emptyScans), picture), PictureError::None) << emptyScans;
        EXPECT_EQ(picture.argb, std::vector<std::uint32_t>(64, 0xFF909090)) << emptyScans;
    }
    EXPECT_EQ(decodePicture(progressiveJpeg(8, 500), picture), PictureError::Corrupt);
    EXPECT_EQ(decodePicture(progressiveJpeg(8, 5000), picture), PictureError::Corrupt);
}

// All scans go over all of a picture: a few hundred kilobytes could keep a program busy for a minute.
TEST(PicturesOfTheSystem, ALargeJpegMayHaveFewerScans) {
    PictureData picture;
    EXPECT_EQ(decodePicture(progressiveJpeg(1024, 499), picture), PictureError::None);
    ASSERT_EQ(decodePicture(progressiveJpeg(4096, 127), picture), PictureError::None);
    EXPECT_EQ(picture.argb, std::vector<std::uint32_t>(4096 * 4096, 0xFF909090));
    EXPECT_EQ(decodePicture(progressiveJpeg(4096, 128), picture), PictureError::Corrupt);
}
