// How many scans a JPEG picture may have, which the codec of the system decides for itself.

#include "platform/pictures.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

using Bytes = std::vector<std::uint8_t>;

/// A progressive file of 8 by 8 grey pixels: one scan of their mean, then so many that add nothing to it.
Bytes progressiveJpeg(int emptyScans) {
    Bytes file = {0xFF, 0xD8, 0xFF, 0xDB, 0x00, 0x43, 0x00};
    file.resize(file.size() + 64, 3); // what coefficients are divided by
    const auto add = [&](std::initializer_list<std::uint8_t> bytes) { file.insert(file.end(), bytes); };
    add({0xFF, 0xC2, 0x00, 0x0B, 0x08, 0x00, 0x08, 0x00, 0x08, 0x01, 0x01, 0x11, 0x00});
    // Codes of one bit: 0 is a mean of six bits, and the end of a block.
    for (const auto& [table, symbol] : {std::pair<std::uint8_t, std::uint8_t>{0x00, 6}, {0x10, 0}}) {
        add({0xFF, 0xC4, 0x00, 0x14, table, 0x01});
        file.resize(file.size() + 15);
        add({symbol});
    }
    add({0xFF, 0xDA, 0x00, 0x08, 0x01, 0x01, 0x00, 0x00, 0x00, 0x00, 0x57});
    for (int i = 0; i < emptyScans; ++i)
        add({0xFF, 0xDA, 0x00, 0x08, 0x01, 0x01, 0x00, 0x01, 0x3F, 0x00, 0x7F});
    add({0xFF, 0xD9});
    return file;
}

} // namespace

TEST(PicturesOfTheSystem, AJpegOfManyScansIsReadAndOneOfTooManyIsCorrupt) {
    PictureData picture;
    for (const int emptyScans : {1, 10, 499}) {
        ASSERT_EQ(decodePicture(progressiveJpeg(emptyScans), picture), PictureError::None) << emptyScans;
        EXPECT_EQ(picture.argb, std::vector<std::uint32_t>(64, 0xFF909090)) << emptyScans;
    }
    EXPECT_EQ(decodePicture(progressiveJpeg(500), picture), PictureError::Corrupt);
    EXPECT_EQ(decodePicture(progressiveJpeg(5000), picture), PictureError::Corrupt);
}
