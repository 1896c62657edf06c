// Pictures: painted, wrapped, read from bytes and from resources.
#include "CanvasTest.h"
#include "platform/processes.h"
#include "support/Canvas.h"

using namespace tesela;
using namespace tests;
using automation::Array;
using automation::Variant;
using host::Picture;
using host::PictureType;

namespace {

class cCanvas_Pictures : public CanvasTest {
protected:
    /// A bitmap of the screen's kind in one colour.
    static platform::HBITMAP bitmap(int width, int height, std::int32_t color) {
        const platform::HDC screen = platform::CreateCompatibleDC({});
        const test::Canvas like(1, 1);
        const platform::HBITMAP result = platform::CreateCompatibleBitmap(like.dc(), width, height);
        const platform::HGDIOBJ former = platform::SelectObject(screen, result);
        const platform::HBRUSH brush = platform::CreateSolidBrush(static_cast<platform::COLORREF>(color));
        const platform::RECT all{0, 0, width, height};
        platform::FillRect(screen, &all, brush);
        platform::SetPixel(screen, 0, 0, blue);
        platform::DeleteObject(brush);
        platform::SelectObject(screen, former);
        platform::DeleteDC(screen);
        return result;
    }
    /// Every colour of the canvas.
    std::string exactPicture() const {
        std::string result;
        for (std::int32_t y = 0; y < 16; ++y)
            for (std::int32_t x = 0; x < 24; ++x)
                result += std::to_string(at(x, y)) + (x == 23 ? '\n' : ' ');
        return result;
    }
    std::size_t count(std::int32_t color) const {
        std::size_t found = 0;
        for (std::int32_t y = 0; y < 16; ++y)
            for (std::int32_t x = 0; x < 24; ++x)
                found += at(x, y) == color;
        return found;
    }
};

constexpr std::int32_t bitmapType = 0, iconType = 1, cursorType = 2;

} // namespace

TEST_F(cCanvas_Pictures, ABitmapIsPaintedInItsSize) {
    const auto picture1 = canvas->BitMap2Picture(bitmap(4, 3, red));
    ASSERT_TRUE(picture1);
    canvas->PaintPicture(picture1, 1, 1);
    EXPECT_EQ("......\n.BRRR.\n.RRRR.\n.RRRR.\n......\n", picture(6, 5));
}

TEST_F(cCanvas_Pictures, ABitmapIsStretchedToAnotherSize) {
    const auto picture1 = canvas->BitMap2Picture(bitmap(4, 3, red));
    canvas->PaintPicture(picture1, 0, 0, 8, 6);
    EXPECT_EQ("BBRRRRRR\n", picture(8, 1));
    EXPECT_EQ(red, at(7, 5));
    EXPECT_EQ(black, at(8, 5));
    EXPECT_EQ(black, at(7, 6));
}

TEST_F(cCanvas_Pictures, APartOfABitmapIsPaintedByARasterOperation) {
    const auto picture1 = canvas->BitMap2Picture(bitmap(4, 3, red));
    canvas->PaintPicture(picture1, 0, 0, 2, 2, 1, 1, 2, 2);
    EXPECT_EQ("RR.\nRR.\n...\n", picture(3, 3));
    canvas->PaintPicture(picture1, 0, 0, 0, 0, 0, 0, 0, 0, static_cast<std::int32_t>(platform::SRCINVERT));
    EXPECT_EQ(black, at(1, 1)) << "red twice";
    EXPECT_EQ(red, at(3, 2));
}

TEST_F(cCanvas_Pictures, NothingAndTheEmptyPicturePaintNothing) {
    canvas->PaintPicture({}, 0, 0, 10, 10);
    canvas->PaintPicture(automation::make<Picture>(), 0, 0, 10, 10);
    EXPECT_EQ(24u * 16, count(black));
}

TEST_F(cCanvas_Pictures, OlderMetafilesAreNotPainted) {
    // Half an inch square, all of it inverted.
    std::vector<std::uint8_t> bytes;
    const auto add = [&](std::initializer_list<int> words) {
        for (const int word : words) {
            bytes.push_back(static_cast<std::uint8_t>(word));
            bytes.push_back(static_cast<std::uint8_t>(word >> 8));
        }
    };
    add({0xCDD7, 0x9AC6, 0, 0, 0, 720, 720, 1440, 0, 0, 0xCDD7 ^ 0x9AC6 ^ 720 ^ 720 ^ 1440});
    add({1, 9, 0x0300, 26, 0, 0, 9, 0, 0});
    add({5, 0, 0x020C, 20, 20});                     // the window's extent
    add({9, 0, 0x061D, 0x0009, 0x55, 20, 20, 0, 0}); // the rectangle inverted
    add({3, 0, 0});
    const auto older = canvas->Bytes2Picture(Array::ofBytes(bytes));
    ASSERT_TRUE(older);
    ASSERT_EQ(PictureType::Metafile, older->Type());
    canvas->PaintPicture(older, 0, 0, 10, 10);
    EXPECT_EQ(24u * 16, count(black));
}

TEST_F(cCanvas_Pictures, AnIconIsPaintedAtTheGivenSize) {
    const auto icon = canvas->GetResPicture(std::int32_t{125});
    ASSERT_TRUE(icon);
    canvas->PaintPicture(icon, 0, 0);
    EXPECT_EQ(red, at(15, 15));
    EXPECT_EQ(black, at(16, 15)) << "its own size";
    canvas->FillBox(0, 0, 23, 15, black);
    canvas->PaintPicture(icon, 2, 2, 8, 8);
    EXPECT_EQ(64u, count(red));
    EXPECT_EQ(red, at(9, 9));
}

TEST_F(cCanvas_Pictures, AnIconWithASourceSizeIsScaledWithWhatLiesUnderIt) {
    const auto icon = canvas->GetResPicture(std::int32_t{125});
    canvas->FillBox(0, 0, 23, 15, yellow);
    const std::int32_t before = gdiObjects();
    canvas->PaintPicture(icon, 1, 1, 8, 8, 0, 0, 16, 16);
    expectObjects(before);
    EXPECT_EQ(red, at(1, 1));
    EXPECT_EQ(red, at(8, 8));
    EXPECT_EQ(yellow, at(9, 9));
    EXPECT_EQ(yellow, at(0, 0));
    EXPECT_EQ(platform::COLORONCOLOR, platform::GetStretchBltMode(canvas->GetPaintDC()));
}

namespace {

constexpr std::int32_t stopSign = 32513;

} // namespace

TEST_F(cCanvas_Pictures, AScaledIconIsMadeSmallTogetherWithWhatLiesUnderIt) {
    const auto icon = canvas->GetSysPicture(stopSign, iconType);
    ASSERT_TRUE(icon);
    const auto ground = [this] {
        canvas->FillBox(0, 0, 23, 15, yellow);
        canvas->FillBox(4, 0, 7, 15, blue);
    };
    ground();
    test::Canvas large(40, 36);
    platform::StretchBlt(large.dc(), 0, 0, 40, 36, canvas->GetPaintDC(), 2, 1, 12, 10, platform::SRCCOPY);
    platform::DrawIconEx(large.dc(), 0, 0, icon->hIcon(), 40, 36, 0, {}, platform::DI_NORMAL);
    platform::SetStretchBltMode(canvas->GetPaintDC(), platform::HALFTONE);
    platform::StretchBlt(canvas->GetPaintDC(), 2, 1, 12, 10, large.dc(), 0, 0, 40, 36, platform::SRCCOPY);
    platform::SetStretchBltMode(canvas->GetPaintDC(), platform::COLORONCOLOR);
    const std::string expected = exactPicture();
    ground();
    canvas->PaintPicture(icon, 2, 1, 12, 10, 0, 0, 40, 36);
    EXPECT_EQ(expected, exactPicture());
    EXPECT_EQ(yellow, at(14, 5));
    EXPECT_EQ(blue, at(5, 11)) << "below it";
}

TEST_F(cCanvas_Pictures, AnIconWithoutASourceSizeIsDrawnAtOnce) {
    const auto icon = canvas->GetSysPicture(stopSign, iconType);
    ASSERT_TRUE(icon);
    canvas->SetStretchBltMode(StretchBlt_HalfTone);
    for (const std::int32_t sourceWidth : {0, -5, 12}) {
        canvas->FillBox(0, 0, 23, 15, yellow);
        platform::DrawIconEx(canvas->GetPaintDC(), 2, 1, icon->hIcon(), 12, 10, 0, {}, platform::DI_NORMAL);
        const std::string expected = exactPicture();
        canvas->FillBox(0, 0, 23, 15, yellow);
        canvas->PaintPicture(icon, 2, 1, 12, 10, 0, 0, sourceWidth, 40);
        EXPECT_EQ(expected, exactPicture()) << sourceWidth;
        EXPECT_EQ(platform::HALFTONE, platform::GetStretchBltMode(canvas->GetPaintDC()))
            << "the mode is the caller's";
    }
}

TEST_F(cCanvas_Pictures, AScaledIconTakesItsOwnSizeForWhatIsLeftOut) {
    const auto icon = canvas->GetResPicture(std::int32_t{125});
    canvas->FillBox(0, 0, 23, 15, yellow);
    canvas->PaintPicture(icon, 0, 0, 0, 0, 0, 0, 8);
    EXPECT_EQ(red, at(15, 15)) << "on sixteen pixels";
    EXPECT_EQ(yellow, at(16, 15));
    canvas->FillBox(0, 0, 23, 15, yellow);
    canvas->PaintPicture(icon, 0, 0, 4, 4, 0, 0, 1, 0);
    EXPECT_EQ(red, at(3, 3));
    EXPECT_EQ(yellow, at(4, 4));
    canvas->FillBox(0, 0, 23, 15, yellow);
    canvas->PaintPicture(icon, 0, 0, 6, 6, 0, 0, 6, 32);
    EXPECT_EQ(36u, count(red)) << "of the same width: drawn at once";
}

TEST_F(cCanvas_Pictures, AWrappedBitmapBelongsToItsPicture) {
    const std::int32_t before = gdiObjects();
    auto picture1 = canvas->BitMap2Picture(bitmap(10, 6, red));
    EXPECT_EQ(PictureType::Bitmap, picture1->Type());
    EXPECT_EQ(10, picture1->pixels().cx);
    expectObjects(before + 1);
    picture1.reset();
    expectObjects(before);
}

TEST_F(cCanvas_Pictures, AWrappedBitmapKeepsItsPalette) {
    const platform::HPALETTE palette = platform::CreateHalftonePalette(canvas->GetPaintDC());
    const auto picture1 = canvas->BitMap2Picture(bitmap(4, 3, red), palette, 77);
    ASSERT_TRUE(picture1);
    EXPECT_EQ(PictureType::Bitmap, picture1->Type()) << "another type is a bitmap";
    EXPECT_EQ(static_cast<std::int32_t>(palette.value), picture1->hPal());
    platform::DeleteObject(palette);
}

TEST_F(cCanvas_Pictures, AWrappedIconBelongsToItsPicture) {
    const auto source = canvas->GetResPicture(std::int32_t{125});
    platform::ICONINFO parts;
    ASSERT_TRUE(platform::GetIconInfo(source->hIcon(), &parts));
    const platform::HICON icon = platform::CreateIconIndirect(&parts);
    platform::DeleteObject(parts.hbmMask);
    platform::DeleteObject(parts.hbmColor);
    {
        const std::int32_t before = gdiObjects();
        const auto wrapped = canvas->BitMap2Picture(platform::HGDIOBJ(icon.value), {}, iconType);
        ASSERT_TRUE(wrapped);
        expectObjects(before);
        EXPECT_EQ(PictureType::Icon, wrapped->Type());
        EXPECT_EQ(static_cast<std::int32_t>(icon.value), wrapped->Handle());
        EXPECT_EQ(423, wrapped->Width());
    }
    platform::ICONINFO gone;
    EXPECT_FALSE(platform::GetIconInfo(icon, &gone));
}

TEST_F(cCanvas_Pictures, WithoutAHandleThePictureShowsTheCanvas) {
    canvas->FillBox(3, 3, 5, 5, red);
    const auto picture1 = canvas->BitMap2Picture();
    ASSERT_TRUE(picture1);
    EXPECT_EQ(24, picture1->pixels().cx);
    EXPECT_EQ(16, picture1->pixels().cy);
    canvas->FillBox(0, 0, 23, 15, blue);
    EXPECT_EQ(blue, at(4, 4)) << "the canvas goes on";
    canvas->PaintPicture(picture1, 0, 0);
    EXPECT_EQ(red, at(4, 4));
    EXPECT_EQ(black, at(6, 6));
    canvas->EndPaint();
    canvas->BeginPaint();
    EXPECT_EQ(red, at(4, 4));
}

TEST_F(cCanvas_Pictures, HandlesOfTheWrongKindMakeNoPicture) {
    EXPECT_FALSE(canvas->BitMap2Picture(platform::HGDIOBJ(0x7FFF1234)));
    EXPECT_FALSE(canvas->BitMap2Picture(platform::HGDIOBJ(0x7FFF1234), {}, iconType));
    const auto pen = canvas->CreatePen(PenStyle_Solid, 1, red);
    EXPECT_FALSE(canvas->BitMap2Picture(pen));
    canvas->DeleteObject(pen);
    EXPECT_FALSE(automation::make<cCanvas>()->BitMap2Picture()) << "no surface";
}

TEST_F(cCanvas_Pictures, BytesOfAPictureFileBecomeAPicture) {
    const auto icon = canvas->GetResPicture(std::int32_t{125});
    const auto picture1 = canvas->Bytes2Picture(Array::ofBytes(icon->source()));
    ASSERT_TRUE(picture1);
    EXPECT_EQ(PictureType::Icon, picture1->Type());
    EXPECT_EQ(423, picture1->Width());
}

TEST_F(cCanvas_Pictures, BytesThatAreNoneMakeNoPicture) {
    EXPECT_FALSE(canvas->Bytes2Picture(Array())) << "no bounds";
    EXPECT_FALSE(canvas->Bytes2Picture(Array(automation::VT_UI1)));
    const std::uint8_t noise[] = {1, 2, 3, 4, 5};
    EXPECT_FALSE(canvas->Bytes2Picture(Array::ofBytes(noise)));
    const auto bytes = canvas->GetResPicture(std::int32_t{125})->source();
    EXPECT_FALSE(canvas->Bytes2Picture(Array::ofBytes(std::span(bytes).first(40)))) << "cut short";
}

TEST_F(cCanvas_Pictures, ResourcesAreFoundByNumberNameAndType) {
    EXPECT_EQ(PictureType::Icon, canvas->GetResPicture(std::int32_t{125})->Type());
    EXPECT_EQ(16, canvas->GetResPicture(std::int32_t{125}, iconType)->pixels().cx);
    EXPECT_EQ(10, canvas->GetResPicture(std::int32_t{125}, bitmapType)->pixels().cx);
    EXPECT_EQ(32, canvas->GetResPicture(std::int32_t{125}, cursorType)->pixels().cx);
    EXPECT_EQ(10, canvas->GetResPicture(std::int16_t{125}, 77)->pixels().cx) << "another type is a bitmap";
    EXPECT_EQ(24, canvas->GetResPicture(Variant(u"flag"))->pixels().cx);
    EXPECT_EQ(24, canvas->GetResPicture(Variant(u"FLAG"), iconType, platform::moduleInstance())->pixels().cx);
    EXPECT_EQ(10, canvas->GetResPicture(Variant(u"#125"), bitmapType)->pixels().cx) << "a number as text";
    EXPECT_FALSE(canvas->GetResPicture(Variant(u"125"), bitmapType)) << "a name";
    EXPECT_FALSE(canvas->GetResPicture(Variant(u"#"), bitmapType));
    EXPECT_FALSE(canvas->GetResPicture(Variant(u"#1E300"), bitmapType));
    EXPECT_FALSE(canvas->GetResPicture(std::int32_t{126}));
    EXPECT_FALSE(canvas->GetResPicture(Variant(u"BANDERA")));
    EXPECT_FALSE(canvas->GetResPicture(Variant(u"")));
}

TEST_F(cCanvas_Pictures, TheSystemHasPicturesByTheirNumbers) {
    for (const std::int32_t number : {32513, 32514, 32515, 32516}) {
        const auto icon = canvas->GetSysPicture(number, iconType);
        ASSERT_TRUE(icon) << number;
        EXPECT_EQ(PictureType::Icon, icon->Type());
        // Each system has them at its own size.
        EXPECT_GE(icon->pixels().cx, 32);
        EXPECT_EQ(icon->pixels().cx, icon->pixels().cy);
        canvas->FillBox(0, 0, 23, 15, yellow);
        canvas->PaintPicture(icon, 0, 0, 16, 16);
        EXPECT_LT(count(yellow), 24u * 16) << number;
        EXPECT_EQ(yellow, at(0, 0)) << "the corner shows what lies under it";
    }
    EXPECT_EQ(17, canvas->GetSysPicture(std::int32_t{32752})->pixels().cx) << "a bitmap";
    EXPECT_EQ(PictureType::Icon, canvas->GetSysPicture(std::int32_t{32512}, cursorType)->Type());
    EXPECT_FALSE(canvas->GetSysPicture(std::int32_t{1}, iconType));
    EXPECT_FALSE(canvas->GetSysPicture(std::int32_t{1}));
    EXPECT_FALSE(canvas->GetSysPicture(Variant(u"HAND"), iconType));
}
