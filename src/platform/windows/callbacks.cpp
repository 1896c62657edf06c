#include "platform/windows/callbacks.h"

#include <utility>

namespace platform::driver {
namespace {

thread_local std::exception_ptr kept;

} // namespace

void keepException() noexcept {
    if (!kept) kept = std::current_exception();
}

void rethrowKept() {
    if (kept) std::rethrow_exception(std::exchange(kept, nullptr));
}

} // namespace platform::driver
