#include "platform/linux/surface.h"

#include <algorithm>
#include <limits>
#include <span>

namespace platform::driver {

namespace {

using Rects = std::vector<RECT>;

/// Which pixels of two sets belong to the result.
enum class Operation { Union, Intersection, Difference };

bool isEmpty(const RECT& r) {
    return r.left >= r.right || r.top >= r.bottom;
}

bool overlaps(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool covers(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

/// Empty, of whatever form, where the two lie apart.
RECT overlap(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

LONG saturatedSum(LONG a, LONG b) {
    const std::int64_t sum = std::int64_t{a} + b;
    return static_cast<LONG>(
        std::clamp<std::int64_t>(sum, std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max()));
}

RECT moved(const RECT& r, LONG dx, LONG dy) {
    return {saturatedSum(r.left, dx), saturatedSum(r.top, dy), saturatedSum(r.right, dx),
            saturatedSum(r.bottom, dy)};
}

/// Walks the bands of one operand: rows of rectangles with the same top and bottom.
class Bands {
public:
    explicit Bands(std::span<const RECT> rects) : rects_(rects) { findEnd(); }

    bool done() const { return begin_ == rects_.size(); }
    LONG top() const { return rects_[begin_].top; }
    LONG bottom() const { return rects_[begin_].bottom; }
    const RECT* first() const { return rects_.data() + begin_; }
    const RECT* last() const { return rects_.data() + end_; }

    void next() {
        begin_ = end_;
        findEnd();
    }

private:
    void findEnd() {
        end_ = begin_;
        while (end_ < rects_.size() && rects_[end_].top == rects_[begin_].top)
            ++end_;
    }

    std::span<const RECT> rects_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
};

bool belongs(Operation operation, bool inA, bool inB) {
    switch (operation) {
    case Operation::Union:
        return inA || inB;
    case Operation::Intersection:
        return inA && inB;
    case Operation::Difference:
        return inA && !inB;
    }
    return false;
}

/// Builds the result band by band, joining a band with the one above when their intervals are the same.
class BandWriter {
public:
    void combine(Operation operation, LONG top, LONG bottom, const RECT* a, const RECT* aEnd, const RECT* b,
                 const RECT* bEnd) {
        bandStart_ = out_.size();
        bool inA = false;
        bool inB = false;
        bool inside = false;
        LONG start = 0;
        while (a != aEnd || b != bEnd) {
            const LONG nextA = a == aEnd ? std::numeric_limits<LONG>::max() : (inA ? a->right : a->left);
            const LONG nextB = b == bEnd ? std::numeric_limits<LONG>::max() : (inB ? b->right : b->left);
            const bool fromA = a != aEnd && (nextA <= nextB || b == bEnd);
            const bool fromB = b != bEnd && (nextB <= nextA || a == aEnd);
            const LONG x = fromA ? nextA : nextB;
            if (fromA) {
                if (inA) ++a;
                inA = !inA;
            }
            if (fromB) {
                if (inB) ++b;
                inB = !inB;
            }
            const bool now = belongs(operation, inA, inB);
            if (now && !inside) start = x;
            if (!now && inside) addInterval(start, top, x, bottom);
            inside = now;
        }
        closeBand(top);
    }

    /// Appends a band from intervals in the order of their left ends.
    void append(std::span<const RECT> intervals, LONG top, LONG bottom) {
        bandStart_ = out_.size();
        for (const RECT& r : intervals) {
            if (out_.size() > bandStart_ && r.left <= out_.back().right) {
                out_.back().right = std::max(out_.back().right, r.right);
            } else {
                out_.push_back({r.left, top, r.right, bottom});
            }
        }
        closeBand(top);
    }

    Rects take() { return std::move(out_); }

private:
    /// Joins with the interval to the left when they touch, which two sets side by side make happen.
    void addInterval(LONG left, LONG top, LONG right, LONG bottom) {
        if (left >= right) return;
        if (out_.size() > bandStart_ && out_.back().right == left) {
            out_.back().right = right;
        } else {
            out_.push_back({left, top, right, bottom});
        }
    }

    void closeBand(LONG top) {
        const std::size_t count = out_.size() - bandStart_;
        const std::size_t previousCount = bandStart_ - previousStart_;
        if (count > 0 && count == previousCount && out_[previousStart_].bottom == top &&
            sameIntervals(count)) {
            const LONG bottom = out_[bandStart_].bottom;
            out_.resize(bandStart_);
            for (std::size_t i = previousStart_; i < bandStart_; ++i)
                out_[i].bottom = bottom;
        } else if (count > 0) {
            previousStart_ = bandStart_;
        }
    }

    bool sameIntervals(std::size_t count) const {
        for (std::size_t i = 0; i < count; ++i) {
            const RECT& above = out_[previousStart_ + i];
            const RECT& below = out_[bandStart_ + i];
            if (above.left != below.left || above.right != below.right) return false;
        }
        return true;
    }

    Rects out_;
    std::size_t previousStart_ = 0;
    std::size_t bandStart_ = 0;
};

Rects combine(Operation operation, std::span<const RECT> first, std::span<const RECT> second) {
    Bands a(first);
    Bands b(second);
    BandWriter writer;
    LONG y = std::numeric_limits<LONG>::min();
    while (!a.done() || !b.done()) {
        LONG top = std::numeric_limits<LONG>::max();
        if (!a.done()) top = std::min(top, std::max(y, a.top()));
        if (!b.done()) top = std::min(top, std::max(y, b.top()));
        const bool useA = !a.done() && a.top() <= top;
        const bool useB = !b.done() && b.top() <= top;
        LONG bottom = std::numeric_limits<LONG>::max();
        if (!a.done()) bottom = std::min(bottom, useA ? a.bottom() : a.top());
        if (!b.done()) bottom = std::min(bottom, useB ? b.bottom() : b.top());
        writer.combine(operation, top, bottom, useA ? a.first() : nullptr, useA ? a.last() : nullptr,
                       useB ? b.first() : nullptr, useB ? b.last() : nullptr);
        y = bottom;
        if (useA && a.bottom() == bottom) a.next();
        if (useB && b.bottom() == bottom) b.next();
    }
    return writer.take();
}

} // namespace

Region::Region(const RECT& r) {
    if (!isEmpty(r)) only_ = r;
}

Region::Region(std::vector<RECT> rects) {
    if (rects.size() == 1)
        only_ = rects.front();
    else
        several_ = std::move(rects);
}

Region Region::ofRows(std::vector<RECT> rows) {
    std::erase_if(rows, isEmpty);
    std::sort(rows.begin(), rows.end(),
              [](const RECT& a, const RECT& b) { return a.top != b.top ? a.top < b.top : a.left < b.left; });
    BandWriter writer;
    for (auto first = rows.begin(); first != rows.end();) {
        const auto last = std::find_if(first, rows.end(), [&](const RECT& r) { return r.top != first->top; });
        writer.append({first, last}, first->top, first->bottom);
        first = last;
    }
    return Region(writer.take());
}

/// Sweeps down from edge to edge, with the rectangles that the sweep stands on in the order of their left
/// ends.
Region Region::ofAll(std::vector<RECT> rects) {
    std::erase_if(rects, isEmpty);
    std::sort(rects.begin(), rects.end(), [](const RECT& a, const RECT& b) { return a.top < b.top; });
    BandWriter writer;
    Rects open;
    LONG top = 0;
    for (auto next = rects.begin(); next != rects.end() || !open.empty();) {
        if (open.empty()) top = next->top;
        for (; next != rects.end() && next->top == top; ++next) {
            const auto place = std::upper_bound(open.begin(), open.end(), next->left,
                                                [](LONG left, const RECT& r) { return left < r.left; });
            open.insert(place, *next);
        }
        LONG bottom = next != rects.end() ? next->top : std::numeric_limits<LONG>::max();
        for (const RECT& r : open)
            bottom = std::min(bottom, r.bottom);
        writer.append(open, top, bottom);
        std::erase_if(open, [bottom](const RECT& r) { return r.bottom == bottom; });
        top = bottom;
    }
    return Region(writer.take());
}

RECT Region::bounds() const {
    if (several_.empty()) return only_;
    RECT box = several_.front();
    for (const RECT& r : several_) {
        box.left = std::min(box.left, r.left);
        box.right = std::max(box.right, r.right);
    }
    box.bottom = several_.back().bottom;
    return box;
}

void Region::translate(LONG dx, LONG dy) {
    // Only a move against the limits of a coordinate squeezes rectangles to nothing.
    if (several_.empty()) {
        *this = Region(moved(only_, dx, dy));
        return;
    }
    for (RECT& r : several_)
        r = moved(r, dx, dy);
    std::erase_if(several_, isEmpty);
    if (several_.size() == 1) *this = Region(std::move(several_));
}

void Region::cutTo(const RECT& r) {
    *this = several_.empty() ? Region(overlap(only_, r)) : intersected(Region(r));
}

Region Region::united(const Region& other) const {
    if (other.empty()) return *this;
    if (empty()) return other;
    if (several_.empty() && covers(only_, other.bounds())) return *this;
    if (other.several_.empty() && covers(other.only_, bounds())) return other;
    return Region(combine(Operation::Union, rectangles(), other.rectangles()));
}

Region Region::intersected(const Region& other) const {
    if (empty() || other.empty()) return {};
    if (several_.empty() && other.several_.empty()) return Region(overlap(only_, other.only_));
    if (several_.empty() && covers(only_, other.bounds())) return other;
    if (other.several_.empty() && covers(other.only_, bounds())) return *this;
    return Region(combine(Operation::Intersection, rectangles(), other.rectangles()));
}

Region Region::subtracted(const Region& other) const {
    if (empty() || other.empty() || !overlaps(bounds(), other.bounds())) return *this;
    return Region(combine(Operation::Difference, rectangles(), other.rectangles()));
}

} // namespace platform::driver
