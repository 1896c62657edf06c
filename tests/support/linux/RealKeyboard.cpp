#include "support/linux/RealKeyboard.h"

#include "platform/linux/headless.h"
#include "platform/locale.h"
#include "platform/windows.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <unistd.h>

namespace support {

using namespace platform;

RealKeyboard::RealKeyboard() : tool_(popen("xdotool -", "w")) {}

RealKeyboard* RealKeyboard::instance() {
    static RealKeyboard* const keyboard = headless::active() ? nullptr : new RealKeyboard;
    return keyboard;
}

void RealKeyboard::send(const std::string& command) {
    if (!tool_) return;
    std::fprintf(tool_, "%s\n", command.c_str());
    std::fflush(tool_);
}

void RealKeyboard::type(std::u16string_view text) {
    send("type --delay 1 -- \"" + utf8FromWide(std::u16string(text)) + "\"");
}

namespace {

/// Keys that no test uses. One struck behind all others tells that those have arrived.
constexpr int markers[] = {VK_F1 + 5, VK_F1 + 6, VK_F1 + 7, VK_F1 + 8};

bool isMarker(const MSG& message) {
    const bool isKey = message.message == WM_KEYDOWN || message.message == WM_KEYUP;
    return isKey && std::ranges::find(markers, static_cast<int>(message.wParam)) != std::end(markers);
}

} // namespace

int RealKeyboard::pump() {
    constexpr int patience = 10'000,
                  reminder = 1'000; // milliseconds; a window without the focus gets no keys
    const int marker = markers[pumps_++ % std::size(markers)];
    int count = 0;
    bool arrived = false;
    for (int waited = 0; !arrived && waited < patience; ++waited) {
        if (waited % reminder == 0) strike(marker);
        for (MSG message; PeekMessageA(&message, {}, 0, 0, PM_REMOVE);) {
            if (isMarker(message)) {
                arrived =
                    arrived || (message.message == WM_KEYUP && static_cast<int>(message.wParam) == marker);
                continue;
            }
            TranslateMessage(&message);
            DispatchMessageA(&message);
            ++count;
        }
        if (!arrived) usleep(1000);
    }
    if (!arrived) std::fputs("RealKeyboard: no key arrives\n", stderr);
    return count;
}

std::string RealKeyboard::nameOf(int virtualKey) {
    static const std::map<int, std::string> names{
        {VK_RETURN, "Return"},     {VK_TAB, "Tab"},       {VK_ESCAPE, "Escape"},
        {VK_LEFT, "Left"},         {VK_RIGHT, "Right"},   {VK_UP, "Up"},
        {VK_DOWN, "Down"},         {VK_HOME, "Home"},     {VK_END, "End"},
        {VK_INSERT, "Insert"},     {VK_DELETE, "Delete"}, {VK_BACK, "BackSpace"},
        {VK_ADD, "KP_Add"},        {VK_SPACE, "space"},   {VK_SHIFT, "Shift_L"},
        {VK_CONTROL, "Control_L"}, {VK_MENU, "Alt_L"},    {VK_SUBTRACT, "KP_Subtract"}};
    const auto found = names.find(virtualKey);
    if (found != names.end()) return found->second;
    constexpr int functionKeys = 24;
    if (virtualKey >= VK_F1 && virtualKey < VK_F1 + functionKeys)
        return "F" + std::to_string(virtualKey - VK_F1 + 1);
    const bool letter = virtualKey >= 'A' && virtualKey <= 'Z';
    return std::string(1, static_cast<char>(letter ? virtualKey - 'A' + 'a' : virtualKey));
}

} // namespace support
