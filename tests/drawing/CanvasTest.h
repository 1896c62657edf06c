#pragma once
// A canvas of the library for tests, with its pixels as text.

#include "automation/LateBound.h"
#include "drawing/cCanvas.h"
#include "support/ErrorOf.h"
#include "support/Started.h"

#include <string>

namespace tests {

constexpr std::int32_t black = 0x000000, white = 0xFFFFFF, red = 0x0000FF, green = 0x00FF00, blue = 0xFF0000,
                       yellow = 0x00FFFF, grey = 0x808080;

/// Each test has a canvas that isn't static, 24 by 16 and black, as a control makes it.
class CanvasTest : public support::Started {
protected:
    CanvasTest() {
        EXPECT_TRUE(canvas->Configure({}, 0, 0, 24, 16, tesela::DCProvider_Auto, false));
        canvas->FillBox(0, 0, 24, 16, black);
    }

    std::int32_t at(std::int32_t x, std::int32_t y) const { return canvas->GetPixel(x, y); }

    /// What the canvas's context has selected.
    platform::HGDIOBJ current(platform::DWORD kind) const {
        return platform::GetCurrentObject(canvas->GetPaintDC(), kind);
    }

    /// A part of the canvas: "." black, "#" white, "R", "G", "B" and "Y" for the colours above, "+" others.
    std::string picture(std::int32_t width, std::int32_t height) const {
        std::string result;
        for (std::int32_t y = 0; y < height; ++y) {
            for (std::int32_t x = 0; x < width; ++x)
                result += letter(at(x, y));
            result += '\n';
        }
        return result;
    }

    automation::Ref<tesela::cCanvas> canvas = automation::make<tesela::cCanvas>();

private:
    static char letter(std::int32_t color) {
        switch (color) {
        case black:
            return '.';
        case white:
            return '#';
        case red:
            return 'R';
        case green:
            return 'G';
        case blue:
            return 'B';
        case yellow:
            return 'Y';
        default:
            return '+';
        }
    }
};

/// Live GDI objects of this process.
inline std::int32_t gdiObjects() {
    return static_cast<std::int32_t>(platform::GetGuiResources(platform::GR_GDIOBJECTS));
}

/// Compares their number, on the systems that count them.
inline void expectObjects(std::int32_t expected) {
    static const bool counted = [] {
        const platform::HDC dc = platform::CreateCompatibleDC({});
        const bool any = gdiObjects() > 0;
        platform::DeleteDC(dc);
        return any;
    }();
    if (counted) {
        EXPECT_EQ(expected, gdiObjects());
    }
}

} // namespace tests
