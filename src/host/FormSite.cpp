#include "host/FormSite.h"

#include "automation/Argument.h"
#include "automation/Error.h"
#include "host/Form.h"
#include "host/Label.h"
#include "platform/gdi.h"
#include "platform/locale.h"

namespace host {

namespace {

constexpr std::int32_t SetNotSupported = 383;

const char16_t* unitName(ScaleMode mode) {
    switch (mode) {
    case ScaleMode::User:
        return u"User";
    case ScaleMode::Points:
        return u"Point";
    case ScaleMode::Pixels:
        return u"Pixel";
    case ScaleMode::Characters:
        return u"Character";
    case ScaleMode::Inches:
        return u"Inch";
    case ScaleMode::Millimeters:
        return u"Millimeter";
    case ScaleMode::Centimeters:
        return u"Centimeter";
    case ScaleMode::Himetric:
        return u"HiMetric";
    case ScaleMode::Twips:
    case ScaleMode::ContainerPosition:
    case ScaleMode::ContainerSize:
        break;
    }
    return u"Twip";
}

} // namespace

FormSite::FormSite(Form& form, automation::Ref<Control> control, automation::String name, short index,
                   DrawingWindow& container)
    : form_(form), control_(std::move(control)), name_(std::move(name)), container_(container),
      index_(index) {}

bool FormSite::canTakeFocus() const {
    const platform::HWND window = control_->window();
    return !gone_ && window && control_->canGetFocus() && control_->enabled() && visible_ &&
           platform::IsWindowEnabled(window) &&
           (&container_ == &form_ || platform::IsWindowVisible(container_.hWnd()) || !form_.Visible());
}

void FormSite::show() {
    control_->applyVisible(visible_);
}

automation::Variant FormSite::ambientValue(AmbientValue which) {
    switch (which) {
    case AmbientValue::BackColor:
        return container_.BackColor();
    case AmbientValue::ForeColor:
        return container_.ForeColor();
    case AmbientValue::Font:
        return container_.Font();
    case AmbientValue::UserMode:
        return form_.UserMode();
    case AmbientValue::ScaleUnits:
        return unitName(container_.ScaleMode());
    case AmbientValue::DisplayName:
        return name_;
    case AmbientValue::LocaleID:
        return static_cast<std::int32_t>(platform::GetUserDefaultLCID());
    case AmbientValue::DisplayAsDefault:
        return default_;
    case AmbientValue::UIDead:
        return !form_.Enabled();
    }
    return {};
}

float FormSite::side(ExtenderValue which) const {
    const Bounds& place = control_->bounds();
    const double x = container_.unitTwips(Axis::Horizontal);
    const double y = container_.unitTwips(Axis::Vertical);
    switch (which) {
    case ExtenderValue::Left:
        return static_cast<float>(place.left / x) + container_.ScaleLeft();
    case ExtenderValue::Top:
        return static_cast<float>(place.top / y) + container_.ScaleTop();
    case ExtenderValue::Width:
        return static_cast<float>(place.width / x);
    default:
        return static_cast<float>(place.height / y);
    }
}

void FormSite::setSide(ExtenderValue which, float value) {
    float sides[] = {side(ExtenderValue::Left), side(ExtenderValue::Top), side(ExtenderValue::Width),
                     side(ExtenderValue::Height)};
    sides[static_cast<int>(which) - static_cast<int>(ExtenderValue::Left)] = value;
    move(sides[0], sides[1], sides[2], sides[3]);
}

automation::Variant FormSite::extenderValue(ExtenderValue which) {
    switch (which) {
    case ExtenderValue::Name:
        return name_;
    case ExtenderValue::Index:
        return index_;
    case ExtenderValue::Left:
    case ExtenderValue::Top:
    case ExtenderValue::Width:
    case ExtenderValue::Height:
        return side(which);
    case ExtenderValue::Visible:
        return visible_;
    case ExtenderValue::TabStop:
        return tabStop_;
    case ExtenderValue::TabIndex:
        return form_.tabIndexOf(*this);
    case ExtenderValue::ToolTipText:
        return toolTipText_;
    case ExtenderValue::CausesValidation:
        return causesValidation_;
    case ExtenderValue::Tag:
        return tag_;
    case ExtenderValue::Default:
        return default_;
    case ExtenderValue::Cancel:
        return cancel_;
    case ExtenderValue::Parent:
        return automation::Variant(&form_.self());
    case ExtenderValue::Container:
        return automation::Variant(&container_.self());
    }
    throw automation::Error(automation::errors::MemberNotSupported);
}

void FormSite::setExtenderValue(ExtenderValue which, const automation::Variant& value) {
    const auto keep = shared_from_this();
    switch (which) {
    case ExtenderValue::Name:
        form_.names_.remove(*this);
        name_ = automation::fromVariant<automation::String>(value);
        if (!gone()) form_.names_.add(*this);
        control_->ambientChanged(nameOf(AmbientValue::DisplayName));
        return;
    case ExtenderValue::Left:
    case ExtenderValue::Top:
    case ExtenderValue::Width:
    case ExtenderValue::Height:
        setSide(which, automation::fromVariant<float>(value));
        return;
    case ExtenderValue::Visible:
        setVisible(automation::fromVariant<bool>(value));
        return;
    case ExtenderValue::TabStop:
        tabStop_ = automation::fromVariant<bool>(value);
        return;
    case ExtenderValue::TabIndex:
        form_.renumberTabs(*this, automation::fromVariant<std::int16_t>(value));
        return;
    case ExtenderValue::ToolTipText:
        toolTipText_ = automation::fromVariant<automation::String>(value);
        if (control_->window()) return;
        if (auto* label = dynamic_cast<Label*>(control_.get())) label->ToolTipText(toolTipText_);
        return;
    case ExtenderValue::CausesValidation:
        causesValidation_ = automation::fromVariant<bool>(value);
        return;
    case ExtenderValue::Tag:
        tag_ = automation::fromVariant<automation::String>(value);
        return;
    case ExtenderValue::Default:
        if (default_ == automation::fromVariant<bool>(value)) return;
        default_ = !default_;
        if (default_) form_.onlyDefault(*this);
        control_->ambientChanged(nameOf(AmbientValue::DisplayAsDefault));
        return;
    case ExtenderValue::Cancel:
        cancel_ = automation::fromVariant<bool>(value);
        if (cancel_) form_.onlyCancel(*this);
        return;
    case ExtenderValue::Index:
    case ExtenderValue::Parent:
    case ExtenderValue::Container:
        break;
    }
    throw automation::Error(SetNotSupported);
}

void FormSite::setVisible(bool value) {
    if (value == visible_) return;
    visible_ = value;
    if (!value) form_.focusLost(*this);
    control_->applyVisible(value);
}

void FormSite::move(float left, float top, float width, float height) {
    const auto keep = shared_from_this();
    const auto x = static_cast<float>(container_.unitTwips(Axis::Horizontal));
    const auto y = static_cast<float>(container_.unitTwips(Axis::Vertical));
    control_->applyBounds({(left - container_.ScaleLeft()) * x, (top - container_.ScaleTop()) * y,
                           std::max(0.0F, width * x), std::max(0.0F, height * y)});
}

void FormSite::requestSize(float widthTwips, float heightTwips) {
    const auto keep = shared_from_this();
    Bounds place = control_->bounds();
    place.width = std::max(0.0F, widthTwips);
    place.height = std::max(0.0F, heightTwips);
    control_->applyBounds(place);
}

void FormSite::propertyChanged(std::u16string_view) {
    form_.dirty_ = true;
}

void FormSite::zOrder(ZOrderPosition position) {
    if (control_->window()) {
        constexpr platform::UINT Flags =
            platform::SWP_NOMOVE | platform::SWP_NOSIZE | platform::SWP_NOACTIVATE;
        platform::SetWindowPos(control_->window(),
                               position == ZOrderPosition::Front ? platform::HWND_TOP : platform::HWND_BOTTOM,
                               0, 0, 0, 0, Flags);
    } else if (auto* label = dynamic_cast<Label*>(control_.get())) {
        container_.zOrderLabel(*label, position);
    }
}

bool FormSite::takeFocus() {
    const auto keep = shared_from_this();
    const automation::Ref<Form> alive(&form_);
    return form_.focusSite(*this);
}

bool FormSite::translateKey(platform::UINT message, platform::WPARAM& wParam, platform::LPARAM lParam) {
    const auto keep = shared_from_this();
    const automation::Ref<Form> alive(&form_);
    return form_.siteTranslateKey(*this, message, wParam, lParam);
}

bool FormSite::focusArrived() {
    const auto keep = shared_from_this();
    const automation::Ref<Form> alive(&form_);
    return form_.siteFocusArrived(*this);
}

bool FormSite::focusLeaving(platform::HWND next) {
    return form_.siteFocusLeaving(*this, next);
}

void FormSite::paintBehind(platform::HDC dc) {
    const platform::RECT place = control_->bounds().pixels();
    platform::IntersectClipRect(dc, 0, 0, place.right - place.left, place.bottom - place.top);
    platform::OffsetViewportOrgEx(dc, -place.left, -place.top, nullptr);
    container_.paintContent(dc);
}

void FormSite::enabledChanged() {
    if (!control_->enabled()) form_.focusLost(*this);
}

void FormSite::mouseActivity(platform::UINT message, const automation::String& innerToolTip) {
    form_.hover(this, innerToolTip.empty() ? toolTipText_ : innerToolTip, message);
}

} // namespace host
