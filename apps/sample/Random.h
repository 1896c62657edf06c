#pragma once
// Numbers that look random and are the same on every machine and with every standard library.

#include <array>
#include <cstdint>
#include <span>

namespace sample {

class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    /// A number from `low` to `high`, both included.
    std::int64_t between(std::int64_t low, std::int64_t high) {
        return low + static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(high - low + 1));
    }

    /// True in `percent` of 100 calls.
    bool chance(int percent) { return between(1, 100) <= percent; }

    /// One element, each as likely as the others.
    template <class T>
    const T& oneOf(std::span<const T> choices) {
        return choices[static_cast<std::size_t>(between(0, static_cast<std::int64_t>(choices.size()) - 1))];
    }
    template <class T, std::size_t n>
    const T& oneOf(const T (&choices)[n]) {
        return oneOf(std::span<const T>(choices));
    }

private:
    // SplitMix64: every seed gives a full period.
    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15u;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    std::uint64_t state_;
};

} // namespace sample
