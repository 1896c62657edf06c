#pragma once
// What the values of pixels mean on surfaces whose depth alone does not tell it: entries of a colour table,
// or fields of bits.

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace platform::driver {

/// Where one component lies in a pixel of 16 or 32 bits.
struct ColorField {
    ColorField() = default;
    explicit ColorField(std::uint32_t mask);

    /// The component, 0 to 255, of a pixel, and its place in one.
    std::uint32_t of(std::uint32_t value) const;
    std::uint32_t place(std::uint32_t component) const;
    /// The same for rows, joined with what stands in `out`: the component lies at bit `position` of a colour.
    void addComponents(const std::uint32_t* values, std::uint32_t* out, std::size_t count,
                       int position) const;
    void addPlaces(const std::uint32_t* colors, std::uint32_t* out, std::size_t count, int position) const;

    std::uint32_t mask = 0;
    int shift = 0;
    int bits = 0;
};

/// Colours are 0x00RRGGBB.
class PixelFormat {
public:
    /// Values are numbers of colours; at most 256, at least one.
    explicit PixelFormat(std::vector<std::uint32_t> colors);
    PixelFormat(std::uint32_t redMask, std::uint32_t greenMask, std::uint32_t blueMask);

    bool hasTable() const { return !colors_.empty(); }
    const std::vector<std::uint32_t>& colors() const { return colors_; }
    /// Red, green and blue; without meaning when there is a table.
    const std::array<ColorField, 3>& fields() const { return fields_; }

    std::uint32_t colorOf(std::uint32_t value) const;
    /// The value that comes nearest; the first one of several.
    std::uint32_t valueOf(std::uint32_t color) const;
    /// The same as copies between bitmaps find it: with 256 colours, by the nearest to the middle of a cube
    /// of 8x8x8 colours.
    std::uint32_t copiedValueOf(std::uint32_t color) const;
    /// The same for rows, in place.
    void colorsOf(std::uint32_t* values, std::size_t count) const;
    void copiedValuesOf(std::uint32_t* colors, std::size_t count) const;
    /// And as blends find it: so with 16 colours too.
    std::uint32_t blendedValueOf(std::uint32_t color) const;

    friend bool operator==(const PixelFormat& a, const PixelFormat& b);

private:
    /// Gives a row what `add` joins for each of the three fields.
    template <class Add>
    void joinFields(std::uint32_t* row, std::size_t count, Add add) const;
    std::uint32_t valueOfCube(std::uint32_t color) const;

    std::vector<std::uint32_t> colors_;
    std::array<ColorField, 3> fields_;
    mutable std::vector<std::int16_t> cubes_; ///< What valueOfCube has found out; -1 is not known
};

/// The number of the colour that is nearest, the first one of several.
std::size_t nearestOf(const std::uint32_t* colors, std::size_t count, std::uint32_t color);

/// Fields of five bits each, as a pixel of 16 bits has them when nothing else is said.
const PixelFormat& fiveBitFields();

} // namespace platform::driver
