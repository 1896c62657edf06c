#include "host/PropertyBag.h"

#include "automation/Argument.h"
#include "automation/Names.h"
#include "host/FormReader.h"
#include "host/FormWriter.h"
#include "host/StdFont.h"

#include <algorithm>
#include <bit>

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

PropertyNames::PropertyNames(std::vector<automation::String> names) : names_(std::move(names)) {
    constexpr std::size_t slotsOfAName = 4; // most names are found at once
    slots_.assign(std::bit_ceil(slotsOfAName * names_.size() + 1), static_cast<std::uint32_t>(names_.size()));
    for (std::size_t place = 0; place < names_.size(); ++place) {
        std::size_t slot = automation::hashName(names_[place]) & (slots_.size() - 1);
        while (slots_[slot] != names_.size())
            slot = (slot + 1) & (slots_.size() - 1);
        slots_[slot] = static_cast<std::uint32_t>(place);
    }
}

std::size_t PropertyNames::find(std::u16string_view name) const {
    std::size_t slot = automation::hashName(name) & (slots_.size() - 1);
    while (slots_[slot] != names_.size() && !automation::sameName(names_[slots_[slot]], name))
        slot = (slot + 1) & (slots_.size() - 1);
    return slots_[slot];
}

void PropertyBag::ReadProperties(const PropertyNames& names,
                                 std::span<std::optional<automation::Variant>> values) const {
    for (const auto& [name, value] : items_)
        if (const std::size_t place = names.find(name); place < names.size() && !values[place])
            values[place] = value;
}

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
