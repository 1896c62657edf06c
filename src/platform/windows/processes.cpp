#include "platform/processes.h"

#include "platform/windows/convert.h"

#include <mutex>

#include <shellapi.h>

namespace platform {
namespace driver {
namespace {

struct ModuleTable {
    std::mutex guard;
    std::vector<::HINSTANCE> modules;
};

ModuleTable& modules() {
    static ModuleTable table;
    return table;
}

} // namespace

HINSTANCE moduleFrom(::HINSTANCE module) {
    if (!module) return {};
    ModuleTable& table = modules();
    const std::lock_guard lock(table.guard);
    bool known = false;
    for (const auto entry : table.modules)
        known = known || entry == module;
    if (!known) table.modules.push_back(module);
    return HINSTANCE(handleValue(module));
}

::HINSTANCE native(HINSTANCE module) {
    ModuleTable& table = modules();
    const std::lock_guard lock(table.guard);
    for (const auto entry : table.modules) {
        if (handleValue(entry) == module.value) return entry;
    }
    return reinterpret_cast<::HINSTANCE>(static_cast<::ULONG_PTR>(module.value));
}

} // namespace driver

using driver::wide;

BOOL GetComputerNameA(char* name, DWORD* size) {
    ::DWORD count = *size;
    const BOOL done = ::GetComputerNameA(name, &count);
    *size = count;
    return done;
}

BOOL GetUserNameA(char* name, DWORD* size) {
    ::DWORD count = *size;
    const BOOL done = ::GetUserNameA(name, &count);
    *size = count;
    return done;
}

HINSTANCE moduleInstance() {
    ::HMODULE module = nullptr;
    static const wchar_t inThisModule = 0;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                             GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         &inThisModule, &module);
    return driver::moduleFrom(module);
}

std::u16string modulePath(HINSTANCE module) {
    constexpr DWORD longest = 32'768;
    std::u16string path(MAX_PATH, u'\0');
    for (;;) {
        const DWORD size = static_cast<DWORD>(path.size());
        const DWORD length = ::GetModuleFileNameW(driver::native(module), wide(path.data()), size);
        if (length < size || size >= longest) {
            path.resize(length);
            return path;
        }
        path.resize(longest);
    }
}

DWORD GetModuleFileNameA(HINSTANCE module, char* name, DWORD size) {
    return ::GetModuleFileNameA(driver::native(module), name, size);
}

DWORD GetEnvironmentVariableA(const char* name, char* value, DWORD size) {
    return ::GetEnvironmentVariableA(name, value, size);
}

BOOL SetEnvironmentVariableA(const char* name, const char* value) {
    return ::SetEnvironmentVariableA(name, value);
}

std::u16string environmentVariable(std::u16string_view name) {
    const std::u16string key(name);
    std::u16string value(::GetEnvironmentVariableW(wide(key.c_str()), nullptr, 0), u'\0');
    if (value.empty()) return value;
    const auto room = static_cast<DWORD>(value.size());
    value.resize(::GetEnvironmentVariableW(wide(key.c_str()), wide(value.data()), room));
    return value;
}

std::vector<std::u16string> commandLineArguments() {
    int count = 0;
    ::LPWSTR* arguments = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::u16string> result;
    for (int i = 0; arguments && i < count; ++i)
        result.emplace_back(reinterpret_cast<const char16_t*>(arguments[i]));
    ::LocalFree(arguments);
    return result;
}

DWORD GetCurrentProcessId() {
    return ::GetCurrentProcessId();
}

DWORD GetCurrentThreadId() {
    return ::GetCurrentThreadId();
}

} // namespace platform
