#include "platform/linux/stretch.h"

#include "platform/linux/blit.h"
#include "platform/linux/rows.h"

#include <algorithm>

namespace platform::driver {

namespace {

/// The source columns (or rows) that one target column takes, counted from the source's start.
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

/// The shares of the target positions `begin` to `end` of an axis.
std::vector<Share> sharesOf(const Axis& axis, int begin, int end) {
    std::vector<Share> shares;
    shares.reserve(static_cast<std::size_t>(end - begin));
    for (int i = begin; i < end; ++i)
        shares.push_back(shareOf(axis, i));
    return shares;
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
    RowStretcher(const Surface& from, const RECT& area, std::vector<Share> columns, int mode)
        : from_(from), area_(area), columns_(std::move(columns)), joiner_{mode} {}

    void row(const Share& rows, std::vector<std::uint32_t>& out) {
        out.resize(columns_.size());
        if (!joiner_.joins()) {
            addRow(area_.top + rows.taken, true, out);
            return;
        }
        for (int y = rows.first; y < rows.last; ++y)
            addRow(area_.top + y, y == rows.first, out);
    }

private:
    void addRow(int y, bool first, std::vector<std::uint32_t>& out) {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const Share& share = columns_[i];
            std::uint32_t pixel = at(area_.left + share.taken, y);
            for (int x = share.first; x < share.last && joiner_.joins(); ++x)
                joiner_.join(pixel, at(area_.left + x, y));
            if (first) {
                out[i] = pixel;
            } else {
                joiner_.join(out[i], pixel);
            }
        }
    }

    std::uint32_t at(int x, int y) const {
        x = std::clamp(x, 0, from_.width - 1);
        y = std::clamp(y, 0, from_.height - 1);
        return from_.bitsPerPixel == 32 ? row32(from_, y)[x] : valueAt(from_, x, y);
    }

    const Surface& from_;
    RECT area_;
    std::vector<Share> columns_;
    Joiner joiner_;
};

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
    const RECT& from = stretch.from;
    const Axis across{to.right - to.left, from.right - from.left, stretch.targetLeftwards,
                      stretch.sourceLeftwards, true};
    const Axis down{to.bottom - to.top, from.bottom - from.top, stretch.targetUpwards, stretch.sourceUpwards,
                    false};
    RowStretcher rows(source, from, sharesOf(across, part.left - to.left, part.right - to.left), mode);
    const std::vector<Share> lines = sharesOf(down, part.top - to.top, part.bottom - to.top);
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
    const auto picture = stretched(*source.surface, stretch, part, target.state.stretchMode);
    if (!picture) return;
    SourcePixels pixels = source;
    pixels.surface = &picture->surface;
    pixels.valid = {0, 0, picture->surface.width, picture->surface.height};
    pixels.offset = {-part.left, -part.top};
    copyPixels(target, part, pixels, rop);
}

} // namespace platform::driver
