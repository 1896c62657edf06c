#pragma once
// The library's own log, which lies beside the program.

#include "host/App.h"
#include "support/TemporaryFolder.h"

#include <string>

namespace support {

/// The bytes of the log; empty if there is none.
inline std::string libraryLog() {
    const automation::String path = host::App::Path() + u"\\TeselaCtl.log";
    return fileBytes(path.c_str());
}

} // namespace support
