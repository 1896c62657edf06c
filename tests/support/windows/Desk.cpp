// The desk on Windows: input is played into the system's queue and time is real time.

#include "support/Desk.h"

#include <algorithm>
#include <utility>

#include <windows.h>

namespace support {

namespace {

/// What the display has to say of a window comes after a while, in milliseconds.
constexpr ::DWORD displayDelay = 4;

::HWND native(platform::HWND window) {
    return reinterpret_cast<::HWND>(static_cast<::LONG_PTR>(static_cast<::LONG>(window.value)));
}

/// Keys of the block between letters and digits are told from those of the number pad by a mark.
bool isExtended(int key) {
    constexpr int keys[] = {VK_PRIOR, VK_NEXT, VK_END,    VK_HOME,   VK_LEFT,   VK_UP,
                            VK_RIGHT, VK_DOWN, VK_INSERT, VK_DELETE, VK_DIVIDE, VK_RCONTROL,
                            VK_RMENU, VK_LWIN, VK_RWIN,   VK_APPS};
    return std::find(std::begin(keys), std::end(keys), key) != std::end(keys);
}

void playKey(int key, ::DWORD flags) {
    const auto scanCode = static_cast<BYTE>(::MapVirtualKeyA(static_cast<::UINT>(key), MAPVK_VK_TO_VSC));
    ::keybd_event(static_cast<BYTE>(key), scanCode, flags | (isExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0), 0);
}

/// A character that the keyboard may lack.
void playCharacter(char16_t character, ::DWORD flags) {
    ::INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = character;
    input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
    ::SendInput(1, &input, sizeof input);
}

struct ButtonFlags {
    ::DWORD down;
    ::DWORD up;
};

ButtonFlags flagsOf(int button) {
    switch (button) {
    case VK_RBUTTON:
        return {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP};
    case VK_MBUTTON:
        return {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP};
    default:
        return {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
    }
}

BOOL CALLBACK destroy(::HWND window, ::LPARAM) {
    ::DestroyWindow(window);
    return TRUE;
}

void releaseKeys() {
    for (int key = VK_LBUTTON; key < 0xFF; ++key) {
        if ((::GetAsyncKeyState(key) & 0x8000) == 0) continue;
        if (key == VK_LBUTTON || key == VK_RBUTTON || key == VK_MBUTTON)
            ::mouse_event(flagsOf(key).up, 0, 0, 0, 0);
        else
            playKey(key, KEYEVENTF_KEYUP);
    }
    BYTE states[256] = {};
    ::GetKeyboardState(states);
    for (BYTE& state : states)
        state &= 1; // the toggles stay: the desktop has its own memory of them
    ::SetKeyboardState(states);
}

void clear() {
    ::ReleaseCapture();
    ::EnumThreadWindows(::GetCurrentThreadId(), destroy, 0);
    releaseKeys();
    ::MSG message;
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
}

} // namespace

Desk::Desk() {
    clear();
}

Desk::~Desk() {
    clear();
}

void Desk::pressKey(int virtualKey) {
    playKey(virtualKey, 0);
}

void Desk::releaseKey(int virtualKey) {
    playKey(virtualKey, KEYEVENTF_KEYUP);
}

void Desk::strikeKey(int virtualKey) {
    pressKey(virtualKey);
    releaseKey(virtualKey);
}

void Desk::type(std::u16string_view text) {
    for (const char16_t character : text) {
        playCharacter(character, 0);
        playCharacter(character, KEYEVENTF_KEYUP);
    }
}

void Desk::moveMouse(platform::POINT to) {
    // Absolute positions run over the screen in 65536 steps; rounding up hits the pixel.
    const auto scaled = [](int at, int size) {
        return static_cast<::DWORD>((at * 65536LL + size - 1) / size);
    };
    ::mouse_event(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, scaled(to.x, ::GetSystemMetrics(SM_CXSCREEN)),
                  scaled(to.y, ::GetSystemMetrics(SM_CYSCREEN)), 0, 0);
}

void Desk::pressButton(int button) {
    ::mouse_event(flagsOf(button).down, 0, 0, 0, 0);
}

void Desk::releaseButton(int button) {
    ::mouse_event(flagsOf(button).up, 0, 0, 0, 0);
}

void Desk::click(platform::POINT at, int button) {
    moveMouse(at);
    pressButton(button);
    releaseButton(button);
}

void Desk::doubleClick(platform::POINT at, int button) {
    click(at, button);
    pressButton(button);
    releaseButton(button);
}

void Desk::turnWheel(int notches) {
    ::mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<::DWORD>(notches * WHEEL_DELTA), 0);
}

void Desk::advance(platform::DWORD milliseconds) {
    ::Sleep(milliseconds);
}

int Desk::pump() {
    int count = 0;
    do {
        for (platform::MSG message; platform::PeekMessageA(&message, {}, 0, 0, PM_REMOVE); ++count) {
            platform::TranslateMessage(&message);
            platform::DispatchMessageA(&message);
        }
    } while (::MsgWaitForMultipleObjectsEx(0, nullptr, displayDelay, QS_ALLINPUT, MWMO_INPUTAVAILABLE) ==
             WAIT_OBJECT_0);
    return count;
}

Picture Desk::look(platform::HWND window) {
    ::HideCaret(nullptr);
    ::RECT client{};
    ::GetClientRect(native(window), &client);
    Picture picture;
    picture.width = client.right;
    picture.height = client.bottom;
    ::BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const ::HDC from = ::GetDC(native(window));
    const ::HDC memory = ::CreateCompatibleDC(from);
    const ::HBITMAP bitmap = ::CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const ::HGDIOBJ former = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, client.right, client.bottom, from, 0, 0, SRCCOPY);
    ::GdiFlush();
    const auto* pixels = static_cast<const std::uint32_t*>(bits);
    const auto count = static_cast<std::size_t>(client.right) * static_cast<std::size_t>(client.bottom);
    for (std::size_t i = 0; pixels && i < count; ++i) {
        const std::uint32_t pixel = pixels[i];
        picture.pixels.push_back((pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF));
    }
    ::SelectObject(memory, former);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(native(window), from);
    ::ShowCaret(nullptr);
    return picture;
}

} // namespace support
