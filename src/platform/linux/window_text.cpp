// Captions: WM_SETTEXT and WM_GETTEXT carry bytes of the ANSI code page; the W forms convert.

#include "platform/linux/window_system.h"
#include "platform/locale.h"

#include <algorithm>
#include <cstring>

namespace platform {

using namespace driver;

namespace {

std::string textOf(HWND window) {
    const auto length =
        static_cast<std::size_t>(std::max<LRESULT>(0, SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)));
    std::string text(length + 1, '\0');
    const LRESULT got = SendMessageA(window, WM_GETTEXT, length + 1, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(got, 0, static_cast<LRESULT>(length))));
    return text;
}

} // namespace

BOOL SetWindowTextA(HWND window, const char* text) {
    if (!findWindow(window)) return FALSE_;
    return static_cast<BOOL>(SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)));
}

BOOL SetWindowTextW(HWND window, const char16_t* text) {
    return SetWindowTextA(window, ansiFromWide(text ? text : u"").c_str());
}

int GetWindowTextA(HWND window, char* text, int size) {
    if (!findWindow(window) || !text || size <= 0) return 0;
    text[0] = 0;
    return static_cast<int>(
        SendMessageA(window, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(text)));
}

int GetWindowTextLengthA(HWND window) {
    return findWindow(window) ? static_cast<int>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)) : 0;
}

int GetWindowTextW(HWND window, char16_t* text, int size) {
    if (!findWindow(window) || !text || size <= 0) return 0;
    const std::u16string wide = wideFromAnsi(textOf(window));
    const auto length = std::min(wide.size(), static_cast<std::size_t>(size) - 1);
    std::copy_n(wide.begin(), length, text);
    text[length] = 0;
    return static_cast<int>(length);
}

int GetWindowTextLengthW(HWND window) {
    return findWindow(window) ? static_cast<int>(wideFromAnsi(textOf(window)).size()) : 0;
}

} // namespace platform
