#include "platform/linux/stretch.h"

#include "platform/linux/blit.h"
#include "platform/linux/rows.h"

#include <algorithm>
#include <cmath>

namespace platform::driver {

namespace {

/// The source columns (or rows) that one target column takes.
struct Share {
    int first = 0;
    int last = 0;  ///< Not included
    int taken = 0; ///< The one that stands for all in a mode that does not join them
};

/// One axis of a stretch. Either side may run backwards.
struct Axis {
    int targetLength;
    int sourceLength;
    bool targetBackwards;
    bool sourceBackwards;
    bool
        takesLast; ///< Of the source positions that one target position stands for, in modes that do not join
};

/// Quotient of numbers that are not negative, rounded up, less one: an exact quotient belongs to the one
/// below.
int lowerQuotient(std::int64_t a, std::int64_t b) {
    return static_cast<int>((a + b - 1) / b - 1);
}

/// The first source position whose centre falls on or after a target position, on a shrinking axis.
int firstShrunk(std::int64_t position, std::int64_t targetLength, std::int64_t sourceLength) {
    const std::int64_t edge = 2 * sourceLength * position - targetLength;
    return edge < 0 ? 0 : static_cast<int>(edge / (2 * targetLength) + 1);
}

/// Growing, a target position takes the source position under its centre; shrinking, each source position
/// goes to the target position under its own.
Share shareOf(const Axis& axis, int target) {
    const int position = axis.targetBackwards ? axis.targetLength - 1 - target : target;
    Share share;
    if (axis.targetLength >= axis.sourceLength) {
        share.first = lowerQuotient((2 * std::int64_t{position} + 1) * axis.sourceLength,
                                    2 * std::int64_t{axis.targetLength});
        share.last = share.first + 1;
    } else {
        share.first = firstShrunk(position, axis.targetLength, axis.sourceLength);
        share.last = firstShrunk(position + 1, axis.targetLength, axis.sourceLength);
    }
    share.taken = axis.takesLast ? share.last - 1 : share.first;
    if (!axis.sourceBackwards) return share;
    const int length = axis.sourceLength;
    return {length - share.last, length - share.first, length - 1 - share.taken};
}

/// A place of a source that begins at `start`, as a position on a surface so long: what lies beyond an edge
/// is as the edge is.
int heldWithin(int start, int place, int length) {
    return static_cast<int>(std::clamp<std::int64_t>(std::int64_t{start} + place, 0, length - 1));
}

/// The shares of the target positions `begin` to `end` of an axis, on a surface on which the source begins at
/// `start`. They hold no more than the surface does, however long the source claims to be: joining a pixel
/// of the edge once or many times is the same.
std::vector<Share> sharesOf(const Axis& axis, int begin, int end, int start, int surfaceLength) {
    std::vector<Share> shares;
    shares.reserve(static_cast<std::size_t>(end - begin));
    for (int i = begin; i < end; ++i) {
        const Share share = shareOf(axis, i);
        const int first = heldWithin(start, share.first, surfaceLength);
        const bool isEmpty = share.last <= share.first;
        const int last = isEmpty ? first : heldWithin(start, share.last - 1, surfaceLength) + 1;
        shares.push_back({first, last, heldWithin(start, share.taken, surfaceLength)});
    }
    return shares;
}

Axis acrossOf(const Stretch& stretch) {
    return {stretch.to.right - stretch.to.left, stretch.from.right - stretch.from.left,
            stretch.targetLeftwards, stretch.sourceLeftwards, true};
}

Axis downOf(const Stretch& stretch) {
    return {stretch.to.bottom - stretch.to.top, stretch.from.bottom - stretch.from.top, stretch.targetUpwards,
            stretch.sourceUpwards, false};
}

/// Joins the source pixels that fall on one target pixel. A mode that does not join takes one of them.
struct Joiner {
    int mode;

    void join(std::uint32_t& sum, std::uint32_t pixel) const {
        if (mode == BLACKONWHITE) sum &= pixel;
        if (mode == WHITEONBLACK) sum |= pixel;
    }
    bool joins() const { return mode == BLACKONWHITE || mode == WHITEONBLACK; }
};

/// The stretched pixels of one row of the target, from the rows of its share.
class RowStretcher {
public:
    RowStretcher(const Surface& from, std::vector<Share> columns, int mode)
        : from_(from), columns_(std::move(columns)), joiner_{mode} {}

    void row(const Share& rows, std::vector<std::uint32_t>& out) {
        out.resize(columns_.size());
        if (!joiner_.joins()) {
            addRow(rows.taken, true, out);
            return;
        }
        for (int y = rows.first; y < rows.last; ++y)
            addRow(y, y == rows.first, out);
    }

private:
    void addRow(int y, bool first, std::vector<std::uint32_t>& out) {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const Share& share = columns_[i];
            std::uint32_t pixel = at(share.taken, y);
            for (int x = share.first; x < share.last && joiner_.joins(); ++x)
                joiner_.join(pixel, at(x, y));
            if (first) {
                out[i] = pixel;
            } else {
                joiner_.join(out[i], pixel);
            }
        }
    }

    std::uint32_t at(int x, int y) const {
        return from_.bitsPerPixel == 32 ? row32(from_, y)[x] : valueAt(from_, x, y);
    }

    const Surface& from_;
    std::vector<Share> columns_;
    Joiner joiner_;
};

/// Where a target position falls on one axis of a smooth stretch: between a source position and the next.
struct Between {
    int first = 0;
    int second = 0;
    float share = 0; ///< Of the second
};

/// On a surface so long, on which the source begins at `start`. A position is the one before it and a step,
/// in single precision from `origin` on: rounding is part of what the platform draws.
std::vector<Between> betweenOf(const Axis& axis, int begin, int end, int start, int surfaceLength,
                               int origin) {
    std::vector<Between> result;
    result.reserve(static_cast<std::size_t>(end - begin));
    const bool mirrored = axis.targetBackwards != axis.sourceBackwards;
    const int last = axis.sourceLength - 1;
    const float length = static_cast<float>(axis.sourceLength) / static_cast<float>(axis.targetLength);
    const float step = mirrored ? -length : length;
    // Step by step from the edge, however little of it is to be seen; from far outside at once.
    constexpr int farthest = 1 << 16;
    const int jump = begin > farthest ? begin : 0;
    float position = static_cast<float>(mirrored ? origin + last : origin) + static_cast<float>(jump) * step;
    for (int i = jump; i < begin; ++i)
        position += step;
    for (int i = begin; i < end; ++i, position += step) {
        const float whole = std::floor(position);
        const int place = static_cast<int>(whole) - origin;
        Between between;
        between.first = std::clamp(place, 0, last);
        between.second = std::clamp(place + 1, 0, last);
        between.share = position - whole;
        between.first = heldWithin(start, between.first, surfaceLength);
        between.second = heldWithin(start, between.second, surfaceLength);
        result.push_back(between);
    }
    return result;
}

/// The least and the greatest place among some.
std::pair<int, int> columnsIn(const std::vector<Between>& columns) {
    std::pair<int, int> range{columns.front().first, columns.front().first};
    for (const Between& column : columns) {
        range.first = std::min({range.first, column.first, column.second});
        range.second = std::max({range.second, column.first, column.second});
    }
    return range;
}

/// Rows of the source's colours between two columns, both included.
class ColorRows {
public:
    ColorRows(const SourcePixels& source, int first, int last)
        : source_(source), first_(first), width_(last - first + 1) {}

    const std::vector<std::uint32_t>& row(int y) {
        std::vector<std::uint32_t>& colors = rows_[static_cast<std::size_t>(y & 1)];
        int& known = known_[static_cast<std::size_t>(y & 1)];
        if (known == y) return colors;
        known = y;
        colors.resize(static_cast<std::size_t>(width_));
        readRow(*source_.surface, first_, y, width_, source_.bits, colors.data());
        return colors;
    }

private:
    const SourcePixels& source_;
    int first_;
    int width_;
    std::vector<std::uint32_t> rows_[2]; ///< Even and odd rows: two neighbours are needed at a time
    int known_[2] = {-1, -1};
};

/// A component between two others, rounded.
int componentBetween(int first, int second, float share) {
    return static_cast<int>(
        std::floor(static_cast<float>(first) + share * static_cast<float>(second - first) + 0.5f));
}

/// Four neighbours joined: those of each row first.
std::uint32_t blendOfFour(const std::uint32_t (&colors)[4], float across, float down) {
    std::uint32_t result = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const auto part = [&](int i) { return static_cast<int>(colors[i] >> shift & 0xFF); };
        const int above = componentBetween(part(0), part(1), across);
        const int below = componentBetween(part(2), part(3), across);
        result |= static_cast<std::uint32_t>(componentBetween(above, below, down)) << shift;
    }
    return result;
}

/// Modes that join pixels join them as the target has them: the part of the source in the target's format.
/// `stretch` then begins at its corner.
std::unique_ptr<Bitmap> translatedTo(const DeviceContext& target, const SourcePixels& source,
                                     Stretch& stretch) {
    const Surface& from = *source.surface;
    const RECT part = intersection(stretch.from, {0, 0, from.width, from.height});
    if (isEmpty(part)) return nullptr;
    auto result = makeBitmapLike(*target.surface, part.right - part.left, part.bottom - part.top);
    if (!result) return nullptr;
    const auto context = makeContextOver(*result, target);
    SourcePixels pixels = source;
    pixels.offset = {part.left, part.top};
    pixels.valid = part;
    copyPixels(*context, {0, 0, result->surface.width, result->surface.height}, pixels, rop3Of(SRCCOPY));
    stretch.from = moved(stretch.from, {-part.left, -part.top});
    return result;
}

/// HALFTONE: each target position takes the four source positions around the point that its corner falls on.
/// Positions count on the source's surface, or from its corner when colours are translated first.
std::unique_ptr<Bitmap> smoothed(const SourcePixels& source, const Stretch& stretch, const RECT& part,
                                 bool isTranslated) {
    auto result = makeBitmap(part.right - part.left, part.bottom - part.top, 32);
    if (!result) return nullptr;
    const RECT& to = stretch.to;
    const Surface& from = *source.surface;
    const POINT origin = isTranslated ? POINT{} : POINT{stretch.from.left, stretch.from.top};
    const auto columns = betweenOf(acrossOf(stretch), part.left - to.left, part.right - to.left,
                                   stretch.from.left, from.width, origin.x);
    const auto lines = betweenOf(downOf(stretch), part.top - to.top, part.bottom - to.top, stretch.from.top,
                                 from.height, origin.y);
    const auto [first, last] = columnsIn(columns);
    ColorRows rows(source, first, last);
    for (std::size_t y = 0; y < lines.size(); ++y) {
        const std::vector<std::uint32_t>& above = rows.row(lines[y].first);
        const std::vector<std::uint32_t>& below = rows.row(lines[y].second);
        std::uint32_t* out = row32(result->surface, static_cast<int>(y));
        for (std::size_t x = 0; x < columns.size(); ++x) {
            const auto left = static_cast<std::size_t>(columns[x].first - first);
            const auto right = static_cast<std::size_t>(columns[x].second - first);
            out[x] = blendOfFour({above[left], above[right], below[left], below[right]}, columns[x].share,
                                 lines[y].share);
        }
    }
    return result;
}

} // namespace

Stretch Stretch::between(const RECT& to, const RECT& from) {
    return {areaOf(to),         areaOf(from),           to.right < to.left,
            to.bottom < to.top, from.right < from.left, from.bottom < from.top};
}

bool Stretch::changesSize() const {
    return to.right - to.left != from.right - from.left || to.bottom - to.top != from.bottom - from.top;
}

bool Stretch::isMirrored() const {
    return targetLeftwards != sourceLeftwards || targetUpwards != sourceUpwards;
}

std::unique_ptr<Bitmap> stretched(const Surface& source, const Stretch& stretch, const RECT& part, int mode) {
    auto result = makeBitmapLike(source, part.right - part.left, part.bottom - part.top);
    if (!result) return nullptr;
    const RECT& to = stretch.to;
    RowStretcher rows(source,
                      sharesOf(acrossOf(stretch), part.left - to.left, part.right - to.left,
                               stretch.from.left, source.width),
                      mode);
    const std::vector<Share> lines =
        sharesOf(downOf(stretch), part.top - to.top, part.bottom - to.top, stretch.from.top, source.height);
    std::vector<std::uint32_t> pixels;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        rows.row(lines[i], pixels);
        writeValues(result->surface, 0, static_cast<int>(i), part.right - part.left, pixels.data());
    }
    return result;
}

void stretchArea(DeviceContext& target, const SourcePixels& source, const Stretch& stretch, Rop3 rop) {
    const RECT part = intersection(stretch.to, target.drawable().bounds());
    if (isEmpty(part) || isEmpty(stretch.from)) return;
    const int mode = target.state.stretchMode;
    std::unique_ptr<Bitmap> translated;
    SourcePixels pixels = source;
    Stretch shifted = stretch;
    const bool isTranslated = !haveSameFormat(*target.surface, *source.surface);
    if ((mode == BLACKONWHITE || mode == WHITEONBLACK) && isTranslated) {
        translated = translatedTo(target, source, shifted);
        if (!translated) return;
        pixels.surface = &translated->surface;
    }
    const auto picture = mode == HALFTONE ? smoothed(pixels, shifted, part, isTranslated)
                                          : stretched(*pixels.surface, shifted, part, mode);
    if (!picture) return;
    pixels.surface = &picture->surface;
    pixels.valid = {0, 0, picture->surface.width, picture->surface.height};
    pixels.offset = {-part.left, -part.top};
    copyPixels(target, part, pixels, rop);
}

} // namespace platform::driver
