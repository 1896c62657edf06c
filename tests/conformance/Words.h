#pragma once
// The words of a line as arguments, taken one after the other.

#include "platform/types.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace conformance {

class Words {
public:
    explicit Words(const std::vector<std::string>& words, std::size_t at = 0) : words_(words), at_(at) {}

    bool done() const { return at_ >= words_.size(); }
    const std::string& peek() const { return words_.at(at_); }

    const std::string& next() {
        if (done()) throw std::runtime_error("too few arguments");
        return words_[at_++];
    }

    /// A whole number, decimal or with 0x.
    std::int64_t number() {
        const std::string& word = next();
        std::size_t used = 0;
        std::int64_t value = 0;
        try {
            value = std::stoll(word, &used, 0);
        } catch (const std::exception&) {
            used = 0;
        }
        if (used != word.size()) throw std::runtime_error("'" + word + "' is no number");
        return value;
    }

    platform::POINT point() {
        const auto x = static_cast<platform::LONG>(number());
        const auto y = static_cast<platform::LONG>(number());
        return {x, y};
    }

    void finish() const {
        if (!done()) throw std::runtime_error("'" + peek() + "' is one argument too many");
    }

private:
    const std::vector<std::string>& words_;
    std::size_t at_;
};

} // namespace conformance
