#pragma once

#include "automation/Event.h"
#include "host/Control.h"
#include "host/DrawingWindow.h"

namespace host {

enum class BorderStyle : int { None = 0, FixedSingle = 1 };
enum class Appearance : int { Flat = 0, ThreeD = 1 };
enum class Alignment : int { LeftJustify = 0, RightJustify = 1, Center = 2 };

/// The plain label: text that its container paints, without a window and without the focus. It stands on a
/// form, in a picture box or inside a user control. Lengths are in the container's scale.
class Label : public Control {
public:
    Label();
    ~Label() override;

    /// Makes it a constituent of a user control, with no extender of its own.
    void placeIn(DrawingWindow& container);

    const automation::String& Caption() const { return caption_; }
    void Caption(const automation::String& value);
    OLE_COLOR BackColor() const { return backColor_; }
    void BackColor(OLE_COLOR value);
    OLE_COLOR ForeColor() const { return foreColor_; }
    void ForeColor(OLE_COLOR value);
    // The enumerations' setters raise error 380 for a number that isn't one of theirs, and keep the value.
    /// 0 shows what is under the label.
    host::BackStyle BackStyle() const { return backStyle_; }
    void BackStyle(host::BackStyle value);
    host::BorderStyle BorderStyle() const { return borderStyle_; }
    void BorderStyle(host::BorderStyle value);
    /// The border's look: a black line or two sunken ones.
    host::Appearance Appearance() const { return appearance_; }
    void Appearance(host::Appearance value);
    host::Alignment Alignment() const { return alignment_; }
    void Alignment(host::Alignment value);
    /// With True the label takes the size of its text: without WordWrap both ways, with it only in height.
    bool AutoSize() const { return autoSize_; }
    void AutoSize(bool value);
    bool WordWrap() const { return wordWrap_; }
    void WordWrap(bool value);
    /// The label's own font object; a change of it repaints.
    const automation::Ref<StdFont>& Font() const { return font_; }
    void Font(const StdFont& value);
    bool Enabled() const { return enabled_; }
    void Enabled(bool value);
    bool Visible() const { return visible_; }
    void Visible(bool value);
    const automation::String& ToolTipText() const { return toolTip_; }
    void ToolTipText(const automation::String& value);
    /// With True "&" underlines the next character and makes it the access key; "&&" is one "&".
    bool UseMnemonic() const { return useMnemonic_; }
    void UseMnemonic(bool value);

    float Left() const;
    void Left(float value);
    float Top() const;
    void Top(float value);
    float Width() const;
    void Width(float value);
    float Height() const;
    void Height(float value);
    void Move(float left, float top, float width, float height);
    /// Repaints the label now.
    void Refresh();

    automation::Event<> Click;
    automation::Event<> DblClick;

    // What containers call.
    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();
    void enter(ControlSite& site, DrawingWindow* container, platform::HWND parent,
               const Bounds& bounds) override;
    void leave() override;
    void initProperties() override;
    void readProperties(PropertyBag& bag) override;
    void writeProperties(PropertyBag& bag) override;
    void applyBounds(const Bounds& bounds) override;
    void applyVisible(bool visible) override;
    void ambientChanged(const automation::String& name) override;
    automation::String accessKeys() const override;
    bool enabled() const override { return enabled_; }
    automation::Ref<Control> another() const override { return automation::make<Label>(); }

    /// The container ends before the label.
    void homeGone() { home_ = nullptr; }
    DrawingWindow* home() const { return home_; }
    /// Draws the label on a context whose (0, 0) is the container's corner.
    void paint(platform::HDC dc) const;

private:
    void changed();
    void fit();
    float unit(Axis axis) const;
    void copyFont(const automation::Ref<StdFont>& value);
    void paintBorder(platform::HDC dc, platform::RECT& area) const;
    void paintText(platform::HDC dc, const platform::RECT& area) const;
    int borderWidth() const;
    platform::UINT textFormat() const;
    platform::SIZE textSize(int width) const;
    void invalidate() const;

    DrawingWindow* home_ = nullptr;
    automation::String caption_;
    automation::String toolTip_;
    automation::Ref<StdFont> font_;
    automation::Subscription fontChanges_;
    OLE_COLOR backColor_ = colorButtonFace;
    OLE_COLOR foreColor_ = colorButtonText;
    host::BackStyle backStyle_ = host::BackStyle::Opaque;
    host::BorderStyle borderStyle_ = host::BorderStyle::None;
    host::Appearance appearance_ = host::Appearance::ThreeD;
    host::Alignment alignment_ = host::Alignment::LeftJustify;
    bool autoSize_ = false;
    bool wordWrap_ = false;
    bool enabled_ = true;
    bool visible_ = true;
    bool useMnemonic_ = true;
};

/// The character behind the first single "&" of a caption; empty if there is none.
automation::String mnemonicOf(const automation::String& caption);

} // namespace host
