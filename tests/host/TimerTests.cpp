#include "HostTest.h"

#include "host/Timer.h"

namespace host {

class TimerTest : public HostTest {
protected:
    TimerTest() {
        timer->Tick.join([this] { ++ticks; });
    }
    void pass(platform::DWORD milliseconds) {
        desk.advance(milliseconds);
        desk.pump();
    }

    automation::Ref<Timer> timer = automation::make<Timer>();
    int ticks = 0;
};

TEST_F(TimerTest, ItTicksEveryInterval) {
    timer->Interval(100);
    pass(50);
    EXPECT_EQ(ticks, 0);
    pass(70);
    EXPECT_EQ(ticks, 1);
    pass(110);
    EXPECT_EQ(ticks, 2);
}

TEST_F(TimerTest, DisabledOrWithoutIntervalItStandsStill) {
    timer->Interval(100);
    timer->Enabled(false);
    pass(300);
    EXPECT_EQ(ticks, 0);
    timer->Enabled(true);
    pass(120);
    EXPECT_EQ(ticks, 1);
    timer->Interval(0);
    pass(300);
    EXPECT_EQ(ticks, 1);
    EXPECT_TRUE(timer->Enabled());
}

TEST_F(TimerTest, AWrittenIntervalBeginsAgain) {
    timer->Interval(200);
    pass(150);
    timer->Interval(200);
    pass(150);
    EXPECT_EQ(ticks, 0);
    pass(80);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, ItMayBeHalvedStoppedAndDroppedInItsOwnTick) {
    timer->Interval(400);
    timer->Tick.join([this] {
        if (timer) timer->Interval(timer->Interval() / 2);
        if (ticks == 3) timer.reset();
    });
    pass(420);
    pass(220);
    pass(120);
    EXPECT_EQ(ticks, 3);
    pass(1000);
    EXPECT_EQ(ticks, 3);
}

TEST_F(TimerTest, IntervalsBeyondTheRangeAreErrors) {
    EXPECT_EQ(errorOf([&] { timer->Interval(65536); }), 380);
    EXPECT_EQ(errorOf([&] { timer->Interval(-1); }), 380);
    EXPECT_EQ(timer->Interval(), 0);
}

TEST_F(TimerTest, TicksWaitWhileAHandlerRunsAndCountOnce) {
    int depth = 0;
    int deepest = 0;
    timer->Tick.join([&] {
        deepest = std::max(deepest, ++depth);
        desk.advance(500);
        --depth;
    });
    timer->Interval(100);
    desk.advance(120);
    platform::MSG message;
    ASSERT_TRUE(
        platform::PeekMessageA(&message, {}, platform::WM_TIMER, platform::WM_TIMER, platform::PM_REMOVE));
    platform::DispatchMessageA(&message);
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(deepest, 1);
    timer->Enabled(false);
}

} // namespace host
