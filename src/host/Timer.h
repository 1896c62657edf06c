#pragma once

#include "automation/Event.h"
#include "automation/Object.h"
#include "platform/windows.h"

namespace host {

/// Raises its event every so many milliseconds while it is enabled and its interval isn't 0. Ticks arrive
/// through the message loop, so they wait while a handler runs; late ones are joined into one.
class Timer : public automation::Object {
public:
    Timer() = default;
    ~Timer() override;

    /// Milliseconds, 0 to 65535; other values throw automation::Error 380. A write starts a new period.
    std::int32_t Interval() const { return interval_; }
    void Interval(std::int32_t value);
    bool Enabled() const { return enabled_; }
    void Enabled(bool value);

    /// Stands still, whatever else is said, as long as its container is being designed.
    void hold(bool value);

    /// The event that programs know as Timer.
    automation::Event<> Tick;

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    static platform::LRESULT procedure(platform::HWND, platform::UINT, platform::WPARAM, platform::LPARAM);
    void update();
    void stop();

    std::int32_t interval_ = 0;
    bool enabled_ = true;
    bool held_ = false;
    platform::HWND window_; ///< Hidden; receives the ticks while the timer runs
};

} // namespace host
