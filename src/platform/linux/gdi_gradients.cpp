// Gradients: rectangles between two colours, triangles between three.

#include "platform/gdi.h"
#include "platform/linux/blit.h"
#include "platform/linux/dither.h"
#include "platform/linux/metafile_recorder.h"
#include "platform/linux/rows.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

namespace platform::driver {

namespace {

/// Components of 16 bits, as vertices have them.
struct GradientColor {
    WORD red = 0;
    WORD green = 0;
    WORD blue = 0;
    WORD alpha = 0;
};

/// The upper halves of the components.
std::uint32_t wordOf(const GradientColor& color) {
    constexpr std::uint32_t upper = 0xFF00;
    return (color.alpha & upper) << 16 | (color.red & upper) << 8 | (color.green & upper) | color.blue >> 8;
}

/// Puts the colours of gradients on a surface. Where colours are few they are dithered by their place.
class GradientRows {
public:
    explicit GradientRows(const DeviceContext& context) : surface_(*context.surface), finder_(context) {}

    void row(int left, int y, const std::vector<GradientColor>& colors) {
        for (std::size_t i = 0; i < colors.size(); ++i)
            put(left + static_cast<int>(i), y, colors[i]);
    }
    void row(int left, int right, int y, const GradientColor& color) {
        for (int x = left; x < right; ++x)
            put(x, y, color);
    }

private:
    void put(int x, int y, const GradientColor& color) {
        if (isPlain32(surface_)) {
            row32(surface_, y)[x] = wordOf(color);
            return;
        }
        const std::uint32_t value = valueAt(x, y, color);
        writeValues(surface_, x, y, 1, &value);
    }

    std::uint32_t valueAt(int x, int y, const GradientColor& color) {
        constexpr int mostTableBits = 8;
        if (surface_.bitsPerPixel <= mostTableBits)
            return finder_.valueOf(ditheredThird(color.red, x, y) << 16 |
                                   ditheredThird(color.green, x, y) << 8 | ditheredThird(color.blue, x, y));
        if (surface_.bitsPerPixel != 16) return finder_.valueOf(wordOf(color) & 0x00FFFFFF);
        const std::array<ColorField, 3>& fields = surface_.format->fields();
        const WORD components[] = {color.red, color.green, color.blue};
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < fields.size(); ++i)
            value |= ditheredField(components[i], fields[i].bits, x, y) << fields[i].shift;
        return value;
    }

    const Surface& surface_;
    ValueFinder finder_;
};

GradientColor mixed(const TRIVERTEX& a, const TRIVERTEX& b, std::int64_t position, std::int64_t length) {
    const auto component = [&](WORD from, WORD to) {
        return static_cast<WORD>((from * (length - position) + to * position) / length);
    };
    return {component(a.Red, b.Red), component(a.Green, b.Green), component(a.Blue, b.Blue),
            component(a.Alpha, b.Alpha)};
}

/// The lines of equal colour in a gradient's rectangle, numbered from its first vertex to its second.
struct GradientLines {
    const TRIVERTEX& first;
    const TRIVERTEX& last;
    std::int64_t length;

    GradientColor at(std::int64_t line) const { return mixed(first, last, line, length); }
};

/// The words of consecutive lines. Nothing is divided for a line: the components, of 16 bits, are numbers
/// with `places` binary places more, to which the same step is added for each. It is too large by less than
/// the last place, which does not come to the next quotient within so many lines.
template <class Number, int places>
struct SteppedLines {
    static constexpr std::int64_t longest = std::int64_t{1} << (places / 2);

    struct Component {
        Number value;
        Number step;

        Component(WORD from, WORD to, std::int64_t line, std::int64_t length) {
            const auto lines = static_cast<Number>(length);
            const bool rises = to > from;
            const Number way = static_cast<Number>(rises ? to - from : from - to) << places;
            step = rises ? (way + lines - 1) / lines : 0 - way / lines; // modulo 2 to the number's bits
            value = (Number{from} << places) + step * static_cast<Number>(line);
        }
        /// The upper half of the component, of which then the next line's is at hand. The loop that calls it
        /// goes several lines at once.
        std::uint32_t next() {
            const auto upper = static_cast<std::uint32_t>(value >> (places + 8));
            value += step;
            return upper;
        }
    };

    static void find(const GradientLines& lines, std::int64_t line, std::span<std::uint32_t> words) {
        const auto component = [&](WORD TRIVERTEX::*part) {
            return Component(lines.first.*part, lines.last.*part, line, lines.length);
        };
        Component red = component(&TRIVERTEX::Red);
        Component green = component(&TRIVERTEX::Green);
        Component blue = component(&TRIVERTEX::Blue);
        Component alpha = component(&TRIVERTEX::Alpha);
        for (std::uint32_t& word : words)
            word = alpha.next() << 24 | red.next() << 16 | green.next() << 8 | blue.next();
    }
};

void findWords(const GradientLines& lines, std::int64_t line, std::span<std::uint32_t> words) {
    using FewLines = SteppedLines<std::uint32_t, 16>; // several at once fit into the processor's vectors
    using ManyLines = SteppedLines<std::uint64_t, 32>;
    if (lines.length <= FewLines::longest) {
        FewLines::find(lines, line, words);
    } else if (lines.length <= ManyLines::longest) {
        ManyLines::find(lines, line, words);
    } else {
        for (std::uint32_t& word : words)
            word = wordOf(lines.at(line++));
    }
}

/// Paints levels of one colour each on plain words, from a line on.
void fillLevels(const Surface& surface, const RECT& r, const GradientLines& lines, std::int64_t line) {
    constexpr int mostAtOnce = 64;
    std::array<std::uint32_t, mostAtOnce> words;
    for (LONG top = r.top; top < r.bottom; top += mostAtOnce) {
        const int count = std::min<int>(mostAtOnce, r.bottom - top);
        findWords(lines, line + (top - r.top), {words.data(), static_cast<std::size_t>(count)});
        wordRows().fillRows(row32(surface, top) + r.left, wordStride(surface), r.right - r.left, count,
                            words.data());
    }
}

/// Paints columns of one colour each on plain words, from a line on.
void fillColumns(const Surface& surface, const RECT& r, const GradientLines& lines, std::int64_t line) {
    std::vector<std::uint32_t> words(static_cast<std::size_t>(r.right - r.left));
    findWords(lines, line, words);
    wordRows().copy({row32(surface, r.top) + r.left, wordStride(surface), words.data(), 0,
                     static_cast<int>(words.size()), r.bottom - r.top});
}

/// The two where colours are few.
void ditherLevels(GradientRows& rows, const RECT& r, const GradientLines& lines, std::int64_t line) {
    for (LONG y = r.top; y < r.bottom; ++y)
        rows.row(r.left, r.right, y, lines.at(line++));
}

void ditherColumns(GradientRows& rows, const RECT& r, const GradientLines& lines, std::int64_t line) {
    std::vector<GradientColor> colors;
    for (LONG x = r.left; x < r.right; ++x)
        colors.push_back(lines.at(line++));
    for (LONG y = r.top; y < r.bottom; ++y)
        rows.row(r.left, y, colors);
}

/// Paints one rectangle of a gradient a line of equal colour at a time.
void fillRectangle(DeviceContext& context, const TRIVERTEX& a, const TRIVERTEX& b, bool across) {
    const bool isTurned = across ? a.x > b.x : a.y > b.y;
    const RECT area = ordered(context.toSurface(RECT{a.x, a.y, b.x, b.y}));
    const Surface& surface = *context.surface;
    const std::int64_t start = across ? area.left : area.top;
    const GradientLines lines{isTurned ? b : a, isTurned ? a : b,
                              (across ? area.right : area.bottom) - start};
    for (const RECT& clip : context.drawable().rectangles()) {
        const RECT r = intersection(area, clip);
        if (isEmpty(r)) continue;
        const std::int64_t line = (across ? r.left : r.top) - start;
        if (isPlain32(surface)) {
            (across ? fillColumns : fillLevels)(surface, r, lines, line);
        } else {
            GradientRows rows(context);
            (across ? ditherColumns : ditherLevels)(rows, r, lines, line);
        }
    }
}

/// A triangle on the surface, its vertices from top to bottom.
class GradientShape {
public:
    explicit GradientShape(const std::array<TRIVERTEX, 3>& vertices) : v_(vertices) {
        std::sort(v_.begin(), v_.end(), [](const TRIVERTEX& one, const TRIVERTEX& other) {
            return one.y != other.y ? one.y < other.y : one.x < other.x;
        });
        area_ = std::int64_t{v_[1].x - v_[0].x} * (v_[2].y - v_[0].y) -
                std::int64_t{v_[1].y - v_[0].y} * (v_[2].x - v_[0].x);
    }

    bool isFlat() const { return area_ == 0; }
    RECT bounds() const {
        const auto [left, right] = std::minmax({v_[0].x, v_[1].x, v_[2].x});
        return {left, top(), right, bottom()};
    }
    int top() const { return v_[0].y; }
    int bottom() const { return v_[2].y; }

    /// The pixels of a row, which must not lie outside.
    RECT row(int y) const {
        const int longSide = crossing(v_[0], v_[2], y);
        const int shortSide = y < v_[1].y ? crossing(v_[0], v_[1], y) : crossing(v_[1], v_[2], y);
        return {std::min(longSide, shortSide), y, std::max(longSide, shortSide), y + 1};
    }

    /// The colour at a point as the three corners weigh there.
    GradientColor colorAt(int x, int y) const {
        const auto doubleArea = [&](const TRIVERTEX& a, const TRIVERTEX& b) {
            return std::int64_t{b.x - a.x} * (y - a.y) - std::int64_t{b.y - a.y} * (x - a.x);
        };
        const std::int64_t weights[] = {doubleArea(v_[1], v_[2]), doubleArea(v_[2], v_[0]),
                                        doubleArea(v_[0], v_[1])};
        const auto component = [&](WORD TRIVERTEX::*part) {
            constexpr std::int64_t most = std::numeric_limits<WORD>::max();
            std::int64_t sum = 0;
            for (std::size_t i = 0; i < 3; ++i)
                sum += weights[i] * (v_[i].*part);
            return static_cast<WORD>(std::clamp<std::int64_t>(sum / area_, 0, most));
        };
        return {component(&TRIVERTEX::Red), component(&TRIVERTEX::Green), component(&TRIVERTEX::Blue),
                component(&TRIVERTEX::Alpha)};
    }

private:
    /// The first pixel on or right of the edge from a down to b, which must not lie at the same height.
    static int crossing(const TRIVERTEX& a, const TRIVERTEX& b, int y) {
        const std::int64_t sum = std::int64_t{b.x - a.x} * (y - a.y);
        const std::int64_t height = b.y - a.y;
        return static_cast<int>(a.x + sum / height + (sum % height > 0 ? 1 : 0));
    }

    std::array<TRIVERTEX, 3> v_;
    std::int64_t area_ = 0; ///< Twice the triangle's
};

/// False for three corners on a slanting line; on a level or upright one, or beyond the clipping, there is
/// nothing to paint.
bool fillTriangle(DeviceContext& context, std::array<TRIVERTEX, 3> vertices) {
    for (TRIVERTEX& vertex : vertices) {
        const POINT p = context.toSurface(POINT{vertex.x, vertex.y});
        vertex.x = p.x;
        vertex.y = p.y;
    }
    const GradientShape shape(vertices);
    if (shape.isFlat()) return isEmpty(intersection(shape.bounds(), context.drawable().bounds()));
    GradientRows rows(context);
    std::vector<GradientColor> colors;
    for (const RECT& clip : context.drawable().rectangles()) {
        for (int y = std::max(clip.top, shape.top()); y < std::min(clip.bottom, shape.bottom()); ++y) {
            const RECT r = intersection(shape.row(y), clip);
            if (isEmpty(r)) continue;
            colors.clear();
            for (int x = r.left; x < r.right; ++x)
                colors.push_back(shape.colorAt(x, y));
            rows.row(r.left, y, colors);
        }
    }
    return true;
}

} // namespace

} // namespace platform::driver

namespace platform {

using namespace driver;

BOOL GradientFill(HDC dc, const TRIVERTEX* vertices, DWORD vertexCount, const void* meshes, DWORD meshCount,
                  DWORD mode) {
    DeviceContext* context = find<DeviceContext>(dc);
    if (!context || !vertices || !meshes || vertexCount == 0 || meshCount == 0) return FALSE_;
    if (mode > GRADIENT_FILL_TRIANGLE) return FALSE_;
    const DWORD corners = mode == GRADIENT_FILL_TRIANGLE ? 3 : 2;
    const auto* indices = static_cast<const DWORD*>(meshes);
    const DWORD* const end = indices + std::size_t{meshCount} * corners;
    if (std::any_of(indices, end, [&](DWORD index) { return index >= vertexCount; })) return FALSE_;
    if (context->recorder) context->recorder->gradient({vertices, vertexCount}, meshes, meshCount, mode);
    bool done = true;
    for (; indices != end; indices += corners) {
        const TRIVERTEX& first = vertices[indices[0]];
        const TRIVERTEX& second = vertices[indices[1]];
        if (mode == GRADIENT_FILL_TRIANGLE) {
            done = fillTriangle(*context, {first, second, vertices[indices[2]]}) && done;
        } else {
            fillRectangle(*context, first, second, mode == GRADIENT_FILL_RECT_H);
        }
    }
    return done ? TRUE_ : FALSE_;
}

} // namespace platform
