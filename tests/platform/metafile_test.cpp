#include "platform/metafiles.h"
#include "support/Canvas.h"

#include <gtest/gtest.h>

#include <vector>

using namespace platform;
using test::Canvas;

namespace {

/// A frame of so many hundredths of a millimetre.
constexpr RECT frame{0, 0, 2600, 1300};

/// Ends a metafile with its scope.
class Recorded {
public:
    explicit Recorded(HENHMETAFILE handle) : handle_(handle) {}
    ~Recorded() { DeleteEnhMetaFile(handle_); }
    Recorded(const Recorded&) = delete;
    Recorded& operator=(const Recorded&) = delete;

    HENHMETAFILE handle() const { return handle_; }

    ENHMETAHEADER header() const {
        ENHMETAHEADER header;
        EXPECT_EQ(GetEnhMetaFileHeader(handle_, sizeof header, &header), sizeof header);
        return header;
    }

    std::vector<BYTE> bytes() const {
        std::vector<BYTE> result(GetEnhMetaFileBits(handle_, 0, nullptr));
        EXPECT_EQ(GetEnhMetaFileBits(handle_, static_cast<UINT>(result.size()), result.data()),
                  result.size());
        return result;
    }

private:
    HENHMETAFILE handle_;
};

/// Records what `draw` draws.
template <class Draw>
HENHMETAFILE record(const Draw& draw) {
    const HDC dc = CreateEnhMetaFileA({}, nullptr, &frame, nullptr);
    EXPECT_TRUE(dc);
    draw(dc);
    return CloseEnhMetaFile(dc);
}

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
