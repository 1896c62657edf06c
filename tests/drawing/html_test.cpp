// Marked-up text: styles, wrapping, measures, the words for its errors.
#include "CanvasTest.h"
#include "automation/ClassTable.h"
#include "drawing/cHTML.h"
#include "host/Form.h"
#include "host/PictureBox.h"
#include "support/Desk.h"

using namespace tesela;
using namespace tests;
using automation::Object;
using automation::Ref;
using automation::String;
using automation::Variant;

namespace {

constexpr std::int32_t width = 200, height = 100;
constexpr std::int32_t margin = 2;

class cHTML_ : public support::Started {
protected:
    cHTML_() {
        wipe(drawn);
        wipe(expected);
        html->Canvas(drawn);
        expected->SetTextColor(0);
        selectExpected(80);
        rowHeight = extentOf(u" ").cy;
    }

    static Ref<cCanvas> newCanvas() {
        auto canvas = automation::make<cCanvas>();
        canvas->Configure({}, 0, 0, width, height, DCProvider_Auto, false);
        return canvas;
    }
    static void wipe(const Ref<cCanvas>& canvas) { canvas->FillBox(0, 0, width, height, white); }
    static std::vector<std::int32_t> pixels(const Ref<cCanvas>& canvas) {
        std::vector<std::int32_t> result;
        for (std::int32_t y = 0; y < height; ++y)
            for (std::int32_t x = 0; x < width; ++x)
                result.push_back(canvas->GetPixel(x, y));
        return result;
    }
    void selectExpected(std::int32_t deciPoints, std::int32_t style = 0, String name = u"Verdana") {
        expected->SelectSimpleFont(name, deciPoints, style);
    }
    platform::SIZE extentOf(const String& text) const {
        platform::SIZE size;
        expected->GetTextExtent(text, size.cx, size.cy);
        return size;
    }
    /// Writes a text on the other canvas and gives the place behind it.
    std::int32_t write(std::int32_t x, std::int32_t y, const String& text) {
        expected->TextOut(x, y, text);
        return x + extentOf(text).cx;
    }
    void render(const String& text) {
        wipe(drawn);
        html->HTMLText(text);
        html->Render(false, maxX, maxY);
    }
    void measure(const String& text) {
        html->HTMLText(text);
        html->Render(true, maxX, maxY);
    }
    void expectAlike(const char* what = "") { EXPECT_TRUE(pixels(expected) == pixels(drawn)) << what; }

    Ref<cCanvas> drawn = newCanvas(), expected = newCanvas();
    Ref<cHTML> html = automation::make<cHTML>();
    std::int32_t maxX = -7, maxY = -7;
    std::int32_t rowHeight = 0;
};

} // namespace

TEST_F(cHTML_, PlainTextStandsAtTheMarginsInTheBaseFont) {
    write(margin, margin, u"Texto sin marcas");
    render(u"Texto sin marcas");
    expectAlike();
    EXPECT_EQ(extentOf(u"Texto sin marcas").cx, maxX);
    EXPECT_EQ(margin + rowHeight, maxY);
}

TEST_F(cHTML_, AnEmptyTextIsABlankLine) {
    render(u"");
    EXPECT_EQ(0, maxX);
    EXPECT_EQ(margin + rowHeight, maxY);
    expectAlike();
}

TEST_F(cHTML_, NothingHappensWithoutACanvasWiderThanAPixel) {
    const auto bare = automation::make<cHTML>();
    bare->Render(false, maxX, maxY);
    EXPECT_EQ(-7, maxX);
    const auto narrow = automation::make<cCanvas>();
    narrow->Configure({}, 0, 0, 1, 50, DCProvider_Auto, false);
    html->Canvas(narrow);
    html->HTMLText(u"texto");
    html->Render(false, maxX, maxY);
    EXPECT_EQ(-7, maxX);
    EXPECT_EQ(-7, maxY);
    narrow->Configure({}, 0, 0, 2, 50, DCProvider_Auto, false);
    html->Render(false, maxX, maxY);
    EXPECT_EQ(extentOf(u"texto").cx, maxX) << "two pixels are a canvas";
}

TEST_F(cHTML_, LinesBreakAtTagsAndAtAllLineEnds) {
    for (const char16_t* text : {u"uno<BR>dos<br>tres", u"uno\r\ndos\ntres", u"uno\rdos<Br>tres<BR>"}) {
        wipe(expected);
        write(margin, margin, u"uno");
        write(margin, margin + rowHeight, u"dos");
        write(margin, margin + 2 * rowHeight, u"tres");
        render(text);
        expectAlike();
        EXPECT_EQ(margin + 3 * rowHeight, maxY);
        EXPECT_EQ(std::max(extentOf(u"uno").cx, std::max(extentOf(u"dos").cx, extentOf(u"tres").cx)), maxX);
    }
    measure(u"uno<br>");
    EXPECT_EQ(margin + rowHeight, maxY) << "small letters end a text, too";
}

TEST_F(cHTML_, StylesNest) {
    std::int32_t x = write(margin, margin, u"a");
    selectExpected(80, tslFontStyleBold);
    x = write(x, margin, u"b");
    selectExpected(80, tslFontStyleBold + tslFontStyleItalic);
    x = write(x, margin, u"c");
    selectExpected(80, tslFontStyleBold + tslFontStyleItalic + tslFontStyleUnderline);
    x = write(x, margin, u"d");
    selectExpected(80, tslFontStyleBold);
    x = write(x, margin, u"e");
    selectExpected(80);
    write(x, margin, u"f");
    render(u"a<B>b<i>c<U>d</u></i>e</b>f");
    expectAlike();
}

TEST_F(cHTML_, AnyClosingTagEndsTheLastOneOpened) {
    render(u"<B>a</I>b");
    const auto wrongName = pixels(drawn);
    render(u"<B>a</B>b");
    EXPECT_TRUE(wrongName == pixels(drawn));
    render(u"<B>a</FONT>b");
    EXPECT_TRUE(wrongName == pixels(drawn));
}

TEST_F(cHTML_, FontTagsChangeFaceSizeAndColour) {
    std::int32_t x = write(margin, margin, u"a");
    selectExpected(140, 0, u"COURIER NEW");
    expected->SetTextColor(0x0000FF);
    x = write(x, margin, u"b");
    expected->SetTextColor(0);
    selectExpected(80);
    write(x, margin, u"c");
    render(u"a<font face='Courier New' size='14' color='FF0000'>b</font>c");
    expectAlike();
    render(u"a<FONT COLOR='FF0000' SIZE='14' FACE='Courier New'>b</FONT>c");
    expectAlike("in any order");
    render(u"a<FONT COLOR='#FF0000' SIZE='14pt' FACE='Courier New'>b</FONT>c");
    expectAlike("only the last six digits and the leading number count");
}

TEST_F(cHTML_, AShortColourIsCompletedWithZeros) {
    expected->SetTextColor(0x000F00); // red 00, green 0F, blue 00
    write(margin, margin, u"x");
    render(u"<FONT COLOR='F00'>x");
    expectAlike();
}

TEST_F(cHTML_, AColourIsReadFromItsBlueUpToWhatIsNoDigit) {
    expected->SetTextColor(0x000034);
    write(margin, margin, u"x");
    render(u"<FONT COLOR='12ZZ34'>x");
    expectAlike();
}

TEST_F(cHTML_, OnlyTheApostropheEndsAValue) {
    selectExpected(80, 0, u"COURIER NEW\" SIZE=");
    write(margin, margin, u"x");
    render(u"<FONT FACE=\"Courier New\" SIZE='8'>x");
    expectAlike("the double quote belongs to the name");
    wipe(expected);
    selectExpected(120);
    write(margin, margin, u"x");
    render(u"<FONT SIZE=\"12\">x");
    expectAlike("yet a number ends where it ends");
}

TEST_F(cHTML_, AValueBeginsBehindTheQuoteThatIsExpected) {
    selectExpected(40);
    write(margin, margin, u"x");
    render(u"<FONT SIZE=14>x");
    expectAlike("the first digit stands where the quote should");
}

TEST_F(cHTML_, SizesAreRoundedToTheEvenNumber) {
    for (const auto& [size, points] : {std::pair{u"8.5", 8}, {u"9.5", 10}, {u"11.4", 11}}) {
        wipe(expected);
        selectExpected(points * 10);
        write(margin, margin, u"x");
        render(String(u"<FONT SIZE='") + size + u"'>x");
        expectAlike(String(size).utf8().c_str());
    }
    constexpr std::int32_t overflow = 6;
    EXPECT_EQ(overflow, errorOf([this] { render(u"<FONT SIZE='1E20'>x"); }));
}

TEST_F(cHTML_, AFontTagRightBehindABracketIsOpenedTwice) {
    std::int32_t x = write(margin, margin, u"a>");
    expected->SetTextColor(0x00FF00);
    x = write(x, margin, u"b");
    expected->SetTextColor(0);
    write(x, margin, u"c");
    render(u"a><FONT COLOR='00FF00'>b</FONT></FONT>c");
    expectAlike("and closed twice without an error");
}

TEST_F(cHTML_, UnknownTagsArePlainText) {
    for (const char16_t* text : {u"uno <p> dos", u"uno <> dos", u"<IMG> a", u"a </p> b", u"a <strong> b"}) {
        wipe(expected);
        write(margin, margin, text);
        render(text);
        expectAlike(String(text).utf8().c_str());
        EXPECT_EQ(extentOf(text).cx, maxX);
        EXPECT_EQ(margin + rowHeight, maxY);
    }
}

TEST_F(cHTML_, ABracketWithoutAnEndNearbyStartsTheChunkAnew) {
    wipe(expected);
    write(margin, margin, u"<una etiqueta muy larga");
    render(u"<p><una etiqueta muy larga");
    expectAlike("what was passed before it is dropped");
    wipe(expected);
    write(margin, margin, u"<p> <una etiqueta muy larga");
    render(u"<p> <una etiqueta muy larga");
    expectAlike("unless there is something between");
}

TEST_F(cHTML_, AClosingTagTooManyIsWrittenAndRenderingGoesOn) {
    // The message stands where the text before it begins, which is written over it.
    write(margin, margin, u"Error en texto HTML");
    write(margin, margin, u"a");
    write(margin + extentOf(u"a").cx, margin, u"hi"); // ten characters are dropped
    render(u"a</B>bcdefghi");
    expectAlike();
    wipe(drawn);
    measure(u"a</B>bcdefghi");
    wipe(expected);
    write(margin, margin, u"Error en texto HTML");
    expectAlike("written when only measuring, too");
}

TEST_F(cHTML_, AMessageStandsWhereTheTextBeforeItsPieceEnds) {
    write(margin, margin, u"uno");
    const std::int32_t x = write(margin, margin + rowHeight, u"dos");
    write(x, margin + rowHeight, u"Error en texto HTML");
    write(x, margin + rowHeight, u"a");
    render(u"uno<BR>dos<I></I>a</B>bcdef<BR>");
    expectAlike();
}

TEST_F(cHTML_, WhatIsLeftOfATagThatAnErrorCutIsDropped) {
    // The ten characters that are dropped reach into the break at the end of the text.
    for (const char16_t* text : {u"a</B>bcd", u"a</B>bcde", u"a</B>bcdef"}) {
        measure(text);
        EXPECT_EQ(margin + rowHeight, maxY) << "the line that has begun counts";
        EXPECT_EQ(extentOf(u"a").cx, maxX);
    }
}

TEST_F(cHTML_, AHundredAndOneTagsAreTooManyAtOnce) {
    String text;
    for (int i = 0; i < 100; ++i)
        text += u"<B>";
    selectExpected(80, tslFontStyleBold);
    write(margin, margin, u"x");
    render(text + u"x");
    expectAlike("a hundred are not");
    wipe(expected);
    write(margin, margin, u"HTML demasiado complejo");
    write(margin, margin, u"x");
    write(margin + extentOf(u"x").cx, margin, u"ghi");
    render(text + u"x<I>yabcdefghi");
    expectAlike();
}

TEST_F(cHTML_, LinesWrapAtTheLastBlankThatFits) {
    const std::int32_t limit = margin + extentOf(u"uno dos tr").cx;
    html->SetMargenes(margin, margin, limit);
    write(margin, margin, u"uno dos ");
    write(margin, margin + rowHeight, u"tres");
    render(u"uno dos tres");
    expectAlike();
    EXPECT_EQ(extentOf(u"uno dos ").cx, maxX);
    EXPECT_EQ(margin + 2 * rowHeight, maxY);
}

TEST_F(cHTML_, LinesWrapAtTheFirstSeparatorOfFiveThatFits) {
    for (const char16_t* separator : {u",", u":", u";", u"."}) {
        const String head = String(u"uno.dos") + separator;
        const std::int32_t limit = margin + extentOf(head + u"tr").cx;
        html->SetMargenes(margin, margin, limit);
        wipe(expected);
        write(margin, margin, head);
        write(margin, margin + rowHeight, u"tres");
        render(head + u"tres");
        expectAlike(String(separator).utf8().c_str());
    }
    for (const char16_t* order : {u" ,", u",:", u":;", u";."}) {
        const String first(std::u16string_view(order, 1)), second(std::u16string_view(order + 1, 1));
        const String head = u"ab" + first, tail = u"cd" + second + u"efgh";
        html->SetMargenes(margin, margin, margin + extentOf(head + u"cd" + second + u"ef").cx);
        wipe(expected);
        write(margin, margin, head);
        write(margin, margin + rowHeight, tail);
        render(head + tail);
        expectAlike(String(order).utf8().c_str());
    }
}

TEST_F(cHTML_, TheWidestOfTheWrappedPiecesCounts) {
    html->SetMargenes(margin, margin, margin + extentOf(u"mmmm n").cx);
    measure(u"mmmm nnn mmmm");
    EXPECT_EQ(margin + 3 * rowHeight, maxY);
    EXPECT_EQ(extentOf(u"mmmm ").cx, maxX);
    expectAlike("nothing is drawn");
}

TEST_F(cHTML_, LinesAboveTheSurfaceDoNotCountBelowZero) {
    html->SetMargenes(margin, -1000);
    measure(u"uno<BR>dos");
    EXPECT_EQ(0, maxY);
}

TEST_F(cHTML_, TheWidthOfAWrappedPieceCountsFromItsOwnBeginning) {
    const std::int32_t limit = margin + extentOf(u"aaa").cx + extentOf(u" bb c").cx;
    html->SetMargenes(margin, margin, limit);
    measure(u"aaa<I></I> bb ccc");
    const std::int32_t aaa = extentOf(u"aaa").cx, piece = extentOf(u" bb ").cx, rest = extentOf(u"ccc").cx;
    EXPECT_EQ(std::max(aaa, std::max(piece, rest)), maxX) << "not the line's whole width";
    EXPECT_LT(maxX, aaa + piece);
    EXPECT_EQ(margin + 2 * rowHeight, maxY);
}

TEST_F(cHTML_, AWordLongerThanTheLineIsCut) {
    const std::int32_t limit = margin + extentOf(u"abcde").cx;
    html->SetMargenes(margin, margin, limit);
    write(margin, margin, u"abcde");
    write(margin, margin + rowHeight, u"fghi");
    render(u"abcdefghi");
    expectAlike();
    EXPECT_EQ(extentOf(u"abcde").cx, maxX);
}

TEST_F(cHTML_, ABlankLeftOverByAWrapTakesNoLine) {
    const std::int32_t word = extentOf(u"abcde").cx;
    html->SetMargenes(margin, margin, margin + word);
    write(margin, margin, u"abcde");
    render(u"abcde ");
    expectAlike();
    EXPECT_EQ(word, maxX);
    EXPECT_EQ(margin + rowHeight, maxY) << "what is left has no height";
    write(margin, margin + rowHeight, u"fg");
    render(u"abcde <I></I>fg");
    expectAlike("what follows stands on the line that was begun");
    EXPECT_EQ(margin + 2 * rowHeight, maxY);
}

TEST_F(cHTML_, AWordThatWouldFitAloneGoesToTheNextLine) {
    const std::int32_t limit = margin + extentOf(u"abcdef").cx;
    html->SetMargenes(margin, margin, limit);
    write(margin, margin, u"abc");
    selectExpected(80, tslFontStyleBold);
    write(margin, margin + rowHeight, u"def");
    render(u"abc<B>def</B>");
    expectAlike();
    EXPECT_EQ(margin + 2 * rowHeight, maxY);
    selectExpected(160);
    const std::int32_t large = extentOf(u"def").cy;
    html->SetMargenes(margin, margin, margin + extentOf(u"def").cx);
    measure(u"abc<FONT SIZE='16'>def</FONT>");
    EXPECT_EQ(margin + 2 * large, maxY) << "its height was the first line's, too, when it was measured";
}

TEST_F(cHTML_, WhereNotOneCharacterFitsTheWholeIsWritten) {
    html->SetMargenes(margin, margin, margin + 1);
    write(margin, margin, u"ancho");
    render(u"ancho");
    expectAlike();
    EXPECT_EQ(extentOf(u"ancho").cx, maxX);
}

TEST_F(cHTML_, WithoutARightLimitNothingWraps) {
    for (const std::int32_t limit : {0, -5}) {
        html->SetMargenes(margin, margin, limit);
        measure(u"una línea bastante más ancha que la superficie entera donde se dibuja el texto");
        EXPECT_EQ(margin + rowHeight, maxY);
        EXPECT_GT(maxX, width);
        measure(u"una <I>línea</I> en <U>varias</U> partes");
        EXPECT_EQ(margin + rowHeight, maxY) << limit;
    }
}

TEST_F(cHTML_, ALineIsAsHighAsItsHighestLetters) {
    selectExpected(160);
    const std::int32_t large = extentOf(u"b").cy;
    measure(u"a<FONT SIZE='16'>b</FONT>c<BR>d");
    EXPECT_EQ(margin + large + rowHeight, maxY);
}

TEST_F(cHTML_, MeasuringDrawsNothing) {
    render(u"a <B>b</B><BR>c");
    const std::int32_t x = maxX, y = maxY;
    wipe(drawn);
    measure(u"a <B>b</B><BR>c");
    EXPECT_TRUE(pixels(expected) == pixels(drawn));
    EXPECT_EQ(x, maxX);
    EXPECT_EQ(y, maxY);
}

TEST_F(cHTML_, TooManyLinesAreCut) {
    EXPECT_EQ(100, html->MaxLineas());
    html->MaxLineas(2);
    write(margin, margin, u"uno");
    write(margin, margin + rowHeight, u"dos");
    write(margin, margin + 2 * rowHeight, u"(...)");
    render(u"uno<BR>dos<BR>tres<BR>cuatro");
    expectAlike();
    EXPECT_EQ(margin + 3 * rowHeight, maxY);
    render(u"uno<BR>dos");
    expectAlike("even where there is no more");
}

TEST_F(cHTML_, WrappingPastTheLimitOfLinesCutsNothing) {
    html->MaxLineas(1);
    html->SetMargenes(margin, margin, margin + extentOf(u"uno d").cx);
    write(margin, margin, u"uno ");
    write(margin, margin + rowHeight, u"dos ");
    write(margin, margin + 2 * rowHeight, u"tres");
    render(u"uno dos tres");
    expectAlike();
}

TEST_F(cHTML_, AFontTagAfterABracketOfItsOwnIsAnInvalidCall) {
    constexpr std::int32_t invalidCall = 5;
    EXPECT_EQ(invalidCall, errorOf([this] { render(u"a > b <FONT SIZE='9'>c"); }));
    EXPECT_EQ(0, maxX) << "nothing was laid out";
    EXPECT_EQ(0, maxY);
    render(u"a<B>b");
    EXPECT_GT(maxX, 0) << "the object goes on";
}

TEST_F(cHTML_, TheBaseFontIsSetByUnevenRules) {
    html->SetBaseFont(u"", 12, false, 0);
    selectExpected(120);
    write(margin, margin, u"doce");
    render(u"doce");
    expectAlike("the name stays");
    html->SetBaseFont(u"Arial", 10, false, 150);
    wipe(expected);
    selectExpected(150, 0, u"Arial");
    write(margin, margin, u"zoom");
    render(u"zoom");
    expectAlike("the zoom counts");
    html->SetBaseFont(u"Arial", 10, false, -3);
    render(u"zoom");
    expectAlike("and stays");
    html->SetBaseFont(u"Arial", 9, false, 150);
    wipe(expected);
    selectExpected(135, 0, u"Arial");
    write(margin, margin, u"zoom");
    render(u"zoom");
    expectAlike("tenths of a point are what is rounded");
    html->SetBaseFont(u"Arial", 1000, false, 1);
    wipe(expected);
    selectExpected(100, 0, u"Arial");
    write(margin, margin, u"zoom");
    render(u"zoom");
    expectAlike("one in a hundred is a zoom");
    html->SetBaseFont(u"Arial", 1200, true);
    html->SetBaseFont(u"Arial", 1000);
    render(u"zoom");
    expectAlike("points again, where pixels aren't asked for");
}

TEST_F(cHTML_, AFontSetWithoutASizeStaysWithoutOne) {
    html->SetBaseFont(u"Arial");
    html->SetBaseFont(u"Arial", 12);
    selectExpected(0, 0, u"Arial");
    write(margin, margin, u"cero");
    render(u"cero");
    expectAlike();
}

TEST_F(cHTML_, SizesMayCountInPixels) {
    html->SetBaseFont(u"Arial", 20, true, 50);
    expected->SelectFont(u"Arial", 10);
    std::int32_t x = write(margin, margin, u"a");
    expected->SelectFont(u"Arial", 15, 0, true, true, false, 0, 0, 700);
    write(x, margin, u"b");
    render(u"a<B><I><U><FONT SIZE='30'>b");
    expectAlike();
}

TEST_F(cHTML_, EndsInTheBaseFontAndBlack) {
    render(u"<B><FONT COLOR='00FF00'>x");
    platform::LOGFONTW font;
    platform::GetObjectFont(
        platform::HFONT(platform::GetCurrentObject(drawn->GetPaintDC(), platform::OBJ_FONT).value), &font);
    EXPECT_EQ(500, font.lfWeight);
    EXPECT_EQ(0, font.lfCharSet);
    EXPECT_EQ(0u, platform::GetTextColor(drawn->GetPaintDC()));
    html->SetBaseFont(u"Arial", 20, true);
    render(u"<B><FONT COLOR='00FF00'>x");
    platform::GetObjectFont(
        platform::HFONT(platform::GetCurrentObject(drawn->GetPaintDC(), platform::OBJ_FONT).value), &font);
    EXPECT_EQ(400, font.lfWeight) << "in pixels";
    EXPECT_EQ(20, font.lfHeight);
    EXPECT_EQ(1, font.lfCharSet);
}

TEST_F(cHTML_, RendersIntoACell) {
    html->Canvas({});
    html->RenderInGrid(drawn, u"uno dos", 150);
    write(margin, margin, u"uno dos");
    expectAlike();
    EXPECT_FALSE(html->Canvas()) << "the surface is let go";
    EXPECT_EQ(u"uno dos", html->HTMLText());
    wipe(drawn);
    wipe(expected);
    html->RenderInGrid(drawn, u"uno", 150, u"Arial", 18);
    expected->SelectFont(u"Arial", 18);
    write(margin, margin, u"uno");
    expectAlike("pixels with a name and a size");
    wipe(drawn);
    html->RenderInGrid(drawn, u"uno", 150, u"Courier", 0);
    expectAlike("a name alone changes nothing");
}

namespace {

/// A picture box on a form, in one colour.
class cHTML_InAPictureBox : public cHTML_ {
protected:
    void open(float boxWidth, float boxHeight, host::OLE_COLOR color) {
        form->SetClientSize(4000, 3000);
        form->Show();
        box = &form->add<host::PictureBox>(u"PBox1");
        box->Extender().Move(0, 0, boxWidth, boxHeight);
        box->AutoRedraw(true);
        box->BackColor(color);
        box->Cls();
        object = Ref<Object>(box);
    }
    ~cHTML_InAPictureBox() override { form->unload(); }

    void expectShown(const Ref<cCanvas>& canvas, std::int32_t columns, std::int32_t rows) {
        int different = 0;
        for (std::int32_t y = 0; y < rows; ++y)
            for (std::int32_t x = 0; x < columns; ++x)
                different += platform::GetPixel(box->hDC(), x, y) !=
                             static_cast<platform::COLORREF>(canvas->GetPixel(x, y));
        EXPECT_EQ(0, different);
    }

    support::Desk desk;
    Ref<host::Form> form = automation::make<host::Form>(u"Form1");
    host::PictureBox* box = nullptr;
    Ref<Object> object;
};

} // namespace

TEST_F(cHTML_InAPictureBox, RendersOverWhatItShows) {
    open(3000, 1500, yellow);
    box->Font()->Name(u"Arial");
    box->Font()->Size(automation::Currency(20));
    html->RenderInPBox(object, u"<B>uno</B>", true);
    EXPECT_FALSE(html->Canvas());
    expected->FillBox(0, 0, width, height, yellow);
    expected->SelectFont(u"Arial", 20, 0, false, false, false, 0, 0, 700);
    write(margin, margin, u"uno");
    expectShown(expected, 150, 60);
}

TEST_F(cHTML_InAPictureBox, AMarginBeyondTheBoxLeavesNothingToSee) {
    open(1500, 1500, yellow);
    expected->FillBox(0, 0, width, height, yellow);
    for (const std::int32_t left : {2'000'000'000, -2'000'000'000}) {
        html->SetMargenes(left, 2, 0);
        html->RenderInPBox(object, u"uno dos");
        expectShown(expected, 50, 50);
    }
}

TEST_F(cHTML_InAPictureBox, WrapsWithinItsMargins) {
    open(1500, 1500, white);
    box->ScaleMode(host::ScaleMode::Pixels);
    const auto columns = static_cast<std::int32_t>(box->ScaleWidth());
    const auto rows = static_cast<std::int32_t>(box->ScaleHeight());
    constexpr std::int32_t left = 7, top = 5;
    const String text = u"un texto que se parte en varias";
    html->SetMargenes(left, top, 3); // the right limit is the box's
    html->RenderInPBox(object, text);
    const auto cell = automation::make<cCanvas>();
    cell->Configure({}, 0, 0, columns, rows, DCProvider_Auto, false);
    cell->FillBox(0, 0, columns, rows, white);
    const auto other = automation::make<cHTML>();
    other->Canvas(cell);
    other->HTMLText(text);
    other->SetMargenes(left, top, columns - 2 * left);
    other->Render(false, maxX, maxY);
    EXPECT_GT(maxY, top + rowHeight) << "it wraps";
    expectShown(cell, columns, rows);
}

namespace {

/// A box that has no context yet and notes what is asked of it.
class NotingBox : public Object {
public:
    bool HasDC() const { return false; }
    bool AutoRedraw() const { return false; }
    void AutoRedraw(bool value) { noted += value ? "AutoRedraw " : "?"; }
    void Refresh() { noted += "Refresh "; }

    const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<NotingBox>("PictureBox")
                .get("HasDC", &NotingBox::HasDC)
                .property("AutoRedraw", static_cast<bool (NotingBox::*)() const>(&NotingBox::AutoRedraw),
                          static_cast<void (NotingBox::*)(bool)>(&NotingBox::AutoRedraw))
                .method("Refresh", &NotingBox::Refresh);
        return table;
    }

    std::string noted;
};

} // namespace

TEST_F(cHTML_, TellsAPictureBoxToRedrawAndToShow) {
    const auto box = automation::make<NotingBox>();
    Ref<Object> object(box);
    html->RenderInPBox(object, u"x");
    EXPECT_EQ("AutoRedraw Refresh ", box->noted);
}

TEST_F(cHTML_, LeavesWhatIsNoPictureBoxAlone) {
    Ref<Object> nothing;
    constexpr std::int32_t objectNotSet = 91, noMember = 438;
    EXPECT_EQ(objectNotSet, errorOf([&] { html->RenderInPBox(nothing, u"x"); }));
    Ref<Object> other(drawn);
    EXPECT_EQ(noMember, errorOf([&] { html->RenderInPBox(other, u"x"); })) << "it can't be told to redraw";
}

TEST_F(cHTML_, IsCalledByName) {
    const auto& table = cHTML::table();
    ASSERT_EQ(11u, table.members().size());
    using automation::callMethod;
    automation::setProperty(*html, u"Canvas", Variant(drawn));
    automation::setProperty(*html, u"HTMLText", u"uno");
    automation::setProperty(*html, u"MaxLineas", 5);
    EXPECT_EQ(u"uno", automation::getProperty(*html, u"HTMLText").asString());
    EXPECT_EQ(5, automation::getProperty(*html, u"maxlineas").asLong());
    callMethod(*html, u"SetMargenes", 3, 4);
    callMethod(*html, u"SetBaseFont", u"Verdana", 8);
    callMethod(*html, u"Render", false, Variant::byRef(maxX), Variant::byRef(maxY));
    EXPECT_EQ(4 + rowHeight, maxY);
    callMethod(*html, u"Render", true);
    write(3, 4, u"uno");
    expectAlike();
    callMethod(*html, u"RenderInGrid", Variant(drawn), u"dos", 100);
    EXPECT_TRUE(automation::getProperty(*html, u"Canvas").isNothing());
}
