#pragma once
// The display in memory.

#include "platform/linux/display.h"

#include <functional>

namespace platform::driver {

class HeadlessDisplay final : public Display {
public:
    HeadlessDisplay();

    SIZE screenSize() override { return screen_; }
    RECT workArea() override { return {0, 0, screen_.cx, screen_.cy}; }
    bool drawsFrames() const override { return true; }
    bool waitForInput(std::int64_t milliseconds) override;
    POINT pointer() override { return pointer_; }
    void movePointer(POINT screen) override { pointer_ = screen; }
    bool clipboardHas(const std::string& type) override { return clipboard_.count(type) > 0; }
    std::string clipboardBytes(const std::string& type) override;
    void setClipboard(ClipboardContent content) override { clipboard_ = std::move(content); }
    void beep() override { ++beeps_; }
    bool holdsTime() const override { return true; }

    int beeps() const { return beeps_; }
    void setIdleHandler(std::function<bool()> handler) { idle_ = std::move(handler); }

private:
    SIZE screen_;
    POINT pointer_;
    ClipboardContent clipboard_;
    std::function<bool()> idle_;
    int beeps_ = 0;
};

} // namespace platform::driver
