#include "host/StockBitmaps.h"

#include "platform/gdi.h"
#include "platform/system_look.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace host {

namespace {

using platform::GetSystemMetrics;
using platform::RECT;
using platform::SIZE;

enum class Direction { Left, Right, Down, Up };
enum class Look { Normal, Pressed, Inactive, Flat };

/// Pixels that are filled by rectangles in the system's colours.
class Sheet {
public:
    explicit Sheet(SIZE size, int background = platform::COLOR_BTNFACE) {
        data_.format = platform::PictureFormat::Bmp;
        data_.width = size.cx;
        data_.height = size.cy;
        data_.argb.resize(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
        fill(whole(), background);
    }

    RECT whole() const { return {0, 0, data_.width, data_.height}; }
    platform::PictureData take() { return std::move(data_); }

    void fill(const RECT& r, int systemColor) {
        const platform::COLORREF color = platform::GetSysColor(systemColor);
        const std::uint32_t word =
            0xFF000000 | (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
        for (int y = std::max(0, r.top); y < std::min(data_.height, r.bottom); ++y)
            for (int x = std::max(0, r.left); x < std::min(data_.width, r.right); ++x)
                *(data_.argb.begin() + std::ptrdiff_t{y} * data_.width + x) = word;
    }
    void dot(int x, int y, int systemColor) { fill({x, y, x + 1, y + 1}, systemColor); }

    /// A frame one pixel wide, its upper and left sides in one colour and the others in another.
    void frame(const RECT& r, int upperLeft, int lowerRight) {
        fill({r.left, r.top, r.right, r.top + 1}, upperLeft);
        fill({r.left, r.top, r.left + 1, r.bottom}, upperLeft);
        fill({r.left, r.bottom - 1, r.right, r.bottom}, lowerRight);
        fill({r.right - 1, r.top, r.right, r.bottom}, lowerRight);
    }

private:
    platform::PictureData data_;
};

RECT shrunk(const RECT& r, int by) {
    return {r.left + by, r.top + by, r.right - by, r.bottom - by};
}

RECT movedBy(const RECT& r, int by) {
    return {r.left + by, r.top + by, r.right + by, r.bottom + by};
}

/// The face of a button with its edges.
void drawButton(Sheet& sheet, const RECT& r, Look look) {
    sheet.fill(r, platform::COLOR_BTNFACE);
    if (look == Look::Flat) return;
    if (look == Look::Pressed) {
        sheet.frame(r, platform::COLOR_BTNSHADOW, platform::COLOR_BTNSHADOW);
        return;
    }
    sheet.frame(r, platform::COLOR_3DLIGHT, platform::COLOR_3DDKSHADOW);
    sheet.frame(shrunk(r, 1), platform::COLOR_BTNHIGHLIGHT, platform::COLOR_BTNSHADOW);
}

/// A triangle of so many rows, the first of them its tip, in the middle of a rectangle.
void drawTriangle(Sheet& sheet, const RECT& r, Direction direction, int rows, int color) {
    const int middleX = (r.left + r.right - 1) / 2;
    const int middleY = (r.top + r.bottom - 1) / 2;
    const bool isAcross = direction == Direction::Left || direction == Direction::Right;
    const int sign = direction == Direction::Left || direction == Direction::Up ? 1 : -1;
    for (int i = 0; i < rows; ++i) {
        const int along = sign * (i - rows / 2);
        if (isAcross)
            sheet.fill({middleX + along, middleY - i, middleX + along + 1, middleY + i + 1}, color);
        else
            sheet.fill({middleX - i, middleY + along, middleX + i + 1, middleY + along + 1}, color);
    }
}

platform::PictureData arrowButton(Direction direction, Look look) {
    constexpr int ShareOfSide = 4;
    const bool isVertical = direction == Direction::Up || direction == Direction::Down;
    const SIZE size{GetSystemMetrics(isVertical ? platform::SM_CXVSCROLL : platform::SM_CXHSCROLL),
                    GetSystemMetrics(isVertical ? platform::SM_CYVSCROLL : platform::SM_CYHSCROLL)};
    Sheet sheet(size);
    const RECT whole = sheet.whole();
    drawButton(sheet, whole, look);
    const int rows = std::min(size.cx, size.cy) / ShareOfSide;
    if (look == Look::Inactive) {
        drawTriangle(sheet, movedBy(whole, 1), direction, rows, platform::COLOR_BTNHIGHLIGHT);
        drawTriangle(sheet, whole, direction, rows, platform::COLOR_BTNSHADOW);
    } else {
        drawTriangle(sheet, look == Look::Pressed ? movedBy(whole, 1) : whole, direction, rows,
                     platform::COLOR_BTNTEXT);
    }
    return sheet.take();
}

enum class Caption { Reduce, Zoom, Restore };

/// The outline of a small window with a title.
void drawWindow(Sheet& sheet, const RECT& r) {
    sheet.fill(r, platform::COLOR_BTNFACE);
    sheet.frame(r, platform::COLOR_BTNTEXT, platform::COLOR_BTNTEXT);
    sheet.fill({r.left, r.top, r.right, r.top + 2}, platform::COLOR_BTNTEXT);
}

platform::PictureData captionButton(Caption caption, Look look) {
    constexpr int Margin = 4;
    Sheet sheet({GetSystemMetrics(platform::SM_CXSIZE) - 2, GetSystemMetrics(platform::SM_CYSIZE) - 4});
    drawButton(sheet, sheet.whole(), look);
    const RECT inner = movedBy(shrunk(sheet.whole(), Margin), look == Look::Pressed ? 1 : 0);
    const int third = (inner.right - inner.left) / 3;
    switch (caption) {
    case Caption::Reduce:
        sheet.fill({inner.left, inner.bottom - 2, inner.right - third, inner.bottom},
                   platform::COLOR_BTNTEXT);
        break;
    case Caption::Zoom:
        drawWindow(sheet, inner);
        break;
    case Caption::Restore:
        drawWindow(sheet, {inner.left + third, inner.top - 1, inner.right, inner.bottom - 2});
        drawWindow(sheet, {inner.left, inner.top + 2, inner.right - third, inner.bottom + 1});
        break;
    }
    return sheet.take();
}

/// The system menus of a window and of a document within one, side by side.
platform::PictureData menuBoxes() {
    const int side = GetSystemMetrics(platform::SM_CXSIZE);
    const int height = GetSystemMetrics(platform::SM_CYSIZE);
    Sheet sheet({2 * side, height});
    for (int i = 0; i < 2; ++i) {
        const int margin = i == 0 ? 3 : 5;
        const RECT bar{i * side + margin, height / 2 - 2, (i + 1) * side - margin, height / 2 + 2};
        sheet.fill(movedBy(bar, 1), platform::COLOR_BTNSHADOW);
        sheet.fill(bar, platform::COLOR_WINDOW);
        sheet.frame(bar, platform::COLOR_BTNTEXT, platform::COLOR_BTNTEXT);
    }
    return sheet.take();
}

/// A tick whose short leg is half as long as the other, three pixels thick.
void drawTick(Sheet& sheet, const RECT& r, int color) {
    constexpr int Short = 2;
    constexpr int Long = 4;
    constexpr int Thick = 3;
    const int left = (r.left + r.right - Short - Long - 1) / 2;
    const int top = (r.top + r.bottom - Long - Thick) / 2;
    for (int i = 0; i <= Short + Long; ++i) {
        const int drop = Long - std::abs(i - Short);
        sheet.fill({left + i, top + drop, left + i + 1, top + drop + Thick}, color);
    }
}

platform::PictureData checkMark() {
    Sheet sheet({GetSystemMetrics(platform::SM_CXMENUCHECK), GetSystemMetrics(platform::SM_CYMENUCHECK)},
                platform::COLOR_WINDOW);
    drawTick(sheet, sheet.whole(), platform::COLOR_WINDOWTEXT);
    return sheet.take();
}

platform::PictureData menuTriangle(Direction direction) {
    Sheet sheet({7, direction == Direction::Down ? 9 : 11}, platform::COLOR_WINDOW);
    drawTriangle(sheet, sheet.whole(), direction, 4, platform::COLOR_WINDOWTEXT);
    return sheet.take();
}

/// The sunken box or, with its corners cut, the disc of a choice.
void drawChoice(Sheet& sheet, const RECT& r, bool isRound, int ground) {
    sheet.fill(r, ground);
    sheet.frame(r, platform::COLOR_BTNSHADOW, platform::COLOR_BTNHIGHLIGHT);
    sheet.frame(shrunk(r, 1), platform::COLOR_3DDKSHADOW, platform::COLOR_3DLIGHT);
    if (!isRound) return;
    const int side = r.right - r.left;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            // In half pixels from the middle.
            const int dx = 2 * x + 1 - side;
            const int dy = 2 * y + 1 - side;
            const int square = dx * dx + dy * dy;
            const bool isUpperLeft = dx + dy < 0;
            if (square > side * side)
                sheet.dot(r.left + x, r.top + y, platform::COLOR_BTNFACE);
            else if (square > (side - 2) * (side - 2))
                sheet.dot(r.left + x, r.top + y,
                          isUpperLeft ? platform::COLOR_BTNSHADOW : platform::COLOR_BTNHIGHLIGHT);
            else if (square > (side - 4) * (side - 4))
                sheet.dot(r.left + x, r.top + y,
                          isUpperLeft ? platform::COLOR_3DDKSHADOW : platform::COLOR_3DLIGHT);
            else
                sheet.dot(r.left + x, r.top + y, ground);
        }
    }
}

/// Boxes to tick, choices of one and boxes of three states, a row each: off, on, and both while pressed.
platform::PictureData checkBoxes() {
    constexpr int Columns = 4;
    constexpr int Rows = 3;
    const SIZE cell{GetSystemMetrics(platform::SM_CXMENUCHECK) + 1,
                    GetSystemMetrics(platform::SM_CYMENUCHECK)};
    Sheet sheet({Columns * cell.cx, Rows * cell.cy});
    for (int row = 0; row < Rows; ++row) {
        for (int column = 0; column < Columns; ++column) {
            const RECT r{column * cell.cx, row * cell.cy, column * cell.cx + cell.cx - 1,
                         row * cell.cy + cell.cy};
            const bool isOn = column % 2 == 1;
            const bool isPressed = column >= 2;
            const bool isRound = row == 1;
            const bool isGrey = isPressed || (row == 2 && isOn);
            drawChoice(sheet, r, isRound, isGrey ? platform::COLOR_BTNFACE : platform::COLOR_WINDOW);
            if (!isOn) continue;
            const int color = row == 2 ? platform::COLOR_BTNSHADOW : platform::COLOR_WINDOWTEXT;
            if (isRound)
                sheet.fill(shrunk(r, 5), color);
            else
                drawTick(sheet, r, color);
        }
    }
    return sheet.take();
}

/// The corners of a button, cut off.
platform::PictureData buttonCorners() {
    constexpr int Side = 14;
    Sheet sheet({Side, Side}, platform::COLOR_WINDOW);
    for (const int x : {0, Side - 1})
        for (const int y : {0, Side - 1})
            sheet.dot(x, y, platform::COLOR_WINDOWTEXT);
    return sheet.take();
}

/// The grip in the corner of a window that can be sized: grooves that rise to the right.
platform::PictureData sizeGrip(SIZE size) {
    constexpr int Step = 4;
    Sheet sheet(size);
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) {
            const int fromCorner = (size.cx - 1 - x) + (size.cy - 1 - y);
            if (fromCorner >= 3 * Step || fromCorner % Step == Step - 1) continue;
            sheet.dot(x, y,
                      fromCorner % Step == 2 ? platform::COLOR_BTNHIGHLIGHT : platform::COLOR_BTNSHADOW);
        }
    }
    return sheet.take();
}

platform::PictureData sizeGrip() {
    return sizeGrip({GetSystemMetrics(platform::SM_CXVSCROLL), GetSystemMetrics(platform::SM_CYHSCROLL)});
}

/// Buttons of one look with numbers that follow each other.
struct Numbers {
    std::int32_t first;
    Look look;
};

constexpr std::array Directions{Direction::Left, Direction::Right, Direction::Down, Direction::Up};
constexpr std::array Arrows{Numbers{32734, Look::Inactive}, Numbers{32740, Look::Pressed},
                            Numbers{32750, Look::Normal}, Numbers{32762, Look::Flat}};

constexpr std::array CaptionOrder{Caption::Restore, Caption::Zoom, Caption::Reduce};
constexpr std::array Captions{Numbers{32744, Look::Pressed}, Numbers{32747, Look::Normal},
                              Numbers{32755, Look::Flat}};

/// Which of so many in a row a number is; nothing when it is none of them.
std::optional<std::size_t> placeOf(std::int32_t number, const Numbers& numbers, std::size_t count) {
    const std::int64_t place = std::int64_t{number} - numbers.first;
    if (place < 0 || place >= static_cast<std::int64_t>(count)) return {};
    return static_cast<std::size_t>(place);
}

} // namespace

std::optional<platform::PictureData> stockBitmap(std::int32_t number) {
    for (const Numbers& arrows : Arrows)
        if (const auto place = placeOf(number, arrows, Directions.size()))
            return arrowButton(Directions[*place], arrows.look);
    for (const Numbers& captions : Captions)
        if (const auto place = placeOf(number, captions, CaptionOrder.size()))
            return captionButton(CaptionOrder[*place], captions.look);
    switch (number) {
    case 32738: // of a list that drops down
        return menuTriangle(Direction::Down);
    case 32739: // of a menu that opens aside
        return menuTriangle(Direction::Right);
    case 32754:
    case 32767:
        return menuBoxes();
    case 32758:
        return buttonCorners();
    case 32759:
        return checkBoxes();
    case 32760:
        return checkMark();
    case 32761:
    case 32766:
        return sizeGrip();
    default:
        return {};
    }
}

} // namespace host
