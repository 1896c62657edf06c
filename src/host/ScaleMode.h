#pragma once
// Units of length on screen and the conversions between them.

namespace host {

enum class ScaleMode : int {
    User = 0,   ///< Set by ScaleWidth and ScaleHeight
    Twips = 1,  ///< 1440 to the inch
    Points = 2, ///< 72 to the inch
    Pixels = 3,
    Characters = 4, ///< 120 twips wide, 240 twips high
    Inches = 5,
    Millimeters = 6,
    Centimeters = 7,
    Himetric = 8, ///< Hundredths of a millimetre
    ContainerPosition = 9,
    ContainerSize = 10,
};

enum class Axis { Horizontal, Vertical };

inline constexpr double TwipsPerInch = 1440.0;

/// Twips in one pixel of the screen along an axis, from its device capabilities: 15 at 96 dots an inch.
double twipsPerPixel(Axis axis);

/// Twips in one unit of `mode`; 0 for the modes that depend on a window (user and container units).
double twipsPerUnit(ScaleMode mode, Axis axis);

/// Whole pixels nearest to a length in twips, halves away from zero.
int pixelsFromTwips(double twips, Axis axis);

} // namespace host
