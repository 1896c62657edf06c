// The pictures of tests/frame/resources.rc, as the library and the host load them.
#include "frame/Globales.h"
#include "host/Picture.h"
#include "support/Canvas.h"
#include "support/ErrorOf.h"
#include "support/Started.h"

using automation::Variant;
using host::PictureType;
using host::ResourcePicture;
using namespace tesela;

namespace {

constexpr std::int32_t bitmap = 0, icon = 1, cursor = 2;
constexpr platform::COLORREF red = 0x0000FF, green = 0x00FF00, blue = 0xFF0000, yellow = 0x00FFFF;

/// The colour of a picture of one colour, drawn in its own size.
platform::COLORREF colourOf(const host::Picture& picture) {
    const platform::SIZE size = picture.pixels();
    const test::Canvas canvas(size.cx, size.cy);
    picture.render(canvas.dc(), 0, 0, size.cx, size.cy);
    const platform::COLORREF colour = canvas.at(0, 0);
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < size.cx; ++x)
            if (canvas.at(x, y) != colour) ADD_FAILURE() << "another colour at " << x << ", " << y;
    return colour;
}

class LoadResIcon_ : public support::Started {
protected:
    ~LoadResIcon_() override { globales().nRegion = 0; }

    /// Loads, checks that there is a picture, and gives it with its size in `width` and `height`.
    automation::Ref<host::Picture> load(const Variant& id, std::int32_t type) {
        width = height = -1;
        const auto picture = LoadResIcon(id, type, width, height);
        EXPECT_TRUE(picture);
        return picture ? picture : automation::make<host::Picture>();
    }

    std::int32_t width = 0, height = 0;
};

} // namespace

TEST_F(LoadResIcon_, AnIconHasItsSizeInPixels) {
    const auto picture = load(std::int32_t{125}, icon);
    EXPECT_EQ(PictureType::Icon, picture->Type());
    EXPECT_EQ(red, colourOf(*picture));
    EXPECT_EQ(16, width);
    EXPECT_EQ(16, height);
    EXPECT_EQ(blue, colourOf(*load(std::int16_t{144}, icon)));
    EXPECT_EQ(24, width);
    EXPECT_EQ(24, height);
}

TEST_F(LoadResIcon_, ABitmapHasItsSizeInHimetric) {
    const auto picture = load(std::int32_t{125}, bitmap);
    EXPECT_EQ(PictureType::Bitmap, picture->Type());
    EXPECT_EQ(yellow, colourOf(*picture));
    EXPECT_EQ(265, width) << "10 pixels of 96 an inch";
    EXPECT_EQ(159, height) << "6 pixels";
}

TEST_F(LoadResIcon_, ACursorHasItsSizeInPixels) {
    EXPECT_EQ(green, colourOf(*load(std::int32_t{125}, cursor)));
    EXPECT_EQ(32, width);
    EXPECT_EQ(32, height);
}

TEST_F(LoadResIcon_, ANameIsFoundWithoutRegardToCase) {
    EXPECT_EQ(blue, colourOf(*load(Variant(u"FLAG"), icon)));
    EXPECT_EQ(blue, colourOf(*load(Variant(u"flag"), icon)));
    EXPECT_EQ(24, width);
}

TEST_F(LoadResIcon_, OneRegionHasAnotherIcon) {
    globales().nRegion = 1;
    EXPECT_EQ(blue, colourOf(*load(std::int32_t{125}, icon)));
    EXPECT_EQ(24, width);
    EXPECT_EQ(24, height);
    EXPECT_EQ(yellow, colourOf(*load(std::int32_t{125}, bitmap))) << "icons only";
    EXPECT_EQ(green, colourOf(*load(std::int32_t{125}, cursor))) << "icons only";
    EXPECT_EQ(blue, colourOf(*load(std::int32_t{144}, icon)));
    globales().nRegion = 2;
    EXPECT_EQ(red, colourOf(*load(std::int32_t{125}, icon))) << "no other region";
}

TEST_F(LoadResIcon_, ANumberOfAnotherTypeIsNotFound) {
    width = height = -1;
    EXPECT_FALSE(LoadResIcon(std::int32_t{144}, bitmap, width, height));
    EXPECT_EQ(0, width);
    EXPECT_EQ(0, height);
}

TEST(LoadResPicture, GivesEachTypeOfPicture) {
    EXPECT_EQ(yellow, colourOf(*host::LoadResPicture(platform::WORD{125}, ResourcePicture::Bitmap)));
    EXPECT_EQ(red, colourOf(*host::LoadResPicture(platform::WORD{125}, ResourcePicture::Icon)));
    EXPECT_EQ(green, colourOf(*host::LoadResPicture(platform::WORD{125}, ResourcePicture::Cursor)));
    EXPECT_EQ(blue, colourOf(*host::LoadResPicture(std::u16string_view(u"FLAG"), ResourcePicture::Icon)));
}

TEST(LoadResPicture, KeepsTheSizeInPixelsAndHimetric) {
    const auto picture = host::LoadResPicture(platform::WORD{125}, ResourcePicture::Icon);
    EXPECT_EQ(16, picture->pixels().cx);
    EXPECT_EQ(16, picture->pixels().cy);
    EXPECT_EQ(423, picture->Width());
    EXPECT_EQ(423, picture->Height());
}

TEST(LoadResPicture, RaisesForAPictureThatIsNotThere) {
    constexpr std::int32_t resourceNotFound = 326;
    EXPECT_EQ(resourceNotFound,
              tests::errorOf([] { host::LoadResPicture(platform::WORD{144}, ResourcePicture::Bitmap); }));
    EXPECT_EQ(resourceNotFound, tests::errorOf([] {
                  host::LoadResPicture(std::u16string_view(u"BANDERA"), ResourcePicture::Icon);
              }));
}
