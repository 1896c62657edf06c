#include "conformance/linux/Difference.h"

#include <algorithm>
#include <cstdlib>

namespace conformance {

namespace {

constexpr int mostOfComponent = 255;

bool haveOneSize(const Picture& a, const Picture& b) {
    return a.width == b.width && a.height == b.height;
}

int largestOf(std::uint32_t a, std::uint32_t b) {
    int largest = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const int one = static_cast<int>(a >> shift & 0xFF);
        const int other = static_cast<int>(b >> shift & 0xFF);
        largest = std::max(largest, std::abs(one - other));
    }
    return largest;
}

int largestOf(const Picture& a, const Picture& b) {
    if (!haveOneSize(a, b)) return mostOfComponent;
    int largest = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i)
        largest = std::max(largest, largestOf(a.pixels[i], b.pixels[i]));
    return largest;
}

} // namespace

std::size_t differingPixels(const Picture& a, const Picture& b) {
    if (!haveOneSize(a, b)) return std::max(a.pixels.size(), b.pixels.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i)
        count += a.pixels[i] != b.pixels[i] ? 1u : 0u;
    return count;
}

Difference difference(const Result& ours, const Result& theirs) {
    Difference result;
    result.isInWhatIsShown = ours.shown != theirs.shown;
    const Picture none;
    for (std::size_t i = 0; i < std::max(ours.pictures.size(), theirs.pictures.size()); ++i) {
        const Picture& a = i < ours.pictures.size() ? ours.pictures[i] : none;
        const Picture& b = i < theirs.pictures.size() ? theirs.pictures[i] : none;
        result.pixels += differingPixels(a, b);
        result.component = std::max(result.component, largestOf(a, b));
    }
    return result;
}

} // namespace conformance
