#pragma once
// The system's automation interfaces beside the library's rings. The rings' headers come first: the system's
// have macros of the names of some of their constants.

#include "activex/ExportedClass.h"
#include "activex/InterfaceTypes.h"
#include "automation/Argument.h"
#include "automation/ClassTable.h"
#include "automation/Conversions.h"
#include "automation/Error.h"
#include "automation/LateBound.h"
#include "automation/Object.h"
#include "automation/Record.h"
#include "automation/Variant.h"
#include "frame/Globales.h"
#include "host/Control.h"
#include "host/DrawingWindow.h"
#include "host/Picture.h"
#include "host/PropertyBag.h"
#include "host/ScaleMode.h"
#include "host/StdFont.h"
#include "host/UserControl.h"
#include "platform/gdi.h"
#include "platform/metafiles.h"
#include "platform/processes.h"
#include "platform/windows.h"
#include "platform/windows/convert.h"

#include <ole2.h>

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>

// The system's interfaces have no destructors: objects end with their last count.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace activex {

inline const ::GUID& native(const Guid& id) {
    static_assert(sizeof(Guid) == sizeof(::GUID));
    return reinterpret_cast<const ::GUID&>(id);
}
inline const Guid& fromNative(const ::GUID& id) {
    return reinterpret_cast<const Guid&>(id);
}

inline const wchar_t* wide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}

} // namespace activex
