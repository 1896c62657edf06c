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

class FormTimerTest : public HostTest {
protected:
    Timer& addTimer(Form& form) {
        Timer& timer = form.addTimer(u"tmrPrueba");
        timer.Tick.join([this] { ++ticks; });
        timer.Interval(100);
        return timer;
    }
    void pass(platform::DWORD milliseconds) {
        desk.advance(milliseconds);
        desk.pump();
    }
    int ticks = 0;
};

TEST_F(FormTimerTest, ItStandsStillWhileItsFormIsDesigned) {
    const auto form = makeForm();
    form->UserMode(false);
    const Timer& timer = addTimer(*form);
    pass(300);
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(timer.Enabled());
    form->UserMode(true);
    pass(120);
    EXPECT_EQ(ticks, 1);
    form->UserMode(false);
    pass(300);
    EXPECT_EQ(ticks, 1);
}

TEST_F(FormTimerTest, ItGoesWhenItsFormIsUnloaded) {
    const auto form = makeForm();
    show(*form);
    const automation::Ref<Timer> kept(&addTimer(*form));
    form->unload();
    EXPECT_TRUE(form->timers().empty());
    pass(300);
    EXPECT_EQ(ticks, 0);
}

TEST_F(FormTimerTest, ItMayUnloadItsFormInItsOwnTick) {
    const auto form = makeForm();
    show(*form);
    addTimer(*form).Tick.join([&] { form->unload(); });
    pass(120);
    EXPECT_EQ(ticks, 1);
    EXPECT_FALSE(form->loaded());
}

TEST_F(FormTimerTest, ItsNameIsItsOwn) {
    const auto form = makeForm();
    addTimer(*form);
    form->add<Label>(u"lblUno");
    EXPECT_EQ(errorOf([&] { form->addTimer(u"TMRPRUEBA"); }), 672);
    EXPECT_EQ(errorOf([&] { form->addTimer(u"lblUno"); }), 672);
    EXPECT_EQ(errorOf([&] { form->add<Label>(u"tmrPrueba"); }), 672);
    EXPECT_EQ(form->findTimer(u"tmrprueba"), form->timers().front().timer.get());
    EXPECT_EQ(form->findTimer(u"tmrPrueba", 1), nullptr);
}

} // namespace host
