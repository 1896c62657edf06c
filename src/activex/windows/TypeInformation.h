#pragma once

#include "activex/windows/ComPointer.h"

namespace activex {

/// The type library that lies in this module; null if it cannot be read.
ComPointer<::ITypeLib> typeLibrary();

/// What it tells of a type; null for an identifier that it does not have.
ComPointer<::ITypeInfo> typeInformation(const Guid& id);

/// The module that this code is in, and its file.
::HMODULE thisModule();
std::u16string thisModulePath();

} // namespace activex
