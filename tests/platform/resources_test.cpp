#include "platform/resources.h"

#include "platform/errors.h"
#include "platform/pictures.h"
#include "platform/processes.h"

using namespace platform;

namespace {

std::vector<std::uint8_t> own(ResourceType type, const ResourceName& name) {
    return resourceBytes(moduleInstance(), type, name);
}

TEST(Resources, RawDataComesByNumberAndByNameWithoutRegardToCase) {
    const auto byNumber = own(ResourceType::RawData, WORD{7});
    EXPECT_EQ(std::string(byNumber.begin(), byNumber.end()), "Buenos d\xED"
                                                             "as\r\n");
    EXPECT_EQ(own(ResourceType::RawData, std::u16string_view(u"GREETING")), byNumber);
    EXPECT_EQ(own(ResourceType::RawData, std::u16string_view(u"greeting")), byNumber);
}

TEST(Resources, TheProgramIsItsOwnDefaultModule) {
    EXPECT_EQ(resourceBytes(HINSTANCE(), ResourceType::RawData, WORD{7}).size(), 13u);
}

TEST(Resources, AMissingNameIsToldFromAMissingType) {
    EXPECT_TRUE(own(ResourceType::RawData, WORD{8}).empty());
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_TRUE(own(ResourceType::RawData, std::u16string_view(u"FAREWELL")).empty());
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_TRUE(own(static_cast<ResourceType>(99), WORD{7}).empty());
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_TYPE_NOT_FOUND);
}

TEST(Resources, ABitmapIsAFileThatDecodes) {
    PictureData picture;
    ASSERT_EQ(decodePicture(own(ResourceType::Bitmap, WORD{101}), picture), PictureError::None);
    EXPECT_EQ(picture.format, PictureFormat::Bmp);
    EXPECT_EQ(picture.argb, (std::vector<std::uint32_t>{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF}));
}

TEST(Resources, AnIconKeepsItsSizes) {
    const auto file = own(ResourceType::Icon, std::u16string_view(u"Arrows"));
    for (const int size : {16, 32}) {
        PictureData picture;
        ASSERT_EQ(decodePicture(file, picture, {size, 0, 96}), PictureError::None);
        EXPECT_EQ(picture.format, PictureFormat::Ico);
        EXPECT_EQ(picture.width, size);
        const auto secondRow = static_cast<std::size_t>(size);
        EXPECT_EQ(picture.argb[secondRow], 0xFF2060A0);
        EXPECT_EQ(picture.mask[secondRow], 0);
        EXPECT_EQ(picture.argb[1] >> 24, 0u);
        EXPECT_EQ(picture.mask[1], 1);
    }
}

TEST(Resources, ACursorKeepsItsHotSpot) {
    PictureData picture;
    ASSERT_EQ(decodePicture(own(ResourceType::Cursor, WORD{12}), picture), PictureError::None);
    EXPECT_EQ(picture.format, PictureFormat::Cur);
    EXPECT_EQ(picture.hotSpot, (POINT{15, 15}));
    EXPECT_EQ(picture.mask[15], 0);
    EXPECT_EQ(picture.mask[0], 1);
}

} // namespace
