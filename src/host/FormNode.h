#pragma once

#include "automation/String.h"
#include "host/PropertyBag.h"

#include <memory>
#include <optional>
#include <vector>

namespace host {

/// A form or a control as a form's file tells it: what its container keeps for it, its own properties, and
/// the controls inside it.
struct FormNode {
    automation::String className;
    automation::String name;
    std::optional<short> index;
    PropertyBag kept;
    PropertyBag properties;
    std::vector<FormNode> children;
    int line = 0; ///< Where it begins in the file, from 1
};

} // namespace host
