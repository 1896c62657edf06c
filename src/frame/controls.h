#pragma once

#include "host/ControlRegistry.h"

namespace tesela {

/// Adds the library's classes of controls to those that a form's file may name, each under its own name.
void addControls(host::ControlRegistry& classes);

} // namespace tesela
