#pragma once
// The characters that code page 1252 lacks and that the platform writes as a similar one.

#include <cstdint>
#include <span>

namespace platform::driver {

/// `count` characters from `first` on become the bytes from `byte` on.
struct BestFitRun {
    char16_t first;
    std::uint16_t count;
    std::uint8_t byte;
};

/// In ascending order.
std::span<const BestFitRun> bestFitRuns();

} // namespace platform::driver
