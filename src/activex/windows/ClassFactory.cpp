#include "activex/windows/ClassFactory.h"

#include "activex/windows/ComObject.h"
#include "activex/windows/Failures.h"
#include "activex/windows/TypeInformation.h"

namespace activex {

namespace {

std::atomic<long> locked = 0;

/// The library keeps its state once a process and belongs to the thread that made its first object. From then
/// on the module stays loaded: windows and their classes go with the process.
bool ownedByThisThread() {
    static const DWORD owner = [] {
        ::HMODULE pinned = nullptr;
        ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                             reinterpret_cast<const wchar_t*>(thisModule()), &pinned);
        return ::GetCurrentThreadId();
    }();
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
