// Window classes and procedures. The system calls one procedure of its own convention for all windows of the
// ring; that one turns handles and records over and calls the window's procedure in the ring's types.

#include "platform/windows.h"

#include "platform/processes.h"
#include "platform/windows/callbacks.h"
#include "platform/windows/convert.h"

#include <map>
#include <set>

namespace platform {

using driver::afterCallbacks;
using driver::guarded;
using driver::handleFrom;
using driver::native;

namespace {

// For 32 bits the system's headers have macros of these names.
::LONG_PTR systemLong(::HWND window, int index) {
    return ::GetWindowLongPtrA(window, index);
}
::LONG_PTR setSystemLong(::HWND window, int index, ::LONG_PTR value) {
    return ::SetWindowLongPtrA(window, index, value);
}
::ATOM classAtom(::HWND window) {
    return static_cast<::ATOM>(::GetClassLongPtrA(window, GCW_ATOM));
}
#undef GetWindowLongPtrA
#undef SetWindowLongPtrA

constexpr int procedureIndex = -4; // GWL_WNDPROC and GWLP_WNDPROC

/// The owner of a window class. Where none is named it is the module that this code lies in: another one of
/// the process that holds this code too has classes of the same names.
::HINSTANCE ownerOf(HINSTANCE instance) {
    return native(instance ? instance : moduleInstance());
}

/// What each class was registered with, what each window answers to, and the system's own procedures that
/// were handed out as values of the ring's type: these are called by the system only.
struct Procedures {
    struct Class {
        WNDPROC procedure;
        ::HINSTANCE owner;
    };
    std::map<::ATOM, Class> ofClass;
    std::map<::HWND, WNDPROC> ofWindow;
    std::set<::LONG_PTR> systems;

    Procedures() = default;
    Procedures(const Procedures&) = delete;
    Procedures& operator=(const Procedures&) = delete;
    /// The system would keep the classes of a module that is unloaded, and call what is no longer there.
    ~Procedures() {
        for (const auto& [atom, registered] : ofClass)
            ::UnregisterClassA(reinterpret_cast<const char*>(::ULONG_PTR{atom}), registered.owner);
    }
} procedures; // ends after what functions keep, which may have windows

CREATESTRUCTA fromNative(const ::CREATESTRUCTA& from) {
    CREATESTRUCTA to;
    to.lpCreateParams = from.lpCreateParams;
    to.hInstance = driver::moduleFrom(from.hInstance);
    to.hMenu = handleFrom<HMENU>(from.hMenu);
    to.hwndParent = handleFrom<HWND>(from.hwndParent);
    to.cy = from.cy;
    to.cx = from.cx;
    to.y = from.y;
    to.x = from.x;
    to.style = from.style;
    to.lpszName = from.lpszName;
    to.lpszClass = from.lpszClass;
    to.dwExStyle = from.dwExStyle;
    return to;
}

::CREATESTRUCTA toNative(const CREATESTRUCTA& from) {
    return {from.lpCreateParams,
            native(from.hInstance),
            native(from.hMenu),
            native(from.hwndParent),
            from.cy,
            from.cx,
            from.y,
            from.x,
            from.style,
            from.lpszName,
            from.lpszClass,
            from.dwExStyle};
}

WINDOWPOS fromNative(const ::WINDOWPOS& from) {
    return {handleFrom<HWND>(from.hwnd),
            handleFrom<HWND>(from.hwndInsertAfter),
            from.x,
            from.y,
            from.cx,
            from.cy,
            from.flags};
}

::WINDOWPOS toNative(const WINDOWPOS& from) {
    return {native(from.hwnd), native(from.hwndInsertAfter), from.x, from.y, from.cx, from.cy, from.flags};
}

/// Calls with the other side's form of a record and takes over what the callee changed in it.
template <class From, class Call>
LRESULT withTurned(LPARAM record, const Call& call) {
    auto& original = *reinterpret_cast<From*>(record);
    if constexpr (requires { toNative(original); }) {
        auto turned = toNative(original);
        const LRESULT result = call(reinterpret_cast<LPARAM>(&turned));
        original = fromNative(turned);
        return result;
    } else {
        auto turned = fromNative(original);
        const LRESULT result = call(reinterpret_cast<LPARAM>(&turned));
        original = toNative(turned);
        return result;
    }
}

/// Calls with the message's record in the other side's form, if it has one that differs.
template <class Creation, class Position, class Call>
LRESULT turned(UINT message, LPARAM lParam, const Call& call) {
    if (lParam == 0) return call(lParam);
    switch (message) {
    case WM_NCCREATE:
    case WM_CREATE:
        return withTurned<Creation>(lParam, call);
    case WM_WINDOWPOSCHANGING:
    case WM_WINDOWPOSCHANGED:
        return withTurned<Position>(lParam, call);
    default:
        return call(lParam);
    }
}

/// For what goes to the system.
template <class Call>
LRESULT towardsSystem(UINT message, LPARAM lParam, const Call& call) {
    return turned<CREATESTRUCTA, WINDOWPOS>(message, lParam, call);
}

/// The procedure of a window; of one that is being made, the procedure of its class.
WNDPROC procedureOf(::HWND window) {
    auto& known = procedures.ofWindow;
    if (const auto found = known.find(window); found != known.end()) return found->second;
    const auto found = procedures.ofClass.find(classAtom(window));
    if (found == procedures.ofClass.end()) return nullptr;
    return known[window] = found->second.procedure;
}

::LRESULT CALLBACK systemProcedure(::HWND window, ::UINT message, ::WPARAM wParam, ::LPARAM lParam) {
    const WNDPROC procedure = procedureOf(window);
    if (!procedure) return ::DefWindowProcA(window, message, wParam, lParam);
    const auto call = [&](LPARAM record) {
        return CallWindowProcA(procedure, handleFrom<HWND>(window), message, wParam, record);
    };
    // A procedure that is the system's own takes the system's records: CallWindowProcA turns them back.
    const LRESULT result =
        guarded(LRESULT{0}, [&] { return turned<::CREATESTRUCTA, ::WINDOWPOS>(message, lParam, call); });
    if (message == WM_NCDESTROY) procedures.ofWindow.erase(window);
    return result;
}

const auto systemProcedureValue = reinterpret_cast<::LONG_PTR>(&systemProcedure);

bool isSystems(LONG_PTR procedure) {
    return procedures.systems.count(procedure) != 0;
}

LONG_PTR currentProcedure(::HWND window) {
    const ::LONG_PTR current = systemLong(window, procedureIndex);
    if (current == systemProcedureValue) return reinterpret_cast<LONG_PTR>(procedureOf(window));
    if (current != 0) procedures.systems.insert(current);
    return current;
}

/// Puts a procedure of the ring, or one of the system's that was handed out before, in the place of the
/// present one, which it returns.
LONG_PTR replaceProcedure(::HWND window, LONG_PTR procedure) {
    const LONG_PTR former = currentProcedure(window);
    if (former == 0) return 0;
    if (isSystems(procedure)) {
        procedures.ofWindow.erase(window);
        setSystemLong(window, procedureIndex, procedure);
        return former;
    }
    procedures.ofWindow[window] = reinterpret_cast<WNDPROC>(procedure);
    setSystemLong(window, procedureIndex, systemProcedureValue);
    return former;
}

} // namespace

ATOM RegisterClassA(const WNDCLASSA* windowClass) {
    ::WNDCLASSA data{};
    data.style = windowClass->style;
    data.lpfnWndProc = systemProcedure;
    data.cbClsExtra = windowClass->cbClsExtra;
    data.cbWndExtra = windowClass->cbWndExtra;
    data.hInstance = ownerOf(windowClass->hInstance);
    data.hIcon = native(windowClass->hIcon);
    data.hCursor = native(windowClass->hCursor);
    data.hbrBackground = native(windowClass->hbrBackground);
    data.lpszMenuName = windowClass->lpszMenuName;
    data.lpszClassName = windowClass->lpszClassName;
    const ATOM atom = ::RegisterClassA(&data);
    if (atom != 0) procedures.ofClass[atom] = {windowClass->lpfnWndProc, data.hInstance};
    return atom;
}

BOOL UnregisterClassA(const char* name, HINSTANCE instance) {
    ::WNDCLASSA data{};
    const auto atom = static_cast<ATOM>(::GetClassInfoA(ownerOf(instance), name, &data));
    const BOOL done = ::UnregisterClassA(name, ownerOf(instance));
    if (done) procedures.ofClass.erase(atom);
    return done;
}

HWND CreateWindowExA(DWORD exStyle, const char* className, const char* windowName, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance, void* parameter) {
    return handleFrom<HWND>(
        afterCallbacks(::CreateWindowExA(exStyle, className, windowName, style, x, y, width, height,
                                         native(parent), native(menu), ownerOf(instance), parameter)));
}

LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return towardsSystem(message, lParam, [&](LPARAM record) {
        return afterCallbacks(::DefWindowProcA(native(window), message, wParam, record));
    });
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto value = reinterpret_cast<LONG_PTR>(procedure);
    if (!isSystems(value)) return procedure(window, message, wParam, lParam);
    return towardsSystem(message, lParam, [&](LPARAM record) {
        return afterCallbacks(
            ::CallWindowProcA(reinterpret_cast<::WNDPROC>(value), native(window), message, wParam, record));
    });
}

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return towardsSystem(message, lParam, [&](LPARAM record) {
        return afterCallbacks(::SendMessageA(native(window), message, wParam, record));
    });
}

LONG_PTR GetWindowLongPtrA(HWND window, int index) {
    if (index == procedureIndex) return currentProcedure(native(window));
    return systemLong(native(window), index);
}

LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value) {
    if (index == procedureIndex) return replaceProcedure(native(window), value);
    return setSystemLong(native(window), index, value);
}

LONG GetWindowLongA(HWND window, int index) {
    if (index == procedureIndex) return static_cast<LONG>(currentProcedure(native(window)));
    return ::GetWindowLongA(native(window), index);
}

LONG SetWindowLongA(HWND window, int index, LONG value) {
    if (index == procedureIndex) return static_cast<LONG>(replaceProcedure(native(window), value));
    return ::SetWindowLongA(native(window), index, value);
}

} // namespace platform
