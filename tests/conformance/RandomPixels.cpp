#include "conformance/RandomPixels.h"

#include "conformance/Dice.h"
#include "platform/gdi_types.h"

#include <cstdint>
#include <iterator>

namespace conformance {

using namespace platform;

namespace {

/// One line, word after word. The words are joined in a chain, so that the order in which the dice fall is
/// the same with every compiler.
class Call {
public:
    Call(Dice& dice, const std::string& words) : dice_(dice), text_(words) {}

    Call& word(const std::string& word) {
        text_ += " " + word;
        return *this;
    }
    Call& number(std::int64_t number) { return word(std::to_string(number)); }
    Call& some(int count, int low, int high) {
        for (int i = 0; i < count; ++i)
            number(dice_.between(low, high));
        return *this;
    }
    Call& color() {
        const bool plain = dice_.oneIn(3);
        return number(plain ? dice_.of({0, 0xFFFFFF, 0xFF, 0xFF00, 0xFF0000, 0x808080})
                            : dice_.between(0, 0xFFFFFF));
    }
    /// A place on the target.
    Call& place() { return some(2, -8, 56); }
    Call& size(int least, int most) { return some(2, least, most); }
    /// Some of them below zero.
    Call& turnedSize() {
        const int width = dice_.between(1, 60);
        number(dice_.oneIn(5) ? -width : width);
        const int height = dice_.between(1, 60);
        return number(dice_.oneIn(5) ? -height : height);
    }
    /// Left, top, right and bottom.
    Call& box(int least, int most) {
        const int left = dice_.between(-4, 60 - least);
        const int top = dice_.between(-4, 60 - least);
        number(left).number(top);
        return number(left + dice_.between(least, most)).number(top + dice_.between(least, most));
    }
    /// An operation of all 256.
    Call& operation() { return number(dice_.oneIn(2) ? 0x00CC0020 : dice_.between(0, 255) << 16); }

    const std::string& text() const { return text_; }

private:
    Dice& dice_;
    std::string text_;
};

/// A rectangle of the source, which is 40 by 40.
struct SourceArea {
    int x, y, width, height;
};

/// Writes a script line by line.
class Writer {
public:
    explicit Writer(int seed) : dice(static_cast<std::uint64_t>(seed)) {}

    Dice dice;
    std::string text;

    Call call(const std::string& name) { return {dice, name}; }
    void line(const std::string& words) { text += words + '\n'; }
    void gdi(const Call& call) { line("gdi " + call.text()); }
    void show(const Call& call) { line("show gdi " + call.text()); }

    // Surfaces and state
    std::string depth() { return dice.of({"32", "32", "32", "24", "16", "8", "4", "1", "1c"}); }
    void surface(const std::string& name, int side, const std::string& kind) {
        line(call("surface").word(name).number(side).number(side).word(kind).text());
        gdi(call("Noise").some(1, 0, 9999));
        if (dice.oneIn(2)) gdi(call("SetTextColor").color());
        if (dice.oneIn(2)) gdi(call("SetBkColor").color());
    }
    void target(const std::string& kind) {
        surface("main", 64, kind);
        if (dice.oneIn(3)) clip();
    }
    /// A target and a source, and then the target again.
    void surfaces() {
        const std::string kind = depth();
        target(kind);
        surface("other", 40, depth());
        line("on main");
        gdi(call("SetStretchBltMode").some(1, BLACKONWHITE, COLORONCOLOR));
        // On 1 bit other colours would be patterns.
        if (kind[0] == '1') {
            gdi(call("brush = CreateSolidBrush").number(dice.of({0, 0xFFFFFF})));
        } else {
            gdi(call("brush = CreateSolidBrush").color());
        }
        line("gdi SelectObject brush");
    }
    void clip() {
        if (dice.oneIn(2)) gdi(call("IntersectClipRect").box(10, 60));
        for (int i = dice.between(0, 3); i > 0; --i)
            gdi(call("ExcludeClipRect").box(1, 30));
    }
    void mapping() {
        gdi(call("SetMapMode").number(dice.of({MM_ISOTROPIC, MM_ANISOTROPIC})));
        const auto length = [this] { return dice.of({32, 48, 64, 64, 100}); };
        gdi(call("SetWindowExtEx").number(length()).number(length()));
        gdi(call("SetViewportExtEx").number(length()).number(length()));
        if (dice.oneIn(2)) gdi(call("SetWindowOrgEx").some(2, -20, 20));
        if (dice.oneIn(2)) gdi(call("SetViewportOrgEx").some(2, -20, 30));
    }
    SourceArea area() {
        SourceArea area{};
        area.x = dice.between(0, 20);
        area.y = dice.between(0, 20);
        area.width = dice.between(1, 20);
        area.height = dice.between(1, 20);
        return area;
    }
    /// Some of them from right to left or upwards.
    SourceArea turnedArea() {
        SourceArea turned = area();
        if (dice.oneIn(5)) turned = {turned.x + turned.width, turned.y, -turned.width, turned.height};
        if (dice.oneIn(5)) turned = {turned.x, turned.y + turned.height, turned.width, -turned.height};
        return turned;
    }

    // Drawings
    static Call& from(Call& call, const SourceArea& a) {
        return call.word("other").number(a.x).number(a.y).number(a.width).number(a.height);
    }
    void stretches() {
        if (dice.oneIn(4)) {
            Call stretch = call("StretchDib").number(dice.of({1, 4, 8, 16, 24, 32}));
            show(stretch.some(1, 0, 9999).place().turnedSize().size(0, 8).size(1, 8).operation());
            return;
        }
        Call stretch = call("StretchBlt").place().turnedSize();
        show(from(stretch, turnedArea()).operation());
    }
    /// HALFTONE, wholly to be seen and to a target of all colours: its weights, and nothing that would hide
    /// or multiply a difference between them.
    void smooth() {
        constexpr int targetSide = 200;
        constexpr int shift = 80; // beyond what any turned size reaches
        line(call("surface").word("main").number(targetSide).number(targetSide).word("32").text());
        surface("other", 40, depth());
        line("on main");
        gdi(call("SetViewportOrgEx").number(shift).number(shift));
        gdi(call("SetStretchBltMode").number(HALFTONE));
        if (dice.oneIn(3)) {
            Call stretch = call("StretchDib").number(dice.of({1, 4, 8, 16, 24, 32}));
            show(stretch.some(1, 0, 9999).place().turnedSize().size(0, 8).size(1, 8).number(SRCCOPY));
            return;
        }
        Call stretch = call("StretchBlt").place().turnedSize();
        show(from(stretch, turnedArea()).number(SRCCOPY));
    }
    void masks() {
        Call mask = call("MaskBlt").place().size(1, 24).word("other").some(2, 0, 16);
        mask.some(1, 0, 9999).some(2, 0, 8);
        const std::int64_t background = dice.between(0, 255);
        show(mask.number(background << 24 | dice.between(0, 255) << 16));
    }
    /// Upright and without a mask: Wine turns no pictures, and paints black where a mask lets nothing
    /// through.
    void corners() {
        const int left = dice.between(-8, 56);
        const int top = dice.between(-8, 56);
        const int right = left + (dice.oneIn(4) ? -dice.between(1, 60) : dice.between(1, 60));
        const int bottom = top + (dice.oneIn(4) ? -dice.between(1, 60) : dice.between(1, 60));
        Call corners = call("PlgBlt").number(left).number(top).number(right).number(top);
        corners.number(left).number(bottom);
        show(from(corners, area()).number(0).number(0).number(0));
    }
    /// A place of the size of the source or of another.
    Call fitted(const std::string& name, const SourceArea& a) {
        Call call(dice, name);
        call.place();
        const bool straight = dice.oneIn(2);
        return straight ? call.number(a.width).number(a.height) : call.size(1, 60);
    }
    void holes() {
        const SourceArea a = area();
        Call copy = fitted("TransparentBlt", a);
        show(from(copy, a).color());
    }
    void blends() {
        const SourceArea a = area();
        Call blend = fitted("AlphaBlend", a);
        from(blend, a).number(dice.oneIn(3) ? 255 : dice.between(0, 255));
        show(blend.some(1, 0, 1));
    }
    void gradients() {
        switch (dice.between(0, 3)) {
        case 0:
            show(call("GradientTriangle")
                     .some(2, -8, 72)
                     .color()
                     .some(2, -8, 72)
                     .color()
                     .some(2, -8, 72)
                     .color());
            return;
        case 1:
            show(call("GradientMesh").some(1, 0, 2).some(1, 0, 9999).some(1, 1, 3));
            return;
        default:
            show(call("GradientRectangle").some(1, 0, 1).some(2, -8, 72).color().some(2, -8, 72).color());
        }
    }
    void icons() {
        Call icon = call("DrawIcon").some(1, 0, 2).some(1, 0, 9999).place();
        switch (dice.between(0, 3)) {
        case 0:
            icon.number(16).number(16);
            break;
        case 1:
            icon.number(0).number(0);
            break;
        default:
            icon.size(1, 48);
        }
        show(icon.number(dice.of({1, 2, 3, 3, 3})));
    }

    // Text
    void font() {
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
    std::string words() {
        return std::string("\"") +
               dice.of({"Hola, mundo", "Wij", "fi fl AV To", "1.234,56", "&Guardar como...", "iiii MMMM", "g",
                        "Una frase de varias palabras"}) +
               "\"";
    }
    void textState() {
        if (dice.oneIn(2)) gdi(call("SetBkMode").number(TRANSPARENT));
        if (dice.oneIn(4)) gdi(call("SetTextAlign").number(dice.of({0, 2, 6, 8, 24, 30, 10, 26})));
        if (dice.oneIn(5)) gdi(call("SetTextCharacterExtra").some(1, -2, 5));
        if (dice.oneIn(6)) gdi(call("SetTextJustification").some(1, 0, 20).some(1, 0, 4));
    }
    void letters() {
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
    /// Mapped text of outlines: its place, lines and ground, and the extents.
    void mappedLetters() {
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
    /// Larger and smaller, with axes of both directions, and the origins moved.
    void letterMapping() {
        gdi(call("SetMapMode").number(dice.of({MM_ISOTROPIC, MM_ANISOTROPIC, MM_ANISOTROPIC})));
        const auto length = [this] { return dice.of({32, 48, 64, 64, 100, 150, -64, -48}); };
        gdi(call("SetWindowExtEx").number(length()).number(length()));
        gdi(call("SetViewportExtEx").number(length()).number(length()));
        if (dice.oneIn(2)) gdi(call("SetWindowOrgEx").some(2, -40, 40));
        if (dice.oneIn(2)) gdi(call("SetViewportOrgEx").some(2, -20, 60));
    }
    /// All but the quality and the family.
    Call outlineFont(bool isTurned) {
        Call font = call("font = CreateFont");
        const bool ofCell = dice.oneIn(2);
        font.number(ofCell ? dice.between(8, 40) : -dice.between(6, 30));
        const bool hasWidth = dice.oneIn(6);
        font.number(hasWidth ? dice.between(3, 20) : 0);
        font.number(isTurned ? dice.of({900, 1800, 2700, 450, 3550, 123}) : 0);
        font.number(dice.of({400, 700}));
        font.number(dice.oneIn(4)).number(dice.oneIn(2));
        return font.number(dice.oneIn(2));
    }
    /// Where the text lies about its point, and how wide it is made.
    void placing() {
        if (dice.oneIn(3)) gdi(call("SetTextAlign").number(dice.of({2, 6, 8, 24, 30, 10, 26, 1, 25})));
        if (dice.oneIn(4)) gdi(call("SetTextCharacterExtra").some(1, -2, 5));
        if (dice.oneIn(2)) gdi(call("MoveToEx").some(2, -20, 60));
    }
    int format() {
        UINT format = dice.oneIn(6) ? DT_CALCRECT : 0;
        for (const UINT flag : {DT_CENTER, DT_RIGHT, DT_VCENTER, DT_BOTTOM, DT_WORDBREAK, DT_SINGLELINE,
                                DT_NOCLIP, DT_NOPREFIX, DT_END_ELLIPSIS})
            if (dice.oneIn(3)) format |= flag;
        return static_cast<int>(format);
    }
};

struct Subject {
    const char* name;
    void (*write)(Writer&);
};

template <void (Writer::*Draw)()>
void copyBetween(Writer& w) {
    w.surfaces();
    if (w.dice.oneIn(8)) w.mapping();
    (w.*Draw)();
}

template <void (Writer::*Draw)()>
void drawOn(Writer& w) {
    w.target(w.depth());
    if (w.dice.oneIn(8)) w.mapping();
    (w.*Draw)();
}

constexpr Subject subjects[] = {
    {"stretches", copyBetween<&Writer::stretches>},
    {"masks", copyBetween<&Writer::masks>},
    {"corners", copyBetween<&Writer::corners>},
    {"holes", copyBetween<&Writer::holes>},
    {"blends", copyBetween<&Writer::blends>},
    {"gradients", drawOn<&Writer::gradients>},
    {"icons", drawOn<&Writer::icons>},
    {"letters", drawOn<&Writer::letters>},
};

constexpr Subject smoothSubject = {"smooth", [](Writer& w) { w.smooth(); }};
constexpr Subject mappedSubject = {"mapped", [](Writer& w) {
                                       w.target("32");
                                       w.mappedLetters();
                                   }};

/// From here on they are all smooth copies,
constexpr int firstSmooth = 16500;
/// and from here on mapped letters.
constexpr int firstMapped = 17000;

/// The dice of neighbouring seeds fall alike, one throw apart: later scripts stand far from each other.
int seedOf(int number) {
    constexpr int distance = 7919;
    return number >= firstMapped ? number * distance : number;
}

const Subject& subjectOf(int number) {
    if (number >= firstMapped) return mappedSubject;
    if (number >= firstSmooth) return smoothSubject;
    return subjects[number % static_cast<int>(std::size(subjects))];
}

} // namespace

std::string pixelSubject(int number) {
    return subjectOf(number).name;
}

std::string pixelScript(int number) {
    Writer writer(seedOf(number));
    subjectOf(number).write(writer);
    return writer.text;
}

} // namespace conformance
