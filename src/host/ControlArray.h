#pragma once

#include "automation/String.h"

#include <vector>

namespace host {

class Control;
class Form;

/// The controls of a form that share a name, by index. Indexes need not be contiguous.
class ControlArray {
public:
    ControlArray(Form& form, automation::String name) : form_(form), name_(std::move(name)) {}

    short Count() const;
    /// Throws automation::Error 340 for an index that doesn't exist.
    Control& Item(short index) const;
    /// Lowest and highest index; error 340 if there is no element.
    short LBound() const;
    short UBound() const;
    std::vector<short> indexes() const;

    /// Makes a new element: of the class and with the properties of the lowest one, invisible, at the same
    /// place, last in the Tab order. Throws automation::Error 360 for an index that exists.
    Control& Load(short index);
    /// Takes an element off the form; throws automation::Error 340 if it doesn't exist.
    void Unload(short index);

    template <class C>
    C& get(short index) const {
        return dynamic_cast<C&>(Item(index));
    }

private:
    Form& form_;
    automation::String name_;
};

} // namespace host
