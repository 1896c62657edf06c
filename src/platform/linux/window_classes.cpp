// Window classes.

#include "platform/linux/window_system.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace platform::driver {

namespace {

constexpr ATOM FirstAtom = 0xC000;

std::string folded(const char* name) {
    std::string key = name;
    std::transform(key.begin(), key.end(), key.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return key;
}

std::map<std::string, std::shared_ptr<WindowClass>>& classes() {
    static std::map<std::string, std::shared_ptr<WindowClass>> registered;
    return registered;
}

} // namespace

std::shared_ptr<WindowClass> findClass(const char* name) {
    if (!name) return nullptr;
    const auto found = classes().find(folded(name));
    return found == classes().end() ? nullptr : found->second;
}

} // namespace platform::driver

namespace platform {

using namespace driver;

ATOM RegisterClassA(const WNDCLASSA* windowClass) {
    if (!windowClass || !windowClass->lpszClassName || !*windowClass->lpszClassName) return 0;
    if (!windowClass->lpfnWndProc || findClass(windowClass->lpszClassName)) return 0;
    static ATOM last = FirstAtom;
    auto made = std::make_shared<WindowClass>();
    made->name = windowClass->lpszClassName;
    made->style = windowClass->style;
    made->procedure = windowClass->lpfnWndProc;
    made->extraBytes = windowClass->cbWndExtra;
    made->instance = windowClass->hInstance;
    made->icon = windowClass->hIcon;
    made->cursor = windowClass->hCursor;
    made->background = windowClass->hbrBackground;
    made->atom = ++last;
    classes()[folded(windowClass->lpszClassName)] = made;
    return made->atom;
}

BOOL UnregisterClassA(const char* name, HINSTANCE) {
    const auto found = findClass(name);
    if (!found || found->windows > 0) return FALSE_;
    classes().erase(folded(name));
    return TRUE_;
}

int GetClassNameA(HWND window, char* name, int size) {
    const Window* w = findWindow(window);
    if (!w || !name || size <= 0) return 0;
    const auto length =
        std::min<std::size_t>(w->windowClass->name.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(name, w->windowClass->name.data(), length);
    name[length] = 0;
    return static_cast<int>(length);
}

} // namespace platform
