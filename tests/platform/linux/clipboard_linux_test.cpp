#include "platform/linux/display.h"
#include "platform/linux/handles.h"
#include "platform/linux/png_file.h"
#include "support/Recording.h"

#include "platform/input.h"

using namespace platform;
using namespace test;

namespace {

/// Opens the clipboard and empties it before and after.
class ClipboardPictures : public testing::Test {
protected:
    ClipboardPictures() {
        OpenClipboard({});
        EmptyClipboard();
    }
    ~ClipboardPictures() override {
        EmptyClipboard();
        CloseClipboard();
    }

    /// A bitmap of 3 by 2 with one red pixel.
    static HBITMAP bitmap() {
        const std::uint32_t pixels[6] = {0, 0x00FF0000, 0, 0, 0, 0};
        return CreateBitmap(3, 2, 1, 32, pixels);
    }

    static COLORREF pixelOf(HBITMAP bitmap, int x, int y) {
        const HDC dc = CreateCompatibleDC({});
        const HGDIOBJ former = SelectObject(dc, bitmap);
        const COLORREF color = GetPixel(dc, x, y);
        SelectObject(dc, former);
        DeleteDC(dc);
        return color;
    }
};

} // namespace

TEST_F(ClipboardPictures, ABitmapIsOfferedAsPngAndBmpFiles) {
    EXPECT_TRUE(SetClipboardData(CF_BITMAP, HANDLE(bitmap().value)));
    EXPECT_EQ(driver::display().clipboardBytes("image/png").substr(1, 3), "PNG");
    EXPECT_EQ(driver::display().clipboardBytes("image/bmp").substr(0, 2), "BM");
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_DIB));
    EXPECT_GT(clipboardBytes(CF_DIB).size(), 40u);
}

TEST_F(ClipboardPictures, APictureOfAnotherProgramIsABitmapHere) {
    const std::uint32_t before = driver::handleCount();
    SetClipboardData(CF_BITMAP, HANDLE(bitmap().value));
    std::uint32_t pixels[2] = {0x0000FF00, 0};
    const std::string png = driver::pngOf({2, 1, 32, 8, reinterpret_cast<std::uint8_t*>(pixels)});
    driver::display().setClipboard({{"image/png", png}});
    const HBITMAP taken(GetClipboardData(CF_BITMAP).value);
    BITMAP about;
    ASSERT_TRUE(GetObjectBitmap(taken, &about));
    EXPECT_EQ(about.bmWidth, 2);
    EXPECT_EQ(pixelOf(taken, 0, 0), RGB(0, 255, 0));
    EmptyClipboard();
    EXPECT_EQ(driver::handleCount(), before);
}

TEST_F(ClipboardPictures, BytesOfABitmapAreABitmap) {
    SetClipboardData(CF_BITMAP, HANDLE(bitmap().value));
    const std::vector<BYTE> dib = clipboardBytes(CF_DIB);
    EmptyClipboard();
    EXPECT_TRUE(setClipboardBytes(CF_DIB, dib));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(pixelOf(HBITMAP(GetClipboardData(CF_BITMAP).value), 1, 0), RGB(255, 0, 0));
    EXPECT_EQ(driver::display().clipboardBytes("image/bmp").size(), 14 + dib.size());
}

TEST_F(ClipboardPictures, AMetafileGoesBothWaysAsAFile) {
    const HENHMETAFILE metafile = record([](HDC dc) { Rectangle(dc, 1, 1, 9, 9); });
    EXPECT_TRUE(SetClipboardData(CF_ENHMETAFILE, HANDLE(metafile.value)));
    const std::string file = driver::display().clipboardBytes("image/x-emf");
    EXPECT_EQ(file.size(), GetEnhMetaFileBits(metafile, 0, nullptr));
    driver::display().setClipboard({{"image/x-emf", file}});
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_ENHMETAFILE));
    EXPECT_TRUE(GetClipboardData(CF_ENHMETAFILE));
}

TEST_F(ClipboardPictures, HandlesOfOtherKindsAreRefused) {
    EXPECT_FALSE(SetClipboardData(CF_BITMAP, {}));
    EXPECT_FALSE(SetClipboardData(CF_ENHMETAFILE, HANDLE(GetStockObject(BLACK_PEN).value)));
    EXPECT_FALSE(setClipboardBytes(CF_BITMAP, {}));
    CloseClipboard();
    const HBITMAP own = bitmap();
    EXPECT_FALSE(SetClipboardData(CF_BITMAP, HANDLE(own.value))) << "the clipboard is closed";
    DeleteObject(own);
    OpenClipboard({});
}
