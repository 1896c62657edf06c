// What the control library exports.

#include "activex/windows/ClassFactory.h"
#include "activex/windows/ComPointer.h"
#include "activex/windows/Failures.h"
#include "activex/windows/ModuleUse.h"
#include "activex/windows/Registration.h"

#include <cstdlib>

using activex::RegisteredFor;

// What the compiler's run-time calls when an exception ends the process. Its own one first prints the name of
// the exception where nobody reads it, with 50 KB of code that nothing else here needs.
namespace __gnu_cxx {
void __verbose_terminate_handler() {
    std::abort();
}
} // namespace __gnu_cxx

extern "C" {

/// The maker of a class's objects.
STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    const activex::ExportedClass* exported = activex::exportedClass(activex::fromNative(classId));
    if (!exported) return CLASS_E_CLASSNOTAVAILABLE;
    return activex::guarded([&] {
        const auto factory =
            activex::ComPointer<activex::ClassFactory>::adopt(new activex::ClassFactory(*exported));
        return factory->QueryInterface(id, result);
    });
}

/// Whether nothing of the library is held, and it holds nothing of a program.
STDAPI DllCanUnloadNow() {
    return activex::ModuleUse::count() == 0 && activex::ClassFactory::locks() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return activex::registerLibrary(RegisteredFor::Machine);
}

STDAPI DllUnregisterServer() {
    return activex::unregisterLibrary(RegisteredFor::Machine);
}

/// Registers for the user alone where the command line says "user", in any case of its letters, else for the
/// machine.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    const bool user = commandLine && ::lstrcmpiW(commandLine, L"user") == 0;
    const RegisteredFor whom = user ? RegisteredFor::User : RegisteredFor::Machine;
    return install ? activex::registerLibrary(whom) : activex::unregisterLibrary(whom);
}
}
