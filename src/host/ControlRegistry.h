#pragma once

#include "automation/String.h"
#include "host/Control.h"

#include <functional>
#include <map>

namespace host {

/// The classes of controls that a form's file may name, with their makers. Names compare without case. The
/// host's own classes are there from the start.
class ControlRegistry {
public:
    using Maker = std::function<automation::Ref<Control>()>;

    ControlRegistry();

    void add(const automation::String& className, Maker maker);
    template <class C>
    void add(const automation::String& className) {
        add(className, [] { return automation::Ref<Control>(automation::make<C>()); });
    }
    bool knows(const automation::String& className) const;
    /// Null for a class that nobody added.
    automation::Ref<Control> make(const automation::String& className) const;

private:
    std::map<std::u16string, Maker> makers_;
};

} // namespace host
