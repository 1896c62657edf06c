#pragma once

#include "automation/Variant.h"
#include "frame/LibraryControl.h"
#include "host/Label.h"
#include "host/PropertyBag.h"

namespace tesela {

/// The library's label: a thin control around one plain label that fills it, with a typed reading of its
/// text, so that a form can read a label like a data field. It paints nothing by itself.
class lbl : public LibraryControl {
public:
    lbl();

    /// The values of a label that is new on a form.
    void UserControl_InitProperties();

    bool Enabled() const { return UserControl::Enabled(); }
    void Enabled(bool value);
    using LibraryControl::Live;
    void Live(bool value);

    const automation::String& Caption() const { return Label1.Caption(); }
    /// With AutoSize the control takes the size of the new text.
    void Caption(const automation::String& value);

    /// The caption in the type that `nFormato` asks for; -1 stands for TipoDato, and the caller's variable
    /// receives it. Text; a Double (0 if the caption is no number); a Date (a cFecha on the empty date if it
    /// is none); a Date with time (the empty date if it is none). False for any other format.
    automation::Variant ValorVerdadero(tslDataFormatConstants& nFormato) const;
    automation::Variant ValorVerdadero() const;

    const automation::String& ToolTip() const { return Label1.ToolTipText(); }
    void ToolTip(const automation::String& value);
    host::OLE_COLOR BackColor() const { return Label1.BackColor(); }
    void BackColor(host::OLE_COLOR value);
    host::OLE_COLOR ForeColor() const { return Label1.ForeColor(); }
    void ForeColor(host::OLE_COLOR value);
    /// A transparent label shows its container.
    tslBackStyleConstants BackStyle() const;
    void BackStyle(tslBackStyleConstants value);
    tslBorderStyleConstants BorderStyle() const;
    void BorderStyle(tslBorderStyleConstants value);
    /// The control's own font; writing copies the attributes. Null once the control has left its container,
    /// and a write raises error 91 then.
    const automation::Ref<host::StdFont>& Font() const { return oFont; }
    void Font(const automation::Ref<host::StdFont>& value);
    tslAlignmentConstants Alignment() const;
    void Alignment(tslAlignmentConstants value);
    /// 1 takes the width of the text, 2 wraps the text and takes its height. 3 becomes 1, with a message
    /// while the form is being designed.
    tslAutoSizeConstants AutoSize() const;
    void AutoSize(tslAutoSizeConstants value);
    void Refresh() { Label1.Refresh(); }
    using LibraryControl::Scheme;
    void Scheme(tslSchemeConstants value);

    /// The label was clicked while the gate of the events was open.
    automation::Event<> Click;

    /// The user can't type into a label: Tab and the mouse leave the focus where it is.
    bool canGetFocus() const override { return false; }
    automation::Ref<host::Control> another() const override { return automation::make<lbl>(); }
    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

protected:
    void onInitProperties() override { UserControl_InitProperties(); }
    void onReadProperties(host::PropertyBag& bag) override;
    void onWriteProperties(host::PropertyBag& bag) override;
    void onResize() override;
    void onTerminate() override;

private:
    host::StdFont& ownFont() const;
    void fontChanged();
    void takeLabelSize();
    void wrapAt(float widthTwips);
    float labelWidthTwips() const;
    float labelHeightTwips() const;

    host::OLE_COLOR nDefBackColor;
    host::OLE_COLOR nDefForeColor;
    host::Label Label1;
    automation::Ref<host::StdFont> oFont; ///< Null once the control has left its container
    automation::Subscription fontSubscription;
    automation::Subscription clickSubscription;
};

} // namespace tesela
