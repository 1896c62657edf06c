// Functions of platform/gdi.h by name. Arguments are read by their types: the first context is the surface's,
// every other handle is a name; what a function writes through a pointer is told with its result.

#include "conformance/Stage.h"
#include "conformance/Words.h"
#include "conformance/blit_calls.h"
#include "conformance/calls.h"
#include "conformance/text_calls.h"

#include <functional>
#include <map>
#include <tuple>

namespace conformance {

using namespace platform;

namespace {

using Call = std::function<std::string(Stage&, Words&, const std::string& name)>;

/// Points up to the end of the line.
struct Points {
    std::vector<POINT> list;
    int count() const { return static_cast<int>(list.size()); }
};

/// Points in groups, with a bar between two groups.
struct Groups {
    std::vector<POINT> list;
    std::vector<INT> counts;
    int count() const { return static_cast<int>(counts.size()); }
};

/// Numbers up to the end of the line.
struct Numbers {
    std::vector<DWORD> list;
    DWORD count() const { return static_cast<DWORD>(list.size()); }
};

/// A point and its PT_... type, as "M 3 4", "L 3 4", "B 3 4"; a small letter closes the figure.
struct Outline {
    std::vector<POINT> list;
    std::vector<BYTE> types;
};

Points takePoints(Words& words) {
    Points points;
    while (!words.done())
        points.list.push_back(words.point());
    return points;
}

Groups takeGroups(Words& words) {
    Groups groups;
    groups.counts.push_back(0);
    while (!words.done()) {
        if (words.peek() == "|") {
            words.next();
            groups.counts.push_back(0);
            continue;
        }
        groups.list.push_back(words.point());
        ++groups.counts.back();
    }
    return groups;
}

BYTE pointType(const std::string& letter) {
    constexpr std::string_view letters = "MLB";
    constexpr BYTE types[] = {PT_MOVETO, PT_LINETO, PT_BEZIERTO};
    const char upper = static_cast<char>(letter.at(0) & ~0x20);
    const std::size_t index = letters.find(upper);
    if (letter.size() != 1 || index == std::string_view::npos)
        throw std::runtime_error("'" + letter + "' is no kind of point");
    return static_cast<BYTE>(types[index] | (letter[0] == upper ? 0 : PT_CLOSEFIGURE));
}

Outline takeOutline(Words& words) {
    Outline outline;
    while (!words.done()) {
        outline.types.push_back(pointType(words.next()));
        outline.list.push_back(words.point());
    }
    return outline;
}

std::string text(const POINT& p) {
    return " (" + std::to_string(p.x) + ", " + std::to_string(p.y) + ")";
}
std::string text(const SIZE& s) {
    return " (" + std::to_string(s.cx) + ", " + std::to_string(s.cy) + ")";
}
std::string text(const RECT& r) {
    return text(POINT{r.left, r.top}) + text(POINT{r.right, r.bottom});
}

std::string text(const std::vector<int>& numbers) {
    std::string result;
    for (const int number : numbers)
        result += " " + std::to_string(number);
    return result;
}

/// An argument on its way into a call.
template <class A>
struct Held {
    Held(Stage&, Words& words) : value(static_cast<A>(words.number())) {}
    A get() { return value; }
    std::string told() const { return {}; }
    A value;
};

template <class Kind>
struct Held<Handle<Kind>> {
    Held(Stage& stage, Words& words) : value(stage.handle(words.next())) {}
    Handle<Kind> get() { return value; }
    std::string told() const { return {}; }
    Handle<Kind> value;
};

template <>
struct Held<HGDIOBJ> {
    Held(Stage& stage, Words& words) : value(stage.handle(words.next())) {}
    HGDIOBJ get() { return value; }
    std::string told() const { return {}; }
    HGDIOBJ value;
};

template <>
struct Held<const RECT*> {
    Held(Stage&, Words& words) {
        const POINT topLeft = words.point();
        const POINT bottomRight = words.point();
        value = {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
    }
    const RECT* get() { return &value; }
    std::string told() const { return {}; }
    RECT value;
};

/// Text between quotes.
template <>
struct Held<const std::string&> {
    Held(Stage&, Words& words) : value(words.next()) {
        if (value[0] != '"') throw std::runtime_error("'" + value + "' is no text");
        value.erase(0, 1);
    }
    const std::string& get() { return value; }
    std::string told() const { return {}; }
    std::string value;
};

/// What the function writes.
template <class A>
struct Written {
    Written(Stage&, Words&) {}
    A* get() { return &value; }
    std::string told() const { return text(value); }
    A value;
};
template <>
struct Held<POINT*> : Written<POINT> {
    using Written::Written;
};
template <>
struct Held<SIZE*> : Written<SIZE> {
    using Written::Written;
};
template <>
struct Held<RECT*> : Written<RECT> {
    using Written::Written;
};
template <>
struct Held<std::vector<int>*> : Written<std::vector<int>> {
    using Written::Written;
};

/// Lists reach the function by reference, and are told when it may write them.
template <class List>
struct HeldList {
    List& get() { return value; }
    std::string told() const { return {}; }
    List value;
};
template <>
struct Held<const Points&> : HeldList<Points> {
    Held(Stage&, Words& words) : HeldList{takePoints(words)} {}
};
template <>
struct Held<Points&> : HeldList<Points> {
    Held(Stage&, Words& words) : HeldList{takePoints(words)} {}
    std::string told() const {
        std::string result;
        for (const POINT& p : value.list)
            result += text(p);
        return result;
    }
};
template <>
struct Held<const Groups&> : HeldList<Groups> {
    Held(Stage&, Words& words) : HeldList{takeGroups(words)} {}
};
template <>
struct Held<const Outline&> : HeldList<Outline> {
    Held(Stage&, Words& words) : HeldList{takeOutline(words)} {}
};
template <>
struct Held<const Numbers&> : HeldList<Numbers> {
    Held(Stage&, Words& words) {
        while (!words.done())
            value.list.push_back(static_cast<DWORD>(words.number()));
    }
};

std::string told(Stage&, const std::string&, std::int64_t value) {
    return std::to_string(value);
}

template <class Kind>
std::string told(Stage& stage, const std::string& name, Handle<Kind> object) {
    if (!name.empty()) stage.name(name, object.value);
    return object ? "made" : "none";
}

/// Objects that a selection gives back are the context's own: they are told by nothing.
std::string told(Stage&, const std::string&, HGDIOBJ object) {
    return object ? "some" : "none";
}

template <class R, class... A>
std::string callWith(Stage& stage, Words& words, const std::string& name, std::function<R(A...)> function) {
    std::tuple<Held<A>...> arguments{Held<A>(stage, words)...}; // braces: from left to right
    words.finish();
    return std::apply(
        [&](auto&... held) {
            std::string result = told(stage, name, function(held.get()...));
            ((result += held.told()), ...);
            return result;
        },
        arguments);
}

template <class R, class... A>
Call onSurface(R (*function)(HDC, A...)) {
    return [function](Stage& stage, Words& words, const std::string& name) {
        const HDC dc = stage.dc();
        return callWith(stage, words, name, std::function<R(A...)>([function, dc](A... arguments) {
                            return function(dc, std::forward<A>(arguments)...);
                        }));
    };
}

template <class R, class... A>
Call plain(R (*function)(A...)) {
    return [function](Stage& stage, Words& words, const std::string& name) {
        return callWith(stage, words, name, std::function<R(A...)>(function));
    };
}

int combine(HRGN target, HRGN a, HRGN b, int mode) {
    return CombineRgn(target, a, b, mode);
}

/// A pattern of eight rows of eight bits, or of four pixels of 32 bits in two rows.
HBRUSH patternOfBits(const Numbers& rows) {
    constexpr std::size_t count = 8;
    WORD bits[count] = {};
    for (std::size_t i = 0; i < std::min(count, rows.list.size()); ++i)
        bits[i] = static_cast<WORD>(rows.list[i]);
    const HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, bits);
    const HBRUSH brush = CreatePatternBrush(bitmap);
    DeleteObject(bitmap);
    return brush;
}

HBRUSH patternOfColors(int width, int height, const Numbers& pixels) {
    if (pixels.list.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
        throw std::runtime_error("a pattern of colours needs width x height pixels");
    const HBITMAP bitmap = CreateBitmap(width, height, 1, 32, pixels.list.data());
    const HBRUSH brush = CreatePatternBrush(bitmap);
    DeleteObject(bitmap);
    return brush;
}

HBITMAP bitmapOfBits(int width, int height, const Numbers& words) {
    if (words.list.size() != static_cast<std::size_t>((width + 15) / 16) * static_cast<std::size_t>(height))
        throw std::runtime_error("a bitmap of bits needs words of 16 bits for each row");
    const std::vector<WORD> rows(words.list.begin(), words.list.end());
    return CreateBitmap(width, height, 1, 1, rows.data());
}

HBITMAP bitmapOfColors(int width, int height, const Numbers& pixels) {
    if (pixels.list.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
        throw std::runtime_error("a bitmap of colours needs width x height pixels");
    return CreateBitmap(width, height, 1, 32, pixels.list.data());
}

HPEN extendedPen(DWORD style, DWORD width, UINT brushStyle, COLORREF color, int hatch,
                 const Numbers& dashes) {
    const LOGBRUSH brush{brushStyle, color, static_cast<std::uintptr_t>(hatch)};
    return ExtCreatePen(style, width, &brush, dashes.count(), dashes.count() ? dashes.list.data() : nullptr);
}

std::string pathText(HDC dc) {
    const int count = GetPath(dc, nullptr, nullptr, 0);
    if (count <= 0) return std::to_string(count);
    std::vector<POINT> points(static_cast<std::size_t>(count));
    std::vector<BYTE> types(static_cast<std::size_t>(count));
    GetPath(dc, points.data(), types.data(), count);
    std::string result = std::to_string(count);
    for (std::size_t i = 0; i < points.size(); ++i)
        result += " " + std::to_string(types[i]) + text(points[i]);
    return result;
}

const std::map<std::string, Call>& calls() {
    static const std::map<std::string, Call> table = {
        // State
        {"SetBkColor", onSurface(SetBkColor)},
        {"SetBkMode", onSurface(SetBkMode)},
        {"SetTextColor", onSurface(SetTextColor)},
        {"SetROP2", onSurface(SetROP2)},
        {"SetPolyFillMode", onSurface(SetPolyFillMode)},
        {"SetStretchBltMode", onSurface(SetStretchBltMode)},
        {"SetArcDirection", onSurface(SetArcDirection)},
        {"SetBrushOrgEx", onSurface(SetBrushOrgEx)},
        {"SetDCPenColor", onSurface(SetDCPenColor)},
        {"SetDCBrushColor", onSurface(SetDCBrushColor)},
        {"SetMiterLimit",
         onSurface(+[](HDC dc, int limit) { return SetMiterLimit(dc, static_cast<float>(limit), nullptr); })},
        {"SaveDC", onSurface(SaveDC)},
        {"RestoreDC", onSurface(RestoreDC)},
        // Coordinates
        {"SetMapMode", onSurface(SetMapMode)},
        {"SetWindowOrgEx", onSurface(SetWindowOrgEx)},
        {"SetViewportOrgEx", onSurface(SetViewportOrgEx)},
        {"SetWindowExtEx", onSurface(SetWindowExtEx)},
        {"SetViewportExtEx", onSurface(SetViewportExtEx)},
        {"GetWindowExtEx", onSurface(GetWindowExtEx)},
        {"GetViewportExtEx", onSurface(GetViewportExtEx)},
        {"OffsetWindowOrgEx", onSurface(OffsetWindowOrgEx)},
        {"OffsetViewportOrgEx", onSurface(OffsetViewportOrgEx)},
        {"ScaleWindowExtEx", onSurface(ScaleWindowExtEx)},
        {"ScaleViewportExtEx", onSurface(ScaleViewportExtEx)},
        {"LPtoDP", onSurface(+[](HDC dc, Points& p) { return LPtoDP(dc, p.list.data(), p.count()); })},
        {"DPtoLP", onSurface(+[](HDC dc, Points& p) { return DPtoLP(dc, p.list.data(), p.count()); })},
        // Objects
        {"CreatePen", plain(CreatePen)},
        {"ExtCreatePen", plain(extendedPen)},
        {"CreateSolidBrush", plain(CreateSolidBrush)},
        {"CreateHatchBrush", plain(CreateHatchBrush)},
        {"PatternOfBits", plain(patternOfBits)},
        {"PatternOfColors", plain(patternOfColors)},
        {"BitmapOfBits", plain(bitmapOfBits)},
        {"BitmapOfColors", plain(bitmapOfColors)},
        {"CreateCompatibleDC", plain(CreateCompatibleDC)},
        {"SelectObject", onSurface(SelectObject)},
        {"SelectStock",
         onSurface(+[](HDC dc, int index) { return SelectObject(dc, GetStockObject(index)); })},
        // Lines and shapes
        {"MoveToEx", onSurface(MoveToEx)},
        {"GetCurrentPositionEx", onSurface(GetCurrentPositionEx)},
        {"LineTo", onSurface(LineTo)},
        {"Polyline",
         onSurface(+[](HDC dc, const Points& p) { return Polyline(dc, p.list.data(), p.count()); })},
        {"PolylineTo",
         onSurface(+[](HDC dc, const Points& p) { return PolylineTo(dc, p.list.data(), p.count()); })},
        {"Polygon",
         onSurface(+[](HDC dc, const Points& p) { return Polygon(dc, p.list.data(), p.count()); })},
        {"PolyPolygon", onSurface(+[](HDC dc, const Groups& g) {
             return PolyPolygon(dc, g.list.data(), g.counts.data(), g.count());
         })},
        {"PolyPolyline", onSurface(+[](HDC dc, const Groups& g) {
             const std::vector<DWORD> counts(g.counts.begin(), g.counts.end());
             return PolyPolyline(dc, g.list.data(), counts.data(), static_cast<DWORD>(counts.size()));
         })},
        {"PolyBezier", onSurface(+[](HDC dc, const Points& p) {
             return PolyBezier(dc, p.list.data(), static_cast<DWORD>(p.count()));
         })},
        {"PolyBezierTo", onSurface(+[](HDC dc, const Points& p) {
             return PolyBezierTo(dc, p.list.data(), static_cast<DWORD>(p.count()));
         })},
        {"PolyDraw", onSurface(+[](HDC dc, const Outline& o) {
             return PolyDraw(dc, o.list.data(), o.types.data(), static_cast<int>(o.list.size()));
         })},
        {"Rectangle", onSurface(Rectangle)},
        {"Ellipse", onSurface(Ellipse)},
        {"RoundRect", onSurface(RoundRect)},
        {"Arc", onSurface(Arc)},
        {"ArcTo", onSurface(ArcTo)},
        {"Chord", onSurface(Chord)},
        {"Pie", onSurface(Pie)},
        {"FillRect", onSurface(FillRect)},
        {"FrameRect", onSurface(FrameRect)},
        {"InvertRect", onSurface(InvertRect)},
        {"DrawFocusRect", onSurface(DrawFocusRect)},
        {"SetPixel", onSurface(SetPixel)},
        {"SetPixelV", onSurface(SetPixelV)},
        {"GetPixel", onSurface(GetPixel)},
        {"PatBlt", onSurface(PatBlt)},
        {"BitBlt", onSurface(BitBlt)},
        {"StretchBlt", onSurface(StretchBlt)},
        {"ExtFloodFill", onSurface(ExtFloodFill)},
        // Pixels in other forms
        {"Noise", onSurface(noise)},
        {"AlphaBlend", onSurface(alphaBlend)},
        {"TransparentBlt", onSurface(TransparentBlt)},
        {"MaskBlt", onSurface(maskBlt)},
        {"PlgBlt", onSurface(plgBlt)},
        {"GradientRectangle", onSurface(gradientRectangle)},
        {"GradientTriangle", onSurface(gradientTriangle)},
        {"GradientMesh", onSurface(gradientMesh)},
        {"StretchDib", onSurface(stretchDib)},
        {"DibToDevice", onSurface(dibToDevice)},
        {"SetDib", onSurface(setDib)},
        {"DrawIcon", onSurface(drawIcon)},
        // Text
        {"CreateFont", plain(createFont)},
        {"SetTextAlign", onSurface(SetTextAlign)},
        {"SetTextCharacterExtra", onSurface(SetTextCharacterExtra)},
        {"SetTextJustification", onSurface(SetTextJustification)},
        {"TextOut", onSurface(textOut)},
        {"ExtTextOut", onSurface(extTextOut)},
        {"DrawText", onSurface(drawText)},
        {"TextExtent", onSurface(textExtent)},
        {"TextFit", onSurface(textFit)},
        {"TextMetrics", onSurface(textMetrics)},
        // Paths
        {"BeginPath", onSurface(BeginPath)},
        {"EndPath", onSurface(EndPath)},
        {"AbortPath", onSurface(AbortPath)},
        {"CloseFigure", onSurface(CloseFigure)},
        {"StrokePath", onSurface(StrokePath)},
        {"FillPath", onSurface(FillPath)},
        {"StrokeAndFillPath", onSurface(StrokeAndFillPath)},
        {"FlattenPath", onSurface(FlattenPath)},
        {"WidenPath", onSurface(WidenPath)},
        {"PathToRegion", onSurface(PathToRegion)},
        {"SelectClipPath", onSurface(SelectClipPath)},
        {"GetPath",
         [](Stage& stage, Words& words, const std::string&) {
             words.finish();
             return pathText(stage.dc());
         }},
        // Regions and clipping
        {"CreateRectRgn", plain(CreateRectRgn)},
        {"CreateEllipticRgn", plain(CreateEllipticRgn)},
        {"CreateRoundRectRgn", plain(CreateRoundRectRgn)},
        {"CreatePolygonRgn",
         plain(+[](int mode, const Points& p) { return CreatePolygonRgn(p.list.data(), p.count(), mode); })},
        {"CreatePolyPolygonRgn", plain(+[](int mode, const Groups& g) {
             return CreatePolyPolygonRgn(g.list.data(), g.counts.data(), g.count(), mode);
         })},
        {"CombineRgn", plain(combine)},
        {"OffsetRgn", plain(OffsetRgn)},
        {"EqualRgn", plain(EqualRgn)},
        {"PtInRegion", plain(PtInRegion)},
        {"RectInRegion", plain(RectInRegion)},
        {"GetRgnBox", plain(GetRgnBox)},
        {"FillRgn", onSurface(FillRgn)},
        {"PaintRgn", onSurface(PaintRgn)},
        {"FrameRgn", onSurface(FrameRgn)},
        {"InvertRgn", onSurface(InvertRgn)},
        {"SelectClipRgn", onSurface(SelectClipRgn)},
        {"ExtSelectClipRgn", onSurface(ExtSelectClipRgn)},
        {"IntersectClipRect", onSurface(IntersectClipRect)},
        {"ExcludeClipRect", onSurface(ExcludeClipRect)},
        {"OffsetClipRgn", onSurface(OffsetClipRgn)},
        {"GetClipBox", onSurface(GetClipBox)},
        {"PtVisible", onSurface(PtVisible)},
        {"RectVisible", onSurface(RectVisible)},
    };
    return table;
}

} // namespace

std::string callGdi(Stage& stage, const std::vector<std::string>& words, std::size_t first) {
    std::string name;
    if (first + 1 < words.size() && words[first + 1] == "=") {
        name = words[first];
        first += 2;
    }
    if (first >= words.size()) throw std::runtime_error("no function is named");
    const auto call = calls().find(words[first]);
    if (call == calls().end()) throw std::runtime_error("there is no function '" + words[first] + "'");
    Words arguments(words, first + 1);
    return words[first] + " " + call->second(stage, arguments, name);
}

} // namespace conformance
