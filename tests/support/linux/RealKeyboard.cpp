#include "support/linux/RealKeyboard.h"

#include "platform/linux/headless.h"
#include "platform/locale.h"
#include "platform/windows.h"

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

int RealKeyboard::pump() {
    constexpr int quietMilliseconds = 40, patience = 400; // the first news may take longer than the next
    int count = 0;
    for (int quiet = 0; quiet < (count > 0 ? quietMilliseconds : patience); ++quiet) {
        for (MSG message; PeekMessageA(&message, {}, 0, 0, PM_REMOVE); ++count) {
            quiet = 0;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        usleep(1000);
    }
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
    const bool letter = virtualKey >= 'A' && virtualKey <= 'Z';
    return std::string(1, static_cast<char>(letter ? virtualKey - 'A' + 'a' : virtualKey));
}

} // namespace support
