#include "field/TextReach.h"

#include "drawing/rounding.h"

#include <algorithm>

namespace tesela {

void TextReach::take(const automation::String& text) {
    const std::size_t whole = commonLength(text_, text) / blockLength;
    if (sums_.size() > whole) sums_.resize(whole);
    text_ = text;
}

/// Where each character of a piece ends, from the piece's beginning.
std::vector<std::int32_t> TextReach::measured(std::size_t from, std::size_t count,
                                              const Measure& measure) const {
    const std::u16string_view piece = text_.view().substr(from, count);
    std::vector<std::int32_t> reach;
    if (piece.empty()) return reach;
    measure(piece, reach);
    reach.resize(piece.size(), reach.empty() ? 0 : reach.back());
    return reach;
}

void TextReach::addBlock(const Measure& measure) {
    const std::size_t block = sums_.size();
    sums_.push_back(saturatingSum(begin(block), measured(block * blockLength, blockLength, measure).back()));
}

std::int32_t TextReach::reach(std::size_t position, const Measure& measure) {
    position = std::min(position, text_.length());
    const std::size_t block = position / blockLength;
    while (sums_.size() < block)
        addBlock(measure);
    const auto rest = measured(block * blockLength, position % blockLength, measure);
    return rest.empty() ? begin(block) : saturatingSum(begin(block), rest.back());
}

std::size_t TextReach::at(std::int32_t x, const Measure& measure) {
    if (x < 0) return 0;
    while (begin(sums_.size()) <= x && (sums_.size() + 1) * blockLength <= text_.length())
        addBlock(measure);
    const auto block = static_cast<std::size_t>(std::ranges::upper_bound(sums_, x) - sums_.begin());
    const auto rest = measured(block * blockLength, blockLength, measure);
    const auto within = std::ranges::upper_bound(rest, x - begin(block)) - rest.begin();
    return block * blockLength + static_cast<std::size_t>(within);
}

} // namespace tesela
