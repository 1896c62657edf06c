#include "activex/windows/TypeInformation.h"

namespace activex {

::HMODULE thisModule() {
    return platform::driver::native(platform::moduleInstance());
}

std::u16string thisModulePath() {
    return platform::modulePath(platform::moduleInstance());
}

ComPointer<::ITypeLib> typeLibrary() {
    static const auto library = [] {
        ComPointer<::ITypeLib> loaded;
        ::LoadTypeLibEx(wide(thisModulePath().c_str()), REGKIND_NONE, loaded.out());
        return loaded;
    }();
    return library;
}

ComPointer<::ITypeInfo> typeInformation(const Guid& id) {
    ComPointer<::ITypeInfo> result;
    if (const auto library = typeLibrary()) library->GetTypeInfoOfGuid(native(id), result.out());
    return result;
}

} // namespace activex
