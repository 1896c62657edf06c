#include "platform/errors.h"

#include <windows.h>

namespace platform {

DWORD GetLastError() {
    return ::GetLastError();
}

void SetLastError(DWORD code) {
    ::SetLastError(code);
}

} // namespace platform
