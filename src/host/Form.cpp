#include "host/Form.h"

#include "automation/ClassTable.h"
#include "automation/Error.h"
#include "automation/Names.h"
#include "host/FormSite.h"
#include "host/MessageLoop.h"
#include "host/Picture.h"
#include "host/Raised.h"
#include "host/Session.h"
#include "host/ToolTipWindow.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::int32_t NameInUse = 672;
constexpr std::int32_t ControlNotFound = 730;
constexpr std::int32_t AlreadyVisible = 400;
constexpr std::int32_t ModalIsOpen = 401;

} // namespace

Form::Form(automation::String name) : name_(std::move(name)), caption_(name_) {}

Form::~Form() {
    dropTimers();
    // Not loaded, or the list of forms would hold it: handlers aren't asked any more.
    for (const auto& site : sites_) {
        site->setGone();
        site->control().leave();
    }
    destroyWindow();
}

// Controls.

void Form::add(const automation::Ref<Control>& control, const automation::String& controlName, short index,
               DrawingWindow* container, PropertyBag* saved, const Bounds& place) {
    if (find(controlName, index) || findTimer(controlName, index)) throw automation::Error(NameInUse);
    ensureWindow();
    DrawingWindow& holder = container ? *container : *this;
    const auto site = std::make_shared<FormSite>(*this, control, controlName, index, holder);
    if (startsHidden_) site->visible_ = false;
    sites_.push_back(site);
    names_.add(*site);
    tabs_.push_back(site.get());
    try {
        control->enter(*site, &holder, holder.hWnd(), place);
        site->zOrder(ZOrderPosition::Front); // the platform puts new windows behind their siblings
        if (saved)
            control->readProperties(*saved);
        else
            control->initProperties();
        if (site->gone()) return;
        // What the properties did to the size on their way doesn't count against the size that was saved.
        const bool hasSavedSize = saved && (place.width != 0 || place.height != 0);
        control->applyBounds(hasSavedSize ? place : control->bounds());
    } catch (...) {
        remove(*control);
        throw;
    }
    if (site->gone()) return;
    site->show();
    // A form without controls holds the focus itself; the first one that can takes it over.
    if (Visible() && platform::GetFocus() == hWnd()) focusCame();
}

void Form::remove(Control& control) {
    FormSite* found = siteOf(control);
    if (!found) return;
    const auto site = found->shared_from_this();
    const automation::Ref<Control> alive(&control);
    const auto all = sites_;
    if (auto* window = dynamic_cast<DrawingWindow*>(&control)) {
        for (const auto& inner : all) {
            if (&inner->container() == window) remove(inner->control());
        }
    }
    focusLost(*site);
    site->setGone();
    if (leaving_ == site.get()) leaving_ = nullptr;
    std::erase(tabs_, site.get());
    std::erase(sites_, site);
    names_.remove(*site);
    control.leave();
}

Control* Form::find(const automation::String& controlName, short index) const {
    const FormSite* site = names_.find(controlName, index);
    return site ? &site->control() : nullptr;
}

std::vector<Control*> Form::controls() const {
    std::vector<Control*> list;
    for (const auto& site : sites_)
        list.push_back(&site->control());
    return list;
}

std::vector<short> Form::indexesOf(const automation::String& controlName) const {
    std::vector<short> list;
    for (const auto& site : sites_) {
        if (site->index() != NotInArray && automation::sameName(site->name(), controlName))
            list.push_back(site->index());
    }
    return list;
}

Control& Form::cloneControl(Control& pattern, short index) {
    FormSite* found = siteOf(pattern);
    const automation::Ref<Control> copy = pattern.another();
    if (!found || !copy) throw automation::Error(automation::errors::CannotCreateObject);
    const auto model = found->shared_from_this();
    PropertyBag bag;
    pattern.writeProperties(bag);
    DrawingWindow* container = &model->container() == this ? nullptr : &model->container();
    {
        const Raised hiding(startsHidden_); // controls come onto the form invisible
        add(copy, model->name(), index, container, &bag, pattern.bounds());
    }
    FormSite* made = siteOf(*copy);
    if (!made)
        throw automation::Error(automation::errors::CannotCreateObject); // one of its events removed it
    made->tabStop_ = model->tabStop();
    made->causesValidation_ = model->causesValidation();
    made->toolTipText_ = model->toolTipText();
    return *copy;
}

void Form::throwNoControl(const automation::String& controlName) {
    throw automation::Error(ControlNotFound,
                            u"No hay ningún control de ese tipo llamado '" + controlName + u"'.");
}

void Form::onlyDefault(const FormSite& chosen) {
    for (const auto& site : sites_) {
        if (site.get() != &chosen) site->default_ = false;
    }
}

void Form::onlyCancel(const FormSite& chosen) {
    for (const auto& site : sites_) {
        if (site.get() != &chosen) site->cancel_ = false;
    }
}

void Form::broadcastAmbient(const automation::String& property) {
    const auto all = sites_;
    for (const auto& site : all) {
        if (!site->gone()) site->control().ambientChanged(property);
    }
}

void Form::lookChanged(const char16_t* property) {
    broadcastAmbient(property);
}

void Form::UserMode(bool value) {
    if (value == userMode_) return;
    userMode_ = value;
    for (const NamedTimer& each : timers_)
        each.timer->hold(!userMode_);
    broadcastAmbient(nameOf(AmbientValue::UserMode));
}

// Timers.

Timer& Form::addTimer(const automation::String& timerName, short index) {
    if (find(timerName, index) || findTimer(timerName, index)) throw automation::Error(NameInUse);
    const auto timer = automation::make<Timer>();
    timer->hold(!userMode_);
    timers_.push_back({timerName, index, timer});
    return *timer;
}

Timer* Form::findTimer(const automation::String& timerName, short index) const {
    for (const NamedTimer& each : timers_) {
        if (each.index == index && automation::sameName(each.name, timerName)) return each.timer.get();
    }
    return nullptr;
}

/// Whoever else holds one gets no more ticks of it.
void Form::dropTimers() {
    for (const NamedTimer& each : timers_)
        each.timer->hold(true);
    timers_.clear();
}

// Life.

void Form::load() {
    if (loaded_) return;
    const automation::Ref<Form> alive(this);
    ensureWindow();
    loaded_ = true;
    session().forms.push_back(alive);
    onLoad();
}

void Form::Show(bool modal, Form* owner) {
    const automation::Ref<Form> alive(this);
    if (modal && loaded_ && Visible()) throw automation::Error(AlreadyVisible);
    if (!modal && !session().modal.empty() && !(loaded_ && Visible())) throw automation::Error(ModalIsOpen);
    load();
    if (!loaded_) return; // its Load handler unloaded it
    if (!owner && modal) owner = dynamic_cast<Form*>(fromWindow(platform::GetActiveWindow()));
    if (owner == this) owner = nullptr;
    if (owner && owner->hWnd())
        platform::SetWindowLongPtrA(hWnd(), platform::GWLP_HWNDPARENT,
                                    static_cast<platform::LONG_PTR>(owner->hWnd().value));
    const bool first = !std::exchange(shownOnce_, true);
    if (first) {
        place(owner);
        raiseResize();
    }
    if (!loaded_) return;
    if (modal) {
        runModal();
    } else {
        platform::ShowWindow(hWnd(), platform::SW_SHOW);
    }
}

void Form::runModal() {
    const platform::HWND former = platform::GetActiveWindow();
    modal_ = true;
    session().modal.push_back(this);
    const auto all = session().forms;
    for (const auto& form : all) {
        if (form.get() == this || !form->hWnd() || !platform::IsWindowEnabled(form->hWnd())) continue;
        platform::EnableWindow(form->hWnd(), platform::FALSE_);
        disabled_.push_back(form->hWnd());
    }
    platform::ShowWindow(hWnd(), platform::SW_SHOW);
    while (modal_ && waitAndDispatch()) {
    }
    // When the program quits the form is still open.
    const bool quitting = modal_;
    endModal();
    if (!quitting && former && platform::IsWindowEnabled(former) && platform::IsWindowVisible(former))
        platform::SetActiveWindow(former);
}

void Form::endModal() {
    if (!std::exchange(modal_, false)) return;
    std::erase(session().modal, this);
    // Before the window goes, so that the activation falls to a form that can take it.
    const std::vector<platform::HWND> list = std::exchange(disabled_, {});
    for (const platform::HWND window : list)
        platform::EnableWindow(window, platform::TRUE_);
}

void Form::Hide() {
    const automation::Ref<Form> alive(this);
    if (!hWnd()) return;
    endModal();
    platform::ShowWindow(hWnd(), platform::SW_HIDE);
}

bool Form::unload(UnloadMode mode) {
    if (!loaded_) return true;
    if (unloading_) return false;
    const automation::Ref<Form> alive(this);
    unloading_ = true;
    short cancel = 0;
    onQueryUnload(cancel, mode);
    if (!cancel) onUnload(cancel);
    unloading_ = false;
    if (cancel) return false;
    endModal();
    tearDown();
    return true;
}

void Form::tearDown() {
    loaded_ = false;
    if (toolTip_) toolTip_->hide();
    toolTip_.reset();
    dropTimers();
    if (hWnd()) platform::ShowWindow(hWnd(), platform::SW_HIDE);
    const auto all = std::exchange(sites_, {});
    names_.clear();
    tabs_.clear();
    active_ = nullptr;
    leaving_ = nullptr;
    for (auto site = all.rbegin(); site != all.rend(); ++site) {
        (*site)->setGone();
        (*site)->control().leave();
    }
    destroyWindow();
    shownOnce_ = false;
    std::erase_if(session().forms, [this](const auto& form) { return form.get() == this; });
}

bool Form::Visible() const {
    return hWnd() && platform::IsWindowVisible(hWnd());
}

void Form::Visible(bool value) {
    if (value)
        Show();
    else
        Hide();
}

void Form::SetFocus() {
    if (!Visible() || !platform::IsWindowEnabled(hWnd()))
        throw automation::Error(automation::errors::InvalidCall);
    platform::SetForegroundWindow(hWnd());
    platform::SetActiveWindow(hWnd());
}

// Events.

void Form::onLoad() {
    Load.raise();
}

void Form::onQueryUnload(short& Cancel, UnloadMode mode) {
    QueryUnload.raise(Cancel, mode);
}

void Form::onUnload(short& Cancel) {
    Unload.raise(Cancel);
}

void Form::onActivate() {
    Activate.raise();
}

void Form::onDeactivate() {
    Deactivate.raise();
}

void Form::onResize() {
    Resize.raise();
}

void Form::onPaint() {
    Paint.raise();
}

void Form::onKeyDown(short& KeyCode, short& Shift) {
    KeyDown.raise(KeyCode, Shift);
}

void Form::onKeyPress(short& KeyAscii) {
    KeyPress.raise(KeyAscii);
}

void Form::onKeyUp(short& KeyCode, short& Shift) {
    KeyUp.raise(KeyCode, Shift);
}

void Form::onMouseDown(short& Button, short& Shift, float& X, float& Y) {
    MouseDown.raise(Button, Shift, X, Y);
}

void Form::onMouseMove(short& Button, short& Shift, float& X, float& Y) {
    MouseMove.raise(Button, Shift, X, Y);
}

void Form::onMouseUp(short& Button, short& Shift, float& X, float& Y) {
    MouseUp.raise(Button, Shift, X, Y);
}

void Form::onClick() {
    Click.raise();
}

void Form::onDblClick() {
    DblClick.raise();
}

const automation::ClassTable& Form::table() {
    using automation::optional;
    static const automation::ClassTable table =
        automation::ClassTable::of<Form>("Form")
            .property("Name", &Form::Name, &Form::Name)
            .property("Caption", &Form::Caption, &Form::Caption)
            .property("Left", &Form::Left, &Form::Left)
            .property("Top", &Form::Top, &Form::Top)
            .property("Width", &Form::Width, &Form::Width)
            .property("Height", &Form::Height, &Form::Height)
            .property("Visible", &Form::Visible, &Form::Visible)
            .property("Enabled", &Form::Enabled, &Form::Enabled)
            .property("KeyPreview", &Form::KeyPreview, &Form::KeyPreview)
            .property("Tag", &Form::Tag, &Form::Tag)
            .property("BackColor", &Form::BackColor, &Form::BackColor)
            .property("ForeColor", &Form::ForeColor, &Form::ForeColor)
            .get("hWnd", &Form::handle)
            .get("ScaleWidth", &Form::clientWidth)
            .get("ScaleHeight", &Form::clientHeight)
            .method("Move", &Form::Move, {"Left", "Top", "Width", "Height"})
            .method("SetFocus", &Form::SetFocus)
            .method("Hide", &Form::Hide)
            .method("Refresh", &Form::Refresh)
            .event("Load", &Form::Load)
            .event("QueryUnload", &Form::QueryUnload, {"Cancel", "UnloadMode"})
            .event("Unload", &Form::Unload, {"Cancel"})
            .event("Activate", &Form::Activate)
            .event("Deactivate", &Form::Deactivate)
            .event("Resize", &Form::Resize)
            .event("Paint", &Form::Paint)
            .event("KeyDown", &Form::KeyDown, {"KeyCode", "Shift"})
            .event("KeyPress", &Form::KeyPress, {"KeyAscii"})
            .event("KeyUp", &Form::KeyUp, {"KeyCode", "Shift"})
            .event("MouseDown", &Form::MouseDown, {"Button", "Shift", "X", "Y"})
            .event("MouseMove", &Form::MouseMove, {"Button", "Shift", "X", "Y"})
            .event("MouseUp", &Form::MouseUp, {"Button", "Shift", "X", "Y"})
            .event("Click", &Form::Click)
            .event("DblClick", &Form::DblClick);
    return table;
}

} // namespace host
