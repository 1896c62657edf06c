#include "host/Extender.h"

#include "automation/Argument.h"
#include "automation/ClassTable.h"
#include "automation/Error.h"
#include "host/Control.h"

namespace host {

namespace {

constexpr std::int32_t ClientSiteNotAvailable = 398;

} // namespace

ControlSite& Extender::site() const {
    if (!control_.site()) throw automation::Error(ClientSiteNotAvailable);
    return *control_.site();
}

automation::Variant Extender::value(ExtenderValue which) const {
    return site().extenderValue(which);
}

automation::String Extender::Name() const {
    return automation::fromVariant<automation::String>(value(ExtenderValue::Name));
}

void Extender::Name(const automation::String& value) {
    site().setExtenderValue(ExtenderValue::Name, value);
}

short Extender::Index() const {
    return automation::fromVariant<std::int16_t>(value(ExtenderValue::Index));
}

float Extender::Left() const {
    return automation::fromVariant<float>(value(ExtenderValue::Left));
}

void Extender::Left(float value) {
    site().setExtenderValue(ExtenderValue::Left, value);
}

float Extender::Top() const {
    return automation::fromVariant<float>(value(ExtenderValue::Top));
}

void Extender::Top(float value) {
    site().setExtenderValue(ExtenderValue::Top, value);
}

float Extender::Width() const {
    return automation::fromVariant<float>(value(ExtenderValue::Width));
}

void Extender::Width(float value) {
    site().setExtenderValue(ExtenderValue::Width, value);
}

float Extender::Height() const {
    return automation::fromVariant<float>(value(ExtenderValue::Height));
}

void Extender::Height(float value) {
    site().setExtenderValue(ExtenderValue::Height, value);
}

bool Extender::Visible() const {
    return automation::fromVariant<bool>(value(ExtenderValue::Visible));
}

void Extender::Visible(bool value) {
    site().setExtenderValue(ExtenderValue::Visible, value);
}

bool Extender::TabStop() const {
    return automation::fromVariant<bool>(value(ExtenderValue::TabStop));
}

void Extender::TabStop(bool value) {
    site().setExtenderValue(ExtenderValue::TabStop, value);
}

short Extender::TabIndex() const {
    return automation::fromVariant<std::int16_t>(value(ExtenderValue::TabIndex));
}

void Extender::TabIndex(short value) {
    site().setExtenderValue(ExtenderValue::TabIndex, value);
}

automation::String Extender::ToolTipText() const {
    return automation::fromVariant<automation::String>(value(ExtenderValue::ToolTipText));
}

void Extender::ToolTipText(const automation::String& value) {
    site().setExtenderValue(ExtenderValue::ToolTipText, value);
}

bool Extender::CausesValidation() const {
    return automation::fromVariant<bool>(value(ExtenderValue::CausesValidation));
}

void Extender::CausesValidation(bool value) {
    site().setExtenderValue(ExtenderValue::CausesValidation, value);
}

automation::String Extender::Tag() const {
    return automation::fromVariant<automation::String>(value(ExtenderValue::Tag));
}

void Extender::Tag(const automation::String& value) {
    site().setExtenderValue(ExtenderValue::Tag, value);
}

bool Extender::Default() const {
    return automation::fromVariant<bool>(value(ExtenderValue::Default));
}

void Extender::Default(bool value) {
    site().setExtenderValue(ExtenderValue::Default, value);
}

bool Extender::Cancel() const {
    return automation::fromVariant<bool>(value(ExtenderValue::Cancel));
}

void Extender::Cancel(bool value) {
    site().setExtenderValue(ExtenderValue::Cancel, value);
}

automation::Ref<automation::Object> Extender::Parent() const {
    return value(ExtenderValue::Parent).asObject();
}

automation::Ref<automation::Object> Extender::Container() const {
    return value(ExtenderValue::Container).asObject();
}

void Extender::Move(float left, float top, float width, float height) {
    site().move(left, top, width, height);
}

void Extender::ZOrder(ZOrderPosition position) {
    site().zOrder(position);
}

void Extender::SetFocus() {
    if (!site().takeFocus()) throw automation::Error(automation::errors::InvalidCall);
}

const automation::ClassTable& Extender::table() {
    using automation::optional;
    static const automation::ClassTable table =
        automation::ClassTable::of<Extender>("Extender")
            .property("Name", &Extender::Name, &Extender::Name)
            .get("Index", &Extender::Index)
            .property("Left", &Extender::Left, &Extender::Left)
            .property("Top", &Extender::Top, &Extender::Top)
            .property("Width", &Extender::Width, &Extender::Width)
            .property("Height", &Extender::Height, &Extender::Height)
            .property("Visible", &Extender::Visible, &Extender::Visible)
            .property("TabStop", &Extender::TabStop, &Extender::TabStop)
            .property("TabIndex", &Extender::TabIndex, &Extender::TabIndex)
            .property("ToolTipText", &Extender::ToolTipText, &Extender::ToolTipText)
            .property("CausesValidation", &Extender::CausesValidation, &Extender::CausesValidation)
            .property("Tag", &Extender::Tag, &Extender::Tag)
            .property("Default", &Extender::Default, &Extender::Default)
            .property("Cancel", &Extender::Cancel, &Extender::Cancel)
            .get("Parent", &Extender::Parent)
            .get("Container", &Extender::Container)
            .method("Move", &Extender::MoveBy,
                    {"Left", optional("Top"), optional("Width"), optional("Height")})
            .method("ZOrder", &Extender::ZOrder, {optional("Position", std::int32_t{0})})
            .method("SetFocus", &Extender::SetFocus)
            .event("GotFocus", &Extender::GotFocus)
            .event("LostFocus", &Extender::LostFocus)
            .event("Validate", &Extender::Validate, {"Cancel"});
    return table;
}

void Extender::MoveBy(float left, const automation::Variant& top, const automation::Variant& width,
                      const automation::Variant& height) {
    const auto given = [](const automation::Variant& value, float present) {
        return value.isMissing() ? present : automation::fromVariant<float>(value);
    };
    Move(left, given(top, Top()), given(width, Width()), given(height, Height()));
}

} // namespace host
