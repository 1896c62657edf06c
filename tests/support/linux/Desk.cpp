#include "support/Desk.h"

#include "platform/linux/headless.h"
#include "support/linux/RealKeyboard.h"

namespace support {

using namespace platform;

namespace {

/// A desk in a real window is as its last user left it.
void clear() {
    if (!RealKeyboard::instance()) headless::reset();
}

} // namespace

Desk::Desk() {
    clear();
}

Desk::~Desk() {
    clear();
}

void Desk::pressKey(int virtualKey) {
    if (RealKeyboard* keyboard = RealKeyboard::instance()) return keyboard->press(virtualKey);
    headless::injectKeyDown(virtualKey);
}

void Desk::releaseKey(int virtualKey) {
    if (RealKeyboard* keyboard = RealKeyboard::instance()) return keyboard->release(virtualKey);
    headless::injectKeyUp(virtualKey);
}

void Desk::strikeKey(int virtualKey) {
    if (RealKeyboard* keyboard = RealKeyboard::instance()) return keyboard->strike(virtualKey);
    headless::injectKey(virtualKey);
}

void Desk::type(std::u16string_view text) {
    if (RealKeyboard* keyboard = RealKeyboard::instance()) return keyboard->type(text);
    headless::injectText(text);
}

void Desk::moveMouse(POINT to) {
    headless::injectMouseMove(to.x, to.y);
}

void Desk::pressButton(int button) {
    headless::injectMouseDown(button);
}

void Desk::releaseButton(int button) {
    headless::injectMouseUp(button);
}

void Desk::click(POINT at, int button) {
    headless::injectClick(at.x, at.y, button);
}

void Desk::doubleClick(POINT at, int button) {
    headless::injectDoubleClick(at.x, at.y, button);
}

void Desk::turnWheel(int notches) {
    headless::injectWheel(notches * WHEEL_DELTA);
}

void Desk::advance(DWORD milliseconds) {
    headless::advanceClock(milliseconds);
}

int Desk::pump() {
    if (RealKeyboard* keyboard = RealKeyboard::instance()) return keyboard->pump();
    int count = 0;
    for (MSG message; PeekMessageA(&message, {}, 0, 0, PM_REMOVE); ++count) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return count;
}

Picture Desk::look(HWND window) {
    HideCaret({});
    Picture picture;
    RECT client{};
    POINT corner{};
    GetClientRect(window, &client);
    ClientToScreen(window, &corner);
    HWND top = window;
    while (GetWindowLongA(top, GWL_STYLE) & static_cast<LONG>(WS_CHILD))
        top = GetParent(top);
    RECT frame{};
    GetWindowRect(top, &frame);
    const driver::Surface* surface = headless::frameBuffer(top);
    ShowCaret({});
    if (!surface) return picture;
    picture.width = client.right;
    picture.height = client.bottom;
    for (LONG y = 0; y < client.bottom; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(
            surface->bits + static_cast<std::ptrdiff_t>(y + corner.y - frame.top) * surface->stride);
        for (LONG x = 0; x < client.right; ++x) {
            const std::uint32_t pixel = row[x + corner.x - frame.left];
            picture.pixels.push_back(RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF));
        }
    }
    return picture;
}

} // namespace support
