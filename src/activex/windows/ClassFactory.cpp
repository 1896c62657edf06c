#include "activex/windows/ClassFactory.h"

#include "activex/windows/ComObject.h"
#include "activex/windows/Failures.h"

namespace activex {

namespace {

std::atomic<long> locked = 0;

/// The library keeps its state once a process and belongs to the thread that made its first object.
bool ownedByThisThread() {
    static const DWORD owner = ::GetCurrentThreadId();
    return owner == ::GetCurrentThreadId();
}

} // namespace

::HRESULT ClassFactory::CreateInstance(::IUnknown* outer, REFIID id, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    // An outer object must ask for the inner IUnknown: all other interfaces are its own.
    if (outer && id != __uuidof(::IUnknown)) return CLASS_E_NOAGGREGATION;
    if (!ownedByThisThread()) return RPC_E_WRONG_THREAD;
    return guarded([&] {
        tesela::EnsureInicio();
        const auto object = ComPointer<::IUnknown>::adopt(ComObject::create(exported_.create(), outer));
        return object->QueryInterface(id, result);
    });
}

::HRESULT ClassFactory::LockServer(BOOL lock) {
    locked += lock ? 1 : -1;
    return S_OK;
}

long ClassFactory::locks() {
    return locked;
}

} // namespace activex
