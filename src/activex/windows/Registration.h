#pragma once

#include "activex/windows/System.h"

namespace activex {

/// For whom the library is registered.
enum class RegisteredFor { Machine, User };

/// Writes what programs find the classes and the type library by; a failure undoes all of it. Gives a failure
/// code of the system.
::HRESULT registerLibrary(RegisteredFor whom);
/// Takes it all away again. The type library stays known to the other width, where that is registered.
::HRESULT unregisterLibrary(RegisteredFor whom);

/// What a class is called in a program: "TeselaControls_basicos.cFecha".
std::u16string programName(const ExportedClass& exported);

} // namespace activex
