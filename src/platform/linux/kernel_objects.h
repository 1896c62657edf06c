#pragma once
// The table of kernel handles: files and whatever else CloseHandle ends.

#include "platform/errors.h"
#include "platform/types.h"

#include <memory>

namespace platform::driver {

/// What a kernel handle stands for. It ends when its handle is closed and no running call holds it.
class KernelObject {
public:
    KernelObject() = default;
    virtual ~KernelObject() = default;
    KernelObject(const KernelObject&) = delete;
    KernelObject& operator=(const KernelObject&) = delete;
};

/// A handle that is positive as a signed number; INVALID_HANDLE_VALUE when the table is full.
HANDLE addKernelObject(std::shared_ptr<KernelObject> object);

/// Null, with ERROR_INVALID_HANDLE, for a handle that is closed or was never given out.
std::shared_ptr<KernelObject> kernelObject(HANDLE handle);

/// The object if it is of this class; else null with ERROR_INVALID_HANDLE.
template <class Kind>
std::shared_ptr<Kind> kernelObjectAs(HANDLE handle) {
    auto object = std::dynamic_pointer_cast<Kind>(kernelObject(handle));
    if (!object) SetLastError(ERROR_INVALID_HANDLE);
    return object;
}

/// Handles that are open now, so that tests can see none was forgotten.
int openKernelHandles();

} // namespace platform::driver
