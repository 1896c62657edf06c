#include "HostTest.h"

#include "host/Label.h"
#include "host/MsgBox.h"
#include "host/PictureBox.h"

namespace host {

class FocusTest : public HostTest {
protected:
    void SetUp() override {
        form = makeForm();
        a = &probe(*form, u"a", 0);
        b = &probe(*form, u"b", 1);
        c = &probe(*form, u"c", 2);
    }
    void open() {
        show(*form);
        for (Probe* each : {a, b, c})
            each->take();
    }
    /// Notes the events of both controls in one list.
    void watch(Probe& control, const std::string& name) {
        control.onEvent = [this, name](const std::string& event) {
            if (event.find("Focus") != std::string::npos) all.push_back(name + " " + event);
        };
        control.Extender().GotFocus.join([this, name] { all.push_back(name + " extender GotFocus"); });
        control.Extender().LostFocus.join([this, name] { all.push_back(name + " extender LostFocus"); });
        control.Extender().Validate.join([this, name](bool&) { all.push_back(name + " Validate"); });
    }

    automation::Ref<Form> form;
    Probe* a = nullptr;
    Probe* b = nullptr;
    Probe* c = nullptr;
    Log all;
};

TEST_F(FocusTest, TheFirstControlOfTheTabOrderGetsTheFocusOfANewForm) {
    a->Extender().TabIndex(2);
    open();
    EXPECT_EQ(form->ActiveControl(), b);
    EXPECT_TRUE(b->hasFocus());
}

TEST_F(FocusTest, TabWalksTheOrderAndBeginsAgain) {
    open();
    key(platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), b);
    key(platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), c);
    key(platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), a);
}

TEST_F(FocusTest, ShiftTabWalksBack) {
    open();
    keyWith(platform::VK_SHIFT, platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), c);
    keyWith(platform::VK_SHIFT, platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), b);
}

TEST_F(FocusTest, TabIsNoKeyForTheControls) {
    open();
    key(platform::VK_TAB);
    for (const Probe* each : {a, b}) {
        for (const std::string& event : each->log)
            EXPECT_FALSE(event.starts_with("KeyDown") || event.starts_with("KeyPress")) << event;
    }
}

TEST_F(FocusTest, TabReachesTheOnlyControlAsAKey) {
    b->Extender().TabStop(false);
    c->Extender().TabStop(false);
    open();
    key(platform::VK_TAB);
    EXPECT_EQ(a->log, (Log{"KeyDown 9 0", "KeyPress 9", "KeyUp 9 0"}));
}

TEST_F(FocusTest, TabPassesOverControlsThatCannotOrMustNotTakeTheFocus) {
    auto& d = probe(*form, u"d", 3);
    auto& e = probe(*form, u"e", 4);
    b->Extender().TabStop(false);
    c->Enabled(false);
    d.Extender().Visible(false);
    open();
    key(platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), &e);
}

TEST_F(FocusTest, AWrittenTabIndexClosesTheOthersUp) {
    c->Extender().TabIndex(0);
    EXPECT_EQ(c->Extender().TabIndex(), 0);
    EXPECT_EQ(a->Extender().TabIndex(), 1);
    EXPECT_EQ(b->Extender().TabIndex(), 2);
    a->Extender().TabIndex(99);
    EXPECT_EQ(a->Extender().TabIndex(), 2);
    a->Extender().TabIndex(-1);
    EXPECT_EQ(a->Extender().TabIndex(), 0);
}

TEST_F(FocusTest, AltAndALetterReachTheControlWithThatAccessKey) {
    c->AccessKeys(u"xg");
    open();
    keyWith(platform::VK_MENU, 'G');
    EXPECT_EQ(form->ActiveControl(), c);
    EXPECT_EQ(c->log.front(), "AccessKeyPress 103");
}

TEST_F(FocusTest, ALabelsAccessKeyGoesToTheNextControlOfTheTabOrder) {
    auto& label = form->add<Label>(u"l");
    label.Caption(u"&Nombre");
    label.Extender().TabIndex(1);
    b->Enabled(false);
    open();
    keyWith(platform::VK_MENU, 'N');
    EXPECT_EQ(form->ActiveControl(), c);
}

TEST_F(FocusTest, ASharedAccessKeyGoesRound) {
    b->AccessKeys(u"k");
    c->AccessKeys(u"K");
    open();
    keyWith(platform::VK_MENU, 'K');
    EXPECT_EQ(form->ActiveControl(), b);
    keyWith(platform::VK_MENU, 'K');
    EXPECT_EQ(form->ActiveControl(), c);
    keyWith(platform::VK_MENU, 'K');
    EXPECT_EQ(form->ActiveControl(), b);
}

TEST_F(FocusTest, HiddenAndDisabledControlsDoNotAnswerTheirAccessKey) {
    b->AccessKeys(u"k");
    c->AccessKeys(u"k");
    b->Extender().Visible(false);
    c->Enabled(false);
    open();
    keyWith(platform::VK_MENU, 'K');
    EXPECT_EQ(form->ActiveControl(), a);
}

TEST_F(FocusTest, ValidateComesBeforeTheLossAndTheLossBeforeTheGain) {
    open();
    watch(*a, "a");
    watch(*b, "b");
    key(platform::VK_TAB);
    EXPECT_EQ(all, (Log{"a Validate", "a LostFocus", "a ExitFocus", "a extender LostFocus", "b EnterFocus",
                        "b GotFocus", "b extender GotFocus"}));
}

TEST_F(FocusTest, ACancelledValidationKeepsTheFocusAndNobodyHearsOfIt) {
    open();
    watch(*a, "a");
    watch(*b, "b");
    a->Extender().Validate.join([](bool& cancel) { cancel = true; });
    key(platform::VK_TAB);
    EXPECT_EQ(all, (Log{"a Validate"}));
    EXPECT_TRUE(a->hasFocus());
    EXPECT_EQ(form->ActiveControl(), a);
}

TEST_F(FocusTest, AControlThatCausesNoValidationIsReachedWithoutIt) {
    open();
    a->Extender().Validate.join([](bool& cancel) { cancel = true; });
    b->Extender().CausesValidation(false);
    key(platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), b);
}

TEST_F(FocusTest, AMousePressIsValidatedToo) {
    open();
    bool refuse = true;
    a->Extender().Validate.join([&](bool& cancel) { cancel = refuse; });
    click(*b);
    EXPECT_EQ(form->ActiveControl(), a);
    EXPECT_TRUE(a->hasFocus());
    refuse = false;
    click(*b);
    EXPECT_EQ(form->ActiveControl(), b);
}

TEST_F(FocusTest, AMoveMadeOnTheWindowAloneIsTakenBackIfRefused) {
    open();
    watch(*a, "a");
    watch(*b, "b");
    bool refuse = true;
    a->Extender().Validate.join([&](bool& cancel) { cancel = refuse; });
    platform::SetFocus(b->hWnd());
    EXPECT_TRUE(a->hasFocus());
    EXPECT_EQ(all, (Log{"a Validate"}));
    all.clear();
    refuse = false;
    platform::SetFocus(b->hWnd());
    EXPECT_TRUE(b->hasFocus());
    EXPECT_EQ(all, (Log{"a Validate", "a LostFocus", "a ExitFocus", "a extender LostFocus", "b EnterFocus",
                        "b GotFocus", "b extender GotFocus"}));
    EXPECT_EQ(form->ActiveControl(), b);
}

TEST_F(FocusTest, AMessageBoxInValidateDoesNotUpsetTheMove) {
    open();
    int asked = 0;
    a->Extender().Validate.join([&](bool& cancel) {
        ++asked;
        later([this] { desk.strikeKey(platform::VK_RETURN); });
        MsgBox(u"¿Seguro?");
        cancel = asked == 1;
    });
    key(platform::VK_TAB);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(a->hasFocus());
    key(platform::VK_TAB);
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(b->hasFocus());
    EXPECT_EQ(form->ActiveControl(), b);
    platform::SetFocus(a->hWnd());
    platform::SetFocus(b->hWnd());
    desk.pump();
    EXPECT_EQ(asked, 3);
    EXPECT_TRUE(b->hasFocus()) << "the move made on the window goes on after the message";
}

TEST_F(FocusTest, ValidateMayMoveTheFocusItself) {
    open();
    a->Extender().Validate.join([&](bool& cancel) {
        cancel = true;
        c->SetFocus();
    });
    key(platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), c);
    EXPECT_TRUE(c->hasFocus());
}

TEST_F(FocusTest, ValidateControlsAsksTheActiveControl) {
    open();
    bool refuse = true;
    a->Extender().Validate.join([&](bool& cancel) { cancel = refuse; });
    EXPECT_FALSE(form->ValidateControls());
    refuse = false;
    EXPECT_TRUE(form->ValidateControls());
    EXPECT_TRUE(a->hasFocus());
}

TEST_F(FocusTest, LostFocusMaySendTheFocusElsewhere) {
    open();
    a->Extender().LostFocus.join([&] { c->SetFocus(); });
    key(platform::VK_TAB);
    EXPECT_TRUE(c->hasFocus());
    EXPECT_EQ(std::count(b->log.begin(), b->log.end(), "GotFocus"), 0);
}

TEST_F(FocusTest, SetFocusFailsOnAControlThatCannotTakeIt) {
    EXPECT_EQ(errorOf([&] { b->Extender().SetFocus(); }), 5) << "the form is hidden";
    open();
    b->Enabled(false);
    EXPECT_EQ(errorOf([&] { b->SetFocus(); }), 5);
    c->SetFocus();
    EXPECT_EQ(form->ActiveControl(), c);
}

TEST_F(FocusTest, HidingTheFocusedControlPassesTheFocusOnWithoutValidation) {
    open();
    int validations = 0;
    a->Extender().Validate.join([&](bool& cancel) {
        ++validations;
        cancel = true;
    });
    a->Extender().Visible(false);
    EXPECT_EQ(validations, 0);
    EXPECT_EQ(form->ActiveControl(), b);
}

TEST_F(FocusTest, WithKeyPreviewTheFormSeesKeysFirstAndMayKeepThem) {
    form->KeyPreview(true);
    open();
    Log order;
    form->KeyDown.join([&](short& code, short&) {
        order.push_back("form " + std::to_string(code));
        if (code == 'B') code = 0;
        if (code == 'C') code = 'D';
    });
    form->KeyPress.join([&](short& code) {
        if (code == 'c') code = 'x';
    });
    a->onEvent = [&](const std::string& event) {
        if (!event.starts_with("KeyUp")) order.push_back(event);
    };
    key('A');
    key('B');
    key('C');
    EXPECT_EQ(order, (Log{"form 65", "KeyDown 65 0", "KeyPress 97", "form 66", "KeyPress 98", "form 67",
                          "KeyDown 68 0", "KeyPress 120"}));
}

TEST_F(FocusTest, EnterAndEscReachTheDefaultAndTheCancelControl) {
    b->Extender().Default(true);
    c->Extender().Cancel(true);
    open();
    key(platform::VK_RETURN);
    EXPECT_EQ(b->log.front(), "AccessKeyPress 13");
    key(platform::VK_ESCAPE);
    EXPECT_EQ(c->log.front(), "AccessKeyPress 27");
    for (const Probe* each : {a, b, c}) {
        for (const std::string& event : each->log)
            EXPECT_FALSE(event.starts_with("KeyPress")) << event;
    }
}

TEST_F(FocusTest, OnlyOneControlIsTheDefault) {
    b->Extender().Default(true);
    c->Extender().Default(true);
    EXPECT_FALSE(b->Extender().Default());
    EXPECT_TRUE(c->Ambient().DisplayAsDefault());
}

TEST_F(FocusTest, AnotherFormTakesTheFocusAwayAndTheControlKeepsItsPlace) {
    open();
    auto other = makeForm(u"other");
    auto& there = probe(*other, u"t", 0);
    show(*other);
    EXPECT_TRUE(there.hasFocus());
    EXPECT_EQ(a->take(), (Log{"LostFocus", "ExitFocus"}));
    EXPECT_EQ(form->ActiveControl(), a);
    form->SetFocus();
    desk.pump();
    EXPECT_TRUE(a->hasFocus());
    EXPECT_EQ(a->take(), (Log{"EnterFocus", "GotFocus"}));
}

TEST_F(FocusTest, ControlsInAPictureBoxAreInTheSameTabOrder) {
    auto& box = form->add<PictureBox>(u"box");
    box.Extender().Move(3000, 150, 1500, 1500);
    auto& inner = form->add<Probe>(u"inner", NotInArray, &box);
    inner.Extender().TabIndex(1);
    box.Extender().TabStop(false);
    open();
    key(platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), &inner);
    EXPECT_EQ(inner.Extender().Container().get(), &box.self());
    box.Extender().Visible(false);
    desk.pump();
    key(platform::VK_TAB);
    key(platform::VK_TAB);
    key(platform::VK_TAB);
    EXPECT_NE(form->ActiveControl(), &inner);
}

TEST_F(FocusTest, InDesignModeKeysDoNotMoveTheFocus) {
    open();
    form->UserMode(false);
    key(platform::VK_TAB);
    EXPECT_EQ(form->ActiveControl(), a);
}

} // namespace host
