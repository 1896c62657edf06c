#pragma once
// Errors of the library as the system passes them on.

#include "activex/windows/System.h"

#include <exception>
#include <functional>
#include <new>

namespace activex {

/// Calls `action` and gives its result; what it throws becomes a failure code with the error's words beside
/// it (IErrorInfo), so that nothing is ever thrown into a foreign program.
template <class F>
::HRESULT guarded(const F& action) noexcept;

/// Keeps an error for the caller to ask for, and gives its code.
::HRESULT report(const automation::Error& error) noexcept;

/// An error in the form in which calls by name give it back; `source` is for an error that names none.
void describe(const automation::Error& error, std::u16string_view source, ::EXCEPINFO& target) noexcept;

/// The error that a foreign object gave back.
automation::Error fromException(::HRESULT result, ::EXCEPINFO& exception);

template <class F>
::HRESULT guarded(const F& action) noexcept {
    try {
        return action();
    } catch (const automation::Error& error) {
        return report(error);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

} // namespace activex
