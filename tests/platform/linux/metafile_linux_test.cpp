#include "platform/linux/handles.h"
#include "support/Recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <limits>
#include <vector>

using namespace platform;
using namespace test;

namespace {

/// A metafile as bytes whose records a test writes itself.
class Crafted {
public:
    Crafted() { bytes_.resize(sizeof(ENHMETAHEADER)); }

    Crafted& record(DWORD type, const std::vector<DWORD>& words) {
        return record(type, words, static_cast<DWORD>(8 + 4 * words.size()));
    }
    /// With a size of the test's own.
    Crafted& record(DWORD type, const std::vector<DWORD>& words, DWORD size) {
        add(type);
        add(size);
        for (const DWORD word : words)
            add(word);
        return *this;
    }

    HENHMETAFILE handle() {
        record(14, {0, 16, 20});
        ENHMETAHEADER header;
        header.nSize = sizeof header;
        header.nBytes = static_cast<DWORD>(bytes_.size());
        header.nHandles = 4;
        header.rclFrame = {0, 0, 1000, 1000};
        header.szlDevice = {100, 100};
        header.szlMillimeters = {10, 10};
        std::memcpy(bytes_.data(), &header, sizeof header);
        return SetEnhMetaFileBits(static_cast<UINT>(bytes_.size()), bytes_.data());
    }

private:
    void add(DWORD word) {
        const auto* from = reinterpret_cast<const BYTE*>(&word);
        bytes_.insert(bytes_.end(), from, from + sizeof word);
    }

    std::vector<BYTE> bytes_;
};

/// Plays it on a canvas of 100 by 100; what PlayEnhMetaFile says.
BOOL play(Crafted& crafted, const Canvas& canvas) {
    const HENHMETAFILE metafile = crafted.handle();
    EXPECT_TRUE(metafile);
    const RECT whole{0, 0, 100, 100};
    const BOOL result = PlayEnhMetaFile(canvas.dc(), metafile, &whole);
    DeleteEnhMetaFile(metafile);
    return result;
}

constexpr DWORD setPixel = 15;
constexpr DWORD setWorldTransform = 35;
constexpr DWORD paintRegion = 74;
constexpr DWORD red = RGB(255, 0, 0);
constexpr DWORD one = 0x3F800000; ///< In single precision
constexpr DWORD minusOne = 0xBF800000;

/// The words of a record that paints a region.
std::vector<DWORD> regionWords(const std::vector<RECT>& rectangles) {
    constexpr DWORD headerSize = 32;
    const auto bytes = static_cast<DWORD>(rectangles.size() * sizeof(RECT));
    std::vector<DWORD> words = {0, 0, 0, 0, headerSize + bytes};
    words.insert(words.end(), {headerSize, 1, static_cast<DWORD>(rectangles.size()), bytes, 0, 0, 0, 0});
    for (const RECT& r : rectangles)
        for (const LONG edge : {r.left, r.top, r.right, r.bottom})
            words.push_back(static_cast<DWORD>(edge));
    return words;
}

/// Rows of one rectangle each, every second one empty. Each is shorter than the one above at both ends.
std::vector<RECT> shrinkingRows(LONG count) {
    std::vector<RECT> rows;
    for (LONG i = 0; i < count; ++i)
        rows.push_back({i, 2 * i, 2 * count - i, 2 * i + 1});
    return rows;
}

} // namespace

TEST(CraftedMetafile, ARecordOfWrongLengthEndsThePlaying) {
    for (const DWORD size : {0u, 4u, 7u, 21u, 0x7FFFFFF0u, 0xFFFFFFFFu}) {
        const Canvas canvas(100, 100);
        Crafted crafted;
        crafted.record(setPixel, {5, 5, red})
            .record(setPixel, {6, 6, red}, size)
            .record(setPixel, {7, 7, red});
        EXPECT_FALSE(play(crafted, canvas)) << size;
        EXPECT_EQ(canvas.at(5, 5), red);
        EXPECT_NE(canvas.at(7, 7), red);
    }
}

TEST(CraftedMetafile, CountsBeyondTheRecordAreLeftOut) {
    for (const DWORD type : {2u, 3u, 4u, 5u, 6u, 7u, 8u, 56u, 85u, 86u, 87u, 90u, 91u, 92u, 118u}) {
        const Canvas canvas(100, 100);
        Crafted crafted;
        crafted.record(type, {0, 0, 9, 9, 0xFFFFFFF0, 2, 3, 4}).record(setPixel, {7, 7, red});
        EXPECT_FALSE(play(crafted, canvas)) << type;
        EXPECT_EQ(canvas.at(7, 7), red);
    }
}

TEST(CraftedMetafile, OffsetsBeyondTheRecordAreLeftOut) {
    const Canvas canvas(100, 100);
    Crafted crafted;
    std::vector<DWORD> blit(23);
    blit[4] = blit[5] = 1;
    blit[6] = blit[7] = 50;
    blit[8] = SRCCOPY;
    blit[19] = 0xFFFFFF00; // where its header should be
    blit[20] = 40;
    blit[21] = 0xFFFFFFF0;
    blit[22] = 1000;
    crafted.record(76, blit).record(setPixel, {7, 7, red});
    EXPECT_FALSE(play(crafted, canvas));
    EXPECT_EQ(canvas.at(7, 7), red);
}

TEST(CraftedMetafile, TextOfNoLengthIsDrawn) {
    constexpr DWORD extTextOutW = 84;
    const Canvas canvas(100, 100);
    Crafted crafted;
    crafted.record(extTextOutW, std::vector<DWORD>(17)).record(setPixel, {7, 7, red});
    EXPECT_TRUE(play(crafted, canvas));
    EXPECT_EQ(canvas.at(7, 7), red);
}

TEST(CraftedMetafile, MasksThatAreNotInTheRecordAreLeftOut) {
    constexpr DWORD maskBlt = 78;
    constexpr DWORD plgBlt = 79;
    const Canvas canvas(100, 100);
    Crafted crafted;
    std::vector<DWORD> masked(30);
    masked[6] = masked[7] = 50;
    masked[8] = BLACKNESS;
    masked[26] = 1000; // where the mask's header should be
    masked[27] = 48;
    masked[28] = 2000;
    masked[29] = 0xFFFFFFFF;
    std::vector<DWORD> turned(33, 0xFFFFFFF0);
    crafted.record(maskBlt, masked).record(plgBlt, turned).record(setPixel, {7, 7, red});
    EXPECT_FALSE(play(crafted, canvas));
    EXPECT_EQ(canvas.at(7, 7), red);
}

TEST(CraftedMetafile, AMaskSmallerThanItsPictureIsLeftOut) {
    constexpr DWORD maskBlt = 78;
    for (const DWORD width : {8u, 9u, 0xFFFFFFF8u}) {
        const Canvas canvas(100, 100);
        PatBlt(canvas.dc(), 0, 0, 100, 100, BLACKNESS);
        std::vector<DWORD> masked(30);
        masked[6] = width;
        masked[7] = 1;
        masked[8] = MAKEROP4(WHITENESS, WHITENESS);
        masked[26] = 128;
        masked[27] = 48;
        masked[28] = 176;
        masked[29] = 4;
        for (const DWORD word : {40u, 8u, 1u, 0x00010001u, 0u, 0u, 0u, 0u, 0u, 0u, 0u, 0xFFFFFFu, 0u})
            masked.push_back(word);
        Crafted crafted;
        crafted.record(maskBlt, masked);
        EXPECT_EQ(play(crafted, canvas), width == 8u ? TRUE_ : FALSE_);
        EXPECT_EQ(canvas.at(0, 0), width == 8u ? RGB(255, 255, 255) : 0u) << width;
    }
}

TEST(CraftedMetafile, RegionsOfManyRowsArePaintedUnlessTheyAreTurned) {
    constexpr DWORD grey = 0x80000002;
    for (const LONG count : {1000, 2000})
        for (const bool isTurned : {false, true}) {
            const Canvas canvas(100, 100);
            PatBlt(canvas.dc(), 0, 0, 100, 100, BLACKNESS);
            Crafted crafted;
            if (isTurned) crafted.record(setWorldTransform, {0, one, one, 0, 0, 0});
            crafted.record(37, {grey}).record(paintRegion, regionWords(shrinkingRows(count)));
            const bool isPainted = count == 1000 || !isTurned;
            EXPECT_EQ(play(crafted, canvas), isPainted ? TRUE_ : FALSE_);
            const POINT in = isTurned ? POINT{2, 50} : POINT{50, 2};
            const POINT between = isTurned ? POINT{3, 50} : POINT{50, 3};
            EXPECT_EQ(canvas.at(in.x, in.y), isPainted ? RGB(128, 128, 128) : 0u) << count << isTurned;
            EXPECT_EQ(canvas.at(between.x, between.y), 0u);
        }
}

TEST(CraftedMetafile, RectanglesThatAreUpsideDownAreNoRows) {
    constexpr LONG count = 1000;
    std::vector<RECT> lattice;
    for (LONG i = 0; i < count; ++i)
        lattice.push_back({2 * i, 2 * count, 2 * i + 1, 0});
    for (LONG i = 0; i < count; ++i)
        lattice.push_back({0, 2 * i, 2 * count, 2 * i + 1});
    const Canvas canvas(100, 100);
    PatBlt(canvas.dc(), 0, 0, 100, 100, BLACKNESS);
    Crafted crafted;
    crafted.record(paintRegion, regionWords(lattice)).record(setPixel, {7, 7, red});
    EXPECT_FALSE(play(crafted, canvas));
    EXPECT_EQ(canvas.at(0, 0), 0u);
    EXPECT_EQ(canvas.at(7, 7), red);
}

namespace {

/// The words of a record that whitens where a mask of 8 by so many bits is set.
std::vector<DWORD> maskWords(const std::vector<DWORD>& rowsFromBelow) {
    constexpr DWORD nothingElse = 0x00AA0029; // the target stays
    const auto height = static_cast<DWORD>(rowsFromBelow.size());
    std::vector<DWORD> words(30);
    words[6] = 8;
    words[7] = height;
    words[8] = MAKEROP4(WHITENESS, nothingElse);
    words[26] = 128;
    words[27] = 48;
    words[28] = 176;
    words[29] = 4 * height;
    for (const DWORD word : {40u, 8u, height, 0x00010001u, 0u, 0u, 0u, 0u, 0u, 0u, 0u, 0xFFFFFFu})
        words.push_back(word);
    words.insert(words.end(), rowsFromBelow.begin(), rowsFromBelow.end());
    return words;
}

} // namespace

TEST(CraftedMetafile, MasksTurnWithTheirPicture) {
    constexpr DWORD maskBlt = 78;
    const Canvas canvas(100, 100);
    PatBlt(canvas.dc(), 0, 0, 100, 100, BLACKNESS);
    Crafted crafted;
    crafted.record(setWorldTransform, {0, one, one, 0, 0, 0}).record(maskBlt, maskWords({0x80, 0xE0}));
    EXPECT_TRUE(play(crafted, canvas));
    const std::vector<POINT> set = {{0, 0}, {0, 1}, {0, 2}, {1, 0}};
    for (LONG y = 0; y < 8; ++y)
        for (LONG x = 0; x < 8; ++x) {
            const bool isSet = std::find(set.begin(), set.end(), POINT{x, y}) != set.end();
            EXPECT_EQ(canvas.at(x, y), isSet ? RGB(255, 255, 255) : 0u) << x << " " << y;
        }
}

TEST(CraftedMetafile, TurnedMasksOfTooManyPartsAreLeftOut) {
    constexpr DWORD maskBlt = 78;
    std::vector<DWORD> rows;
    for (int i = 0; i < 400; ++i)
        rows.push_back(i % 2 == 0 ? 0xAA : 0x55);
    for (const bool isTurned : {false, true}) {
        const Canvas canvas(100, 100);
        PatBlt(canvas.dc(), 0, 0, 100, 100, BLACKNESS);
        Crafted crafted;
        if (isTurned) crafted.record(setWorldTransform, {0, one, one, 0, 0, 0});
        crafted.record(maskBlt, maskWords(rows));
        EXPECT_EQ(play(crafted, canvas), isTurned ? FALSE_ : TRUE_);
        EXPECT_EQ(canvas.at(1, 0), isTurned ? 0u : RGB(255, 255, 255));
    }
}

TEST(CraftedMetafile, ObjectsOutsideOfTheTableAreLeftOut) {
    const std::uint32_t before = driver::handleCount();
    const Canvas canvas(100, 100);
    Crafted crafted;
    crafted.record(37, {0x7FFFFFFF})
        .record(39, {99999, 0, red, 0})
        .record(39, {0, 0, red, 0})
        .record(40, {0xFFFFFFFF})
        .record(38, {2, 0, 1, 1, red})
        .record(37, {2})
        .record(40, {2})
        .record(setPixel, {7, 7, red});
    EXPECT_FALSE(play(crafted, canvas));
    EXPECT_EQ(canvas.at(7, 7), red);
    EXPECT_EQ(driver::handleCount(), before + 2) << driver::describeHandles();
}

TEST(CraftedMetafile, NothingIsLeftOfStatesThatAreNotRestored) {
    const Canvas canvas(100, 100);
    Crafted crafted;
    for (int i = 0; i < 10000; ++i)
        crafted.record(33, {});
    crafted.record(34, {0x7FFFFFFF}).record(34, {0}).record(34, {0x80000000}).record(24, {red});
    play(crafted, canvas);
    EXPECT_EQ(GetTextColor(canvas.dc()), 0u);
    EXPECT_FALSE(RestoreDC(canvas.dc(), -1));
}

TEST(CraftedMetafile, PicturesThatLieAboutTheirSizeTakeNoMemory) {
    const Canvas canvas(100, 100);
    const auto before = driver::handleCount();
    Crafted crafted;
    for (int i = 0; i < 100; ++i) {
        std::vector<DWORD> bits(18 + 10 + 2);
        bits[10] = 80; // header
        bits[11] = 40;
        bits[12] = 120; // pixels
        bits[13] = 8;
        bits[18] = 40;
        bits[19] = 30000;
        bits[20] = 30000;
        bits[21] = 8u << 16 | 1;
        bits[22] = 1;
        crafted.record(81, bits);
    }
    play(crafted, canvas);
    EXPECT_EQ(driver::handleCount(), before) << driver::describeHandles();
    EXPECT_EQ(canvas.at(50, 50), 0u) << "nothing was painted";
    canvas.set(99, 99, red);
    EXPECT_EQ(canvas.at(99, 99), red) << "the context is as it was";
}

TEST(CraftedMetafile, NumbersWithoutBoundsAreHeldOnTheSheet) {
    const Canvas canvas(100, 100);
    const auto before = driver::handleCount();
    Crafted crafted;
    crafted.record(17, {8})
        .record(9, {1, 1})
        .record(11, {0x7FFFFFFF, 0x80000000})
        .record(42, {0x80000000, 0x80000000, 0x7FFFFFFF, 0x7FFFFFFF})
        .record(44, {0, 0, 0x7FFFFFFF, 9, 0x7FFFFFFF, 0x7FFFFFFF})
        .record(45, {0, 0, 0x7FFFFFFF, 0x7FFFFFFF, 1, 1, 2, 2})
        .record(54, {0x7FFFFFFF, 0x80000000});
    play(crafted, canvas);
    EXPECT_EQ(driver::handleCount(), before) << driver::describeHandles();
    canvas.set(99, 99, red);
    EXPECT_EQ(canvas.at(99, 99), red) << "the context is as it was";
}

TEST(CraftedMetafile, TurnedShapesWithoutBoundsAreHeldOnTheSheet) {
    const Canvas canvas(100, 100);
    const auto before = driver::handleCount();
    Crafted crafted;
    crafted.record(35, {0, one, minusOne, 0, 0, 0});
    for (const DWORD shape : {42u, 43u, 44u})
        crafted.record(shape, {0x84848484, 0x84848484, 0xF8000001, 0xF8000001, 4, 4})
            .record(shape, {0x7FFFFFFF, 0x80000000, 0x80000000, 0x7FFFFFFF, 0x80000000, 0x7FFFFFFF});
    play(crafted, canvas);
    EXPECT_EQ(driver::handleCount(), before) << driver::describeHandles();
    canvas.set(99, 99, red);
    EXPECT_EQ(canvas.at(99, 99), red) << "the context is as it was";
}

TEST(CraftedMetafile, TurnedTextLeansByAnyNumberOfTurns) {
    constexpr DWORD selectObject = 37, createFont = 82, smallTextOut = 108;
    constexpr DWORD fifty = 0x42480000; // in single precision
    constexpr LONG most = std::numeric_limits<LONG>::max();
    const auto leaning = [](LONG angle) {
        LOGFONTW font;
        font.lfHeight = -15;
        font.lfEscapement = font.lfOrientation = angle;
        std::u16string_view(u"Verdana").copy(font.lfFaceName, LF_FACESIZE - 1);
        std::vector<DWORD> words(1 + sizeof font / sizeof(DWORD), 1);
        std::memcpy(&words[1], &font, sizeof font);
        constexpr DWORD narrowWithoutBox = 0x0300;
        const DWORD characters = 'T' | 'e' << 8 | 'x' << 16 | 't' << 24;
        const Canvas canvas(100, 100);
        PatBlt(canvas.dc(), 0, 0, 100, 100, WHITENESS);
        Crafted crafted;
        crafted.record(setWorldTransform, {0, minusOne, one, 0, 0, fifty})
            .record(createFont, words)
            .record(selectObject, {1})
            .record(smallTextOut, {0, 50, 4, narrowWithoutBox, 1, one, one, characters});
        EXPECT_TRUE(play(crafted, canvas));
        return canvas.text();
    };
    const std::string look = leaning(most);
    EXPECT_NE(look.find_first_not_of("#\n"), std::string::npos) << "nothing was drawn";
    EXPECT_EQ(look, leaning(most % 3600));
    EXPECT_NE(look, leaning(0));
}

// The system plays these with other pixels at some sizes of the screen.

TEST(MetafilePlayed, ShapesInPensAndBrushesLookAsDrawn) {
    expectSamePicture([](HDC dc) {
        const Selected pen(dc, CreatePen(PS_SOLID, 3, RGB(200, 0, 0)));
        const Selected brush(dc, CreateHatchBrush(HS_CROSS, RGB(0, 0, 200)));
        Rectangle(dc, 2, 2, 30, 20);
        Ellipse(dc, 32, 2, 62, 24);
        RoundRect(dc, 2, 24, 30, 46, 9, 9);
    });
}

TEST(MetafilePlayed, ArcsAndCurvesLookAsDrawn) {
    expectSamePicture([](HDC dc) {
        Arc(dc, 2, 2, 30, 20, 30, 10, 2, 10);
        Pie(dc, 32, 2, 62, 24, 62, 10, 40, 24);
        Chord(dc, 2, 24, 30, 46, 30, 40, 10, 24);
        const POINT curve[] = {{34, 44}, {40, 20}, {50, 60}, {60, 30}};
        PolyBezier(dc, curve, 4);
    });
}

TEST(MetafilePlayed, TextLooksAsDrawn) {
    expectSamePicture([](HDC dc) {
        LOGFONTW font;
        font.lfHeight = -15;
        std::u16string_view(u"Verdana").copy(font.lfFaceName, LF_FACESIZE - 1);
        const Selected selected(dc, CreateFontIndirectW(&font));
        SetBkColor(dc, RGB(255, 255, 0));
        TextOutA(dc, 4, 4, "Texto", 5);
        SetBkMode(dc, TRANSPARENT);
        SetTextAlign(dc, TA_CENTER | TA_BASELINE);
        TextOutA(dc, 32, 40, "centro", 6);
    });
}

TEST(MetafilePlayed, TextTakesTheDistancesThatItWasMeasuredWith) {
    constexpr int width = 64;
    const auto makeFont = [] { // letters that are drawn in other widths than they are measured
        return CreateFontA(-15, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, 0, 0, DEFAULT_QUALITY, 0, "Arial");
    };
    const Canvas spaced(width, width);
    const Selected font(spaced.dc(), makeFont());
    std::array<INT, 5> distances{};
    for (std::size_t i = 0; i < distances.size(); ++i)
        GetCharWidth32A(spaced.dc(), "Texto"[i], "Texto"[i], &distances[i]);
    ExtTextOutA(spaced.dc(), 4, 4, 0, nullptr, "Texto", 5, distances.data());

    const RECT size = frameOf(width, width);
    const HDC recording = CreateEnhMetaFileA({}, nullptr, &size, nullptr);
    {
        const Selected same(recording, makeFont());
        TextOutA(recording, 4, 4, "Texto", 5);
    }
    const Recorded metafile(CloseEnhMetaFile(recording));
    const Canvas played(width, width);
    const RECT whole{0, 0, width, width};
    EXPECT_TRUE(PlayEnhMetaFile(played.dc(), metafile.handle(), &whole));
    EXPECT_EQ(played.text(), spaced.text());
}

TEST(MetafilePlayed, TextInRectanglesOfAnySizeIsHarmless) {
    const RECT size = frameOf(64, 64);
    const HDC recording = CreateEnhMetaFileA({}, nullptr, &size, nullptr);
    MoveToEx(recording, 5, 5, nullptr);
    SetTextAlign(recording, TA_UPDATECP);
    TextOutA(recording, 4, 4, "Texto", 5);
    const Recorded metafile(CloseEnhMetaFile(recording));
    const Canvas canvas(16, 16);
    constexpr LONG far = std::numeric_limits<LONG>::max();
    for (const RECT& r : {RECT{0, 0, 0, 0}, RECT{3, 3, 4, 4}, RECT{0, 0, far, far},
                          RECT{-far, -far, far, far}, RECT{0, 0, far, 1}, RECT{9, 9, -9, -9}})
        EXPECT_TRUE(PlayEnhMetaFile(canvas.dc(), metafile.handle(), &r));
}

TEST(MetafilePlayed, CopiesOfOneBitTakeTheColoursOfTheRecording) {
    const Canvas source(8, 8, 1);
    source.set(2, 2, RGB(255, 255, 255));
    expectSamePicture([&](HDC dc) {
        SetTextColor(dc, RGB(0, 0, 200));
        SetBkColor(dc, RGB(250, 250, 0));
        BitBlt(dc, 2, 2, 8, 8, source.dc(), 0, 0, SRCCOPY);
    });
}

namespace {

/// A picture of four by four pixels: white but for a black corner and a coloured middle.
void paintSmallPicture(const Canvas& canvas) {
    PatBlt(canvas.dc(), 0, 0, 4, 4, WHITENESS);
    canvas.set(0, 0, RGB(0, 0, 0));
    canvas.set(1, 1, RGB(255, 0, 0));
    canvas.set(2, 2, RGB(0, 0, 255));
}

/// A mask of four by four bits, of which the even columns are set.
HBITMAP evenColumns() {
    const WORD rows[4] = {0x00A0, 0x00A0, 0x00A0, 0x00A0};
    return CreateBitmap(4, 4, 1, 1, rows);
}

} // namespace

TEST(MetafilePlayed, MaskedCopiesLookAsDrawn) {
    const Canvas source(4, 4);
    paintSmallPicture(source);
    const HBITMAP mask = evenColumns();
    expectSamePicture([&](HDC dc) {
        PatBlt(dc, 0, 0, 30, 30, BLACKNESS);
        MaskBlt(dc, 3, 3, 4, 4, source.dc(), 0, 0, mask, 0, 0, MAKEROP4(SRCCOPY, SRCINVERT));
        MaskBlt(dc, 10, 3, 2, 3, source.dc(), 1, 1, mask, 1, 0, MAKEROP4(BLACKNESS, WHITENESS));
        MaskBlt(dc, 20, 3, 4, 4, source.dc(), 0, 0, HBITMAP(), 0, 0, MAKEROP4(NOTSRCCOPY, SRCCOPY));
    });
    DeleteObject(mask);
}

TEST(MetafilePlayed, MasksGrowWithTheirPicture) {
    const Canvas source(4, 4);
    PatBlt(source.dc(), 0, 0, 4, 4, WHITENESS);
    const HBITMAP mask = evenColumns();
    const RECT size = frameOf(4, 4);
    const HDC dc = CreateEnhMetaFileA({}, nullptr, &size, nullptr);
    MaskBlt(dc, 0, 0, 4, 4, source.dc(), 0, 0, mask, 0, 0, MAKEROP4(SRCCOPY, BLACKNESS));
    const Recorded metafile(CloseEnhMetaFile(dc));
    DeleteObject(mask);
    const Canvas canvas(8, 2);
    const RECT whole{0, 0, 8, 2};
    EXPECT_TRUE(PlayEnhMetaFile(canvas.dc(), metafile.handle(), &whole));
    EXPECT_EQ(canvas.text(), "##..##..\n##..##..\n");
}

TEST(MetafilePlayed, ParallelogramsLookAsDrawn) {
    const Canvas source(4, 4);
    paintSmallPicture(source);
    const HBITMAP mask = evenColumns();
    expectSamePicture([&](HDC dc) {
        PatBlt(dc, 0, 0, 40, 40, BLACKNESS);
        const POINT upright[] = {{2, 2}, {10, 2}, {2, 10}};
        PlgBlt(dc, upright, source.dc(), 0, 0, 4, 4, HBITMAP(), 0, 0);
        const POINT turned[] = {{28, 2}, {28, 10}, {20, 2}};
        PlgBlt(dc, turned, source.dc(), 0, 0, 4, 4, mask, 0, 0);
        // Of this one the source has the lower right quarter.
        const POINT cut[] = {{2, 20}, {18, 20}, {2, 36}};
        PlgBlt(dc, cut, source.dc(), -4, -4, 8, 8, HBITMAP(), 0, 0);
    });
    DeleteObject(mask);
}

TEST(MetafilePlayed, OriginsAndExtentsAreRecorded) {
    expectSamePicture([](HDC dc) {
        SetWindowOrgEx(dc, -10, -5, nullptr);
        Rectangle(dc, 0, 0, 20, 10);
        SetMapMode(dc, MM_ANISOTROPIC);
        SetWindowExtEx(dc, 100, 100, nullptr);
        SetViewportExtEx(dc, 200, 300, nullptr);
        Rectangle(dc, 2, 8, 20, 14);
    });
}

namespace {

/// The numbers of the records that set modes and extents of mappings, in their order.
std::vector<std::vector<DWORD>> mappingRecords(const Recorded& metafile) {
    constexpr DWORD setWindowExtent = 9, setViewportExtent = 11, setMapMode = 17;
    const std::vector<BYTE> bytes = metafile.bytes();
    const auto word = [&](std::size_t at) {
        DWORD value = 0;
        std::memcpy(&value, bytes.data() + at, sizeof value);
        return value;
    };
    std::vector<std::vector<DWORD>> records;
    for (std::size_t at = 0; at + 8 <= bytes.size(); at += word(at + 4)) {
        const DWORD type = word(at);
        if (type == setMapMode) records.push_back({type, word(at + 8)});
        if (type == setWindowExtent || type == setViewportExtent)
            records.push_back({type, word(at + 8), word(at + 12)});
    }
    return records;
}

} // namespace

TEST(MetafileRecorded, IsotropicExtentsAreThoseThatWereAskedFor) {
    const Recorded metafile(record([](HDC dc) {
        SetMapMode(dc, MM_ISOTROPIC);
        SetWindowExtEx(dc, 100, 30, nullptr);
        SetViewportExtEx(dc, 64, 48, nullptr);
        SetViewportOrgEx(dc, 3, 3, nullptr);
        Rectangle(dc, 2, 8, 20, 14);
        SetWindowExtEx(dc, 70, 90, nullptr);
        Rectangle(dc, 2, 8, 20, 14);
        ScaleViewportExtEx(dc, 2, 1, 2, 1, nullptr);
        SIZE fitted;
        GetViewportExtEx(dc, &fitted);
        EXPECT_NE(fitted, (SIZE{128, 96}));
    }));
    const std::vector<std::vector<DWORD>> records = mappingRecords(metafile);
    ASSERT_EQ(records.size(), 5u);
    EXPECT_EQ(records[0], (std::vector<DWORD>{17, MM_ISOTROPIC}));
    EXPECT_EQ(records[1], (std::vector<DWORD>{9, 100, 30}));
    EXPECT_EQ(records[2], (std::vector<DWORD>{11, 64, 48}));
    EXPECT_EQ(records[3], (std::vector<DWORD>{9, 70, 90}));
    EXPECT_EQ(records[4][0], 11u);
}

TEST(MetafileRecorded, IsotropicExtentsThatComeBackOrWereNotAskedForAreThoseInUse) {
    const auto fitted = [](HDC dc) {
        SIZE extent;
        GetViewportExtEx(dc, &extent);
        return std::vector<DWORD>{11, static_cast<DWORD>(extent.cx), static_cast<DWORD>(extent.cy)};
    };
    std::vector<DWORD> first, last;
    const Recorded metafile(record([&](HDC dc) {
        SetMapMode(dc, MM_ISOTROPIC);
        SetWindowExtEx(dc, 40, 40, nullptr);
        first = fitted(dc);
        Rectangle(dc, 2, 8, 20, 14);
        const int depth = SaveDC(dc);
        SetViewportExtEx(dc, 30, 60, nullptr);
        Rectangle(dc, 2, 8, 20, 14);
        RestoreDC(dc, depth);
        SetWindowExtEx(dc, 50, 50, nullptr);
        last = fitted(dc);
        Rectangle(dc, 2, 8, 20, 14);
    }));
    EXPECT_EQ(mappingRecords(metafile), (std::vector<std::vector<DWORD>>{{17, MM_ANISOTROPIC},
                                                                         {9, 40, 40},
                                                                         first,
                                                                         {17, MM_ISOTROPIC},
                                                                         {9, 40, 40},
                                                                         {11, 30, 60},
                                                                         {17, MM_ANISOTROPIC},
                                                                         {9, 50, 50},
                                                                         last}));
}

TEST(MetafilePlayed, IsotropicExtentsLookAsDrawn) {
    expectSamePicture([](HDC dc) {
        SetMapMode(dc, MM_ISOTROPIC);
        Ellipse(dc, 20, -20, 60, -70);
        SetViewportExtEx(dc, 64, 48, nullptr);
        SetWindowExtEx(dc, 64, 64, nullptr);
        const int depth = SaveDC(dc);
        SetWindowExtEx(dc, 32, 32, nullptr);
        Ellipse(dc, 2, 2, 12, 9);
        RestoreDC(dc, depth);
        Ellipse(dc, 2, 2, 40, 30);
        SetMapMode(dc, MM_ANISOTROPIC);
        Ellipse(dc, 20, 2, 40, 50);
        SetMapMode(dc, MM_TEXT);
        Ellipse(dc, 20, 2, 60, 20);
    });
}

TEST(MetafileRecorded, NothingBeyondTheSheetCountsToItsBounds) {
    constexpr LONG most = std::numeric_limits<LONG>::max();
    constexpr LONG least = std::numeric_limits<LONG>::min();
    const std::function<void(HDC)> drawings[] = {
        [](HDC dc) { SetPixel(dc, most, 0, red); },
        [](HDC dc) { SetPixel(dc, 0, most, red); },
        [](HDC dc) { PatBlt(dc, 0, most - 7, 100, 10, BLACKNESS); },
        [](HDC dc) { PatBlt(dc, most - 7, 0, 10, 100, BLACKNESS); },
        [](HDC dc) { PatBlt(dc, least + 7, 0, -10, 100, BLACKNESS); },
    };
    for (const auto& draw : drawings) {
        const Recorded metafile(record(draw));
        EXPECT_EQ(metafile.header().rclBounds, (RECT{0, 0, -1, -1})) << &draw - drawings;
        const Canvas canvas(32, 32);
        const RECT whole{0, 0, 32, 32};
        EXPECT_TRUE(PlayEnhMetaFile(canvas.dc(), metafile.handle(), &whole));
    }
}

TEST(MetafileRecorded, RectanglesFromOneLimitToTheOtherCoverTheSheet) {
    constexpr LONG most = std::numeric_limits<LONG>::max();
    constexpr LONG least = std::numeric_limits<LONG>::min();
    expectSamePicture([](HDC dc) {
        const RECT across{least, 3, most, 9};
        FillRect(dc, &across, HBRUSH(GetStockObject(BLACK_BRUSH).value));
        const RECT down{20, least, 30, most};
        InvertRect(dc, &down);
        const RECT framed{4, least, 8, most};
        FrameRect(dc, &framed, HBRUSH(GetStockObject(BLACK_BRUSH).value));
        PatBlt(dc, most, 20, least, 4, BLACKNESS);
    });
    const Recorded focus(record([](HDC dc) {
        const RECT inverted{most, most, least, least};
        DrawFocusRect(dc, &inverted);
    }));
    const Canvas canvas(32, 32);
    const RECT whole{0, 0, 32, 32};
    EXPECT_TRUE(PlayEnhMetaFile(canvas.dc(), focus.handle(), &whole));
}

TEST(MetafilePlayed, TheStateOfTheTargetIsTheSameAfterwards) {
    const Recorded metafile(record([](HDC dc) {
        SetTextColor(dc, RGB(1, 2, 3));
        IntersectClipRect(dc, 0, 0, 5, 5);
        MoveToEx(dc, 7, 7, nullptr);
        LineTo(dc, 9, 9);
    }));
    const Canvas canvas(32, 32);
    SetTextColor(canvas.dc(), RGB(9, 9, 9));
    MoveToEx(canvas.dc(), 4, 5, nullptr);
    const RECT whole{0, 0, 32, 32};
    EXPECT_TRUE(PlayEnhMetaFile(canvas.dc(), metafile.handle(), &whole));
    EXPECT_EQ(GetTextColor(canvas.dc()), RGB(9, 9, 9));
    POINT position;
    GetCurrentPositionEx(canvas.dc(), &position);
    EXPECT_EQ(position, (POINT{4, 5}));
    RECT box;
    GetClipBox(canvas.dc(), &box);
    EXPECT_EQ(box, whole);
}
