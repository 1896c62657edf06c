#pragma once

#include "automation/String.h"

#include <optional>

namespace host {

/// Asks for a line of text in a modal window. Returns the text, and the empty text if the user cancelled.
/// `left` and `top` are twips of the screen; without them the window is centred.
automation::String InputBox(const automation::String& prompt, const automation::String& title = {},
                            const automation::String& defaultText = {}, std::optional<float> left = {},
                            std::optional<float> top = {});

} // namespace host
