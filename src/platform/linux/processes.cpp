#include "platform/processes.h"

#include "platform/linux/display_colors.h"
#include "platform/locale.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>

#include <dlfcn.h>
#include <pwd.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr std::size_t longestHostName = 256;
constexpr std::size_t longestPath = 4096;

// The instances of the two modules that there can be, at the places where the platform loads them.
constexpr HINSTANCE programInstance{0x00400000};
constexpr HINSTANCE libraryInstance{0x10000000};

std::string programPath() {
    char path[longestPath];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : std::string();
}

/// The file that holds this code: a shared library's, or the program's.
std::string ownPath() {
    Dl_info about{};
    static const char inThisModule = 0;
    char resolved[longestPath];
    if (dladdr(&inThisModule, &about) != 0 && about.dli_fname && realpath(about.dli_fname, resolved))
        return resolved;
    return programPath();
}

bool isInLibrary() {
    static const bool inLibrary = ownPath() != programPath();
    return inLibrary;
}

std::string userName() {
    if (const passwd* entry = getpwuid(geteuid()); entry && entry->pw_name) return entry->pw_name;
    const char* name = std::getenv("USER");
    return name ? name : "";
}

/// Copies a text with its NUL by the rule of the names: `size` tells what was needed or given.
bool copyOut(const std::string& text, char* buffer, DWORD size) {
    if (!buffer || size <= text.size()) return false;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return true;
}

} // namespace

BOOL GetComputerNameA(char* name, DWORD* size) {
    char host[longestHostName] = {};
    gethostname(host, sizeof host - 1);
    const std::string whole = utf8FromWide(upperCase(wideFromUtf8(host)));
    const std::string computer =
        whole.substr(0, std::min<std::size_t>(whole.find('.'), MAX_COMPUTERNAME_LENGTH));
    if (!copyOut(computer, name, *size)) {
        *size = static_cast<DWORD>(computer.size()) + 1;
        SetLastError(ERROR_BUFFER_OVERFLOW);
        return FALSE_;
    }
    *size = static_cast<DWORD>(computer.size());
    return TRUE_;
}

BOOL GetUserNameA(char* name, DWORD* size) {
    const std::string user = ansiFromWide(wideFromUtf8(userName()));
    const bool fits = copyOut(user, name, *size);
    *size = static_cast<DWORD>(user.size()) + 1;
    if (!fits) SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return fits ? TRUE_ : FALSE_;
}

HINSTANCE moduleInstance() {
    return isInLibrary() ? libraryInstance : programInstance;
}

std::u16string modulePath(HINSTANCE module) {
    if (!module || module == programInstance) return wideFromUtf8(programPath());
    if (module == libraryInstance && isInLibrary()) return wideFromUtf8(ownPath());
    SetLastError(ERROR_MOD_NOT_FOUND);
    return {};
}

DWORD GetModuleFileNameA(HINSTANCE module, char* name, DWORD size) {
    const std::string path = ansiFromWide(modulePath(module));
    if (path.empty() || size == 0) return 0;
    const std::size_t length = std::min<std::size_t>(path.size(), size - 1);
    std::memcpy(name, path.data(), length);
    name[length] = '\0';
    if (length == path.size()) return static_cast<DWORD>(length);
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}

DWORD GetEnvironmentVariableA(const char* name, char* value, DWORD size) {
    const char* found = std::getenv(utf8FromWide(wideFromAnsi(name)).c_str());
    if (!found) {
        SetLastError(ERROR_ENVVAR_NOT_FOUND);
        return 0;
    }
    const std::string text = ansiFromWide(wideFromUtf8(found));
    const auto length = static_cast<DWORD>(text.size());
    if (!copyOut(text, value, size)) return length + 1;
    if (length == 0) SetLastError(ERROR_SUCCESS);
    return length;
}

BOOL SetEnvironmentVariableA(const char* name, const char* value) {
    const std::string key = utf8FromWide(wideFromAnsi(name));
    const bool done = value ? setenv(key.c_str(), utf8FromWide(wideFromAnsi(value)).c_str(), 1) == 0
                            : unsetenv(key.c_str()) == 0;
    if (!done) SetLastError(ERROR_INVALID_PARAMETER);
    driver::forgetDisplayDepth();
    return done ? TRUE_ : FALSE_;
}

std::u16string environmentVariable(std::u16string_view name) {
    const char* value = std::getenv(utf8FromWide(name).c_str());
    return value ? wideFromUtf8(value) : std::u16string();
}

std::vector<std::u16string> commandLineArguments() {
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    std::vector<std::u16string> arguments;
    for (std::string argument; std::getline(file, argument, '\0');)
        arguments.push_back(wideFromUtf8(argument));
    return arguments;
}

DWORD GetCurrentProcessId() {
    return static_cast<DWORD>(getpid());
}

DWORD GetCurrentThreadId() {
    return static_cast<DWORD>(syscall(SYS_gettid));
}

} // namespace platform
