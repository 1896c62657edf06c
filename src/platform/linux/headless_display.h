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
    std::u16string clipboardText() override { return clipboard_; }
    void setClipboardText(const std::u16string& text) override { clipboard_ = text; }
    bool clipboardHasText() override { return !clipboard_.empty(); }
    void beep() override { ++beeps_; }
    bool holdsTime() const override { return true; }

    int beeps() const { return beeps_; }
    void setIdleHandler(std::function<bool()> handler) { idle_ = std::move(handler); }

private:
    SIZE screen_;
    POINT pointer_;
    std::u16string clipboard_;
    std::function<bool()> idle_;
    int beeps_ = 0;
};

} // namespace platform::driver
