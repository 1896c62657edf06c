#include "conformance/RandomScript.h"

#include "conformance/LineWriter.h"
#include "conformance/RandomOutlines.h"
#include "conformance/RandomPixels.h"
#include "conformance/RandomTexts.h"
#include "platform/gdi_types.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace conformance {

using namespace platform;

namespace {

class Writer : public LineWriter {
public:
    using LineWriter::LineWriter;

    bool mapped = false;

    int coordinate() {
        const bool far = dice.oneIn(12);
        return far ? dice.between(-200, 300) : dice.between(-8, 71);
    }
    int color() {
        const bool plain = dice.oneIn(3);
        if (plain) return dice.of({0, 0xFFFFFF, 0xFF, 0xFF00, 0xFF0000, 0x808080});
        return dice.between(0, 0xFFFFFF);
    }
    std::string points(int count) {
        std::string words;
        for (int i = 0; i < count; ++i) {
            words += " " + std::to_string(coordinate());
            words += " " + std::to_string(coordinate());
        }
        return words;
    }
    /// Four edges, the right side sometimes left of the left one.
    std::string box() {
        int left = coordinate();
        int top = coordinate();
        const bool small = dice.oneIn(3);
        int width = dice.between(small ? 0 : 8, small ? 7 : 60);
        int height = dice.between(small ? 0 : 8, small ? 7 : 60);
        if (dice.oneIn(8)) width = -width;
        if (dice.oneIn(8)) height = -height;
        std::string words;
        for (const int edge : {left, top, left + width, top + height})
            words += " " + std::to_string(edge);
        return words;
    }

    /// Edges of an ellipse: small, or so wide that its curve reaches the top, under any mapping.
    std::string roundBox() {
        const int left = coordinate();
        const int top = coordinate();
        const bool small = !mapped && dice.oneIn(4);
        const int width = small ? dice.between(3, 6) : across();
        const int height = small ? width : across();
        std::string words;
        for (const int edge : {left, top, left + width, top + height})
            words += " " + std::to_string(edge);
        return words;
    }
    /// The size of round corners: none, or as wide as an ellipse.
    std::string corner() {
        const int width = across();
        const int height = across();
        if (dice.oneIn(6)) return " 0 0";
        return " " + std::to_string(width) + " " + std::to_string(height);
    }
    int across() { return mapped ? dice.between(60, 160) : dice.between(14, 60); }

    // Surfaces and state
    void surface() {
        if (dice.oneIn(5)) line("surface main 64 64 1");
    }
    void ground() {
        if (!dice.oneIn(4)) return;
        gdi("ground = CreateSolidBrush", {color()});
        line("gdi FillRect 0 0 64 64 ground");
    }
    void mode() {
        if (dice.oneIn(3)) gdi("SetROP2", {dice.between(R2_BLACK, R2_WHITE)});
    }
    void background() {
        if (dice.oneIn(2)) gdi("SetBkMode", {dice.between(TRANSPARENT, OPAQUE)});
        if (dice.oneIn(3)) gdi("SetBkColor", {color()});
        if (dice.oneIn(4)) gdi("SetTextColor", {color()});
    }
    void fillMode() {
        if (dice.oneIn(2)) gdi("SetPolyFillMode", {WINDING});
    }
    void pen(int style, int width) {
        gdi("pen = CreatePen", {style, width, color()});
        line("gdi SelectObject pen");
    }
    void thinPen() {
        const int style = dice.between(PS_SOLID, PS_INSIDEFRAME);
        const int width = dice.between(0, 1);
        pen(style, width);
    }
    void widePen() {
        const int style = dice.of({PS_SOLID, PS_SOLID, PS_SOLID, PS_INSIDEFRAME, PS_DASH, PS_DOT});
        const int width = dice.between(2, 12);
        pen(style, width);
    }
    void anyPen() {
        if (dice.oneIn(8)) {
            gdi("SelectStock", {dice.of({NULL_PEN, WHITE_PEN, BLACK_PEN})});
        } else if (dice.oneIn(3)) {
            widePen();
        } else {
            thinPen();
        }
    }
    void geometricPen() {
        const int cap = static_cast<int>(dice.of({PS_ENDCAP_ROUND, PS_ENDCAP_SQUARE, PS_ENDCAP_FLAT}));
        const int join = static_cast<int>(dice.of({PS_JOIN_ROUND, PS_JOIN_BEVEL, PS_JOIN_MITER}));
        const int width = dice.between(1, 11);
        gdi("pen = ExtCreatePen", {static_cast<int>(PS_GEOMETRIC) | cap | join, width, 0, color(), 0});
        line("gdi SelectObject pen");
    }
    void brush() {
        switch (dice.between(0, 5)) {
        case 0:
            gdi("SelectStock", {dice.of({NULL_BRUSH, BLACK_BRUSH, GRAY_BRUSH})});
            return;
        case 1: {
            const int style = dice.between(HS_HORIZONTAL, HS_DIAGCROSS);
            gdi("brush = CreateHatchBrush", {style, color()});
            break;
        }
        case 2: {
            std::string rows;
            for (int i = 0; i < 8; ++i)
                rows += " " + std::to_string(dice.between(0, 255));
            gdi("brush = PatternOfBits" + rows);
            break;
        }
        case 3: {
            std::string pixels;
            for (int i = 0; i < 6; ++i)
                pixels += " " + std::to_string(dice.between(0, 0xFFFFFF));
            gdi("brush = PatternOfColors 3 2" + pixels);
            break;
        }
        default:
            gdi("brush = CreateSolidBrush", {color()});
        }
        line("gdi SelectObject brush");
        if (dice.oneIn(4)) {
            const int x = dice.between(-9, 9);
            gdi("SetBrushOrgEx", {x, dice.between(-9, 9)});
        }
    }
    void clip() {
        if (!dice.oneIn(3)) return;
        if (dice.oneIn(2)) line("gdi IntersectClipRect" + box());
        for (int i = dice.between(0, 3); i > 0; --i)
            line("gdi ExcludeClipRect" + box());
    }
    void mapping() {
        const int mode = dice.of({MM_LOMETRIC, MM_LOENGLISH, MM_ISOTROPIC, MM_ANISOTROPIC, MM_ANISOTROPIC});
        mapped = true;
        gdi("SetMapMode", {mode});
        const int width = dice.of({-100, -64, 32, 48, 64, 100, 150});
        const int height = dice.of({-100, -64, 32, 48, 64, 100, 150});
        gdi("SetWindowExtEx", {width, height});
        const int across = dice.of({-64, 40, 64, 64, 90});
        gdi("SetViewportExtEx", {across, dice.of({-64, 40, 64, 64, 90})});
        if (dice.oneIn(2)) {
            const int x = dice.between(-40, 40);
            gdi("SetWindowOrgEx", {x, dice.between(-40, 40)});
        }
        if (dice.oneIn(2)) {
            const int x = dice.between(0, 64);
            gdi("SetViewportOrgEx", {x, dice.between(0, 64)});
        }
    }

    // Drawings
    void lines() {
        switch (dice.between(0, 2)) {
        case 0:
            line("gdi MoveToEx" + points(1));
            line("gdi LineTo" + points(1));
            break;
        case 1: {
            const int count = dice.between(2, 6);
            line("gdi Polyline" + points(count));
            break;
        }
        default: {
            const int count = dice.between(1, 4);
            line("gdi MoveToEx" + points(1));
            line("gdi PolylineTo" + points(count));
        }
        }
    }
    void boxes() { line("gdi Rectangle" + box()); }
    void polygons() {
        if (dice.oneIn(3)) {
            std::string words = "gdi PolyPolygon" + points(3);
            for (int i = dice.between(1, 2); i > 0; --i) {
                const int count = dice.between(2, 5);
                words += " |" + points(count);
            }
            line(words);
            return;
        }
        const int count = dice.between(2, 8);
        line("gdi Polygon" + points(count));
    }
    void ellipses() {
        if (dice.oneIn(3)) {
            const std::string edges = roundBox();
            line("gdi RoundRect" + edges + corner());
            return;
        }
        line("gdi Ellipse" + roundBox());
    }
    void arcs() {
        if (dice.oneIn(2)) gdi("SetArcDirection", {dice.between(AD_COUNTERCLOCKWISE, AD_CLOCKWISE)});
        const std::string name = dice.of({"Arc", "ArcTo", "Chord", "Pie"});
        const std::string edges = roundBox();
        if (name == "ArcTo") line("gdi MoveToEx" + points(1));
        line("gdi " + name + edges + points(2));
    }
    void curves() {
        if (dice.oneIn(3)) {
            const int count = dice.between(1, 2);
            line("gdi MoveToEx" + points(1));
            line("gdi PolyBezierTo" + points(3 * count));
            return;
        }
        const int count = dice.between(1, 3);
        line("gdi PolyBezier" + points(3 * count + 1));
    }
    void anyShape() {
        switch (dice.between(0, 5)) {
        case 0:
            lines();
            break;
        case 1:
            boxes();
            break;
        case 2:
            polygons();
            break;
        case 3:
            ellipses();
            break;
        case 4:
            arcs();
            break;
        default:
            curves();
        }
    }
    void path() {
        line("gdi BeginPath");
        for (int i = dice.between(1, 3); i > 0; --i) {
            anyShape();
            if (dice.oneIn(3)) line("gdi CloseFigure");
        }
        line("gdi EndPath");
        if (dice.oneIn(4)) line("gdi FlattenPath");
        switch (dice.between(0, 5)) {
        case 0:
            line("show gdi GetPath");
            break;
        case 1:
            line("gdi StrokePath");
            break;
        case 2:
            line("gdi FillPath");
            break;
        case 3:
            line("gdi StrokeAndFillPath");
            break;
        case 4:
            line("gdi area = PathToRegion");
            line("show gdi PaintRgn area");
            break;
        default:
            gdi("SelectClipPath", {dice.of({RGN_AND, RGN_COPY, RGN_DIFF, RGN_OR, RGN_XOR})});
            line("show gdi GetClipBox");
            line("gdi PatBlt 0 0 64 64 0x00F00021");
        }
    }
    void makeRegion(const std::string& name) {
        switch (dice.between(0, 3)) {
        case 0:
            line("gdi " + name + " = CreateRectRgn" + box());
            break;
        case 1:
            line("gdi " + name + " = CreateEllipticRgn" + roundBox());
            break;
        case 2: {
            const std::string edges = roundBox();
            line("gdi " + name + " = CreateRoundRectRgn" + edges + corner());
            break;
        }
        default: {
            const int mode = dice.between(ALTERNATE, WINDING);
            const int count = dice.between(3, 7);
            line("gdi " + name + " = CreatePolygonRgn " + std::to_string(mode) + points(count));
        }
        }
    }
    void regions() {
        makeRegion("a");
        makeRegion("b");
        combineRegions(RGN_DIFF);
        switch (dice.between(0, 4)) {
        case 0:
            line("gdi PaintRgn area");
            break;
        case 1:
            line("gdi InvertRgn area");
            break;
        case 2:
            frameRegion(color(), 6);
            break;
        case 3:
            clipToRegion();
            anyShape();
            break;
        default:
            gdi("fill = CreateHatchBrush", {dice.between(HS_HORIZONTAL, HS_DIAGCROSS), 0xFF});
            line("gdi FillRgn area fill");
        }
    }
    void flood() {
        for (int i = dice.between(1, 3); i > 0; --i)
            anyShape();
        gdi("flood = CreateSolidBrush", {0x00FF80});
        line("gdi SelectObject flood");
        if (dice.oneIn(3)) brush();
        const int mode = dice.between(0, 1);
        const int x = dice.between(0, 63);
        const int y = dice.between(0, 63);
        gdi("ExtFloodFill", {x, y, dice.of({0, 0xFFFFFF}), mode});
    }
    void fills() {
        const std::string edges = box();
        constexpr std::array<int, 10> codes = {0x00000042, 0x00050325, 0x000A0329, 0x000F0001, 0x00500325,
                                               0x00550009, 0x005A0049, 0x00A000C9, 0x00F00021, 0x00FF0062};
        const int code = codes[static_cast<std::size_t>(dice.between(0, 9))];
        switch (dice.between(0, 3)) {
        case 0:
            line("gdi FrameRect" + edges + " brush");
            break;
        case 1:
            line("gdi InvertRect" + edges);
            break;
        default: {
            const int x = coordinate();
            const int y = coordinate();
            const int width = dice.between(-40, 60);
            gdi("PatBlt", {x, y, width, dice.between(-40, 60), code});
        }
        }
    }
    void copies() {
        const std::string kind = dice.of({"1", "32"});
        line("surface other 40 40 " + kind);
        brush();
        anyPen();
        anyShape();
        line("on main");
        background();
        brush();
        const int x = coordinate();
        const int y = coordinate();
        const int width = dice.between(1, 50);
        const int height = dice.between(1, 50);
        const int table = dice.between(0, 255);
        const std::string target = " " + std::to_string(x) + " " + std::to_string(y);
        const std::string size = " " + std::to_string(width) + " " + std::to_string(height);
        const int fromX = dice.between(-5, 20);
        gdi("BitBlt" + target + size + " other", {fromX, dice.between(-5, 20), table << 16});
    }
};

struct Subject {
    const char* name;
    void (*write)(Writer&);
};

void beginDrawing(Writer& w) {
    w.surface();
    w.ground();
    w.clip();
    w.mode();
    w.background();
}

template <void (Writer::*Draw)(), int Most>
void repeat(Writer& w) {
    for (int i = w.dice.between(1, Most); i > 0; --i)
        (w.*Draw)();
}

constexpr Subject subjects[] = {
    {"lines",
     [](Writer& w) {
         beginDrawing(w);
         w.thinPen();
         repeat<&Writer::lines, 3>(w);
     }},
    {"wide",
     [](Writer& w) {
         beginDrawing(w);
         w.widePen();
         repeat<&Writer::lines, 2>(w);
     }},
    {"boxes",
     [](Writer& w) {
         beginDrawing(w);
         w.anyPen();
         w.brush();
         repeat<&Writer::boxes, 2>(w);
     }},
    {"polygons",
     [](Writer& w) {
         beginDrawing(w);
         w.fillMode();
         w.anyPen();
         w.brush();
         repeat<&Writer::polygons, 2>(w);
     }},
    {"ellipses",
     [](Writer& w) {
         beginDrawing(w);
         w.anyPen();
         w.brush();
         repeat<&Writer::ellipses, 2>(w);
     }},
    {"arcs",
     [](Writer& w) {
         beginDrawing(w);
         w.anyPen();
         w.brush();
         repeat<&Writer::arcs, 2>(w);
     }},
    {"curves",
     [](Writer& w) {
         beginDrawing(w);
         w.anyPen();
         repeat<&Writer::curves, 2>(w);
     }},
    {"geometric",
     [](Writer& w) {
         beginDrawing(w);
         w.geometricPen();
         w.brush();
         repeat<&Writer::anyShape, 2>(w);
     }},
    {"mapping",
     [](Writer& w) {
         beginDrawing(w);
         w.mapping();
         w.anyPen();
         w.brush();
         repeat<&Writer::anyShape, 3>(w);
     }},
    {"paths",
     [](Writer& w) {
         beginDrawing(w);
         if (w.dice.oneIn(4)) w.mapping();
         w.fillMode();
         w.anyPen();
         w.brush();
         w.path();
     }},
    {"regions",
     [](Writer& w) {
         beginDrawing(w);
         if (w.dice.oneIn(4)) w.mapping();
         w.anyPen();
         w.brush();
         w.regions();
     }},
    {"flood",
     [](Writer& w) {
         w.surface();
         w.thinPen();
         w.flood();
     }},
    {"fills",
     [](Writer& w) {
         beginDrawing(w);
         if (w.dice.oneIn(4)) w.mapping();
         w.gdi("brush = CreateSolidBrush", {w.color()});
         w.brush();
         repeat<&Writer::fills, 3>(w);
     }},
    {"copies",
     [](Writer& w) {
         beginDrawing(w);
         w.copies();
     }},
};

constexpr int subjectCount = static_cast<int>(std::size(subjects));

/// From here on the scripts are about pixels and text.
constexpr int firstOfPixels = 10500;

/// From here on about outlines.
constexpr int firstOfOutlines = 17500;

/// And from here on about text in paths and metafiles.
constexpr int firstOfTexts = 19500;

const Subject& subjectOf(int number) {
    return subjects[number % subjectCount];
}

std::string subjectName(int number) {
    if (number >= firstOfTexts) return textSubject(number);
    if (number >= firstOfOutlines) return outlineSubject(number);
    return number < firstOfPixels ? subjectOf(number).name : pixelSubject(number);
}

} // namespace

std::string randomName(int number) {
    return "random/" + subjectName(number) + "/" + std::to_string(number);
}

std::string randomScript(int number) {
    if (number >= firstOfTexts) return textScript(number);
    if (number >= firstOfOutlines) return outlineScript(number);
    if (number >= firstOfPixels) return pixelScript(number);
    Writer writer(number);
    subjectOf(number).write(writer);
    return writer.text;
}

} // namespace conformance
