#pragma once
// What the tests of the host share: a desk, forms that are gone at the end, a control that notes its calls.

#include "automation/ClassTable.h"
#include "host/Form.h"
#include "host/Label.h"
#include "host/PropertyBag.h"
#include "host/Session.h"
#include "host/Timer.h"
#include "host/UserControl.h"
#include "support/Desk.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace host {

using Log = std::vector<std::string>;

/// A control that writes down what its container calls.
class Probe : public UserControl {
public:
    Log log;
    std::function<void(const std::string&)> onEvent; ///< Called with each entry
    bool logPaint = false;
    bool logMouseMove = false;
    bool swallowKeys = false;
    automation::String value = u"";

    automation::String Value() const { return value; }
    void Value(const automation::String& text) {
        value = text;
        PropertyChanged(u"Value");
    }
    automation::Event<> Changed;

    void note(const std::string& what) {
        log.push_back(what);
        if (onEvent) onEvent(what);
    }
    Log take() { return std::exchange(log, {}); }

    automation::Ref<Control> another() const override { return automation::make<Probe>(); }
    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table() {
        static const automation::ClassTable table = automation::ClassTable::of<Probe>("Probe")
                                                        .property("Value", &Probe::Value, &Probe::Value)
                                                        .defaultMember()
                                                        .event("Changed", &Probe::Changed);
        return table;
    }

protected:
    void onInitialize() override { note("Initialize"); }
    void onInitProperties() override { note("InitProperties"); }
    void onReadProperties(PropertyBag& bag) override {
        note("ReadProperties");
        value = bag.ReadProperty(u"Value", u"").asString();
    }
    void onWriteProperties(PropertyBag& bag) override {
        note("WriteProperties");
        bag.WriteProperty(u"Value", value, u"");
    }
    void onResize() override { note("Resize"); }
    void onShow() override { note("Show"); }
    void onHide() override { note("Hide"); }
    void onTerminate() override { note("Terminate"); }
    void onPaint() override {
        if (logPaint) note("Paint");
    }
    void onEnterFocus() override { note("EnterFocus"); }
    void onGotFocus() override { note("GotFocus"); }
    void onLostFocus() override { note("LostFocus"); }
    void onExitFocus() override { note("ExitFocus"); }
    void onKeyDown(short& KeyCode, short& Shift) override {
        note("KeyDown " + std::to_string(KeyCode) + " " + std::to_string(Shift));
        if (swallowKeys) KeyCode = 0;
    }
    void onKeyPress(short& KeyAscii) override { note("KeyPress " + std::to_string(KeyAscii)); }
    void onKeyUp(short& KeyCode, short& Shift) override {
        note("KeyUp " + std::to_string(KeyCode) + " " + std::to_string(Shift));
    }
    void onMouseDown(short& Button, short&, float& X, float& Y) override {
        note(mouse("MouseDown", Button, X, Y));
    }
    void onMouseMove(short& Button, short&, float& X, float& Y) override {
        if (logMouseMove) note(mouse("MouseMove", Button, X, Y));
    }
    void onMouseUp(short& Button, short&, float& X, float& Y) override {
        note(mouse("MouseUp", Button, X, Y));
    }
    void onMouseWheel(short Delta, short, float, float) override {
        note("MouseWheel " + std::to_string(Delta));
    }
    void onClick() override { note("Click"); }
    void onDblClick() override { note("DblClick"); }
    void onAccessKeyPress(short& KeyAscii) override {
        note("AccessKeyPress " + std::to_string(KeyAscii));
        UserControl::onAccessKeyPress(KeyAscii);
    }
    void onAmbientChanged(const automation::String& name) override { note("AmbientChanged " + name.utf8()); }

private:
    static std::string mouse(const char* name, short button, float x, float y) {
        return std::string(name) + " " + std::to_string(button) + " " + std::to_string(static_cast<int>(x)) +
               "," + std::to_string(static_cast<int>(y));
    }
};

class HostTest : public ::testing::Test {
protected:
    /// Here and not in the destructor: handlers write to what the tests hold.
    void TearDown() override {
        for (const auto& form : session().forms) {
            for (Control* control : form->controls()) {
                if (auto* probe = dynamic_cast<Probe*>(control)) probe->onEvent = nullptr;
            }
        }
        while (!session().forms.empty()) {
            const automation::Ref<Form> form = session().forms.back();
            stubborn_.push_back(form->QueryUnload.subscribe([](short& cancel, UnloadMode) { cancel = 0; }));
            stubborn_.push_back(form->Unload.subscribe([](short& cancel) { cancel = 0; }));
            if (!form->unload()) break;
        }
    }

    /// A form at a known place, not shown yet.
    automation::Ref<Form> makeForm(const char16_t* name = u"Form1") {
        auto form = automation::make<Form>(name);
        form->StartUpPosition(StartUpPosition::Manual);
        form->Move(1500, 1500, 6000, 4500);
        return form;
    }
    /// A control of 60 by 20 pixels in the `row`th place from the top.
    static Probe& probe(Form& form, const char16_t* name, int row, short index = NotInArray) {
        Probe& made = form.add<Probe>(name, index);
        made.Extender().Move(150, static_cast<float>(150 + row * 450), 900, 300);
        return made;
    }
    void show(Form& form) {
        form.Show();
        desk.pump();
    }
    /// The middle of a window on the screen.
    static platform::POINT middle(platform::HWND window) {
        platform::RECT r;
        platform::GetWindowRect(window, &r);
        return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
    }
    void key(int virtualKey) {
        desk.strikeKey(virtualKey);
        desk.pump();
    }
    void keyWith(int modifier, int virtualKey) {
        desk.pressKey(modifier);
        desk.strikeKey(virtualKey);
        desk.releaseKey(modifier);
        desk.pump();
    }
    void click(const UserControl& control) {
        desk.click(middle(control.hWnd()));
        desk.pump();
    }
    /// Does something from inside the message loop, once the loop has nothing else to do.
    void later(std::function<void()> action, std::int32_t milliseconds = 20) {
        auto timer = automation::make<Timer>();
        timer->Tick.join([timer = timer.get(), action = std::move(action)] {
            timer->Enabled(false);
            action();
        });
        timer->Interval(milliseconds);
        timers_.push_back(timer);
    }

    support::Desk desk;

private:
    std::vector<automation::Ref<Timer>> timers_;
    std::vector<automation::Subscription> stubborn_;
};

/// The number of the error that an action throws; 0 if it throws none.
template <class F>
std::int32_t errorOf(F action) {
    try {
        action();
    } catch (const automation::Error& error) {
        return error.number();
    }
    return 0;
}

} // namespace host
