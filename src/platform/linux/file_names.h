#pragma once
// File names between the platform's form and the system's, and the system's failures as the platform's.

#include "platform/types.h"

#include <string>
#include <string_view>

namespace platform::driver {

/// UTF-8, with "/" for "\".
std::string systemPath(std::u16string_view name);

/// The platform's code for an `errno`.
DWORD errorFromErrno(int number);

/// The code for a failure to open or find `path`: a missing folder is told from a missing file.
DWORD errorOfPath(const std::string& path, int number);

} // namespace platform::driver
