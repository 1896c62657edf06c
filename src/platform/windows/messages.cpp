// The message queue and timers. A timer's procedure is called through one of the driver's own, which has the
// system's calling convention.

#include "platform/windows.h"

#include "platform/windows/callbacks.h"
#include "platform/windows/convert.h"

#include <map>
#include <utility>

namespace platform {

using driver::afterCallbacks;
using driver::guarded;
using driver::handleFrom;
using driver::native;

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return ::PostMessageA(native(window), message, wParam, lParam);
}

void PostQuitMessage(int exitCode) {
    ::PostQuitMessage(exitCode);
}

BOOL WaitMessage() {
    return afterCallbacks(::WaitMessage());
}

DWORD GetQueueStatus(UINT flags) {
    return ::GetQueueStatus(flags);
}

DWORD GetMessageTime() {
    return ::GetMessageTime();
}

DWORD GetMessagePos() {
    return ::GetMessagePos();
}

LPARAM GetMessageExtraInfo() {
    return ::GetMessageExtraInfo();
}

UINT RegisterWindowMessageA(const char* name) {
    return ::RegisterWindowMessageA(name);
}

namespace {

::MSG nativeMessage(const MSG& message) {
    return {native(message.hwnd), message.message, message.wParam,
            message.lParam,       message.time,    {message.pt.x, message.pt.y}};
}

void takeMessage(const ::MSG& from, MSG* to) {
    *to = {handleFrom<HWND>(from.hwnd), from.message, from.wParam, from.lParam, from.time,
           {from.pt.x, from.pt.y}};
}

using TimerKey = std::pair<::HWND, ::UINT_PTR>;

std::map<TimerKey, TIMERPROC>& timerProcedures() {
    static std::map<TimerKey, TIMERPROC> all;
    return all;
}

void CALLBACK callTimer(::HWND window, ::UINT message, ::UINT_PTR id, ::DWORD time) {
    const auto found = timerProcedures().find({window, id});
    if (found == timerProcedures().end()) return;
    guarded(0, [&, procedure = found->second] {
        procedure(handleFrom<HWND>(window), message, id, time);
        return 0;
    });
}

} // namespace

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
    ::MSG data{};
    const BOOL found = afterCallbacks(::PeekMessageA(&data, native(window), first, last, remove));
    if (found) takeMessage(data, message);
    return found;
}

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last) {
    ::MSG data{};
    const BOOL result = afterCallbacks(::GetMessageA(&data, native(window), first, last));
    takeMessage(data, message);
    return result;
}

BOOL TranslateMessage(const MSG* message) {
    const ::MSG data = nativeMessage(*message);
    return ::TranslateMessage(&data);
}

LRESULT DispatchMessageA(const MSG* message) {
    const ::MSG data = nativeMessage(*message);
    return afterCallbacks(::DispatchMessageA(&data));
}

bool waitMessageFor(DWORD milliseconds) {
    return ::MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT, MWMO_INPUTAVAILABLE) ==
           WAIT_OBJECT_0;
}

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    const ::HWND owner = native(window);
    const ::UINT_PTR set = ::SetTimer(owner, id, milliseconds, procedure ? callTimer : nullptr);
    if (set == 0) return 0;
    const TimerKey key{owner, owner ? id : set};
    if (procedure)
        timerProcedures()[key] = procedure;
    else
        timerProcedures().erase(key);
    return set;
}

BOOL KillTimer(HWND window, UINT_PTR id) {
    timerProcedures().erase({native(window), id});
    return ::KillTimer(native(window), id);
}

} // namespace platform
