#pragma once
// Texts whose letters are measured, and how much of them is.

#include "field/TextLines.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace tests {

/// A letter is 10 pixels wide, "i" as wide as a test wants it.
class MeasuredText : public ::testing::Test {
protected:
    static constexpr int letterWidth = 10;

    explicit MeasuredText(int widthOfI = letterWidth) : widthOfI_(widthOfI) {}

    tesela::TextLines::Measure measure() {
        return [this](std::u16string_view piece, std::vector<std::int32_t>& reach) {
            ++calls;
            characters += piece.size();
            std::int32_t end = 0;
            for (const char16_t letter : piece)
                reach.push_back(end += letter == u'i' ? widthOfI_ : letterWidth);
        };
    }
    void forgetCounts() { calls = 0, characters = 0; }

    int calls = 0; ///< Of the measure
    std::size_t characters = 0;

private:
    int widthOfI_;
};

} // namespace tests
