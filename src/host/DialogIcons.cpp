#include "host/DialogIcons.h"

#include "host/SampledArt.h"
#include "platform/types.h"

#include <array>
#include <cmath>
#include <numbers>
#include <optional>

namespace host {

namespace {

using Point = ArtPoint;
using Color = ArtColor;

constexpr Color White = ArtWhite;
constexpr Color Black = ArtBlack;
constexpr Color Red{208, 32, 32};
constexpr Color DarkRed{128, 0, 0};
constexpr Color Blue{32, 88, 200};
constexpr Color DarkBlue{0, 32, 112};
constexpr Color Yellow{255, 216, 0};
constexpr Color DarkYellow{96, 80, 0};

constexpr Point Centre{16, 16};
constexpr double DiscRadius = 14.5;
constexpr double RimWidth = 1.2;

using Sampler = std::optional<Color> (*)(Point);

std::optional<Color> disc(Point p, Color face, Color rim) {
    const double from = distance(p, Centre);
    if (from > DiscRadius) return {};
    return from > DiscRadius - RimWidth ? rim : face;
}

std::optional<Color> critical(Point p) {
    constexpr double Half = 1.9;
    constexpr double Reach = 5.2;
    const double stroke = std::min(
        distanceToLine(p, {Centre.x - Reach, Centre.y - Reach}, {Centre.x + Reach, Centre.y + Reach}),
        distanceToLine(p, {Centre.x - Reach, Centre.y + Reach}, {Centre.x + Reach, Centre.y - Reach}));
    return stroke < Half ? White : disc(p, Red, DarkRed);
}

std::optional<Color> information(Point p) {
    constexpr double Half = 1.7;
    const bool dot = distance(p, {16, 9.6}) < 2.1;
    const bool stem = std::abs(p.x - 16) < Half && p.y > 13.6 && p.y < 24;
    const bool serif = (p.y > 13.6 && p.y < 15.4 && p.x > 13.0 && p.x < 16) ||
                       (p.y > 22.2 && p.y < 24 && p.x > 12.8 && p.x < 19.2);
    return dot || stem || serif ? White : disc(p, Blue, DarkBlue);
}

std::optional<Color> question(Point p) {
    constexpr double Half = 1.6;
    constexpr Point Bow{16, 12.4};
    constexpr double Radius = 4.3;
    // The bow runs from the left over the top down to the lower right, and the stem drops from there.
    const double angle = std::atan2(p.y - Bow.y, p.x - Bow.x);
    const bool onBow = angle < std::numbers::pi / 4 || angle > std::numbers::pi * 0.94;
    const bool bow = onBow && std::abs(distance(p, Bow) - Radius) < Half;
    const Point turn{Bow.x + Radius * std::numbers::sqrt2 / 2, Bow.y + Radius * std::numbers::sqrt2 / 2};
    const bool stem =
        distanceToLine(p, turn, {16, 17.6}) < Half || distanceToLine(p, {16, 17.6}, {16, 19.4}) < Half;
    const bool dot = distance(p, {16, 23.6}) < 2.0;
    return bow || stem || dot ? White : disc(p, Blue, DarkBlue);
}

std::optional<Color> exclamation(Point p) {
    constexpr Point Top{16, 3.8};
    constexpr Point Left{3.4, 27.6};
    constexpr Point Right{28.6, 27.6};
    constexpr double Rounding = 2.0;
    const auto side = [&](Point a, Point b) { return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x); };
    const bool within = side(Top, Right) >= 0 && side(Right, Left) >= 0 && side(Left, Top) >= 0;
    const double edge = std::min(
        {distanceToLine(p, Top, Right), distanceToLine(p, Right, Left), distanceToLine(p, Left, Top)});
    if (!within && edge > Rounding) return {};
    if (!within && edge > Rounding - RimWidth) return DarkYellow;
    // The bar narrows downwards.
    const double half = 2.0 - (p.y - 10.5) * 0.09;
    const bool bar = p.y > 10.5 && p.y < 20.2 && std::abs(p.x - 16) < half;
    const bool dot = distance(p, {16, 23.6}) < 1.9;
    return bar || dot ? Black : Yellow;
}

/// Inside a rectangle with its edges.
bool within(Point p, double left, double top, double right, double bottom) {
    return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom;
}

/// A window with its title and some lines of text.
std::optional<Color> window(Point p) {
    constexpr Color Line{150, 160, 175};
    if (!within(p, 2, 4, 30, 28)) return {};
    if (!within(p, 3, 5, 29, 27)) return DarkBlue;
    if (p.y < 10) return within(p, 25, 6, 28, 9) ? White : Blue;
    if (p.y < 11) return DarkBlue;
    for (const double top : {14.0, 18.0, 22.0})
        if (within(p, 6, top, top > 20 ? 18 : 26, top + 2)) return Line;
    return White;
}

/// A shield with a tick: what an administrator must allow.
std::optional<Color> shield(Point p) {
    constexpr double HalfWidth = 12;
    constexpr double Top = 3;
    constexpr double Shoulder = 14; ///< Down to here the sides are straight, then they meet
    constexpr double Tip = 30;
    const auto halfAt = [&](double y) {
        const double share = std::clamp((y - Shoulder) / (Tip - Shoulder), 0.0, 1.0);
        return HalfWidth * std::sqrt(1 - share * share);
    };
    const double fromAxis = std::abs(p.x - Centre.x);
    if (p.y < Top || p.y > Tip || fromAxis > halfAt(p.y)) return {};
    const bool isRim = p.y < Top + RimWidth || fromAxis > halfAt(p.y + RimWidth) - RimWidth;
    if (isRim) return DarkBlue;
    const double tick =
        std::min(distanceToLine(p, {10, 15}, {14.5, 20}), distanceToLine(p, {14.5, 20}, {22.5, 9.5}));
    return tick < 1.9 ? White : Blue;
}

constexpr platform::SIZE IconSize{DialogIconSize, DialogIconSize};

Sampler samplerOf(MsgBoxStyle style) {
    constexpr int IconBits = 0x70;
    switch (static_cast<MsgBoxStyle>(static_cast<int>(style) & IconBits)) {
    case MsgBoxStyle::Critical:
        return critical;
    case MsgBoxStyle::Question:
        return question;
    case MsgBoxStyle::Exclamation:
        return exclamation;
    case MsgBoxStyle::Information:
        return information;
    default:
        return nullptr;
    }
}

} // namespace

automation::Ref<Picture> dialogIcon(MsgBoxStyle style, platform::COLORREF background) {
    const Sampler sampler = samplerOf(style);
    if (!sampler) return {};
    constexpr std::uint32_t Channel = 0xFF;
    const Color behind{double(background & Channel), double(background >> 8 & Channel),
                       double(background >> 16 & Channel)};
    platform::PictureData data = sampled(IconSize, sampler, behind);
    data.format = platform::PictureFormat::Bmp;
    return automation::make<Picture>(data);
}

automation::Ref<Picture> stockIcon(std::int32_t number) {
    constexpr std::int32_t First = 32512;
    constexpr Sampler InOrder[] = {window, critical, question, exclamation, information, window, shield};
    if (number < First || number >= First + static_cast<std::int32_t>(std::size(InOrder))) return {};
    platform::PictureData data = sampled(IconSize, InOrder[number - First], std::nullopt);
    data.format = platform::PictureFormat::Ico;
    return automation::make<Picture>(data);
}

} // namespace host
