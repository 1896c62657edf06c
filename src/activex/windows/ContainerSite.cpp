#include "activex/windows/ContainerSite.h"

#include "activex/windows/ControlObject.h"
#include "activex/windows/Failures.h"
#include "activex/windows/HostObject.h"
#include "activex/windows/Values.h"

namespace activex {

using automation::Variant;
using host::AmbientValue;
using host::ExtenderValue;
using platform::driver::native;

namespace {

::DISPID ambientId(AmbientValue which) {
    for (const AmbientId& each : ambientIds())
        if (each.value == which) return each.id;
    return DISPID_UNKNOWN;
}

/// Paints what a window shows, on a context whose (0, 0) is a place inside of it.
void paintWindow(::HWND window, ::HDC dc, ::POINT place) {
    const int state = ::SaveDC(dc);
    ::OffsetViewportOrgEx(dc, -place.x, -place.y, nullptr);
    const auto context = reinterpret_cast<::WPARAM>(dc);
    ::SendMessageW(window, WM_ERASEBKGND, context, 0);
    ::SendMessageW(window, WM_PRINTCLIENT, context, PRF_CLIENT);
    ::RestoreDC(dc, state);
}

} // namespace

std::span<const AmbientId> ambientIds() {
    static constexpr AmbientId ids[] = {
        {DISPID_AMBIENT_BACKCOLOR, AmbientValue::BackColor},
        {DISPID_AMBIENT_FORECOLOR, AmbientValue::ForeColor},
        {DISPID_AMBIENT_FONT, AmbientValue::Font},
        {DISPID_AMBIENT_USERMODE, AmbientValue::UserMode},
        {DISPID_AMBIENT_SCALEUNITS, AmbientValue::ScaleUnits},
        {DISPID_AMBIENT_DISPLAYNAME, AmbientValue::DisplayName},
        {DISPID_AMBIENT_LOCALEID, AmbientValue::LocaleID},
        {DISPID_AMBIENT_DISPLAYASDEFAULT, AmbientValue::DisplayAsDefault},
        {DISPID_AMBIENT_UIDEAD, AmbientValue::UIDead},
    };
    return ids;
}

Variant ContainerSite::ambientValue(AmbientValue which) {
    const auto alive = owner_.keepAlive();
    const auto ambient = ComPointer<::IDispatch>::of(owner_.client());
    if (!ambient) return {};
    ::DISPPARAMS none{};
    SystemValue value;
    if (FAILED(ambient->Invoke(ambientId(which), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                               &value, nullptr, nullptr)))
        return {};
    try {
        return fromSystem(value);
    } catch (const automation::Error&) {
        return {}; // of no use to the control
    }
}

automation::Ref<automation::Object> ContainerSite::extended() const {
    const auto site = ComPointer<::IOleControlSite>::of(owner_.client());
    ComPointer<::IDispatch> control;
    if (!site || FAILED(site->GetExtendedControl(control.out())) || !control) return {};
    // Of a container that gives the control itself nothing more can be learned.
    if (ComPointer<::IUnknown>::of(control.get()).get() ==
        ComPointer<::IUnknown>::of(&owner_.identity()).get())
        return {};
    return HostObject::of(*control.get());
}

/// Lets the container's extended control answer; false where there is none or it does not know.
template <class F>
bool ContainerSite::inExtended(const F& action) const {
    const auto control = extended();
    if (!control) return false;
    try {
        action(*control);
        return true;
    } catch (const automation::Error& error) {
        if (error.number() != automation::errors::MemberNotSupported) throw;
        return false;
    }
}

Variant ContainerSite::extenderValue(ExtenderValue which) {
    const auto alive = owner_.keepAlive();
    Variant value;
    const bool answered = inExtended([&](automation::Object& control) {
        value = control.invokeByName(host::nameOf(which), automation::CallKind::MethodOrGet);
    });
    return answered ? value : ownValue(which);
}

Variant ContainerSite::ownValue(ExtenderValue which) const {
    const host::Bounds& place = owner_.control().bounds();
    switch (which) {
    case ExtenderValue::Name: {
        if (!name_.empty()) return name_;
        const Variant display = const_cast<ContainerSite*>(this)->ambientValue(AmbientValue::DisplayName);
        return display.isString() && !display.asString().empty() ? display
                                                                 : Variant(owner_.control().typeName());
    }
    case ExtenderValue::Index:
        return std::int16_t{-1};
    case ExtenderValue::Left:
        return place.left;
    case ExtenderValue::Top:
        return place.top;
    case ExtenderValue::Width:
        return place.width;
    case ExtenderValue::Height:
        return place.height;
    case ExtenderValue::Visible:
        return owner_.isShown();
    case ExtenderValue::TabStop:
        return tabStop_;
    case ExtenderValue::ToolTipText:
        return toolTipText_;
    case ExtenderValue::CausesValidation:
        return causesValidation_;
    case ExtenderValue::Tag:
        return tag_;
    case ExtenderValue::Default:
    case ExtenderValue::Cancel:
        return false;
    case ExtenderValue::TabIndex:
    case ExtenderValue::Parent:
    case ExtenderValue::Container:
        break;
    }
    automation::throwError(automation::errors::MemberNotSupported);
}

void ContainerSite::setExtenderValue(ExtenderValue which, const Variant& value) {
    const auto alive = owner_.keepAlive();
    const bool answered = inExtended([&](automation::Object& control) {
        control.invokeByName(host::nameOf(which), automation::CallKind::Let, {{&value, 1}, {}});
    });
    if (!answered) setOwnValue(which, value);
}

void ContainerSite::setOwnValue(ExtenderValue which, const Variant& value) {
    const host::Bounds place = owner_.control().bounds();
    const auto side = [&] { return automation::fromVariant<float>(value); };
    switch (which) {
    case ExtenderValue::Name:
        name_ = automation::fromVariant<automation::String>(value);
        return;
    case ExtenderValue::Left:
        return move(side(), place.top, place.width, place.height);
    case ExtenderValue::Top:
        return move(place.left, side(), place.width, place.height);
    case ExtenderValue::Width:
        return move(place.left, place.top, side(), place.height);
    case ExtenderValue::Height:
        return move(place.left, place.top, place.width, side());
    case ExtenderValue::Visible:
        owner_.show(automation::fromVariant<bool>(value));
        return;
    case ExtenderValue::TabStop:
        setTabStop(automation::fromVariant<bool>(value));
        return;
    case ExtenderValue::ToolTipText:
        toolTipText_ = automation::fromVariant<automation::String>(value);
        return;
    case ExtenderValue::CausesValidation:
        causesValidation_ = automation::fromVariant<bool>(value);
        return;
    case ExtenderValue::Tag:
        tag_ = automation::fromVariant<automation::String>(value);
        return;
    default:
        automation::throwError(automation::errors::MemberNotSupported);
    }
}

/// The mark on the window is for containers that are dialogs.
void ContainerSite::setTabStop(bool value) {
    tabStop_ = value;
    const ::HWND window = native(owner_.control().window());
    const ::LONG others = ::GetWindowLongW(window, GWL_STYLE) & ~WS_TABSTOP;
    const bool stops = value && owner_.control().canGetFocus();
    ::SetWindowLongW(window, GWL_STYLE, others | (stops ? WS_TABSTOP : 0));
}

void ContainerSite::move(float left, float top, float width, float height) {
    const auto alive = owner_.keepAlive();
    owner_.requestPlace({left, top, std::max(0.0F, width), std::max(0.0F, height)});
}

void ContainerSite::requestSize(float widthTwips, float heightTwips) {
    const host::Bounds& place = owner_.control().bounds();
    move(place.left, place.top, widthTwips, heightTwips);
}

void ContainerSite::propertyChanged(std::u16string_view name) {
    const auto alive = owner_.keepAlive();
    owner_.propertyChanged(name);
}

void ContainerSite::accessKeysChanged() {
    const auto alive = owner_.keepAlive();
    if (const auto site = ComPointer<::IOleControlSite>::of(owner_.client())) site->OnControlInfoChanged();
}

void ContainerSite::enabledChanged() {
    accessKeysChanged();
}

void ContainerSite::zOrder(host::ZOrderPosition position) {
    constexpr ::UINT flags = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
    ::SetWindowPos(native(owner_.control().window()),
                   position == host::ZOrderPosition::Front ? HWND_TOP : HWND_BOTTOM, 0, 0, 0, 0, flags);
}

bool ContainerSite::isDesigning() {
    const Variant userMode = ambientValue(AmbientValue::UserMode);
    return userMode.type() == VT_BOOL && !automation::fromVariant<bool>(userMode);
}

bool ContainerSite::takeFocus() {
    const auto alive = owner_.keepAlive();
    return !isDesigning() && owner_.takeFocus();
}

bool ContainerSite::translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM lParam) {
    const auto alive = owner_.keepAlive();
    if (isDesigning()) return true;
    const bool pressed = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    const bool asked = wParam == VK_TAB || wParam == VK_RETURN || wParam == VK_ESCAPE;
    if (!pressed || !asked) return false;
    ::MSG key{};
    key.hwnd = native(owner_.control().window());
    key.message = message;
    key.wParam = static_cast<::WPARAM>(wParam);
    key.lParam = static_cast<::LPARAM>(lParam);
    return owner_.passToContainer(key);
}

bool ContainerSite::focusArrived() {
    const auto alive = owner_.keepAlive();
    if (isDesigning()) return false;
    owner_.focusChanged(true);
    return true;
}

bool ContainerSite::focusLeaving(platform::HWND) {
    const auto alive = owner_.keepAlive();
    owner_.focusChanged(false);
    return false; // the control learns of it by itself
}

void ContainerSite::paintBehind(platform::HDC dc) {
    const auto alive = owner_.keepAlive();
    const ::HWND window = native(owner_.control().window());
    const ::HWND parent = ::GetParent(window);
    const ::HDC context = native(dc);
    ::RECT all{};
    ::GetClientRect(window, &all);
    const Variant color = ambientValue(AmbientValue::BackColor);
    ::COLORREF rgb = ::GetSysColor(COLOR_BTNFACE);
    if (color.type() == VT_I4) ::OleTranslateColor(static_cast<::OLE_COLOR>(color.asLong()), nullptr, &rgb);
    const ::HBRUSH brush = ::CreateSolidBrush(rgb);
    ::FillRect(context, &all, brush);
    ::DeleteObject(brush);
    if (!parent || !owner_.isActive()) return;
    ::POINT place{};
    ::MapWindowPoints(window, parent, &place, 1);
    ::IntersectClipRect(context, 0, 0, all.right, all.bottom);
    paintWindow(parent, context, place);
}

} // namespace activex
