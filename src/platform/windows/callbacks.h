#pragma once
// What the system calls back must not throw through the system's own frames. An exception is kept there and
// goes on where the ring called the system.

#include <exception>

namespace platform::driver {

/// Keeps the exception that is being handled, if none is kept yet.
void keepException() noexcept;

/// Throws the kept exception, if there is one.
void rethrowKept();

/// The result of a system call that may have called back.
template <class Result>
Result afterCallbacks(Result result) {
    rethrowKept();
    return result;
}

/// Calls `body` from within a callback; when it throws, the callback's result is `otherwise`.
template <class Result, class Body>
Result guarded(Result otherwise, const Body& body) noexcept {
    try {
        return body();
    } catch (...) {
        keepException();
        return otherwise;
    }
}

} // namespace platform::driver
