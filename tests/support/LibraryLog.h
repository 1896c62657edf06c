#pragma once
// The library's own log, which lies beside the program.

#include "host/App.h"
#include "platform/files.h"

#include <string>

namespace support {

/// The bytes of the log; empty if there is none.
inline std::string libraryLog() {
    using namespace platform;
    const automation::String path = host::App::Path() + u"\\TeselaCtl.log";
    const HANDLE in = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, HANDLE());
    if (in == INVALID_HANDLE_VALUE) return {};
    LONGLONG size = 0;
    GetFileSizeEx(in, &size);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    DWORD moved = 0;
    ReadFile(in, bytes.data(), static_cast<DWORD>(size), &moved, nullptr);
    CloseHandle(in);
    return bytes;
}

} // namespace support
