#pragma once

#include "automation/Event.h"
#include "host/Label.h"
#include "host/UserControl.h"

namespace host {

/// A control with a window of its own to draw on, which can hold other controls. Its drawing members are
/// those of DrawingWindow: hDC, AutoRedraw, ScaleMode, Cls, Picture, PaintPicture.
class PictureBox : public UserControl {
public:
    PictureBox();

    host::BorderStyle BorderStyle() const { return borderStyle_; }
    void BorderStyle(host::BorderStyle value);
    host::Appearance Appearance() const { return appearance_; }
    void Appearance(host::Appearance value);
    /// With True the box takes the size of its picture.
    bool AutoSize() const { return autoSize_; }
    void AutoSize(bool value);
    using UserControl::Picture;
    void Picture(const automation::Ref<host::Picture>& value);

    automation::Event<> Paint;
    automation::Event<> Resize;
    automation::Event<> Click;
    automation::Event<> DblClick;
    automation::Event<short&, short&> KeyDown; ///< KeyCode, Shift
    automation::Event<short&> KeyPress;
    automation::Event<short&, short&> KeyUp;
    automation::Event<short&, short&, float&, float&> MouseDown; ///< Button, Shift, X, Y
    automation::Event<short&, short&, float&, float&> MouseMove;
    automation::Event<short&, short&, float&, float&> MouseUp;

    automation::Ref<Control> another() const override { return automation::make<PictureBox>(); }
    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

protected:
    void onInitProperties() override;
    void onReadProperties(PropertyBag& bag) override;
    void onWriteProperties(PropertyBag& bag) override;
    void onPaint() override { Paint.raise(); }
    void onResize() override { Resize.raise(); }
    void onClick() override { Click.raise(); }
    void onDblClick() override { DblClick.raise(); }
    void onKeyDown(short& KeyCode, short& Shift) override { KeyDown.raise(KeyCode, Shift); }
    void onKeyPress(short& KeyAscii) override { KeyPress.raise(KeyAscii); }
    void onKeyUp(short& KeyCode, short& Shift) override { KeyUp.raise(KeyCode, Shift); }
    void onMouseDown(short& Button, short& Shift, float& X, float& Y) override {
        MouseDown.raise(Button, Shift, X, Y);
    }
    void onMouseMove(short& Button, short& Shift, float& X, float& Y) override {
        MouseMove.raise(Button, Shift, X, Y);
    }
    void onMouseUp(short& Button, short& Shift, float& X, float& Y) override {
        MouseUp.raise(Button, Shift, X, Y);
    }

    void lookChanged(const char16_t* property) override;

private:
    void applyFrame();
    void fitPicture();
    // As programs that call by name see them.
    std::int32_t handle() const { return static_cast<std::int32_t>(hWnd().value); }
    std::int32_t context() { return static_cast<std::int32_t>(hDC().value); }
    automation::Ref<host::Picture> picture() const { return Picture(); }
    void setPicture(const automation::Ref<host::Picture>& value) { Picture(value); }
    automation::Ref<StdFont> fontObject() { return Font(); }

    host::BorderStyle borderStyle_ = host::BorderStyle::FixedSingle;
    host::Appearance appearance_ = host::Appearance::ThreeD;
    bool autoSize_ = false;
};

} // namespace host
