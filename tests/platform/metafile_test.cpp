#include "support/Recording.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <vector>

using namespace platform;
using namespace test;

namespace {

/// The bytes of an older metafile, with the header that makes it placeable.
class OlderFile {
public:
    /// So many units wide and high, at so many to an inch.
    OlderFile(int width, int height, int unitsPerInch) {
        for (const int word : {0xCDD7, 0x9AC6, 0, 0, 0, width, height, unitsPerInch, 0, 0, 0})
            add(word);
        for (const int word : {1, 9, 0x0300, 0, 0, 4, 0, 0, 0})
            add(word);
    }
    OlderFile& record(int function, std::initializer_list<int> parameters) {
        add(static_cast<int>(parameters.size()) + 3);
        add(0);
        add(function);
        for (const int word : parameters)
            add(word);
        return *this;
    }
    const std::vector<BYTE>& bytes() {
        constexpr std::size_t sizeAt = 22 + 6;
        record(0, {});
        const auto words = static_cast<DWORD>((bytes_.size() - 22) / 2);
        for (std::size_t i = 0; i < 4; ++i)
            bytes_[sizeAt + i] = static_cast<BYTE>(words >> (8 * i));
        unsigned sum = 0;
        for (std::size_t i = 0; i < 20; i += 2)
            sum ^= static_cast<unsigned>(bytes_[i] | bytes_[i + 1] << 8);
        bytes_[20] = static_cast<BYTE>(sum);
        bytes_[21] = static_cast<BYTE>(sum >> 8);
        bytes_[22 + 12] = 10; // the longest record, in words
        return bytes_;
    }

private:
    void add(int word) {
        bytes_.push_back(static_cast<BYTE>(word));
        bytes_.push_back(static_cast<BYTE>(word >> 8));
    }

    std::vector<BYTE> bytes_;
};

} // namespace

TEST(Metafile, ItsContextTellsWhatItIsAndEndsWithTheRecording) {
    const HDC dc = CreateEnhMetaFileA({}, nullptr, &frame, nullptr);
    EXPECT_EQ(GetObjectType(dc), OBJ_ENHMETADC);
    const Recorded metafile(CloseEnhMetaFile(dc));
    EXPECT_EQ(GetObjectType(HGDIOBJ(metafile.handle().value)), OBJ_ENHMETAFILE);
    EXPECT_FALSE(CloseEnhMetaFile(dc));
    EXPECT_FALSE(SetPixel(dc, 0, 0, 0) != CLR_INVALID);
}

TEST(Metafile, TheHeaderTellsTheFrameTheDeviceAndTheSize) {
    const Recorded metafile(record([](HDC dc) { Rectangle(dc, 10, 10, 30, 20); }));
    const ENHMETAHEADER header = metafile.header();
    EXPECT_EQ(header.rclFrame, frame);
    EXPECT_EQ(header.rclBounds.left, 10);
    EXPECT_GT(header.szlDevice.cx, 0);
    EXPECT_GT(header.szlMillimeters.cx, 0);
    EXPECT_EQ(header.nBytes, metafile.bytes().size());
}

TEST(Metafile, ItHasAsManyRecordsAsItsHeaderSays) {
    const Recorded metafile(record([](HDC dc) {
        MoveToEx(dc, 1, 2, nullptr);
        LineTo(dc, 30, 40);
        TextOutA(dc, 5, 5, "texto", 5);
    }));
    DWORD count = 0;
    DWORD last = 0;
    EXPECT_TRUE(EnumEnhMetaFile(metafile.handle(), [&](DWORD type, std::span<const BYTE> bytes) {
        ++count;
        last = type;
        return bytes.size() % 4 == 0;
    }));
    EXPECT_EQ(count, metafile.header().nRecords);
    EXPECT_EQ(last, 14u);
}

TEST(Metafile, TheDescriptionHasTwoParts) {
    const HDC dc = CreateEnhMetaFileA({}, nullptr, &frame, "Programa\0Dibujo\0");
    const Recorded metafile(CloseEnhMetaFile(dc));
    char16_t text[64] = {};
    EXPECT_EQ(GetEnhMetaFileDescriptionW(metafile.handle(), 0, nullptr), 17u);
    EXPECT_EQ(GetEnhMetaFileDescriptionW(metafile.handle(), 64, text), 17u);
    EXPECT_EQ(std::u16string_view(text, 17), std::u16string_view(u"Programa\0Dibujo\0\0", 17));
}

TEST(Metafile, ItsBytesMakeAnotherOfTheSameBytes) {
    const Recorded metafile(record([](HDC dc) { Rectangle(dc, 1, 1, 5, 5); }));
    const std::vector<BYTE> bytes = metafile.bytes();
    const Recorded copy(SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data()));
    EXPECT_EQ(copy.bytes(), bytes);
    const Recorded second(CopyEnhMetaFileA(copy.handle(), nullptr));
    EXPECT_EQ(second.bytes(), bytes);
}

TEST(Metafile, BytesThatAreNoneAreRefused) {
    const std::vector<BYTE> zeros(200);
    EXPECT_FALSE(SetEnhMetaFileBits(200, zeros.data()));
    EXPECT_FALSE(SetEnhMetaFileBits(3, zeros.data()));
    EXPECT_FALSE(DeleteEnhMetaFile({}));
}

TEST(MetafilePlayed, LinesAndPolygonsLookAsDrawn) {
    expectSamePicture([](HDC dc) {
        MoveToEx(dc, 2, 3, nullptr);
        LineTo(dc, 40, 20);
        LineTo(dc, 10, 44);
        const POINT points[] = {{30, 5}, {60, 10}, {45, 40}, {33, 22}};
        Polygon(dc, points, 4);
        Polyline(dc, points, 4);
        PolylineTo(dc, points, 2);
    });
}

TEST(MetafilePlayed, PathsLookAsDrawn) {
    expectSamePicture([](HDC dc) {
        const Selected brush(dc, CreateSolidBrush(RGB(0, 128, 0)));
        BeginPath(dc);
        MoveToEx(dc, 5, 5, nullptr);
        LineTo(dc, 50, 8);
        const POINT curve[] = {{60, 20}, {40, 50}, {8, 40}};
        PolyBezierTo(dc, curve, 3);
        CloseFigure(dc);
        EndPath(dc);
        StrokeAndFillPath(dc);
    });
}

TEST(MetafilePlayed, FillsOperationsAndPixelsLookAsDrawn) {
    expectSamePicture([](HDC dc) {
        const RECT r{4, 4, 40, 30};
        FillRect(dc, &r, HBRUSH(GetStockObject(GRAY_BRUSH).value));
        const RECT inner{10, 10, 50, 20};
        InvertRect(dc, &inner);
        FrameRect(dc, &inner, HBRUSH(GetStockObject(BLACK_BRUSH).value));
        fillSolidRect(dc, {42, 4, 60, 12}, RGB(200, 100, 50));
        SetROP2(dc, R2_NOTXORPEN);
        Rectangle(dc, 20, 15, 60, 40);
        SetPixel(dc, 62, 46, RGB(1, 2, 3));
        PatBlt(dc, 0, 40, 20, 8, BLACKNESS);
    });
}

TEST(MetafilePlayed, GradientsLookAsDrawn) {
    expectSamePicture([](HDC dc) {
        const TRIVERTEX vertices[] = {{4, 4, 0xFF00, 0, 0, 0}, {60, 40, 0, 0, 0xFF00, 0}};
        const GRADIENT_RECT mesh{0, 1};
        GradientFill(dc, vertices, 2, &mesh, 1, GRADIENT_FILL_RECT_H);
    });
}

TEST(MetafilePlayed, CopiesOfOtherContextsLookAsDrawn) {
    const Canvas source(16, 16);
    source.set(3, 3, RGB(255, 0, 0));
    source.set(9, 12, RGB(0, 255, 0));
    expectSamePicture([&](HDC dc) {
        BitBlt(dc, 2, 2, 16, 16, source.dc(), 0, 0, SRCCOPY);
        BitBlt(dc, 50, 40, 30, 30, source.dc(), 8, 8, SRCINVERT);
        SetStretchBltMode(dc, COLORONCOLOR);
        StretchBlt(dc, 20, 4, 32, 32, source.dc(), 0, 0, 16, 16, SRCCOPY);
    });
}

TEST(MetafilePlayed, ClippingIsRecorded) {
    expectSamePicture([](HDC dc) {
        IntersectClipRect(dc, 5, 5, 30, 30);
        ExcludeClipRect(dc, 10, 10, 20, 20);
        Rectangle(dc, 0, 0, 60, 40);
        PatBlt(dc, 0, 0, 25, 25, BLACKNESS);
        SelectClipRgn(dc, {});
        PatBlt(dc, 40, 30, 10, 10, BLACKNESS);
    });
}

TEST(MetafilePlayed, SavedStatesComeBack) {
    expectSamePicture([](HDC dc) {
        const int depth = SaveDC(dc);
        SetTextColor(dc, RGB(255, 0, 0));
        const Selected pen(dc, CreatePen(PS_SOLID, 1, RGB(0, 0, 255)));
        LineTo(dc, 40, 5);
        RestoreDC(dc, depth);
        LineTo(dc, 40, 30);
    });
}

TEST(MetafilePlayed, TheFrameIsScaledToTheRectangle) {
    const RECT size = frameOf(10, 10);
    const HDC dc = CreateEnhMetaFileA({}, nullptr, &size, nullptr);
    PatBlt(dc, 0, 0, 5, 10, BLACKNESS);
    const Recorded metafile(CloseEnhMetaFile(dc));
    const Canvas canvas(40, 20);
    PatBlt(canvas.dc(), 0, 0, 40, 20, WHITENESS);
    const RECT right{20, 0, 40, 20};
    EXPECT_TRUE(PlayEnhMetaFile(canvas.dc(), metafile.handle(), &right));
    EXPECT_EQ(canvas.at(19, 10), RGB(255, 255, 255));
    EXPECT_EQ(canvas.at(20, 10), RGB(0, 0, 0));
    EXPECT_EQ(canvas.at(29, 19), RGB(0, 0, 0));
    EXPECT_EQ(canvas.at(30, 10), RGB(255, 255, 255));
}

TEST(MetafilePlayed, WhatIsPlayedWhileRecordingIsRecorded) {
    const Recorded inner(record([](HDC dc) { PatBlt(dc, 0, 0, 4, 4, BLACKNESS); }));
    expectSamePicture([&](HDC dc) {
        const RECT r{8, 8, 40, 40};
        PlayEnhMetaFile(dc, inner.handle(), &r);
    });
}

TEST(OlderMetafile, ItsSizeIsThatOfItsPlaceableHeader) {
    OlderFile file(1440, 720, 1440);
    file.record(0x020C, {100, 100});
    const MetafilePicture picture = readMetafilePicture(file.bytes());
    const Recorded metafile(picture.metafile);
    EXPECT_TRUE(picture.metafile);
    EXPECT_TRUE(picture.isOlder);
    EXPECT_EQ(picture.widthHimetric, 2540);
    EXPECT_EQ(picture.heightHimetric, 1270);
}

TEST(OlderMetafile, ItsRecordsArePlayed) {
    OlderFile file(1440, 1440, 1440);
    file.record(0x0103, {8})
        .record(0x020B, {0, 0})
        .record(0x020C, {100, 100})
        .record(0x02FC, {0, 255, 0, 0})                // a red brush
        .record(0x012D, {0})                           // selected
        .record(0x061D, {0x0021, 0xF0, 100, 50, 0, 0}) // PatBlt of the left half
        .record(0x01F0, {0});
    const MetafilePicture picture = readMetafilePicture(file.bytes());
    const Recorded metafile(picture.metafile);
    const Canvas canvas(40, 40);
    const RECT whole{0, 0, 40, 40};
    PlayEnhMetaFile(canvas.dc(), metafile.handle(), &whole);
    EXPECT_EQ(canvas.at(5, 20), RGB(255, 0, 0));
    EXPECT_EQ(canvas.at(35, 20), RGB(0, 0, 0));
}

TEST(OlderMetafile, WithoutAPlaceableHeaderItIsNoPicture) {
    constexpr std::ptrdiff_t placeableSize = 22;
    OlderFile file(1440, 1440, 1440);
    file.record(0x0103, {8}).record(0x020B, {0, 0}).record(0x020C, {100, 100});
    std::vector<BYTE> bytes = file.bytes();
    bytes.erase(bytes.begin(), bytes.begin() + placeableSize);
    // The platform refuses it too, extents or not; its records are played by those who know a size.
    EXPECT_FALSE(readMetafilePicture(bytes).metafile);
    METAFILEPICT size;
    size.xExt = size.yExt = 1000;
    const Recorded metafile(SetWinMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data(), {}, &size));
    EXPECT_TRUE(metafile.handle());
}

TEST(Metafile, AFrameLongerThanANumberIsNoPicture) {
    constexpr std::size_t frameAt = 24;
    constexpr LONG most = std::numeric_limits<LONG>::max();
    constexpr LONG least = std::numeric_limits<LONG>::min();
    const Recorded metafile(record([](HDC dc) { Rectangle(dc, 1, 1, 5, 5); }));
    std::vector<BYTE> bytes = metafile.bytes();
    const auto pictureIn = [&](const RECT& lying) {
        std::memcpy(bytes.data() + frameAt, &lying, sizeof lying);
        return readMetafilePicture(bytes);
    };
    const MetafilePicture longest = pictureIn({0, -1, most, most - 1});
    const Recorded owner(longest.metafile);
    EXPECT_TRUE(longest.metafile);
    EXPECT_EQ(longest.widthHimetric, most);
    EXPECT_EQ(longest.heightHimetric, most);
    EXPECT_FALSE(pictureIn({least, 0, most, 10}).metafile);
    EXPECT_FALSE(pictureIn({0, least, 10, most}).metafile);
    // Backwards: the differences are small numbers but for their highest bits.
    EXPECT_FALSE(pictureIn({most, 0, least + 1, 10}).metafile);
    EXPECT_FALSE(pictureIn({0, most, 10, least + 1}).metafile);
}

TEST(OlderMetafile, BytesWithoutSizeAreNoPicture) {
    OlderFile file(0, 0, 1440);
    EXPECT_FALSE(readMetafilePicture(file.bytes()).metafile);
    EXPECT_FALSE(readMetafilePicture({}).metafile);
}
