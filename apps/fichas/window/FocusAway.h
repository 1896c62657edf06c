#pragma once

#include "platform/windows.h"

namespace fichas {

/// Takes the focus away from the window that has it, so that a field there ends its editing, and gives it
/// back.
class FocusAway {
public:
    FocusAway() : had_(platform::GetFocus()) {
        if (had_) platform::SetFocus({});
    }
    ~FocusAway() {
        if (had_ && !platform::GetFocus() && platform::IsWindow(had_)) platform::SetFocus(had_);
    }
    FocusAway(const FocusAway&) = delete;
    FocusAway& operator=(const FocusAway&) = delete;

private:
    platform::HWND had_;
};

} // namespace fichas
