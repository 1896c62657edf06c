// Conversions between units of length.

#include "drawing/cCanvas.h"

#include "drawing/rounding.h"

namespace tesela {

namespace {

constexpr double twips = 1440, points = 72, millimetres = 25.4, centimetres = 2.54, himetric = 2540;
constexpr std::int32_t deciPointsPerInch = 720;

/// Places of the units in the table; the numbers 0 and 4 are no units of length.
constexpr int unitCount = 7;
constexpr int placeOfUnit[] = {-1, 0, 1, 2, -1, 3, 4, 5, 6};

int placeOf(std::int32_t unit) {
    return unit >= 0 && unit < static_cast<std::int32_t>(std::size(placeOfUnit)) ? placeOfUnit[unit] : -1;
}

using Converter = double (*)(double v, double P);

/// A length `v` at `P` pixels per inch. Millimetres and centimetres become twips and points by way of pixels,
/// himetric becomes points so, and are not divided back: applications count on it.
constexpr Converter table[unitCount][unitCount] = {
    // twips
    {[](double v, double) { return v; }, //
     [](double v, double) { return v / 20; },
     [](double v, double P) { return std::nearbyint(v * P / twips); },
     [](double v, double) { return v / twips; }, //
     [](double v, double) { return v * millimetres / twips; },
     [](double v, double) { return v * centimetres / twips; },
     [](double v, double) { return v * himetric / twips; }},
    // points
    {[](double v, double) { return v * 20; }, //
     [](double v, double) { return v; }, [](double v, double P) { return std::nearbyint(v * P / points); },
     [](double v, double) { return v / points; }, [](double v, double) { return v * millimetres / points; },
     [](double v, double) { return v * centimetres / points; },
     [](double v, double) { return v * himetric / points; }},
    // pixels
    {[](double v, double P) { return v * twips / P; },                                      //
     [](double v, double P) { return v * points / P; }, [](double v, double) { return v; }, //
     [](double v, double P) { return v / P; }, [](double v, double P) { return v * millimetres / P; },
     [](double v, double P) { return v * centimetres / P; },
     [](double v, double P) { return v * himetric / P; }},
    // inches
    {[](double v, double) { return v * twips; },                                            //
     [](double v, double) { return v * points; }, [](double v, double P) { return v * P; }, //
     [](double v, double) { return v; }, [](double v, double) { return v * millimetres; },  //
     [](double v, double) { return v * centimetres; }, [](double v, double) { return v * himetric; }},
    // millimetres
    {[](double v, double P) { return v * P * twips / millimetres; },
     [](double v, double P) { return v * P * points / millimetres; },
     [](double v, double P) { return v * P / millimetres; },
     [](double v, double) { return v / millimetres; },                            //
     [](double v, double) { return v; }, [](double v, double) { return v / 10; }, //
     [](double v, double) { return v * 100; }},
    // centimetres
    {[](double v, double P) { return v * P * twips / centimetres; },
     [](double v, double P) { return v * P * points / centimetres; },
     [](double v, double P) { return v * P / centimetres; },
     [](double v, double) { return v / centimetres; },                            //
     [](double v, double) { return v * 10; }, [](double v, double) { return v; }, //
     [](double v, double) { return v * 1000; }},
    // himetric
    {[](double v, double) { return v * twips / himetric; },
     [](double v, double P) { return v * P * points / himetric; },
     [](double v, double P) { return v * P / himetric; },                                     //
     [](double v, double) { return v / himetric; }, [](double v, double) { return v / 100; }, //
     [](double v, double) { return v / 1000; }, [](double v, double) { return v; }},
};

float convertScale(double length, std::int32_t from, std::int32_t to, double pixelsPerInch) {
    const int row = placeOf(from);
    const int column = placeOf(to);
    if (row < 0 || column < 0) return 0;
    return static_cast<float>(table[row][column](length, pixelsPerInch));
}

} // namespace

float cCanvas::ScaleX(float nLongitud, std::int32_t nFrom, std::int32_t nTo) const {
    return convertScale(nLongitud, nFrom, nTo, nPixelsPerInchX);
}

float cCanvas::ScaleY(float nLongitud, std::int32_t nFrom, std::int32_t nTo) const {
    return convertScale(nLongitud, nFrom, nTo, nPixelsPerInchY);
}

std::int32_t cCanvas::CalculateTextSize(std::int32_t nSizeDeciPuntos) const {
    return mulDiv(nSizeDeciPuntos, nPixelsPerInchY, deciPointsPerInch);
}

float cCanvas::CalculatePenWidth(float nWidthMillimeters) const {
    return static_cast<float>(static_cast<double>(nWidthMillimeters) * nPixelsPerInchX / millimetres);
}

} // namespace tesela
