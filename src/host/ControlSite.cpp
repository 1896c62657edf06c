#include "host/ControlSite.h"

namespace host {

const char16_t* nameOf(AmbientValue value) {
    switch (value) {
    case AmbientValue::BackColor:
        return u"BackColor";
    case AmbientValue::ForeColor:
        return u"ForeColor";
    case AmbientValue::Font:
        return u"Font";
    case AmbientValue::UserMode:
        return u"UserMode";
    case AmbientValue::ScaleUnits:
        return u"ScaleUnits";
    case AmbientValue::DisplayName:
        return u"DisplayName";
    case AmbientValue::LocaleID:
        return u"LocaleID";
    case AmbientValue::DisplayAsDefault:
        return u"DisplayAsDefault";
    case AmbientValue::UIDead:
        return u"UIDead";
    }
    return u"";
}

const char16_t* nameOf(ExtenderValue value) {
    switch (value) {
    case ExtenderValue::Name:
        return u"Name";
    case ExtenderValue::Index:
        return u"Index";
    case ExtenderValue::Left:
        return u"Left";
    case ExtenderValue::Top:
        return u"Top";
    case ExtenderValue::Width:
        return u"Width";
    case ExtenderValue::Height:
        return u"Height";
    case ExtenderValue::Visible:
        return u"Visible";
    case ExtenderValue::TabStop:
        return u"TabStop";
    case ExtenderValue::TabIndex:
        return u"TabIndex";
    case ExtenderValue::ToolTipText:
        return u"ToolTipText";
    case ExtenderValue::CausesValidation:
        return u"CausesValidation";
    case ExtenderValue::Tag:
        return u"Tag";
    case ExtenderValue::Default:
        return u"Default";
    case ExtenderValue::Cancel:
        return u"Cancel";
    case ExtenderValue::Parent:
        return u"Parent";
    case ExtenderValue::Container:
        return u"Container";
    }
    return u"";
}

} // namespace host
