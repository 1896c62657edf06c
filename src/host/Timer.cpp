#include "host/Timer.h"

#include "automation/ClassTable.h"
#include "automation/Error.h"

namespace host {

namespace {

constexpr const char* ClassName = "TeselaTimer";
constexpr std::int32_t LongestInterval = 65535;
constexpr platform::UINT_PTR TickId = 1;

} // namespace

Timer::~Timer() {
    stop();
}

void Timer::Interval(std::int32_t value) {
    if (value < 0 || value > LongestInterval)
        throw automation::Error(automation::errors::InvalidPropertyValue);
    interval_ = value;
    update();
}

void Timer::Enabled(bool value) {
    if (value == enabled_) return;
    enabled_ = value;
    update();
}

void Timer::hold(bool value) {
    if (value == held_) return;
    held_ = value;
    update();
}

void Timer::update() {
    if (!enabled_ || held_ || interval_ == 0) {
        stop();
        return;
    }
    if (!window_) {
        platform::WNDCLASSA windowClass;
        windowClass.lpfnWndProc = &Timer::procedure;
        windowClass.lpszClassName = ClassName;
        platform::RegisterClassA(&windowClass); // fails, rightly, from the second timer on
        window_ = platform::CreateWindowExA(platform::WS_EX_TOOLWINDOW, ClassName, "", platform::WS_POPUP, 0,
                                            0, 0, 0, {}, {}, {}, nullptr);
        if (!window_) throw automation::Error(automation::errors::OutOfMemory);
        platform::SetWindowLongPtrA(window_, platform::GWLP_USERDATA,
                                    reinterpret_cast<platform::LONG_PTR>(this));
    }
    platform::SetTimer(window_, TickId, static_cast<platform::UINT>(interval_), nullptr);
}

void Timer::stop() {
    if (!window_) return;
    const platform::HWND window = std::exchange(window_, {});
    platform::SetWindowLongPtrA(window, platform::GWLP_USERDATA, 0);
    platform::DestroyWindow(window);
}

platform::LRESULT Timer::procedure(platform::HWND window, platform::UINT message, platform::WPARAM wParam,
                                   platform::LPARAM lParam) {
    if (message == platform::WM_TIMER) {
        if (auto* timer =
                reinterpret_cast<Timer*>(platform::GetWindowLongPtrA(window, platform::GWLP_USERDATA))) {
            const automation::Ref<Timer> alive(timer);
            timer->Tick.raise();
        }
        return 0;
    }
    return platform::DefWindowProcA(window, message, wParam, lParam);
}

const automation::ClassTable& Timer::table() {
    static const automation::ClassTable table = automation::ClassTable::of<Timer>("Timer")
                                                    .property("Interval", &Timer::Interval, &Timer::Interval)
                                                    .property("Enabled", &Timer::Enabled, &Timer::Enabled)
                                                    .event("Timer", &Timer::Tick);
    return table;
}

} // namespace host
