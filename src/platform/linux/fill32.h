#pragma once
// Filling pixels of 32 bits with one value.

#include <cstddef>
#include <cstdint>

namespace platform::driver {

/// Fills a rectangle. `first` is its pixel at the top left, `stride` the bytes from one row to the next.
void fillPixels(std::uint32_t* first, std::ptrdiff_t stride, std::ptrdiff_t width, std::ptrdiff_t height,
                std::uint32_t value);

} // namespace platform::driver
