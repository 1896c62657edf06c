#pragma once

#include "automation/Event.h"
#include "host/Control.h"
#include "host/ControlArray.h"
#include "host/DrawingWindow.h"
#include "host/PropertyBag.h"
#include "host/SiteNames.h"
#include "host/Timer.h"

#include <memory>
#include <vector>

namespace host {

class FormSite;
class ToolTipWindow;
class UserControl;

enum class FormBorderStyle : int {
    None = 0,
    FixedSingle = 1,
    Sizable = 2,
    FixedDialog = 3,
    FixedToolWindow = 4,
    SizableToolWindow = 5,
};

enum class StartUpPosition : int { Manual = 0, CenterOwner = 1, CenterScreen = 2, WindowsDefault = 3 };
enum class WindowState : int { Normal = 0, Minimized = 1, Maximized = 2 };

/// Why a form is being unloaded.
enum class UnloadMode : short { FormControlMenu = 0, FormCode = 1, AppWindows = 2 };

/// The Index of a control that is in no control array.
inline constexpr short NotInArray = -1;

/// A top-level window that holds controls. It is counted: while it is loaded the list of forms keeps it
/// alive, so a modeless form lives as long as it is open. Positions and sizes are in twips.
class Form : public automation::Object, public DrawingWindow {
public:
    explicit Form(automation::String name = u"Form1");
    ~Form() override;

    const automation::String& Name() const { return name_; }
    void Name(const automation::String& value) { name_ = value; }
    const automation::String& Caption() const { return caption_; }
    void Caption(const automation::String& value);
    const automation::Ref<host::Picture>& Icon() const { return icon_; }
    void Icon(const automation::Ref<host::Picture>& value);
    FormBorderStyle BorderStyle() const { return borderStyle_; }
    void BorderStyle(FormBorderStyle value);
    bool ControlBox() const { return controlBox_; }
    void ControlBox(bool value);
    bool MinButton() const { return minButton_; }
    void MinButton(bool value);
    bool MaxButton() const { return maxButton_; }
    void MaxButton(bool value);
    host::StartUpPosition StartUpPosition() const { return startUpPosition_; }
    void StartUpPosition(host::StartUpPosition value) { startUpPosition_ = value; }
    host::WindowState WindowState() const;
    void WindowState(host::WindowState value);
    /// With True the form's key events come before those of the active control.
    bool KeyPreview() const { return keyPreview_; }
    void KeyPreview(bool value) { keyPreview_ = value; }
    bool Enabled() const { return enabled_; }
    void Enabled(bool value);
    bool Visible() const;
    void Visible(bool value);
    automation::String Tag() const { return tag_; }
    void Tag(const automation::String& value) { tag_ = value; }

    /// Place and size of the whole window on the screen.
    float Left() const;
    void Left(float value);
    float Top() const;
    void Top(float value);
    float Width() const;
    void Width(float value);
    float Height() const;
    void Height(float value);
    void Move(float left, float top, float width, float height);
    /// Makes the window so large that its client area has this size.
    void SetClientSize(float width, float height);
    /// The user can't make the window smaller or larger than this; 0 is no limit.
    float MinWidth() const { return minWidth_; }
    void MinWidth(float value) { minWidth_ = value; }
    float MinHeight() const { return minHeight_; }
    void MinHeight(float value) { minHeight_ = value; }
    float MaxWidth() const { return maxWidth_; }
    void MaxWidth(float value) { maxWidth_ = value; }
    float MaxHeight() const { return maxHeight_; }
    void MaxHeight(float value) { maxHeight_ = value; }

    /// False while the form is being designed: controls see it as Ambient.UserMode, timers stand still.
    bool UserMode() const { return userMode_; }
    void UserMode(bool value);

    // Controls. Names compare without case.

    /// Makes a control of class C and puts it on the form, or into a picture box of the form, at 0, 0 with
    /// the class's own size. Throws automation::Error 672 for a name that is taken.
    template <class C>
    C& add(const automation::String& controlName, short index = NotInArray,
           DrawingWindow* container = nullptr) {
        auto control = automation::make<C>();
        add(control, controlName, index, container);
        return *control;
    }
    /// The same with a control that exists. With `saved` it reads its properties from there; `place` is in
    /// twips.
    void add(const automation::Ref<Control>& control, const automation::String& controlName,
             short index = NotInArray, DrawingWindow* container = nullptr, PropertyBag* saved = nullptr,
             const Bounds& place = {});
    /// Takes a control off the form. A handler of the control may do so: it lives until the handler is done.
    void remove(Control& control);

    /// Null if there is none.
    Control* find(const automation::String& controlName, short index = NotInArray) const;
    /// Throws automation::Error 730 if there is none of that name and class.
    template <class C>
    C& get(const automation::String& controlName, short index = NotInArray) const {
        auto* control = dynamic_cast<C*>(find(controlName, index));
        if (!control) throwNoControl(controlName);
        return *control;
    }
    /// The controls of one name with their indexes.
    ControlArray array(const automation::String& controlName) { return ControlArray(*this, controlName); }
    /// In the order of their making.
    std::vector<Control*> controls() const;
    /// Indexes of the control array of that name, in no order.
    std::vector<short> indexesOf(const automation::String& controlName) const;
    /// A new element of a control's array, with its properties and place, invisible. The class must have a
    /// maker: `Control::another`.
    Control& cloneControl(Control& pattern, short index);

    // Timers. They share the controls' names, are saved with the form and go when it is unloaded.

    struct NamedTimer {
        automation::String name;
        short index;
        automation::Ref<Timer> timer;
    };
    /// A new timer. Throws automation::Error 672 for a name that is taken.
    Timer& addTimer(const automation::String& timerName, short index = NotInArray);
    /// Null if there is none.
    Timer* findTimer(const automation::String& timerName, short index = NotInArray) const;
    /// In the order of their making.
    const std::vector<NamedTimer>& timers() const { return timers_; }

    /// The control that has the focus, or had it when the form was last active; null if none.
    Control* ActiveControl() const;
    /// Gives the focus to a control of the form, or, while the form is hidden, lets it begin there.
    void ActiveControl(Control& control);
    /// Raises Validate of the active control; false if it was cancelled.
    bool ValidateControls();
    /// Moves the focus along the Tab order; false if no other control takes it or validation refused.
    bool moveFocus(bool forward);
    /// Whether a control has reported a change since the form was made, read or saved.
    bool Dirty() const { return dirty_; }
    void Dirty(bool value) { dirty_ = value; }
    /// Activates the form.
    void SetFocus();
    void ZOrder(ZOrderPosition position = ZOrderPosition::Front);

    // Life.

    /// Makes the window, hidden, and raises Load. Nothing if it is loaded.
    void load();
    bool loaded() const { return loaded_; }
    /// Loads and shows the form. A modal one returns when it is hidden or unloaded; the other forms take no
    /// input meanwhile. Throws automation::Error 401 for a modeless form while a modal one is open and 400
    /// for a modal one that is visible.
    void Show(bool modal = false, Form* owner = nullptr);
    void Hide();
    /// QueryUnload, Unload, and the window and the controls go. False if a handler cancelled.
    bool unload(UnloadMode mode = UnloadMode::FormCode);

    automation::Event<> Load;                          ///< Before the form is first shown
    automation::Event<short&, UnloadMode> QueryUnload; ///< Not 0 in the first argument keeps the form
    automation::Event<short&> Unload;                  ///< The same
    automation::Event<> Activate;
    automation::Event<> Deactivate;
    automation::Event<> Resize;
    automation::Event<> Paint;
    automation::Event<short&, short&> KeyDown; ///< KeyCode, Shift
    automation::Event<short&> KeyPress;
    automation::Event<short&, short&> KeyUp;
    automation::Event<short&, short&, float&, float&> MouseDown; ///< Button, Shift, X, Y
    automation::Event<short&, short&, float&, float&> MouseMove;
    automation::Event<short&, short&, float&, float&> MouseUp;
    automation::Event<> Click;
    automation::Event<> DblClick;

    automation::Object& self() override { return *this; }
    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

protected:
    // A form class may override these instead of joining its own events; each raises its event.
    virtual void onLoad();
    virtual void onQueryUnload(short& Cancel, UnloadMode mode);
    virtual void onUnload(short& Cancel);
    virtual void onActivate();
    virtual void onDeactivate();
    void onResize() override;
    void onPaint() override;
    void onKeyDown(short& KeyCode, short& Shift) override;
    /// Moves the focus along the Tab order, as the Tab key does. False leaves the key to the control.
    virtual bool onTab(bool forward);
    void onKeyPress(short& KeyAscii) override;
    void onKeyUp(short& KeyCode, short& Shift) override;
    void onMouseDown(short& Button, short& Shift, float& X, float& Y) override;
    void onMouseMove(short& Button, short& Shift, float& X, float& Y) override;
    void onMouseUp(short& Button, short& Shift, float& X, float& Y) override;
    void onClick() override;
    void onDblClick() override;

    bool translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM lParam) override;
    platform::LRESULT otherMessage(platform::UINT, platform::WPARAM, platform::LPARAM) override;
    void focusCame() override;
    void windowSized() override;
    void lookChanged(const char16_t* property) override;
    void mouseActivity(platform::UINT message, const automation::String& toolTip) override;
    bool takesInput() const override { return enabled_; }

private:
    friend class FormSite;

    void ensureWindow();
    platform::DWORD windowStyle() const;
    platform::DWORD windowExStyle() const;
    void restyle();
    void place(const Form* owner);
    Bounds screenBounds() const;
    void resizeTo(float width, float height);
    std::int32_t handle() const { return static_cast<std::int32_t>(hWnd().value); }
    float clientWidth() const { return ScaleWidth(); }
    float clientHeight() const { return ScaleHeight(); }
    void tearDown();
    void dropTimers();
    void raiseResize();
    void runModal();
    void endModal();
    void limitSize(platform::MINMAXINFO& limits) const;
    [[noreturn]] static void throwNoControl(const automation::String& controlName);
    void broadcastAmbient(const automation::String& property);
    void onlyDefault(const FormSite& chosen);
    void onlyCancel(const FormSite& chosen);
    void hover(const void* what, const automation::String& text, platform::UINT message);

    // Focus: Form_focus.cpp
    FormSite* siteOf(platform::HWND window) const;
    FormSite* siteOf(const Control& control) const;
    short tabIndexOf(const FormSite& site) const;
    void renumberTabs(FormSite& moved, short place);
    FormSite* nextStop(bool forward) const;
    bool focusSite(FormSite& site);
    void focusLost(FormSite& site);
    bool validate(FormSite& losing);
    bool leaveAllowed(const FormSite& gaining);
    bool siteFocusArrived(FormSite& site);
    bool siteFocusLeaving(FormSite& site, platform::HWND next);
    bool pressAccessKey(char16_t character);
    bool pressButton(bool cancel);
    bool siteTranslateKey(FormSite& site, platform::UINT message, platform::WPARAM& wParam,
                          platform::LPARAM lParam);
    bool navigationKey(platform::HWND window, platform::UINT message, platform::WPARAM wParam);
    bool previewKey(platform::UINT message, platform::WPARAM& wParam);

    automation::String name_;
    automation::String caption_;
    automation::String tag_;
    automation::Ref<host::Picture> icon_;
    FormBorderStyle borderStyle_ = FormBorderStyle::Sizable;
    host::StartUpPosition startUpPosition_ = host::StartUpPosition::WindowsDefault;
    bool controlBox_ = true;
    bool minButton_ = true;
    bool maxButton_ = true;
    bool keyPreview_ = false;
    bool enabled_ = true;
    bool userMode_ = true;
    bool loaded_ = false;
    bool modal_ = false;
    bool unloading_ = false;
    bool shownOnce_ = false;
    bool positioned_ = false; ///< The program has said where the window stands
    bool dirty_ = false;
    bool startsHidden_ = false; ///< The control being added is a new array element
    float minWidth_ = 0;
    float minHeight_ = 0;
    float maxWidth_ = 0;
    float maxHeight_ = 0;
    Bounds bounds_{0, 0, 4800, 3600};      ///< Until the window is made
    platform::SIZE lastSize_{-1, -1};      ///< That Resize has told
    std::vector<platform::HWND> disabled_; ///< By this modal form

    std::vector<std::shared_ptr<FormSite>> sites_; ///< In the order of their making
    std::vector<NamedTimer> timers_;
    SiteNames names_;
    std::vector<FormSite*> tabs_; ///< In Tab order
    FormSite* active_ = nullptr;  ///< Has the focus, or had it when the form was last active
    FormSite* leaving_ = nullptr; ///< Its window lost the focus; its LostFocus waits for validation
    bool returning_ = false;      ///< The focus is being given back after a refused move
    bool validated_ = false;      ///< The present move was validated before it began
    bool validating_ = false;     ///< Validate is being raised
    automation::Ref<ToolTipWindow> toolTip_;
};

} // namespace host
