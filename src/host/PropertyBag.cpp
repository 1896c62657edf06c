#include "host/PropertyBag.h"

#include "automation/Argument.h"
#include "automation/Names.h"
#include "host/FormReader.h"
#include "host/FormWriter.h"
#include "host/StdFont.h"

#include <algorithm>
#include <optional>

namespace host {

namespace {

std::optional<double> number(const automation::Variant& value) {
    switch (value.type()) {
    case automation::VT_UI1:
    case automation::VT_I2:
    case automation::VT_I4:
    case automation::VT_R4:
    case automation::VT_R8:
    case automation::VT_BOOL:
        return automation::fromVariant<double>(value);
    default:
        return {};
    }
}

bool sameObject(const automation::Variant& a, const automation::Variant& b) {
    const automation::Object* first = a.asObject().get();
    const automation::Object* second = b.asObject().get();
    if (first == second) return true;
    const auto* font = dynamic_cast<const StdFont*>(first);
    const auto* other = dynamic_cast<const StdFont*>(second);
    return font && other && font->equals(*other);
}

bool same(const automation::Variant& a, const automation::Variant& b) {
    if (const auto first = number(a)) {
        const auto second = number(b);
        return second && *first == *second;
    }
    if (a.type() != b.type()) return false;
    switch (a.type()) {
    case automation::VT_EMPTY:
    case automation::VT_NULL:
        return true;
    case automation::VT_BSTR:
        return a.asString() == b.asString();
    case automation::VT_CY:
        return a.asCurrency() == b.asCurrency();
    case automation::VT_DATE:
        return a.asDate().value() == b.asDate().value();
    case automation::VT_ERROR:
        return a.asError() == b.asError();
    case automation::VT_DISPATCH:
        return sameObject(a, b);
    default:
        return false;
    }
}

/// A font is stored as it is now: the object goes on changing with its control.
automation::Variant stored(const automation::Variant& value) {
    if (value.isObject()) {
        if (const auto* font = dynamic_cast<const StdFont*>(value.asObject().get())) return font->clone();
    }
    return value.dereferenced();
}

} // namespace

automation::Variant PropertyBag::ReadProperty(const automation::String& name,
                                              const automation::Variant& defaultValue) const {
    const auto item = std::find_if(items_.begin(), items_.end(),
                                   [&](const Item& i) { return automation::sameName(i.first, name); });
    return item == items_.end() ? defaultValue : item->second;
}

void PropertyBag::WriteProperty(const automation::String& name, const automation::Variant& value,
                                const automation::Variant& defaultValue) {
    const auto item = std::find_if(items_.begin(), items_.end(),
                                   [&](const Item& i) { return automation::sameName(i.first, name); });
    if (same(value, defaultValue)) {
        if (item != items_.end()) items_.erase(item);
    } else if (item != items_.end()) {
        item->second = stored(value);
    } else {
        items_.emplace_back(name, stored(value));
    }
}

bool PropertyBag::contains(const automation::String& name) const {
    return std::any_of(items_.begin(), items_.end(),
                       [&](const Item& i) { return automation::sameName(i.first, name); });
}

automation::String PropertyBag::Contents() const {
    FormWriter writer;
    writer.write(*this);
    return writer.text();
}

void PropertyBag::Contents(const automation::String& text) {
    items_ = FormReader(text, u"PropertyBag").readBag().items_;
}

} // namespace host
