#include "conformance/RandomPixels.h"

#include "conformance/TextWriter.h"
#include "platform/gdi_types.h"

#include <cstdint>
#include <iterator>

namespace conformance {

using namespace platform;

namespace {

/// A rectangle of the source, which is 40 by 40.
struct SourceArea {
    int x, y, width, height;
};

/// Writes a script line by line.
class Writer : public TextWriter {
public:
    using TextWriter::TextWriter;

    // Surfaces and state
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
        line(call("surface").word("main").number(targetSide).number(targetSide).word("32"));
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
};

struct Subject {
    const char* name;
    void (*write)(Writer&);
};

template <auto Draw>
void copyBetween(Writer& w) {
    w.surfaces();
    if (w.dice.oneIn(8)) w.mapping();
    (w.*Draw)();
}

template <auto Draw>
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
