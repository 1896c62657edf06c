// The start against what only the Linux driver lets a test arrange: the colour depth and the clock.
#include "frame/GlobalCtlCfg.h"
#include "frame/Globales.h"
#include "platform/clock.h"
#include "platform/linux/headless.h"
#include "platform/processes.h"
#include "support/Started.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <sys/wait.h>

using namespace tesela;

namespace {

class Start : public support::Started {
protected:
    static void setClock(int month, int day, int hour, int minute, int second) {
        platform::SYSTEMTIME time;
        time.wYear = 2026;
        time.wMonth = static_cast<platform::WORD>(month);
        time.wDay = static_cast<platform::WORD>(day);
        time.wHour = static_cast<platform::WORD>(hour);
        time.wMinute = static_cast<platform::WORD>(minute);
        time.wSecond = static_cast<platform::WORD>(second);
        platform::headless::setLocalTime(time);
    }
};

} // namespace

TEST_F(Start, ADisplayOf8BitsTakesTheFlatColours) {
    platform::SetEnvironmentVariableA("TESELA_DEPTH", "8");
    ProcedimientoInicio();
    EXPECT_FALSE(globales().lHighColor);
    EXPECT_EQ(0xFFFF00, GlobalCtlCfg(tslCtlGlobalCfg_Grd_SelRowLightColor).asLong());
    platform::SetEnvironmentVariableA("TESELA_DEPTH", nullptr);
    ProcedimientoInicio();
    EXPECT_TRUE(globales().lHighColor);
}

TEST_F(Start, TheShortClockCountsMonthsOf31Days) {
    ASSERT_TRUE(platform::headless::active());
    setClock(3, 5, 10, 20, 30);
    EXPECT_DOUBLE_EQ(3 * 2678400.0 + 5 * 86400 + 10 * 3600 + 20 * 60 + 30, TimerSegundos());
    platform::headless::advanceClock(250);
    EXPECT_DOUBLE_EQ(3 * 2678400.0 + 5 * 86400 + 10 * 3600 + 20 * 60 + 30.25, TimerSegundos());
}

TEST_F(Start, TheShortClockJumpsAfterAMonthOf30Days) {
    ASSERT_TRUE(platform::headless::active());
    setClock(4, 30, 23, 59, 59);
    const double before = TimerSegundos();
    platform::headless::advanceClock(1000);
    EXPECT_DOUBLE_EQ(86401, TimerSegundos() - before);
    setClock(5, 31, 23, 59, 59);
    const double beforeLong = TimerSegundos();
    platform::headless::advanceClock(1000);
    EXPECT_DOUBLE_EQ(1, TimerSegundos() - beforeLong);
}

TEST_F(Start, ANoteIsGoodForATenthOfASecond) {
    ASSERT_TRUE(platform::headless::active());
    setClock(4, 10, 12, 0, 0);
    NotaFocusReclamar(25);
    platform::headless::advanceClock(99);
    EXPECT_TRUE(ReclamarFocus(26));
    NotaFocusReclamar(25);
    platform::headless::advanceClock(101);
    EXPECT_FALSE(ReclamarFocus(26));
}

namespace {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif
#else
constexpr bool sanitized = false;
#endif

/// Processor time of this process so far, in milliseconds.
double processorMilliseconds() {
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Runs the start and ends the process; its exit status is the processor time taken, in tenths of a
/// millisecond.
[[noreturn]] void startAndTellTime() {
    constexpr double longest = 255;
    const double before = processorMilliseconds();
    ProcedimientoInicio();
    std::_Exit(static_cast<int>(std::min(longest, 10 * (processorMilliseconds() - before))));
}

} // namespace

TEST(StartTime, IsBelowFiveMillisecondsInAFreshProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    constexpr int slowdown = sanitized ? 5 : 1;          // the sanitizers look at each access
    constexpr int allowed = 50 * slowdown, attempts = 5; // the best of several: the machine may be busy
    int least = std::numeric_limits<int>::max();
    for (int i = 0; i < attempts; ++i) {
        EXPECT_EXIT(
            startAndTellTime(),
            [&](int status) {
                least = std::min(least, WEXITSTATUS(status));
                return WIFEXITED(status);
            },
            "");
    }
    EXPECT_LT(least, allowed);
}
