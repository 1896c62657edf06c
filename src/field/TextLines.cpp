#include "field/TextLines.h"

#include <algorithm>

namespace tesela {

using automation::String;

namespace {

constexpr std::size_t pieceLength = 1024; ///< Characters that are measured at once, at least

std::size_t offset(std::int32_t position) {
    return static_cast<std::size_t>(std::max(position, 0));
}

} // namespace

std::size_t commonLength(std::u16string_view a, std::u16string_view b) {
    if (a.data() == b.data()) return std::min(a.size(), b.size());
    const auto shorter = static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.begin() + shorter, b.begin()).first -
                                    a.begin());
}

/// Measures a text piece by piece: many lines come out of one piece.
class TextLines::Ruler {
public:
    Ruler(std::u16string_view text, std::int32_t width, const Measure& measure)
        : text_(text), width_(std::max(width, 0)), measure_(measure) {}

    /// How many characters from `start` on fit.
    std::size_t fitting(std::size_t start) {
        if (reach_.empty() || start < from_ || start >= from_ + reach_.size()) read(start);
        std::size_t fits = fittingInPiece(start);
        const auto reachesEnd = [&] { return start + fits == from_ + reach_.size(); };
        if (reachesEnd() && start > from_ && start + fits < text_.size()) {
            read(start);
            fits = fittingInPiece(start);
        }
        return fits;
    }

private:
    void read(std::size_t start) {
        // Even of letters of one pixel no more fit into a line.
        const std::size_t most = std::max(pieceLength, offset(width_) + 1);
        const std::u16string_view piece = text_.substr(start, most);
        reach_.clear();
        measure_(piece, reach_);
        reach_.resize(piece.size(), reach_.empty() ? 0 : reach_.back());
        from_ = start;
    }

    std::size_t fittingInPiece(std::size_t start) const {
        const auto first = reach_.begin() + static_cast<std::ptrdiff_t>(start - from_);
        const std::int32_t left = start > from_ ? *(first - 1) : 0;
        return static_cast<std::size_t>(std::upper_bound(first, reach_.end(), left + width_) - first);
    }

    std::u16string_view text_;
    std::int32_t width_;
    const Measure& measure_;
    std::size_t from_ = 0;
    std::vector<std::int32_t> reach_; ///< Of the characters from `from_` on
};

void TextLines::take(const String& text, std::int32_t width) {
    if (width != width_) forget();
    const std::size_t common = commonLength(text_, text);
    const bool same = common == text.length() && common == text_.length();
    while (!same && !lines_.empty() && offset(lines_.back().seen) > common)
        lines_.pop_back();
    text_ = text;
    width_ = width;
}

void TextLines::forget() {
    lines_.clear();
}

void TextLines::find(std::size_t count, std::int32_t position, const Measure& measure) {
    Ruler ruler(text_, width_, measure);
    while (!complete() && (size() < count || end() <= offset(position)))
        lines_.push_back(next(ruler));
}

/// Behind a last line feed there is one more line, an empty one.
bool TextLines::complete() const {
    if (lines_.empty() || end() < text_.length()) return false;
    return text_.empty() || lines_.back().length == 0 || text_[end() - 1] != u'\n';
}

std::u16string_view TextLines::shown(std::size_t index) const {
    const Line& line = lines_[index];
    std::u16string_view part = text_.view().substr(offset(line.start), offset(line.length));
    if (part.ends_with(u'\n')) part.remove_suffix(1);
    if (part.ends_with(u'\r')) part.remove_suffix(1);
    return part;
}

std::size_t TextLines::end() const {
    return lines_.empty() ? 0 : offset(lines_.back().start + lines_.back().length);
}

/// Breaks behind a line feed, behind the last blank that fits, or where the line is full.
TextLines::Line TextLines::next(Ruler& ruler) const {
    const std::size_t start = end();
    if (start == text_.length())
        return {static_cast<std::int32_t>(start), 0, static_cast<std::int32_t>(start) + 1};
    std::size_t fits = ruler.fitting(start);
    const std::size_t seen = start + fits + 1;
    const std::size_t lineFeed = text_.view().substr(start, fits + 1).find(u'\n');
    if (lineFeed != std::u16string_view::npos) {
        fits = lineFeed + 1;
    } else if (start + fits < text_.length()) {
        const std::size_t blank = text_.view().substr(start, fits).rfind(u' ');
        if (blank != std::u16string_view::npos) fits = blank + 1;
        fits = std::max<std::size_t>(fits, 1);
    }
    return {static_cast<std::int32_t>(start), static_cast<std::int32_t>(fits),
            static_cast<std::int32_t>(seen)};
}

std::size_t TextLines::at(std::int32_t position) const {
    const auto behind = std::upper_bound(lines_.begin(), lines_.end(), position,
                                         [](std::int32_t p, const Line& line) { return p < line.start; });
    return behind == lines_.begin() ? 0 : static_cast<std::size_t>(behind - lines_.begin()) - 1;
}

} // namespace tesela
