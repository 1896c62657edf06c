#pragma once
// The control library as a program loads it.

#include "activex/windows/ComPointer.h"
#include "activex/windows/Values.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace support {

using activex::ComPointer;
using activex::SystemValue;
using automation::Variant;

/// The module, loaded once; null where it cannot be.
::HMODULE controlLibrary();
std::u16string controlLibraryFile();

/// A function that it exports.
template <class F>
F* exportedFunction(const char* name) {
    return reinterpret_cast<F*>(reinterpret_cast<void*>(::GetProcAddress(controlLibrary(), name)));
}

/// The module once more, out of a copy of its file, with a state of its own that begins in that locale. There
/// is one file of each locale.
class LibraryCopy {
public:
    explicit LibraryCopy(const std::wstring& locale);
    LibraryCopy(const LibraryCopy&) = delete;
    LibraryCopy& operator=(const LibraryCopy&) = delete;
    ~LibraryCopy() { ::FreeLibrary(module_); }
    ::HMODULE module() const { return module_; }
    ComPointer<::IDispatch> create(std::u16string_view className) const;
    ComPointer<::IClassFactory> factoryOf(std::u16string_view className) const;
    static std::wstring fileOf(const std::wstring& locale);

private:
    ::HMODULE module_ = nullptr;
};

/// A new object of the class, as calls by name reach it.
ComPointer<::IDispatch> create(std::u16string_view className);
ComPointer<::IClassFactory> factoryOf(const ::CLSID& id);

::DISPID memberId(::IDispatch& object, const wchar_t* name);

/// What a call by name came to.
struct Answer {
    ::HRESULT result = S_OK;
    Variant value;
    std::int32_t error = 0; ///< The number of what was raised
    std::u16string words;
    std::u16string source;
};

/// Calls with arguments in their order; references are the system's VT_BYREF values.
Answer call(::IDispatch& object, const wchar_t* name, std::initializer_list<::VARIANT> arguments = {},
            WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET);
Answer call(::IDispatch& object, ::DISPID id, WORD flags, ::DISPPARAMS parameters);
Answer put(::IDispatch& object, const wchar_t* name, const ::VARIANT& value,
           WORD kind = DISPATCH_PROPERTYPUT);
Variant get(::IDispatch& object, const wchar_t* name);
/// The system's font object of a control.
ComPointer<::IFont> fontOf(::IDispatch& control);

// Values of the system; texts and objects belong to a list that is freed at the end of the program.
::VARIANT text(const wchar_t* value);
::VARIANT number(std::int32_t value);
::VARIANT date(double value);
::VARIANT boolean(bool value);
::VARIANT object(::IDispatch* value);
::VARIANT missing();

} // namespace support
