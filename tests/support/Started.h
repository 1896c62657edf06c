#pragma once
// The library started anew in a chosen locale, for tests that look at its shared state.

#include "frame/Globales.h"
#include "platform/locale.h"

#include <gtest/gtest.h>

namespace support {

/// Each test begins with ProcedimientoInicio run for es-ES, and ends with the gate of the events open.
class Started : public ::testing::Test {
protected:
    Started() { startIn("es-ES"); }
    ~Started() override { startIn("es-ES"); }

    static void startIn(const char* locale) {
        ASSERT_TRUE(platform::overrideUserLocale(locale));
        tesela::ProcedimientoInicio();
    }
};

} // namespace support
