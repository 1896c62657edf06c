#include "host/Ambient.h"

#include "automation/Argument.h"
#include "host/Control.h"
#include "host/StdFont.h"
#include "platform/locale.h"

namespace host {

namespace {

template <class T>
T valueOr(const automation::Variant& value, T fallback) {
    return value.isEmpty() ? fallback : automation::fromVariant<T>(value);
}

} // namespace

automation::Variant Ambient::value(AmbientValue which) const {
    return control_.site() ? control_.site()->ambientValue(which) : automation::Variant();
}

bool Ambient::UserMode() const {
    return valueOr(value(AmbientValue::UserMode), true);
}

OLE_COLOR Ambient::BackColor() const {
    return valueOr(value(AmbientValue::BackColor), colorButtonFace);
}

OLE_COLOR Ambient::ForeColor() const {
    return valueOr(value(AmbientValue::ForeColor), colorButtonText);
}

automation::Ref<StdFont> Ambient::Font() const {
    const automation::Variant given = value(AmbientValue::Font);
    if (given.isObject()) {
        if (auto* font = dynamic_cast<StdFont*>(given.asObject().get())) return font;
    }
    return automation::make<StdFont>();
}

automation::String Ambient::ScaleUnits() const {
    return valueOr(value(AmbientValue::ScaleUnits), automation::String(u"Twip"));
}

automation::String Ambient::DisplayName() const {
    const automation::Variant given = value(AmbientValue::DisplayName);
    if (!given.isEmpty()) return automation::fromVariant<automation::String>(given);
    return control_.site() ? control_.Extender().Name() : automation::String();
}

std::int32_t Ambient::LocaleID() const {
    return valueOr(value(AmbientValue::LocaleID), static_cast<std::int32_t>(platform::GetUserDefaultLCID()));
}

bool Ambient::DisplayAsDefault() const {
    return valueOr(value(AmbientValue::DisplayAsDefault), false);
}

bool Ambient::UIDead() const {
    return valueOr(value(AmbientValue::UIDead), false);
}

} // namespace host
