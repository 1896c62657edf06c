#pragma once
// What a program knows of itself and of its machine: names, its environment, its command line.

#include "platform/errors.h"
#include "platform/types.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

inline constexpr DWORD MAX_COMPUTERNAME_LENGTH = 15;
inline constexpr DWORD UNLEN = 256;

/// The computer's name in capitals, cut at 15 characters. `size` is the buffer's size in bytes going in, the
/// name's length without the NUL coming out; a buffer too small gives False and the size needed.
BOOL GetComputerNameA(char* name, DWORD* size);

/// The name of the user. `size` is the buffer's size in bytes going in, the bytes with the NUL coming out;
/// a buffer too small gives False, ERROR_INSUFFICIENT_BUFFER and the size needed.
BOOL GetUserNameA(char* name, DWORD* size);

/// The full path of the file of a module; module 0 is the program. Returns the bytes without the NUL; a
/// buffer too small gives its size, the cut text and ERROR_INSUFFICIENT_BUFFER.
DWORD GetModuleFileNameA(HINSTANCE module, char* name, DWORD size);

/// The instance of the module that this code was linked into: the program, or the control library.
HINSTANCE moduleInstance();

/// The full path of a module's file, with the platform's own separators.
std::u16string modulePath(HINSTANCE module);

/// Returns the bytes without the NUL, the size needed with it for a buffer too small, 0 with
/// ERROR_ENVVAR_NOT_FOUND for a name that is not set.
DWORD GetEnvironmentVariableA(const char* name, char* value, DWORD size);

/// A null `value` removes the variable.
BOOL SetEnvironmentVariableA(const char* name, const char* value);

/// The variable's text, empty when it is not set.
std::u16string environmentVariable(std::u16string_view name);

/// The arguments of this program, its own name first.
std::vector<std::u16string> commandLineArguments();

DWORD GetCurrentProcessId();
DWORD GetCurrentThreadId();

} // namespace platform
