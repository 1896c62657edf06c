// The pointer: its place, its shape, the mouse that programs play.

#include "platform/linux/display.h"
#include "platform/linux/message_queue.h"

#include <algorithm>
#include <array>

namespace platform {

using namespace driver;

namespace {

/// Stock cursors' handles lie apart from those of icons: a mark above their number.
constexpr std::uint32_t StockCursor = 0x7FFF0000;

constexpr std::array StockIds{IDC_ARROW,    IDC_IBEAM,    IDC_WAIT,        IDC_CROSS,  IDC_UPARROW,
                              IDC_SIZENWSE, IDC_SIZENESW, IDC_SIZEWE,      IDC_SIZENS, IDC_SIZEALL,
                              IDC_NO,       IDC_HAND,     IDC_APPSTARTING, IDC_HELP};

struct Pointer {
    HCURSOR shape{StockCursor | IDC_ARROW};
    int shown = 0;
};

Pointer& pointer() {
    static Pointer one;
    return one;
}

void showShape() {
    const std::uint32_t shape = pointer().shape.value;
    const bool stock = (shape & 0xFFFF0000u) == StockCursor;
    const WORD id = !shape || pointer().shown < 0 ? WORD{0} : stock ? static_cast<WORD>(shape) : IDC_ARROW;
    display().showCursor(id);
}

struct MouseEvent {
    DWORD flag;
    int button;
    bool up;
};

constexpr MouseEvent MouseEvents[] = {
    {MOUSEEVENTF_LEFTDOWN, VK_LBUTTON, false},   {MOUSEEVENTF_LEFTUP, VK_LBUTTON, true},
    {MOUSEEVENTF_RIGHTDOWN, VK_RBUTTON, false},  {MOUSEEVENTF_RIGHTUP, VK_RBUTTON, true},
    {MOUSEEVENTF_MIDDLEDOWN, VK_MBUTTON, false}, {MOUSEEVENTF_MIDDLEUP, VK_MBUTTON, true}};

POINT movedTo(DWORD flags, DWORD dx, DWORD dy) {
    constexpr std::int64_t AbsoluteRange = 65536;
    const SIZE screen = display().screenSize();
    if (flags & MOUSEEVENTF_ABSOLUTE)
        return {static_cast<LONG>(std::int64_t{dx} * screen.cx / AbsoluteRange),
                static_cast<LONG>(std::int64_t{dy} * screen.cy / AbsoluteRange)};
    const POINT at = display().pointer();
    return {std::clamp<LONG>(at.x + static_cast<LONG>(dx), 0, screen.cx - 1),
            std::clamp<LONG>(at.y + static_cast<LONG>(dy), 0, screen.cy - 1)};
}

} // namespace

HCURSOR LoadCursorA(HINSTANCE instance, WORD id) {
    if (instance || std::find(StockIds.begin(), StockIds.end(), id) == StockIds.end()) return {};
    return HCURSOR(StockCursor | id);
}

HCURSOR SetCursor(HCURSOR cursor) {
    const HCURSOR former = pointer().shape;
    if (former == cursor) return former;
    pointer().shape = cursor;
    showShape();
    return former;
}

HCURSOR GetCursor() {
    return pointer().shape;
}

int ShowCursor(BOOL show) {
    pointer().shown += show ? 1 : -1;
    showShape();
    return pointer().shown;
}

BOOL GetCursorPos(POINT* screen) {
    if (!screen) return FALSE_;
    *screen = display().pointer();
    return TRUE_;
}

BOOL SetCursorPos(int x, int y) {
    display().movePointer({x, y});
    RawInput move;
    move.kind = RawInput::Kind::Move;
    move.at = {x, y};
    postInput(move);
    return TRUE_;
}

void mouse_event(DWORD flags, DWORD dx, DWORD dy, DWORD data, std::uintptr_t) {
    if (flags & MOUSEEVENTF_MOVE) {
        const POINT to = movedTo(flags, dx, dy);
        SetCursorPos(to.x, to.y);
    }
    RawInput input;
    input.at = display().pointer();
    for (const MouseEvent& event : MouseEvents) {
        if (!(flags & event.flag)) continue;
        input.kind = RawInput::Kind::Button;
        input.virtualKey = event.button;
        input.up = event.up;
        postInput(input);
    }
    if (!(flags & MOUSEEVENTF_WHEEL)) return;
    input.kind = RawInput::Kind::Wheel;
    input.wheel = static_cast<int>(data);
    postInput(input);
}

UINT GetDoubleClickTime() {
    constexpr UINT DoubleClickTime = 500;
    return DoubleClickTime;
}

} // namespace platform
