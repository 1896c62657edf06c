#include "platform/gdi.h"
#include "support/Canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace platform;
using test::Canvas;

namespace {

constexpr COLORREF white = RGB(255, 255, 255);

/// A canvas with white text in a font on it.
class Page {
public:
    Page(int width, int height, std::u16string_view face, LONG fontHeight, LONG weight = FW_NORMAL,
         BYTE italic = 0)
        : canvas_(width, height) {
        LOGFONTW record;
        record.lfHeight = fontHeight;
        record.lfWeight = weight;
        record.lfItalic = italic;
        record.lfFaceName[face.copy(record.lfFaceName, LF_FACESIZE - 1)] = 0;
        font_ = CreateFontIndirectW(&record);
        previous_ = SelectObject(canvas_.dc(), font_);
        SetTextColor(canvas_.dc(), white);
        SetBkMode(canvas_.dc(), TRANSPARENT);
    }
    ~Page() {
        SelectObject(canvas_.dc(), previous_);
        DeleteObject(font_);
    }
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    HDC dc() const { return canvas_.dc(); }
    const Canvas& canvas() const { return canvas_; }

    SIZE extent(std::u16string_view text) const {
        SIZE size;
        EXPECT_TRUE(GetTextExtentPoint32W(dc(), text.data(), static_cast<int>(text.size()), &size));
        return size;
    }

    TEXTMETRICW metrics() const {
        TEXTMETRICW result;
        EXPECT_TRUE(GetTextMetricsW(dc(), &result));
        return result;
    }

    /// The box of all pixels that are not black.
    RECT inked() const {
        RECT box{canvas_.width(), canvas_.height(), 0, 0};
        for (int y = 0; y < canvas_.height(); ++y) {
            for (int x = 0; x < canvas_.width(); ++x) {
                if (canvas_.at(x, y) == 0) continue;
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                       std::max(box.bottom, y + 1)};
            }
        }
        return box;
    }

private:
    Canvas canvas_;
    HFONT font_;
    HGDIOBJ previous_;
};

constexpr std::u16string_view dialogFont = u"MS Sans Serif";
constexpr std::u16string_view outlineFont = u"Arial";

} // namespace

TEST(Text, TheDialogFontHasThirteenPixelsAtEightPoints) {
    const Page page(10, 10, dialogFont, -11);
    const TEXTMETRICW metrics = page.metrics();
    EXPECT_EQ(metrics.tmHeight, 13);
    EXPECT_EQ(metrics.tmAscent, 11);
    EXPECT_EQ(metrics.tmDescent, 2);
    EXPECT_EQ(metrics.tmInternalLeading, 2);
    EXPECT_EQ(metrics.tmAveCharWidth, 5);
    EXPECT_EQ(metrics.tmMaxCharWidth, 11);
    EXPECT_EQ(page.extent(u"Nombre y apellidos").cx, 89);
}

TEST(Text, HeightsBelowZeroAreTheEmAndAboveTheCell) {
    EXPECT_EQ(Page(4, 4, outlineFont, -16).metrics().tmHeight, 17);
    EXPECT_EQ(Page(4, 4, outlineFont, 16).metrics().tmHeight, 16);
    const TEXTMETRICW metrics = Page(4, 4, outlineFont, -24).metrics();
    EXPECT_EQ(metrics.tmHeight - metrics.tmInternalLeading, 24);
}

TEST(Text, BoldIsWiderAndTellsItsWeight) {
    for (const std::u16string_view face : {dialogFont, outlineFont}) {
        const Page plain(4, 4, face, -13);
        const Page bold(4, 4, face, -13, FW_BOLD);
        EXPECT_EQ(plain.metrics().tmWeight, FW_NORMAL);
        EXPECT_EQ(bold.metrics().tmWeight, FW_BOLD);
        EXPECT_GT(bold.extent(u"Ancho de texto").cx, plain.extent(u"Ancho de texto").cx);
    }
}

TEST(Text, FixedFontsGiveEveryCharacterTheSameWidth) {
    const Page page(4, 4, u"Courier New", -13);
    EXPECT_EQ(page.extent(u"iiii").cx, page.extent(u"WWWW").cx);
    EXPECT_EQ(page.metrics().tmPitchAndFamily & TMPF_FIXED_PITCH, 0);
    EXPECT_EQ(Page(4, 4, outlineFont, -13).metrics().tmPitchAndFamily & TMPF_FIXED_PITCH, TMPF_FIXED_PITCH);
}

TEST(Text, AnUnknownFontIsReplaced) {
    const Page page(40, 20, u"No hay tal letra", -13);
    EXPECT_GT(page.extent(u"texto").cx, 0);
    EXPECT_TRUE(TextOutW(page.dc(), 0, 0, u"texto", 5));
    EXPECT_LT(page.inked().left, 10);
}

TEST(Text, IsDrawnInsideItsCell) {
    for (const std::u16string_view face : {dialogFont, outlineFont}) {
        const Page page(120, 60, face, -16);
        TextOutW(page.dc(), 20, 20, u"ÁÑgj|Ç", 6);
        const RECT inked = page.inked();
        EXPECT_GE(inked.top, 20);
        EXPECT_LE(inked.bottom, 20 + page.metrics().tmHeight);
        EXPECT_GE(inked.left, 18);
        EXPECT_GT(inked.right, 40);
    }
}

TEST(Text, SpanishLettersAreNotPlaceHolders) {
    const Page page(30, 30, dialogFont, -11);
    std::set<std::string> pictures;
    for (const char16_t c : std::u16string_view(u"áéíóúñüÁÉÑ¿¡ºª€")) {
        PatBlt(page.dc(), 0, 0, 30, 30, BLACKNESS);
        TextOutW(page.dc(), 5, 5, &c, 1);
        pictures.insert(page.canvas().text());
    }
    EXPECT_GE(pictures.size(), 14u);
}

TEST(Text, OpaqueModeFillsTheCellOfTheText) {
    const Page page(60, 30, dialogFont, -11);
    SetBkMode(page.dc(), OPAQUE);
    SetBkColor(page.dc(), RGB(0, 0, 90));
    TextOutW(page.dc(), 5, 6, u"ab", 2);
    const int width = page.extent(u"ab").cx;
    EXPECT_EQ(page.inked(), (RECT{5, 6, 5 + width, 6 + 13}));
}

TEST(Text, AlignmentMovesTheReferencePoint) {
    const Page page(100, 60, dialogFont, -11);
    SetBkMode(page.dc(), OPAQUE);
    SetBkColor(page.dc(), RGB(0, 0, 90));
    const int width = page.extent(u"lado").cx;
    const auto boxOf = [&](UINT align) {
        PatBlt(page.dc(), 0, 0, 100, 60, BLACKNESS);
        SetTextAlign(page.dc(), align);
        TextOutW(page.dc(), 50, 30, u"lado", 4);
        return page.inked();
    };
    EXPECT_EQ(boxOf(TA_RIGHT).right, 50);
    EXPECT_EQ(boxOf(TA_CENTER).left, 50 - width / 2);
    EXPECT_EQ(boxOf(TA_BOTTOM).bottom, 30);
    EXPECT_EQ(boxOf(TA_BASELINE).top, 30 - page.metrics().tmAscent);
}

TEST(Text, UpdatingThePositionContinuesBehindTheText) {
    const Page page(100, 30, dialogFont, -11);
    SetTextAlign(page.dc(), TA_UPDATECP);
    MoveToEx(page.dc(), 3, 4, nullptr);
    TextOutW(page.dc(), 90, 90, u"uno", 3);
    POINT position;
    GetCurrentPositionEx(page.dc(), &position);
    EXPECT_EQ(position, (POINT{3 + page.extent(u"uno").cx, 4}));
}

TEST(Text, ExtTextOutFillsAndClipsItsRectangle) {
    const Page page(60, 30, dialogFont, -11);
    SetBkColor(page.dc(), RGB(0, 0, 90));
    const RECT rect{10, 8, 20, 15};
    ExtTextOutW(page.dc(), 5, 5, ETO_OPAQUE | ETO_CLIPPED, &rect, u"WWWW", 4, nullptr);
    EXPECT_EQ(page.inked(), rect);
}

TEST(Text, GivenDistancesPlaceEachCharacter) {
    const Page page(80, 30, dialogFont, -11);
    const INT distances[] = {30, 5};
    ExtTextOutW(page.dc(), 0, 5, 0, nullptr, u"lI", 2, distances);
    EXPECT_GE(page.inked().right, 31);
}

TEST(Text, ExtentsCountTheCharactersThatFit) {
    const Page page(4, 4, dialogFont, -11);
    const std::u16string_view text = u"abcdef";
    INT fit = 0;
    INT extents[6] = {};
    SIZE size;
    const int room = page.extent(u"abc").cx;
    ASSERT_TRUE(GetTextExtentExPointW(page.dc(), text.data(), 6, room, &fit, extents, &size));
    EXPECT_EQ(fit, 3);
    EXPECT_EQ(extents[2], room);
    EXPECT_EQ(size.cx, page.extent(text).cx);
    ASSERT_TRUE(GetTextExtentExPointW(page.dc(), text.data(), 6, room - 1, &fit, extents, &size));
    EXPECT_EQ(fit, 2);
    ASSERT_TRUE(GetTextExtentExPointW(page.dc(), text.data(), 6, 0, &fit, extents, &size));
    EXPECT_EQ(fit, 0);
    ASSERT_TRUE(GetTextExtentExPointW(page.dc(), text.data(), 6, -1, &fit, extents, &size));
    EXPECT_EQ(fit, 6);
}

TEST(Text, ExtentsOfBytesAreToldOfThoseThatFitWhereTheseAreCounted) {
    const Page page(4, 4, dialogFont, -11);
    constexpr INT untouched = -5;
    INT extents[] = {untouched, untouched, untouched, untouched};
    INT fit = 0;
    SIZE size;
    const int room = page.extent(u"ab").cx;
    ASSERT_TRUE(GetTextExtentExPointA(page.dc(), "abcd", 4, room, &fit, extents, &size));
    EXPECT_EQ(extents[0], page.extent(u"a").cx);
    EXPECT_EQ(extents[1], room);
    EXPECT_EQ(extents[2], untouched);
    EXPECT_EQ(extents[3], untouched);
    EXPECT_EQ(size.cx, page.extent(u"abcd").cx);
    ASSERT_TRUE(GetTextExtentExPointA(page.dc(), "abcd", 4, room, nullptr, extents, &size));
    EXPECT_EQ(extents[3], size.cx);
}

TEST(Text, NoTextHasNoSize) {
    const Page page(4, 4, dialogFont, -11);
    EXPECT_EQ(page.extent(u""), SIZE());
    EXPECT_GT(page.extent(u" ").cy, 0);
    SIZE size{7, 7};
    ASSERT_TRUE(GetTextExtentPoint32A(page.dc(), nullptr, 0, &size));
    EXPECT_EQ(size, SIZE());
}

TEST(Text, TheFirstByteOfAnOutlineFontStandsTwoBeforeItsBreak) {
    const Page outline(4, 4, outlineFont, -13);
    TEXTMETRICA metrics;
    ASSERT_TRUE(GetTextMetricsA(outline.dc(), &metrics));
    EXPECT_EQ(metrics.tmFirstChar + 2, metrics.tmBreakChar);
    EXPECT_EQ(metrics.tmDefaultChar + 1, metrics.tmBreakChar);
    const Page bitmap(4, 4, dialogFont, -11);
    ASSERT_TRUE(GetTextMetricsA(bitmap.dc(), &metrics));
    EXPECT_EQ(metrics.tmFirstChar, ' ');
}

TEST(Text, CharacterWidthsAddUpToTheExtent) {
    const Page page(4, 4, outlineFont, -13);
    INT widths[26] = {};
    ASSERT_TRUE(GetCharWidth32W(page.dc(), u'a', u'z', widths));
    int sum = 0;
    for (const char16_t c : std::u16string_view(u"zarzuela"))
        sum += widths[c - u'a'];
    EXPECT_EQ(page.extent(u"zarzuela").cx, sum);
}

TEST(Text, ExtraSpaceCountsForEachCharacterAndEachBreak) {
    const Page page(4, 4, dialogFont, -11);
    const int plain = page.extent(u"a b c").cx;
    SetTextCharacterExtra(page.dc(), 2);
    EXPECT_EQ(page.extent(u"a b c").cx, plain + 10);
    SetTextCharacterExtra(page.dc(), 0);
    SetTextJustification(page.dc(), 7, 2);
    EXPECT_EQ(page.extent(u"a b c").cx, plain + 7);
    SetTextJustification(page.dc(), 0, 0);
    EXPECT_EQ(page.extent(u"a b c").cx, plain);
}

TEST(Text, BytesAreReadInTheAnsiCodePage) {
    const Page page(4, 4, dialogFont, -11);
    SIZE size;
    ASSERT_TRUE(GetTextExtentPoint32A(page.dc(), "a\xF1o", 3, &size));
    EXPECT_EQ(size, page.extent(u"año"));
}

TEST(Text, TellsTheNameOfTheFont) {
    const Page page(4, 4, dialogFont, -11);
    char16_t name[LF_FACESIZE] = {};
    EXPECT_EQ(GetTextFaceW(page.dc(), LF_FACESIZE, name), 14);
    EXPECT_EQ(std::u16string_view(name), dialogFont);
    EXPECT_EQ(GetTextFaceW(page.dc(), 4, name), 4);
    EXPECT_EQ(std::u16string_view(name), u"MS ");
}

TEST(Text, NegativeLengthsFail) {
    const Page page(4, 4, dialogFont, -11);
    SIZE size;
    EXPECT_FALSE(TextOutW(page.dc(), 0, 0, u"a", -1));
    EXPECT_FALSE(GetTextExtentPoint32W(page.dc(), u"a", -1, &size));
}

TEST(Fonts, AreListedOnceEachUntilTheCallerHasEnough) {
    const Page page(4, 4, dialogFont, -11);
    std::set<std::u16string> names;
    const auto collect = [&](const ENUMLOGFONTEXW& font, const TEXTMETRICW&, DWORD) {
        names.insert(font.elfLogFont.lfFaceName);
        return 1;
    };
    LOGFONTW filter;
    EXPECT_EQ(EnumFontFamiliesExW(page.dc(), &filter, collect), 1);
    EXPECT_TRUE(names.count(u"MS Sans Serif"));
    EXPECT_TRUE(names.count(u"Tahoma"));
    EXPECT_TRUE(names.count(u"Courier New"));
    int calls = 0;
    const auto stop = [&](const ENUMLOGFONTEXW&, const TEXTMETRICW&, DWORD) {
        ++calls;
        return 0;
    };
    EXPECT_EQ(EnumFontFamiliesExW(page.dc(), &filter, stop), 0);
    EXPECT_EQ(calls, 1);
}

TEST(DrawTextTest, PlacesALineInItsRectangle) {
    const Page page(120, 60, dialogFont, -11);
    SetBkMode(page.dc(), OPAQUE);
    SetBkColor(page.dc(), RGB(0, 0, 90));
    const int width = page.extent(u"Rótulo").cx;
    const auto boxOf = [&](UINT format) {
        PatBlt(page.dc(), 0, 0, 120, 60, BLACKNESS);
        RECT rect{10, 10, 110, 50};
        EXPECT_GT(DrawTextW(page.dc(), u"Rótulo", -1, &rect, format), 0);
        return page.inked();
    };
    EXPECT_EQ(boxOf(DT_LEFT), (RECT{10, 10, 10 + width, 23}));
    EXPECT_EQ(boxOf(DT_RIGHT).right, 110);
    EXPECT_EQ(boxOf(DT_CENTER).left, 10 + (100 - width) / 2);
    EXPECT_EQ(boxOf(DT_SINGLELINE | DT_BOTTOM).bottom, 50);
    EXPECT_EQ(boxOf(DT_SINGLELINE | DT_VCENTER).top, 24);
}

TEST(DrawTextTest, MeasuresWithoutDrawing) {
    const Page page(120, 60, dialogFont, -11);
    RECT rect{5, 6, 7, 8};
    EXPECT_EQ(DrawTextW(page.dc(), u"uno\ncuatro\ndos", -1, &rect, DT_CALCRECT), 39);
    EXPECT_EQ(rect, (RECT{5, 6, 5 + page.extent(u"cuatro").cx, 45}));
    EXPECT_EQ(page.inked().right, 0);
}

TEST(DrawTextTest, BreaksLinesBetweenWords) {
    const Page page(120, 90, dialogFont, -11);
    const int room = page.extent(u"una palabra ").cx;
    RECT rect{0, 0, room, 0};
    EXPECT_EQ(DrawTextW(page.dc(), u"una palabra y otra mas", -1, &rect, DT_CALCRECT | DT_WORDBREAK), 26);
    EXPECT_EQ(rect.right, room);
    rect = {0, 0, 10, 0};
    DrawTextW(page.dc(), u"larguísima", -1, &rect, DT_CALCRECT | DT_WORDBREAK);
    EXPECT_EQ(rect.right, page.extent(u"larguísima").cx);
}

TEST(DrawTextTest, MarksAccessKeysAndHidesTheMarks) {
    const Page page(120, 40, dialogFont, -11);
    const auto widthOf = [&](const char16_t* text, UINT format) {
        RECT rect{};
        DrawTextW(page.dc(), text, -1, &rect, format | DT_CALCRECT);
        return rect.right;
    };
    EXPECT_EQ(widthOf(u"&Guardar", 0), page.extent(u"Guardar").cx);
    EXPECT_EQ(widthOf(u"a && b", 0), page.extent(u"a & b").cx);
    EXPECT_EQ(widthOf(u"&Guardar", DT_NOPREFIX), page.extent(u"&Guardar").cx);
    RECT rect{0, 0, 100, 30};
    DrawTextW(page.dc(), u"&Guardar", -1, &rect, 0);
    const int underline = page.metrics().tmAscent + 1;
    EXPECT_EQ(page.canvas().at(1, underline), white);
    EXPECT_EQ(page.canvas().at(page.extent(u"G").cx + 1, underline), RGB(0, 0, 0));
}

TEST(DrawTextTest, EndsWithDotsWhatIsTooWide) {
    const Page page(120, 40, dialogFont, -11);
    SetBkMode(page.dc(), OPAQUE);
    SetBkColor(page.dc(), RGB(0, 0, 90));
    RECT rect{0, 0, 60, 20};
    DrawTextW(page.dc(), u"Nombre y apellidos", -1, &rect, DT_SINGLELINE | DT_END_ELLIPSIS);
    EXPECT_LE(page.inked().right, 60);
    EXPECT_GT(page.inked().right, 45);
}

TEST(DrawTextTest, ExpandsTabsToEightAverageWidths) {
    const Page page(120, 40, dialogFont, -11);
    RECT rect{};
    DrawTextW(page.dc(), u"a\tb", -1, &rect, DT_CALCRECT | DT_EXPANDTABS);
    EXPECT_EQ(rect.right, 8 * page.metrics().tmAveCharWidth + page.extent(u"b").cx);
}

TEST(DrawTextTest, EmptyTextTakesTheHeightOfALine) {
    const Page page(20, 20, dialogFont, -11);
    RECT rect{3, 4, 10, 10};
    EXPECT_EQ(DrawTextW(page.dc(), u"", -1, &rect, DT_CALCRECT | DT_SINGLELINE), 13);
    EXPECT_EQ(rect, (RECT{3, 4, 3, 17}));
}

namespace {

LOGFONTW fontOf(std::u16string_view face, LONG height) {
    LOGFONTW record;
    record.lfHeight = height;
    record.lfFaceName[face.copy(record.lfFaceName, LF_FACESIZE - 1)] = 0;
    return record;
}

/// White text in any font on a canvas.
class Sheet {
public:
    explicit Sheet(const LOGFONTW& font) : canvas_(160, 160), font_(CreateFontIndirectW(&font)) {
        previous_ = SelectObject(canvas_.dc(), font_);
        SetTextColor(canvas_.dc(), white);
        SetBkMode(canvas_.dc(), TRANSPARENT);
    }
    ~Sheet() {
        SelectObject(canvas_.dc(), previous_);
        DeleteObject(font_);
    }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    HDC dc() const { return canvas_.dc(); }

    SIZE extent(std::string_view text) const {
        SIZE size;
        GetTextExtentPoint32A(dc(), text.data(), static_cast<int>(text.size()), &size);
        return size;
    }
    TEXTMETRICW metrics() const {
        TEXTMETRICW result;
        GetTextMetricsW(dc(), &result);
        return result;
    }
    /// The box of what is not black.
    RECT inked() const {
        RECT box{160, 160, 0, 0};
        for (LONG y = 0; y < 160; ++y) {
            for (LONG x = 0; x < 160; ++x) {
                if (canvas_.at(x, y) == 0) continue;
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                       std::max(box.bottom, y + 1)};
            }
        }
        return box;
    }
    COLORREF at(int x, int y) const { return canvas_.at(x, y); }

private:
    Canvas canvas_;
    HFONT font_;
    HGDIOBJ previous_;
};

} // namespace

TEST(LeaningText, RunsAlongItsEscapement) {
    LOGFONTW font = fontOf(outlineFont, -13);
    font.lfEscapement = font.lfOrientation = 900;
    const Sheet up(font);
    TextOutA(up.dc(), 40, 120, "Tesela", 6);
    const RECT box = up.inked();
    EXPECT_GT(box.bottom - box.top, 2 * (box.right - box.left));
    EXPECT_LE(box.bottom, 121) << "upwards from the point";
    EXPECT_GE(box.left, 40) << "the top of the letters is on the left";
    EXPECT_EQ(up.extent("Tesela"), Sheet(fontOf(outlineFont, -13)).extent("Tesela"));
}

TEST(LeaningText, OrientationAloneChangesNothing) {
    LOGFONTW font = fontOf(outlineFont, -13);
    font.lfOrientation = 300;
    const Sheet turned(font);
    const Sheet level(fontOf(outlineFont, -13));
    TextOutA(turned.dc(), 20, 60, "Tesela", 6);
    TextOutA(level.dc(), 20, 60, "Tesela", 6);
    EXPECT_EQ(turned.inked(), level.inked());
}

TEST(LeaningText, TheCurrentPositionGoesAlong) {
    LOGFONTW font = fontOf(outlineFont, -13);
    font.lfEscapement = font.lfOrientation = 900;
    const Sheet sheet(font);
    SetTextAlign(sheet.dc(), TA_UPDATECP);
    MoveToEx(sheet.dc(), 60, 120, nullptr);
    TextOutA(sheet.dc(), 0, 0, "Tesela", 6);
    POINT position;
    GetCurrentPositionEx(sheet.dc(), &position);
    EXPECT_EQ(position, (POINT{60, 120 - sheet.extent("Tesela").cx}));
}

TEST(LeaningText, BitmapFontsStayLevel) {
    LOGFONTW font = fontOf(dialogFont, -13);
    font.lfEscapement = font.lfOrientation = 900;
    const Sheet sheet(font);
    TextOutA(sheet.dc(), 40, 100, "Tesela", 6);
    const RECT box = sheet.inked();
    EXPECT_GT(box.right - box.left, box.bottom - box.top);
}

TEST(StretchedText, HasTheWidthThatIsAskedFor) {
    for (const std::u16string_view face : {dialogFont, outlineFont}) {
        const Sheet plain(fontOf(face, -13));
        for (const LONG width : {3, 5, 12}) {
            LOGFONTW font = fontOf(face, -13);
            font.lfWidth = width;
            const Sheet sheet(font);
            EXPECT_EQ(sheet.metrics().tmAveCharWidth, width);
            EXPECT_EQ(sheet.metrics().tmHeight, plain.metrics().tmHeight);
            const LONG own = plain.metrics().tmAveCharWidth;
            EXPECT_EQ(sheet.extent("e").cx, (plain.extent("e").cx * width + own - 1) / own);
        }
    }
}

TEST(Text, UnderlinesAndStrikesAreToldByAllBits) {
    LOGFONTW font = fontOf(outlineFont, -13);
    font.lfUnderline = 1;
    EXPECT_EQ(Sheet(font).metrics().tmUnderlined, 255);
    EXPECT_EQ(Sheet(font).metrics().tmStruckOut, 0);
    font.lfUnderline = 0;
    font.lfStrikeOut = 1;
    EXPECT_EQ(Sheet(font).metrics().tmStruckOut, 255);
}

TEST(Text, TheRoomsOfACharacterAddUpToItsWidth) {
    const Sheet sheet(fontOf(outlineFont, -24));
    ABC rooms[95];
    INT widths[95];
    ASSERT_TRUE(GetCharABCWidthsW(sheet.dc(), u' ', u'~', rooms));
    ASSERT_TRUE(GetCharWidth32W(sheet.dc(), u' ', u'~', widths));
    for (int i = 0; i < 95; ++i)
        EXPECT_EQ(rooms[i].abcA + static_cast<int>(rooms[i].abcB) + rooms[i].abcC, widths[i]) << i;
    EXPECT_EQ(rooms[0].abcB, 1u) << "a blank";
    EXPECT_FALSE(GetCharABCWidthsW(Sheet(fontOf(dialogFont, -13)).dc(), u' ', u'~', rooms));
}

TEST(Text, ExtraRoomOfJustificationIsSharedByTheBlanks) {
    const Sheet sheet(fontOf(dialogFont, -13));
    const LONG plain = sheet.extent("a b c").cx;
    const LONG untilFirst = sheet.extent("a ").cx;
    SetTextJustification(sheet.dc(), 7, 2);
    EXPECT_EQ(sheet.extent("a b c").cx, plain + 7);
    EXPECT_EQ(sheet.extent("a ").cx, untilFirst + 4) << "the first takes what is left over";
    SetTextJustification(sheet.dc(), -7, 2);
    EXPECT_EQ(sheet.extent("a b c").cx, plain + 7) << "room is never taken away";
    SetTextJustification(sheet.dc(), 0, 0);
    EXPECT_EQ(sheet.extent("a b c").cx, plain);
}

TEST(MappedText, IsScaledWithTheMappingAndMeasuredInItsUnits) {
    const Sheet large(fontOf(dialogFont, -26));
    const Sheet sheet(fontOf(dialogFont, -13));
    SetMapMode(sheet.dc(), MM_ANISOTROPIC);
    SetWindowExtEx(sheet.dc(), 100, 100, nullptr);
    SetViewportExtEx(sheet.dc(), 200, 200, nullptr);
    EXPECT_EQ(sheet.extent("Tesela").cx, (large.extent("Tesela").cx + 1) / 2);
    EXPECT_EQ(sheet.metrics().tmHeight, (large.metrics().tmHeight + 1) / 2);
    TextOutA(sheet.dc(), 0, 0, "Tesela", 6);
    TextOutA(large.dc(), 0, 0, "Tesela", 6);
    EXPECT_EQ(GetPixel(sheet.dc(), 0, 79), GetPixel(large.dc(), 0, 159));
    SetMapMode(sheet.dc(), MM_TEXT);
    EXPECT_EQ(sheet.inked(), large.inked());
}

TEST(MappedText, ExtraSpaceCountsInItsUnits) {
    const Sheet sheet(fontOf(outlineFont, -13));
    SetMapMode(sheet.dc(), MM_ANISOTROPIC);
    SetWindowExtEx(sheet.dc(), 10, 10, nullptr);
    SetViewportExtEx(sheet.dc(), 15, 15, nullptr);
    const LONG plain = sheet.extent("Tesela").cx;
    SetTextCharacterExtra(sheet.dc(), 3);
    EXPECT_EQ(sheet.extent("Tesela").cx, plain + 18);
}

TEST(Text, IsSmoothedTowardsTheColorThatTheSurfaceHas) {
    LOGFONTW record;
    record.lfHeight = -22;
    record.lfQuality = ANTIALIASED_QUALITY;
    const HFONT font = CreateFontIndirectW(&record);
    const auto drawn = [&](COLORREF color) {
        const Canvas canvas(90, 30, 16);
        const HGDIOBJ previous = SelectObject(canvas.dc(), font);
        SetBkMode(canvas.dc(), TRANSPARENT);
        SetTextColor(canvas.dc(), color);
        EXPECT_TRUE(TextOutW(canvas.dc(), 2, 2, u"Hola, mundo", 11));
        SelectObject(canvas.dc(), previous);
        std::vector<COLORREF> pixels;
        for (int i = 0; i < canvas.width() * canvas.height(); ++i)
            pixels.push_back(canvas.at(i % canvas.width(), i / canvas.width()));
        return pixels;
    };
    // Five bits a component: both are the same colour there.
    EXPECT_EQ(drawn(RGB(0xE7, 0x5A, 0x42)), drawn(RGB(0xE0, 0x5F, 0x47)));
    DeleteObject(font);
}

TEST(Text, MetricsInBytesAreThoseInCharacters) {
    const Sheet sheet(fontOf(outlineFont, -13));
    TEXTMETRICA narrow;
    ASSERT_TRUE(GetTextMetricsA(sheet.dc(), &narrow));
    EXPECT_EQ(narrow.tmHeight, sheet.metrics().tmHeight);
    EXPECT_EQ(narrow.tmAveCharWidth, sheet.metrics().tmAveCharWidth);
    EXPECT_EQ(narrow.tmPitchAndFamily, sheet.metrics().tmPitchAndFamily);
    INT wide = 0;
    INT byte = 0;
    EXPECT_TRUE(GetCharWidth32W(sheet.dc(), 0xF1, 0xF1, &wide));
    EXPECT_TRUE(GetCharWidth32A(sheet.dc(), 0xF1, 0xF1, &byte));
    EXPECT_EQ(byte, wide);
}

TEST(Text, AFontOfArgumentsIsThatOfTheRecord) {
    const HFONT font = CreateFontA(-13, 5, 300, 300, FW_BOLD, 1, 0, 1, ANSI_CHARSET, OUT_TT_PRECIS,
                                   CLIP_DEFAULT_PRECIS, PROOF_QUALITY, VARIABLE_PITCH | FF_SWISS, "Arial");
    LOGFONTW data;
    ASSERT_TRUE(GetObjectFont(font, &data));
    EXPECT_EQ(data.lfHeight, -13);
    EXPECT_EQ(data.lfWidth, 5);
    EXPECT_EQ(data.lfEscapement, 300);
    EXPECT_EQ(data.lfWeight, FW_BOLD);
    EXPECT_EQ(data.lfItalic, 1);
    EXPECT_EQ(data.lfUnderline, 0);
    EXPECT_EQ(data.lfStrikeOut, 1);
    EXPECT_EQ(data.lfQuality, PROOF_QUALITY);
    EXPECT_EQ(std::u16string_view(data.lfFaceName), u"Arial");
    DeleteObject(font);
}
