#include "host/DialogIcons.h"

#include "platform/types.h"

#include <array>
#include <cmath>
#include <numbers>
#include <optional>

namespace host {

namespace {

struct Point {
    double x;
    double y;
};

struct Color {
    double red;
    double green;
    double blue;
};

constexpr Color White{255, 255, 255};
constexpr Color Black{0, 0, 0};
constexpr Color Red{208, 32, 32};
constexpr Color DarkRed{128, 0, 0};
constexpr Color Blue{32, 88, 200};
constexpr Color DarkBlue{0, 32, 112};
constexpr Color Yellow{255, 216, 0};
constexpr Color DarkYellow{96, 80, 0};

constexpr int Samples = 4; ///< Across and down in each pixel
constexpr Point Centre{16, 16};
constexpr double DiscRadius = 14.5;
constexpr double RimWidth = 1.2;

double distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

double distanceToLine(Point p, Point a, Point b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double along = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
    return distance(p, {a.x + along * dx, a.y + along * dy});
}

/// What a picture shows at a point; empty where the background stays.
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

/// The mean colour of a pixel and how much of it the picture covers. Without a background the colour is that
/// of the covered part alone.
std::uint32_t pixel(Sampler sampler, int x, int y, std::optional<Color> background) {
    Color sum{0, 0, 0};
    int covered = 0;
    for (int i = 0; i < Samples * Samples; ++i) {
        const int column = i % Samples;
        const int row = i / Samples;
        const Point at{x + (column + 0.5) / Samples, y + (row + 0.5) / Samples};
        std::optional<Color> color = sampler(at);
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

platform::PictureData painted(Sampler sampler, std::optional<Color> background) {
    platform::PictureData data;
    data.width = DialogIconSize;
    data.height = DialogIconSize;
    for (int y = 0; y < DialogIconSize; ++y) {
        for (int x = 0; x < DialogIconSize; ++x)
            data.argb.push_back(pixel(sampler, x, y, background));
    }
    return data;
}

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
    platform::PictureData data = painted(sampler, behind);
    data.format = platform::PictureFormat::Bmp;
    return automation::make<Picture>(data);
}

automation::Ref<Picture> stockIcon(std::int32_t number) {
    constexpr std::int32_t Hand = 32513;
    constexpr Sampler InOrder[] = {critical, question, exclamation, information};
    if (number < Hand || number >= Hand + static_cast<std::int32_t>(std::size(InOrder))) return {};
    platform::PictureData data = painted(InOrder[number - Hand], std::nullopt);
    data.format = platform::PictureFormat::Ico;
    data.hasAlpha = true;
    return automation::make<Picture>(data);
}

} // namespace host
