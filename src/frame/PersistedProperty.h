#pragma once
// What a control keeps in a property bag: a table with a row for each property, in the order in which they
// are read and written.

#include "automation/Error.h"
#include "automation/String.h"
#include "automation/Variant.h"
#include "host/PropertyBag.h"

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

    /// Takes the value from the bag. One that the property can't take is passed over.
    void load(Control& control, const host::PropertyBag& bag) const {
        try {
            write(control, bag.ReadProperty(name, defaultValue(control)));
        } catch (const automation::Error&) {
            // The property stays as it is, and the next one is read.
        }
    }
    void save(const Control& control, host::PropertyBag& bag) const {
        bag.WriteProperty(name, read(control), defaultValue(control));
    }

    // Defaults
    template <auto constantValue>
    static automation::Variant constant(const Control&) {
        return automation::Variant(constantValue);
    }
    static automation::Variant emptyText(const Control&) { return automation::Variant(automation::String()); }
};

} // namespace tesela
