#pragma once

#include "field/TextLines.h"

namespace tesela {

/// How far the characters of a text of one line reach from its beginning, in pixels. The sums of blocks of
/// characters are found as far as somebody asks, and kept for the next text as far as that one begins alike,
/// so that a key in a long text costs a few measuring calls. Positions count characters from 0.
class TextReach {
public:
    using Measure = TextLines::Measure;
    /// Characters that are measured at once, at most.
    static constexpr std::size_t blockLength = 1024;

    /// The text that is asked about.
    void take(const automation::String& text);
    /// Where the character at a position begins; at the text's length, where that ends.
    std::int32_t reach(std::size_t position, const Measure& measure);
    /// How many characters end at a place or before it.
    std::size_t at(std::int32_t x, const Measure& measure);

private:
    std::vector<std::int32_t> measured(std::size_t from, std::size_t count, const Measure& measure) const;
    void addBlock(const Measure& measure);
    /// Where a block begins whose sums are known.
    std::int32_t begin(std::size_t block) const { return block == 0 ? 0 : sums_[block - 1]; }

    automation::String text_;
    std::vector<std::int32_t> sums_; ///< Where the whole blocks end
};

} // namespace tesela
