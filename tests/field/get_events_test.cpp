// Focus, companion buttons, mouse, and whom the field tells.
#include "field/FieldTest.h"
#include "host/Clipboard.h"
#include "host/PictureBox.h"

#include <algorithm>

using namespace tesela;
using namespace tests;

namespace {

/// Stands for a status bar, an on-screen keyboard and a button: notes the calls that it gets by name.
class Companion : public automation::Object {
public:
    void SetToolTipFromCtl(const automation::String& text) { note("tip:" + text.utf8()); }
    void SetTextAlertFromCtl(const automation::String& text) { note("alert:" + text.utf8()); }
    void ClearTextAlertFromCtl(const automation::String& text) { note("clear:" + text.utf8()); }
    void SetNewCtl(const automation::Ref<automation::Object>& control) {
        note("control:" + control->typeName().utf8());
    }
    bool CausesValidation() const { return causesValidation; }
    void CausesValidation(bool value) { causesValidation = value; }

    const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<Companion>("Companion")
                .method("SetToolTipFromCtl", &Companion::SetToolTipFromCtl, {"cText"})
                .method("SetTextAlertFromCtl", &Companion::SetTextAlertFromCtl, {"cText"})
                .method("ClearTextAlertFromCtl", &Companion::ClearTextAlertFromCtl, {"cText"})
                .method("SetNewCtl", &Companion::SetNewCtl, {"oCtl"})
                .property("CausesValidation",
                          static_cast<bool (Companion::*)() const>(&Companion::CausesValidation),
                          static_cast<void (Companion::*)(bool)>(&Companion::CausesValidation));
        return table;
    }

    std::string calls;
    bool causesValidation = true;

private:
    void note(const std::string& call) { calls += call + ";"; }
};

/// Stands for a button of the library.
class CoupledButton : public automation::Object {
public:
    bool Enabled() const { return enabled; }
    void Set_And_Click() {
        ++presses;
        host::DoEvents();
        released = !globales().oKeyboard->KeyPressed(platform::VK_MENU);
    }
    bool CausesValidation() const { return true; }
    void CausesValidation(bool) {}

    const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<CoupledButton>("btn")
                .get("Enabled", &CoupledButton::Enabled)
                .method("Set_And_Click", &CoupledButton::Set_And_Click)
                .property("CausesValidation",
                          static_cast<bool (CoupledButton::*)() const>(&CoupledButton::CausesValidation),
                          static_cast<void (CoupledButton::*)(bool)>(&CoupledButton::CausesValidation));
        return table;
    }

    int presses = 0;
    bool enabled = true;
    bool released = false; ///< Alt was up when it was pressed
};

class get_events : public tests::FieldTest {
protected:
    platform::POINT at(int x, int y) const {
        platform::POINT point{x, y};
        platform::ClientToScreen(field->hWnd(), &point);
        return point;
    }
    void click(int x, int y = 8, int button = platform::VK_LBUTTON) {
        desk.advance(600); // not the second press of a double click
        desk.click(at(x, y), button);
        desk.pump();
    }
    using FieldTest::press;
    int width() const { return field->bounds().pixels().right - field->bounds().pixels().left; }
    /// The column in the middle of a button, counted from the right.
    int button(int fromRight) const { return width() - 3 - field->ButtonWidth() * fromRight - 7; }
    void allButtons() {
        field->BotonCombo(true);
        field->BotonBuscar(true);
        field->BotonFicha(true);
        field->EVCombo.join([this](bool& forced, bool&) { events += forced ? "combo!" : "combo"; });
        field->EVBuscar.join([this] { events += "search"; });
        field->EVFicha.join([this] { events += "record"; });
        if (!form->Visible()) show();
    }
};

} // namespace

TEST_F(get_events, TheFocusHistoryIsKept) {
    show();
    EXPECT_EQ(before->hWND(), globales().nHWndFocus);
    enter();
    EXPECT_TRUE(field->HasFocus());
    EXPECT_EQ(field->hWND(), globales().nHWndFocus);
    EXPECT_EQ(before->hWND(), field->CtrlFocus());
    field->CtrlFocus(0);
    desk.pump();
    EXPECT_TRUE(before->HasFocus()) << "0 stands for the one before";
}

TEST_F(get_events, TheCompanionsAreToldOfTheFocus) {
    const auto bar = automation::make<Companion>();
    const auto keyboard = automation::make<Companion>();
    const auto coupled = automation::make<Companion>();
    field->ToolTip(u"nombre");
    field->StatusBarAsociado(bar);
    field->OnScreenKeyboardAsociado(keyboard);
    field->ControlAsociado(coupled);
    enter();
    EXPECT_EQ("tip:nombre;", bar->calls);
    EXPECT_EQ("control:get;", keyboard->calls);
    EXPECT_FALSE(coupled->causesValidation);
    leave();
    EXPECT_EQ("tip:nombre;", bar->calls);
    EXPECT_TRUE(coupled->causesValidation);
}

TEST_F(get_events, AMessageStandsInTheStatusBarForOneVisit) {
    const auto bar = automation::make<Companion>();
    field->ToolTip(u"nombre");
    field->StatusBarAsociado(bar);
    field->SetMsgForStatusBar(u"falta el nombre");
    enter();
    leave();
    EXPECT_EQ("alert:falta el nombre;clear:nombre;", bar->calls);
    bar->calls.clear();
    FieldTest::press(platform::VK_SHIFT, platform::VK_TAB);
    EXPECT_EQ("tip:nombre;", bar->calls) << "the next visit has none";
}

TEST_F(get_events, TheDirectionIsThatOfTheTabThatIsDown) {
    std::vector<int> seen;
    std::vector<automation::Subscription> watches;
    for (get* each : {field, after})
        watches.push_back(
            each->Extender().GotFocus.subscribe([&seen, each] { seen.push_back(each->IsForwarding()); }));
    enter();
    press(platform::VK_UP);
    field->Extender().SetFocus();
    leave();
    FieldTest::press(platform::VK_SHIFT, platform::VK_TAB);
    EXPECT_EQ((std::vector<int>{tslForwardFocus_Forward, tslForwardFocus_Unknown, tslForwardFocus_Forward,
                                tslForwardFocus_Backward}),
              seen)
        << "a new visit knows none of its own";
}

TEST_F(get_events, AFieldThatCannotTakeTheFocusGivesItToTheOther) {
    show();
    const Variant other(static_cast<automation::Object*>(after));
    const auto isRefused = [&] {
        before->Extender().SetFocus();
        field->SetFocusIfEnabled(other);
        return after->HasFocus();
    };
    EXPECT_FALSE(isRefused());
    field->Extender().Visible(false);
    EXPECT_TRUE(isRefused());
    field->Extender().Visible(true);
    field->Enabled(false);
    EXPECT_TRUE(isRefused());
    field->Enabled(true);
    field->ShownEnabled(false);
    EXPECT_TRUE(isRefused());
    field->ShownEnabled(true);
    field->EnabledGet(false);
    EXPECT_TRUE(isRefused());
    before->Extender().SetFocus();
    field->SetFocusIfEnabled(other, Variant(before->hWND()));
    EXPECT_TRUE(before->HasFocus()) << "the window that had it comes before the control";
}

TEST_F(get_events, TheFocusIsNotGivenBackToAnotherForm) {
    show();
    const auto other = automation::make<host::Form>(u"Form2");
    other->Move(9500, 0, 3000, 3000);
    get& elsewhere = other->add<get>(u"get3");
    other->Show();
    desk.pump();
    before->Extender().SetFocus();
    desk.pump();
    field->EnabledGet(false);
    field->SetFocusIfEnabled(Variant::missing(), Variant(elsewhere.hWND()));
    EXPECT_FALSE(elsewhere.HasFocus());
    EXPECT_NE(elsewhere.hWND(), globales().nHWndFocus);
    field->SetFocusIfEnabled(Variant(static_cast<automation::Object*>(after)), Variant(elsewhere.hWND()));
    EXPECT_TRUE(after->HasFocus()) << "the control gets it";
    other->unload();
}

TEST_F(get_events, AWindowThatIsGivenTheFocusIsTheOneThatHadIt) {
    enter();
    field->CtrlFocus(after->hWND());
    EXPECT_TRUE(after->HasFocus());
    EXPECT_EQ(after->hWND(), globales().nHWndFocusPrev) << "noted before the focus came";
}

TEST_F(get_events, ALockedTextKeepsItsDisplayMask) {
    field->Mascara(u"##-##;;");
    field->Text(u"1234");
    field->MaxLength(3);
    field->Locked(true);
    enter();
    EXPECT_EQ("12-34", text());
    leave();
    EXPECT_EQ("12-34", text());
    EXPECT_EQ(3, field->MaxLength());
}

TEST_F(get_events, ACompanionThatDoesNotAnswerLeavesTheFieldQuietly) {
    enter();
    field->ControlAsociado(automation::Ref<automation::Object>(automation::make<cFecha>().get()));
    leave();
    EXPECT_TRUE(after->HasFocus());
}

TEST_F(get_events, KeyWatchCanCancelAKey) {
    field->KeyWatch.join([](short& code, short&) { code = 0; });
    field->Text(u"abc");
    enter();
    press(platform::VK_END);
    EXPECT_EQ(0, field->caretPosition());
    EXPECT_EQ(platform::VK_END, field->LastKey());
}

TEST_F(get_events, TheLastKeyIsTheOneThatWasUsed) {
    field->Text(u"abc");
    enter();
    press(platform::VK_RIGHT);
    EXPECT_EQ(platform::VK_RIGHT, field->LastKey());
    type(u"x");
    EXPECT_EQ('x', field->LastKey()) << "a character of its own code";
}

TEST_F(get_events, AFieldNotToBeEditedTakesNoKeysThoughItHasTheFocus) {
    field->Text(u"abc");
    enter();
    field->EnabledGet(false);
    field->KeyWatch.join([this](short&, short&) { events += "watch"; });
    field->KeyDown.join([this](short&, short&) { events += "down"; });
    field->KeyPress.join([this](short&) { events += "press"; });
    ASSERT_TRUE(field->HasFocus());
    type(u"x");
    press(platform::VK_DELETE);
    press(platform::VK_END);
    EXPECT_EQ("abc", text());
    EXPECT_EQ("", events);
    EXPECT_EQ(0, field->caretPosition());
}

TEST_F(get_events, AKeyboardWithoutACharacterForCtrlBackspaceTakesAWordToo) {
    field->Text(u"uno dos");
    enter();
    press(platform::VK_END);
    desk.pressKey(platform::VK_CONTROL);
    desk.strikeKey(platform::VK_BACK);
    desk.pump();
    EXPECT_EQ("uno", text());
    field->ProcesarTeclaFromOnScreenKeyboard(u"\b", 0, 0);
    EXPECT_EQ("", text());
    desk.releaseKey(platform::VK_CONTROL);
    desk.pump();
}

TEST_F(get_events, CtrlYShowsWhatIsLeft) {
    field->Text(u"abc");
    enter();
    const auto whole = desk.look(field->hWnd());
    FieldTest::press(platform::VK_CONTROL, 'Y');
    EXPECT_NE(whole, desk.look(field->hWnd()));
}

TEST_F(get_events, UpAndDownEndASelection) {
    field->MultiLine(true);
    field->Height(900);
    field->Text(u"uno\ndos");
    enter();
    FieldTest::press(platform::VK_SHIFT, platform::VK_RIGHT);
    ASSERT_EQ(1, field->SelLength());
    press(platform::VK_DOWN);
    EXPECT_EQ(0, field->SelLength());
}

TEST_F(get_events, TabIsWatchedWhenTheHostMovesTheFocus) {
    short watched = 0, shifted = -1;
    field->KeyWatch.join([&](short& code, short& shift) {
        watched = code;
        shifted = shift;
    });
    enter();
    leave();
    EXPECT_EQ(platform::VK_TAB, watched);
    EXPECT_EQ(0, shifted);
    FieldTest::press(platform::VK_SHIFT, platform::VK_TAB);
    FieldTest::press(platform::VK_SHIFT, platform::VK_TAB);
    EXPECT_EQ(1, shifted);
    EXPECT_EQ(tslForwardFocus_Backward, field->IsForwarding());
}

TEST_F(get_events, KeyPressCanKeepACharacterOut) {
    field->KeyPress.join([](short& code) {
        if (code == 'b') code = 0;
        if (code == 'c') code = 'x';
        if (code == 'd') code = -1;
    });
    enter();
    type(u"abcd");
    EXPECT_EQ("ax", text());
}

TEST_F(get_events, ATextThatAKeyPressHandlerWritesMayLeaveNoRoom) {
    field->MaxLength(5);
    field->KeyPress.join([this](short&) { field->Text(u"abcde"); });
    enter();
    type(u"x");
    EXPECT_EQ("abcde", text());
}

TEST_F(get_events, ACharacterOverwritesTheMaskedTextThatItsHandlerWrote) {
    field->Mascara(u"##/##");
    field->KeyPress.join([this](short&) { field->Text(u"12/34"); });
    enter();
    type(u"9");
    EXPECT_EQ("92/34", text());
    field->SetCaretPosition(4);
    type(u"9");
    EXPECT_EQ("12/39", text());
}

TEST_F(get_events, TheGateSwallowsKeysAndMouse) {
    field->Text(u"abc");
    enter();
    const auto note = [this](short&, short&) { events += "key"; };
    const auto noteMouse = [this](short&, short&, float&, float&) { events += "mouse"; };
    field->KeyWatch.join(note);
    field->KeyDown.join(note);
    field->KeyUp.join(note);
    field->MouseDown.join(noteMouse);
    field->MouseMove.join(noteMouse);
    field->MouseUp.join(noteMouse);
    field->Click.join([this] { events += "click"; });
    field->DblClick.join([this] { events += "double"; });
    field->EventsEnabled(false);
    type(u"x");
    press(platform::VK_END);
    click(20);
    desk.doubleClick(at(20, 8));
    desk.pump();
    field->EventsEnabled(true);
    EXPECT_EQ("", events);
    EXPECT_EQ("abc", text());
    EXPECT_EQ(0, field->caretPosition());
    EXPECT_EQ(0, field->SelLength());
}

TEST_F(get_events, AKeyThatComesWhileAnotherIsWatchedIsSwallowed) {
    field->Text(u"abc");
    enter();
    int watched = 0;
    field->KeyWatch.join([&](short&, short&) {
        if (++watched > 1) return;
        desk.strikeKey(platform::VK_END);
        desk.pump();
    });
    press(platform::VK_RIGHT);
    EXPECT_EQ(1, watched);
    EXPECT_EQ(1, field->caretPosition());
}

TEST_F(get_events, InsertTellsTheKeyboardTheModeOfTheField) {
    field->Mascara(u"##");
    enter();
    press(platform::VK_INSERT);
    EXPECT_FALSE(globales().oKeyboard->InsertState()) << "masked text is overwritten";
    leave();
    press(platform::VK_INSERT);
    EXPECT_FALSE(globales().oKeyboard->InsertState());
    before->TipoDato(tslTipoDatoFecha);
    before->Extender().SetFocus();
    EXPECT_FALSE(globales().oKeyboard->InsertState()) << "and dates";
    after->Extender().SetFocus();
    EXPECT_TRUE(globales().oKeyboard->InsertState()) << "not a plain text";
    after->TipoDato(tslTipoDatoNumero);
    press(platform::VK_INSERT);
    EXPECT_TRUE(globales().oKeyboard->InsertState()) << "numbers are typed into";
    press(platform::VK_INSERT);
    EXPECT_TRUE(globales().oKeyboard->InsertState());
}

TEST_F(get_events, ButtonsActWhenTheyAreReleased) {
    allButtons();
    click(button(2));
    EXPECT_EQ("combo!", events);
    click(button(1));
    click(button(0));
    EXPECT_EQ("combo!searchrecord", events);
    EXPECT_TRUE(field->HasFocus());
}

TEST_F(get_events, AButtonBeginsBehindTheTextAndEndsBeforeTheBorder) {
    allButtons();
    field->BotonBuscar(false);
    field->BotonFicha(false);
    constexpr int border = 3; // pixels behind the last button
    const int first = width() - border - field->ButtonWidth(), last = width() - border - 1;
    for (const int x : {first - 1, last + 1, width() - 1}) {
        click(x);
        EXPECT_EQ("", events) << x;
    }
    for (const int x : {first, last})
        click(x);
    EXPECT_EQ("combo!combo!", events);
}

TEST_F(get_events, TheRightMouseButtonPressesTheListOnly) {
    allButtons();
    click(button(1), 8, platform::VK_RBUTTON);
    click(button(0), 8, platform::VK_RBUTTON);
    EXPECT_EQ("", events);
}

TEST_F(get_events, APressedButtonShowsWhetherThePointerIsOverIt) {
    allButtons();
    enter();
    const auto plain = desk.look(field->hWnd());
    desk.moveMouse(at(button(1), 8));
    desk.pressButton();
    desk.pump();
    const auto pressed = desk.look(field->hWnd());
    EXPECT_NE(plain, pressed);
    for (const auto outside : {at(button(1), 60), at(button(1), -20), at(button(0), 8)}) {
        desk.moveMouse(outside);
        desk.pump();
        EXPECT_EQ(plain, desk.look(field->hWnd()));
        desk.moveMouse(at(button(1), 8));
        desk.pump();
        EXPECT_EQ(pressed, desk.look(field->hWnd()));
    }
    desk.moveMouse(at(button(1), 60));
    desk.releaseButton();
    desk.pump();
    EXPECT_EQ("", events) << "below it";
}

TEST_F(get_events, AButtonOfAFieldThatIsResizedIsLetGo) {
    allButtons();
    desk.moveMouse(at(button(1), 8));
    desk.pressButton();
    desk.pump();
    field->Width(field->Width() + 300);
    desk.releaseButton();
    desk.pump();
    EXPECT_EQ("", events);
}

TEST_F(get_events, TheMouseWaitsWhileAButtonsEventRuns) {
    field->Text(u"abcdef");
    allButtons();
    std::int32_t caret = -1;
    field->EVBuscar.join([&] {
        click(20);
        click(button(2));
        FieldTest::press(platform::VK_MENU, platform::VK_DOWN);
        caret = field->caretPosition();
    });
    click(button(1));
    EXPECT_EQ("search", events);
    EXPECT_EQ(0, caret);
}

TEST_F(get_events, AButtonThatThePointerHasLeftDoesNotAct) {
    allButtons();
    desk.moveMouse(at(button(1), 8));
    desk.pressButton();
    desk.moveMouse(at(10, 8));
    desk.releaseButton();
    desk.pump();
    EXPECT_EQ("", events);
    desk.advance(1000);
    desk.moveMouse(at(button(1), 8));
    desk.pressButton();
    desk.moveMouse(at(10, 8));
    desk.pump();
    desk.moveMouse(at(button(1), 8));
    desk.releaseButton();
    desk.pump();
    EXPECT_EQ("search", events) << "it came back";
}

TEST_F(get_events, ADisabledButtonDoesNotAct) {
    allButtons();
    field->EnabledBuscar(false);
    click(button(1));
    EXPECT_EQ("", events);
    EXPECT_TRUE(before->HasFocus()) << "it gives the focus back";
}

TEST_F(get_events, TheRightButtonOnTheListClearsTheField) {
    allButtons();
    field->Text(u"abc");
    click(button(2), 8, platform::VK_RBUTTON);
    EXPECT_EQ("combo!", events);
    EXPECT_EQ("", text());
    field->Text(u"abc");
    field->Locked(true);
    click(button(2), 8, platform::VK_RBUTTON);
    EXPECT_EQ("abc", text());
    field->Locked(false);
    field->EnabledGet(false);
    click(button(2), 8, platform::VK_RBUTTON);
    EXPECT_EQ("abc", text()) << "it is not to be edited";
    field->EnabledGet(true);
    field->TipoDato(tslTipoDatoFecha);
    field->Text(u"14/03/2026");
    click(button(2), 8, platform::VK_RBUTTON);
    EXPECT_EQ("14/03/2026", text()) << "a date is chosen anew";
}

TEST_F(get_events, AClearedNumberIsZeroWithTheCaretInFrontOfIt) {
    allButtons();
    field->TipoDato(tslTipoDatoNumero);
    field->Mascara(u"##0.00");
    field->Value(std::int32_t{5});
    enter();
    press(platform::VK_END);
    FieldTest::press(platform::VK_SHIFT, platform::VK_LEFT);
    click(button(2), 8, platform::VK_RBUTTON);
    EXPECT_EQ("0,00", text());
    EXPECT_EQ(0, field->caretPosition());
    EXPECT_EQ(0, field->SelLength());
}

TEST_F(get_events, ClicksOnAFieldNotToBeEditedAreNotTold) {
    field->EnabledGet(false);
    show();
    field->Click.join([this] { events += "click"; });
    field->DblClick.join([this] { events += "double"; });
    click(20);
    desk.doubleClick(at(20, 8));
    desk.pump();
    EXPECT_EQ("", events);
}

TEST_F(get_events, APressOnAFieldNotToBeEditedPutsItsCaretAtTheStart) {
    field->Text(u"abc");
    enter();
    press(platform::VK_END);
    leave();
    field->EnabledGet(false);
    ASSERT_EQ(3, field->caretPosition());
    click(20);
    EXPECT_EQ(0, field->caretPosition());
    EXPECT_TRUE(after->HasFocus());
}

TEST_F(get_events, APressOnAFieldNotToBeEditedShowsItsFormWhenAnotherHasTheFocus) {
    show();
    field->EnabledGet(false);
    const auto other = automation::make<host::Form>(u"Form2");
    other->Move(9500, 0, 3000, 3000);
    get& elsewhere = other->add<get>(u"get3");
    other->Show();
    desk.pump();
    ASSERT_TRUE(elsewhere.HasFocus());
    click(20);
    EXPECT_FALSE(elsewhere.HasFocus());
    EXPECT_TRUE(before->HasFocus()) << "where the focus was on this form";
    other->unload();
}

TEST_F(get_events, AButtonOfAFieldNotToBeEditedWorksAndTakesTheFocusBack) {
    allButtons();
    field->EnabledGet(false);
    field->EVBuscar.join([this] { after->Extender().SetFocus(); });
    ASSERT_TRUE(before->HasFocus());
    click(button(1));
    EXPECT_EQ("search", events);
    EXPECT_TRUE(field->HasFocus());
    EXPECT_EQ(field->hWND(), globales().nHWndFocus);
}

TEST_F(get_events, AnErrorInAButtonsEventLeavesTheCaret) {
    field->BotonBuscar(true);
    field->Text(u"abc");
    field->EVBuscar.join([] { automation::throwError(automation::errors::Overflow); });
    enter();
    EXPECT_EQ(6, tests::errorOf([&] { FieldTest::press(platform::VK_MENU, platform::VK_RIGHT); }));
    desk.pump();
    press(platform::VK_END);
    platform::POINT caret{};
    platform::GetCaretPos(&caret);
    EXPECT_GT(caret.x, 10);
}

TEST_F(get_events, TheFieldTakesTheFocusBackUnlessItIsToldNotTo) {
    allButtons();
    bool keeps = false;
    field->EVBuscar.join([&] {
        after->Extender().SetFocus();
        if (keeps) field->NoReclamarFocus();
    });
    click(button(1));
    EXPECT_TRUE(field->HasFocus());
    keeps = true;
    click(button(1));
    EXPECT_TRUE(after->HasFocus());
    keeps = false;
    click(button(1));
    EXPECT_TRUE(field->HasFocus()) << "that was for one press";
}

TEST_F(get_events, KeysAskFirstAndThenAct) {
    std::string asked;
    field->KeySearch.join([&](bool& cancel, bool& checkOnly) {
        asked += checkOnly ? "?" : "!";
        cancel = false;
    });
    field->Text(u"abc");
    enter();
    FieldTest::press(platform::VK_MENU, platform::VK_RIGHT);
    EXPECT_EQ("?!", asked);
    EXPECT_EQ(0, field->caretPosition()) << "the key is used up";
}

TEST_F(get_events, AClickPutsTheCaretBetweenTheNearestCharacters) {
    field->Text(u"iiiiiiiiii");
    enter();
    click(3);
    EXPECT_EQ(0, field->caretPosition());
    click(width() - 8);
    EXPECT_EQ(10, field->caretPosition());
    click(13);
    const int near = field->caretPosition();
    click(20);
    EXPECT_LT(0, near);
    EXPECT_LT(near, field->caretPosition());
}

TEST_F(get_events, TheClickThatBringsTheFocusToAMovedTextPutsTheCaretAtItsStart) {
    field->TipoDato(tslTipoDatoNumero);
    field->Mascara(u"##,##0");
    field->Text(u"12345");
    show();
    click(width() - 8);
    EXPECT_TRUE(field->HasFocus());
    EXPECT_EQ(0, field->caretPosition()) << "the text lay at the right until then";
    EXPECT_EQ(0, field->SelLength()) << "the mouse selects by itself";
    click(25);
    EXPECT_LT(0, field->caretPosition());
}

TEST_F(get_events, TheCaretStaysInTheLineThatUpAndDownAndTheMouseChoose) {
    // Three lines, the middle one shorter: from 0, from 30 and from 39
    field->MultiLine(true);
    field->AutoSize(tslAutoSize_NO);
    field->Height(1200);
    field->Text(u"aaaaaaaaaaaaaaaaaaaaaaaaaaaaa bbbbbbbb aaaaaaaaaaaaaaaaaaaaaaaaaaaaa");
    enter();
    field->SetCaretPosition(20);
    press(platform::VK_DOWN);
    EXPECT_EQ(38, field->caretPosition()) << "the end of the short line";
    press(platform::VK_DOWN);
    EXPECT_NEAR(47, field->caretPosition(), 2);
    press(platform::VK_END);
    press(platform::VK_UP);
    EXPECT_EQ(38, field->caretPosition());
    press(platform::VK_UP);
    EXPECT_NEAR(8, field->caretPosition(), 2);
    platform::POINT caret{};
    platform::GetCaretPos(&caret);
    field->SetCaretPosition(30);
    platform::POINT below{};
    platform::GetCaretPos(&below);
    click(width() - 8, below.y + 3);
    EXPECT_EQ(38, field->caretPosition());
    click(width() - 8, caret.y + 3);
    EXPECT_EQ(29, field->caretPosition());
    click(width() - 8, 2 * below.y - caret.y + 3);
    EXPECT_EQ(68, field->caretPosition()) << "the last line has its end for itself";
}

TEST_F(get_events, DraggingSelectsPastTheEdgesToo) {
    field->Text(u"abcdefghij");
    enter();
    desk.moveMouse(at(3, 8));
    desk.pressButton();
    desk.moveMouse(at(width() + 200, 8));
    desk.pump();
    EXPECT_EQ(10, field->SelLength());
    desk.moveMouse(at(-50, 8));
    desk.pump();
    EXPECT_EQ(0, field->SelLength());
    desk.moveMouse(at(width() + 200, 8));
    desk.pump();
    EXPECT_EQ(10, field->SelLength());
    desk.moveMouse(at(width() + 200, -10));
    desk.pump();
    EXPECT_EQ(0, field->SelLength()) << "above the field is in front of the text";
    desk.moveMouse(at(width() + 200, 300));
    desk.releaseButton();
    desk.pump();
    EXPECT_EQ(10, field->SelLength());
}

TEST_F(get_events, ADoubleClickSelectsAWord) {
    field->Text(u"uno dos tres");
    enter();
    desk.doubleClick(at(30, 8));
    desk.pump();
    const auto selected = field->Text().substring(static_cast<std::size_t>(field->SelStart()),
                                                  static_cast<std::size_t>(field->SelLength()));
    EXPECT_EQ("dos", selected.utf8());
    EXPECT_EQ(7, field->caretPosition()) << "behind the word";
}

TEST_F(get_events, ADoubleClickLeavesWhatIsSelected) {
    field->Text(u"uno dos tres");
    enter();
    field->DblClick.join([this] { field->SelLength(1); });
    desk.doubleClick(at(30, 8));
    desk.pump();
    EXPECT_EQ(1, field->SelLength());
}

TEST_F(get_events, AFieldThatIsNotToBeEditedLeavesTheFocusWhereItIs) {
    field->EnabledGet(false);
    show();
    click(10);
    EXPECT_TRUE(before->HasFocus());
    EXPECT_FALSE(field->HasFocus());
    press(platform::VK_TAB);
    EXPECT_TRUE(after->HasFocus()) << "Tab passes it by";
    field->SetFocusIfEnabled();
    EXPECT_TRUE(after->HasFocus());
    field->EnabledGet(true);
    field->SetFocusIfEnabled();
    EXPECT_TRUE(field->HasFocus());
}

TEST_F(get_events, AnotherControlMayClaimTheFocusThatTheFieldGets) {
    show();
    field->SetFocusToCtl(automation::Ref<automation::Object>(after));
    EXPECT_EQ(after->hWND(), globales().nHWndReclamar);
    enter();
    EXPECT_TRUE(after->HasFocus());
    EXPECT_FALSE(field->HasFocus());
}

TEST_F(get_events, WithoutAControlBeforeThereIsNoneToGoBackTo) {
    show();
    globales().nHWndFocus = globales().nHWndFocusPrev = 0;
    field->CtrlFocus(0);
    desk.pump();
    EXPECT_TRUE(before->HasFocus());
    EXPECT_EQ(0, globales().nHWndFocus);
}

TEST_F(get_events, DirectionsAreNotedThoughTheKeyIsCancelled) {
    field->KeyWatch.join([](short& code, short&) { code = 0; });
    enter();
    for (const auto& [key, direction] : {std::pair(platform::VK_UP, tslForwardFocus_Backward),
                                         {platform::VK_DOWN, tslForwardFocus_Forward},
                                         {platform::VK_UP, tslForwardFocus_Backward},
                                         {platform::VK_RETURN, tslForwardFocus_Forward}}) {
        press(key);
        EXPECT_EQ(direction, field->IsForwarding()) << key;
        EXPECT_TRUE(field->HasFocus());
    }
    press(platform::VK_CONTROL, platform::VK_UP);
    EXPECT_EQ(tslForwardFocus_Forward, field->IsForwarding()) << "with Ctrl it is no direction";
    press(platform::VK_UP);
    press(platform::VK_CONTROL, platform::VK_DOWN);
    EXPECT_EQ(tslForwardFocus_Backward, field->IsForwarding()) << "nor this one";
    press(platform::VK_DOWN);
    desk.pressKey(platform::VK_CONTROL);
    FieldTest::press(platform::VK_SHIFT, platform::VK_TAB);
    desk.releaseKey(platform::VK_CONTROL);
    EXPECT_EQ(tslForwardFocus_Forward, field->IsForwarding()) << "nor with Ctrl and Shift";
    FieldTest::press(platform::VK_SHIFT, platform::VK_TAB);
    EXPECT_EQ(tslForwardFocus_Backward, field->IsForwarding());
    leave();
    EXPECT_TRUE(field->HasFocus());
    leave();
    EXPECT_EQ(tslForwardFocus_Forward, field->IsForwarding());
}

TEST_F(get_events, AFieldNotToBeEditedIsPassedInTheDirectionOfTheFocus) {
    // As applications do it: what gets the focus passes it on.
    field->Extender().GotFocus.join([this] {
        if (field->EnabledGet()) return;
        (before->IsForwarding() == tslForwardFocus_Forward ? after : before)->Extender().SetFocus();
    });
    field->EnabledGet(false);
    field->Extender().TabStop(true);
    show();
    press(platform::VK_TAB);
    EXPECT_TRUE(after->HasFocus());
    field->SetFocusIfEnabled();
    EXPECT_TRUE(after->HasFocus()) << "refused";
    field->SetFocusIfEnabled(Variant(static_cast<automation::Object*>(before)));
    EXPECT_TRUE(before->HasFocus()) << "the control that is given instead";
    field->SetFocusIfEnabled(Variant::missing(), Variant(after->hWND()));
    EXPECT_TRUE(after->HasFocus()) << "the window that had it";
}

TEST_F(get_events, KeyAddIsAskedAndThenDone) {
    std::string asked;
    bool supported = false;
    field->KeyAdd.join([&](bool& cancel, bool& checkOnly, bool add) {
        asked += checkOnly ? "?" : "!";
        asked += add ? "+" : "-";
        EXPECT_TRUE(!checkOnly || cancel);
        cancel = !supported;
    });
    int down = 0;
    field->KeyDown.join([&](short& code, short&) { down += code != platform::VK_MENU; });
    enter();
    FieldTest::press(platform::VK_MENU, platform::VK_ADD);
    EXPECT_EQ("?+", asked);
    EXPECT_EQ(1, down) << "not supported: the key is the application's";
    supported = true;
    const auto shown = desk.look(field->hWnd());
    field->GlobalCtlCfg(tslCtlGlobalCfg_Get_FocusBackColor, Variant(std::int32_t{0x40C0E0}));
    FieldTest::press(platform::VK_MENU, platform::VK_ADD);
    FieldTest::press(platform::VK_MENU, platform::VK_SUBTRACT);
    EXPECT_EQ("?+?+!+?-!-", asked);
    EXPECT_NE(shown, desk.look(field->hWnd())) << "it is painted anew";
    EXPECT_EQ(1, down) << "the keys are used up";
    EXPECT_EQ("", text());
}

TEST_F(get_events, KeyViewFormIsAskedAndThenDone) {
    std::string asked;
    bool released = false;
    field->KeyViewForm.join([&](bool& cancel, bool& checkOnly) {
        asked += checkOnly ? "?" : "!";
        if (!checkOnly) {
            host::DoEvents();
            released = !globales().oKeyboard->KeyPressed(platform::VK_MENU);
        }
        cancel = false;
    });
    enter();
    desk.pressKey(platform::VK_MENU);
    desk.strikeKey(platform::VK_RETURN);
    desk.pump();
    desk.releaseKey(platform::VK_MENU);
    EXPECT_EQ("?!", asked);
    EXPECT_TRUE(released) << "before it acts";
    EXPECT_TRUE(field->HasFocus());
    desk.pump();
    EXPECT_FALSE(globales().oKeyboard->KeyPressed(platform::VK_MENU));
}

TEST_F(get_events, AltDownPressesTheCoupledButton) {
    const auto coupled = automation::make<CoupledButton>();
    field->ControlAsociado(coupled);
    int down = 0;
    field->KeyDown.join([&](short& code, short&) { down += code == platform::VK_DOWN; });
    enter();
    desk.pressKey(platform::VK_MENU);
    desk.strikeKey(platform::VK_DOWN);
    desk.pump();
    desk.releaseKey(platform::VK_MENU);
    desk.pump();
    EXPECT_EQ(1, coupled->presses);
    EXPECT_TRUE(coupled->released) << "it lets go of Alt first";
    coupled->enabled = false;
    FieldTest::press(platform::VK_MENU, platform::VK_DOWN);
    EXPECT_EQ(1, coupled->presses);
    EXPECT_EQ(0, down) << "the key is used up";
    field->ControlAsociado(automation::Ref<automation::Object>(automation::make<Companion>().get()));
    FieldTest::press(platform::VK_MENU, platform::VK_DOWN);
    EXPECT_EQ(1, down) << "what is no button is not pressed";
}

TEST_F(get_events, AFurtherGotFocusOfTheSameVisitKeepsWhatTheFirstFound) {
    field->Text(u"uno");
    enter();
    type(u"x");
    // The window gets the focus anew, of which the field wasn't told that it had gone.
    field->ControlAsociado(automation::Ref<automation::Object>(automation::make<cFecha>().get()));
    after->Extender().SetFocus();
    ASSERT_TRUE(field->HasFocus()) << "its companion's error ended what is done when the focus goes";
    field->ControlAsociado({});
    const auto previous = globales().nHWndFocusPrev;
    field->Extender().SetFocus();
    EXPECT_EQ(previous, globales().nHWndFocusPrev);
    EXPECT_TRUE(field->HasChanged()) << "against the text of the first time";
}

TEST_F(get_events, AClickBehindAMinusOfAMaskGoesInFrontOfIt) {
    field->Mascara(u"##-##");
    field->Text(u"12-34");
    int clicks = 0;
    field->Click.join([&] { ++clicks; });
    enter();
    field->MouseDown.join([this](short&, short&, float&, float&) { field->PreserveCaretPos(); });
    field->MouseUp.join([this](short&, short&, float&, float&) { field->SetCaretPosition(3); });
    click(10);
    EXPECT_EQ(1, clicks);
    EXPECT_EQ(2, field->caretPosition());
}

TEST_F(get_events, AClickBehindTheMinusOfANumberWithAMaskGoesInFrontOfIt) {
    field->TipoDato(tslTipoDatoNumero);
    field->Mascara(u"##0");
    field->MascaraFocus(u"##0");
    field->Text(u"-5");
    enter();
    ASSERT_EQ(u"-5", field->Text());
    field->MouseUp.join([this](short&, short&, float&, float&) { field->SetCaretPosition(1); });
    click(10);
    EXPECT_EQ(0, field->caretPosition());
}

TEST_F(get_events, TheCaretOfADateStandsBesideItsSeparators) {
    field->TipoDato(tslTipoDatoFecha);
    field->Text(u"14/03/2026");
    enter();
    for (const auto& [wanted, stands] : {std::pair(2, 3), {5, 6}, {4, 4}, {0, 0}}) {
        field->SetCaretPosition(wanted);
        EXPECT_EQ(stands, field->caretPosition());
    }
}

TEST_F(get_events, AClickOnASeparatorOfADateGoesInFrontOfIt) {
    field->TipoDato(tslTipoDatoFecha);
    field->Text(u"14/03/2026");
    enter();
    std::vector<int> places;
    constexpr int apart = 12; // pixels, too far for a double click
    for (int first = 3; first < 3 + apart; first += 2)
        for (int x = first; x < width() - 4; x += apart) {
            desk.click(at(x, 8));
            desk.pump();
            places.push_back(field->caretPosition());
        }
    EXPECT_EQ(0, std::count(places.begin(), places.end(), 2) + std::count(places.begin(), places.end(), 5));
    EXPECT_LT(0, std::count(places.begin(), places.end(), 1));
}

TEST_F(get_events, CtrlInsertThatAHandlerTakesLeavesTheMode) {
    field->KeyWatch.join([](short& code, short& shift) {
        if (code == platform::VK_INSERT && shift == host::CtrlMask) code = 0;
    });
    field->Text(u"abc");
    enter();
    EXPECT_TRUE(globales().oKeyboard->InsertState());
    FieldTest::press(platform::VK_CONTROL, platform::VK_INSERT);
    EXPECT_TRUE(globales().oKeyboard->InsertState());
    press(platform::VK_INSERT);
    EXPECT_FALSE(globales().oKeyboard->InsertState());
    type(u"X");
    EXPECT_EQ("Xbc", text());
}

TEST_F(get_events, APreservedCaretIsKeptForOneVisit) {
    field->Text(u"abc");
    enter();
    press(platform::VK_END);
    leave();
    field->PreserveCaretPos();
    field->Extender().SetFocus();
    EXPECT_EQ(3, field->caretPosition());
    after->Extender().SetFocus();
    field->Extender().SetFocus();
    EXPECT_EQ(0, field->caretPosition());
}

TEST_F(get_events, ACaretThatWasHiddenIsShownWhereTheTextIs) {
    field->Text(u"abc");
    enter();
    platform::POINT first{}, last{};
    platform::GetCaretPos(&first);
    field->CaretVisible(false);
    press(platform::VK_END);
    field->CaretVisible(true);
    platform::GetCaretPos(&last);
    EXPECT_GT(last.x, first.x);
}

TEST_F(get_events, TheCaretStandsWhereTheTextIs) {
    field->Text(u"abc");
    enter();
    platform::POINT first{}, last{};
    platform::GetCaretPos(&first);
    press(platform::VK_END);
    platform::GetCaretPos(&last);
    EXPECT_GT(last.x, first.x);
    EXPECT_EQ(first.y, last.y);
}

TEST_F(get_events, SetCaretPositionKeepsToTheText) {
    field->Mascara(u"##/##");
    enter();
    field->SetCaretPosition(3);
    EXPECT_EQ(3, field->caretPosition());
    field->SetCaretPosition(2);
    field->SetCaretPosition(6);
    field->SetCaretPosition(-1);
    EXPECT_EQ(3, field->caretPosition()) << "a literal and what lies outside are refused";
    leave();
    field->SetCaretPosition(0);
    EXPECT_EQ(3, field->caretPosition()) << "without the focus too";
}

TEST_F(get_events, TheOnScreenKeyboardTypes) {
    enter();
    field->ProcesarTeclaFromOnScreenKeyboard(u"ñ", 0, 0);
    field->ProcesarTeclaFromOnScreenKeyboard(u"a", 0, host::ShiftMask);
    EXPECT_EQ("ña", text());
    field->ProcesarTeclaFromOnScreenKeyboard({}, platform::VK_LEFT, 0);
    EXPECT_EQ(1, field->caretPosition());
    field->ProcesarTeclaFromOnScreenKeyboard({}, platform::VK_TAB, 0);
    desk.pump();
    EXPECT_TRUE(after->HasFocus());
}

TEST_F(get_events, TheOnScreenKeyboardPlaysRealKeysWithShiftCtrlAndAlt) {
    field->Text(u"abc");
    show();
    field->ProcesarTeclaFromOnScreenKeyboard({}, platform::VK_RIGHT, host::ShiftMask);
    desk.pump();
    EXPECT_TRUE(field->HasFocus());
    EXPECT_EQ(1, field->SelLength());
    EXPECT_FALSE(globales().oKeyboard->KeyPressed(platform::VK_SHIFT));
    field->ProcesarTeclaFromOnScreenKeyboard({}, platform::VK_END, host::ShiftMask | host::CtrlMask);
    desk.pump();
    EXPECT_EQ(3, field->SelLength());
    EXPECT_FALSE(globales().oKeyboard->KeyPressed(platform::VK_CONTROL));
    for (const auto shift : {host::AltMask, host::CtrlMask}) {
        field->ProcesarTeclaFromOnScreenKeyboard(u"k", 'K', shift);
        desk.pump();
    }
    EXPECT_EQ("abc", text()) << "a character with Ctrl or Alt is a command";
}

TEST_F(get_events, TheOnScreenKeyboardsKeysGoDownAndUp) {
    enter();
    field->KeyWatch.join([this](short&, short&) { events += "watch "; });
    field->KeyUp.join([this](short& code, short&) { events += "up" + std::to_string(code); });
    field->ProcesarTeclaFromOnScreenKeyboard({}, platform::VK_LEFT, 0);
    EXPECT_EQ("watch up37", events);
}

TEST_F(get_events, TheOnScreenKeyboardFindsTheCaretWhereItWas) {
    field->Text(u"abc");
    field->Seleccionado(tslSeleccionadoSiempre);
    enter();
    press(platform::VK_END);
    leave();
    field->ProcesarTeclaFromOnScreenKeyboard({}, -1, 0);
    desk.pump();
    EXPECT_TRUE(field->HasFocus());
    EXPECT_EQ(3, field->caretPosition());
    EXPECT_EQ(0, field->SelLength());
}

TEST_F(get_events, AWalkOntoTheOnScreenKeyboardsFieldPutsTheCaretInFront) {
    field->Text(u"abc");
    for (const int key : {platform::VK_RETURN, platform::VK_TAB, platform::VK_UP, platform::VK_DOWN}) {
        enter();
        press(platform::VK_END);
        leave();
        globales().oKeyboard->KeyPressed(key, true);
        field->ProcesarTeclaFromOnScreenKeyboard({}, -1, 0);
        EXPECT_EQ(0, field->caretPosition()) << key;
        globales().oKeyboard->KeyPressed(key, false);
        desk.pump();
        before->Extender().SetFocus();
        desk.pump();
    }
}

TEST_F(get_events, TheFieldIsTidiedAfterTheOnScreenKeyboardToo) {
    show();
    field->ProcesarTeclaFromOnScreenKeyboard({}, -1, 0);
    desk.pump();
    type(u"  uno");
    leave();
    EXPECT_EQ("uno", text());
}

TEST_F(get_events, TheOnScreenKeyboardOverwritesInAMask) {
    field->Mascara(u"##/##");
    field->SetText(u"12/34");
    field->ProcesarTeclaFromOnScreenKeyboard(u"9", 0, 0);
    EXPECT_EQ("92/34", text());
}

TEST_F(get_events, AKeyPressesNoButtonOfAFieldThatItsHandlerDisables) {
    allButtons();
    enter();
    field->KeyWatch.join([this](short& code, short&) { field->Enabled(code != platform::VK_DOWN); });
    press(platform::VK_MENU, platform::VK_DOWN);
    EXPECT_EQ("", events);
}

TEST_F(get_events, AFieldWithoutTheFocusLeavesTheCaretOfAnotherAlone) {
    after->Text(u"abcdef");
    enter();
    // It leaves the field before it has done with the caret.
    field->ControlAsociado(automation::Ref<automation::Object>(automation::make<cFecha>().get()));
    leave();
    press(platform::VK_END);
    platform::POINT placed{}, seen{};
    platform::GetCaretPos(&placed);
    field->Text(u"otro");
    platform::GetCaretPos(&seen);
    EXPECT_EQ(placed, seen);
}

TEST_F(get_events, AnApplicationSeesThePointThatACommaOfANumberStandsFor) {
    std::string seen;
    field->TipoDato(tslTipoDatoNumero);
    field->Mascara(u"##0.00");
    field->KeyPress.join([&](short& code) { seen += static_cast<char>(code); });
    enter();
    type(u"1,5");
    EXPECT_EQ("1.5", seen);
    EXPECT_EQ("1,5", text());
}

TEST_F(get_events, AMaskDerivedAtTheFirstDigitMayShortenTheText) {
    field->TipoDato(tslTipoDatoNumero);
    field->Mascara(u".000");
    field->Mascara({});
    field->MaxLength(6);
    enter();
    field->SetText(u"abc def 12");
    press(platform::VK_END);
    type(u"3");
    EXPECT_EQ("123", text());
    EXPECT_EQ(3, field->caretPosition());
}

TEST_F(get_events, AFieldSaysWhetherItMovesTheFocusItself) {
    bool itself = false;
    field->Extender().LostFocus.join([&] { itself = field->IsGoingToChangeFocus(); });
    show();
    for (const int key : {platform::VK_RETURN, platform::VK_DOWN, platform::VK_UP}) {
        itself = false;
        field->Extender().SetFocus();
        press(key);
        EXPECT_TRUE(itself) << key;
        EXPECT_FALSE(field->IsGoingToChangeFocus()) << "the next field has got it";
    }
    field->Extender().SetFocus();
    leave();
    EXPECT_FALSE(itself) << "the form's Tab";
}

TEST_F(get_events, ThePointerIsABeamOverTheText) {
    field->BotonCombo(true);
    show();
    std::vector<std::int32_t> seen;
    field->MouseMove.join([&](short&, short&, float&, float&) { seen.push_back(field->MousePointer()); });
    for (const int x : {10, button(0), 12}) {
        desk.moveMouse(at(x, 8));
        desk.pump();
    }
    constexpr std::int32_t beam = 3, usual = 0;
    EXPECT_EQ((std::vector<std::int32_t>{beam, usual, beam}), seen);
    seen.clear();
    desk.pressButton();
    desk.moveMouse(at(button(0), 8));
    desk.releaseButton();
    desk.pump();
    EXPECT_EQ((std::vector<std::int32_t>{beam}), seen) << "while it selects";
}

TEST_F(get_events, AClickOnAMaskedTextGoesToItsStart) {
    field->Mascara(u"####");
    field->Text(u"1234");
    enter();
    press(platform::VK_END);
    click(20);
    EXPECT_EQ(0, field->caretPosition());
    EXPECT_EQ(0, field->SelLength());
}

TEST_F(get_events, EventsAreCountedWhileTheyRun) {
    std::vector<std::int32_t> counts;
    field->Change.join([&] { counts.push_back(field->UncompletedEvents()); });
    field->KeyPress.join([&](short&) { counts.push_back(field->UncompletedEvents()); });
    enter();
    type(u"a");
    EXPECT_EQ((std::vector<std::int32_t>{1, 1}), counts);
    EXPECT_EQ(0, field->UncompletedEvents());
}

TEST_F(get_events, ADoubleClickSelectsNothingInAMask) {
    field->Mascara(u"XXXX");
    field->Text(u"uno");
    int clicks = 0;
    field->DblClick.join([&] { ++clicks; });
    enter();
    desk.doubleClick(at(12, 8));
    desk.pump();
    EXPECT_EQ(1, clicks);
    EXPECT_EQ(0, field->SelLength());
}

TEST_F(get_events, WhatNoLetterShowsIsNotPasted) {
    enter();
    host::Clipboard::Clear();
    host::Clipboard::SetText(u"a\x2603"
                             u"b\x20AC\xF1\x4E2D");
    FieldTest::press(platform::VK_CONTROL, 'V');
    EXPECT_EQ("b€ñ", text().substr(1));
    EXPECT_EQ(4, field->caretPosition());
}

TEST_F(get_events, AHandlerMayRemoveTheField) {
    enter();
    field->KeyPress.join([this](short&) { form->remove(*field); });
    desk.type(u"a");
    desk.pump();
    EXPECT_EQ(nullptr, form->find(u"get1"));
}

TEST_F(get_events, AHeldPaintWaitsForItsEnd) {
    show();
    int paints = 0;
    field->UserDrawnMode(tslCtlUserDrawnMode_Foreground);
    field->UserDrawn.join([&](automation::Ref<cCanvas>&) { ++paints; });
    field->BeginRefresh();
    field->EndRefresh();
    EXPECT_EQ(0, paints) << "nothing was changed";
    field->BeginRefresh();
    field->Text(u"uno");
    field->BackColor(0xFF);
    EXPECT_EQ(0, paints);
    field->EndRefresh();
    EXPECT_EQ(1, paints);
}

TEST_F(get_events, BandsArePaintedInTheBackgroundOnly) {
    field->PaintHGradient();
    field->UserDrawnMode(tslCtlUserDrawnMode_Background);
    field->MaxLength(10);
    int paints = 0;
    field->PaintBackground.join([&](automation::Ref<cCanvas>& canvas) {
        ++paints;
        field->PaintHGradient(3, 0x0000FF, 0x00FF00);
        EXPECT_EQ(0x0000FF, canvas->GetPixel(1, 1));
    });
    show();
    field->Render();
    EXPECT_GT(paints, 0);
}

TEST_F(get_events, NoBandsWithoutTheBackgroundsEventOrALength) {
    field->Text({});
    field->MaxLength(10);
    show();
    const auto plain = desk.look(field->hWnd());
    field->PaintHGradient(3, 0x0000FF, 0x00FF00);
    EXPECT_EQ(plain, desk.look(field->hWnd())) << "outside of a paint";
    const auto bands = [this](automation::Ref<cCanvas>&) { field->PaintHGradient(3, 0x0000FF, 0x00FF00); };
    field->UserDrawn.join(bands);
    field->UserDrawnMode(tslCtlUserDrawnMode_Foreground);
    EXPECT_EQ(plain, desk.look(field->hWnd())) << "in the other event";
    field->PaintBackground.join(bands);
    field->UserDrawnMode(tslCtlUserDrawnMode_Background);
    EXPECT_NE(plain, desk.look(field->hWnd()));
    field->MaxLength(0);
    field->Render();
    EXPECT_EQ(plain, desk.look(field->hWnd())) << "without a length";
}

TEST_F(get_events, TheApplicationPaintsAFieldThatIsNotSeenYet) {
    int paints = 0;
    field->UserDrawn.join([&](automation::Ref<cCanvas>&) { ++paints; });
    field->UserDrawnMode(tslCtlUserDrawnMode_Foreground);
    EXPECT_EQ(1, paints);
    field->Text(u"uno");
    EXPECT_EQ(2, paints);
}

TEST_F(get_events, TheApplicationPaintsOnceForALetterThatIsTyped) {
    field->Text({});
    enter();
    field->UserDrawn.join([&](automation::Ref<cCanvas>&) { events += "paint "; });
    field->UserDrawnMode(tslCtlUserDrawnMode_Foreground);
    for (const int key : {static_cast<int>('A'), static_cast<int>(platform::VK_SPACE)}) {
        events.clear();
        press(key);
        EXPECT_EQ("paint ", events) << key;
    }
    EXPECT_EQ(2, field->caretPosition());
    events.clear();
    press(platform::VK_F5);
    EXPECT_EQ("paint ", events) << "a key that types nothing";
}

TEST_F(get_events, TheGaugeGoesOffWithZeros) {
    field->Text({});
    show();
    const auto plain = desk.look(field->hWnd());
    field->AutoPaintGauge(50, 100);
    EXPECT_NE(plain, desk.look(field->hWnd()));
    field->AutoPaintGauge(0, 0);
    EXPECT_EQ(plain, desk.look(field->hWnd()));
    field->PaintGauge(1, 2, true, 1);
    EXPECT_NE(plain, desk.look(field->hWnd()));
    field->Render();
    EXPECT_EQ(plain, desk.look(field->hWnd())) << "that one was painted once";
    field->AutoPaintGauge(50, 100);
    field->PaintGauge(1, 4);
    field->Render();
    EXPECT_EQ(plain, desk.look(field->hWnd())) << "it ends the other";
}

TEST_F(get_events, TheMiddleOfATextLiesOnTheNearestEvenPixel) {
    field->Alignment(tslAlignmentCenter);
    field->BorderStyle(tslBorderStyleNone);
    field->Text(u"I");
    show();
    const auto firstInk = [&] {
        const auto picture = desk.look(field->hWnd());
        for (int x = 0; x < picture.width; ++x)
            for (int y = 4; y < picture.height - 4; ++y)
                if (picture.at(x, y) != picture.at(0, y)) return x;
        return picture.width;
    };
    // As the field grows by a pixel, the middle goes on in steps of 0, 1, 1, 0.
    std::string steps;
    int last = firstInk();
    for (int i = 0; i < 8; ++i) {
        constexpr int twips = 15;
        field->Extender().Width(field->Extender().Width() + twips);
        const int now = firstInk();
        steps += std::to_string(now - last);
        last = now;
    }
    EXPECT_NE(std::string::npos, std::string("01100110011").find(steps)) << steps;
}

TEST_F(get_events, TheGaugeEndsAtTheNearestPixel) {
    constexpr platform::COLORREF red = 0x0000FF;
    field->Text({});
    field->BorderStyle(tslBorderStyleNone);
    show();
    const auto end = [&](double pixels) {
        field->PaintGauge(pixels, width() - 4, false, 0, red);
        const auto picture = desk.look(field->hWnd());
        const auto paper = picture.at(width() - 3, 5);
        int x = 2;
        while (picture.at(x, 5) != paper)
            ++x;
        return x;
    };
    EXPECT_EQ(2 + 20, end(20.4));
    EXPECT_EQ(2 + 21, end(20.67));
}

TEST_F(get_events, AGaugeMayBeBlack) {
    field->Text({});
    show();
    field->PaintGauge(1, 2);
    const auto usual = desk.look(field->hWnd());
    field->PaintGauge(1, 2, false, 0, 0);
    EXPECT_NE(usual, desk.look(field->hWnd()));
}

TEST_F(get_events, BandsAreOfFiveLettersWithoutACountAndEndWithTheLastWholeOne) {
    constexpr host::OLE_COLOR red = 0x0000FF, green = 0x00FF00;
    std::int32_t letters = 5;
    field->MaxLength(10);
    field->PaintBackground.join(
        [&](automation::Ref<cCanvas>&) { field->PaintHGradient(letters, red, green); });
    field->UserDrawnMode(tslCtlUserDrawnMode_Background);
    show();
    const auto five = desk.look(field->hWnd());
    for (const std::int32_t count : {0, -3}) {
        letters = count;
        field->Render();
        EXPECT_EQ(five, desk.look(field->hWnd())) << count;
    }
    letters = 4;
    field->Render();
    const auto four = desk.look(field->hWnd());
    field->MaxLength(8);
    EXPECT_EQ(four, desk.look(field->hWnd())) << "two groups, and two letters without one";
    const auto faded = [&](int y) {
        int last = 0;
        for (int x = 0; x < four.width - 3; ++x)
            if (four.at(x, y) != static_cast<platform::COLORREF>(red)) last = x;
        return last;
    };
    cCanvas& screen = *globales().oCanvasGlobal;
    screen.SelectVBStdFont(field->Font());
    std::int32_t letter = 0, height = 0;
    screen.GetTextExtent(u"0", letter, height);
    constexpr int border = 3;
    EXPECT_GE(border + 8 * letter, faded(8)) << "the rest is flat";
    EXPECT_LT(border + 7 * letter, faded(8));
}

TEST_F(get_events, ThePercentageThrowsAWhiteShadow) {
    field->Text({});
    field->BorderStyle(tslBorderStyleNone);
    show();
    field->PaintGauge(1, 1, true, 0, 0x0000FF);
    const auto picture = desk.look(field->hWnd());
    constexpr platform::COLORREF black = 0, white = 0xFFFFFF;
    int letters = 0;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            if (picture.at(x, y) == black) {
                ++letters;
                const auto below = picture.at(x + 1, y + 1);
                EXPECT_TRUE(below == black || below == white) << x << ", " << y;
            }
    EXPECT_LT(0, letters);
}

TEST_F(get_events, AHandlerMayLetMessagesThroughInsideAPaint) {
    field->Text(u"abc");
    field->BotonCombo(true);
    show();
    const auto plain = desk.look(field->hWnd());
    field->UserDrawnMode(tslCtlUserDrawnMode_Background);
    int paints = 0;
    field->PaintBackground.join([&](automation::Ref<cCanvas>&) {
        ++paints;
        platform::InvalidateRect(field->hWnd(), nullptr, 0);
        platform::UpdateWindow(field->hWnd());
    });
    field->Render();
    EXPECT_EQ(1, paints);
    EXPECT_EQ(plain, desk.look(field->hWnd()));
}

TEST_F(get_events, AGaugeOfAHandlerBelongsToThePictureUnderWay) {
    field->Text({});
    show();
    field->PaintGauge(1, 2);
    const auto gauge = desk.look(field->hWnd());
    field->Render();
    EXPECT_NE(gauge, desk.look(field->hWnd()));
    field->UserDrawn.join([this](automation::Ref<cCanvas>&) { field->PaintGauge(1, 2); });
    field->UserDrawnMode(tslCtlUserDrawnMode_Foreground);
    EXPECT_EQ(gauge, desk.look(field->hWnd()));
}

TEST_F(get_events, LongTextsEndWhereTheButtonsBegin) {
    field->BotonCombo(true);
    field->Text({});
    show();
    const auto empty = desk.look(field->hWnd());
    field->Text(automation::String::repeat(u'W', 60));
    const auto full = desk.look(field->hWnd());
    int differing = 0;
    for (int y = 0; y < full.height; ++y) {
        for (int x = 0; x < full.width; ++x) {
            const bool differs = full.at(x, y) != empty.at(x, y);
            differing += differs;
            const bool behindText = x > full.width - 3 - field->ButtonWidth() - 1;
            EXPECT_FALSE(differs && behindText) << x << ", " << y;
        }
    }
    EXPECT_GT(differing, 0);
}

TEST_F(get_events, UpAndDownWalkThroughLinesThatEndInLineFeeds) {
    field->MultiLine(true);
    field->Height(1000);
    field->Text(u"uno\ndos\n");
    enter();
    for (const int place : {4, 8}) {
        press(platform::VK_DOWN);
        EXPECT_EQ(field->caretPosition(), place);
    }
    for (const int place : {4, 0}) {
        press(platform::VK_UP);
        EXPECT_EQ(field->caretPosition(), place);
    }
    click(width() - 8);
    EXPECT_EQ(field->caretPosition(), 3) << "behind the last letter of its line";
    press(platform::VK_END);
    press(platform::VK_DOWN);
    EXPECT_TRUE(after->HasFocus()) << "below the last line comes the next field";
}

/// A long text is painted and found only as far as it shows; a shorter one as a whole.
TEST_F(get_events, ALongTextLooksAsAShorterOneThatShowsTheSame) {
    constexpr std::size_t shorter = 1000, longer = 1800; // their middles and ends are the same words
    const auto text = [](std::size_t length) {
        std::u16string letters;
        while (letters.size() < length)
            letters += u"mil ";
        return automation::String(letters.substr(0, length));
    };
    const auto expectTheSame = [&](const char* what, const auto& prepare) {
        SCOPED_TRACE(what);
        field->Text(text(shorter));
        prepare();
        const auto shown = desk.look(field->hWnd());
        field->Text(text(longer));
        prepare();
        EXPECT_EQ(desk.look(field->hWnd()), shown);
    };
    show();
    expectTheSame("its beginning", [] {});
    field->Alignment(tslAlignmentRightJustify);
    expectTheSame("its end", [] {});
    field->Alignment(tslAlignmentCenter);
    expectTheSame("its middle", [] {});
    enter();
    expectTheSame("the caret at its end", [&] { press(platform::VK_END); });
    expectTheSame("selected letters at its end", [&] {
        press(platform::VK_END);
        for (int i = 0; i < 5; ++i)
            press(platform::VK_SHIFT, platform::VK_LEFT);
    });
    const auto clickedFromTheEnd = [&](int x) {
        press(platform::VK_END);
        click(x);
        return static_cast<int>(field->Text().length()) - field->caretPosition();
    };
    for (const int x : {5, 33, 80, 121}) {
        field->Text(text(shorter));
        const auto place = clickedFromTheEnd(x);
        field->Text(text(longer));
        EXPECT_EQ(clickedFromTheEnd(x), place) << x;
        EXPECT_GT(place, 0);
    }
}

TEST_F(get_events, AGreyedIconBelongsToTheHeightOfItsButton) {
    field->AutoSize(tslAutoSize_NO);
    field->ButtonWidth(34);
    field->BotonBuscar(true);
    field->EnabledBuscar(false);
    field->Height(300);
    show();
    after->Extender().Move(4500, 300, 3000, 300);
    field->Height(900);
    const auto grown = desk.look(field->hWnd());
    after->AutoSize(tslAutoSize_NO);
    after->ButtonWidth(34);
    after->BotonBuscar(true);
    after->EnabledBuscar(false);
    after->Extender().Move(4500, 300, 3000, 900);
    EXPECT_EQ(grown, desk.look(after->hWnd())) << "as if it had been so high from the beginning";
}
