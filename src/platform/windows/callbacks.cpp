#include "platform/windows/callbacks.h"

#include <new>
#include <utility>

namespace platform::driver {
namespace {

/// Owned here. The pointer has no destructor: the run-time keeps a library loaded for one until the thread
/// ends.
thread_local std::exception_ptr* kept = nullptr;

} // namespace

void keepException() noexcept {
    if (!kept) kept = new (std::nothrow) std::exception_ptr(std::current_exception());
}

void rethrowKept() {
    if (!kept) return;
    const std::exception_ptr thrown = *kept;
    delete std::exchange(kept, nullptr);
    std::rethrow_exception(thrown);
}

} // namespace platform::driver
