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

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

protected:
    void onInitProperties() override;
    void onReadProperties(PropertyBag& bag) override;
    void onWriteProperties(PropertyBag& bag) override;
    void onPaint() override { Paint(); }
    void onResize() override { Resize(); }
    void onClick() override { Click(); }
    void onDblClick() override { DblClick(); }
    void onKeyDown(short& KeyCode, short& Shift) override { KeyDown(KeyCode, Shift); }
    void onKeyPress(short& KeyAscii) override { KeyPress(KeyAscii); }
    void onKeyUp(short& KeyCode, short& Shift) override { KeyUp(KeyCode, Shift); }
    void onMouseDown(short& Button, short& Shift, float& X, float& Y) override {
        MouseDown(Button, Shift, X, Y);
    }
    void onMouseMove(short& Button, short& Shift, float& X, float& Y) override {
        MouseMove(Button, Shift, X, Y);
    }
    void onMouseUp(short& Button, short& Shift, float& X, float& Y) override { MouseUp(Button, Shift, X, Y); }

private:
    void fitPicture();

    host::BorderStyle borderStyle_ = host::BorderStyle::FixedSingle;
    host::Appearance appearance_ = host::Appearance::ThreeD;
    bool autoSize_ = false;
};

} // namespace host
