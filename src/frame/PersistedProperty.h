#pragma once
// What a control keeps in a property bag: a table with a row for each property, in the order in which they
// are read and written.

#include "automation/Error.h"
#include "automation/String.h"
#include "automation/Variant.h"
#include "host/PropertyBag.h"

#include <initializer_list>
#include <optional>
#include <vector>

namespace tesela {

/// One persisted property: how it reads as a Variant, how it is written from one, and its default, which may
/// depend on the container.
template <class Control>
struct PersistedProperty {
    using Value = automation::Variant (*)(const Control&);

    automation::String name;
    Value defaultValue;
    Value read;
    void (*write)(Control&, const automation::Variant&);

    /// Writes the value, the default where there is none. One that the property can't take is passed over.
    void take(Control& control, const std::optional<automation::Variant>& value) const {
        try {
            if (value)
                write(control, *value);
            else
                write(control, defaultValue(control));
        } catch (const automation::Error&) {
            // The property stays as it is, and the next one is read.
        }
    }

    // Defaults
    template <auto constantValue>
    static automation::Variant constant(const Control&) {
        return automation::Variant(constantValue);
    }
    static automation::Variant emptyText(const Control&) { return automation::Variant(automation::String()); }
};

/// All persisted properties of a class.
template <class Control>
class PersistedProperties {
public:
    PersistedProperties(std::initializer_list<PersistedProperty<Control>> properties)
        : properties_(properties), names_(namesOf(properties_)) {}

    /// Writes each property in its turn: with its value in the bag or, without one, with its default. `then`
    /// is called after each.
    template <class Then>
    void load(Control& control, const host::PropertyBag& bag, Then then) const {
        std::vector<std::optional<automation::Variant>> values(properties_.size());
        bag.ReadProperties(names_, values);
        for (std::size_t i = 0; i < properties_.size(); ++i) {
            properties_[i].take(control, values[i]);
            then(properties_[i]);
        }
    }
    void load(Control& control, const host::PropertyBag& bag) const {
        load(control, bag, [](const auto&) {});
    }
    void save(const Control& control, host::PropertyBag& bag) const {
        for (const auto& property : properties_)
            bag.WriteProperty(property.name, property.read(control), property.defaultValue(control));
    }

private:
    static host::PropertyNames namesOf(const std::vector<PersistedProperty<Control>>& properties) {
        std::vector<automation::String> names;
        names.reserve(properties.size());
        for (const auto& property : properties)
            names.push_back(property.name);
        return host::PropertyNames(std::move(names));
    }

    std::vector<PersistedProperty<Control>> properties_;
    host::PropertyNames names_;
};

} // namespace tesela
