#include "platform/system_look.h"

#include "platform/windows/convert.h"

namespace platform {

using driver::handleFrom;

int GetSystemMetrics(int index) {
    return ::GetSystemMetrics(index);
}

COLORREF GetSysColor(int index) {
    return ::GetSysColor(index);
}

BOOL SetSysColors(int count, const INT* indices, const COLORREF* colors) {
    return ::SetSysColors(count, reinterpret_cast<const ::INT*>(indices),
                          reinterpret_cast<const ::COLORREF*>(colors));
}

HBRUSH GetSysColorBrush(int index) {
    return handleFrom<HBRUSH>(::GetSysColorBrush(index));
}

static_assert(sizeof(NONCLIENTMETRICSW) == sizeof(::NONCLIENTMETRICSW));

BOOL SystemParametersInfoA(UINT action, UINT parameter, void* data, UINT winIni) {
    return ::SystemParametersInfoA(action, parameter, data, winIni);
}

BOOL SystemParametersInfoW(UINT action, UINT parameter, void* data, UINT winIni) {
    return ::SystemParametersInfoW(action, parameter, data, winIni);
}

} // namespace platform
