#pragma once
// Objects between the library and the system.

#include "activex/windows/System.h"

namespace activex {

/// The library's object behind a system's one: its own objects come back as they went out, fonts and
/// pictures of the system are copied, any other object is called by its members' names. Null for null; throws
/// automation::Error 430 for an object that takes no calls by name.
automation::Ref<automation::Object> objectOf(::IUnknown* object);

/// The system's face of an object, counted for the caller. The same object has the same face as long as
/// anyone holds it. Null for null.
::IDispatch* dispatchOf(automation::Object* object);

} // namespace activex
