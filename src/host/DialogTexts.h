#pragma once

#include "automation/String.h"
#include "host/MsgBox.h"

namespace host {

/// A button's caption, with its "&", in the language of the user: Spanish or else English.
automation::String dialogCaption(MsgBoxResult button);

} // namespace host
