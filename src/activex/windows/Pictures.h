#pragma once

#include "activex/windows/ComPointer.h"

namespace activex {

/// A system's picture object that looks as the library's one, counted for the caller.
::IDispatch* pictureFace(const host::Picture& picture);

/// A copy of a system's picture.
automation::Ref<host::Picture> pictureOf(::IPicture& picture);

} // namespace activex
