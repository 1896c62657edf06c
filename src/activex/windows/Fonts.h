#pragma once

#include "activex/windows/ComPointer.h"

namespace activex {

/// The system's font object for one of the library's, counted for the caller: what changes in one changes in
/// the other. The same font has the same face as long as anyone holds it.
::IDispatch* fontFace(host::StdFont& font);

/// The library's font for a system's one: the font whose face it is, or else a copy.
automation::Ref<host::StdFont> fontOf(::IFont& font);

} // namespace activex
