#pragma once

#include "automation/Ref.h"
#include "automation/String.h"
#include "host/DrawingWindow.h"
#include "host/FontCache.h"

#include <vector>

namespace host {

class Form;

/// What the host keeps for the whole program: the loaded forms, the modal ones, the shared fonts, and what
/// programs set through App and Screen.
struct Session {
    std::vector<automation::Ref<Form>> forms; ///< Loaded, oldest first
    std::vector<Form*> modal;                 ///< Open modal forms, innermost last
    FontCache fonts;
    StdFont* plainFont = nullptr;                      ///< Null while no window shows it
    std::vector<automation::Ref<StdFont>> sharedFonts; ///< See sharedFont: the latest ones
    automation::String title;
    MousePointer pointer = MousePointer::Default;
    std::vector<std::u16string> fontNames; ///< As Screen read them
};

Session& session();

/// The font of the windows that nobody has given another one. It goes with the last of them.
automation::Ref<StdFont> plainFont();

/// A font with the attributes of another one, never to be changed: all who ask for it soon after each other
/// get the same.
automation::Ref<StdFont> sharedFont(const StdFont& like);

} // namespace host
