#include "conformance/RandomOutlines.h"

#include "conformance/LineWriter.h"
#include "platform/gdi_types.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <iterator>

namespace conformance {

using namespace platform;

namespace {

class Writer : public LineWriter {
public:
    using LineWriter::LineWriter;

    int color() { return dice.between(0, 0xFFFFFF); }
    std::string point() {
        const int x = dice.between(4, 59);
        const int y = dice.between(4, 59);
        return " " + std::to_string(x) + " " + std::to_string(y);
    }
    std::string points(int count) {
        std::string words;
        for (int i = 0; i < count; ++i)
            words += point();
        return words;
    }

    // Surfaces and state
    void ground() {
        if (dice.oneIn(8)) line("surface main 64 64 1");
        if (dice.oneIn(6)) gdi("SetROP2", {dice.between(R2_BLACK, R2_WHITE)});
        if (dice.oneIn(3)) gdi("SetBkMode", {TRANSPARENT});
        if (dice.oneIn(3)) gdi("SetPolyFillMode", {WINDING});
        if (dice.oneIn(6)) line("gdi IntersectClipRect 10 6 57 50");
    }
    void brush() {
        if (dice.oneIn(6)) {
            gdi("SelectStock", {NULL_BRUSH});
            return;
        }
        gdi("brush = CreateSolidBrush", {color()});
        line("gdi SelectObject brush");
    }
    void mapping() {
        gdi("SetMapMode", {MM_ANISOTROPIC});
        const int width = dice.of({32, 48, 100});
        gdi("SetWindowExtEx", {width, dice.of({32, 64, -64})});
        gdi("SetViewportExtEx 64 64");
    }

    // Pens
    int cap() { return static_cast<int>(dice.of({PS_ENDCAP_ROUND, PS_ENDCAP_SQUARE, PS_ENDCAP_FLAT})); }
    int joint() { return static_cast<int>(dice.of({PS_JOIN_ROUND, PS_JOIN_BEVEL, PS_JOIN_MITER})); }
    /// A pen of the form with the dashes of PS_USERSTYLE, if it has them.
    void pen(int form, int width, const std::string& dashes = "") {
        const int style = static_cast<int>(PS_GEOMETRIC) | form;
        const std::string numbers = " " + std::to_string(style) + " " + std::to_string(width) + " 0 ";
        line("gdi pen = ExtCreatePen" + numbers + std::to_string(color()) + " 0" + dashes);
        line("gdi SelectObject pen");
    }
    void solidPen() {
        const int form = cap() | joint();
        pen(form, dice.between(1, 12));
        miterLimit();
    }
    /// Square ends of widened paths differ.
    void widePen() {
        const int ending = static_cast<int>(dice.of({PS_ENDCAP_ROUND, PS_ENDCAP_FLAT}));
        const int form = joint() | (dice.oneIn(16) ? static_cast<int>(PS_ENDCAP_SQUARE) : ending);
        pen(form, dice.between(1, 12));
        miterLimit();
    }
    void miterLimit() {
        if (dice.oneIn(3)) gdi("SetMiterLimit", {dice.of({1, 2, 3, 5, 20})});
    }
    void plainPen() {
        const int style = dice.of({PS_SOLID, PS_SOLID, PS_DOT});
        const int width = dice.between(0, 5);
        gdi("pen = CreatePen", {style, width, color()});
        line("gdi SelectObject pen");
    }
    void dashedPen() {
        const int form = cap() | joint();
        const int width = dice.between(1, 12);
        int style = dice.of({PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT, PS_USERSTYLE});
        const bool isRare = style == PS_DOT && (form & static_cast<int>(PS_ENDCAP_MASK)) != PS_ENDCAP_FLAT;
        if (isRare && !dice.oneIn(6)) style = PS_USERSTYLE;
        std::string dashes;
        if (style == PS_USERSTYLE)
            for (int i = dice.between(1, 6); i > 0; --i)
                dashes += " " + std::to_string(dice.between(1, 12));
        pen(form | style, width, dashes);
    }

    // Drawings
    /// Two lines and a small angle between them.
    void wedge() {
        const int x = dice.between(10, 50);
        const int y = dice.between(10, 50);
        const int across = dice.between(-40, 40);
        const int down = dice.between(-40, 40);
        const auto near = [this](int length) { return length + dice.between(-8, 8); };
        std::string words = " " + std::to_string(x + across) + " " + std::to_string(y + down);
        words += " " + std::to_string(x) + " " + std::to_string(y);
        words += " " + std::to_string(x + near(across));
        words += " " + std::to_string(y + near(down));
        const bool closes = dice.oneIn(3);
        line((closes ? "gdi Polygon" : "gdi Polyline") + words);
    }
    void polyline() {
        const int count = dice.between(2, 6);
        line("gdi Polyline" + points(count));
    }
    void polygon() {
        const int count = dice.between(3, 6);
        line("gdi Polygon" + points(count));
    }
    /// Lines that are level, upright or turn back.
    void steps() {
        int x = dice.between(8, 56);
        int y = dice.between(8, 56);
        std::string words = " " + std::to_string(x) + " " + std::to_string(y);
        for (int i = dice.between(1, 5); i > 0; --i) {
            const bool isLevel = dice.oneIn(2);
            (isLevel ? x : y) = dice.between(4, 59);
            words += " " + std::to_string(x) + " " + std::to_string(y);
        }
        const bool closes = dice.oneIn(3);
        line((closes ? "gdi Polygon" : "gdi Polyline") + words);
    }
    void lines() {
        switch (dice.between(0, 3)) {
        case 0:
            wedge();
            break;
        case 1:
            steps();
            break;
        case 2:
            polygon();
            break;
        default:
            polyline();
        }
    }
    std::string box(int least, int most) {
        const int left = dice.between(0, 40);
        const int top = dice.between(0, 40);
        const int width = dice.between(least, most);
        std::string words = " " + std::to_string(left) + " " + std::to_string(top);
        words += " " + std::to_string(left + width);
        return words + " " + std::to_string(top + dice.between(least, most));
    }
    /// A box of which at least one side is a few pixels long, `least` or more, and `more` than that on either
    /// side. Curves that are much taller than wide end before their tops: what Wine has there is undefined.
    std::string thinBox(int least, int more = 0) {
        const int left = dice.between(2, 50);
        const int top = dice.between(2, 50);
        const int small = dice.between(least, 6);
        const int other = dice.between(0, 50);
        const int small2 = dice.between(least, 6);
        const bool isTall = dice.oneIn(2) && (small <= 1 || (small == 2 && more == 0));
        const bool isFlat = dice.oneIn(2) && !isTall && other >= 7;
        const int width = (isFlat ? other : small) + more;
        const int height = (isTall ? other : isFlat ? small2 : std::min(small, small2)) + more;
        std::string words = " " + std::to_string(left) + " " + std::to_string(top);
        return words + " " + std::to_string(left + width) + " " + std::to_string(top + height);
    }
    void curves() {
        switch (dice.between(0, 3)) {
        case 0:
            line("gdi PolyBezier" + points(4));
            break;
        case 1:
            line("gdi Ellipse" + box(6, 40));
            break;
        case 2: {
            const std::string edges = box(20, 50);
            const int width = dice.between(4, 20);
            line("gdi RoundRect" + edges + " " + std::to_string(width) + " 9");
            break;
        }
        default: {
            const std::string name = dice.of({"Arc", "Chord", "Pie"});
            const std::string edges = box(20, 50);
            const std::string rays = points(2);
            line("gdi " + name + edges + rays);
        }
        }
    }
    void anyShape() {
        switch (dice.between(0, 3)) {
        case 0:
            curves();
            break;
        case 1:
            line("gdi Rectangle" + box(4, 40));
            break;
        default:
            lines();
        }
    }
    void usePath() {
        switch (dice.between(0, 5)) {
        case 0:
            line("gdi pen = CreatePen 0 1 255");
            line("gdi SelectObject pen");
            line("gdi StrokePath");
            break;
        case 1:
        case 2:
            line("gdi FillPath");
            break;
        case 3:
            line("gdi area = PathToRegion");
            line("gdi PaintRgn area");
            break;
        case 4:
            gdi("SelectClipPath", {dice.of({RGN_AND, RGN_COPY, RGN_DIFF})});
            line("gdi PatBlt 0 0 64 64 0x00F00021");
            break;
        default:
            line("gdi StrokeAndFillPath");
        }
    }
    void widened() {
        line("gdi BeginPath");
        for (int i = dice.between(1, 2); i > 0; --i) {
            anyShape();
            if (dice.oneIn(3)) line("gdi CloseFigure");
        }
        line("gdi EndPath");
        if (dice.oneIn(4)) line("gdi FlattenPath");
        line("show gdi WidenPath");
        line("show gdi GetPath");
        usePath();
    }
    void thinArc() {
        if (dice.oneIn(2)) gdi("SetArcDirection", {AD_CLOCKWISE});
        const std::string name = dice.of({"Arc", "Chord", "Pie", "ArcTo", "Ellipse"});
        // Few arcs have no more than two pixels on either side: there is hardly a way to tell their pixels
        // apart.
        const int least = name != "Ellipse" && !dice.oneIn(12) ? 3 : 0;
        const std::string edges = thinBox(least);
        line("gdi " + name + edges + (name == "Ellipse" ? "" : points(2)));
    }
    void thinRegion(const std::string& name) {
        if (dice.oneIn(2)) {
            line("gdi " + name + " = CreateEllipticRgn" + thinBox(0, 1));
            return;
        }
        const std::string edges = dice.oneIn(2) ? thinBox(0, 1) : box(4, 50);
        const int height = dice.between(0, 6);
        const int width = dice.between(height, 30);
        const std::string corner = " " + std::to_string(width) + " " + std::to_string(height);
        line("gdi " + name + " = CreateRoundRectRgn" + edges + corner);
    }
    void thinRegions() {
        thinRegion("a");
        if (dice.oneIn(2)) {
            line("gdi b = CreateEllipticRgn" + box(6, 50));
        } else {
            thinRegion("b");
        }
        combineRegions(RGN_COPY);
        switch (dice.between(0, 3)) {
        case 0:
            line("gdi PaintRgn area");
            break;
        case 1:
            frameRegion(color(), 3);
            break;
        case 2:
            line("gdi InvertRgn area");
            break;
        default:
            clipToRegion();
            line("gdi PatBlt 0 0 64 64 0x00F00021");
        }
    }
};

struct Subject {
    const char* name;
    void (*write)(Writer&);
};

constexpr Subject subjects[] = {
    {"joints",
     [](Writer& w) {
         w.ground();
         w.solidPen();
         w.brush();
         if (w.dice.oneIn(8)) w.mapping();
         w.lines();
     }},
    {"dashes",
     [](Writer& w) {
         w.ground();
         w.dashedPen();
         w.brush();
         if (w.dice.oneIn(8)) w.mapping();
         w.anyShape();
     }},
    {"outlines",
     [](Writer& w) {
         w.ground();
         w.widePen();
         w.brush();
         w.widened();
     }},
    {"flat",
     [](Writer& w) {
         w.ground();
         w.brush();
         if (w.dice.oneIn(3)) {
             w.solidPen();
         } else {
             w.plainPen();
         }
         for (int i = w.dice.between(1, 3); i > 0; --i)
             w.thinArc();
     }},
    {"slivers",
     [](Writer& w) {
         w.ground();
         w.brush();
         w.thinRegions();
     }},
};

const Subject& subjectOf(int number) {
    return subjects[number % static_cast<int>(std::size(subjects))];
}

} // namespace

std::string outlineSubject(int number) {
    return subjectOf(number).name;
}

std::string outlineScript(int number) {
    Writer writer(number);
    subjectOf(number).write(writer);
    return writer.text;
}

} // namespace conformance
