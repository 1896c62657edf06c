// Window classes.

#include "platform/linux/window_system.h"

#include <algorithm>
#include <cstring>

namespace platform::driver {

namespace {

constexpr ATOM FirstAtom = 0xC000;

std::vector<std::shared_ptr<WindowClass>>& classes() {
    static std::vector<std::shared_ptr<WindowClass>> registered; // a program has a few
    return registered;
}

} // namespace

std::shared_ptr<WindowClass> findClass(const char* name) {
    if (!name) return nullptr;
    const std::string_view wanted = name;
    const auto found = std::find_if(classes().begin(), classes().end(),
                                    [wanted](const auto& known) { return sameName(known->name, wanted); });
    return found == classes().end() ? nullptr : *found;
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
    classes().push_back(made);
    return made->atom;
}

BOOL UnregisterClassA(const char* name, HINSTANCE) {
    const auto found = findClass(name);
    if (!found || found->windows > 0) return FALSE_;
    std::erase(classes(), found);
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
