#include "platform/errors.h"

namespace platform {
namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

} // namespace

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD code) {
    lastError = code;
}

} // namespace platform
