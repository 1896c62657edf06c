#include "activex/windows/TypeInformation.h"

namespace activex {

::HMODULE thisModule() {
    return platform::driver::native(platform::moduleInstance());
}

std::u16string thisModulePath() {
    return platform::modulePath(platform::moduleInstance());
}

ComPointer<::ITypeLib> typeLibrary() {
    // Kept until the process ends: the module stays as long.
    static ::ITypeLib* const library = [] {
        ::ITypeLib* loaded = nullptr;
        ::LoadTypeLibEx(wide(thisModulePath().c_str()), REGKIND_NONE, &loaded);
        return loaded;
    }();
    return ComPointer<::ITypeLib>(library);
}

ComPointer<::ITypeInfo> typeInformation(const Guid& id) {
    ComPointer<::ITypeInfo> result;
    if (const auto library = typeLibrary()) library->GetTypeInfoOfGuid(native(id), result.out());
    return result;
}

} // namespace activex
