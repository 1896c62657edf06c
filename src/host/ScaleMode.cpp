#include "host/ScaleMode.h"

#include "platform/gdi.h"
#include "platform/windows.h"

#include <cmath>

namespace host {

namespace {

constexpr double PointsPerInch = 72.0;
constexpr double TwipsPerCharacterX = 120.0;
constexpr double TwipsPerCharacterY = 240.0;
constexpr double MillimetersPerInch = 25.4;
constexpr double CentimetersPerInch = 2.54;
constexpr double HimetricPerInch = 2540.0;

double readTwipsPerPixel(Axis axis) {
    const platform::HDC screen = platform::CreateCompatibleDC({});
    const int dots = platform::GetDeviceCaps(screen, axis == Axis::Horizontal ? platform::LOGPIXELSX
                                                                              : platform::LOGPIXELSY);
    platform::DeleteDC(screen);
    constexpr int UsualDotsPerInch = 96;
    return TwipsPerInch / (dots > 0 ? dots : UsualDotsPerInch);
}

} // namespace

double twipsPerPixel(Axis axis) {
    struct Twips {
        double horizontal = readTwipsPerPixel(Axis::Horizontal);
        double vertical = readTwipsPerPixel(Axis::Vertical);
    };
    static const Twips pixel; // the resolution of the screen stands for the life of the process
    return axis == Axis::Horizontal ? pixel.horizontal : pixel.vertical;
}

double twipsPerUnit(ScaleMode mode, Axis axis) {
    switch (mode) {
    case ScaleMode::Twips:
        return 1.0;
    case ScaleMode::Points:
        return TwipsPerInch / PointsPerInch;
    case ScaleMode::Pixels:
        return twipsPerPixel(axis);
    case ScaleMode::Characters:
        return axis == Axis::Horizontal ? TwipsPerCharacterX : TwipsPerCharacterY;
    case ScaleMode::Inches:
        return TwipsPerInch;
    case ScaleMode::Millimeters:
        return TwipsPerInch / MillimetersPerInch;
    case ScaleMode::Centimeters:
        return TwipsPerInch / CentimetersPerInch;
    case ScaleMode::Himetric:
        return TwipsPerInch / HimetricPerInch;
    case ScaleMode::User:
    case ScaleMode::ContainerPosition:
    case ScaleMode::ContainerSize:
        break;
    }
    return 0.0;
}

int pixelsFromTwips(double twips, Axis axis) {
    return static_cast<int>(std::lround(twips / twipsPerPixel(axis)));
}

} // namespace host
