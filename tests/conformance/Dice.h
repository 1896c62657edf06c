#pragma once
// Numbers that depend on nothing but a seed.

#include <cstdint>
#include <initializer_list>

namespace conformance {

/// SplitMix64.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15ull + 0x1234567ull) {}

    /// From `low` to `high`, both included.
    int between(int low, int high) {
        state_ += 0x9E3779B97F4A7C15ull;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        z ^= z >> 31;
        const auto span = static_cast<std::uint64_t>(high - low + 1);
        return low + static_cast<int>((z >> 8) % span);
    }
    bool oneIn(int count) { return between(1, count) == 1; }

    template <class T>
    T of(std::initializer_list<T> choices) {
        return choices.begin()[between(0, static_cast<int>(choices.size()) - 1)];
    }

private:
    std::uint64_t state_;
};

} // namespace conformance
