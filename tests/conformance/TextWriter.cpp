#include "conformance/TextWriter.h"

namespace conformance {

using namespace platform;

void TextWriter::font() {
    Call font = call("font = CreateFont");
    const bool ofCell = dice.oneIn(2); // or of the letters alone
    font.number(ofCell ? dice.between(8, 32) : -dice.between(6, 24));
    const bool hasWidth = dice.oneIn(6);
    font.number(hasWidth ? dice.between(3, 20) : 0);
    const bool leans = dice.oneIn(5);
    font.number(leans ? dice.of({900, 1800, 2700, 450, 300, 3550, 123}) : 0);
    font.number(dice.of({0, 400, 500, 700}));
    const bool slanted = dice.oneIn(4);
    const bool underlined = dice.oneIn(5);
    const bool struckOut = dice.oneIn(6);
    font.number(slanted).number(underlined).number(struckOut);
    font.number(dice.of({DEFAULT_QUALITY, NONANTIALIASED_QUALITY, ANTIALIASED_QUALITY}));
    font.word(std::string("\"") +
              dice.of({"Arial", "Times New Roman", "Courier New", "Verdana", "Tahoma", "MS Sans Serif",
                       "Courier"}) +
              "\"");
    gdi(font);
    line("gdi SelectObject font");
}

std::string TextWriter::words() {
    return std::string("\"") +
           dice.of({"Hola, mundo", "Wij", "fi fl AV To", "1.234,56", "&Guardar como...", "iiii MMMM", "g",
                    "Una frase de varias palabras"}) +
           "\"";
}

void TextWriter::textState() {
    if (dice.oneIn(2)) gdi(call("SetBkMode").number(TRANSPARENT));
    if (dice.oneIn(4)) gdi(call("SetTextAlign").number(dice.of({0, 2, 6, 8, 24, 30, 10, 26})));
    if (dice.oneIn(5)) gdi(call("SetTextCharacterExtra").some(1, -2, 5));
    if (dice.oneIn(6)) gdi(call("SetTextJustification").some(1, 0, 20).some(1, 0, 4));
}

void TextWriter::letters() {
    font();
    textState();
    const std::string said = words();
    show(call("TextExtent").word(said));
    show(call("TextFit").some(1, 0, 90).word(said));
    switch (dice.between(0, 2)) {
    case 0:
        show(call("DrawText").box(5, 70).number(format()).word(said));
        return;
    case 1:
        show(call("ExtTextOut").some(2, -4, 40).number(dice.of({0, 2, 4, 6})).box(5, 60).word(said));
        return;
    default:
        show(call("TextOut").some(2, -4, 40).word(said));
    }
}

void TextWriter::mappedLetters() {
    letterMapping();
    const bool isTurned = dice.oneIn(5);
    const std::string family = dice.of({"Arial", "Times New Roman", "Courier New", "Verdana"});
    gdi(outlineFont(isTurned).number(DEFAULT_QUALITY).word('"' + family + '"'));
    line("gdi SelectObject font");
    // Under turned text the whole box is filled elsewhere.
    if (isTurned || dice.oneIn(2)) gdi(call("SetBkMode").number(TRANSPARENT));
    placing();
    // The other files name another character than the space to be widened.
    const bool isJustified = family == "Verdana" && dice.oneIn(2);
    if (isJustified) gdi(call("SetTextJustification").some(1, -5, 30).some(1, 1, 4));
    const std::string said = words();
    show(call("TextExtent").word(said));
    show(call("TextFit").some(1, 0, 90).word(said));
    show(call("TextOut").some(2, -20, 60).word(said));
    if (dice.oneIn(3)) show(call("GetCurrentPositionEx"));
}

void TextWriter::outlinedLetters() {
    if (dice.oneIn(3)) letterMapping();
    const bool isTurned = dice.oneIn(5);
    const std::string family = dice.of({"Arial", "Verdana", "Courier New"});
    gdi(outlineFont(isTurned)
            .number(dice.of({DEFAULT_QUALITY, NONANTIALIASED_QUALITY}))
            .word('"' + family + '"'));
    line("gdi SelectObject font");
    placing();
    gdi(call("pen = CreatePen").number(dice.of({PS_SOLID, PS_SOLID, PS_DOT})).some(1, 0, 4).color());
    line("gdi SelectObject pen");
    gdi(call("brush = CreateSolidBrush").color());
    line("gdi SelectObject brush");
    if (dice.oneIn(2)) gdi(call("SetPolyFillMode").some(1, ALTERNATE, WINDING));
    line("gdi BeginPath");
    const std::string said = dice.of({"\"HELFITZ\"", "\"TIX\"", "\"LEX\"", "\"FILE HIT\"", "\"T\""});
    show(call("TextOut").some(2, -20, 40).word(said));
    if (dice.oneIn(4)) show(call("ExtTextOut").some(2, -4, 40).some(1, 0, 2).box(5, 60).word("\"EFIL\""));
    line("gdi EndPath");
    show(call("GetPath"));
    usePath();
}

void TextWriter::usePath() {
    const std::string use =
        dice.of({"StrokePath", "FillPath", "StrokeAndFillPath", "SelectClipPath", "PathToRegion"});
    if (use == "SelectClipPath") {
        gdi(call(use).some(1, RGN_AND, RGN_COPY));
        show(call("GetClipBox"));
        line("gdi PatBlt 0 0 64 64 0x00F00021");
    } else if (use == "PathToRegion") {
        line("gdi area = PathToRegion");
        line("show gdi GetRgnBox area");
        line("gdi InvertRgn area");
    } else {
        line("gdi " + use);
    }
}

void TextWriter::recordedLetters() {
    if (dice.oneIn(4)) mapping();
    line("BeginRecordMetafile");
    if (dice.oneIn(3)) letterMapping();
    for (int i = dice.between(1, 2); i > 0; --i)
        recordedText();
    line("record = EndRecordMetafile False");
    playRecord();
    line("show DeleteMetafile record");
}

void TextWriter::recordedText() {
    const bool isTurned = dice.oneIn(5);
    const std::string family = dice.of({"Arial", "Times New Roman", "Courier New", "Verdana"});
    // Lines are held to a rectangle here, but not elsewhere.
    const bool isClipped = dice.oneIn(6);
    gdi(outlineFont(isTurned, !isClipped).number(DEFAULT_QUALITY).word('"' + family + '"'));
    line("gdi SelectObject font");
    // Under turned text the whole box is filled elsewhere.
    gdi(call("SetBkMode").number(isTurned ? TRANSPARENT : dice.between(TRANSPARENT, OPAQUE)));
    if (dice.oneIn(2)) gdi(call("SetTextColor").color());
    placing();
    // The other files name another character than the space to be widened.
    if (family == "Verdana" && dice.oneIn(2)) {
        gdi(call("SetTextJustification").some(1, -5, 30).some(1, 1, 4));
    } else {
        line("gdi SetTextJustification 0 0");
    }
    const std::string said = words();
    show(call("TextExtent").word(said));
    if (isClipped || dice.oneIn(6)) {
        const int options = (isClipped ? ETO_CLIPPED : 0) | (dice.oneIn(2) ? ETO_OPAQUE : 0);
        show(call("ExtTextOut").some(2, -4, 40).number(options).box(5, 60).word(said));
    } else {
        show(call("TextOut").some(2, -4, 40).word(said));
    }
}

void TextWriter::playRecord() {
    Call play = call("show PlayMetafile record").some(2, -8, 8);
    const std::string form = dice.of({"whole", "doubled", "halved", "narrowed", "flattened", "any"});
    if (form == "whole") play.number(64).number(64);
    if (form == "doubled") play.number(128).number(128);
    if (form == "halved") play.number(32).number(32);
    if (form == "narrowed") play.number(40).number(64);
    if (form == "flattened") play.number(64).number(40);
    if (form == "any") play.size(20, 150);
    line(play);
}

void TextWriter::letterMapping() {
    gdi(call("SetMapMode").number(dice.of({MM_ISOTROPIC, MM_ANISOTROPIC, MM_ANISOTROPIC})));
    const auto length = [this] { return dice.of({32, 48, 64, 64, 100, 150, -64, -48}); };
    gdi(call("SetWindowExtEx").number(length()).number(length()));
    gdi(call("SetViewportExtEx").number(length()).number(length()));
    if (dice.oneIn(2)) gdi(call("SetWindowOrgEx").some(2, -40, 40));
    if (dice.oneIn(2)) gdi(call("SetViewportOrgEx").some(2, -20, 60));
}

Call TextWriter::outlineFont(bool isTurned, bool hasLines) {
    Call font = call("font = CreateFont");
    const bool ofCell = dice.oneIn(2);
    font.number(ofCell ? dice.between(8, 40) : -dice.between(6, 30));
    const bool hasWidth = dice.oneIn(6);
    font.number(hasWidth ? dice.between(3, 20) : 0);
    font.number(isTurned ? dice.of({900, 1800, 2700, 450, 3550, 123}) : 0);
    font.number(dice.of({400, 700}));
    font.number(dice.oneIn(4)).number(hasLines && dice.oneIn(2));
    return font.number(hasLines && dice.oneIn(2));
}

void TextWriter::placing() {
    if (dice.oneIn(3)) gdi(call("SetTextAlign").number(dice.of({2, 6, 8, 24, 30, 10, 26, 1, 25})));
    if (dice.oneIn(4)) gdi(call("SetTextCharacterExtra").some(1, -2, 5));
    if (dice.oneIn(2)) gdi(call("MoveToEx").some(2, -20, 60));
}

int TextWriter::format() {
    UINT format = dice.oneIn(6) ? DT_CALCRECT : 0;
    for (const UINT flag : {DT_CENTER, DT_RIGHT, DT_VCENTER, DT_BOTTOM, DT_WORDBREAK, DT_SINGLELINE,
                            DT_NOCLIP, DT_NOPREFIX, DT_END_ELLIPSIS})
        if (dice.oneIn(3)) format |= flag;
    return static_cast<int>(format);
}

} // namespace conformance
