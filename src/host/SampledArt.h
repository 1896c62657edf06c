#pragma once
// Art that is told point by point, and pictures of it with smooth edges.

#include "platform/pictures.h"

#include <functional>
#include <optional>

namespace host {

/// A place in the art, in pixels of its picture from the left top corner.
struct ArtPoint {
    double x;
    double y;
};

/// Components up to 255.
struct ArtColor {
    double red;
    double green;
    double blue;
};

inline constexpr ArtColor ArtWhite{255, 255, 255};
inline constexpr ArtColor ArtBlack{0, 0, 0};

double distance(ArtPoint a, ArtPoint b);
/// To the nearest point of the line between two points.
double distanceToLine(ArtPoint p, ArtPoint a, ArtPoint b);

/// What the art shows at a point; empty where the background stays.
using ArtSampler = std::function<std::optional<ArtColor>(ArtPoint)>;

/// A picture of the art. Without a background it has alpha, and each pixel the colour of its covered part
/// alone.
platform::PictureData sampled(platform::SIZE size, const ArtSampler& sampler,
                              std::optional<ArtColor> background);

} // namespace host
