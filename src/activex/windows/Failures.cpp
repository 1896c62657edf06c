#include "activex/windows/Failures.h"

#include "activex/windows/ComPointer.h"
#include "activex/windows/Values.h"

namespace activex {

namespace {

::BSTR copyOf(std::u16string_view text) noexcept {
    return ::SysAllocStringLen(wide(text.data()), static_cast<::UINT>(text.size()));
}

} // namespace

::HRESULT report(const automation::Error& error) noexcept {
    ComPointer<::ICreateErrorInfo> fresh;
    if (SUCCEEDED(::CreateErrorInfo(fresh.out()))) {
        ::BSTR words = copyOf(error.description());
        fresh->SetDescription(words);
        ::SysFreeString(words);
        ::BSTR source = copyOf(error.source().empty() ? libraryName : error.source().view());
        fresh->SetSource(source);
        ::SysFreeString(source);
        if (const auto info = ComPointer<::IErrorInfo>::of(fresh.get())) ::SetErrorInfo(0, info.get());
    }
    const ::HRESULT code = error.hresult();
    return FAILED(code) ? code : E_FAIL;
}

void describe(const automation::Error& error, std::u16string_view source, ::EXCEPINFO& target) noexcept {
    target = {};
    const ::HRESULT code = error.hresult();
    target.scode = FAILED(code) ? code : E_FAIL;
    target.bstrDescription = copyOf(error.description());
    target.bstrSource = copyOf(error.source().empty() ? source : error.source().view());
}

automation::Error fromException(::HRESULT result, ::EXCEPINFO& exception) {
    if (result != DISP_E_EXCEPTION) return automation::Error(automation::Error::numberOf(result));
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    const std::int32_t number =
        exception.wCode != 0 ? exception.wCode : automation::Error::numberOf(exception.scode);
    const automation::String words = fromBstr(exception.bstrDescription);
    const automation::String source = fromBstr(exception.bstrSource);
    ::SysFreeString(exception.bstrDescription);
    ::SysFreeString(exception.bstrSource);
    ::SysFreeString(exception.bstrHelpFile);
    return automation::Error(number, words.empty() ? automation::Error::descriptionOf(number) : words,
                             source);
}

} // namespace activex
