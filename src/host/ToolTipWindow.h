#pragma once

#include "automation/Event.h"
#include "host/DrawingWindow.h"
#include "host/Timer.h"

namespace host {

/// The small window with a control's tool tip. It comes up when the pointer has rested on a control and goes
/// with the next press, key or move off the control.
class ToolTipWindow : public automation::Object, public DrawingWindow {
public:
    ToolTipWindow();
    ~ToolTipWindow() override;

    /// The pointer is over a control with this text; `what` tells controls apart.
    void over(const void* what, const automation::String& text);
    void hide();
    bool shown() const { return static_cast<bool>(hWnd()); }
    const automation::String& text() const { return text_; }

    automation::Object& self() override { return *this; }
    const automation::ClassTable& classTable() const override;

protected:
    void onPaint() override;

private:
    void show();

    automation::Ref<Timer> wait_;
    automation::Subscription ticks_;
    automation::String text_;
    const void* what_ = nullptr;
};

} // namespace host
