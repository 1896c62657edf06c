#pragma once

#include "automation/Event.h"
#include "host/UserControl.h"

namespace host {

/// The push button of the host's own dialogs. Space, Enter and its underlined letter press it.
class DialogButton : public UserControl {
public:
    DialogButton();

    const automation::String& Caption() const { return caption_; }
    void Caption(const automation::String& value);

    automation::Event<> Click;

    const automation::ClassTable& classTable() const override;

protected:
    void onPaint() override;
    void onGotFocus() override { Refresh(); }
    void onLostFocus() override;
    void onKeyDown(short& KeyCode, short& Shift) override;
    void onKeyUp(short& KeyCode, short& Shift) override;
    void onMouseDown(short& Button, short& Shift, float& X, float& Y) override;
    void onMouseMove(short& Button, short& Shift, float& X, float& Y) override;
    void onMouseUp(short& Button, short& Shift, float& X, float& Y) override;
    void onDblClick() override;
    void onAccessKeyPress(short& KeyAscii) override;
    bool message(platform::UINT, platform::WPARAM, platform::LPARAM, platform::LRESULT& result) override;

private:
    bool inside(float x, float y) const;
    void press(bool down);

    automation::String caption_;
    bool down_ = false; ///< Shown pressed
    bool held_ = false; ///< The mouse or Space holds it
};

} // namespace host
