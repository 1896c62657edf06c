#include "host/StockCursors.h"

#include "host/SampledArt.h"
#include "platform/system_look.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace host {

namespace {

using Outline = std::vector<ArtPoint>;

/// A cursor as shapes that are drawn as one, white with a black edge, on a square of 32 units. How far a
/// point lies inside is told in units; outside it is below zero.
struct CursorArt {
    std::function<double(ArtPoint)> depth;
    ArtPoint hotSpot;
};

constexpr double Side = 32;
constexpr ArtPoint Middle{Side / 2, Side / 2};

double depthIn(const Outline& outline, ArtPoint p) {
    double nearest = std::numeric_limits<double>::max();
    bool inside = false;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const ArtPoint a = outline[i];
        const ArtPoint b = outline[(i + 1) % outline.size()];
        nearest = std::min(nearest, distanceToLine(p, a, b));
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x))
            inside = !inside;
    }
    return inside ? nearest : -nearest;
}

ArtPoint turned(ArtPoint p, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    const double x = p.x - Middle.x;
    const double y = p.y - Middle.y;
    return {Middle.x + x * std::cos(angle) - y * std::sin(angle),
            Middle.y + x * std::sin(angle) + y * std::cos(angle)};
}

const Outline Arrow{{0, 0}, {0, 20}, {4.8, 15.6}, {8.2, 23}, {11.6, 21.5}, {8.3, 14.2}, {14.6, 14.2}};
const Outline BothWays{{2, 16},  {9, 9},   {9, 13.8},  {23, 13.8}, {23, 9},
                       {30, 16}, {23, 23}, {23, 18.2}, {9, 18.2},  {9, 23}};
const Outline Beam{{10.5, 4}, {15, 4},      {16.5, 5.5}, {18, 4},    {22.5, 4},  {22.5, 7},
                   {19, 7},   {18, 8},      {18, 25},    {19, 26},   {22.5, 26}, {22.5, 29},
                   {18, 29},  {16.5, 27.5}, {15, 29},    {10.5, 29}, {10.5, 26}, {14, 26},
                   {15, 25},  {15, 8},      {14, 7},     {10.5, 7}};
const Outline Upwards{{16, 1}, {24, 10}, {18.6, 10}, {18.6, 29}, {13.4, 29}, {13.4, 10}, {8, 10}};
const Outline Glass{{7, 2},    {25, 2},    {25, 6},    {23, 6.5}, {23, 10}, {17.6, 16},
                    {23, 22},  {23, 25.5}, {25, 26},   {25, 30},  {7, 30},  {7, 26},
                    {9, 25.5}, {9, 22},    {14.4, 16}, {9, 10},   {9, 6.5}, {7, 6}};
const Outline Cross{{15, 3},  {18, 3},  {18, 15}, {30, 15}, {30, 18}, {18, 18},
                    {18, 30}, {15, 30}, {15, 18}, {3, 18},  {3, 15},  {15, 15}};
const Outline PointingHand{{11, 3.2},    {12.2, 2},    {14.2, 2},  {15.4, 3.2},  {15.4, 11},   {17.2, 10.4},
                           {18.8, 11.6}, {20.6, 11.2}, {22, 12.4}, {23.8, 12.4}, {25.2, 13.8}, {25.2, 20},
                           {23.6, 24},   {23.6, 29},   {12.4, 29}, {12.4, 26},   {8, 19.8},    {6, 16.6},
                           {7, 15},      {9, 15.2},    {11, 17.6}};
const Outline Frame{{4, 4}, {28, 4}, {28, 28}, {4, 28}};

CursorArt shaped(const Outline& outline, ArtPoint hotSpot, double degrees = 0) {
    return {[&outline, degrees](ArtPoint p) { return depthIn(outline, turned(p, -degrees)); }, hotSpot};
}

/// A smaller shape in the lower right corner besides the arrow.
template <class Depth>
CursorArt arrowBeside(const Depth& other) {
    return {[other](ArtPoint p) { return std::max(depthIn(Arrow, p), other(p)); }, {0, 0}};
}

double inAllDirections(ArtPoint p) {
    return std::max(depthIn(BothWays, p), depthIn(BothWays, turned(p, 90)));
}

/// A ring with a bar across.
double forbidden(ArtPoint p) {
    constexpr double Radius = 10.5;
    constexpr double Half = 2.6;
    const double ring = Half - std::abs(distance(p, Middle) - Radius);
    const double bar = Half - distanceToLine(p, {9, 9}, {23, 23});
    return std::max(ring, bar);
}

double smallGlass(ArtPoint p) {
    constexpr double Scale = 0.5;
    return depthIn(Glass, {(p.x - 14) / Scale, (p.y - 14) / Scale}) * Scale;
}

double questionMark(ArtPoint p) {
    constexpr double Half = 1.9;
    constexpr ArtPoint Bow{22, 13};
    constexpr double Radius = 4.4;
    const double angle = std::atan2(p.y - Bow.y, p.x - Bow.x);
    const bool onBow = angle < std::numbers::pi / 2 || angle > std::numbers::pi * 0.94;
    const double bow = onBow ? Half - std::abs(distance(p, Bow) - Radius) : -Half;
    const double stem = Half - distanceToLine(p, {22, 17.4}, {22, 20.4});
    const double dot = Half + 0.3 - distance(p, {22, 26});
    return std::max({bow, stem, dot});
}

std::optional<CursorArt> artOf(std::int32_t number) {
    switch (number) {
    case 32512: // the arrow
        return shaped(Arrow, {0, 0});
    case 32513: // text
        return shaped(Beam, Middle);
    case 32514: // wait
        return shaped(Glass, Middle);
    case 32515:
        return shaped(Cross, Middle);
    case 32516:
        return shaped(Upwards, {16, 1});
    case 32641: // the place of an icon that is dragged
        return shaped(Frame, Middle);
    case 32642: // from the upper left to the lower right
        return shaped(BothWays, Middle, 45);
    case 32643:
        return shaped(BothWays, Middle, -45);
    case 32644: // to the left and right
        return shaped(BothWays, Middle);
    case 32645:
        return shaped(BothWays, Middle, 90);
    case 32640:
    case 32646: // everywhere
        return CursorArt{inAllDirections, Middle};
    case 32648:
        return CursorArt{forbidden, Middle};
    case 32649:
        return shaped(PointingHand, {13, 2});
    case 32650: // busy, but at one's service
        return arrowBeside(smallGlass);
    case 32651: // help
        return arrowBeside(questionMark);
    default:
        return {};
    }
}

} // namespace

std::optional<platform::PictureData> stockCursor(std::int32_t number) {
    constexpr double Edge = 1;
    const std::optional<CursorArt> art = artOf(number);
    if (!art) return {};
    const platform::SIZE size{platform::GetSystemMetrics(platform::SM_CXCURSOR),
                              platform::GetSystemMetrics(platform::SM_CYCURSOR)};
    const double unitsX = Side / size.cx;
    const double unitsY = Side / size.cy;
    const auto sampler = [&](ArtPoint p) -> std::optional<ArtColor> {
        const double depth = art->depth({p.x * unitsX, p.y * unitsY});
        if (depth <= 0) return {};
        return depth < Edge ? ArtBlack : ArtWhite;
    };
    platform::PictureData data = sampled(size, sampler, std::nullopt);
    data.format = platform::PictureFormat::Cur;
    data.hotSpot = {static_cast<platform::LONG>(art->hotSpot.x / unitsX),
                    static_cast<platform::LONG>(art->hotSpot.y / unitsY)};
    return data;
}

} // namespace host
