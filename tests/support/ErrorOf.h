#pragma once
// What a call throws.

#include "automation/Error.h"

#include <cstdint>

namespace tests {

/// Runs `call` and returns the number of the Error it threw, 0 for none.
template <class Call>
std::int32_t errorOf(Call call) {
    try {
        call();
    } catch (const automation::Error& error) {
        return error.number();
    }
    return 0;
}

} // namespace tests
