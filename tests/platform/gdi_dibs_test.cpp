#include "platform/gdi.h"
#include "support/Canvas.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

using namespace platform;
using test::Canvas;

namespace {

BITMAPINFO header(int width, int height, int bits, DWORD compression = BI_RGB) {
    BITMAPINFO info;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biBitCount = static_cast<WORD>(bits);
    info.bmiHeader.biCompression = compression;
    return info;
}

/// A section in a context of its own, all zero at first.
class Section {
public:
    explicit Section(const BITMAPINFO& info) : dc_(CreateCompatibleDC(HDC())) {
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, HANDLE(), 0);
        previous_ = SelectObject(dc_, bitmap_);
    }
    ~Section() {
        SelectObject(dc_, previous_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;

    HDC dc() const { return dc_; }
    HBITMAP bitmap() const { return bitmap_; }
    template <class Value>
    Value* bits() const {
        return static_cast<Value*>(bits_);
    }

private:
    HDC dc_;
    void* bits_ = nullptr;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
};

BITMAPINFO fourColors(int bits) {
    BITMAPINFO info = header(4, -1, bits);
    info.bmiHeader.biClrUsed = 4;
    info.bmiColors[1] = {0x00, 0x00, 0xFF, 0};
    info.bmiColors[2] = {0x00, 0xFF, 0x00, 0};
    info.bmiColors[3] = {0xFF, 0xFF, 0xFF, 0};
    return info;
}

} // namespace

TEST(Sections, HoldNumbersOfTheirColours) {
    for (const int bits : {4, 8}) {
        const Section section(fourColors(bits));
        SetPixel(section.dc(), 0, 0, RGB(250, 10, 10));
        SetPixel(section.dc(), 1, 0, RGB(10, 200, 10));
        SetPixel(section.dc(), 2, 0, RGB(255, 255, 255));
        EXPECT_EQ(GetPixel(section.dc(), 0, 0), RGB(255, 0, 0));
        EXPECT_EQ(GetPixel(section.dc(), 1, 0), RGB(0, 255, 0));
        const auto* bytes = section.bits<std::uint8_t>();
        if (bits == 4) {
            EXPECT_EQ(bytes[0], 0x12);
            EXPECT_EQ(bytes[1], 0x30);
        } else {
            EXPECT_EQ(bytes[0], 1);
            EXPECT_EQ(bytes[1], 2);
            EXPECT_EQ(bytes[2], 3);
        }
    }
}

TEST(Sections, OfSixteenBitsHaveFiveBitsForEachColourUnlessMasksSayMore) {
    const Section five(header(1, -1, 16));
    SetPixel(five.dc(), 0, 0, RGB(255, 129, 7));
    EXPECT_EQ(*five.bits<std::uint16_t>(), 0x7E00);
    EXPECT_EQ(GetPixel(five.dc(), 0, 0), RGB(255, 132, 0));
    BITMAPINFO info = header(1, -1, 16, BI_BITFIELDS);
    const std::array<DWORD, 3> masks = {0xF800, 0x07E0, 0x001F};
    std::memcpy(static_cast<void*>(info.bmiColors), masks.data(), sizeof masks);
    const Section six(info);
    SetPixel(six.dc(), 0, 0, RGB(255, 129, 7));
    EXPECT_EQ(*six.bits<std::uint16_t>(), 0xFC00);
    EXPECT_EQ(GetPixel(six.dc(), 0, 0), RGB(255, 130, 0));
}

TEST(Sections, OfTwentyFourBitsHoldBlueFirst) {
    const Section section(header(2, -1, 24));
    SetPixel(section.dc(), 1, 0, RGB(1, 2, 3));
    const auto* bytes = section.bits<std::uint8_t>();
    EXPECT_EQ(bytes[3], 3);
    EXPECT_EQ(bytes[4], 2);
    EXPECT_EQ(bytes[5], 1);
    EXPECT_EQ(bytes[2], 0);
}

TEST(Sections, ShowOtherColoursWhenTheirTableChanges) {
    const Section section(fourColors(8));
    section.bits<std::uint8_t>()[0] = 2;
    const RGBQUAD blue{0xFF, 0, 0, 0};
    EXPECT_EQ(SetDIBColorTable(section.dc(), 2, 1, &blue), 1u);
    EXPECT_EQ(GetPixel(section.dc(), 0, 0), RGB(0, 0, 255));
    RGBQUAD told[4];
    EXPECT_EQ(GetDIBColorTable(section.dc(), 0, 4, told), 4u);
    EXPECT_EQ(told[2].rgbBlue, 0xFF);
    EXPECT_EQ(told[1].rgbRed, 0xFF);
}

TEST(Sections, AreNotMadeOfWhatNoBitmapHas) {
    void* bits = nullptr;
    for (const BITMAPINFO& info :
         {header(0, 1, 32), header(1, 0, 32), header(1, 1, 7), header(1, 1, 8, BI_RLE8)})
        EXPECT_FALSE(CreateDIBSection(HDC(), &info, DIB_RGB_COLORS, &bits, HANDLE(), 0));
}

TEST(Pixels, ComeOutInTheFormatThatIsAskedFor) {
    const Canvas canvas(3, 1);
    canvas.set(0, 0, RGB(255, 0, 0));
    canvas.set(1, 0, RGB(0, 0, 255));
    canvas.set(2, 0, RGB(255, 255, 255));
    std::array<std::uint8_t, 16> bits{};
    BITMAPINFO info = header(3, -1, 24);
    EXPECT_EQ(GetDIBits(canvas.dc(), canvas.bitmap(), 0, 1, bits.data(), &info, DIB_RGB_COLORS), 1);
    EXPECT_EQ(bits[2], 255);
    EXPECT_EQ(bits[3], 255);
    info = header(3, -1, 16);
    EXPECT_EQ(GetDIBits(canvas.dc(), canvas.bitmap(), 0, 1, bits.data(), &info, DIB_RGB_COLORS), 1);
    EXPECT_EQ(bits[0] | bits[1] << 8, 0x7C00);
    info = header(3, -1, 1);
    EXPECT_EQ(GetDIBits(canvas.dc(), canvas.bitmap(), 0, 1, bits.data(), &info, DIB_RGB_COLORS), 1);
    EXPECT_EQ(bits[0] & 0xE0, 0x20);
    EXPECT_EQ(info.bmiColors[1].rgbGreen, 0xFF);
}

TEST(Pixels, GoInFromAnyFormat) {
    const Canvas canvas(4, 1);
    const BITMAPINFO info = fourColors(8);
    const std::array<std::uint8_t, 4> bits = {3, 2, 1, 0};
    EXPECT_EQ(SetDIBits(canvas.dc(), canvas.bitmap(), 0, 1, bits.data(), &info, DIB_RGB_COLORS), 1);
    EXPECT_EQ(canvas.at(0, 0), RGB(255, 255, 255));
    EXPECT_EQ(canvas.at(1, 0), RGB(0, 255, 0));
    EXPECT_EQ(canvas.at(2, 0), RGB(255, 0, 0));
    EXPECT_EQ(canvas.at(3, 0), RGB(0, 0, 0));
}

TEST(Pixels, AreUnpackedFromRuns) {
    const Canvas canvas(4, 2);
    BITMAPINFO info = fourColors(8);
    info.bmiHeader.biHeight = 2;
    info.bmiHeader.biCompression = BI_RLE8;
    // Three of colour 1 and the line's end; of the upper line the first, third and fourth.
    const std::vector<std::uint8_t> codes = {3, 1, 0, 0, 1, 2, 0, 2, 1, 0, 2, 3, 0, 1};
    info.bmiHeader.biSizeImage = static_cast<DWORD>(codes.size());
    EXPECT_GT(SetDIBits(canvas.dc(), canvas.bitmap(), 0, 2, codes.data(), &info, DIB_RGB_COLORS), 0);
    EXPECT_EQ(canvas.at(0, 1), RGB(255, 0, 0));
    EXPECT_EQ(canvas.at(2, 1), RGB(255, 0, 0));
    EXPECT_EQ(canvas.at(0, 0), RGB(0, 255, 0));
    EXPECT_EQ(canvas.at(2, 0), RGB(255, 255, 255));
    EXPECT_EQ(canvas.at(3, 0), RGB(255, 255, 255));
}

TEST(Pixels, ArePaintedStretchedAndTheRightWayUp) {
    const Canvas canvas(4, 4);
    const BITMAPINFO info = header(2, 2, 32);
    const std::array<std::uint32_t, 4> bits = {0x0000FF, 0xFFFFFF, 0xFF0000, 0x00FF00}; // the lower row first
    SetStretchBltMode(canvas.dc(), COLORONCOLOR);
    EXPECT_GT(StretchDIBits(canvas.dc(), 0, 0, 4, 4, 0, 0, 2, 2, bits.data(), &info, DIB_RGB_COLORS, SRCCOPY),
              0);
    EXPECT_EQ(canvas.at(0, 0), RGB(255, 0, 0));
    EXPECT_EQ(canvas.at(3, 1), RGB(0, 255, 0));
    EXPECT_EQ(canvas.at(1, 3), RGB(0, 0, 255));
    EXPECT_EQ(canvas.at(2, 2), RGB(255, 255, 255));
}

TEST(Pixels, ArePaintedInPlaceByRows) {
    const Canvas canvas(4, 4);
    const BITMAPINFO info = header(2, -2, 32);
    const std::array<std::uint32_t, 4> bits = {0x0000FF, 0xFFFFFF, 0xFF0000, 0x00FF00};
    EXPECT_GT(SetDIBitsToDevice(canvas.dc(), 1, 1, 2, 2, 0, 0, 0, 2, bits.data(), &info, DIB_RGB_COLORS), 0);
    EXPECT_EQ(canvas.at(1, 1), RGB(0, 0, 255));
    EXPECT_EQ(canvas.at(2, 2), RGB(0, 255, 0));
    EXPECT_EQ(canvas.at(0, 0), RGB(0, 0, 0));
    EXPECT_EQ(canvas.at(3, 3), RGB(0, 0, 0));
}

TEST(Palettes, KeepTheirEntries) {
    LOGPALETTE data;
    data.palNumEntries = 2;
    data.palPalEntry[0] = {1, 2, 3, 0};
    data.palPalEntry[1] = {200, 100, 50, 0};
    const HPALETTE palette = CreatePalette(&data);
    ASSERT_TRUE(palette);
    PALETTEENTRY entries[3];
    EXPECT_EQ(GetPaletteEntries(palette, 0, 3, entries), 2u);
    EXPECT_EQ(entries[1], (PALETTEENTRY{200, 100, 50, 0}));
    EXPECT_EQ(GetPaletteEntries(palette, 2, 1, entries), 0u);
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(190, 90, 60)), 1u);
    EXPECT_TRUE(ResizePalette(palette, 3));
    WORD count = 0;
    EXPECT_TRUE(GetObjectPalette(palette, &count));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(GetObjectType(palette), OBJ_PAL);
    EXPECT_TRUE(DeleteObject(palette));
    EXPECT_EQ(GetPaletteEntries(palette, 0, 3, entries), 0u);
}

TEST(Palettes, OfHalftonesHaveTheColoursOfTheSystemAtBothEnds) {
    const HPALETTE palette = CreateHalftonePalette(HDC());
    PALETTEENTRY entries[256];
    ASSERT_EQ(GetPaletteEntries(palette, 0, 256, entries), 256u);
    EXPECT_EQ(entries[7], (PALETTEENTRY{0xC0, 0xC0, 0xC0, 0}));
    EXPECT_EQ(entries[248], (PALETTEENTRY{0x80, 0x80, 0x80, 0}));
    EXPECT_EQ(entries[255], (PALETTEENTRY{0xFF, 0xFF, 0xFF, 0}));
    EXPECT_EQ(entries[100], (PALETTEENTRY{0x80, 0x80, 0x40, 0}));
    DeleteObject(palette);
}

TEST(Palettes, AreSelectedInTurn) {
    const Canvas canvas(1, 1);
    const HPALETTE palette = CreateHalftonePalette(canvas.dc());
    const HPALETTE stock = SelectPalette(canvas.dc(), palette, FALSE_);
    EXPECT_EQ(stock.value, GetStockObject(DEFAULT_PALETTE).value);
    EXPECT_EQ(GetCurrentObject(canvas.dc(), OBJ_PAL).value, palette.value);
    EXPECT_FALSE(SelectPalette(canvas.dc(), HPALETTE(GetStockObject(WHITE_BRUSH).value), FALSE_));
    EXPECT_EQ(SelectPalette(canvas.dc(), stock, FALSE_).value, palette.value);
    EXPECT_TRUE(DeleteObject(palette));
}
