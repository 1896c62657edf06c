#pragma once
// The keyboard of an X server, for tests that run in real windows: xdotool presses its keys.

#include <cstdio>
#include <string>
#include <string_view>

namespace support {

class RealKeyboard {
public:
    /// The one of this process; null on the display in memory.
    static RealKeyboard* instance();

    void press(int virtualKey) { send("keydown " + nameOf(virtualKey)); }
    void release(int virtualKey) { send("keyup " + nameOf(virtualKey)); }
    void strike(int virtualKey) { send("key " + nameOf(virtualKey)); }
    void type(std::u16string_view text);

    /// Handles what the server brings until all keys that were sent have arrived. Returns the messages'
    /// number.
    int pump();

private:
    RealKeyboard();
    void send(const std::string& command);
    static std::string nameOf(int virtualKey);

    std::FILE* tool_;
    std::size_t pumps_ = 0;
};

} // namespace support
