// The colours of the system as a fresh session of Windows has them, and their brushes: made once, never
// deleted, not counted.

#include "platform/linux/display_colors.h"
#include "platform/linux/gdi_objects.h"
#include "platform/linux/window_system.h"
#include "platform/system_look.h"

#include <algorithm>
#include <array>
#include <optional>

namespace platform {

using namespace driver;

namespace {

constexpr std::size_t colorCount = COLOR_MENUBAR + 1;

/// GetSysColor by number, 0x00bbggrr.
constexpr std::array<COLORREF, colorCount> freshColors{
    0xFFFFFF, 0x956F25, 0xFA9632, 0x808080, 0xFFFFFF, 0xFFFFFF, 0x9E9E9E, 0x000000, // 0 to 7
    0x000000, 0x000000, 0xFFFFFF, 0xFFFFFF, 0x808080, 0xFA9630, 0xFFFFFF, 0xF5F5F5, // 8 to 15
    0xA6A6A6, 0xA6A6A6, 0x000000, 0xC8C8C8, 0xFFFFFF, 0x6A6A6A, 0xE3E3E3, 0x000000, // 16 to 23
    0xFFFFFF, 0xFFFFFF, 0xE0E0E0, 0xFA9632, 0x808080, 0xFA9630, 0xFFFFFF,           // 24 to 30
};

/// What differs where the display has few colours. The light blue of captions and of what is selected would
/// become the cyan of the 20 colours that such a display has for certain, on which white cannot be read:
/// there they have the dark blue and the white of the classic scheme.
struct ClassicColor {
    int index;
    COLORREF color;
};
constexpr ClassicColor classicColors[] = {{COLOR_ACTIVECAPTION, 0x6A240A},
                                          {COLOR_CAPTIONTEXT, 0xFFFFFF},
                                          {COLOR_HIGHLIGHT, 0x6A240A},
                                          {COLOR_MENUHILIGHT, 0x6A240A}};
constexpr int fewColorsDepth = 8;

COLORREF freshColor(int index) {
    const auto classic = std::ranges::find(classicColors, index, &ClassicColor::index);
    const bool isClassic = classic != std::end(classicColors) && displayDepth() <= fewColorsDepth;
    return isClassic ? classic->color : freshColors[static_cast<std::size_t>(index)];
}

struct SystemColors {
    std::array<std::optional<COLORREF>, colorCount> set; ///< By programs
    std::array<HBRUSH, colorCount> brushes;
};

SystemColors& systemColors() {
    static SystemColors instance;
    return instance;
}

bool isColor(int index) {
    return index >= 0 && index < static_cast<int>(colorCount);
}

void tellWindows() {
    for (const HWND top : childHandles(desktopWindow())) {
        SendMessageA(top, WM_SYSCOLORCHANGE, 0, 0);
        RedrawWindow(top, nullptr, {}, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }
}

} // namespace

COLORREF GetSysColor(int index) {
    if (!isColor(index)) return 0;
    const std::optional<COLORREF>& set = systemColors().set[static_cast<std::size_t>(index)];
    return set ? *set : freshColor(index);
}

BOOL SetSysColors(int count, const INT* indices, const COLORREF* colors) {
    constexpr COLORREF colorBits = 0x00FFFFFF;
    if (count < 0 || !indices || !colors) return FALSE_;
    for (int i = 0; i < count; ++i) {
        if (!isColor(indices[i])) continue;
        const std::size_t index = static_cast<std::size_t>(indices[i]);
        systemColors().set[index] = colors[i] & colorBits;
        if (Brush* brush = find<Brush>(systemColors().brushes[index]))
            brush->data.lbColor = colors[i] & colorBits;
    }
    tellWindows();
    return TRUE_;
}

HBRUSH GetSysColorBrush(int index) {
    if (!isColor(index)) return {};
    HBRUSH& brush = systemColors().brushes[static_cast<std::size_t>(index)];
    if (!brush) {
        auto made = std::make_unique<Brush>();
        made->data = {BS_SOLID, GetSysColor(index), 0};
        made->stock = true;
        brush = HBRUSH(addObject(std::move(made)));
    }
    return brush;
}

} // namespace platform
