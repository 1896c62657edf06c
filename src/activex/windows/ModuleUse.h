#pragma once

#include <atomic>

namespace activex {

/// Part of whatever programs can call, and of what the library holds of a program: as long as there is one,
/// the library must not be unloaded.
class ModuleUse {
public:
    ModuleUse() noexcept { ++count_; }
    ModuleUse(const ModuleUse&) noexcept : ModuleUse() {}
    ModuleUse& operator=(const ModuleUse&) noexcept = default;
    ~ModuleUse() { --count_; }

    static long count() noexcept { return count_; }

private:
    static inline std::atomic<long> count_ = 0;
};

} // namespace activex
