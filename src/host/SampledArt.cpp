#include "host/SampledArt.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr int Samples = 4; ///< Across and down in each pixel

/// The mean colour of a pixel and how much of it the picture covers. Without a background the colour is that
/// of the covered part alone.
std::uint32_t pixel(const ArtSampler& sampler, int x, int y, std::optional<ArtColor> background) {
    ArtColor sum{0, 0, 0};
    int covered = 0;
    for (int i = 0; i < Samples * Samples; ++i) {
        const int column = i % Samples;
        const int row = i / Samples;
        const ArtPoint at{x + (column + 0.5) / Samples, y + (row + 0.5) / Samples};
        std::optional<ArtColor> color = sampler(at);
        if (!color) color = background;
        if (!color) continue;
        ++covered;
        sum = {sum.red + color->red, sum.green + color->green, sum.blue + color->blue};
    }
    if (covered == 0) return 0;
    const auto mean = [&](double total) { return static_cast<std::uint32_t>(std::lround(total / covered)); };
    constexpr int Opaque = 255;
    const auto alpha = static_cast<std::uint32_t>(covered * Opaque / (Samples * Samples));
    return alpha << 24 | mean(sum.red) << 16 | mean(sum.green) << 8 | mean(sum.blue);
}

} // namespace

double distance(ArtPoint a, ArtPoint b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

double distanceToLine(ArtPoint p, ArtPoint a, ArtPoint b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double along = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
    return distance(p, {a.x + along * dx, a.y + along * dy});
}

platform::PictureData sampled(platform::SIZE size, const ArtSampler& sampler,
                              std::optional<ArtColor> background) {
    platform::PictureData data;
    data.width = size.cx;
    data.height = size.cy;
    data.hasAlpha = !background;
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < size.cx; ++x)
            data.argb.push_back(pixel(sampler, x, y, background));
    return data;
}

} // namespace host
