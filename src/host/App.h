#pragma once

#include "automation/String.h"
#include "platform/types.h"

namespace host {

/// The running program.
class App {
public:
    /// Folder of the program's file, without a separator at its end (but for a root).
    static automation::String Path();
    /// Name of the program's file without folder and extension.
    static automation::String EXEName();
    /// Title of message boxes; EXEName until it is written.
    static automation::String Title();
    static void Title(const automation::String& value);
    static platform::HINSTANCE hInstance();
};

} // namespace host
