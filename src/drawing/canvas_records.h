#pragma once
// The records of the canvas's interface.

#include "automation/Record.h"
#include "platform/types.h"

#include <cstdint>

namespace tesela {

/// Right and bottom lie one past the last pixel.
struct RECT_Type {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    RECT_Type() = default;
    RECT_Type(std::int32_t l, std::int32_t t, std::int32_t r, std::int32_t b)
        : left(l), top(t), right(r), bottom(b) {}
    RECT_Type(const platform::RECT& r) : RECT_Type(r.left, r.top, r.right, r.bottom) {}
    operator platform::RECT() const { return {left, top, right, bottom}; }
    friend bool operator==(const RECT_Type&, const RECT_Type&) = default;
};

/// Measures of a font in pixels; characters are those of the ANSI code page.
struct TextMetricA_Type {
    std::int32_t tmHeight = 0; ///< Ascent and descent
    std::int32_t tmAscent = 0;
    std::int32_t tmDescent = 0;
    std::int32_t tmInternalLeading = 0;
    std::int32_t tmExternalLeading = 0;
    std::int32_t tmAveCharWidth = 0;
    std::int32_t tmMaxCharWidth = 0;
    std::int32_t tmWeight = 0;
    std::int32_t tmOverhang = 0;
    std::int32_t tmDigitizedAspectX = 0;
    std::int32_t tmDigitizedAspectY = 0;
    std::uint8_t tmFirstChar = 0;
    std::uint8_t tmLastChar = 0;
    std::uint8_t tmDefaultChar = 0;
    std::uint8_t tmBreakChar = 0;
    std::uint8_t tmItalic = 0;
    std::uint8_t tmUnderlined = 0;
    std::uint8_t tmStruckOut = 0;
    std::uint8_t tmPitchAndFamily = 0;
    std::uint8_t tmCharSet = 0;
};
static_assert(sizeof(TextMetricA_Type) == 56);

/// A corner of a gradient. The components are of 16 bits, of which a value above 32767 reads as negative.
struct TriVertex_TYPE {
    std::int32_t X = 0;
    std::int32_t Y = 0;
    std::int16_t Red = 0;
    std::int16_t Green = 0;
    std::int16_t Blue = 0;
    std::int16_t Alpha = 0;
};

/// Places of the two corners of a gradient in a list of them.
struct GradientRect_TYPE {
    std::int32_t nTopLeft_Index = 0;
    std::int32_t nBottomRight_Index = 0;
};

/// How a blend mixes: 255 of constant alpha is the source, 0 the target.
struct BlendFunction_TYPE {
    std::uint8_t nBlendOp = 0;
    std::uint8_t nFlags = 0;
    std::uint8_t nSrcConstantAlpha = 0;
    std::uint8_t nAlphaFormat = 0;
};

const automation::RecordTable& recordOf(const RECT_Type*);
const automation::RecordTable& recordOf(const TextMetricA_Type*);
const automation::RecordTable& recordOf(const TriVertex_TYPE*);
const automation::RecordTable& recordOf(const GradientRect_TYPE*);
const automation::RecordTable& recordOf(const BlendFunction_TYPE*);

} // namespace tesela
